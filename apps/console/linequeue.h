// SPDX-License-Identifier: MIT
#ifndef ORIM_LINEQUEUE_H
#define ORIM_LINEQUEUE_H

#include "spectrumline.h"

#include <cstddef>
#include <deque>
#include <memory>
#include <mutex>

//! Hands finished lines from one thread to another: first in, first out. A full queue drops its oldest line and counts
//! it. Every operation may be called from any thread.
class LineQueue
{
public:
    //! \param capacity  lines that are kept at most; 0 counts as 1.
    explicit LineQueue(std::size_t capacity);
    LineQueue(LineQueue const &) = delete;
    LineQueue & operator=(LineQueue const &) = delete;

    //! Appends a line; null is ignored.
    void Push(std::shared_ptr<SpectrumLine const> line);
    //! Takes the oldest line.
    //! \param line  receives it; unchanged when the queue is empty.
    //! \return whether there was one.
    bool Take(std::shared_ptr<SpectrumLine const> & line);
    //! Forgets all lines; they do not count as dropped.
    void Clear();

    std::size_t Size() const;

    std::size_t Capacity() const { return m_capacity; }

    //! Lines that were dropped since the queue was made.
    quint64 Dropped() const;

private:
    std::size_t const m_capacity;
    mutable std::mutex m_mutex; // guards what follows
    std::deque<std::shared_ptr<SpectrumLine const>> m_lines;
    quint64 m_dropped = 0;
};

#endif
