// SPDX-License-Identifier: MIT
#ifndef ORIM_IHASMULTIPLEPROPERTYPAGES_H
#define ORIM_IHASMULTIPLEPROPERTYPAGES_H

#include "orimcontracts_export.h"

#include <QString>

#include <vector>

class QWidget;

//! Provider of several settings pages, each known by a number of the provider's choice.
class ORIMCONTRACTS_EXPORT IHasMultiplePropertyPages
{
public:
    virtual ~IHasMultiplePropertyPages() = default;

    //! Numbers of the pages, in the order in which they are shown.
    virtual std::vector<short> GetPropertyPageIds() = 0;
    //! Place of a page in the tree of pages, with slashes between its parts; empty for a number that is none.
    virtual QString GetPropertyPagePath(short id) = 0;
    //! The page, made on each call and owned by \a parent; null for a number that is none.
    virtual QWidget * GetPropertyPage(short id, QWidget * parent, char const * name) = 0;
};

#endif
