// SPDX-License-Identifier: MIT
#ifndef ORIM_TEST_NAIVETREE_H
#define ORIM_TEST_NAIVETREE_H

#include "tree.h"
#include "value.h"

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <memory>
#include <vector>

//! Two worlds that do the same moves: one of real values and observers, one that follows the rules in the plainest way,
//! with copies instead of indices and numbers instead of pointers. What their observers hear must be the same.
namespace Worlds {

constexpr int Folders = 4;
constexpr int Names = 6;
constexpr int Places = Folders * Names; // place = folder * Names + name
constexpr int Observers = 12;
constexpr int Speaker = -1; // instead of a place: the value whose notification is heard

enum class Act
{
    Nothing,
    Set,
    Bind,
    Unbind,
    UnbindAll,
    MakeFirst,
    Plant,
    Remove,
    RemoveFolder,
    Rename,
    KillValue,
    KillObserver,
    NewObserver,
    Start,
    End,
    EndInterim,
    SetState
};

struct Move
{
    Act act = Act::Nothing;
    int place = 0;    // or Speaker
    int observer = 0; // index; for Act::Set who is left out, -1 for nobody
    int content = 0;
};

//! One call of Update: serial numbers of observer and value, the code, content and state of the value.
using Heard = std::array<int, 5>;
using Heards = std::vector<Heard>;

//! What an observer does when it hears its how-many-th notification of this world.
using Script = std::function<Move(long long count, int observer, TChangeCode code)>;

constexpr int DeepestReaction = 3; // moves inside moves

inline QString FolderPath(int folder) { return QStringLiteral("/world/folder %1").arg(folder); }

inline QString Name(int place) { return QStringLiteral("value %1").arg(place % Names); }

class RealWorld
{
public:
    explicit RealWorld(Script script) : m_script(std::move(script))
    {
        for (int place = 0; place < Places; ++place)
            m_paths[static_cast<std::size_t>(place)] = FolderPath(place / Names) + QLatin1Char('/') + Name(place);
        for (int folder = 0; folder < Folders; ++folder)
            m_folders[static_cast<std::size_t>(folder)] = FolderPath(folder);
    }

    ~RealWorld()
    {
        m_script = {};
        Tree::Instance()->RemoveFolder(QStringLiteral("/world"));
    }

    Heards & Log() { return m_log; }

    //! Content, state and number of observers of a value; -1 without one.
    std::array<int, 3> Look(int place) const
    {
        Spoken * const value = At(place);
        return value ? std::array<int, 3>{ value->GetValue(), value->GetState(), value->GetObserverCount() }
                     : std::array<int, 3>{ -1, -1, -1 };
    }

    void Do(Move const & move) { Do(move, nullptr); }

    long long Moves() const { return m_moves; }

private:
    class Spoken : public Value<int>
    {
    public:
        Spoken(QString const & name, int serial) : Value<int>(name), m_serial(serial) {}

        ~Spoken() override { GoAway(); }

        int m_serial;
    };

    class Probe : public IObserver
    {
    public:
        Probe(RealWorld & world, int index, int serial) : m_pWorld(&world), m_index(index), m_serial(serial) {}

        void Update(Observable * subject, TChangeCode code) override
        {
            m_pWorld->Hear(m_index, m_serial, dynamic_cast<Spoken *>(subject), code);
        }

    private:
        RealWorld * m_pWorld;
        int m_index;
        int m_serial;
    };

    Spoken * At(int place) const
    {
        return dynamic_cast<Spoken *>(Tree::Instance()->Find(m_paths[static_cast<std::size_t>(place)]));
    }

    void Hear(int index, int serial, Spoken * value, TChangeCode code)
    {
        m_log.push_back({ serial, value->m_serial, code, value->GetValue(), value->GetState() });
        ++m_count;
        if (!m_script || m_level >= DeepestReaction)
            return;
        ++m_level;
        Do(m_script(m_count, index, code), value);
        --m_level;
    }

    void Do(Move const & move, Spoken * speaker)
    {
        ++m_moves;
        Tree & tree = *Tree::Instance();
        Spoken * const value = move.place == Speaker ? speaker : At(move.place);
        auto & slot = m_observers[static_cast<std::size_t>(std::max(move.observer, 0))];
        Probe * const observer = move.observer < 0 ? nullptr : slot.get();
        switch (move.act) {
        case Act::Plant:
            if (!value)
                tree.Insert(m_folders[static_cast<std::size_t>(move.place / Names)],
                            new Spoken(Name(move.place), ++m_values));
            return;
        case Act::Remove:
            if (move.place != Speaker)
                tree.Remove(m_paths[static_cast<std::size_t>(move.place)]);
            return;
        case Act::RemoveFolder:
            tree.RemoveFolder(m_folders[static_cast<std::size_t>(move.content % Folders)]);
            return;
        case Act::NewObserver:
            if (!slot)
                slot = std::make_unique<Probe>(*this, move.observer, ++m_probes);
            return;
        case Act::KillObserver:
            std::exchange(slot, nullptr).reset();
            return;
        default:
            if (value)
                DoTo(*value, observer, move);
        }
    }

    static void DoTo(Spoken & value, Probe * observer, Move const & move)
    {
        switch (move.act) {
        case Act::Set:
            return value.SetValue(move.content, observer);
        case Act::Bind:
            value.AddObserver(observer);
            return;
        case Act::Unbind:
            return value.DeleteObserver(observer);
        case Act::UnbindAll:
            return value.DeleteObservers();
        case Act::MakeFirst:
            return value.MakeFirstObserver(observer);
        case Act::Rename:
            return value.SetName(Name(move.content), observer);
        case Act::KillValue:
            if (value.GetState() != eStateGoingAway) // its destructor may be running
                delete &value;
            return;
        case Act::Start:
            return value.StartTransaction(observer);
        case Act::End:
            return value.EndTransaction(eValueChanged, observer);
        case Act::EndInterim:
            return value.EndTransaction(eInterimChanged, observer);
        case Act::SetState:
            return value.SetState(move.content % 2 ? eStateDisabled : eStateValid, observer);
        default:
            return;
        }
    }

    Script m_script;
    Heards m_log;
    std::array<QString, Places> m_paths;
    std::array<QString, Folders> m_folders;
    std::array<std::unique_ptr<Probe>, Observers> m_observers;
    long long m_count = 0;
    long long m_moves = 0;
    int m_level = 0;
    int m_values = 0;
    int m_probes = 0;
};

class NaiveWorld
{
public:
    explicit NaiveWorld(Script script) : m_script(std::move(script)) {}

    Heards & Log() { return m_log; }

    std::array<int, 3> Look(int place) const
    {
        auto const value = At(place);
        return value ? std::array<int, 3>{ value->content, value->state, static_cast<int>(value->list.size()) }
                     : std::array<int, 3>{ -1, -1, -1 };
    }

    void Do(Move const & move) { Do(move, nullptr); }

private:
    struct Entry
    {
        long long ticket; // a new one for each registration
        int observer;     // serial number
    };

    struct Thing
    {
        int serial = 0;
        int place = 0;
        int content = 0;
        int state = 0;
        int brackets = 0;
        int rounds = 0;
        bool changed = false;
        bool gone = false;
        bool dead = false;
        bool doomed = false;
        std::vector<Entry> list;
        std::vector<int> first; // waiting to be made first
    };

    using Handle = std::shared_ptr<Thing>;

    Handle At(int place) const
    {
        auto const found = m_places.find(place);
        return found == m_places.end() ? Handle() : found->second;
    }

    static bool Has(Thing const & thing, long long ticket)
    {
        return std::any_of(thing.list.begin(), thing.list.end(), [&](Entry const & e) { return e.ticket == ticket; });
    }

    static void Strike(Thing & thing, int observer)
    {
        std::vector<Entry> rest;
        for (Entry const & entry : thing.list)
            if (entry.observer != observer)
                rest.push_back(entry);
        thing.list = rest;
        thing.first.erase(std::remove(thing.first.begin(), thing.first.end(), observer), thing.first.end());
    }

    static void Front(Thing & thing, int observer)
    {
        for (std::size_t i = 0; i < thing.list.size(); ++i)
            if (thing.list[i].observer == observer) {
                Entry const entry = thing.list[i];
                thing.list.erase(thing.list.begin() + static_cast<std::ptrdiff_t>(i));
                thing.list.insert(thing.list.begin(), entry);
                return;
            }
    }

    //! Takes an observer off everything that still exists.
    void Forget(int observer)
    {
        for (auto value = m_all.begin(); value != m_all.end();) {
            Handle const living = value->second.lock();
            if (living)
                Strike(*living, observer);
            value = living ? std::next(value) : m_all.erase(value);
        }
    }

    //! Index of a living observer; -1 for none.
    int IndexOf(int observer) const
    {
        for (auto const & [index, serial] : m_observers)
            if (serial == observer)
                return index;
        return -1;
    }

    void Round(Handle const & thing, TChangeCode code, int except)
    {
        ++thing->rounds;
        std::vector<Entry> const told = thing->list;
        for (Entry const & entry : told) {
            if (thing->dead)
                return;
            if (entry.observer == except || !Has(*thing, entry.ticket))
                continue;
            Hear(entry.observer, thing, code);
        }
        if (thing->dead)
            return;
        if (--thing->rounds > 0)
            return;
        if (thing->doomed)
            return Bury(thing);
        for (int const observer : std::exchange(thing->first, {}))
            Front(*thing, observer);
    }

    void Hear(int observer, Handle const & thing, TChangeCode code)
    {
        m_log.push_back({ observer, thing->serial, code, thing->content, thing->state });
        ++m_count;
        if (!m_script || m_level >= DeepestReaction)
            return;
        ++m_level;
        Do(m_script(m_count, IndexOf(observer), code), thing);
        --m_level;
    }

    void Tell(Handle const & thing, TChangeCode code, int except)
    {
        if (thing->gone)
            return;
        if (thing->brackets > 0 && code != eStateChanged)
            thing->changed = true;
        else
            Round(thing, code, except);
    }

    static void Bury(Handle const & thing)
    {
        thing->dead = true;
        thing->list.clear();
    }

    void Farewell(Handle const & thing)
    {
        if (thing->gone)
            return;
        thing->gone = true;
        thing->state = eStateGoingAway;
        m_places.erase(thing->place);
        Round(thing, eStateChanged, 0);
        if (!thing->dead) {
            thing->list.clear();
            thing->first.clear();
        }
    }

    void Remove(int place)
    {
        Handle const thing = At(place);
        if (!thing)
            return;
        Farewell(thing);
        if (thing->dead)
            return;
        if (thing->rounds == 0)
            Bury(thing);
        else
            thing->doomed = true;
    }

    void Do(Move const & move, Handle const & speaker)
    {
        Handle const thing = move.place == Speaker ? speaker : At(move.place);
        auto const found = m_observers.find(move.observer);
        int const observer = found == m_observers.end() ? 0 : found->second;
        switch (move.act) {
        case Act::Plant:
            if (!thing) {
                m_places[move.place] = std::make_shared<Thing>();
                m_places[move.place]->serial = ++m_values;
                m_places[move.place]->place = move.place;
            }
            return;
        case Act::Remove:
            return Remove(move.place);
        case Act::RemoveFolder: {
            std::vector<int> places;
            for (auto const & [place, value] : m_places)
                if (place / Names == move.content % Folders)
                    places.push_back(place);
            for (int const place : places)
                Remove(place);
            return;
        }
        case Act::NewObserver:
            if (!observer)
                m_observers[move.observer] = ++m_probes;
            return;
        case Act::KillObserver:
            m_observers.erase(move.observer);
            Forget(observer);
            return;
        default:
            if (thing)
                DoTo(thing, observer, move);
        }
    }

    void DoTo(Handle const & thing, int observer, Move const & move)
    {
        switch (move.act) {
        case Act::Set:
            if (thing->content != move.content) {
                thing->content = move.content;
                Tell(thing, eValueChanged, observer);
            }
            return;
        case Act::Bind:
            if (observer && !thing->gone && !IsBound(*thing, observer)) {
                thing->list.push_back({ ++m_tickets, observer });
                m_all[thing->serial] = thing;
            }
            return;
        case Act::Unbind:
            return Strike(*thing, observer);
        case Act::UnbindAll:
            thing->list.clear();
            thing->first.clear();
            return;
        case Act::MakeFirst:
            return MakeFirst(*thing, observer);
        case Act::Rename:
            return Rename(thing, thing->place / Names * Names + move.content % Names, observer);
        case Act::KillValue:
            if (!thing->gone) {
                Farewell(thing);
                Bury(thing);
            }
            return;
        case Act::Start:
            ++thing->brackets;
            return;
        case Act::End:
            return End(thing, eValueChanged, observer);
        case Act::EndInterim:
            return End(thing, eInterimChanged, observer);
        case Act::SetState:
            return SetState(thing, move.content % 2 ? eStateDisabled : eStateValid, observer);
        default:
            return;
        }
    }

    void End(Handle const & thing, TChangeCode code, int observer)
    {
        if (thing->brackets > 0 && --thing->brackets == 0 && std::exchange(thing->changed, false))
            Tell(thing, code, observer);
    }

    static bool IsBound(Thing const & thing, int observer)
    {
        return std::any_of(thing.list.begin(), thing.list.end(),
                           [&](Entry const & entry) { return entry.observer == observer; });
    }

    static void MakeFirst(Thing & thing, int observer)
    {
        if (!IsBound(thing, observer))
            return;
        if (thing.rounds == 0)
            return Front(thing, observer);
        thing.first.erase(std::remove(thing.first.begin(), thing.first.end(), observer), thing.first.end());
        thing.first.push_back(observer);
    }

    void Rename(Handle const & thing, int place, int observer)
    {
        if (thing->gone || place == thing->place || At(place))
            return;
        m_places.erase(thing->place);
        m_places[place] = thing;
        thing->place = place;
        Tell(thing, eStateChanged, observer);
    }

    void SetState(Handle const & thing, TValueState state, int observer)
    {
        if (thing->gone || thing->state == state)
            return;
        thing->state = state;
        Tell(thing, eStateChanged, observer);
    }

    Script m_script;
    Heards m_log;
    std::map<int, Handle> m_places;
    std::map<int, std::weak_ptr<Thing>> m_all; // whatever was bound once, by serial number
    std::map<int, int> m_observers;            // index to serial number
    long long m_tickets = 0;
    long long m_count = 0;
    int m_level = 0;
    int m_values = 0;
    int m_probes = 0;
};

} // namespace Worlds

#endif
