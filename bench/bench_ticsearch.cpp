// SPDX-License-Identifier: MIT

// The search for the tics of a linear axis, beside the least work that gives the same answer for ordinary ranges: a
// step from a table of powers of ten, its multiples, the digits of the labels and the offset. TicSearch is the search
// alone, TicFill adds the places of all tics and minor tics. A peer fills its lists in both.

#include "axisdefinition.h"
#include "peerqcustomplot.h"
#include "peerqwt.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <vector>

namespace {

struct Range
{
    double start;
    double stop;
};

//! Ranges as a screen shows them: 1e-6 to 1e9 wide, near zero and far away.
std::vector<Range> Ranges()
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    std::vector<Range> ranges(256);
    for (Range & range : ranges) {
        double const width = std::pow(10.0, -6.0 + 15.0 * unit(random));
        range.start = width * 1000.0 * (unit(random) - 0.5);
        range.stop = range.start + width;
    }
    return ranges;
}

struct Tics
{
    int count = 0;
    int minor = 0;
    int left = 0;
    int right = 0;
    double first = 0.0;
    double step = 0.0;
    double offset = 0.0;
};

constexpr std::array<double, 23> Powers{ 1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                         1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22 };

//! The power of ten at or below the power of two at or below a number above 0.
int Exponent(double value)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return (static_cast<int>(bits >> 52) - 1023) * 1233 >> 12;
}

//! The limit: a table of powers of ten, a choice of 1, 2, 5, and two multiples. Ranges of ordinary size only, in rising
//! order and without a factor; rounding may put a tic outside.
Tics LeastSearch(double start, double stop)
{
    double const least = (stop - start) / 12.0;
    int const exponent = Exponent(least);
    double const power =
        exponent < 0 ? 1.0 / Powers[static_cast<size_t>(-exponent)] : Powers[static_cast<size_t>(exponent)];
    double const ratio = least / power;
    double const factor = ratio > 10.0 ? 20.0 : ratio > 5.0 ? 10.0 : ratio > 2.0 ? 5.0 : ratio > 1.0 ? 2.0 : 1.0;
    Tics tics;
    tics.step = factor * power;
    tics.minor = factor == 2.0 || factor == 20.0 ? 3 : 4;
    double const inverse = 1.0 / tics.step;
    constexpr double Shift = 0x1.8p52;
    double from = (start * inverse + Shift) - Shift;
    from += from * tics.step < start ? 1.0 : 0.0;
    double to = (stop * inverse + Shift) - Shift;
    to -= to * tics.step > stop ? 1.0 : 0.0;
    tics.count = static_cast<int>(to - from) + 1;
    int const power10 = exponent + (factor >= 10.0 ? 1 : 0);
    tics.right = power10 < 0 ? -power10 : 0;
    double const largest = std::max(std::fabs(from), std::fabs(to)) * tics.step;
    int const digits = largest < 10.0 ? 0 : Exponent(largest) + 1;
    tics.left = digits + (largest >= Powers[static_cast<size_t>(digits)] ? 1 : 0);
    tics.left += tics.left == 0 ? 1 : 0;
    if (std::fabs(from) >= 1000.0 && from * to > 0.0) {
        auto const whole = static_cast<double>(static_cast<long long>(from) / 1000 * 1000);
        tics.offset = whole * tics.step;
        from -= whole;
    }
    tics.first = from * tics.step;
    return tics;
}

Tics OurSearch(Range & range, double factor)
{
    Tics tics;
    tics.count = axisDefinition::GetAxisValuesLinear(&range.start, &range.stop, &tics.minor, &tics.left, &tics.right,
                                                     &tics.first, &tics.step, &tics.offset, 1, factor, -1);
    return tics;
}

using Places = std::array<double, 256>;

int Fill(Tics const & tics, Places & places)
{
    int filled = 0;
    double const part = tics.step / (tics.minor + 1);
    for (int i = 0; i < tics.count; ++i)
        for (int k = 0; k <= tics.minor; ++k)
            places[static_cast<size_t>(filled++)] = i * tics.step + tics.first + tics.offset + k * part;
    return filled;
}

//! The limit and ours must find the same before they are timed.
void Compare(std::vector<Range> & ranges)
{
    for (Range & range : ranges) {
        Tics const least = LeastSearch(range.start, range.stop);
        Tics const ours = OurSearch(range, 1.0);
        double const difference = std::max(std::fabs(least.first - ours.first), std::fabs(least.offset - ours.offset));
        if (least.count != ours.count || least.minor != ours.minor || least.left != ours.left ||
            least.right != ours.right || difference > ours.step * 1e-6) {
            std::fprintf(stderr, "the limit finds other tics in %.17g .. %.17g\n", range.start, range.stop);
            std::exit(1);
        }
    }
}

template <class Search>
void RunSearch(benchmark::State & state, Search search)
{
    std::vector<Range> ranges = Ranges();
    Compare(ranges);
    size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(search(ranges[i++ % ranges.size()]));
}

void LimitSearch(benchmark::State & state)
{
    RunSearch(state, [](Range & range) { return LeastSearch(range.start, range.stop); });
}

BENCHMARK(LimitSearch)->Name("TicSearch/limit");

void OursSearch(benchmark::State & state)
{
    RunSearch(state, [](Range & range) { return OurSearch(range, 1.0); });
}

BENCHMARK(OursSearch)->Name("TicSearch/ours");

void OursSearchInMega(benchmark::State & state)
{
    RunSearch(state, [](Range & range) { return OurSearch(range, 1e-6); });
}

BENCHMARK(OursSearchInMega)->Name("TicSearch/ours-with-factor");

void OursSearchSame(benchmark::State & state)
{
    std::vector<Range> ranges = Ranges();
    for (auto _ : state)
        benchmark::DoNotOptimize(OurSearch(ranges.front(), 1.0));
}

BENCHMARK(OursSearchSame)->Name("TicSearch/ours-same-range");

void LimitFill(benchmark::State & state)
{
    Places places;
    RunSearch(state, [&places](Range & range) { return Fill(LeastSearch(range.start, range.stop), places); });
    benchmark::DoNotOptimize(places);
}

BENCHMARK(LimitFill)->Name("TicFill/limit");

void OursFill(benchmark::State & state)
{
    Places places;
    RunSearch(state, [&places](Range & range) { return Fill(OurSearch(range, 1.0), places); });
    benchmark::DoNotOptimize(places);
}

BENCHMARK(OursFill)->Name("TicFill/ours");

#ifdef ORIM_PEER_QWT
void Qwt(benchmark::State & state)
{
    QwtLinearScaleEngine const engine;
    RunSearch(state, [&engine](Range & range) { return engine.divideScale(range.start, range.stop, 12, 5); });
}

BENCHMARK(Qwt)->Name("TicSearch/qwt");
BENCHMARK(Qwt)->Name("TicFill/qwt");
#endif

#ifdef ORIM_PEER_QCUSTOMPLOT
void QCustomPlotTicker(benchmark::State & state)
{
    QCPAxisTicker ticker;
    ticker.setTickCount(8);
    QLocale const locale = QLocale::c();
    QVector<double> tics;
    QVector<double> minor;
    RunSearch(state, [&](Range & range) {
        ticker.generate(QCPRange(range.start, range.stop), locale, QLatin1Char('f'), 6, tics, &minor, nullptr);
        return tics.size() + minor.size();
    });
}

BENCHMARK(QCustomPlotTicker)->Name("TicSearch/qcustomplot");
BENCHMARK(QCustomPlotTicker)->Name("TicFill/qcustomplot");
#endif

} // namespace
