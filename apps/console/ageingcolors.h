// SPDX-License-Identifier: MIT
#ifndef ORIM_AGEINGCOLORS_H
#define ORIM_AGEINGCOLORS_H

#include <QRgb>

#include <vector>

//! The colours of what ages, in the sets of the central object that serve ageing and quality.
namespace AgeingColors {

//! Fills the set that serves ageing so that it can be read in the colour set that is loaded: the newest has the colour
//! of the spectrum's trace, the oldest is near the ground. Raises GuiBase::signalColorsChanged() when the set was
//! another one. A set that serves levels as well stays as it is, and so
//! does every set while the signal is raised.
//! \param byQuality  the ground is black, since colours by quality fade to that.
//! \return whether it was another one.
bool Fit(bool byQuality);

//! The colours that an ageing image shows, from the newest to the oldest section of its life, for each quality from the
//! worst on.
//! \param sections, qualities  at least 1; less counts as 1.
std::vector<std::vector<QRgb>> Ages(int sections, int qualities);

} // namespace AgeingColors

#endif
