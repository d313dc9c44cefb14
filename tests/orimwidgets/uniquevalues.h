// SPDX-License-Identifier: MIT
#ifndef ORIM_UNIQUEVALUES_H
#define ORIM_UNIQUEVALUES_H

#include "guicentralaccess.h"
#include "tree.h"
#include "valueselection.h"

#include <QTranslator>

#include <algorithm>
#include <functional>
#include <limits>
#include <utility>

using Central = GuiCentral;
using Real = ValueNumeric<double>;
using Whole = ValueNumeric<int>;
using Flag = Value<bool>;

constexpr double Lowest = std::numeric_limits<double>::lowest();
constexpr double Highest = std::numeric_limits<double>::max();
constexpr int IntLowest = std::numeric_limits<int>::min();
constexpr int IntHighest = std::numeric_limits<int>::max();
constexpr long long LongLowest = std::numeric_limits<long long>::min();
constexpr long long LongHighest = std::numeric_limits<long long>::max();

struct Creator
{
    char const * row;
    QString (*create)(Central & central);
    char const * path; // without the number
    TValueType type;
    char const * text; // of the value
};

//! All ways to a value.
constexpr Creator Creators[] = {
    { "boolean", [](Central & c) { return c.CreateUniqueValueBoolean(true); },
      "/GuiCentral/unique/boolean/UNIQUE_BOOL_", eTypeBool, "true" },
    { "char", [](Central & c) { return c.CreateUniqueValueChar('A'); }, "/GuiCentral/unique/char/UNIQUE_CHAR_",
      eTypeChar, "65" },
    { "float", [](Central & c) { return c.CreateUniqueValueFloat(2.5, -10.0, 10.0, 0.0); },
      "/GuiCentral/unique/float/UNIQUE_FLOAT_", eTypeNumericFloat, "2.5" },
    { "int", [](Central & c) { return c.CreateUniqueValueInt(7, -10, 10, 1); }, "/GuiCentral/unique/int/UNIQUE_INT_",
      eTypeNumericInt, "7" },
    { "int64", [](Central & c) { return c.CreateUniqueValueInt64(5000000000, 0, 6000000000, 1); },
      "/GuiCentral/unique/int64/UNIQUE_INT64_", eTypeNumericInt64, "5000000000" },
    { "selection", [](Central & c) { return c.CreateUniqueValueSelection(nullptr); },
      "/GuiCentral/unique/selection/UNIQUE_SELECTION_", eTypeSelection, "" },
    { "string", [](Central & c) { return c.CreateUniqueValueString(QStringLiteral("wide")); },
      "/GuiCentral/unique/string/UNIQUE_STRING_", eTypeString, "wide" },
    { "narrow string", [](Central & c) { return c.CreateUniqueValueCString("narrow"); },
      "/GuiCentral/unique/string/UNIQUE_STRING_", eTypeCString, "narrow" }
};

template <class T>
T * Find(QString const & path)
{
    return Tree::Instance()->FindAs<T>(path);
}

//! A value at "/central/" + name.
template <class T>
T * Insert(char const * name)
{
    auto * const value = new T(QString::fromLatin1(name));
    Tree::Instance()->Insert(QStringLiteral("/central"), value);
    return value;
}

inline QString Path(char const * name) { return QStringLiteral("/central/") + QLatin1String(name); }

//! A bool operation on "/central/source" with a value that is 5.
inline QString OfPath(Central & central, unsigned int type)
{
    return central.CreateBoolOperation(Path("source"), Path("operand"), type);
}

//! The same with the number 5.
inline QString OfInt(Central & central, unsigned int type)
{
    return central.CreateBoolOperation(Path("source"), 5, type);
}

//! Paths of the unique values that are in the tree.
inline QStringList Left() { return Tree::Instance()->GetPaths(QStringLiteral("/GuiCentral/unique")); }

//! Turns the texts of the central object round.
class Reverser : public QTranslator
{
public:
    QString translate(char const * context, char const * text, char const *, int) const override
    {
        QString reversed = QString::fromLatin1(text);
        std::reverse(reversed.begin(), reversed.end());
        return qstrcmp(context, "GuiCentral") == 0 ? reversed : QString();
    }

    bool isEmpty() const override { return false; }
};

//! Does something at each change of the values it hears, or at their farewell.
class Witness : public IObserver
{
public:
    explicit Witness(TChangeCode code, std::function<void(ValueBase *)> act) : m_code(code), m_act(std::move(act)) {}

    void Hear(QString const & path) { Tree::Instance()->Find(path)->AddObserver(this); }

    void Update(Observable * subject, TChangeCode code) override
    {
        auto * const value = dynamic_cast<ValueBase *>(subject);
        if (code == m_code && (code != eStateChanged || value->GetState() == eStateGoingAway))
            m_act(value);
    }

private:
    TChangeCode m_code;
    std::function<void(ValueBase *)> m_act;
};

#endif
