// SPDX-License-Identifier: MIT
#ifndef ORIM_AZIMUTHFORMATTER_H
#define ORIM_AZIMUTHFORMATTER_H

#include "istringformatter.h"
#include "observable.h"
#include "valuenumeric.h"

//! Writes a bearing as AzimuthDisplaySelect tells: absolute or relative to the vehicle, from 0 or from -180 degrees on,
//! with one digit behind the point. It knows where the vehicle points to. For the GUI thread.
class ORIMWIDGETS_EXPORT AzimuthFormatter : public IStringFormatter, public IObserver
{
public:
    AzimuthFormatter();
    AzimuthFormatter(AzimuthFormatter const &) = delete;
    AzimuthFormatter & operator=(AzimuthFormatter const &) = delete;
    //! Lets go of the bound value.
    ~AzimuthFormatter() override;

    //! Sets where the vehicle points to. In a relative mode a change is told as one of the mode; a north that equals
    //! the one before, set here or by a bound value, tells nothing. A bound value stays bound and is not written; its
    //! next change counts again.
    //! \param degrees  from north; NaN and infinities are refused.
    void SetNorth(double degrees);
    //! Follows a numeric value from now on; one that goes away leaves its last number.
    //! \return whether the path was found and names a numeric value.
    bool SetNorth_ValuePath(QString const & path);

    //! Where the vehicle points to, degrees from north; 0 at the start.
    double VehicleOffset() const { return m_north; }

    //! The bearing, turned by whole turns into 0 to 359.9999 or -180 to 179.9999 before it is rounded: 359.96 is
    //! written as "360.0". \param degrees  any double: "nan" and "inf" are written as such.
    QString const & convert(double degrees) override;
    //! The bearing, a blank and the degree sign.
    QString const & convertSuffixed(double degrees) override;

    void Update(Observable * subject, TChangeCode code) override;

private:
    void Unbind();

    double m_north = 0.0;               // degrees
    IValueNumeric * m_pNorth = nullptr; // borrowed from the tree; null once it went away
    QString m_text;                     // what was returned last
    QString m_suffixedText;
};

#endif
