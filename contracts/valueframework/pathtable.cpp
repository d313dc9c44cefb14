// SPDX-License-Identifier: MIT
#include "pathtable.h"

#include <algorithm>
#include <cstring>

#if defined(__SSE2__) || defined(_M_X64)
#define ORIM_PATHS_SSE2
#include <emmintrin.h>
#endif

namespace {

constexpr std::size_t FewestSlots = 64;

// odd constants with evenly spread bits
constexpr std::uint64_t Odd1 = 0x9E3779B97F4A7C15u;
constexpr std::uint64_t Odd2 = 0xD6E8FEB86659FD93u;
constexpr std::uint64_t Odd3 = 0xA0761D6478BD642Fu;

__extension__ using Wide = unsigned __int128;

std::uint64_t Load(char const * bytes)
{
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, sizeof word);
    return word;
}

//! Multiplies and folds the upper half of the product onto the lower one.
std::uint64_t Mix(std::uint64_t a, std::uint64_t b)
{
    Wide const product = static_cast<Wide>(a) * b;
    return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
}

char16_t const * Characters(QString const & text) { return reinterpret_cast<char16_t const *>(text.constData()); }

bool AreLatin1(char16_t const * text, std::size_t length)
{
    return std::all_of(text, text + length, [](char16_t character) { return character <= 0xff; });
}

#if defined(ORIM_PATHS_SSE2)

constexpr std::size_t Block = 16; // characters

//! Differences of 16 characters: all bits 0 when there are none.
inline __m128i Difference(unsigned char const * latin, char16_t const * text)
{
    __m128i const narrow = _mm_loadu_si128(reinterpret_cast<__m128i const *>(latin));
    __m128i const low = _mm_loadu_si128(reinterpret_cast<__m128i const *>(text));
    __m128i const high = _mm_loadu_si128(reinterpret_cast<__m128i const *>(text + Block / 2));
    __m128i const zero = _mm_setzero_si128();
    return _mm_or_si128(_mm_xor_si128(low, _mm_unpacklo_epi8(narrow, zero)),
                        _mm_xor_si128(high, _mm_unpackhi_epi8(narrow, zero)));
}

inline bool AreSame(unsigned char const * latin, char16_t const * text, std::size_t length)
{
    if (length < Block)
        return std::equal(text, text + length, latin);
    std::size_t const last = length - Block; // the last 16, overlapping those before
    __m128i difference = Difference(latin + last, text + last);
    for (std::size_t i = 0; i < last; i += Block)
        difference = _mm_or_si128(difference, Difference(latin + i, text + i));
    return _mm_movemask_epi8(_mm_cmpeq_epi8(difference, _mm_setzero_si128())) == 0xffff;
}

#else

bool AreSame(unsigned char const * latin, char16_t const * text, std::size_t length)
{
    return std::equal(text, text + length, latin);
}

#endif

} // namespace

PathTable::Slot::Slot(std::uint32_t hashOfPath, char16_t const * path, std::size_t count, ValueBase * owner)
    : value(owner)
    , hash(hashOfPath)
    , length(static_cast<std::uint32_t>(count))
    , isInside(count <= s_room && AreLatin1(path, count))
{
    if (isInside)
        std::transform(path, path + count, text, [](char16_t c) { return static_cast<unsigned char>(c); });
    else
        std::memcpy(text, &path, sizeof path);
}

inline bool PathTable::Slot::Holds(char16_t const * path, std::size_t count) const
{
    if (length != count)
        return false;
    if (isInside)
        return AreSame(text, path, count);
    char16_t const * elsewhere = nullptr;
    std::memcpy(&elsewhere, text, sizeof elsewhere);
    return std::memcmp(elsewhere, path, count * sizeof(char16_t)) == 0;
}

//! The half of a hash that a slot keeps.
std::uint32_t PathTable::HalfHash(char16_t const * text, std::size_t length)
{
    return static_cast<std::uint32_t>(Hash(text, length));
}

std::uint64_t PathTable::Hash(char16_t const * text, std::size_t length)
{
    char const * bytes = reinterpret_cast<char const *>(text);
    std::size_t size = length * sizeof(char16_t);
    std::uint64_t hash = Odd3 ^ size;
    if (size < 16) {
        char padded[16] = {};
        std::memcpy(padded, bytes, size);
        return Mix(Load(padded) ^ Odd2, Load(padded + 8) ^ hash);
    }
    char const * const last = bytes + size - 16; // the last 16 bytes, overlapping those before
    std::uint64_t other = Odd3;                  // not Odd2, or the two words of a block could change places
    for (; size > 32; size -= 32, bytes += 32) { // two chains side by side
        hash = Mix(Load(bytes) ^ Odd1, Load(bytes + 8) ^ hash);
        other = Mix(Load(bytes + 16) ^ Odd2, Load(bytes + 24) ^ other);
    }
    if (size > 16)
        hash = Mix(Load(bytes) ^ Odd1, Load(bytes + 8) ^ hash);
    return Mix(Load(last) ^ Odd2 ^ other, Load(last + 8) ^ hash);
}

inline std::size_t PathTable::Seek(std::uint32_t hash, char16_t const * text, std::size_t length) const
{
    std::size_t const mask = m_slots.size() - 1;
    std::size_t index = hash & mask;
    while (m_slots[index].value) {
        Slot const & slot = m_slots[index];
        if (slot.hash == hash && slot.Holds(text, length))
            break;
        index = (index + 1) & mask;
    }
    return index;
}

ValueBase * PathTable::Find(QString const & path) const
{
    if (m_slots.empty())
        return nullptr;
    char16_t const * const text = Characters(path);
    auto const length = static_cast<std::size_t>(path.size());
    return m_slots[Seek(HalfHash(text, length), text, length)].value;
}

void PathTable::Insert(QString const & path, ValueBase * value)
{
    if (2 * (m_count + 1) > m_slots.size())
        Grow();
    char16_t const * const text = Characters(path);
    auto const length = static_cast<std::size_t>(path.size());
    std::uint32_t const hash = HalfHash(text, length);
    m_slots[Seek(hash, text, length)] = Slot(hash, text, length, value);
    ++m_count;
}

bool PathTable::Remove(QString const & path)
{
    if (m_slots.empty())
        return false;
    char16_t const * const text = Characters(path);
    auto const length = static_cast<std::size_t>(path.size());
    std::size_t hole = Seek(HalfHash(text, length), text, length);
    if (!m_slots[hole].value)
        return false;
    // move back whoever was pushed past the hole, so that no probe ends too early
    std::size_t const mask = m_slots.size() - 1;
    for (std::size_t next = (hole + 1) & mask; m_slots[next].value; next = (next + 1) & mask) {
        std::size_t const home = m_slots[next].hash & mask;
        if (((next - home) & mask) < ((next - hole) & mask))
            continue;
        m_slots[hole] = m_slots[next];
        hole = next;
    }
    m_slots[hole] = Slot();
    --m_count;
    return true;
}

void PathTable::Grow()
{
    std::vector<Slot> const old = std::move(m_slots);
    m_slots.assign(old.empty() ? FewestSlots : 2 * old.size(), Slot());
    std::size_t const mask = m_slots.size() - 1;
    for (Slot const & slot : old) {
        if (!slot.value)
            continue;
        std::size_t index = slot.hash & mask; // no two paths are the same: the first free slot will do
        while (m_slots[index].value)
            index = (index + 1) & mask;
        m_slots[index] = slot;
    }
}
