// SPDX-License-Identifier: MIT
#include "numbertexts.h"

#include "toint.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr double MinuteSeconds = 60.0;
constexpr double LongestTime = 1e9; // s

constexpr std::array<NumberTexts::FrequencyUnit, 3> Units{ { { 1e6, "MHz" }, { 1e3, "kHz" }, { 1.0, "Hz" } } };
static_assert(Units[0].hertz > Units[1].hertz && Units[1].hertz > Units[2].hertz, "the first row that fits wins");

//! Fixed text without the sign of a negative zero.
QString Fixed(double value, int decimals)
{
    QString const text = QString::number(value, 'f', decimals);
    bool const isZero = std::abs(value) < 0.5 * std::pow(10.0, -decimals);
    return isZero ? QString::number(0.0, 'f', decimals) : text;
}

} // namespace

NumberTexts::FrequencyUnit NumberTexts::UnitOf(double largest)
{
    double const size = std::abs(largest);
    auto const unit = std::find_if(Units.begin(), Units.end(), [size](auto const & row) { return size >= row.hertz; });
    return unit != Units.end() ? *unit : Units.back();
}

int NumberTexts::Decimals(double step)
{
    if (!(step > 0.0))
        return 0;
    double const digits = std::ceil(-std::log10(step) - 1e-9);
    return toInt(std::clamp(digits, 0.0, 9.0));
}

QString NumberTexts::Frequency(double hertz, double step, FrequencyUnit const & unit)
{
    return Fixed(hertz / unit.hertz, Decimals(step / unit.hertz));
}

QString NumberTexts::FrequencyWithUnit(double hertz, double step)
{
    FrequencyUnit const unit = UnitOf(hertz);
    return Frequency(hertz, step, unit) + QLatin1Char(' ') + QLatin1String(unit.name);
}

QString NumberTexts::Level(double level, double step) { return Fixed(level, Decimals(step)); }

QString NumberTexts::Time(double seconds, double step)
{
    if (!std::isfinite(seconds) || seconds > LongestTime)
        return QStringLiteral("--");
    int const decimals = Decimals(step);
    double const unit = std::pow(10.0, -decimals);
    double const time = std::round(std::max(0.0, seconds) / unit) * unit; // before the split: 59.96 is 1:00.0
    if (time < MinuteSeconds - unit / 2.0)
        return Fixed(time, decimals);
    double const minutes = std::floor((time + unit / 2.0) / MinuteSeconds);
    QString const rest = Fixed(std::max(0.0, time - minutes * MinuteSeconds), decimals);
    int const width = decimals > 0 ? decimals + 3 : 2;
    return QString::number(minutes, 'f', 0) + QLatin1Char(':') + rest.rightJustified(width, QLatin1Char('0'));
}
