// SPDX-License-Identifier: MIT
#include "windowhand.h"

#include "markertools.h"
#include "testmain.h"
#include "windowframes.h"
#include "windowvalues.h"

#include <QKeyEvent>
#include <QMouseEvent>

#include <functional>
#include <map>
#include <utility>

using namespace MarkerTools;

class tst_WindowHand : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void init();
    void cleanup();
    void bordersHaveMarkersOfTheirOwn();
    void insideIsInTheRoom_data();
    void insideIsInTheRoom();
    void focusedOneIsTakenFirst();
    void dragMovesAWindow_data();
    void dragMovesAWindow();
    void dragOfABorderResizes_data();
    void dragOfABorderResizes();
    void narrowWindowIsMovedByItsMiddle_data();
    void narrowWindowIsMovedByItsMiddle();
    void endsWithItsList_data();
    void endsWithItsList();
    void dragIsOneStepOfUndo();
    void dragWithoutAMoveIsNoStep();
    void clickBesideLeavesTheWindow();
    void otherMarkerComesFirst();
    void otherButtonsDoNothing();
    void hiddenMeanwhileIsLetGo();
    void keysChooseAWindow_data();
    void keysChooseAWindow();
    void arrowsMoveAndResize_data();
    void arrowsMoveAndResize();
    void heldKeyIsOneStepOfUndo();
    void arrowsStopAtTheLimits();
    void deleteHides();
    void escapeTakesADragBack();
    void escapeLeavesTheWindow();
    void markersKeyLeavesTheWindow();
    void keysWithoutAWindowAreLeft_data();
    void keysWithoutAWindowAreLeft();

private:
    bool Press(QPoint at, int marker = -1, Qt::MouseButton button = Qt::LeftButton);
    bool Move(QPoint at);
    bool Release(QPoint at, Qt::MouseButton button = Qt::LeftButton);
    bool Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    bool KeyUp(int key, bool repeats = false);
    void ShowWindow(int window, double start, double span);

    std::unique_ptr<WindowValues> m_values;
    std::unique_ptr<PlainList> m_list;
    std::unique_ptr<WindowFrames> m_frames;
    std::unique_ptr<WindowHand> m_hand;
};

namespace {

FrequencyRange Range(double start, double span) { return { start, span }; }

//! Tells once of the first change of a window.
class FirstChange : public IObserver
{
public:
    FirstChange(int window, std::function<void()> changed) : m_changed(std::move(changed))
    {
        for (int item = 0; item < WindowValues::eItemCount; ++item)
            Tree::Instance()
                ->Find(WindowValues::PathOf(window, static_cast<WindowValues::Item>(item)))
                ->AddObserver(this);
    }

    void Update(Observable *, TChangeCode) override
    {
        if (auto const changed = std::exchange(m_changed, nullptr))
            changed();
    }

private:
    std::function<void()> m_changed;
};

} // namespace

void tst_WindowHand::init()
{
    m_values = std::make_unique<WindowValues>();
    m_values->SetBand({ 0.0, 199.0 });
    m_list = std::make_unique<PlainList>();
    m_frames = std::make_unique<WindowFrames>(*m_list);
    QVERIFY(m_frames->Bind());
    m_hand = std::make_unique<WindowHand>(*m_list);
    m_hand->SetRoom(QRect(0, 10, 200, 80));
    m_list->show();
    ShowWindow(0, 50.0, 20.0);
    GuiBase::Instance().UndoStack()->clear();
}

void tst_WindowHand::cleanup()
{
    m_hand.reset();
    m_frames.reset();
    m_list.reset();
    m_values.reset();
}

bool tst_WindowHand::Press(QPoint at, int marker, Qt::MouseButton button)
{
    QMouseEvent const event(QEvent::MouseButtonPress, at, at, button, button, Qt::NoModifier);
    return m_hand->Press(&event, marker);
}

bool tst_WindowHand::Move(QPoint at)
{
    QMouseEvent const event(QEvent::MouseMove, at, at, Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    return m_hand->Move(&event);
}

bool tst_WindowHand::Release(QPoint at, Qt::MouseButton button)
{
    QMouseEvent const event(QEvent::MouseButtonRelease, at, at, button, Qt::NoButton, Qt::NoModifier);
    return m_hand->Release(&event);
}

bool tst_WindowHand::Key(int key, Qt::KeyboardModifiers modifiers)
{
    QKeyEvent const event(QEvent::KeyPress, key, modifiers);
    return m_hand->KeyPress(&event);
}

bool tst_WindowHand::KeyUp(int key, bool repeats)
{
    QKeyEvent const event(QEvent::KeyRelease, key, Qt::NoModifier, QString(), repeats);
    return m_hand->KeyRelease(&event);
}

void tst_WindowHand::ShowWindow(int window, double start, double span)
{
    WindowValues::SetRange(window, { start, span });
    WindowValues::Show(window, true);
}

void tst_WindowHand::bordersHaveMarkersOfTheirOwn()
{
    std::vector<int> ids;
    for (int window = 0; window < WindowValues::Count; ++window) {
        for (int const id : { WindowHand::StartMarker(window), WindowHand::StopMarker(window) }) {
            QCOMPARE(WindowHand::WindowOf(id), window);
            QVERIFY(m_list->GetMarker(id));
            QVERIFY((m_list->GetMarkerSpecial(id) & eSpecialWindowBorder) != 0);
            QCOMPARE(m_list->GetShowMarker(id), window == 0);
            ids.push_back(id);
        }
    }
    QCOMPARE(ids.front(), 18);
    QCOMPARE(ids.back(), 27);
    for (int const other : { -1, 0, 17, 28, 33, 42 })
        QCOMPARE(WindowHand::WindowOf(other), -1);
}

void tst_WindowHand::insideIsInTheRoom_data()
{
    QTest::addColumn<QPoint>("at");
    QTest::addColumn<int>("window");
    QTest::newRow("inside") << QPoint(60, 50) << 0;
    QTest::newRow("at its start") << QPoint(50, 50) << 0;
    QTest::newRow("at its stop") << QPoint(70, 50) << 0;
    QTest::newRow("before it") << QPoint(49, 50) << -1;
    QTest::newRow("behind it") << QPoint(71, 50) << -1;
    QTest::newRow("above the room") << QPoint(60, 9) << -1;
    QTest::newRow("below the room") << QPoint(60, 90) << -1;
    QTest::newRow("where a hidden one is") << QPoint(0, 50) << -1;
}

void tst_WindowHand::insideIsInTheRoom()
{
    QFETCH(QPoint, at);
    QFETCH(int, window);
    QCOMPARE(m_hand->Under(at), window);
}

void tst_WindowHand::focusedOneIsTakenFirst()
{
    ShowWindow(1, 55.0, 30.0);
    QCOMPARE(m_hand->Under({ 60, 50 }), 0);
    WindowValues::Focus(1);
    QCOMPARE(m_hand->Under({ 60, 50 }), 1);
    QCOMPARE(m_hand->Under({ 52, 50 }), 0);
}

void tst_WindowHand::dragMovesAWindow_data()
{
    QTest::addColumn<int>("by");
    QTest::addColumn<double>("start");
    QTest::newRow("right") << 30 << 80.0;
    QTest::newRow("left") << -30 << 20.0;
    QTest::newRow("to the left end") << -130 << 0.0;
    QTest::newRow("to the right end") << 180 << 179.0;
}

void tst_WindowHand::dragMovesAWindow()
{
    QFETCH(int, by);
    QFETCH(double, start);
    QVERIFY(Press({ 60, 50 }));
    QCOMPARE(WindowValues::Focused(), 0);
    QCOMPARE(m_hand->Held(), 0);
    QVERIFY(Move({ 60 + by / 2, 40 }));
    QVERIFY(Move({ 60 + by, 40 }));
    QVERIFY(WindowValues::RangeOf(0) == Range(start, 20.0)); // while it is held
    QVERIFY(Release({ 60 + by, 40 }));
    QVERIFY(WindowValues::RangeOf(0) == Range(start, 20.0));
    QCOMPARE(m_hand->Held(), -1);
    QVERIFY(!Move({ 10, 50 }));
    QVERIFY(WindowValues::RangeOf(0) == Range(start, 20.0));
}

void tst_WindowHand::dragOfABorderResizes_data()
{
    QTest::addColumn<bool>("stop");
    QTest::addColumn<int>("to");
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("span");
    QTest::newRow("start outward") << false << 30 << 30.0 << 40.0;
    QTest::newRow("start inward") << false << 60 << 60.0 << 10.0;
    QTest::newRow("start beyond the stop") << false << 150 << 68.0 << 2.0;
    QTest::newRow("start to the end") << false << -50 << 0.0 << 70.0;
    QTest::newRow("stop outward") << true << 90 << 50.0 << 40.0;
    QTest::newRow("stop inward") << true << 60 << 50.0 << 10.0;
    QTest::newRow("stop beyond the start") << true << 10 << 50.0 << 2.0;
    QTest::newRow("stop to the end") << true << 400 << 50.0 << 149.0;
}

void tst_WindowHand::dragOfABorderResizes()
{
    QFETCH(bool, stop);
    QFETCH(int, to);
    QFETCH(double, start);
    QFETCH(double, span);
    int const from = (stop ? 70 : 50) + 3; // beside the line
    QVERIFY(Press({ from, 50 }, stop ? WindowHand::StopMarker(0) : WindowHand::StartMarker(0)));
    QVERIFY(Move({ to + 3, 50 }));
    QVERIFY(Release({ to + 3, 50 }));
    QVERIFY2(WindowValues::RangeOf(0) == Range(start, span),
             qPrintable(QString::number(WindowValues::RangeOf(0).span)));
    QCOMPARE(UndoCount(), 1);
}

void tst_WindowHand::narrowWindowIsMovedByItsMiddle_data()
{
    QTest::addColumn<double>("width");
    QTest::addColumn<int>("at");
    QTest::addColumn<bool>("stop"); // border that the mouse is at
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("span");
    QTest::newRow("first third") << 9.0 << 52 << false << 40.0 << 19.0;
    QTest::newRow("end of the first third") << 9.0 << 53 << false << 40.0 << 19.0;
    QTest::newRow("middle, nearer to the start") << 9.0 << 54 << false << 40.0 << 9.0;
    QTest::newRow("middle, nearer to the stop") << 9.0 << 55 << true << 40.0 << 9.0;
    QTest::newRow("last third") << 9.0 << 57 << true << 50.0 << 2.0;
    QTest::newRow("beside it") << 9.0 << 48 << false << 40.0 << 19.0;
    QTest::newRow("two pixels") << 2.0 << 51 << false << 40.0 << 2.0;
    QTest::newRow("just narrow") << 14.0 << 55 << false << 40.0 << 14.0;
    QTest::newRow("wide enough for its borders") << 15.0 << 55 << false << 40.0 << 25.0;
}

void tst_WindowHand::narrowWindowIsMovedByItsMiddle()
{
    QFETCH(double, width);
    QFETCH(int, at);
    QFETCH(bool, stop);
    QFETCH(double, start);
    QFETCH(double, span);
    ShowWindow(0, 50.0, width);
    QVERIFY(Press({ at, 50 }, stop ? WindowHand::StopMarker(0) : WindowHand::StartMarker(0)));
    QVERIFY(Move({ at - 10, 50 }));
    QVERIFY(Release({ at - 10, 50 }));
    QVERIFY2(WindowValues::RangeOf(0) == Range(start, span),
             qPrintable(QString::number(WindowValues::RangeOf(0).start)));
}

void tst_WindowHand::endsWithItsList_data()
{
    QTest::addColumn<QString>("before"); // what the operator does first
    QTest::addColumn<QString>("last");   // and what ends the list
    QTest::newRow("at a press") << QString() << QStringLiteral("press");
    QTest::newRow("at a press elsewhere") << QStringLiteral("press move") << QStringLiteral("beside");
    QTest::newRow("at a press that leaves it") << QStringLiteral("press release") << QStringLiteral("beside");
    QTest::newRow("at a move") << QStringLiteral("press") << QStringLiteral("move");
    QTest::newRow("at a move while hidden") << QStringLiteral("press move hide") << QStringLiteral("move");
    QTest::newRow("at a release") << QStringLiteral("press move") << QStringLiteral("release");
    QTest::newRow("at Escape in a drag") << QStringLiteral("press move") << QStringLiteral("escape");
    QTest::newRow("at an arrow") << QStringLiteral("press release") << QStringLiteral("right");
    QTest::newRow("at the release of an arrow") << QStringLiteral("press release right") << QStringLiteral("up");
    QTest::newRow("at Delete after an arrow") << QStringLiteral("press release right") << QStringLiteral("delete");
    QTest::newRow("at M after an arrow") << QStringLiteral("press release right") << QStringLiteral("m");
    QTest::newRow("at M") << QStringLiteral("press release") << QStringLiteral("m");
    QTest::newRow("at another window after an arrow") << QStringLiteral("press release right") << QStringLiteral("2");
    QTest::newRow("at another window") << QStringLiteral("press release") << QStringLiteral("2");
}

void tst_WindowHand::endsWithItsList()
{
    QFETCH(QString, before);
    QFETCH(QString, last);
    ShowWindow(1, 100.0, 10.0);
    auto const hideAlone = [] {
        QString const path = WindowValues::PathOf(0, WindowValues::eVisible);
        Tree::Instance()->FindAs<Value<bool>>(path)->SetValue(false, nullptr);
        return true;
    };
    std::map<QString, std::function<bool()>> const hand{
        { QStringLiteral("press"),
          [this] {
              return Press({ 60, 50 });
          } },
        { QStringLiteral("beside"),
          [this] {
              return Press({ 150, 50 });
          } },
        { QStringLiteral("move"),
          [this] {
              return Move({ 80, 50 });
          } },
        { QStringLiteral("release"),
          [this] {
              return Release({ 80, 50 });
          } },
        { QStringLiteral("hide"), hideAlone },
        { QStringLiteral("escape"), [this] { return Key(Qt::Key_Escape); } },
        { QStringLiteral("right"), [this] { return Key(Qt::Key_Right); } },
        { QStringLiteral("up"), [this] { return KeyUp(Qt::Key_Right); } },
        { QStringLiteral("delete"), [this] { return Key(Qt::Key_Delete); } },
        { QStringLiteral("m"), [this] { return Key(Qt::Key_M); } },
        { QStringLiteral("2"), [this] { return Key(Qt::Key_2); } },
    };
    for (QString const & step : before.split(QLatin1Char(' '))) {
        if (!step.isEmpty())
            QVERIFY(hand.at(step)());
    }
    FirstChange const end(0, [this] {
        m_hand.reset();
        m_frames.reset();
        m_list.reset();
    });
    QVERIFY(hand.at(last)()); // the event is used up
    QVERIFY(!m_list);
}

void tst_WindowHand::dragIsOneStepOfUndo()
{
    Press({ 60, 50 });
    for (int x = 61; x < 100; ++x)
        Move({ x, 50 });
    QCOMPARE(UndoCount(), 0);
    Release({ 100, 50 });
    QCOMPARE(UndoCount(), 1);
    QCOMPARE(GuiBase::Instance().UndoStack()->undoText(), QStringLiteral("Move window 1"));
    GuiBase::Instance().UndoStack()->undo();
    QVERIFY(WindowValues::RangeOf(0) == Range(50.0, 20.0));
    GuiBase::Instance().UndoStack()->redo();
    QVERIFY(WindowValues::RangeOf(0) == Range(89.0, 20.0));
}

void tst_WindowHand::dragWithoutAMoveIsNoStep()
{
    Press({ 60, 50 });
    Release({ 60, 50 });
    QCOMPARE(UndoCount(), 0);
    Press({ 60, 50 });
    Move({ 80, 50 });
    Move({ 60, 50 });
    Release({ 60, 50 });
    QCOMPARE(UndoCount(), 0);
}

void tst_WindowHand::clickBesideLeavesTheWindow()
{
    WindowValues::Focus(0);
    QVERIFY(!Press({ 150, 50 }));
    QCOMPARE(WindowValues::Focused(), -1);
}

void tst_WindowHand::otherMarkerComesFirst()
{
    WindowValues::Focus(0);
    QVERIFY(!Press({ 60, 50 }, eYellowX));
    QCOMPARE(m_hand->Held(), -1);
    QCOMPARE(WindowValues::Focused(), -1);
}

void tst_WindowHand::otherButtonsDoNothing()
{
    QVERIFY(!Press({ 60, 50 }, -1, Qt::RightButton));
    QCOMPARE(WindowValues::Focused(), -1);
    QVERIFY(!Release({ 60, 50 }));
    QVERIFY(Press({ 60, 50 }));
    QVERIFY(!Release({ 60, 50 }, Qt::RightButton));
    QCOMPARE(m_hand->Held(), 0);
}

void tst_WindowHand::hiddenMeanwhileIsLetGo()
{
    Press({ 60, 50 });
    WindowValues::Show(0, false);
    QVERIFY(!Move({ 80, 50 }));
    QCOMPARE(m_hand->Held(), -1);
    QVERIFY(WindowValues::RangeOf(0) == Range(50.0, 20.0));
}

void tst_WindowHand::keysChooseAWindow_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("shift");
    QTest::addColumn<int>("window");
    QTest::newRow("not with Shift") << int(Qt::Key_1) << true << -1;
    QTest::newRow("1") << int(Qt::Key_1) << false << 0;
    QTest::newRow("2") << int(Qt::Key_2) << false << 1;
    QTest::newRow("5") << int(Qt::Key_5) << false << 4;
    QTest::newRow("a hidden one") << int(Qt::Key_3) << false << -1;
    QTest::newRow("6 is none") << int(Qt::Key_6) << false << -1;
    QTest::newRow("0 is none") << int(Qt::Key_0) << false << -1;
    QTest::newRow("next") << int(Qt::Key_F6) << false << 0;
    QTest::newRow("the one before") << int(Qt::Key_F6) << true << 4;
}

void tst_WindowHand::keysChooseAWindow()
{
    QFETCH(int, key);
    QFETCH(bool, shift);
    QFETCH(int, window);
    ShowWindow(1, 100.0, 10.0);
    ShowWindow(4, 150.0, 10.0);
    QCOMPARE(Key(key, shift ? Qt::ShiftModifier : Qt::NoModifier), window >= 0);
    QCOMPARE(WindowValues::Focused(), window);
}

void tst_WindowHand::arrowsMoveAndResize_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("span");
    int const shift = Qt::ShiftModifier;
    int const alt = Qt::AltModifier;
    QTest::newRow("right") << int(Qt::Key_Right) << 0 << 51.0 << 20.0;
    QTest::newRow("left") << int(Qt::Key_Left) << 0 << 49.0 << 20.0;
    QTest::newRow("fast right") << int(Qt::Key_Right) << alt << 60.0 << 20.0;
    QTest::newRow("fast left") << int(Qt::Key_Left) << alt << 40.0 << 20.0;
    QTest::newRow("wider") << int(Qt::Key_Right) << shift << 50.0 << 21.0;
    QTest::newRow("narrower") << int(Qt::Key_Left) << shift << 50.0 << 19.0;
    QTest::newRow("fast wider") << int(Qt::Key_Right) << (shift | alt) << 50.0 << 30.0;
    QTest::newRow("fast narrower") << int(Qt::Key_Left) << (shift | alt) << 50.0 << 10.0;
}

void tst_WindowHand::arrowsMoveAndResize()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(double, start);
    QFETCH(double, span);
    WindowValues::Focus(0);
    QVERIFY(Key(key, Qt::KeyboardModifiers(QFlag(modifiers))));
    QVERIFY(WindowValues::RangeOf(0) == Range(start, span));
    QVERIFY(KeyUp(key));
    QVERIFY(WindowValues::RangeOf(0) == Range(start, span));
    QCOMPARE(UndoCount(), 1);
}

void tst_WindowHand::heldKeyIsOneStepOfUndo()
{
    WindowValues::Focus(0);
    for (int repeat = 0; repeat < 5; ++repeat) {
        QVERIFY(Key(Qt::Key_Right));
        QVERIFY(!KeyUp(Qt::Key_Right, true));
    }
    QVERIFY(Key(Qt::Key_Right, Qt::ShiftModifier)); // the same hold
    QVERIFY(!KeyUp(Qt::Key_Left));
    QCOMPARE(UndoCount(), 0);
    QVERIFY(KeyUp(Qt::Key_Right));
    QCOMPARE(UndoCount(), 1);
    QVERIFY(WindowValues::RangeOf(0) == Range(55.0, 21.0));
    GuiBase::Instance().UndoStack()->undo();
    QVERIFY(WindowValues::RangeOf(0) == Range(50.0, 20.0));
}

void tst_WindowHand::arrowsStopAtTheLimits()
{
    WindowValues::Focus(0);
    for (int step = 0; step < 30; ++step)
        Key(Qt::Key_Left, Qt::AltModifier);
    QVERIFY(WindowValues::RangeOf(0) == Range(0.0, 20.0));
    for (int step = 0; step < 30; ++step)
        Key(Qt::Key_Left, Qt::AltModifier | Qt::ShiftModifier);
    QVERIFY(WindowValues::RangeOf(0) == Range(0.0, WindowHand::LeastWidth));
    for (int step = 0; step < 30; ++step)
        Key(Qt::Key_Right, Qt::AltModifier);
    QVERIFY(WindowValues::RangeOf(0) == Range(197.0, WindowHand::LeastWidth));
    for (int step = 0; step < 30; ++step)
        Key(Qt::Key_Right, Qt::ShiftModifier);
    QVERIFY(WindowValues::RangeOf(0) == Range(197.0, WindowHand::LeastWidth));
}

void tst_WindowHand::deleteHides()
{
    QVERIFY(!Key(Qt::Key_Delete)); // none has the focus
    QVERIFY(WindowValues::IsVisible(0));
    WindowValues::Focus(0);
    QVERIFY(Key(Qt::Key_Delete));
    QVERIFY(!WindowValues::IsVisible(0));
    QVERIFY(!m_list->GetShowMarker(WindowHand::StartMarker(0)));
    QVERIFY(!m_list->GetShowMarker(WindowHand::StopMarker(0)));
    QCOMPARE(UndoCount(), 1);
    QCOMPARE(GuiBase::Instance().UndoStack()->undoText(), QStringLiteral("Hide window 1"));
    GuiBase::Instance().UndoStack()->undo();
    QVERIFY(WindowValues::IsVisible(0));
    QVERIFY(m_list->GetShowMarker(WindowHand::StartMarker(0)));
}

void tst_WindowHand::escapeTakesADragBack()
{
    Press({ 60, 50 });
    Move({ 90, 50 });
    QVERIFY(Key(Qt::Key_Escape));
    QVERIFY(WindowValues::RangeOf(0) == Range(50.0, 20.0));
    QCOMPARE(m_hand->Held(), -1);
    QCOMPARE(UndoCount(), 0);
    QVERIFY(!Release({ 90, 50 }));
    QCOMPARE(WindowValues::Focused(), 0);
}

void tst_WindowHand::escapeLeavesTheWindow()
{
    QVERIFY(!Key(Qt::Key_Escape));
    WindowValues::Focus(0);
    QVERIFY(Key(Qt::Key_Escape));
    QCOMPARE(WindowValues::Focused(), -1);
    QVERIFY(WindowValues::IsVisible(0));
}

void tst_WindowHand::markersKeyLeavesTheWindow()
{
    WindowValues::Focus(0);
    QVERIFY(!Key(Qt::Key_M)); // it goes on to the markers
    QCOMPARE(WindowValues::Focused(), -1);
}

void tst_WindowHand::keysWithoutAWindowAreLeft_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("left") << int(Qt::Key_Left);
    QTest::newRow("right") << int(Qt::Key_Right);
    QTest::newRow("up") << int(Qt::Key_Up);
    QTest::newRow("delete") << int(Qt::Key_Delete);
    QTest::newRow("a letter") << int(Qt::Key_A);
}

void tst_WindowHand::keysWithoutAWindowAreLeft()
{
    QFETCH(int, key);
    QVERIFY(!Key(key));
    QVERIFY(!KeyUp(key));
    QVERIFY(WindowValues::RangeOf(0) == Range(50.0, 20.0));
    WindowValues::Focus(0);
    QVERIFY(!Key(Qt::Key_Up));                        // levels are not for windows
    QVERIFY(!Key(Qt::Key_Left, Qt::ControlModifier)); // this pans the view
    // while the mouse holds one, keys do nothing
    Press({ 60, 50 });
    QVERIFY(!Key(key));
    QVERIFY(WindowValues::RangeOf(0) == Range(50.0, 20.0));
}

ORIM_TEST_MAIN(tst_WindowHand)
#include "tst_windowhand.moc"
