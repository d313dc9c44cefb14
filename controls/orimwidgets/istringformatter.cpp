// SPDX-License-Identifier: MIT
#include "istringformatter.h"

IStringFormatter::~IStringFormatter() = default;
