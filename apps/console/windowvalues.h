// SPDX-License-Identifier: MIT
#ifndef ORIM_WINDOWVALUES_H
#define ORIM_WINDOWVALUES_H

#include "linecolumns.h"
#include "valuefollower.h"

#include <QString>

#include <array>
#include <memory>
#include <vector>

//! The values of the five windows that mark signals: puts them into the tree and takes them out again. A visible window
//! that gets the focus, from whomever, takes it from the others. A window is named by its index, 0 to 4; one outside
//! has no values, is hidden, and a write to it does nothing.
class WindowValues
{
public:
    static constexpr int Count = 5;

    //! What a window has a value for, under "/console/windows/1/" to "/console/windows/5/".
    enum Item
    {
        eStart,   // Hz, as the next
        eStop,    // Hz
        eVisible, // flag, as the next
        eFocus,   // at most one has it
        eText,
        eItemCount
    };

    WindowValues();
    ~WindowValues();
    WindowValues(WindowValues const &) = delete;
    WindowValues & operator=(WindowValues const &) = delete;

    //! The band within which a window can be moved. The windows stay where they are: one outside is met again when its
    //! band comes back. A band that is not finite or not wider than 0 is ignored.
    void SetBand(FrequencyRange band);

    //! Path of a value; empty for a bad index.
    static QString PathOf(int window, Item item);

    //! The lower end and the width, Hz, whichever end is called the start.
    static FrequencyRange RangeOf(int window);
    //! The band within which both ends can be moved, Hz; without a width for a bad index.
    static FrequencyRange LimitsOf(int window);

    static bool IsVisible(int window);
    //! The visible window that has the focus; -1 for none.
    static int Focused();
    //! Gives the focus to a visible window and takes it from the others; -1, and a hidden one, takes it from all.
    static void Focus(int window);
    static void Show(int window, bool on);
    //! Moves both ends; start stays at or below stop on the way. Numbers that are not finite are ignored.
    static void SetRange(int window, FrequencyRange range);
    //! The visible window that comes next after the one in focus, or before it, by rising frequency; -1 for none.
    static int Next(bool forward);

private:
    void FollowFocus(int window);
    void TakeFocus(int window);

    static FrequencyRange s_band; // Hz, of all windows

    std::vector<QString> m_paths; // what was put into the tree
    std::vector<std::unique_ptr<ValueFollower>> m_followers;
    std::array<bool, Count> m_hadFocus{}; // when its values were looked at last
};

#endif
