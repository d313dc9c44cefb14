// SPDX-License-Identifier: MIT
#include "rangestep.h"

#include "testmain.h"
#include "tree.h"
#include "valuenumeric.h"

#include <QUndoStack>

class tst_RangeStep : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void writesTheRangeBothWays();
    void pushingWhatIsShownNotifiesNobody();
    void endsHoldNotEachOtherBack_data();
    void endsHoldNotEachOtherBack();
    void repeatsBecomeOneStep_data();
    void repeatsBecomeOneStep();
    void valuesThatHaveGoneAreLeftOut();
    void rangesBeyondTheLimitsAreLeftAlone_data();
    void rangesBeyondTheLimitsAreLeftAlone();

private:
    void Push(RangeStep::Range before, RangeStep::Range after, bool isRepeat = false,
              QString const & stop = QStringLiteral("/test/stop"));

    QUndoStack m_stack;
};

namespace {

ValueNumeric<double> * End(char const * name)
{
    return Tree::Instance()->FindAs<ValueNumeric<double>>(QStringLiteral("/test/") + QLatin1String(name));
}

struct Counter : IObserver
{
    void Update(Observable * subject, TChangeCode code) override
    {
        Q_UNUSED(subject)
        Q_UNUSED(code)
        ++m_count;
    }

    int m_count = 0;
};

} // namespace

void tst_RangeStep::init()
{
    m_stack.clear();
    for (char const * const name : { "start", "stop", "other" })
        Tree::Instance()->Insert(QStringLiteral("/test"), new ValueNumeric<double>(QLatin1String(name)));
    End("start")->SetValue(10.0, nullptr);
    End("stop")->SetValue(20.0, nullptr);
}

void tst_RangeStep::cleanup()
{
    for (char const * const path : { "/test/start", "/test/stop", "/test/other" })
        Tree::Instance()->Remove(QLatin1String(path));
}

void tst_RangeStep::Push(RangeStep::Range before, RangeStep::Range after, bool isRepeat, QString const & stop)
{
    m_stack.push(new RangeStep(QStringLiteral("Move"), QStringLiteral("/test/start"), stop, before, after, isRepeat));
}

void tst_RangeStep::writesTheRangeBothWays()
{
    Push({ 10.0, 20.0 }, { 12.0, 22.0 });
    QCOMPARE(m_stack.text(0), QStringLiteral("Move"));
    QCOMPARE(End("start")->GetValue(), 12.0);
    QCOMPARE(End("stop")->GetValue(), 22.0);
    m_stack.undo();
    QCOMPARE(End("start")->GetValue(), 10.0);
    QCOMPARE(End("stop")->GetValue(), 20.0);
    m_stack.redo();
    QCOMPARE(End("start")->GetValue(), 12.0);
    QCOMPARE(End("stop")->GetValue(), 22.0);
}

void tst_RangeStep::pushingWhatIsShownNotifiesNobody()
{
    Counter counter;
    End("start")->AddObserver(&counter);
    End("stop")->AddObserver(&counter);
    Push({ 5.0, 15.0 }, { 10.0, 20.0 });
    QCOMPARE(counter.m_count, 0);
    m_stack.undo();
    QCOMPARE(counter.m_count, 2);
}

void tst_RangeStep::endsHoldNotEachOtherBack_data()
{
    QTest::addColumn<double>("start");
    QTest::newRow("far up") << 1000.0;
    QTest::newRow("far down") << -1000.0;
}

void tst_RangeStep::endsHoldNotEachOtherBack()
{
    QFETCH(double, start);

    // as the levels of the console: neither end passes the other one
    struct Limits : IObserver
    {
        void Update(Observable * subject, TChangeCode code) override
        {
            Q_UNUSED(subject)
            if (code != eValueChanged)
                return;
            End("start")->SetMinMax(-1e6, End("stop")->GetValue() - 1.0, 0.0, this);
            End("stop")->SetMinMax(End("start")->GetValue() + 1.0, 1e6, 0.0, this);
        }
    } limits;

    End("start")->AddObserver(&limits);
    End("stop")->AddObserver(&limits);
    limits.Update(nullptr, eValueChanged);
    Push({ 10.0, 20.0 }, { start, start + 10.0 });
    QCOMPARE(End("start")->GetValue(), start);
    QCOMPARE(End("stop")->GetValue(), start + 10.0);
    m_stack.undo();
    QCOMPARE(End("start")->GetValue(), 10.0);
    QCOMPARE(End("stop")->GetValue(), 20.0);
}

void tst_RangeStep::repeatsBecomeOneStep_data()
{
    QTest::addColumn<bool>("repeat");
    QTest::addColumn<QString>("stop");
    QTest::addColumn<int>("count");
    QTest::newRow("a repeat") << true << "/test/stop" << 1;
    QTest::newRow("no repeat") << false << "/test/stop" << 2;
    QTest::newRow("a repeat of another range") << true << "/test/other" << 2;
}

void tst_RangeStep::repeatsBecomeOneStep()
{
    QFETCH(bool, repeat);
    QFETCH(QString, stop);
    Push({ 10.0, 20.0 }, { 12.0, 22.0 });
    Push({ 12.0, 22.0 }, { 14.0, 24.0 }, repeat, stop);
    QTEST(m_stack.count(), "count");
    QCOMPARE(End("start")->GetValue(), 14.0);
    m_stack.undo();
    QCOMPARE(End("start")->GetValue(), m_stack.count() == 1 ? 10.0 : 12.0);
    m_stack.redo();
    QCOMPARE(End("start")->GetValue(), 14.0);
}

void tst_RangeStep::valuesThatHaveGoneAreLeftOut()
{
    Push({ 10.0, 20.0 }, { 12.0, 22.0 });
    Tree::Instance()->Remove(QStringLiteral("/test/start"));
    m_stack.undo();
    QCOMPARE(End("stop")->GetValue(), 20.0);
    Tree::Instance()->Remove(QStringLiteral("/test/stop"));
    m_stack.redo();
}

void tst_RangeStep::rangesBeyondTheLimitsAreLeftAlone_data()
{
    QTest::addColumn<double>("start"); // of the range, which is 10 wide
    QTest::addColumn<double>("shown");
    QTest::newRow("above") << 150.0 << 50.0;
    QTest::newRow("from the upper limit on") << 100.0 << 50.0;
    QTest::newRow("below") << -50.0 << 50.0;
    QTest::newRow("up to the lower limit") << -10.0 << 50.0;
    QTest::newRow("over the upper limit") << 95.0 << 95.0;
    QTest::newRow("over the lower limit") << -5.0 << 0.0;
}

void tst_RangeStep::rangesBeyondTheLimitsAreLeftAlone()
{
    QFETCH(double, start);
    Push({ start, start + 10.0 }, { 50.0, 60.0 });
    for (char const * const name : { "start", "stop" })
        End(name)->SetMinMax(0.0, 100.0, 0.0, nullptr);
    m_stack.undo();
    QTEST(End("start")->GetValue(), "shown");
}

ORIM_TEST_MAIN(tst_RangeStep)
#include "tst_rangestep.moc"
