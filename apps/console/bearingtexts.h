// SPDX-License-Identifier: MIT
#ifndef ORIM_BEARINGTEXTS_H
#define ORIM_BEARINGTEXTS_H

#include <QString>

//! Texts of the numbers of a direction finder, in the C locale; "--" for what is not finite.
namespace BearingTexts {

//! Three digits before the point: "041.3°". What rounds to 360 is 0.
//! \param bearing   deg, any.
//! \param decimals  0 to 3.
QString Bearing(double bearing, int decimals);
//! With its sign, as in "+2.0°" and "-4.5°"; none at zero.
QString Elevation(double elevation);
//! In whole percent, as in "95 %".
QString Quality(double quality);

} // namespace BearingTexts

#endif
