// SPDX-License-Identifier: MIT
#include "guicentral.h"

#include "guibase.h"
#include "guicentralaccess.h"
#include "hotkeysctrl.h"
#include "ownstore.h"
#include "testmain.h"
#include "tree.h"
#include "valueselection.h"

#include <QAction>
#include <QDialog>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>

namespace {

using Central = GuiCentral;

// What is handed on keeps its shape.
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

constexpr auto QStringAddHotKey =
    static_cast<int (Central::*)(Qt::Key, unsigned int, QObject *, QString, QString, bool, bool)>(&Central::AddHotKey);
constexpr auto WideAddHotKey =
    static_cast<int (Central::*)(Qt::Key, unsigned int, QObject *, wchar_t const *, wchar_t const *, bool, bool)>(
        &Central::AddHotKey);
constexpr auto RemoveByKey = static_cast<int (Central::*)(Qt::Key, Qt::KeyboardModifier)>(&Central::RemoveHotKey);
constexpr auto RemoveByIndex = static_cast<void (Central::*)(int, bool)>(&Central::RemoveHotKey);

GuiBase & Gui() { return GuiBase::Instance(); }

} // namespace

class tst_GuiCentralGuiBase : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void init();
    void cleanup();

    void handsOn_data();
    void handsOn();
    void addedHotKeyModifiers_data();
    void addedHotKeyModifiers();
    void hotKeysDialog();
    void dataDirectoryIsThatOfGuiBase();
    void relaysHotKeys();
    void relaysEscape();
    void noHotKeyOfItsOwn();

private:
    OwnStore<> m_store;
};

void tst_GuiCentralGuiBase::init()
{
    m_store.Begin();
    Gui().SetApplication(qApp);
}

void tst_GuiCentralGuiBase::cleanup()
{
    Gui().RemoveHotKeyReceiver(this);
    Gui().SetApplication(nullptr);
    Gui().SetMainWidget(nullptr);
    Gui().SetFontFamily(QString());
    Gui().SetWFontFamily(QString());
    m_store.End();
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

void tst_GuiCentralGuiBase::handsOn_data()
{
    QTest::addColumn<int>("row");
    int i = 0;
    for (HandedOn const & row : HandedOnRows)
        QTest::newRow(row.name) << i++;
}

void tst_GuiCentralGuiBase::handsOn()
{
    QFETCH(int, row);
    GuiCentralAccess central;
    QVERIFY(HandedOnRows[row].check(central, this));
}

void tst_GuiCentralGuiBase::addedHotKeyModifiers_data()
{
    QTest::addColumn<unsigned int>("modifiers");
    QTest::addColumn<int>("heard");
    QTest::newRow("none") << 0u << 0;
    QTest::newRow("Control") << 0x04000000u << 0x04000000;
    QTest::newRow("beyond an int") << 0x86000000u << 0x06000000;
}

void tst_GuiCentralGuiBase::addedHotKeyModifiers()
{
    QFETCH(unsigned int, modifiers);
    QFETCH(int, heard);
    GuiCentralAccess central;
    int const index = central.AddHotKey(Qt::Key_F5, modifiers, this, QStringLiteral("a"), QString(), true, false);
    QCOMPARE(Get(index)->combination.modifiers, heard);
}

void tst_GuiCentralGuiBase::hotKeysDialog()
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

void tst_GuiCentralGuiBase::dataDirectoryIsThatOfGuiBase()
{
    GuiCentralAccess central;
    QTemporaryDir const folder;
    QString const & held = central.GetDefaultDataDirectory();
    QVERIFY(Gui().SetDefaultDataDirectory(folder.path()));
    QCOMPARE(held, folder.path());
    QCOMPARE(&held, &Gui().m_defaultDataDirectory);
}

void tst_GuiCentralGuiBase::relaysHotKeys()
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

void tst_GuiCentralGuiBase::relaysEscape()
{
    GuiCentralAccess central;
    QSignalSpy const heard(&central, SIGNAL(signalHotKey(int)));
    QSignalSpy const escape(&central, SIGNAL(hotkey_ESC_pressed()));
    QWidget widget;
    QTest::keyClick(&widget, Qt::Key_Escape);
    QCOMPARE(escape.count(), 1);
    QCOMPARE(heard.count(), 0);
}

void tst_GuiCentralGuiBase::noHotKeyOfItsOwn()
{
    auto const before = Gui().GetHotKeys().GetIndices();
    GuiCentralAccess const central;
    QCOMPARE(Gui().GetHotKeys().GetIndices(), before);
}
ORIM_TEST_MAIN(tst_GuiCentralGuiBase)
#include "tst_guicentral_guibase.moc"
