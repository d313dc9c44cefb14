// SPDX-License-Identifier: MIT

// The oldest pixels of a full HD picture of indices go back to the background: one index, one in each of eight blocks
// of 8 colours, and of 30. The limit compares all pixels with each index, blends and stores without a branch. The
// pixels that are found change between two indices, so that each sweep finds as many. "painted" is ours after painting
// code left the vector registers as it does; the idioms are a picture of colours that fades, and an `if` for each
// pixel.

#include "indexsweep.h"

#include "ageingscene.h"

#include <benchmark/benchmark.h>

#include <QImage>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

#if defined(__SSE2__) || defined(_M_X64)
#include <emmintrin.h>
#endif

namespace {

using namespace AgeingScene;
using Bytes = std::vector<unsigned char>;

//! One index is swept to the next one and back, in each block.
struct Blocks
{
    int count;
    int colors; // of a block

    int Indices() const { return count * colors; }

    IndexSweep::Hits Hits(int index) const
    {
        return count == 1 ? IndexSweep::HitOne(index) : IndexSweep::HitEvery(index, colors);
    }
};

Blocks BlocksOf(benchmark::State const & state)
{
    return { static_cast<int>(state.range(0)), static_cast<int>(state.range(1)) };
}

constexpr QSize Size(Width, Height);
constexpr unsigned char First = 3;
constexpr unsigned char Second = 4;

//! Ends the program when a sweep is not what it is pixel by pixel.
template <class Sweep>
void CheckSweep(Blocks const & blocks, Sweep const & sweep)
{
    Bytes const before = Picture(blocks.Indices());
    Bytes after = before;
    Bytes const line(Width, Second);
    sweep(after.data(), line.data());
    for (std::size_t i = 0; i < Pixels; ++i) {
        bool const isHit = blocks.count == 1 ? before[i] == First : before[i] % blocks.colors == First;
        if (after[i] == (isHit ? Second : before[i]))
            continue;
        std::fprintf(stderr, "a sweep is wrong at %zu\n", i);
        std::abort();
    }
}

void RunOurs(benchmark::State & state, bool paintsBefore)
{
    Blocks const blocks = BlocksOf(state);
    CheckSweep(blocks, [&](unsigned char * bits, unsigned char const * line) {
        IndexSweep::Replace(bits, Width, Size, blocks.Hits(First), line);
    });
    Bytes pixels = Picture(blocks.Indices());
    Bytes const toSecond(Width, Second);
    Bytes const toFirst(Width, First);
    QImage other(16, 16, QImage::Format_RGB32);
    bool back = false;
    for (auto _ : state) {
        if (paintsBefore)
            other.fill(0xff102030);
        IndexSweep::Replace(pixels.data(), Width, Size, blocks.Hits(back ? Second : First),
                            back ? toFirst.data() : toSecond.data());
        back = !back;
        benchmark::ClobberMemory();
    }
}

void Sweep_ours(benchmark::State & state) { RunOurs(state, false); }

void Sweep_painted(benchmark::State & state) { RunOurs(state, true); }

#if defined(__SSE2__) || defined(_M_X64)

template <int Count>
void Kernel(unsigned char * bits, unsigned char const * line, int first, int step)
{
    __m128i indices[Count];
    for (int i = 0; i < Count; ++i)
        indices[i] = _mm_set1_epi8(static_cast<char>(first + i * step));
    for (int y = 0; y < Height; ++y, bits += Width)
        for (int x = 0; x < Width; x += 16) {
            auto * const at = reinterpret_cast<__m128i *>(bits + x);
            __m128i const old = _mm_loadu_si128(at);
            __m128i hit = _mm_cmpeq_epi8(old, indices[0]);
            for (int i = 1; i < Count; ++i)
                hit = _mm_or_si128(hit, _mm_cmpeq_epi8(old, indices[i]));
            __m128i const fresh = _mm_loadu_si128(reinterpret_cast<__m128i const *>(line + x));
            _mm_storeu_si128(at, _mm_or_si128(_mm_and_si128(hit, fresh), _mm_andnot_si128(hit, old)));
        }
}

template <int Count>
void RunLimit(benchmark::State & state)
{
    Blocks const blocks = BlocksOf(state);
    CheckSweep(blocks, [&](unsigned char * bits, unsigned char const * line) {
        Kernel<Count>(bits, line, First, blocks.colors);
    });
    Bytes pixels = Picture(blocks.Indices());
    Bytes const toSecond(Width, Second);
    Bytes const toFirst(Width, First);
    bool back = false;
    for (auto _ : state) {
        Kernel<Count>(pixels.data(), back ? toFirst.data() : toSecond.data(), back ? Second : First, blocks.colors);
        back = !back;
        benchmark::ClobberMemory();
    }
}

void Sweep_limit(benchmark::State & state) { state.range(0) == 1 ? RunLimit<1>(state) : RunLimit<8>(state); }

#endif

void Sweep_fade(benchmark::State & state)
{
    std::vector<QRgb> pixels(Pixels, 0xffa0b0c0U);
    for (auto _ : state) {
        Fade(pixels.data(), pixels.size());
        benchmark::ClobberMemory();
    }
}

void Sweep_if(benchmark::State & state)
{
    Blocks const blocks = BlocksOf(state);
    Bytes pixels = Picture(blocks.Indices());
    bool back = false;
    for (auto _ : state) {
        unsigned char const from = back ? Second : First;
        unsigned char const to = back ? First : Second;
        for (unsigned char & pixel : pixels)
            if (blocks.count == 1 ? pixel == from : pixel % blocks.colors == from)
                pixel = to;
        back = !back;
        benchmark::ClobberMemory();
    }
}

//! Blocks, and colours of a block.
void AllBlocks(benchmark::internal::Benchmark * bench) { bench->Args({ 1, 8 })->Args({ 8, 8 })->Args({ 8, 30 }); }

#if defined(__SSE2__) || defined(_M_X64)
BENCHMARK(Sweep_limit)->Name("Sweep/limit")->Apply(AllBlocks);
#endif
BENCHMARK(Sweep_ours)->Name("Sweep/ours")->Apply(AllBlocks);
BENCHMARK(Sweep_painted)->Name("Sweep/painted")->Apply(AllBlocks);
BENCHMARK(Sweep_fade)->Name("Sweep/fade")->Apply(AllBlocks);
BENCHMARK(Sweep_if)->Name("Sweep/if")->Apply(AllBlocks);

} // namespace
