// SPDX-License-Identifier: MIT
#ifndef ORIM_TEST_BOUNDVALUE_H
#define ORIM_TEST_BOUNDVALUE_H

#include "guibase.h"
#include "observable.h"
#include "tree.h"
#include "valueselection.h"

#include <QVector>

#include <functional>
#include <vector>

//! A second observer of the value that a widget is bound to: counts what it hears, then acts.
class Watcher : public IObserver
{
public:
    void Update(Observable *, TChangeCode code) override
    {
        ++m_calls;
        m_codes.append(code);
        if (m_then)
            m_then();
    }

    int m_calls = 0;
    QVector<int> m_codes;
    std::function<void()> m_then;
};

inline QUndoStack & Undo() { return *GuiBase::Instance().UndoStack(); }

//! Plants a selection with one item chosen.
inline ValueSelection * PlantSelection(QString const & folder, QString const & name,
                                       std::vector<SelectionItem> const & items, long key)
{
    auto * const selection = new ValueSelection(name);
    selection->AddItems(items);
    selection->Select(key, nullptr);
    Tree::Instance()->Insert(folder, selection);
    return selection;
}

#endif
