// SPDX-License-Identifier: MIT
#ifndef ORIM_CPUCLOCK_H
#define ORIM_CPUCLOCK_H

#include <ctime>

//! Time that a processor spent on this thread. A limit on what our own code costs is held against it: the machine may
//! stop a whole program for tens of milliseconds, which says nothing about the program.
class CpuClock
{
public:
    //! Starts at once.
    CpuClock() { Restart(); }

    void Restart() { m_start = Now(); }

    //! ns since the start.
    long long Elapsed() const { return Now() - m_start; }

    //! ms since the start.
    double Milliseconds() const { return static_cast<double>(Elapsed()) / 1e6; }

private:
    static long long Now()
    {
        std::timespec now{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
        return static_cast<long long>(now.tv_sec) * 1000000000LL + now.tv_nsec;
    }

    long long m_start = 0;
};

#endif
