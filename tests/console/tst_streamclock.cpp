// SPDX-License-Identifier: MIT
#include "streamclock.h"

#include "testmain.h"

#include <limits>
#include <vector>

//! Milliseconds that pass between positions of a recording.
class tst_StreamClock : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void timePasses_data();
    void timePasses();
    void jumpsBackFall_data();
    void jumpsBackFall();
    void skippedTimeStandsStill();
    void skippedJumpBackFalls();
    void aNewStartForgets();
    void oddPositionsAreIgnored_data();
    void oddPositionsAreIgnored();
    void anEndlessRunStaysCountable();
};

namespace {

constexpr double Inf = std::numeric_limits<double>::infinity();
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();

//! Times in us of the positions that follow one another.
std::vector<unsigned long long> TimesOf(double duration, std::vector<double> const & positions)
{
    StreamClock clock;
    clock.Start(duration);
    std::vector<unsigned long long> times;
    for (double const position : positions)
        times.push_back(clock.Advance(position));
    return times;
}

} // namespace

void tst_StreamClock::timePasses_data()
{
    QTest::addColumn<double>("duration"); // s
    QTest::addColumn<QVector<double>>("positions");
    QTest::addColumn<double>("passed"); // s
    QTest::newRow("one position: none yet") << 10.0 << QVector<double>{ 7.0 } << 0.0;
    QTest::newRow("forward") << 10.0 << QVector<double>{ 1.0, 1.5 } << 0.5;
    QTest::newRow("the same position") << 10.0 << QVector<double>{ 1.0, 1.0 } << 0.0;
    QTest::newRow("small steps add up") << 10.0 << QVector<double>{ 0.0, 0.25, 0.5, 0.75, 1.0 } << 1.0;
    QTest::newRow("over the end of the ring") << 10.0 << QVector<double>{ 9.5, 0.25 } << 0.75;
    QTest::newRow("twice around") << 1.0 << QVector<double>{ 0.0, 0.4, 0.8, 0.2, 0.6, 0.0, 0.4 } << 2.4;
    QTest::newRow("a jump of less than half a ring") << 10.0 << QVector<double>{ 1.0, 5.5 } << 4.5;
    QTest::newRow("from the first position of all") << 10.0 << QVector<double>{ 0.0, 2.0 } << 2.0;
    QTest::newRow("without an end") << 0.0 << QVector<double>{ 1.0, 5001.0 } << 5000.0;
    QTest::newRow("an infinite duration is none") << Inf << QVector<double>{ 1.0, 3.0 } << 2.0;
    QTest::newRow("a duration below 0 is none") << -5.0 << QVector<double>{ 1.0, 9.0 } << 8.0;
    QTest::newRow("a duration that is NaN is none") << NaN << QVector<double>{ 1.0, 9.0 } << 8.0;
}

void tst_StreamClock::timePasses()
{
    QFETCH(double, duration);
    QFETCH(QVector<double>, positions);
    QFETCH(double, passed);
    auto const times = TimesOf(duration, { positions.begin(), positions.end() });
    QVERIFY(times.front() > 0);
    QVERIFY(times.back() >= times.front());
    double const seconds = static_cast<double>(times.back() - times.front()) * 1e-6;
    QVERIFY2(std::abs(seconds - passed) < 1e-5, qPrintable(QString::number(seconds, 'g', 12)));
}

void tst_StreamClock::jumpsBackFall_data()
{
    QTest::addColumn<double>("duration"); // s
    QTest::addColumn<QVector<double>>("positions");
    QTest::newRow("back") << 10.0 << QVector<double>{ 5.0, 3.0 };
    QTest::newRow("more than half a ring ahead") << 10.0 << QVector<double>{ 1.0, 7.0 };
    QTest::newRow("back after it went on") << 10.0 << QVector<double>{ 1.0, 4.0, 3.9 };
    QTest::newRow("back a second time") << 10.0 << QVector<double>{ 5.0, 4.0, 3.0 };
    QTest::newRow("back without an end") << 0.0 << QVector<double>{ 5000.0, 4999.0 };
}

void tst_StreamClock::jumpsBackFall()
{
    QFETCH(double, duration);
    QFETCH(QVector<double>, positions);
    auto const times = TimesOf(duration, { positions.begin(), positions.end() });
    unsigned long long const last = times.back() / 1000; // ms, as who hears of it counts
    QVERIFY(last < times[times.size() - 2] / 1000);
    QVERIFY(last > 0);
}

void tst_StreamClock::skippedTimeStandsStill()
{
    StreamClock clock;
    clock.Start(100.0);
    unsigned long long const first = clock.Advance(1.0);
    clock.Skip(31.0);
    QCOMPARE(clock.Advance(31.0), first);
    QCOMPARE(clock.Advance(31.5) - first, 500000ULL);
}

void tst_StreamClock::skippedJumpBackFalls()
{
    StreamClock clock;
    clock.Start(100.0);
    unsigned long long const first = clock.Advance(50.0);
    clock.Skip(20.0);
    QVERIFY(clock.Advance(20.0) < first);
}

void tst_StreamClock::aNewStartForgets()
{
    StreamClock clock;
    clock.Start(100.0);
    unsigned long long const first = clock.Advance(50.0);
    clock.Advance(60.0);
    clock.Start(100.0);
    QCOMPARE(clock.Advance(20.0), first);
}

void tst_StreamClock::oddPositionsAreIgnored_data()
{
    QTest::addColumn<double>("position");
    QTest::newRow("NaN") << NaN;
    QTest::newRow("infinite") << Inf;
    QTest::newRow("minus infinite") << -Inf;
    QTest::newRow("below 0") << -1.0;
}

void tst_StreamClock::oddPositionsAreIgnored()
{
    QFETCH(double, position);
    StreamClock clock;
    clock.Start(10.0);
    unsigned long long const first = clock.Advance(1.0);
    QCOMPARE(clock.Advance(position), first);
    clock.Skip(position);
    QCOMPARE(clock.Advance(1.5) - first, 500000ULL);
}

void tst_StreamClock::anEndlessRunStaysCountable()
{
    auto const times = TimesOf(0.0, { 0.0, 1e300, std::numeric_limits<double>::max() });
    QVERIFY(times[1] > times[0]);
    QCOMPARE(times[2], times[1]);
    QCOMPARE(times[2], 1000000000000000000ULL);
}

ORIM_CORE_TEST_MAIN(tst_StreamClock)
#include "tst_streamclock.moc"
