// SPDX-License-Identifier: MIT
#ifndef ORIM_FLAGLAYOUT_H
#define ORIM_FLAGLAYOUT_H

#include <QRect>
#include <QSize>

#include <vector>

//! Places the flags of markers so that none is cut and none covers another. All lengths are in one unit, px.
namespace FlagLayout {

//! A flag that hangs on a line.
struct Flag
{
    int line; // where the line stands: x of an upright one, y of a level one
    QSize size;
};

//! Places flags on upright lines: right of the line, left of it where there is no room, in the topmost row that is
//! free. The first flag is placed first.
//! \param room  where flags may stand.
//! \param gap   distance of a flag from its line and from other flags.
//! \return a rectangle a flag; a null one for a flag that has no room.
std::vector<QRect> LayOnUprights(std::vector<Flag> const & flags, QRect const & room, int gap);

//! Places flags on level lines, at the left of the room: at the height of the line where that is free, else as near to
//! it as possible.
std::vector<QRect> LayOnLevels(std::vector<Flag> const & flags, QRect const & room, int gap);

} // namespace FlagLayout

#endif
