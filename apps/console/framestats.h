// SPDX-License-Identifier: MIT
#ifndef ORIM_FRAMESTATS_H
#define ORIM_FRAMESTATS_H

#include <QtGlobal>

//! Counts frames and how long each took. A frame is all the work from taking lines to the last pane painted.
class FrameStats
{
public:
    //! Adds to the frame that is being made. \param nanoseconds  below 0 counts as 0.
    void AddWork(qint64 nanoseconds);
    //! Ends the frame that is being made.
    void EndFrame();

    quint64 Frames() const { return m_frames; }

    //! Time of a frame, ms; 0 before the first.
    double MeanMilliseconds() const;
    double MaxMilliseconds() const;

private:
    qint64 m_current = 0; // ns
    qint64 m_sum = 0;     // ns, of ended frames
    qint64 m_max = 0;     // ns
    quint64 m_frames = 0;
};

#endif
