// SPDX-License-Identifier: MIT
#include "scalelayout.h"

#include "samevalue.h"
#include "toint.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace {

constexpr double LargestNumber = 0x1p52; // beyond it a step is lost in the value
constexpr std::array<int, 13> LabelSteps{ 1, 2, 5, 10, 20, 50, 100, 200, 500, 1000, 2000, 5000, 10000 };

double ValueAt(ScaleTics const & tics, int index) { return index * tics.ticStep + tics.firstTic + tics.ticOffset; }

bool AreUsable(ScaleTics const & tics)
{
    return tics.ticCount > 0 && tics.ticStep > 0.0 && std::isfinite(tics.ticStep) && std::isfinite(tics.firstTic) &&
           std::isfinite(tics.ticOffset);
}

//! The multiple of the step that tic 0 is nearest to; 0 when doubles cannot tell.
long long FirstNumber(ScaleTics const & tics)
{
    double const number = std::round(ValueAt(tics, 0) / tics.ticStep);
    return std::abs(number) <= LargestNumber ? toInt<long long>(number) : 0; // 0 for NaN
}

} // namespace

bool ScaleTics::operator==(ScaleTics const & other) const
{
    return sameValue(start, other.start) && sameValue(stop, other.stop) && sameValue(firstTic, other.firstTic) &&
           sameValue(ticStep, other.ticStep) && sameValue(ticOffset, other.ticOffset) && ticCount == other.ticCount &&
           minorTics == other.minorTics;
}

void ScaleLayout::SetTics(ScaleTics const & tics, Extent const & extent)
{
    m_tics.clear();
    m_minorTics.clear();
    m_labels.clear();
    m_unitStart = -1;
    if (!TakeRange(tics, extent) || !AreUsable(tics))
        return;
    m_ticDistance = tics.ticStep / m_span * m_length;
    FindTics(tics);
    FindMinorTics(tics, extent.minorDistance);
    if (m_falling) {
        std::reverse(m_tics.begin(), m_tics.end());
        std::reverse(m_minorTics.begin(), m_minorTics.end());
    }
}

bool ScaleLayout::TakeRange(ScaleTics const & tics, Extent const & extent)
{
    m_length = 0;
    m_vertical = extent.vertical;
    m_origin = std::clamp(extent.origin, -Longest, Longest);
    m_low = std::min(tics.start, tics.stop);
    m_high = std::max(tics.start, tics.stop);
    m_span = m_high - m_low;
    m_falling = m_vertical ? tics.stop > tics.start : tics.start > tics.stop;
    m_end = m_vertical ? tics.start : tics.stop;
    bool const isUsable = m_span > 0.0 && std::isfinite(m_span); // false for NaN
    if (isUsable && extent.length > 0 && extent.length <= Longest)
        m_length = extent.length;
    return m_length > 0;
}

int ScaleLayout::ToPixel(double value) const
{
    bool const isInside = value >= m_low && value <= m_high; // false for NaN
    if (m_length < 1 || !isInside)
        return -1;
    if (value == m_end)
        return m_length - 1;
    double const part = (value - m_low) / m_span;
    double const pixel = m_length * (m_falling ? 1.0 - part : part) + m_origin;
    return std::clamp(toInt(pixel) - m_origin, 0, m_length - 1);
}

void ScaleLayout::FindTics(ScaleTics const & tics)
{
    long long const first = FirstNumber(tics);
    int const count = std::min(tics.ticCount, MostTics);
    for (int i = 0; i < count; ++i) {
        double const value = ValueAt(tics, i);
        int const pixel = ToPixel(value);
        bool const rises = m_tics.empty() || value > m_tics.back().value;
        if (pixel >= 0 && rises)
            m_tics.push_back({ value, pixel, first + i });
    }
}

void ScaleLayout::FindMinorTics(ScaleTics const & tics, int minorDistance)
{
    int const count = std::min(tics.ticCount, MostTics);
    if (tics.minorTics < 1 || tics.minorTics > MostMinorTics / (count + 1))
        return;
    int const parts = tics.minorTics + 1;
    if (!(m_ticDistance / parts >= minorDistance))
        return;
    int last = -1;
    for (int i = -1; i < count; ++i) {
        for (int part = 1; part < parts; ++part) {
            int const pixel = ToPixel(ValueAt(tics, i) + tics.ticStep * part / parts);
            if (pixel >= 0 && pixel != last)
                m_minorTics.push_back(pixel);
            last = pixel;
        }
    }
}

long long ScaleLayout::LabelEvery(long long extent) const
{
    auto const wanted = std::find_if(LabelSteps.begin(), LabelSteps.end(), [this, extent](int step) {
        return std::floor(m_ticDistance * step) >= static_cast<double>(extent);
    });
    return wanted != LabelSteps.end() ? *wanted : LabelSteps.back();
}

void ScaleLayout::PlaceLabels(std::vector<int> const & extents, int gap, int unitExtent)
{
    m_labels.clear();
    m_unitStart = -1;
    if (m_length < 1)
        return;
    std::size_t const count = std::min(extents.size(), m_tics.size());
    auto const end = extents.begin() + static_cast<std::ptrdiff_t>(count);
    int const widest = count > 0 ? std::max(0, *std::max_element(extents.begin(), end)) : 0;
    Room room{ 0, m_length, std::clamp(gap, 0, Longest) };
    if (unitExtent > 0 && static_cast<long long>(unitExtent) + room.gap + widest <= m_length) {
        m_unitStart = m_vertical ? 0 : m_length - unitExtent;
        (m_vertical ? room.low : room.high) = m_vertical ? unitExtent + room.gap : m_unitStart - room.gap;
    }
    long long const every = LabelEvery(static_cast<long long>(widest) + room.gap + 1); // tics are cut to whole pixels
    for (std::size_t i = 0; i < count; ++i) {
        if (extents[i] > 0 && m_tics[i].number % every == 0)
            PlaceLabel(static_cast<int>(i), extents[i], room);
    }
}

void ScaleLayout::PlaceLabel(int tic, int extent, Room const & room)
{
    int const pixel = m_tics[static_cast<std::size_t>(tic)].pixel;
    if (extent > room.high - room.low)
        return;
    int const centred = pixel - extent / 2;
    int const start = std::clamp(centred, room.low, room.high - extent);
    bool const moved = start != centred;
    if (pixel < start || pixel >= start + extent)
        return;
    auto const touchesLast = [this, start, &room] {
        return !m_labels.empty() && m_labels.back().start + m_labels.back().extent + room.gap > start;
    };
    if (touchesLast() && m_labels.back().moved && !moved)
        m_labels.pop_back();
    if (!touchesLast())
        m_labels.push_back({ tic, start, extent, moved });
}
