// SPDX-License-Identifier: MIT
#include "valuenumeric.h"

IValueNumeric::~IValueNumeric() = default;

template class ValueNumeric<int>;
template class ValueNumeric<long long>;
template class ValueNumeric<double>;
