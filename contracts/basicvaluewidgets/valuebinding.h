// SPDX-License-Identifier: MIT
#ifndef ORIM_VALUEBINDING_H
#define ORIM_VALUEBINDING_H

#include "lifetime.h"
#include "replayonbinding.h"
#include "tree.h"
#include "valuebase.h"

#include <QString>

//! The tie of a widget to one value of the tree: it binds by path, lets go when the value goes away and when the widget
//! dies. The widget's Update() hands every notification to Hears() first.
//! Of several bindings of one widget to one value the first does the observing: release it last.
//! \tparam T  what the widget wants of the value: a value class or IValueNumeric.
template <class T>
class ValueBinding
{
public:
    //! \param observer  the widget, which owns this.
    explicit ValueBinding(IObserver * observer) : m_pObserver(observer) {}

    ValueBinding(ValueBinding const &) = delete;
    ValueBinding & operator=(ValueBinding const &) = delete;

    ~ValueBinding() { Release(); }

    //! Lets go of the present value, binds the one at a path and replays its state to the widget.
    //! \return false, and nothing is bound, when the path is unknown or names a value of another type.
    bool BindPath(QString const & path)
    {
        Tree const * const tree = Tree::Instance();
        return Bind(tree ? tree->FindAs<T>(path) : nullptr);
    }

    //! The same with the value itself; null binds nothing.
    bool Bind(T * value)
    {
        Release();
        bool const isNew = value && value->AddObserver(m_pObserver);
        if (!value || !(isNew || value->HasObserver(m_pObserver)))
            return false;
        m_pValue = value;
        m_isOurs = isNew;
        m_life = LifeWatch(value->GetLifetime());
        ReplayOnBinding(dynamic_cast<ValueBase *>(value), m_pObserver);
        return true;
    }

    void Release()
    {
        if (Get() && m_isOurs)
            m_pValue->DeleteObserver(m_pObserver);
        m_pValue = nullptr;
    }

    //! Whether a notification concerns the widget: it comes from the bound value, which stays. One that tells of the
    //! end of the value lets go of it.
    bool Hears(Observable const * subject, TChangeCode code)
    {
        if (!Get() || subject != m_pValue)
            return false;
        if (code != eStateChanged || m_pValue->GetState() != eStateGoingAway)
            return true;
        Release();
        return false;
    }

    //! The bound value; null while there is none, also when it ended without telling its observers.
    T * Get() const { return m_life.IsOver() ? nullptr : m_pValue; }

private:
    IObserver * m_pObserver;
    T * m_pValue = nullptr; // borrowed from the tree; null once it went away
    bool m_isOurs = false;  // this made the widget an observer of the value
    LifeWatch m_life;       // of the value
};

#endif
