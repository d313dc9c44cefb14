// SPDX-License-Identifier: MIT
#ifndef ORIM_YTYPEDEFINITION_H
#define ORIM_YTYPEDEFINITION_H

#include "orimcontracts_export.h"

#include <QString>

#include <vector>

//! Names of what a display can show on its value axis or in its colours.
//!
//! A name stands at the same place for every kind of display, so that the place serves as a key: 0 "Level",
//! 1 "Azimuth", 2 "Elevation", 3 "Quality", 4 "Frequency", 5 "Phase". A place that a kind does not offer holds an empty
//! text, and the places behind its last name are left out.
class ORIMCONTRACTS_EXPORT YTypeDefinition
{
public:
    //! Kinds of display.
    enum Kind
    {
        eSpectrum,        //!< curve: level; waterfall: level
        eDirectionFinder, //!< curve and waterfall: level, azimuth, elevation, quality
        eAzimuthFinder,   //!< as a direction finder, without elevation
        eTimeSignal       //!< curve: level, frequency, phase; waterfall: level
    };

    //! Dimensions of a curve. \param kind  a Kind; any other number gives an empty vector.
    static std::vector<QString> GetCurveDimensions(int kind);
    //! Dimensions of a waterfall. \param kind  a Kind; any other number gives an empty vector.
    static std::vector<QString> GetWaterfallDimensions(int kind);
};

#endif
