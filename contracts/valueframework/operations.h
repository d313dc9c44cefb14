// SPDX-License-Identifier: MIT
#ifndef ORIM_OPERATIONS_H
#define ORIM_OPERATIONS_H

#include "observable.h"
#include "orimcontracts_export.h"

#include <QList>
#include <QString>

#include <array>
#include <limits>
#include <vector>

class IValueNumeric;
class ValueBase;

// Objects that keep one value of the tree computed from others.
//
// Type codes, with s the source, o the operand, c the constant, r the result:
//
// | Code | BoolOperation: r is true when   | NumericOperation: r =  | NumericCoupler: r = , and back s = |
// |------|---------------------------------|------------------------|------------------------------------|
// |  0   | eEqual         s == o           | eAdd         s + o     | eOffset      s + c      r - c      |
// |  1   | eNotEqual      s != o           | eSubtract    s - o     | eFactor      s * c      r / c      |
// |  2   | eLess          s < o            | eMultiply    s * o     | eQuotient    s / c      r * c      |
// |  3   | eLessEqual     s <= o           | eDivide      s / o     | eMirror      c - s      c - r      |
// |  4   | eGreater       s > o            | eMinimum     min(s, o) | eReciprocal  c / s      c / r      |
// |  5   | eGreaterEqual  s >= o           | eMaximum     max(s, o) |                                    |
// |  6   | eAnd           s and o          | eMean        (s + o)/2 |                                    |
// |  7   | eOr            s or o           | eDistance    |s - o|   |                                    |
// |  8   | eXor           s or o, not both | eRemainder   s mod o   |                                    |
// |  9   | eCommonBits    (s & o) != 0     |                        |                                    |
//
// A list as the operand of a BoolOperation: eEqual and eCommonBits hold when they hold for one entry, eNotEqual and the
// comparisons when they hold for every entry; eAnd, eOr and eXor (an odd number of them is true) take s and all entries
// together. eAnd, eOr, eXor take any number but 0 as true. eCommonBits is false unless both are integers. s mod o has
// the sign of s. Any other code, a result that is not finite and a division by 0 leave the result as it is.
//
// A source may be any bool, char, int, long long or double of the tree; a selection counts as its key. Integers are
// compared as integers.

//! Base of the operations and couplers: binds values by path, follows them, and comes to rest.
//!
//! Values are bound at construction. When one of them is unknown then, of another type, or goes away later, the result
//! stays as it is from then on. Values and operations may end in any order, also inside their own notifications.
//! An operation excludes itself from its own writes. What changes while it writes is taken into account once it has
//! written, in 16 rounds at most: rings of operations come to rest, even when they contradict themselves. Interim
//! values and states are not followed.
class ORIMCONTRACTS_EXPORT OperationBase : public IObserver
{
public:
    OperationBase(OperationBase const &) = delete;
    OperationBase & operator=(OperationBase const &) = delete;
    ~OperationBase() override;

    void Update(Observable * subject, TChangeCode code) override;

protected:
    enum Role
    {
        eResult,
        eSource,
        eOperand
    };

    //! \param operandPath  a second source; empty for none. A result that is a source as well is not bound.
    OperationBase(QString const & resultPath, QString const & sourcePath, QString const & operandPath = QString());

    //! The value in a role; null when it is not bound.
    ValueBase * Get(Role role) const { return m_values[role]; }

    //! Computes for the first time, or anew because the value in a role changed. May delete this.
    void Run(Role changed);
    //! Writes what follows from the change of a value. Only the last thing it does may call observers.
    virtual void Compute(Role changed) = 0;

private:
    void LetGo(ValueBase * value);

    std::array<ValueBase *, 3> m_values{}; // by role; null once it went away
    bool m_running = false;
    bool m_again = false; // something changed while it was running
    Role m_changed = eSource;
};

//! Keeps a Value<bool> telling how a source stands to an operand.
class ORIMCONTRACTS_EXPORT BoolOperation final : public OperationBase
{
public:
    enum Type : unsigned int
    {
        eEqual,
        eNotEqual,
        eLess,
        eLessEqual,
        eGreater,
        eGreaterEqual,
        eAnd,
        eOr,
        eXor,
        eCommonBits
    };

    //! A number as it is compared: integers stay integers.
    struct Number
    {
        bool isInteger = true;
        long long integer = 0;
        double real = 0.0; // the same, also of an integer
    };

    //! The operand is the value at a second path, which is followed, too.
    BoolOperation(QString const & resultPath, QString const & sourcePath, QString const & operandPath, Type type);
    BoolOperation(QString const & resultPath, QString const & sourcePath, double operand, Type type);
    BoolOperation(QString const & resultPath, QString const & sourcePath, int operand, Type type);
    BoolOperation(QString const & resultPath, QString const & sourcePath, QList<int> const & operand, Type type);
    BoolOperation(QString const & resultPath, QString const & sourcePath, QList<double> const & operand, Type type);

private:
    void Compute(Role changed) override;

    Type m_type;
    bool m_followsOperand = false; // the operand is a value
    std::vector<Number> m_operands;
};

//! Keeps a numeric value computed from a source and an operand.
class ORIMCONTRACTS_EXPORT NumericOperation final : public OperationBase
{
public:
    enum Type : unsigned int
    {
        eAdd,
        eSubtract,
        eMultiply,
        eDivide,
        eMinimum,
        eMaximum,
        eMean,
        eDistance,
        eRemainder
    };

    //! The operand is the value at a second path, which is followed, too.
    NumericOperation(QString const & resultPath, QString const & sourcePath, QString const & operandPath, Type type);
    NumericOperation(QString const & resultPath, QString const & sourcePath, double operand, Type type);

private:
    void Compute(Role changed) override;

    Type m_type;
    bool m_followsOperand = false; // the operand is a value
    double m_operand = 0.0;
};

//! Couples two numeric values both ways: the result follows the source, and the source follows a write to the result.
//! The source leads at first. When the limits of the source do not allow what the result asks for, the result follows
//! back; when those of the result do not, or change, the source keeps its value. A constant of 0 couples nothing but
//! eOffset and eMirror.
class ORIMCONTRACTS_EXPORT NumericCoupler final : public OperationBase
{
public:
    enum Type : unsigned int
    {
        eOffset,
        eFactor,
        eQuotient,
        eMirror,
        eReciprocal
    };

    NumericCoupler(QString const & resultPath, QString const & sourcePath, double constant, Type type);

private:
    void Compute(Role changed) override;
    //! Whether somebody wrote the result since it was seen last: it moved, and not to where its limits put the source.
    bool IsWritten(IValueNumeric const & result, double source);
    double Forth(double source) const;
    double Back(double result) const;

    Type m_type;
    double m_constant;
    double m_last = std::numeric_limits<double>::quiet_NaN(); // the result as it was seen last
};

//! Couples a Value<bool> and a selection of the keys 0 and 1 both ways. The bool leads at first, and when the items of
//! the selection change. A chosen key other than 0 counts as 1; a selection without the key that is asked for stays as
//! it is.
class ORIMCONTRACTS_EXPORT BoolSelectionCoupler final : public OperationBase
{
public:
    //! \param inverted  false: key 1 stands for true; true: key 0 does.
    BoolSelectionCoupler(QString const & boolPath, QString const & selectionPath, bool inverted);

    void Update(Observable * subject, TChangeCode code) override;

private:
    void Compute(Role changed) override;

    bool m_inverted;
};

#endif
