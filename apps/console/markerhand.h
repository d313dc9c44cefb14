// SPDX-License-Identifier: MIT
#ifndef ORIM_MARKERHAND_H
#define ORIM_MARKERHAND_H

#include <QPoint>

class MarkerList;
class QKeyEvent;
class QMouseEvent;

//! The operator's hand on the markers of a pane. The mouse takes a marker by its line or its flag and drags it; arrow
//! keys step the current one by a pixel, with Shift by ten; M makes the next one current. While a marker is held its
//! moving value is written; letting go makes that the value, as one step of undo.
class MarkerHand
{
public:
    static constexpr int Reach = 5;         // px, to either side of a line
    static constexpr double NoValue = -1.0; // of PixelToValue() of a list: the pixel has none

    //! A value that a pixel has. One that reads as NoValue becomes its neighbour: markers step over no pixel that has
    //! none.
    static double ButNoValue(double value);

    //! \param list  borrowed: owns this.
    explicit MarkerHand(MarkerList & list) : m_list(list) {}

    ~MarkerHand();
    MarkerHand(MarkerHand const &) = delete;
    MarkerHand & operator=(MarkerHand const &) = delete;

    //! Whether a marker of any list is held: what is moved then becomes the value by letting go alone.
    static bool IsAnyHeld() { return s_held > 0; }

    //! Index of the marker that can be taken at a place: the one whose line is nearest; -1 for none.
    int Under(QPoint at) const;

    //! Index of the marker that is held, by the mouse or by a key; -1 for none.
    int Held() const { return m_held; }

    //! Each tells whether the event was for a marker.
    bool Press(QMouseEvent const * event);
    bool Move(QMouseEvent const * event); //!< shows by the pointer whether a marker can be dragged
    bool Release(QMouseEvent const * event);
    bool KeyPress(QKeyEvent const * event);
    bool KeyRelease(QKeyEvent const * event); //!< the key that was pressed last lets go, no other
    //! Lets go of what is held.
    void LetGo();

private:
    bool IsLevel(int index) const;
    bool CanBeTaken(int index) const;
    void Hold(int index);
    void ShowPointer(QPoint at);
    void DragTo(QPoint at);
    void Cancel();
    void MakeCurrent(int index);
    void MakeNextCurrent();
    bool IsRuler(int index) const;
    int ToStep(bool level);

    static int s_held; // markers, in all lists

    MarkerList & m_list;
    int m_held = -1;
    bool m_byMouse = false;
    int m_key = 0;         // the one that holds, unless the mouse does
    int m_grip = 0;        // px, from the pointer to the line
    double m_before = 0.0; // value when it was taken
};

#endif
