// SPDX-License-Identifier: MIT
// The context menu of a single marker, and what the items of both menus do.
#include "menuprobe.h"

#include "testmain.h"

#include <QContextMenuEvent>

#include <algorithm>
#include <limits>

class tst_axisbase_markermenu : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void cleanup();

    // the menu of one marker
    void picksTheMarker_data();
    void picksTheMarker();
    void lowestIndexWins();
    void singleMarkerItems_data();
    void singleMarkerItems();
    void stateFromThePane_data();
    void stateFromThePane();
    void eachOpeningBuildsItAnew();
    void singleMenuRebuiltWhileShown();
    void rightClickOpensIt();
    void anotherClosesTheFirst();

    // what the items do
    void showsAndHides_data();
    void showsAndHides();
    void oddNumbers_data();
    void oddNumbers();
    void itemPassesItsNumberOnce();
    void placedOnShow_data();
    void placedOnShow();
    void mouseMovingMarker();
    void resultPanel();
    void hideAll();
    void hearersEndTheAxis_data();
    void hearersEndTheAxis();
    void hearerEndsTheMarker();
};

void tst_axisbase_markermenu::cleanup()
{
    DrainDeferredDeletes();
    MarkerList::SetMouseMovingMarker(false);
}

// The menu of one marker

void tst_axisbase_markermenu::picksTheMarker_data()
{
    QTest::addColumn<bool>("pane");
    QTest::addColumn<bool>("shown");
    QTest::addColumn<int>("special");
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<bool>("single");
    QRect const hit(10, 5, 20, 10);
    QTest::newRow("under the mouse") << true << true << int(InMenu) << hit << true;
    QTest::newRow("no pane") << false << true << int(InMenu) << hit << false;
    QTest::newRow("hidden") << true << false << int(InMenu) << hit << false;
    QTest::newRow("drawn though the flag is off") << true << false << int(InMenu | eSpecialAlwaysShow) << hit << true;
    QTest::newRow("not in the menu") << true << true << int(~InMenu) << hit << false;
    QTest::newRow("beside") << true << true << int(InMenu) << QRect(13, 5, 20, 10) << false;
    QTest::newRow("below") << true << true << int(InMenu) << QRect(10, 9, 20, 10) << false;
    QTest::newRow("in the corner") << true << true << int(InMenu) << QRect(12, 8, 1, 1) << true;
    QTest::newRow("invalid") << true << true << int(InMenu) << QRect(QPoint(14, 10), QPoint(10, 6)) << false;
    QTest::newRow("as at the start") << true << true << int(InMenu) << QRect(QPoint(0, 0), QPoint(-2, -2)) << false;
}

void tst_axisbase_markermenu::picksTheMarker()
{
    QFETCH(bool, pane);
    QFETCH(bool, shown);
    QFETCH(int, special);
    QFETCH(QRect, rect);
    QFETCH(bool, single);
    TestMarkerList list;
    MenuAxis axis;
    axis.SetMenuMarkerPane(pane ? &list : nullptr);
    AddRuler(axis, eRedX, "red", shown, static_cast<unsigned int>(special))->SetRect(rect);
    axis.BuildMenu();
    axis.SetCurrentXYMenu(QPoint(12, 8));
    ResortPopupMenu const * const menu = axis.GetContextMenu();
    QCOMPARE(menu->objectName(), single ? QStringLiteral("SingleMarkerMenu") : QStringLiteral("AxisMenu"));
    QCOMPARE(axis.m_pSingleMarkerMenu == menu, single);
}

void tst_axisbase_markermenu::lowestIndexWins()
{
    TestMarkerList pane;
    MenuAxis axis;
    axis.SetMenuMarkerPane(&pane);
    QCOMPARE(axis.GetContextMenu()->objectName(), QStringLiteral("AxisMenu")); // no markers at all
    for (int const index : { 42, 7, 20 })
        AddRuler(axis, index, "m")->SetRect(QRect(0, 0, 10, 10));
    QVERIFY(axis.GetContextMenu()->FindItem(3007));
    axis.SetShowMarker(7, false);
    QVERIFY(axis.GetContextMenu()->FindItem(3020));
    axis.DeleteMarker(20); // the shown lists still name it
    QVERIFY(axis.GetContextMenu()->FindItem(3042));
}

void tst_axisbase_markermenu::singleMarkerItems_data()
{
    QTest::addColumn<bool>("shown");
    QTest::addColumn<bool>("panel");
    QTest::addColumn<bool>("result");
    QTest::addColumn<QStringList>("told");
    QTest::addColumn<QString>("look");
    QTest::addColumn<QString>("panelLook");
    QString const none = QStringLiteral("none");
    QTest::newRow("shown") << true << false << false << List({ "3013 Hide red" }) << QStringLiteral("+x") << none;
    QTest::newRow("hidden") << false << false << false << List({ "3013 Show red" }) << QStringLiteral("+o") << none;
    QStringList const hide = List({ "3013 Hide red", "4013 Show Result Panel" });
    QStringList const show = List({ "3013 Show red", "4013 Show Result Panel" });
    QTest::newRow("shown, panel off") << true << true << false << hide << QStringLiteral("+x") << QStringLiteral("+o");
    QTest::newRow("shown, panel on") << true << true << true << hide << QStringLiteral("+x") << QStringLiteral("+x");
    QTest::newRow("hidden, panel off") << false << true << false << show << QStringLiteral("+o")
                                       << QStringLiteral("-o");
    QTest::newRow("hidden, panel on") << false << true << true << show << QStringLiteral("+o") << QStringLiteral("-x");
}

void tst_axisbase_markermenu::singleMarkerItems()
{
    QFETCH(bool, shown);
    QFETCH(bool, panel);
    QFETCH(bool, result);
    for (bool const alongX : { true, false }) {
        TestMarkerList pane;
        AddRuler(pane, eRedX, "other name", shown);
        pane.SetShowResultFlag(eRedX, result);
        MenuAxis axis(alongX ? AxisBase::AxisHorizontal : AxisBase::AxisVertical);
        axis.SetMenuMarkerPane(&pane);
        unsigned int const special = panel ? InMenu | eSpecialPanelMenu : InMenu;
        AddRuler(axis, eRedX, "red", true, special)->SetRect(QRect(0, 0, 5, 5));
        axis.SetShowResultFlag(eRedX, !result); // that of the axis does not count
        ResortPopupMenu * const menu = axis.GetContextMenu();
        QVERIFY(menu->parentWidget() == &axis);
        QTEST(ItemsOf(menu), "told");
        QTEST(LookOf(menu, 3013), "look");
        QTEST(LookOf(menu, 4013), "panelLook");
        QCOMPARE(menu->FindItem(3013)->icon().pixmap(16, 16).toImage(),
                 AxisBase::GetAxisMenuPixmap(alongX, IColorBase::eColorMarker).toImage());
        menu->FindItem(3013)->trigger();
        QCOMPARE(axis.m_called, List({ "slotShowRuler 3013" })); // once
        if (QAction * const item = menu->FindItem(4013)) {
            axis.m_called.clear();
            item->setEnabled(true);
            item->trigger();
            QCOMPARE(axis.m_called, List({ "slotShowRulerPanel 4013" }));
            QVERIFY(item->icon().isNull());
        }
    }
}

void tst_axisbase_markermenu::stateFromThePane_data()
{
    QTest::addColumn<bool>("inPane");
    QTest::addColumn<bool>("paneShows");
    QTest::addColumn<QString>("item");
    QTest::newRow("the pane shows it") << true << true << QStringLiteral("3013 Hide red");
    QTest::newRow("the pane hides it") << true << false << QStringLiteral("3013 Show red");
    QTest::newRow("the pane has none: this list shows it") << false << false << QStringLiteral("3013 Hide red");
}

void tst_axisbase_markermenu::stateFromThePane()
{
    QFETCH(bool, inPane);
    QFETCH(bool, paneShows);
    TestMarkerList pane;
    if (inPane)
        AddRuler(pane, eRedX, "", paneShows);
    MenuAxis axis;
    axis.SetMenuMarkerPane(&pane);
    AddRuler(axis, eRedX, "red")->SetRect(QRect(0, 0, 5, 5));
    QTEST(ItemsOf(axis).first(), "item");
}

void tst_axisbase_markermenu::eachOpeningBuildsItAnew()
{
    TestMarkerList pane;
    MenuAxis axis;
    axis.SetMenuMarkerPane(&pane);
    AddRuler(axis, eRedX, "red")->SetRect(QRect(0, 0, 5, 5));
    axis.BuildMenu();
    QPointer<ResortPopupMenu> const first(axis.GetContextMenu());
    QPointer<ResortPopupMenu> const second(axis.GetContextMenu());
    QVERIFY(!first && second);
    axis.SetCurrentXYMenu(QPoint(50, 50));
    QVERIFY(axis.GetContextMenu() != second);
    QVERIFY(second); // until the next one
    QCOMPARE(axis.findChildren<ResortPopupMenu *>().size(), 2);
}

void tst_axisbase_markermenu::singleMenuRebuiltWhileShown()
{
    TestMarkerList pane;
    MenuAxis axis;
    axis.SetMenuMarkerPane(&pane);
    AddRuler(axis, eRedX, "red")->SetRect(QRect(0, 0, 5, 5));
    QPointer<ResortPopupMenu> const shown(axis.GetContextMenu());
    shown->popup(QPoint(5, 5));
    QPointer<ResortPopupMenu> const next(axis.GetContextMenu());
    QVERIFY(shown && next && next != shown);
    shown->close();
    DrainDeferredDeletes();
    QVERIFY(!shown && next);
}

void tst_axisbase_markermenu::rightClickOpensIt()
{
    TestMarkerList pane;
    MenuAxis axis;
    axis.SetMenuMarkerPane(&pane);
    AddRuler(axis, eRedX, "red")->SetRect(QRect(20, 0, 5, 5));
    axis.BuildMenu();
    axis.show();
    auto const click = [&](QPoint const & at) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, axis.mapToGlobal(at));
        QCoreApplication::sendEvent(&axis, &event);
        QWidget * const popup = QApplication::activePopupWidget();
        QString const name = popup ? popup->objectName() : QString();
        if (popup)
            popup->close();
        return name;
    };
    QCOMPARE(click(QPoint(90, 2)), QStringLiteral("AxisMenu"));
    QCOMPARE(click(QPoint(22, 2)), QStringLiteral("SingleMarkerMenu")); // the second answer knows the place
    QCOMPARE(axis.GetCurrentXYMenu(), QPoint(22, 2));
    QCOMPARE(click(QPoint(90, 2)), QStringLiteral("AxisMenu"));
    axis.EnableContextMenu(false);
    QCOMPARE(click(QPoint(90, 2)), QString());
}

void tst_axisbase_markermenu::anotherClosesTheFirst()
{
    TestMarkerList pane;
    MenuAxis axis;
    axis.SetMenuMarkerPane(&pane);
    AddRuler(axis, eRedX, "red")->SetRect(QRect(20, 0, 5, 5));
    axis.BuildMenu();
    axis.show();
    QPointer<ResortPopupMenu> earlier;
    for (QPoint const at : { QPoint(22, 2), QPoint(90, 2), QPoint(22, 2), QPoint(22, 2) }) {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, at, axis.mapToGlobal(at));
        QCoreApplication::sendEvent(&axis, &event);
        QVERIFY(!earlier || !earlier->isVisible());
        earlier = qobject_cast<ResortPopupMenu *>(QApplication::activePopupWidget());
        QVERIFY(earlier);
    }
    earlier->close();
    QVERIFY(!QApplication::activePopupWidget());
}

// What the items do

void tst_axisbase_markermenu::showsAndHides_data()
{
    QTest::addColumn<bool>("inPane");
    QTest::addColumn<bool>("paneShows");
    QTest::addColumn<bool>("axisShows");
    QTest::addColumn<int>("show");
    QTest::newRow("the pane hides it") << true << false << true << 1;
    QTest::newRow("the pane shows it") << true << true << false << 0;
    QTest::newRow("the pane has none, shown here") << false << false << true << 0;
    QTest::newRow("the pane has none, hidden here") << false << false << false << 1;
}

void tst_axisbase_markermenu::showsAndHides()
{
    QFETCH(bool, inPane);
    QFETCH(bool, paneShows);
    QFETCH(bool, axisShows);
    QFETCH(int, show);
    TestMarkerList pane;
    if (inPane)
        AddRuler(pane, eRedX, "", paneShows);
    AxisProbe axis;
    axis.SetMenuMarkerPane(&pane);
    AddRuler(axis, eRedX, "red", axisShows)->Set_ValuePath(QStringLiteral("/some/path"));
    Told const told(axis);
    axis.slotShowRuler(3013);
    QCOMPARE(told.m_told,
             QStringList({ QStringLiteral("/some/path 0 %1").arg(show), QStringLiteral("/some/path 3 1") }));
    QCOMPARE(axis.GetShowMarkerFlag(eRedX), axisShows); // that is for those who hear of it
}

void tst_axisbase_markermenu::oddNumbers_data()
{
    QTest::addColumn<int>("id");
    for (int const id : { 2999, 2987, 13, 0, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), 3000,
                          3011, 3012, 3043, 3100, 3999, 4000, 4011, 4012, 4013, 4043, 1003 })
        QTest::addRow("ruler %d", id) << id;
}

void tst_axisbase_markermenu::oddNumbers()
{
    QFETCH(int, id);
    TestMarkerList pane;
    AddRuler(pane, eRedX, "");
    AddRuler(pane, eBlueX, ""); // only here
    AxisProbe axis;
    axis.SetMenuMarkerPane(&pane);
    AddRuler(axis, eRedX, "red");
    Told const told(axis);
    axis.slotShowRuler(id);
    QVERIFY(told.m_told.isEmpty());
    pane.Forget();
    bool const isPanel = id == 4013;
    axis.slotShowRulerPanel(id);
    QCOMPARE(pane.GetShowResultFlag(eRedX), isPanel);
    QVERIFY(!pane.GetShowResultFlag(eBlueX));
    QCOMPARE(pane.m_calls.isEmpty(), !isPanel);
}

void tst_axisbase_markermenu::itemPassesItsNumberOnce()
{
    TestMarkerList pane;
    AxisProbe axis;
    axis.SetMenuMarkerPane(&pane);
    AddRuler(axis, eRedX, "red")->SetRect(QRect(0, 0, 5, 5));
    axis.BuildMenu();
    for (QPoint const position : { QPoint(2, 2), QPoint(50, 50) }) {
        Told const told(axis);
        axis.SetCurrentXYMenu(position);
        axis.GetContextMenu()->FindItem(3013)->trigger();
        QCOMPARE(told.m_told.size(), 2);
    }
}

void tst_axisbase_markermenu::placedOnShow_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("shown");
    QTest::addColumn<int>("special");
    QTest::addColumn<int>("inPane"); // -1: the pane has none, 0: hides it, 1: shows it
    QTest::addColumn<double>("value");
    int const x = AxisBase::AxisHorizontal;
    int const y = AxisBase::AxisVertical;
    int const place = int(eSpecialPlaceOnShow);
    QTest::newRow("along x") << x << false << place << -1 << 20.0;
    QTest::newRow("along y") << y << false << place << -1 << 70.0;
    QTest::newRow("no direction: y, by the horizontal scale") << 0 << false << place << -1 << 30.0;
    QTest::newRow("shown already") << x << true << place << -1 << 5.0;
    QTest::newRow("both directions: x, by the vertical scale") << (x | y) << false << place << -1 << 80.0;
    QTest::newRow("the pane hides it") << x << true << place << 0 << 20.0;
    QTest::newRow("the pane shows it") << x << false << place << 1 << 5.0;
    QTest::newRow("without the bit") << x << false << 0 << -1 << 5.0;
}

void tst_axisbase_markermenu::placedOnShow()
{
    QFETCH(int, type);
    QFETCH(bool, shown);
    QFETCH(int, special);
    QFETCH(int, inPane);
    TestMarkerList pane;
    if (inPane >= 0)
        AddRuler(pane, eRedX, "", inPane == 1);
    AxisProbe axis(static_cast<unsigned int>(type), 101, 101);
    axis.SetRange(0.0, 100.0);
    axis.SetMenuMarkerPane(&pane);
    axis.SetCurrentXYMenu(QPoint(20, 30));
    Marker * const marker = AddRuler(axis, eRedX, "red", shown, InMenu | static_cast<unsigned int>(special));
    marker->SetValue(5.0);
    axis.slotShowRuler(3013);
    QTEST(marker->GetValue(), "value");
}

void tst_axisbase_markermenu::mouseMovingMarker()
{
    TestMarkerList pane;
    AddRuler(pane, eMouseMove, "", false);
    AddRuler(pane, eRedX, "", false);
    AxisProbe axis;
    axis.SetMenuMarkerPane(&pane);
    AddRuler(axis, eMouseMove, "mouse");
    AddRuler(axis, eRedX, "red");
    axis.slotShowRuler(3013);
    QVERIFY(!MarkerList::m_sMouseMovingMarker); // only the last index counts
    axis.slotShowRuler(3042);
    QVERIFY(MarkerList::m_sMouseMovingMarker);
    pane.SetShowMarker(eMouseMove, true);
    pane.SetShowMarker(eRedX, true);
    axis.slotShowRuler(3013);
    QVERIFY(MarkerList::m_sMouseMovingMarker);
    axis.slotShowRuler(3042);
    QVERIFY(!MarkerList::m_sMouseMovingMarker);
}

void tst_axisbase_markermenu::resultPanel()
{
    TestMarkerList pane;
    AddRuler(pane, eRedX, "");
    AxisProbe axis;
    AddRuler(axis, eRedX, "red");
    AddRuler(axis, eBlueX, "blue");
    axis.slotShowRulerPanel(4013);
    QVERIFY(!axis.GetShowResultFlag(eRedX)); // no pane
    axis.SetMenuMarkerPane(&pane);
    pane.Forget();
    axis.slotShowRulerPanel(4013);
    QVERIFY(pane.GetShowResultFlag(eRedX) && !axis.GetShowResultFlag(eRedX));
    QCOMPARE(pane.m_calls.last(), QStringLiteral("RepairDrawing"));
    axis.slotShowRulerPanel(4013);
    QVERIFY(!pane.GetShowResultFlag(eRedX));
    pane.Forget();
    axis.slotShowRulerPanel(4011); // the pane has none, and is repaired
    QCOMPARE(pane.m_calls, List({ "RepairDrawing" }));
}

void tst_axisbase_markermenu::hideAll()
{
    AxisProbe axis;
    AddRuler(axis, eBlueX, "blue", true, 0)->Set_ValuePath(QStringLiteral("/blue"));
    AddRuler(axis, eRedX, "red");
    AddRuler(axis, eRedY, "y", false)->Set_ValuePath(QStringLiteral("/y"));
    Told const told(axis);
    axis.slotHideAllRuler(); // without a pane, and whatever their bits
    for (int const index : { eBlueX, eRedX, eRedY })
        QVERIFY(!axis.GetShowMarkerFlag(index));
    QCOMPARE(told.m_told, List({ "/blue 0 0", "/blue 3 0", " 0 0", "/y 3 0" }));
}

void tst_axisbase_markermenu::hearersEndTheAxis_data()
{
    QTest::addColumn<int>("after");
    QTest::addColumn<bool>("pane");
    QTest::addColumn<bool>("all");
    for (int const after : { 1, 2, 3 })
        for (bool const pane : { false, true })
            for (bool const all : { false, true })
                QTest::addRow("the %s ends as %d is told, %s", pane ? "pane" : "axis", after,
                              all ? "all are hidden" : "one is shown")
                    << after << pane << all;
}

void tst_axisbase_markermenu::hearersEndTheAxis()
{
    QFETCH(int, after);
    QFETCH(bool, pane);
    QFETCH(bool, all);
    QPointer<TestMarkerList> const list(new TestMarkerList);
    AddRuler(*list, eRedX, "", false);
    QPointer<AxisProbe> const axis(new AxisProbe);
    axis->SetMenuMarkerPane(list);
    unsigned int const special = InMenu | eSpecialPlaceOnShow;
    AddRuler(*axis, eRedX, "red", all, special)->Set_ValuePath(QStringLiteral("/red"));
    AddRuler(*axis, eBlueX, "blue", all, special)->Set_ValuePath(QStringLiteral("/blue"));
    Told told(*axis);
    told.m_then = [&] {
        if (told.m_told.size() == after)
            delete (pane ? static_cast<QWidget *>(list) : axis);
    };
    all ? axis->slotHideAllRuler() : axis->slotShowRuler(3013);
    int const full = all ? 4 : 2;
    QCOMPARE(static_cast<int>(told.m_told.size()), pane ? full : std::min(after, full));
    delete axis;
    delete list;
}

void tst_axisbase_markermenu::hearerEndsTheMarker()
{
    TestMarkerList pane;
    AxisProbe axis;
    axis.SetMenuMarkerPane(&pane);
    AddRuler(axis, eRedX, "red")->Set_ValuePath(QStringLiteral("/red"));
    AddRuler(axis, eBlueX, "blue")->Set_ValuePath(QStringLiteral("/blue"));
    Told told(axis);
    told.m_then = [&] {
        axis.DeleteMarker(eRedX);
        axis.DeleteMarker(eBlueX);
    };
    axis.slotHideAllRuler();
    QCOMPARE(told.m_told, List({ "/blue 0 0" }));
    AddRuler(axis, eRedX, "red")->Set_ValuePath(QStringLiteral("/red"));
    told.m_told.clear();
    axis.slotShowRuler(3013);
    QCOMPARE(told.m_told, List({ "/red 0 0", "/red 3 1" }));
}

ORIM_TEST_MAIN(tst_axisbase_markermenu)
#include "tst_axisbase_markermenu.moc"
