// SPDX-License-Identifier: MIT
#include "valuetransaction.h"

#include "valuebase.h"

ValueTransaction::ValueTransaction(ValueBase * value, TChangeCode code, IObserver * except)
    : ValueTransaction(value, { code }, except)
{}

ValueTransaction::ValueTransaction(ValueBase * value, std::initializer_list<TChangeCode> codes, IObserver * except)
    : m_pValue(value)
    , m_watch(value ? LifeWatch(value->GetLifetime()) : LifeWatch())
    , m_codes(codes)
    , m_pExcept(except)
{
    if (m_pValue)
        m_pValue->StartTransaction(m_pExcept);
}

ValueTransaction::~ValueTransaction()
{
    if (m_watch.IsOver())
        return;
    if (m_codes.size() == 1)
        m_pValue->EndTransaction(m_codes.front(), m_pExcept);
    else
        m_pValue->EndTransactionWith(m_codes.data(), m_codes.data() + m_codes.size(), m_pExcept);
}
