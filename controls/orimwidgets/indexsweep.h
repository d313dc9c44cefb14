// SPDX-License-Identifier: MIT
#ifndef ORIM_INDEXSWEEP_H
#define ORIM_INDEXSWEEP_H

#include "orimwidgets_export.h"

#include <QSize>
#include <QtGlobal>

#include <array>

//! Rewrites pixels of a picture with one byte a pixel, all in one pass. \a bits is the first pixel of the first row,
//! \a bytesPerLine the distance from one row to the next, \a size the pixels of the picture, and \a line holds one byte
//! for each column. What lies between the end of a row and the start of the next keeps its bytes. With no pixels, a
//! null pointer, or rows that overlap (bytesPerLine below the width) nothing is done. \a line must not lie in the
//! picture.
namespace IndexSweep {

//! Which of the 256 indices a sweep replaces.
using Hits = std::array<bool, 256>;

//! One index alone; none when it is not 0 .. 255.
ORIMWIDGETS_EXPORT Hits HitOne(int index);

//! Every index that leaves \a remainder when divided by \a modulus; none when the remainder is not 0 .. modulus - 1.
ORIMWIDGETS_EXPORT Hits HitEvery(int remainder, int modulus);

//! Every index from \a first on: all when it is negative, none when it is above 255.
ORIMWIDGETS_EXPORT Hits HitFrom(int first);

//! Gives every pixel whose index is hit the byte of \a line for its column.
ORIMWIDGETS_EXPORT void Replace(unsigned char * bits, qsizetype bytesPerLine, QSize const & size, Hits const & hits,
                                unsigned char const * line);

//! The same without vector instructions, as it runs on other processors.
ORIMWIDGETS_EXPORT void ReplacePortable(unsigned char * bits, qsizetype bytesPerLine, QSize const & size,
                                        Hits const & hits, unsigned char const * line);

//! Gives every pixel the byte of \a line for its column.
ORIMWIDGETS_EXPORT void CopyLine(unsigned char * bits, qsizetype bytesPerLine, QSize const & size,
                                 unsigned char const * line);

} // namespace IndexSweep

#endif
