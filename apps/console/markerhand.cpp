// SPDX-License-Identifier: MIT
#include "markerhand.h"

#include "markerlist.h"
#include "qtcompat.h"

#include <QKeyEvent>
#include <QMouseEvent>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

constexpr int FastSteps = 10; // px, with Shift

//! px from a place to a rectangle, along the axis on which the marker moves.
int Distance(QRect const & rect, QPoint at, bool level)
{
    return level ? std::abs(at.y() - rect.center().y()) : std::abs(at.x() - rect.center().x());
}

} // namespace

int MarkerHand::s_held = 0;

double MarkerHand::ButNoValue(double value) { return value == NoValue ? std::nextafter(value, 0.0) : value; }

MarkerHand::~MarkerHand() { Hold(-1); }

bool MarkerHand::IsLevel(int index) const { return (m_list.GetMarkerSpecial(index) & eSpecialY) != 0; }

bool MarkerHand::CanBeTaken(int index) const
{
    Marker const * const marker = m_list.GetMarker(index);
    return marker && marker->GetShowMarker() && marker->GetMoveable();
}

//! Whether keys choose and step a marker: borders of windows move with these.
bool MarkerHand::IsRuler(int index) const
{
    return CanBeTaken(index) && (m_list.GetMarkerSpecial(index) & eSpecialWindowBorder) == 0;
}

void MarkerHand::Hold(int index)
{
    s_held += (index >= 0 ? 1 : 0) - (m_held >= 0 ? 1 : 0);
    m_held = index;
}

int MarkerHand::Under(QPoint at) const
{
    int best = -1;
    int nearest = 0;
    for (int const index : m_list.GetShownIndices()) {
        Marker const * const marker = m_list.GetMarker(index);
        if (!marker || !marker->GetMoveable())
            continue;
        QRect const line = marker->GetRulerRect();
        bool const onFlag = marker->GetRect().isValid() && marker->GetRect().contains(at);
        bool const onLine = line.isValid() && line.adjusted(-Reach, -Reach, Reach, Reach).contains(at);
        int const distance = onLine ? Distance(line, at, IsLevel(index)) : Reach + 1; // a line before a flag over it
        if ((onFlag || onLine) && (best < 0 || distance < nearest)) {
            best = index;
            nearest = distance;
        }
    }
    return best;
}

bool MarkerHand::Press(QMouseEvent const * event)
{
    QPoint const at = Position(event).toPoint();
    int const index = event->button() == Qt::LeftButton ? Under(at) : -1;
    if (index < 0)
        return false;
    LetGo();
    bool const level = IsLevel(index);
    int const pixel = m_list.ValueToPixel(level ? eMarkerY : eMarkerX, m_list.GetMarkerValue(index));
    Hold(index);
    m_byMouse = true;
    m_grip = pixel < 0 ? 0 : pixel - (level ? at.y() : at.x());
    m_before = m_list.GetMarkerValue(index);
    MakeCurrent(index);
    return true;
}

bool MarkerHand::Move(QMouseEvent const * event)
{
    QPoint const at = Position(event).toPoint();
    bool const isHeld = m_held >= 0 && m_byMouse;
    bool const drags = isHeld && CanBeTaken(m_held);
    if (isHeld && !drags)
        LetGo(); // hidden or fixed meanwhile
    if (drags)
        DragTo(at);
    else
        ShowPointer(at);
    return drags;
}

bool MarkerHand::Release(QMouseEvent const * event)
{
    if (m_held < 0 || !m_byMouse || event->button() != Qt::LeftButton)
        return false;
    LetGo();
    ShowPointer(Position(event).toPoint());
    return true;
}

void MarkerHand::ShowPointer(QPoint at)
{
    int const index = Under(at);
    if (index < 0)
        m_list.unsetCursor();
    else
        m_list.setCursor(IsLevel(index) ? Qt::SizeVerCursor : Qt::SizeHorCursor);
}

void MarkerHand::DragTo(QPoint at)
{
    int const direction = IsLevel(m_held) ? eMarkerY : eMarkerX;
    double start = 0.0;
    double stop = 0.0;
    m_list.GetCurrentStartStop(direction, start, stop);
    double const value = m_list.PixelToValue(direction, (IsLevel(m_held) ? at.y() : at.x()) + m_grip);
    m_list.SetMarkerMovingValue(m_held, std::clamp(value, std::min(start, stop), std::max(start, stop)));
}

void MarkerHand::LetGo()
{
    int const index = m_held;
    Hold(-1);
    if (index >= 0)
        m_list.SetMarkerEndMoving(index);
}

void MarkerHand::Cancel()
{
    m_list.SetMarkerMovingValue(m_held, m_before);
    LetGo();
}

//! The marker that a key steps: the current one, else the first that lies so.
int MarkerHand::ToStep(bool level)
{
    auto const fits = [this, level](int index) { return IsRuler(index) && IsLevel(index) == level; };
    int const current = m_list.GetCurrentMarker();
    if (fits(current))
        return current;
    std::vector<int> const & shown = m_list.GetShownIndices();
    auto const found = std::find_if(shown.begin(), shown.end(), fits);
    return found != shown.end() ? *found : -1;
}

void MarkerHand::MakeCurrent(int index)
{
    m_list.SetCurrentMarker(index, true);
    m_list.updateWidget();
}

void MarkerHand::MakeNextCurrent()
{
    std::vector<int> shown = m_list.GetShownIndices();
    shown.erase(std::remove_if(shown.begin(), shown.end(), [this](int index) { return !IsRuler(index); }), shown.end());
    if (shown.empty())
        return;
    auto const current = std::find(shown.begin(), shown.end(), m_list.GetCurrentMarker());
    bool const isLast = current == shown.end() || current + 1 == shown.end();
    MakeCurrent(isLast ? shown.front() : *(current + 1));
}

bool MarkerHand::KeyPress(QKeyEvent const * event)
{
    int const key = event->key();
    if (key == Qt::Key_Escape && m_held >= 0) {
        Cancel();
        return true;
    }
    if (key == Qt::Key_M && event->modifiers() == Qt::NoModifier) {
        MakeNextCurrent();
        return true;
    }
    bool const level = key == Qt::Key_Up || key == Qt::Key_Down;
    if (!level && key != Qt::Key_Left && key != Qt::Key_Right)
        return false;
    int const index = ToStep(level);
    if (index < 0 || (m_held >= 0 && m_byMouse))
        return false;
    if (m_held != index) {
        LetGo();
        Hold(index);
        m_byMouse = false;
        m_before = m_list.GetMarkerValue(index);
        MakeCurrent(index);
    }
    m_key = key;
    int const steps = (event->modifiers() & Qt::ShiftModifier) ? FastSteps : 1;
    for (int step = 0; step < steps; ++step)
        m_list.MoveMarker2NextPixel(index, key == Qt::Key_Up || key == Qt::Key_Right);
    return true;
}

bool MarkerHand::KeyRelease(QKeyEvent const * event)
{
    if (event->isAutoRepeat() || m_held < 0 || m_byMouse || event->key() != m_key)
        return false;
    LetGo();
    return true;
}
