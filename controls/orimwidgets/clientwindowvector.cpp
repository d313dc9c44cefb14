// SPDX-License-Identifier: MIT
#include "clientwindowvector.h"

#include "clientwindow.h"

#include <algorithm>

ClientWindowVector::ClientWindowVector(MarkerList * parent, EMarkerXYType direction)
{
    for (int i = 0; i < WindowCount; ++i) {
        m_windows.push_back(std::make_unique<ClientWindow>(parent, direction));
        m_windows.back()->SetText(QStringLiteral("%1").arg(i + 1));
    }
}

ClientWindowVector::~ClientWindowVector() = default;

ClientWindow * ClientWindowVector::GetWindow(int i) const
{
    return i >= 0 && i < WindowCount ? m_windows[static_cast<std::size_t>(i)].get() : nullptr;
}

int ClientWindowVector::ConnectedCnt() const
{
    auto const isConnected = [](auto const & window) { return window->Connected(); };
    return static_cast<int>(std::count_if(m_windows.begin(), m_windows.end(), isConnected));
}

int ClientWindowVector::VisibleCnt() const
{
    auto const isVisible = [](auto const & window) { return window->IsVisible(); };
    return static_cast<int>(std::count_if(m_windows.begin(), m_windows.end(), isVisible));
}

int ClientWindowVector::FirstNotVisible() const
{
    for (int i = 0; i < WindowCount; ++i)
        if (!GetWindow(i)->IsVisible())
            return i;
    return -1;
}

bool ClientWindowVector::CurrentWindowHasPoint(int pixel) const
{
    ClientWindow const * const window = GetWindow(m_current);
    return window && window->HasPoint(pixel);
}

void ClientWindowVector::HideAll()
{
    LifeWatch const life(m_lifetime);
    for (int i = 0; i < WindowCount && !life.IsOver(); ++i)
        GetWindow(i)->Show(false);
}

void ClientWindowVector::RecalcBorders()
{
    for (auto const & window : m_windows)
        window->RecalcBorders();
}

void ClientWindowVector::SetFocus(int i)
{
    if (i != -1 && !GetWindow(i))
        return;
    m_current = i;
    LifeWatch const life(m_lifetime);
    for (int other = 0; other < WindowCount && !life.IsOver() && m_current == i; ++other)
        if (other != i)
            GetWindow(other)->SetFocus(false);
    if (!life.IsOver() && m_current == i && GetWindow(i))
        GetWindow(i)->SetFocus(true);
}
