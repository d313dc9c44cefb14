// SPDX-License-Identifier: MIT
#include "signalquality.h"

#include "toint.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr std::size_t MostLevels = 1024;

} // namespace

double SignalQuality::NoiseLevel(std::vector<double> const & levels)
{
    std::size_t const step = (levels.size() + MostLevels - 1) / MostLevels;
    std::vector<double> finite;
    finite.reserve(std::min(levels.size(), MostLevels));
    for (std::size_t i = 0; i < levels.size(); i += step) {
        if (std::isfinite(levels[i]))
            finite.push_back(levels[i]);
    }
    if (finite.empty())
        return std::numeric_limits<double>::quiet_NaN();
    auto const middle = finite.begin() + static_cast<std::ptrdiff_t>(finite.size() / 2);
    std::nth_element(finite.begin(), middle, finite.end());
    return *middle;
}

int SignalQuality::QualityOf(double level, double noise, int steps)
{
    double const height = level - noise;
    if (steps < 2 || !(height >= LeastHeight))
        return 0;
    double const signals = steps - 1.0;
    double const part = (height - LeastHeight) / (BestHeight - LeastHeight);
    return toInt(std::min(1.0 + std::floor(part * signals), signals));
}
