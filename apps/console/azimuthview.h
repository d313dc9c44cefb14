// SPDX-License-Identifier: MIT
#ifndef ORIM_AZIMUTHVIEW_H
#define ORIM_AZIMUTHVIEW_H

#include <QString>

//! How bearings are shown: in the mode that the operator chose, from where the vehicle points to.
struct AzimuthView
{
    static constexpr double Turn = 360.0; // deg

    //! As they are shown now: the mode of the one azimuth selection, and the heading in the tree, 0 without one.
    static AzimuthView Current();

    //! Whether bearings count from the axis of the vehicle.
    bool IsRelative() const;

    //! Ends of the circle as it is shown: 0 and 360, or -180 and 180 deg.
    double Start() const;

    double Stop() const { return Start() + Turn; }

    //! A bearing from north as it is shown, turned into Start() to below Stop(); NaN for what is not finite.
    double Shown(double bearing) const;

    //! Text of a bearing, in the C locale: "041.3°" up to 360, "+041.3°" and "-170.0°" up to 180, " rel" behind it when
    //! it counts from the vehicle; "--" for what is not finite. What rounds to the upper end is written as the lower
    //! one.
    //! \param bearing   deg from north, any.
    //! \param decimals  0 to 3.
    QString Text(double bearing, int decimals) const;

    //! What the operator reads of the mode: "abs 0..360°".
    QString Name() const;

    long key = 5;       //!< bits of EAzimuthDisplay
    double north = 0.0; //!< deg from north, where the vehicle points to
};

#endif
