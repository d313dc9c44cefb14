// SPDX-License-Identifier: MIT
#ifndef ORIM_QTCOMPAT_H
#define ORIM_QTCOMPAT_H

// The one header that asks for the Qt version. All other code names what stands here.

#include <QKeySequence>
#include <QMouseEvent>
#include <QPoint>
#include <QPointF>
#include <QWheelEvent>
#include <QtGlobal>

#include <cstdlib>

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
#include <QEnterEvent>
using EnterEvent = QEnterEvent; //!< what enterEvent() receives

//! Position of a mouse event in the widget, px.
inline QPointF Position(QMouseEvent const * event) { return event->position(); }

//! Position of a mouse event on the screen, px.
inline QPointF GlobalPosition(QMouseEvent const * event) { return event->globalPosition(); }

//! First key of a sequence with its modifiers in one number; 0 for an empty sequence.
inline int CombinedKey(QKeySequence const & keys) { return keys.isEmpty() ? 0 : keys[0].toCombined(); }

//! In a class with Q_OBJECT: trUtf8(), the same as tr().
#define ORIM_TR_UTF8                                                                                                   \
    static QString trUtf8(char const * text, char const * comment = nullptr, int count = -1)                           \
    {                                                                                                                  \
        return tr(text, comment, count);                                                                               \
    }
#else
#include <QEvent>
using EnterEvent = QEvent; //!< what enterEvent() receives

inline QPointF Position(QMouseEvent const * event) { return event->localPos(); }

inline QPointF GlobalPosition(QMouseEvent const * event) { return event->screenPos(); }

inline int CombinedKey(QKeySequence const & keys) { return keys.isEmpty() ? 0 : keys[0]; }

#define ORIM_TR_UTF8 // Q_OBJECT brings it along
#endif

//! Turn of a wheel in eighths of a degree: the part of the angle that is larger in magnitude.
inline int WheelDelta(QWheelEvent const * event)
{
    QPoint const angle = event->angleDelta();
    return std::abs(angle.x()) > std::abs(angle.y()) ? angle.x() : angle.y();
}

#endif
