// SPDX-License-Identifier: MIT
#include "connectmarkervisibilityflags.h"

#include "markerlist.h"

#include <algorithm>
#include <array>

namespace {

void Connect(MarkerList * from, MarkerList * to)
{
    QObject::connect(from, &MarkerList::signalSetState, to, &MarkerList::slotSetState);
}

} // namespace

void ConnectMarkerVisibilityFlags(MarkerList * list1, MarkerList * list2, MarkerList * list3, MarkerList * list4,
                                  MarkerList * list5, MarkerList * list6, MarkerList * list7, MarkerList * list8,
                                  MarkerList * list9, MarkerList * list10, MarkerList * list11, MarkerList * list12,
                                  MarkerList * list13, MarkerList * list14, MarkerList * list15, MarkerList * list16,
                                  MarkerList * list17)
{
    std::array<MarkerList *, 17> lists{ list1,  list2,  list3,  list4,  list5,  list6,  list7,  list8, list9,
                                        list10, list11, list12, list13, list14, list15, list16, list17 };
    auto const last = std::remove(lists.begin(), lists.end(), nullptr);
    for (auto a = lists.begin(); a != last; ++a) {
        Connect(*a, *a);
        Connect(*a, *a); // a list hears itself twice
        for (auto b = a + 1; b != last; ++b) {
            Connect(*a, *b);
            Connect(*b, *a);
        }
    }
}
