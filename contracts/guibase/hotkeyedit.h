// SPDX-License-Identifier: MIT
#ifndef ORIM_HOTKEYEDIT_H
#define ORIM_HOTKEYEDIT_H

#include "hotkeytable.h"
#include "orimcontracts_export.h"

#include <QKeySequenceEdit>

//! Editor of one key with its modifiers. The next key pressed is taken, at once; Backspace and Delete take the key
//! away. Escape and Tab stay with the dialog, so that it can be closed and walked through.
class ORIMCONTRACTS_EXPORT HotKeyEdit : public QKeySequenceEdit
{
    Q_OBJECT
public:
    explicit HotKeyEdit(QWidget * parent = nullptr);

    //! Shows a combination without a signal of an edit.
    void SetCombination(HotKeyCombination const & combination);

    HotKeyCombination const & GetCombination() const { return m_combination; }

Q_SIGNALS:
    //! The operator has given another combination, or none.
    void signalEdited();

protected:
    void keyPressEvent(QKeyEvent * event) override;

private:
    HotKeyCombination m_combination;
};

#endif
