// SPDX-License-Identifier: MIT
#include "shadingbar.h"

#include "panelayout.h"

#include <QFontMetrics>
#include <QPainter>

namespace {

constexpr int BarGap = 6;       // px, between picture and bar
constexpr int ScaleGap = 1;     // px, between bar and scale
constexpr int TicsAndGaps = 12; // px

} // namespace

ShadingBar::ShadingBar(QWidget * parent)
    : ScaleAxis(parent, "shadingBar", AxisVertical | AxisShading, ScaleStrip::eLineAtNearEdge)
{
    setAccessibleName(tr("Colours of the levels"));
    SetUnitText(QStringLiteral("dBFS"));
}

ShadingBar::~ShadingBar() = default;

int ShadingBar::Thickness(QFontMetrics const & metrics)
{
    return BarGap + BarWidth + ScaleGap + TicsAndGaps + metrics.horizontalAdvance(QStringLiteral("-100.0"));
}

QString ShadingBar::RangeText() const { return tr("Change of the level range"); }

QRect ShadingBar::ScaleRect() const { return innerRect().adjusted(BarGap + BarWidth + ScaleGap, 0, 0, 0); }

QRect ShadingBar::GetBarRect() const
{
    double const ratio = devicePixelRatioF();
    QRect const inner = innerRect();
    return PaneLayout::ToDevice(QRect(BarGap, inner.top(), BarWidth, inner.height()), ratio);
}

//! One line a device pixel.
void ShadingBar::PaintBeside(QPainter & painter)
{
    double const ratio = devicePixelRatioF();
    QRect const bar = GetBarRect();
    painter.save();
    painter.scale(1.0 / ratio, 1.0 / ratio);
    drawShadeRect(painter, bar.left(), bar.top(), bar.width() - 1, bar.height() - 1, false);
    painter.restore();
}
