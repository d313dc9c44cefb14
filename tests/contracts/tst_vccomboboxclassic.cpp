// SPDX-License-Identifier: MIT
#include "vccomboboxclassic.h"

#include "boundvalue.h"
#include "valuenumeric.h"

#include "testmain.h"

#include <QAbstractItemView>
#include <QSignalSpy>
#include <QUndoStack>
#include <QWheelEvent>

#include <type_traits>

namespace {

static_assert(std::is_base_of<QComboBox, VCComboBoxClassic>::value);
static_assert(std::is_base_of<IObserver, VCComboBoxClassic>::value);
static_assert(std::is_base_of<UndoRecordingControlBase, VCComboBoxClassic>::value);

QString const Path = QStringLiteral("/combo/mode");

ValueSelection * InsertSelection(char const * name = "mode")
{
    return PlantSelection(QStringLiteral("/combo"), QString::fromLatin1(name),
                          { SelectionItem(QStringLiteral("absolute"), 1.0, 5),
                            SelectionItem(QStringLiteral("R & L"), 2.0, 9),
                            SelectionItem(QStringLiteral("north"), 3.0, -1) },
                          9L);
}

QStringList Items(QComboBox const & combo)
{
    QStringList items;
    for (int i = 0; i < combo.count(); ++i)
        items.append(combo.itemText(i));
    return items;
}

} // namespace

class tst_VCComboBoxClassic : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void init() { Undo().clear(); }

    void cleanup() { Tree::Instance()->RemoveFolder(QStringLiteral("/combo")); }

    void construction();
    void bindingByPath_data();
    void bindingByPath();
    void showsItemsAndChoice();
    void nothingChosen();
    void followsChoiceAndItems();
    void choiceIsWrittenByKey_data();
    void choiceIsWrittenByKey();
    void choiceByKeyboardAndPopup();
    void twoItemsWithOneKey();
    void itemWithoutKeyIsIgnored();
    void notToldOfItsOwnWrite();
    void undoRestores();
    void undoNotRecorded();
    void dirty();
    void sameChoiceIsClean();
    void silentWhileFollowing();
    void selectionGoesAway();
    void selectionEndsUnheard();
    void selectionGoesAwayInTheWrite();
    void comboDiesInTheWrite();
    void writeIsOverruled();
    void wheelNeedsTheFocus();
    void strangersAreIgnored();
};

void tst_VCComboBoxClassic::construction()
{
    QWidget parent;
    VCComboBoxClassic const combo(&parent, "AzimuthMode");
    QCOMPARE(combo.objectName(), QStringLiteral("AzimuthMode"));
    QCOMPARE(combo.parentWidget(), &parent);
    QCOMPARE(combo.count(), 0);
    QVERIFY(!combo.GetValueSelection());
    QVERIFY(!combo.GetDirty());
    VCComboBoxClassic const nameless;
    QCOMPARE(nameless.objectName(), QString());
}

void tst_VCComboBoxClassic::bindingByPath_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("found");
    QTest::newRow("known") << Path << true;
    QTest::newRow("unknown") << QStringLiteral("/combo/other") << false;
    QTest::newRow("empty") << QString() << false;
    QTest::newRow("a number is no selection") << QStringLiteral("/combo/number") << false;
}

void tst_VCComboBoxClassic::bindingByPath()
{
    QFETCH(QString, path);
    QFETCH(bool, found);
    Tree::Instance()->Insert(QStringLiteral("/combo"), new ValueNumeric<int>(QStringLiteral("number")));
    ValueSelection const * const before = InsertSelection("before");
    ValueSelection const * const selection = InsertSelection();
    VCComboBoxClassic combo;
    combo.SetValueSelection_ValuePath(QStringLiteral("/combo/before"));
    QCOMPARE(combo.SetValueSelection_ValuePath(path), found);
    QVERIFY(!before->HasObserver(&combo));
    QCOMPARE(selection->HasObserver(&combo), found);
    QCOMPARE(combo.GetValueSelection() == selection, found);
    QVERIFY(combo.SetValueSelection_ValuePath(Path));
}

void tst_VCComboBoxClassic::showsItemsAndChoice()
{
    InsertSelection();
    VCComboBoxClassic combo;
    combo.SetValueSelection_ValuePath(Path);
    QCOMPARE(Items(combo), (QStringList{ "absolute", "R & L", "north" }));
    QCOMPARE(combo.currentText(), QStringLiteral("R & L"));
    QCOMPARE(combo.itemData(0).toLongLong(), 5LL);
    QCOMPARE(combo.itemData(2).toLongLong(), -1LL);
}

void tst_VCComboBoxClassic::nothingChosen()
{
    auto * const selection = new ValueSelection(QStringLiteral("mode"));
    selection->AddItem(SelectionItem(QStringLiteral("only"), 0.0, 1));
    Tree::Instance()->Insert(QStringLiteral("/combo"), selection);
    VCComboBoxClassic combo;
    combo.SetValueSelection_ValuePath(Path);
    QCOMPARE(combo.currentIndex(), -1);
    QCOMPARE(selection->GetCurrentIndex(), -1); // showing it chooses nothing
}

void tst_VCComboBoxClassic::followsChoiceAndItems()
{
    ValueSelection * const selection = InsertSelection();
    VCComboBoxClassic combo;
    combo.SetValueSelection_ValuePath(Path);
    selection->Select(5L, nullptr);
    QCOMPARE(combo.currentIndex(), 0);
    selection->AddItem(SelectionItem(QStringLiteral("new"), 4.0, 77));
    QCOMPARE(combo.count(), 4);
    QCOMPARE(combo.currentIndex(), 0);
    selection->Select(77L, nullptr);
    QCOMPARE(combo.currentText(), QStringLiteral("new"));
    selection->DeleteItem(77);
    QCOMPARE(combo.count(), 3);
    QCOMPARE(combo.currentIndex(), selection->GetCurrentIndex());
    selection->DeleteItems();
    QCOMPARE(combo.count(), 0);
}

void tst_VCComboBoxClassic::choiceIsWrittenByKey_data()
{
    QTest::addColumn<int>("downs");
    QTest::addColumn<int>("key");
    QTest::newRow("up") << -1 << 5;
    QTest::newRow("down to key -1") << 1 << -1;
}

void tst_VCComboBoxClassic::choiceIsWrittenByKey()
{
    QFETCH(int, downs);
    QFETCH(int, key);
    ValueSelection const * const selection = InsertSelection();
    VCComboBoxClassic combo;
    combo.SetValueSelection_ValuePath(Path);
    combo.show();
    QTest::keyClick(&combo, downs > 0 ? Qt::Key_Down : Qt::Key_Up);
    QCOMPARE(selection->GetCurrentKey(), static_cast<long>(key));
    QCOMPARE(combo.currentIndex(), selection->GetCurrentIndex());
}

void tst_VCComboBoxClassic::choiceByKeyboardAndPopup()
{
    ValueSelection const * const selection = InsertSelection();
    VCComboBoxClassic combo;
    combo.SetValueSelection_ValuePath(Path);
    combo.show();
    combo.setFocus();
    combo.showPopup();
    QTRY_VERIFY(combo.view()->isVisible());
    QTest::keyClick(combo.view(), Qt::Key_Home);
    QTest::keyClick(combo.view(), Qt::Key_Return);
    QTRY_COMPARE(selection->GetCurrentKey(), 5L);
}

void tst_VCComboBoxClassic::twoItemsWithOneKey()
{
    ValueSelection * const selection = InsertSelection();
    selection->AddItem(SelectionItem(QStringLiteral("twin"), 8.0, 5));
    VCComboBoxClassic combo;
    combo.SetValueSelection_ValuePath(Path);
    combo.show();
    QTest::keyClick(&combo, Qt::Key_End);
    QCOMPARE(selection->GetCurrentKey(), 5L);
    QCOMPARE(selection->GetCurrentIndex(), 0); // the first with the key counts
    QCOMPARE(combo.currentIndex(), 0);
}

void tst_VCComboBoxClassic::itemWithoutKeyIsIgnored()
{
    ValueSelection * const selection = InsertSelection();
    selection->AddItem(SelectionItem(QStringLiteral("zero"), 0.0, 0));
    VCComboBoxClassic combo;
    combo.SetValueSelection_ValuePath(Path);
    combo.addItem(QStringLiteral("of the application"));
    combo.show();
    QTest::keyClick(&combo, Qt::Key_End);
    QCOMPARE(selection->GetCurrentKey(), 9L);
    QVERIFY(!combo.GetDirty());
    QCOMPARE(Undo().count(), 0);
}

void tst_VCComboBoxClassic::notToldOfItsOwnWrite()
{
    class Spy : public VCComboBoxClassic
    {
    public:
        void Update(Observable * subject, TChangeCode code) override
        {
            m_codes.append(code);
            VCComboBoxClassic::Update(subject, code);
        }

        QVector<int> m_codes;
    };

    ValueSelection const * const selection = InsertSelection();
    Spy combo;
    combo.SetValueSelection_ValuePath(Path);
    QVERIFY(combo.m_codes.contains(eValueChanged));
    combo.m_codes.clear();
    combo.show();
    QTest::keyClick(&combo, Qt::Key_Up);
    QCOMPARE(selection->GetCurrentKey(), 5L);
    QVERIFY(combo.m_codes.isEmpty());
}

void tst_VCComboBoxClassic::undoRestores()
{
    ValueSelection const * const selection = InsertSelection();
    VCComboBoxClassic combo;
    combo.SetValueSelection_ValuePath(Path);
    combo.show();
    QTest::keyClick(&combo, Qt::Key_Up);
    QCOMPARE(Undo().count(), 1);
    QCOMPARE(Undo().undoText(), QStringLiteral("Set mode"));
    Undo().undo();
    QCOMPARE(selection->GetCurrentKey(), 9L);
    QCOMPARE(combo.currentIndex(), 1);
    Undo().redo();
    QCOMPARE(combo.currentIndex(), 0);
}

void tst_VCComboBoxClassic::undoNotRecorded()
{
    ValueSelection const * const selection = InsertSelection();
    VCComboBoxClassic combo;
    combo.SetValueSelection_ValuePath(Path);
    combo.SetUndoRecorded(false);
    combo.show();
    QTest::keyClick(&combo, Qt::Key_Up);
    QCOMPARE(selection->GetCurrentKey(), 5L); // chosen all the same
    QVERIFY(combo.GetDirty());
    QCOMPARE(Undo().count(), 0);
    combo.SetUndoRecorded(true);
    QTest::keyClick(&combo, Qt::Key_Down);
    QCOMPARE(Undo().count(), 1);
}

void tst_VCComboBoxClassic::dirty()
{
    ValueSelection * const selection = InsertSelection();
    VCComboBoxClassic combo;
    combo.SetValueSelection_ValuePath(Path);
    selection->Select(5L, nullptr);
    QVERIFY(!combo.GetDirty()); // a change from elsewhere
    combo.show();
    QTest::keyClick(&combo, Qt::Key_Down);
    QVERIFY(combo.GetDirty());
    combo.SetDirty(false);
    QVERIFY(!combo.GetDirty());
    combo.SetDirty(true);
    combo.SetValueSelection_ValuePath(Path);
    QVERIFY(!combo.GetDirty());
}

void tst_VCComboBoxClassic::sameChoiceIsClean()
{
    ValueSelection * const selection = InsertSelection();
    Watcher watcher;
    VCComboBoxClassic combo;
    combo.SetValueSelection_ValuePath(Path);
    selection->AddObserver(&watcher);
    combo.show();
    combo.showPopup();
    QTRY_VERIFY(combo.view()->isVisible());
    QTest::keyClick(combo.view(), Qt::Key_Return);
    QTRY_VERIFY(!combo.view()->isVisible());
    QVERIFY(!combo.GetDirty());
    QCOMPARE(watcher.m_calls, 0);
    QCOMPARE(Undo().count(), 0);
}

void tst_VCComboBoxClassic::silentWhileFollowing()
{
    ValueSelection * const selection = InsertSelection();
    VCComboBoxClassic combo;
    QSignalSpy const changed(&combo, qOverload<int>(&QComboBox::currentIndexChanged));
    combo.SetValueSelection_ValuePath(Path);
    selection->Select(5L, nullptr);
    selection->DeleteItem(9);
    QCOMPARE(changed.count(), 0);
}

void tst_VCComboBoxClassic::selectionGoesAway()
{
    InsertSelection();
    VCComboBoxClassic combo;
    combo.SetValueSelection_ValuePath(Path);
    Tree::Instance()->Remove(Path);
    QVERIFY(!combo.GetValueSelection());
    QCOMPARE(combo.count(), 3); // the last items stay
    combo.show();
    QTest::keyClick(&combo, Qt::Key_Up); // writes nothing
    QVERIFY(!combo.GetDirty());
    InsertSelection();
    QVERIFY(combo.SetValueSelection_ValuePath(Path));
    QCOMPARE(combo.currentIndex(), 1);
}

void tst_VCComboBoxClassic::selectionEndsUnheard()
{
    ValueSelection * const selection = InsertSelection();
    VCComboBoxClassic combo;
    combo.SetValueSelection_ValuePath(Path);
    selection->DeleteObservers();
    QCOMPARE(combo.GetValueSelection(), selection);
    Tree::Instance()->Remove(Path);
    QVERIFY(!combo.GetValueSelection());
    combo.show();
    QTest::keyClick(&combo, Qt::Key_Up); // writes nothing
    QVERIFY(!combo.GetDirty());
}

void tst_VCComboBoxClassic::selectionGoesAwayInTheWrite()
{
    ValueSelection * const selection = InsertSelection();
    Watcher watcher;
    watcher.m_then = [] { Tree::Instance()->Remove(Path); };
    VCComboBoxClassic combo;
    combo.SetValueSelection_ValuePath(Path);
    selection->AddObserver(&watcher);
    combo.show();
    QTest::keyClick(&combo, Qt::Key_Up);
    QVERIFY(!combo.GetValueSelection());
}

void tst_VCComboBoxClassic::comboDiesInTheWrite()
{
    ValueSelection * const selection = InsertSelection();
    auto * const combo = new VCComboBoxClassic;
    QPointer<QComboBox> const alive(combo);
    combo->SetValueSelection_ValuePath(Path);
    Watcher watcher;
    watcher.m_then = [combo] { delete combo; };
    selection->AddObserver(&watcher);
    combo->setCurrentIndex(0);
    QMetaObject::invokeMethod(combo, "activated", Q_ARG(int, 0));
    QVERIFY(!alive);
    QCOMPARE(selection->GetCurrentKey(), 5L);
}

void tst_VCComboBoxClassic::writeIsOverruled()
{
    ValueSelection * const selection = InsertSelection();
    Watcher watcher;
    watcher.m_then = [selection] { selection->Select(9L, nullptr); };
    VCComboBoxClassic combo;
    combo.SetValueSelection_ValuePath(Path);
    selection->AddObserver(&watcher);
    combo.show();
    QTest::keyClick(&combo, Qt::Key_Up);
    QCOMPARE(combo.currentIndex(), 1); // what the selection became
}

void tst_VCComboBoxClassic::wheelNeedsTheFocus()
{
    ValueSelection const * const selection = InsertSelection();
    QWidget window;
    VCComboBoxClassic combo(&window);
    combo.SetValueSelection_ValuePath(Path);
    window.show();
    window.activateWindow();
    QWheelEvent up(QPointF(5, 5), QPointF(5, 5), QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                   Qt::NoScrollPhase, false);
    combo.clearFocus();
    QCoreApplication::sendEvent(&combo, &up);
    QCOMPARE(selection->GetCurrentKey(), 9L);
    combo.setFocus();
    QTRY_VERIFY(combo.hasFocus());
    QCoreApplication::sendEvent(&combo, &up);
    QCOMPARE(selection->GetCurrentKey(), 5L);
}

void tst_VCComboBoxClassic::strangersAreIgnored()
{
    ValueSelection stranger;
    stranger.AddItem(SelectionItem(QStringLiteral("x"), 0.0, 0));
    VCComboBoxClassic combo;
    for (TChangeCode const code : { eStateChanged, eRangeChanged, eItemsChanged, eValueChanged })
        combo.Update(&stranger, code);
    QCOMPARE(combo.count(), 0);
}

ORIM_TEST_MAIN(tst_VCComboBoxClassic)
#include "tst_vccomboboxclassic.moc"
