// SPDX-License-Identifier: MIT
#include "colorrule.h"

#include "rangefold.h"
#include "toint.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr ColorPick Entry(int index) { return { ColorPick::eEntry, index, 0.0 }; }

ColorPick PickByIndex(double value, int last) { return Entry(std::clamp(toInt(value + 0.5), 0, last)); }

ColorPick PickSmooth(double t, int last)
{
    double const position = t * last;
    auto const index = std::min(toInt<unsigned int>(position), static_cast<unsigned int>(last));
    double const part = position - index;
    if (static_cast<int>(index) < last)
        return { ColorPick::eBlend, static_cast<int>(index), part };
    return Entry(static_cast<int>(index));
}

//! \a t is already turned round by \a inverse; at the very ends the bands turn once more.
ColorPick PickBand(double t, int length, bool inverse)
{
    int const last = length - 1;
    if (t <= 0.0)
        return Entry(inverse ? last : 0);
    if (t >= 1.0)
        return Entry(inverse ? 0 : last);
    return Entry(std::clamp(toInt(length * t), 0, last)); // NaN: the first
}

} // namespace

ColorPick PickColor(ColorRule const & rule, int length, double value, double min, double max, bool inverse)
{
    int const last = length - 1;
    if (rule.pureIndex)
        return PickByIndex(value, last);

    double v = value + rule.offset;
    bool const single = !rule.fixed && max == min;
    double low = min;
    double high = max;
    if (rule.fixed) {
        low = rule.start;
        high = rule.stop;
        if (rule.wrap)
            v = FoldIntoRange(v, low, high);
        else if (v <= low)
            return Entry(inverse ? last : 0);
        else if (v >= high)
            return Entry(inverse ? 0 : last);
    }
    double t = single ? 0.0 : (v - low) / (high - low);
    if (t < 0.0 || t > 1.0)
        return { ColorPick::eOutOfRange, 0, 0.0 };
    if (inverse)
        t = 1.0 - t;
    return rule.smooth ? PickSmooth(t, last) : PickBand(t, length, inverse);
}

int BlendChannel(int low, int high, double part) { return toInt(high * part + low * (1.0 - part)); }

QRgb PickedRgb(ColorPick const & pick, QRgb const * colors)
{
    if (pick.kind == ColorPick::eOutOfRange)
        return OutOfRangeRgb;
    QRgb const low = colors[pick.index];
    if (pick.kind == ColorPick::eEntry)
        return low;
    if (std::isnan(pick.part))
        return qRgb(0, 0, 0);
    QRgb const high = colors[pick.index + 1];
    return qRgb(BlendChannel(qRed(low), qRed(high), pick.part), BlendChannel(qGreen(low), qGreen(high), pick.part),
                BlendChannel(qBlue(low), qBlue(high), pick.part));
}

bool NormaliseRange(double & start, double & stop)
{
    bool const swapped = stop < start;
    if (swapped)
        std::swap(start, stop);
    bool const equal = stop == start;
    if (equal)
        stop = start + 1.0;
    return swapped || equal;
}
