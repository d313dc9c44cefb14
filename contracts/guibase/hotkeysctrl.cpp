// SPDX-License-Identifier: MIT
#include "hotkeysctrl.h"

#include "guibase.h"
#include "hotkeyedit.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace {

HotKeyTable const & Table() { return GuiBase::Instance().GetHotKeys(); }

//! All hot keys, sorted by group and name as the operator reads them.
std::vector<int> SortedIndices()
{
    std::vector<int> indices = Table().GetIndices();
    std::stable_sort(indices.begin(), indices.end(), [](int a, int b) {
        HotKey const & left = *Table().Get(a);
        HotKey const & right = *Table().Get(b);
        int const byGroup = QString::localeAwareCompare(left.group, right.group);
        return byGroup != 0 ? byGroup < 0 : QString::localeAwareCompare(left.name, right.name) < 0;
    });
    return indices;
}

} // namespace

HotkeysCtrl::HotkeysCtrl(QWidget * parent)
    : QWidget(parent)
    , m_pTable(new QTableWidget(0, 5, this))
    , m_pEmpty(new QLabel(tr("No hot keys are registered."), this))
{
    m_pTable->setObjectName(QStringLiteral("HotKeysTable"));
    m_pTable->setAccessibleName(tr("Hot keys"));
    m_pTable->setHorizontalHeaderLabels({ tr("Function"), tr("Group"), tr("Key"), tr("Default"), tr("Note") });
    m_pTable->verticalHeader()->hide();
    m_pTable->setSelectionMode(QAbstractItemView::NoSelection);
    m_pTable->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_pTable->setTabKeyNavigation(false);
    m_pTable->setFocusPolicy(Qt::NoFocus); // Tab walks through the keys
    m_pTable->setWordWrap(true);           // a long note takes a second line
    m_pTable->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_pTable->horizontalHeader()->setSectionResizeMode(eColumnNote, QHeaderView::Stretch);
    m_pTable->horizontalHeader()->setHighlightSections(false);
    connect(m_pTable->horizontalHeader(), &QHeaderView::sectionResized, m_pTable, &QTableView::resizeRowsToContents);

    auto * const hint = new QLabel(tr("Click a key and press the new one. Backspace takes it away."), this);
    hint->setWordWrap(true);
    auto * const restore = new QPushButton(tr("Restore &Defaults"), this);
    restore->setObjectName(QStringLiteral("RestoreDefaults"));
    restore->setAutoDefault(false);
    connect(restore, &QPushButton::clicked, this, &HotkeysCtrl::slotRestore);

    auto * const below = new QHBoxLayout;
    below->addWidget(hint, 1);
    below->addWidget(restore);
    auto * const layout = new QVBoxLayout(this);
    layout->addWidget(m_pTable, 1);
    layout->addWidget(m_pEmpty);
    layout->addLayout(below);

    Rebuild();
    // queued: a list must not change below the editor that is being typed in
    connect(&GuiBase::Instance(), &GuiBase::signalHotKeysChanged, this, &HotkeysCtrl::slotFollow, Qt::QueuedConnection);
}

void HotkeysCtrl::Rebuild()
{
    std::vector<Row> const earlier = std::move(m_rows);
    std::vector<int> const indices = SortedIndices();
    m_rows.clear();
    m_pTable->setRowCount(0);
    m_pTable->setRowCount(static_cast<int>(indices.size()));
    for (int const index : indices) {
        HotKey const & hotKey = *Table().Get(index);
        Row row{ index, hotKey.combination, hotKey.combination, nullptr };
        for (auto const & known : earlier)
            if (known.index == index && known.wanted != known.held)
                row.wanted = known.wanted;
        m_rows.push_back(row);
        FillRow(static_cast<int>(m_rows.size()) - 1, hotKey);
    }
    m_pTable->setVisible(!m_rows.empty());
    m_pEmpty->setVisible(m_rows.empty());
    TakeOver();
    ShowNotes();
}

void HotkeysCtrl::FillRow(int at, HotKey const & hotKey)
{
    Row & row = m_rows[static_cast<std::size_t>(at)];
    auto const put = [this, at](EColumn column, QString const & text) {
        auto * const item = new QTableWidgetItem(text);
        item->setFlags(Qt::ItemIsEnabled);
        item->setToolTip(text);
        m_pTable->setItem(at, column, item);
    };
    put(eColumnName, hotKey.name);
    put(eColumnGroup, hotKey.group);
    put(eColumnDefault, hotKey.defaultCombination.ToDisplayText());
    put(eColumnNote, QString());
    row.edit = new HotKeyEdit(m_pTable);
    row.edit->SetCombination(row.wanted);
    row.edit->setEnabled(hotKey.changeable);
    row.edit->setAccessibleName(tr("Key of %1").arg(hotKey.name));
    int const index = row.index;
    connect(row.edit, &HotKeyEdit::signalEdited, this, [this, index] { Edited(index); });
    m_pTable->setCellWidget(at, eColumnKey, row.edit);
}

void HotkeysCtrl::Edited(int index)
{
    for (auto & row : m_rows)
        if (row.index == index)
            row.wanted = row.edit->GetCombination();
    TakeOver();
    ShowNotes();
}

void HotkeysCtrl::TakeOver()
{
    std::vector<int> const conflicts = GetConflicts();
    for (std::size_t at = 0; at < m_rows.size(); ++at) {
        Row & row = m_rows[at];
        if (row.wanted != row.held && conflicts[at] < 0 && GuiBase::Instance().ChangeHotKey(row.index, row.wanted))
            row.held = row.wanted;
    }
}

std::vector<int> HotkeysCtrl::GetConflicts() const
{
    std::vector<int> conflicts(m_rows.size(), -1);
    auto const stands = [&](std::size_t at, std::size_t other) {
        Row const & rival = m_rows[other];
        HotKeyCombination const & wanted = m_rows[at].wanted;
        return other != at && !wanted.IsNone() &&
               (rival.wanted == wanted || (conflicts[other] >= 0 && rival.held == wanted));
    };
    // a row in conflict keeps its key, which brings who wants that into conflict; each round but the last finds a row
    bool hasGrown = true;
    for (std::size_t round = 0; hasGrown && round <= m_rows.size(); ++round) {
        hasGrown = false;
        for (std::size_t at = 0; at < m_rows.size(); ++at)
            for (std::size_t other = 0; conflicts[at] < 0 && other < m_rows.size(); ++other)
                if (stands(at, other)) {
                    conflicts[at] = static_cast<int>(other);
                    hasGrown = true;
                }
    }
    return conflicts;
}

QString HotkeysCtrl::Note(Row const & row, int conflict) const
{
    HotKey const * const hotKey = Table().Get(row.index);
    if (!hotKey)
        return {};
    if (conflict >= 0) {
        HotKey const * const other = Table().Get(m_rows[static_cast<std::size_t>(conflict)].index);
        QString const name = other ? other->name : QString();
        return row.wanted == row.held ? tr("Also wanted for \"%1\"").arg(name)
                                      : tr("In use for \"%1\": not taken over").arg(name);
    }
    if (!hotKey->enabled)
        return tr("Switched off");
    if (!hotKey->changeable)
        return tr("Cannot be changed");
    if (row.wanted.IsNone())
        return tr("No key");
    return row.wanted == hotKey->defaultCombination ? QString() : tr("Changed");
}

void HotkeysCtrl::ShowNotes()
{
    QIcon const warning = style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, this);
    std::vector<int> const conflicts = GetConflicts();
    for (std::size_t at = 0; at < m_rows.size(); ++at) {
        int const conflict = conflicts[at];
        QString const note = Note(m_rows[at], conflict);
        QTableWidgetItem * const item = m_pTable->item(static_cast<int>(at), eColumnNote);
        item->setText(note);
        item->setToolTip(note);
        item->setIcon(conflict >= 0 ? warning : QIcon());
    }
    m_pTable->resizeRowsToContents();
}

void HotkeysCtrl::slotFollow()
{
    std::vector<int> shown;
    for (auto const & row : m_rows)
        shown.push_back(row.index);
    if (shown != SortedIndices()) {
        Rebuild();
        return;
    }
    for (auto & row : m_rows) {
        HotKeyCombination const & held = Table().Get(row.index)->combination;
        if (held == row.held)
            continue;
        row.held = held;
        row.wanted = held;
        row.edit->SetCombination(held);
    }
    TakeOver();
    ShowNotes();
}

void HotkeysCtrl::slotRestore()
{
    GuiBase::Instance().RestoreHotKeys();
    for (auto & row : m_rows) {
        HotKey const * const hotKey = Table().Get(row.index);
        if (!hotKey)
            continue;
        row.held = hotKey->combination;
        row.wanted = row.held;
        row.edit->SetCombination(row.wanted);
    }
    ShowNotes();
}
