// SPDX-License-Identifier: MIT
#include "naivetree.h"

#include "testmain.h"

#include <QElapsedTimer>

#include <cstdio>

using namespace Worlds;

namespace {

constexpr int Actions = 12;
constexpr int Speaking = 0;          // place of the value
constexpr int Extra = Observers - 1; // index of the observer that an action adds

//! What an observer does when it is first told of a change. Its neighbours are the others, in a ring.
Move ActionOf(int action, int observer, int count)
{
    int const previous = (observer + count - 1) % count;
    int const next = (observer + 1) % count;
    switch (action) {
    case 1:
        return { Act::Unbind, Speaker, observer, 0 };
    case 2:
        return { Act::Unbind, Speaker, previous, 0 };
    case 3:
        return { Act::Unbind, Speaker, next, 0 };
    case 4:
        return { Act::KillObserver, Speaker, observer, 0 };
    case 5:
        return { Act::KillObserver, Speaker, previous, 0 };
    case 6:
        return { Act::KillObserver, Speaker, next, 0 };
    case 7:
        return { Act::Bind, Speaker, Extra, 0 };
    case 8:
        return { Act::UnbindAll, Speaker, 0, 0 };
    case 9:
        return { Act::Remove, Speaking, 0, 0 };
    case 10:
        return { Act::RemoveFolder, Speaker, 0, Speaking / Names };
    case 11:
        return { Act::Set, Speaker, -1, 1000 + observer };
    default:
        return {};
    }
}

//! One case: each observer acts once, when it is first told of a change. Nested: the first of all is told by a set that
//! happens inside a notification of the same value.
Script Acts(std::vector<int> const & actions, bool nested)
{
    int const count = static_cast<int>(actions.size());
    auto acted = std::make_shared<std::vector<bool>>(actions.size(), false);
    auto opened = std::make_shared<bool>(!nested);
    return [=](long long, int observer, TChangeCode code) {
        if (!*opened && code == eInterimChanged) {
            *opened = true;
            return Move{ Act::Set, Speaker, -1, 500 };
        }
        if (code != eValueChanged || observer < 0 || observer >= count || (*acted)[static_cast<std::size_t>(observer)])
            return Move();
        (*acted)[static_cast<std::size_t>(observer)] = true;
        return ActionOf(actions[static_cast<std::size_t>(observer)], observer, count);
    };
}

template <class World>
Heards Play(std::vector<int> const & actions, bool nested)
{
    int const count = static_cast<int>(actions.size());
    World world(Acts(actions, nested));
    world.Do({ Act::Plant, Speaking, 0, 0 });
    world.Do({ Act::NewObserver, 0, Extra, 0 });
    for (int observer = 0; observer < count; ++observer) {
        world.Do({ Act::NewObserver, 0, observer, 0 });
        world.Do({ Act::Bind, Speaking, observer, 0 });
    }
    if (nested) {
        // a bracket whose end tells the interim code is the outer notification
        world.Do({ Act::Start, Speaking, -1, 0 });
        world.Do({ Act::Set, Speaking, -1, 7 });
        world.Do({ Act::EndInterim, Speaking, -1, 0 });
    } else {
        world.Do({ Act::Set, Speaking, -1, 7 });
    }
    world.Do({ Act::Set, Speaking, -1, 8 }); // whoever is left hears this
    world.Do({ Act::Plant, Speaking, 0, 0 });
    world.Do({ Act::Set, Speaking, -1, 9 }); // a value planted anew has no observers
    std::array<int, 3> const end = world.Look(Speaking);
    Heards heard = world.Log();
    heard.push_back({ end[0], end[1], end[2], 0, 0 });
    return heard;
}

} // namespace

//! Every combination of what the observers of one value may do to each other and to it inside its notification.
class tst_tree_disruption : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyCombination();
};

void tst_tree_disruption::everyCombination()
{
    int const observers = static_cast<int>(TestStage::Turns(3, 4));
    int total = 1;
    for (int i = 0; i < observers; ++i)
        total *= Actions;
    QElapsedTimer timer;
    timer.start();
    std::size_t heard = 0;
    for (int number = 0; number < total; ++number)
        for (bool const nested : { false, true }) {
            std::vector<int> actions;
            for (int rest = number, i = 0; i < observers; ++i, rest /= Actions)
                actions.push_back(rest % Actions);
            Heards const real = Play<RealWorld>(actions, nested);
            heard += real.size();
            QVERIFY2(real == Play<NaiveWorld>(actions, nested),
                     qPrintable(QStringLiteral("case %1, nested %2").arg(number).arg(nested)));
        }
    std::printf("disruption inside notifications: %d observers, %d actions, %d cases, %zu notifications, %.2f s, "
                "0 differences\n",
                observers, Actions, 2 * total, heard, static_cast<double>(timer.elapsed()) / 1000.0);
}

ORIM_CORE_TEST_MAIN(tst_tree_disruption)
#include "tst_tree_disruption.moc"
