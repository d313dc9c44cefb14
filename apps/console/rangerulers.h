// SPDX-License-Identifier: MIT
#ifndef ORIM_RANGERULERS_H
#define ORIM_RANGERULERS_H

#include "valuefollower.h"

//! Two values that hold two markers in rising order, whichever of these is the lower one. A range display reads and
//! writes the two values; the markers keep their names while one is dragged past the other, and move as the range does.
class RangeRulers
{
public:
    //! Paths of numbers in the tree.
    struct Paths
    {
        char const * first; // of the markers
        char const * second;
        char const * lower;
        char const * upper;
    };

    explicit RangeRulers(Paths const & paths);
    RangeRulers(RangeRulers const &) = delete;
    RangeRulers & operator=(RangeRulers const &) = delete;

private:
    void FollowMarkers();
    void MoveMarker(bool lower);

    bool m_isSwapped = false; // the second marker is the lower one
    bool m_isMoving = false;  // the markers follow, or are followed
    ValueFollower m_first;
    ValueFollower m_second;
    ValueFollower m_lower;
    ValueFollower m_upper;
};

#endif
