// SPDX-License-Identifier: MIT
#include "gridtics.h"
#include "numbertexts.h"
#include "testmain.h"

#include <cmath>
#include <limits>
#include <random>

class tst_GridTics : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void niceStep_data();
    void niceStep();
    void multiples_data();
    void multiples();
    void laysTicsAtTheirPixels();
    void fallingAxisRunsDown();
    void labelsNeitherTouchNorAreCut();
    void labelWithoutRoomIsEmpty();
    void noTics_data();
    void noTics();
    void rowsBearMultiplesOfTheStep();
    void rowsKeepTheirDistance();
    void timeThatBeginsAnewIsLabelled();
    void rowsWithoutTimeBearNothing();
};

namespace {

constexpr int DigitWidth = 7; // px

GridTics::Labels LabelsOf(int lowest, int highest)
{
    return { lowest,
             highest,
             8,
             40,
             [](QString const & label) { return static_cast<int>(label.size()) * DigitWidth; },
             [](double value, double step) { return NumberTexts::Level(value, step); } };
}

QStringList Texts(std::vector<GridTics::RowTic> const & tics)
{
    QStringList texts;
    for (GridTics::RowTic const & tic : tics)
        texts << QStringLiteral("%1: %2").arg(tic.row).arg(tic.label);
    return texts;
}

} // namespace

void tst_GridTics::niceStep_data()
{
    QTest::addColumn<double>("least");
    QTest::addColumn<double>("step");
    QTest::newRow("1 stays") << 1.0 << 1.0;
    QTest::newRow("above 1") << 1.01 << 2.0;
    QTest::newRow("2 stays") << 2.0 << 2.0;
    QTest::newRow("above 2") << 2.5 << 5.0;
    QTest::newRow("above 5") << 5.5 << 10.0;
    QTest::newRow("below 1") << 0.03 << 0.05;
    QTest::newRow("large") << 3e11 << 5e11;
    QTest::newRow("0") << 0.0 << 0.0;
    QTest::newRow("below 0") << -3.0 << 0.0;
    QTest::newRow("NaN") << qQNaN() << 0.0;
    QTest::newRow("infinite") << qInf() << 0.0;
}

void tst_GridTics::niceStep()
{
    QFETCH(double, least);
    QFETCH(double, step);
    QCOMPARE(GridTics::NiceStep(least), step);
}

void tst_GridTics::multiples_data()
{
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    QTest::addColumn<double>("step");
    QTest::addColumn<QVector<double>>("values");
    QTest::newRow("both ends are multiples") << -20.0 << 20.0 << 10.0 << QVector<double>{ -20, -10, 0, 10, 20 };
    QTest::newRow("ends in between") << 1.0 << 29.0 << 10.0 << QVector<double>{ 10, 20 };
    QTest::newRow("no drift at 0.1") << 0.0 << 0.3 << 0.1 << QVector<double>{ 0, 0.1, 0.2, 3 * 0.1 };
    QTest::newRow("none inside") << 1.0 << 2.0 << 10.0 << QVector<double>{};
    QTest::newRow("one at the end") << 1.0 << 10.0 << 10.0 << QVector<double>{ 10 };
    QTest::newRow("step 0") << 0.0 << 1.0 << 0.0 << QVector<double>{};
    QTest::newRow("step below 0") << 0.0 << 1.0 << -1.0 << QVector<double>{};
    QTest::newRow("more than a thousand") << 0.0 << 1001.0 << 1.0 << QVector<double>{};
    QTest::newRow("NaN") << qQNaN() << 1.0 << 0.1 << QVector<double>{};
    QTest::newRow("infinite") << 0.0 << qInf() << 1.0 << QVector<double>{};
}

void tst_GridTics::multiples()
{
    QFETCH(double, low);
    QFETCH(double, high);
    QFETCH(double, step);
    QFETCH(QVector<double>, values);
    std::vector<double> const found = GridTics::Multiples(low, high, step);
    QCOMPARE(QVector<double>(found.begin(), found.end()), values);
}

void tst_GridTics::laysTicsAtTheirPixels()
{
    std::vector<GridTics::Tic> const tics = GridTics::Lay({ 0.0, 100.0, 500 }, LabelsOf(-50, 550));
    QCOMPARE(tics.size(), std::size_t(11));
    QCOMPARE(tics[3].value, 30.0);
    QCOMPARE(tics[3].pixel, 150);
    QCOMPARE(tics[3].label, QStringLiteral("30"));
    QCOMPARE(tics[3].labelStart, 150 - DigitWidth);
    QCOMPARE(tics.back().pixel, 499); // the last one stands on the last pixel
}

void tst_GridTics::fallingAxisRunsDown()
{
    std::vector<GridTics::Tic> const tics = GridTics::Lay({ 0.0, -100.0, 500 }, LabelsOf(-50, 550));
    QCOMPARE(tics.front().label, QStringLiteral("0"));
    QCOMPARE(tics.front().pixel, 0);
    QCOMPARE(tics[2].label, QStringLiteral("-20"));
    QCOMPARE(tics[2].pixel, 100);
}

void tst_GridTics::labelsNeitherTouchNorAreCut()
{
    std::mt19937_64 random(TestStage::Seed());
    std::uniform_real_distribution<double> exponent(-6.0, 10.0);
    std::uniform_real_distribution<double> place(-1e4, 1e4);
    for (int turn = 0; turn < 3000; ++turn) {
        double const span = std::pow(10.0, exponent(random));
        double const start = place(random) * span;
        int const length = 2 + static_cast<int>(random() % 3000);
        auto const tics = GridTics::Lay({ start, start + span, length }, LabelsOf(0, length - 1));
        int end = std::numeric_limits<int>::min();
        int pixel = -1;
        for (GridTics::Tic const & tic : tics) {
            QVERIFY(tic.pixel >= 0 && tic.pixel < length);
            QVERIFY(tic.pixel > pixel);
            pixel = tic.pixel;
            if (tic.label.isEmpty())
                continue;
            QVERIFY(tic.labelStart >= 0);
            QVERIFY(tic.labelStart + tic.labelExtent <= length);
            QVERIFY(end == std::numeric_limits<int>::min() || tic.labelStart >= end + 8);
            end = tic.labelStart + tic.labelExtent;
        }
    }
}

void tst_GridTics::labelWithoutRoomIsEmpty()
{
    std::vector<GridTics::Tic> const tics = GridTics::Lay({ 0.0, 100.0, 500 }, LabelsOf(0, 499));
    QCOMPARE(tics.front().label, QString());
    QCOMPARE(tics.front().pixel, 0);
    QCOMPARE(tics.back().label, QString());
    QCOMPARE(tics[1].label, QStringLiteral("10"));
}

void tst_GridTics::noTics_data()
{
    QTest::addColumn<double>("first");
    QTest::addColumn<double>("last");
    QTest::addColumn<int>("length");
    QTest::newRow("empty range") << 5.0 << 5.0 << 100;
    QTest::newRow("NaN") << qQNaN() << 5.0 << 100;
    QTest::newRow("infinite") << 0.0 << qInf() << 100;
    QTest::newRow("one pixel") << 0.0 << 5.0 << 1;
    QTest::newRow("no pixel") << 0.0 << 5.0 << 0;
    QTest::newRow("less than no pixel") << 0.0 << 5.0 << -7;
}

void tst_GridTics::noTics()
{
    QFETCH(double, first);
    QFETCH(double, last);
    QFETCH(int, length);
    QVERIFY(GridTics::Lay({ first, last, length }, LabelsOf(0, 1000)).empty());
}

void tst_GridTics::rowsBearMultiplesOfTheStep()
{
    std::vector<double> stamps;
    for (int row = 0; row < 100; ++row)
        stamps.push_back(10.0 - 0.1 * row); // newest first
    QCOMPARE(Texts(GridTics::LayRows(stamps, 15)),
             (QStringList{ QStringLiteral("80: 2 s"), QStringLiteral("60: 4 s"), QStringLiteral("40: 6 s"),
                           QStringLiteral("20: 8 s"), QStringLiteral("0: 10 s") }));
    // a minute on, the labels are minutes and seconds
    for (double & stamp : stamps)
        stamp += 60.0;
    QCOMPARE(Texts(GridTics::LayRows(stamps, 15)).value(1), QStringLiteral("60: 1:04"));
}

void tst_GridTics::rowsKeepTheirDistance()
{
    // the line rate has changed: the rows below lie ten times as far apart in time
    std::vector<double> stamps;
    for (int row = 0; row < 50; ++row)
        stamps.push_back(100.0 - 0.1 * row);
    for (int row = 0; row < 50; ++row)
        stamps.push_back(95.0 - row);
    int last = 1000;
    for (GridTics::RowTic const & tic : GridTics::LayRows(stamps, 12)) {
        QVERIFY(last - tic.row >= 12);
        last = tic.row;
    }
    QVERIFY(last < 1000);
}

void tst_GridTics::timeThatBeginsAnewIsLabelled()
{
    // a recording of half a second in a loop
    std::vector<double> stamps;
    for (int row = 0; row < 60; ++row)
        stamps.push_back(0.05 * ((99 - row) % 10) + 0.02);
    QStringList const texts = Texts(GridTics::LayRows(stamps, 15));
    QCOMPARE(texts,
             (QStringList{ QStringLiteral("49: 0.02 s"), QStringLiteral("29: 0.02 s"), QStringLiteral("9: 0.02 s") }));
}

void tst_GridTics::rowsWithoutTimeBearNothing()
{
    QVERIFY(GridTics::LayRows({}, 10).empty());
    QVERIFY(GridTics::LayRows({ 1.0 }, 10).empty());
    QVERIFY(GridTics::LayRows({ 1.0, 1.0, 1.0 }, 10).empty());
    QVERIFY(GridTics::LayRows({ qQNaN(), qQNaN(), qQNaN() }, 10).empty());
}

ORIM_CORE_TEST_MAIN(tst_GridTics)
#include "tst_gridtics.moc"
