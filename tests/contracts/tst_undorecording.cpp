// SPDX-License-Identifier: MIT
#include "undorecording.h"

#include "guibase.h"
#include "testmain.h"
#include "tree.h"
#include "valuelist.h"
#include "valuenumeric.h"
#include "valuerecorder.h"
#include "valueselection.h"

#include <QMap>
#include <QUndoStack>

#include <limits>
#include <memory>
#include <random>

class tst_UndoRecording : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void undoAndRedoRestore();
    void manyChangesAreOneCommand();
    void everyKindOfValue_data();
    void everyKindOfValue();
    void doublesComeBackExactly();
    void numbersWithoutTextComeBack_data();
    void numbersWithoutTextComeBack();
    void changeThatEndsWhereItBegan();
    void nothingChanged();
    void changesOutsideAreNotRecorded();
    void nestedFoldsIntoTheOutermost();
    void text_data();
    void text();
    void textNamesWhatChangedFirst();
    void observersHearTheUndo();
    void excludedObserverOfTheChangeHearsTheUndo();
    void valueThatHasGoneIsSkipped();
    void valueThatGoesWhileRecording();
    void valueThatCameBackIsRestored();
    void otherTypeAtThePathIsSkipped();
    void valueOutsideTheTree();
    void undoIsNotRecorded();
    void limitsThatHangTogether();
    void clampedOnTheWayBack();
    void limitOfTheStack();
    void otherRecorderHearsOn();
    void controlBase();
    void randomChangesComeBack();
};

namespace {

QUndoStack & Stack() { return *GuiBase::Instance().UndoStack(); }

template <class T>
T * MakeValue(char const * name)
{
    auto * const value = new T(QString::fromLatin1(name));
    return Tree::Instance()->Insert(QStringLiteral("/undo"), value) ? value : nullptr;
}

ValueNumeric<double> * MakeNumber(char const * name) { return MakeValue<ValueNumeric<double>>(name); }

//! A value of the kind that a row names; null for none.
ValueBase * MakeKind(QString const & kind)
{
    using Maker = ValueBase * (*)();
    QMap<QString, Maker> const makers{
        { "bool", [] { return static_cast<ValueBase *>(MakeValue<Value<bool>>("v")); } },
        { "int", [] { return static_cast<ValueBase *>(MakeValue<ValueNumeric<int>>("v")); } },
        { "int64", [] { return static_cast<ValueBase *>(MakeValue<ValueNumeric<long long>>("v")); } },
        { "double", [] { return static_cast<ValueBase *>(MakeNumber("v")); } },
        { "string", [] { return static_cast<ValueBase *>(MakeValue<Value<QString>>("v")); } },
        { "char", [] { return static_cast<ValueBase *>(MakeValue<Value<char>>("v")); } },
        { "plain int", [] { return static_cast<ValueBase *>(MakeValue<Value<int>>("v")); } },
        { "plain int64", [] { return static_cast<ValueBase *>(MakeValue<Value<long long>>("v")); } },
        { "plain double", [] { return static_cast<ValueBase *>(MakeValue<Value<double>>("v")); } },
        { "narrow", [] { return static_cast<ValueBase *>(MakeValue<Value<std::string>>("v")); } },
        { "list", [] { return static_cast<ValueBase *>(MakeValue<ValueList<BearingResult>>("v")); } },
        { "selection",
          [] {
              auto * const selection = MakeValue<ValueSelection>("v");
              selection->AddItems({ { "one", 1.0, 10L }, { "two", 2.0, 20L } });
              return static_cast<ValueBase *>(selection);
          } },
    };
    Maker const make = makers.value(kind, nullptr);
    return make ? make() : nullptr;
}

//! A pane with a word for its changes.
class Pane : public UndoRecordingControlBase
{
public:
    QString GetUndoText() const override { return QStringLiteral("Pane"); }
};

//! Follows a value, and opens a helper and writes another one on each change, as a pane with coupled values does.
class Follower : public IObserver
{
public:
    Follower(ValueNumeric<double> * from, ValueNumeric<double> * to) : m_pFrom(from), m_pTo(to)
    {
        m_pFrom->AddObserver(this);
    }

    void Update(Observable *, TChangeCode code) override
    {
        ++m_count;
        if (code != eValueChanged || !m_pTo)
            return;
        GuiUndoRecordingHelper const helper(nullptr, QStringLiteral("follow"));
        m_pTo->SetValue(m_pFrom->GetValue() * 2.0, nullptr);
    }

    int m_count = 0;

private:
    ValueNumeric<double> * m_pFrom;
    ValueNumeric<double> * m_pTo;
};

class CountingRecorder : public IValueRecorder
{
public:
    void BeforeChange(ValueBase &) override { ++m_count; }

    int m_count = 0;
};

} // namespace

void tst_UndoRecording::init()
{
    Stack().clear();
    QVERIFY(!ValueBase::Recorder());
}

void tst_UndoRecording::cleanup()
{
    QVERIFY(!ValueBase::Recorder());
    Tree::Instance()->RemoveFolder(QStringLiteral("/undo"));
}

void tst_UndoRecording::undoAndRedoRestore()
{
    auto * const value = MakeNumber("a");
    {
        GuiUndoRecordingHelper const helper(nullptr, QStringLiteral("Set a"));
        value->SetValue(5.0, nullptr);
        QCOMPARE(Stack().count(), 0); // the command comes at the end
    }
    QCOMPARE(Stack().count(), 1);
    QCOMPARE(value->GetValue(), 5.0);
    Stack().undo();
    QCOMPARE(value->GetValue(), 0.0);
    Stack().redo();
    QCOMPARE(value->GetValue(), 5.0);
    Stack().undo();
    QCOMPARE(value->GetValue(), 0.0);
    QVERIFY(Stack().canRedo());
}

void tst_UndoRecording::manyChangesAreOneCommand()
{
    auto * const a = MakeNumber("a");
    auto * const b = MakeNumber("b");
    {
        GuiUndoRecordingHelper const helper(nullptr, QStringLiteral("Drag"));
        for (int i = 1; i <= 100; ++i) {
            a->SetValue(i, nullptr);
            b->SetValue(-i, nullptr);
        }
    }
    QCOMPARE(Stack().count(), 1);
    Stack().undo();
    QCOMPARE(a->GetValue(), 0.0);
    QCOMPARE(b->GetValue(), 0.0);
    Stack().redo();
    QCOMPARE(a->GetValue(), 100.0);
    QCOMPARE(b->GetValue(), -100.0);
}

void tst_UndoRecording::everyKindOfValue_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::newRow("bool") << "bool"
                          << "false"
                          << "true";
    QTest::newRow("whole number") << "int"
                                  << "-3"
                                  << "2147483647";
    QTest::newRow("long whole number") << "int64"
                                       << "1"
                                       << "9223372036854775807";
    QTest::newRow("double") << "double"
                            << "1.5"
                            << "-1e300";
    QTest::newRow("text") << "string"
                          << "" << QString("a;\"\\\n%1").arg(QChar(0x416));
    QTest::newRow("small whole number without limits") << "char"
                                                       << "-128"
                                                       << "127";
    QTest::newRow("whole number without limits") << "plain int"
                                                 << "-2147483648"
                                                 << "5";
    QTest::newRow("long whole number without limits") << "plain int64"
                                                      << "-9223372036854775808"
                                                      << "5";
    QTest::newRow("double without limits") << "plain double"
                                           << "0.5"
                                           << "-1e300";
    QTest::newRow("narrow text") << "narrow" << QString(QChar(0xE4)) << "a;\"\\\n";
    QTest::newRow("list") << "list"
                          << "1 2.5 \"one%20word\n-3 \"\n"
                          << "0.5 \"\n";
    QTest::newRow("list that was empty") << "list"
                                         << ""
                                         << "0.5 \"\n";
    QTest::newRow("selection") << "selection"
                               << "one"
                               << "two";
    QTest::newRow("selection with nothing chosen") << "selection"
                                                   << ""
                                                   << "two";
}

void tst_UndoRecording::everyKindOfValue()
{
    QFETCH(QString, kind);
    QFETCH(QString, first);
    QFETCH(QString, second);
    ValueBase * const value = MakeKind(kind);
    QVERIFY(value);
    value->SetStringValue(first, nullptr);
    QCOMPARE(value->GetStringValue(), first);
    {
        GuiUndoRecordingHelper const helper(nullptr, kind);
        QVERIFY(value->SetStringValue(second, nullptr));
    }
    QString const held = value->GetStringValue();
    Stack().undo();
    QCOMPARE(value->GetStringValue(), first);
    Stack().redo();
    QCOMPARE(value->GetStringValue(), held);
    QVERIFY(held != first);
}

void tst_UndoRecording::doublesComeBackExactly()
{
    auto * const value = MakeNumber("a");
    double const odd = 0.1 + 0.2;
    value->SetValue(odd, nullptr);
    {
        GuiUndoRecordingHelper const helper(nullptr, QString());
        value->SetValue(0.3, nullptr);
    }
    QCOMPARE(Stack().count(), 1); // they differ in the last bit
    Stack().undo();
    QVERIFY(value->GetValue() == odd);
    Stack().redo();
    QVERIFY(value->GetValue() == 0.3);
}

void tst_UndoRecording::numbersWithoutTextComeBack_data()
{
    QTest::addColumn<double>("before");
    QTest::addColumn<double>("after");
    double const nan = std::numeric_limits<double>::quiet_NaN();
    double const infinity = std::numeric_limits<double>::infinity();
    QTest::newRow("from NaN") << nan << 1.0;
    QTest::newRow("to NaN") << 1.0 << nan;
    QTest::newRow("from infinity to NaN") << infinity << nan;
    QTest::newRow("between the infinities") << -infinity << infinity;
}

void tst_UndoRecording::numbersWithoutTextComeBack()
{
    QFETCH(double, before);
    QFETCH(double, after);
    auto * const number = MakeValue<Value<double>>("number");
    auto * const list = MakeValue<ValueList<BearingResult>>("list");
    std::vector<BearingResult> const entriesBefore{ BearingResult({ 1.0, before }, "a"), BearingResult({ 2.0 }) };
    std::vector<BearingResult> const entriesAfter{ BearingResult({ after }, "b") };
    number->SetValue(before, nullptr);
    list->SetEntries(entriesBefore, nullptr);
    {
        GuiUndoRecordingHelper const helper(nullptr, QString());
        number->SetValue(after, nullptr);
        list->SetEntries(entriesAfter, nullptr);
    }
    for (int turn = 0; turn < 2; ++turn) {
        Stack().undo();
        QVERIFY(sameValue(number->GetValue(), before));
        QVERIFY(list->GetEntries() == entriesBefore);
        Stack().redo();
        QVERIFY(sameValue(number->GetValue(), after));
        QVERIFY(list->GetEntries() == entriesAfter);
    }
}

void tst_UndoRecording::changeThatEndsWhereItBegan()
{
    auto * const a = MakeNumber("a");
    auto * const b = MakeNumber("b");
    {
        GuiUndoRecordingHelper const helper(nullptr, QString());
        a->SetValue(7.0, nullptr);
        a->SetValue(0.0, nullptr);
    }
    QCOMPARE(Stack().count(), 0);
    {
        GuiUndoRecordingHelper const helper(nullptr, QString());
        a->SetValue(7.0, nullptr);
        b->SetValue(1.0, nullptr);
        a->SetValue(0.0, nullptr);
    }
    QCOMPARE(Stack().count(), 1);
    a->SetValue(3.0, nullptr);
    Stack().undo();
    QCOMPARE(a->GetValue(), 3.0); // not part of the command
    QCOMPARE(b->GetValue(), 0.0);
}

void tst_UndoRecording::nothingChanged()
{
    auto * const value = MakeNumber("a");
    value->SetValue(4.0, nullptr);
    {
        GuiUndoRecordingHelper const helper(nullptr, QStringLiteral("x"));
        value->SetValue(4.0, nullptr);
    }
    QCOMPARE(Stack().count(), 0);
}

void tst_UndoRecording::changesOutsideAreNotRecorded()
{
    auto * const value = MakeNumber("a");
    value->SetValue(1.0, nullptr);
    {
        GuiUndoRecordingHelper const helper(nullptr, QString());
    }
    value->SetValue(2.0, nullptr);
    QCOMPARE(Stack().count(), 0);
}

void tst_UndoRecording::nestedFoldsIntoTheOutermost()
{
    auto * const a = MakeNumber("a");
    auto * const b = MakeNumber("b");
    {
        GuiUndoRecordingHelper const outer(nullptr, QStringLiteral("outer"));
        a->SetValue(1.0, nullptr);
        {
            GuiUndoRecordingHelper const inner(nullptr, QStringLiteral("inner"));
            a->SetValue(2.0, nullptr);
            b->SetValue(3.0, nullptr);
        }
        QCOMPARE(Stack().count(), 0);
        b->SetValue(4.0, nullptr);
    }
    QCOMPARE(Stack().count(), 1);
    QCOMPARE(Stack().text(0), QStringLiteral("outer"));
    Stack().undo();
    QCOMPARE(a->GetValue(), 0.0);
    QCOMPARE(b->GetValue(), 0.0);
    Stack().redo();
    QCOMPARE(a->GetValue(), 2.0);
    QCOMPARE(b->GetValue(), 4.0);
}

void tst_UndoRecording::text_data()
{
    QTest::addColumn<QString>("outer");
    QTest::addColumn<bool>("outerPane");
    QTest::addColumn<QString>("inner");
    QTest::addColumn<bool>("innerPane");
    QTest::addColumn<QString>("shown");
    QTest::newRow("the description") << "outer" << true << "inner" << true << "outer";
    QTest::newRow("else that of the pane") << "" << true << "inner" << true << "Pane";
    QTest::newRow("else that of the inner helper") << "" << false << "inner" << true << "inner";
    QTest::newRow("else that of its pane") << "" << false << "" << true << "Pane";
    QTest::newRow("else the name of the value") << "" << false << "" << false << "Change of a";
}

void tst_UndoRecording::text()
{
    QFETCH(QString, outer);
    QFETCH(bool, outerPane);
    QFETCH(QString, inner);
    QFETCH(bool, innerPane);
    auto * const value = MakeNumber("a");
    Pane const pane;
    {
        GuiUndoRecordingHelper const outerHelper(outerPane ? &pane : nullptr, outer);
        GuiUndoRecordingHelper const innerHelper(innerPane ? &pane : nullptr, inner);
        value->SetValue(1.0, nullptr);
    }
    QTEST(Stack().text(0), "shown");
    {
        GuiUndoRecordingHelper const next(nullptr, QStringLiteral("next"));
        value->SetValue(2.0, nullptr);
    }
    QCOMPARE(Stack().text(1), QStringLiteral("next")); // no text is left over
}

void tst_UndoRecording::textNamesWhatChangedFirst()
{
    auto * const back = MakeNumber("back");
    auto * const second = MakeNumber("second");
    auto * const third = MakeNumber("third");
    {
        GuiUndoRecordingHelper const helper(nullptr, QString());
        back->SetValue(1.0, nullptr);
        second->SetValue(1.0, nullptr);
        third->SetValue(1.0, nullptr);
        back->SetValue(0.0, nullptr);
    }
    QCOMPARE(Stack().text(0), QStringLiteral("Change of second"));
}

void tst_UndoRecording::observersHearTheUndo()
{
    auto * const value = MakeNumber("a");
    {
        GuiUndoRecordingHelper const helper(nullptr, QString());
        value->SetValue(1.0, nullptr);
    }
    Follower follower(value, nullptr);
    Stack().undo();
    QCOMPARE(follower.m_count, 1);
    Stack().redo();
    QCOMPARE(follower.m_count, 2);
}

void tst_UndoRecording::excludedObserverOfTheChangeHearsTheUndo()
{
    auto * const value = MakeNumber("a");
    Follower follower(value, nullptr);
    {
        GuiUndoRecordingHelper const helper(nullptr, QString());
        value->SetValue(1.0, &follower);
    }
    QCOMPARE(follower.m_count, 0);
    Stack().undo();
    QCOMPARE(follower.m_count, 1);
}

void tst_UndoRecording::valueThatHasGoneIsSkipped()
{
    auto * const a = MakeNumber("a");
    auto * const b = MakeNumber("b");
    {
        GuiUndoRecordingHelper const helper(nullptr, QString());
        a->SetValue(1.0, nullptr);
        b->SetValue(2.0, nullptr);
    }
    Tree::Instance()->Remove(QStringLiteral("/undo/b"));
    Stack().undo();
    QCOMPARE(a->GetValue(), 0.0);
    Stack().redo();
    QCOMPARE(a->GetValue(), 1.0);
}

void tst_UndoRecording::valueThatGoesWhileRecording()
{
    auto * const a = MakeNumber("a");
    auto * const b = MakeNumber("b");
    {
        GuiUndoRecordingHelper const helper(nullptr, QString());
        b->SetValue(2.0, nullptr);
        Tree::Instance()->Remove(QStringLiteral("/undo/b"));
    }
    QCOMPARE(Stack().count(), 0);
    {
        GuiUndoRecordingHelper const helper(nullptr, QString());
        a->SetValue(1.0, nullptr);
    }
    QCOMPARE(Stack().count(), 1);
}

void tst_UndoRecording::valueThatCameBackIsRestored()
{
    MakeNumber("a");
    {
        GuiUndoRecordingHelper const helper(nullptr, QString());
        Tree::Instance()->FindAs<ValueNumeric<double>>(QStringLiteral("/undo/a"))->SetValue(1.0, nullptr);
    }
    Tree::Instance()->Remove(QStringLiteral("/undo/a"));
    auto * const again = MakeNumber("a");
    again->SetValue(9.0, nullptr);
    Stack().undo();
    QCOMPARE(again->GetValue(), 0.0);
}

void tst_UndoRecording::otherTypeAtThePathIsSkipped()
{
    auto * const value = MakeNumber("a");
    {
        GuiUndoRecordingHelper const helper(nullptr, QString());
        value->SetValue(1.0, nullptr);
    }
    Tree::Instance()->Remove(QStringLiteral("/undo/a"));
    auto * const words = MakeValue<Value<QString>>("a");
    words->SetValue(QStringLiteral("words"), nullptr);
    Stack().undo();
    QCOMPARE(words->GetValue(), QStringLiteral("words"));
    Stack().redo();
    QCOMPARE(words->GetValue(), QStringLiteral("words"));
}

void tst_UndoRecording::valueOutsideTheTree()
{
    ValueNumeric<double> loose(QStringLiteral("loose"));
    {
        GuiUndoRecordingHelper const helper(nullptr, QString());
        loose.SetValue(1.0, nullptr);
    }
    QCOMPARE(Stack().count(), 0);
}

void tst_UndoRecording::undoIsNotRecorded()
{
    auto * const a = MakeNumber("a");
    auto * const b = MakeNumber("b");
    {
        GuiUndoRecordingHelper const helper(nullptr, QString());
        a->SetValue(1.0, nullptr);
    }
    Follower follower(a, b); // opens a helper on each change of a
    {
        GuiUndoRecordingHelper const helper(nullptr, QString());
        a->SetValue(2.0, nullptr);
    }
    QCOMPARE(b->GetValue(), 4.0);
    QCOMPARE(Stack().count(), 2);
    Stack().undo();
    QCOMPARE(Stack().count(), 2);
    QCOMPARE(Stack().index(), 1);
    QCOMPARE(a->GetValue(), 1.0);
    QCOMPARE(b->GetValue(), 0.0); // its own restored value wins over what the follower wrote
    Stack().redo();
    QCOMPARE(a->GetValue(), 2.0);
    QCOMPARE(b->GetValue(), 4.0);
    QCOMPARE(Stack().count(), 2);
}

void tst_UndoRecording::limitsThatHangTogether()
{
    auto * const a = MakeNumber("a");
    auto * const b = MakeNumber("b");
    // b follows a, so restoring b first is overwritten when a comes back
    {
        GuiUndoRecordingHelper const helper(nullptr, QString());
        a->SetValue(1.0, nullptr);
        b->SetValue(50.0, nullptr);
    }
    Follower follower(a, b);
    Stack().undo();
    QCOMPARE(a->GetValue(), 0.0);
    QCOMPARE(b->GetValue(), 0.0);
    Stack().redo();
    QCOMPARE(a->GetValue(), 1.0);
    QCOMPARE(b->GetValue(), 50.0);
}

void tst_UndoRecording::clampedOnTheWayBack()
{
    auto * const value = MakeNumber("a");
    {
        GuiUndoRecordingHelper const helper(nullptr, QString());
        value->SetValue(100.0, nullptr);
    }
    value->SetMinMax(20.0, 60.0, 0.0, nullptr);
    Stack().undo();
    QCOMPARE(value->GetValue(), 20.0);
    Stack().redo();
    QCOMPARE(value->GetValue(), 60.0);
}

void tst_UndoRecording::limitOfTheStack()
{
    QCOMPARE(Stack().undoLimit(), 1000);
    auto * const value = MakeNumber("a");
    for (int i = 1; i <= 1500; ++i) {
        GuiUndoRecordingHelper const helper(nullptr, QString());
        value->SetValue(i, nullptr);
    }
    QCOMPARE(Stack().count(), 1000);
    while (Stack().canUndo())
        Stack().undo();
    QCOMPARE(value->GetValue(), 500.0);
}

void tst_UndoRecording::otherRecorderHearsOn()
{
    auto * const value = MakeNumber("a");
    CountingRecorder other;
    ValueBase::SetRecorder(&other);
    {
        GuiUndoRecordingHelper const helper(nullptr, QString());
        value->SetValue(1.0, nullptr);
        QCOMPARE(other.m_count, 1);
    }
    QVERIFY(ValueBase::Recorder() == &other);
    value->SetValue(2.0, nullptr);
    QCOMPARE(other.m_count, 2);
    ValueBase::SetRecorder(nullptr);
    QCOMPARE(Stack().count(), 1);
}

void tst_UndoRecording::controlBase()
{
    UndoRecordingControlBase const plain;
    QVERIFY(plain.GetUndoText().isEmpty());
    std::unique_ptr<UndoRecordingControlBase> const pane = std::make_unique<Pane>();
    QCOMPARE(pane->GetUndoText(), QStringLiteral("Pane"));
}

//! Random actions, undone and redone in random numbers, against the list of states they left.
void tst_UndoRecording::randomChangesComeBack()
{
    constexpr int Values = 5;
    std::vector<ValueNumeric<double> *> values;
    for (int i = 0; i < Values; ++i)
        values.push_back(MakeNumber(qPrintable(QString::number(i))));
    std::mt19937_64 random(TestStage::Seed());
    std::uniform_int_distribution<int> pick(0, Values - 1);
    std::uniform_int_distribution<int> small(0, 3);
    std::vector<std::vector<double>> states{ std::vector<double>(Values, 0.0) };
    auto const held = [&values] {
        std::vector<double> state;
        for (auto const * const value : values)
            state.push_back(value->GetValue());
        return state;
    };
    long long const turns = TestStage::Turns(3000, 300000);
    for (long long i = 0; i < turns; ++i) {
        if (small(random) > 0) {
            auto const before = static_cast<std::size_t>(Stack().index());
            {
                GuiUndoRecordingHelper const helper(nullptr, QString());
                for (int n = small(random); n > 0; --n)
                    values[static_cast<std::size_t>(pick(random))]->SetValue(small(random) / 3.0, nullptr);
            }
            if (held() != states[before]) {
                states.resize(before + 1);
                states.push_back(held());
            }
            if (Stack().count() > 900) {
                Stack().clear();
                states.assign(1, held());
            }
        } else {
            Stack().setIndex(std::uniform_int_distribution<int>(0, Stack().count())(random));
        }
        QVERIFY(held() == states[static_cast<std::size_t>(Stack().index())]);
    }
    qInfo("%lld random actions undone and redone, seed %llu", turns, TestStage::Seed());
}

ORIM_TEST_MAIN(tst_UndoRecording)
#include "tst_undorecording.moc"
