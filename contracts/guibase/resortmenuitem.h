// SPDX-License-Identifier: MIT
#ifndef ORIM_RESORTMENUITEM_H
#define ORIM_RESORTMENUITEM_H

#include <QObject>

class QAction;

//! The number and the receiver of one item of a ResortPopupMenu. It lives as a child of the item's action, so that it
//! ends with it.
class ResortMenuItem : public QObject
{
    Q_OBJECT
public:
    ResortMenuItem(QAction * action, int id);

    //! The part that belongs to an action; null for null and for an action of foreign make.
    static ResortMenuItem * Of(QAction const * action);

    int GetId() const { return m_id; }

    //! Connects a slot or signal as SLOT() and SIGNAL() write it. One that takes arguments gets the number, any other
    //! nothing. Without a receiver or a slot nothing happens; Qt itself warns of a slot that the receiver does not
    //! have.
    void Connect(QObject const * receiver, char const * slot);
    //! Tells the receiver. It may delete this item.
    void Activate();

Q_SIGNALS:
    void signalPlain();
    void signalNumbered(int id);

private:
    int m_id;
};

#endif
