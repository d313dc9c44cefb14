// SPDX-License-Identifier: MIT
#include "vcselectionpopup.h"

#include "boundvalue.h"
#include "valuenumeric.h"

#include "testmain.h"

#include <QAction>
#include <QSignalSpy>
#include <QUndoStack>

#include <type_traits>

namespace {

static_assert(std::is_base_of<QMenu, VCSelectionPopup>::value);
static_assert(std::is_base_of<IObserver, VCSelectionPopup>::value);
static_assert(std::is_base_of<UndoRecordingControlBase, VCSelectionPopup>::value);

QString const Path = QStringLiteral("/popup/zone");

ValueSelection * InsertSelection()
{
    return PlantSelection(QStringLiteral("/popup"), QStringLiteral("zone"),
                          { SelectionItem(QStringLiteral("UTC"), 0.0, 0),
                            SelectionItem(QStringLiteral("R & L"), 3600.0, 4),
                            SelectionItem(QStringLiteral("UTC+2"), 7200.0, 8) },
                          4L);
}

QStringList Texts(QMenu const & menu)
{
    QStringList texts;
    for (QAction const * const action : menu.actions())
        texts.append((action->isChecked() ? QStringLiteral("*") : QString()) + action->text());
    return texts;
}

} // namespace

class tst_VCSelectionPopup : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void init() { Undo().clear(); }

    void cleanup() { Tree::Instance()->RemoveFolder(QStringLiteral("/popup")); }

    void construction();
    void binding();
    void bindingByPath_data();
    void bindingByPath();
    void clickSelects_data();
    void clickSelects();
    void followsChoiceAndItems();
    void nothingChosen();
    void itemsStandAheadOfOthers();
    void otherItemsGoTheirWay();
    void clickOnTheChosen();
    void notToldOfItsOwnWrite();
    void clearedMenu();
    void menuIsClearedInTheWrite();
    void undoRestores();
    void nullTakesTheItems();
    void selectionGoesAway();
    void selectionEndsUnheard();
    void selectionGoesAwayInTheWrite();
    void popupDiesInTheWrite();
    void listenerRebuildsTheItems();
    void strangersAreIgnored();
};

void tst_VCSelectionPopup::construction()
{
    QWidget parent;
    VCSelectionPopup const popup(&parent, "TimeZone");
    QCOMPARE(popup.objectName(), QStringLiteral("TimeZone"));
    QCOMPARE(popup.parentWidget(), &parent);
    QVERIFY(popup.isEmpty());
    QVERIFY(!popup.GetFirstSelection());
}

void tst_VCSelectionPopup::binding()
{
    ValueSelection * const selection = InsertSelection();
    VCSelectionPopup popup;
    popup.SetFirstSelection(selection);
    QCOMPARE(popup.GetFirstSelection(), selection);
    QCOMPARE(Texts(popup), (QStringList{ "UTC", "*R && L", "UTC+2" })); // a menu would take one & as a mark
    ValueSelection other;                                               // of no tree
    other.AddItem(SelectionItem(QStringLiteral("only"), 0.0, 1));
    popup.SetFirstSelection(&other);
    QVERIFY(!selection->HasObserver(&popup));
    QCOMPARE(Texts(popup), QStringList{ "only" });
}

void tst_VCSelectionPopup::bindingByPath_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("found");
    QTest::newRow("known") << Path << true;
    QTest::newRow("unknown") << QStringLiteral("/popup/other") << false;
    QTest::newRow("a number is no selection") << QStringLiteral("/popup/number") << false;
}

void tst_VCSelectionPopup::bindingByPath()
{
    QFETCH(QString, path);
    QFETCH(bool, found);
    Tree::Instance()->Insert(QStringLiteral("/popup"), new ValueNumeric<int>(QStringLiteral("number")));
    InsertSelection();
    VCSelectionPopup popup;
    QCOMPARE(popup.SetFirstSelection_ValuePath(path), found);
    QCOMPARE(popup.isEmpty(), !found);
}

void tst_VCSelectionPopup::clickSelects_data()
{
    QTest::addColumn<int>("place");
    QTest::addColumn<int>("key");
    QTest::newRow("first") << 0 << 0;
    QTest::newRow("last") << 2 << 8;
}

void tst_VCSelectionPopup::clickSelects()
{
    QFETCH(int, place);
    QFETCH(int, key);
    ValueSelection * const selection = InsertSelection();
    VCSelectionPopup popup;
    popup.SetFirstSelection(selection);
    QSignalSpy const activated(&popup, &ResortPopupMenu::signalActivated);
    popup.popup(QPoint(10, 10));
    QTest::mouseClick(&popup, Qt::LeftButton, Qt::NoModifier, popup.actionGeometry(popup.actions().at(place)).center());
    QCOMPARE(selection->GetCurrentKey(), static_cast<long>(key));
    QCOMPARE(activated.count(), 1);
    QCOMPARE(activated.at(0).at(0).toInt(), key);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(popup.actions().at(i)->isChecked(), i == place);
}

void tst_VCSelectionPopup::followsChoiceAndItems()
{
    ValueSelection * const selection = InsertSelection();
    VCSelectionPopup popup;
    popup.SetFirstSelection(selection);
    selection->Select(8L, nullptr);
    QCOMPARE(Texts(popup), (QStringList{ "UTC", "R && L", "*UTC+2" }));
    selection->AddItem(SelectionItem(QStringLiteral("UTC+3"), 10800.0, 12));
    QCOMPARE(Texts(popup), (QStringList{ "UTC", "R && L", "*UTC+2", "UTC+3" }));
    selection->DeleteItem(0);
    QCOMPARE(Texts(popup), (QStringList{ "R && L", "*UTC+2", "UTC+3" }));
}

void tst_VCSelectionPopup::nothingChosen()
{
    ValueSelection selection;
    selection.AddItem(SelectionItem(QStringLiteral("A"), 0.0, 1));
    selection.AddItem(SelectionItem(QStringLiteral("B"), 0.0, 2));
    VCSelectionPopup popup;
    popup.SetFirstSelection(&selection);
    QCOMPARE(Texts(popup), (QStringList{ "A", "B" }));
    selection.Select(1L, nullptr);
    QCOMPARE(Texts(popup), (QStringList{ "*A", "B" }));
    selection.DeleteItem(1);
    QCOMPARE(Texts(popup), QStringList{ "B" });
}

void tst_VCSelectionPopup::itemsStandAheadOfOthers()
{
    ValueSelection * const selection = InsertSelection();
    VCSelectionPopup popup;
    popup.insertItem(QStringLiteral("Properties..."));
    popup.SetFirstSelection(selection);
    QCOMPARE(popup.actions().last()->text(), QStringLiteral("Properties..."));
    selection->AddItem(SelectionItem(QStringLiteral("new"), 0.0, 99));
    QCOMPARE(popup.actions().size(), 5);
    QCOMPARE(popup.actions().at(3)->text(), QStringLiteral("new"));
    QCOMPARE(popup.actions().last()->text(), QStringLiteral("Properties..."));
}

void tst_VCSelectionPopup::otherItemsGoTheirWay()
{
    ValueSelection * const selection = InsertSelection();
    VCSelectionPopup popup;
    popup.SetFirstSelection(selection);
    QSignalSpy const activated(&popup, &ResortPopupMenu::signalActivated);
    popup.insertItem(QStringLiteral("other"), 4000)->trigger();
    QCOMPARE(activated.at(0).at(0).toInt(), 4000);
    QCOMPARE(selection->GetCurrentKey(), 4L);
}

void tst_VCSelectionPopup::clickOnTheChosen()
{
    ValueSelection * const selection = InsertSelection();
    Watcher watcher;
    selection->AddObserver(&watcher);
    VCSelectionPopup popup;
    popup.SetFirstSelection(selection);
    popup.actions().at(1)->trigger();
    QCOMPARE(Texts(popup), (QStringList{ "UTC", "*R && L", "UTC+2" }));
    QCOMPARE(watcher.m_calls, 0);
    QCOMPARE(Undo().count(), 0);
}

void tst_VCSelectionPopup::notToldOfItsOwnWrite()
{
    class Spy : public VCSelectionPopup
    {
    public:
        void Update(Observable * subject, TChangeCode code) override
        {
            m_codes.append(code);
            VCSelectionPopup::Update(subject, code);
        }

        QVector<int> m_codes;
    };

    ValueSelection * const selection = InsertSelection();
    Spy popup;
    popup.SetFirstSelection(selection);
    QVERIFY(popup.m_codes.contains(eValueChanged));
    popup.m_codes.clear();
    popup.actions().at(2)->trigger();
    QCOMPARE(selection->GetCurrentKey(), 8L);
    QVERIFY(popup.m_codes.isEmpty());
}

void tst_VCSelectionPopup::clearedMenu()
{
    ValueSelection * const selection = InsertSelection();
    VCSelectionPopup popup;
    popup.SetFirstSelection(selection);
    popup.clear();
    selection->Select(8L, nullptr);
    QVERIFY(popup.isEmpty());
    selection->AddItem(SelectionItem(QStringLiteral("new"), 0.0, 99));
    QCOMPARE(Texts(popup), (QStringList{ "UTC", "R && L", "*UTC+2", "new" }));
    popup.clear();
    popup.SetFirstSelection(nullptr);
    QVERIFY(popup.isEmpty());
}

void tst_VCSelectionPopup::menuIsClearedInTheWrite()
{
    ValueSelection * const selection = InsertSelection();
    VCSelectionPopup popup;
    popup.SetFirstSelection(selection);
    Watcher watcher;
    watcher.m_then = [&popup] { popup.clear(); };
    selection->AddObserver(&watcher);
    QSignalSpy const activated(&popup, &ResortPopupMenu::signalActivated);
    popup.actions().at(2)->trigger();
    QCOMPARE(selection->GetCurrentKey(), 8L);
    QCOMPARE(activated.count(), 1);
    QCOMPARE(activated.at(0).at(0).toInt(), 8);
}

void tst_VCSelectionPopup::undoRestores()
{
    ValueSelection * const selection = InsertSelection();
    VCSelectionPopup popup;
    popup.SetFirstSelection(selection);
    popup.actions().at(2)->trigger();
    QCOMPARE(Undo().count(), 1);
    QCOMPARE(Undo().undoText(), QStringLiteral("Set zone"));
    Undo().undo();
    QCOMPARE(selection->GetCurrentKey(), 4L);
    QCOMPARE(Texts(popup), (QStringList{ "UTC", "*R && L", "UTC+2" }));
}

void tst_VCSelectionPopup::nullTakesTheItems()
{
    ValueSelection const * const selection = InsertSelection();
    VCSelectionPopup popup;
    popup.SetFirstSelection_ValuePath(Path);
    popup.insertItem(QStringLiteral("stays"));
    popup.SetFirstSelection(nullptr);
    QCOMPARE(Texts(popup), QStringList{ "stays" });
    QVERIFY(!selection->HasObserver(&popup));
}

void tst_VCSelectionPopup::selectionGoesAway()
{
    ValueSelection * const selection = InsertSelection();
    VCSelectionPopup popup;
    popup.SetFirstSelection(selection);
    Tree::Instance()->Remove(Path);
    QVERIFY(!popup.GetFirstSelection());
    QVERIFY(popup.isEmpty());
}

void tst_VCSelectionPopup::selectionEndsUnheard()
{
    ValueSelection * const selection = InsertSelection();
    VCSelectionPopup popup;
    popup.SetFirstSelection(selection);
    selection->DeleteObservers();
    QCOMPARE(popup.GetFirstSelection(), selection);
    Tree::Instance()->Remove(Path);
    QVERIFY(!popup.GetFirstSelection());
    popup.actions().at(0)->trigger(); // writes nothing
}

void tst_VCSelectionPopup::selectionGoesAwayInTheWrite()
{
    ValueSelection * const selection = InsertSelection();
    VCSelectionPopup popup;
    popup.SetFirstSelection(selection);
    Watcher watcher;
    watcher.m_then = [] { Tree::Instance()->Remove(Path); };
    selection->AddObserver(&watcher);
    QSignalSpy const activated(&popup, &ResortPopupMenu::signalActivated);
    popup.actions().at(2)->trigger();
    QVERIFY(popup.isEmpty());
    QCOMPARE(activated.count(), 1);
    QCOMPARE(activated.at(0).at(0).toInt(), 8);
}

void tst_VCSelectionPopup::popupDiesInTheWrite()
{
    ValueSelection * const selection = InsertSelection();
    auto * const popup = new VCSelectionPopup;
    QPointer<QMenu> const alive(popup);
    popup->SetFirstSelection(selection);
    Watcher watcher;
    watcher.m_then = [popup] { delete popup; };
    selection->AddObserver(&watcher);
    popup->actions().at(0)->trigger();
    QVERIFY(!alive);
    QCOMPARE(selection->GetCurrentKey(), 0L);
}

void tst_VCSelectionPopup::listenerRebuildsTheItems()
{
    ValueSelection * const selection = InsertSelection();
    VCSelectionPopup popup;
    popup.SetFirstSelection(selection);
    Watcher watcher;
    watcher.m_then = [&watcher, selection] {
        watcher.m_then = nullptr;
        selection->AddItem(SelectionItem(QStringLiteral("late"), 0.0, 50));
    };
    selection->AddObserver(&watcher);
    popup.actions().at(2)->trigger();
    QCOMPARE(Texts(popup), (QStringList{ "UTC", "R && L", "*UTC+2", "late" }));
}

void tst_VCSelectionPopup::strangersAreIgnored()
{
    ValueSelection * const selection = InsertSelection();
    ValueSelection stranger;
    VCSelectionPopup popup;
    popup.SetFirstSelection(selection);
    for (TChangeCode const code : { eStateChanged, eItemsChanged, eValueChanged })
        popup.Update(&stranger, code);
    QCOMPARE(popup.actions().size(), 3);
    QCOMPARE(popup.GetFirstSelection(), selection);
}

ORIM_TEST_MAIN(tst_VCSelectionPopup)
#include "tst_vcselectionpopup.moc"
