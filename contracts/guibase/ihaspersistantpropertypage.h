// SPDX-License-Identifier: MIT
#ifndef ORIM_IHASPERSISTANTPROPERTYPAGE_H
#define ORIM_IHASPERSISTANTPROPERTYPAGE_H

#include "orimcontracts_export.h"

//! A provider of settings that takes part in storing them. It is found by a cast from the provider of the page.
class ORIMCONTRACTS_EXPORT IHasPersistantPropertyPage
{
public:
    virtual ~IHasPersistantPropertyPage() = default;

    //! Called before the settings are written to the store.
    virtual void BeforePersistantWrite() = 0;
    //! Called after the settings were read from the store.
    virtual void AfterPersistantRead() = 0;
};

#endif
