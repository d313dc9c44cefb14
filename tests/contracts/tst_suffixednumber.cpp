// SPDX-License-Identifier: MIT
#include "suffixednumber.h"
#include "testmain.h"

#include <cmath>
#include <limits>
#include <random>

using SuffixedNumber::Layout;

class tst_SuffixedNumber : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void prefixes_data();
    void prefixes();
    void reads_data();
    void reads();
    void refuses_data();
    void refuses();
    void prints_data();
    void prints();
    void bestExponent_data();
    void bestExponent();
    void randomNumbersComeBack();
    void randomTextsAreStable();
};

void tst_SuffixedNumber::prefixes_data()
{
    QTest::addColumn<int>("exponent");
    QTest::addColumn<QString>("prefix");
    QTest::newRow("nano") << -9 << "n";
    QTest::newRow("micro") << -6 << QString(QChar(0xB5));
    QTest::newRow("milli") << -3 << "m";
    QTest::newRow("none") << 0 << "";
    QTest::newRow("kilo") << 3 << "k";
    QTest::newRow("mega") << 6 << "M";
    QTest::newRow("giga") << 9 << "G";
    QTest::newRow("tera") << 12 << "T";
    QTest::newRow("an exponent between has none") << 4 << "";
    QTest::newRow("beyond tera there is none") << 15 << "";
}

void tst_SuffixedNumber::prefixes()
{
    QFETCH(int, exponent);
    QTEST(SuffixedNumber::Prefix(exponent), "prefix");
}

void tst_SuffixedNumber::reads_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<int>("bare");
    QTest::addColumn<double>("value");
    QString const micro(QChar(0xB5));
    QTest::newRow("number, prefix and unit") << "12.5 MHz"
                                             << "Hz" << 0 << 12.5e6;
    QTest::newRow("comma and prefix") << "12,5k"
                                      << "Hz" << 0 << 12500.0;
    QTest::newRow("no blank before the suffix") << "12.5MHz"
                                                << "Hz" << 0 << 12.5e6;
    QTest::newRow("blanks around and between") << "  12.5  MHz "
                                               << "Hz" << 0 << 12.5e6;
    QTest::newRow("no-break blank before the suffix") << QString("12.5%1MHz").arg(QChar(0xA0)) << "Hz" << 0 << 12.5e6;
    QTest::newRow("a bare number takes the bare unit") << "12.5"
                                                       << "Hz" << 6 << 12.5e6;
    QTest::newRow("the unit alone is the unit") << "12.5 Hz"
                                                << "Hz" << 6 << 12.5;
    QTest::newRow("a prefix wins over the bare unit") << "12.5 k"
                                                      << "Hz" << 6 << 12500.0;
    QTest::newRow("an exponent and the unit") << "1.25e7 Hz"
                                              << "Hz" << 0 << 12.5e6;
    QTest::newRow("an exponent with a sign") << "1E+3"
                                             << "Hz" << 0 << 1000.0;
    QTest::newRow("an exponent and a prefix") << "1e-3 k"
                                              << "Hz" << 0 << 1.0;
    QTest::newRow("an e without digits belongs to the unit") << "5 eV"
                                                             << "eV" << 0 << 5.0;
    QTest::newRow("an e without digits and without blank") << "5keV"
                                                           << "eV" << 0 << 5000.0;
    QTest::newRow("negative") << "-3.5 m"
                              << "Hz" << 0 << -0.0035;
    QTest::newRow("minus sign of typography") << QString(QChar(0x2212)) + "3"
                                              << "Hz" << 0 << -3.0;
    QTest::newRow("plus") << "+3"
                          << "Hz" << 0 << 3.0;
    QTest::newRow("no digit before the point") << ".5"
                                               << "Hz" << 0 << 0.5;
    QTest::newRow("no digit behind the point") << "5."
                                               << "Hz" << 0 << 5.0;
    QTest::newRow("leading zeros") << "0005"
                                   << "Hz" << 0 << 5.0;
    QTest::newRow("nano") << "1 nHz"
                          << "Hz" << 0 << 1e-9;
    QTest::newRow("micro sign") << "1 " + micro + "Hz"
                                << "Hz" << 0 << 1e-6;
    QTest::newRow("Greek mu") << QString("1 %1Hz").arg(QChar(0x3BC)) << "Hz" << 0 << 1e-6;
    QTest::newRow("u for micro") << "1 uHz"
                                 << "Hz" << 0 << 1e-6;
    QTest::newRow("milli by its exact case") << "1 mHz"
                                             << "Hz" << 0 << 1e-3;
    QTest::newRow("lower case is mega") << "1 mhz"
                                        << "Hz" << 0 << 1e6;
    QTest::newRow("upper case is mega") << "1 MHZ"
                                        << "Hz" << 0 << 1e6;
    QTest::newRow("m alone is milli") << "1m"
                                      << "Hz" << 0 << 1e-3;
    QTest::newRow("K is kilo") << "1 KHz"
                               << "Hz" << 0 << 1e3;
    QTest::newRow("khz is kilo") << "1 khz"
                                 << "Hz" << 0 << 1e3;
    QTest::newRow("g alone is giga") << "1g"
                                     << "Hz" << 0 << 1e9;
    QTest::newRow("giga") << "1 GHz"
                          << "Hz" << 0 << 1e9;
    QTest::newRow("tera") << "1 THz"
                          << "Hz" << 0 << 1e12;
    QTest::newRow("hz is the unit") << "1 hz"
                                    << "Hz" << 6 << 1.0;
    QTest::newRow("NHZ is nano") << "1 NHZ"
                                 << "Hz" << 0 << 1e-9;
    QTest::newRow("metres are no thousandths") << "5 m"
                                               << "m" << 3 << 5.0;
    QTest::newRow("millimetres are") << "5 mm"
                                     << "m" << 0 << 0.005;
    QTest::newRow("an empty unit") << "5 k"
                                   << "" << 0 << 5000.0;
    QTest::newRow("an empty unit and a bare number") << "5"
                                                     << "" << 3 << 5000.0;
    QTest::newRow("the nearest double, not a product") << "0.1 k"
                                                       << "Hz" << 0 << 100.0;
    QTest::newRow("one digit more than a product keeps") << "4.35 M"
                                                         << "Hz" << 0 << 4350000.0;
    QTest::newRow("the largest double") << "1.7976931348623157e308"
                                        << "" << 0 << std::numeric_limits<double>::max();
    QTest::newRow("zero with a huge exponent") << "0e9999"
                                               << "" << 0 << 0.0;
}

void tst_SuffixedNumber::reads()
{
    QFETCH(QString, text);
    QFETCH(QString, unit);
    QFETCH(int, bare);
    QFETCH(double, value);
    bool ok = false;
    double const read = SuffixedNumber::Parse(text, unit, bare, &ok);
    QVERIFY(ok);
    QVERIFY2(read == value, qPrintable(QString::number(read, 'g', 17)));
    QVERIFY(SuffixedNumber::Parse(text, unit, bare, nullptr) == value);
}

void tst_SuffixedNumber::refuses_data()
{
    QTest::addColumn<QString>("text");
    for (char const * const text : { "",        " ",        "MHz",      "-",       "+",     ".",
                                     ",",       "e5",       "k",        "nan",     "NaN",   "-nan",
                                     "inf",     "Infinity", "-inf",     "0x10",    "1.2.3", "1,234.5",
                                     "1 234",   "12 . 5",   "--5",      "+-5",     "- 5",   "12.5 MHzx",
                                     "12.5 Mx", "12.5 xHz", "12.5 PHz", "12.5 kk", "5 %",   "1e400",
                                     "-1e400",  "1e309",    "9e308 k",  "1e",      "1e+",   "1e99999999999999999999",
                                     "5\n5",    "five" })
        QTest::newRow(*text ? text : "empty") << text;
    QTest::newRow("longer than 64 characters") << QString(65, QLatin1Char('1'));
    QTest::newRow("64 blanks and a number") << QString(64, QLatin1Char(' ')) + "1";
    QTest::newRow("a megabyte of digits") << QString(1 << 20, QLatin1Char('9'));
    QTest::newRow("Arabic digits") << QString(QChar(0x665));
    QTest::newRow("a null character behind") << QString("5") + QChar(0);
}

void tst_SuffixedNumber::refuses()
{
    QFETCH(QString, text);
    bool ok = true;
    QCOMPARE(SuffixedNumber::Parse(text, QStringLiteral("Hz"), 6, &ok), 0.0);
    QVERIFY(!ok);
    QCOMPARE(SuffixedNumber::Parse(text, QStringLiteral("Hz"), 6, nullptr), 0.0);
}

void tst_SuffixedNumber::prints_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("exponent");
    QTest::addColumn<int>("digits");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<bool>("keepZeros");
    QTest::addColumn<QString>("text");
    double const inf = std::numeric_limits<double>::infinity();
    QTest::newRow("units") << 12.5 << 0 << 12 << -1 << false << "12.5";
    QTest::newRow("mega") << 12.5e6 << 6 << 12 << -1 << false << "12.5";
    QTest::newRow("below one unit") << 12.5 << 6 << 12 << -1 << false << "0.0000125";
    QTest::newRow("no closing zeros") << 100e6 << 6 << 12 << -1 << false << "100";
    QTest::newRow("zeros of the whole part stay") << 12.5e9 << 6 << 12 << -1 << false << "12500";
    QTest::newRow("digits are rounded") << 123456.0 << 0 << 3 << -1 << false << "123000";
    QTest::newRow("rounding carries") << 999.96 << 0 << 4 << -1 << false << "1000";
    QTest::newRow("noise of the double is hidden") << 0.1 + 0.2 << 0 << 12 << -1 << false << "0.3";
    QTest::newRow("17 digits show it") << 0.1 + 0.2 << 0 << 17 << -1 << false << "0.30000000000000004";
    QTest::newRow("18 digits count as 17") << 0.1 << 0 << 18 << -1 << false << "0.10000000000000001";
    QTest::newRow("no digits count as one") << 0.16 << 0 << 0 << -1 << false << "0.2";
    QTest::newRow("decimals filled with zeros") << 100e6 << 6 << 12 << 3 << true << "100.000";
    QTest::newRow("decimals not filled") << 100e6 << 6 << 12 << 3 << false << "100";
    QTest::newRow("decimals round") << 1.2345 << 0 << 12 << 2 << true << "1.23";
    QTest::newRow("decimals carry") << 9.996 << 0 << 12 << 2 << true << "10.00";
    QTest::newRow("half of the last decimal rounds up") << 0.5 << 0 << 12 << 0 << true << "1";
    QTest::newRow("less rounds to nothing") << 0.4 << 0 << 12 << 0 << true << "0";
    QTest::newRow("a tenth of the last decimal is nothing") << 0.009 << 0 << 12 << 1 << true << "0.0";
    QTest::newRow("nothing has no sign") << -0.4 << 0 << 12 << 0 << true << "0";
    QTest::newRow("a negative rounds away from zero too") << -0.6 << 0 << 12 << 0 << true << "-1";
    QTest::newRow("negative") << -12.5e6 << 6 << 12 << -1 << false << "-12.5";
    QTest::newRow("zero") << 0.0 << 6 << 12 << -1 << false << "0";
    QTest::newRow("zero with decimals") << 0.0 << 6 << 12 << 2 << true << "0.00";
    QTest::newRow("negative zero") << -0.0 << 0 << 12 << -1 << false << "0";
    QTest::newRow("15 digits without an exponent") << 1e14 << 0 << 12 << -1 << false << "100000000000000";
    QTest::newRow("16 with") << 1e15 << 0 << 12 << -1 << false << "1e+15";
    QTest::newRow("a large one") << 1.5e300 << 6 << 12 << -1 << false << "1.5e+294";
    QTest::newRow("small without an exponent") << 1e-9 << 0 << 12 << -1 << false << "0.000000001";
    QTest::newRow("smaller with") << 1.5e-10 << 0 << 12 << -1 << false << "1.5e-10";
    QTest::newRow("NaN") << std::numeric_limits<double>::quiet_NaN() << 0 << 12 << -1 << false << "---";
    QTest::newRow("infinite") << inf << 0 << 12 << 2 << true << "---";
    QTest::newRow("negative infinite") << -inf << 0 << 12 << -1 << false << "---";
}

void tst_SuffixedNumber::prints()
{
    QFETCH(double, value);
    QFETCH(int, exponent);
    QFETCH(int, digits);
    QFETCH(int, decimals);
    QFETCH(bool, keepZeros);
    Layout layout;
    layout.exponent = exponent;
    layout.digits = digits;
    layout.decimals = decimals;
    layout.keepZeros = keepZeros;
    QTEST(SuffixedNumber::Print(value, layout), "text");
}

void tst_SuffixedNumber::bestExponent_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("exponent");
    QTest::newRow("one") << 1.0 << 0;
    QTest::newRow("below a thousand") << 999.0 << 0;
    QTest::newRow("a thousand") << 1000.0 << 3;
    QTest::newRow("rounds up to a thousand") << 999.9999999999999 << 3;
    QTest::newRow("a million") << 1e6 << 6;
    QTest::newRow("negative") << -1e6 << 6;
    QTest::newRow("12 GHz") << 12e9 << 9;
    QTest::newRow("tera is the largest") << 1e20 << 12;
    QTest::newRow("a tenth") << 0.1 << -3;
    QTest::newRow("a thousandth") << 0.001 << -3;
    QTest::newRow("below a thousandth") << 0.0009 << -6;
    QTest::newRow("nano is the smallest") << 1e-20 << -9;
    QTest::newRow("zero") << 0.0 << 0;
    QTest::newRow("NaN") << std::numeric_limits<double>::quiet_NaN() << 0;
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << 0;
}

void tst_SuffixedNumber::bestExponent()
{
    QFETCH(double, value);
    QTEST(SuffixedNumber::BestExponent(value, 12), "exponent");
}

//! What is printed with 17 digits is read back to the same double; with fewer digits to what prints the same again.
void tst_SuffixedNumber::randomNumbersComeBack()
{
    std::mt19937_64 random(TestStage::Seed());
    std::uniform_real_distribution<double> mantissa(-10.0, 10.0);
    std::uniform_int_distribution<int> power(-300, 300);
    std::uniform_int_distribution<int> third(-3, 4);
    std::uniform_int_distribution<int> digits(1, 17);
    long long const turns = TestStage::Turns(20000, 2000000);
    for (long long i = 0; i < turns; ++i) {
        int const p = i % 2 == 0 ? power(random) : power(random) / 30;
        double const value = mantissa(random) * std::pow(10.0, p);
        Layout layout;
        layout.exponent = 3 * third(random);
        layout.digits = 17;
        bool ok = false;
        QString const exact = SuffixedNumber::Print(value, layout);
        double const back = SuffixedNumber::Parse(exact, QStringLiteral("Hz"), layout.exponent, &ok);
        QVERIFY2(ok && back == value, qPrintable(exact));
        layout.digits = digits(random);
        QString const rounded = SuffixedNumber::Print(value, layout);
        double const near = SuffixedNumber::Parse(rounded, QStringLiteral("Hz"), layout.exponent, &ok);
        QVERIFY2(ok, qPrintable(rounded));
        QCOMPARE(SuffixedNumber::Print(near, layout), rounded);
    }
    qInfo("%lld numbers printed and read back, seed %llu", turns, TestStage::Seed());
}

//! Random texts of the letters that matter: what is read prints to a text that is read to the same value.
void tst_SuffixedNumber::randomTextsAreStable()
{
    QString const letters = QStringLiteral("0123456789012345678901234567890.,.,eE+-kKMGmunHz  \u00B5\u2212");
    std::mt19937_64 random(TestStage::Seed());
    std::uniform_int_distribution<int> pick(0, static_cast<int>(letters.size()) - 1);
    std::uniform_int_distribution<int> length(0, 12);
    long long const turns = TestStage::Turns(100000, 10000000);
    long long read = 0;
    for (long long i = 0; i < turns; ++i) {
        QString text;
        for (int n = length(random); n > 0; --n)
            text += letters.at(pick(random));
        bool ok = false;
        double const value = SuffixedNumber::Parse(text, QStringLiteral("Hz"), 0, &ok);
        QVERIFY(std::isfinite(value));
        if (!ok)
            continue;
        ++read;
        Layout layout;
        layout.digits = 17;
        double const again = SuffixedNumber::Parse(SuffixedNumber::Print(value, layout), QStringLiteral("Hz"), 0, &ok);
        QVERIFY2(ok && again == value, qPrintable(text));
    }
    QVERIFY(read > turns / 100);
    qInfo("%lld texts, %lld of them numbers, seed %llu", turns, read, TestStage::Seed());
}

ORIM_CORE_TEST_MAIN(tst_SuffixedNumber)
#include "tst_suffixednumber.moc"
