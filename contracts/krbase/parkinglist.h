// SPDX-License-Identifier: MIT
#ifndef ORIM_PARKINGLIST_H
#define ORIM_PARKINGLIST_H

#include "orimcontracts_export.h"

#include <functional>

class QObject;

//! Keeps what has no owner reachable until the process ends, then frees it: an event filter built without a widget, a
//! list that was replaced while somebody may still hold it.
namespace ParkingList {

//! Takes a QObject over. It is freed at process exit unless something deletes it earlier. Null is ignored.
ORIMCONTRACTS_EXPORT void Park(QObject * object);
//! Calls \a release once at process exit. An empty function is ignored.
ORIMCONTRACTS_EXPORT void Park(std::function<void()> release);

} // namespace ParkingList

#endif
