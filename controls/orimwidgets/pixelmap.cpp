// SPDX-License-Identifier: MIT
#include "pixelmap.h"

#include "toint.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>

#if (defined(__GNUC__) || defined(__clang__)) && defined(__x86_64__)
#define ORIM_PIXELMAP_WIDE
#include <immintrin.h>
#endif

namespace {

constexpr double FixedPoint = 0x1.8p36; // added to a number from 0 to 65536 it leaves 16.16 bits in the low word
constexpr double NarrowestSpan = 1e-290;
constexpr double WidestSpan = 1e290;

#ifdef ORIM_PIXELMAP_WIDE

constexpr int NearBorder = 2;       // of 2^-16 px: the rounding of the fast computation is below that
constexpr std::size_t Together = 8; // values a round

bool HasWideRegisters()
{
    __builtin_cpu_init();
    return __builtin_cpu_supports("avx2") != 0;
}

struct Batch
{
    double low;
    double scale;
    double base;
    int origin;
    int length;
};

std::int32_t HighWord(double value)
{
    std::int64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return static_cast<std::int32_t>(bits >> 32);
}

//! A number up to 65535 in the high half of a word, as its bits.
std::int32_t FixedWord(int number) { return static_cast<std::int32_t>(static_cast<std::uint32_t>(number) << 16); }

//! Eight values at once. \return one bit in each of the places of a value that lies too near to the border of two
//! pixels to be decided here.
__attribute__((target("avx2"))) inline unsigned int PlaceEight(double const * values, int * pixels, Batch const & batch)
{
    __m256d const low = _mm256_set1_pd(batch.low);
    __m256d const scale = _mm256_set1_pd(batch.scale);
    __m256d const base = _mm256_set1_pd(batch.base);
    __m256i const signBit = _mm256_set1_epi32(INT32_MIN);
    // the words are unsigned: flipping the sign bit makes signed comparisons do
    __m256i const firstWord = _mm256_set1_epi32(FixedWord(batch.origin + 1));
    __m256i const words = _mm256_xor_si256(_mm256_set1_epi32(FixedWord(batch.length)), signBit);
    __m256i const nearWords = _mm256_xor_si256(_mm256_set1_epi32(FixedWord(2 * NearBorder + 1)), signBit);
    __m256i const nearFirst = _mm256_set1_epi32(FixedWord(NearBorder));

    __m256d const a = _mm256_add_pd(_mm256_mul_pd(_mm256_sub_pd(_mm256_loadu_pd(values), low), scale), base);
    __m256d const b = _mm256_add_pd(_mm256_mul_pd(_mm256_sub_pd(_mm256_loadu_pd(values + 4), low), scale), base);
    __m256i const word =
        _mm256_castps_si256(_mm256_shuffle_ps(_mm256_castpd_ps(a), _mm256_castpd_ps(b), 0x88)); // 0 1 4 5 2 3 6 7
    __m256i const high = _mm256_castps_si256(_mm256_shuffle_ps(_mm256_castpd_ps(a), _mm256_castpd_ps(b), 0xdd));
    __m256i const isPlace = _mm256_cmpeq_epi32(high, _mm256_set1_epi32(HighWord(FixedPoint)));
    __m256i const place = _mm256_xor_si256(_mm256_sub_epi32(word, firstWord), signBit);
    __m256i const inside = _mm256_and_si256(isPlace, _mm256_cmpgt_epi32(words, place));
    __m256i const fraction = _mm256_xor_si256(_mm256_add_epi32(_mm256_slli_epi32(word, 16), nearFirst), signBit);
    __m256i const near = _mm256_and_si256(isPlace, _mm256_cmpgt_epi32(nearWords, fraction));
    __m256i const pixel =
        _mm256_add_epi32(_mm256_and_si256(_mm256_srli_epi32(word, 16), inside), _mm256_set1_epi32(-1));
    _mm256_storeu_si256(reinterpret_cast<__m256i *>(pixels), _mm256_permute4x64_epi64(pixel, 0xd8));
    return static_cast<unsigned int>(_mm256_movemask_ps(_mm256_castsi256_ps(_mm256_permute4x64_epi64(near, 0xd8))));
}

//! As many values as whole rounds hold. \return their number.
__attribute__((target("avx2"))) std::size_t PlaceMany(double const * values, int * pixels, std::size_t count,
                                                      Batch const & batch, PixelMap const & map)
{
    std::size_t i = 0;
    for (; i + Together <= count; i += Together)
        if (unsigned int const near = PlaceEight(values + i, pixels + i, batch))
            for (std::size_t k = 0; k < Together; ++k)
                if ((near >> k & 1U) != 0)
                    pixels[i + k] = map.ToPixel(values[i + k]);
    return i;
}

#endif

} // namespace

PixelMap::PixelMap(Layout const & layout)
    : m_layout(layout)
    , m_low(std::min(layout.start, layout.stop))
    , m_high(std::max(layout.start, layout.stop))
    , m_end(layout.direction == eVertical ? layout.start : layout.stop)
    , m_turned(layout.direction == eVertical ? layout.stop > layout.start : layout.start > layout.stop)
    , m_length(CutTo16Bits(static_cast<long long>(layout.last) - layout.first + 1))
    , m_origin(CutTo16Bits(layout.first))
    , m_hasPixels(layout.direction != eNoDirection && layout.start != layout.stop)
{
    MakeBatch();
}

void PixelMap::MakeBatch()
{
    double const span = m_high - m_low;
    m_batch = m_hasPixels && !m_layout.wrapped && m_length > 0 && m_origin >= 0 && span >= NarrowestSpan &&
              span <= WidestSpan;
    if (!m_batch)
        return;
    m_batchScale = (m_turned ? -m_length : m_length) / span;
    m_batchBase = FixedPoint + 1 + m_origin + (m_turned ? m_length : 0);
}

int PixelMap::Resolve(double value) const
{
    if (!m_hasPixels)
        return -1;
    if (m_layout.wrapped) {
        if (value < m_low)
            value += m_layout.wrapSpan;
        if (value > m_high)
            value -= m_layout.wrapSpan;
    }
    bool const isInside = value >= m_low && value <= m_high; // false for NaN
    return isInside ? PlaceInside(value) : -1;
}

int PixelMap::PlaceInside(double value) const
{
    if (value == m_end)
        return m_length - 1 + m_origin;
    double const part = (value - m_low) / (m_high - m_low);
    double const place = m_length * (m_turned ? 1.0 - part : part) + m_origin;
    return std::isnan(place) ? -1 : toInt(place);
}

void PixelMap::ToPixels(double const * values, int * pixels, std::size_t count) const
{
    if (!values || !pixels)
        return;
    std::size_t done = 0;
#ifdef ORIM_PIXELMAP_WIDE
    static bool const wide = HasWideRegisters();
    if (wide && m_batch)
        done = PlaceMany(values, pixels, count, { m_low, m_batchScale, m_batchBase, m_origin, m_length }, *this);
#endif
    for (std::size_t i = done; i < count; ++i)
        pixels[i] = ToPixel(values[i]);
}

double PixelMap::ToValue(int pixel) const
{
    double const extent = static_cast<double>(m_layout.last) - m_layout.first;
    double const part = (static_cast<double>(pixel) - m_layout.first) / extent;
    return (m_layout.stop - m_layout.start) * (m_layout.direction == eVertical ? 1.0 - part : part) + m_layout.start;
}
