// SPDX-License-Identifier: MIT
// Notification of 1, 10 and 1000 observers: an observable, a value, Qt signals, and the limit: a list of function
// pointers that may change while it is walked.

#include "observable.h"
#include "value.h"

#include <QObject>

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <memory>
#include <vector>

namespace {

class Counter : public IObserver
{
public:
    void Update(Observable *, TChangeCode code) override { m_sum += code; }

    long long m_sum = 0;
};

//! The limit: function pointers with a context, walked by index up to the size at the start, removal by null.
class Callbacks
{
public:
    using Function = void (*)(void * context, int code);

    void Add(Function function, void * context) { m_entries.push_back({ function, context }); }

    __attribute__((noinline)) void Notify(int code)
    {
        ++m_depth;
        std::size_t const end = m_entries.size();
        for (std::size_t i = 0; i < end; ++i) {
            Entry const entry = m_entries[i];
            if (entry.function)
                entry.function(entry.context, code);
        }
        --m_depth;
    }

private:
    struct Entry
    {
        Function function;
        void * context;
    };

    std::vector<Entry> m_entries;
    int m_depth = 0;
};

void AddTo(void * context, int code) { *static_cast<long long *>(context) += code; }

class Sender : public QObject
{
    Q_OBJECT

public:
    void Send(int code) { Q_EMIT signalChanged(code); }

Q_SIGNALS:
    void signalChanged(int code);
};

class Receiver : public QObject
{
    Q_OBJECT

public:
    long long m_sum = 0;

public Q_SLOTS:

    void slotChanged(int code) { m_sum += code; }
};

void Require(bool right)
{
    if (!right) {
        std::fprintf(stderr, "wrong result\n");
        std::abort();
    }
}

void NotifyLimit(benchmark::State & state)
{
    std::vector<long long> sums(static_cast<std::size_t>(state.range(0)));
    Callbacks callbacks;
    for (long long & sum : sums)
        callbacks.Add(AddTo, &sum);
    callbacks.Notify(3);
    for (long long const sum : sums)
        Require(sum == 3);
    for (auto _ : state) {
        callbacks.Notify(3);
        benchmark::ClobberMemory();
    }
}

void NotifyObservable(benchmark::State & state)
{
    std::vector<Counter> counters(static_cast<std::size_t>(state.range(0)));
    Observable subject;
    for (Counter & counter : counters)
        subject.AddObserver(&counter);
    subject.NotifyObservers(eValueChanged, nullptr);
    for (Counter const & counter : counters)
        Require(counter.m_sum == 3);
    Observable * face = &subject;
    benchmark::DoNotOptimize(face);
    for (auto _ : state) {
        face->NotifyObservers(eValueChanged, nullptr);
        benchmark::ClobberMemory();
    }
}

//! The whole road: compare, store, notify.
void NotifySetValue(benchmark::State & state)
{
    std::vector<Counter> counters(static_cast<std::size_t>(state.range(0)));
    Value<int> value;
    for (Counter & counter : counters)
        value.AddObserver(&counter);
    value.SetValue(1, nullptr);
    value.SetValue(1, nullptr);
    for (Counter const & counter : counters)
        Require(counter.m_sum == 3);
    int content = 1;
    for (auto _ : state) {
        value.SetValue(++content, nullptr);
        benchmark::ClobberMemory();
    }
}

template <class Connect>
void NotifySignal(benchmark::State & state, Connect const & connect)
{
    Sender sender;
    std::vector<std::unique_ptr<Receiver>> receivers;
    for (int i = 0; i < state.range(0); ++i) {
        receivers.push_back(std::make_unique<Receiver>());
        connect(&sender, receivers.back().get());
    }
    sender.Send(3);
    for (auto const & receiver : receivers)
        Require(receiver->m_sum == 3);
    for (auto _ : state) {
        sender.Send(3);
        benchmark::ClobberMemory();
    }
}

void NotifyQtSignalByString(benchmark::State & state)
{
    NotifySignal(state, [](Sender * from, Receiver * to) {
        QObject::connect(from, SIGNAL(signalChanged(int)), to, SLOT(slotChanged(int)));
    });
}

void NotifyQtSignalByPointer(benchmark::State & state)
{
    NotifySignal(state, [](Sender * from, Receiver * to) {
        QObject::connect(from, &Sender::signalChanged, to, &Receiver::slotChanged);
    });
}

BENCHMARK(NotifyLimit)->Name("Notify/limit")->Arg(1)->Arg(10)->Arg(1000);
BENCHMARK(NotifyObservable)->Name("Notify/ours")->Arg(1)->Arg(10)->Arg(1000);
BENCHMARK(NotifySetValue)->Name("Notify/ours-set-value")->Arg(1)->Arg(10)->Arg(1000);
BENCHMARK(NotifyQtSignalByString)->Name("Notify/qt-by-string")->Arg(1)->Arg(10)->Arg(1000);
BENCHMARK(NotifyQtSignalByPointer)->Name("Notify/qt-by-pointer")->Arg(1)->Arg(10)->Arg(1000);

} // namespace

#include "bench_notify.moc"
