// SPDX-License-Identifier: MIT
#include "azimuthdisplayselect.h"

#include "guicentral.h"
#include "resortpopupmenu.h"
#include "tree.h"
#include "valuewrap.h"

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

namespace {

struct Mode
{
    long key;
    char const * text; // UTF-8
};

//! In the order of the menu.
constexpr std::array<Mode, 4> Modes{
    { { eAzimuthAbsolute | eAzimuthPositive, QT_TRANSLATE_NOOP("AzimuthDisplaySelect", "Absolute Values 0°..360°") },
      { eAzimuthAbsolute | eAzimuthSigned, QT_TRANSLATE_NOOP("AzimuthDisplaySelect", "Absolute Values -180°..180°") },
      { eAzimuthRelative | eAzimuthPositive,
        QT_TRANSLATE_NOOP("AzimuthDisplaySelect", "Relative to Vehicle Axis 0°..360°") },
      { eAzimuthRelative | eAzimuthSigned,
        QT_TRANSLATE_NOOP("AzimuthDisplaySelect", "Relative to Vehicle Axis -180°..180°") } }
};
constexpr long FactoryMode = Modes[0].key;
static_assert(FactoryMode == 5 && Modes[1].key == 9 && Modes[2].key == 6 && Modes[3].key == 10,
              "the keys are stored and chosen by menu number");

constexpr char DefaultMenuProperty[] = "azimuthDefault"; // marks a menu of the default

bool IsMode(long key)
{
    return std::any_of(Modes.begin(), Modes.end(), [key](Mode const & mode) { return mode.key == key; });
}

} // namespace

AzimuthDisplaySelect & AzimuthDisplaySelect::Instance()
{
    static AzimuthDisplaySelect sole;
    return sole;
}

AzimuthDisplaySelect::AzimuthDisplaySelect() : m_current(FactoryMode), m_default(FactoryMode)
{
    m_currentPath = PlantSelection(FactoryMode);
    m_defaultPath = PlantSelection(FactoryMode);
    if (Tree * const tree = Tree::Instance()) {
        m_pCurrent = tree->FindAs<ValueSelection>(m_currentPath);
        m_pDefault = tree->FindAs<ValueSelection>(m_defaultPath);
    }
    m_persistant = new Persistant(QStringLiteral("AzimuthDisplaySelect"), this);
    if (m_pCurrent)
        m_pCurrent->AddObserver(this);
    if (m_pDefault) {
        m_pDefault->AddObserver(this);
        m_persistant->Add(m_pDefault, QStringLiteral("Default"), FactoryMode);
    }
    m_persistant->Read(QString(), 0);
    connect(&GuiCentral::Instance(), &GuiCentral::signalRestoreDefaultPersistant, this,
            &AzimuthDisplaySelect::slotRestoreDefaultPersistant);
}

AzimuthDisplaySelect::~AzimuthDisplaySelect() { AzimuthDisplaySelect::aboutToTerminate(); }

void AzimuthDisplaySelect::LetGo(ValueSelection *& selection)
{
    if (selection)
        selection->DeleteObserver(this);
    selection = nullptr;
}

void AzimuthDisplaySelect::Select(long key)
{
    if (!IsMode(key))
        return;
    bool const shown = m_pCurrent && m_pCurrent->Select(key, nullptr);
    TakeMode(shown && m_pCurrent ? m_pCurrent->GetCurrentKey() : key); // a choice made meanwhile wins
}

void AzimuthDisplaySelect::TakeMode(long key)
{
    if (!IsMode(key) || key == m_current)
        return;
    m_current = key;
    Q_EMIT signalAzimuthModeChanged();
}

void AzimuthDisplaySelect::TakeDefault(long key)
{
    if (IsMode(key))
        m_default = key;
}

void AzimuthDisplaySelect::SetDefault(long key)
{
    bool const shown = m_pDefault && m_pDefault->Select(key, nullptr);
    TakeDefault(shown && m_pDefault ? m_pDefault->GetCurrentKey() : key); // likewise
}

QString AzimuthDisplaySelect::PlantSelection(long key)
{
    ValueSelection selection;
    for (Mode const & mode : Modes)
        selection.AddItem(SelectionItem(tr(mode.text), static_cast<double>(mode.key), mode.key));
    selection.Select(key, nullptr);
    return GuiCentral::Instance().CreateUniqueValueSelection(&selection);
}

QString AzimuthDisplaySelect::CreateValueSelection() { return PlantSelection(m_default); }

ResortPopupMenu * AzimuthDisplaySelect::BuildMenu(QWidget * parent, char const * name)
{
    auto * const menu = new ResortPopupMenu(parent, name);
    menu->setTitle(tr("Azimuth selector"));
    for (Mode const & mode : Modes)
        menu->insertItem(tr(mode.text), static_cast<int>(mode.key));
    menu->NotifyBeforeShow(this);
    return menu;
}

ResortPopupMenu * AzimuthDisplaySelect::CreateMenu(QWidget * parent)
{
    ResortPopupMenu * const menu = BuildMenu(parent, "AzimuthMenu");
    connect(menu, &ResortPopupMenu::signalActivated, this, [this](int key) { Select(key); });
    UpdateMenu(menu);
    return menu;
}

ResortPopupMenu * AzimuthDisplaySelect::CreateMenuForDefaultSelection(QWidget * parent)
{
    ResortPopupMenu * const menu = BuildMenu(parent, "AzimuthDefaultMenu");
    menu->setProperty(DefaultMenuProperty, true);
    connect(menu, &ResortPopupMenu::signalActivated, this, &AzimuthDisplaySelect::slotDefaultSelectionMenuActivated);
    UpdateMenu(menu);
    return menu;
}

void AzimuthDisplaySelect::UpdateMenu(ResortPopupMenu * menu)
{
    if (!menu)
        return;
    long const checked = menu->property(DefaultMenuProperty).toBool() ? m_default : m_current;
    for (Mode const & mode : Modes)
        menu->setItemChecked(static_cast<int>(mode.key), mode.key == checked);
}

void AzimuthDisplaySelect::NorthOffsetChanged()
{
    if ((m_current & eAzimuthRelative) != 0)
        Q_EMIT signalAzimuthModeChanged();
}

void AzimuthDisplaySelect::ApplyPersistantAfterRead()
{
    if (m_pDefault && !IsMode(m_pDefault->GetCurrentKey()))
        SetDefault(m_default); // an empty text was stored, which chooses nothing
    Select(m_default);
}

void AzimuthDisplaySelect::ApplyPersistantBeforeWrite() {}

void AzimuthDisplaySelect::aboutToTerminate()
{
    LetGo(m_pCurrent);
    LetGo(m_pDefault);
    if (std::unique_ptr<Persistant> const persistant{ std::exchange(m_persistant, nullptr) })
        persistant->Write(QString(), 0);
}

void AzimuthDisplaySelect::Update(Observable * subject, TChangeCode code)
{
    for (ValueSelection ** const field : { &m_pCurrent, &m_pDefault }) {
        if (!*field || subject != *field)
            continue;
        if (code == eStateChanged && (*field)->GetState() == eStateGoingAway)
            LetGo(*field);
        else if (code == eValueChanged && field == &m_pCurrent)
            TakeMode((*field)->GetCurrentKey());
        else if (code == eValueChanged)
            TakeDefault((*field)->GetCurrentKey());
        return;
    }
}

void AzimuthDisplaySelect::slotDefaultSelectionMenuActivated(int key)
{
    if (!IsMode(key))
        return;
    SetDefault(key);
    Select(key);
}

void AzimuthDisplaySelect::slotRestoreDefaultPersistant()
{
    SetDefault(FactoryMode);
    Select(FactoryMode);
}
