// SPDX-License-Identifier: MIT
#include "undobuttons.h"

#include "guibase.h"
#include "testmain.h"
#include "tree.h"
#include "undorecording.h"
#include "valuenumeric.h"

#include <QToolButton>
#include <QUndoStack>

class tst_UndoButtons : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void init();
    void cleanup();
    void tellWhetherThereIsAStep();
    void clicksTakeBackAndDoAgain();
    void keysDoTheSame_data();
    void keysDoTheSame();
    void heldMouseKeepsTheSteps();
    void tipsNameTheChange();
    void reachedByTheTabKey();

private:
    QToolButton * Button(char const * name) const;
    void Change(double number) const;
    double Number() const;

    std::unique_ptr<QWidget> m_window;
};

void tst_UndoButtons::init()
{
    GuiBase::Instance().UndoStack()->clear();
    Tree::Instance()->Insert(QStringLiteral("/test"), new ValueNumeric<double>(QStringLiteral("number")));
    m_window = std::make_unique<QWidget>();
    new UndoButtons(m_window.get());
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void tst_UndoButtons::cleanup()
{
    m_window.reset();
    Tree::Instance()->Remove(QStringLiteral("/test/number"));
    GuiBase::Instance().UndoStack()->clear();
}

QToolButton * tst_UndoButtons::Button(char const * name) const
{
    return m_window->findChild<QToolButton *>(QLatin1String(name));
}

void tst_UndoButtons::Change(double number) const
{
    GuiUndoRecordingHelper const step(nullptr, QStringLiteral("Turn of the knob"));
    Tree::Instance()->FindAs<ValueNumeric<double>>(QStringLiteral("/test/number"))->SetValue(number, nullptr);
}

double tst_UndoButtons::Number() const
{
    return Tree::Instance()->FindAs<ValueNumeric<double>>(QStringLiteral("/test/number"))->GetValue();
}

void tst_UndoButtons::tellWhetherThereIsAStep()
{
    QVERIFY(!Button("undo")->isEnabled());
    QVERIFY(!Button("redo")->isEnabled());
    Change(1.0);
    QVERIFY(Button("undo")->isEnabled());
    QVERIFY(!Button("redo")->isEnabled());
    GuiBase::Instance().UndoStack()->undo();
    QVERIFY(!Button("undo")->isEnabled());
    QVERIFY(Button("redo")->isEnabled());
}

void tst_UndoButtons::clicksTakeBackAndDoAgain()
{
    Change(1.0);
    Change(2.0);
    QTest::mouseClick(Button("undo"), Qt::LeftButton);
    QCOMPARE(Number(), 1.0);
    QTest::mouseClick(Button("undo"), Qt::LeftButton);
    QCOMPARE(Number(), 0.0);
    QTest::mouseClick(Button("redo"), Qt::LeftButton);
    QCOMPARE(Number(), 1.0);
}

void tst_UndoButtons::keysDoTheSame_data()
{
    QTest::addColumn<QString>("focus");
    QTest::newRow("in the window") << QString();
    QTest::newRow("on a button") << "undo";
}

void tst_UndoButtons::keysDoTheSame()
{
    QFETCH(QString, focus);
    Change(1.0);
    QWidget * const target = focus.isEmpty() ? m_window.get() : Button(focus.toLatin1().constData());
    QTest::keyClick(target, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(Number(), 0.0);
    QTest::keyClick(target, Qt::Key_Z, Qt::ControlModifier); // nothing is left
    QTest::keyClick(target, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(Number(), 1.0);
}

void tst_UndoButtons::heldMouseKeepsTheSteps()
{
    Change(1.0);
    Change(2.0);
    GuiBase::Instance().UndoStack()->undo();
    QPoint const beside(m_window->width() - 1, m_window->height() - 1);
    QTest::mousePress(m_window->windowHandle(), Qt::LeftButton, {}, beside);
    QTest::keyClick(m_window.get(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(Number(), 1.0);
    QTest::keyClick(m_window.get(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(Number(), 1.0);
    QTest::mouseRelease(m_window->windowHandle(), Qt::LeftButton, {}, beside);
    QTest::keyClick(m_window.get(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(Number(), 0.0);
}

void tst_UndoButtons::tipsNameTheChange()
{
    Change(1.0);
    QString const tip = Button("undo")->toolTip();
    QVERIFY2(tip.contains(QStringLiteral("Turn of the knob")) && tip.contains(QStringLiteral("Ctrl+Z")),
             qPrintable(tip));
    QCOMPARE(Button("undo")->text(), QStringLiteral("Undo")); // the layout rests
    GuiBase::Instance().UndoStack()->undo();
    QVERIFY(Button("redo")->toolTip().contains(QStringLiteral("Turn of the knob")));
    QVERIFY(Button("redo")->toolTip().contains(QStringLiteral("Ctrl+Shift+Z")));
    QCOMPARE(Button("redo")->text(), QStringLiteral("Redo"));
}

void tst_UndoButtons::reachedByTheTabKey()
{
    for (char const * const name : { "undo", "redo" }) {
        QVERIFY((Button(name)->focusPolicy() & Qt::TabFocus) != 0);
        QVERIFY(!Button(name)->accessibleName().isEmpty());
    }
    Change(1.0);
    Button("undo")->setFocus();
    QTest::keyClick(Button("undo"), Qt::Key_Space);
    QCOMPARE(Number(), 0.0);
}

ORIM_TEST_MAIN(tst_UndoButtons)
#include "tst_undobuttons.moc"
