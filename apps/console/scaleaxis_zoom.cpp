// SPDX-License-Identifier: MIT
#include "scaleaxis.h"

#include "colorset.h"
#include "guibase.h"
#include "qtcompat.h"
#include "rangestep.h"
#include "toint.h"
#include "undorecording.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QUndoStack>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace {

constexpr double BandOpacity = 0.6; // of what covers the part beside a band
constexpr double ShadeOpacity = 0.15;
constexpr double ZoomStep = 0.5; // range after a key by the range before
constexpr double PanStep = 0.1;  // part of the range that a key moves it by
constexpr double SameFactor = 1e-9;
constexpr std::size_t MostRanges = 1000; // to go back to; the first one stays, for Home

constexpr double Lowest = std::numeric_limits<double>::lowest();
constexpr double Highest = std::numeric_limits<double>::max();

} // namespace

// Ranges

void ScaleAxis::ShareUnZoom(std::vector<ScaleAxis *> const & axes)
{
    for (ScaleAxis * const axis : axes) {
        for (ScaleAxis * const other : axes) {
            if (other != axis)
                axis->m_partners.emplace_back(other);
        }
    }
}

//! One step of undo; the axes of the same range can go back as this one can.
bool ScaleAxis::ChangeRange(std::function<bool()> const & change)
{
    LifeWatch const life(GetObserverLifetime());
    GuiUndoRecordingHelper const step(nullptr, RangeText());
    bool const isApplied = change();
    if (life.IsOver())
        return false;
    while (m_unZoom.size() > MostRanges)
        m_unZoom.erase(m_unZoom.begin() + 1);
    for (QPointer<ScaleAxis> const & partner : m_partners) {
        if (partner)
            partner->m_unZoom = m_unZoom;
    }
    return isApplied;
}

bool ScaleAxis::SetZoomedRange(double start, double stop, bool record)
{
    if (start > stop)
        std::swap(start, stop);
    if (stop - start < m_leastSpan) {
        double const low = m_pStart ? m_pStart->GetNumericMin() : Lowest;
        double const high = m_pStop ? m_pStop->GetNumericMax() : Highest;
        double const middle = start + (stop - start) / 2.0;
        start = std::max(std::min(middle - m_leastSpan / 2.0, high - m_leastSpan), low);
        stop = start + m_leastSpan;
    }
    return ChangeRange([=] { return AxisBase::SetZoomedRange(start, stop, record); });
}

bool ScaleAxis::ZoomToDefault()
{
    return ChangeRange([this] { return AxisBase::ZoomToDefault(); });
}

bool ScaleAxis::ZoomToBest()
{
    return RunsUp() && ChangeRange([this] {
               LifeWatch const life(GetObserverLifetime());
               RangeStep::Range const before{ m_start, m_stop };
               Q_EMIT signalBest();
               bool const isMoved = !life.IsOver() && !(before == RangeStep::Range{ m_start, m_stop });
               if (isMoved)
                   ClearUnZoom();
               return isMoved;
           });
}

void ScaleAxis::ZoomToDevice()
{
    ChangeRange([this] {
        AxisBase::ZoomToDevice();
        return true;
    });
}

bool ScaleAxis::ZoomToBegin()
{
    return ChangeRange([this] { return AxisBase::ZoomToBegin(); });
}

void ScaleAxis::UnZoom()
{
    ChangeRange([this] {
        PassOverShownRanges();
        AxisBase::UnZoom();
        return true;
    });
}

void ScaleAxis::UpdateMenu(ResortPopupMenu * menu)
{
    PassOverShownRanges();
    AxisBase::UpdateMenu(menu);
}

//! Undo goes back without the history, which then ends with what is shown.
void ScaleAxis::PassOverShownRanges()
{
    while (!m_unZoom.empty() && m_unZoom.back().start == m_start && m_unZoom.back().stop == m_stop)
        ZoomHistory::Pop(m_unZoom);
}

//! Levels go from what shows the signal to all levels and back, frequencies from the default range to all.
void ScaleAxis::ShowNextRange(QMouseEvent * event)
{
    ChangeRange([this, event] {
        LifeWatch const life(GetObserverLifetime());
        if (!RunsUp()) {
            AxisBase::mouseDoubleClickEvent(event);
            return true;
        }
        bool const isBest = !ZoomToBest();
        if (isBest && !life.IsOver())
            ZoomToDefault();
        if (!life.IsOver())
            Q_EMIT AxisDoubleClick(this);
        return true;
    });
}

void ScaleAxis::ZoomBy(double factor)
{
    double const span = m_stop - m_start;
    if (factor < 1.0 && span > 0.0)
        factor = std::max(factor, m_leastSpan / span); // what stands at the marker stays there
    if (std::abs(factor - 1.0) < SameFactor)
        return;
    int const current = GetCurrentMarker();
    double const marker = GetMarkerValue(current);
    bool const isAtMarker = GetShowMarker(current) && marker > m_start && marker < m_stop;
    double const middle = isAtMarker ? marker : m_start + (m_stop - m_start) / 2.0;
    double const least = m_pStart ? m_pStart->GetNumericMin() : Lowest;
    double const most = m_pStop ? m_pStop->GetNumericMax() : Highest;
    SetZoomedRange(std::max(middle - (middle - m_start) * factor, least),
                   std::min(middle + (m_stop - middle) * factor, most), true);
}

void ScaleAxis::PanBy(double part, bool isRepeat)
{
    if (!m_pStart || !m_pStop)
        return;
    double const wanted = (m_stop - m_start) * part;
    double const shift = HeldInLimits(wanted);
    RangeStep::Range const before{ m_start, m_stop };
    PushRange(before, { m_start + shift, m_stop + shift }, isRepeat);
}

//! A shift of the range, as far as the limits of its values let it go.
double ScaleAxis::HeldInLimits(double shift) const
{
    double const down = m_pStart ? m_pStart->GetNumericMin() - m_start : Lowest;
    double const up = m_pStop ? m_pStop->GetNumericMax() - m_stop : Highest;
    return std::max(std::min(shift, std::max(up, 0.0)), std::min(down, 0.0));
}

void ScaleAxis::PushRange(RangeStep::Range const & before, RangeStep::Range const & after, bool isRepeat)
{
    if (!m_pStart || !m_pStop || before == after)
        return;
    GuiBase::Instance().UndoStack()->push(
        new RangeStep(RangeText(), m_pStart->GetPathName(), m_pStop->GetPathName(), before, after, isRepeat));
}

// Drag

std::optional<ScaleAxis::Band> ScaleAxis::GetBand() const
{
    if (!m_zoomEnabled || m_mouseMode != MouseBand || m_bandStart == m_bandEnd)
        return {};
    return Band{ std::min(m_bandStart, m_bandEnd), std::max(m_bandStart, m_bandEnd) };
}

void ScaleAxis::PaintBand(QPainter & painter) const
{
    painter.save();
    painter.setOpacity(BandOpacity);
    DrawWhileZoom(painter);
    painter.restore();
}

void ScaleAxis::DimBesideBand(QPainter & painter, QRect const & picture) const
{
    std::optional<Band> const band = GetBand();
    if (!band)
        return;
    QRect low = picture;
    QRect high = picture;
    if (RunsUp()) {
        low.setBottom(band->first - 1);
        high.setTop(band->last + 1);
    } else {
        low.setRight(band->first - 1);
        high.setLeft(band->last + 1);
    }
    ColorSet & colors = ColorSet::Instance();
    painter.save();
    for (QRect const & beside : { low, high }) {
        painter.setOpacity(BandOpacity);
        painter.fillRect(beside.intersected(picture), colors[IColorBase::eColorAxisBackground]);
        painter.setOpacity(ShadeOpacity); // seen on an empty ground too
        painter.fillRect(beside.intersected(picture), colors[IColorBase::eColorAxisForeground]);
    }
    painter.restore();
}

void ScaleAxis::TakeMouse(QMouseEvent const * event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        BeginDrag(event);
        break;
    case QEvent::MouseMove:
        DragOn(event);
        break;
    case QEvent::MouseButtonRelease:
        EndDrag(event);
        break;
    case QEvent::MouseButtonDblClick: {
        QMouseEvent copy = CopyOf(event, AlongOf(event), Qt::NoModifier);
        if (event->button() == Qt::LeftButton && m_zoomEnabled)
            ShowNextRange(&copy);
        break;
    }
    default:
        break;
    }
}

int ScaleAxis::AlongOf(QMouseEvent const * event) const
{
    QPointF const at = Position(event);
    return toInt(std::round(RunsUp() ? at.y() : at.x()));
}

//! The event at another place along the axis.
QMouseEvent ScaleAxis::CopyOf(QMouseEvent const * event, int along, Qt::KeyboardModifiers modifiers) const
{
    QPointF const at = RunsUp() ? QPointF(width() / 2.0, along) : QPointF(along, height() / 2.0);
    return QMouseEvent(event->type(), at, GlobalPosition(event), event->button(), event->buttons(), modifiers);
}

//! A press beside the picture begins at its end.
void ScaleAxis::BeginDrag(QMouseEvent const * event)
{
    if (m_mouseMode != MouseIdle || event->button() != Qt::LeftButton)
        return;
    QRect const inner = innerRect();
    int const first = RunsUp() ? inner.top() : inner.left();
    int const last = RunsUp() ? inner.bottom() : inner.right();
    if (last <= first)
        return;
    QMouseEvent copy = CopyOf(event, std::clamp(AlongOf(event), first, last), event->modifiers());
    AxisBase::mousePressEvent(&copy);
    m_bandEnd = m_bandStart; // no band before the first move
    m_before = { m_start, m_stop };
    if (m_mouseMode == MousePan)
        setCursor(Qt::ClosedHandCursor);
}

//! A drag stays what it was at the press. A pan ends at the limits of the range and goes on where the pointer comes
//! back from there.
void ScaleAxis::DragOn(QMouseEvent const * event)
{
    int along = AlongOf(event);
    bool const isPan = m_mouseMode == MousePan;
    double const pixel = isPan ? AxisBase::PixelToValue(m_pressPixel + 1) - AxisBase::PixelToValue(m_pressPixel) : 0.0;
    if (pixel != 0.0 && std::isfinite(pixel)) {
        double const shift = -pixel * (along - m_pressPixel);
        double const held = HeldInLimits(shift);
        if (held != shift)
            along = m_pressPixel - toInt(held / pixel);
    }
    QMouseEvent copy = CopyOf(event, along, isPan ? Qt::ShiftModifier : Qt::NoModifier);
    LifeWatch const life(GetObserverLifetime());
    AxisBase::mouseMoveEvent(&copy);
    if (!life.IsOver() && m_mouseMode == MouseBand)
        Q_EMIT signalBand();
}

void ScaleAxis::EndDrag(QMouseEvent const * event)
{
    if (event->button() != Qt::LeftButton || m_mouseMode == MouseIdle)
        return;
    bool const isPan = m_mouseMode == MousePan;
    QMouseEvent copy = CopyOf(event, AlongOf(event), Qt::NoModifier);
    LifeWatch const life(GetObserverLifetime());
    AxisBase::mouseReleaseEvent(&copy);
    if (life.IsOver())
        return;
    if (isPan)
        PushRange(m_before, { m_start, m_stop }, false);
    if (!life.IsOver())
        Q_EMIT signalBand();
}

void ScaleAxis::DropDrag()
{
    if (m_mouseMode == MouseIdle)
        return;
    bool const isPan = m_mouseMode == MousePan;
    m_mouseMode = MouseIdle;
    LifeWatch const life(GetObserverLifetime());
    update();
    setCursor(Qt::ArrowCursor);
    if (!life.IsOver() && isPan)
        PushRange(m_before, { m_start, m_stop }, false);
    if (!life.IsOver())
        Q_EMIT signalBand();
}

bool ScaleAxis::CancelDrag()
{
    if (m_mouseMode == MouseIdle)
        return false;
    if (m_mouseMode == MousePan) {
        LifeWatch const life(GetObserverLifetime());
        if (m_pStart && m_pStop) // neither end may hold the other one back
            RangeStep(RangeText(), m_pStart->GetPathName(), m_pStop->GetPathName(), m_before, m_before, false).undo();
        else
            SetRange(m_before.start, m_before.stop);
        if (life.IsOver())
            return true;
    }
    DropDrag();
    return true;
}

// Keys

bool ScaleAxis::TakeKey(QKeyEvent const * event)
{
    if (!m_zoomEnabled)
        return false;
    bool const control = (event->modifiers() & Qt::ControlModifier) != 0;
    int const key = event->key();
    int const toHigher = RunsUp() ? Qt::Key_Up : Qt::Key_Right;
    int const toLower = RunsUp() ? Qt::Key_Down : Qt::Key_Left;
    if (key == Qt::Key_Escape)
        return CancelDrag();
    if (control) {
        bool const isPan = key == toHigher || key == toLower;
        if (isPan)
            PanBy(key == toHigher ? PanStep : -PanStep, event->isAutoRepeat());
        return isPan;
    }
    switch (key) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        ZoomBy(ZoomStep);
        return true;
    case Qt::Key_Minus:
        ZoomBy(1.0 / ZoomStep);
        return true;
    case Qt::Key_Backspace:
        if (IsUnZoomAvailable())
            UnZoom();
        return true;
    case Qt::Key_Home: {
        QMouseEvent twice(QEvent::MouseButtonDblClick, QPointF(), QPointF(), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        ShowNextRange(&twice);
        return true;
    }
    default:
        return false;
    }
}

bool ScaleAxis::OpenMenuByKey(QWidget & widget, QKeyEvent const * event, QPoint at)
{
    bool const isMenu = event->key() == Qt::Key_Menu;
    if (!isMenu && (event->key() != Qt::Key_F10 || (event->modifiers() & Qt::ShiftModifier) == 0))
        return false;
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, at, widget.mapToGlobal(at));
    QCoreApplication::sendEvent(&widget, &menu);
    return true;
}
