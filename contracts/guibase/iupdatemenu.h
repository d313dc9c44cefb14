// SPDX-License-Identifier: MIT
#ifndef ORIM_IUPDATEMENU_H
#define ORIM_IUPDATEMENU_H

#include "orimcontracts_export.h"

#include <memory>

class ResortPopupMenu;

//! Client of a menu: brings its items up to date each time before it is shown. A client may end before the menus it is
//! registered with; they then leave it out.
class ORIMCONTRACTS_EXPORT IUpdateMenu
{
public:
    IUpdateMenu();
    //! A copy is a client of its own, registered nowhere.
    IUpdateMenu(IUpdateMenu const & other);
    //! The registrations of both sides stay as they are.
    IUpdateMenu & operator=(IUpdateMenu const & other);
    virtual ~IUpdateMenu();

    //! Sets the items' states. It may register and end clients, this one included, but must not delete the menu.
    //! \param menu  the menu about to be shown, never null.
    virtual void UpdateMenu(ResortPopupMenu * menu) = 0;

private:
    friend class ResortPopupMenu;
    std::shared_ptr<IUpdateMenu *> m_pLife; // watched by the menus; ends with this
};

#endif
