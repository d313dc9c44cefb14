// SPDX-License-Identifier: MIT
#include "axistext.h"

#include "pixelmap.h"
#include "toint.h"

#include <algorithm>

namespace {

constexpr int LongestField = 1100; // the smallest double has 1074 digits behind the point

} // namespace

QString AxisText::Label(double value, int left, int right)
{
    int const width = ClampToInt(static_cast<long long>(left) + right);
    return QStringLiteral("%1").arg(value, std::clamp(width, -LongestField, LongestField), 'f',
                                    std::min(right, LongestField), QLatin1Char(' '));
}

QString AxisText::Number(double value, int right)
{
    if (right != 0)
        return QStringLiteral("%1").arg(value);
    return QStringLiteral("%1").arg(toInt(value <= 0.0 ? value - 0.5 : value + 0.5), 0, 10, QLatin1Char(' '));
}

unsigned long long AxisText::TimeStamp(double value) { return toInt<unsigned long long>(value); }
