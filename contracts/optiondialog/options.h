// SPDX-License-Identifier: MIT
#ifndef ORIM_OPTIONS_H
#define ORIM_OPTIONS_H

// All of namespace options but its dialog: what is edited, who has it, and the bridge to settings pages.

#include "optionsbase.h"
#include "propertypageconfigurable.h"

#endif
