// SPDX-License-Identifier: MIT
#ifndef ORIM_RESULTHAND_H
#define ORIM_RESULTHAND_H

#include <QPoint>

class MarkerList;
class QKeyEvent;
class QMouseEvent;

//! The operator's hand on the result markers of a pane: a click on the line or the flag of one selects it, R selects
//! the next one, with Shift the one before.
class ResultHand
{
public:
    //! \param list  borrowed: owns this.
    explicit ResultHand(MarkerList & list) : m_list(list) {}

    ResultHand(ResultHand const &) = delete;
    ResultHand & operator=(ResultHand const &) = delete;

    //! Index of the result that a marker shows; -1 for a marker that shows none.
    static int ResultOf(int marker);

    //! Index of the result at a place, the nearest; -1 for none.
    int Under(QPoint at) const;

    //! Each tells whether the event was for a result.
    bool Press(QMouseEvent const * event);
    bool KeyPress(QKeyEvent const * event);

private:
    MarkerList & m_list;
};

#endif
