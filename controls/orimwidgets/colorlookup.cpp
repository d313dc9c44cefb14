// SPDX-License-Identifier: MIT
#include "colorlookup.h"

#include "samevalue.h"
#include "toint.h"
#include "vectorstate.h"

#include <QtAlgorithms>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

#if defined(__SSE2__) || defined(_M_X64)
#define ORIM_LOOKUP_SSE2
#include <emmintrin.h>
#endif

namespace {

// The table: the colour of NaN, the colour below the range, the bands, or the cells from end to end (one more than
// there are steps, each about its position), the colour above.
constexpr int NaNSlot = 0;
constexpr int BelowSlot = 1;
constexpr int FirstCell = 2;
constexpr int SlotsBesideCells = 4;

constexpr int MinCells = 1024;       // few values meet a marked end, and the table is quickly built
constexpr int MaxCells = 1 << 18;    // 1 MB; a set that needs more is resolved one by one
constexpr int MinBandCells = 8192;   // of folded bands: few values meet a marked edge
constexpr int MinCellsPerBand = 192; // likewise
constexpr int MinCellsPerBandAtMaximum = 4;
constexpr double LevelsPerCell = 5.0 / 3.0; // half of that and the cut stay below 1 a channel
constexpr QRgb Marked = 0;                  // no alpha: to be resolved

constexpr double MaxTurns = 1024.5;        // folds of the table; beyond them values are resolved
constexpr double RoundingShift = 0x1.8p52; // added and taken off, it leaves the nearest integer
constexpr double IntEnd = 0x1p31;

constexpr int MostBands = 1 << 20;
constexpr int MostFractionBits = 24; // the rounding of a position stays far below
constexpr double Unsure = 0x1p-20;   // of a cell: likewise

int ChannelStep(QRgb a, QRgb b)
{
    return std::max({ std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b)) });
}

int LargestChannelStep(std::vector<QRgb> const & colors)
{
    int largest = 0;
    for (std::size_t i = 1; i < colors.size(); ++i)
        largest = std::max(largest, ChannelStep(colors[i - 1], colors[i]));
    return largest;
}

//! The next even number of cells, so that the middle of the range is the middle of a cell.
int EvenShare(int cells, int segments) { return (cells / segments + 2) / 2 * 2; }

constexpr int FractionBits = 22; // 255 with them fits an int

struct FixedChannel
{
    FixedChannel(int from, int to, int count)
        : m_level(from << FractionBits)
        , m_step((to - from) * (1 << FractionBits) / count)
    {}

    int m_level;
    int m_step;
};

#if defined(ORIM_LOOKUP_SSE2)

//! Four fixed-point colours a round: entry i of \a out is low + (high - low) * i / count.
void BlendSegment(QRgb low, QRgb high, int count, QRgb * out)
{
    FixedChannel const red(qRed(low), qRed(high), count);
    FixedChannel const green(qGreen(low), qGreen(high), count);
    FixedChannel const blue(qBlue(low), qBlue(high), count);
    __m128i const step = _mm_set_epi32(0, red.m_step, green.m_step, blue.m_step);
    __m128i const fourSteps = _mm_slli_epi32(step, 2);
    __m128i a = _mm_set_epi32(255 << FractionBits, red.m_level, green.m_level, blue.m_level);
    __m128i b = _mm_add_epi32(a, step);
    __m128i c = _mm_add_epi32(b, step);
    __m128i d = _mm_add_epi32(c, step);
    auto const pack = [&] {
        __m128i const ab = _mm_packs_epi32(_mm_srli_epi32(a, FractionBits), _mm_srli_epi32(b, FractionBits));
        __m128i const cd = _mm_packs_epi32(_mm_srli_epi32(c, FractionBits), _mm_srli_epi32(d, FractionBits));
        return _mm_packus_epi16(ab, cd);
    };
    int i = 0;
    for (; i + 4 <= count; i += 4) {
        _mm_storeu_si128(reinterpret_cast<__m128i *>(out + i), pack());
        a = _mm_add_epi32(a, fourSteps);
        b = _mm_add_epi32(b, fourSteps);
        c = _mm_add_epi32(c, fourSteps);
        d = _mm_add_epi32(d, fourSteps);
    }
    alignas(16) QRgb rest[4];
    _mm_store_si128(reinterpret_cast<__m128i *>(rest), pack());
    std::copy_n(rest, count - i, out + i);
}

inline __m128d LoadTwo(double const * values) { return _mm_loadu_pd(values); }

inline __m128d LoadTwo(float const * values)
{
    return _mm_cvtps_pd(_mm_castsi128_ps(_mm_loadl_epi64(reinterpret_cast<__m128i const *>(values))));
}

//! The slots of two doubles; the lowest int, what the conversion makes of NaN, becomes NaNSlot.
inline __m128i ToSlots(__m128d position)
{
    return _mm_and_si128(_mm_cvttpd_epi32(position), _mm_set1_epi32(std::numeric_limits<int>::max()));
}

//! \tparam Shifts  whether there is an offset to add.
template <bool Shifts>
struct LinearKernel
{
    __m128d m_offset, m_origin, m_scale, m_bias, m_low, m_top;

    template <class Scale>
    explicit LinearKernel(Scale const & s)
        : m_offset(_mm_set1_pd(s.offset))
        , m_origin(_mm_set1_pd(s.origin))
        , m_scale(_mm_set1_pd(s.scale))
        , m_bias(_mm_set1_pd(s.bias))
        , m_low(_mm_set1_pd(s.low))
        , m_top(_mm_set1_pd(s.top))
    {}

    //! Both clamps pass NaN on: their second operand does.
    __m128i operator()(__m128d value) const
    {
        __m128d const shifted = Shifts ? _mm_add_pd(value, m_offset) : value;
        __m128d const distance = _mm_sub_pd(shifted, m_origin);
        __m128d const position = _mm_add_pd(_mm_mul_pd(distance, m_scale), m_bias);
        return ToSlots(_mm_min_pd(m_top, _mm_max_pd(m_low, position)));
    }
};

struct WrappedKernel
{
    __m128d m_offset, m_origin, m_scale, m_bias, m_cells;

    template <class Scale>
    WrappedKernel(Scale const & s, double cells)
        : m_offset(_mm_set1_pd(s.offset))
        , m_origin(_mm_set1_pd(s.origin))
        , m_scale(_mm_set1_pd(s.scale))
        , m_bias(_mm_set1_pd(s.bias))
        , m_cells(_mm_set1_pd(cells))
    {}

    __m128i operator()(__m128d value) const
    {
        __m128d const distance = _mm_sub_pd(_mm_add_pd(value, m_offset), m_origin);
        __m128d turns = _mm_mul_pd(distance, m_scale);
        turns = _mm_min_pd(_mm_set1_pd(MaxTurns), _mm_max_pd(_mm_set1_pd(-MaxTurns), turns));
        __m128d const shift = _mm_set1_pd(RoundingShift);
        __m128d const part = _mm_sub_pd(turns, _mm_sub_pd(_mm_add_pd(turns, shift), shift));
        return ToSlots(_mm_add_pd(_mm_mul_pd(part, m_cells), m_bias));
    }
};

struct IndexKernel
{
    __m128d m_top;

    explicit IndexKernel(double top) : m_top(_mm_set1_pd(top)) {}

    //! What no int holds, and NaN, gives entry 0 as the lowest int does.
    __m128i operator()(__m128d value) const
    {
        __m128d const index = _mm_add_pd(value, _mm_set1_pd(0.5));
        __m128d const held = _mm_and_pd(index, _mm_cmplt_pd(index, _mm_set1_pd(IntEnd)));
        return _mm_cvttpd_epi32(_mm_min_pd(_mm_max_pd(held, _mm_setzero_pd()), m_top));
    }
};

constexpr int AllHaveAlpha = 0xf;

//! Bit i for entry i without alpha.
inline quint32 MarkedOf(__m128i entries)
{
    return static_cast<quint32>(_mm_movemask_ps(_mm_castsi128_ps(entries)) ^ AllHaveAlpha);
}

inline __m128i LoadEntries(QRgb const * table, __m128i slots01, __m128i slots23)
{
    auto const pair = [table](__m128i slots) {
        auto const both = static_cast<std::uint64_t>(_mm_cvtsi128_si64(slots));
        __m128i const low = _mm_cvtsi32_si128(static_cast<int>(table[static_cast<std::uint32_t>(both)]));
        __m128i const high = _mm_cvtsi32_si128(static_cast<int>(table[both >> 32]));
        return _mm_unpacklo_epi32(low, high);
    };
    return _mm_unpacklo_epi64(pair(slots01), pair(slots23));
}

#else

void BlendSegment(QRgb low, QRgb high, int count, QRgb * out)
{
    FixedChannel red(qRed(low), qRed(high), count);
    FixedChannel green(qGreen(low), qGreen(high), count);
    FixedChannel blue(qBlue(low), qBlue(high), count);
    auto const next = [](FixedChannel & channel) {
        int const level = channel.m_level >> FractionBits;
        channel.m_level += channel.m_step;
        return level;
    };
    for (int i = 0; i < count; ++i)
        out[i] = qRgb(next(red), next(green), next(blue));
}

#endif

} // namespace

void ColorLookup::SetColors(std::vector<QRgb> colors)
{
    m_colors = std::move(colors);
    m_tableCurrent = false;
    m_rangeCurrent = false;
}

void ColorLookup::Prepare(ColorRule const & rule, double min, double max, bool inverse)
{
    bool const sameReading = rule.smooth == m_rule.smooth && rule.fixed == m_rule.fixed && rule.wrap == m_rule.wrap &&
                             rule.pureIndex == m_rule.pureIndex && inverse == m_inverse;
    bool const sameRange = sameValue(rule.start, m_rule.start) && sameValue(rule.stop, m_rule.stop) &&
                           sameValue(rule.offset, m_rule.offset) && sameValue(min, m_min) && sameValue(max, m_max);
    if (m_rangeCurrent && sameReading && sameRange)
        return;
    m_tableCurrent = m_tableCurrent && sameReading;
    m_rule = rule;
    m_min = min;
    m_max = max;
    m_inverse = inverse;
    ChooseRoad();
    if (UsesTable() && !m_tableCurrent)
        BuildTable();
    m_rangeCurrent = true;
}

void ColorLookup::ChooseRoad()
{
    if (m_rule.pureIndex)
        m_road = eIndex;
    else if (!m_rule.fixed && m_max == m_min)
        m_road = eSingle;
    else
        m_road = ChooseTable(m_rule.fixed ? m_rule.start : m_min, m_rule.fixed ? m_rule.stop : m_max);
}

ColorLookup::ERoad ColorLookup::ChooseTable(double low, double high)
{
    bool const wraps = m_rule.fixed && m_rule.wrap;
    if (!m_rule.smooth && !wraps)
        return FindBandScale(low, high) ? eBands : eOneByOne;
    if (!FindScale(low, high))
        return eOneByOne;
    return wraps ? eWrapped : eLinear;
}

//! Whether positions reckoned so are those of PickColor() but for some rounding.
bool ColorLookup::IsSound(double extent) const
{
    return std::isnormal(m_scale.scale) && std::isfinite(extent) && std::isfinite(m_scale.origin) &&
           std::isfinite(m_scale.offset);
}

//! Fills m_cells, m_fractionBits and m_scale, which counts in fractions of a band. \return false as FindScale().
bool ColorLookup::FindBandScale(double low, double high)
{
    m_cells = static_cast<int>(m_colors.size());
    if (m_cells > MostBands)
        return false;
    m_fractionBits = std::min(static_cast<int>(qCountLeadingZeroBits(static_cast<quint32>(m_cells + 3))) - 1,
                              MostFractionBits); // the last entry in fractions is an int
    double const band = 1 << m_fractionBits;
    double const extent = high - low;
    m_scale.offset = m_rule.offset;
    m_scale.origin = low;
    m_scale.scale = m_cells * band / extent;
    m_scale.bias = FirstCell * band;
    m_scale.low = (BelowSlot + 0.5) * band;
    m_scale.top = (FirstCell + m_cells + 0.5) * band;
    return IsSound(extent);
}

//! Fills m_cells and m_scale. \return false when the rounding of this range could reach beyond half a cell, or the list
//! needs too many cells.
bool ColorLookup::FindScale(double low, double high)
{
    int const length = static_cast<int>(m_colors.size());
    int const segments = m_rule.smooth ? std::max(length - 1, 1) : length;
    if (!m_tableCurrent)
        m_cells = segments * CellsPerSegment();
    bool const wraps = m_rule.fixed && m_rule.wrap;
    double const extent = high - low;
    m_scale.offset = m_rule.offset;
    m_scale.origin = low;
    m_scale.scale = (wraps ? 1.0 : m_cells) / extent;
    m_scale.bias = FirstCell + 0.5 + (wraps ? m_cells / 2 : 0);
    m_scale.low = BelowSlot;
    m_scale.top = FirstCell + m_cells + 1;
    bool const sound = m_cells > 0 && IsSound(extent);
    if (!sound || !wraps)
        return sound;
    // the loops that fold may round at every turn
    double const farthest = std::fabs(low / extent) + MaxTurns + 1.0;
    return farthest * MaxTurns * m_cells * std::numeric_limits<double>::epsilon() < 0.25;
}

int ColorLookup::CellsPerSegment() const
{
    int const length = static_cast<int>(m_colors.size());
    if (m_rule.smooth) {
        int const segments = std::max(length - 1, 1);
        int const forSlope = EvenShare(toInt(LargestChannelStep(m_colors) / LevelsPerCell) + 1, 1);
        int const cells = std::max(forSlope, EvenShare(MinCells, segments));
        return cells <= MaxCells / segments ? cells : 0;
    }
    int const cells = std::max(MinCellsPerBand, EvenShare(MinBandCells, length));
    int const most = MaxCells / length / 2 * 2;
    return most < MinCellsPerBandAtMaximum ? 0 : std::min(cells, most);
}

//! The last entry of the table.
std::size_t ColorLookup::AboveSlot() const
{
    std::size_t const first = m_road == eBands ? FirstCell : FirstCell + 1;
    return first + static_cast<std::size_t>(m_cells);
}

QRgb ColorLookup::EndColor(bool high) const { return high == m_inverse ? m_colors.front() : m_colors.back(); }

void ColorLookup::BuildTable()
{
    m_table.resize(static_cast<std::size_t>(m_cells) + SlotsBesideCells);
    int const length = static_cast<int>(m_colors.size());
    int const perSegment = m_cells / (m_rule.smooth ? std::max(length - 1, 1) : length);
    QRgb * const cells = m_table.data() + FirstCell;
    FillCells(cells, perSegment);
    if (m_road != eBands)
        MarkEdges(cells, perSegment);
    if (m_road == eWrapped)
        RotateForWrap();

    m_table[NaNSlot] = Resolve(std::numeric_limits<double>::quiet_NaN());
    m_table[BelowSlot] = m_rule.fixed ? EndColor(false) : OutOfRangeRgb;
    m_table[AboveSlot()] = m_rule.fixed ? EndColor(true) : OutOfRangeRgb;
    m_tableCurrent = true;
}

void ColorLookup::FillCells(QRgb * cells, int perSegment) const
{
    int const length = static_cast<int>(m_colors.size());
    auto const color = [this, length](int i) {
        return m_colors[static_cast<std::size_t>(m_inverse ? length - 1 - i : i)];
    };
    if (m_rule.smooth && length > 1) {
        for (int i = 0; i + 1 < length; ++i, cells += perSegment)
            BlendSegment(color(i), color(i + 1), perSegment, cells);
    } else {
        for (int i = 0; i < length; ++i, cells += perSegment)
            std::fill_n(cells, perSegment, color(i));
    }
    *cells = color(length - 1);
}

void ColorLookup::MarkEdges(QRgb * cells, int perSegment) const
{
    if (!m_rule.smooth)
        for (int edge = perSegment; edge < m_cells; edge += perSegment)
            if (cells[edge - 1] != cells[edge])
                cells[edge] = Marked;
    cells[0] = Marked;
    cells[m_cells] = Marked;
}

//! A folded value lies half a turn about the start: the upper half of the cells comes first, the start into the middle.
//! The ends of the table take the values beyond MaxTurns.
void ColorLookup::RotateForWrap()
{
    QRgb * const cells = m_table.data() + FirstCell;
    std::rotate(cells, cells + m_cells / 2, cells + m_cells);
    cells[0] = Marked;
    cells[m_cells] = Marked;
}

QRgb ColorLookup::Resolve(double value) const
{
    ColorPick const pick = PickColor(m_rule, static_cast<int>(m_colors.size()), value, m_min, m_max, m_inverse);
    return PickedRgb(pick, m_colors.data());
}

//! A value that stands too near to a jump for the table to tell on which side.
QRgb ColorLookup::ResolveMarked(double value) const
{
    if (std::isnan(value))
        return m_table[NaNSlot];
    if (m_road != eLinear)
        return Resolve(value);
    double const place = (value + m_scale.offset - m_scale.origin) * m_scale.scale; // cells from the low end
    if (place < -Unsure)
        return m_table[BelowSlot];
    if (place > m_cells + Unsure)
        return m_table[AboveSlot()];
    if (place > Unsure && place < 1.0)
        return EndColor(false);
    if (place < m_cells - Unsure && place > m_cells - 1.0)
        return EndColor(true);
    return Resolve(value);
}

//! The entry of the table that a value falls into; with bands in fractions.
int ColorLookup::Slot(double value) const
{
    double position = (value + m_scale.offset - m_scale.origin) * m_scale.scale;
    if (std::isnan(position))
        return NaNSlot;
    if (m_road == eWrapped) {
        double const turns = std::clamp(position, -MaxTurns, MaxTurns);
        position = (turns - std::nearbyint(turns)) * m_cells;
    }
    return toInt(std::clamp(position + m_scale.bias, m_scale.low, m_scale.top));
}

QRgb ColorLookup::PickOne(double value) const
{
    int const slot = Slot(value);
    if (m_road == eBands) {
        bool const nearEdge = ((slot + 1) & ((1 << m_fractionBits) - 1)) <= 1;
        return nearEdge ? ResolveMarked(value) : m_table[static_cast<std::size_t>(slot >> m_fractionBits)];
    }
    QRgb const entry = m_table[static_cast<std::size_t>(slot)];
    return entry == Marked ? ResolveMarked(value) : entry;
}

template <class T>
void ColorLookup::MapOneByOne(T const * values, QRgb * out, std::size_t count) const
{
    bool const byTable = UsesTable();
    for (std::size_t i = 0; i < count; ++i) {
        auto const value = static_cast<double>(values[i]);
        out[i] = byTable ? PickOne(value) : Resolve(value);
    }
}

#if defined(ORIM_LOOKUP_SSE2)

//! Eight values a round. \return how many were coloured.
template <class Kernel, class T>
std::size_t ColorLookup::MapBlocks(Kernel const & kernel, T const * values, QRgb * out, std::size_t count) const
{
    constexpr std::size_t Block = 8;
    QRgb const * const table = m_road == eIndex ? m_colors.data() : m_table.data();
    std::size_t i = 0;
    for (; i + Block <= count; i += Block) {
        __m128i const a = LoadEntries(table, kernel(LoadTwo(values + i)), kernel(LoadTwo(values + i + 2)));
        __m128i const b = LoadEntries(table, kernel(LoadTwo(values + i + 4)), kernel(LoadTwo(values + i + 6)));
        _mm_storeu_si128(reinterpret_cast<__m128i *>(out + i), a);
        _mm_storeu_si128(reinterpret_cast<__m128i *>(out + i + 4), b);
        if (_mm_movemask_ps(_mm_castsi128_ps(_mm_and_si128(a, b))) != AllHaveAlpha)
            for (quint32 marked = MarkedOf(a) | MarkedOf(b) << 4; marked; marked &= marked - 1) {
                std::size_t const k = i + qCountTrailingZeroBits(marked);
                out[k] = ResolveMarked(static_cast<double>(values[k]));
            }
    }
    return i;
}

//! The same for bands; \a kernel makes fixed-point numbers of bands.
template <class Kernel, class T>
std::size_t ColorLookup::MapBandBlocks(Kernel const & kernel, T const * values, QRgb * out, std::size_t count) const
{
    constexpr std::size_t Block = 8;
    QRgb const * const table = m_table.data();
    __m128i const shift = _mm_cvtsi32_si128(m_fractionBits);
    __m128i const one = _mm_set1_epi32(1);
    __m128i const fraction = _mm_set1_epi32((1 << m_fractionBits) - 1);
    // all bits of those whose fraction is the first or the last one
    auto const nearEdge = [&](__m128i four) {
        return _mm_cmpgt_epi32(_mm_set1_epi32(2), _mm_and_si128(_mm_add_epi32(four, one), fraction));
    };
    auto const store = [&](__m128i four, QRgb * to) {
        __m128i const bands = _mm_srl_epi32(four, shift);
        auto const low = static_cast<std::uint64_t>(_mm_cvtsi128_si64(bands));
        auto const high = static_cast<std::uint64_t>(_mm_cvtsi128_si64(_mm_unpackhi_epi64(bands, bands)));
        to[0] = table[static_cast<std::uint32_t>(low)];
        to[1] = table[low >> 32];
        to[2] = table[static_cast<std::uint32_t>(high)];
        to[3] = table[high >> 32];
    };
    std::size_t i = 0;
    for (; i + Block <= count; i += Block) {
        __m128i const a = _mm_unpacklo_epi64(kernel(LoadTwo(values + i)), kernel(LoadTwo(values + i + 2)));
        __m128i const b = _mm_unpacklo_epi64(kernel(LoadTwo(values + i + 4)), kernel(LoadTwo(values + i + 6)));
        store(a, out + i);
        store(b, out + i + 4);
        int const marked =
            _mm_movemask_epi8(_mm_packs_epi16(_mm_packs_epi32(nearEdge(a), nearEdge(b)), _mm_setzero_si128()));
        for (auto rest = static_cast<quint32>(marked); rest; rest &= rest - 1) {
            std::size_t const k = i + qCountTrailingZeroBits(rest);
            out[k] = ResolveMarked(static_cast<double>(values[k]));
        }
    }
    return i;
}

template <class T>
void ColorLookup::MapAll(T const * values, QRgb * out, std::size_t count) const
{
    CleanVectorState();
    Scale const & s = m_scale;
    std::size_t done = 0;
    if (m_road == eSingle) {
        std::fill_n(out, count, Resolve(m_min));
        return;
    }
    bool const shifts = s.offset != 0.0;
    if (m_road == eIndex)
        done = MapBlocks(IndexKernel(static_cast<double>(m_colors.size() - 1)), values, out, count);
    else if (m_road == eBands)
        done = shifts ? MapBandBlocks(LinearKernel<true>(s), values, out, count)
                      : MapBandBlocks(LinearKernel<false>(s), values, out, count);
    else if (m_road == eLinear)
        done = shifts ? MapBlocks(LinearKernel<true>(s), values, out, count)
                      : MapBlocks(LinearKernel<false>(s), values, out, count);
    else if (m_road == eWrapped)
        done = MapBlocks(WrappedKernel(s, m_cells), values, out, count);
    MapOneByOne(values + done, out + done, count - done);
}

#else

template <class T>
void ColorLookup::MapAll(T const * values, QRgb * out, std::size_t count) const
{
    MapOneByOne(values, out, count);
}

#endif

void ColorLookup::Map(double const * values, QRgb * out, std::size_t count) const { MapAll(values, out, count); }

void ColorLookup::Map(float const * values, QRgb * out, std::size_t count) const { MapAll(values, out, count); }

void ColorLookup::MapPortable(double const * values, QRgb * out, std::size_t count) const
{
    MapOneByOne(values, out, count);
}
