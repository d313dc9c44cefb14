// SPDX-License-Identifier: MIT
#ifndef ORIM_TEST_SCENE_H
#define ORIM_TEST_SCENE_H

#include "observable.h"

#include <QString>
#include <QStringList>
#include <QtTest>

#include <functional>

//! What a row does; returns what was seen, to be compared with the text of the row.
using Scene = std::function<QString()>;
Q_DECLARE_METATYPE(Scene)

inline void SceneColumns()
{
    QTest::addColumn<Scene>("scene");
    QTest::addColumn<QString>("seen");
}

inline void SceneRow(char const * name, Scene const & scene, char const * seen)
{
    QTest::newRow(name) << scene << QString::fromLatin1(seen);
}

//! The body of a test function over such rows.
inline void PlayScene()
{
    QFETCH(Scene, scene);
    QFETCH(QString, seen);
    QCOMPARE(scene(), seen);
}

//! What was heard, in order: "a3 b3" is code 3 told to a, then to b.
class Log
{
public:
    void Add(QString const & word) { m_words += word; }

    QString Text() const { return m_words.join(QLatin1Char(' ')); }

    int Count() const { return static_cast<int>(m_words.size()); }

    void Clear() { m_words.clear(); }

private:
    QStringList m_words;
};

//! Writes what it hears into a log, then reacts.
class Listener : public IObserver
{
public:
    using Reaction = std::function<void(Observable *, TChangeCode)>;

    Listener(char const * name, Log & log, Reaction reaction = {})
        : m_name(QString::fromLatin1(name))
        , m_pLog(&log)
        , m_reaction(std::move(reaction))
    {}

    void Update(Observable * subject, TChangeCode code) override
    {
        m_pLog->Add(m_name + QString::number(static_cast<int>(code)));
        Reaction const reaction = m_reaction; // outlives this object when it is deleted on the way
        if (reaction)
            reaction(subject, code);
    }

    void SetReaction(Reaction reaction) { m_reaction = std::move(reaction); }

private:
    QString m_name;
    Log * m_pLog;
    Reaction m_reaction;
};

inline QString Number(double value) { return QString::number(value, 'g', 17); }

inline QString YesNo(bool value) { return QLatin1String(value ? "yes" : "no"); }

#endif
