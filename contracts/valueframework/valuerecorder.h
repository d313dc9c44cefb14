// SPDX-License-Identifier: MIT
#ifndef ORIM_VALUERECORDER_H
#define ORIM_VALUERECORDER_H

#include "orimcontracts_export.h"

class ValueBase;

//! Hears of every change of content before it happens: the road of undo. Set by ValueBase::SetRecorder.
class ORIMCONTRACTS_EXPORT IValueRecorder
{
public:
    virtual ~IValueRecorder();

    //! Called while \a value still holds what is about to change. Must not change or delete a value.
    virtual void BeforeChange(ValueBase & value) = 0;
};

#endif
