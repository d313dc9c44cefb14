// SPDX-License-Identifier: MIT
#ifndef ORIM_IUNITTEXTPROVIDER_H
#define ORIM_IUNITTEXTPROVIDER_H

#include "orimwidgets_export.h"

#include <QString>

//! Who knows the unit of an axis and how its values are written.
class ORIMWIDGETS_EXPORT IUnitTextProvider
{
public:
    virtual void SetUnitText(QString unit) = 0;
    //! The unit in brackets: "[MHz]".
    virtual QString GetUnitText() = 0;
    //! The same for a settings page.
    virtual QString GetPropertyPageUnitText() = 0;
    //! The bare unit: "MHz".
    virtual QString GetPureUnitText() = 0;
    //! Reads a value as double2String() writes it. \return 0 for a text that is none; "inf" and "nan" are none.
    virtual double String2double(QString text) = 0;
    //! Writes a value without its unit.
    //! \param format  how to write a time stamp, as Orim::DateTime takes it; null for the usual form.
    virtual QString double2String(double value, char const * format) = 0;

protected:
    ~IUnitTextProvider() = default; // nobody owns an axis by its texts
};

#endif
