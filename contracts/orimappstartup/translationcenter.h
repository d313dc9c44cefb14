// SPDX-License-Identifier: MIT
#ifndef ORIM_TRANSLATIONCENTER_H
#define ORIM_TRANSLATIONCENTER_H

#include "orimcontracts_export.h"

#include <QString>

#include <vector>

class QTranslator;

//! Installs the translations of libraries in whatever application object exists, in the language of the default
//! QLocale, and follows every change of language that the application makes. Used from the GUI thread.
//!
//! The translation of a name is the first of these files that exists and reads, with LOCALE as in "de_AT", then "de":
//! ":/translations/NAME_LOCALE.qm", NAME_LOCALE.qm and translations/NAME_LOCALE.qm in the folder of the program.
class ORIMCONTRACTS_EXPORT TranslationCenter
{
public:
    //! The one center. Never null and never destroyed: a library may register before the application object exists and
    //! unregister when it is unloaded, however late that is.
    static TranslationCenter * Instance();
    TranslationCenter(TranslationCenter const &) = delete;
    TranslationCenter & operator=(TranslationCenter const &) = delete;

    //! Registers a translation. It is installed at once, or as soon as there is an application object. Registrations of
    //! one name are counted. An empty name and one with a '/' are ignored.
    void Register(QString const & name);
    //! Takes one registration back; the last one takes the translation out of the application. Ignores an unknown name.
    void Unregister(QString const & name);

    //! Registrations of \a name; 0 when unknown.
    int GetCount(QString const & name) const;
    //! The file that is installed for \a name; empty when none was found, without an application object, and for an
    //! unknown name.
    QString GetFileName(QString const & name) const;

    //! Installs what is registered in the application object that has just been built. Called by Qt.
    void ApplicationStarted();

private:
    struct Entry
    {
        QString name;
        int count = 1;
        QTranslator * translator = nullptr; // a child of the listener, so it ends with the application
    };
    class Listener;

    TranslationCenter() = default;
    ~TranslationCenter() = default;
    void ApplicationEnded();
    void LanguageChanged();
    void InstallAll();
    void Install(QString const & name);
    Entry * Find(QString const & name);
    Entry const * Find(QString const & name) const;

    std::vector<Entry> m_entries;
    Listener * m_pListener = nullptr; // a child of the application object
    QString m_localeName;             // of the installed translations
};

#endif
