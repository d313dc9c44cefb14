// SPDX-License-Identifier: MIT
#include "levelaxis.h"

#include <QFontMetrics>

namespace {

constexpr int UnitInset = 8; // px, from the picture beside

} // namespace

LevelAxis::LevelAxis(QWidget * parent) : ScaleAxis(parent, "levelAxis", AxisVertical, ScaleStrip::eLineAtFarEdge)
{
    setAccessibleName(tr("Level scale"));
    SetUnitText(QStringLiteral("dBFS"));
}

LevelAxis::~LevelAxis() = default;

QString LevelAxis::RangeText() const { return tr("Change of the level range"); }

QRect LevelAxis::UnitRect() const
{
    QFontMetrics const metrics = fontMetrics();
    int const extent = metrics.horizontalAdvance(m_unitText);
    QRect const rect(width() - UnitInset - extent, (innerRect().top() - metrics.height()) / 2, extent,
                     metrics.height());
    return this->rect().contains(rect) ? rect : QRect();
}
