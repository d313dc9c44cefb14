// SPDX-License-Identifier: MIT
#ifndef ORIM_GUIBASEVALUES_H
#define ORIM_GUIBASEVALUES_H

#include "guibase.h"
#include "valueptr.h"

//! The selections of GuiBase; the tree owns them, and they become null when it takes them away.
struct GuiBase::Values
{
    ValuePtr<ValueSelection> frequencyUnit;
    ValuePtr<ValueSelection> positionFormat;
    ValuePtr<ValueSelection> timeZone;
    bool isOwnTimeZone = false; // made here, not by the application
};

#endif
