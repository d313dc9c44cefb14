// SPDX-License-Identifier: MIT
#include "guicentral.h"

#include "guibase.h"

#include <QApplication>

#include <utility>

void GuiCentral::SetApplication(QApplication * application)
{
    GuiBase::Instance().SetApplication(application);
    if (application)
        application->installEventFilter(this);
}

QApplication * GuiCentral::GetApplication() const { return GuiBase::Instance().GetApplication(); }

void GuiCentral::SetMainWidget(QWidget * widget) { GuiBase::Instance().SetMainWidget(widget); }

QWidget * GuiCentral::GetMainWidget() const { return GuiBase::Instance().GetMainWidget(); }

bool GuiCentral::RestoreWidgetSize() { return GuiBase::Instance().RestoreWidgetSize(); }

void GuiCentral::StoreWidgetSize() { GuiBase::Instance().StoreWidgetSize(); }

bool GuiCentral::SetDefaultDataDirectory(QString const & path)
{
    return GuiBase::Instance().SetDefaultDataDirectory(path);
}

QString const & GuiCentral::GetDefaultDataDirectory() const { return GuiBase::Instance().m_defaultDataDirectory; }

QString GuiCentral::GetSignalType(char type) { return GuiBase::Instance().GetSignalType(type); }

void GuiCentral::SetShowFrequencyInHz(bool on) { GuiBase::Instance().SetShowFrequencyInHz(on); }

int GuiCentral::GetShowFrequencyInHz() const { return GuiBase::Instance().GetShowFrequencyInHz(); }

ValueSelection * GuiCentral::GetFrequencyUnit() const { return GuiBase::Instance().GetFrequencyUnit(); }

void GuiCentral::SetFrequencyUnit(SuffixedDouble::ESuffix unit) { GuiBase::Instance().SetFrequencyUnit(unit); }

void GuiCentral::SetFrequencyResolution(SuffixedDouble::ESuffix resolution)
{
    GuiBase::Instance().SetFrequencyResolution(resolution);
}

SuffixedDouble::ESuffix GuiCentral::GetFrequencyResolution() { return GuiBase::Instance().GetFrequencyResolution(); }

QString const & GuiCentral::GetFontFamily() const { return GuiBase::Instance().GetFontFamily(); }

QString const & GuiCentral::GetWFontFamily() const { return GuiBase::Instance().GetWFontFamily(); }

void GuiCentral::SetFontFamily(QString const & family) { GuiBase::Instance().SetFontFamily(family); }

void GuiCentral::SetWFontFamily(QString const & family) { GuiBase::Instance().SetWFontFamily(family); }

void GuiCentral::SetDisplayMode(int mode) { GuiBase::Instance().SetDisplayMode(mode); }

int GuiCentral::GetDisplayMode() const { return GuiBase::Instance().GetDisplayMode(); }

ValueSelection * GuiCentral::GetPositionFormat() const { return GuiBase::Instance().GetPositionFormat(); }

int GuiCentral::AddHotKey(Qt::Key key, unsigned int modifiers, QObject * receiver, QString name, QString group,
                          bool changeable, bool throughModal)
{
    return GuiBase::Instance().AddHotKey(key, static_cast<int>(modifiers), receiver, std::move(name), std::move(group),
                                         changeable, throughModal);
}

int GuiCentral::AddHotKey(Qt::Key key, unsigned int modifiers, QObject * receiver, wchar_t const * name,
                          wchar_t const * group, bool changeable, bool throughModal)
{
    return GuiBase::Instance().AddHotKey(key, static_cast<int>(modifiers), receiver, name, group, changeable,
                                         throughModal);
}

void GuiCentral::ShowHotKeyFrom(QAction * action, QString name)
{
    GuiBase::Instance().ShowHotKeyFrom(action, std::move(name));
}

void GuiCentral::EnableHotKey(int index, bool on) { GuiBase::Instance().EnableHotKey(index, on); }

void GuiCentral::RemoveHotKey(int index, bool forget) { GuiBase::Instance().RemoveHotKey(index, forget); }

int GuiCentral::RemoveHotKey(Qt::Key key, Qt::KeyboardModifier modifier)
{
    return GuiBase::Instance().RemoveHotKey(key, static_cast<int>(modifier));
}

void GuiCentral::RemoveHotKeyReceiver(QObject * receiver) { GuiBase::Instance().RemoveHotKeyReceiver(receiver); }

int GuiCentral::GetIndex4HotKey(Qt::Key key, Qt::KeyboardModifier modifier) const
{
    return GuiBase::Instance().GetIndex4HotKey(key, static_cast<int>(modifier));
}

void GuiCentral::ExecHotKeysDialog(QWidget * parent) { GuiBase::Instance().ExecHotKeysDialog(parent); }

QWidget * GuiCentral::GetHotkeysCtrl(QWidget * parent) { return GuiBase::Instance().GetHotkeysCtrl(parent); }
