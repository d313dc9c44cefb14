// SPDX-License-Identifier: MIT
#include "controleventfilter.h"

#include "control.h"
#include "resortpopupmenu.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QPointer>

ControlEventFilter::ControlEventFilter(QObject * parent) : QObject(parent) {}

void ControlEventFilter::SetControl(Control const & control) { m_pControl = control.m_pLife; }

Control * ControlEventFilter::GetControl() const
{
    auto const control = m_pControl.lock();
    return control ? *control : nullptr;
}

bool ControlEventFilter::eventFilter(QObject * object, QEvent * event)
{
    if (!object || !event)
        return false;
    QPointer<ControlEventFilter> const self(this);
    QPointer<QObject> const receiver(object);
    if (event->type() == QEvent::MouseButtonDblClick && object->inherits("DrawPane"))
        Q_EMIT signalDblClick(event);
    if (!self || !receiver)
        return true; // nobody is left to go on with the event

    // each of these calls may end the control, the widget and this
    Control * const control = GetControl();
    bool const enabled = control && control->GetContextMenuEnabled();
    bool const wanted = enabled && self && event->type() == QEvent::ContextMenu && GetControl();
    bool const hasMenu = wanted && control->GetContextMenu();
    bool const opened = hasMenu && self && receiver && OpenMenu(*static_cast<QContextMenuEvent *>(event));
    if (opened || !self || !receiver)
        return true;
    return QObject::eventFilter(object, event);
}

//! The menu is asked for once more: a control that rebuilds it shows the second one. Another menu of the widget that is
//! still open closes.
bool ControlEventFilter::OpenMenu(QContextMenuEvent const & event)
{
    Control * const control = GetControl();
    if (!control)
        return false;
    control->SetCurrentXYMenu(event.pos());
    QPointer<ResortPopupMenu> const menu(control->GetContextMenu());
    if (!menu)
        return false;
    auto * const open = qobject_cast<ResortPopupMenu *>(QApplication::activePopupWidget());
    if (open && open != menu && open->parent() == menu->parent())
        open->close();
    if (menu)
        menu->Open(event.globalPos());
    return true;
}
