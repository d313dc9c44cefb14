// SPDX-License-Identifier: MIT
#ifndef ORIM_CONNECTMARKERVISIBILITYFLAGS_H
#define ORIM_CONNECTMARKERVISIBILITYFLAGS_H

#include "orimwidgets_export.h"

class MarkerList;

//! Joins lists in a full mesh, so that markers with one value path share their show, moving and current state: the
//! MarkerList::signalSetState() of each calls MarkerList::slotSetState() of each. A list hears itself twice, and every
//! other list once: first those that stand before it, then itself, then those behind. To be called once, when the panes
//! are set up; a second call doubles every connection. Null lists are left out; a list that dies leaves the mesh.
ORIMWIDGETS_EXPORT void ConnectMarkerVisibilityFlags(MarkerList * list1, MarkerList * list2 = nullptr,
                                                     MarkerList * list3 = nullptr, MarkerList * list4 = nullptr,
                                                     MarkerList * list5 = nullptr, MarkerList * list6 = nullptr,
                                                     MarkerList * list7 = nullptr, MarkerList * list8 = nullptr,
                                                     MarkerList * list9 = nullptr, MarkerList * list10 = nullptr,
                                                     MarkerList * list11 = nullptr, MarkerList * list12 = nullptr,
                                                     MarkerList * list13 = nullptr, MarkerList * list14 = nullptr,
                                                     MarkerList * list15 = nullptr, MarkerList * list16 = nullptr,
                                                     MarkerList * list17 = nullptr);

#endif
