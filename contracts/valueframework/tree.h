// SPDX-License-Identifier: MIT
#ifndef ORIM_TREE_H
#define ORIM_TREE_H

#include "orimcontracts_export.h"
#include "pathtable.h"
#include "valuebase.h"

#include <QString>
#include <QStringList>

//! Owns every value inserted, and finds it by its path.
//!
//! A path starts with "/". Doubled and closing slashes are folded on the way in, and a missing first one is put in
//! front.
class ORIMCONTRACTS_EXPORT Tree : private ITreeItem
{
public:
    //! The tree, built on first use; null once it has been destroyed at process exit.
    static Tree * Instance();

    //! \return null when unknown; "" is unknown. Fast at any size; a path that is folded already is the fastest.
    ValueBase * Find(QString const & path) const;

    //! Find with a checked cast: null for a value of another type.
    template <class T>
    T * FindAs(QString const & path) const
    {
        return dynamic_cast<T *>(Find(path));
    }

    //! Takes a value over and makes it reachable at folder + "/" + value->GetName().
    //! \return false, and the value is not taken, for null, a path in use or empty, a value that is in a tree already
    //! or is
    //!         going away.
    bool Insert(QString const & folder, ValueBase * value);
    //! Takes the value from the tree, notifies state 1 with code 2 to all its observers, then deletes it: at once, or
    //! when its own outermost notification has ended. \return false when unknown.
    bool Remove(QString const & path);
    //! Removes every value below a folder, and the value at its path; "/" is everything. \return the number of them.
    int RemoveFolder(QString const & folder);

    //! Number of values.
    int GetCount() const { return static_cast<int>(m_table.GetCount()); }

    //! Paths of the values below a folder, sorted; "/" is everything.
    QStringList GetPaths(QString const & folder) const;

    //! The path as the tree keeps it: "" for one without a name.
    static QString Fold(QString const & path);

private:
    Tree();
    ~Tree() override;

    void SubjectGoesAway(ValueBase * value) override;
    QString RenameSubject(ValueBase * value, QString const & name) override;

    PathTable m_table; // keys are the paths that the values hold
};

#endif
