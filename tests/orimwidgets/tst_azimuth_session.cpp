// SPDX-License-Identifier: MIT
// A session of some hundred steps with the modes of bearings. After each of the signals, notifications and events of
// menus that it causes, one at a time, a menu, its parent, a selection of modes, the north that a formatter follows or
// the formatter is deleted, and the session goes on. A menu that Qt works on goes right afterwards. Then thousands of
// menus, selections and formatters come and go.

#include "azimuthaccess.h"
#include "azimuthformatter.h"
#include "guicentral.h"
#include "memorycfg.h"
#include "resortpopupmenu.h"
#include "testmain.h"

#include <QFile>
#include <QPointer>

#include <unistd.h>

#include <array>
#include <cstdio>
#include <memory>

namespace {

enum ETarget
{
    eMenu,
    eDefaultMenu,
    eParent,
    eCurrent,
    eDefault,
    eNorth,
    eFormatter,
    eTargets
};

constexpr std::array<char const *, eTargets> Names{ { "menu", "menu of the default", "parent", "current selection",
                                                      "selection of the default", "north", "formatter" } };
constexpr std::array<int, 4> Keys{ { 5, 9, 6, 10 } };
constexpr int Steps = 17;
constexpr int Rounds = 8;

#ifdef __OPTIMIZE__
constexpr int ChurnTurns = 20000;
#else
constexpr int ChurnTurns = 4000;
#endif

QString const NorthPath = QStringLiteral("/session/north");

//! Memory of this process that is in use, KiB.
long long ResidentSize()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE) / 1024;
}

ValueNumeric<double> * North() { return Tree::Instance()->FindAs<ValueNumeric<double>>(NorthPath); }

class Session : public QObject, public IObserver
{
public:
    //! \param target, when  what to delete after which event; -1 for never.
    Session(int target, int when) : m_target(target), m_when(when)
    {
        Persistant::SetStore(&m_store);
        m_pSelect = std::make_unique<AzimuthDisplaySelectAccess>();
        m_current = m_pSelect->CurrentValueSelection();
        m_default = m_pSelect->DefaultValueSelection();
        Tree::Instance()->Insert(QStringLiteral("/session"), new ValueNumeric<double>(QStringLiteral("north")));
        AzimuthMode(6); // the formatter asks the one object of the process
        AzimuthDisplaySelect * const both[] = { m_pSelect.get(), &AzimuthDisplaySelect::Instance() };
        for (AzimuthDisplaySelect * const select : both)
            connect(select, &AzimuthDisplaySelect::signalAzimuthModeChanged, this, [this] { Count(false); });
        North()->AddObserver(this);
        m_pFormatter = std::make_unique<AzimuthFormatter>();
        m_pFormatter->SetNorth_ValuePath(NorthPath);
        for (QString const & path : { m_current, m_default })
            SelectionAt(path)->AddObserver(this);
        m_pMenu = m_pSelect->CreateMenu(m_pParent);
        m_pDefaultMenu = m_pSelect->CreateMenuForDefaultSelection(m_pParent);
        for (QWidget * const menu : { m_pMenu.data(), m_pDefaultMenu.data() })
            menu->installEventFilter(this);
        m_pParent->show();
    }

    ~Session() override
    {
        m_when = -1;
        delete m_pParent.data();
        m_pFormatter.reset();
        m_pSelect.reset();
        for (QString const & path : { m_current, m_default, NorthPath })
            Tree::Instance()->Remove(path);
        Persistant::SetStore(nullptr);
        AzimuthMode(5);
    }

    //! \return how many events there were.
    int Run()
    {
        for (int round = 0; round < Rounds; ++round)
            for (int step = 0; step < Steps; ++step) {
                Step(step, round);
                Due();
                QCoreApplication::sendPostedEvents();
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                Due();
            }
        return m_count;
    }

    bool eventFilter(QObject * /*watched*/, QEvent * /*event*/) override
    {
        Count(true);
        return false;
    }

    void Update(Observable * /*subject*/, TChangeCode code) override
    {
        if (code != eStateChanged)
            Count(false);
    }

private:
    //! \param isInQt  a menu cannot go before Qt is back from it.
    void Count(bool isInQt)
    {
        if (m_count++ != m_when)
            return;
        bool const isTelling = (m_pMenu && m_pMenu->IsTelling()) || (m_pDefaultMenu && m_pDefaultMenu->IsTelling());
        m_isDue = true;
        if (m_target > eParent || (!isInQt && !isTelling))
            Due();
    }

    void Due()
    {
        if (!m_isDue)
            return;
        m_isDue = false;
        switch (m_target) {
        case eMenu:
            delete m_pMenu.data();
            break;
        case eDefaultMenu:
            delete m_pDefaultMenu.data();
            break;
        case eParent:
            delete m_pParent.data();
            break;
        case eFormatter:
            m_pFormatter.reset();
            break;
        default:
            Tree::Instance()->Remove(m_target == eCurrent ? m_current : m_target == eDefault ? m_default : NorthPath);
        }
    }

    static void Choose(QString const & path, int key)
    {
        if (ValueSelection * const selection = SelectionAt(path))
            selection->Select(static_cast<long>(key), nullptr);
    }

    //! Opens a menu, chooses an item, and closes it.
    void Operate(QPointer<ResortPopupMenu> const & menu, int key)
    {
        if (menu)
            menu->popup(QPoint());
        Due();
        if (QAction * const item = menu ? menu->FindItem(key) : nullptr)
            item->trigger();
        Due();
        if (menu)
            menu->hide();
    }

    void Step(int step, int round)
    {
        int const key = Keys[static_cast<std::size_t>(round) % Keys.size()];
        int const other = Keys[static_cast<std::size_t>(round + 1) % Keys.size()];
        if (step < 10)
            StepOfModes(step, key, other);
        else
            StepOfNorth(step, round);
    }

    void StepOfModes(int step, int key, int other)
    {
        switch (step) {
        case 0:
            return m_pSelect->Select(key);
        case 1:
            return m_pSelect->slotDefaultSelectionMenuActivated(other);
        case 2:
            return Choose(m_current, key);
        case 3:
            return Choose(m_default, key);
        case 4:
            return Operate(m_pMenu, other);
        case 5:
            return Operate(m_pDefaultMenu, key);
        case 6:
            return m_pSelect->UpdateMenu(m_pMenu);
        case 7:
            return Q_EMIT GuiCentral::Instance().signalRestoreDefaultPersistant();
        case 8:
            return m_pSelect->ApplyPersistantAfterRead();
        default:
            m_pSelect->NorthOffsetChanged();
        }
    }

    void StepOfNorth(int step, int round)
    {
        AzimuthMode(round % 2 == 0 ? 6 : 10);
        if (step < 12 && North())
            North()->SetValue(10.0 * round + step, nullptr);
        if (!m_pFormatter || step < 12)
            return;
        switch (step) {
        case 12:
            return m_pFormatter->SetNorth(3.0 * round);
        case 13:
            m_pFormatter->SetNorth_ValuePath(NorthPath);
            return;
        case 14:
            QVERIFY(!m_pFormatter->convert(370.0).isEmpty());
            return;
        case 15:
            QVERIFY(m_pFormatter->convertSuffixed(-370.0).endsWith(QChar(0xB0)));
            return;
        default:
            m_pFormatter->SetNorth_ValuePath(round == 3 ? QString() : NorthPath);
        }
    }

    int m_target;
    int m_when;
    int m_count = 0;
    bool m_isDue = false;
    MemoryCfg m_store;
    QString m_current;
    QString m_default;
    std::unique_ptr<AzimuthDisplaySelectAccess> m_pSelect;
    std::unique_ptr<AzimuthFormatter> m_pFormatter;
    QPointer<QWidget> m_pParent{ new QWidget };
    QPointer<ResortPopupMenu> m_pMenu;
    QPointer<ResortPopupMenu> m_pDefaultMenu;
};

} // namespace

class tst_azimuth_session : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void deletedAfterEachEvent_data();
    void deletedAfterEachEvent();
    void leavesNothingBehind();
    void cleanupTestCase();

private:
    long long m_sessions = 0;
    int m_turns = 0;
    long long m_grown = 0; // KiB
};

void tst_azimuth_session::deletedAfterEachEvent_data()
{
    QTest::addColumn<int>("target");
    for (int target = 0; target < eTargets; ++target)
        QTest::newRow(Names[static_cast<std::size_t>(target)]) << target;
}

void tst_azimuth_session::deletedAfterEachEvent()
{
    QFETCH(int, target);
    AzimuthMode(5); // makes what stays
    int const values = Tree::Instance()->GetCount();
    int const events = Session(target, -1).Run();
    QVERIFY2(events > 200, QByteArray::number(events).constData());
    int const stride = static_cast<int>(TestStage::Turns(TestStage::Sanitized() ? 20 : 5, 1));
    for (int when = target % stride; when < events; when += stride) {
        Session(target, when).Run();
        ++m_sessions;
        QCOMPARE(Tree::Instance()->GetCount(), values);
    }
}

void tst_azimuth_session::leavesNothingBehind()
{
    m_turns = static_cast<int>(TestStage::Turns(TestStage::Sanitized() ? 400 : ChurnTurns, 2000000));
    AzimuthDisplaySelect & select = AzimuthMode(6);
    Tree::Instance()->Insert(QStringLiteral("/session"), new ValueNumeric<double>(QStringLiteral("north")));
    int const values = Tree::Instance()->GetCount();
    long long warm = 0;
    for (int turn = 0; turn < m_turns; ++turn) {
        std::unique_ptr<ResortPopupMenu> const menu(select.CreateMenu(nullptr));
        std::unique_ptr<ResortPopupMenu> const ofDefault(select.CreateMenuForDefaultSelection(nullptr));
        QString const selection = select.CreateValueSelection();
        AzimuthFormatter formatter;
        QVERIFY(formatter.SetNorth_ValuePath(NorthPath));
        North()->SetValue(turn % 360, nullptr);
        menu->FindItem(turn % 2 == 0 ? 10 : 6)->trigger();
        QVERIFY(!formatter.convertSuffixed(turn).isEmpty());
        QVERIFY(Tree::Instance()->Remove(selection));
        if (turn == m_turns / 4)
            warm = ResidentSize();
    }
    m_grown = ResidentSize() - warm;
    QCOMPARE(Tree::Instance()->GetCount(), values);
    QCOMPARE(North()->GetObserverCount(), 0);
    if (!TestStage::Sanitized())
        QVERIFY2(m_grown <= 256, qPrintable(QStringLiteral("%1 KiB in %2 turns").arg(m_grown).arg(m_turns)));
    Tree::Instance()->Remove(NorthPath);
}

void tst_azimuth_session::cleanupTestCase()
{
    std::printf("figures: %lld sessions with the modes of bearings, each with one deletion; %d menus, selections and "
                "formatters came and went, %lld KiB more\n",
                m_sessions, m_turns, m_grown);
}

ORIM_TEST_MAIN(tst_azimuth_session)
#include "tst_azimuth_session.moc"
