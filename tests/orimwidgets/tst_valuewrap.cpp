// SPDX-License-Identifier: MIT
#include "valuewrap.h"

#include "rangefold.h"
#include "testmain.h"

#include <cmath>
#include <limits>
#include <random>

namespace {

double ByTurns(double value, double low, double high, double turn)
{
    while (value < low)
        value += turn;
    while (value > high)
        value -= turn;
    return value;
}

double Expected(double value, long key)
{
    return (key & 8) != 0 ? ByTurns(value, -179.9, 180.0, 360.0) : ByTurns(value, 0.0, 359.9, 360.0);
}

} // namespace

class tst_valuewrap : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bearing_data();
    void bearing();
    void isAsTurnByTurn_data();
    void isAsTurnByTurn();
    void farBeyondEveryTurn_data();
    void farBeyondEveryTurn();
    void turnsAreRoundedAsInTheLoop();
};

void tst_valuewrap::bearing_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("key");
    QTest::addColumn<double>("shown");
    QTest::newRow("4: inside") << 123.4 << 4 << 123.4;
    QTest::newRow("4: zero") << 0.0 << 4 << 0.0;
    QTest::newRow("4: 359.9 is the high end") << 359.9 << 4 << 359.9;
    QTest::newRow("4: 359.95 becomes -0.05") << 359.95 << 4 << 359.95 - 360.0;
    QTest::newRow("4: -0.05 becomes 359.95 and goes back") << -0.05 << 4 << -0.05 + 360.0 - 360.0;
    QTest::newRow("4: 360 is 0") << 360.0 << 4 << 0.0;
    QTest::newRow("4: below") << -10.0 << 4 << 350.0;
    QTest::newRow("4: several turns below") << -730.0 << 4 << 350.0;
    QTest::newRow("4: several turns above") << 730.0 << 4 << 10.0;
    QTest::newRow("8: inside") << -90.0 << 8 << -90.0;
    QTest::newRow("8: 180 is the high end") << 180.0 << 8 << 180.0;
    QTest::newRow("8: -179.9 is the low end") << -179.9 << 8 << -179.9;
    QTest::newRow("8: -179.95 comes back") << -179.95 << 8 << -179.95 + 360.0 - 360.0;
    QTest::newRow("8: -180 is 180") << -180.0 << 8 << 180.0;
    QTest::newRow("8: above") << 270.0 << 8 << -90.0;
    QTest::newRow("8: just above") << 180.5 << 8 << -179.5;
    QTest::newRow("8: several turns above") << 730.0 << 8 << 10.0;
    QTest::newRow("8 counts before 4") << 270.0 << 12 << -90.0;
    QTest::newRow("6 is 4 with bands") << -10.0 << 6 << 350.0;
    QTest::newRow("10 is 8 with bands") << 270.0 << 10 << -90.0;
    QTest::newRow("0 leaves the value") << -730.0 << 0 << -730.0;
    QTest::newRow("1 leaves the value") << -730.0 << 1 << -730.0;
    QTest::newRow("2 leaves the value") << -730.0 << 2 << -730.0;
}

void tst_valuewrap::bearing()
{
    QFETCH(double, value);
    QFETCH(int, key);
    QFETCH(double, shown);
    QVERIFY(WrapForDisplay(value, key) == shown); // to the last bit
}

void tst_valuewrap::isAsTurnByTurn_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("4") << 4;
    QTest::newRow("8") << 8;
}

void tst_valuewrap::isAsTurnByTurn()
{
    QFETCH(int, key);
    std::mt19937_64 random(TestStage::Seed());
    for (int turn = 0; turn < 20000; ++turn) {
        double const size = std::pow(10.0, static_cast<double>(random() % 2000) / 250.0 - 3.0); // to 1e5
        double const value = std::uniform_real_distribution<double>(-size, size)(random);
        if (!(WrapForDisplay(value, key) == Expected(value, key)))
            QFAIL(qPrintable(QString::number(value, 'g', 17)));
    }
}

void tst_valuewrap::farBeyondEveryTurn_data()
{
    QTest::addColumn<double>("value");
    for (double const value : { 1e9, 1e15, 1e18, 1e300, std::numeric_limits<double>::max() }) {
        QTest::addRow("%g", value) << value;
        QTest::addRow("%g", -value) << -value;
    }
}

void tst_valuewrap::farBeyondEveryTurn()
{
    QFETCH(double, value);
    double const positive = WrapForDisplay(value, 4);
    QVERIFY2(positive > -0.1 - 1e-9 && positive <= 359.9, qPrintable(QString::number(positive)));
    double const withSign = WrapForDisplay(value, 8);
    QVERIFY2(withSign > -180.0 && withSign <= 180.0, qPrintable(QString::number(withSign)));
    QVERIFY(std::isnan(WrapForDisplay(std::numeric_limits<double>::quiet_NaN(), 4)));
    QVERIFY(std::isinf(WrapForDisplay(std::copysign(std::numeric_limits<double>::infinity(), value), 8)));
}

//! Where a turn is no whole number of the spacing of doubles, each one is rounded.
void tst_valuewrap::turnsAreRoundedAsInTheLoop()
{
    std::mt19937_64 random(TestStage::Seed());
    for (int turn = 0; turn < 300; ++turn) {
        double const value = std::uniform_real_distribution<double>(-1e19, 1e19)(random);
        double const wrapped = FoldByTurns(value, 0.0, 3.9e15, 4.000000000000003e15);
        if (!(wrapped == ByTurns(value, 0.0, 3.9e15, 4.000000000000003e15)))
            QFAIL(qPrintable(QString::number(value, 'g', 17)));
    }
}

ORIM_CORE_TEST_MAIN(tst_valuewrap)
#include "tst_valuewrap.moc"
