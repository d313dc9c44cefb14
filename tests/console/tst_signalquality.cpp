// SPDX-License-Identifier: MIT
#include "signalquality.h"

#include "testmain.h"

#include <cmath>
#include <limits>

class tst_SignalQuality : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void noise_data();
    void noise();
    void longLinesAreThinnedOut();
    void quality_data();
    void quality();
};

namespace {

constexpr double Inf = std::numeric_limits<double>::infinity();
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();

} // namespace

void tst_SignalQuality::noise_data()
{
    QTest::addColumn<QVector<double>>("levels");
    QTest::addColumn<double>("noise");
    QTest::newRow("no levels") << QVector<double>{} << NaN;
    QTest::newRow("one level") << QVector<double>{ -70.0 } << -70.0;
    QTest::newRow("the middle one") << QVector<double>{ -10.0, -90.0, -80.0, -70.0, -20.0 } << -70.0;
    QTest::newRow("a few signals do not raise it") << QVector<double>{ -90.0, -90.0, -90.0, -10.0, -10.0 } << -90.0;
    QTest::newRow("NaN and infinite do not count") << QVector<double>{ NaN, -90.0, Inf, -Inf, NaN } << -90.0;
    QTest::newRow("nothing finite") << QVector<double>{ NaN, Inf, -Inf } << NaN;
}

void tst_SignalQuality::noise()
{
    QFETCH(QVector<double>, levels);
    QFETCH(double, noise);
    double const found = SignalQuality::NoiseLevel({ levels.begin(), levels.end() });
    QVERIFY2(found == noise || (std::isnan(found) && std::isnan(noise)), qPrintable(QString::number(found)));
}

//! One level in four counts in a line of 4096: the others may be anything.
void tst_SignalQuality::longLinesAreThinnedOut()
{
    std::vector<double> levels(4096, 0.0);
    for (std::size_t i = 0; i < levels.size(); i += 4)
        levels[i] = -80.0;
    QCOMPARE(SignalQuality::NoiseLevel(levels), -80.0);
    std::vector<double> const odd(1025, -50.0);
    QCOMPARE(SignalQuality::NoiseLevel(odd), -50.0);
}

void tst_SignalQuality::quality_data()
{
    QTest::addColumn<double>("level");
    QTest::addColumn<double>("noise");
    QTest::addColumn<int>("steps");
    QTest::addColumn<int>("quality");
    QTest::newRow("the noise is worst") << -80.0 << -80.0 << 8 << 0;
    QTest::newRow("below the noise is worst") << -120.0 << -80.0 << 8 << 0;
    QTest::newRow("just below a signal") << -74.01 << -80.0 << 8 << 0;
    QTest::newRow("a signal: 6 dB") << -74.0 << -80.0 << 8 << 1;
    QTest::newRow("just below the third of eight") << -69.15 << -80.0 << 8 << 1;
    QTest::newRow("the third of eight: 10.9 dB") << -69.14 << -80.0 << 8 << 2;
    QTest::newRow("just below the last of eight") << -44.86 << -80.0 << 8 << 6;
    QTest::newRow("the last of eight: 35.2 dB") << -44.85 << -80.0 << 8 << 7;
    QTest::newRow("nothing is better: 40 dB") << -40.0 << -80.0 << 8 << 7;
    QTest::newRow("nothing is better: 200 dB") << 120.0 << -80.0 << 8 << 7;
    QTest::newRow("the second of four: 6 dB") << -74.0 << -80.0 << 4 << 1;
    QTest::newRow("the third of four: 17.4 dB") << -62.6 << -80.0 << 4 << 2;
    QTest::newRow("just below it") << -62.7 << -80.0 << 4 << 1;
    QTest::newRow("the last of four: 28.7 dB") << -51.3 << -80.0 << 4 << 3;
    QTest::newRow("signal or none") << -74.0 << -80.0 << 2 << 1;
    QTest::newRow("none") << -74.01 << -80.0 << 2 << 0;
    QTest::newRow("one step: no quality") << 0.0 << -80.0 << 1 << 0;
    QTest::newRow("no step") << 0.0 << -80.0 << 0 << 0;
    QTest::newRow("less than no step") << 0.0 << -80.0 << std::numeric_limits<int>::min() << 0;
    QTest::newRow("as many steps as there can be")
        << 0.0 << -80.0 << std::numeric_limits<int>::max() << std::numeric_limits<int>::max() - 1;
    QTest::newRow("level NaN") << NaN << -80.0 << 8 << 0;
    QTest::newRow("noise NaN") << -10.0 << NaN << 8 << 0;
    QTest::newRow("level infinite") << Inf << -80.0 << 8 << 7;
    QTest::newRow("level minus infinite") << -Inf << -80.0 << 8 << 0;
    QTest::newRow("noise minus infinite") << -10.0 << -Inf << 8 << 7;
    QTest::newRow("both infinite") << Inf << Inf << 8 << 0;
}

void tst_SignalQuality::quality()
{
    QFETCH(double, level);
    QFETCH(double, noise);
    QFETCH(int, steps);
    QFETCH(int, quality);
    QCOMPARE(SignalQuality::QualityOf(level, noise, steps), quality);
}

ORIM_CORE_TEST_MAIN(tst_SignalQuality)
#include "tst_signalquality.moc"
