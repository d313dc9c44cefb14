// SPDX-License-Identifier: MIT
#include "resortmenuitem.h"

#include <QAction>
#include <QPointer>

ResortMenuItem::ResortMenuItem(QAction * action, int id) : QObject(action), m_id(id) {}

ResortMenuItem * ResortMenuItem::Of(QAction const * action)
{
    return action ? action->findChild<ResortMenuItem *>(QString(), Qt::FindDirectChildrenOnly) : nullptr;
}

void ResortMenuItem::Connect(QObject const * receiver, char const * slot)
{
    if (!receiver || !slot || *slot == '\0')
        return;
    bool const plain = QMetaObject::normalizedSignature(slot).endsWith("()");
    connect(this, plain ? SIGNAL(signalPlain()) : SIGNAL(signalNumbered(int)), receiver, slot);
}

void ResortMenuItem::Activate()
{
    QPointer<ResortMenuItem> const self(this);
    int const id = m_id;
    Q_EMIT signalPlain();
    if (self)
        Q_EMIT signalNumbered(id);
}
