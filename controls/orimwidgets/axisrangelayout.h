// SPDX-License-Identifier: MIT
#ifndef ORIM_AXISRANGELAYOUT_H
#define ORIM_AXISRANGELAYOUT_H

#include "orimwidgets_export.h"

#include <QRect>
#include <QSize>

//! Where the parts of a range display stand: the two rulers at the ends of the axis that they belong to, all else in
//! the middle between them.
struct ORIMWIDGETS_EXPORT AxisRangeLayout
{
    static constexpr int Arrow = 7; // px, both ways
    static constexpr int Gap = 3;   // px between neighbours

    struct Look
    {
        bool horizontal = true; // lower ruler at the left; else at the bottom
        bool rulers = true;     // whether the read-outs of the rulers are shown
        QSize readOut;          // px
        int button = 0;         // px, width
    };

    //! The parts that fit into a display of a size; without room the button goes first, then the centre, then the
    //! rulers, then the arrows. A button that is too wide for a vertical display is left out, too. The difference is
    //! cut to what room there is.
    static AxisRangeLayout Of(QSize const & size, Look const & look);

    // a part that is left out has a rectangle that is not valid
    QRect lowRuler;
    QRect highRuler;
    QRect lowArrow; // beside the difference, towards the lower ruler
    QRect highArrow;
    QRect difference;
    QRect center;
    QRect button;
};

#endif
