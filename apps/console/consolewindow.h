// SPDX-License-Identifier: MIT
#ifndef ORIM_CONSOLEWINDOW_H
#define ORIM_CONSOLEWINDOW_H

#include "bearingaxis.h"
#include "consolebearings.h"
#include "consolefigures.h"
#include "consolevalues.h"
#include "framestats.h"
#include "processload.h"
#include "spectrumline.h"

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QMainWindow>

#include <memory>
#include <vector>

class AxisRangeDisplay;
class BearingPane;
class ConsoleMarkers;
class ControlStrip;
class LinePlayer;
class PaneFrame;
class PaneStack;
class PersistencePane;
class PositionBar;
class QComboBox;
class RangePane;
class SignalWindows;
class SpectrumPane;
class StatusLine;
class WaterfallPane;

//! The operator screen: panes over each other, fed by a player, with its controls. F11, H and Space do with the
//! pane at hand what they do in a pane.
class ConsoleWindow : public QMainWindow
{
    Q_OBJECT
public:
    //! \param player  what is shown; not null. It is started by Start().
    //! \param source  name of the source for the operator.
    ConsoleWindow(std::unique_ptr<LinePlayer> player, QString const & source, QWidget * parent = nullptr);
    ~ConsoleWindow() override;

    //! Starts the player.
    void Start();

    //! Fits the level range to the latest line, or to the first one when there is none yet.
    void FitLevelRange();

    //! Has a direction finder look for emitters in the lines.
    void FindDirections(std::vector<SimulatedEmitter> emitters, quint64 seed);

    SignalWindows & Windows() { return *m_pWindows; }

    ConsoleFigures Figures() const;

    LinePlayer & Player() { return *m_pPlayer; }

    SpectrumPane & Spectrum() { return *m_pSpectrum; }

    PersistencePane & Persistence() { return *m_pPersistence; }

    WaterfallPane & Waterfall() { return *m_pWaterfall; }

    BearingPane & Azimuth() { return *m_pAzimuth; }

    BearingPane & Elevation() { return *m_pElevation; }

    ConsoleBearings & Bearings() { return m_bearings; }

    PositionBar & Position() { return *m_pPosition; }

    ConsoleValues & Values() { return m_values; }

    //! The panes, from the top down in the order in which they are read.
    PaneStack & Splitter() { return *m_pPanes; }

    QComboBox & ColorSets() { return *m_pColorSets; }

    //! Id of the timer that refreshes the status line.
    int GetStatusTimerId() const { return m_statusTimer.timerId(); }

protected:
    void timerEvent(QTimerEvent * event) override;
    void keyPressEvent(QKeyEvent * event) override;

private:
    void BuildControls();
    void BuildPanes();
    BearingPane * AddBearings(BearingAxis::Kind kind, QString const & name, char const * shownPath);
    void ConnectPlayer();
    void BindPanes();
    void BindLevels(RangePane & pane);
    void BuildRanges();
    void FollowValues();
    void FollowBand(SpectrumLine const & line);
    void ForgetRanges();
    void slotLines();
    void slotColorsChanged();
    void slotPlay(bool play);
    void slotTimes();
    void slotRangeShown();
    void ShowSpans(double newest);
    void ShowState();
    void ShowFigures();

    ConsoleValues m_values;
    std::unique_ptr<LinePlayer> m_pPlayer;
    std::vector<std::unique_ptr<ValueFollower>> m_followers; // hand the values to the player
    FrameStats m_stats;
    ProcessLoad m_load;
    QBasicTimer m_statusTimer;
    quint64 m_taken = 0;
    quint64 m_takenAtStatus = 0;
    double m_secondsAtStatus = 0.0;
    double m_rate = 0.0;                                      // lines a second, as counted last
    bool m_fitDue = false;                                    // with the next line
    std::vector<std::shared_ptr<SpectrumLine const>> m_batch; // lines taken last
    ControlStrip * m_pControls = nullptr;
    QComboBox * m_pColorSets = nullptr;
    PaneStack * m_pPanes = nullptr;
    SpectrumPane * m_pSpectrum = nullptr;
    PersistencePane * m_pPersistence = nullptr;
    WaterfallPane * m_pWaterfall = nullptr;
    AxisRangeDisplay * m_pTimeRange = nullptr;
    QString m_timeFormat = QStringLiteral("hh:mm:ss"); // of its times
    PaneFrame * m_pTimes = nullptr;                    // the frame whose caption tells the times of the waterfall
    BearingPane * m_pAzimuth = nullptr;
    BearingPane * m_pElevation = nullptr;
    PositionBar * m_pPosition = nullptr;
    StatusLine * m_pStatus = nullptr;
    ConsoleMarkers * m_pMarkers = nullptr;
    SignalWindows * m_pWindows = nullptr;
    ConsoleBearings m_bearings;
    QElapsedTimer m_clock; // of the direction finder
};

#endif
