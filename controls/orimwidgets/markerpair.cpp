// SPDX-License-Identifier: MIT
#include "markerpair.h"

namespace {

int PixelOf(WatchedMarker const & watched)
{
    Marker const * const marker = watched.Get();
    return marker ? marker->GetPixel() : -1;
}

} // namespace

MarkerPair::MarkerPair(Marker * x, Marker * y) : m_x(x), m_y(y) {}

int MarkerPair::XPixel() const { return PixelOf(m_x); }

int MarkerPair::YPixel() const { return PixelOf(m_y); }

QPen * MarkerPair::GetPen() const
{
    Marker * const marker = m_x.Get();
    return marker ? marker->GetPen() : nullptr;
}
