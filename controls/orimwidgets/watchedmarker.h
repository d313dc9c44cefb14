// SPDX-License-Identifier: MIT
#ifndef ORIM_WATCHEDMARKER_H
#define ORIM_WATCHEDMARKER_H

#include "lifetime.h"
#include "marker.h"

//! A marker of any list, which may end at any time.
class WatchedMarker
{
public:
    WatchedMarker() = default;

    //! \param marker  may be null.
    explicit WatchedMarker(Marker * marker) : m_pMarker(marker)
    {
        if (marker)
            m_life = LifeWatch(marker->GetObserverLifetime());
    }

    //! Null once it has ended, and without one.
    Marker * Get() const { return m_life.IsOver() ? nullptr : m_pMarker; }

private:
    Marker * m_pMarker = nullptr;
    LifeWatch m_life;
};

#endif
