// SPDX-License-Identifier: MIT
#include "gridtics.h"

#include "numbertexts.h"
#include "toint.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr double Slack = 1e-9;    // steps: a multiple on the very end of the range is one within it
constexpr double RowSlack = 1e-6; // steps
constexpr int CoarserSteps = 30;  // ten powers of ten
constexpr std::array<double, 3> Mantissas{ { 1.0, 2.0, 5.0 } };

// s; time passes in steps that divide the minute and the hour
constexpr std::array<double, 22> TimeSteps{
    { 0.001, 0.002, 0.005, 0.01, 0.02, 0.05, 0.1,  0.2,   0.5,   1.0,   2.0,
      5.0,   10.0,  15.0,  30.0, 60.0, 120., 300., 600.0, 900.0, 1800., 3600. }
};

int PixelOf(GridTics::Axis const & axis, double value)
{
    return toInt(std::floor((value - axis.first) / (axis.last - axis.first) * axis.length + Slack));
}

std::vector<GridTics::Tic> TicsOf(GridTics::Axis const & axis, GridTics::Labels const & labels, double step)
{
    std::vector<GridTics::Tic> tics;
    for (double const value :
         GridTics::Multiples(std::min(axis.first, axis.last), std::max(axis.first, axis.last), step)) {
        int const pixel = std::min(PixelOf(axis, value), axis.length - 1);
        QString const label = labels.text(value, step);
        int const extent = labels.extent(label);
        int const start = pixel - extent / 2;
        bool const fits = start >= labels.lowest && start + extent - 1 <= labels.highest;
        tics.push_back({ value, pixel, fits ? label : QString(), start, extent });
    }
    if (axis.first > axis.last)
        std::reverse(tics.begin(), tics.end());
    return tics;
}

bool LabelsKeepDistance(std::vector<GridTics::Tic> const & tics, int gap)
{
    GridTics::Tic const * before = nullptr;
    for (GridTics::Tic const & tic : tics) {
        if (tic.label.isEmpty())
            continue;
        if (before && before->labelStart + before->labelExtent + gap > tic.labelStart)
            return false;
        before = &tic;
    }
    return true;
}

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

QString TimeLabel(double seconds, double step)
{
    QString const text = NumberTexts::Time(seconds, step);
    return text.contains(QLatin1Char(':')) ? text : text + QLatin1String(" s");
}

} // namespace

double GridTics::NiceStep(double least)
{
    if (!(least > 0.0) || !std::isfinite(least))
        return 0.0;
    double const power = std::pow(10.0, std::floor(std::log10(least)));
    for (double const mantissa : Mantissas) {
        if (mantissa * power >= least * (1.0 - Slack))
            return mantissa * power;
    }
    return 10.0 * power;
}

std::vector<double> GridTics::Multiples(double low, double high, double step)
{
    std::vector<double> values;
    double const first = std::ceil(low / step - Slack);
    double const last = std::floor(high / step + Slack);
    double const count = last - first + 1.0;
    if (!(step > 0.0) || !(count >= 1.0 && count <= MostTics)) // false for NaN
        return values;
    for (int index = 0; index < toInt(count); ++index)
        values.push_back((first + index) * step);
    return values;
}

std::vector<GridTics::Tic> GridTics::Lay(Axis const & axis, Labels const & labels)
{
    double const span = std::abs(axis.last - axis.first);
    if (!std::isfinite(span) || !(span > 0.0) || axis.length < 2)
        return {};
    double step = NiceStep(span * std::max(1, labels.spacing) / axis.length);
    for (int attempt = 0; attempt < CoarserSteps && step > 0.0; ++attempt) {
        std::vector<Tic> tics = TicsOf(axis, labels, step);
        if (LabelsKeepDistance(tics, labels.gap))
            return tics;
        step = NiceStep(step * 1.5);
    }
    return {};
}

std::vector<GridTics::RowTic> GridTics::LayRows(std::vector<double> const & stamps, int spacing)
{
    double const advance = SmallestAdvance(stamps);
    double const least = advance * std::max(1, spacing);
    auto const wanted =
        std::find_if(TimeSteps.begin(), TimeSteps.end(), [least](double step) { return step >= least; });
    double const step = wanted != TimeSteps.end() ? *wanted : NiceStep(least);
    std::vector<RowTic> tics;
    if (!(least > 0.0))
        return tics;
    int last = static_cast<int>(stamps.size()) + spacing; // row of the last label
    for (int row = static_cast<int>(stamps.size()) - 2; row >= 0; --row) {
        double const time = stamps[static_cast<std::size_t>(row)];
        double const before = stamps[static_cast<std::size_t>(row) + 1];
        double const count = std::floor(time / step + RowSlack);
        bool const isAnew = time < before;
        if ((count == std::floor(before / step + RowSlack) && !isAnew) || last - row < spacing)
            continue;
        tics.push_back({ row, isAnew ? TimeLabel(time, advance) : TimeLabel(count * step, step) });
        last = row;
    }
    return tics;
}
