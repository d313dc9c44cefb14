// SPDX-License-Identifier: MIT

// The bar that shows a colour set beside a picture, 40 x 1080. The limit writes the lines of an image from a table of
// finished colours and copies that; "pens" is the idiom: a pen and a line for each pixel.

#include "axisbase.h"
#include "guicentral.h"

#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>
#include <QPen>

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace {

constexpr int Wide = 40; // px; a pixel more is painted each way
constexpr int High = 1080;
constexpr double Lowest = -120.0;
constexpr double Highest = -20.0;

class Axis : public AxisBase
{
public:
    Axis() : AxisBase(nullptr, nullptr, AxisVertical | AxisShading) { SetRange(Lowest, Highest); }

    using AxisBase::drawShadeRect;
};

QImage Ground()
{
    QImage image(Wide + 1, High + 1, QImage::Format_RGB32);
    image.fill(Qt::white);
    return image;
}

double ValueOf(int line) { return Lowest + (Highest - Lowest) * (1.0 - static_cast<double>(line) / High); }

void PaintByPens(QPainter & painter)
{
    for (int i = 0; i <= High; ++i) {
        painter.setPen(GuiCentral::Instance().GetShadingPen(ValueOf(i), 1, Lowest, Highest, true));
        painter.drawLine(0, i, Wide, i);
    }
}

void Ours(benchmark::State & state)
{
    Axis axis;
    QImage image = Ground();
    QImage wanted = Ground();
    {
        QPainter painter(&wanted);
        PaintByPens(painter);
    }
    QPainter painter(&image);
    axis.drawShadeRect(painter, 0, 0, Wide, High, false);
    if (image != wanted)
        std::abort();
    for (auto _ : state) {
        axis.drawShadeRect(painter, 0, 0, Wide, High, false);
        benchmark::DoNotOptimize(image.constBits());
    }
}

void Limit(benchmark::State & state)
{
    std::vector<QRgb> colors(High + 1);
    for (int i = 0; i <= High; ++i)
        colors[static_cast<std::size_t>(i)] =
            GuiCentral::Instance().GetShadingRGB(ValueOf(i), 1, Lowest, Highest, true);
    QImage image = Ground();
    QImage strip = Ground();
    QPainter painter(&image);
    for (auto _ : state) {
        for (int i = 0; i <= High; ++i)
            std::fill_n(reinterpret_cast<QRgb *>(strip.scanLine(i)), Wide + 1, colors[static_cast<std::size_t>(i)]);
        painter.drawImage(0, 0, strip);
        benchmark::DoNotOptimize(image.constBits());
    }
}

//! The colours of all lines and nothing else.
void Colors(benchmark::State & state)
{
    for (auto _ : state)
        for (int i = 0; i <= High; ++i)
            benchmark::DoNotOptimize(GuiCentral::Instance().GetShadingRGB(ValueOf(i), 1, Lowest, Highest, true));
}

void Pens(benchmark::State & state)
{
    QImage image = Ground();
    QPainter painter(&image);
    for (auto _ : state)
        PaintByPens(painter);
    benchmark::DoNotOptimize(image.constBits());
}

BENCHMARK(Limit)->Name("ShadeRect/limit")->Unit(benchmark::kMicrosecond);
BENCHMARK(Ours)->Name("ShadeRect/ours")->Unit(benchmark::kMicrosecond);
BENCHMARK(Colors)->Name("ShadeRect/colours")->Unit(benchmark::kMicrosecond);
BENCHMARK(Pens)->Name("ShadeRect/pens")->Unit(benchmark::kMicrosecond);

} // namespace
