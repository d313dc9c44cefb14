// SPDX-License-Identifier: MIT
#include "lineworker.h"

#include "isamplesource.h"
#include "linequeue.h"
#include "toint.h"

#include <QDateTime>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr qint64 Turn = 20 * 1000 * 1000; // ns of line making after which the thread looks for orders

constexpr double NanosecondsAMicrosecond = 1e3;
constexpr double MicrosecondsAMillisecond = 1e3;

} // namespace

LineWorker::LineWorker(std::unique_ptr<ISampleSource> source, LineQueue & queue)
    : m_pSource(std::move(source))
    , m_queue(queue)
    , m_maker(*m_pSource)
    , m_timer(this)
{
    m_clock.start();
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &LineWorker::MakeDueLines);
}

LineWorker::~LineWorker() = default;

void LineWorker::Begin()
{
    m_running = true;
    SetClock();
    m_pacer.Start(m_clock.nsecsElapsed(), m_rate);
    Arm();
}

void LineWorker::End()
{
    Anchor();
    m_running = false;
    m_timer.stop();
}

void LineWorker::SetPlaying(bool playing)
{
    if (playing == m_playing)
        return;
    Anchor();
    m_playing = playing;
    SetClock();
    m_pacer.Start(m_clock.nsecsElapsed(), m_rate);
    Arm();
}

void LineWorker::SetLineRate(double linesPerSecond)
{
    if (linesPerSecond == m_rate)
        return;
    Anchor();
    m_rate = linesPerSecond;
    m_pacer.SetRate(m_clock.nsecsElapsed(), m_rate);
    Arm();
}

void LineWorker::SetSpeed(double speed)
{
    if (speed == m_speed)
        return;
    Anchor();
    m_speed = speed;
    Arm();
}

void LineWorker::Seek(double seconds)
{
    Anchor();
    m_origin = seconds;
    m_position = seconds;
    --m_openSeeks;
    Announce();
}

void LineWorker::MakeDueLines()
{
    qint64 const begin = m_clock.nsecsElapsed();
    for (qint64 due = m_pacer.Due(begin); due > 0 && m_clock.nsecsElapsed() - begin < Turn; --due)
        MakeLine();
    m_skipped = m_pacer.Skipped();
    Arm();
}

void LineWorker::MakeLine()
{
    double const seconds = LineSeconds(static_cast<double>(m_pacer.Index()) + 0.5);
    std::shared_ptr<SpectrumLine> const line = m_maker.Make(m_produced, seconds, m_speed / m_rate);
    line->time = m_clockZero + static_cast<double>(m_pacer.DueAt()) / NanosecondsAMicrosecond;
    m_pacer.Advance();
    m_position = line->seconds;
    m_queue.Push(line);
    ++m_produced;
    Announce();
}

//! The steady clock is set by the wall clock where lines begin, so that the times of lines never jump in between.
void LineWorker::SetClock()
{
    m_clockZero = static_cast<double>(QDateTime::currentMSecsSinceEpoch()) * MicrosecondsAMillisecond -
                  static_cast<double>(m_clock.nsecsElapsed()) / NanosecondsAMicrosecond;
}

void LineWorker::Anchor()
{
    if (!m_running || !m_playing)
        return;
    qint64 const now = m_clock.nsecsElapsed();
    m_pacer.SkipLate(now);
    m_skipped = m_pacer.Skipped();
    double const duration = m_pSource->Duration();
    double const next = LineSeconds(static_cast<double>(m_pacer.Index()));
    m_origin = duration > 0.0 && std::isfinite(duration) ? std::fmod(next, duration) : next;
    m_pacer.SetRate(now, m_rate);
}

void LineWorker::Arm()
{
    m_timer.stop();
    if (!m_running || !m_playing)
        return;
    constexpr qint64 longest = 1000 * 1000; // ms
    qint64 const wait = (m_pacer.Wait(m_clock.nsecsElapsed()) + 999999) / 1000000;
    m_timer.start(static_cast<int>(std::min(wait, longest)));
}

void LineWorker::Announce()
{
    if (!m_pending.exchange(true))
        Q_EMIT signalBatch();
}

double LineWorker::LineSeconds(double index) const { return m_origin + index * m_speed / m_rate; }
