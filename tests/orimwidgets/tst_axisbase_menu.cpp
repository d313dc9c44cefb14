// SPDX-License-Identifier: MIT
// The context menu of an axis.
#include "menuprobe.h"

#include "guibase.h"
#include "iupdatemenu.h"
#include "marker.h"
#include "resortpopupmenu.h"
#include "testmain.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QTranslator>

#include <functional>

namespace {

class German : public QTranslator
{
public:
    bool isEmpty() const override { return false; }

    QString translate(char const * context, char const * source, char const * /*comment*/, int /*n*/) const override
    {
        return qstrcmp(context, "AxisBase") == 0 ? QStringLiteral("de:") + QLatin1String(source) : QString();
    }
};

} // namespace

class tst_axisbase_menu : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void cleanup();

    // the general menu
    void items_data();
    void items();
    void receivers_data();
    void receivers();
    void markerItems();
    void namesAndParents();
    void textsAreTranslated();
    void enableFlags();
    void comesWithTheAxis();
    void zoomEnableBuildsIt();
    void colorsBuildItAnew();
    void overridesAreHonoured();

    // its life
    void anotherDeletesTheEarlier();
    void foreignMenuIsLeftAlone();
    void foreignMenuGoesWithoutPages();
    void rebuiltWhileShown();
    void rebuiltWhileItTells();
    void rebuiltWhileItIsUpdated();
    void axisEndsWhileItTells();
    void axisEndsWhileItIsShown();
    void axisEndsWhileARetiredMenuTells();
    void singleMenuGoesWithTheAxis();
    void endsWhileItOpens_data();
    void endsWhileItOpens();

    // before it is shown
    void updatedBeforeItIsShown();
    void checkedFromThePane_data();
    void checkedFromThePane();
    void markerThatEnded();
    void withoutPaneNothingIsUpdated();
    void paneThatEnded();
    void rangeItems_data();
    void rangeItems();
    void bestRangeIsNeverDisabled();
    void unZoomItem();
    void updatesTheStoredMenu();
};

void tst_axisbase_menu::cleanup()
{
    DrainDeferredDeletes();
    MarkerList::SetMouseMovingMarker(false);
}

// The general menu

void tst_axisbase_menu::items_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("zoom");
    QTest::addColumn<bool>("ranges");
    QTest::addColumn<bool>("page");
    QTest::addColumn<int>("markers");
    QTest::addColumn<QStringList>("told");
    int const x = AxisBase::AxisHorizontal;
    int const y = AxisBase::AxisVertical;
    QString const page = QStringLiteral("-1 Properties...");
    QString const line = QStringLiteral("--");
    QString const unZoom = QStringLiteral("1003 UnZoom");
    QStringList const one = List({ "3011 blue" });
    QStringList const two = List({ "-1 Hide All Ruler", "--", "3011 blue", "3013 red" });
    QStringList const alongX = List({ "1001 Maximum Range", "1000 Default Range", "1003 UnZoom" });
    QStringList const alongY = List({ "1002 Default Range", "1000 Maximum Range", "1003 UnZoom" });
    QTest::newRow("nothing") << x << false << false << false << 0 << QStringList();
    QTest::newRow("settings alone have no line above") << x << false << false << true << 0 << QStringList(page);
    QTest::newRow("zoom alone") << x << true << false << false << 0 << QStringList(unZoom);
    QTest::newRow("zoom and settings") << x << true << false << true << 0 << (QStringList(unZoom) << line << page);
    QTest::newRow("ranges along x") << x << true << true << false << 0 << alongX;
    QTest::newRow("ranges along y lead elsewhere") << y << true << true << false << 0 << alongY;
    QTest::newRow("ranges without a direction as along y") << 0 << true << true << false << 0 << alongY;
    QTest::newRow("ranges along both as along x") << (x | y) << true << true << false << 0 << alongX;
    QTest::newRow("ranges without zoom") << y << false << true << true << 0 << QStringList(page);
    QTest::newRow("one marker has no item for all") << x << false << false << false << 1 << one;
    QTest::newRow("two markers") << x << false << false << false << 2 << two;
    QTest::newRow("one marker and settings") << x << false << false << true << 1 << (QStringList(one) << line << page);
    QTest::newRow("one marker and zoom") << x << true << false << false << 1 << (QStringList(one) << line << unZoom);
    QTest::newRow("all along x") << x << true << true << true << 2
                                 << (QStringList(two) << line << alongX << line << page);
    QTest::newRow("all along y") << y << true << true << true << 2
                                 << (QStringList(two) << line << alongY << line << page);
}

void tst_axisbase_menu::items()
{
    QFETCH(int, type);
    QFETCH(bool, zoom);
    QFETCH(bool, ranges);
    QFETCH(bool, page);
    QFETCH(int, markers);
    MenuAxis axis(static_cast<unsigned int>(type));
    if (markers > 1)
        AddRuler(axis, eRedX, "red", false); // a hidden one has its item, too
    if (markers > 0)
        AddRuler(axis, eBlueX, "blue");
    AddRuler(axis, eYellowX, "not in the menu", true, ~InMenu);
    axis.EnablePropertyPage(page);
    axis.SetAxisZoomEnable(zoom, ranges);
    QTEST(ItemsOf(axis), "told");
    for (QAction const * const action : axis.GetContextMenu()->actions()) {
        QVERIFY(action->shortcut().isEmpty());
        QVERIFY(!action->isCheckable() && action->isEnabled());
    }
}

void tst_axisbase_menu::receivers_data()
{
    QTest::addColumn<bool>("alongX");
    QTest::addColumn<QString>("item");
    QTest::addColumn<QStringList>("told");
    QTest::newRow("hide all") << true << QStringLiteral("-1 Hide All Ruler")
                              << List({ "slotHideAllRuler", "slotShowRuler -1" });
    QTest::newRow("a marker") << true << QStringLiteral("3013 red") << List({ "slotShowRuler 3013" });
    QTest::newRow("maximum along x is the device")
        << true << QStringLiteral("1001 Maximum Range") << List({ "ZoomToDevice", "slotShowRuler 1001" });
    QTest::newRow("default along x") << true << QStringLiteral("1000 Default Range")
                                     << List({ "ZoomToDefault", "slotShowRuler 1000" });
    QTest::newRow("default along y is the best")
        << false << QStringLiteral("1002 Default Range") << List({ "ZoomToBest", "slotShowRuler 1002" });
    QTest::newRow("maximum along y is the default")
        << false << QStringLiteral("1000 Maximum Range") << List({ "ZoomToDefault", "slotShowRuler 1000" });
    QTest::newRow("back") << false << QStringLiteral("1003 UnZoom") << List({ "UnZoom", "slotShowRuler 1003" });
    QTest::newRow("settings") << false << QStringLiteral("-1 Properties...")
                              << List({ "slotShowProperties", "slotShowRuler -1" });
}

//! The receiver of the item first, then the number to the slot of the markers.
void tst_axisbase_menu::receivers()
{
    QFETCH(bool, alongX);
    QFETCH(QString, item);
    MenuAxis axis(alongX ? AxisBase::AxisHorizontal : AxisBase::AxisVertical);
    AddRuler(axis, eBlueX, "blue");
    AddRuler(axis, eRedX, "red");
    axis.SetAxisZoomEnable(true, true);
    int const index = static_cast<int>(ItemsOf(axis).indexOf(item));
    QVERIFY(index >= 0);
    axis.GetContextMenu()->actions().at(index)->trigger();
    QTEST(axis.m_called, "told");
}

void tst_axisbase_menu::markerItems()
{
    for (bool const alongX : { true, false }) {
        MenuAxis axis(alongX ? AxisBase::AxisHorizontal : AxisBase::AxisVertical);
        AddRuler(axis, eMouseMove, "last");
        Marker * const first = AddRuler(axis, 0, "first");
        first->SetColor(IColorBase::eColorAxisForeground);
        axis.BuildMenu();
        ResortPopupMenu * const menu = axis.GetContextMenu();
        QCOMPARE(ItemsOf(menu).mid(2, 2), List({ "3000 first", "3042 last" })); // by rising index
        QImage const picture = menu->FindItem(3000)->icon().pixmap(16, 16).toImage();
        QCOMPARE(picture, AxisBase::GetAxisMenuPixmap(alongX, IColorBase::eColorAxisForeground).toImage());
        QCOMPARE(picture.pixelColor(alongX ? 7 : 0, alongX ? 0 : 1),
                 ColorSet::Instance()[IColorBase::eColorAxisForeground]);
        QCOMPARE(picture.pixelColor(15, 0).alpha(), 0);
        QVERIFY(picture != menu->FindItem(3042)->icon().pixmap(16, 16).toImage());
    }
}

void tst_axisbase_menu::namesAndParents()
{
    MenuAxis axis;
    axis.BuildMenu();
    QCOMPARE(axis.GetContextMenu()->objectName(), QStringLiteral("AxisMenu"));
    QVERIFY(axis.GetContextMenu()->parentWidget() == &axis);
    QCOMPARE(axis.findChildren<ResortPopupMenu *>().size(), 1); // that of CreateContextProperty() is gone
}

void tst_axisbase_menu::textsAreTranslated()
{
    German german;
    QCoreApplication::installTranslator(&german);
    TestMarkerList pane;
    MenuAxis axis;
    axis.SetMenuMarkerPane(&pane);
    AddRuler(axis, eBlueX, "blue");
    AddRuler(axis, eRedX, "red", false, InMenu | eSpecialPanelMenu)->SetRect(QRect(0, 0, 5, 5));
    axis.SetAxisZoomEnable(true, true);
    QCOMPARE(ItemsOf(axis), List({ "-1 de:Hide All Ruler", "--", "3011 blue", "3013 red", "--", "1001 de:Maximum Range",
                                   "1000 de:Default Range", "1003 de:UnZoom", "--", "-1 de:Properties..." }));
    axis.SetMarkerSpecial(eRedX, axis.GetMarkerSpecial(eRedX) | eSpecialAlwaysShow);
    QCOMPARE(ItemsOf(axis), List({ "3013 de:Hide red", "4013 de:Show Result Panel" }));
    AddRuler(pane, eRedX, "", false);
    QCOMPARE(ItemsOf(axis), List({ "3013 de:Show red", "4013 de:Show Result Panel" }));
    MenuAxis vertical(AxisBase::AxisVertical);
    vertical.SetAxisZoomEnable(true, true);
    QCOMPARE(ItemsOf(vertical).mid(0, 2), List({ "1002 de:Default Range", "1000 de:Maximum Range" }));
    QCoreApplication::removeTranslator(&german);
    axis.BuildMenu();
    QVERIFY(ItemsOf(vertical).first().contains(QStringLiteral("de:"))); // built before
    vertical.BuildMenu();
    QCOMPARE(ItemsOf(vertical).first(), QStringLiteral("1002 Default Range"));
}

void tst_axisbase_menu::enableFlags()
{
    MenuAxis axis;
    QVERIFY(axis.GetContextMenuEnabled()); // by the construction
    axis.EnableContextMenu(false);
    axis.EnablePropertyPage(false);
    axis.BuildMenu();
    QVERIFY(!axis.GetContextMenuEnabled());
    QVERIFY(ItemsOf(axis).isEmpty());
    axis.EnablePropertyPage(true);
    axis.BuildMenu();
    QVERIFY(axis.GetContextMenuEnabled());
    QVERIFY(!axis.hasContextMenu() && !axis.hasPropertyPage());
}

void tst_axisbase_menu::comesWithTheAxis()
{
    AxisBase axis;
    QVERIFY(axis.GetContextMenu());
    QCOMPARE(ItemsOf(axis), List({ "-1 Properties..." }));
}

void tst_axisbase_menu::zoomEnableBuildsIt()
{
    MenuAxis axis;
    axis.SetAxisZoomEnable(true, false);
    QCOMPARE(axis.m_menus, 1);
    QVERIFY(axis.GetContextMenu()->FindItem(1003) && !axis.GetContextMenu()->FindItem(1000));
    axis.SetAxisZoomEnable(true, true);
    QVERIFY(axis.GetContextMenu()->FindItem(1000));
    axis.SetAxisZoomEnable(false, true);
    QVERIFY(!axis.GetContextMenu()->FindItem(1003)); // a disabled zoom gives none
    QCOMPARE(axis.m_menus, 3);
}

void tst_axisbase_menu::colorsBuildItAnew()
{
    MenuAxis axis;
    AddRuler(axis, eRedX, "red");
    QVERIFY(!axis.GetContextMenu()->FindItem(3013));
    GuiBase::Instance().emit_signalColorsChanged();
    QCOMPARE(axis.m_menus, 1);
    QVERIFY(axis.GetContextMenu()->FindItem(3013));
}

void tst_axisbase_menu::overridesAreHonoured()
{
    class Own : public MenuAxis
    {
    public:
        int m_created = 0;
        QWidget * m_parent = nullptr;
        char const * m_name = "";

        void CreateContextProperty(QWidget * parent, char const * name) override
        {
            ++m_created;
            m_parent = parent;
            m_name = name;
        }
    };

    Own axis;
    axis.BuildMenu();
    QCOMPARE(axis.m_created, 1);
    QVERIFY(axis.m_parent == &axis && !axis.m_name);
    axis.EnablePropertyPage(false);
    axis.BuildMenu();
    QCOMPARE(axis.m_created, 1);
}

// Its life

void tst_axisbase_menu::anotherDeletesTheEarlier()
{
    for (bool const page : { true, false }) {
        MenuAxis axis;
        axis.EnablePropertyPage(page);
        axis.BuildMenu();
        QPointer<ResortPopupMenu> const earlier(axis.GetContextMenu());
        axis.BuildMenu();
        QVERIFY(!earlier);
        QVERIFY(axis.GetContextMenu());
        QCOMPARE(axis.findChildren<ResortPopupMenu *>().size(), 1);
    }
}

//! A menu that the application set stays; it lost the axis' own one from sight, which goes all the same.
void tst_axisbase_menu::foreignMenuIsLeftAlone()
{
    MenuAxis axis;
    axis.BuildMenu();
    QPointer<ResortPopupMenu> const earlier(axis.GetContextMenu());
    ResortPopupMenu foreign;
    axis.SetContextMenu(&foreign, false);
    QVERIFY(earlier);
    axis.BuildMenu();
    QVERIFY(!earlier);
    QVERIFY(axis.GetContextMenu() != &foreign);
    QVERIFY(foreign.actions().isEmpty());
}

void tst_axisbase_menu::foreignMenuGoesWithoutPages()
{
    MenuAxis axis;
    axis.EnablePropertyPage(false);
    QPointer<ResortPopupMenu> const foreign(new ResortPopupMenu);
    axis.SetContextMenu(foreign, false);
    axis.BuildMenu();
    QVERIFY(!foreign);
    QVERIFY(axis.GetContextMenu());
}

void tst_axisbase_menu::rebuiltWhileShown()
{
    MenuAxis axis;
    AddRuler(axis, eRedX, "red");
    axis.BuildMenu();
    QPointer<ResortPopupMenu> const shown(axis.GetContextMenu());
    shown->popup(QPoint(5, 5));
    QVERIFY(shown->isVisible());
    axis.BuildMenu();
    axis.BuildMenu();
    DrainDeferredDeletes();
    QVERIFY(shown && shown->isVisible());
    QVERIFY(axis.GetContextMenu() != shown);
    shown->FindItem(3013)->trigger(); // and it still works
    QCOMPARE(axis.m_called, List({ "slotShowRuler 3013" }));
    shown->close();
    DrainDeferredDeletes();
    QVERIFY(!shown);
    QCOMPARE(axis.findChildren<ResortPopupMenu *>().size(), 1);
}

void tst_axisbase_menu::rebuiltWhileItTells()
{
    class Rebuilds : public MenuAxis
    {
    public:
        void UnZoom() override
        {
            BuildMenu();
            m_called << QStringLiteral("UnZoom");
        }
    };

    Rebuilds axis;
    axis.SetAxisZoomEnable(true, false);
    QPointer<ResortPopupMenu> const telling(axis.GetContextMenu());
    telling->popup(QPoint(5, 5));
    telling->setActiveAction(telling->FindItem(1003));
    QTest::keyClick(telling.data(), Qt::Key_Return);
    QCOMPARE(axis.m_called, List({ "UnZoom", "slotShowRuler 1003" }));
    QVERIFY(axis.GetContextMenu() && axis.GetContextMenu() != telling);
    DrainDeferredDeletes();
    QVERIFY(!telling);
}

void tst_axisbase_menu::rebuiltWhileItIsUpdated()
{
    class Rebuilds : public MenuAxis
    {
    public:
        int m_updates = 0;

        void UpdateMenu(ResortPopupMenu * menu) override
        {
            if (++m_updates == 1)
                BuildMenu();
            MenuAxis::UpdateMenu(menu);
        }
    };

    Rebuilds axis;
    axis.BuildMenu();
    QPointer<ResortPopupMenu> const shown(axis.GetContextMenu());
    shown->popup(QPoint(5, 5));
    QVERIFY(shown && shown->isVisible());
    QCOMPARE(axis.m_updates, 1);
    shown->close();
    DrainDeferredDeletes();
    QVERIFY(!shown);
}

void tst_axisbase_menu::axisEndsWhileItTells()
{
    class Ends : public MenuAxis
    {
    public:
        void UnZoom() override { delete this; }
    };

    for (bool const byKey : { true, false }) {
        QPointer<Ends> const axis(new Ends);
        axis->SetAxisZoomEnable(true, false);
        QPointer<ResortPopupMenu> const telling(axis->GetContextMenu());
        telling->popup(QPoint(5, 5));
        telling->setActiveAction(telling->FindItem(1003));
        if (byKey)
            QTest::keyClick(telling.data(), Qt::Key_Return);
        else
            QTest::mouseClick(telling.data(), Qt::LeftButton, Qt::NoModifier,
                              telling->actionGeometry(telling->FindItem(1003)).center());
        QVERIFY(!axis);
        QVERIFY(telling); // Qt still works on it
        QVERIFY(!telling->isVisible());
        DrainDeferredDeletes();
        QVERIFY(!telling);
    }
}

void tst_axisbase_menu::axisEndsWhileItIsShown()
{
    auto axis = std::make_unique<MenuAxis>();
    QPointer<ResortPopupMenu> const shown(axis->GetContextMenu());
    shown->popup(QPoint(5, 5));
    axis.reset();
    QVERIFY(!shown);
    QVERIFY(!QApplication::activePopupWidget());
}

void tst_axisbase_menu::axisEndsWhileARetiredMenuTells()
{
    class Ends : public MenuAxis
    {
    public:
        bool m_rebuild = false;

        void UnZoom() override
        {
            if (m_rebuild)
                BuildMenu();
            delete this;
        }
    };

    for (bool const inSlot : { true, false }) {
        QPointer<Ends> const axis(new Ends);
        axis->SetAxisZoomEnable(true, false);
        axis->m_rebuild = inSlot;
        QPointer<ResortPopupMenu> const telling(axis->GetContextMenu());
        telling->popup(QPoint(5, 5));
        if (!inSlot)
            axis->BuildMenu(); // it stays open
        telling->setActiveAction(telling->FindItem(1003));
        QTest::keyClick(telling.data(), Qt::Key_Return);
        QVERIFY(!axis);
        QVERIFY(telling); // Qt still works on it
        DrainDeferredDeletes();
        QVERIFY(!telling);
    }
}

void tst_axisbase_menu::singleMenuGoesWithTheAxis()
{
    for (bool const none : { true, false }) {
        TestMarkerList pane;
        QWidget other;
        QPointer<ResortPopupMenu> menu;
        {
            MenuAxis axis;
            axis.SetMenuMarkerPane(&pane);
            AddRuler(axis, eRedX, "red")->SetRect(QRect(0, 0, 5, 5));
            axis.SetWidget(none ? nullptr : &other);
            menu = axis.GetContextMenu();
            QVERIFY(menu && menu->parentWidget() == axis.GetWidget());
        }
        QVERIFY(!menu);
    }
}

void tst_axisbase_menu::endsWhileItOpens_data()
{
    QTest::addColumn<bool>("byClient");
    QTest::addColumn<bool>("rebuilt");
    QTest::newRow("built anew as Qt tells of it") << false << true;
    QTest::newRow("the axis ends as Qt tells of it") << false << false;
    QTest::newRow("built anew by a client") << true << true;
    QTest::newRow("the axis ends by a client") << true << false;
}

//! A menu that is built anew while it opens stays until it closes; one whose axis ends goes as soon as Qt is done.
void tst_axisbase_menu::endsWhileItOpens()
{
    class Client : public IUpdateMenu
    {
    public:
        std::function<void()> m_then;

        void UpdateMenu(ResortPopupMenu * /*menu*/) override { m_then(); }
    };

    QFETCH(bool, byClient);
    QFETCH(bool, rebuilt);
    QPointer<MenuAxis> const axis(new MenuAxis);
    axis->SetAxisZoomEnable(true, false);
    axis->show();
    QPointer<ResortPopupMenu> const menu(axis->GetContextMenu());
    auto const then = [&] {
        if (rebuilt)
            axis->BuildMenu();
        else
            delete axis.data();
    };
    Client client;
    client.m_then = then;
    if (byClient)
        menu->NotifyBeforeShow(&client);
    else
        connect(menu, &QMenu::aboutToShow, this, then);
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), axis->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(axis, &event);
    QVERIFY(menu);
    QCOMPARE(!axis, !rebuilt);
    QVERIFY(!menu->IsOpening());
    if (rebuilt) {
        DrainDeferredDeletes();
        QVERIFY(menu && menu->isVisible());
        QVERIFY(axis->GetContextMenu() != menu);
        menu->close();
    }
    DrainDeferredDeletes();
    QVERIFY(!menu);
    QVERIFY(!QApplication::activePopupWidget());
    delete axis.data();
}

// Before it is shown

void tst_axisbase_menu::updatedBeforeItIsShown()
{
    TestMarkerList pane;
    AddRuler(pane, eRedX, "", true);
    MenuAxis axis;
    AddRuler(axis, eRedX, "red");
    axis.SetMenuMarkerPane(&pane);
    axis.BuildMenu();
    ResortPopupMenu * const menu = axis.GetContextMenu();
    QCOMPARE(LookOf(menu, 3013), QStringLiteral("+"));
    menu->popup(QPoint(5, 5));
    QCOMPARE(LookOf(menu, 3013), QStringLiteral("+x"));
    menu->close();
    pane.SetShowMarker(eRedX, false);
    QCOMPARE(LookOf(menu, 3013), QStringLiteral("+x"));
    menu->popup(QPoint(5, 5));
    QCOMPARE(LookOf(menu, 3013), QStringLiteral("+o"));
    menu->close();
}

void tst_axisbase_menu::checkedFromThePane_data()
{
    QTest::addColumn<bool>("inPane");
    QTest::addColumn<bool>("shown");
    QTest::addColumn<int>("special");
    QTest::addColumn<QString>("look");
    QTest::newRow("shown") << true << true << 0 << QStringLiteral("+x");
    QTest::newRow("hidden") << true << false << 0 << QStringLiteral("+o");
    QTest::newRow("drawn though the flag is off") << true << false << int(eSpecialAlwaysShow) << QStringLiteral("+x");
    QTest::newRow("the pane has none") << false << true << 0 << QStringLiteral("+");
}

void tst_axisbase_menu::checkedFromThePane()
{
    QFETCH(bool, inPane);
    QFETCH(bool, shown);
    QFETCH(int, special);
    TestMarkerList pane;
    if (inPane)
        AddRuler(pane, eRedX, "", shown, static_cast<unsigned int>(special));
    MenuAxis axis;
    AddRuler(axis, eRedX, "red", !shown); // its own state does not count
    axis.SetMenuMarkerPane(&pane);
    axis.BuildMenu();
    axis.UpdateMenu(nullptr);
    QTEST(LookOf(axis.GetContextMenu(), 3013), "look");
}

void tst_axisbase_menu::markerThatEnded()
{
    TestMarkerList pane;
    AddRuler(pane, eRedX, "", true);
    AddRuler(pane, eBlueX, "", true);
    MenuAxis axis;
    AddRuler(axis, eRedX, "red");
    AddRuler(axis, eBlueX, "blue");
    axis.SetMenuMarkerPane(&pane);
    axis.BuildMenu();
    axis.DeleteMarker(eRedX);
    axis.SetMarkerSpecial(eBlueX, 0); // left the menu: its item stays as it is
    axis.UpdateMenu(axis.GetContextMenu());
    QCOMPARE(LookOf(axis.GetContextMenu(), 3013), QStringLiteral("-"));
    QCOMPARE(LookOf(axis.GetContextMenu(), 3011), QStringLiteral("+"));
}

void tst_axisbase_menu::withoutPaneNothingIsUpdated()
{
    MenuAxis axis;
    AddRuler(axis, eRedX, "red")->SetRect(QRect(0, 0, 50, 50));
    axis.SetAxisZoomEnable(true, true);
    axis.DeleteMarker(eRedX);
    axis.UpdateMenu(axis.GetContextMenu());
    ResortPopupMenu const * const menu = axis.GetContextMenu();
    for (int const id : { 3013, 1000, 1001, 1003 })
        QCOMPARE(LookOf(menu, id), QStringLiteral("+"));
}

void tst_axisbase_menu::paneThatEnded()
{
    auto pane = std::make_unique<TestMarkerList>();
    MenuAxis axis;
    AddRuler(axis, eRedX, "red")->SetRect(QRect(0, 0, 50, 50));
    axis.SetMenuMarkerPane(pane.get());
    QVERIFY(axis.m_pMenuMarkerPane == pane.get());
    axis.BuildMenu();
    pane.reset();
    axis.UpdateMenu(nullptr);
    QCOMPARE(axis.GetContextMenu()->objectName(), QStringLiteral("AxisMenu"));
    QCOMPARE(LookOf(axis.GetContextMenu(), 3013), QStringLiteral("+"));
    Told const told(axis);
    axis.AxisBase::slotShowRuler(3013);
    axis.AxisBase::slotShowRulerPanel(4013);
    QVERIFY(told.m_told.isEmpty());
}

void tst_axisbase_menu::rangeItems_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<QString>("defaultItem");
    QTest::addColumn<QString>("deviceItem");
    QString const on = QStringLiteral("+");
    QString const off = QStringLiteral("-");
    QTest::newRow("neither") << 3.0 << 9.0 << on << on;
    QTest::newRow("the default range") << 10.0 << 20.0 << off << on;
    QTest::newRow("its start alone") << 10.0 << 9.0 << on << on;
    QTest::newRow("its stop alone") << 3.0 << 20.0 << on << on;
    QTest::newRow("the range of the device") << 0.0 << 100.0 << on << off;
    QTest::newRow("its start alone ") << 0.0 << 20.0 << on << on;
    QTest::newRow("its stop alone ") << 10.0 << 100.0 << on << on;
}

void tst_axisbase_menu::rangeItems()
{
    QFETCH(double, start);
    QFETCH(double, stop);
    TestMarkerList pane;
    MenuAxis axis;
    axis.SetMenuMarkerPane(&pane);
    axis.SetAxisZoomEnable(true, true);
    axis.SetDefaultRange(10.0, 20.0);
    axis.SetDeviceRange(0.0, 100.0);
    axis.SetRange(start, stop);
    axis.UpdateMenu(nullptr);
    QTEST(LookOf(axis.GetContextMenu(), 1000), "defaultItem");
    QTEST(LookOf(axis.GetContextMenu(), 1001), "deviceItem");
    axis.SetRange(-5.0, 5.0);
    axis.UpdateMenu(nullptr);
    QCOMPARE(LookOf(axis.GetContextMenu(), 1000), QStringLiteral("+"));
    QCOMPARE(LookOf(axis.GetContextMenu(), 1001), QStringLiteral("+"));
}

void tst_axisbase_menu::bestRangeIsNeverDisabled()
{
    TestMarkerList pane;
    MenuAxis axis(AxisBase::AxisVertical);
    axis.SetMenuMarkerPane(&pane);
    axis.SetAxisZoomEnable(true, true);
    axis.SetDefaultRange(10.0, 20.0);
    axis.SetDeviceRange(10.0, 20.0);
    axis.SetRange(10.0, 20.0);
    axis.UpdateMenu(nullptr);
    QCOMPARE(LookOf(axis.GetContextMenu(), 1000), QStringLiteral("-"));
    QCOMPARE(LookOf(axis.GetContextMenu(), 1002), QStringLiteral("+"));
}

void tst_axisbase_menu::unZoomItem()
{
    TestMarkerList pane;
    MenuAxis axis;
    axis.SetMenuMarkerPane(&pane);
    axis.SetAxisZoomEnable(true, false);
    axis.SetRange(0.0, 100.0);
    axis.UpdateMenu(nullptr);
    QCOMPARE(LookOf(axis.GetContextMenu(), 1003), QStringLiteral("-"));
    QVERIFY(axis.SetZoomedRange(10.0, 20.0, true));
    axis.UpdateMenu(nullptr);
    QCOMPARE(LookOf(axis.GetContextMenu(), 1003), QStringLiteral("+"));
    axis.SetRange(500.0, 600.0); // away from the range to go back to, which the question forgets
    axis.UpdateMenu(nullptr);
    QCOMPARE(LookOf(axis.GetContextMenu(), 1003), QStringLiteral("-"));
    QVERIFY(axis.m_unZoom.empty());
}

void tst_axisbase_menu::updatesTheStoredMenu()
{
    TestMarkerList pane;
    MenuAxis axis;
    axis.SetMenuMarkerPane(&pane);
    axis.SetAxisZoomEnable(true, false);
    ResortPopupMenu other;
    other.insertItem(QStringLiteral("other"), 1003);
    axis.UpdateMenu(&other);
    QVERIFY(other.FindItem(1003)->isEnabled());
    QVERIFY(!axis.GetContextMenu()->FindItem(1003)->isEnabled());
    axis.SetContextMenu(nullptr, true);
    axis.UpdateMenu(&other);
    QVERIFY(other.FindItem(1003)->isEnabled());
}

ORIM_TEST_MAIN(tst_axisbase_menu)
#include "tst_axisbase_menu.moc"
