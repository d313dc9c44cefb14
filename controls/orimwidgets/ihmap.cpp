// SPDX-License-Identifier: MIT
#include "ihmap.h"

IHMap::~IHMap() = default;

IHasHMap::~IHasHMap() = default;
