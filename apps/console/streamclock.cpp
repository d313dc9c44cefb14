// SPDX-License-Identifier: MIT
#include "streamclock.h"

#include "toint.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double FirstTime = 1e5;    // s: room for jumps back
constexpr double LastTime = 1e12;    // s
constexpr double JumpBack = 0.002;   // s
constexpr double Microseconds = 1e6; // a second

} // namespace

void StreamClock::Start(double duration)
{
    bool const good = std::isfinite(duration) && duration > 0.0;
    m_duration = good ? duration : 0.0;
    m_last = -1.0;
    m_time = FirstTime;
}

unsigned long long StreamClock::Advance(double seconds)
{
    Take(seconds, 1.0);
    return toInt<unsigned long long>(m_time * Microseconds);
}

void StreamClock::Skip(double seconds) { Take(seconds, 0.0); }

//! \param pace  of the time while the positions go on.
void StreamClock::Take(double seconds, double pace)
{
    if (!std::isfinite(seconds) || seconds < 0.0)
        return;
    double passed = m_last < 0.0 ? 0.0 : seconds - m_last;
    if (m_duration > 0.0)
        passed = std::remainder(passed, m_duration); // -half .. half a ring
    m_last = seconds;
    m_time = std::clamp(m_time + (passed < 0.0 ? -JumpBack : passed * pace), JumpBack, LastTime);
}
