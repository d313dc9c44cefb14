// SPDX-License-Identifier: MIT
#ifndef ORIM_RESORTPOPUPMENU_H
#define ORIM_RESORTPOPUPMENU_H

#include "orimcontracts_export.h"

#include <QKeySequence>
#include <QMenu>
#include <QPoint>

#include <memory>
#include <vector>

class IUpdateMenu;

//! Menu with numbered items. An item is told to its own receiver and, by its number, to whoever listens to the menu.
class ORIMCONTRACTS_EXPORT ResortPopupMenu : public QMenu
{
    Q_OBJECT
public:
    //! \param name  object name, Latin-1; null for none.
    explicit ResortPopupMenu(QWidget * parent = nullptr, char const * name = nullptr);
    ~ResortPopupMenu() override;

    //! Adds an item. All forms return its action, which the menu owns.
    //! \param id     the item's number; -1 for none. Two items may bear one number.
    //! \param index  place among the entries, separators included, from 0; any other number puts it last.
    QAction * insertItem(QString const & text, int id = -1, int index = -1);
    //! Adds an item with a receiver.
    //! \param receiver  told when the item is chosen; null for none; it may end before the menu.
    //! \param slot      as SLOT() or SIGNAL() writes it, without arguments or with one int, which gets the item's
    //! number
    //!                  (-1 for none), never its checked state. Qt warns of a slot that the receiver does not have.
    //! \param key       shown beside the text; an empty one for none.
    QAction * insertItem(QString const & text, QObject const * receiver, char const * slot,
                         QKeySequence const & key = QKeySequence(), int id = -1, int index = -1);
    //! The same with a picture.
    QAction * insertItem(QIcon const & icon, QString const & text, QObject const * receiver, char const * slot,
                         QKeySequence const & key = QKeySequence(), int id = -1, int index = -1);

    //! Makes all items with a number checkable and sets their check mark. -1 and a number in no use change nothing.
    void setItemChecked(int id, bool checked);
    //! Enables or disables all items with a number. -1 and a number in no use change nothing.
    void setItemEnabled(int id, bool enabled);
    //! First item with a number; null for -1 and for a number in no use.
    QAction * FindItem(int id) const;
    //! Number of an item; -1 for null, for an item without a number and for an action that is no item of this menu.
    int GetItemId(QAction const * item) const;

    //! Registers a client whose UpdateMenu() is called each time before the menu is shown, in the order of
    //! registration. One that is registered already and null are ignored. The client is not owned; one that has ended
    //! is left out.
    void NotifyBeforeShow(IUpdateMenu * client);

    //! Shows the menu as popup() does, and is opening from the start.
    //! \param position  on the screen, px.
    void Open(QPoint const & position);

    //! Whether the menu is about to be shown: by Open(), or while its clients update it.
    bool IsOpening() const { return m_opening > 0; }

    //! Whether the menu is opening, or receivers are being told of a chosen item. Whoever hears of it deletes the menu
    //! by deleteLater(): Qt still works on it.
    bool IsTelling() const { return m_telling > 0 || IsOpening(); }

public Q_SLOTS:
    //! Hands a chosen item on: its receiver first, then signalActivated(). Null, foreign actions and the items of
    //! submenus are left alone. The receiver may delete the menu.
    virtual void slotSignalRouter(QAction * item);

Q_SIGNALS:
    //! An item was chosen.
    //! \param id  its number, -1 for none.
    void signalActivated(int id);

protected:
    void showEvent(QShowEvent * event) override;

private:
    std::vector<std::weak_ptr<IUpdateMenu *>> m_clients; // borrowed, may die first
    int m_telling = 0;                                   // chosen items, one inside the other
    int m_opening = 0;                                   // ways to show it, the same
};

#endif
