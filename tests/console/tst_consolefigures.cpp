// SPDX-License-Identifier: MIT
#include "consolefigures.h"

#include "processload.h"

#include "testmain.h"

#include <sys/resource.h>

#include <thread>

Q_DECLARE_METATYPE(ConsoleFigures)

namespace {

//! Processor time of this process, s.
double Used()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    auto const seconds = [](timeval const & time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

//! Uses the processor up.
void Work()
{
    double const begin = Used();
    while (Used() - begin < 0.05) {}
}

} // namespace

class tst_ConsoleFigures : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void text_data();
    void text();
    void load_data();
    void load();
};

void tst_ConsoleFigures::text_data()
{
    QTest::addColumn<ConsoleFigures>("figures");
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing yet") << ConsoleFigures()
                                 << "lines: 0 produced, 0 taken, 0 painted in 0 frames, 0 dropped, 0 skipped; "
                                    "cpu: 0.0 % of one core; frame time: 0.00 ms mean, 0.00 ms max";
    QTest::newRow("each at its place") << ConsoleFigures{ 1, 2, 3, 4, 5, 6, 7.0, 8.0, 9.0 }
                                       << "lines: 1 produced, 2 taken, 3 painted in 4 frames, 5 dropped, 6 skipped; "
                                          "cpu: 7.0 % of one core; frame time: 8.00 ms mean, 9.00 ms max";
    QTest::newRow("decimals") << ConsoleFigures{ 0, 0, 0, 0, 0, 0, 123.46, 0.126, 12.344 }
                              << "lines: 0 produced, 0 taken, 0 painted in 0 frames, 0 dropped, 0 skipped; "
                                 "cpu: 123.5 % of one core; frame time: 0.13 ms mean, 12.34 ms max";
    QTest::newRow("large counts") << ConsoleFigures{ 18446744073709551615ULL, 0, 0, 0, 0, 10000000000ULL, 0, 0, 0 }
                                  << "lines: 18446744073709551615 produced, 0 taken, 0 painted in 0 frames, 0 dropped, "
                                     "10000000000 skipped; cpu: 0.0 % of one core; frame time: 0.00 ms mean, 0.00 ms "
                                     "max";
}

void tst_ConsoleFigures::text()
{
    QFETCH(ConsoleFigures, figures);
    QFETCH(QString, text);
    QCOMPARE(figures.ToText(), text);
}

void tst_ConsoleFigures::load_data()
{
    QTest::addColumn<bool>("elsewhere");
    QTest::newRow("work of this thread") << false;
    QTest::newRow("work of another thread") << true;
}

//! Between what was used for certain and what was used at most, over the time that it takes itself.
void tst_ConsoleFigures::load()
{
    QFETCH(bool, elsewhere);
    double const before = Used();
    ProcessLoad const load;
    double const begin = Used();
    if (elsewhere)
        std::thread(Work).join();
    else
        Work();
    double const end = Used();
    double const least = load.Seconds();
    double const percent = load.Percent();
    double const most = load.Seconds();
    double const after = Used();
    double const rounding = 1e-5; // s: the parts of a time are cut to microseconds
    QVERIFY(least > 0.0 && most >= least);
    QVERIFY2(percent >= 100.0 * (end - begin - rounding) / most, QByteArray::number(percent).constData());
    QVERIFY2(percent <= 100.0 * (after - before + rounding) / least, QByteArray::number(percent).constData());
}

ORIM_CORE_TEST_MAIN(tst_ConsoleFigures)
#include "tst_consolefigures.moc"
