// SPDX-License-Identifier: MIT
#include "guicentral.h"

#include "ownstore.h"
#include "testmain.h"
#include "uniquevalues.h"

namespace {

template <class Operand>
using Maker = QString (Central::*)(QString const &, Operand, unsigned int);

template <class Operand>
using BoolMaker = decltype(static_cast<Maker<Operand>>(&Central::CreateBoolOperation));

template <class Operand>
using NumericMaker = decltype(static_cast<Maker<Operand>>(&Central::CreateNumericOperation));

static_assert(std::is_same_v<BoolMaker<QString const &>, Maker<QString const &>>);
static_assert(std::is_same_v<BoolMaker<double>, Maker<double>>);
static_assert(std::is_same_v<BoolMaker<int>, Maker<int>>);
static_assert(std::is_same_v<BoolMaker<QList<int> const &>, Maker<QList<int> const &>>);
static_assert(std::is_same_v<BoolMaker<QList<double> const &>, Maker<QList<double> const &>>);
static_assert(std::is_same_v<NumericMaker<QString const &>, Maker<QString const &>>);
static_assert(std::is_same_v<NumericMaker<double>, Maker<double>>);
static_assert(
    std::is_same_v<decltype(&Central::CreateNumericCoupler), QString (Central::*)(QString const &, double, unsigned)>);
static_assert(
    std::is_same_v<decltype(&Central::CreateSelectionCoupledToBool), QString (Central::*)(QString const &, bool)>);

QString OfDouble(Central & central, unsigned int type)
{
    return central.CreateBoolOperation(Path("source"), 5.0, type);
}

QString OfInts(Central & central, unsigned int type)
{
    return central.CreateBoolOperation(Path("source"), QList<int>{ 5, 5 }, type);
}

QString OfDoubles(Central & central, unsigned int type)
{
    return central.CreateBoolOperation(Path("source"), QList<double>{ 5.0, 5.0 }, type);
}

struct Overload
{
    char const * name; // of the operand
    QString (*create)(Central & central, unsigned int type);
};

constexpr Overload Overloads[] = {
    { "path", OfPath }, { "double", OfDouble }, { "int", OfInt }, { "ints", OfInts }, { "doubles", OfDoubles }
};

} // namespace

//! Values that panes have computed for themselves.
class tst_GuiCentralOperations : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void boolOperation_data();
    void boolOperation();
    void doubleOperandIsNotRounded();
    void listOperandInFull();
    void boolOperationIsKept();
    void boolOperationGoesWithItsResult();
    void boolOperationWithoutSource();
    void boolOperationStaysWhenItsSourceGoes();
    void boolOperationCallsNobodyTwice();
    void numericOperation_data();
    void numericOperation();
    void numericResultHasNoLimits();
    void numericOperationOutlivesItsResult();
    void numericCouplerWritesBack();
    void coupledSelection_data();
    void coupledSelection();
    void coupledSelectionIsNotTranslated();
    void coupledSelectionWithoutBool();
    void couplersOutliveTheirResults();

private:
    OwnStore<> m_store;
};

void tst_GuiCentralOperations::init() { m_store.Begin(); }

void tst_GuiCentralOperations::cleanup()
{
    Tree::Instance()->RemoveFolder(QStringLiteral("/central"));
    QCOMPARE(Left(), QStringList());
    m_store.End();
}

void tst_GuiCentralOperations::boolOperation_data()
{
    QTest::addColumn<int>("overload");
    QTest::addColumn<unsigned int>("type");
    QTest::addColumn<QVector<bool>>("answers"); // of sources 4, 5, 6
    using Answers = QVector<bool>;
    int index = 0;
    for (Overload const & row : Overloads) {
        auto const add = [&](char const * type, unsigned int code, Answers const & answers) {
            QTest::addRow("%s, %s", row.name, type) << index << code << answers;
        };
        add("equal", 0, { false, true, false });
        add("not equal", 1, { true, false, true });
        add("less", 2, { true, false, false });
        add("less or equal", 3, { true, true, false });
        add("greater", 4, { false, false, true });
        add("greater or equal", 5, { false, true, true });
        add("and", 6, { true, true, true });
        add("or", 7, { true, true, true });
        bool const isOdd = index >= 3; // a list of two and the source
        add("xor", 8, { isOdd, isOdd, isOdd });
        bool const isWhole = index != 1 && index != 4;
        add("common bits", 9, { isWhole, isWhole, isWhole });
        add("unknown", 10, { false, false, false });
        add("largest code", 0xFFFFFFFFU, { false, false, false });
        ++index;
    }
}

void tst_GuiCentralOperations::boolOperation()
{
    QFETCH(int, overload);
    QFETCH(unsigned int, type);
    QFETCH(QVector<bool>, answers);
    GuiCentralAccess central;
    auto * const source = Insert<Whole>("source");
    Insert<Whole>("operand")->SetValue(5, nullptr);
    source->SetValue(4, nullptr);
    QString const path = Overloads[overload].create(central, type);
    QCOMPARE(path, QStringLiteral("/GuiCentral/unique/boolean/UNIQUE_BOOL_0"));
    Flag const * const result = Find<Flag>(path);
    QVERIFY(result);
    QVector<bool> given;
    for (int const number : { 4, 5, 6 }) {
        source->SetValue(number, nullptr);
        given << result->GetValue();
    }
    QCOMPARE(given, answers);
}

void tst_GuiCentralOperations::doubleOperandIsNotRounded()
{
    GuiCentralAccess central;
    Insert<Whole>("source")->SetValue(5, nullptr);
    QVERIFY(Find<Flag>(central.CreateBoolOperation(Path("source"), 5.5, BoolOperation::eLess))->GetValue());
    QList<double> const several{ 5.5, 6.5 };
    QVERIFY(Find<Flag>(central.CreateBoolOperation(Path("source"), several, BoolOperation::eLess))->GetValue());
    QVERIFY(!Find<Flag>(central.CreateBoolOperation(Path("source"), several, BoolOperation::eEqual))->GetValue());
}

void tst_GuiCentralOperations::listOperandInFull()
{
    GuiCentralAccess central;
    Insert<Whole>("source")->SetValue(6, nullptr);
    QString const source = Path("source");
    for (QString const & path : { central.CreateBoolOperation(source, QList<int>{ 4, 6 }, BoolOperation::eEqual),
                                  central.CreateBoolOperation(source, QList<double>{ 4.0, 6.0 }, BoolOperation::eEqual),
                                  central.CreateBoolOperation(source, QList<int>{ 4, 5 }, BoolOperation::eGreater) })
        QVERIFY(Find<Flag>(path)->GetValue());
    for (QString const & path :
         { central.CreateBoolOperation(source, QList<int>{ 4, 7 }, BoolOperation::eGreater),
           central.CreateBoolOperation(source, QList<double>{ 4.0, 7.0 }, BoolOperation::eGreater) })
        QVERIFY(!Find<Flag>(path)->GetValue());
}

void tst_GuiCentralOperations::boolOperationIsKept()
{
    GuiCentralAccess central;
    auto * const source = Insert<Whole>("source");
    source->SetValue(5, nullptr);
    QString const first = OfInt(central, BoolOperation::eEqual);
    QString const second = OfInt(central, BoolOperation::eNotEqual);
    QCOMPARE(second, QStringLiteral("/GuiCentral/unique/boolean/UNIQUE_BOOL_1"));
    auto const & operations = GuiCentralAccess::BoolOperations(central);
    QCOMPARE(operations.size(), std::size_t(2));
    QVERIFY(operations.at(first));
    QVERIFY(operations.at(second));
    Flag const * const result = Find<Flag>(first);
    QVERIFY(result->GetValue()); // at once
    QVERIFY(result->HasObserver(&central));
    QVERIFY(result->HasObserver(operations.at(first).get()));
    QVERIFY(source->HasObserver(operations.at(first).get()));
}

void tst_GuiCentralOperations::boolOperationGoesWithItsResult()
{
    GuiCentralAccess central;
    auto * const source = Insert<Whole>("source");
    QString const first = OfInt(central, BoolOperation::eEqual);
    QString const second = OfInt(central, BoolOperation::eEqual);
    QCOMPARE(source->GetObserverCount(), 2);
    Tree::Instance()->Remove(first);
    auto const & operations = GuiCentralAccess::BoolOperations(central);
    QCOMPARE(operations.size(), std::size_t(1));
    QVERIFY(operations.at(second));
    QCOMPARE(source->GetObserverCount(), 1);
    source->SetValue(5, nullptr);
    QVERIFY(Find<Flag>(second)->GetValue());
}

void tst_GuiCentralOperations::boolOperationWithoutSource()
{
    GuiCentralAccess central;
    for (QString const & path : { QString(), Path("nobody"), QStringLiteral("/GuiCentral/unique/boolean") }) {
        Flag const * const result = Find<Flag>(central.CreateBoolOperation(path, 0, BoolOperation::eEqual));
        QVERIFY(result);
        QVERIFY(!result->GetValue());
    }
    QCOMPARE(GuiCentralAccess::BoolOperations(central).size(), std::size_t(3));
}

void tst_GuiCentralOperations::boolOperationStaysWhenItsSourceGoes()
{
    GuiCentralAccess central;
    auto * const source = Insert<Whole>("source");
    source->SetValue(5, nullptr);
    QString const path = OfInt(central, BoolOperation::eEqual);
    Tree::Instance()->Remove(Path("source"));
    QVERIFY(Find<Flag>(path)->GetValue());
    QCOMPARE(GuiCentralAccess::BoolOperations(central).size(), std::size_t(1));
}

void tst_GuiCentralOperations::boolOperationCallsNobodyTwice()
{
    GuiCentralAccess central;
    auto * const source = Insert<Whole>("source");
    QString const path = OfInt(central, BoolOperation::eEqual);
    int changes = 0;
    Witness witness(eValueChanged, [&](ValueBase *) { ++changes; });
    witness.Hear(path);
    source->SetValue(5, nullptr);
    source->SetValue(5, nullptr);
    source->SetValue(6, nullptr);
    QCOMPARE(changes, 2);
}

void tst_GuiCentralOperations::numericOperation_data()
{
    QTest::addColumn<int>("kind"); // operand by path, by number; coupler
    QTest::addColumn<unsigned int>("type");
    QTest::addColumn<double>("answer"); // of 8 and 2
    QTest::newRow("path, add") << 0 << 0U << 10.0;
    QTest::newRow("path, subtract") << 0 << 1U << 6.0;
    QTest::newRow("path, multiply") << 0 << 2U << 16.0;
    QTest::newRow("path, divide") << 0 << 3U << 4.0;
    QTest::newRow("path, unknown") << 0 << 99U << 0.0;
    QTest::newRow("number, add") << 1 << 0U << 10.0;
    QTest::newRow("number, subtract") << 1 << 1U << 6.0;
    QTest::newRow("number, minimum") << 1 << 4U << 2.0;
    QTest::newRow("number, maximum") << 1 << 5U << 8.0;
    QTest::newRow("number, mean") << 1 << 6U << 5.0;
    QTest::newRow("number, largest code") << 1 << 0xFFFFFFFFU << 0.0;
    QTest::newRow("coupler, offset") << 2 << 0U << 10.0;
    QTest::newRow("coupler, factor") << 2 << 1U << 16.0;
    QTest::newRow("coupler, quotient") << 2 << 2U << 4.0;
    QTest::newRow("coupler, mirror") << 2 << 3U << -6.0;
    QTest::newRow("coupler, reciprocal") << 2 << 4U << 0.25;
    QTest::newRow("coupler, unknown") << 2 << 5U << 0.0;
}

void tst_GuiCentralOperations::numericOperation()
{
    QFETCH(int, kind);
    QFETCH(unsigned int, type);
    QFETCH(double, answer);
    GuiCentralAccess central;
    auto * const source = Insert<Real>("source");
    Insert<Real>("operand")->SetValue(2.0, nullptr);
    QString const path = kind == 0   ? central.CreateNumericOperation(Path("source"), Path("operand"), type)
                         : kind == 1 ? central.CreateNumericOperation(Path("source"), 2.0, type)
                                     : central.CreateNumericCoupler(Path("source"), 2.0, type);
    QCOMPARE(path, QStringLiteral("/GuiCentral/unique/float/UNIQUE_FLOAT_0"));
    QCOMPARE(GuiCentralAccess::NumericOperations(central).size(), std::size_t(1));
    source->SetValue(8.0, nullptr);
    QCOMPARE(Find<Real>(path)->GetValue(), answer);
}

void tst_GuiCentralOperations::numericResultHasNoLimits()
{
    GuiCentralAccess central;
    Insert<Real>("source")->SetValue(1e300, nullptr);
    QStringList const paths{ central.CreateNumericOperation(Path("source"), Path("source"), 0U),
                             central.CreateNumericOperation(Path("source"), -3.0, 0U),
                             central.CreateNumericCoupler(Path("source"), -3.0, 0U) };
    for (QString const & path : paths) {
        Real const * const result = Find<Real>(path);
        QVERIFY(result->GetMin() == Lowest && result->GetMax() == Highest && result->GetStep() == 0.0);
        QVERIFY(!result->HasObserver(&central));
    }
    QCOMPARE(Find<Real>(paths[0])->GetValue(), 2e300);
    QCOMPARE(GuiCentralAccess::NumericOperations(central).size(), std::size_t(3));
}

void tst_GuiCentralOperations::numericOperationOutlivesItsResult()
{
    GuiCentralAccess central;
    auto * const source = Insert<Real>("source");
    QString const path = central.CreateNumericOperation(Path("source"), 1.0, 0U);
    Tree::Instance()->Remove(path);
    QCOMPARE(GuiCentralAccess::NumericOperations(central).size(), std::size_t(1));
    source->SetValue(3.0, nullptr);
    QVERIFY(!Find<Real>(path));
}

void tst_GuiCentralOperations::numericCouplerWritesBack()
{
    GuiCentralAccess central;
    auto * const source = Insert<Real>("source");
    Real * const result = Find<Real>(central.CreateNumericCoupler(Path("source"), 10.0, NumericCoupler::eFactor));
    result->SetValue(50.0, nullptr);
    QCOMPARE(source->GetValue(), 5.0);
}

void tst_GuiCentralOperations::coupledSelection_data()
{
    QTest::addColumn<bool>("inverted");
    QTest::addColumn<bool>("start");
    QTest::newRow("off, straight") << false << false;
    QTest::newRow("on, straight") << false << true;
    QTest::newRow("off, inverted") << true << false;
    QTest::newRow("on, inverted") << true << true;
}

void tst_GuiCentralOperations::coupledSelection()
{
    QFETCH(bool, inverted);
    QFETCH(bool, start);
    GuiCentralAccess central;
    auto * const flag = Insert<Flag>("flag");
    flag->SetValue(start, nullptr);
    QString const path = central.CreateSelectionCoupledToBool(Path("flag"), inverted);
    QCOMPARE(path, QStringLiteral("/GuiCentral/unique/selection/UNIQUE_SELECTION_0"));
    auto * const selection = Find<ValueSelection>(path);
    QCOMPARE(selection->GetItemCount(), 2);
    QVERIFY(*selection->GetItemAt(0) == SelectionItem(QStringLiteral("Off"), 0.0, 0));
    QVERIFY(*selection->GetItemAt(1) == SelectionItem(QStringLiteral("On"), 1.0, 1));
    QCOMPARE(selection->GetCurrentKey(), start != inverted ? 1L : 0L);
    flag->SetValue(!start, nullptr);
    QCOMPARE(selection->GetCurrentKey(), start != inverted ? 0L : 1L);
    selection->Select(start != inverted ? 1L : 0L, nullptr);
    QCOMPARE(flag->GetValue(), start);
    QCOMPARE(GuiCentralAccess::SelectionCouplers(central).size(), std::size_t(1));
    central.aboutToTerminate();
    QCOMPARE(GuiCentralAccess::SelectionCouplers(central).size(), std::size_t(0));
    QCOMPARE(flag->GetObserverCount(), 0);
}

void tst_GuiCentralOperations::coupledSelectionIsNotTranslated()
{
    GuiCentralAccess central;
    Insert<Flag>("flag");
    Reverser reverser;
    QCoreApplication::installTranslator(&reverser);
    auto const * const selection = Find<ValueSelection>(central.CreateSelectionCoupledToBool(Path("flag"), false));
    QCoreApplication::removeTranslator(&reverser);
    QCOMPARE(selection->GetItemAt(0)->GetName(), QStringLiteral("Off"));
    QCOMPARE(selection->GetItemAt(1)->GetName(), QStringLiteral("On"));
}

void tst_GuiCentralOperations::coupledSelectionWithoutBool()
{
    GuiCentralAccess central;
    Insert<Whole>("number");
    for (QString const & path : { QString(), Path("nobody"), Path("number") }) {
        auto * const selection = Find<ValueSelection>(central.CreateSelectionCoupledToBool(path, false));
        QCOMPARE(selection->GetItemCount(), 2);
        QVERIFY(!selection->GetCurrentItem());
        selection->Select(1L, nullptr);
        QCOMPARE(selection->GetCurrentKey(), 1L);
    }
    QCOMPARE(GuiCentralAccess::SelectionCouplers(central).size(), std::size_t(3));
}

void tst_GuiCentralOperations::couplersOutliveTheirResults()
{
    GuiCentralAccess central;
    auto * const source = Insert<Whole>("source");
    auto * const flag = Insert<Flag>("flag");
    QString const number = central.CreateNumericCoupler(Path("source"), 1.0, NumericCoupler::eOffset);
    QString const choice = central.CreateSelectionCoupledToBool(Path("flag"), false);
    QVERIFY(!Find<ValueSelection>(choice)->HasObserver(&central));
    Tree::Instance()->Remove(number);
    Tree::Instance()->Remove(choice);
    source->SetValue(3, nullptr);
    flag->SetValue(true, nullptr);
    QCOMPARE(GuiCentralAccess::NumericOperations(central).size(), std::size_t(1));
    QCOMPARE(GuiCentralAccess::SelectionCouplers(central).size(), std::size_t(1));
    QCOMPARE(source->GetObserverCount(), 1);
    QCOMPARE(flag->GetObserverCount(), 1);
}

ORIM_TEST_MAIN(tst_GuiCentralOperations)
#include "tst_guicentral_operations.moc"
