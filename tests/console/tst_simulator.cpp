// SPDX-License-Identifier: MIT
#include "simulator.h"

#include "linemaker.h"
#include "testmain.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace {

using Sample = std::complex<float>;
constexpr int Bins = 4096;
constexpr double BlockSeconds = 0.004;

std::vector<Sample> Read(Simulator & simulator, qint64 from, qint64 count)
{
    std::vector<Sample> samples(static_cast<std::size_t>(count));
    simulator.Seek(from);
    if (simulator.Read(samples.data(), count) != count)
        samples.clear();
    return samples;
}

SimulatedEmitter Emitter(char const * name)
{
    for (SimulatedEmitter const & emitter : Simulator::Emitters())
        if (emitter.name == QLatin1String(name))
            return emitter;
    return SimulatedEmitter();
}

//! Highest level between two frequencies, and where.
struct Maximum
{
    double level = -1000.0;
    double frequency = 0.0;
};

Maximum Highest(SpectrumLine const & line, double from, double to)
{
    Maximum maximum;
    double const step = line.span / static_cast<double>(line.levels.size());
    for (std::size_t i = 0; i < line.levels.size(); ++i) {
        double const frequency = line.centre - line.span / 2.0 + static_cast<double>(i) * step;
        if (frequency >= from && frequency <= to && line.levels[i] > maximum.level)
            maximum = { line.levels[i], frequency };
    }
    return maximum;
}

Maximum Highest(SpectrumLine const & line, SimulatedEmitter const & emitter)
{
    return Highest(line, emitter.frequency - emitter.bandwidth / 2.0, emitter.frequency + emitter.bandwidth / 2.0);
}

//! Power between two frequencies, dBFS.
double Power(SpectrumLine const & line, double from, double to)
{
    double power = 0.0;
    double const step = line.span / static_cast<double>(line.levels.size());
    for (std::size_t i = 0; i < line.levels.size(); ++i) {
        double const frequency = line.centre - line.span / 2.0 + static_cast<double>(i) * step;
        if (frequency >= from && frequency <= to)
            power += std::pow(10.0, line.levels[i] / 10.0);
    }
    return 10.0 * std::log10(power);
}

} // namespace

class tst_Simulator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void endlessSource();
    void sameSeedSameSamples();
    void otherSeedOtherSamples();
    void portionsDoNotMatter();
    void seekComesBack();
    void seekBelowTheBeginning();
    void seekFarAway();
    void readNothing();
    void samplesStayWithinFullScale();
    void emitters();
    void carriers_data();
    void carriers();
    void narrowFm();
    void wideFm();
    void amSidebands();
    void burstsComeAndGo();
    void hopperHops();
    void chirpRises();
    void noiseFloor();
    void noSeamBetweenBlocks();
};

void tst_Simulator::endlessSource()
{
    Simulator const simulator;
    QCOMPARE(simulator.SampleRate(), 1024000.0);
    QVERIFY(!simulator.IsReal());
    QCOMPARE(simulator.Length(), qint64(0));
    QCOMPARE(simulator.Duration(), 0.0);
    QCOMPARE(simulator.CentreFrequency(12345), 145e6);
    QCOMPARE(simulator.Span(), 1024000.0);
    QCOMPARE(simulator.LeftFrequency(0), 145e6 - 512000.0);
    QCOMPARE(simulator.Position(), qint64(0));
}

void tst_Simulator::sameSeedSameSamples()
{
    Simulator first(7);
    Simulator second(7);
    QVERIFY(Read(first, 0, 300000) == Read(second, 0, 300000));
}

void tst_Simulator::otherSeedOtherSamples()
{
    Simulator first(7);
    Simulator second(8);
    auto const a = Read(first, 0, 5000);
    auto const b = Read(second, 0, 5000);
    int equal = 0;
    for (std::size_t i = 0; i < a.size(); ++i)
        equal += a[i] == b[i];
    QVERIFY(equal < 5);
}

void tst_Simulator::portionsDoNotMatter()
{
    Simulator simulator;
    auto const whole = Read(simulator, 1000, 20000);
    simulator.Seek(1000);
    std::vector<Sample> parts(20000);
    for (qint64 done = 0, size = 1; done < 20000; size = size * 2 + 1) {
        qint64 const part = std::min<qint64>(size, 20000 - done);
        QCOMPARE(simulator.Read(parts.data() + done, part), part);
        done += part;
        QCOMPARE(simulator.Position(), 1000 + done);
    }
    QVERIFY(parts == whole);
}

void tst_Simulator::seekComesBack()
{
    Simulator simulator;
    auto const late = Read(simulator, 50000000, 10000);
    auto const early = Read(simulator, 100, 10000);
    QVERIFY(Read(simulator, 50000000, 10000) == late);
    QVERIFY(Read(simulator, 100, 10000) == early);
    QVERIFY(late != early);
}

void tst_Simulator::seekBelowTheBeginning()
{
    Simulator simulator;
    simulator.Seek(-5);
    QCOMPARE(simulator.Position(), qint64(0));
    simulator.Seek(std::numeric_limits<qint64>::lowest());
    QCOMPARE(simulator.Position(), qint64(0));
}

void tst_Simulator::seekFarAway()
{
    Simulator simulator;
    auto const samples = Read(simulator, std::numeric_limits<qint64>::max(), 5000);
    QCOMPARE(samples.size(), std::size_t(5000));
    QVERIFY(std::all_of(samples.begin(), samples.end(), [](Sample s) { return std::abs(s) < 1.0F; }));
}

void tst_Simulator::readNothing()
{
    Simulator simulator;
    Sample sample(5.0F, 5.0F);
    QCOMPARE(simulator.Read(&sample, 0), qint64(0));
    QCOMPARE(simulator.Read(&sample, -3), qint64(0));
    QCOMPARE(sample, Sample(5.0F, 5.0F));
    QCOMPARE(simulator.Position(), qint64(0));
}

void tst_Simulator::samplesStayWithinFullScale()
{
    Simulator simulator;
    auto const samples = Read(simulator, 0, 1024000);
    QCOMPARE(samples.size(), std::size_t(1024000));
    QVERIFY(std::all_of(samples.begin(), samples.end(), [](Sample s) { return std::abs(s) < 1.0F; }));
}

void tst_Simulator::emitters()
{
    auto const emitters = Simulator::Emitters();
    QCOMPARE(emitters.size(), std::size_t(7));
    std::set<QString> names;
    std::set<double> bearings;
    for (SimulatedEmitter const & emitter : emitters) {
        QVERIFY(!emitter.name.isEmpty());
        names.insert(emitter.name);
        bearings.insert(emitter.bearing);
        QVERIFY(emitter.bearing >= 0.0 && emitter.bearing < 360.0);
        QVERIFY(emitter.elevation >= -90.0 && emitter.elevation <= 90.0);
        QVERIFY(emitter.quality >= 0 && emitter.quality <= 100);
        QVERIFY(emitter.level < 0.0 && emitter.level > -60.0);
        QVERIFY(emitter.frequency - emitter.bandwidth / 2.0 >= Simulator::Centre - Simulator::Rate / 2.0);
        QVERIFY(emitter.frequency + emitter.bandwidth / 2.0 <= Simulator::Centre + Simulator::Rate / 2.0);
    }
    QCOMPARE(names.size(), std::size_t(7));
    QCOMPARE(bearings.size(), std::size_t(7));
}

void tst_Simulator::carriers_data()
{
    QTest::addColumn<double>("frequency");
    QTest::addColumn<double>("level");
    QTest::newRow("Tower") << 144.62e6 << -22.0;
    QTest::newRow("Beacon") << 145.42e6 << -34.0;
}

void tst_Simulator::carriers()
{
    QFETCH(double, frequency);
    QFETCH(double, level);
    SimulatedEmitter const emitter = Emitter(QTest::currentDataTag());
    QCOMPARE(emitter.frequency, frequency);
    QCOMPARE(emitter.level, level);
    Simulator simulator;
    LineMaker maker(simulator);
    maker.SetBins(Bins);
    maker.SetWindow(SpectrumEngine::eWindowFlatTop);
    maker.SetAveraging(64);
    auto const line = maker.Make(0, 0.3, 0.256);
    Maximum const maximum = Highest(*line, emitter);
    QVERIFY2(std::abs(maximum.level - level) < 1.0, QByteArray::number(maximum.level).constData());
    QVERIFY2(std::abs(maximum.frequency - frequency) <= 500.0, QByteArray::number(maximum.frequency, 'f').constData());
}

void tst_Simulator::amSidebands()
{
    Simulator simulator;
    LineMaker maker(simulator);
    maker.SetBins(65536); // 15.6 Hz
    SimulatedEmitter const tower = Emitter("Tower");
    auto const line = maker.Make(0, 0.3, 0.02);
    double const step = 1000.0 / 256.0; // Hz, tones of whole periods in 256 ms
    double const upper = Highest(*line, tower.frequency + 103 * step - 30, tower.frequency + 103 * step + 30).level;
    double const lower = Highest(*line, tower.frequency - 103 * step - 30, tower.frequency - 103 * step + 30).level;
    QVERIFY2(upper > -50.0, QByteArray::number(upper).constData());
    QVERIFY2(std::abs(upper - lower) < 1.0, QByteArray::number(lower).constData());
}

void tst_Simulator::narrowFm()
{
    Simulator simulator;
    LineMaker maker(simulator);
    maker.SetBins(Bins);
    maker.SetAveraging(64);
    SimulatedEmitter const taxi = Emitter("Taxi");
    auto const line = maker.Make(0, 0.3, 0.256);
    double const within = Power(*line, taxi.frequency - 8000.0, taxi.frequency + 8000.0);
    double const beside = Power(*line, taxi.frequency + 12000.0, taxi.frequency + 28000.0);
    QVERIFY2(std::abs(within - (taxi.level + 1.76)) < 1.0, QByteArray::number(within).constData()); // Hann: 1.5 bins
    QVERIFY2(within - beside > 20.0, QByteArray::number(beside).constData());
}

void tst_Simulator::wideFm()
{
    Simulator simulator;
    LineMaker maker(simulator);
    maker.SetBins(Bins);
    maker.SetAveraging(64);
    SimulatedEmitter const broadcast = Emitter("Broadcast");
    auto const line = maker.Make(0, 0.3, 0.256);
    double const within = Power(*line, broadcast.frequency - 50000.0, broadcast.frequency + 50000.0);
    double const core = Power(*line, broadcast.frequency - 4000.0, broadcast.frequency + 4000.0);
    QVERIFY2(std::abs(within - (broadcast.level + 1.76)) < 1.0, QByteArray::number(within).constData());
    QVERIFY2(within - core > 3.0, QByteArray::number(core).constData()); // spread, no carrier
}

void tst_Simulator::burstsComeAndGo()
{
    Simulator simulator;
    LineMaker maker(simulator);
    maker.SetBins(1024);
    SimulatedEmitter const meter = Emitter("Meter");
    int bursts = 0;
    int on = 0;
    bool before = false;
    constexpr int blocks = 1000; // 4 s: 20 bursts
    for (int i = 0; i < blocks; ++i) {
        auto const line = maker.Make(0, (i + 0.5) * BlockSeconds, BlockSeconds);
        bool const now = Power(*line, meter.frequency - 30000.0, meter.frequency + 30000.0) > meter.level - 6.0;
        bursts += now && !before;
        on += now;
        before = now;
    }
    QCOMPARE(bursts, 20);
    QVERIFY2(on >= 20 * 5 && on <= 20 * 10, QByteArray::number(on).constData());
}

void tst_Simulator::hopperHops()
{
    Simulator simulator;
    LineMaker maker(simulator);
    maker.SetBins(1024);
    maker.SetWindow(SpectrumEngine::eWindowBlackmanHarris);
    SimulatedEmitter const hopper = Emitter("Hopper");
    std::set<long> channels;
    for (int hop = 0; hop < 60; ++hop) {
        double const start = hop * 5 * BlockSeconds;
        auto const line = maker.Make(0, start + 1.5 * BlockSeconds, BlockSeconds);
        Maximum const maximum = Highest(*line, hopper);
        QVERIFY2(maximum.level > hopper.level - 6.0, QByteArray::number(maximum.level).constData());
        long const channel = std::lround((maximum.frequency - hopper.frequency) / 10000.0);
        channels.insert(channel);
        auto const same = maker.Make(0, start + 3.5 * BlockSeconds, BlockSeconds);
        QCOMPARE(std::lround((Highest(*same, hopper).frequency - hopper.frequency) / 10000.0), channel);
        auto const silent = maker.Make(0, start + 4.5 * BlockSeconds, 0.0);
        QVERIFY2(Highest(*silent, hopper).level < hopper.level - 6.0, QByteArray::number(hop).constData());
    }
    QVERIFY2(channels.size() > 12, QByteArray::number(qint64(channels.size())).constData());
    QVERIFY(*channels.begin() >= -12 && *channels.rbegin() <= 12);
}

void tst_Simulator::chirpRises()
{
    Simulator simulator;
    LineMaker maker(simulator);
    maker.SetBins(1024);
    SimulatedEmitter const sounder = Emitter("Sounder");
    // stretches of the band that no other emitter uses
    for (double const offset : { -450000.0, -260000.0, 20000.0, 380000.0, 470000.0 }) {
        for (int sweep = 0; sweep < 2; ++sweep) {
            double const seconds = sweep * 2.0 + (offset + 480000.0) / 480000.0;
            auto const line = maker.Make(0, seconds, 0.0);
            Maximum const maximum =
                Highest(*line, sounder.frequency + offset - 9000.0, sounder.frequency + offset + 9000.0);
            QVERIFY2(std::abs(maximum.level - sounder.level) < 3.0, QByteArray::number(maximum.level).constData());
            QVERIFY2(std::abs(maximum.frequency - sounder.frequency - offset) <= 1500.0,
                     QByteArray::number(maximum.frequency - sounder.frequency).constData());
        }
    }
}

void tst_Simulator::noiseFloor()
{
    Simulator simulator;
    LineMaker maker(simulator);
    maker.SetBins(Bins);
    maker.SetAveraging(64);
    auto const line = maker.Make(0, 0.3, 0.256); // the chirp is far away
    double const power = Power(*line, Simulator::Centre + 450000.0, Simulator::Centre + 500000.0);
    double const expected = Simulator::NoiseLevel + 1.76 + 10.0 * std::log10(50000.0 / Simulator::Rate);
    QVERIFY2(std::abs(power - expected) < 1.0, QByteArray::number(power - expected).constData());
}

void tst_Simulator::noSeamBetweenBlocks()
{
    Simulator simulator;
    LineMaker maker(simulator);
    maker.SetBins(1024);
    maker.SetWindow(SpectrumEngine::eWindowBlackmanHarris);
    maker.SetAveraging(1);
    double within = 0.0;
    double across = 0.0;
    double const from = Simulator::Centre - 430000.0; // a gap next to the strong carrier
    double const to = Simulator::Centre - 395000.0;
    for (int i = 20; i < 84; ++i) { // also over the end of a cycle
        within += std::pow(10.0, Power(*maker.Make(0, (i + 0.5) * BlockSeconds, 0.0), from, to) / 10.0);
        across += std::pow(10.0, Power(*maker.Make(0, i * BlockSeconds, 0.0), from, to) / 10.0);
    }
    double const ratio = 10.0 * std::log10(across / within);
    QVERIFY2(std::abs(ratio) < 2.0, QByteArray::number(ratio).constData());
}

ORIM_CORE_TEST_MAIN(tst_Simulator)
#include "tst_simulator.moc"
