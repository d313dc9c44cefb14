// SPDX-License-Identifier: MIT
#include "clientwindow.h"

#include "markerlist.h"
#include "replayonbinding.h"
#include "samevalue.h"
#include "tree.h"
#include "valuenumeric.h"

#include <QPainter>
#include <QPalette>
#include <qdrawutil.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

ValueBase * BaseOf(IValueNumeric * value) { return value->GetValueBase(); }

ValueBase * BaseOf(ValueBase * value) { return value; }

//! An id of a marker; -1 for one that no list has.
int MarkerId(unsigned int id) { return id <= eMouseMove ? static_cast<int>(id) : -1; }

//! Two edges in rising order, px.
struct Stretch
{
    Stretch(int a, int b) : first(std::min(a, b)), length(std::max(a, b) - first) {}

    int first;
    int length;
};

//! An edge of a frame: not further out than any widget reaches, so that lengths do not overflow.
int Edge(int pixel) { return std::clamp(pixel, -QWIDGETSIZE_MAX, QWIDGETSIZE_MAX); }

} // namespace

ClientWindow::ClientWindow(MarkerList * parent, EMarkerXYType direction) : m_direction(direction) { SetParent(parent); }

ClientWindow::~ClientWindow() = default; // the base unbinds

void ClientWindow::SetParent(MarkerList * parent)
{
    m_pParent = parent;
    m_parentLife = parent ? LifeWatch(parent->GetObserverLifetime()) : LifeWatch();
}

// Binding

bool ClientWindow::Holds(Observable const * subject) const
{
    return subject && (subject == m_pStart || subject == m_pStop || subject == m_pVisible || subject == m_pHasFocus ||
                       subject == m_pText);
}

template <class T>
void ClientWindow::LetGo(T *& field)
{
    T * const value = field;
    field = nullptr;
    if (value && !Holds(value)) // another field may hold it
        value->DeleteObserver(this);
}

template <class T>
bool ClientWindow::Bind(T *& field, QString const & path)
{
    LetGo(field);
    Tree const * const tree = Tree::Instance();
    T * const value = tree ? tree->FindAs<T>(path) : nullptr;
    if (!value || !(value->AddObserver(this) || value->HasObserver(this)))
        return false;
    field = value;
    LifeWatch const life(GetObserverLifetime());
    ReplayOnBinding(BaseOf(value), this);
    return !life.IsOver() && field;
}

bool ClientWindow::BindBorder(bool isStart, QString const & path, unsigned int id)
{
    IValueNumeric *& value = isStart ? m_pStart : m_pStop;
    int & own = isStart ? m_startId : m_stopId;
    int & other = isStart ? m_stopId : m_startId;
    (isStart ? m_startPixel : m_stopPixel) = -1; // until the value tells
    LifeWatch const life(GetObserverLifetime());
    Bind(value, path);
    if (life.IsOver())
        return false;
    int const earlier = std::exchange(own, MarkerId(id));
    if (own == other && own != -1) { // the borders had been switched
        other = earlier;
        if (GetParent())
            GetParent()->SetMarkerColor(other, ColorOf(!isStart));
    }
    if (!life.IsOver())
        AddBorder(own, isStart, path);
    return !life.IsOver() && value;
}

bool ClientWindow::SetStart_ValuePath(QString const & path, unsigned int id) { return BindBorder(true, path, id); }

bool ClientWindow::SetStop_ValuePath(QString const & path, unsigned int id) { return BindBorder(false, path, id); }

bool ClientWindow::SetVisible_ValuePath(QString const & path) { return Bind(m_pVisible, path); }

bool ClientWindow::SetHasFocus_ValuePath(QString const & path) { return Bind(m_pHasFocus, path); }

bool ClientWindow::SetText_ValuePath(QString const & path) { return Bind(m_pText, path); }

IColorBase::ECOLOR ClientWindow::ColorOf(bool isStart) const
{
    return isStart == (m_direction != eMarkerY) ? IColorBase::eColorClientFirst : IColorBase::eColorClientSecond;
}

void ClientWindow::AddBorder(int id, bool isStart, QString const & path)
{
    MarkerList * const parent = GetParent();
    if (!parent || !parent->AddMarker(id))
        return;
    LifeWatch const parentLife = m_parentLife;
    IColorBase::ECOLOR const color = ColorOf(isStart);
    unsigned int const along = m_direction == eMarkerY ? eSpecialY : eSpecialX;
    parent->SetShowMarker(id, true); // may end this
    if (!parentLife.IsOver())
        parent->SetMarkerMoveable(id, true);
    if (!parentLife.IsOver())
        parent->SetMarkerSpecial(id, eSpecialWindowBorder | along);
    if (!parentLife.IsOver())
        parent->SetMarkerColor(id, color);
    if (!parentLife.IsOver())
        parent->SetMarker_ValuePath(id, path);
}

// What the values say

void ClientWindow::Update(Observable * subject, TChangeCode code)
{
    if (!Holds(subject))
        return;
    if (code == eStateChanged)
        Forget(subject);
    else if (code == eValueChanged && GetParent())
        TakeValue(subject);
}

//! Lets go of a value that goes away, in every field that holds it. A border without a value has no pixel.
void ClientWindow::Forget(Observable * subject)
{
    auto const * const value = dynamic_cast<ValueBase const *>(subject);
    if (!value || value->GetState() != eStateGoingAway)
        return;
    if (subject == m_pStart) {
        m_pStart = nullptr;
        m_startPixel = -1;
    }
    if (subject == m_pStop) {
        m_pStop = nullptr;
        m_stopPixel = -1;
    }
    if (subject == m_pVisible)
        m_pVisible = nullptr;
    if (subject == m_pHasFocus)
        m_pHasFocus = nullptr;
    if (subject == m_pText) {
        m_text = m_pText->GetValue();
        m_pText = nullptr;
    }
    subject->DeleteObserver(this);
}

void ClientWindow::TakeValue(Observable const * subject)
{
    if (subject == m_pStart)
        m_startPixel = ValueToPixel(m_direction, m_pStart->GetNumericValue());
    if (subject == m_pStop)
        m_stopPixel = ValueToPixel(m_direction, m_pStop->GetNumericValue());
    if (subject == m_pHasFocus)
        m_focus = m_pHasFocus->GetValue();
    if (subject == m_pVisible)
        ShowMarkers(m_pVisible->GetValue()); // may end this
}

// Label and focus

void ClientWindow::SetText(QString const & text)
{
    m_text = text;
    if (m_pText)
        m_pText->SetValue(m_text, this); // may end this
}

QString ClientWindow::GetText() const { return m_pText ? m_pText->GetValue() : m_text; }

void ClientWindow::SetFocus(bool focus)
{
    m_focus = focus;
    if (m_pHasFocus)
        m_pHasFocus->SetValue(focus, this); // may end this
}

// State

bool ClientWindow::Connected() const { return m_pStart && m_pStop && m_pVisible; }

bool ClientWindow::IsVisible() const { return m_pVisible && m_pVisible->GetValue(); }

bool ClientWindow::IsValid(int & a, int & b) const
{
    a = m_startPixel;
    b = m_stopPixel;
    return Connected() && a != -1 && b != -1 && IsVisible();
}

bool ClientWindow::HasPoint(int pixel) const
{
    int start = -1;
    int stop = -1;
    return IsValid(start, stop) && start <= pixel && pixel <= stop;
}

// Moving and drawing

void ClientWindow::ShowMarkers(bool show)
{
    LifeWatch const life(GetObserverLifetime());
    for (int const id : { m_startId, m_stopId })
        if (!life.IsOver() && GetParent())
            GetParent()->SetShowMarker(id, show);
}

void ClientWindow::Show(bool show)
{
    LifeWatch const life(GetObserverLifetime());
    if (m_pVisible)
        m_pVisible->SetValue(show, this);
    if (!life.IsOver())
        ShowMarkers(m_pVisible ? m_pVisible->GetValue() : show);
}

//! Whether start would be above stop, were one of them written.
bool ClientWindow::WouldCross(bool isStop, double value) const
{
    IValueNumeric const * const other = isStop ? m_pStart : m_pStop;
    return other && (isStop ? other->GetNumericValue() > value : value > other->GetNumericValue());
}

//! Writes the border first that keeps start at or below stop. The second write is left out when it would put start
//! above stop: who heard of the first has set them anew.
void ClientWindow::WriteBorders(double a, double b)
{
    if (!m_pStart || !m_pStop || std::isnan(a) || std::isnan(b))
        return;
    double const low = m_pStart->Snap(std::min(a, b));
    double const high = m_pStop->Snap(std::max(a, b));
    if (low > high)
        return;
    LifeWatch const life(GetObserverLifetime());
    bool const stopFirst = low > m_pStop->GetNumericValue();
    for (bool const isStop : { stopFirst, !stopFirst }) {
        IValueNumeric * const border = life.IsOver() ? nullptr : isStop ? m_pStop : m_pStart;
        double const value = isStop ? high : low;
        if (border && isStop != stopFirst && WouldCross(isStop, value))
            return;
        if (border && !sameValue(border->GetNumericValue(), value))
            border->SetNumericValue(value, this);
    }
}

void ClientWindow::SetStartStop(double a, double b, bool show)
{
    LifeWatch const life(GetObserverLifetime());
    WriteBorders(a, b);
    if (life.IsOver())
        return;
    if (m_pStart)
        m_startPixel = ValueToPixel(m_direction, m_pStart->GetNumericValue());
    if (m_pStop)
        m_stopPixel = ValueToPixel(m_direction, m_pStop->GetNumericValue());
    if (m_pVisible)
        m_pVisible->SetValue(show, this);
    if (!life.IsOver())
        ShowMarkers(m_pVisible ? m_pVisible->GetValue() : show);
}

void ClientWindow::RecalcBorders()
{
    MarkerList * const parent = GetParent();
    if (!parent || !m_pStart || !m_pStop)
        return;
    double first = 0.0;
    double last = 0.0;
    parent->GetCurrentStartStop(m_direction, first, last);
    auto const range = std::minmax({ first, last });
    auto const borders = std::minmax({ m_pStart->GetNumericValue(), m_pStop->GetNumericValue() });
    auto const clipped = [range](double value) { return std::max(range.first, std::min(value, range.second)); };
    m_startPixel = ValueToPixel(m_direction, clipped(borders.first));
    m_stopPixel = ValueToPixel(m_direction, clipped(borders.second));
}

void ClientWindow::MovePixelOffset(int offset)
{
    MarkerList * const parent = GetParent();
    if (!parent || m_startPixel == -1 || m_stopPixel == -1)
        return;
    long long const edge = m_direction == eMarkerY ? parent->height() : parent->width();
    auto const moved = [=](int pixel) {
        long long const wanted = static_cast<long long>(pixel) + offset;
        return parent->PixelToValue(m_direction, static_cast<int>(std::clamp(wanted, 0LL, edge)));
    };
    LifeWatch const life(GetObserverLifetime());
    double const start = moved(m_startPixel);
    double const stop = moved(m_stopPixel);
    if (std::isfinite(start) && std::isfinite(stop)) // an axis of one pixel tells no values
        WriteBorders(start, stop);
    if (!life.IsOver())
        RecalcBorders();
}

void ClientWindow::DrawFrame(int a, int b, IColorBase::ECOLOR color, QPainter * painter)
{
    RecalcBorders();
    if (!painter || !GetParent() || m_startPixel == -1 || m_stopPixel == -1)
        return;
    Stretch const along(Edge(m_startPixel), Edge(m_stopPixel));
    Stretch const across(Edge(a), Edge(b));
    QPalette const palette(ColorSet::Instance()[color]);
    if (m_direction == eMarkerX)
        qDrawShadeRect(painter, along.first, across.first, along.length, across.length, palette, false, 1, 0);
    else if (m_direction == eMarkerY)
        qDrawShadeRect(painter, across.first, along.first, across.length, along.length, palette, false, 1, 0);
}

void ClientWindow::SwitchBorders()
{
    std::swap(m_startId, m_stopId);
    LifeWatch const life(GetObserverLifetime());
    for (bool const isStart : { true, false })
        if (!life.IsOver() && GetParent())
            GetParent()->SetMarkerColor(isStart ? m_startId : m_stopId, ColorOf(isStart));
    if (!life.IsOver())
        RecalcBorders();
}

int ClientWindow::ValueToPixel(int direction, double value) const
{
    MarkerList * const parent = GetParent();
    return parent ? parent->ValueToPixel(direction, value) : -1;
}
