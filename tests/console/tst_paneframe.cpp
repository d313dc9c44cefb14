// SPDX-License-Identifier: MIT
#include "paneframe.h"

#include "consolevalues.h"
#include "frequencyaxis.h"
#include "guibase.h"
#include "panestack.h"
#include "panetools.h"
#include "spectrumpane.h"
#include "testmain.h"
#include "valueselection.h"
#include "vccaption.h"

#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWheelEvent>

using namespace PaneTools;

class tst_PaneFrame : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void captionTellsTheBand_data();
    void captionTellsTheBand();
    void bandFollowsTheWidth();
    void narrowCaptionKeepsTheName_data();
    void narrowCaptionKeepsTheName();
    void paneWithoutARangeHasNoBand();
    void buttonsOfAForm_data();
    void buttonsOfAForm();
    void stopButtonHoldsThePicture();
    void heldFrameTellsSo();
    void fullButtonAsks();
    void toolTipOfTheFullButton();
    void datastreamButtonAsks();
    void playingFollowsWithoutAsking();
    void keys_data();
    void keys();
    void keysOfTheCaptionAreHeard();
    void timesStandInTheMiddle();
    void timesFollowTheZone();
    void heldPaneKeepsItsTimes();
    void noTimesNoText_data();
    void noTimesNoText();
    void wheelZoomsAboutTheMiddle();
    void geometry_data();
    void geometry();

    void fullPaneHasAllTheRoom();
    void heightsComeBack();
    void stateOfAFullStackIsThatBefore();
    void flagShowsAPane();
    void flagEndsTheFullSize();
    void hiddenPaneTakesNoRoom();
    void frameOfAWidget();
    void frameAtHand();
    void focusGoesToTheFullPane();
    void everyCaptionShowsThePlaying();
};

namespace {

PaneLines OneLine() { return { PeakLine(64, 8, -100.0, -20.0) }; }

//! A pane of the console that counts what it takes.
struct Counted
{
    explicit Counted(bool times = false, bool stream = true)
    {
        form.pane = new SpectrumPane;
        form.name = QStringLiteral("Spectrum");
        form.stretch = 1;
        form.take = [this](PaneLines const & lines) { taken += static_cast<int>(lines.size()); };
        form.hold = [this](bool on) { holds.append(on); };
        form.hasTimes = times;
        form.hasDatastream = stream;
    }

    PaneForm form{};
    int taken = 0;
    QList<bool> holds;
};

QPushButton * ButtonOf(PaneFrame & frame, char const * name)
{
    return frame.Caption().findChild<QPushButton *>(QLatin1String(name));
}

//! Two panes that are always shown and one with a flag.
struct Stack
{
    Stack()
    {
        for (char const * const name : { "one", "two", "three" }) {
            auto * const pane = new QWidget;
            pane->setObjectName(QLatin1String(name));
            pane->setFocusPolicy(Qt::StrongFocus);
            pane->setMinimumHeight(20);
            PaneForm form{ pane, QLatin1String(name), 1 };
            form.hasDatastream = true;
            if (frames.size() == 2)
                form.shownPath = QLatin1String(ConsolePaths::PersistenceShown);
            frames.push_back(stack.AddPane(form));
        }
        stack.resize(300, 600);
        stack.show();
        stack.setSizes({ 150, 450, 0 });
    }

    ConsoleValues values;
    PaneStack stack;
    std::vector<PaneFrame *> frames;
};

void Flag(bool on) { ConsoleValues::SetFlag(ConsolePaths::PersistenceShown, on); }

} // namespace

// One frame

void tst_PaneFrame::captionTellsTheBand_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("span");
    QTest::addColumn<QString>("text");
    QTest::newRow("some megahertz") << 868.15e6 << 1.6e6 << "Spectrum  868.950 MHz  span 1.600 MHz";
    QTest::newRow("some kilohertz") << 99.995e6 << 10e3 << "Spectrum  100.00000 MHz  span 10.00 kHz";
    QTest::newRow("around zero") << -1000.0 << 2000.0 << "Spectrum  0 Hz  span 2.000 kHz";
}

void tst_PaneFrame::captionTellsTheBand()
{
    QFETCH(double, start);
    QFETCH(double, span);
    QFETCH(QString, text);
    Counted counted;
    PaneFrame frame(counted.form);
    frame.resize(800, 300);
    frame.show();
    static_cast<SpectrumPane &>(frame.Pane()).SetFrequencyRange({ start, span });
    QCOMPARE(frame.Caption().GetCaptionLeft(), text);
}

void tst_PaneFrame::bandFollowsTheWidth()
{
    Counted counted;
    PaneFrame frame(counted.form);
    frame.resize(3000, 300);
    frame.show();
    static_cast<SpectrumPane &>(frame.Pane()).SetFrequencyRange({ 100e6, 1.2e6 });
    QCOMPARE(frame.Caption().GetCaptionLeft(), QStringLiteral("Spectrum  100.6000 MHz  span 1.2000 MHz"));
    frame.resize(600, 300);
    QTRY_COMPARE(frame.Caption().GetCaptionLeft(), QStringLiteral("Spectrum  100.600 MHz  span 1.200 MHz"));
}

void tst_PaneFrame::narrowCaptionKeepsTheName_data()
{
    QTest::addColumn<bool>("times");
    QTest::addColumn<int>("width");
    QTest::addColumn<QString>("text");
    QTest::newRow("wide") << false << 1500 << "Spectrum  100.5000 MHz  span 1.0000 MHz";
    QTest::newRow("wide with times") << true << 1500 << "Spectrum  100.5000 MHz  span 1.0000 MHz";
    QTest::newRow("narrow") << false << 240 << "Spectrum";
    QTest::newRow("narrow with times") << true << 420 << "Spectrum";
}

void tst_PaneFrame::narrowCaptionKeepsTheName()
{
    QFETCH(bool, times);
    QFETCH(int, width);
    Counted counted(times);
    PaneFrame frame(counted.form);
    frame.resize(width, 300);
    frame.show();
    static_cast<SpectrumPane &>(frame.Pane()).SetFrequencyRange({ 100e6, 1e6 });
    QTEST(frame.Caption().GetCaptionLeft(), "text");
}

void tst_PaneFrame::paneWithoutARangeHasNoBand()
{
    PaneForm form{ new QWidget, QStringLiteral("Plain"), 1 };
    PaneFrame frame(form);
    frame.resize(400, 200);
    frame.show();
    QCOMPARE(frame.Caption().GetCaptionLeft(), QStringLiteral("Plain"));
    frame.WheelUp(); // nothing to zoom
    frame.TakeLines(OneLine());
    frame.SetHeld(true);
    QVERIFY(frame.IsHeld());
}

void tst_PaneFrame::buttonsOfAForm_data()
{
    QTest::addColumn<bool>("times");
    QTest::addColumn<bool>("stream");
    QTest::newRow("plain") << false << false;
    QTest::newRow("with the data stream") << false << true;
    QTest::newRow("with times") << true << false;
    QTest::newRow("with both") << true << true;
}

void tst_PaneFrame::buttonsOfAForm()
{
    QFETCH(bool, times);
    QFETCH(bool, stream);
    Counted counted(times, stream);
    PaneFrame frame(counted.form);
    frame.show();
    QVERIFY(ButtonOf(frame, "stop") && ButtonOf(frame, "stop")->isVisible());
    QVERIFY(ButtonOf(frame, "Waterfall only") && ButtonOf(frame, "Waterfall only")->isVisible());
    QCOMPARE(ButtonOf(frame, "StartStopDatastream") != nullptr, stream);
    QCOMPARE(frame.Caption().GetStartStopDatastreamButtonState(), stream); // it plays
    QCOMPARE(frame.Caption().GetContextMenuEnabled() && frame.Caption().GetContextMenu() != nullptr, times);
    QCOMPARE(frame.objectName(), QStringLiteral("spectrumPaneFrame"));
    QCOMPARE(frame.Pane().y(), frame.Caption().height());
}

void tst_PaneFrame::stopButtonHoldsThePicture()
{
    Counted counted;
    PaneFrame frame(counted.form);
    frame.show();
    QSignalSpy const held(&frame, &PaneFrame::signalHeld);
    frame.TakeLines(OneLine());
    QCOMPARE(counted.taken, 1);
    frame.TakeLines({});
    QCOMPARE(counted.taken, 1);
    QTest::mouseClick(ButtonOf(frame, "stop"), Qt::LeftButton);
    QVERIFY(frame.IsHeld());
    QCOMPARE(ButtonOf(frame, "stop")->toolTip(), QStringLiteral("Resume"));
    frame.TakeLines(OneLine());
    QCOMPARE(counted.taken, 1);
    QTest::mouseClick(ButtonOf(frame, "stop"), Qt::LeftButton);
    QVERIFY(!frame.IsHeld());
    QCOMPARE(ButtonOf(frame, "stop")->toolTip(), QStringLiteral("Pause"));
    QCOMPARE(counted.taken, 1); // what came meanwhile is not made up for
    frame.TakeLines(OneLine());
    QCOMPARE(counted.taken, 2);
    QCOMPARE(counted.holds, (QList<bool>{ true, false }));
    QCOMPARE(held.count(), 2);
}

void tst_PaneFrame::heldFrameTellsSo()
{
    Counted counted;
    PaneFrame frame(counted.form);
    frame.SetState(QStringLiteral("Running"));
    QCOMPARE(frame.Caption().GetCaptionRight(), QStringLiteral("Running"));
    frame.SetHeld(true);
    QVERIFY(ButtonOf(frame, "stop")->isChecked());
    QCOMPARE(frame.Caption().GetCaptionRight(), QStringLiteral("Held"));
    frame.SetState(QStringLiteral("Paused"));
    QCOMPARE(frame.Caption().GetCaptionRight(), QStringLiteral("Held"));
    frame.SetHeld(true);
    frame.SetHeld(false);
    QVERIFY(!ButtonOf(frame, "stop")->isChecked());
    QCOMPARE(frame.Caption().GetCaptionRight(), QStringLiteral("Paused"));
    QCOMPARE(counted.holds, (QList<bool>{ true, false }));
}

void tst_PaneFrame::fullButtonAsks()
{
    Counted counted;
    PaneFrame frame(counted.form);
    frame.show();
    QSignalSpy const full(&frame, &PaneFrame::signalFull);
    QTest::mouseClick(ButtonOf(frame, "Waterfall only"), Qt::LeftButton);
    QCOMPARE(full.count(), 1);
    QTest::mouseDClick(&frame.Caption(), Qt::LeftButton, {}, QPoint(5, 5));
    QCOMPARE(full.count(), 2);
}

void tst_PaneFrame::toolTipOfTheFullButton()
{
    Counted counted;
    PaneFrame frame(counted.form);
    QCOMPARE(ButtonOf(frame, "Waterfall only")->toolTip(), QStringLiteral("Spectrum only (F11)"));
    frame.SetFull(true);
    QCOMPARE(ButtonOf(frame, "Waterfall only")->toolTip(), QStringLiteral("All panes (F11)"));
    QCOMPARE(ButtonOf(frame, "Waterfall only")->accessibleName(), QStringLiteral("All panes (F11)"));
}

void tst_PaneFrame::datastreamButtonAsks()
{
    Counted counted;
    PaneFrame frame(counted.form);
    frame.show();
    QSignalSpy const play(&frame, &PaneFrame::signalPlay);
    QTest::mouseClick(ButtonOf(frame, "StartStopDatastream"), Qt::LeftButton);
    QCOMPARE(play.count(), 1);
    QCOMPARE(play.at(0).at(0).toBool(), false);
    frame.SetPlaying(false); // as it is answered
    QTest::mouseClick(ButtonOf(frame, "StartStopDatastream"), Qt::LeftButton);
    QCOMPARE(play.count(), 2);
    QCOMPARE(play.at(1).at(0).toBool(), true);
}

void tst_PaneFrame::playingFollowsWithoutAsking()
{
    Counted counted;
    PaneFrame frame(counted.form);
    QSignalSpy const play(&frame, &PaneFrame::signalPlay);
    for (bool const on : { false, false, true, false }) {
        frame.SetPlaying(on);
        QCOMPARE(frame.Caption().GetStartStopDatastreamButtonState(), on);
    }
    QCOMPARE(play.count(), 0);
}

void tst_PaneFrame::keys_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<bool>("repeat");
    QTest::addColumn<int>("full");
    QTest::addColumn<int>("held");
    QTest::addColumn<int>("play");
    int const shift = Qt::ShiftModifier;
    QTest::newRow("F11 asks for all the room") << int(Qt::Key_F11) << 0 << false << 1 << 0 << 0;
    QTest::newRow("H holds") << int(Qt::Key_H) << 0 << false << 0 << 1 << 0;
    QTest::newRow("Space pauses") << int(Qt::Key_Space) << 0 << false << 0 << 0 << 1;
    QTest::newRow("Shift+F11 does nothing") << int(Qt::Key_F11) << shift << false << 0 << 0 << 0;
    QTest::newRow("Shift+H does nothing") << int(Qt::Key_H) << shift << false << 0 << 0 << 0;
    QTest::newRow("Shift+Space does nothing") << int(Qt::Key_Space) << shift << false << 0 << 0 << 0;
    QTest::newRow("F11 that repeats does nothing") << int(Qt::Key_F11) << 0 << true << 0 << 0 << 0;
    QTest::newRow("H that repeats does nothing") << int(Qt::Key_H) << 0 << true << 0 << 0 << 0;
    QTest::newRow("Space that repeats does nothing") << int(Qt::Key_Space) << 0 << true << 0 << 0 << 0;
    QTest::newRow("another key does nothing") << int(Qt::Key_G) << 0 << false << 0 << 0 << 0;
}

void tst_PaneFrame::keys()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(bool, repeat);
    QFETCH(int, full);
    QFETCH(int, held);
    QFETCH(int, play);
    Counted counted;
    PaneFrame frame(counted.form);
    frame.show();
    QSignalSpy const fulls(&frame, &PaneFrame::signalFull);
    QSignalSpy const helds(&frame, &PaneFrame::signalHeld);
    QSignalSpy const plays(&frame, &PaneFrame::signalPlay);
    QKeyEvent press(QEvent::KeyPress, key, Qt::KeyboardModifiers(modifiers), QString(), repeat);
    QCoreApplication::sendEvent(&frame.Pane(), &press); // the pane hands on what is not for it
    QCOMPARE(fulls.count(), full);
    QCOMPARE(helds.count(), held);
    QCOMPARE(plays.count(), play);
    if (play > 0)
        QCOMPARE(plays.at(0).at(0).toBool(), false);
}

void tst_PaneFrame::keysOfTheCaptionAreHeard()
{
    Counted counted;
    PaneFrame frame(counted.form);
    frame.show();
    QSignalSpy const fulls(&frame, &PaneFrame::signalFull);
    QSignalSpy const plays(&frame, &PaneFrame::signalPlay);
    QTest::keyClick(&frame.Caption(), Qt::Key_F11);
    QCOMPARE(fulls.count(), 1);
    // a button keeps its own key
    QTest::keyClick(ButtonOf(frame, "stop"), Qt::Key_Space);
    QVERIFY(frame.IsHeld());
    QCOMPARE(plays.count(), 0);
}

void tst_PaneFrame::timesStandInTheMiddle()
{
    Counted counted(true);
    PaneFrame frame(counted.form);
    frame.SetTimes(Noon, Noon + 65e6);
    QCOMPARE(frame.Caption().GetCaptionCenter(), QStringLiteral("2026-10-22 12:00:00 - 12:01:05  [01:05]"));
    frame.SetTimes(Noon + 1e6, Noon + 66e6);
    QCOMPARE(frame.Caption().GetCaptionCenter(), QStringLiteral("2026-10-22 12:00:01 - 12:01:06  [01:05]"));
}

void tst_PaneFrame::heldPaneKeepsItsTimes()
{
    Counted counted(true);
    PaneFrame frame(counted.form);
    frame.TakeTimes(Noon, Noon + 4e6);
    QString const held = QStringLiteral("2026-10-22 12:00:00 - 12:00:04  [00:04]");
    QCOMPARE(frame.Caption().GetCaptionCenter(), held);
    frame.SetHeld(true);
    frame.TakeTimes(Noon + 9e6, Noon + 13e6);
    QCOMPARE(frame.Caption().GetCaptionCenter(), held);
    frame.TakeTimes(0.0, 0.0);
    QCOMPARE(frame.Caption().GetCaptionCenter(), held);
    frame.SetHeld(false);
    frame.TakeTimes(0.0, 0.0);
    QCOMPARE(frame.Caption().GetCaptionCenter(), QString());
}

void tst_PaneFrame::timesFollowTheZone()
{
    Counted counted(true);
    PaneFrame frame(counted.form);
    frame.SetTimes(Noon, Noon + 65e6);
    ValueSelection * const zone = GuiBase::Instance().GetTimeZone();
    zone->Select(7200L, nullptr);
    QCOMPARE(frame.Caption().GetCaptionCenter(), QStringLiteral("2026-10-22 14:00:00 - 14:01:05  [01:05]"));
    zone->Select(0L, nullptr);
    QCOMPARE(frame.Caption().GetCaptionCenter(), QStringLiteral("2026-10-22 12:00:00 - 12:01:05  [01:05]"));
}

void tst_PaneFrame::noTimesNoText_data()
{
    QTest::addColumn<double>("oldest");
    QTest::addColumn<double>("newest");
    QTest::newRow("no rows") << 0.0 << 0.0;
    QTest::newRow("rows without a time") << 0.0 << Noon;
    QTest::newRow("NaN") << qQNaN() << qQNaN();
    QTest::newRow("before 1970") << -5e6 << -1e6;
}

void tst_PaneFrame::noTimesNoText()
{
    QFETCH(double, oldest);
    QFETCH(double, newest);
    Counted counted(true);
    PaneFrame frame(counted.form);
    frame.SetTimes(Noon, Noon + 65e6);
    frame.SetTimes(oldest, newest);
    QCOMPARE(frame.Caption().GetCaptionCenter(), QString());
}

void tst_PaneFrame::wheelZoomsAboutTheMiddle()
{
    Counted counted;
    PaneFrame frame(counted.form);
    frame.resize(800, 300);
    frame.show();
    auto & pane = static_cast<SpectrumPane &>(frame.Pane());
    pane.SetFrequencyRange({ 100e6, 1e6 });
    auto const turn = [&frame](int delta) {
        QPoint const at(5, 5);
        QWheelEvent event(at, frame.Caption().mapToGlobal(at), QPoint(), QPoint(0, delta), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&frame.Caption(), &event);
    };
    auto const middle = [&pane] { return pane.GetFrequencyRange().start + pane.GetFrequencyRange().span / 2.0; };
    turn(120);
    double const nearer = pane.GetFrequencyRange().span;
    QVERIFY(nearer < 0.9e6);
    QVERIFY(qAbs(middle() - 100.5e6) < 1.0); // Hz
    turn(-120);
    QVERIFY(pane.GetFrequencyRange().span > nearer);
    QVERIFY(qAbs(middle() - 100.5e6) < 1.0); // Hz
    GuiBase::Instance().UndoStack()->clear();
}

void tst_PaneFrame::geometry_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("nothing") << QSize(0, 0);
    QTest::newRow("one pixel") << QSize(1, 1);
    QTest::newRow("one pixel wide") << QSize(1, 400);
    QTest::newRow("one pixel high") << QSize(400, 1);
    QTest::newRow("as high as the caption") << QSize(400, 18);
    QTest::newRow("wide and low") << QSize(5000, 60);
}

void tst_PaneFrame::geometry()
{
    QFETCH(QSize, size);
    Counted counted(true);
    PaneFrame frame(counted.form);
    frame.resize(600, 300);
    frame.show();
    frame.SetTimes(Noon, Noon + 65e6);
    frame.layout()->setSizeConstraint(QLayout::SetNoConstraint);
    frame.setMinimumSize(0, 0);
    frame.resize(size);
    frame.grab();
    QCOMPARE(frame.size(), size);
    frame.resize(600, 300);
    QTRY_COMPARE(frame.Pane().width(), 600);
    QImage const picture = Rendered(frame.Caption());
    bool isWritten = false;
    for (int x = 1; x < picture.width() / 2; ++x)
        isWritten = isWritten || picture.pixel(x, picture.height() / 2) != picture.pixel(1, 1);
    QVERIFY(isWritten);
    QVERIFY(static_cast<SpectrumPane &>(frame.Pane()).GetPictureRect().width() > 300);
}

// The stack of frames

void tst_PaneFrame::fullPaneHasAllTheRoom()
{
    Stack panes;
    QTest::mouseClick(ButtonOf(*panes.frames[0], "Waterfall only"), Qt::LeftButton);
    QCOMPARE(panes.stack.GetFull(), panes.frames[0]);
    QVERIFY(panes.frames[0]->isVisible() && !panes.frames[1]->isVisible());
    QTRY_COMPARE(panes.frames[0]->height(), panes.stack.height());
    QCOMPARE(ButtonOf(*panes.frames[0], "Waterfall only")->toolTip(), QStringLiteral("All panes (F11)"));
    QTest::mouseClick(ButtonOf(*panes.frames[0], "Waterfall only"), Qt::LeftButton);
    QVERIFY(!panes.stack.GetFull());
    QVERIFY(panes.frames[1]->isVisible());
    QCOMPARE(ButtonOf(*panes.frames[0], "Waterfall only")->toolTip(), QStringLiteral("one only (F11)"));
}

void tst_PaneFrame::heightsComeBack()
{
    Stack panes;
    Flag(true);
    panes.stack.setSizes({ 100, 300, 190 });
    QList<int> const before = panes.stack.sizes();
    for (PaneFrame * const frame : panes.frames) {
        panes.stack.SetFull(frame);
        panes.stack.SetFull(nullptr);
        QCOMPARE(panes.stack.sizes(), before);
    }
    // from one to the other without a step between
    panes.stack.SetFull(panes.frames[0]);
    panes.stack.SetFull(panes.frames[1]);
    QVERIFY(!panes.frames[0]->isVisible() && panes.frames[1]->isVisible());
    panes.stack.SetFull(nullptr);
    QCOMPARE(panes.stack.sizes(), before);
}

void tst_PaneFrame::stateOfAFullStackIsThatBefore()
{
    Stack panes;
    QByteArray const before = panes.stack.State();
    QCOMPARE(before, panes.stack.saveState());
    panes.stack.SetFull(panes.frames[0]);
    panes.stack.resize(300, 300);
    QCOMPARE(panes.stack.State(), before);
}

void tst_PaneFrame::flagShowsAPane()
{
    Stack panes;
    QVERIFY(!panes.frames[2]->isVisible());
    Flag(true);
    QVERIFY(panes.frames[2]->isVisible());
    QTRY_VERIFY(panes.frames[2]->height() >= 20);
    Flag(false);
    QVERIFY(!panes.frames[2]->isVisible());
}

void tst_PaneFrame::flagEndsTheFullSize()
{
    Stack panes;
    panes.stack.SetFull(panes.frames[0]);
    Flag(true);
    QVERIFY(!panes.stack.GetFull());
    for (PaneFrame const * const frame : panes.frames)
        QVERIFY(frame->isVisible());
    panes.stack.SetFull(panes.frames[2]);
    Flag(false);
    QVERIFY(!panes.stack.GetFull());
    QVERIFY(panes.frames[0]->isVisible() && panes.frames[1]->isVisible() && !panes.frames[2]->isVisible());
}

void tst_PaneFrame::hiddenPaneTakesNoRoom()
{
    Stack panes;
    panes.stack.SetFull(panes.frames[2]);
    QVERIFY(!panes.stack.GetFull());
    Counted counted;
    PaneFrame stranger(counted.form);
    panes.stack.SetFull(&stranger);
    QVERIFY(!panes.stack.GetFull());
    QVERIFY(panes.frames[0]->isVisible() && panes.frames[1]->isVisible());
}

void tst_PaneFrame::frameOfAWidget()
{
    Stack panes;
    QWidget stranger;
    QCOMPARE(panes.stack.FrameOf(&panes.frames[1]->Pane()), panes.frames[1]);
    QCOMPARE(panes.stack.FrameOf(ButtonOf(*panes.frames[0], "stop")), panes.frames[0]);
    QCOMPARE(panes.stack.FrameOf(panes.frames[2]), panes.frames[2]);
    QVERIFY(!panes.stack.FrameOf(&stranger));
    QVERIFY(!panes.stack.FrameOf(nullptr));
    QVERIFY(panes.stack.RangePanes().empty());
}

void tst_PaneFrame::frameAtHand()
{
    Stack panes;
    for (PaneFrame * const frame : panes.frames)
        frame->setAttribute(Qt::WA_UnderMouse, false);
    QCOMPARE(panes.stack.AtHand(), panes.frames[0]); // the topmost
    panes.frames[1]->SetHeld(true);
    QCOMPARE(panes.stack.AtHand(), panes.frames[1]); // the one used
    panes.frames[0]->setAttribute(Qt::WA_UnderMouse);
    QCOMPARE(panes.stack.AtHand(), panes.frames[0]);
    panes.stack.SetFull(panes.frames[1]);
    QCOMPARE(panes.stack.AtHand(), panes.frames[1]);
    panes.stack.SetFull(nullptr);
    panes.frames[0]->setAttribute(Qt::WA_UnderMouse, false);
    panes.stack.activateWindow();
    panes.frames[0]->Pane().setFocus();
    QTRY_COMPARE(panes.stack.AtHand(), panes.frames[0]); // which had the focus last
    Flag(true);
    panes.frames[2]->SetHeld(true);
    auto const leave = [&panes] { // whatever came to lie under the mouse
        for (PaneFrame * const frame : panes.frames)
            frame->setAttribute(Qt::WA_UnderMouse, false);
    };
    leave();
    QCOMPARE(panes.stack.AtHand(), panes.frames[2]);
    Flag(false);
    leave();
    QCOMPARE(panes.stack.AtHand(), panes.frames[0]); // a hidden one is none
}

void tst_PaneFrame::focusGoesToTheFullPane()
{
    Stack panes;
    panes.stack.activateWindow();
    panes.frames[0]->Pane().setFocus();
    panes.stack.SetFull(panes.frames[1]);
    QCOMPARE(panes.stack.focusWidget(), &panes.frames[1]->Pane());
    QTest::keyClick(&panes.frames[1]->Pane(), Qt::Key_F11);
    QVERIFY(!panes.stack.GetFull());
    // what has the focus in the pane keeps it
    panes.frames[1]->Caption().setFocus();
    panes.stack.SetFull(panes.frames[1]);
    QCOMPARE(panes.stack.focusWidget(), static_cast<QWidget *>(&panes.frames[1]->Caption()));
}

void tst_PaneFrame::everyCaptionShowsThePlaying()
{
    Stack panes;
    QSignalSpy const play(&panes.stack, &PaneStack::signalPlay);
    panes.stack.SetPlaying(false);
    for (PaneFrame const * const frame : panes.frames)
        QVERIFY(!frame->Caption().GetStartStopDatastreamButtonState());
    QCOMPARE(play.count(), 0);
    QTest::mouseClick(ButtonOf(*panes.frames[1], "StartStopDatastream"), Qt::LeftButton);
    QCOMPARE(play.count(), 1);
    QCOMPARE(play.at(0).at(0).toBool(), true);
}

ORIM_TEST_MAIN(tst_PaneFrame)
#include "tst_paneframe.moc"
