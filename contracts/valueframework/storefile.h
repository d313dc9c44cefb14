// SPDX-License-Identifier: MIT
#ifndef ORIM_STOREFILE_H
#define ORIM_STOREFILE_H

#include "orimcontracts_export.h"

#include <QByteArray>
#include <QString>

//! Reading and replacing a small file, whole after any fault. A problem is told as an English text without its file.
namespace StoreFile {

//! The file that a path leads to when links are followed, whether it exists or not; empty for links that lead nowhere
//! else than to each other.
ORIMCONTRACTS_EXPORT QString Target(QString const & path);

//! Reads a whole file. One that is absent reads as no bytes; what is no regular file, or above 64 MiB, does not read.
//! \return an empty text, or the problem.
ORIMCONTRACTS_EXPORT QString Read(QString const & target, QByteArray & bytes);

//! Replaces a file or makes it: at the end the old bytes or the new ones are there, also after a kill or a power cut.
//! \return an empty text, or the problem; then the new bytes need not last.
ORIMCONTRACTS_EXPORT QString Replace(QString const & target, QByteArray const & bytes);

//! Removes temporary files that Replace left beside a target when its process was killed. To be called under a lock.
ORIMCONTRACTS_EXPORT void Sweep(QString const & target);

//! Keeps other processes from replacing files in a folder while it lives. The lock goes with the process, however it
//! ends, and leaves nothing behind.
class ORIMCONTRACTS_EXPORT FolderLock
{
public:
    //! Takes the lock, or gives up after \a patience ms.
    FolderLock(QString const & folder, int patience);
    FolderLock(FolderLock const &) = delete;
    FolderLock & operator=(FolderLock const &) = delete;
    ~FolderLock();

    //! Whether the lock is held, or the folder is on a file system without locks.
    bool IsHeld() const { return m_held; }

private:
    int m_folder = -1;
    bool m_held = false;
};

} // namespace StoreFile

#endif
