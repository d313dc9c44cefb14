// SPDX-License-Identifier: MIT
// The context menu of an axis, and its settings page.
#include "axisbase.h"

#include "axismenupixmap.h"
#include "axispropertypage.h"
#include "colorset.h"
#include "marker.h"
#include "resortpopupmenu.h"
#include "tabdialog.h"

#include <QAction>
#include <QIcon>
#include <QKeySequence>
#include <QPixmap>

#include <algorithm>

namespace {

// Numbers of menu items
constexpr int DefaultRangeId = 1000;
constexpr int DeviceRangeId = 1001;
constexpr int BestRangeId = 1002;
constexpr int UnZoomId = 1003;
constexpr int ShowRulerId = 3000;   // and the index of the marker
constexpr int ResultPanelId = 4000; // the same

constexpr int MarkerCount = eMouseMove + 1;

//! Deletes a menu as soon as nobody is in it: one that is shown, or about to be, at its close, one that is telling of a
//! chosen item when that is done.
void Retire(ResortPopupMenu * menu)
{
    if (!menu)
        return;
    if (menu->isVisible() || menu->IsOpening())
        QObject::connect(menu, &QMenu::aboutToHide, menu, &QObject::deleteLater);
    else if (menu->IsTelling())
        menu->deleteLater();
    else
        delete menu;
}

//! Lets a menu that is opening or telling of a chosen item outlive the axis.
void Outlive(ResortPopupMenu * menu)
{
    if (!menu || !menu->IsTelling())
        return;
    menu->setParent(nullptr, menu->windowFlags());
    menu->deleteLater();
}

} // namespace

void AxisBase::LeaveMenus()
{
    for (ResortPopupMenu * const menu : findChildren<ResortPopupMenu *>(QString(), Qt::FindDirectChildrenOnly))
        Outlive(menu); // one that was retired, too
    if (m_pSingleMarkerMenu && m_pSingleMarkerMenu->IsTelling())
        Outlive(m_pSingleMarkerMenu); // of another widget
    else
        delete m_pSingleMarkerMenu.data();
}

// The general menu

std::vector<int> AxisBase::MarkersInMenu() const
{
    std::vector<int> indices;
    for (int index = 0; index < MarkerCount; ++index)
        if ((GetMarkerSpecial(index) & eSpecialInMenu) != 0)
            indices.push_back(index);
    return indices;
}

void AxisBase::BuildMenu()
{
    if (Control::GetContextMenu() == m_pAxisMenu)
        Control::SetContextMenu(nullptr, false);
    Retire(m_pAxisMenu);
    if (IsPropertyPageEnabled())
        CreateContextProperty(this, nullptr);
    Retire(Control::GetContextMenu());
    m_pAxisMenu = new ResortPopupMenu(this, "AxisMenu");
    Control::SetContextMenu(m_pAxisMenu, false);
    connect(m_pAxisMenu, &ResortPopupMenu::signalActivated, this, &AxisBase::slotShowRuler);

    std::vector<int> const rulers = MarkersInMenu();
    if (rulers.size() > 1) {
        m_pAxisMenu->insertItem(tr("Hide All Ruler"), this, SLOT(slotHideAllRuler()));
        m_pAxisMenu->addSeparator();
    }
    for (int const index : rulers)
        m_pAxisMenu->insertItem(MarkerIcon(index), GetMarker(index)->GetMarkerName(), nullptr, nullptr, QKeySequence(),
                                ShowRulerId + index);
    if (m_zoomEnabled && !rulers.empty())
        m_pAxisMenu->addSeparator();
    if (m_zoomEnabled)
        AddZoomItems(*m_pAxisMenu);
    if (IsPropertyPageEnabled()) {
        if (m_zoomEnabled || !rulers.empty())
            m_pAxisMenu->addSeparator();
        m_pAxisMenu->insertItem(tr("Properties..."), this, SLOT(slotShowProperties()));
    }
    m_pAxisMenu->NotifyBeforeShow(this);
}

//! The two labels lead to other ranges along x than along y.
void AxisBase::AddZoomItems(ResortPopupMenu & menu)
{
    auto const add = [&](QString const & text, char const * slot, int id) {
        menu.insertItem(text, this, slot, QKeySequence(), id);
    };
    if (m_rangeMenuEnabled && IsHorizontal()) {
        add(tr("Maximum Range"), SLOT(ZoomToDevice()), DeviceRangeId);
        add(tr("Default Range"), SLOT(ZoomToDefault()), DefaultRangeId);
    } else if (m_rangeMenuEnabled) {
        add(tr("Default Range"), SLOT(ZoomToBest()), BestRangeId);
        add(tr("Maximum Range"), SLOT(ZoomToDefault()), DefaultRangeId);
    }
    add(tr("UnZoom"), SLOT(UnZoom()), UnZoomId);
}

void AxisBase::UpdateMenu(ResortPopupMenu * /*menu*/)
{
    ResortPopupMenu * const menu = Control::GetContextMenu();
    if (!menu || !m_pMenuMarkerPane)
        return;
    for (QAction * const item : menu->actions()) {
        int const id = menu->GetItemId(item);
        if (id < ShowRulerId || id >= ShowRulerId + MarkerCount)
            continue;
        int const index = id - ShowRulerId;
        bool const inMenu = (GetMarkerSpecial(index) & eSpecialInMenu) != 0;
        if (!isIndexValid(index))
            item->setEnabled(false);
        else if (inMenu && m_pMenuMarkerPane->isIndexValid(index))
            menu->setItemChecked(id, m_pMenuMarkerPane->GetShowMarker(index));
    }
    menu->setItemEnabled(UnZoomId, IsUnZoomAvailable());
    menu->setItemEnabled(DefaultRangeId, m_start != m_defaultStart || m_stop != m_defaultStop);
    menu->setItemEnabled(DeviceRangeId, m_start != m_deviceStart || m_stop != m_deviceStop);
}

QPixmap AxisBase::GetAxisMenuPixmap(bool x, IColorBase::ECOLOR color)
{
    return AxisMenuPixmap::Get(x, ColorSet::Instance()[color]);
}

QIcon AxisBase::MarkerIcon(int index) const
{
    return QIcon(GetAxisMenuPixmap(IsHorizontal(), GetMarker(index)->GetColor()));
}

void AxisBase::SetMenuMarkerPane(MarkerList * pane) { m_pMenuMarkerPane = pane; }

// The menu of one marker

ResortPopupMenu * AxisBase::GetContextMenu()
{
    int const index = MarkerUnderMenu();
    return index < 0 ? Control::GetContextMenu() : BuildSingleMarkerMenu(index);
}

//! Lowest index of a drawn marker with an entry in the menu where the menu was asked for; -1 for none.
int AxisBase::MarkerUnderMenu() const
{
    if (!m_pMenuMarkerPane)
        return -1;
    for (int const index : MarkersInMenu()) {
        QRect const rect = GetMarker(index)->GetRect();
        if (GetShowMarker(index) && rect.isValid() && rect.contains(GetCurrentXYMenu()))
            return index;
    }
    return -1;
}

ResortPopupMenu * AxisBase::BuildSingleMarkerMenu(int index)
{
    Retire(m_pSingleMarkerMenu);
    auto * const menu = new ResortPopupMenu(GetWidget(), "SingleMarkerMenu");
    m_pSingleMarkerMenu = menu;
    Marker const & marker = *GetMarker(index);
    bool const shown = IsShownInPane(index);
    menu->insertItem(MarkerIcon(index), (shown ? tr("Hide ") : tr("Show ")) + marker.GetMarkerName(), this,
                     SLOT(slotShowRuler(int)), QKeySequence(), ShowRulerId + index);
    menu->setItemChecked(ShowRulerId + index, shown);
    if ((marker.GetSpecial() & eSpecialPanelMenu) != 0) {
        menu->insertItem(tr("Show Result Panel"), this, SLOT(slotShowRulerPanel(int)), QKeySequence(),
                         ResultPanelId + index);
        menu->setItemChecked(ResultPanelId + index, m_pMenuMarkerPane->GetShowResultFlag(index));
        menu->setItemEnabled(ResultPanelId + index, shown);
    }
    return menu;
}

// What the items do

//! Whether a marker is drawn: in the pane of the menu when that has it, else here.
bool AxisBase::IsShownInPane(int index) const
{
    bool const inPane = m_pMenuMarkerPane && m_pMenuMarkerPane->isIndexValid(index);
    return inPane ? m_pMenuMarkerPane->GetShowMarker(index) : GetShowMarker(index);
}

//! Index that the number of an item stands for; -1 when there is no pane or no such marker.
int AxisBase::MarkerOfItem(int id, int first) const
{
    bool const inList = id >= first && isIndexValid(id - first);
    return m_pMenuMarkerPane && inList ? id - first : -1;
}

void AxisBase::slotShowRuler(int id)
{
    int const index = MarkerOfItem(id, ShowRulerId);
    if (index < 0)
        return;
    LifeWatch const life(GetObserverLifetime());
    bool const shown = IsShownInPane(index);
    Marker * const marker = GetMarker(index);
    if (!shown && (marker->GetSpecial() & eSpecialPlaceOnShow) != 0) {
        QPoint const position = GetCurrentXYMenu();
        marker->SetValue(PixelToValue(IsHorizontal() ? position.x() : position.y()));
    }
    if (life.IsOver())
        return;
    if (index == eMouseMove)
        SetMouseMovingMarker(!shown);
    QString const path = GetValueTreePath(index);
    sendSignalSetState(path, eMarkerShow, !shown);
    if (!life.IsOver())
        sendSignalSetState(path, eMarkerRepaint, true);
}

void AxisBase::slotShowRulerPanel(int id)
{
    int const index = MarkerOfItem(id, ResultPanelId);
    if (index < 0)
        return;
    QPointer<MarkerList> const pane(m_pMenuMarkerPane);
    pane->SetShowResultFlag(index, !pane->GetShowResultFlag(index));
    if (pane)
        pane->RepairDrawing();
}

void AxisBase::slotHideAllRuler()
{
    LifeWatch const life(GetObserverLifetime());
    for (int index = 0; index < MarkerCount && !life.IsOver(); ++index) {
        if (!isIndexValid(index))
            continue;
        SetShowMarker(index, false);
        QString const path = life.IsOver() ? QString() : GetValueTreePath(index);
        if (!path.isEmpty())
            sendSignalSetState(path, eMarkerRepaint, false);
    }
}

// The settings page

QString const & AxisBase::GetPropertyPagePath() { return m_propertyPagePath; }

QWidget * AxisBase::GetPropertyPage(QWidget * parent, char const * name)
{
    m_pPropertyPage = nullptr;
    if (!IsPropertyPageEnabled() || (m_axisType & AxisNoPropertyPage) != 0)
        return nullptr;
    m_pPropertyPage = new AxisPropertyPage(parent, name, this, m_autoScaleCheckOnProperty);
    LifeWatch const life(GetObserverLifetime());
    ShowRangeOnPage();
    if (life.IsOver() || !m_pPropertyPage)
        return nullptr;
    m_pPropertyPage->setEnabled(m_zoomEnabled);
    return m_pPropertyPage;
}

//! Writing an edit may end this and the page.
void AxisBase::ShowRangeOnPage()
{
    LifeWatch const life(GetObserverLifetime());
    constexpr double unset = AxisPropertyPage::NoLimit;
    auto const minimum = [this](ValueNumeric<double> const * bound) {
        return bound ? bound->GetMin() * m_displayFactor : unset;
    };
    auto const maximum = [this](ValueNumeric<double> const * bound) {
        return bound ? bound->GetMax() * m_displayFactor : unset;
    };
    m_pPropertyPage->SetStart(m_start * m_displayFactor, minimum(m_pStart), maximum(m_pStart), unset);
    if (!life.IsOver() && m_pPropertyPage)
        m_pPropertyPage->SetStop(m_stop * m_displayFactor, minimum(m_pStop), maximum(m_pStop), unset);
}

void AxisBase::slotShowProperties()
{
    QPointer<TabDialog> const dialog(new TabDialog(this, nullptr, true, static_cast<Qt::WindowFlags>(0x3000)));
    dialog->setWindowTitle(tr("Spectrum Properties"));
    dialog->addTab(GetPropertyPage(dialog, nullptr), tr("&Axis Range"));
    dialog->setApplyButton();
    connect(dialog, &TabDialog::applyButtonPressed, this, &AxisBase::slotAcceptPropertyChanges);
    dialog->exec(); // this and the dialog may end in there
    delete dialog.data();
}

void AxisBase::slotAcceptPropertyChanges()
{
    if (!m_pPropertyPage || !m_pPropertyPage->GetDirty())
        return;
    LifeWatch const life(GetObserverLifetime());
    SetMustRecalcRulers(true);
    m_pPropertyPage->DoKillFocus();
    if (life.IsOver() || !m_pPropertyPage)
        return;
    if (m_pAutoScale)
        m_pAutoScale->SetValue(m_pPropertyPage->GetAutoScale(), this);
    if (life.IsOver() || !m_pPropertyPage)
        return;
    double const start = m_pPropertyPage->GetStart() / m_displayFactor;
    double const stop = m_pPropertyPage->GetStop() / m_displayFactor;
    if (start == stop)
        return;
    SetZoomedRange(std::min(start, stop), std::max(start, stop), false);
    if (!life.IsOver() && m_pPropertyPage)
        ShowRangeOnPage();
}
