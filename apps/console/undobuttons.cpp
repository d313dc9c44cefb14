// SPDX-License-Identifier: MIT
#include "undobuttons.h"

#include "guibase.h"

#include <QAction>
#include <QApplication>
#include <QHBoxLayout>
#include <QKeySequence>
#include <QToolButton>
#include <QUndoStack>

namespace {

//! In the middle of a drag nothing is taken back: its step is yet to come, and would jump over that.
void KeepFromDrags(QAction * action, QUndoStack * stack, void (QUndoStack::*step)())
{
    QObject::disconnect(action, &QAction::triggered, stack, nullptr);
    QObject::connect(action, &QAction::triggered, stack, [stack, step] {
        if (QApplication::mouseButtons() == Qt::NoButton)
            (stack->*step)();
    });
}

} // namespace

UndoButtons::UndoButtons(QWidget * parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("undoButtons"));
    auto * const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    QUndoStack * const stack = GuiBase::Instance().UndoStack();
    QAction * const undo = stack->createUndoAction(this);
    undo->setShortcut(QKeySequence(QStringLiteral("Ctrl+Z")));
    KeepFromDrags(undo, stack, &QUndoStack::undo);
    QAction * const redo = stack->createRedoAction(this);
    KeepFromDrags(redo, stack, &QUndoStack::redo);
    redo->setShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+Z")));
    AddButton("undo", tr("Undo"), undo);
    AddButton("redo", tr("Redo"), redo);
}

UndoButtons::~UndoButtons() = default;

//! The button keeps its text, so that the strip keeps its layout; the action's own names the change.
void UndoButtons::AddButton(char const * name, QString const & text, QAction * action)
{
    addAction(action);
    auto * const button = new QToolButton(this);
    button->setObjectName(QLatin1String(name));
    button->setText(text);
    button->setAccessibleName(text);
    auto const show = [button, action] {
        button->setEnabled(action->isEnabled());
        button->setToolTip(action->text() + QStringLiteral(" (") + action->shortcut().toString() + QLatin1Char(')'));
    };
    show();
    connect(action, &QAction::changed, button, show);
    connect(button, &QToolButton::clicked, action, &QAction::trigger);
    layout()->addWidget(button);
}
