// SPDX-License-Identifier: MIT
#include "windowhand.h"

#include "markerhand.h"
#include "markerlist.h"
#include "qtcompat.h"
#include "undorecording.h"
#include "windowvalues.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr int FastSteps = 10; // px, with Alt

static_assert(WindowHand::StopMarker(WindowValues::Count - 1) < eAddYellow, "the ids of the borders are free ones");

QString MoveText(int window) { return QCoreApplication::translate("WindowHand", "Move window %1").arg(window + 1); }

QString HideText(int window) { return QCoreApplication::translate("WindowHand", "Hide window %1").arg(window + 1); }

} // namespace

int WindowHand::WindowOf(int marker)
{
    bool const isBorder = marker >= StartMarker(0) && marker <= StopMarker(WindowValues::Count - 1);
    return isBorder ? (marker - StartMarker(0)) / 2 : -1;
}

double WindowHand::HertzAt(int pixel) const { return m_list.PixelToValue(eMarkerX, pixel); }

double WindowHand::HertzAPixel() const { return std::abs(HertzAt(1) - HertzAt(0)); }

int WindowHand::Under(QPoint at) const
{
    int found = -1;
    double const hertz = HertzAt(at.x());
    for (int window = 0; m_room.contains(at) && window < WindowValues::Count; ++window) {
        FrequencyRange const range = WindowValues::RangeOf(window);
        bool const inside =
            WindowValues::IsVisible(window) && hertz >= range.start && hertz <= range.start + range.span;
        if (inside && (found < 0 || window == WindowValues::Focused()))
            found = window;
    }
    return found;
}

void WindowHand::Hold(int window, Part part)
{
    m_held = window;
    m_part = part;
    m_before = WindowValues::RangeOf(window);
}

//! A window so narrow that its borders reach all of it is taken as a whole in its middle third.
WindowHand::Part WindowHand::PartAt(int window, int border, int pixel) const
{
    FrequencyRange const range = WindowValues::RangeOf(window);
    double const inside = range.span > 0.0 ? (HertzAt(pixel) - range.start) / range.span : 0.0;
    bool const isNarrow = range.span < 3 * MarkerHand::Reach * HertzAPixel();
    if (border < 0 || (isNarrow && inside > 1.0 / 3.0 && inside < 2.0 / 3.0))
        return eWhole;
    double const place = m_list.GetMarkerValue(border);
    return place - range.start <= range.start + range.span - place ? eLower : eUpper;
}

bool WindowHand::Press(QMouseEvent const * event, int marker)
{
    if (event->button() != Qt::LeftButton)
        return false;
    LifeWatch const life(m_list.GetObserverLifetime());
    LetGo();
    if (life.IsOver())
        return true;
    QPoint const at = Position(event).toPoint();
    int const border = WindowOf(marker);
    int const window = border >= 0 ? border : Under(at);
    if (window < 0 || (border < 0 && marker >= 0)) {
        WindowValues::Focus(-1);
        return life.IsOver();
    }
    WindowValues::Focus(window);
    if (life.IsOver())
        return true;
    Hold(window, PartAt(window, border < 0 ? -1 : marker, at.x()));
    m_byMouse = true;
    m_grip = HertzAt(at.x());
    return true;
}

bool WindowHand::Move(QMouseEvent const * event)
{
    if (m_held < 0 || !m_byMouse)
        return false;
    if (!WindowValues::IsVisible(m_held)) { // hidden meanwhile
        LifeWatch const life(m_list.GetObserverLifetime());
        LetGo();
        return life.IsOver();
    }
    MoveTo(HertzAt(Position(event).toPoint().x()) - m_grip);
    return true;
}

bool WindowHand::Release(QMouseEvent const * event)
{
    if (m_held < 0 || !m_byMouse || event->button() != Qt::LeftButton)
        return false;
    LetGo();
    return true;
}

//! Moves what is held to so many Hz from where it was taken. A window keeps its width, a border its distance from the
//! other one.
void WindowHand::MoveTo(double hertz)
{
    FrequencyRange const limits = WindowValues::LimitsOf(m_held);
    double const before = m_before.start;
    double const after = m_before.start + m_before.span;
    double const least = std::min(LeastWidth * HertzAPixel(), limits.span);
    double const down = limits.start - before;
    double const up = limits.start + limits.span - after;
    FrequencyRange range = m_before;
    if (m_part == eWhole)
        range.start += std::clamp(hertz, std::min(down, 0.0), std::max(up, 0.0));
    else if (m_part == eLower)
        range.start += std::clamp(hertz, std::min(down, 0.0), std::max(m_before.span - least, 0.0));
    if (m_part == eLower)
        range.span = after - range.start;
    else if (m_part == eUpper)
        range.span += std::clamp(hertz, std::min(least - m_before.span, 0.0), std::max(up, 0.0));
    WindowValues::SetRange(m_held, range);
}

//! The moves are not recorded one by one: the window goes back, and there is one step from there.
void WindowHand::LetGo()
{
    int const window = m_held;
    m_held = -1;
    FrequencyRange const now = WindowValues::RangeOf(window);
    if (window < 0 || now == m_before)
        return;
    LifeWatch const life(m_list.GetObserverLifetime());
    WindowValues::SetRange(window, m_before);
    if (life.IsOver())
        return;
    GuiUndoRecordingHelper const step(&m_list, MoveText(window));
    WindowValues::SetRange(window, now);
}

//! It went back before it is let go: that is no step.
void WindowHand::Cancel() { WindowValues::SetRange(std::exchange(m_held, -1), m_before); }

bool WindowHand::Choose(int window)
{
    if (!WindowValues::IsVisible(window))
        return false;
    LifeWatch const life(m_list.GetObserverLifetime());
    LetGo();
    if (!life.IsOver())
        WindowValues::Focus(window);
    return true;
}

void WindowHand::Hide(int window)
{
    GuiUndoRecordingHelper const step(nullptr, HideText(window));
    WindowValues::Show(window, false);
}

bool WindowHand::KeyPress(QKeyEvent const * event)
{
    int const key = event->key();
    int const focused = WindowValues::Focused();
    if (key == Qt::Key_Escape && m_held >= 0) {
        Cancel();
        return true;
    }
    if (m_held >= 0 && m_byMouse)
        return false;
    bool const isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (isPlain && key >= Qt::Key_1 && key < Qt::Key_1 + WindowValues::Count)
        return Choose(key - Qt::Key_1);
    if (key == Qt::Key_F6)
        return Choose(WindowValues::Next((event->modifiers() & Qt::ShiftModifier) == 0));
    if (focused < 0)
        return false;
    LifeWatch const life(m_list.GetObserverLifetime());
    if (key == Qt::Key_M || key == Qt::Key_Escape) {
        LetGo();
        WindowValues::Focus(-1);
        return life.IsOver() || key == Qt::Key_Escape; // M goes on to a marker
    }
    if (key == Qt::Key_Delete) {
        LetGo();
        Hide(focused);
        return true;
    }
    return Step(event);
}

bool WindowHand::Step(QKeyEvent const * event)
{
    int const key = event->key();
    bool const isPan = (event->modifiers() & Qt::ControlModifier) != 0;
    if (isPan || (key != Qt::Key_Left && key != Qt::Key_Right))
        return false;
    int const focused = WindowValues::Focused();
    Part const part = (event->modifiers() & Qt::ShiftModifier) ? eUpper : eWhole;
    FrequencyRange const before = m_held == focused ? m_before : WindowValues::RangeOf(focused);
    LifeWatch const life(m_list.GetObserverLifetime());
    if (m_held != focused)
        LetGo();
    if (life.IsOver())
        return true;
    Hold(focused, part); // each step goes on from the one before
    m_byMouse = false;
    m_key = key;
    int const pixels = (event->modifiers() & Qt::AltModifier) ? FastSteps : 1;
    MoveTo((key == Qt::Key_Right ? pixels : -pixels) * HertzAPixel());
    if (!life.IsOver())
        m_before = before; // and all are one
    return true;
}

bool WindowHand::KeyRelease(QKeyEvent const * event)
{
    if (event->isAutoRepeat() || m_held < 0 || m_byMouse || event->key() != m_key)
        return false;
    LetGo();
    return true;
}
