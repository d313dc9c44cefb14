// SPDX-License-Identifier: MIT
// Unique values and operations are made, used and given back, over and over: nothing is left behind.

#include "guicentral.h"

#include "ownstore.h"
#include "testmain.h"
#include "uniquevalues.h"

#include <QElapsedTimer>
#include <QFile>

#include <unistd.h>

#include <cstdio>

namespace {

constexpr int RoundLength = 100; // turns up to a termination: numeric operations pile up until then

//! Memory of this process that is in use, KiB.
long long ResidentSize()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE) / 1024;
}

//! Counts what it hears.
class Reader : public IObserver
{
public:
    void Update(Observable * /*subject*/, TChangeCode /*code*/) override { ++m_heard; }

    long long m_heard = 0;
};

} // namespace

class tst_GuiCentralChurn : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void leavesNothingBehind();

private:
    void Turn(Central & central, int number, Reader & reader);
};

//! One pane that comes and goes.
void tst_GuiCentralChurn::Turn(Central & central, int number, Reader & reader)
{
    Tree & tree = *Tree::Instance();
    QStringList paths;
    for (Creator const & creator : Creators)
        paths << creator.create(central);
    paths << central.CreateUniqueAgeingStepsSelection() << central.CreateUniqueHistogramTilesSelection()
          << central.CloneUniqueValueInt(nullptr) << OfInt(central, BoolOperation::eEqual)
          << OfPath(central, BoolOperation::eLess) << central.CreateNumericOperation(Path("source"), 2.0, 0U)
          << central.CreateNumericCoupler(Path("source"), 2.0, 0U)
          << central.CreateSelectionCoupledToBool(Path("flag"), number % 2 == 0);
    for (QString const & path : paths)
        tree.Find(path)->AddObserver(&reader);
    Find<Whole>(Path("source"))->SetValue(number % 7, nullptr);
    Find<Flag>(Path("flag"))->SetValue(number % 3 == 0, nullptr);
    for (int i = 0; i < paths.size(); ++i)
        if ((number + i) % 3 != 0) // the rest waits for the end
            tree.Remove(paths[i]);
    if (number % RoundLength == RoundLength - 1)
        central.aboutToTerminate();
}

void tst_GuiCentralChurn::leavesNothingBehind()
{
    OwnStore<> store;
    store.Begin();
    long long const turns = TestStage::Turns(2500, 250000); // of 16 values each
    auto * const source = Insert<Whole>("source");
    auto * const flag = Insert<Flag>("flag");
    Insert<Whole>("operand")->SetValue(5, nullptr);
    int const values = Tree::Instance()->GetCount();
    GuiCentralAccess central;
    Reader reader;
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 10 * RoundLength; ++i) // warm up
        Turn(central, i, reader);
    long long const before = ResidentSize();
    for (long long i = 0; i < turns; ++i)
        Turn(central, static_cast<int>(i % 1000000), reader);
    central.aboutToTerminate();
    long long const growth = ResidentSize() - before;
    std::printf("figures: values=%lld heard=%lld growth_kib=%lld ms=%lld\n", 16 * turns, reader.m_heard, growth,
                static_cast<long long>(timer.elapsed()));
    QVERIFY(reader.m_heard > turns * 16); // each farewell, and what was computed
    QCOMPARE(Tree::Instance()->GetCount(), values);
    QCOMPARE(source->GetObserverCount(), 0);
    QCOMPARE(flag->GetObserverCount(), 0);
    if (!TestStage::Sanitized()) // the sanitizers keep what was freed
        QVERIFY2(growth <= 256, QByteArray::number(growth).constData());
}

ORIM_TEST_MAIN(tst_GuiCentralChurn)
#include "tst_guicentral_churn.moc"
