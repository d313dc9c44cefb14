// SPDX-License-Identifier: MIT
#include "axisrangedisplay.h"

#include "axisprobe.h"
#include "colorset.h"
#include "guibase.h"
#include "guicentral.h"
#include "marker.h"
#include "specialdoubles.h"
#include "testmain.h"
#include "valueselection.h"
#include "vclabel.h"

#include <QFocusEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QUndoStack>

#include <algorithm>
#include <climits>
#include <functional>
#include <memory>
#include <utility>

namespace {

using Number = ValueNumeric<double>;

constexpr unsigned int Across = AxisBase::AxisHorizontal;
constexpr unsigned int AcrossTime = AxisBase::AxisHorizontal | AxisBase::AxisTimeStamps;
constexpr double Today = 1795273200e6; // us, 2026-11-21 15:00 UTC
constexpr double Second = 1e6;
constexpr double Largest = std::numeric_limits<double>::max();

//! An axis on the screen, its display, and four values in the tree that it is bound to.
struct Stage
{
    // one at a time: the values have fixed paths
    explicit Stage(unsigned int style = AxisRangeDisplay::StyleHorizontal, unsigned int type = Across)
        : axis(type, 600, 40)
        , display(new AxisRangeDisplay(&axis, "display", style))
    {
        axis.SetRange(0.0, 100.0);
        display->SetRuler1_ValuePath(ruler1.Path());
        display->SetRuler2_ValuePath(ruler2.Path());
        display->SetCenter_ValuePath(center.Path());
        display->SetExportDifference_ValuePath(difference.Path());
    }

    //! Shows the display and has the event loop catch up.
    void Show()
    {
        axis.show();
        axis.slotShowAxisRangeDisplay(true);
        QCoreApplication::processEvents();
    }

    void Rulers(double a, double b)
    {
        ruler1->SetValue(a, nullptr);
        ruler2->SetValue(b, nullptr);
    }

    template <class T = VCLabel>
    T * Part(char const * name) const
    {
        return display->findChild<T *>(QLatin1String(name));
    }

    QString Text(char const * name) const { return Part(name)->text(); }

    QStringList Texts() const
    {
        return { Text("First Ruler"), Text("Difference"), Text("Second Ruler"), Text("Center") };
    }

    QPushButton * Button() const { return display->findChild<QPushButton *>(); }

    QLineEdit * Entry() const { return display->findChild<QLineEdit *>(); }

    Planted<Number> ruler1{ "ruler1" };
    Planted<Number> ruler2{ "ruler2" };
    Planted<Number> center{ "center" };
    Planted<Number> difference{ "difference" };
    AxisProbe axis;
    AxisRangeDisplay * display;
};

//! Counts notifications of a value, and may answer them.
class Listener : public IObserver
{
public:
    explicit Listener(Observable * value, std::function<void(TChangeCode)> answer = {}) : m_answer(std::move(answer))
    {
        value->AddObserver(this);
    }

    void Update(Observable * /*subject*/, TChangeCode code) override
    {
        ++m_told;
        if (m_answer)
            m_answer(code);
    }

    int m_told = 0;

private:
    std::function<void(TChangeCode)> m_answer;
};

//! The values that displays made, by their numbers.
QStringList OwnPaths()
{
    QStringList paths = Tree::Instance()->GetPaths(QStringLiteral("/GuiCentral/unique/float"));
    std::stable_sort(paths.begin(), paths.end(),
                     [](QString const & a, QString const & b) { return a.size() < b.size(); });
    return paths;
}

void Type(QWidget * widget, QString const & text)
{
    QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(widget, text);
    QTest::keyClick(widget, Qt::Key_Return);
}

} // namespace

class tst_axisrangedisplay : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    // construction
    void styleBits();
    void parts();
    void button();
    void toolTips_data();
    void toolTips();
    void arrows();
    void looks();
    void ownValues();
    void ownValuesFollowTheRoles();
    void ownValuesEndWithIt();
    void hiddenAtTheStart();

    // the axis
    void registers();
    void endsInAnyOrder();
    void axisShowsAndHidesIt();
    void hiddenAxisShowsNothing();
    void takesTheSizeOfTheAxis();
    void readOutWidth();
    void timeFormatFollowsTheAxis();
    void shortRangeHandsTheOldFormatOn();
    void anyDisplayMayBeSet();

    // numbers
    void readOuts_data();
    void readOuts();
    void format_data();
    void format();
    void convertersAndFactors();
    void writeTakesAnyLabel();
    void times();
    void spans();
    void zoneChanges();
    void fixedSize();
    void sizingTexts();
    void fontFollowsTheFamily();
    void toolTipsOfValues();

    // rulers, difference and centre
    void rulerChanges_data();
    void rulerChanges();
    void equalRulers();
    void crossedRulers();
    void draggedRulers();
    void entries_data();
    void entries();
    void entriesForCrossedRulers();
    void draggedEntries();
    void smallDeviations_data();
    void smallDeviations();
    void notWhileHidden();
    void notWhileOneIsMissing();
    void otherCodesShowOnly();
    void excludedFromItsWrites();
    void ownWritesComeToRest();
    void writerInside();
    void deletedInside();
    void unboundInside();

    // binding
    void badPaths();
    void bindingWhileVisibleMovesNoRuler();
    void bindingADifferenceOrCentreMovesRulers();
    void crossedAtBinding();
    void valuesGoAway_data();
    void valuesGoAway();
    void oneValueInTwoRoles();
    void integerRulers();

    // operation
    void buttonShowsRulers();
    void buttonBringsRulersIntoTheRange_data();
    void buttonBringsRulersIntoTheRange();
    void buttonWithoutAMarkerTellsOthers();
    void defaultsReleaseTheButton();
    void typedNumbers();
    void typedTimes();
    void typedSpansOfDays();
    void typingLeft();
    void typingElsewhere();
    void typingWithoutRoom();
    void typingGivenUp();
    void typingCanBeUndone();

    // bad input
    void everyPairOfNumbers_data();
    void everyPairOfNumbers();
    void withoutAnAxis();
};

void tst_axisrangedisplay::cleanup()
{
    GuiBase::Instance().GetTimeZone()->Select(0L, nullptr);
    GuiBase::Instance().SetShowFrequencyInHz(false);
    GuiBase::Instance().UndoStack()->clear();
}

// Construction

void tst_axisrangedisplay::styleBits()
{
    QCOMPARE(unsigned(AxisRangeDisplay::StyleHorizontal), 1U);
    QCOMPARE(unsigned(AxisRangeDisplay::StyleTimeSpan), 2U);
    QCOMPARE(unsigned(AxisRangeDisplay::StyleTime), 4U);
    QCOMPARE(unsigned(AxisRangeDisplay::StyleNoLabels), 8U);
}

void tst_axisrangedisplay::parts()
{
    Stage const stage;
    QCOMPARE(stage.display->objectName(), QStringLiteral("display"));
    QVERIFY(stage.display->parentWidget() == &stage.axis);
    for (char const * const name : { "First Ruler", "Difference", "Second Ruler", "Center" }) {
        VCLabel const * const label = stage.Part(name);
        QVERIFY(label);
        QCOMPARE(label->frameStyle(), 0x32);
        QCOMPARE(int(label->alignment()), 0x84);
    }
    AxisRangeDisplay const unnamed(nullptr);
    QCOMPARE(unnamed.objectName(), QString());
}

void tst_axisrangedisplay::button()
{
    Stage const stage;
    QCOMPARE(stage.Button()->text(), QStringLiteral("Center"));
    QVERIFY(stage.Button()->isCheckable() && !stage.Button()->isChecked());
}

void tst_axisrangedisplay::toolTips_data()
{
    QTest::addColumn<unsigned int>("style");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::newRow("horizontal") << 1U << QStringLiteral("Left Ruler") << QStringLiteral("Right Ruler");
    QTest::newRow("vertical") << 0U << QStringLiteral("Lower Ruler") << QStringLiteral("Upper Ruler");
    QTest::newRow("horizontal times") << 5U << QStringLiteral("Left Ruler") << QStringLiteral("Right Ruler");
    QTest::newRow("vertical spans without labels")
        << 10U << QStringLiteral("Lower Ruler") << QStringLiteral("Upper Ruler");
}

void tst_axisrangedisplay::toolTips()
{
    QFETCH(unsigned int, style);
    AxisRangeDisplay const display(nullptr, nullptr, style);
    QTEST(display.findChild<VCLabel *>(QStringLiteral("First Ruler"))->toolTip(), "first");
    QTEST(display.findChild<VCLabel *>(QStringLiteral("Second Ruler"))->toolTip(), "second");
    QTEST(display.findChild<QLabel *>(QStringLiteral("down"))->toolTip(), "first");
    QTEST(display.findChild<QLabel *>(QStringLiteral("up"))->toolTip(), "second");
}

void tst_axisrangedisplay::arrows()
{
    QVector<QImage> pictures;
    for (unsigned int const style : { 0U, 1U, 8U, 9U }) {
        AxisRangeDisplay const display(nullptr, nullptr, style);
        for (char const * const name : { "up", "down" }) {
            auto * const arrow = display.findChild<QLabel *>(QLatin1String(name));
            QVERIFY(arrow);
            QCOMPARE(arrow->size(), QSize(7, 7));
            pictures << arrow->grab().toImage();
        }
        QVERIFY(pictures[pictures.size() - 1] != pictures[pictures.size() - 2]);
    }
    QVERIFY(pictures[0] != pictures[2] && pictures[0] != pictures[4]); // by direction, and by the read-outs
    QVERIFY(pictures[2] != pictures[6]);
    QVERIFY(pictures[0] == pictures[5] && pictures[2] == pictures[7]); // turned round, they change places
    QColor const ink = ColorSet::Instance()[IColorBase::eColorReadOut];
    QCOMPARE(pictures[0].pixelColor(3, 4), ink); // wide at the foot
    QVERIFY(pictures[0].pixelColor(0, 0) != ink);
}

void tst_axisrangedisplay::looks()
{
    Stage const stage;
    ColorSet & colors = ColorSet::Instance();
    for (char const * const name : { "First Ruler", "Difference", "Second Ruler", "Center" }) {
        int const color = QLatin1String(name) == QLatin1String("Center") ? 85 : 37;
        QCOMPARE(stage.Part(name)->palette().color(QPalette::WindowText),
                 colors[static_cast<IColorBase::ECOLOR>(color)]);
        QCOMPARE(stage.Part(name)->palette().color(QPalette::Window), colors[IColorBase::eColorAxisScale]);
    }
    colors[static_cast<IColorBase::ECOLOR>(37)] = Qt::yellow;
    colors[static_cast<IColorBase::ECOLOR>(85)] = Qt::magenta;
    GuiBase::Instance().emit_signalColorsChanged();
    QCOMPARE(stage.Part("First Ruler")->palette().color(QPalette::WindowText), QColor(Qt::yellow));
    QCOMPARE(stage.Part("Center")->palette().color(QPalette::WindowText), QColor(Qt::magenta));
    QCOMPARE(stage.Part<QLabel>("up")->grab().toImage().pixelColor(4, 3), QColor(Qt::yellow));
    colors.slotRestoreFactoryColors();
    GuiBase::Instance().emit_signalColorsChanged();
}

void tst_axisrangedisplay::ownValues()
{
    QStringList const before = OwnPaths();
    AxisRangeDisplay const display(nullptr);
    QStringList const after = OwnPaths();
    QCOMPARE(after.size() - before.size(), 4);
    for (QString const & path : after) {
        auto const * const value = Tree::Instance()->FindAs<Number>(path);
        if (before.contains(path))
            continue;
        QVERIFY(value->HasObserver(&display));
        QCOMPARE(value->GetValue(), 0.0);
        QCOMPARE(value->GetMin(), -Largest);
        QCOMPARE(value->GetMax(), Largest);
        QCOMPARE(value->GetStep(), 0.0);
    }
}

void tst_axisrangedisplay::ownValuesFollowTheRoles()
{
    QStringList const before = OwnPaths();
    AxisRangeDisplay display(nullptr);
    QVector<Number *> own;
    for (QString const & path : OwnPaths())
        if (!before.contains(path))
            own << Tree::Instance()->FindAs<Number>(path);
    QCOMPARE(own.size(), 4);
    display.show();
    QCoreApplication::processEvents();
    own[1]->SetValue(40.0, nullptr);
    own[0]->SetValue(10.0, nullptr);
    QCOMPARE(own[2]->GetValue(), 25.0); // the centre
    QCOMPARE(own[3]->GetValue(), 30.0); // the difference
}

void tst_axisrangedisplay::ownValuesEndWithIt()
{
    QStringList const before = OwnPaths();
    {
        Stage const stage; // bound elsewhere
        QCOMPARE(OwnPaths().size() - before.size(), 4);
    }
    QCOMPARE(OwnPaths(), before);
    auto display = std::make_unique<AxisRangeDisplay>(nullptr);
    QString path;
    for (QString const & own : OwnPaths())
        if (!before.contains(own))
            path = own;
    QVERIFY(Tree::Instance()->Remove(path)); // as at the end of the application
    auto * const other = new Number(path.mid(path.lastIndexOf(QLatin1Char('/')) + 1));
    QVERIFY(Tree::Instance()->Insert(QStringLiteral("/GuiCentral/unique/float"), other));
    display.reset();
    QVERIFY(Tree::Instance()->Find(path) == other); // what took its path stays
    Tree::Instance()->Remove(path);
    QCOMPARE(OwnPaths(), before);
}

void tst_axisrangedisplay::hiddenAtTheStart()
{
    Stage stage;
    stage.axis.show();
    QVERIFY(stage.display->isHidden());
    QVERIFY(!stage.axis.IsAxisRangeVisible());
}

// The axis

void tst_axisrangedisplay::registers()
{
    AxisProbe axis;
    QVERIFY(!axis.GetAxisRangeDisplay() && !axis.IsAxisRangeVisible());
    auto * const first = new AxisRangeDisplay(&axis);
    QVERIFY(axis.GetAxisRangeDisplay() == first);
    auto * const second = new AxisRangeDisplay(&axis);
    QVERIFY(axis.GetAxisRangeDisplay() == second);
    delete first;
    QVERIFY(axis.GetAxisRangeDisplay() == second);
    delete second;
    QVERIFY(!axis.GetAxisRangeDisplay());
    QVERIFY(!axis.slotShowAxisRangeDisplay(true));
    axis.SetRange(0.0, 1.0);
}

void tst_axisrangedisplay::endsInAnyOrder()
{
    auto axis = std::make_unique<AxisProbe>(AcrossTime);
    QPointer<AxisRangeDisplay> const child(new AxisRangeDisplay(axis.get(), nullptr, 4));
    axis.reset();
    QVERIFY(!child);

    axis = std::make_unique<AxisProbe>(AcrossTime);
    AxisRangeDisplay display(axis.get(), nullptr, 4);
    display.setParent(nullptr);
    display.show();
    axis.reset();
    display.ShowValues();
    display.slotShowDiffRuler(true);
    display.resize(400, 30);
    display.hide();
    display.show();
    QCoreApplication::processEvents();

    AxisProbe server;
    auto other = std::make_unique<AxisRangeDisplay>(nullptr);
    other->SetPixelToValueServer(&server);
    QVERIFY(!server.GetAxisRangeDisplay());
    other.reset();
    server.SetRange(0.0, 5.0);
}

void tst_axisrangedisplay::axisShowsAndHidesIt()
{
    Stage stage;
    stage.axis.show();
    QVERIFY(stage.axis.slotShowAxisRangeDisplay());
    QVERIFY(stage.display->isVisible() && stage.axis.IsAxisRangeVisible());
    QVERIFY(stage.axis.slotShowAxisRangeDisplay(true));
    QVERIFY(stage.display->isVisible());
    QVERIFY(stage.axis.slotHideAxisRangeDisplay());
    QVERIFY(!stage.display->isVisible() && !stage.axis.IsAxisRangeVisible());
    QVERIFY(stage.axis.slotShowAxisRangeDisplay(false));
    QVERIFY(!stage.display->isVisible());
    QVERIFY(QMetaObject::invokeMethod(&stage.axis, "slotShowAxisRangeDisplay"));
    QVERIFY(stage.display->isVisible());
    QVERIFY(QMetaObject::invokeMethod(&stage.axis, "slotHideAxisRangeDisplay"));
    QVERIFY(!stage.display->isVisible());
}

void tst_axisrangedisplay::hiddenAxisShowsNothing()
{
    Stage stage;
    stage.axis.hide();
    QVERIFY(!stage.axis.slotShowAxisRangeDisplay(true));
    QVERIFY(!stage.axis.slotHideAxisRangeDisplay());
    QVERIFY(stage.display->isHidden());
}

void tst_axisrangedisplay::takesTheSizeOfTheAxis()
{
    Stage stage;
    QSize const before = stage.display->size();
    stage.axis.resize(500, 35);
    stage.axis.show();
    QCoreApplication::processEvents();
    QCOMPARE(stage.display->size(), before); // not while it is hidden
    QVERIFY(stage.axis.slotShowAxisRangeDisplay());
    QCOMPARE(stage.display->size(), QSize(500, 35));
    int bars = 0;
    connect(&stage.axis, &AxisBase::redrawBars, this,
            [&] { bars += stage.display->size() == QSize(420, 33) ? 1 : 100; });
    stage.axis.resize(420, 33);
    QCOMPARE(stage.display->size(), QSize(420, 33));
    QCOMPARE(bars, 1); // told after the display has its size
}

void tst_axisrangedisplay::readOutWidth()
{
    Stage stage;
    stage.Show();
    for (char const * const name : { "First Ruler", "Difference", "Second Ruler", "Center" })
        QCOMPARE(stage.Part(name)->width(), 60);
    GuiBase::Instance().SetShowFrequencyInHz(true);
    stage.axis.resize(601, 40);
    for (char const * const name : { "First Ruler", "Difference", "Second Ruler", "Center" })
        QCOMPARE(stage.Part(name)->width(), 70);
    stage.axis.resize(90, 40);
    QVERIFY(stage.Part("Difference")->isVisible() && !stage.Part("Center")->isVisible());
    AxisRangeDisplay plain(nullptr, nullptr, AxisRangeDisplay::StyleHorizontal | AxisRangeDisplay::StyleNoLabels);
    plain.resize(600, 40);
    plain.show();
    QVERIFY(!plain.findChild<VCLabel *>(QStringLiteral("First Ruler"))->isVisible());
    QVERIFY(plain.findChild<VCLabel *>(QStringLiteral("Difference"))->isVisible());
}

void tst_axisrangedisplay::timeFormatFollowsTheAxis()
{
    Stage stage(AxisRangeDisplay::StyleHorizontal | AxisRangeDisplay::StyleTime, AcrossTime);
    stage.axis.SetRange(Today, Today + 4.0 * 3600.0 * Second);
    stage.Rulers(Today, Today + 1800.0 * Second);
    stage.Show();
    QCOMPARE(stage.Text("Second Ruler"), QStringLiteral("15:00"));
    stage.axis.SetRange(Today, Today + 7.0 * 3600.0 * Second);
    QCOMPARE(stage.Text("Second Ruler"), QStringLiteral("15"));
    stage.axis.SetTimeDisplayFormat(AxisBase::eTimeFormat5);
    QCOMPARE(stage.Text("First Ruler"), QStringLiteral("15:30:00"));
    stage.axis.SetTimeDisplayFormat(static_cast<AxisBase::TimeFormat>(77));
    QCOMPARE(stage.Text("First Ruler"), QStringLiteral("30:00"));
}

void tst_axisrangedisplay::shortRangeHandsTheOldFormatOn()
{
    Stage stage(AxisRangeDisplay::StyleHorizontal | AxisRangeDisplay::StyleTime, AcrossTime);
    stage.axis.SetRange(Today, Today + 7.0 * 3600.0 * Second);
    stage.Rulers(Today, Today + Second);
    stage.display->SetFormatString(QStringLiteral("yyyy"));
    stage.Show();
    stage.display->SetFormatString(QStringLiteral("yyyy"));
    QCOMPARE(stage.Text("Second Ruler"), QStringLiteral("2026"));
    stage.axis.SetFixedRange(Today, Today + Second, 0, 1, 1, 0.0, 0.0);
    stage.axis.m_fixedRange = false;
    stage.axis.CalcValues(); // no tics: the format by number is another, the one by text is the old one
    QCOMPARE(stage.axis.m_timeFormat, 8);
    QCOMPARE(stage.Text("Second Ruler"), QStringLiteral("15"));
    stage.display->SetFormatString(QStringLiteral("yyyy"));
    stage.axis.CalcValues(); // and now it is the same
    QCOMPARE(stage.Text("Second Ruler"), QStringLiteral("2026"));
}

void tst_axisrangedisplay::anyDisplayMayBeSet()
{
    AxisProbe axis;
    AxisRangeDisplay display(nullptr);
    axis.SetAxisRangeDisplay(&display);
    QVERIFY(axis.GetAxisRangeDisplay() == &display);
    axis.SetAxisRangeDisplay(nullptr);
    QVERIFY(!axis.GetAxisRangeDisplay());
    {
        AxisRangeDisplay brief(nullptr);
        axis.SetAxisRangeDisplay(&brief);
    }
    QVERIFY(!axis.GetAxisRangeDisplay());
}

// Numbers

void tst_axisrangedisplay::readOuts_data()
{
    QTest::addColumn<unsigned int>("style");
    QTest::addColumn<double>("a");
    QTest::addColumn<double>("b");
    QTest::addColumn<QStringList>("texts"); // first, difference, second, centre
    auto const row = [](char const * name, unsigned int style, double a, double b, char const * texts) {
        QTest::newRow(name) << style << a << b << QString::fromLatin1(texts).split(QLatin1Char('|'));
    };
    row("numbers", 1, 10.0, 30.4, "10.0|20.4|30.4|20.2");
    row("upright", 0, 10.0, 30.0, "10.0|20.0|30.0|20.0");
    row("negative", 1, -30.0, -10.0, "-30.0|20.0|-10.0|-20.0");
    row("equal", 1, 5.0, 5.0, "5.0|0.0|5.0|5.0");
    row("below one", 1, 0.0, 0.4, "0.0|0.4|0.4|0.2");
    row("spans keep their order", 3, 60e6, 90e6, "01:00|00:30.000|01:30|01:15");
    row("times: the later one first", 5, 60e6, 180e6, "00:03|02:00.000|00:01|00:02");
    row("both bits: spans", 7, 60e6, 90e6, "01:00|00:30.000|01:30|01:15");
}

void tst_axisrangedisplay::readOuts()
{
    QFETCH(unsigned int, style);
    QFETCH(double, a);
    QFETCH(double, b);
    Stage stage(style);
    stage.Rulers(a, b);
    stage.display->ShowValues();
    QTEST(stage.Texts(), "texts");
    stage.Show();
    QTEST(stage.Texts(), "texts");
}

void tst_axisrangedisplay::format_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("precision");
    QTest::addColumn<QString>("text");
    QTest::newRow("three digits") << 3 << 3 << QStringLiteral("12.346");
    QTest::newRow("none") << 3 << 0 << QStringLiteral(" 12");
    QTest::newRow("padded") << 6 << 1 << QStringLiteral("  12.3");
    QTest::newRow("padded at the right") << -6 << 1 << QStringLiteral("12.3  ");
    QTest::newRow("negative precision") << 3 << -5 << QStringLiteral(" 12");
    QTest::newRow("precision beyond doubles") << 3 << INT_MAX << QString::number(12.3456, 'f', 17);
    QTest::newRow("width beyond labels") << INT_MAX << 0 << QStringLiteral("12").rightJustified(100);
    QTest::newRow("lowest width") << INT_MIN << 0 << QStringLiteral("12").leftJustified(100);
}

void tst_axisrangedisplay::format()
{
    QFETCH(int, width);
    QFETCH(int, precision);
    Stage stage;
    stage.Rulers(12.3456, 20.0);
    stage.display->SetFormat(width, precision);
    QTEST(stage.Text("First Ruler"), "text");
}

void tst_axisrangedisplay::convertersAndFactors()
{
    Stage stage;
    stage.Rulers(1.5e6, 2.5e6);
    stage.axis.SetConverter(new SuffixedDouble(SuffixedDouble::eSuffixMega));
    stage.display->ShowValues();
    QCOMPARE(stage.Texts(), QStringLiteral("1.5|1|2.5|2").split(QLatin1Char('|')));
    SuffixedDouble kilo(SuffixedDouble::eSuffixKilo);
    stage.display->SetConverter(&kilo);
    QCOMPARE(stage.Text("First Ruler"), QStringLiteral("1500"));
    stage.display->SetConverter(nullptr);
    QCOMPARE(stage.Text("First Ruler"), QStringLiteral("1.5"));
    stage.axis.SetConverter(nullptr);
    stage.axis.SetDisplayFactor(1e-5);
    stage.display->ShowValues();
    QCOMPARE(stage.Text("First Ruler"), QStringLiteral("15.0"));
    AxisProbe other;
    other.SetDisplayFactor(1e-6);
    stage.display->SetPixelToValueServer(&other);
    QCOMPARE(stage.Text("First Ruler"), QStringLiteral("1.5"));
    QVERIFY(stage.axis.GetAxisRangeDisplay() == stage.display);
    stage.display->SetPixelToValueServer(nullptr);
    QCOMPARE(stage.Text("First Ruler"), QStringLiteral("1500000.0"));
}

void tst_axisrangedisplay::writeTakesAnyLabel()
{
    Stage stage;
    VCLabel label;
    stage.display->write(&label, 3.14159);
    QCOMPARE(label.text(), QStringLiteral("3.1"));
    stage.display->write(&label, std::numeric_limits<double>::quiet_NaN());
    QCOMPARE(label.text(), QStringLiteral("---"));
    stage.display->write(&label, -std::numeric_limits<double>::infinity());
    QCOMPARE(label.text(), QStringLiteral("---"));
    stage.display->write(nullptr, 1.0);
}

void tst_axisrangedisplay::times()
{
    Stage stage(AxisRangeDisplay::StyleHorizontal | AxisRangeDisplay::StyleTime, AcrossTime);
    stage.Rulers(Today, Today + 90.25 * Second);
    stage.display->SetFormatString(QStringLiteral("hh:mm:ss"));
    QCOMPARE(stage.Texts(), QStringLiteral("15:01:30|01:30.250|15:00:00|15:00:45").split(QLatin1Char('|')));
    stage.display->SetFormatString(QString());
    QCOMPARE(stage.Text("First Ruler"), QString());
}

void tst_axisrangedisplay::spans()
{
    GuiBase::Instance().GetTimeZone()->Select(7200L, nullptr);
    Stage stage(AxisRangeDisplay::StyleTimeSpan);
    stage.Rulers(0.0, 61.5 * Second);
    stage.display->SetFormatString(QStringLiteral("hh:mm:ss"));
    QCOMPARE(stage.Texts(), QStringLiteral("00:00:00|01:01.500|00:01:01|00:00:30").split(QLatin1Char('|')));
    stage.Rulers(-5e6, 5e6); // before the start there is none
    stage.display->ShowValues();
    QCOMPARE(stage.Text("First Ruler"), QStringLiteral("00:00:00"));
    QCOMPARE(stage.Text("Difference"), QStringLiteral("00:10.000"));
}

void tst_axisrangedisplay::zoneChanges()
{
    Stage stage(AxisRangeDisplay::StyleTime, AcrossTime);
    stage.Rulers(Today, Today + 60.0 * Second);
    stage.display->SetFormatString(QStringLiteral("hh:mm"));
    stage.Show();
    stage.display->SetFormatString(QStringLiteral("hh:mm"));
    QCOMPARE(stage.Text("First Ruler"), QStringLiteral("15:01"));
    GuiBase::Instance().GetTimeZone()->Select(7200L, nullptr);
    QCOMPARE(stage.Text("First Ruler"), QStringLiteral("17:01"));
    QCOMPARE(stage.Text("Second Ruler"), QStringLiteral("17:00"));
    QCOMPARE(stage.Text("Center"), QStringLiteral("17:00"));
    QCOMPARE(stage.Text("Difference"), QStringLiteral("01:00.000")); // a span
    GuiBase::Instance().GetTimeZone()->Select(-12600L, nullptr);
    QCOMPARE(stage.Text("First Ruler"), QStringLiteral("11:31"));
}

void tst_axisrangedisplay::fixedSize()
{
    // times are written in the larger font, because their text is shorter
    auto const hint = [](AxisRangeDisplay const & display, char const * name) {
        return display.findChild<VCLabel *>(QLatin1String(name))->sizeHint().width();
    };
    AxisRangeDisplay const numbers(nullptr, nullptr, 1);
    AxisRangeDisplay times(nullptr, nullptr, 5);
    AxisRangeDisplay const spans(nullptr, nullptr, 3);
    QVERIFY(hint(times, "First Ruler") < hint(numbers, "First Ruler"));
    QCOMPARE(hint(spans, "First Ruler"), hint(times, "First Ruler"));
    QCOMPARE(hint(numbers, "Difference"), hint(numbers, "First Ruler"));
    QVERIFY(hint(times, "Difference") > hint(times, "First Ruler")); // mm:ss.zzz
    int const before = hint(times, "Center");
    times.SetFormatString(QStringLiteral("yyyy-MM-dd hh:mm:ss"));
    QCOMPARE(hint(times, "Center"), before);
    times.SetFormatStringForFixedSize(QStringLiteral("hh:mm:ss"));
    int const fixed = hint(times, "Center");
    QVERIFY(fixed > before);
    times.SetFormatString(QStringLiteral("mm"));
    times.AdaptFontSize();
    QCOMPARE(hint(times, "Center"), fixed);
    times.SetFormatStringForFixedSize(QStringLiteral("99:99:99"));
    QCOMPARE(hint(times, "Center"), fixed); // a letter counts as a digit
}

void tst_axisrangedisplay::sizingTexts()
{
    auto const hint = [](unsigned int style, char const * name) {
        AxisRangeDisplay const display(nullptr, nullptr, style);
        return display.findChild<VCLabel *>(QLatin1String(name))->sizeHint().width();
    };
    auto const told = [](char const * text) {
        VCLabel label;
        label.setFrameStyle(0x32);
        label.setAlignment(Qt::Alignment(0x84));
        label.SetFontOnSize(QFont(GuiBase::Instance().GetFontFamily(), 12), QLatin1String(text));
        return label.sizeHint().width();
    };
    QCOMPARE(hint(1, "First Ruler"), told("999.999"));
    QCOMPARE(hint(1, "Center"), told("999.999"));
    QCOMPARE(hint(5, "First Ruler"), told("99:99"));
    QCOMPARE(hint(3, "Center"), told("99:99"));
}

void tst_axisrangedisplay::fontFollowsTheFamily()
{
    Stage stage;
    stage.Show();
    stage.axis.resize(600, 200);
    GuiBase::Instance().SetFontFamily(QStringLiteral("DejaVu Serif"));
    stage.display->AdaptFontSize();
    GuiBase::Instance().SetFontFamily(QString());
    for (char const * const name : { "First Ruler", "Difference", "Second Ruler", "Center" }) {
        QCOMPARE(stage.Part(name)->font().family(), QStringLiteral("DejaVu Serif"));
        QVERIFY(stage.Part(name)->font().pointSize() <= 12);
    }
    AxisRangeDisplay large(nullptr);
    auto * const center = large.findChild<VCLabel *>(QStringLiteral("Center"));
    center->resize(600, 60);
    large.AdaptFontSize();
    QCOMPARE(center->font().pointSize(), 12); // with room
}

void tst_axisrangedisplay::toolTipsOfValues()
{
    {
        Stage stage;
        stage.Rulers(1.0, 2.0);
        for (char const * const name : { "First Ruler", "Difference", "Second Ruler", "Center" })
            stage.Part(name)->setToolTip(QStringLiteral("old"));
        stage.display->ShowValues();
        for (char const * const name : { "First Ruler", "Difference", "Second Ruler", "Center" })
            QCOMPARE(stage.Part(name)->toolTip(), QString());
    }
    Stage times(AxisRangeDisplay::StyleTime, AcrossTime);
    times.display->ShowValues();
    QCOMPARE(times.Part("Difference")->toolTip(), QStringLiteral("mm:ss.zzz"));
    QCOMPARE(times.Part("Center")->toolTip(), QString());
    QCOMPARE(times.Part<QLabel>("up")->toolTip(), QStringLiteral("Upper Ruler")); // the arrows keep theirs
}

// Rulers, difference and centre

void tst_axisrangedisplay::rulerChanges_data()
{
    QTest::addColumn<bool>("first");
    QTest::addColumn<double>("value");
    QTest::addColumn<QVector<double>>("after"); // rulers, difference, centre
    QTest::newRow("ruler 1 up") << true << 20.0 << QVector<double>{ 20, 30, 10, 25 };
    QTest::newRow("ruler 1 down") << true << -10.0 << QVector<double>{ -10, 30, 40, 10 };
    QTest::newRow("ruler 2 up") << false << 50.0 << QVector<double>{ 10, 50, 40, 30 };
    QTest::newRow("ruler 1 across ruler 2") << true << 40.0 << QVector<double>{ 30, 40, 10, 35 };
    QTest::newRow("ruler 2 across ruler 1") << false << 0.0 << QVector<double>{ 0, 10, 10, 5 };
    QTest::newRow("ruler 1 onto ruler 2") << true << 30.0 << QVector<double>{ 30, 30, 0, 20 };
}

void tst_axisrangedisplay::rulerChanges()
{
    QFETCH(bool, first);
    QFETCH(double, value);
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    QCOMPARE(stage.difference->GetValue(), 20.0);
    QCOMPARE(stage.center->GetValue(), 20.0);
    (first ? stage.ruler1 : stage.ruler2)->SetValue(value, nullptr);
    QVector<double> const after{ stage.ruler1->GetValue(), stage.ruler2->GetValue(), stage.difference->GetValue(),
                                 stage.center->GetValue() };
    QTEST(after, "after");
    QCOMPARE(stage.Text("Difference"), QString::number(after[2], 'f', 1));
}

void tst_axisrangedisplay::equalRulers()
{
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    Listener center(stage.center.Get());
    stage.ruler1->SetValue(30.0, nullptr);
    QCOMPARE(stage.difference->GetValue(), 0.0);
    QCOMPARE(stage.center->GetValue(), 20.0);
    QCOMPARE(center.m_told, 0);
}

void tst_axisrangedisplay::crossedRulers()
{
    Stage stage;
    stage.Show();
    stage.Rulers(0.0, 50.0);
    QVector<double> seen; // by the time the difference is written, the rulers are in order
    Listener const difference(stage.difference.Get(), [&](TChangeCode) {
        seen = { stage.ruler1->GetValue(), stage.ruler2->GetValue() };
    });
    stage.ruler1->SetValue(80.0, nullptr);
    QCOMPARE(seen, QVector<double>({ 50.0, 80.0 }));
    QCOMPARE(stage.Texts(), QStringLiteral("50.0|30.0|80.0|65.0").split(QLatin1Char('|')));
}

void tst_axisrangedisplay::draggedRulers()
{
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    stage.ruler2->SetInterimValue(50.0, nullptr);
    QCOMPARE(stage.ruler2->GetValue(), 30.0);
    QCOMPARE(stage.difference->GetValue(), 40.0);
    QCOMPARE(stage.center->GetValue(), 30.0);
    QCOMPARE(stage.Text("Second Ruler"), QStringLiteral("50.0"));
    stage.ruler2->CommitInterimValue(nullptr);
    QCOMPARE(stage.difference->GetValue(), 40.0);
    stage.ruler1->SetInterimValue(20.0, nullptr);
    stage.ruler1->NotifyObservers(eValueChanged, nullptr); // the value, not the interim one
    QCOMPARE(stage.difference->GetValue(), 40.0);
    stage.ruler1->CommitInterimValue(nullptr);
    stage.Rulers(10.0, 30.0);
    stage.ruler1->SetInterimValue(40.0, nullptr); // across the other
    QCOMPARE(stage.ruler1->GetValue(), 30.0);
    QCOMPARE(stage.ruler2->GetValue(), 40.0);
    QCOMPARE(stage.difference->GetValue(), 10.0);
    QCOMPARE(stage.center->GetValue(), 35.0);
}

void tst_axisrangedisplay::entries_data()
{
    QTest::addColumn<bool>("isDifference");
    QTest::addColumn<double>("value");
    QTest::addColumn<QVector<double>>("after"); // rulers; 10 and 30 before
    QTest::newRow("wider") << true << 40.0 << QVector<double>{ 0, 40 };
    QTest::newRow("narrower") << true << 2.0 << QVector<double>{ 19, 21 };
    QTest::newRow("negative counts by its magnitude") << true << -40.0 << QVector<double>{ 0, 40 };
    QTest::newRow("0 moves nothing") << true << 0.0 << QVector<double>{ 10, 30 };
    QTest::newRow("centre up") << false << 25.0 << QVector<double>{ 15, 35 };
    QTest::newRow("centre below 0") << false << -100.0 << QVector<double>{ -110, -90 };
}

void tst_axisrangedisplay::entries()
{
    QFETCH(bool, isDifference);
    QFETCH(double, value);
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    (isDifference ? stage.difference : stage.center)->SetValue(value, nullptr);
    QVector<double> const after{ stage.ruler1->GetValue(), stage.ruler2->GetValue() };
    QTEST(after, "after");
    QCOMPARE(stage.Text("First Ruler"), QString::number(after[0], 'f', 1));
    QCOMPARE(stage.Text("Difference"), QString::number(after[1] - after[0], 'f', 1));
}

void tst_axisrangedisplay::entriesForCrossedRulers()
{
    Stage stage;
    stage.Rulers(5.0, 10.0);
    stage.Show();
    stage.ruler1->SetValue(30.0, stage.display); // crossed, and unheard
    stage.difference->SetValue(20.0, stage.display);
    stage.center->SetValue(20.0, stage.display);
    stage.difference->NotifyObservers(eValueChanged, nullptr);
    QCOMPARE(stage.ruler1->GetValue(), 30.0); // they stand there already
    QCOMPARE(stage.ruler2->GetValue(), 10.0);
    stage.center->SetValue(50.0, nullptr);
    QCOMPARE(stage.ruler1->GetValue(), 40.0); // and are written in order
    QCOMPARE(stage.ruler2->GetValue(), 60.0);
}

void tst_axisrangedisplay::draggedEntries()
{
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    stage.center->SetInterimValue(40.0, nullptr);
    QCOMPARE(stage.center->GetValue(), 20.0);
    QCOMPARE(stage.ruler1->GetValue(), 30.0);
    QCOMPARE(stage.ruler2->GetValue(), 50.0);
    stage.difference->SetInterimValue(40.0, nullptr);
    QCOMPARE(stage.ruler1->GetValue(), 20.0);
    QCOMPARE(stage.ruler2->GetValue(), 60.0);
}

void tst_axisrangedisplay::smallDeviations_data()
{
    QTest::addColumn<double>("center"); // the rulers stand at -1 and 1
    QTest::addColumn<bool>("moves");
    QTest::newRow("none") << 0.0 << false;
    QTest::newRow("half of what counts, twice") << 0x1p-35 << false; // 2.9e-11
    QTest::newRow("what counts, twice") << 0x1p-34 << true;          // 5.8e-11
    QTest::newRow("more") << 1e-3 << true;
    QTest::newRow("less than none") << -0x1p-34 << true;
}

void tst_axisrangedisplay::smallDeviations()
{
    QFETCH(double, center);
    QFETCH(bool, moves);
    Stage stage;
    stage.Rulers(-1.0, 1.0);
    stage.Show();
    QCOMPARE(stage.center->GetValue(), 0.0);
    stage.center->SetValue(center, nullptr);
    QCOMPARE(stage.ruler1->GetValue() != -1.0, moves);
    QCOMPARE(stage.ruler2->GetValue() != 1.0, moves);
    QVERIFY(!moves || stage.ruler1->GetValue() == center - 1.0);
}

void tst_axisrangedisplay::notWhileHidden()
{
    Stage stage;
    stage.Rulers(30.0, 10.0);
    QCOMPARE(stage.ruler1->GetValue(), 30.0);
    QCOMPARE(stage.difference->GetValue(), 0.0);
    QCOMPARE(stage.Text("First Ruler"), QString());
    stage.Show();
    QCOMPARE(stage.ruler1->GetValue(), 10.0);
    QCOMPARE(stage.difference->GetValue(), 20.0);
    stage.axis.slotHideAxisRangeDisplay();
    stage.ruler1->SetValue(50.0, nullptr);
    stage.difference->SetValue(1.0, nullptr);
    QCOMPARE(stage.ruler1->GetValue(), 50.0);
    QCOMPARE(stage.Text("First Ruler"), QStringLiteral("10.0"));
}

void tst_axisrangedisplay::notWhileOneIsMissing()
{
    using Set = bool (AxisRangeDisplay::*)(QString const &);
    Set const setters[] = { &AxisRangeDisplay::SetRuler1_ValuePath, &AxisRangeDisplay::SetRuler2_ValuePath,
                            &AxisRangeDisplay::SetCenter_ValuePath, &AxisRangeDisplay::SetExportDifference_ValuePath };
    for (Set const set : setters) {
        Stage stage;
        stage.Rulers(10.0, 30.0);
        stage.Show();
        QVERIFY(!(stage.display->*set)(QStringLiteral("/none")));
        stage.Rulers(50.0, 40.0);
        stage.difference->SetValue(7.0, nullptr);
        stage.display->ShowValues();
        QCOMPARE(stage.ruler1->GetValue(), 50.0);
        QCOMPARE(stage.center->GetValue(), 20.0);
        QCOMPARE(stage.Text("First Ruler"), QStringLiteral("10.0"));
    }
}

void tst_axisrangedisplay::otherCodesShowOnly()
{
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    for (TChangeCode const code : { eRangeChanged, eItemsChanged, static_cast<TChangeCode>(99) }) {
        stage.Part("Difference")->setText(QString());
        stage.ruler1->NotifyObservers(code, nullptr);
        QCOMPARE(stage.Text("Difference"), QStringLiteral("20.0"));
    }
    stage.Part("Difference")->setText(QString());
    stage.ruler1->NotifyObservers(eStateChanged, nullptr); // it stays: nothing at all
    QCOMPARE(stage.Text("Difference"), QString());
    QVERIFY(stage.ruler1->HasObserver(stage.display));
    stage.display->Update(nullptr, eValueChanged); // of a stranger
    QCOMPARE(stage.Text("Difference"), QStringLiteral("20.0"));
    stage.display->Update(nullptr, eStateChanged);
}

void tst_axisrangedisplay::excludedFromItsWrites()
{
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    Listener const ruler1(stage.ruler1.Get());
    Listener const ruler2(stage.ruler2.Get());
    Listener const center(stage.center.Get());
    stage.difference->SetValue(10.0, nullptr);
    QCOMPARE(stage.ruler1->GetValue(), 15.0);
    QCOMPARE(stage.ruler2->GetValue(), 25.0);
    QCOMPARE(ruler1.m_told, 1); // had it heard of itself, the difference of the half way would have been written
    QCOMPARE(ruler2.m_told, 1);
    QCOMPARE(center.m_told, 0);
    QCOMPARE(stage.difference->GetValue(), 10.0);
}

void tst_axisrangedisplay::ownWritesComeToRest()
{
    Stage stage;
    stage.ruler1->SetMinMax(0.0, 100.0, 10.0, nullptr); // what is entered is not what they can hold
    stage.ruler2->SetMinMax(0.0, 100.0, 10.0, nullptr);
    stage.Rulers(10.0, 30.0);
    stage.Show();
    stage.difference->SetValue(27.0, nullptr);
    QCOMPARE(stage.ruler1->GetValue(), 10.0);
    QCOMPARE(stage.ruler2->GetValue(), 30.0);
    QCOMPARE(stage.Text("Difference"), QStringLiteral("20.0")); // what is
    QCOMPARE(stage.difference->GetValue(), 27.0);
}

void tst_axisrangedisplay::writerInside()
{
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    Listener const limiter(stage.difference.Get(), [&](TChangeCode) {
        if (stage.difference->GetValue() > 50.0)
            stage.ruler2->SetValue(stage.ruler1->GetValue() + 50.0, nullptr);
    });
    stage.ruler2->SetValue(90.0, nullptr);
    QCOMPARE(stage.ruler2->GetValue(), 60.0);
    QCOMPARE(stage.difference->GetValue(), 50.0);
    QCOMPARE(stage.center->GetValue(), 35.0); // of the later computation
    QCOMPARE(stage.Texts(), QStringLiteral("10.0|50.0|60.0|35.0").split(QLatin1Char('|')));
}

void tst_axisrangedisplay::deletedInside()
{
    for (int victim = 0; victim < 4; ++victim) {
        Stage stage;
        stage.Rulers(10.0, 30.0);
        stage.Show();
        Number * const values[] = { stage.ruler1.Get(), stage.ruler2.Get(), stage.difference.Get(),
                                    stage.center.Get() };
        QPointer<AxisRangeDisplay> const display(stage.display);
        Listener const killer(values[victim], [&](TChangeCode) { delete display.data(); });
        stage.ruler1->SetValue(60.0, nullptr); // crossed: all four are written
        QVERIFY(!display);
        QVERIFY(!stage.axis.GetAxisRangeDisplay());
    }
    for (int victim = 0; victim < 2; ++victim) {
        Stage stage;
        stage.Rulers(10.0, 30.0);
        stage.Show();
        QPointer<AxisRangeDisplay> const display(stage.display);
        Listener const killer((victim == 0 ? stage.ruler1 : stage.ruler2).Get(),
                              [&](TChangeCode) { delete display.data(); });
        stage.difference->SetValue(60.0, nullptr);
        QVERIFY(!display);
    }
}

void tst_axisrangedisplay::unboundInside()
{
    for (int victim = 0; victim < 4; ++victim) {
        Stage stage;
        stage.Rulers(10.0, 30.0);
        stage.Show();
        Number * const values[] = { stage.ruler1.Get(), stage.ruler2.Get(), stage.difference.Get(),
                                    stage.center.Get() };
        Listener const remover(values[victim], [&](TChangeCode) {
            for (Planted<Number> const * const value : { &stage.difference, &stage.center })
                Tree::Instance()->Remove(value->Path());
        });
        stage.ruler1->SetValue(60.0, nullptr);
        QVERIFY(stage.Text("First Ruler") == QStringLiteral("10.0"));
    }
}

// Binding

void tst_axisrangedisplay::badPaths()
{
    Stage stage;
    Planted<Value<QString>> text("text");
    for (QString const & path : { QString(), QStringLiteral("/none"), text.Path() }) {
        QVERIFY(stage.display->SetRuler1_ValuePath(stage.ruler1.Path()));
        QVERIFY(stage.ruler1->HasObserver(stage.display));
        QVERIFY(!stage.display->SetRuler1_ValuePath(path));
        QVERIFY(!stage.ruler1->HasObserver(stage.display));
        QVERIFY(!stage.display->SetRuler2_ValuePath(path) && !stage.display->SetCenter_ValuePath(path));
        QVERIFY(!stage.display->SetExportDifference_ValuePath(path));
    }
    QVERIFY(stage.display->SetCenter_ValuePath(stage.center.Path()));
}

void tst_axisrangedisplay::bindingWhileVisibleMovesNoRuler()
{
    Stage stage;
    stage.Show();
    Planted<Number> low("low");
    Planted<Number> high("high");
    low->SetValue(88.0, nullptr);
    high->SetValue(101.0, nullptr);
    QVERIFY(stage.display->SetRuler1_ValuePath(low.Path())); // above the other ruler, until that is bound as well
    QCOMPARE(low->GetValue(), 88.0);
    QVERIFY(stage.display->SetRuler2_ValuePath(high.Path()));
    QCOMPARE(stage.difference->GetValue(), 13.0);
    QCOMPARE(stage.Text("First Ruler"), QStringLiteral("88.0"));
    QCoreApplication::processEvents();
    QCOMPARE(low->GetValue(), 88.0);
    QCOMPARE(high->GetValue(), 101.0);
    QCOMPARE(stage.ruler1->GetValue() + stage.ruler2->GetValue(), 0.0);
}

void tst_axisrangedisplay::bindingADifferenceOrCentreMovesRulers()
{
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    Planted<Number> wide("wide");
    wide->SetValue(40.0, nullptr);
    QVERIFY(stage.display->SetExportDifference_ValuePath(wide.Path()));
    QCOMPARE(wide->GetValue(), 40.0);
    QCOMPARE(stage.ruler1->GetValue(), 0.0);
    QCOMPARE(stage.ruler2->GetValue(), 40.0);
    Planted<Number> middle("middle");
    middle->SetValue(70.0, nullptr);
    QVERIFY(stage.display->SetCenter_ValuePath(middle.Path()));
    QCOMPARE(middle->GetValue(), 70.0);
    QCOMPARE(stage.ruler1->GetValue(), 50.0);
    QCOMPARE(stage.ruler2->GetValue(), 90.0);
    QCOMPARE(stage.Texts(), QStringLiteral("50.0|40.0|90.0|70.0").split(QLatin1Char('|')));
}

void tst_axisrangedisplay::crossedAtBinding()
{
    Stage stage;
    stage.Show();
    Planted<Number> low("low");
    low->SetValue(88.0, nullptr);
    QVERIFY(stage.display->SetRuler1_ValuePath(low.Path()));
    QTRY_COMPARE(low->GetValue(), 0.0);
    QCOMPARE(stage.ruler2->GetValue(), 88.0);
    QCOMPARE(stage.difference->GetValue(), 88.0);
}

void tst_axisrangedisplay::valuesGoAway_data()
{
    QTest::addColumn<int>("which");
    QTest::newRow("ruler 1") << 0;
    QTest::newRow("ruler 2") << 1;
    QTest::newRow("difference") << 2;
    QTest::newRow("centre") << 3;
}

void tst_axisrangedisplay::valuesGoAway()
{
    QFETCH(int, which);
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    QStringList const paths{ stage.ruler1.Path(), stage.ruler2.Path(), stage.difference.Path(), stage.center.Path() };
    QVERIFY(Tree::Instance()->Remove(paths[which]));
    for (QString const & path : paths)
        if (auto * const left = Tree::Instance()->FindAs<Number>(path))
            left->SetValue(77.0, nullptr);
    stage.display->ShowValues();
    QCOMPARE(stage.Texts(), QStringLiteral("10.0|20.0|30.0|20.0").split(QLatin1Char('|')));
    auto * const again = new Number(paths[which].section(QLatin1Char('/'), -1));
    QVERIFY(Tree::Instance()->Insert(QStringLiteral("/axis"), again));
    QVERIFY(!again->HasObserver(stage.display)); // nothing binds by itself
}

void tst_axisrangedisplay::oneValueInTwoRoles()
{
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    QVERIFY(stage.display->SetRuler2_ValuePath(stage.ruler1.Path()));
    stage.ruler1->SetValue(12.0, nullptr);
    QCOMPARE(stage.difference->GetValue(), 0.0);
    QVERIFY(stage.display->SetRuler1_ValuePath(stage.ruler2.Path()));
    QVERIFY(stage.ruler1->HasObserver(stage.display)); // still ruler 2
    QCoreApplication::processEvents();
    stage.ruler1->SetValue(50.0, nullptr);
    QCOMPARE(stage.Texts().first(), stage.ruler2->GetStringValue().toDouble() < 50.0
                                        ? QString::number(stage.ruler2->GetValue(), 'f', 1)
                                        : QStringLiteral("50.0"));
    QVERIFY(stage.display->SetRuler1_ValuePath(stage.ruler1.Path()));
    QVERIFY(Tree::Instance()->Remove(stage.ruler1.Path()));
    stage.ruler2->SetValue(1.0, nullptr);
    stage.display->ShowValues();
}

void tst_axisrangedisplay::integerRulers()
{
    Stage stage;
    Planted<ValueNumeric<int>> low("low");
    Planted<ValueNumeric<int>> high("high");
    low->SetValue(3, nullptr);
    high->SetValue(8, nullptr);
    QVERIFY(stage.display->SetRuler1_ValuePath(low.Path()) && stage.display->SetRuler2_ValuePath(high.Path()));
    stage.Show();
    QCOMPARE(stage.difference->GetValue(), 5.0);
    QCOMPARE(stage.center->GetValue(), 5.5);
    low->SetValue(20, nullptr);
    QCOMPARE(low->GetValue(), 8);
    QCOMPARE(high->GetValue(), 20);
}

// Operation

void tst_axisrangedisplay::buttonShowsRulers()
{
    Stage stage;
    stage.axis.AddMarker(eRangeXStart);
    stage.axis.AddMarker(eRangeXStop);
    QVERIFY(stage.axis.SetMarker_ValuePath(eRangeXStart, stage.ruler1.Path()));
    QVERIFY(stage.axis.SetMarker_ValuePath(eRangeXStop, stage.ruler2.Path()));
    stage.axis.SetShowMarker(eRangeXStart, false);
    stage.axis.SetShowMarker(eRangeXStop, false);
    stage.Rulers(10.0, 30.0);
    stage.Show();
    stage.Button()->click();
    QVERIFY(stage.axis.GetShowMarkerFlag(eRangeXStart) && stage.axis.GetShowMarkerFlag(eRangeXStop));
    QCOMPARE(stage.ruler1->GetValue(), 10.0);
    stage.Button()->click();
    QVERIFY(!stage.axis.GetShowMarkerFlag(eRangeXStart) && !stage.axis.GetShowMarkerFlag(eRangeXStop));
    stage.display->slotShowDiffRuler(true);
    QVERIFY(stage.Button()->isChecked());
    QVERIFY(stage.axis.GetShowMarkerFlag(eRangeXStart) && stage.axis.GetShowMarkerFlag(eRangeXStop));
    stage.display->slotShowDiffRuler(false);
    QVERIFY(!stage.Button()->isChecked() && !stage.axis.GetShowMarkerFlag(eRangeXStop));
}

void tst_axisrangedisplay::buttonBringsRulersIntoTheRange_data()
{
    QTest::addColumn<QVector<double>>("range");
    QTest::addColumn<QVector<double>>("before");
    QTest::addColumn<QVector<double>>("after");
    QVector<double> const range{ 0.0, 100.0 };
    QVector<double> const quarters{ 25.0, 75.0 };
    QTest::newRow("inside: as they are") << range << QVector<double>{ 0, 100 } << QVector<double>{ 0, 100 };
    QTest::newRow("equal") << range << QVector<double>{ 50, 50 } << quarters;
    QTest::newRow("one below") << range << QVector<double>{ -1, 50 } << quarters;
    QTest::newRow("one above") << range << QVector<double>{ 50, 101 } << quarters;
    QTest::newRow("both above") << range << QVector<double>{ 500, 600 } << quarters;
    QTest::newRow("the second at its place") << range << QVector<double>{ -1, 75 } << quarters;
    QTest::newRow("the first at its place") << range << QVector<double>{ 25, 101 } << quarters;
    QTest::newRow("falling range") << QVector<double>{ 100, 0 } << QVector<double>{ 500, 600 } << quarters;
    QTest::newRow("no range") << QVector<double>{ 5, 5 } << QVector<double>{ 50, 60 } << QVector<double>{ 50, 60 };
}

void tst_axisrangedisplay::buttonBringsRulersIntoTheRange()
{
    QFETCH(QVector<double>, range);
    QFETCH(QVector<double>, before);
    Stage stage;
    stage.axis.SetRange(range[0], range[1]);
    stage.Rulers(before[0], before[1]);
    stage.Show();
    stage.Button()->click();
    QTEST(QVector<double>({ stage.ruler1->GetValue(), stage.ruler2->GetValue() }), "after");
    QCOMPARE(stage.difference->GetValue(), stage.ruler2->GetValue() - stage.ruler1->GetValue());
    QCOMPARE(stage.center->GetValue(), (stage.ruler1->GetValue() + stage.ruler2->GetValue()) / 2.0);
    QCOMPARE(stage.Text("First Ruler"), QString::number(stage.ruler1->GetValue(), 'f', 1));
    stage.Button()->click(); // hides them, and moves nothing
    QTEST(QVector<double>({ stage.ruler1->GetValue(), stage.ruler2->GetValue() }), "after");
}

void tst_axisrangedisplay::buttonWithoutAMarkerTellsOthers()
{
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    QStringList told;
    connect(&stage.axis, &MarkerList::signalSetState, this, [&](QString const & path, EMarkerState state, bool on) {
        told << QStringLiteral("%1 %2 %3").arg(path).arg(int(state)).arg(on);
    });
    stage.Button()->click();
    QCOMPARE(told, QStringList(
                       { stage.ruler1.Path() + QStringLiteral(" 0 1"), stage.ruler2.Path() + QStringLiteral(" 0 1") }));
    told.clear();
    stage.Button()->click();
    QCOMPARE(told, QStringList(
                       { stage.ruler1.Path() + QStringLiteral(" 0 0"), stage.ruler2.Path() + QStringLiteral(" 0 0") }));
}

void tst_axisrangedisplay::defaultsReleaseTheButton()
{
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    stage.Button()->click();
    stage.display->slotRestoreDefaultPersistant();
    QVERIFY(!stage.Button()->isChecked());
    stage.Button()->click();
    Q_EMIT GuiCentral::Instance().signalRestoreDefaultPersistant();
    QVERIFY(!stage.Button()->isChecked());
    QCOMPARE(stage.ruler1->GetValue(), 10.0);
}

void tst_axisrangedisplay::typedNumbers()
{
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    QVERIFY(!stage.Entry()->isVisible());
    QTest::mouseDClick(stage.Part("Difference"), Qt::LeftButton);
    QVERIFY(stage.Entry()->isVisible());
    QCOMPARE(stage.Entry()->geometry(), stage.Part("Difference")->geometry());
    QCOMPARE(stage.Entry()->text(), QStringLiteral("20"));
    Type(stage.Entry(), QStringLiteral("40"));
    QVERIFY(!stage.Entry()->isVisible());
    QCOMPARE(stage.ruler1->GetValue(), 0.0);
    QCOMPARE(stage.ruler2->GetValue(), 40.0);
    QTest::keyClick(stage.Part("Center"), Qt::Key_Return);
    QCOMPARE(stage.Entry()->geometry(), stage.Part("Center")->geometry());
    Type(stage.Entry(), QStringLiteral("50.5"));
    QCOMPARE(stage.ruler1->GetValue(), 30.5);
    for (char const * const bad : { "nan", "inf", "x", "1e999", "" }) {
        QTest::keyClick(stage.Part("Center"), Qt::Key_F2);
        Type(stage.Entry(), QString());
        QTest::keyClick(stage.Part("Center"), Qt::Key_F2);
        Type(stage.Entry(), QLatin1String(bad));
        QVERIFY(!stage.Entry()->isVisible());
        QCOMPARE(stage.center->GetValue(), 50.5);
    }
    stage.axis.SetConverter(new SuffixedDouble(SuffixedDouble::eSuffixMega));
    QTest::keyClick(stage.Part("Center"), Qt::Key_Enter);
    Type(stage.Entry(), QStringLiteral("100 MHz"));
    QCOMPARE(stage.center->GetValue(), 100e6);
    stage.axis.SetConverter(nullptr);
    stage.axis.SetDisplayFactor(1e-6);
    QTest::keyClick(stage.Part("Center"), Qt::Key_Enter);
    QCOMPARE(stage.Entry()->text(), QStringLiteral("100"));
    Type(stage.Entry(), QStringLiteral("200"));
    QCOMPARE(stage.center->GetValue(), 200e6);
}

void tst_axisrangedisplay::typedTimes()
{
    GuiBase::Instance().GetTimeZone()->Select(7200L, nullptr);
    Stage stage(AxisRangeDisplay::StyleHorizontal | AxisRangeDisplay::StyleTime, AcrossTime);
    stage.Rulers(Today - 30.0 * Second, Today + 30.0 * Second);
    stage.Show();
    QTest::mouseDClick(stage.Part("Difference"), Qt::LeftButton);
    QCOMPARE(stage.Entry()->text(), QStringLiteral("00:01:00.000"));
    Type(stage.Entry(), QStringLiteral("1:30.5"));
    QCOMPARE(stage.difference->GetValue(), 90.5 * Second);
    QTest::mouseDClick(stage.Part("Difference"), Qt::LeftButton);
    Type(stage.Entry(), QStringLiteral("1:00:02"));
    QCOMPARE(stage.difference->GetValue(), 3602.0 * Second);
    for (char const * const bad : { "1:2:3:4", "::", "1:x", "nan", "inf", "1:inf", "--5", "1:-30", "-" }) {
        QTest::mouseDClick(stage.Part("Difference"), Qt::LeftButton);
        Type(stage.Entry(), QLatin1String(bad));
        QCOMPARE(stage.difference->GetValue(), 3602.0 * Second);
    }
    QTest::mouseDClick(stage.Part("Center"), Qt::LeftButton);
    QCOMPARE(stage.Entry()->text(), QStringLiteral("2026-11-21 17:00:00.000"));
    Type(stage.Entry(), QStringLiteral("2026-11-21 18:00"));
    QCOMPARE(stage.center->GetValue(), Today + 3600.0 * Second);
    QTest::mouseDClick(stage.Part("Center"), Qt::LeftButton);
    Type(stage.Entry(), QStringLiteral("never"));
    QCOMPARE(stage.center->GetValue(), Today + 3600.0 * Second);
    QCOMPARE(stage.ruler2->GetValue(), Today + (3600.0 + 1801.0) * Second);
}

void tst_axisrangedisplay::typedSpansOfDays()
{
    Stage stage(AxisRangeDisplay::StyleHorizontal | AxisRangeDisplay::StyleTime, AcrossTime);
    stage.Rulers(Today, Today + 25.0 * 3600.0 * Second);
    stage.Show();
    QTest::mouseDClick(stage.Part("Difference"), Qt::LeftButton);
    QCOMPARE(stage.Entry()->text(), QStringLiteral("25:00:00.000"));
    Type(stage.Entry(), QStringLiteral("25:00:01"));
    QCOMPARE(stage.ruler2->GetValue() - stage.ruler1->GetValue(), 90001.0 * Second);
    for (auto const & [text, seconds] : { std::pair("-1:30", 90.0), std::pair("-0:30", 30.0) }) {
        QTest::mouseDClick(stage.Part("Difference"), Qt::LeftButton);
        Type(stage.Entry(), QLatin1String(text));
        QCOMPARE(stage.ruler2->GetValue() - stage.ruler1->GetValue(), seconds * Second);
        QCOMPARE(stage.difference->GetValue(), -seconds * Second);
    }
}

void tst_axisrangedisplay::typingLeft()
{
    for (bool const isDeleted : { false, true }) {
        Stage stage;
        stage.Rulers(10.0, 30.0);
        stage.Show();
        QPointer<AxisRangeDisplay> const display(stage.display);
        Listener const killer(stage.ruler1.Get(), [&](TChangeCode) {
            if (isDeleted)
                delete display.data();
        });
        QTest::mouseDClick(stage.Part("Difference"), Qt::LeftButton);
        QTest::keyClicks(stage.Entry(), QStringLiteral("40"));
        QFocusEvent popup(QEvent::FocusOut, Qt::PopupFocusReason); // its menu
        QCoreApplication::sendEvent(stage.Entry(), &popup);
        QCoreApplication::processEvents();
        QVERIFY(stage.Entry()->isVisible());
        QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
        QCoreApplication::sendEvent(stage.Entry(), &out);
        QCOMPARE(stage.ruler1->GetValue(), 10.0); // the line edit is not done with the event
        QCoreApplication::processEvents();
        QCOMPARE(stage.ruler1->GetValue(), 0.0);
        QCOMPARE(display.isNull(), isDeleted);
        QVERIFY(isDeleted || !stage.Entry()->isVisible());
    }
}

void tst_axisrangedisplay::typingElsewhere()
{
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    QTest::mouseDClick(stage.Part("Difference"), Qt::LeftButton);
    QTest::keyClicks(stage.Entry(), QStringLiteral("40"));
    QTest::mouseDClick(stage.Part("Center"), Qt::LeftButton); // takes the first, and opens the second
    QCOMPARE(stage.difference->GetValue(), 40.0);
    QCoreApplication::processEvents();
    QVERIFY(stage.Entry()->isVisible());
    QCOMPARE(stage.Entry()->geometry(), stage.Part("Center")->geometry());
    Type(stage.Entry(), QStringLiteral("50"));
    QCOMPARE(stage.ruler1->GetValue(), 30.0);
    QTest::mouseDClick(stage.Part("Difference"), Qt::LeftButton);
    QTest::keyClicks(stage.Entry(), QStringLiteral("10"));
    QPointer<AxisRangeDisplay> const display(stage.display);
    Listener const killer(stage.ruler1.Get(), [&](TChangeCode) { delete display.data(); });
    QTest::keyClick(stage.Part("Center"), Qt::Key_F2);
    QVERIFY(!display);
}

void tst_axisrangedisplay::typingWithoutRoom()
{
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    QTest::mouseDClick(stage.Part("Center"), Qt::LeftButton);
    QTest::keyClicks(stage.Entry(), QStringLiteral("50"));
    stage.axis.resize(550, 40);
    QVERIFY(stage.Entry()->isVisible());
    QCOMPARE(stage.Entry()->geometry(), stage.Part("Center")->geometry());
    stage.axis.resize(90, 40);
    QVERIFY(!stage.Entry()->isVisible());
    QCoreApplication::processEvents();
    QCOMPARE(stage.center->GetValue(), 20.0);
}

void tst_axisrangedisplay::typingGivenUp()
{
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    QTest::mouseDClick(stage.Part("Difference"), Qt::LeftButton);
    QTest::keyClicks(stage.Entry(), QStringLiteral("5"));
    QTest::keyClick(stage.Entry(), Qt::Key_Escape);
    QVERIFY(!stage.Entry()->isVisible());
    QCOMPARE(stage.difference->GetValue(), 20.0);
    QTest::mouseDClick(stage.Part("Difference"), Qt::LeftButton);
    QTest::keyClicks(stage.Entry(), QStringLiteral("5"));
    stage.axis.slotHideAxisRangeDisplay();
    QCOMPARE(stage.difference->GetValue(), 20.0);
    stage.axis.slotShowAxisRangeDisplay();
    QVERIFY(!stage.Entry()->isVisible());
    QTest::mouseDClick(stage.Part("Difference"), Qt::LeftButton);
    QTest::keyClick(stage.Entry(), Qt::Key_Return); // nothing typed
    QCOMPARE(stage.ruler1->GetValue(), 10.0);
    QTest::mouseDClick(stage.Part("First Ruler"), Qt::LeftButton); // a ruler is dragged, not entered
    QVERIFY(!stage.Entry()->isVisible());
    QVERIFY(!stage.display->SetRuler1_ValuePath(QString()));
    QTest::mouseDClick(stage.Part("Difference"), Qt::LeftButton);
    QVERIFY(!stage.Entry()->isVisible());
}

void tst_axisrangedisplay::typingCanBeUndone()
{
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    QUndoStack * const undo = GuiBase::Instance().UndoStack();
    QTest::mouseDClick(stage.Part("Center"), Qt::LeftButton);
    Type(stage.Entry(), QStringLiteral("60"));
    QCOMPARE(undo->count(), 1);
    QCOMPARE(stage.ruler1->GetValue(), 50.0);
    undo->undo();
    QCOMPARE(stage.ruler1->GetValue(), 10.0);
    QCOMPARE(stage.ruler2->GetValue(), 30.0);
    QCOMPARE(stage.center->GetValue(), 20.0);
}

// Bad input

void tst_axisrangedisplay::everyPairOfNumbers_data()
{
    QTest::addColumn<unsigned int>("style");
    QTest::addColumn<unsigned int>("type");
    QTest::newRow("numbers") << 1U << Across;
    QTest::newRow("times") << 5U << AcrossTime;
}

void tst_axisrangedisplay::everyPairOfNumbers()
{
    QFETCH(unsigned int, style);
    QFETCH(unsigned int, type);
    Stage stage(style, type);
    stage.Show();
    for (double const a : SpecialDoubles())
        for (double const b : SpecialDoubles()) {
            stage.Rulers(a, b);
            double const low = stage.ruler1->GetValue();
            double const high = stage.ruler2->GetValue();
            if (!(low <= high))
                QFAIL(qPrintable(QStringLiteral("%1 and %2: %3 above %4").arg(a).arg(b).arg(low).arg(high)));
            QVERIFY(!std::isnan(stage.difference->GetValue()) && !std::isnan(stage.center->GetValue()));
            stage.difference->SetValue(b, nullptr);
            stage.center->SetValue(a, nullptr);
            QVERIFY(!std::isnan(stage.ruler1->GetValue()) && !std::isnan(stage.ruler2->GetValue()));
        }
    for (double const a : SpecialDoubles()) {
        stage.axis.SetDisplayFactor(a);
        stage.axis.SetRange(a, 5.0);
        stage.display->slotShowDiffRuler(true);
        stage.display->slotShowDiffRuler(false);
        stage.display->ShowValues();
    }
}

void tst_axisrangedisplay::withoutAnAxis()
{
    AxisRangeDisplay display(nullptr, "alone", 1);
    display.resize(500, 30);
    display.show();
    display.ShowValues();
    QCOMPARE(display.findChild<VCLabel *>(QStringLiteral("Center"))->text(), QStringLiteral("0.0"));
    display.slotShowDiffRuler(true);
    display.SetConverter(nullptr);
    display.SetFormatString(QString());
    display.SetFormatStringForFixedSize(QString());
    QImage image(500, 30, QImage::Format_RGB32);
    for (QSize const & size : { QSize(0, 0), QSize(1, 1), QSize(500, 30) }) {
        display.resize(size);
        display.render(&image);
    }
    QCOMPARE(image.pixelColor(250, 0), ColorSet::Instance()[IColorBase::eColorAxisScale]);
}

ORIM_TEST_MAIN(tst_axisrangedisplay)
#include "tst_axisrangedisplay.moc"
