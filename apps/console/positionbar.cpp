// SPDX-License-Identifier: MIT
#include "positionbar.h"

#include "colorset.h"
#include "guibase.h"
#include "numbertexts.h"
#include "panelayout.h"
#include "toint.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPixmap>
#include <QProxyStyle>
#include <QSignalBlocker>
#include <QSlider>
#include <QStyleOptionSlider>
#include <QToolButton>

#include <algorithm>
#include <cmath>

namespace {

constexpr int IconSize = 16; // px
constexpr int BarSteps = 10000;
constexpr int KeySteps = 50;   // an arrow key: half a percent
constexpr int PageSteps = 500; // a page key: five percent

//! A click on the bar goes there, instead of one page towards it; the handle has the colour of position cursors.
class JumpStyle : public QProxyStyle
{
public:
    void drawComplexControl(ComplexControl control, QStyleOptionComplex const * option, QPainter * painter,
                            QWidget const * widget) const override
    {
        auto const * const slider = qstyleoption_cast<QStyleOptionSlider const *>(option);
        if (control != CC_Slider || !slider || !slider->state.testFlag(State_Enabled)) {
            QProxyStyle::drawComplexControl(control, option, painter, widget);
            return;
        }
        QStyleOptionSlider groove(*slider);
        groove.subControls.setFlag(SC_SliderHandle, false);
        QProxyStyle::drawComplexControl(control, &groove, painter, widget);
        bool const focused = slider->state.testFlag(State_HasFocus);
        QRect const handle = subControlRect(CC_Slider, slider, SC_SliderHandle, widget).adjusted(1, 1, -1, -1);
        painter->fillRect(handle, slider->palette.color(focused ? QPalette::Highlight : QPalette::WindowText));
        painter->fillRect(handle.adjusted(2, 2, -2, -2), ColorSet::Instance()[IColorBase::eColorPositionCursor]);
    }

    int styleHint(StyleHint hint, QStyleOption const * option, QWidget const * widget,
                  QStyleHintReturn * returned) const override
    {
        return hint == SH_Slider_AbsoluteSetButtons ? static_cast<int>(Qt::LeftButton)
                                                    : QProxyStyle::styleHint(hint, option, widget, returned);
    }
};

//! A sign on a transparent ground; \a paint draws it in a square of IconSize.
template <class Paint>
QIcon IconOf(double ratio, QColor const & color, Paint paint)
{
    QPixmap picture(PaneLayout::ToDevice(QSize(IconSize, IconSize), ratio));
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    paint(painter);
    painter.end();
    return { picture };
}

} // namespace

PositionBar::PositionBar(QWidget * parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("positionBar"));
    BuildButtons();
    BuildBar();
    auto * const layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 2, 6, 2);
    layout->addWidget(m_pPlay);
    layout->addWidget(m_pPause);
    layout->addWidget(m_pTime);
    layout->addWidget(m_pBar, 1);
    layout->addWidget(m_pLength);
    SetPlaying(false);
    SetDuration(0.0);
}

PositionBar::~PositionBar() = default;

void PositionBar::BuildButtons()
{
    auto const button = [this](char const * name, QString const & text) {
        auto * const made = new QToolButton(this);
        made->setObjectName(QLatin1String(name));
        made->setToolTip(text);
        made->setAccessibleName(text);
        made->setCheckable(true);
        made->setAutoRaise(true);
        made->setFocusPolicy(Qt::StrongFocus);
        return made;
    };
    m_pPlay = button("play", tr("Play"));
    m_pPause = button("pause", tr("Pause"));
    PaintIcons();
    // a click checks the button by itself; the state shown is the one that is set
    connect(m_pPlay, &QToolButton::clicked, this, [this] {
        SetPlaying(m_playing);
        Q_EMIT signalPlay();
    });
    connect(m_pPause, &QToolButton::clicked, this, [this] {
        SetPlaying(m_playing);
        Q_EMIT signalPause();
    });
}

//! The signs bear the colour of the button's text, so that they are seen in every colour set.
void PositionBar::PaintIcons()
{
    QColor const color = palette().color(QPalette::ButtonText);
    m_pPlay->setIcon(IconOf(devicePixelRatioF(), color, [](QPainter & painter) {
        painter.drawPolygon(QPolygonF({ { 4.0, 2.0 }, { 14.0, 8.0 }, { 4.0, 14.0 } }));
    }));
    m_pPause->setIcon(IconOf(devicePixelRatioF(), color, [](QPainter & painter) {
        painter.drawRect(QRectF(3.0, 2.0, 4.0, 12.0));
        painter.drawRect(QRectF(9.0, 2.0, 4.0, 12.0));
    }));
}

void PositionBar::changeEvent(QEvent * event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && m_pPlay && m_pPause)
        PaintIcons();
}

void PositionBar::BuildBar()
{
    m_pBar = new QSlider(Qt::Horizontal, this);
    m_pBar->setObjectName(QStringLiteral("bar"));
    m_pBar->setAccessibleName(tr("Position"));
    m_pBar->setRange(0, BarSteps);
    m_pBar->setSingleStep(KeySteps);
    m_pBar->setPageStep(PageSteps);
    auto * const jump = new JumpStyle;
    jump->setParent(m_pBar);
    m_pBar->setStyle(jump);
    connect(m_pBar, &QSlider::valueChanged, this, &PositionBar::slotBarMoved);
    connect(&GuiBase::Instance(), &GuiBase::signalColorsChanged, m_pBar, qOverload<>(&QWidget::update));
    m_pTime = new QLabel(this);
    m_pTime->setObjectName(QStringLiteral("time"));
    m_pTime->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_pLength = new QLabel(this);
    m_pLength->setObjectName(QStringLiteral("length"));
}

void PositionBar::SetDuration(double seconds)
{
    m_duration = std::isfinite(seconds) && seconds > 0.0 ? seconds : 0.0;
    m_position = m_duration > 0.0 ? std::min(m_position, m_duration) : m_position;
    m_pBar->setEnabled(m_duration > 0.0);
    m_pLength->setText(m_duration > 0.0 ? NumberTexts::Time(m_duration, TextStep()) + QLatin1String(" s") : tr("live"));
    // the text keeps its width while the time runs
    QString const widest = m_duration > 0.0 ? NumberTexts::Time(m_duration, TextStep()) : QStringLiteral("0000:00.0");
    m_pTime->setMinimumWidth(fontMetrics().horizontalAdvance(widest) +
                             fontMetrics().horizontalAdvance(QLatin1Char('0')));
    SetPosition(m_position);
}

void PositionBar::SetPosition(double seconds)
{
    if (!std::isfinite(seconds) || m_pBar->isSliderDown())
        return;
    m_position = std::max(0.0, m_duration > 0.0 ? std::min(seconds, m_duration) : seconds);
    ShowBar();
    ShowTexts();
}

void PositionBar::SetPlaying(bool playing)
{
    m_playing = playing;
    m_pPlay->setChecked(playing);
    m_pPause->setChecked(!playing);
}

void PositionBar::keyPressEvent(QKeyEvent * event)
{
    if (event->key() != Qt::Key_Space || event->isAutoRepeat()) {
        QWidget::keyPressEvent(event);
        return;
    }
    if (m_playing)
        Q_EMIT signalPause();
    else
        Q_EMIT signalPlay();
}

void PositionBar::slotBarMoved(int value)
{
    m_position = ValueToSeconds(value);
    ShowTexts();
    Q_EMIT signalSeek(std::min(m_position, std::nextafter(m_duration, 0.0))); // the very end folds to the beginning
}

//! Moves the bar when that moves it by a pixel.
void PositionBar::ShowBar()
{
    int const value = m_duration > 0.0 ? toInt(std::round(m_position / m_duration * BarSteps)) : 0;
    int const pixel = BarSteps / std::max(1, m_pBar->width());
    if (std::abs(value - m_pBar->value()) < pixel && value != 0 && value != BarSteps)
        return;
    QSignalBlocker const quiet(m_pBar);
    m_pBar->setValue(value);
}

void PositionBar::ShowTexts()
{
    QString const text = NumberTexts::Time(m_position, TextStep());
    if (text != m_pTime->text())
        m_pTime->setText(text);
}

double PositionBar::ValueToSeconds(int value) const { return m_duration * value / BarSteps; }

double PositionBar::TextStep() const
{
    constexpr double shortRecording = 5.0; // s
    return m_duration > 0.0 && m_duration < shortRecording ? 0.001 : 0.1;
}
