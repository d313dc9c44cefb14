// SPDX-License-Identifier: MIT
#ifndef ORIM_VC_H
#define ORIM_VC_H

#include "orimcontracts_export.h"

//! Base of panes that name shading roles and well-known values without a prefix.
class ORIMCONTRACTS_EXPORT VC
{
public:
    //! What a pane shades by. A role is the key of its colour set, so the numbers are stored and stay.
    enum EShadingColor : int
    {
        eShadingNone = 0,
        eShadingLevel = 1,
        eShadingAzimuth = 2,
        eShadingElevation = 3,
        eShadingBitStream = 4,
        eShadingAgeing = 5,
        eShadingQuality = 6,
        eShadingPolychrome = 7,
        eShadingDifference = 8
    };

    //! Number of a well-known value. The application chooses the numbers: any int may be cast to it.
    enum ID : int
    {
        eIdNone = 0
    };
};

#endif
