// SPDX-License-Identifier: MIT
#include "bearingtexts.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double FullCircle = 360.0; // deg
constexpr int WholeDigits = 3;
constexpr int MostDecimals = 3;
constexpr double ElevationSteps = 10.0; // a degree

QString Nothing() { return QStringLiteral("--"); }

QString Degrees(QString const & number) { return number + QChar(0xb0); }

} // namespace

QString BearingTexts::Bearing(double bearing, int decimals)
{
    if (!std::isfinite(bearing))
        return Nothing();
    int const places = std::clamp(decimals, 0, MostDecimals);
    double const steps = std::pow(10.0, places); // a degree
    double const turned = std::fmod(std::fmod(bearing, FullCircle) + FullCircle, FullCircle);
    double const rounded = std::fmod(std::round(turned * steps), FullCircle * steps) / steps;
    int const width = WholeDigits + (places > 0 ? places + 1 : 0);
    return Degrees(QString::number(rounded, 'f', places).rightJustified(width, QLatin1Char('0')));
}

QString BearingTexts::Elevation(double elevation)
{
    if (!std::isfinite(elevation))
        return Nothing();
    double const rounded = std::round(elevation * ElevationSteps) / ElevationSteps;
    if (rounded == 0.0)
        return Degrees(QStringLiteral("0.0"));
    return Degrees((rounded > 0.0 ? QStringLiteral("+") : QString()) + QString::number(rounded, 'f', 1));
}

QString BearingTexts::Quality(double quality)
{
    return std::isfinite(quality) ? QString::number(std::round(quality), 'f', 0) + QLatin1String(" %") : Nothing();
}
