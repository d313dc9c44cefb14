// SPDX-License-Identifier: MIT
#ifndef ORIM_SHADINGSTRIP_H
#define ORIM_SHADINGSTRIP_H

#include "orimwidgets_export.h"

#include <QRectF>
#include <QRgb>

#include <functional>

class QPainter;

//! A strip of coloured lines, one a pixel.
namespace ShadingStrip {

struct Area
{
    int x; // px, of the first line
    int y;
    int w; // px; the strip is one pixel wider and one higher
    int h;
    bool vertical; // lines lie side by side from top to bottom; else from left to right
};

//! Paints the lines of an area that can be seen, in the order of their number: line 0 at x, y, and h + 1 or w + 1 in
//! all.
//! \param colorOf  colour of a line; its alpha is not used.
ORIMWIDGETS_EXPORT void Paint(QPainter & painter, Area const & area, std::function<QRgb(int)> const & colorOf);

//! What a painter can reach on its device, in the coordinates of the painter; 0 by 0 when it reaches nothing. A device
//! without a size counts as 65,536 px wide and high about 0.
ORIMWIDGETS_EXPORT QRectF ShownArea(QPainter const & painter);

} // namespace ShadingStrip

#endif
