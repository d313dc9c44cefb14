// SPDX-License-Identifier: MIT
#include "bearinghistory.h"

#include <algorithm>
#include <cmath>

BearingHistory::BearingHistory(QObject * parent) : QObject(parent) {}

BearingHistory::~BearingHistory() = default;

void BearingHistory::DropFirst()
{
    m_entries.pop_front();
    ++m_first;
}

void BearingHistory::Append(std::vector<BearingMeasurement> const & measurements, double now)
{
    if (!std::isfinite(now) || (measurements.empty() && m_entries.empty()))
        return;
    bool const isBack = !m_entries.empty() && now < m_now;
    m_now = now;
    while (!m_entries.empty() && (isBack || now - m_entries.front().time > Hold))
        DropFirst();
    for (BearingMeasurement const & measurement : measurements)
        m_entries.push_back({ measurement, now });
    while (m_entries.size() > Most)
        DropFirst();
    Q_EMIT signalChanged();
}

double BearingHistory::GetAge(Entry const & entry) const { return std::clamp((m_now - entry.time) / Hold, 0.0, 1.0); }
