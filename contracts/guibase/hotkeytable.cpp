// SPDX-License-Identifier: MIT
#include "hotkeytable.h"

#include "qtcompat.h"

#include <QKeySequence>

#include <algorithm>
#include <array>

namespace {

constexpr std::array<int, 9> ModifierKeys{ { Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_Meta, Qt::Key_AltGr,
                                             Qt::Key_CapsLock, Qt::Key_NumLock, Qt::Key_Super_L, Qt::Key_Super_R } };
constexpr int HeardModifiers = Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
constexpr int LongestText = 64; // characters; a longer one is no key

bool IsModifierKey(int key) { return std::find(ModifierKeys.begin(), ModifierKeys.end(), key) != ModifierKeys.end(); }

//! Whether some keyboard reaches this key only with Shift.
bool IsSign(int key)
{
    bool const isPrintable = key > Qt::Key_Space && key <= 0xFFFF;
    return isPrintable && !QChar(key).isLetter();
}

} // namespace

HotKeyCombination HotKeyCombination::From(int key, int modifiers)
{
    HotKeyCombination folded;
    if (key <= 0 || key == Qt::Key_unknown || IsModifierKey(key))
        return folded;
    folded.key = key;
    folded.modifiers = modifiers & HeardModifiers;
    if (key == Qt::Key_Backtab) {
        folded.key = Qt::Key_Tab;
        folded.modifiers |= Qt::ShiftModifier;
    }
    return folded;
}

HotKeyCombination HotKeyCombination::FromText(QString const & text)
{
    if (text.size() > LongestText)
        return {};
    int const combined = CombinedKey(QKeySequence::fromString(text, QKeySequence::PortableText));
    int const allModifiers = static_cast<int>(Qt::KeyboardModifierMask);
    return From(combined & ~allModifiers, combined & allModifiers);
}

QString HotKeyCombination::ToText() const
{
    return IsNone() ? QString() : QKeySequence(key | modifiers).toString(QKeySequence::PortableText);
}

QString HotKeyCombination::ToDisplayText() const
{
    return IsNone() ? QString() : QKeySequence(key | modifiers).toString(QKeySequence::NativeText);
}

int HotKeyTable::Add(HotKey hotKey)
{
    if (hotKey.defaultCombination.IsNone())
        return -1;
    DropDead();
    for (auto const & [index, known] : m_hotKeys)
        if (known.defaultCombination == hotKey.defaultCombination && known.receiver == hotKey.receiver &&
            known.name == hotKey.name && known.group == hotKey.group)
            return index;
    hotKey.combination = hotKey.defaultCombination;
    hotKey.hasReceiver = !hotKey.receiver.isNull();
    m_hotKeys.emplace(m_next, std::move(hotKey));
    return m_next++;
}

bool HotKeyTable::Remove(int index)
{
    DropDead();
    return m_hotKeys.erase(index) > 0;
}

std::vector<int> HotKeyTable::RemoveReceiver(QObject const * receiver)
{
    std::vector<int> removed;
    if (!receiver)
        return removed;
    for (auto const & [index, hotKey] : m_hotKeys)
        if (hotKey.receiver == receiver)
            removed.push_back(index);
    for (int const index : removed)
        m_hotKeys.erase(index);
    return removed;
}

bool HotKeyTable::Enable(int index, bool on)
{
    auto const found = m_hotKeys.find(index);
    if (found == m_hotKeys.end() || !IsAlive(found->second))
        return false;
    found->second.enabled = on;
    return true;
}

bool HotKeyTable::SetCombination(int index, HotKeyCombination const & combination)
{
    auto const found = m_hotKeys.find(index);
    if (found == m_hotKeys.end() || !IsAlive(found->second) || !found->second.changeable)
        return false;
    found->second.combination = combination;
    return true;
}

HotKey const * HotKeyTable::Get(int index) const
{
    auto const found = m_hotKeys.find(index);
    return found != m_hotKeys.end() && IsAlive(found->second) ? &found->second : nullptr;
}

std::vector<int> HotKeyTable::GetIndices() const
{
    std::vector<int> indices;
    indices.reserve(m_hotKeys.size());
    for (auto const & [index, hotKey] : m_hotKeys)
        if (IsAlive(hotKey))
            indices.push_back(index);
    return indices;
}

int HotKeyTable::Find(HotKeyCombination const & combination) const
{
    if (combination.IsNone())
        return -1;
    for (auto const & [index, hotKey] : m_hotKeys)
        if (IsAlive(hotKey) && hotKey.combination == combination)
            return index;
    return -1;
}

int HotKeyTable::FindName(QString const & name) const
{
    for (auto const & [index, hotKey] : m_hotKeys)
        if (IsAlive(hotKey) && hotKey.name == name)
            return index;
    return -1;
}

int HotKeyTable::Match(HotKeyCombination const & pressed, std::function<bool(HotKey const &)> const & admits) const
{
    int const index = MatchExactly(pressed, admits);
    if (index >= 0 || !IsSign(pressed.key) || !(pressed.modifiers & static_cast<int>(Qt::ShiftModifier)))
        return index;
    HotKeyCombination withoutShift = pressed;
    withoutShift.modifiers &= ~static_cast<int>(Qt::ShiftModifier);
    return MatchExactly(withoutShift, admits);
}

int HotKeyTable::MatchExactly(HotKeyCombination const & pressed,
                              std::function<bool(HotKey const &)> const & admits) const
{
    if (pressed.IsNone())
        return -1;
    for (auto const & [index, hotKey] : m_hotKeys)
        if (IsAlive(hotKey) && hotKey.enabled && hotKey.combination == pressed && (!admits || admits(hotKey)))
            return index;
    return -1;
}

int HotKeyTable::GetConflict(int index) const
{
    HotKey const * const hotKey = Get(index);
    if (!hotKey || hotKey->combination.IsNone())
        return -1;
    for (auto const & [other, known] : m_hotKeys)
        if (other != index && IsAlive(known) && known.combination == hotKey->combination)
            return other;
    return -1;
}

void HotKeyTable::DropDead()
{
    for (auto it = m_hotKeys.begin(); it != m_hotKeys.end();)
        it = IsAlive(it->second) ? std::next(it) : m_hotKeys.erase(it);
}
