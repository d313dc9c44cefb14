// SPDX-License-Identifier: MIT
#include "inicfg.h"

#include "storefile.h"
#include "storelog.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace {

constexpr int Patience = 90; // ms that a lock is waited for, so that all of it stays below 100

QLatin1String Aside() { return QLatin1String(".corrupt"); }

} // namespace

QString IniCfg::DefaultPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) + QLatin1String("/orimwidgets.ini");
}

IniCfg::IniCfg(QString const & path) : m_path(QFileInfo(path).absoluteFilePath())
{
    QString const target = StoreFile::Target(m_path);
    QString const folder = QFileInfo(target).absolutePath();
    if (!target.isEmpty() && !QFileInfo::exists(folder))
        return; // nothing was ever saved
    StoreFile::FolderLock const lock(folder, Patience);
    if (!target.isEmpty() && lock.IsHeld()) {
        StoreFile::Sweep(target);
        StoreFile::Sweep(target + Aside());
    }
    if (Load() && m_rewrite && lock.IsHeld())
        Save();
}

IniCfg::~IniCfg() { IniCfg::Flush(); }

QString IniCfg::ReadString(QString const & key, QString const & fallback) { return m_entries.value(key, fallback); }

void IniCfg::WriteString(QString const & key, QString const & text)
{
    auto const held = m_entries.constFind(key);
    if (held != m_entries.cend() && *held == text)
        return;
    QString const kept = text.isNull() ? QString(QLatin1String("")) : text;
    m_entries.insert(key, kept);
    m_pending.insert(key, kept);
}

bool IniCfg::Flush()
{
    bool const inPlace = m_bytes.isEmpty() || QFileInfo::exists(m_path);
    if (m_pending.isEmpty() && !m_rewrite && inPlace)
        return true;
    QString const target = StoreFile::Target(m_path);
    if (target.isEmpty())
        return Fail(QStringLiteral("its links lead nowhere"));
    QString const folder = QFileInfo(target).absolutePath();
    if (!QDir().mkpath(folder))
        return Fail(QStringLiteral("its folder cannot be made"));
    StoreFile::FolderLock const lock(folder, Patience);
    if (!lock.IsHeld())
        return Fail(QStringLiteral("its folder cannot be locked"));
    return Load() && Save();
}

bool IniCfg::Load()
{
    QString const target = StoreFile::Target(m_path);
    if (target.isEmpty())
        return Fail(QStringLiteral("its links lead nowhere"));
    QByteArray bytes;
    QString const problem = StoreFile::Read(target, bytes);
    if (!problem.isEmpty())
        return Fail(problem);
    if (bytes.isEmpty() || bytes == m_bytes) // one that was deleted comes back with the next save
        return true;
    IniText::Parsed const parsed = IniText::Parse(bytes);
    if (parsed.damagedLines > 0)
        PutAside(target, bytes, parsed);
    m_bytes = bytes;
    m_entries = parsed.entries;
    for (auto entry = m_pending.cbegin(); entry != m_pending.cend(); ++entry)
        m_entries.insert(entry.key(), entry.value());
    return true;
}

bool IniCfg::Save()
{
    QByteArray const bytes = IniText::Print(m_entries);
    QString const problem = StoreFile::Replace(StoreFile::Target(m_path), bytes);
    if (!problem.isEmpty())
        return Fail(problem);
    m_bytes = bytes;
    m_pending.clear();
    m_rewrite = false;
    m_told = false;
    m_problem.clear();
    return true;
}

void IniCfg::PutAside(QString const & target, QByteArray const & bytes, IniText::Parsed const & parsed)
{
    QString const problem = StoreFile::Replace(target + Aside(), bytes);
    m_rewrite = problem.isEmpty(); // else it is replaced only when there is something to save
    qCWarning(StoreLog(), "%s: %d damaged lines, the first is %d; the rest is used%s%s", qUtf8Printable(m_path),
              parsed.damagedLines, parsed.firstDamaged,
              problem.isEmpty() ? ", and the file is kept as .corrupt" : ", and the file cannot be put aside: ",
              qUtf8Printable(problem));
}

bool IniCfg::Fail(QString const & problem)
{
    m_problem = problem;
    if (!m_told)
        qCWarning(StoreLog(), "%s: %s", qUtf8Printable(m_path), qUtf8Printable(problem));
    m_told = true;
    return false;
}
