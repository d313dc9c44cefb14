// SPDX-License-Identifier: MIT
#include "lineplayer.h"

#include "isamplesource.h"
#include "linequeue.h"
#include "lineworker.h"
#include "testmain.h"

#include <QElapsedTimer>
#include <QSignalSpy>

#include <algorithm>
#include <atomic>
#include <cmath>

namespace {

//! A silent source.
class TestSource : public ISampleSource
{
public:
    explicit TestSource(qint64 length, std::atomic<int> * alive = nullptr, double rate = 1000.0)
        : m_length(length)
        , m_alive(alive)
        , m_rate(rate)
    {
        if (m_alive)
            ++*m_alive;
    }

    ~TestSource() override
    {
        if (m_alive)
            --*m_alive;
    }

    double SampleRate() const override { return m_rate; }

    bool IsReal() const override { return false; }

    double CentreFrequency(qint64 /*position*/) const override { return 5e6; }

    qint64 Length() const override { return m_length; }

    qint64 Read(std::complex<float> * out, qint64 count) override
    {
        std::fill_n(out, count, std::complex<float>(0.5F, 0.0F));
        return count;
    }

    void Seek(qint64 sample) override { m_position = sample; }

    qint64 Position() const override { return m_position; }

private:
    qint64 m_length;
    std::atomic<int> * m_alive;
    double m_rate;
    qint64 m_position = 0;
};

//! A source that is slow to answer, and tells whether it is being read.
class SlowSource : public TestSource
{
public:
    explicit SlowSource(std::atomic<bool> & isRead) : TestSource(0), m_isRead(isRead) {}

    qint64 Read(std::complex<float> * out, qint64 count) override
    {
        m_isRead = true;
        QThread::msleep(100); // as a device would
        qint64 const got = TestSource::Read(out, count);
        m_isRead = false;
        return got;
    }

private:
    std::atomic<bool> & m_isRead;
};

std::unique_ptr<ISampleSource> Source(qint64 length) { return std::make_unique<TestSource>(length); }

std::vector<std::shared_ptr<SpectrumLine const>> TakeAll(LinePlayer & player)
{
    std::vector<std::shared_ptr<SpectrumLine const>> lines;
    std::shared_ptr<SpectrumLine const> line;
    while (player.TakeLine(line))
        lines.push_back(line);
    return lines;
}

//! Waits without the event loop until the player has made a number of lines, for at most ten seconds.
bool WaitForLines(LinePlayer const & player, quint64 count)
{
    QElapsedTimer clock;
    clock.start();
    while (player.Produced() < count && clock.elapsed() < 10000)
        QThread::yieldCurrentThread();
    return player.Produced() >= count;
}

} // namespace

class tst_LinePlayer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void standsUntilStarted();
    void settings();
    void badSettings_data();
    void badSettings();
    void linesCountFromZero();
    void linesHaveTheBins();
    void oneSignalABatch();
    void signalComesInTheThreadOfThePlayer();
    void exactRate();
    void fullQueueDropsTheOldest();
    void positionFollowsTheSpeed();
    void endlessGoesOn();
    void recordingIsARing();
    void pauseStands();
    void seekWhilePaused();
    void seek_data();
    void seek();
    void seekBeforeStart();
    void seekOnItsWay();
    void seekOfADurationThatIsNotFinite();
    void orderAfterAStallCountsWhatItSkips();
    void stopIsSafeTwice();
    void stopWaitsForARead();
    void startGoesOn();
    void changesWhilePlaying();
    void deletedWhilePlaying();
    void deletedInItsSignal();
    void sourceIsFreed();
    void noSource();
};

void tst_LinePlayer::standsUntilStarted()
{
    LinePlayer player(Source(5000));
    QCOMPARE(player.Duration(), 5.0);
    QCOMPARE(player.Position(), 0.0);
    QCOMPARE(player.Produced(), quint64(0));
    QCOMPARE(player.Dropped(), quint64(0));
    QCOMPARE(player.Skipped(), quint64(0));
    QVERIFY(player.IsPlaying());
    QVERIFY(TakeAll(player).empty());
}

void tst_LinePlayer::settings()
{
    LinePlayer player(Source(5000));
    QCOMPARE(player.Bins(), 1024);
    QCOMPARE(player.LineRate(), 50.0);
    QCOMPARE(player.GetWindow(), SpectrumEngine::eWindowHann);
    QCOMPARE(player.Averaging(), 0);
    QCOMPARE(player.Speed(), 1.0);
    player.SetBins(4096);
    player.SetLineRate(25.0);
    player.SetWindow(SpectrumEngine::eWindowKaiser);
    player.SetAveraging(4);
    player.SetSpeed(2.0);
    QCOMPARE(player.Bins(), 4096);
    QCOMPARE(player.LineRate(), 25.0);
    QCOMPARE(player.GetWindow(), SpectrumEngine::eWindowKaiser);
    QCOMPARE(player.Averaging(), 4);
    QCOMPARE(player.Speed(), 2.0);
}

void tst_LinePlayer::badSettings_data()
{
    QTest::addColumn<double>("value");
    QTest::newRow("NaN") << qQNaN();
    QTest::newRow("infinite") << qInf();
    QTest::newRow("minus infinite") << -qInf();
    QTest::newRow("below 0") << -1.0;
    QTest::newRow("above the most") << 1000.5;
    QTest::newRow("below the least") << 0.0009;
    QTest::newRow("0") << 0.0;
}

void tst_LinePlayer::badSettings()
{
    QFETCH(double, value);
    LinePlayer player(Source(5000));
    player.SetLineRate(value);
    player.SetSpeed(value);
    player.SetBins(1000);
    player.SetWindow(SpectrumEngine::eWindowCount);
    player.SetWindow(static_cast<SpectrumEngine::Window>(-1));
    player.SetAveraging(65);
    player.SetAveraging(-1);
    QCOMPARE(player.LineRate(), 50.0);
    QCOMPARE(player.Speed(), 1.0);
    QCOMPARE(player.Bins(), 1024);
    QCOMPARE(player.GetWindow(), SpectrumEngine::eWindowHann);
    QCOMPARE(player.Averaging(), 0);
    player.SetLineRate(0.1);
    player.SetSpeed(0.001);
    QCOMPARE(player.LineRate(), 0.1);
    QCOMPARE(player.Speed(), 0.001);
    player.SetLineRate(1000.0);
    player.SetSpeed(1000.0);
    QCOMPARE(player.LineRate(), 1000.0);
    QCOMPARE(player.Speed(), 1000.0);
}

void tst_LinePlayer::linesCountFromZero()
{
    LinePlayer player(Source(5000));
    player.SetLineRate(200.0);
    player.Start();
    std::vector<std::shared_ptr<SpectrumLine const>> lines;
    QElapsedTimer clock;
    clock.start();
    while (lines.size() < 40 && clock.elapsed() < 10000) {
        for (auto const & line : TakeAll(player))
            lines.push_back(line);
        QThread::yieldCurrentThread();
    }
    QVERIFY(lines.size() >= 40);
    for (std::size_t i = 0; i < lines.size(); ++i)
        QCOMPARE(lines[i]->number, quint64(i));
    QCOMPARE(lines[0]->seconds, 0.0025);
    QCOMPARE(lines[0]->centre, 5e6);
    QCOMPARE(lines[0]->span, 1000.0);
    QCOMPARE(player.Dropped(), quint64(0));
}

void tst_LinePlayer::linesHaveTheBins()
{
    LinePlayer player(Source(5000));
    player.SetBins(64);
    player.SetLineRate(200.0);
    player.Start();
    QVERIFY(WaitForLines(player, 2));
    auto const lines = TakeAll(player);
    QVERIFY(!lines.empty());
    for (auto const & line : lines)
        QCOMPARE(line->levels.size(), std::size_t(64));
    QVERIFY(std::abs(lines[0]->levels[32] + 6.02) < 0.01);
}

void tst_LinePlayer::oneSignalABatch()
{
    LinePlayer player(Source(5000));
    QSignalSpy const linesSpy(&player, &LinePlayer::signalLines);
    QSignalSpy const positionSpy(&player, &LinePlayer::signalPosition);
    player.SetLineRate(500.0);
    player.Start();
    QVERIFY(WaitForLines(player, 20));
    QCOMPARE(linesSpy.count(), 0);
    player.Stop();
    QCoreApplication::sendPostedEvents(&player);
    QCOMPARE(linesSpy.count(), 1);
    QCOMPARE(positionSpy.count(), 1);
    QCOMPARE(positionSpy.at(0).at(0).toDouble(), player.Position());
    QVERIFY(TakeAll(player).size() >= 20);
}

void tst_LinePlayer::signalComesInTheThreadOfThePlayer()
{
    LinePlayer player(Source(5000));
    player.SetLineRate(200.0);
    int here = 0;
    int elsewhere = 0;
    quint64 taken = 0;
    connect(
        &player, &LinePlayer::signalLines, &player,
        [&] {
            ++(QThread::currentThread() == qApp->thread() ? here : elsewhere);
            taken += TakeAll(player).size();
        },
        Qt::DirectConnection);
    player.Start();
    QTRY_VERIFY(taken >= 20);
    QVERIFY(here > 1);
    QCOMPARE(elsewhere, 0);
    QVERIFY(static_cast<quint64>(here) <= taken);
}

void tst_LinePlayer::exactRate()
{
    LinePlayer player(Source(5000));
    player.SetLineRate(100.0);
    QElapsedTimer clock;
    clock.start();
    player.Start();
    QVERIFY(WaitForLines(player, 50));
    qint64 const early = clock.elapsed();
    QVERIFY(WaitForLines(player, 150));
    quint64 const lines = player.Produced() + player.Skipped();
    double const seconds = static_cast<double>(clock.nsecsElapsed()) * 1e-9;
    QVERIFY2(early >= 499, QByteArray::number(early).constData()); // never ahead of time
    QVERIFY2(seconds >= 0.01 * static_cast<double>(player.Produced()) - 0.001, QByteArray::number(seconds).constData());
    QVERIFY2(static_cast<double>(lines) > (seconds - 0.5) * 100.0, QByteArray::number(seconds).constData());
}

void tst_LinePlayer::fullQueueDropsTheOldest()
{
    LinePlayer player(Source(5000));
    player.SetLineRate(1000.0);
    player.SetBins(64);
    player.Start();
    QVERIFY(WaitForLines(player, LinePlayer::QueueLines + 20));
    player.Stop();
    quint64 const produced = player.Produced();
    QCOMPARE(player.Dropped(), produced - LinePlayer::QueueLines);
    auto const lines = TakeAll(player);
    QCOMPARE(lines.size(), LinePlayer::QueueLines);
    QCOMPARE(lines.front()->number, produced - LinePlayer::QueueLines);
    QCOMPARE(lines.back()->number, produced - 1);
}

void tst_LinePlayer::positionFollowsTheSpeed()
{
    LinePlayer player(Source(5000000));
    player.SetLineRate(200.0);
    player.SetSpeed(10.0);
    player.Start();
    QVERIFY(WaitForLines(player, 10));
    player.Stop();
    auto const lines = TakeAll(player);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        double const places = (lines[i]->seconds - 0.025) / 0.05;
        QVERIFY(std::abs(places - std::round(places)) < 1e-6);
        QVERIFY(i == 0 || lines[i]->seconds > lines[i - 1]->seconds);
    }
    QCOMPARE(player.Position(), lines.back()->seconds);
}

void tst_LinePlayer::endlessGoesOn()
{
    LinePlayer player(Source(0));
    QCOMPARE(player.Duration(), 0.0);
    player.SetLineRate(200.0);
    player.SetSpeed(1000.0);
    player.Start();
    QVERIFY(WaitForLines(player, 10));
    QVERIFY(player.Position() >= 45.0);
    player.Seek(1e300);
    quint64 const produced = player.Produced();
    QVERIFY(WaitForLines(player, produced + 3));
}

void tst_LinePlayer::recordingIsARing()
{
    LinePlayer player(Source(20)); // 20 ms
    player.SetLineRate(200.0);
    player.Start();
    QVERIFY(WaitForLines(player, 10));
    player.Stop();
    auto const lines = TakeAll(player);
    int turns = 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        QVERIFY(lines[i]->seconds >= 0.0 && lines[i]->seconds < 0.02);
        turns += i > 0 && lines[i]->seconds < lines[i - 1]->seconds;
    }
    QVERIFY(turns >= 2);
}

void tst_LinePlayer::pauseStands()
{
    LinePlayer player(Source(5000));
    LinePlayer clock(Source(5000));
    player.SetLineRate(1000.0);
    clock.SetLineRate(1000.0);
    player.Start();
    clock.Start();
    QVERIFY(WaitForLines(player, 5));
    player.Pause();
    QVERIFY(!player.IsPlaying());
    bool stands = false;
    for (int i = 0; i < 100 && !stands; ++i) { // until the order is carried out
        quint64 const produced = player.Produced();
        QVERIFY(WaitForLines(clock, clock.Produced() + 50));
        stands = player.Produced() == produced;
    }
    QVERIFY(stands);
    quint64 const produced = player.Produced();
    player.Seek(2.0);
    TakeAll(player);
    player.Play();
    player.Play();
    QVERIFY(player.IsPlaying());
    QVERIFY(WaitForLines(player, produced + 3));
    auto const lines = TakeAll(player);
    QCOMPARE(lines.front()->number, produced);
    QVERIFY2(std::abs(lines.front()->seconds - 2.0005) < 1e-9, QByteArray::number(lines.front()->seconds).constData());
}

void tst_LinePlayer::seekWhilePaused()
{
    LinePlayer player(Source(5000));
    player.Pause();
    player.Start();
    QSignalSpy const spy(&player, &LinePlayer::signalPosition);
    player.Seek(3.5);
    QCOMPARE(player.Position(), 3.5);
    QTRY_COMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toDouble(), 3.5);
    QCOMPARE(player.Produced(), quint64(0));
}

void tst_LinePlayer::seek_data()
{
    QTest::addColumn<double>("seconds");
    QTest::addColumn<double>("position");
    QTest::newRow("within") << 2.0 << 2.0;
    QTest::newRow("end") << 5.0 << 0.0;
    QTest::newRow("beyond the end") << 6.5 << 1.5;
    QTest::newRow("far beyond") << 5e15 << 0.0;
    QTest::newRow("before the beginning") << -1.0 << 0.0;
    QTest::newRow("NaN") << qQNaN() << 1.0;
    QTest::newRow("infinite") << qInf() << 1.0;
}

void tst_LinePlayer::seek()
{
    QFETCH(double, seconds);
    QFETCH(double, position);
    LinePlayer player(Source(5000));
    player.Seek(1.0);
    player.Seek(seconds);
    QCOMPARE(player.Position(), position);
    player.Start();
    QVERIFY(WaitForLines(player, 1));
    QCOMPARE(TakeAll(player).front()->seconds, position + 0.01);
}

void tst_LinePlayer::seekBeforeStart()
{
    LinePlayer player(Source(5000));
    player.SetLineRate(100.0);
    player.Seek(4.0);
    player.Start();
    QVERIFY(WaitForLines(player, 3));
    QCOMPARE(TakeAll(player).front()->seconds, 4.005);
}

void tst_LinePlayer::seekOnItsWay()
{
    LineQueue queue(64);
    LineWorker worker(Source(5000), queue);
    worker.Begin();
    worker.AskPosition(2.0);
    worker.AskPosition(1.5);
    QTRY_VERIFY(worker.Produced() > 0); // these lines are from the beginning
    QCOMPARE(worker.Position(), 1.5);
    worker.Seek(2.0);
    QCOMPARE(worker.Position(), 1.5);
    worker.Seek(1.5);
    QCOMPARE(worker.Position(), 1.5);
    QTRY_VERIFY(worker.Position() > 1.5);
    worker.End();
}

void tst_LinePlayer::seekOfADurationThatIsNotFinite()
{
    LinePlayer player(std::make_unique<TestSource>(5000, nullptr, 5e-324));
    QVERIFY(std::isinf(player.Duration()));
    player.Start();
    player.Seek(1.5);
    QCOMPARE(player.Position(), 1.5);
    player.SetSpeed(2.0);
    QVERIFY(WaitForLines(player, 1));
    player.Stop();
    for (auto const & line : TakeAll(player))
        QVERIFY2(line->seconds >= 0.0, QByteArray::number(line->seconds).constData()); // false for NaN
}

void tst_LinePlayer::orderAfterAStallCountsWhatItSkips()
{
    LineQueue queue(64);
    LineWorker worker(Source(0), queue);
    worker.SetLineRate(1000.0);
    worker.Begin();
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < 50) // the thread of the worker is this one
        QThread::yieldCurrentThread();
    worker.SetSpeed(2.0);
    QVERIFY2(worker.Skipped() >= 48, QByteArray::number(worker.Skipped()).constData());
    QCOMPARE(worker.Produced(), quint64(0));
    worker.End();
}

void tst_LinePlayer::stopIsSafeTwice()
{
    LinePlayer player(Source(5000));
    player.Stop();
    player.SetLineRate(200.0);
    player.Start();
    player.Start();
    QVERIFY(WaitForLines(player, 2));
    player.Stop();
    player.Stop();
    quint64 const produced = player.Produced();
    LinePlayer clock(Source(5000));
    clock.Start();
    QVERIFY(WaitForLines(clock, 3));
    QCOMPARE(player.Produced(), produced);
    for (int i = 0; i < 50; ++i) {
        player.Start();
        player.Stop();
    }
}

void tst_LinePlayer::stopWaitsForARead()
{
    std::atomic<bool> isRead{ false };
    LinePlayer player(std::make_unique<SlowSource>(isRead));
    player.Start();
    QTRY_VERIFY(isRead);
    player.Stop();
    QVERIFY(!isRead);
}

void tst_LinePlayer::startGoesOn()
{
    LinePlayer player(Source(5000));
    player.SetLineRate(200.0);
    player.Start();
    QVERIFY(WaitForLines(player, 10));
    player.Stop();
    quint64 const produced = player.Produced();
    double const position = player.Position();
    TakeAll(player);
    player.Start();
    QVERIFY(WaitForLines(player, produced + 1));
    auto const line = TakeAll(player).front();
    QCOMPARE(line->number, produced);
    QVERIFY(std::abs(line->seconds - position - 0.005) < 1e-9);
}

void tst_LinePlayer::changesWhilePlaying()
{
    LinePlayer player(Source(5000));
    player.SetLineRate(500.0);
    player.Start();
    quint64 next = 0;
    double last = 0.0;
    for (int i = 0; i < 40; ++i) {
        player.SetBins(64 << (i % 6));
        player.SetWindow(static_cast<SpectrumEngine::Window>(i % SpectrumEngine::eWindowCount));
        player.SetAveraging(i % 5);
        player.SetLineRate(400.0 + i);
        player.SetSpeed(1.0 + i % 3);
        QVERIFY(WaitForLines(player, next + 1));
        for (auto const & line : TakeAll(player)) {
            QCOMPARE(line->number, next);
            QVERIFY(SpectrumEngine::IsBins(static_cast<int>(line->levels.size())));
            QVERIFY2(line->seconds > last && line->seconds < last + 1.0, QByteArray::number(line->seconds).constData());
            last = line->seconds;
            ++next;
        }
    }
    QCOMPARE(player.Dropped(), quint64(0));
}

void tst_LinePlayer::deletedWhilePlaying()
{
    for (int i = 0; i < 20; ++i) {
        auto player = std::make_unique<LinePlayer>(Source(5000));
        QSignalSpy const spy(player.get(), &LinePlayer::signalLines);
        player->SetLineRate(1000.0);
        player->Start();
        if (i % 2 == 0)
            QVERIFY(WaitForLines(*player, 2));
        player.reset();
        QCoreApplication::sendPostedEvents();
        QCOMPARE(spy.count(), 0);
    }
}

void tst_LinePlayer::deletedInItsSignal()
{
    QPointer<LinePlayer> player(new LinePlayer(Source(5000)));
    int positions = 0;
    connect(player, &LinePlayer::signalLines, this, [&player] { delete player; });
    connect(player, &LinePlayer::signalPosition, this, [&positions](double) { ++positions; });
    player->Start();
    QTRY_VERIFY(!player);
    QCOMPARE(positions, 0);
}

void tst_LinePlayer::sourceIsFreed()
{
    std::atomic<int> alive{ 0 };
    {
        LinePlayer player(std::make_unique<TestSource>(5000, &alive));
        player.Start();
        QVERIFY(WaitForLines(player, 1));
        QCOMPARE(alive.load(), 1);
    }
    QCOMPARE(alive.load(), 0);
}

void tst_LinePlayer::noSource()
{
    LinePlayer player(nullptr);
    player.Start();
    player.Seek(1.0);
    player.SetBins(64);
    player.Pause();
    player.Play();
    player.Stop();
    QCOMPARE(player.Duration(), 0.0);
    QCOMPARE(player.Position(), 0.0);
    QCOMPARE(player.Produced(), quint64(0));
    QCOMPARE(player.Skipped(), quint64(0));
    QVERIFY(TakeAll(player).empty());
}

ORIM_CORE_TEST_MAIN(tst_LinePlayer)
#include "tst_lineplayer.moc"
