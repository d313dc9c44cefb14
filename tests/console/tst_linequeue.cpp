// SPDX-License-Identifier: MIT
#include "linequeue.h"

#include "testmain.h"

#include <atomic>
#include <thread>

namespace {

std::shared_ptr<SpectrumLine const> Line(quint64 number)
{
    auto line = std::make_shared<SpectrumLine>();
    line->number = number;
    return line;
}

} // namespace

class tst_LineQueue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void firstInFirstOut();
    void emptyLeavesTheLine();
    void fullDropsTheOldest();
    void capacityOfNoneIsOne();
    void nullIsIgnored();
    void clearDropsNothing();
    void takenLineIsReleased();
    void twoThreads();
};

void tst_LineQueue::firstInFirstOut()
{
    LineQueue queue(3);
    QCOMPARE(queue.Capacity(), std::size_t(3));
    for (quint64 i = 0; i < 3; ++i)
        queue.Push(Line(i));
    QCOMPARE(queue.Size(), std::size_t(3));
    std::shared_ptr<SpectrumLine const> line;
    for (quint64 i = 0; i < 3; ++i) {
        QVERIFY(queue.Take(line));
        QCOMPARE(line->number, i);
    }
    QCOMPARE(queue.Size(), std::size_t(0));
    QCOMPARE(queue.Dropped(), quint64(0));
}

void tst_LineQueue::emptyLeavesTheLine()
{
    LineQueue queue(3);
    std::shared_ptr<SpectrumLine const> line = Line(7);
    QVERIFY(!queue.Take(line));
    QCOMPARE(line->number, quint64(7));
}

void tst_LineQueue::fullDropsTheOldest()
{
    LineQueue queue(2);
    for (quint64 i = 0; i < 5; ++i)
        queue.Push(Line(i));
    QCOMPARE(queue.Dropped(), quint64(3));
    QCOMPARE(queue.Size(), std::size_t(2));
    std::shared_ptr<SpectrumLine const> line;
    QVERIFY(queue.Take(line));
    QCOMPARE(line->number, quint64(3));
}

void tst_LineQueue::capacityOfNoneIsOne()
{
    LineQueue queue(0);
    QCOMPARE(queue.Capacity(), std::size_t(1));
    queue.Push(Line(1));
    queue.Push(Line(2));
    std::shared_ptr<SpectrumLine const> line;
    QVERIFY(queue.Take(line));
    QCOMPARE(line->number, quint64(2));
    QCOMPARE(queue.Dropped(), quint64(1));
}

void tst_LineQueue::nullIsIgnored()
{
    LineQueue queue(1);
    queue.Push(Line(1));
    queue.Push(nullptr);
    QCOMPARE(queue.Size(), std::size_t(1));
    QCOMPARE(queue.Dropped(), quint64(0));
}

void tst_LineQueue::clearDropsNothing()
{
    LineQueue queue(4);
    queue.Push(Line(1));
    queue.Push(Line(2));
    queue.Clear();
    QCOMPARE(queue.Size(), std::size_t(0));
    QCOMPARE(queue.Dropped(), quint64(0));
}

void tst_LineQueue::takenLineIsReleased()
{
    LineQueue queue(4);
    std::shared_ptr<SpectrumLine const> line = Line(1);
    std::weak_ptr<SpectrumLine const> const watch = line;
    queue.Push(std::move(line));
    QVERIFY(queue.Take(line));
    line.reset();
    QVERIFY(watch.expired());
}

void tst_LineQueue::twoThreads()
{
    constexpr quint64 count = 100000;
    LineQueue queue(16);
    std::atomic<bool> ready{ false };
    std::thread producer([&queue, &ready] {
        for (quint64 i = 0; i < count; ++i)
            queue.Push(Line(i));
        ready = true;
    });
    quint64 taken = 0;
    quint64 next = 0;
    bool ascending = true;
    std::shared_ptr<SpectrumLine const> line;
    for (bool last = false; !last;) {
        last = ready; // asked before the queue is emptied for the last time
        while (queue.Take(line)) {
            ascending = ascending && line->number >= next;
            next = line->number + 1;
            ++taken;
        }
    }
    producer.join();
    QVERIFY(ascending);
    QCOMPARE(next, count);
    QCOMPARE(taken + queue.Dropped(), count);
}

ORIM_CORE_TEST_MAIN(tst_LineQueue)
#include "tst_linequeue.moc"
