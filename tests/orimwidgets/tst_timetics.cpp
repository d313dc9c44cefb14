// SPDX-License-Identifier: MIT
#include "timetics.h"

#include "specialdoubles.h"
#include "testmain.h"

#include <climits>
#include <random>

namespace {

constexpr double Today = 1.795e15;        // us, November 2026
constexpr double Year2100 = 4.1024448e15; // us, 2100-01-01
constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double Nothing = std::numeric_limits<double>::quiet_NaN();

//! The count as it is defined: steps are added while the value is not above the end.
int CountByAdding(double first, double high, double step)
{
    int count = 0;
    for (double value = first; value <= high; value += step)
        ++count;
    return count;
}

} // namespace

class tst_timetics : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void constants();
    void rows_data();
    void rows();
    void formats_data();
    void formats();
    void noRow_data();
    void noRow();
    void rangesAreTruncated_data();
    void rangesAreTruncated();
    void firstTic_data();
    void firstTic();
    void countIsThatOfAdding_data();
    void countIsThatOfAdding();
    void countsOfRandomRanges();
    void countGrowsWithoutBound_data();
    void countGrowsWithoutBound();
    void quotientOf32Bits_data();
    void quotientOf32Bits();
    void everyPairOfNumbers();
};

void tst_timetics::constants()
{
    QCOMPARE(TimeTics::MicroSecond, 1LL);
    QCOMPARE(TimeTics::MilliSecond, 1000LL);
    QCOMPARE(TimeTics::Second, 1000000LL);
    QCOMPARE(TimeTics::Minute, 60000000LL);
    QCOMPARE(TimeTics::Hour, 3600000000LL);
    QCOMPARE(TimeTics::Day, 86400000000LL);
}

void tst_timetics::rows_data()
{
    QTest::addColumn<double>("range"); // us
    QTest::addColumn<int>("format");
    QTest::addColumn<long long>("step"); // us
    QTest::newRow("the widest of 64 bits: 1 day") << 9223372036854774784.0 << 1 << 86400000000LL;
    QTest::newRow("a year: 1 day") << 31536000000000.0 << 1 << 86400000000LL;
    QTest::newRow("above 3 days: 1 day") << 259200000001.0 << 1 << 86400000000LL;
    QTest::newRow("3 days: 12 hours") << 259200000000.0 << 2 << 43200000000LL;
    QTest::newRow("above 2 days: 12 hours") << 172800000001.0 << 2 << 43200000000LL;
    QTest::newRow("2 days: 6 hours") << 172800000000.0 << 3 << 21600000000LL;
    QTest::newRow("above 20 hours: 6 hours") << 72000000001.0 << 3 << 21600000000LL;
    QTest::newRow("20 hours: 3 hours") << 72000000000.0 << 3 << 10800000000LL;
    QTest::newRow("above 12 hours: 3 hours") << 43200000001.0 << 3 << 10800000000LL;
    QTest::newRow("12 hours: 2 hours") << 43200000000.0 << 3 << 7200000000LL;
    QTest::newRow("above 6 hours: 2 hours") << 21600000001.0 << 3 << 7200000000LL;
    QTest::newRow("6 hours: 1 hour") << 21600000000.0 << 3 << 3600000000LL;
    QTest::newRow("above 4 hours: 1 hour") << 14400000001.0 << 3 << 3600000000LL;
    QTest::newRow("4 hours: 30 minutes") << 14400000000.0 << 4 << 1800000000LL;
    QTest::newRow("above 2 hours: 30 minutes") << 7200000001.0 << 4 << 1800000000LL;
    QTest::newRow("2 hours: 15 minutes") << 7200000000.0 << 4 << 900000000LL;
    QTest::newRow("above an hour: 15 minutes") << 3600000001.0 << 4 << 900000000LL;
    QTest::newRow("an hour: 10 minutes") << 3600000000.0 << 6 << 600000000LL;
    QTest::newRow("above 30 minutes: 10 minutes") << 1800000001.0 << 6 << 600000000LL;
    QTest::newRow("30 minutes: 5 minutes") << 1800000000.0 << 6 << 300000000LL;
    QTest::newRow("above 15 minutes: 5 minutes") << 900000001.0 << 6 << 300000000LL;
    QTest::newRow("15 minutes: 2 minutes") << 900000000.0 << 6 << 120000000LL;
    QTest::newRow("above 5 minutes: 2 minutes") << 300000001.0 << 6 << 120000000LL;
    QTest::newRow("5 minutes: 1 minute") << 300000000.0 << 6 << 60000000LL;
    QTest::newRow("above 2 minutes: 1 minute") << 120000001.0 << 6 << 60000000LL;
    QTest::newRow("2 minutes: 30 seconds") << 120000000.0 << 7 << 30000000LL;
    QTest::newRow("above a minute: 30 seconds") << 60000001.0 << 7 << 30000000LL;
    QTest::newRow("a minute: 10 seconds") << 60000000.0 << 8 << 10000000LL;
    QTest::newRow("above 10 seconds: 10 seconds") << 10000001.0 << 8 << 10000000LL;
    QTest::newRow("10 seconds: 2 seconds") << 10000000.0 << 8 << 2000000LL;
    QTest::newRow("above 5 seconds: 2 seconds") << 5000001.0 << 8 << 2000000LL;
    QTest::newRow("5 seconds: 1 second") << 5000000.0 << 8 << 1000000LL;
    QTest::newRow("above a second: 1 second") << 1000001.0 << 8 << 1000000LL;
    QTest::newRow("a second: none") << 1000000.0 << 8 << 0LL;
    QTest::newRow("a microsecond: none") << 1.0 << 8 << 0LL;
}

void tst_timetics::rows()
{
    QFETCH(double, range);
    for (bool const swapped : { false, true }) {
        TimeTics::Row const * const row = TimeTics::RowOf(swapped ? range : 0.0, swapped ? 0.0 : range);
        QVERIFY(row);
        QTEST(row->format, "format");
        QTEST(row->step, "step");
    }
    if (range < 1e12) {
        TimeTics::Row const * const row = TimeTics::RowOf(-range / 2.0, range / 2.0);
        QVERIFY(row);
        QTEST(row->step, "step");
        QCOMPARE(TimeTics::RowOf(Today, Today + range), row);
        QCOMPARE(TimeTics::RowOf(Year2100 + range, Year2100), row);
    }
}

void tst_timetics::formats_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QByteArray>("tics");
    QTest::addColumn<QByteArray>("label");
    QTest::addColumn<QByteArray>("date");
    auto const row = [](char const * name, int number, char const * tics, char const * label, char const * date) {
        QTest::newRow(name) << number << QByteArray(tics) << QByteArray(label) << QByteArray(date);
    };
    row("1", 1, "dd", "Day in Month", "yyyy-MM-dd");
    row("2", 2, "dd / hh", "Day in Month / Hour", "yyyy-MM-dd hh");
    row("3", 3, "hh", "Hour", "yyyy-MM-dd hh");
    row("4", 4, "hh:mm", "Hour:Minute", "yyyy-MM-dd hh:mm");
    row("5", 5, "hh:mm:ss", "hh:mm:ss", "yyyy-MM-dd hh:mm:ss");
    row("6", 6, "mm", "Minutes", "yyyy-MM-dd hh:mm");
    row("7", 7, "mm:ss", "Minute/Seconds", "yyyy-MM-dd hh:mm:ss");
    row("8", 8, "ss", "Seconds", "yyyy-MM-dd hh:mm:ss");
    row("9 keeps the date", 9, "mm:ss", "Min:Sec", nullptr);
    row("10", 10, "ss.zzz", "Seconds", "yyyy-MM-dd hh:mm:ss");
    row("11", 11, "\265\265\265", "MicroSeconds", "yyyy-MM-dd hh:mm:ss");
    row("0 is none", 0, "mm:ss", "Min:Sec", nullptr);
    row("12 is none", 12, "mm:ss", "Min:Sec", nullptr);
    row("-1 is none", -1, "mm:ss", "Min:Sec", nullptr);
    row("the lowest int is none", INT_MIN, "mm:ss", "Min:Sec", nullptr);
    row("the highest int is none", INT_MAX, "mm:ss", "Min:Sec", nullptr);
}

void tst_timetics::formats()
{
    QFETCH(int, number);
    TimeTics::Format const & format = TimeTics::FormatOf(number);
    QTEST(QByteArray(format.tics), "tics");
    QTEST(QByteArray(format.label), "label");
    QTEST(QByteArray(format.date), "date");
    QFETCH(QByteArray, date);
    QCOMPARE(!format.date, date.isNull());
}

void tst_timetics::noRow_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::newRow("equal ends") << Today << Today;
    QTest::newRow("zeros of either sign") << 0.0 << -0.0;
    QTest::newRow("NaN start") << Nothing << Today;
    QTest::newRow("NaN stop") << Today << Nothing;
    QTest::newRow("both NaN") << Nothing << Nothing;
    QTest::newRow("infinite stop") << 0.0 << Infinity;
    QTest::newRow("infinite start") << -Infinity << 0.0;
    QTest::newRow("both infinite") << -Infinity << Infinity;
    QTest::newRow("2^63 wide") << 0.0 << 0x1p63;
    QTest::newRow("2^64 wide") << -0x1p63 << 0x1p63;
    QTest::newRow("wider than a double") << -DBL_MAX << DBL_MAX;
}

void tst_timetics::noRow()
{
    QFETCH(double, start);
    QFETCH(double, stop);
    QVERIFY(!TimeTics::RowOf(start, stop));
    QVERIFY(!TimeTics::RowOf(stop, start));
}

void tst_timetics::rangesAreTruncated_data()
{
    QTest::addColumn<double>("range");
    QTest::addColumn<long long>("step");
    QTest::newRow("below 1000001") << std::nextafter(1000001.0, 0.0) << 0LL;
    QTest::newRow("above 60000000") << 60000000.9 << 10000000LL;
    QTest::newRow("part of a microsecond") << 0.25 << 0LL;
    QTest::newRow("the smallest double") << DBL_TRUE_MIN << 0LL;
}

void tst_timetics::rangesAreTruncated()
{
    QFETCH(double, range);
    TimeTics::Row const * const row = TimeTics::RowOf(0.0, range);
    QVERIFY(row);
    QTEST(row->step, "step");
    QCOMPARE(row->format, 8);
}

void tst_timetics::firstTic_data()
{
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("steps");
    QTest::newRow("a step before a multiple") << 10e6 << 4.0;
    QTest::newRow("truncated between multiples") << 11e6 << 4.0;
    QTest::newRow("nearly two steps below") << 11999999.0 << 4.0;
    QTest::newRow("the next multiple") << 12e6 << 5.0;
    QTest::newRow("at 1970") << 0.0 << -1.0;
    QTest::newRow("within the first step") << 1e6 << 0.0;
    QTest::newRow("within the second step") << 3e6 << 0.0;
    QTest::newRow("below 1970 towards zero") << -5e6 << -3.0;
    QTest::newRow("a multiple below 1970") << -4e6 << -3.0;
    QTest::newRow("just below 1970") << -1.0 << -1.0;
    QTest::newRow("today") << Today << 897499999.0;
}

void tst_timetics::firstTic()
{
    QFETCH(double, low);
    QFETCH(double, steps);
    for (bool const swapped : { false, true }) {
        TimeTics::Tics const tics =
            TimeTics::Find(swapped ? low + 10e6 : low, swapped ? low : low + 10e6, 2 * TimeTics::Second);
        QCOMPARE(tics.first, steps * 2e6);
        QVERIFY(!std::signbit(tics.first) || steps < 0.0);
        QVERIFY(tics.first <= low && tics.first > low - 4e6);
    }
}

void tst_timetics::countIsThatOfAdding_data()
{
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    QTest::addColumn<int>("count");
    QTest::newRow("the end on a tic") << 0.0 << 5e6 << 7;
    QTest::newRow("the end before a tic") << 0.0 << 4999999.0 << 6;
    QTest::newRow("the end behind a tic") << 1.0 << 5000001.0 << 6;
    QTest::newRow("the end a neighbour before a tic") << 0.0 << std::nextafter(5e6, 0.0) << 6;
    QTest::newRow("a sum that is rounded up to a tic") << 0.0 << std::nextafter(26062 * 86400e6, 0.0) << 26063;
    QTest::newRow("30 seconds") << 7e6 << 37e6 << 4;
    QTest::newRow("3 days and a bit") << 0.0 << 259200000001.0 << 5;
    QTest::newRow("below 1970") << -3e6 << -1e6 << 0;
    QTest::newRow("across 1970") << -3e6 << 2e6 << 0;
    QTest::newRow("today") << Today << Today + 5e6 << 7;
    QTest::newRow("a month today") << Today << Today + 30 * 86400e6 << 0;
    QTest::newRow("a month in 2100") << Year2100 << Year2100 + 30 * 86400e6 << 0;
    QTest::newRow("ten years") << Today << Today + 3650 * 86400e6 << 0;
}

void tst_timetics::countIsThatOfAdding()
{
    QFETCH(double, low);
    QFETCH(double, high);
    QFETCH(int, count);
    TimeTics::Row const * const row = TimeTics::RowOf(low, high);
    QVERIFY(row && row->step > 0);
    TimeTics::Tics const tics = TimeTics::Find(low, high, row->step);
    QVERIFY(tics.count > 0);
    QCOMPARE(tics.count, CountByAdding(tics.first, high, static_cast<double>(row->step)));
    if (count > 0)
        QCOMPARE(tics.count, count);
    TimeTics::Tics const swapped = TimeTics::Find(high, low, row->step);
    QCOMPARE(swapped.count, tics.count);
    QCOMPARE(swapped.first, tics.first);
}

void tst_timetics::countsOfRandomRanges()
{
    std::mt19937_64 random(TestStage::Seed());
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    for (int turn = 0; turn < 20000; ++turn) {
        double const width = std::pow(10.0, 6.1 + 7.0 * unit(random));
        double const low = (unit(random) - 0.3) * 2e15;
        bool const whole = turn % 2 == 0;
        double const start = whole ? std::round(low / 1e6) * 1e6 : low;
        double const stop = start + (whole ? std::round(width / 1e6) * 1e6 : width);
        TimeTics::Row const * const row = TimeTics::RowOf(start, stop);
        QVERIFY(row);
        if (row->step == 0)
            continue;
        TimeTics::Tics const tics = TimeTics::Find(start, stop, row->step);
        QCOMPARE(tics.count, CountByAdding(tics.first, stop, static_cast<double>(row->step)));
        QVERIFY(tics.first <= start && tics.first > start - 2.0 * static_cast<double>(row->step));
    }
}

void tst_timetics::countGrowsWithoutBound_data()
{
    QTest::addColumn<double>("days");
    QTest::addColumn<int>("count");
    QTest::newRow("1000 days") << 1000.0 << 1002;
    QTest::newRow("a hundred years") << 36525.0 << 36527;
    QTest::newRow("a hundred million days") << 1e8 << 100000002;
    QTest::newRow("the widest") << 106751991.0 << 106751993;
}

void tst_timetics::countGrowsWithoutBound()
{
    QFETCH(double, days);
    double const stop = days * 86400e6;
    QVERIFY(TimeTics::RowOf(0.0, stop));
    QTEST(TimeTics::Find(0.0, stop, TimeTics::Day).count, "count");
}

void tst_timetics::quotientOf32Bits_data()
{
    QTest::addColumn<double>("low");
    QTest::addColumn<long long>("step");
    QTest::addColumn<bool>("has");
    QTest::newRow("today by seconds") << Today << TimeTics::Second << true;
    QTest::newRow("2^31 - 1") << 2147483648e6 << TimeTics::Second << true;
    QTest::newRow("truncated to 2^31 - 1") << 2147483648e6 + 500000.0 << TimeTics::Second << true;
    QTest::newRow("just below 2^31") << 2147483649e6 - 0.25 << TimeTics::Second << true;
    QTest::newRow("2^31") << 2147483649e6 << TimeTics::Second << false;
    QTest::newRow("-2^31") << -2147483647e6 << TimeTics::Second << true;
    QTest::newRow("truncated to -2^31") << -2147483647e6 - 500000.0 << TimeTics::Second << true;
    QTest::newRow("-2^31 - 1") << -2147483648e6 << TimeTics::Second << false;
    QTest::newRow("the year 2100 by seconds") << Year2100 << TimeTics::Second << false;
    QTest::newRow("the year 2100 by 2 seconds") << Year2100 << 2 * TimeTics::Second << true;
    QTest::newRow("the year 2100 by days") << Year2100 << TimeTics::Day << true;
    QTest::newRow("past every day") << 1e21 << TimeTics::Day << false;
    QTest::newRow("the largest double") << DBL_MAX << TimeTics::Day << false;
    QTest::newRow("NaN") << Nothing << TimeTics::Day << false;
}

void tst_timetics::quotientOf32Bits()
{
    QFETCH(double, low);
    QFETCH(long long, step);
    TimeTics::Tics const tics = TimeTics::Find(low, low + 3e6, step);
    QTEST(tics.count > 0, "has");
    QCOMPARE(tics.first != 0.0, tics.count > 0);
}

void tst_timetics::everyPairOfNumbers()
{
    for (double const a : SpecialDoubles())
        for (double const b : SpecialDoubles()) {
            TimeTics::Row const * const row = TimeTics::RowOf(a, b);
            if (!row || row->step == 0)
                continue;
            TimeTics::Tics const tics = TimeTics::Find(a, b, row->step);
            QVERIFY(tics.count >= 0 && tics.count <= 106751993);
            QVERIFY(std::isfinite(tics.first) && std::fmod(tics.first, static_cast<double>(row->step)) == 0.0);
            QVERIFY(tics.count == 0 || tics.first <= std::min(a, b));
        }
}

ORIM_CORE_TEST_MAIN(tst_timetics)
#include "tst_timetics.moc"
