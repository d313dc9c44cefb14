// SPDX-License-Identifier: MIT
#ifndef ORIM_SEEDMIX_H
#define ORIM_SEEDMIX_H

#include <QtGlobal>

//! Numbers that look random and depend on a seed and a counter alone.
namespace SeedMix {

//! A number of all 64 bits.
inline quint64 Mix(quint64 seed, quint64 number)
{
    quint64 z = seed + (number + 1) * 0x9E3779B97F4A7C15ULL;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
    return z ^ (z >> 31);
}

//! A number above 0, at most 1.
inline double Part(quint64 seed, quint64 number)
{
    return (static_cast<double>(Mix(seed, number) >> 11) + 1.0) * 0x1p-53;
}

} // namespace SeedMix

#endif
