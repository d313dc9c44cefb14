// SPDX-License-Identifier: MIT
#include "operations.h"

#include "tree.h"
#include "value.h"
#include "valuenumeric.h"
#include "valueselection.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace {

using Number = BoolOperation::Number;

constexpr int MaxRounds = 16;

Number FromInteger(long long value) { return { true, value, static_cast<double>(value) }; }

Number FromReal(double value) { return { false, 0, value }; }

template <class T, class Make>
std::optional<Number> ReadAs(ValueBase const * value, Make make)
{
    auto const * const typed = dynamic_cast<Value<T> const *>(value);
    return typed ? std::optional<Number>(make(typed->GetValue())) : std::nullopt;
}

//! A value as a number; none for null and for a value that is no number.
std::optional<Number> Read(ValueBase const * value)
{
    if (!value)
        return std::nullopt;
    if (auto const number = ReadAs<double>(value, FromReal))
        return number;
    if (auto const number = ReadAs<int>(value, FromInteger))
        return number;
    if (auto const number = ReadAs<bool>(value, FromInteger))
        return number;
    if (auto const number = ReadAs<long long>(value, FromInteger))
        return number;
    if (auto const number = ReadAs<char>(value, FromInteger))
        return number;
    if (auto const * const selection = dynamic_cast<ValueSelection const *>(value))
        return FromInteger(selection->GetCurrentKey());
    return std::nullopt;
}

bool IsTrue(Number const & number) { return number.isInteger ? number.integer != 0 : number.real != 0.0; }

bool IsLess(Number const & a, Number const & b)
{
    return a.isInteger && b.isInteger ? a.integer < b.integer : a.real < b.real;
}

bool IsEqual(Number const & a, Number const & b)
{
    return a.isInteger && b.isInteger ? a.integer == b.integer : a.real == b.real;
}

bool HaveCommonBits(Number const & a, Number const & b)
{
    return a.isInteger && b.isInteger && (a.integer & b.integer) != 0;
}

//! The answer of a BoolOperation; none for an unknown code.
std::optional<bool> Answer(BoolOperation::Type type, Number const & s, std::vector<Number> const & operands)
{
    auto const one = [&operands](auto holds) { return std::any_of(operands.begin(), operands.end(), holds); };
    auto const every = [&operands](auto holds) { return std::all_of(operands.begin(), operands.end(), holds); };
    switch (type) {
    case BoolOperation::eEqual:
        return one([&s](Number const & o) { return IsEqual(s, o); });
    case BoolOperation::eNotEqual:
        return every([&s](Number const & o) { return !IsEqual(s, o); });
    case BoolOperation::eLess:
        return every([&s](Number const & o) { return IsLess(s, o); });
    case BoolOperation::eLessEqual:
        return every([&s](Number const & o) { return IsLess(s, o) || IsEqual(s, o); });
    case BoolOperation::eGreater:
        return every([&s](Number const & o) { return IsLess(o, s); });
    case BoolOperation::eGreaterEqual:
        return every([&s](Number const & o) { return IsLess(o, s) || IsEqual(s, o); });
    case BoolOperation::eAnd:
        return IsTrue(s) && every(IsTrue);
    case BoolOperation::eOr:
        return IsTrue(s) || one(IsTrue);
    case BoolOperation::eXor:
        return (std::count_if(operands.begin(), operands.end(), IsTrue) + (IsTrue(s) ? 1 : 0)) % 2 == 1;
    case BoolOperation::eCommonBits:
        return one([&s](Number const & o) { return HaveCommonBits(s, o); });
    }
    return std::nullopt;
}

//! The answer of a NumericOperation; NaN for none.
double Answer(NumericOperation::Type type, double s, double o)
{
    if (std::isnan(o))
        return o;
    switch (type) {
    case NumericOperation::eAdd:
        return s + o;
    case NumericOperation::eSubtract:
        return s - o;
    case NumericOperation::eMultiply:
        return s * o;
    case NumericOperation::eDivide:
        return o == 0.0 ? std::nan("") : s / o;
    case NumericOperation::eMinimum:
        return o < s ? o : s;
    case NumericOperation::eMaximum:
        return o > s ? o : s;
    case NumericOperation::eMean:
        return s / 2.0 + o / 2.0; // the sum of two large numbers is infinite
    case NumericOperation::eDistance:
        return std::fabs(s - o);
    case NumericOperation::eRemainder:
        return o == 0.0 ? std::nan("") : std::fmod(s, o);
    }
    return std::nan("");
}

} // namespace

OperationBase::OperationBase(QString const & resultPath, QString const & sourcePath, QString const & operandPath)
{
    Tree * const tree = Tree::Instance();
    if (!tree)
        return;
    m_values = { tree->Find(resultPath), tree->Find(sourcePath), tree->Find(operandPath) };
    if (m_values[eResult] == m_values[eSource] || m_values[eResult] == m_values[eOperand])
        m_values[eResult] = nullptr;
    for (ValueBase * const value : m_values)
        if (value)
            value->AddObserver(this);
}

OperationBase::~OperationBase()
{
    for (ValueBase * const value : m_values)
        if (value)
            value->DeleteObserver(this);
}

void OperationBase::Update(Observable * subject, TChangeCode code)
{
    for (Role const role : { eResult, eSource, eOperand }) {
        ValueBase * const value = m_values[role];
        if (!value || subject != value)
            continue;
        if (code == eStateChanged && value->GetState() == eStateGoingAway)
            LetGo(value);
        else if (code != eStateChanged && code != eInterimChanged)
            Run(role);
        return;
    }
}

void OperationBase::LetGo(ValueBase * value)
{
    value->DeleteObserver(this);
    std::replace(m_values.begin(), m_values.end(), value, static_cast<ValueBase *>(nullptr));
}

void OperationBase::Run(Role changed)
{
    if (!m_again || changed != eResult)
        m_changed = changed; // a change of a source outranks one of the result
    m_again = true;
    if (m_running)
        return;
    m_running = true;
    LifeWatch const watch(GetObserverLifetime());
    for (int round = 0; round < MaxRounds && m_again; ++round) {
        m_again = false;
        Compute(m_changed);
        if (watch.IsOver())
            return;
    }
    m_running = false;
    m_again = false;
}

BoolOperation::BoolOperation(QString const & resultPath, QString const & sourcePath, QString const & operandPath,
                             Type type)
    : OperationBase(resultPath, sourcePath, operandPath)
    , m_type(type)
    , m_followsOperand(true)
{
    Run(eSource);
}

BoolOperation::BoolOperation(QString const & resultPath, QString const & sourcePath, double operand, Type type)
    : BoolOperation(resultPath, sourcePath, QList<double>{ operand }, type)
{}

BoolOperation::BoolOperation(QString const & resultPath, QString const & sourcePath, int operand, Type type)
    : BoolOperation(resultPath, sourcePath, QList<int>{ operand }, type)
{}

BoolOperation::BoolOperation(QString const & resultPath, QString const & sourcePath, QList<int> const & operand,
                             Type type)
    : OperationBase(resultPath, sourcePath)
    , m_type(type)
{
    std::transform(operand.begin(), operand.end(), std::back_inserter(m_operands), FromInteger);
    Run(eSource);
}

BoolOperation::BoolOperation(QString const & resultPath, QString const & sourcePath, QList<double> const & operand,
                             Type type)
    : OperationBase(resultPath, sourcePath)
    , m_type(type)
{
    std::transform(operand.begin(), operand.end(), std::back_inserter(m_operands), FromReal);
    Run(eSource);
}

void BoolOperation::Compute(Role changed)
{
    auto * const result = dynamic_cast<Value<bool> *>(Get(eResult));
    std::optional<Number> const source = Read(Get(eSource));
    if (!result || !source || changed == eResult)
        return;
    if (m_followsOperand) {
        std::optional<Number> const operand = Read(Get(eOperand));
        if (!operand)
            return;
        m_operands.assign(1, *operand);
    }
    if (std::optional<bool> const answer = Answer(m_type, *source, m_operands))
        result->SetValue(*answer, this);
}

NumericOperation::NumericOperation(QString const & resultPath, QString const & sourcePath, QString const & operandPath,
                                   Type type)
    : OperationBase(resultPath, sourcePath, operandPath)
    , m_type(type)
    , m_followsOperand(true)
{
    Run(eSource);
}

NumericOperation::NumericOperation(QString const & resultPath, QString const & sourcePath, double operand, Type type)
    : OperationBase(resultPath, sourcePath)
    , m_type(type)
    , m_operand(operand)
{
    Run(eSource);
}

void NumericOperation::Compute(Role changed)
{
    auto * const result = dynamic_cast<IValueNumeric *>(Get(eResult));
    std::optional<Number> const source = Read(Get(eSource));
    std::optional<Number> const operand = m_followsOperand ? Read(Get(eOperand)) : FromReal(m_operand);
    if (!result || !source || !operand || changed == eResult)
        return;
    double const answer = Answer(m_type, source->real, operand->real);
    if (std::isfinite(answer))
        result->SetNumericValue(answer, this);
}

NumericCoupler::NumericCoupler(QString const & resultPath, QString const & sourcePath, double constant, Type type)
    : OperationBase(resultPath, sourcePath)
    , m_type(type)
    , m_constant(constant)
{
    Run(eSource);
}

void NumericCoupler::Compute(Role changed)
{
    auto * const result = dynamic_cast<IValueNumeric *>(Get(eResult));
    auto * const source = dynamic_cast<IValueNumeric *>(Get(eSource));
    bool const isLost = m_constant == 0.0 && (m_type == eFactor || m_type == eQuotient || m_type == eReciprocal);
    if (!result || !source || isLost)
        return;
    if (changed == eSource) {
        double const answer = Forth(source->GetNumericValue());
        if (!std::isfinite(answer))
            return;
        m_last = result->Snap(answer);
        result->SetNumericValue(answer, this);
        return;
    }
    if (!IsWritten(*result, source->GetNumericValue()))
        return;
    double const wanted = Back(result->GetNumericValue());
    if (!std::isfinite(wanted))
        return;
    if (source->Snap(wanted) != wanted)
        Run(eSource); // once the source has taken what it may
    source->SetNumericValue(wanted, this);
}

bool NumericCoupler::IsWritten(IValueNumeric const & result, double source)
{
    double const now = result.GetNumericValue();
    double const shown = Forth(source);
    bool const followsItsLimits = std::isfinite(shown) && result.Snap(shown) == now;
    bool const moved = now != m_last;
    m_last = now;
    return moved && !followsItsLimits;
}

double NumericCoupler::Forth(double source) const
{
    switch (m_type) {
    case eOffset:
        return source + m_constant;
    case eFactor:
        return source * m_constant;
    case eQuotient:
        return source / m_constant;
    case eMirror:
        return m_constant - source;
    case eReciprocal:
        return m_constant / source;
    }
    return std::nan("");
}

double NumericCoupler::Back(double result) const
{
    switch (m_type) {
    case eOffset:
        return result - m_constant;
    case eFactor:
        return result / m_constant;
    case eQuotient:
        return result * m_constant;
    case eMirror:
    case eReciprocal:
        return Forth(result);
    }
    return std::nan("");
}

BoolSelectionCoupler::BoolSelectionCoupler(QString const & boolPath, QString const & selectionPath, bool inverted)
    : OperationBase(selectionPath, boolPath)
    , m_inverted(inverted)
{
    Run(eSource);
}

void BoolSelectionCoupler::Update(Observable * subject, TChangeCode code)
{
    if (code == eItemsChanged)
        Run(eSource);
    else
        OperationBase::Update(subject, code);
}

void BoolSelectionCoupler::Compute(Role changed)
{
    auto * const selection = dynamic_cast<ValueSelection *>(Get(eResult));
    auto * const flag = dynamic_cast<Value<bool> *>(Get(eSource));
    if (!selection || !flag)
        return;
    if (changed == eSource)
        selection->Select(flag->GetValue() != m_inverted ? 1L : 0L, this);
    else if (selection->GetCurrentItem())
        flag->SetValue((selection->GetCurrentKey() != 0) != m_inverted, this);
}
