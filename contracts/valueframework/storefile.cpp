// SPDX-License-Identifier: MIT
#include "storefile.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QThread>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace {

constexpr qint64 MostBytes = 64 << 20;
constexpr int MostLinks = 40;          // as the kernel follows
constexpr int MostRepeats = 100;       // of a call that a signal interrupted
constexpr unsigned long LockPause = 5; // ms

template <class Call>
bool Succeeds(Call const & call)
{
    for (int i = 0; i < MostRepeats; ++i) {
        if (call() == 0)
            return true;
        if (errno != EINTR)
            return false;
    }
    return false;
}

QString LastError() { return QString::fromLocal8Bit(std::strerror(errno)); }

int OpenFolder(QString const & folder)
{
    return ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

QString SyncFolder(QString const & folder)
{
    int const handle = OpenFolder(folder);
    if (handle < 0)
        return LastError();
    bool const synced = Succeeds([handle] { return ::fsync(handle); });
    QString const problem = synced ? QString() : LastError();
    ::close(handle);
    return problem;
}

//! Whether a name ends like the temporary files of QSaveFile: six letters, upper and lower case mixed inside. Words
//! such as "backup", "Backup" and "BACKUP" are what people write, and are left alone.
bool LooksTemporary(QString const & suffix)
{
    int upper = 0;
    int lower = 0;
    for (QChar const c : suffix) {
        upper += c >= QLatin1Char('A') && c <= QLatin1Char('Z') ? 1 : 0;
        lower += c >= QLatin1Char('a') && c <= QLatin1Char('z') ? 1 : 0;
    }
    bool const capitalised = upper == 1 && suffix.at(0).isUpper();
    return upper + lower == 6 && suffix.size() == 6 && upper > 0 && lower > 0 && !capitalised;
}

} // namespace

QString StoreFile::Target(QString const & path)
{
    QFileInfo info(path);
    for (int i = 0; i < MostLinks && info.isSymLink(); ++i)
        info.setFile(info.symLinkTarget());
    return info.isSymLink() ? QString() : info.absoluteFilePath();
}

QString StoreFile::Read(QString const & target, QByteArray & bytes)
{
    QFileInfo const info(target);
    if (!info.exists()) {
        bytes.clear();
        return {};
    }
    if (!info.isFile())
        return QStringLiteral("it is no regular file");
    if (info.size() > MostBytes)
        return QStringLiteral("it is larger than 64 MiB");
    QFile file(target);
    if (!file.open(QIODevice::ReadOnly))
        return file.errorString();
    bytes = file.readAll();
    return file.error() == QFileDevice::NoError ? QString() : file.errorString();
}

QString StoreFile::Replace(QString const & target, QByteArray const & bytes)
{
    QFileInfo const info(target);
    if (info.exists() && !info.isFile())
        return QStringLiteral("it is no regular file");
    QSaveFile file(target);
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString();
    QString problem;
    if (file.write(bytes) != bytes.size() || !file.flush() || file.error() != QFileDevice::NoError)
        problem = file.errorString();
    else if (!Succeeds([&file] { return ::fdatasync(file.handle()); }))
        problem = LastError();
    if (!problem.isEmpty()) {
        file.cancelWriting();
        return problem;
    }
    if (!file.commit())
        return file.errorString();
    return SyncFolder(info.absolutePath());
}

void StoreFile::Sweep(QString const & target)
{
    QFileInfo const info(target);
    QDir folder(info.absolutePath());
    QString const start = info.fileName() + QLatin1Char('.');
    // No name filters: they match by regular expressions, which Qt 5 cannot do any more while the process ends.
    for (QString const & name : folder.entryList(QDir::Files | QDir::NoSymLinks))
        if (name.startsWith(start) && LooksTemporary(name.mid(start.size())))
            folder.remove(name);
}

StoreFile::FolderLock::FolderLock(QString const & folder, int patience) : m_folder(OpenFolder(folder))
{
    if (m_folder < 0)
        return;
    QElapsedTimer waiting;
    waiting.start();
    do {
        if (::flock(m_folder, LOCK_EX | LOCK_NB) == 0) {
            m_held = true;
        } else if (errno == EWOULDBLOCK || errno == EINTR) {
            QThread::msleep(LockPause);
        } else {
            m_held = true; // a file system without locks
        }
    } while (!m_held && waiting.elapsed() < patience);
}

StoreFile::FolderLock::~FolderLock()
{
    if (m_folder >= 0)
        ::close(m_folder);
}
