// SPDX-License-Identifier: MIT
#include "consolerun.h"

#include "colorset.h"
#include "consolevalues.h"
#include "consolewindow.h"
#include "lineplayer.h"
#include "opensource.h"
#include "panetools.h"
#include "simulator.h"
#include "spectrumpane.h"
#include "testmain.h"
#include "waterfallpane.h"

#include <vector>

class tst_ConsoleRun : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void optionsReachEverything();
    void withoutOptions();
    void markersAreShown();
    void windowsAreShown();
    void panesAreShown();
    void windowTooSmall_data();
    void windowTooSmall();
    void seedReachesTheSimulator();
    void recordingThatIsMissing();
};

namespace {

using Samples = std::vector<std::complex<float>>;

ConsoleOptions Parse(QString const & arguments)
{
    return ConsoleOptions::Parse((QStringLiteral("orim-console ") + arguments).split(QLatin1Char(' ')));
}

std::unique_ptr<ConsoleWindow> Window()
{
    return std::make_unique<ConsoleWindow>(std::make_unique<LinePlayer>(std::make_unique<PaneTools::ToneSource>()),
                                           QStringLiteral("tone"));
}

Samples FirstSamples(ISampleSource & source)
{
    Samples samples(100);
    qint64 const read = source.Read(samples.data(), 100);
    samples.resize(static_cast<std::size_t>(read));
    return samples;
}

} // namespace

void tst_ConsoleRun::optionsReachEverything()
{
    ColorSet::Instance().Load(0);
    auto const window = Window();
    ConsoleOptions const options = Parse(
        QStringLiteral("--speed 2.5 --rate 40 --bins 512 --range -90:-10 --colors night --size 900x700 --seconds 60"));
    QCOMPARE(options.message, QString());
    ConsoleRun run(*window, options);
    QVERIFY(run.Start());
    QCOMPARE(window->Player().Speed(), 2.5);
    QCOMPARE(window->Player().LineRate(), 40.0);
    QCOMPARE(window->Player().Bins(), 512);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Speed), 2.5);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::LineRate), 40.0);
    QCOMPARE(ConsoleValues::GetKey(ConsolePaths::Bins), 512L);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::LevelMin), -90.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::LevelMax), -10.0);
    QCOMPARE(window->Spectrum().GetLevelMin(), -90.0);
    QCOMPARE(window->Waterfall().GetLevelMax(), -10.0);
    QCOMPARE(ColorSet::Instance().GetCurrentSet(), 1);
    QCOMPARE(window->size(), QSize(900, 700));
    QVERIFY(window->isVisible());
    QTRY_VERIFY(window->Figures().taken > 0);
    // levels that were asked for are not fitted to the signal
    QCOMPARE(ConsoleValues::Get(ConsolePaths::LevelMax), -10.0);
    QCOMPARE(run.Finish(5), 5);
    ColorSet::Instance().Load(0);
}

void tst_ConsoleRun::withoutOptions()
{
    auto const window = Window();
    QSize const size = window->size();
    ConsoleRun run(*window, Parse(QStringLiteral("--seconds 60")));
    QVERIFY(run.Start());
    QCOMPARE(window->size(), size);
    QCOMPARE(window->Player().Speed(), 1.0);
    QCOMPARE(window->Player().LineRate(), 25.0);
    QCOMPARE(window->Player().Bins(), 2048);
    // the levels are fitted to the first line
    QTRY_VERIFY(ConsoleValues::Get(ConsolePaths::LevelMin) != -120.0);
}

void tst_ConsoleRun::markersAreShown()
{
    for (bool const wanted : { true, false }) {
        auto const window = Window();
        ConsoleRun run(*window, Parse(wanted ? QStringLiteral("--markers --seconds 60")
                                             : QStringLiteral("--verbose --seconds 60")));
        QVERIFY(run.Start());
        for (char const * const path :
             { ConsolePaths::Marker1Shown, ConsolePaths::Marker2Shown, ConsolePaths::LevelMarkerShown,
               ConsolePaths::Time1Shown, ConsolePaths::Time2Shown })
            QCOMPARE(ConsoleValues::GetFlag(path), wanted);
    }
}

void tst_ConsoleRun::windowsAreShown()
{
    for (bool const wanted : { true, false }) {
        auto const window = Window();
        ConsoleRun run(*window, Parse(wanted ? QStringLiteral("--windows --seconds 60")
                                             : QStringLiteral("--markers --seconds 60")));
        QVERIFY(run.Start());
        QTRY_VERIFY(window->Figures().taken > 1);
        for (int index = 0; index < WindowValues::Count; ++index)
            QCOMPARE(WindowValues::IsVisible(index), wanted);
    }
}

void tst_ConsoleRun::panesAreShown()
{
    auto const window = Window();
    ConsoleRun run(*window, Parse(QStringLiteral("--panes azimuth --seconds 60")));
    QVERIFY(run.Start());
    QVERIFY(ConsoleValues::GetFlag(ConsolePaths::AzimuthShown));
    QVERIFY(!ConsoleValues::GetFlag(ConsolePaths::ElevationShown));
    QVERIFY(!ConsoleValues::GetFlag(ConsolePaths::PersistenceShown));
    // it does not matter that none was shown in the last session
    ConsoleValues::SetFlag(ConsolePaths::AzimuthShown, false);
    ConsoleValues::SetFlag(ConsolePaths::ElevationShown, false);
    ConsoleRun asked(*window, Parse(QStringLiteral("--panes elevation")));
    QCOMPARE(asked.Finish(0), 0);
    QVERIFY(asked.Start());
    QVERIFY(ConsoleValues::GetFlag(ConsolePaths::ElevationShown));
    QVERIFY(!ConsoleValues::GetFlag(ConsolePaths::AzimuthShown));
}

void tst_ConsoleRun::windowTooSmall_data()
{
    QTest::addColumn<QSize>("less");
    QTest::addColumn<bool>("starts");
    QTest::newRow("the least size") << QSize(0, 0) << true;
    QTest::newRow("a pixel too narrow") << QSize(1, 0) << false;
    QTest::newRow("a pixel too low") << QSize(0, 1) << false;
}

void tst_ConsoleRun::windowTooSmall()
{
    QFETCH(QSize, less);
    QFETCH(bool, starts);
    auto const window = Window();
    ConsoleOptions options = Parse(QStringLiteral("--seconds 60"));
    QSize const size = window->minimumSizeHint() - less;
    options.size = size;
    ConsoleRun run(*window, options);
    QCOMPARE(run.Start(), starts);
    QCOMPARE(window->isVisible(), starts);
    QCOMPARE(window->size() == size, starts);
}

void tst_ConsoleRun::seedReachesTheSimulator()
{
    QString message;
    auto const source = OpenSource(Parse(QStringLiteral("--seed 77")), message);
    QVERIFY2(source, qPrintable(message));
    Simulator simulator(77);
    Samples const samples = FirstSamples(*source);
    QCOMPARE(samples.size(), std::size_t{ 100 });
    QVERIFY(samples == FirstSamples(simulator));
}

void tst_ConsoleRun::recordingThatIsMissing()
{
    QString message;
    QVERIFY(!OpenSource(Parse(QStringLiteral("/nowhere/a.sigmf-meta")), message));
    QVERIFY2(message.startsWith(QStringLiteral("/nowhere/a.sigmf-meta: cannot be opened")), qPrintable(message));
}

ORIM_TEST_MAIN(tst_ConsoleRun)
#include "tst_consolerun.moc"
