// SPDX-License-Identifier: MIT
#include "vectorstate.h"

#if (defined(__GNUC__) || defined(__clang__)) && defined(__x86_64__)

#include <immintrin.h>

namespace {

__attribute__((target("avx"))) void ClearUpperHalves() noexcept { _mm256_zeroupper(); }

//! Whether processor and system both know the wide registers.
bool HasUpperHalves() noexcept
{
    __builtin_cpu_init();
    return __builtin_cpu_supports("avx") != 0;
}

} // namespace

void CleanVectorState() noexcept
{
    static bool const wide = HasUpperHalves();
    if (wide)
        ClearUpperHalves();
}

#else

void CleanVectorState() noexcept {}

#endif
