// SPDX-License-Identifier: MIT
#include "levelfit.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double Grid = 10.0; // dB, as all below
constexpr double BelowNoise = 15.0;
constexpr double AbovePeak = 5.0;
constexpr double LeastSpan = 40.0;

} // namespace

LevelRange FitLevels(std::vector<double> const & levels)
{
    std::vector<double> finite;
    std::copy_if(levels.begin(), levels.end(), std::back_inserter(finite),
                 [](double level) { return std::isfinite(level); });
    if (finite.empty())
        return { -120.0, 0.0 };
    auto const middle = finite.begin() + static_cast<std::ptrdiff_t>(finite.size() / 2);
    std::nth_element(finite.begin(), middle, finite.end());
    double const noise = *middle;
    double const peak = *std::max_element(finite.begin(), finite.end());
    double const min = std::floor((noise - BelowNoise) / Grid) * Grid;
    double const max = std::ceil((peak + AbovePeak) / Grid) * Grid;
    return { min, std::max(max, min + LeastSpan) };
}
