// SPDX-License-Identifier: MIT
#include "tree.h"

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
    auto const path = [](int i) { return QStringLiteral("/scale/device %1/parameter %2").arg(i / 100).arg(i % 100); };
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

    QElapsedTimer clock;
    clock.start();
    int bursts = 0;
    qint64 longestBurst = 0;
    QTimer burst;
    burst.setTimerType(Qt::PreciseTimer);
    connect(&burst, &QTimer::timeout, this, [&] {
        qint64 const from = clock.nsecsElapsed();
        ++bursts;
        for (int i = 0; i < Values; ++i) // half by handle, half by path
            (i % 2 ? values[static_cast<std::size_t>(i)] : tree.FindAs<ValueNumeric<double>>(path(i)))
                ->SetValue(bursts, nullptr);
        longestBurst = std::max(longestBurst, clock.nsecsElapsed() - from);
    });

    std::vector<double> stalls; // ms between two turns of the event loop, beyond the pulse itself
    qint64 last = 0;
    QTimer pulse;
    pulse.setTimerType(Qt::PreciseTimer);
    connect(&pulse, &QTimer::timeout, this, [&] {
        qint64 const now = clock.nsecsElapsed();
        if (last)
            stalls.push_back(std::max(0.0, static_cast<double>(now - last) / 1e6 - 1.0));
        last = now;
    });

    bool const counts = IsOptimised() && !TestStage::Sanitized();
    int const length = static_cast<int>(TestStage::Turns(counts ? 15000 : 5000, 1800000));
    QEventLoop loop;
    QTimer::singleShot(length, &loop, &QEventLoop::quit);
    pulse.start(1);
    burst.start(Period);
    loop.exec();
    burst.stop();
    pulse.stop();

    QVERIFY(bursts > length / Period / 4);
    long long heard = 0;
    for (auto const & counter : counters)
        heard += counter->m_heard;
    QCOMPARE(heard, static_cast<long long>(bursts) * (Values + Watchers - 1));
    std::sort(stalls.begin(), stalls.end());
    double const p99 = stalls[stalls.size() * 99 / 100];
    double const worst = stalls.back();
    std::printf(
        "scale: %d values, %d observers on one, %d bursts, longest burst %.2f ms, stall p99 %.2f ms, max %.2f ms, "
        "%.1f s%s\n",
        Values, Watchers, bursts, static_cast<double>(longestBurst) / 1e6, p99, worst, length / 1000.0,
        counts ? "" : " (not an optimised build: stalls are not judged)");
    if (counts) {
        QVERIFY2(p99 <= 16.0, qPrintable(QString::number(p99)));
        QVERIFY2(worst <= 100.0, qPrintable(QString::number(worst)));
    }
    counters.clear();
    QCOMPARE(tree.RemoveFolder(QStringLiteral("/scale")), Values);
}

ORIM_CORE_TEST_MAIN(tst_tree_scale)
#include "tst_tree_scale.moc"
