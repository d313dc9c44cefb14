// SPDX-License-Identifier: MIT
#include "tabdialog.h"

#include "testmain.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>

#include <functional>

namespace {

QPushButton * Button(TabDialog const & dialog, QDialogButtonBox::StandardButton which)
{
    return dialog.findChild<QDialogButtonBox *>()->button(which);
}

class Receiver : public QObject
{
    Q_OBJECT
public:
    int m_calls = 0;
    std::function<void()> m_then;
public Q_SLOTS:

    void slotAcceptPropertyChanges()
    {
        ++m_calls;
        if (m_then)
            m_then();
    }
};

//! A dialog that may refuse to close.
class Vetoing : public TabDialog
{
public:
    using TabDialog::TabDialog;
    bool m_canClose = false;

protected:
    void done(int result) override
    {
        if (m_canClose || result == 0)
            TabDialog::done(result);
    }
};

} // namespace

class tst_TabDialog : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void construction_data();
    void construction();
    void flags_data();
    void flags();
    void tabs();
    void noTabs();
    void applyButtonIsOnRequest();
    void applyTellsAndStays();
    void okTellsThenAccepts();
    void okWithoutApplyButton();
    void cancelTellsNothing_data();
    void cancelTellsNothing();
    void connectsByName();
    void okMayBeVetoed();
    void listenerDeletesTheDialog();
    void enterPressesOk();
    void dialogOwnsItsPages();
};

void tst_TabDialog::construction_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("modal");
    QTest::newRow("modal, named") << QByteArray("AxisProperties") << true;
    QTest::newRow("not modal, nameless") << QByteArray() << false;
}

void tst_TabDialog::construction()
{
    QFETCH(QByteArray, name);
    QFETCH(bool, modal);
    QWidget parent;
    TabDialog const dialog(&parent, name.isNull() ? nullptr : name.constData(), modal, Qt::WindowFlags(0x3000));
    QCOMPARE(dialog.objectName(), QString::fromLatin1(name));
    QCOMPARE(dialog.isModal(), modal);
    QCOMPARE(dialog.parentWidget(), &parent);
}

void tst_TabDialog::flags_data()
{
    QTest::addColumn<int>("given");
    QTest::addColumn<bool>("closeButton");
    QTest::newRow("title and system menu") << 0x3000 << false;
    QTest::newRow("with a close button") << (0x3000 | static_cast<int>(Qt::WindowCloseButtonHint)) << true;
}

void tst_TabDialog::flags()
{
    QFETCH(int, given);
    QFETCH(bool, closeButton);
    TabDialog const dialog(nullptr, nullptr, false, Qt::WindowFlags(given));
    QVERIFY(dialog.isWindow());
    QCOMPARE(dialog.windowFlags() & Qt::WindowType_Mask, Qt::WindowFlags(Qt::Dialog));
    QVERIFY(dialog.windowFlags().testFlag(Qt::WindowTitleHint));
    QVERIFY(dialog.windowFlags().testFlag(Qt::WindowSystemMenuHint));
    QCOMPARE(dialog.windowFlags().testFlag(Qt::WindowCloseButtonHint), closeButton);
}

void tst_TabDialog::tabs()
{
    TabDialog dialog;
    auto * const first = new QLabel(QStringLiteral("first"));
    dialog.addTab(first, QStringLiteral("&Axis Range"));
    dialog.addTab(new QLabel(QStringLiteral("second")), QStringLiteral("Time"));
    auto * const tabs = dialog.findChild<QTabWidget *>();
    QCOMPARE(tabs->count(), 2);
    QCOMPARE(tabs->tabText(0), QStringLiteral("&Axis Range"));
    QCOMPARE(tabs->tabText(1), QStringLiteral("Time"));
    QCOMPARE(tabs->currentWidget(), first);
    dialog.show();
    QVERIFY(first->isVisible());
}

void tst_TabDialog::noTabs()
{
    TabDialog dialog;
    dialog.addTab(nullptr, QStringLiteral("&Axis Range"));
    dialog.show();
    QCOMPARE(dialog.findChild<QTabWidget *>()->count(), 0);
}

void tst_TabDialog::applyButtonIsOnRequest()
{
    TabDialog dialog;
    QVERIFY(Button(dialog, QDialogButtonBox::Ok));
    QVERIFY(Button(dialog, QDialogButtonBox::Cancel));
    QVERIFY(!Button(dialog, QDialogButtonBox::Apply));
    dialog.setApplyButton();
    dialog.setApplyButton();
    QCOMPARE(dialog.findChild<QDialogButtonBox *>()->buttons().size(), 3);
}

void tst_TabDialog::applyTellsAndStays()
{
    TabDialog dialog;
    dialog.setApplyButton();
    dialog.show();
    QSignalSpy const applied(&dialog, &TabDialog::applyButtonPressed);
    QSignalSpy const finished(&dialog, &QDialog::finished);
    QTest::mouseClick(Button(dialog, QDialogButtonBox::Apply), Qt::LeftButton);
    QTest::mouseClick(Button(dialog, QDialogButtonBox::Apply), Qt::LeftButton);
    QCOMPARE(applied.count(), 2);
    QCOMPARE(finished.count(), 0);
    QVERIFY(dialog.isVisible());
}

void tst_TabDialog::okTellsThenAccepts()
{
    TabDialog dialog;
    dialog.setApplyButton();
    dialog.show();
    QStringList order;
    connect(&dialog, &TabDialog::applyButtonPressed, this, [&order] { order.append(QStringLiteral("applied")); });
    connect(&dialog, &QDialog::accepted, this, [&order] { order.append(QStringLiteral("accepted")); });
    QTest::mouseClick(Button(dialog, QDialogButtonBox::Ok), Qt::LeftButton);
    QCOMPARE(order, (QStringList{ "applied", "accepted" }));
    QCOMPARE(dialog.result(), static_cast<int>(QDialog::Accepted));
    QVERIFY(!dialog.isVisible());
}

void tst_TabDialog::okWithoutApplyButton()
{
    TabDialog dialog;
    dialog.show();
    QSignalSpy const applied(&dialog, &TabDialog::applyButtonPressed);
    QTest::mouseClick(Button(dialog, QDialogButtonBox::Ok), Qt::LeftButton);
    QCOMPARE(applied.count(), 1);
}

void tst_TabDialog::cancelTellsNothing_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("the button") << 0;
    QTest::newRow("Escape") << 1;
    QTest::newRow("closing the window") << 2;
}

void tst_TabDialog::cancelTellsNothing()
{
    QFETCH(int, way);
    TabDialog dialog;
    dialog.setApplyButton();
    dialog.show();
    QSignalSpy const applied(&dialog, &TabDialog::applyButtonPressed);
    QSignalSpy const rejected(&dialog, &QDialog::rejected);
    if (way == 0)
        QTest::mouseClick(Button(dialog, QDialogButtonBox::Cancel), Qt::LeftButton);
    else if (way == 1)
        QTest::keyClick(&dialog, Qt::Key_Escape);
    else
        dialog.close();
    QCOMPARE(applied.count(), 0);
    QCOMPARE(rejected.count(), 1);
    QVERIFY(!dialog.isVisible());
}

void tst_TabDialog::connectsByName()
{
    Receiver receiver;
    TabDialog dialog;
    dialog.setApplyButton();
    QVERIFY(connect(&dialog, SIGNAL(applyButtonPressed()), &receiver, SLOT(slotAcceptPropertyChanges())));
    dialog.show();
    QTest::mouseClick(Button(dialog, QDialogButtonBox::Apply), Qt::LeftButton);
    QCOMPARE(receiver.m_calls, 1);
}

void tst_TabDialog::okMayBeVetoed()
{
    Receiver receiver;
    Vetoing dialog;
    connect(&dialog, &TabDialog::applyButtonPressed, &receiver, &Receiver::slotAcceptPropertyChanges);
    dialog.show();
    QTest::mouseClick(Button(dialog, QDialogButtonBox::Ok), Qt::LeftButton);
    QVERIFY(dialog.isVisible());
    QCOMPARE(receiver.m_calls, 1);
    receiver.m_then = [&dialog] { dialog.m_canClose = true; }; // what the input says may decide
    QTest::mouseClick(Button(dialog, QDialogButtonBox::Ok), Qt::LeftButton);
    QVERIFY(!dialog.isVisible());
}

void tst_TabDialog::listenerDeletesTheDialog()
{
    Receiver receiver;
    auto * const dialog = new TabDialog;
    QPointer<TabDialog> const alive(dialog);
    receiver.m_then = [dialog] { delete dialog; };
    connect(dialog, &TabDialog::applyButtonPressed, &receiver, &Receiver::slotAcceptPropertyChanges);
    Q_EMIT dialog->findChild<QDialogButtonBox *>()->accepted();
    QVERIFY(!alive);
}

void tst_TabDialog::enterPressesOk()
{
    TabDialog dialog;
    dialog.setApplyButton();
    dialog.show();
    QSignalSpy const applied(&dialog, &TabDialog::applyButtonPressed);
    QTest::keyClick(&dialog, Qt::Key_Return);
    QCOMPARE(applied.count(), 1);
    QVERIFY(!dialog.isVisible());
}

void tst_TabDialog::dialogOwnsItsPages()
{
    QPointer<QWidget> page;
    {
        TabDialog dialog;
        page = new QWidget;
        dialog.addTab(page, QStringLiteral("page"));
    }
    QVERIFY(!page);
}

ORIM_TEST_MAIN(tst_TabDialog)
#include "tst_tabdialog.moc"
