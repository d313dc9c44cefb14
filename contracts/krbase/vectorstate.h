// SPDX-License-Identifier: MIT
#ifndef ORIM_VECTORSTATE_H
#define ORIM_VECTORSTATE_H

#include "orimcontracts_export.h"

//! Leaves the wide vector state in which some painting code returns: with the upper halves of the vector registers in
//! use plain SSE2 code of this thread runs several times slower on some processors. Call it on entry of a loop over
//! many values; it costs a few cycles and changes no result. Does nothing on a processor or system without such a
//! state.
ORIMCONTRACTS_EXPORT void CleanVectorState() noexcept;

#endif
