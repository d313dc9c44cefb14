// SPDX-License-Identifier: MIT
#include "zoomband.h"

#include "pixelmap.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace {

constexpr long long LeastBand = 6; // px
constexpr int Farthest = 1 << 24;  // px, beyond the end of any widget
constexpr double Unset = -1.0;

} // namespace

namespace ZoomBand {

bool IsWithin(Span const & span, int pixel) { return pixel > span.first && pixel < span.last + 1; }

int Clamp(Span const & span, int pixel)
{
    if (pixel <= span.first)
        return ClampToInt(span.first);
    return pixel < span.last + 1 ? pixel : ClampToInt(span.last);
}

bool IsClick(int a, int b) { return std::llabs(static_cast<long long>(a) - b) < LeastBand; }

std::array<QRect, 2> CoverBeside(QRect const & area, bool vertical, int a, int b)
{
    int const low = std::clamp(std::min(a, b), -Farthest, Farthest);
    int const high = std::clamp(std::max(a, b), -Farthest, Farthest);
    if (vertical)
        return { QRect(area.left(), area.top(), area.right(), low),
                 QRect(area.left(), high, area.right(), area.bottom()) };
    return { QRect(area.left(), area.top(), low, area.bottom()), QRect(high, area.top(), area.right(), area.bottom()) };
}

double WithoutRounding(double value, double low, double high)
{
    double const rounding = (std::abs(low) + std::abs(high)) * std::numeric_limits<double>::epsilon();
    if (value < low && value >= low - rounding)
        return low;
    return value > high && value <= high + rounding ? high : value;
}

double HalfWidth(double center, double start, double stop)
{
    return std::max(std::abs(center - start), std::abs(center - stop));
}

bool Differ(double start, double stop) { return start < stop || start > stop; }

bool IsUsable(double start, double stop) { return start != Unset && stop != Unset && Differ(start, stop); }

} // namespace ZoomBand
