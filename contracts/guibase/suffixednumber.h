// SPDX-License-Identifier: MIT
#ifndef ORIM_SUFFIXEDNUMBER_H
#define ORIM_SUFFIXEDNUMBER_H

#include "orimcontracts_export.h"

#include <QString>

#include <optional>

//! Numbers with a decimal prefix as text: digits are moved, never multiplied, so that 12.5 MHz is exactly 12500000. All
//! in the C locale.
namespace SuffixedNumber {

//! Letter of a power of ten: "n", "µ", "m", "", "k", "M", "G", "T".
//! \param exponent  a multiple of 3 from -9 to 12; any other gives "".
ORIMCONTRACTS_EXPORT QString Prefix(int exponent);

//! Reads a number that may have a prefix and the unit.
//!
//! A point or a comma separates decimals; there are no separators of thousands. Blanks may stand around the number, not
//! in it. Case is heeded first ("mHz" is a thousandth, "MHz" a million), else forgiven in favour of the larger ("mhz"
//! is a million); "K" is "k", "u" is "µ".
//!
//! \param unit          what may stand behind the prefix; may be empty.
//! \param bareExponent  power of ten of a number without prefix and unit.
//! \param ok            set to whether it was read; may be null.
//! \return 0 for a text that is no number, "nan", "inf", a number beyond the range of a double, and a text longer
//! than 64 characters.
ORIMCONTRACTS_EXPORT double Parse(QString const & text, QString const & unit, int bareExponent, bool * ok);

//! How a number is printed.
struct Layout
{
    int exponent = 0;       //!< power of ten of the unit
    int digits = 12;        //!< significant digits at most, 1 to 17
    int decimals = -1;      //!< decimals at most; -1 for no such limit
    bool keepZeros = false; //!< fills up to the decimals with zeros
};

//! Prints a number in units of 10^exponent, without a suffix. From 10^15 on, and below 10^-9, in the form "1.5e+20".
//! What would be rounded beyond the range of a double is rounded towards 0, so that it can be read back.
//! \return "---" for NaN and infinite.
ORIMCONTRACTS_EXPORT QString Print(double value, Layout const & layout);

//! Power of ten of the prefix in which a number reads best, 1 to 999.99 in front of it: a multiple of 3 from -9 to 12.
//! \param digits  significant digits to which it will be rounded.
//! \param step    power of ten to a multiple of which it will be rounded before; what rounds to 0 reads best as 0.
ORIMCONTRACTS_EXPORT int BestExponent(double value, int digits, std::optional<int> step = {});

} // namespace SuffixedNumber

#endif
