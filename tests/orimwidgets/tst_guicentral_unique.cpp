// SPDX-License-Identifier: MIT
#include "guicentral.h"

#include "guibase.h"
#include "ownstore.h"
#include "testmain.h"
#include "undorecording.h"
#include "uniquevalues.h"

#include <QLocale>
#include <QUndoStack>

namespace {

static_assert(std::is_same_v<decltype(&Central::CreateUniqueName), QString (Central::*)()>);
static_assert(std::is_same_v<decltype(&Central::CreateUniqueValueBoolean), QString (Central::*)(bool)>);
static_assert(std::is_same_v<decltype(&Central::CreateUniqueValueChar), QString (Central::*)(char)>);
static_assert(std::is_same_v<decltype(&Central::CreateUniqueValueInt), QString (Central::*)(int, int, int, int)>);
static_assert(std::is_same_v<decltype(&Central::CreateUniqueValueInt64),
                             QString (Central::*)(long long, long long, long long, long long)>);
static_assert(
    std::is_same_v<decltype(&Central::CreateUniqueValueFloat), QString (Central::*)(double, double, double, double)>);
static_assert(std::is_same_v<decltype(&Central::CreateUniqueValueString), QString (Central::*)(QString const &)>);
static_assert(std::is_same_v<decltype(&Central::CreateUniqueValueCString), QString (Central::*)(std::string const &)>);
static_assert(std::is_same_v<decltype(&Central::CreateUniqueValueSelection), QString (Central::*)(ValueSelection *)>);
static_assert(std::is_same_v<decltype(&Central::CloneUniqueValueInt), QString (Central::*)(Whole *)>);
static_assert(std::is_same_v<decltype(&Central::CloneUniqueValueFloat), QString (Central::*)(Real *)>);

struct ToldItem
{
    char const * text;
    double value;
    long key;
};

constexpr ToldItem AgeingSteps[] = { { "Off", 0.0, 0 },       { "1 s", 1.0, 1 },    { "2 s", 2.0, 2 },
                                     { "3 s", 3.0, 3 },       { "4 s", 4.0, 4 },    { "5 s", 5.0, 5 },
                                     { "10 s", 10.0, 10 },    { "20 s", 20.0, 20 }, { "30 s", 30.0, 30 },
                                     { "Infinite", -1.0, -1 } };

constexpr ToldItem HistogramTiles[] = { { "Screen / none", 0.0, 0 }, { "0.1 degree", 0.1, 1 }, { "0.2 degree", 0.2, 2 },
                                        { "0.5 degree", 0.5, 3 },    { "1.0 degree", 1.0, 4 }, { "2.0 degree", 2.0, 5 },
                                        { "3.0 degree", 3.0, 6 } };

} // namespace

//! Values that panes have made for themselves.
class tst_GuiCentralUnique : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void creates_data();
    void creates();
    void kindsCountApart();
    void stringsCountTogether();
    void names();
    void nameAfterTheLargestNumber();
    void numbersAreNotGrouped();
    void countersInOrder();
    void pathInUse();
    void leavesNothingToUndo();
    void floatLimits_data();
    void floatLimits();
    void intLimits_data();
    void intLimits();
    void int64Limits_data();
    void int64Limits();
    void charsAndBools_data();
    void charsAndBools();
    void oddStrings_data();
    void oddStrings();
    void selectionOfTemplate();
    void selectionOfTemplateWithoutChoice();
    void selectionOfAnotherUniqueOne();
    void emptySelection();
    void ageingSteps_data();
    void ageingSteps();
    void histogramTiles_data();
    void histogramTiles();
    void defaultChoice();
    void itemsAreTranslated();
    void cloneInt();
    void cloneFloat();
    void cloneDuringADrag();
    void cloneOfNullInt();
    void cloneOfNullFloat();

private:
    OwnStore<> m_store;
};

void tst_GuiCentralUnique::init() { m_store.Begin(); }

void tst_GuiCentralUnique::cleanup()
{
    Tree::Instance()->RemoveFolder(QStringLiteral("/central"));
    QCOMPARE(Left(), QStringList());
    m_store.End();
}

void tst_GuiCentralUnique::creates_data()
{
    QTest::addColumn<int>("index");
    int index = 0;
    for (Creator const & creator : Creators)
        QTest::newRow(creator.row) << index++;
}

void tst_GuiCentralUnique::creates()
{
    QFETCH(int, index);
    Creator const & creator = Creators[index];
    GuiCentralAccess central;
    for (int number = 0; number < 12; ++number) {
        QString const path = creator.create(central);
        QCOMPARE(path, QLatin1String(creator.path) + QString::number(number));
        ValueBase const * const value = Tree::Instance()->Find(path);
        QVERIFY(value);
        QCOMPARE(value->GetPathName(), path);
        QCOMPARE(value->GetName(), path.mid(path.lastIndexOf(QLatin1Char('/')) + 1));
        QCOMPARE(value->GetState(), eStateValid);
        QCOMPARE(value->GetType(), creator.type);
        QCOMPARE(value->GetStringValue(), QLatin1String(creator.text));
        QCOMPARE(value->GetObserverCount(), 0);
    }
    QCOMPARE(Left().size(), 12);
}

void tst_GuiCentralUnique::kindsCountApart()
{
    GuiCentralAccess central;
    for (Creator const & creator : Creators)
        if (creator.type != eTypeCString)
            QCOMPARE(creator.create(central), QLatin1String(creator.path) + QStringLiteral("0"));
    QCOMPARE(central.CreateUniqueName(), QStringLiteral("UNIQUE_NAME_0"));
}

void tst_GuiCentralUnique::stringsCountTogether()
{
    GuiCentralAccess central;
    QString const folder = QStringLiteral("/GuiCentral/unique/string/");
    QCOMPARE(central.CreateUniqueValueString(QStringLiteral("a")), folder + QStringLiteral("UNIQUE_STRING_0"));
    QCOMPARE(central.CreateUniqueValueCString("b"), folder + QStringLiteral("UNIQUE_STRING_1"));
    QCOMPARE(central.CreateUniqueValueString(QStringLiteral("c")), folder + QStringLiteral("UNIQUE_STRING_2"));
    QVERIFY(Find<Value<std::string>>(folder + QStringLiteral("UNIQUE_STRING_1")));
}

void tst_GuiCentralUnique::names()
{
    GuiCentralAccess central;
    int const values = Tree::Instance()->GetCount();
    for (int number = 0; number < 12; ++number)
        QCOMPARE(central.CreateUniqueName(), QStringLiteral("UNIQUE_NAME_%1").arg(number));
    QCOMPARE(Tree::Instance()->GetCount(), values);
}

void tst_GuiCentralUnique::nameAfterTheLargestNumber()
{
    GuiCentralAccess central;
    *GuiCentralAccess::Counts(central)[7] = IntHighest;
    QCOMPARE(central.CreateUniqueName(), QStringLiteral("UNIQUE_NAME_2147483647"));
    QCOMPARE(central.CreateUniqueName(), QStringLiteral("UNIQUE_NAME_-2147483648"));
}

void tst_GuiCentralUnique::numbersAreNotGrouped()
{
    GuiCentralAccess central;
    QLocale const before;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    for (int * const count : GuiCentralAccess::Counts(central))
        *count = 1234567;
    QString const name = central.CreateUniqueName();
    QStringList paths;
    for (Creator const & creator : Creators) {
        *GuiCentralAccess::Counts(central)[6] = 1234567; // two of them make strings
        paths << creator.create(central);
        Tree::Instance()->Remove(paths.back());
    }
    QLocale::setDefault(before);
    for (int * const count : GuiCentralAccess::Counts(central))
        *count = 0; // nothing is left to be looked for
    QCOMPARE(name, QStringLiteral("UNIQUE_NAME_1234567"));
    for (int i = 0; i < paths.size(); ++i)
        QCOMPARE(paths[i], QLatin1String(Creators[i].path) + QStringLiteral("1234567"));
}

void tst_GuiCentralUnique::countersInOrder()
{
    GuiCentralAccess central;
    auto const counts = GuiCentralAccess::Counts(central);
    for (std::size_t i = 0; i < counts.size(); ++i) {
        QCOMPARE(*counts[i], 0);
        if (i > 0)
            QCOMPARE(counts[i], counts[i - 1] + 1);
    }
}

void tst_GuiCentralUnique::pathInUse()
{
    GuiCentralAccess central;
    auto * const foreign = new Flag(QStringLiteral("UNIQUE_INT_0"));
    Tree::Instance()->Insert(QStringLiteral("/GuiCentral/unique/int"), foreign);
    QString const path = central.CreateUniqueValueInt(1, 0, 2, 0);
    QCOMPARE(path, QStringLiteral("/GuiCentral/unique/int/UNIQUE_INT_0"));
    QCOMPARE(Tree::Instance()->Find(path), foreign);
    QCOMPARE(central.CreateUniqueValueInt(1, 0, 2, 0), QStringLiteral("/GuiCentral/unique/int/UNIQUE_INT_1"));
}

void tst_GuiCentralUnique::leavesNothingToUndo()
{
    GuiCentralAccess central;
    auto * const source = Insert<Whole>("source");
    source->SetValue(3, nullptr);
    Insert<Flag>("flag");
    int const before = GuiBase::Instance().UndoStack()->count();
    {
        GuiUndoRecordingHelper const helper(nullptr, QStringLiteral("Open a pane"));
        for (Creator const & creator : Creators)
            creator.create(central);
        central.CreateUniqueAgeingStepsSelection();
        central.CloneUniqueValueInt(source);
        central.CreateBoolOperation(Path("source"), 3, BoolOperation::eEqual);
        central.CreateNumericOperation(Path("source"), 2.0, NumericOperation::eAdd);
        central.CreateNumericCoupler(Path("source"), 2.0, NumericCoupler::eOffset);
        central.CreateSelectionCoupledToBool(Path("flag"), false);
    }
    QCOMPARE(GuiBase::Instance().UndoStack()->count(), before);
    {
        GuiUndoRecordingHelper const helper(nullptr, QStringLiteral("Open a pane, and set"));
        central.CreateNumericCoupler(Path("source"), 2.0, NumericCoupler::eOffset);
        source->SetValue(4, nullptr); // by the operator
    }
    QCOMPARE(GuiBase::Instance().UndoStack()->count(), before + 1);
    GuiBase::Instance().UndoStack()->undo();
    QCOMPARE(source->GetValue(), 3);
}

void tst_GuiCentralUnique::floatLimits_data()
{
    QTest::addColumn<QVector<double>>("given"); // value, minimum, maximum, step
    QTest::addColumn<QVector<double>>("kept");
    double const nan = qQNaN();
    QTest::newRow("inside") << QVector<double>{ 1.5, -2.0, 3.0, 0.0 } << QVector<double>{ 1.5, -2.0, 3.0, 0.0 };
    QTest::newRow("above") << QVector<double>{ 4.0, -2.0, 3.0, 0.0 } << QVector<double>{ 3.0, -2.0, 3.0, 0.0 };
    QTest::newRow("below") << QVector<double>{ -4.0, -2.0, 3.0, 0.0 } << QVector<double>{ -2.0, -2.0, 3.0, 0.0 };
    QTest::newRow("range without 0") << QVector<double>{ 15.0, 10.0, 20.0, 0.0 }
                                     << QVector<double>{ 15.0, 10.0, 20.0, 0.0 };
    QTest::newRow("step") << QVector<double>{ 1.4, 0.0, 10.0, 0.5 } << QVector<double>{ 1.5, 0.0, 10.0, 0.5 };
    QTest::newRow("all doubles") << QVector<double>{ Highest, Lowest, Highest, 0.0 }
                                 << QVector<double>{ Highest, Lowest, Highest, 0.0 };
    QTest::newRow("swapped limits") << QVector<double>{ 5.0, 3.0, -2.0, 0.0 }
                                    << QVector<double>{ 5.0, Lowest, Highest, 0.0 };
    QTest::newRow("no value") << QVector<double>{ nan, -2.0, 3.0, 0.0 } << QVector<double>{ 0.0, -2.0, 3.0, 0.0 };
    QTest::newRow("no value, range without 0")
        << QVector<double>{ nan, 2.0, 3.0, 0.0 } << QVector<double>{ 2.0, 2.0, 3.0, 0.0 };
    QTest::newRow("no limit") << QVector<double>{ 5.0, nan, 3.0, 0.0 } << QVector<double>{ 5.0, Lowest, Highest, 0.0 };
    QTest::newRow("negative step") << QVector<double>{ 1.4, 0.0, 10.0, -0.5 } << QVector<double>{ 1.4, 0.0, 10.0, 0.0 };
    QTest::newRow("no step") << QVector<double>{ 1.4, 0.0, 10.0, nan } << QVector<double>{ 1.4, 0.0, 10.0, 0.0 };
}

void tst_GuiCentralUnique::floatLimits()
{
    QFETCH(QVector<double>, given);
    QFETCH(QVector<double>, kept);
    GuiCentralAccess central;
    Real const * const value = Find<Real>(central.CreateUniqueValueFloat(given[0], given[1], given[2], given[3]));
    QVERIFY(value);
    QCOMPARE(value->GetValue(), kept[0]);
    QCOMPARE(value->GetInterimValue(), kept[0]);
    QCOMPARE(value->GetMin(), kept[1]);
    QCOMPARE(value->GetMax(), kept[2]);
    QCOMPARE(value->GetStep(), kept[3]);
}

void tst_GuiCentralUnique::intLimits_data()
{
    QTest::addColumn<QVector<int>>("given"); // value, minimum, maximum, step
    QTest::addColumn<QVector<int>>("kept");
    QTest::newRow("inside") << QVector<int>{ 1, -2, 3, 0 } << QVector<int>{ 1, -2, 3, 0 };
    QTest::newRow("above") << QVector<int>{ 4, -2, 3, 1 } << QVector<int>{ 3, -2, 3, 1 };
    QTest::newRow("below") << QVector<int>{ -4, -2, 3, 1 } << QVector<int>{ -2, -2, 3, 1 };
    QTest::newRow("range without 0") << QVector<int>{ 15, 10, 20, 0 } << QVector<int>{ 15, 10, 20, 0 };
    QTest::newRow("step") << QVector<int>{ 14, 0, 100, 10 } << QVector<int>{ 10, 0, 100, 10 };
    QTest::newRow("all ints") << QVector<int>{ IntLowest, IntLowest, IntHighest, 0 }
                              << QVector<int>{ IntLowest, IntLowest, IntHighest, 0 };
    QTest::newRow("swapped limits") << QVector<int>{ 5, 3, -2, 0 } << QVector<int>{ 5, IntLowest, IntHighest, 0 };
}

void tst_GuiCentralUnique::intLimits()
{
    QFETCH(QVector<int>, given);
    QFETCH(QVector<int>, kept);
    GuiCentralAccess central;
    Whole const * const value = Find<Whole>(central.CreateUniqueValueInt(given[0], given[1], given[2], given[3]));
    QVERIFY(value);
    QCOMPARE(QVector<int>({ value->GetValue(), value->GetMin(), value->GetMax(), value->GetStep() }), kept);
}

void tst_GuiCentralUnique::int64Limits_data()
{
    QTest::addColumn<QVector<long long>>("given"); // value, minimum, maximum, step
    QTest::addColumn<QVector<long long>>("kept");
    using Row = QVector<long long>;
    QTest::newRow("beyond an int") << Row{ 5000000000, -6000000000, 6000000000, 1 }
                                   << Row{ 5000000000, -6000000000, 6000000000, 1 };
    QTest::newRow("above") << Row{ 4, -2, 3, 0 } << Row{ 3, -2, 3, 0 };
    QTest::newRow("below") << Row{ -4, -2, 3, 0 } << Row{ -2, -2, 3, 0 };
    QTest::newRow("step") << Row{ 14, 0, 100, 10 } << Row{ 10, 0, 100, 10 };
    QTest::newRow("all of them") << Row{ LongHighest, LongLowest, LongHighest, 0 }
                                 << Row{ LongHighest, LongLowest, LongHighest, 0 };
    QTest::newRow("swapped limits") << Row{ 5, 3, -2, 0 } << Row{ 5, LongLowest, LongHighest, 0 };
}

void tst_GuiCentralUnique::int64Limits()
{
    QFETCH(QVector<long long>, given);
    QFETCH(QVector<long long>, kept);
    GuiCentralAccess central;
    auto const * const value =
        Find<ValueNumeric<long long>>(central.CreateUniqueValueInt64(given[0], given[1], given[2], given[3]));
    QVERIFY(value);
    QCOMPARE(QVector<long long>({ value->GetValue(), value->GetMin(), value->GetMax(), value->GetStep() }), kept);
}

void tst_GuiCentralUnique::charsAndBools_data()
{
    QTest::addColumn<int>("number");
    for (int const number : { 0, 1, 65, 127, -1, -128 })
        QTest::addRow("%d", number) << number;
}

void tst_GuiCentralUnique::charsAndBools()
{
    QFETCH(int, number);
    GuiCentralAccess central;
    auto const letter = static_cast<char>(number);
    QCOMPARE(Find<Value<char>>(central.CreateUniqueValueChar(letter))->GetValue(), letter);
    QCOMPARE(Find<Flag>(central.CreateUniqueValueBoolean(number > 0))->GetValue(), number > 0);
}

void tst_GuiCentralUnique::oddStrings_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("a number") << QStringLiteral("12");
    QTest::newRow("place markers") << QStringLiteral("%1 %2");
    QTest::newRow("a path") << QStringLiteral("/GuiCentral/unique/");
    QTest::newRow("beyond ASCII") << QString(QChar(0xE4));
}

void tst_GuiCentralUnique::oddStrings()
{
    QFETCH(QString, text);
    GuiCentralAccess central;
    QCOMPARE(Find<Value<QString>>(central.CreateUniqueValueString(text))->GetValue(), text);
    std::string const narrow = text.toLatin1().toStdString();
    QCOMPARE(Find<Value<std::string>>(central.CreateUniqueValueCString(narrow))->GetValue(), narrow);
}

void tst_GuiCentralUnique::selectionOfTemplate()
{
    GuiCentralAccess central;
    auto * const source = Insert<ValueSelection>("source");
    source->AddItems({ { QStringLiteral("one"), 1.5, 10 }, { QStringLiteral("two"), 2.5, 20 } });
    source->Select(20L, nullptr);
    source->SetState(eStateDisabled, nullptr);
    auto * const value = Find<ValueSelection>(central.CreateUniqueValueSelection(source));
    QVERIFY(value);
    QVERIFY(value->Compare(source));
    QCOMPARE(value->GetItemCount(), 2);
    QCOMPARE(value->GetCurrentKey(), 20L);
    QCOMPARE(value->GetName(), QStringLiteral("UNIQUE_SELECTION_0"));
    QCOMPARE(value->GetState(), eStateValid);
    QCOMPARE(source->GetName(), QStringLiteral("source"));
    QCOMPARE(source->GetPathName(), Path("source"));
    source->DeleteItems();
    QCOMPARE(value->GetCurrentKey(), 20L); // goes its own way
}

void tst_GuiCentralUnique::selectionOfTemplateWithoutChoice()
{
    GuiCentralAccess central;
    ValueSelection source(QStringLiteral("loose"));
    source.AddItem({ QStringLiteral("one"), 1.5, 10 });
    auto * const value = Find<ValueSelection>(central.CreateUniqueValueSelection(&source));
    QVERIFY(!value->GetCurrentItem());
    QCOMPARE(value->GetItemCount(), 1);
}

void tst_GuiCentralUnique::selectionOfAnotherUniqueOne()
{
    GuiCentralAccess central;
    auto * const first = Find<ValueSelection>(central.CreateUniqueAgeingStepsSelection());
    QString const path = central.CreateUniqueValueSelection(first);
    QCOMPARE(path, QStringLiteral("/GuiCentral/unique/selection/UNIQUE_SELECTION_1"));
    QVERIFY(Find<ValueSelection>(path)->Compare(first));
}

void tst_GuiCentralUnique::emptySelection()
{
    GuiCentralAccess central;
    auto const * const value = Find<ValueSelection>(central.CreateUniqueValueSelection(nullptr));
    QCOMPARE(value->GetItemCount(), 0);
    QVERIFY(!value->GetCurrentItem());
}

void tst_GuiCentralUnique::ageingSteps_data()
{
    QTest::addColumn<int>("index");
    int index = 0;
    for (ToldItem const & item : AgeingSteps)
        QTest::newRow(item.text) << index++;
}

void tst_GuiCentralUnique::ageingSteps()
{
    QFETCH(int, index);
    GuiCentralAccess central;
    QString const path = central.CreateUniqueAgeingStepsSelection();
    QCOMPARE(path, QStringLiteral("/GuiCentral/unique/selection/UNIQUE_SELECTION_0"));
    auto const * const value = Find<ValueSelection>(path);
    QCOMPARE(value->GetItemCount(), 10);
    ToldItem const & told = AgeingSteps[index];
    QVERIFY(*value->GetItemAt(index) == SelectionItem(QLatin1String(told.text), told.value, told.key));
}

void tst_GuiCentralUnique::histogramTiles_data()
{
    QTest::addColumn<int>("index");
    int index = 0;
    for (ToldItem const & item : HistogramTiles)
        QTest::newRow(item.text) << index++;
}

void tst_GuiCentralUnique::histogramTiles()
{
    QFETCH(int, index);
    GuiCentralAccess central;
    QString const path = central.CreateUniqueHistogramTilesSelection();
    QCOMPARE(path, QStringLiteral("/GuiCentral/unique/selection/UNIQUE_SELECTION_0"));
    auto const * const value = Find<ValueSelection>(path);
    QCOMPARE(value->GetItemCount(), 7);
    ToldItem const & told = HistogramTiles[index];
    QVERIFY(*value->GetItemAt(index) == SelectionItem(QLatin1String(told.text), told.value, told.key));
}

void tst_GuiCentralUnique::defaultChoice()
{
    GuiCentralAccess central;
    QCOMPARE(Find<ValueSelection>(central.CreateUniqueAgeingStepsSelection())->GetStringValue(), QStringLiteral("4 s"));
    QCOMPARE(Find<ValueSelection>(central.CreateUniqueHistogramTilesSelection())->GetStringValue(),
             QStringLiteral("1.0 degree"));
}

void tst_GuiCentralUnique::itemsAreTranslated()
{
    GuiCentralAccess central;
    Reverser reverser;
    QCoreApplication::installTranslator(&reverser);
    auto const * const steps = Find<ValueSelection>(central.CreateUniqueAgeingStepsSelection());
    auto const * const tiles = Find<ValueSelection>(central.CreateUniqueHistogramTilesSelection());
    QCoreApplication::removeTranslator(&reverser);
    QCOMPARE(steps->GetItemAt(0)->GetName(), QStringLiteral("ffO"));
    QCOMPARE(steps->GetItemAt(9)->GetName(), QStringLiteral("etinifnI"));
    QCOMPARE(steps->GetStringValue(), QStringLiteral("s 4"));
    QCOMPARE(tiles->GetItemAt(0)->GetName(), QStringLiteral("enon / neercS"));
    QCOMPARE(tiles->GetStringValue(), QStringLiteral("eerged 0.1"));
}

void tst_GuiCentralUnique::cloneInt()
{
    GuiCentralAccess central;
    auto * const source = Insert<Whole>("source");
    source->SetMinMax(-10, 50, 5, nullptr);
    source->SetValue(15, nullptr);
    QString const path = central.CloneUniqueValueInt(source);
    QCOMPARE(path, QStringLiteral("/GuiCentral/unique/int/UNIQUE_INT_0"));
    Whole const * const value = Find<Whole>(path);
    QCOMPARE(QVector<int>({ value->GetValue(), value->GetMin(), value->GetMax(), value->GetStep() }),
             QVector<int>({ 15, -10, 50, 5 }));
    source->SetValue(20, nullptr);
    QCOMPARE(value->GetValue(), 15);
    QCOMPARE(source->GetObserverCount(), 0);
}

void tst_GuiCentralUnique::cloneFloat()
{
    GuiCentralAccess central;
    auto * const source = Insert<Real>("source");
    source->SetMinMax(-1.0, 5.0, 0.5, nullptr);
    source->SetValue(1.5, nullptr);
    QString const path = central.CloneUniqueValueFloat(source);
    QCOMPARE(path, QStringLiteral("/GuiCentral/unique/float/UNIQUE_FLOAT_0"));
    Real const * const value = Find<Real>(path);
    QCOMPARE(QVector<double>({ value->GetValue(), value->GetMin(), value->GetMax(), value->GetStep() }),
             QVector<double>({ 1.5, -1.0, 5.0, 0.5 }));
    source->SetValue(2.0, nullptr);
    QCOMPARE(value->GetValue(), 1.5);
}

void tst_GuiCentralUnique::cloneDuringADrag()
{
    GuiCentralAccess central;
    auto * const source = Insert<Real>("source");
    source->SetValue(1.0, nullptr);
    source->SetInterimValue(2.0, nullptr);
    Real const * const value = Find<Real>(central.CloneUniqueValueFloat(source));
    QCOMPARE(value->GetValue(), 1.0);
    QCOMPARE(value->GetInterimValue(), 1.0);
}

void tst_GuiCentralUnique::cloneOfNullInt()
{
    GuiCentralAccess central;
    Whole * const value = Find<Whole>(central.CloneUniqueValueInt(nullptr));
    QCOMPARE(QVector<int>({ value->GetValue(), value->GetMin(), value->GetMax(), value->GetStep() }),
             QVector<int>({ 0, IntLowest, IntHighest, 0 }));
    for (int const number : { IntLowest, -7, 13, IntHighest }) {
        value->SetValue(number, nullptr);
        QCOMPARE(value->GetValue(), number);
    }
}

void tst_GuiCentralUnique::cloneOfNullFloat()
{
    GuiCentralAccess central;
    Real * const value = Find<Real>(central.CloneUniqueValueFloat(nullptr));
    QVERIFY(value->GetValue() == 0.0 && value->GetStep() == 0.0);
    QVERIFY(value->GetMin() == Lowest && value->GetMax() == Highest);
    for (double const number : { Lowest, -0.1, 1e-300, Highest }) {
        value->SetValue(number, nullptr);
        QVERIFY(value->GetValue() == number);
    }
}

ORIM_TEST_MAIN(tst_GuiCentralUnique)
#include "tst_guicentral_unique.moc"
