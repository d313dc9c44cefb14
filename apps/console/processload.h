// SPDX-License-Identifier: MIT
#ifndef ORIM_PROCESSLOAD_H
#define ORIM_PROCESSLOAD_H

#include <QElapsedTimer>

//! Processor time that the whole process uses, all threads together, since this was made.
class ProcessLoad
{
public:
    ProcessLoad();

    //! Part of one core, percent: above 100 when more than one is in use; 0 when no time has gone by.
    double Percent() const;
    //! Time since this was made, s.
    double Seconds() const;

private:
    static double ProcessorSeconds();

    QElapsedTimer m_clock;
    double m_start = 0.0; // s
};

#endif
