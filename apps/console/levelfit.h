// SPDX-License-Identifier: MIT
#ifndef ORIM_LEVELFIT_H
#define ORIM_LEVELFIT_H

#include <vector>

//! A range of levels, dBFS.
struct LevelRange
{
    double min;
    double max;
};

//! Range that shows a line well: its noise near the lower end, its highest level below the upper end. Both are
//! multiples of 10 dB, at least 40 dB apart. \param levels  dBFS; those that are not finite do not count. Without any:
//! -120 to 0.
LevelRange FitLevels(std::vector<double> const & levels);

#endif
