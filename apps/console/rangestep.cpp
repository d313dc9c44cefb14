// SPDX-License-Identifier: MIT
#include "rangestep.h"

#include "tree.h"
#include "valuenumeric.h"

namespace {

constexpr int StepId = 1; // steps of this kind may become one

} // namespace

RangeStep::RangeStep(QString const & text, QString const & startPath, QString const & stopPath, Range before,
                     Range after, bool isRepeat)
    : QUndoCommand(text)
    , m_startPath(startPath)
    , m_stopPath(stopPath)
    , m_before(before)
    , m_after(after)
    , m_isRepeat(isRepeat)
{}

RangeStep::~RangeStep() = default;

void RangeStep::undo() { Write(m_before); }

void RangeStep::redo() { Write(m_after); }

int RangeStep::id() const { return StepId; }

bool RangeStep::mergeWith(QUndoCommand const * other)
{
    auto const * const next = dynamic_cast<RangeStep const *>(other);
    if (!next || !next->m_isRepeat || next->m_startPath != m_startPath || next->m_stopPath != m_stopPath)
        return false;
    m_after = next->m_after;
    return true;
}

//! The end in front moves first, so that neither end holds the other back.
void RangeStep::Write(Range range) const
{
    Tree const * const tree = Tree::Instance();
    if (!tree)
        return;
    auto const set = [tree](QString const & path, double number) {
        if (auto * const value = tree->FindAs<ValueNumeric<double>>(path))
            value->SetValue(number, nullptr);
    };
    auto const * const start = tree->FindAs<ValueNumeric<double>>(m_startPath);
    auto const * const stop = tree->FindAs<ValueNumeric<double>>(m_stopPath);
    if (start && stop && (range.stop <= start->GetMin() || range.start >= stop->GetMax()))
        return;
    bool const upward = start && range.start > start->GetValue();
    if (upward)
        set(m_stopPath, range.stop);
    set(m_startPath, range.start);
    if (!upward)
        set(m_stopPath, range.stop);
}
