// SPDX-License-Identifier: MIT
#include "connectmarkervisibilityflags.h"

#include "pseudomarkerlist.h"
#include "testmain.h"
#include "testmarkerlist.h"

#include <QThread>

#include <array>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

namespace {

constexpr std::size_t Room = 17; // arguments

//! How many arguments a function takes; 0 unless each is a list.
template <class... Arguments>
constexpr std::size_t CountOfLists(void (*)(Arguments...))
{
    return std::conjunction_v<std::is_same<Arguments, MarkerList *>...> ? sizeof...(Arguments) : 0;
}

static_assert(CountOfLists(&ConnectMarkerVisibilityFlags) == Room);

//! A list that writes down what reaches it.
class HearingList : public TestMarkerList
{
public:
    explicit HearingList(int number, QStringList & log) : m_number(number), m_log(log) { show(); }

    void slotSetState(QString path, EMarkerState m, bool value) override
    {
        m_log << QStringLiteral("%1: %2 %3 %4").arg(m_number).arg(path).arg(static_cast<int>(m)).arg(value);
        if (std::function<void()> const action = std::exchange(m_action, nullptr))
            action();
        else
            TestMarkerList::slotSetState(path, m, value);
    }

    std::function<void()> m_action; // done in place of taking the next state over; it may end this

private:
    int m_number;
    QStringList & m_log;
};

using Arguments = std::array<MarkerList *, Room>;

void ConnectAll(Arguments const & a)
{
    ConnectMarkerVisibilityFlags(a[0], a[1], a[2], a[3], a[4], a[5], a[6], a[7], a[8], a[9], a[10], a[11], a[12], a[13],
                                 a[14], a[15], a[16]);
}

//! Some lists in the first places, connected, that each have a marker for one value at an index of their own.
class Mesh
{
public:
    explicit Mesh(std::size_t count) : m_number("number", 50.0)
    {
        Arguments arguments{};
        for (std::size_t i = 0; i < count; ++i) {
            m_lists[i] = std::make_unique<HearingList>(static_cast<int>(i), m_log);
            arguments[i] = m_lists[i].get();
        }
        ConnectAll(arguments);
        for (std::size_t i = 0; i < count; ++i) {
            int const id = Id(static_cast<int>(i));
            m_lists[i]->AddMarker(id)->SetMarkerName(QStringLiteral("marker %1").arg(i));
            m_lists[i]->SetMarker_ValuePath(id, m_number.Path());
            m_lists[i]->SetShowMarker(id, false);
            m_lists[i]->SetMarkerMoving(id, false);
            m_lists[i]->GetMarker(id)->StopTimer();
        }
        m_log.clear();
    }

    HearingList & At(int i) const { return *m_lists[static_cast<std::size_t>(i)]; }

    Marker & MarkerAt(int i) const { return *At(i).GetMarker(Id(i)); }

    void End(int i) { m_lists[static_cast<std::size_t>(i)].reset(); }

    static int Id(int i) { return 2 * i + 1; }

    QString Path() const { return m_number.Path(); }

    //! Numbers of the lists that heard something since the log was cleared, in order.
    QList<int> Heard() const
    {
        QList<int> numbers;
        for (QString const & entry : m_log)
            numbers << entry.section(QLatin1Char(':'), 0, 0).toInt();
        return numbers;
    }

    QStringList m_log;

private:
    TreeNumber m_number;
    std::array<std::unique_ptr<HearingList>, Room> m_lists;
};

} // namespace

class tst_ConnectMarkerVisibilityFlags : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void noLists();
    void countsConnections_data();
    void countsConnections();
    void order_data();
    void order();
    void gapsAreLeftOut_data();
    void gapsAreLeftOut();
    void eachPlaceIsConnected_data();
    void eachPlaceIsConnected();
    void sameListTwice();
    void secondCallDoubles();
    void argumentsArePassedOn_data();
    void argumentsArePassedOn();
    void otherThreadIsHeardLater();

    void sharesShow();
    void sharesMoving();
    void sharesCurrent();
    void sharesRepaint();
    void otherPathIsAnotherMarker();
    void unboundMarkerIsNobodys();
    void hearsItselfTwice();
    void hiddenListIgnores();
    void hiddenListIgnoresMovingAndCurrent();
    void hiddenListSends();
    void pseudoListTakesPart();

    void listDies();
    void hearerEndsTheNext();
    void hearerEndsItself();
    void hearerEndsTheSender();
    void hearerEndsTheSenderOfAMarker();
    void hearerSendsAgain();
    void hearerConnectsAnother();
    void valueEndsMeanwhile();
};

void tst_ConnectMarkerVisibilityFlags::noLists()
{
    ConnectAll({});
    ConnectMarkerVisibilityFlags(nullptr);
    QStringList log;
    HearingList list(0, log);
    list.sendSignalSetState(QString(), eMarkerRepaint, true);
    QCOMPARE(log, QStringList());
}

void tst_ConnectMarkerVisibilityFlags::countsConnections_data()
{
    QTest::addColumn<int>("lists");
    QTest::addColumn<int>("connections");
    QTest::newRow("one") << 1 << 2;
    QTest::newRow("two") << 2 << 6;
    QTest::newRow("three") << 3 << 12;
    QTest::newRow("sixteen") << 16 << 272;
    QTest::newRow("seventeen") << 17 << 306;
}

void tst_ConnectMarkerVisibilityFlags::countsConnections()
{
    QFETCH(int, lists);
    QFETCH(int, connections);
    Mesh mesh(static_cast<std::size_t>(lists));
    int toThemselves = 0;
    for (int i = 0; i < lists; ++i) {
        int const before = static_cast<int>(mesh.m_log.size());
        mesh.At(i).sendSignalSetState(QStringLiteral("/test/other"), eMarkerShow, true);
        toThemselves += static_cast<int>(mesh.Heard().mid(before).count(i));
    }
    QCOMPARE(mesh.m_log.size(), connections);
    QCOMPARE(toThemselves, 2 * lists);
    for (int i = 0; i < lists; ++i)
        QCOMPARE(mesh.Heard().count(i), lists + 1); // each hears itself twice, and all others once
}

void tst_ConnectMarkerVisibilityFlags::order_data()
{
    QTest::addColumn<int>("sender");
    for (int i = 0; i < int(Room); ++i)
        QTest::addRow("from list %d", i) << i;
}

void tst_ConnectMarkerVisibilityFlags::order()
{
    QFETCH(int, sender);
    Mesh mesh(Room);
    mesh.At(sender).sendSignalSetState(mesh.Path(), eMarkerRepaint, true);
    QList<int> expected;
    for (int i = 0; i < int(Room); ++i)
        expected << i;
    expected.insert(sender, sender);
    QCOMPARE(mesh.Heard(), expected);
}

void tst_ConnectMarkerVisibilityFlags::gapsAreLeftOut_data()
{
    QTest::addColumn<QList<int>>("places"); // that are taken
    QTest::newRow("first") << QList<int>{ 0 };
    QTest::newRow("last") << QList<int>{ 16 };
    QTest::newRow("first and last") << QList<int>{ 0, 16 };
    QTest::newRow("gaps") << QList<int>{ 2, 3, 7, 15 };
}

void tst_ConnectMarkerVisibilityFlags::gapsAreLeftOut()
{
    QFETCH(QList<int>, places);
    QStringList log;
    std::vector<std::unique_ptr<HearingList>> lists;
    Arguments arguments{};
    for (int const place : places) {
        lists.push_back(std::make_unique<HearingList>(place, log));
        arguments[static_cast<std::size_t>(place)] = lists.back().get();
    }
    ConnectAll(arguments);
    lists.back()->sendSignalSetState(QStringLiteral("p"), eMarkerMoving, true);
    QStringList expected;
    for (int const place : places)
        expected << QStringLiteral("%1: p 1 1").arg(place);
    expected << expected.back();
    QCOMPARE(log, expected);
}

void tst_ConnectMarkerVisibilityFlags::eachPlaceIsConnected_data()
{
    QTest::addColumn<int>("place");
    for (int i = 1; i < int(Room); ++i)
        QTest::addRow("place %d", i) << i;
}

void tst_ConnectMarkerVisibilityFlags::eachPlaceIsConnected()
{
    QFETCH(int, place);
    QStringList log;
    HearingList first(0, log);
    HearingList second(1, log);
    Arguments arguments{};
    arguments[0] = &first;
    arguments[static_cast<std::size_t>(place)] = &second;
    ConnectAll(arguments);
    second.sendSignalSetState(QStringLiteral("p"), eMarkerShow, false);
    QCOMPARE(log, QStringList({ QStringLiteral("0: p 0 0"), QStringLiteral("1: p 0 0"), QStringLiteral("1: p 0 0") }));
}

void tst_ConnectMarkerVisibilityFlags::sameListTwice()
{
    QStringList log;
    HearingList list(0, log);
    ConnectMarkerVisibilityFlags(&list, &list);
    list.sendSignalSetState(QStringLiteral("p"), eMarkerShow, true);
    QCOMPARE(log.size(), 6); // two and two for itself, one each way between the two
}

void tst_ConnectMarkerVisibilityFlags::secondCallDoubles()
{
    QStringList log;
    HearingList first(0, log);
    HearingList second(1, log);
    ConnectMarkerVisibilityFlags(&first, &second);
    ConnectMarkerVisibilityFlags(&first, &second);
    first.sendSignalSetState(QStringLiteral("p"), eMarkerShow, true);
    QCOMPARE(log.filter(QStringLiteral("0:")).size(), 4);
    QCOMPARE(log.filter(QStringLiteral("1:")).size(), 2);
}

void tst_ConnectMarkerVisibilityFlags::argumentsArePassedOn_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("state");
    QTest::addColumn<bool>("value");
    QTest::newRow("show") << "/a/path" << int(eMarkerShow) << true;
    QTest::newRow("moving ended") << "/a/path" << int(eMarkerMoving) << false;
    QTest::newRow("current") << "/another" << int(eMarkerCurrent) << true;
    QTest::newRow("repaint") << "" << int(eMarkerRepaint) << false;
    QTest::newRow("unknown state") << "/a/path" << 9 << true;
}

void tst_ConnectMarkerVisibilityFlags::argumentsArePassedOn()
{
    QFETCH(QString, path);
    QFETCH(int, state);
    QFETCH(bool, value);
    Mesh mesh(2);
    mesh.At(1).sendSignalSetState(path, static_cast<EMarkerState>(state), value);
    QString const text = QStringLiteral(": %1 %2 %3").arg(path).arg(state).arg(value);
    QCOMPARE(mesh.m_log, QStringList({ QStringLiteral("0") + text, QStringLiteral("1") + text,
                                       QStringLiteral("1") + text })); // at once, with no event loop
}

void tst_ConnectMarkerVisibilityFlags::otherThreadIsHeardLater()
{
    qRegisterMetaType<EMarkerState>("EMarkerState");
    Mesh mesh(2);
    std::unique_ptr<QThread> const other(
        QThread::create([&] { mesh.At(0).sendSignalSetState(QStringLiteral("p"), eMarkerShow, true); }));
    other->start();
    QVERIFY(other->wait(10000));
    QCOMPARE(mesh.m_log, QStringList());
    QCoreApplication::sendPostedEvents();
    QCOMPARE(mesh.Heard(), QList<int>({ 0, 0, 1 }));
}

void tst_ConnectMarkerVisibilityFlags::sharesShow()
{
    Mesh mesh(4);
    for (bool const show : { true, false }) {
        mesh.At(2).SetShowMarker(Mesh::Id(2), show);
        for (int i = 0; i < 4; ++i)
            QCOMPARE(mesh.MarkerAt(i).GetShowMarkerFlag(), show);
    }
    QCOMPARE(mesh.m_log.size(), 10); // what is taken over is not sent on
}

void tst_ConnectMarkerVisibilityFlags::sharesMoving()
{
    Mesh mesh(4);
    for (bool const moving : { true, false }) {
        mesh.At(1).SetMarkerMoving(Mesh::Id(1), moving);
        for (int i = 0; i < 4; ++i)
            QCOMPARE(mesh.MarkerAt(i).IsMoving(), moving);
    }
    QCOMPARE(mesh.m_log.size(), 10);
}

void tst_ConnectMarkerVisibilityFlags::sharesCurrent()
{
    TreeNumber other("other");
    Mesh mesh(3);
    for (int i = 0; i < 3; ++i) {
        mesh.At(i).AddMarker(0);
        mesh.At(i).SetMarker_ValuePath(0, other.Path());
    }
    mesh.At(0).SetCurrentMarker(0, true);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(mesh.At(i).GetCurrentMarker(), 0);
    mesh.At(1).SetCurrentMarker(Mesh::Id(1), true);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(mesh.At(i).GetCurrentMarker(), Mesh::Id(i)); // and the other one no more
}

void tst_ConnectMarkerVisibilityFlags::sharesRepaint()
{
    Mesh mesh(3);
    for (int i = 0; i < 3; ++i)
        mesh.At(i).Forget();
    mesh.At(0).sendSignalSetState(mesh.Path(), eMarkerRepaint, false);
    QCOMPARE(mesh.At(0).Count(QStringLiteral("updateWidget")), 2);
    QCOMPARE(mesh.At(1).Count(QStringLiteral("updateWidget")), 1);
    QCOMPARE(mesh.At(2).Count(QStringLiteral("updateWidget")), 1);
}

void tst_ConnectMarkerVisibilityFlags::otherPathIsAnotherMarker()
{
    TreeNumber other("other");
    Mesh mesh(2);
    int const id = Mesh::Id(0);
    mesh.At(1).AddMarker(id)->SetMarkerName(mesh.MarkerAt(0).GetMarkerName());
    mesh.At(1).SetMarker_ValuePath(id, other.Path());
    mesh.At(1).SetShowMarker(id, false);
    mesh.At(0).SetShowMarker(id, true);
    QVERIFY(!mesh.At(1).GetShowMarkerFlag(id)); // same index and name, another path
    QVERIFY(mesh.MarkerAt(1).GetShowMarkerFlag());
}

void tst_ConnectMarkerVisibilityFlags::unboundMarkerIsNobodys()
{
    Mesh mesh(2);
    for (int i = 0; i < 2; ++i)
        mesh.At(i).AddMarker(0)->SetShowMarker(false, true);
    mesh.At(0).SetShowMarker(0, true); // the path is empty in both
    QVERIFY(!mesh.At(1).GetShowMarkerFlag(0));
}

void tst_ConnectMarkerVisibilityFlags::hearsItselfTwice()
{
    Mesh mesh(1);
    mesh.At(0).SetShowMarker(Mesh::Id(0), true);
    QString const entry = QStringLiteral("0: %1 0 1").arg(mesh.Path());
    QCOMPARE(mesh.m_log, QStringList({ entry, entry }));
}

void tst_ConnectMarkerVisibilityFlags::hiddenListIgnores()
{
    Mesh mesh(3);
    mesh.At(1).hide();
    mesh.At(0).SetShowMarker(Mesh::Id(0), true);
    QVERIFY(!mesh.MarkerAt(1).GetShowMarkerFlag());
    QVERIFY(mesh.MarkerAt(2).GetShowMarkerFlag());
    mesh.At(1).show(); // is not told what it missed
    QVERIFY(!mesh.MarkerAt(1).GetShowMarkerFlag());
    mesh.At(0).SetShowMarker(Mesh::Id(0), false);
    mesh.At(0).SetShowMarker(Mesh::Id(0), true);
    QVERIFY(mesh.MarkerAt(1).GetShowMarkerFlag());
}

void tst_ConnectMarkerVisibilityFlags::hiddenListIgnoresMovingAndCurrent()
{
    Mesh mesh(3);
    mesh.At(1).hide();
    mesh.At(0).SetMarkerMoving(Mesh::Id(0), true);
    mesh.At(0).SetCurrentMarker(Mesh::Id(0), true);
    QVERIFY(!mesh.MarkerAt(1).IsMoving());
    QVERIFY(!mesh.MarkerAt(1).GetCurrentMarker());
    QVERIFY(mesh.MarkerAt(2).IsMoving());
    QVERIFY(mesh.MarkerAt(2).GetCurrentMarker());
}

void tst_ConnectMarkerVisibilityFlags::hiddenListSends()
{
    Mesh mesh(2);
    mesh.At(0).hide();
    mesh.At(0).SetShowMarker(Mesh::Id(0), true);
    QVERIFY(mesh.MarkerAt(1).GetShowMarkerFlag());
}

void tst_ConnectMarkerVisibilityFlags::pseudoListTakesPart()
{
    TreeNumber number("shared");
    QStringList log;
    HearingList scaled(0, log);
    PseudoMarkerList pseudo(nullptr, "pseudo");
    pseudo.show();
    ConnectMarkerVisibilityFlags(&scaled, &pseudo);
    scaled.AddMarker(3);
    pseudo.AddMarker(4);
    scaled.SetMarker_ValuePath(3, number.Path());
    pseudo.SetMarker_ValuePath(4, number.Path());
    scaled.SetShowMarker(3, false);
    QVERIFY(!pseudo.GetShowMarkerFlag(4));
    pseudo.SetShowMarker(4, true);
    QVERIFY(scaled.GetShowMarkerFlag(3));
}

void tst_ConnectMarkerVisibilityFlags::listDies()
{
    Mesh mesh(4);
    mesh.End(1);
    mesh.m_log.clear();
    mesh.At(0).SetShowMarker(Mesh::Id(0), true);
    QCOMPARE(mesh.Heard(), QList<int>({ 0, 0, 2, 3 }));
    mesh.End(0);
    mesh.m_log.clear();
    mesh.At(3).SetShowMarker(Mesh::Id(3), false);
    QCOMPARE(mesh.Heard(), QList<int>({ 2, 3, 3 }));
    QVERIFY(!mesh.MarkerAt(2).GetShowMarkerFlag());
}

void tst_ConnectMarkerVisibilityFlags::hearerEndsTheNext()
{
    Mesh mesh(4);
    mesh.At(1).m_action = [&] { mesh.End(2); };
    mesh.At(0).sendSignalSetState(mesh.Path(), eMarkerShow, true);
    QCOMPARE(mesh.Heard(), QList<int>({ 0, 0, 1, 3 }));
    QVERIFY(mesh.MarkerAt(3).GetShowMarkerFlag());
}

void tst_ConnectMarkerVisibilityFlags::hearerEndsItself()
{
    Mesh mesh(3);
    mesh.At(1).m_action = [&] { mesh.End(1); };
    mesh.At(0).sendSignalSetState(mesh.Path(), eMarkerShow, true);
    QCOMPARE(mesh.Heard(), QList<int>({ 0, 0, 1, 2 }));
    QVERIFY(mesh.MarkerAt(2).GetShowMarkerFlag());
}

void tst_ConnectMarkerVisibilityFlags::hearerEndsTheSender()
{
    Mesh mesh(3);
    mesh.At(1).m_action = [&] { mesh.End(0); };
    mesh.At(0).sendSignalSetState(mesh.Path(), eMarkerShow, true);
    QCOMPARE(mesh.Heard(), QList<int>({ 0, 0, 1 })); // a sender that ended tells nobody else
    mesh.m_log.clear();
    mesh.At(2).sendSignalSetState(mesh.Path(), eMarkerShow, true);
    QCOMPARE(mesh.Heard(), QList<int>({ 1, 2, 2 }));
}

void tst_ConnectMarkerVisibilityFlags::hearerEndsTheSenderOfAMarker()
{
    for (int what = 0; what < 3; ++what) {
        Mesh mesh(3);
        mesh.At(1).m_action = [&] { mesh.End(0); };
        HearingList & sender = mesh.At(0);
        if (what == 0)
            sender.SetShowMarker(Mesh::Id(0), true);
        else if (what == 1)
            sender.SetMarkerMoving(Mesh::Id(0), true);
        else
            sender.SetCurrentMarker(Mesh::Id(0), true);
        QVERIFY(mesh.Heard().contains(1));
        mesh.m_log.clear();
        mesh.At(2).SetShowMarker(Mesh::Id(2), true);
        QCOMPARE(mesh.Heard(), QList<int>({ 1, 2, 2 }));
    }
}

void tst_ConnectMarkerVisibilityFlags::hearerSendsAgain()
{
    Mesh mesh(3);
    mesh.At(1).m_action = [&] { mesh.At(1).SetShowMarker(Mesh::Id(1), true); };
    mesh.At(0).SetShowMarker(Mesh::Id(0), true);
    QCOMPARE(mesh.Heard(), QList<int>({ 0, 0, 1, 0, 1, 1, 2, 2 })); // the inner round comes first, to its end
    for (int i = 0; i < 3; ++i)
        QVERIFY(mesh.MarkerAt(i).GetShowMarkerFlag());
}

void tst_ConnectMarkerVisibilityFlags::hearerConnectsAnother()
{
    Mesh mesh(2);
    HearingList late(9, mesh.m_log);
    mesh.At(1).m_action = [&] { ConnectMarkerVisibilityFlags(&mesh.At(0), &late); };
    mesh.At(0).sendSignalSetState(mesh.Path(), eMarkerShow, true);
    QCOMPARE(mesh.Heard(), QList<int>({ 0, 0, 1 }));
    mesh.m_log.clear();
    mesh.At(0).sendSignalSetState(mesh.Path(), eMarkerShow, true);
    QCOMPARE(mesh.Heard(), QList<int>({ 0, 0, 1, 0, 0, 9 }));
}

void tst_ConnectMarkerVisibilityFlags::valueEndsMeanwhile()
{
    Mesh mesh(3);
    mesh.At(1).m_action = [&] { Tree::Instance()->Remove(mesh.Path()); };
    mesh.At(0).SetShowMarker(Mesh::Id(0), true);
    QVERIFY(mesh.MarkerAt(0).GetShowMarkerFlag());
    QVERIFY(!mesh.MarkerAt(2).GetShowMarkerFlag()); // a marker without its value is nobody's
    QVERIFY(!mesh.MarkerAt(2).GetConnected());
}

ORIM_TEST_MAIN(tst_ConnectMarkerVisibilityFlags)
#include "tst_connectmarkervisibilityflags.moc"
