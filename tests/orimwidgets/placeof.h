// SPDX-License-Identifier: MIT
#ifndef ORIM_PLACEOF_H
#define ORIM_PLACEOF_H

#include <cstdint>
#include <cstring>

//! Place of a virtual operation in the table of its class, as GNU compilers for 64-bit PCs lay it out.
template <class Member>
int PlaceOf(Member member)
{
    std::uintptr_t first = 0;
    static_assert(sizeof(member) >= sizeof(first), "it begins with one word");
    std::memcpy(&first, &member, sizeof(first));
    return static_cast<int>((first - 1) / sizeof(void *));
}

#endif
