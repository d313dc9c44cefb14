// SPDX-License-Identifier: MIT
#ifndef ORIM_PATHTABLE_H
#define ORIM_PATHTABLE_H

#include "orimcontracts_export.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <vector>

class ValueBase;

//! Hash table from path to value: one flat array, linear probing, at most half full, a hash of the whole path. A slot
//! is one cache line and holds the path itself, so that a hit touches one line; a path too long for it, or with
//! characters beyond Latin-1, is read where its owner keeps it.
class ORIMCONTRACTS_EXPORT PathTable
{
public:
    std::size_t GetCount() const { return m_count; }

    //! Null when there is no such path.
    ValueBase * Find(QString const & path) const;
    //! \param path  not in the table yet; its characters must stay where they are until it is removed.
    void Insert(QString const & path, ValueBase * value);
    //! \return false when there is no such path.
    bool Remove(QString const & path);

    //! Calls \a visit with every value, in no order. It must not change the table.
    template <class Visit>
    void ForEach(Visit const & visit) const
    {
        for (Slot const & slot : m_slots)
            if (slot.value)
                visit(slot.value);
    }

    //! Hash of characters, the same in every run.
    static std::uint64_t Hash(char16_t const * text, std::size_t length);

private:
    static constexpr std::size_t s_room = 47; // characters that a slot has room for

    struct alignas(64) Slot
    {
        ValueBase * value = nullptr;     // null: the slot is free
        std::uint32_t hash = 0;          // its lower half
        std::uint32_t length = 0;        // characters
        bool isInside = true;            // the path lies here
        unsigned char text[s_room] = {}; // the path in Latin-1, or a pointer to where it lies

        Slot() = default;
        Slot(std::uint32_t hashOfPath, char16_t const * path, std::size_t count, ValueBase * owner);

        bool Holds(char16_t const * path, std::size_t count) const;
    };

    static std::uint32_t HalfHash(char16_t const * text, std::size_t length);
    //! Index of the slot that holds the path, or of the free one where it would go.
    std::size_t Seek(std::uint32_t hash, char16_t const * text, std::size_t length) const;
    void Grow();

    std::vector<Slot> m_slots; // a power of two of them, or none
    std::size_t m_count = 0;
};

#endif
