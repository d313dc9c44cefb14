// SPDX-License-Identifier: MIT
#include "ihmap.h"

IHasHMap::~IHasHMap() = default;
