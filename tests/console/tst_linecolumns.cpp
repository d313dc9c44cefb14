// SPDX-License-Identifier: MIT
#include "linecolumns.h"
#include "testmain.h"

#include <cmath>
#include <limits>
#include <numeric>
#include <random>

class tst_LineColumns : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void reduces_data();
    void reduces();
    void everyBinIsSeen();
    void columnWithoutBinsIsNaN();
    void refusesWhatIsNoRange_data();
    void refusesWhatIsNoRange();
    void findsTheBinOfAColumn();
    void findsTheColumnOfAFrequency_data();
    void findsTheColumnOfAFrequency();
    void nanGivesWay();
};

namespace {

using Levels = QVector<double>;

Levels Reduced(LineColumns const & map, Levels const & levels)
{
    Levels columns(map.Columns(), -1.0);
    map.Reduce(levels.constData(), columns.data());
    return columns;
}

} // namespace

void tst_LineColumns::reduces_data()
{
    QTest::addColumn<Levels>("levels");
    QTest::addColumn<double>("viewStart");
    QTest::addColumn<double>("viewSpan");
    QTest::addColumn<int>("columns");
    QTest::addColumn<Levels>("expected");
    Levels const eight{ 3, 1, 4, 1, 5, 9, 2, 6 };
    QTest::newRow("as many columns as bins") << eight << 0.0 << 8.0 << 8 << eight;
    QTest::newRow("two bins a column: the maximum") << eight << 0.0 << 8.0 << 4 << Levels{ 3, 4, 9, 6 };
    QTest::newRow("all bins in one column") << eight << 0.0 << 8.0 << 1 << Levels{ 9 };
    QTest::newRow("two columns a bin: repeated around its frequency")
        << Levels{ 1, 2, 3, 4 } << 0.0 << 4.0 << 8 << Levels{ 1, 2, 2, 3, 3, 4, 4, 4 };
    QTest::newRow("uneven: each bin in one column") << eight << 0.0 << 8.0 << 3 << Levels{ 4, 9, 6 };
    QTest::newRow("the right half of the line") << eight << 4.0 << 4.0 << 4 << Levels{ 5, 9, 2, 6 };
    QTest::newRow("a single bin fills the view") << Levels{ 7 } << 0.0 << 8.0 << 2 << Levels{ 7, 7 };
}

void tst_LineColumns::reduces()
{
    QFETCH(Levels, levels);
    QFETCH(double, viewStart);
    QFETCH(double, viewSpan);
    QFETCH(int, columns);
    QFETCH(Levels, expected);
    LineColumns map;
    double const span = levels.size() == 1 ? 8.0 : static_cast<double>(levels.size());
    map.Lay({ 0.0, span }, static_cast<std::size_t>(levels.size()), { viewStart, viewSpan }, columns);
    QCOMPARE(map.Columns(), columns);
    QVERIFY(!map.HasGaps());
    QCOMPARE(Reduced(map, levels), expected);
}

void tst_LineColumns::everyBinIsSeen()
{
    // a single high bin shows in some column, whatever the numbers of bins and columns
    std::mt19937_64 random(TestStage::Seed());
    for (int turn = 0; turn < 2000; ++turn) {
        int const bins = 1 + static_cast<int>(random() % 700);
        int const columns = 1 + static_cast<int>(random() % 900);
        int const high = static_cast<int>(random() % static_cast<unsigned>(bins));
        Levels levels(bins, -100.0);
        levels[high] = -1.0;
        LineColumns map;
        map.Lay({ 868.95e6 - 0.8e6, 1.6e6 }, static_cast<std::size_t>(bins), { 868.95e6 - 0.8e6, 1.6e6 }, columns);
        Levels const shown = Reduced(map, levels);
        qsizetype const column = shown.indexOf(-1.0);
        QVERIFY2(column >= 0,
                 qPrintable(QStringLiteral("%1 bins, %2 columns, bin %3").arg(bins).arg(columns).arg(high)));
        // no more than one column off its place
        double const place = static_cast<double>(high) * columns / bins;
        QVERIFY(std::abs(static_cast<double>(column) - place) <= std::max(1.0, static_cast<double>(columns) / bins));
    }
}

void tst_LineColumns::columnWithoutBinsIsNaN()
{
    LineColumns map;
    map.Lay({ 0.0, 4.0 }, 4, { -4.0, 12.0 }, 12);
    QVERIFY(map.HasGaps());
    Levels const shown = Reduced(map, { 1, 2, 3, 4 });
    QVERIFY(std::isnan(shown[0]));
    QVERIFY(std::isnan(shown[2]));
    QCOMPARE(shown[4], 1.0);
    QCOMPARE(shown[7], 4.0);
    QVERIFY(std::isnan(shown[9]));
    QVERIFY(std::isnan(shown[11]));
}

void tst_LineColumns::refusesWhatIsNoRange_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("span");
    QTest::addColumn<int>("bins");
    double const nan = std::numeric_limits<double>::quiet_NaN();
    double const inf = std::numeric_limits<double>::infinity();
    QTest::newRow("no bins") << 0.0 << 4.0 << 0;
    QTest::newRow("span 0") << 0.0 << 0.0 << 4;
    QTest::newRow("span below 0") << 0.0 << -4.0 << 4;
    QTest::newRow("span NaN") << 0.0 << nan << 4;
    QTest::newRow("span infinite") << 0.0 << inf << 4;
    QTest::newRow("start NaN") << nan << 4.0 << 4;
    QTest::newRow("start infinite") << inf << 4.0 << 4;
}

void tst_LineColumns::refusesWhatIsNoRange()
{
    QFETCH(double, start);
    QFETCH(double, span);
    QFETCH(int, bins);
    for (bool const inView : { false, true }) {
        LineColumns map;
        FrequencyRange const odd{ start, span };
        FrequencyRange const good{ 0.0, 4.0 };
        map.Lay(inView ? good : odd, static_cast<std::size_t>(bins), inView ? odd : good, 3);
        QCOMPARE(map.Columns(), 3);
        QVERIFY(map.HasGaps());
        for (double const level : Reduced(map, { 1, 2, 3, 4 }))
            QVERIFY(std::isnan(level));
    }
    LineColumns map;
    map.Lay({ 0.0, 4.0 }, 4, { 0.0, 4.0 }, -1);
    QCOMPARE(map.Columns(), 0);
    QVERIFY(!map.HasGaps());
}

void tst_LineColumns::findsTheBinOfAColumn()
{
    double const levels[] = { 3, 1, 4, 1, 5, 9, 2, 6 };
    LineColumns map;
    map.Lay({ 0.0, 8.0 }, 8, { 0.0, 16.0 }, 8);
    QCOMPARE(map.BinOf(0, levels), 0);
    QCOMPARE(map.BinOf(2, levels), 5);
    QCOMPARE(map.BinOf(7, levels), -1); // right of the line
    QCOMPARE(map.BinOf(-1, levels), -1);
    QCOMPARE(map.BinOf(8, levels), -1);
}

void tst_LineColumns::findsTheColumnOfAFrequency_data()
{
    QTest::addColumn<double>("frequency");
    QTest::addColumn<int>("column");
    QTest::newRow("left end") << 100.0 << 0;
    QTest::newRow("inside") << 125.0 << 5;
    QTest::newRow("last column") << 149.9 << 9;
    QTest::newRow("right end is outside") << 150.0 << -1;
    QTest::newRow("left of it") << 99.9 << -1;
    QTest::newRow("NaN") << qQNaN() << -1;
    QTest::newRow("infinite") << qInf() << -1;
}

void tst_LineColumns::findsTheColumnOfAFrequency()
{
    QFETCH(double, frequency);
    QFETCH(int, column);
    LineColumns map;
    map.Lay({ 0.0, 200.0 }, 100, { 100.0, 50.0 }, 10);
    QCOMPARE(map.ColumnOf(frequency), column);
}

void tst_LineColumns::nanGivesWay()
{
    LineColumns map;
    map.Lay({ 0.0, 4.0 }, 4, { 0.0, 4.0 }, 2);
    Levels const shown = Reduced(map, { qQNaN(), 2.0, 3.0, qQNaN() });
    QCOMPARE(shown[0], 2.0);
    QCOMPARE(shown[1], 3.0);
}

ORIM_CORE_TEST_MAIN(tst_LineColumns)
#include "tst_linecolumns.moc"
