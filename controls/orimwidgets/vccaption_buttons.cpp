// SPDX-License-Identifier: MIT
#include "captionlayout.h"
#include "captionpictures.h"
#include "captiontexts.h"
#include "vccaption.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLayout>
#include <QPushButton>
#include <QToolBar>

#include <algorithm>

namespace {

constexpr int ToolBarHeight = 28;       // px
constexpr int ToolBarPicture = 16;      // px
constexpr int ToolBarButton = 24;       // px, height
constexpr int ToolBarMargin = 2;        // px
constexpr int ButtonOverHeight = 7;     // px, what a button is wider than high
constexpr unsigned int MainStyles = 15; // the bits that exclude one another

} // namespace

// Making

unsigned int VCCaption::MainStyle() const
{
    unsigned int const main = m_Flags & MainStyles;
    return main & (~main + 1U); // its lowest bit
}

void VCCaption::MakeButtons()
{
    switch (MainStyle()) {
    case StyleToolBar:
        MakeToolBar();
        break;
    case StyleStopButton:
        MakeStopButton();
        break;
    case StyleKeepOnTop:
        MakeToolBar();
        MakeOnTopButton();
        break;
    case StyleFullButton:
        MakeFullButton();
        MakeStopButton();
        break;
    default:
        break;
    }
    if ((m_Flags & StyleDatastream) != 0)
        MakeDatastreamButton();
}

void VCCaption::MakeToolBar()
{
    m_pToolBar = new QToolBar(this);
    m_pToolBar->setObjectName(QStringLiteral("VCCaption Toolbar"));
    m_pToolBar->setAutoFillBackground(true);
    m_pToolBar->setIconSize(QSize(ToolBarPicture, ToolBarPicture));
    m_pToolBar->layout()->setContentsMargins(ToolBarMargin, 0, ToolBarMargin, 0);
    m_pToolBar->setFixedHeight(ToolBarHeight); // behind the rest, which takes it back
    m_pLayout->addWidget(m_pToolBar);

    m_pExitAction = new QAction(m_pToolBar);
    m_pExitAction->setObjectName(QStringLiteral("exit"));
    m_pExitAction->setCheckable(true);
    bool const isOnTop = MainStyle() == StyleKeepOnTop;
    m_pExitAction->setIcon(
        CaptionPictures::Icon(isOnTop ? CaptionPictures::eExit : CaptionPictures::eStop, ToolBarPicture));
    connect(m_pExitAction, &QAction::triggered, this, &VCCaption::ButtonClick);
    connect(m_pExitAction, &QAction::triggered, this, &VCCaption::si_stopButtonStateChanged);
    m_pToolBar->addAction(m_pExitAction);
    if (QWidget * const button = m_pToolBar->widgetForAction(m_pExitAction)) {
        button->setAccessibleName(tr("Stop"));
        button->setFocusPolicy(Qt::TabFocus);
    }
}

QPushButton * VCCaption::MakeButton(QWidget * parent, char const * name, QString const & toolTip)
{
    auto * const button = new QPushButton(parent);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(toolTip);
    button->setAccessibleName(toolTip);
    button->setFocusPolicy(Qt::TabFocus); // a click leaves the focus where it is
    if (parent != this)
        return button;
    int const height = std::clamp(m_Height, 0, QWIDGETSIZE_MAX - ButtonOverHeight);
    int const extent = CaptionLayout::PictureExtent(height);
    button->setFixedSize(height + ButtonOverHeight, height);
    button->setIconSize(QSize(extent, extent));
    m_pLayout->addWidget(button);
    return button;
}

void VCCaption::MakeOnTopButton()
{
    m_pOnTopButton = MakeButton(m_pToolBar, "KeepOnTop", tr("Keep On Top"));
    m_pOnTopButton->setCheckable(true);
    m_pOnTopButton->setFixedSize(ToolBarButton + ButtonOverHeight, ToolBarButton);
    m_pOnTopButton->setIconSize(QSize(ToolBarPicture, ToolBarPicture));
    ShowTopPicture();
    connect(m_pOnTopButton, &QPushButton::toggled, this, &VCCaption::ShowTopPicture);
    connect(m_pOnTopButton, &QPushButton::clicked, this, &VCCaption::slotTopButtonClick);
    m_pToolBar->addWidget(m_pOnTopButton);
}

void VCCaption::MakeFullButton()
{
    m_pOnTopButton = MakeButton(this, "Waterfall only", tr("Waterfall only"));
    m_pOnTopButton->setIcon(CaptionPictures::Icon(CaptionPictures::eFull, m_pOnTopButton->iconSize().width()));
    m_pOnTopButton->hide();
    connect(m_pOnTopButton, &QPushButton::clicked, this, &VCCaption::signalFullButtonClick);
}

void VCCaption::MakeStopButton()
{
    m_pStopButton = MakeButton(this, "stop", tr("Start or stop waterfall"));
    m_pStopButton->setStatusTip(CaptionTexts::Pause());
    m_pStopButton->setCheckable(true);
    m_pStopButton->setIcon(CaptionPictures::PauseIcon());
    connect(m_pStopButton, &QPushButton::clicked, this, &VCCaption::slotStopButtonClick);
}

void VCCaption::MakeDatastreamButton()
{
    m_pDatastreamButton = MakeButton(this, "StartStopDatastream", tr("Start or stop underlying data stream"));
    m_pDatastreamButton->setCheckable(true);
    m_pDatastreamButton->setIcon(CaptionPictures::DatastreamIcon());
    connect(m_pDatastreamButton, &QPushButton::toggled, this, &VCCaption::TellToggled);
}

// Asking and setting

QPushButton * VCCaption::GetOnTopButton() const { return m_pOnTopButton; }

QPushButton * VCCaption::GetStartStopDatastreamButton() const { return m_pDatastreamButton; }

QToolBar * VCCaption::getToolBar() const { return m_pToolBar; }

QHBoxLayout * VCCaption::getLayout() const { return m_pLayout; }

bool VCCaption::IsKeepOnTop() const { return m_pOnTopButton && m_pOnTopButton->isChecked(); }

void VCCaption::SetFullButtonVisible(bool on)
{
    if (MainStyle() == StyleFullButton && m_pOnTopButton)
        m_pOnTopButton->setVisible(on);
    if (m_pLayout)
        m_pLayout->activate();
}

bool VCCaption::GetStartStopDatastreamButtonState() const
{
    return m_pDatastreamButton && m_pDatastreamButton->isChecked();
}

bool VCCaption::SetStartStopDatastreamButtonState(bool on)
{
    if (!m_pDatastreamButton || m_pDatastreamButton->isChecked() == on)
        return false;
    m_pDatastreamButton->setChecked(on);
    return true;
}

void VCCaption::setStopButtonEnabled(bool on)
{
    if (m_pExitAction)
        m_pExitAction->setEnabled(on);
    else if (m_pStopButton)
        m_pStopButton->setEnabled(on);
}

void VCCaption::triggerStopButton()
{
    if (m_pExitAction) {
        if (m_pExitAction->isChecked())
            m_pExitAction->trigger();
    } else if (m_pStopButton && m_pStopButton->isChecked()) {
        m_pStopButton->animateClick();
    }
}

void VCCaption::TellToggled(bool on)
{
    QPointer<VCCaption> const self(this);
    bool const wasToggling = m_IsToggling; // whoever hears it may toggle it back
    m_IsToggling = true;
    Q_EMIT DatastreamButtonToggled(on);
    if (self)
        m_IsToggling = wasToggling;
}

void VCCaption::LeaveToggledButton()
{
    if (!m_IsToggling || !m_pDatastreamButton)
        return;
    m_pDatastreamButton->setParent(nullptr);
    m_pDatastreamButton->deleteLater();
}

// Slots

void VCCaption::ShowTopPicture()
{
    if (MainStyle() == StyleKeepOnTop && m_pOnTopButton)
        m_pOnTopButton->setIcon(CaptionPictures::Icon(
            m_pOnTopButton->isChecked() ? CaptionPictures::eOnTop : CaptionPictures::eNotOnTop, ToolBarPicture));
}

void VCCaption::slotTopButtonClick()
{
    if (!m_pOnTopButton)
        return;
    ShowTopPicture();
    Q_EMIT OnTopButtonClick();
}

bool VCCaption::ShowStopped(bool stopped)
{
    QString const & toolTip = stopped ? CaptionTexts::Resume() : CaptionTexts::Pause();
    if (m_pExitAction) {
        m_pExitAction->setToolTip(toolTip);
        m_pExitAction->setChecked(stopped);
    } else if (m_pStopButton) {
        m_pStopButton->setToolTip(toolTip);
        m_pStopButton->setChecked(stopped);
    } else {
        return false;
    }
    return true;
}

void VCCaption::slotStopped()
{
    if (!ShowStopped(true) || !m_Running)
        return;
    m_Running = false;
    Q_EMIT Stop();
}

void VCCaption::slotStarted()
{
    if (!ShowStopped(false) || m_Running)
        return;
    m_Running = true;
    Q_EMIT Start();
}

void VCCaption::slotRunning(bool on)
{
    if (on == m_Running)
        return;
    if (on)
        slotStarted();
    else
        slotStopped();
}

void VCCaption::sl_paused(bool paused)
{
    if (paused)
        slotStopped();
    else
        slotStarted();
}

void VCCaption::slotStopButtonClick()
{
    if (!m_pStopButton)
        return;
    bool const wasStopped = m_pStopButton->isChecked();
    QPointer<VCCaption> const self(this);
    if (wasStopped)
        slotStopped();
    else
        slotStarted();
    if (self) // whoever heard it may have turned it round
        Q_EMIT si_stopButtonStateChanged(m_pStopButton ? m_pStopButton->isChecked() : wasStopped);
}
