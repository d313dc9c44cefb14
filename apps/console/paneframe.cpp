// SPDX-License-Identifier: MIT
#include "paneframe.h"

#include <QVBoxLayout>

PaneFrame::PaneFrame(PaneForm const & form, QWidget * parent) : QWidget(parent), m_form(form)
{
    setObjectName(m_form.pane->objectName() + QStringLiteral("Frame"));
    auto * const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_form.pane, 1);
}

PaneFrame::~PaneFrame() = default;

void PaneFrame::TakeLines(PaneLines const & lines)
{
    if (!m_held && m_form.take && !lines.empty())
        m_form.take(lines);
}

void PaneFrame::SetHeld(bool held)
{
    if (held == m_held)
        return;
    m_held = held;
    if (m_form.hold)
        m_form.hold(held);
}
