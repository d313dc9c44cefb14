// SPDX-License-Identifier: MIT
#ifndef ORIM_VALUEFOLLOWER_H
#define ORIM_VALUEFOLLOWER_H

#include "value.h"

#include <QString>

#include <functional>

class IValueNumeric;
class ValueSelection;

//! Follows one value of the tree: tells its owner of every change, and lets go when the value goes away or this dies.
class ValueFollower : public IObserver
{
public:
    //! \param changed  called when the value, its range or its items changed, and once a successful Bind().
    explicit ValueFollower(std::function<void()> changed);
    ~ValueFollower() override;
    ValueFollower(ValueFollower const &) = delete;
    ValueFollower & operator=(ValueFollower const &) = delete;

    //! Lets go of the value followed so far and follows the one at a path.
    //! \return whether there is one; without one nothing is followed.
    bool Bind(QString const & path);

    //! Whether a value is followed.
    bool IsBound() const { return m_pValue != nullptr; }

    //! Number that the value holds; \a fallback when none is followed or it is no number.
    double Number(double fallback) const;
    //! Key of the chosen item; \a fallback when none is followed or it is no selection.
    long Key(long fallback) const;
    //! Whether a flag is set; \a fallback when none is followed or it is no flag.
    bool Flag(bool fallback) const;
    //! Writes the number; this hears of what the value made of it like every other observer.
    void SetNumber(double number);
    //! Chooses the item of a key.
    void SetKey(long key);
    //! Sets or clears the flag.
    void SetFlag(bool on);

    IValueNumeric * Numeric() const { return m_pNumeric; } //!< null when it is no number

    ValueSelection * Selection() const { return m_pSelection; } //!< null when it is no selection

    void Update(Observable * subject, TChangeCode code) override;

private:
    void LetGo();

    std::function<void()> m_changed;
    ValueBase * m_pValue = nullptr;          // borrowed from the tree; null once it went away, as are those below
    IValueNumeric * m_pNumeric = nullptr;    // the same value by its number
    ValueSelection * m_pSelection = nullptr; // the same value by its items
    Value<bool> * m_pFlag = nullptr;         // the same value as a flag
};

#endif
