// SPDX-License-Identifier: MIT
#include "axisbase.h"

#include "qtcompat.h"
#include "toint.h"
#include "valuetransaction.h"

#include <cmath>
#include <utility>

namespace {

constexpr double LeastRange = 0.1;   // axis units
constexpr double SameRange = 1e-07;  // axis units
constexpr int PixelsForOneUnit = 2;  // of a frequency axis
constexpr int OutsideBorder = 25;    // px, of the rows in which an outside marker is looked for
constexpr int MarkerAboveHeight = 1; // px from top to bottom of the hit rectangle of a marker above the range
constexpr int MarkerBelowHeight = 0;

} // namespace

// History

bool AxisBase::IsUnZoomAvailable() { return ZoomHistory::KeepOverlapping(m_unZoom, m_start, m_stop); }

void AxisBase::ClearUnZoom() { ZoomHistory::Clear(m_unZoom); }

void AxisBase::SetAxisZoomEnable(bool zoom, bool rangeMenu)
{
    m_zoomEnabled = zoom;
    m_rangeMenuEnabled = rangeMenu;
    BuildMenu();
}

// To a range

bool AxisBase::SetZoomedRange(double start, double stop, bool record)
{
    if (!(stop > start))
        std::swap(start, stop);
    if (IsTooNarrow(start, stop) || IsNearRange(start, stop) || !m_zoomEnabled)
        return false;
    StartStopBandwidth before(m_start, m_stop, 0.0);
    LifeWatch const life(GetObserverLifetime());
    if (!WriteBoundEnds(start, stop))
        return false;
    if (m_pStart)
        start = m_pStart->GetValue();
    if (m_pStop)
        stop = m_pStop->GetValue();
    if (!SetEnds(start, stop))
        return false;
    if (m_ticCount == 0) {
        SetEnds(before.start, before.stop);
        return false;
    }
    if (!FollowWithHalfWidth(start, stop, before.bandwidth))
        return false;
    Q_EMIT Zoomed();
    if (life.IsOver())
        return false;
    if (record && (m_start != before.start || m_stop != before.stop))
        m_unZoom.push_back(before);
    m_firstRange = false;
    return true;
}

//! NaN is too narrow.
bool AxisBase::IsTooNarrow(double start, double stop) const
{
    int const least = width() / PixelsForOneUnit; // units
    bool const isWide = !IsFrequencyAxis() || stop - start >= least;
    return !isWide || !(stop > start + LeastRange);
}

bool AxisBase::IsNearRange(double start, double stop) const
{
    return std::abs(start - m_start) < SameRange && std::abs(stop - m_stop) < SameRange;
}

//! Writes the bound values only.
bool AxisBase::WriteBoundEnds(double start, double stop)
{
    LifeWatch const life(GetObserverLifetime());
    if (m_pStart)
        m_pStart->SetValue(start, this);
    if (!life.IsOver() && m_pStop)
        m_pStop->SetValue(stop, this);
    return !life.IsOver();
}

//! Makes the bound half width reach from the center to the farther end, and sets the range again, since that can move
//! it. \param bandwidth  set to the half width before, if one is bound together with a center.
bool AxisBase::FollowWithHalfWidth(double start, double stop, double & bandwidth)
{
    if (!m_pHalfWidth || !m_pCenter)
        return true;
    LifeWatch const life(GetObserverLifetime());
    bandwidth = m_pHalfWidth->GetValue();
    m_pHalfWidth->SetValue(ZoomBand::HalfWidth(m_pCenter->GetValue(), start, stop), this);
    return !life.IsOver() && SetEnds(start, stop);
}

void AxisBase::UnZoom()
{
    LifeWatch const life(GetObserverLifetime());
    SetMustRecalcRulers(true);
    if (!m_unZoom.empty()) {
        StartStopBandwidth const back = m_unZoom.back();
        SetZoomedRange(back.start, back.stop, false);
        if (life.IsOver())
            return;
        ZoomHistory::Pop(m_unZoom); // whoever heard of the range may have emptied it
    }
    Q_EMIT Zoomed();
}

bool AxisBase::ZoomToBegin()
{
    auto const oldest = ZoomHistory::TakeOldest(m_unZoom);
    if (!oldest || !ZoomHistory::Overlaps(*oldest, m_start, m_stop))
        return false;
    SetZoomedRange(oldest->start, oldest->stop, false);
    return true;
}

bool AxisBase::ZoomToBest() { return false; }

bool AxisBase::ZoomToDefault()
{
    bool const isShown = m_start == m_defaultStart && m_stop == m_defaultStop;
    if (isShown || !ZoomBand::Differ(m_defaultStart, m_defaultStop)) {
        ZoomToBegin();
        return false;
    }
    ClearUnZoom();
    if (!ShowNamedRange(m_defaultStart, m_defaultStop))
        return false;
    LifeWatch const life(GetObserverLifetime());
    Q_EMIT Zoomed();
    if (life.IsOver())
        return false;
    SetMustRecalcRulers(true);
    RepairDrawing();
    return true;
}

void AxisBase::ZoomToDevice()
{
    ClearUnZoom();
    if (!ZoomBand::Differ(m_deviceStart, m_deviceStop)) { // as when both are unset
        ZoomToBegin();
        return;
    }
    if (!ShowNamedRange(m_deviceStart, m_deviceStop))
        return;
    SetMustRecalcRulers(true);
    RepairDrawing();
    Q_EMIT Zoomed();
}

//! Each bound value is told of in a bracket of its own.
bool AxisBase::ShowNamedRange(double start, double stop)
{
    LifeWatch const life(GetObserverLifetime());
    if (m_pStart) {
        ValueTransaction const transaction(m_pStart, eValueChanged, this);
        m_pStart->SetValue(start, this);
    }
    if (!life.IsOver() && m_pStop) {
        ValueTransaction const transaction(m_pStop, eValueChanged, this);
        m_pStop->SetValue(stop, this);
    }
    return !life.IsOver() && SetEnds(start, stop);
}

// Markers outside the range

bool AxisBase::FindOutsideMarker(QMouseEvent * event, double & value)
{
    if (!event)
        return false;
    int const y = toInt(std::round(Position(event).y()));
    bool const isAbove = y < OutsideBorder;
    if (!isAbove && y <= height() - OutsideBorder)
        return false;
    int const wanted = isAbove ? MarkerAboveHeight : MarkerBelowHeight;
    for (Marker * const marker : GetOutsideMarkers()) {
        QRect const hit = marker->GetRect();
        if (static_cast<long long>(hit.bottom()) - hit.top() != wanted)
            continue;
        value = marker->GetValue();
        return true;
    }
    return false;
}

bool AxisBase::ApplyOutsideMarker(QMouseEvent * event)
{
    double value = 0.0;
    if (!FindOutsideMarker(event, value))
        return false;
    if (value < m_start) {
        SetStartValue(value);
        return true;
    }
    if (value > m_stop) {
        SetStopValue(value);
        return true;
    }
    return false;
}
