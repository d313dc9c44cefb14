// SPDX-License-Identifier: MIT
#include "rowtics.h"

#include "numbertexts.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr double RowSlack = 1e-6;    // steps: a row on a multiple has reached it
constexpr double Hour = 3600.0;      // s
constexpr double FinestStart = 0.01; // s, of the label of a time that begins anew

// s; time passes in steps that divide the minute and the hour
constexpr std::array<double, 22> TimeSteps{
    { 0.001, 0.002, 0.005, 0.01, 0.02, 0.05, 0.1,  0.2,   0.5,   1.0,   2.0,
      5.0,   10.0,  15.0,  30.0, 60.0, 120., 300., 600.0, 900.0, 1800., Hour }
};

double SmallestAdvance(std::vector<double> const & stamps)
{
    double least = 0.0;
    for (std::size_t row = 1; row < stamps.size(); ++row) {
        double const advance = stamps[row - 1] - stamps[row];
        if (advance > 0.0 && (least == 0.0 || advance < least))
            least = advance;
    }
    return least;
}

//! The smallest step that is not below a time; beyond the table whole hours.
double StepFrom(double least)
{
    auto const wanted =
        std::find_if(TimeSteps.begin(), TimeSteps.end(), [least](double step) { return step >= least; });
    return wanted != TimeSteps.end() ? *wanted : std::ceil(least / Hour) * Hour;
}

QString TimeLabel(double seconds, double step)
{
    QString const text = NumberTexts::Time(seconds, step);
    return text.contains(QLatin1Char(':')) ? text : text + QLatin1String(" s");
}

} // namespace

std::vector<RowTics::Tic> RowTics::Lay(std::vector<double> const & stamps, int spacing)
{
    int const apart = std::max(1, spacing);
    double const advance = SmallestAdvance(stamps);
    double const least = advance * apart;
    std::vector<Tic> tics;
    if (!(least > 0.0) || !std::isfinite(least))
        return tics;
    double const step = StepFrom(least);
    int last = static_cast<int>(stamps.size()) + apart; // row of the last label
    for (int row = static_cast<int>(stamps.size()) - 2; row >= 0; --row) {
        double const time = stamps[static_cast<std::size_t>(row)];
        double const before = stamps[static_cast<std::size_t>(row) + 1];
        double const count = std::floor(time / step + RowSlack);
        bool const isAnew = time < before;
        if ((count == std::floor(before / step + RowSlack) && !isAnew) || last - row < apart)
            continue;
        tics.push_back(
            { row, isAnew ? TimeLabel(time, std::max(advance, FinestStart)) : TimeLabel(count * step, step) });
        last = row;
    }
    return tics;
}
