// SPDX-License-Identifier: MIT
#ifndef ORIM_ZOOMHISTORY_H
#define ORIM_ZOOMHISTORY_H

#include "orimwidgets_export.h"

#include <deque>
#include <optional>

//! The ranges that an axis can go back to, the latest at the back. Nothing limits their number; an entry takes 24
//! bytes, and what empties the queue frees its memory.
namespace ZoomHistory {

//! A range to go back to.
struct StartStopBandwidth
{
    StartStopBandwidth(double theStart, double theStop, double theBandwidth)
        : start(theStart)
        , stop(theStop)
        , bandwidth(theBandwidth)
    {}

    //! All three are equal.
    bool operator==(StartStopBandwidth const & other) const
    {
        return start == other.start && stop == other.stop && bandwidth == other.bandwidth;
    }

    //! By the start alone.
    bool operator<(StartStopBandwidth const & other) const { return start < other.start; }

    double start;
    double stop;
    double bandwidth;
};

using Queue = std::deque<StartStopBandwidth>;

//! Whether an entry shares a value with the range from \a start to \a stop; a common end is enough. False when one of
//! the numbers is NaN.
ORIMWIDGETS_EXPORT bool Overlaps(StartStopBandwidth const & entry, double start, double stop);
//! Whether the latest entry overlaps a range. When it does not, the queue is emptied.
ORIMWIDGETS_EXPORT bool KeepOverlapping(Queue & queue, double start, double stop);
//! Removes the latest entry, if there is one.
ORIMWIDGETS_EXPORT void Pop(Queue & queue);
//! Empties the queue. \return what was its oldest entry; nothing when it was empty.
ORIMWIDGETS_EXPORT std::optional<StartStopBandwidth> TakeOldest(Queue & queue);
ORIMWIDGETS_EXPORT void Clear(Queue & queue);

} // namespace ZoomHistory

#endif
