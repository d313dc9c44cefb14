// SPDX-License-Identifier: MIT
#include "vclineedit.h"

#include "boundvalue.h"
#include "value.h"
#include "valuenumeric.h"

#include "testmain.h"

#include <QDialog>
#include <QSignalSpy>
#include <QUndoStack>
#include <QVBoxLayout>

#include <climits>
#include <type_traits>

namespace {

static_assert(std::is_base_of<QLineEdit, VCLineEdit>::value);
static_assert(std::is_base_of<IObserver, VCLineEdit>::value);
static_assert(std::is_base_of<UndoRecordingControlBase, VCLineEdit>::value);

QString const Folder = QStringLiteral("/edit");

template <class T>
T * Insert(char const * name)
{
    auto * const value = new T(QString::fromLatin1(name));
    return Tree::Instance()->Insert(Folder, value) ? value : nullptr;
}

//! Two edits on the screen, the first with the focus.
struct Stage
{
    Stage()
    {
        auto * const layout = new QVBoxLayout(&window);
        layout->addWidget(edit);
        layout->addWidget(other);
        window.show();
        window.activateWindow();
        active = QTest::qWaitForWindowActive(&window);
        edit->setFocus();
    }

    void Type(char const * text) const
    {
        edit->selectAll();
        QTest::keyClicks(edit, QString::fromLatin1(text));
    }

    void Enter(char const * text) const
    {
        Type(text);
        QTest::keyClick(edit, Qt::Key_Return);
    }

    QWidget window;
    VCLineEdit * edit = new VCLineEdit(&window, "edit", VCLineEdit::eLineEdit);
    QLineEdit * other = new QLineEdit(&window);
    bool active = false;
};

} // namespace

class tst_VCLineEdit : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void init() { Undo().clear(); }

    void cleanup() { Tree::Instance()->RemoveFolder(Folder); }

    void construction();
    void readOnly();
    void bindingByPath_data();
    void bindingByPath();
    void showsAndFollows();
    void typingIsWritten_data();
    void typingIsWritten();
    void longNumbersKeepEveryDigit();
    void longDecimals_data();
    void longDecimals();
    void keysAloneWriteNothing();
    void leavingTheFieldWrites();
    void writtenOnce();
    void notToldOfItsOwnWrite();
    void undoRestores();
    void refusedTextIsNoChange();
    void escapeGivesUp();
    void escapeWithoutTyping();
    void typingIsNotDisturbed();
    void returnSelectsTheText();
    void valueGoesAway();
    void valueEndsUnheard();
    void valueGoesAwayInTheWrite();
    void editDiesInTheWrite();
    void unboundTellsTheFinalText();
    void programmedTextIsNotTold();
    void boundTellsWhatTheValueBecame();
    void bindingDropsTyping();
    void strangersAreIgnored();
};

void tst_VCLineEdit::construction()
{
    QWidget parent;
    VCLineEdit const edit(&parent, "FromLineEdit", VCLineEdit::eLineEdit);
    QCOMPARE(edit.objectName(), QStringLiteral("FromLineEdit"));
    QCOMPARE(edit.parentWidget(), &parent);
    QVERIFY(!edit.isReadOnly());
    QVERIFY(!edit.GetValue());
    QCOMPARE(static_cast<int>(VCLineEdit::eLineEdit), 0);
    VCLineEdit const nameless;
    QCOMPARE(nameless.objectName(), QString());
}

void tst_VCLineEdit::readOnly()
{
    auto * const value = Insert<ValueNumeric<int>>("value");
    VCLineEdit edit(nullptr, nullptr, VCLineEdit::eLineEditReadOnly);
    edit.SetValue_ValuePath(QStringLiteral("/edit/value"));
    QTest::keyClicks(&edit, QStringLiteral("7"));
    QTest::keyClick(&edit, Qt::Key_Return);
    QCOMPARE(value->GetValue(), 0);
    QCOMPARE(edit.text(), QStringLiteral("0"));
}

void tst_VCLineEdit::bindingByPath_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("found");
    QTest::newRow("known") << QStringLiteral("/edit/value") << true;
    QTest::newRow("unknown") << QStringLiteral("/edit/other") << false;
    QTest::newRow("empty") << QString() << false;
}

void tst_VCLineEdit::bindingByPath()
{
    QFETCH(QString, path);
    QFETCH(bool, found);
    auto * const before = Insert<ValueNumeric<int>>("before");
    auto * const value = Insert<ValueNumeric<int>>("value");
    VCLineEdit edit;
    edit.SetValue_ValuePath(QStringLiteral("/edit/before"));
    QCOMPARE(edit.SetValue_ValuePath(path), found);
    QVERIFY(!before->HasObserver(&edit));
    QCOMPARE(value->HasObserver(&edit), found);
    QCOMPARE(edit.GetValue() == value, found);
    QVERIFY(edit.SetValue_ValuePath(QStringLiteral("/edit/value")));
}

void tst_VCLineEdit::showsAndFollows()
{
    auto * const value = Insert<ValueNumeric<double>>("value");
    value->SetValue(0.1, nullptr);
    VCLineEdit edit;
    edit.SetValue_ValuePath(QStringLiteral("/edit/value"));
    QCOMPARE(edit.text(), QStringLiteral("0.1"));
    value->SetValue(-2.5, nullptr);
    QCOMPARE(edit.text(), QStringLiteral("-2.5"));
}

void tst_VCLineEdit::typingIsWritten_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("typed");
    QTest::addColumn<QString>("stands");
    QTest::newRow("number") << QStringLiteral("/edit/real") << QByteArray("12.25") << QStringLiteral("12.25");
    QTest::newRow("decimal comma") << QStringLiteral("/edit/real") << QByteArray("12,25") << QStringLiteral("12.25");
    QTest::newRow("spaces around") << QStringLiteral("/edit/real") << QByteArray(" 12 ") << QStringLiteral("12");
    QTest::newRow("exponent") << QStringLiteral("/edit/real") << QByteArray("2e1") << QStringLiteral("20");
    QTest::newRow("above the limit") << QStringLiteral("/edit/real") << QByteArray("101") << QStringLiteral("100");
    QTest::newRow("below the limit") << QStringLiteral("/edit/real") << QByteArray("-1") << QStringLiteral("0");
    QTest::newRow("no number") << QStringLiteral("/edit/real") << QByteArray("abc") << QStringLiteral("5");
    QTest::newRow("empty is no number") << QStringLiteral("/edit/real") << QByteArray("") << QStringLiteral("5");
    QTest::newRow("nan is no number") << QStringLiteral("/edit/real") << QByteArray("nan") << QStringLiteral("5");
    QTest::newRow("inf is no number") << QStringLiteral("/edit/real") << QByteArray("inf") << QStringLiteral("5");
    QTest::newRow("whole number") << QStringLiteral("/edit/whole") << QByteArray("7") << QStringLiteral("7");
    QTest::newRow("a fraction takes the nearest")
        << QStringLiteral("/edit/whole") << QByteArray("7.4") << QStringLiteral("7");
    QTest::newRow("beyond int takes the limit")
        << QStringLiteral("/edit/whole") << QByteArray("1e300") << QStringLiteral("100");
    QTest::newRow("text") << QStringLiteral("/edit/text") << QByteArray("a, b") << QStringLiteral("a, b");
    QTest::newRow("empty text") << QStringLiteral("/edit/text") << QByteArray("") << QString();
    QTest::newRow("switch") << QStringLiteral("/edit/flag") << QByteArray("on") << QStringLiteral("true");
    QTest::newRow("no switch") << QStringLiteral("/edit/flag") << QByteArray("maybe") << QStringLiteral("false");
}

void tst_VCLineEdit::typingIsWritten()
{
    QFETCH(QString, path);
    QFETCH(QByteArray, typed);
    QFETCH(QString, stands);
    auto * const real = Insert<ValueNumeric<double>>("real");
    real->SetMinMax(0.0, 100.0, 0.0, nullptr);
    real->SetValue(5.0, nullptr);
    auto * const whole = Insert<ValueNumeric<int>>("whole");
    whole->SetMinMax(0, 100, 1, nullptr);
    Insert<Value<QString>>("text")->SetValue(QStringLiteral("FM"), nullptr);
    Insert<Value<bool>>("flag");
    Stage const stage;
    QVERIFY(stage.edit->SetValue_ValuePath(path));
    stage.Type(typed.isEmpty() ? "x" : typed.constData());
    if (typed.isEmpty())
        QTest::keyClick(stage.edit, Qt::Key_Backspace);
    QTest::keyClick(stage.edit, Qt::Key_Return);
    QCOMPARE(Tree::Instance()->Find(path)->GetStringValue(), stands);
    QCOMPARE(stage.edit->text(), stands);
}

void tst_VCLineEdit::longNumbersKeepEveryDigit()
{
    auto * const value = Insert<ValueNumeric<long long>>("value");
    Stage const stage;
    stage.edit->SetValue_ValuePath(QStringLiteral("/edit/value"));
    stage.Enter("9007199254740993");
    QCOMPARE(value->GetValue(), 9007199254740993LL);
    QCOMPARE(stage.edit->text(), QStringLiteral("9007199254740993"));
}

void tst_VCLineEdit::longDecimals_data()
{
    QTest::addColumn<int>("step");
    QTest::addColumn<QByteArray>("typed");
    QTest::addColumn<qlonglong>("becomes");
    qlonglong const odd = 9007199254740993LL; // 2^53 + 1 is no double
    QTest::newRow("below half") << 0 << QByteArray("9007199254740993.4") << odd;
    QTest::newRow("half is upward") << 0 << QByteArray("9007199254740993.5") << odd + 1;
    QTest::newRow("decimal comma") << 0 << QByteArray("9007199254740993,4") << odd;
    QTest::newRow("zeros") << 0 << QByteArray("9007199254740993.00") << odd;
    QTest::newRow("no digit behind the point") << 0 << QByteArray("9007199254740993.") << odd;
    QTest::newRow("negative, below half") << 0 << QByteArray("-9007199254740993.4") << -odd;
    QTest::newRow("negative, half is upward") << 0 << QByteArray("-9007199254740993.50") << -odd;
    QTest::newRow("negative, above half") << 0 << QByteArray("-9007199254740993.51") << -odd - 1;
    QTest::newRow("negative zero") << 0 << QByteArray("-0.6") << -1LL;
    QTest::newRow("no whole part") << 0 << QByteArray(".5") << 1LL;
    QTest::newRow("past the highest") << 0 << QByteArray("9223372036854775807.9") << LLONG_MAX;
    QTest::newRow("past the lowest") << 0 << QByteArray("-9223372036854775808.9") << LLONG_MIN;
    QTest::newRow("beyond the type") << 0 << QByteArray("99999999999999999999.5") << LLONG_MAX;
    QTest::newRow("an exponent") << 0 << QByteArray("2.5e1") << 25LL;
    QTest::newRow("no number") << 0 << QByteArray("2.5x") << 0LL;
    QTest::newRow("even grid, nearer to the lower") << 2 << QByteArray("9007199254740992.9") << odd - 1;
    QTest::newRow("even grid, past halfway") << 2 << QByteArray("9007199254740993.4") << odd + 1;
    QTest::newRow("odd grid, nearer to the lower") << 3 << QByteArray("9007199254740994.4") << odd;
    QTest::newRow("odd grid, halfway is upward") << 3 << QByteArray("9007199254740994.5") << odd + 3;
}

void tst_VCLineEdit::longDecimals()
{
    QFETCH(int, step);
    QFETCH(QByteArray, typed);
    QFETCH(qlonglong, becomes);
    auto * const value = Insert<ValueNumeric<long long>>("value");
    value->SetStep(step, nullptr);
    Stage const stage;
    stage.edit->SetValue_ValuePath(QStringLiteral("/edit/value"));
    stage.Enter(typed.constData());
    QCOMPARE(value->GetValue(), becomes);
    QCOMPARE(stage.edit->text(), QString::number(becomes));
}

void tst_VCLineEdit::keysAloneWriteNothing()
{
    auto * const value = Insert<ValueNumeric<int>>("value");
    Stage const stage;
    stage.edit->SetValue_ValuePath(QStringLiteral("/edit/value"));
    stage.Type("77");
    QCOMPARE(value->GetValue(), 0);
    QCOMPARE(stage.edit->text(), QStringLiteral("77"));
}

void tst_VCLineEdit::leavingTheFieldWrites()
{
    auto * const value = Insert<ValueNumeric<int>>("value");
    Stage const stage;
    stage.edit->SetValue_ValuePath(QStringLiteral("/edit/value"));
    QVERIFY(stage.active);
    stage.Type("77");
    QTest::keyClick(stage.edit, Qt::Key_Tab);
    QVERIFY(stage.other->hasFocus());
    QCOMPARE(value->GetValue(), 77);
}

void tst_VCLineEdit::writtenOnce()
{
    auto * const value = Insert<ValueNumeric<int>>("value");
    Stage const stage;
    stage.edit->SetValue_ValuePath(QStringLiteral("/edit/value"));
    Watcher watcher;
    value->AddObserver(&watcher);
    stage.Enter("3");
    value->SetValue(4, nullptr);
    QTest::keyClick(stage.edit, Qt::Key_Tab); // nothing was typed since
    QCOMPARE(value->GetValue(), 4);
    QCOMPARE(watcher.m_codes, (QVector<int>{ eValueChanged, eValueChanged }));
    QCOMPARE(Undo().count(), 1);
}

void tst_VCLineEdit::notToldOfItsOwnWrite()
{
    class Spy : public VCLineEdit
    {
    public:
        void Update(Observable * subject, TChangeCode code) override
        {
            m_codes.append(code);
            VCLineEdit::Update(subject, code);
        }

        QVector<int> m_codes;
    };

    Insert<ValueNumeric<int>>("value");
    Spy edit;
    edit.SetValue_ValuePath(QStringLiteral("/edit/value"));
    QCOMPARE(edit.m_codes, (QVector<int>{ eStateChanged, eRangeChanged, eValueChanged }));
    edit.m_codes.clear();
    edit.selectAll();
    QTest::keyClicks(&edit, QStringLiteral("8"));
    QTest::keyClick(&edit, Qt::Key_Return);
    QVERIFY(edit.m_codes.isEmpty());
}

void tst_VCLineEdit::undoRestores()
{
    auto * const value = Insert<ValueNumeric<int>>("value");
    value->SetValue(1, nullptr);
    Stage const stage;
    stage.edit->SetValue_ValuePath(QStringLiteral("/edit/value"));
    stage.Enter("2");
    stage.Enter("3");
    QCOMPARE(Undo().count(), 2);
    QCOMPARE(Undo().undoText(), QStringLiteral("Set value"));
    Undo().undo();
    QCOMPARE(value->GetValue(), 2);
    QCOMPARE(stage.edit->text(), QStringLiteral("2"));
    Undo().undo();
    QCOMPARE(stage.edit->text(), QStringLiteral("1"));
    Undo().redo();
    QCOMPARE(value->GetValue(), 2);
    QCOMPARE(stage.edit->text(), QStringLiteral("2"));
}

void tst_VCLineEdit::refusedTextIsNoChange()
{
    auto * const value = Insert<ValueNumeric<int>>("value");
    Watcher watcher;
    value->AddObserver(&watcher);
    Stage const stage;
    stage.edit->SetValue_ValuePath(QStringLiteral("/edit/value"));
    stage.Enter("abc");
    stage.Enter("0");
    QVERIFY(watcher.m_codes.isEmpty());
    QCOMPARE(Undo().count(), 0);
}

void tst_VCLineEdit::escapeGivesUp()
{
    auto * const value = Insert<ValueNumeric<int>>("value");
    value->SetValue(5, nullptr);
    QDialog dialog;
    VCLineEdit edit(&dialog);
    edit.SetValue_ValuePath(QStringLiteral("/edit/value"));
    dialog.show();
    edit.setFocus();
    edit.selectAll();
    QTest::keyClicks(&edit, QStringLiteral("9"));
    QKeyEvent override(QEvent::ShortcutOverride, Qt::Key_Escape, Qt::NoModifier);
    override.ignore();
    QCoreApplication::sendEvent(&edit, &override);
    QVERIFY(override.isAccepted());
    QTest::keyClick(&edit, Qt::Key_Escape);
    QVERIFY(dialog.isVisible()); // the first Escape is for the text
    QCOMPARE(edit.text(), QStringLiteral("5"));
    QCOMPARE(value->GetValue(), 5);
    QTest::keyClick(&edit, Qt::Key_Escape);
    QVERIFY(!dialog.isVisible());
}

void tst_VCLineEdit::escapeWithoutTyping()
{
    VCLineEdit unbound;
    unbound.show();
    QTest::keyClicks(&unbound, QStringLiteral("9"));
    QTest::keyClick(&unbound, Qt::Key_Escape);
    QCOMPARE(unbound.text(), QStringLiteral("9"));
}

void tst_VCLineEdit::typingIsNotDisturbed()
{
    auto * const value = Insert<ValueNumeric<int>>("value");
    Stage const stage;
    stage.edit->SetValue_ValuePath(QStringLiteral("/edit/value"));
    stage.Type("12");
    value->SetValue(50, nullptr);
    QCOMPARE(stage.edit->text(), QStringLiteral("12"));
    QTest::keyClick(stage.edit, Qt::Key_Escape);
    QCOMPARE(stage.edit->text(), QStringLiteral("50"));
    stage.Type("13");
    value->SetValue(60, nullptr);
    QTest::keyClick(stage.edit, Qt::Key_Return);
    QCOMPARE(value->GetValue(), 13);
}

void tst_VCLineEdit::returnSelectsTheText()
{
    Insert<ValueNumeric<int>>("value");
    Stage const stage;
    stage.edit->SetValue_ValuePath(QStringLiteral("/edit/value"));
    stage.Enter("12");
    QCOMPARE(stage.edit->selectedText(), QStringLiteral("12"));
    QTest::keyClick(stage.edit, Qt::Key_End);
    QTest::keyClick(stage.edit, Qt::Key_Enter);
    QCOMPARE(stage.edit->selectedText(), QStringLiteral("12"));
    QTest::keyClick(stage.edit, Qt::Key_End);
    QCOMPARE(stage.edit->selectedText(), QString());
}

void tst_VCLineEdit::valueGoesAway()
{
    Insert<ValueNumeric<int>>("value")->SetValue(4, nullptr);
    Stage const stage;
    stage.edit->SetValue_ValuePath(QStringLiteral("/edit/value"));
    Tree::Instance()->Remove(QStringLiteral("/edit/value"));
    QVERIFY(!stage.edit->GetValue());
    QCOMPARE(stage.edit->text(), QStringLiteral("4"));
    stage.Enter("5"); // goes nowhere
    QCOMPARE(stage.edit->text(), QStringLiteral("5"));
}

void tst_VCLineEdit::valueEndsUnheard()
{
    auto * const value = Insert<ValueNumeric<int>>("value");
    Stage const stage;
    stage.edit->SetValue_ValuePath(QStringLiteral("/edit/value"));
    value->DeleteObservers();
    QCOMPARE(stage.edit->GetValue(), value);
    Tree::Instance()->Remove(QStringLiteral("/edit/value"));
    QVERIFY(!stage.edit->GetValue());
    stage.Enter("5"); // goes nowhere
    QVERIFY(!stage.edit->SetValue_ValuePath(QStringLiteral("/edit/value")));
}

void tst_VCLineEdit::valueGoesAwayInTheWrite()
{
    auto * const value = Insert<ValueNumeric<int>>("value");
    Watcher watcher;
    watcher.m_then = [] { Tree::Instance()->Remove(QStringLiteral("/edit/value")); };
    Stage const stage;
    stage.edit->SetValue_ValuePath(QStringLiteral("/edit/value"));
    value->AddObserver(&watcher);
    stage.Enter("5");
    QVERIFY(!stage.edit->GetValue());
    QCOMPARE(stage.edit->text(), QStringLiteral("5"));
}

void tst_VCLineEdit::editDiesInTheWrite()
{
    auto * const value = Insert<ValueNumeric<int>>("value");
    auto * const edit = new VCLineEdit;
    edit->SetValue_ValuePath(QStringLiteral("/edit/value"));
    QPointer<VCLineEdit> const alive(edit);
    Watcher watcher;
    watcher.m_then = [edit] { delete edit; };
    value->AddObserver(&watcher);
    edit->selectAll();
    QTest::keyClicks(edit, QStringLiteral("6"));
    QMetaObject::invokeMethod(edit, "editingFinished");
    QVERIFY(!alive);
    QCOMPARE(value->GetValue(), 6);
}

void tst_VCLineEdit::unboundTellsTheFinalText()
{
    Stage const stage;
    QSignalSpy const told(stage.edit, &VCLineEdit::signalTextFinal);
    stage.Type("-30");
    QCOMPARE(told.count(), 0);
    QTest::keyClick(stage.edit, Qt::Key_Return);
    QCOMPARE(told.count(), 1);
    QCOMPARE(told.at(0).at(0).toString(), QStringLiteral("-30"));
    QTest::keyClick(stage.edit, Qt::Key_Tab);
    QCOMPARE(told.count(), 1);
}

void tst_VCLineEdit::programmedTextIsNotTold()
{
    Stage const stage;
    QSignalSpy const told(stage.edit, &VCLineEdit::signalTextFinal);
    stage.edit->setText(QStringLiteral("30"));
    QTest::keyClick(stage.edit, Qt::Key_Return);
    QTest::keyClick(stage.edit, Qt::Key_Tab);
    QCOMPARE(told.count(), 0);
}

void tst_VCLineEdit::boundTellsWhatTheValueBecame()
{
    Insert<ValueNumeric<int>>("value")->SetMinMax(0, 10, 1, nullptr);
    Stage const stage;
    stage.edit->SetValue_ValuePath(QStringLiteral("/edit/value"));
    QSignalSpy const told(stage.edit, &VCLineEdit::signalTextFinal);
    stage.Enter("11");
    QCOMPARE(told.count(), 1);
    QCOMPARE(told.at(0).at(0).toString(), QStringLiteral("10"));
}

void tst_VCLineEdit::bindingDropsTyping()
{
    Insert<ValueNumeric<int>>("value")->SetValue(3, nullptr);
    Stage const stage;
    stage.Type("99");
    stage.edit->SetValue_ValuePath(QStringLiteral("/edit/value"));
    QCOMPARE(stage.edit->text(), QStringLiteral("3"));
}

void tst_VCLineEdit::strangersAreIgnored()
{
    ValueNumeric<int> stranger;
    VCLineEdit edit;
    edit.setText(QStringLiteral("7"));
    edit.Update(&stranger, eValueChanged);
    edit.Update(&stranger, eStateChanged);
    QCOMPARE(edit.text(), QStringLiteral("7"));
}

ORIM_TEST_MAIN(tst_VCLineEdit)
#include "tst_vclineedit.moc"
