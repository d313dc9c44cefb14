// SPDX-License-Identifier: MIT
#ifndef ORIM_OBSERVABLE_H
#define ORIM_OBSERVABLE_H

#include "lifetime.h"
#include "orimcontracts_export.h"

#include <cstddef>
#include <vector>

class Observable;

//! What a notification tells.
enum TChangeCode : int
{
    eStateChanged = 2,   //!< the state changed; the observer reads it, and lets go when the value is going away
    eValueChanged = 3,   //!< the value changed
    eRangeChanged = 4,   //!< the limits or the step of a value changed
    eItemsChanged = 7,   //!< the items of a selection or of a list changed
    eInterimChanged = 23 //!< the interim value changed, as during a drag
};

//! Receiver of notifications. Its destructor takes it off every observable that still holds it.
class ORIMCONTRACTS_EXPORT IObserver
{
public:
    IObserver() = default;

    //! A copy observes nothing: registrations belong to the object.
    IObserver(IObserver const &) {}

    //! Keeps its own registrations and takes none over.
    IObserver & operator=(IObserver const &) { return *this; }

    virtual ~IObserver();

    //! Receives a notification. The base does nothing, so that an object whose derived part is already destroyed may
    //! still be notified. \param subject  who speaks; never null.
    virtual void Update(Observable * subject, TChangeCode code);

    //! For a LifeWatch on this observer.
    Lifetime const & GetObserverLifetime() const { return m_lifetime; }

private:
    friend class Observable;

    std::vector<Observable *> m_observed; // those that hold this observer
    Lifetime m_lifetime;
};

//! Subject of notifications: an ordered list of observers that may change, and an object that may die, while it speaks.
//!
//! - Observers are told in the order in which they were added, those made first ahead.
//! - An observer removed or deleted inside a notification is not called any more.
//! - One added inside a notification hears the next one.
//! - A notification inside a notification runs at once and to its end; then the outer one tells the rest.
//! - An observable 256 deep in its own notification stops there: until the outermost one has ended it starts no further
//!   one, and it says so in one warning. The same holds for all together at 1024 notifications inside each other, which
//!   is where a long ring would run out of stack.
//!
//! Belongs to one thread.
class ORIMCONTRACTS_EXPORT Observable
{
public:
    Observable() = default;
    Observable(Observable const &) = delete;
    Observable & operator=(Observable const &) = delete;

    //! Takes itself off its observers, without a notification. Allowed inside its own notification.
    virtual ~Observable();

    //! Adds an observer at the end.
    //! \return false for null, for one already there, and once the observable takes no more observers.
    virtual bool AddObserver(IObserver * observer);
    //! Removes an observer; null and strangers are ignored. It is not called again after this returns.
    virtual void DeleteObserver(IObserver * observer);
    //! Removes all observers.
    virtual void DeleteObservers();
    //! Puts an observer ahead of all others; null and strangers are ignored. Inside a notification the new order holds
    //! once the outermost one has ended.
    virtual void MakeFirstObserver(IObserver * observer);
    //! Calls Update of every observer but \a except, which may be null. The observable may be gone when this returns.
    virtual void NotifyObservers(TChangeCode code, IObserver * except);

    //! Whether \a observer is registered.
    bool HasObserver(IObserver const * observer) const;
    //! Number of registered observers.
    int GetObserverCount() const;

    //! For a LifeWatch on this observable.
    Lifetime const & GetLifetime() const { return m_lifetime; }

protected:
    //! Takes no more observers from now on.
    void CloseObservers() { m_closed = true; }

    //! Notifies like NotifyObservers, however deep: for the last words of an object.
    void NotifyAtAnyDepth(TChangeCode code, IObserver * except);
    //! Deletes this object: at once, or when its outermost notification has ended.
    void DeleteWhenQuiet();

private:
    friend class IObserver;
    class Round;

    //! Says once that a notification was dropped, and drops those that follow.
    void WarnOfDepth();
    //! Removes from the own list only. \return whether it was there.
    bool Drop(IObserver const * observer);
    //! Ends the outermost notification: compacts the list, applies what waited. May delete this object.
    void Settle();

    std::vector<IObserver *> m_observers;    // null: removed inside a notification
    std::vector<IObserver *> m_pendingFirst; // made first inside a notification, the last one goes to the front
    Round * m_pRound = nullptr;              // innermost notification, on the stack
    bool m_untidy = false;                   // Settle() has something to do
    bool m_cut = false;                      // the deepest allowed nesting was reached
    bool m_doomed = false;                   // to be deleted by Settle()
    bool m_closed = false;
    Lifetime m_lifetime;
};

#endif
