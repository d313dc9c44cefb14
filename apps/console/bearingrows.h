// SPDX-License-Identifier: MIT
#ifndef ORIM_BEARINGROWS_H
#define ORIM_BEARINGROWS_H

#include "pixelmap.h"

#include <vector>

//! Which rows of a picture show which degrees, the highest on top. On a circle degrees are turned into the range first,
//! so that a range may begin anywhere.
class BearingRows
{
public:
    //! All numbers may be any; rows are px.
    struct Layout
    {
        double start = 0.0; // deg
        double stop = 0.0;  // deg
        int first = 0;      // topmost row
        int last = -1;      // lowest row
        bool isCircle = false;
    };

    //! Rows that follow one another, both ends belong to it.
    struct Part
    {
        int top;
        int bottom;
    };

    BearingRows() : BearingRows(Layout()) {}

    explicit BearingRows(Layout const & layout);

    //! Row of a direction; -1 outside the range, for what is not finite, and without rows or a range.
    int RowOf(double degrees) const;

    //! Rows of the directions around a middle; across the end of the circle they are two parts, the upper one in
    //! degrees first. None outside the range and for what is not finite. \param half  deg, below 0 counts as 0.
    std::vector<Part> PartsOf(double middle, double half) const;

    //! Degrees between two rows; 0 without rows or a range.
    double DegreesARow() const;

private:
    double Turned(double degrees) const;
    void AddPart(std::vector<Part> & parts, double low, double high) const;

    Layout m_layout;
    PixelMap m_map;
};

#endif
