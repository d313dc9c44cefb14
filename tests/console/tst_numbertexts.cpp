// SPDX-License-Identifier: MIT
#include "numbertexts.h"
#include "testmain.h"

class tst_NumberTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unit_data();
    void unit();
    void decimals_data();
    void decimals();
    void frequency_data();
    void frequency();
    void level_data();
    void level();
    void time_data();
    void time();
};

void tst_NumberTexts::unit_data()
{
    QTest::addColumn<double>("largest");
    QTest::addColumn<QString>("name");
    QTest::newRow("0") << 0.0 << "Hz";
    QTest::newRow("999 Hz") << 999.0 << "Hz";
    QTest::newRow("1 kHz") << 1000.0 << "kHz";
    QTest::newRow("below 1 MHz") << 999999.0 << "kHz";
    QTest::newRow("1 MHz") << 1e6 << "MHz";
    QTest::newRow("10 GHz") << 1e10 << "MHz";
    QTest::newRow("the sign does not matter") << -2000.0 << "kHz";
    QTest::newRow("NaN") << qQNaN() << "Hz";
}

void tst_NumberTexts::unit()
{
    QFETCH(double, largest);
    QTEST(QString(QLatin1String(NumberTexts::UnitOf(largest).name)), "name");
}

void tst_NumberTexts::decimals_data()
{
    QTest::addColumn<double>("step");
    QTest::addColumn<int>("count");
    QTest::newRow("5") << 5.0 << 0;
    QTest::newRow("1") << 1.0 << 0;
    QTest::newRow("0.5") << 0.5 << 1;
    QTest::newRow("0.1") << 0.1 << 1;
    QTest::newRow("0.02") << 0.02 << 2;
    QTest::newRow("0.001") << 0.001 << 3;
    QTest::newRow("no more than nine") << 1e-20 << 9;
    QTest::newRow("0") << 0.0 << 0;
    QTest::newRow("below 0") << -0.1 << 0;
    QTest::newRow("NaN") << qQNaN() << 0;
    QTest::newRow("infinite") << qInf() << 0;
}

void tst_NumberTexts::decimals()
{
    QFETCH(double, step);
    QTEST(NumberTexts::Decimals(step), "count");
}

void tst_NumberTexts::frequency_data()
{
    QTest::addColumn<double>("hertz");
    QTest::addColumn<double>("step");
    QTest::addColumn<QString>("text");
    QTest::newRow("868.95 MHz by 50 kHz") << 868.95e6 << 50e3 << "868.95 MHz";
    QTest::newRow("114.85 MHz by 5 kHz") << 114.85e6 << 5e3 << "114.850 MHz";
    QTest::newRow("9960 Hz by 10 Hz") << 9960.0 << 10.0 << "9.96 kHz";
    QTest::newRow("30 Hz by 1 Hz") << 30.0 << 1.0 << "30 Hz";
    QTest::newRow("no sign for what shows as 0") << -0.2 << 1.0 << "0 Hz";
}

void tst_NumberTexts::frequency()
{
    QFETCH(double, hertz);
    QFETCH(double, step);
    QTEST(NumberTexts::FrequencyWithUnit(hertz, step), "text");
}

void tst_NumberTexts::level_data()
{
    QTest::addColumn<double>("level");
    QTest::addColumn<double>("step");
    QTest::addColumn<QString>("text");
    QTest::newRow("by 20 dB") << -120.0 << 20.0 << "-120";
    QTest::newRow("by 0.5 dB") << -119.5 << 0.5 << "-119.5";
    QTest::newRow("minus 0") << -0.0 << 20.0 << "0";
    QTest::newRow("rounds to 0") << -0.04 << 0.1 << "0.0";
}

void tst_NumberTexts::level()
{
    QFETCH(double, level);
    QFETCH(double, step);
    QTEST(NumberTexts::Level(level, step), "text");
}

void tst_NumberTexts::time_data()
{
    QTest::addColumn<double>("seconds");
    QTest::addColumn<double>("step");
    QTest::addColumn<QString>("text");
    QTest::newRow("0") << 0.0 << 1.0 << "0";
    QTest::newRow("milliseconds") << 0.239 << 0.001 << "0.239";
    QTest::newRow("below a minute") << 59.9 << 0.1 << "59.9";
    QTest::newRow("rounds up to a minute") << 59.96 << 0.1 << "1:00.0";
    QTest::newRow("a minute") << 60.0 << 1.0 << "1:00";
    QTest::newRow("a minute and a half second") << 60.5 << 0.1 << "1:00.5";
    QTest::newRow("two digits of seconds") << 65.0 << 1.0 << "1:05";
    QTest::newRow("rounds up to two minutes") << 119.99 << 0.1 << "2:00.0";
    QTest::newRow("an hour") << 3600.0 << 60.0 << "60:00";
    QTest::newRow("below 0") << -5.0 << 1.0 << "0";
    QTest::newRow("NaN") << qQNaN() << 1.0 << "--";
    QTest::newRow("infinite") << qInf() << 1.0 << "--";
    QTest::newRow("too long") << 1e12 << 1.0 << "--";
}

void tst_NumberTexts::time()
{
    QFETCH(double, seconds);
    QFETCH(double, step);
    QTEST(NumberTexts::Time(seconds, step), "text");
}

ORIM_CORE_TEST_MAIN(tst_NumberTexts)
#include "tst_numbertexts.moc"
