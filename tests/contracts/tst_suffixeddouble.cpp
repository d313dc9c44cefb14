// SPDX-License-Identifier: MIT
#include "suffixeddouble.h"
#include "suffixednumber.h"
#include "testmain.h"

#include <clocale>
#include <cmath>
#include <limits>
#include <memory>

class tst_SuffixedDouble : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void enumeration_data();
    void enumeration();
    void start();
    void displayString_data();
    void displayString();
    void significantString_data();
    void significantString();
    void setters();
    void reads_data();
    void reads();
    void comesBack_data();
    void comesBack();
    void largestComeBack_data();
    void largestComeBack();
    void localeDoesNotMatter();
    void derivedFormsAreUsed();
};

namespace {

using Suffix = SuffixedDouble::ESuffix;

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();

//! A converter of an application.
class Degrees : public SuffixedDouble
{
public:
    QString GetDisplayString(double value) const override { return QStringLiteral("about %1 deg").arg(value); }

    QString GetSignificantStringNoSuffix(double value) const override { return QStringLiteral("about %1").arg(value); }

    QString GetPureSuffix() const override { return QStringLiteral("deg"); }

    double GetValue(QString const & text, bool * ok) const override
    {
        if (ok)
            *ok = true;
        return static_cast<double>(text.size());
    }
};

//! Half of the last digit that a text shows, in the bare unit.
double HalfOfTheLast(QString const & shown, QString const & unit)
{
    QString const number = shown.section(' ', 0, 0);
    QString const suffix = shown.section(' ', 1);
    QString const digits = number.section('e', 0, 0);
    int power = number.section('e', 1).toInt() - static_cast<int>(digits.section('.', 1).size());
    for (int exponent = -9; exponent <= 12; exponent += 3)
        if (SuffixedNumber::Prefix(exponent) + unit == suffix)
            power += exponent;
    return 0.5 * std::pow(10.0, power);
}

} // namespace

void tst_SuffixedDouble::enumeration_data()
{
    QTest::addColumn<int>("suffix");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("pure");
    QTest::addColumn<double>("factor");
    QTest::newRow("nano") << int(SuffixedDouble::eSuffixNano) << -3 << "nHz" << 1e-9;
    QTest::newRow("micro") << int(SuffixedDouble::eSuffixMicro) << -2 << QString(QChar(0xB5)) + "Hz" << 1e-6;
    QTest::newRow("milli") << int(SuffixedDouble::eSuffixMilli) << -1 << "mHz" << 1e-3;
    QTest::newRow("none") << int(SuffixedDouble::eSuffixNone) << 0 << "Hz" << 1.0;
    QTest::newRow("kilo") << int(SuffixedDouble::eSuffixKilo) << 1 << "kHz" << 1e3;
    QTest::newRow("mega") << int(SuffixedDouble::eSuffixMega) << 2 << "MHz" << 1e6;
    QTest::newRow("giga") << int(SuffixedDouble::eSuffixGiga) << 3 << "GHz" << 1e9;
    QTest::newRow("tera") << int(SuffixedDouble::eSuffixTera) << 4 << "THz" << 1e12;
    QTest::newRow("auto is the bare unit") << int(SuffixedDouble::eSuffixAuto) << 100 << "Hz" << 1.0;
    QTest::newRow("a number below counts as none") << -4 << -4 << "Hz" << 1.0;
    QTest::newRow("a number between counts as none") << 5 << 5 << "Hz" << 1.0;
}

void tst_SuffixedDouble::enumeration()
{
    QFETCH(int, suffix);
    QTEST(suffix, "number");
    QTEST(SuffixedDouble(static_cast<Suffix>(suffix)).GetPureSuffix(), "pure");
    QFETCH(double, factor);
    QVERIFY(qFuzzyCompare(SuffixedDouble::GetFactor(static_cast<Suffix>(suffix)), factor));
}

void tst_SuffixedDouble::start()
{
    SuffixedDouble const number;
    QCOMPARE(number.GetSuffix(), SuffixedDouble::eSuffixAuto);
    QCOMPARE(number.GetUnit(), QStringLiteral("Hz"));
    QCOMPARE(number.GetSignificantDigits(), 12);
    QCOMPARE(number.GetResolution(), SuffixedDouble::eSuffixAuto);
    QCOMPARE(SuffixedDouble(static_cast<Suffix>(7)).GetSuffix(), SuffixedDouble::eSuffixNone);
}

void tst_SuffixedDouble::displayString_data()
{
    QTest::addColumn<int>("suffix");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<int>("resolution");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    int const automatic = SuffixedDouble::eSuffixAuto;
    QTest::newRow("auto, mega") << automatic << "Hz" << automatic << 12.5e6 << "12.5 MHz";
    QTest::newRow("auto, kilo") << automatic << "Hz" << automatic << 12500.0 << "12.5 kHz";
    QTest::newRow("auto, none") << automatic << "Hz" << automatic << 12.5 << "12.5 Hz";
    QTest::newRow("auto, milli") << automatic << "Hz" << automatic << 0.0125 << "12.5 mHz";
    QTest::newRow("auto, zero") << automatic << "Hz" << automatic << 0.0 << "0 Hz";
    QTest::newRow("auto, rounding reaches the next prefix")
        << automatic << "Hz" << automatic << 999999.9999999999 << "1 MHz";
    QTest::newRow("auto with a resolution") << automatic << "Hz" << 0 << 12.5e6 << "12.500000 MHz";
    QTest::newRow("auto, rounded to the resolution reaches the next prefix")
        << automatic << "Hz" << 0 << 999999.9999 << "1.000000 MHz";
    QTest::newRow("auto, the last below the next prefix") << automatic << "Hz" << 0 << 999999.4 << "999.999 kHz";
    QTest::newRow("auto, less than half a step") << automatic << "Hz" << 0 << 0.4 << "0 Hz";
    QTest::newRow("auto, less than half a step below zero") << automatic << "Hz" << 0 << -0.4 << "0 Hz";
    QTest::newRow("auto, half a step") << automatic << "Hz" << 0 << 0.5 << "1 Hz";
    QTest::newRow("auto, less than half a larger step") << automatic << "Hz" << 1 << 400.0 << "0 kHz";
    QTest::newRow("auto, more than half a larger step") << automatic << "Hz" << 1 << 600.0 << "1 kHz";
    QTest::newRow("auto, less than half a smaller step") << automatic << "Hz" << -1 << 0.0004 << "0.000 Hz";
    QTest::newRow("auto, a smaller step reaches the next prefix") << automatic << "Hz" << -1 << 0.9996 << "1.000 Hz";
    QTest::newRow("auto, a step far below what doubles resolve")
        << automatic << "Hz" << -3 << 12.5e12 << "12.500000000000000000000 THz";
    QTest::newRow("fixed") << 2 << "Hz" << automatic << 12500.0 << "0.0125 MHz";
    QTest::newRow("filled up to the resolution") << 2 << "Hz" << 0 << 12.5e6 << "12.500000 MHz";
    QTest::newRow("rounded to the resolution") << 2 << "Hz" << 1 << 12345678.0 << "12.346 MHz";
    QTest::newRow("a resolution above the unit") << 0 << "Hz" << 1 << 12345.6 << "12346 Hz";
    QTest::newRow("no unit") << 1 << "" << automatic << 12500.0 << "12.5 k";
    QTest::newRow("neither prefix nor unit") << 0 << "" << automatic << 12.5 << "12.5";
    QTest::newRow("another unit") << automatic << "s" << automatic << 0.25 << "250 ms";
    QTest::newRow("blanks around the unit are dropped") << 0 << " dBm " << automatic << -20.5 << "-20.5 dBm";
    QTest::newRow("NaN has no suffix") << 2 << "Hz" << automatic << NaN << "---";
    QTest::newRow("infinite has none") << automatic << "Hz" << 0 << -std::numeric_limits<double>::infinity() << "---";
}

void tst_SuffixedDouble::displayString()
{
    QFETCH(int, suffix);
    QFETCH(QString, unit);
    QFETCH(int, resolution);
    QFETCH(double, value);
    SuffixedDouble number(static_cast<Suffix>(suffix), unit);
    number.SetResolution(static_cast<Suffix>(resolution));
    QTEST(number.GetDisplayString(value), "text");
}

void tst_SuffixedDouble::significantString_data()
{
    QTest::addColumn<int>("suffix");
    QTest::addColumn<int>("resolution");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    int const automatic = SuffixedDouble::eSuffixAuto;
    QTest::newRow("in the fixed unit") << 2 << automatic << 12.5e6 << "12.5";
    QTest::newRow("auto is in the bare unit") << automatic << automatic << 12.5e6 << "12500000";
    QTest::newRow("no closing zeros") << 2 << automatic << 100e6 << "100";
    QTest::newRow("none of the resolution either") << 2 << 0 << 100e6 << "100";
    QTest::newRow("rounded to the resolution") << 2 << 1 << 12345678.0 << "12.346";
    QTest::newRow("12 digits") << 0 << automatic << 1.0 / 3.0 << "0.333333333333";
    QTest::newRow("negative") << 1 << automatic << -1.5 << "-0.0015";
    QTest::newRow("NaN") << 1 << automatic << NaN << "---";
}

void tst_SuffixedDouble::significantString()
{
    QFETCH(int, suffix);
    QFETCH(int, resolution);
    QFETCH(double, value);
    SuffixedDouble number(static_cast<Suffix>(suffix));
    number.SetResolution(static_cast<Suffix>(resolution));
    QTEST(number.GetSignificantStringNoSuffix(value), "text");
}

void tst_SuffixedDouble::setters()
{
    SuffixedDouble number;
    number.SetSuffix(SuffixedDouble::eSuffixKilo);
    number.SetUnit(QStringLiteral(" V "));
    number.SetSignificantDigits(3);
    QCOMPARE(number.GetSuffix(), SuffixedDouble::eSuffixKilo);
    QCOMPARE(number.GetUnit(), QStringLiteral("V"));
    QCOMPARE(number.GetPureSuffix(), QStringLiteral("kV"));
    QCOMPARE(number.GetDisplayString(1234.5), QStringLiteral("1.23 kV"));
    number.SetSuffix(static_cast<Suffix>(50));
    QCOMPARE(number.GetSuffix(), SuffixedDouble::eSuffixNone);
    number.SetResolution(static_cast<Suffix>(50));
    QCOMPARE(number.GetResolution(), SuffixedDouble::eSuffixNone);
    number.SetSignificantDigits(0);
    QCOMPARE(number.GetSignificantDigits(), 1);
    number.SetSignificantDigits(18);
    QCOMPARE(number.GetSignificantDigits(), 17);
}

void tst_SuffixedDouble::reads_data()
{
    QTest::addColumn<int>("suffix");
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("value");
    QTest::addColumn<bool>("isRead");
    int const automatic = SuffixedDouble::eSuffixAuto;
    QTest::newRow("with its suffix") << 2 << "12.5 MHz" << 12.5e6 << true;
    QTest::newRow("with a comma and a prefix") << 2 << "12,5k" << 12500.0 << true;
    QTest::newRow("bare, in the fixed unit") << 2 << "12.5" << 12.5e6 << true;
    QTest::newRow("bare, auto") << automatic << "12.5" << 12.5 << true;
    QTest::newRow("NaN is refused") << 2 << "nan" << 0.0 << false;
    QTest::newRow("infinite is refused") << 2 << "inf" << 0.0 << false;
    QTest::newRow("what is printed for NaN is refused") << 2 << "---" << 0.0 << false;
    QTest::newRow("huge is refused") << 2 << "1e303" << 0.0 << false;
    QTest::newRow("empty is refused") << 2 << "" << 0.0 << false;
}

void tst_SuffixedDouble::reads()
{
    QFETCH(int, suffix);
    QFETCH(QString, text);
    SuffixedDouble const number(static_cast<Suffix>(suffix));
    bool ok = false;
    QTEST(number.GetValue(text, &ok), "value");
    QTEST(ok, "isRead");
    QTEST(number.GetValue(text), "value");
}

void tst_SuffixedDouble::comesBack_data()
{
    QTest::addColumn<int>("suffix");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<int>("resolution");
    for (int const suffix : { -3, -2, -1, 0, 1, 2, 3, 4, 100 })
        for (QString const & unit : QStringList{ "Hz", "m", "", "eV", "dBm" })
            for (int const resolution : { 100, 0, 1 })
                QTest::addRow("suffix %d, unit '%s', resolution %d", suffix, qPrintable(unit), resolution)
                    << suffix << unit << resolution;
}

void tst_SuffixedDouble::comesBack()
{
    QFETCH(int, suffix);
    QFETCH(QString, unit);
    QFETCH(int, resolution);
    SuffixedDouble number(static_cast<Suffix>(suffix), unit);
    number.SetResolution(static_cast<Suffix>(resolution));
    for (double const value :
         { 0.0, 1.0, -1.0, 12.5e6, 433.92e6, 999999.999, 999999.9999, 400.0, 1.0 / 3.0, 1e-9, 6e12, -87.5e6, 1e300 }) {
        bool ok = false;
        QString const shown = number.GetDisplayString(value);
        double const back = number.GetValue(shown, &ok);
        QVERIFY2(ok, qPrintable(shown));
        QCOMPARE(number.GetDisplayString(back), shown);
        double const rounding = std::abs(value) * 4.0 * std::numeric_limits<double>::epsilon();
        QVERIFY2(std::abs(back - value) <= HalfOfTheLast(shown, unit) + rounding, qPrintable(shown));
        QString const bare = number.GetSignificantStringNoSuffix(value);
        QCOMPARE(number.GetSignificantStringNoSuffix(number.GetValue(bare, &ok)), bare);
        QVERIFY2(ok, qPrintable(bare));
    }
}

void tst_SuffixedDouble::largestComeBack_data()
{
    QTest::addColumn<int>("digits");
    QTest::addColumn<QString>("text");
    QTest::newRow("one digit") << 1 << "1e+308 Hz";
    QTest::newRow("two digits") << 2 << "1.7e+308 Hz";
    QTest::newRow("three digits") << 3 << "1.79e+308 Hz";
    QTest::newRow("four digits") << 4 << "1.797e+308 Hz";
    QTest::newRow("five digits") << 5 << "1.7976e+308 Hz";
    QTest::newRow("six digits are rounded down") << 6 << "1.79769e+308 Hz";
    QTest::newRow("all digits") << 17 << "1.7976931348623157e+308 Hz";
}

void tst_SuffixedDouble::largestComeBack()
{
    QFETCH(int, digits);
    QFETCH(QString, text);
    double const largest = std::numeric_limits<double>::max();
    SuffixedDouble number(SuffixedDouble::eSuffixNone);
    number.SetSignificantDigits(digits);
    QCOMPARE(number.GetDisplayString(largest), text);
    QCOMPARE(number.GetDisplayString(-largest), QString('-' + text));
    number.SetSuffix(SuffixedDouble::eSuffixAuto);
    for (double const value : { largest, -largest }) {
        bool ok = false;
        QString const shown = number.GetDisplayString(value);
        double const back = number.GetValue(shown, &ok);
        QVERIFY2(ok, qPrintable(shown));
        QVERIFY(std::abs(back - value) <= 2.0 * HalfOfTheLast(shown, QStringLiteral("Hz")));
    }
}

void tst_SuffixedDouble::localeDoesNotMatter()
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    SuffixedDouble const number(SuffixedDouble::eSuffixMega);
    QCOMPARE(number.GetDisplayString(12.5e6), QStringLiteral("12.5 MHz"));
    QCOMPARE(number.GetValue(QStringLiteral("12.5")), 12.5e6);
    QCOMPARE(number.GetValue(QStringLiteral("12,5")), 12.5e6);
    QLocale::setDefault(QLocale::c());
}

void tst_SuffixedDouble::derivedFormsAreUsed()
{
    std::unique_ptr<SuffixedDouble> const number = std::make_unique<Degrees>();
    QCOMPARE(number->GetDisplayString(1.5), QStringLiteral("about 1.5 deg"));
    QCOMPARE(number->GetSignificantStringNoSuffix(1.5), QStringLiteral("about 1.5"));
    QCOMPARE(number->GetPureSuffix(), QStringLiteral("deg"));
    bool ok = false;
    QCOMPARE(number->GetValue(QStringLiteral("abc"), &ok), 3.0);
    QVERIFY(ok);
}

ORIM_CORE_TEST_MAIN(tst_SuffixedDouble)
#include "tst_suffixeddouble.moc"
