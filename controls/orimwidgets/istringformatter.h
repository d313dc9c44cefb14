// SPDX-License-Identifier: MIT
#ifndef ORIM_ISTRINGFORMATTER_H
#define ORIM_ISTRINGFORMATTER_H

#include "orimwidgets_export.h"

#include <QString>

//! Writes a number as a text, always in the C locale.
class ORIMWIDGETS_EXPORT IStringFormatter
{
public:
    virtual ~IStringFormatter();

    //! The number alone. \return holds until the next call.
    virtual QString const & convert(double value) = 0;
    //! The number and its unit. \return holds until the next call.
    virtual QString const & convertSuffixed(double value) = 0;
};

#endif
