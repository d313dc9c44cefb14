// SPDX-License-Identifier: MIT
#ifndef ORIM_IHASPROPERTYPAGE_H
#define ORIM_IHASPROPERTYPAGE_H

#include "orimcontracts_export.h"

class QString;
class QWidget;

//! Provider of one settings page. A settings dialog asks it for the page, shows it at the provider's place in its tree
//! of pages, and tells it when the operator's input is to be taken over.
class ORIMCONTRACTS_EXPORT IHasPropertyPage
{
public:
    virtual ~IHasPropertyPage() = default;

    //! The page, made on each call.
    //! \param parent  the page's parent, which owns it; may be null.
    //! \param name    the page's object name; may be null.
    //! \return null when there is no page at present.
    virtual QWidget * GetPropertyPage(QWidget * parent, char const * name) = 0;
    //! Takes over what stands on the page: on OK and on Apply.
    virtual void slotAcceptPropertyChanges() = 0;

    //! The page closes and its input is dropped.
    virtual void slotCancelPropertyChanges() {}

    //! The page is to show the default settings.
    virtual void slotDefaultPropertyChanges() {}

    //! Place of the page in the tree of pages: its headings and its own name, with slashes between.
    virtual QString const & GetPropertyPagePath() = 0;
};

#endif
