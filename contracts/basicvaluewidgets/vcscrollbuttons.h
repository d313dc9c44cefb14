// SPDX-License-Identifier: MIT
#ifndef ORIM_VCSCROLLBUTTONS_H
#define ORIM_VCSCROLLBUTTONS_H

#include "observable.h"
#include "orimcontracts_export.h"
#include "undorecording.h"
#include "valuebinding.h"
#include "valuenumeric.h"

#include <QString>
#include <QWidget>

class QToolButton;

//! Two arrow buttons that step a number of the tree down and up; held, they go on. A step is that of the value; without
//! one it is a hundredth of the range, or 1 when the range has no end. At a limit the button of that side is off. Each
//! step is one change that can be undone.
class ORIMCONTRACTS_EXPORT VCScrollButtons : public QWidget, public IObserver, public UndoRecordingControlBase
{
    Q_OBJECT
public:
    //! \param name         object name, Latin-1; null for none.
    //! \param orientation  horizontal: left is down; vertical: the lower one is down.
    explicit VCScrollButtons(QWidget * parent = nullptr, char const * name = nullptr,
                             Qt::Orientation orientation = Qt::Horizontal);
    ~VCScrollButtons() override;

    //! Steps a number from now on. While nothing is bound both buttons are off.
    //! \return whether the path was found and names a number.
    bool Set_ValuePath(QString const & path);
    //! What one step adds or takes; 0 while nothing is bound.
    double GetStep() const;

    void Update(Observable * subject, TChangeCode code) override;

public Q_SLOTS:
    void slotStepDown();
    void slotStepUp();

private:
    void StepBy(int direction);
    void ShowLimits();

    ValueBinding<IValueNumeric> m_value{ this };
    QToolButton * m_pDown; // this owns it
    QToolButton * m_pUp;   // this owns it
};

#endif
