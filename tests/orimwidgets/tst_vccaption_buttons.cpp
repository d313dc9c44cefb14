// SPDX-License-Identifier: MIT
// The buttons of each style: what they are, what they look like and what they do.

#include "captionpictures.h"
#include "captionprobe.h"
#include "shownicon.h"

#include "colorset.h"
#include "guibase.h"
#include "testmain.h"

#include <QAction>
#include <QSignalSpy>

#include <memory>

namespace {

constexpr unsigned int Bar1 = VCCaption::StyleToolBar;
constexpr unsigned int Stop2 = VCCaption::StyleStopButton;
constexpr unsigned int Top4 = VCCaption::StyleKeepOnTop;
constexpr unsigned int Full8 = VCCaption::StyleFullButton;
constexpr unsigned int Data32 = VCCaption::StyleDatastream;

//! What a caption told.
struct Spies
{
    explicit Spies(VCCaption & bar)
        : button(&bar, &VCCaption::ButtonClick)
        , onTop(&bar, &VCCaption::OnTopButtonClick)
        , full(&bar, &VCCaption::signalFullButtonClick)
        , stop(&bar, &VCCaption::Stop)
        , start(&bar, &VCCaption::Start)
        , state(&bar, &VCCaption::si_stopButtonStateChanged)
        , data(&bar, &VCCaption::DatastreamButtonToggled)
    {}

    //! Number of signals since the last call, in the order of the members.
    QVector<int> Take()
    {
        QVector<int> counts;
        for (QSignalSpy * const spy : { &button, &onTop, &full, &stop, &start, &state, &data }) {
            counts << static_cast<int>(spy->size());
            spy->clear();
        }
        return counts;
    }

    QSignalSpy button;
    QSignalSpy onTop;
    QSignalSpy full;
    QSignalSpy stop;
    QSignalSpy start;
    QSignalSpy state;
    QSignalSpy data;
};

} // namespace

class tst_vccaption_buttons : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void styles_data();
    void styles();
    void order();
    void toolBar();
    void stopAction();
    void stopButton();
    void onTopButton();
    void fullButton();
    void datastreamButton();
    void accessibleNames();
    void focusStays();

    void stopActionFires();
    void stopButtonFires();
    void stopIsTakenBack();
    void onTopButtonFires();
    void fullButtonFires();
    void datastreamFires();
    void datastreamState();
    void refusedAndDeleted();

    void stoppedAndStarted_data();
    void stoppedAndStarted();
    void withoutStopControl();
    void running();
    void paused();
    void stopButtonClick();
    void triggerStopButton();
    void triggerStopAction();
    void enabled();
    void fullButtonVisible();
    void withoutButtons();
    void deletedByOthers();
    void deletedBySlots_data();
    void deletedBySlots();
};

void tst_vccaption_buttons::styles_data()
{
    QTest::addColumn<unsigned int>("flags");
    QTest::addColumn<bool>("hasAction");
    QTest::addColumn<bool>("hasStop");
    QTest::addColumn<QString>("onTop");
    QTest::addColumn<bool>("hasData");
    QString const none;
    QString const keep = QStringLiteral("KeepOnTop");
    QString const full = QStringLiteral("Waterfall only");
    QTest::newRow("0") << 0U << false << false << none << false;
    QTest::newRow("1") << 1U << true << false << none << false;
    QTest::newRow("2") << 2U << false << true << none << false;
    QTest::newRow("4") << 4U << true << false << keep << false;
    QTest::newRow("8") << 8U << false << true << full << false;
    QTest::newRow("16") << 16U << false << false << none << false;
    QTest::newRow("32") << 32U << false << false << none << true;
    QTest::newRow("1 before 2, 4, 8") << 15U << true << false << none << false;
    QTest::newRow("2 before 4, 8") << 14U << false << true << none << false;
    QTest::newRow("4 before 8") << 12U << true << false << keep << false;
    QTest::newRow("8 with data stream") << 40U << false << true << full << true;
    QTest::newRow("1 with data stream") << 33U << true << false << none << true;
    QTest::newRow("no further bits") << 0xFFFFFFC0U << false << false << none << false;
    QTest::newRow("all bits") << 0xFFFFFFFFU << true << false << none << true;
}

void tst_vccaption_buttons::styles()
{
    QFETCH(unsigned int, flags);
    QFETCH(bool, hasAction);
    QFETCH(QString, onTop);
    CaptionProbe const bar(nullptr, nullptr, flags);
    QCOMPARE(bar.m_Flags, flags);
    QCOMPARE(bar.m_pExitAction != nullptr, hasAction);
    QCOMPARE(bar.getToolBar() != nullptr, hasAction);
    QTEST(bar.m_pStopButton != nullptr, "hasStop");
    QCOMPARE(bar.GetOnTopButton() ? bar.GetOnTopButton()->objectName() : QString(), onTop);
    QTEST(bar.GetStartStopDatastreamButton() != nullptr, "hasData");
}

void tst_vccaption_buttons::order()
{
    CaptionProbe const bar(nullptr, nullptr, Full8 | Data32);
    QHBoxLayout const * const layout = bar.getLayout();
    QCOMPARE(layout->count(), 4);
    QWidget * const parts[] = { bar.m_pSpace, bar.GetOnTopButton(), bar.m_pStopButton,
                                bar.GetStartStopDatastreamButton() };
    for (int i = 0; i < 4; ++i) {
        QVERIFY(layout->itemAt(i)->widget() == parts[i]);
        QCOMPARE(layout->stretch(i), i == 0 ? 1 : 0);
    }
    CaptionProbe const tool(nullptr, nullptr, Top4 | Data32, 28);
    QVERIFY(tool.getLayout()->itemAt(1)->widget() == tool.getToolBar());
    QVERIFY(tool.getLayout()->itemAt(2)->widget() == tool.GetStartStopDatastreamButton());
    QList<QAction *> const actions = tool.getToolBar()->actions();
    QCOMPARE(actions.size(), 2);
    QVERIFY(actions[0] == tool.m_pExitAction);
    QVERIFY(tool.getToolBar()->widgetForAction(actions[1]) == tool.GetOnTopButton());
}

void tst_vccaption_buttons::toolBar()
{
    for (unsigned int const style : { Bar1, Top4 }) {
        CaptionProbe const bar(nullptr, nullptr, style, 40);
        QCOMPARE(bar.getToolBar()->objectName(), QStringLiteral("VCCaption Toolbar"));
        QCOMPARE(bar.getToolBar()->minimumHeight(), 28);
        QCOMPARE(bar.getToolBar()->maximumHeight(), 28);
        QVERIFY(bar.getToolBar()->autoFillBackground());
    }
}

void tst_vccaption_buttons::stopAction()
{
    QImage pictures[2];
    int i = 0;
    for (unsigned int const style : { Bar1, Top4 }) {
        CaptionProbe const bar(nullptr, nullptr, style);
        QCOMPARE(bar.m_pExitAction->objectName(), QStringLiteral("exit"));
        QVERIFY(bar.m_pExitAction->isCheckable() && !bar.m_pExitAction->isChecked());
        QCOMPARE(bar.m_pExitAction->toolTip(), QString());
        QVERIFY(!bar.m_pExitAction->icon().isNull());
        pictures[i++] = Shown(bar.m_pExitAction->icon(), 16);
    }
    QVERIFY(pictures[0] != pictures[1]);
}

void tst_vccaption_buttons::stopButton()
{
    for (unsigned int const style : { Stop2, Full8 }) {
        CaptionProbe const bar(nullptr, nullptr, style, 21);
        QPushButton const * const button = bar.m_pStopButton;
        QCOMPARE(button->objectName(), QStringLiteral("stop"));
        QVERIFY(button->isCheckable() && !button->isChecked());
        QCOMPARE(button->minimumSize(), QSize(28, 21));
        QCOMPARE(button->maximumSize(), QSize(28, 21));
        QCOMPARE(button->toolTip(), QStringLiteral("Start or stop waterfall"));
        QCOMPARE(button->statusTip(), QStringLiteral("Pause"));
        QCOMPARE(Shown(button->icon(), 16), Shown(QIcon(QStringLiteral(":/GUIControl/Pause.png")), 16));
    }
}

void tst_vccaption_buttons::onTopButton()
{
    CaptionProbe const bar(nullptr, nullptr, Top4, 28);
    QPushButton const * const button = bar.GetOnTopButton();
    QCOMPARE(button->objectName(), QStringLiteral("KeepOnTop"));
    QVERIFY(button->isCheckable() && !button->isChecked());
    QCOMPARE(button->toolTip(), QStringLiteral("Keep On Top"));
    QCOMPARE(Shown(button->icon(), 16), Shown(CaptionPictures::Icon(CaptionPictures::eNotOnTop, 16), 16));
}

void tst_vccaption_buttons::fullButton()
{
    CaptionProbe bar(nullptr, nullptr, Full8, 14);
    QPushButton const * const button = bar.GetOnTopButton();
    QCOMPARE(button->objectName(), QStringLiteral("Waterfall only"));
    QCOMPARE(button->toolTip(), QStringLiteral("Waterfall only"));
    QCOMPARE(button->minimumSize(), QSize(21, 14));
    QCOMPARE(button->maximumSize(), QSize(21, 14));
    QVERIFY(button->isHidden() && !button->isCheckable());
    bar.ShowAt(200);
    QVERIFY(!button->isVisible());
    QVERIFY(!button->icon().isNull());
}

void tst_vccaption_buttons::datastreamButton()
{
    CaptionProbe const bar(nullptr, nullptr, Data32, 20);
    QPushButton const * const button = bar.GetStartStopDatastreamButton();
    QCOMPARE(button->objectName(), QStringLiteral("StartStopDatastream"));
    QCOMPARE(button->toolTip(), QStringLiteral("Start or stop underlying data stream"));
    QVERIFY(button->isCheckable() && !button->isChecked());
    QIcon const on(QStringLiteral(":/Caption/On"));
    QIcon const off(QStringLiteral(":/Caption/Off"));
    QCOMPARE(Shown(button->icon(), 16, QIcon::On), Shown(on, 16));
    QCOMPARE(Shown(button->icon(), 16, QIcon::Off), Shown(off, 16));
    QVERIFY(Shown(on, 16) != Shown(off, 16));
}

void tst_vccaption_buttons::accessibleNames()
{
    for (unsigned int const style : { Bar1, Stop2, Top4, Full8 }) {
        CaptionProbe const bar(nullptr, nullptr, style | Data32, 28);
        for (QPushButton const * const button : bar.findChildren<QPushButton *>())
            QVERIFY2(!button->accessibleName().isEmpty(), qPrintable(button->objectName()));
        if (bar.getToolBar())
            QCOMPARE(bar.getToolBar()->widgetForAction(bar.m_pExitAction)->accessibleName(), QStringLiteral("Stop"));
    }
}

void tst_vccaption_buttons::focusStays()
{
    CaptionProbe bar(nullptr, nullptr, Full8 | Data32, 20);
    for (QPushButton const * const button : bar.findChildren<QPushButton *>())
        QCOMPARE(button->focusPolicy(), Qt::TabFocus); // a click leaves the focus with the pane
}

// What they do

void tst_vccaption_buttons::stopActionFires()
{
    for (unsigned int const style : { Bar1, Top4 }) {
        CaptionProbe bar(nullptr, nullptr, style, 28);
        Spies spies(bar);
        bar.m_pExitAction->trigger();
        QCOMPARE(spies.state.value(0).value(0).toBool(), true);
        QCOMPARE(spies.Take(), (QVector<int>{ 1, 0, 0, 0, 0, 1, 0 }));
        bar.m_pExitAction->trigger();
        QCOMPARE(spies.state.value(0).value(0).toBool(), false);
        QCOMPARE(spies.Take(), (QVector<int>{ 1, 0, 0, 0, 0, 1, 0 }));
        bar.m_pExitAction->setChecked(true); // not triggered
        QCOMPARE(spies.Take(), (QVector<int>{ 0, 0, 0, 0, 0, 0, 0 }));
        QStringList told;
        connect(&bar, &VCCaption::si_stopButtonStateChanged, this, [&told] { told << QStringLiteral("state"); });
        connect(&bar, &VCCaption::ButtonClick, this, [&told] { told << QStringLiteral("click"); });
        bar.m_pExitAction->trigger();
        QCOMPARE(told, (QStringList{ QStringLiteral("click"), QStringLiteral("state") }));
    }
}

void tst_vccaption_buttons::stopButtonFires()
{
    for (unsigned int const style : { Stop2, Full8 }) {
        CaptionProbe bar(nullptr, nullptr, style);
        Spies spies(bar);
        bar.m_pStopButton->click();
        QVERIFY(bar.m_pStopButton->isChecked()); // checked means stopped
        QVERIFY(!bar.m_Running);
        QCOMPARE(bar.m_pStopButton->toolTip(), QStringLiteral("Resume"));
        QCOMPARE(spies.state.value(0).value(0).toBool(), true);
        QCOMPARE(spies.Take(), (QVector<int>{ 0, 0, 0, 1, 0, 1, 0 }));
        bar.m_pStopButton->click();
        QVERIFY(!bar.m_pStopButton->isChecked() && bar.m_Running);
        QCOMPARE(bar.m_pStopButton->toolTip(), QStringLiteral("Pause"));
        QCOMPARE(spies.state.value(0).value(0).toBool(), false);
        QCOMPARE(spies.Take(), (QVector<int>{ 0, 0, 0, 0, 1, 1, 0 }));
        QCOMPARE(bar.m_pStopButton->statusTip(), QStringLiteral("Pause"));
    }
}

void tst_vccaption_buttons::stopIsTakenBack()
{
    for (unsigned int const style : { Stop2, Full8 }) {
        CaptionProbe bar(nullptr, nullptr, style);
        Spies spies(bar);
        auto const back = connect(&bar, &VCCaption::Stop, &bar, &VCCaption::slotStarted);
        bar.m_pStopButton->click();
        QVERIFY(!bar.m_pStopButton->isChecked() && bar.m_Running);
        QCOMPARE(spies.state.value(0).value(0).toBool(), false); // what the button shows
        QCOMPARE(spies.Take(), (QVector<int>{ 0, 0, 0, 1, 1, 1, 0 }));
        disconnect(back);
        bar.slotStopped();
        connect(&bar, &VCCaption::Start, &bar, &VCCaption::slotStopped);
        spies.Take();
        bar.m_pStopButton->click();
        QVERIFY(bar.m_pStopButton->isChecked() && !bar.m_Running);
        QCOMPARE(spies.state.value(0).value(0).toBool(), true);
        QCOMPARE(spies.Take(), (QVector<int>{ 0, 0, 0, 1, 1, 1, 0 }));
    }
}

void tst_vccaption_buttons::onTopButtonFires()
{
    CaptionProbe bar(nullptr, nullptr, Top4, 28);
    Spies spies(bar);
    QPushButton * const button = bar.GetOnTopButton();
    QImage const off = Shown(button->icon(), 16);
    button->click();
    QVERIFY(bar.IsKeepOnTop());
    QCOMPARE(Shown(button->icon(), 16), Shown(CaptionPictures::Icon(CaptionPictures::eOnTop, 16), 16));
    QVERIFY(Shown(button->icon(), 16) != off);
    QCOMPARE(spies.Take(), (QVector<int>{ 0, 1, 0, 0, 0, 0, 0 }));
    button->click();
    QVERIFY(!bar.IsKeepOnTop());
    QCOMPARE(Shown(button->icon(), 16), off);
    QCOMPARE(spies.Take(), (QVector<int>{ 0, 1, 0, 0, 0, 0, 0 }));
    button->setChecked(true); // the picture follows, nobody clicked
    QVERIFY(Shown(button->icon(), 16) != off);
    QCOMPARE(spies.Take(), (QVector<int>{ 0, 0, 0, 0, 0, 0, 0 }));
    bar.slotTopButtonClick();
    QCOMPARE(spies.Take(), (QVector<int>{ 0, 1, 0, 0, 0, 0, 0 }));
    {
        QSignalBlocker const quiet(button);
        button->setChecked(false);
    }
    QVERIFY(Shown(button->icon(), 16) != off);
    bar.slotTopButtonClick(); // gives the picture of the state
    QCOMPARE(Shown(button->icon(), 16), off);
    QCOMPARE(spies.Take(), (QVector<int>{ 0, 1, 0, 0, 0, 0, 0 }));
    CaptionProbe full(nullptr, nullptr, Full8);
    QImage const picture = Shown(full.GetOnTopButton()->icon(), 8);
    full.slotTopButtonClick();
    QCOMPARE(Shown(full.GetOnTopButton()->icon(), 8), picture); // has no states
    QVERIFY(!full.IsKeepOnTop());
}

void tst_vccaption_buttons::fullButtonFires()
{
    CaptionProbe bar(nullptr, nullptr, Full8);
    Spies spies(bar);
    bar.GetOnTopButton()->click();
    QCOMPARE(spies.Take(), (QVector<int>{ 0, 0, 1, 0, 0, 0, 0 }));
}

void tst_vccaption_buttons::datastreamFires()
{
    CaptionProbe bar(nullptr, nullptr, Data32);
    Spies spies(bar);
    bar.GetStartStopDatastreamButton()->click();
    QCOMPARE(spies.data.value(0).value(0).toBool(), true);
    QCOMPARE(spies.Take(), (QVector<int>{ 0, 0, 0, 0, 0, 0, 1 }));
    bar.GetStartStopDatastreamButton()->click();
    QCOMPARE(spies.data.value(0).value(0).toBool(), false);
    QCOMPARE(spies.Take(), (QVector<int>{ 0, 0, 0, 0, 0, 0, 1 }));
}

void tst_vccaption_buttons::datastreamState()
{
    CaptionProbe bar(nullptr, nullptr, Data32);
    QSignalSpy toggled(&bar, &VCCaption::DatastreamButtonToggled);
    QVERIFY(!bar.GetStartStopDatastreamButtonState());
    QVERIFY(!bar.SetStartStopDatastreamButtonState(false)); // it is so already
    QCOMPARE(toggled.size(), 0);
    QVERIFY(bar.SetStartStopDatastreamButtonState(true));
    QCOMPARE(toggled.size(), 1);
    QVERIFY(bar.GetStartStopDatastreamButtonState());
    QVERIFY(!bar.SetStartStopDatastreamButtonState(true));
    QVERIFY(bar.SetStartStopDatastreamButtonState(false));
    QCOMPARE(toggled.size(), 2);
    CaptionProbe without;
    QVERIFY(!without.GetStartStopDatastreamButtonState());
    QVERIFY(!without.SetStartStopDatastreamButtonState(true));
    QVERIFY(!without.SetStartStopDatastreamButtonState(false));
}

void tst_vccaption_buttons::refusedAndDeleted()
{
    QPointer<CaptionProbe> const bar = new CaptionProbe(nullptr, nullptr, Data32, 28);
    QPointer<QPushButton> const button = bar->GetStartStopDatastreamButton();
    connect(bar.data(), &VCCaption::DatastreamButtonToggled, this, [bar](bool on) {
        if (!on)
            return;
        bar->SetStartStopDatastreamButtonState(false);
        delete bar.data();
    });
    bar->SetStartStopDatastreamButtonState(true);
    QVERIFY(!bar);
    QVERIFY(button); // outlives its toggling
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!button);
}

// The stop control

void tst_vccaption_buttons::stoppedAndStarted_data()
{
    QTest::addColumn<unsigned int>("style");
    QTest::newRow("action, style 1") << Bar1;
    QTest::newRow("button, style 2") << Stop2;
    QTest::newRow("action, style 4") << Top4;
    QTest::newRow("button, style 8") << Full8;
}

void tst_vccaption_buttons::stoppedAndStarted()
{
    QFETCH(unsigned int, style);
    CaptionProbe bar(nullptr, nullptr, style, 28);
    Spies spies(bar);
    auto const isChecked = [&bar] {
        return bar.m_pExitAction ? bar.m_pExitAction->isChecked() : bar.m_pStopButton->isChecked();
    };
    auto const toolTip = [&bar] {
        return bar.m_pExitAction ? bar.m_pExitAction->toolTip() : bar.m_pStopButton->toolTip();
    };
    bar.slotStarted(); // it runs already: shown, not told
    QCOMPARE(toolTip(), QStringLiteral("Pause"));
    QVERIFY(!isChecked() && bar.m_Running);
    QCOMPARE(spies.Take(), (QVector<int>{ 0, 0, 0, 0, 0, 0, 0 }));
    bar.slotStopped();
    QCOMPARE(toolTip(), QStringLiteral("Resume"));
    QVERIFY(isChecked() && !bar.m_Running);
    QCOMPARE(spies.Take(), (QVector<int>{ 0, 0, 0, 1, 0, 0, 0 }));
    bar.slotStopped();
    QVERIFY(isChecked() && !bar.m_Running);
    QCOMPARE(spies.Take(), (QVector<int>{ 0, 0, 0, 0, 0, 0, 0 }));
    bar.slotStarted();
    QCOMPARE(toolTip(), QStringLiteral("Pause"));
    QVERIFY(!isChecked() && bar.m_Running);
    QCOMPARE(spies.Take(), (QVector<int>{ 0, 0, 0, 0, 1, 0, 0 }));
}

void tst_vccaption_buttons::withoutStopControl()
{
    for (unsigned int const style : { 0U, 16U, Data32 }) {
        CaptionProbe bar(nullptr, nullptr, style);
        Spies spies(bar);
        bar.slotStopped();
        QVERIFY(bar.m_Running);
        bar.slotRunning(false);
        QVERIFY(bar.m_Running);
        bar.m_Running = false;
        bar.slotStarted();
        bar.sl_paused(false);
        QVERIFY(!bar.m_Running);
        QCOMPARE(spies.Take(), (QVector<int>{ 0, 0, 0, 0, 0, 0, 0 }));
    }
}

void tst_vccaption_buttons::running()
{
    CaptionProbe bar(nullptr, nullptr, Stop2);
    Spies spies(bar);
    QString const toolTip = bar.m_pStopButton->toolTip();
    bar.slotRunning(true); // as it is: nothing at all
    QCOMPARE(bar.m_pStopButton->toolTip(), toolTip);
    bar.slotRunning(false);
    QVERIFY(bar.m_pStopButton->isChecked() && !bar.m_Running);
    QCOMPARE(spies.Take(), (QVector<int>{ 0, 0, 0, 1, 0, 0, 0 }));
    bar.slotRunning(false);
    QCOMPARE(spies.Take(), (QVector<int>{ 0, 0, 0, 0, 0, 0, 0 }));
    bar.slotRunning(true);
    QVERIFY(!bar.m_pStopButton->isChecked() && bar.m_Running);
    QCOMPARE(spies.Take(), (QVector<int>{ 0, 0, 0, 0, 1, 0, 0 }));
}

void tst_vccaption_buttons::paused()
{
    CaptionProbe bar(nullptr, nullptr, Stop2);
    Spies spies(bar);
    bar.sl_paused(true);
    QVERIFY(bar.m_pStopButton->isChecked());
    bar.sl_paused(true);
    QCOMPARE(spies.Take(), (QVector<int>{ 0, 0, 0, 1, 0, 0, 0 }));
    bar.sl_paused(false);
    QVERIFY(!bar.m_pStopButton->isChecked());
    QCOMPARE(spies.Take(), (QVector<int>{ 0, 0, 0, 0, 1, 0, 0 }));
}

void tst_vccaption_buttons::stopButtonClick()
{
    CaptionProbe action(nullptr, nullptr, Bar1, 28);
    Spies actionSpies(action);
    action.slotStopButtonClick(); // an action is no button
    QVERIFY(!action.m_pExitAction->isChecked());
    QCOMPARE(actionSpies.Take(), (QVector<int>{ 0, 0, 0, 0, 0, 0, 0 }));

    CaptionProbe bar(nullptr, nullptr, Stop2);
    QStringList told;
    connect(&bar, &VCCaption::Stop, this, [&told] { told << QStringLiteral("Stop"); });
    connect(&bar, &VCCaption::si_stopButtonStateChanged, this,
            [&told](bool on) { told << (on ? QStringLiteral("checked") : QStringLiteral("released")); });
    bar.slotStopButtonClick(); // the button is released: it runs on
    QCOMPARE(told, QStringList{ QStringLiteral("released") });
    bar.m_pStopButton->setChecked(true);
    bar.slotStopButtonClick();
    QCOMPARE(told, (QStringList{ QStringLiteral("released"), QStringLiteral("Stop"), QStringLiteral("checked") }));
}

void tst_vccaption_buttons::triggerStopButton()
{
    for (unsigned int const style : { Stop2, Full8 }) {
        CaptionProbe bar(nullptr, nullptr, style);
        Spies spies(bar);
        bar.triggerStopButton(); // it runs
        QVERIFY(!bar.m_pStopButton->isDown());
        bar.slotStopped();
        spies.Take();
        bar.triggerStopButton();
        QVERIFY(bar.m_pStopButton->isDown());
        QVERIFY(bar.m_pStopButton->isChecked()); // not yet
        QTRY_VERIFY(!bar.m_pStopButton->isDown());
        QVERIFY(!bar.m_pStopButton->isChecked() && bar.m_Running);
        QCOMPARE(spies.Take(), (QVector<int>{ 0, 0, 0, 0, 1, 1, 0 }));
    }
}

void tst_vccaption_buttons::triggerStopAction()
{
    for (unsigned int const style : { Bar1, Top4 }) {
        CaptionProbe bar(nullptr, nullptr, style, 28);
        Spies spies(bar);
        bar.triggerStopButton();
        QCOMPARE(spies.Take(), (QVector<int>{ 0, 0, 0, 0, 0, 0, 0 }));
        bar.slotStopped();
        spies.Take();
        bar.triggerStopButton();
        QVERIFY(!bar.m_pExitAction->isChecked());
        QCOMPARE(spies.state.value(0).value(0).toBool(), false);
        QCOMPARE(spies.Take(), (QVector<int>{ 1, 0, 0, 0, 0, 1, 0 }));
    }
}

void tst_vccaption_buttons::enabled()
{
    for (bool const on : { false, true })
        for (unsigned int const style : { Bar1, Stop2, Top4, Full8 }) {
            CaptionProbe bar(nullptr, nullptr, style, 28);
            bar.setStopButtonEnabled(false);
            bar.setStopButtonEnabled(on);
            QCOMPARE(bar.m_pStopButton ? bar.m_pStopButton->isEnabled() : bar.m_pExitAction->isEnabled(), on);
            QVERIFY(!bar.GetOnTopButton() || bar.GetOnTopButton()->isEnabled());
        }
}

void tst_vccaption_buttons::fullButtonVisible()
{
    CaptionProbe bar(nullptr, nullptr, Full8, 20);
    bar.ShowAt(300);
    bar.SetCaptionRight(QStringLiteral("right"));
    int const space = bar.m_pSpace->width();
    QCOMPARE(space, 300 - 27 - 1);
    QImage const before = bar.grab().toImage();
    bar.SetFullButtonVisible(true);
    QVERIFY(bar.GetOnTopButton()->isVisible());
    QImage const shown = bar.grab().toImage();
    QCOMPARE(bar.m_pSpace->width(), space - 27 - 1);
    QVERIFY(shown != before);
    // The text made room. Its last pixel may be in the gap before the button, whose frame is the style's.
    QRect const text(150, 0, bar.GetOnTopButton()->x() - 150, 20);
    QImage const moved = shown.copy(text);
    QImage nothing(moved.size(), moved.format());
    nothing.fill(shown.pixel(150, 10));
    QVERIFY(moved != nothing);
    QCOMPARE(moved, before.copy(text.translated(27 + 1, 0)));
    bar.SetFullButtonVisible(false);
    QVERIFY(!bar.GetOnTopButton()->isVisible());
    QCOMPARE(bar.grab().toImage(), before);
    CaptionProbe tool(nullptr, nullptr, Top4, 28);
    tool.SetFullButtonVisible(false); // another button
    tool.ShowAt(300);
    QVERIFY(tool.GetOnTopButton()->isVisible());
}

void tst_vccaption_buttons::withoutButtons()
{
    CaptionProbe bar;
    Spies spies(bar);
    QVERIFY(!bar.GetOnTopButton() && !bar.GetStartStopDatastreamButton() && !bar.getToolBar() && bar.getLayout());
    bar.SetFullButtonVisible(true);
    bar.setStopButtonEnabled(false);
    bar.triggerStopButton();
    bar.slotTopButtonClick();
    bar.slotStopButtonClick();
    QVERIFY(!bar.IsKeepOnTop());
    QCOMPARE(spies.Take(), (QVector<int>{ 0, 0, 0, 0, 0, 0, 0 }));
}

void tst_vccaption_buttons::deletedByOthers()
{
    for (unsigned int const style : { Bar1, Stop2, Top4, Full8 }) {
        CaptionProbe bar(nullptr, nullptr, style | Data32, 28);
        bar.ShowAt(300);
        qDeleteAll(bar.findChildren<QPushButton *>());
        delete bar.getToolBar();
        delete bar.m_pSpace;
        Spies spies(bar);
        bar.SetFullButtonVisible(true);
        bar.setStopButtonEnabled(true);
        bar.triggerStopButton();
        bar.slotStopped();
        bar.slotTopButtonClick();
        bar.slotStopButtonClick();
        bar.SetCaptionLeft(QStringLiteral("left"));
        QVERIFY(!bar.IsKeepOnTop() && !bar.SetStartStopDatastreamButtonState(true));
        QVERIFY(!bar.GetOnTopButton() && !bar.GetStartStopDatastreamButton() && !bar.getToolBar());
        QCOMPARE(spies.Take(), (QVector<int>{ 0, 0, 0, 0, 0, 0, 0 }));
        QVERIFY(!bar.grab().isNull());
    }
}

void tst_vccaption_buttons::deletedBySlots_data()
{
    QTest::addColumn<unsigned int>("style");
    QTest::addColumn<QByteArray>("signal");
    QTest::newRow("ButtonClick") << Bar1 << QByteArray("ButtonClick()");
    QTest::newRow("state of the action") << Bar1 << QByteArray("si_stopButtonStateChanged(bool)");
    QTest::newRow("OnTopButtonClick") << Top4 << QByteArray("OnTopButtonClick()");
    QTest::newRow("signalFullButtonClick") << Full8 << QByteArray("signalFullButtonClick()");
    QTest::newRow("Stop") << Stop2 << QByteArray("Stop()");
    QTest::newRow("Start") << Stop2 << QByteArray("Start()");
    QTest::newRow("state of the button") << Stop2 << QByteArray("si_stopButtonStateChanged(bool)");
    QTest::newRow("DatastreamButtonToggled") << Data32 << QByteArray("DatastreamButtonToggled(bool)");
}

namespace {

//! Deletes its victim.
class Killer : public QObject
{
    Q_OBJECT
public:
    QPointer<VCCaption> m_pVictim;
    int m_calls = 0;
public Q_SLOTS:

    void slotKill()
    {
        ++m_calls;
        delete m_pVictim.data();
    }
};

} // namespace

void tst_vccaption_buttons::deletedBySlots()
{
    QFETCH(unsigned int, style);
    QFETCH(QByteArray, signal);
    auto * const bar = new CaptionProbe(nullptr, nullptr, style, 28);
    bar->ShowAt(300);
    Killer killer;
    killer.m_pVictim = bar;
    connect(bar, QByteArray("2" + signal).constData(), &killer, SLOT(slotKill()));
    if (style == Bar1) {
        QTest::mouseClick(bar->getToolBar()->widgetForAction(bar->m_pExitAction), Qt::LeftButton);
    } else if (style == Stop2) {
        for (int i = 0; i < 2 && killer.m_pVictim; ++i)
            QTest::mouseClick(bar->m_pStopButton, Qt::LeftButton);
    } else if (style == Data32) {
        QVERIFY(bar->SetStartStopDatastreamButtonState(true));
    } else {
        bar->SetFullButtonVisible(true);
        QTest::mouseClick(bar->GetOnTopButton(), Qt::LeftButton);
    }
    QVERIFY(!killer.m_pVictim);
    QCOMPARE(killer.m_calls, 1);
}

ORIM_TEST_MAIN(tst_vccaption_buttons)
#include "tst_vccaption_buttons.moc"
