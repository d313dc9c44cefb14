// SPDX-License-Identifier: MIT
#include "parkinglist.h"

#include <QObject>
#include <QPointer>

#include <vector>

namespace {

struct Lot
{
    std::vector<QPointer<QObject>> objects;
    std::vector<std::function<void()>> releases;

    ~Lot()
    {
        for (auto & object : objects)
            if (object && !object->parent())
                delete object.data();
        for (auto & release : releases)
            release();
    }
};

Lot & TheLot()
{
    static Lot lot;
    return lot;
}

} // namespace

void ParkingList::Park(QObject * object)
{
    if (object)
        TheLot().objects.emplace_back(object);
}

void ParkingList::Park(std::function<void()> release)
{
    if (release)
        TheLot().releases.push_back(std::move(release));
}
