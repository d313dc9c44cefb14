// SPDX-License-Identifier: MIT
#include "value.h"

#include "operations.h"
#include "scene.h"
#include "slot.h"
#include "testmain.h"
#include "valueagedimage.h"
#include "valuelist.h"
#include "valuenumeric.h"
#include "valueptr.h"
#include "valuerecorder.h"
#include "valueselection.h"

#include <cmath>
#include <limits>
#include <memory>
#include <type_traits>

namespace {

// The format class of each type.

static_assert(std::is_same_v<Value<bool>, Value<bool, FormatBool<bool>, StreamFormat<bool>>>);
static_assert(std::is_same_v<Value<char>, Value<char, FormatInt<char>, StreamFormat<char>>>);
static_assert(std::is_same_v<Value<int>, Value<int, FormatInt<int>, StreamFormat<int>>>);
static_assert(std::is_same_v<Value<long long>, Value<long long, FormatInt64<long long>, StreamFormat<long long>>>);
static_assert(std::is_same_v<Value<double>, Value<double, FormatFloat<double>, StreamFormat<double>>>);
static_assert(std::is_same_v<Value<QString>, Value<QString, FormatString<QString>, StreamFormat<QString>>>);
static_assert(
    std::is_same_v<Value<std::string>, Value<std::string, FormatCString<std::string>, StreamFormat<std::string>>>);
static_assert(std::is_same_v<ValueNumeric<int>, ValueNumeric<int, FormatInt<int>, StreamFormat<int>>>);
static_assert(
    std::is_same_v<ValueNumeric<long long>, ValueNumeric<long long, FormatInt64<long long>, StreamFormat<long long>>>);
static_assert(std::is_same_v<ValueNumeric<double>, ValueNumeric<double, FormatFloat<double>, StreamFormat<double>>>);
static_assert(std::is_same_v<ValueList<BearingResult>,
                             ValueList<BearingResult, FormatBearingResult, StreamFormat<BearingResult>>>);

// What is derived from what.

static_assert(std::is_base_of_v<Observable, ValueBase>);
static_assert(std::is_base_of_v<IValue, ValueBase>);
static_assert(std::is_base_of_v<IDeleteSubject, ValueBase>);
static_assert(std::is_base_of_v<IHasTimerCallback, ValueBase>);
static_assert(std::is_base_of_v<IOptimizeTrigger, ValueBase>);
static_assert(std::is_base_of_v<ISupportTransaction, ValueBase>);
static_assert(std::is_base_of_v<Value<int>, ValueNumeric<int>>);
static_assert(std::is_base_of_v<IValueNumeric, ValueNumeric<int>>);
static_assert(std::is_base_of_v<IObserver, NumericOperation>);
static_assert(std::is_base_of_v<IObserver, NumericCoupler>);
static_assert(std::is_base_of_v<IObserver, BoolOperation>);
static_assert(std::is_base_of_v<IObserver, BoolSelectionCoupler>);
static_assert(std::is_base_of_v<IObserver, ValuePtr<ValueNumeric<double>>>);
static_assert(std::is_base_of_v<IObserver, ValuePtr<ValueNumeric<int>>>);
static_assert(std::is_base_of_v<IObserver, ValuePtr<Value<bool>>>);
static_assert(std::is_base_of_v<IObserver, ValuePtr<ValueSelection>>);

//! Writes the stored text that a value still holds when it is about to change.
class Recorder : public IValueRecorder
{
public:
    explicit Recorder(Log & log) : m_pLog(&log) { ValueBase::SetRecorder(this); }

    ~Recorder() override { ValueBase::SetRecorder(nullptr); }

    void BeforeChange(ValueBase & value) override { m_pLog->Add(QLatin1Char('=') + value.ToStoredText()); }

private:
    Log * m_pLog;
};

//! Sets a value twice, and says what a listener and a recorder saw.
template <class T>
QString SetTwice(T const & first, T const & again)
{
    Log log;
    Value<T> value;
    Listener a("a", log);
    Listener b("b", log);
    value.AddObserver(&a);
    value.AddObserver(&b);
    value.SetValue(first, &b);
    value.SetValue(again, nullptr);
    return log.Text() + QLatin1Char(' ') + value.GetStringValue();
}

template <class T>
QString Texts(T const & content)
{
    Value<T> value;
    value.SetValue(content, nullptr);
    return value.GetStringValue() + QLatin1Char('|') + value.ToStoredText();
}

//! Reads a text for people and the same as a stored one, over a value that holds something else.
template <class T>
QString Reads(T const & before, char const * text)
{
    Value<T> shown;
    shown.SetValue(before, nullptr);
    bool const shownOk = shown.SetStringValue(QString::fromUtf8(text), nullptr);
    Value<T> stored;
    stored.SetValue(before, nullptr);
    bool const storedOk = stored.FromStoredText(QString::fromUtf8(text), nullptr);
    return YesNo(shownOk) + shown.GetStringValue() + QLatin1Char(' ') + YesNo(storedOk) + stored.GetStringValue();
}

//! An image value stands in for a type without content.
template <class T>
QString TypeOf(T const & value)
{
    return QString::number(static_cast<int>(value.GetType())) + QLatin1String(value.GetTypeName());
}

} // namespace

class tst_value : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void changes_data();

    void changes() { PlayScene(); }

    void texts_data();

    void texts() { PlayScene(); }

    void ordersItsOperations();
    void storedDoublesReadBack();

    void types_data();

    void types() { PlayScene(); }

    void base_data();

    void base() { PlayScene(); }

    void recorder_data();

    void recorder() { PlayScene(); }

    void farewell_data();

    void farewell() { PlayScene(); }
};

//! Who overrides the operations by their places finds them there.
void tst_value::ordersItsOperations()
{
    QCOMPARE(Slot(&IValue::SetStringValue), 2);
    QCOMPARE(Slot(&IValue::GetStringValue), 3);
    QCOMPARE(Slot(&IValue::GetState), 4);
    QCOMPARE(Slot(&IValue::SetState), 5);
    QCOMPARE(Slot(&IValue::HasChanged), 6);
    QCOMPARE(Slot(&IDeleteSubject::SetDeleteObserver), 2);
    QCOMPARE(Slot(&IDeleteSubject::GetDeleteObserver), 3);
    QCOMPARE(Slot(&ISupportTransaction::StartTransaction), 2);
    QCOMPARE(Slot(&ISupportTransaction::EndTransaction), 3);
    QCOMPARE(Slot(&ISupportTransaction::IsTransactionActive), 4);
}

void tst_value::changes_data()
{
    SceneColumns();
    SceneRow(
        "a bool", [] { return SetTwice<bool>(true, false); }, "a3 a3 b3 false");
    SceneRow(
        "a char", [] { return SetTwice<char>(5, 6); }, "a3 a3 b3 6");
    SceneRow(
        "an int", [] { return SetTwice<int>(5, -6); }, "a3 a3 b3 -6");
    SceneRow(
        "a long long", [] { return SetTwice<long long>(5, 9007199254740993LL); }, "a3 a3 b3 9007199254740993");
    SceneRow(
        "a double", [] { return SetTwice<double>(0.5, 0.25); }, "a3 a3 b3 0.25");
    SceneRow(
        "a QString", [] { return SetTwice<QString>(QStringLiteral("x"), QStringLiteral("y")); }, "a3 a3 b3 y");
    SceneRow(
        "a narrow string", [] { return SetTwice<std::string>("x", "y"); }, "a3 a3 b3 y");

    SceneRow(
        "a bool held already", [] { return SetTwice<bool>(true, true); }, "a3 true");
    SceneRow(
        "a char held already", [] { return SetTwice<char>(5, 5); }, "a3 5");
    SceneRow(
        "an int held already", [] { return SetTwice<int>(5, 5); }, "a3 5");
    SceneRow(
        "a long long held already", [] { return SetTwice<long long>(5, 5); }, "a3 5");
    SceneRow(
        "a double held already", [] { return SetTwice<double>(0.5, 0.5); }, "a3 0.5");
    SceneRow(
        "a QString held already", [] { return SetTwice<QString>(QStringLiteral("x"), QStringLiteral("x")); }, "a3 x");
    SceneRow(
        "a narrow string held already", [] { return SetTwice<std::string>("x", "x"); }, "a3 x");
    SceneRow(
        "the initial content is nothing new", [] { return SetTwice<int>(0, 0); }, " 0");
    SceneRow(
        "minus zero is zero", [] { return SetTwice<double>(0.0, -0.0); }, " 0");
    SceneRow(
        "NaN over NaN is nothing new",
        [] {
            return SetTwice<double>(std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::quiet_NaN());
        },
        "a3 nan");
    SceneRow(
        "a set inside a notification notifies at once, the outer round goes on with the last value",
        [] {
            Log log;
            Value<int> value;
            Listener a("a", log, [&value](Observable *, TChangeCode) { value.SetValue(2, nullptr); });
            Listener b("b", log, [&](Observable *, TChangeCode) { log.Add(value.GetStringValue()); });
            value.AddObserver(&a);
            value.AddObserver(&b);
            value.SetValue(1, nullptr);
            return log.Text();
        },
        "a3 a3 b3 2 b3 2");
    SceneRow(
        "two values that follow each other come to rest",
        [] {
            Log log;
            Value<double> one;
            Value<double> two;
            Listener a("a", log, [&](Observable *, TChangeCode) { two.SetValue(one.GetValue(), nullptr); });
            Listener b("b", log, [&](Observable *, TChangeCode) { one.SetValue(two.GetValue(), nullptr); });
            one.AddObserver(&a);
            two.AddObserver(&b);
            one.SetValue(std::numeric_limits<double>::quiet_NaN(), nullptr);
            two.SetValue(4.5, nullptr);
            return log.Text();
        },
        "a3 b3 b3 a3");
}

void tst_value::texts_data()
{
    SceneColumns();
    SceneRow(
        "true", [] { return Texts(true); }, "true|true");
    SceneRow(
        "false", [] { return Texts(false); }, "false|false");
    SceneRow(
        "a char is a number", [] { return Texts<char>('A'); }, "65|65");
    SceneRow(
        "a negative int", [] { return Texts(-12); }, "-12|-12");
    SceneRow(
        "the lowest long long", [] { return Texts(std::numeric_limits<long long>::lowest()); },
        "-9223372036854775808|-9223372036854775808");
    SceneRow(
        "a double shows short and is stored with 17 digits", [] { return Texts(0.1); }, "0.1|0.10000000000000001");
    SceneRow(
        "a large double", [] { return Texts(1e300); }, "1e+300|1.0000000000000001e+300");
    SceneRow(
        "a QString stands as it is", [] { return Texts(QStringLiteral(" a b ")); }, " a b | a b ");
    SceneRow(
        "a narrow string is Latin-1", [] { return Texts(std::string("\xE4")); }, "\xE4|\xE4");

    for (char const * yes : { "true", "TRUE", " on ", "1" })
        SceneRow(
            qPrintable(QStringLiteral("reads as true: ") + QLatin1String(yes)), [yes] { return Reads(false, yes); },
            "yestrue yestrue");
    for (char const * no : { "false", "Off", "0 " })
        SceneRow(
            qPrintable(QStringLiteral("reads as false: ") + QLatin1String(no)), [no] { return Reads(true, no); },
            "yesfalse yesfalse");
    for (char const * bad : { "", "2", "yess" })
        SceneRow(
            qPrintable(QStringLiteral("no bool: '%1'").arg(QLatin1String(bad))), [bad] { return Reads(true, bad); },
            "notrue notrue");
    SceneRow(
        "an int", [] { return Reads(1, " -42 "); }, "yes-42 yes-42");
    for (char const * bad : { "", "1.5", "0x10", "12a", "2147483648", "nan", "1,000" })
        SceneRow(
            qPrintable(QStringLiteral("no int: '%1'").arg(QLatin1String(bad))), [bad] { return Reads(7, bad); },
            "no7 no7");
    SceneRow(
        "a char at its end", [] { return Reads<char>(1, "127"); }, "yes127 yes127");
    SceneRow(
        "a char at its lower end", [] { return Reads<char>(1, "-128"); }, "yes-128 yes-128");
    SceneRow(
        "no char above", [] { return Reads<char>(1, "128"); }, "no1 no1");
    SceneRow(
        "no char below", [] { return Reads<char>(1, "-129"); }, "no1 no1");
    SceneRow(
        "no char at all", [] { return Reads<char>(1, "A"); }, "no1 no1");
    SceneRow(
        "a long long beyond doubles", [] { return Reads(1LL, "9007199254740993"); },
        "yes9007199254740993 yes9007199254740993");
    SceneRow(
        "no long long above", [] { return Reads(1LL, "9223372036854775808"); }, "no1 no1");
    SceneRow(
        "a double", [] { return Reads(1.0, " -2.5e3 "); }, "yes-2500 yes-2500");
    for (char const * bad : { "", "nan", "NaN", "inf", "-inf", "infinity", "1e999", "1,5", "1.5 dB" })
        SceneRow(
            qPrintable(QStringLiteral("no double: '%1'").arg(QLatin1String(bad))), [bad] { return Reads(7.5, bad); },
            "no7.5 no7.5");
    SceneRow(
        "any QString", [] { return Reads(QStringLiteral("x"), "nan"); }, "yesnan yesnan");
    SceneRow(
        "the empty QString", [] { return Reads(QStringLiteral("x"), ""); }, "yes yes");
    SceneRow(
        "a narrow string", [] { return Reads(std::string("x"), "\xC3\xA4"); }, "yes\xE4 yes\xE4");
    SceneRow(
        "no narrow string beyond Latin-1", [] { return Reads(std::string("x"), "\xE2\x82\xAC"); }, "nox nox");
}

void tst_value::storedDoublesReadBack()
{
    QLocale const before;
    QLocale::setDefault(QLocale(QLocale::German));
    Value<double> one;
    Value<double> two;
    for (double content : { 0.1, 1.0 / 3.0, 1e-308, 5e-324, -123456.789012345678, 1.7976931348623157e308 }) {
        one.SetValue(content, nullptr);
        QVERIFY(two.FromStoredText(one.ToStoredText(), nullptr));
        QVERIFY(two.GetValue() == content);
        QVERIFY(two.SetStringValue(one.GetStringValue(), nullptr));
        QVERIFY(two.GetValue() == content);
    }
    QLocale::setDefault(before);
}

void tst_value::types_data()
{
    SceneColumns();
    SceneRow(
        "bool", [] { return TypeOf(Value<bool>()); }, "1Bool");
    SceneRow(
        "char", [] { return TypeOf(Value<char>()); }, "2Char");
    SceneRow(
        "int", [] { return TypeOf(Value<int>()); }, "3Int");
    SceneRow(
        "long long", [] { return TypeOf(Value<long long>()); }, "4Int64");
    SceneRow(
        "double", [] { return TypeOf(Value<double>()); }, "5Float");
    SceneRow(
        "QString", [] { return TypeOf(Value<QString>()); }, "6String");
    SceneRow(
        "narrow string", [] { return TypeOf(Value<std::string>()); }, "7CString");
    SceneRow(
        "numeric int", [] { return TypeOf(ValueNumeric<int>()); }, "8NumericInt");
    SceneRow(
        "numeric long long", [] { return TypeOf(ValueNumeric<long long>()); }, "9NumericInt64");
    SceneRow(
        "numeric double", [] { return TypeOf(ValueNumeric<double>()); }, "10NumericFloat");
    SceneRow(
        "selection", [] { return TypeOf(ValueSelection()); }, "11Selection");
    SceneRow(
        "list", [] { return TypeOf(ValueList<BearingResult>()); }, "12List");
    SceneRow(
        "image", [] { return TypeOf(ValueAgedImage()); }, "13AgedImage");
    SceneRow(
        "assign takes the content of the same type",
        [] {
            Log log;
            Value<int> one(QStringLiteral("one"));
            Value<int> two(QStringLiteral("two"));
            Listener a("a", log);
            two.AddObserver(&a);
            one.SetValue(4, nullptr);
            bool const taken = two.Assign(one);
            bool const again = two.Assign(one);
            return YesNo(taken) + YesNo(again) + two.GetStringValue() + two.GetName() + log.Text();
        },
        "yesyes4twoa3");
    SceneRow(
        "assign refuses another type",
        [] {
            Value<int> one;
            Value<double> two;
            one.SetValue(4, nullptr);
            bool const taken = two.Assign(one);
            return YesNo(taken) + two.GetStringValue();
        },
        "no0");
    SceneRow(
        "assign keeps the limits of a numeric value",
        [] {
            Value<int> one;
            ValueNumeric<int> two;
            one.SetValue(400, nullptr);
            two.SetMinMax(0, 100, 0, nullptr);
            bool const taken = two.Assign(one);
            return YesNo(taken) + two.GetStringValue();
        },
        "yes100");
    SceneRow(
        "compare",
        [] {
            Value<int> one;
            Value<int> two;
            Value<double> other;
            QString seen = YesNo(one.Compare(&two)) + YesNo(one.Compare(&other)) + YesNo(one.Compare(nullptr));
            two.SetValue(1, nullptr);
            return seen + YesNo(one.Compare(&two));
        },
        "yesnonono");
}

void tst_value::base_data()
{
    SceneColumns();
    SceneRow(
        "name, state, and no path outside the tree",
        [] {
            Value<int> const value(QStringLiteral("level"), eStateDisabled);
            return value.GetName() + QString::number(value.GetState()) + value.GetPathName();
        },
        "level2");
    SceneRow(
        "the state is valid at first", [] { return QString::number(Value<int>().GetState()); }, "0");
    SceneRow(
        "a state that differs notifies code 2",
        [] {
            Log log;
            Value<int> value;
            Listener a("a", log);
            Listener b("b", log);
            value.AddObserver(&a);
            value.AddObserver(&b);
            value.SetState(eStateDisabled, &b);
            value.SetState(eStateDisabled, nullptr);
            return log.Text() + QString::number(value.GetState());
        },
        "a22");
    SceneRow(
        "a state set to going away comes back",
        [] {
            Log log;
            Value<int> value;
            Listener a("a", log);
            value.AddObserver(&a);
            value.SetState(eStateGoingAway, nullptr);
            value.SetState(eStateValid, nullptr);
            return log.Text() + QString::number(value.GetState());
        },
        "a2 a20");
    SceneRow(
        "a new name notifies code 2, the same one nobody",
        [] {
            Log log;
            Value<int> value(QStringLiteral("one"));
            Listener a("a", log);
            Listener b("b", log);
            value.AddObserver(&a);
            value.AddObserver(&b);
            value.SetName(QStringLiteral("two"), &b);
            value.SetName(QStringLiteral("two"), nullptr);
            return log.Text() + value.GetName();
        },
        "a2two");
    SceneRow(
        "who says that a value has changed notifies the code",
        [] {
            Log log;
            Value<int> value;
            Listener a("a", log);
            value.AddObserver(&a);
            value.HasChanged(eRangeChanged, nullptr);
            value.HasChanged(eRangeChanged, &a);
            return log.Text();
        },
        "a4");
    SceneRow(
        "the delete observer is kept",
        [] {
            class Item : public ITreeItem
            {
            public:
                void SubjectGoesAway(ValueBase * value) override { m_name = value->GetName(); }

                QString RenameSubject(ValueBase *, QString const & name) override
                {
                    return name == QLatin1String("taken") ? QString() : QLatin1Char('/') + name;
                }

                QString m_name;
            };

            Item item;
            QString seen;
            {
                Value<int> value(QStringLiteral("one"));
                value.SetDeleteObserver(&item);
                seen += YesNo(value.GetDeleteObserver() == &item);
                value.SetName(QStringLiteral("taken"), nullptr);
                seen += value.GetName();
                value.SetName(QStringLiteral("two"), nullptr);
                seen += value.GetPathName();
            }
            return seen + item.m_name;
        },
        "yesone/twotwo");
    SceneRow(
        "timer callback and optimize trigger do nothing",
        [] {
            Log log;
            Value<int> value;
            Listener a("a", log);
            value.AddObserver(&a);
            value.TimerCallback(1);
            value.OptimizeTrigger();
            return log.Text();
        },
        "");
}

void tst_value::recorder_data()
{
    SceneColumns();
    SceneRow(
        "there is none at first", [] { return YesNo(ValueBase::Recorder()); }, "no");
    SceneRow(
        "it hears before the change and before the observers",
        [] {
            Log log;
            Recorder const recorder(log);
            Value<int> value;
            Listener a("a", log);
            value.AddObserver(&a);
            value.SetValue(1, nullptr);
            value.SetValue(1, nullptr);
            value.FromStoredText(QStringLiteral("2"), nullptr);
            value.SetStringValue(QStringLiteral("x"), nullptr);
            return log.Text();
        },
        "=0 a3 =1 a3");
    SceneRow(
        "it hears of a set, a commit and a clamp of a number, not of an interim value",
        [] {
            Log log;
            Recorder const recorder(log);
            ValueNumeric<int> value;
            value.SetNumericValue(50.0, nullptr);
            value.SetInterimValue(60.0, nullptr);
            value.CommitInterimValue(nullptr);
            value.CommitInterimValue(nullptr);
            value.SetMinMax(0, 100, 0, nullptr);
            value.SetMinMax(0, 10, 0, nullptr);
            value.SetValue(1000, nullptr);
            return log.Text();
        },
        "=0 =50 =60");
    SceneRow(
        "when a clamp is recorded the old limits still hold",
        [] {
            class Limits : public IValueRecorder
            {
            public:
                void BeforeChange(ValueBase & value) override
                {
                    m_max = dynamic_cast<ValueNumeric<int> &>(value).GetMax();
                }

                int m_max = 0;
            };

            Limits limits;
            ValueNumeric<int> value;
            value.SetMinMax(0, 100, 0, nullptr);
            value.SetValue(50, nullptr);
            ValueBase::SetRecorder(&limits);
            value.SetMinMax(0, 10, 0, nullptr);
            ValueBase::SetRecorder(nullptr);
            return QString::number(limits.m_max);
        },
        "100");
    SceneRow(
        "it hears of a choice and of items",
        [] {
            Log log;
            Recorder const recorder(log);
            ValueSelection value;
            value.AddItem(SelectionItem(QStringLiteral("x"), 1.0, 5));
            value.AddItems({});
            value.Select(5L, nullptr);
            value.Select(5L, nullptr);
            value.Select(6L, nullptr);
            value.DeleteItems();
            value.DeleteItems();
            return log.Text();
        },
        "= = =5");
    SceneRow(
        "it hears of an assignment",
        [] {
            Log log;
            Value<int> one;
            Value<int> two;
            one.SetValue(4, nullptr);
            Recorder const recorder(log);
            two.Assign(one);
            two.Assign(one);
            return log.Text();
        },
        "=0");
    SceneRow(
        "it hears of entries of a list",
        [] {
            Log log;
            Recorder const recorder(log);
            ValueList<BearingResult> value;
            value.Clear(nullptr);
            value.Append(BearingResult({ 1.0 }));
            value.Clear(nullptr);
            return log.Text();
        },
        "= =1 \"\n");
}

void tst_value::farewell_data()
{
    SceneColumns();
    SceneRow(
        "a value that is destroyed says so first, and can be read then",
        [] {
            Log log;
            auto value = std::make_unique<Value<int>>(QStringLiteral("one"));
            value->SetValue(7, nullptr);
            Listener a("a", log, [&log](Observable * subject, TChangeCode) {
                auto * const going = dynamic_cast<Value<int> *>(subject);
                log.Add(QString::number(going->GetState()) + going->GetStringValue());
            });
            value->AddObserver(&a);
            value.reset();
            return log.Text();
        },
        "a2 17");
    SceneRow(
        "nobody binds to a value that goes away",
        [] {
            Log log;
            auto value = std::make_unique<Value<int>>();
            Listener b("b", log);
            Listener a("a", log, [&](Observable * subject, TChangeCode) { log.Add(YesNo(subject->AddObserver(&b))); });
            value->AddObserver(&a);
            value.reset();
            return log.Text();
        },
        "a2 no");
    SceneRow(
        "a value that goes away announces nothing more",
        [] {
            Log log;
            auto value = std::make_unique<Value<int>>();
            Listener a("a", log, [](Observable * subject, TChangeCode) {
                auto * const going = dynamic_cast<Value<int> *>(subject);
                going->SetValue(8, nullptr);
                going->SetState(eStateValid, nullptr);
            });
            value->AddObserver(&a);
            value.reset();
            return log.Text();
        },
        "a2");
    SceneRow(
        "it says so inside a transaction too",
        [] {
            Log log;
            auto value = std::make_unique<Value<int>>();
            Listener a("a", log);
            value->AddObserver(&a);
            value->StartTransaction(nullptr);
            value.reset();
            return log.Text();
        },
        "a2");
    SceneRow(
        "a value of every kind says so",
        [] {
            Log log;
            Listener a("a", log);
            auto const end = [&a](auto value) { value->AddObserver(&a); };
            end(std::make_unique<ValueNumeric<double>>());
            end(std::make_unique<ValueSelection>());
            end(std::make_unique<ValueList<BearingResult>>());
            end(std::make_unique<ValueAgedImage>());
            return log.Text();
        },
        "a2 a2 a2 a2");
    SceneRow(
        "deleted inside its own notification it says so to all who are left",
        [] {
            Log log;
            auto value = std::make_unique<Value<int>>();
            Listener a("a", log, [&value](Observable *, TChangeCode code) {
                if (code == eValueChanged)
                    value.reset();
            });
            Listener b("b", log);
            value->AddObserver(&a);
            value->AddObserver(&b);
            value->SetValue(1, nullptr);
            return log.Text();
        },
        "a3 a2 b2");
}

ORIM_CORE_TEST_MAIN(tst_value)
#include "tst_value.moc"
