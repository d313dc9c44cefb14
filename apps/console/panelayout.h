// SPDX-License-Identifier: MIT
#ifndef ORIM_PANELAYOUT_H
#define ORIM_PANELAYOUT_H

#include <QColor>
#include <QRect>
#include <QSize>

//! Widths around the picture of a pane, px.
struct PaneMargins
{
    int left;
    int top;
    int right;
    int bottom;
};

//! Colours of a pane.
struct PaneColors
{
    QColor ground; // of the picture
    QColor frame;  // of the margins
    QColor text;
    QColor grid;
    QColor trace;
    QColor peak;
};

//! Geometry of a pane in device pixels.
namespace PaneLayout {

//! Device pixels of a length in logical ones; \a ratio is device pixels a logical one, held to 0.25 .. 16; NaN counts
//! as 1.
int ToDevice(int length, double ratio);
QSize ToDevice(QSize size, double ratio);
//! Each edge for itself, so that what adjoins in logical pixels adjoins in device pixels.
QRect ToDevice(QRect const & rect, double ratio);

//! Part of a pane that the picture fills; empty, with no size below 0, when the margins leave nothing.
QRect PictureRect(QSize pane, PaneMargins const & margins);

//! A colour between two: \a part of \a over, the rest \a ground; opaque.
QColor Mix(QColor const & ground, QColor const & over, double part);

} // namespace PaneLayout

#endif
