// SPDX-License-Identifier: MIT
#ifndef ORIM_HANDLERBASE_H
#define ORIM_HANDLERBASE_H

#include "orimcontracts_export.h"

#include <QString>

//! What all handlers of measured values share.
class ORIMCONTRACTS_EXPORT HandlerBase
{
public:
    //! Unit text of level values; decibels above a microvolt until an application sets another one.
    static QString const & GetLevelUnit();
    //! Sets the unit text of level values for the whole process. Nobody is notified: set it before axes are built.
    static void SetLevelUnit(QString const & unit);
};

#endif
