// SPDX-License-Identifier: MIT
#ifndef ORIM_NUMBERTEXTS_H
#define ORIM_NUMBERTEXTS_H

#include <QString>

//! Texts of the numbers that the panes show, in the C locale.
namespace NumberTexts {

//! A unit of frequency.
struct FrequencyUnit
{
    double hertz; // one unit in Hz
    char const * name;
};

//! Unit that suits frequencies up to a size: Hz below 1 kHz, kHz below 1 MHz, else MHz.
//! \param largest  Hz; its sign does not matter. NaN is shown in Hz.
FrequencyUnit UnitOf(double largest);

//! Digits behind the point with which neighbours that are \a step apart differ, 0 to 9; 0 for a step that is not above
//! 0.
int Decimals(double step);

//! Frequency without its unit.
//! \param hertz  any double.
//! \param step   Hz between neighbours.
QString Frequency(double hertz, double step, FrequencyUnit const & unit);
//! Frequency with its unit, as in "868.950 MHz".
QString FrequencyWithUnit(double hertz, double step);

//! Level without its unit; \a step is the distance of neighbours, dB.
QString Level(double level, double step);

//! Time as seconds, from one minute on as minutes and seconds: "0.25", "1:05.5".
//! \param seconds  below 0 counts as 0; "--" when it is not finite or above 1e9.
//! \param step     s between neighbours.
QString Time(double seconds, double step);

} // namespace NumberTexts

#endif
