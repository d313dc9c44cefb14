// SPDX-License-Identifier: MIT
#include "lineplayer.h"

#include "isamplesource.h"
#include "linemaker.h"
#include "lineworker.h"

#include <QPointer>

#include <algorithm>
#include <cmath>
#include <utility>

LinePlayer::LinePlayer(std::unique_ptr<ISampleSource> source, QObject * parent)
    : QObject(parent)
    , m_queue(QueueLines)
    , m_duration(source ? source->Duration() : 0.0)
{
    if (!source)
        return;
    m_pWorker = std::make_unique<LineWorker>(std::move(source), m_queue);
    m_pWorker->moveToThread(&m_thread);
    m_thread.setObjectName(QStringLiteral("lines"));
    connect(&m_thread, &QThread::started, m_pWorker.get(), &LineWorker::Begin);
    connect(&m_thread, &QThread::finished, m_pWorker.get(), &LineWorker::End, Qt::DirectConnection); // in the thread
    connect(m_pWorker.get(), &LineWorker::signalBatch, this, &LinePlayer::slotBatch, Qt::QueuedConnection);
}

LinePlayer::~LinePlayer()
{
    Stop();
    m_pWorker.reset(); // before its thread
}

void LinePlayer::Start()
{
    if (m_pWorker && !m_thread.isRunning())
        m_thread.start();
}

void LinePlayer::Stop()
{
    m_thread.quit();
    m_thread.wait();
}

void LinePlayer::SetBins(int bins)
{
    if (!SpectrumEngine::IsBins(bins) || bins == m_bins)
        return;
    m_bins = bins;
    Send([bins](LineWorker & worker) { worker.SetBins(bins); });
}

void LinePlayer::SetLineRate(double linesPerSecond)
{
    bool const inside = linesPerSecond >= MinLineRate && linesPerSecond <= MaxLineRate; // false for NaN
    if (!inside || linesPerSecond == m_lineRate)
        return;
    m_lineRate = linesPerSecond;
    Send([linesPerSecond](LineWorker & worker) { worker.SetLineRate(linesPerSecond); });
}

void LinePlayer::SetWindow(SpectrumEngine::Window window)
{
    if (window < 0 || window >= SpectrumEngine::eWindowCount || window == m_window)
        return;
    m_window = window;
    Send([window](LineWorker & worker) { worker.SetWindow(window); });
}

void LinePlayer::SetAveraging(int spectra)
{
    if (spectra < 0 || spectra > LineMaker::MaxAveraging || spectra == m_averaging)
        return;
    m_averaging = spectra;
    Send([spectra](LineWorker & worker) { worker.SetAveraging(spectra); });
}

void LinePlayer::SetSpeed(double speed)
{
    bool const inside = speed >= MinSpeed && speed <= MaxSpeed; // false for NaN
    if (!inside || speed == m_speed)
        return;
    m_speed = speed;
    Send([speed](LineWorker & worker) { worker.SetSpeed(speed); });
}

void LinePlayer::Seek(double seconds)
{
    if (!std::isfinite(seconds))
        return;
    double const ahead = std::max(seconds, 0.0);
    bool const isRing = m_duration > 0.0 && std::isfinite(m_duration);
    double const from = isRing ? std::fmod(ahead, m_duration) : ahead;
    if (m_pWorker)
        m_pWorker->AskPosition(from);
    Send([from](LineWorker & worker) { worker.Seek(from); });
}

void LinePlayer::Play()
{
    if (m_playing)
        return;
    m_playing = true;
    Send([](LineWorker & worker) { worker.SetPlaying(true); });
    Q_EMIT signalPlaying(true);
}

void LinePlayer::Pause()
{
    if (!m_playing)
        return;
    m_playing = false;
    Send([](LineWorker & worker) { worker.SetPlaying(false); });
    Q_EMIT signalPlaying(false);
}

double LinePlayer::Position() const { return m_pWorker ? m_pWorker->Position() : 0.0; }

bool LinePlayer::TakeLine(std::shared_ptr<SpectrumLine const> & line) { return m_queue.Take(line); }

quint64 LinePlayer::Produced() const { return m_pWorker ? m_pWorker->Produced() : 0; }

quint64 LinePlayer::Dropped() const { return m_queue.Dropped(); }

quint64 LinePlayer::Skipped() const { return m_pWorker ? m_pWorker->Skipped() : 0; }

void LinePlayer::slotBatch()
{
    QPointer<LinePlayer> const self(this); // a receiver may delete the player
    m_pWorker->Acknowledge();
    Q_EMIT signalLines();
    if (self)
        Q_EMIT signalPosition(Position());
}

template <class Order>
void LinePlayer::Send(Order order)
{
    LineWorker * const worker = m_pWorker.get();
    if (worker)
        QMetaObject::invokeMethod(
            worker, [worker, order] { order(*worker); }, Qt::QueuedConnection);
}
