// SPDX-License-Identifier: MIT
#include "persistant.h"

#include "inicfg.h"
#include "memorycfg.h"
#include "slot.h"
#include "testmain.h"
#include "valueselection.h"

#include <QProcess>
#include <QTemporaryDir>

#include <cstring>

namespace {

QString Latin(char const * text) { return QString::fromLatin1(text); }

//! Owner that notes when it hears.
struct Owner : PersistantOwner
{
    ~Owner() override { delete m_persistant; }

    void ApplyPersistantBeforeWrite() override
    {
        log += 'w';
        if (beforeWrite)
            beforeWrite();
    }

    void ApplyPersistantAfterRead() override { log += 'r'; }

    Persistant * Make() { return m_persistant = new Persistant(Latin("Group"), this); }

    void End()
    {
        delete m_persistant;
        m_persistant = nullptr;
    }

    QByteArray log;
    std::function<void()> beforeWrite;
};

//! Item of a kind of its own.
struct Object : PersistantObject
{
    explicit Object(QByteArray * log) : m_log(log) {}

    ~Object() override { *m_log += 'd'; }

    void Read(ICfg * store) override { text = store->ReadString(Latin("Object"), Latin("fallback")); }

    void Write(ICfg * store) override { store->WriteString(Latin("Object"), text); }

    void RestoreDefault() override { text = Latin("fallback"); }

    QString text;
    QByteArray * m_log;
};

struct Teller : IObserver
{
    void Update(Observable *, TChangeCode code) override
    {
        if (code == eValueChanged && onChange)
            onChange();
    }

    std::function<void()> onChange;
};

void FillSelection(ValueSelection & selection)
{
    selection.AddItem(SelectionItem(Latin("Low"), 10.0, 2));
    selection.AddItem(SelectionItem(Latin("High"), 20.0, 5));
    selection.AddItem(SelectionItem(Latin("Zero"), 30.0, 0));
}

//! Everything that can be added, with the defaults true, 7, 0.1, 5, -3, 4000000000.
struct AllKinds
{
    AllKinds() : group(Latin("Display"))
    {
        FillSelection(selection);
        group.Add(&flag, Latin("Flag"), true);
        group.Add(&number, Latin("Number"), 7);
        group.Add(&level, Latin("Level"), 0.1);
        group.Add(&selection, Latin("Selection"), 5);
        group.Add(&variable, Latin("Variable"), -3);
        group.Add(&longVariable, Latin("Long"), 4000000000L);
    }

    QStringList Texts() const
    {
        return { flag.ToStoredText(),      number.ToStoredText(),     level.ToStoredText(),
                 selection.ToStoredText(), QString::number(variable), QString::number(longVariable) };
    }

    Value<bool> flag;
    ValueNumeric<int> number;
    ValueNumeric<double> level;
    ValueSelection selection;
    int variable = 0;
    long longVariable = 0;
    Persistant group;
};

QStringList Defaults()
{
    return { Latin("true"), Latin("7"), Latin("0.10000000000000001"), Latin("5"), Latin("-3"), Latin("4000000000") };
}

QStringList const Keys{ Latin("Flag"),      Latin("Number"),   Latin("Level"),
                        Latin("Selection"), Latin("Variable"), Latin("Long") };

} // namespace

class tst_Persistant : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void keysOfTheStore_data();
    void keysOfTheStore();
    void addChangesNothing();
    void missingKeysReadAsDefaults();
    void readsWhatTheStoreHolds();
    void writesAllKinds();
    void restoresDefaults();
    void unreadableTextsReadAsDefaults_data();
    void unreadableTextsReadAsDefaults();
    void limitsWin();
    void aSelectionsDefaultIsAKey();
    void aSelectionWithoutTheDefaultKeepsItsChoice();
    void emptyTextOfASelectionIsNotMissing();
    void doublesKeepAllDigits_data();
    void doublesKeepAllDigits();
    void readNotifies();
    void ownItem();
    void takesItemsOver();
    void nullItemsAreIgnored();
    void aValueThatGoesAwayIsStillWritten();
    void aValueThatWentAwayReadsAndRestores();
    void aValueThatIsGoingAwayWhenAdded();
    void theGroupMayEndBeforeTheValue();
    void twoItemsOfOneKey();
    void ownerHearsInOrder();
    void anyViewIsTheSame();
    void ordersItsOperations();
    void readMayEndTheGroup();
    void nestedReadMayEndTheGroup();
    void writeMayEndTheGroup_data();
    void writeMayEndTheGroup();
    void writeMayAddItems();
    void restoreMayEndTheGroup();
    void readMayAddItems();
    void writeTellsWhetherItLasts();
    void flushesOnceAWrite();
    void storeCanBeReplaced();
    void builtInStore();
    void writtenAtProcessExit();

private:
    std::unique_ptr<MemoryCfg> m_store;
    ICfg * m_stage = nullptr;
};

void tst_Persistant::init()
{
    m_stage = Persistant::Store();
    m_store = std::make_unique<MemoryCfg>();
    Persistant::SetStore(m_store.get());
}

void tst_Persistant::cleanup() { Persistant::SetStore(m_stage); }

void tst_Persistant::keysOfTheStore_data()
{
    QTest::addColumn<QString>("section");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("group");
    QTest::addColumn<QString>("key");
    auto const row = [](char const * name, char const * section, char const * group, char const * key) {
        QTest::newRow(name) << Latin(section) << Latin("GuiCentral") << Latin(group) << Latin(key);
    };
    row("no section, no group", "", "", "GuiCentral/k");
    row("a section", "S", "", "S/GuiCentral/k");
    row("a group", "", "G", "GuiCentral/G/k");
    row("both", "S", "G", "S/GuiCentral/G/k");
    QTest::newRow("no name") << Latin("") << Latin("") << Latin("") << Latin("k");
}

void tst_Persistant::keysOfTheStore()
{
    QFETCH(QString, section);
    QFETCH(QString, name);
    QFETCH(QString, group);
    QFETCH(QString, key);
    int number = 4;
    Persistant persistant(name);
    persistant.Add(&number, Latin("k"), 1, group);
    QVERIFY(persistant.Write(section, 0));
    QCOMPARE(m_store->GetKeys(), QStringList(key));
    m_store->WriteString(key, Latin("9"));
    persistant.Read(section, 0);
    QCOMPARE(number, 9);
    persistant.Read(section + Latin("other"), 0);
    QCOMPARE(number, 1);
}

void tst_Persistant::addChangesNothing()
{
    AllKinds all;
    QCOMPARE(all.Texts(), QStringList({ Latin("false"), Latin("0"), Latin("0"), Latin(""), Latin("0"), Latin("0") }));
}

void tst_Persistant::missingKeysReadAsDefaults()
{
    AllKinds all;
    all.group.Read(QString(), 0);
    QCOMPARE(all.Texts(), Defaults());
    QCOMPARE(m_store->GetKeys(), QStringList());
}

void tst_Persistant::readsWhatTheStoreHolds()
{
    QStringList const texts{ Latin("false"), Latin("-12"),        Latin("-1.5e-300"),
                             Latin("0"),     Latin("2147483647"), Latin("-5") };
    for (int i = 0; i < texts.size(); ++i)
        m_store->WriteString(Latin("Display/") + Keys[i], texts[i]);
    AllKinds all;
    all.group.Read(QString(), 0);
    QVERIFY(!all.flag.GetValue());
    QCOMPARE(all.number.GetValue(), -12);
    QVERIFY(all.level.GetValue() == -1.5e-300);
    QVERIFY(all.selection.GetCurrentItem());
    QCOMPARE(all.selection.GetCurrentItem()->GetName(), Latin("Zero"));
    QCOMPARE(all.variable, 2147483647);
    QCOMPARE(all.longVariable, -5L);
}

void tst_Persistant::writesAllKinds()
{
    AllKinds all;
    all.flag.SetValue(true, nullptr);
    all.number.SetValue(-5, nullptr);
    all.level.SetValue(1.0 / 3.0, nullptr);
    all.selection.Select(2L, nullptr);
    all.variable = 8;
    all.longVariable = -9;
    QVERIFY(all.group.Write(QString(), 0));
    QStringList written;
    for (QString const & key : Keys)
        written << m_store->ReadString(Latin("Display/") + key, Latin("missing"));
    QCOMPARE(written, QStringList({ Latin("true"), Latin("-5"), Latin("0.33333333333333331"), Latin("2"), Latin("8"),
                                    Latin("-9") }));
    AllKinds other;
    other.group.Read(QString(), 0);
    QCOMPARE(other.Texts(), written);
}

void tst_Persistant::restoresDefaults()
{
    AllKinds all;
    all.group.RestoreDefault();
    QCOMPARE(all.Texts(), Defaults());
    QCOMPARE(m_store->GetKeys(), QStringList());
}

void tst_Persistant::unreadableTextsReadAsDefaults_data()
{
    QTest::addColumn<int>("item");
    QTest::addColumn<QString>("text");
    auto const row = [](int item, char const * text) {
        QTest::newRow(qPrintable(Keys[item] + Latin(" \"") + Latin(text) + Latin("\""))) << item << Latin(text);
    };
    for (char const * text : { "", "maybe", "2" })
        row(0, text);
    for (char const * text : { "", "x", "1.5", "2147483648", "-2147483649", "0x10", "1e3", "1,000", "\xb2" })
        row(1, text);
    for (char const * text : { "", "x", "nan", "NaN", "inf", "-inf", "infinity", "1,5", "1e999", "0.1.2", "1 2" })
        row(2, text);
    for (char const * text : { "x", "7", "Low", "2.0", "nan" })
        row(3, text);
    for (char const * text : { "", "x", "1.5", "2147483648", "-2147483649", "nan" })
        row(4, text);
    for (char const * text : { "", "x", "9223372036854775808", "-9223372036854775809" })
        row(5, text);
}

void tst_Persistant::unreadableTextsReadAsDefaults()
{
    QFETCH(int, item);
    QFETCH(QString, text);
    m_store->WriteString(Latin("Display/") + Keys[item], text);
    AllKinds all;
    QByteArray const line = "The stored text \"" + text.toUtf8() + "\" of \"" + Keys[item].toUtf8() +
                            "\" is no such value: its default is used";
    QTest::ignoreMessage(QtWarningMsg, line.constData());
    all.group.Read(QString(), 0);
    QCOMPARE(all.Texts(), Defaults());
}

void tst_Persistant::limitsWin()
{
    AllKinds all;
    all.number.SetMinMax(0, 100, 10, nullptr);
    m_store->WriteString(Latin("Display/Number"), Latin("2000"));
    all.group.Read(QString(), 0);
    QCOMPARE(all.number.GetValue(), 100);
    all.group.RestoreDefault();
    QCOMPARE(all.number.GetValue(), 10);
}

void tst_Persistant::aSelectionsDefaultIsAKey()
{
    ValueSelection selection;
    FillSelection(selection);
    Persistant group(Latin("G"));
    group.Add(&selection, Latin("k"), 2);
    group.Read(QString(), 0);
    QCOMPARE(selection.GetCurrentIndex(), 0); // key 2, not index 2 and not the number 2
    QCOMPARE(selection.GetCurrentKey(), 2L);
}

void tst_Persistant::aSelectionWithoutTheDefaultKeepsItsChoice()
{
    ValueSelection selection;
    FillSelection(selection);
    selection.Select(5L, nullptr);
    Persistant group(Latin("G"));
    group.Add(&selection, Latin("k"), static_cast<unsigned int>(-1));
    group.Read(QString(), 0); // without a line in the log
    QCOMPARE(selection.GetCurrentKey(), 5L);
    group.RestoreDefault();
    QCOMPARE(selection.GetCurrentKey(), 5L);
}

void tst_Persistant::emptyTextOfASelectionIsNotMissing()
{
    ValueSelection selection;
    FillSelection(selection);
    Persistant group(Latin("G"));
    group.Add(&selection, Latin("k"), 5);
    QVERIFY(group.Write(QString(), 0)); // nothing is chosen
    selection.Select(2L, nullptr);
    group.Read(QString(), 0);
    QCOMPARE(selection.GetCurrentIndex(), -1);
}

void tst_Persistant::doublesKeepAllDigits_data()
{
    QTest::addColumn<double>("value");
    QTest::newRow("a tenth") << 0.1;
    QTest::newRow("next to one") << std::nextafter(1.0, 2.0);
    QTest::newRow("the largest") << std::numeric_limits<double>::max();
    QTest::newRow("the smallest") << std::numeric_limits<double>::denorm_min();
    QTest::newRow("a time stamp in us") << 1709208000123457.0;
    QTest::newRow("negative") << -123456.78901234567;
}

void tst_Persistant::doublesKeepAllDigits()
{
    QFETCH(double, value);
    ValueNumeric<double> number;
    Persistant group(Latin("G"));
    group.Add(&number, Latin("k"), value);
    QLocale::setDefault(QLocale(QLocale::German));
    group.Read(QString(), 0); // through the text of the default
    bool const asDefault = number.GetValue() == value;
    bool const written = group.Write(QString(), 0);
    number.SetValue(0.0, nullptr);
    group.Read(QString(), 0);
    QLocale::setDefault(QLocale::c());
    QVERIFY(asDefault && written);
    QVERIFY(number.GetValue() == value);
}

void tst_Persistant::readNotifies()
{
    AllKinds all;
    int heard = 0;
    Teller teller;
    teller.onChange = [&heard] { ++heard; };
    all.number.AddObserver(&teller);
    all.group.Read(QString(), 0);
    QCOMPARE(heard, 1);
    all.group.Read(QString(), 0);
    QCOMPARE(heard, 1);
}

void tst_Persistant::ownItem()
{
    QByteArray log;
    Persistant group(Latin("GuiCentral"));
    auto * const object = new Object(&log);
    group.Add(object);
    group.Read(QString(), 0);
    QCOMPARE(object->text, Latin("fallback"));
    object->text = Latin("mine");
    QVERIFY(group.Write(Latin("S"), 0));
    QCOMPARE(m_store->ReadString(Latin("S/GuiCentral/Object"), QString()), Latin("mine"));
    group.RestoreDefault();
    QCOMPARE(object->text, Latin("fallback"));
    group.Read(Latin("S"), 0);
    QCOMPARE(object->text, Latin("mine"));
}

void tst_Persistant::takesItemsOver()
{
    QByteArray log;
    {
        Persistant group(Latin("G"));
        group.Add(new Object(&log));
        group.Add(new Object(&log), Latin("second"));
        QCOMPARE(log, QByteArray());
    }
    QCOMPARE(log, QByteArray("dd"));
    QCOMPARE(m_store->GetKeys(), QStringList()); // the end of a group writes nothing
}

void tst_Persistant::nullItemsAreIgnored()
{
    Persistant group(Latin("G"));
    group.Add(static_cast<Value<bool> *>(nullptr), Latin("k"), true);
    group.Add(static_cast<ValueNumeric<int> *>(nullptr), Latin("k"), 1);
    group.Add(static_cast<ValueNumeric<double> *>(nullptr), Latin("k"), 1.0);
    group.Add(static_cast<ValueSelection *>(nullptr), Latin("k"), 1L);
    group.Add(static_cast<int *>(nullptr), Latin("k"), 1);
    group.Add(static_cast<long *>(nullptr), Latin("k"), 1L);
    group.Add(static_cast<PersistantObject *>(nullptr));
    group.Read(QString(), 0);
    group.RestoreDefault();
    QVERIFY(group.Write(QString(), 0));
    QCOMPARE(m_store->GetKeys(), QStringList());
}

void tst_Persistant::aValueThatGoesAwayIsStillWritten()
{
    auto flag = std::make_unique<Value<bool>>();
    auto number = std::make_unique<ValueNumeric<int>>();
    auto level = std::make_unique<ValueNumeric<double>>();
    auto selection = std::make_unique<ValueSelection>();
    FillSelection(*selection);
    Persistant group(Latin("G"));
    group.Add(flag.get(), Latin("f"), false);
    group.Add(number.get(), Latin("n"), 1);
    group.Add(level.get(), Latin("l"), 1.0);
    group.Add(selection.get(), Latin("s"), 5);
    flag->SetValue(true, nullptr);
    number->SetValue(42, nullptr);
    level->SetValue(0.5, nullptr);
    selection->Select(2L, nullptr);
    flag.reset();
    number.reset();
    level.reset();
    selection.reset();
    QVERIFY(group.Write(QString(), 0));
    QCOMPARE(m_store->ReadString(Latin("G/f"), QString()), Latin("true"));
    QCOMPARE(m_store->ReadString(Latin("G/n"), QString()), Latin("42"));
    QCOMPARE(m_store->ReadString(Latin("G/l"), QString()), Latin("0.5"));
    QCOMPARE(m_store->ReadString(Latin("G/s"), QString()), Latin("2"));
}

void tst_Persistant::aValueThatWentAwayReadsAndRestores()
{
    auto number = std::make_unique<ValueNumeric<int>>();
    Persistant group(Latin("G"));
    group.Add(number.get(), Latin("n"), 1);
    number.reset();
    m_store->WriteString(Latin("G/n"), Latin("77"));
    group.Read(QString(), 0);
    m_store->Clear();
    QVERIFY(group.Write(QString(), 0));
    QCOMPARE(m_store->ReadString(Latin("G/n"), QString()), Latin("77"));
    group.RestoreDefault();
    QVERIFY(group.Write(QString(), 0));
    QCOMPARE(m_store->ReadString(Latin("G/n"), QString()), Latin("1"));
}

void tst_Persistant::aValueThatIsGoingAwayWhenAdded()
{
    Persistant group(Latin("G"));
    auto number = std::make_unique<ValueNumeric<int>>();
    number->SetValue(6, nullptr);

    struct Adder : IObserver
    {
        void Update(Observable *, TChangeCode) override { group->Add(number, Latin("n"), 1); }

        Persistant * group = nullptr;
        ValueNumeric<int> * number = nullptr;
    } adder;

    adder.group = &group;
    adder.number = number.get();
    number->AddObserver(&adder);
    number.reset(); // its farewell adds it
    QVERIFY(group.Write(QString(), 0));
    QCOMPARE(m_store->ReadString(Latin("G/n"), QString()), Latin("6"));
}

void tst_Persistant::theGroupMayEndBeforeTheValue()
{
    ValueNumeric<int> number;
    {
        Persistant group(Latin("G"));
        group.Add(&number, Latin("n"), 1);
        QCOMPARE(number.GetObserverCount(), 1);
    }
    QCOMPARE(number.GetObserverCount(), 0);
    number.SetValue(3, nullptr);
}

void tst_Persistant::twoItemsOfOneKey()
{
    Value<bool> first;
    Value<bool> second;
    Persistant group(Latin("G"));
    group.Add(&first, Latin("AzimuthShowYLegend"), true);
    group.Add(&second, Latin("AzimuthShowYLegend"), true);
    first.SetValue(true, nullptr);
    second.SetValue(false, nullptr);
    QVERIFY(group.Write(QString(), 0));
    QCOMPARE(m_store->ReadString(Latin("G/AzimuthShowYLegend"), QString()), Latin("false"));
    group.Read(QString(), 0);
    QVERIFY(!first.GetValue());
    QVERIFY(!second.GetValue());
}

void tst_Persistant::ownerHearsInOrder()
{
    Owner owner;
    Persistant * const group = owner.Make();
    int number = 1;
    group->Add(&number, Latin("n"), 5);
    owner.beforeWrite = [&number] { number = 2; };
    group->Read(QString(), 0);
    QCOMPARE(number, 5);
    QCOMPARE(owner.log, QByteArray("r"));
    QVERIFY(group->Write(QString(), 0));
    QCOMPARE(owner.log, QByteArray("rw"));
    QCOMPARE(m_store->ReadString(Latin("Group/n"), QString()), Latin("2")); // what the owner set before
    group->RestoreDefault();
    QCOMPARE(owner.log, QByteArray("rw"));
}

void tst_Persistant::anyViewIsTheSame()
{
    int number = 3;
    Persistant group(Latin("G"));
    group.Add(&number, Latin("n"), 1);
    QVERIFY(group.Write(QString(), 5));
    number = 0;
    group.Read(QString(), 0);
    QCOMPARE(number, 3);
}

void tst_Persistant::readMayEndTheGroup()
{
    Owner owner;
    Persistant * const group = owner.Make();
    ValueNumeric<int> number;
    int later = 0;
    group->Add(&number, Latin("n"), 5);
    group->Add(&later, Latin("later"), 6);
    Teller teller;
    teller.onChange = [&owner] { owner.End(); };
    number.AddObserver(&teller);
    group->Read(QString(), 0);
    QCOMPARE(number.GetValue(), 5);
    QCOMPARE(later, 0);
    QCOMPARE(owner.log, QByteArray());
    QCOMPARE(number.GetObserverCount(), 1);
}

void tst_Persistant::nestedReadMayEndTheGroup()
{
    Owner owner;
    Persistant * const group = owner.Make();
    ValueNumeric<int> number;
    int later = 0;
    group->Add(&number, Latin("n"), 5);
    group->Add(&later, Latin("later"), 6);
    Teller teller;
    teller.onChange = [&] {
        if (number.GetValue() != 5)
            return owner.End();
        m_store->WriteString(Latin("Group/n"), Latin("8"));
        group->Read(QString(), 0); // the inner one reads 8, and ends the group
    };
    number.AddObserver(&teller);
    group->Read(QString(), 0);
    QCOMPARE(number.GetValue(), 8);
    QCOMPARE(later, 0);
    QCOMPARE(owner.log, QByteArray());
    QCOMPARE(number.GetObserverCount(), 1);
}

void tst_Persistant::writeMayEndTheGroup_data()
{
    QTest::addColumn<bool>("byTheOwner");
    QTest::newRow("the owner ends it before the first item") << true;
    QTest::newRow("an item ends it") << false;
}

namespace {

//! Item that does something when it is written.
struct Actor : PersistantObject
{
    explicit Actor(std::function<void()> action) : onWrite(std::move(action)) {}

    void Read(ICfg *) override {}

    void Write(ICfg *) override { onWrite(); }

    void RestoreDefault() override {}

    std::function<void()> onWrite;
};

} // namespace

void tst_Persistant::writeMayEndTheGroup()
{
    QFETCH(bool, byTheOwner);
    Owner owner;
    Persistant * const group = owner.Make();
    int number = 3;
    if (byTheOwner)
        owner.beforeWrite = [&owner] { owner.End(); };
    else
        group->Add(new Actor([&owner] { owner.End(); }));
    group->Add(&number, Latin("n"), 5);
    QVERIFY(!group->Write(QString(), 0));
    QCOMPARE(owner.log, QByteArray("w"));
    QCOMPARE(m_store->GetKeys(), QStringList());
}

void tst_Persistant::writeMayAddItems()
{
    Persistant group(Latin("G"));
    std::array<int, 50> added{};
    added.back() = 4;
    group.Add(new Actor([&] {
        for (int & variable : added)
            group.Add(&variable, Latin("a"), 6);
    }));
    QVERIFY(group.Write(QString(), 0));
    QCOMPARE(m_store->ReadString(Latin("G/a"), QString()), Latin("4"));
}

//! Who overrides the operations by their places finds them there.
void tst_Persistant::ordersItsOperations()
{
    QCOMPARE(Slot(&PersistantObject::Read), 2);
    QCOMPARE(Slot(&PersistantObject::Write), 3);
    QCOMPARE(Slot(&PersistantObject::RestoreDefault), 4);
}

void tst_Persistant::restoreMayEndTheGroup()
{
    Owner owner;
    Persistant * const group = owner.Make();
    ValueNumeric<int> number;
    int later = 0;
    group->Add(&number, Latin("n"), 5);
    group->Add(&later, Latin("later"), 6);
    Teller teller;
    teller.onChange = [&owner] { owner.End(); };
    number.AddObserver(&teller);
    group->RestoreDefault();
    QCOMPARE(number.GetValue(), 5);
    QCOMPARE(later, 0);
}

void tst_Persistant::readMayAddItems()
{
    Persistant group(Latin("G"));
    ValueNumeric<int> number;
    std::array<int, 50> added{};
    group.Add(&number, Latin("n"), 5);
    Teller teller;
    teller.onChange = [&] {
        for (int & variable : added)
            group.Add(&variable, Latin("a"), 6);
    };
    number.AddObserver(&teller);
    group.Read(QString(), 0);
    QCOMPARE(added.front(), 6);
    QCOMPARE(added.back(), 6);
}

void tst_Persistant::writeTellsWhetherItLasts()
{
    struct Failing : MemoryCfg
    {
        bool Flush() override { return false; }
    } failing;

    Persistant group(Latin("G"));
    QVERIFY(group.Write(QString(), 0));
    Persistant::SetStore(&failing);
    QVERIFY(!group.Write(QString(), 0));
}

void tst_Persistant::flushesOnceAWrite()
{
    struct Counting : MemoryCfg
    {
        bool Flush() override
        {
            keysAtFlush << static_cast<int>(GetKeys().size());
            return true;
        }

        QList<int> keysAtFlush;
    } counting;

    Persistant::SetStore(&counting);
    AllKinds all;
    all.group.Read(QString(), 0);
    QCOMPARE(counting.keysAtFlush.size(), 0);
    QVERIFY(all.group.Write(QString(), 0));
    QCOMPARE(counting.keysAtFlush, QList<int>({ 6 }));
}

void tst_Persistant::storeCanBeReplaced()
{
    MemoryCfg other;
    other.WriteString(Latin("G/n"), Latin("4"));
    int number = 0;
    Persistant group(Latin("G"));
    group.Add(&number, Latin("n"), 1);
    Persistant::SetStore(&other);
    QCOMPARE(Persistant::Store(), static_cast<ICfg *>(&other));
    group.Read(QString(), 0);
    QCOMPARE(number, 4);
}

void tst_Persistant::builtInStore()
{
    Persistant::SetStore(nullptr);
    auto * const store = dynamic_cast<IniCfg *>(Persistant::Store());
    QVERIFY(store);
    QCOMPARE(Persistant::Store(), static_cast<ICfg *>(store));
    QVERIFY(IniCfg::DefaultPath().startsWith(qEnvironmentVariable("XDG_CONFIG_HOME") + QLatin1Char('/')));
    QVERIFY(IniCfg::DefaultPath().endsWith(Latin("/orimwidgets.ini")));
}

namespace {

//! A static object that writes at process exit, after the application object and after main.
struct Late : PersistantOwner
{
    Late()
    {
        m_persistant = new Persistant(Latin("Late"), this);
        m_persistant->Add(&number, Latin("n"), 1);
        m_persistant->Read(QString(), 0);
    }

    ~Late() override
    {
        m_persistant->Write(QString(), 0);
        delete m_persistant;
    }

    int number = 0;
};

Late & TheLate()
{
    static Late late;
    return late;
}

int Child()
{
    TestStage::BeforeApplication();
    int argc = 1;
    char name[] = "tst_persistant_child";
    char * argv[] = { name, nullptr };
    QCoreApplication application(argc, argv);
    int & number = TheLate().number;
    ++number;
    return number;
}

} // namespace

void tst_Persistant::writtenAtProcessExit()
{
    QTemporaryDir const home(QCoreApplication::applicationDirPath() + Latin("/../homes/late-XXXXXX"));
    QVERIFY(home.isValid());
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(Latin("XDG_CONFIG_HOME"), home.path());
    for (int start = 1; start <= 3; ++start) { // each finds what the one before wrote while it ended
        QProcess child;
        child.setProcessEnvironment(environment);
        child.start(QCoreApplication::applicationFilePath(), { Latin("--child") });
        QVERIFY(child.waitForFinished(20000));
        QCOMPARE(child.exitStatus(), QProcess::NormalExit);
        QCOMPARE(child.exitCode(), start + 1);
        QCOMPARE(child.readAllStandardError(), QByteArray());
    }
    QFile file(home.filePath(Latin("tst_persistant_child/orimwidgets.ini")));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("[Late]\nn=4\n"));
}

int main(int argc, char * argv[])
{
    if (argc > 1 && std::strcmp(argv[1], "--child") == 0)
        return Child();
    TestStage::BeforeApplication();
    QApplication application(argc, argv);
    TestStage::AfterApplication();
    tst_Persistant test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_persistant.moc"
