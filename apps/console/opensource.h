// SPDX-License-Identifier: MIT
#ifndef ORIM_OPENSOURCE_H
#define ORIM_OPENSOURCE_H

#include "isamplesource.h"

#include <QString>

#include <memory>

struct ConsoleOptions;

//! The samples that the options ask for: the recording, or the simulator with its seed.
//! \param message  receives why the recording was refused; unchanged when it was not.
//! \return null when the recording was refused.
std::unique_ptr<ISampleSource> OpenSource(ConsoleOptions const & options, QString & message);

#endif
