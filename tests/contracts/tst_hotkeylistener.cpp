// SPDX-License-Identifier: MIT
#include "hotkeylistener.h"

#include "hotkeytable.h"
#include "testmain.h"

#include <QAction>
#include <QDialog>
#include <QKeySequenceEdit>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QShortcut>
#include <QSignalSpy>
#include <QVBoxLayout>

#include <memory>

class tst_HotKeyListener : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void init();
    void cleanup();
    void oncePerPress_data();
    void oncePerPress();
    void modifiersMustFit();
    void swallowedPressReachesNobody();
    void otherKeysReachTheWidget();
    void switchedOffKeyReachesTheWidget();
    void heldKeyFiresOnce();
    void pressesOneAfterAnother();
    void pressesWithoutRelease();
    void escape_data();
    void escape();
    void escapeAsHotKeyToo();
    void escapeOfAnEditor();
    void inputOfTheFocus_data();
    void inputOfTheFocus();
    void comesBeforeShortcuts();
    void shortcutWithoutHotKeyStillWorks();
    void modalHoldsBack_data();
    void modalHoldsBack();
    void menuHoldsBack();
    void receiverInsideTheDialog();
    void receiverIsTold();
    void receiverWithoutSlot();
    void receiverThatDiesInItsSlot();
    void receiverThatDiedIsNotTouched();
    void widgetThatDiesOfItsHotKey();
    void hotKeyRemovedByEscape();
    void escapeWithKeysInsideFiresOnce();
    void widgetThatDiesOfEscape_data();
    void widgetThatDiesOfEscape();
    void plainObjectsAreNotHeard();
    void tenThousandRepetitions();

private:
    int Add(int key, int modifiers = 0, QObject * receiver = nullptr, bool throughModal = false);

    std::unique_ptr<HotKeyTable> m_pTable;
    std::unique_ptr<HotKeyListener> m_pListener;
    std::unique_ptr<QSignalSpy> m_pHeard;
    std::unique_ptr<QSignalSpy> m_pEscape;
    std::unique_ptr<QWidget> m_pWindow;
    QWidget * m_pChild = nullptr;
};

namespace {

//! Counts the presses that reach it.
class Pane : public QWidget
{
public:
    using QWidget::QWidget;
    int m_presses = 0;

protected:
    void keyPressEvent(QKeyEvent * event) override
    {
        ++m_presses;
        event->ignore();
    }
};

//! Has the slot that a hot key tells.
class Receiver : public QObject
{
    Q_OBJECT
public:
    std::vector<int> m_told;
    std::function<void()> m_then;
public Q_SLOTS:

    void slotHotKey(int index)
    {
        m_told.push_back(index);
        if (m_then)
            m_then();
    }
};

void Press(QWidget * widget, int key, bool isRepetition = false)
{
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString(), isRepetition);
    QApplication::sendEvent(widget, &press);
}

} // namespace

int tst_HotKeyListener::Add(int key, int modifiers, QObject * receiver, bool throughModal)
{
    HotKey hotKey;
    hotKey.defaultCombination = HotKeyCombination::From(key, modifiers);
    hotKey.receiver = receiver;
    hotKey.throughModal = throughModal;
    return m_pTable->Add(hotKey);
}

void tst_HotKeyListener::init()
{
    m_pTable = std::make_unique<HotKeyTable>();
    m_pListener = std::make_unique<HotKeyListener>(*m_pTable);
    m_pHeard = std::make_unique<QSignalSpy>(m_pListener.get(), &HotKeyListener::signalHotKey);
    m_pEscape = std::make_unique<QSignalSpy>(m_pListener.get(), &HotKeyListener::signalEscape);
    m_pWindow = std::make_unique<Pane>();
    auto * const layout = new QVBoxLayout(m_pWindow.get());
    m_pChild = new Pane;
    m_pChild->setFocusPolicy(Qt::StrongFocus);
    layout->addWidget(m_pChild);
    qApp->installEventFilter(m_pListener.get());
    m_pWindow->show();
    m_pWindow->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_pWindow.get()));
    m_pChild->setFocus();
    QCOMPARE(QApplication::focusWidget(), m_pChild);
}

void tst_HotKeyListener::cleanup()
{
    m_pWindow.reset();
    m_pHeard.reset();
    m_pEscape.reset();
    m_pListener.reset();
    m_pTable.reset();
}

void tst_HotKeyListener::oncePerPress_data()
{
    QTest::addColumn<bool>("throughWindow");
    QTest::newRow("sent to a widget inside others") << false;
    QTest::newRow("sent to the window, as the system does") << true;
}

void tst_HotKeyListener::oncePerPress()
{
    QFETCH(bool, throughWindow);
    Add(Qt::Key_F4);
    int const index = Add(Qt::Key_F5);
    if (throughWindow)
        QTest::keyClick(m_pWindow->windowHandle(), Qt::Key_F5);
    else
        QTest::keyClick(m_pChild, Qt::Key_F5);
    QCOMPARE(m_pHeard->count(), 1);
    QCOMPARE(m_pHeard->at(0).at(0).toInt(), index);
}

void tst_HotKeyListener::modifiersMustFit()
{
    Add(Qt::Key_F5, Qt::ControlModifier);
    QTest::keyClick(m_pChild, Qt::Key_F5);
    QTest::keyClick(m_pChild, Qt::Key_F5, Qt::ShiftModifier);
    QCOMPARE(m_pHeard->count(), 0);
    QTest::keyClick(m_pChild, Qt::Key_F5, Qt::ControlModifier);
    QTest::keyClick(m_pChild, Qt::Key_F5, Qt::ControlModifier | Qt::KeypadModifier);
    QCOMPARE(m_pHeard->count(), 2);
}

void tst_HotKeyListener::swallowedPressReachesNobody()
{
    Add(Qt::Key_F5);
    QTest::keyClick(m_pWindow->windowHandle(), Qt::Key_F5);
    QTest::keyClick(m_pChild, Qt::Key_F5);
    QCOMPARE(static_cast<Pane *>(m_pChild)->m_presses, 0);
    QCOMPARE(static_cast<Pane *>(m_pWindow.get())->m_presses, 0);
}

void tst_HotKeyListener::otherKeysReachTheWidget()
{
    Add(Qt::Key_F5);
    QTest::keyClick(m_pWindow->windowHandle(), Qt::Key_F6);
    QCOMPARE(static_cast<Pane *>(m_pChild)->m_presses, 1);
    QCOMPARE(static_cast<Pane *>(m_pWindow.get())->m_presses, 1);
    QCOMPARE(m_pHeard->count(), 0);
}

void tst_HotKeyListener::switchedOffKeyReachesTheWidget()
{
    int const index = Add(Qt::Key_F5);
    m_pTable->Enable(index, false);
    QTest::keyClick(m_pChild, Qt::Key_F5);
    QCOMPARE(m_pHeard->count(), 0);
    QCOMPARE(static_cast<Pane *>(m_pChild)->m_presses, 1);
    m_pTable->Remove(index);
    QTest::keyClick(m_pChild, Qt::Key_F5);
    QCOMPARE(m_pHeard->count(), 0);
}

void tst_HotKeyListener::heldKeyFiresOnce()
{
    Add(Qt::Key_F5);
    Press(m_pChild, Qt::Key_F5);
    for (int i = 0; i < 5; ++i)
        Press(m_pChild, Qt::Key_F5, true);
    QCOMPARE(m_pHeard->count(), 1);
    QCOMPARE(static_cast<Pane *>(m_pChild)->m_presses, 0); // the repetitions are swallowed
}

void tst_HotKeyListener::pressesOneAfterAnother()
{
    Add(Qt::Key_F5);
    for (int i = 0; i < 10; ++i)
        QTest::keyClick(m_pChild, Qt::Key_F5);
    QCOMPARE(m_pHeard->count(), 10);
}

void tst_HotKeyListener::pressesWithoutRelease()
{
    Add(Qt::Key_F5);
    for (int i = 0; i < 3; ++i)
        Press(m_pChild, Qt::Key_F5);
    QCOMPARE(m_pHeard->count(), 3);
}

void tst_HotKeyListener::escape_data() { oncePerPress_data(); }

void tst_HotKeyListener::escape()
{
    QFETCH(bool, throughWindow);
    for (int i = 1; i <= 3; ++i) {
        if (throughWindow)
            QTest::keyClick(m_pWindow->windowHandle(), Qt::Key_Escape);
        else
            QTest::keyClick(m_pChild, Qt::Key_Escape);
        QCOMPARE(m_pEscape->count(), i);
        QCOMPARE(static_cast<Pane *>(m_pChild)->m_presses, i); // it is not held back
        QCOMPARE(static_cast<Pane *>(m_pWindow.get())->m_presses, i);
    }
    QCOMPARE(m_pHeard->count(), 0);
    QTest::keyClick(m_pChild, Qt::Key_Escape, Qt::ShiftModifier);
    QCOMPARE(m_pEscape->count(), 3);
    Press(m_pChild, Qt::Key_Escape, true);
    QCOMPARE(m_pEscape->count(), 3);
}

void tst_HotKeyListener::escapeAsHotKeyToo()
{
    int const index = Add(Qt::Key_Escape);
    QTest::keyClick(m_pChild, Qt::Key_Escape);
    QCOMPARE(m_pEscape->count(), 1);
    QCOMPARE(m_pHeard->count(), 1);
    QCOMPARE(m_pHeard->at(0).at(0).toInt(), index);
    QCOMPARE(static_cast<Pane *>(m_pChild)->m_presses, 0);
}

void tst_HotKeyListener::escapeOfAnEditor()
{
    QKeySequenceEdit editor;
    editor.show();
    QTest::keyClick(&editor, Qt::Key_Escape);
    QCOMPARE(m_pEscape->count(), 0);
}

void tst_HotKeyListener::inputOfTheFocus_data()
{
    QTest::addColumn<QString>("editor");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<bool>("isHeard");
    int const control = static_cast<int>(Qt::ControlModifier);
    int const shift = static_cast<int>(Qt::ShiftModifier);
    QTest::newRow("a letter is typed") << "line" << int(Qt::Key_M) << 0 << false;
    QTest::newRow("a capital is typed") << "line" << int(Qt::Key_M) << shift << false;
    QTest::newRow("a digit is typed") << "line" << int(Qt::Key_5) << 0 << false;
    QTest::newRow("Backspace deletes") << "line" << int(Qt::Key_Backspace) << 0 << false;
    QTest::newRow("Ctrl+C copies") << "line" << int(Qt::Key_C) << control << false;
    QTest::newRow("a function key is heard") << "line" << int(Qt::Key_F5) << 0 << true;
    QTest::newRow("Ctrl and another letter is heard") << "line" << int(Qt::Key_M) << control << true;
    QTest::newRow("a letter in a text is typed") << "text" << int(Qt::Key_M) << 0 << false;
    QTest::newRow("a function key in a text is heard") << "text" << int(Qt::Key_F5) << 0 << true;
    QTest::newRow("an editor of keys takes every key") << "keys" << int(Qt::Key_F5) << control << false;
    QTest::newRow("a letter in a pane is heard") << "pane" << int(Qt::Key_M) << 0 << true;
}

void tst_HotKeyListener::inputOfTheFocus()
{
    QFETCH(QString, editor);
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(bool, isHeard);
    QWidget * widget = m_pChild;
    if (editor == "line")
        widget = new QLineEdit;
    else if (editor == "text")
        widget = new QPlainTextEdit;
    else if (editor == "keys")
        widget = new QKeySequenceEdit;
    if (widget != m_pChild)
        m_pWindow->layout()->addWidget(widget);
    widget->show();
    widget->setFocus();
    QCOMPARE(QApplication::focusWidget(), widget);
    Add(key, modifiers);
    auto const flags = static_cast<Qt::KeyboardModifiers>(modifiers);
    QTest::keyClick(widget, static_cast<Qt::Key>(key), flags);
    QCOMPARE(m_pHeard->count(), isHeard ? 1 : 0);
    QTest::keyClick(m_pWindow->windowHandle(), static_cast<Qt::Key>(key), flags);
    QCOMPARE(m_pHeard->count(), isHeard ? 2 : 0);
    if (auto const * const line = qobject_cast<QLineEdit *>(widget))
        QCOMPARE(line->text().isEmpty(), isHeard || modifiers == int(Qt::ControlModifier) || key == Qt::Key_Backspace);
}

void tst_HotKeyListener::comesBeforeShortcuts()
{
    Add(Qt::Key_F5);
    QShortcut shortcut(QKeySequence(Qt::Key_F5), m_pWindow.get());
    QSignalSpy const activated(&shortcut, &QShortcut::activated);
    QTest::keyClick(m_pWindow->windowHandle(), Qt::Key_F5);
    QTest::keyClick(m_pChild, Qt::Key_F5);
    QCOMPARE(m_pHeard->count(), 2);
    QCOMPARE(activated.count(), 0);
}

void tst_HotKeyListener::shortcutWithoutHotKeyStillWorks()
{
    int const index = Add(Qt::Key_F5);
    m_pTable->Enable(index, false);
    QShortcut shortcut(QKeySequence(Qt::Key_F5), m_pWindow.get());
    QSignalSpy const activated(&shortcut, &QShortcut::activated);
    QTest::keyClick(m_pWindow->windowHandle(), Qt::Key_F5);
    QCOMPARE(activated.count(), 1);
    QCOMPARE(m_pHeard->count(), 0);
}

void tst_HotKeyListener::modalHoldsBack_data()
{
    QTest::addColumn<bool>("throughModal");
    QTest::addColumn<bool>("isModal");
    QTest::addColumn<bool>("isHeard");
    QTest::newRow("a modal dialog holds it back") << false << true << false;
    QTest::newRow("unless it is registered to pass") << true << true << true;
    QTest::newRow("another dialog does not") << false << false << true;
}

void tst_HotKeyListener::modalHoldsBack()
{
    QFETCH(bool, throughModal);
    QFETCH(bool, isModal);
    QFETCH(bool, isHeard);
    Add(Qt::Key_F5, 0, nullptr, throughModal);
    QDialog dialog(m_pWindow.get());
    dialog.setModal(isModal);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QTest::keyClick(&dialog, Qt::Key_F5);
    QTest::keyClick(m_pChild, Qt::Key_F5); // nor through the window behind
    QCOMPARE(m_pHeard->count(), isHeard ? 2 : 0);
    QTest::keyClick(m_pChild, Qt::Key_Escape);
    QCOMPARE(m_pEscape->count(), isModal ? 0 : 1);
    dialog.close();
    QTest::keyClick(m_pChild, Qt::Key_F5);
    QCOMPARE(m_pHeard->count(), isHeard ? 3 : 1);
}

void tst_HotKeyListener::menuHoldsBack()
{
    Add(Qt::Key_F5);
    Add(Qt::Key_F6, 0, nullptr, true);
    QMenu menu(m_pWindow.get());
    menu.addAction(QStringLiteral("Item"));
    menu.popup(m_pWindow->mapToGlobal(QPoint(1, 1)));
    QTRY_COMPARE(QApplication::activePopupWidget(), &menu);
    QTest::keyClick(&menu, Qt::Key_F5);
    QCOMPARE(m_pHeard->count(), 0);
    QTest::keyClick(&menu, Qt::Key_F6);
    QCOMPARE(m_pHeard->count(), 1);
    QVERIFY(menu.isVisible());
    QTest::keyClick(&menu, Qt::Key_Escape); // closes the menu only
    QVERIFY(!menu.isVisible());
    QCOMPARE(m_pEscape->count(), 0);
    QTest::keyClick(m_pChild, Qt::Key_F5);
    QCOMPARE(m_pHeard->count(), 2);
}

void tst_HotKeyListener::receiverInsideTheDialog()
{
    QDialog dialog(m_pWindow.get());
    dialog.setModal(true);
    auto * const inside = new QObject(&dialog);
    int const ofDialog = Add(Qt::Key_F5, 0, &dialog);
    int const ofChild = Add(Qt::Key_F6, 0, inside);
    Add(Qt::Key_F7, 0, m_pWindow.get());
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QTest::keyClick(&dialog, Qt::Key_F5);
    QTest::keyClick(&dialog, Qt::Key_F6);
    QTest::keyClick(&dialog, Qt::Key_F7); // the dialog's parent lies behind it
    QCOMPARE(m_pHeard->count(), 2);
    QCOMPARE(m_pHeard->at(0).at(0).toInt(), ofDialog);
    QCOMPARE(m_pHeard->at(1).at(0).toInt(), ofChild);
}

void tst_HotKeyListener::receiverIsTold()
{
    Receiver receiver;
    Receiver other;
    int const index = Add(Qt::Key_F5, 0, &receiver);
    Add(Qt::Key_F6, 0, &other);
    bool isAheadOfSignal = false;
    receiver.m_then = [&] { isAheadOfSignal = m_pHeard->isEmpty(); };
    QTest::keyClick(m_pChild, Qt::Key_F5);
    QVERIFY(receiver.m_told == std::vector<int>{ index });
    QVERIFY(other.m_told.empty());
    QVERIFY(isAheadOfSignal);
    QCOMPARE(m_pHeard->count(), 1);
}

void tst_HotKeyListener::receiverWithoutSlot()
{
    QObject receiver;
    Add(Qt::Key_F5, 0, &receiver);
    QTest::keyClick(m_pChild, Qt::Key_F5);
    QCOMPARE(m_pHeard->count(), 1);
}

void tst_HotKeyListener::receiverThatDiesInItsSlot()
{
    auto * const receiver = new Receiver;
    Add(Qt::Key_F5, 0, receiver);
    receiver->m_then = [receiver] { delete receiver; };
    QTest::keyClick(m_pChild, Qt::Key_F5);
    QCOMPARE(m_pHeard->count(), 1); // that press was heard
    QTest::keyClick(m_pChild, Qt::Key_F5);
    QCOMPARE(m_pHeard->count(), 1);
    QCOMPARE(static_cast<Pane *>(m_pChild)->m_presses, 1);
}

void tst_HotKeyListener::receiverThatDiedIsNotTouched()
{
    auto receiver = std::make_unique<Receiver>();
    Add(Qt::Key_F5, 0, receiver.get());
    int const other = Add(Qt::Key_F5);
    receiver.reset();
    QTest::keyClick(m_pChild, Qt::Key_F5);
    QCOMPARE(m_pHeard->count(), 1);
    QCOMPARE(m_pHeard->at(0).at(0).toInt(), other);
}

void tst_HotKeyListener::widgetThatDiesOfItsHotKey()
{
    Receiver receiver;
    Add(Qt::Key_F5, 0, &receiver);
    receiver.m_then = [this] {
        delete m_pChild;
        m_pChild = nullptr;
    };
    QTest::keyPress(m_pWindow->windowHandle(), Qt::Key_F5);
    QVERIFY(!m_pChild);
    QCOMPARE(m_pHeard->count(), 1);
}

void tst_HotKeyListener::hotKeyRemovedByEscape()
{
    int const index = Add(Qt::Key_Escape);
    connect(m_pListener.get(), &HotKeyListener::signalEscape, this, [this, index] { m_pTable->Remove(index); });
    QTest::keyClick(m_pChild, Qt::Key_Escape);
    QCOMPARE(m_pEscape->count(), 1);
    QCOMPARE(m_pHeard->count(), 0);
}

void tst_HotKeyListener::escapeWithKeysInsideFiresOnce()
{
    int const index = Add(Qt::Key_F9);
    QWidget other;
    connect(m_pListener.get(), &HotKeyListener::signalEscape, this, [&other] { QTest::keyClick(&other, Qt::Key_F9); });
    QTest::keyClick(m_pChild, Qt::Key_Escape);
    QCOMPARE(m_pEscape->count(), 1);
    QCOMPARE(m_pHeard->count(), 1);
    QCOMPARE(m_pHeard->at(0).at(0).toInt(), index);
    QCOMPARE(static_cast<Pane *>(m_pChild)->m_presses, 1);
    QCOMPARE(static_cast<Pane *>(m_pWindow.get())->m_presses, 1); // its way went on
}

void tst_HotKeyListener::widgetThatDiesOfEscape_data() { oncePerPress_data(); }

void tst_HotKeyListener::widgetThatDiesOfEscape()
{
    QFETCH(bool, throughWindow);
    connect(m_pListener.get(), &HotKeyListener::signalEscape, this, [this] {
        delete m_pChild;
        m_pChild = nullptr;
    });
    if (throughWindow)
        QTest::keyPress(m_pWindow->windowHandle(), Qt::Key_Escape);
    else
        Press(m_pChild, Qt::Key_Escape);
    QVERIFY(!m_pChild);
    QCOMPARE(m_pEscape->count(), 1);
    // the window looks for a widget afterwards; one that was on its way to the dead one has ended with it
    QCOMPARE(static_cast<Pane *>(m_pWindow.get())->m_presses, throughWindow ? 1 : 0);
    QTest::keyClick(m_pWindow.get(), Qt::Key_Escape);
    QCOMPARE(m_pEscape->count(), 2);
}

void tst_HotKeyListener::plainObjectsAreNotHeard()
{
    Add(Qt::Key_F5);
    QObject object;
    QKeyEvent press(QEvent::KeyPress, Qt::Key_F5, Qt::NoModifier);
    QApplication::sendEvent(&object, &press);
    QCOMPARE(m_pHeard->count(), 0);
    QEvent const other(QEvent::User);
    QCOMPARE(m_pListener->eventFilter(m_pChild, const_cast<QEvent *>(&other)), false);
}

void tst_HotKeyListener::tenThousandRepetitions()
{
    Add(Qt::Key_F5);
    Press(m_pChild, Qt::Key_F5);
    for (int i = 0; i < 10000; ++i)
        Press(m_pChild, Qt::Key_F5, true);
    QCOMPARE(m_pHeard->count(), 1);
}

ORIM_TEST_MAIN(tst_HotKeyListener)
#include "tst_hotkeylistener.moc"
