// SPDX-License-Identifier: MIT
#include "guibase.h"

#include "hotkeysctrl.h"

#include <QAction>
#include <QDialog>
#include <QDialogButtonBox>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr QSize DialogSize(720, 420); // px, at first

} // namespace

int GuiBase::AddHotKey(Qt::Key key, int modifiers, QObject * receiver, QString name, QString group, bool changeable,
                       bool throughModal)
{
    HotKey hotKey;
    hotKey.defaultCombination = HotKeyCombination::From(key, modifiers);
    hotKey.receiver = receiver;
    hotKey.name = std::move(name);
    hotKey.group = std::move(group);
    hotKey.changeable = changeable;
    hotKey.throughModal = throughModal;
    auto const known = m_hotKeys.GetIndices();
    int const index = m_hotKeys.Add(std::move(hotKey));
    if (index < 0 || std::binary_search(known.begin(), known.end(), index))
        return index;
    LoadKey(index);
    if (receiver)
        connect(receiver, &QObject::destroyed, this, &GuiBase::ReceiverGone, Qt::UniqueConnection);
    HotKeysChanged();
    return index;
}

int GuiBase::AddHotKey(Qt::Key key, int modifiers, QObject * receiver, wchar_t const * name, wchar_t const * group,
                       bool changeable, bool throughModal)
{
    return AddHotKey(key, modifiers, receiver, name ? QString::fromWCharArray(name) : QString(),
                     group ? QString::fromWCharArray(group) : QString(), changeable, throughModal);
}

int GuiBase::RemoveHotKey(Qt::Key key, int modifiers)
{
    int const index = GetIndex4HotKey(key, modifiers);
    RemoveHotKey(index, false);
    return index;
}

void GuiBase::RemoveHotKey(int index, bool forget)
{
    HotKey const * const hotKey = m_hotKeys.Get(index);
    if (!hotKey)
        return;
    if (forget && m_hotKeys.SetCombination(index, hotKey->defaultCombination)) {
        StoreKey(index);
        FlushKeys();
    }
    m_hotKeys.Remove(index);
    HotKeysChanged();
}

void GuiBase::RemoveHotKeyReceiver(QObject * receiver)
{
    if (!m_hotKeys.RemoveReceiver(receiver).empty())
        HotKeysChanged();
}

void GuiBase::EnableHotKey(int index, bool on)
{
    if (m_hotKeys.Enable(index, on))
        HotKeysChanged();
}

int GuiBase::GetIndex4HotKey(Qt::Key key, int modifiers) const
{
    return m_hotKeys.Find(HotKeyCombination::From(key, modifiers));
}

bool GuiBase::ChangeHotKey(int index, HotKeyCombination const & combination)
{
    if (!m_hotKeys.SetCombination(index, combination))
        return false;
    StoreKey(index);
    FlushKeys();
    HotKeysChanged();
    return true;
}

void GuiBase::RestoreHotKeys()
{
    for (int const index : m_hotKeys.GetIndices()) {
        m_hotKeys.SetCombination(index, m_hotKeys.Get(index)->defaultCombination);
        StoreKey(index);
    }
    FlushKeys();
    HotKeysChanged();
}

QWidget * GuiBase::GetHotkeysCtrl(QWidget * parent) { return new HotkeysCtrl(parent); }

void GuiBase::ExecHotKeysDialog(QWidget * parent)
{
    QPointer<QDialog> const dialog = new QDialog(parent);
    dialog->setObjectName(QStringLiteral("HotKeysDialog"));
    dialog->setWindowTitle(tr("Hot Keys"));
    auto * const buttons = new QDialogButtonBox(QDialogButtonBox::Close, dialog);
    connect(buttons, &QDialogButtonBox::rejected, dialog.data(), &QDialog::reject);
    auto * const layout = new QVBoxLayout(dialog);
    layout->addWidget(GetHotkeysCtrl(dialog), 1);
    layout->addWidget(buttons);
    dialog->resize(DialogSize);
    dialog->exec();
    delete dialog; // null when the parent took it along
}

void GuiBase::ShowHotKeyFrom(QAction * action, QString name)
{
    if (!action)
        return;
    auto const isOf = [action](ShownKey const & shown) { return !shown.action || shown.action == action; };
    m_shownKeys.erase(std::remove_if(m_shownKeys.begin(), m_shownKeys.end(), isOf), m_shownKeys.end());
    m_shownKeys.push_back({ action, std::move(name) });
    ShowKey(m_shownKeys.back());
}

void GuiBase::ReceiverGone(QObject * receiver)
{
    m_hotKeys.RemoveReceiver(receiver); // that of a widget still counts as alive at this point
    HotKeysChanged();
}

void GuiBase::HotKeysChanged()
{
    auto const shownKeys = m_shownKeys; // an action that changes may ask for another
    for (auto const & shown : shownKeys)
        ShowKey(shown);
    Q_EMIT signalHotKeysChanged();
}

void GuiBase::ShowKey(ShownKey const & shown) const
{
    if (!shown.action)
        return;
    HotKey const * const hotKey = m_hotKeys.Get(m_hotKeys.FindName(shown.name));
    QString const key = hotKey && hotKey->enabled ? hotKey->combination.ToDisplayText() : QString();
    QString const text = shown.action->text().section(QLatin1Char('\t'), 0, 0);
    shown.action->setText(key.isEmpty() ? text : text + QLatin1Char('\t') + key);
}
