// SPDX-License-Identifier: MIT

// A waterfall row appended and shown, full HD. The limit is a ring of rows painted by two drawImage in source mode;
// "memmove" moves the picture by a row instead, "pane" is the whole widget: reduction of 4096 levels, colours, times.
// The peers show one new row of their colour map in a picture of the same size.

#include "levelcolors.h"
#include "panecolors.h"
#include "spectrumline.h"
#include "waterfallimage.h"
#include "waterfallpane.h"

#include "peerqcustomplot.h"
#include "peerqwt.h"

#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cstring>
#include <random>
#include <vector>

#if defined(__SSE2__) || defined(_M_X64)
#include <emmintrin.h>
#endif
#ifdef ORIM_PEER_QWT
#include <qwt_color_map.h>
#include <qwt_matrix_raster_data.h>
#include <qwt_plot_spectrogram.h>
#include <qwt_scale_map.h>
#endif

namespace {

constexpr int Columns = 1920;
constexpr int Rows = 1080;
constexpr int Bins = 4096;
constexpr double Min = -120.0; // dBFS
constexpr double Max = -20.0;

std::vector<double> Levels(std::size_t count)
{
    std::mt19937_64 random(1);
    std::uniform_real_distribution<double> uniform(Min, Max);
    std::vector<double> levels(count);
    std::generate(levels.begin(), levels.end(), [&] { return uniform(random); });
    return levels;
}

std::vector<QRgb> Pixels(std::vector<double> const & levels)
{
    LevelColors colors;
    colors.SetRange(Min, Max);
    std::vector<QRgb> pixels(levels.size());
    colors.Color(levels.data(), pixels.data(), levels.size(), false);
    return pixels;
}

//! A picture whose memory is really there: reading pages never written costs next to nothing.
QImage Screen()
{
    QImage screen(Columns, Rows, QImage::Format_RGB32);
    screen.fill(Qt::darkGray);
    return screen;
}

WaterfallImage Full(std::vector<double> const & levels, std::vector<QRgb> const & pixels)
{
    WaterfallImage image;
    auto const nothing = [](double const *, double *) {};
    image.Resize(Columns, Rows, nothing, 0xff000000, [](double const *, QRgb *, std::size_t) {});
    for (int row = 0; row < Rows; ++row)
        image.Append(levels.data(), pixels.data(), row);
    return image;
}

void RowShown_ours(benchmark::State & state)
{
    std::vector<double> const levels = Levels(Columns);
    std::vector<QRgb> const pixels = Pixels(levels);
    WaterfallImage image = Full(levels, pixels);
    QImage screen = Screen();
    QPainter painter(&screen);
    for (auto _ : state) {
        image.Append(levels.data(), pixels.data(), 0.0);
        image.Paint(painter, QPoint(0, 0));
        benchmark::ClobberMemory();
    }
}

void RowShown_limit(benchmark::State & state)
{
    std::vector<QRgb> const pixels = Pixels(Levels(Columns));
    QImage ring = Screen();
    QImage screen = Screen();
    QPainter painter(&screen);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    int top = 0;
    for (auto _ : state) {
        top = (top + Rows - 1) % Rows;
        std::memcpy(ring.scanLine(top), pixels.data(), Columns * sizeof(QRgb));
        painter.drawImage(0, 0, ring, 0, top, Columns, Rows - top);
        painter.drawImage(0, Rows - top, ring, 0, 0, Columns, top);
        benchmark::ClobberMemory();
    }
}

void RowShown_memmove(benchmark::State & state)
{
    std::vector<QRgb> const pixels = Pixels(Levels(Columns));
    QImage picture = Screen();
    QImage screen = Screen();
    QPainter painter(&screen);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    std::size_t const line = Columns * sizeof(QRgb);
    for (auto _ : state) {
        std::memmove(picture.scanLine(1), picture.scanLine(0), (Rows - 1) * line);
        std::memcpy(picture.scanLine(0), pixels.data(), line);
        painter.drawImage(0, 0, picture);
        benchmark::ClobberMemory();
    }
}

void RowShown_pane(benchmark::State & state)
{
    WaterfallPane pane;
    pane.SetColors(CurrentPaneColors());
    pane.SetLevelRange(Min, Max);
    pane.SetFrequencyRange({ 0.0, Bins });
    pane.resize(Columns, Rows);
    QImage screen = Screen();
    pane.render(&screen); // sends the resize event
    auto line = std::make_shared<SpectrumLine>();
    line->span = Bins;
    line->centre = Bins / 2.0;
    line->levels = Levels(Bins);
    std::vector<std::shared_ptr<SpectrumLine const>> const lines{ line };
    for (auto _ : state) {
        line->seconds += 0.02;
        pane.AppendLines(lines);
        pane.render(&screen);
        benchmark::ClobberMemory();
    }
}

#ifdef ORIM_PEER_QCUSTOMPLOT
void RowShown_qcustomplot(benchmark::State & state)
{
    std::vector<double> const levels = Levels(Columns);
    QCustomPlot plot;
    plot.resize(Columns, Rows);
    plot.plotLayout()->clear();
    auto * const rect = new QCPAxisRect(&plot, true);
    rect->setAutoMargins(QCP::msNone);
    rect->setMargins(QMargins(0, 0, 0, 0));
    plot.plotLayout()->addElement(0, 0, rect);
    auto * const map = new QCPColorMap(rect->axis(QCPAxis::atBottom), rect->axis(QCPAxis::atLeft));
    map->data()->setSize(Columns, Rows);
    map->data()->setRange(QCPRange(0, Columns - 1), QCPRange(0, Rows - 1));
    map->setGradient(QCPColorGradient::gpSpectrum);
    map->setDataRange(QCPRange(Min, Max));
    map->setInterpolate(false);
    map->rescaleAxes();
    int row = 0;
    for (auto _ : state) {
        row = (row + 1) % Rows;
        for (int column = 0; column < Columns; ++column)
            map->data()->setCell(column, row, levels[static_cast<std::size_t>(column)]);
        plot.replot(QCustomPlot::rpImmediateRefresh);
        benchmark::ClobberMemory();
    }
}
#endif

#ifdef ORIM_PEER_QWT
void RowShown_qwt(benchmark::State & state)
{
    std::vector<double> const levels = Levels(Columns);
    auto * const data = new QwtMatrixRasterData;
    data->setValueMatrix(QVector<double>(Columns * Rows, Min), Columns);
    data->setInterval(Qt::XAxis, QwtInterval(0, Columns));
    data->setInterval(Qt::YAxis, QwtInterval(0, Rows));
    data->setInterval(Qt::ZAxis, QwtInterval(Min, Max));
    QwtPlotSpectrogram spectrogram;
    spectrogram.setData(data);
    auto * const colors = new QwtLinearColorMap(Qt::darkBlue, Qt::yellow);
    spectrogram.setColorMap(colors);
    spectrogram.setRenderThreadCount(1);
    QwtScaleMap x;
    x.setScaleInterval(0, Columns);
    x.setPaintInterval(0, Columns);
    QwtScaleMap y;
    y.setScaleInterval(0, Rows);
    y.setPaintInterval(0, Rows);
    QImage screen = Screen();
    QPainter painter(&screen);
    int row = 0;
    for (auto _ : state) {
        row = (row + 1) % Rows;
        for (int column = 0; column < Columns; ++column)
            data->setValue(row, column, levels[static_cast<std::size_t>(column)]);
        spectrogram.draw(&painter, x, y, QRectF(0, 0, Columns, Rows));
        benchmark::ClobberMemory();
    }
}
#endif

void RowAppended_ours(benchmark::State & state)
{
    std::vector<double> const levels = Levels(Columns);
    std::vector<QRgb> const pixels = Pixels(levels);
    WaterfallImage image = Full(levels, pixels);
    for (auto _ : state) {
        image.Append(levels.data(), pixels.data(), 0.0);
        benchmark::ClobberMemory();
    }
}

//! Pixels and levels written into rings of full size.
void RowAppended_limit(benchmark::State & state)
{
    std::vector<double> const levels = Levels(Columns);
    std::vector<QRgb> const pixels = Pixels(levels);
    std::vector<double> levelRing(static_cast<std::size_t>(Columns) * Rows, Min);
    std::vector<QRgb> pixelRing(levelRing.size(), 0xff000000U);
    std::size_t row = 0;
    for (auto _ : state) {
        row = (row + Rows - 1) % Rows;
        std::memcpy(levelRing.data() + row * Columns, levels.data(), Columns * sizeof(double));
        std::memcpy(pixelRing.data() + row * Columns, pixels.data(), Columns * sizeof(QRgb));
        benchmark::ClobberMemory();
    }
}

void Recolour_ours(benchmark::State & state)
{
    std::vector<double> const levels = Levels(Columns);
    WaterfallImage image = Full(levels, Pixels(levels));
    LevelColors colors;
    double max = Max;
    for (auto _ : state) {
        max = max < 0.0 ? max + 1.0 : Max; // a change of range, so that nothing may be kept
        colors.SetRange(Min, max);
        image.Recolor(0xff000000, [&colors](double const * from, QRgb * to, std::size_t count) {
            colors.Color(from, to, count, false);
        });
        benchmark::ClobberMemory();
    }
}

#if defined(__SSE2__) || defined(_M_X64)
constexpr int Cells = 4096;

//! A table of 4096 colours, two levels at a time, nothing exact about it.
void TableKernel(double const * levels, QRgb * pixels, std::size_t count, QRgb const * table)
{
    __m128d const scale = _mm_set1_pd(Cells / (Max - Min));
    __m128d const origin = _mm_set1_pd(-Min * Cells / (Max - Min));
    __m128d const last = _mm_set1_pd(Cells - 1);
    for (std::size_t i = 0; i + 1 < count; i += 2) {
        __m128d const place = _mm_add_pd(_mm_mul_pd(_mm_loadu_pd(levels + i), scale), origin);
        __m128i const cells = _mm_cvttpd_epi32(_mm_min_pd(_mm_max_pd(place, _mm_setzero_pd()), last));
        auto const both = static_cast<unsigned long long>(_mm_cvtsi128_si64(cells));
        pixels[i] = table[both & 0xffffffffU];
        pixels[i + 1] = table[both >> 32U];
    }
}

void Recolour_limit(benchmark::State & state)
{
    std::size_t const count = static_cast<std::size_t>(Columns) * Rows;
    std::vector<double> levels;
    std::vector<double> const row = Levels(Columns);
    for (int i = 0; i < Rows; ++i)
        levels.insert(levels.end(), row.begin(), row.end());
    std::vector<double> steps(Cells);
    for (int i = 0; i < Cells; ++i)
        steps[static_cast<std::size_t>(i)] = Min + (i + 0.5) * (Max - Min) / Cells;
    std::vector<QRgb> const table = Pixels(steps);
    std::vector<QRgb> pixels(count);
    for (auto _ : state) {
        TableKernel(levels.data(), pixels.data(), count, table.data());
        benchmark::DoNotOptimize(pixels.data());
        benchmark::ClobberMemory();
    }
}

BENCHMARK(Recolour_limit)->Name("Recolour/limit");
#endif

BENCHMARK(RowShown_limit)->Name("RowShown/limit");
BENCHMARK(RowShown_ours)->Name("RowShown/ours");
BENCHMARK(RowShown_memmove)->Name("RowShown/memmove");
BENCHMARK(RowShown_pane)->Name("RowShown/pane");
#ifdef ORIM_PEER_QCUSTOMPLOT
BENCHMARK(RowShown_qcustomplot)->Name("RowShown/qcustomplot");
#endif
#ifdef ORIM_PEER_QWT
BENCHMARK(RowShown_qwt)->Name("RowShown/qwt");
#endif
BENCHMARK(RowAppended_limit)->Name("RowAppended/limit");
BENCHMARK(RowAppended_ours)->Name("RowAppended/ours");
BENCHMARK(Recolour_ours)->Name("Recolour/ours");

} // namespace
