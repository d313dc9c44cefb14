// SPDX-License-Identifier: MIT
#ifndef ORIM_SESSIONTOOLS_H
#define ORIM_SESSIONTOOLS_H

#include "consolevalues.h"
#include "consolewindow.h"
#include "frequencyaxis.h"
#include "spectrumpane.h"
#include "waterfallpane.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QMouseEvent>
#include <QtTest>

#include <array>

//! The operator's hand in the tests of a whole console.
namespace SessionTools {

//! Where the operator takes hold of a range.
enum Place
{
    eSpectrum,
    eWaterfall,
    eSpectrumScale,
    eWaterfallScale,
    eLevelScale,
    eShadingBar
};

inline RangePane & PaneOf(ConsoleWindow & window, Place place)
{
    bool const isSpectrum = place == eSpectrum || place == eSpectrumScale || place == eLevelScale;
    return isSpectrum ? static_cast<RangePane &>(window.Spectrum()) : static_cast<RangePane &>(window.Waterfall());
}

inline bool IsLevel(Place place) { return place == eLevelScale || place == eShadingBar; }

inline QWidget & WidgetOf(ConsoleWindow & window, Place place)
{
    RangePane & pane = PaneOf(window, place);
    if (place == eSpectrum || place == eWaterfall)
        return pane;
    return IsLevel(place) ? static_cast<QWidget &>(pane.GetLevelScale())
                          : static_cast<QWidget &>(pane.GetFrequencyAxis());
}

//! A point at a part of the range, 0 the start, 1 the stop.
inline QPoint At(ConsoleWindow & window, Place place, double part)
{
    QRect const picture = PaneOf(window, place).GetPictureRect(); // one device pixel a pixel
    if (IsLevel(place))
        return { WidgetOf(window, place).width() / 2,
                 picture.bottom() - static_cast<int>(part * (picture.height() - 1)) };
    int const x = picture.left() + static_cast<int>(part * (picture.width() - 1));
    bool const isScale = place == eSpectrumScale || place == eWaterfallScale;
    return { x, isScale ? WidgetOf(window, place).height() / 2 : picture.top() + picture.height() * 2 / 3 };
}

inline void Mouse(QWidget & widget, QEvent::Type type, QPoint at, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    bool const isMove = type == QEvent::MouseMove;
    bool const isRelease = type == QEvent::MouseButtonRelease;
    QMouseEvent event(type, at, widget.mapToGlobal(at), isMove ? Qt::NoButton : Qt::LeftButton,
                      isRelease ? Qt::NoButton : Qt::LeftButton, modifiers);
    QCoreApplication::sendEvent(&widget, &event);
}

inline void Drag(ConsoleWindow & window, Place place, double from, double to,
                 Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QWidget & widget = WidgetOf(window, place);
    Mouse(widget, QEvent::MouseButtonPress, At(window, place, from), modifiers);
    for (int step = 1; step <= 4; ++step)
        Mouse(widget, QEvent::MouseMove, At(window, place, from + (to - from) * step / 4.0), modifiers);
    Mouse(widget, QEvent::MouseButtonRelease, At(window, place, to), modifiers);
}

inline void DoubleClick(ConsoleWindow & window, Place place)
{
    QWidget & widget = WidgetOf(window, place);
    for (QEvent::Type const type : { QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick,
                                     QEvent::MouseButtonRelease })
        Mouse(widget, type, At(window, place, 0.4));
}

inline void RightClick(QWidget & widget, QPoint at)
{
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, widget.mapToGlobal(at));
    QCoreApplication::sendEvent(&widget, &event);
}

//! What is shown: of the frequencies, or of the levels.
inline std::array<double, 2> RangeOf(Place place)
{
    if (IsLevel(place))
        return { ConsoleValues::Get(ConsolePaths::LevelMin), ConsoleValues::Get(ConsolePaths::LevelMax) };
    return { ConsoleValues::Get(ConsolePaths::Start), ConsoleValues::Get(ConsolePaths::Stop) };
}

} // namespace SessionTools

#endif
