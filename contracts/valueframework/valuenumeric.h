// SPDX-License-Identifier: MIT
#ifndef ORIM_VALUENUMERIC_H
#define ORIM_VALUENUMERIC_H

#include "stepgrid.h"
#include "value.h"
#include "valuetransaction.h"

#include <cmath>
#include <initializer_list>
#include <limits>
#include <type_traits>

//! The double-typed face of a numeric value, through which axes and markers read and write without knowing its type.
//! NaN is refused everywhere: nothing changes.
class ORIMCONTRACTS_EXPORT IValueNumeric : public virtual Observable
{
public:
    ~IValueNumeric() override;

    virtual double GetNumericValue() const = 0;
    //! The nearest allowed value becomes the value, and the interim value too; code 3 to all but \a except when it
    //! differs. The value held already ends a drag silently.
    virtual void SetNumericValue(double value, IObserver * except) = 0;
    virtual double GetNumericMin() const = 0;
    virtual double GetNumericMax() const = 0;
    virtual double GetNumericStep() const = 0; //!< 0: no step grid
    //! A value on its way, as during a drag; the same as the value while nothing moves.
    virtual double GetInterimValue() const = 0;
    //! The nearest allowed value becomes the interim value; code 23 to all but \a except when it differs.
    virtual void SetInterimValue(double value, IObserver * except) = 0;
    //! The interim value becomes the value; code 3 to all but \a except when it differs.
    virtual void CommitInterimValue(IObserver * except) = 0;
    //! The nearest allowed value: inside the limits, and on the step grid when the step is above 0. Halfway is upward.
    //! \return the present value for NaN.
    virtual double Snap(double value) const = 0;
    virtual TValueState GetState() const = 0;
    virtual ValueBase * GetValueBase() = 0;
};

//! A number with limits, a step grid and an interim value: int, long long, double.
//!
//! A value is clamped to the limits, then takes the nearest point of the step grid that lies within them. The grid
//! counts from the minimum, or from 0 when the minimum is the lowest of the type. At first the limits are those of the
//! type and there is no grid.
template <class T, class Format = typename ValueTraits<T>::Format, class Stream = StreamFormat<T>>
class ORIMCONTRACTS_EXPORT ValueNumeric : public Value<T, Format, Stream>, public IValueNumeric
{
public:
    explicit ValueNumeric(QString const & name = QString(), TValueState state = eStateValid);

    ~ValueNumeric() override { this->GoAway(); }

    //! The nearest allowed value becomes the value, and the interim value too; code 3 when the value differs. NaN is
    //! refused.
    void SetValue(T value, IObserver * except) override;

    //! Sets the limits and the step. Notifies code 4 when one of them differs, then code 3 when the value had to move,
    //! or code 23 when only the interim value had to. Refused when \a min is above \a max, and for NaN limits; a step
    //! that is not above 0 or not finite is kept as 0: no grid.
    void SetMinMax(T min, T max, T step, IObserver * except);
    //! As SetMinMax; the other limit gives way when it is passed.
    void SetMin(T min, IObserver * except);
    void SetMax(T max, IObserver * except);
    void SetStep(T step, IObserver * except);

    T GetMin() const { return m_grid.GetMin(); }

    T GetMax() const { return m_grid.GetMax(); }

    T GetStep() const { return m_grid.GetStep(); }

    //! Opens a bracket that the returned object closes: each of \a codes is then notified once to all but \a except, if
    //! anything changed.
    ValueTransaction CreateTransaction(std::initializer_list<TChangeCode> codes, IObserver * except)
    {
        return ValueTransaction(this, codes, except);
    }

    TValueType GetType() const override { return ValueTraits<T>::NumericType; }

    double GetNumericValue() const override { return static_cast<double>(this->m_value); }

    void SetNumericValue(double value, IObserver * except) override;

    double GetNumericMin() const override { return static_cast<double>(GetMin()); }

    double GetNumericMax() const override { return static_cast<double>(GetMax()); }

    double GetNumericStep() const override { return static_cast<double>(GetStep()); }

    double GetInterimValue() const override { return static_cast<double>(m_interim); }

    void SetInterimValue(double value, IObserver * except) override;
    void CommitInterimValue(IObserver * except) override;
    double Snap(double value) const override;

    TValueState GetState() const override { return ValueBase::GetState(); }

    ValueBase * GetValueBase() override { return this; }

private:
    void SetGrid(StepGrid<T> const & grid, IObserver * except);
    void Store(T value, IObserver * except);

    StepGrid<T> m_grid;
    T m_interim{};
};

// never inlined, as that of Value
template <class T, class Format, class Stream>
Q_NEVER_INLINE ValueNumeric<T, Format, Stream>::ValueNumeric(QString const & name, TValueState state)
    : Value<T, Format, Stream>(name, state)
{}

template <class T, class Format, class Stream>
void ValueNumeric<T, Format, Stream>::Store(T value, IObserver * except)
{
    if (sameValue(this->m_value, value)) {
        m_interim = this->m_value;
        return;
    }
    this->BeforeChange();
    this->m_value = value;
    m_interim = value;
    this->HasChanged(eValueChanged, except);
}

template <class T, class Format, class Stream>
void ValueNumeric<T, Format, Stream>::SetValue(T value, IObserver * except)
{
    if constexpr (std::is_floating_point<T>::value)
        if (std::isnan(value))
            return;
    Store(m_grid.Nearest(value), except);
}

template <class T, class Format, class Stream>
void ValueNumeric<T, Format, Stream>::SetNumericValue(double value, IObserver * except)
{
    if (!std::isnan(value))
        Store(m_grid.NearestTo(value), except);
}

template <class T, class Format, class Stream>
void ValueNumeric<T, Format, Stream>::SetInterimValue(double value, IObserver * except)
{
    if (std::isnan(value))
        return;
    T const interim = m_grid.NearestTo(value);
    if (sameValue(m_interim, interim))
        return;
    m_interim = interim;
    this->HasChanged(eInterimChanged, except);
}

template <class T, class Format, class Stream>
void ValueNumeric<T, Format, Stream>::CommitInterimValue(IObserver * except)
{
    Store(m_interim, except);
}

template <class T, class Format, class Stream>
double ValueNumeric<T, Format, Stream>::Snap(double value) const
{
    return std::isnan(value) ? GetNumericValue() : static_cast<double>(m_grid.NearestTo(value));
}

template <class T, class Format, class Stream>
void ValueNumeric<T, Format, Stream>::SetMinMax(T min, T max, T step, IObserver * except)
{
    if (min <= max) // false for NaN
        SetGrid(StepGrid<T>(min, max, step), except);
}

template <class T, class Format, class Stream>
void ValueNumeric<T, Format, Stream>::SetMin(T min, IObserver * except)
{
    SetMinMax(min, std::max(min, GetMax()), GetStep(), except);
}

template <class T, class Format, class Stream>
void ValueNumeric<T, Format, Stream>::SetMax(T max, IObserver * except)
{
    SetMinMax(std::min(max, GetMin()), max, GetStep(), except);
}

template <class T, class Format, class Stream>
void ValueNumeric<T, Format, Stream>::SetStep(T step, IObserver * except)
{
    SetMinMax(GetMin(), GetMax(), step, except);
}

template <class T, class Format, class Stream>
void ValueNumeric<T, Format, Stream>::SetGrid(StepGrid<T> const & grid, IObserver * except)
{
    if (grid == m_grid)
        return;
    T const value = grid.Nearest(this->m_value);
    T const interim = grid.Nearest(m_interim);
    bool const valueMoves = !sameValue(this->m_value, value);
    bool const interimMoves = !valueMoves && !sameValue(m_interim, interim);
    if (valueMoves)
        this->BeforeChange();
    // all is settled before anybody is told
    m_grid = grid;
    this->m_value = value;
    m_interim = valueMoves ? value : interim;
    LifeWatch const watch(this->GetLifetime());
    this->HasChanged(eRangeChanged, except);
    if (valueMoves && !watch.IsOver())
        this->HasChanged(eValueChanged, except);
    else if (interimMoves && !watch.IsOver())
        this->HasChanged(eInterimChanged, except);
}

// One set of type information for all libraries, so that a checked cast holds across their borders.
extern template class ORIMCONTRACTS_EXPORT ValueNumeric<int>;
extern template class ORIMCONTRACTS_EXPORT ValueNumeric<long long>;
extern template class ORIMCONTRACTS_EXPORT ValueNumeric<double>;

#endif
