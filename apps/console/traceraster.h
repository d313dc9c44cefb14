// SPDX-License-Identifier: MIT
#ifndef ORIM_TRACERASTER_H
#define ORIM_TRACERASTER_H

#include <QColor>

#include <vector>

//! Draws a trace of levels into scan lines.
namespace TraceRaster {

constexpr int NoRow = -1; // of a column without a level

//! Range of levels over the height of a picture, as an axis lays it: each row is as high as the others, \a top lies on
//! the upper edge of row 0, and \a bottom, on the lower edge of the last row, belongs to that.
struct LevelScale
{
    double bottom;
    double top;
    int height; // px
};

//! Row of a level: held at the first and last row outside the range.
//! \return NoRow for NaN, and when the scale is empty (height below 1, top not above bottom, or not finite).
int RowOf(LevelScale const & scale, double level);

//! Rows of the levels of all columns.
void RowsOf(LevelScale const & scale, std::vector<double> const & levels, std::vector<int> & rows);

//! A picture of 32 bits a pixel: \a stride is the distance of two lines in pixels.
struct Canvas
{
    QRgb * pixels;
    int stride;
    int height;
};

//! Copies the ground into a canvas: above the trace from \a plain, below it from \a filled; both have the canvas'
//! stride and height. A column without a row is plain.
void PaintGround(Canvas const & canvas, QRgb const * plain, QRgb const * filled, std::vector<int> const & rows);

//! Draws the trace: each column reaches half-way to the rows of its neighbours, so that the trace is one line.
//! \param thickness  least number of rows that a column covers, px.
void PaintLine(Canvas const & canvas, std::vector<int> const & rows, int thickness, QRgb ink);

} // namespace TraceRaster

#endif
