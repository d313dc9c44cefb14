// SPDX-License-Identifier: MIT
// A session of some hundred steps with a page. After each of the events that it causes, one at a time, the page, its
// parent, its provider, the selection of modes, an edit, the box or the central selection of modes is deleted, and the
// session goes on. Where Qt itself is on its way through a widget, and does not outlive its end, the widget goes right
// afterwards. Then pages come and go, and leave nothing behind.

#include "axispropertypage.h"

#include "azimuthaccess.h"
#include "guibase.h"
#include "testmain.h"
#include "unitprovider.h"
#include "vccomboboxclassic.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QFile>
#include <QLineEdit>
#include <QPointer>

#include <unistd.h>

#include <cstdio>
#include <memory>

namespace {

enum ETarget
{
    ePage,
    eParent,
    eProvider,
    eSelection,
    eEdit,
    eSelector,
    eBox,
    eTargets
};

char const * const Names[eTargets] = { "page", "parent", "provider", "selection", "edit", "selector", "box" };

constexpr int Steps = 22;
constexpr int Rounds = 4;

//! Memory of this process that is in use, KiB.
long long ResidentSize()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE) / 1024;
}

class Session : public QObject
{
public:
    //! \param target, when  what to delete after which event; -1 for never.
    Session(bool hasProvider, ETarget target, int when) : m_target(target), m_when(when)
    {
        m_pParent = new QWidget;
        if (hasProvider)
            m_pProvider = std::make_unique<WidgetProvider>();
        if (hasProvider) {
            m_pProvider->m_onRead = [this] { Count(true); };
            m_pProvider->m_onWrite = [this] { Count(true); };
            IUnitTextProvider * const provider = m_pProvider.get();
            m_pPage = new AxisPropertyPage(m_pParent, "page", provider, true);
            connect(m_pProvider.get(), &QObject::destroyed, m_pPage, [page = m_pPage.data()] { page->DoKillFocus(); });
        } else {
            m_pPage = new AxisPropertyPage(m_pParent, "page", QStringLiteral("[u]"), true);
        }
        m_pStart = m_pPage->GetStartEdit();
        m_pSelector = m_pPage->findChild<VCComboBoxClassic *>();
        m_pBox = m_pPage->findChild<QCheckBox *>();
        m_path = m_pSelector->GetValueSelection()->GetPathName();
        for (QObject * const object : m_pPage->findChildren<QWidget *>())
            object->installEventFilter(this);
        m_pPage->installEventFilter(this);
    }

    ~Session() override
    {
        m_when = -1;
        delete m_pParent;
    }

    //! \return how many events there were.
    int Run()
    {
        for (int round = 0; round < Rounds; ++round)
            for (int step = 0; step < Steps; ++step) {
                if (m_pPage)
                    Step(step, round);
                Due();
                Count(false);
                Due();
                QCoreApplication::sendPostedEvents(nullptr, 0);
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

private:
    //! \param isInQt  a widget cannot go before Qt is back from it.
    void Count(bool isInQt)
    {
        if (m_count++ != m_when)
            return;
        bool const isWidget = m_target != eSelection && m_target != eProvider;
        if ((isInQt && isWidget) || (m_target == eProvider && isInQt))
            m_isDue = true;
        else
            Delete();
    }

    void Due()
    {
        if (m_isDue)
            Delete();
    }

    void Delete()
    {
        m_isDue = false;
        switch (m_target) {
        case ePage:
            delete m_pPage.data();
            break;
        case eParent:
            delete m_pParent.data();
            break;
        case eProvider:
            m_pProvider.reset();
            break;
        case eSelection:
            Tree::Instance()->Remove(m_path);
            break;
        case eEdit:
            delete m_pStart.data();
            break;
        case eSelector:
            delete m_pSelector.data();
            break;
        default:
            delete m_pBox.data();
            break;
        }
    }

    void StepOfNumbers(int step, int round) const
    {
        switch (step) {
        case 0:
            return m_pPage->SetStart(round, 0.0, 100.0, AxisPropertyPage::NoLimit);
        case 1:
            return m_pPage->SetStop(50.0 + round, 0.0, 100.0, AxisPropertyPage::NoLimit);
        case 2:
            return m_pPage->CheckStart();
        case 3:
            return m_pPage->CheckStop();
        case 4:
            return m_pPage->DoKillFocus();
        case 5:
            return m_pPage->SlotStartEditFinished();
        case 6:
            return m_pPage->SlotStopEditFinished();
        case 7:
            return m_pPage->Show(round, m_pStart);
        default:
            break;
        }
        if (!m_pStart)
            return;
        m_pStart->setFocus();
        m_pStart->selectAll();
        QTest::keyClick(m_pStart, Qt::Key_7);
        if (m_pStart && step == 9)
            QTest::keyClick(m_pStart, Qt::Key_Return);
        if (m_pStart && step == 10)
            m_pStart->clearFocus();
    }

    void StepOfModes(int step, int round) const
    {
        long key = 0;
        switch (step) {
        case 11:
            return m_pPage->SetAutoScale(round % 2 == 0);
        case 12:
            return m_pBox ? m_pBox->click() : m_pPage->SlotEnableAutoScale();
        case 13:
            return m_pPage->SetAzimuthMode(round % 2 == 0);
        case 14:
            m_pPage->GetAzimuthMode(key);
            return;
        case 15:
            if (auto * const selection = SelectionAt(m_path))
                selection->Select(round % 2 == 0 ? 9L : 10L, nullptr);
            return;
        case 16:
            if (m_pSelector)
                QTest::keyClick(m_pSelector, round % 2 == 0 ? Qt::Key_Down : Qt::Key_Up);
            return;
        case 17:
            if (m_pSelector && m_pSelector->isVisible())
                m_pSelector->showPopup();
            return;
        case 18:
            if (m_pSelector)
                m_pSelector->hidePopup();
            return;
        case 19:
            return round == 1 ? m_pParent->hide() : m_pParent->show();
        case 20:
            return m_pPage->setEnabled(round != 2);
        default:
            (void)m_pPage->grab();
        }
    }

    void Step(int step, int round) const
    {
        if (step < 11)
            StepOfNumbers(step, round);
        else
            StepOfModes(step, round);
    }

    ETarget m_target;
    int m_when;
    int m_count = 0;
    bool m_isDue = false;
    QString m_path;
    std::unique_ptr<WidgetProvider> m_pProvider;
    QPointer<QWidget> m_pParent;
    QPointer<AxisPropertyPage> m_pPage;
    QPointer<QLineEdit> m_pStart;
    QPointer<VCComboBoxClassic> m_pSelector;
    QPointer<QCheckBox> m_pBox;
};

} // namespace

class tst_axispropertypage_session : public QObject
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
    int m_pages = 0;
    long long m_grown = 0; // KiB, in the last three quarters of the pages
};

void tst_axispropertypage_session::deletedAfterEachEvent_data()
{
    QTest::addColumn<bool>("provider");
    QTest::addColumn<int>("target");
    for (bool const provider : { false, true })
        for (int target = 0; target < eTargets; ++target)
            if (provider || target != eProvider)
                QTest::addRow("%s: %s", provider ? "with a provider" : "without", Names[target]) << provider << target;
}

void tst_axispropertypage_session::deletedAfterEachEvent()
{
    QFETCH(bool, provider);
    QFETCH(int, target);
    AzimuthMode(5);
    QString const folder = QStringLiteral("/GuiCentral/unique/selection");
    QStringList const before = Tree::Instance()->GetPaths(folder);
    int const events = Session(provider, static_cast<ETarget>(target), -1).Run();
    QVERIFY(events > 300);
    int const stride = static_cast<int>(TestStage::Turns(TestStage::Sanitized() ? 24 : 6, 1));
    for (int when = target % stride; when < events; when += stride) {
        Session(provider, static_cast<ETarget>(target), when).Run();
        ++m_sessions;
        QCOMPARE(Tree::Instance()->GetPaths(folder), before);
    }
}

void tst_axispropertypage_session::leavesNothingBehind()
{
    int const turns = static_cast<int>(TestStage::Turns(TestStage::Sanitized() ? 200 : 1000, 20000));
    QString const folder = QStringLiteral("/GuiCentral/unique/selection");
    AzimuthMode(5);
    QStringList const before = Tree::Instance()->GetPaths(folder);
    WatchedProvider provider;
    long long warm = 0;
    for (int turn = 0; turn < turns; ++turn) {
        AxisPropertyPage page(nullptr, "page", static_cast<IUnitTextProvider *>(&provider), true);
        page.SetStart(turn, 0.0, 100.0, AxisPropertyPage::NoLimit);
        page.SetAzimuthMode(turn % 2 == 0);
        page.show();
        QTest::keyClicks(page.GetStartEdit(), QStringLiteral("5"));
        page.DoKillFocus();
        QVERIFY(page.GetDirty());
        page.hide();
        QCoreApplication::processEvents(); // what Qt keeps for later would count as left behind
        if (turn == turns / 4)
            warm = ResidentSize();
    }
    m_grown = ResidentSize() - warm;
    m_pages = turns;
    QCOMPARE(Tree::Instance()->GetPaths(folder), before);
    if (!TestStage::Sanitized())
        QVERIFY2(m_grown <= 256, qPrintable(QStringLiteral("%1 KiB in %2 pages").arg(m_grown).arg(turns)));
}

void tst_axispropertypage_session::cleanupTestCase()
{
    std::printf("figures: %lld sessions with a page, each with one deletion; %d pages came and went, %lld KiB more\n",
                m_sessions, m_pages, m_grown);
}

ORIM_TEST_MAIN(tst_axispropertypage_session)
#include "tst_axispropertypage_session.moc"
