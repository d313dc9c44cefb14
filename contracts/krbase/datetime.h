// SPDX-License-Identifier: MIT
#ifndef ORIM_DATETIME_H
#define ORIM_DATETIME_H

#include "orimcontracts_export.h"

#include <QString>

namespace Orim {

//! A time stamp with a zone: microseconds since 1970-01-01 00:00 UTC, shown at an offset from UTC.
//!
//! Format letters follow QDateTime ("yyyy-MM-dd hh:mm:ss.zzz"); names of days and months are English in every locale.
//! Any other character stays as it is.
class ORIMCONTRACTS_EXPORT DateTime
{
public:
    //! The start of 1970, shown in UTC.
    DateTime() = default;
    //! \param timeStamp  us since 1970 in UTC; every value is a time.
    explicit DateTime(unsigned long long const & timeStamp);

    void setTime_ts(unsigned long long timeStamp); //!< us since 1970 in UTC
    unsigned long long getTimeStamp() const;

    //! Zone in which the time is shown and read from now on.
    //! \param offset  s east of UTC, less than a day either way; one that is no zone is ignored.
    void setOffsetFromUTC(long long offset);

    //! Second of the minute that the zone's clock shows, 0 .. 59.
    int second() const;

    //! \param format  an empty format gives an empty text.
    QString toString(QString const & format) const;
    //! The same at an offset of its own, in s; one that is no zone leaves the zone of this object.
    QString toString(QString const & format, long long offset) const;
    //! The form "yyyy-MM-dd hh:mm:ss" at an offset, as above.
    QString toString(long long offset) const;
    //! The form "yyyy-MM-dd hh:mm:ss.zzz" in the zone of this object.
    QString toMSString() const;

    //! Takes the time over from a text in the zone of this object: what toString() and toMSString() give is read back.
    //! \param text  "yyyy-MM-dd", then " hh:mm" or "Thh:mm", then ":ss", then "." with 1 to 6 digits; each part may
    //! lack
    //!              together with those behind it. Blanks around it are ignored. Any other text, a date that no
    //!              calendar has and a time before 1970 change nothing.
    //! \return the time stamp that this object then has.
    unsigned long long fromString(QString const & text);

private:
    unsigned long long m_timeStamp = 0; // us
    int m_offset = 0;                   // s
};

} // namespace Orim

#endif
