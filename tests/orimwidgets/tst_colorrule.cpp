// SPDX-License-Identifier: MIT
#include "colorrule.h"

#include "testmain.h"

#include <cmath>
#include <limits>

class tst_colorrule : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void blendChannel_data();
    void blendChannel();
    void pickedRgb();
    void outOfRangeIsLightGrey();
    void normaliseRange();
};

void tst_colorrule::blendChannel_data()
{
    QTest::addColumn<int>("low");
    QTest::addColumn<int>("high");
    QTest::addColumn<double>("part");
    QTest::addColumn<int>("level");
    QTest::newRow("all of the lower") << 10 << 20 << 0.0 << 10;
    QTest::newRow("half way") << 10 << 20 << 0.5 << 15;
    QTest::newRow("cut, not rounded") << 0 << 255 << 0.999 << 254;
    QTest::newRow("falling") << 200 << 100 << 0.25 << 175;
    QTest::newRow("NaN") << 1 << 2 << std::numeric_limits<double>::quiet_NaN() << std::numeric_limits<int>::lowest();
}

void tst_colorrule::blendChannel()
{
    QFETCH(int, low);
    QFETCH(int, high);
    QFETCH(double, part);
    QTEST(BlendChannel(low, high, part), "level");
}

void tst_colorrule::pickedRgb()
{
    QRgb const colors[2] = { qRgb(0, 100, 200), qRgb(100, 200, 0) };
    QCOMPARE(PickedRgb({ ColorPick::eEntry, 1, 0.0 }, colors), colors[1]);
    QCOMPARE(PickedRgb({ ColorPick::eBlend, 0, 0.5 }, colors), qRgb(50, 150, 100));
    QCOMPARE(PickedRgb({ ColorPick::eBlend, 0, std::numeric_limits<double>::quiet_NaN() }, colors), qRgb(0, 0, 0));
    QCOMPARE(PickedRgb({ ColorPick::eOutOfRange, 0, 0.0 }, colors), OutOfRangeRgb);
}

void tst_colorrule::outOfRangeIsLightGrey() { QCOMPARE(OutOfRangeRgb, QColor(Qt::lightGray).rgb()); }

void tst_colorrule::normaliseRange()
{
    double start = 1.0;
    double stop = 2.0;
    QVERIFY(!NormaliseRange(start, stop));
    start = 3.0;
    QVERIFY(NormaliseRange(start, stop));
    QCOMPARE(start, 2.0);
    QCOMPARE(stop, 3.0);
    stop = 2.0;
    QVERIFY(NormaliseRange(start, stop));
    QCOMPARE(stop, 3.0);
    start = std::numeric_limits<double>::quiet_NaN();
    QVERIFY(!NormaliseRange(start, stop));
    QVERIFY(std::isnan(start));
}

ORIM_CORE_TEST_MAIN(tst_colorrule)
#include "tst_colorrule.moc"
