// SPDX-License-Identifier: MIT
#ifndef ORIM_LIFETIME_H
#define ORIM_LIFETIME_H

#include "orimcontracts_export.h"

class LifeWatch;

//! Member of a class whose objects may be deleted by what they call: every LifeWatch on it learns of the end.
//! A copy starts a life of its own.
class ORIMCONTRACTS_EXPORT Lifetime
{
public:
    Lifetime() noexcept = default;

    Lifetime(Lifetime const &) noexcept {}

    // NOLINTNEXTLINE(bugprone-unhandled-self-assignment): takes nothing over
    Lifetime & operator=(Lifetime const &) noexcept { return *this; }

    ~Lifetime();

private:
    friend class LifeWatch;

    mutable LifeWatch * m_pFirst = nullptr; // watches chain themselves up here
};

//! Tells whether the object that owns a Lifetime still lives. May outlive the object, and ends in any order.
class ORIMCONTRACTS_EXPORT LifeWatch
{
public:
    //! Watches nothing: over from the start.
    LifeWatch() noexcept = default;
    explicit LifeWatch(Lifetime const & lifetime) noexcept;
    LifeWatch(LifeWatch const & other) noexcept;
    LifeWatch & operator=(LifeWatch const & other) noexcept;
    ~LifeWatch();

    //! Whether the object is gone; nothing of it may be touched any more.
    bool IsOver() const noexcept { return !m_pLifetime; }

private:
    friend class Lifetime;

    void Join(Lifetime const * lifetime) noexcept;
    void Leave() noexcept;

    Lifetime const * m_pLifetime = nullptr; // null once the object is gone
    LifeWatch * m_pPrevious = nullptr;
    LifeWatch * m_pNext = nullptr;
};

#endif
