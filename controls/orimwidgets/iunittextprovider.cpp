// SPDX-License-Identifier: MIT
#include "iunittextprovider.h"

IUnitTextProvider::~IUnitTextProvider() = default;
