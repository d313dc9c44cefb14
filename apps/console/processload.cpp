// SPDX-License-Identifier: MIT
#include "processload.h"

#include <sys/resource.h>

namespace {

double Seconds(timeval const & time)
{
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

} // namespace

ProcessLoad::ProcessLoad() : m_start(ProcessorSeconds()) { m_clock.start(); }

double ProcessLoad::Percent() const
{
    double const seconds = Seconds();
    return seconds > 0.0 ? 100.0 * (ProcessorSeconds() - m_start) / seconds : 0.0;
}

double ProcessLoad::Seconds() const { return static_cast<double>(m_clock.nsecsElapsed()) * 1e-9; }

double ProcessLoad::ProcessorSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return ::Seconds(usage.ru_utime) + ::Seconds(usage.ru_stime);
}
