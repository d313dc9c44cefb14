// SPDX-License-Identifier: MIT
#ifndef ORIM_VALUEPTR_H
#define ORIM_VALUEPTR_H

#include "tree.h"
#include "valuenumeric.h"
#include "valueselection.h"

//! Borrows one value and becomes null when that goes away. The value stays in the tree when the pointer ends.
//! \tparam T  ValueNumeric<double>, ValueNumeric<int>, Value<bool>, ValueSelection.
template <class T>
class ORIMCONTRACTS_EXPORT ValuePtr : public IObserver
{
public:
    //! Null for a value that is going away.
    explicit ValuePtr(T * value = nullptr) { Hold(value); }

    //! A copy holds the same value and observes it itself.
    ValuePtr(ValuePtr const & other) : IObserver(other) { Hold(other.m_pValue); }

    // NOLINTNEXTLINE(bugprone-unhandled-self-assignment): Replace() does nothing for the value held
    ValuePtr & operator=(ValuePtr const & other)
    {
        Replace(other.m_pValue);
        return *this;
    }

    ~ValuePtr() override { LetGo(); }

    void Update(Observable * subject, TChangeCode code) override;

    //! Lets go of the value, removes it from the tree and becomes null.
    void Release();
    //! Lets go of the value held and holds another one, which may be null; null for one that is going away. Does
    //! nothing for the one held.
    void Replace(T * value);
    //! Holds the value at a path. \return false, and the pointer is null, when there is none of this type.
    bool Bind(QString const & path);

    T * Get() const { return m_pValue; }

    T * operator->() const { return m_pValue; }

    explicit operator bool() const { return m_pValue; }

private:
    void Hold(T * value);
    void LetGo();

    T * m_pValue = nullptr; // null once it went away
};

template <class T>
void ValuePtr<T>::Update(Observable * subject, TChangeCode code)
{
    if (m_pValue && subject == m_pValue && code == eStateChanged && m_pValue->GetState() == eStateGoingAway)
        LetGo();
}

template <class T>
void ValuePtr<T>::Release()
{
    if (!m_pValue)
        return;
    QString const path = m_pValue->GetPathName();
    LetGo();
    if (Tree * const tree = Tree::Instance())
        tree->Remove(path);
}

template <class T>
void ValuePtr<T>::Replace(T * value)
{
    if (value == m_pValue)
        return;
    LetGo();
    Hold(value);
}

template <class T>
bool ValuePtr<T>::Bind(QString const & path)
{
    Tree * const tree = Tree::Instance();
    Replace(tree ? tree->FindAs<T>(path) : nullptr);
    return m_pValue;
}

template <class T>
void ValuePtr<T>::Hold(T * value)
{
    bool const hears = value && (value->AddObserver(this) || value->HasObserver(this));
    m_pValue = hears ? value : nullptr;
}

template <class T>
void ValuePtr<T>::LetGo()
{
    if (m_pValue)
        m_pValue->DeleteObserver(this);
    m_pValue = nullptr;
}

extern template class ORIMCONTRACTS_EXPORT ValuePtr<ValueNumeric<double>>;
extern template class ORIMCONTRACTS_EXPORT ValuePtr<ValueNumeric<int>>;
extern template class ORIMCONTRACTS_EXPORT ValuePtr<Value<bool>>;
extern template class ORIMCONTRACTS_EXPORT ValuePtr<ValueSelection>;

#endif
