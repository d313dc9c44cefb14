// SPDX-License-Identifier: MIT
#include "rangefold.h"

#include "testmain.h"

#include <cmath>
#include <limits>
#include <optional>
#include <random>

namespace {

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();

//! The two loops as they stand, for as long as we care to wait.
std::optional<double> LiteralLoops(double value, double start, double stop, long turns)
{
    while (value <= start && turns-- > 0)
        value += stop - start;
    while (value >= stop && turns-- > 0)
        value -= stop - start;
    return turns > 0 ? std::optional<double>(value) : std::nullopt;
}

} // namespace

class tst_rangefold : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void folds_data();
    void folds();
    void equalsTheLoopsNearTheBounds_data();
    void equalsTheLoopsNearTheBounds();
    void equalsTheLoopsFarAway_data();
    void equalsTheLoopsFarAway();
    void equalsTheLoopsAnywhere();
    void endsWhereTheLoopsDoNot_data();
    void endsWhereTheLoopsDoNot();
};

void tst_rangefold::folds_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<double>("folded");
    QTest::newRow("inside stays") << 90.0 << 0.0 << 360.0 << 90.0;
    QTest::newRow("the start is lifted and folded back") << 0.0 << 0.0 << 360.0 << 0.0;
    QTest::newRow("the stop is folded") << 360.0 << 0.0 << 360.0 << 0.0;
    QTest::newRow("above") << 725.0 << 0.0 << 360.0 << 5.0;
    QTest::newRow("below") << -5.0 << 0.0 << 360.0 << 355.0;
    QTest::newRow("about zero") << 181.0 << -180.0 << 180.0 << -179.0;
    QTest::newRow("NaN") << NaN << 0.0 << 360.0 << NaN;
    QTest::newRow("infinite has no rest") << Infinity << 0.0 << 360.0 << NaN;
    QTest::newRow("minus infinite has no rest") << -Infinity << 0.0 << 360.0 << NaN;
}

void tst_rangefold::folds()
{
    QFETCH(double, value);
    QFETCH(double, start);
    QFETCH(double, stop);
    QFETCH(double, folded);
    double const result = FoldIntoRange(value, start, stop);
    QVERIFY(result == folded || (std::isnan(result) && std::isnan(folded)));
}

void tst_rangefold::equalsTheLoopsNearTheBounds_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::newRow("0 .. 360") << 0.0 << 360.0;
    QTest::newRow("-180 .. 180") << -180.0 << 180.0;
    QTest::newRow("-30 .. 30") << -30.0 << 30.0;
    QTest::newRow("0.1 .. 0.7") << 0.1 << 0.7;
    QTest::newRow("1e6 .. 1e6 + 0.3") << 1e6 << 1e6 + 0.3;
    QTest::newRow("-1e6 - 0.3 .. -1e6") << -1e6 - 0.3 << -1e6;
    QTest::newRow("1e-300 wide") << 0.0 << 1e-300;
}

void tst_rangefold::equalsTheLoopsNearTheBounds()
{
    QFETCH(double, start);
    QFETCH(double, stop);
    for (int turn = -40; turn <= 40; ++turn)
        for (double const bound : { start, stop }) {
            double const edge = bound + turn * (stop - start);
            for (double const value : { std::nextafter(edge, -Infinity), edge, std::nextafter(edge, Infinity) }) {
                auto const literal = LiteralLoops(value, start, stop, 1000);
                QVERIFY(literal.has_value());
                QCOMPARE(FoldIntoRange(value, start, stop) == *literal, true);
            }
        }
}

void tst_rangefold::equalsTheLoopsFarAway_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::newRow("a million turns up, exact") << 360e6 + 123.0 << 0.0 << 360.0;
    QTest::newRow("a million turns down, exact") << -360e6 - 123.0 << 0.0 << 360.0;
    QTest::newRow("a million turns up, every turn rounds") << 1e5 << 0.0 << 0.1;
    QTest::newRow("a million turns down, every turn rounds") << -1e5 << 0.0 << 0.1;
    QTest::newRow("two million turns, an extent of three tenths") << 6e5 + 0.05 << 0.1 << 0.4;
    QTest::newRow("through zero into a far range") << -1e5 << 1e5 << 1e5 + 0.3;
    QTest::newRow("through zero down into a far range") << 1e5 << -1e5 << -1e5 + 0.3;
    QTest::newRow("turns of half the spacing of doubles: ties to even") << 0x1p53 - 2.0 << 0.0 << 0x1p34 + 0.5;
    QTest::newRow("turns of one and a half spacings: ties to even") << 0x1p53 + 0x1p22 << 0x1p53 << 0x1p53 + 4.0;
    QTest::newRow("an odd number of halves") << 0x1p40 + 1.0 / 512 << 0.0 << 0x1p22 + 1.0 / 8192 + 1.0 / 4096;
}

void tst_rangefold::equalsTheLoopsFarAway()
{
    QFETCH(double, value);
    QFETCH(double, start);
    QFETCH(double, stop);
    auto const literal = LiteralLoops(value, start, stop, 20'000'000);
    QVERIFY(literal.has_value());
    QVERIFY(FoldIntoRange(value, start, stop) == *literal);
}

void tst_rangefold::equalsTheLoopsAnywhere()
{
    std::mt19937_64 random(TestStage::Seed());
    std::uniform_real_distribution<double> exponent(-3.0, 5.0);
    std::uniform_real_distribution<double> side(-1.0, 1.0);
    int const turns = TestStage::Sanitized() ? 2000 : 20000;
    for (int i = 0; i < turns; ++i) {
        double const start = std::copysign(std::pow(10.0, exponent(random)), side(random));
        double const stop = start + std::pow(10.0, exponent(random));
        double const value = std::copysign(std::pow(10.0, exponent(random)), side(random));
        auto const literal = LiteralLoops(value, start, stop, 5000);
        if (literal)
            QVERIFY2(FoldIntoRange(value, start, stop) == *literal, qPrintable(QStringLiteral("%1 in %2 .. %3")
                                                                                   .arg(value, 0, 'g', 17)
                                                                                   .arg(start, 0, 'g', 17)
                                                                                   .arg(stop, 0, 'g', 17)));
    }
}

void tst_rangefold::endsWhereTheLoopsDoNot_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::newRow("too large to move") << 1e300 << 0.0 << 360.0;
    QTest::newRow("too large to move, negative") << -1e300 << 0.0 << 360.0;
    QTest::newRow("2^62") << 0x1p62 << -180.0 << 180.0;
    QTest::newRow("a tiny extent") << 1.0 << 0.0 << 1e-300;
    QTest::newRow("a denormal extent") << 1.0 << 0.0 << 5e-324;
    QTest::newRow("as many turns as there are doubles") << 0x1p52 << 0.0 << 1.0;
}

void tst_rangefold::endsWhereTheLoopsDoNot()
{
    QFETCH(double, value);
    QFETCH(double, start);
    QFETCH(double, stop);
    double const result = FoldIntoRange(value, start, stop);
    QVERIFY2(result >= start && result < stop, qPrintable(QString::number(result, 'g', 17)));
}

ORIM_CORE_TEST_MAIN(tst_rangefold)
#include "tst_rangefold.moc"
