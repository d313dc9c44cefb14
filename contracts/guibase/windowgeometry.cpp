// SPDX-License-Identifier: MIT
#include "windowgeometry.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace {

constexpr int Version = 1;
constexpr int Largest = 32767; // px
constexpr int GripWidth = 64;  // px of the upper edge that must be on a screen
constexpr int GripHeight = 16; // px

} // namespace

QString WindowGeometry::ToText() const
{
    QStringList fields;
    for (int const number : { Version, rect.x(), rect.y(), rect.width(), rect.height(), isMaximized ? 1 : 0 })
        fields += QString::number(number);
    return fields.join(QLatin1Char(';'));
}

std::optional<WindowGeometry> WindowGeometry::FromText(QString const & text)
{
    std::array<int, 6> numbers{};
    QStringList const fields = text.left(64).split(QLatin1Char(';'));
    if (fields.size() != static_cast<int>(numbers.size()))
        return {};
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        bool ok = false;
        numbers[i] = fields.at(static_cast<int>(i)).toInt(&ok);
        if (!ok)
            return {};
    }
    auto const [version, x, y, width, height, maximized] = numbers;
    bool const isPlace = std::max(x, y) <= Largest && std::min(x, y) >= -Largest;
    bool const isSize = std::min(width, height) >= 1 && std::max(width, height) <= Largest;
    if (version != Version || !isPlace || !isSize || (maximized != 0 && maximized != 1))
        return {};
    WindowGeometry geometry;
    geometry.rect = QRect(x, y, width, height);
    geometry.isMaximized = maximized == 1;
    return geometry;
}

bool WindowGeometry::IsReachable(std::vector<QRect> const & screens) const
{
    QRect const grip(rect.topLeft(), QSize(rect.width(), std::min(rect.height(), GripHeight)));
    return std::any_of(screens.begin(), screens.end(), [&grip](QRect const & screen) {
        QRect const shown = screen.intersected(grip);
        return shown.height() >= grip.height() && shown.width() >= std::min(grip.width(), GripWidth);
    });
}
