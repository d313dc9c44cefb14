// SPDX-License-Identifier: MIT
#ifndef ORIM_WINDOWHAND_H
#define ORIM_WINDOWHAND_H

#include "linecolumns.h"
#include "marker.h"

#include <QPoint>
#include <QRect>

class MarkerList;
class QKeyEvent;
class QMouseEvent;

//! The operator's hand on the windows of a pane. The mouse takes a window by its inside and moves it, by a border and
//! resizes it; a narrow one can be moved by its middle third. Keys: 1 to 5 choose a window, F6 the next one, with Shift
//! the one before; while one has the focus the left and right arrows move it by a pixel, with Shift they move its upper
//! border, with Alt by ten; Delete hides it, Escape takes a drag back or leaves the window. Letting go makes it one
//! step of undo.
class WindowHand
{
public:
    //! Id of the marker at a border of a window, 0 to 4.
    static constexpr int StartMarker(int window) { return eTemp3 + 2 * window; }

    static constexpr int StopMarker(int window) { return StartMarker(window) + 1; }

    //! Window that a marker is a border of; -1 for none.
    static int WindowOf(int marker);

    static constexpr int LeastWidth = 2; // px, to which a window can be resized

    //! \param list  borrowed: owns this.
    explicit WindowHand(MarkerList & list) : m_list(list) {}

    WindowHand(WindowHand const &) = delete;
    WindowHand & operator=(WindowHand const &) = delete;

    //! Where windows are seen, px of the list; nowhere at first.
    void SetRoom(QRect const & room) { m_room = room; }

    //! Visible window whose inside is at a place, the one in focus before others; -1 for none.
    int Under(QPoint at) const;

    //! Index of the window that is held, by the mouse or by a key; -1 for none.
    int Held() const { return m_held; }

    //! Each tells whether the event was for a window, or the list has ended over it: whoever hears of a step may end
    //! it. \param marker  the one that can be taken there; -1 for none. One that is no border comes before a window.
    bool Press(QMouseEvent const * event, int marker);
    bool Move(QMouseEvent const * event);
    bool Release(QMouseEvent const * event);
    bool KeyPress(QKeyEvent const * event);
    bool KeyRelease(QKeyEvent const * event);
    //! Lets go of what is held: what it became is one step of undo.
    void LetGo();
    //! Hides a window, as one step of undo.
    static void Hide(int window);

private:
    enum Part
    {
        eWhole,
        eLower,
        eUpper
    };

    Part PartAt(int window, int border, int pixel) const;
    void Hold(int window, Part part);
    void MoveTo(double hertz);
    void Cancel();
    bool Choose(int window);
    bool Step(QKeyEvent const * event);
    double HertzAt(int pixel) const;
    double HertzAPixel() const;

    MarkerList & m_list;
    QRect m_room;
    int m_held = -1;
    Part m_part = eWhole;
    bool m_byMouse = false;
    int m_key = 0;                       // the one that holds, unless the mouse does
    double m_grip = 0.0;                 // Hz, where the mouse took it
    FrequencyRange m_before{ 0.0, 0.0 }; // when it was taken
};

#endif
