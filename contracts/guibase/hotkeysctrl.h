// SPDX-License-Identifier: MIT
#ifndef ORIM_HOTKEYSCTRL_H
#define ORIM_HOTKEYSCTRL_H

#include "hotkeytable.h"
#include "orimcontracts_export.h"

#include <QWidget>

#include <vector>

class HotKeyEdit;
class QLabel;
class QPushButton;
class QTableWidget;

//! Editor of the hot keys of GuiBase: one row each. A key that is free is taken over at once. One that another row
//! wants too is not: both rows say so, and the hot key keeps what it had until one of them is given another key. What
//! it keeps is not free meanwhile. The list follows when hot keys come, go or change elsewhere, and takes over what
//! becomes free by that.
class ORIMCONTRACTS_EXPORT HotkeysCtrl : public QWidget
{
    Q_OBJECT
public:
    enum EColumn : int
    {
        eColumnName = 0,
        eColumnGroup,
        eColumnKey,
        eColumnDefault,
        eColumnNote
    };

    explicit HotkeysCtrl(QWidget * parent = nullptr);

private Q_SLOTS:
    void slotFollow();
    void slotRestore();

private:
    struct Row
    {
        int index;                // of the hot key
        HotKeyCombination wanted; // what the operator asks for
        HotKeyCombination held;   // what the table holds, as last seen
        HotKeyEdit * edit;        // the table owns it
    };

    void Rebuild();
    void FillRow(int at, HotKey const & hotKey);
    void Edited(int index);
    void TakeOver();
    void ShowNotes();
    //! For each row the index in m_rows of the first other row that wants the same key, or that cannot let go of it
    //! because it is in conflict itself; -1 for none.
    std::vector<int> GetConflicts() const;
    QString Note(Row const & row, int conflict) const;

    QTableWidget * m_pTable; // this owns it
    QLabel * m_pEmpty;       // this owns it
    std::vector<Row> m_rows; // in the order of the table
};

#endif
