// SPDX-License-Identifier: MIT
#ifndef ORIM_HOTKEYTABLE_H
#define ORIM_HOTKEYTABLE_H

#include "orimcontracts_export.h"

#include <QPointer>
#include <QString>

#include <functional>
#include <map>
#include <vector>

//! One key with its modifiers. The keypad counts as the main block, Backtab as Shift+Tab.
struct ORIMCONTRACTS_EXPORT HotKeyCombination
{
    int key = 0;       //!< a Qt::Key; 0 for none
    int modifiers = 0; //!< Qt::KeyboardModifiers: Shift, Control, Alt and Meta only

    //! Folds what stands for the same key; none for 0, Qt::Key_unknown and a bare modifier key.
    static HotKeyCombination From(int key, int modifiers);
    //! Reads "Ctrl+Shift+M", in English whatever the language of the screen; none for an empty or unknown text. Of a
    //! sequence of several keys the first counts.
    static HotKeyCombination FromText(QString const & text);
    //! The text that FromText() reads; empty for none.
    QString ToText() const;
    //! The text that the operator sees; empty for none.
    QString ToDisplayText() const;

    bool IsNone() const { return key == 0; }

    bool operator==(HotKeyCombination const & other) const { return key == other.key && modifiers == other.modifiers; }

    bool operator!=(HotKeyCombination const & other) const { return !(*this == other); }
};

//! One registered hot key.
struct HotKey
{
    HotKeyCombination combination;        //!< what is heard; none when the operator took the key away
    HotKeyCombination defaultCombination; //!< what the program registered
    QPointer<QObject> receiver;           //!< whom it serves; the hot key ends with it
    QString name;                         //!< what it does, as the operator reads it
    QString group;                        //!< heading under which it is listed and stored
    bool hasReceiver = false;             //!< registered with a receiver
    bool enabled = true;
    bool changeable = true;    //!< the operator may give it another key
    bool throughModal = false; //!< heard while a modal dialog or a menu is open
};

//! The hot keys by index, without a widget. An index is never given twice, so it stays valid, or dead, whatever becomes
//! of the others. A hot key whose receiver has died counts as removed.
class ORIMCONTRACTS_EXPORT HotKeyTable
{
public:
    //! Registers a hot key. Registering the same key, receiver, name and group again gives the index it already has.
    //! \param hotKey  its default combination, receiver, name, group and flags; its combination starts as the default.
    //! \return its index, from 0; -1 when its default combination is none.
    int Add(HotKey hotKey);
    //! Removes a hot key; false for an index that is none.
    bool Remove(int index);
    //! Removes all hot keys of a receiver; their indices, rising. Null removes none.
    std::vector<int> RemoveReceiver(QObject const * receiver);
    //! Switches a hot key on or off; false for an index that is none.
    bool Enable(int index, bool on);
    //! Gives a hot key another combination, none included, whether or not others use it.
    //! \return false for an index that is none and for a hot key that is not changeable.
    bool SetCombination(int index, HotKeyCombination const & combination);

    //! The hot key at an index, null when it is none. Valid until the table changes.
    HotKey const * Get(int index) const;
    //! Indices of all hot keys, rising.
    std::vector<int> GetIndices() const;
    //! Index of the first hot key with this combination, enabled or not; -1 for none.
    int Find(HotKeyCombination const & combination) const;
    //! Index of the first hot key of this name; -1 for none.
    int FindName(QString const & name) const;
    //! Index of the hot key that a key press means: the first enabled one with its combination. A sign that needs Shift
    //! on some keyboards ("+", "?") is also found without it.
    //!
    //! \param admits  whether a hot key may be heard at present; an empty function admits all.
    //! \return -1 for none.
    int Match(HotKeyCombination const & pressed, std::function<bool(HotKey const &)> const & admits) const;
    //! Index of the first other hot key with the same combination; -1 for none.
    int GetConflict(int index) const;

private:
    static bool IsAlive(HotKey const & hotKey) { return !hotKey.hasReceiver || hotKey.receiver; }

    int MatchExactly(HotKeyCombination const & pressed, std::function<bool(HotKey const &)> const & admits) const;
    void DropDead();

    std::map<int, HotKey> m_hotKeys;
    int m_next = 0;
};

#endif
