// SPDX-License-Identifier: MIT
#ifndef ORIM_OPTIONSDIALOG_H
#define ORIM_OPTIONSDIALOG_H

#include "optionsbase.h"
#include "orimcontracts_export.h"

#include <QDialog>
#include <QPointer>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

class QDialogButtonBox;
class QLabel;
class QStackedWidget;
class QTreeWidget;
class QTreeWidgetItem;

namespace options {

//! Dialog of the options of several configurables: a tree of pages on the left, the chosen page on the right, and OK,
//! Apply, Cancel and Restore Defaults below.
//!
//! Apply reads the pages, asks the validators, and puts the options in force, one configurable after the other; the
//! first one whose options are refused ends it with the reason shown below its page, and OK then leaves the dialog
//! open.
class ORIMCONTRACTS_EXPORT OptionsDialog : public QDialog
{
    Q_OBJECT
public:
    explicit OptionsDialog(QWidget * parent = nullptr);
    ~OptionsDialog() override;

    //! Adds the pages of a configurable behind those that are there. It is not owned; one that is a QObject may end
    //! first and is then left out, any other must outlive the dialog. Pages of one path share their headings; of two
    //! pages at one place each has an entry of its own.
    void add(IConfigurable & configurable);

public Q_SLOTS:
    //! Puts the input in force. \return whether all of it was accepted.
    bool slotApply();
    //! Shows the factory settings on all pages; Apply puts them in force.
    void slotRestoreDefaults();
    void reject() override;

private:
    struct Entry
    {
        IConfigurable * configurable; // borrowed
        QPointer<QObject> object;     // the configurable, when it is a QObject
        bool isObject;
        std::unique_ptr<IOptions> options;
        std::unique_ptr<IValidator> validator;
        IConfigurable::Pages pages;
        QTreeWidgetItem * firstPage; // null without a page

        bool IsAlive() const { return !isObject || object; }
    };

    QTreeWidgetItem * MakeItem(QStringList const & path);
    bool Apply(Entry & entry);
    void Refuse(Entry const & entry, QString const & reason);
    void slotPageChosen(QTreeWidgetItem * item);
    void slotOk();

    std::vector<std::unique_ptr<Entry>> m_entries;
    QTreeWidget * m_pTree;         // this owns it
    QStackedWidget * m_pStack;     // this owns it
    QLabel * m_pReason;            // this owns it
    QDialogButtonBox * m_pButtons; // this owns it
};

} // namespace options

#endif
