// SPDX-License-Identifier: MIT
#ifndef ORIM_SPECTRUMLINE_H
#define ORIM_SPECTRUMLINE_H

#include <QtGlobal>

#include <vector>

//! Level that stands for no power at all, dBFS: what the logarithm of 0 shows as, and the lowest level there is.
constexpr double LevelFloor = -160.0;

//! One finished line of a spectrum. Level i belongs to the frequency centre - span / 2 + i * span / levels.size().
struct SpectrumLine
{
    quint64 number = 0;         //!< counts the lines of one player from 0 without gaps
    double seconds = 0.0;       //!< position in the recording of the line's middle, s
    double time = 0.0;          //!< when it was made, us since 1970 in UTC; 0 when nobody tells
    double centre = 0.0;        //!< middle of the line, Hz
    double span = 0.0;          //!< width of the line, Hz
    std::vector<double> levels; //!< dBFS, ascending in frequency; LevelFloor or above, never NaN
};

#endif
