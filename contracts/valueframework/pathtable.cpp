// SPDX-License-Identifier: MIT
#include "pathtable.h"

#include <cstring>

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

char16_t const * Characters(QString const & text) { return reinterpret_cast<char16_t const *>(text.utf16()); }

} // namespace

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

std::size_t PathTable::Seek(std::uint64_t hash, char16_t const * text, std::size_t length) const
{
    std::size_t const mask = m_slots.size() - 1;
    std::size_t index = static_cast<std::size_t>(hash) & mask;
    while (m_slots[index].value) {
        Slot const & slot = m_slots[index];
        if (slot.hash == hash && slot.length == length && std::memcmp(slot.text, text, length * sizeof(char16_t)) == 0)
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
    return m_slots[Seek(Hash(text, length), text, length)].value;
}

void PathTable::Insert(QString const & path, ValueBase * value)
{
    if (2 * (m_count + 1) > m_slots.size())
        Grow();
    char16_t const * const text = Characters(path);
    auto const length = static_cast<std::size_t>(path.size());
    std::uint64_t const hash = Hash(text, length);
    m_slots[Seek(hash, text, length)] = { hash, text, length, value };
    ++m_count;
}

bool PathTable::Remove(QString const & path)
{
    if (m_slots.empty())
        return false;
    char16_t const * const text = Characters(path);
    auto const length = static_cast<std::size_t>(path.size());
    std::size_t hole = Seek(Hash(text, length), text, length);
    if (!m_slots[hole].value)
        return false;
    // move back whoever was pushed past the hole, so that no probe ends too early
    std::size_t const mask = m_slots.size() - 1;
    for (std::size_t next = (hole + 1) & mask; m_slots[next].value; next = (next + 1) & mask) {
        std::size_t const home = static_cast<std::size_t>(m_slots[next].hash) & mask;
        if (((next - home) & mask) < ((next - hole) & mask))
            continue;
        m_slots[hole] = m_slots[next];
        hole = next;
    }
    m_slots[hole] = {};
    --m_count;
    return true;
}

void PathTable::Grow()
{
    std::vector<Slot> const old = std::move(m_slots);
    m_slots.assign(old.empty() ? FewestSlots : 2 * old.size(), Slot());
    for (Slot const & slot : old)
        if (slot.value)
            m_slots[Seek(slot.hash, slot.text, slot.length)] = slot;
}
