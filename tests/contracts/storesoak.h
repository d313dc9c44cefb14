// SPDX-License-Identifier: MIT
#ifndef ORIM_STORESOAK_H
#define ORIM_STORESOAK_H

#include "initext.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <functional>
#include <sys/wait.h>
#include <unistd.h>

//! What the long programs about the store share.
namespace StoreSoak {

//! Where a folder for thousands of saves is made: in memory when the machine offers that.
inline QString Template()
{
    QFileInfo const memory(QStringLiteral("/dev/shm"));
    return (memory.isWritable() ? memory.filePath() : QDir::tempPath()) + QStringLiteral("/orim-store-XXXXXX");
}

//! Whether the compiler optimises: only then do times of code tell anything.
constexpr bool Optimised()
{
#if defined(__OPTIMIZE__)
    return true;
#else
    return false;
#endif
}

inline int & Lines()
{
    static int lines = 0;
    return lines;
}

//! Counts what is logged in place of printing it, from now on.
inline void CountLines()
{
    Lines() = 0;
    qInstallMessageHandler([](QtMsgType, QMessageLogContext const &, QString const &) { ++Lines(); });
}

inline QByteArray Bytes(QString const & path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
}

inline bool Put(QString const & path, QByteArray const & bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

//! Entries of a generation: every text names it, so that a mixture shows.
inline IniText::Entries Generation(int generation, int keys, int padding)
{
    IniText::Entries entries;
    QString const text = QString::number(generation) + QLatin1Char(' ') + QString(padding, QLatin1Char('x'));
    for (int i = 0; i < keys; ++i)
        entries.insert(QStringLiteral("Group%1/Key%2").arg(i / 8).arg(i), text);
    return entries;
}

//! Generation of entries; -1 when they are empty, torn or mixed.
inline int GenerationOf(IniText::Entries const & entries, int keys)
{
    if (entries.size() != keys)
        return -1;
    QString const first = entries.first();
    for (QString const & text : entries)
        if (text != first)
            return -1;
    bool ok = false;
    int const generation = first.section(QLatin1Char(' '), 0, 0).toInt(&ok);
    return ok ? generation : -1;
}

//! Runs a function in a child process.
//! \return its result, 0 .. 255; -1 when the child was killed.
inline int InChild(std::function<int()> const & function)
{
    pid_t const child = ::fork();
    if (child == 0)
        ::_exit(function());
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {}
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace StoreSoak

#endif
