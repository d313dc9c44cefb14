// SPDX-License-Identifier: MIT

// A frequency scale with labels, 1920 px wide, painted as it stands, panned by a pixel and zoomed; and a number that
// changes all the time. The limit of the first two is one copy out of a longer picture; that of a zoom is one pass into
// scan lines and that of the number a fill, both with digits copied from pictures that bear the ground. "painted" is
// ours after painting code left the vector registers as it does, "drawtext" paints with fillRect and drawText.

#include "axisdefinition.h"
#include "digitatlas.h"
#include "scalestrip.h"
#include "scanlines.h"

#include "peerqcustomplot.h"
#include "peerqwt.h"

#include <benchmark/benchmark.h>

#include <QFontMetrics>
#include <QLabel>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#ifdef ORIM_PEER_QWT
#include <qwt_scale_draw.h>
#endif

namespace {

constexpr int Width = 1920;
constexpr int Height = 30;
constexpr int TicLength = 6;
constexpr int MinorTicLength = 3;
constexpr int LabelTop = TicLength + 2;
constexpr std::size_t Steps = 64;  // of a pan or a zoom, there and back
constexpr double Start = 87.337e6; // Hz
constexpr double Span = 20.629e6;
constexpr QRgb Ground = 0xff101820;
constexpr QRgb Line = 0xffa0a0a0;
constexpr QRgb Ink = 0xfff0f0d0;

QFont Font() { return { QStringLiteral("DejaVu Sans"), 9 }; }

QImage Screen() { return { Width, Height, QImage::Format_RGB32 }; }

ScaleTics TicsOf(double start, double span)
{
    ScaleTics tics;
    tics.start = start;
    tics.stop = start + span;
    int left = 0;
    int right = 0;
    double stop = tics.stop;
    tics.ticCount = axisDefinition::GetAxisValuesLinear(&start, &stop, &tics.minorTics, &left, &right, &tics.firstTic,
                                                        &tics.ticStep, &tics.ticOffset, 1, 1.0, -1);
    return tics;
}

std::vector<ScaleTics> Still() { return { TicsOf(Start, Span) }; }

std::vector<ScaleTics> Pans()
{
    std::vector<ScaleTics> tics;
    for (std::size_t i = 0; i < Steps; ++i)
        tics.push_back(TicsOf(Start + Span / Width * static_cast<double>(i < Steps / 2 ? i : Steps - i), Span));
    return tics;
}

std::vector<ScaleTics> Zooms()
{
    std::vector<ScaleTics> tics;
    for (std::size_t i = 0; i < Steps; ++i) {
        double const span = Span * std::pow(1.01, -static_cast<double>(i < Steps / 2 ? i : Steps - i));
        tics.push_back(TicsOf(Start + (Span - span) / 2.0, span));
    }
    return tics;
}

QString LabelText(double value, double step) { return QString::number(value * 1e-6, 'f', step < 1e6 ? 1 : 0); }

ScaleStrip::Look LookOf()
{
    ScaleStrip::Look look;
    look.font = Font();
    look.background = QColor::fromRgb(Ground);
    look.line = QColor::fromRgb(Line);
    look.text = QColor::fromRgb(Ink);
    look.ticLength = TicLength;
    look.minorTicLength = MinorTicLength;
    return look;
}

int PixelOf(ScaleTics const & tics, double value)
{
    if (value == tics.stop)
        return Width - 1;
    return static_cast<int>(Width * ((value - tics.start) / (tics.stop - tics.start)));
}

//! Ends the program when a picture's tics are not where a scalar mapping puts them: nothing wrong is timed.
void CheckTics(QImage const & screen, ScaleTics const & tics)
{
    std::vector<bool> isTic(Width, false);
    for (int i = 0; i < tics.ticCount; ++i)
        isTic[static_cast<std::size_t>(PixelOf(tics, i * tics.ticStep + tics.firstTic + tics.ticOffset))] = true;
    for (int x = 0; x < Width; ++x) {
        bool const isRight = screen.pixel(x, TicLength - 1) == (isTic[static_cast<std::size_t>(x)] ? Line : Ground);
        if (!isRight || screen.pixel(x, 0) != Line) {
            std::fprintf(stderr, "the picture is wrong at %d\n", x);
            std::abort();
        }
    }
}

void CheckEqual(QImage const & a, QImage const & b)
{
    if (a == b)
        return;
    std::fprintf(stderr, "the picture is not that of a scale drawn anew\n");
    std::abort();
}

ScaleStrip StripOf()
{
    ScaleStrip strip;
    strip.SetLook(LookOf());
    strip.SetLabelText(LabelText);
    strip.SetUnit(QStringLiteral("MHz"));
    return strip;
}

//! Paints our scale through a list of ranges, over and over.
void RunOurs(benchmark::State & state, std::vector<ScaleTics> const & ranges, bool paintsBefore)
{
    ScaleStrip strip = StripOf();
    QRect const rect(0, 0, Width, Height);
    for (ScaleTics const & tics : ranges) {
        QImage screen = Screen();
        QImage anew = Screen();
        QPainter painter(&screen);
        strip.SetTics(tics);
        strip.Paint(painter, rect);
        ScaleStrip fresh = StripOf();
        fresh.SetTics(tics);
        QPainter freshPainter(&anew);
        fresh.Paint(freshPainter, rect);
        CheckTics(screen, tics);
        CheckEqual(screen, anew);
    }
    QImage screen = Screen();
    QImage other(16, 16, QImage::Format_RGB32);
    QPainter painter(&screen);
    std::size_t i = 0;
    for (auto _ : state) {
        if (paintsBefore)
            other.fill(Ground);
        i = i + 1 < ranges.size() ? i + 1 : 0;
        strip.SetTics(ranges[i]);
        strip.Paint(painter, rect);
        benchmark::ClobberMemory();
    }
}

void ScaleStill_ours(benchmark::State & state) { RunOurs(state, Still(), false); }

void ScalePan_ours(benchmark::State & state) { RunOurs(state, Pans(), false); }

void ScalePan_painted(benchmark::State & state) { RunOurs(state, Pans(), true); }

void ScaleZoom_ours(benchmark::State & state) { RunOurs(state, Zooms(), false); }

void ScaleZoom_painted(benchmark::State & state) { RunOurs(state, Zooms(), true); }

void CopyStrip(benchmark::State & state, int step)
{
    QImage strip(2 * Width, Height, QImage::Format_RGB32);
    strip.fill(Ground);
    QImage screen = Screen();
    QPainter painter(&screen);
    int x = 0;
    for (auto _ : state) {
        x = x + step < Width ? x + step : 0;
        painter.drawImage(0, 0, strip, x, 0, Width, Height);
        benchmark::ClobberMemory();
    }
}

void ScaleStill_limit(benchmark::State & state) { CopyStrip(state, 0); }

void ScalePan_limit(benchmark::State & state) { CopyStrip(state, 1); }

//! Characters with their ground, to be copied row by row.
struct Cells
{
    static constexpr char Characters[] = "0123456789.-";
    int width = 0;
    int height = 0;
    std::vector<QRgb> pixels;

    Cells()
    {
        QFontMetrics const metrics(Font());
        width = metrics.horizontalAdvance(QLatin1Char('0'));
        height = metrics.height();
        QImage picture(width, height, QImage::Format_ARGB32_Premultiplied);
        for (char const * character = Characters; *character; ++character) {
            picture.fill(Ground);
            QPainter painter(&picture);
            painter.setFont(Font());
            painter.setPen(QColor::fromRgb(Ink));
            painter.drawText(0, metrics.ascent(), QString(QLatin1Char(*character)));
            painter.end();
            auto const * const bits = reinterpret_cast<QRgb const *>(picture.constBits());
            pixels.insert(pixels.end(), bits, bits + width * height);
        }
    }

    void Draw(QImage & image, int x, int y, int index) const
    {
        auto const columns = static_cast<std::size_t>(width);
        QRgb const * from = pixels.data() + static_cast<std::size_t>(index * height) * columns;
        auto * to = reinterpret_cast<QRgb *>(image.bits()) + y * image.width() + x;
        for (int row = 0; row < height; ++row, from += columns, to += image.width())
            std::memcpy(to, from, columns * sizeof(QRgb));
    }

    //! A number with one decimal, centred.
    void DrawNumber(QImage & image, int x, int y, int tenths) const
    {
        int indices[12]; // from the right
        int count = 0;
        for (int rest = tenths, digit = 0; rest > 0 || digit < 2; ++digit, rest /= 10) {
            if (digit == 1)
                indices[count++] = 10;
            indices[count++] = rest % 10;
        }
        int left = x - count * width / 2;
        if (left < 0 || left + count * width > image.width())
            return;
        for (; count > 0; left += width)
            Draw(image, left, y, indices[--count]);
    }
};

//! One pass: ground, line and tics row by row, then digits.
void DrawScale(QImage & screen, ScaleTics const & tics, Cells const & cells)
{
    auto * const pixels = reinterpret_cast<QRgb *>(screen.bits());
    std::fill_n(pixels, Width, Line);
    std::fill_n(pixels + Width, Width * (Height - 1), Ground);
    double const scale = Width / (tics.stop - tics.start);
    double const minor = tics.ticStep / (tics.minorTics + 1);
    for (int i = 0; i < tics.ticCount; ++i) {
        double const value = i * tics.ticStep + tics.firstTic + tics.ticOffset;
        int const x = static_cast<int>((value - tics.start) * scale);
        for (int y = 1; y < TicLength; ++y)
            pixels[y * Width + x] = Line;
        for (int part = 1; part <= tics.minorTics; ++part) {
            int const minorX = static_cast<int>((value + part * minor - tics.start) * scale);
            for (int y = 1; y < MinorTicLength && minorX < Width; ++y)
                pixels[y * Width + minorX] = Line;
        }
        cells.DrawNumber(screen, x, LabelTop, static_cast<int>(value * 1e-5 + 0.5));
    }
}

void ScaleZoom_limit(benchmark::State & state)
{
    std::vector<ScaleTics> const ranges = Zooms();
    Cells const cells;
    QImage screen = Screen();
    DrawScale(screen, ranges.front(), cells);
    CheckTics(screen, ranges.front());
    std::size_t i = 0;
    for (auto _ : state) {
        i = i + 1 < ranges.size() ? i + 1 : 0;
        DrawScale(screen, ranges[i], cells);
        benchmark::ClobberMemory();
    }
}

void RunDrawText(benchmark::State & state, std::vector<ScaleTics> const & ranges)
{
    QImage screen = Screen();
    QPainter painter(&screen);
    painter.setFont(Font());
    QFontMetrics const metrics(Font());
    std::size_t step = 0;
    for (auto _ : state) {
        step = step + 1 < ranges.size() ? step + 1 : 0;
        ScaleTics const & tics = ranges[step];
        painter.fillRect(0, 0, Width, Height, QColor::fromRgb(Ground));
        painter.setPen(QColor::fromRgb(Line));
        painter.drawLine(0, 0, Width - 1, 0);
        for (int i = 0; i < tics.ticCount * (tics.minorTics + 1); ++i) {
            double const value = i * (tics.ticStep / (tics.minorTics + 1)) + tics.firstTic + tics.ticOffset;
            int const x = PixelOf(tics, value);
            painter.drawLine(x, 1, x, (i % (tics.minorTics + 1) == 0 ? TicLength : MinorTicLength) - 1);
        }
        painter.setPen(QColor::fromRgb(Ink));
        for (int i = 0; i < tics.ticCount; ++i) {
            double const value = i * tics.ticStep + tics.firstTic + tics.ticOffset;
            QString const text = LabelText(value, tics.ticStep);
            painter.drawText(PixelOf(tics, value) - metrics.horizontalAdvance(text) / 2, LabelTop + metrics.ascent(),
                             text);
        }
        benchmark::ClobberMemory();
    }
}

void ScaleStill_drawtext(benchmark::State & state) { RunDrawText(state, Still()); }

void ScalePan_drawtext(benchmark::State & state) { RunDrawText(state, Pans()); }

void ScaleZoom_drawtext(benchmark::State & state) { RunDrawText(state, Zooms()); }

#ifdef ORIM_PEER_QCUSTOMPLOT
//! The axis alone: a plot as high as axis and labels.
void RunQCustomPlot(benchmark::State & state, std::vector<ScaleTics> const & ranges)
{
    QCustomPlot plot;
    plot.resize(Width, Height + 2);
    plot.setBackground(QBrush(QColor::fromRgb(Ground)));
    plot.plotLayout()->clear();
    auto * const rect = new QCPAxisRect(&plot, false);
    rect->setAutoMargins(QCP::msNone);
    rect->setMargins(QMargins(0, 1, 0, Height));
    QCPAxis * const axis = rect->addAxis(QCPAxis::atBottom);
    axis->setTickLabelFont(Font());
    axis->grid()->setVisible(false);
    axis->setNumberFormat(QStringLiteral("f"));
    axis->setNumberPrecision(1);
    plot.plotLayout()->addElement(0, 0, rect);
    std::size_t i = 0;
    for (auto _ : state) {
        i = i + 1 < ranges.size() ? i + 1 : 0;
        axis->setRange(ranges[i].start * 1e-6, ranges[i].stop * 1e-6);
        plot.replot(QCustomPlot::rpImmediateRefresh);
        benchmark::ClobberMemory();
    }
}

void ScaleStill_qcustomplot(benchmark::State & state) { RunQCustomPlot(state, Still()); }

void ScalePan_qcustomplot(benchmark::State & state) { RunQCustomPlot(state, Pans()); }

void ScaleZoom_qcustomplot(benchmark::State & state) { RunQCustomPlot(state, Zooms()); }
#endif

#ifdef ORIM_PEER_QWT
void RunQwt(benchmark::State & state, std::vector<ScaleTics> const & ranges)
{
    QImage screen = Screen();
    QPainter painter(&screen);
    painter.setFont(Font());
    QwtScaleDraw draw;
    draw.setAlignment(QwtScaleDraw::BottomScale);
    draw.move(0, 0);
    draw.setLength(Width);
    QwtLinearScaleEngine const engine;
    QPalette const palette;
    std::size_t i = 0;
    for (auto _ : state) {
        i = i + 1 < ranges.size() ? i + 1 : 0;
        if (ranges.size() > 1 || draw.scaleDiv().isEmpty())
            draw.setScaleDiv(engine.divideScale(ranges[i].start * 1e-6, ranges[i].stop * 1e-6, 12, 5));
        painter.fillRect(0, 0, Width, Height, QColor::fromRgb(Ground));
        draw.draw(&painter, palette);
        benchmark::ClobberMemory();
    }
}

void ScaleStill_qwt(benchmark::State & state) { RunQwt(state, Still()); }

void ScalePan_qwt(benchmark::State & state) { RunQwt(state, Pans()); }

void ScaleZoom_qwt(benchmark::State & state) { RunQwt(state, Zooms()); }
#endif

std::vector<QString> Numbers()
{
    std::vector<QString> numbers;
    for (std::size_t i = 0; i < Steps; ++i)
        numbers.push_back(QString::number(100.0 + 0.7 * static_cast<double>(i), 'f', 1));
    return numbers;
}

QRect const ReadOutRect(20, 4, 60, 18);

void ReadOut_ours(benchmark::State & state)
{
    DigitAtlas atlas;
    atlas.Set(Font(), QColor::fromRgb(Ink), 1.0, DigitAtlas::NumberCharacters(), QColor::fromRgb(Ground));
    std::vector<QString> const numbers = Numbers();
    QImage screen = Screen();
    std::size_t i = 0;
    for (auto _ : state) {
        i = i + 1 < numbers.size() ? i + 1 : 0;
        ScanLines::Fill(screen, ReadOutRect, Ground);
        atlas.Draw(screen, ReadOutRect.topLeft(), numbers[i], ReadOutRect);
        benchmark::ClobberMemory();
    }
}

void ReadOut_limit(benchmark::State & state)
{
    Cells const cells;
    QImage screen = Screen();
    int tenths = 1000;
    for (auto _ : state) {
        tenths = tenths < 1440 ? tenths + 7 : 1000;
        for (int y = ReadOutRect.top(); y <= ReadOutRect.bottom(); ++y)
            std::fill_n(reinterpret_cast<QRgb *>(screen.bits()) + y * Width + ReadOutRect.left(), ReadOutRect.width(),
                        Ground);
        cells.DrawNumber(screen, ReadOutRect.center().x(), ReadOutRect.top(), tenths);
        benchmark::ClobberMemory();
    }
}

void ReadOut_drawtext(benchmark::State & state)
{
    std::vector<QString> const numbers = Numbers();
    QImage screen = Screen();
    QPainter painter(&screen);
    painter.setFont(Font());
    painter.setPen(QColor::fromRgb(Ink));
    std::size_t i = 0;
    for (auto _ : state) {
        i = i + 1 < numbers.size() ? i + 1 : 0;
        painter.fillRect(ReadOutRect, QColor::fromRgb(Ground));
        painter.drawText(ReadOutRect.left(), ReadOutRect.bottom() - 3, numbers[i]);
        benchmark::ClobberMemory();
    }
}

void ReadOut_qlabel(benchmark::State & state)
{
    std::vector<QString> const numbers = Numbers();
    QLabel label;
    label.resize(ReadOutRect.size());
    label.setFont(Font());
    QImage screen = Screen();
    std::size_t i = 0;
    for (auto _ : state) {
        i = i + 1 < numbers.size() ? i + 1 : 0;
        label.setText(numbers[i]);
        label.render(&screen, ReadOutRect.topLeft());
        benchmark::ClobberMemory();
    }
}

BENCHMARK(ScaleStill_limit)->Name("ScaleStill/limit");
BENCHMARK(ScaleStill_ours)->Name("ScaleStill/ours");
BENCHMARK(ScaleStill_drawtext)->Name("ScaleStill/drawtext");
BENCHMARK(ScalePan_limit)->Name("ScalePan/limit");
BENCHMARK(ScalePan_ours)->Name("ScalePan/ours");
BENCHMARK(ScalePan_painted)->Name("ScalePan/painted");
BENCHMARK(ScalePan_drawtext)->Name("ScalePan/drawtext");
BENCHMARK(ScaleZoom_limit)->Name("ScaleZoom/limit");
BENCHMARK(ScaleZoom_ours)->Name("ScaleZoom/ours");
BENCHMARK(ScaleZoom_painted)->Name("ScaleZoom/painted");
BENCHMARK(ScaleZoom_drawtext)->Name("ScaleZoom/drawtext");
#ifdef ORIM_PEER_QCUSTOMPLOT
BENCHMARK(ScaleStill_qcustomplot)->Name("ScaleStill/qcustomplot");
BENCHMARK(ScalePan_qcustomplot)->Name("ScalePan/qcustomplot");
BENCHMARK(ScaleZoom_qcustomplot)->Name("ScaleZoom/qcustomplot");
#endif
#ifdef ORIM_PEER_QWT
BENCHMARK(ScaleStill_qwt)->Name("ScaleStill/qwt");
BENCHMARK(ScalePan_qwt)->Name("ScalePan/qwt");
BENCHMARK(ScaleZoom_qwt)->Name("ScaleZoom/qwt");
#endif
BENCHMARK(ReadOut_limit)->Name("ReadOut/limit");
BENCHMARK(ReadOut_ours)->Name("ReadOut/ours");
BENCHMARK(ReadOut_drawtext)->Name("ReadOut/drawtext");
BENCHMARK(ReadOut_qlabel)->Name("ReadOut/qlabel");

} // namespace
