// SPDX-License-Identifier: MIT
#include "icfg.h"

#include "persistant.h"

ICfg::~ICfg() { Persistant::Forget(this); }

bool ICfg::Flush() { return true; }
