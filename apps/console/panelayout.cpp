// SPDX-License-Identifier: MIT
#include "panelayout.h"

#include "toint.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double LeastRatio = 0.25;
constexpr double MostRatio = 16.0;

} // namespace

int PaneLayout::ToDevice(int length, double ratio)
{
    double const held = std::isnan(ratio) ? 1.0 : std::clamp(ratio, LeastRatio, MostRatio);
    return toInt(std::round(length * held));
}

QSize PaneLayout::ToDevice(QSize size, double ratio)
{
    return { ToDevice(size.width(), ratio), ToDevice(size.height(), ratio) };
}

QRect PaneLayout::ToDevice(QRect const & rect, double ratio)
{
    QPoint const from(ToDevice(rect.left(), ratio), ToDevice(rect.top(), ratio));
    QPoint const behind(ToDevice(rect.left() + rect.width(), ratio), ToDevice(rect.top() + rect.height(), ratio));
    return { from, QSize(behind.x() - from.x(), behind.y() - from.y()) };
}

QRect PaneLayout::PictureRect(QSize pane, PaneMargins const & margins)
{
    int const width = std::max(0, pane.width() - margins.left - margins.right);
    int const height = std::max(0, pane.height() - margins.top - margins.bottom);
    return { margins.left, margins.top, width, height };
}

QColor PaneLayout::Mix(QColor const & ground, QColor const & over, double part)
{
    auto const mixed = [part](int from, int to) {
        return std::clamp(toInt(std::round(from + (to - from) * part)), 0, 255);
    };
    return { mixed(ground.red(), over.red()), mixed(ground.green(), over.green()), mixed(ground.blue(), over.blue()) };
}
