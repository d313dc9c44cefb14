// SPDX-License-Identifier: MIT
#ifndef ORIM_BEARINGVALUES_H
#define ORIM_BEARINGVALUES_H

#include "azimuthformatter.h"
#include "valuefollower.h"

#include <QString>

#include <vector>

//! The values of the bearing panes: puts them into the tree and takes them out again. They are the shown ranges of
//! azimuth and elevation, each at least LeastSpan wide, and the heading of the vehicle. When the azimuth mode asks for
//! the other kind of circle the range of azimuth becomes the whole of that. While a mode counts from the vehicle, a
//! change of its heading is told as one of the mode.
class BearingValues
{
public:
    static constexpr double LeastSpan = 1.0; // deg
    static constexpr double Zenith = 90.0;   // deg
    static constexpr double Horizon = -30.0; // deg, lower end of the elevations at the start

    BearingValues();
    ~BearingValues();
    BearingValues(BearingValues const &) = delete;
    BearingValues & operator=(BearingValues const &) = delete;

    //! Shows the whole circle.
    static void ShowAllAzimuths();
    //! Shows the elevations from Horizon to Zenith.
    static void ShowElevations();

private:
    void TakeMode();
    void LimitAzimuths();
    void LimitElevations();

    std::vector<QString> m_paths; // what was put into the tree
    double m_start = 0.0;         // deg, of the circle
    bool m_moving = false;        // both ends are being moved
    AzimuthFormatter m_formatter; // follows the heading
    ValueFollower m_mode;
    ValueFollower m_azimuthMin;
    ValueFollower m_azimuthMax;
    ValueFollower m_elevationMin;
    ValueFollower m_elevationMax;
};

#endif
