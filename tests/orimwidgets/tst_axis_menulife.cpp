// SPDX-License-Identifier: MIT
// While a menu or the settings of an axis are open, what they belong to ends, or somebody else acts. And a session with
// menus and the dialog: after each of its events the axis, its parent, its pane, its value, its marker, the open menu
// or the open dialog is deleted, or the colour set changes, and the session goes on.

#include "axisprobe.h"
#include "testmarkerlist.h"

#include "guibase.h"
#include "marker.h"
#include "tabdialog.h"
#include "testmain.h"

#include <QContextMenuEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSignalSpy>
#include <QTimer>
#include <QVBoxLayout>

#include <cstdio>
#include <functional>

namespace {

QString const Folder = QStringLiteral("/menulife");

QPoint const OnMarker(22, 5);
QPoint const Beside(80, 5);

//! A window with an axis, its pane, a value and a marker.
class Stage
{
public:
    Stage()
    {
        Tree::Instance()->Insert(Folder, new ValueNumeric<double>(QStringLiteral("start")));
        m_pWindow = new QWidget;
        m_pWindow->resize(200, 100);
        auto * const layout = new QVBoxLayout(m_pWindow);
        m_pEdit = new QLineEdit(m_pWindow);
        m_pPane = new TestMarkerList(m_pWindow);
        m_pAxis = new AxisProbe(m_pWindow, "axis");
        m_pAxis->setMinimumHeight(20);
        layout->addWidget(m_pEdit);
        layout->addWidget(m_pPane);
        layout->addWidget(m_pAxis);
        m_pAxis->SetStart_ValuePath(Path());
        m_pAxis->SetRange(0.0, 100.0);
        AddMarker(*m_pPane);
        AddMarker(*m_pAxis);
        m_pAxis->SetMenuMarkerPane(m_pPane);
        m_pAxis->SetAxisZoomEnable(true, true);
        m_pWindow->show();
        m_pWindow->activateWindow();
        m_pEdit->setFocus();
    }

    ~Stage()
    {
        CloseAll();
        delete m_pWindow.data();
        Tree::Instance()->RemoveFolder(Folder);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    static QString Path() { return Folder + QStringLiteral("/start"); }

    static void CloseAll()
    {
        for (int turn = 0; turn < 10 && QApplication::activePopupWidget(); ++turn)
            QApplication::activePopupWidget()->close();
        for (int turn = 0; turn < 10 && QApplication::activeModalWidget(); ++turn)
            QApplication::activeModalWidget()->close();
    }

    void RightClick(QPoint const & at) const
    {
        if (!m_pAxis)
            return;
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, m_pAxis->mapToGlobal(at));
        QCoreApplication::sendEvent(m_pAxis, &event);
    }

    static ResortPopupMenu * OpenMenu() { return qobject_cast<ResortPopupMenu *>(QApplication::activePopupWidget()); }

    static TabDialog * OpenDialog() { return qobject_cast<TabDialog *>(QApplication::activeModalWidget()); }

    static int ShownMenus()
    {
        int shown = 0;
        for (QWidget const * const widget : QApplication::topLevelWidgets())
            shown += qobject_cast<ResortPopupMenu const *>(widget) && widget->isVisible() ? 1 : 0;
        return shown;
    }

    //! Sends a key, held down for so many repetitions, to what is open.
    static void Press(int key, int times)
    {
        for (int i = 0; i < times; ++i) {
            QWidget * const popup = QApplication::activePopupWidget();
            QWidget * const modal = QApplication::activeModalWidget();
            QWidget * const window = popup ? popup : modal;
            QWidget * const target = window && window->focusWidget() ? window->focusWidget() : window;
            if (!target)
                return;
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString(), i > 0);
            QCoreApplication::sendEvent(target, &press);
        }
    }

    QPointer<QWidget> m_pWindow;
    QPointer<QLineEdit> m_pEdit;
    QPointer<TestMarkerList> m_pPane;
    QPointer<AxisProbe> m_pAxis;

private:
    static void AddMarker(MarkerList & list)
    {
        unsigned int const special = eSpecialInMenu | eSpecialPanelMenu | eSpecialPlaceOnShow;
        Marker * const marker =
            list.AddMarker(eRedX, true, IColorBase::eColorMarker, true, special, QStringLiteral("red"));
        marker->SetRect(QRect(20, 0, 5, 20));
        marker->Set_ValuePath(Path());
    }
};

//! How something comes to be open.
struct Opening
{
    char const * name;
    void (*open)(Stage & stage);
};

Opening const Openings[] = {
    { "the general menu", [](Stage & stage) { stage.RightClick(Beside); } },
    { "the menu of a marker", [](Stage & stage) { stage.RightClick(OnMarker); } },
    { "the settings", [](Stage & stage) { stage.m_pAxis->slotShowProperties(); } },
    { "the settings chosen in the menu",
      [](Stage & stage) {
          stage.RightClick(Beside);
          ResortPopupMenu * const menu = Stage::OpenMenu();
          menu->setActiveAction(menu->actions().last());
          QTest::keyClick(menu, Qt::Key_Return);
      } },
};

//! What happens then.
struct Happening
{
    char const * name;
    void (*happen)(Stage & stage);
};

Happening const Happenings[] = {
    { "the axis ends", [](Stage & stage) { delete stage.m_pAxis.data(); } },
    { "the window ends", [](Stage & stage) { delete stage.m_pWindow.data(); } },
    { "the window is closed", [](Stage & stage) { stage.m_pWindow->close(); } },
    { "the program is told to quit", [](Stage &) { QCoreApplication::quit(); } },
    { "the value goes away", [](Stage &) { Tree::Instance()->Remove(Stage::Path()); } },
    { "the pane ends", [](Stage & stage) { delete stage.m_pPane.data(); } },
    { "the marker ends", [](Stage & stage) { stage.m_pAxis->DeleteMarker(eRedX); } },
    { "it ends itself",
      [](Stage &) {
          delete (QApplication::activePopupWidget() ? QApplication::activePopupWidget()
                                                    : QApplication::activeModalWidget());
      } },
    { "another menu is asked for", [](Stage & stage) { stage.RightClick(Beside); } },
    { "the menu is built anew", [](Stage & stage) { stage.m_pAxis->BuildMenu(); } },
    { "the colours change", [](Stage &) { GuiBase::Instance().emit_signalColorsChanged(); } },
    { "a hot key is pressed", [](Stage &) { Stage::Press(Qt::Key_F5, 1); } },
    { "Down is held for 10,000 turns", [](Stage &) { Stage::Press(Qt::Key_Down, 10'000); } },
    { "Return is held for 10,000 turns", [](Stage &) { Stage::Press(Qt::Key_Return, 10'000); } },
    { "zooming is disabled", [](Stage & stage) { stage.m_pAxis->SetAxisZoomEnable(false, false); } },
};

//! A program that was told to quit outside its own loop would, with Qt 5, end every later loop at once.
void ForgetQuit()
{
    QSignalBlocker const nobodyHears(qApp);
    QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(0); });
    QCoreApplication::exec();
}

} // namespace

Q_DECLARE_METATYPE(Opening)
Q_DECLARE_METATYPE(Happening)

class tst_axis_menulife : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void whileOpen_data();
    void whileOpen();
    void deletedAfterEachEvent_data();
    void deletedAfterEachEvent();
    void cleanupTestCase();

private:
    void Run(Opening const & opening, Happening const & happening);

    int m_scenarios = 0;
    long long m_sessions = 0;
};

void tst_axis_menulife::initTestCase()
{
    TestStage::HushPopups();
    QApplication::setQuitOnLastWindowClosed(false);
}

void tst_axis_menulife::whileOpen_data()
{
    QTest::addColumn<Opening>("opening");
    QTest::addColumn<Happening>("happening");
    for (Happening const & happening : Happenings)
        for (Opening const & opening : Openings)
            QTest::addRow("%s while open: %s", opening.name, happening.name) << opening << happening;
}

//! Opens, lets it happen as soon as the loop turns, and closes what is still open.
void tst_axis_menulife::Run(Opening const & opening, Happening const & happening)
{
    int const hotKey =
        GuiBase::Instance().AddHotKey(Qt::Key_F5, 0, nullptr, QStringLiteral("key"), QString(), true, false);
    QSignalSpy const heard(&GuiBase::Instance(), &GuiBase::signalHotKey);
    Stage stage;
    QVERIFY(QTest::qWaitForWindowActive(stage.m_pWindow));
    bool wasOpen = false;
    int shownMenus = 0;
    QTimer::singleShot(0, this, [&] {
        wasOpen = Stage::OpenMenu() || Stage::OpenDialog();
        happening.happen(stage);
        shownMenus = Stage::ShownMenus();
        Stage::CloseAll();
    });
    QEventLoop loop;
    QTimer::singleShot(0, &loop, [&] { QTimer::singleShot(20, &loop, &QEventLoop::quit); });
    opening.open(stage);
    loop.exec();
    ForgetQuit();
    QVERIFY(wasOpen);
    QVERIFY(shownMenus <= 1);
    QCOMPARE(heard.count(), 0); // no hot key passes what is modal
    QVERIFY(!QApplication::activePopupWidget() && !QApplication::activeModalWidget());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (stage.m_pEdit && stage.m_pWindow->isVisible()) {
        stage.m_pWindow->activateWindow(); // which a platform with a window manager does
        QTRY_VERIFY(stage.m_pEdit->hasFocus());
    }
    if (stage.m_pAxis) {
        stage.m_pAxis->BuildMenu();
        stage.RightClick(Beside); // and the next menu opens
        QCOMPARE(Stage::ShownMenus(), 1);
    }
    GuiBase::Instance().RemoveHotKey(hotKey, true);
    ++m_scenarios;
}

void tst_axis_menulife::whileOpen()
{
    QFETCH(Opening, opening);
    QFETCH(Happening, happening);
    Run(opening, happening);
}

// A session

namespace {

enum ETarget
{
    eAxis,
    eWindow,
    ePane,
    eValue,
    eMarker,
    eMenu,
    eDialog,
    eColors,
    eTargets
};

char const * const TargetNames[eTargets] = { "axis",   "window",    "pane",        "value",
                                             "marker", "open menu", "open dialog", "colour set" };

constexpr int Rounds = 5; // of the session; some 350 events

//! How many events lie between two of those that something is deleted after.
int Stride()
{
#if defined(__OPTIMIZE__)
    int const stride = TestStage::Sanitized() ? 40 : 1;
#else
    int const stride = TestStage::Sanitized() ? 40 : 12;
#endif
    return static_cast<int>(TestStage::Turns(stride, 1));
}

class Session : public QObject
{
public:
    //! \param target, when  what to delete after which event; -1 for never.
    Session(ETarget target, int when) : m_target(target), m_when(when)
    {
        connect(m_stage.m_pAxis, &AxisBase::Zoomed, this, &Session::Count);
        connect(m_stage.m_pAxis, &AxisBase::signalRangeChanged, this, &Session::Count);
        connect(m_stage.m_pAxis, &AxisBase::redrawBars, this, &Session::Count);
        connect(m_stage.m_pAxis, &MarkerList::signalSetState, this, &Session::Count);
    }

    //! \return how many events there were.
    int Run()
    {
        for (int round = 0; round < Rounds; ++round)
            for (int step = 0; step < 12; ++step) {
                if (m_stage.m_pAxis)
                    Step(step, round);
                Count();
                Stage::CloseAll();
                QCoreApplication::sendPostedEvents(nullptr, 0);
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            }
        return m_count;
    }

private:
    void Count()
    {
        if (m_count++ == m_when)
            Delete();
    }

    void Delete()
    {
        if (m_target == eAxis)
            delete m_stage.m_pAxis.data();
        else if (m_target == eWindow)
            delete m_stage.m_pWindow.data();
        else if (m_target == ePane)
            delete m_stage.m_pPane.data();
        else if (m_target == eValue)
            Tree::Instance()->Remove(Stage::Path());
        else if (m_target == eMarker && m_stage.m_pAxis)
            m_stage.m_pAxis->DeleteMarker(eRedX);
        else if (m_target == eMenu)
            EndMenu();
        else if (m_target == eDialog)
            delete Stage::OpenDialog();
        else if (m_target == eColors)
            GuiBase::Instance().emit_signalColorsChanged(); // another set takes its place
    }

    //! As whoever is told of a chosen item has to end it.
    static void EndMenu()
    {
        ResortPopupMenu * const menu = Stage::OpenMenu();
        if (menu && menu->IsTelling())
            menu->deleteLater();
        else
            delete menu;
    }

    //! Opens a menu and chooses an item of it with the keyboard.
    void Choose(QPoint const & at, int id)
    {
        m_stage.RightClick(at);
        Count();
        QPointer<ResortPopupMenu> const menu(Stage::OpenMenu());
        QAction * const item = menu ? menu->FindItem(id) : nullptr;
        if (!item)
            return;
        menu->setActiveAction(item);
        Count();
        if (menu)
            QTest::keyClick(menu.data(), Qt::Key_Return);
        Count();
    }

    //! Shows the settings, types, and presses a button.
    void Settings(QString const & button)
    {
        QTimer::singleShot(0, this, [this, button] {
            Count();
            QPointer<TabDialog> const dialog(Stage::OpenDialog());
            if (!dialog)
                return;
            Type();
            Count();
            if (dialog)
                for (QPushButton * const push : dialog->findChildren<QPushButton *>())
                    if (push->text().remove(QLatin1Char('&')) == button) {
                        push->click();
                        break;
                    }
            Count();
            if (dialog)
                dialog->reject();
        });
        m_stage.m_pAxis->slotShowProperties();
    }

    void Type()
    {
        QLineEdit * const edit = m_stage.m_pAxis && m_stage.m_pAxis->m_pPropertyPage
                                     ? m_stage.m_pAxis->m_pPropertyPage->GetStopEdit()
                                     : nullptr;
        if (!edit)
            return;
        edit->setText(QString::number(40 + m_count));
        m_stage.m_pAxis->m_pPropertyPage->SlotStopEditFinished();
    }

    void Step(int step, int round)
    {
        AxisProbe & axis = *m_stage.m_pAxis;
        switch (step) {
        case 0:
            return Choose(OnMarker, 3000 + eRedX);
        case 1:
            return Choose(OnMarker, 4000 + eRedX);
        case 2:
            return Choose(Beside, 3000 + eRedX);
        case 3:
            axis.SetDefaultRange(10.0, 90.0 + round);
            return Choose(Beside, 1000);
        case 4:
            axis.SetDeviceRange(5.0, 95.0 + round);
            return Choose(Beside, 1001);
        case 5:
            axis.SetZoomedRange(20.0 + round, 60.0, true);
            return m_stage.m_pAxis ? Choose(Beside, 1003) : void();
        case 6:
            return axis.slotHideAllRuler();
        case 7:
            return Settings(QStringLiteral("Apply"));
        case 8:
            return Settings(QStringLiteral("OK"));
        case 9:
            return Settings(QStringLiteral("Cancel"));
        case 10:
            return axis.SetAxisZoomEnable(true, round != 1);
        default:
            return m_stage.RightClick(Beside);
        }
    }

    ETarget m_target;
    int m_when;
    int m_count = 0;
    Stage m_stage;
};

} // namespace

void tst_axis_menulife::deletedAfterEachEvent_data()
{
    QTest::addColumn<int>("target");
    for (int target = 0; target < eTargets; ++target)
        QTest::newRow(TargetNames[target]) << target;
}

void tst_axis_menulife::deletedAfterEachEvent()
{
    QFETCH(int, target);
    int const events = Session(static_cast<ETarget>(target), -1).Run();
    QVERIFY(events >= 300);
    int const stride = Stride();
    for (int when = target % stride; when < events; when += stride) {
        Session(static_cast<ETarget>(target), when).Run();
        ++m_sessions;
        QVERIFY(!QApplication::activePopupWidget() && !QApplication::activeModalWidget());
        QVERIFY(Tree::Instance()->GetPaths(Folder).isEmpty());
    }
}

void tst_axis_menulife::cleanupTestCase()
{
    std::printf("figures: %d scenarios, %lld sessions with one deletion each\n", m_scenarios, m_sessions);
}

ORIM_TEST_MAIN(tst_axis_menulife)
#include "tst_axis_menulife.moc"
