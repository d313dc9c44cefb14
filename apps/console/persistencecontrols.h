// SPDX-License-Identifier: MIT
#ifndef ORIM_PERSISTENCECONTROLS_H
#define ORIM_PERSISTENCECONTROLS_H

#include <functional>

class ControlStrip;

//! Adds the controls of the persistence to a strip: hold time, quality steps, whether it ages, and a button.
//! \param clear  what the button does: the strip must not outlive what it works on.
void AddPersistenceControls(ControlStrip & strip, std::function<void()> const & clear);

#endif
