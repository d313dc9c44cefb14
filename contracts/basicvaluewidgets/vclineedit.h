// SPDX-License-Identifier: MIT
#ifndef ORIM_VCLINEEDIT_H
#define ORIM_VCLINEEDIT_H

#include "observable.h"
#include "orimcontracts_export.h"
#include "undorecording.h"
#include "valuebinding.h"

#include <QLineEdit>
#include <QString>

//! Line edit that shows and writes a value of the tree; without one it is a line edit that tells when its text is
//! final.
//!
//! What is typed counts once it is final: on Return and when the focus leaves. It is then written as one change that
//! can be undone, and what the value became is shown: limits win. A text that is no such value is refused with a beep.
//! Escape gives the typed text up. A change from elsewhere does not disturb typing.
class ORIMCONTRACTS_EXPORT VCLineEdit : public QLineEdit, public IObserver, public UndoRecordingControlBase
{
    Q_OBJECT
public:
    enum LineEditType : int
    {
        eLineEdit = 0,
        eLineEditReadOnly = 1 //!< shows the value, takes no typing
    };

    //! \param name  object name, Latin-1; null for none.
    explicit VCLineEdit(QWidget * parent = nullptr, char const * name = nullptr, LineEditType type = eLineEdit);
    ~VCLineEdit() override;

    //! Follows a value from now on. While nothing is bound the last text stays.
    //! \return whether the path was found.
    bool SetValue_ValuePath(QString const & path);

    //! The bound value; null while there is none.
    ValueBase * GetValue() const { return m_value.Get(); }

    void Update(Observable * subject, TChangeCode code) override;
    //! Keeps Escape from others while there is typed text to give up.
    bool eventFilter(QObject * object, QEvent * event) override;

Q_SIGNALS:
    //! The operator has finished typing. With a bound value it is sent after the write, with the text of what the value
    //! became. A text that a program sets is never told.
    void signalTextFinal(QString const & text);

protected:
    //! After Return the whole text is selected, so that the next typing replaces it.
    void keyReleaseEvent(QKeyEvent * event) override;

private:
    void ShowValue();
    void slotFinished();
    bool Write(QString const & text);
    bool GivesUp(QEvent const * event) const;

    ValueBinding<ValueBase> m_value{ this };
};

#endif
