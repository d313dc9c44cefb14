// SPDX-License-Identifier: MIT
#ifndef ORIM_PANECOLORS_H
#define ORIM_PANECOLORS_H

#include "panelayout.h"

//! The colours of the panes in the colour set that is loaded.
PaneColors CurrentPaneColors();

#endif
