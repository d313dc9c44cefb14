// SPDX-License-Identifier: MIT
#include "markerhand.h"
#include "markertools.h"
#include "testmain.h"

#include <memory>

using namespace MarkerTools;

class tst_MarkerHand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void findsTheMarkerUnderThePointer_data();
    void findsTheMarkerUnderThePointer();
    void passesOverMarkersThatCannotBeTaken_data();
    void passesOverMarkersThatCannotBeTaken();
    void dragMovesAndCommitsOnce();
    void dragKeepsTheGrip();
    void dragStaysInTheRange_data();
    void dragStaysInTheRange();
    void clickMakesCurrentAndMovesNothing();
    void escapeTakesTheDragBack();
    void otherButtonsTakeNothing();
    void pointerShowsWhatCanBeDragged_data();
    void pointerShowsWhatCanBeDragged();
    void keysStep_data();
    void keysStep();
    void heldKeyIsOneStepOfUndo();
    void keyReleaseOfARepetitionHoldsOn();
    void keyReleaseOfAnotherKeyHoldsOn();
    void keysTakeTheFirstThatLiesSo();
    void mGoesRound();
    void focusLostLetsGo();
    void markerThatDiesInTheHand();
    void markerThatGoesIsLetGo_data();
    void markerThatGoesIsLetGo();
    void anyListKnowsThatOneIsHeld();
};

namespace {

constexpr QPoint Elsewhere(150, 80);

//! A pane whose events go through the hand.
class Pane : public PlainList
{
public:
    MarkerHand hand{ *this };
    bool taken = false; // the last event was for a marker

protected:
    void mousePressEvent(QMouseEvent * event) override { taken = hand.Press(event); }

    void mouseMoveEvent(QMouseEvent * event) override { taken = hand.Move(event); }

    void mouseReleaseEvent(QMouseEvent * event) override { taken = hand.Release(event); }

    void keyPressEvent(QKeyEvent * event) override { taken = hand.KeyPress(event); }

    void keyReleaseEvent(QKeyEvent * event) override { taken = hand.KeyRelease(event); }
};

constexpr EMarkerID A = eYellowX; // at 50
constexpr EMarkerID B = eWhiteX;  // at 58
constexpr EMarkerID Y = eYellowY; // at 30

std::unique_ptr<Pane> g_pane;

void SendKey(QEvent::Type type, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, bool repeat = false)
{
    QKeyEvent event(type, key, modifiers, QString(), repeat);
    QCoreApplication::sendEvent(g_pane.get(), &event);
}

void Click(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    SendKey(QEvent::KeyPress, key, modifiers);
    SendKey(QEvent::KeyRelease, key, modifiers);
}

} // namespace

void tst_MarkerHand::init()
{
    g_pane = std::make_unique<Pane>();
    g_pane->Add(A, eSpecialX, QStringLiteral("a"), 50.0);
    g_pane->Add(B, eSpecialX, QStringLiteral("b"), 58.0);
    g_pane->Add(Y, eSpecialY, QStringLiteral("y"), 30.0);
    g_pane->show();
    GuiBase::Instance().UndoStack()->clear();
}

void tst_MarkerHand::cleanup()
{
    g_pane.reset();
    for (char const * const path : { "/test/a", "/test/b", "/test/y" })
        Tree::Instance()->Remove(QLatin1String(path));
}

void tst_MarkerHand::findsTheMarkerUnderThePointer_data()
{
    QTest::addColumn<QPoint>("at");
    QTest::addColumn<int>("index");
    QTest::newRow("on the line") << QPoint(50, 70) << int(A);
    QTest::newRow("5 px beside it") << QPoint(45, 70) << int(A);
    QTest::newRow("6 px beside it") << QPoint(44, 70) << -1;
    QTest::newRow("between two, the nearer") << QPoint(55, 70) << int(B);
    QTest::newRow("between two, nearer to the other") << QPoint(53, 70) << int(A);
    QTest::newRow("on a level line") << QPoint(150, 30) << int(Y);
    QTest::newRow("5 px below it") << QPoint(150, 35) << int(Y);
    QTest::newRow("6 px below it") << QPoint(150, 36) << -1;
    QTest::newRow("on a flag") << QPoint(105, 15) << int(B);
    QTest::newRow("beside the flag") << QPoint(121, 15) << -1;
    QTest::newRow("a line before a flag that covers it") << QPoint(51, 5) << int(A);
    QTest::newRow("nowhere") << Elsewhere << -1;
}

void tst_MarkerHand::findsTheMarkerUnderThePointer()
{
    QFETCH(QPoint, at);
    g_pane->GetMarker(B)->SetRect(at.y() == 5 ? QRect(40, 0, 20, 10) : QRect(100, 10, 20, 10));
    QTEST(g_pane->hand.Under(at), "index");
}

void tst_MarkerHand::passesOverMarkersThatCannotBeTaken_data()
{
    QTest::addColumn<int>("what");
    QTest::newRow("hidden") << 0;
    QTest::newRow("not moveable") << 1;
    QTest::newRow("disabled") << 2;
    QTest::newRow("without a line") << 3;
}

void tst_MarkerHand::passesOverMarkersThatCannotBeTaken()
{
    QFETCH(int, what);
    Marker * const marker = g_pane->GetMarker(A);
    if (what == 0)
        g_pane->SetShowMarker(A, false);
    else if (what == 1)
        marker->SetMoveable(false);
    else if (what == 2)
        marker->setEnabled(false);
    else
        marker->SetRulerRect(QRect());
    QCOMPARE(g_pane->hand.Under({ 48, 70 }), -1);
    Drag(*g_pane, { 48, 70 }, { 80, 70 });
    QCOMPARE(ValueOf(QStringLiteral("a"))->GetValue(), 50.0);
}

void tst_MarkerHand::dragMovesAndCommitsOnce()
{
    ValueNumeric<double> * const value = ValueOf(QStringLiteral("a"));
    Press(*g_pane, { 50, 70 });
    QVERIFY(g_pane->taken);
    QCOMPARE(g_pane->hand.Held(), int(A));
    QCOMPARE(g_pane->GetCurrentMarker(), int(A));
    Move(*g_pane, { 60, 70 });
    Move(*g_pane, { 75, 72 });
    QCOMPARE(value->GetInterimValue(), 75.0); // under way
    QCOMPARE(value->GetValue(), 50.0);
    QCOMPARE(g_pane->GetMarkerValue(A), 75.0);
    QVERIFY(g_pane->GetMarker(A)->IsMoving());
    QCOMPARE(UndoCount(), 0);
    Release(*g_pane, { 75, 72 });
    QVERIFY(g_pane->taken);
    QCOMPARE(g_pane->hand.Held(), -1);
    QCOMPARE(value->GetValue(), 75.0);
    QCOMPARE(UndoCount(), 1);
    GuiBase::Instance().UndoStack()->undo();
    QCOMPARE(value->GetValue(), 50.0);
    QCOMPARE(g_pane->GetMarkerValue(A), 50.0);
}

void tst_MarkerHand::dragKeepsTheGrip()
{
    Drag(*g_pane, { 47, 70 }, { 87, 70 }); // taken 3 px left of the line
    QCOMPARE(ValueOf(QStringLiteral("a"))->GetValue(), 90.0);
    Drag(*g_pane, { 150, 33 }, { 20, 63 });
    QCOMPARE(ValueOf(QStringLiteral("y"))->GetValue(), 60.0);
}

void tst_MarkerHand::dragStaysInTheRange_data()
{
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<QString>("name");
    QTest::addColumn<double>("value");
    QTest::newRow("left") << QPoint(50, 70) << QPoint(-300, 70) << "a" << 0.0;
    QTest::newRow("right") << QPoint(50, 70) << QPoint(900, 70) << "a" << 199.0;
    QTest::newRow("top") << QPoint(150, 30) << QPoint(150, -50) << "y" << 0.0;
    QTest::newRow("bottom") << QPoint(150, 30) << QPoint(150, 500) << "y" << 99.0;
}

void tst_MarkerHand::dragStaysInTheRange()
{
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    QFETCH(QString, name);
    Drag(*g_pane, from, to);
    QTEST(ValueOf(name)->GetValue(), "value");
}

void tst_MarkerHand::clickMakesCurrentAndMovesNothing()
{
    Press(*g_pane, { 52, 70 });
    Release(*g_pane, { 52, 70 });
    QCOMPARE(g_pane->GetCurrentMarker(), int(A));
    QCOMPARE(ValueOf(QStringLiteral("a"))->GetValue(), 50.0);
    QCOMPARE(UndoCount(), 0);
    Press(*g_pane, { 150, 30 });
    Release(*g_pane, { 150, 30 });
    QCOMPARE(g_pane->GetCurrentMarker(), int(Y));
    Press(*g_pane, Elsewhere);
    QVERIFY(!g_pane->taken);
    QCOMPARE(g_pane->GetCurrentMarker(), int(Y));
}

void tst_MarkerHand::escapeTakesTheDragBack()
{
    Press(*g_pane, { 50, 70 });
    Move(*g_pane, { 90, 70 });
    SendKey(QEvent::KeyPress, Qt::Key_Escape);
    QVERIFY(g_pane->taken);
    QCOMPARE(g_pane->GetMarkerValue(A), 50.0);
    Move(*g_pane, { 95, 70 });
    Release(*g_pane, { 95, 70 });
    QCOMPARE(ValueOf(QStringLiteral("a"))->GetInterimValue(), 50.0);
    QCOMPARE(ValueOf(QStringLiteral("a"))->GetValue(), 50.0);
    QCOMPARE(UndoCount(), 0);
    SendKey(QEvent::KeyPress, Qt::Key_Escape);
    QVERIFY(!g_pane->taken); // nothing to take back: Escape is for others
}

void tst_MarkerHand::otherButtonsTakeNothing()
{
    Button(*g_pane, QEvent::MouseButtonPress, { 50, 70 }, Qt::RightButton);
    QVERIFY(!g_pane->taken);
    Press(*g_pane, { 50, 70 });
    Button(*g_pane, QEvent::MouseButtonRelease, { 50, 70 }, Qt::RightButton);
    QCOMPARE(g_pane->hand.Held(), int(A));
    Release(*g_pane, { 50, 70 });
    QCOMPARE(g_pane->hand.Held(), -1);
}

void tst_MarkerHand::pointerShowsWhatCanBeDragged_data()
{
    QTest::addColumn<QPoint>("at");
    QTest::addColumn<int>("shape");
    QTest::newRow("upright line") << QPoint(50, 70) << int(Qt::SizeHorCursor);
    QTest::newRow("level line") << QPoint(150, 30) << int(Qt::SizeVerCursor);
    QTest::newRow("nothing") << Elsewhere << int(Qt::ArrowCursor);
}

void tst_MarkerHand::pointerShowsWhatCanBeDragged()
{
    QFETCH(QPoint, at);
    Move(*g_pane, { 50, 30 }, false); // over both
    QVERIFY(!g_pane->taken);
    Move(*g_pane, at, false);
    QTEST(int(g_pane->cursor().shape()), "shape");
}

void tst_MarkerHand::keysStep_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("shift");
    QTest::addColumn<int>("current");
    QTest::addColumn<QString>("name");
    QTest::addColumn<double>("value");
    QTest::newRow("right") << int(Qt::Key_Right) << false << int(B) << "b" << 59.0;
    QTest::newRow("left") << int(Qt::Key_Left) << false << int(B) << "b" << 57.0;
    QTest::newRow("ten right") << int(Qt::Key_Right) << true << int(B) << "b" << 68.0;
    QTest::newRow("ten left") << int(Qt::Key_Left) << true << int(B) << "b" << 48.0;
    QTest::newRow("up") << int(Qt::Key_Up) << false << int(Y) << "y" << 29.0;
    QTest::newRow("down") << int(Qt::Key_Down) << false << int(Y) << "y" << 31.0;
}

void tst_MarkerHand::keysStep()
{
    QFETCH(int, key);
    QFETCH(bool, shift);
    QFETCH(int, current);
    QFETCH(QString, name);
    g_pane->SetCurrentMarker(current, true);
    SendKey(QEvent::KeyPress, key, shift ? Qt::ShiftModifier : Qt::NoModifier);
    QVERIFY(g_pane->taken);
    QTEST(g_pane->GetMarkerValue(current), "value");
    SendKey(QEvent::KeyRelease, key);
    QTEST(ValueOf(name)->GetValue(), "value");
    QCOMPARE(UndoCount(), 1);
}

void tst_MarkerHand::heldKeyIsOneStepOfUndo()
{
    SendKey(QEvent::KeyPress, Qt::Key_Right);
    for (int repetition = 0; repetition < 5; ++repetition)
        SendKey(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier, true);
    QCOMPARE(ValueOf(QStringLiteral("a"))->GetValue(), 50.0);
    QCOMPARE(g_pane->GetMarkerValue(A), 56.0);
    SendKey(QEvent::KeyRelease, Qt::Key_Right);
    QCOMPARE(ValueOf(QStringLiteral("a"))->GetValue(), 56.0);
    QCOMPARE(UndoCount(), 1);
}

void tst_MarkerHand::keyReleaseOfARepetitionHoldsOn()
{
    SendKey(QEvent::KeyPress, Qt::Key_Right);
    SendKey(QEvent::KeyRelease, Qt::Key_Right, Qt::NoModifier, true);
    QCOMPARE(g_pane->hand.Held(), int(A));
    QCOMPARE(ValueOf(QStringLiteral("a"))->GetValue(), 50.0);
}

void tst_MarkerHand::keyReleaseOfAnotherKeyHoldsOn()
{
    SendKey(QEvent::KeyPress, Qt::Key_Right, Qt::ShiftModifier);
    SendKey(QEvent::KeyRelease, Qt::Key_Shift);
    QVERIFY(!g_pane->taken);
    QCOMPARE(g_pane->hand.Held(), int(A));
    SendKey(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier, true);
    QCOMPARE(UndoCount(), 0);
    SendKey(QEvent::KeyRelease, Qt::Key_Right);
    QVERIFY(g_pane->taken);
    QCOMPARE(ValueOf(QStringLiteral("a"))->GetValue(), 61.0);
    QCOMPARE(UndoCount(), 1);
}

void tst_MarkerHand::keysTakeTheFirstThatLiesSo()
{
    Click(Qt::Key_Up);
    QCOMPARE(g_pane->GetCurrentMarker(), int(Y));
    Click(Qt::Key_Right); // the current one lies level
    QCOMPARE(g_pane->GetCurrentMarker(), int(A));
    QCOMPARE(ValueOf(QStringLiteral("a"))->GetValue(), 51.0);
    g_pane->SetShowMarker(A, false);
    g_pane->SetShowMarker(B, false);
    SendKey(QEvent::KeyPress, Qt::Key_Right);
    QVERIFY(!g_pane->taken);
    SendKey(QEvent::KeyPress, Qt::Key_A);
    QVERIFY(!g_pane->taken);
}

void tst_MarkerHand::mGoesRound()
{
    for (int const index : { int(A), int(Y), int(B), int(A) }) { // by rising index
        Click(Qt::Key_M);
        QCOMPARE(g_pane->GetCurrentMarker(), index);
    }
    Click(Qt::Key_M, Qt::ControlModifier);
    QCOMPARE(g_pane->GetCurrentMarker(), int(A));
}

void tst_MarkerHand::focusLostLetsGo()
{
    SendKey(QEvent::KeyPress, Qt::Key_Right);
    g_pane->hand.LetGo();
    QCOMPARE(ValueOf(QStringLiteral("a"))->GetValue(), 51.0);
    g_pane->hand.LetGo();
    QCOMPARE(UndoCount(), 1);
}

void tst_MarkerHand::markerThatDiesInTheHand()
{
    Press(*g_pane, { 50, 70 });
    g_pane->DeleteMarker(A);
    g_pane->RebuildMarkerList();
    Move(*g_pane, { 90, 70 });
    Release(*g_pane, { 90, 70 });
    QCOMPARE(ValueOf(QStringLiteral("a"))->GetValue(), 50.0);
    QCOMPARE(g_pane->hand.Under({ 50, 70 }), -1);
}

void tst_MarkerHand::markerThatGoesIsLetGo_data()
{
    QTest::addColumn<bool>("hidden");
    QTest::newRow("hidden") << true;
    QTest::newRow("no longer moveable") << false;
}

void tst_MarkerHand::markerThatGoesIsLetGo()
{
    QFETCH(bool, hidden);
    Press(*g_pane, { 50, 70 });
    if (hidden)
        g_pane->SetShowMarker(A, false);
    else
        g_pane->SetMarkerMoveable(A, false);
    Move(*g_pane, { 90, 70 });
    QVERIFY(!g_pane->taken);
    QCOMPARE(g_pane->hand.Held(), -1);
    Release(*g_pane, { 90, 70 });
    QCOMPARE(ValueOf(QStringLiteral("a"))->GetInterimValue(), 50.0);
}

void tst_MarkerHand::anyListKnowsThatOneIsHeld()
{
    QVERIFY(!MarkerHand::IsAnyHeld());
    Press(*g_pane, { 50, 70 });
    Press(*g_pane, { 58, 70 }); // the first is let go
    QVERIFY(MarkerHand::IsAnyHeld());
    Release(*g_pane, { 58, 70 });
    QVERIFY(!MarkerHand::IsAnyHeld());
    SendKey(QEvent::KeyPress, Qt::Key_Right);
    QVERIFY(MarkerHand::IsAnyHeld());
    SendKey(QEvent::KeyRelease, Qt::Key_Right);
    QVERIFY(!MarkerHand::IsAnyHeld());
    Press(*g_pane, { 60, 30 });
    QVERIFY(MarkerHand::IsAnyHeld());
    g_pane.reset(); // with the marker in its hand
    QVERIFY(!MarkerHand::IsAnyHeld());
}

ORIM_TEST_MAIN(tst_MarkerHand)
#include "tst_markerhand.moc"
