// SPDX-License-Identifier: MIT
// A value changes under 1,000 axes whose start follows it, with all that an axis then does: tics found, repair asked
// for, signals sent; no echo comes back. The limit does the same by hand, without a tree, bindings or notification.

#include "axisbase.h"
#include "tree.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

namespace {

//! Shows how often it took a value.
class BoundAxis : public AxisBase
{
public:
    using AxisBase::AxisBase;

    void CalcValues() override
    {
        ++m_calculations;
        AxisBase::CalcValues();
    }

    long long m_calculations = 0;
};

using Axes = std::vector<std::unique_ptr<BoundAxis>>;

Axes MakeAxes(std::int64_t count)
{
    Axes axes;
    for (std::int64_t i = 0; i < count; ++i) {
        axes.push_back(std::make_unique<BoundAxis>());
        axes.back()->SetRange(0.0, 1000.0);
    }
    return axes;
}

void Ours(benchmark::State & state)
{
    auto * const value = new ValueNumeric<double>(QStringLiteral("start"));
    Tree::Instance()->Insert(QStringLiteral("/bench"), value);
    Axes const axes = MakeAxes(state.range(0));
    for (auto const & axis : axes)
        axis->SetStart_ValuePath(QStringLiteral("/bench/start"));
    long long const before = axes.front()->m_calculations;
    long long turns = 0;
    for (auto _ : state) {
        value->SetValue(static_cast<double>(++turns % 100), nullptr);
        benchmark::DoNotOptimize(axes.back()->Start());
    }
    if (axes.front()->m_calculations - before != turns) // one each: all came to rest
        state.SkipWithError("an axis heard of a change more than once");
    Tree::Instance()->Remove(QStringLiteral("/bench/start"));
}

//! The work that each axis owes, done in a plain loop.
void Limit(benchmark::State & state)
{
    Axes const axes = MakeAxes(state.range(0));
    long long turns = 0;
    for (auto _ : state) {
        double const start = static_cast<double>(++turns % 100);
        for (auto const & axis : axes)
            axis->SetStartValue(start);
        benchmark::DoNotOptimize(axes.back()->Start());
    }
}

} // namespace

BENCHMARK(Ours)->Name("ValueChange/ours")->Arg(1)->Arg(1000);
BENCHMARK(Limit)->Name("ValueChange/limit")->Arg(1)->Arg(1000);
