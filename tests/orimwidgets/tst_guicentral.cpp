// SPDX-License-Identifier: MIT
#include "guicentral.h"

#include "colorset.h"
#include "errorhandler.h"
#include "guardedbuild.h"
#include "guibase.h"
#include "guicentralaccess.h"
#include "hotkeysctrl.h"
#include "krexception.h"
#include "memorycfg.h"
#include "testmain.h"
#include "translationcenter.h"
#include "tree.h"
#include "valueselection.h"

#include <QAction>
#include <QDialog>
#include <QMetaMethod>
#include <QPen>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <functional>

namespace {

using Central = GuiCentral;

// What is handed on keeps its shape.
static_assert(!std::is_default_constructible_v<Central>);
static_assert(std::has_virtual_destructor_v<Central>);
static_assert(std::is_same_v<decltype(&Central::Instance), Central & (*)()>);
static_assert(std::is_same_v<decltype(&Central::GetApplication), QApplication * (Central::*)() const>);
static_assert(std::is_same_v<decltype(&Central::GetMainWidget), QWidget * (Central::*)() const>);
static_assert(std::is_same_v<decltype(&Central::RestoreWidgetSize), bool (Central::*)()>);
static_assert(std::is_same_v<decltype(&Central::SetDefaultDataDirectory), bool (Central::*)(QString const &)>);
static_assert(std::is_same_v<decltype(&Central::GetDefaultDataDirectory), QString const & (Central::*)() const>);
static_assert(std::is_same_v<decltype(&Central::GetSignalType), QString (Central::*)(char)>);
static_assert(std::is_same_v<decltype(&Central::GetShowFrequencyInHz), int (Central::*)() const>);
static_assert(std::is_same_v<decltype(&Central::GetFrequencyUnit), ValueSelection * (Central::*)() const>);
static_assert(std::is_same_v<decltype(&Central::GetFrequencyResolution), SuffixedDouble::ESuffix (Central::*)()>);
static_assert(std::is_same_v<decltype(&Central::GetFontFamily), QString const & (Central::*)() const>);
static_assert(std::is_same_v<decltype(&Central::GetWFontFamily), QString const & (Central::*)() const>);
static_assert(std::is_same_v<decltype(&Central::GetDisplayMode), int (Central::*)() const>);
static_assert(std::is_same_v<decltype(&Central::GetPositionFormat), ValueSelection * (Central::*)() const>);
static_assert(
    std::is_same_v<decltype(&Central::GetIndex4HotKey), int (Central::*)(Qt::Key, Qt::KeyboardModifier) const>);
static_assert(std::is_same_v<decltype(&Central::GetHotkeysCtrl), QWidget * (Central::*)(QWidget *)>);
static_assert(std::is_same_v<decltype(&Central::GetGuiName), QString (Central::*)()>);
static_assert(std::is_same_v<decltype(&Central::GetDrawHiddenPanes), bool (Central::*)() const>);
static_assert(std::is_same_v<decltype(&Central::GetValuePath4ID), ValueBase * (Central::*)(VC::ID)>);
static_assert(QEvent::Close == 19);

constexpr auto QStringAddHotKey =
    static_cast<int (Central::*)(Qt::Key, unsigned int, QObject *, QString, QString, bool, bool)>(&Central::AddHotKey);
constexpr auto WideAddHotKey =
    static_cast<int (Central::*)(Qt::Key, unsigned int, QObject *, wchar_t const *, wchar_t const *, bool, bool)>(
        &Central::AddHotKey);
constexpr auto RemoveByKey = static_cast<int (Central::*)(Qt::Key, Qt::KeyboardModifier)>(&Central::RemoveHotKey);
constexpr auto RemoveByIndex = static_cast<void (Central::*)(int, bool)>(&Central::RemoveHotKey);

GuiBase & Gui() { return GuiBase::Instance(); }

//! A store that tells what it was asked, and may do something meanwhile.
class ListeningCfg : public ICfg
{
public:
    QString ReadString(QString const & key, QString const & fallback) override
    {
        m_reads << key;
        return m_texts.value(key, fallback);
    }

    void WriteString(QString const & key, QString const & text) override
    {
        m_writes << key;
        m_texts[key] = text;
        if (m_onWrite)
            m_onWrite();
    }

    bool Flush() override
    {
        ++m_flushes;
        return m_lasts;
    }

    QMap<QString, QString> m_texts;
    QStringList m_reads;
    QStringList m_writes;
    std::function<void()> m_onWrite;
    int m_flushes = 0;
    bool m_lasts = true;
};

//! The keys of the store, in the order of adding.
QStringList Keys()
{
    return { QStringLiteral("GuiCentral/ColorSet"),       QStringLiteral("GuiCentral/ColorSetA"),
             QStringLiteral("GuiCentral/ColorSetE"),      QStringLiteral("GuiCentral/ColorSetBitStream"),
             QStringLiteral("GuiCentral/ColorSetAgeing"), QStringLiteral("GuiCentral/ColorSetQuality"),
             QStringLiteral("GuiCentral/ColorSetPifpan"), QStringLiteral("GuiCentral/ColorSetDifferenceMode"),
             QStringLiteral("GuiCentral/UserColor0"),     QStringLiteral("GuiCentral/UserColor1"),
             QStringLiteral("GuiCentral/UserColor2") };
}

QStringList s_lines; // "type: text" of what is logged

//! Catches what is logged while it lives.
class Net
{
public:
    Net() : m_before(qInstallMessageHandler(Note)) { s_lines.clear(); }

    Net(Net const &) = delete;
    Net & operator=(Net const &) = delete;

    ~Net() { qInstallMessageHandler(m_before); }

private:
    static void Note(QtMsgType type, QMessageLogContext const &, QString const & text)
    {
        s_lines << QString::number(type) + QLatin1String(": ") + text;
    }

    QtMessageHandler m_before;
};

//! An exception without a text.
class Mute : public std::exception
{
public:
    char const * what() const noexcept override { return nullptr; }
};

template <class T>
T * Insert(char const * name)
{
    auto * const value = new T(QString::fromLatin1(name));
    Tree::Instance()->Insert(QStringLiteral("/central"), value);
    return value;
}

QString Path(char const * name) { return QStringLiteral("/central/") + QLatin1String(name); }

} // namespace

class tst_GuiCentral : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void init();
    void cleanup();

    void oneInstance();
    void castsByName_data();
    void castsByName();
    void basesInOrder();
    void translates();
    void translationIsRegisteredOnce();
    void methods_data();
    void methods();
    void applicationRaisesSignals_data();
    void applicationRaisesSignals();
    void frequencyToJob_data();
    void frequencyToJob();

    void handsOn_data();
    void handsOn();
    void addedHotKeyModifiers_data();
    void addedHotKeyModifiers();
    void hotKeysDialog();
    void dataDirectoryIsThatOfGuiBase();
    void relaysHotKeys();
    void relaysEscape();
    void noHotKeyOfItsOwn();

    void startingState();
    void ownState();
    void constructorReadsInOrder();
    void constructorRaisesOnceBeforeAndOnceAfterReading();
    void listenerOfTheConstructorGetsWhatIsBuilt();
    void commonColorsSurviveTheStart();

    void beforeWriteDoesNothing();
    void afterReadTellsOfColors();
    void restoresDefaultOnSignal();
    void restoreDefaultIsVirtual();
    void restoreDefaultAfterTermination();

    void valuePaths_data();
    void valuePaths();
    void unsetValuePathLeavesAnEntry();
    void valuePathOfARemovedValue();

    void eventFilterAnswers_data();
    void eventFilterAnswers();
    void blockedWidgetStaysOpen();
    void storedWidgetCloses();
    void storedWidgetNeverShown();
    void childOfAWindow();
    void blockedWindowHandle();
    void blockingEnds_data();
    void blockingEnds();
    void blocksOnlyItsApplication();

    void resultGoesAway();
    void updateIgnores_data();
    void updateIgnores();
    void updateWithoutOperation();
    void updateOfNoValue();

    void terminationWrites();
    void terminationWritesFirst();
    void secondTerminationWritesNothing();
    void terminationInsideItsOwnWrite();
    void terminationOfAFailingStore();
    void terminationEndsOperations();
    void terminationByTheApplication();
    void colorsAfterTermination();
    void destructorTerminates();

    void guardedBuild_data();
    void guardedBuild();
    void guardedBuildSucceeds();
    void guardedBuildPassesOthersUp();

private:
    ListeningCfg m_store;
    ICfg * m_pStoreBefore = nullptr;
};

void tst_GuiCentral::init()
{
    GuiCentral::Instance(); // reads and keeps to the store of the test stage
    m_pStoreBefore = Persistant::Store();
    m_store.m_texts.clear();
    m_store.m_reads.clear();
    m_store.m_writes.clear();
    m_store.m_onWrite = nullptr;
    m_store.m_flushes = 0;
    m_store.m_lasts = true;
    Persistant::SetStore(&m_store);
    Gui().SetApplication(qApp);
}

void tst_GuiCentral::cleanup()
{
    Gui().RemoveHotKeyReceiver(this);
    Gui().SetApplication(nullptr);
    Gui().SetMainWidget(nullptr);
    Gui().SetFontFamily(QString());
    Gui().SetWFontFamily(QString());
    Tree::Instance()->RemoveFolder(QStringLiteral("/central"));
    Persistant::SetStore(m_pStoreBefore);
}

void tst_GuiCentral::oneInstance()
{
    QCOMPARE(&GuiCentral::Instance(), &GuiCentral::Instance());
    QCOMPARE(GuiCentral::Instance().metaObject()->className(), "GuiCentral");
}

void tst_GuiCentral::castsByName_data()
{
    GuiCentral & central = GuiCentral::Instance();
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<void *>("pointer");
    QTest::newRow("itself") << QByteArray("GuiCentral") << static_cast<void *>(&central);
    QTest::newRow("observer") << QByteArray("IObserver") << static_cast<void *>(static_cast<IObserver *>(&central));
    QTest::newRow("owner of a group") << QByteArray("PersistantOwner")
                                      << static_cast<void *>(static_cast<PersistantOwner *>(&central));
    QTest::newRow("target of the end") << QByteArray("IAbstractTerminationTarget")
                                       << static_cast<void *>(static_cast<IAbstractTerminationTarget *>(&central));
    QTest::newRow("the rest is left to QObject")
        << QByteArray("QObject") << static_cast<void *>(static_cast<QObject *>(&central));
    QTest::newRow("unknown") << QByteArray("QWidget") << static_cast<void *>(nullptr);
}

void tst_GuiCentral::castsByName()
{
    QFETCH(QByteArray, name);
    QFETCH(void *, pointer);
    QCOMPARE(GuiCentral::Instance().qt_metacast(name.constData()), pointer);
}

void tst_GuiCentral::basesInOrder()
{
    GuiCentral & central = GuiCentral::Instance();
    auto const at = [](auto * base) { return reinterpret_cast<quintptr>(base); };
    quintptr const bases[] = { at(static_cast<QObject *>(&central)), at(static_cast<IObserver *>(&central)),
                               at(static_cast<PersistantOwner *>(&central)),
                               at(static_cast<IAbstractTerminationTarget *>(&central)) };
    QVERIFY(std::is_sorted(std::begin(bases), std::end(bases)));
}

void tst_GuiCentral::translates()
{
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    QCOMPARE(GuiCentral::tr("Rainbow"), QStringLiteral("Rainbow"));
    QCOMPARE(GuiCentral::tr("%n sets", "comment", 3), QStringLiteral("3 sets"));
    QCOMPARE(GuiCentral::trUtf8("Rainbow", "comment"), QStringLiteral("Rainbow"));
    QCOMPARE(GuiCentral::trUtf8("%n sets", nullptr, 4), QStringLiteral("4 sets"));
    QT_WARNING_POP
}

void tst_GuiCentral::translationIsRegisteredOnce()
{
    QCOMPARE(TranslationCenter::Instance()->GetCount(QStringLiteral("OrimWidgets")), 1);
}

void tst_GuiCentral::methods_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QByteArray>("signature");
    QTest::addColumn<bool>("isSignal");
    QTest::newRow("0") << 0 << QByteArray("focusLost()") << true;
    QTest::newRow("1") << 1 << QByteArray("hasFocus()") << true;
    QTest::newRow("2") << 2 << QByteArray("signalKnownFrequencyListChanged()") << true;
    QTest::newRow("3") << 3 << QByteArray("signalHotKey(int)") << true;
    QTest::newRow("4") << 4 << QByteArray("hotkey_ESC_pressed()") << true;
    QTest::newRow("5") << 5 << QByteArray("FrequencyToJob(double)") << true;
    QTest::newRow("6") << 6 << QByteArray("signalRestoreDefaultPersistant()") << true;
    QTest::newRow("7") << 7 << QByteArray("slotRestoreDefaultPersistant()") << false;
    QTest::newRow("8") << 8 << QByteArray("slotRestoreFactoryColors()") << false;
}

void tst_GuiCentral::methods()
{
    QFETCH(int, index);
    QFETCH(QByteArray, signature);
    QFETCH(bool, isSignal);
    QMetaObject const & meta = GuiCentral::staticMetaObject;
    QMetaMethod const method = meta.method(meta.methodOffset() + index);
    QCOMPARE(method.methodSignature(), signature);
    QCOMPARE(method.methodType() == QMetaMethod::Signal, isSignal);
    QCOMPARE(method.methodType() == QMetaMethod::Slot, !isSignal);
}

void tst_GuiCentral::applicationRaisesSignals_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("focus lost") << QByteArray("focusLost");
    QTest::newRow("has focus") << QByteArray("hasFocus");
    QTest::newRow("known frequencies") << QByteArray("signalKnownFrequencyListChanged");
}

void tst_GuiCentral::applicationRaisesSignals()
{
    QFETCH(QByteArray, name);
    GuiCentralAccess central;
    QSignalSpy const spy(&central, QByteArray("2" + name + "()").constData());
    QVERIFY(QMetaObject::invokeMethod(&central, name.constData()));
    QCOMPARE(spy.count(), 1);
}

void tst_GuiCentral::frequencyToJob_data()
{
    QTest::addColumn<double>("frequency");
    QTest::newRow("a frequency") << 98.5e6;
    QTest::newRow("zero") << 0.0;
    QTest::newRow("NaN") << qQNaN();
    QTest::newRow("infinite") << qInf();
}

void tst_GuiCentral::frequencyToJob()
{
    QFETCH(double, frequency);
    GuiCentralAccess central;
    QSignalSpy const spy(&central, &GuiCentral::FrequencyToJob);
    central.emit_toJob(frequency);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toDouble(), frequency);
}

namespace {

//! What is handed on to GuiBase: each row tells whether the call arrived, or the answer came back.
struct HandedOn
{
    char const * name;
    bool (*check)(GuiCentral & central, QObject * receiver);
};

int Add(GuiCentral & central, QObject * receiver, int key, char const * name)
{
    return central.AddHotKey(static_cast<Qt::Key>(key), 0u, receiver, QString::fromLatin1(name),
                             QStringLiteral("Group"), true, false);
}

HotKey const * Get(int index) { return Gui().GetHotKeys().Get(index); }

HandedOn const HandedOnRows[] = {
    { "SetApplication",
      [](GuiCentral & central, QObject *) {
          Gui().SetApplication(nullptr);
          central.SetApplication(qApp);
          bool const set = Gui().GetApplication() == qApp;
          central.SetApplication(nullptr);
          return set && !Gui().GetApplication();
      } },
    { "GetApplication",
      [](GuiCentral & central, QObject *) {
          bool const set = central.GetApplication() == qApp;
          Gui().SetApplication(nullptr);
          return set && !central.GetApplication();
      } },
    { "SetMainWidget, GetMainWidget",
      [](GuiCentral & central, QObject *) {
          QWidget widget;
          central.SetMainWidget(&widget);
          return Gui().GetMainWidget() == &widget && central.GetMainWidget() == &widget;
      } },
    { "RestoreWidgetSize without a main window",
      [](GuiCentral & central, QObject *) { return !central.RestoreWidgetSize(); } },
    { "StoreWidgetSize, RestoreWidgetSize",
      [](GuiCentral & central, QObject *) {
          QWidget widget;
          Gui().SetMainWidget(&widget);
          widget.setGeometry(40, 50, 300, 200);
          central.StoreWidgetSize();
          widget.setGeometry(10, 10, 100, 100);
          return central.RestoreWidgetSize() && widget.geometry() == QRect(40, 50, 300, 200);
      } },
    { "SetDefaultDataDirectory",
      [](GuiCentral & central, QObject *) {
          QTemporaryDir const folder;
          bool const isTaken = central.SetDefaultDataDirectory(folder.path());
          return isTaken && Gui().m_defaultDataDirectory == folder.path() &&
                 !central.SetDefaultDataDirectory(QString());
      } },
    { "GetSignalType",
      [](GuiCentral & central, QObject *) {
          return !central.GetSignalType('F').isEmpty() && central.GetSignalType('F') == Gui().GetSignalType('F') &&
                 central.GetSignalType('\x01').isEmpty();
      } },
    { "SetShowFrequencyInHz, GetShowFrequencyInHz",
      [](GuiCentral & central, QObject *) {
          central.SetShowFrequencyInHz(true);
          bool const on = Gui().GetShowFrequencyInHz() == 1 && central.GetShowFrequencyInHz() == 1;
          central.SetShowFrequencyInHz(false);
          return on && Gui().GetShowFrequencyInHz() == 0 && central.GetShowFrequencyInHz() == 0;
      } },
    { "GetFrequencyUnit",
      [](GuiCentral & central, QObject *) {
          return central.GetFrequencyUnit() && central.GetFrequencyUnit() == Gui().GetFrequencyUnit();
      } },
    { "SetFrequencyUnit",
      [](GuiCentral & central, QObject *) {
          central.SetFrequencyUnit(SuffixedDouble::eSuffixKilo);
          return Gui().GetFrequencyUnit()->GetCurrentKey() == SuffixedDouble::eSuffixKilo;
      } },
    { "SetFrequencyResolution, GetFrequencyResolution",
      [](GuiCentral & central, QObject *) {
          central.SetFrequencyResolution(SuffixedDouble::eSuffixKilo);
          bool const set = Gui().GetFrequencyResolution() == SuffixedDouble::eSuffixKilo;
          Gui().SetFrequencyResolution(SuffixedDouble::eSuffixNone);
          return set && central.GetFrequencyResolution() == SuffixedDouble::eSuffixNone;
      } },
    { "SetFontFamily, GetFontFamily",
      [](GuiCentral & central, QObject *) {
          central.SetFontFamily(QStringLiteral("Plain"));
          return Gui().GetFontFamily() == QLatin1String("Plain") && &central.GetFontFamily() == &Gui().GetFontFamily();
      } },
    { "SetWFontFamily, GetWFontFamily",
      [](GuiCentral & central, QObject *) {
          central.SetWFontFamily(QStringLiteral("Wide"));
          return Gui().GetWFontFamily() == QLatin1String("Wide") &&
                 &central.GetWFontFamily() == &Gui().GetWFontFamily();
      } },
    { "SetDisplayMode, GetDisplayMode",
      [](GuiCentral & central, QObject *) {
          central.SetDisplayMode(3);
          bool const set = Gui().GetDisplayMode() == 3 && central.GetDisplayMode() == 3;
          central.SetDisplayMode(0);
          return set;
      } },
    { "GetPositionFormat",
      [](GuiCentral & central, QObject *) {
          return central.GetPositionFormat() && central.GetPositionFormat() == Gui().GetPositionFormat();
      } },
    { "AddHotKey",
      [](GuiCentral & central, QObject * receiver) {
          int const index = (central.*QStringAddHotKey)(Qt::Key_F5, 0u, receiver, QStringLiteral("a"),
                                                        QStringLiteral("g"), true, false);
          HotKey const * const hotKey = Get(index);
          return hotKey && hotKey->receiver == receiver && hotKey->name == QLatin1String("a") &&
                 hotKey->group == QLatin1String("g") && hotKey->changeable && !hotKey->throughModal;
      } },
    { "AddHotKey with wide texts",
      [](GuiCentral & central, QObject * receiver) {
          int const index = (central.*WideAddHotKey)(Qt::Key_F5, 0u, receiver, L"a", L"g", false, true);
          HotKey const * const hotKey = Get(index);
          return hotKey && hotKey->receiver == receiver && hotKey->name == QLatin1String("a") &&
                 hotKey->group == QLatin1String("g") && !hotKey->changeable && hotKey->throughModal;
      } },
    { "AddHotKey of a key that is none",
      [](GuiCentral & central, QObject * receiver) { return Add(central, receiver, Qt::Key_unknown, "a") == -1; } },
    { "ShowHotKeyFrom",
      [](GuiCentral & central, QObject * receiver) {
          Add(central, receiver, Qt::Key_F5, "a");
          QAction action(QStringLiteral("text"), nullptr);
          central.ShowHotKeyFrom(&action, QStringLiteral("a"));
          return action.text() == QLatin1String("text\tF5");
      } },
    { "EnableHotKey",
      [](GuiCentral & central, QObject * receiver) {
          int const index = Add(central, receiver, Qt::Key_F5, "a");
          central.EnableHotKey(index, false);
          bool const off = !Get(index)->enabled;
          central.EnableHotKey(index, true);
          return off && Get(index)->enabled;
      } },
    { "RemoveHotKey by index",
      [](GuiCentral & central, QObject * receiver) {
          int const index = Add(central, receiver, Qt::Key_F5, "a");
          Gui().ChangeHotKey(index, HotKeyCombination::From(Qt::Key_F9, 0));
          (central.*RemoveByIndex)(index, false);
          bool const isKept =
              !Get(index) && Get(Add(central, receiver, Qt::Key_F5, "a"))->combination.key == Qt::Key_F9;
          (central.*RemoveByIndex)(Gui().GetIndex4HotKey(Qt::Key_F9, 0), true);
          return isKept && Get(Add(central, receiver, Qt::Key_F5, "a"))->combination.key == Qt::Key_F5;
      } },
    { "RemoveHotKey by key",
      [](GuiCentral & central, QObject * receiver) {
          int const plain = Add(central, receiver, Qt::Key_F5, "a");
          int const shifted =
              Gui().AddHotKey(Qt::Key_F5, Qt::ShiftModifier, receiver, QStringLiteral("b"), QString(), true, false);
          return (central.*RemoveByKey)(Qt::Key_F5, Qt::ShiftModifier) == shifted && !Get(shifted) && Get(plain) &&
                 (central.*RemoveByKey)(Qt::Key_F5, Qt::ShiftModifier) == -1;
      } },
    { "RemoveHotKeyReceiver",
      [](GuiCentral & central, QObject * receiver) {
          int const index = Add(central, receiver, Qt::Key_F5, "a");
          central.RemoveHotKeyReceiver(receiver);
          return !Get(index);
      } },
    { "GetIndex4HotKey",
      [](GuiCentral & central, QObject * receiver) {
          int const index =
              Gui().AddHotKey(Qt::Key_F5, Qt::AltModifier, receiver, QStringLiteral("a"), QString(), true, false);
          return central.GetIndex4HotKey(Qt::Key_F5, Qt::AltModifier) == index &&
                 central.GetIndex4HotKey(Qt::Key_F5, Qt::NoModifier) == -1;
      } },
    { "GetHotkeysCtrl",
      [](GuiCentral & central, QObject *) {
          QWidget parent;
          QWidget * const ctrl = central.GetHotkeysCtrl(&parent);
          return qobject_cast<HotkeysCtrl *>(ctrl) && ctrl->parentWidget() == &parent;
      } },
};

} // namespace

void tst_GuiCentral::handsOn_data()
{
    QTest::addColumn<int>("row");
    int i = 0;
    for (HandedOn const & row : HandedOnRows)
        QTest::newRow(row.name) << i++;
}

void tst_GuiCentral::handsOn()
{
    QFETCH(int, row);
    GuiCentralAccess central;
    QVERIFY(HandedOnRows[row].check(central, this));
}

void tst_GuiCentral::addedHotKeyModifiers_data()
{
    QTest::addColumn<unsigned int>("modifiers");
    QTest::addColumn<int>("heard");
    QTest::newRow("none") << 0u << 0;
    QTest::newRow("Control") << 0x04000000u << 0x04000000;
    QTest::newRow("beyond an int") << 0x86000000u << 0x06000000;
}

void tst_GuiCentral::addedHotKeyModifiers()
{
    QFETCH(unsigned int, modifiers);
    QFETCH(int, heard);
    GuiCentralAccess central;
    int const index = central.AddHotKey(Qt::Key_F5, modifiers, this, QStringLiteral("a"), QString(), true, false);
    QCOMPARE(Get(index)->combination.modifiers, heard);
}

void tst_GuiCentral::hotKeysDialog()
{
    GuiCentralAccess central;
    QWidget parent;
    bool seen = false;
    QTimer::singleShot(0, this, [&] {
        auto * const dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        seen = dialog && dialog->parentWidget() == &parent && dialog->findChild<HotkeysCtrl *>();
        if (dialog)
            dialog->reject();
    });
    central.ExecHotKeysDialog(&parent);
    QVERIFY(seen);
}

void tst_GuiCentral::dataDirectoryIsThatOfGuiBase()
{
    GuiCentralAccess central;
    QTemporaryDir const folder;
    QString const & held = central.GetDefaultDataDirectory();
    QVERIFY(Gui().SetDefaultDataDirectory(folder.path()));
    QCOMPARE(held, folder.path());
    QCOMPARE(&held, &Gui().m_defaultDataDirectory);
}

void tst_GuiCentral::relaysHotKeys()
{
    GuiCentralAccess central;
    int const index = Add(central, this, Qt::Key_F5, "a");
    QSignalSpy const heard(&central, SIGNAL(signalHotKey(int)));
    QSignalSpy const escape(&central, SIGNAL(hotkey_ESC_pressed()));
    QWidget widget;
    QTest::keyClick(&widget, Qt::Key_F5);
    QCOMPARE(heard.count(), 1);
    QCOMPARE(heard.at(0).at(0).toInt(), index);
    QCOMPARE(escape.count(), 0);
}

void tst_GuiCentral::relaysEscape()
{
    GuiCentralAccess central;
    QSignalSpy const heard(&central, SIGNAL(signalHotKey(int)));
    QSignalSpy const escape(&central, SIGNAL(hotkey_ESC_pressed()));
    QWidget widget;
    QTest::keyClick(&widget, Qt::Key_Escape);
    QCOMPARE(escape.count(), 1);
    QCOMPARE(heard.count(), 0);
}

void tst_GuiCentral::noHotKeyOfItsOwn()
{
    auto const before = Gui().GetHotKeys().GetIndices();
    GuiCentralAccess const central;
    QCOMPARE(Gui().GetHotKeys().GetIndices(), before);
}

void tst_GuiCentral::startingState()
{
    GuiCentralAccess central;
    QVERIFY(central.GetGuiName().isEmpty());
    QVERIFY(!central.GetDrawHiddenPanes());
    QVERIFY(!GuiCentralAccess::AzimuthElevationColors(central));
    QCOMPARE(central.GetChangeableWaterfallColorSets(), 0xFFFFu);
    QVERIFY(GuiCentralAccess::Group(central));
    QVERIFY(GuiCentralAccess::BoolOperations(central).empty());
    QVERIFY(GuiCentralAccess::NumericOperations(central).empty());
    QVERIFY(GuiCentralAccess::SelectionCouplers(central).empty());
    QVERIFY(GuiCentralAccess::ValuePaths(central).empty());
    QEvent close(QEvent::Close);
    QVERIFY(!central.eventFilter(this, &close));
}

void tst_GuiCentral::ownState()
{
    GuiCentralAccess central;
    central.SetGuiName(QStringLiteral("Station 1"));
    QString name = central.GetGuiName();
    name.clear();
    QCOMPARE(central.GetGuiName(), QStringLiteral("Station 1"));
    central.SetDrawHiddenPanes(true);
    QVERIFY(central.GetDrawHiddenPanes());
    QVERIFY(!GuiCentralAccess::AzimuthElevationColors(central));
    central.EnableAzimuthElevationColors(true);
    QVERIFY(GuiCentralAccess::AzimuthElevationColors(central));
    central.EnableAzimuthElevationColors(false);
    QVERIFY(!GuiCentralAccess::AzimuthElevationColors(central));
}

void tst_GuiCentral::constructorReadsInOrder()
{
    GuiCentralAccess const central;
    QCOMPARE(m_store.m_reads, Keys());
    QCOMPARE(m_store.m_writes, QStringList());
}

void tst_GuiCentral::constructorRaisesOnceBeforeAndOnceAfterReading()
{
    m_store.m_texts[QStringLiteral("GuiCentral/ColorSetA")] = QStringLiteral("3");
    QList<int> azimuthSets;
    QList<int> reads;
    QObject context;
    connect(&Gui(), &GuiBase::signalColorsChanged, &context, [&] {
        azimuthSets << GuiCentral::Instance().GetColorSetIdForRoleId(1);
        reads << static_cast<int>(m_store.m_reads.size());
    });
    GuiCentralAccess const central;
    QCOMPARE(azimuthSets, QList<int>({ 9, 3 }));
    QCOMPARE(reads, QList<int>({ 0, 11 }));
}

void tst_GuiCentral::listenerOfTheConstructorGetsWhatIsBuilt()
{
    QList<GuiCentral *> seen;
    std::size_t sets = 0;
    QObject context;
    connect(&Gui(), &GuiBase::signalColorsChanged, &context, [&] {
        seen << &GuiCentral::Instance();
        sets = GuiCentral::Instance().GetWaterfallColorSets().size();
        GuiCentral::Instance().GetShadingRGB(0.0, 1, 0.0, 1.0, false);
    });
    GuiCentralAccess central;
    QCOMPARE(seen, QList<GuiCentral *>({ &central, &central }));
    QCOMPARE(sets, std::size_t(20));
    QVERIFY(&GuiCentral::Instance() != &central);
}

void tst_GuiCentral::commonColorsSurviveTheStart()
{
    QColor & background = ColorSet::Instance()[IColorBase::eColorShadingBackground];
    background = QColor(1, 2, 3);
    Gui().emit_signalColorsChanged(); // keeps the edit
    {
        GuiCentralAccess const central;
        QCOMPARE(background, QColor(1, 2, 3));
    }
    ColorSet::Instance().slotRestoreFactoryColors();
    QVERIFY(background != QColor(1, 2, 3));
}

void tst_GuiCentral::beforeWriteDoesNothing()
{
    GuiCentralAccess central;
    QSignalSpy const changed(&Gui(), &GuiBase::signalColorsChanged);
    QStringList const reads = m_store.m_reads;
    central.ApplyPersistantBeforeWrite();
    QCOMPARE(changed.count(), 0);
    QCOMPARE(m_store.m_reads, reads);
    QCOMPARE(m_store.m_writes, QStringList());
}

void tst_GuiCentral::afterReadTellsOfColors()
{
    GuiCentralAccess central;
    QSignalSpy const changed(&Gui(), &GuiBase::signalColorsChanged);
    central.ApplyPersistantAfterRead();
    QCOMPARE(changed.count(), 1);
    GuiCentralAccess::Group(central)->Read(QString(), 0);
    QCOMPARE(changed.count(), 2);
}

void tst_GuiCentral::restoresDefaultOnSignal()
{
    GuiCentralAccess central;
    GuiCentralAccess::Roles(central)[1] = 4;
    QString const line = central.GetWaterfallColorSets()[2].GetString();
    central.GetWaterfallColorSets()[2].SetColorNr(0, QColor(1, 2, 3));
    QSignalSpy const changed(&Gui(), &GuiBase::signalColorsChanged);
    Q_EMIT central.signalRestoreDefaultPersistant();
    QCOMPARE(central.GetColorSetIdForRoleId(1), 9);
    QCOMPARE(central.GetWaterfallColorSets()[2].GetString(), line);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(m_store.m_writes, QStringList());
}

void tst_GuiCentral::restoreDefaultIsVirtual()
{
    GuiCentralAccess central;
    Q_EMIT central.signalRestoreDefaultPersistant();
    QCOMPARE(central.m_restoredDefaults, 1);
}

void tst_GuiCentral::restoreDefaultAfterTermination()
{
    GuiCentralAccess central;
    central.aboutToTerminate();
    GuiCentralAccess::Roles(central)[1] = 4;
    QSignalSpy const changed(&Gui(), &GuiBase::signalColorsChanged);
    central.slotRestoreDefaultPersistant();
    QCOMPARE(central.GetColorSetIdForRoleId(1), 4);
    QCOMPARE(changed.count(), 1);
}

void tst_GuiCentral::valuePaths_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("isFound");
    QTest::newRow("known path") << 1 << "/central/level" << true;
    QTest::newRow("no id") << 0 << "/central/level" << true;
    QTest::newRow("negative id") << -7 << "/central/level" << true;
    QTest::newRow("large id") << 2000000000 << "/central/level" << true;
    QTest::newRow("unknown path") << 1 << "/central/other" << false;
    QTest::newRow("empty path") << 1 << "" << false;
    QTest::newRow("folder") << 1 << "/central" << false;
}

void tst_GuiCentral::valuePaths()
{
    QFETCH(int, id);
    QFETCH(QString, path);
    QFETCH(bool, isFound);
    GuiCentralAccess central;
    ValueBase * const level = Insert<ValueNumeric<double>>("level");
    central.SetValuePath4ID(static_cast<VC::ID>(id), path);
    QCOMPARE(central.GetValuePath4ID(static_cast<VC::ID>(id)), isFound ? level : nullptr);
    QCOMPARE(GuiCentralAccess::ValuePaths(central).size(), std::size_t(1));
    QVERIFY(!central.GetValuePath4ID(static_cast<VC::ID>(99)));
    ValueBase * const other = Insert<Value<bool>>("replaced");
    central.SetValuePath4ID(static_cast<VC::ID>(id), Path("replaced"));
    QCOMPARE(central.GetValuePath4ID(static_cast<VC::ID>(id)), other);
}

void tst_GuiCentral::unsetValuePathLeavesAnEntry()
{
    GuiCentralAccess central;
    auto const id = static_cast<VC::ID>(5);
    QVERIFY(!central.GetValuePath4ID(id));
    auto const & paths = GuiCentralAccess::ValuePaths(central);
    QCOMPARE(paths.size(), std::size_t(1));
    QCOMPARE(paths.begin()->first, id);
    QVERIFY(paths.begin()->second.isEmpty());
}

void tst_GuiCentral::valuePathOfARemovedValue()
{
    GuiCentralAccess central;
    auto const id = static_cast<VC::ID>(5);
    Insert<Value<bool>>("level");
    central.SetValuePath4ID(id, Path("level"));
    QVERIFY(central.GetValuePath4ID(id));
    Tree::Instance()->Remove(Path("level"));
    QVERIFY(!central.GetValuePath4ID(id));
    QCOMPARE(GuiCentralAccess::ValuePaths(central).at(id), Path("level"));
}

void tst_GuiCentral::eventFilterAnswers_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("object");
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("isSwallowed");
    QTest::newRow("close of another") << "first"
                                      << "second" << int(QEvent::Close) << true;
    QTest::newRow("close of the stored one") << "first"
                                             << "first" << int(QEvent::Close) << false;
    QTest::newRow("close of another's window") << "first"
                                               << "second window" << int(QEvent::Close) << true;
    QTest::newRow("close of the stored one's window") << "first"
                                                      << "first window" << int(QEvent::Close) << false;
    QTest::newRow("close of what is no widget") << "first"
                                                << "object" << int(QEvent::Close) << true;
    QTest::newRow("close without blocking") << ""
                                            << "second" << int(QEvent::Close) << false;
    QTest::newRow("paint of another") << "first"
                                      << "second" << int(QEvent::Paint) << false;
    QTest::newRow("paint of the stored one") << "first"
                                             << "first" << int(QEvent::Paint) << false;
    QTest::newRow("hide of another") << "first"
                                     << "second" << int(QEvent::Hide) << false;
    QTest::newRow("type before") << "first"
                                 << "second" << 18 << false;
    QTest::newRow("type behind") << "first"
                                 << "second" << 20 << false;
    QTest::newRow("quit") << "first"
                          << "object" << int(QEvent::Quit) << false;
}

void tst_GuiCentral::eventFilterAnswers()
{
    QFETCH(QString, stored);
    QFETCH(QString, object);
    QFETCH(int, type);
    QFETCH(bool, isSwallowed);
    GuiCentralAccess central;
    QWidget first;
    QWidget second;
    first.winId();
    second.winId();
    QMap<QString, QObject *> const objects{ { QStringLiteral("first"), &first },
                                            { QStringLiteral("second"), &second },
                                            { QStringLiteral("first window"), first.windowHandle() },
                                            { QStringLiteral("second window"), second.windowHandle() },
                                            { QStringLiteral("object"), this } };
    QVERIFY(!objects.values().contains(nullptr));
    central.BlockCloseApplication(stored.isEmpty() ? nullptr : &first);
    QEvent event(static_cast<QEvent::Type>(type));
    event.accept();
    QCOMPARE(central.eventFilter(objects.value(object), &event), isSwallowed);
    QCOMPARE(event.isAccepted(), !isSwallowed);
}

void tst_GuiCentral::blockedWidgetStaysOpen()
{
    GuiCentralAccess central;
    central.SetApplication(qApp);
    QWidget first;
    QWidget second;
    first.show();
    second.show();
    central.BlockCloseApplication(&first);
    QVERIFY(!second.close());
    QVERIFY(second.isVisible());
    QVERIFY(second.windowHandle()->isVisible());
    QVERIFY(first.isVisible());
}

void tst_GuiCentral::storedWidgetCloses()
{
    GuiCentralAccess central;
    central.SetApplication(qApp);
    QWidget first;
    QWidget second;
    first.show();
    second.show();
    central.BlockCloseApplication(&first);
    QVERIFY(first.close());
    QVERIFY(!first.isVisible());
    QVERIFY(!second.close()); // goes on blocking
    QVERIFY(second.isVisible());
}

void tst_GuiCentral::storedWidgetNeverShown()
{
    GuiCentralAccess central;
    central.SetApplication(qApp);
    QWidget first;
    QWidget second;
    second.show();
    central.BlockCloseApplication(&first);
    QVERIFY(!second.close());
    QVERIFY(second.isVisible());
    QVERIFY(first.close());
}

void tst_GuiCentral::childOfAWindow()
{
    GuiCentralAccess central;
    central.SetApplication(qApp);
    QWidget window;
    auto * const child = new QWidget(&window);
    window.show();
    central.BlockCloseApplication(child);
    QVERIFY(!window.close());
    QVERIFY(window.isVisible());
    QVERIFY(child->close());
    QVERIFY(!child->isVisible());
}

void tst_GuiCentral::blockedWindowHandle()
{
    GuiCentralAccess central;
    central.SetApplication(qApp);
    QWidget first;
    QWidget second;
    first.show();
    second.show();
    central.BlockCloseApplication(&first);
    second.windowHandle()->close();
    QVERIFY(second.isVisible());
    first.windowHandle()->close();
    QVERIFY(!first.isVisible());
}

void tst_GuiCentral::blockingEnds_data()
{
    QTest::addColumn<bool>("byNull");
    QTest::newRow("null") << true;
    QTest::newRow("the widget has gone") << false;
}

void tst_GuiCentral::blockingEnds()
{
    QFETCH(bool, byNull);
    GuiCentralAccess central;
    central.SetApplication(qApp);
    auto first = std::make_unique<QWidget>();
    QWidget second;
    second.show();
    central.BlockCloseApplication(first.get());
    QVERIFY(!second.close());
    if (byNull)
        central.BlockCloseApplication(nullptr);
    else
        first.reset();
    QVERIFY(second.close());
    QVERIFY(!second.isVisible());
}

void tst_GuiCentral::blocksOnlyItsApplication()
{
    QWidget first;
    QWidget second;
    second.show();
    {
        GuiCentralAccess central;
        central.BlockCloseApplication(&first);
        QVERIFY(second.close()); // nobody told it of an application
        second.show();
        central.SetApplication(qApp);
        QVERIFY(!second.close());
    }
    QVERIFY(second.close()); // the filter went with it
}

void tst_GuiCentral::resultGoesAway()
{
    GuiCentralAccess central;
    auto * const source = Insert<ValueNumeric<int>>("source");
    auto * const result = Insert<Value<bool>>("result");
    auto & operations = GuiCentralAccess::BoolOperations(central);
    operations[Path("result")] =
        std::make_unique<BoolOperation>(Path("result"), Path("source"), 1, BoolOperation::eEqual);
    result->AddObserver(&central);
    source->SetValue(1, nullptr);
    QVERIFY(result->GetValue());
    QCOMPARE(source->GetObserverCount(), 1);
    Tree::Instance()->Remove(Path("result"));
    QVERIFY(operations.empty());
    QCOMPARE(source->GetObserverCount(), 0); // the operation has gone
}

void tst_GuiCentral::updateIgnores_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("state");
    QTest::newRow("value, going away") << 3 << 1;
    QTest::newRow("range, going away") << 4 << 1;
    QTest::newRow("items, going away") << 7 << 1;
    QTest::newRow("interim, going away") << 23 << 1;
    QTest::newRow("state valid") << 2 << 0;
    QTest::newRow("state disabled") << 2 << 2;
}

void tst_GuiCentral::updateIgnores()
{
    QFETCH(int, code);
    QFETCH(int, state);
    GuiCentralAccess central;
    Insert<ValueNumeric<int>>("source");
    auto * const result = Insert<Value<bool>>("result");
    auto & operations = GuiCentralAccess::BoolOperations(central);
    operations[Path("result")] =
        std::make_unique<BoolOperation>(Path("result"), Path("source"), 1, BoolOperation::eEqual);
    result->SetState(static_cast<TValueState>(state), nullptr);
    result->AddObserver(&central);
    central.Update(result, static_cast<TChangeCode>(code));
    QCOMPARE(operations.size(), std::size_t(1));
    QVERIFY(operations.begin()->second);
    QVERIFY(result->HasObserver(&central));
    central.aboutToTerminate();
    result->DeleteObserver(&central);
}

void tst_GuiCentral::updateWithoutOperation()
{
    GuiCentralAccess central;
    auto * const value = Insert<Value<bool>>("other");
    value->AddObserver(&central);
    Tree::Instance()->Remove(Path("other"));
    QVERIFY(GuiCentralAccess::BoolOperations(central).empty());
}

void tst_GuiCentral::updateOfNoValue()
{
    GuiCentralAccess central;
    Observable subject;
    subject.AddObserver(&central);
    central.Update(&subject, eStateChanged);
    QVERIFY(subject.HasObserver(&central));
    central.Update(nullptr, eStateChanged);
    QVERIFY(GuiCentralAccess::BoolOperations(central).empty());
}

void tst_GuiCentral::terminationWrites()
{
    GuiCentralAccess central;
    GuiCentralAccess::Roles(central)[1] = 4;
    central.aboutToTerminate();
    QCOMPARE(m_store.m_writes, Keys());
    QCOMPARE(m_store.m_flushes, 1);
    QCOMPARE(m_store.m_texts.value(QStringLiteral("GuiCentral/ColorSetA")), QStringLiteral("4"));
    QVERIFY(!GuiCentralAccess::Group(central));
}

void tst_GuiCentral::terminationWritesFirst()
{
    GuiCentralAccess central;
    Insert<Value<bool>>("result");
    Insert<ValueNumeric<int>>("source");
    GuiCentralAccess::BoolOperations(central)[Path("result")] =
        std::make_unique<BoolOperation>(Path("result"), Path("source"), 1, BoolOperation::eEqual);
    std::size_t operations = 0;
    m_store.m_onWrite = [&] { operations = GuiCentralAccess::BoolOperations(central).size(); };
    central.aboutToTerminate();
    m_store.m_onWrite = nullptr;
    QCOMPARE(operations, std::size_t(1));
}

void tst_GuiCentral::secondTerminationWritesNothing()
{
    GuiCentralAccess central;
    central.aboutToTerminate();
    m_store.m_writes.clear();
    central.aboutToTerminate();
    QCOMPARE(m_store.m_writes, QStringList());
    QCOMPARE(m_store.m_flushes, 1);
}

void tst_GuiCentral::terminationInsideItsOwnWrite()
{
    GuiCentralAccess central;
    m_store.m_onWrite = [&] { central.aboutToTerminate(); };
    central.aboutToTerminate();
    m_store.m_onWrite = nullptr;
    QCOMPARE(m_store.m_writes, Keys());
}

void tst_GuiCentral::terminationOfAFailingStore()
{
    GuiCentralAccess central;
    m_store.m_lasts = false;
    central.aboutToTerminate();
    QCOMPARE(m_store.m_flushes, 1);
    QVERIFY(!GuiCentralAccess::Group(central));
}

void tst_GuiCentral::terminationEndsOperations()
{
    GuiCentralAccess central;
    auto * const source = Insert<ValueNumeric<int>>("source");
    auto * const flag = Insert<Value<bool>>("flag");
    Insert<Value<bool>>("isOne");
    Insert<Value<bool>>("isTwo");
    Insert<ValueNumeric<double>>("sum");
    Insert<ValueNumeric<double>>("coupled");
    Insert<ValueSelection>("selection");
    auto & bools = GuiCentralAccess::BoolOperations(central);
    bools[Path("isOne")] = std::make_unique<BoolOperation>(Path("isOne"), Path("source"), 1, BoolOperation::eEqual);
    bools[Path("isTwo")] = std::make_unique<BoolOperation>(Path("isTwo"), Path("source"), 2, BoolOperation::eEqual);
    auto & numerics = GuiCentralAccess::NumericOperations(central);
    numerics.push_back(std::make_unique<NumericOperation>(Path("sum"), Path("source"), 1.0, NumericOperation::eAdd));
    numerics.push_back(std::make_unique<NumericCoupler>(Path("coupled"), Path("source"), 2.0, NumericCoupler::eFactor));
    auto & couplers = GuiCentralAccess::SelectionCouplers(central);
    couplers.push_back(std::make_unique<BoolSelectionCoupler>(Path("flag"), Path("selection"), false));
    QCOMPARE(source->GetObserverCount(), 4);
    QCOMPARE(flag->GetObserverCount(), 1);
    central.aboutToTerminate();
    QVERIFY(bools.empty());
    QVERIFY(numerics.empty());
    QVERIFY(couplers.empty());
    QCOMPARE(source->GetObserverCount(), 0);
    QCOMPARE(flag->GetObserverCount(), 0);
}

void tst_GuiCentral::terminationByTheApplication()
{
    GuiCentralAccess central;
    IAbstractTerminationTarget::TerminateAll();
    QCOMPARE(m_store.m_writes.mid(0, 11), Keys()); // the youngest is told first
    QVERIFY(!GuiCentralAccess::Group(central));
    QVERIFY(!GuiCentralAccess::Group(GuiCentral::Instance()));
}

void tst_GuiCentral::colorsAfterTermination()
{
    GuiCentralAccess central;
    QRgb const before = central.GetShadingRGB(10.0, VC::eShadingAzimuth, 0.0, 360.0, false);
    central.aboutToTerminate();
    QCOMPARE(central.GetShadingRGB(10.0, VC::eShadingAzimuth, 0.0, 360.0, false), before);
    QCOMPARE(central.GetWaterfallColorSets().size(), std::size_t(20));
    QCOMPARE(central.GetColorSetIdForRoleId(7), 17);
    central.slotRestoreFactoryColors();
    QCOMPARE(central.GetShadingRGB(10.0, VC::eShadingAzimuth, 0.0, 360.0, false), before);
}

void tst_GuiCentral::destructorTerminates()
{
    auto * const source = Insert<ValueNumeric<int>>("source");
    Insert<ValueNumeric<double>>("sum");
    {
        GuiCentralAccess central;
        GuiCentralAccess::NumericOperations(central).push_back(
            std::make_unique<NumericOperation>(Path("sum"), Path("source"), 1.0, NumericOperation::eAdd));
        QCOMPARE(m_store.m_writes, QStringList());
    }
    QCOMPARE(m_store.m_writes, Keys());
    QCOMPARE(source->GetObserverCount(), 0);
}

namespace {

QString const Where = QStringLiteral("controls/orimwidgets/guicentral");

void ThrowOurs() { throw KRException(std::string("lost"), "Editor", "editor.cpp", "Build", 7, 9); }

void ThrowStandard() { throw std::runtime_error("no memory"); }

void ThrowMute() { throw Mute(); }

} // namespace

void tst_GuiCentral::guardedBuild_data()
{
    // the numbers before the texts are QtInfoMsg 4, QtWarningMsg 1, QtCriticalMsg 2
    QTest::addColumn<QString>("kind");
    QTest::addColumn<unsigned int>("mask");
    QTest::addColumn<QStringList>("lines");
    QString const ours = QStringLiteral("lost [Editor::Build, editor.cpp:7, code 9]");
    QString const standard =
        QStringLiteral("no memory [class::method, ") + Where + QStringLiteral(":357, code 4294967295]");
    QString const mute =
        QStringLiteral("Unknown exception [class::method, ") + Where + QStringLiteral(":357, code 4294967295]");
    QString const oursTrace =
        QStringLiteral("4: ") + Where + QStringLiteral("(357): KRException caught in standard catch-block");
    QString const standardTrace =
        QStringLiteral("4: ") + Where + QStringLiteral("(357): Standard C++ Exception caught in standard catch-block");
    QString const plain = QStringLiteral(" (0, -1, 1, 0, 0)");
    QString const marked = QStringLiteral(" (0, -1, 1, 256, 0)");
    QTest::newRow("ours") << "ours" << 0u << QStringList{ "1: " + ours, "2: " + ours + plain };
    QTest::newRow("ours, traced") << "ours" << 0x20u << QStringList{ oursTrace, "1: " + ours, "2: " + ours + plain };
    QTest::newRow("ours, other traces") << "ours" << 0xFFFFFFDFu << QStringList{ "1: " + ours, "2: " + ours + plain };
    QTest::newRow("standard") << "standard" << 0u << QStringList{ "1: " + standard, "2: " + standard + marked };
    QTest::newRow("standard, traced") << "standard" << 0x20u
                                      << QStringList{ standardTrace, "1: " + standard, "2: " + standard + marked };
    QTest::newRow("without a text") << "mute" << 0u << QStringList{ "1: " + mute, "2: " + mute + marked };
    QTest::newRow("without a text, traced")
        << "mute" << 0xFFu << QStringList{ standardTrace, "1: " + mute, "2: " + mute + marked };
}

void tst_GuiCentral::guardedBuild()
{
    QFETCH(QString, kind);
    QFETCH(unsigned int, mask);
    QFETCH(QStringList, lines);
    int built = 42;
    auto const build = [&] {
        if (kind == QLatin1String("ours"))
            ThrowOurs();
        else if (kind == QLatin1String("standard"))
            ThrowStandard();
        else
            ThrowMute();
        built = 0;
    };
    ErrorHandler::Instance().SetTraceMask(mask);
    bool isBuilt = true;
    {
        Net const net;
        isBuilt = BuildGuarded(build);
    }
    ErrorHandler::Instance().SetTraceMask(0);
    QVERIFY(!isBuilt);
    QCOMPARE(built, 42); // what was there stays
    QCOMPARE(s_lines, lines);
    QVERIFY(QApplication::topLevelWidgets().isEmpty());
}

void tst_GuiCentral::guardedBuildSucceeds()
{
    int built = 42;
    Net const net;
    QVERIFY(BuildGuarded([&] { built = 7; }));
    QCOMPARE(built, 7);
    QCOMPARE(s_lines, QStringList());
}

void tst_GuiCentral::guardedBuildPassesOthersUp()
{
    bool caught = false;
    try {
        BuildGuarded([] { throw 5; });
    } catch (int number) {
        caught = number == 5;
    }
    QVERIFY(caught);
}

ORIM_TEST_MAIN(tst_GuiCentral)
#include "tst_guicentral.moc"
