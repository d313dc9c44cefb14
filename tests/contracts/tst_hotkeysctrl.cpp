// SPDX-License-Identifier: MIT
#include "hotkeysctrl.h"

#include "guibase.h"
#include "hotkeyedit.h"
#include "memorycfg.h"
#include "persistant.h"
#include "testmain.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTimer>

#include <memory>

class tst_HotkeysCtrl : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void init();
    void cleanup();
    void editorTakesKeys_data();
    void editorTakesKeys();
    void editorOfAModifierAlone();
    void editorIgnoresRepetitions();
    void editorLeavesEscapeToTheDialog();
    void headings();
    void rowsAreSorted();
    void emptyListSaysSo();
    void editedKeyActsAtOnce();
    void noKey();
    void conflictIsShownAndNotTakenOver();
    void conflictEndsWhenTheOtherGivesWay();
    void swappedKeys();
    void registeredConflict();
    void notes();
    void fixedKeyCannotBeEdited();
    void restoresDefaults();
    void followsTheTable();
    void followsChangesFromOutside();
    void pendingEditSurvivesANewRow();
    void keyOfAWaitingRowIsNotGivenAway();
    void waitingRowsMakeOthersWait();
    void pendingEditIsTakenOverWhenTheOtherGoes_data();
    void pendingEditIsTakenOverWhenTheOtherGoes();
    void hotKeysAreSilentInTheEditor();
    void dialog();
    void dialogWhoseParentDies();
    void dialogHoldsHotKeysBack();
    void picture();

private:
    int Add(int key, char const * name, bool changeable = true);
    void Type(char const * name, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    int RowOf(char const * name) const;
    QString Text(char const * name, HotkeysCtrl::EColumn column) const;
    HotKeyEdit * Edit(char const * name) const;

    MemoryCfg m_store;
    std::unique_ptr<HotkeysCtrl> m_pCtrl;
    QTableWidget * m_pTable = nullptr;
};

namespace {

GuiBase & Gui() { return GuiBase::Instance(); }

HotKeyCombination Combination(int key, int modifiers = 0) { return HotKeyCombination::From(key, modifiers); }

} // namespace

int tst_HotkeysCtrl::Add(int key, char const * name, bool changeable)
{
    return Gui().AddHotKey(static_cast<Qt::Key>(key), 0, this, QString::fromLatin1(name), QStringLiteral("Axis"),
                           changeable, false);
}

int tst_HotkeysCtrl::RowOf(char const * name) const
{
    for (int row = 0; row < m_pTable->rowCount(); ++row)
        if (m_pTable->item(row, HotkeysCtrl::eColumnName)->text() == QLatin1String(name))
            return row;
    return -1;
}

QString tst_HotkeysCtrl::Text(char const * name, HotkeysCtrl::EColumn column) const
{
    return m_pTable->item(RowOf(name), column)->text();
}

HotKeyEdit * tst_HotkeysCtrl::Edit(char const * name) const
{
    return qobject_cast<HotKeyEdit *>(m_pTable->cellWidget(RowOf(name), HotkeysCtrl::eColumnKey));
}

void tst_HotkeysCtrl::Type(char const * name, int key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(Edit(name), static_cast<Qt::Key>(key), modifiers);
}

void tst_HotkeysCtrl::init()
{
    Persistant::SetStore(&m_store);
    Gui().SetApplication(qApp);
    Add(Qt::Key_F1, "One");
    Add(Qt::Key_F2, "Two");
    Add(Qt::Key_F3, "Three");
    m_pCtrl = std::make_unique<HotkeysCtrl>();
    m_pTable = m_pCtrl->findChild<QTableWidget *>(QStringLiteral("HotKeysTable"));
    m_pCtrl->resize(640, 300);
    m_pCtrl->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_pCtrl.get()));
}

void tst_HotkeysCtrl::cleanup()
{
    m_pCtrl.reset();
    Gui().RemoveHotKeyReceiver(this);
    Gui().SetApplication(nullptr);
    m_store.Clear();
    Persistant::SetStore(nullptr);
}

void tst_HotkeysCtrl::editorTakesKeys_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("text");
    int const control = static_cast<int>(Qt::ControlModifier);
    int const shift = static_cast<int>(Qt::ShiftModifier);
    QTest::newRow("a function key") << int(Qt::Key_F9) << 0 << "F9";
    QTest::newRow("a letter") << int(Qt::Key_M) << 0 << "M";
    QTest::newRow("with modifiers") << int(Qt::Key_M) << (control | shift) << "Ctrl+Shift+M";
    QTest::newRow("Backspace takes the key away") << int(Qt::Key_Backspace) << 0 << "";
    QTest::newRow("Delete too") << int(Qt::Key_Delete) << 0 << "";
    QTest::newRow("Ctrl+Delete is a key") << int(Qt::Key_Delete) << control << "Ctrl+Del";
}

void tst_HotkeysCtrl::editorTakesKeys()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    HotKeyEdit edit;
    edit.SetCombination(Combination(Qt::Key_F1));
    QSignalSpy const edited(&edit, &HotKeyEdit::signalEdited);
    auto const flags = static_cast<Qt::KeyboardModifiers>(modifiers);
    QTest::keyClick(&edit, static_cast<Qt::Key>(key), flags);
    QTEST(edit.GetCombination().ToText(), "text");
    QTEST(edit.keySequence().toString(QKeySequence::PortableText), "text");
    QCOMPARE(edited.count(), 1);
    QTest::keyClick(&edit, static_cast<Qt::Key>(key), flags);
    QCOMPARE(edited.count(), 1); // the same again is no edit
}

void tst_HotkeysCtrl::editorOfAModifierAlone()
{
    HotKeyEdit edit;
    edit.SetCombination(Combination(Qt::Key_F1));
    QSignalSpy const edited(&edit, &HotKeyEdit::signalEdited);
    QTest::keyClick(&edit, Qt::Key_Control, Qt::ControlModifier);
    QCOMPARE(edited.count(), 0);
    QCOMPARE(edit.GetCombination().key, int(Qt::Key_F1));
    QCOMPARE(edit.keySequence(), QKeySequence(Qt::Key_F1));
}

void tst_HotkeysCtrl::editorIgnoresRepetitions()
{
    HotKeyEdit edit;
    QKeyEvent repetition(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier, QString(), true);
    QApplication::sendEvent(&edit, &repetition);
    QVERIFY(edit.GetCombination().IsNone());
}

void tst_HotkeysCtrl::editorLeavesEscapeToTheDialog()
{
    QDialog dialog;
    auto * const edit = new HotKeyEdit(&dialog);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QTest::keyClick(edit, Qt::Key_Escape);
    QVERIFY(!dialog.isVisible());
    QVERIFY(edit->GetCombination().IsNone());
}

void tst_HotkeysCtrl::headings()
{
    QStringList const expected{ "Function", "Group", "Key", "Default", "Note" };
    QCOMPARE(m_pTable->columnCount(), 5);
    for (int column = 0; column < 5; ++column)
        QCOMPARE(m_pTable->horizontalHeaderItem(column)->text(), expected.at(column));
    QCOMPARE(m_pCtrl->findChild<QPushButton *>(QStringLiteral("RestoreDefaults"))->text(),
             QStringLiteral("Restore &Defaults"));
}

void tst_HotkeysCtrl::rowsAreSorted()
{
    Gui().AddHotKey(Qt::Key_F4, 0, this, QStringLiteral("Zzz"), QStringLiteral("A first group"), true, false);
    QTRY_COMPARE(m_pTable->rowCount(), 4);
    QCOMPARE(RowOf("Zzz"), 0);
    QCOMPARE(RowOf("One"), 1);
    QCOMPARE(RowOf("Three"), 2);
    QCOMPARE(RowOf("Two"), 3);
    QCOMPARE(Text("Zzz", HotkeysCtrl::eColumnGroup), QStringLiteral("A first group"));
    QCOMPARE(Text("Two", HotkeysCtrl::eColumnDefault), QStringLiteral("F2"));
    QCOMPARE(Edit("Two")->keySequence(), QKeySequence(Qt::Key_F2));
    QCOMPARE(Edit("Two")->accessibleName(), QStringLiteral("Key of Two"));
}

void tst_HotkeysCtrl::emptyListSaysSo()
{
    QVERIFY(m_pTable->isVisible());
    Gui().RemoveHotKeyReceiver(this);
    QTRY_VERIFY(!m_pTable->isVisible());
    bool isSaid = false;
    for (auto const * const label : m_pCtrl->findChildren<QLabel *>())
        isSaid = isSaid || (label->isVisible() && label->text() == QLatin1String("No hot keys are registered."));
    QVERIFY(isSaid);
}

void tst_HotkeysCtrl::editedKeyActsAtOnce()
{
    QSignalSpy const heard(&Gui(), &GuiBase::signalHotKey);
    int const index = Gui().GetIndex4HotKey(Qt::Key_F1, 0);
    Type("One", Qt::Key_M, Qt::ControlModifier);
    QCOMPARE(Gui().GetIndex4HotKey(Qt::Key_M, Qt::ControlModifier), index);
    QCOMPARE(Gui().GetIndex4HotKey(Qt::Key_F1, 0), -1);
    QCOMPARE(Text("One", HotkeysCtrl::eColumnNote), QStringLiteral("Changed"));
    QCOMPARE(heard.count(), 0);
    QTest::keyClick(m_pCtrl.get(), Qt::Key_M, Qt::ControlModifier);
    QCOMPARE(heard.count(), 1);
    QCOMPARE(heard.at(0).at(0).toInt(), index);
}

void tst_HotkeysCtrl::noKey()
{
    Type("One", Qt::Key_Backspace);
    Type("Two", Qt::Key_Backspace); // two without a key are no conflict
    QCOMPARE(Text("One", HotkeysCtrl::eColumnNote), QStringLiteral("No key"));
    QCOMPARE(Text("Two", HotkeysCtrl::eColumnNote), QStringLiteral("No key"));
    QCOMPARE(Gui().GetIndex4HotKey(Qt::Key_F1, 0), -1);
}

void tst_HotkeysCtrl::conflictIsShownAndNotTakenOver()
{
    int const one = Gui().GetIndex4HotKey(Qt::Key_F1, 0);
    int const two = Gui().GetIndex4HotKey(Qt::Key_F2, 0);
    Type("Two", Qt::Key_F1);
    QCOMPARE(Gui().GetIndex4HotKey(Qt::Key_F1, 0), one);
    QCOMPARE(Gui().GetIndex4HotKey(Qt::Key_F2, 0), two);
    QCOMPARE(Text("One", HotkeysCtrl::eColumnNote), QStringLiteral("Also wanted for \"Two\""));
    QCOMPARE(Text("Two", HotkeysCtrl::eColumnNote), QStringLiteral("In use for \"One\": not taken over"));
    QVERIFY(!m_pTable->item(RowOf("One"), HotkeysCtrl::eColumnNote)->icon().isNull());
    QVERIFY(!m_pTable->item(RowOf("Two"), HotkeysCtrl::eColumnNote)->icon().isNull());
    QVERIFY(m_pTable->item(RowOf("Three"), HotkeysCtrl::eColumnNote)->icon().isNull());
    QCOMPARE(Edit("Two")->keySequence(), QKeySequence(Qt::Key_F1)); // what was typed stays to be seen
    QVERIFY(!QApplication::activeModalWidget());
}

void tst_HotkeysCtrl::conflictEndsWhenTheOtherGivesWay()
{
    int const two = Gui().GetIndex4HotKey(Qt::Key_F2, 0);
    Type("Two", Qt::Key_F1);
    Type("One", Qt::Key_F9);
    QCOMPARE(Gui().GetIndex4HotKey(Qt::Key_F1, 0), two);
    QCOMPARE(Text("One", HotkeysCtrl::eColumnNote), QStringLiteral("Changed"));
    QCOMPARE(Text("Two", HotkeysCtrl::eColumnNote), QStringLiteral("Changed"));
    QVERIFY(m_pTable->item(RowOf("One"), HotkeysCtrl::eColumnNote)->icon().isNull());
}

void tst_HotkeysCtrl::swappedKeys()
{
    int const one = Gui().GetIndex4HotKey(Qt::Key_F1, 0);
    int const two = Gui().GetIndex4HotKey(Qt::Key_F2, 0);
    Type("Two", Qt::Key_F1);
    Type("One", Qt::Key_F2);
    QCOMPARE(Gui().GetIndex4HotKey(Qt::Key_F1, 0), two);
    QCOMPARE(Gui().GetIndex4HotKey(Qt::Key_F2, 0), one);
}

void tst_HotkeysCtrl::registeredConflict()
{
    Add(Qt::Key_F1, "Other");
    QTRY_COMPARE(m_pTable->rowCount(), 4);
    QCOMPARE(Text("One", HotkeysCtrl::eColumnNote), QStringLiteral("Also wanted for \"Other\""));
    QCOMPARE(Text("Other", HotkeysCtrl::eColumnNote), QStringLiteral("Also wanted for \"One\""));
}

void tst_HotkeysCtrl::notes()
{
    QCOMPARE(Text("One", HotkeysCtrl::eColumnNote), QString());
    Gui().EnableHotKey(Gui().GetIndex4HotKey(Qt::Key_F1, 0), false);
    QTRY_COMPARE(Text("One", HotkeysCtrl::eColumnNote), QStringLiteral("Switched off"));
    Type("Two", Qt::Key_F9);
    QCOMPARE(Text("Two", HotkeysCtrl::eColumnNote), QStringLiteral("Changed"));
    Type("Two", Qt::Key_F2);
    QCOMPARE(Text("Two", HotkeysCtrl::eColumnNote), QString());
}

void tst_HotkeysCtrl::fixedKeyCannotBeEdited()
{
    Add(Qt::Key_F8, "Fixed", false);
    QTRY_COMPARE(m_pTable->rowCount(), 4);
    QCOMPARE(Text("Fixed", HotkeysCtrl::eColumnNote), QStringLiteral("Cannot be changed"));
    QVERIFY(!Edit("Fixed")->isEnabled());
    QVERIFY(Edit("One")->isEnabled());
}

void tst_HotkeysCtrl::restoresDefaults()
{
    int const one = Gui().GetIndex4HotKey(Qt::Key_F1, 0);
    Type("One", Qt::Key_F9);
    Type("Two", Qt::Key_F3); // pending
    QTest::mouseClick(m_pCtrl->findChild<QPushButton *>(QStringLiteral("RestoreDefaults")), Qt::LeftButton);
    QCOMPARE(Gui().GetIndex4HotKey(Qt::Key_F1, 0), one);
    QCOMPARE(Edit("One")->keySequence(), QKeySequence(Qt::Key_F1));
    QCOMPARE(Edit("Two")->keySequence(), QKeySequence(Qt::Key_F2));
    for (char const * const name : { "One", "Two", "Three" })
        QCOMPARE(Text(name, HotkeysCtrl::eColumnNote), QString());
}

void tst_HotkeysCtrl::followsTheTable()
{
    {
        QObject receiver;
        Gui().AddHotKey(Qt::Key_F7, 0, &receiver, QStringLiteral("Passing"), QStringLiteral("Axis"), true, false);
        QTRY_COMPARE(m_pTable->rowCount(), 4);
    }
    QTRY_COMPARE(m_pTable->rowCount(), 3);
    QCOMPARE(RowOf("Passing"), -1);
}

void tst_HotkeysCtrl::followsChangesFromOutside()
{
    int const one = Gui().GetIndex4HotKey(Qt::Key_F1, 0);
    QVERIFY(Gui().ChangeHotKey(one, Combination(Qt::Key_F9)));
    QTRY_COMPARE(Edit("One")->keySequence(), QKeySequence(Qt::Key_F9));
    QCOMPARE(Text("One", HotkeysCtrl::eColumnNote), QStringLiteral("Changed"));
}

void tst_HotkeysCtrl::pendingEditSurvivesANewRow()
{
    Type("Two", Qt::Key_F1);
    Add(Qt::Key_F8, "New");
    QTRY_COMPARE(m_pTable->rowCount(), 4);
    QCOMPARE(Edit("Two")->keySequence(), QKeySequence(Qt::Key_F1));
    QCOMPARE(Text("Two", HotkeysCtrl::eColumnNote), QStringLiteral("In use for \"One\": not taken over"));
}

void tst_HotkeysCtrl::keyOfAWaitingRowIsNotGivenAway()
{
    int const two = Gui().GetIndex4HotKey(Qt::Key_F2, 0);
    int const three = Gui().GetIndex4HotKey(Qt::Key_F3, 0);
    Type("Two", Qt::Key_F1); // refused: F2 stays its key
    Type("Three", Qt::Key_F2);
    QCOMPARE(Gui().GetIndex4HotKey(Qt::Key_F2, 0), two);
    QCOMPARE(Gui().GetIndex4HotKey(Qt::Key_F3, 0), three);
    QCOMPARE(Gui().GetHotKeys().GetConflict(two), -1);
    QCOMPARE(Text("Three", HotkeysCtrl::eColumnNote), QStringLiteral("In use for \"Two\": not taken over"));
    QVERIFY(!m_pTable->item(RowOf("Three"), HotkeysCtrl::eColumnNote)->icon().isNull());
    Type("One", Qt::Key_F9); // makes way for both
    QCOMPARE(Gui().GetIndex4HotKey(Qt::Key_F1, 0), two);
    QCOMPARE(Gui().GetIndex4HotKey(Qt::Key_F2, 0), three);
    QCOMPARE(Text("Three", HotkeysCtrl::eColumnNote), QStringLiteral("Changed"));
}

void tst_HotkeysCtrl::waitingRowsMakeOthersWait()
{
    // each row wants the key of the next one in the table, and the last one cannot have what it wants
    char const * const names[] = { "R1", "R2", "R3", "R4", "R5" };
    int const first = Qt::Key_F10;
    for (int i = 0; i < 5; ++i)
        Add(first + i, names[i]);
    QTRY_COMPARE(m_pTable->rowCount(), 8);
    Type("R5", Qt::Key_F1);
    for (int i = 3; i >= 0; --i)
        Type(names[i], first + i + 1);
    for (int i = 0; i < 5; ++i) {
        QCOMPARE(Gui().GetHotKeys().FindName(QString::fromLatin1(names[i])),
                 Gui().GetIndex4HotKey(Qt::Key(first + i), 0));
        QVERIFY(Text(names[i], HotkeysCtrl::eColumnNote).contains(QStringLiteral("not taken over")));
    }
    Type("R5", Qt::Key_Backspace);
    QCOMPARE(Gui().GetIndex4HotKey(Qt::Key(first), 0), -1);
    for (int i = 0; i < 4; ++i)
        QCOMPARE(Gui().GetHotKeys().FindName(QString::fromLatin1(names[i])),
                 Gui().GetIndex4HotKey(Qt::Key(first + i + 1), 0));
}

void tst_HotkeysCtrl::pendingEditIsTakenOverWhenTheOtherGoes_data()
{
    QTest::addColumn<bool>("isRemoved");
    QTest::newRow("the other is removed") << true;
    QTest::newRow("the other is given another key from outside") << false;
}

void tst_HotkeysCtrl::pendingEditIsTakenOverWhenTheOtherGoes()
{
    QFETCH(bool, isRemoved);
    int const one = Gui().GetIndex4HotKey(Qt::Key_F1, 0);
    int const two = Gui().GetIndex4HotKey(Qt::Key_F2, 0);
    Type("Two", Qt::Key_F1);
    QCOMPARE(Gui().GetIndex4HotKey(Qt::Key_F2, 0), two);
    if (isRemoved)
        QCOMPARE(Gui().RemoveHotKey(Qt::Key_F1, 0), one);
    else
        QVERIFY(Gui().ChangeHotKey(one, Combination(Qt::Key_F9)));
    QTRY_COMPARE(Gui().GetIndex4HotKey(Qt::Key_F1, 0), two);
    QCOMPARE(Gui().GetIndex4HotKey(Qt::Key_F2, 0), -1);
    QCOMPARE(Text("Two", HotkeysCtrl::eColumnNote), QStringLiteral("Changed"));
    QCOMPARE(RowOf("One") < 0, isRemoved);
}

void tst_HotkeysCtrl::hotKeysAreSilentInTheEditor()
{
    QSignalSpy const heard(&Gui(), &GuiBase::signalHotKey);
    Type("One", Qt::Key_F3);
    QCOMPARE(heard.count(), 0);
    QCOMPARE(Edit("One")->keySequence(), QKeySequence(Qt::Key_F3));
}

void tst_HotkeysCtrl::dialog()
{
    QWidget parent;
    parent.show();
    bool isSeen = false;
    QTimer::singleShot(0, this, [&] {
        auto * const shown = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        QVERIFY(shown);
        isSeen = shown->findChild<HotkeysCtrl *>() && shown->windowTitle() == QLatin1String("Hot Keys") &&
                 shown->parentWidget() == &parent;
        QTest::mouseClick(shown->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Close), Qt::LeftButton);
    });
    Gui().ExecHotKeysDialog(&parent);
    QVERIFY(isSeen);
    QVERIFY(!QApplication::activeModalWidget());
    QVERIFY(!parent.findChild<QDialog *>()); // it does not stay behind
}

void tst_HotkeysCtrl::dialogWhoseParentDies()
{
    auto * const parent = new QWidget;
    QTimer::singleShot(0, this, [parent] { delete parent; });
    Gui().ExecHotKeysDialog(parent);
    QVERIFY(!QApplication::activeModalWidget());
}

void tst_HotkeysCtrl::dialogHoldsHotKeysBack()
{
    QSignalSpy const heard(&Gui(), &GuiBase::signalHotKey);
    QTimer::singleShot(0, this, [&] {
        QWidget * const shown = QApplication::activeModalWidget();
        QTest::keyClick(shown, Qt::Key_F1);
        QTest::keyClick(shown, Qt::Key_Escape);
    });
    Gui().ExecHotKeysDialog(nullptr);
    QCOMPARE(heard.count(), 0);
}

//! Nothing is cut at the first size of the dialog: texts fit their columns, and a long note its lines.
void tst_HotkeysCtrl::picture()
{
    Add(Qt::Key_F8, "A function with a rather long name", false);
    QTRY_COMPARE(m_pTable->rowCount(), 4);
    m_pCtrl->resize(720, 420);
    Type("Two", Qt::Key_F8);
    QCOMPARE(Text("Two", HotkeysCtrl::eColumnNote),
             QStringLiteral("In use for \"A function with a rather long name\": not taken over"));
    QCOMPARE(m_pTable->horizontalHeader()->length(), m_pTable->viewport()->width()); // the note takes what is left
    QFontMetrics const metrics(m_pTable->font());
    for (int row = 0; row < m_pTable->rowCount(); ++row) {
        for (auto const column : { HotkeysCtrl::eColumnName, HotkeysCtrl::eColumnGroup, HotkeysCtrl::eColumnDefault })
            QVERIFY(metrics.horizontalAdvance(m_pTable->item(row, column)->text()) < m_pTable->columnWidth(column));
        QRect const room(0, 0, m_pTable->columnWidth(HotkeysCtrl::eColumnNote) - m_pTable->iconSize().width(), 1000);
        QString const note = m_pTable->item(row, HotkeysCtrl::eColumnNote)->text();
        QVERIFY(metrics.boundingRect(room, Qt::TextWordWrap, note).height() <= m_pTable->rowHeight(row));
        QWidget const * const edit = m_pTable->cellWidget(row, HotkeysCtrl::eColumnKey);
        QVERIFY(m_pTable->rowHeight(row) >= edit->minimumSizeHint().height());
    }
    if (qEnvironmentVariableIsSet("ORIM_PICTURES"))
        QVERIFY(m_pCtrl->grab().save(qEnvironmentVariable("ORIM_PICTURES") + QLatin1String("/hotkeys.png")));
}

ORIM_TEST_MAIN(tst_HotkeysCtrl)
#include "tst_hotkeysctrl.moc"
