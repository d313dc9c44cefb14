// SPDX-License-Identifier: MIT
// A value goes away and comes back under fifty axes and markers, as another type each time. Each of those that are
// bound lets go once, keeps what it had, hears nothing more, and follows the new value only after its path was set
// again.

#include "axisprobe.h"
#include "testmarkerlist.h"

#include "marker.h"
#include "testmain.h"
#include "valuelist.h"
#include "valueselection.h"

#include <QFile>

#include <unistd.h>

#include <cstdio>
#include <functional>
#include <memory>
#include <random>

namespace {

constexpr int Axes = 38;
constexpr int Markers = 12;
constexpr int All = Axes + Markers;

QString const Path = QStringLiteral("/flap/value");

//! What the value is when it comes back.
enum EKind
{
    eNumber,
    eText,
    eChoice,
    eList,
    eFlag,
    eWhole,
    eKinds
};

//! Kinds that a watcher takes.
constexpr unsigned int Only(EKind kind) { return 1U << kind; }

constexpr unsigned int AnyKind = (1U << eKinds) - 1;

struct Heard
{
    int changes = 0;
    int farewells = 0;

    void Take(Observable * source, TChangeCode code)
    {
        auto const * const value = dynamic_cast<ValueBase *>(source);
        changes += code == eValueChanged || code == eItemsChanged ? 1 : 0; // the latter from a list
        farewells += code == eStateChanged && value && value->GetState() == eStateGoingAway ? 1 : 0;
    }

    bool operator==(Heard const & other) const { return changes == other.changes && farewells == other.farewells; }
};

class FlapAxis : public AxisProbe
{
public:
    Heard m_heard;

    void Update(Observable * source, TChangeCode code) override
    {
        m_heard.Take(source, code);
        AxisProbe::Update(source, code);
    }
};

class FlapMarker : public Marker
{
public:
    Heard m_heard;

    void Update(Observable * source, TChangeCode code) override
    {
        m_heard.Take(source, code);
        Marker::Update(source, code);
    }
};

//! One of the fifty, and what is known of it.
struct Watcher
{
    std::function<bool()> bind;
    std::function<bool()> isBound;
    std::function<double()> shown; // what it took from the value
    Heard const * heard;
    unsigned int kinds;
    bool bound = false;
    double kept = 0.0;
};

//! Memory of this process that is in use, KiB.
long long ResidentSize()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE) / 1024;
}

ValueBase * Make(EKind kind)
{
    QString const name = QStringLiteral("value");
    if (kind == eNumber)
        return new ValueNumeric<double>(name);
    if (kind == eText)
        return new Value<QString>(name);
    if (kind == eList)
        return new ValueList<BearingResult>(name);
    if (kind == eFlag)
        return new Value<bool>(name);
    if (kind == eWhole)
        return new ValueNumeric<int>(name);
    auto * const choice = new ValueSelection(name);
    for (long const key : { 0L, 1L, 2L, 3L, 4L, 5L, 6L, 7L })
        choice->AddItem({ QString::number(key), static_cast<double>(key), key });
    return choice;
}

//! Changes the value. \return what a watcher shows then.
double Change(ValueBase * value, EKind kind, int turn)
{
    double const content = 1.0 + turn % 7;
    if (kind == eNumber)
        static_cast<ValueNumeric<double> *>(value)->SetValue(content, nullptr);
    else if (kind == eText)
        static_cast<Value<QString> *>(value)->SetValue(QString::number(turn), nullptr);
    else if (kind == eChoice)
        static_cast<ValueSelection *>(value)->Select(static_cast<long>(content), nullptr);
    else if (kind == eFlag)
        static_cast<Value<bool> *>(value)->SetValue(true, nullptr);
    else if (kind == eWhole)
        static_cast<ValueNumeric<int> *>(value)->SetValue(static_cast<int>(content), nullptr);
    else
        static_cast<ValueList<BearingResult> *>(value)->Append(BearingResult());
    return content;
}

using Operation = bool (AxisBase::*)(QString const &);

} // namespace

class tst_axis_flapping : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void flaps();
    void cleanupTestCase();

private:
    void AddAxis(int index);
    void AddMarker();
    void Bind(Watcher & watcher, EKind kind);
    bool Flap(int turn);
    bool Check(char const * what, int turn);

    TestMarkerList m_list;
    std::vector<std::unique_ptr<FlapAxis>> m_axes;
    std::vector<std::unique_ptr<FlapMarker>> m_markers;
    std::vector<Watcher> m_watchers;
    std::vector<Heard> m_expected;
    std::mt19937_64 m_random{ TestStage::Seed() };
    long long m_flaps = 0;
    long long m_bindings = 0;
    long long m_farewells = 0;
    long long m_growth = 0;
};

void tst_axis_flapping::AddAxis(int index)
{
    struct Row
    {
        Operation bind;
        ValueBase * (*held)(FlapAxis const &);
        double (*shown)(FlapAxis const &);
        unsigned int kinds;
    };

    static auto const nothing = [](FlapAxis const &) { return 0.0; };
    static Row const rows[] = {
        { &AxisBase::SetStart_ValuePath, [](FlapAxis const & axis) -> ValueBase * { return axis.m_pStart; },
          [](FlapAxis const & axis) { return axis.m_start; }, Only(eNumber) },
        { &AxisBase::SetStop_ValuePath, [](FlapAxis const & axis) -> ValueBase * { return axis.m_pStop; },
          [](FlapAxis const & axis) { return axis.m_stop; }, Only(eNumber) },
        { &AxisBase::SetPixPerSecond_ValuePath,
          [](FlapAxis const & axis) -> ValueBase * { return axis.m_pPixPerSecondValue; },
          [](FlapAxis const & axis) { return axis.m_pixPerSecond; }, Only(eNumber) },
        { &AxisBase::SetOffset_ValuePath,
          [](FlapAxis const & axis) -> ValueBase * {
              if (axis.m_pOffset)
                  return axis.m_pOffset;
              return axis.m_pOffset2;
          },
          [](FlapAxis const & axis) { return axis.m_offset; }, Only(eNumber) | Only(eWhole) },
        { &AxisBase::SetCenter_ValuePath, [](FlapAxis const & axis) -> ValueBase * { return axis.m_pCenter; }, nothing,
          Only(eNumber) },
        { &AxisBase::SetHalfWidth_ValuePath, [](FlapAxis const & axis) -> ValueBase * { return axis.m_pHalfWidth; },
          nothing, Only(eNumber) },
        { &AxisBase::SetDeviceStart_ValuePath, [](FlapAxis const & axis) -> ValueBase * { return axis.m_pDeviceStart; },
          nothing, Only(eNumber) },
        { &AxisBase::SetDeviceStop_ValuePath, [](FlapAxis const & axis) -> ValueBase * { return axis.m_pDeviceStop; },
          nothing, Only(eNumber) },
        { &AxisBase::SetDefaultStart_ValuePath,
          [](FlapAxis const & axis) -> ValueBase * { return axis.m_pDefaultStart; }, nothing, Only(eNumber) },
        { &AxisBase::SetDefaultStop_ValuePath, [](FlapAxis const & axis) -> ValueBase * { return axis.m_pDefaultStop; },
          nothing, Only(eNumber) },
        { &AxisBase::SetAutoScale_ValuePath, [](FlapAxis const & axis) -> ValueBase * { return axis.m_pAutoScale; },
          nothing, Only(eFlag) },
        { &AxisBase::SetShadingColor_ValuePath,
          [](FlapAxis const & axis) -> ValueBase * { return axis.m_pShadingColor; },
          [](FlapAxis const & axis) { return static_cast<double>(axis.m_shadingColor); }, Only(eChoice) },
        { &AxisBase::SetDisplayAzimuth_ValuePath,
          [](FlapAxis const & axis) -> ValueBase * { return axis.m_pDisplayAzimuth; }, nothing, Only(eChoice) },
    };
    m_axes.push_back(std::make_unique<FlapAxis>());
    FlapAxis * const axis = m_axes.back().get();
    std::size_t const which = static_cast<std::size_t>(index) % (std::size(rows) + 1);
    if (which == std::size(rows)) {
        m_watchers.push_back({ [axis] { return axis->SetForceRebuild_ValuePath(Path, 1); },
                               [axis] { return axis->m_forceRebuild[1] != nullptr; }, [] { return 0.0; },
                               &axis->m_heard, AnyKind });
        return;
    }
    Row const row = rows[which];
    m_watchers.push_back({ [axis, row] { return (axis->*row.bind)(Path); },
                           [axis, row] { return row.held(*axis) != nullptr; }, [axis, row] { return row.shown(*axis); },
                           &axis->m_heard, row.kinds });
}

void tst_axis_flapping::AddMarker()
{
    m_markers.push_back(std::make_unique<FlapMarker>());
    FlapMarker * const marker = m_markers.back().get();
    marker->SetParent(&m_list);
    m_watchers.push_back({ [marker] { return marker->Set_ValuePath(Path); },
                           [marker] { return marker->GetConnected(); }, [marker] { return marker->GetValue(); },
                           &marker->m_heard, Only(eNumber) | Only(eWhole) });
}

void tst_axis_flapping::initTestCase()
{
    m_list.show(); // a marker follows while its list is visible
    for (int index = 0; index < Axes; ++index)
        AddAxis(index);
    for (int index = 0; index < Markers; ++index)
        AddMarker();
    QCOMPARE(static_cast<int>(m_watchers.size()), All);
}

//! Sets the path of a watcher; a value of another type is none.
void tst_axis_flapping::Bind(Watcher & watcher, EKind kind)
{
    watcher.bound = watcher.bind() && (watcher.kinds & Only(kind)) != 0;
    ++m_bindings;
}

//! Whether all have heard what they were to hear, are bound as they are to be, and show what they are to show.
bool tst_axis_flapping::Check(char const * what, int turn)
{
    for (std::size_t i = 0; i < m_watchers.size(); ++i) {
        Watcher const & watcher = m_watchers[i];
        bool const isRight = *watcher.heard == m_expected[i] && watcher.isBound() == watcher.bound &&
                             (watcher.bound || watcher.shown() == watcher.kept);
        if (isRight)
            continue;
        std::printf("watcher %d, turn %d, %s: heard %d changes and %d farewells\n", static_cast<int>(i), turn, what,
                    watcher.heard->changes, watcher.heard->farewells);
        return false;
    }
    return true;
}

bool tst_axis_flapping::Flap(int turn)
{
    auto const kind = static_cast<EKind>(turn % eKinds);
    ValueBase * const value = Make(kind);
    if (!Tree::Instance()->Insert(QStringLiteral("/flap"), value) || !Check("nothing binds by itself", turn))
        return false;
    bool const bindAll = turn % 1000 == 0;
    for (int i = 0; i < (bindAll ? All : 2); ++i)
        Bind(m_watchers[bindAll ? static_cast<std::size_t>(i) : m_random() % All], kind);
    for (std::size_t i = 0; i < m_watchers.size(); ++i)
        m_expected[i] = *m_watchers[i].heard; // the binding told them

    double const content = Change(value, kind, turn);
    for (std::size_t i = 0; i < m_watchers.size(); ++i)
        m_expected[i].changes += m_watchers[i].bound ? 1 : 0;
    if (!Check("changed", turn))
        return false;
    for (Watcher & watcher : m_watchers) {
        double const shown = watcher.shown();
        if (watcher.bound && shown != 0.0 && shown != content)
            return false;
        watcher.kept = shown;
    }
    Tree::Instance()->Remove(Path);
    for (std::size_t i = 0; i < m_watchers.size(); ++i) {
        m_expected[i].farewells += m_watchers[i].bound ? 1 : 0;
        m_farewells += m_watchers[i].bound ? 1 : 0;
        m_watchers[i].bound = false;
    }
    ++m_flaps;
    return Check("went away", turn);
}

void tst_axis_flapping::flaps()
{
    m_expected.resize(m_watchers.size());
    int const turns = static_cast<int>(TestStage::Turns(TestStage::Sanitized() ? 20'000 : 100'000, 10'000'000));
    long long warm = 0;
    for (int turn = 0; turn < turns; ++turn) {
        QVERIFY(Flap(turn));
        if (turn % 1000 == 0) {
            QCoreApplication::sendPostedEvents(nullptr, 0);
            m_list.Forget(); // what the list writes down for other tests
        }
        if (turn == turns / 4)
            warm = ResidentSize();
    }
    m_growth = ResidentSize() - warm;
    if (!TestStage::Sanitized()) // which keeps what was freed for a while
        QVERIFY(m_growth <= 256);
    QVERIFY(m_farewells > m_flaps / 4);
}

void tst_axis_flapping::cleanupTestCase()
{
    std::printf("figures: %lld flaps under %d axes and markers, %lld bindings, %lld let go, seed %llu, %lld KiB more\n",
                m_flaps, All, m_bindings, m_farewells, TestStage::Seed(), m_growth);
}

ORIM_TEST_MAIN(tst_axis_flapping)
#include "tst_axis_flapping.moc"
