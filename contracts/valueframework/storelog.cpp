// SPDX-License-Identifier: MIT
#include "storelog.h"

QLoggingCategory const & StoreLog()
{
    static auto const * const category = new QLoggingCategory("orim.store");
    return *category;
}
