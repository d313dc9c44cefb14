// SPDX-License-Identifier: MIT
#include "valuewrap.h"

#include "rangefold.h"

#include <cmath>

namespace {

constexpr double Turn = 360.0; // degrees

} // namespace

double WrapForDisplay(double value, long key)
{
    if (!std::isfinite(value))
        return value;
    if ((key & eAzimuthSigned) != 0)
        return FoldByTurns(value, -179.9, 180.0, Turn);
    if ((key & eAzimuthPositive) != 0)
        return FoldByTurns(value, 0.0, 359.9, Turn);
    return value;
}
