// SPDX-License-Identifier: MIT
#include "resortpopupmenu.h"

#include "iupdatemenu.h"

#include "testmain.h"

#include <QAction>
#include <QShowEvent>
#include <QSignalSpy>
#include <QToolButton>

#include <array>
#include <functional>
#include <new>

namespace {

//! Hears items by every kind of slot an item may name.
class Receiver : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    int m_plain = 0;
    QVector<int> m_numbers;
    int m_flags = 0;
    std::function<void()> m_then;
public Q_SLOTS:

    void slotPlain()
    {
        ++m_plain;
        if (m_then)
            m_then();
    }

    void slotNumber(int id) { m_numbers.append(id); }

    void slotFlag(bool) { ++m_flags; }

Q_SIGNALS:
    void signalOn(int id);
};

class Client : public IUpdateMenu
{
public:
    explicit Client(QStringList * log = nullptr, QString const & name = QString()) : m_log(log), m_name(name) {}

    void UpdateMenu(ResortPopupMenu * menu) override
    {
        m_menu = menu;
        ++m_calls;
        if (m_log)
            m_log->append(m_name);
        if (m_then)
            m_then(menu);
    }

    QStringList * m_log;
    QString m_name;
    ResortPopupMenu * m_menu = nullptr;
    int m_calls = 0;
    std::function<void(ResortPopupMenu *)> m_then;
};

QStringList Texts(QMenu const & menu)
{
    QStringList texts;
    for (QAction const * const action : menu.actions())
        texts.append(action->isSeparator() ? QStringLiteral("-") : action->text());
    return texts;
}

void Show(ResortPopupMenu & menu)
{
    menu.popup(QPoint(10, 10));
    QVERIFY(QTest::qWaitForWindowExposed(&menu));
}

} // namespace

class tst_ResortPopupMenu : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void construction_data();
    void construction();
    void place_data();
    void place();
    void itemWithReceiver();
    void itemWithPicture();
    void number_data();
    void number();
    void checkMark_data();
    void checkMark();
    void enabling_data();
    void enabling();
    void click_data();
    void click();
    void checkedStateIsNotTheNumber();
    void signalAsReceiver();
    void badWiring_data();
    void badWiring();
    void routerIsVirtual();
    void routerLeavesForeignItems();
    void submenuItemsAreNotOurs();
    void deadReceiver();
    void receiverDeletesItem();
    void receiverDeletesMenu();
    void clients();
    void clientIsCalledOnce();
    void clientIsCalledByTheShowEvent();
    void clientSeesEveryShow();
    void clientSetsStateBeforeShow();
    void deadClient();
    void copiedClient();
    void copyOfADeadClient();
    void assignedClient();
    void clientEndsItself();
    void clientEndsTheNext();
    void clientRegistersAnother();
};

void tst_ResortPopupMenu::construction_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("objectName");
    QTest::newRow("named") << QByteArray("AxisMenu") << QStringLiteral("AxisMenu");
    QTest::newRow("beyond ASCII is Latin-1") << QByteArray("Men\xfc") << QStringLiteral("Men\u00fc");
    QTest::newRow("null has no name") << QByteArray() << QString();
}

void tst_ResortPopupMenu::construction()
{
    QFETCH(QByteArray, name);
    QFETCH(QString, objectName);
    QWidget parent;
    ResortPopupMenu const menu(&parent, name.isNull() ? nullptr : name.constData());
    QCOMPARE(menu.objectName(), objectName);
    QCOMPARE(menu.parentWidget(), &parent);
    QVERIFY(menu.isEmpty());
}

void tst_ResortPopupMenu::place_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("texts");
    using Strings = QStringList;
    QTest::newRow("-1 is last") << -1 << Strings{ "A", "-", "B", "new" };
    QTest::newRow("0 is first") << 0 << Strings{ "new", "A", "-", "B" };
    QTest::newRow("1 follows the first") << 1 << Strings{ "A", "new", "-", "B" };
    QTest::newRow("separators count") << 2 << Strings{ "A", "-", "new", "B" };
    QTest::newRow("the count is last") << 3 << Strings{ "A", "-", "B", "new" };
    QTest::newRow("beyond the end is last") << 1000 << Strings{ "A", "-", "B", "new" };
    QTest::newRow("any other negative is last") << -7 << Strings{ "A", "-", "B", "new" };
}

void tst_ResortPopupMenu::place()
{
    QFETCH(int, index);
    QFETCH(QStringList, texts);
    ResortPopupMenu menu;
    menu.insertItem(QStringLiteral("A"));
    menu.addSeparator();
    menu.insertItem(QStringLiteral("B"));
    QAction * const item = menu.insertItem(QStringLiteral("new"), 5, index);
    QCOMPARE(Texts(menu), texts);
    QCOMPARE(item->text(), QStringLiteral("new"));
}

void tst_ResortPopupMenu::itemWithReceiver()
{
    Receiver receiver;
    ResortPopupMenu menu;
    menu.insertItem(QStringLiteral("first"), 1);
    QAction * const item = menu.insertItem(QStringLiteral("UnZoom"), &receiver, SLOT(slotPlain()),
                                           QKeySequence(Qt::CTRL | Qt::Key_U), 1003, 0);
    QCOMPARE(item->text(), QStringLiteral("UnZoom"));
    QCOMPARE(item->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_U));
    QVERIFY(item->icon().isNull());
    QVERIFY(!item->isCheckable());
    QCOMPARE(menu.GetItemId(item), 1003);
    QCOMPARE(Texts(menu), (QStringList{ "UnZoom", "first" }));
    item->trigger();
    QCOMPARE(receiver.m_plain, 1);
}

void tst_ResortPopupMenu::itemWithPicture()
{
    QPixmap picture(16, 16);
    picture.fill(Qt::red);
    Receiver receiver;
    ResortPopupMenu menu;
    menu.insertItem(QStringLiteral("last"));
    QAction * const item = menu.insertItem(QIcon(picture), QStringLiteral("Ruler"), &receiver, SLOT(slotNumber(int)),
                                           QKeySequence(Qt::Key_F2), 3007, 0);
    QCOMPARE(item->icon().pixmap(16, 16).toImage().pixelColor(8, 8), QColor(Qt::red));
    QCOMPARE(item->text(), QStringLiteral("Ruler"));
    QCOMPARE(item->shortcut(), QKeySequence(Qt::Key_F2));
    QCOMPARE(Texts(menu), (QStringList{ "Ruler", "last" }));
    item->trigger();
    QCOMPARE(receiver.m_numbers, QVector<int>{ 3007 });
}

void tst_ResortPopupMenu::number_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("text");
    QTest::newRow("first") << 10 << QStringLiteral("ten");
    QTest::newRow("0 is a number") << 0 << QStringLiteral("nought");
    QTest::newRow("negative is a number") << -5 << QStringLiteral("minus five");
    QTest::newRow("of two the first answers") << 7 << QStringLiteral("seven");
    QTest::newRow("-1 is none") << -1 << QString();
    QTest::newRow("in no use") << 11 << QString();
    QTest::newRow("taken out of the menu") << 20 << QString();
}

void tst_ResortPopupMenu::number()
{
    QFETCH(int, id);
    QFETCH(QString, text);
    ResortPopupMenu menu;
    menu.insertItem(QStringLiteral("plain"));
    menu.insertItem(QStringLiteral("ten"), 10);
    menu.insertItem(QStringLiteral("nought"), 0);
    menu.insertItem(QStringLiteral("minus five"), -5);
    menu.insertItem(QStringLiteral("seven"), 7);
    menu.insertItem(QStringLiteral("other seven"), 7);
    menu.addAction(QStringLiteral("foreign"));
    menu.removeAction(menu.insertItem(QStringLiteral("twenty"), 20));
    QAction const * const item = menu.FindItem(id);
    QCOMPARE(item ? item->text() : QString(), text);
    QCOMPARE(menu.GetItemId(item), item ? id : -1);
}

void tst_ResortPopupMenu::checkMark_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QVector<bool>>("checked");
    using Marks = QVector<bool>;
    QTest::newRow("the item") << 1 << Marks{ true, false, false, false };
    QTest::newRow("both of one number") << 2 << Marks{ false, true, true, false };
    QTest::newRow("-1 is no item") << -1 << Marks{ false, false, false, false };
    QTest::newRow("unknown") << 99 << Marks{ false, false, false, false };
}

void tst_ResortPopupMenu::checkMark()
{
    QFETCH(int, id);
    QFETCH(QVector<bool>, checked);
    ResortPopupMenu menu;
    for (int const number : { 1, 2, 2, -1 })
        menu.insertItem(QString::number(number), number);
    QSignalSpy const activated(&menu, &ResortPopupMenu::signalActivated);
    menu.setItemChecked(id, true);
    QVector<bool> marks;
    for (QAction const * const item : menu.actions()) {
        marks.append(item->isChecked());
        QCOMPARE(item->isCheckable(), item->isChecked());
    }
    QCOMPARE(marks, checked);
    menu.setItemChecked(id, false);
    for (QAction const * const item : menu.actions())
        QVERIFY(!item->isChecked());
    QCOMPARE(activated.count(), 0);
}

void tst_ResortPopupMenu::enabling_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QVector<bool>>("enabled");
    using Marks = QVector<bool>;
    QTest::newRow("the item") << 1 << Marks{ false, true, true, true };
    QTest::newRow("both of one number") << 2 << Marks{ true, false, false, true };
    QTest::newRow("-1 is no item") << -1 << Marks{ true, true, true, true };
    QTest::newRow("unknown") << 99 << Marks{ true, true, true, true };
}

void tst_ResortPopupMenu::enabling()
{
    QFETCH(int, id);
    QFETCH(QVector<bool>, enabled);
    ResortPopupMenu menu;
    for (int const number : { 1, 2, 2, -1 })
        menu.insertItem(QString::number(number), number);
    menu.setItemEnabled(id, false);
    QVector<bool> marks;
    for (QAction const * const item : menu.actions())
        marks.append(item->isEnabled());
    QCOMPARE(marks, enabled);
    menu.setItemEnabled(id, true);
    for (QAction const * const item : menu.actions())
        QVERIFY(item->isEnabled());
}

void tst_ResortPopupMenu::click_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<QVector<int>>("numbers");
    using Numbers = QVector<int>;
    QTest::newRow("numbered") << 3005 << true << Numbers{ 3005 };
    QTest::newRow("0") << 0 << true << Numbers{ 0 };
    QTest::newRow("without a number") << -1 << true << Numbers{ -1 };
    QTest::newRow("disabled") << 3005 << false << Numbers{};
}

void tst_ResortPopupMenu::click()
{
    QFETCH(int, id);
    QFETCH(bool, enabled);
    QFETCH(QVector<int>, numbers);
    Receiver receiver;
    ResortPopupMenu menu;
    menu.insertItem(QStringLiteral("other"), &receiver, SLOT(slotPlain()));
    QAction * const item =
        menu.insertItem(QStringLiteral("chosen"), &receiver, SLOT(slotNumber(int)), QKeySequence(), id, -1);
    item->setEnabled(enabled);
    QSignalSpy const activated(&menu, &ResortPopupMenu::signalActivated);
    Show(menu);
    QTest::mouseClick(&menu, Qt::LeftButton, Qt::NoModifier, menu.actionGeometry(item).center());
    QCOMPARE(receiver.m_numbers, numbers);
    QCOMPARE(receiver.m_plain, 0);
    QCOMPARE(activated.count(), numbers.size());
    if (!numbers.isEmpty())
        QCOMPARE(activated.at(0).at(0).toInt(), numbers.at(0));
}

void tst_ResortPopupMenu::checkedStateIsNotTheNumber()
{
    Receiver receiver;
    ResortPopupMenu menu;
    QAction * const item =
        menu.insertItem(QStringLiteral("Ruler"), &receiver, SLOT(slotNumber(int)), QKeySequence(), 3001);
    menu.setItemChecked(3001, false);
    Show(menu);
    QTest::keyClick(&menu, Qt::Key_Down);
    QTest::keyClick(&menu, Qt::Key_Return);
    QVERIFY(item->isChecked());
    item->trigger();
    QVERIFY(!item->isChecked());
    QCOMPARE(receiver.m_numbers, (QVector<int>{ 3001, 3001 }));
}

void tst_ResortPopupMenu::signalAsReceiver()
{
    Receiver receiver;
    QSignalSpy const heard(&receiver, &Receiver::signalOn);
    ResortPopupMenu menu;
    menu.insertItem(QStringLiteral("on"), &receiver, SIGNAL(signalOn(int)), QKeySequence(), 42)->trigger();
    QCOMPARE(heard.count(), 1);
    QCOMPARE(heard.at(0).at(0).toInt(), 42);
}

void tst_ResortPopupMenu::badWiring_data()
{
    QTest::addColumn<bool>("withReceiver");
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<bool>("warns");
    QTest::newRow("no receiver") << false << QByteArray(SLOT(slotPlain())) << false;
    QTest::newRow("null slot") << true << QByteArray() << false;
    QTest::newRow("empty slot") << true << QByteArray("") << false;
    QTest::newRow("a slot it does not have") << true << QByteArray("1slotNowhere()") << true;
    QTest::newRow("a slot that wants the checked state") << true << QByteArray("1slotFlag(bool)") << true;
}

void tst_ResortPopupMenu::badWiring()
{
    QFETCH(bool, withReceiver);
    QFETCH(QByteArray, slot);
    QFETCH(bool, warns);
    if (warns)
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^QObject::connect: ")));
    Receiver receiver;
    ResortPopupMenu menu;
    QSignalSpy const activated(&menu, &ResortPopupMenu::signalActivated);
    QAction * const item = menu.insertItem(QStringLiteral("item"), withReceiver ? &receiver : nullptr,
                                           slot.isNull() ? nullptr : slot.constData(), QKeySequence(), 4, -1);
    item->trigger();
    QCOMPARE(receiver.m_plain, 0);
    QCOMPARE(receiver.m_flags, 0);
    QCOMPARE(activated.count(), 1);
}

void tst_ResortPopupMenu::routerIsVirtual()
{
    class Router : public ResortPopupMenu
    {
    public:
        void slotSignalRouter(QAction * item) override { m_items.append(item); }

        QVector<QAction *> m_items;
    };

    Receiver receiver;
    Router menu;
    QAction * const item = menu.insertItem(QStringLiteral("item"), &receiver, SLOT(slotPlain()));
    item->trigger();
    QCOMPARE(menu.m_items, QVector<QAction *>{ item });
    QCOMPARE(receiver.m_plain, 0);
}

void tst_ResortPopupMenu::routerLeavesForeignItems()
{
    Receiver receiver;
    ResortPopupMenu menu;
    ResortPopupMenu other;
    QAction * const foreign =
        other.insertItem(QStringLiteral("foreign"), &receiver, SLOT(slotPlain()), QKeySequence(), 3);
    QAction plain(QStringLiteral("plain"), nullptr);
    menu.addAction(&plain);
    QSignalSpy const activated(&menu, &ResortPopupMenu::signalActivated);
    menu.slotSignalRouter(nullptr);
    menu.slotSignalRouter(foreign);
    plain.trigger();
    QCOMPARE(activated.count(), 0);
    QCOMPARE(receiver.m_plain, 0);
    QCOMPARE(menu.GetItemId(foreign), -1);
    QCOMPARE(menu.GetItemId(&plain), -1);
    QCOMPARE(menu.GetItemId(nullptr), -1);
}

void tst_ResortPopupMenu::submenuItemsAreNotOurs()
{
    Receiver receiver;
    ResortPopupMenu menu;
    ResortPopupMenu sub(&menu, "sub");
    menu.addMenu(&sub);
    sub.insertItem(QStringLiteral("deep"), &receiver, SLOT(slotPlain()), QKeySequence(), 8);
    QSignalSpy const outer(&menu, &ResortPopupMenu::signalActivated);
    QSignalSpy const inner(&sub, &ResortPopupMenu::signalActivated);
    Show(menu);
    QTest::keyClick(&menu, Qt::Key_Down);
    QTest::keyClick(&menu, Qt::Key_Right);
    QTRY_VERIFY(sub.isVisible());
    QTest::keyClick(&sub, Qt::Key_Return);
    QCOMPARE(receiver.m_plain, 1);
    QCOMPARE(inner.count(), 1);
    QCOMPARE(outer.count(), 0);
}

void tst_ResortPopupMenu::deadReceiver()
{
    auto receiver = std::make_unique<Receiver>();
    ResortPopupMenu menu;
    QAction * const item =
        menu.insertItem(QStringLiteral("item"), receiver.get(), SLOT(slotNumber(int)), QKeySequence(), 6);
    QSignalSpy const activated(&menu, &ResortPopupMenu::signalActivated);
    receiver.reset();
    item->trigger();
    QCOMPARE(activated.count(), 1);
}

void tst_ResortPopupMenu::receiverDeletesItem()
{
    Receiver receiver;
    ResortPopupMenu menu;
    QAction * const item = menu.insertItem(QStringLiteral("item"), &receiver, SLOT(slotPlain()), QKeySequence(), 6);
    receiver.m_then = [item] { delete item; };
    QSignalSpy const activated(&menu, &ResortPopupMenu::signalActivated);
    item->trigger();
    QCOMPARE(receiver.m_plain, 1);
    QCOMPARE(activated.count(), 1);
    QCOMPARE(activated.at(0).at(0).toInt(), 6);
    QVERIFY(menu.isEmpty());
}

void tst_ResortPopupMenu::receiverDeletesMenu()
{
    Receiver receiver;
    auto * const menu = new ResortPopupMenu;
    QPointer<ResortPopupMenu> const alive(menu);
    QAction * const item = menu->insertItem(QStringLiteral("item"), &receiver, SLOT(slotPlain()), QKeySequence(), 6);
    receiver.m_then = [menu] { delete menu; };
    item->trigger();
    QCOMPARE(receiver.m_plain, 1);
    QVERIFY(!alive);
}

void tst_ResortPopupMenu::clients()
{
    QStringList log;
    Client first(&log, QStringLiteral("first"));
    Client second(&log, QStringLiteral("second"));
    ResortPopupMenu menu;
    menu.insertItem(QStringLiteral("item"));
    menu.NotifyBeforeShow(nullptr);
    menu.NotifyBeforeShow(&first);
    menu.NotifyBeforeShow(&second);
    QVERIFY(log.isEmpty());
    Show(menu);
    QCOMPARE(log, (QStringList{ "first", "second" }));
    QCOMPARE(first.m_menu, &menu);
}

void tst_ResortPopupMenu::clientIsCalledOnce()
{
    Client client;
    ResortPopupMenu menu;
    menu.insertItem(QStringLiteral("item"));
    menu.NotifyBeforeShow(&client);
    menu.NotifyBeforeShow(&client);
    Show(menu);
    QCOMPARE(client.m_calls, 1);
}

void tst_ResortPopupMenu::clientIsCalledByTheShowEvent()
{
    Client client;
    ResortPopupMenu menu;
    menu.insertItem(QStringLiteral("item"));
    menu.NotifyBeforeShow(&client);
    QShowEvent event;
    QCoreApplication::sendEvent(&menu, &event);
    QCOMPARE(client.m_calls, 1);
}

void tst_ResortPopupMenu::clientSeesEveryShow()
{
    Client client;
    ResortPopupMenu menu;
    menu.insertItem(QStringLiteral("item"));
    menu.NotifyBeforeShow(&client);
    for (int turn = 1; turn <= 3; ++turn) {
        Show(menu);
        QCOMPARE(client.m_calls, turn);
        menu.hide();
    }
}

void tst_ResortPopupMenu::clientSetsStateBeforeShow()
{
    Client client;
    ResortPopupMenu menu;
    QAction * const item = menu.insertItem(QStringLiteral("item"), 3);
    bool visibleItems = true;
    client.m_then = [&visibleItems](ResortPopupMenu * shown) {
        visibleItems = QGuiApplication::topLevelWindows().isEmpty() || shown->windowHandle()->isVisible();
        shown->setItemChecked(3, true);
        shown->setItemEnabled(3, false);
    };
    menu.NotifyBeforeShow(&client);
    Show(menu);
    QVERIFY(!visibleItems); // the client ran before the window came up
    QVERIFY(item->isChecked());
    QVERIFY(!item->isEnabled());
}

void tst_ResortPopupMenu::deadClient()
{
    Client staying;
    auto going = std::make_unique<Client>();
    ResortPopupMenu menu;
    menu.insertItem(QStringLiteral("item"));
    menu.NotifyBeforeShow(going.get());
    menu.NotifyBeforeShow(&staying);
    going.reset();
    Show(menu);
    QCOMPARE(staying.m_calls, 1);
    menu.hide();
    Client late;
    menu.NotifyBeforeShow(&late);
    Show(menu);
    QCOMPARE(staying.m_calls, 2);
    QCOMPARE(late.m_calls, 1);
}

void tst_ResortPopupMenu::copiedClient()
{
    Client client;
    ResortPopupMenu menu;
    menu.insertItem(QStringLiteral("item"));
    menu.NotifyBeforeShow(&client);
    Client copy(client);
    {
        Client assigned;
        assigned = client;
        client = assigned;
    }
    Show(menu);
    QCOMPARE(client.m_calls, 1);
    QCOMPARE(copy.m_calls, 0);
}

void tst_ResortPopupMenu::copyOfADeadClient()
{
    alignas(Client) std::array<unsigned char, sizeof(Client)> place{};
    auto * client = new (place.data()) Client;
    ResortPopupMenu menu;
    menu.insertItem(QStringLiteral("item"));
    menu.NotifyBeforeShow(client);
    Client const copy(*client);
    client->~Client();
    client = new (place.data()) Client; // another one at its place
    Show(menu);
    QCOMPARE(client->m_calls, 0);
    QCOMPARE(copy.m_calls, 0);
    client->~Client();
}

void tst_ResortPopupMenu::assignedClient()
{
    Client first;
    Client second;
    ResortPopupMenu menu;
    menu.insertItem(QStringLiteral("item"));
    menu.NotifyBeforeShow(&first);
    menu.NotifyBeforeShow(&second);
    first = second;
    Show(menu);
    QCOMPARE(first.m_calls, 1);
    QCOMPARE(second.m_calls, 1);
}

void tst_ResortPopupMenu::clientEndsItself()
{
    auto client = std::make_unique<Client>();
    int calls = 0;
    client->m_then = [&client, &calls](ResortPopupMenu *) {
        ++calls;
        auto const keep = std::move(client->m_then); // the function outlives its owner
        client.reset();
    };
    ResortPopupMenu menu;
    menu.insertItem(QStringLiteral("item"));
    menu.NotifyBeforeShow(client.get());
    Show(menu);
    menu.hide();
    Show(menu);
    QCOMPARE(calls, 1);
}

void tst_ResortPopupMenu::clientEndsTheNext()
{
    QStringList log;
    Client first(&log, QStringLiteral("first"));
    auto second = std::make_unique<Client>(&log, QStringLiteral("second"));
    Client third(&log, QStringLiteral("third"));
    first.m_then = [&second](ResortPopupMenu *) { second.reset(); };
    ResortPopupMenu menu;
    menu.insertItem(QStringLiteral("item"));
    for (IUpdateMenu * const client : { static_cast<IUpdateMenu *>(&first), static_cast<IUpdateMenu *>(second.get()),
                                        static_cast<IUpdateMenu *>(&third) })
        menu.NotifyBeforeShow(client);
    Show(menu);
    QCOMPARE(log, (QStringList{ "first", "third" }));
}

void tst_ResortPopupMenu::clientRegistersAnother()
{
    Client first;
    Client added;
    first.m_then = [&added](ResortPopupMenu * menu) { menu->NotifyBeforeShow(&added); };
    ResortPopupMenu menu;
    menu.insertItem(QStringLiteral("item"));
    menu.NotifyBeforeShow(&first);
    Show(menu);
    QCOMPARE(added.m_calls, 0);
    menu.hide();
    Show(menu);
    QCOMPARE(added.m_calls, 1);
}

ORIM_TEST_MAIN(tst_ResortPopupMenu)
#include "tst_resortpopupmenu.moc"
