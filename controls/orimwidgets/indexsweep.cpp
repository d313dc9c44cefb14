// SPDX-License-Identifier: MIT
#include "indexsweep.h"

#include "vectorstate.h"

#include <algorithm>
#include <cstring>

#if defined(__SSE2__) || defined(_M_X64)
#define ORIM_SWEEP_SSE2
#include <emmintrin.h>
#endif

namespace {

constexpr int Indices = 256;

bool IsSound(unsigned char const * bits, qsizetype bytesPerLine, QSize const & size, unsigned char const * line)
{
    return bits && line && !size.isEmpty() && bytesPerLine >= size.width();
}

//! Pixel by pixel, without a branch on what a pixel holds.
void ReplaceRow(unsigned char * row, int width, IndexSweep::Hits const & hits, unsigned char const * line)
{
    for (int x = 0; x < width; ++x) {
        unsigned int const kept = hits[row[x]] ? 0U : 0xffU;
        row[x] = static_cast<unsigned char>((row[x] & kept) | (line[x] & ~kept));
    }
}

#if defined(ORIM_SWEEP_SSE2)

constexpr qsizetype Block = 16; // pixels in a register
constexpr int AllBits = 0xffff;

inline __m128i Load(unsigned char const * from) { return _mm_loadu_si128(reinterpret_cast<__m128i const *>(from)); }

//! Hits the indices of which the bits in a mask have one value: a single index, a run from 254, every eighth.
class MaskMatcher
{
public:
    static constexpr int Blocks = 8; // a round; their hits are kept in registers

    //! \return false, and nothing to be used, when no mask tells these indices from the others.
    bool Set(IndexSweep::Hits const & hits, int first, int count)
    {
        int changing = 0;
        for (int index = first; index < Indices; ++index)
            if (hits[static_cast<std::size_t>(index)])
                changing |= index ^ first;
        int covered = 1;
        for (int bit = 1; bit < Indices; bit <<= 1)
            covered <<= (changing & bit) ? 1 : 0;
        m_mask = _mm_set1_epi8(static_cast<char>(~changing));
        m_value = _mm_set1_epi8(static_cast<char>(first & ~changing));
        return covered == count;
    }

    __m128i operator()(__m128i pixels) const { return _mm_cmpeq_epi8(_mm_and_si128(pixels, m_mask), m_value); }

    static bool Skips(__m128i const *) { return false; }

private:
    __m128i m_mask = _mm_setzero_si128();
    __m128i m_value = _mm_setzero_si128();
};

//! Hits the indices that leave one remainder: the quotient times the modulus is the index less the remainder.
class RemainderMatcher
{
public:
    static constexpr int Blocks = 4;

    //! \return false, and nothing to be used, when the indices are not all those of one remainder.
    bool Set(IndexSweep::Hits const & hits, int first)
    {
        auto const second = std::find(hits.begin() + first + 1, hits.end(), true);
        int const modulus = static_cast<int>(second - hits.begin()) - first;
        m_modulus = _mm_set1_epi16(static_cast<short>(modulus));
        m_inverse = _mm_set1_epi16(static_cast<short>((1 << 16) / modulus + 1)); // exact for all indices
        m_remainder = _mm_set1_epi16(static_cast<short>(first));
        m_skips = !hits[Ground];
        return second != hits.end() && hits == IndexSweep::HitEvery(first, modulus);
    }

    __m128i operator()(__m128i pixels) const
    {
        __m128i const zero = _mm_setzero_si128();
        return _mm_packs_epi16(Match(_mm_unpacklo_epi8(pixels, zero)), Match(_mm_unpackhi_epi8(pixels, zero)));
    }

    //! Whether all pixels of a round are background that is not hit, which is most of a picture.
    bool Skips(__m128i const * pixels) const
    {
        if (!m_skips)
            return false;
        __m128i all = pixels[0];
        for (int i = 1; i < Blocks; ++i)
            all = _mm_and_si128(all, pixels[i]);
        return _mm_movemask_epi8(_mm_cmpeq_epi8(all, _mm_set1_epi8(static_cast<char>(Ground)))) == AllBits;
    }

private:
    static constexpr std::size_t Ground = 255; // all bits are set: the test above needs no more than this index

    __m128i Match(__m128i eight) const
    {
        __m128i const quotient = _mm_mulhi_epu16(eight, m_inverse);
        return _mm_cmpeq_epi16(_mm_mullo_epi16(quotient, m_modulus), _mm_sub_epi16(eight, m_remainder));
    }

    __m128i m_modulus = _mm_setzero_si128();
    __m128i m_inverse = _mm_setzero_si128();
    __m128i m_remainder = _mm_setzero_si128();
    bool m_skips = false;
};

//! A round of Matcher::Blocks registers, stored only when a pixel is hit: one branch for all of them.
template <class Matcher>
void ReplaceRound(unsigned char * pixels, unsigned char const * line, Matcher const & matcher)
{
    constexpr int Blocks = Matcher::Blocks;
    __m128i old[Blocks];
    __m128i hit[Blocks];
    for (int i = 0; i < Blocks; ++i)
        old[i] = Load(pixels + i * Block);
    if (matcher.Skips(old))
        return;
    __m128i any = _mm_setzero_si128();
    for (int i = 0; i < Blocks; ++i) {
        hit[i] = matcher(old[i]);
        any = _mm_or_si128(any, hit[i]);
    }
    if (_mm_movemask_epi8(any) == 0)
        return;
    for (int i = 0; i < Blocks; ++i) {
        __m128i const fresh = _mm_and_si128(hit[i], Load(line + i * Block));
        _mm_storeu_si128(reinterpret_cast<__m128i *>(pixels + i * Block),
                         _mm_or_si128(fresh, _mm_andnot_si128(hit[i], old[i])));
    }
}

template <class Matcher>
void ReplaceBlock(unsigned char * pixels, unsigned char const * line, Matcher const & matcher)
{
    __m128i const old = Load(pixels);
    __m128i const hit = matcher(old);
    _mm_storeu_si128(reinterpret_cast<__m128i *>(pixels),
                     _mm_or_si128(_mm_and_si128(hit, Load(line)), _mm_andnot_si128(hit, old)));
}

//! Rows of at least one block. The last block ends with the row and may meet pixels a second time, which changes
//! nothing: a pixel that is hit again takes the byte it has.
template <class Matcher>
void ReplaceRows(unsigned char * row, qsizetype bytesPerLine, QSize const & size, Matcher const & matcher,
                 unsigned char const * line)
{
    constexpr qsizetype Round = Matcher::Blocks * Block;
    qsizetype const width = size.width();
    for (int y = 0; y < size.height(); ++y, row += bytesPerLine) {
        qsizetype x = 0;
        for (; x + Round <= width; x += Round)
            ReplaceRound(row + x, line + x, matcher);
        for (; x + Block <= width; x += Block)
            ReplaceBlock(row + x, line + x, matcher);
        if (x < width)
            ReplaceBlock(row + width - Block, line + width - Block, matcher);
    }
}

//! \return whether the picture and the indices are such that vectors do it, and then it is done.
bool ReplaceByVectors(unsigned char * bits, qsizetype bytesPerLine, QSize const & size, IndexSweep::Hits const & hits,
                      unsigned char const * line)
{
    auto const count = static_cast<int>(std::count(hits.begin(), hits.end(), true));
    if (count == 0)
        return true;
    if (size.width() < Block)
        return false;
    auto const first = static_cast<int>(std::find(hits.begin(), hits.end(), true) - hits.begin());
    MaskMatcher mask;
    if (mask.Set(hits, first, count)) {
        ReplaceRows(bits, bytesPerLine, size, mask, line);
        return true;
    }
    RemainderMatcher remainder;
    if (!remainder.Set(hits, first))
        return false;
    ReplaceRows(bits, bytesPerLine, size, remainder, line);
    return true;
}

#else

bool ReplaceByVectors(unsigned char *, qsizetype, QSize const &, IndexSweep::Hits const &, unsigned char const *)
{
    return false;
}

#endif

} // namespace

IndexSweep::Hits IndexSweep::HitOne(int index)
{
    Hits hits{};
    if (index >= 0 && index < Indices)
        hits[static_cast<std::size_t>(index)] = true;
    return hits;
}

IndexSweep::Hits IndexSweep::HitEvery(int remainder, int modulus)
{
    Hits hits{};
    if (remainder < 0 || remainder >= modulus)
        return hits;
    for (int index = remainder; index < Indices; index += std::min(modulus, Indices))
        hits[static_cast<std::size_t>(index)] = true;
    return hits;
}

IndexSweep::Hits IndexSweep::HitFrom(int first)
{
    Hits hits{};
    std::fill(hits.begin() + std::clamp(first, 0, Indices), hits.end(), true);
    return hits;
}

void IndexSweep::Replace(unsigned char * bits, qsizetype bytesPerLine, QSize const & size, Hits const & hits,
                         unsigned char const * line)
{
    if (!IsSound(bits, bytesPerLine, size, line))
        return;
    CleanVectorState();
    if (!ReplaceByVectors(bits, bytesPerLine, size, hits, line))
        ReplacePortable(bits, bytesPerLine, size, hits, line);
}

void IndexSweep::ReplacePortable(unsigned char * bits, qsizetype bytesPerLine, QSize const & size, Hits const & hits,
                                 unsigned char const * line)
{
    if (!IsSound(bits, bytesPerLine, size, line))
        return;
    for (int y = 0; y < size.height(); ++y)
        ReplaceRow(bits + y * bytesPerLine, size.width(), hits, line);
}

void IndexSweep::CopyLine(unsigned char * bits, qsizetype bytesPerLine, QSize const & size, unsigned char const * line)
{
    if (!IsSound(bits, bytesPerLine, size, line))
        return;
    for (int y = 0; y < size.height(); ++y)
        std::memcpy(bits + y * bytesPerLine, line, static_cast<std::size_t>(size.width()));
}
