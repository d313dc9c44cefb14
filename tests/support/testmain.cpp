// SPDX-License-Identifier: MIT
#include "testmain.h"

#include "memorycfg.h"
#include "persistant.h"

#include <QDir>
#include <QFont>
#include <QFontDatabase>
#include <QLocale>

#include <clocale>
#include <cstdio>
#include <ctime>

namespace {

//! The folder that holds bin/ of the build tree this program was built in.
QString BuildRoot() { return QDir(QStringLiteral(ORIM_TEST_BUILD_ROOT)).canonicalPath(); }

bool ConfigurationIsOurs()
{
    QString const config = QDir(qEnvironmentVariable("XDG_CONFIG_HOME")).canonicalPath();
    return !config.isEmpty() && config.startsWith(BuildRoot() + QLatin1Char('/'));
}

//! A program started by hand, outside CTest, gets a home of its own in the build tree.
void ProvideHome()
{
    if (ConfigurationIsOurs())
        return;
    QString const home = BuildRoot() + QLatin1String("/homes/by-hand");
    for (auto const & [variable, folder] : { std::pair{ "HOME", "" },
                                             { "XDG_CONFIG_HOME", "/config" },
                                             { "XDG_DATA_HOME", "/data" },
                                             { "XDG_CACHE_HOME", "/cache" } }) {
        QString const path = home + QLatin1String(folder);
        QDir().mkpath(path);
        qputenv(variable, path.toLocal8Bit());
    }
}

} // namespace

void TestStage::BeforeApplication()
{
    ProvideHome();
    if (!ConfigurationIsOurs()) {
        std::fprintf(stderr, "The configuration root lies outside the build tree: refusing to run.\n");
        std::exit(2);
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_NO_GLIB", "1");
    qputenv("TZ", "UTC");
    tzset();
    std::setlocale(LC_ALL, "C");
    QLocale::setDefault(QLocale::c());
}

void TestStage::AfterApplication()
{
    std::setlocale(LC_ALL, "C");
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
    static auto * const store = new MemoryCfg; // never destroyed: static objects write while the process ends
    Persistant::SetStore(store);
}

void TestStage::HushPopups()
{
    static QtMessageHandler next = nullptr;
    next = qInstallMessageHandler([](QtMsgType type, QMessageLogContext const & context, QString const & text) {
        if (!text.startsWith(QLatin1String("This plugin does not support ")))
            next(type, context, text);
    });
}

bool TestStage::Sanitized()
{
#if defined(ORIM_TEST_SANITIZED)
    return true;
#else
    return false;
#endif
}

long long TestStage::Turns(long long shortForm, long long longForm)
{
    return qEnvironmentVariableIsSet("ORIM_LONG") ? longForm : shortForm;
}

unsigned long long TestStage::Seed()
{
    bool ok = false;
    unsigned long long const seed = qEnvironmentVariable("ORIM_SEED").toULongLong(&ok);
    return ok ? seed : 20260101ULL;
}

QString TestStage::Recordings()
{
    QString const folder = QStringLiteral(ORIM_RECORDINGS_DIR);
    return QDir(folder).exists() ? QDir(folder).canonicalPath() : QString();
}
