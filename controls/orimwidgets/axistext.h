// SPDX-License-Identifier: MIT
#ifndef ORIM_AXISTEXT_H
#define ORIM_AXISTEXT_H

#include "orimwidgets_export.h"

#include <QString>

//! The numbers that an axis writes, in the C locale.
namespace AxisText {

//! A label: fixed point, padded with blanks at the left.
//! \param left   digits before the point; the field is \a left and \a right digits wide, without room for the point.
//! \param right  digits behind the point.
//! A field or precision beyond what any double fills counts as that: the text stays below 1200 characters.
ORIMWIDGETS_EXPORT QString Label(double value, int left, int right);

//! A number for an entry field: without digits behind the point an integer, halves away from zero; else the shortest of
//! fixed point and powers of ten with six significant digits.
//! \param value  any double; one that no int holds is the lowest int when \a right is 0.
ORIMWIDGETS_EXPORT QString Number(double value, int right);

//! A time stamp that is kept in a double.
//! \param value  us since 1970; below 0, NaN and beyond 64 bits count as 0.
ORIMWIDGETS_EXPORT unsigned long long TimeStamp(double value);

} // namespace AxisText

#endif
