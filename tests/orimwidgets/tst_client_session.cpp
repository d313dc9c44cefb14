// SPDX-License-Identifier: MIT
// A session of some hundred steps on an axis with six client windows and result markers. After each (every seventh in
// the short form) of the events and notifications that it causes, one at a time, the axis, its parent, its windows, one
// of the values or a marker is deleted, and the session goes on with what is left. Qt does not outlive a widget that
// ends while it is shown, resized or painted: then the widget goes right afterwards.

#include "axisbase.h"
#include "clientwindow.h"
#include "clientwindowvector.h"
#include "guibase.h"
#include "resultmarker.h"
#include "resultmarkerlist.h"
#include "resultscene.h"
#include "testmain.h"

#include <QElapsedTimer>
#include <QImage>
#include <QPainter>
#include <QPointer>
#include <QTimerEvent>

#include <array>
#include <cstdio>
#include <memory>

namespace {

enum ETarget
{
    eStart,
    eStop,
    eVisible,
    eFocus,
    eText,
    eResults,
    eSelector,
    eAxis,
    eParent,
    eWindows,
    eMarker,
    eTargets
};

constexpr std::array<char const *, eTargets> Names{ { "start", "stop", "visible", "focus", "text", "results",
                                                      "selector", "axis", "parent", "windows", "marker" } };

QString PathOf(int target)
{
    return QStringLiteral("/session/") + QLatin1String(Names[static_cast<std::size_t>(target)]);
}

template <class T>
T * ValueOf(ETarget target)
{
    return Tree::Instance()->FindAs<T>(PathOf(target));
}

//! An axis that draws its own window and five others.
class Pane : public AxisBase
{
public:
    explicit Pane(QWidget * parent) : AxisBase(parent, "axis", AxisHorizontal) {}

    std::unique_ptr<ClientWindowVector> m_pWindows = std::make_unique<ClientWindowVector>(this, eMarkerX);

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        CreateClientWindow()->DrawFrame(2, 18, IColorBase::eColorClientFirst, &painter);
        for (int i = 0; m_pWindows && i < ClientWindowVector::WindowCount; ++i)
            m_pWindows->GetWindow(i)->DrawFrame(0, 20, IColorBase::eColorClientSecond, &painter);
        for (Marker * const marker : GetShownMarkers())
            painter.fillRect(QRect(ValueToPixel(marker->GetValue()), 0, 1, 20), *marker->GetBrush());
    }
};

class Session : public QObject, public IObserver
{
public:
    //! \param target, when  what to delete after which event; -1 for never.
    Session(int target, int when) : m_target(target), m_when(when), m_pParent(new QWidget)
    {
        Plant();
        m_pParent->resize(300, 60);
        m_pPane = new Pane(m_pParent);
        m_pPane->resize(101, 20);
        m_pPane->SetRange(0.0, 100.0);
        m_pPane->SetRepairDelay(0);
        m_pPane->installEventFilter(this);
        connect(m_pPane, &MarkerList::signalSetState, m_pPane, &MarkerList::slotSetState);
        connect(m_pPane, &MarkerList::signalSetState, this, &Session::Count);
        m_pPane->CreateResultMarkerList(33, false, IColorBase::eColorResult, true, eSpecialResult | eSpecialX,
                                        QStringLiteral("Result %1"));
        Bind(0);
    }

    ~Session() override
    {
        delete m_pParent;
        Tree::Instance()->RemoveFolder(QStringLiteral("/session"));
    }

    //! \return how many events there were.
    int Run();

    bool eventFilter(QObject * /*watched*/, QEvent * /*event*/) override
    {
        Count();
        return !m_pPane; // the event has nobody to go to any more
    }

    void Update(Observable * /*subject*/, TChangeCode code) override
    {
        if (code != eStateChanged)
            Count();
    }

private:
    void Plant();
    void Bind(int round);
    void BindWindow(ClientWindow * window, unsigned int startId);
    void Count();
    void Delete();
    void Step(int step, int round);
    void StepOfValues(int step, int round);
    void StepOfWindows(int step, int round);

    ClientWindow * Window(int round) const
    {
        return m_pPane && m_pPane->m_pWindows && round % 2 == 0 ? m_pPane->m_pWindows->GetWindow(round)
               : m_pPane                                        ? m_pPane->CreateClientWindow()
                                                                : nullptr;
    }

    ClientWindowVector * Windows() const { return m_pPane ? m_pPane->m_pWindows.get() : nullptr; }

    int m_target;
    int m_when;
    int m_count = 0;
    bool m_isInQt = false;
    bool m_isDue = false;
    QPointer<QWidget> m_pParent;
    QPointer<Pane> m_pPane;
};

//! Each value has an observer that hears first, and two of them one that hears last.
void Session::Plant()
{
    auto const insert = [this](ValueBase * value) {
        value->AddObserver(this);
        Tree::Instance()->Insert(QStringLiteral("/session"), value);
    };
    for (int const target : { eStart, eStop })
        insert(new ValueNumeric<double>(QLatin1String(Names[static_cast<std::size_t>(target)])));
    for (int const target : { eVisible, eFocus })
        insert(new Value<bool>(QLatin1String(Names[static_cast<std::size_t>(target)])));
    insert(new Value<QString>(QLatin1String(Names[eText])));
    insert(new ResultList(QLatin1String(Names[eResults])));
    insert(new ValueNumeric<int>(QLatin1String(Names[eSelector])));
}

void Session::BindWindow(ClientWindow * window, unsigned int startId)
{
    LifeWatch const life(window->GetObserverLifetime());
    window->SetStart_ValuePath(PathOf(eStart), startId);
    if (!life.IsOver())
        window->SetStop_ValuePath(PathOf(eStop), startId + 1);
    if (!life.IsOver())
        window->SetVisible_ValuePath(PathOf(eVisible));
    if (!life.IsOver())
        window->SetHasFocus_ValuePath(PathOf(eFocus));
    if (!life.IsOver())
        window->SetText_ValuePath(PathOf(eText));
}

void Session::Bind(int round)
{
    if (m_pPane)
        m_pPane->SetButtonStart_ValuePath(PathOf(eStart));
    if (m_pPane)
        m_pPane->SetButtonStop_ValuePath(PathOf(eStop));
    if (m_pPane)
        BindWindow(m_pPane->CreateClientWindow(), 16);
    for (int i = 0; Windows() && i < ClientWindowVector::WindowCount; ++i)
        BindWindow(Windows()->GetWindow(i), static_cast<unsigned int>(18 + 2 * i));
    if (m_pPane)
        m_pPane->GetResultMarkerList()->Set_ValuePath(PathOf(eResults));
    if (m_pPane)
        m_pPane->GetResultMarkerList()->SetSelector_ValuePath(PathOf(eSelector));
    if (auto * const list = round % 2 == 1 ? ValueOf<ResultList>(eResults) : nullptr) {
        list->DeleteObserver(this); // now it hears last
        list->AddObserver(this);
    }
    if (auto * const visible = round % 2 == 1 ? ValueOf<Value<bool>>(eVisible) : nullptr) {
        visible->DeleteObserver(this);
        visible->AddObserver(this);
    }
}

void Session::Count()
{
    if (m_count++ != m_when)
        return;
    if (m_isInQt && (m_target == eAxis || m_target == eParent))
        m_isDue = true;
    else
        Delete();
}

void Session::Delete()
{
    m_isDue = false;
    if (m_target == eAxis)
        delete m_pPane.data();
    else if (m_target == eParent)
        delete m_pParent.data();
    else if (m_target == eWindows && m_pPane)
        m_pPane->m_pWindows.reset();
    else if (m_target == eMarker && m_pPane) {
        for (int const id : { 16, 17, 18, 33, 34 })
            m_pPane->DeleteMarker(id);
        m_pPane->RebuildMarkerList();
    } else if (m_target < eAxis)
        Tree::Instance()->Remove(PathOf(m_target));
}

void Session::StepOfValues(int step, int round)
{
    if (auto * const number = step <= 3 ? ValueOf<ValueNumeric<double>>(step % 2 == 0 ? eStart : eStop) : nullptr) {
        if (step < 2)
            number->SetValue(10.0 * round + 30 * step, nullptr);
        else
            number->SetInterimValue(200.0 - 50 * round, nullptr);
    }
    if (auto * const flag = step == 4   ? ValueOf<Value<bool>>(eVisible)
                            : step == 5 ? ValueOf<Value<bool>>(eFocus)
                                        : nullptr)
        flag->SetValue(round % 2 == 0, nullptr);
    if (auto * const text = step == 6 ? ValueOf<Value<QString>>(eText) : nullptr)
        text->SetValue(QString::number(round), nullptr);
    if (auto * const list = step == 7 ? ValueOf<ResultList>(eResults) : nullptr)
        list->SetEntries(Results(round * 3 % 11), nullptr);
    if (auto * const selector = step == 8 ? ValueOf<ValueNumeric<int>>(eSelector) : nullptr)
        selector->SetValue(round, nullptr);
    if (auto * const list = step == 9 ? ValueOf<ResultList>(eResults) : nullptr)
        list->Append(ResultFrom(5.0));
}

void Session::StepOfWindows(int step, int round)
{
    ClientWindow * const window = Window(round);
    if (!window)
        return;
    switch (step) {
    case 10:
        return window->SetStartStop(90.0 - 20 * round, 95.0, round % 2 == 0);
    case 11:
        return window->MovePixelOffset(15 * round - 20);
    case 12:
        return window->Show(round % 3 != 0);
    case 13:
        return window->SwitchBorders();
    case 14:
        return window->SetFocus(round % 2 == 1);
    case 15:
        return window->SetText(QStringLiteral("text %1").arg(round));
    case 16:
        return Windows() ? Windows()->SetFocus(round - 1) : void();
    case 17:
        return Windows() ? Windows()->HideAll() : void();
    case 18:
        return Windows() ? Windows()->RecalcBorders() : void();
    default:
        return m_pPane->GetResultMarkerList()->Resize(9 - 2 * round);
    }
}

void Session::Step(int step, int round)
{
    if (step < 10)
        return StepOfValues(step, round);
    if (step < 20)
        return StepOfWindows(step, round);
    if (!m_pPane)
        return;
    if (step == 20)
        Bind(round);
    else if (step == 21)
        m_pPane->SetRange(10.0 * round, 100.0);
    else if (step == 22)
        GuiBase::Instance().emit_signalColorsChanged();
    else if (step == 23)
        m_pPane->resize(101 - round, 20);
    else if (step == 24)
        round == 1 ? m_pParent->hide() : m_pParent->show();
    else {
        QImage image(101, 20, QImage::Format_RGB32);
        m_pPane->render(&image);
    }
}

int Session::Run()
{
    for (int round = 0; round < 5; ++round)
        for (int step = 0; step < 26; ++step) {
            m_isInQt = step >= 22;
            Step(step, round);
            m_isInQt = false;
            if (m_isDue)
                Delete();
            Count();
            m_isInQt = true;
            QCoreApplication::sendPostedEvents(nullptr, 0);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    return m_count;
}

} // namespace

class tst_client_session : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { m_time.start(); }

    void deletedAfterEachEvent_data();
    void deletedAfterEachEvent();
    void cleanupTestCase();

private:
    long long m_sessions = 0;
    QElapsedTimer m_time;
};

void tst_client_session::deletedAfterEachEvent_data()
{
    QTest::addColumn<int>("target");
    for (int target = 0; target < eTargets; ++target)
        QTest::newRow(Names[static_cast<std::size_t>(target)]) << target;
}

void tst_client_session::deletedAfterEachEvent()
{
    QFETCH(int, target);
    int const events = Session(target, -1).Run();
    QVERIFY(events > 300);
    int const stride = static_cast<int>(TestStage::Turns(7, 1)); // each target takes other ones
    for (int when = target % stride; when < events; when += stride) {
        Session(target, when).Run();
        ++m_sessions;
        QVERIFY(Tree::Instance()->GetPaths(QStringLiteral("/session")).isEmpty());
    }
}

void tst_client_session::cleanupTestCase()
{
    std::printf("figures: client windows and result markers: %lld sessions, each with one deletion, %lld ms\n",
                m_sessions, static_cast<long long>(m_time.elapsed()));
}

ORIM_TEST_MAIN(tst_client_session)
#include "tst_client_session.moc"
