// SPDX-License-Identifier: MIT
#include "axisbase.h"

#include "clientwindow.h"

ClientWindow * AxisBase::CreateClientWindow()
{
    if (!m_pClientWindow)
        m_pClientWindow = std::make_unique<ClientWindow>(this, IsVertical() ? eMarkerY : eMarkerX);
    return m_pClientWindow.get();
}

bool AxisBase::SetButtonStart_ValuePath(QString const & path)
{
    return CreateClientWindow()->SetStart_ValuePath(path, eTemp1);
}

bool AxisBase::SetButtonStop_ValuePath(QString const & path)
{
    return CreateClientWindow()->SetStop_ValuePath(path, eTemp2);
}
