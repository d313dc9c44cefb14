// SPDX-License-Identifier: MIT
#include "operationvalues.h"

#include <limits>

namespace {

constexpr double Nan = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();

} // namespace

class tst_operations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void TypeCodes_data();
    void TypeCodes();
    void BoolAnswers_data();
    void BoolAnswers();
    void BoolAnswersOfLists_data();
    void BoolAnswersOfLists();
    void BoolFollowsItsSource();
    void BoolFollowsItsOperand();
    void BoolComparesIntegersAsIntegers();
    void BoolTakesAnyNumber();
    void BoolUnknownCodeLeavesTheResult();
    void NumericAnswers_data();
    void NumericAnswers();
    void NumericFollowsBoth();
    void NumericLimitsOfTheResultWin();
    void NumericLeavesTheResult_data();
    void NumericLeavesTheResult();
    void NumericIsOneWay();
    void CouplerAnswers_data();
    void CouplerAnswers();
    void CouplerLosesNothingByZero_data();
    void CouplerLosesNothingByZero();
    void CouplerLimitsOfTheSourceWin();
    void CouplerLimitsOfTheResultLeaveTheSource();
    void StateAndLimitsOfTheResultAreNoWrite();
    void CouplerKeepsWhatWasTyped();
    void SelectionFollowsTheBool_data();
    void SelectionFollowsTheBool();
    void SelectionTakesTheBoolWhenItemsCome();
    void SelectionWithoutTheKeyStays();
    void SelectionWithOtherKeys();
};

void tst_operations::cleanup() { Tree::Instance()->RemoveFolder(QStringLiteral("/test")); }

void tst_operations::TypeCodes_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("expected");
    QTest::newRow("equal") << int(BoolOperation::eEqual) << 0;
    QTest::newRow("not equal") << int(BoolOperation::eNotEqual) << 1;
    QTest::newRow("less") << int(BoolOperation::eLess) << 2;
    QTest::newRow("less or equal") << int(BoolOperation::eLessEqual) << 3;
    QTest::newRow("greater") << int(BoolOperation::eGreater) << 4;
    QTest::newRow("greater or equal") << int(BoolOperation::eGreaterEqual) << 5;
    QTest::newRow("and") << int(BoolOperation::eAnd) << 6;
    QTest::newRow("or") << int(BoolOperation::eOr) << 7;
    QTest::newRow("exclusive or") << int(BoolOperation::eXor) << 8;
    QTest::newRow("common bits") << int(BoolOperation::eCommonBits) << 9;
    QTest::newRow("add") << int(NumericOperation::eAdd) << 0;
    QTest::newRow("subtract") << int(NumericOperation::eSubtract) << 1;
    QTest::newRow("multiply") << int(NumericOperation::eMultiply) << 2;
    QTest::newRow("divide") << int(NumericOperation::eDivide) << 3;
    QTest::newRow("minimum") << int(NumericOperation::eMinimum) << 4;
    QTest::newRow("maximum") << int(NumericOperation::eMaximum) << 5;
    QTest::newRow("mean") << int(NumericOperation::eMean) << 6;
    QTest::newRow("distance") << int(NumericOperation::eDistance) << 7;
    QTest::newRow("remainder") << int(NumericOperation::eRemainder) << 8;
    QTest::newRow("offset") << int(NumericCoupler::eOffset) << 0;
    QTest::newRow("factor") << int(NumericCoupler::eFactor) << 1;
    QTest::newRow("quotient") << int(NumericCoupler::eQuotient) << 2;
    QTest::newRow("mirror") << int(NumericCoupler::eMirror) << 3;
    QTest::newRow("reciprocal") << int(NumericCoupler::eReciprocal) << 4;
}

void tst_operations::TypeCodes()
{
    QFETCH(int, code);
    QFETCH(int, expected);
    QCOMPARE(code, expected);
}

void tst_operations::BoolAnswers_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<double>("source");
    QTest::addColumn<double>("operand");
    QTest::addColumn<bool>("answer");
    auto const row = [](char const * name, BoolOperation::Type type, double source, double operand, bool answer) {
        QTest::newRow(name) << static_cast<int>(type) << source << operand << answer;
    };
    row("2 == 2", BoolOperation::eEqual, 2, 2, true);
    row("2 == 3", BoolOperation::eEqual, 2, 3, false);
    row("0 == -0", BoolOperation::eEqual, 0.0, -0.0, true);
    row("2 == NaN", BoolOperation::eEqual, 2, Nan, false);
    row("2 != 2", BoolOperation::eNotEqual, 2, 2, false);
    row("2 != 3", BoolOperation::eNotEqual, 2, 3, true);
    row("2 != NaN", BoolOperation::eNotEqual, 2, Nan, true);
    row("1 < 2", BoolOperation::eLess, 1, 2, true);
    row("2 < 2", BoolOperation::eLess, 2, 2, false);
    row("3 < 2", BoolOperation::eLess, 3, 2, false);
    row("1 < NaN", BoolOperation::eLess, 1, Nan, false);
    row("1 < infinity", BoolOperation::eLess, 1, Infinity, true);
    row("1 <= 2", BoolOperation::eLessEqual, 1, 2, true);
    row("2 <= 2", BoolOperation::eLessEqual, 2, 2, true);
    row("3 <= 2", BoolOperation::eLessEqual, 3, 2, false);
    row("2 <= NaN", BoolOperation::eLessEqual, 2, Nan, false);
    row("3 > 2", BoolOperation::eGreater, 3, 2, true);
    row("2 > 2", BoolOperation::eGreater, 2, 2, false);
    row("1 > 2", BoolOperation::eGreater, 1, 2, false);
    row("3 >= 2", BoolOperation::eGreaterEqual, 3, 2, true);
    row("2 >= 2", BoolOperation::eGreaterEqual, 2, 2, true);
    row("1 >= 2", BoolOperation::eGreaterEqual, 1, 2, false);
    row("1 and 1", BoolOperation::eAnd, 1, 1, true);
    row("1 and 0", BoolOperation::eAnd, 1, 0, false);
    row("0 and 1", BoolOperation::eAnd, 0, 1, false);
    row("0.5 and -3", BoolOperation::eAnd, 0.5, -3, true);
    row("0 or 0", BoolOperation::eOr, 0, 0, false);
    row("1 or 0", BoolOperation::eOr, 1, 0, true);
    row("0 or 1", BoolOperation::eOr, 0, 1, true);
    row("0 xor 0", BoolOperation::eXor, 0, 0, false);
    row("1 xor 0", BoolOperation::eXor, 1, 0, true);
    row("0 xor 1", BoolOperation::eXor, 0, 1, true);
    row("1 xor 1", BoolOperation::eXor, 1, 1, false);
    row("no common bits of numbers that are no integers", BoolOperation::eCommonBits, 3, 3, false);
}

void tst_operations::BoolAnswers()
{
    QFETCH(int, type);
    QFETCH(double, source);
    QFETCH(double, operand);
    QFETCH(bool, answer);
    auto const code = static_cast<BoolOperation::Type>(type);
    Make<Real>("source").SetValue(source, nullptr);
    auto & result = Make<Flag>("result");
    result.SetValue(!answer, nullptr);
    BoolOperation const byNumber(Result, Source, operand, code);
    QCOMPARE(result.GetValue(), answer);
    auto & other = Make<Value<double>>("operand"); // without limits: holds NaN, too
    other.SetValue(operand, nullptr);
    auto & second = Make<Flag>("second");
    second.SetValue(!answer, nullptr);
    BoolOperation const byPath(QStringLiteral("/test/second"), Source, Operand, code);
    QCOMPARE(second.GetValue(), answer);
}

void tst_operations::BoolAnswersOfLists_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("source");
    QTest::addColumn<QList<int>>("operand");
    QTest::addColumn<bool>("answer");
    auto const row = [](char const * name, BoolOperation::Type type, int source, QList<int> const & operand,
                        bool answer) { QTest::newRow(name) << static_cast<int>(type) << source << operand << answer; };
    row("equal to one", BoolOperation::eEqual, 3, { 1, 3, 5 }, true);
    row("equal to none", BoolOperation::eEqual, 2, { 1, 3, 5 }, false);
    row("equal to nothing", BoolOperation::eEqual, 0, {}, false);
    row("not equal to any", BoolOperation::eNotEqual, 2, { 1, 3, 5 }, true);
    row("not equal to all but one", BoolOperation::eNotEqual, 3, { 1, 3, 5 }, false);
    row("not equal to nothing", BoolOperation::eNotEqual, 3, {}, true);
    row("less than each", BoolOperation::eLess, 0, { 1, 3 }, true);
    row("less than some", BoolOperation::eLess, 2, { 1, 3 }, false);
    row("less or equal", BoolOperation::eLessEqual, 1, { 1, 3 }, true);
    row("greater than each", BoolOperation::eGreater, 4, { 1, 3 }, true);
    row("greater than some", BoolOperation::eGreater, 3, { 1, 3 }, false);
    row("greater or equal", BoolOperation::eGreaterEqual, 3, { 1, 3 }, true);
    row("greater or equal to some", BoolOperation::eGreaterEqual, 2, { 1, 3 }, false);
    row("and all", BoolOperation::eAnd, 1, { 1, 2 }, true);
    row("and one that is 0", BoolOperation::eAnd, 1, { 1, 0 }, false);
    row("and nothing", BoolOperation::eAnd, 1, {}, true);
    row("or one", BoolOperation::eOr, 0, { 0, 2 }, true);
    row("or none", BoolOperation::eOr, 0, { 0, 0 }, false);
    row("three are odd", BoolOperation::eXor, 1, { 1, 1 }, true);
    row("two are even", BoolOperation::eXor, 1, { 1, 0 }, false);
    row("common bits with one", BoolOperation::eCommonBits, 6, { 1, 2 }, true);
    row("common bits with none", BoolOperation::eCommonBits, 6, { 1, 8 }, false);
    row("common bits of a negative number", BoolOperation::eCommonBits, -1, { 4 }, true);
}

void tst_operations::BoolAnswersOfLists()
{
    QFETCH(int, type);
    QFETCH(int, source);
    QFETCH(QList<int>, operand);
    QFETCH(bool, answer);
    auto const code = static_cast<BoolOperation::Type>(type);
    Make<ValueNumeric<int>>("source").SetValue(source, nullptr);
    auto & result = Make<Flag>("result");
    result.SetValue(!answer, nullptr);
    BoolOperation const operation(Result, Source, operand, code);
    QCOMPARE(result.GetValue(), answer);
    if (code == BoolOperation::eCommonBits)
        return;
    QList<double> reals;
    for (int const entry : operand)
        reals.append(entry);
    auto & second = Make<Flag>("second");
    second.SetValue(!answer, nullptr);
    BoolOperation const byReals(QStringLiteral("/test/second"), Source, reals, code);
    QCOMPARE(second.GetValue(), answer);
}

void tst_operations::BoolFollowsItsSource()
{
    auto & source = Make<ValueNumeric<int>>("source");
    auto & result = Make<Flag>("result");
    BoolOperation const operation(Result, Source, 5, BoolOperation::eGreater);
    QCOMPARE(result.GetValue(), false);
    source.SetValue(6, nullptr);
    QCOMPARE(result.GetValue(), true);
    source.SetValue(5, nullptr);
    QCOMPARE(result.GetValue(), false);
    result.SetValue(true, nullptr); // somebody else's word stands until the source changes
    QCOMPARE(result.GetValue(), true);
    source.SetValue(4, nullptr);
    QCOMPARE(result.GetValue(), false);
}

void tst_operations::BoolFollowsItsOperand()
{
    Make<Real>("source").SetValue(2.0, nullptr);
    auto & operand = Make<Real>("operand");
    auto & result = Make<Flag>("result");
    BoolOperation const operation(Result, Source, Operand, BoolOperation::eEqual);
    QCOMPARE(result.GetValue(), false);
    operand.SetValue(2.0, nullptr);
    QCOMPARE(result.GetValue(), true);
    operand.SetValue(3.0, nullptr);
    QCOMPARE(result.GetValue(), false);
}

void tst_operations::BoolComparesIntegersAsIntegers()
{
    long long const large = (1LL << 62) + 1; // the same double as its neighbours
    Make<ValueNumeric<long long>>("source").SetValue(large, nullptr);
    auto & operand = Make<ValueNumeric<long long>>("operand");
    operand.SetValue(large - 1, nullptr);
    auto & result = Make<Flag>("result");
    BoolOperation const operation(Result, Source, Operand, BoolOperation::eEqual);
    QCOMPARE(result.GetValue(), false);
    operand.SetValue(large, nullptr);
    QCOMPARE(result.GetValue(), true);
    auto & second = Make<Flag>("second");
    BoolOperation const less(QStringLiteral("/test/second"), Source, Operand, BoolOperation::eLess);
    operand.SetValue(large + 1, nullptr);
    QCOMPARE(second.GetValue(), true);
}

void tst_operations::BoolTakesAnyNumber()
{
    auto & result = Make<Flag>("result");
    auto const isTwo = [&result](char const * name) {
        result.SetValue(false, nullptr);
        BoolOperation const operation(Result, QLatin1String("/test/") + QLatin1String(name), 2, BoolOperation::eEqual);
        return result.GetValue();
    };
    Make<Value<char>>("char").SetValue(2, nullptr);
    QVERIFY(isTwo("char"));
    Make<Value<int>>("int").SetValue(2, nullptr);
    QVERIFY(isTwo("int"));
    Make<Value<long long>>("int64").SetValue(2, nullptr);
    QVERIFY(isTwo("int64"));
    Make<Value<double>>("double").SetValue(2.0, nullptr);
    QVERIFY(isTwo("double"));
    auto & selection = Make<ValueSelection>("selection");
    selection.AddItem(SelectionItem(QStringLiteral("two"), 7.0, 2));
    selection.Select(2L, nullptr);
    QVERIFY(isTwo("selection")); // its key, not its number
    Make<Flag>("bool").SetValue(true, nullptr);
    QVERIFY(!isTwo("bool"));
    BoolOperation const operation(Result, QStringLiteral("/test/bool"), 1, BoolOperation::eEqual);
    QVERIFY(result.GetValue());
}

void tst_operations::BoolUnknownCodeLeavesTheResult()
{
    auto & source = Make<Real>("source");
    auto & result = Make<Flag>("result");
    result.SetValue(true, nullptr);
    BoolOperation const operation(Result, Source, 5.0, static_cast<BoolOperation::Type>(10));
    source.SetValue(7.0, nullptr);
    QCOMPARE(result.GetValue(), true);
}

void tst_operations::NumericAnswers_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<double>("source");
    QTest::addColumn<double>("operand");
    QTest::addColumn<double>("answer");
    auto const row = [](char const * name, NumericOperation::Type type, double source, double operand, double answer) {
        QTest::newRow(name) << static_cast<int>(type) << source << operand << answer;
    };
    row("7 + 2", NumericOperation::eAdd, 7, 2, 9);
    row("7 - 2", NumericOperation::eSubtract, 7, 2, 5);
    row("7 * 2", NumericOperation::eMultiply, 7, 2, 14);
    row("7 / 2", NumericOperation::eDivide, 7, 2, 3.5);
    row("min(7, 2)", NumericOperation::eMinimum, 7, 2, 2);
    row("min(2, 7)", NumericOperation::eMinimum, 2, 7, 2);
    row("max(7, 2)", NumericOperation::eMaximum, 7, 2, 7);
    row("max(2, 7)", NumericOperation::eMaximum, 2, 7, 7);
    row("mean of 7 and 2", NumericOperation::eMean, 7, 2, 4.5);
    row("mean of huge numbers", NumericOperation::eMean, 1.7e308, 1.7e308, 1.7e308);
    row("distance of 7 and 2", NumericOperation::eDistance, 7, 2, 5);
    row("distance of 2 and 7", NumericOperation::eDistance, 2, 7, 5);
    row("7 mod 4", NumericOperation::eRemainder, 7, 4, 3);
    row("-7 mod 4", NumericOperation::eRemainder, -7, 4, -3);
    row("7 mod -4", NumericOperation::eRemainder, 7, -4, 3);
    row("1e300 mod 360", NumericOperation::eRemainder, 1e300, 360, std::fmod(1e300, 360.0));
}

void tst_operations::NumericAnswers()
{
    QFETCH(int, type);
    QFETCH(double, source);
    QFETCH(double, operand);
    QFETCH(double, answer);
    auto const code = static_cast<NumericOperation::Type>(type);
    Make<Real>("source").SetValue(source, nullptr);
    auto & result = Make<Real>("result");
    NumericOperation const byNumber(Result, Source, operand, code);
    QCOMPARE(result.GetValue(), answer);
    Make<Real>("operand").SetValue(operand, nullptr);
    auto & second = Make<Real>("second");
    NumericOperation const byPath(QStringLiteral("/test/second"), Source, Operand, code);
    QCOMPARE(second.GetValue(), answer);
}

void tst_operations::NumericFollowsBoth()
{
    auto & source = Make<Real>("source");
    auto & operand = Make<ValueNumeric<int>>("operand");
    auto & result = Make<Real>("result");
    NumericOperation const operation(Result, Source, Operand, NumericOperation::eAdd);
    source.SetValue(1.5, nullptr);
    QCOMPARE(result.GetValue(), 1.5);
    operand.SetValue(2, nullptr);
    QCOMPARE(result.GetValue(), 3.5);
    source.SetMinMax(0.0, 1.0, 0.0, nullptr); // moves the source to 1
    QCOMPARE(result.GetValue(), 3.0);
}

void tst_operations::NumericLimitsOfTheResultWin()
{
    auto & source = Make<Real>("source");
    auto & result = Make<ValueNumeric<int>>("result");
    result.SetMinMax(0, 10, 0, nullptr);
    NumericOperation const operation(Result, Source, 1.0, NumericOperation::eMultiply);
    source.SetValue(20.0, nullptr);
    QCOMPARE(result.GetValue(), 10);
    QCOMPARE(source.GetValue(), 20.0);
    source.SetValue(-1e300, nullptr);
    QCOMPARE(result.GetValue(), 0);
}

void tst_operations::NumericLeavesTheResult_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<double>("source");
    QTest::addColumn<double>("operand");
    QTest::newRow("division by 0") << 3 << 7.0 << 0.0;
    QTest::newRow("remainder of 0") << 8 << 7.0 << 0.0;
    QTest::newRow("an infinite product") << 2 << 1e200 << 1e200;
    QTest::newRow("an infinite operand") << 0 << 7.0 << Infinity;
    QTest::newRow("a NaN operand") << 0 << 7.0 << Nan;
    QTest::newRow("a NaN operand of a minimum") << 4 << 7.0 << Nan;
    QTest::newRow("a NaN operand of a maximum") << 5 << 7.0 << Nan;
    QTest::newRow("a NaN source of a minimum") << 4 << Nan << 7.0;
    QTest::newRow("an unknown code") << 9 << 7.0 << 1.0;
}

void tst_operations::NumericLeavesTheResult()
{
    QFETCH(int, type);
    QFETCH(double, source);
    QFETCH(double, operand);
    Make<Value<double>>("source").SetValue(source, nullptr);
    auto & result = Make<Real>("result");
    result.SetValue(-3.0, nullptr);
    NumericOperation const operation(Result, Source, operand, static_cast<NumericOperation::Type>(type));
    QCOMPARE(result.GetValue(), -3.0);
}

void tst_operations::NumericIsOneWay()
{
    auto & source = Make<Real>("source");
    auto & result = Make<Real>("result");
    NumericOperation const operation(Result, Source, 1.0, NumericOperation::eAdd);
    result.SetValue(50.0, nullptr);
    QCOMPARE(source.GetValue(), 0.0);
    QCOMPARE(result.GetValue(), 50.0);
}

void tst_operations::CouplerAnswers_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<double>("constant");
    QTest::addColumn<double>("source");
    QTest::addColumn<double>("result");
    QTest::addColumn<double>("newResult");
    QTest::addColumn<double>("newSource");
    QTest::newRow("offset") << 0 << 10.0 << 5.0 << 15.0 << 8.0 << -2.0;
    QTest::newRow("offset of 0") << 0 << 0.0 << 5.0 << 5.0 << 8.0 << 8.0;
    QTest::newRow("factor") << 1 << 4.0 << 5.0 << 20.0 << 8.0 << 2.0;
    QTest::newRow("quotient") << 2 << 4.0 << 8.0 << 2.0 << 5.0 << 20.0;
    QTest::newRow("mirror") << 3 << 360.0 << 90.0 << 270.0 << 10.0 << 350.0;
    QTest::newRow("mirror at 0") << 3 << 0.0 << 90.0 << -90.0 << 10.0 << -10.0;
    QTest::newRow("reciprocal") << 4 << 12.0 << 3.0 << 4.0 << 6.0 << 2.0;
    QTest::newRow("an unknown code") << 5 << 12.0 << 3.0 << 0.0 << 6.0 << 3.0;
}

void tst_operations::CouplerAnswers()
{
    QFETCH(int, type);
    QFETCH(double, constant);
    QFETCH(double, source);
    QFETCH(double, result);
    QFETCH(double, newResult);
    QFETCH(double, newSource);
    auto & s = Make<Real>("source");
    auto & r = Make<Real>("result");
    s.SetValue(source, nullptr);
    NumericCoupler const coupler(Result, Source, constant, static_cast<NumericCoupler::Type>(type));
    QCOMPARE(r.GetValue(), result);
    QCOMPARE(s.GetValue(), source);
    r.SetValue(newResult, nullptr);
    QCOMPARE(s.GetValue(), newSource);
    QCOMPARE(r.GetValue(), newResult);
    s.SetValue(source, nullptr);
    if (type != 5)
        QCOMPARE(r.GetValue(), result);
}

void tst_operations::CouplerLosesNothingByZero_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<double>("constant");
    QTest::addColumn<double>("source");
    QTest::addColumn<double>("newResult");
    QTest::newRow("factor of 0") << 1 << 0.0 << 5.0 << 8.0;
    QTest::newRow("quotient of 0") << 2 << 0.0 << 5.0 << 8.0;
    QTest::newRow("reciprocal of 0") << 4 << 0.0 << 5.0 << 8.0;
    QTest::newRow("NaN") << 0 << Nan << 5.0 << 8.0;
    QTest::newRow("infinite") << 0 << Infinity << 5.0 << 8.0;
}

void tst_operations::CouplerLosesNothingByZero()
{
    QFETCH(int, type);
    QFETCH(double, constant);
    QFETCH(double, source);
    QFETCH(double, newResult);
    auto & s = Make<Real>("source");
    auto & r = Make<Real>("result");
    s.SetValue(source, nullptr);
    r.SetValue(3.0, nullptr);
    NumericCoupler const coupler(Result, Source, constant, static_cast<NumericCoupler::Type>(type));
    QCOMPARE(r.GetValue(), 3.0);
    r.SetValue(newResult, nullptr);
    QCOMPARE(s.GetValue(), source);
    s.SetValue(source + 1.0, nullptr);
    QCOMPARE(r.GetValue(), newResult);
}

void tst_operations::CouplerLimitsOfTheSourceWin()
{
    auto & source = Make<Real>("source");
    auto & result = Make<Real>("result");
    source.SetMinMax(0.0, 10.0, 0.5, nullptr);
    NumericCoupler const coupler(Result, Source, 100.0, NumericCoupler::eFactor);
    result.SetValue(5000.0, nullptr);
    QCOMPARE(source.GetValue(), 10.0);
    QCOMPARE(result.GetValue(), 1000.0);
    result.SetValue(5000.0, nullptr); // the source does not move, and the result follows back
    QCOMPARE(result.GetValue(), 1000.0);
    result.SetValue(330.0, nullptr); // on the step grid of the source
    QCOMPARE(source.GetValue(), 3.5);
    QCOMPARE(result.GetValue(), 350.0);
}

void tst_operations::CouplerLimitsOfTheResultLeaveTheSource()
{
    auto & source = Make<Real>("source");
    auto & result = Make<Real>("result");
    result.SetMinMax(0.0, 10.0, 0.0, nullptr);
    NumericCoupler const coupler(Result, Source, 0.0, NumericCoupler::eOffset);
    source.SetValue(25.0, nullptr);
    QCOMPARE(result.GetValue(), 10.0);
    QCOMPARE(source.GetValue(), 25.0);
}

void tst_operations::StateAndLimitsOfTheResultAreNoWrite()
{
    auto & source = Make<Real>("source");
    auto & result = Make<ValueNumeric<int>>("result");
    source.SetValue(2.5, nullptr);
    NumericCoupler const coupler(Result, Source, 0.0, NumericCoupler::eOffset);
    QCOMPARE(result.GetValue(), 3);
    result.SetState(eStateDisabled, nullptr);
    QCOMPARE(source.GetValue(), 2.5);
    source.SetValue(25.0, nullptr);
    result.SetMinMax(0, 10, 0, nullptr);
    QCOMPARE(result.GetValue(), 10);
    QCOMPARE(source.GetValue(), 25.0);
    result.SetMinMax(0, 20, 0, nullptr);
    QCOMPARE(result.GetValue(), 10);
    QCOMPARE(source.GetValue(), 25.0);
    result.SetMinMax(0, 8, 0, nullptr);
    QCOMPARE(result.GetValue(), 8);
    QCOMPARE(source.GetValue(), 25.0);
    result.SetValue(7, nullptr); // a write still is one
    QCOMPARE(source.GetValue(), 7.0);
    result.SetMinMax(0, 5, 0, nullptr);
    result.SetMinMax(0, 10, 0, nullptr);
    result.SetValue(7, nullptr); // where the source stands already
    QCOMPARE(source.GetValue(), 7.0);
    result.SetValue(6, nullptr);
    QCOMPARE(source.GetValue(), 6.0);
}

void tst_operations::CouplerKeepsWhatWasTyped()
{
    auto & source = Make<Real>("source");
    auto & result = Make<Real>("result");
    NumericCoupler const coupler(Result, Source, 1e-6, NumericCoupler::eFactor);
    for (double typed = 0.1; typed < 200.0; typed += 0.7) {
        result.SetValue(typed, nullptr); // there and back is not the same number, but the operator's word stands
        QCOMPARE(result.GetValue(), typed);
        QCOMPARE(source.GetValue(), typed / 1e-6);
    }
}

void tst_operations::SelectionFollowsTheBool_data()
{
    QTest::addColumn<bool>("inverted");
    QTest::newRow("key 1 stands for true") << false;
    QTest::newRow("key 0 stands for true") << true;
}

void tst_operations::SelectionFollowsTheBool()
{
    QFETCH(bool, inverted);
    auto & flag = Make<Flag>("flag");
    auto & selection = Make<ValueSelection>("selection");
    selection.AddItem(SelectionItem(QStringLiteral("Off"), 0.0, 0));
    selection.AddItem(SelectionItem(QStringLiteral("On"), 1.0, 1));
    BoolSelectionCoupler const coupler(QStringLiteral("/test/flag"), QStringLiteral("/test/selection"), inverted);
    QVERIFY(selection.GetCurrentItem());
    QCOMPARE(selection.GetCurrentKey(), inverted ? 1L : 0L);
    flag.SetValue(true, nullptr);
    QCOMPARE(selection.GetCurrentKey(), inverted ? 0L : 1L);
    selection.Select(inverted ? 1L : 0L, nullptr);
    QCOMPARE(flag.GetValue(), false);
    selection.Select(inverted ? 0L : 1L, nullptr);
    QCOMPARE(flag.GetValue(), true);
}

void tst_operations::SelectionTakesTheBoolWhenItemsCome()
{
    auto & flag = Make<Flag>("flag");
    auto & selection = Make<ValueSelection>("selection");
    flag.SetValue(true, nullptr);
    BoolSelectionCoupler const coupler(QStringLiteral("/test/flag"), QStringLiteral("/test/selection"), false);
    QVERIFY(!selection.GetCurrentItem());
    selection.AddItem(SelectionItem(QStringLiteral("Off"), 0.0, 0));
    QVERIFY(!selection.GetCurrentItem());
    QCOMPARE(flag.GetValue(), true);
    selection.AddItem(SelectionItem(QStringLiteral("On"), 1.0, 1));
    QCOMPARE(selection.GetCurrentKey(), 1L);
    QCOMPARE(flag.GetValue(), true);
    selection.DeleteItems();
    QCOMPARE(flag.GetValue(), true);
}

void tst_operations::SelectionWithoutTheKeyStays()
{
    auto & flag = Make<Flag>("flag");
    auto & selection = Make<ValueSelection>("selection");
    selection.AddItem(SelectionItem(QStringLiteral("Off"), 0.0, 0));
    selection.Select(0L, nullptr);
    BoolSelectionCoupler const coupler(QStringLiteral("/test/flag"), QStringLiteral("/test/selection"), false);
    flag.SetValue(true, nullptr);
    QCOMPARE(selection.GetCurrentKey(), 0L);
    QCOMPARE(flag.GetValue(), true);
    selection.SetState(eStateDisabled, nullptr); // is no choice
    QCOMPARE(flag.GetValue(), true);
}

void tst_operations::SelectionWithOtherKeys()
{
    auto & flag = Make<Flag>("flag");
    auto & selection = Make<ValueSelection>("selection");
    for (long key = 0; key < 3; ++key)
        selection.AddItem(SelectionItem(QString::number(key), 0.0, key));
    BoolSelectionCoupler const coupler(QStringLiteral("/test/flag"), QStringLiteral("/test/selection"), false);
    selection.Select(2L, nullptr);
    QCOMPARE(flag.GetValue(), true);
    QCOMPARE(selection.GetCurrentKey(), 2L);
}

ORIM_CORE_TEST_MAIN(tst_operations)

#include "tst_operations.moc"
