// SPDX-License-Identifier: MIT
#include "guicentral.h"

#include "guibase.h"
#include "guicentralaccess.h"
#include "ownstore.h"
#include "testmain.h"

#include <QDialog>
#include <QMenu>
#include <QMouseEvent>
#include <QTimer>
#include <QWindow>

namespace {

static_assert(std::is_same_v<decltype(&GuiCentral::BlockCloseApplication), void (GuiCentral::*)(QWidget *)>);
static_assert(QEvent::Close == 19);

//! A dialog that counts how often it is asked whether it may close.
class AskedDialog : public QDialog
{
public:
    using QDialog::QDialog;

    int m_asked = 0;

protected:
    void closeEvent(QCloseEvent * event) override
    {
        ++m_asked;
        QDialog::closeEvent(event);
    }
};

enum Answer
{
    eAccept,
    eReject,
    eEscape,
    eClose,
    eFrame
};

void Give(QDialog & dialog, Answer answer)
{
    switch (answer) {
    case eAccept:
        dialog.accept();
        break;
    case eReject:
        dialog.reject();
        break;
    case eEscape:
        QTest::keyClick(&dialog, Qt::Key_Escape);
        break;
    case eClose:
        dialog.close();
        break;
    case eFrame:
        dialog.windowHandle()->close();
        break;
    }
}

} // namespace

//! What closes while only one widget may.
class tst_GuiCentralClosing : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void init();
    void cleanup();

    void eventFilterAnswers_data();
    void eventFilterAnswers();
    void acceptedOfWhatHoldsTheScreen_data();
    void acceptedOfWhatHoldsTheScreen();
    void blockedWidgetStaysOpen();
    void storedWidgetCloses();
    void storedWidgetNeverShown();
    void childOfAWindow();
    void anotherWidgetIsStored();
    void blockedWindowHandle();
    void blockingEnds_data();
    void blockingEnds();
    void blocksOnlyItsApplication();

    void menuCloses_data();
    void menuCloses();
    void modalDialogIsAnswered_data();
    void modalDialogIsAnswered();
    void twoOpenDialogsAreAnswered();
    void childOfAModalDialogStaysOpen();
    void plainDialogStaysOpen();

private:
    OwnStore<> m_store;
};

void tst_GuiCentralClosing::init() { m_store.Begin(); }

void tst_GuiCentralClosing::cleanup()
{
    GuiBase::Instance().SetApplication(nullptr);
    m_store.End();
}

void tst_GuiCentralClosing::eventFilterAnswers_data()
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
    QTest::newRow("close of a popup's window") << "first"
                                               << "popup window" << int(QEvent::Close) << false;
    QTest::newRow("close of a modal window's window") << "first"
                                                      << "modal window" << int(QEvent::Close) << false;
}

void tst_GuiCentralClosing::eventFilterAnswers()
{
    QFETCH(QString, stored);
    QFETCH(QString, object);
    QFETCH(int, type);
    QFETCH(bool, isSwallowed);
    GuiCentralAccess central;
    QWidget first;
    QWidget second;
    QWidget popup(nullptr, Qt::Popup);
    QWidget modal;
    modal.setWindowModality(Qt::WindowModal);
    for (QWidget * const widget : { &first, &second, &popup, &modal })
        widget->winId();
    QMap<QString, QObject *> const objects{ { QStringLiteral("first"), &first },
                                            { QStringLiteral("second"), &second },
                                            { QStringLiteral("first window"), first.windowHandle() },
                                            { QStringLiteral("second window"), second.windowHandle() },
                                            { QStringLiteral("popup window"), popup.windowHandle() },
                                            { QStringLiteral("modal window"), modal.windowHandle() },
                                            { QStringLiteral("object"), this } };
    QVERIFY(!objects.values().contains(nullptr));
    central.BlockCloseApplication(stored.isEmpty() ? nullptr : &first);
    QEvent event(static_cast<QEvent::Type>(type));
    event.accept();
    QCOMPARE(central.eventFilter(objects.value(object), &event), isSwallowed);
    QCOMPARE(event.isAccepted(), !isSwallowed);
}

void tst_GuiCentralClosing::blockedWidgetStaysOpen()
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

void tst_GuiCentralClosing::storedWidgetCloses()
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

void tst_GuiCentralClosing::storedWidgetNeverShown()
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

void tst_GuiCentralClosing::childOfAWindow()
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

void tst_GuiCentralClosing::blockedWindowHandle()
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

void tst_GuiCentralClosing::blockingEnds_data()
{
    QTest::addColumn<bool>("byNull");
    QTest::newRow("null") << true;
    QTest::newRow("the widget has gone") << false;
}

void tst_GuiCentralClosing::blockingEnds()
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

void tst_GuiCentralClosing::blocksOnlyItsApplication()
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

void tst_GuiCentralClosing::acceptedOfWhatHoldsTheScreen_data()
{
    QTest::addColumn<int>("flags");
    QTest::addColumn<int>("modality");
    QTest::addColumn<bool>("isAccepted");
    QTest::newRow("popup") << int(Qt::Popup) << int(Qt::NonModal) << true;
    QTest::newRow("modal for the application") << int(Qt::Dialog) << int(Qt::ApplicationModal) << true;
    QTest::newRow("modal for a window") << int(Qt::Dialog) << int(Qt::WindowModal) << true;
    QTest::newRow("dialog") << int(Qt::Dialog) << int(Qt::NonModal) << false;
    QTest::newRow("window") << int(Qt::Window) << int(Qt::NonModal) << false;
    QTest::newRow("tool") << int(Qt::Tool) << int(Qt::NonModal) << false;
    QTest::newRow("tool tip") << int(Qt::ToolTip) << int(Qt::NonModal) << false;
}

void tst_GuiCentralClosing::acceptedOfWhatHoldsTheScreen()
{
    QFETCH(int, flags);
    QFETCH(int, modality);
    QFETCH(bool, isAccepted);
    GuiCentralAccess central;
    QWidget first;
    QWidget other(nullptr, static_cast<Qt::WindowFlags>(flags));
    other.setWindowModality(static_cast<Qt::WindowModality>(modality));
    central.BlockCloseApplication(&first);
    QCloseEvent event;
    QVERIFY(central.eventFilter(&other, &event)); // swallowed in any case
    QCOMPARE(event.isAccepted(), isAccepted);
}

void tst_GuiCentralClosing::anotherWidgetIsStored()
{
    GuiCentralAccess central;
    central.SetApplication(qApp);
    QWidget first;
    QWidget second;
    first.show();
    second.show();
    central.BlockCloseApplication(&first);
    central.BlockCloseApplication(&second);
    QVERIFY(!first.close());
    QVERIFY(second.close());
}

void tst_GuiCentralClosing::menuCloses_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("by Escape") << true;
    QTest::newRow("by a click beside it") << false;
}

void tst_GuiCentralClosing::menuCloses()
{
    QFETCH(bool, byKey);
    GuiCentralAccess central;
    central.SetApplication(qApp);
    QWidget first;
    first.show();
    QMenu menu;
    menu.addAction(QStringLiteral("item"));
    central.BlockCloseApplication(&first);
    menu.popup(QPoint(10, 10));
    QVERIFY(menu.isVisible());
    if (byKey)
        QTest::keyClick(&menu, Qt::Key_Escape);
    else
        QTest::mouseClick(&menu, Qt::LeftButton, Qt::NoModifier, QPoint(-5, -5));
    QVERIFY(!menu.isVisible());
    QVERIFY(!QApplication::activePopupWidget());
}

void tst_GuiCentralClosing::modalDialogIsAnswered_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<int>("result");
    QTest::newRow("accepted") << int(eAccept) << int(QDialog::Accepted);
    QTest::newRow("rejected") << int(eReject) << int(QDialog::Rejected);
    QTest::newRow("Escape") << int(eEscape) << int(QDialog::Rejected);
    QTest::newRow("closed") << int(eClose) << int(QDialog::Rejected);
    QTest::newRow("closed by its frame") << int(eFrame) << int(QDialog::Rejected);
}

void tst_GuiCentralClosing::modalDialogIsAnswered()
{
    QFETCH(int, answer);
    QFETCH(int, result);
    GuiCentralAccess central;
    central.SetApplication(qApp);
    QWidget first;
    first.show();
    central.BlockCloseApplication(&first);
    AskedDialog dialog;
    bool wasLocked = false;
    QTimer::singleShot(0, &dialog, [&] { Give(dialog, static_cast<Answer>(answer)); });
    QTimer::singleShot(3000, &dialog, [&] {
        wasLocked = true;
        central.BlockCloseApplication(nullptr);
        dialog.done(7);
    });
    QCOMPARE(dialog.exec(), result);
    QVERIFY(!wasLocked);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.m_asked, 0);
    QVERIFY(first.isVisible());
}

void tst_GuiCentralClosing::twoOpenDialogsAreAnswered()
{
    GuiCentralAccess central;
    central.SetApplication(qApp);
    QWidget first;
    QWidget second;
    first.show();
    second.show();
    central.BlockCloseApplication(&first);
    QDialog older(&first);
    QDialog younger(&second);
    older.open();
    younger.open(); // each is modal for its own window
    older.accept();
    QVERIFY(!older.isVisible());
    QVERIFY(younger.isVisible());
    younger.accept();
    QVERIFY(!younger.isVisible());
}

void tst_GuiCentralClosing::childOfAModalDialogStaysOpen()
{
    GuiCentralAccess central;
    central.SetApplication(qApp);
    QWidget first;
    QDialog dialog;
    auto * const child = new QWidget(&dialog);
    dialog.open();
    central.BlockCloseApplication(&first);
    QVERIFY(!child->close());
    QVERIFY(child->isVisible());
    dialog.reject();
    QVERIFY(!dialog.isVisible());
}

void tst_GuiCentralClosing::plainDialogStaysOpen()
{
    GuiCentralAccess central;
    central.SetApplication(qApp);
    QWidget first;
    AskedDialog dialog;
    dialog.show();
    central.BlockCloseApplication(&first);
    QVERIFY(!dialog.close());
    QVERIFY(dialog.isVisible());
    QCOMPARE(dialog.m_asked, 0);
}

ORIM_TEST_MAIN(tst_GuiCentralClosing)
#include "tst_guicentral_closing.moc"
