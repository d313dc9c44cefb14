// SPDX-License-Identifier: MIT
#include "valuelist.h"

#include "scene.h"
#include "testmain.h"

#include <limits>
#include <memory>

namespace {

BearingResult Result(double value, char const * text) { return BearingResult({ value, 2.5 }, QString::fromUtf8(text)); }

struct Stage
{
    Log log;
    ValueList<BearingResult> value{ QStringLiteral("results") };
    Listener a{ "a", log };
    Listener b{ "b", log };

    Stage()
    {
        value.AddObserver(&a);
        value.AddObserver(&b);
    }

    //! Walks the list as a reader does.
    QString Walk()
    {
        QStringList texts;
        for (value.ToBegin(); !value.IsLast(); value.Next())
            texts += value.Current()->GetText();
        return texts.join(QLatin1Char(','));
    }
};

QString Written(BearingResult const & result)
{
    BearingResult read;
    QString const text = FormatBearingResult::ToText(result);
    bool const ok = FormatBearingResult::FromText(text, &read);
    return YesNo(ok) + YesNo(read == result) + QLatin1Char(' ') + text;
}

QString Refused(char const * text)
{
    Stage stage;
    stage.value.Append(Result(1.0, "x"));
    bool const stored = stage.value.FromStoredText(QString::fromLatin1(text), nullptr);
    bool const shown = stage.value.SetStringValue(QString::fromLatin1(text), nullptr);
    return YesNo(stored) + YesNo(shown) + QString::number(stage.value.Size());
}

} // namespace

class tst_valuelist : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void results_data();

    void results() { PlayScene(); }

    void lists_data();

    void lists() { PlayScene(); }
};

void tst_valuelist::results_data()
{
    SceneColumns();
    SceneRow(
        "a result hands over its values, text and count",
        [] {
            BearingResult const result({ 1.5, 2.5 }, QStringLiteral("x"));
            IMarkerValue const & face = result;
            return Number(face.GetValue(0)) + QLatin1Char(' ') + Number(face.GetValue(1)) + QLatin1Char(' ') +
                   face.GetText() + QString::number(face.GetCount());
        },
        "1.5 2.5 x2");
    SceneRow(
        "a value that is not there is -1", [] { return Number(BearingResult({ 1.5 }).GetValue(1)); }, "-1");
    SceneRow(
        "an empty result", [] { return QString::number(BearingResult().GetCount()) + BearingResult().GetText(); }, "0");
    SceneRow(
        "values and text are set, those between become 0",
        [] {
            BearingResult result;
            result.SetValue(2, 7.5);
            result.SetText(QStringLiteral("y"));
            return QString::number(result.GetCount()) + Number(result.GetValue(0)) + Number(result.GetValue(1)) +
                   Number(result.GetValue(2)) + result.GetText();
        },
        "3007.5y");
    SceneRow(
        "an absurd index is ignored, the last one is not",
        [] {
            BearingResult result;
            result.SetValue(4096, 1.0);
            result.SetValue(std::numeric_limits<unsigned int>::max(), 1.0);
            unsigned int const before = result.GetCount();
            result.SetValue(4095, 1.0);
            return QString::number(before) + QLatin1Char(' ') + QString::number(result.GetCount());
        },
        "0 4096");
    SceneRow(
        "an absurd number of values is cut",
        [] { return QString::number(BearingResult(std::vector<double>(5000)).GetCount()); }, "4096");
    SceneRow(
        "results are the same in values and text, NaN too",
        [] {
            double const nan = std::numeric_limits<double>::quiet_NaN();
            BearingResult const one({ nan, 1.0 }, QStringLiteral("x"));
            return YesNo(one == BearingResult({ nan, 1.0 }, QStringLiteral("x"))) +
                   YesNo(one != BearingResult({ nan, 2.0 }, QStringLiteral("x"))) +
                   YesNo(one != BearingResult({ nan }, QStringLiteral("x"))) +
                   YesNo(one != BearingResult({ nan, 1.0 }, QStringLiteral("y")));
        },
        "yesyesyesyes");
    SceneRow(
        "a result as text",
        [] {
            return Written(BearingResult({ 0.1, -2.0 }, QStringLiteral("A 1")));
        },
        "yesyes 0.10000000000000001 -2 \"A%201");
    SceneRow(
        "a result without values", [] { return Written(BearingResult({}, QStringLiteral("A"))); }, "yesyes \"A");
    SceneRow(
        "a result without text", [] { return Written(BearingResult({ 1.0 })); }, "yesyes 1 \"");
    SceneRow(
        "a text with quotes, lines and umlauts",
        [] { return Written(BearingResult({}, QStringLiteral("\"%\n\u00e4"))); }, "yesyes \"%22%25%0A%C3%A4");
}

void tst_valuelist::lists_data()
{
    SceneColumns();
    SceneRow(
        "an empty list",
        [] {
            Stage stage;
            stage.value.Next();
            return YesNo(stage.value.Empty()) + QString::number(stage.value.Size()) + YesNo(stage.value.IsLast()) +
                   YesNo(stage.value.Current());
        },
        "yes0yesno");
    SceneRow(
        "each entry added notifies code 7",
        [] {
            Stage stage;
            stage.value.Append(Result(1.0, "x"));
            stage.value.Append(Result(1.0, "x"), &stage.b);
            return stage.log.Text() + QString::number(stage.value.Size()) + YesNo(stage.value.Empty());
        },
        "a7 b7 a72no");
    SceneRow(
        "the cursor walks all entries and stands past the last one",
        [] {
            Stage stage;
            for (char const * text : { "x", "y", "z" })
                stage.value.Append(Result(1.0, text));
            QString const walked = stage.Walk();
            stage.value.Next();
            return walked + YesNo(stage.value.IsLast()) + YesNo(stage.value.Current()) + stage.Walk();
        },
        "x,y,zyesnox,y,z");
    SceneRow(
        "the last entry is not yet the end",
        [] {
            Stage stage;
            stage.value.Append(Result(1.0, "x"));
            stage.value.ToBegin();
            return YesNo(stage.value.IsLast());
        },
        "no");
    SceneRow(
        "the cursor stays when an entry is added",
        [] {
            Stage stage;
            for (char const * text : { "x", "y" })
                stage.value.Append(Result(1.0, text));
            stage.value.ToBegin();
            stage.value.Next();
            stage.value.Append(Result(1.0, "z"));
            return stage.value.Current()->GetText();
        },
        "y");
    SceneRow(
        "the current entry can be set",
        [] {
            Stage stage;
            stage.value.Append(Result(1.0, "x"));
            stage.value.Current()->SetValue(0, 9.0);
            return stage.log.Text() + Number(stage.value.Current()->GetValue(0));
        },
        "a7 b79");
    SceneRow(
        "an emptied list notifies code 7, once",
        [] {
            Stage stage;
            stage.value.Append(Result(1.0, "x"));
            stage.log.Clear();
            stage.value.Clear(&stage.b);
            stage.value.Clear(nullptr);
            return stage.log.Text() + QString::number(stage.value.Size()) + YesNo(stage.value.IsLast());
        },
        "a70yes");
    SceneRow(
        "other entries put the cursor on the first, the same are silent",
        [] {
            Stage stage;
            stage.value.SetEntries({ Result(1.0, "x"), Result(1.0, "y") }, &stage.b);
            stage.value.Next();
            stage.value.SetEntries({ Result(1.0, "x"), Result(1.0, "y") }, nullptr);
            return stage.log.Text() + stage.value.Current()->GetText();
        },
        "a7x");
    SceneRow(
        "stored text reads back",
        [] {
            Stage from;
            from.value.Append(Result(0.1, "A 1"));
            from.value.Append(BearingResult());
            Stage stage;
            bool const read = stage.value.FromStoredText(from.value.ToStoredText(), &stage.b);
            bool const same = stage.value.Compare(&from.value);
            stage.value.Clear(nullptr);
            bool const shown = stage.value.SetStringValue(from.value.GetStringValue(), nullptr);
            return YesNo(read) + YesNo(same) + YesNo(shown) + YesNo(stage.value.Compare(&from.value)) +
                   stage.log.Text();
        },
        "yesyesyesyesa7 a7 b7 a7 b7");
    SceneRow(
        "the empty text is the empty list",
        [] {
            Stage stage;
            stage.value.Append(Result(1.0, "x"));
            bool const read = stage.value.FromStoredText(QString(), nullptr);
            return YesNo(read) + QString::number(stage.value.Size());
        },
        "yes0");
    SceneRow(
        "a text without a mark is no list", [] { return Refused("1 2 x"); }, "nono1");
    SceneRow(
        "a text with a letter for a number is no list", [] { return Refused("1 x \"y"); }, "nono1");
    SceneRow(
        "nan is no number in a list", [] { return Refused("nan \"y"); }, "nono1");
    SceneRow(
        "a good line and a bad one are no list", [] { return Refused("1 \"y\n2"); }, "nono1");
    SceneRow(
        "an empty line is no result", [] { return Refused("1 \"y\n\n"); }, "nono1");
    SceneRow(
        "assign and compare",
        [] {
            Stage from;
            from.value.Append(Result(1.0, "x"));
            Stage stage;
            bool const before = stage.value.Compare(&from.value);
            bool const taken = stage.value.Assign(from.value);
            bool const itself = stage.value.Assign(stage.value);
            bool const other = stage.value.Assign(Value<int>());
            return YesNo(before) + YesNo(taken) + YesNo(itself) + YesNo(other) +
                   YesNo(stage.value.Compare(&from.value)) + YesNo(stage.value.Compare(nullptr)) + stage.log.Text();
        },
        "noyesyesnoyesnoa7 b7");
    SceneRow(
        "a list is known by a checked cast",
        [] {
            std::unique_ptr<ValueBase> const value = std::make_unique<ValueList<BearingResult>>();
            std::unique_ptr<ValueBase> const read = std::make_unique<ValueList<BearingResult>>();
            return YesNo(value->Assign(*read)) + YesNo(dynamic_cast<ValueList<BearingResult> *>(value.get()));
        },
        "yesyes");
}

ORIM_CORE_TEST_MAIN(tst_valuelist)
#include "tst_valuelist.moc"
