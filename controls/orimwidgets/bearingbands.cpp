// SPDX-License-Identifier: MIT
#include "bearingbands.h"

#include "toint.h"

#include <algorithm>
#include <cmath>

namespace {

using BearingBands::Strip;

double Inside(Strip const & strip, double value) { return std::min(strip.stop, std::max(strip.start, value)); }

double Fraction(Strip const & strip, double value)
{
    double part = (value - std::min(strip.start, strip.stop)) / std::fabs(strip.stop - strip.start);
    if (strip.start > strip.stop)
        part = 1.0 - part;
    return strip.invert ? 1.0 - part : part;
}

//! \param atStart, atStop  the pixels of the ends of the range.
double PixelOf(Strip const & strip, double value, int atStart, int atStop)
{
    if (value == strip.start)
        return atStart;
    if (value == strip.stop)
        return atStop;
    return std::trunc(strip.length * Fraction(strip, value));
}

} // namespace

BearingBands::Pixels BearingBands::PixelsOf(Strip const & strip, double from, double to)
{
    double const first = Inside(strip, from);
    double const second = Inside(strip, to);
    if (strip.start == strip.stop || first == second)
        return {};
    int const length = strip.length;
    double const a = PixelOf(strip, first, strip.invert ? length - 1 : 0, strip.invert ? 0 : length - 1);
    double b = PixelOf(strip, second, strip.invert ? length : 0, strip.invert ? 0 : length);
    if ((second == strip.start && strip.invert) || (second == strip.stop && second != strip.start && !strip.invert))
        b -= 1.0;
    if (std::isnan(a) || std::isnan(b))
        return {};
    double const lower = std::min(a, b);
    return { toInt(lower + strip.origin), toInt(std::max(a, b) - lower) };
}
