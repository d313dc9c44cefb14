// SPDX-License-Identifier: MIT
#include "resortpopupmenu.h"

#include "iupdatemenu.h"
#include "resortmenuitem.h"

#include <QAction>
#include <QPointer>

#include <algorithm>

ResortPopupMenu::ResortPopupMenu(QWidget * parent, char const * name) : QMenu(parent)
{
    setObjectName(QString::fromLatin1(name));
    connect(this, &QMenu::triggered, this, &ResortPopupMenu::slotSignalRouter);
}

ResortPopupMenu::~ResortPopupMenu() = default;

QAction * ResortPopupMenu::insertItem(QString const & text, int id, int index)
{
    return insertItem(QIcon(), text, nullptr, nullptr, QKeySequence(), id, index);
}

QAction * ResortPopupMenu::insertItem(QString const & text, QObject const * receiver, char const * slot,
                                      QKeySequence const & key, int id, int index)
{
    return insertItem(QIcon(), text, receiver, slot, key, id, index);
}

QAction * ResortPopupMenu::insertItem(QIcon const & icon, QString const & text, QObject const * receiver,
                                      char const * slot, QKeySequence const & key, int id, int index)
{
    auto * const action = new QAction(icon, text, this);
    action->setShortcut(key);
    auto * const item = new ResortMenuItem(action, id);
    item->Connect(receiver, slot);
    QList<QAction *> const present = actions();
    bool const inside = index >= 0 && index < present.size();
    insertAction(inside ? present.at(index) : nullptr, action);
    return action;
}

void ResortPopupMenu::setItemChecked(int id, bool checked)
{
    if (id == -1)
        return;
    for (QAction * const action : actions()) {
        if (GetItemId(action) != id)
            continue;
        action->setCheckable(true);
        action->setChecked(checked);
    }
}

void ResortPopupMenu::setItemEnabled(int id, bool enabled)
{
    if (id == -1)
        return;
    for (QAction * const action : actions())
        if (GetItemId(action) == id)
            action->setEnabled(enabled);
}

QAction * ResortPopupMenu::FindItem(int id) const
{
    if (id == -1)
        return nullptr;
    QList<QAction *> const present = actions();
    auto const found =
        std::find_if(present.begin(), present.end(), [this, id](QAction * item) { return GetItemId(item) == id; });
    return found == present.end() ? nullptr : *found;
}

int ResortPopupMenu::GetItemId(QAction const * item) const
{
    ResortMenuItem const * const part = item && item->parent() == this ? ResortMenuItem::Of(item) : nullptr;
    return part ? part->GetId() : -1;
}

void ResortPopupMenu::NotifyBeforeShow(IUpdateMenu * client)
{
    if (!client)
        return;
    auto const ended = [](std::weak_ptr<IUpdateMenu *> const & entry) { return entry.expired(); };
    auto const same = [client](std::weak_ptr<IUpdateMenu *> const & entry) { return entry.lock() == client->m_pLife; };
    if (std::any_of(m_clients.begin(), m_clients.end(), same))
        return;
    m_clients.erase(std::remove_if(m_clients.begin(), m_clients.end(), ended), m_clients.end());
    m_clients.emplace_back(client->m_pLife);
}

void ResortPopupMenu::slotSignalRouter(QAction * item)
{
    ResortMenuItem * const part = item && item->parent() == this ? ResortMenuItem::Of(item) : nullptr;
    if (!part)
        return;
    int const id = part->GetId();
    QPointer<ResortPopupMenu> const self(this);
    ++m_telling;
    part->Activate();
    if (self)
        Q_EMIT signalActivated(id);
    if (self)
        --m_telling;
}

void ResortPopupMenu::Open(QPoint const & position)
{
    QPointer<ResortPopupMenu> const self(this);
    ++m_opening;
    popup(position);
    if (self)
        --m_opening;
}

void ResortPopupMenu::showEvent(QShowEvent * event)
{
    QPointer<ResortPopupMenu> const self(this);
    ++m_opening;
    auto const clients = m_clients; // a client may register another one
    for (auto const & entry : clients) {
        if (entry.expired())
            continue;
        IUpdateMenu * const client = *entry.lock(); // holds nothing alive while the client runs
        client->UpdateMenu(this);
        if (!self)
            return;
    }
    --m_opening;
    QMenu::showEvent(event);
}
