// SPDX-License-Identifier: MIT
#ifndef ORIM_SAMEVALUE_H
#define ORIM_SAMEVALUE_H

#include <cmath>

//! Whether a write of \a b over \a a would change nothing. For doubles NaN is the same as NaN and -0.0 the same as 0.0,
//! so that two values bound to each other come to rest.
template <class T>
inline bool sameValue(T const & a, T const & b)
{
    return a == b;
}

template <>
inline bool sameValue<double>(double const & a, double const & b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

#endif
