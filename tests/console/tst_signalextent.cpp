// SPDX-License-Identifier: MIT
#include "signalextent.h"

#include "testmain.h"

#include <limits>

class tst_SignalExtent : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void takesWhatStandsAboveTheNoise();
    void endsFarBelowItsPeak();
    void bridgesSmallGaps_data();
    void bridgesSmallGaps();
    void takenColumnsAreNotLookedAt();
    void hasALeastWidth_data();
    void hasALeastWidth();
    void takesAQuarterAtMost();
    void columnsWithoutALevelAreNoSignal();
    void nothingToFind_data();
    void nothingToFind();
};

namespace {

constexpr double Noise = -90.0;

std::vector<double> Levels(std::vector<int> const & high, int count = 200)
{
    std::vector<double> levels(static_cast<std::size_t>(count), Noise);
    for (int const column : high)
        levels[static_cast<std::size_t>(column)] = -40.0;
    return levels;
}

} // namespace

void tst_SignalExtent::takesWhatStandsAboveTheNoise()
{
    std::vector<double> levels = Levels({ 50, 51, 52, 53, 54 });
    for (std::size_t column = 50; column < 55; ++column)
        levels[column] = -60.0;
    levels[52] = -50.0;
    levels[49] = Noise + 6.0;  // just within
    levels[55] = Noise + 5.99; // just outside
    SignalExtent const signal = FindSignal(levels, {}, 1);
    QCOMPARE(signal.first, 49);
    QCOMPARE(signal.last, 54);
}

void tst_SignalExtent::endsFarBelowItsPeak()
{
    std::vector<double> levels = Levels({});
    for (std::size_t column = 80; column < 121; ++column)
        levels[column] = -50.1;
    levels[98] = -50.0;
    levels[100] = -10.0;
    SignalExtent const signal = FindSignal(levels, {}, 1);
    QCOMPARE(signal.first, 98);
    QCOMPARE(signal.last, 100);
}

void tst_SignalExtent::bridgesSmallGaps_data()
{
    QTest::addColumn<int>("gap");
    QTest::addColumn<int>("last");
    QTest::newRow("none") << 0 << 61;
    QTest::newRow("two") << 2 << 63;
    QTest::newRow("three end it") << 3 << 60;
}

void tst_SignalExtent::bridgesSmallGaps()
{
    QFETCH(int, gap);
    QFETCH(int, last);
    std::vector<double> levels = Levels({ 60, 61 + gap });
    levels[60] = -30.0;
    SignalExtent const signal = FindSignal(levels, {}, 1);
    QCOMPARE(signal.first, 60);
    QCOMPARE(signal.last, last);
}

void tst_SignalExtent::takenColumnsAreNotLookedAt()
{
    std::vector<double> const levels = Levels({ 20, 21, 22, 100, 101, 102 });
    std::vector<bool> taken(200);
    taken[20] = taken[21] = true;
    SignalExtent signal = FindSignal(levels, taken, 1);
    QCOMPARE(signal.first, 22); // and one ends at them
    QCOMPARE(signal.last, 22);
    taken.resize(23); // those behind are free
    taken[22] = true;
    signal = FindSignal(levels, taken, 1);
    QCOMPARE(signal.first, 100);
    QCOMPARE(signal.last, 102);
}

void tst_SignalExtent::hasALeastWidth_data()
{
    QTest::addColumn<int>("peak");
    QTest::addColumn<int>("least");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::newRow("around it") << 100 << 11 << 95 << 105;
    QTest::newRow("at the left end") << 1 << 11 << 0 << 10;
    QTest::newRow("at the right end") << 199 << 11 << 189 << 199;
    QTest::newRow("the whole spectrum") << 100 << 500 << 0 << 199;
    QTest::newRow("none") << 100 << -5 << 100 << 100;
}

void tst_SignalExtent::hasALeastWidth()
{
    QFETCH(int, peak);
    QFETCH(int, least);
    QFETCH(int, first);
    QFETCH(int, last);
    SignalExtent const signal = FindSignal(Levels({ peak }), {}, least);
    QCOMPARE(signal.first, first);
    QCOMPARE(signal.last, last);
}

void tst_SignalExtent::takesAQuarterAtMost()
{
    std::vector<double> levels = Levels({});
    for (std::size_t column = 40; column < 130; ++column)
        levels[column] = -40.0;
    levels[85] = -30.0;
    SignalExtent const signal = FindSignal(levels, {}, 1);
    QCOMPARE(signal.first, 60);
    QCOMPARE(signal.last, 110);
}

void tst_SignalExtent::columnsWithoutALevelAreNoSignal()
{
    std::vector<double> levels = Levels({ 100 });
    for (std::size_t column = 0; column < 60; ++column)
        levels[column] = std::numeric_limits<double>::quiet_NaN();
    levels[101] = std::numeric_limits<double>::infinity();
    SignalExtent const signal = FindSignal(levels, {}, 1);
    QCOMPARE(signal.first, 100);
}

void tst_SignalExtent::nothingToFind_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<double>("level");
    QTest::addColumn<bool>("taken");
    QTest::newRow("no columns") << 0 << Noise << false;
    QTest::newRow("no levels") << 100 << std::numeric_limits<double>::quiet_NaN() << false;
    QTest::newRow("all are taken") << 100 << Noise << true;
}

void tst_SignalExtent::nothingToFind()
{
    QFETCH(int, count);
    QFETCH(double, level);
    QFETCH(bool, taken);
    auto const size = static_cast<std::size_t>(count);
    SignalExtent const signal = FindSignal(std::vector<double>(size, level), std::vector<bool>(size, taken), 10);
    QVERIFY(signal.last < signal.first);
}

ORIM_CORE_TEST_MAIN(tst_SignalExtent)
#include "tst_signalextent.moc"
