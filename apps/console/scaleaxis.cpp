// SPDX-License-Identifier: MIT
#include "scaleaxis.h"

#include "panelayout.h"

#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QTimerEvent>

namespace {

constexpr int FixedSide = 36; // px, as all below
constexpr int TicLength = 5;
constexpr int MinorTicLength = 3;
constexpr int LabelDistance = 3;
constexpr int LabelGap = 10;
constexpr int LabelGapVertical = 3;
constexpr int MarkDepth = 7;
constexpr int MarkHalfWidth = 5;

} // namespace

ScaleAxis::ScaleAxis(QWidget * parent, char const * name, unsigned int type, ScaleStrip::ELineSide side)
    : AxisBase(parent, name, type, FixedSide, TicLength, -1)
    , m_side(side)
    , m_hand(*this)
{
    setFocusPolicy(Qt::StrongFocus);
    SetAxisZoomEnable(true, true);
    EnableContextMenu(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_strip.SetLabelText([this](double value, double) {
        QString text;
        BuildFormatString(text, value * m_displayFactor, nullptr);
        return text.trimmed();
    });
    connect(this, &AxisBase::signalRangeChanged, this, qOverload<>(&QWidget::update));
}

ScaleAxis::~ScaleAxis() = default;

void ScaleAxis::SetPictureSpan(int first, int length)
{
    if (first == m_first && length == m_length)
        return;
    m_first = first;
    m_length = length;
    TakeOffsets();
    RepairDrawing();
}

//! A band ends where the picture ends.
void ScaleAxis::TakeOffsets()
{
    QRect const inner = innerRect();
    m_leftTopOffset = m_first;
    m_rightBottomOffset = RunsUp() ? height() - 1 - inner.bottom() : width() - 1 - inner.right();
}

QRect ScaleAxis::innerRect() const
{
    int const length = m_length > 0 ? m_length : 0;
    return RunsUp() ? QRect(0, m_first, width(), length) : QRect(m_first, 0, length, height());
}

std::vector<int> ScaleAxis::GetGridPixels()
{
    UpdateStrip();
    return m_length > 0 ? m_strip.GetMajorPixels() : std::vector<int>();
}

std::vector<QRect> ScaleAxis::GetLabelRects()
{
    UpdateStrip();
    double const ratio = devicePixelRatioF();
    QRect const scale = ScaleRect();
    std::vector<QRect> rects = m_strip.GetLabelRects();
    for (QRect & rect : rects)
        rect.translate(PaneLayout::ToDevice(scale.left(), ratio), PaneLayout::ToDevice(scale.top(), ratio));
    if (!UnitRect().isNull())
        rects.push_back(PaneLayout::ToDevice(UnitRect(), ratio));
    return rects;
}

bool ScaleAxis::bMustRebuildPixMap()
{
    double const ratio = devicePixelRatioF();
    return !m_pPixmap || m_drawnStart != m_start || m_drawnStop != m_stop || m_drawnHeight != height() ||
           m_pPixmap->devicePixelRatio() != ratio || m_pPixmap->size() != size() * ratio;
}

void ScaleAxis::RepairDrawing()
{
    SetMustRecalcRulers(true);
    m_strip.InvalidateLabels();
    AxisBase::RepairDrawing();
}

void ScaleAxis::updateWidget()
{
    SetMustRecalcRulers(true);
    AxisBase::updateWidget();
}

double ScaleAxis::PixelToValue(int section, int pixel)
{
    return MarkerHand::ButNoValue(AxisBase::PixelToValue(section, pixel));
}

ScaleStrip::Look ScaleAxis::Look() const
{
    ScaleStrip::Look look;
    look.orientation = RunsUp() ? Qt::Vertical : Qt::Horizontal;
    look.lineSide = m_side;
    look.font = font();
    look.background = m_bgBrush.color();
    look.line = m_textPen.color();
    look.text = m_textPen.color();
    look.ticLength = TicLength;
    look.minorTicLength = MinorTicLength;
    look.textDistance = LabelDistance;
    look.labelGap = RunsUp() ? LabelGapVertical : LabelGap;
    return look;
}

ScaleTics ScaleAxis::Tics() const
{
    ScaleTics tics;
    tics.start = m_calcStart;
    tics.stop = m_calcStop;
    tics.firstTic = m_firstTic;
    tics.ticStep = m_ticStep;
    tics.ticOffset = m_ticOffset;
    tics.ticCount = m_ticCount;
    tics.minorTics = m_minorTics;
    return tics;
}

void ScaleAxis::UpdateStrip()
{
    m_strip.SetLook(Look());
    m_strip.SetUnit(UnitRect().isNull() ? GetPureUnitText() : QString());
    m_strip.SetTics(Tics());
    m_strip.SetOrigin(m_first);
    m_strip.SetView(ScaleRect(), devicePixelRatioF());
}

void ScaleAxis::BuildPixMap()
{
    double const ratio = devicePixelRatioF();
    m_pPixmap = std::make_unique<QPixmap>(size() * ratio);
    m_pPixmap->setDevicePixelRatio(ratio);
    if (!m_pPixmap->isNull()) {
        QPainter painter(m_pPixmap.get());
        drawBackground(painter);
        if (m_length > 0) {
            UpdateStrip();
            m_strip.Paint(painter, ScaleRect());
            painter.setFont(font());
            painter.setPen(m_textPen);
            if (!UnitRect().isNull())
                painter.drawText(UnitRect(), Qt::AlignCenter | Qt::TextDontClip, GetPureUnitText());
            PaintBeside(painter);
        }
    }
    m_drawnStart = m_start;
    m_drawnStop = m_stop;
    m_drawnHeight = height();
    SetMustRecalcRulers(true);
}

void ScaleAxis::PaintBeside(QPainter & painter) { Q_UNUSED(painter) }

void ScaleAxis::paintEvent(QPaintEvent * event)
{
    Q_UNUSED(event)
    if (!m_drawEnabled)
        return;
    if (bMustRebuildPixMap())
        BuildPixMap();
    if (GetMustRecalcRulers())
        LayMarks();
    QPainter painter(this);
    painter.drawPixmap(0, 0, *m_pPixmap);
    PaintMarks(painter);
    PaintBand(painter);
    if (hasFocus()) {
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.setPen(QPen(m_textPen.color(), 1.0, Qt::DotLine));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
    painter.end();
    Q_EMIT AxisRepainted();
}

//! Each marker learns the line across the axis by which it can be taken.
void ScaleAxis::LayMarks()
{
    QRect const inner = innerRect();
    for (Marker * const marker : GetShownMarkers()) {
        int const pixel = ValueToPixel(marker->GetValue());
        marker->SetPixel(pixel);
        QRect const line =
            RunsUp() ? QRect(inner.left(), pixel, inner.width(), 1) : QRect(pixel, inner.top(), 1, inner.height());
        marker->SetRulerRect(pixel < 0 ? QRect() : line);
        marker->SetRect(pixel < 0 ? QRect() : MarkAt(line).boundingRect().toAlignedRect());
    }
    SetMustRecalcRulers(false);
}

//! A triangle that points at the picture.
QPolygonF ScaleAxis::MarkAt(QRect const & line) const
{
    QRectF const scale = ScaleRect();
    bool const near = m_side == ScaleStrip::eLineAtNearEdge;
    if (!RunsUp()) {
        double const x = line.left() + 0.5;
        double const tip = near ? scale.top() : scale.bottom();
        double const base = near ? tip + MarkDepth : tip - MarkDepth;
        return QPolygonF({ { x, tip }, { x - MarkHalfWidth, base }, { x + MarkHalfWidth, base } });
    }
    double const y = line.top() + 0.5;
    double const tip = near ? scale.left() : scale.right();
    double const base = near ? tip + MarkDepth : tip - MarkDepth;
    return QPolygonF({ { tip, y }, { base, y - MarkHalfWidth }, { base, y + MarkHalfWidth } });
}

QPoint ScaleAxis::GetMarkPlace(int index) const
{
    Marker const * const marker = GetMarker(index);
    bool const hasMark = marker && marker->GetRect().isValid();
    return hasMark ? marker->GetRect().center() : QPoint(-1, -1);
}

void ScaleAxis::PaintMarks(QPainter & painter) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    for (Marker * const marker : GetShownMarkers()) {
        if (!marker->GetRulerRect().isValid())
            continue;
        painter.setPen(QPen(m_bgBrush.color(), 1.0));
        painter.setBrush(marker->GetQColor());
        painter.drawPolygon(MarkAt(marker->GetRulerRect()));
    }
}

//! Values may have moved while the marks were hidden.
void ScaleAxis::showEvent(QShowEvent * event)
{
    AxisBase::showEvent(event);
    ResetAllPixelValues(0);
    SetMustRecalcRulers(true);
}

void ScaleAxis::resizeEvent(QResizeEvent * event)
{
    AxisBase::resizeEvent(event);
    TakeOffsets();
    RepairDrawing();
}

void ScaleAxis::changeEvent(QEvent * event)
{
    AxisBase::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        RepairDrawing();
}

//! The wheel makes its steps the value when it rests; while a marker is held that is left to the hand.
void ScaleAxis::timerEvent(QTimerEvent * event)
{
    bool const wheelRests = event->timerId() == GetWheelTimerID();
    if (!wheelRests || !MarkerHand::IsAnyHeld())
        AxisBase::timerEvent(event);
}

void ScaleAxis::mousePressEvent(QMouseEvent * event)
{
    bool const isPan = (event->modifiers() & Qt::ShiftModifier) != 0;
    if (isPan || !m_hand.Press(event))
        TakeMouse(event);
}

void ScaleAxis::mouseMoveEvent(QMouseEvent * event)
{
    if (IsDragged())
        TakeMouse(event);
    else
        m_hand.Move(event);
}

void ScaleAxis::mouseReleaseEvent(QMouseEvent * event)
{
    if (!m_hand.Release(event))
        TakeMouse(event);
}

//! The second press of a double click takes a marker as the first does.
void ScaleAxis::mouseDoubleClickEvent(QMouseEvent * event)
{
    if (!m_hand.Press(event))
        TakeMouse(event);
}

void ScaleAxis::keyPressEvent(QKeyEvent * event)
{
    bool const taken = TakeKey(event) || m_hand.KeyPress(event) || OpenMenuByKey(*this, event, innerRect().center());
    if (!taken)
        AxisBase::keyPressEvent(event);
}

void ScaleAxis::keyReleaseEvent(QKeyEvent * event)
{
    if (!m_hand.KeyRelease(event))
        AxisBase::keyReleaseEvent(event);
}

void ScaleAxis::focusInEvent(QFocusEvent * event)
{
    AxisBase::focusInEvent(event);
    update();
}

void ScaleAxis::focusOutEvent(QFocusEvent * event)
{
    LifeWatch const life(GetObserverLifetime());
    m_hand.LetGo();
    if (!life.IsOver())
        DropDrag();
    if (life.IsOver())
        return;
    AxisBase::focusOutEvent(event);
    update();
}

void ScaleAxis::hideEvent(QHideEvent * event)
{
    LifeWatch const life(GetObserverLifetime());
    DropDrag();
    if (!life.IsOver())
        AxisBase::hideEvent(event);
}
