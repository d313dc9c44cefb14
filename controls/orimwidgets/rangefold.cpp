// SPDX-License-Identifier: MIT
#include "rangefold.h"

#include <cmath>

namespace {

//! More than every walk that ends needs: some 110 binades lie between the farthest value that a turn still moves and
//! the range, and each takes a handful of turns.
constexpr int MaxTurns = 4096;

//! Whether three doubles have one exponent and sign, and so one spacing of doubles about them.
bool InOneBinade(double a, double b, double c)
{
    return std::isfinite(a) && std::isfinite(b) && std::isfinite(c) && std::signbit(a) == std::signbit(c) &&
           std::ilogb(a) == std::ilogb(b) && std::ilogb(b) == std::ilogb(c);
}

//! The number at which a walk from \a from in the direction of \a step leaves the binade of \a from.
double BinadeEnd(double from, double step)
{
    double const low = std::ldexp(1.0, std::ilogb(from));
    bool const grows = std::signbit(from) == std::signbit(step);
    return std::copysign(grows ? 2.0 * low : low, from);
}

//! Where a walk stands after all the turns that can be taken at once. Inside one binade every turn but the first moves
//! by the same rounded distance, so that many turns are one exact product; the last few before \a bound and before the
//! end of the binade are left to the caller.
double SkipEqualTurns(double value, double step, double bound)
{
    double const first = value + step;
    double const second = first + step;
    double const third = second + step;
    if (!InOneBinade(first, second, third))
        return value;
    double const distance = third - second;
    double const end = BinadeEnd(third, step);
    double const target = step > 0.0 ? std::fmin(end, bound) : std::fmax(end, bound);
    double const turns = (target - third) / distance;
    double const safe = std::floor(turns * (1.0 - 0x1p-50)) - 2.0;
    return safe > 0.0 && std::isfinite(safe) ? third + safe * distance : value;
}

//! Repeats value += step until \a done holds. \return false when that never happens.
template <class Done>
bool Walk(double & value, double step, double bound, Done done)
{
    for (int turn = 0; turn < MaxTurns; ++turn) {
        if (done(value))
            return true;
        double const next = value + step;
        if (next == value)
            return false;
        value = next;
        if (turn > 1)
            value = SkipEqualTurns(value, step, bound);
    }
    return false;
}

} // namespace

double FoldIntoRange(double value, double start, double stop)
{
    double const extent = stop - start;
    double folded = value;
    // negated comparisons: NaN ends both walks
    bool const ends = Walk(folded, extent, start, [start](double v) { return !(v <= start); }) &&
                      Walk(folded, -extent, stop, [stop](double v) { return !(v >= stop); });
    if (ends)
        return folded;
    double const rest = std::fmod(value - start, extent);
    return start + (rest < 0.0 ? rest + extent : rest);
}

double FoldByTurns(double value, double low, double high, double turn)
{
    double folded = value;
    bool const ends = Walk(folded, turn, low, [low](double v) { return !(v < low); }) &&
                      Walk(folded, -turn, high, [high](double v) { return !(v > high); });
    if (ends)
        return folded;
    double const rest = std::fmod(value - low, turn);
    double const inside = low + (rest < 0.0 ? rest + turn : rest);
    return inside > high ? inside - turn : inside;
}
