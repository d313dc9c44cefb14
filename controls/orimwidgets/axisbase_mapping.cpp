// SPDX-License-Identifier: MIT
#include "axisbase.h"

#include "toint.h"

#include <algorithm>
#include <cmath>

QRect AxisBase::innerRect() const
{
    QRect inner = rect();
    inner.setLeft(m_leftTopOffset);
    inner.setRight(ClampToInt(static_cast<long long>(inner.right()) - m_rightBottomOffset));
    return inner;
}

PixelMap const & AxisBase::Map() const
{
    QRect const inner = innerRect();
    PixelMap::EDirection const direction = IsHorizontal() ? PixelMap::eHorizontal
                                           : IsVertical() ? PixelMap::eVertical
                                                          : PixelMap::eNoDirection;
    bool const alongX = direction != PixelMap::eVertical;
    int const first = alongX ? inner.left() : inner.top();
    int const last = alongX ? inner.right() : inner.bottom();
    bool const wrapped = (m_axisType & AxisWrapped) != 0;
    PixelMap::Layout const & known = m_map.GetLayout();
    bool const isKnown = (known.start == m_start) & (known.stop == m_stop) & (known.first == first) &
                         (known.last == last) & (known.direction == direction) & (known.wrapped == wrapped) &
                         (known.wrapSpan == GetWrapValue()); // without a branch for each: this runs for every value
    if (!isKnown)
        m_map = PixelMap({ m_start, m_stop, direction, first, last, wrapped, GetWrapValue() });
    return m_map;
}

int AxisBase::ValueToPixel(double value) const { return Map().ToPixel(value); }

double AxisBase::PixelToValue(int pixel) const
{
    if (!IsHorizontal() || !IsVertical())
        return Map().ToValue(pixel);
    QRect const inner = innerRect(); // vertical this way, horizontal the other
    return PixelMap({ m_start, m_stop, PixelMap::eVertical, inner.top(), inner.bottom(), false, 0.0 }).ToValue(pixel);
}

void AxisBase::ValuesToPixels(double const * values, int * pixels, std::size_t count) const
{
    Map().ToPixels(values, pixels, count);
}

int AxisBase::ValueToPixel(int /*section*/, double value) { return ValueToPixel(value); }

double AxisBase::PixelToValue(int /*section*/, int pixel) { return PixelToValue(pixel); }

int AxisBase::ValueToPixel(double value, bool * ok, bool invert) const
{
    int const pixel = ValueToPixel(value);
    if (!ok)
        return pixel;
    *ok = pixel >= 0;
    return invert ? ClampToInt(GetCalcWidth() - 1LL - pixel) : pixel;
}

bool AxisBase::RangeToPixel(double a, double b, int & pa, int & pb, bool invert) const
{
    bool ok = false;
    pa = ValueToPixel(a, &ok, invert);
    if (ok)
        pb = ValueToPixel(b, &ok, invert);
    return ok;
}

double AxisBase::PixelToValue(int pixel, bool * ok, bool invert) const
{
    if (invert) {
        long long const length = IsHorizontal() ? rect().right() - rect().left() : rect().bottom() - rect().top();
        pixel = ClampToInt(length - m_leftTopOffset - m_rightBottomOffset - pixel);
    }
    double const value = PixelToValue(pixel);
    if (ok)
        *ok = value >= 0.0;
    return value;
}

int AxisBase::GetPixelCnt() const { return width(); }

int AxisBase::GetCalcWidth() const
{
    long long const extent = IsHorizontal() ? width() : height();
    return ClampToInt(extent - m_leftTopOffset - m_rightBottomOffset);
}

bool AxisBase::IsPixelValid(int pixel) const
{
    long long const extent = IsHorizontal() ? width() : height();
    return m_leftTopOffset <= pixel && pixel <= extent - m_rightBottomOffset;
}

double AxisBase::GetPixelsForXUnit(int /*section*/) const { return (width() - 1) / (m_stop - m_start); }

double AxisBase::GetXUnitsForPixel(int section) const { return 1.0 / GetPixelsForXUnit(section); }

int AxisBase::GetSectionCnt() const { return 1; }

IHMap * AxisBase::HMap() { return this; }

int AxisBase::DistanceToPixel(double distance) { return toInt(std::ceil(GetPixelsForXUnit(0) * distance)); }

void AxisBase::RebuildSections() { Repair(); }

AxisBase::InRange AxisBase::CheckInRange(double value) const
{
    if (value < std::min(m_start, m_stop))
        return InRangeBelow;
    return value > std::max(m_start, m_stop) ? InRangeAbove : InRangeInside;
}
