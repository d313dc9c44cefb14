// SPDX-License-Identifier: MIT
#ifndef ORIM_VCCOMBOBOXCLASSIC_H
#define ORIM_VCCOMBOBOXCLASSIC_H

#include "observable.h"
#include "orimcontracts_export.h"
#include "undorecording.h"
#include "valuebinding.h"
#include "valueselection.h"

#include <QComboBox>
#include <QString>

//! Combo box of the items of a selection of the tree. What the operator chooses is written by the item's key, as one
//! change that can be undone, and what the selection became is shown.
class ORIMCONTRACTS_EXPORT VCComboBoxClassic : public QComboBox, public IObserver, public UndoRecordingControlBase
{
    Q_OBJECT
public:
    //! \param name  object name, Latin-1; null for none.
    explicit VCComboBoxClassic(QWidget * parent = nullptr, char const * name = nullptr);
    ~VCComboBoxClassic() override;

    //! Follows a selection from now on. While nothing is bound the last items stay, and choosing among them writes
    //! nothing.
    //! \return whether the path was found and names a selection.
    bool SetValueSelection_ValuePath(QString const & path);

    //! The bound selection; null while there is none.
    ValueSelection * GetValueSelection() const { return m_selection.Get(); }

    //! Whether the operator has chosen since the binding, or since the mark was taken away.
    bool GetDirty() const { return m_dirty; }

    void SetDirty(bool dirty) { m_dirty = dirty; }

    //! Whether a choice can be undone; true at the start. A selection that is an input of a dialog, taken over later or
    //! not at all, is no change that the operator would undo.
    void SetUndoRecorded(bool on) { m_undoRecorded = on; }

    void Update(Observable * subject, TChangeCode code) override;

protected:
    //! Without the focus the wheel is left to what lies beneath, so that scrolling by changes nothing.
    void wheelEvent(QWheelEvent * event) override;

private:
    void ShowItems();
    void ShowChoice();
    void slotChosen(int index);

    ValueBinding<ValueSelection> m_selection{ this };
    bool m_dirty = false;
    bool m_undoRecorded = true;
};

#endif
