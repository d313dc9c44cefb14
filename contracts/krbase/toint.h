// SPDX-License-Identifier: MIT
#ifndef ORIM_TOINT_H
#define ORIM_TOINT_H

#include <cmath>
#include <limits>
#include <type_traits>

//! Converts a double to an integer, truncated towards zero; defined for every double.
//! \param value  any double.
//! \return the truncated value; the lowest value of T (0 for an unsigned T) when \a value is NaN, infinite, or
//! truncates
//!         to a number that T cannot hold.
template <class T>
inline T toInt(double value) noexcept
{
    static_assert(std::is_integral<T>::value, "toInt makes integers");
    // 2^digits is exact as a double, so both comparisons are exact; where below - 1 is not, it is below, which is the
    // lowest value and so the answer
    double const above = std::ldexp(1.0, std::numeric_limits<T>::digits);
    double const below = std::is_signed<T>::value ? -above : 0.0;
    bool const fits = value > below - 1.0 && value < above; // false for NaN
    return fits ? static_cast<T>(value) : std::numeric_limits<T>::lowest();
}

//! The same for int, the type of pixels, indices and keys.
inline int toInt(double value) noexcept { return toInt<int>(value); }

#endif
