// SPDX-License-Identifier: MIT
#include "windowframes.h"

#include "clientwindow.h"
#include "flaglayout.h"
#include "markerlist.h"
#include "windowhand.h"
#include "windowvalues.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace {

constexpr int LabelGap = 2; // px, as all below
constexpr int LabelSide = 4;
constexpr int LabelRows = 3;  // above each other, where windows stand close
constexpr int Tint = 34;      // of 255
constexpr int FocusTint = 64; // of 255

static_assert(ClientWindowVector::WindowCount == WindowValues::Count, "each window has its values");

IColorBase::ECOLOR ColorOf(bool focused) { return focused ? IColorBase::eColorReadOut : IColorBase::eColorFrame; }

} // namespace

WindowFrames::WindowFrames(MarkerList & list) : m_list(list), m_windows(&list, eMarkerX) {}

WindowFrames::~WindowFrames() = default;

bool WindowFrames::Bind()
{
    bool found = true;
    for (int i = 0; i < WindowValues::Count; ++i) {
        ClientWindow & window = *m_windows.GetWindow(i);
        auto const path = [i](WindowValues::Item item) { return WindowValues::PathOf(i, item); };
        auto const start = static_cast<unsigned int>(WindowHand::StartMarker(i));
        auto const stop = static_cast<unsigned int>(WindowHand::StopMarker(i));
        found = window.SetStart_ValuePath(path(WindowValues::eStart), start) && found;
        found = window.SetStop_ValuePath(path(WindowValues::eStop), stop) && found;
        found = window.SetVisible_ValuePath(path(WindowValues::eVisible)) && found;
        found = window.SetHasFocus_ValuePath(path(WindowValues::eFocus)) && found;
        found = window.SetText_ValuePath(path(WindowValues::eText)) && found;
    }
    return found;
}

void WindowFrames::Lay(QRect const & picture, QFontMetrics const & metrics)
{
    m_frames.clear();
    double first = 0.0;
    double last = 0.0;
    m_list.GetCurrentStartStop(eMarkerX, first, last);
    for (int i = 0; i < WindowValues::Count; ++i) {
        ClientWindow & window = *m_windows.GetWindow(i);
        if (!window.IsVisible())
            continue;
        FrequencyRange const range = WindowValues::RangeOf(i);
        window.RecalcBorders();
        int start = -1;
        int stop = -1;
        bool const inView = range.start <= last && range.start + range.span >= first;
        if (!inView || !window.IsValid(start, stop))
            continue;
        QRect const rect(start, picture.top(), stop - start + 1, picture.height());
        m_frames.push_back({ i, rect, QRect(), window.GetText(), window.GetFocus() });
    }
    PlaceLabels(picture, metrics);
}

int WindowFrames::LabelAt(QPoint at) const
{
    auto const found =
        std::find_if(m_frames.begin(), m_frames.end(), [at](Frame const & frame) { return frame.label.contains(at); });
    return found != m_frames.end() ? found->window : -1;
}

//! At the bottom, where the flags of markers do not reach.
void WindowFrames::PlaceLabels(QRect const & picture, QFontMetrics const & metrics)
{
    int const height = metrics.height();
    int const strip = LabelRows * (height + LabelGap);
    QRect const inside = picture.adjusted(LabelGap, LabelGap, -LabelGap, -LabelGap);
    QRect const room(inside.left(), inside.bottom() + 1 - strip, inside.width(), strip);
    std::vector<FlagLayout::Flag> flags;
    for (Frame const & frame : m_frames)
        flags.push_back({ frame.rect.left(), QSize(metrics.horizontalAdvance(frame.text) + 2 * LabelSide, height) });
    std::vector<QRect> const places = FlagLayout::LayOnUprights(flags, room, LabelGap);
    for (std::size_t i = 0; i < places.size(); ++i) {
        QRect place = places[i];
        if (!place.isNull())
            place.moveBottom(room.bottom() - (place.top() - room.top())); // the lowest row first
        m_frames[i].label = picture.contains(place) ? place : QRect();
    }
}

void WindowFrames::Paint(QPainter & painter, QRect const & picture)
{
    for (Frame const & frame : m_frames) {
        QColor tint = ColorSet::Instance()[ColorOf(frame.focused)];
        tint.setAlpha(frame.focused ? FocusTint : Tint);
        painter.fillRect(frame.rect, tint);
        m_windows.GetWindow(frame.window)
            ->DrawFrame(picture.top(), picture.bottom() + 1, ColorOf(frame.focused), &painter);
    }
}

void WindowFrames::PaintLabels(QPainter & painter, QColor const & ground, QColor const & text) const
{
    for (Frame const & frame : m_frames) {
        if (frame.label.isNull())
            continue;
        painter.fillRect(frame.label, frame.focused ? text : ground);
        painter.setPen(frame.focused ? ground : text);
        painter.setBrush(Qt::NoBrush);
        painter.drawText(frame.label, Qt::AlignCenter, frame.text);
    }
}
