// SPDX-License-Identifier: MIT
#include "tree.h"

namespace {

bool IsTreeGone = false; // survives the tree, for Instance() at process exit

constexpr QChar Slash = u'/';

bool IsFolded(QString const & path)
{
    if (!path.startsWith(Slash) || path.endsWith(Slash))
        return path.isEmpty();
    return !path.contains(QLatin1String("//"));
}

} // namespace

Tree::Tree() = default;

Tree::~Tree()
{
    IsTreeGone = true;
    while (GetCount() > 0) // an observer may still insert
        RemoveFolder(Slash);
}

Tree * Tree::Instance()
{
    if (IsTreeGone)
        return nullptr;
    static Tree tree;
    return &tree;
}

QString Tree::Fold(QString const & path)
{
    if (IsFolded(path))
        return path;
    QString folded;
    folded.reserve(path.size() + 1);
    bool pending = true; // a slash is due before the next character
    for (QChar const character : path) {
        if (character == Slash) {
            pending = true;
            continue;
        }
        if (pending)
            folded += Slash;
        pending = false;
        folded += character;
    }
    return folded;
}

ValueBase * Tree::Find(QString const & path) const
{
    // keys are folded, so a hit needs no folding
    if (ValueBase * const value = m_table.Find(path))
        return value;
    return IsFolded(path) ? nullptr : m_table.Find(Fold(path));
}

bool Tree::Insert(QString const & folder, ValueBase * value)
{
    if (!value || value->m_pTree || value->m_gone)
        return false;
    QString const path = Fold(folder + Slash + value->GetName());
    if (path.isEmpty() || m_table.Find(path))
        return false;
    value->m_path = path;
    value->m_pTree = this;
    m_table.Insert(value->m_path, value);
    return true;
}

bool Tree::Remove(QString const & path)
{
    ValueBase * const value = Find(path);
    if (!value)
        return false;
    LifeWatch const watch(value->GetLifetime());
    value->GoAway(); // leaves the table first
    if (!watch.IsOver())
        value->DeleteWhenQuiet();
    return true;
}

int Tree::RemoveFolder(QString const & folder)
{
    int removed = 0;
    for (QString const & path : GetPaths(folder))
        removed += Remove(path) ? 1 : 0;
    bool const isNamed = !Fold(folder).isEmpty();
    return removed + (isNamed && Remove(folder) ? 1 : 0);
}

QStringList Tree::GetPaths(QString const & folder) const
{
    QStringList paths;
    if (folder.isEmpty())
        return paths;
    QString const start = Fold(folder) + Slash;
    m_table.ForEach([&](ValueBase * value) {
        if (value->m_path.startsWith(start))
            paths += value->m_path;
    });
    paths.sort();
    return paths;
}

void Tree::SubjectGoesAway(ValueBase * value) { m_table.Remove(value->m_path); }

QString Tree::RenameSubject(ValueBase * value, QString const & name)
{
    int const nameLength = static_cast<int>(Fold(value->GetName()).size());
    QString const folder = value->m_path.left(value->m_path.size() - nameLength);
    QString const path = Fold(folder + Slash + name);
    if (path == value->m_path)
        return path;
    if (path.isEmpty() || m_table.Find(path))
        return QString();
    m_table.Remove(value->m_path);
    value->m_path = path;
    m_table.Insert(value->m_path, value);
    return path;
}
