// SPDX-License-Identifier: MIT
#ifndef ORIM_IABSTRACTTERMINATIONTARGET_H
#define ORIM_IABSTRACTTERMINATIONTARGET_H

#include "orimcontracts_export.h"

//! Base of an object that is told of the application's end while everything it uses still lives. It stands in a list
//! from its construction to its destruction. Built, told and destroyed in the GUI thread.
class ORIMCONTRACTS_EXPORT IAbstractTerminationTarget
{
public:
    IAbstractTerminationTarget();
    IAbstractTerminationTarget(IAbstractTerminationTarget const &) = delete;
    IAbstractTerminationTarget & operator=(IAbstractTerminationTarget const &) = delete;
    virtual ~IAbstractTerminationTarget();

    //! The application ends. May destroy any target, this one included, and may be called more than once. Does nothing
    //! here.
    virtual void aboutToTerminate();

    //! Tells every target, the youngest first. A target that is destroyed meanwhile is not told, one that is built
    //! meanwhile neither; a call from inside a target's aboutToTerminate() does nothing. QCoreApplication::aboutToQuit
    //! calls this; a program that ends without an event loop calls it itself.
    static void TerminateAll();
    //! Number of targets that live.
    static int GetCount();

private:
    IAbstractTerminationTarget * m_pOlder = nullptr; // the list, in the order of construction
    IAbstractTerminationTarget * m_pYounger = nullptr;
};

#endif
