// SPDX-License-Identifier: MIT
#ifndef ORIM_UNDOBUTTONS_H
#define ORIM_UNDOBUTTONS_H

#include <QWidget>

class QAction;

//! Two buttons that take the operator's changes back and do them again, those of the undo stack of GuiBase. Their tips
//! tell which change is next. Ctrl+Z and Ctrl+Shift+Z do the same anywhere in the window; while a button
//! of the mouse is held nothing is taken back.
class UndoButtons : public QWidget
{
    Q_OBJECT
public:
    explicit UndoButtons(QWidget * parent = nullptr);
    ~UndoButtons() override;

private:
    void AddButton(char const * name, QString const & text, QAction * action);
};

#endif
