// SPDX-License-Identifier: MIT
// A long session of zooms: the history has no limit, so its memory grows by a fixed amount a step, and every way to
// empty it gives all of that back. The undo stack, where the same zooms are recorded, has a limit.

#include "axisprobe.h"
#include "countedbytes.h"

#include "guibase.h"
#include "testmain.h"
#include "undorecording.h"

#include <QUndoStack>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>
#include <limits>

namespace {

//! An axis without timers and menus, so that the memory is that of the history.
class QuietAxis : public AxisProbe
{
public:
    using AxisProbe::AxisProbe;

    void Repair() override {}
};

long long Steps()
{
#if defined(__OPTIMIZE__)
    long long const divisor = TestStage::Sanitized() ? 10 : 1;
#else
    long long const divisor = 4;
#endif
    return TestStage::Turns(1'000'000 / divisor, 100'000'000);
}

using Way = std::function<void(QuietAxis &)>;

} // namespace

Q_DECLARE_METATYPE(Way)

class tst_zoom_endurance : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void historyGrowsByTheStep();
    void everyWayFreesIt_data();
    void everyWayFreesIt();
    void zoomInAndOutAgain();
    void undoStackIsLimited();
    void cleanupTestCase();

private:
    long long m_steps = 0;
    double m_bytesAStep = 0.0;
    double m_secondHalf = 0.0; // bytes a step
    long long m_left = 0;      // bytes kept by an emptied history, at most
    long long m_walks = 0;
    long long m_undone = 0;
};

void tst_zoom_endurance::historyGrowsByTheStep()
{
    QuietAxis axis;
    axis.SetAxisZoomEnable(true, false);
    axis.SetRange(0.0, 100.0);
    long long const before = bytes;
    m_steps = Steps();
    long long middle = 0;
    for (long long i = 0; i < m_steps; ++i) {
        QVERIFY(axis.SetZoomedRange(0.0, i % 2 == 0 ? 50.0 : 100.0, true));
        if (i + 1 == m_steps / 2)
            middle = bytes - before;
    }
    QCOMPARE(axis.m_unZoom.size(), static_cast<std::size_t>(m_steps));
    long long const grown = bytes - before;
    m_bytesAStep = static_cast<double>(grown) / static_cast<double>(m_steps);
    m_secondHalf = 2.0 * static_cast<double>(grown - middle) / static_cast<double>(m_steps);
    // 24 bytes an entry; the rest is the table of blocks, which doubles now and then, and what an allocator adds
    QVERIFY(m_bytesAStep >= 24.0 && m_bytesAStep <= 27.0);
    QVERIFY(m_secondHalf >= 24.0 && m_secondHalf <= 27.0);
    for (long long i = 0; i < m_steps; ++i)
        axis.UnZoom();
    QVERIFY(axis.m_unZoom.empty());
    QCOMPARE(axis.m_start, 0.0);
    QCOMPARE(axis.m_stop, 100.0);
    QVERIFY(bytes - before < 4096);
}

void tst_zoom_endurance::everyWayFreesIt_data()
{
    QTest::addColumn<Way>("way");
    QTest::newRow("ClearUnZoom") << Way([](QuietAxis & axis) { axis.ClearUnZoom(); });
    QTest::newRow("SetDefaultRange") << Way([](QuietAxis & axis) { axis.SetDefaultRange(0.0, 1.0); });
    QTest::newRow("ZoomToBegin") << Way([](QuietAxis & axis) { axis.ZoomToBegin(); });
    QTest::newRow("ZoomToDefault") << Way([](QuietAxis & axis) {
        axis.m_defaultStart = 20.0;
        axis.ZoomToDefault();
    });
    QTest::newRow("ZoomToDevice") << Way([](QuietAxis & axis) { axis.ZoomToDevice(); });
    QTest::newRow("IsUnZoomAvailable") << Way([](QuietAxis & axis) {
        axis.SetRange(1000.0, 2000.0);
        axis.IsUnZoomAvailable();
    });
    QTest::newRow("a change of the center") << Way([](QuietAxis & axis) {
        Planted<ValueNumeric<double>> center("center");
        axis.SetCenter_ValuePath(center.Path());
        center->SetValue(5.0, nullptr);
    });
}

void tst_zoom_endurance::everyWayFreesIt()
{
    QFETCH(Way, way);
    QuietAxis axis;
    axis.SetAxisZoomEnable(true, false);
    axis.SetRange(0.0, 100.0);
    way(axis); // whatever it makes once
    axis.SetDefaultRange(-1.0, -1.0);
    axis.SetRange(0.0, 100.0);
    long long const before = bytes;
    long long const steps = std::min(Steps(), 100'000LL);
    for (long long i = 0; i < steps; ++i)
        axis.m_unZoom.emplace_back(0.0, 100.0, 0.0);
    QVERIFY(bytes - before >= steps * 24);
    way(axis);
    QVERIFY(axis.m_unZoom.empty());
    m_left = std::max(m_left, bytes - before);
    QVERIFY2(bytes - before < 4096, qPrintable(QString::number(bytes - before)));
}

//! A thousand steps in, recorded, and out again: the range is that of the beginning.
void tst_zoom_endurance::zoomInAndOutAgain()
{
    long long const walks = std::max(1LL, Steps() / 10'000);
    for (long long walk = 0; walk < walks; ++walk) {
        QuietAxis axis;
        axis.SetAxisZoomEnable(true, false);
        double const center = static_cast<double>(walk) * 1e4 - 3e5;
        double const widest = 1e9;
        axis.SetRange(center - widest / 2.0, center + widest / 2.0);
        double const start = axis.m_start;
        double const stop = axis.m_stop;
        double width = widest;
        int recorded = 0;
        for (int step = 0; step < 1000; ++step) {
            width *= 0.97; // 0.1 units are reached before the end: then zooms are refused
            recorded += axis.SetZoomedRange(center - width / 2.0, center + width / 2.0, true) ? 1 : 0;
            QVERIFY(axis.m_stop - axis.m_start > 0.1);
            QVERIFY(axis.m_ticCount > 0 && axis.m_ticCount <= 1000);
        }
        QVERIFY(recorded > 700 && recorded < 1000);
        QCOMPARE(axis.m_unZoom.size(), static_cast<std::size_t>(recorded));
        while (axis.IsUnZoomAvailable())
            axis.UnZoom();
        QVERIFY(axis.m_start == start && axis.m_stop == stop);
        ++m_walks;
    }
}

//! Each zoom is one command, and the stack keeps the last thousand.
void tst_zoom_endurance::undoStackIsLimited()
{
    Planted<ValueNumeric<double>> start("start");
    Planted<ValueNumeric<double>> stop("stop");
    stop->SetValue(100.0, nullptr);
    QuietAxis axis;
    QVERIFY(axis.SetStart_ValuePath(start.Path()) && axis.SetStop_ValuePath(stop.Path()));
    axis.SetAxisZoomEnable(true, false);
    QUndoStack & stack = *GuiBase::Instance().UndoStack();
    stack.clear();
    QCOMPARE(stack.undoLimit(), 1000);
    long long const steps = Steps() / 20;
    long long full = 0; // bytes when the stack was full for the first time
    for (long long i = 0; i < steps; ++i) {
        {
            GuiUndoRecordingHelper const recording(&axis, QStringLiteral("Zoom"));
            QVERIFY(axis.SetZoomedRange(0.0, i % 2 == 0 ? 50.0 : 100.0, false));
        }
        if (i == 1999)
            full = bytes;
        QVERIFY(stack.count() <= 1000);
    }
    QCOMPARE(stack.count(), 1000);
    QVERIFY2(bytes - full < 65'536, qPrintable(QString::number(bytes - full)));
    for (; stack.canUndo(); ++m_undone)
        stack.undo();
    QCOMPARE(m_undone, 1000LL);
    QCOMPARE(axis.m_stop, steps % 2 == 0 ? 100.0 : 50.0); // an even number of steps back
    stack.clear();
}

void tst_zoom_endurance::cleanupTestCase()
{
    std::printf(
        "figures: %lld zooms, %.2f bytes a step, %.2f in the second half; at most %lld bytes left when emptied; "
        "%lld walks in and out; %lld undone\n",
        m_steps, m_bytesAStep, m_secondHalf, m_left, m_walks, m_undone);
}

ORIM_TEST_MAIN(tst_zoom_endurance)
#include "tst_zoom_endurance.moc"
