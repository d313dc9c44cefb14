// SPDX-License-Identifier: MIT
#include "rangepane.h"

#include "azimuthdisplayselect.h"
#include "consolebearings.h"
#include "consolevalues.h"
#include "frequencyaxis.h"
#include "numbertexts.h"
#include "qtcompat.h"
#include "resortpopupmenu.h"
#include "resultmarker.h"
#include "resultmarkerlist.h"
#include "shadingbar.h"
#include "toint.h"
#include "tree.h"
#include "windowvalues.h"

#include <QEvent>
#include <QFontMetrics>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTimerEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr int TicLength = 4; // px, as all below
constexpr int LabelGap = 4;
constexpr int FlagInset = 3;

} // namespace

RangePane::RangePane(QWidget * parent)
    : MarkerList(parent, "rangePane")
    , m_pFrequencyAxis(new FrequencyAxis(this))
    , m_colors{ Qt::black, Qt::black, Qt::white, Qt::darkGray, Qt::green, Qt::yellow }
    , m_hand(*this)
    , m_frames(*this)
    , m_windowHand(*this)
    , m_resultHand(*this)
    , m_selected([this] { HighlightResult(); })
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_NoSystemBackground);
    setFocusPolicy(Qt::StrongFocus);
    m_pFrequencyAxis->SetRange(m_frequencies.start, m_frequencies.start + m_frequencies.span);
    connect(m_pFrequencyAxis, &AxisBase::signalRangeChanged, this, &RangePane::TakeFrequencies);
    connect(m_pFrequencyAxis, &ScaleAxis::signalBand, this, qOverload<>(&QWidget::update));
    m_pFrequencyAxis->SetMenuMarkerPane(this);
    connect(&AzimuthDisplaySelect::Instance(), &AzimuthDisplaySelect::signalAzimuthModeChanged, this,
            [this] { ShowAzimuthMode(); });
    for (int window = 0; window < WindowValues::Count; ++window) {
        auto * const menu = new ResortPopupMenu(this, "WindowMenu");
        menu->insertItem(tr("Hide window %1").arg(window + 1), this, SLOT(slotHideWindow(int)), QKeySequence(), window);
        m_windowMenus[static_cast<std::size_t>(window)] = menu;
    }
    EnableContextMenu(true);
}

RangePane::~RangePane() = default;

void RangePane::SetLevelScale(ScaleAxis * scale)
{
    m_pLevelScale = scale;
    m_pLevelScale->SetMenuMarkerPane(this);
    m_pLevelScale->SetRange(m_levelMin, m_levelMax);
    connect(m_pLevelScale, &AxisBase::signalRangeChanged, this, &RangePane::TakeLevels);
    connect(m_pLevelScale, &ScaleAxis::signalBand, this, qOverload<>(&QWidget::update));
}

bool RangePane::SetStart_ValuePath(QString const & path) { return m_pFrequencyAxis->SetStart_ValuePath(path); }

bool RangePane::SetStop_ValuePath(QString const & path) { return m_pFrequencyAxis->SetStop_ValuePath(path); }

bool RangePane::SetLevelMin_ValuePath(QString const & path) { return m_pLevelScale->SetStart_ValuePath(path); }

bool RangePane::SetLevelMax_ValuePath(QString const & path) { return m_pLevelScale->SetStop_ValuePath(path); }

void RangePane::SetFrequencyRange(FrequencyRange range)
{
    bool const good = std::isfinite(range.start) && std::isfinite(range.span) && range.span > 0.0;
    if (good && range != m_frequencies)
        m_pFrequencyAxis->SetRange(range.start, range.start + range.span);
}

void RangePane::SetLevelRange(double min, double max)
{
    bool const good = std::isfinite(min) && std::isfinite(max) && max > min;
    if (good && (min != m_levelMin || max != m_levelMax))
        m_pLevelScale->SetRange(min, max);
}

//! The ends of a range move one after the other: what is no range in between is passed over.
void RangePane::TakeFrequencies()
{
    FrequencyRange const range{ m_pFrequencyAxis->Start(), m_pFrequencyAxis->Stop() - m_pFrequencyAxis->Start() };
    if (!std::isfinite(range.start) || !std::isfinite(range.span) || !(range.span > 0.0) || range == m_frequencies)
        return;
    m_frequencies = range;
    AskForRebuild();
}

void RangePane::TakeLevels()
{
    double const min = m_pLevelScale->Start();
    double const max = m_pLevelScale->Stop();
    if (!std::isfinite(min) || !std::isfinite(max) || !(max > min) || (min == m_levelMin && max == m_levelMax))
        return;
    m_levelMin = min;
    m_levelMax = max;
    AskForRebuild();
}

void RangePane::SetColors(PaneColors const & colors)
{
    m_colors = colors;
    AskForRebuild();
}

void RangePane::AskForRebuild()
{
    m_rebuildDue = true;
    update();
}

void RangePane::updateWidget()
{
    SetMustRecalcRulers(true);
    MarkerList::updateWidget();
}

void RangePane::RepairDrawing()
{
    SetMustRecalcRulers(true);
    update();
}

void RangePane::Refresh()
{
    if (!TakeLayout() && !m_rebuildDue)
        return;
    m_rebuildDue = false;
    PixelMap::Layout layout;
    layout.start = m_frequencies.start;
    layout.stop = m_frequencies.start + m_frequencies.span;
    layout.direction = PixelMap::eHorizontal;
    layout.first = m_pictureRect.left();
    layout.last = m_pictureRect.right();
    m_columns = PixelMap(layout);
    m_windowHand.SetRoom(LogicalPicture());
    SetMustRecalcRulers(true);
    Rebuild();
}

//! \return whether anything differs.
bool RangePane::TakeLayout()
{
    double const ratio = devicePixelRatioF();
    QSize const size = PaneLayout::ToDevice(this->size(), ratio);
    QRect const picture = PaneLayout::ToDevice(LogicalPicture(), ratio);
    if (ratio == m_ratio && size == m_deviceSize && picture == m_pictureRect)
        return false;
    m_ratio = ratio;
    m_deviceSize = size;
    m_pictureRect = picture;
    PlaceScales();
    return true;
}

void RangePane::PlaceScales()
{
    QRect const picture = LogicalPicture();
    m_pFrequencyAxis->setGeometry(0, picture.bottom() + 1, width(), FrequencyMargin());
    m_pFrequencyAxis->SetPictureSpan(picture.left(), picture.width());
    PlaceLevelScale(picture);
}

QRect RangePane::LogicalPicture() const { return PaneLayout::PictureRect(size(), Margins()); }

double RangePane::HertzAPixel() const { return m_frequencies.span / std::max(1, m_pictureRect.width()); }

int RangePane::LabelMargin() const
{
    QFontMetrics const metrics = fontMetrics();
    int const widest = std::max({ metrics.horizontalAdvance(QStringLiteral("-100.0")),
                                  metrics.horizontalAdvance(QStringLiteral("dBFS")),
                                  metrics.horizontalAdvance(QStringLiteral("00:00.00")) });
    return widest + LabelGap + TicLength + LabelGap;
}

int RangePane::SideMargin() const
{
    QFontMetrics const metrics = fontMetrics();
    int const flag = metrics.horizontalAdvance(QStringLiteral("-100.0 dBFS")) + 6 * FlagInset;
    return std::max(ShadingBar::Thickness(metrics), flag);
}

int RangePane::FrequencyMargin() const { return m_pFrequencyAxis->Thickness(); }

int RangePane::RowOf(double level) const
{
    Q_UNUSED(level)
    return -1;
}

double RangePane::LevelAt(double row) const
{
    Q_UNUSED(row)
    return MarkerHand::NoValue;
}

QRect RangePane::LevelFlagRoom() const { return {}; }

int RangePane::ResultAt(QPoint at) const
{
    Q_UNUSED(at)
    return -1;
}

void RangePane::ShowAzimuthMode() { RepairDrawing(); }

double RangePane::PixelToValue(int direction, int pixel)
{
    Refresh();
    double const place = (pixel + 0.5) * m_ratio; // the middle of the pixel
    if (direction == eMarkerY)
        return LevelAt(place);
    int const width = m_pictureRect.width();
    if (width <= 0)
        return MarkerHand::NoValue;
    return MarkerHand::ButNoValue(m_frequencies.start + m_frequencies.span * (place - m_pictureRect.left()) / width);
}

int RangePane::ValueToPixel(int direction, double value)
{
    Refresh();
    int const place = direction == eMarkerY ? RowOf(value) : ColumnOf(value);
    return place < 0 ? -1 : toInt(place / m_ratio);
}

void RangePane::GetCurrentStartStop(int direction, double & start, double & stop)
{
    start = direction == eMarkerY ? m_levelMin : m_frequencies.start;
    stop = direction == eMarkerY ? m_levelMax : m_frequencies.start + m_frequencies.span;
}

void RangePane::slotSetState(QString path, EMarkerState m, bool value)
{
    MarkerList::slotSetState(path, m, value);
    RepairDrawing();
}

void RangePane::DrawPixels(QPainter & painter, QPoint at, QImage const & picture)
{
    if (picture.isNull())
        return;
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(at, picture);
}

void RangePane::LayRulers()
{
    QRect const picture = LogicalPicture();
    MarkerRulers::Frame const frame{ m_pictureRect, m_ratio,
                                     picture.adjusted(FlagInset, FlagInset, -FlagInset, -FlagInset), LevelFlagRoom() };
    int const selected = SelectedResult();
    MarkerRulers::Source const source{ [this](bool level, double value) {
                                          return level ? RowOf(value) : ColumnOf(value);
                                      },
                                       [this, selected](int index) { return TextsOf(index, selected); },
                                       [this, selected](int index) { return KindOf(index, selected); } };
    m_rulers.Lay(*this, frame, fontMetrics(), source);
    m_frames.Lay(picture, fontMetrics());
    SetMustRecalcRulers(false);
}

bool RangePane::BindResults()
{
    CreateResultMarkerList(eFree33, true, IColorBase::eColorResult, false, eSpecialX, QStringLiteral("R%1"));
    FollowResults();
    return GetResultMarkerList()->GetConnected();
}

//! Binds anew: the markers catch up with what they missed while this was hidden.
void RangePane::FollowResults()
{
    ResultMarkerList * const results = GetResultMarkerList();
    if (!results || m_heldResults)
        return;
    results->SetSelector_ValuePath(QLatin1String(ConsolePaths::SelectedBearing));
    results->Set_ValuePath(QLatin1String(ConsolePaths::Bearings));
    m_selected.Bind(QLatin1String(ConsolePaths::SelectedBearing)); // after those, to hear of a change after them
}

//! The markers take their colours with the next change of the list, which may be far off.
void RangePane::HighlightResult()
{
    Tree const * const tree = Tree::Instance();
    auto * const list = tree ? tree->FindAs<ValueList<BearingResult>>(QLatin1String(ConsolePaths::Bearings)) : nullptr;
    if (GetResultMarkerList() && list)
        GetResultMarkerList()->Update(list, eItemsChanged);
}

//! The markers stay where they are while their list is not bound.
void RangePane::HoldResults(bool on)
{
    if (on == m_heldResults.has_value())
        return;
    if (!on) {
        m_heldResults.reset();
        FollowResults();
        return;
    }
    HeldResults held{ {}, ConsoleBearings::Selected() };
    for (int i = 0; i < ConsoleBearings::Count(); ++i)
        held.results.push_back(*ConsoleBearings::At(i));
    m_heldResults = std::move(held);
    m_selected.Bind(QString());
    if (ResultMarkerList * const results = GetResultMarkerList()) {
        results->Set_ValuePath(QString());
        results->SetSelector_ValuePath(QString());
    }
}

int RangePane::ResultCount() const
{
    return m_heldResults ? static_cast<int>(m_heldResults->results.size()) : ConsoleBearings::Count();
}

BearingResult const * RangePane::Result(int index) const
{
    if (!m_heldResults)
        return ConsoleBearings::At(index);
    bool const exists = index >= 0 && index < ResultCount();
    return exists ? &m_heldResults->results[static_cast<std::size_t>(index)] : nullptr;
}

int RangePane::SelectedResult() const { return m_heldResults ? m_heldResults->selected : ConsoleBearings::Selected(); }

//! Numbers of held results mean nothing among the present ones.
void RangePane::SelectShown(int result) const
{
    BearingResult const * const shown = Result(result);
    if (!m_heldResults) {
        ConsoleBearings::Select(result);
        return;
    }
    for (int i = 0; shown && i < ConsoleBearings::Count(); ++i) {
        if (ConsoleBearings::At(i)->GetText() == shown->GetText()) {
            ConsoleBearings::Select(i);
            return;
        }
    }
}

MarkerRulers::Kind RangePane::KindOf(int index, int selected) const
{
    int const result = ResultHand::ResultOf(index);
    if (result < 0)
        return MarkerRulers::Kind::eMarker;
    return result == selected ? MarkerRulers::Kind::eSelectedResult : MarkerRulers::Kind::eResult;
}

QStringList RangePane::TextsOf(int index, int selected) const
{
    int const result = ResultHand::ResultOf(index);
    auto const * const marker = result < 0 ? nullptr : dynamic_cast<ResultMarker const *>(GetMarker(index));
    if (marker)
        return ResultTexts(*marker, result == selected);
    return WindowHand::WindowOf(index) < 0 ? FlagTexts(index) : BorderTexts(index);
}

QStringList RangePane::ResultTexts(ResultMarker const & marker, bool selected) const
{
    Q_UNUSED(marker)
    Q_UNUSED(selected)
    return {};
}

//! The window in focus tells where it stands: the frequency at its lower border, its width at the other.
QStringList RangePane::BorderTexts(int index) const
{
    int const window = WindowHand::WindowOf(index);
    if (window != WindowValues::Focused())
        return {};
    FrequencyRange const range = WindowValues::RangeOf(window);
    QString const width = QStringLiteral("\u0394 ") + NumberTexts::FrequencyWithUnit(range.span, HertzAPixel());
    QString const place = NumberTexts::FrequencyWithUnit(GetMarkerValue(index), HertzAPixel());
    return GetMarkerValue(index) > range.start ? QStringList{ place, width } : QStringList{ place };
}

void RangePane::PaintOver(QPainter & painter)
{
    if (GetMustRecalcRulers())
        LayRulers();
    painter.setFont(font());
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    m_frames.Paint(painter, LogicalPicture());
    m_pFrequencyAxis->DimBesideBand(painter, LogicalPicture());
    if (RowOf(m_levelMin) >= 0) // levels have rows here
        m_pLevelScale->DimBesideBand(painter, LogicalPicture());
    m_rulers.Paint(painter, m_colors.ground, m_colors.text);
    m_frames.PaintLabels(painter, m_colors.ground, m_colors.text);
    if (!hasFocus() || m_pictureRect.isEmpty())
        return;
    painter.setPen(QPen(m_colors.text, 1.0, Qt::DotLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(LogicalPicture().adjusted(0, 0, -1, -1));
}

void RangePane::resizeEvent(QResizeEvent * event)
{
    MarkerList::resizeEvent(event);
    Refresh();
}

void RangePane::showEvent(QShowEvent * event)
{
    MarkerList::showEvent(event);
    FollowResults();
    ResetAllPixelValues(0); // values may have moved while they were hidden
    SetMustRecalcRulers(true);
    Refresh();
}

void RangePane::changeEvent(QEvent * event)
{
    MarkerList::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        AskForRebuild();
        Refresh();
    }
}

//! The wheel makes its steps the value when it rests; while a marker is held that is left to the hand.
void RangePane::timerEvent(QTimerEvent * event)
{
    bool const wheelRests = event->timerId() == GetWheelTimerID();
    if (!wheelRests || !MarkerHand::IsAnyHeld())
        MarkerList::timerEvent(event);
}

//! The pointer is that of the scale while that is dragged.
void RangePane::HandOn(QMouseEvent const * event)
{
    LifeWatch const life(GetObserverLifetime());
    m_pFrequencyAxis->TakeMouse(event);
    if (life.IsOver())
        return;
    if (m_pFrequencyAxis->IsDragged())
        setCursor(m_pFrequencyAxis->cursor());
    else
        unsetCursor();
}

//! Markers of the operator come before results, and these before windows. \return whether one was taken.
bool RangePane::TakePress(QMouseEvent const * event)
{
    int const marker = m_hand.Under(Position(event).toPoint());
    bool const isRuler = marker >= 0 && WindowHand::WindowOf(marker) < 0;
    LifeWatch const life(GetObserverLifetime());
    int result = -1;
    if (event->button() == Qt::LeftButton) {
        QPoint const at = Position(event).toPoint();
        result = isRuler ? -1 : m_resultHand.Under(at);
        if (result < 0 && marker < 0)
            result = ResultAt(at);
    }
    if (result >= 0)
        SelectShown(result);
    bool const isResult = result >= 0;
    return life.IsOver() || isResult || m_windowHand.Press(event, marker) || m_hand.Press(event);
}

void RangePane::mousePressEvent(QMouseEvent * event)
{
    bool const isPan = (event->modifiers() & Qt::ShiftModifier) != 0;
    if ((isPan || !TakePress(event)) && LogicalPicture().contains(Position(event).toPoint()))
        HandOn(event);
}

void RangePane::mouseMoveEvent(QMouseEvent * event)
{
    if (m_pFrequencyAxis->IsDragged())
        HandOn(event);
    else if (!m_windowHand.Move(event))
        m_hand.Move(event);
}

void RangePane::mouseReleaseEvent(QMouseEvent * event)
{
    if (!m_windowHand.Release(event) && !m_hand.Release(event))
        HandOn(event);
}

//! The second press of a double click takes a marker as the first does.
void RangePane::mouseDoubleClickEvent(QMouseEvent * event)
{
    if (!TakePress(event) && LogicalPicture().contains(Position(event).toPoint()))
        HandOn(event);
}

ResortPopupMenu * RangePane::GetContextMenu()
{
    QPoint const at = GetCurrentXYMenu();
    int const index = m_hand.Under(at);
    int const label = m_frames.LabelAt(at);
    int const window = label >= 0 ? label : WindowHand::WindowOf(index);
    if (window >= 0)
        return m_windowMenus[static_cast<std::size_t>(window)];
    bool const isLevel = index >= 0 && (GetMarkerSpecial(index) & eSpecialY) != 0;
    ScaleAxis & scale = isLevel ? *m_pLevelScale : static_cast<ScaleAxis &>(*m_pFrequencyAxis);
    scale.SetCurrentXYMenu(index >= 0 ? scale.GetMarkPlace(index) : QPoint(at.x(), -1));
    return scale.GetContextMenu();
}

void RangePane::slotHideWindow(int window)
{
    m_windowHand.LetGo();
    WindowHand::Hide(window);
}

void RangePane::keyPressEvent(QKeyEvent * event)
{
    if (event->key() == Qt::Key_Insert && (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier) {
        Q_EMIT signalMark();
        return;
    }
    bool const taken = m_pFrequencyAxis->TakeKey(event) ||
                       ((event->modifiers() & Qt::ControlModifier) != 0 && m_pLevelScale->TakeKey(event)) ||
                       m_resultHand.KeyPress(event) || m_windowHand.KeyPress(event) || m_hand.KeyPress(event) ||
                       ScaleAxis::OpenMenuByKey(*this, event, LogicalPicture().center());
    if (!taken)
        MarkerList::keyPressEvent(event);
}

void RangePane::keyReleaseEvent(QKeyEvent * event)
{
    if (!m_windowHand.KeyRelease(event) && !m_hand.KeyRelease(event))
        MarkerList::keyReleaseEvent(event);
}

void RangePane::focusInEvent(QFocusEvent * event)
{
    MarkerList::focusInEvent(event);
    update();
}

void RangePane::focusOutEvent(QFocusEvent * event)
{
    LifeWatch const life(GetObserverLifetime());
    m_windowHand.LetGo();
    if (!life.IsOver())
        m_hand.LetGo();
    if (!life.IsOver())
        m_pFrequencyAxis->DropDrag();
    if (life.IsOver())
        return;
    MarkerList::focusOutEvent(event);
    update();
}
