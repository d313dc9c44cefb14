// SPDX-License-Identifier: MIT

// A step of a zoom drag, full HD: a mouse move to the picture with the band. "ZoomDrag" is the move and what covers the
// widget outside the band, "ZoomDragShown" has the picture copied before. The limit writes the same pixels by hand,
// each of them once.

#include "axisbase.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr int Columns = 1920;
constexpr int Rows = 1080;
constexpr int From = 400; // px, start of the band
constexpr int To = 1500;  // px, about its end

//! A pane that shows a picture, and counts how often its tics are calculated.
class Pane : public AxisBase
{
public:
    Pane() : AxisBase(nullptr, nullptr, AxisHorizontal)
    {
        resize(Columns, Rows);
        SetRange(0.0, 20e6);
        SetAxisZoomEnable(true, false);
        Send(QEvent::MouseButtonPress, From);
        m_calculations = 0;
    }

    void CalcValues() override
    {
        ++m_calculations;
        AxisBase::CalcValues();
    }

    void Send(QEvent::Type type, int x)
    {
        QPointF const position(x, 500);
        QMouseEvent event(type, position, position, type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                          Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(this, &event);
    }

    void Cover(QPainter & painter) const { DrawWhileZoom(painter); }

    int GetBandEnd() const { return m_bandEnd; }

    QRgb GetCoverColor() const
    {
        QImage image(Columns, 1, QImage::Format_RGB32);
        QPainter painter(&image);
        DrawWhileZoom(painter);
        return image.pixel(0, 0);
    }

    int m_calculations = 0;
};

QImage Picture()
{
    QImage picture(Columns, Rows, QImage::Format_RGB32);
    for (int y = 0; y < Rows; ++y)
        for (int x = 0; x < Columns; ++x)
            picture.setPixel(x, y, qRgb(x & 255, y & 255, 77));
    return picture;
}

//! The end of the band at a step: to and fro.
int EndAt(int step) { return To + step % 64; }

void FillBeside(QImage & screen, int end, QRgb color)
{
    for (int y = 0; y < Rows; ++y) {
        auto * const line = reinterpret_cast<QRgb *>(screen.scanLine(y));
        std::fill(line, line + From + 1, color);
        std::fill(line + end, line + Columns, color);
    }
}

void CopyBand(QImage & screen, QImage const & picture, int end)
{
    for (int y = 0; y < Rows; ++y) {
        auto * const line = reinterpret_cast<QRgb *>(screen.scanLine(y));
        auto const * const source = reinterpret_cast<QRgb const *>(picture.constScanLine(y));
        std::memcpy(line + From + 1, source + From + 1, sizeof(QRgb) * static_cast<std::size_t>(end - From - 1));
    }
}

//! The limit is none if it paints something else.
void Compare(Pane & pane)
{
    QImage const picture = Picture();
    QImage ours = picture;
    QImage limit(Columns, Rows, QImage::Format_RGB32);
    pane.Send(QEvent::MouseMove, To);
    {
        QPainter painter(&ours);
        pane.Cover(painter);
    }
    FillBeside(limit, To, pane.GetCoverColor());
    CopyBand(limit, picture, To);
    if (ours == limit)
        return;
    std::fprintf(stderr, "bench_zoomdrag: the band differs from the reference\n");
    std::exit(1);
}

void ZoomDrag(benchmark::State & state, bool shown)
{
    Pane pane;
    Compare(pane);
    QImage const picture = Picture();
    QImage screen = picture.copy();
    int step = 0;
    for (auto _ : state) {
        pane.Send(QEvent::MouseMove, EndAt(step++));
        QPainter painter(&screen);
        if (shown) {
            painter.setCompositionMode(QPainter::CompositionMode_Source);
            painter.drawImage(0, 0, picture);
        }
        pane.Cover(painter);
        painter.end();
        benchmark::DoNotOptimize(screen.constBits());
    }
    state.counters["tic_calculations"] = pane.m_calculations;
}

void ZoomDrag_ours(benchmark::State & state) { ZoomDrag(state, false); }

void ZoomDragShown_ours(benchmark::State & state) { ZoomDrag(state, true); }

void ZoomDrag_limit(benchmark::State & state)
{
    QImage screen = Picture();
    int step = 0;
    for (auto _ : state) {
        FillBeside(screen, EndAt(step++), 0xff203040);
        benchmark::DoNotOptimize(screen.constBits());
    }
}

void ZoomDragShown_limit(benchmark::State & state)
{
    QImage const picture = Picture();
    QImage screen = picture.copy();
    int step = 0;
    for (auto _ : state) {
        int const end = EndAt(step++);
        FillBeside(screen, end, 0xff203040);
        CopyBand(screen, picture, end);
        benchmark::DoNotOptimize(screen.constBits());
    }
}

//! The move alone: no pixel is painted.
void ZoomMove_ours(benchmark::State & state)
{
    Pane pane;
    int step = 0;
    for (auto _ : state) {
        pane.Send(QEvent::MouseMove, EndAt(step++));
        benchmark::DoNotOptimize(pane.GetBandEnd());
    }
    state.counters["tic_calculations"] = pane.m_calculations;
}

BENCHMARK(ZoomDrag_limit)->Name("ZoomDrag/limit");
BENCHMARK(ZoomDrag_ours)->Name("ZoomDrag/ours");
BENCHMARK(ZoomDragShown_limit)->Name("ZoomDragShown/limit");
BENCHMARK(ZoomDragShown_ours)->Name("ZoomDragShown/ours");
BENCHMARK(ZoomMove_ours)->Name("ZoomMove/ours");

} // namespace
