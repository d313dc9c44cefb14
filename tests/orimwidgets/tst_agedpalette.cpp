// SPDX-License-Identifier: MIT
#include "agedpalette.h"

#include "testmain.h"

#include <climits>
#include <cstddef>

using namespace AgedPalette;

namespace {

constexpr QRgb Fresh = 0xff000000U;

//! A colour that names what it was asked for.
QRgb AgeColor(double value, double max)
{
    return Fresh | static_cast<unsigned int>(value) << 8 | static_cast<unsigned int>(max);
}

QRgb QualityColor(double value, double max)
{
    return 0xff640000U | static_cast<unsigned int>(value) << 8 | static_cast<unsigned int>(max);
}

} // namespace

class tst_AgedPalette : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void scale_data();
    void scale();
    void switchTime_data();
    void switchTime();
    void fit_data();
    void fit();
    void fade_data();
    void fade();
    void paintsAges();
    void paintsQualities();
    void paintsNothingWithoutColours();
    void turns();
    void withoutColoursNothingTurns();
    void equalSteps_data();
    void equalSteps();
    void pixelIndex_data();
    void pixelIndex();
};

void tst_AgedPalette::scale_data()
{
    QTest::addColumn<int>("steps");
    QTest::addColumn<int>("sections");
    QTest::addColumn<int>("qualities");
    QTest::addColumn<int>("seconds");
    QTest::addColumn<int>("distance");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("colors");
    QTest::newRow("0 s is a single tic") << 0 << 4 << 1 << 0 << 1 << 1 << 2;
    QTest::newRow("negative counts as 0") << -1 << 4 << 1 << 0 << 1 << 1 << 2;
    QTest::newRow("lowest int counts as 0") << INT_MIN << 4 << 1 << 0 << 1 << 1 << 2;
    QTest::newRow("4 s") << 4 << 4 << 1 << 4 << 1 << 5 << 2;
    QTest::newRow("19 s has a tic a second") << 19 << 4 << 1 << 19 << 1 << 20 << 2;
    QTest::newRow("20 s has one in two") << 20 << 4 << 1 << 20 << 2 << 11 << 2;
    QTest::newRow("25 s") << 25 << 4 << 1 << 25 << 2 << 13 << 2;
    QTest::newRow("29 s") << 29 << 4 << 1 << 29 << 2 << 15 << 2;
    QTest::newRow("30 s has one in five") << 30 << 4 << 1 << 30 << 5 << 7 << 5;
    QTest::newRow("34 s") << 34 << 4 << 1 << 34 << 5 << 7 << 5;
    QTest::newRow("highest int") << INT_MAX << 4 << 1 << INT_MAX << 5 << INT_MAX / 5 + 1 << 5;
    QTest::newRow("254 colours are left alone") << 4 << 127 << 1 << 4 << 1 << 5 << 2;
    QTest::newRow("255 are not") << 30 << 51 << 1 << 30 << 5 << 7 << 4;
    QTest::newRow("254 of all blocks") << 4 << 1 << 127 << 4 << 1 << 5 << 2;
    QTest::newRow("256 of all blocks") << 4 << 2 << 64 << 4 << 1 << 5 << 1;
    QTest::newRow("down by more than one") << 30 << 100 << 1 << 30 << 5 << 7 << 2;
    QTest::newRow("one is kept") << 30 << 1000 << 8 << 30 << 5 << 7 << 1;
    QTest::newRow("one is kept at any numbers") << 30 << INT_MAX << INT_MAX << 30 << 5 << 7 << 1;
    QTest::newRow("numbers below zero are no colours") << 30 << INT_MIN << INT_MAX << 30 << 5 << 7 << 5;
}

void tst_AgedPalette::scale()
{
    QFETCH(int, steps);
    QFETCH(int, sections);
    QFETCH(int, qualities);
    Scale const scale = ScaleOf(steps, sections, qualities);
    QTEST(scale.seconds, "seconds");
    QTEST(scale.ticDistance, "distance");
    QTEST(scale.ticCount, "count");
    QTEST(scale.colorsPerSection, "colors");
}

void tst_AgedPalette::switchTime_data()
{
    QTest::addColumn<int>("seconds");
    QTest::addColumn<int>("colors");
    QTest::addColumn<int>("sections");
    QTest::addColumn<int>("time");
    QTest::newRow("4 s") << 4 << 2 << 4 << 500;
    QTest::newRow("19 s") << 19 << 2 << 19 << 500;
    QTest::newRow("25 s is cut") << 25 << 2 << 12 << 1041;
    QTest::newRow("30 s") << 30 << 5 << 6 << 1000;
    QTest::newRow("0 s") << 0 << 1 << 1 << 0;
    QTest::newRow("less than 1 ms") << 1 << 50 << 50 << 0;
    QTest::newRow("cut towards zero") << -25 << 2 << 12 << -1041;
    QTest::newRow("no colours") << 4 << 0 << 4 << 0;
    QTest::newRow("no sections") << 4 << 2 << 0 << 0;
    QTest::newRow("neither, for 0 s") << 0 << 0 << 0 << 0;
    QTest::newRow("highest int it holds") << 2147483 << 1 << 1 << 2147483000;
    QTest::newRow("no int holds it") << 2147484 << 1 << 1 << INT_MIN;
    QTest::newRow("a product that no int holds") << INT_MAX << 65536 << 65536 << 499;
}

void tst_AgedPalette::switchTime()
{
    QFETCH(int, seconds);
    QFETCH(int, colors);
    QFETCH(int, sections);
    QTEST(SwitchTime(seconds, colors, sections), "time");
}

void tst_AgedPalette::fit_data()
{
    QTest::addColumn<int>("sections");
    QTest::addColumn<int>("colors");
    QTest::addColumn<int>("qualities");
    QTest::addColumn<int>("time");
    QTest::addColumn<bool>("fits");
    QTest::addColumn<int>("fittedColors");
    QTest::addColumn<int>("fittedTime");
    QTest::addColumn<int>("count");
    QTest::newRow("as at the start") << 4 << 2 << 1 << 500 << true << 2 << 500 << 8;
    QTest::newRow("254 fit") << 127 << 2 << 1 << 100 << true << 2 << 100 << 254;
    QTest::newRow("254 of all blocks fit") << 1 << 1 << 254 << 100 << true << 1 << 100 << 1;
    QTest::newRow("255 are halved") << 51 << 5 << 1 << 1000 << true << 2 << 2000 << 102;
    QTest::newRow("256 of all blocks are halved") << 4 << 2 << 32 << 500 << true << 1 << 1000 << 4;
    QTest::newRow("one colour a section is halved to none") << 255 << 1 << 1 << 5000 << true << 0 << 10000 << 0;
    QTest::newRow("more than 254 when halved") << 128 << 5 << 1 << 1000 << false << 5 << 1000 << 0;
    QTest::newRow("blocks without end") << 4 << 4 << INT_MAX << 500 << false << 4 << 500 << 0;
    QTest::newRow("any highest numbers") << INT_MAX << INT_MAX << INT_MAX << 500 << false << INT_MAX << 500 << 0;
    QTest::newRow("twice a time that no int holds") << 51 << 5 << 1 << INT_MAX << true << 2 << INT_MAX << 102;
    QTest::newRow("twice the lowest time") << 51 << 5 << 1 << INT_MIN << true << 2 << INT_MIN << 102;
    QTest::newRow("no quality is one block") << 4 << 2 << 0 << 500 << true << 2 << 500 << 8;
    QTest::newRow("no quality is not room for more") << 200 << 4 << 0 << 500 << false << 4 << 500 << 0;
    QTest::newRow("negative quality is one block") << 4 << 2 << INT_MIN << 500 << true << 2 << 500 << 8;
    QTest::newRow("no sections") << 0 << 2 << 1 << 500 << true << 2 << 500 << 0;
    QTest::newRow("negative sections") << -4 << 2 << 1 << 500 << true << 2 << 500 << 0;
    QTest::newRow("negative colours") << 4 << -2 << 1 << 500 << true << -2 << 500 << 0;
    QTest::newRow("both negative") << -4 << -2 << 1 << 500 << true << -2 << 500 << 0;
    QTest::newRow("both lowest") << INT_MIN << INT_MIN << INT_MIN << 500 << true << INT_MIN << 500 << 0;
}

void tst_AgedPalette::fit()
{
    QFETCH(int, sections);
    QFETCH(int, colors);
    QFETCH(int, qualities);
    QFETCH(int, time);
    Grading grading{ sections, colors, qualities, time };
    QTEST(Fit(grading), "fits");
    QCOMPARE(grading.sections, sections);
    QCOMPARE(grading.qualitySteps, qualities);
    QTEST(grading.colorsPerSection, "fittedColors");
    QTEST(grading.switchTime, "fittedTime");
    QTEST(grading.colorsPerQualityStep, "count");
}

void tst_AgedPalette::fade_data()
{
    QTest::addColumn<unsigned int>("color");
    QTest::addColumn<int>("section");
    QTest::addColumn<int>("sections");
    QTest::addColumn<unsigned int>("faded");
    QTest::newRow("one section is the colour") << 0xff102030U << 0 << 1 << 0xff102030U;
    QTest::newRow("the last one is the colour") << 0xff0180ffU << 3 << 4 << 0xff0180ffU;
    QTest::newRow("half") << 0xff0180ffU << 1 << 4 << 0xff00407fU; // 0.5, 64, 127.5: cut
    QTest::newRow("a quarter") << 0xffff0307U << 0 << 4 << 0xff3f0001U;
    QTest::newRow("opaque on the way") << 0x00ff0307U << 0 << 4 << 0xff3f0001U;
    QTest::newRow("beyond the end") << 0xff0180ffU << 9 << 4 << 0xff0180ffU;
    QTest::newRow("at the start") << 0xff0180ffU << -1 << 4 << 0xff000000U;
    QTest::newRow("before the start") << 0xff0180ffU << INT_MIN << 4 << 0xff000000U;
    QTest::newRow("no sections") << 0xff0180ffU << 0 << 0 << 0xff0180ffU;
    QTest::newRow("no number") << 0xff0180ffU << -1 << 0 << 0xff000000U;
    QTest::newRow("highest section") << 0xff0180ffU << INT_MAX << 4 << 0xff0180ffU;
}

void tst_AgedPalette::fade()
{
    QFETCH(unsigned int, color);
    QFETCH(int, section);
    QFETCH(int, sections);
    QTEST(Fade(color, section, sections), "faded");
}

void tst_AgedPalette::paintsAges()
{
    Grading grading{ 3, 2, 1, 500 };
    QVERIFY(Fit(grading));
    std::vector<unsigned int> colors(Size, 7U);
    Paint(grading, AgeColor, QualityColor, colors);
    for (std::size_t i = 0; i < 6; ++i) // (section + 1) * 2 of 6
        QCOMPARE(colors[i], Fresh | static_cast<unsigned int>((i / 2 + 1) * 2) << 8 | 6U);
    for (std::size_t i = 6; i < Size; ++i)
        QCOMPARE(colors[i], 7U);
}

void tst_AgedPalette::paintsQualities()
{
    Grading grading{ 2, 2, 3, 500 };
    QVERIFY(Fit(grading));
    std::vector<unsigned int> colors(Size, 7U);
    Paint(grading, AgeColor, QualityColor, colors);
    for (std::size_t quality = 0; quality < 3; ++quality) {
        QRgb const full = QualityColor(static_cast<double>(quality), 2.0);
        for (std::size_t i = 0; i < 4; ++i)
            QCOMPARE(colors[quality * 4 + i], i < 2 ? Fade(full, 0, 2) : full);
    }
    QCOMPARE(colors[4], 0xff320001U); // 0x64, 1, 2 by half
    QCOMPARE(colors[12], 7U);
}

void tst_AgedPalette::paintsNothingWithoutColours()
{
    std::vector<unsigned int> colors(Size, 7U);
    std::vector<unsigned int> const before = colors;
    for (int const qualities : { 1, 2 }) {
        Grading grading{ 255, 0, qualities, 500 };
        QVERIFY(Fit(grading));
        Paint(grading, AgeColor, QualityColor, colors);
        QCOMPARE(colors, before);
    }
}

void tst_AgedPalette::turns()
{
    for (int const count : { 1, 2, 8, 254 }) {
        int position = 0;
        for (int step = 1; step <= 2 * count; ++step) {
            position = PositionAfter(position, count);
            QCOMPARE(position, (2 * count - step) % count);
            int const current = CurrentColor(position, count);
            QCOMPARE(current, (position + 1) % count);
            QCOMPARE(IndexOfAge(count - 1, position, count), current); // the newest colour
            for (int age = 0; age < count; ++age)
                QCOMPARE(IndexOfAge(age, position, count), (position - age + count) % count);
        }
        QCOMPARE(position, 0);
    }
}

void tst_AgedPalette::withoutColoursNothingTurns()
{
    for (int const count : { 0, -1, INT_MIN }) {
        QCOMPARE(PositionAfter(3, count), 0);
        QCOMPARE(CurrentColor(3, count), 0);
        QCOMPARE(IndexOfAge(3, 3, count), 0);
        QCOMPARE(EqualSteps(5, count), 0);
    }
}

void tst_AgedPalette::equalSteps_data()
{
    QTest::addColumn<quint64>("steps");
    QTest::addColumn<int>("calls");
    QTest::newRow("none") << quint64(0) << 0;
    QTest::newRow("one") << quint64(1) << 1;
    QTest::newRow("a turn") << quint64(8) << 8;
    QTest::newRow("a turn and one") << quint64(9) << 9;
    QTest::newRow("two turns less one") << quint64(15) << 15;
    QTest::newRow("two turns are one") << quint64(16) << 8;
    QTest::newRow("a million and three") << quint64(1000003) << 11;
    QTest::newRow("beyond an int") << (quint64(1) << 40) + 5 << 13;
    QTest::newRow("highest") << ~quint64(0) << 15;
}

void tst_AgedPalette::equalSteps()
{
    QFETCH(quint64, steps);
    QTEST(EqualSteps(steps, 8), "calls");
}

void tst_AgedPalette::pixelIndex_data()
{
    QTest::addColumn<int>("current");
    QTest::addColumn<int>("qualitySteps");
    QTest::addColumn<int>("quality");
    QTest::addColumn<int>("index");
    QTest::newRow("one block hears no quality") << 3 << 1 << 7 << 3;
    QTest::newRow("no block is one") << 3 << 0 << 7 << 3;
    QTest::newRow("negative blocks are one") << 3 << INT_MIN << 7 << 3;
    QTest::newRow("lowest quality") << 3 << 3 << 0 << 3;
    QTest::newRow("middle quality") << 3 << 3 << 1 << 11;
    QTest::newRow("highest quality") << 3 << 3 << 2 << 19;
    QTest::newRow("beyond it") << 3 << 3 << 3 << 19;
    QTest::newRow("negative quality") << 3 << 3 << -1 << 19;
    QTest::newRow("lowest int") << 3 << 3 << INT_MIN << 19;
    QTest::newRow("highest int") << 3 << 3 << INT_MAX << 19;
    QTest::newRow("last ageing index") << 5 << 32 << 31 << 253;
    QTest::newRow("the marker is none") << 6 << 32 << 31 << -1;
    QTest::newRow("blocks without end") << 0 << INT_MAX << -1 << -1;
}

void tst_AgedPalette::pixelIndex()
{
    QFETCH(int, current);
    QFETCH(int, qualitySteps);
    QFETCH(int, quality);
    QTEST(PixelIndex(current, 8, qualitySteps, quality), "index");
}

ORIM_CORE_TEST_MAIN(tst_AgedPalette)
#include "tst_agedpalette.moc"
