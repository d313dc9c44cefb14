// SPDX-License-Identifier: MIT
#ifndef ORIM_SCANLINES_H
#define ORIM_SCANLINES_H

#include "orimwidgets_export.h"

#include <QColor>
#include <QImage>

//! Writes into the scan lines of a picture, in its own pixels whatever its device pixel ratio. Pictures are of the
//! format RGB32 or ARGB32_Premultiplied; in any other, a null one included, nothing is drawn.
namespace ScanLines {

//! Whether a picture can be drawn into: it is not null and of one of the two formats.
ORIMWIDGETS_EXPORT bool CanDraw(QImage const & image);

//! A colour as a pixel with its alpha multiplied in; 0, transparent, for an invalid colour.
ORIMWIDGETS_EXPORT QRgb Ink(QColor const & color);

//! An ink over a ground, both with their alpha multiplied in; each channel rounded to the nearest.
inline QRgb Over(QRgb ink, QRgb ground)
{
    unsigned int const alpha = ink >> 24U;
    if (alpha == 255U)
        return ink;
    unsigned int const rest = 255U - alpha;
    unsigned int redBlue = (ground & 0xff00ffU) * rest + 0x800080U;
    redBlue = ((redBlue + ((redBlue >> 8U) & 0xff00ffU)) >> 8U) & 0xff00ffU;
    unsigned int alphaGreen = ((ground >> 8U) & 0xff00ffU) * rest + 0x800080U;
    alphaGreen = (alphaGreen + ((alphaGreen >> 8U) & 0xff00ffU)) & 0xff00ff00U;
    return ink + (redBlue | alphaGreen);
}

//! Sets all pixels of a rectangle, cut at the picture.
ORIMWIDGETS_EXPORT void Fill(QImage & image, QRect const & rect, QRgb ink);

//! Lays a picture of the format ARGB32_Premultiplied over another, pixel on pixel, its top left one at \a position; cut
//! at \a clip and at the picture. Another format of \a ink draws nothing.
ORIMWIDGETS_EXPORT void Blend(QImage & image, QPoint const & position, QImage const & ink, QRect const & clip);

} // namespace ScanLines

#endif
