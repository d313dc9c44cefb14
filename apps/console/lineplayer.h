// SPDX-License-Identifier: MIT
#ifndef ORIM_LINEPLAYER_H
#define ORIM_LINEPLAYER_H

#include "linequeue.h"
#include "spectrumengine.h"

#include <QObject>
#include <QThread>

#include <memory>

class ISampleSource;
class LineWorker;

//! Plays a source of samples as spectrum lines in real time. The lines are made in a thread of its own and wait in a
//! bounded queue; all operations belong to the thread that made the player.
//!
//! Line i after a start, a jump or a change of rate stands for the times from i to i + 1 line periods, is made when
//! that time is over, and is counted from a steady clock: the average rate is exact. After a stall a few lines are
//! caught up and the others are skipped, with the position going on in time. A source with an end is played as a ring.
class LinePlayer : public QObject
{
    Q_OBJECT

public:
    static constexpr std::size_t QueueLines = 64;
    static constexpr double MinLineRate = 0.1; // 1/s
    static constexpr double MaxLineRate = 1000.0;
    static constexpr double MinSpeed = 0.001;
    static constexpr double MaxSpeed = 1000.0;

    //! 1024 bins through a Hann window, 50 lines/s, averaging 0, speed 1, at the beginning, playing once it is started.
    //! \param source  the samples; null gives a player that never makes a line.
    explicit LinePlayer(std::unique_ptr<ISampleSource> source, QObject * parent = nullptr);
    //! Stops.
    ~LinePlayer() override;

    //! Starts the thread; nothing while it runs.
    void Start();
    //! Ends the thread and waits for it; nothing while it does not run. Lines made so far can still be taken; the
    //! position stays and a new Start() goes on there.
    void Stop();

    //! Levels of a line: a power of two from 64 to 65536; others are ignored.
    void SetBins(int bins);

    int Bins() const { return m_bins; }

    //! Lines a second of the clock: MinLineRate to MaxLineRate; others are ignored.
    void SetLineRate(double linesPerSecond);

    double LineRate() const { return m_lineRate; }

    //! What is no window is ignored.
    void SetWindow(SpectrumEngine::Window window);

    SpectrumEngine::Window GetWindow() const { return m_window; }

    //! Spectra in the mean of one line: 1 for none, up to 64; 0 for as many as cover the time of a line, so that
    //! nothing short goes unseen (at most 64). Others are ignored.
    void SetAveraging(int spectra);

    int Averaging() const { return m_averaging; }

    //! Seconds of the source in one second of the clock: MinSpeed to MaxSpeed; others are ignored.
    void SetSpeed(double speed);

    double Speed() const { return m_speed; }

    //! Goes on at another position.
    //! \param seconds  from the beginning; below 0 counts as 0, beyond the end is folded, NaN and infinite are ignored.
    void Seek(double seconds);

    //! Goes on where Pause() came.
    void Play();
    void Pause();

    //! Whether lines are made once it is started.
    bool IsPlaying() const { return m_playing; }

    //! Length of the source, s; 0 for one without an end.
    double Duration() const { return m_duration; }

    //! Middle of the latest line in the source, s; after Seek() what was asked for.
    double Position() const;

    //! Takes the oldest line that waits.
    //! \param line  receives it; unchanged when none waits.
    //! \return whether there was one.
    bool TakeLine(std::shared_ptr<SpectrumLine const> & line);
    //! Lines made, lines that fell out of the full queue, and lines that were never made because the machine was late.
    quint64 Produced() const;
    quint64 Dropped() const;
    quint64 Skipped() const;

Q_SIGNALS:
    //! Lines wait: take them until TakeLine() gives false. Raised once a batch, in the thread of the player.
    void signalLines();
    //! It plays from now on, or it pauses.
    void signalPlaying(bool playing);
    //! The position has moved, s. Raised once a batch.
    void signalPosition(double seconds);

private Q_SLOTS:
    void slotBatch();

private:
    template <class Order>
    void Send(Order order);

    LineQueue m_queue;
    std::unique_ptr<LineWorker> m_pWorker; // lives in m_thread; null without a source
    QThread m_thread;
    double m_duration = 0.0; // s
    int m_bins = 1024;
    double m_lineRate = 50.0; // 1/s
    SpectrumEngine::Window m_window = SpectrumEngine::eWindowHann;
    int m_averaging = 0;
    double m_speed = 1.0;
    bool m_playing = true;
};

#endif
