// SPDX-License-Identifier: MIT
#include "bearingbands.h"

#include "testmain.h"

#include <limits>

using BearingBands::Strip;

Q_DECLARE_METATYPE(BearingBands::Strip)

class tst_bearingbands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bandsInTheOrderOfPainting();
    void pixels_data();
    void pixels();
};

void tst_bearingbands::bandsInTheOrderOfPainting()
{
    QCOMPARE(static_cast<int>(BearingBands::Bands.size()), 4);
    double const ends[][2] = { { -355.0, -185.0 }, { 5.0, 175.0 }, { 185.0, 355.0 }, { -175.0, -5.0 } };
    int const colors[] = { 87, 87, 88, 88 };
    for (std::size_t i = 0; i < 4; ++i) {
        QCOMPARE(BearingBands::Bands[i].from, ends[i][0]);
        QCOMPARE(BearingBands::Bands[i].to, ends[i][1]);
        QCOMPARE(BearingBands::Bands[i].color, colors[i]);
    }
    QCOMPARE(BearingBands::GroundColor, 89);
}

void tst_bearingbands::pixels_data()
{
    QTest::addColumn<BearingBands::Strip>("strip");
    QTest::addColumn<double>("from");
    QTest::addColumn<double>("to");
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("length");
    Strip const across{ 0.0, 360.0, 0, 720, false };
    QTest::newRow("across: inside") << across << 5.0 << 175.0 << 10 << 340;
    QTest::newRow("across: places are cut") << across << 185.0 << 355.0 << 369 << 341;
    QTest::newRow("below the range") << across << -355.0 << -185.0 << 0 << 0;
    QTest::newRow("above the range") << across << 365.0 << 400.0 << 0 << 0;
    Strip const moved{ -180.0, 180.0, 10, 720, false };
    QTest::newRow("the origin counts") << moved << -175.0 << -5.0 << 20 << 340;
    QTest::newRow("up: turned round") << Strip{ -180.0, 180.0, 10, 720, true } << -175.0 << -5.0 << 379 << 341;
    QTest::newRow("across: from the start of the range")
        << Strip{ 20.0, 200.0, 0, 360, false } << 5.0 << 175.0 << 0 << 310;
    QTest::newRow("up: from the start of the range") << Strip{ 20.0, 200.0, 0, 360, true } << 5.0 << 175.0 << 49 << 310;
    QTest::newRow("across: to the stop, a pixel short of the end")
        << Strip{ 10.0, 100.0, 0, 90, false } << 5.0 << 175.0 << 0 << 89;
    QTest::newRow("up: from start to stop") << Strip{ 10.0, 100.0, 3, 90, true } << 5.0 << 175.0 << 3 << 89;
    QTest::newRow("across: from the start, inside") << Strip{ 100.0, 200.0, 0, 100, false } << 5.0 << 175.0 << 0 << 75;
    QTest::newRow("up: from the start, inside") << Strip{ 100.0, 200.0, 0, 100, true } << 5.0 << 175.0 << 25 << 74;
    QTest::newRow("up: limits in falling order") << Strip{ 50.0, 100.0, 0, 50, true } << 175.0 << 5.0 << 0 << 49;
    QTest::newRow("across: limits in falling order") << Strip{ 50.0, 100.0, 0, 50, false } << 175.0 << 5.0 << 0 << 49;
    QTest::newRow("a range that runs downward") << Strip{ 360.0, 0.0, 0, 720, false } << 5.0 << 175.0 << 0 << 0;
    QTest::newRow("an empty range") << Strip{ 90.0, 90.0, 0, 720, false } << 5.0 << 175.0 << 0 << 0;
    QTest::newRow("a negative length") << Strip{ 0.0, 360.0, 0, -100, false } << 5.0 << 175.0 << -48 << 47;
    double const infinity = std::numeric_limits<double>::infinity();
    double const nothing = std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("an infinite range") << Strip{ -infinity, infinity, 0, 720, false } << 5.0 << 175.0 << 0 << 0;
    QTest::newRow("a range from NaN") << Strip{ nothing, 360.0, 0, 720, false } << 5.0 << 175.0 << 0 << 0;
    QTest::newRow("a range to NaN") << Strip{ 0.0, nothing, 0, 720, true } << 5.0 << 175.0 << 0 << 0;
}

void tst_bearingbands::pixels()
{
    QFETCH(BearingBands::Strip, strip);
    QFETCH(double, from);
    QFETCH(double, to);
    BearingBands::Pixels const found = BearingBands::PixelsOf(strip, from, to);
    QTEST(found.length, "length");
    if (found.length != 0)
        QTEST(found.position, "position");
}

ORIM_CORE_TEST_MAIN(tst_bearingbands)
#include "tst_bearingbands.moc"
