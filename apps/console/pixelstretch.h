// SPDX-License-Identifier: MIT
#ifndef ORIM_PIXELSTRETCH_H
#define ORIM_PIXELSTRETCH_H

#include <QImage>
#include <QRectF>

//! Lays the pixels of one indexed picture over another, larger or smaller, without losing any that is set.
namespace PixelStretch {

//! Each pixel covers those pixels whose middles lie within its place, and one at least. Where several share a pixel,
//! the last one stays, row by row. What leaves the picture is cut off.
//! \param from         of the format Indexed8, as \a onto; nothing happens with another, or without pixels.
//! \param place        that \a from takes, in pixels of \a onto; nothing happens when it is not finite, or empty.
//! \param firstGround  index from which pixels of \a from are not set.
//! \param onto         keeps its palette, and its pixels where none is laid.
void Lay(QImage const & from, QRectF const & place, int firstGround, QImage & onto);

} // namespace PixelStretch

#endif
