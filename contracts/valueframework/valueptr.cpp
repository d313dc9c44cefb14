// SPDX-License-Identifier: MIT
#include "valueptr.h"

template class ValuePtr<ValueNumeric<double>>;
template class ValuePtr<ValueNumeric<int>>;
template class ValuePtr<Value<bool>>;
template class ValuePtr<ValueSelection>;
