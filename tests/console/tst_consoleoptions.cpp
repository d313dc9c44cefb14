// SPDX-License-Identifier: MIT
#include "consoleoptions.h"
#include "testmain.h"

class tst_ConsoleOptions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsWithDefaults();
    void readsEveryOption();
    void endsByItself_data();
    void endsByItself();
    void readsValues_data();
    void readsValues();
    void refuses_data();
    void refuses();
    void helpNamesEveryOption();
    void versionIsAnAction();
    void shortNames();
};

namespace {

ConsoleOptions Parse(QString const & arguments)
{
    QStringList list{ QStringLiteral("orim-console") };
    if (!arguments.isEmpty())
        list << arguments.split(QLatin1Char(' '));
    return ConsoleOptions::Parse(list);
}

using Action = ConsoleOptions::Action;
using Colors = ConsoleOptions::Colors;

} // namespace

void tst_ConsoleOptions::startsWithDefaults()
{
    ConsoleOptions const options = Parse(QString());
    QVERIFY(options.action == Action::eRun);
    QVERIFY(options.message.isEmpty());
    QVERIFY(options.file.isEmpty());
    QCOMPARE(options.seed, quint64(1));
    QCOMPARE(options.speed, 1.0);
    QVERIFY(!options.verbose);
    QVERIFY(!options.markers);
    QVERIFY(!options.windows);
    QVERIFY(options.panes.isEmpty());
    QVERIFY(options.screenshot.isEmpty());
    QCOMPARE(options.after, 2.0);
    QCOMPARE(options.runSeconds, 0.0);
    QVERIFY(!options.size && !options.bins && !options.rate && !options.colors && !options.levelMin &&
            !options.levelMax);
}

void tst_ConsoleOptions::readsEveryOption()
{
    ConsoleOptions const options =
        Parse(QStringLiteral("a.sigmf-meta --speed 2.5 --bins 4096 --rate 50 --range -130:10 --colors contrast "
                             "--size 640x480 --screenshot out.png --after 0.5 --seed 77 --verbose --markers --windows "
                             "--panes elevation,azimuth"));
    QCOMPARE(options.message, QString());
    QVERIFY(options.action == Action::eRun);
    QCOMPARE(options.file, QStringLiteral("a.sigmf-meta"));
    QCOMPARE(options.speed, 2.5);
    QCOMPARE(options.bins.value_or(0), 4096);
    QCOMPARE(options.rate.value_or(0.0), 50.0);
    QCOMPARE(options.levelMin.value_or(0.0), -130.0);
    QCOMPARE(options.levelMax.value_or(0.0), 10.0);
    QVERIFY(options.colors == Colors::eContrast);
    QCOMPARE(options.size.value_or(QSize()), QSize(640, 480));
    QCOMPARE(options.screenshot, QStringLiteral("out.png"));
    QCOMPARE(options.after, 0.5);
    QCOMPARE(options.runSeconds, 0.0);
    QCOMPARE(options.seed, quint64(77));
    QVERIFY(options.verbose);
    QVERIFY(options.markers);
    QVERIFY(options.windows);
    QCOMPARE(options.panes, QStringList({ QStringLiteral("elevation"), QStringLiteral("azimuth") }));
    QCOMPARE(Parse(QStringLiteral("--seconds 60")).runSeconds, 60.0);
}

void tst_ConsoleOptions::endsByItself_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<bool>("ends");
    QTest::newRow("with a picture") << "--screenshot out.png" << true;
    QTest::newRow("after seconds") << "--seconds 0.001" << true;
    QTest::newRow("with neither") << "--size 640x480 --verbose" << false;
}

void tst_ConsoleOptions::endsByItself()
{
    QFETCH(QString, arguments);
    QTEST(Parse(arguments).EndsByItself(), "ends");
}

void tst_ConsoleOptions::readsValues_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::newRow("simulate") << "--simulate";
    QTest::newRow("least speed") << "--speed 0.01";
    QTest::newRow("greatest speed") << "--speed 100";
    QTest::newRow("fewest bins") << "--bins 64";
    QTest::newRow("most bins") << "--bins 65536";
    QTest::newRow("least rate") << "--rate 1";
    QTest::newRow("greatest rate") << "--rate 200";
    QTest::newRow("narrowest range") << "--range -50:-49";
    QTest::newRow("widest range") << "--range -160:60";
    QTest::newRow("day") << "--colors day";
    QTest::newRow("night") << "--colors night";
    QTest::newRow("smallest size") << "--size 1x1";
    QTest::newRow("widest size") << "--size 16384x2025";
    QTest::newRow("greatest size") << "--size 7680x4320";
    QTest::newRow("at once") << "--after 0 --screenshot out.png";
    QTest::newRow("least seconds") << "--seconds 0.001";
    QTest::newRow("greatest seed") << "--seed 18446744073709551615";
}

void tst_ConsoleOptions::readsValues()
{
    QFETCH(QString, arguments);
    ConsoleOptions const options = Parse(arguments);
    QCOMPARE(options.message, QString());
    QVERIFY(options.action == Action::eRun);
}

void tst_ConsoleOptions::refuses_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("part"); // of the message
    QTest::newRow("unknown option") << "--loud"
                                    << "loud";
    QTest::newRow("value missing") << "--speed"
                                   << "speed";
    QTest::newRow("speed is no number") << "--speed fast"
                                        << "--speed fast: a number from 0.01 to 100";
    QTest::newRow("speed 0") << "--speed 0"
                             << "--speed 0";
    QTest::newRow("speed below 0") << "--speed -1"
                                   << "--speed -1";
    QTest::newRow("speed too high") << "--speed 101"
                                    << "--speed 101";
    QTest::newRow("speed nan") << "--speed nan"
                               << "--speed nan";
    QTest::newRow("speed inf") << "--speed inf"
                               << "--speed inf";
    QTest::newRow("speed with a comma") << "--speed 1,5"
                                        << "--speed 1,5";
    QTest::newRow("bins no power of two") << "--bins 1000"
                                          << "--bins 1000: a power of two from 64 to 65536";
    QTest::newRow("bins too few") << "--bins 32"
                                  << "--bins 32";
    QTest::newRow("bins too many") << "--bins 131072"
                                   << "--bins 131072";
    QTest::newRow("bins 0") << "--bins 0"
                            << "--bins 0";
    QTest::newRow("bins below 0") << "--bins -64"
                                  << "--bins -64";
    QTest::newRow("bins beyond an int") << "--bins 4294967296"
                                        << "--bins 4294967296";
    QTest::newRow("rate 0") << "--rate 0"
                            << "--rate 0: a number from 1 to 200";
    QTest::newRow("rate too high") << "--rate 201"
                                   << "--rate 201";
    QTest::newRow("range of one level") << "--range -100"
                                        << "--range -100: two levels";
    QTest::newRow("range of three levels") << "--range -100:-50:0"
                                           << "--range -100:-50:0";
    QTest::newRow("range turned round") << "--range 0:-100"
                                        << "--range 0:-100";
    QTest::newRow("range without width") << "--range -50:-50"
                                         << "--range -50:-50";
    QTest::newRow("range too low") << "--range -161:0"
                                   << "--range -161:0";
    QTest::newRow("range nan") << "--range nan:0"
                               << "--range nan:0";
    QTest::newRow("unknown colours") << "--colors pink"
                                     << "--colors pink: day, night or contrast";
    QTest::newRow("colours in capitals") << "--colors DAY"
                                         << "--colors DAY";
    QTest::newRow("unknown pane") << "--panes azimuth,spectrum"
                                  << "--panes azimuth,spectrum: some of persistence, azimuth and elevation";
    QTest::newRow("pane without a name") << "--panes azimuth,"
                                         << "--panes azimuth,:";
    QTest::newRow("size without height") << "--size 640"
                                         << "--size 640: a width and a height";
    QTest::newRow("size 0") << "--size 0x480"
                            << "--size 0x480";
    QTest::newRow("size too large") << "--size 16385x480"
                                    << "--size 16385x480";
    QTest::newRow("size of too many pixels")
        << "--size 7681x4320"
        << "--size 7681x4320: a width and a height up to 16384, together up to 33177600 pixels, are wanted";
    QTest::newRow("size below 0") << "--size -640x480"
                                  << "--size -640x480";
    QTest::newRow("size with a tail") << "--size 640x480x2"
                                      << "--size 640x480x2";
    QTest::newRow("after below 0") << "--screenshot out.png --after -1"
                                   << "--after -1: a number from 0 to 86400";
    QTest::newRow("after more than a day") << "--screenshot out.png --after 86401"
                                           << "--after 86401";
    QTest::newRow("after without a picture") << "--after 2"
                                             << "--after: needs --screenshot";
    QTest::newRow("seconds with a picture") << "--seconds 2 --screenshot out.png"
                                            << "--seconds: excludes --screenshot";
    QTest::newRow("seconds 0") << "--seconds 0"
                               << "--seconds 0: a number from 0.001 to 86400 is wanted";
    QTest::newRow("seconds is no number") << "--seconds soon"
                                          << "--seconds soon";
    QTest::newRow("seed below 0") << "--seed -1"
                                  << "--seed -1: a whole number";
    QTest::newRow("seed is no number") << "--seed x"
                                       << "--seed x";
    QTest::newRow("two recordings") << "a.sigmf-meta b.sigmf-meta"
                                    << "b.sigmf-meta: only one recording";
    QTest::newRow("recording and simulator") << "a.sigmf-meta --simulate"
                                             << "a.sigmf-meta: a recording and --simulate";
}

void tst_ConsoleOptions::refuses()
{
    QFETCH(QString, arguments);
    QFETCH(QString, part);
    ConsoleOptions const options = Parse(arguments);
    QVERIFY(options.action == Action::eRefuse);
    QVERIFY2(options.message.contains(part), qPrintable(options.message));
}

void tst_ConsoleOptions::helpNamesEveryOption()
{
    ConsoleOptions const options = Parse(QStringLiteral("--help"));
    QVERIFY(options.action == Action::eHelp);
    for (char const * const name : { "FILE.sigmf-meta", "--simulate", "--seed", "--speed", "--bins", "--rate",
                                     "--range", "--colors", "--size", "--screenshot", "--after", "--seconds",
                                     "--verbose", "--markers", "--windows", "--panes", "--help", "--version" })
        QVERIFY2(options.help.contains(QLatin1String(name)), name);
}

void tst_ConsoleOptions::versionIsAnAction() { QVERIFY(Parse(QStringLiteral("--version")).action == Action::eVersion); }

void tst_ConsoleOptions::shortNames()
{
    QVERIFY(Parse(QStringLiteral("-v")).action == Action::eVersion);
    QVERIFY(Parse(QStringLiteral("-h")).action == Action::eHelp);
    QString const help = Parse(QStringLiteral("-h")).help;
    QVERIFY2(help.contains(QLatin1String("--help, -h ")) && help.contains(QLatin1String("--version, -v ")),
             qPrintable(help));
}

ORIM_CORE_TEST_MAIN(tst_ConsoleOptions)
#include "tst_consoleoptions.moc"
