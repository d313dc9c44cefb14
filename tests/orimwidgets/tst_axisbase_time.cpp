// SPDX-License-Identifier: MIT
#include "axisprobe.h"

#include "guibase.h"
#include "testmain.h"
#include "valueselection.h"

#include <QSignalSpy>

#include <climits>
#include <cmath>
#include <limits>

namespace {

constexpr double Today = 1795273200e6;    // us, 2026-11-21 15:00 UTC
constexpr double Year2100 = 4102444800e6; // us, 2100-01-01
constexpr double Second = 1e6;
constexpr double Hour = 3600e6;
constexpr double Day = 86400e6;
constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double Nothing = std::numeric_limits<double>::quiet_NaN();

//! Three micro signs.
QString MicroSigns() { return QString(3, QChar(0xB5)); }

class TimeProbe : public AxisProbe
{
public:
    explicit TimeProbe(unsigned int direction = AxisHorizontal) : AxisProbe(direction | AxisTimeStamps, 400, 30) {}

    QString LabelAt(double value)
    {
        QString label;
        BuildFormatString(label, value, nullptr);
        return label;
    }
};

} // namespace

class tst_axisbase_time : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void constants();
    void formatNumbers();
    void atTheStart();
    void formats_data();
    void formats();
    void numberThatIsNoFormat_data();
    void numberThatIsNoFormat();
    void dateFormatStays();
    void ticsOfARange_data();
    void ticsOfARange();
    void swappedEnds();
    void outputs();
    void noTicsWriteNothing_data();
    void noTicsWriteNothing();
    void textsAreSetThoughNoTicFits();
    void shortRangeStoresTheFormatAlone();
    void formatIsChosenAnew();
    void formatStaysWhileTheRowsShareIt();
    void unitFollowsTheRange();
    void fixedRangeKeepsItsTics();
    void linearAxisHasNoTimeTics();
    void labelsOfToday_data();
    void labelsOfToday();
    void labelsInTheYear2100();
    void secondsEndIn2038();
    void labelsFollowTheZone();
    void zoneIsCutToWholeSeconds();
    void labelsOfChosenFormats();
    void ticsStayOnTheSpotWhenTheZoneChanges();
    void ticsBelowTheRangeHaveNoPixel();
    void emptyTextOfAnInt();
    void boundEnds();
};

void tst_axisbase_time::cleanup() { GuiBase::Instance().GetTimeZone()->Select(0L, nullptr); }

void tst_axisbase_time::constants()
{
    QCOMPARE(AxisBase::m_sMicroSecond + 0, 1LL);
    QCOMPARE(AxisBase::m_sMilliSecond + 0, 1000LL);
    QCOMPARE(AxisBase::m_sSecond + 0, 1000000LL);
    QCOMPARE(AxisBase::m_sMinute + 0, 60000000LL);
    QCOMPARE(AxisBase::m_sHour + 0, 3600000000LL);
    QCOMPARE(AxisBase::m_sDay + 0, 86400000000LL);
}

void tst_axisbase_time::formatNumbers()
{
    int number = 0;
    for (AxisBase::TimeFormat const format :
         { AxisBase::eTimeFormat1, AxisBase::eTimeFormat2, AxisBase::eTimeFormat3, AxisBase::eTimeFormat4,
           AxisBase::eTimeFormat5, AxisBase::eTimeFormat6, AxisBase::eTimeFormat7, AxisBase::eTimeFormat8,
           AxisBase::eTimeFormat9, AxisBase::eTimeFormat10, AxisBase::eTimeFormat11 })
        QCOMPARE(static_cast<int>(format), ++number);
    QCOMPARE(number, 11);
}

void tst_axisbase_time::atTheStart()
{
    TimeProbe const axis;
    QCOMPARE(axis.m_timeFormat, 11);
    QCOMPARE(axis.m_timeFormatString, QStringLiteral("mm"));
    QCOMPARE(axis.m_dateFormatString, QString());
    QCOMPARE(axis.m_unitText, QString());
    QCOMPARE(axis.m_ticCount, 0);
}

void tst_axisbase_time::formats_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<QString>("tics");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("date");
    auto const row = [](int format, QString const & tics, char const * label, char const * date) {
        QTest::newRow(qPrintable(QString::number(format)))
            << format << tics << QString::fromLatin1(label) << QString::fromLatin1(date);
    };
    row(1, QStringLiteral("dd"), "Day in Month", "yyyy-MM-dd");
    row(2, QStringLiteral("dd / hh"), "Day in Month / Hour", "yyyy-MM-dd hh");
    row(3, QStringLiteral("hh"), "Hour", "yyyy-MM-dd hh");
    row(4, QStringLiteral("hh:mm"), "Hour:Minute", "yyyy-MM-dd hh:mm");
    row(5, QStringLiteral("hh:mm:ss"), "hh:mm:ss", "yyyy-MM-dd hh:mm:ss");
    row(6, QStringLiteral("mm"), "Minutes", "yyyy-MM-dd hh:mm");
    row(7, QStringLiteral("mm:ss"), "Minute/Seconds", "yyyy-MM-dd hh:mm:ss");
    row(8, QStringLiteral("ss"), "Seconds", "yyyy-MM-dd hh:mm:ss");
    row(9, QStringLiteral("mm:ss"), "Min:Sec", "as it was");
    row(10, QStringLiteral("ss.zzz"), "Seconds", "yyyy-MM-dd hh:mm:ss");
    row(11, MicroSigns(), "MicroSeconds", "yyyy-MM-dd hh:mm:ss");
}

void tst_axisbase_time::formats()
{
    QFETCH(int, format);
    TimeProbe axis;
    axis.m_dateFormatString = QStringLiteral("as it was");
    axis.ShowUnit(false);
    axis.SetTimeDisplayFormat(static_cast<AxisBase::TimeFormat>(format));
    QCOMPARE(axis.m_timeFormat, format);
    QTEST(axis.m_timeFormatString, "tics");
    QTEST(axis.m_unitText, "label");
    QTEST(axis.m_dateFormatString, "date");
    QVERIFY(axis.m_showUnit);
    QTEST(axis.GetPureUnitText(), "label");
    QCOMPARE(axis.m_repairs + axis.m_calculations, 0);
}

void tst_axisbase_time::numberThatIsNoFormat_data()
{
    QTest::addColumn<int>("format");
    QTest::newRow("0") << 0;
    QTest::newRow("12") << 12;
    QTest::newRow("-1") << -1;
    QTest::newRow("lowest") << INT_MIN;
    QTest::newRow("highest") << INT_MAX;
}

void tst_axisbase_time::numberThatIsNoFormat()
{
    QFETCH(int, format);
    TimeProbe axis;
    axis.SetTimeDisplayFormat(AxisBase::eTimeFormat3);
    axis.ShowUnit(false);
    axis.SetTimeDisplayFormat(static_cast<AxisBase::TimeFormat>(format));
    QCOMPARE(axis.m_timeFormat, format);
    QCOMPARE(axis.m_timeFormatString, QStringLiteral("mm:ss"));
    QCOMPARE(axis.m_unitText, QStringLiteral("Min:Sec"));
    QCOMPARE(axis.m_dateFormatString, QStringLiteral("yyyy-MM-dd hh"));
    QVERIFY(axis.m_showUnit);
}

void tst_axisbase_time::dateFormatStays()
{
    TimeProbe axis;
    axis.SetTimeDisplayFormat(AxisBase::eTimeFormat1);
    axis.SetTimeDisplayFormat(AxisBase::eTimeFormat9);
    QCOMPARE(axis.m_dateFormatString, QStringLiteral("yyyy-MM-dd"));
    QCOMPARE(axis.m_timeFormatString, QStringLiteral("mm:ss"));
}

void tst_axisbase_time::ticsOfARange_data()
{
    QTest::addColumn<double>("range"); // us
    QTest::addColumn<int>("format");
    QTest::addColumn<double>("step"); // us
    QTest::addColumn<int>("count");   // at today's 15:00
    QTest::newRow("4 days") << 4 * Day << 1 << 86400e6 << 6;
    QTest::newRow("3 days") << 3 * Day << 2 << 43200e6 << 8;
    QTest::newRow("2 days") << 2 * Day << 3 << 21600e6 << 10;
    QTest::newRow("20 hours") << 20 * Hour << 3 << 10800e6 << 8;
    QTest::newRow("12 hours") << 12 * Hour << 3 << 7200e6 << 8;
    QTest::newRow("6 hours") << 6 * Hour << 3 << 3600e6 << 8;
    QTest::newRow("4 hours") << 4 * Hour << 4 << 1800e6 << 10;
    QTest::newRow("2 hours") << 2 * Hour << 4 << 900e6 << 10;
    QTest::newRow("an hour") << Hour << 6 << 600e6 << 8;
    QTest::newRow("30 minutes") << 1800 * Second << 6 << 300e6 << 8;
    QTest::newRow("15 minutes") << 900 * Second << 6 << 120e6 << 9;
    QTest::newRow("5 minutes") << 300 * Second << 6 << 60e6 << 7;
    QTest::newRow("2 minutes") << 120 * Second << 7 << 30e6 << 6;
    QTest::newRow("above a minute") << 60000001.0 << 7 << 30e6 << 4;
    QTest::newRow("a minute") << 60 * Second << 8 << 10e6 << 8;
    QTest::newRow("10 seconds") << 10 * Second << 8 << 2e6 << 7;
    QTest::newRow("5 seconds") << 5 * Second << 8 << 1e6 << 7;
    QTest::newRow("above a second") << 1000001.0 << 8 << 1e6 << 3;
}

void tst_axisbase_time::ticsOfARange()
{
    QFETCH(double, range);
    QFETCH(int, format);
    TimeProbe axis;
    axis.SetRange(Today, Today + range);
    QCOMPARE(axis.m_timeFormat, format);
    QTEST(axis.m_ticStep, "step");
    QTEST(axis.m_ticCount, "count");
    QCOMPARE(axis.m_minorTics, axis.m_ticCount);
    QCOMPARE(axis.m_ticOffset, 0.0);
    QVERIFY(axis.m_firstTic <= Today && axis.m_firstTic > Today - 2 * axis.m_ticStep);
    QCOMPARE(std::fmod(axis.m_firstTic, axis.m_ticStep), 0.0);
    TimeProbe told;
    told.SetTimeDisplayFormat(static_cast<AxisBase::TimeFormat>(format));
    QCOMPARE(axis.m_timeFormatString, told.m_timeFormatString);
    QCOMPARE(axis.m_dateFormatString, told.m_dateFormatString);
    QCOMPARE(axis.m_unitText, told.m_unitText);
}

void tst_axisbase_time::swappedEnds()
{
    TimeProbe up;
    TimeProbe down;
    up.SetRange(Today, Today + 7 * Hour);
    down.SetRange(Today + 7 * Hour, Today);
    QCOMPARE(down.m_ticCount, up.m_ticCount);
    QCOMPARE(down.m_firstTic, up.m_firstTic);
    QCOMPARE(down.m_ticStep, up.m_ticStep);
    QCOMPARE(down.m_timeFormat, up.m_timeFormat);
    QVERIFY(up.m_ticCount > 0);
}

void tst_axisbase_time::outputs()
{
    TimeProbe axis;
    double start = Today;
    double stop = Today + 5 * Second;
    int minor = -5;
    int left = -6;
    int right = -7;
    double first = -8.0;
    double step = -9.0;
    double offset = -10.0;
    QCOMPARE(axis.GetAxisValues(&start, &stop, &minor, &left, &right, &first, &step, &offset, 3), 7);
    QCOMPARE(start, Today);
    QCOMPARE(stop, Today + 5 * Second);
    QCOMPARE(minor, 7);
    QCOMPARE(left, -6); // digits stay
    QCOMPARE(right, -7);
    QCOMPARE(first, Today - Second);
    QCOMPARE(step, Second);
    QCOMPARE(offset, 0.0);
    QCOMPARE(axis.GetAxisValues(&start, &stop, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, 1), 7);
    QCOMPARE(axis.GetAxisValues(nullptr, &stop, &minor, &left, &right, &first, &step, &offset, 1), 0);
    QCOMPARE(axis.GetAxisValues(&start, nullptr, &minor, &left, &right, &first, &step, &offset, 1), 0);
}

void tst_axisbase_time::noTicsWriteNothing_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<int>("format"); // 3 was set
    QTest::newRow("equal ends") << Today << Today << 3;
    QTest::newRow("NaN") << Nothing << Today << 3;
    QTest::newRow("infinite") << 0.0 << Infinity << 3;
    QTest::newRow("2^63 wide") << 0.0 << 0x1p63 << 3;
    QTest::newRow("all doubles") << -std::numeric_limits<double>::max() << std::numeric_limits<double>::max() << 3;
    QTest::newRow("a second") << Today << Today + Second << 8;
    QTest::newRow("seconds in 2100") << Year2100 << Year2100 + 5 * Second << 8;
    QTest::newRow("days past 32 bits") << 1e21 << 1e21 + 1e15 << 1;
}

void tst_axisbase_time::noTicsWriteNothing()
{
    QFETCH(double, start);
    QFETCH(double, stop);
    for (bool const swapped : { false, true }) {
        TimeProbe axis;
        axis.SetTimeDisplayFormat(AxisBase::eTimeFormat3);
        double from = swapped ? stop : start;
        double to = swapped ? start : stop;
        int minor = -5;
        double first = -8.0;
        double step = -9.0;
        double offset = -10.0;
        QCOMPARE(axis.GetAxisValues(&from, &to, &minor, nullptr, nullptr, &first, &step, &offset, 1), 0);
        QCOMPARE(minor, -5);
        QCOMPARE(first, -8.0);
        QCOMPARE(step, -9.0);
        QCOMPARE(offset, -10.0);
        QTEST(axis.m_timeFormat, "format");
    }
}

void tst_axisbase_time::textsAreSetThoughNoTicFits()
{
    TimeProbe axis;
    axis.SetTimeDisplayFormat(AxisBase::eTimeFormat3);
    axis.SetRange(1e21, 1e21 + 1e15);
    QCOMPARE(axis.m_ticCount, 0);
    QCOMPARE(axis.m_timeFormatString, QStringLiteral("dd"));
    QCOMPARE(axis.m_unitText, QStringLiteral("Day in Month"));
}

void tst_axisbase_time::shortRangeStoresTheFormatAlone()
{
    TimeProbe axis;
    axis.SetRange(Today, Today + 7 * Hour);
    QCOMPARE(axis.m_timeFormatString, QStringLiteral("hh"));
    axis.ShowUnit(false);
    axis.SetRange(Today, Today + Second);
    QCOMPARE(axis.m_ticCount, 0);
    QCOMPARE(axis.m_timeFormat, 8);
    QCOMPARE(axis.m_timeFormatString, QStringLiteral("hh"));
    QCOMPARE(axis.m_dateFormatString, QStringLiteral("yyyy-MM-dd hh"));
    QCOMPARE(axis.m_unitText, QStringLiteral("Hour"));
    QVERIFY(!axis.m_showUnit);
    axis.SetFixedRange(Today, Today + Second, 0, 1, 1, 0.0, 1.0); // so that the stop is set without tics between
    axis.m_fixedRange = false;
    axis.SetStopValue(Today + 5 * Second); // the same format by number: its texts are not set
    QCOMPARE(axis.m_ticCount, 7);
    QCOMPARE(axis.m_timeFormat, 8);
    QCOMPARE(axis.m_timeFormatString, QStringLiteral("hh"));
    axis.SetStopValue(Today + 61 * Second);
    axis.SetStopValue(Today + 5 * Second);
    QCOMPARE(axis.m_timeFormatString, QStringLiteral("ss"));
}

void tst_axisbase_time::formatIsChosenAnew()
{
    TimeProbe axis;
    axis.SetRange(Today, Today + 7 * Hour);
    axis.SetTimeDisplayFormat(AxisBase::eTimeFormat10);
    QCOMPARE(axis.m_timeFormatString, QStringLiteral("ss.zzz"));
    axis.CalcValues();
    QCOMPARE(axis.m_timeFormat, 3);
    QCOMPARE(axis.m_timeFormatString, QStringLiteral("hh"));
}

void tst_axisbase_time::formatStaysWhileTheRowsShareIt()
{
    TimeProbe axis;
    axis.SetRange(Today, Today + 7 * Hour);
    axis.m_timeFormatString = QStringLiteral("own");
    axis.SetStopValue(Today + 13 * Hour); // another step, the same format
    QCOMPARE(axis.m_ticStep, 3 * Hour);
    QCOMPARE(axis.m_timeFormatString, QStringLiteral("own"));
    axis.SetStopValue(Today + 3 * Day);
    QCOMPARE(axis.m_timeFormatString, QStringLiteral("dd / hh"));
}

void tst_axisbase_time::unitFollowsTheRange()
{
    TimeProbe axis;
    axis.SetRange(Today, Today + 7 * Hour);
    QCOMPARE(axis.GetUnitText(), QStringLiteral("[Hour]"));
    QCOMPARE(axis.GetPropertyPageUnitText(), QStringLiteral("[Timestamp in UTC]"));
    axis.SetRange(Today, Today + 30 * Day);
    QCOMPARE(axis.GetUnitText(), QStringLiteral("[Day in Month]"));
    axis.SetUnitText(QStringLiteral("own"));
    QCOMPARE(axis.GetPureUnitText(), QStringLiteral("own")); // the format did not change
    axis.SetRange(Today, Today + 7 * Hour);
    QCOMPARE(axis.GetPureUnitText(), QStringLiteral("Hour"));
}

void tst_axisbase_time::fixedRangeKeepsItsTics()
{
    TimeProbe axis;
    axis.SetFixedRange(Today, Today + 5 * Second, 4, 2, 2, Today, 2 * Second);
    axis.CalcValues();
    QCOMPARE(axis.m_timeFormat, 11);
    QCOMPARE(axis.m_timeFormatString, QStringLiteral("mm"));
    QCOMPARE(axis.m_ticCount, 4);
    QCOMPARE(axis.m_ticStep, 2 * Second);
    QCOMPARE(axis.m_firstTic, Today);
}

void tst_axisbase_time::linearAxisHasNoTimeTics()
{
    AxisProbe axis;
    axis.SetRange(Today, Today + 7 * Hour);
    QCOMPARE(axis.m_ticStep, 5e9); // 1, 2 or 5 times a power of ten
    QCOMPARE(axis.m_timeFormat, 11);
    QCOMPARE(axis.m_unitText, QString());
}

void tst_axisbase_time::labelsOfToday_data()
{
    QTest::addColumn<double>("range"); // us
    QTest::addColumn<QStringList>("labels");
    auto const row = [](char const * name, double range, char const * labels) {
        QTest::newRow(name) << range << QString::fromLatin1(labels).split(QLatin1Char(' '));
    };
    row("days", 4 * Day, "20 21 22 23 24 25");
    row("6 hours", 2 * Day, "06 12 18 00 06 12 18 00 06 12");
    row("2 hours", 12 * Hour, "12 14 16 18 20 22 00 02");
    row("30 minutes", 4 * Hour, "14:30 15:00 15:30 16:00 16:30 17:00 17:30 18:00 18:30 19:00");
    row("10 minutes", Hour, "50 00 10 20 30 40 50 00");
    row("30 seconds", 120 * Second, "59:30 00:00 00:30 01:00 01:30 02:00");
    row("10 seconds", 60 * Second, "50 00 10 20 30 40 50 00");
    row("1 second", 5 * Second, "59 00 01 02 03 04 05");
}

void tst_axisbase_time::labelsOfToday()
{
    QFETCH(double, range);
    TimeProbe axis;
    axis.SetRange(Today, Today + range);
    QStringList labels;
    for (int i = 0; i < axis.m_ticCount; ++i)
        labels << axis.LabelAt(i * axis.m_ticStep + axis.m_firstTic + axis.m_ticOffset);
    QTEST(labels, "labels");
}

void tst_axisbase_time::labelsInTheYear2100()
{
    TimeProbe axis;
    axis.SetRange(Year2100, Year2100 + 4 * Day);
    QCOMPARE(axis.m_ticCount, 6);
    QCOMPARE(axis.m_firstTic, Year2100 - Day);
    QCOMPARE(axis.LabelAt(axis.m_firstTic), QStringLiteral("31"));
    QCOMPARE(axis.LabelAt(Year2100), QStringLiteral("01"));
    QCOMPARE(axis.double2String(Year2100, "yyyy-MM-dd"), QStringLiteral("2100-01-01"));
    axis.SetRange(Year2100, Year2100 + 10 * Second);
    QCOMPARE(axis.m_ticCount, 7); // 2 seconds: within 32 bits
    QCOMPARE(axis.m_timeFormatString, QStringLiteral("ss"));
    axis.SetRange(Year2100, Year2100 + 5 * Second);
    QCOMPARE(axis.m_ticCount, 0);
    QCOMPARE(axis.m_timeFormat, 8);
}

void tst_axisbase_time::secondsEndIn2038()
{
    double const last = 0x1p31 * Second; // 2038-01-19 03:14:08
    TimeProbe axis;
    axis.SetRange(last + 999999.0, last + 3 * Second);
    QCOMPARE(axis.m_ticCount, 5);
    QCOMPARE(axis.m_firstTic, last - Second);
    QCOMPARE(axis.LabelAt(axis.m_firstTic), QStringLiteral("07"));
    axis.SetRange(last + Second, last + 4 * Second);
    QCOMPARE(axis.m_ticCount, 0);
}

void tst_axisbase_time::labelsFollowTheZone()
{
    ValueSelection * const zones = GuiBase::Instance().GetTimeZone();
    TimeProbe axis;
    axis.SetRange(Today, Today + 4 * Hour);
    QCOMPARE(axis.LabelAt(Today), QStringLiteral("15:00"));
    int const repairs = axis.m_repairs;
    zones->Select(7200L, nullptr);
    QCOMPARE(axis.LabelAt(Today), QStringLiteral("17:00"));
    QCOMPARE(axis.double2String(Today, "hh:mm"), QStringLiteral("17:00"));
    QCOMPARE(axis.m_repairs, repairs + 1);
    zones->Select(-12600L, nullptr);
    QCOMPARE(axis.LabelAt(Today), QStringLiteral("11:30"));
    QCOMPARE(axis.m_repairs, repairs + 2);
    QCOMPARE(axis.m_timeFormat, 4);
}

void tst_axisbase_time::zoneIsCutToWholeSeconds()
{
    ValueSelection * const zones = GuiBase::Instance().GetTimeZone();
    zones->AddItem({ QStringLiteral("odd"), 59.9, 4711 });
    TimeProbe before;
    before.m_timeFormatString = QStringLiteral("hh:mm:ss");
    zones->Select(4711L, nullptr);
    TimeProbe after;
    after.m_timeFormatString = QStringLiteral("hh:mm:ss");
    QString const labels[] = { before.LabelAt(Today), after.LabelAt(Today) };
    zones->Select(0L, nullptr);
    zones->DeleteItem(4711L);
    QCOMPARE(labels[0], QStringLiteral("15:00:59"));
    QCOMPARE(labels[1], QStringLiteral("15:00:59"));
}

void tst_axisbase_time::labelsOfChosenFormats()
{
    TimeProbe axis;
    axis.SetTimeDisplayFormat(AxisBase::eTimeFormat11);
    QCOMPARE(axis.LabelAt(Today), MicroSigns());
    axis.SetTimeDisplayFormat(AxisBase::eTimeFormat10);
    QCOMPARE(axis.LabelAt(Today + 1.25e6), QStringLiteral("01.250"));
}

void tst_axisbase_time::ticsStayOnTheSpotWhenTheZoneChanges()
{
    TimeProbe axis;
    axis.SetRange(Today, Today + 20 * Hour);
    double const first = axis.m_firstTic;
    int const calculations = axis.m_calculations;
    GuiBase::Instance().GetTimeZone()->Select(3600L, nullptr);
    QCOMPARE(axis.m_calculations, calculations); // they are multiples of the step in UTC
    axis.CalcValues();
    QCOMPARE(axis.m_firstTic, first);
    QCOMPARE(axis.LabelAt(first), QStringLiteral("13"));
}

void tst_axisbase_time::ticsBelowTheRangeHaveNoPixel()
{
    TimeProbe axis;
    axis.SetRange(Today + 1.0, Today + 1.0 + 5 * Second);
    QCOMPARE(axis.m_firstTic, Today - Second);
    QCOMPARE(axis.ValueToPixel(axis.m_firstTic), -1);
    QCOMPARE(axis.ValueToPixel(axis.m_firstTic + axis.m_ticStep), -1);
    QVERIFY(axis.ValueToPixel(axis.m_firstTic + 2 * axis.m_ticStep) >= 0);
    TimeProbe up(AxisBase::AxisVertical);
    up.SetRange(Today + 1.0, Today + 1.0 + 5 * Second);
    QCOMPARE(up.m_ticCount, axis.m_ticCount);
    QCOMPARE(up.ValueToPixel(up.m_firstTic), -1);
}

void tst_axisbase_time::emptyTextOfAnInt()
{
    TimeProbe axis;
    for (int const value : { INT_MIN, -1, 0, 17, INT_MAX })
        QCOMPARE(axis.TimeString4Value(value), QString());
}

void tst_axisbase_time::boundEnds()
{
    Planted<ValueNumeric<double>> start("start");
    Planted<ValueNumeric<double>> stop("stop");
    start->SetValue(Today, nullptr);
    stop->SetValue(Today + 4 * Hour, nullptr);
    TimeProbe axis;
    QVERIFY(axis.SetStart_ValuePath(start.Path()) && axis.SetStop_ValuePath(stop.Path()));
    QCOMPARE(axis.m_timeFormat, 4);
    stop->SetValue(Today + 4 * Day, nullptr);
    QCOMPARE(axis.m_timeFormat, 1);
    QCOMPARE(axis.m_ticCount, 6);
}

ORIM_TEST_MAIN(tst_axisbase_time)
#include "tst_axisbase_time.moc"
