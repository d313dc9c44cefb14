// SPDX-License-Identifier: MIT
#include "axisbase.h"

#include "colorset.h"
#include "qtcompat.h"
#include "toint.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double Farthest = 1e9; // px, of a position that is heard

bool IsShiftHeld(QMouseEvent const * event) { return (event->modifiers() & Qt::ShiftModifier) != 0; }

int Rounded(double position) { return toInt(std::round(std::clamp(position, -Farthest, Farthest))); }

} // namespace

ZoomBand::Span AxisBase::GetSpan() const
{
    long long const extent = IsHorizontal() ? rect().right() - rect().left() : rect().bottom() - rect().top();
    return { m_leftTopOffset, extent - m_rightBottomOffset };
}

//! Along the axis; on one without a direction nothing moves.
int AxisBase::PixelOf(QMouseEvent const * event) const
{
    if (!HasDirection())
        return m_pressPixel;
    QPointF const position = Position(event);
    return Rounded(IsHorizontal() ? position.x() : position.y());
}

//! Comes last: who hears of the cursor may delete this.
void AxisBase::ShowBandCursor()
{
    if (HasDirection())
        setCursor(IsHorizontal() ? Qt::SplitHCursor : Qt::SplitVCursor);
}

void AxisBase::mousePressEvent(QMouseEvent * event)
{
    if (event->button() != Qt::LeftButton || m_mouseMode != MouseIdle)
        return;
    if (!IsShiftHeld(event)) {
        if (!m_offsetDrag && m_zoomEnabled)
            StartBand(PixelOf(event));
        return;
    }
    if (!m_zoomEnabled && !m_offsetDrag)
        return;
    m_mouseMode = MousePan;
    if (m_zoomEnabled)
        m_pressPixel = PixelOf(event);
    else if (IsVertical()) // y on an axis of both directions, too
        m_pressPixel = Rounded(Position(event).y());
}

void AxisBase::StartBand(int pixel)
{
    m_mouseMode = MouseBand;
    m_pressPixel = pixel;
    m_bandStart = pixel;
    ShowBandCursor();
}

void AxisBase::mouseMoveEvent(QMouseEvent * event)
{
    if (!m_zoomEnabled)
        return;
    int const pixel = PixelOf(event);
    if (m_mouseMode == MousePan && IsShiftHeld(event))
        return PanTo(pixel);
    if (m_mouseMode != MouseBand)
        return;
    if (HasDirection())
        m_bandEnd = ZoomBand::Clamp(GetSpan(), pixel);
    update();
    ShowBandCursor();
}

void AxisBase::PanTo(int pixel)
{
    if (HasDirection() && !ZoomBand::IsWithin(GetSpan(), pixel))
        return;
    double const delta = PixelToValue(pixel) - PixelToValue(m_pressPixel);
    if (!std::isfinite(delta))
        return;
    LifeWatch const life(GetObserverLifetime());
    if (IsVertical() && m_offsetDrag) {
        m_pressPixel = pixel;
        WriteOffset(m_offset - delta);
    } else {
        double const start = m_start - delta;
        double const stop = m_stop - delta;
        if (WriteBoundEnds(start, stop) && SetEnds(start, stop))
            m_pressPixel = pixel;
    }
    if (!life.IsOver())
        Q_EMIT Zoomed();
}

//! The axis follows when it hears of the value.
void AxisBase::WriteOffset(double offset)
{
    LifeWatch const life(GetObserverLifetime());
    if (m_pOffset)
        m_pOffset->SetValue(offset, nullptr);
    if (!life.IsOver() && m_pOffset2)
        m_pOffset2->SetNumericValue(offset, nullptr);
}

void AxisBase::mouseReleaseEvent(QMouseEvent * event)
{
    if (!m_drawEnabled || IsShiftHeld(event))
        return;
    if (m_mouseMode == MouseBand && !EndBand(PixelOf(event)))
        return;
    m_mouseMode = MouseIdle;
    update();
    setCursor(Qt::ArrowCursor);
}

//! Zooms to the band, or tells of a click. \return whether this still lives.
bool AxisBase::EndBand(int pixel)
{
    if (HasDirection())
        pixel = ZoomBand::Clamp(GetSpan(), pixel);
    if (IsHorizontal() == (pixel < m_pressPixel)) // the start of the range lies at the left, or at the bottom
        std::swap(m_pressPixel, pixel);
    LifeWatch const life(GetObserverLifetime());
    if (ZoomBand::IsClick(m_pressPixel, pixel)) {
        AxisClicked(m_pressPixel);
        return !life.IsOver();
    }
    double const low = std::min(m_start, m_stop);
    double const high = std::max(m_start, m_stop);
    auto const [from, to] = std::minmax({ ZoomBand::WithoutRounding(PixelToValue(m_pressPixel), low, high),
                                          ZoomBand::WithoutRounding(PixelToValue(pixel), low, high) });
    if (from >= low && to <= high && from < to)
        SetZoomedRange(from, to, true);
    return !life.IsOver();
}

void AxisBase::AxisClicked(int /*pixel*/) {}

void AxisBase::mouseDoubleClickEvent(QMouseEvent * /*event*/)
{
    constexpr unsigned int Inert = AxisTypeBit9 | AxisTypeBit13 | AxisWrapped;
    if (!m_drawEnabled || (m_axisType & Inert) != 0)
        return;
    LifeWatch const life(GetObserverLifetime());
    if ((m_axisType & AxisDblClickSignal) == 0)
        ZoomToNextRange();
    if (!life.IsOver())
        Q_EMIT AxisDoubleClick(this);
}

void AxisBase::ZoomToNextRange()
{
    LifeWatch const life(GetObserverLifetime());
    bool isApplied = false;
    if (ZoomBand::IsUsable(m_defaultStart, m_defaultStop)) {
        bool const toBest = IsVertical() && (m_axisType & AxisDefaultOnDblClick) == 0;
        isApplied = toBest ? ZoomToBest() : ZoomToDefault();
        if (life.IsOver())
            return;
    }
    bool const isDefault = m_start == m_defaultStart && m_stop == m_defaultStop;
    if (!isApplied && isDefault && ZoomBand::IsUsable(m_deviceStart, m_deviceStop))
        ZoomToDevice();
    else
        ZoomToBegin();
}

void AxisBase::DrawWhileZoom(QPainter & painter) const
{
    if (!m_zoomEnabled || m_mouseMode != MouseBand || m_bandStart == m_bandEnd || !HasDirection())
        return;
    QColor const color = ColorSet::Instance()[IColorBase::eColorAxisBackground];
    painter.setBrush(color);
    painter.setPen(color);
    for (QRect const & cover : ZoomBand::CoverBeside(rect(), !IsHorizontal(), m_bandStart, m_bandEnd))
        painter.drawRect(cover);
}
