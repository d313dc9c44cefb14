// SPDX-License-Identifier: MIT
#ifndef ORIM_LINEPACER_H
#define ORIM_LINEPACER_H

#include <QtGlobal>

//! Tells how many lines are due at a time of a steady clock. Lines are counted from the clock, never added up, so that
//! their average rate is exact however long it runs. After a stall a few lines are caught up, the others are skipped.
class LinePacer
{
public:
    //! Lines that are caught up at most: this many, or those of CatchUpTime where that is more.
    static constexpr qint64 CatchUpLines = 8;
    static constexpr double CatchUpTime = 0.1; // s

    //! Begins to count at a time, with the first line due one line period later.
    //! \param nanoseconds     time of the clock.
    //! \param linesPerSecond  finite and above 0; others count as 1.
    void Start(qint64 nanoseconds, double linesPerSecond);
    //! Begins anew with another rate; the part of a line period that has gone by is kept.
    void SetRate(qint64 nanoseconds, double linesPerSecond);

    //! Skips what is too late at a time.
    //! \return lines that are due now, 0 and above.
    qint64 Due(qint64 nanoseconds);

    //! Skips all lines that are due at a time but the latest.
    void SkipLate(qint64 nanoseconds);

    //! Passes on to the next line.
    void Advance() { ++m_index; }

    //! The line that is made next, counted from the start, with the skipped ones.
    qint64 Index() const { return m_index; }

    //! Lines skipped since this was made.
    quint64 Skipped() const { return m_skipped; }

    //! Time of the clock at which the line that is made next is due, ns.
    qint64 DueAt() const;

    //! Time from a time of the clock until the next line is due, ns; 0 when it is due.
    qint64 Wait(qint64 nanoseconds) const;

private:
    double Elapsed(qint64 nanoseconds) const; // in line periods

    qint64 m_start = 0;  // ns
    double m_rate = 1.0; // 1/s
    double m_part = 0.0; // line periods gone by at the start
    qint64 m_index = 0;
    quint64 m_skipped = 0;
};

#endif
