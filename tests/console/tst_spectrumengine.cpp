// SPDX-License-Identifier: MIT
#include "spectrumengine.h"

#include "spectrumline.h"
#include "testmain.h"

#include <algorithm>
#include <cmath>

namespace {

using Sample = std::complex<float>;
constexpr double Pi = 3.14159265358979323846;

//! A tone with a number of periods in \a count samples, as I/Q or as real samples.
std::vector<Sample> Tone(int count, double periods, double amplitude, bool real)
{
    std::vector<Sample> samples(static_cast<std::size_t>(count));
    for (int n = 0; n < count; ++n) {
        double const angle = 2.0 * Pi * std::fmod(periods * n / count, 1.0);
        samples[static_cast<std::size_t>(n)] = { float(amplitude * std::cos(angle)),
                                                 real ? 0.0F : float(amplitude * std::sin(angle)) };
    }
    return samples;
}

std::vector<double> Levels(SpectrumEngine & engine, std::vector<Sample> const & samples)
{
    std::vector<double> levels;
    engine.Add(samples.data());
    engine.TakeLevels(levels);
    return levels;
}

int Peak(std::vector<double> const & levels)
{
    return static_cast<int>(std::max_element(levels.begin(), levels.end()) - levels.begin());
}

} // namespace

class tst_SpectrumEngine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bins_data();
    void bins();
    void badWindowIsIgnored();
    void windowTexts();
    void fullScale_data();
    void fullScale();
    void betweenBins_data();
    void betweenBins();
    void neighbour_data();
    void neighbour();
    void ascendingInFrequency_data();
    void ascendingInFrequency();
    void ascendingInRealFrequency_data();
    void ascendingInRealFrequency();
    void imaginaryPartOfRealIsUnused();
    void constantPart_data();
    void constantPart();
    void levelIsLogarithmic_data();
    void levelIsLogarithmic();
    void silenceIsTheFloor();
    void nothingAddedIsTheFloor();
    void belowTheFloorIsTheFloor();
    void largestSamplesStayFinite();
    void meanIsOfPowers();
    void takeEmptiesTheMean();
    void changeEmptiesTheMean();
    void twoEnginesAreApart();
};

void tst_SpectrumEngine::bins_data()
{
    QTest::addColumn<int>("bins");
    QTest::addColumn<bool>("taken");
    for (int bins = 64; bins <= 65536; bins *= 2)
        QTest::newRow(QByteArray::number(bins).constData()) << bins << true;
    QTest::newRow("below the least") << 32 << false;
    QTest::newRow("above the most") << 131072 << false;
    QTest::newRow("no power of two") << 1000 << false;
    QTest::newRow("odd") << 4097 << false;
    QTest::newRow("0") << 0 << false;
    QTest::newRow("below 0") << -64 << false;
    QTest::newRow("lowest int") << std::numeric_limits<int>::lowest() << false;
}

void tst_SpectrumEngine::bins()
{
    QFETCH(int, bins);
    QFETCH(bool, taken);
    QCOMPARE(SpectrumEngine::IsBins(bins), taken);
    SpectrumEngine engine;
    engine.SetBins(bins);
    QCOMPARE(engine.Bins(), taken ? bins : 1024);
    QCOMPARE(engine.Samples(), engine.Bins());
    engine.SetReal(true);
    QCOMPARE(engine.Samples(), 2 * engine.Bins());
    std::vector<double> levels;
    engine.TakeLevels(levels);
    QCOMPARE(int(levels.size()), engine.Bins());
}

void tst_SpectrumEngine::badWindowIsIgnored()
{
    SpectrumEngine engine;
    engine.SetWindow(SpectrumEngine::eWindowCount);
    QCOMPARE(engine.GetWindow(), SpectrumEngine::eWindowHann);
    engine.SetWindow(static_cast<SpectrumEngine::Window>(-1));
    QCOMPARE(engine.GetWindow(), SpectrumEngine::eWindowHann);
}

void tst_SpectrumEngine::windowTexts()
{
    QCOMPARE(SpectrumEngine::WindowText(SpectrumEngine::eWindowRectangular), QStringLiteral("Rectangular"));
    QCOMPARE(SpectrumEngine::WindowText(SpectrumEngine::eWindowHann), QStringLiteral("Hann"));
    QCOMPARE(SpectrumEngine::WindowText(SpectrumEngine::eWindowHamming), QStringLiteral("Hamming"));
    QCOMPARE(SpectrumEngine::WindowText(SpectrumEngine::eWindowBlackmanHarris), QStringLiteral("Blackman-Harris"));
    QCOMPARE(SpectrumEngine::WindowText(SpectrumEngine::eWindowFlatTop), QStringLiteral("Flat top"));
    QCOMPARE(SpectrumEngine::WindowText(SpectrumEngine::eWindowKaiser), QStringLiteral("Kaiser"));
    QCOMPARE(SpectrumEngine::WindowText(SpectrumEngine::eWindowCount), QString());
}

void tst_SpectrumEngine::fullScale_data()
{
    QTest::addColumn<int>("window");
    QTest::addColumn<int>("bins");
    QTest::addColumn<bool>("real");
    for (int window = 0; window < SpectrumEngine::eWindowCount; ++window)
        for (int const bins : { 64, 4096, 65536 })
            for (bool const real : { false, true }) {
                QString const text = SpectrumEngine::WindowText(static_cast<SpectrumEngine::Window>(window));
                QTest::newRow(qPrintable(QStringLiteral("%1 %2 %3").arg(text).arg(bins).arg(real ? "real" : "I/Q")))
                    << window << bins << real;
            }
}

void tst_SpectrumEngine::fullScale()
{
    QFETCH(int, window);
    QFETCH(int, bins);
    QFETCH(bool, real);
    SpectrumEngine engine;
    engine.SetBins(bins);
    engine.SetReal(real);
    engine.SetWindow(static_cast<SpectrumEngine::Window>(window));
    auto const levels = Levels(engine, Tone(engine.Samples(), bins / 4, 1.0, real));
    double const highest = *std::max_element(levels.begin(), levels.end());
    QVERIFY2(std::abs(highest) < 0.1, QByteArray::number(highest).constData());
    QCOMPARE(Peak(levels), real ? bins / 4 : bins * 3 / 4);
}

void tst_SpectrumEngine::betweenBins_data()
{
    QTest::addColumn<int>("window");
    QTest::addColumn<double>("loss");
    QTest::newRow("rectangular") << int(SpectrumEngine::eWindowRectangular) << -3.92;
    QTest::newRow("Hann") << int(SpectrumEngine::eWindowHann) << -1.42;
    QTest::newRow("Hamming") << int(SpectrumEngine::eWindowHamming) << -1.75;
    QTest::newRow("Blackman-Harris") << int(SpectrumEngine::eWindowBlackmanHarris) << -0.83;
    QTest::newRow("flat top") << int(SpectrumEngine::eWindowFlatTop) << -0.01;
}

void tst_SpectrumEngine::betweenBins()
{
    QFETCH(int, window);
    QFETCH(double, loss);
    SpectrumEngine engine;
    engine.SetBins(4096);
    engine.SetWindow(static_cast<SpectrumEngine::Window>(window));
    auto const levels = Levels(engine, Tone(4096, 1000.5, 1.0, false));
    double const highest = *std::max_element(levels.begin(), levels.end());
    QVERIFY2(std::abs(highest - loss) < 0.05, QByteArray::number(highest).constData());
}

void tst_SpectrumEngine::neighbour_data()
{
    QTest::addColumn<int>("window");
    QTest::addColumn<double>("level");
    QTest::newRow("Hann") << int(SpectrumEngine::eWindowHann) << -6.02;
    QTest::newRow("Hamming") << int(SpectrumEngine::eWindowHamming) << -7.37;
    QTest::newRow("Blackman-Harris") << int(SpectrumEngine::eWindowBlackmanHarris) << -3.34;
    QTest::newRow("flat top") << int(SpectrumEngine::eWindowFlatTop) << -0.31;
    QTest::newRow("Kaiser") << int(SpectrumEngine::eWindowKaiser) << -3.94;
}

void tst_SpectrumEngine::neighbour()
{
    QFETCH(int, window);
    QFETCH(double, level);
    SpectrumEngine engine;
    engine.SetBins(4096);
    engine.SetWindow(static_cast<SpectrumEngine::Window>(window));
    auto const levels = Levels(engine, Tone(4096, 1000, 1.0, false));
    double const next = levels[2048 + 1001];
    QVERIFY2(std::abs(next - level) < 0.05, QByteArray::number(next).constData());
    double const before = levels[2048 + 999];
    QVERIFY2(std::abs(before - level) < 0.05, QByteArray::number(before).constData());
}

void tst_SpectrumEngine::ascendingInFrequency_data()
{
    QTest::addColumn<double>("periods");
    QTest::addColumn<int>("bin");
    QTest::newRow("left end") << -512.0 << 0;
    QTest::newRow("next to the left end") << -511.0 << 1;
    QTest::newRow("just below the middle") << -1.0 << 511;
    QTest::newRow("middle") << 0.0 << 512;
    QTest::newRow("just above the middle") << 1.0 << 513;
    QTest::newRow("right end") << 511.0 << 1023;
}

void tst_SpectrumEngine::ascendingInFrequency()
{
    QFETCH(double, periods);
    SpectrumEngine engine;
    QTEST(Peak(Levels(engine, Tone(1024, periods, 0.5, false))), "bin");
}

void tst_SpectrumEngine::ascendingInRealFrequency_data()
{
    QTest::addColumn<int>("bin");
    QTest::newRow("left end") << 0;
    QTest::newRow("next to the left end") << 1;
    QTest::newRow("middle") << 512;
    QTest::newRow("right end") << 1023;
}

void tst_SpectrumEngine::ascendingInRealFrequency()
{
    QFETCH(int, bin);
    SpectrumEngine engine;
    engine.SetReal(true);
    engine.SetWindow(SpectrumEngine::eWindowRectangular);
    QCOMPARE(Peak(Levels(engine, Tone(2048, bin, 0.5, true))), bin);
}

void tst_SpectrumEngine::imaginaryPartOfRealIsUnused()
{
    SpectrumEngine engine;
    engine.SetReal(true);
    std::vector<Sample> samples = Tone(2048, 100, 0.5, true);
    std::vector<double> const levels = Levels(engine, samples);
    for (Sample & sample : samples)
        sample.imag(0.7F);
    QCOMPARE(Levels(engine, samples), levels);
}

void tst_SpectrumEngine::constantPart_data()
{
    QTest::addColumn<bool>("real");
    QTest::newRow("I/Q") << false;
    QTest::newRow("real") << true;
}

void tst_SpectrumEngine::constantPart()
{
    QFETCH(bool, real);
    SpectrumEngine engine;
    engine.SetReal(real);
    auto const levels = Levels(engine, std::vector<Sample>(std::size_t(engine.Samples()), Sample(1.0F, 0.0F)));
    double const level = levels[real ? 0 : 512];
    QVERIFY2(std::abs(level) < 0.01, QByteArray::number(level).constData());
}

void tst_SpectrumEngine::levelIsLogarithmic_data()
{
    QTest::addColumn<double>("level");
    for (double const level : { 0.0, -20.0, -60.0, -100.0, 40.0 })
        QTest::newRow(QByteArray::number(level).constData()) << level;
}

void tst_SpectrumEngine::levelIsLogarithmic()
{
    QFETCH(double, level);
    SpectrumEngine engine;
    auto const levels = Levels(engine, Tone(1024, 100, std::pow(10.0, level / 20.0), false));
    QVERIFY2(std::abs(levels[612] - level) < 0.01, QByteArray::number(levels[612]).constData());
}

void tst_SpectrumEngine::silenceIsTheFloor()
{
    SpectrumEngine engine;
    QCOMPARE(Levels(engine, std::vector<Sample>(1024)), std::vector<double>(1024, LevelFloor));
    QCOMPARE(LevelFloor, -160.0);
}

void tst_SpectrumEngine::nothingAddedIsTheFloor()
{
    SpectrumEngine engine;
    std::vector<double> levels{ 1.0 };
    engine.TakeLevels(levels);
    QCOMPARE(levels, std::vector<double>(1024, LevelFloor));
}

void tst_SpectrumEngine::belowTheFloorIsTheFloor()
{
    SpectrumEngine engine;
    auto const levels = Levels(engine, Tone(1024, 100, 1e-9, false));
    QCOMPARE(*std::max_element(levels.begin(), levels.end()), LevelFloor);
}

void tst_SpectrumEngine::largestSamplesStayFinite()
{
    SpectrumEngine engine;
    engine.SetBins(65536);
    auto const levels = Levels(engine, Tone(65536, 100, 1e6, false));
    QVERIFY(std::abs(levels[32868] - 120.0) < 0.1);
    QVERIFY(std::all_of(levels.begin(), levels.end(), [](double level) { return std::isfinite(level); }));
}

void tst_SpectrumEngine::meanIsOfPowers()
{
    SpectrumEngine engine;
    auto const tone = Tone(1024, 100, 1.0, false);
    engine.Add(tone.data());
    engine.Add(std::vector<Sample>(1024).data());
    engine.Add(std::vector<Sample>(1024).data());
    QCOMPARE(engine.Added(), 3);
    auto const levels = Levels(engine, std::vector<Sample>(1024));
    QVERIFY2(std::abs(levels[612] + 6.0206) < 0.01, QByteArray::number(levels[612]).constData());
}

void tst_SpectrumEngine::takeEmptiesTheMean()
{
    SpectrumEngine engine;
    Levels(engine, Tone(1024, 100, 1.0, false));
    QCOMPARE(engine.Added(), 0);
    QCOMPARE(Levels(engine, std::vector<Sample>(1024)), std::vector<double>(1024, LevelFloor));
}

void tst_SpectrumEngine::changeEmptiesTheMean()
{
    SpectrumEngine engine;
    auto const tone = Tone(2048, 100, 1.0, false);
    engine.Add(tone.data());
    engine.SetBins(512);
    QCOMPARE(engine.Added(), 0);
    engine.Add(tone.data());
    engine.SetWindow(SpectrumEngine::eWindowFlatTop);
    QCOMPARE(engine.Added(), 0);
    engine.Add(tone.data());
    engine.SetReal(true);
    QCOMPARE(engine.Added(), 0);
    engine.Add(tone.data());
    engine.SetBins(512);
    engine.SetWindow(SpectrumEngine::eWindowFlatTop);
    engine.SetReal(true);
    QCOMPARE(engine.Added(), 1);
}

void tst_SpectrumEngine::twoEnginesAreApart()
{
    SpectrumEngine first;
    SpectrumEngine second;
    auto const tone = Tone(1024, 100, 1.0, false);
    first.Add(tone.data());
    std::vector<double> levels;
    second.TakeLevels(levels);
    QCOMPARE(levels[612], LevelFloor);
    first.TakeLevels(levels);
    QVERIFY(std::abs(levels[612]) < 0.01);
}

ORIM_CORE_TEST_MAIN(tst_SpectrumEngine)
#include "tst_spectrumengine.moc"
