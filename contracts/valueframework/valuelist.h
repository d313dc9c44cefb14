// SPDX-License-Identifier: MIT
#ifndef ORIM_VALUELIST_H
#define ORIM_VALUELIST_H

#include "value.h"

#include <cstddef>
#include <utility>
#include <vector>

//! What a result hands over to a marker.
class ORIMCONTRACTS_EXPORT IMarkerValue
{
public:
    virtual ~IMarkerValue();

    //! \return -1.0 for an index without a value.
    virtual double GetValue(unsigned int i) const = 0;
    virtual QString GetText() const = 0;
    virtual unsigned int GetCount() const = 0;
};

//! One result of a bearing: numbered values and a text.
class ORIMCONTRACTS_EXPORT BearingResult : public IMarkerValue
{
public:
    explicit BearingResult(std::vector<double> values = {}, QString const & text = QString());

    double GetValue(unsigned int i) const override;

    QString GetText() const override { return m_text; }

    unsigned int GetCount() const override { return static_cast<unsigned int>(m_values.size()); }

    //! Sets one value; those between the last one and it become 0.0. An index from 4096 on is ignored.
    void SetValue(unsigned int i, double value);

    void SetText(QString const & text) { m_text = text; }

    bool operator==(BearingResult const & other) const;

    bool operator!=(BearingResult const & other) const { return !(*this == other); }

private:
    std::vector<double> m_values;
    QString m_text;
};

//! Text of one bearing result: its values, then its text, separated by blanks. The text is percent-encoded, so that it
//! is one word.
class ORIMCONTRACTS_EXPORT FormatBearingResult
{
public:
    static QString ToText(BearingResult const & value);
    static bool FromText(QString const & text, BearingResult * value);
};

template <>
struct ValueTraits<BearingResult>
{
    using Format = FormatBearingResult;
    static constexpr TValueType Type = eTypeList;
};

//! A value that is a list, with one cursor to walk it: ToBegin(), then Next() until IsLast(). A change of the list
//! notifies code 7.
template <class T, class Format = typename ValueTraits<T>::Format, class Stream = StreamFormat<T>>
class ORIMCONTRACTS_EXPORT ValueList : public ValueBase
{
public:
    explicit ValueList(QString const & name = QString(), TValueState state = eStateValid);

    ~ValueList() override { this->GoAway(); }

    //! Adds an entry at the end; the cursor stays.
    void Append(T const & entry, IObserver * except = nullptr);
    //! Empties the list; silent when it is empty.
    void Clear(IObserver * except);
    //! Puts other entries in place and the cursor on the first; silent when they are the same.
    void SetEntries(std::vector<T> entries, IObserver * except);

    bool Empty() const { return m_entries.empty(); }

    int Size() const { return static_cast<int>(m_entries.size()); }

    std::vector<T> const & GetEntries() const { return m_entries; }

    void ToBegin() { m_cursor = 0; }

    //! Moves to the next entry; stays once it is past the last one.
    void Next();

    //! Whether the cursor stands past the last entry, as it does in an empty list.
    bool IsLast() const { return m_cursor >= m_entries.size(); }

    //! Entry at the cursor; null past the last one. Holds until the list changes. What is written through it notifies
    //! nobody.
    T * Current() { return IsLast() ? nullptr : &m_entries[m_cursor]; }

    TValueType GetType() const override { return eTypeList; }

    bool Assign(ValueBase const & other) override;
    bool Compare(ValueBase const * other) const override;
    //! One entry a line.
    bool SetStringValue(QString const & text, IObserver * except) override;
    QString GetStringValue() const override;
    QString ToStoredText() const override;
    bool FromStoredText(QString const & text, IObserver * except) override;

private:
    template <class Text>
    QString Join() const;
    template <class Text>
    bool Split(QString const & text, IObserver * except);

    std::vector<T> m_entries;
    std::size_t m_cursor = 0;
};

// never inlined, as that of Value
template <class T, class Format, class Stream>
Q_NEVER_INLINE ValueList<T, Format, Stream>::ValueList(QString const & name, TValueState state) : ValueBase(name, state)
{}

template <class T, class Format, class Stream>
void ValueList<T, Format, Stream>::Append(T const & entry, IObserver * except)
{
    this->BeforeChange();
    m_entries.push_back(entry);
    this->HasChanged(eItemsChanged, except);
}

template <class T, class Format, class Stream>
void ValueList<T, Format, Stream>::Clear(IObserver * except)
{
    SetEntries({}, except);
}

template <class T, class Format, class Stream>
void ValueList<T, Format, Stream>::SetEntries(std::vector<T> entries, IObserver * except)
{
    m_cursor = 0;
    if (entries == m_entries)
        return;
    this->BeforeChange();
    m_entries = std::move(entries);
    this->HasChanged(eItemsChanged, except);
}

template <class T, class Format, class Stream>
void ValueList<T, Format, Stream>::Next()
{
    if (!IsLast())
        ++m_cursor;
}

template <class T, class Format, class Stream>
bool ValueList<T, Format, Stream>::Assign(ValueBase const & other)
{
    auto const * const same = dynamic_cast<ValueList const *>(&other);
    if (!same)
        return false;
    if (same != this)
        SetEntries(same->m_entries, nullptr);
    return true;
}

template <class T, class Format, class Stream>
bool ValueList<T, Format, Stream>::Compare(ValueBase const * other) const
{
    auto const * const same = dynamic_cast<ValueList const *>(other);
    return same && m_entries == same->m_entries;
}

template <class T, class Format, class Stream>
template <class Text>
QString ValueList<T, Format, Stream>::Join() const
{
    QString text;
    for (T const & entry : m_entries)
        text += Text::ToText(entry) + QLatin1Char('\n');
    return text;
}

template <class T, class Format, class Stream>
template <class Text>
bool ValueList<T, Format, Stream>::Split(QString const & text, IObserver * except)
{
    std::vector<T> entries;
    for (int from = 0; from < text.size();) {
        int const found = static_cast<int>(text.indexOf(QLatin1Char('\n'), from));
        int const end = found < 0 ? static_cast<int>(text.size()) : found;
        T entry;
        if (!Text::FromText(text.mid(from, end - from), &entry))
            return false;
        entries.push_back(std::move(entry));
        from = end + 1;
    }
    SetEntries(std::move(entries), except);
    return true;
}

template <class T, class Format, class Stream>
bool ValueList<T, Format, Stream>::SetStringValue(QString const & text, IObserver * except)
{
    return Split<Format>(text, except);
}

template <class T, class Format, class Stream>
QString ValueList<T, Format, Stream>::GetStringValue() const
{
    return Join<Format>();
}

template <class T, class Format, class Stream>
QString ValueList<T, Format, Stream>::ToStoredText() const
{
    return Join<Stream>();
}

template <class T, class Format, class Stream>
bool ValueList<T, Format, Stream>::FromStoredText(QString const & text, IObserver * except)
{
    return Split<Stream>(text, except);
}

extern template class ORIMCONTRACTS_EXPORT ValueList<BearingResult>;

#endif
