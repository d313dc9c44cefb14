// SPDX-License-Identifier: MIT
#include "rangerulers.h"

#include "valuenumeric.h"

#include <QScopedValueRollback>

#include <algorithm>

RangeRulers::RangeRulers(Paths const & paths)
    : m_first([this] { FollowMarkers(); })
    , m_second([this] { FollowMarkers(); })
    , m_lower([this] { MoveMarker(true); })
    , m_upper([this] { MoveMarker(false); })
{
    m_isMoving = true; // until all four are bound
    m_first.Bind(QLatin1String(paths.first));
    m_second.Bind(QLatin1String(paths.second));
    m_lower.Bind(QLatin1String(paths.lower));
    m_upper.Bind(QLatin1String(paths.upper));
    m_isMoving = false;
    FollowMarkers();
}

void RangeRulers::FollowMarkers()
{
    if (m_isMoving)
        return;
    IValueNumeric const * const one = m_first.Numeric();
    IValueNumeric const * const other = m_second.Numeric();
    IValueNumeric * const lower = m_lower.Numeric();
    IValueNumeric * const upper = m_upper.Numeric();
    if (!one || !other || !lower || !upper)
        return;
    QScopedValueRollback<bool> const guard(m_isMoving, true);
    double const first = one->GetInterimValue(); // the value itself, unless it is dragged
    double const second = other->GetInterimValue();
    m_isSwapped = second < first;
    bool const isDragged = first != one->GetNumericValue() || second != other->GetNumericValue();
    auto const tell = [isDragged](IValueNumeric & value, double number) {
        value.SetInterimValue(number, nullptr);
        if (!isDragged)
            value.SetNumericValue(number, nullptr);
    };
    // who reads the two never finds them crossed
    bool const isUpward = std::min(first, second) > upper->GetInterimValue();
    if (isUpward)
        tell(*upper, std::max(first, second));
    tell(*lower, std::min(first, second));
    if (!isUpward)
        tell(*upper, std::max(first, second));
}

//! The two values come one after the other: which marker is the lower one stays until a marker moves by itself.
void RangeRulers::MoveMarker(bool lower)
{
    if (m_isMoving)
        return;
    QScopedValueRollback<bool> const guard(m_isMoving, true);
    ValueFollower & marker = lower != m_isSwapped ? m_first : m_second;
    marker.SetNumber(lower ? m_lower.Number(0.0) : m_upper.Number(0.0));
}
