// SPDX-License-Identifier: MIT
#include "linepacer.h"

#include "toint.h"

#include <algorithm>
#include <cmath>

void LinePacer::Start(qint64 nanoseconds, double linesPerSecond)
{
    m_start = nanoseconds;
    m_rate = std::isfinite(linesPerSecond) && linesPerSecond > 0.0 ? linesPerSecond : 1.0;
    m_part = 0.0;
    m_index = 0;
}

void LinePacer::SetRate(qint64 nanoseconds, double linesPerSecond)
{
    double const part = std::clamp(Elapsed(nanoseconds) - static_cast<double>(m_index), 0.0, 1.0);
    Start(nanoseconds, linesPerSecond);
    m_part = part;
}

qint64 LinePacer::Due(qint64 nanoseconds)
{
    qint64 const due = toInt<qint64>(std::max(Elapsed(nanoseconds), 0.0)) - m_index;
    qint64 const most = std::max(CatchUpLines, toInt<qint64>(std::ceil(m_rate * CatchUpTime)));
    if (due <= most)
        return std::max<qint64>(due, 0);
    m_skipped += static_cast<quint64>(due - most);
    m_index += due - most;
    return most;
}

void LinePacer::SkipLate(qint64 nanoseconds)
{
    qint64 const late = toInt<qint64>(std::max(Elapsed(nanoseconds), 0.0)) - m_index - 1;
    if (late <= 0)
        return;
    m_skipped += static_cast<quint64>(late);
    m_index += late;
}

qint64 LinePacer::Wait(qint64 nanoseconds) const
{
    double const periods = static_cast<double>(m_index + 1) - Elapsed(nanoseconds);
    return std::max<qint64>(toInt<qint64>(std::ceil(periods / m_rate * 1e9)), 0);
}

qint64 LinePacer::DueAt() const
{
    return m_start + toInt<qint64>((static_cast<double>(m_index + 1) - m_part) / m_rate * 1e9);
}

double LinePacer::Elapsed(qint64 nanoseconds) const
{
    return static_cast<double>(nanoseconds - m_start) * 1e-9 * m_rate + m_part;
}
