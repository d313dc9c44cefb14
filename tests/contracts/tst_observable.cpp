// SPDX-License-Identifier: MIT
#include "observable.h"

#include "scene.h"
#include "slot.h"
#include "testmain.h"

#include <array>
#include <memory>
#include <stdexcept>

namespace {

QRegularExpression DepthWarning() { return QRegularExpression(QStringLiteral("notify each other without end")); }

//! Three observers a, b, c on one observable, and a log of what they hear.
struct Stage
{
    Log log;
    Observable subject;
    std::unique_ptr<Listener> a = std::make_unique<Listener>("a", log);
    std::unique_ptr<Listener> b = std::make_unique<Listener>("b", log);
    std::unique_ptr<Listener> c = std::make_unique<Listener>("c", log);
    std::unique_ptr<Listener> d = std::make_unique<Listener>("d", log); // not added

    Stage()
    {
        for (auto const & listener : { a.get(), b.get(), c.get() })
            subject.AddObserver(listener);
    }

    //! Notifies code 3, once in the way of the row and once after it.
    QString Twice()
    {
        subject.NotifyObservers(eValueChanged, nullptr);
        log.Add(QStringLiteral("|"));
        subject.NotifyObservers(eValueChanged, nullptr);
        return log.Text();
    }

    //! Lets b do something, the first time it is told.
    void OnceInB(std::function<void()> const & action)
    {
        b->SetReaction([this, action](Observable *, TChangeCode) {
            b->SetReaction({});
            action();
        });
    }
};

//! Offers what derived classes may do.
class Mortal : public Observable
{
public:
    explicit Mortal(Log & log) : m_pLog(&log) {}

    ~Mortal() override { m_pLog->Add(QStringLiteral("end")); }

    using Observable::CloseObservers;
    using Observable::DeleteWhenQuiet;
    using Observable::NotifyAtAnyDepth;

private:
    Log * m_pLog;
};

} // namespace

class tst_observable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void codes();
    void ordersItsOperations();

    void registration_data();

    void registration() { PlayScene(); }

    void disruption_data();

    void disruption() { PlayScene(); }

    void lives_data();

    void lives() { PlayScene(); }

    void depth_data();

    void depth() { PlayScene(); }
};

void tst_observable::codes()
{
    QCOMPARE(static_cast<int>(eStateChanged), 2);
    QCOMPARE(static_cast<int>(eValueChanged), 3);
    QCOMPARE(static_cast<int>(eRangeChanged), 4);
    QCOMPARE(static_cast<int>(eItemsChanged), 7);
    QCOMPARE(static_cast<int>(eInterimChanged), 23);
}

//! Who overrides the operations by their places finds them there.
void tst_observable::ordersItsOperations()
{
    QCOMPARE(Slot(&IObserver::Update), 2);
    QCOMPARE(Slot(&Observable::AddObserver), 2);
    QCOMPARE(Slot(&Observable::DeleteObserver), 3);
    QCOMPARE(Slot(&Observable::DeleteObservers), 4);
    QCOMPARE(Slot(&Observable::MakeFirstObserver), 5);
    QCOMPARE(Slot(&Observable::NotifyObservers), 6);
}

void tst_observable::registration_data()
{
    SceneColumns();
    SceneRow(
        "observers are told in the order in which they came", [] { return Stage().Twice(); }, "a3 b3 c3 | a3 b3 c3");
    SceneRow(
        "the code arrives, and the one left out hears nothing",
        [] {
            Stage stage;
            stage.subject.NotifyObservers(eRangeChanged, stage.b.get());
            return stage.log.Text();
        },
        "a4 c4");
    SceneRow(
        "one left out that is a stranger leaves nobody out",
        [] {
            Stage stage;
            stage.subject.NotifyObservers(eItemsChanged, stage.d.get());
            return stage.log.Text();
        },
        "a7 b7 c7");
    SceneRow(
        "the subject is passed",
        [] {
            Stage stage;
            Observable * heard = nullptr;
            stage.a->SetReaction([&heard](Observable * subject, TChangeCode) { heard = subject; });
            stage.subject.NotifyObservers(eValueChanged, nullptr);
            return YesNo(heard == &stage.subject);
        },
        "yes");
    SceneRow(
        "without observers nothing happens",
        [] { return Observable().NotifyObservers(eValueChanged, nullptr), QString(); }, "");
    SceneRow(
        "null is not added", [] { return YesNo(Observable().AddObserver(nullptr)); }, "no");
    SceneRow(
        "one is added once",
        [] {
            Stage stage;
            bool const again = stage.subject.AddObserver(stage.b.get());
            bool const other = stage.subject.AddObserver(stage.d.get());
            return YesNo(again) + YesNo(other) + QLatin1Char(' ') + stage.Twice();
        },
        "noyes a3 b3 c3 d3 | a3 b3 c3 d3");
    SceneRow(
        "one that watches many is added once too",
        [] {
            Log log;
            Listener listener("a", log);
            Observable many[8];
            for (Observable & one : many)
                one.AddObserver(&listener);
            return YesNo(many[0].AddObserver(&listener)) + YesNo(many[7].HasObserver(&listener));
        },
        "noyes");
    SceneRow(
        "one deleted is not told",
        [] {
            Stage stage;
            stage.subject.DeleteObserver(stage.b.get());
            return stage.Twice();
        },
        "a3 c3 | a3 c3");
    SceneRow(
        "deleting null and a stranger changes nothing",
        [] {
            Stage stage;
            stage.subject.DeleteObserver(nullptr);
            stage.subject.DeleteObserver(stage.d.get());
            return stage.Twice();
        },
        "a3 b3 c3 | a3 b3 c3");
    SceneRow(
        "one deleted comes back at the end",
        [] {
            Stage stage;
            stage.subject.DeleteObserver(stage.a.get());
            stage.subject.AddObserver(stage.a.get());
            return stage.Twice();
        },
        "b3 c3 a3 | b3 c3 a3");
    SceneRow(
        "all are deleted",
        [] {
            Stage stage;
            stage.subject.DeleteObservers();
            return stage.Twice() + QString::number(stage.subject.GetObserverCount());
        },
        "|0");
    SceneRow(
        "one made first is told first, the others keep their order",
        [] {
            Stage stage;
            stage.subject.MakeFirstObserver(stage.c.get());
            return stage.Twice();
        },
        "c3 a3 b3 | c3 a3 b3");
    SceneRow(
        "the last one made first is the first",
        [] {
            Stage stage;
            stage.subject.MakeFirstObserver(stage.b.get());
            stage.subject.MakeFirstObserver(stage.c.get());
            return stage.Twice();
        },
        "c3 b3 a3 | c3 b3 a3");
    SceneRow(
        "null and a stranger are not made first",
        [] {
            Stage stage;
            stage.subject.MakeFirstObserver(nullptr);
            stage.subject.MakeFirstObserver(stage.d.get());
            return stage.Twice();
        },
        "a3 b3 c3 | a3 b3 c3");
    SceneRow(
        "registered ones are known and counted",
        [] {
            Stage stage;
            return YesNo(stage.subject.HasObserver(stage.a.get())) + YesNo(stage.subject.HasObserver(stage.d.get())) +
                   YesNo(stage.subject.HasObserver(nullptr)) + QString::number(stage.subject.GetObserverCount());
        },
        "yesnono3");
}

void tst_observable::disruption_data()
{
    SceneColumns();
    auto const inB = [](char const * name, std::function<void(Stage &)> const & action, char const * seen) {
        SceneRow(
            name,
            [action] {
                Stage stage;
                stage.OnceInB([&stage, action] { action(stage); });
                return stage.Twice();
            },
            seen);
    };
    inB(
        "one added inside hears the next", [](Stage & s) { s.subject.AddObserver(s.d.get()); },
        "a3 b3 c3 | a3 b3 c3 d3");
    inB(
        "one that removes itself is told no more", [](Stage & s) { s.subject.DeleteObserver(s.b.get()); },
        "a3 b3 c3 | a3 c3");
    inB(
        "the one before removed, nobody is left out", [](Stage & s) { s.subject.DeleteObserver(s.a.get()); },
        "a3 b3 c3 | b3 c3");
    inB(
        "the one behind removed is not called", [](Stage & s) { s.subject.DeleteObserver(s.c.get()); },
        "a3 b3 | a3 b3");
    inB(
        "one that deletes itself", [](Stage & s) { s.b.reset(); }, "a3 b3 c3 | a3 c3");
    inB(
        "the one before deleted", [](Stage & s) { s.a.reset(); }, "a3 b3 c3 | b3 c3");
    inB(
        "the one behind deleted is not called", [](Stage & s) { s.c.reset(); }, "a3 b3 | a3 b3");
    inB(
        "all removed, nobody else is called", [](Stage & s) { s.subject.DeleteObservers(); }, "a3 b3 |");
    inB(
        "removed and added again, it hears the next one, at the end",
        [](Stage & s) {
            s.subject.DeleteObserver(s.a.get());
            s.subject.AddObserver(s.a.get());
        },
        "a3 b3 c3 | b3 c3 a3");
    inB(
        "the one behind removed and added again hears the next one",
        [](Stage & s) {
            s.subject.DeleteObserver(s.c.get());
            s.subject.AddObserver(s.c.get());
        },
        "a3 b3 | a3 b3 c3");
    inB(
        "all removed and one added",
        [](Stage & s) {
            s.subject.DeleteObservers();
            s.subject.AddObserver(s.d.get());
        },
        "a3 b3 | d3");
    inB(
        "added and removed inside, it never hears",
        [](Stage & s) {
            s.subject.AddObserver(s.d.get());
            s.subject.DeleteObserver(s.d.get());
        },
        "a3 b3 c3 | a3 b3 c3");
    inB(
        "added, and deleted inside",
        [](Stage & s) {
            s.subject.AddObserver(s.d.get());
            s.d.reset();
        },
        "a3 b3 c3 | a3 b3 c3");
    inB(
        "made first inside, the order holds afterwards", [](Stage & s) { s.subject.MakeFirstObserver(s.c.get()); },
        "a3 b3 c3 | c3 a3 b3");
    inB(
        "two made first inside",
        [](Stage & s) {
            s.subject.MakeFirstObserver(s.b.get());
            s.subject.MakeFirstObserver(s.c.get());
            s.subject.MakeFirstObserver(s.b.get());
        },
        "a3 b3 c3 | b3 c3 a3");
    inB(
        "made first inside, then removed",
        [](Stage & s) {
            s.subject.MakeFirstObserver(s.c.get());
            s.subject.DeleteObserver(s.c.get());
        },
        "a3 b3 | a3 b3");
    inB(
        "made first inside, then all removed and it comes back last",
        [](Stage & s) {
            s.subject.MakeFirstObserver(s.c.get());
            s.subject.DeleteObservers();
            s.subject.AddObserver(s.a.get());
            s.subject.AddObserver(s.c.get());
        },
        "a3 b3 | a3 c3");
    inB(
        "one inside the other runs to its end first",
        [](Stage & s) { s.subject.NotifyObservers(eInterimChanged, nullptr); }, "a3 b3 a23 b23 c23 c3 | a3 b3 c3");
    inB(
        "one added inside hears the inner one, not the outer one",
        [](Stage & s) {
            s.subject.AddObserver(s.d.get());
            s.subject.NotifyObservers(eInterimChanged, nullptr);
        },
        "a3 b3 a23 b23 c23 d23 c3 | a3 b3 c3 d3");
    inB(
        "one removed is told neither by the inner nor by the outer one",
        [](Stage & s) {
            s.subject.DeleteObserver(s.c.get());
            s.subject.NotifyObservers(eInterimChanged, nullptr);
        },
        "a3 b3 a23 b23 | a3 b3");
    inB(
        "the count inside leaves out who was removed",
        [](Stage & s) {
            s.subject.DeleteObserver(s.c.get());
            s.log.Add(QString::number(s.subject.GetObserverCount()));
        },
        "a3 b3 2 | a3 b3");
}

void tst_observable::lives_data()
{
    SceneColumns();
    SceneRow(
        "an observer that dies leaves every observable",
        [] {
            Log log;
            Observable one;
            Observable two;
            {
                Listener listener("a", log);
                one.AddObserver(&listener);
                two.AddObserver(&listener);
            }
            one.NotifyObservers(eValueChanged, nullptr);
            two.NotifyObservers(eValueChanged, nullptr);
            return log.Text() + QString::number(one.GetObserverCount() + two.GetObserverCount());
        },
        "0");
    SceneRow(
        "an observable that dies leaves its observers free",
        [] {
            Log log;
            Listener listener("a", log);
            Observable other;
            {
                Observable one;
                one.AddObserver(&listener);
                other.AddObserver(&listener);
            }
            other.NotifyObservers(eValueChanged, nullptr);
            return log.Text();
        },
        "a3");
    SceneRow(
        "a copied observer observes nothing",
        [] {
            Stage stage;
            Listener const copy(*stage.a);
            return YesNo(stage.subject.HasObserver(&copy)) + QString::number(stage.subject.GetObserverCount());
        },
        "no3");
    SceneRow(
        "an assigned observer keeps what it observes",
        [] {
            Stage stage;
            Observable other;
            other.AddObserver(stage.d.get());
            *stage.d = *stage.a;
            return YesNo(other.HasObserver(stage.d.get())) + YesNo(stage.subject.HasObserver(stage.d.get()));
        },
        "yesno");
    SceneRow(
        "an observable deleted inside calls nobody else",
        [] {
            Log log;
            auto subject = std::make_unique<Observable>();
            Listener a("a", log, [&subject](Observable *, TChangeCode) { subject.reset(); });
            Listener b("b", log);
            subject->AddObserver(&a);
            subject->AddObserver(&b);
            subject->NotifyObservers(eValueChanged, nullptr);
            return log.Text();
        },
        "a3");
    SceneRow(
        "deleted inside the inner one it ends the outer one too",
        [] {
            Log log;
            auto subject = std::make_unique<Observable>();
            Listener a("a", log, [](Observable * s, TChangeCode code) {
                if (code == eValueChanged)
                    s->NotifyObservers(eInterimChanged, nullptr);
            });
            Listener b("b", log, [&subject](Observable *, TChangeCode) { subject.reset(); });
            subject->AddObserver(&a);
            subject->AddObserver(&b);
            subject->NotifyObservers(eValueChanged, nullptr);
            return log.Text();
        },
        "a3 a23 b23");
    SceneRow(
        "an observer whose derived part is gone may be notified",
        [] {
            IObserver plain;
            Observable subject;
            subject.AddObserver(&plain);
            subject.NotifyObservers(eValueChanged, nullptr);
            return QString();
        },
        "");
    SceneRow(
        "an exception passes, and the next notification is whole",
        [] {
            Stage stage;
            stage.OnceInB([] { throw std::runtime_error("stop"); });
            try {
                stage.subject.NotifyObservers(eValueChanged, nullptr);
            } catch (std::runtime_error const & error) {
                stage.log.Add(QString::fromLatin1(error.what()));
            }
            stage.OnceInB([&stage] { stage.subject.DeleteObserver(stage.a.get()); });
            QString const heard = stage.Twice();
            return heard + QString::number(stage.subject.GetObserverCount());
        },
        "a3 b3 stop a3 b3 c3 | b3 c32");
    SceneRow(
        "once closed nobody is added",
        [] {
            Log log;
            Listener a("a", log);
            Mortal subject(log);
            subject.CloseObservers();
            return YesNo(subject.AddObserver(&a));
        },
        "no");
    SceneRow(
        "deleted when quiet: at once outside",
        [] {
            Log log;
            (new Mortal(log))->DeleteWhenQuiet();
            return log.Text();
        },
        "end");
    SceneRow(
        "deleted when quiet: after the outermost inside",
        [] {
            Log log;
            auto * const subject = new Mortal(log);
            Listener a("a", log, [subject](Observable *, TChangeCode code) {
                if (code == eValueChanged)
                    subject->NotifyObservers(eInterimChanged, nullptr);
                else
                    subject->DeleteWhenQuiet();
            });
            Listener b("b", log);
            subject->AddObserver(&a);
            subject->AddObserver(&b);
            subject->NotifyObservers(eValueChanged, nullptr);
            return log.Text();
        },
        "a3 a23 b23 b3 end");
}

void tst_observable::depth_data()
{
    SceneColumns();
    auto const count = [](Log const & log) { return QString::number(log.Count()); };
    SceneRow(
        "a notification 256 deep stops with one warning",
        [count] {
            QTest::ignoreMessage(QtWarningMsg, DepthWarning());
            Log log;
            Listener a("a", log, [](Observable * s, TChangeCode code) { s->NotifyObservers(code, nullptr); });
            Observable subject;
            subject.AddObserver(&a);
            subject.NotifyObservers(eValueChanged, nullptr);
            return count(log);
        },
        "256");
    SceneRow(
        "255 deep does not warn",
        [count] {
            Log log;
            Listener a("a", log, [&log](Observable * s, TChangeCode code) {
                if (log.Count() < 256)
                    s->NotifyObservers(code, nullptr);
            });
            Observable subject;
            subject.AddObserver(&a);
            subject.NotifyObservers(eValueChanged, nullptr);
            return count(log);
        },
        "256");
    SceneRow(
        "each cycle warns once, and the next one starts afresh",
        [count] {
            QTest::ignoreMessage(QtWarningMsg, DepthWarning());
            QTest::ignoreMessage(QtWarningMsg, DepthWarning());
            Log log;
            Listener a("a", log, [](Observable * s, TChangeCode code) { s->NotifyObservers(code, nullptr); });
            Observable subject;
            subject.AddObserver(&a);
            subject.NotifyObservers(eValueChanged, nullptr);
            subject.NotifyObservers(eValueChanged, nullptr);
            return count(log);
        },
        "512");
    SceneRow(
        "several observers that all notify again end too, each told once a level",
        [count] {
            QTest::ignoreMessage(QtWarningMsg, DepthWarning());
            Log log;
            auto const again = [](Observable * s, TChangeCode code) { s->NotifyObservers(code, nullptr); };
            Listener a("a", log, again);
            Listener b("b", log, again);
            Listener c("c", log, again);
            Observable subject;
            for (Listener * listener : { &a, &b, &c })
                subject.AddObserver(listener);
            subject.NotifyObservers(eValueChanged, nullptr);
            return count(log);
        },
        "768");
    auto const chain = [](int length, bool again) {
        Log log;
        std::vector<std::unique_ptr<Observable>> subjects;
        std::vector<std::unique_ptr<Listener>> listeners;
        for (int i = 0; i < length; ++i)
            subjects.push_back(std::make_unique<Observable>());
        for (int i = 0; i < length; ++i) {
            Observable * const next = i + 1 < length ? subjects[static_cast<std::size_t>(i + 1)].get() : nullptr;
            listeners.push_back(std::make_unique<Listener>("a", log, [next](Observable *, TChangeCode code) {
                if (next)
                    next->NotifyObservers(code, nullptr);
            }));
            subjects[static_cast<std::size_t>(i)]->AddObserver(listeners.back().get());
        }
        subjects.front()->NotifyObservers(eValueChanged, nullptr);
        if (again) // from the middle: whoever was refused is free again
            subjects[static_cast<std::size_t>(length / 2)]->NotifyObservers(eValueChanged, nullptr);
        return QString::number(log.Count());
    };
    SceneRow(
        "a chain of 1024 runs through", [chain] { return chain(1024, false); }, "1024");
    SceneRow(
        "a longer chain is cut with one warning, and the next one starts afresh",
        [chain] {
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("without end, 1024 deep")));
            return chain(2000, true);
        },
        "2024");
    SceneRow(
        "a ring in which each feeds the next twice ends",
        [count] {
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("without end, 1024 deep")));
            Log log;
            std::array<Observable, 40> ring;
            std::vector<std::unique_ptr<Listener>> listeners;
            for (std::size_t i = 0; i < 2 * ring.size(); ++i) {
                Observable & next = ring[(i + 1) % ring.size()];
                listeners.push_back(std::make_unique<Listener>(
                    "a", log, [&next](Observable *, TChangeCode code) { next.NotifyObservers(code, nullptr); }));
                ring[i % ring.size()].AddObserver(listeners.back().get());
            }
            ring[0].NotifyObservers(eValueChanged, nullptr);
            return count(log);
        },
        "2048");
    SceneRow(
        "last words pass at any depth",
        [count] {
            QTest::ignoreMessage(QtWarningMsg, DepthWarning());
            Log log;
            Mortal subject(log);
            Listener a("a", log, [&log, &subject](Observable *, TChangeCode code) {
                if (code == eValueChanged)
                    subject.NotifyObservers(code, nullptr);
                if (log.Count() == 256)
                    subject.NotifyAtAnyDepth(eStateChanged, nullptr);
            });
            subject.AddObserver(&a);
            subject.NotifyObservers(eValueChanged, nullptr);
            return count(log);
        },
        "257");
    SceneRow(
        "exceptions do not add to the depth",
        [count] {
            Log log;
            Listener a("a", log, [](Observable *, TChangeCode) { throw std::runtime_error("stop"); });
            Observable subject;
            subject.AddObserver(&a);
            for (int i = 0; i < 300; ++i)
                try {
                    subject.NotifyObservers(eValueChanged, nullptr);
                } catch (std::runtime_error const &) {
                    continue;
                }
            return count(log);
        },
        "300");
}

ORIM_CORE_TEST_MAIN(tst_observable)
#include "tst_observable.moc"
