// SPDX-License-Identifier: MIT
#include "valueselection.h"

#include "samevalue.h"
#include "value.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

template <class Test>
int FindIndex(std::vector<SelectionItem> const & items, Test const & test)
{
    auto const found = std::find_if(items.begin(), items.end(), test);
    return found == items.end() ? -1 : static_cast<int>(found - items.begin());
}

bool ToKey(QString const & text, long * key)
{
    long long number = 0;
    if (!ValueText::ToInt64(text, &number) || number < std::numeric_limits<long>::min() ||
        number > std::numeric_limits<long>::max())
        return false;
    *key = static_cast<long>(number);
    return true;
}

} // namespace

bool SelectionItem::operator==(SelectionItem const & other) const
{
    return m_key == other.m_key && sameValue(m_value, other.m_value) && m_name == other.m_name;
}

ValueSelection::ValueSelection(QString const & name, TValueState state) : ValueBase(name, state) {}

ValueSelection & ValueSelection::operator=(ValueSelection const & other)
{
    if (this != &other)
        Replace(other.m_items, other.m_current, nullptr);
    return *this;
}

ValueSelection::~ValueSelection() { GoAway(); }

SelectionItem const * ValueSelection::GetCurrentItem() const { return GetItemAt(m_current); }

long ValueSelection::GetCurrentKey() const
{
    SelectionItem const * const item = GetCurrentItem();
    return item ? item->GetKey() : 0;
}

double ValueSelection::GetCurrentValue() const
{
    SelectionItem const * const item = GetCurrentItem();
    return item ? item->GetValue() : 0.0;
}

bool ValueSelection::Select(long key, IObserver * except) { return SelectIndex(GetItemIndex(key), except); }

bool ValueSelection::Select(double value, IObserver * except, bool nearest)
{
    return SelectIndex(nearest ? NearestIndex(value) : GetItemIndex(value), except);
}

bool ValueSelection::Select(wchar_t const * name, IObserver * except)
{
    return name && Select(QString::fromWCharArray(name), except);
}

bool ValueSelection::Select(QString const & name, IObserver * except)
{
    return SelectIndex(GetItemIndex(name), except);
}

bool ValueSelection::SelectIndex(int index, IObserver * except)
{
    if (index < 0 || index >= GetItemCount())
        return false;
    Choose(index, except);
    return true;
}

void ValueSelection::AddItem(SelectionItem const & item, IObserver * except) { AddItems({ item }, except); }

void ValueSelection::AddItems(std::vector<SelectionItem> const & items, IObserver * except)
{
    std::vector<SelectionItem> all = m_items;
    all.insert(all.end(), items.begin(), items.end());
    Replace(std::move(all), m_current, except);
}

void ValueSelection::AddItemsFrom(ValueSelection const & other, IObserver * except) { AddItems(other.m_items, except); }

bool ValueSelection::DeleteItem(long key, IObserver * except)
{
    int const index = GetItemIndex(key);
    if (index < 0)
        return false;
    std::vector<SelectionItem> rest = m_items;
    rest.erase(rest.begin() + index);
    int const moved = m_current > index ? m_current - 1 : m_current;
    Replace(std::move(rest), m_current == index ? -1 : moved, except);
    return true;
}

void ValueSelection::DeleteItems(IObserver * except) { Replace({}, -1, except); }

int ValueSelection::GetItemIndex(QString const & name) const
{
    return FindIndex(m_items, [&name](SelectionItem const & item) { return item.GetName() == name; });
}

int ValueSelection::GetItemIndex(double value) const
{
    if (std::isnan(value))
        return -1;
    return FindIndex(m_items, [value](SelectionItem const & item) { return item.GetValue() == value; });
}

int ValueSelection::GetItemIndex(long key) const
{
    return FindIndex(m_items, [key](SelectionItem const & item) { return item.GetKey() == key; });
}

int ValueSelection::NearestIndex(double value) const
{
    int nearest = -1;
    double least = std::numeric_limits<double>::infinity();
    for (int i = 0; i < GetItemCount(); ++i) {
        double const number = GetItemAt(i)->GetValue();
        double const distance = number == value ? 0.0 : std::abs(number - value);
        if (distance < least || (nearest < 0 && distance == least)) {
            nearest = i;
            least = distance;
        }
    }
    return nearest;
}

SelectionItem const * ValueSelection::GetItem(QString const & name) const { return GetItemAt(GetItemIndex(name)); }

SelectionItem const * ValueSelection::GetItem(double value) const { return GetItemAt(GetItemIndex(value)); }

SelectionItem const * ValueSelection::GetItem(long key) const { return GetItemAt(GetItemIndex(key)); }

SelectionItem const * ValueSelection::GetItemAt(int index) const
{
    return index < 0 || index >= GetItemCount() ? nullptr : &m_items[static_cast<std::size_t>(index)];
}

long ValueSelection::GetKeyForItemName(QString const & name, bool * found) const
{
    SelectionItem const * const item = GetItem(name);
    if (found)
        *found = item;
    return item ? item->GetKey() : 0;
}

QString ValueSelection::GetItemNameForKey(long key) const
{
    SelectionItem const * const item = GetItem(key);
    return item ? item->GetName() : QString();
}

bool ValueSelection::Assign(ValueBase const & other)
{
    auto const * const selection = dynamic_cast<ValueSelection const *>(&other);
    if (!selection)
        return false;
    *this = *selection;
    return true;
}

bool ValueSelection::Compare(ValueBase const * other) const
{
    auto const * const selection = dynamic_cast<ValueSelection const *>(other);
    return selection && m_current == selection->m_current && m_items == selection->m_items;
}

bool ValueSelection::SetStringValue(QString const & text, IObserver * except) { return Select(text, except); }

QString ValueSelection::GetStringValue() const
{
    SelectionItem const * const item = GetCurrentItem();
    return item ? item->GetName() : QString();
}

QString ValueSelection::ToStoredText() const
{
    SelectionItem const * const item = GetCurrentItem();
    return item ? QString::number(item->GetKey()) : QString();
}

bool ValueSelection::FromStoredText(QString const & text, IObserver * except)
{
    if (text.isEmpty()) {
        Choose(-1, except);
        return true;
    }
    long key = 0;
    return ToKey(text, &key) && Select(key, except);
}

void ValueSelection::Replace(std::vector<SelectionItem> items, int current, IObserver * except)
{
    bool const itemsDiffer = items != m_items;
    if (!itemsDiffer && current == m_current)
        return;
    SelectionItem const * const before = GetCurrentItem();
    bool const chosen = current >= 0;
    bool const choiceDiffers =
        before ? !chosen || items[static_cast<std::size_t>(current)] != *before || !itemsDiffer : chosen;
    BeforeChange();
    m_items = std::move(items);
    m_current = current;
    LifeWatch const watch(GetLifetime());
    if (itemsDiffer)
        HasChanged(eItemsChanged, except);
    if (choiceDiffers && !watch.IsOver())
        HasChanged(eValueChanged, except);
}

void ValueSelection::Choose(int index, IObserver * except)
{
    if (index == m_current)
        return;
    BeforeChange();
    m_current = index;
    HasChanged(eValueChanged, except);
}
