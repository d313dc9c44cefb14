// SPDX-License-Identifier: MIT
#include "marker.h"

#include "guibase.h"
#include "testmain.h"
#include "testmarkerlist.h"

#include <QSignalSpy>
#include <QUndoStack>

#include <limits>

namespace {

QString const Nowhere = QStringLiteral("/nowhere");

int Drawn(MarkerScene const & scene) { return scene.list.Count(QStringLiteral("updateWidget")); }

int UndoSteps() { return GuiBase::Instance().UndoStack()->index(); }

} // namespace

class tst_marker_binding : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void badPath_data();
    void badPath();
    void bindsAndReads_data();
    void bindsAndReads();
    void bindsAnInteger();
    void bindsAnewLetsGo();
    void valueGoesAway_data();
    void valueGoesAway();
    void offsetGoesAway();
    void stateEnables_data();
    void stateEnables();
    void stateCallsTheOverride();
    void strangersForgetThePixel_data();
    void strangersForgetThePixel();
    void rangeChangeForgetsThePixel();
    void valueChange_data();
    void valueChange();
    void valueChangeEndsADrag();
    void interimChange_data();
    void interimChange();
    void offsetChange();
    void hiddenListHearsNoNumbers();
    void changeWraps();
    void changeRestartsTheTimer();

    void setValue_data();
    void setValue();
    void setValueWithinLimits();
    void setValueEndsTheInterimValue();
    void setValueHearsItself();
    void setValueWithoutList();
    void setValueIsOneUndoStep();
    void undoBearsTheTextOfTheList();
    void setValueOfAValueThatGoes();
    void movingValue_data();
    void movingValue();
    void movingValueSwitchedOff();
    void endMoving();
    void updateReads_data();
    void updateReads();
    void updateWraps();
    void updateWithoutList();

    void oneValueForBoth();
    void oneValueForBothKeepsTheOther();
    void copyBindsBoth();
    void clearInternalsUnbinds();
    void endUnbinds();
};

void tst_marker_binding::badPath_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("unknown") << Nowhere;
    QTest::newRow("empty") << QString();
    QTest::newRow("another type") << QStringLiteral("/test/flag");
}

void tst_marker_binding::badPath()
{
    QFETCH(QString, path);
    auto * const flag = new Value<bool>(QStringLiteral("flag"));
    QVERIFY(Tree::Instance()->Insert(QStringLiteral("/test"), flag));
    MarkerScene scene(2.0);
    scene.Bind();
    QVERIFY(!scene.marker->Set_ValuePath(path));
    QVERIFY(!scene.marker->GetConnected());
    QVERIFY(!scene.marker->GetIValueNumeric());
    QCOMPARE(scene.marker->GetValuePath(), path);
    QCOMPARE(scene.marker->GetValue(), 2.0);
    QCOMPARE(scene.number->GetObserverCount(), 0);
    QVERIFY(!scene.marker->SetOffset_ValuePath(path));
    QVERIFY(scene.marker->Set_ValuePath(scene.number.Path()));
    QVERIFY(scene.marker->GetConnected());
    Tree::Instance()->Remove(QStringLiteral("/test/flag"));
}

void tst_marker_binding::bindsAndReads_data()
{
    QTest::addColumn<bool>("visible");
    QTest::addColumn<double>("value");
    QTest::newRow("visible") << true << 14.0;
    QTest::newRow("a hidden list reads nothing") << false << 0.0;
}

void tst_marker_binding::bindsAndReads()
{
    QFETCH(bool, visible);
    QFETCH(double, value);
    MarkerScene scene(7.0, visible);
    scene.number->SetState(eStateDisabled, nullptr);
    scene.marker->SetFactor(2.0);
    QVERIFY(scene.marker->Set_ValuePath(scene.number.Path()));
    QVERIFY(scene.marker->GetConnected());
    QCOMPARE(scene.marker->GetIValueNumeric(), static_cast<IValueNumeric *>(scene.number.Get()));
    QCOMPARE(scene.marker->GetValuePath(), scene.number.Path());
    QCOMPARE(scene.marker->GetValue(), value);
    QVERIFY(!scene.marker->isEnabled());
    QVERIFY(scene.marker->SetOffset_ValuePath(scene.number.Path()));
    QCOMPARE(scene.marker->GetOffset(), visible ? 7.0 : 0.0);
}

void tst_marker_binding::bindsAnInteger()
{
    MarkerScene scene;
    auto * const count = new ValueNumeric<int>(QStringLiteral("count"));
    QVERIFY(Tree::Instance()->Insert(QStringLiteral("/test"), count));
    QVERIFY(scene.marker->Set_ValuePath(QStringLiteral("/test/count")));
    scene.marker->SetValue(2.6);
    QCOMPARE(count->GetValue(), 3);
    QCOMPARE(scene.marker->GetValue(), 3.0);
    Tree::Instance()->Remove(QStringLiteral("/test/count"));
}

void tst_marker_binding::bindsAnewLetsGo()
{
    MarkerScene scene;
    TreeNumber other("other", 9.0);
    scene.Bind();
    scene.marker->SetOffset_ValuePath(scene.number.Path());
    QVERIFY(scene.marker->Set_ValuePath(other.Path()));
    QCOMPARE(scene.marker->GetValue(), 9.0);
    QCOMPARE(scene.number->GetObserverCount(), 1); // the offset
    QVERIFY(scene.marker->SetOffset_ValuePath(other.Path()));
    QCOMPARE(scene.number->GetObserverCount(), 0);
    scene.number->SetValue(4.0, nullptr);
    QCOMPARE(scene.marker->GetValue(), 9.0);
}

void tst_marker_binding::valueGoesAway_data()
{
    QTest::addColumn<bool>("visible");
    QTest::newRow("visible") << true;
    QTest::newRow("hidden") << false;
}

void tst_marker_binding::valueGoesAway()
{
    QFETCH(bool, visible);
    MarkerScene scene(6.0, visible);
    scene.Bind();
    scene.marker->Update();
    scene.Rest();
    scene.number.Remove();
    QVERIFY(!scene.marker->GetConnected());
    QCOMPARE(scene.marker->GetValue(), 6.0);
    QCOMPARE(scene.marker->GetValuePath(), QStringLiteral("/test/number"));
    QVERIFY(scene.marker->isEnabled());
    QCOMPARE(Drawn(scene), visible ? 1 : 0);
    TreeNumber const again("number", 8.0);
    again->SetValue(9.0, nullptr);
    QCOMPARE(scene.marker->GetValue(), 6.0);
    scene.marker->SetValue(3.0);
    QCOMPARE(again->GetValue(), 9.0);
    QVERIFY(scene.marker->Set_ValuePath(again.Path()));
    QVERIFY(scene.marker->GetConnected());
}

void tst_marker_binding::offsetGoesAway()
{
    MarkerScene scene;
    TreeNumber offset("offset", 5.0);
    scene.marker->SetOffset_ValuePath(offset.Path());
    QCOMPARE(scene.marker->GetOffset(), 5.0);
    offset.Remove();
    QCOMPARE(scene.marker->GetOffset(), 5.0);
    scene.marker->Update();
    QCOMPARE(scene.marker->GetOffset(), 5.0);
}

void tst_marker_binding::stateEnables_data()
{
    QTest::addColumn<bool>("visible");
    QTest::addColumn<bool>("asOffset");
    QTest::newRow("value, visible") << true << false;
    QTest::newRow("value, hidden") << false << false;
    QTest::newRow("offset, visible") << true << true;
    QTest::newRow("offset, hidden") << false << true;
}

void tst_marker_binding::stateEnables()
{
    QFETCH(bool, visible);
    QFETCH(bool, asOffset);
    MarkerScene scene(1.0, visible);
    if (asOffset)
        scene.marker->SetOffset_ValuePath(scene.number.Path());
    else
        scene.marker->Set_ValuePath(scene.number.Path());
    scene.Rest();
    scene.number->SetState(eStateDisabled, nullptr);
    QVERIFY(!scene.marker->isEnabled());
    QCOMPARE(Drawn(scene), visible ? 1 : 0);
    QCOMPARE(scene.marker->GetPixel(), visible ? -1 : 5);
    QVERIFY(!scene.marker->IsMoving());
    scene.number->SetState(eStateValid, nullptr);
    QVERIFY(scene.marker->isEnabled());
    QCOMPARE(Drawn(scene), visible ? 2 : 0);
    QVERIFY(scene.list.m_moved.empty());
}

void tst_marker_binding::stateCallsTheOverride()
{
    class OddMarker : public Marker
    {
    public:
        QList<bool> m_told;

        void setEnabled(bool enabled) override { m_told << enabled; }
    } marker;

    TreeNumber const number("number");
    marker.Set_ValuePath(number.Path());
    number->SetState(eStateDisabled, nullptr);
    number->SetState(eStateValid, nullptr);
    QCOMPARE(marker.m_told, (QList<bool>{ true, false, true }));
    QVERIFY(marker.isEnabled());
}

void tst_marker_binding::strangersForgetThePixel_data()
{
    QTest::addColumn<int>("code");
    for (int const code : { 2, 3, 4, 7, 23 })
        QTest::addRow("code %d", code) << code;
}

void tst_marker_binding::strangersForgetThePixel()
{
    QFETCH(int, code);
    MarkerScene scene;
    scene.Bind();
    ValueNumeric<double> stranger;
    stranger.SetValue(8.0, nullptr);
    stranger.SetState(eStateDisabled, nullptr);
    scene.marker->Update(&stranger, static_cast<TChangeCode>(code));
    QCOMPARE(scene.marker->GetPixel(), -1);
    QCOMPARE(scene.marker->GetValue(), 0.0);
    QVERIFY(scene.marker->isEnabled());
    QVERIFY(!scene.marker->IsMoving());
    QCOMPARE(Drawn(scene), 0);
    scene.marker->SetPixel(5);
    scene.marker->Update(nullptr, static_cast<TChangeCode>(code));
    QCOMPARE(scene.marker->GetPixel(), -1);
    QCOMPARE(Drawn(scene), 0);
}

void tst_marker_binding::rangeChangeForgetsThePixel()
{
    MarkerScene scene;
    scene.Bind();
    scene.number->SetMinMax(-10.0, 10.0, 0.0, nullptr);
    QCOMPARE(scene.marker->GetPixel(), -1);
    QCOMPARE(Drawn(scene), 0);
    QVERIFY(!scene.marker->IsMoving());
    QVERIFY(scene.list.m_moved.empty());
}

void tst_marker_binding::valueChange_data()
{
    QTest::addColumn<double>("factor");
    QTest::addColumn<double>("value");
    QTest::newRow("factor 1") << 1.0 << 6.0;
    QTest::newRow("factor 2") << 2.0 << 12.0;
    QTest::newRow("factor -0.5") << -0.5 << -3.0;
}

void tst_marker_binding::valueChange()
{
    QFETCH(double, factor);
    QFETCH(double, value);
    MarkerScene scene;
    scene.Bind(factor);
    QSignalSpy const states(&scene.list, &MarkerList::signalSetState);
    scene.number->SetValue(6.0, nullptr);
    QCOMPARE(scene.marker->GetValue(), value);
    QCOMPARE(scene.marker->GetPixel(), -1);
    QVERIFY(scene.marker->IsMoving());
    QVERIFY(scene.marker->GetTimerID() > 0);
    QCOMPARE(states.count(), 0);
    QCOMPARE(scene.list.m_moved, std::vector<int>{ 3 });
    QCOMPARE(scene.list.GetLastMovingIndex(), 3);
    QCOMPARE(Drawn(scene), 1);
    QCOMPARE(scene.number->GetInterimValue(), 6.0);
}

void tst_marker_binding::valueChangeEndsADrag()
{
    MarkerScene scene(6.0);
    scene.Bind(2.0);
    scene.number->SetInterimValue(8.0, nullptr);
    Listener listener;
    scene.number->AddObserver(&listener);
    scene.list.Forget();
    scene.marker->Update(scene.number.Get(), eValueChanged);
    QCOMPARE(scene.marker->GetValue(), 12.0);
    QCOMPARE(scene.number->GetInterimValue(), 6.0);
    QCOMPARE(listener.m_heard, QStringList{ QStringLiteral("23") });
    QCOMPARE(Drawn(scene), 1); // the marker itself was left out
}

void tst_marker_binding::interimChange_data() { valueChange_data(); }

void tst_marker_binding::interimChange()
{
    QFETCH(double, factor);
    QFETCH(double, value);
    MarkerScene scene;
    scene.Bind(factor);
    Listener listener;
    scene.number->AddObserver(&listener);
    QSignalSpy const states(&scene.list, &MarkerList::signalSetState);
    scene.number->SetInterimValue(6.0, nullptr);
    QCOMPARE(states.count(), 0);
    QCOMPARE(scene.marker->GetValue(), value);
    QCOMPARE(scene.marker->GetDrawValue(), value);
    QCOMPARE(scene.number->GetValue(), 0.0);
    QCOMPARE(listener.m_heard, QStringList{ QStringLiteral("23") });
    QVERIFY(scene.marker->IsMoving());
    QVERIFY(scene.marker->Changing());
    QCOMPARE(scene.list.m_moved, std::vector<int>{ 3 });
    QCOMPARE(Drawn(scene), 1);
}

void tst_marker_binding::offsetChange()
{
    MarkerScene scene(4.0);
    scene.Bind();
    TreeNumber const offset("offset", 5.0);
    scene.marker->SetFactor(2.0); // is not for the offset
    scene.marker->SetOffset_ValuePath(offset.Path());
    QCOMPARE(scene.marker->GetOffset(), 5.0);
    scene.Rest();
    QSignalSpy const states(&scene.list, &MarkerList::signalSetState);
    offset->SetValue(6.0, nullptr);
    QCOMPARE(scene.marker->GetOffset(), 6.0);
    QVERIFY(scene.marker->IsMoving());
    QCOMPARE(Drawn(scene), 1);
    scene.Rest();
    offset->SetInterimValue(7.0, nullptr);
    QCOMPARE(scene.marker->GetOffset(), 7.0);
    QVERIFY(scene.marker->IsMoving());
    QCOMPARE(offset->GetValue(), 6.0);
    QCOMPARE(Drawn(scene), 1);
    QCOMPARE(states.count(), 0);
    QVERIFY(scene.list.m_moved.empty());
    QCOMPARE(scene.marker->GetValue(), 4.0);
    QCOMPARE(scene.marker->GetValuePath(), scene.number.Path());
}

void tst_marker_binding::hiddenListHearsNoNumbers()
{
    MarkerScene scene(1.0, false);
    scene.Bind();
    scene.marker->SetOffset_ValuePath(scene.number.Path());
    scene.Rest();
    scene.number->SetInterimValue(3.0, nullptr);
    scene.number->SetValue(4.0, nullptr);
    QCOMPARE(scene.marker->GetValue(), 0.0);
    QCOMPARE(scene.marker->GetOffset(), 0.0);
    QCOMPARE(scene.marker->GetPixel(), 5);
    QVERIFY(!scene.marker->IsMoving());
    QVERIFY(scene.list.m_calls.isEmpty());
    scene.list.show();
    QCOMPARE(scene.marker->GetValue(), 4.0);
    QCOMPARE(scene.marker->GetOffset(), 4.0);
}

void tst_marker_binding::changeWraps()
{
    MarkerScene scene(90.0);
    scene.Bind();
    scene.marker->SetWrapAround(360);
    scene.marker->SetWrapIntoRange(0, 360);
    scene.number->SetValue(-10.0, nullptr);
    QCOMPARE(scene.marker->GetValue(), 350.0);
    QCOMPARE(scene.number->GetValue(), -10.0);
    scene.number->SetInterimValue(370.0, nullptr);
    QCOMPARE(scene.marker->GetValue(), 10.0);
}

void tst_marker_binding::changeRestartsTheTimer()
{
    MarkerScene scene;
    scene.marker->SetSpecial(eSpecialShowMoving);
    scene.Bind();
    scene.marker->SetShowMarker(false, true);
    scene.Rest();
    QVERIFY(!scene.marker->GetShowMarker());
    scene.number->SetValue(1.0, nullptr);
    QVERIFY(scene.marker->GetShowMarker());
    QCOMPARE(scene.list.GetShownMarkers(), std::vector<Marker *>{ scene.marker });
    int const first = scene.marker->GetTimerID();
    QVERIFY(first > 0);
    scene.number->SetValue(2.0, nullptr);
    scene.list.Fire(scene.marker->GetTimerID());
    QVERIFY(!scene.marker->GetShowMarker());
    QVERIFY(scene.list.GetShownMarkers().empty());
}

void tst_marker_binding::setValue_data()
{
    QTest::addColumn<double>("factor");
    QTest::addColumn<double>("argument");
    QTest::addColumn<double>("held");
    QTest::addColumn<double>("value");
    QTest::newRow("factor 1") << 1.0 << 3.0 << 3.0 << 3.0;
    QTest::newRow("factor 2 divides what the value holds") << 2.0 << 3.0 << 6.0 << 3.0;
    QTest::newRow("factor -4") << -4.0 << 3.0 << -12.0 << 3.0;
    QTest::newRow("NaN is refused by the value") << 2.0 << qQNaN() << 1.0 << 0.5;
    QTest::newRow("infinity is the last number")
        << 1.0 << qInf() << std::numeric_limits<double>::max() << std::numeric_limits<double>::max();
}

void tst_marker_binding::setValue()
{
    QFETCH(double, factor);
    QFETCH(double, argument);
    QFETCH(double, held);
    QFETCH(double, value);
    for (bool const visible : { true, false }) {
        MarkerScene scene(1.0, visible);
        scene.Bind(factor);
        QCOMPARE(scene.marker->SetValue(argument), value);
        QCOMPARE(scene.marker->GetValue(), value);
        QCOMPARE(scene.number->GetValue(), held);
        QCOMPARE(scene.number->GetInterimValue(), held);
        QVERIFY(!scene.marker->Changing());
        QCOMPARE(scene.marker->GetPixel(), -1);
        QVERIFY(!scene.list.m_moved.empty());
        QCOMPARE(scene.list.GetLastMovingIndex(), 3);
    }
}

void tst_marker_binding::setValueWithinLimits()
{
    MarkerScene scene(1.0);
    scene.number->SetMinMax(0.0, 10.0, 2.0, nullptr);
    scene.Bind();
    QCOMPARE(scene.marker->SetValue(50.0), 10.0);
    QCOMPARE(scene.marker->SetValue(4.9), 4.0);
    QCOMPARE(scene.number->GetValue(), 4.0);
}

void tst_marker_binding::setValueEndsTheInterimValue()
{
    MarkerScene scene(1.0);
    scene.Bind();
    Meddler meddler([&] { scene.number->SetInterimValue(50.0, nullptr); });
    meddler.m_code = eValueChanged;
    scene.number->AddObserver(&meddler);
    Listener listener;
    scene.number->AddObserver(&listener);
    QCOMPARE(scene.marker->SetValue(7.0), 7.0);
    QCOMPARE(scene.number->GetInterimValue(), 7.0);
    QCOMPARE(listener.m_heard, (QStringList{ QStringLiteral("23"), QStringLiteral("3"), QStringLiteral("23") }));
}

void tst_marker_binding::setValueHearsItself()
{
    MarkerScene scene;
    scene.Bind();
    scene.marker->SetValue(3.0);
    QVERIFY(scene.marker->IsMoving());
    QCOMPARE(Drawn(scene), 1);
    QCOMPARE(scene.list.m_moved, (std::vector<int>{ 3, 3 }));
    scene.Rest();
    scene.marker->SetValue(3.0);
    QVERIFY(!scene.marker->IsMoving());
    QVERIFY(scene.list.m_moved.empty());
}

void tst_marker_binding::setValueWithoutList()
{
    TreeNumber const number("number");
    Marker marker;
    marker.Set_ValuePath(number.Path());
    marker.SetFactor(2.0);
    QCOMPARE(marker.SetValue(3.0), 3.0);
    QCOMPARE(number->GetValue(), 6.0);
    QCOMPARE(marker.SetMovingValue(4.0), 4.0);
    QCOMPARE(number->GetInterimValue(), 8.0);
    marker.EndMoving();
    QCOMPARE(number->GetValue(), 8.0);
    QVERIFY(!marker.Move2NextPixel(true));
}

void tst_marker_binding::setValueIsOneUndoStep()
{
    MarkerScene scene(1.0);
    scene.Bind();
    TreeNumber const follower("follower", 1.0);
    Meddler meddler([&] { follower->SetValue(9.0, nullptr); });
    scene.number->AddObserver(&meddler);
    int const before = UndoSteps();
    scene.marker->SetValue(7.0);
    QCOMPARE(follower->GetValue(), 9.0);
    QCOMPARE(UndoSteps(), before + 1);
    GuiBase::Instance().UndoStack()->undo();
    QCOMPARE(scene.number->GetValue(), 1.0);
    QCOMPARE(follower->GetValue(), 1.0);
    QCOMPARE(scene.marker->GetValue(), 1.0);
}

void tst_marker_binding::undoBearsTheTextOfTheList()
{
    class NamedList : public TestMarkerList
    {
    public:
        explicit NamedList(char const * text) : m_text(QLatin1String(text)) {}

        QString m_text;

        QString GetUndoText() const override { return m_text; }
    };

    TreeNumber const number("number");
    NamedList list("Move a marker");
    NamedList other("Move another");
    Marker & marker = *list.AddMarker(3);
    marker.Set_ValuePath(number.Path());
    QUndoStack & stack = *GuiBase::Instance().UndoStack();
    stack.clear();
    marker.SetValue(1.0);
    QCOMPARE(stack.undoText(), QStringLiteral("Move a marker"));
    stack.clear();
    marker.SetMovingValue(2.0);
    marker.EndMoving();
    QCOMPARE(stack.undoText(), QStringLiteral("Move a marker"));
    stack.clear();
    // all at once bears the text of the list that is asked, not that of the step inside
    marker.SetParent(&other);
    marker.SetMovingValue(3.0);
    list.SetMarkerEndMoving(-1);
    QCOMPARE(stack.undoText(), QStringLiteral("Move a marker"));
}

void tst_marker_binding::setValueOfAValueThatGoes()
{
    MarkerScene scene(1.0);
    scene.Bind(2.0);
    Meddler meddler([&] { scene.number.Remove(); });
    scene.number->AddObserver(&meddler);
    scene.number->MakeFirstObserver(&meddler);
    QCOMPARE(scene.marker->SetValue(3.0), 6.0); // unbound, as after any other goodbye
    QVERIFY(!scene.marker->GetConnected());
}

void tst_marker_binding::movingValue_data() { setValue_data(); }

void tst_marker_binding::movingValue()
{
    QFETCH(double, factor);
    QFETCH(double, argument);
    QFETCH(double, held);
    QFETCH(double, value);
    for (bool const visible : { true, false }) {
        MarkerScene scene(1.0, visible);
        scene.Bind(factor);
        int const before = UndoSteps();
        QCOMPARE(scene.marker->SetMovingValue(argument), value);
        QCOMPARE(scene.marker->GetValue(), value);
        QCOMPARE(scene.number->GetInterimValue(), held);
        QCOMPARE(scene.number->GetValue(), 1.0);
        QCOMPARE(UndoSteps(), before);
        // the marker hears its own interim value, so that a visible list shows the drag
        bool const isHeard = visible && held != 1.0;
        QCOMPARE(Drawn(scene), isHeard ? 1 : 0);
        QCOMPARE(scene.marker->IsMoving(), isHeard);
    }
}

void tst_marker_binding::movingValueSwitchedOff()
{
    MarkerScene scene(1.0);
    scene.Bind(2.0);
    scene.marker->UseMovingValue(false);
    QCOMPARE(scene.marker->SetMovingValue(3.0), 3.0);
    QCOMPARE(scene.number->GetValue(), 6.0);
}

void tst_marker_binding::endMoving()
{
    MarkerScene scene(1.0);
    scene.Bind();
    Listener listener;
    scene.number->AddObserver(&listener);
    int const before = UndoSteps();
    QVERIFY(!scene.marker->Changing());
    scene.marker->EndMoving();
    QVERIFY(listener.m_heard.isEmpty());
    scene.marker->SetMovingValue(5.0);
    QVERIFY(scene.marker->Changing());
    scene.Rest();
    scene.marker->EndMoving();
    QVERIFY(!scene.marker->Changing());
    QCOMPARE(scene.number->GetValue(), 5.0);
    QCOMPARE(listener.m_heard, (QStringList{ QStringLiteral("23"), QStringLiteral("3") }));
    QVERIFY(scene.marker->IsMoving()); // it heard its own commit
    QCOMPARE(UndoSteps(), before + 1);
}

void tst_marker_binding::updateReads_data()
{
    QTest::addColumn<bool>("visible");
    QTest::newRow("visible") << true;
    QTest::newRow("hidden") << false;
}

void tst_marker_binding::updateReads()
{
    QFETCH(bool, visible);
    MarkerScene scene(6.0, visible);
    scene.Bind(2.0);
    TreeNumber const offset("offset", 5.0);
    scene.marker->SetOffset_ValuePath(offset.Path());
    scene.number->SetInterimValue(9.0, scene.marker);
    offset->SetInterimValue(9.0, scene.marker);
    scene.Rest();
    Listener listener;
    scene.number->AddObserver(&listener);
    QSignalSpy const states(&scene.list, &MarkerList::signalSetState);
    scene.marker->Update();
    QCOMPARE(scene.marker->GetValue(), 12.0);
    QCOMPARE(scene.marker->GetOffset(), 5.0);
    QVERIFY(scene.marker->IsMoving());
    QCOMPARE(states.count(), 0);
    QCOMPARE(scene.number->GetInterimValue(), 6.0);
    QCOMPARE(offset->GetInterimValue(), 9.0);
    QCOMPARE(listener.m_heard, QStringList{ QStringLiteral("23") });
    QCOMPARE(scene.list.m_moved, std::vector<int>{ 3 });
    QCOMPARE(scene.list.m_calls, QStringList{ QStringLiteral("updateWidget") });
}

void tst_marker_binding::updateWraps()
{
    MarkerScene scene(-10.0);
    scene.Bind();
    scene.marker->SetWrapAround(360);
    scene.marker->SetWrapIntoRange(0, 360);
    QCOMPARE(scene.marker->GetValue(), 350.0);
    scene.marker->Update();
    QCOMPARE(scene.marker->GetValue(), 350.0);
    scene.list.Forget();
    scene.marker->Update();
    QCOMPARE(Drawn(scene), 1);
}

void tst_marker_binding::updateWithoutList()
{
    TreeNumber const number("number", 4.0);
    Marker marker;
    marker.Set_ValuePath(number.Path());
    QCOMPARE(marker.GetValue(), 0.0);
    marker.Update();
    QCOMPARE(marker.GetValue(), 4.0);
    QVERIFY(marker.IsMoving());
    number->SetValue(5.0, nullptr);
    QCOMPARE(marker.GetValue(), 4.0);
}

void tst_marker_binding::oneValueForBoth()
{
    MarkerScene scene(1.0);
    scene.Bind();
    scene.marker->SetOffset_ValuePath(scene.number.Path());
    QCOMPARE(scene.number->GetObserverCount(), 1);
    scene.number->SetValue(2.0, nullptr);
    QCOMPARE(scene.marker->GetValue(), 2.0);
    QCOMPARE(scene.marker->GetOffset(), 2.0);
    scene.number.Remove();
    QVERIFY(!scene.marker->GetConnected());
    scene.marker->Update();
    QCOMPARE(scene.marker->GetOffset(), 2.0);
}

void tst_marker_binding::oneValueForBothKeepsTheOther()
{
    MarkerScene scene(1.0);
    scene.Bind();
    scene.marker->SetOffset_ValuePath(scene.number.Path());
    scene.marker->SetOffset_ValuePath(Nowhere);
    scene.number->SetValue(2.0, nullptr);
    QCOMPARE(scene.marker->GetValue(), 2.0);
    QCOMPARE(scene.marker->GetOffset(), 1.0);
    scene.marker->SetOffset_ValuePath(scene.number.Path());
    scene.marker->Set_ValuePath(Nowhere);
    scene.number->SetValue(3.0, nullptr);
    QCOMPARE(scene.marker->GetValue(), 2.0);
    QCOMPARE(scene.marker->GetOffset(), 3.0);
    scene.marker->SetOffset_ValuePath(Nowhere);
    QCOMPARE(scene.number->GetObserverCount(), 0);
}

void tst_marker_binding::copyBindsBoth()
{
    TreeNumber const number("number", 1.0);
    TreeNumber const offset("offset", 2.0);
    TreeNumber const other("other", 3.0);
    Marker source;
    source.Set_ValuePath(number.Path());
    source.SetOffset_ValuePath(offset.Path());
    Marker target;
    target.Set_ValuePath(other.Path());
    target.SetOffset_ValuePath(other.Path());
    target = source;
    QCOMPARE(other->GetObserverCount(), 0);
    QCOMPARE(target.GetIValueNumeric(), source.GetIValueNumeric());
    QVERIFY(number->HasObserver(&target));
    QVERIFY(offset->HasObserver(&target));
    QVERIFY(number->HasObserver(&source));
    Marker copy(source);
    QVERIFY(number->HasObserver(&copy));
    QVERIFY(offset->HasObserver(&copy));
    Marker unbound;
    target = unbound;
    QVERIFY(!target.GetConnected());
    QVERIFY(!number->HasObserver(&target));
    QVERIFY(!offset->HasObserver(&target));
}

void tst_marker_binding::clearInternalsUnbinds()
{
    MarkerScene scene(1.0);
    TreeNumber const offset("offset", 2.0);
    scene.Bind();
    scene.marker->SetOffset_ValuePath(offset.Path());
    scene.marker->ClearInternals();
    QVERIFY(!scene.marker->GetConnected());
    QCOMPARE(scene.number->GetObserverCount(), 0);
    QCOMPARE(offset->GetObserverCount(), 0);
    QCOMPARE(scene.marker->GetValuePath(), scene.number.Path());
    QCOMPARE(scene.marker->GetValue(), 1.0);
    QCOMPARE(scene.marker->GetOffset(), 2.0);
    scene.marker->clearColors();
    QVERIFY(scene.marker->Set_ValuePath(scene.number.Path()));
    scene.marker->clearColors(); // colours alone leave the binding
    QVERIFY(scene.marker->GetConnected());
}

void tst_marker_binding::endUnbinds()
{
    TreeNumber const number("number");
    TreeNumber const offset("offset");
    {
        Marker marker;
        marker.Set_ValuePath(number.Path());
        marker.SetOffset_ValuePath(offset.Path());
        QCOMPARE(number->GetObserverCount(), 1);
    }
    QCOMPARE(number->GetObserverCount(), 0);
    QCOMPARE(offset->GetObserverCount(), 0);
}

ORIM_TEST_MAIN(tst_marker_binding)
#include "tst_marker_binding.moc"
