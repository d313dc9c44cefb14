// SPDX-License-Identifier: MIT
#ifndef ORIM_STDFORMATTER_H
#define ORIM_STDFORMATTER_H

#include "istringformatter.h"

//! Writes a number in fixed point, as wide as it is.
class ORIMWIDGETS_EXPORT StdFormatter : public IStringFormatter
{
public:
    //! \param suffix     the unit; any text.
    //! \param precision  digits behind the point; below 0 counts as 0, above 99 as 99.
    StdFormatter(QString suffix, int precision);

    //! \param value  any double: "nan" and "inf" are written as such.
    QString const & convert(double value) override;
    //! The number, a blank and the suffix; the blank stays without a suffix.
    QString const & convertSuffixed(double value) override;

private:
    QString m_suffix;
    int m_precision;
    QString m_text; // what was returned last
    QString m_suffixedText;
};

#endif
