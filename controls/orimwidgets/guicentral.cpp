// SPDX-License-Identifier: MIT
#include "guicentral.h"

#include "guibase.h"
#include "operations.h"
#include "tree.h"

#include <QEvent>
#include <QScopedValueRollback>
#include <QWindow>

#include <utility>

namespace {

// The object whose constructor runs: who hears of the colours it raises may ask for it.
thread_local GuiCentral * building = nullptr;

// The object that a colour set without colours asks for the factory colours; null: the one of Instance().
GuiCentral * restorer = nullptr;

bool isOver = false; // the one of Instance() has gone

void RestoreColors()
{
    if (restorer || !isOver)
        (restorer ? *restorer : GuiCentral::Instance()).slotRestoreFactoryColors();
}

//! Colour sets may ask before there is a central object.
class EmptyListHook
{
public:
    EmptyListHook() { ShadingColorSet::SetEmptyListHook(RestoreColors); }
};

EmptyListHook const emptyListHook;

//! A menu or a modal dialog: whoever has it on the screen can do nothing else before it closes.
bool HoldsTheScreen(QObject const * object)
{
    if (auto const * const widget = qobject_cast<QWidget const *>(object))
        return widget->isWindow() && (widget->windowType() == Qt::Popup || widget->isModal());
    auto const * const window = qobject_cast<QWindow const *>(object);
    return window && (window->type() == Qt::Popup || window->isModal());
}

} // namespace

GuiCentral & GuiCentral::Instance()
{
    if (building)
        return *building;

    struct Sole
    {
        GuiCentral central;

        ~Sole() { isOver = true; }
    };

    static Sole sole;
    return sole.central;
}

GuiCentral::GuiCentral()
{
    QScopedValueRollback<GuiCentral *> const scope(building, this);
    restorer = this;

    ApplyFactoryColorSetIdForRoleId();
    BuildFactoryColorSets(); // not the common colours: their own store keeps what the operator edited
    GuiBase & gui = GuiBase::Instance();
    gui.emit_signalColorsChanged();

    m_persistant = new Persistant(QStringLiteral("GuiCentral"), this);
    ApplyFactoryColorSetIdForRoleId();
    AddPersistedColors();
    m_persistant->Read(QString(), 0);

    connect(this, &GuiCentral::signalRestoreDefaultPersistant, this, &GuiCentral::slotRestoreDefaultPersistant);
    connect(&gui, &GuiBase::signalHotKey, this, &GuiCentral::signalHotKey);
    connect(&gui, &GuiBase::hotkey_ESC_pressed, this, &GuiCentral::hotkey_ESC_pressed);
}

GuiCentral::~GuiCentral()
{
    GuiCentral::aboutToTerminate();
    if (restorer == this)
        restorer = nullptr;
}

ValueBase * GuiCentral::GetValuePath4ID(VC::ID id)
{
    QString const & path = m_valuePaths[id];
    Tree const * const tree = Tree::Instance();
    return tree ? tree->Find(path) : nullptr;
}

void GuiCentral::SetValuePath4ID(VC::ID id, QString const & path) { m_valuePaths[id] = path; }

void GuiCentral::emit_toJob(double frequency) { Q_EMIT FrequencyToJob(frequency); }

bool GuiCentral::eventFilter(QObject * object, QEvent * event)
{
    QWidget const * const only = m_blockCloseWidget;
    if (!only || event->type() != QEvent::Close || object == only)
        return false;
    if (object == only->windowHandle()) // on its way to the widget
        return false;
    if (HoldsTheScreen(object)) // stays accepted: Qt hides the widget, and a window hands the close on to its widget
        return object->isWidgetType();
    event->ignore(); // an accepted close would hide the widget although nobody heard of it
    return true;
}

void GuiCentral::Update(Observable * subject, TChangeCode code)
{
    if (code != eStateChanged)
        return;
    auto * const value = dynamic_cast<ValueBase *>(subject);
    if (!value || value->GetState() != eStateGoingAway)
        return;
    value->DeleteObserver(this);
    QString const path = value->GetPathName();
    std::unique_ptr<BoolOperation> const operation = std::move(m_boolOperations[path]);
    m_boolOperations.erase(path);
}

void GuiCentral::ApplyPersistantBeforeWrite() {}

void GuiCentral::ApplyPersistantAfterRead() { GuiBase::Instance().emit_signalColorsChanged(); }

void GuiCentral::aboutToTerminate()
{
    Tree * const tree = Tree::Instance();
    if (std::unique_ptr<Persistant> const persistant{ std::exchange(m_persistant, nullptr) })
        persistant->Write(QString(), 0);
    m_boolOperations.clear();
    RemoveUniqueValues(tree);
    m_numericOperations.clear();
    m_selectionCouplers.clear();
}

void GuiCentral::slotRestoreDefaultPersistant()
{
    if (m_persistant)
        m_persistant->RestoreDefault();
    GuiBase::Instance().emit_signalColorsChanged();
}
