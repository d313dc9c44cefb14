// SPDX-License-Identifier: MIT
#include "translationcenter.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFileInfo>
#include <QLocale>
#include <QPointer>
#include <QStringList>
#include <QTranslator>

#include <algorithm>
#include <memory>

//! Hears the application's change of language, and its end.
class TranslationCenter::Listener : public QObject
{
public:
    Listener(QCoreApplication * application, TranslationCenter & center) : QObject(application), m_center(center)
    {
        application->installEventFilter(this);
    }

    ~Listener() override { m_center.ApplicationEnded(); }

    bool eventFilter(QObject * watched, QEvent * event) override
    {
        if (event->type() == QEvent::LanguageChange && watched == parent())
            m_center.LanguageChanged();
        return false;
    }

private:
    TranslationCenter & m_center;
};

namespace {

void FollowApplication() { TranslationCenter::Instance()->ApplicationStarted(); }

//! The translation of a name in a language; null when there is none.
std::unique_ptr<QTranslator> LoadTranslation(QString const & name, QString const & localeName)
{
    auto translator = std::make_unique<QTranslator>();
    QString const program = QCoreApplication::applicationDirPath();
    QString const folders[] = { QStringLiteral(":/translations/"), program + QLatin1Char('/'),
                                program + QLatin1String("/translations/") };
    QString const locales[] = { localeName, localeName.section(QLatin1Char('_'), 0, 0) };
    for (QString const & locale : locales) {
        for (QString const & folder : folders) {
            // asked for before it is loaded: QTranslator takes other names when this one is missing
            QString const file = folder + name + QLatin1Char('_') + locale + QLatin1String(".qm");
            if (QFileInfo(file).isFile() && translator->load(file))
                return translator;
        }
    }
    return nullptr;
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(FollowApplication)

TranslationCenter * TranslationCenter::Instance()
{
    static TranslationCenter * const center = new TranslationCenter; // outlives every library that registers
    return center;
}

void TranslationCenter::Register(QString const & name)
{
    if (name.isEmpty() || name.contains(QLatin1Char('/')))
        return;
    if (Entry * const known = Find(name)) {
        ++known->count;
        return;
    }
    m_entries.push_back({ name, 1, nullptr });
    Install(name);
}

void TranslationCenter::Unregister(QString const & name)
{
    Entry * const entry = Find(name);
    if (!entry || --entry->count > 0)
        return;
    QTranslator * const translator = entry->translator;
    m_entries.erase(m_entries.begin() + (entry - m_entries.data()));
    delete translator; // tells the application, whose widgets may register and unregister
}

int TranslationCenter::GetCount(QString const & name) const
{
    Entry const * const entry = Find(name);
    return entry ? entry->count : 0;
}

QString TranslationCenter::GetFileName(QString const & name) const
{
    Entry const * const entry = Find(name);
    return entry && entry->translator ? entry->translator->filePath() : QString();
}

void TranslationCenter::ApplicationStarted()
{
    if (m_pListener)
        return;
    m_pListener = new Listener(QCoreApplication::instance(), *this);
    m_localeName = QLocale().name();
    InstallAll();
}

void TranslationCenter::ApplicationEnded()
{
    m_pListener = nullptr;
    for (Entry & entry : m_entries)
        entry.translator = nullptr;
}

void TranslationCenter::LanguageChanged()
{
    // installing a translation is a change of language, too
    if (m_localeName == QLocale().name())
        return;
    m_localeName = QLocale().name();
    InstallAll();
}

void TranslationCenter::InstallAll()
{
    QStringList names; // each installation tells the application, whose widgets may register and unregister
    for (Entry const & entry : m_entries)
        names.append(entry.name);
    for (QString const & name : names)
        Install(name);
}

void TranslationCenter::Install(QString const & name)
{
    Entry * const entry = Find(name);
    if (!m_pListener || !entry)
        return;
    QTranslator * const old = entry->translator;
    QPointer<QTranslator> const fresh = LoadTranslation(name, m_localeName).release();
    if (fresh)
        fresh->setParent(m_pListener);
    entry->translator = fresh;
    // both tell the application, whose widgets may take the entry and its translation away
    delete old;
    if (fresh)
        QCoreApplication::installTranslator(fresh);
}

TranslationCenter::Entry * TranslationCenter::Find(QString const & name)
{
    return const_cast<Entry *>(static_cast<TranslationCenter const *>(this)->Find(name));
}

TranslationCenter::Entry const * TranslationCenter::Find(QString const & name) const
{
    auto const found =
        std::find_if(m_entries.begin(), m_entries.end(), [&name](Entry const & entry) { return entry.name == name; });
    return found == m_entries.end() ? nullptr : &*found;
}
