// SPDX-License-Identifier: MIT
#include "zoomhistory.h"

#include "countedbytes.h"
#include "testmain.h"

#include <limits>

namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double Nothing = std::numeric_limits<double>::quiet_NaN();

using Step = ZoomHistory::StartStopBandwidth;

} // namespace

class tst_zoomhistory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void entries();
    void overlap_data();
    void overlap();
    void keepsWhileTheLatestOverlaps_data();
    void keepsWhileTheLatestOverlaps();
    void popTakesTheLatest();
    void oldestIsTaken();
    void emptiedQueueFreesItsMemory_data();
    void emptiedQueueFreesItsMemory();
};

void tst_zoomhistory::entries()
{
    Step const step(1.0, 2.0, 3.0);
    QCOMPARE(step.start, 1.0);
    QCOMPARE(step.stop, 2.0);
    QCOMPARE(step.bandwidth, 3.0);
    QVERIFY(step == Step(1.0, 2.0, 3.0));
    QVERIFY(!(step == Step(0.0, 2.0, 3.0)) && !(step == Step(1.0, 0.0, 3.0)) && !(step == Step(1.0, 2.0, 0.0)));
    QVERIFY(step < Step(1.5, 0.0, 0.0));
    QVERIFY(!(step < Step(1.0, 9.0, 9.0)));
    QCOMPARE(sizeof(Step), std::size_t(24));
}

void tst_zoomhistory::overlap_data()
{
    QTest::addColumn<double>("entryStart");
    QTest::addColumn<double>("entryStop");
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<bool>("overlaps");
    QTest::newRow("entry holds the range") << 0.0 << 100.0 << 40.0 << 60.0 << true;
    QTest::newRow("entry lies in the range") << 40.0 << 60.0 << 0.0 << 100.0 << true;
    QTest::newRow("over the start") << 0.0 << 50.0 << 40.0 << 60.0 << true;
    QTest::newRow("over the stop") << 50.0 << 90.0 << 40.0 << 60.0 << true;
    QTest::newRow("ends where the range starts") << 0.0 << 40.0 << 40.0 << 60.0 << true;
    QTest::newRow("starts where the range ends") << 60.0 << 90.0 << 40.0 << 60.0 << true;
    QTest::newRow("below") << 0.0 << 39.9 << 40.0 << 60.0 << false;
    QTest::newRow("above") << 60.1 << 90.0 << 40.0 << 60.0 << false;
    QTest::newRow("infinite entry") << -Infinity << Infinity << 40.0 << 60.0 << true;
    QTest::newRow("start is NaN") << Nothing << 100.0 << 40.0 << 60.0 << false;
    QTest::newRow("stop is NaN") << 0.0 << Nothing << 40.0 << 60.0 << false;
    QTest::newRow("range starts at NaN") << 0.0 << 100.0 << Nothing << 60.0 << false;
    QTest::newRow("range stops at NaN") << 0.0 << 100.0 << 40.0 << Nothing << false;
}

void tst_zoomhistory::overlap()
{
    QFETCH(double, entryStart);
    QFETCH(double, entryStop);
    QFETCH(double, start);
    QFETCH(double, stop);
    QTEST(ZoomHistory::Overlaps(Step(entryStart, entryStop, 0.0), start, stop), "overlaps");
}

void tst_zoomhistory::keepsWhileTheLatestOverlaps_data()
{
    QTest::addColumn<QVector<double>>("starts"); // of entries 10 long
    QTest::addColumn<bool>("kept");
    QTest::newRow("empty") << QVector<double>{} << false;
    QTest::newRow("one that overlaps") << QVector<double>{ 45.0 } << true;
    QTest::newRow("one that does not") << QVector<double>{ 5.0 } << false;
    QTest::newRow("only the latest overlaps") << QVector<double>{ 5.0, 45.0 } << true;
    QTest::newRow("all but the latest overlap") << QVector<double>{ 45.0, 45.0, 5.0 } << false;
}

void tst_zoomhistory::keepsWhileTheLatestOverlaps()
{
    QFETCH(QVector<double>, starts);
    QFETCH(bool, kept);
    ZoomHistory::Queue queue;
    for (double const start : starts)
        queue.emplace_back(start, start + 10.0, 0.0);
    QCOMPARE(ZoomHistory::KeepOverlapping(queue, 40.0, 60.0), kept);
    QCOMPARE(queue.size(), std::size_t(kept ? starts.size() : 0));
}

void tst_zoomhistory::popTakesTheLatest()
{
    ZoomHistory::Queue queue{ { 1.0, 2.0, 0.0 }, { 3.0, 4.0, 0.0 } };
    ZoomHistory::Pop(queue);
    QCOMPARE(queue.size(), std::size_t(1));
    QCOMPARE(queue.back().start, 1.0);
    ZoomHistory::Pop(queue);
    QVERIFY(queue.empty());
    ZoomHistory::Pop(queue);
    QVERIFY(queue.empty());
}

void tst_zoomhistory::oldestIsTaken()
{
    ZoomHistory::Queue queue{ { 1.0, 2.0, 5.0 }, { 3.0, 4.0, 0.0 }, { 6.0, 7.0, 0.0 } };
    auto const oldest = ZoomHistory::TakeOldest(queue);
    QVERIFY(oldest && *oldest == Step(1.0, 2.0, 5.0));
    QVERIFY(queue.empty());
    QVERIFY(!ZoomHistory::TakeOldest(queue));
}

void tst_zoomhistory::emptiedQueueFreesItsMemory_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("cleared") << 0;
    QTest::newRow("oldest taken") << 1;
    QTest::newRow("left by the range") << 2;
    QTest::newRow("popped to the end") << 3;
}

void tst_zoomhistory::emptiedQueueFreesItsMemory()
{
    QFETCH(int, way);
    constexpr int Entries = 100'000;
    ZoomHistory::Queue queue;
    long long const empty = bytes;
    for (int i = 0; i < Entries; ++i)
        queue.emplace_back(0.0, 1.0, 0.0);
    long long const filled = bytes; // the macros of the tests allocate, too
    if (way == 0)
        ZoomHistory::Clear(queue);
    else if (way == 1)
        ZoomHistory::TakeOldest(queue);
    else if (way == 2)
        ZoomHistory::KeepOverlapping(queue, 2.0, 3.0);
    else
        for (int i = 0; i < Entries; ++i)
            ZoomHistory::Pop(queue);
    long long const emptied = bytes;
    QVERIFY(filled >= empty + Entries * 24LL);
    QVERIFY(queue.empty());
    QCOMPARE(emptied, empty);
}

ORIM_CORE_TEST_MAIN(tst_zoomhistory)
#include "tst_zoomhistory.moc"
