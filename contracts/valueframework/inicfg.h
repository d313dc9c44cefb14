// SPDX-License-Identifier: MIT
#ifndef ORIM_INICFG_H
#define ORIM_INICFG_H

#include "icfg.h"
#include "initext.h"

//! The built-in store: one file in the INI syntax of QSettings, whole after any fault.
//!
//! The file is read once, at construction; a written text reads back at once and reaches the file by Flush(). A save
//! builds all bytes first, writes them to a file beside, syncs it, then replaces the old one and syncs the folder: a
//! power cut, a kill or a full disk leaves the old or the new store. What another process saved in the meantime is
//! taken along, so that only keys that both wrote are lost by one.
//!
//! - A damaged file is kept beside as "<name>.corrupt", and what reads of it goes on as the store.
//! - A file that is no file, too large or unreadable is left alone: all keys are missing, and saving fails.
//! - A failure is told in one log line, not once a save, and the texts stay for the next Flush().
//! - No lock is waited for longer than 100 ms.
//! - Temporary files that a killed process left beside the store are removed at construction.
class ORIMCONTRACTS_EXPORT IniCfg : public ICfg
{
public:
    //! The store of this application and user: "orimwidgets.ini" in QStandardPaths::AppConfigLocation.
    static QString DefaultPath();

    //! \param path  of the file; links are followed. It need not exist, nor its folder.
    explicit IniCfg(QString const & path = DefaultPath());
    IniCfg(IniCfg const &) = delete;
    IniCfg & operator=(IniCfg const &) = delete;
    ~IniCfg() override; //!< flushes

    QString ReadString(QString const & key, QString const & fallback) override;
    void WriteString(QString const & key, QString const & text) override;
    //! Saves what was written since the last time; without such does nothing while the file is there.
    //! \return whether all that was written lasts.
    bool Flush() override;

    //! All entries as they read now.
    IniText::Entries const & GetEntries() const { return m_entries; }

    //! Why the last load or save failed, in English; empty when it did not.
    QString const & GetProblem() const { return m_problem; }

private:
    //! Reads the file and takes it over, under the texts written since; false when it cannot be read.
    bool Load();
    bool Save();
    //! Keeps a damaged file beside.
    void PutAside(QString const & target, QByteArray const & bytes, IniText::Parsed const & parsed);
    //! Notes a failure and logs it, unless the one before was told already. \return false.
    bool Fail(QString const & problem);

    QString m_path;
    IniText::Entries m_entries; // what reads
    IniText::Entries m_pending; // what was written and is not saved
    QByteArray m_bytes;         // of the file, as last read or saved
    QString m_problem;
    bool m_rewrite = false; // a damaged file waits to be replaced
    bool m_told = false;    // a failure was logged, and none was overcome since
};

#endif
