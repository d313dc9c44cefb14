// SPDX-License-Identifier: MIT
#include "consolewindow.h"

#include "axisrangedisplay.h"
#include "azimuthbutton.h"
#include "bearingpane.h"
#include "colorset.h"
#include "consolemarkers.h"
#include "controlstrip.h"
#include "frequencyaxis.h"
#include "guibase.h"
#include "levelfit.h"
#include "levelgradients.h"
#include "lineplayer.h"
#include "numbertexts.h"
#include "panecolors.h"
#include "panestack.h"
#include "persistencecontrols.h"
#include "persistencepane.h"
#include "positionbar.h"
#include "rangebar.h"
#include "signalwindows.h"
#include "spectrumpane.h"
#include "statusline.h"
#include "timeaxis.h"
#include "toint.h"
#include "undobuttons.h"
#include "undorecording.h"
#include "waterfallpane.h"

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QTimerEvent>
#include <QToolButton>
#include <QUndoStack>
#include <QVBoxLayout>

#include <cmath>

namespace {

constexpr int StatusPeriod = 1000; // ms
constexpr QSize StartSize(1100, 760);
constexpr double Megahertz = 1e6;
constexpr double MillisecondsASecond = 1e3;
constexpr double Kilohertz = 1e3;
constexpr double FullScale = 0.0;    // dBFS
constexpr double Microseconds = 1e6; // a second
constexpr int LeastTimedHeight = 80; // px, of the pane with rows, above its range displays

} // namespace

ConsoleWindow::ConsoleWindow(std::unique_ptr<LinePlayer> player, QString const & source, QWidget * parent)
    : QMainWindow(parent)
    , m_pPlayer(std::move(player))
{
    setObjectName(QStringLiteral("consoleWindow"));
    setWindowTitle(source + QStringLiteral(" - orim-console"));
    auto * const middle = new QWidget(this);
    auto * const layout = new QVBoxLayout(middle);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    BuildControls();
    BuildPanes();
    m_pPosition = new PositionBar(middle);
    m_pStatus = new StatusLine(middle);
    m_pStatus->SetSource(source);
    layout->addWidget(m_pControls);
    layout->addWidget(m_pPanes, 1);
    layout->addWidget(m_pPosition);
    layout->addWidget(m_pStatus);
    setCentralWidget(middle);
    ConnectPlayer();
    FollowValues();
    BindPanes();
    BuildRanges();
    m_pMarkers = new ConsoleMarkers(*m_pSpectrum, *m_pPanes, this);
    m_pWindows = new SignalWindows(*m_pSpectrum, m_pPanes->RangePanes(), this);
    connect(&GuiBase::Instance(), &GuiBase::signalColorsChanged, this, &ConsoleWindow::slotColorsChanged);
    slotColorsChanged();
    resize(StartSize);
    m_statusTimer.start(StatusPeriod, this);
}

ConsoleWindow::~ConsoleWindow() { m_pPlayer->Stop(); }

void ConsoleWindow::Start() { m_pPlayer->Start(); }

void ConsoleWindow::BuildControls()
{
    m_pControls = new ControlStrip(this);
    auto const path = [](char const * text) { return QString(QLatin1String(text)); };
    m_pControls->AddNumber(QStringLiteral("centre"), tr("Centre"), path(ConsolePaths::Centre),
                           { Megahertz, " MHz", 6, 0.01, nullptr });
    m_pControls->AddNumber(QStringLiteral("span"), tr("Span"), path(ConsolePaths::Span),
                           { Kilohertz, " kHz", 3, 10.0, nullptr });
    m_pControls->AddNumber(QStringLiteral("levelMin"), tr("From"), path(ConsolePaths::LevelMin),
                           { 1.0, " dB", 0, 5.0, nullptr });
    m_pControls->AddNumber(QStringLiteral("levelMax"), tr("To"), path(ConsolePaths::LevelMax),
                           { 1.0, " dB", 0, 5.0, nullptr });
    auto * const fit = new QToolButton(m_pControls);
    fit->setObjectName(QStringLiteral("fit"));
    fit->setText(tr("Fit"));
    fit->setToolTip(tr("Fit the level range to the signal"));
    connect(fit, &QToolButton::clicked, this, [this] {
        GuiUndoRecordingHelper const step(nullptr, tr("Fit of the level range"));
        FitLevelRange();
    });
    m_pControls->AddControl(QString(), fit);
    m_pControls->AddSelection(QStringLiteral("window"), tr("Window"), path(ConsolePaths::Window));
    m_pControls->AddSelection(QStringLiteral("bins"), tr("Bins"), path(ConsolePaths::Bins));
    m_pControls->AddNumber(QStringLiteral("averaging"), tr("Average"), path(ConsolePaths::Averaging),
                           { 1.0, "", 0, 1.0, QT_TR_NOOP("all") });
    m_pControls->AddNumber(QStringLiteral("lineRate"), tr("Lines/s"), path(ConsolePaths::LineRate),
                           { 1.0, "", 0, 5.0, nullptr });
    m_pControls->AddNumber(QStringLiteral("speed"), tr("Speed"), path(ConsolePaths::Speed),
                           { 1.0, " x", 2, 0.25, nullptr });
    m_pControls->AddSelection(QStringLiteral("gradient"), tr("Waterfall"), path(ConsolePaths::Gradient));
    auto * const mark = new QToolButton(m_pControls);
    mark->setObjectName(QStringLiteral("mark"));
    mark->setText(tr("Mark"));
    mark->setToolTip(tr("Mark the highest signal with a window (Insert)"));
    connect(mark, &QToolButton::clicked, this, [this] { m_pWindows->Mark(); });
    m_pControls->AddControl(QString(), mark);
    AddPersistenceControls(*m_pControls, [this] { m_pPersistence->Clear(); });
    m_pControls->AddSwitches(tr("Markers"),
                             { { QStringLiteral("marker1"), tr("M1"), path(ConsolePaths::Marker1Shown) },
                               { QStringLiteral("marker2"), tr("M2"), path(ConsolePaths::Marker2Shown) },
                               { QStringLiteral("levelMarker"), tr("Level"), path(ConsolePaths::LevelMarkerShown) },
                               { QStringLiteral("time1"), tr("T1"), path(ConsolePaths::Time1Shown) },
                               { QStringLiteral("time2"), tr("T2"), path(ConsolePaths::Time2Shown) } });
    m_pControls->AddSwitches(
        tr("Panes"), { { QStringLiteral("persistence"), tr("Persistence"), path(ConsolePaths::PersistenceShown) },
                       { QStringLiteral("azimuth"), tr("Azimuth"), path(ConsolePaths::AzimuthShown) },
                       { QStringLiteral("elevation"), tr("Elevation"), path(ConsolePaths::ElevationShown) } });
    m_pControls->AddControl(tr("Bearings"), new AzimuthButton(m_pControls));
    m_pColorSets = ColorSet::GetColorSetsComboBox(m_pControls);
    m_pColorSets->setObjectName(QStringLiteral("colorSets"));
    connect(m_pColorSets, qOverload<int>(&QComboBox::activated), this,
            [](int index) { ColorSet::Instance().Load(index); });
    m_pControls->AddControl(tr("Colours"), m_pColorSets);
    GuiBase::Instance().GetTimeZone(); // stands in the tree from now on
    m_pControls->AddSelection(QStringLiteral("timeZone"), tr("Time"), path(ConsolePaths::TimeZone));
    m_pControls->AddControl(QString(), new UndoButtons(m_pControls));
}

//! Every pane stands here, from the top down. One with a frequency range is bound to the values of the console, shows
//! its markers and windows and takes its colours by being here.
void ConsoleWindow::BuildPanes()
{
    m_pPanes = new PaneStack(this);
    m_pSpectrum = new SpectrumPane;
    m_pWaterfall = new WaterfallPane;
    m_pPanes->AddPane({ m_pSpectrum, tr("Spectrum"), 2, PaneLevels::eRows, QString(),
                        [this](PaneLines const & lines) { m_pSpectrum->SetLine(lines.back()); }, nullptr, false,
                        true });
    m_pPersistence = new PersistencePane;
    m_pPanes->AddPane({ m_pPersistence, tr("Persistence"), 2, PaneLevels::eRows,
                        QLatin1String(ConsolePaths::PersistenceShown),
                        [this](PaneLines const & lines) { m_pPersistence->AppendLines(lines); },
                        [this](bool held) { m_pPersistence->SetHeld(held); }, true, true });
    m_pTimes = m_pPanes->AddPane({ m_pWaterfall, tr("Waterfall"), 3, PaneLevels::eColors, QString(),
                                   [this](PaneLines const & lines) { m_pWaterfall->AppendLines(lines); }, nullptr, true,
                                   true });
    connect(m_pWaterfall, &WaterfallPane::signalTimes, this, &ConsoleWindow::slotTimes);
    m_pAzimuth = AddBearings(BearingAxis::Kind::eAzimuth, tr("Azimuth"), ConsolePaths::AzimuthShown);
    m_pElevation = AddBearings(BearingAxis::Kind::eElevation, tr("Elevation"), ConsolePaths::ElevationShown);
    for (RangePane * const pane : m_pPanes->RangePanes())
        pane->SetFrameStats(&m_stats);
}

BearingPane * ConsoleWindow::AddBearings(BearingAxis::Kind kind, QString const & name, char const * shownPath)
{
    auto * const pane = new BearingPane(kind);
    pane->SetHistory(&m_bearings.History());
    m_pPanes->AddPane({ pane, name, 2, PaneLevels::eNone, QLatin1String(shownPath), nullptr,
                        [pane](bool on) { pane->Hold(on); }, true, true });
    return pane;
}

void ConsoleWindow::ConnectPlayer()
{
    LinePlayer * const player = m_pPlayer.get();
    m_pPosition->SetDuration(player->Duration());
    connect(player, &LinePlayer::signalPlaying, this, &ConsoleWindow::ShowState);
    connect(player, &LinePlayer::signalLines, this, &ConsoleWindow::slotLines);
    connect(player, &LinePlayer::signalPosition, m_pPosition, &PositionBar::SetPosition);
    connect(m_pPosition, &PositionBar::signalSeek, player, &LinePlayer::Seek);
    connect(m_pPosition, &PositionBar::signalSeek, this, &ConsoleWindow::ShowState);
    connect(m_pPanes, &PaneStack::signalPlay, this, &ConsoleWindow::slotPlay);
    connect(m_pPosition, &PositionBar::signalPlay, this, [this] { slotPlay(true); });
    connect(m_pPosition, &PositionBar::signalPause, this, [this] { slotPlay(false); });
    ShowState();
}

void ConsoleWindow::BindPanes()
{
    std::vector<ScaleAxis *> frequencyScales;
    std::vector<ScaleAxis *> levelScales;
    for (PaneFrame const * const frame : m_pPanes->Frames()) {
        auto * const pane = qobject_cast<RangePane *>(&frame->Pane());
        if (!pane)
            continue;
        pane->SetStart_ValuePath(QLatin1String(ConsolePaths::Start));
        pane->SetStop_ValuePath(QLatin1String(ConsolePaths::Stop));
        FrequencyAxis & frequencies = pane->GetFrequencyAxis();
        frequencies.SetDefaultStart_ValuePath(QLatin1String(ConsolePaths::BandStart));
        frequencies.SetDefaultStop_ValuePath(QLatin1String(ConsolePaths::BandStop));
        frequencies.SetDeviceStart_ValuePath(QLatin1String(ConsolePaths::DeviceStart));
        frequencies.SetDeviceStop_ValuePath(QLatin1String(ConsolePaths::DeviceStop));
        frequencyScales.push_back(&frequencies);
        if (frame->Form().levels != PaneLevels::eNone) {
            BindLevels(*pane);
            levelScales.push_back(&pane->GetLevelScale());
        }
        pane->BindResults();
    }
    m_pPersistence->SetHold_ValuePath(QLatin1String(ConsolePaths::Hold));
    m_pPersistence->SetQuality_ValuePath(QLatin1String(ConsolePaths::Quality));
    m_pPersistence->SetAgeing_ValuePath(QLatin1String(ConsolePaths::Ageing));
    m_pPersistence->SetSource(m_pPlayer->Duration());
    ScaleAxis::ShareUnZoom(frequencyScales);
    ScaleAxis::ShareUnZoom(levelScales);
}

void ConsoleWindow::BindLevels(RangePane & pane)
{
    pane.SetLevelMin_ValuePath(QLatin1String(ConsolePaths::LevelMin));
    pane.SetLevelMax_ValuePath(QLatin1String(ConsolePaths::LevelMax));
    ScaleAxis & levels = pane.GetLevelScale();
    levels.SetDefaultRange(LevelFloor, FullScale);
    levels.SetLeastSpan(ConsoleValues::LeastLevelSpan);
    connect(&levels, &ScaleAxis::signalBest, this, &ConsoleWindow::FitLevelRange);
}

void ConsoleWindow::BuildRanges()
{
    for (PaneFrame const * const frame : m_pPanes->Frames()) {
        if (auto * const pane = qobject_cast<RangePane *>(&frame->Pane()))
            frame->Ranges().Add({ &pane->GetFrequencyAxis(), "frequencyRange", AxisRangeDisplay::StyleHorizontal,
                                  ConsolePaths::MarkerLower, ConsolePaths::MarkerUpper, ConsolePaths::Marker1Shown,
                                  ConsolePaths::Marker2Shown });
    }
    m_pTimeRange = m_pTimes->Ranges().Add(
        { &m_pWaterfall->GetTimeAxis(), "timeRange", AxisRangeDisplay::StyleHorizontal | AxisRangeDisplay::StyleTime,
          ConsolePaths::TimeLower, ConsolePaths::TimeUpper, ConsolePaths::Time1Shown, ConsolePaths::Time2Shown });
    m_pTimes->Ranges().SetLeastHeight(LeastTimedHeight);
    connect(&m_pTimes->Ranges(), &RangeBar::signalShown, this, &ConsoleWindow::slotRangeShown);
    m_pTimeRange->SetFormatStringForFixedSize(m_timeFormat);
    m_pTimeRange->SetCaption(&m_pTimes->Caption());
    for (char const * const shown : { ConsolePaths::Time1Shown, ConsolePaths::Time2Shown }) {
        m_followers.push_back(std::make_unique<ValueFollower>([this] { slotTimes(); })); // after the display
        m_followers.back()->Bind(QLatin1String(shown));
    }
}

void ConsoleWindow::FollowValues()
{
    auto const follow = [this](char const * path, std::function<void()> changed) {
        m_followers.push_back(std::make_unique<ValueFollower>(std::move(changed)));
        m_followers.back()->Bind(QLatin1String(path));
    };
    LinePlayer * const player = m_pPlayer.get();
    follow(ConsolePaths::LineRate, [player] { player->SetLineRate(ConsoleValues::Get(ConsolePaths::LineRate)); });
    follow(ConsolePaths::Speed, [player] { player->SetSpeed(ConsoleValues::Get(ConsolePaths::Speed)); });
    follow(ConsolePaths::Averaging,
           [player] { player->SetAveraging(toInt(std::round(ConsoleValues::Get(ConsolePaths::Averaging)))); });
    follow(ConsolePaths::Bins,
           [player] { player->SetBins(static_cast<int>(ConsoleValues::GetKey(ConsolePaths::Bins))); });
    follow(ConsolePaths::Window, [player] {
        player->SetWindow(static_cast<SpectrumEngine::Window>(ConsoleValues::GetKey(ConsolePaths::Window)));
    });
    follow(ConsolePaths::Gradient,
           [] { LevelGradients::Choose(static_cast<int>(ConsoleValues::GetKey(ConsolePaths::Gradient))); });
    follow(ConsolePaths::Span, [this] {
        double const least = m_values.GetBand().span / ConsoleValues::MostZoom;
        for (RangePane * const pane : m_pPanes->RangePanes())
            pane->GetFrequencyAxis().SetLeastSpan(least);
    });
}

void ConsoleWindow::FindDirections(std::vector<SimulatedEmitter> emitters, quint64 seed)
{
    m_bearings.Find(std::move(emitters), seed);
    m_clock.start();
    ShowState();
}

void ConsoleWindow::FitLevelRange()
{
    m_fitDue = m_batch.empty();
    if (m_fitDue)
        return;
    LevelRange const range = FitLevels(m_batch.back()->levels);
    m_values.SetLevels(range.min, range.max);
}

ConsoleFigures ConsoleWindow::Figures() const
{
    ConsoleFigures figures;
    figures.produced = m_pPlayer->Produced();
    figures.taken = m_taken;
    figures.painted = m_pWaterfall->GetRowsPainted();
    figures.frames = m_stats.Frames();
    figures.dropped = m_pPlayer->Dropped();
    figures.skipped = m_pPlayer->Skipped();
    figures.processor = m_load.Percent();
    figures.frameMean = m_stats.MeanMilliseconds();
    figures.frameMax = m_stats.MaxMilliseconds();
    return figures;
}

void ConsoleWindow::FollowBand(SpectrumLine const & line)
{
    FrequencyRange const band{ line.centre - line.span / 2.0, line.span };
    FrequencyRange const former = m_values.GetBand();
    if (band == former)
        return;
    if (band.start >= former.start + former.span || former.start >= band.start + band.span)
        ForgetRanges();
    m_values.SetBand(band);
    double const step = line.span / static_cast<double>(std::max<std::size_t>(1, line.levels.size()));
    m_pStatus->SetFrequency(tr("Centre %1").arg(NumberTexts::FrequencyWithUnit(line.centre, std::max(1.0, step))));
}

//! Ranges and steps of undo that speak of frequencies which are no longer shown would end at an edge of the new band.
void ConsoleWindow::ForgetRanges()
{
    for (RangePane * const pane : m_pPanes->RangePanes()) {
        pane->GetFrequencyAxis().DropDrag();
        pane->GetFrequencyAxis().ClearUnZoom();
    }
    GuiBase::Instance().UndoStack()->clear();
}

void ConsoleWindow::slotLines()
{
    QElapsedTimer clock;
    clock.start();
    std::shared_ptr<SpectrumLine const> line;
    if (!m_pPlayer->TakeLine(line))
        return;
    m_batch.assign(1, line);
    while (m_pPlayer->TakeLine(line))
        m_batch.push_back(line);
    m_taken += m_batch.size();
    FollowBand(*m_batch.back());
    if (m_fitDue)
        FitLevelRange();
    m_pPanes->TakeLines(m_batch);
    m_pMarkers->slotLineShown();
    m_pWindows->slotLineShown();
    if (m_clock.isValid())
        m_bearings.Take(*m_batch.back(), static_cast<double>(m_clock.elapsed()) / MillisecondsASecond);
    ShowSpans(m_batch.back()->time);
    m_stats.AddWork(clock.nsecsElapsed());
}

void ConsoleWindow::slotColorsChanged()
{
    QApplication::setPalette(ColorSet::Instance().GetPalette());
    ColorSet::UpdateComboBox(m_pColorSets);
    PaneColors const colors = CurrentPaneColors();
    for (RangePane * const pane : m_pPanes->RangePanes())
        pane->SetColors(colors);
}

void ConsoleWindow::slotPlay(bool play)
{
    if (play)
        m_pPlayer->Play();
    else
        m_pPlayer->Pause();
}

//! The caption tells the times of the rows, but those of the markers while their range is read out.
void ConsoleWindow::slotTimes()
{
    QString const format = m_pWaterfall->TimeFormat();
    if (m_pTimeRange && format != m_timeFormat) {
        m_timeFormat = format;
        m_pTimeRange->SetFormatStringForFixedSize(format);
    }
    if (m_pTimeRange && !m_pTimeRange->isHidden())
        return;
    WaterfallImage const & image = m_pWaterfall->GetImage();
    if (image.Filled() > 0)
        m_pTimes->SetTimes(image.Stamp(image.Filled() - 1), image.Stamp(0));
    else
        m_pTimes->SetTimes(0.0, 0.0);
}

//! The caption follows the display at once, also while no rows come.
void ConsoleWindow::slotRangeShown()
{
    if (!m_pTimeRange->isHidden())
        m_pTimeRange->ShowValues();
    slotTimes();
}

//! The times that panes without rows show: from the hold time before the newest line on.
void ConsoleWindow::ShowSpans(double newest)
{
    double const hold = static_cast<double>(ConsoleValues::GetKey(ConsolePaths::Hold));
    for (PaneFrame * const frame : m_pPanes->Frames()) {
        bool const isPersistence = &frame->Pane() == m_pPersistence;
        bool const hasSpan =
            isPersistence ? hold > 0.0 : &frame->Pane() == m_pAzimuth || &frame->Pane() == m_pElevation;
        double const span = isPersistence ? hold : BearingHistory::Hold;
        if (hasSpan)
            frame->TakeTimes(newest - span * Microseconds, newest);
        else if (isPersistence)
            frame->TakeTimes(0.0, 0.0);
    }
}

//! Tells everywhere whether the data stream plays. A recording is played as a ring: only one that pauses stands at its
//! end.
void ConsoleWindow::ShowState()
{
    bool const playing = m_pPlayer->IsPlaying();
    m_pPosition->SetPlaying(playing);
    m_pPanes->SetPlaying(playing);
    bool const isAtEnd =
        m_pPlayer->Duration() > 0.0 && m_pPlayer->Position() + 1.0 / m_pPlayer->LineRate() >= m_pPlayer->Duration();
    QString const standing = isAtEnd ? tr("End of recording") : tr("Paused");
    for (PaneFrame * const frame : m_pPanes->Frames()) {
        bool const tellsRate = frame == m_pTimes && m_rate > 0.0;
        QString const running =
            tellsRate ? tr("Running  %1 lines/s").arg(QString::number(m_rate, 'f', 1)) : tr("Running");
        bool const isBlind = !m_clock.isValid() && qobject_cast<BearingPane *>(&frame->Pane());
        frame->SetState(isBlind ? tr("No direction finder") : playing ? running : standing);
    }
}

void ConsoleWindow::ShowFigures()
{
    double const now = m_load.Seconds();
    double const passed = now - m_secondsAtStatus;
    m_rate = passed > 0.0 ? static_cast<double>(m_taken - m_takenAtStatus) / passed : 0.0;
    m_takenAtStatus = m_taken;
    m_secondsAtStatus = now;
    m_pStatus->SetFigures(m_rate, m_pPlayer->Dropped() + m_pPlayer->Skipped(), m_stats.MeanMilliseconds());
    ShowState();
}

void ConsoleWindow::timerEvent(QTimerEvent * event)
{
    if (event->timerId() == m_statusTimer.timerId())
        ShowFigures();
    else
        QMainWindow::timerEvent(event);
}

//! A key that none of the panes got means the one at hand.
void ConsoleWindow::keyPressEvent(QKeyEvent * event)
{
    bool const isPlain = event->modifiers() == Qt::NoModifier && !event->isAutoRepeat();
    PaneFrame * const frame = isPlain ? m_pPanes->AtHand() : nullptr;
    if (frame && event->key() == Qt::Key_F11)
        m_pPanes->SetFull(m_pPanes->GetFull() ? nullptr : frame);
    else if (frame && event->key() == Qt::Key_H)
        frame->SetHeld(!frame->IsHeld());
    else if (isPlain && event->key() == Qt::Key_Space)
        slotPlay(!m_pPlayer->IsPlaying());
    else
        QMainWindow::keyPressEvent(event);
}
