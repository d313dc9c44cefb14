// SPDX-License-Identifier: MIT
#include "hotkeyedit.h"

#include <QKeyEvent>

HotKeyEdit::HotKeyEdit(QWidget * parent) : QKeySequenceEdit(parent) {}

void HotKeyEdit::SetCombination(HotKeyCombination const & combination)
{
    m_combination = combination;
    setKeySequence(combination.IsNone() ? QKeySequence() : QKeySequence(combination.key | combination.modifiers));
}

void HotKeyEdit::keyPressEvent(QKeyEvent * event)
{
    HotKeyCombination const pressed = HotKeyCombination::From(event->key(), static_cast<int>(event->modifiers()));
    bool const isPlain = pressed.modifiers == 0;
    if (isPlain && pressed.key == Qt::Key_Escape) {
        event->ignore();
        return;
    }
    event->accept();
    if (pressed.IsNone() || event->isAutoRepeat())
        return;
    bool const isTakenAway = isPlain && (pressed.key == Qt::Key_Backspace || pressed.key == Qt::Key_Delete);
    HotKeyCombination const wanted = isTakenAway ? HotKeyCombination() : pressed;
    if (wanted == m_combination)
        return;
    SetCombination(wanted);
    Q_EMIT signalEdited();
}
