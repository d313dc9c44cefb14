// SPDX-License-Identifier: MIT
#include "markerlist.h"

#include "guibase.h"
#include "resortpopupmenu.h"
#include "testmain.h"
#include "testmarkerlist.h"

#include <QBrush>
#include <QContextMenuEvent>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QWindowStateChangeEvent>
#include <QtTest/qtestspontaneevent.h>

#include <memory>

namespace {

//! A visible list with connected markers at 2 and 4, and one at 6 without a value.
struct Scene
{
    Scene() : first("first", 50.0), second("second", 50.0)
    {
        list.show();
        list.AddMarker(2)->Set_ValuePath(first.Path());
        list.AddMarker(4)->Set_ValuePath(second.Path());
        list.AddMarker(6)->Set_ValuePath(QStringLiteral("/nowhere"));
        for (int const index : { 2, 4, 6 })
            Rest(index);
        list.Forget();
    }

    Marker & At(int index) { return *list.GetMarker(index); }

    void Rest(int index)
    {
        At(index).SetMoving(false, true);
        At(index).StopTimer();
    }

    TreeNumber first;
    TreeNumber second;
    TestMarkerList list;
};

//! Notes how many timers had fired in a list when a value changed.
class TimersAtChange : public IObserver
{
public:
    explicit TimersAtChange(MarkerList & list) : m_counter(list) {}

    int m_timers = -1;

    void Update(Observable * /*subject*/, TChangeCode code) override
    {
        if (code == eValueChanged && m_timers < 0)
            m_timers = m_counter.m_timers;
    }

private:
    TimerCounter m_counter;
};

//! Ends when its colours are to be cleared.
class EndingList : public TestMarkerList
{
public:
    void slotClearColors() override { delete this; }
};

QStringList Once(char const * call) { return { QString::fromLatin1(call) }; }

} // namespace

class tst_markerlist_events : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase()
    {
        TestStage::HushPopups();
        qRegisterMetaType<EMarkerState>("EMarkerState");
        qRegisterMetaType<MarkerList *>("MarkerList*");
    }

    void repairIsHeldBack();
    void repairTakesItsDelay();
    void negativeDelaysAreNone();
    void resizeIsHeldBack();
    void timerOfAMarkerComesFirst();
    void timerWaitsForTheValue();
    void timerOfNobody_data();
    void timerOfNobody();
    void movingEndsByItself();
    void timersTakeTheirTime();

    void wheelWithoutCurrentMarker();
    void wheelGoesToTheParent();
    void wheelSteps_data();
    void wheelSteps();
    void wheelTakesTheLowest();
    void wheelTimerKeepsRunning();
    void wheelTimerIsReplaced();
    void wheelForgetsADeletedMarker();
    void wheelCommitsOnlyItsMarker();

    void stateForHiddenList();
    void stateShow();
    void stateMoving();
    void stateCurrent();
    void stateCurrentOfNobody();
    void stateRepaint();
    void stateOfUnknownPath_data();
    void stateOfUnknownPath();
    void statesReachAConnectedList();

    void minimizing();
    void minimizingTheOuterWindow();
    void strangerChangesState();
    void showOfTheTopWindow();
    void showOfTheListItself();
    void showEndsTheList();
    void otherEventsGoToTheControl();
    void topWindowEndsFirst();
    void withoutWatchedObject();

    void enabledSlot();
    void enablingTheWidgetAsksForRulers();
    void newColorsClearTheColors();
    void backgroundColor();
    void resizeNow();
    void doubleClick();
    void plainSettings();
};

void tst_markerlist_events::repairIsHeldBack()
{
    TestMarkerList list;
    list.MarkerList::Repair();
    QVERIFY(list.GetRepairTimerID() > 0);
    TimerCounter const counter(list);
    list.MarkerList::Repair();
    list.MarkerList::Repair();
    QVERIFY(list.m_calls.isEmpty());
    list.Fire(list.GetRepairTimerID());
    QCOMPARE(list.m_calls, (QStringList{ QStringLiteral("RepairDrawing"), QStringLiteral("updateWidget") }));
    QCOMPARE(list.GetRepairTimerID(), 0);
    // it was killed, and so were those before it
    list.StartResizeTimer();
    QTRY_VERIFY(list.GetResizePending());
    QCOMPARE(counter.m_timers, 2);
    QCOMPARE(list.m_calls.size(), 2);
}

void tst_markerlist_events::repairTakesItsDelay()
{
    TestMarkerList list;
    list.SetRepairDelay(30);
    QCOMPARE(list.GetRepairDelay(), 30);
    QElapsedTimer time;
    time.start();
    list.MarkerList::Repair();
    QTRY_COMPARE(list.Count(QStringLiteral("RepairDrawing")), 1);
    QVERIFY(time.elapsed() >= 25);
    QCOMPARE(list.GetRepairTimerID(), 0);
}

void tst_markerlist_events::negativeDelaysAreNone()
{
    TestMarkerList list;
    list.SetRepairDelay(-5);
    list.SetResizeDelay(-5);
    list.MarkerList::Repair();
    list.StartResizeTimer();
    QTRY_COMPARE(list.Count(QStringLiteral("RepairDrawing")), 1);
    QTRY_VERIFY(list.GetResizePending());
}

void tst_markerlist_events::resizeIsHeldBack()
{
    TestMarkerList list;
    list.show();
    list.resize(80, 40);
    QCoreApplication::processEvents();
    QCOMPARE(list.GetResizeTimerID(), 0); // panes ask for it
    list.Forget();
    list.SetResizeDelay(20);
    QCOMPARE(list.GetResizeDelay(), 20);
    list.StartResizeTimer();
    list.StartResizeTimer();
    QVERIFY(list.GetResizeTimerID() > 0);
    QVERIFY(!list.GetResizePending());
    list.Fire(list.GetResizeTimerID());
    QVERIFY(list.GetResizePending());
    QCOMPARE(list.GetResizeTimerID(), 0);
    QVERIFY(list.m_calls.isEmpty()); // the repaint is that of the widget itself
    list.SetResizePending(false);
    QVERIFY(!list.GetResizePending());
    list.StartResizeTimer();
    QTRY_VERIFY(list.GetResizePending());
}

void tst_markerlist_events::timerOfAMarkerComesFirst()
{
    Scene scene;
    scene.At(2).SetMoving(true, true);
    scene.At(4).SetMoving(true, true);
    QSignalSpy states(&scene.list, &MarkerList::signalSetState);
    scene.list.MarkerList::Repair();
    scene.list.Fire(scene.At(4).GetTimerID());
    QVERIFY(!scene.At(4).IsMoving());
    QCOMPARE(scene.At(4).GetTimerID(), -1);
    QVERIFY(scene.At(2).IsMoving());
    QVERIFY(scene.At(2).GetTimerID() > 0);
    QVERIFY(scene.list.GetRepairTimerID() > 0);
    QCOMPARE(scene.list.m_calls, Once("updateWidget"));
    QCOMPARE(states.count(), 1);
    QCOMPARE(StateText(states[0]), QStringLiteral("/test/second 1 0"));
}

void tst_markerlist_events::timerWaitsForTheValue()
{
    Scene scene;
    scene.first->SetInterimValue(51.0, nullptr);
    scene.list.Forget();
    int const timer = scene.At(2).GetTimerID();
    QVERIFY(timer > 0);
    scene.list.Fire(timer);
    QVERIFY(scene.At(2).IsMoving());
    QCOMPARE(scene.At(2).GetTimerID(), timer);
    QVERIFY(scene.list.m_calls.isEmpty());
    scene.first->CommitInterimValue(&scene.At(2));
    scene.list.Fire(timer);
    QVERIFY(!scene.At(2).IsMoving());
    QCOMPARE(scene.At(2).GetTimerID(), -1);
}

void tst_markerlist_events::timerOfNobody_data()
{
    QTest::addColumn<int>("id");
    for (int const id : { 0, -1, 1000000 })
        QTest::addRow("%d", id) << id;
}

void tst_markerlist_events::timerOfNobody()
{
    QFETCH(int, id);
    Scene scene;
    scene.At(2).SetMoving(true, true);
    scene.list.MarkerList::Repair();
    scene.list.Fire(id);
    QVERIFY(scene.At(2).IsMoving());
    QVERIFY(scene.list.GetRepairTimerID() > 0);
    QVERIFY(!scene.list.GetResizePending());
    QVERIFY(scene.list.m_calls.isEmpty());
}

void tst_markerlist_events::movingEndsByItself()
{
    Scene scene;
    scene.At(2).SetSpecial(eSpecialShowMoving);
    scene.At(2).SetShowMarker(false, true);
    scene.Rest(2);
    QElapsedTimer time;
    time.start();
    scene.first->SetValue(60.0, nullptr);
    QVERIFY(scene.At(2).GetShowMarker());
    QTRY_VERIFY_WITH_TIMEOUT(!scene.At(2).GetShowMarker(), 5000);
    QVERIFY(time.elapsed() >= 900);
}

void tst_markerlist_events::timersTakeTheirTime()
{
    Scene scene;
    TestMarkerList & list = scene.list;
    list.MarkerList::Repair();
    list.StartResizeTimer();
    QCOMPARE(IntervalOf(list, list.GetRepairTimerID()), 100);
    QCOMPARE(IntervalOf(list, list.GetResizeTimerID()), 250);
    list.SetRepairDelay(70);
    list.SetResizeDelay(80);
    list.MarkerList::Repair();
    list.StartResizeTimer();
    QCOMPARE(IntervalOf(list, list.GetRepairTimerID()), 70);
    QCOMPARE(IntervalOf(list, list.GetResizeTimerID()), 80);
    // those before were killed
    QCOMPARE(static_cast<int>(QAbstractEventDispatcher::instance()->registeredTimers(&list).size()), 2);
    scene.At(2).SetMoving(true, true);
    QCOMPARE(IntervalOf(list, scene.At(2).GetTimerID()), 1000);
    scene.Rest(2);
    scene.At(2).SetSpecial(eSpecialShowMoving);
    scene.At(2).SetCurrentMarker(true, true); // starts it too
    QCOMPARE(IntervalOf(list, scene.At(2).GetTimerID()), 1000);
    list.Wheel(120);
    QCOMPARE(IntervalOf(list, list.GetWheelTimerID()), 100);
}

void tst_markerlist_events::wheelWithoutCurrentMarker()
{
    Scene scene;
    QVERIFY(!scene.list.Wheel(120));
    QCOMPARE(scene.list.GetWheelTimerID(), 0);
    QVERIFY(!scene.At(2).Changing());
    QVERIFY(!scene.At(4).Changing());
}

void tst_markerlist_events::wheelGoesToTheParent()
{
    class Parent : public QWidget
    {
    public:
        int m_wheels = 0;

    protected:
        void wheelEvent(QWheelEvent * /*event*/) override { ++m_wheels; }
    } parent;

    TreeNumber const number("number", 50.0);
    auto * const list = new TestMarkerList(&parent);
    list->AddMarker(0)->Set_ValuePath(number.Path());
    auto const turn = [list] {
        QWheelEvent event(QPointF(1, 1), QPointF(1, 1), QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&event); // others go to no parent
        qApp->notify(list, &event);
    };
    turn();
    QCOMPARE(parent.m_wheels, 1);
    list->GetMarker(0)->SetCurrentMarker(true, true);
    turn();
    QCOMPARE(parent.m_wheels, 1);
}

void tst_markerlist_events::wheelSteps_data()
{
    QTest::addColumn<int>("delta");
    QTest::addColumn<double>("value");
    QTest::newRow("1 is forward") << 1 << 51.0;
    QTest::newRow("120 is forward") << 120 << 51.0;
    QTest::newRow("0 is backward") << 0 << 49.0;
    QTest::newRow("-1 is backward") << -1 << 49.0;
    QTest::newRow("-120 is backward") << -120 << 49.0;
}

void tst_markerlist_events::wheelSteps()
{
    QFETCH(int, delta);
    QFETCH(double, value);
    Scene scene;
    scene.At(4).SetSpecial(eSpecialX);
    scene.At(4).SetCurrentMarker(true, true);
    QVERIFY(scene.list.Wheel(delta));
    QCOMPARE(scene.second->GetInterimValue(), value);
    QCOMPARE(scene.second->GetValue(), 50.0);
    QVERIFY(!scene.At(2).Changing());
    QVERIFY(scene.list.GetWheelTimerID() > 0);
}

void tst_markerlist_events::wheelTakesTheLowest()
{
    Scene scene;
    scene.At(4).SetCurrentMarker(true, true);
    scene.At(2).SetCurrentMarker(true, true);
    QVERIFY(scene.list.Wheel(120));
    QVERIFY(scene.At(2).Changing());
    QVERIFY(!scene.At(4).Changing());
    // a marker that cannot be stepped takes the event all the same
    scene.At(2).SetCurrentMarker(false, true);
    scene.At(4).SetCurrentMarker(false, true);
    scene.At(6).SetCurrentMarker(true, true);
    QVERIFY(scene.list.Wheel(120));
}

void tst_markerlist_events::wheelTimerKeepsRunning()
{
    Scene scene;
    scene.At(2).SetCurrentMarker(true, true);
    scene.list.Wheel(120);
    int const timer = scene.list.GetWheelTimerID();
    double const stepped = scene.first->GetInterimValue();
    QVERIFY(scene.first->GetValue() != stepped);
    scene.list.Fire(timer);
    QCOMPARE(scene.first->GetValue(), stepped);
    QCOMPARE(scene.list.GetWheelTimerID(), timer);
    // it runs on, and each tick commits again
    for (double const value : { 20.0, 30.0 }) {
        scene.first->SetInterimValue(value, nullptr);
        QTRY_COMPARE(scene.first->GetValue(), value);
        QCOMPARE(scene.list.GetWheelTimerID(), timer);
    }
}

void tst_markerlist_events::wheelTimerIsReplaced()
{
    Scene scene;
    scene.At(2).SetCurrentMarker(true, true);
    scene.list.Wheel(120);
    scene.At(2).SetCurrentMarker(false, true);
    scene.At(4).SetCurrentMarker(true, true);
    scene.list.Wheel(120);
    scene.list.Fire(scene.list.GetWheelTimerID());
    QVERIFY(scene.At(2).Changing()); // only the last one is committed
    QVERIFY(!scene.At(4).Changing());
    TimersAtChange atChange(scene.list);
    scene.second->AddObserver(&atChange);
    scene.Rest(2);
    scene.Rest(4);
    scene.second->SetInterimValue(70.0, &scene.At(4));
    QTRY_COMPARE(scene.second->GetValue(), 70.0);
    QCOMPARE(atChange.m_timers, 1); // the first timer was killed
}

void tst_markerlist_events::wheelForgetsADeletedMarker()
{
    Scene scene;
    scene.At(2).SetCurrentMarker(true, true);
    scene.list.Wheel(120);
    double const stepped = scene.first->GetInterimValue();
    scene.list.DeleteMarker(2);
    scene.list.Fire(scene.list.GetWheelTimerID());
    QVERIFY(scene.first->GetValue() != stepped);
    QVERIFY(scene.list.GetWheelTimerID() > 0);
}

void tst_markerlist_events::wheelCommitsOnlyItsMarker()
{
    Scene scene;
    scene.At(2).SetCurrentMarker(true, true);
    scene.list.Wheel(120);
    scene.second->SetInterimValue(70.0, nullptr);
    scene.list.Fire(scene.list.GetWheelTimerID());
    QVERIFY(!scene.At(2).Changing());
    QVERIFY(scene.At(4).Changing());
}

void tst_markerlist_events::stateForHiddenList()
{
    Scene scene;
    scene.list.hide();
    scene.At(4).SetCurrentMarker(true, true);
    scene.list.slotSetState(scene.first.Path(), eMarkerShow, false);
    scene.list.slotSetState(scene.first.Path(), eMarkerMoving, true);
    scene.list.slotSetState(scene.first.Path(), eMarkerCurrent, true);
    scene.list.Forget();
    scene.list.slotSetState(scene.first.Path(), eMarkerRepaint, true);
    QVERIFY(scene.At(2).GetShowMarkerFlag());
    QVERIFY(!scene.At(2).IsMoving());
    QVERIFY(!scene.At(2).GetCurrentMarker());
    QVERIFY(scene.At(4).GetCurrentMarker());
    QVERIFY(scene.list.m_calls.isEmpty());
    scene.list.show();
    QVERIFY(scene.At(2).GetShowMarkerFlag()); // nothing is made up for
    QVERIFY(!scene.At(2).GetCurrentMarker());
}

void tst_markerlist_events::stateShow()
{
    Scene scene;
    QSignalSpy const states(&scene.list, &MarkerList::signalSetState);
    scene.list.slotSetState(scene.second.Path(), eMarkerShow, false);
    QVERIFY(!scene.At(4).GetShowMarkerFlag());
    QVERIFY(scene.At(2).GetShowMarkerFlag());
    scene.list.slotSetState(scene.second.Path(), eMarkerShow, true);
    QVERIFY(scene.At(4).GetShowMarkerFlag());
    QCOMPARE(states.count(), 0);
}

void tst_markerlist_events::stateMoving()
{
    Scene scene;
    QSignalSpy const states(&scene.list, &MarkerList::signalSetState);
    scene.list.slotSetState(scene.second.Path(), eMarkerMoving, true);
    QVERIFY(scene.At(4).IsMoving());
    QVERIFY(scene.At(4).GetTimerID() > 0);
    QVERIFY(!scene.At(2).IsMoving());
    scene.list.slotSetState(scene.second.Path(), eMarkerMoving, false);
    QVERIFY(!scene.At(4).IsMoving());
    QCOMPARE(states.count(), 0);
}

void tst_markerlist_events::stateCurrent()
{
    Scene scene;
    for (int const index : { 2, 6 })
        scene.At(index).SetCurrentMarker(true, true);
    QSignalSpy const states(&scene.list, &MarkerList::signalSetState);
    scene.list.slotSetState(scene.second.Path(), eMarkerCurrent, true);
    QVERIFY(scene.At(4).GetCurrentMarker());
    QVERIFY(!scene.At(2).GetCurrentMarker());
    QVERIFY(scene.At(6).GetCurrentMarker()); // not connected
    // false clears the others too
    scene.At(2).SetCurrentMarker(true, true);
    scene.list.slotSetState(scene.second.Path(), eMarkerCurrent, false);
    QVERIFY(!scene.At(4).GetCurrentMarker());
    QVERIFY(!scene.At(2).GetCurrentMarker());
    QCOMPARE(states.count(), 0);
}

void tst_markerlist_events::stateCurrentOfNobody()
{
    Scene scene;
    for (int const index : { 2, 4, 6 })
        scene.At(index).SetCurrentMarker(true, true);
    scene.list.slotSetState(QStringLiteral("/elsewhere"), eMarkerCurrent, true);
    QVERIFY(!scene.At(2).GetCurrentMarker());
    QVERIFY(!scene.At(4).GetCurrentMarker());
    QVERIFY(scene.At(6).GetCurrentMarker());
}

void tst_markerlist_events::stateRepaint()
{
    Scene scene;
    for (bool const value : { true, false }) {
        scene.list.Forget();
        scene.list.slotSetState(scene.second.Path(), eMarkerRepaint, value);
        QCOMPARE(scene.list.m_calls, Once("updateWidget"));
    }
}

void tst_markerlist_events::stateOfUnknownPath_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("path");
    for (int const state : { 0, 1, 3, 17 }) {
        QTest::addRow("state %d, no such path", state) << state << QStringLiteral("/elsewhere");
        QTest::addRow("state %d, marker without a value", state) << state << QStringLiteral("/nowhere");
        QTest::addRow("state %d, empty path", state) << state << QString();
    }
    QTest::newRow("no such state") << 17 << QStringLiteral("/test/first");
}

void tst_markerlist_events::stateOfUnknownPath()
{
    QFETCH(int, state);
    QFETCH(QString, path);
    Scene scene;
    scene.list.slotSetState(path, static_cast<EMarkerState>(state), false);
    scene.list.slotSetState(path, static_cast<EMarkerState>(state), true);
    for (int const index : { 2, 4, 6 }) {
        QVERIFY(scene.At(index).GetShowMarkerFlag());
        QVERIFY(!scene.At(index).IsMoving());
    }
    QVERIFY(scene.list.m_calls.isEmpty());
}

void tst_markerlist_events::statesReachAConnectedList()
{
    Scene scene;
    TestMarkerList other;
    other.show();
    other.AddMarker(9)->Set_ValuePath(scene.first.Path());
    connect(&scene.list, SIGNAL(signalSetState(QString, EMarkerState, bool)), &other,
            SLOT(slotSetState(QString, EMarkerState, bool)));
    connect(&other, SIGNAL(signalSetState(QString, EMarkerState, bool)), &scene.list,
            SLOT(slotSetState(QString, EMarkerState, bool)));
    scene.list.SetShowMarker(2, false);
    QVERIFY(!other.GetShowMarkerFlag(9));
    other.SetShowMarker(9, true);
    QVERIFY(scene.list.GetShowMarkerFlag(2));
    scene.list.SetCurrentMarker(2, true);
    QCOMPARE(other.GetCurrentMarker(), 9);
    other.hide();
    scene.list.SetShowMarker(2, false);
    QVERIFY(other.GetShowMarkerFlag(9));
}

void tst_markerlist_events::minimizing()
{
    TestMarkerList list;
    list.Forget();
    list.setWindowState(Qt::WindowMinimized);
    QVERIFY(list.minimized());
    QVERIFY(!list.GetMustRecalcRulers());
    QCOMPARE(list.m_calls, Once("OnMinimize 1"));
    list.Forget();
    list.setWindowState(Qt::WindowNoState);
    QVERIFY(!list.minimized());
    QVERIFY(list.GetMustRecalcRulers());
    QCOMPARE(list.m_calls.first(), QStringLiteral("OnMinimize 0")); // the window is shown anew after that
}

void tst_markerlist_events::minimizingTheOuterWindow()
{
    QWidget top;
    QWidget middle(&top);
    TestMarkerList list(&middle, nullptr);
    list.Forget();
    top.setWindowState(Qt::WindowMinimized);
    QVERIFY(list.minimized());
    QVERIFY(!list.GetMustRecalcRulers());
    QCOMPARE(list.m_calls, Once("OnMinimize 1"));
    top.setWindowState(Qt::WindowNoState);
    QVERIFY(list.GetMustRecalcRulers());
}

void tst_markerlist_events::strangerChangesState()
{
    TestMarkerList list;
    QObject stranger;
    QWindowStateChangeEvent event(Qt::WindowNoState);
    list.SetMustRecalcRulers(false);
    list.Forget();
    QVERIFY(!list.eventFilter(&stranger, &event));
    QCOMPARE(list.m_calls, Once("OnMinimize 0"));
    QVERIFY(list.GetMustRecalcRulers());
}

void tst_markerlist_events::showOfTheTopWindow()
{
    QWidget top;
    TestMarkerList list(&top, nullptr);
    list.hide();
    TreeNumber const number("number", 4.0);
    list.AddMarker(3)->Set_ValuePath(number.Path());
    list.SetMustRecalcRulers(false);
    list.Forget();
    top.show();
    QVERIFY(!list.isVisible());
    QCOMPARE(list.m_calls, (QStringList{ QStringLiteral("slotClearColors"), QStringLiteral("updateWidget"),
                                         QStringLiteral("OnMinimize 0") }));
    QCOMPARE(list.GetMarkerValue(3), 4.0);
    QVERIFY(list.GetMustRecalcRulers());
}

void tst_markerlist_events::showOfTheListItself()
{
    QWidget top;
    TestMarkerList list(&top, nullptr);
    list.hide();
    top.show();
    TreeNumber const number("number", 4.0);
    list.AddMarker(3)->Set_ValuePath(number.Path());
    list.AddMarker(42);
    list.Forget();
    list.show();
    QCOMPARE(list.m_calls, (QStringList{ QStringLiteral("slotClearColors"), QStringLiteral("updateWidget"),
                                         QStringLiteral("updateWidget") }));
    QCOMPARE(list.GetMarkerValue(3), 4.0);
}

void tst_markerlist_events::showEndsTheList()
{
    QPointer<MarkerList> const list(new EndingList);
    list->AddMarker(3);
    QShowEvent event;
    QVERIFY(list->eventFilter(list, &event)); // nobody is left to take the event
    QVERIFY(!list);
}

void tst_markerlist_events::otherEventsGoToTheControl()
{
    QWidget top;
    TestMarkerList list(&top, nullptr);
    ResortPopupMenu menu(nullptr, "menu");
    menu.addAction(QStringLiteral("item"));
    list.EnableContextMenu(true);
    list.SetContextMenu(&menu, false);
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(3, 4), QPoint(30, 40));
    QVERIFY(!list.eventFilter(&top, &event)); // the top window keeps its events
    QVERIFY(!menu.isVisible());
    QVERIFY(list.eventFilter(&list, &event));
    QVERIFY(menu.isVisible());
    QCOMPARE(list.GetCurrentXYMenu(), QPoint(3, 4));
    menu.hide();
    QEvent plain(QEvent::User);
    QVERIFY(!list.eventFilter(&list, &plain));
    list.SetContextMenu(nullptr, false);
}

void tst_markerlist_events::topWindowEndsFirst()
{
    auto top = std::make_unique<QWidget>();
    TestMarkerList list(top.get(), nullptr);
    list.setParent(nullptr);
    top.reset();
    QVERIFY(!list.minimized());
    list.SetMustRecalcRulers(false);
    list.Forget();
    QWindowStateChangeEvent event(Qt::WindowNoState);
    QVERIFY(!list.eventFilter(&list, &event));
    QVERIFY(list.m_calls.isEmpty());
    QVERIFY(!list.GetMustRecalcRulers());
}

void tst_markerlist_events::withoutWatchedObject()
{
    TestMarkerList list;
    QEvent event(QEvent::Show);
    list.Forget();
    QVERIFY(!list.eventFilter(nullptr, &event));
    QVERIFY(!list.eventFilter(&list, nullptr));
    QVERIFY(list.m_calls.isEmpty());
}

void tst_markerlist_events::enabledSlot()
{
    TestMarkerList list;
    for (bool const enabled : { false, true }) {
        list.SetMustRecalcRulers(false);
        list.Forget();
        QVERIFY(QMetaObject::invokeMethod(&list, "setEnabled", Q_ARG(bool, enabled)));
        QVERIFY(list.isEnabled());
        QVERIFY(list.GetMustRecalcRulers());
        QCOMPARE(list.m_calls, Once("RepairDrawing"));
    }
}

void tst_markerlist_events::enablingTheWidgetAsksForRulers()
{
    TestMarkerList list;
    list.SetMustRecalcRulers(false);
    QVERIFY(!list.GetMustRecalcRulers());
    list.QWidget::setEnabled(false);
    QVERIFY(list.GetMustRecalcRulers());
    QVERIFY(list.GetMustRecalcRulers()); // until it is cleared
    list.SetMustRecalcRulers(false);
    QVERIFY(!list.GetMustRecalcRulers());
    list.QWidget::setEnabled(true);
    QVERIFY(list.GetMustRecalcRulers());
}

void tst_markerlist_events::newColorsClearTheColors()
{
    TestMarkerList list;
    list.Forget();
    GuiBase::Instance().emit_signalColorsChanged();
    QCOMPARE(list.m_calls, Once("slotClearColors"));
}

void tst_markerlist_events::backgroundColor()
{
    TestMarkerList list;
    QColor color(1, 2, 3);
    list.Forget();
    list.slotSetBackgroundColor(color);
    QCOMPARE(list.GetBackgroundColor(), color);
    QVERIFY(list.m_calls.isEmpty());
}

void tst_markerlist_events::resizeNow()
{
    TestMarkerList list;
    list.doResizeNow(7, 9);
    QCOMPARE(list.m_calls, Once("doResize 7 9"));
}

void tst_markerlist_events::doubleClick()
{
    TestMarkerList list;
    QSignalSpy clicks(&list, &MarkerList::AxisDoubleClick);
    QMouseEvent event(QEvent::MouseButtonDblClick, QPointF(1, 1), QPointF(1, 1), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(&list, &event);
    QCOMPARE(clicks.count(), 1);
    QCOMPARE(clicks[0][0].value<QWidget *>(), static_cast<QWidget *>(&list));
}

void tst_markerlist_events::plainSettings()
{
    TestMarkerList list;
    list.SetWrapValue(360.0);
    QCOMPARE(list.GetWrapValue(), 360.0);
    list.SetDrawLastValue(true);
    QVERIFY(list.GetDrawLastValue());
    QSignalSpy states(&list, &MarkerList::signalSetState);
    list.sendSignalSetState(QStringLiteral("/a"), eMarkerRepaint, true);
    QCOMPARE(StateText(states[0]), QStringLiteral("/a 3 1"));
    QVERIFY(list.m_calls.isEmpty());
}

ORIM_TEST_MAIN(tst_markerlist_events)
#include "tst_markerlist_events.moc"
