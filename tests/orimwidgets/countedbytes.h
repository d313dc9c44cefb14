// SPDX-License-Identifier: MIT
#ifndef ORIM_COUNTEDBYTES_H
#define ORIM_COUNTEDBYTES_H

#include <cstdlib>
#include <malloc.h>
#include <new>

// Replaces new and delete of the program that includes it, once, by ones that count. They are not inlined: a compiler
// that sees only one of a pair inside a function takes them for mismatched.

static long long bytes = 0; // of memory, taken with new and not given back

__attribute__((noinline)) void * operator new(std::size_t size)
{
    void * const block = std::malloc(size != 0 ? size : 1);
    if (!block)
        throw std::bad_alloc();
    bytes += static_cast<long long>(malloc_usable_size(block));
    return block;
}

__attribute__((noinline)) void operator delete(void * block) noexcept
{
    bytes -= block ? static_cast<long long>(malloc_usable_size(block)) : 0;
    std::free(block);
}

__attribute__((noinline)) void operator delete(void * block, std::size_t /*size*/) noexcept { operator delete(block); }

#endif
