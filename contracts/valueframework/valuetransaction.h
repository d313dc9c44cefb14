// SPDX-License-Identifier: MIT
#ifndef ORIM_VALUETRANSACTION_H
#define ORIM_VALUETRANSACTION_H

#include "lifetime.h"
#include "observable.h"
#include "orimcontracts_export.h"

#include <initializer_list>
#include <vector>

class ValueBase;

//! A bracket around several changes of one value: opened by the constructor, closed by the destructor. Observers hear
//! of the changes once, at the end of the outermost bracket. The value may go away before.
class ORIMCONTRACTS_EXPORT ValueTransaction
{
public:
    //! \param value  may be null: then nothing happens.
    //! \param code  what the observers hear at the end, if anything changed.
    //! \param except  who is left out then; may be null.
    ValueTransaction(ValueBase * value, TChangeCode code, IObserver * except);
    //! The same with several codes, notified in turn.
    ValueTransaction(ValueBase * value, std::initializer_list<TChangeCode> codes, IObserver * except);
    ValueTransaction(ValueTransaction const &) = delete;
    ValueTransaction & operator=(ValueTransaction const &) = delete;
    ~ValueTransaction();

private:
    ValueBase * m_pValue;
    LifeWatch m_watch;
    std::vector<TChangeCode> m_codes;
    IObserver * m_pExcept;
};

#endif
