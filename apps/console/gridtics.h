// SPDX-License-Identifier: MIT
#ifndef ORIM_GRIDTICS_H
#define ORIM_GRIDTICS_H

#include <QString>

#include <functional>
#include <vector>

//! Lines of a grid and where their labels stand, so that no label is cut or touches its neighbour.
namespace GridTics {

//! One grid line. A label that has no room is empty.
struct Tic
{
    double value;
    int pixel;
    QString label;
    int labelStart; // px along the axis
    int labelExtent;
};

//! An axis of \a length pixels; \a first is the value at pixel 0, \a last the one just behind the last pixel. A falling
//! axis (first above last) is one too.
struct Axis
{
    double first;
    double last;
    int length;
};

//! Where labels may stand and what they need.
struct Labels
{
    int lowest;                                       // first pixel that a label may cover, may be negative
    int highest;                                      // last such pixel
    int gap;                                          // least distance of two labels, px
    int spacing;                                      // least distance of two grid lines, px
    std::function<int(QString const & label)> extent; // px along the axis
    std::function<QString(double value, double step)> text;
};

constexpr int MostTics = 1000;

//! Steps of 1, 2 or 5 times a power of ten.
//! \return the smallest that is not below \a least; 0 when that is not a finite number above 0.
double NiceStep(double least);

//! Multiples of a step within a range, rising, at most MostTics.
//! \return none for a step that is not above 0, a range that is not finite, and when there would be more than MostTics.
std::vector<double> Multiples(double low, double high, double step);

//! Grid lines at the finest step at which the labels keep their distance. None for an axis that is empty, not finite,
//! or shorter than two pixels.
std::vector<Tic> Lay(Axis const & axis, Labels const & labels);

//! One row of a waterfall that bears a time.
struct RowTic
{
    int row;
    QString label;
};

//! Rows at which the time passes a multiple of a step, oldest first.
//! \param stamps   times of the rows, s, newest first; a time that is later than that of a newer row starts a new
//! count. \param spacing  least distance of two labels, rows.
std::vector<RowTic> LayRows(std::vector<double> const & stamps, int spacing);

} // namespace GridTics

#endif
