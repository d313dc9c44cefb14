// SPDX-License-Identifier: MIT
#include "linequeue.h"

#include <algorithm>
#include <utility>

LineQueue::LineQueue(std::size_t capacity) : m_capacity(std::max<std::size_t>(capacity, 1)) {}

void LineQueue::Push(std::shared_ptr<SpectrumLine const> line)
{
    if (!line)
        return;
    std::shared_ptr<SpectrumLine const> oldest; // freed after the lock
    std::lock_guard<std::mutex> const lock(m_mutex);
    if (m_lines.size() == m_capacity) {
        oldest = std::move(m_lines.front());
        m_lines.pop_front();
        ++m_dropped;
    }
    m_lines.push_back(std::move(line));
}

bool LineQueue::Take(std::shared_ptr<SpectrumLine const> & line)
{
    std::lock_guard<std::mutex> const lock(m_mutex);
    if (m_lines.empty())
        return false;
    line = std::move(m_lines.front());
    m_lines.pop_front();
    return true;
}

void LineQueue::Clear()
{
    std::lock_guard<std::mutex> const lock(m_mutex);
    m_lines.clear();
}

std::size_t LineQueue::Size() const
{
    std::lock_guard<std::mutex> const lock(m_mutex);
    return m_lines.size();
}

quint64 LineQueue::Dropped() const
{
    std::lock_guard<std::mutex> const lock(m_mutex);
    return m_dropped;
}
