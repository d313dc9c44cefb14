// SPDX-License-Identifier: MIT
#include "valuefollower.h"

#include "tree.h"
#include "valuenumeric.h"
#include "valueselection.h"

#include <utility>

ValueFollower::ValueFollower(std::function<void()> changed) : m_changed(std::move(changed)) {}

ValueFollower::~ValueFollower() { LetGo(); }

bool ValueFollower::Bind(QString const & path)
{
    LetGo();
    Tree const * const tree = Tree::Instance();
    m_pValue = tree ? tree->Find(path) : nullptr;
    if (!m_pValue)
        return false;
    m_pNumeric = dynamic_cast<IValueNumeric *>(m_pValue);
    m_pSelection = dynamic_cast<ValueSelection *>(m_pValue);
    m_pFlag = dynamic_cast<Value<bool> *>(m_pValue);
    m_pValue->AddObserver(this);
    m_changed();
    return true;
}

double ValueFollower::Number(double fallback) const { return m_pNumeric ? m_pNumeric->GetNumericValue() : fallback; }

long ValueFollower::Key(long fallback) const
{
    return m_pSelection && m_pSelection->GetCurrentItem() ? m_pSelection->GetCurrentKey() : fallback;
}

bool ValueFollower::Flag(bool fallback) const { return m_pFlag ? m_pFlag->GetValue() : fallback; }

void ValueFollower::SetNumber(double number)
{
    if (m_pNumeric)
        m_pNumeric->SetNumericValue(number, nullptr);
}

void ValueFollower::SetKey(long key)
{
    if (m_pSelection)
        m_pSelection->Select(key, nullptr);
}

void ValueFollower::SetFlag(bool on)
{
    if (m_pFlag)
        m_pFlag->SetValue(on, nullptr);
}

void ValueFollower::Update(Observable * subject, TChangeCode code)
{
    if (!m_pValue || subject != m_pValue)
        return;
    if (code == eStateChanged) {
        if (m_pValue->GetState() == eStateGoingAway)
            LetGo();
    } else {
        m_changed();
    }
}

void ValueFollower::LetGo()
{
    if (m_pValue)
        m_pValue->DeleteObserver(this);
    m_pValue = nullptr;
    m_pNumeric = nullptr;
    m_pSelection = nullptr;
    m_pFlag = nullptr;
}
