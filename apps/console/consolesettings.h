// SPDX-License-Identifier: MIT
#ifndef ORIM_CONSOLESETTINGS_H
#define ORIM_CONSOLESETTINGS_H

#include "persistant.h"

class ConsoleWindow;

//! What the operator finds again in the next session: place and size of the window, the share of the panes, level
//! range, colours, and how lines are made. Kept in the store under "orim-console/Console".
class ConsoleSettings
{
public:
    //! \param window  borrowed: must outlive this.
    explicit ConsoleSettings(ConsoleWindow & window);
    ConsoleSettings(ConsoleSettings const &) = delete;
    ConsoleSettings & operator=(ConsoleSettings const &) = delete;

    //! Takes over what is stored. \return whether a level range was among it.
    bool Read();
    //! Stores the present state. \return false when it could not be made to last.
    bool Write();

private:
    void AddValues();
    void AddTexts();

    ConsoleWindow & m_window;
    Persistant m_group;
    bool m_hasLevels = false;
};

#endif
