// SPDX-License-Identifier: MIT
#include "controleventfilter.h"

#include "control.h"
#include "resortpopupmenu.h"
#include "testmain.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QSignalSpy>

#include <functional>

//! Named as an application's class is: the filter asks for the name.
class DrawPane : public QWidget
{
    Q_OBJECT
public:
    using QWidget::QWidget;
    int m_doubleClicks = 0;
    int m_contextMenus = 0;

protected:
    void mouseDoubleClickEvent(QMouseEvent *) override { ++m_doubleClicks; }

    void contextMenuEvent(QContextMenuEvent *) override { ++m_contextMenus; }
};

class DerivedPane : public DrawPane
{
    Q_OBJECT
public:
    using DrawPane::DrawPane;
};

class OtherPane : public QWidget
{
    Q_OBJECT
public:
    using QWidget::QWidget;
};

namespace {

//! Answers with one menu after the other, and tells in which order it was asked.
class ScriptedControl : public Control
{
public:
    using Control::Control;
    QStringList m_calls;
    std::vector<ResortPopupMenu *> m_menus;
    std::function<void()> m_then;

    ResortPopupMenu * GetContextMenu() override
    {
        std::size_t const call = static_cast<std::size_t>(m_calls.count(QStringLiteral("menu")));
        m_calls << QStringLiteral("menu");
        ResortPopupMenu * const menu = call < m_menus.size() ? m_menus[call] : nullptr;
        if (m_then)
            m_then();
        return menu;
    }

    bool GetContextMenuEnabled() override
    {
        m_calls << QStringLiteral("enabled");
        return Control::GetContextMenuEnabled();
    }
};

bool RightClick(QWidget & widget)
{
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(3, 4), QPoint(30, 40));
    event.ignore();
    return QCoreApplication::sendEvent(&widget, &event);
}

} // namespace

class tst_controleventfilter : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase()
    {
        qRegisterMetaType<QEvent *>("QEvent*"); // for the spies on the double click
        TestStage::HushPopups();
    }

    void eventNumbers();
    void doubleClick_data();
    void doubleClick();
    void doubleClickIsJudgedByTheObject();
    void doubleClickAfterTheControlEnded();
    void doubleClickPassesTheEvent();
    void otherMouseEventsEmitNothing();
    void doubleClickWhoseListenerDeletes_data();
    void doubleClickWhoseListenerDeletes();
    void menuOpens();
    void menuIsAskedForTwice();
    void positionStandsBeforeTheSecondAsking();
    void theSecondMenuIsTheOneShown();
    void noSecondMenu();
    void noMenuFallsThrough();
    void disabledMenuFallsThrough();
    void enabledIsAskedOfEveryEvent();
    void controlEndsWhileItsMenuIsAsked();
    void widgetEndsWhileItsMenuIsAsked_data();
    void widgetEndsWhileItsMenuIsAsked();
    void servesNobody();
    void nothing();
};

void tst_controleventfilter::eventNumbers()
{
    QCOMPARE(static_cast<int>(QEvent::MouseButtonDblClick), 4);
    QCOMPARE(static_cast<int>(QEvent::ContextMenu), 82);
}

void tst_controleventfilter::doubleClick_data()
{
    QTest::addColumn<int>("pane");
    QTest::addColumn<int>("signalsHeard");
    QTest::newRow("on a DrawPane") << 0 << 1;
    QTest::newRow("on a class that derives from it") << 1 << 1;
    QTest::newRow("on another pane") << 2 << 0;
    QTest::newRow("on a plain widget") << 3 << 0;
}

void tst_controleventfilter::doubleClick()
{
    QFETCH(int, pane);
    DrawPane drawPane;
    DerivedPane derivedPane;
    OtherPane otherPane;
    QWidget plain;
    QWidget * const panes[] = { &drawPane, &derivedPane, &otherPane, &plain };
    QWidget * const widget = panes[pane];
    Control control(widget, "name");
    QSignalSpy const heard(control.GetControlEventFilter(), &ControlEventFilter::signalDblClick);
    QTest::mouseDClick(widget, Qt::LeftButton);
    QTEST(static_cast<int>(heard.count()), "signalsHeard");
}

void tst_controleventfilter::doubleClickIsJudgedByTheObject()
{
    QMouseEvent event(QEvent::MouseButtonDblClick, QPointF(1, 1), QPointF(1, 1), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    DrawPane pane;
    QWidget plain;
    Control const ofPlain(&plain, "name");
    QSignalSpy const onPane(ofPlain.GetControlEventFilter(), &ControlEventFilter::signalDblClick);
    ofPlain.GetControlEventFilter()->eventFilter(&pane, &event);
    QCOMPARE(onPane.count(), 1);
    Control const ofPane(&pane, "name");
    QSignalSpy const onPlain(ofPane.GetControlEventFilter(), &ControlEventFilter::signalDblClick);
    ofPane.GetControlEventFilter()->eventFilter(&plain, &event);
    QCOMPARE(onPlain.count(), 0);
}

void tst_controleventfilter::doubleClickAfterTheControlEnded()
{
    DrawPane pane;
    auto source = std::make_unique<Control>(&pane, "name");
    Control const copy(*source);
    source.reset();
    QSignalSpy const heard(copy.GetControlEventFilter(), &ControlEventFilter::signalDblClick);
    QTest::mouseDClick(&pane, Qt::LeftButton);
    QCOMPARE(heard.count(), 1);
}

void tst_controleventfilter::doubleClickPassesTheEvent()
{
    DrawPane pane;
    Control control(&pane, "name");
    QEvent * passed = nullptr;
    connect(control.GetControlEventFilter(), &ControlEventFilter::signalDblClick, this,
            [&passed](QEvent * event) { passed = event; });
    QMouseEvent event(QEvent::MouseButtonDblClick, QPointF(1, 1), QPointF(1, 1), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(&pane, &event);
    QCOMPARE(passed, &event);
    QCOMPARE(pane.m_doubleClicks, 1); // the signal does not consume it
}

void tst_controleventfilter::otherMouseEventsEmitNothing()
{
    DrawPane pane;
    Control control(&pane, "name");
    QSignalSpy const heard(control.GetControlEventFilter(), &ControlEventFilter::signalDblClick);
    QTest::mousePress(&pane, Qt::LeftButton);
    QTest::mouseRelease(&pane, Qt::LeftButton);
    QTest::mouseMove(&pane, QPoint(2, 2));
    RightClick(pane);
    QCOMPARE(heard.count(), 0);
}

void tst_controleventfilter::doubleClickWhoseListenerDeletes_data()
{
    QTest::addColumn<QString>("what");
    for (char const * const what : { "filter", "control", "pane" })
        QTest::newRow(what) << QString::fromLatin1(what);
}

void tst_controleventfilter::doubleClickWhoseListenerDeletes()
{
    QFETCH(QString, what);
    QPointer<DrawPane> pane(new DrawPane);
    auto control = std::make_unique<Control>(pane, "name");
    control->EnableContextMenu(true);
    connect(control->GetControlEventFilter(), &ControlEventFilter::signalDblClick, this, [&](QEvent *) {
        if (what == QLatin1String("filter"))
            delete control->GetControlEventFilter();
        else if (what == QLatin1String("control"))
            control.reset();
        else
            delete pane.data();
    });
    QMouseEvent event(QEvent::MouseButtonDblClick, QPointF(1, 1), QPointF(1, 1), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    // asked by hand: Qt itself goes on with a receiver that a filter of its own has deleted
    QPointer<ControlEventFilter> const filter(control->GetControlEventFilter());
    bool const ended = filter->eventFilter(pane, &event);
    QCOMPARE(ended, what != QLatin1String("control"));
    delete pane.data();
}

void tst_controleventfilter::menuOpens()
{
    DrawPane pane;
    Control control(&pane, "name");
    ResortPopupMenu menu(&pane, "menu");
    menu.insertItem(QStringLiteral("Item"), 1, -1);
    control.SetContextMenu(&menu, false);
    control.EnableContextMenu(true);
    QVERIFY(RightClick(pane));
    QVERIFY(menu.isVisible());
    QCOMPARE(menu.pos(), QPoint(30, 40));
    QCOMPARE(control.GetCurrentXYMenu(), QPoint(3, 4));
    QCOMPARE(pane.m_contextMenus, 0); // the event ended here
    menu.close();
}

void tst_controleventfilter::menuIsAskedForTwice()
{
    DrawPane pane;
    ScriptedControl control(&pane, "name");
    ResortPopupMenu menu;
    control.EnableContextMenu(true);
    control.m_menus = { &menu, &menu };
    RightClick(pane);
    QCOMPARE(control.m_calls,
             (QStringList{ QStringLiteral("enabled"), QStringLiteral("menu"), QStringLiteral("menu") }));
    menu.close();
}

void tst_controleventfilter::positionStandsBeforeTheSecondAsking()
{
    DrawPane pane;
    ScriptedControl control(&pane, "name");
    ResortPopupMenu menu;
    QVector<QPoint> seen;
    control.EnableContextMenu(true);
    control.m_menus = { &menu, &menu };
    control.m_then = [&] { seen << control.GetCurrentXYMenu(); };
    RightClick(pane);
    QCOMPARE(seen, (QVector<QPoint>{ QPoint(0, 0), QPoint(3, 4) }));
    menu.close();
}

void tst_controleventfilter::theSecondMenuIsTheOneShown()
{
    DrawPane pane;
    ScriptedControl control(&pane, "name");
    ResortPopupMenu first;
    ResortPopupMenu second;
    control.EnableContextMenu(true);
    control.m_menus = { &first, &second };
    QVERIFY(RightClick(pane));
    QVERIFY(!first.isVisible());
    QVERIFY(second.isVisible());
    second.close();
}

void tst_controleventfilter::noSecondMenu()
{
    DrawPane pane;
    ScriptedControl control(&pane, "name");
    ResortPopupMenu first;
    control.EnableContextMenu(true);
    control.m_menus = { &first, nullptr };
    RightClick(pane);
    QVERIFY(!first.isVisible());
    QCOMPARE(control.GetCurrentXYMenu(), QPoint(3, 4));
    QCOMPARE(pane.m_contextMenus, 1);
}

void tst_controleventfilter::noMenuFallsThrough()
{
    DrawPane pane;
    ScriptedControl control(&pane, "name");
    control.EnableContextMenu(true);
    RightClick(pane);
    QCOMPARE(pane.m_contextMenus, 1);
    QCOMPARE(control.GetCurrentXYMenu(), QPoint(0, 0));
    QCOMPARE(control.m_calls.count(QStringLiteral("menu")), 1);
}

void tst_controleventfilter::disabledMenuFallsThrough()
{
    DrawPane pane;
    ScriptedControl control(&pane, "name");
    ResortPopupMenu menu;
    control.m_menus = { &menu, &menu };
    RightClick(pane);
    QCOMPARE(pane.m_contextMenus, 1);
    QVERIFY(!menu.isVisible());
    QVERIFY(!control.m_calls.contains(QStringLiteral("menu")));
}

void tst_controleventfilter::enabledIsAskedOfEveryEvent()
{
    DrawPane pane;
    ScriptedControl control(&pane, "name");
    QEvent event(QEvent::User);
    QVERIFY(!control.GetControlEventFilter()->eventFilter(&pane, &event));
    QCOMPARE(control.m_calls, QStringList{ QStringLiteral("enabled") });
}

void tst_controleventfilter::controlEndsWhileItsMenuIsAsked()
{
    DrawPane pane;
    auto control = std::make_unique<ScriptedControl>(&pane, "name");
    ResortPopupMenu menu;
    control->EnableContextMenu(true);
    control->m_menus = { &menu, &menu };
    control->m_then = [&control] {
        std::function<void()> const keepAlive = std::move(control->m_then);
        control.reset();
    };
    RightClick(pane);
    QVERIFY(!control);
    QVERIFY(!menu.isVisible());
    QCOMPARE(pane.m_contextMenus, 1);
}

void tst_controleventfilter::widgetEndsWhileItsMenuIsAsked_data()
{
    QTest::addColumn<bool>("withMenu");
    QTest::addColumn<bool>("filterEndsToo");
    QTest::newRow("with a menu") << true << true;
    QTest::newRow("without a menu") << false << true;
    QTest::newRow("with a menu, the filter stays") << true << false;
    QTest::newRow("without a menu, the filter stays") << false << false;
}

void tst_controleventfilter::widgetEndsWhileItsMenuIsAsked()
{
    QFETCH(bool, withMenu);
    QFETCH(bool, filterEndsToo);
    auto * pane = new DrawPane;
    ScriptedControl control(filterEndsToo ? pane : nullptr, "name");
    control.SetWidget(pane);
    ResortPopupMenu menu;
    control.EnableContextMenu(true);
    if (withMenu)
        control.m_menus = { &menu, &menu };
    control.m_then = [&pane] {
        delete pane;
        pane = nullptr;
    };
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(3, 4), QPoint(30, 40));
    QVERIFY(control.GetControlEventFilter()->eventFilter(pane, &event));
    QVERIFY(!menu.isVisible());
}

void tst_controleventfilter::servesNobody()
{
    DrawPane pane;
    ControlEventFilter filter;
    QSignalSpy const heard(&filter, &ControlEventFilter::signalDblClick);
    pane.installEventFilter(&filter);
    RightClick(pane);
    QTest::mouseDClick(&pane, Qt::LeftButton);
    QCOMPARE(pane.m_contextMenus, 1);
    QCOMPARE(pane.m_doubleClicks, 1);
    QCOMPARE(heard.count(), 1); // the signal needs no control
}

void tst_controleventfilter::nothing()
{
    ControlEventFilter filter;
    QEvent event(QEvent::ContextMenu);
    QVERIFY(!filter.eventFilter(nullptr, &event));
    QVERIFY(!filter.eventFilter(this, nullptr));
}

ORIM_TEST_MAIN(tst_controleventfilter)
#include "tst_controleventfilter.moc"
