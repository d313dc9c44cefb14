// SPDX-License-Identifier: MIT
#ifndef ORIM_SPECIALDOUBLES_H
#define ORIM_SPECIALDOUBLES_H

#include <cfloat>
#include <cmath>
#include <limits>
#include <vector>

//! Doubles at which computations break: no numbers, ends of types, neighbours, and what a screen shows.
inline std::vector<double> SpecialDoubles()
{
    std::vector<double> all{ std::numeric_limits<double>::quiet_NaN(), -std::numeric_limits<double>::quiet_NaN() };
    for (double const value : { 0.0,
                                DBL_TRUE_MIN,
                                DBL_MIN,
                                DBL_EPSILON,
                                1e-300,
                                1e-290,
                                1e-9,
                                0.1,
                                0.5,
                                1.0,
                                std::nextafter(1.0, 0.0),
                                std::nextafter(1.0, 2.0),
                                3.0,
                                100.0,
                                std::nextafter(100.0, 0.0),
                                179.95,
                                180.0,
                                359.95,
                                360.0,
                                std::nextafter(360.0, 0.0),
                                32767.0,
                                32768.0,
                                0x1p31 - 1,
                                0x1p31,
                                0x1p31 + 1,
                                1e13,
                                1e13 + 1e-3,
                                0x1p53 - 1,
                                0x1p53,
                                0x1p53 + 2,
                                0x1p63,
                                0x1p64,
                                1e20,
                                1e290,
                                1e300,
                                DBL_MAX,
                                std::numeric_limits<double>::infinity() }) {
        all.push_back(value);
        all.push_back(-value);
    }
    return all;
}

#endif
