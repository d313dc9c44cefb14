// SPDX-License-Identifier: MIT
#include "hotkeytable.h"
#include "testmain.h"

#include <memory>
#include <random>

class tst_HotKeyTable : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void combinations_data();
    void combinations();
    void texts_data();
    void texts();
    void refusedTexts_data();
    void refusedTexts();
    void randomTextsAreStable();
    void indicesRiseFromZero();
    void registeringAgainGivesTheSameIndex_data();
    void registeringAgainGivesTheSameIndex();
    void noneIsRefused();
    void startsAsRegistered();
    void removedIndicesAreNeverGivenAgain();
    void badIndices_data();
    void badIndices();
    void receiverTakesItsKeysAlong();
    void deadReceiverIsRemoved();
    void changedCombination();
    void fixedCombination();
    void findsByCombinationAndName();
    void matches_data();
    void matches();
    void firstRegisteredWins();
    void admitsDecides();
    void conflicts();
};

namespace {

using Combination = HotKeyCombination;

HotKey MakeHotKey(int key, int modifiers = 0, QObject * receiver = nullptr, char const * name = "name")
{
    HotKey hotKey;
    hotKey.defaultCombination = Combination::From(key, modifiers);
    hotKey.receiver = receiver;
    hotKey.name = QString::fromLatin1(name);
    hotKey.group = QStringLiteral("group");
    return hotKey;
}

int const Ctrl = static_cast<int>(Qt::ControlModifier);
int const Shift = static_cast<int>(Qt::ShiftModifier);
int const Alt = static_cast<int>(Qt::AltModifier);
int const Meta = static_cast<int>(Qt::MetaModifier);
int const Keypad = static_cast<int>(Qt::KeypadModifier);
int const GroupSwitch = static_cast<int>(Qt::GroupSwitchModifier);

} // namespace

void tst_HotKeyTable::combinations_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<int>("foldedKey");
    QTest::addColumn<int>("foldedModifiers");
    QTest::newRow("plain") << int(Qt::Key_F5) << 0 << int(Qt::Key_F5) << 0;
    QTest::newRow("all modifiers count") << int(Qt::Key_A) << (Ctrl | Shift | Alt | Meta) << int(Qt::Key_A)
                                         << (Ctrl | Shift | Alt | Meta);
    QTest::newRow("the keypad counts as the main block") << int(Qt::Key_5) << (Keypad | Ctrl) << int(Qt::Key_5) << Ctrl;
    QTest::newRow("the group switch does not count") << int(Qt::Key_A) << GroupSwitch << int(Qt::Key_A) << 0;
    QTest::newRow("foreign bits do not count") << int(Qt::Key_A) << 0xFFFF << int(Qt::Key_A) << 0;
    QTest::newRow("Backtab is Shift+Tab") << int(Qt::Key_Backtab) << 0 << int(Qt::Key_Tab) << Shift;
    QTest::newRow("Shift+Backtab too") << int(Qt::Key_Backtab) << Shift << int(Qt::Key_Tab) << Shift;
    QTest::newRow("no key") << 0 << Ctrl << 0 << 0;
    QTest::newRow("negative") << -1 << Ctrl << 0 << 0;
    QTest::newRow("unknown") << int(Qt::Key_unknown) << 0 << 0 << 0;
    for (int const key :
         { int(Qt::Key_Shift), int(Qt::Key_Control), int(Qt::Key_Alt), int(Qt::Key_Meta), int(Qt::Key_AltGr),
           int(Qt::Key_CapsLock), int(Qt::Key_NumLock), int(Qt::Key_Super_L), int(Qt::Key_Super_R) })
        QTest::addRow("bare modifier key %x", key) << key << 0 << 0 << 0;
}

void tst_HotKeyTable::combinations()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    Combination const folded = Combination::From(key, modifiers);
    QTEST(folded.key, "foldedKey");
    QTEST(folded.modifiers, "foldedModifiers");
    QCOMPARE(folded.IsNone(), folded.key == 0);
}

void tst_HotKeyTable::texts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("printed");
    QTest::newRow("function key") << "F5" << int(Qt::Key_F5) << 0 << "F5";
    QTest::newRow("letter") << "m" << int(Qt::Key_M) << 0 << "M";
    QTest::newRow("modifiers") << "Ctrl+Shift+M" << int(Qt::Key_M) << (Ctrl | Shift) << "Ctrl+Shift+M";
    QTest::newRow("case and order are forgiven")
        << "shift+ctrl+m" << int(Qt::Key_M) << (Ctrl | Shift) << "Ctrl+Shift+M";
    QTest::newRow("all modifiers") << "Meta+Ctrl+Alt+Shift+Del" << int(Qt::Key_Delete) << (Ctrl | Shift | Alt | Meta)
                                   << "Meta+Ctrl+Alt+Shift+Del";
    QTest::newRow("plus") << "Ctrl++" << int(Qt::Key_Plus) << Ctrl << "Ctrl++";
    QTest::newRow("comma") << "Ctrl+," << int(Qt::Key_Comma) << Ctrl << "Ctrl+,";
    QTest::newRow("Escape") << "Esc" << int(Qt::Key_Escape) << 0 << "Esc";
    QTest::newRow("of a sequence the first counts") << "Ctrl+A, B" << int(Qt::Key_A) << Ctrl << "Ctrl+A";
    QTest::newRow("keypad") << "Num+5" << int(Qt::Key_5) << 0 << "5";
    QTest::newRow("beyond Latin") << QString(QChar(0x436)) << 0x416 << 0 << QString(QChar(0x416));
    QTest::newRow("empty") << "" << 0 << 0 << "";
}

void tst_HotKeyTable::texts()
{
    QFETCH(QString, text);
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(QString, printed);
    Combination const combination = Combination::FromText(text);
    QCOMPARE(combination.key, key);
    QCOMPARE(combination.modifiers, modifiers);
    QCOMPARE(combination.ToText(), printed);
    QVERIFY(Combination::FromText(printed) == combination);
    QCOMPARE(combination.ToDisplayText().isEmpty(), printed.isEmpty());
}

void tst_HotKeyTable::refusedTexts_data()
{
    QTest::addColumn<QString>("text");
    for (char const * const text :
         { "nonsense", "Ctrl+", "Ctrl", "Shift", "Ctrl+Shift", "F99", "Ctrl+F99", "+A", "A+B" })
        QTest::newRow(text) << text;
    QTest::newRow("longer than 64 characters") << QString(65, QLatin1Char(' ')) + "A";
    QTest::newRow("a megabyte") << QString(1 << 20, QLatin1Char('A'));
}

void tst_HotKeyTable::refusedTexts()
{
    QFETCH(QString, text);
    QVERIFY2(Combination::FromText(text).IsNone(), qPrintable(Combination::FromText(text).ToText()));
}

void tst_HotKeyTable::randomTextsAreStable()
{
    QStringList const parts{ "Ctrl",
                             "Shift",
                             "Alt",
                             "Meta",
                             "Num",
                             "+",
                             "+",
                             "+",
                             ",",
                             " ",
                             "F",
                             "1",
                             "2",
                             "A",
                             "b",
                             "Del",
                             "Esc",
                             "Return",
                             "Tab",
                             "Backtab",
                             "PgUp",
                             "Space",
                             QString(QChar(0xDF)),
                             QString(QChar(0x1C5)),
                             QString(QChar(0xD83D)),
                             QString(QChar(0)),
                             QString(QChar(0x2028)) };
    std::mt19937_64 random(TestStage::Seed());
    std::uniform_int_distribution<int> pick(0, static_cast<int>(parts.size()) - 1);
    std::uniform_int_distribution<int> length(0, 6);
    std::uniform_int_distribution<int> character(0, 0xFFFF);
    long long const turns = TestStage::Turns(50000, 5000000);
    long long read = 0;
    for (long long i = 0; i < turns; ++i) {
        QString text;
        for (int n = length(random); n > 0; --n)
            text += i % 8 == 0 ? QString(QChar(static_cast<ushort>(character(random)))) : parts.at(pick(random));
        Combination const combination = Combination::FromText(text);
        read += combination.IsNone() ? 0 : 1;
        QVERIFY2(Combination::FromText(combination.ToText()) == combination, qPrintable(text));
        QVERIFY(combination == Combination::From(combination.key, combination.modifiers));
    }
    QVERIFY(read > turns / 100);
    qInfo("%lld key texts, %lld of them keys, seed %llu", turns, read, TestStage::Seed());
}

void tst_HotKeyTable::indicesRiseFromZero()
{
    HotKeyTable table;
    QVERIFY(table.GetIndices().empty());
    QCOMPARE(table.Add(MakeHotKey(Qt::Key_F1)), 0);
    QCOMPARE(table.Add(MakeHotKey(Qt::Key_F2)), 1);
    QVERIFY(table.GetIndices() == (std::vector<int>{ 0, 1 }));
}

void tst_HotKeyTable::registeringAgainGivesTheSameIndex_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("sameReceiver");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("group");
    QTest::addColumn<int>("index");
    QTest::newRow("all the same") << int(Qt::Key_F1) << true << "name"
                                  << "group" << 0;
    QTest::newRow("another key") << int(Qt::Key_F2) << true << "name"
                                 << "group" << 1;
    QTest::newRow("another receiver") << int(Qt::Key_F1) << false << "name"
                                      << "group" << 1;
    QTest::newRow("another name") << int(Qt::Key_F1) << true << "other"
                                  << "group" << 1;
    QTest::newRow("another group") << int(Qt::Key_F1) << true << "name"
                                   << "other" << 1;
}

void tst_HotKeyTable::registeringAgainGivesTheSameIndex()
{
    QFETCH(int, key);
    QFETCH(bool, sameReceiver);
    QFETCH(QString, name);
    QFETCH(QString, group);
    QObject first;
    QObject second;
    HotKeyTable table;
    table.Add(MakeHotKey(Qt::Key_F1, 0, &first));
    table.SetCombination(0, Combination::From(Qt::Key_F9, 0)); // the registered key is compared, not the present one
    HotKey again = MakeHotKey(key, 0, sameReceiver ? &first : &second);
    again.name = name;
    again.group = group;
    QTEST(table.Add(again), "index");
    QCOMPARE(table.Get(0)->combination.key, int(Qt::Key_F9));
}

void tst_HotKeyTable::noneIsRefused()
{
    HotKeyTable table;
    QCOMPARE(table.Add(MakeHotKey(Qt::Key_Shift)), -1);
    QCOMPARE(table.Add(HotKey()), -1);
    QCOMPARE(table.Add(MakeHotKey(Qt::Key_F1)), 0);
}

void tst_HotKeyTable::startsAsRegistered()
{
    QObject receiver;
    HotKeyTable table;
    HotKey hotKey = MakeHotKey(Qt::Key_F1, Ctrl, &receiver, "Zoom");
    hotKey.throughModal = true;
    table.Add(hotKey);
    HotKey const * const added = table.Get(0);
    QVERIFY(added);
    QVERIFY(added->combination == Combination::From(Qt::Key_F1, Ctrl));
    QVERIFY(added->defaultCombination == added->combination);
    QCOMPARE(added->receiver.data(), &receiver);
    QCOMPARE(added->name, QStringLiteral("Zoom"));
    QCOMPARE(added->group, QStringLiteral("group"));
    QVERIFY(added->enabled && added->changeable && added->throughModal && added->hasReceiver);
}

void tst_HotKeyTable::removedIndicesAreNeverGivenAgain()
{
    HotKeyTable table;
    table.Add(MakeHotKey(Qt::Key_F1));
    table.Add(MakeHotKey(Qt::Key_F2));
    table.Add(MakeHotKey(Qt::Key_F3));
    QVERIFY(table.Remove(1));
    QVERIFY(!table.Get(1));
    QCOMPARE(table.Get(2)->combination.key, int(Qt::Key_F3));
    QVERIFY(!table.Remove(1));
    QVERIFY(table.Remove(2));
    QCOMPARE(table.Add(MakeHotKey(Qt::Key_F2)), 3);
    QVERIFY(table.GetIndices() == (std::vector<int>{ 0, 3 }));
}

void tst_HotKeyTable::badIndices_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("negative") << -1;
    QTest::newRow("past the end") << 1;
    QTest::newRow("lowest int") << std::numeric_limits<int>::min();
    QTest::newRow("highest int") << std::numeric_limits<int>::max();
}

void tst_HotKeyTable::badIndices()
{
    QFETCH(int, index);
    HotKeyTable table;
    table.Add(MakeHotKey(Qt::Key_F1));
    QVERIFY(!table.Get(index));
    QVERIFY(!table.Remove(index));
    QVERIFY(!table.Enable(index, false));
    QVERIFY(!table.SetCombination(index, Combination::From(Qt::Key_F2, 0)));
    QCOMPARE(table.GetConflict(index), -1);
    QVERIFY(table.Get(0)->enabled);
}

void tst_HotKeyTable::receiverTakesItsKeysAlong()
{
    QObject first;
    QObject second;
    HotKeyTable table;
    table.Add(MakeHotKey(Qt::Key_F1, 0, &first));
    table.Add(MakeHotKey(Qt::Key_F2, 0, &second));
    table.Add(MakeHotKey(Qt::Key_F3, 0, &first));
    table.Add(MakeHotKey(Qt::Key_F4));
    QVERIFY(table.RemoveReceiver(nullptr).empty());
    QVERIFY(table.RemoveReceiver(&first) == (std::vector<int>{ 0, 2 }));
    QVERIFY(table.RemoveReceiver(&first).empty());
    QVERIFY(table.GetIndices() == (std::vector<int>{ 1, 3 }));
}

void tst_HotKeyTable::deadReceiverIsRemoved()
{
    auto receiver = std::make_unique<QObject>();
    HotKeyTable table;
    table.Add(MakeHotKey(Qt::Key_F1, 0, receiver.get(), "dying"));
    table.Add(MakeHotKey(Qt::Key_F1, 0, nullptr, "staying"));
    QCOMPARE(table.GetConflict(1), 0);
    receiver.reset();
    QVERIFY(!table.Get(0));
    QVERIFY(table.GetIndices() == std::vector<int>{ 1 });
    QCOMPARE(table.Find(Combination::From(Qt::Key_F1, 0)), 1);
    QCOMPARE(table.FindName(QStringLiteral("dying")), -1);
    QCOMPARE(table.Match(Combination::From(Qt::Key_F1, 0), {}), 1);
    QCOMPARE(table.GetConflict(1), -1);
    QVERIFY(!table.Enable(0, true));
    QVERIFY(!table.SetCombination(0, Combination::From(Qt::Key_F2, 0)));
    QVERIFY(!table.Remove(0));
    QCOMPARE(table.Add(MakeHotKey(Qt::Key_F1, 0, nullptr, "dying")), 2); // not taken for the dead one
}

void tst_HotKeyTable::changedCombination()
{
    HotKeyTable table;
    table.Add(MakeHotKey(Qt::Key_F1));
    QVERIFY(table.SetCombination(0, Combination::From(Qt::Key_F2, Ctrl)));
    QCOMPARE(table.Find(Combination::From(Qt::Key_F1, 0)), -1);
    QCOMPARE(table.Find(Combination::From(Qt::Key_F2, Ctrl)), 0);
    QCOMPARE(table.Get(0)->defaultCombination.key, int(Qt::Key_F1));
    QVERIFY(table.SetCombination(0, Combination()));
    QCOMPARE(table.Match(Combination::From(Qt::Key_F2, Ctrl), {}), -1);
    QCOMPARE(table.Match(Combination(), {}), -1);
    QCOMPARE(table.Find(Combination()), -1);
}

void tst_HotKeyTable::fixedCombination()
{
    HotKeyTable table;
    HotKey hotKey = MakeHotKey(Qt::Key_F1);
    hotKey.changeable = false;
    table.Add(hotKey);
    QVERIFY(!table.SetCombination(0, Combination::From(Qt::Key_F2, 0)));
    QCOMPARE(table.Find(Combination::From(Qt::Key_F1, 0)), 0);
}

void tst_HotKeyTable::findsByCombinationAndName()
{
    HotKeyTable table;
    table.Add(MakeHotKey(Qt::Key_F1, 0, nullptr, "first"));
    table.Add(MakeHotKey(Qt::Key_F1, 0, nullptr, "second"));
    table.Add(MakeHotKey(Qt::Key_F1, Ctrl, nullptr, "second"));
    table.Enable(0, false);
    QCOMPARE(table.Find(Combination::From(Qt::Key_F1, 0)), 0); // switched off keys are found
    QCOMPARE(table.Find(Combination::From(Qt::Key_F1, Ctrl)), 2);
    QCOMPARE(table.Find(Combination::From(Qt::Key_F1, Shift)), -1);
    QCOMPARE(table.FindName(QStringLiteral("second")), 1);
    QCOMPARE(table.FindName(QStringLiteral("third")), -1);
}

void tst_HotKeyTable::matches_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<int>("pressedKey");
    QTest::addColumn<int>("pressedModifiers");
    QTest::addColumn<bool>("isHeard");
    QTest::newRow("the same") << int(Qt::Key_F1) << Ctrl << int(Qt::Key_F1) << Ctrl << true;
    QTest::newRow("another key") << int(Qt::Key_F1) << 0 << int(Qt::Key_F2) << 0 << false;
    QTest::newRow("a modifier more") << int(Qt::Key_F1) << 0 << int(Qt::Key_F1) << Shift << false;
    QTest::newRow("a modifier less") << int(Qt::Key_F1) << Ctrl << int(Qt::Key_F1) << 0 << false;
    QTest::newRow("a sign that needs Shift") << int(Qt::Key_Plus) << 0 << int(Qt::Key_Plus) << Shift << true;
    QTest::newRow("a sign with Control that needs Shift")
        << int(Qt::Key_Plus) << Ctrl << int(Qt::Key_Plus) << (Ctrl | Shift) << true;
    QTest::newRow("a sign with another modifier") << int(Qt::Key_Plus) << 0 << int(Qt::Key_Plus) << Ctrl << false;
    QTest::newRow("a digit that needs Shift") << int(Qt::Key_1) << 0 << int(Qt::Key_1) << Shift << true;
    QTest::newRow("a letter heeds Shift") << int(Qt::Key_M) << 0 << int(Qt::Key_M) << Shift << false;
    QTest::newRow("a letter beyond Latin heeds Shift") << 0x416 << 0 << 0x416 << Shift << false;
    QTest::newRow("Space heeds Shift") << int(Qt::Key_Space) << 0 << int(Qt::Key_Space) << Shift << false;
    QTest::newRow("Return heeds Shift") << int(Qt::Key_Return) << 0 << int(Qt::Key_Return) << Shift << false;
}

void tst_HotKeyTable::matches()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(int, pressedKey);
    QFETCH(int, pressedModifiers);
    QFETCH(bool, isHeard);
    HotKeyTable table;
    table.Add(MakeHotKey(key, modifiers));
    QCOMPARE(table.Match(Combination::From(pressedKey, pressedModifiers), {}), isHeard ? 0 : -1);
    table.Enable(0, false);
    QCOMPARE(table.Match(Combination::From(pressedKey, pressedModifiers), {}), -1);
    table.Enable(0, true);
    QCOMPARE(table.Match(Combination::From(pressedKey, pressedModifiers), {}), isHeard ? 0 : -1);
}

void tst_HotKeyTable::firstRegisteredWins()
{
    HotKeyTable table;
    table.Add(MakeHotKey(Qt::Key_Plus, 0, nullptr, "first"));
    table.Add(MakeHotKey(Qt::Key_Plus, 0, nullptr, "second"));
    table.Add(MakeHotKey(Qt::Key_Plus, Shift, nullptr, "exact"));
    QCOMPARE(table.Match(Combination::From(Qt::Key_Plus, 0), {}), 0);
    QCOMPARE(table.Match(Combination::From(Qt::Key_Plus, Shift), {}),
             2); // the exact one comes before the forgiving one
    table.Enable(0, false);
    QCOMPARE(table.Match(Combination::From(Qt::Key_Plus, 0), {}), 1);
}

void tst_HotKeyTable::admitsDecides()
{
    HotKeyTable table;
    table.Add(MakeHotKey(Qt::Key_F1, 0, nullptr, "held back"));
    HotKey passing = MakeHotKey(Qt::Key_F1, 0, nullptr, "passing");
    passing.throughModal = true;
    table.Add(passing);
    QCOMPARE(table.Match(Combination::From(Qt::Key_F1, 0), {}), 0);
    QCOMPARE(table.Match(Combination::From(Qt::Key_F1, 0), [](HotKey const & hotKey) { return hotKey.throughModal; }),
             1);
    QCOMPARE(table.Match(Combination::From(Qt::Key_F1, 0), [](HotKey const &) { return false; }), -1);
}

void tst_HotKeyTable::conflicts()
{
    HotKeyTable table;
    table.Add(MakeHotKey(Qt::Key_F1, 0, nullptr, "a"));
    table.Add(MakeHotKey(Qt::Key_F2, 0, nullptr, "b"));
    table.Add(MakeHotKey(Qt::Key_F1, 0, nullptr, "c"));
    QCOMPARE(table.GetConflict(0), 2);
    QCOMPARE(table.GetConflict(1), -1);
    QCOMPARE(table.GetConflict(2), 0);
    table.SetCombination(0, Combination());
    table.SetCombination(2, Combination());
    QCOMPARE(table.GetConflict(0), -1); // no key is no conflict
}

ORIM_CORE_TEST_MAIN(tst_HotKeyTable)
#include "tst_hotkeytable.moc"
