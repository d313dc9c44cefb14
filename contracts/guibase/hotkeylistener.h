// SPDX-License-Identifier: MIT
#ifndef ORIM_HOTKEYLISTENER_H
#define ORIM_HOTKEYLISTENER_H

#include "orimcontracts_export.h"

#include <QObject>

class HotKeyTable;
class QKeyEvent;
struct HotKey;

//! Hears the hot keys of a table as the event filter of the application.
//!
//! A key press is heard once, however many widgets it visits. A key that is held down fires once: its repetitions are
//! swallowed. A hot key stays silent while the widget with the focus wants the key as input (a letter in a line edit),
//! and comes before an action or a shortcut with the same key. While a modal dialog or a menu is open, only those hot
//! keys are heard that are registered to pass it, and those whose receiver is the dialog or lies inside it.
class ORIMCONTRACTS_EXPORT HotKeyListener : public QObject
{
    Q_OBJECT
public:
    //! \param table  must outlive the listener.
    explicit HotKeyListener(HotKeyTable const & table, QObject * parent = nullptr);

    bool eventFilter(QObject * object, QEvent * event) override;

Q_SIGNALS:
    //! A hot key was pressed. Its receiver has been told before: by its slot `slotHotKey(int)`, if it has one.
    void signalHotKey(int index);
    //! Escape was pressed without a modifier, whether or not it is a hot key too. Nobody holds it back from the
    //! widgets, unless a slot destroys the one that it is on its way to.
    void signalEscape();

private:
    bool Claim(QObject * object, QKeyEvent * event);
    bool Hear(QObject * object, QKeyEvent * event);
    void Fire(int index);
    int Match(QKeyEvent const * event) const;
    bool IsWantedAsInput(QObject * object, QKeyEvent const * event);

    HotKeyTable const & m_table;
    QKeyEvent const * m_pHeard = nullptr; // the press that is on its way through the widgets; compared, never read
    bool m_probing = false;
};

#endif
