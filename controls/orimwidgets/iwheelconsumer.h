// SPDX-License-Identifier: MIT
#ifndef ORIM_IWHEELCONSUMER_H
#define ORIM_IWHEELCONSUMER_H

#include "lifetime.h"
#include "orimwidgets_export.h"

//! Receiver of the turns of a mouse wheel over a widget that is not its own. A widget that hands turns on does not own
//! it, and learns of its end: a consumer may end first, also while it is called.
class ORIMWIDGETS_EXPORT IWheelConsumer
{
public:
    //! The wheel was turned down, towards the operator. May delete the widget that calls.
    virtual void WheelDown() = 0;
    //! The wheel was turned up, away from the operator. May delete the widget that calls.
    virtual void WheelUp() = 0;
    virtual ~IWheelConsumer();

    //! For a LifeWatch on this consumer.
    Lifetime const & GetConsumerLifetime() const { return m_lifetime; }

private:
    Lifetime m_lifetime;
};

#endif
