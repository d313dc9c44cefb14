// SPDX-License-Identifier: MIT
#include "axisrangedisplay.h"

#include "axisbase.h"
#include "axisrangelayout.h"
#include "colorset.h"
#include "guibase.h"
#include "guicentral.h"
#include "tree.h"
#include "undorecording.h"
#include "valueselection.h"
#include "vccaption.h"
#include "vclabel.h"

#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPolygonF>
#include <QPushButton>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int ReadOutWidth = 60;        // px
constexpr int ReadOutWidthInHertz = 70; // px
constexpr int FontSize = 12;            // points
constexpr int FrameStyle = 0x32;        // a sunken panel
constexpr int Centred = 0x84;
constexpr double LeastDeviation = 1e-10; // of an entry from the rulers; less is none

void MoveTo(QWidget * part, QRect const & place)
{
    part->setVisible(place.isValid());
    if (place.isValid())
        part->setGeometry(place);
}

//! A triangle in a square of AxisRangeLayout::Arrow px. \param turn  degrees, 0 points up.
QPixmap ArrowPixmap(QColor const & color, int turn, double ratio)
{
    constexpr int Size = AxisRangeLayout::Arrow;
    QPixmap pixmap(QSize(Size, Size) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(Size / 2.0, Size / 2.0);
    painter.rotate(turn);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawPolygon(QPolygonF({ { 0.0, -3.0 }, { 3.5, 3.0 }, { -3.5, 3.0 } }));
    return pixmap;
}

//! The text that a time format makes at most: a digit for each of its letters.
QString DigitsOf(QString format)
{
    for (QChar & sign : format)
        if (sign.isLetter())
            sign = QLatin1Char('9');
    return format;
}

} // namespace

AxisRangeDisplay::AxisRangeDisplay(AxisBase * axis, char const * name, unsigned int style)
    : QWidget(axis)
    , m_axis(Watch(axis))
    , m_server(m_axis)
    , m_style(style)
    , m_formatString((style & StyleTimeSpan) != 0 ? QStringLiteral("mm:ss") : QStringLiteral("hh:mm"))
{
    setObjectName(QString::fromLatin1(name));
    setVisible(false); // else it would appear together with its axis
    MakeParts();
    TakeColors();
    AdaptFontSize();
    connect(&GuiBase::Instance(), &GuiBase::signalColorsChanged, this, &AxisRangeDisplay::TakeColors);
    connect(&GuiCentral::Instance(), &GuiCentral::signalRestoreDefaultPersistant, this,
            &AxisRangeDisplay::slotRestoreDefaultPersistant);
    MakeValue(m_ruler1, m_own[0]);
    MakeValue(m_ruler2, m_own[1]);
    MakeValue(m_center, m_own[2]);
    MakeValue(m_difference, m_own[3]);
    ValueSelection * const zone = ShowsTimeStamps() ? GuiBase::Instance().GetTimeZone() : nullptr;
    if (zone)
        zone->AddObserver(this);
    if (axis)
        axis->SetAxisRangeDisplay(this);
}

AxisRangeDisplay::~AxisRangeDisplay()
{
    AxisBase * const axis = m_axis.Get(); // null inside the destructor of an axis that is the parent
    if (axis && axis->GetAxisRangeDisplay() == this)
        axis->SetAxisRangeDisplay(nullptr);
    for (Binding * const binding : Bindings())
        binding->Release();
    for (OwnValue const & own : m_own) // one that has gone may have given its path to another
        if (Tree * const tree = own.life.IsOver() ? nullptr : Tree::Instance())
            tree->Remove(own.path);
}

AxisRangeDisplay::WatchedAxis AxisRangeDisplay::Watch(AxisBase * axis)
{
    return { axis, axis ? LifeWatch(axis->GetObserverLifetime()) : LifeWatch() };
}

// Parts

void AxisRangeDisplay::MakeParts()
{
    m_pFirst = MakeReadOut("First Ruler");
    m_pDifference = MakeReadOut("Difference");
    m_pSecond = MakeReadOut("Second Ruler");
    m_pCenter = MakeReadOut("Center");
    for (VCLabel * const label : { m_pDifference, m_pCenter }) {
        label->setFocusPolicy(Qt::StrongFocus);
        label->installEventFilter(this);
    }
    QString const low = IsHorizontal() ? tr("Left Ruler") : tr("Lower Ruler");
    QString const high = IsHorizontal() ? tr("Right Ruler") : tr("Upper Ruler");
    m_pUp = new QLabel(this);
    m_pUp->setObjectName(QStringLiteral("up"));
    m_pUp->setToolTip(high);
    m_pDown = new QLabel(this);
    m_pDown->setObjectName(QStringLiteral("down"));
    m_pDown->setToolTip(low);
    m_pFirst->setToolTip(low);
    m_pSecond->setToolTip(high);
    for (QLabel * const arrow : { m_pUp, m_pDown })
        arrow->setFixedSize(AxisRangeLayout::Arrow, AxisRangeLayout::Arrow);
    m_pButton = new QPushButton(tr("Center"), this);
    m_pButton->setCheckable(true);
    m_pButton->setToolTip(tr("Show the rulers inside the range"));
    connect(m_pButton, &QPushButton::toggled, this, &AxisRangeDisplay::slotShowDiffRuler);
    m_pEntry = new QLineEdit(this);
    m_pEntry->hide();
    m_pEntry->installEventFilter(this);
}

VCLabel * AxisRangeDisplay::MakeReadOut(char const * name)
{
    auto * const label = new VCLabel(this, name, 0);
    label->setFrameStyle(FrameStyle);
    label->setAlignment(Qt::Alignment(Centred));
    label->setAutoFillBackground(true);
    return label;
}

void AxisRangeDisplay::TakeColors()
{
    ColorSet & colors = ColorSet::Instance();
    QPalette ground;
    ground.setColor(backgroundRole(), colors[IColorBase::eColorAxisScale]);
    setPalette(ground);
    setAutoFillBackground(true);
    for (VCLabel * const label : { m_pFirst, m_pDifference, m_pSecond, m_pCenter }) {
        QPalette palette;
        palette.setColor(QPalette::Window, colors[IColorBase::eColorAxisScale]);
        palette.setColor(QPalette::WindowText,
                         colors[label == m_pCenter ? IColorBase::eColorCenterReadOut : IColorBase::eColorReadOut]);
        label->setPalette(palette);
    }
    PaintArrows();
}

//! The arrows point away from the difference towards the read-outs; without these, at each other.
void AxisRangeDisplay::PaintArrows()
{
    QColor const color = ColorSet::Instance()[IColorBase::eColorReadOut];
    int const inward = (m_style & StyleNoLabels) != 0 ? 180 : 0;
    int const high = IsHorizontal() ? 90 : 0;
    m_pUp->setPixmap(ArrowPixmap(color, high + inward, devicePixelRatioF()));
    m_pDown->setPixmap(ArrowPixmap(color, high + 180 - inward, devicePixelRatioF()));
}

QString AxisRangeDisplay::SizingText() const
{
    if (!m_fixedFormat.isEmpty())
        return DigitsOf(m_fixedFormat);
    return IsTimeAxis() ? QStringLiteral("99:99") : QStringLiteral("999.999");
}

void AxisRangeDisplay::AdaptFontSize()
{
    QFont const font(GuiBase::Instance().GetFontFamily(), FontSize);
    QString const text = SizingText();
    for (VCLabel * const label : { m_pFirst, m_pDifference, m_pSecond, m_pCenter })
        label->SetFontOnSize(font, text);
    m_pButton->setFont(QFont(GuiBase::Instance().GetFontFamily()));
}

void AxisRangeDisplay::PlaceParts()
{
    AxisRangeLayout::Look look;
    look.horizontal = IsHorizontal();
    look.rulers = (m_style & StyleNoLabels) == 0;
    int const width = GuiBase::Instance().GetShowFrequencyInHz() != 0 ? ReadOutWidthInHertz : ReadOutWidth;
    look.readOut = QSize(width, std::max(m_pFirst->sizeHint().height(), m_pButton->sizeHint().height()));
    look.button = m_pButton->sizeHint().width();
    AxisRangeLayout const parts = AxisRangeLayout::Of(size(), look);
    MoveTo(m_pFirst, parts.lowRuler);
    MoveTo(m_pSecond, parts.highRuler);
    MoveTo(m_pDifference, parts.difference);
    MoveTo(m_pCenter, parts.center);
    MoveTo(m_pButton, parts.button);
    MoveTo(m_pDown, parts.lowArrow);
    MoveTo(m_pUp, parts.highArrow);
    if (m_pEntered && m_pEntered->isHidden())
        CloseEntry();
    else if (m_pEntered)
        m_pEntry->setGeometry(m_pEntered->geometry());
}

bool AxisRangeDisplay::event(QEvent * event)
{
    if (event->type() == QEvent::ScreenChangeInternal)
        PaintArrows();
    return QWidget::event(event);
}

void AxisRangeDisplay::resizeEvent(QResizeEvent * event)
{
    QWidget::resizeEvent(event);
    PlaceParts();
}

void AxisRangeDisplay::showEvent(QShowEvent * event)
{
    QWidget::showEvent(event);
    AxisBase const * const axis = m_axis.Get();
    if (axis && parentWidget() == axis && size() != axis->size())
        resize(axis->size());
    AdaptFontSize();
    PaintArrows();
    PlaceParts();
    ShowValues();
    RefreshLater(); // a write may end this
}

void AxisRangeDisplay::hideEvent(QHideEvent * event)
{
    CloseEntry();
    QWidget::hideEvent(event);
}

// Values

std::array<AxisRangeDisplay::Binding *, 4> AxisRangeDisplay::Bindings()
{
    return { &m_ruler1, &m_ruler2, &m_difference, &m_center };
}

void AxisRangeDisplay::MakeValue(Binding & binding, OwnValue & own)
{
    constexpr double Largest = std::numeric_limits<double>::max();
    own.path = GuiCentral::Instance().CreateUniqueValueFloat(0.0, -Largest, Largest, 0.0);
    if (Bind(binding, own.path))
        own.life = LifeWatch(binding.Get()->GetLifetime());
}

bool AxisRangeDisplay::Bind(Binding & binding, QString const & path)
{
    m_isBinding = true;
    bool const isBound = binding.BindPath(path);
    for (Binding * const other : Bindings()) { // one that shared the value before is no longer heard
        IValueNumeric * const value = other->Get();
        if (value && !value->HasObserver(this))
            other->Bind(value);
    }
    m_isBinding = false;
    if (!IsReady() || !isVisible())
        return isBound;
    LifeWatch const life(GetObserverLifetime());
    if (&binding == &m_difference || &binding == &m_center) {
        if (MoveRulers(eValueChanged))
            ShowValues();
    } else if (AreCrossed()) {
        RefreshLater(); // the other ruler may be bound next
    } else {
        Refresh();
    }
    return isBound && !life.IsOver() && binding.Get();
}

bool AxisRangeDisplay::SetRuler1_ValuePath(QString const & path) { return Bind(m_ruler1, path); }

bool AxisRangeDisplay::SetRuler2_ValuePath(QString const & path) { return Bind(m_ruler2, path); }

bool AxisRangeDisplay::SetCenter_ValuePath(QString const & path) { return Bind(m_center, path); }

bool AxisRangeDisplay::SetExportDifference_ValuePath(QString const & path) { return Bind(m_difference, path); }

//! Whether all four values are bound.
bool AxisRangeDisplay::IsReady()
{
    std::array<Binding *, 4> const bindings = Bindings();
    return std::all_of(bindings.begin(), bindings.end(), [](Binding const * binding) { return binding->Get(); });
}

void AxisRangeDisplay::Update(Observable * subject, TChangeCode code)
{
    auto const is = [subject](Binding const & binding) { return binding.Get() && binding.Get() == subject; };
    if (code == eStateChanged && (is(m_ruler1) || is(m_ruler2) || is(m_difference) || is(m_center))) {
        for (Binding * const binding : Bindings())
            binding->Hears(subject, code); // lets go of a value that goes away, in every role that it has
        return;
    }
    if (m_isBinding || !IsReady() || !isVisible())
        return;
    bool isDone = true;
    if (code == eValueChanged || code == eInterimChanged) {
        if (is(m_ruler1) || is(m_ruler2))
            isDone = FollowRulers(code);
        else if (is(m_difference) || is(m_center))
            isDone = MoveRulers(code);
    }
    if (isDone)
        ShowValues();
}

bool AxisRangeDisplay::AreCrossed() { return m_ruler2.Get()->GetNumericValue() < m_ruler1.Get()->GetNumericValue(); }

void AxisRangeDisplay::RefreshLater()
{
    QMetaObject::invokeMethod(this, &AxisRangeDisplay::Refresh, Qt::QueuedConnection);
}

//! Takes over what changed while this was hidden, or bound to other values.
void AxisRangeDisplay::Refresh()
{
    if (IsReady() && isVisible() && FollowRulers(eValueChanged))
        ShowValues();
}

namespace {

double Read(IValueNumeric const * value, TChangeCode code)
{
    return code == eInterimChanged ? value->GetInterimValue() : value->GetNumericValue();
}

} // namespace

//! \return whether this still lives, and nobody who heard of the write had all computed anew.
bool AxisRangeDisplay::Write(Binding & binding, double value, unsigned int turn)
{
    LifeWatch const life(GetObserverLifetime());
    if (binding.Get())
        binding.Get()->SetNumericValue(value, this);
    return !life.IsOver() && turn == m_turn;
}

//! Orders the rulers, and computes difference and centre. \return as Write().
bool AxisRangeDisplay::FollowRulers(TChangeCode code)
{
    unsigned int const turn = ++m_turn;
    double a = Read(m_ruler1.Get(), code);
    double b = Read(m_ruler2.Get(), code);
    if (b < a) {
        std::swap(a, b);
        if (!Write(m_ruler1, a, turn) || !Write(m_ruler2, b, turn))
            return false;
    }
    if (!Write(m_difference, b - a, turn))
        return false;
    return a == b || Write(m_center, (b - a) * 0.5 + a, turn);
}

//! Puts the rulers around the centre, half the difference away. \return as Write().
bool AxisRangeDisplay::MoveRulers(TChangeCode code)
{
    unsigned int const turn = ++m_turn;
    double const half = std::fabs(Read(m_difference.Get(), code)) * 0.5;
    double const center = Read(m_center.Get(), code);
    if (half == 0.0)
        return true;
    double const a = Read(m_ruler1.Get(), code);
    double const b = Read(m_ruler2.Get(), code);
    double const deviation = std::fabs(center + half - std::max(a, b)) + std::fabs(center - half - std::min(a, b));
    if (!(deviation > LeastDeviation))
        return true;
    return Write(m_ruler1, center - half, turn) && Write(m_ruler2, center + half, turn);
}

void AxisRangeDisplay::ShowValues()
{
    if (!IsReady())
        return;
    double const a = m_ruler1.Get()->GetInterimValue(); // read before others hear of the changed labels
    double const b = m_ruler2.Get()->GetInterimValue();
    ShowTexts();
    if (IsTimeAxis() && m_pCaption)
        m_pCaption->SetTimeCaption(a, b);
}

// Rulers on the axis

void AxisRangeDisplay::slotShowDiffRuler(bool show)
{
    if (m_pButton->isChecked() != show) {
        m_pButton->setChecked(show); // calls this again
        return;
    }
    LifeWatch const life(GetObserverLifetime());
    if (show)
        BringRulersIntoRange();
    if (!life.IsOver())
        ShowRuler(m_ruler1, show);
    if (!life.IsOver())
        ShowRuler(m_ruler2, show);
}

void AxisRangeDisplay::BringRulersIntoRange()
{
    AxisBase const * const server = m_server.Get();
    if (!server || !m_ruler1.Get() || !m_ruler2.Get())
        return;
    double const low = std::min(server->Start(), server->Stop());
    double const high = std::max(server->Start(), server->Stop());
    double const a = m_ruler1.Get()->GetNumericValue();
    double const b = m_ruler2.Get()->GetNumericValue();
    bool const areInside = a >= low && a <= high && b >= low && b <= high;
    double const quarter = high / 4.0 - low / 4.0;
    bool const hasRange = std::isfinite(low) && std::isfinite(high) && quarter > 0.0;
    if (!hasRange || (areInside && a != b))
        return;
    LifeWatch const life(GetObserverLifetime());
    GuiUndoRecordingHelper const recording(nullptr, tr("Move the rulers"));
    m_ruler1.Get()->SetNumericValue(low + quarter, this);
    if (life.IsOver() || !m_ruler2.Get())
        return;
    m_ruler2.Get()->SetNumericValue(high - quarter, this);
    if (!life.IsOver())
        Refresh(); // also when the second stood there already
}

void AxisRangeDisplay::ShowRuler(Binding const & binding, bool show)
{
    AxisBase * const server = m_server.Get();
    if (!server || !binding.Get())
        return;
    QString const path = binding.Get()->GetValueBase()->GetPathName();
    int const index = server->GetIndex(path);
    if (index >= 0)
        server->SetShowMarker(index, show);
    else
        server->sendSignalSetState(path, eMarkerShow, show);
}

void AxisRangeDisplay::slotRestoreDefaultPersistant() { m_pButton->setChecked(false); }
