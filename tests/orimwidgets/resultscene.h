// SPDX-License-Identifier: MIT
#ifndef ORIM_RESULTSCENE_H
#define ORIM_RESULTSCENE_H

#include "testmarkerlist.h"
#include "valuelist.h"

using ResultList = ValueList<BearingResult>;

//! A value of the tree under "/test", taken from it at the end unless it went before.
template <class T>
class TreeValue
{
public:
    explicit TreeValue(char const * name) : m_path(QStringLiteral("/test/") + QLatin1String(name)) { Return(); }

    TreeValue(TreeValue const &) = delete;
    TreeValue & operator=(TreeValue const &) = delete;

    ~TreeValue() { Remove(); }

    void Remove() { Tree::Instance()->Remove(m_path); }

    //! Puts a new value at the path.
    void Return()
    {
        m_pValue = new T(m_path.section(QLatin1Char('/'), -1));
        Tree::Instance()->Insert(QStringLiteral("/test"), m_pValue);
    }

    QString const & Path() const { return m_path; }

    T * operator->() const { return m_pValue; }

    T * Get() const { return m_pValue; }

private:
    QString m_path;
    T * m_pValue = nullptr; // of the tree
};

//! A result whose values are base, base + 1, ... up to base + 4.
inline BearingResult ResultFrom(double base, QString const & text = QString())
{
    return BearingResult({ base, base + 1, base + 2, base + 3, base + 4 }, text);
}

//! As many results, from 0.0, 10.0, 20.0 and so on.
inline std::vector<BearingResult> Results(int count)
{
    std::vector<BearingResult> results;
    for (int i = 0; i < count; ++i)
        results.push_back(ResultFrom(10.0 * i, QString::number(i)));
    return results;
}

#endif
