// SPDX-License-Identifier: MIT
#ifndef ORIM_RESULTHAND_H
#define ORIM_RESULTHAND_H

#include <QPoint>

class MarkerList;
class QKeyEvent;

//! The operator's hand on the result markers of a pane: it finds the one whose line or flag is clicked at; R selects
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

    //! \return whether the key was for the results.
    static bool KeyPress(QKeyEvent const * event);

private:
    MarkerList & m_list;
};

#endif
