// SPDX-License-Identifier: MIT
#include "zoomhistory.h"

namespace ZoomHistory {

bool Overlaps(StartStopBandwidth const & entry, double start, double stop)
{
    return entry.start <= stop && entry.stop >= start;
}

bool KeepOverlapping(Queue & queue, double start, double stop)
{
    if (!queue.empty() && Overlaps(queue.back(), start, stop))
        return true;
    Clear(queue);
    return false;
}

void Pop(Queue & queue)
{
    if (queue.size() > 1)
        queue.pop_back();
    else
        Clear(queue);
}

std::optional<StartStopBandwidth> TakeOldest(Queue & queue)
{
    if (queue.empty())
        return std::nullopt;
    StartStopBandwidth const oldest = queue.front();
    Clear(queue);
    return oldest;
}

void Clear(Queue & queue)
{
    Queue().swap(queue); // clear() keeps the table of a queue that was long
}

} // namespace ZoomHistory
