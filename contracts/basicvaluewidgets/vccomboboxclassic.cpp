// SPDX-License-Identifier: MIT
#include "vccomboboxclassic.h"

#include <QPointer>
#include <QSignalBlocker>
#include <QWheelEvent>

#include <optional>

VCComboBoxClassic::VCComboBoxClassic(QWidget * parent, char const * name) : QComboBox(parent)
{
    setObjectName(QString::fromLatin1(name));
    setFocusPolicy(Qt::StrongFocus);
    connect(this, qOverload<int>(&QComboBox::activated), this, &VCComboBoxClassic::slotChosen);
}

VCComboBoxClassic::~VCComboBoxClassic() = default;

bool VCComboBoxClassic::SetValueSelection_ValuePath(QString const & path)
{
    m_dirty = false;
    return m_selection.BindPath(path);
}

void VCComboBoxClassic::Update(Observable * subject, TChangeCode code)
{
    if (!m_selection.Hears(subject, code))
        return;
    if (code == eItemsChanged)
        ShowItems();
    else if (code == eValueChanged)
        ShowChoice();
}

void VCComboBoxClassic::ShowItems()
{
    QSignalBlocker const silent(this);
    ValueSelection const * const selection = m_selection.Get();
    clear();
    for (int i = 0; i < selection->GetItemCount(); ++i) {
        SelectionItem const * const item = selection->GetItemAt(i);
        addItem(item->GetName(), QVariant::fromValue(static_cast<qlonglong>(item->GetKey())));
    }
    ShowChoice();
}

void VCComboBoxClassic::ShowChoice()
{
    QSignalBlocker const silent(this);
    setCurrentIndex(m_selection.Get()->GetCurrentIndex());
}

void VCComboBoxClassic::slotChosen(int index)
{
    ValueSelection * const selection = m_selection.Get();
    if (!selection || !itemData(index).isValid()) // an item without a key is not of the selection
        return;
    m_dirty = m_dirty || index != selection->GetCurrentIndex();
    long const key = static_cast<long>(itemData(index).toLongLong());
    QPointer<VCComboBoxClassic> const self(this);
    {
        std::optional<GuiUndoRecordingHelper> recording;
        if (m_undoRecorded)
            recording.emplace(this, tr("Set %1").arg(selection->GetName()));
        selection->Select(key, this);
    }
    if (self && m_selection.Get())
        ShowChoice();
}

void VCComboBoxClassic::wheelEvent(QWheelEvent * event)
{
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}
