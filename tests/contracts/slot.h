// SPDX-License-Identifier: MIT
#ifndef ORIM_TEST_SLOT_H
#define ORIM_TEST_SLOT_H

#include <cstdint>
#include <cstring>

//! Place of a virtual operation among those of its class, in the C++ ABI of gcc and clang: a virtual destructor takes
//! two places, so that the operation behind it has number 2. An operation that is not virtual has a large number.
template <class Function>
int Slot(Function function)
{
    std::intptr_t word = 0;
    std::memcpy(&word, &function, sizeof word);
    return static_cast<int>(word / static_cast<std::intptr_t>(sizeof(void *)));
}

#endif
