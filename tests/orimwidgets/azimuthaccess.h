// SPDX-License-Identifier: MIT
#ifndef ORIM_AZIMUTHACCESS_H
#define ORIM_AZIMUTHACCESS_H

#include "azimuthdisplayselect.h"
#include "tree.h"

//! An object of a test's own, which reads and writes what is Persistant::Store() at that time.
class AzimuthDisplaySelectAccess : public AzimuthDisplaySelect
{};

//! Puts the one object of the process into a mode that is the default, too.
inline AzimuthDisplaySelect & AzimuthMode(long key)
{
    AzimuthDisplaySelect & select = AzimuthDisplaySelect::Instance();
    select.slotDefaultSelectionMenuActivated(static_cast<int>(key));
    return select;
}

inline ValueSelection * SelectionAt(QString const & path) { return Tree::Instance()->FindAs<ValueSelection>(path); }

#endif
