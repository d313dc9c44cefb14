// SPDX-License-Identifier: MIT
#include "parkinglist.h"

#include <QObject>

ParkingList::Lot::~Lot()
{
    // what is freed may park something else
    for (std::size_t i = 0; i < m_objects.size(); ++i)
        if (QObject * const object = m_objects[i]; object && !object->parent())
            delete object;
    for (std::size_t i = 0; i < m_releases.size(); ++i)
        std::function<void()>(std::move(m_releases[i]))();
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
