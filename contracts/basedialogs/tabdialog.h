// SPDX-License-Identifier: MIT
#ifndef ORIM_TABDIALOG_H
#define ORIM_TABDIALOG_H

#include "orimcontracts_export.h"

#include <QDialog>
#include <QString>

class QDialogButtonBox;
class QTabWidget;

//! Dialog of tabs over OK and Cancel, and Apply when it is asked for.
class ORIMCONTRACTS_EXPORT TabDialog : public QDialog
{
    Q_OBJECT
public:
    //! \param name   object name, Latin-1; null for none.
    //! \param modal  whether it blocks the other windows.
    explicit TabDialog(QWidget * parent = nullptr, char const * name = nullptr, bool modal = false,
                       Qt::WindowFlags flags = Qt::WindowTitleHint | Qt::WindowSystemMenuHint);
    ~TabDialog() override;

    //! Adds a tab behind the others; the dialog owns the page from now on. Null adds none.
    //! \param label  its text; "&" marks the key that chooses it.
    void addTab(QWidget * page, QString const & label);
    //! Adds the Apply button, once.
    void setApplyButton();

Q_SIGNALS:
    //! The input is to be taken over: on Apply, and on OK, which then accepts the dialog.
    void applyButtonPressed();

private:
    void slotOk();

    QTabWidget * m_pTabs;          // this owns it
    QDialogButtonBox * m_pButtons; // this owns it
};

#endif
