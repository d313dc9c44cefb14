// SPDX-License-Identifier: MIT
#include "bearingrows.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double Turn = 360.0; // deg

PixelMap MapOf(BearingRows::Layout const & layout)
{
    PixelMap::Layout map;
    map.start = layout.start;
    map.stop = layout.stop;
    map.direction = PixelMap::eVertical;
    map.first = layout.first;
    map.last = layout.last;
    return PixelMap(map);
}

} // namespace

BearingRows::BearingRows(Layout const & layout) : m_layout(layout), m_map(MapOf(layout)) {}

//! From the start of the range to below a turn more.
double BearingRows::Turned(double degrees) const
{
    if (!m_layout.isCircle)
        return degrees;
    double const turned = std::fmod(degrees - m_layout.start, Turn);
    double const part = turned < 0.0 ? turned + Turn : turned;
    return (part < Turn ? part : 0.0) + m_layout.start;
}

int BearingRows::RowOf(double degrees) const
{
    double const turned = Turned(degrees);
    bool const isInside = std::isfinite(degrees) && DegreesARow() > 0.0 && turned <= m_layout.stop;
    return isInside ? m_map.ToPixel(turned) : -1;
}

void BearingRows::AddPart(std::vector<Part> & parts, double low, double high) const
{
    int const top = m_map.ToPixel(std::min(high, m_layout.stop));
    int const bottom = m_map.ToPixel(std::max(low, m_layout.start));
    if (low <= m_layout.stop && high >= m_layout.start && top >= 0 && bottom >= 0)
        parts.push_back({ top, bottom });
}

std::vector<BearingRows::Part> BearingRows::PartsOf(double middle, double half) const
{
    std::vector<Part> parts;
    if (!std::isfinite(middle) || !std::isfinite(half) || !(DegreesARow() > 0.0))
        return parts;
    double const held = std::max(0.0, half);
    if (!m_layout.isCircle) {
        AddPart(parts, middle - held, middle + held);
        return parts;
    }
    if (2.0 * held >= Turn) {
        AddPart(parts, m_layout.start, m_layout.stop);
        return parts;
    }
    double const low = Turned(middle - held);
    double const high = low + 2.0 * held;
    AddPart(parts, low, high);
    if (high - Turn > m_layout.start)
        AddPart(parts, m_layout.start, high - Turn);
    return parts;
}

double BearingRows::DegreesARow() const
{
    double const rows = static_cast<double>(m_layout.last) - m_layout.first + 1.0;
    double const span = m_layout.stop - m_layout.start;
    return rows > 0.0 && span > 0.0 && std::isfinite(span) ? span / rows : 0.0;
}
