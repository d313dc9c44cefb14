// SPDX-License-Identifier: MIT
#ifndef ORIM_PEERQWT_H
#define ORIM_PEERQWT_H

// Qwt as the benches see it: nothing unless the target OrimPeerQwt found it, then ORIM_PEER_QWT is defined.

#ifdef ORIM_PEER_QWT
#include <qwt_interval.h>
#include <qwt_scale_div.h>
#include <qwt_scale_engine.h>
#include <qwt_text.h>
#endif

#endif
