// SPDX-License-Identifier: MIT
#include "guibase.h"

#include "memorycfg.h"
#include "persistant.h"
#include "testmain.h"
#include "tree.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QUndoStack>
#include <QVBoxLayout>

#include <memory>

class tst_GuiBase : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void builtBeforeTheApplication();
    void oneInstance();
    void colorsChanged();

    void application();
    void applicationChangesAndEnds();
    void mainWidget();
    void defaultDataDirectory_data();
    void defaultDataDirectory();
    void defaultDataDirectoryIsMade();

    void hotKeyFiresItsIndex();
    void escapeFires();
    void hotKeyModifiersAreANumber_data();
    void hotKeyModifiersAreANumber();
    void wideTexts();
    void badKeyIsRefused();
    void registeringAgain();
    void indicesStayValid();
    void removedByKey();
    void removedByIndex();
    void removedByReceiver();
    void receiverThatDies();
    void switchedOffAndOn();
    void unknownIndicesAreIgnored_data();
    void unknownIndicesAreIgnored();
    void changedSignal();
    void changedKeyIsStored();
    void storedKeyCounts_data();
    void storedKeyCounts();
    void keyThatMayNotChangeIsNotStored();
    void restoredKeys();
    void forgottenKey();
    void slashesInNamesAreNoFolders();
    void withoutStore();
    void shownOnAnAction();
    void shownOnAnActionAndKeptUpToDate();
    void shownOnAnActionThatDies();
    void shownKeyGoesWithItsWidget();
    void hotKeysCtrl();

    void fonts();

    void undoStack();

    void geometryComesBack();
    void maximizedComesBack();
    void fullScreenIsStoredAsTheWindowBefore();
    void geometryIsRefused_data();
    void geometryIsRefused();
    void geometryWithoutMainWidget();
    void geometryWithoutStore();

private:
    int Add(int key, char const * name, QObject * receiver = nullptr, bool changeable = true);

    MemoryCfg m_store;
};

namespace {

GuiBase & Gui() { return GuiBase::Instance(); }

HotKeyCombination Combination(int key, int modifiers = 0) { return HotKeyCombination::From(key, modifiers); }

bool WasBuiltBeforeTheApplication = false; // set by main

//! Asks at the end of the process, after the application object and the tree have gone.
class AsksAtExit
{
public:
    ~AsksAtExit()
    {
        GuiBase & gui = GuiBase::Instance();
        bool const isTreeGone = !Tree::Instance();
        bool const answers = isTreeGone && !gui.GetTimeZone() && !gui.GetFrequencyUnit() &&
                             gui.GetTimeZoneValue() == 0 && !gui.GetApplication() && !gui.GetMainWidget() &&
                             !gui.RestoreWidgetSize();
        gui.SetFrequencyUnit(SuffixedDouble::eSuffixKilo);
        gui.emit_signalColorsChanged();
        gui.StoreWidgetSize();
        gui.SetApplication(nullptr);
        if (!answers)
            std::_Exit(3);
    }
};

} // namespace

int tst_GuiBase::Add(int key, char const * name, QObject * receiver, bool changeable)
{
    return Gui().AddHotKey(static_cast<Qt::Key>(key), 0, receiver ? receiver : this, QString::fromLatin1(name),
                           QStringLiteral("Group"), changeable, false);
}

void tst_GuiBase::initTestCase() { QVERIFY(Tree::Instance()); }

void tst_GuiBase::init()
{
    Persistant::SetStore(&m_store);
    Gui().SetApplication(qApp);
}

void tst_GuiBase::cleanup()
{
    Gui().RemoveHotKeyReceiver(this);
    Gui().SetApplication(nullptr);
    Gui().SetMainWidget(nullptr);
    Gui().SetFontFamily(QString());
    Gui().SetWFontFamily(QString());
    Tree::Instance()->RemoveFolder(QStringLiteral("/GuiBase"));
    m_store.Clear();
    Persistant::SetStore(nullptr);
}

void tst_GuiBase::builtBeforeTheApplication() { QVERIFY(WasBuiltBeforeTheApplication); }

void tst_GuiBase::oneInstance()
{
    QCOMPARE(&GuiBase::Instance(), &GuiBase::Instance());
    QObject const * const object = &GuiBase::Instance();
    QCOMPARE(object->metaObject()->className(), "GuiBase");
}

void tst_GuiBase::colorsChanged()
{
    QSignalSpy const changed(&Gui(), SIGNAL(signalColorsChanged()));
    Gui().emit_signalColorsChanged();
    Gui().emit_signalColorsChanged();
    QCOMPARE(changed.count(), 2);
}

void tst_GuiBase::application()
{
    QCOMPARE(Gui().GetApplication(), qApp);
    Gui().SetApplication(nullptr);
    QVERIFY(!Gui().GetApplication());
}

void tst_GuiBase::applicationChangesAndEnds()
{
    Add(Qt::Key_F5, "a");
    QSignalSpy const heard(&Gui(), &GuiBase::signalHotKey);
    QWidget widget;
    QTest::keyClick(&widget, Qt::Key_F5);
    QCOMPARE(heard.count(), 1);
    Gui().SetApplication(qApp); // twice is no double filter
    QTest::keyClick(&widget, Qt::Key_F5);
    QCOMPARE(heard.count(), 2);
    Gui().SetApplication(nullptr);
    QTest::keyClick(&widget, Qt::Key_F5);
    QCOMPARE(heard.count(), 2);
}

void tst_GuiBase::mainWidget()
{
    QVERIFY(!Gui().GetMainWidget());
    {
        QWidget widget;
        Gui().SetMainWidget(&widget);
        QCOMPARE(Gui().GetMainWidget(), &widget);
    }
    QVERIFY(!Gui().GetMainWidget());
}

void tst_GuiBase::defaultDataDirectory_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("isTaken");
    QTest::newRow("a directory") << "%1" << true;
    QTest::newRow("with a closing slash") << "%1/" << true;
    QTest::newRow("not clean") << "%1/sub/.." << true;
    QTest::newRow("empty") << "" << false;
    QTest::newRow("a file") << "%1/file" << false;
    QTest::newRow("below a file") << "%1/file/below" << false;
}

void tst_GuiBase::defaultDataDirectory()
{
    QFETCH(QString, path);
    QFETCH(bool, isTaken);
    QTemporaryDir const root;
    QTemporaryDir const earlier;
    QFile file(root.path() + "/file");
    QVERIFY(file.open(QIODevice::WriteOnly));
    QString const & held = Gui().m_defaultDataDirectory;
    QVERIFY(Gui().SetDefaultDataDirectory(earlier.path()));
    QCOMPARE(Gui().SetDefaultDataDirectory(path.contains("%1") ? path.arg(root.path()) : path), isTaken);
    QCOMPARE(held, isTaken ? root.path() : earlier.path()); // the reference follows
}

void tst_GuiBase::defaultDataDirectoryIsMade()
{
    QTemporaryDir const root;
    QString const path = root.path() + "/new/below";
    QVERIFY(Gui().SetDefaultDataDirectory(path));
    QVERIFY(QDir(path).exists());
    QDir::setCurrent(root.path());
    QVERIFY(Gui().SetDefaultDataDirectory(QStringLiteral("relative")));
    QVERIFY(QDir::isAbsolutePath(Gui().m_defaultDataDirectory));
    QVERIFY(Gui().m_defaultDataDirectory.endsWith("/relative"));
    QDir::setCurrent(QDir::homePath());
}

void tst_GuiBase::hotKeyFiresItsIndex()
{
    Add(Qt::Key_F5, "a");
    int const index = Add(Qt::Key_F6, "b");
    QSignalSpy const heard(&Gui(), SIGNAL(signalHotKey(int)));
    QSignalSpy const escape(&Gui(), SIGNAL(hotkey_ESC_pressed()));
    QWidget widget;
    QTest::keyClick(&widget, Qt::Key_F6);
    QCOMPARE(heard.count(), 1);
    QCOMPARE(heard.at(0).at(0).toInt(), index);
    QCOMPARE(escape.count(), 0);
}

void tst_GuiBase::escapeFires()
{
    QSignalSpy const heard(&Gui(), SIGNAL(signalHotKey(int)));
    QSignalSpy const escape(&Gui(), SIGNAL(hotkey_ESC_pressed()));
    QWidget widget;
    QTest::keyClick(&widget, Qt::Key_Escape);
    QCOMPARE(escape.count(), 1);
    QCOMPARE(heard.count(), 0);
}

void tst_GuiBase::hotKeyModifiersAreANumber_data()
{
    QTest::addColumn<int>("modifiers");
    QTest::newRow("none") << 0;
    QTest::newRow("Shift") << 0x02000000;
    QTest::newRow("Control") << 0x04000000;
    QTest::newRow("Alt") << 0x08000000;
    QTest::newRow("Meta") << 0x10000000;
    QTest::newRow("all") << 0x1E000000;
}

void tst_GuiBase::hotKeyModifiersAreANumber()
{
    QFETCH(int, modifiers);
    int const index = Gui().AddHotKey(Qt::Key_F5, modifiers, this, QStringLiteral("a"), QString(), true, false);
    QCOMPARE(Gui().GetIndex4HotKey(Qt::Key_F5, modifiers), index);
    QSignalSpy const heard(&Gui(), &GuiBase::signalHotKey);
    QWidget widget;
    QTest::keyClick(&widget, Qt::Key_F5, static_cast<Qt::KeyboardModifiers>(modifiers));
    QCOMPARE(heard.count(), 1);
}

void tst_GuiBase::wideTexts()
{
    int const index = Gui().AddHotKey(Qt::Key_F5, 0, this, L"Zoom in", L"Axis", true, true);
    HotKey const * const hotKey = Gui().GetHotKeys().Get(index);
    QCOMPARE(hotKey->name, QStringLiteral("Zoom in"));
    QCOMPARE(hotKey->group, QStringLiteral("Axis"));
    QVERIFY(hotKey->changeable && hotKey->throughModal);
    wchar_t const * const none = nullptr;
    int const nameless = Gui().AddHotKey(Qt::Key_F6, 0, this, none, none, false, false);
    QVERIFY(Gui().GetHotKeys().Get(nameless)->name.isEmpty());
    QVERIFY(!Gui().GetHotKeys().Get(nameless)->changeable);
    QVERIFY(!Gui().GetHotKeys().Get(nameless)->throughModal);
}

void tst_GuiBase::badKeyIsRefused()
{
    QSignalSpy const changed(&Gui(), &GuiBase::signalHotKeysChanged);
    QCOMPARE(Add(Qt::Key_unknown, "a"), -1);
    QCOMPARE(Add(Qt::Key_Shift, "a"), -1);
    QCOMPARE(Add(0, "a"), -1);
    QCOMPARE(changed.count(), 0);
}

void tst_GuiBase::registeringAgain()
{
    int const index = Add(Qt::Key_F5, "a");
    QVERIFY(Gui().ChangeHotKey(index, Combination(Qt::Key_F9)));
    QSignalSpy const changed(&Gui(), &GuiBase::signalHotKeysChanged);
    QCOMPARE(Add(Qt::Key_F5, "a"), index);
    QCOMPARE(Gui().GetHotKeys().Get(index)->combination.key, int(Qt::Key_F9));
    QCOMPARE(changed.count(), 0);
    QVERIFY(Add(Qt::Key_F5, "b") != index);
}

void tst_GuiBase::indicesStayValid()
{
    int const a = Add(Qt::Key_F5, "a");
    int const b = Add(Qt::Key_F6, "b");
    int const c = Add(Qt::Key_F7, "c");
    Gui().RemoveHotKey(b, false);
    int const d = Add(Qt::Key_F8, "d");
    QVERIFY(d != b);
    QCOMPARE(Gui().GetIndex4HotKey(Qt::Key_F5, 0), a);
    QCOMPARE(Gui().GetIndex4HotKey(Qt::Key_F7, 0), c);
    QSignalSpy const heard(&Gui(), &GuiBase::signalHotKey);
    QWidget widget;
    QTest::keyClick(&widget, Qt::Key_F6);
    QCOMPARE(heard.count(), 0);
    QTest::keyClick(&widget, Qt::Key_F7);
    QCOMPARE(heard.at(0).at(0).toInt(), c);
}

void tst_GuiBase::removedByKey()
{
    int const a = Add(Qt::Key_F5, "a");
    int const b = Add(Qt::Key_F5, "b");
    QCOMPARE(Gui().RemoveHotKey(Qt::Key_F5, int(Qt::ControlModifier)), -1);
    QCOMPARE(Gui().RemoveHotKey(Qt::Key_F5, Qt::NoModifier), a); // a modifier chooses this form, not the index
    QCOMPARE(Gui().RemoveHotKey(Qt::Key_F5, 0), b);
    QCOMPARE(Gui().RemoveHotKey(Qt::Key_F5, 0), -1);
}

void tst_GuiBase::removedByIndex()
{
    int const a = Add(Qt::Key_F5, "a");
    Gui().RemoveHotKey(a, false);
    QVERIFY(!Gui().GetHotKeys().Get(a));
    QCOMPARE(Gui().GetIndex4HotKey(Qt::Key_F5, 0), -1);
}

void tst_GuiBase::removedByReceiver()
{
    QObject receiver;
    int const a = Add(Qt::Key_F5, "a", &receiver);
    int const b = Add(Qt::Key_F6, "b");
    Gui().RemoveHotKeyReceiver(&receiver);
    QVERIFY(!Gui().GetHotKeys().Get(a));
    QVERIFY(Gui().GetHotKeys().Get(b));
    QSignalSpy const changed(&Gui(), &GuiBase::signalHotKeysChanged);
    Gui().RemoveHotKeyReceiver(&receiver);
    Gui().RemoveHotKeyReceiver(nullptr);
    QCOMPARE(changed.count(), 0);
}

void tst_GuiBase::receiverThatDies()
{
    auto receiver = std::make_unique<QObject>();
    int const a = Add(Qt::Key_F5, "a", receiver.get());
    QSignalSpy const heard(&Gui(), &GuiBase::signalHotKey);
    QSignalSpy const changed(&Gui(), &GuiBase::signalHotKeysChanged);
    receiver.reset();
    QCOMPARE(changed.count(), 1); // lists of hot keys follow
    QVERIFY(!Gui().GetHotKeys().Get(a));
    QWidget widget;
    QTest::keyClick(&widget, Qt::Key_F5);
    QCOMPARE(heard.count(), 0);
}

void tst_GuiBase::switchedOffAndOn()
{
    int const a = Add(Qt::Key_F5, "a");
    QSignalSpy const heard(&Gui(), &GuiBase::signalHotKey);
    QWidget widget;
    Gui().EnableHotKey(a, false);
    QTest::keyClick(&widget, Qt::Key_F5);
    QCOMPARE(heard.count(), 0);
    QCOMPARE(Gui().GetIndex4HotKey(Qt::Key_F5, 0), a);
    Gui().EnableHotKey(a, true);
    QTest::keyClick(&widget, Qt::Key_F5);
    QCOMPARE(heard.count(), 1);
}

void tst_GuiBase::unknownIndicesAreIgnored_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("negative") << -1;
    QTest::newRow("past the end") << std::numeric_limits<int>::max();
    QTest::newRow("lowest") << std::numeric_limits<int>::min();
}

void tst_GuiBase::unknownIndicesAreIgnored()
{
    QFETCH(int, index);
    int const a = Add(Qt::Key_F5, "a");
    QSignalSpy const changed(&Gui(), &GuiBase::signalHotKeysChanged);
    Gui().RemoveHotKey(index, false);
    Gui().RemoveHotKey(index, true);
    Gui().EnableHotKey(index, false);
    QVERIFY(!Gui().ChangeHotKey(index, Combination(Qt::Key_F6)));
    QCOMPARE(changed.count(), 0);
    QVERIFY(Gui().GetHotKeys().Get(a)->enabled);
}

void tst_GuiBase::changedSignal()
{
    QSignalSpy const changed(&Gui(), &GuiBase::signalHotKeysChanged);
    int const a = Add(Qt::Key_F5, "a");
    QCOMPARE(changed.count(), 1);
    Gui().EnableHotKey(a, false);
    QCOMPARE(changed.count(), 2);
    Gui().ChangeHotKey(a, Combination(Qt::Key_F6));
    QCOMPARE(changed.count(), 3);
    Gui().RestoreHotKeys();
    QCOMPARE(changed.count(), 4);
    Gui().RemoveHotKey(a, false);
    QCOMPARE(changed.count(), 5);
}

void tst_GuiBase::changedKeyIsStored()
{
    int const a = Add(Qt::Key_F5, "a");
    QVERIFY(m_store.GetKeys().isEmpty()); // nothing is written for what nobody changed
    QVERIFY(Gui().ChangeHotKey(a, Combination(Qt::Key_M, Qt::ControlModifier)));
    QString const key = QStringLiteral("GuiBase/HotKeys/Group/a");
    QCOMPARE(m_store.ReadString(key, QString()), QStringLiteral("Ctrl+M"));
    QVERIFY(Gui().ChangeHotKey(a, HotKeyCombination()));
    QVERIFY(m_store.Contains(key));
    QCOMPARE(m_store.ReadString(key, QStringLiteral("x")), QString());
    QVERIFY(Gui().ChangeHotKey(a, Combination(Qt::Key_F5)));
    QCOMPARE(m_store.ReadString(key, QString()), QStringLiteral("default"));
}

void tst_GuiBase::storedKeyCounts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::newRow("a key") << "Ctrl+M" << int(Qt::Key_M) << int(Qt::ControlModifier);
    QTest::newRow("no key") << "" << 0 << 0;
    QTest::newRow("as registered") << "default" << int(Qt::Key_F5) << 0;
    QTest::newRow("nonsense counts as registered") << "Hyper+Nonsense" << int(Qt::Key_F5) << 0;
    QTest::newRow("a bare modifier counts as registered") << "Ctrl" << int(Qt::Key_F5) << 0;
}

void tst_GuiBase::storedKeyCounts()
{
    QFETCH(QString, text);
    m_store.WriteString(QStringLiteral("GuiBase/HotKeys/Group/a"), text);
    int const a = Add(Qt::Key_F5, "a");
    HotKey const * const hotKey = Gui().GetHotKeys().Get(a);
    QTEST(hotKey->combination.key, "key");
    QTEST(hotKey->combination.modifiers, "modifiers");
    QCOMPARE(hotKey->defaultCombination.key, int(Qt::Key_F5));
}

void tst_GuiBase::keyThatMayNotChangeIsNotStored()
{
    m_store.WriteString(QStringLiteral("GuiBase/HotKeys/Group/fixed"), QStringLiteral("F9"));
    int const fixed = Add(Qt::Key_F5, "fixed", nullptr, false);
    QCOMPARE(Gui().GetIndex4HotKey(Qt::Key_F5, 0), fixed);
    QVERIFY(!Gui().ChangeHotKey(fixed, Combination(Qt::Key_F6)));
    Gui().RestoreHotKeys();
    QCOMPARE(m_store.ReadString(QStringLiteral("GuiBase/HotKeys/Group/fixed"), QString()), QStringLiteral("F9"));
}

void tst_GuiBase::restoredKeys()
{
    int const a = Add(Qt::Key_F5, "a");
    int const b = Add(Qt::Key_F6, "b");
    Gui().ChangeHotKey(a, Combination(Qt::Key_F9));
    Gui().RestoreHotKeys();
    QCOMPARE(Gui().GetIndex4HotKey(Qt::Key_F5, 0), a);
    QCOMPARE(Gui().GetIndex4HotKey(Qt::Key_F6, 0), b);
    QCOMPARE(m_store.ReadString(QStringLiteral("GuiBase/HotKeys/Group/a"), QString()), QStringLiteral("default"));
    QVERIFY(!m_store.Contains(QStringLiteral("GuiBase/HotKeys/Group/b")));
}

void tst_GuiBase::forgottenKey()
{
    int a = Add(Qt::Key_F5, "a");
    Gui().ChangeHotKey(a, Combination(Qt::Key_F9));
    Gui().RemoveHotKey(a, false);
    a = Add(Qt::Key_F5, "a");
    QCOMPARE(Gui().GetIndex4HotKey(Qt::Key_F9, 0), a); // kept
    Gui().RemoveHotKey(a, true);
    a = Add(Qt::Key_F5, "a");
    QCOMPARE(Gui().GetIndex4HotKey(Qt::Key_F5, 0), a); // forgotten
}

void tst_GuiBase::slashesInNamesAreNoFolders()
{
    int const a = Gui().AddHotKey(Qt::Key_F5, 0, this, QStringLiteral("On/Off"), QStringLiteral("A/B"), true, false);
    Gui().ChangeHotKey(a, Combination(Qt::Key_F9));
    QVERIFY(m_store.GetKeys() == QStringList{ QStringLiteral("GuiBase/HotKeys/A|B/On|Off") });
}

void tst_GuiBase::withoutStore()
{
    MemoryCfg other;
    Persistant::SetStore(&other);
    m_store.WriteString(QStringLiteral("GuiBase/HotKeys/Group/a"), QStringLiteral("F9"));
    int const a = Add(Qt::Key_F5, "a");
    QCOMPARE(Gui().GetIndex4HotKey(Qt::Key_F5, 0), a); // the store of the moment counts
}

void tst_GuiBase::shownOnAnAction()
{
    Gui().AddHotKey(Qt::Key_M, int(Qt::ControlModifier), this, QStringLiteral("Mark"), QString(), true, false);
    QAction action(QStringLiteral("Set a &mark"));
    Gui().ShowHotKeyFrom(&action, QStringLiteral("Mark"));
    QCOMPARE(action.text(), QStringLiteral("Set a &mark\tCtrl+M"));
    QVERIFY(action.shortcut().isEmpty());
    Gui().ShowHotKeyFrom(&action, QStringLiteral("Mark"));
    QCOMPARE(action.text(), QStringLiteral("Set a &mark\tCtrl+M"));
    Gui().ShowHotKeyFrom(&action, QStringLiteral("unknown"));
    QCOMPARE(action.text(), QStringLiteral("Set a &mark"));
    Gui().ShowHotKeyFrom(nullptr, QStringLiteral("Mark"));
}

void tst_GuiBase::shownOnAnActionAndKeptUpToDate()
{
    QAction action(QStringLiteral("Mark"));
    Gui().ShowHotKeyFrom(&action, QStringLiteral("a"));
    QCOMPARE(action.text(), QStringLiteral("Mark"));
    int const a = Add(Qt::Key_F5, "a");
    QCOMPARE(action.text(), QStringLiteral("Mark\tF5"));
    Gui().ChangeHotKey(a, Combination(Qt::Key_F9));
    QCOMPARE(action.text(), QStringLiteral("Mark\tF9"));
    Gui().EnableHotKey(a, false);
    QCOMPARE(action.text(), QStringLiteral("Mark"));
    Gui().EnableHotKey(a, true);
    QCOMPARE(action.text(), QStringLiteral("Mark\tF9"));
    Gui().ChangeHotKey(a, HotKeyCombination());
    QCOMPARE(action.text(), QStringLiteral("Mark"));
    Gui().ChangeHotKey(a, Combination(Qt::Key_F9));
    Gui().RemoveHotKey(a, false);
    QCOMPARE(action.text(), QStringLiteral("Mark"));
}

void tst_GuiBase::shownOnAnActionThatDies()
{
    {
        QAction action(QStringLiteral("Mark"));
        Gui().ShowHotKeyFrom(&action, QStringLiteral("a"));
    }
    QCOMPARE(Add(Qt::Key_F5, "a") >= 0, true);
}

void tst_GuiBase::shownKeyGoesWithItsWidget()
{
    QAction action(QStringLiteral("Mark"));
    Gui().ShowHotKeyFrom(&action, QStringLiteral("a"));
    auto receiver = std::make_unique<QWidget>();
    int const a = Add(Qt::Key_F5, "a", receiver.get());
    QCOMPARE(action.text(), QStringLiteral("Mark\tF5"));
    int changes = 0;
    auto const counting = connect(&Gui(), &GuiBase::signalHotKeysChanged, this, [&changes, a] {
        ++changes;
        QVERIFY(!Gui().GetHotKeys().Get(a)); // it has gone when lists of hot keys look
    });
    receiver.reset();
    disconnect(counting);
    QCOMPARE(changes, 1);
    QCOMPARE(action.text(), QStringLiteral("Mark"));
}

void tst_GuiBase::hotKeysCtrl()
{
    QWidget parent;
    QWidget * const ctrl = Gui().GetHotkeysCtrl(&parent);
    QVERIFY(ctrl);
    QCOMPARE(ctrl->parentWidget(), &parent);
    QCOMPARE(ctrl->metaObject()->className(), "HotkeysCtrl");
}

void tst_GuiBase::fonts()
{
    QCOMPARE(Gui().GetFontFamily(), QStringLiteral("DejaVu Sans"));
    QCOMPARE(Gui().GetWFontFamily(), QStringLiteral("DejaVu Sans"));
    Gui().SetFontFamily(QStringLiteral("Alpha"));
    QCOMPARE(Gui().GetFontFamily(), QStringLiteral("Alpha"));
    QCOMPARE(Gui().GetWFontFamily(), QStringLiteral("Alpha"));
    Gui().SetWFontFamily(QStringLiteral("Beta"));
    QCOMPARE(Gui().GetFontFamily(), QStringLiteral("Alpha"));
    QCOMPARE(Gui().GetWFontFamily(), QStringLiteral("Beta"));
    Gui().SetWFontFamily(QString());
    QCOMPARE(Gui().GetWFontFamily(), QStringLiteral("Alpha"));
    Gui().SetWFontFamily(QStringLiteral("Beta"));
    Gui().SetFontFamily(QString());
    QCOMPARE(Gui().GetFontFamily(), QStringLiteral("DejaVu Sans"));
    QCOMPARE(Gui().GetWFontFamily(), QStringLiteral("Beta"));
}

void tst_GuiBase::undoStack()
{
    QVERIFY(Gui().UndoStack());
    QCOMPARE(Gui().UndoStack(), Gui().UndoStack());
    QCOMPARE(Gui().UndoStack()->undoLimit(), 1000);
}

void tst_GuiBase::geometryComesBack()
{
    QWidget window;
    Gui().SetMainWidget(&window);
    window.setGeometry(50, 60, 320, 240);
    window.show();
    Gui().StoreWidgetSize();
    QCOMPARE(m_store.ReadString(QStringLiteral("GuiBase/MainWindow"), QString()), QStringLiteral("1;50;60;320;240;0"));
    window.setGeometry(10, 10, 100, 100);
    QVERIFY(Gui().RestoreWidgetSize());
    QCOMPARE(window.geometry(), QRect(50, 60, 320, 240));
    QVERIFY(!window.isMaximized());
}

void tst_GuiBase::maximizedComesBack()
{
    QWidget window;
    Gui().SetMainWidget(&window);
    window.setGeometry(50, 60, 320, 240);
    window.show();
    window.showMaximized();
    Gui().StoreWidgetSize();
    QCOMPARE(m_store.ReadString(QStringLiteral("GuiBase/MainWindow"), QString()), QStringLiteral("1;50;60;320;240;1"));
    QWidget next;
    Gui().SetMainWidget(&next);
    QVERIFY(Gui().RestoreWidgetSize());
    QVERIFY(next.isMaximized());
    QCOMPARE(next.normalGeometry(), QRect(50, 60, 320, 240));
}

void tst_GuiBase::fullScreenIsStoredAsTheWindowBefore()
{
    QWidget window;
    Gui().SetMainWidget(&window);
    window.setGeometry(50, 60, 320, 240);
    window.show();
    window.showFullScreen();
    QTRY_VERIFY(window.geometry() != QRect(50, 60, 320, 240));
    Gui().StoreWidgetSize();
    QCOMPARE(m_store.ReadString(QStringLiteral("GuiBase/MainWindow"), QString()), QStringLiteral("1;50;60;320;240;0"));
}

void tst_GuiBase::geometryIsRefused_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing stored") << QString();
    QTest::newRow("nonsense") << "wide";
    QTest::newRow("another version") << "2;50;60;320;240;0";
    QTest::newRow("no size") << "1;50;60;0;240;0";
    QTest::newRow("far off the screens") << "1;20000;20000;320;240;0";
    QTest::newRow("above the screens") << "1;50;-500;320;240;0";
}

void tst_GuiBase::geometryIsRefused()
{
    QFETCH(QString, text);
    if (!text.isNull())
        m_store.WriteString(QStringLiteral("GuiBase/MainWindow"), text);
    QWidget window;
    Gui().SetMainWidget(&window);
    window.setGeometry(10, 20, 100, 200);
    QVERIFY(!Gui().RestoreWidgetSize());
    QCOMPARE(window.geometry(), QRect(10, 20, 100, 200));
}

void tst_GuiBase::geometryWithoutMainWidget()
{
    m_store.WriteString(QStringLiteral("GuiBase/MainWindow"), QStringLiteral("1;50;60;320;240;0"));
    QVERIFY(!Gui().RestoreWidgetSize());
    m_store.Clear();
    Gui().StoreWidgetSize();
    QVERIFY(m_store.GetKeys().isEmpty());
}

void tst_GuiBase::geometryWithoutStore()
{
    MemoryCfg empty;
    m_store.WriteString(QStringLiteral("GuiBase/MainWindow"), QStringLiteral("1;50;60;320;240;0"));
    Persistant::SetStore(&empty);
    QWidget window;
    Gui().SetMainWidget(&window);
    QVERIFY(!Gui().RestoreWidgetSize());
}

int main(int argc, char * argv[])
{
    static AsksAtExit const asker; // built first, so it asks last
    TestStage::BeforeApplication();
    int widget = 0;
    {
        GuiBase & gui = GuiBase::Instance();
        gui.SetMainWidget(nullptr);
        gui.SetDisplayMode(0);
        widget = gui.AddHotKey(Qt::Key_F12, 0, nullptr, QStringLiteral("early"), QString(), false, false);
        WasBuiltBeforeTheApplication = !qApp && gui.GetTimeZone() && gui.GetFrequencyUnit() && gui.UndoStack() &&
                                       gui.GetFontFamily().isEmpty() && !gui.RestoreWidgetSize();
        gui.RemoveHotKey(widget, false);
    }
    {
        // an application that comes and goes leaves the next one its place
        QApplication first(argc, argv);
        GuiBase::Instance().SetApplication(&first);
    }
    WasBuiltBeforeTheApplication = WasBuiltBeforeTheApplication && !GuiBase::Instance().GetApplication();
    QApplication application(argc, argv);
    TestStage::AfterApplication();
    tst_GuiBase test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_guibase.moc"
