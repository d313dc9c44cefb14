// SPDX-License-Identifier: MIT
#include "paneframe.h"

#include "frequencyaxis.h"
#include "numbertexts.h"
#include "rangebar.h"
#include "rangepane.h"
#include "toint.h"
#include "vccaption.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace {

constexpr int FontSize = 8;  // points
constexpr int Spare = 5;     // px, of the caption above and below its texts
constexpr int ButtonGap = 4; // px
constexpr int TextGap = 20;  // px, of the caption around each text

//! The widest texts in the middle and at the right.
char const * const WidestTimes = "0000-00-00 00:00:00 - 00:00:00  [00:00:00]";
char const * const WidestState = "Running  000.0 lines/s";

QFont CaptionFont()
{
    QFont font;
    font.setPointSize(FontSize);
    return font;
}

int CaptionHeight() { return QFontMetrics(CaptionFont()).height() + Spare; }

unsigned int CaptionStyle(PaneForm const & form)
{
    unsigned int const times = form.hasTimes ? VCCaption::StyleTimeZonePopup : 0U;
    unsigned int const stream = form.hasDatastream ? VCCaption::StyleDatastream : 0U;
    return VCCaption::StyleFullButton | times | stream;
}

} // namespace

PaneFrame::PaneFrame(PaneForm const & form, QWidget * parent)
    : QWidget(parent)
    , m_form(form)
    , m_pRangePane(qobject_cast<RangePane *>(form.pane))
{
    setObjectName(m_form.pane->objectName() + QStringLiteral("Frame"));
    BuildCaption();
    auto * const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_pCaption);
    layout->addWidget(m_form.pane, 1);
    m_pRanges = new RangeBar(this);
    layout->addWidget(m_pRanges);
    SetFull(false);
    if (!m_pRangePane) {
        m_pCaption->SetCaptionLeft(m_form.name);
        return;
    }
    ShowBand();
    connect(&m_pRangePane->GetFrequencyAxis(), &AxisBase::signalRangeChanged, this, &PaneFrame::ShowBand);
    m_pRangePane->installEventFilter(this);
}

PaneFrame::~PaneFrame() = default;

void PaneFrame::BuildCaption()
{
    m_pCaption = new VCCaption(this, "caption", CaptionStyle(m_form), CaptionHeight(), FontSize);
    m_pCaption->setAccessibleName(tr("Caption of %1").arg(m_form.name));
    m_pCaption->getLayout()->insertSpacing(1, ButtonGap); // between the space of the texts and the buttons
    m_pCaption->SetFullButtonVisible(true);
    m_pCaption->SetTimeCaptionFormat(QStringLiteral("yyyy-MM-dd hh:mm:ss"), QStringLiteral(" - hh:mm:ss"),
                                     QStringLiteral("  [mm:ss]"));
    m_pCaption->SetStartStopDatastreamButtonState(m_playing);
    m_pCaption->SetWheelConsumer(this);
    connect(m_pCaption, &VCCaption::Stop, this, [this] { SetHeld(true); });
    connect(m_pCaption, &VCCaption::Start, this, [this] { SetHeld(false); });
    connect(m_pCaption, &VCCaption::signalFullButtonClick, this, &PaneFrame::signalFull);
    connect(m_pCaption, &VCCaption::CaptionDoubleClick, this, &PaneFrame::signalFull);
    connect(m_pCaption, &VCCaption::DatastreamButtonToggled, this, [this](bool on) {
        if (on != m_playing)
            Q_EMIT signalPlay(on);
    });
}

void PaneFrame::TakeLines(PaneLines const & lines)
{
    if (!m_held && m_form.take && !lines.empty())
        m_form.take(lines);
}

void PaneFrame::SetHeld(bool held)
{
    if (held == m_held)
        return;
    m_held = held;
    m_pCaption->sl_paused(held);
    if (m_form.hold)
        m_form.hold(held);
    ShowState();
    Q_EMIT signalHeld(held);
}

void PaneFrame::SetState(QString const & state)
{
    m_state = state;
    ShowState();
}

void PaneFrame::ShowState()
{
    QString const text = m_held ? tr("Held") : m_state;
    if (text != m_pCaption->GetCaptionRight())
        m_pCaption->SetCaptionRight(text);
}

void PaneFrame::SetTimes(double oldest, double newest)
{
    if (oldest > 0.0 && newest > 0.0)
        m_pCaption->SetTimeCaption(oldest, newest);
    else
        m_pCaption->SetCaptionCenter(QString());
}

void PaneFrame::TakeTimes(double oldest, double newest)
{
    if (!m_held)
        SetTimes(oldest, newest);
}

void PaneFrame::SetPlaying(bool playing)
{
    m_playing = playing;
    m_pCaption->SetStartStopDatastreamButtonState(playing);
}

void PaneFrame::SetFull(bool full)
{
    QPushButton * const button = m_pCaption->GetOnTopButton();
    QString const text = full ? tr("All panes (F11)") : tr("%1 only (F11)").arg(m_form.name);
    if (!button)
        return;
    button->setToolTip(text);
    button->setAccessibleName(text);
}

//! The name, the middle and the span of the pane, as exactly as its pixels tell them apart.
QString PaneFrame::BandText(bool span) const
{
    FrequencyRange const range = m_pRangePane->GetFrequencyRange();
    double const step = range.span / std::max(1, m_pRangePane->GetPictureRect().width());
    QString const middle = NumberTexts::FrequencyWithUnit(range.start + range.span / 2.0, step);
    return span ? tr("%1  %2  span %3").arg(m_form.name, middle, NumberTexts::FrequencyWithUnit(range.span, step))
                : tr("%1  %2").arg(m_form.name, middle);
}

//! As much as leaves room for the other texts: a caption with too little of it drops all but one.
void PaneFrame::ShowBand()
{
    QFontMetrics const metrics(CaptionFont());
    int room = m_pRangePane->width() - metrics.horizontalAdvance(QLatin1String(WidestState)) - 2 * TextGap;
    for (QPushButton const * const button : m_pCaption->findChildren<QPushButton *>())
        room -= button->sizeHint().width();
    if (m_form.hasTimes)
        room -= metrics.horizontalAdvance(QLatin1String(WidestTimes)) + TextGap;
    QString text = BandText(true);
    if (metrics.horizontalAdvance(text) > room)
        text = BandText(false);
    if (metrics.horizontalAdvance(text) > room)
        text = m_form.name;
    if (text != m_pCaption->GetCaptionLeft())
        m_pCaption->SetCaptionLeft(text);
}

//! The displays stand below the picture.
void PaneFrame::GiveRoom()
{
    double const ratio = m_pRangePane->GetRatio();
    QRect const picture = m_pRangePane->GetPictureRect();
    int const left = toInt(std::round(picture.left() / ratio));
    int const right = m_pRangePane->width() - toInt(std::round((picture.left() + picture.width()) / ratio));
    m_pRanges->SetRoom(size() - QSize(0, m_pCaption->height()), left, std::max(0, right));
}

void PaneFrame::Zoom(int key)
{
    QKeyEvent const press(QEvent::KeyPress, key, Qt::NoModifier);
    if (m_pRangePane)
        m_pRangePane->GetFrequencyAxis().TakeKey(&press);
}

void PaneFrame::WheelDown() { Zoom(Qt::Key_Minus); }

void PaneFrame::WheelUp() { Zoom(Qt::Key_Plus); }

void PaneFrame::keyPressEvent(QKeyEvent * event)
{
    bool const isPlain = event->modifiers() == Qt::NoModifier && !event->isAutoRepeat();
    if (isPlain && event->key() == Qt::Key_F11)
        Q_EMIT signalFull();
    else if (isPlain && event->key() == Qt::Key_H)
        SetHeld(!m_held);
    else if (isPlain && event->key() == Qt::Key_Space)
        Q_EMIT signalPlay(!m_playing);
    else
        QWidget::keyPressEvent(event);
}

bool PaneFrame::eventFilter(QObject * watched, QEvent * event)
{
    bool const isLayout = event->type() == QEvent::Resize || event->type() == QEvent::FontChange;
    if (watched == m_pRangePane && isLayout) {
        m_pRangePane->Refresh();
        ShowBand(); // another width tells frequencies apart by another step
        GiveRoom();
    }
    return QWidget::eventFilter(watched, event);
}
