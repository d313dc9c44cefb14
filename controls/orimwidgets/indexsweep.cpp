// SPDX-License-Identifier: MIT
#include "indexsweep.h"

#include "vectorstate.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr int Indices = 256;

bool IsSound(unsigned char const * bits, qsizetype bytesPerLine, QSize const & size, unsigned char const * line)
{
    return bits && line && !size.isEmpty() && bytesPerLine >= size.width();
}

void ReplaceRow(unsigned char * row, int width, IndexSweep::Hits const & hits, unsigned char const * line)
{
    for (int x = 0; x < width; ++x)
        row[x] = hits[row[x]] ? line[x] : row[x];
}

} // namespace

IndexSweep::Hits IndexSweep::HitOne(int index)
{
    Hits hits{};
    if (index >= 0 && index < Indices)
        hits[static_cast<std::size_t>(index)] = true;
    return hits;
}

IndexSweep::Hits IndexSweep::HitEvery(int remainder, int modulus)
{
    Hits hits{};
    if (remainder < 0 || remainder >= modulus)
        return hits;
    for (int index = remainder; index < Indices; index += std::min(modulus, Indices))
        hits[static_cast<std::size_t>(index)] = true;
    return hits;
}

IndexSweep::Hits IndexSweep::HitFrom(int first)
{
    Hits hits{};
    std::fill(hits.begin() + std::clamp(first, 0, Indices), hits.end(), true);
    return hits;
}

void IndexSweep::Replace(unsigned char * bits, qsizetype bytesPerLine, QSize const & size, Hits const & hits,
                         unsigned char const * line)
{
    CleanVectorState();
    ReplacePortable(bits, bytesPerLine, size, hits, line);
}

void IndexSweep::ReplacePortable(unsigned char * bits, qsizetype bytesPerLine, QSize const & size, Hits const & hits,
                                 unsigned char const * line)
{
    if (!IsSound(bits, bytesPerLine, size, line))
        return;
    for (int y = 0; y < size.height(); ++y)
        ReplaceRow(bits + y * bytesPerLine, size.width(), hits, line);
}

void IndexSweep::CopyLine(unsigned char * bits, qsizetype bytesPerLine, QSize const & size, unsigned char const * line)
{
    if (!IsSound(bits, bytesPerLine, size, line))
        return;
    for (int y = 0; y < size.height(); ++y)
        std::memcpy(bits + y * bytesPerLine, line, static_cast<std::size_t>(size.width()));
}
