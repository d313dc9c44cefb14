// SPDX-License-Identifier: MIT
#include "framestats.h"

#include "testmain.h"

class tst_FrameStats : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void beforeTheFirstFrame();
    void workOfAFrameAddsUp();
    void meanAndLongest();
    void workBelowZeroIsNone();
    void unfinishedWorkDoesNotCount();
};

void tst_FrameStats::beforeTheFirstFrame()
{
    FrameStats const stats;
    QCOMPARE(stats.Frames(), quint64(0));
    QCOMPARE(stats.MeanMilliseconds(), 0.0);
    QCOMPARE(stats.MaxMilliseconds(), 0.0);
}

void tst_FrameStats::workOfAFrameAddsUp()
{
    FrameStats stats;
    stats.AddWork(1500000);
    stats.AddWork(500000);
    stats.EndFrame();
    QCOMPARE(stats.Frames(), quint64(1));
    QCOMPARE(stats.MeanMilliseconds(), 2.0);
    QCOMPARE(stats.MaxMilliseconds(), 2.0);
}

void tst_FrameStats::meanAndLongest()
{
    FrameStats stats;
    for (qint64 const milliseconds : { 1, 7, 1 }) {
        stats.AddWork(milliseconds * 1000000);
        stats.EndFrame();
    }
    stats.EndFrame(); // a frame without work
    QCOMPARE(stats.Frames(), quint64(4));
    QCOMPARE(stats.MeanMilliseconds(), 2.25);
    QCOMPARE(stats.MaxMilliseconds(), 7.0);
}

void tst_FrameStats::workBelowZeroIsNone()
{
    FrameStats stats;
    stats.AddWork(3000000);
    stats.AddWork(-1000000);
    stats.EndFrame();
    QCOMPARE(stats.MeanMilliseconds(), 3.0);
}

void tst_FrameStats::unfinishedWorkDoesNotCount()
{
    FrameStats stats;
    stats.AddWork(1000000);
    stats.EndFrame();
    stats.AddWork(9000000);
    QCOMPARE(stats.Frames(), quint64(1));
    QCOMPARE(stats.MeanMilliseconds(), 1.0);
    QCOMPARE(stats.MaxMilliseconds(), 1.0);
}

ORIM_CORE_TEST_MAIN(tst_FrameStats)
#include "tst_framestats.moc"
