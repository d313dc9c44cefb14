// SPDX-License-Identifier: MIT
#ifndef ORIM_CONSOLEFIGURES_H
#define ORIM_CONSOLEFIGURES_H

#include <QString>
#include <QtGlobal>

//! What a run of the console came to.
struct ConsoleFigures
{
    quint64 produced = 0; //!< lines made
    quint64 taken = 0;    //!< lines taken from the queue
    quint64 painted = 0;  //!< rows painted
    quint64 frames = 0;
    quint64 dropped = 0;    //!< lines that fell out of the queue
    quint64 skipped = 0;    //!< lines that were never made, because the machine was late
    double processor = 0.0; //!< percent of one core
    double frameMean = 0.0; //!< ms
    double frameMax = 0.0;  //!< ms

    //! One line of text.
    QString ToText() const;
};

#endif
