// SPDX-License-Identifier: MIT
#include "windowhand.h"

#include "markerlist.h"
#include "qtcompat.h"
#include "undorecording.h"
#include "windowvalues.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include <algorithm>
#include <cmath>

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

bool WindowHand::Press(QMouseEvent const * event, int marker)
{
    if (event->button() != Qt::LeftButton)
        return false;
    LetGo();
    QPoint const at = Position(event).toPoint();
    int const border = WindowOf(marker);
    int const window = border >= 0 ? border : Under(at);
    if (window < 0 || (border < 0 && marker >= 0)) {
        WindowValues::Focus(-1);
        return false;
    }
    WindowValues::Focus(window);
    double const place = m_list.GetMarkerValue(marker);
    FrequencyRange const range = WindowValues::RangeOf(window);
    bool const isLower = place - range.start <= range.start + range.span - place;
    Hold(window, border < 0 ? eWhole : isLower ? eLower : eUpper);
    m_byMouse = true;
    m_grip = HertzAt(at.x());
    return true;
}

bool WindowHand::Move(QMouseEvent const * event)
{
    if (m_held < 0 || !m_byMouse)
        return false;
    if (!WindowValues::IsVisible(m_held)) { // hidden meanwhile
        LetGo();
        return false;
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
    WindowValues::SetRange(window, m_before);
    GuiUndoRecordingHelper const step(&m_list, MoveText(window));
    WindowValues::SetRange(window, now);
}

void WindowHand::Cancel()
{
    WindowValues::SetRange(m_held, m_before);
    LetGo();
}

bool WindowHand::Choose(int window)
{
    if (!WindowValues::IsVisible(window))
        return false;
    LetGo();
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
    if (key == Qt::Key_M || key == Qt::Key_Escape) {
        LetGo();
        WindowValues::Focus(-1);
        return key == Qt::Key_Escape; // M goes on to a marker
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
    if (m_held != focused)
        LetGo();
    Hold(focused, part); // each step goes on from the one before
    m_byMouse = false;
    m_key = key;
    int const pixels = (event->modifiers() & Qt::AltModifier) ? FastSteps : 1;
    MoveTo((key == Qt::Key_Right ? pixels : -pixels) * HertzAPixel());
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
