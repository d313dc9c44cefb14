// SPDX-License-Identifier: MIT
#include "valuenumeric.h"

#include "cpuclock.h"
#include "testmain.h"

#include <cmath>
#include <cstdio>
#include <limits>
#include <memory>
#include <vector>

namespace {

int Warnings = 0;
QtMessageHandler Before = nullptr;

void Count(QtMsgType type, QMessageLogContext const & context, QString const & text)
{
    if (type == QtWarningMsg && text.contains(QLatin1String("notify each other without end")))
        ++Warnings;
    else
        Before(type, context, text);
}

//! How a link of a ring makes the next value from its own.
using Feed = double (*)(double);

//! Follows one value and feeds the next one.
class Link : public IObserver
{
public:
    Link(ValueNumeric<double> & from, ValueNumeric<double> & to, Feed feed) : m_pFrom(&from), m_pTo(&to), m_feed(feed)
    {
        from.AddObserver(this);
    }

    void Update(Observable *, TChangeCode code) override
    {
        ++m_heard;
        if (code == eValueChanged)
            m_pTo->SetNumericValue(m_feed(m_pFrom->GetNumericValue()), nullptr);
    }

    int m_heard = 0;

private:
    ValueNumeric<double> * m_pFrom;
    ValueNumeric<double> * m_pTo;
    Feed m_feed;
};

struct Ring
{
    std::vector<std::unique_ptr<ValueNumeric<double>>> values;
    std::vector<std::unique_ptr<Link>> links;

    Ring(int size, int linksEach, Feed feed)
    {
        auto const count = static_cast<std::size_t>(size);
        for (std::size_t i = 0; i < count; ++i)
            values.push_back(std::make_unique<ValueNumeric<double>>());
        for (int turn = 0; turn < linksEach; ++turn)
            for (std::size_t i = 0; i < count; ++i)
                links.push_back(std::make_unique<Link>(*values[i], *values[(i + 1) % count], feed));
    }
};

struct Kind
{
    char const * name;
    Feed feed;
    double start;
    bool rests; // ends by itself, without a warning
};

constexpr double Tiny = std::numeric_limits<double>::denorm_min();

Kind const Kinds[] = {
    { "copy", [](double v) { return v; }, 1.0, true },
    { "NaN", [](double) { return std::numeric_limits<double>::quiet_NaN(); }, 1.0, true },
    { "minus zero", [](double v) { return -(v * 0.0); }, 1.0, true },
    { "infinity", [](double) { return std::numeric_limits<double>::infinity(); }, 1.0, true },
    { "denormal that vanishes", [](double v) { return v / 2; }, 4 * Tiny, true },
    { "count", [](double v) { return v + 1.0; }, 1.0, false },
    { "denormal count", [](double v) { return v + Tiny; }, Tiny, false },
    { "sign", [](double v) { return v > 0.0 ? -v - 1.0 : -v + 1.0; }, 1.0, false },
};

} // namespace

//! Values that feed each other in rings: every one ends, with one warning when it does not come to rest by itself.
class tst_tree_recursion : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { Before = qInstallMessageHandler(Count); }

    void cleanupTestCase() { qInstallMessageHandler(Before); }

    void everyRingEnds();
};

void tst_tree_recursion::everyRingEnds()
{
    long long const cycles = TestStage::Turns(200, 10000);
    double longest = 0.0; // ms of the processor
    int cut = 0;
    long long heard = 0;
    for (long long cycle = 0; cycle < cycles; ++cycle) {
        Kind const & kind = Kinds[static_cast<std::size_t>(cycle) % std::size(Kinds)];
        int const size = 1 + static_cast<int>(cycle * 37 % 64);
        int const linksEach = cycle % 3 == 0 ? 2 : 1;
        // a ring that is fed twice and cut by the depth of one value doubles with each link
        Ring const ring(linksEach == 2 ? size % 4 + 1 : size, linksEach, kind.feed);
        Warnings = 0;
        CpuClock const clock;
        ring.values[0]->SetNumericValue(kind.start, nullptr);
        longest = std::max(longest, clock.Milliseconds());
        QVERIFY2(Warnings == (kind.rests ? 0 : 1), qPrintable(QStringLiteral("%1, %2 values: %3 warnings")
                                                                  .arg(QLatin1String(kind.name))
                                                                  .arg(ring.values.size())
                                                                  .arg(Warnings)));
        cut += Warnings;
        for (auto const & link : ring.links)
            heard += link->m_heard;
        for (auto const & value : ring.values)
            QVERIFY(std::isfinite(value->GetValue()));
        // the ring is whole again: a value outside the ring's own business is heard
        int const before = ring.links[0]->m_heard;
        ring.values[0]->SetState(eStateDisabled, nullptr);
        QCOMPARE(ring.links[0]->m_heard, before + 1);
    }
    QVERIFY2(longest <= 10.0 || TestStage::Sanitized(), qPrintable(QString::number(longest)));
    std::printf("rings of values: %lld cycles of 1 to 64 values, %d cut with one warning each, %lld notifications, "
                "longest %.2f ms\n",
                cycles, cut, heard, longest);
}

ORIM_CORE_TEST_MAIN(tst_tree_recursion)
#include "tst_tree_recursion.moc"
