// SPDX-License-Identifier: MIT
#ifndef ORIM_PIXELMAP_H
#define ORIM_PIXELMAP_H

#include "orimwidgets_export.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

//! How the values of an axis lie on its pixels, both ways. It is made anew when the range or the place changes; asking
//! is then cheap.
class ORIMWIDGETS_EXPORT PixelMap
{
public:
    enum EDirection : int
    {
        eNoDirection, //!< no value has a pixel
        eHorizontal,  //!< the start lies at the left
        eVertical     //!< the start lies at the bottom
    };

    //! What a map is made of: any numbers.
    struct Layout
    {
        double start = 0.0;
        double stop = 0.0;
        EDirection direction = eNoDirection;
        int first = 0;          // px, left or top of the inner rectangle
        int last = -1;          // px, right or bottom
        bool wrapped = false;   // values outside the range are moved by the wrap span once
        double wrapSpan = -1.0; // in the axis unit

        //! False with NaN.
        bool operator==(Layout const & other) const
        {
            return start == other.start && stop == other.stop && direction == other.direction && first == other.first &&
                   last == other.last && wrapped == other.wrapped && wrapSpan == other.wrapSpan;
        }
    };

    PixelMap() : PixelMap(Layout()) {}

    explicit PixelMap(Layout const & layout);

    Layout const & GetLayout() const { return m_layout; }

    //! Pixel that shows a value, truncated towards zero, not rounded. The stop value of a horizontal map lies on the
    //! last pixel, the start value of a vertical one on the lowest.
    //! Length and origin count as 16-bit numbers: a map longer than 32767 px answers wrongly, and so it is required.
    //! \param value  in the axis unit; any double.
    //! \return -1 for NaN, outside the range, without a direction, for an empty range, and where the range is so wide
    //!         that the place of the value is not a number.
    int ToPixel(double value) const;
    //! The pixels of many values, the same as ToPixel() gives.
    //! \param values, pixels  \a count entries each; null does nothing.
    void ToPixels(double const * values, int * pixels, std::size_t count) const;
    //! Value that a pixel shows, in the axis unit. Not clamped: a pixel outside gives a value outside.
    //! The divisor is the distance of the first and the last pixel, one less than the length that ToPixel() multiplies
    //! by. With a single pixel it is zero: the result is then infinite or NaN. Without a direction as horizontal.
    double ToValue(int pixel) const;

private:
    static constexpr std::uint32_t FixedPointHigh = 0x42380000U; // high word of a fast place
    static constexpr std::uint32_t NearUnits = 2; // of 2^-16 px: the rounding of a fast place is below that

    //! As required, by the quotient.
    int Resolve(double value) const;
    int PlaceInside(double value) const;
    void MakeBatch();

    Layout m_layout;
    double m_low = 0.0;
    double m_high = 0.0;
    double m_end = 0.0;    // the value on the last pixel of the direction
    bool m_turned = false; // pixels fall while values rise
    int m_length = 0;      // px, cut to 16 bits
    int m_origin = 0;
    bool m_hasPixels = false;

    // the fast place: pixel + 1 in 16.16 bits, at the low end of the bits of a double; both 0 when there is none
    bool m_batch = false;
    double m_batchScale = 0.0;
    double m_batchBase = 0.0;
};

//! A multiplication decides, but near the border of two pixels.
inline int PixelMap::ToPixel(double value) const
{
    double const place = (value - m_low) * m_batchScale + m_batchBase;
    std::uint64_t bits = 0;
    std::memcpy(&bits, &place, sizeof bits);
    auto const word = static_cast<std::uint32_t>(bits);
    bool const isNear = ((word + NearUnits) & 0xffffU) <= 2 * NearUnits;
    if (bits >> 32 != FixedPointHigh || isNear)
        return Resolve(value);
    int const pixel = static_cast<int>(word >> 16) - 1;
    return pixel >= m_origin && pixel < m_origin + m_length ? pixel : -1;
}

//! The nearest number that an int holds: for sums of pixels that may leave it.
inline int ClampToInt(long long value)
{
    constexpr long long Highest = 0x7fffffffLL;
    return static_cast<int>(value > Highest ? Highest : value < -Highest - 1 ? -Highest - 1 : value);
}

//! The low 16 bits of a number, as a signed number: the width of the lengths that an axis computes with.
inline int CutTo16Bits(long long value)
{
    long long const low = value & 0xffff;
    return static_cast<int>(low > 0x7fff ? low - 0x10000 : low);
}

#endif
