// SPDX-License-Identifier: MIT
#ifndef ORIM_VALUE_H
#define ORIM_VALUE_H

#include "samevalue.h"
#include "valuebase.h"

#include <string>
#include <utility>

//! Texts of single values, all in the C locale. A reading operation leaves *value alone and gives false when the text
//! is no such value: numbers out of range, "nan", "inf", trailing letters.
namespace ValueText {

ORIMCONTRACTS_EXPORT QString FromBool(bool value); //!< "true", "false"
//! Reads "true", "false", "on", "off", "1", "0" in any case, with spaces around.
ORIMCONTRACTS_EXPORT bool ToBool(QString const & text, bool * value);
//! Reads decimal digits with a sign.
ORIMCONTRACTS_EXPORT bool ToInt(QString const & text, int * value);
ORIMCONTRACTS_EXPORT bool ToInt(QString const & text, char * value);
ORIMCONTRACTS_EXPORT bool ToInt64(QString const & text, long long * value);
ORIMCONTRACTS_EXPORT QString FromDouble(double value);      //!< the shortest text that reads back to the same
ORIMCONTRACTS_EXPORT QString FromDoubleExact(double value); //!< 17 digits
ORIMCONTRACTS_EXPORT bool ToDouble(QString const & text, double * value);
ORIMCONTRACTS_EXPORT QString FromNarrow(std::string const & value); //!< one character a byte, Latin-1
//! Refuses a text with characters beyond Latin-1.
ORIMCONTRACTS_EXPORT bool ToNarrow(QString const & text, std::string * value);

} // namespace ValueText

// Format classes: the text of a value for people.

template <class T>
class ORIMCONTRACTS_EXPORT FormatBool
{
public:
    static QString ToText(T value) { return ValueText::FromBool(value); }

    static bool FromText(QString const & text, T * value) { return ValueText::ToBool(text, value); }
};

//! Whole numbers, a char included.
template <class T>
class ORIMCONTRACTS_EXPORT FormatInt
{
public:
    static QString ToText(T value) { return QString::number(static_cast<int>(value)); }

    static bool FromText(QString const & text, T * value) { return ValueText::ToInt(text, value); }
};

template <class T>
class ORIMCONTRACTS_EXPORT FormatInt64
{
public:
    static QString ToText(T value) { return QString::number(value); }

    static bool FromText(QString const & text, T * value) { return ValueText::ToInt64(text, value); }
};

template <class T>
class ORIMCONTRACTS_EXPORT FormatFloat
{
public:
    static QString ToText(T value) { return ValueText::FromDouble(value); }

    static bool FromText(QString const & text, T * value) { return ValueText::ToDouble(text, value); }
};

template <class T>
class ORIMCONTRACTS_EXPORT FormatString
{
public:
    static QString ToText(T const & value) { return value; }

    static bool FromText(QString const & text, T * value)
    {
        *value = text;
        return true;
    }
};

template <class T>
class ORIMCONTRACTS_EXPORT FormatCString
{
public:
    static QString ToText(T const & value) { return ValueText::FromNarrow(value); }

    static bool FromText(QString const & text, T * value) { return ValueText::ToNarrow(text, value); }
};

//! The format class and the kind that belong to a type.
template <class T>
struct ValueTraits;

template <>
struct ValueTraits<bool>
{
    using Format = FormatBool<bool>;
    static constexpr TValueType Type = eTypeBool;
};

template <>
struct ValueTraits<char>
{
    using Format = FormatInt<char>;
    static constexpr TValueType Type = eTypeChar;
};

template <>
struct ValueTraits<int>
{
    using Format = FormatInt<int>;
    static constexpr TValueType Type = eTypeInt;
    static constexpr TValueType NumericType = eTypeNumericInt;
};

template <>
struct ValueTraits<long long>
{
    using Format = FormatInt64<long long>;
    static constexpr TValueType Type = eTypeInt64;
    static constexpr TValueType NumericType = eTypeNumericInt64;
};

template <>
struct ValueTraits<double>
{
    using Format = FormatFloat<double>;
    static constexpr TValueType Type = eTypeFloat;
    static constexpr TValueType NumericType = eTypeNumericFloat;
};

template <>
struct ValueTraits<QString>
{
    using Format = FormatString<QString>;
    static constexpr TValueType Type = eTypeString;
};

template <>
struct ValueTraits<std::string>
{
    using Format = FormatCString<std::string>;
    static constexpr TValueType Type = eTypeCString;
};

//! The text of a value for the store: reads back to the same value in any locale.
template <class T>
class ORIMCONTRACTS_EXPORT StreamFormat
{
public:
    static QString ToText(T const & value) { return ValueTraits<T>::Format::ToText(value); }

    static bool FromText(QString const & text, T * value) { return ValueTraits<T>::Format::FromText(text, value); }
};

template <>
inline QString StreamFormat<double>::ToText(double const & value)
{
    return ValueText::FromDoubleExact(value);
}

//! A typed value without limits: bool, char, int, long long, double, QString, std::string.
//! \tparam Format  its text for people.
//! \tparam Stream  its text for the store.
template <class T, class Format = typename ValueTraits<T>::Format, class Stream = StreamFormat<T>>
class ORIMCONTRACTS_EXPORT Value : public ValueBase
{
public:
    explicit Value(QString const & name = QString(), TValueState state = eStateValid);

    ~Value() override { this->GoAway(); }

    T GetValue() const { return m_value; }

    //! Notifies code 3 to all but \a except when the value differs.
    virtual void SetValue(T value, IObserver * except);

    TValueType GetType() const override { return ValueTraits<T>::Type; }

    bool Assign(ValueBase const & other) override;
    bool Compare(ValueBase const * other) const override;

    bool SetStringValue(QString const & text, IObserver * except) override;

    QString GetStringValue() const override { return Format::ToText(m_value); }

    QString ToStoredText() const override { return Stream::ToText(m_value); }

    bool FromStoredText(QString const & text, IObserver * except) override;

protected:
    T m_value{};
};

// Never inlined: gcc 12 stores neighbouring table pointers of a new object as one vector, does not see by it that the
// base has become this class, and takes the next virtual call on the object for one that cannot happen.
template <class T, class Format, class Stream>
Q_NEVER_INLINE Value<T, Format, Stream>::Value(QString const & name, TValueState state) : ValueBase(name, state)
{}

template <class T, class Format, class Stream>
void Value<T, Format, Stream>::SetValue(T value, IObserver * except)
{
    if (sameValue(m_value, value))
        return;
    this->BeforeChange();
    m_value = std::move(value);
    this->HasChanged(eValueChanged, except);
}

template <class T, class Format, class Stream>
bool Value<T, Format, Stream>::Assign(ValueBase const & other)
{
    auto const * const same = dynamic_cast<Value const *>(&other);
    if (!same)
        return false;
    SetValue(same->m_value, nullptr);
    return true;
}

template <class T, class Format, class Stream>
bool Value<T, Format, Stream>::Compare(ValueBase const * other) const
{
    auto const * const same = dynamic_cast<Value const *>(other);
    return same && sameValue(m_value, same->m_value);
}

template <class T, class Format, class Stream>
bool Value<T, Format, Stream>::SetStringValue(QString const & text, IObserver * except)
{
    T value{};
    if (!Format::FromText(text, &value))
        return false;
    SetValue(std::move(value), except);
    return true;
}

template <class T, class Format, class Stream>
bool Value<T, Format, Stream>::FromStoredText(QString const & text, IObserver * except)
{
    T value{};
    if (!Stream::FromText(text, &value))
        return false;
    SetValue(std::move(value), except);
    return true;
}

// One set of type information for all libraries, so that a checked cast holds across their borders.
extern template class ORIMCONTRACTS_EXPORT Value<bool>;
extern template class ORIMCONTRACTS_EXPORT Value<char>;
extern template class ORIMCONTRACTS_EXPORT Value<int>;
extern template class ORIMCONTRACTS_EXPORT Value<long long>;
extern template class ORIMCONTRACTS_EXPORT Value<double>;
extern template class ORIMCONTRACTS_EXPORT Value<QString>;
extern template class ORIMCONTRACTS_EXPORT Value<std::string>;

#endif
