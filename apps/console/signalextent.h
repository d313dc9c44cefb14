// SPDX-License-Identifier: MIT
#ifndef ORIM_SIGNALEXTENT_H
#define ORIM_SIGNALEXTENT_H

#include <vector>

//! The columns of a spectrum that one signal takes, \a first to \a last; \a last is below \a first for none.
struct SignalExtent
{
    int first;
    int last;
};

//! Finds the highest signal: its highest column, and those around it that stand 6 dB above the noise, the median of
//! all, and at most 40 dB below the highest.
//! \param levels  dB, one a column; NaN for a column without one.
//! \param taken   columns that are not looked at, and at which a signal ends; one missing here is free.
//! \param least   columns that the answer has at least, where the spectrum is as wide; it is a quarter of it at most,
//!                unless this is more.
SignalExtent FindSignal(std::vector<double> const & levels, std::vector<bool> const & taken, int least);

#endif
