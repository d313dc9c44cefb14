// SPDX-License-Identifier: MIT
#include "vcselectionpopup.h"

#include <QAction>
#include <QActionGroup>

#include <algorithm>

VCSelectionPopup::VCSelectionPopup(QWidget * parent, char const * name)
    : ResortPopupMenu(parent, name)
    , m_pGroup(new QActionGroup(this))
{}

VCSelectionPopup::~VCSelectionPopup() = default;

void VCSelectionPopup::SetFirstSelection(ValueSelection * selection)
{
    RemoveItems();
    m_selection.Bind(selection);
}

bool VCSelectionPopup::SetFirstSelection_ValuePath(QString const & path)
{
    RemoveItems();
    return m_selection.BindPath(path);
}

void VCSelectionPopup::Update(Observable * subject, TChangeCode code)
{
    bool const wasBound = m_selection.Get() != nullptr;
    if (!m_selection.Hears(subject, code)) {
        if (wasBound && !m_selection.Get())
            RemoveItems();
        return;
    }
    if (code == eItemsChanged)
        ShowItems();
    else if (code == eValueChanged)
        ShowChoice();
}

void VCSelectionPopup::ShowItems()
{
    RemoveItems();
    ValueSelection const * const selection = m_selection.Get();
    for (int i = 0; i < selection->GetItemCount(); ++i) {
        SelectionItem const * const item = selection->GetItemAt(i);
        QString const text = QString(item->GetName()).replace(QLatin1Char('&'), QLatin1String("&&"));
        QAction * const action = insertItem(text, static_cast<int>(item->GetKey()), i);
        action->setCheckable(true);
        m_pGroup->addAction(action);
        m_actions.push_back(action);
    }
    ShowChoice();
}

void VCSelectionPopup::ShowChoice()
{
    int const current = m_selection.Get()->GetCurrentIndex();
    for (std::size_t i = 0; i < m_actions.size(); ++i)
        if (m_actions[i])
            m_actions[i]->setChecked(static_cast<int>(i) == current);
}

void VCSelectionPopup::RemoveItems()
{
    for (QPointer<QAction> const & action : m_actions) {
        if (!action)
            continue;
        removeAction(action);
        m_pGroup->removeAction(action);
        action->deleteLater(); // it may be the one that is being chosen
    }
    m_actions.clear();
}

void VCSelectionPopup::slotSignalRouter(QAction * item)
{
    auto const found = std::find(m_actions.begin(), m_actions.end(), item);
    ValueSelection * const selection = m_selection.Get();
    if (found != m_actions.end() && selection) {
        int const index = static_cast<int>(found - m_actions.begin());
        int const id = GetItemId(item);
        QPointer<VCSelectionPopup> const self(this);
        QPointer<QAction> const chosen(item);
        {
            GuiUndoRecordingHelper const recording(this, tr("Set %1").arg(selection->GetName()));
            selection->SelectIndex(index, this);
        }
        if (!self)
            return;
        if (m_selection.Get())
            ShowChoice();
        if (!chosen) {
            Q_EMIT signalActivated(id);
            return;
        }
    }
    ResortPopupMenu::slotSignalRouter(item);
}
