// SPDX-License-Identifier: MIT
#include "replayonbinding.h"

#include "scene.h"
#include "testmain.h"
#include "valuelist.h"
#include "valuenumeric.h"
#include "valueselection.h"

#include <memory>

namespace {

template <class T>
QString Replayed()
{
    Log log;
    T value;
    Listener a("a", log);
    ReplayOnBinding(&value, &a);
    return log.Text() + QString::number(value.GetObserverCount());
}

} // namespace

class tst_replayonbinding : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void replay_data();

    void replay() { PlayScene(); }
};

void tst_replayonbinding::replay_data()
{
    SceneColumns();
    SceneRow(
        "a number: 2, 4, 3, and nobody is added", [] { return Replayed<ValueNumeric<double>>(); }, "a2 a4 a30");
    SceneRow(
        "a bool", [] { return Replayed<Value<bool>>(); }, "a2 a4 a30");
    SceneRow(
        "a selection: 2, 4, 7, 3", [] { return Replayed<ValueSelection>(); }, "a2 a4 a7 a30");
    SceneRow(
        "a list is no selection", [] { return Replayed<ValueList<BearingResult>>(); }, "a2 a4 a30");
    SceneRow(
        "the value speaks, to the one observer alone",
        [] {
            Log log;
            Value<int> value;
            bool right = true;
            Listener a("a", log, [&](Observable * subject, TChangeCode) { right = right && subject == &value; });
            Listener b("b", log);
            value.AddObserver(&b);
            ReplayOnBinding(&value, &a);
            return log.Text() + YesNo(right);
        },
        "a2 a4 a3yes");
    SceneRow(
        "null does nothing",
        [] {
            Log log;
            Listener a("a", log);
            Value<int> value;
            ReplayOnBinding(nullptr, &a);
            ReplayOnBinding(&value, nullptr);
            ReplayOnBinding(nullptr, nullptr);
            return log.Text();
        },
        "");
    SceneRow(
        "the value is deleted on the way",
        [] {
            Log log;
            auto value = std::make_unique<Value<int>>();
            Listener a("a", log, [&value](Observable *, TChangeCode code) {
                if (code == eRangeChanged)
                    value.reset();
            });
            ReplayOnBinding(value.get(), &a);
            return log.Text();
        },
        "a2 a4");
    SceneRow(
        "the observer is deleted on the way",
        [] {
            Log log;
            Value<int> value;
            std::unique_ptr<Listener> a;
            a = std::make_unique<Listener>("a", log, [&a](Observable *, TChangeCode code) {
                if (code == eRangeChanged)
                    a.reset();
            });
            ReplayOnBinding(&value, a.get());
            return log.Text();
        },
        "a2 a4");
}

ORIM_CORE_TEST_MAIN(tst_replayonbinding)
#include "tst_replayonbinding.moc"
