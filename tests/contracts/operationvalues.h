// SPDX-License-Identifier: MIT
#ifndef ORIM_TEST_OPERATIONVALUES_H
#define ORIM_TEST_OPERATIONVALUES_H

#include "operations.h"
#include "testmain.h"
#include "tree.h"
#include "value.h"
#include "valuenumeric.h"
#include "valueselection.h"

#include <functional>

//! Makes a value of the tree at "/test/" + name, or gives the one that is there.
template <class T>
T & Make(char const * name)
{
    QString const path = QLatin1String("/test/") + QLatin1String(name);
    if (T * const known = Tree::Instance()->FindAs<T>(path))
        return *known;
    auto * const value = new T(QLatin1String(name));
    Tree::Instance()->Insert(QStringLiteral("/test"), value);
    return *value;
}

using Real = ValueNumeric<double>;
using Flag = Value<bool>;

inline QString const Source = QStringLiteral("/test/source");
inline QString const Operand = QStringLiteral("/test/operand");
inline QString const Result = QStringLiteral("/test/result");

//! Counts what it is told, and may do something then.
class Listener : public IObserver
{
public:
    void Update(Observable * subject, TChangeCode code) override
    {
        codes.append(code);
        if (action)
            action(subject, code);
    }

    QVector<int> codes;
    std::function<void(Observable *, TChangeCode)> action;
};

#endif
