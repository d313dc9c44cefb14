// SPDX-License-Identifier: MIT
#include "valueselection.h"

#include "scene.h"
#include "testmain.h"
#include "value.h"

#include <cmath>
#include <limits>
#include <memory>

namespace {

//! A selection of four items with a listener on it. Keys, numbers and places all differ.
struct Stage
{
    Log log;
    ValueSelection value{ QStringLiteral("speed") };
    Listener a{ "a", log };
    Listener b{ "b", log };

    Stage()
    {
        value.AddItems({ SelectionItem(QStringLiteral("Off"), 0.0, 10), SelectionItem(QStringLiteral("1 s"), 1.5, 11),
                         SelectionItem(QStringLiteral("2 s"), 2.5, 12),
                         SelectionItem(QStringLiteral("Infinite"), -1.0, -1) });
        value.AddObserver(&a);
        value.AddObserver(&b);
    }

    QString Seen() const { return log.Text() + QLatin1Char(' ') + value.GetStringValue(); }
};

QString Names(ValueSelection const & value)
{
    QStringList names;
    for (int i = 0; i < value.GetItemCount(); ++i)
        names += value.GetItemAt(i)->GetName();
    return names.join(QLatin1Char(','));
}

QString NameOf(SelectionItem const * item) { return item ? item->GetName() : QStringLiteral("null"); }

} // namespace

class tst_valueselection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void choice_data();

    void choice() { PlayScene(); }

    void items_data();

    void items() { PlayScene(); }

    void copies_data();

    void copies() { PlayScene(); }
};

void tst_valueselection::choice_data()
{
    SceneColumns();
    auto const select = [](char const * name, auto const & what, char const * seen) {
        SceneRow(
            name,
            [what] {
                Stage stage;
                bool const found = what(stage.value, &stage.b);
                bool const again = what(stage.value, nullptr);
                return YesNo(found) + YesNo(again) + stage.Seen();
            },
            seen);
    };
    using V = ValueSelection;
    select(
        "by long key, and the second time is silent", [](V & v, IObserver * o) { return v.Select(11L, o); },
        "yesyesa3 1 s");
    select(
        "by negative key", [](V & v, IObserver * o) { return v.Select(-1L, o); }, "yesyesa3 Infinite");
    select(
        "by double", [](V & v, IObserver * o) { return v.Select(2.5, o); }, "yesyesa3 2 s");
    select(
        "by double, exact alone", [](V & v, IObserver * o) { return v.Select(2.4, o); }, "nono ");
    select(
        "by double, the nearest", [](V & v, IObserver * o) { return v.Select(2.4, o, true); }, "yesyesa3 2 s");
    select(
        "by double, the first of two as near", [](V & v, IObserver * o) { return v.Select(2.0, o, true); },
        "yesyesa3 1 s");
    select(
        "by double, infinity is nearest to the first",
        [](V & v, IObserver * o) { return v.Select(std::numeric_limits<double>::infinity(), o, true); },
        "yesyesa3 Off");
    select(
        "by wide text", [](V & v, IObserver * o) { return v.Select(L"1 s", o); }, "yesyesa3 1 s");
    select(
        "by QString", [](V & v, IObserver * o) { return v.Select(QStringLiteral("Infinite"), o); },
        "yesyesa3 Infinite");
    select(
        "by place", [](V & v, IObserver * o) { return v.SelectIndex(0, o); }, "yesyesa3 Off");
    select(
        "by name as text for people", [](V & v, IObserver * o) { return v.SetStringValue(QStringLiteral("2 s"), o); },
        "yesyesa3 2 s");
    select(
        "by stored key", [](V & v, IObserver * o) { return v.FromStoredText(QStringLiteral("11"), o); },
        "yesyesa3 1 s");

    select(
        "an unknown key", [](V & v, IObserver * o) { return v.Select(4L, o); }, "nono ");
    select(
        "an unknown number", [](V & v, IObserver * o) { return v.Select(4.0, o); }, "nono ");
    select(
        "NaN", [](V & v, IObserver * o) { return v.Select(std::numeric_limits<double>::quiet_NaN(), o); }, "nono ");
    select(
        "NaN is nearest to nothing",
        [](V & v, IObserver * o) { return v.Select(std::numeric_limits<double>::quiet_NaN(), o, true); }, "nono ");
    select(
        "an unknown wide text", [](V & v, IObserver * o) { return v.Select(L"off", o); }, "nono ");
    select(
        "no wide text", [](V & v, IObserver * o) { return v.Select(static_cast<wchar_t const *>(nullptr), o); },
        "nono ");
    select(
        "an unknown QString", [](V & v, IObserver * o) { return v.Select(QStringLiteral("3 s"), o); }, "nono ");
    select(
        "a place below", [](V & v, IObserver * o) { return v.SelectIndex(-1, o); }, "nono ");
    select(
        "a place one past the end", [](V & v, IObserver * o) { return v.SelectIndex(4, o); }, "nono ");
    select(
        "an unknown stored key", [](V & v, IObserver * o) { return v.FromStoredText(QStringLiteral("4"), o); },
        "nono ");
    select(
        "a stored name is no key", [](V & v, IObserver * o) { return v.FromStoredText(QStringLiteral("Off"), o); },
        "nono ");
    select(
        "a stored number is no key", [](V & v, IObserver * o) { return v.FromStoredText(QStringLiteral("11.0"), o); },
        "nono ");

    SceneRow(
        "nothing is chosen at first",
        [] {
            Stage const stage;
            ValueSelection const & v = stage.value;
            return NameOf(v.GetCurrentItem()) + QString::number(v.GetCurrentKey()) + Number(v.GetCurrentValue()) +
                   QString::number(v.GetCurrentIndex()) + v.GetStringValue() + v.ToStoredText();
        },
        "null00-1");
    SceneRow(
        "the chosen item",
        [] {
            Stage stage;
            stage.value.Select(12L, nullptr);
            ValueSelection const & v = stage.value;
            return NameOf(v.GetCurrentItem()) + QLatin1Char(' ') + QString::number(v.GetCurrentKey()) +
                   QLatin1Char(' ') + Number(v.GetCurrentValue()) + QLatin1Char(' ') +
                   QString::number(v.GetCurrentIndex()) + QLatin1Char(' ') + v.ToStoredText();
        },
        "2 s 12 2.5 2 12");
    SceneRow(
        "a bad choice keeps the one before",
        [] {
            Stage stage;
            stage.value.Select(12L, nullptr);
            stage.value.Select(99L, nullptr);
            stage.value.Select(L"", nullptr);
            return stage.Seen();
        },
        "a3 b3 2 s");
    SceneRow(
        "the empty stored text chooses nothing",
        [] {
            Stage stage;
            stage.value.Select(12L, nullptr);
            bool const read = stage.value.FromStoredText(QString(), nullptr);
            return YesNo(read) + stage.Seen() + QString::number(stage.value.GetCurrentIndex());
        },
        "yesa3 b3 a3 b3 -1");
}

void tst_valueselection::items_data()
{
    SceneColumns();
    SceneRow(
        "an item keeps what it was built from",
        [] {
            SelectionItem const item(QStringLiteral("x"), 2.5, -7);
            return item.GetName() + Number(item.GetValue()) + QString::number(item.GetKey());
        },
        "x2.5-7");
    SceneRow(
        "of one name or number the first item counts",
        [] {
            QString const name = QStringLiteral("x");
            ValueSelection value;
            value.AddItems({ SelectionItem(name, 2.5, 7), SelectionItem(name, 2.5, 8) });
            QStringList seen{ QString::number(value.GetItem(name)->GetKey()),
                              QString::number(value.GetItem(2.5)->GetKey()), QString::number(value.GetItemIndex(name)),
                              QString::number(value.GetItemIndex(2.5)),
                              QString::number(value.GetKeyForItemName(name)) };
            auto const choose = [&](auto const & what) {
                value.Select(8L, nullptr);
                bool const found = value.Select(what, nullptr);
                seen += YesNo(found) + QString::number(value.GetCurrentKey());
            };
            choose(name);
            choose(2.5);
            choose(L"x");
            return seen.join(QLatin1Char(' '));
        },
        "7 7 0 0 7 yes7 yes7 yes7");
    SceneRow(
        "of one key the first item counts",
        [] {
            ValueSelection value;
            value.AddItems({ SelectionItem(QStringLiteral("x"), 1.0, 7), SelectionItem(QStringLiteral("y"), 2.0, 7) });
            value.SelectIndex(1, nullptr);
            value.Select(7L, nullptr);
            return value.GetItem(7L)->GetName() + value.GetItemNameForKey(7) + value.GetStringValue() +
                   QString::number(value.GetItemIndex(7L));
        },
        "xxx0");
    SceneRow(
        "items are the same in all three parts",
        [] {
            SelectionItem const item(QStringLiteral("x"), 2.5, 7);
            return YesNo(item == SelectionItem(QStringLiteral("x"), 2.5, 7)) +
                   YesNo(item != SelectionItem(QStringLiteral("y"), 2.5, 7)) +
                   YesNo(item != SelectionItem(QStringLiteral("x"), 2.4, 7)) +
                   YesNo(item != SelectionItem(QStringLiteral("x"), 2.5, 8));
        },
        "yesyesyesyes");
    SceneRow(
        "look-ups by name, number, key and place",
        [] {
            Stage const stage;
            ValueSelection const & v = stage.value;
            return QStringList{ NameOf(v.GetItem(QStringLiteral("2 s"))),
                                NameOf(v.GetItem(1.5)),
                                NameOf(v.GetItem(-1L)),
                                NameOf(v.GetItemAt(0)),
                                QString::number(v.GetItemIndex(QStringLiteral("2 s"))),
                                QString::number(v.GetItemIndex(1.5)),
                                QString::number(v.GetItemIndex(-1L)),
                                QString::number(v.GetItemCount()) }
                .join(QLatin1Char(' '));
        },
        "2 s 1 s Infinite Off 2 1 3 4");
    SceneRow(
        "look-ups that find nothing",
        [] {
            Stage const stage;
            ValueSelection const & v = stage.value;
            return QStringList{ NameOf(v.GetItem(QStringLiteral("x"))),
                                NameOf(v.GetItem(1.4)),
                                NameOf(v.GetItem(5L)),
                                NameOf(v.GetItem(std::numeric_limits<double>::quiet_NaN())),
                                NameOf(v.GetItemAt(-1)),
                                NameOf(v.GetItemAt(4)),
                                QString::number(v.GetItemIndex(QStringLiteral("x"))),
                                QString::number(v.GetItemIndex(5L)) }
                .join(QLatin1Char(' '));
        },
        "null null null null null null -1 -1");
    SceneRow(
        "key for a name and name for a key",
        [] {
            Stage const stage;
            bool found = false;
            long const key = stage.value.GetKeyForItemName(QStringLiteral("2 s"), &found);
            bool unknown = true;
            long const none = stage.value.GetKeyForItemName(QStringLiteral("x"), &unknown);
            return QString::number(key) + YesNo(found) + QString::number(none) + YesNo(unknown) +
                   stage.value.GetItemNameForKey(-1) + YesNo(stage.value.GetItemNameForKey(5).isEmpty());
        },
        "12yes0noInfiniteyes");
    SceneRow(
        "of items of one key the first one counts",
        [] {
            Stage stage;
            stage.value.AddItem(SelectionItem(QStringLiteral("again"), 9.0, 11));
            stage.value.Select(11L, nullptr);
            return stage.value.GetStringValue();
        },
        "1 s");
    SceneRow(
        "an item added goes to the end with code 7, and nothing is chosen",
        [] {
            Stage stage;
            stage.value.AddItem(SelectionItem(QStringLiteral("x"), 1.0, 5), &stage.b);
            return stage.log.Text() + QLatin1Char(' ') + Names(stage.value) + stage.value.GetStringValue();
        },
        "a7 Off,1 s,2 s,Infinite,x");
    SceneRow(
        "several items make one code 7, none makes none",
        [] {
            Stage stage;
            stage.value.AddItems({ SelectionItem(QStringLiteral("x"), 1.0, 5), SelectionItem() });
            stage.value.AddItems({});
            return stage.log.Text() + QString::number(stage.value.GetItemCount());
        },
        "a7 b76");
    SceneRow(
        "items added from another selection, without its choice",
        [] {
            Stage from;
            from.value.Select(12L, nullptr);
            Stage stage;
            stage.value.DeleteItems();
            stage.log.Clear();
            stage.value.AddItemsFrom(from.value, &stage.b);
            return stage.log.Text() + QLatin1Char(' ') + Names(stage.value) + stage.value.GetStringValue();
        },
        "a7 Off,1 s,2 s,Infinite");
    SceneRow(
        "items added from itself",
        [] {
            Stage stage;
            stage.value.AddItemsFrom(stage.value);
            return QString::number(stage.value.GetItemCount());
        },
        "8");
    SceneRow(
        "an item before the chosen one goes, the choice stays",
        [] {
            Stage stage;
            stage.value.Select(12L, nullptr);
            stage.log.Clear();
            bool const gone = stage.value.DeleteItem(10, &stage.b);
            return YesNo(gone) + stage.Seen() + QString::number(stage.value.GetCurrentIndex());
        },
        "yesa7 2 s1");
    SceneRow(
        "an item behind the chosen one goes, the choice stays",
        [] {
            Stage stage;
            stage.value.Select(11L, nullptr);
            stage.log.Clear();
            stage.value.DeleteItem(12);
            return stage.Seen() + QString::number(stage.value.GetCurrentIndex());
        },
        "a7 b7 1 s1");
    SceneRow(
        "the chosen item goes: code 7, then 3, and nothing is chosen",
        [] {
            Stage stage;
            stage.value.Select(11L, nullptr);
            stage.log.Clear();
            stage.value.DeleteItem(11, &stage.b);
            return stage.Seen() + QString::number(stage.value.GetCurrentIndex());
        },
        "a7 a3 -1");
    SceneRow(
        "an unknown item does not go",
        [] {
            Stage stage;
            bool const gone = stage.value.DeleteItem(99);
            return YesNo(gone) + stage.Seen();
        },
        "no ");
    SceneRow(
        "all items go, and once more is silent",
        [] {
            Stage stage;
            stage.value.Select(11L, nullptr);
            stage.log.Clear();
            stage.value.DeleteItems(&stage.b);
            stage.value.DeleteItems();
            return stage.Seen() + QString::number(stage.value.GetItemCount());
        },
        "a7 a3 0");
    SceneRow(
        "a selection deleted at code 7 sends no code 3",
        [] {
            Log log;
            auto value = std::make_unique<ValueSelection>();
            value->AddItem(SelectionItem(QStringLiteral("x"), 1.0, 5));
            value->Select(5L, nullptr);
            Listener a("a", log, [&value](Observable *, TChangeCode code) {
                if (code == eItemsChanged)
                    value.reset();
            });
            value->AddObserver(&a);
            value->DeleteItems();
            return log.Text();
        },
        "a7 a2");
}

void tst_valueselection::copies_data()
{
    SceneColumns();
    SceneRow(
        "items and choice are copied; observers, name and path are not",
        [] {
            Stage from;
            from.value.Select(12L, nullptr);
            from.log.Clear();
            Stage stage;
            ValueSelection copy(QStringLiteral("copy"));
            copy.AddObserver(&stage.a);
            copy = from.value;
            return stage.log.Text() + QLatin1Char(' ') + Names(copy) + QLatin1Char(' ') + copy.GetStringValue() +
                   QLatin1Char(' ') + copy.GetName() + copy.GetPathName() + QString::number(copy.GetObserverCount()) +
                   from.log.Text();
        },
        "a7 a3 Off,1 s,2 s,Infinite 2 s copy1");
    SceneRow(
        "the same items with another choice make code 3 alone",
        [] {
            Stage from;
            from.value.Select(12L, nullptr);
            Stage stage;
            stage.value = from.value;
            return stage.Seen();
        },
        "a3 b3 2 s");
    SceneRow(
        "other items with the same choice make code 7 alone",
        [] {
            Stage from;
            from.value.Select(12L, nullptr);
            from.value.DeleteItem(10);
            Stage stage;
            stage.value.Select(12L, nullptr);
            stage.log.Clear();
            stage.value = from.value;
            return stage.Seen() + QString::number(stage.value.GetCurrentIndex());
        },
        "a7 b7 2 s1");
    SceneRow(
        "the same is silent, itself too",
        [] {
            Stage const from;
            Stage stage;
            stage.value = from.value;
            ValueSelection const & same = stage.value;
            stage.value = same;
            return stage.Seen();
        },
        " ");
    SceneRow(
        "assign copies a selection and refuses another type",
        [] {
            Stage from;
            from.value.Select(11L, nullptr);
            ValueSelection copy;
            bool const taken = copy.Assign(from.value);
            bool const refused = copy.Assign(Value<int>());
            return YesNo(taken) + YesNo(refused) + copy.GetStringValue();
        },
        "yesno1 s");
    SceneRow(
        "compare sees items and choice",
        [] {
            Stage const one;
            Stage two;
            QString seen = YesNo(one.value.Compare(&two.value)) + YesNo(one.value.Compare(nullptr));
            two.value.Select(11L, nullptr);
            seen += YesNo(one.value.Compare(&two.value));
            two.value.FromStoredText(QString(), nullptr);
            two.value.DeleteItem(11);
            return seen + YesNo(one.value.Compare(&two.value));
        },
        "yesnonono");
    SceneRow(
        "a stored choice reads back",
        [] {
            QString seen;
            for (int i = -1; i < 4; ++i) {
                Stage from;
                from.value.SelectIndex(i, nullptr);
                Stage stage;
                stage.value.SelectIndex((i + 2) % 4, nullptr);
                bool const read = stage.value.FromStoredText(from.value.ToStoredText(), nullptr);
                seen += YesNo(read) + YesNo(stage.value.Compare(&from.value));
            }
            return seen;
        },
        "yesyesyesyesyesyesyesyesyesyes");
}

ORIM_CORE_TEST_MAIN(tst_valueselection)
#include "tst_valueselection.moc"
