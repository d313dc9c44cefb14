// SPDX-License-Identifier: MIT
#include "framestats.h"

#include <algorithm>

namespace {

constexpr double NanosecondsAMillisecond = 1e6;

} // namespace

void FrameStats::AddWork(qint64 nanoseconds) { m_current += std::max<qint64>(0, nanoseconds); }

void FrameStats::EndFrame()
{
    ++m_frames;
    m_sum += m_current;
    m_max = std::max(m_max, m_current);
    m_current = 0;
}

double FrameStats::MeanMilliseconds() const
{
    return m_frames > 0 ? static_cast<double>(m_sum) / static_cast<double>(m_frames) / NanosecondsAMillisecond : 0.0;
}

double FrameStats::MaxMilliseconds() const { return static_cast<double>(m_max) / NanosecondsAMillisecond; }
