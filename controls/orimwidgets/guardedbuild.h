// SPDX-License-Identifier: MIT
#ifndef ORIM_GUARDEDBUILD_H
#define ORIM_GUARDEDBUILD_H

#include "orimwidgets_export.h"

#include <functional>

//! Builds something for the screen that may fail, and tells the log instead of the caller when it does: a trace line if
//! the mask of ErrorHandler asks for one, then a record and a report of the exception. No window opens.
//! \param build  may throw a KRException or a std::exception, an empty function counts as such; all else passes up.
//! \return whether it did not throw.
ORIMWIDGETS_EXPORT bool BuildGuarded(std::function<void()> const & build);

#endif
