// SPDX-License-Identifier: MIT
#include "vcscrollbuttons.h"

#include "boundvalue.h"

#include "testmain.h"

#include <QToolButton>
#include <QUndoStack>

#include <cfloat>
#include <climits>
#include <type_traits>

namespace {

static_assert(std::is_base_of<QWidget, VCScrollButtons>::value);
static_assert(std::is_base_of<IObserver, VCScrollButtons>::value);
static_assert(std::is_base_of<UndoRecordingControlBase, VCScrollButtons>::value);

QString const Path = QStringLiteral("/scroll/value");

template <class T>
ValueNumeric<T> * InsertNumber(T min, T max, T step, T value)
{
    auto * const number = new ValueNumeric<T>(QStringLiteral("value"));
    number->SetMinMax(min, max, step, nullptr);
    number->SetValue(value, nullptr);
    Tree::Instance()->Insert(QStringLiteral("/scroll"), number);
    return number;
}

struct Stage
{
    explicit Stage(Qt::Orientation orientation = Qt::Horizontal) : buttons(nullptr, "scroll", orientation)
    {
        down = buttons.findChild<QToolButton *>(QStringLiteral("down"));
        up = buttons.findChild<QToolButton *>(QStringLiteral("up"));
        buttons.resize(60, 60);
        buttons.show();
    }

    VCScrollButtons buttons;
    QToolButton * down;
    QToolButton * up;
};

} // namespace

class tst_VCScrollButtons : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void init() { Undo().clear(); }

    void cleanup() { Tree::Instance()->RemoveFolder(QStringLiteral("/scroll")); }

    void construction_data();
    void construction();
    void bindingByPath_data();
    void bindingByPath();
    void step_data();
    void step();
    void stepOfDoubles_data();
    void stepOfDoubles();
    void stepOfLongNumbers_data();
    void stepOfLongNumbers();
    void limitsSwitchTheButtons();
    void limitsOfLongNumbers();
    void notToldOfItsOwnWrite();
    void heldButtonGoesOn();
    void undoRestores();
    void valueGoesAway();
    void valueEndsUnheard();
    void valueGoesAwayInTheWrite();
    void buttonsDieInTheWrite();
    void unboundDoesNothing();
    void strangersAreIgnored();
};

void tst_VCScrollButtons::construction_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<Qt::ArrowType>("down");
    QTest::addColumn<Qt::ArrowType>("up");
    QTest::newRow("horizontal") << Qt::Horizontal << Qt::LeftArrow << Qt::RightArrow;
    QTest::newRow("vertical") << Qt::Vertical << Qt::DownArrow << Qt::UpArrow;
}

void tst_VCScrollButtons::construction()
{
    QFETCH(Qt::Orientation, orientation);
    QFETCH(Qt::ArrowType, down);
    QFETCH(Qt::ArrowType, up);
    Stage const stage(orientation);
    QCOMPARE(stage.buttons.objectName(), QStringLiteral("scroll"));
    QCOMPARE(stage.down->arrowType(), down);
    QCOMPARE(stage.up->arrowType(), up);
    QVERIFY(!stage.down->isEnabled());
    QVERIFY(!stage.up->isEnabled());
    if (orientation == Qt::Horizontal)
        QVERIFY(stage.down->x() < stage.up->x());
    else
        QVERIFY(stage.down->y() > stage.up->y());
}

void tst_VCScrollButtons::bindingByPath_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("found");
    QTest::newRow("known") << Path << true;
    QTest::newRow("unknown") << QStringLiteral("/scroll/other") << false;
    QTest::newRow("empty") << QString() << false;
    QTest::newRow("a text is no number") << QStringLiteral("/scroll/text") << false;
}

void tst_VCScrollButtons::bindingByPath()
{
    QFETCH(QString, path);
    QFETCH(bool, found);
    Tree::Instance()->Insert(QStringLiteral("/scroll"), new Value<QString>(QStringLiteral("text")));
    auto const * const value = InsertNumber<int>(0, 10, 1, 5);
    Stage stage;
    QVERIFY(stage.buttons.Set_ValuePath(Path));
    QCOMPARE(stage.buttons.Set_ValuePath(path), found);
    QCOMPARE(value->HasObserver(&stage.buttons), found);
    QCOMPARE(stage.up->isEnabled(), found);
    QCOMPARE(stage.down->isEnabled(), found);
}

void tst_VCScrollButtons::step_data()
{
    QTest::addColumn<int>("min");
    QTest::addColumn<int>("max");
    QTest::addColumn<int>("step");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("lower");
    QTest::addColumn<int>("higher");
    QTest::newRow("the step of the value") << 0 << 100 << 5 << 50 << 45 << 55;
    QTest::newRow("a hundredth of the range") << 0 << 1000 << 0 << 500 << 490 << 510;
    QTest::newRow("at least 1") << 0 << 50 << 0 << 25 << 24 << 26;
    QTest::newRow("1 in an endless range") << INT_MIN << INT_MAX << 0 << 0 << -1 << 1;
    QTest::newRow("no further than the limits") << 0 << 100 << 60 << 60 << 0 << 60;
    QTest::newRow("at the ends of int") << INT_MIN << INT_MAX << 0 << INT_MAX << INT_MAX - 1 << INT_MAX;
}

void tst_VCScrollButtons::step()
{
    QFETCH(int, min);
    QFETCH(int, max);
    QFETCH(int, step);
    QFETCH(int, value);
    QFETCH(int, lower);
    QFETCH(int, higher);
    auto * const number = InsertNumber<int>(min, max, step, value);
    Stage stage;
    stage.buttons.Set_ValuePath(Path);
    QTest::mouseClick(stage.down, Qt::LeftButton);
    QCOMPARE(number->GetValue(), lower);
    number->SetValue(value, nullptr);
    QTest::mouseClick(stage.up, Qt::LeftButton);
    QCOMPARE(number->GetValue(), higher);
}

void tst_VCScrollButtons::stepOfDoubles_data()
{
    QTest::addColumn<double>("min");
    QTest::addColumn<double>("max");
    QTest::addColumn<double>("step");
    QTest::addColumn<double>("wanted");
    QTest::newRow("the step of the value") << 0.0 << 1.0 << 0.25 << 0.25;
    QTest::newRow("a hundredth of the range") << 0.0 << 5.0 << 0.0 << 0.05;
    QTest::newRow("a large range") << 0.0 << 3e9 << 0.0 << 3e7;
    QTest::newRow("1 in an endless range") << -DBL_MAX << DBL_MAX << 0.0 << 1.0;
    QTest::newRow("1 with the largest double as maximum") << 0.0 << DBL_MAX << 0.0 << 1.0;
    QTest::newRow("1 in an empty range") << 2.0 << 2.0 << 0.0 << 1.0;
}

void tst_VCScrollButtons::stepOfDoubles()
{
    QFETCH(double, min);
    QFETCH(double, max);
    QFETCH(double, step);
    QFETCH(double, wanted);
    InsertNumber<double>(min, max, step, min);
    Stage stage;
    stage.buttons.Set_ValuePath(Path);
    QCOMPARE(stage.buttons.GetStep(), wanted);
}

void tst_VCScrollButtons::stepOfLongNumbers_data()
{
    QTest::addColumn<qlonglong>("min");
    QTest::addColumn<qlonglong>("max");
    QTest::addColumn<qlonglong>("step");
    QTest::addColumn<qlonglong>("value");
    QTest::addColumn<qlonglong>("lower");
    QTest::addColumn<qlonglong>("higher");
    qlonglong const odd = 9007199254740993LL; // 2^53 + 1 is no double
    qlonglong const huge = 1LL << 62;
    QTest::newRow("a number that is no double") << 0LL << LLONG_MAX << 1LL << odd << odd - 1 << odd + 1;
    QTest::newRow("without a step") << LLONG_MIN << LLONG_MAX << 0LL << odd << odd - 1 << odd + 1;
    QTest::newRow("a hundredth of the range") << odd << odd + 1000 << 0LL << odd + 500 << odd + 490 << odd + 510;
    QTest::newRow("at the highest") << LLONG_MIN << LLONG_MAX << 0LL << LLONG_MAX << LLONG_MAX - 1 << LLONG_MAX;
    QTest::newRow("at the lowest") << LLONG_MIN << LLONG_MAX << 0LL << LLONG_MIN << LLONG_MIN << LLONG_MIN + 1;
    QTest::newRow("past the highest") << 0LL << LLONG_MAX << huge << huge << 0LL << huge;
    QTest::newRow("past the lowest") << LLONG_MIN + 1 << 0LL << huge << LLONG_MIN + 1 << LLONG_MIN + 1 << 1 - huge;
    QTest::newRow("no further than the limits") << 0LL << 100LL << 60LL << 60LL << 0LL << 60LL;
}

void tst_VCScrollButtons::stepOfLongNumbers()
{
    QFETCH(qlonglong, min);
    QFETCH(qlonglong, max);
    QFETCH(qlonglong, step);
    QFETCH(qlonglong, value);
    QFETCH(qlonglong, lower);
    QFETCH(qlonglong, higher);
    auto * const number = InsertNumber<long long>(min, max, step, value);
    QCOMPARE(number->GetValue(), value);
    VCScrollButtons buttons;
    buttons.Set_ValuePath(Path);
    buttons.slotStepDown();
    QCOMPARE(number->GetValue(), lower);
    number->SetValue(value, nullptr);
    buttons.slotStepUp();
    QCOMPARE(number->GetValue(), higher);
}

void tst_VCScrollButtons::limitsOfLongNumbers()
{
    auto * const number = InsertNumber<long long>(LLONG_MIN, LLONG_MAX, 0, LLONG_MAX - 1);
    Stage stage;
    stage.buttons.Set_ValuePath(Path);
    QVERIFY(stage.up->isEnabled());
    QTest::mouseClick(stage.up, Qt::LeftButton);
    QCOMPARE(number->GetValue(), LLONG_MAX);
    QVERIFY(!stage.up->isEnabled());
    QVERIFY(stage.down->isEnabled());
    number->SetValue(LLONG_MIN + 1, nullptr);
    QVERIFY(stage.down->isEnabled());
    QTest::mouseClick(stage.down, Qt::LeftButton);
    QCOMPARE(number->GetValue(), LLONG_MIN);
    QVERIFY(!stage.down->isEnabled());
    QVERIFY(stage.up->isEnabled());
}

void tst_VCScrollButtons::notToldOfItsOwnWrite()
{
    class Spy : public VCScrollButtons
    {
    public:
        void Update(Observable * subject, TChangeCode code) override
        {
            m_codes.append(code);
            VCScrollButtons::Update(subject, code);
        }

        QVector<int> m_codes;
    };

    auto const * const number = InsertNumber<int>(0, 10, 1, 5);
    Spy buttons;
    buttons.Set_ValuePath(Path);
    QCOMPARE(buttons.m_codes, (QVector<int>{ eStateChanged, eRangeChanged, eValueChanged }));
    buttons.m_codes.clear();
    buttons.slotStepUp();
    buttons.slotStepDown();
    buttons.slotStepDown();
    QCOMPARE(number->GetValue(), 4);
    QVERIFY(buttons.m_codes.isEmpty());
    Tree::Instance()->Remove(Path);
    InsertNumber<long long>(0, 10, 1, 5);
    buttons.Set_ValuePath(Path);
    buttons.m_codes.clear();
    buttons.slotStepUp();
    QVERIFY(buttons.m_codes.isEmpty());
}

void tst_VCScrollButtons::limitsSwitchTheButtons()
{
    auto * const number = InsertNumber<int>(0, 10, 1, 0);
    Stage stage;
    stage.buttons.Set_ValuePath(Path);
    QVERIFY(!stage.down->isEnabled());
    QVERIFY(stage.up->isEnabled());
    number->SetValue(10, nullptr);
    QVERIFY(stage.down->isEnabled());
    QVERIFY(!stage.up->isEnabled());
    number->SetMinMax(0, 20, 1, nullptr);
    QVERIFY(stage.up->isEnabled());
    for (int i = 0; i < 10; ++i)
        QTest::mouseClick(stage.up, Qt::LeftButton);
    QCOMPARE(number->GetValue(), 20);
    QVERIFY(!stage.up->isEnabled());
}

void tst_VCScrollButtons::heldButtonGoesOn()
{
    auto const * const number = InsertNumber<int>(0, 1000, 1, 0);
    Stage stage;
    stage.buttons.Set_ValuePath(Path);
    stage.up->setAutoRepeatDelay(1);
    stage.up->setAutoRepeatInterval(1);
    QTest::mousePress(stage.up, Qt::LeftButton);
    QTRY_VERIFY(number->GetValue() >= 5);
    QTest::mouseRelease(stage.up, Qt::LeftButton);
}

void tst_VCScrollButtons::undoRestores()
{
    auto const * const number = InsertNumber<int>(0, 10, 1, 5);
    Stage stage;
    stage.buttons.Set_ValuePath(Path);
    QTest::mouseClick(stage.up, Qt::LeftButton);
    QTest::mouseClick(stage.up, Qt::LeftButton);
    QCOMPARE(Undo().count(), 2);
    QCOMPARE(Undo().undoText(), QStringLiteral("Step value"));
    Undo().undo();
    QCOMPARE(number->GetValue(), 6);
    Undo().undo();
    QCOMPARE(number->GetValue(), 5);
}

void tst_VCScrollButtons::valueGoesAway()
{
    InsertNumber<int>(0, 10, 1, 5);
    Stage stage;
    stage.buttons.Set_ValuePath(Path);
    Tree::Instance()->Remove(Path);
    QVERIFY(!stage.up->isEnabled());
    QVERIFY(!stage.down->isEnabled());
    QCOMPARE(stage.buttons.GetStep(), 0.0);
    stage.buttons.slotStepUp();
}

void tst_VCScrollButtons::valueEndsUnheard()
{
    auto * const number = InsertNumber<int>(0, 10, 1, 5);
    Stage stage;
    stage.buttons.Set_ValuePath(Path);
    number->DeleteObservers();
    QCOMPARE(stage.buttons.GetStep(), 1.0);
    Tree::Instance()->Remove(Path);
    QCOMPARE(stage.buttons.GetStep(), 0.0);
    stage.buttons.slotStepUp();
}

void tst_VCScrollButtons::valueGoesAwayInTheWrite()
{
    auto * const number = InsertNumber<int>(0, 10, 1, 5);
    Stage stage;
    stage.buttons.Set_ValuePath(Path);
    Watcher watcher;
    watcher.m_then = [] { Tree::Instance()->Remove(Path); };
    number->AddObserver(&watcher);
    stage.buttons.slotStepUp();
    QVERIFY(!stage.up->isEnabled());
}

void tst_VCScrollButtons::buttonsDieInTheWrite()
{
    auto * const number = InsertNumber<int>(0, 10, 1, 5);
    auto * const buttons = new VCScrollButtons;
    QPointer<QWidget> const alive(buttons);
    buttons->Set_ValuePath(Path);
    Watcher watcher;
    watcher.m_then = [buttons] { delete buttons; };
    number->AddObserver(&watcher);
    buttons->slotStepDown();
    QVERIFY(!alive);
    QCOMPARE(number->GetValue(), 4);
}

void tst_VCScrollButtons::unboundDoesNothing()
{
    VCScrollButtons buttons;
    buttons.slotStepUp();
    buttons.slotStepDown();
    QCOMPARE(buttons.GetStep(), 0.0);
    QCOMPARE(Undo().count(), 0);
}

void tst_VCScrollButtons::strangersAreIgnored()
{
    ValueNumeric<int> stranger;
    Stage stage;
    stage.buttons.Update(&stranger, eValueChanged);
    stage.buttons.Update(&stranger, eStateChanged);
    QVERIFY(!stage.up->isEnabled());
}

ORIM_TEST_MAIN(tst_VCScrollButtons)
#include "tst_vcscrollbuttons.moc"
