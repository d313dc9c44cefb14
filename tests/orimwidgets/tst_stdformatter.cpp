// SPDX-License-Identifier: MIT
#include "stdformatter.h"

#include "testmain.h"

#include <climits>
#include <type_traits>

namespace {

static_assert(std::is_base_of_v<IStringFormatter, StdFormatter>);
static_assert(std::is_constructible_v<StdFormatter, QString, int>);
static_assert(std::is_same_v<decltype(&IStringFormatter::convert), QString const & (IStringFormatter::*)(double)>);
static_assert(
    std::is_same_v<decltype(&IStringFormatter::convertSuffixed), QString const & (IStringFormatter::*)(double)>);

} // namespace

class tst_StdFormatter : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void text_data();
    void text();
    void oddPrecisions_data();
    void oddPrecisions();
    void textsStayApart();
    void localeDoesNotMatter();
};

void tst_StdFormatter::text_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<int>("precision");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("plain");
    QTest::addColumn<QString>("suffixed");
    QTest::newRow("precision 0") << "Hz" << 0 << 12.4 << "12"
                                 << "12 Hz";
    QTest::newRow("precision 1") << "dBm" << 1 << -73.26 << "-73.3"
                                 << "-73.3 dBm";
    QTest::newRow("zeros are kept") << "s" << 3 << 1.5 << "1.500"
                                    << "1.500 s";
    QTest::newRow("no field: no blank in front") << "s" << 2 << 0.0 << "0.00"
                                                 << "0.00 s";
    QTest::newRow("no exponent") << "Hz" << 0 << 1e15 << "1000000000000000"
                                 << "1000000000000000 Hz";
    QTest::newRow("a percent sign is a text") << "%1" << 0 << 5.0 << "5"
                                              << "5 %1";
    QTest::newRow("blank without a suffix") << QString() << 0 << 5.0 << "5"
                                            << "5 ";
    QTest::newRow("NaN") << "s" << 2 << qQNaN() << "nan"
                         << "nan s";
    QTest::newRow("infinite") << "s" << 2 << qInf() << "inf"
                              << "inf s";
    QTest::newRow("minus infinite") << "s" << 2 << -qInf() << "-inf"
                                    << "-inf s";
}

void tst_StdFormatter::text()
{
    QFETCH(QString, suffix);
    QFETCH(int, precision);
    QFETCH(double, value);
    QFETCH(QString, plain);
    QFETCH(QString, suffixed);
    StdFormatter formatter(suffix, precision);
    QCOMPARE(formatter.convert(value), plain);
    QCOMPARE(formatter.convertSuffixed(value), suffixed);
}

void tst_StdFormatter::oddPrecisions_data()
{
    QTest::addColumn<int>("precision");
    QTest::addColumn<int>("length");
    QTest::newRow("below 0 counts as 0") << -1 << 1;
    QTest::newRow("lowest int") << INT_MIN << 1;
    QTest::newRow("99") << 99 << 101;
    QTest::newRow("above 99 counts as 99") << 100 << 101;
    QTest::newRow("highest int") << INT_MAX << 101;
}

void tst_StdFormatter::oddPrecisions()
{
    QFETCH(int, precision);
    QFETCH(int, length);
    StdFormatter formatter(QStringLiteral("s"), precision);
    QCOMPARE(static_cast<int>(formatter.convert(0.5).size()), length);
}

void tst_StdFormatter::textsStayApart()
{
    StdFormatter formatter(QStringLiteral("s"), 0);
    QString const & plain = formatter.convert(1.0);
    QString const & suffixed = formatter.convertSuffixed(1.0);
    QCOMPARE(plain, QStringLiteral("1"));
    QCOMPARE(suffixed, QStringLiteral("1 s"));
}

void tst_StdFormatter::localeDoesNotMatter()
{
    QLocale const before;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    StdFormatter formatter(QStringLiteral("s"), 2);
    QString const text = formatter.convertSuffixed(12345.678);
    QLocale::setDefault(before);
    QCOMPARE(text, QStringLiteral("12345.68 s"));
}

ORIM_CORE_TEST_MAIN(tst_StdFormatter)
#include "tst_stdformatter.moc"
