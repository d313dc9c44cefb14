// SPDX-License-Identifier: MIT
#include "observable.h"

#include <QtGlobal>

#include <algorithm>

namespace {

constexpr int DeepestNesting = 256; // notifications of one observable inside each other
constexpr int DeepestOfAll = 1024;  // notifications of all observables inside each other

int RunningOfAll = 0;   // notifications running
bool AreAllCut = false; // DeepestOfAll was reached; until the outermost has ended

//! Removes the last occurrence: what was registered last mostly goes first.
template <class T>
void EraseLast(std::vector<T *> & list, T const * item)
{
    auto const found = std::find(list.rbegin(), list.rend(), item);
    if (found != list.rend())
        list.erase(std::next(found).base());
}

} // namespace

IObserver::~IObserver()
{
    for (Observable * observed : m_observed)
        observed->Drop(this);
}

void IObserver::Update(Observable * /*subject*/, TChangeCode /*code*/) {}

//! One running notification. Chained on the stack so that the observable can tell all of them of its end.
class Observable::Round
{
public:
    explicit Round(Observable & owner)
        : m_pOwner(&owner)
        , m_pOuter(owner.m_pRound)
        , m_end(owner.m_observers.size())
        , m_depth(m_pOuter ? m_pOuter->m_depth + 1 : 1)
    {
        owner.m_pRound = this;
        ++RunningOfAll;
    }

    Round(Round const &) = delete;
    Round & operator=(Round const &) = delete;

    ~Round()
    {
        if (--RunningOfAll == 0)
            AreAllCut = false;
        if (!m_pOwner)
            return;
        m_pOwner->m_pRound = m_pOuter;
        if (!m_pOuter && m_pOwner->m_untidy)
            m_pOwner->Settle();
    }

    void Run(TChangeCode code, IObserver const * except)
    {
        Observable * const owner = m_pOwner;
        std::size_t const end = m_end;
        for (std::size_t i = 0; i < end; ++i) {
            IObserver * const observer = owner->m_observers[i];
            if (!observer || observer == except)
                continue;
            observer->Update(owner, code);
            if (!m_pOwner) // it died in there
                return;
        }
    }

    Observable * m_pOwner; // null once the observable is gone
    Round * m_pOuter;
    std::size_t m_end; // observers behind it were added inside the notification
    int m_depth;       // notifications of the owner that run, this one included
};

Observable::~Observable()
{
    for (Round * round = m_pRound; round; round = round->m_pOuter)
        round->m_pOwner = nullptr;
    for (IObserver * observer : m_observers)
        if (observer)
            EraseLast(observer->m_observed, this);
}

bool Observable::HasObserver(IObserver const * observer) const
{
    if (!observer)
        return false;
    if (observer->m_observed.size() < m_observers.size())
        return std::find(observer->m_observed.begin(), observer->m_observed.end(), this) != observer->m_observed.end();
    return std::find(m_observers.begin(), m_observers.end(), observer) != m_observers.end();
}

int Observable::GetObserverCount() const
{
    auto const removed = std::count(m_observers.begin(), m_observers.end(), nullptr);
    return static_cast<int>(m_observers.size()) - static_cast<int>(removed);
}

bool Observable::AddObserver(IObserver * observer)
{
    if (!observer || m_closed || HasObserver(observer))
        return false;
    m_observers.push_back(observer);
    observer->m_observed.push_back(this);
    return true;
}

void Observable::DeleteObserver(IObserver * observer)
{
    if (observer && Drop(observer))
        EraseLast(observer->m_observed, this);
}

void Observable::DeleteObservers()
{
    for (IObserver *& observer : m_observers) {
        if (!observer)
            continue;
        EraseLast(observer->m_observed, this);
        observer = nullptr;
    }
    m_pendingFirst.clear();
    if (m_pRound)
        m_untidy = true;
    else
        m_observers.clear();
}

void Observable::MakeFirstObserver(IObserver * observer)
{
    auto const found = std::find(m_observers.begin(), m_observers.end(), observer);
    if (!observer || found == m_observers.end())
        return;
    if (m_pRound) {
        EraseLast(m_pendingFirst, observer);
        m_pendingFirst.push_back(observer);
        m_untidy = true;
        return;
    }
    std::rotate(m_observers.begin(), found, std::next(found));
}

void Observable::NotifyObservers(TChangeCode code, IObserver * except)
{
    bool const isNested = m_pRound && m_pRound->m_depth >= DeepestNesting;
    bool const mayRun = !isNested && RunningOfAll < DeepestOfAll && !m_cut && !AreAllCut;
    if (mayRun)
        Round(*this).Run(code, except);
    else
        WarnOfDepth();
}

void Observable::NotifyAtAnyDepth(TChangeCode code, IObserver * except) { Round(*this).Run(code, except); }

void Observable::WarnOfDepth()
{
    if (m_cut || AreAllCut)
        return;
    if (m_pRound && m_pRound->m_depth >= DeepestNesting) {
        m_cut = true;
        m_untidy = true;
    } else {
        AreAllCut = true;
    }
    qWarning(
        "Values notify each other without end, %d deep: further notifications are dropped until the outermost one has "
        "ended.",
        RunningOfAll);
}

bool Observable::Drop(IObserver const * observer)
{
    auto const found = std::find(m_observers.rbegin(), m_observers.rend(), observer);
    if (found == m_observers.rend())
        return false;
    if (!m_pRound) {
        m_observers.erase(std::next(found).base());
        return true;
    }
    EraseLast(m_pendingFirst, observer);
    *found = nullptr;
    m_untidy = true;
    // behind the end of every running notification nothing refers to an index
    while (m_observers.size() > m_pRound->m_end && !m_observers.back())
        m_observers.pop_back();
    return true;
}

void Observable::Settle()
{
    if (m_doomed) {
        delete this;
        return;
    }
    m_untidy = false;
    m_cut = false;
    m_observers.erase(std::remove(m_observers.begin(), m_observers.end(), nullptr), m_observers.end());
    std::vector<IObserver *> const first = std::move(m_pendingFirst);
    m_pendingFirst.clear();
    for (IObserver * observer : first)
        MakeFirstObserver(observer);
}

void Observable::DeleteWhenQuiet()
{
    if (!m_pRound) {
        delete this;
        return;
    }
    m_doomed = true;
    m_untidy = true;
}
