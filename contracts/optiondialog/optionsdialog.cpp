// SPDX-License-Identifier: MIT
#include "optionsdialog.h"

#include "colorset.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QStackedWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace options {

namespace {

constexpr int PageRole = Qt::UserRole; // the page, null once it ended; absent on a heading

} // namespace

OptionsDialog::OptionsDialog(QWidget * parent)
    : QDialog(parent)
    , m_pTree(new QTreeWidget(this))
    , m_pStack(new QStackedWidget(this))
    , m_pReason(new QLabel(this))
    , m_pButtons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Apply | QDialogButtonBox::Cancel |
                                          QDialogButtonBox::RestoreDefaults,
                                      this))
{
    setWindowTitle(tr("Options"));
    m_pTree->setObjectName(QStringLiteral("OptionPages"));
    m_pTree->setHeaderHidden(true);
    m_pTree->setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents); // the pages get the room
    m_pStack->setObjectName(QStringLiteral("OptionStack"));
    m_pReason->setObjectName(QStringLiteral("OptionRefusal"));
    m_pReason->setWordWrap(true);
    m_pReason->setTextFormat(Qt::PlainText);
    m_pReason->hide();
    auto * const splitter = new QSplitter(this);
    splitter->addWidget(m_pTree);
    splitter->addWidget(m_pStack);
    splitter->setStretchFactor(1, 1);
    splitter->setChildrenCollapsible(false);
    auto * const layout = new QVBoxLayout(this);
    layout->addWidget(splitter, 1);
    layout->addWidget(m_pReason);
    layout->addWidget(m_pButtons);
    connect(m_pTree, &QTreeWidget::currentItemChanged, this, &OptionsDialog::slotPageChosen);
    connect(m_pButtons, &QDialogButtonBox::accepted, this, &OptionsDialog::slotOk);
    connect(m_pButtons, &QDialogButtonBox::rejected, this, &OptionsDialog::reject);
    connect(m_pButtons->button(QDialogButtonBox::Apply), &QPushButton::clicked, this, &OptionsDialog::slotApply);
    connect(m_pButtons->button(QDialogButtonBox::RestoreDefaults), &QPushButton::clicked, this,
            &OptionsDialog::slotRestoreDefaults);
}

OptionsDialog::~OptionsDialog() = default;

void OptionsDialog::add(IConfigurable & configurable)
{
    auto entry = std::make_unique<Entry>();
    entry->configurable = &configurable;
    entry->object = dynamic_cast<QObject *>(&configurable);
    entry->isObject = entry->object != nullptr;
    entry->options = configurable.createOptions();
    entry->validator = configurable.createValidator();
    entry->pages = configurable.createOptionEditorPages();
    entry->firstPage = nullptr;
    if (entry->options)
        configurable.getOptions(*entry->options, Intent::eCurrent);
    for (auto const & page : entry->pages) {
        QWidget * const widget = page->createWidget(m_pStack);
        if (!widget)
            continue;
        if (entry->options)
            page->showOptions(*entry->options);
        QStringList const path = page->path();
        QTreeWidgetItem * const item = MakeItem(path.isEmpty() ? QStringList(configurable.displayName()) : path);
        m_pStack->addWidget(widget);
        item->setData(0, PageRole, QVariant::fromValue(QPointer<QWidget>(widget)));
        entry->firstPage = entry->firstPage ? entry->firstPage : item;
        if (m_pStack->count() == 1)
            m_pTree->setCurrentItem(item);
    }
    m_entries.push_back(std::move(entry));
    m_pTree->expandAll();
    m_pTree->resizeColumnToContents(0);
    m_pTree->setMinimumWidth(m_pTree->columnWidth(0) + m_pTree->indentation());
}

QTreeWidgetItem * OptionsDialog::MakeItem(QStringList const & path)
{
    QTreeWidgetItem * parent = m_pTree->invisibleRootItem();
    for (int level = 0; level < path.size(); ++level) {
        QTreeWidgetItem * next = nullptr;
        for (int i = 0; i < parent->childCount() && !next; ++i) {
            QTreeWidgetItem * const child = parent->child(i);
            bool const taken = level == path.size() - 1 && child->data(0, PageRole).isValid();
            if (child->text(0) == path.at(level) && !taken)
                next = child;
        }
        parent = next ? next : new QTreeWidgetItem(parent, QStringList(path.at(level)));
    }
    return parent;
}

void OptionsDialog::slotPageChosen(QTreeWidgetItem * item)
{
    auto const page = item ? item->data(0, PageRole).value<QPointer<QWidget>>() : QPointer<QWidget>();
    if (page && m_pStack->indexOf(page) >= 0)
        m_pStack->setCurrentWidget(page);
}

bool OptionsDialog::Apply(Entry & entry)
{
    if (!entry.IsAlive() || !entry.options)
        return true;
    for (auto const & page : entry.pages)
        page->takeOptions(*entry.options);
    QString reason;
    if (entry.validator && !entry.validator->validate(*entry.options, &reason)) {
        Refuse(entry, reason);
        return false;
    }
    QPointer<OptionsDialog> const self(this);
    bool const accepted = entry.configurable->applyOptions(*entry.options, this);
    if (!accepted && self && entry.IsAlive())
        Refuse(entry, tr("The options were not accepted."));
    return accepted;
}

void OptionsDialog::Refuse(Entry const & entry, QString const & reason)
{
    if (entry.firstPage)
        m_pTree->setCurrentItem(entry.firstPage);
    QPalette palette; // what is not set comes from the dialog
    palette.setColor(QPalette::WindowText, ColorSet::Instance()[IColorBase::eColorWarning]);
    m_pReason->setPalette(palette);
    m_pReason->setText(tr("%1: %2").arg(entry.configurable->displayName(), reason));
    m_pReason->show();
}

bool OptionsDialog::slotApply()
{
    QPointer<OptionsDialog> const self(this);
    m_pReason->hide();
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
        bool const accepted = Apply(*m_entries[i]);
        if (!self)
            return accepted;
        if (!accepted)
            return false;
    }
    return true;
}

void OptionsDialog::slotRestoreDefaults()
{
    QPointer<OptionsDialog> const self(this);
    for (auto const & entry : m_entries) {
        if (!entry->IsAlive())
            continue;
        if (entry->options)
            entry->configurable->getOptions(*entry->options, Intent::eDefault);
        for (auto const & page : entry->pages) {
            page->restoreDefaults();
            if (!self)
                return;
            if (entry->options)
                page->showOptions(*entry->options);
        }
    }
}

void OptionsDialog::slotOk()
{
    QPointer<OptionsDialog> const self(this);
    bool const accepted = slotApply();
    if (self && accepted)
        accept();
}

void OptionsDialog::reject()
{
    QPointer<OptionsDialog> const self(this);
    for (auto const & entry : m_entries) {
        if (!entry->IsAlive())
            continue;
        for (auto const & page : entry->pages) {
            page->cancel();
            if (!self)
                return;
        }
    }
    QDialog::reject();
}

} // namespace options
