// SPDX-License-Identifier: MIT
#include "azimuthview.h"

#include "azimuthdisplayselect.h"
#include "bearingtexts.h"
#include "consolevalues.h"
#include "valuewrap.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace {

constexpr int MostDecimals = 3;

} // namespace

AzimuthView AzimuthView::Current()
{
    return { AzimuthDisplaySelect::Instance().GetCurrentSelected(), ConsoleValues::Get(ConsolePaths::Heading) };
}

bool AzimuthView::IsRelative() const { return (key & eAzimuthRelative) != 0; }

double AzimuthView::Start() const { return (key & eAzimuthPositive) != 0 ? 0.0 : -Turn / 2.0; }

double AzimuthView::Shown(double bearing) const
{
    double const turned = std::fmod(bearing - (IsRelative() ? north : 0.0) - Start(), Turn);
    double const part = turned < 0.0 ? turned + Turn : turned;
    return (part >= Turn ? 0.0 : part) + Start(); // NaN stays what it is
}

QString AzimuthView::Text(double bearing, int decimals) const
{
    double const shown = Shown(bearing);
    if (!std::isfinite(shown))
        return BearingTexts::Bearing(shown, decimals);
    double const steps = std::pow(10.0, std::clamp(decimals, 0, MostDecimals)); // a degree
    double rounded = std::round(shown * steps) / steps;
    if (rounded >= Stop())
        rounded = Start();
    QString const size = BearingTexts::Bearing(std::abs(rounded), decimals);
    bool const hasSign = Start() < 0.0 && rounded != 0.0;
    QString const sign = !hasSign ? QString() : rounded < 0.0 ? QStringLiteral("-") : QStringLiteral("+");
    return sign + size + (IsRelative() ? QStringLiteral(" rel") : QString());
}

QString AzimuthView::Name() const
{
    QString const from = IsRelative() ? QCoreApplication::translate("AzimuthView", "rel")
                                      : QCoreApplication::translate("AzimuthView", "abs");
    return QStringLiteral("%1 %2..%3").arg(from).arg(Start()).arg(Stop()) + QChar(0xb0);
}
