// SPDX-License-Identifier: MIT
#ifndef ORIM_BEARINGBANDS_H
#define ORIM_BEARINGBANDS_H

#include "orimwidgets_export.h"

#include <array>

//! The strip along an axis of bearings that tells starboard from port: one colour where a bearing lies to starboard of
//! the bow, one where it lies to port, and a ground colour ahead and astern.
namespace BearingBands {

struct Band
{
    double from; // degrees, relative to the bow
    double to;
    int color; // number in the table of single colours
};

//! In the order in which they are painted.
constexpr std::array<Band, 4> Bands{ {
    { -355.0, -185.0, 87 },
    { 5.0, 175.0, 87 },
    { 185.0, 355.0, 88 },
    { -175.0, -5.0, 88 },
} };
constexpr int GroundColor = 89;

struct Strip
{
    double start; // of the axis
    double stop;
    int origin;  // px along the axis
    int length;  // px
    bool invert; // pixels fall while values rise, as on a vertical axis
};

struct Pixels
{
    int position = 0; // px along the axis
    int length = 0;   // px; 0 paints nothing
};

//! Where a band lies on an axis. A band that reaches the upper end of the range ends a pixel before the strip does.
//! \return length 0 for a band outside the range, for an empty range, for one that runs downward, and where a place is
//!         not a number.
ORIMWIDGETS_EXPORT Pixels PixelsOf(Strip const & strip, double from, double to);

} // namespace BearingBands

#endif
