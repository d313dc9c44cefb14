// SPDX-License-Identifier: MIT
#include "iwheelconsumer.h"
#include "qtcompat.h"
#include "vccaption.h"

#include <QFocusEvent>

bool VCCaption::event(QEvent * event)
{
    switch (event->type()) {
    case QEvent::FocusIn: // QWidget would go on with a bar that is deleted meanwhile
        focusInEvent(static_cast<QFocusEvent *>(event));
        return true;
    case QEvent::FocusOut:
        focusOutEvent(static_cast<QFocusEvent *>(event));
        return true;
    case QEvent::LayoutRequest:
        if (!IsPictureCurrent())
            update(); // a button that comes or goes moves the texts
        break;
    case QEvent::Hide:
        m_MoveState = 0; // the release goes elsewhere
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

// Focus

void VCCaption::SetFocusState(bool on)
{
    m_HasFocus = on;
    ShowChange();
    Q_EMIT FocusSet(on);
}

void VCCaption::focusInEvent(QFocusEvent * /*event*/) { SetFocusState(true); }

void VCCaption::focusOutEvent(QFocusEvent * /*event*/) { SetFocusState(false); }

// Mouse

bool VCCaption::DragsParent() const { return MainStyle() == StyleKeepOnTop && parentWidget(); }

void VCCaption::mousePressEvent(QMouseEvent * event)
{
    if (!DragsParent()) {
        QWidget::mousePressEvent(event);
        return;
    }
    m_MoveState = 1;
    m_MovePos = GlobalPosition(event).toPoint();
}

void VCCaption::mouseMoveEvent(QMouseEvent * event)
{
    if (m_MoveState != 1 || !DragsParent()) {
        QWidget::mouseMoveEvent(event);
        return;
    }
    QPoint const position = GlobalPosition(event).toPoint();
    QPoint const way = position - m_MovePos;
    m_MovePos = position;
    parentWidget()->move(parentWidget()->pos() + way); // may end this
}

void VCCaption::mouseReleaseEvent(QMouseEvent * event)
{
    m_MoveState = 0;
    if (!DragsParent())
        QWidget::mouseReleaseEvent(event);
}

void VCCaption::mouseDoubleClickEvent(QMouseEvent * /*event*/) { Q_EMIT CaptionDoubleClick(); }

void VCCaption::SetWheelConsumer(IWheelConsumer * consumer)
{
    m_pWheelConsumer = consumer;
    m_WheelConsumerLife = consumer ? LifeWatch(consumer->GetConsumerLifetime()) : LifeWatch();
}

void VCCaption::wheelEvent(QWheelEvent * event)
{
    if (m_WheelConsumerLife.IsOver()) {
        QWidget::wheelEvent(event);
        return;
    }
    event->accept();
    if (WheelDelta(event) < 0)
        m_pWheelConsumer->WheelDown();
    else
        m_pWheelConsumer->WheelUp();
}
