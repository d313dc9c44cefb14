// SPDX-License-Identifier: MIT
#include "naivetree.h"

#include "testmain.h"

#include <QElapsedTimer>

#include <cinttypes>
#include <cstdio>

using namespace Worlds;

namespace {

//! A well mixed number for each pair, the same in every run.
std::uint64_t Draw(std::uint64_t seed, std::uint64_t turn)
{
    std::uint64_t z = seed + turn * 0x9E3779B97F4A7C15u;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
    return z ^ (z >> 31);
}

struct Share
{
    Act act;
    int perMille;
};

//! How often each move is made.
constexpr std::array<Share, 15> Shares{ { { Act::Set, 420 },
                                          { Act::Bind, 320 },
                                          { Act::Plant, 60 },
                                          { Act::NewObserver, 40 },
                                          { Act::Unbind, 40 },
                                          { Act::End, 35 },
                                          { Act::MakeFirst, 30 },
                                          { Act::Rename, 15 },
                                          { Act::SetState, 13 },
                                          { Act::Start, 12 },
                                          { Act::Remove, 5 },
                                          { Act::KillObserver, 4 },
                                          { Act::KillValue, 3 },
                                          { Act::UnbindAll, 2 },
                                          { Act::RemoveFolder, 1 } } };

constexpr int Sum()
{
    int sum = 0;
    for (Share const & share : Shares)
        sum += share.perMille;
    return sum;
}

static_assert(Sum() == 1000, "shares of a whole");

Move AnyMove(std::uint64_t dice)
{
    Move move;
    int left = static_cast<int>(dice % 1000);
    for (Share const & share : Shares) {
        if (left < share.perMille) {
            move.act = share.act;
            break;
        }
        left -= share.perMille;
    }
    move.place = static_cast<int>((dice >> 12) % Places);
    move.observer = static_cast<int>((dice >> 20) % Observers);
    move.content = static_cast<int>((dice >> 28) % Places);
    if (move.act == Act::Set && (dice >> 36) % 4)
        move.observer = -1;
    return move;
}

//! Moves inside Update: every third notification is answered, half of them by a move on the value that speaks.
Script Reactions(std::uint64_t seed)
{
    return [seed](long long count, int, TChangeCode) {
        std::uint64_t const dice = Draw(~seed, static_cast<std::uint64_t>(count));
        if ((dice >> 40) % 3)
            return Move();
        Move move = AnyMove(dice);
        bool const onSpeaker = (dice >> 44) % 2 && move.act != Act::Plant && move.act != Act::Remove;
        if (onSpeaker)
            move.place = Speaker;
        return move;
    };
}

} // namespace

//! Random moves in a real and in a naive world: what is heard, in which order, and what is held must be the same.
class tst_tree_randomops : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void worldsAgree();
};

void tst_tree_randomops::worldsAgree()
{
    std::uint64_t const seed = TestStage::Seed();
    long long const turns = TestStage::Turns(20000000, 1000000000);
    bool const isShort = turns == 20000000;
    qint64 const budget = TestStage::Sanitized() ? 60000 : 9000; // ms, of the short form
    RealWorld real(Reactions(seed));
    NaiveWorld naive(Reactions(seed));
    long long heard = 0;
    QElapsedTimer timer;
    timer.start();
    std::uint64_t turn = 0;
    for (; real.Moves() < turns; ++turn) {
        Move const move = AnyMove(Draw(seed, turn));
        real.Do(move);
        naive.Do(move);
        heard += static_cast<long long>(real.Log().size());
        if (real.Log() != naive.Log())
            QFAIL(qPrintable(QStringLiteral("heard differently: seed %1, turn %2").arg(seed).arg(turn)));
        real.Log().clear();
        naive.Log().clear();
        if (turn % 64 == 0)
            for (int place = 0; place < Places; ++place)
                if (real.Look(place) != naive.Look(place))
                    QFAIL(qPrintable(QStringLiteral("held differently: seed %1, turn %2").arg(seed).arg(turn)));
        if (isShort && turn % 4096 == 0 && timer.elapsed() > budget)
            break;
    }
    double const seconds = static_cast<double>(timer.elapsed()) / 1000.0;
    QVERIFY(heard > static_cast<long long>(turn));
    std::printf("random operations on tree and observers: %.2f M operations, %.2f M notifications, %.1f s, "
                "%.2f M operations/s, seed %" PRIu64 ", 0 differences\n",
                static_cast<double>(real.Moves()) / 1e6, static_cast<double>(heard) / 1e6, seconds,
                static_cast<double>(real.Moves()) / 1e6 / seconds, seed);
}

ORIM_CORE_TEST_MAIN(tst_tree_randomops)
#include "tst_tree_randomops.moc"
