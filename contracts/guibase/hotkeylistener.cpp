// SPDX-License-Identifier: MIT
#include "hotkeylistener.h"

#include "hotkeytable.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QScopedValueRollback>
#include <QWidget>

namespace {

//! The dialog or menu that holds keys back from the rest of the screen, null for none.
QWidget * HolderOfKeys()
{
    QWidget * const popup = QApplication::activePopupWidget();
    return popup ? popup : QApplication::activeModalWidget();
}

bool IsHeldBack() { return QApplication::activePopupWidget() || QGuiApplication::modalWindow(); }

bool IsInside(QObject const * object, QObject const * outer)
{
    while (object && object != outer)
        object = object->parent();
    return object != nullptr;
}

HotKeyCombination Pressed(QKeyEvent const * event)
{
    return HotKeyCombination::From(event->key(), static_cast<int>(event->modifiers()));
}

} // namespace

HotKeyListener::HotKeyListener(HotKeyTable const & table, QObject * parent) : QObject(parent), m_table(table) {}

bool HotKeyListener::eventFilter(QObject * object, QEvent * event)
{
    if (m_probing || !(object->isWidgetType() || object->isWindowType()))
        return false;
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        m_pHeard = nullptr;
        return Claim(object, static_cast<QKeyEvent *>(event));
    case QEvent::KeyPress:
        return Hear(object, static_cast<QKeyEvent *>(event));
    case QEvent::KeyRelease:
        m_pHeard = nullptr;
        return false;
    default:
        return false;
    }
}

bool HotKeyListener::Claim(QObject * object, QKeyEvent * event)
{
    if (Match(event) < 0 || IsWantedAsInput(object, event))
        return false;
    event->accept(); // no shortcut takes it: the key press follows
    return true;
}

bool HotKeyListener::Hear(QObject * object, QKeyEvent * event)
{
    if (event == m_pHeard)
        return false;
    m_pHeard = event;
    int const index = Match(event);
    bool const isEscape = event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier && !IsHeldBack();
    if ((index < 0 && !isEscape) || IsWantedAsInput(object, event))
        return false;
    QPointer<QObject> const guard(object);
    if (!event->isAutoRepeat()) {
        if (isEscape)
            Q_EMIT signalEscape();
        Fire(index);
    }
    if (index < 0 && guard) {
        m_pHeard = event; // its way goes on; a slot may have let other keys in between
        return false;
    }
    m_pHeard = nullptr; // it goes no further
    event->accept();
    return true;
}

void HotKeyListener::Fire(int index)
{
    HotKey const * const hotKey = m_table.Get(index);
    if (!hotKey || !hotKey->enabled)
        return;
    QObject * const receiver = hotKey->receiver.data();
    if (receiver && receiver->metaObject()->indexOfMethod("slotHotKey(int)") >= 0)
        QMetaObject::invokeMethod(receiver, "slotHotKey", Qt::DirectConnection, Q_ARG(int, index));
    Q_EMIT signalHotKey(index);
}

int HotKeyListener::Match(QKeyEvent const * event) const
{
    QWidget const * const holder = HolderOfKeys();
    bool const isHeldBack = IsHeldBack();
    return m_table.Match(Pressed(event), [holder, isHeldBack](HotKey const & hotKey) {
        return !isHeldBack || hotKey.throughModal || (holder && IsInside(hotKey.receiver.data(), holder));
    });
}

bool HotKeyListener::IsWantedAsInput(QObject * object, QKeyEvent const * event)
{
    QWidget * const target = object->isWidgetType() ? static_cast<QWidget *>(object) : QApplication::focusWidget();
    if (!target)
        return false;
    QScopedValueRollback<bool> const probing(m_probing, true);
    QKeyEvent question(QEvent::ShortcutOverride, event->key(), event->modifiers(), event->text(),
                       event->isAutoRepeat());
    question.ignore();
    QCoreApplication::sendEvent(target, &question);
    return question.isAccepted();
}
