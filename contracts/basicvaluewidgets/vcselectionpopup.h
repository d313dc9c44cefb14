// SPDX-License-Identifier: MIT
#ifndef ORIM_VCSELECTIONPOPUP_H
#define ORIM_VCSELECTIONPOPUP_H

#include "observable.h"
#include "orimcontracts_export.h"
#include "resortpopupmenu.h"
#include "undorecording.h"
#include "valuebinding.h"
#include "valueselection.h"

#include <QPointer>

#include <vector>

class QActionGroup;

//! Menu of the items of a selection, the chosen one marked. They stand ahead of what else is in the menu. What the
//! operator chooses is written as one change that can be undone.
class ORIMCONTRACTS_EXPORT VCSelectionPopup : public ResortPopupMenu, public IObserver, public UndoRecordingControlBase
{
    Q_OBJECT
public:
    //! \param name  object name, Latin-1; null for none.
    explicit VCSelectionPopup(QWidget * parent = nullptr, char const * name = nullptr);
    ~VCSelectionPopup() override;

    //! Follows a selection from now on, in the tree or not. Null takes its items from the menu; when a selection goes
    //! away they go too.
    void SetFirstSelection(ValueSelection * selection);
    //! The same by path. \return whether the path was found and names a selection.
    bool SetFirstSelection_ValuePath(QString const & path);

    //! The bound selection; null while there is none.
    ValueSelection * GetFirstSelection() const { return m_selection.Get(); }

    void Update(Observable * subject, TChangeCode code) override;

public Q_SLOTS:
    //! Writes the choice, then tells signalActivated() the item's key; an item of other make goes its usual way.
    void slotSignalRouter(QAction * item) override;

private:
    void ShowItems();
    void ShowChoice();
    void RemoveItems();

    ValueBinding<ValueSelection> m_selection{ this };
    QActionGroup * m_pGroup;                  // this owns it
    std::vector<QPointer<QAction>> m_actions; // this owns them; by place in the selection; null once cleared
};

#endif
