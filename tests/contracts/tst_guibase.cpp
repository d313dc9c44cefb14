// SPDX-License-Identifier: MIT
#include "guibase.h"

#include "memorycfg.h"
#include "persistant.h"
#include "testmain.h"
#include "tree.h"
#include "valuenumeric.h"
#include "valueselection.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>
#include <QUndoStack>
#include <QVBoxLayout>

#include <ctime>
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
    void hotKeysCtrl();

    void fonts();
    void displayMode();
    void frequencyUnit_data();
    void frequencyUnit();
    void frequencyUnitStart();
    void frequencyUnitRefuses();
    void frequencyResolution_data();
    void frequencyResolution();
    void showFrequencyInHz();
    void positionFormat();
    void timeZoneItems();
    void timeZoneNames_data();
    void timeZoneNames();
    void timeZoneStart();
    void timeZoneValue();
    void localTimeFollows();
    void localTimeFollowsEachMinute();
    void selectionsStandInTheTree_data();
    void selectionsStandInTheTree();
    void selectionThatWasRemovedIsMadeAnew();
    void selectionOfTheApplicationIsTaken();
    void foreignValueAtThePath();
    void signalTypes_data();
    void signalTypes();

    void undoStack();

    void geometryComesBack();
    void maximizedComesBack();
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

//! Puts another time zone into the environment while it lives.
class LocalZone
{
public:
    explicit LocalZone(char const * zone) { Set(zone); }

    ~LocalZone() { Set("UTC"); }

    LocalZone(LocalZone const &) = delete;
    LocalZone & operator=(LocalZone const &) = delete;

    static void Set(char const * zone)
    {
        qputenv("TZ", zone);
        tzset();
    }
};

class CodeCounter : public IObserver
{
public:
    void Update(Observable *, TChangeCode code) override { m_codes.push_back(code); }

    std::vector<int> m_codes;
};

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
    Gui().SetFontFamily(QString());
    QCOMPARE(Gui().GetFontFamily(), QStringLiteral("DejaVu Sans"));
    QCOMPARE(Gui().GetWFontFamily(), QStringLiteral("Beta"));
}

void tst_GuiBase::displayMode()
{
    QCOMPARE(Gui().GetDisplayMode(), 0);
    Gui().SetDisplayMode(-7);
    QCOMPARE(Gui().GetDisplayMode(), -7);
    Gui().SetDisplayMode(0);
}

void tst_GuiBase::frequencyUnit_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("name");
    QTest::addColumn<double>("factor");
    QTest::addColumn<int>("suffix");
    QTest::newRow("Hz") << 0 << "Hz" << 1.0 << int(SuffixedDouble::eSuffixNone);
    QTest::newRow("kHz") << 1 << "kHz" << 1e3 << int(SuffixedDouble::eSuffixKilo);
    QTest::newRow("MHz") << 2 << "MHz" << 1e6 << int(SuffixedDouble::eSuffixMega);
    QTest::newRow("GHz") << 3 << "GHz" << 1e9 << int(SuffixedDouble::eSuffixGiga);
}

void tst_GuiBase::frequencyUnit()
{
    QFETCH(int, index);
    QFETCH(int, suffix);
    ValueSelection * const unit = Gui().GetFrequencyUnit();
    QVERIFY(unit);
    QCOMPARE(unit->GetItemCount(), 4);
    SelectionItem const * const item = unit->GetItemAt(index);
    QTEST(item->GetName(), "name");
    QTEST(item->GetValue(), "factor");
    QCOMPARE(item->GetKey(), static_cast<long>(suffix));
    Gui().SetFrequencyUnit(static_cast<SuffixedDouble::ESuffix>(suffix));
    QCOMPARE(unit->GetCurrentIndex(), index);
    QCOMPARE(SuffixedDouble(static_cast<SuffixedDouble::ESuffix>(suffix)).GetPureSuffix(), item->GetName());
}

void tst_GuiBase::frequencyUnitStart() { QCOMPARE(Gui().GetFrequencyUnit()->GetStringValue(), QStringLiteral("MHz")); }

void tst_GuiBase::frequencyUnitRefuses()
{
    for (int const suffix : { -3, -1, 4, 100, 12345 }) {
        Gui().SetFrequencyUnit(static_cast<SuffixedDouble::ESuffix>(suffix));
        QCOMPARE(Gui().GetFrequencyUnit()->GetStringValue(), QStringLiteral("MHz"));
    }
}

void tst_GuiBase::frequencyResolution_data()
{
    QTest::addColumn<int>("suffix");
    QTest::addColumn<int>("held");
    QTest::newRow("hertz") << 0 << 0;
    QTest::newRow("kilohertz") << 1 << 1;
    QTest::newRow("megahertz") << 2 << 2;
    QTest::newRow("gigahertz") << 3 << 3;
    QTest::newRow("terahertz is refused") << 4 << 1;
    QTest::newRow("millihertz is refused") << -1 << 1;
    QTest::newRow("auto is refused") << 100 << 1;
}

void tst_GuiBase::frequencyResolution()
{
    QFETCH(int, suffix);
    Gui().SetFrequencyResolution(SuffixedDouble::eSuffixKilo);
    Gui().SetFrequencyResolution(static_cast<SuffixedDouble::ESuffix>(suffix));
    QTEST(int(Gui().GetFrequencyResolution()), "held");
    Gui().SetFrequencyResolution(SuffixedDouble::eSuffixNone);
}

void tst_GuiBase::showFrequencyInHz()
{
    QCOMPARE(Gui().GetShowFrequencyInHz(), 0);
    Gui().SetShowFrequencyInHz(true);
    QCOMPARE(Gui().GetShowFrequencyInHz(), 1);
    Gui().SetShowFrequencyInHz(false);
    QCOMPARE(Gui().GetShowFrequencyInHz(), 0);
}

void tst_GuiBase::positionFormat()
{
    ValueSelection * const format = Gui().GetPositionFormat();
    QStringList const names{ "Degrees", "Degrees, minutes", "Degrees, minutes, seconds", "UTM", "MGRS" };
    QCOMPARE(format->GetItemCount(), 5);
    for (int i = 0; i < 5; ++i) {
        QCOMPARE(format->GetItemAt(i)->GetName(), names.at(i));
        QCOMPARE(format->GetItemAt(i)->GetKey(), static_cast<long>(i));
    }
    QCOMPARE(format->GetCurrentKey(), 0L);
}

void tst_GuiBase::timeZoneItems()
{
    ValueSelection * const zone = Gui().GetTimeZone();
    QCOMPARE(zone->GetItemCount(), 54);
    QCOMPARE(zone->GetItemAt(0)->GetName(), QStringLiteral("UTC"));
    QCOMPARE(zone->GetItemAt(1)->GetName(), QStringLiteral("Local time"));
    double earlier = -13.0 * 3600.0;
    for (int i = 2; i < 54; ++i) {
        SelectionItem const * const item = zone->GetItemAt(i);
        QCOMPARE(item->GetKey(), static_cast<long>(item->GetValue()));
        QVERIFY(item->GetValue() > earlier && item->GetKey() % 1800 == 0 && item->GetKey() != 0);
        earlier = item->GetValue();
    }
}

void tst_GuiBase::timeZoneNames_data()
{
    QTest::addColumn<long>("key");
    QTest::addColumn<QString>("name");
    QTest::addColumn<double>("seconds");
    QTest::newRow("UTC") << 0L << "UTC" << 0.0;
    QTest::newRow("local") << 1L << "Local time" << 0.0;
    QTest::newRow("the first") << -43200L << "UTC-12:00" << -43200.0;
    QTest::newRow("half an hour west") << -1800L << "UTC-00:30" << -1800.0;
    QTest::newRow("half an hour east") << 1800L << "UTC+00:30" << 1800.0;
    QTest::newRow("a whole hour") << 3600L << "UTC+01:00" << 3600.0;
    QTest::newRow("west with a half") << -12600L << "UTC-03:30" << -12600.0;
    QTest::newRow("east with a half") << 19800L << "UTC+05:30" << 19800.0;
    QTest::newRow("the last") << 50400L << "UTC+14:00" << 50400.0;
}

void tst_GuiBase::timeZoneNames()
{
    QFETCH(long, key);
    SelectionItem const * const item = Gui().GetTimeZone()->GetItem(key);
    QVERIFY(item);
    QTEST(item->GetName(), "name");
    QTEST(item->GetValue(), "seconds");
}

void tst_GuiBase::timeZoneStart()
{
    QCOMPARE(Gui().GetTimeZone()->GetCurrentKey(), 0L);
    QVERIFY(Gui().GetTimeZone()->GetCurrentItem());
    QCOMPARE(Gui().GetTimeZoneValue(), 0LL);
}

void tst_GuiBase::timeZoneValue()
{
    QVERIFY(Gui().GetTimeZone()->Select(19800L, nullptr));
    QCOMPARE(Gui().GetTimeZone()->GetCurrentValue(), 19800.0);
    QCOMPARE(Gui().GetTimeZoneValue(), 19800LL);
    QVERIFY(Gui().GetTimeZone()->Select(QStringLiteral("UTC-03:30"), nullptr));
    QCOMPARE(Gui().GetTimeZoneValue(), -12600LL);
}

void tst_GuiBase::localTimeFollows()
{
    LocalZone const zone("XXX-2");
    ValueSelection * const selection = Gui().GetTimeZone();
    QCOMPARE(selection->GetItem(1L)->GetValue(), 7200.0);
    CodeCounter utc;
    selection->AddObserver(&utc);
    LocalZone::Set("XXX-3");
    Gui().slotUpdateLocalTime();
    QCOMPARE(selection->GetItem(1L)->GetValue(), 10800.0);
    QCOMPARE(selection->GetCurrentKey(), 0L);
    QVERIFY(utc.m_codes == std::vector<int>{ eItemsChanged }); // what is shown in UTC stays
    selection->Select(1L, nullptr);
    QCOMPARE(Gui().GetTimeZoneValue(), 10800LL);
    utc.m_codes.clear();
    LocalZone::Set("XXX5:30");
    Gui().slotUpdateLocalTime();
    QCOMPARE(Gui().GetTimeZoneValue(), -19800LL);
    QVERIFY(utc.m_codes == (std::vector<int>{ eItemsChanged, eValueChanged }));
    utc.m_codes.clear();
    Gui().slotUpdateLocalTime();
    QVERIFY(utc.m_codes.empty());
}

void tst_GuiBase::localTimeFollowsEachMinute()
{
    QTimer * watch = nullptr;
    for (auto * const timer : qApp->findChildren<QTimer *>())
        if (timer->interval() == 60000)
            watch = timer;
    QVERIFY(watch && watch->isActive());
    Gui().GetTimeZone()->Select(1L, nullptr);
    LocalZone const zone("XXX-4");
    QTimerEvent tick(watch->timerId());
    QCoreApplication::sendEvent(watch, &tick);
    QCOMPARE(Gui().GetTimeZoneValue(), 14400LL);
    Gui().SetApplication(nullptr);
    for (auto const * const timer : qApp->findChildren<QTimer *>())
        QVERIFY(timer->interval() != 60000);
}

void tst_GuiBase::selectionsStandInTheTree_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("frequency unit") << "FrequencyUnit";
    QTest::newRow("position format") << "PositionFormat";
    QTest::newRow("time zone") << "TimeZone";
}

void tst_GuiBase::selectionsStandInTheTree()
{
    QFETCH(QString, name);
    ValueSelection const * const held = name == "FrequencyUnit"    ? Gui().GetFrequencyUnit()
                                        : name == "PositionFormat" ? Gui().GetPositionFormat()
                                                                   : Gui().GetTimeZone();
    QCOMPARE(Tree::Instance()->FindAs<ValueSelection>(QStringLiteral("/GuiBase/") + name), held);
}

void tst_GuiBase::selectionThatWasRemovedIsMadeAnew()
{
    Gui().GetTimeZone()->Select(3600L, nullptr);
    QVERIFY(Tree::Instance()->Remove(QStringLiteral("/GuiBase/TimeZone")));
    QVERIFY(Gui().GetTimeZone());
    QCOMPARE(Gui().GetTimeZoneValue(), 0LL);
}

void tst_GuiBase::selectionOfTheApplicationIsTaken()
{
    auto * const own = new ValueSelection(QStringLiteral("TimeZone"));
    own->AddItem(SelectionItem(QStringLiteral("Ship"), 1234.0, 9L));
    own->Select(9L, nullptr);
    QVERIFY(Tree::Instance()->Insert(QStringLiteral("/GuiBase"), own));
    QCOMPARE(Gui().GetTimeZone(), own);
    QCOMPARE(Gui().GetTimeZoneValue(), 1234LL);
    Gui().slotUpdateLocalTime(); // it has no local time
    QCOMPARE(own->GetItemCount(), 1);
}

void tst_GuiBase::foreignValueAtThePath()
{
    auto * const number = new ValueNumeric<double>(QStringLiteral("TimeZone"));
    QVERIFY(Tree::Instance()->Insert(QStringLiteral("/GuiBase"), number));
    QVERIFY(!Gui().GetTimeZone());
    QCOMPARE(Gui().GetTimeZoneValue(), 0LL);
    Gui().slotUpdateLocalTime();
}

void tst_GuiBase::signalTypes_data()
{
    QTest::addColumn<char>("letter");
    QTest::addColumn<QString>("text");
    QTest::newRow("A") << 'A' << "Amplitude modulation, double sideband";
    QTest::newRow("B") << 'B' << "Amplitude modulation, independent sidebands";
    QTest::newRow("C") << 'C' << "Amplitude modulation, vestigial sideband";
    QTest::newRow("D") << 'D' << "Amplitude and angle modulation";
    QTest::newRow("F") << 'F' << "Frequency modulation";
    QTest::newRow("G") << 'G' << "Phase modulation";
    QTest::newRow("H") << 'H' << "Single sideband, full carrier";
    QTest::newRow("J") << 'J' << "Single sideband, suppressed carrier";
    QTest::newRow("K") << 'K' << "Pulses, amplitude modulated";
    QTest::newRow("L") << 'L' << "Pulses, width modulated";
    QTest::newRow("M") << 'M' << "Pulses, position modulated";
    QTest::newRow("N") << 'N' << "Unmodulated carrier";
    QTest::newRow("P") << 'P' << "Pulses, unmodulated";
    QTest::newRow("Q") << 'Q' << "Pulses, angle modulated";
    QTest::newRow("R") << 'R' << "Single sideband, reduced carrier";
    QTest::newRow("V") << 'V' << "Pulses, several modulations";
    QTest::newRow("W") << 'W' << "Several modulations";
    QTest::newRow("X") << 'X' << "Other modulation";
    QTest::newRow("lower case") << 'f' << "Frequency modulation";
    QTest::newRow("E is none") << 'E' << "";
    QTest::newRow("a digit") << '3' << "";
    QTest::newRow("null") << '\0' << "";
    QTest::newRow("beyond ASCII") << '\xE4' << "";
}

void tst_GuiBase::signalTypes()
{
    QFETCH(char, letter);
    QTEST(Gui().GetSignalType(letter), "text");
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
