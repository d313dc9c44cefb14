// SPDX-License-Identifier: MIT
#include "bearingtexts.h"

#include "testmain.h"

#include <limits>

class tst_BearingTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void bearing_data();
    void bearing();
    void elevation_data();
    void elevation();
    void quality_data();
    void quality();
};

namespace {

constexpr double NoNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double Endless = std::numeric_limits<double>::infinity();

QString Degrees(char const * number) { return QLatin1String(number) + QChar(0xb0); }

} // namespace

void tst_BearingTexts::bearing_data()
{
    QTest::addColumn<double>("bearing");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("text");
    QTest::newRow("north") << 0.0 << 1 << Degrees("000.0");
    QTest::newRow("three digits") << 41.26 << 1 << Degrees("041.3");
    QTest::newRow("one digit") << 7.0 << 0 << Degrees("007");
    QTest::newRow("three already") << 310.04 << 1 << Degrees("310.0");
    QTest::newRow("rounds to north") << 359.96 << 1 << Degrees("000.0");
    QTest::newRow("rounds below north") << 359.94 << 1 << Degrees("359.9");
    QTest::newRow("whole rounds to north") << 359.5 << 0 << Degrees("000");
    QTest::newRow("a turn") << 360.0 << 1 << Degrees("000.0");
    QTest::newRow("turns back") << -10.0 << 1 << Degrees("350.0");
    QTest::newRow("a little back") << -0.01 << 1 << Degrees("000.0");
    QTest::newRow("many turns") << 36090.0 << 1 << Degrees("090.0");
    QTest::newRow("three decimals at most") << 1.23456 << 9 << Degrees("001.235");
    QTest::newRow("no decimals at least") << 1.23456 << -1 << Degrees("001");
    QTest::newRow("no number") << NoNumber << 1 << QStringLiteral("--");
    QTest::newRow("endless") << Endless << 1 << QStringLiteral("--");
}

void tst_BearingTexts::bearing()
{
    QFETCH(double, bearing);
    QFETCH(int, decimals);
    QFETCH(QString, text);
    QCOMPARE(BearingTexts::Bearing(bearing, decimals), text);
}

void tst_BearingTexts::elevation_data()
{
    QTest::addColumn<double>("elevation");
    QTest::addColumn<QString>("text");
    QTest::newRow("horizon") << 0.0 << Degrees("0.0");
    QTest::newRow("rounds to the horizon") << -0.04 << Degrees("0.0");
    QTest::newRow("above") << 2.04 << Degrees("+2.0");
    QTest::newRow("below") << -4.46 << Degrees("-4.5");
    QTest::newRow("zenith") << 90.0 << Degrees("+90.0");
    QTest::newRow("no number") << NoNumber << QStringLiteral("--");
    QTest::newRow("endless") << -Endless << QStringLiteral("--");
}

void tst_BearingTexts::elevation()
{
    QFETCH(double, elevation);
    QFETCH(QString, text);
    QCOMPARE(BearingTexts::Elevation(elevation), text);
}

void tst_BearingTexts::quality_data()
{
    QTest::addColumn<double>("quality");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << 0.0 << QStringLiteral("0 %");
    QTest::newRow("rounds") << 94.6 << QStringLiteral("95 %");
    QTest::newRow("best") << 100.0 << QStringLiteral("100 %");
    QTest::newRow("no number") << NoNumber << QStringLiteral("--");
}

void tst_BearingTexts::quality()
{
    QFETCH(double, quality);
    QFETCH(QString, text);
    QCOMPARE(BearingTexts::Quality(quality), text);
}

ORIM_CORE_TEST_MAIN(tst_BearingTexts)
#include "tst_bearingtexts.moc"
