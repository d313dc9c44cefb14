// SPDX-License-Identifier: MIT
#include "lifetime.h"

Lifetime::~Lifetime()
{
    for (LifeWatch * watch = m_pFirst; watch;) {
        LifeWatch * const next = watch->m_pNext;
        watch->m_pLifetime = nullptr;
        watch->m_pPrevious = nullptr;
        watch->m_pNext = nullptr;
        watch = next;
    }
}

LifeWatch::LifeWatch(Lifetime const & lifetime) noexcept { Join(&lifetime); }

LifeWatch::LifeWatch(LifeWatch const & other) noexcept { Join(other.m_pLifetime); }

// NOLINTNEXTLINE(bugprone-unhandled-self-assignment): of one lifetime already
LifeWatch & LifeWatch::operator=(LifeWatch const & other) noexcept
{
    if (m_pLifetime != other.m_pLifetime) {
        Leave();
        Join(other.m_pLifetime);
    }
    return *this;
}

LifeWatch::~LifeWatch() { Leave(); }

void LifeWatch::Join(Lifetime const * lifetime) noexcept
{
    m_pLifetime = lifetime;
    if (!lifetime)
        return;
    m_pNext = lifetime->m_pFirst;
    if (m_pNext)
        m_pNext->m_pPrevious = this;
    lifetime->m_pFirst = this;
}

void LifeWatch::Leave() noexcept
{
    if (!m_pLifetime)
        return;
    if (m_pPrevious)
        m_pPrevious->m_pNext = m_pNext;
    else
        m_pLifetime->m_pFirst = m_pNext;
    if (m_pNext)
        m_pNext->m_pPrevious = m_pPrevious;
    m_pLifetime = nullptr;
    m_pPrevious = nullptr;
    m_pNext = nullptr;
}
