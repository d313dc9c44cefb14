// SPDX-License-Identifier: MIT
#include "marker.h"

#include "testmain.h"
#include "testmarkerlist.h"

#include <QElapsedTimer>
#include <QSignalSpy>

class tst_marker_state : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { qRegisterMetaType<EMarkerState>("EMarkerState"); }

    void isDrawn_data();
    void isDrawn();
    void panelIsDrawn_data();
    void panelIsDrawn();
    void wrapBeginsMoving_data();
    void wrapBeginsMoving();
    void movingWithoutList();
    void movingTellsTheOthers_data();
    void movingTellsTheOthers();
    void movingRebuildsTheShownLists();
    void movingTellsBeforeItRebuilds();
    void movingRestartsTheTimer();
    void restsWithAnyFactor_data();
    void restsWithAnyFactor();
    void timerEndsWithTheMarker();
    void timerEndsInTheListThatRunsIt();
    void stopTimer();
    void showTellsTheOthers();
    void showSetsTheRulersEvenWhenNotDrawn();
    void showUnchangedOnlyReads();
    void showWithoutList();
    void currentTellsFirst();
    void currentMovesWhatShowsMoving();
    void currentWithoutList();
    void listEndsFirst();
    void valueChangesWhileTheListEnds();
};

void tst_marker_state::isDrawn_data()
{
    QTest::addColumn<unsigned int>("special");
    QTest::addColumn<bool>("never");
    QTest::addColumn<bool>("flag");
    QTest::addColumn<bool>("moving");
    QTest::addColumn<bool>("drawn");
    unsigned int const always = eSpecialAlwaysShow;
    unsigned int const showMoving = eSpecialShowMoving;
    QTest::newRow("flag on") << 0U << false << true << false << true;
    QTest::newRow("flag off") << 0U << false << false << false << false;
    QTest::newRow("never beats the flag") << 0U << true << true << false << false;
    QTest::newRow("always beats never") << always << true << false << false << true;
    QTest::newRow("always with the flag off") << always << false << false << false << true;
    QTest::newRow("moving alone is not drawn") << 0U << false << false << true << false;
    QTest::newRow("shows moving, but rests") << showMoving << false << false << false << false;
    QTest::newRow("shows moving and moves") << showMoving << false << false << true << true;
    QTest::newRow("never beats moving") << showMoving << true << false << true << false;
    QTest::newRow("other bits draw nothing") << ~(always | showMoving) << false << false << true << false;
}

void tst_marker_state::isDrawn()
{
    QFETCH(unsigned int, special);
    QFETCH(bool, never);
    QFETCH(bool, flag);
    QFETCH(bool, moving);
    QFETCH(bool, drawn);
    Marker marker;
    marker.SetSpecial(special);
    marker.SetNeverShowMarker(never);
    marker.SetShowMarker(flag, true);
    marker.SetMoving(moving, true);
    QCOMPARE(marker.GetShowMarker(), drawn);
}

void tst_marker_state::panelIsDrawn_data()
{
    QTest::addColumn<bool>("never");
    QTest::addColumn<bool>("flag");
    QTest::addColumn<unsigned int>("special");
    QTest::addColumn<bool>("result");
    QTest::addColumn<bool>("drawn");
    QTest::newRow("all four") << false << true << unsigned(eSpecialResult) << true << true;
    QTest::newRow("never show") << true << true << unsigned(eSpecialResult) << true << false;
    QTest::newRow("flag off") << false << false << unsigned(eSpecialResult) << true << false;
    QTest::newRow("without the bit") << false << true << unsigned(eSpecialPanelMenu) << true << false;
    QTest::newRow("panel off") << false << true << unsigned(eSpecialResult) << false << false;
    QTest::newRow("always show is not asked")
        << false << false << unsigned(eSpecialResult | eSpecialAlwaysShow) << true << false;
}

void tst_marker_state::panelIsDrawn()
{
    QFETCH(bool, never);
    QFETCH(bool, flag);
    QFETCH(unsigned int, special);
    QFETCH(bool, result);
    QFETCH(bool, drawn);
    Marker marker;
    marker.SetNeverShowMarker(never);
    marker.SetShowMarker(flag, true);
    marker.SetSpecial(special);
    marker.SetShowResult(result);
    QCOMPARE(marker.GetShowResult(), drawn);
}

void tst_marker_state::wrapBeginsMoving_data()
{
    QTest::addColumn<unsigned int>("special");
    QTest::addColumn<double>("value");
    QTest::addColumn<bool>("moves");
    QTest::newRow("wrapped and shows moving") << unsigned(eSpecialShowMoving) << -10.0 << true;
    QTest::newRow("wrapped, does not show moving") << unsigned(eSpecialX) << -10.0 << false;
    QTest::newRow("not wrapped") << unsigned(eSpecialShowMoving) << 10.0 << false;
    QTest::newRow("wrapped downward") << unsigned(eSpecialShowMoving) << 200.0 << true;
}

void tst_marker_state::wrapBeginsMoving()
{
    QFETCH(unsigned int, special);
    QFETCH(double, value);
    QFETCH(bool, moves);
    TestMarkerList list;
    QSignalSpy states(&list, &MarkerList::signalSetState);
    Marker & marker = *list.AddMarker(0);
    marker.SetSpecial(special);
    marker.SetValue(value);
    marker.SetWrapAround(360);
    marker.SetWrapIntoRange(0, 100);
    QCOMPARE(marker.IsMoving(), moves);
    QCOMPARE(marker.GetTimerID() > 0, moves);
    QCOMPARE(states.count(), 0);
}

void tst_marker_state::movingWithoutList()
{
    Marker marker;
    marker.SetMoving(true, false);
    QVERIFY(marker.IsMoving());
    QCOMPARE(marker.GetTimerID(), -1);
    marker.SetMoving(true, false);
    QCOMPARE(marker.GetTimerID(), -1);
    marker.SetMoving(false, false);
    QVERIFY(!marker.IsMoving());
}

void tst_marker_state::movingTellsTheOthers_data()
{
    QTest::addColumn<bool>("before");
    QTest::addColumn<bool>("moving");
    QTest::addColumn<bool>("noSignal");
    QTest::addColumn<QString>("told");
    QTest::newRow("begins") << false << true << false << QStringLiteral("/nowhere 1 1");
    QTest::newRow("ends") << true << false << false << QStringLiteral("/nowhere 1 0");
    QTest::newRow("begins quietly") << false << true << true << QString();
    QTest::newRow("ends quietly") << true << false << true << QString();
    QTest::newRow("moves already") << true << true << false << QString();
    QTest::newRow("rests already") << false << false << false << QString();
}

void tst_marker_state::movingTellsTheOthers()
{
    QFETCH(bool, before);
    QFETCH(bool, moving);
    QFETCH(bool, noSignal);
    QFETCH(QString, told);
    TestMarkerList list;
    Marker & marker = *list.AddMarker(0);
    marker.Set_ValuePath(QStringLiteral("/nowhere"));
    marker.SetMoving(before, true);
    QSignalSpy states(&list, &MarkerList::signalSetState);
    marker.SetMoving(moving, noSignal);
    QCOMPARE(states.count(), told.isEmpty() ? 0 : 1);
    if (!told.isEmpty())
        QCOMPARE(StateText(states[0]), told);
}

void tst_marker_state::movingRebuildsTheShownLists()
{
    TestMarkerList list;
    Marker & marker = *list.AddMarker(4);
    marker.SetShowMarker(false, true);
    marker.SetMoving(true, true);
    QVERIFY(list.GetShownMarkers().empty());
    marker.SetMoving(false, true);
    marker.SetSpecial(eSpecialShowMoving);
    marker.SetMoving(true, true);
    QCOMPARE(list.GetShownMarkers(), std::vector<Marker *>{ &marker });
    marker.SetMoving(false, true);
    QVERIFY(list.GetShownMarkers().empty());

    // nothing is rebuilt when what is drawn stays the same
    marker.SetSpecial(eSpecialAlwaysShow);
    marker.SetMoving(true, true);
    QVERIFY(list.GetShownMarkers().empty());
}

void tst_marker_state::movingTellsBeforeItRebuilds()
{
    TestMarkerList list;
    Marker & marker = *list.AddMarker(0);
    marker.SetSpecial(eSpecialShowMoving);
    marker.SetShowMarker(false, true);
    QStringList inside;
    connect(&list, &MarkerList::signalSetState, this,
            [&] { inside << QStringLiteral("%1 %2").arg(marker.IsMoving()).arg(list.GetShownMarkers().size()); });
    marker.SetMoving(true, false);
    marker.SetMoving(false, false);
    QCOMPARE(inside, (QStringList{ QStringLiteral("1 0"), QStringLiteral("0 1") }));
}

void tst_marker_state::movingRestartsTheTimer()
{
    TestMarkerList list;
    Marker & marker = *list.AddMarker(0);
    marker.SetMoving(false, true);
    QCOMPARE(marker.GetTimerID(), -1);
    marker.SetMoving(true, true);
    QVERIFY(marker.GetTimerID() > 0);
    marker.SetMoving(true, true);
    QVERIFY(marker.GetTimerID() > 0);
    TimerCounter const counter(list);
    QElapsedTimer time;
    time.start();
    QTRY_VERIFY_WITH_TIMEOUT(!marker.IsMoving(), 5000);
    QVERIFY(time.elapsed() >= 900);
    QCOMPARE(counter.m_timers, 1); // the first timer was killed
    QCOMPARE(marker.GetTimerID(), -1);
}

void tst_marker_state::restsWithAnyFactor_data()
{
    QTest::addColumn<double>("factor");
    QTest::addColumn<double>("value");
    QTest::newRow("0.1") << 0.1 << 3.0;
    QTest::newRow("Hz to MHz") << 1e-6 << 31.0;
    QTest::newRow("0.7") << 0.7 << 3.0;
    QTest::newRow("0") << 0.0 << 3.0;
    QTest::newRow("too far for doubles") << 1e300 << 1e300;
}

void tst_marker_state::restsWithAnyFactor()
{
    QFETCH(double, factor);
    QFETCH(double, value);
    MarkerScene scene;
    scene.Bind(factor);
    scene.number->SetValue(value, nullptr);
    QCOMPARE(scene.marker->GetValue(), value * factor);
    QVERIFY(!scene.marker->Changing());
    scene.list.Fire(scene.marker->GetTimerID());
    QVERIFY(!scene.marker->IsMoving());
    scene.marker->Update();
    QVERIFY(!scene.marker->Changing());
    scene.marker->EndMoving();
    QVERIFY(scene.number->GetValue() == value); // to the last bit
}

void tst_marker_state::timerEndsWithTheMarker()
{
    TestMarkerList list;
    list.AddMarker(0)->SetMoving(true, true);
    list.AddMarker(1)->SetMoving(true, true);
    TimerCounter const counter(list);
    list.DeleteMarker(0);
    QTRY_VERIFY_WITH_TIMEOUT(!list.GetMarker(1)->IsMoving(), 5000);
    QCOMPARE(counter.m_timers, 1);
}

void tst_marker_state::timerEndsInTheListThatRunsIt()
{
    TestMarkerList first;
    TestMarkerList second;
    Marker marker;
    marker.SetParent(&first);
    marker.SetMoving(true, true);
    marker.SetParent(&second);
    QVERIFY(marker.GetTimerID() > 0);
    marker.StopTimer();
    QCOMPARE(marker.GetTimerID(), -1);
    TimerCounter const inFirst(first);
    TimerCounter const inSecond(second);
    marker.SetMoving(true, true);
    QTRY_VERIFY_WITH_TIMEOUT(inSecond.m_timers > 0, 5000);
    QCOMPARE(inFirst.m_timers, 0);
}

void tst_marker_state::stopTimer()
{
    TestMarkerList list;
    Marker & marker = *list.AddMarker(0);
    marker.StopTimer();
    QCOMPARE(marker.GetTimerID(), -1);
    marker.SetMoving(true, true);
    marker.StopTimer();
    QCOMPARE(marker.GetTimerID(), -1);
    QVERIFY(marker.IsMoving());
}

void tst_marker_state::showTellsTheOthers()
{
    TestMarkerList list;
    Marker & marker = *list.AddMarker(2);
    marker.Set_ValuePath(QStringLiteral("/nowhere"));
    QSignalSpy states(&list, &MarkerList::signalSetState);
    QStringList shownInside;
    connect(&list, &MarkerList::signalSetState, this, [&] {
        shownInside << QStringLiteral("%1 %2").arg(marker.GetShowMarkerFlag()).arg(list.GetShownMarkers().size());
    });
    list.Forget();
    QVERIFY(!marker.SetShowMarker(false, false));
    QCOMPARE(states.count(), 1);
    QCOMPARE(StateText(states[0]), QStringLiteral("/nowhere 0 0"));
    QVERIFY(list.GetShownMarkers().empty());
    QCOMPARE(list.m_calls, QStringList{ QStringLiteral("updateWidget") });
    QVERIFY(marker.SetShowMarker(true, false));
    QCOMPARE(StateText(states[1]), QStringLiteral("/nowhere 0 1"));
    QCOMPARE(list.GetShownMarkers().size(), std::size_t(1));
    // the flag is stored before the others hear of it, the shown lists follow afterwards
    QCOMPARE(shownInside, (QStringList{ QStringLiteral("0 1"), QStringLiteral("1 0") }));
    marker.SetShowMarker(false, true);
    QCOMPARE(states.count(), 2);
    QVERIFY(list.GetShownMarkers().empty());
}

void tst_marker_state::showSetsTheRulersEvenWhenNotDrawn()
{
    TestMarkerList list;
    Marker & marker = *list.AddMarker(2);
    marker.SetPixel(4);
    list.SetMustRecalcRulers(false);
    marker.SetShowMarker(false, true);
    QVERIFY(!marker.GetShowMarker());
    QVERIFY(!list.isVisible());
    QVERIFY(list.GetMustRecalcRulers());
    QCOMPARE(marker.GetPixel(), -1);
}

void tst_marker_state::showUnchangedOnlyReads()
{
    TestMarkerList list;
    Marker & marker = *list.AddMarker(2);
    QSignalSpy states(&list, &MarkerList::signalSetState);
    marker.SetPixel(4);
    list.SetMustRecalcRulers(false);
    list.Forget();
    QVERIFY(marker.SetShowMarker(true, false));
    QCOMPARE(states.count(), 0);
    QCOMPARE(marker.GetPixel(), 4);
    QVERIFY(!list.GetMustRecalcRulers());
    QCOMPARE(list.m_calls, QStringList{ QStringLiteral("updateWidget") });
}

void tst_marker_state::showWithoutList()
{
    Marker marker;
    QVERIFY(!marker.SetShowMarker(false, false));
    QVERIFY(!marker.GetShowMarkerFlag());
    QVERIFY(marker.SetShowMarker(true, false));
}

void tst_marker_state::currentTellsFirst()
{
    TestMarkerList list;
    Marker & marker = *list.AddMarker(2);
    marker.Set_ValuePath(QStringLiteral("/nowhere"));
    QSignalSpy states(&list, &MarkerList::signalSetState);
    QList<bool> flagInside;
    connect(&list, &MarkerList::signalSetState, this, [&] { flagInside << marker.GetCurrentMarker(); });
    QVERIFY(marker.SetCurrentMarker(true, false));
    QVERIFY(marker.GetCurrentMarker());
    QCOMPARE(StateText(states[0]), QStringLiteral("/nowhere 2 1"));
    QVERIFY(marker.SetCurrentMarker(true, false));
    QCOMPARE(states.count(), 2);
    QVERIFY(!marker.SetCurrentMarker(false, false));
    QCOMPARE(StateText(states[2]), QStringLiteral("/nowhere 2 0"));
    QCOMPARE(flagInside, (QList<bool>{ false, true, true }));
    marker.SetCurrentMarker(true, true);
    QVERIFY(marker.GetCurrentMarker());
    QCOMPARE(states.count(), 3);
    QVERIFY(!marker.IsMoving());
    QCOMPARE(marker.GetTimerID(), -1);
}

void tst_marker_state::currentMovesWhatShowsMoving()
{
    TestMarkerList list;
    Marker & marker = *list.AddMarker(2);
    marker.SetSpecial(eSpecialShowMoving);
    QSignalSpy states(&list, &MarkerList::signalSetState);
    marker.SetCurrentMarker(false, true);
    QVERIFY(!marker.IsMoving());
    list.Forget();
    marker.SetCurrentMarker(true, true);
    QVERIFY(marker.IsMoving());
    QVERIFY(marker.GetTimerID() > 0);
    // the moving state is told even then
    QCOMPARE(states.count(), 1);
    QCOMPARE(StateText(states[0]), QStringLiteral(" 1 1"));
    // and the repaint is that of the widget itself
    QVERIFY(list.m_calls.isEmpty());
}

void tst_marker_state::currentWithoutList()
{
    Marker marker;
    marker.SetSpecial(eSpecialShowMoving);
    QVERIFY(marker.SetCurrentMarker(true, false));
    QVERIFY(marker.GetCurrentMarker());
    QCOMPARE(marker.GetTimerID(), -1);
}

void tst_marker_state::listEndsFirst()
{
    Marker marker;
    {
        TestMarkerList list;
        list.show();
        marker.SetParent(&list);
        marker.SetMoving(true, true);
        QVERIFY(marker.GetTimerID() > 0);
    }
    QVERIFY(!marker.GetParent());
    marker.SetMoving(true, false);
    marker.SetShowMarker(false, false);
    marker.SetCurrentMarker(true, false);
    marker.SetValue(4.0);
    marker.SetWrapAround(5);
    marker.InvalidatePixel();
    marker.TraceIndexAndName();
    marker.StopTimer();
    QVERIFY(!marker.Move2NextPixel(true));
    QCOMPARE(marker.GetTimerID(), -1);
    QCOMPARE(marker.GetStringValue(nullptr), QStringLiteral(" 4.000"));
}

void tst_marker_state::valueChangesWhileTheListEnds()
{
    class Child : public QWidget
    {
    public:
        Child(QWidget & parent, TreeNumber & number) : QWidget(&parent), m_number(number) {}

        ~Child() override { m_number->SetValue(7.0, nullptr); }

    private:
        TreeNumber & m_number;
    };

    TreeNumber number("number", 3.0);
    Marker stranger; // in no list, but with a parent
    {
        TestMarkerList list;
        new Child(list, number);
        list.show();
        stranger.SetParent(&list);
        stranger.Set_ValuePath(number.Path());
        list.AddMarker(4)->Set_ValuePath(number.Path());
        QCOMPARE(stranger.GetValue(), 3.0);
    }
    QCOMPARE(number->GetValue(), 7.0);
    QCOMPARE(stranger.GetValue(), 3.0);
    QCOMPARE(number->GetObserverCount(), 1);
}

ORIM_TEST_MAIN(tst_marker_state)
#include "tst_marker_state.moc"
