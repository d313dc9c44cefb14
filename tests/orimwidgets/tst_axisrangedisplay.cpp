// SPDX-License-Identifier: MIT
#include "rangescene.h"

#include "colorset.h"
#include "specialdoubles.h"
#include "testmain.h"
#include "valueselection.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <memory>

namespace {

//! The values that displays made, by their numbers.
QStringList OwnPaths()
{
    QStringList paths = Tree::Instance()->GetPaths(QStringLiteral("/GuiCentral/unique/float"));
    std::stable_sort(paths.begin(), paths.end(),
                     [](QString const & a, QString const & b) { return a.size() < b.size(); });
    return paths;
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
    void arrowsOfAnotherScreen();
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
    void readOutsOfCrossedRulers();
    void format_data();
    void format();
    void convertersAndFactors();
    void hiddenDisplayKeepsItsUnit();
    void writeTakesAnyLabel();
    void times();
    void spans();
    void zoneChanges();
    void fixedSize();
    void sizingTexts();
    void fontFollowsTheFamily();
    void toolTipsOfValues();
    void noNumberIsCut_data();
    void noNumberIsCut();
    void everyNumberIsWritten();
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

void tst_axisrangedisplay::arrowsOfAnotherScreen()
{
    Stage stage;
    stage.Show();
    for (char const * const name : { "up", "down" }) {
        auto * const arrow = stage.Part<QLabel>(name);
        QImage const before = arrow->grab().toImage();
        arrow->clear();
        QVERIFY(arrow->grab().toImage() != before);
        QEvent change(QEvent::ScreenChangeInternal);
        QCoreApplication::sendEvent(stage.display, &change);
        QVERIFY(arrow->grab().toImage() == before);
    }
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
    row("spans keep their order", 3, 60e6, 90e6, "01:00|00:30|01:30|01:15");
    row("times: the later one first", 5, 60e6, 180e6, "00:03|02:00|00:01|00:02");
    row("both bits: spans", 7, 60e6, 90e6, "01:00|00:30|01:30|01:15");
    row("less than a second", 5, 60e6, 60.25e6, "00:01|00:00|00:01|00:01");
    row("spans just below an hour", 3, 0.0, 3599.999e6, "00:00|59:59|59:59|29:59");
    row("spans of an hour have their hours", 3, 0.0, 3600e6, "00:00|01:00:00|01:00:00|30:00");
    row("a day between two times", 5, 60e6, 90061e6, "01:01|25:00:01|00:01|12:31");
    row("a hundred hours between two times", 5, 60e6, 360060e6, "04:01|100:00:00|00:01|02:01");
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

void tst_axisrangedisplay::readOutsOfCrossedRulers()
{
    {
        Stage stage; // hidden: they stay crossed
        stage.Rulers(30.0, 10.0);
        stage.display->ShowValues();
        QCOMPARE(stage.Texts(), QStringLiteral("30.0|20.0|10.0|20.0").split(QLatin1Char('|')));
        QCOMPARE(stage.ruler1->GetValue(), 30.0); // shown, not moved
    }
    Stage times(AxisRangeDisplay::StyleHorizontal | AxisRangeDisplay::StyleTime);
    times.Rulers(180e6, 60e6);
    times.display->ShowValues();
    QCOMPARE(times.Texts(), QStringLiteral("00:01|02:00|00:03|00:02").split(QLatin1Char('|'))); // always change places
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
    stage.Show();
    stage.axis.SetConverter(new SuffixedDouble(SuffixedDouble::eSuffixMega));
    QCOMPARE(stage.Texts(), QStringLiteral("1.5|1|2.5|2").split(QLatin1Char('|')));
    SuffixedDouble kilo(SuffixedDouble::eSuffixKilo);
    stage.display->SetConverter(&kilo);
    QCOMPARE(stage.Text("First Ruler"), QStringLiteral("1500"));
    stage.display->SetConverter(nullptr);
    QCOMPARE(stage.Text("First Ruler"), QStringLiteral("1.5"));
    stage.axis.SetConverter(nullptr);
    QCOMPARE(stage.Text("First Ruler"), QStringLiteral("1500000.0"));
    stage.axis.SetDisplayFactor(1e-5);
    QCOMPARE(stage.Text("First Ruler"), QStringLiteral("15.0"));
    AxisProbe other;
    other.SetDisplayFactor(1e-6);
    stage.display->SetPixelToValueServer(&other);
    QCOMPARE(stage.Text("First Ruler"), QStringLiteral("1.5"));
    QVERIFY(stage.axis.GetAxisRangeDisplay() == stage.display);
    stage.display->SetPixelToValueServer(nullptr);
    QCOMPARE(stage.Text("First Ruler"), QStringLiteral("1500000.0"));
}

void tst_axisrangedisplay::hiddenDisplayKeepsItsUnit()
{
    Stage stage;
    stage.Rulers(1.5e6, 2.5e6);
    stage.display->ShowValues();
    stage.axis.SetConverter(new SuffixedDouble(SuffixedDouble::eSuffixMega));
    QCOMPARE(stage.Text("First Ruler"), QStringLiteral("1500000.0"));
    stage.axis.SetConverter(nullptr);
    stage.axis.SetDisplayFactor(1e-5);
    QCOMPARE(stage.Text("First Ruler"), QStringLiteral("1500000.0"));
    stage.Show();
    QCOMPARE(stage.Text("First Ruler"), QStringLiteral("15.0"));
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
    QCOMPARE(stage.Texts(), QStringLiteral("15:01:30|01:30|15:00:00|15:00:45").split(QLatin1Char('|')));
    stage.display->SetFormatString(QString());
    QCOMPARE(stage.Text("First Ruler"), QString());
}

void tst_axisrangedisplay::spans()
{
    GuiBase::Instance().GetTimeZone()->Select(7200L, nullptr);
    Stage stage(AxisRangeDisplay::StyleTimeSpan);
    stage.Rulers(0.0, 61.5 * Second);
    stage.display->SetFormatString(QStringLiteral("hh:mm:ss"));
    QCOMPARE(stage.Texts(), QStringLiteral("00:00:00|01:01|00:01:01|00:00:30").split(QLatin1Char('|')));
    stage.Rulers(-5e6, 5e6); // before the start there is none
    stage.display->ShowValues();
    QCOMPARE(stage.Text("First Ruler"), QStringLiteral("00:00:00"));
    QCOMPARE(stage.Text("Difference"), QStringLiteral("00:10"));
    stage.Rulers(0.0, 25.0 * 3600.0 * Second);
    stage.display->ShowValues();
    QCOMPARE(stage.Text("Second Ruler"), QStringLiteral("01:00:00")); // a format with hours is taken as it is
    stage.display->SetFormatString(QStringLiteral("ss"));
    QCOMPARE(stage.Text("Second Ruler"), QStringLiteral("00"));
    QCOMPARE(stage.Text("Difference"), QStringLiteral("25:00:00"));
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
    QCOMPARE(stage.Text("Difference"), QStringLiteral("01:00")); // a span
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
    QCOMPARE(hint(times, "Difference"), hint(times, "First Ruler"));
    int const before = hint(times, "Center");
    times.SetFormatString(QStringLiteral("yyyy-MM-dd hh:mm:ss"));
    QCOMPARE(hint(times, "Center"), before);
    times.SetFormatStringForFixedSize(QStringLiteral("hh:mm:ss"));
    int const fixed = hint(times, "Center");
    QVERIFY(fixed > before);
    times.SetFormatString(QStringLiteral("mm"));
    times.AdaptFontSize();
    QCOMPARE(hint(times, "Center"), fixed);
    QCOMPARE(hint(times, "Difference"), fixed);
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
    for (char const * const name : { "First Ruler", "Difference", "Second Ruler", "Center" })
        for (unsigned int const style : { 0U, 1U, 2U, 3U, 4U, 5U, 6U, 7U, 8U, 9U })
            QCOMPARE(hint(style, name), told((style & 6U) != 0 ? "99:99" : "999.999"));
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
    for (unsigned int const style : { 2U, 4U, 6U }) {
        Stage times(style, AcrossTime);
        times.Rulers(Today, Today + 90.25 * Second);
        times.display->ShowValues();
        QCOMPARE(times.Part("Difference")->toolTip(), QStringLiteral("01:30.250"));
        QCOMPARE(times.Part("Center")->toolTip(), QString());
        QCOMPARE(times.Part<QLabel>("up")->toolTip(), QStringLiteral("Upper Ruler")); // the arrows keep theirs
        times.ruler2->SetValue(Today + 25.0 * 3600.0 * Second, nullptr);
        times.display->ShowValues();
        QCOMPARE(times.Part("Difference")->toolTip(), QStringLiteral("25:00:00.000"));
    }
}

void tst_axisrangedisplay::noNumberIsCut_data()
{
    QTest::addColumn<unsigned int>("style");
    QTest::addColumn<QVector<double>>("rulers");
    QTest::addColumn<QString>("format");
    QTest::newRow("a short number") << 1U << QVector<double>{ 1.0, 2.0 } << QString();
    QTest::newRow("ten digits") << 1U << QVector<double>{ -1234567890.1, 1234567890.1 } << QString();
    QTest::newRow("upright") << 0U << QVector<double>{ -1234567890.1, 1234567890.1 } << QString();
    QTest::newRow("a date") << 5U << QVector<double>{ Today, Today + Second } << QStringLiteral("yyyy-MM-dd");
    QTest::newRow("a thousand hours") << 5U << QVector<double>{ Today, Today + 3.6e6 * Second }
                                      << QStringLiteral("hh:mm");
}

void tst_axisrangedisplay::noNumberIsCut()
{
    QFETCH(unsigned int, style);
    QFETCH(QVector<double>, rulers);
    QFETCH(QString, format);
    Stage stage(style, (style & 4U) != 0 ? AcrossTime : Across);
    stage.Show();
    stage.axis.resize(600, 200);
    int const points = stage.Part("First Ruler")->font().pointSize();
    stage.display->SetFormatString(format);
    QStringList const names{ QStringLiteral("First Ruler"), QStringLiteral("Difference"),
                             QStringLiteral("Second Ruler"), QStringLiteral("Center") };
    stage.Rulers(rulers[0], rulers[1]);
    for (QString const & name : names) {
        auto const * const label = stage.display->findChild<VCLabel *>(name);
        QVERIFY(label->isVisible() && !label->text().isEmpty());
        QVERIFY(label->fontMetrics().size(0, label->text()).width() <= label->contentsRect().width());
    }
    stage.Rulers(1.0, 2.0);
    stage.display->SetFormatString(QStringLiteral("hh:mm"));
    for (QString const & name : names)
        QCOMPARE(stage.display->findChild<VCLabel *>(name)->font().pointSize(), points); // as large as before
}

void tst_axisrangedisplay::everyNumberIsWritten()
{
    Stage stage;
    stage.Show();
    for (double const factor : SpecialDoubles()) {
        stage.axis.SetDisplayFactor(factor);
        for (double const value : SpecialDoubles()) {
            VCLabel label;
            stage.display->write(&label, value);
            bool isNumber = false;
            label.text().toDouble(&isNumber);
            QCOMPARE(isNumber, std::isfinite(value * stage.axis.GetDisplayFactor()));
            QVERIFY(isNumber || label.text() == QLatin1String("---"));
        }
    }
}

ORIM_TEST_MAIN(tst_axisrangedisplay)
#include "tst_axisrangedisplay.moc"
