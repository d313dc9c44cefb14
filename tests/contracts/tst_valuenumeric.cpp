// SPDX-License-Identifier: MIT
#include "valuenumeric.h"

#include "scene.h"
#include "testmain.h"

#include <cmath>
#include <limits>
#include <memory>

namespace {

constexpr int LowestInt = std::numeric_limits<int>::lowest();
constexpr int HighestInt = std::numeric_limits<int>::max();
constexpr long long LowestInt64 = std::numeric_limits<long long>::lowest();
constexpr long long HighestInt64 = std::numeric_limits<long long>::max();
constexpr double LowestDouble = std::numeric_limits<double>::lowest();
constexpr double HighestDouble = std::numeric_limits<double>::max();
constexpr double Infinite = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

//! A numeric value in limits with a listener on it.
template <class T>
struct Stage
{
    Log log;
    ValueNumeric<T> value;
    Listener a{ "a", log };
    Listener b{ "b", log };

    Stage(T min, T max, T step, T start = T())
    {
        value.SetMinMax(min, max, step, nullptr);
        value.SetValue(start, nullptr);
        value.AddObserver(&a);
        value.AddObserver(&b);
    }

    QString Seen() const
    {
        return log.Text() + QLatin1Char(' ') + value.GetStringValue() + QLatin1Char('/') +
               Number(value.GetInterimValue());
    }
};

} // namespace

class tst_valuenumeric : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ints_data();
    void ints();
    void intsFromDoubles_data();
    void intsFromDoubles();
    void int64s_data();
    void int64s();
    void int64sFromDoubles_data();
    void int64sFromDoubles();
    void doubles_data();
    void doubles();
    void snapRests();
    void nearestAgreesWithASearch();

    void codes_data();

    void codes() { PlayScene(); }

    void face_data();

    void face() { PlayScene(); }
};

void tst_valuenumeric::ints_data()
{
    QTest::addColumn<int>("min");
    QTest::addColumn<int>("max");
    QTest::addColumn<int>("step");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("stored");
    QTest::newRow("inside") << 0 << 100 << 0 << 42 << 42;
    QTest::newRow("above clamps") << 0 << 100 << 0 << 101 << 100;
    QTest::newRow("below clamps") << 0 << 100 << 0 << -1 << 0;
    QTest::newRow("nearest step down") << 0 << 100 << 10 << 44 << 40;
    QTest::newRow("nearest step up") << 0 << 100 << 10 << 46 << 50;
    QTest::newRow("halfway is upward") << 0 << 100 << 10 << 45 << 50;
    QTest::newRow("halfway is upward below zero") << -100 << 100 << 10 << -45 << -40;
    QTest::newRow("the grid counts from the minimum") << 3 << 100 << 10 << 40 << 43;
    QTest::newRow("the nearest point within the limits") << 0 << 10 << 4 << 10 << 8;
    QTest::newRow("a step larger than the range leaves the minimum") << 5 << 10 << 100 << 10 << 5;
    QTest::newRow("a range of one") << 7 << 7 << 3 << 100 << 7;
    QTest::newRow("step 1 is every number") << 0 << 100 << 1 << 43 << 43;
    QTest::newRow("a negative step is no grid") << 0 << 100 << -10 << 43 << 43;
    QTest::newRow("from 0 when the minimum is the lowest") << LowestInt << 100 << 10 << 44 << 40;
    QTest::newRow("from 0, downward") << LowestInt << 100 << 10 << -44 << -40;
    QTest::newRow("from 0, halfway is upward") << LowestInt << 100 << 10 << -45 << -40;
    QTest::newRow("from 0, a limit between two points") << LowestInt << -3 << 10 << -3 << -10;
    QTest::newRow("lowest and no grid") << LowestInt << HighestInt << 0 << LowestInt << LowestInt;
    QTest::newRow("highest and no grid") << LowestInt << HighestInt << 0 << HighestInt << HighestInt;
    QTest::newRow("no overflow at the lowest") << LowestInt << HighestInt << 10 << LowestInt << -2147483640;
    QTest::newRow("no overflow at the highest") << LowestInt << HighestInt << 10 << HighestInt << 2147483640;
    QTest::newRow("no overflow over the whole type")
        << LowestInt + 1 << HighestInt << HighestInt << HighestInt << HighestInt;
    QTest::newRow("no overflow with the largest step")
        << LowestInt << HighestInt << HighestInt << LowestInt << -HighestInt;
}

void tst_valuenumeric::ints()
{
    QFETCH(int, min);
    QFETCH(int, max);
    QFETCH(int, step);
    QFETCH(int, value);
    QFETCH(int, stored);
    ValueNumeric<int> number;
    number.SetMinMax(min, max, step, nullptr);
    number.SetValue(value, nullptr);
    QCOMPARE(number.GetValue(), stored);
    QCOMPARE(number.Snap(value), static_cast<double>(stored));
}

void tst_valuenumeric::intsFromDoubles_data()
{
    QTest::addColumn<int>("min");
    QTest::addColumn<int>("max");
    QTest::addColumn<int>("step");
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("stored");
    QTest::newRow("1e300 clamps before it converts") << 0 << 100 << 0 << 1e300 << 100;
    QTest::newRow("-1e300 clamps before it converts") << 0 << 100 << 0 << -1e300 << 0;
    QTest::newRow("infinity clamps") << 0 << 100 << 0 << Infinite << 100;
    QTest::newRow("minus infinity clamps") << 0 << 100 << 0 << -Infinite << 0;
    QTest::newRow("NaN is refused") << 5 << 100 << 0 << NotANumber << 5;
    QTest::newRow("nearest below") << 0 << 100 << 0 << 2.4999 << 2;
    QTest::newRow("halfway is upward") << 0 << 100 << 0 << 2.5 << 3;
    QTest::newRow("halfway is upward below zero") << -100 << 100 << 0 << -2.5 << -2;
    QTest::newRow("nearest to the step, not to the rounded number") << 0 << 100 << 2 << 0.9999 << 0;
    QTest::newRow("halfway between two steps") << 0 << 100 << 2 << 1.0 << 2;
    QTest::newRow("halfway of an odd step") << 0 << 100 << 5 << 2.5 << 5;
    QTest::newRow("just below halfway of an odd step") << 0 << 100 << 5 << 2.4999 << 0;
    QTest::newRow("just below the limit") << 0 << 100 << 0 << 99.7 << 100;
    QTest::newRow("just above the limit") << 0 << 100 << 0 << 100.2 << 100;
    QTest::newRow("just below the lower limit") << 0 << 100 << 0 << -0.2 << 0;
    QTest::newRow("2^31 is too much") << LowestInt << HighestInt << 0 << 2147483648.0 << HighestInt;
    QTest::newRow("-2^31 fits") << LowestInt << HighestInt << 0 << -2147483648.0 << LowestInt;
    QTest::newRow("below -2^31 clamps") << LowestInt << HighestInt << 0 << -2147483649.0 << LowestInt;
    QTest::newRow("between the highest and 2^31") << LowestInt << HighestInt << 0 << 2147483647.5 << HighestInt;
}

void tst_valuenumeric::intsFromDoubles()
{
    QFETCH(int, min);
    QFETCH(int, max);
    QFETCH(int, step);
    QFETCH(double, value);
    QFETCH(int, stored);
    ValueNumeric<int> number;
    number.SetMinMax(min, max, step, nullptr);
    number.SetNumericValue(value, nullptr);
    QCOMPARE(number.GetValue(), stored);
    QCOMPARE(number.Snap(value), static_cast<double>(stored));
    number.SetNumericValue(min, nullptr);
    number.SetInterimValue(value, nullptr);
    QCOMPARE(number.GetInterimValue(), static_cast<double>(stored));
}

void tst_valuenumeric::int64s_data()
{
    QTest::addColumn<long long>("min");
    QTest::addColumn<long long>("max");
    QTest::addColumn<long long>("step");
    QTest::addColumn<long long>("value");
    QTest::addColumn<long long>("stored");
    long long const odd = 9007199254740993LL; // 2^53 + 1 is no double
    QTest::newRow("a number that no double holds") << 0LL << HighestInt64 << 0LL << odd << odd;
    QTest::newRow("a limit that no double holds") << 0LL << odd << 0LL << odd + 1 << odd;
    QTest::newRow("a step that no double holds") << 0LL << HighestInt64 << odd << 2 * odd + 1 << 2 * odd;
    QTest::newRow("lowest") << LowestInt64 << HighestInt64 << 0LL << LowestInt64 << LowestInt64;
    QTest::newRow("highest") << LowestInt64 << HighestInt64 << 0LL << HighestInt64 << HighestInt64;
    QTest::newRow("no overflow at the lowest") << LowestInt64 << HighestInt64 << 10LL << LowestInt64 << LowestInt64 + 8;
    QTest::newRow("no overflow at the highest")
        << LowestInt64 << HighestInt64 << 10LL << HighestInt64 << HighestInt64 - 7;
    QTest::newRow("no overflow over the whole type")
        << LowestInt64 + 1 << HighestInt64 << HighestInt64 << HighestInt64 << HighestInt64;
    QTest::newRow("no overflow with the largest step")
        << LowestInt64 << HighestInt64 << HighestInt64 << LowestInt64 << -HighestInt64;
}

void tst_valuenumeric::int64s()
{
    QFETCH(long long, min);
    QFETCH(long long, max);
    QFETCH(long long, step);
    QFETCH(long long, value);
    QFETCH(long long, stored);
    ValueNumeric<long long> number;
    number.SetMinMax(min, max, step, nullptr);
    number.SetValue(value, nullptr);
    QCOMPARE(number.GetValue(), stored);
    QVERIFY(number.FromStoredText(QString::number(value), nullptr));
    QCOMPARE(number.GetValue(), stored);
    QCOMPARE(number.GetMin(), min);
    QCOMPARE(number.GetMax(), max);
    QCOMPARE(number.GetStep(), step);
}

void tst_valuenumeric::int64sFromDoubles_data()
{
    QTest::addColumn<long long>("min");
    QTest::addColumn<long long>("max");
    QTest::addColumn<double>("value");
    QTest::addColumn<long long>("stored");
    QTest::newRow("2^63 clamps") << LowestInt64 << HighestInt64 << 9223372036854775808.0 << HighestInt64;
    QTest::newRow("-2^63 fits") << LowestInt64 << HighestInt64 << -9223372036854775808.0 << LowestInt64;
    QTest::newRow("1e300 clamps") << LowestInt64 << 5LL << 1e300 << 5LL;
    QTest::newRow("below a limit that no double holds")
        << 0LL << 9007199254740993LL << 9007199254740992.0 << 9007199254740992LL;
    QTest::newRow("above a limit that no double holds")
        << 0LL << 9007199254740993LL << 9007199254740994.0 << 9007199254740993LL;
}

void tst_valuenumeric::int64sFromDoubles()
{
    QFETCH(long long, min);
    QFETCH(long long, max);
    QFETCH(double, value);
    QFETCH(long long, stored);
    ValueNumeric<long long> number;
    number.SetMinMax(min, max, 0, nullptr);
    number.SetNumericValue(value, nullptr);
    QCOMPARE(number.GetValue(), stored);
}

void tst_valuenumeric::doubles_data()
{
    QTest::addColumn<double>("min");
    QTest::addColumn<double>("max");
    QTest::addColumn<double>("step");
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("stored");
    QTest::newRow("inside") << 0.0 << 1.0 << 0.0 << 0.3 << 0.3;
    QTest::newRow("above clamps") << 0.0 << 1.0 << 0.0 << 1.5 << 1.0;
    QTest::newRow("below clamps") << 0.0 << 1.0 << 0.0 << -1.5 << 0.0;
    QTest::newRow("infinity clamps") << 0.0 << 1.0 << 0.0 << Infinite << 1.0;
    QTest::newRow("infinity without limits is the highest")
        << LowestDouble << HighestDouble << 0.0 << Infinite << HighestDouble;
    QTest::newRow("infinite limits are the ends of the type")
        << -Infinite << Infinite << 0.0 << -Infinite << LowestDouble;
    QTest::newRow("three steps of 0.1 are 0.3") << 0.0 << 1.0 << 0.1 << 0.31 << 0.3;
    QTest::newRow("a limit on the grid is reached") << 0.0 << 0.3 << 0.1 << 0.3 << 0.3;
    QTest::newRow("decimal points from a decimal minimum") << 0.1 << 10.0 << 0.1 << 0.29 << 0.3;
    QTest::newRow("decimal points below zero") << -1.0 << 1.0 << 0.1 << -0.69 << -0.7;
    QTest::newRow("a limit off the grid by rounding alone is reached") << 0.0 << 1.0 << 1.0 / 3.0 << 1.0 << 1.0;
    QTest::newRow("a limit off the grid is not reached") << 0.0 << 1.0 << 0.4 << 1.0 << 0.8;
    QTest::newRow("halfway is upward") << 0.0 << 10.0 << 0.5 << 1.25 << 1.5;
    QTest::newRow("halfway is upward below zero") << -10.0 << 10.0 << 0.5 << -1.25 << -1.0;
    QTest::newRow("the grid counts from the minimum") << 0.25 << 10.0 << 1.0 << 2.0 << 2.25;
    QTest::newRow("from 0 when the minimum is the lowest") << LowestDouble << 10.0 << 0.5 << -1.6 << -1.5;
    QTest::newRow("from 0, a limit between two points") << LowestDouble << -0.3 << 1.0 << -0.3 << -1.0;
    QTest::newRow("a negative step is no grid") << 0.0 << 1.0 << -0.1 << 0.33 << 0.33;
    QTest::newRow("a NaN step is no grid") << 0.0 << 1.0 << NotANumber << 0.33 << 0.33;
    QTest::newRow("an infinite step is no grid") << 0.0 << 1.0 << Infinite << 0.33 << 0.33;
    QTest::newRow("far ends") << -1e308 << HighestDouble << 1e308 << HighestDouble << 1e308;
    QTest::newRow("a grid finer than doubles") << 0.0 << 1e300 << 1e-300 << 1e299 << 1e299;
    QTest::newRow("time stamps in whole us") << 0.0 << 4e15 << 1.0 << 1709208000123457.25 << 1709208000123457.0;
    QTest::newRow("whole steps from a far minimum") << -2e15 << 2e15 << 1.0 << 1000000000000000.25 << 1e15;
    QTest::newRow("frequencies in steps of 12.5 kHz") << 0.0 << 3e9 << 12500.0 << 433920000.0 << 433925000.0;
}

void tst_valuenumeric::doubles()
{
    QFETCH(double, min);
    QFETCH(double, max);
    QFETCH(double, step);
    QFETCH(double, value);
    QFETCH(double, stored);
    ValueNumeric<double> number;
    number.SetMinMax(min, max, step, nullptr);
    number.SetValue(value, nullptr);
    QVERIFY2(number.GetValue() == stored, qPrintable(Number(number.GetValue())));
    QVERIFY(number.Snap(value) == stored);
}

void tst_valuenumeric::snapRests()
{
    QRandomGenerator random(static_cast<quint32>(TestStage::Seed()));
    auto const any = [&random] {
        double const size = std::pow(10.0, random.bounded(24) - 9);
        return (random.generateDouble() - 0.5) * size;
    };
    for (int turn = 0; turn < 100000; ++turn) {
        double const one = any();
        double const two = any();
        double const min = turn % 4 == 0 ? LowestDouble : std::min(one, two);
        double const max = std::max(one, two);
        double const step = std::abs(any());
        StepGrid<double> const grid(min, max, step);
        double const asked = any();
        double const point = grid.Nearest(asked);
        QVERIFY2(point >= min && point <= max, qPrintable(Number(point)));
        QVERIFY2(grid.Nearest(point) == point,
                 qPrintable(QStringLiteral("%1 %2 %3: %4 -> %5 -> %6")
                                .arg(Number(min), Number(max), Number(step), Number(asked), Number(point),
                                     Number(grid.Nearest(point)))));
    }
}

//! All small grids against a plain search among their points.
void tst_valuenumeric::nearestAgreesWithASearch()
{
    int compared = 0;
    for (int min : { LowestInt, -7, -1, 0, 3 })
        for (int max = std::max(min, -6); max < 12; max += 3)
            for (int step = 1; step < 7; ++step) {
                StepGrid<int> const grid(min, max, step);
                for (int quarter = -60; quarter <= 60; ++quarter) {
                    double const asked = quarter / 4.0;
                    double const inside = std::min<double>(std::max<double>(asked, min), max);
                    int best = 0;
                    double least = Infinite;
                    int const base = min == LowestInt ? 0 : min;
                    for (int point = base - 20 * step; point <= 40; point += step)
                        if (point >= min && point <= max && std::abs(point - inside) <= least) {
                            least = std::abs(point - inside);
                            best = point;
                        }
                    QCOMPARE(grid.NearestTo(asked), best);
                    ++compared;
                }
            }
    QVERIFY(compared > 10000);
}

void tst_valuenumeric::codes_data()
{
    SceneColumns();
    SceneRow(
        "a change takes the interim value along, without a code 23",
        [] {
            Stage<int> stage(0, 100, 0);
            stage.value.SetValue(5, &stage.b);
            return stage.Seen();
        },
        "a3 5/5");
    SceneRow(
        "what is held already is silent",
        [] {
            Stage<int> stage(0, 100, 0, 5);
            stage.value.SetValue(5, nullptr);
            stage.value.SetNumericValue(5.2, nullptr);
            return stage.Seen();
        },
        " 5/5");
    SceneRow(
        "the value held already ends a drag, silently",
        [] {
            Stage<int> stage(0, 100, 0, 50);
            stage.value.SetInterimValue(60.0, nullptr);
            stage.log.Clear();
            stage.value.SetValue(50, nullptr);
            QString const seen = stage.Seen();
            stage.value.CommitInterimValue(nullptr);
            return seen + stage.Seen();
        },
        " 50/50 50/50");
    SceneRow(
        "what clamps to the value held already ends a drag, silently",
        [] {
            Stage<double> stage(0.0, 100.0, 0.0, 100.0);
            stage.value.SetInterimValue(60.0, nullptr);
            stage.log.Clear();
            stage.value.SetNumericValue(1e300, nullptr);
            return stage.Seen();
        },
        " 100/100");
    SceneRow(
        "what clamps to the value held already is silent",
        [] {
            Stage<int> stage(0, 100, 0, 100);
            stage.value.SetValue(1000, nullptr);
            stage.value.SetNumericValue(1e300, nullptr);
            return stage.Seen();
        },
        " 100/100");
    SceneRow(
        "NaN is refused everywhere",
        [] {
            Stage<double> stage(0.0, 10.0, 0.0, 5.0);
            stage.value.SetValue(NotANumber, nullptr);
            stage.value.SetNumericValue(NotANumber, nullptr);
            stage.value.SetInterimValue(NotANumber, nullptr);
            stage.value.SetMinMax(NotANumber, 7.0, 1.0, nullptr);
            stage.value.SetMinMax(6.0, NotANumber, 1.0, nullptr);
            stage.value.SetMin(NotANumber, nullptr);
            stage.value.SetMax(NotANumber, nullptr);
            return stage.Seen() + Number(stage.value.Snap(NotANumber)) + Number(stage.value.GetMax()) +
                   Number(stage.value.GetMin());
        },
        " 5/55100");
    SceneRow(
        "an interim value notifies code 23 and leaves the value",
        [] {
            Stage<int> stage(0, 100, 10, 50);
            stage.value.SetInterimValue(68.0, &stage.b);
            stage.value.SetInterimValue(72.0, nullptr);
            return stage.Seen();
        },
        "a23 50/70");
    SceneRow(
        "an interim value clamps and snaps",
        [] {
            Stage<double> stage(0.0, 10.0, 0.5, 5.0);
            stage.value.SetInterimValue(1e300, nullptr);
            double const high = stage.value.GetInterimValue();
            stage.value.SetInterimValue(3.3, nullptr);
            return Number(high) + QLatin1Char(' ') + Number(stage.value.GetInterimValue());
        },
        "10 3.5");
    SceneRow(
        "a commit makes it the value with code 3, once",
        [] {
            Stage<int> stage(0, 100, 0, 50);
            stage.value.SetInterimValue(60.0, nullptr);
            stage.value.CommitInterimValue(&stage.b);
            stage.value.CommitInterimValue(nullptr);
            return stage.Seen();
        },
        "a23 b23 a3 60/60");
    SceneRow(
        "a commit of a long long never passes a double",
        [] {
            ValueNumeric<long long> value;
            value.SetValue(9007199254740993LL, nullptr);
            value.CommitInterimValue(nullptr);
            return value.GetStringValue();
        },
        "9007199254740993");
    SceneRow(
        "limits that leave the value alone notify code 4",
        [] {
            Stage<int> stage(0, 100, 0, 50);
            stage.value.SetMinMax(0, 60, 0, &stage.b);
            return stage.Seen();
        },
        "a4 50/50");
    SceneRow(
        "limits that move the value notify code 4, then 3",
        [] {
            Stage<int> stage(0, 100, 0, 50);
            stage.value.SetMinMax(0, 40, 0, &stage.b);
            return stage.Seen();
        },
        "a4 a3 40/40");
    SceneRow(
        "a step that moves the value",
        [] {
            Stage<int> stage(0, 100, 0, 47);
            stage.value.SetStep(10, nullptr);
            return stage.Seen();
        },
        "a4 b4 a3 b3 50/50");
    SceneRow(
        "limits that move the interim value alone notify code 4, then 23",
        [] {
            Stage<int> stage(0, 100, 0, 50);
            stage.value.SetInterimValue(90.0, nullptr);
            stage.log.Clear();
            stage.value.SetMinMax(0, 60, 0, &stage.b);
            return stage.Seen();
        },
        "a4 a23 50/60");
    SceneRow(
        "limits that move the value take a pending interim value along",
        [] {
            Stage<int> stage(0, 100, 0, 50);
            stage.value.SetInterimValue(30.0, nullptr);
            stage.log.Clear();
            stage.value.SetMinMax(0, 40, 0, &stage.b);
            return stage.Seen();
        },
        "a4 a3 40/40");
    SceneRow(
        "limits as they stand are silent",
        [] {
            Stage<int> stage(0, 100, 5, 50);
            stage.value.SetMinMax(0, 100, 5, nullptr);
            stage.value.SetMin(0, nullptr);
            stage.value.SetMax(100, nullptr);
            stage.value.SetStep(5, nullptr);
            return stage.Seen();
        },
        " 50/50");
    SceneRow(
        "limits and value stand before any code is sent",
        [] {
            Stage<int> stage(0, 100, 0, 50);
            stage.a.SetReaction([&stage](Observable *, TChangeCode) {
                stage.log.Add(QString::number(stage.value.GetMax()) + stage.value.GetStringValue());
            });
            stage.value.SetMinMax(0, 40, 0, &stage.b);
            return stage.log.Text();
        },
        "a4 4040 a3 4040");
    SceneRow(
        "turned limits are refused",
        [] {
            Stage<int> stage(0, 100, 0, 50);
            stage.value.SetMinMax(60, 40, 0, nullptr);
            return stage.Seen();
        },
        " 50/50");
    SceneRow(
        "a minimum above the maximum takes it along",
        [] {
            Stage<int> stage(0, 100, 0, 50);
            stage.value.SetMin(200, nullptr);
            stage.value.SetMax(300, nullptr);
            return stage.Seen() + QStringLiteral(" %1..%2").arg(stage.value.GetMin()).arg(stage.value.GetMax());
        },
        "a4 b4 a3 b3 a4 b4 200/200 200..300");
    SceneRow(
        "a maximum below the minimum takes it along",
        [] {
            Stage<int> stage(0, 100, 0, 50);
            stage.value.SetMax(-5, nullptr);
            return QStringLiteral("%1..%2").arg(stage.value.GetMin()).arg(stage.value.GetMax());
        },
        "-5..-5");
    SceneRow(
        "a value deleted at code 4 sends no code 3",
        [] {
            Log log;
            auto value = std::make_unique<ValueNumeric<int>>();
            value->SetValue(50, nullptr);
            Listener a("a", log, [&value](Observable *, TChangeCode code) {
                if (code == eRangeChanged)
                    value.reset();
            });
            value->AddObserver(&a);
            value->SetMinMax(0, 40, 0, nullptr);
            return log.Text();
        },
        "a4 a2");
    SceneRow(
        "a text for people is clamped",
        [] {
            Stage<int> stage(0, 100, 0, 5);
            bool const read = stage.value.SetStringValue(QStringLiteral("400"), nullptr);
            return YesNo(read) + stage.Seen();
        },
        "yesa3 b3 100/100");
    SceneRow(
        "a stored text is clamped, and no number changes nothing",
        [] {
            Stage<double> stage(0.0, 10.0, 0.0, 5.0);
            bool const high = stage.value.FromStoredText(QStringLiteral("1e6"), nullptr);
            bool const none = stage.value.FromStoredText(QStringLiteral("nan"), nullptr);
            return YesNo(high) + YesNo(none) + stage.Seen();
        },
        "yesnoa3 b3 10/10");
}

void tst_valuenumeric::face_data()
{
    SceneColumns();
    SceneRow(
        "the face of an int",
        [] {
            ValueNumeric<int> value(QStringLiteral("n"), eStateDisabled);
            value.SetMinMax(-5, 10, 5, nullptr);
            IValueNumeric & face = value;
            face.SetNumericValue(9.0, nullptr);
            return QStringList{ Number(face.GetNumericValue()), Number(face.GetNumericMin()),
                                Number(face.GetNumericMax()),   Number(face.GetNumericStep()),
                                Number(face.Snap(-4.0)),        QString::number(face.GetState()),
                                face.GetValueBase()->GetName() }
                .join(QLatin1Char(' '));
        },
        "10 -5 10 5 -5 2 n");
    SceneRow(
        "the ends of a new value are those of its type",
        [] {
            ValueNumeric<double> value;
            return YesNo(value.GetMin() == LowestDouble && value.GetMax() == HighestDouble && value.GetStep() == 0.0);
        },
        "yes");
    SceneRow(
        "the ends of a new long long are those of its type",
        [] {
            ValueNumeric<long long> value;
            return YesNo(value.GetMin() == LowestInt64 && value.GetMax() == HighestInt64 && value.GetStep() == 0);
        },
        "yes");
    SceneRow(
        "both faces speak as one observable",
        [] {
            ValueNumeric<double> value;
            IValueNumeric * const face = &value;
            ValueBase * const base = &value;
            return YesNo(static_cast<Observable *>(face) == static_cast<Observable *>(base));
        },
        "yes");
    SceneRow(
        "a value made here is known to the library by a checked cast",
        [] {
            std::unique_ptr<ValueBase> const value = std::make_unique<ValueNumeric<double>>();
            std::unique_ptr<ValueBase> const plain = std::make_unique<Value<double>>();
            plain->FromStoredText(QStringLiteral("2.5"), nullptr);
            bool const assigned = value->Assign(*plain);
            return YesNo(assigned) + YesNo(dynamic_cast<IValueNumeric *>(value.get())) +
                   YesNo(dynamic_cast<ValueNumeric<double> *>(value.get())) +
                   YesNo(dynamic_cast<Value<double> *>(value.get())) +
                   YesNo(dynamic_cast<ValueNumeric<int> *>(value.get())) + value->GetStringValue();
        },
        "yesyesyesyesno2.5");
}

ORIM_CORE_TEST_MAIN(tst_valuenumeric)
#include "tst_valuenumeric.moc"
