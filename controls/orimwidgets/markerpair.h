// SPDX-License-Identifier: MIT
#ifndef ORIM_MARKERPAIR_H
#define ORIM_MARKERPAIR_H

#include "orimwidgets_export.h"
#include "watchedmarker.h"

class QPen;

//! Two markers read as one crossing point. MarkerList::AddMarkerPair() makes one. The markers belong to their list; one
//! that is missing or has ended has no pixel.
class ORIMWIDGETS_EXPORT MarkerPair
{
public:
    //! Not shown at first. \param x  may be null, and so may \a y.
    MarkerPair(Marker * x, Marker * y);

    //! Whether the crossing is to be drawn, whatever the markers show by themselves.
    void SetShowMarker(bool show) { m_show = show; }

    bool GetShowMarker() const { return m_show; }

    //! Cached pixel of the X marker; -1 while it has none.
    int XPixel() const;
    //! Cached pixel of the Y marker; -1 while it has none.
    int YPixel() const;
    //! Marker::GetPen() of the X marker; null without it.
    QPen * GetPen() const;

private:
    bool m_show = false;
    WatchedMarker m_x;
    WatchedMarker m_y;
};

#endif
