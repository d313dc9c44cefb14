// SPDX-License-Identifier: MIT
#ifndef ORIM_VALUESELECTION_H
#define ORIM_VALUESELECTION_H

#include "valuebase.h"

#include <vector>

//! One entry of a selection: a name for people, a number, and a key for the store.
class ORIMCONTRACTS_EXPORT SelectionItem
{
public:
    SelectionItem() = default;

    SelectionItem(QString const & name, double value, long key) : m_name(name), m_value(value), m_key(key) {}

    QString const & GetName() const { return m_name; }

    double GetValue() const { return m_value; }

    long GetKey() const { return m_key; }

    bool operator==(SelectionItem const & other) const;

    bool operator!=(SelectionItem const & other) const { return !(*this == other); }

private:
    QString m_name;
    double m_value = 0.0;
    long m_key = 0;
};

//! A value that is one of a list of items, or none of them: nothing is chosen until Select. Where several items answer
//! to one name, number or key, the first one counts.
class ORIMCONTRACTS_EXPORT ValueSelection : public ValueBase
{
public:
    explicit ValueSelection(QString const & name = QString(), TValueState state = eStateValid);
    ValueSelection(ValueSelection const &) = delete;
    //! Takes over items and choice, never observers, name or path. Notifies code 7 when the items differ, then code 3
    //! when the choice does.
    ValueSelection & operator=(ValueSelection const & other);
    ~ValueSelection() override;

    //! The chosen item; null while nothing is chosen.
    SelectionItem const * GetCurrentItem() const;
    long GetCurrentKey() const;     //!< 0 while nothing is chosen
    double GetCurrentValue() const; //!< 0.0 while nothing is chosen

    int GetCurrentIndex() const { return m_current; } //!< -1 while nothing is chosen

    // Select: code 3 to all but \a except when the choice differs. False, and nothing changes, when there is no such
    // item.
    bool Select(long key, IObserver * except);
    //! \param nearest  takes the item with the nearest number instead of the same one; NaN finds nothing.
    bool Select(double value, IObserver * except, bool nearest = false);
    bool Select(wchar_t const * name, IObserver * except);
    bool Select(QString const & name, IObserver * except);
    //! By place, 0 .. GetItemCount() - 1.
    bool SelectIndex(int index, IObserver * except);

    // Items: code 7 to all but \a except when they differ; then code 3 when the chosen one was among those that left.
    void AddItem(SelectionItem const & item, IObserver * except = nullptr);
    void AddItems(std::vector<SelectionItem> const & items, IObserver * except = nullptr);
    //! Adds the items of another selection, without its choice.
    void AddItemsFrom(ValueSelection const & other, IObserver * except = nullptr);
    //! \return false when no item has the key.
    bool DeleteItem(long key, IObserver * except = nullptr);
    void DeleteItems(IObserver * except = nullptr);

    int GetItemCount() const { return static_cast<int>(m_items.size()); }

    //! Place of an item; -1 when there is none.
    int GetItemIndex(QString const & name) const;
    int GetItemIndex(double value) const;
    int GetItemIndex(long key) const;
    //! An item by name, number or key; null when there is none. The pointer holds until the items change.
    SelectionItem const * GetItem(QString const & name) const;
    SelectionItem const * GetItem(double value) const;
    SelectionItem const * GetItem(long key) const;
    //! By place; null for a bad one.
    SelectionItem const * GetItemAt(int index) const;
    //! \param found  may be null; receives whether there is such an item.
    //! \return 0 when there is none.
    long GetKeyForItemName(QString const & name, bool * found = nullptr) const;
    //! Empty when there is no such item.
    QString GetItemNameForKey(long key) const;

    TValueType GetType() const override { return eTypeSelection; }

    bool Assign(ValueBase const & other) override;
    //! The same items and the same choice.
    bool Compare(ValueBase const * other) const override;
    //! Selects by name.
    bool SetStringValue(QString const & text, IObserver * except) override;
    //! Name of the chosen item; empty while nothing is chosen.
    QString GetStringValue() const override;
    //! Key of the chosen item; empty while nothing is chosen.
    QString ToStoredText() const override;
    //! The empty text chooses nothing.
    bool FromStoredText(QString const & text, IObserver * except) override;

private:
    int NearestIndex(double value) const;
    //! Puts other items in place, then tells.
    void Replace(std::vector<SelectionItem> items, int current, IObserver * except);
    void Choose(int index, IObserver * except);

    std::vector<SelectionItem> m_items;
    int m_current = -1;
};

#endif
