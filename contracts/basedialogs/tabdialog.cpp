// SPDX-License-Identifier: MIT
#include "tabdialog.h"

#include <QDialogButtonBox>
#include <QPointer>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

TabDialog::TabDialog(QWidget * parent, char const * name, bool modal, Qt::WindowFlags flags)
    : QDialog(parent, flags)
    , m_pTabs(new QTabWidget(this))
    , m_pButtons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this))
{
    setObjectName(QString::fromLatin1(name));
    setModal(modal);
    auto * const layout = new QVBoxLayout(this);
    layout->addWidget(m_pTabs, 1);
    layout->addWidget(m_pButtons);
    connect(m_pButtons, &QDialogButtonBox::accepted, this, &TabDialog::slotOk);
    connect(m_pButtons, &QDialogButtonBox::rejected, this, &TabDialog::reject);
}

TabDialog::~TabDialog() = default;

void TabDialog::addTab(QWidget * page, QString const & label)
{
    if (page)
        m_pTabs->addTab(page, label);
}

void TabDialog::setApplyButton()
{
    if (m_pButtons->button(QDialogButtonBox::Apply))
        return;
    QPushButton const * const apply = m_pButtons->addButton(QDialogButtonBox::Apply);
    connect(apply, &QPushButton::clicked, this, &TabDialog::applyButtonPressed);
}

void TabDialog::slotOk()
{
    QPointer<TabDialog> const self(this);
    Q_EMIT applyButtonPressed();
    if (self)
        accept();
}
