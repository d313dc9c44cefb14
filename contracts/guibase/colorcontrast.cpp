// SPDX-License-Identifier: MIT
#include "colorcontrast.h"

#include <algorithm>
#include <cmath>

namespace {

double Linear(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(QColor const & color)
{
    return 0.2126 * Linear(color.redF()) + 0.7152 * Linear(color.greenF()) + 0.0722 * Linear(color.blueF());
}

} // namespace

double ColorContrast::Ratio(QColor const & a, QColor const & b)
{
    auto const [dark, light] = std::minmax({ Luminance(a), Luminance(b) });
    return (light + 0.05) / (dark + 0.05);
}

QColor ColorContrast::TextOn(QColor const & ground)
{
    QColor const black(Qt::black);
    QColor const white(Qt::white);
    return Ratio(black, ground) >= Ratio(white, ground) ? black : white;
}
