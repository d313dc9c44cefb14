// SPDX-License-Identifier: MIT
#ifndef ORIM_STREAMCLOCK_H
#define ORIM_STREAMCLOCK_H

//! Time that has passed in a recording, counted from the positions of its lines. A recording is played as a ring: the
//! beginning follows its end. A position in the half ring ahead has been played up to; one in the half ring behind is a
//! jump back. The time stands still while nobody tells of a line.
class StreamClock
{
public:
    StreamClock() { Start(0.0); }

    //! Forgets what was told. \param duration  of the recording, s; 0 for one without an end: every fall is then a jump
    //! back. What is not finite or below 0 counts as 0.
    void Start(double duration);

    //! Takes the position of a line, s.
    //! \return the time, us, above 0; at least 1 ms below that of the call before after a jump back. A position that is
    //! not finite or below 0 leaves it as it is.
    unsigned long long Advance(double seconds);

    //! Takes the position of a line up to which the time stood still; a jump back counts.
    void Skip(double seconds);

private:
    void Take(double seconds, double pace);

    double m_duration = 0.0; // s
    double m_last = -1.0;    // s, position of the last line; below 0 before the first
    double m_time = 0.0;     // s
};

#endif
