// SPDX-License-Identifier: MIT
#ifndef ORIM_SIGMFFILES_H
#define ORIM_SIGMFFILES_H

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QTemporaryDir>

//! Writes recordings for tests into a folder of its own that goes with it.
class SigmfFiles
{
public:
    QString Path(QString const & name) const { return m_folder.filePath(name); }

    //! Writes a file and tells its path; an empty path when that failed.
    QString Write(QString const & name, QByteArray const & content) const
    {
        QFile file(Path(name));
        bool const whole = file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.flush();
        return whole ? file.fileName() : QString();
    }

    //! Writes metadata and data of the same name and tells the path of the metadata.
    QString Recording(QByteArray const & meta, QByteArray const & data,
                      QString const & name = QStringLiteral("r")) const
    {
        Write(name + QLatin1String(".sigmf-data"), data);
        return Write(name + QLatin1String(".sigmf-meta"), meta);
    }

    //! Metadata of a datatype at 1000 S/s with further members of "global" and the segments, as JSON.
    static QByteArray Meta(QByteArray const & datatype, QByteArray const & more = QByteArray(),
                           QByteArray const & captures = QByteArrayLiteral("{\"core:sample_start\": 0}"))
    {
        return "{\"global\": {\"core:datatype\": \"" + datatype + "\", \"core:sample_rate\": 1000" +
               (more.isEmpty() ? QByteArray() : ", " + more) + "}, \"captures\": [" + captures +
               "], \"annotations\": []}";
    }

private:
    QTemporaryDir m_folder;
};

#endif
