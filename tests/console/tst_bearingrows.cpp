// SPDX-License-Identifier: MIT
#include "bearingrows.h"

#include "dirtystrips.h"
#include "testmain.h"

#include <limits>

class tst_BearingRows : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void rowOfADirection_data();
    void rowOfADirection();
    void partsOfABand_data();
    void partsOfABand();
    void withoutRowsThereIsNothing_data();
    void withoutRowsThereIsNothing();
    void degreesARow();
    void stripsHoldWhatChanged_data();
    void stripsHoldWhatChanged();
    void stripsAreTakenOnce();
    void stripsForgetWithThePicture();
};

namespace {

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinite = std::numeric_limits<double>::infinity();

//! Ten degrees a row: the first one on row 5, the last one on row 5 + span / 10 - 1.
BearingRows RowsOf(double start, double stop, bool isCircle)
{
    return BearingRows({ start, stop, 5, 5 + static_cast<int>((stop - start) / 10.0) - 1, isCircle });
}

using Parts = QVector<int>; // top and bottom of each

Parts ToNumbers(std::vector<BearingRows::Part> const & parts)
{
    Parts numbers;
    for (BearingRows::Part const & part : parts)
        numbers << part.top << part.bottom;
    return numbers;
}

using Rects = QVector<QRect>;

Rects Taken(DirtyStrips & strips)
{
    Rects rects;
    for (QRect const & rect : strips.Take())
        rects << rect;
    return rects;
}

} // namespace

void tst_BearingRows::rowOfADirection_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<bool>("circle");
    QTest::addColumn<double>("degrees");
    QTest::addColumn<int>("row");
    QTest::newRow("north lies on the lowest row") << 0.0 << 360.0 << true << 0.0 << 40;
    QTest::newRow("just below north on the topmost") << 0.0 << 360.0 << true << 359.9 << 5;
    QTest::newRow("a whole turn is north") << 0.0 << 360.0 << true << 360.0 << 40;
    QTest::newRow("below 0 it is turned") << 0.0 << 360.0 << true << -5.0 << 5;
    QTest::newRow("many turns above") << 0.0 << 360.0 << true << 3605.0 << 40;
    QTest::newRow("many turns below") << 0.0 << 360.0 << true << -3605.0 << 5;
    QTest::newRow("east") << 0.0 << 360.0 << true << 95.0 << 31;
    QTest::newRow("signed, north in the middle") << -180.0 << 180.0 << true << 5.0 << 22;
    QTest::newRow("signed, just below north") << -180.0 << 180.0 << true << 355.0 << 23;
    QTest::newRow("signed, south lies on the lowest row") << -180.0 << 180.0 << true << 180.0 << 40;
    QTest::newRow("a range across north, above it") << 300.0 << 420.0 << true << 5.0 << 10;
    QTest::newRow("a range across north, below it") << 300.0 << 420.0 << true << 305.0 << 16;
    QTest::newRow("outside a range across north") << 300.0 << 420.0 << true << 180.0 << -1;
    QTest::newRow("outside a part of the circle") << 0.0 << 90.0 << true << 95.0 << -1;
    QTest::newRow("elevation") << -90.0 << 90.0 << false << 5.0 << 13;
    QTest::newRow("nadir") << -90.0 << 90.0 << false << -90.0 << 22;
    QTest::newRow("zenith") << -90.0 << 90.0 << false << 90.0 << 5;
    QTest::newRow("an elevation does not turn") << -90.0 << 90.0 << false << 270.0 << -1;
    QTest::newRow("no number") << 0.0 << 360.0 << true << NaN << -1;
    QTest::newRow("endless") << 0.0 << 360.0 << true << Infinite << -1;
    QTest::newRow("endless below 0") << 0.0 << 360.0 << true << -Infinite << -1;
    QTest::newRow("no elevation") << -90.0 << 90.0 << false << NaN << -1;
    QTest::newRow("endless elevation") << -90.0 << 90.0 << false << -Infinite << -1;
}

void tst_BearingRows::rowOfADirection()
{
    QFETCH(double, start);
    QFETCH(double, stop);
    QFETCH(bool, circle);
    QFETCH(double, degrees);
    QFETCH(int, row);
    QCOMPARE(RowsOf(start, stop, circle).RowOf(degrees), row);
}

void tst_BearingRows::partsOfABand_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<bool>("circle");
    QTest::addColumn<double>("middle");
    QTest::addColumn<double>("half");
    QTest::addColumn<Parts>("parts");
    QTest::newRow("in one part") << 0.0 << 360.0 << true << 100.0 << 15.0 << Parts{ 29, 32 };
    QTest::newRow("across north in two") << 0.0 << 360.0 << true << 0.0 << 12.0 << Parts{ 5, 6, 39, 40 };
    QTest::newRow("across north, written above it") << 0.0 << 360.0 << true << 365.0 << 10.0 << Parts{ 5, 5, 39, 40 };
    QTest::newRow("up to north in one") << 0.0 << 360.0 << true << 354.0 << 6.0 << Parts{ 5, 6 };
    QTest::newRow("from north in one") << 0.0 << 360.0 << true << 5.0 << 4.0 << Parts{ 40, 40 };
    QTest::newRow("signed, across north in one") << -180.0 << 180.0 << true << 0.0 << 12.0 << Parts{ 21, 24 };
    QTest::newRow("signed, across south in two") << -180.0 << 180.0 << true << 180.0 << 15.0 << Parts{ 5, 6, 39, 40 };
    QTest::newRow("the whole circle") << 0.0 << 360.0 << true << 40.0 << 180.0 << Parts{ 5, 40 };
    QTest::newRow("endless is none") << 0.0 << 360.0 << true << 40.0 << Infinite << Parts{};
    QTest::newRow("no width is a row") << 0.0 << 360.0 << true << 95.0 << 0.0 << Parts{ 31, 31 };
    QTest::newRow("a width below 0 is a row") << 0.0 << 360.0 << true << 95.0 << -20.0 << Parts{ 31, 31 };
    QTest::newRow("cut at the end of a part of the circle") << 0.0 << 90.0 << true << 90.0 << 15.0 << Parts{ 5, 6 };
    QTest::newRow("enters a part of the circle from below") << 0.0 << 90.0 << true << -5.0 << 16.0 << Parts{ 12, 13 };
    QTest::newRow("outside a part of the circle") << 0.0 << 90.0 << true << 200.0 << 15.0 << Parts{};
    QTest::newRow("elevation") << -90.0 << 90.0 << false << 0.0 << 15.0 << Parts{ 12, 15 };
    QTest::newRow("elevation is cut at the zenith") << -90.0 << 90.0 << false << 90.0 << 15.0 << Parts{ 5, 6 };
    QTest::newRow("elevation is cut at nadir") << -90.0 << 90.0 << false << -90.0 << 15.0 << Parts{ 21, 22 };
    QTest::newRow("elevation above the range") << -90.0 << 45.0 << false << 70.0 << 5.0 << Parts{};
    QTest::newRow("elevation below the range") << 0.0 << 90.0 << false << -20.0 << 5.0 << Parts{};
    QTest::newRow("no number") << 0.0 << 360.0 << true << NaN << 5.0 << Parts{};
    QTest::newRow("endless middle") << 0.0 << 360.0 << true << -Infinite << 5.0 << Parts{};
    QTest::newRow("no width of a number") << 0.0 << 360.0 << true << 95.0 << NaN << Parts{};
}

void tst_BearingRows::partsOfABand()
{
    QFETCH(double, start);
    QFETCH(double, stop);
    QFETCH(bool, circle);
    QFETCH(double, middle);
    QFETCH(double, half);
    QFETCH(Parts, parts);
    QCOMPARE(ToNumbers(RowsOf(start, stop, circle).PartsOf(middle, half)), parts);
}

void tst_BearingRows::withoutRowsThereIsNothing_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<int>("last");
    QTest::newRow("no rows") << 0.0 << 360.0 << -1;
    QTest::newRow("rows below 0") << 0.0 << 360.0 << -100;
    QTest::newRow("no range") << 90.0 << 90.0 << 99;
    QTest::newRow("range that is no number") << NaN << 90.0 << 99;
    QTest::newRow("endless range") << -Infinite << Infinite << 99;
}

void tst_BearingRows::withoutRowsThereIsNothing()
{
    QFETCH(double, start);
    QFETCH(double, stop);
    QFETCH(int, last);
    for (bool const circle : { false, true }) {
        BearingRows const rows({ start, stop, 0, last, circle });
        QCOMPARE(rows.RowOf(90.0), -1);
        QVERIFY(rows.PartsOf(90.0, 5.0).empty());
        QCOMPARE(rows.DegreesARow(), 0.0);
    }
}

void tst_BearingRows::degreesARow()
{
    QCOMPARE(RowsOf(0.0, 360.0, true).DegreesARow(), 10.0);
    QCOMPARE(BearingRows({ -30.0, 90.0, 7, 7, false }).DegreesARow(), 120.0);
    QCOMPARE(BearingRows().DegreesARow(), 0.0);
}

void tst_BearingRows::stripsHoldWhatChanged_data()
{
    constexpr int width = DirtyStrips::Width;
    QTest::addColumn<Rects>("added");
    QTest::addColumn<Rects>("taken");
    QTest::newRow("nothing") << Rects{} << Rects{};
    QTest::newRow("as it was added") << Rects{ { 12, 25, 3, 4 } } << Rects{ { 12, 25, 3, 4 } };
    QTest::newRow("two in a strip are one")
        << Rects{ { 12, 25, 3, 4 }, { 20, 31, 2, 2 } } << Rects{ { 12, 25, 10, 8 } };
    QTest::newRow("two strips stay apart")
        << Rects{ { 10 + width, 40, 1, 1 }, { 10, 25, 1, 1 } } << Rects{ { 10, 25, 1, 1 }, { 10 + width, 40, 1, 1 } };
    QTest::newRow("cut between strips") << Rects{ { 10 + width - 2, 25, 4, 5 } }
                                        << Rects{ { 10 + width - 2, 25, 2, 5 }, { 10 + width, 25, 2, 5 } };
    QTest::newRow("cut at the picture") << Rects{ { 0, 0, 12, 22 } } << Rects{ { 10, 20, 2, 2 } };
    QTest::newRow("cut at its end") << Rects{ { 10 + 2 * width, 99, 500, 500 } }
                                    << Rects{ { 10 + 2 * width, 99, 6, 21 } };
    QTest::newRow("outside") << Rects{ { 0, 0, 10, 500 }, { 10, 0, 5, 20 }, { 500, 25, 5, 5 } } << Rects{};
    QTest::newRow("empty") << Rects{ { 12, 25, 0, 4 }, QRect() } << Rects{};
}

void tst_BearingRows::stripsHoldWhatChanged()
{
    QFETCH(Rects, added);
    QFETCH(Rects, taken);
    DirtyStrips strips;
    strips.SetPicture(QRect(10, 20, 2 * DirtyStrips::Width + 6, 100));
    for (QRect const & rect : added)
        strips.Add(rect);
    QCOMPARE(Taken(strips), taken);
}

void tst_BearingRows::stripsAreTakenOnce()
{
    DirtyStrips strips;
    strips.SetPicture(QRect(0, 0, 100, 100));
    strips.Add(QRect(1, 2, 3, 4));
    QCOMPARE(Taken(strips).size(), 1);
    QCOMPARE(Taken(strips).size(), 0);
    strips.Add(QRect(50, 2, 3, 4));
    QCOMPARE(Taken(strips), Rects{ QRect(50, 2, 3, 4) });
}

void tst_BearingRows::stripsForgetWithThePicture()
{
    DirtyStrips strips;
    strips.Add(QRect(1, 2, 3, 4));
    QCOMPARE(Taken(strips).size(), 0);
    strips.SetPicture(QRect(0, 0, 100, 100));
    strips.Add(QRect(1, 2, 3, 4));
    strips.SetPicture(QRect(0, 0, 50, 100));
    QCOMPARE(Taken(strips).size(), 0);
    strips.SetPicture(QRect(0, 0, 0, 100));
    strips.Add(QRect(0, 2, 3, 4));
    QCOMPARE(Taken(strips).size(), 0);
}

ORIM_CORE_TEST_MAIN(tst_BearingRows)
#include "tst_bearingrows.moc"
