// SPDX-License-Identifier: MIT
#include "icfg.h"

ICfg::~ICfg() = default;

bool ICfg::Flush() { return true; }
