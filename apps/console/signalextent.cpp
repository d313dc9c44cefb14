// SPDX-License-Identifier: MIT
#include "signalextent.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace {

constexpr double AboveNoise = 6.0; // dB
constexpr double BelowPeak = 40.0; // dB
constexpr int Gap = 2;             // columns within a signal that may lie in the noise
constexpr int MostPart = 4;        // a signal takes the spectrum by this part at most

double Median(std::vector<double> const & levels)
{
    std::vector<double> finite;
    std::copy_if(levels.begin(), levels.end(), std::back_inserter(finite),
                 [](double level) { return std::isfinite(level); });
    if (finite.empty())
        return 0.0;
    auto const middle = finite.begin() + static_cast<std::ptrdiff_t>(finite.size() / 2);
    std::nth_element(finite.begin(), middle, finite.end());
    return *middle;
}

//! Columns of a spectrum with those that are taken.
class Columns
{
public:
    Columns(std::vector<double> const & levels, std::vector<bool> const & taken)
        : m_levels(levels)
        , m_taken(taken)
        , m_noise(Median(levels))
    {}

    int Count() const { return static_cast<int>(m_levels.size()); }

    bool IsFree(int column) const
    {
        auto const at = static_cast<std::size_t>(column);
        return column >= 0 && column < Count() && !(at < m_taken.size() && m_taken[at]);
    }

    int Highest() const
    {
        int best = -1;
        for (int column = 0; column < Count(); ++column) {
            double const level = m_levels[static_cast<std::size_t>(column)];
            if (IsFree(column) && std::isfinite(level) &&
                (best < 0 || level > m_levels[static_cast<std::size_t>(best)]))
                best = column;
        }
        return best;
    }

    //! The last column of the signal on one side, at most \a most away.
    int End(int peak, int step, int most) const
    {
        double const edge = std::max(m_noise + AboveNoise, m_levels[static_cast<std::size_t>(peak)] - BelowPeak);
        int end = peak;
        for (int away = 1; away <= most; ++away) {
            int const column = peak + step * away;
            if (!IsFree(column) || std::abs(column - end) > Gap + 1)
                break;
            if (m_levels[static_cast<std::size_t>(column)] >= edge)
                end = column;
        }
        return end;
    }

private:
    std::vector<double> const & m_levels;
    std::vector<bool> const & m_taken;
    double m_noise; // dB
};

} // namespace

SignalExtent FindSignal(std::vector<double> const & levels, std::vector<bool> const & taken, int least)
{
    Columns const columns(levels, taken);
    int const peak = columns.Highest();
    if (peak < 0)
        return { 0, -1 };
    int const most = columns.Count() / MostPart / 2;
    int const first = columns.End(peak, -1, most);
    int const last = columns.End(peak, 1, most);
    int const width = std::min(std::max(least, last - first + 1), columns.Count());
    int const left = std::clamp(first - (width - (last - first + 1)) / 2, 0, columns.Count() - width);
    return { left, left + width - 1 };
}
