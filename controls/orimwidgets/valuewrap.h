// SPDX-License-Identifier: MIT
#ifndef ORIM_VALUEWRAP_H
#define ORIM_VALUEWRAP_H

#include "orimwidgets_export.h"

//! How bearings are written: the keys of the selection that an axis follows, as bits.
enum EAzimuthDisplay : long
{
    eAzimuthAbsolute = 0x1, //!< from north
    eAzimuthRelative = 0x2, //!< from the axis of the vehicle; an axis then shows the strip of bearing bands
    eAzimuthBands = eAzimuthRelative,
    eAzimuthPositive = 0x4, //!< 0 to 359.9
    eAzimuthSigned = 0x8    //!< -179.9 to 180; counts before eAzimuthPositive
};

//! A bearing as it is written: turned by whole turns until it is not below the low end, then until it is not above the
//! high end. The ends are closer than a turn: what lies in the gap comes to rest below the low end, as 359.95 does at
//! -0.05. The same answer as turn by turn, in bounded time.
//! \param value  degrees, any double. NaN and infinities stay as they are.
//! \param key    bits of EAzimuthDisplay; without eAzimuthPositive and eAzimuthSigned the value stays.
ORIMWIDGETS_EXPORT double WrapForDisplay(double value, long key);

#endif
