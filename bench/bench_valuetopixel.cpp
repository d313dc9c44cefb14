// SPDX-License-Identifier: MIT

// Values to pixels: many at once, and one by one through the axis. The limit of many is a multiplication and an
// addition for each, cut to an integer, with no question asked. "painted" is ours after painting code left the vector
// registers as it does, "outside" has half of the values outside the range, "borders" all of them on the border of two
// pixels, where ours computes the quotient.

#include "axisbase.h"
#include "pixelmap.h"

#include "peerqcustomplot.h"
#include "peerqwt.h"

#include <benchmark/benchmark.h>

#include <QImage>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <vector>

#ifdef ORIM_PEER_QWT
#include <qwt_scale_map.h>
#endif

namespace {

constexpr double Start = 88e6; // Hz
constexpr double Stop = 108e6;
constexpr int Width = 1920; // px

std::vector<double> Values(std::size_t count, double beyond)
{
    std::mt19937_64 random(1);
    double const margin = (Stop - Start) * beyond;
    std::uniform_real_distribution<double> uniform(Start - margin, Stop + margin);
    std::vector<double> values(count);
    std::generate(values.begin(), values.end(), [&] { return uniform(random); });
    return values;
}

std::vector<double> Borders(std::size_t count)
{
    std::vector<double> values(count);
    for (std::size_t i = 0; i < count; ++i)
        values[i] = Start + (Stop - Start) * static_cast<double>(i % Width) / Width;
    return values;
}

PixelMap Map()
{
    PixelMap::Layout layout;
    layout.start = Start;
    layout.stop = Stop;
    layout.direction = PixelMap::eHorizontal;
    layout.last = Width - 1;
    return PixelMap(layout);
}

//! Leaves the vector registers as painting does.
void Paint()
{
    static QImage image(64, 64, QImage::Format_RGB32);
    image.fill(Qt::darkBlue);
    benchmark::DoNotOptimize(image.bits());
}

void Ours(benchmark::State & state, std::vector<double> (*make)(std::size_t), bool paint)
{
    auto const count = static_cast<std::size_t>(state.range(0));
    std::vector<double> const values = make(count);
    std::vector<int> pixels(count);
    PixelMap const map = Map();
    map.ToPixels(values.data(), pixels.data(), count);
    for (std::size_t i = 0; i < count; ++i)
        if (pixels[i] != map.ToPixel(values[i]))
            std::abort();
    for (auto _ : state) {
        if (paint)
            Paint();
        map.ToPixels(values.data(), pixels.data(), count);
        benchmark::DoNotOptimize(pixels.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

std::vector<double> Inside(std::size_t count) { return Values(count, 0.0); }

std::vector<double> Outside(std::size_t count) { return Values(count, 0.5); }

__attribute__((noinline)) void MultiplyAdd(double const * values, int * pixels, std::size_t count, double factor,
                                           double offset)
{
    for (std::size_t i = 0; i < count; ++i)
        pixels[i] = static_cast<int>(values[i] * factor + offset);
}

void Limit(benchmark::State & state)
{
    auto const count = static_cast<std::size_t>(state.range(0));
    std::vector<double> const values = Inside(count);
    std::vector<int> pixels(count);
    double const factor = Width / (Stop - Start);
    for (auto _ : state) {
        MultiplyAdd(values.data(), pixels.data(), count, factor, -Start * factor);
        benchmark::DoNotOptimize(pixels.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(Limit)->Name("ValuesToPixels/limit")->Arg(1920)->Arg(65536);
BENCHMARK_CAPTURE(Ours, unused, Inside, false)->Name("ValuesToPixels/ours")->Arg(1920)->Arg(65536);
BENCHMARK_CAPTURE(Ours, unused, Inside, true)->Name("ValuesToPixels/painted")->Arg(65536);
BENCHMARK_CAPTURE(Ours, unused, Outside, false)->Name("ValuesToPixels/outside")->Arg(1920)->Arg(65536);
BENCHMARK_CAPTURE(Ours, unused, Borders, false)->Name("ValuesToPixels/borders")->Arg(1920);

//! One call after the other; the type of the axis is not known to the compiler.
template <class Axis, class Call>
void OneByOne(benchmark::State & state, Axis & axis, Call call)
{
    std::vector<double> const values = Inside(1024);
    std::size_t i = 0;
    Axis * p = &axis;
    for (auto _ : state) {
        benchmark::DoNotOptimize(p);
        benchmark::DoNotOptimize(call(*p, values[i++ % 1024]));
    }
}

void OursOneByOne(benchmark::State & state)
{
    AxisBase axis(nullptr, nullptr, AxisBase::AxisHorizontal);
    axis.resize(Width, 30);
    axis.SetRange(Start, Stop);
    OneByOne(state, axis, [](AxisBase & a, double value) { return a.ValueToPixel(value); });
}

BENCHMARK(OursOneByOne)->Name("ValueToPixel/ours");

void LimitOneByOne(benchmark::State & state)
{
    PixelMap const map = Map();
    OneByOne(state, map, [](PixelMap const & m, double value) { return m.ToPixel(value); });
}

BENCHMARK(LimitOneByOne)->Name("ValueToPixel/bare");

#ifdef ORIM_PEER_QWT

QwtScaleMap QwtMap()
{
    QwtScaleMap map;
    map.setScaleInterval(Start, Stop);
    map.setPaintInterval(0.0, Width - 1);
    return map;
}

void ManyQwt(benchmark::State & state)
{
    auto const count = static_cast<std::size_t>(state.range(0));
    std::vector<double> const values = Inside(count);
    std::vector<double> pixels(count);
    QwtScaleMap const map = QwtMap();
    for (auto _ : state) {
        for (std::size_t i = 0; i < count; ++i)
            pixels[i] = map.transform(values[i]);
        benchmark::DoNotOptimize(pixels.data());
        benchmark::ClobberMemory();
    }
}

BENCHMARK(ManyQwt)->Name("ValuesToPixels/qwt")->Arg(1920)->Arg(65536);

#endif
#ifdef ORIM_PEER_QCUSTOMPLOT

class PlotAxis
{
public:
    PlotAxis()
    {
        m_plot.resize(Width, 300);
        m_plot.xAxis->setRange(Start, Stop);
        m_plot.replot(QCustomPlot::rpImmediateRefresh);
    }

    QCPAxis & Axis() { return *m_plot.xAxis; }

private:
    QCustomPlot m_plot;
};

void ManyQCustomPlot(benchmark::State & state)
{
    auto const count = static_cast<std::size_t>(state.range(0));
    std::vector<double> const values = Inside(count);
    std::vector<double> pixels(count);
    PlotAxis plot;
    for (auto _ : state) {
        for (std::size_t i = 0; i < count; ++i)
            pixels[i] = plot.Axis().coordToPixel(values[i]);
        benchmark::DoNotOptimize(pixels.data());
        benchmark::ClobberMemory();
    }
}

BENCHMARK(ManyQCustomPlot)->Name("ValuesToPixels/qcustomplot")->Arg(1920)->Arg(65536);

void OneQCustomPlot(benchmark::State & state)
{
    PlotAxis plot;
    OneByOne(state, plot.Axis(), [](QCPAxis & axis, double value) { return axis.coordToPixel(value); });
}

BENCHMARK(OneQCustomPlot)->Name("ValueToPixel/qcustomplot");

#endif

} // namespace
