// SPDX-License-Identifier: MIT
#ifndef ORIM_MARKERTOOLS_H
#define ORIM_MARKERTOOLS_H

#include "guibase.h"
#include "markerlist.h"
#include "tree.h"
#include "valuenumeric.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QUndoStack>

#include <algorithm>

//! What the tests of markers share: a list without a scale, and the operator's mouse and keys.
namespace MarkerTools {

//! Moves the mouse with the left button held, or without a button.
inline void Move(QWidget & widget, QPoint at, bool pressed = true)
{
    QMouseEvent move(QEvent::MouseMove, at, widget.mapToGlobal(at), Qt::NoButton,
                     pressed ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &move);
}

inline void Button(QWidget & widget, QEvent::Type type, QPoint at, Qt::MouseButton button = Qt::LeftButton)
{
    bool const press = type == QEvent::MouseButtonPress;
    QMouseEvent event(type, at, widget.mapToGlobal(at), button, press ? button : Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

inline void Press(QWidget & widget, QPoint at) { Button(widget, QEvent::MouseButtonPress, at); }

inline void Release(QWidget & widget, QPoint at) { Button(widget, QEvent::MouseButtonRelease, at); }

//! Drags with the left button in two moves.
inline void Drag(QWidget & widget, QPoint from, QPoint to)
{
    Press(widget, from);
    Move(widget, (from + to) / 2);
    Move(widget, to);
    Release(widget, to);
}

inline int UndoCount() { return GuiBase::Instance().UndoStack()->count(); }

//! A list on which a pixel is a unit: 0 to 199 along x, 0 to 99 along y.
class PlainList : public MarkerList
{
public:
    static constexpr int Width = 200;
    static constexpr int Height = 100;

    PlainList() { resize(Width, Height); }

    double PixelToValue(int direction, int pixel) override
    {
        Q_UNUSED(direction)
        return pixel;
    }

    int ValueToPixel(int direction, double value) override
    {
        int const pixel = static_cast<int>(std::lround(value));
        return pixel >= 0 && pixel < (direction == eMarkerX ? Width : Height) ? pixel : -1;
    }

    void RepairDrawing() override {}

    void GetCurrentStartStop(int direction, double & start, double & stop) override
    {
        start = 0.0;
        stop = direction == eMarkerX ? Width - 1 : Height - 1;
    }

    //! Adds a marker that is bound to a new value "/test/<name>", and its line.
    Marker * Add(EMarkerID id, unsigned int special, QString const & name, double start)
    {
        auto * const value = new ValueNumeric<double>(name);
        value->SetValue(start, nullptr);
        Tree::Instance()->Insert(QStringLiteral("/test"), value);
        Marker * const marker = AddMarker(id, true, IColorBase::eColorMarker, true, special, name);
        SetMarker_ValuePath(id, QStringLiteral("/test/") + name);
        int const pixel = static_cast<int>(start);
        marker->SetRulerRect(special == eSpecialX ? QRect(pixel, 0, 1, Height) : QRect(0, pixel, Width, 1));
        return marker;
    }
};

inline ValueNumeric<double> * ValueOf(QString const & name)
{
    return Tree::Instance()->FindAs<ValueNumeric<double>>(QStringLiteral("/test/") + name);
}

} // namespace MarkerTools

#endif
