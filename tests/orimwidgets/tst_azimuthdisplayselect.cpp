// SPDX-License-Identifier: MIT
#include "azimuthdisplayselect.h"

#include "azimuthaccess.h"
#include "guicentral.h"
#include "memorycfg.h"
#include "resortpopupmenu.h"
#include "testmain.h"

#include <QRegularExpression>
#include <QSet>
#include <QSignalSpy>

#include <climits>
#include <memory>
#include <type_traits>
#include <utility>

namespace {

static_assert(std::is_base_of_v<QObject, AzimuthDisplaySelect>);
static_assert(std::is_base_of_v<IAbstractTerminationTarget, AzimuthDisplaySelect>);
static_assert(std::is_base_of_v<IObserver, AzimuthDisplaySelect>);
static_assert(std::is_base_of_v<IUpdateMenu, AzimuthDisplaySelect>);
static_assert(std::is_base_of_v<PersistantOwner, AzimuthDisplaySelect>);
static_assert(std::is_same_v<decltype(&AzimuthDisplaySelect::Select), void (AzimuthDisplaySelect::*)(long)>);

QString const StoreKey = QStringLiteral("AzimuthDisplaySelect/Default");
QString const UniqueFolder = QStringLiteral("/GuiCentral/unique/selection/");
constexpr long Keys[] = { 5, 9, 6, 10 }; // in the order of the menu

//! The text of a mode with the degree sign as the one byte that it is.
QString Text(long key)
{
    switch (key) {
    case 5:
        return QString::fromLatin1("Absolute Values 0\xB0..360\xB0");
    case 9:
        return QString::fromLatin1("Absolute Values -180\xB0..180\xB0");
    case 6:
        return QString::fromLatin1("Relative to Vehicle Axis 0\xB0..360\xB0");
    default:
        return QString::fromLatin1("Relative to Vehicle Axis -180\xB0..180\xB0");
    }
}

//! Chooses another key as soon as it hears of a choice.
class Meddler : public IObserver
{
public:
    Meddler(AzimuthDisplaySelect & select, ValueSelection * selection, long key)
        : m_select(select)
        , m_pSelection(selection)
        , m_key(key)
    {
        m_pSelection->AddObserver(this);
    }

    ~Meddler() override { m_pSelection->DeleteObserver(this); }

    void Update(Observable * /*subject*/, TChangeCode code) override
    {
        if (code == eValueChanged && m_pSelection->GetCurrentKey() != m_key)
            m_select.Select(m_key);
    }

private:
    AzimuthDisplaySelect & m_select;
    ValueSelection * m_pSelection;
    long m_key;
};

//! Removes a selection as soon as it hears of a choice in it.
class Remover : public IObserver
{
public:
    explicit Remover(QString path) : m_path(std::move(path)) {}

    void Update(Observable * /*subject*/, TChangeCode code) override
    {
        if (code == eValueChanged)
            Tree::Instance()->Remove(m_path);
    }

private:
    QString m_path;
};

void RemoveFromTree(QString const & path) { QVERIFY(Tree::Instance()->Remove(path)); }

} // namespace

class tst_AzimuthDisplaySelect : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void init();
    void cleanup();

    void storedDefaultIsTheModeAtTheStart_data();
    void storedDefaultIsTheModeAtTheStart();
    void emptyStoredDefaultIsFive();
    void itemsOfASelection_data();
    void itemsOfASelection();
    void everySelectionIsANewOne();
    void newSelectionHasTheDefaultChosen();
    void selectionOfAWidgetChangesNoMode();
    void selectTakesTheFourModes_data();
    void selectTakesTheFourModes();
    void selectIgnoresOtherKeys_data();
    void selectIgnoresOtherKeys();
    void currentSelectionFollowsAndIsFollowed();
    void modeThatTheSelectionShowsAlready();
    void defaultThatTheSelectionShowsAlready();
    void selectionEndsInTheChoice();
    void selectionOfTheDefaultChangesTheDefaultAlone();
    void nestedChoiceWins();
    void menuItems_data();
    void menuItems();
    void menuShowsTheModeEachTime();
    void choiceInTheMenu();
    void choiceInTheMenuOfTheDefault();
    void defaultMenuIgnoresOtherKeys();
    void menusOfOthers();
    void northCountsInRelativeModes_data();
    void northCountsInRelativeModes();
    void restoreSelectsFive();
    void restoreByTheSignalOfTheCentralObject();
    void defaultIsWrittenAtTheEnd();
    void defaultIsWrittenAfterItsValueHasGone();
    void endsTwiceAndGoesOn();
    void letsGoOfItsSelectionsAtTheEnd();
    void isToldOfTheEnd();
    void isATargetOfTheEnd();
    void goesOnWithoutItsValues();
    void strangersAreIgnored();
    void oneObject();
    void slotsAndSignalByName();

private:
    std::unique_ptr<MemoryCfg> m_pStore;
    std::unique_ptr<AzimuthDisplaySelectAccess> m_pSelect;
};

void tst_AzimuthDisplaySelect::init()
{
    m_pStore = std::make_unique<MemoryCfg>();
    Persistant::SetStore(m_pStore.get());
    m_pSelect = std::make_unique<AzimuthDisplaySelectAccess>();
}

void tst_AzimuthDisplaySelect::cleanup()
{
    m_pSelect.reset();
    m_pStore.reset();
}

void tst_AzimuthDisplaySelect::storedDefaultIsTheModeAtTheStart_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<int>("mode");
    QTest::newRow("nothing stored: 5") << QString() << 5;
    for (long const key : Keys)
        QTest::addRow("%ld", key) << QString::number(key) << static_cast<int>(key);
    QTest::newRow("a key that is no mode: 5") << QStringLiteral("7") << 5;
}

void tst_AzimuthDisplaySelect::storedDefaultIsTheModeAtTheStart()
{
    QFETCH(QString, stored);
    QFETCH(int, mode);
    if (!stored.isEmpty())
        m_pStore->WriteString(StoreKey, stored);
    if (stored == QLatin1String("7"))
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("\"7\" of \"Default\"")));
    AzimuthDisplaySelectAccess select;
    QCOMPARE(select.GetCurrentSelected(), static_cast<long>(mode));
    QCOMPARE(SelectionAt(select.CurrentValueSelection())->GetCurrentKey(), static_cast<long>(mode));
    QCOMPARE(SelectionAt(select.DefaultValueSelection())->GetCurrentKey(), static_cast<long>(mode));
    QCOMPARE(SelectionAt(select.CreateValueSelection())->GetCurrentKey(), static_cast<long>(mode));
}

void tst_AzimuthDisplaySelect::emptyStoredDefaultIsFive()
{
    m_pStore->WriteString(StoreKey, QLatin1String(""));
    {
        AzimuthDisplaySelectAccess select;
        QCOMPARE(select.GetCurrentSelected(), 5L);
        QCOMPARE(SelectionAt(select.DefaultValueSelection())->GetCurrentKey(), 5L);
    }
    QCOMPARE(m_pStore->ReadString(StoreKey, QString()), QStringLiteral("5"));
}

void tst_AzimuthDisplaySelect::itemsOfASelection_data()
{
    QTest::addColumn<int>("place");
    QTest::addColumn<int>("key");
    for (int place = 0; place < 4; ++place)
        QTest::addRow("place %d is %ld", place, Keys[place]) << place << static_cast<int>(Keys[place]);
}

void tst_AzimuthDisplaySelect::itemsOfASelection()
{
    QFETCH(int, place);
    QFETCH(int, key);
    for (QString const & path : { m_pSelect->CreateValueSelection(), m_pSelect->DefaultValueSelection(),
                                  m_pSelect->CurrentValueSelection() }) {
        ValueSelection const * const selection = SelectionAt(path);
        QVERIFY(selection);
        QCOMPARE(selection->GetItemCount(), 4);
        SelectionItem const * const item = selection->GetItemAt(place);
        QCOMPARE(item->GetKey(), static_cast<long>(key));
        QCOMPARE(item->GetName(), Text(key));
        QCOMPARE(item->GetValue(), static_cast<double>(key));
    }
}

void tst_AzimuthDisplaySelect::everySelectionIsANewOne()
{
    QString const first = m_pSelect->CreateValueSelection();
    QString const second = m_pSelect->CreateValueSelection();
    QVERIFY(first.startsWith(UniqueFolder));
    QVERIFY(second.startsWith(UniqueFolder));
    QVERIFY(m_pSelect->DefaultValueSelection().startsWith(UniqueFolder));
    QSet<QString> const paths{ first, second, m_pSelect->DefaultValueSelection(), m_pSelect->CurrentValueSelection() };
    QCOMPARE(paths.size(), 4);
}

void tst_AzimuthDisplaySelect::newSelectionHasTheDefaultChosen()
{
    m_pSelect->slotDefaultSelectionMenuActivated(10);
    m_pSelect->Select(6);
    QCOMPARE(SelectionAt(m_pSelect->CreateValueSelection())->GetCurrentKey(), 10L);
}

void tst_AzimuthDisplaySelect::selectionOfAWidgetChangesNoMode()
{
    QSignalSpy const changed(m_pSelect.get(), &AzimuthDisplaySelect::signalAzimuthModeChanged);
    QVERIFY(SelectionAt(m_pSelect->CreateValueSelection())->Select(9L, nullptr));
    QCOMPARE(m_pSelect->GetCurrentSelected(), 5L);
    QCOMPARE(changed.count(), 0);
}

void tst_AzimuthDisplaySelect::selectTakesTheFourModes_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    for (long const from : Keys)
        for (long const to : Keys)
            QTest::addRow("%ld to %ld", from, to) << static_cast<int>(from) << static_cast<int>(to);
}

void tst_AzimuthDisplaySelect::selectTakesTheFourModes()
{
    QFETCH(int, from);
    QFETCH(int, to);
    m_pSelect->Select(from);
    QSignalSpy const changed(m_pSelect.get(), &AzimuthDisplaySelect::signalAzimuthModeChanged);
    m_pSelect->Select(to);
    QCOMPARE(m_pSelect->GetCurrentSelected(), static_cast<long>(to));
    QCOMPARE(changed.count(), from == to ? 0 : 1);
    QCOMPARE(SelectionAt(m_pSelect->DefaultValueSelection())->GetCurrentKey(), 5L);
}

void tst_AzimuthDisplaySelect::selectIgnoresOtherKeys_data()
{
    QTest::addColumn<qlonglong>("key");
    for (long const key : { 0L, 1L, 2L, 4L, 7L, 8L, 11L, 15L, -5L, LONG_MAX, LONG_MIN })
        QTest::addRow("%ld", key) << static_cast<qlonglong>(key);
}

void tst_AzimuthDisplaySelect::selectIgnoresOtherKeys()
{
    QFETCH(qlonglong, key);
    m_pSelect->Select(6);
    QSignalSpy const changed(m_pSelect.get(), &AzimuthDisplaySelect::signalAzimuthModeChanged);
    m_pSelect->Select(static_cast<long>(key));
    QCOMPARE(m_pSelect->GetCurrentSelected(), 6L);
    QCOMPARE(SelectionAt(m_pSelect->CurrentValueSelection())->GetCurrentKey(), 6L);
    QCOMPARE(changed.count(), 0);
}

void tst_AzimuthDisplaySelect::currentSelectionFollowsAndIsFollowed()
{
    ValueSelection * const current = SelectionAt(m_pSelect->CurrentValueSelection());
    m_pSelect->Select(9);
    QCOMPARE(current->GetCurrentKey(), 9L);
    QSignalSpy const changed(m_pSelect.get(), &AzimuthDisplaySelect::signalAzimuthModeChanged);
    current->Select(10L, nullptr);
    QCOMPARE(m_pSelect->GetCurrentSelected(), 10L);
    QCOMPARE(changed.count(), 1);
    current->AddItem(SelectionItem(QStringLiteral("no mode"), 0.0, 77));
    current->Select(77L, nullptr);
    QCOMPARE(m_pSelect->GetCurrentSelected(), 10L);
    current->DeleteItem(9);
    m_pSelect->Select(9); // the selection cannot show it
    QCOMPARE(m_pSelect->GetCurrentSelected(), 9L);
    QCOMPARE(changed.count(), 2);
}

void tst_AzimuthDisplaySelect::modeThatTheSelectionShowsAlready()
{
    m_pSelect->Select(10);
    SelectionAt(m_pSelect->CurrentValueSelection())->DeleteItem(9);
    m_pSelect->Select(9); // the selection goes on showing 10
    QSignalSpy const changed(m_pSelect.get(), &AzimuthDisplaySelect::signalAzimuthModeChanged);
    m_pSelect->Select(10);
    QCOMPARE(m_pSelect->GetCurrentSelected(), 10L);
    QCOMPARE(changed.count(), 1);
}

void tst_AzimuthDisplaySelect::defaultThatTheSelectionShowsAlready()
{
    m_pSelect->slotDefaultSelectionMenuActivated(10);
    SelectionAt(m_pSelect->DefaultValueSelection())->DeleteItem(9);
    m_pSelect->slotDefaultSelectionMenuActivated(9);
    QCOMPARE(SelectionAt(m_pSelect->CreateValueSelection())->GetCurrentKey(), 9L);
    m_pSelect->slotDefaultSelectionMenuActivated(10);
    QCOMPARE(SelectionAt(m_pSelect->CreateValueSelection())->GetCurrentKey(), 10L);
}

void tst_AzimuthDisplaySelect::selectionEndsInTheChoice()
{
    Remover remover(m_pSelect->CurrentValueSelection());
    m_pSelect->Select(10);
    // one that hears of the choice before the object does
    ValueSelection * const current = SelectionAt(m_pSelect->CurrentValueSelection());
    current->DeleteObserver(m_pSelect.get());
    current->AddObserver(&remover);
    current->AddObserver(m_pSelect.get());
    m_pSelect->Select(9);
    QVERIFY(!SelectionAt(m_pSelect->CurrentValueSelection()));
    QCOMPARE(m_pSelect->GetCurrentSelected(), 9L);
}

void tst_AzimuthDisplaySelect::selectionOfTheDefaultChangesTheDefaultAlone()
{
    QSignalSpy const changed(m_pSelect.get(), &AzimuthDisplaySelect::signalAzimuthModeChanged);
    ValueSelection * const chosen = SelectionAt(m_pSelect->DefaultValueSelection());
    chosen->Select(9L, nullptr);
    QCOMPARE(m_pSelect->GetCurrentSelected(), 5L);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(SelectionAt(m_pSelect->CreateValueSelection())->GetCurrentKey(), 9L);
    chosen->DeleteItems(); // nothing is chosen: the default stays
    QCOMPARE(SelectionAt(m_pSelect->CreateValueSelection())->GetCurrentKey(), 9L);
}

void tst_AzimuthDisplaySelect::nestedChoiceWins()
{
    ValueSelection * const current = SelectionAt(m_pSelect->CurrentValueSelection());
    Meddler const meddler(*m_pSelect, current, 10);
    m_pSelect->Select(9);
    QCOMPARE(current->GetCurrentKey(), 10L);
    QCOMPARE(m_pSelect->GetCurrentSelected(), 10L);
}

void tst_AzimuthDisplaySelect::menuItems_data() { itemsOfASelection_data(); }

void tst_AzimuthDisplaySelect::menuItems()
{
    QFETCH(int, place);
    QFETCH(int, key);
    QWidget parent;
    for (ResortPopupMenu const * const menu :
         { m_pSelect->CreateMenu(&parent), m_pSelect->CreateMenuForDefaultSelection(&parent) }) {
        QCOMPARE(menu->parent(), &parent);
        QCOMPARE(menu->title(), QStringLiteral("Azimuth selector"));
        QCOMPARE(menu->actions().size(), 4);
        QAction const * const item = menu->actions().at(place);
        QCOMPARE(item->text(), Text(key));
        QCOMPARE(menu->GetItemId(item), key);
        QVERIFY(item->isCheckable());
        QCOMPARE(item->isChecked(), key == 5);
    }
}

void tst_AzimuthDisplaySelect::menuShowsTheModeEachTime()
{
    std::unique_ptr<ResortPopupMenu> const menu(m_pSelect->CreateMenu(nullptr));
    std::unique_ptr<ResortPopupMenu> const ofDefault(m_pSelect->CreateMenuForDefaultSelection(nullptr));
    m_pSelect->slotDefaultSelectionMenuActivated(9);
    m_pSelect->Select(6);
    for (auto const & [shown, checked] : { std::pair{ menu.get(), 6 }, std::pair{ ofDefault.get(), 9 } }) {
        shown->popup(QPoint());
        for (long const key : Keys)
            QCOMPARE(shown->FindItem(static_cast<int>(key))->isChecked(), key == checked);
        shown->hide();
    }
}

void tst_AzimuthDisplaySelect::choiceInTheMenu()
{
    std::unique_ptr<ResortPopupMenu> const menu(m_pSelect->CreateMenu(nullptr));
    QSignalSpy const changed(m_pSelect.get(), &AzimuthDisplaySelect::signalAzimuthModeChanged);
    menu->FindItem(10)->trigger();
    QCOMPARE(m_pSelect->GetCurrentSelected(), 10L);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(SelectionAt(m_pSelect->DefaultValueSelection())->GetCurrentKey(), 5L);
}

void tst_AzimuthDisplaySelect::choiceInTheMenuOfTheDefault()
{
    std::unique_ptr<ResortPopupMenu> const menu(m_pSelect->CreateMenuForDefaultSelection(nullptr));
    QSignalSpy const changed(m_pSelect.get(), &AzimuthDisplaySelect::signalAzimuthModeChanged);
    menu->FindItem(10)->trigger();
    QCOMPARE(m_pSelect->GetCurrentSelected(), 10L);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(SelectionAt(m_pSelect->DefaultValueSelection())->GetCurrentKey(), 10L);
}

void tst_AzimuthDisplaySelect::defaultMenuIgnoresOtherKeys()
{
    for (int const key : { 0, -1, 7, INT_MAX }) {
        m_pSelect->slotDefaultSelectionMenuActivated(key);
        QCOMPARE(m_pSelect->GetCurrentSelected(), 5L);
        QCOMPARE(SelectionAt(m_pSelect->DefaultValueSelection())->GetCurrentKey(), 5L);
    }
}

void tst_AzimuthDisplaySelect::menusOfOthers()
{
    m_pSelect->UpdateMenu(nullptr);
    ResortPopupMenu menu;
    QAction const * const mine = menu.insertItem(QStringLiteral("mine"), 5);
    QAction const * const other = menu.insertItem(QStringLiteral("other"), 6);
    m_pSelect->Select(6);
    m_pSelect->UpdateMenu(&menu);
    QVERIFY(!mine->isChecked());
    QVERIFY(other->isChecked());
    std::unique_ptr<ResortPopupMenu> const outlives(m_pSelect->CreateMenu(nullptr));
    m_pSelect.reset();
    outlives->popup(QPoint());
    outlives->FindItem(9)->trigger();
    QVERIFY(outlives->FindItem(6)->isChecked());
}

void tst_AzimuthDisplaySelect::northCountsInRelativeModes_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("told");
    QTest::newRow("5 is absolute") << 5 << 0;
    QTest::newRow("9 is absolute") << 9 << 0;
    QTest::newRow("6 is relative") << 6 << 1;
    QTest::newRow("10 is relative") << 10 << 1;
}

void tst_AzimuthDisplaySelect::northCountsInRelativeModes()
{
    QFETCH(int, key);
    QFETCH(int, told);
    m_pSelect->Select(key);
    QSignalSpy const changed(m_pSelect.get(), &AzimuthDisplaySelect::signalAzimuthModeChanged);
    m_pSelect->NorthOffsetChanged();
    QCOMPARE(changed.count(), told);
}

void tst_AzimuthDisplaySelect::restoreSelectsFive()
{
    m_pSelect->slotDefaultSelectionMenuActivated(9);
    m_pSelect->Select(10);
    QSignalSpy const changed(m_pSelect.get(), &AzimuthDisplaySelect::signalAzimuthModeChanged);
    m_pSelect->slotRestoreDefaultPersistant();
    QCOMPARE(m_pSelect->GetCurrentSelected(), 5L);
    QCOMPARE(SelectionAt(m_pSelect->DefaultValueSelection())->GetCurrentKey(), 5L);
    QCOMPARE(changed.count(), 1);
}

void tst_AzimuthDisplaySelect::restoreByTheSignalOfTheCentralObject()
{
    m_pSelect->slotDefaultSelectionMenuActivated(9);
    Q_EMIT GuiCentral::Instance().signalRestoreDefaultPersistant();
    QCOMPARE(m_pSelect->GetCurrentSelected(), 5L);
    QCOMPARE(SelectionAt(m_pSelect->CreateValueSelection())->GetCurrentKey(), 5L);
}

void tst_AzimuthDisplaySelect::defaultIsWrittenAtTheEnd()
{
    m_pSelect->slotDefaultSelectionMenuActivated(10);
    m_pSelect->Select(9);
    QVERIFY(m_pStore->GetKeys().isEmpty());
    m_pSelect.reset();
    QCOMPARE(m_pStore->GetKeys(), QStringList{ StoreKey });
    QCOMPARE(m_pStore->ReadString(StoreKey, QString()), QStringLiteral("10"));
}

void tst_AzimuthDisplaySelect::defaultIsWrittenAfterItsValueHasGone()
{
    m_pSelect->slotDefaultSelectionMenuActivated(6);
    RemoveFromTree(m_pSelect->DefaultValueSelection());
    m_pSelect->aboutToTerminate();
    QCOMPARE(m_pStore->ReadString(StoreKey, QString()), QStringLiteral("6"));
}

void tst_AzimuthDisplaySelect::endsTwiceAndGoesOn()
{
    m_pSelect->slotDefaultSelectionMenuActivated(6);
    m_pSelect->aboutToTerminate();
    m_pStore->Clear();
    m_pSelect->aboutToTerminate();
    QVERIFY(m_pStore->GetKeys().isEmpty());
    QSignalSpy const changed(m_pSelect.get(), &AzimuthDisplaySelect::signalAzimuthModeChanged);
    m_pSelect->slotDefaultSelectionMenuActivated(9);
    QCOMPARE(m_pSelect->GetCurrentSelected(), 9L);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(SelectionAt(m_pSelect->CreateValueSelection())->GetCurrentKey(), 9L);
}

void tst_AzimuthDisplaySelect::letsGoOfItsSelectionsAtTheEnd()
{
    m_pSelect->aboutToTerminate();
    for (QString const & path : { m_pSelect->DefaultValueSelection(), m_pSelect->CurrentValueSelection() })
        QVERIFY(!SelectionAt(path)->HasObserver(m_pSelect.get()));
    SelectionAt(m_pSelect->CurrentValueSelection())->Select(9L, nullptr);
    QCOMPARE(m_pSelect->GetCurrentSelected(), 5L);
}

void tst_AzimuthDisplaySelect::isToldOfTheEnd()
{
    m_pSelect->slotDefaultSelectionMenuActivated(9);
    IAbstractTerminationTarget & target = *m_pSelect;
    target.aboutToTerminate();
    QCOMPARE(m_pStore->ReadString(StoreKey, QString()), QStringLiteral("9"));
}

void tst_AzimuthDisplaySelect::isATargetOfTheEnd()
{
    m_pSelect.reset();
    int const before = IAbstractTerminationTarget::GetCount();
    m_pSelect = std::make_unique<AzimuthDisplaySelectAccess>();
    QCOMPARE(IAbstractTerminationTarget::GetCount(), before + 1);
    m_pSelect.reset();
    QCOMPARE(IAbstractTerminationTarget::GetCount(), before);
}

void tst_AzimuthDisplaySelect::goesOnWithoutItsValues()
{
    RemoveFromTree(m_pSelect->DefaultValueSelection());
    RemoveFromTree(m_pSelect->CurrentValueSelection());
    QSignalSpy const changed(m_pSelect.get(), &AzimuthDisplaySelect::signalAzimuthModeChanged);
    m_pSelect->Select(9);
    QCOMPARE(m_pSelect->GetCurrentSelected(), 9L);
    m_pSelect->slotDefaultSelectionMenuActivated(10);
    QCOMPARE(m_pSelect->GetCurrentSelected(), 10L);
    QCOMPARE(changed.count(), 2);
    QCOMPARE(SelectionAt(m_pSelect->CreateValueSelection())->GetCurrentKey(), 10L);
    std::unique_ptr<ResortPopupMenu> const menu(m_pSelect->CreateMenuForDefaultSelection(nullptr));
    QVERIFY(menu->FindItem(10)->isChecked());
    m_pSelect->slotRestoreDefaultPersistant();
    QCOMPARE(m_pSelect->GetCurrentSelected(), 5L);
    m_pSelect->ApplyPersistantAfterRead();
    m_pSelect->ApplyPersistantBeforeWrite();
    QCOMPARE(m_pSelect->GetCurrentSelected(), 5L);
}

void tst_AzimuthDisplaySelect::strangersAreIgnored()
{
    ValueSelection other;
    other.AddItem(SelectionItem(QStringLiteral("other"), 0.0, 9));
    other.Select(9L, nullptr);
    m_pSelect->Update(&other, eValueChanged);
    m_pSelect->Update(nullptr, eValueChanged);
    QCOMPARE(m_pSelect->GetCurrentSelected(), 5L);
    ValueSelection * const current = SelectionAt(m_pSelect->CurrentValueSelection());
    current->SetState(eStateDisabled, nullptr); // not the end
    current->Select(9L, nullptr);
    QCOMPARE(m_pSelect->GetCurrentSelected(), 9L);
}

void tst_AzimuthDisplaySelect::oneObject()
{
    AzimuthDisplaySelect & select = AzimuthMode(10);
    QCOMPARE(&AzimuthDisplaySelect::Instance(), &select);
    QCOMPARE(select.GetCurrentSelected(), 10L);
    QCOMPARE(m_pSelect->GetCurrentSelected(), 5L); // this one is another
    AzimuthMode(5);
}

void tst_AzimuthDisplaySelect::slotsAndSignalByName()
{
    QMetaObject const & meta = AzimuthDisplaySelect::staticMetaObject;
    for (char const * const slot : { "slotDefaultSelectionMenuActivated(int)", "slotRestoreDefaultPersistant()" })
        QVERIFY2(meta.indexOfSlot(slot) >= 0, slot);
    QVERIFY(meta.indexOfSignal("signalAzimuthModeChanged()") >= 0);
}

ORIM_TEST_MAIN(tst_AzimuthDisplaySelect)
#include "tst_azimuthdisplayselect.moc"
