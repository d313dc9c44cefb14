// SPDX-License-Identifier: MIT

// Values to colours: a row of a million, all kept rows of a picture, and the table after a change. The limit is a table
// of 4096 entries with SSE2 and nothing exact about it. "painted" is ours after painting code left the vector registers
// as it does.

#include "colorlookup.h"
#include "shadingcolorset.h"

#include "peerqcustomplot.h"
#include "peerqwt.h"

#include <benchmark/benchmark.h>

#include <QColor>
#include <QImage>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <vector>

#if defined(__SSE2__) || defined(_M_X64)
#include <emmintrin.h>
#endif
#ifdef ORIM_PEER_QWT
#include <qwt_color_map.h>
#endif

namespace {

constexpr std::size_t Million = 1'000'000;
constexpr std::size_t FullHd = 1920 * 1080;
constexpr double Min = -120.0; // dB
constexpr double Max = -20.0;

std::vector<double> Levels(std::size_t count)
{
    std::mt19937_64 random(1);
    std::uniform_real_distribution<double> uniform(Min - 5.0, Max + 5.0);
    std::vector<double> levels(count);
    std::generate(levels.begin(), levels.end(), [&] { return uniform(random); });
    return levels;
}

ShadingColorSet SetOf(int length, bool smooth)
{
    std::mt19937_64 random(static_cast<std::uint64_t>(length));
    ShadingColorSet set(static_cast<std::size_t>(length), smooth);
    for (int i = 0; i < length; ++i)
        set.SetColorNr(i, QColor::fromRgb(static_cast<QRgb>(random())));
    return set;
}

//! Ends the program when a row is not what the scalar operation gives: nothing wrong is timed.
void CheckRow(ShadingColorSet & set, std::vector<double> const & levels, std::vector<QRgb> const & out)
{
    int const tolerance = set.GetSmooth() ? 1 : 0;
    for (std::size_t i = 0; i < levels.size(); i += 7) {
        QColor const wanted = set.GetColor(levels[i], Min, Max, false);
        if (std::abs(wanted.red() - qRed(out[i])) > tolerance ||
            std::abs(wanted.green() - qGreen(out[i])) > tolerance ||
            std::abs(wanted.blue() - qBlue(out[i])) > tolerance)
            std::abort();
    }
}

//! Leaves the vector registers as painting does.
void Paint()
{
    static QImage image(64, 64, QImage::Format_RGB32);
    image.fill(Qt::darkBlue);
    benchmark::DoNotOptimize(image.bits());
}

void Map(benchmark::State & state, std::size_t count, int length, bool smooth, bool paint)
{
    std::vector<double> const levels = Levels(count);
    std::vector<QRgb> out(count);
    ShadingColorSet set = SetOf(length, smooth);
    set.GetColors(levels.data(), out.data(), count, Min, Max, false);
    CheckRow(set, levels, out);
    for (auto _ : state) {
        if (paint)
            Paint();
        set.GetColors(levels.data(), out.data(), count, Min, Max, false);
        benchmark::DoNotOptimize(out.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(count));
}

constexpr int LimitCells = 4096;

std::vector<QRgb> LimitTable()
{
    ShadingColorSet set = SetOf(20, true);
    std::vector<QRgb> table(LimitCells);
    for (int i = 0; i < LimitCells; ++i)
        table[static_cast<std::size_t>(i)] = set.GetColor(i + 0.5, 0.0, LimitCells, false).rgb();
    return table;
}

#if defined(__SSE2__) || defined(_M_X64)

void LimitKernel(double const * values, QRgb * out, std::size_t count, QRgb const * table)
{
    __m128d const scale = _mm_set1_pd(LimitCells / (Max - Min));
    __m128d const origin = _mm_set1_pd(-Min * LimitCells / (Max - Min));
    __m128d const low = _mm_setzero_pd();
    __m128d const high = _mm_set1_pd(LimitCells - 1);
    auto const slots = [&](double const * two) {
        __m128d const position = _mm_add_pd(_mm_mul_pd(_mm_loadu_pd(two), scale), origin);
        return static_cast<std::uint64_t>(
            _mm_cvtsi128_si64(_mm_cvttpd_epi32(_mm_min_pd(_mm_max_pd(position, low), high))));
    };
    for (std::size_t i = 0; i < count; i += 8) {
        std::uint64_t const a = slots(values + i);
        std::uint64_t const b = slots(values + i + 2);
        std::uint64_t const c = slots(values + i + 4);
        std::uint64_t const d = slots(values + i + 6);
        out[i] = table[static_cast<std::uint32_t>(a)];
        out[i + 1] = table[a >> 32];
        out[i + 2] = table[static_cast<std::uint32_t>(b)];
        out[i + 3] = table[b >> 32];
        out[i + 4] = table[static_cast<std::uint32_t>(c)];
        out[i + 5] = table[c >> 32];
        out[i + 6] = table[static_cast<std::uint32_t>(d)];
        out[i + 7] = table[d >> 32];
    }
}

#else

void LimitKernel(double const * values, QRgb * out, std::size_t count, QRgb const * table)
{
    for (std::size_t i = 0; i < count; ++i) {
        double const position = (values[i] - Min) * (LimitCells / (Max - Min));
        out[i] = table[static_cast<std::size_t>(std::clamp(position, 0.0, LimitCells - 1.0))];
    }
}

#endif

void MapLimit(benchmark::State & state, std::size_t count)
{
    std::vector<double> const levels = Levels(count);
    std::vector<QRgb> out(count);
    std::vector<QRgb> const table = LimitTable();
    for (auto _ : state) {
        LimitKernel(levels.data(), out.data(), count, table.data());
        benchmark::DoNotOptimize(out.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(count));
}

//! The idiom that GetColors() replaces.
void MapByQColor(benchmark::State & state, std::size_t count)
{
    std::vector<double> const levels = Levels(count);
    std::vector<QRgb> out(count);
    ShadingColorSet set = SetOf(20, true);
    for (auto _ : state) {
        for (std::size_t i = 0; i < count; ++i)
            out[i] = set.GetColor(levels[i], Min, Max, false).rgb();
        benchmark::DoNotOptimize(out.data());
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(count));
}

BENCHMARK_CAPTURE(Map, unused, Million, 20, true, false)->Name("ValueToColour/ours")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(MapLimit, unused, Million)->Name("ValueToColour/limit")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Map, unused, Million, 20, true, true)->Name("ValueToColour/painted")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Map, unused, Million, 2, true, false)->Name("ValueToColour/blend2")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Map, unused, Million, 34, true, false)->Name("ValueToColour/blend34")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Map, unused, Million, 255, true, false)
    ->Name("ValueToColour/blend255")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Map, unused, Million, 3, false, false)->Name("ValueToColour/bands3")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Map, unused, Million, 20, false, false)->Name("ValueToColour/bands20")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Map, unused, Million, 180, false, false)
    ->Name("ValueToColour/bands180")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Map, unused, Million, 255, false, false)
    ->Name("ValueToColour/bands255")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(MapByQColor, unused, Million)->Name("ValueToColour/qcolor")->Unit(benchmark::kMicrosecond);

BENCHMARK_CAPTURE(Map, unused, FullHd, 20, true, false)->Name("RecolourAllRows/ours")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(MapLimit, unused, FullHd)->Name("RecolourAllRows/limit")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Map, unused, FullHd, 20, true, true)->Name("RecolourAllRows/painted")->Unit(benchmark::kMicrosecond);

//! A short row, where what is kept counts.
BENCHMARK_CAPTURE(Map, unused, 1920, 20, true, false)->Name("OneRow/ours");
BENCHMARK_CAPTURE(MapLimit, unused, 1920)->Name("OneRow/limit");

std::vector<QRgb> ColorsOf(ShadingColorSet const & set)
{
    std::vector<QRgb> colors;
    for (QColor const & color : set.GetVector())
        colors.push_back(color.rgb());
    return colors;
}

std::int64_t EntriesOfOurs(std::int64_t length)
{
    ColorLookup lookup;
    lookup.SetColors(ColorsOf(SetOf(static_cast<int>(length), true)));
    lookup.Prepare(ColorRule(), Min, Max, false);
    return static_cast<std::int64_t>(lookup.GetTableSize());
}

//! The table after one colour changed, whatever its size; one value is mapped with it.
void TableOurs(benchmark::State & state)
{
    ShadingColorSet set = SetOf(static_cast<int>(state.range(0)), true);
    double const level = -50.0;
    QRgb out = 0;
    int turn = 0;
    for (auto _ : state) {
        set.SetColorNr(0, QColor::fromRgb(static_cast<QRgb>(++turn)));
        set.GetColors(&level, &out, 1, Min, Max, false);
        benchmark::DoNotOptimize(out);
    }
    state.SetItemsProcessed(state.iterations() * EntriesOfOurs(state.range(0)));
}

//! As many entries by fixed-point steps inside a segment.
void TableLimit(benchmark::State & state)
{
    std::vector<QRgb> const start = ColorsOf(SetOf(static_cast<int>(state.range(0)), true));
    std::vector<QRgb> colors = start;
    std::size_t const segments = colors.size() - 1;
    int const perSegment = static_cast<int>(EntriesOfOurs(state.range(0)) / static_cast<std::int64_t>(segments));
    std::vector<QRgb> table(segments * static_cast<std::size_t>(perSegment));
    for (auto _ : state) {
        colors[0] = 0xff000000U | (colors[0] + 1);
        QRgb * out = table.data();
        for (std::size_t s = 0; s < segments; ++s) {
            int red = qRed(colors[s]) << 16;
            int green = qGreen(colors[s]) << 16;
            int blue = qBlue(colors[s]) << 16;
            int const redStep = (qRed(colors[s + 1]) - qRed(colors[s])) * 65536 / perSegment;
            int const greenStep = (qGreen(colors[s + 1]) - qGreen(colors[s])) * 65536 / perSegment;
            int const blueStep = (qBlue(colors[s + 1]) - qBlue(colors[s])) * 65536 / perSegment;
            for (int i = 0; i < perSegment; ++i) {
                *out++ = qRgb(red >> 16, green >> 16, blue >> 16);
                red += redStep;
                green += greenStep;
                blue += blueStep;
            }
        }
        benchmark::DoNotOptimize(table.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(table.size()));
}

//! As many entries by GetColor().
void TableByQColor(benchmark::State & state)
{
    auto const entries = static_cast<std::size_t>(EntriesOfOurs(state.range(0)));
    ShadingColorSet set = SetOf(static_cast<int>(state.range(0)), true);
    std::vector<QRgb> table(entries);
    for (auto _ : state) {
        for (std::size_t i = 0; i < entries; ++i)
            table[i] = set.GetColor(static_cast<double>(i), 0.0, static_cast<double>(entries - 1), false).rgb();
        benchmark::DoNotOptimize(table.data());
    }
}

BENCHMARK(TableOurs)->Name("TableAfterChange/ours")->Arg(2)->Arg(20)->Arg(256);
BENCHMARK(TableLimit)->Name("TableAfterChange/limit")->Arg(2)->Arg(20)->Arg(256);
BENCHMARK(TableByQColor)->Name("TableAfterChange/qcolor")->Arg(2)->Arg(20)->Arg(256);

#ifdef ORIM_PEER_QWT

void MapQwt(benchmark::State & state)
{
    std::vector<double> const levels = Levels(Million);
    std::vector<QRgb> out(Million);
    ShadingColorSet const set = SetOf(20, true);
    QwtLinearColorMap map(set.GetVector().front(), set.GetVector().back());
    for (std::size_t i = 1; i + 1 < set.GetLength(); ++i)
        map.addColorStop(static_cast<double>(i) / 19.0, set.GetVector()[i]);
    QwtInterval const interval(Min, Max);
    for (auto _ : state) {
        for (std::size_t i = 0; i < Million; ++i)
            out[i] = map.rgb(interval, levels[i]);
        benchmark::DoNotOptimize(out.data());
    }
}

BENCHMARK(MapQwt)->Name("ValueToColour/qwt")->Unit(benchmark::kMicrosecond);

#endif
#ifdef ORIM_PEER_QCUSTOMPLOT

void MapQCustomPlot(benchmark::State & state)
{
    std::vector<double> const levels = Levels(Million);
    std::vector<QRgb> out(Million);
    ShadingColorSet const set = SetOf(20, true);
    QCPColorGradient gradient;
    gradient.clearColorStops();
    for (std::size_t i = 0; i < set.GetLength(); ++i)
        gradient.setColorStopAt(static_cast<double>(i) / 19.0, set.GetVector()[i]);
    QCPRange const range(Min, Max);
    for (auto _ : state) {
        gradient.colorize(levels.data(), range, out.data(), static_cast<int>(Million));
        benchmark::DoNotOptimize(out.data());
    }
}

BENCHMARK(MapQCustomPlot)->Name("ValueToColour/qcustomplot")->Unit(benchmark::kMicrosecond);

#endif

} // namespace
