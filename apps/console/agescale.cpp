// SPDX-License-Identifier: MIT
#include "agescale.h"

#include "panelayout.h"
#include "toint.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr int BarGap = 6;   // px, between picture and bar
constexpr int ScaleGap = 1; // px, between bar and scale

} // namespace

AgeScale::AgeScale(QWidget * parent)
    : ScaleAxis(parent, "ageScale", AxisVertical | AxisNoPropertyPage, ScaleStrip::eLineAtNearEdge)
{
    setAccessibleName(tr("Age scale"));
    SetUnitText(QStringLiteral("s"));
    SetAxisZoomEnable(false, false);
    EnableContextMenu(false);
    setContextMenuPolicy(Qt::PreventContextMenu); // that of the pane is about frequencies
    setFocusPolicy(Qt::NoFocus);
}

AgeScale::~AgeScale() = default;

void AgeScale::SetAges(std::vector<std::vector<QRgb>> ages)
{
    m_ages = std::move(ages);
    RepairDrawing();
}

void AgeScale::BuildFormatString(QString & out, double value, Marker * marker)
{
    Q_UNUSED(marker)
    out = QString::number(toInt(std::round(m_stop - value)));
}

//! Tics stand at round ages.
ScaleTics AgeScale::Tics() const
{
    ScaleTics tics = ScaleAxis::Tics();
    tics.start = m_start;
    tics.stop = m_stop;
    tics.firstTic = m_stop - std::max(0, m_ticCount - 1) * m_ticStep;
    tics.ticOffset = 0.0;
    tics.minorTics = 0;
    return tics;
}

QRect AgeScale::ScaleRect() const { return innerRect().adjusted(BarGap + BarWidth + ScaleGap, 0, 0, 0); }

QRect AgeScale::GetBarRect() const
{
    QRect const inner = innerRect();
    return PaneLayout::ToDevice(QRect(BarGap, inner.top(), BarWidth, inner.height()), devicePixelRatioF());
}

void AgeScale::PaintBeside(QPainter & painter)
{
    double const ratio = devicePixelRatioF();
    QRect const bar = GetBarRect();
    auto const part = [](int length, std::size_t index, std::size_t count) {
        return static_cast<int>(static_cast<std::size_t>(length) * index / count);
    };
    painter.save();
    painter.scale(1.0 / ratio, 1.0 / ratio);
    for (std::size_t column = 0; column < m_ages.size() && !bar.isEmpty(); ++column) {
        int const left = bar.left() + part(bar.width(), column, m_ages.size());
        int const behind = bar.left() + part(bar.width(), column + 1, m_ages.size());
        std::vector<QRgb> const & ages = m_ages[column];
        for (std::size_t row = 0; row < ages.size(); ++row) {
            int const top = bar.top() + part(bar.height(), row, ages.size());
            int const below = bar.top() + part(bar.height(), row + 1, ages.size());
            painter.fillRect(left, top, behind - left, below - top, QColor(ages[row]));
        }
    }
    painter.restore();
}
