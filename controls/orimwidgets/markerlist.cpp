// SPDX-License-Identifier: MIT
#include "markerlist.h"

#include "guibase.h"
#include "markerpair.h"
#include "parkinglist.h"
#include "qtcompat.h"
#include "resultmarker.h"
#include "resultmarkerlist.h"

#include <QEvent>
#include <QTimerEvent>
#include <QWheelEvent>

#include <algorithm>

namespace {

constexpr int MarkerCount = eMouseMove + 1;
constexpr int WheelTime = 100; // ms

} // namespace

bool MarkerList::m_sMouseMovingMarker = false;

MarkerList::MarkerList(QWidget * parent, char const * name)
    : QWidget(parent)
    , Control(this, name)
    , m_pTopWindow(this)
    , m_markers(MarkerCount)
{
    setObjectName(QLatin1String(name));
    setAutoFillBackground(true);
    connect(&GuiBase::Instance(), &GuiBase::signalColorsChanged, this, &MarkerList::slotClearColors);
    for (QWidget * above = parentWidget(); above; above = above->parentWidget())
        m_pTopWindow = above;
    m_pTopWindow->installEventFilter(this);
}

MarkerList::~MarkerList()
{
    for (auto const & marker : m_markers)
        if (marker)
            marker->SetParent(nullptr); // what ends with this calls it no more
    for (int i = 0; i < MarkerCount; ++i)
        DeleteMarker(i);
    m_markerPairs.clear();
    m_pResultMarkerList.reset();
}

bool MarkerList::SetMarker_ValuePath(int index, QString const & path)
{
    Marker * const marker = GetMarker(index);
    return marker && marker->Set_ValuePath(path);
}

void MarkerList::ResetAllPixelValues(unsigned int mask)
{
    for (auto const & marker : m_markers)
        if (marker && marker->GetShowMarker() && (mask == 0 || (mask & marker->GetSpecial())))
            marker->InvalidatePixel();
}

void MarkerList::BuildMenu() {}

void MarkerList::SetLastMovingIndex(int index)
{
    Marker const * const marker = GetMarker(index);
    if (marker && marker->GetMoveable())
        m_lastMovingIndex = index;
}

void MarkerList::Repair() { RestartTimer(m_repairTimer, m_repairDelay); }

void MarkerList::updateWidget() { QWidget::update(); }

void MarkerList::slotSetState(QString path, EMarkerState m, bool value)
{
    if (!isVisible())
        return;
    int const index = GetIndex(path);
    for (int i = 0; m == eMarkerCurrent && i < MarkerCount; ++i)
        if (i != index && isIndexValidConnected(i))
            GetMarker(i)->m_current = false;
    Marker * const marker = GetMarker(index);
    if (!marker)
        return;
    switch (m) {
    case eMarkerShow:
        marker->SetShowMarker(value, true);
        break;
    case eMarkerMoving:
        marker->SetMoving(value, true);
        break;
    case eMarkerCurrent:
        marker->SetCurrentMarker(value, true);
        break;
    case eMarkerRepaint:
        updateWidget();
        break;
    }
}

void MarkerList::slotSetBackgroundColor(QColor & color) { m_backgroundColor = color; }

void MarkerList::slotClearColors()
{
    for (auto const & marker : m_markers)
        if (marker)
            marker->clearColors();
}

void MarkerList::OnMinimize(bool /*minimized*/) {}

void MarkerList::doResize(int /*width*/, int /*height*/) {}

void MarkerList::doResizeNow(int width, int height) { doResize(width, height); }

void MarkerList::BuildPixMap() {}

void MarkerList::Update(Observable * /*subject*/, TChangeCode /*code*/) {}

bool MarkerList::isIndexValid(int index) const { return GetMarker(index) != nullptr; }

bool MarkerList::isIndexValidConnected(int index) const
{
    Marker * const marker = GetMarker(index);
    return marker && marker->GetConnected();
}

Marker * MarkerList::GetMarker(int index) const
{
    return index >= 0 && index < MarkerCount ? m_markers[static_cast<std::size_t>(index)].get() : nullptr;
}

int MarkerList::GetIndex(Marker * marker) const
{
    for (int i = 0; marker && i < MarkerCount; ++i)
        if (GetMarker(i) == marker)
            return i;
    return -1;
}

int MarkerList::GetIndex(QString const & path) const
{
    for (int i = 0; i < MarkerCount; ++i)
        if (isIndexValidConnected(i) && GetMarker(i)->GetValuePath() == path)
            return i;
    return -1;
}

Marker * MarkerList::AddMarker(int id)
{
    if (id < 0 || id >= MarkerCount)
        return nullptr;
    auto & marker = m_markers[static_cast<std::size_t>(id)];
    if (marker)
        marker->ClearInternals();
    else
        marker = std::make_unique<Marker>();
    marker->m_pOwner = this;
    marker->SetParent(this);
    SetMustRecalcRulers(true);
    RebuildMarkerList();
    return marker.get();
}

Marker * MarkerList::AddMarker(int id, bool show, IColorBase::ECOLOR color, bool moveable, unsigned int special,
                               QString const & name)
{
    Marker * const marker = AddMarker(id);
    if (!marker)
        return nullptr;
    QPointer<MarkerList> const self(this);
    LifeWatch const life(marker->GetObserverLifetime());
    marker->SetShowMarker(show, false);
    if (!self || life.IsOver())
        return nullptr;
    marker->SetColor(color);
    marker->SetMoveable(moveable);
    marker->SetSpecial(special);
    marker->SetMarkerName(name);
    SetMustRecalcRulers(true);
    RebuildMarkerList();
    return marker;
}

void MarkerList::DeleteMarker(int id)
{
    if (isIndexValid(id))
        std::unique_ptr<Marker>().swap(m_markers[static_cast<std::size_t>(id)]);
}

void MarkerList::RemoveResultMarker(int id) { DeleteMarker(id); }

MarkerPair * MarkerList::AddMarkerPair(int x, int y)
{
    return m_markerPairs.emplace_back(std::make_unique<MarkerPair>(GetMarker(x), GetMarker(y))).get();
}

ResultMarker * MarkerList::AddResultMarker(int id, bool show, IColorBase::ECOLOR color, bool moveable,
                                           unsigned int special, QString const & name)
{
    if (id < 0 || id >= MarkerCount)
        return nullptr;
    if (isIndexValid(id))
        return dynamic_cast<ResultMarker *>(GetMarker(id));
    auto owned = std::make_unique<ResultMarker>();
    ResultMarker * const marker = owned.get();
    m_markers[static_cast<std::size_t>(id)] = std::move(owned);
    Marker & base = *marker;
    base.m_pOwner = this;
    base.m_valuePath = name;
    marker->SetParent(this);
    marker->SetMarkerName(name);
    QPointer<MarkerList> const self(this);
    LifeWatch const life(marker->GetObserverLifetime());
    marker->SetShowMarker(show, false);
    if (!self || life.IsOver())
        return nullptr;
    marker->SetColor(color);
    marker->SetMoveable(moveable);
    marker->SetSpecial(special);
    SetMustRecalcRulers(true);
    return marker;
}

ResultMarkerList * MarkerList::CreateResultMarkerList(int id, bool show, IColorBase::ECOLOR color, bool moveable,
                                                      unsigned int special, QString const & name)
{
    if (ResultMarkerList * const earlier = m_pResultMarkerList.release())
        ParkingList::Park([earlier] { delete earlier; });
    m_pResultMarkerList = std::make_unique<ResultMarkerList>(this, id, show, color, moveable, special, name);
    return m_pResultMarkerList.get();
}

//! A marker that others delete leaves its entry and the lists of shown markers.
void MarkerList::Forget(Marker const * marker)
{
    for (auto & entry : m_markers) {
        if (entry.get() != marker)
            continue;
        static_cast<void>(entry.release());
        RebuildMarkerList();
    }
}

void MarkerList::RebuildMarkerList()
{
    m_shownMarkers.clear();
    m_shownIndices.clear();
    for (int i = 0; i < MarkerCount; ++i) {
        Marker * const marker = GetMarker(i);
        if (!marker || !marker->GetShowMarker())
            continue;
        m_shownMarkers.push_back(marker);
        m_shownIndices.push_back(i);
    }
}

bool MarkerList::SetShowMarker(int index, bool show)
{
    Marker * const marker = GetMarker(index);
    return marker && marker->SetShowMarker(show, false);
}

bool MarkerList::GetShowMarker(int index) const
{
    Marker const * const marker = GetMarker(index);
    return marker && marker->GetShowMarker();
}

bool MarkerList::GetShowMarkerFlag(int index) const
{
    Marker const * const marker = GetMarker(index);
    return marker && marker->GetShowMarkerFlag();
}

void MarkerList::SetShowResultFlag(int index, bool show)
{
    Marker * const marker = GetMarker(index);
    if (!marker)
        return;
    marker->SetShowResult(show);
    Repair();
}

bool MarkerList::GetShowResultFlag(int index) const
{
    Marker const * const marker = GetMarker(index);
    return marker && marker->GetShowResultFlag();
}

bool MarkerList::SetEnableMarker(int index, bool enable)
{
    Marker * const marker = GetMarker(index);
    if (!marker)
        return false;
    QPointer<MarkerList> const self(this);
    marker->setEnabled(enable);
    if (self)
        RepairDrawing();
    return enable;
}

bool MarkerList::SetMarkerValue(int index, double value)
{
    Marker * const marker = GetMarker(index);
    if (marker)
        marker->SetValue(value);
    return marker;
}

bool MarkerList::SetMarkerMovingValue(int index, double value)
{
    Marker * const marker = GetMarker(index);
    if (marker)
        marker->SetMovingValue(value);
    return marker;
}

bool MarkerList::SetUseMovingMarker(int index, bool on)
{
    Marker * const marker = GetMarker(index);
    if (marker)
        marker->UseMovingValue(on);
    return marker;
}

double MarkerList::GetMarkerValue(int index) const
{
    Marker * const marker = GetMarker(index);
    return marker ? marker->GetValue() : 0.0;
}

int MarkerList::GetLastPixelValue(int index) const
{
    Marker const * const marker = GetMarker(index);
    return marker ? marker->GetPixel() : 0;
}

bool MarkerList::SetMarkerOffset_ValuePath(int index, QString const & path)
{
    Marker * const marker = GetMarker(index);
    return marker && marker->SetOffset_ValuePath(path);
}

bool MarkerList::SetMarkerColor(int index, IColorBase::ECOLOR color)
{
    Marker * const marker = GetMarker(index);
    if (!marker)
        return false;
    marker->SetColor(color);
    updateWidget();
    return true;
}

bool MarkerList::SetMarkerOffset(int index, double offset)
{
    Marker * const marker = GetMarker(index);
    if (marker)
        marker->SetOffset(offset);
    return marker;
}

bool MarkerList::SetMarkerMoveable(int index, bool moveable)
{
    Marker * const marker = GetMarker(index);
    if (marker)
        marker->SetMoveable(moveable);
    return marker;
}

bool MarkerList::SetMarkerMoving(int index, bool moving)
{
    Marker * const marker = GetMarker(index);
    if (marker)
        marker->SetMoving(moving, false);
    return marker;
}

bool MarkerList::SetMarkerShowOffset(int index, bool show, int pixels)
{
    Marker * const marker = GetMarker(index);
    if (!marker)
        return false;
    marker->SetShowOffset(show, pixels);
    Repair();
    return true;
}

bool MarkerList::SetMarkerFormat(int index, int width, int precision)
{
    Marker * const marker = GetMarker(index);
    if (marker)
        marker->SetFormat(width, precision);
    return marker;
}

bool MarkerList::SetMarkerSpecial(int index, unsigned int special)
{
    Marker * const marker = GetMarker(index);
    if (marker)
        marker->SetSpecial(special);
    return marker;
}

unsigned int MarkerList::GetMarkerSpecial(int index) const
{
    Marker const * const marker = GetMarker(index);
    return marker ? marker->GetSpecial() : 0;
}

bool MarkerList::SetFillBelow(int index, bool fill)
{
    Marker * const marker = GetMarker(index);
    if (marker)
        marker->SetFillBelow(fill);
    return marker;
}

bool MarkerList::GetFillBelow(int index) const
{
    Marker const * const marker = GetMarker(index);
    return marker && marker->GetFillBelow();
}

int MarkerList::GetMarkerWrapAround(int index) const
{
    Marker const * const marker = GetMarker(index);
    return marker ? marker->GetWrapAround() : 0;
}

bool MarkerList::SetMarkerName(int index, QString const & name)
{
    Marker * const marker = GetMarker(index);
    if (marker)
        marker->SetMarkerName(name);
    return marker;
}

bool MarkerList::SetGapMarkerId(int index, int id)
{
    Marker * const marker = GetMarker(index);
    if (marker)
        marker->SetGapId(id);
    return marker;
}

int MarkerList::GetGapMarkerId(int index) const
{
    Marker const * const marker = GetMarker(index);
    return marker ? marker->GetGapId() : -1;
}

Marker * MarkerList::GetGapMarker(int index) const { return GetMarker(GetGapMarkerId(index)); }

QString MarkerList::GetValueTreePath(int index) const
{
    Marker const * const marker = GetMarker(index);
    return marker ? marker->GetValuePath() : QString();
}

bool MarkerList::SetCurrentMarker(int index, bool current)
{
    QPointer<MarkerList> const self(this);
    for (int i = 0; current && i < MarkerCount; ++i) {
        Marker * const marker = GetMarker(i);
        if (!marker || !marker->GetParent())
            continue;
        LifeWatch const life(marker->GetObserverLifetime());
        marker->GetParent()->sendSignalSetState(marker->GetValuePath(), eMarkerCurrent, false);
        if (!self)
            return false;
        if (!life.IsOver())
            marker->m_current = false;
    }
    return isIndexValidConnected(index) && GetMarker(index)->SetCurrentMarker(current, false);
}

int MarkerList::GetCurrentMarker() const
{
    for (int i = 0; i < MarkerCount; ++i)
        if (isIndexValid(i) && GetMarker(i)->GetCurrentMarker())
            return i;
    return -1;
}

bool MarkerList::SetMarkerEndMoving(int index)
{
    if (index != -1) {
        Marker * const marker = GetMarker(index);
        if (marker)
            marker->EndMoving();
        return marker;
    }
    GuiUndoRecordingHelper const recording(this, QString());
    QPointer<MarkerList> const self(this);
    for (int i = 0; self && i < MarkerCount; ++i)
        if (isIndexValid(i) && GetMarker(i)->Changing())
            GetMarker(i)->EndMoving();
    return true;
}

bool MarkerList::MoveMarker2NextPixel(int index, bool forward)
{
    Marker * const marker = GetMarker(index);
    return marker && marker->Move2NextPixel(forward);
}

void MarkerList::SetMouseMovingMarker(bool moving) { m_sMouseMovingMarker = moving; }

bool MarkerList::SetMarkerWrapAround(int period)
{
    QPointer<MarkerList> const self(this);
    for (int i = 0; self && i < MarkerCount; ++i)
        if (isIndexValid(i))
            GetMarker(i)->SetWrapAround(period);
    return true;
}

bool MarkerList::SetMarkerWrapIntoRange(int start, int stop)
{
    QPointer<MarkerList> const self(this);
    for (int i = 0; self && i < MarkerCount; ++i)
        if (isIndexValid(i))
            GetMarker(i)->SetWrapIntoRange(start, stop);
    return true;
}

bool MarkerList::SetOffset_ValuePath(QString const & path)
{
    QPointer<MarkerList> const self(this);
    for (int i = 0; self && i < MarkerCount; ++i)
        if (GetMarkerSpecial(i) & eSpecialY)
            GetMarker(i)->SetOffset_ValuePath(path);
    return true;
}

void MarkerList::TraceIndexAndName()
{
    for (auto const & marker : m_markers)
        if (marker)
            marker->TraceIndexAndName();
}

void MarkerList::ShowAllResultPanels(bool show)
{
    for (auto const & marker : m_markers)
        if (marker && (marker->GetSpecial() & eSpecialResult))
            marker->SetShowResult(show);
    m_showAllPanels = show;
}

void MarkerList::AddOutsideMarker(Marker * marker)
{
    auto const isDead = [](WatchedMarker const & entry) { return !entry.Get(); };
    m_outsideMarkers.erase(std::remove_if(m_outsideMarkers.begin(), m_outsideMarkers.end(), isDead),
                           m_outsideMarkers.end());
    auto const isThis = [marker](WatchedMarker const & entry) { return entry.Get() == marker; };
    if (marker && std::none_of(m_outsideMarkers.begin(), m_outsideMarkers.end(), isThis))
        m_outsideMarkers.emplace_back(marker);
}

void MarkerList::ClearOutsideMarkers() { m_outsideMarkers.clear(); }

std::vector<Marker *> MarkerList::GetOutsideMarkers() const
{
    std::vector<Marker *> markers;
    markers.reserve(m_outsideMarkers.size());
    for (WatchedMarker const & entry : m_outsideMarkers)
        if (entry.Get())
            markers.push_back(entry.Get());
    return markers;
}

bool MarkerList::GetMustRecalcRulers()
{
    if (isEnabled() != m_lastEnabled)
        m_mustRecalcRulers = true;
    m_lastEnabled = isEnabled();
    return m_mustRecalcRulers;
}

bool MarkerList::minimized() const { return m_pTopWindow && m_pTopWindow->isMinimized(); }

void MarkerList::sendSignalSetState(QString const & path, EMarkerState m, bool value)
{
    Q_EMIT signalSetState(path, m, value);
}

bool MarkerList::eventFilter(QObject * watched, QEvent * event)
{
    if (!watched || !event)
        return false;
    QPointer<MarkerList> const self(this);
    QPointer<QObject> const receiver(watched);
    if (event->type() == QEvent::WindowStateChange && m_pTopWindow) {
        SetMustRecalcRulers(!minimized());
        OnMinimize(minimized());
    } else if (event->type() == QEvent::Show) {
        afterShow();
        if (self) {
            SetMustRecalcRulers(true);
            OnMinimize(false);
        }
    }
    if (!self || !receiver)
        return !receiver; // without a receiver the event ends here
    return watched != m_pTopWindow && Control::eventFilter(watched, event);
}

void MarkerList::afterShow()
{
    QPointer<MarkerList> const self(this);
    slotClearColors(); // may end this
    for (int i = 0; self && i < MarkerCount; ++i)
        if (isIndexValid(i))
            GetMarker(i)->Update();
}

void MarkerList::setEnabled(bool /*enabled*/)
{
    SetMustRecalcRulers(true);
    RepairDrawing();
}

void MarkerList::StartResizeTimer() { RestartTimer(m_resizeTimer, m_resizeDelay); }

void MarkerList::RestartTimer(int & timer, int delay)
{
    if (timer > 0)
        killTimer(timer);
    timer = startTimer(std::max(0, delay));
}

//! Stops a timer when it is the one with this id. \return whether it is.
bool MarkerList::StopTimer(int & timer, int id)
{
    if (timer != id)
        return false;
    killTimer(timer);
    timer = 0;
    return true;
}

void MarkerList::timerEvent(QTimerEvent * event)
{
    int const id = event->timerId();
    if (id <= 0 || EndMarkerTimer(id))
        return;
    QPointer<MarkerList> const self(this);
    if (StopTimer(m_repairTimer, id)) {
        RepairDrawing();
        if (self)
            updateWidget();
    }
    if (!self)
        return;
    if (StopTimer(m_resizeTimer, id)) {
        m_resizePending = true;
        QWidget::update();
    }
    Marker * const wheelMarker = m_wheelMarker.Get();
    if (id == m_wheelTimer && wheelMarker)
        wheelMarker->EndMoving();
}

//! Ends the moving state of the marker that runs a timer, unless its value has not settled yet.
//! \return whether there is such a marker.
bool MarkerList::EndMarkerTimer(int id)
{
    auto const runs = [id](auto const & entry) { return entry && entry->GetTimerID() == id; };
    auto const found = std::find_if(m_markers.begin(), m_markers.end(), runs);
    if (found == m_markers.end())
        return false;
    Marker & marker = **found;
    if (marker.Changing())
        return true;
    QPointer<MarkerList> const self(this);
    LifeWatch const life(marker.GetObserverLifetime());
    marker.SetMoving(false, false);
    if (!life.IsOver())
        marker.StopTimer();
    if (self)
        updateWidget();
    return true;
}

void MarkerList::mouseDoubleClickEvent(QMouseEvent * /*event*/) { Q_EMIT AxisDoubleClick(this); }

void MarkerList::wheelEvent(QWheelEvent * event)
{
    Marker * const marker = GetMarker(GetCurrentMarker());
    if (!marker) {
        event->ignore();
        return;
    }
    RestartTimer(m_wheelTimer, WheelTime);
    m_wheelMarker = WatchedMarker(marker);
    marker->Move2NextPixel(WheelDelta(event) >= 1); // may end this
    event->accept();
}

void MarkerList::showEvent(QShowEvent * event)
{
    QWidget::showEvent(event);
    afterShow();
}
