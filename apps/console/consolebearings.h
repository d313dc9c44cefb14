// SPDX-License-Identifier: MIT
#ifndef ORIM_CONSOLEBEARINGS_H
#define ORIM_CONSOLEBEARINGS_H

#include "bearinghistory.h"
#include "directionfinder.h"

#include <QString>

#include <memory>

//! The results of the direction finder in the tree: a list by rising frequency, and the number of the selected one. The
//! selection follows its emitter through the list, and ends with it. The single measurements beside them.
class ConsoleBearings
{
public:
    static constexpr int Most = 8; // results that panes show and that can be selected

    //! Without a direction finder there are no results.
    ConsoleBearings() = default;

    //! From now on finds these emitters.
    void Find(std::vector<SimulatedEmitter> emitters, quint64 seed);

    //! Has a line measured when it is time, and tells where the vehicle points to. \param now  s, of any clock.
    void Take(SpectrumLine const & line, double now);

    //! The single measurements.
    BearingHistory & History() { return m_history; }

    //! Number of results that can be selected, 0 to Most.
    static int Count();
    //! Null for a bad index. Holds until the list changes.
    static BearingResult const * At(int index);
    //! Index of the selected result; -1 for none.
    static int Selected();
    //! A bad index, such as -1, selects none.
    static void Select(int index);
    //! Selects the next result, or the one before, all around; without a selection the first or the last.
    static void SelectNext(bool forward);

private:
    void TakeResults();

    std::unique_ptr<DirectionFinder> m_pFinder; // null: none
    BearingHistory m_history;
};

#endif
