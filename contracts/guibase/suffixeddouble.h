// SPDX-License-Identifier: MIT
#ifndef ORIM_SUFFIXEDDOUBLE_H
#define ORIM_SUFFIXEDDOUBLE_H

#include "orimcontracts_export.h"

#include <QString>

//! Prints and reads a number with a unit and a decimal prefix: "12.5 MHz". What it prints it reads back to the same
//! value at the printed precision. Numbers are in the C locale whatever the language of the screen.
class ORIMCONTRACTS_EXPORT SuffixedDouble
{
public:
    //! The prefix that stands before the unit; its number is a third of its power of ten, and is stored.
    enum ESuffix : int
    {
        eSuffixNano = -3,
        eSuffixMicro = -2,
        eSuffixMilli = -1,
        eSuffixNone = 0,
        eSuffixKilo = 1,
        eSuffixMega = 2,
        eSuffixGiga = 3,
        eSuffixTera = 4,
        eSuffixAuto = 100 //!< the display string takes the prefix that reads best; all else is in the bare unit
    };

    //! \param suffix  one of the enumerators; any other number counts as eSuffixNone.
    //! \param unit    the unit behind the prefix; may be empty.
    explicit SuffixedDouble(ESuffix suffix = eSuffixAuto, QString const & unit = QStringLiteral("Hz"));
    virtual ~SuffixedDouble() = default;

    void SetSuffix(ESuffix suffix);

    ESuffix GetSuffix() const { return m_suffix; }

    void SetUnit(QString const & unit);

    QString const & GetUnit() const { return m_unit; }

    //! Significant digits at most, 1 to 17, 12 at start. A number out of that range takes the nearest one.
    void SetSignificantDigits(int digits);

    int GetSignificantDigits() const { return m_digits; }

    //! The smallest step that is shown: decimals stop at one unit of this prefix, and the display string is filled up
    //! to it with zeros. With eSuffixAuto as the prefix the number is rounded to it before the prefix is chosen, and
    //! none below it is. eSuffixAuto, as at start, sets no such limit.
    void SetResolution(ESuffix resolution);

    ESuffix GetResolution() const { return m_resolution; }

    //! The number with its suffix, a blank between them: "12.5 MHz". "---" for NaN and infinite.
    virtual QString GetDisplayString(double value) const;
    //! The number in the unit of GetPureSuffix(), without closing zeros and without a suffix: "12.5".
    virtual QString GetSignificantStringNoSuffix(double value) const;
    //! Prefix and unit: "MHz".
    virtual QString GetPureSuffix() const;
    //! Reads a number in either form, with a point or a comma: "12.5 MHz", "12,5M", "12.5" (in the unit of
    //! GetPureSuffix()), "1.25e7 Hz".
    //! \param ok  set to whether it was read; may be null.
    //! \return 0 for what is no number, for "nan" and "inf", for a number beyond the range of a double, and for a text
    //!         longer than 64 characters.
    virtual double GetValue(QString const & text, bool * ok = nullptr) const;

    //! Factor of a prefix: 1e6 for eSuffixMega; 1 for eSuffixAuto and for a number that is none.
    static double GetFactor(ESuffix suffix);

private:
    QString Print(double value, int exponent, bool keepZeros) const;

    ESuffix m_suffix;
    ESuffix m_resolution = eSuffixAuto;
    int m_digits = 12;
    QString m_unit;
};

#endif
