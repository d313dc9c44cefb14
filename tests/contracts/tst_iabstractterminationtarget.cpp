// SPDX-License-Identifier: MIT
#include "iabstractterminationtarget.h"
#include "testmain.h"

#include <QTimer>

#include <functional>
#include <memory>
#include <type_traits>

namespace {

//! Writes its name down when it is told, then does something.
class Target : public IAbstractTerminationTarget
{
public:
    Target(QString const & name, QStringList & told) : m_name(name), m_told(told) {}

    void aboutToTerminate() override
    {
        m_told.append(m_name);
        if (action)
            action();
    }

    std::function<void()> action;

private:
    QString m_name;
    QStringList & m_told;
};

} // namespace

class tst_IAbstractTerminationTarget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ToldYoungestFirst();
    void ToldOnEveryCall();
    void GoneIsNotTold();
    void MayDieMeanwhile_data();
    void MayDieMeanwhile();
    void MayDestroyItself();
    void BuiltMeanwhileIsNotTold();
    void CallFromInsideDoesNothing();
    void DoesNothingUnlessOverridden();
    void DeletedThroughTheBase();
    void ApplicationsEndTells();
    void cleanup();
};

void tst_IAbstractTerminationTarget::cleanup() { QCOMPARE(IAbstractTerminationTarget::GetCount(), 0); }

void tst_IAbstractTerminationTarget::ToldYoungestFirst()
{
    QStringList told;
    Target const a(QStringLiteral("a"), told);
    Target const b(QStringLiteral("b"), told);
    Target const c(QStringLiteral("c"), told);
    QCOMPARE(IAbstractTerminationTarget::GetCount(), 3);
    IAbstractTerminationTarget::TerminateAll();
    QCOMPARE(told, QStringList({ "c", "b", "a" }));
}

void tst_IAbstractTerminationTarget::ToldOnEveryCall()
{
    QStringList told;
    Target const a(QStringLiteral("a"), told);
    IAbstractTerminationTarget::TerminateAll();
    IAbstractTerminationTarget::TerminateAll();
    QCOMPARE(told, QStringList({ "a", "a" }));
}

void tst_IAbstractTerminationTarget::GoneIsNotTold()
{
    QStringList told;
    Target const a(QStringLiteral("a"), told);
    auto b = std::make_unique<Target>(QStringLiteral("b"), told);
    Target const c(QStringLiteral("c"), told);
    auto d = std::make_unique<Target>(QStringLiteral("d"), told);
    b.reset(); // from the middle
    d.reset(); // the youngest
    Target const e(QStringLiteral("e"), told);
    IAbstractTerminationTarget::TerminateAll();
    QCOMPARE(told, QStringList({ "e", "c", "a" }));
}

void tst_IAbstractTerminationTarget::MayDieMeanwhile_data()
{
    QTest::addColumn<int>("speaker");
    QTest::addColumn<QVector<int>>("victims");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("the next one dies") << 3 << QVector<int>{ 2 } << QStringList{ "3", "1", "0" };
    QTest::newRow("the next two die") << 3 << QVector<int>{ 2, 1 } << QStringList{ "3", "0" };
    QTest::newRow("the next two die, the further one first") << 3 << QVector<int>{ 1, 2 } << QStringList{ "3", "0" };
    QTest::newRow("the last one dies") << 3 << QVector<int>{ 0 } << QStringList{ "3", "2", "1" };
    QTest::newRow("all others die") << 3 << QVector<int>{ 0, 1, 2 } << QStringList{ "3" };
    QTest::newRow("one that was told dies") << 1 << QVector<int>{ 3 } << QStringList{ "3", "2", "1", "0" };
    QTest::newRow("neighbours on both sides die") << 2 << QVector<int>{ 3, 1 } << QStringList{ "3", "2", "0" };
}

void tst_IAbstractTerminationTarget::MayDieMeanwhile()
{
    QFETCH(int, speaker);
    QFETCH(QVector<int>, victims);
    QFETCH(QStringList, expected);
    QStringList told;
    std::vector<std::unique_ptr<Target>> targets;
    for (int i = 0; i < 4; ++i)
        targets.push_back(std::make_unique<Target>(QString::number(i), told));
    targets[static_cast<size_t>(speaker)]->action = [&targets, &victims] {
        for (int const victim : victims)
            targets[static_cast<size_t>(victim)].reset();
    };
    IAbstractTerminationTarget::TerminateAll();
    QCOMPARE(told, expected);
}

void tst_IAbstractTerminationTarget::MayDestroyItself()
{
    QStringList told;
    Target const a(QStringLiteral("a"), told);
    auto * const b = new Target(QStringLiteral("b"), told);
    Target const c(QStringLiteral("c"), told);
    b->action = [b] { delete b; };
    IAbstractTerminationTarget::TerminateAll();
    QCOMPARE(told, QStringList({ "c", "b", "a" }));
    IAbstractTerminationTarget::TerminateAll();
    QCOMPARE(told, QStringList({ "c", "b", "a", "c", "a" }));
}

void tst_IAbstractTerminationTarget::BuiltMeanwhileIsNotTold()
{
    QStringList told;
    Target a(QStringLiteral("a"), told);
    std::unique_ptr<Target> late;
    a.action = [&] {
        if (!late)
            late = std::make_unique<Target>(QStringLiteral("late"), told);
    };
    IAbstractTerminationTarget::TerminateAll();
    QCOMPARE(told, QStringList({ "a" }));
    IAbstractTerminationTarget::TerminateAll();
    QCOMPARE(told, QStringList({ "a", "late", "a" }));
}

void tst_IAbstractTerminationTarget::CallFromInsideDoesNothing()
{
    QStringList told;
    Target const a(QStringLiteral("a"), told);
    Target b(QStringLiteral("b"), told);
    b.action = [] { IAbstractTerminationTarget::TerminateAll(); };
    IAbstractTerminationTarget::TerminateAll();
    QCOMPARE(told, QStringList({ "b", "a" }));
}

void tst_IAbstractTerminationTarget::DoesNothingUnlessOverridden()
{
    IAbstractTerminationTarget target;
    target.aboutToTerminate();
    IAbstractTerminationTarget::TerminateAll();
    QCOMPARE(IAbstractTerminationTarget::GetCount(), 1);
}

void tst_IAbstractTerminationTarget::DeletedThroughTheBase()
{
    static_assert(std::has_virtual_destructor<IAbstractTerminationTarget>::value, "deleted through the base");
    QStringList told;
    auto const kept = std::make_shared<int>(0);
    auto target = std::make_unique<Target>(QStringLiteral("a"), told);
    target->action = [kept] { ++*kept; };
    std::unique_ptr<IAbstractTerminationTarget> base = std::move(target);
    QCOMPARE(kept.use_count(), 2L);
    base.reset();
    QCOMPARE(kept.use_count(), 1L); // the whole target has gone, not its base alone
    QCOMPARE(IAbstractTerminationTarget::GetCount(), 0);
}

void tst_IAbstractTerminationTarget::ApplicationsEndTells()
{
    for (int run = 0; run < 2; ++run) { // a second application object in the process tells as well
        QStringList told;
        Target const a(QStringLiteral("a"), told);
        int argc = 1;
        char name[] = "application";
        char * argv[] = { name, nullptr };
        QCoreApplication application(argc, argv);
        QTimer::singleShot(0, &application, [] { QCoreApplication::quit(); });
        QCOMPARE(application.exec(), 0);
        QCOMPARE(told, QStringList({ "a" }));
    }
}

// no application object: the test builds its own
int main(int argc, char * argv[])
{
    TestStage::BeforeApplication();
    tst_IAbstractTerminationTarget test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_iabstractterminationtarget.moc"
