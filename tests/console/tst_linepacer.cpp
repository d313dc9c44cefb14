// SPDX-License-Identifier: MIT
#include "linepacer.h"

#include "testmain.h"

#include <algorithm>

namespace {

constexpr qint64 Second = 1000000000; // ns

//! Makes all lines that are due.
qint64 Make(LinePacer & pacer, qint64 now)
{
    qint64 const due = pacer.Due(now);
    for (qint64 i = 0; i < due; ++i)
        pacer.Advance();
    return due;
}

} // namespace

class tst_LinePacer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void due_data();
    void due();
    void startsAnywhere();
    void clockThatStands();
    void clockThatGoesBack();
    void averageRateIsExact_data();
    void averageRateIsExact();
    void noDriftOverDays();
    void stallIsCaughtUp();
    void longStallIsSkipped();
    void fastRateCatchesUpItsTime();
    void lateLinesAreSkipped();
    void skipsNothingInTime_data();
    void skipsNothingInTime();
    void waitUntilTheNext_data();
    void waitUntilTheNext();
    void rateChangeKeepsThePart();
    void manyRateChangesStarveNothing();
    void badRateIsOne_data();
    void badRateIsOne();
    void endlessClock();
};

void tst_LinePacer::due_data()
{
    QTest::addColumn<qint64>("now");
    QTest::addColumn<qint64>("lines");
    QTest::newRow("at the start") << qint64(0) << qint64(0);
    QTest::newRow("just before the first") << Second / 4 - 1 << qint64(0);
    QTest::newRow("the first") << Second / 4 << qint64(1);
    QTest::newRow("just before the second") << Second / 2 - 1 << qint64(1);
    QTest::newRow("the second") << Second / 2 << qint64(2);
    QTest::newRow("a second") << Second << qint64(4);
}

void tst_LinePacer::due()
{
    QFETCH(qint64, now);
    LinePacer pacer;
    pacer.Start(0, 4.0);
    QTEST(pacer.Due(now), "lines");
    QCOMPARE(pacer.Index(), qint64(0));
    QCOMPARE(pacer.Skipped(), quint64(0));
}

void tst_LinePacer::startsAnywhere()
{
    LinePacer pacer;
    pacer.Start(77 * Second, 4.0);
    QCOMPARE(pacer.Due(78 * Second), qint64(4));
}

void tst_LinePacer::clockThatStands()
{
    LinePacer pacer;
    pacer.Start(0, 4.0);
    QCOMPARE(Make(pacer, Second), qint64(4));
    QCOMPARE(Make(pacer, Second), qint64(0));
    QCOMPARE(pacer.Index(), qint64(4));
}

void tst_LinePacer::clockThatGoesBack()
{
    LinePacer pacer;
    pacer.Start(Second, 4.0);
    QCOMPARE(pacer.Due(0), qint64(0));
    QCOMPARE(Make(pacer, 2 * Second), qint64(4));
    QCOMPARE(pacer.Due(Second), qint64(0));
    QCOMPARE(pacer.Index(), qint64(4));
}

void tst_LinePacer::averageRateIsExact_data()
{
    QTest::addColumn<double>("rate");
    QTest::newRow("50") << 50.0;
    QTest::newRow("59.94") << 59.94;
    QTest::newRow("0.1") << 0.1;
    QTest::newRow("1000") << 1000.0;
    QTest::newRow("1/3") << 1.0 / 3.0;
}

void tst_LinePacer::averageRateIsExact()
{
    QFETCH(double, rate);
    LinePacer pacer;
    pacer.Start(0, rate);
    qint64 lines = 0;
    constexpr qint64 step = 3777777; // ns, no divisor of any period
    qint64 now = 0;
    for (int i = 0; i < 50000; ++i) {
        now += step;
        lines += Make(pacer, now);
    }
    QCOMPARE(lines, static_cast<qint64>(static_cast<double>(now) * 1e-9 * rate));
    QCOMPARE(pacer.Skipped(), quint64(0));
}

void tst_LinePacer::noDriftOverDays()
{
    LinePacer pacer;
    pacer.Start(0, 59.94);
    qint64 const days = 30 * 86400 * Second;
    qint64 const due = Make(pacer, days);
    QCOMPARE(due + static_cast<qint64>(pacer.Skipped()), qint64(155364480));
    QCOMPARE(pacer.Index(), qint64(155364480));
}

void tst_LinePacer::stallIsCaughtUp()
{
    LinePacer pacer;
    pacer.Start(0, 50.0);
    QCOMPARE(pacer.Due(160 * 1000000 + 1), qint64(8));
    QCOMPARE(pacer.Skipped(), quint64(0));
}

void tst_LinePacer::longStallIsSkipped()
{
    LinePacer pacer;
    pacer.Start(0, 50.0);
    QCOMPARE(Make(pacer, 10 * Second), LinePacer::CatchUpLines);
    QCOMPARE(pacer.Skipped(), quint64(492));
    QCOMPARE(pacer.Index(), qint64(500));
    QCOMPARE(Make(pacer, 10 * Second + 20000000), qint64(1));
    QCOMPARE(pacer.Skipped(), quint64(492));
}

void tst_LinePacer::fastRateCatchesUpItsTime()
{
    LinePacer pacer;
    pacer.Start(0, 1000.0);
    QCOMPARE(pacer.Due(Second), qint64(100));
    QCOMPARE(pacer.Skipped(), quint64(900));
}

void tst_LinePacer::lateLinesAreSkipped()
{
    LinePacer pacer;
    pacer.Start(0, 50.0);
    pacer.SkipLate(110000000);
    QCOMPARE(pacer.Skipped(), quint64(4));
    QCOMPARE(pacer.Index(), qint64(4));
    QCOMPARE(pacer.Due(110000000), qint64(1));
    pacer.SkipLate(110000000);
    QCOMPARE(pacer.Skipped(), quint64(4));
}

void tst_LinePacer::skipsNothingInTime_data()
{
    QTest::addColumn<qint64>("now");
    QTest::newRow("before the start") << -Second;
    QTest::newRow("at the start") << qint64(0);
    QTest::newRow("the first is due") << Second / 50;
    QTest::newRow("just before the second") << Second / 25 - 1;
}

void tst_LinePacer::skipsNothingInTime()
{
    QFETCH(qint64, now);
    LinePacer pacer;
    pacer.Start(0, 50.0);
    pacer.SkipLate(now);
    QCOMPARE(pacer.Skipped(), quint64(0));
    QCOMPARE(pacer.Index(), qint64(0));
}

void tst_LinePacer::waitUntilTheNext_data()
{
    QTest::addColumn<qint64>("now");
    QTest::addColumn<qint64>("wait");
    QTest::newRow("a period") << qint64(0) << Second / 4;
    QTest::newRow("half a period") << Second / 8 << Second / 8;
    QTest::newRow("due") << Second / 4 << qint64(0);
    QTest::newRow("overdue") << 5 * Second << qint64(0);
}

void tst_LinePacer::waitUntilTheNext()
{
    QFETCH(qint64, now);
    LinePacer pacer;
    pacer.Start(0, 4.0);
    QTEST(pacer.Wait(now), "wait");
}

void tst_LinePacer::rateChangeKeepsThePart()
{
    LinePacer pacer;
    pacer.Start(0, 4.0);
    QCOMPARE(Make(pacer, Second), qint64(4));
    pacer.SetRate(Second + Second / 8, 2.0); // half a period has gone by
    QCOMPARE(pacer.Index(), qint64(0));
    QCOMPARE(pacer.Wait(Second + Second / 8), Second / 4);
    QCOMPARE(pacer.Due(Second + Second / 8 + Second / 4), qint64(1));
}

void tst_LinePacer::manyRateChangesStarveNothing()
{
    LinePacer pacer;
    pacer.Start(0, 4.0);
    qint64 lines = 0;
    for (int i = 1; i <= 1000; ++i) {
        qint64 const now = i * (Second / 100);
        lines += Make(pacer, now);
        pacer.SetRate(now, i % 2 == 0 ? 4.0 : 4.000001);
    }
    QVERIFY2(lines >= 39 && lines <= 40, QByteArray::number(lines).constData());
}

void tst_LinePacer::badRateIsOne_data()
{
    QTest::addColumn<double>("rate");
    QTest::newRow("0") << 0.0;
    QTest::newRow("below 0") << -5.0;
    QTest::newRow("NaN") << qQNaN();
    QTest::newRow("infinite") << qInf();
}

void tst_LinePacer::badRateIsOne()
{
    QFETCH(double, rate);
    LinePacer pacer;
    pacer.Start(0, rate);
    QCOMPARE(pacer.Due(3 * Second), qint64(3));
}

void tst_LinePacer::endlessClock()
{
    LinePacer pacer;
    pacer.Start(0, 1000.0);
    qint64 const latest = std::numeric_limits<qint64>::max();
    QCOMPARE(pacer.Due(latest), qint64(100));
    QVERIFY(pacer.Index() > 9000000000000);
}

ORIM_CORE_TEST_MAIN(tst_LinePacer)
#include "tst_linepacer.moc"
