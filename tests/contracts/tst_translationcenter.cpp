// SPDX-License-Identifier: MIT
#include "testmain.h"
#include "translationcenter.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLocale>

#include <functional>
#include <memory>
#include <optional>

namespace {

QString Level() { return QCoreApplication::translate("Station", "Level"); }

//! An application object, with a file name as its program.
class Program
{
public:
    Program() : m_application(m_argc, m_argv) {}

private:
    int m_argc = 1;
    char m_name[12] = "application";
    char * m_argv[2] = { m_name, nullptr };
    QCoreApplication m_application;
};

//! Does something once, after so many changes of language that the application hears.
class Reaction : public QObject
{
public:
    explicit Reaction(std::function<void()> action, int skip = 0) : m_action(std::move(action)), m_skip(skip)
    {
        QCoreApplication::instance()->installEventFilter(this);
    }

    bool eventFilter(QObject *, QEvent * event) override
    {
        if (event->type() == QEvent::LanguageChange && m_action && m_skip-- == 0) {
            auto const action = std::move(m_action);
            m_action = nullptr;
            action();
        }
        return false;
    }

private:
    std::function<void()> m_action;
    int m_skip;
};

void SetLanguage(char const * name)
{
    QLocale::setDefault(QLocale(QLatin1String(name)));
    if (QCoreApplication::instance()) {
        QEvent event(QEvent::LanguageChange);
        QCoreApplication::sendEvent(QCoreApplication::instance(), &event);
    }
}

QString const Station = QStringLiteral("station");

} // namespace

class tst_TranslationCenter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void FileOfLanguage_data();
    void FileOfLanguage();
    void InstalledOnceThereIsAnApplication();
    void InstalledAtOnceInARunningApplication();
    void RegistrationsAreCounted();
    void IgnoresBadNames_data();
    void IgnoresBadNames();
    void FollowsTheLanguage();
    void FollowsTheLanguageOnlyWhenItChanges();
    void SurvivesTheApplication();
    void TakenBackWithoutApplication();
    void LooksBesideTheProgram_data();
    void LooksBesideTheProgram();
    void ResourceComesFirst();
    void PassesOverABrokenFile();
    void MayUnregisterWhileTheLanguageChanges_data();
    void MayUnregisterWhileTheLanguageChanges();
    void MayRegisterWhileTheLanguageChanges();
    void MayChangeTheLanguageWhileItChanges();
    void WidgetsHearTheChange();
};

void tst_TranslationCenter::init() { SetLanguage("de_DE"); }

void tst_TranslationCenter::cleanup()
{
    TranslationCenter & center = *TranslationCenter::Instance();
    while (center.GetCount(Station) > 0)
        center.Unregister(Station);
    QLocale::setDefault(QLocale::c());
}

void tst_TranslationCenter::FileOfLanguage_data()
{
    QTest::addColumn<QByteArray>("locale");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("text");
    QTest::newRow("language and country") << QByteArray("de_AT") << ":/translations/station_de_AT.qm"
                                          << "Pegl";
    QTest::newRow("the language for a country of its own") << QByteArray("de_DE") << ":/translations/station_de.qm"
                                                           << "Pegel";
    QTest::newRow("another language") << QByteArray("fr_CA") << ":/translations/station_fr.qm"
                                      << "Niveau";
    QTest::newRow("none for an unknown language") << QByteArray("pl_PL") << ""
                                                  << "Level";
    QTest::newRow("none for the C locale") << QByteArray("C") << ""
                                           << "Level";
}

void tst_TranslationCenter::FileOfLanguage()
{
    QFETCH(QByteArray, locale);
    QFETCH(QString, file);
    QFETCH(QString, text);
    Program const program;
    SetLanguage(locale.constData());
    TranslationCenter::Instance()->Register(Station);
    QCOMPARE(TranslationCenter::Instance()->GetFileName(Station), file);
    QCOMPARE(Level(), text);
}

void tst_TranslationCenter::InstalledOnceThereIsAnApplication()
{
    TranslationCenter::Instance()->Register(Station);
    QCOMPARE(TranslationCenter::Instance()->GetCount(Station), 1);
    QCOMPARE(TranslationCenter::Instance()->GetFileName(Station), QString());
    Program const program;
    QCOMPARE(TranslationCenter::Instance()->GetFileName(Station), QStringLiteral(":/translations/station_de.qm"));
    QCOMPARE(Level(), QStringLiteral("Pegel"));
}

void tst_TranslationCenter::InstalledAtOnceInARunningApplication()
{
    Program const program;
    QCOMPARE(Level(), QStringLiteral("Level"));
    TranslationCenter::Instance()->Register(Station);
    QCOMPARE(Level(), QStringLiteral("Pegel"));
}

void tst_TranslationCenter::RegistrationsAreCounted()
{
    Program const program;
    TranslationCenter & center = *TranslationCenter::Instance();
    center.Register(Station);
    center.Register(Station);
    QCOMPARE(center.GetCount(Station), 2);
    center.Unregister(Station);
    QCOMPARE(center.GetCount(Station), 1);
    QCOMPARE(Level(), QStringLiteral("Pegel"));
    center.Unregister(Station);
    QCOMPARE(center.GetCount(Station), 0);
    QCOMPARE(center.GetFileName(Station), QString());
    QCOMPARE(Level(), QStringLiteral("Level"));
    center.Unregister(Station);
    QCOMPARE(center.GetCount(Station), 0);
}

void tst_TranslationCenter::IgnoresBadNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("empty") << "";
    QTest::newRow("null") << QString();
    QTest::newRow("a path") << "../translations/station";
}

void tst_TranslationCenter::IgnoresBadNames()
{
    QFETCH(QString, name);
    Program const program;
    TranslationCenter::Instance()->Register(name);
    QCOMPARE(TranslationCenter::Instance()->GetCount(name), 0);
    QCOMPARE(Level(), QStringLiteral("Level"));
    TranslationCenter::Instance()->Unregister(name);
    QCOMPARE(TranslationCenter::Instance()->GetCount(name), 0);
}

void tst_TranslationCenter::FollowsTheLanguage()
{
    Program const program;
    TranslationCenter::Instance()->Register(Station);
    SetLanguage("fr_FR");
    QCOMPARE(Level(), QStringLiteral("Niveau"));
    SetLanguage("en_GB");
    QCOMPARE(Level(), QStringLiteral("Level"));
    SetLanguage("de_AT");
    QCOMPARE(Level(), QStringLiteral("Pegl"));
}

void tst_TranslationCenter::FollowsTheLanguageOnlyWhenItChanges()
{
    Program const program;
    TranslationCenter::Instance()->Register(Station);
    int heard = 0;
    Reaction const reaction([&heard] { ++heard; });
    SetLanguage("de_DE"); // the same: only the event sent here
    QCOMPARE(heard, 1);
    QCOMPARE(Level(), QStringLiteral("Pegel"));
}

void tst_TranslationCenter::SurvivesTheApplication()
{
    TranslationCenter & center = *TranslationCenter::Instance();
    {
        Program const program;
        center.Register(Station);
        QCOMPARE(Level(), QStringLiteral("Pegel"));
    }
    QCOMPARE(center.GetCount(Station), 1);
    QCOMPARE(center.GetFileName(Station), QString());
    SetLanguage("fr_FR");
    Program const second;
    QCOMPARE(Level(), QStringLiteral("Niveau"));
}

void tst_TranslationCenter::TakenBackWithoutApplication()
{
    TranslationCenter & center = *TranslationCenter::Instance();
    {
        Program const program;
        center.Register(Station);
    }
    center.Unregister(Station);
    QCOMPARE(center.GetCount(Station), 0);
    Program const second;
    QCOMPARE(Level(), QStringLiteral("Level"));
}

void tst_TranslationCenter::LooksBesideTheProgram_data()
{
    QTest::addColumn<QString>("folder");
    QTest::newRow("in its folder") << "";
    QTest::newRow("in its folder of translations") << "translations/";
}

void tst_TranslationCenter::LooksBesideTheProgram()
{
    QFETCH(QString, folder);
    Program const program;
    QDir const home(QCoreApplication::applicationDirPath());
    QVERIFY(home.mkpath(QStringLiteral("translations")));
    QString const file = home.filePath(folder + QLatin1String("beside_de.qm"));
    QFile::remove(file);
    QVERIFY(QFile::copy(QStringLiteral(":/samples/beside_de.qm"), file));
    TranslationCenter::Instance()->Register(QStringLiteral("beside"));
    QCOMPARE(TranslationCenter::Instance()->GetFileName(QStringLiteral("beside")), file);
    QCOMPARE(Level(), QStringLiteral("Daneben"));
    TranslationCenter::Instance()->Unregister(QStringLiteral("beside"));
    QFile::remove(file);
}

void tst_TranslationCenter::ResourceComesFirst()
{
    Program const program;
    QString const file = QCoreApplication::applicationDirPath() + QLatin1String("/station_de.qm");
    QFile::remove(file);
    QVERIFY(QFile::copy(QStringLiteral(":/samples/beside_de.qm"), file));
    TranslationCenter::Instance()->Register(Station);
    QFile::remove(file);
    QCOMPARE(Level(), QStringLiteral("Pegel"));
}

void tst_TranslationCenter::PassesOverABrokenFile()
{
    Program const program;
    QString const file = QCoreApplication::applicationDirPath() + QLatin1String("/broken_de.qm");
    QFile broken(file);
    QVERIFY(broken.open(QIODevice::WriteOnly));
    broken.write("no translation");
    broken.close();
    TranslationCenter::Instance()->Register(QStringLiteral("broken"));
    QFile::remove(file);
    QCOMPARE(TranslationCenter::Instance()->GetCount(QStringLiteral("broken")), 1);
    QCOMPARE(TranslationCenter::Instance()->GetFileName(QStringLiteral("broken")), QString());
    TranslationCenter::Instance()->Unregister(QStringLiteral("broken"));
}

void tst_TranslationCenter::MayUnregisterWhileTheLanguageChanges_data()
{
    QTest::addColumn<int>("skip");
    QTest::newRow("before the center hears of it") << 0;
    QTest::newRow("as the first old translation goes") << 1;
    QTest::newRow("as its new one comes") << 2;
    QTest::newRow("as the second old translation goes") << 3;
    QTest::newRow("as its new one comes, the last event") << 4;
}

void tst_TranslationCenter::MayUnregisterWhileTheLanguageChanges()
{
    QFETCH(int, skip);
    Program const program;
    TranslationCenter & center = *TranslationCenter::Instance();
    QString const second = QCoreApplication::applicationDirPath() + QLatin1String("/second_");
    for (char const * const language : { "de.qm", "fr.qm" }) {
        QFile::remove(second + QLatin1String(language));
        QVERIFY(QFile::copy(QStringLiteral(":/samples/beside_de.qm"), second + QLatin1String(language)));
    }
    center.Register(Station);
    center.Register(QStringLiteral("second"));
    bool done = false;
    Reaction const reaction(
        [&center, &done] {
            center.Unregister(Station);
            center.Unregister(QStringLiteral("second"));
            done = true;
        },
        skip);
    SetLanguage("fr_FR");
    QFile::remove(second + QLatin1String("de.qm"));
    QFile::remove(second + QLatin1String("fr.qm"));
    QVERIFY(done);
    QCOMPARE(center.GetCount(Station), 0);
    QCOMPARE(center.GetCount(QStringLiteral("second")), 0);
    QCOMPARE(Level(), QStringLiteral("Level"));
}

void tst_TranslationCenter::MayRegisterWhileTheLanguageChanges()
{
    Program const program;
    TranslationCenter & center = *TranslationCenter::Instance();
    Reaction const reaction([&center] {
        for (int i = 0; i < 100; ++i)
            center.Register(QStringLiteral("extra%1").arg(i));
    });
    center.Register(Station); // tells the application of the change
    QCOMPARE(center.GetCount(QStringLiteral("extra99")), 1);
    QCOMPARE(Level(), QStringLiteral("Pegel"));
    for (int i = 0; i < 100; ++i)
        center.Unregister(QStringLiteral("extra%1").arg(i));
}

void tst_TranslationCenter::MayChangeTheLanguageWhileItChanges()
{
    Program const program;
    TranslationCenter::Instance()->Register(Station);
    Reaction const reaction([] { SetLanguage("de_AT"); });
    SetLanguage("fr_FR");
    QCOMPARE(Level(), QStringLiteral("Pegl"));
}

void tst_TranslationCenter::WidgetsHearTheChange()
{
    int argc = 1;
    char name[] = "application";
    char * argv[] = { name, nullptr };
    TranslationCenter::Instance()->Register(Station);
    QApplication const application(argc, argv);
    QCOMPARE(Level(), QStringLiteral("Pegel"));
    QLabel label;
    int heard = 0;

    class Counter : public QObject
    {
    public:
        explicit Counter(int & count) : m_count(count) {}

        bool eventFilter(QObject *, QEvent * event) override
        {
            m_count += event->type() == QEvent::LanguageChange ? 1 : 0;
            return false;
        }

    private:
        int & m_count;
    } counter(heard);

    label.installEventFilter(&counter);
    SetLanguage("fr_FR");
    QTRY_VERIFY(heard > 0);
    QCOMPARE(Level(), QStringLiteral("Niveau"));
}

// no application object: each test builds its own
int main(int argc, char * argv[])
{
    TestStage::BeforeApplication();
    tst_TranslationCenter test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_translationcenter.moc"
