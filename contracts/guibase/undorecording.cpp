// SPDX-License-Identifier: MIT
#include "undorecording.h"

#include "guibase.h"
#include "tree.h"
#include "valuelist.h"
#include "valuerecorder.h"

#include <QCoreApplication>
#include <QScopedValueRollback>
#include <QSet>
#include <QUndoStack>

#include <algorithm>
#include <variant>
#include <vector>

namespace {

//! What a value held.
struct Content
{
    QString text; // as stored, where NaN and infinity are no numbers
    std::variant<std::monostate, double, std::vector<BearingResult>> typed; // of a value that may hold them
};

//! What a value of the tree held before and after a change.
struct ValueChange
{
    QString path;
    TValueType type;
    Content before;
    Content after;
};

Content Read(ValueBase const & value)
{
    Content content;
    content.text = value.ToStoredText();
    if (auto const * const number = dynamic_cast<Value<double> const *>(&value))
        content.typed = number->GetValue();
    else if (auto const * const list = dynamic_cast<ValueList<BearingResult> const *>(&value))
        content.typed = list->GetEntries();
    return content;
}

void Write(ValueBase & value, Content const & content)
{
    auto * const number = dynamic_cast<Value<double> *>(&value);
    auto * const list = dynamic_cast<ValueList<BearingResult> *>(&value);
    if (auto const * const held = std::get_if<double>(&content.typed); held && number)
        number->SetValue(*held, nullptr);
    else if (auto const * const entries = std::get_if<std::vector<BearingResult>>(&content.typed); entries && list)
        list->SetEntries(*entries, nullptr);
    else
        value.FromStoredText(content.text, nullptr);
}

//! The value that a change speaks of; null when it has gone or is of another type now.
ValueBase * FindValue(ValueChange const & change)
{
    Tree * const tree = Tree::Instance();
    ValueBase * const value = tree ? tree->Find(change.path) : nullptr;
    return value && value->GetType() == change.type ? value : nullptr;
}

//! What the operator reads of a change without a description.
QString TextOf(ValueChange const & change)
{
    QString const name = change.path.section(QLatin1Char('/'), -1);
    return QCoreApplication::translate("GuiUndoRecordingHelper", "Change of %1").arg(name);
}

//! Collects what the values held before their first change while a helper lives.
class Recording : public IValueRecorder
{
public:
    //! Ends with nothing: it is asked until the process ends.
    static Recording & Instance()
    {
        static Recording * const instance = new Recording;
        return *instance;
    }

    void Begin(QString const & text)
    {
        if (m_text.isEmpty())
            m_text = text;
        if (m_depth++ > 0)
            return;
        m_pOuter = ValueBase::Recorder();
        ValueBase::SetRecorder(this);
    }

    void End()
    {
        if (--m_depth > 0)
            return;
        ValueBase::SetRecorder(m_pOuter);
        std::vector<ValueChange> changes;
        changes.swap(m_changes);
        m_seen.clear();
        QString text;
        text.swap(m_text);
        Push(std::move(changes), text);
    }

    void BeforeChange(ValueBase & value) override
    {
        if (m_pOuter)
            m_pOuter->BeforeChange(value);
        QString const path = value.GetPathName();
        if (m_replaying || path.isEmpty() || m_seen.contains(path))
            return;
        m_seen.insert(path);
        m_changes.push_back({ path, value.GetType(), Read(value), Content() });
    }

    //! True while undo or redo writes.
    bool m_replaying = false;

private:
    static void Push(std::vector<ValueChange> changes, QString const & text);

    int m_depth = 0; // helpers alive
    QString m_text;
    std::vector<ValueChange> m_changes; // in the order of their first change
    QSet<QString> m_seen;
    IValueRecorder * m_pOuter = nullptr; // heard before the outermost helper; hears on
};

//! Undo of one user action.
class ValueCommand : public QUndoCommand
{
public:
    ValueCommand(std::vector<ValueChange> changes, QString const & text)
        : QUndoCommand(text)
        , m_changes(std::move(changes))
    {}

    void undo() override
    {
        std::vector<ValueChange> reversed(m_changes.rbegin(), m_changes.rend());
        WriteAll(reversed, &ValueChange::before);
    }

    void redo() override
    {
        if (m_isDone)
            WriteAll(m_changes, &ValueChange::after);
        m_isDone = true;
    }

private:
    //! Two rounds: a value whose limits or coupling hung on a later one comes right in the second.
    static void WriteAll(std::vector<ValueChange> const & changes, Content ValueChange::*content)
    {
        QScopedValueRollback<bool> const replaying(Recording::Instance().m_replaying, true);
        for (int round = 0; round < 2; ++round)
            for (auto const & change : changes)
                if (ValueBase * const value = FindValue(change))
                    Write(*value, change.*content);
    }

    std::vector<ValueChange> m_changes;
    bool m_isDone = false; // the stack calls redo when the command is pushed
};

void Recording::Push(std::vector<ValueChange> changes, QString const & text)
{
    for (auto & change : changes) {
        ValueBase const * const value = FindValue(change);
        change.after = value ? Read(*value) : change.before;
    }
    auto const isBack = [](ValueChange const & change) { return change.after.text == change.before.text; };
    changes.erase(std::remove_if(changes.begin(), changes.end(), isBack), changes.end());
    if (changes.empty())
        return;
    QString const shown = text.isEmpty() ? TextOf(changes.front()) : text;
    GuiBase::Instance().UndoStack()->push(new ValueCommand(std::move(changes), shown));
}

} // namespace

UndoRecordingControlBase::~UndoRecordingControlBase() = default;

QString UndoRecordingControlBase::GetUndoText() const { return {}; }

GuiUndoRecordingHelper::GuiUndoRecordingHelper(UndoRecordingControlBase const * control, QString const & text)
{
    Recording::Instance().Begin(text.isEmpty() && control ? control->GetUndoText() : text);
}

GuiUndoRecordingHelper::~GuiUndoRecordingHelper() { Recording::Instance().End(); }
