// SPDX-License-Identifier: MIT
#ifndef ORIM_LINEWORKER_H
#define ORIM_LINEWORKER_H

#include "linemaker.h"
#include "linepacer.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <atomic>
#include <memory>

class ISampleSource;
class LineQueue;

//! Makes the lines of a player in time and puts them into its queue. Lives in the player's thread; what a comment does
//! not name as thread-safe is called there only.
class LineWorker : public QObject
{
    Q_OBJECT

public:
    //! \param source  the samples; not null.
    //! \param queue   borrowed: must outlive this.
    LineWorker(std::unique_ptr<ISampleSource> source, LineQueue & queue);
    ~LineWorker() override;

    //! Starts and stops the clock, when the thread starts and before it ends.
    void Begin();
    void End();
    //! See LinePlayer.
    void SetPlaying(bool playing);

    void SetBins(int bins) { m_maker.SetBins(bins); }

    void SetWindow(SpectrumEngine::Window window) { m_maker.SetWindow(window); }

    void SetAveraging(int spectra) { m_maker.SetAveraging(spectra); }

    void SetLineRate(double linesPerSecond);
    void SetSpeed(double speed);
    //! Answers one AskPosition().
    void Seek(double seconds);

    //! Thread-safe: the receiver of signalBatch() is about to take the lines; from now on the next line signals again.
    void Acknowledge() { m_pending = false; }

    //! Thread-safe counters: lines made, lines skipped after stalls, middle of the latest line in s.
    quint64 Produced() const { return m_produced; }

    quint64 Skipped() const { return m_skipped; }

    double Position() const { return m_openSeeks > 0 ? m_asked : m_position; }

    //! Thread-safe: the position that a Seek() which is on its way asks for. It is the position until all are answered,
    //! whatever line is made meanwhile.
    void AskPosition(double seconds)
    {
        m_asked = seconds;
        ++m_openSeeks;
    }

Q_SIGNALS:
    //! Lines lie in the queue; raised once until Acknowledge().
    void signalBatch();

private:
    void MakeDueLines();
    void MakeLine();
    void Anchor();
    void Arm();
    void Announce();
    void SetClock();
    double LineSeconds(double index) const;

    std::unique_ptr<ISampleSource> m_pSource;
    LineQueue & m_queue;
    LineMaker m_maker;
    LinePacer m_pacer;
    QElapsedTimer m_clock;
    QTimer m_timer;
    double m_clockZero = 0.0; // us since 1970 at which m_clock was 0
    bool m_running = false;
    bool m_playing = true;
    double m_rate = 50.0; // lines/s
    double m_speed = 1.0;
    double m_origin = 0.0; // s, where line 0 of the pacer begins
    std::atomic<bool> m_pending{ false };
    std::atomic<quint64> m_produced{ 0 };
    std::atomic<quint64> m_skipped{ 0 };
    std::atomic<double> m_position{ 0.0 };
    std::atomic<double> m_asked{ 0.0 };
    std::atomic<int> m_openSeeks{ 0 }; // asked for and not yet answered
};

#endif
