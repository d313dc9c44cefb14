// SPDX-License-Identifier: MIT
#include "valuetransaction.h"

#include "scene.h"
#include "testmain.h"
#include "valuelist.h"
#include "valuenumeric.h"
#include "valueselection.h"

#include <memory>

namespace {

struct Stage
{
    Log log;
    ValueNumeric<int> value;
    Listener a{ "a", log };
    Listener b{ "b", log };

    Stage()
    {
        value.AddObserver(&a);
        value.AddObserver(&b);
    }

    void Mark(char const * word) { log.Add(QLatin1String(word)); }
};

//! What is heard of two changes of a value in one bracket.
template <class V, class Change>
QString Bracketed(Change const & first, Change const & second)
{
    Log log;
    V value;
    Listener a("a", log);
    value.AddObserver(&a);
    value.StartTransaction(nullptr);
    value.SetValue(first, nullptr);
    value.SetValue(second, nullptr);
    log.Add(QStringLiteral("|"));
    value.EndTransaction(eValueChanged, nullptr);
    return log.Text() + QLatin1Char(' ') + value.GetStringValue();
}

} // namespace

class tst_valuetransaction : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void brackets_data();

    void brackets() { PlayScene(); }

    void objects_data();

    void objects() { PlayScene(); }
};

void tst_valuetransaction::brackets_data()
{
    SceneColumns();
    SceneRow(
        "several changes are heard once, at the end",
        [] {
            Stage stage;
            stage.value.StartTransaction(nullptr);
            for (int i = 1; i < 4; ++i)
                stage.value.SetValue(i, nullptr);
            stage.Mark("|");
            stage.value.EndTransaction(eValueChanged, &stage.b);
            return stage.log.Text() + stage.value.GetStringValue();
        },
        "| a33");
    SceneRow(
        "the code of the end is heard, whatever changed",
        [] {
            Stage stage;
            stage.value.StartTransaction(nullptr);
            stage.value.SetMinMax(5, 9, 0, nullptr);
            stage.value.SetInterimValue(7.0, nullptr);
            stage.value.EndTransaction(eRangeChanged, nullptr);
            return stage.log.Text();
        },
        "a4 b4");
    SceneRow(
        "brackets nest, the outermost end is heard",
        [] {
            Stage stage;
            stage.value.StartTransaction(nullptr);
            stage.value.StartTransaction(nullptr);
            stage.value.SetValue(1, nullptr);
            stage.value.EndTransaction(eInterimChanged, nullptr);
            stage.Mark("|");
            stage.value.SetValue(2, nullptr);
            stage.value.EndTransaction(eValueChanged, nullptr);
            stage.value.SetValue(3, nullptr);
            return stage.log.Text();
        },
        "| a3 b3 a3 b3");
    SceneRow(
        "without a change nobody hears",
        [] {
            Stage stage;
            stage.value.StartTransaction(nullptr);
            stage.value.SetValue(0, nullptr);
            stage.value.EndTransaction(eValueChanged, nullptr);
            return stage.log.Text();
        },
        "");
    SceneRow(
        "a change is heard at one end only",
        [] {
            Stage stage;
            stage.value.StartTransaction(nullptr);
            stage.value.SetValue(1, nullptr);
            stage.value.EndTransaction(eValueChanged, nullptr);
            stage.value.StartTransaction(nullptr);
            stage.value.EndTransaction(eValueChanged, nullptr);
            return stage.log.Text();
        },
        "a3 b3");
    SceneRow(
        "an end without a start is ignored",
        [] {
            Stage stage;
            stage.value.EndTransaction(eValueChanged, nullptr);
            stage.value.SetValue(1, nullptr);
            stage.value.StartTransaction(nullptr);
            stage.value.SetValue(2, nullptr);
            return stage.log.Text() + YesNo(stage.value.IsTransactionActive());
        },
        "a3 b3yes");
    SceneRow(
        "it is active from start to end",
        [] {
            Stage stage;
            QString seen = YesNo(stage.value.IsTransactionActive());
            stage.value.StartTransaction(&stage.a);
            stage.value.StartTransaction(&stage.b);
            seen += YesNo(stage.value.IsTransactionActive());
            stage.value.EndTransaction(eValueChanged, nullptr);
            seen += YesNo(stage.value.IsTransactionActive());
            stage.value.EndTransaction(eValueChanged, nullptr);
            return seen + YesNo(stage.value.IsTransactionActive());
        },
        "noyesyesno");
    SceneRow(
        "a change of state is heard at once",
        [] {
            Stage stage;
            stage.value.StartTransaction(nullptr);
            stage.value.SetState(eStateDisabled, nullptr);
            stage.Mark("|");
            stage.value.EndTransaction(eValueChanged, nullptr);
            return stage.log.Text();
        },
        "a2 b2 |");
    SceneRow(
        "a set at the end's notification is heard at once",
        [] {
            Stage stage;
            stage.a.SetReaction([&stage](Observable *, TChangeCode) { stage.value.SetValue(9, nullptr); });
            stage.value.StartTransaction(nullptr);
            stage.value.SetValue(1, nullptr);
            stage.value.EndTransaction(eValueChanged, nullptr);
            return stage.log.Text();
        },
        "a3 a3 b3 b3");
    SceneRow(
        "items of a selection are bracketed too",
        [] {
            Log log;
            ValueSelection value;
            Listener a("a", log);
            value.AddObserver(&a);
            value.StartTransaction(nullptr);
            for (long key = 0; key < 5; ++key)
                value.AddItem(SelectionItem(QString::number(key), 0.0, key));
            value.Select(3L, nullptr);
            value.EndTransaction(eItemsChanged, nullptr);
            return log.Text();
        },
        "a7");
    SceneRow(
        "a list is bracketed too",
        [] {
            Log log;
            ValueList<BearingResult> value;
            Listener a("a", log);
            value.AddObserver(&a);
            value.StartTransaction(nullptr);
            value.Append(BearingResult({ 1.0 }));
            value.Append(BearingResult({ 2.0 }));
            log.Add(QStringLiteral("|"));
            value.EndTransaction(eItemsChanged, nullptr);
            return log.Text() + QString::number(value.Size());
        },
        "| a72");
    SceneRow(
        "a bool", [] { return Bracketed<Value<bool>>(true, false); }, "| a3 false");
    SceneRow(
        "a text", [] { return Bracketed<Value<QString>>(QStringLiteral("one"), QStringLiteral("two")); }, "| a3 two");
    SceneRow(
        "a narrow text", [] { return Bracketed<Value<std::string>>(std::string("one"), std::string("two")); },
        "| a3 two");
    SceneRow(
        "a char", [] { return Bracketed<Value<char>>('\1', '\2'); }, "| a3 2");
    SceneRow(
        "a double", [] { return Bracketed<ValueNumeric<double>>(1.5, 2.5); }, "| a3 2.5");
    SceneRow(
        "a long long", [] { return Bracketed<ValueNumeric<long long>>(1LL, 2LL); }, "| a3 2");
}

void tst_valuetransaction::objects_data()
{
    SceneColumns();
    SceneRow(
        "the destructor ends it",
        [] {
            Stage stage;
            {
                ValueTransaction const transaction(&stage.value, eValueChanged, &stage.b);
                stage.value.SetValue(1, nullptr);
                stage.value.SetValue(2, nullptr);
                stage.Mark(stage.value.IsTransactionActive() ? "active" : "not");
            }
            return stage.log.Text() + YesNo(stage.value.IsTransactionActive());
        },
        "active a3no");
    SceneRow(
        "one without a change says nothing",
        [] {
            Stage stage;
            {
                ValueTransaction const transaction(&stage.value, eValueChanged, nullptr);
            }
            return stage.log.Text();
        },
        "");
    SceneRow(
        "several codes are heard in turn",
        [] {
            Stage stage;
            {
                auto const transaction = stage.value.CreateTransaction({ eRangeChanged, eValueChanged }, &stage.b);
                stage.value.SetValue(200, nullptr);
                stage.value.SetMinMax(0, 100, 0, nullptr);
            }
            return stage.log.Text();
        },
        "a4 a3");
    SceneRow(
        "one code by the list",
        [] {
            Stage stage;
            {
                auto const transaction = stage.value.CreateTransaction({ eValueChanged }, nullptr);
                stage.value.SetValue(200, nullptr);
            }
            return stage.log.Text();
        },
        "a3 b3");
    SceneRow(
        "no code at all is a silent change",
        [] {
            Stage stage;
            {
                auto const transaction = stage.value.CreateTransaction({}, nullptr);
                stage.value.SetValue(200, nullptr);
            }
            stage.Mark("|");
            stage.value.SetValue(201, nullptr);
            return stage.log.Text();
        },
        "| a3 b3");
    SceneRow(
        "objects nest",
        [] {
            Stage stage;
            {
                ValueTransaction const outer(&stage.value, eValueChanged, nullptr);
                {
                    ValueTransaction const inner(&stage.value, eInterimChanged, nullptr);
                    stage.value.SetValue(1, nullptr);
                }
                stage.Mark("|");
            }
            return stage.log.Text();
        },
        "| a3 b3");
    SceneRow(
        "no value, no transaction",
        [] {
            ValueTransaction const one(nullptr, eValueChanged, nullptr);
            ValueTransaction const two(nullptr, { eValueChanged, eRangeChanged }, nullptr);
            return QString();
        },
        "");
    SceneRow(
        "the value goes away before the end",
        [] {
            Log log;
            Listener a("a", log);
            auto value = std::make_unique<ValueNumeric<int>>();
            value->AddObserver(&a);
            ValueTransaction const one(value.get(), eValueChanged, nullptr);
            auto const two = value->CreateTransaction({ eRangeChanged, eValueChanged }, nullptr);
            value->SetValue(1, nullptr);
            value.reset();
            return log.Text();
        },
        "a2");
    SceneRow(
        "the value goes away at the first code of the end",
        [] {
            Log log;
            auto value = std::make_unique<ValueNumeric<int>>();
            Listener a("a", log, [&value](Observable *, TChangeCode code) {
                if (code == eRangeChanged)
                    value.reset();
            });
            value->AddObserver(&a);
            {
                auto const transaction = value->CreateTransaction({ eRangeChanged, eValueChanged }, nullptr);
                value->SetValue(1, nullptr);
            }
            return log.Text();
        },
        "a4 a2");
}

ORIM_CORE_TEST_MAIN(tst_valuetransaction)
#include "tst_valuetransaction.moc"
