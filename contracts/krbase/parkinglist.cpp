// SPDX-License-Identifier: MIT
#include "parkinglist.h"

#include <QObject>

ParkingList::Lot::~Lot()
{
    // what is freed may park something else
    std::size_t object = 0;
    std::size_t release = 0;
    while (object < m_objects.size() || release < m_releases.size()) {
        if (object == m_objects.size()) {
            std::function<void()>(std::move(m_releases[release++]))();
            continue;
        }
        QObject * const next = m_objects[object++];
        if (next && !next->parent())
            delete next;
    }
}

void ParkingList::Lot::Add(QObject * object)
{
    if (object)
        m_objects.emplace_back(object);
}

void ParkingList::Lot::Add(std::function<void()> release)
{
    if (release)
        m_releases.push_back(std::move(release));
}
