// SPDX-License-Identifier: MIT

// An ageing step of a full HD picture with its way to the screen: palette, sweep, expansion and the copy into the
// picture behind a window. The limit does the same on plain arrays. "painted" is ours after painting code left the
// vector registers as it does; "fade" keeps a picture of colours, fades and copies it; "drawimage" leaves the expansion
// to drawImage(), which may spread it over threads: all of them are counted. Pixels that have aged start anew in place
// of going, so that each step finds as many. Written: 100,000 pixels set, at random places; the limit tests the place
// and stores.

#include "agedimage.h"
#include "paletteexpansion.h"

#include "ageingscene.h"

#include <benchmark/benchmark.h>

#include <QPainter>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <vector>

#if defined(__SSE2__) || defined(_M_X64)
#include <emmintrin.h>
#endif

namespace {

using namespace AgeingScene;

constexpr int Colors = 8; // of a hold time of 4 s
constexpr int HoldTime = 4;
constexpr int ColorsPerSection = 2;
constexpr int Sections = 4;
constexpr int StripRows = 32;

//! A picture whose memory is really there.
QImage Screen()
{
    QImage screen(Width, Height, QImage::Format_RGB32);
    screen.fill(Qt::darkGray);
    return screen;
}

//! Gives the oldest pixels the index that they have, which is that of the newest from now on.
class Renewal : public IColorServer
{
public:
    std::string GetBackgroundLine(int width) override
    {
        return { std::string(static_cast<std::size_t>(width), static_cast<char>(m_index)) };
    }

    int m_index = 255;
};

//! An ageing picture that is always as full.
class Scene
{
public:
    Scene() : m_image(nullptr)
    {
        m_image.Initialize(Width, Height, HoldTime, ColorsPerSection, Sections, 1);
        std::vector<unsigned char> const pixels = Picture(Colors);
        for (int y = 0; y < Height; ++y)
            std::memcpy(m_image.GetImage()->scanLine(y), pixels.data() + static_cast<std::size_t>(y) * Width, Width);
        m_image.SetBackgroundColorObject(&m_renewal);
    }

    ~Scene() { m_image.SetBackgroundColorObject(nullptr); }

    void Step()
    {
        m_position = (m_position + Colors - 1) % Colors;
        m_renewal.m_index = (m_position + 1) % Colors;
        m_image.SwitchColors();
    }

    QImage const & Image() { return *m_image.GetImage(); }

private:
    Renewal m_renewal;
    AgedImage m_image;
    int m_position = 0;
};

//! Ends the program when what is on the screen is not Qt's own conversion.
void CheckScreen(QImage const & screen, QImage const & picture)
{
    if (screen == picture.convertToFormat(QImage::Format_RGB32))
        return;
    std::fprintf(stderr, "the screen does not show the picture\n");
    std::abort();
}

void RunOurs(benchmark::State & state, bool paintsBefore)
{
    Scene scene;
    QImage screen = Screen();
    QImage other(16, 16, QImage::Format_RGB32);
    QPainter painter(&screen);
    PaletteExpansion expansion;
    scene.Step();
    expansion.Paint(painter, QPoint(0, 0), scene.Image());
    CheckScreen(screen, scene.Image());
    for (auto _ : state) {
        if (paintsBefore)
            other.fill(0xff102030);
        scene.Step();
        expansion.Paint(painter, QPoint(0, 0), scene.Image());
        benchmark::ClobberMemory();
    }
}

void StepShown_ours(benchmark::State & state) { RunOurs(state, false); }

void StepShown_painted(benchmark::State & state) { RunOurs(state, true); }

#if defined(__SSE2__) || defined(_M_X64)

inline __m128i Load(void const * from) { return _mm_loadu_si128(static_cast<__m128i const *>(from)); }

inline void Store(void * to, __m128i value) { _mm_storeu_si128(static_cast<__m128i *>(to), value); }

void SweepKernel(unsigned char * bits, unsigned char const * line, int index)
{
    __m128i const wanted = _mm_set1_epi8(static_cast<char>(index));
    for (int y = 0; y < Height; ++y, bits += Width)
        for (int x = 0; x < Width; x += 16) {
            __m128i const old = Load(bits + x);
            __m128i const hit = _mm_cmpeq_epi8(old, wanted);
            Store(bits + x, _mm_or_si128(_mm_and_si128(hit, Load(line + x)), _mm_andnot_si128(hit, old)));
        }
}

void ExpandKernel(unsigned char const * from, QRgb * to, std::size_t count, QRgb const * table)
{
    __m128i const ground = _mm_set1_epi8(-1);
    __m128i const groundColor = _mm_set1_epi32(static_cast<int>(table[255]));
    for (std::size_t x = 0; x < count; x += 16) {
        if (_mm_movemask_epi8(_mm_cmpeq_epi8(Load(from + x), ground)) == 0xffff) {
            for (std::size_t i = 0; i < 16; i += 4)
                Store(to + x + i, groundColor);
            continue;
        }
        for (std::size_t i = 0; i < 16; ++i)
            to[x + i] = table[from[x + i]];
    }
}

//! One step on plain arrays.
void LimitStep(std::vector<unsigned char> & pixels, std::vector<unsigned char> & line, int index, QRgb * table,
               QRgb * strip, unsigned char * screen)
{
    constexpr std::size_t StripPixels = static_cast<std::size_t>(Width) * StripRows;
    std::fill(line.begin(), line.end(), static_cast<unsigned char>(index));
    std::rotate(table, table + 1, table + Colors);
    SweepKernel(pixels.data(), line.data(), index);
    for (std::size_t at = 0; at < Pixels; at += StripPixels) {
        std::size_t const count = std::min(StripPixels, Pixels - at);
        ExpandKernel(pixels.data() + at, strip, count, table);
        std::memcpy(screen + at * sizeof(QRgb), strip, count * sizeof(QRgb));
    }
}

void StepShown_limit(benchmark::State & state)
{
    std::vector<unsigned char> pixels = Picture(Colors);
    std::vector<unsigned char> line(Width);
    Scene scene;
    QVector<QRgb> const colors = scene.Image().colorTable();
    std::vector<QRgb> table(colors.begin(), colors.end());
    std::vector<QRgb> strip(static_cast<std::size_t>(Width) * StripRows);
    QImage screen = Screen();
    unsigned char * const bits = screen.bits();
    int index = 0;
    for (auto _ : state) {
        LimitStep(pixels, line, index, table.data(), strip.data(), bits);
        index = (index + Colors - 1) % Colors;
        benchmark::ClobberMemory();
    }
    QImage shown(pixels.data(), Width, Height, Width, QImage::Format_Indexed8);
    shown.setColorTable(QVector<QRgb>(table.begin(), table.end()));
    CheckScreen(screen, shown);
}

#endif

void StepShown_fade(benchmark::State & state)
{
    QImage picture = Screen();
    QImage screen = Screen();
    QPainter painter(&screen);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    for (auto _ : state) {
        Fade(reinterpret_cast<QRgb *>(picture.bits()), Pixels);
        painter.drawImage(0, 0, picture);
        benchmark::ClobberMemory();
    }
}

void StepShown_drawimage(benchmark::State & state)
{
    Scene scene;
    QImage screen = Screen();
    QPainter painter(&screen);
    for (auto _ : state) {
        scene.Step();
        painter.drawImage(0, 0, scene.Image());
        benchmark::ClobberMemory();
    }
}

constexpr int Written = 100000;

std::vector<QPoint> Places()
{
    std::mt19937 random(2);
    std::vector<QPoint> places;
    places.reserve(Written);
    for (int i = 0; i < Written; ++i)
        places.emplace_back(static_cast<int>(random() % Width), static_cast<int>(random() % Height));
    return places;
}

void Written_ours(benchmark::State & state)
{
    AgedImage image(nullptr);
    image.Initialize(Width, Height, HoldTime, ColorsPerSection, Sections, static_cast<int>(state.range(0)));
    std::vector<QPoint> const places = Places();
    for (auto _ : state) {
        for (QPoint const & place : places)
            image.SetPixel(place.x(), place.y(), 0);
        benchmark::ClobberMemory();
    }
    for (QPoint const & place : places)
        if (image.GetImage()->pixelIndex(place) != 0)
            std::abort();
}

void Written_limit(benchmark::State & state)
{
    std::vector<unsigned char> pixels(Pixels, 255);
    std::vector<QPoint> const places = Places();
    unsigned char index = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(index);
        for (QPoint const & place : places)
            if (static_cast<unsigned int>(place.x()) < Width && static_cast<unsigned int>(place.y()) < Height)
                pixels[static_cast<std::size_t>(place.y()) * Width + static_cast<std::size_t>(place.x())] = index;
        benchmark::ClobberMemory();
    }
}

#if defined(__SSE2__) || defined(_M_X64)
BENCHMARK(StepShown_limit)->Name("StepShown/limit")->MeasureProcessCPUTime();
#endif
BENCHMARK(StepShown_ours)->Name("StepShown/ours")->MeasureProcessCPUTime();
BENCHMARK(StepShown_painted)->Name("StepShown/painted")->MeasureProcessCPUTime();
BENCHMARK(StepShown_fade)->Name("StepShown/fade")->MeasureProcessCPUTime();
BENCHMARK(StepShown_drawimage)->Name("StepShown/drawimage")->MeasureProcessCPUTime();
BENCHMARK(Written_limit)->Name("Written/limit")->Arg(1)->Arg(8);
BENCHMARK(Written_ours)->Name("Written/ours")->Arg(1)->Arg(8);

} // namespace
