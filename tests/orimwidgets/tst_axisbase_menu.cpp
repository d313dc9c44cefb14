// SPDX-License-Identifier: MIT
// The context menu of an axis.
#include "axisprobe.h"
#include "testmarkerlist.h"

#include "guibase.h"
#include "marker.h"
#include "placeof.h"
#include "resortpopupmenu.h"
#include "testmain.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QSignalSpy>
#include <QTranslator>

#include <functional>

namespace {

constexpr unsigned int InMenu = eSpecialInMenu;

//! An axis whose menu a test may choose from: it notes what the items call.
class MenuAxis : public AxisProbe
{
public:
    explicit MenuAxis(unsigned int type = AxisHorizontal) : AxisProbe(type) { m_menus = 0; }

    QStringList m_called;

    bool ZoomToDefault() override { return Note("ZoomToDefault"); }

    bool ZoomToBest() override { return Note("ZoomToBest"); }

    void ZoomToDevice() override { Note("ZoomToDevice"); }

    void UnZoom() override { Note("UnZoom"); }

    void slotShowProperties() override { Note("slotShowProperties"); }

    void slotShowRuler(int id) override { m_called << QStringLiteral("slotShowRuler %1").arg(id); }

    void slotShowRulerPanel(int id) override { m_called << QStringLiteral("slotShowRulerPanel %1").arg(id); }

    void slotHideAllRuler() override { Note("slotHideAllRuler"); }

private:
    bool Note(char const * name)
    {
        m_called << QLatin1String(name);
        return true;
    }
};

Marker * AddRuler(MarkerList & list, int index, char const * name, bool show = true, unsigned int special = InMenu)
{
    return list.AddMarker(index, show, IColorBase::eColorMarker, true, special, QLatin1String(name));
}

//! Numbers and texts of the items, "--" for a separator.
QStringList ItemsOf(ResortPopupMenu const * menu)
{
    QStringList items;
    for (QAction * const action : menu->actions()) {
        bool const isSeparator = action->isSeparator();
        items << (isSeparator ? QStringLiteral("--")
                              : QStringLiteral("%1 %2").arg(menu->GetItemId(action)).arg(action->text()));
    }
    return items;
}

QStringList ItemsOf(AxisBase & axis) { return ItemsOf(axis.GetContextMenu()); }

//! How an item looks: "-" disabled, "+" enabled; then "x" checked, "o" not checked, nothing when it is not checkable.
QString LookOf(ResortPopupMenu const * menu, int id)
{
    QAction const * const item = menu->FindItem(id);
    if (!item)
        return QStringLiteral("none");
    QString const check = item->isCheckable() ? QLatin1String(item->isChecked() ? "x" : "o") : QLatin1String();
    return QLatin1String(item->isEnabled() ? "+" : "-") + check;
}

QStringList List(std::initializer_list<char const *> texts)
{
    QStringList list;
    for (char const * const text : texts)
        list << QLatin1String(text);
    return list;
}

//! Notes what a list tells the others.
class Told
{
public:
    explicit Told(MarkerList & list)
    {
        QObject::connect(&list, &MarkerList::signalSetState, &m_context,
                         [this](QString const & path, EMarkerState state, bool value) {
                             m_told << QStringLiteral("%1 %2 %3").arg(path).arg(int(state)).arg(value);
                             if (m_then)
                                 m_then();
                         });
    }

    QStringList m_told;
    std::function<void()> m_then;

private:
    QObject m_context;
};

class German : public QTranslator
{
public:
    bool isEmpty() const override { return false; }

    QString translate(char const * context, char const * source, char const * /*comment*/, int /*n*/) const override
    {
        return qstrcmp(context, "AxisBase") == 0 ? QStringLiteral("de:") + QLatin1String(source) : QString();
    }
};

void DrainDeferredDeletes() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

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

// The menu of one marker

void tst_axisbase_menu::picksTheMarker_data()
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

void tst_axisbase_menu::picksTheMarker()
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

void tst_axisbase_menu::lowestIndexWins()
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

void tst_axisbase_menu::singleMarkerItems_data()
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

void tst_axisbase_menu::singleMarkerItems()
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

void tst_axisbase_menu::stateFromThePane_data()
{
    QTest::addColumn<bool>("inPane");
    QTest::addColumn<bool>("paneShows");
    QTest::addColumn<QString>("item");
    QTest::newRow("the pane shows it") << true << true << QStringLiteral("3013 Hide red");
    QTest::newRow("the pane hides it") << true << false << QStringLiteral("3013 Show red");
    QTest::newRow("the pane has none: this list shows it") << false << false << QStringLiteral("3013 Hide red");
}

void tst_axisbase_menu::stateFromThePane()
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

void tst_axisbase_menu::eachOpeningBuildsItAnew()
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

void tst_axisbase_menu::singleMenuRebuiltWhileShown()
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

void tst_axisbase_menu::rightClickOpensIt()
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

void tst_axisbase_menu::anotherClosesTheFirst()
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

void tst_axisbase_menu::showsAndHides_data()
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

void tst_axisbase_menu::showsAndHides()
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

void tst_axisbase_menu::oddNumbers_data()
{
    QTest::addColumn<int>("id");
    for (int const id : { 2999, 2987, 13, 0, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), 3000,
                          3012, 3043, 3100, 4013, 1003 })
        QTest::addRow("ruler %d", id) << id;
}

void tst_axisbase_menu::oddNumbers()
{
    QFETCH(int, id);
    TestMarkerList pane;
    AddRuler(pane, eRedX, "");
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
    QCOMPARE(pane.m_calls.isEmpty(), !isPanel);
}

void tst_axisbase_menu::itemPassesItsNumberOnce()
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

void tst_axisbase_menu::placedOnShow_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("shown");
    QTest::addColumn<int>("special");
    QTest::addColumn<double>("value");
    int const x = AxisBase::AxisHorizontal;
    int const y = AxisBase::AxisVertical;
    int const place = int(eSpecialPlaceOnShow);
    QTest::newRow("along x") << x << false << place << 20.0;
    QTest::newRow("along y") << y << false << place << 70.0;
    QTest::newRow("no direction: y, by the horizontal scale") << 0 << false << place << 30.0;
    QTest::newRow("shown already") << x << true << place << 5.0;
    QTest::newRow("without the bit") << x << false << 0 << 5.0;
}

void tst_axisbase_menu::placedOnShow()
{
    QFETCH(int, type);
    QFETCH(bool, shown);
    QFETCH(int, special);
    TestMarkerList pane;
    AxisProbe axis(static_cast<unsigned int>(type), 101, 101);
    axis.SetRange(0.0, 100.0);
    axis.SetMenuMarkerPane(&pane);
    axis.SetCurrentXYMenu(QPoint(20, 30));
    Marker * const marker = AddRuler(axis, eRedX, "red", shown, InMenu | static_cast<unsigned int>(special));
    marker->SetValue(5.0);
    axis.slotShowRuler(3013);
    QTEST(marker->GetValue(), "value");
}

void tst_axisbase_menu::mouseMovingMarker()
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

void tst_axisbase_menu::resultPanel()
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

void tst_axisbase_menu::hideAll()
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

void tst_axisbase_menu::hearersEndTheAxis_data()
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

void tst_axisbase_menu::hearersEndTheAxis()
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

void tst_axisbase_menu::hearerEndsTheMarker()
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

ORIM_TEST_MAIN(tst_axisbase_menu)
#include "tst_axisbase_menu.moc"
