// SPDX-License-Identifier: MIT
#include "control.h"

#include "controleventfilter.h"
#include "parkinglist.h"
#include "resortpopupmenu.h"

#include <QCoreApplication>

Control::Control(QWidget * widget, char const * /*name*/)
    : m_pWidget(widget)
    , m_pFilter(new ControlEventFilter(widget))
    , m_pLife(std::make_shared<Control *>(this))
{
    m_pFilter->SetControl(*this);
    if (!widget)
        ParkingList::Park(m_pFilter.data());
    SetWidget(widget);
}

Control::Control() : Control(nullptr, nullptr) {}

Control::Control(Control const & other)
    : m_pPropertyPage(other.m_pPropertyPage)
    , m_propertyPageEnabled(other.m_propertyPageEnabled)
    , m_hasPropertyPage(other.m_hasPropertyPage)
    , m_pContextMenu(other.m_pContextMenu)
    , m_contextMenuEnabled(other.m_contextMenuEnabled)
    , m_hasContextMenu(other.m_hasContextMenu)
    , m_currentXMenu(other.m_currentXMenu)
    , m_currentYMenu(other.m_currentYMenu)
    , m_pWidget(other.m_pWidget)
    , m_pFilter(other.m_pFilter)
    , m_menuIsShared(true)
    , m_pLife(std::make_shared<Control *>(this))
{}

Control & Control::operator=(Control const & other)
{
    if (this == &other)
        return *this;
    m_pPropertyPage = other.m_pPropertyPage;
    m_propertyPageEnabled = other.m_propertyPageEnabled;
    m_hasPropertyPage = other.m_hasPropertyPage;
    m_pContextMenu = other.m_pContextMenu;
    m_contextMenuEnabled = other.m_contextMenuEnabled;
    m_hasContextMenu = other.m_hasContextMenu;
    m_currentXMenu = other.m_currentXMenu;
    m_currentYMenu = other.m_currentYMenu;
    m_pWidget = other.m_pWidget;
    m_pFilter = other.m_pFilter;
    m_menuIsShared = true;
    return *this;
}

Control::~Control() = default;

void Control::CreateContextProperty(QWidget * parent, char const * name)
{
    EnableContextMenu(true);
    EnablePropertyPage(true);
    m_pContextMenu = new ResortPopupMenu(parent, name);
    m_menuIsShared = false;
    m_pContextMenu->insertItem(tr("Properties..."), m_pWidget, SLOT(slotShowProperties()), QKeySequence(), -1, -1);
}

QWidget * Control::GetPropertyPage(QWidget * /*parent*/, char const * /*name*/) { return m_pPropertyPage; }

void Control::EnablePropertyPage(bool on) { m_propertyPageEnabled = on; }

bool Control::hasPropertyPage() { return m_hasPropertyPage; }

ResortPopupMenu * Control::GetContextMenu() { return m_pContextMenu; }

void Control::SetContextMenu(ResortPopupMenu * menu, bool deleteOld)
{
    if (deleteOld && !m_menuIsShared && m_pContextMenu != menu)
        delete m_pContextMenu.data();
    m_pContextMenu = menu;
    m_menuIsShared = false;
}

bool Control::hasContextMenu() { return m_hasContextMenu; }

void Control::EnableContextMenu(bool on) { m_contextMenuEnabled = on; }

bool Control::GetContextMenuEnabled() { return m_contextMenuEnabled; }

void Control::SetWidget(QWidget * widget)
{
    m_pWidget = widget;
    if (!widget)
        return;
    widget->setMouseTracking(true);
    widget->setBackgroundRole(QPalette::Window);
    widget->setAutoFillBackground(true);
    widget->installEventFilter(m_pFilter);
}

ControlEventFilter * Control::GetControlEventFilter() const { return m_pFilter; }

void Control::SetCurrentXYMenu(QPoint const & position)
{
    m_currentXMenu = position.x();
    m_currentYMenu = position.y();
}

bool Control::eventFilter(QObject * object, QEvent * event)
{
    return m_pFilter && m_pFilter->eventFilter(object, event);
}

QString Control::tr(char const * text, char const * comment)
{
    return QCoreApplication::translate("Control", text, comment);
}

QString Control::tr(char const * text, char const * comment, int count)
{
    return QCoreApplication::translate("Control", text, comment, count);
}

QString Control::trUtf8(char const * text, char const * comment) { return tr(text, comment); }

QString Control::trUtf8(char const * text, char const * comment, int count) { return tr(text, comment, count); }
