// SPDX-License-Identifier: MIT
#ifndef ORIM_REPLAYONBINDING_H
#define ORIM_REPLAYONBINDING_H

#include "orimcontracts_export.h"

class IObserver;
class ValueBase;

//! Brings a newly bound observer up to date: calls its Update with codes 2, 4, 7 (only for a ValueSelection) and 3, in
//! this order. Ends early when the value or the observer is deleted on the way. Null does nothing.
ORIMCONTRACTS_EXPORT void ReplayOnBinding(ValueBase * value, IObserver * observer);

#endif
