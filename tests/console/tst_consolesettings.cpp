// SPDX-License-Identifier: MIT
#include "colorset.h"
#include "consolesettings.h"
#include "consolewindow.h"
#include "icfg.h"
#include "lineplayer.h"
#include "panestack.h"
#include "panetools.h"
#include "testmain.h"

#include <map>

class tst_ConsoleSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void init();
    void cleanup();
    void settingsComeBack();
    void emptyStoreLeavesTheStartValues();
    void brokenTextIsNotTaken_data();
    void brokenTextIsNotTaken();
    void levelsFarFromTheStartComeBack();
};

namespace {

//! The store in force while it lives, whose texts the test sees and sets. The one before comes back after it: static
//! objects write while the process ends, and not into a file.
class Store : public ICfg
{
public:
    Store() { Persistant::SetStore(this); }

    ~Store() override { Persistant::SetStore(m_pBefore); }

    QString ReadString(QString const & key, QString const & fallback) override
    {
        auto const found = texts.find(key);
        return found != texts.end() ? found->second : fallback;
    }

    void WriteString(QString const & key, QString const & text) override { texts[key] = text; }

    std::map<QString, QString> texts;

private:
    ICfg * m_pBefore = Persistant::Store();
};

std::unique_ptr<Store> g_store;

std::unique_ptr<ConsoleWindow> Window()
{
    auto window = std::make_unique<ConsoleWindow>(
        std::make_unique<LinePlayer>(std::make_unique<PaneTools::ToneSource>()), QStringLiteral("tone"));
    window->resize(900, 700);
    return window;
}

} // namespace

void tst_ConsoleSettings::init()
{
    g_store = std::make_unique<Store>();
    ColorSet::Instance().Load(0);
}

void tst_ConsoleSettings::cleanup() { g_store.reset(); }

void tst_ConsoleSettings::settingsComeBack()
{
    {
        auto window = Window();
        ConsoleSettings settings(*window);
        window->Values().SetLevels(-95.0, -15.0);
        ConsoleValues::Set(ConsolePaths::LineRate, 40.0);
        ConsoleValues::Set(ConsolePaths::Averaging, 6.0);
        ConsoleValues::Select(ConsolePaths::Bins, 8192);
        ConsoleValues::Select(ConsolePaths::Window, 3);
        ConsoleValues::Select(ConsolePaths::Gradient, 2);
        ConsoleValues::SetFlag(ConsolePaths::AzimuthShown, true);
        ColorSet::Instance().Load(1);
        window->grab();
        window->Splitter().setSizes({ 300, 0, 100 });
        QVERIFY(settings.Write());
    }
    ColorSet::Instance().Load(0);
    auto window = Window();
    window->grab();
    ConsoleSettings settings(*window);
    QVERIFY(settings.Read());
    QCOMPARE(ConsoleValues::Get(ConsolePaths::LevelMin), -95.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::LevelMax), -15.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::LineRate), 40.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Averaging), 6.0);
    QCOMPARE(ConsoleValues::GetKey(ConsolePaths::Bins), 8192L);
    QCOMPARE(ConsoleValues::GetKey(ConsolePaths::Window), 3L);
    QCOMPARE(ConsoleValues::GetKey(ConsolePaths::Gradient), 2L);
    QVERIFY(!ConsoleValues::GetFlag(ConsolePaths::PersistenceShown));
    QVERIFY(ConsoleValues::GetFlag(ConsolePaths::AzimuthShown));
    QVERIFY(!ConsoleValues::GetFlag(ConsolePaths::ElevationShown));
    QCOMPARE(ColorSet::Instance().GetCurrentSet(), 1);
    QList<int> const sizes = window->Splitter().sizes();
    QVERIFY2(sizes[0] > 2 * sizes[2], qPrintable(QStringLiteral("%1 %2").arg(sizes[0]).arg(sizes[2])));
}

void tst_ConsoleSettings::emptyStoreLeavesTheStartValues()
{
    auto window = Window();
    ConsoleSettings settings(*window);
    QVERIFY(!settings.Read());
    QCOMPARE(ConsoleValues::Get(ConsolePaths::LevelMin), -120.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::LevelMax), 0.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::LineRate), 25.0);
    QCOMPARE(ConsoleValues::GetKey(ConsolePaths::Bins), 2048L);
    QCOMPARE(ColorSet::Instance().GetCurrentSet(), 0);
}

void tst_ConsoleSettings::brokenTextIsNotTaken_data()
{
    QTest::addColumn<QString>("levels");
    QTest::newRow("one level") << "-90";
    QTest::newRow("three levels") << "-90;-50;-10";
    QTest::newRow("no numbers") << "low;high";
    QTest::newRow("NaN") << "nan;0";
    QTest::newRow("turned round") << "0;-90";
    QTest::newRow("too near") << "-90;-89.5";
}

void tst_ConsoleSettings::brokenTextIsNotTaken()
{
    QFETCH(QString, levels);
    QString const group = QStringLiteral("orim-console/Console/");
    g_store->texts[group + QStringLiteral("levels")] = levels;
    g_store->texts[group + QStringLiteral("colorSet")] = QStringLiteral("17");
    g_store->texts[group + QStringLiteral("splitter")] = QStringLiteral("rubbish");
    auto window = Window();
    ConsoleSettings settings(*window);
    QVERIFY(!settings.Read());
    QCOMPARE(ConsoleValues::Get(ConsolePaths::LevelMin), -120.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::LevelMax), 0.0);
    QCOMPARE(ColorSet::Instance().GetCurrentSet(), 0);
}

void tst_ConsoleSettings::levelsFarFromTheStartComeBack()
{
    g_store->texts[QStringLiteral("orim-console/Console/levels")] = QStringLiteral("10;40");
    auto window = Window();
    ConsoleSettings settings(*window);
    QVERIFY(settings.Read());
    QCOMPARE(ConsoleValues::Get(ConsolePaths::LevelMin), 10.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::LevelMax), 40.0);
}

ORIM_TEST_MAIN(tst_ConsoleSettings)
#include "tst_consolesettings.moc"
