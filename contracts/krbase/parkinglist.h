// SPDX-License-Identifier: MIT
#ifndef ORIM_PARKINGLIST_H
#define ORIM_PARKINGLIST_H

#include "orimcontracts_export.h"

#include <QPointer>

#include <functional>
#include <utility>
#include <vector>

class QObject;

//! Keeps what has no owner reachable until the library that parks it is unloaded or the process ends, then frees it: an
//! event filter built without a widget, a list that was replaced while somebody may still hold it.
namespace ParkingList {

//! What one library or program parked.
class ORIMCONTRACTS_EXPORT Lot
{
public:
    Lot() = default;
    Lot(Lot const &) = delete;
    Lot & operator=(Lot const &) = delete;
    ~Lot();

    void Add(QObject * object);
    void Add(std::function<void()> release);

private:
    std::vector<QPointer<QObject>> m_objects;
    std::vector<std::function<void()>> m_releases;
};

//! Hidden, so that each library has its own: what it parked needs its code to end.
Q_DECL_HIDDEN inline Lot & TheLot()
{
    static Lot lot;
    return lot;
}

//! Takes a QObject over. It is freed at the end unless something deletes it earlier. Null is ignored.
Q_DECL_HIDDEN inline void Park(QObject * object) { TheLot().Add(object); }

//! Calls \a release once at the end. An empty function is ignored.
Q_DECL_HIDDEN inline void Park(std::function<void()> release) { TheLot().Add(std::move(release)); }

} // namespace ParkingList

#endif
