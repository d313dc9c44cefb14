// SPDX-License-Identifier: MIT
#ifndef ORIM_STORELOG_H
#define ORIM_STORELOG_H

#include <QLoggingCategory>

//! The logging category "orim.store". It is never destroyed, as a store may be written at process exit.
QLoggingCategory const & StoreLog();

#endif
