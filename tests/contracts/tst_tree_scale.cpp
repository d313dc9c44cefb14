// SPDX-License-Identifier: MIT
#include "tree.h"

#include "cpuclock.h"
#include "testmain.h"
#include "valuenumeric.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

namespace {

constexpr int Values = 10000;
constexpr int Watchers = 1000;
constexpr int Period = 40; // ms, 25 bursts a second

constexpr bool IsOptimised()
{
#if defined(__OPTIMIZE__)
    return true;
#else
    return false;
#endif
}

class Counter : public IObserver
{
public:
    void Update(Observable *, TChangeCode) override { ++m_heard; }

    long long m_heard = 0;
};

QString PathOf(int i) { return QStringLiteral("/scale/device %1/parameter %2").arg(i / 100).arg(i % 100); }

//! What one round showed; times in ms, sorted.
struct Round
{
    int bursts = 0;
    double longestBurst = 0.0;
    std::vector<double> stalls; // between two turns of the event loop, beyond the pulse itself
    std::vector<double> work;   // of the processor, between the same turns
};

double P99(std::vector<double> const & sorted) { return sorted[sorted.size() * 99 / 100]; }

//! Sets all values in bursts while a pulse of 1 ms watches the event loop. \param length  ms. \param first  bursts
//! before these.
Round Run(std::vector<ValueNumeric<double> *> const & values, int length, int first)
{
    Tree & tree = *Tree::Instance();
    Round round;
    QElapsedTimer clock;
    clock.start();
    QTimer burst;
    burst.setTimerType(Qt::PreciseTimer);
    QObject::connect(&burst, &QTimer::timeout, [&] {
        qint64 const from = clock.nsecsElapsed();
        ++round.bursts;
        for (int i = 0; i < Values; ++i) // half by handle, half by path
            (i % 2 ? values[static_cast<std::size_t>(i)] : tree.FindAs<ValueNumeric<double>>(PathOf(i)))
                ->SetValue(first + round.bursts, nullptr);
        round.longestBurst = std::max(round.longestBurst, static_cast<double>(clock.nsecsElapsed() - from) / 1e6);
    });
    qint64 last = 0;
    CpuClock processor;
    QTimer pulse;
    pulse.setTimerType(Qt::PreciseTimer);
    QObject::connect(&pulse, &QTimer::timeout, [&] {
        qint64 const now = clock.nsecsElapsed();
        if (last) {
            round.stalls.push_back(std::max(0.0, static_cast<double>(now - last) / 1e6 - 1.0));
            round.work.push_back(processor.Milliseconds());
        }
        last = now;
        processor.Restart();
    });
    QEventLoop loop;
    QTimer::singleShot(length, &loop, &QEventLoop::quit);
    pulse.start(1);
    burst.start(Period);
    loop.exec();
    std::sort(round.stalls.begin(), round.stalls.end());
    std::sort(round.work.begin(), round.work.end());
    return round;
}

} // namespace

//! Ten thousand values, one of them watched by a thousand, all set 25 times a second: the event loop must not stall.
class tst_tree_scale : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eventLoopDoesNotStall();
};

void tst_tree_scale::eventLoopDoesNotStall()
{
    Tree & tree = *Tree::Instance();
    std::vector<ValueNumeric<double> *> values;
    std::vector<std::unique_ptr<Counter>> counters;
    for (int i = 0; i < Values; ++i) {
        values.push_back(new ValueNumeric<double>(QStringLiteral("parameter %1").arg(i % 100)));
        QVERIFY(tree.Insert(QStringLiteral("/scale/device %1").arg(i / 100), values.back()));
        counters.push_back(std::make_unique<Counter>());
        values.back()->AddObserver(counters.back().get());
    }
    for (int i = 1; i < Watchers; ++i) {
        counters.push_back(std::make_unique<Counter>());
        values[0]->AddObserver(counters.back().get());
    }

    bool const counts = IsOptimised() && !TestStage::Sanitized();
    int const length = static_cast<int>(TestStage::Turns(3000, 600000));
    int const rounds = counts ? 6 : 1;
    bool smooth = false; // one round at least that nothing but our own work could hold up
    int bursts = 0;
    for (int i = 0; i < rounds && !smooth; ++i) {
        Round const round = Run(values, length, bursts);
        QVERIFY(round.bursts > 0 && !round.stalls.empty());
        bursts += round.bursts;
        std::printf("scale: %d values, %d observers on one, %d bursts, longest burst %.2f ms, stall p99 %.2f ms, max "
                    "%.2f ms, of the processor p99 %.2f ms, max %.2f ms, %.1f s%s\n",
                    Values, Watchers, round.bursts, round.longestBurst, P99(round.stalls), round.stalls.back(),
                    P99(round.work), round.work.back(), length / 1000.0,
                    counts ? "" : " (not an optimised build: stalls are not judged)");
        if (counts) {
            QVERIFY2(P99(round.work) <= 16.0, qPrintable(QString::number(P99(round.work))));
            QVERIFY2(round.work.back() <= 100.0, qPrintable(QString::number(round.work.back())));
        }
        smooth = round.bursts > length / Period / 4 && P99(round.stalls) <= 16.0 && round.stalls.back() <= 100.0;
    }
    QVERIFY(smooth || !counts);
    long long heard = 0;
    for (auto const & counter : counters)
        heard += counter->m_heard;
    QCOMPARE(heard, static_cast<long long>(bursts) * (Values + Watchers - 1));
    counters.clear();
    QCOMPARE(tree.RemoveFolder(QStringLiteral("/scale")), Values);
}

ORIM_CORE_TEST_MAIN(tst_tree_scale)
#include "tst_tree_scale.moc"
