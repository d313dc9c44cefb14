// SPDX-License-Identifier: MIT
#include "directionfinder.h"

#include "linemaker.h"
#include "testmain.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>

class tst_DirectionFinder : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void findsWhatStandsAboveTheNoise_data();
    void findsWhatStandsAboveTheNoise();
    void resultTellsOfItsEmitter();
    void resultsRiseInFrequency();
    void lineWithoutAWidthHasNone_data();
    void lineWithoutAWidthHasNone();
    void levelsWithoutANumberAreLeftOut_data();
    void levelsWithoutANumberAreLeftOut();
    void emitterOutsideTheLineIsNotFound();
    void wideOneIsFoundAtItsPeak();
    void narrowOneKeepsItsBins();
    void higherThanItsEmitterIsAnothers();
    void errorIsReproducible();
    void errorFollowsTheQuality_data();
    void errorFollowsTheQuality();
    void anglesStayOnTheirCircles_data();
    void anglesStayOnTheirCircles();
    void weakOneLosesQuality();
    void measuresAtABoundedRate();
    void resultStaysForAWhile();
    void latestResultCounts();
    void clockThatGoesBackBeginsAnew();
    void clockWithoutATimeIsIgnored_data();
    void clockWithoutATimeIsIgnored();
    void findsTheSimulatedEmitters();
    void singleMeasurementsScatter_data();
    void singleMeasurementsScatter();
    void singleMeasurementsLieInTheChannel();
    void singleMeasurementsAreReproducible();
    void singleAnglesStayOnTheirCircles();
    void singlesAreTakenAtABoundedRate();
    void resultTellsOfItsChannel();
    void uncertaintyFollowsTheQuality_data();
    void uncertaintyFollowsTheQuality();
    void vehicleSwings_data();
    void vehicleSwings();
};

namespace {

constexpr int Bins = 1000;
constexpr double Noise = -90.0;

//! 1 MHz from 0 Hz on, 1 kHz a bin.
SpectrumLine Quiet(quint64 number = 0)
{
    SpectrumLine line;
    line.number = number;
    line.centre = 500e3;
    line.span = 1e6;
    line.levels.assign(Bins, Noise);
    return line;
}

SpectrumLine With(int bin, double level, quint64 number = 0)
{
    SpectrumLine line = Quiet(number);
    line.levels[static_cast<std::size_t>(bin)] = level;
    return line;
}

SimulatedEmitter Emitter(QString const & name, double frequency, double bandwidth = 10e3, double quality = 90.0)
{
    return { name, frequency, bandwidth, -20.0, 120.0, 10.0, static_cast<int>(quality) };
}

DirectionFinder FinderOf(std::vector<SimulatedEmitter> emitters, quint64 seed = 1)
{
    return DirectionFinder(std::move(emitters), seed);
}

QStringList NamesOf(std::vector<BearingResult> const & results)
{
    QStringList names;
    for (BearingResult const & result : results)
        names.append(result.GetText());
    return names;
}

} // namespace

void tst_DirectionFinder::findsWhatStandsAboveTheNoise_data()
{
    QTest::addColumn<double>("above");
    QTest::addColumn<int>("count");
    QTest::newRow("in the noise") << 0.0 << 0;
    QTest::newRow("below the threshold") << DirectionFinder::Threshold - 0.1 << 0;
    QTest::newRow("at the threshold") << DirectionFinder::Threshold << 1;
    QTest::newRow("far above") << 60.0 << 1;
}

void tst_DirectionFinder::findsWhatStandsAboveTheNoise()
{
    QFETCH(double, above);
    QFETCH(int, count);
    DirectionFinder const finder = FinderOf({ Emitter(QStringLiteral("A"), 300e3) });
    QCOMPARE(finder.Measure(With(300, Noise + above)).size(), static_cast<std::size_t>(count));
}

void tst_DirectionFinder::resultTellsOfItsEmitter()
{
    DirectionFinder const finder = FinderOf({ Emitter(QStringLiteral("A"), 300e3) });
    std::vector<BearingResult> const results = finder.Measure(With(302, -30.0)); // the peak is not in its middle
    QCOMPARE(results.size(), std::size_t(1));
    BearingResult const & result = results.front();
    QCOMPARE(result.GetText(), QStringLiteral("A"));
    QCOMPARE(result.GetCount(), static_cast<unsigned int>(DirectionFinder::eNumberCount));
    QCOMPARE(result.GetValue(DirectionFinder::eFrequency), 300e3);
    QCOMPARE(result.GetValue(DirectionFinder::eLevel), -30.0);
    QVERIFY(std::abs(result.GetValue(DirectionFinder::eBearing) - 120.0) <= DirectionFinder::LargestError);
    QVERIFY(std::abs(result.GetValue(DirectionFinder::eElevation) - 10.0) <= DirectionFinder::LargestError / 2.0);
    QVERIFY(std::abs(result.GetValue(DirectionFinder::eQuality) - 90.0) <= 3.0);
    // markers stand at the third number, and panes can show the fifth beside it
    QCOMPARE(int(DirectionFinder::eFrequency), 2);
    QCOMPARE(int(DirectionFinder::eLevel), 4);
}

void tst_DirectionFinder::resultsRiseInFrequency()
{
    DirectionFinder finder =
        FinderOf({ Emitter(QStringLiteral("high"), 800e3, 1e3), Emitter(QStringLiteral("low"), 100e3, 50e3),
                   Emitter(QStringLiteral("middle"), 400e3, 20e3) });
    SpectrumLine line = Quiet();
    for (std::size_t const bin : { 100U, 400U, 800U })
        line.levels[bin] = -40.0;
    QStringList const order{ QStringLiteral("low"), QStringLiteral("middle"), QStringLiteral("high") };
    QCOMPARE(NamesOf(finder.Measure(line)), order);
    QVERIFY(finder.Take(line, 0.0));
    QCOMPARE(NamesOf(finder.GetResults()), order);
}

void tst_DirectionFinder::lineWithoutAWidthHasNone_data()
{
    QTest::addColumn<double>("centre");
    QTest::addColumn<double>("span");
    QTest::addColumn<int>("bins");
    double const nan = std::numeric_limits<double>::quiet_NaN();
    double const infinite = std::numeric_limits<double>::infinity();
    QTest::newRow("no levels") << 500e3 << 1e6 << 0;
    QTest::newRow("no span") << 500e3 << 0.0 << Bins;
    QTest::newRow("span below 0") << 500e3 << -1e6 << Bins;
    QTest::newRow("span is no number") << 500e3 << nan << Bins;
    QTest::newRow("endless span") << 500e3 << infinite << Bins;
    QTest::newRow("centre is no number") << nan << 1e6 << Bins;
    QTest::newRow("endless centre") << infinite << 1e6 << Bins;
    QTest::newRow("far away") << 1e300 << 1e6 << Bins;
}

void tst_DirectionFinder::lineWithoutAWidthHasNone()
{
    QFETCH(double, centre);
    QFETCH(double, span);
    QFETCH(int, bins);
    SpectrumLine line = With(300, -30.0);
    line.centre = centre;
    line.span = span;
    line.levels.resize(static_cast<std::size_t>(bins));
    QVERIFY(FinderOf({ Emitter(QStringLiteral("A"), 300e3) }).Measure(line).empty());
}

void tst_DirectionFinder::levelsWithoutANumberAreLeftOut_data()
{
    QTest::addColumn<double>("level");
    QTest::addColumn<int>("others"); // of the bins without the emitter's, so many hold the level
    QTest::addColumn<int>("count");
    double const nan = std::numeric_limits<double>::quiet_NaN();
    double const infinite = std::numeric_limits<double>::infinity();
    QTest::newRow("no number in most") << nan << Bins - 10 << 1;
    QTest::newRow("endless in most") << infinite << Bins - 10 << 1;
    QTest::newRow("endless below 0 in most") << -infinite << Bins - 10 << 1;
    QTest::newRow("no number in all") << nan << Bins << 0;
    QTest::newRow("endless in all") << infinite << Bins << 0;
    QTest::newRow("endless below 0 in all") << -infinite << Bins << 0;
}

void tst_DirectionFinder::levelsWithoutANumberAreLeftOut()
{
    QFETCH(double, level);
    QFETCH(int, others);
    QFETCH(int, count);
    SpectrumLine line = Quiet();
    std::fill_n(line.levels.begin(), others, level);
    if (others < Bins)
        line.levels[995] = Noise + DirectionFinder::Threshold; // the noise is that of the finite ones
    DirectionFinder const finder = FinderOf({ Emitter(QStringLiteral("A"), 995e3, 8e3) });
    QCOMPARE(finder.Measure(line).size(), static_cast<std::size_t>(count));
    line.levels[995] -= 0.1;
    QVERIFY(finder.Measure(line).empty());
}

void tst_DirectionFinder::emitterOutsideTheLineIsNotFound()
{
    SpectrumLine line = Quiet();
    line.levels.front() = line.levels.back() = -30.0;
    DirectionFinder const finder =
        FinderOf({ Emitter(QStringLiteral("below"), -20e3), Emitter(QStringLiteral("above"), 1.02e6),
                   Emitter(QStringLiteral("far"), 145e6) });
    QVERIFY(finder.Measure(line).empty());
}

void tst_DirectionFinder::wideOneIsFoundAtItsPeak()
{
    double const wide = DirectionFinder::WidestChannel;
    QCOMPARE(FinderOf({ Emitter(QStringLiteral("A"), 500e3, wide) })
                 .Measure(With(450, -30.0))
                 .front()
                 .GetValue(DirectionFinder::eFrequency),
             500e3);
    QCOMPARE(FinderOf({ Emitter(QStringLiteral("A"), 500e3, wide + 1.0) })
                 .Measure(With(450, -30.0))
                 .front()
                 .GetValue(DirectionFinder::eFrequency),
             450e3);
}

void tst_DirectionFinder::narrowOneKeepsItsBins()
{
    DirectionFinder const finder =
        FinderOf({ Emitter(QStringLiteral("wide"), 500e3, 900e3), Emitter(QStringLiteral("narrow"), 300e3) });
    QCOMPARE(NamesOf(finder.Measure(With(303, -30.0))), QStringList{ QStringLiteral("narrow") });
    // what its window spreads beside it is not the wide one's either
    QVERIFY(finder.Measure(With(307, -30.0)).empty());
    QCOMPARE(NamesOf(finder.Measure(With(320, -30.0))), QStringList{ QStringLiteral("wide") });
}

void tst_DirectionFinder::higherThanItsEmitterIsAnothers()
{
    DirectionFinder const finder = FinderOf({ Emitter(QStringLiteral("A"), 500e3, 400e3) });
    SpectrumLine line = With(450, -10.0); // the emitter has -20
    QVERIFY(finder.Measure(line).empty());
    line.levels[550] = -50.0;
    QCOMPARE(finder.Measure(line).front().GetValue(DirectionFinder::eFrequency), 550e3);
}

void tst_DirectionFinder::errorIsReproducible()
{
    std::vector<SimulatedEmitter> const emitters{ Emitter(QStringLiteral("A"), 300e3),
                                                  Emitter(QStringLiteral("B"), 600e3) };
    SpectrumLine line = With(300, -30.0, 7);
    line.levels[600] = -30.0;
    std::vector<BearingResult> const once = FinderOf(emitters, 5).Measure(line);
    QVERIFY(once == FinderOf(emitters, 5).Measure(line));
    QVERIFY(once.front() != FinderOf(emitters, 6).Measure(line).front());
    QVERIFY(once[0].GetValue(DirectionFinder::eBearing) != once[1].GetValue(DirectionFinder::eBearing));
    line.number = 8;
    QVERIFY(once.front() != FinderOf(emitters, 5).Measure(line).front());
}

void tst_DirectionFinder::errorFollowsTheQuality_data()
{
    QTest::addColumn<double>("quality");
    QTest::addColumn<double>("most"); // deg
    QTest::newRow("best") << 100.0 << 0.3;
    QTest::newRow("half") << 50.0 << 3.15;
    QTest::newRow("worst") << 0.0 << DirectionFinder::LargestError;
}

void tst_DirectionFinder::errorFollowsTheQuality()
{
    QFETCH(double, quality);
    QFETCH(double, most);
    DirectionFinder const finder = FinderOf({ Emitter(QStringLiteral("A"), 300e3, 10e3, quality) });
    double bearing = 0.0;
    double elevation = 0.0;
    double sum = 0.0;
    constexpr int turns = 2000;
    for (quint64 number = 0; number < turns; ++number) {
        BearingResult const result = finder.Measure(With(300, -30.0, number)).front();
        double const error = result.GetValue(DirectionFinder::eBearing) - 120.0;
        bearing = std::max(bearing, std::abs(error));
        elevation = std::max(elevation, std::abs(result.GetValue(DirectionFinder::eElevation) - 10.0));
        sum += error;
        QVERIFY(result.GetValue(DirectionFinder::eQuality) >= 0.0);
        QVERIFY(result.GetValue(DirectionFinder::eQuality) <= 100.0);
    }
    QVERIFY2(bearing <= most && bearing > 0.8 * most, qPrintable(QString::number(bearing)));
    QVERIFY2(elevation <= most / 2.0 && elevation > 0.4 * most, qPrintable(QString::number(elevation)));
    QVERIFY(std::abs(sum / turns) < most / 20.0); // no bias
}

void tst_DirectionFinder::anglesStayOnTheirCircles_data()
{
    QTest::addColumn<double>("bearing");
    QTest::addColumn<double>("elevation");
    QTest::newRow("north, zenith") << 0.0 << 90.0;
    QTest::newRow("just below north, nadir") << 359.99 << -90.0;
}

void tst_DirectionFinder::anglesStayOnTheirCircles()
{
    QFETCH(double, bearing);
    QFETCH(double, elevation);
    SimulatedEmitter emitter = Emitter(QStringLiteral("A"), 300e3, 10e3, 0.0);
    emitter.bearing = bearing;
    emitter.elevation = elevation;
    DirectionFinder const finder = FinderOf({ emitter });
    int low = 0;
    int high = 0;
    for (quint64 number = 0; number < 500; ++number) {
        BearingResult const result = finder.Measure(With(300, -30.0, number)).front();
        double const found = result.GetValue(DirectionFinder::eBearing);
        QVERIFY(found >= 0.0 && found < 360.0);
        QVERIFY(found < 7.0 || found > 353.0);
        low += found < 7.0 ? 1 : 0;
        high += found > 353.0 ? 1 : 0;
        QVERIFY(std::abs(result.GetValue(DirectionFinder::eElevation)) <= 90.0);
    }
    QVERIFY(low > 100 && high > 100);
}

void tst_DirectionFinder::weakOneLosesQuality()
{
    DirectionFinder const finder = FinderOf({ Emitter(QStringLiteral("A"), 300e3, 10e3, 50.0) });
    auto const quality = [&finder](double above) {
        return finder.Measure(With(300, Noise + above)).front().GetValue(DirectionFinder::eQuality);
    };
    QCOMPARE(quality(60.0), quality(20.0));
    QCOMPARE(quality(20.0) - quality(14.0), 9.0); // 1.5 a dB
}

void tst_DirectionFinder::measuresAtABoundedRate()
{
    DirectionFinder finder = FinderOf({ Emitter(QStringLiteral("A"), 300e3) });
    int measured = 0;
    for (quint64 number = 0; number < 1000; ++number) // 100 lines a second
        measured += finder.Take(With(300, -30.0, number), static_cast<double>(number) / 100.0) ? 1 : 0;
    QCOMPARE(measured, 40);
    QVERIFY(DirectionFinder::Period >= 0.2 && DirectionFinder::Period <= 0.5); // 2 to 5 a second
}

void tst_DirectionFinder::resultStaysForAWhile()
{
    DirectionFinder finder = FinderOf({ Emitter(QStringLiteral("A"), 300e3), Emitter(QStringLiteral("B"), 600e3) });
    QVERIFY(finder.GetResults().empty());
    QVERIFY(finder.Take(With(300, -30.0), 0.0));
    QVERIFY(finder.Take(With(600, -30.0), 1.0));
    QCOMPARE(NamesOf(finder.GetResults()), (QStringList{ QStringLiteral("A"), QStringLiteral("B") }));
    QVERIFY(finder.Take(Quiet(), DirectionFinder::Hold));
    QCOMPARE(finder.GetResults().size(), std::size_t(2));
    QVERIFY(finder.Take(Quiet(), DirectionFinder::Hold + DirectionFinder::Period));
    QCOMPARE(NamesOf(finder.GetResults()), QStringList{ QStringLiteral("B") });
    QVERIFY(finder.Take(Quiet(), 10.0));
    QVERIFY(finder.GetResults().empty());
}

void tst_DirectionFinder::latestResultCounts()
{
    DirectionFinder finder = FinderOf({ Emitter(QStringLiteral("A"), 300e3) });
    finder.Take(With(300, -30.0), 0.0);
    finder.Take(With(300, -40.0), 1.0);
    QCOMPARE(finder.GetResults().size(), std::size_t(1));
    QCOMPARE(finder.GetResults().front().GetValue(DirectionFinder::eLevel), -40.0);
    finder.Take(Quiet(), 2.5); // its time counts from the latest
    QCOMPARE(finder.GetResults().size(), std::size_t(1));
}

void tst_DirectionFinder::clockThatGoesBackBeginsAnew()
{
    DirectionFinder finder = FinderOf({ Emitter(QStringLiteral("A"), 300e3), Emitter(QStringLiteral("B"), 600e3) });
    QVERIFY(finder.Take(With(300, -30.0), 100.0));
    QVERIFY(finder.Take(With(600, -30.0), 99.9));
    QCOMPARE(NamesOf(finder.GetResults()), QStringList{ QStringLiteral("B") });
    QVERIFY(!finder.Take(With(600, -30.0), 100.0));
}

void tst_DirectionFinder::clockWithoutATimeIsIgnored_data()
{
    QTest::addColumn<double>("now");
    QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("endless") << std::numeric_limits<double>::infinity();
    QTest::newRow("endless below 0") << -std::numeric_limits<double>::infinity();
}

void tst_DirectionFinder::clockWithoutATimeIsIgnored()
{
    QFETCH(double, now);
    DirectionFinder finder = FinderOf({ Emitter(QStringLiteral("A"), 300e3) });
    QVERIFY(!finder.Take(With(300, -30.0), now));
    QVERIFY(finder.GetResults().empty());
    QVERIFY(finder.Take(With(300, -30.0), 0.0));
}

void tst_DirectionFinder::findsTheSimulatedEmitters()
{
    Simulator simulator;
    LineMaker maker(simulator);
    maker.SetBins(2048);
    DirectionFinder finder(Simulator::Emitters(), 1);
    std::set<QString> found;
    constexpr double slice = 0.04;
    for (quint64 number = 0; number < 100; ++number) {
        double const time = static_cast<double>(number) * slice;
        finder.Take(*maker.Make(number, time, slice), time);
        for (BearingResult const & result : finder.GetResults()) {
            found.insert(result.GetText());
            for (SimulatedEmitter const & emitter : Simulator::Emitters()) {
                if (emitter.name != result.GetText())
                    continue;
                double const away = result.GetValue(DirectionFinder::eFrequency) - emitter.frequency;
                QVERIFY(std::abs(away) <= emitter.bandwidth / 2.0 + 500.0);
                double const turned = result.GetValue(DirectionFinder::eBearing) - emitter.bearing + 540.0;
                QVERIFY(std::abs(std::fmod(turned, 360.0) - 180.0) <= DirectionFinder::LargestError);
            }
        }
    }
    QStringList names;
    for (QString const & name : found)
        names.append(name);
    QCOMPARE(names.join(QLatin1Char(' ')), QStringLiteral("Beacon Broadcast Hopper Meter Sounder Taxi Tower"));
}

void tst_DirectionFinder::singleMeasurementsScatter_data()
{
    QTest::addColumn<double>("quality");
    QTest::addColumn<double>("most"); // deg
    QTest::newRow("best") << 100.0 << 0.9;
    QTest::newRow("half") << 50.0 << 9.45;
    QTest::newRow("worst") << 0.0 << 18.0;
}

//! Three times as far as a result, around the same direction.
void tst_DirectionFinder::singleMeasurementsScatter()
{
    QFETCH(double, quality);
    QFETCH(double, most);
    DirectionFinder const finder = FinderOf({ Emitter(QStringLiteral("A"), 300e3, 10e3, quality) });
    double bearing = 0.0;
    double elevation = 0.0;
    double sum = 0.0;
    double lowest = 100.0;
    double highest = 0.0;
    constexpr int turns = 1000;
    for (quint64 number = 0; number < turns; ++number) {
        std::vector<BearingMeasurement> const singles = finder.MeasureSingles(With(300, -30.0, number));
        QCOMPARE(singles.size(), std::size_t(1));
        double const error = singles[0].bearing - 120.0;
        bearing = std::max(bearing, std::abs(error));
        elevation = std::max(elevation, std::abs(singles[0].elevation - 10.0));
        sum += error;
        lowest = std::min(lowest, singles[0].quality);
        highest = std::max(highest, singles[0].quality);
        QCOMPARE(singles[0].level, -30.0);
    }
    QVERIFY2(bearing <= most && bearing > 0.8 * most, qPrintable(QString::number(bearing)));
    QVERIFY2(elevation <= most / 2.0 && elevation > 0.4 * most, qPrintable(QString::number(elevation)));
    QVERIFY(std::abs(sum / turns) < most / 15.0); // no bias
    QVERIFY(lowest >= 0.0 && lowest >= quality - 9.0 && lowest < std::max(1e-9, quality - 6.0));
    QVERIFY(highest <= 100.0 && highest <= quality + 9.0 && highest > std::min(100.0 - 1e-9, quality + 6.0));
}

void tst_DirectionFinder::singleMeasurementsLieInTheChannel()
{
    DirectionFinder const finder = FinderOf({ Emitter(QStringLiteral("A"), 300e3, 10e3) });
    double lowest = 1e6;
    double highest = 0.0;
    for (quint64 number = 0; number < 500; ++number) {
        double const frequency = finder.MeasureSingles(With(303, -30.0, number)).front().frequency;
        lowest = std::min(lowest, frequency);
        highest = std::max(highest, frequency);
    }
    QVERIFY(lowest >= 295e3 && lowest < 296e3);
    QVERIFY(highest <= 305e3 && highest > 304e3);
    // what is found at its peak stays there
    DirectionFinder const wide = FinderOf({ Emitter(QStringLiteral("A"), 300e3, 400e3) });
    QCOMPARE(wide.MeasureSingles(With(250, -30.0)).front().frequency, 250e3);
    QVERIFY(finder.MeasureSingles(Quiet()).empty());
    QVERIFY(finder.MeasureSingles(SpectrumLine()).empty());
}

void tst_DirectionFinder::singleMeasurementsAreReproducible()
{
    std::vector<SimulatedEmitter> const emitters{ Emitter(QStringLiteral("A"), 300e3),
                                                  Emitter(QStringLiteral("B"), 600e3) };
    SpectrumLine line = With(300, -30.0, 7);
    line.levels[600] = -30.0;
    auto const bearings = [&](quint64 seed) {
        std::vector<BearingMeasurement> const singles = FinderOf(emitters, seed).MeasureSingles(line);
        return singles.size() == 2 ? QVector<double>{ singles[0].bearing, singles[1].bearing } : QVector<double>();
    };
    QVector<double> const once = bearings(5);
    QCOMPARE(once.size(), 2);
    QCOMPARE(bearings(5), once);
    QVERIFY(bearings(6)[0] != once[0]);
    QVERIFY(once[0] != once[1]);
    // nor do they repeat the error of the result
    double const result = FinderOf(emitters, 5).Measure(line).front().GetValue(DirectionFinder::eBearing);
    QVERIFY(std::abs((once[0] - 120.0) - DirectionFinder::Scatter * (result - 120.0)) > 1e-6);
    line.number = 8;
    QVERIFY(bearings(5)[0] != once[0]);
}

void tst_DirectionFinder::singleAnglesStayOnTheirCircles()
{
    SimulatedEmitter emitter = Emitter(QStringLiteral("A"), 300e3, 10e3, 0.0);
    emitter.bearing = 359.9;
    emitter.elevation = 89.0;
    DirectionFinder const finder = FinderOf({ emitter });
    int low = 0;
    int high = 0;
    for (quint64 number = 0; number < 500; ++number) {
        BearingMeasurement const single = finder.MeasureSingles(With(300, -30.0, number)).front();
        QVERIFY(single.bearing >= 0.0 && single.bearing < 360.0);
        QVERIFY(single.bearing < 18.0 || single.bearing > 341.0);
        low += single.bearing < 18.0 ? 1 : 0;
        high += single.bearing > 341.0 ? 1 : 0;
        QVERIFY(single.elevation <= 90.0 && single.elevation >= 80.0);
    }
    QVERIFY(low > 100 && high > 100);
}

void tst_DirectionFinder::singlesAreTakenAtABoundedRate()
{
    constexpr double Period = DirectionFinder::SinglePeriod;
    DirectionFinder finder = FinderOf({ Emitter(QStringLiteral("A"), 300e3) });
    SpectrumLine const line = With(300, -30.0);
    std::vector<BearingMeasurement> singles;
    QVERIFY(finder.TakeSingles(line, 10.0, singles));
    QCOMPARE(singles.size(), std::size_t(1));
    singles.clear();
    QVERIFY(!finder.TakeSingles(line, 10.0 + 0.9 * Period, singles));
    QVERIFY(singles.empty());
    QVERIFY(finder.TakeSingles(line, 10.0 + 1.01 * Period, singles));
    QCOMPARE(singles.size(), std::size_t(1));
    for (double const now :
         { std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(), -HUGE_VAL })
        QVERIFY(!finder.TakeSingles(line, now, singles));
    QVERIFY(finder.TakeSingles(line, 3.0, singles)); // back in time
    QVERIFY(finder.TakeSingles(Quiet(), 4.0, singles));
    QVERIFY(singles.empty());
    // results keep their own time
    QVERIFY(finder.Take(line, 4.0));
}

void tst_DirectionFinder::resultTellsOfItsChannel()
{
    QCOMPARE(FinderOf({ Emitter(QStringLiteral("A"), 300e3, 10e3) })
                 .Measure(With(300, -30.0))
                 .front()
                 .GetValue(DirectionFinder::eBandwidth),
             10e3);
    QCOMPARE(FinderOf({ Emitter(QStringLiteral("A"), 300e3, 400e3) })
                 .Measure(With(300, -30.0))
                 .front()
                 .GetValue(DirectionFinder::eBandwidth),
             0.0);
    QCOMPARE(int(DirectionFinder::eBandwidth), 5);
}

void tst_DirectionFinder::uncertaintyFollowsTheQuality_data()
{
    QTest::addColumn<double>("quality");
    QTest::addColumn<double>("degrees");
    QTest::newRow("best") << 100.0 << 0.3;
    QTest::newRow("half") << 50.0 << 3.15;
    QTest::newRow("worst") << 0.0 << 6.0;
    QTest::newRow("above") << 1e300 << 0.3;
    QTest::newRow("below") << -1e300 << 6.0;
    QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << 6.0;
    QTest::newRow("endless") << std::numeric_limits<double>::infinity() << 6.0;
}

void tst_DirectionFinder::uncertaintyFollowsTheQuality()
{
    QFETCH(double, quality);
    QFETCH(double, degrees);
    QCOMPARE(DirectionFinder::Uncertainty(quality), degrees);
}

void tst_DirectionFinder::vehicleSwings_data()
{
    QTest::addColumn<double>("now");
    QTest::addColumn<double>("heading");
    QTest::newRow("at the start") << 0.0 << 30.0;
    QTest::newRow("to starboard") << 22.5 << 45.0;
    QTest::newRow("back") << 45.0 << 30.0;
    QTest::newRow("to port") << 67.5 << 15.0;
    QTest::newRow("again") << 90.0 << 30.0;
    QTest::newRow("much later") << 22.5 + 90.0 * 1e6 << 45.0;
    QTest::newRow("in whole degrees") << 1.0 << 31.0;
    QTest::newRow("no time") << std::numeric_limits<double>::quiet_NaN() << 30.0;
    QTest::newRow("endless") << std::numeric_limits<double>::infinity() << 30.0;
}

void tst_DirectionFinder::vehicleSwings()
{
    QFETCH(double, now);
    QFETCH(double, heading);
    QCOMPARE(DirectionFinder::Heading(now), heading);
}

ORIM_CORE_TEST_MAIN(tst_DirectionFinder)
#include "tst_directionfinder.moc"
