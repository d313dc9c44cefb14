// SPDX-License-Identifier: MIT
#include "guibase.h"

#include "persistant.h"
#include "windowgeometry.h"

#include <QGuiApplication>
#include <QScreen>

namespace {

char const * const WindowKey = "GuiBase/MainWindow";
char const * const HotKeyFolder = "GuiBase/HotKeys/";
char const * const AsRegistered = "default"; // no key has this text

//! Where the key that the operator gave a hot key is kept. A slash in a name is none of the store's.
QString StoreKeyOf(HotKey const & hotKey)
{
    auto const part = [](QString text) { return text.replace(QLatin1Char('/'), QLatin1Char('|')); };
    return QLatin1String(HotKeyFolder) + part(hotKey.group) + QLatin1Char('/') + part(hotKey.name);
}

std::vector<QRect> FreeScreens()
{
    std::vector<QRect> screens;
    for (QScreen const * const screen : QGuiApplication::screens())
        screens.push_back(screen->availableGeometry());
    return screens;
}

} // namespace

void GuiBase::LoadKey(int index)
{
    HotKey const & hotKey = *m_hotKeys.Get(index);
    if (!hotKey.changeable)
        return;
    QString const text = Persistant::Store()->ReadString(StoreKeyOf(hotKey), QLatin1String(AsRegistered));
    HotKeyCombination const combination = HotKeyCombination::FromText(text);
    if (text.isEmpty() || !combination.IsNone())
        m_hotKeys.SetCombination(index, combination);
}

void GuiBase::StoreKey(int index) const
{
    HotKey const & hotKey = *m_hotKeys.Get(index);
    if (!hotKey.changeable)
        return;
    bool const isDefault = hotKey.combination == hotKey.defaultCombination;
    QString const key = StoreKeyOf(hotKey);
    QString const text = isDefault ? QString::fromLatin1(AsRegistered) : hotKey.combination.ToText();
    if (Persistant::Store()->ReadString(key, QLatin1String(AsRegistered)) != text)
        Persistant::Store()->WriteString(key, text);
}

void GuiBase::FlushKeys() const
{
    Persistant::Store()->Flush(); // one that fails is tried again with the next
}

bool GuiBase::RestoreWidgetSize()
{
    if (!m_pMainWidget)
        return false;
    auto const geometry =
        WindowGeometry::FromText(Persistant::Store()->ReadString(QLatin1String(WindowKey), QString()));
    if (!geometry || !geometry->IsReachable(FreeScreens()))
        return false;
    m_pMainWidget->setGeometry(geometry->rect);
    if (geometry->isMaximized)
        m_pMainWidget->setWindowState(m_pMainWidget->windowState() | Qt::WindowMaximized);
    return true;
}

void GuiBase::StoreWidgetSize()
{
    if (!m_pMainWidget)
        return;
    WindowGeometry geometry;
    geometry.isMaximized = m_pMainWidget->isMaximized();
    bool const isLarge = geometry.isMaximized || m_pMainWidget->isFullScreen();
    geometry.rect = isLarge ? m_pMainWidget->normalGeometry() : m_pMainWidget->geometry();
    Persistant::Store()->WriteString(QLatin1String(WindowKey), geometry.ToText());
    Persistant::Store()->Flush();
}
