// SPDX-License-Identifier: MIT
#include "timetics.h"

#include "toint.h"

#include <algorithm>
#include <cmath>
#include <limits>

TimeTics::Format const & TimeTics::FormatOf(int number)
{
    bool const isKnown = number >= 1 && number <= static_cast<int>(Formats.size());
    return isKnown ? Formats[static_cast<std::size_t>(number) - 1] : OtherFormat;
}

TimeTics::Row const * TimeTics::RowOf(double start, double stop)
{
    if (start == stop)
        return nullptr;
    auto const range = toInt<long long>(std::fabs(stop - start));
    auto const row =
        std::find_if(Rows.begin(), Rows.end(), [range](Row const & candidate) { return range >= candidate.from; });
    return row == Rows.end() ? nullptr : &*row; // the end for NaN and a range that 64 bits do not hold
}

TimeTics::Tics TimeTics::Find(double start, double stop, long long step)
{
    auto const distance = static_cast<double>(step);
    double const low = std::min(start, stop);
    double const high = std::max(start, stop);
    double const number = std::trunc((low - distance) / distance) + 0.0; // no negative zero
    bool const fits =
        number >= std::numeric_limits<int>::min() && number <= std::numeric_limits<int>::max(); // false for NaN
    if (!fits)
        return {};
    double const first = number * distance;
    double steps = std::floor((high - first) / distance);
    if (first + steps * distance > high) // the quotient was rounded up
        steps -= 1.0;
    return { first, std::max(toInt(steps), -1) + 1 };
}
