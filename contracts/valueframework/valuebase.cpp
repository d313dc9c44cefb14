// SPDX-License-Identifier: MIT
#include "valuebase.h"

#include "valuerecorder.h"

#include <array>
#include <utility>

namespace {

IValueRecorder * TheRecorder = nullptr;

struct TypeName
{
    TValueType type;
    char const * name;
};

constexpr std::array<TypeName, 14> TypeNames{ { { eTypeOther, "Other" },
                                                { eTypeBool, "Bool" },
                                                { eTypeChar, "Char" },
                                                { eTypeInt, "Int" },
                                                { eTypeInt64, "Int64" },
                                                { eTypeFloat, "Float" },
                                                { eTypeString, "String" },
                                                { eTypeCString, "CString" },
                                                { eTypeNumericInt, "NumericInt" },
                                                { eTypeNumericInt64, "NumericInt64" },
                                                { eTypeNumericFloat, "NumericFloat" },
                                                { eTypeSelection, "Selection" },
                                                { eTypeList, "List" },
                                                { eTypeAgedImage, "AgedImage" } } };

constexpr bool IsIndexedByType()
{
    for (std::size_t i = 0; i < TypeNames.size(); ++i)
        if (TypeNames[i].type != static_cast<TValueType>(i))
            return false;
    return true;
}

static_assert(IsIndexedByType(), "a type is the index of its row");

} // namespace

IValue::~IValue() = default;
ITreeItem::~ITreeItem() = default;
IDeleteSubject::~IDeleteSubject() = default;
ISupportTransaction::~ISupportTransaction() = default;
IHasTimerCallback::~IHasTimerCallback() = default;
IOptimizeTrigger::~IOptimizeTrigger() = default;
IValueRecorder::~IValueRecorder() = default;

void IHasTimerCallback::TimerCallback(int /*id*/) {}

void IOptimizeTrigger::OptimizeTrigger() {}

ValueBase::ValueBase(QString const & name, TValueState state) : m_name(name), m_state(state) {}

ValueBase::~ValueBase() { GoAway(); }

void ValueBase::SetName(QString const & name, IObserver * except)
{
    if (name == m_name)
        return;
    if (ITreeItem * const item = m_pTree ? m_pTree : m_pDeleteObserver) {
        QString const path = item->RenameSubject(this, name);
        if (path.isEmpty())
            return;
        if (path != m_path) // the tree may refer to the characters of the path that it has set
            m_path = path;
    }
    m_name = name;
    HasChanged(eStateChanged, except);
}

char const * ValueBase::GetTypeName() const
{
    auto const index = static_cast<std::size_t>(GetType());
    return TypeNames[index < TypeNames.size() ? index : 0].name;
}

void ValueBase::SetRecorder(IValueRecorder * recorder) { TheRecorder = recorder; }

IValueRecorder * ValueBase::Recorder() { return TheRecorder; }

void ValueBase::BeforeChange()
{
    if (TheRecorder)
        TheRecorder->BeforeChange(*this);
}

void ValueBase::SetState(TValueState state, IObserver * except)
{
    if (m_gone || state == m_state)
        return;
    m_state = state;
    HasChanged(eStateChanged, except);
}

void ValueBase::HasChanged(TChangeCode code, IObserver * except)
{
    if (m_gone)
        return;
    if (m_transactions > 0 && code != eStateChanged)
        m_changedInside = true;
    else
        NotifyObservers(code, except);
}

void ValueBase::StartTransaction(IObserver * /*starter*/) { ++m_transactions; }

void ValueBase::EndTransaction(TChangeCode code, IObserver * except) { EndTransactionWith(&code, &code + 1, except); }

void ValueBase::EndTransactionWith(std::initializer_list<TChangeCode> codes, IObserver * except)
{
    EndTransactionWith(codes.begin(), codes.end(), except);
}

void ValueBase::EndTransactionWith(TChangeCode const * first, TChangeCode const * last, IObserver * except)
{
    if (m_transactions == 0 || --m_transactions > 0)
        return;
    if (!m_changedInside)
        return;
    m_changedInside = false;
    LifeWatch const watch(GetLifetime());
    for (; first != last && !watch.IsOver(); ++first)
        HasChanged(*first, except);
}

void ValueBase::GoAway()
{
    if (m_gone)
        return;
    m_state = eStateGoingAway;
    m_gone = true;
    CloseObservers();
    if (ITreeItem * const tree = std::exchange(m_pTree, nullptr))
        tree->SubjectGoesAway(this);
    if (ITreeItem * const item = std::exchange(m_pDeleteObserver, nullptr))
        item->SubjectGoesAway(this);
    LifeWatch const watch(GetLifetime());
    NotifyAtAnyDepth(eStateChanged, nullptr);
    if (!watch.IsOver())
        DeleteObservers();
}
