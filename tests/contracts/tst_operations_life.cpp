// SPDX-License-Identifier: MIT
// Operations and couplers in a tree that changes: ends, transactions, deletions and rings.
#include "operationvalues.h"

#include <algorithm>
#include <memory>
#include <string>

class tst_operations_life : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void UnknownPathsLeaveTheResult_data();
    void UnknownPathsLeaveTheResult();
    void ResultMustNotBeASource();
    void OtherTypesLeaveTheResult();
    void SameSourceTwice();
    void ExcludesItselfFromItsOwnWrites();
    void InterimValuesAreNotFollowed();
    void AStateOfASourceIsNoChange();
    void HearsTransactionsAtTheirEnd();
    void EndsInAnyOrder_data();
    void EndsInAnyOrder();
    void ValueComesBackUnheard();
    void MayBeDeletedByItsOwnResult();
    void SourceMayGoAwayWhileItIsRead();
    void SetInsideItsOwnWrite();
    void SourceOutranksTheResult();
    void RingsComeToRest_data();
    void RingsComeToRest();
    void LeavesNoObserverBehind();
};

void tst_operations_life::cleanup() { Tree::Instance()->RemoveFolder(QStringLiteral("/test")); }

void tst_operations_life::UnknownPathsLeaveTheResult_data()
{
    QTest::addColumn<bool>("hasSource");
    QTest::addColumn<bool>("hasOperand");
    QTest::newRow("no source") << false << true;
    QTest::newRow("no operand") << true << false;
    QTest::newRow("neither") << false << false;
}

void tst_operations_life::UnknownPathsLeaveTheResult()
{
    QFETCH(bool, hasSource);
    QFETCH(bool, hasOperand);
    if (hasSource)
        Make<Real>("source");
    if (hasOperand)
        Make<Real>("operand");
    auto & result = Make<Real>("result");
    auto & flag = Make<Flag>("flag");
    result.SetValue(42.0, nullptr);
    flag.SetValue(true, nullptr);
    NumericOperation const numeric(Result, Source, Operand, NumericOperation::eAdd);
    BoolOperation const boolean(QStringLiteral("/test/flag"), Source, Operand, BoolOperation::eNotEqual);
    // inserted too late to be heard
    Make<Real>("source").SetValue(1.0, nullptr);
    Make<Real>("operand").SetValue(1.0, nullptr);
    QCOMPARE(result.GetValue(), 42.0);
    QCOMPARE(flag.GetValue(), true);
    NumericOperation const nowhere(QStringLiteral("/test/nowhere"), Source, Operand, NumericOperation::eAdd);
    NumericOperation const nameless(QString(), QString(), QString(), NumericOperation::eAdd);
    NumericCoupler const coupler(QString(), Source, 1.0, NumericCoupler::eOffset);
    BoolSelectionCoupler const selection(QString(), QString(), false);
    Make<Real>("source").SetValue(2.0, nullptr);
    QCOMPARE(result.GetValue(), 42.0);
}

void tst_operations_life::ResultMustNotBeASource()
{
    auto & source = Make<Real>("source");
    source.SetValue(1.0, nullptr);
    NumericOperation const same(Source, Source, 1.0, NumericOperation::eAdd);
    NumericOperation const operand(Source, Operand, Source, NumericOperation::eAdd);
    NumericCoupler const coupler(Source, Source, 1.0, NumericCoupler::eOffset);
    QCOMPARE(source.GetValue(), 1.0);
    source.SetValue(5.0, nullptr);
    QCOMPARE(source.GetValue(), 5.0);
}

void tst_operations_life::OtherTypesLeaveTheResult()
{
    auto & text = Make<Value<QString>>("text");
    text.SetValue(QStringLiteral("12"), nullptr);
    auto & result = Make<Real>("result");
    auto & source = Make<Real>("source");
    QString const textPath = QStringLiteral("/test/text");
    result.SetValue(42.0, nullptr);
    NumericOperation const fromText(Result, textPath, 1.0, NumericOperation::eAdd);
    NumericOperation const toText(textPath, Source, 1.0, NumericOperation::eAdd);
    NumericOperation const byText(Result, Source, textPath, NumericOperation::eAdd);
    NumericCoupler const coupledText(Result, textPath, 1.0, NumericCoupler::eOffset);
    BoolOperation const boolInNumber(Result, Source, 0.0, BoolOperation::eEqual);
    BoolSelectionCoupler const noSelection(textPath, Result, false);
    source.SetValue(1.0, nullptr);
    text.SetValue(QStringLiteral("13"), nullptr);
    QCOMPARE(result.GetValue(), 42.0);
    QCOMPARE(text.GetValue(), QStringLiteral("13"));
}

void tst_operations_life::SameSourceTwice()
{
    auto & source = Make<Real>("source");
    auto & result = Make<Real>("result");
    {
        NumericOperation const square(Result, Source, Source, NumericOperation::eMultiply);
        source.SetValue(3.0, nullptr);
        QCOMPARE(result.GetValue(), 9.0);
        QCOMPARE(source.GetObserverCount(), 1);
        Tree::Instance()->Remove(Source);
        QCOMPARE(result.GetValue(), 9.0);
    }
    QCOMPARE(result.GetObserverCount(), 0);
}

void tst_operations_life::ExcludesItselfFromItsOwnWrites()
{
    auto & source = Make<Real>("source");
    auto & result = Make<Real>("result");
    NumericCoupler const coupler(Result, Source, 1.0, NumericCoupler::eOffset);
    Listener onSource;
    Listener onResult;
    source.AddObserver(&onSource);
    result.AddObserver(&onResult);
    source.SetValue(4.0, nullptr);
    QCOMPARE(onSource.codes, QVector<int>({ 3 }));
    QCOMPARE(onResult.codes, QVector<int>({ 3 }));
    result.SetValue(9.0, nullptr);
    QCOMPARE(onSource.codes, QVector<int>({ 3, 3 }));
    QCOMPARE(onResult.codes, QVector<int>({ 3, 3 }));
}

void tst_operations_life::InterimValuesAreNotFollowed()
{
    auto & source = Make<Real>("source");
    auto & result = Make<Real>("result");
    NumericOperation const operation(Result, Source, 1.0, NumericOperation::eAdd);
    source.SetInterimValue(7.0, nullptr);
    QCOMPARE(result.GetValue(), 1.0);
    result.SetValue(5.0, nullptr);
    source.SetInterimValue(8.0, nullptr);
    QCOMPARE(result.GetValue(), 5.0); // not even computed anew
    source.CommitInterimValue(nullptr);
    QCOMPARE(result.GetValue(), 9.0);
}

void tst_operations_life::AStateOfASourceIsNoChange()
{
    auto & source = Make<Real>("source");
    auto & result = Make<Flag>("result");
    BoolOperation const operation(Result, Source, 5.0, BoolOperation::eGreater);
    result.SetValue(true, nullptr);
    source.SetState(eStateDisabled, nullptr);
    QCOMPARE(result.GetValue(), true);
    source.SetName(QStringLiteral("renamed"), nullptr);
    QCOMPARE(result.GetValue(), true);
    source.SetValue(1.0, nullptr); // still followed
    QCOMPARE(result.GetValue(), false);
}

void tst_operations_life::HearsTransactionsAtTheirEnd()
{
    auto & source = Make<Real>("source");
    auto & result = Make<Real>("result");
    NumericOperation const operation(Result, Source, 1.0, NumericOperation::eAdd);
    source.StartTransaction(nullptr);
    source.SetValue(1.0, nullptr);
    source.SetValue(2.0, nullptr);
    QCOMPARE(result.GetValue(), 1.0);
    source.EndTransaction(eRangeChanged, nullptr); // whatever code it ends with
    QCOMPARE(result.GetValue(), 3.0);
}

void tst_operations_life::EndsInAnyOrder_data()
{
    QTest::addColumn<QString>("order"); // what goes: s source, o operand, r result, x the operations
    std::string order = "orsx";
    do
        QTest::newRow(order.c_str()) << QString::fromStdString(order);
    while (std::next_permutation(order.begin(), order.end()));
}

void tst_operations_life::EndsInAnyOrder()
{
    QFETCH(QString, order);
    auto & source = Make<Real>("source");
    auto & operand = Make<Real>("operand");
    auto & result = Make<Real>("result");
    Make<Flag>("flag");
    source.SetValue(3.0, nullptr);
    operand.SetValue(4.0, nullptr);
    auto sum = std::make_unique<NumericOperation>(Result, Source, Operand, NumericOperation::eAdd);
    auto coupler = std::make_unique<NumericCoupler>(Operand, Source, 1.0, NumericCoupler::eOffset);
    auto equal = std::make_unique<BoolOperation>(QStringLiteral("/test/flag"), Source, Operand, BoolOperation::eEqual);
    double last = result.GetValue();
    QCOMPARE(last, 7.0);
    QString left = QStringLiteral("sor");
    for (QChar const who : order) {
        if (who == QLatin1Char('x')) {
            sum.reset();
            coupler.reset();
            equal.reset();
        } else {
            QVERIFY(Tree::Instance()->Remove(who == QLatin1Char('s')   ? Source
                                             : who == QLatin1Char('o') ? Operand
                                                                       : Result));
            left.remove(who);
        }
        // what is left may still be written
        if (left.contains(QLatin1Char('s')))
            source.SetValue(source.GetValue() + 1.0, nullptr);
        if (left.contains(QLatin1Char('o')))
            operand.SetValue(operand.GetValue() + 2.0, nullptr);
        bool const complete = sum && left.size() == 3;
        if (left.contains(QLatin1Char('r')) && !complete)
            QCOMPARE(result.GetValue(), last);
    }
}

void tst_operations_life::ValueComesBackUnheard()
{
    Make<Real>("source").SetValue(3.0, nullptr);
    auto & result = Make<Real>("result");
    NumericOperation const operation(Result, Source, 1.0, NumericOperation::eAdd);
    Tree::Instance()->Remove(Source);
    QCOMPARE(result.GetValue(), 4.0);
    Make<Real>("source").SetValue(8.0, nullptr);
    QCOMPARE(result.GetValue(), 4.0);
}

void tst_operations_life::MayBeDeletedByItsOwnResult()
{
    auto & source = Make<Real>("source");
    auto & result = Make<Real>("result");
    auto operation = std::make_unique<NumericOperation>(Result, Source, 1.0, NumericOperation::eAdd);
    Listener listener;
    listener.action = [&operation](Observable *, TChangeCode) { operation.reset(); };
    result.AddObserver(&listener);
    source.SetValue(4.0, nullptr);
    QVERIFY(!operation);
    QCOMPARE(result.GetValue(), 5.0);
    source.SetValue(6.0, nullptr);
    QCOMPARE(result.GetValue(), 5.0);

    auto second = std::make_unique<NumericOperation>(Result, Source, 1.0, NumericOperation::eAdd);
    listener.action = [&second](Observable *, TChangeCode) {
        second.reset();
        Tree::Instance()->Remove(Result);
    };
    source.SetValue(7.0, nullptr);
    QVERIFY(!Tree::Instance()->Find(Result));
    QVERIFY(!second);
}

void tst_operations_life::SourceMayGoAwayWhileItIsRead()
{
    auto & source = Make<Real>("source");
    auto & result = Make<Real>("result");
    NumericCoupler const coupler(Result, Source, 1.0, NumericCoupler::eOffset);
    Listener listener;
    listener.action = [](Observable *, TChangeCode) { Tree::Instance()->Remove(Source); };
    result.AddObserver(&listener);
    source.SetValue(4.0, nullptr);
    QVERIFY(!Tree::Instance()->Find(Source));
    result.SetValue(9.0, nullptr);
    QCOMPARE(result.GetValue(), 9.0);
}

void tst_operations_life::SetInsideItsOwnWrite()
{
    auto & source = Make<Real>("source");
    auto & result = Make<Real>("result");
    NumericOperation const operation(Result, Source, 10.0, NumericOperation::eAdd);
    Listener listener;
    listener.action = [&source](Observable *, TChangeCode) {
        if (source.GetValue() < 5.0)
            source.SetValue(source.GetValue() + 1.0, nullptr);
    };
    result.AddObserver(&listener);
    source.SetValue(1.0, nullptr);
    QCOMPARE(source.GetValue(), 5.0);
    QCOMPARE(result.GetValue(), 15.0);
}

void tst_operations_life::SourceOutranksTheResult()
{
    auto & source = Make<Real>("source");
    auto & result = Make<Real>("result");
    NumericOperation const operation(Result, Source, 10.0, NumericOperation::eAdd);
    Listener listener;
    bool done = false;
    listener.action = [&](Observable *, TChangeCode) {
        if (done)
            return;
        done = true;
        source.SetValue(2.0, nullptr);
        result.SetValue(77.0, nullptr);
    };
    result.AddObserver(&listener);
    source.SetValue(1.0, nullptr);
    QCOMPARE(result.GetValue(), 12.0);
}

void tst_operations_life::RingsComeToRest_data()
{
    QTest::addColumn<QVector<int>>("forth"); // the codes of couplers from a to b, b to c, ... and back to a
    QTest::addColumn<QVector<double>>("constants");
    QTest::addColumn<bool>("coupled"); // else by one-way additions and products
    using Codes = QVector<int>;
    using Constants = QVector<double>;
    QTest::newRow("two that agree") << Codes{ 0, 0 } << Constants{ 1.0, -1.0 } << true;
    QTest::newRow("two that agree but for rounding") << Codes{ 1, 2 } << Constants{ 3.0, 3.0 } << true;
    QTest::newRow("two that mirror") << Codes{ 3, 3 } << Constants{ 360.0, 360.0 } << true;
    QTest::newRow("two that contradict each other") << Codes{ 0, 0 } << Constants{ 1.0, 1.0 } << true;
    QTest::newRow("two that double") << Codes{ 1, 1 } << Constants{ 2.0, 2.0 } << true;
    QTest::newRow("two that run to infinity") << Codes{ 1, 1 } << Constants{ 1e200, 1e200 } << true;
    QTest::newRow("five that contradict each other") << Codes{ 0, 0, 0, 0, 0 } << Constants{ 1, 2, 3, 4, 5 } << true;
    QTest::newRow("two additions") << Codes{ 0, 0 } << Constants{ 1.0, 1.0 } << false;
    QTest::newRow("three additions") << Codes{ 0, 0, 0 } << Constants{ 1.0, 1.0, 1.0 } << false;
    QTest::newRow("two additions that agree") << Codes{ 0, 0 } << Constants{ 1.0, -1.0 } << false;
}

void tst_operations_life::RingsComeToRest()
{
    QFETCH(QVector<int>, forth);
    QFETCH(QVector<double>, constants);
    QFETCH(bool, coupled);
    std::vector<Real *> values;
    for (int i = 0; i < forth.size(); ++i)
        values.push_back(&Make<Real>(qPrintable(QStringLiteral("ring%1").arg(i))));
    std::vector<std::unique_ptr<OperationBase>> ring;
    int told = 0;
    Listener listener;
    listener.action = [&told](Observable *, TChangeCode) { ++told; };
    for (size_t i = 0; i < values.size(); ++i) {
        QString const from = values[i]->GetPathName();
        QString const to = values[(i + 1) % values.size()]->GetPathName();
        int const code = forth[static_cast<int>(i)];
        double const constant = constants[static_cast<int>(i)];
        if (coupled)
            ring.push_back(std::make_unique<NumericCoupler>(to, from, constant, NumericCoupler::Type(code)));
        else
            ring.push_back(std::make_unique<NumericOperation>(to, from, constant, NumericOperation::Type(code)));
    }
    for (Real * const value : values)
        value->AddObserver(&listener);
    values.front()->SetValue(0.1, nullptr);
    values.back()->SetValue(7.3, nullptr);
    // at most 16 rounds of each coupler for each of the two writes, and no warning of a nesting too deep
    QVERIFY2(told <= 2 * 17 * 17 * static_cast<int>(values.size()), qPrintable(QString::number(told)));
    for (Real const * const value : values)
        QVERIFY(std::isfinite(value->GetValue()));
    if (constants[0] == 1.0 && constants[1] == -1.0)
        QVERIFY(values[1]->GetValue() == values[0]->GetValue() + 1.0);
}

void tst_operations_life::LeavesNoObserverBehind()
{
    auto & source = Make<Real>("source");
    auto & operand = Make<Real>("operand");
    auto & result = Make<Flag>("result");
    {
        BoolOperation const operation(Result, Source, Operand, BoolOperation::eLess);
        QCOMPARE(source.GetObserverCount(), 1);
        QCOMPARE(operand.GetObserverCount(), 1);
        QCOMPARE(result.GetObserverCount(), 1);
    }
    QCOMPARE(source.GetObserverCount(), 0);
    QCOMPARE(operand.GetObserverCount(), 0);
    QCOMPARE(result.GetObserverCount(), 0);
}

ORIM_CORE_TEST_MAIN(tst_operations_life)

#include "tst_operations_life.moc"
