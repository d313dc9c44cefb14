// SPDX-License-Identifier: MIT
#include "axisdefinition.h"
#include "testmain.h"

#include <cmath>
#include <limits>

namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();

//! One search and what it wrote; what it did not write keeps a number that no search gives.
struct Search
{
    Search(double from, double to, double displayFactor = 1.0, int fixedTicWidth = -1, int mode = 1)
        : start(from)
        , stop(to)
        , factor(displayFactor)
        , count(axisDefinition::GetAxisValuesLinear(&start, &stop, &minor, &left, &right, &first, &step, &offset, mode,
                                                    displayFactor, fixedTicWidth))
    {}

    double At(int i) const { return i * step + first + offset; }

    QString Label(int i) const { return QString::number(At(i) * factor, 'f', right); }

    QStringList Labels() const
    {
        QStringList labels;
        for (int i = 0; i < count; ++i)
            labels.append(Label(i));
        return labels;
    }

    double start;
    double stop;
    double factor;
    int minor = -7;
    int left = -7;
    int right = -7;
    double first = -7.0;
    double step = -7.0;
    double offset = -7.0;
    int count;
};

} // namespace

class tst_axisDefinition : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Tics_data();
    void Tics();
    void MinorTics_data();
    void MinorTics();
    void Digits_data();
    void Digits();
    void NoTics_data();
    void NoTics();
    void Narrowest_data();
    void Narrowest();
    void CountStaysBetween4And12();
    void FixedWidth_data();
    void FixedWidth();
    void DigitsOfAFixedWidth_data();
    void DigitsOfAFixedWidth();
    void OffsetIsWritten_data();
    void OffsetIsWritten();
    void ZeroIsExact_data();
    void ZeroIsExact();
    void EndsKeepTheirTics_data();
    void EndsKeepTheirTics();
    void FactorOfEitherSign();
    void ModeChangesNothing();
    void EachArgumentCountsAfterTheOthers();
    void RangeIsNotWritten();
    void NullPointersArePassedOver();
};

void tst_axisDefinition::Tics_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<double>("factor");
    QTest::addColumn<QString>("labels");
    QTest::newRow("step 1") << 0.0 << 10.0 << 1.0 << "0 1 2 3 4 5 6 7 8 9 10";
    QTest::newRow("step 2") << 0.0 << 20.0 << 1.0 << "0 2 4 6 8 10 12 14 16 18 20";
    QTest::newRow("step 5") << 0.0 << 50.0 << 1.0 << "0 5 10 15 20 25 30 35 40 45 50";
    QTest::newRow("step 10") << 0.0 << 100.0 << 1.0 << "0 10 20 30 40 50 60 70 80 90 100";
    QTest::newRow("twelve tics") << 0.5 << 12.4 << 1.0 << "1 2 3 4 5 6 7 8 9 10 11 12";
    QTest::newRow("thirteen would be too many") << 0.0 << 12.0 << 1.0 << "0 2 4 6 8 10 12";
    QTest::newRow("four tics") << 0.1 << 24.3 << 1.0 << "5 10 15 20";
    QTest::newRow("ends between tics") << 88.3 << 107.9 << 1.0 << "90 92 94 96 98 100 102 104 106";
    QTest::newRow("reversed") << 107.9 << 88.3 << 1.0 << "90 92 94 96 98 100 102 104 106";
    QTest::newRow("across zero") << -1.0 << 1.0 << 1.0 << "-1.0 -0.8 -0.6 -0.4 -0.2 0.0 0.2 0.4 0.6 0.8 1.0";
    QTest::newRow("across zero, reversed") << 1.0 << -1.0 << 1.0 << "-1.0 -0.8 -0.6 -0.4 -0.2 0.0 0.2 0.4 0.6 0.8 1.0";
    QTest::newRow("below zero") << -100.0 << -20.0 << 1.0 << "-100 -90 -80 -70 -60 -50 -40 -30 -20";
    QTest::newRow("displayed in mega") << 88.0e6 << 108.0e6 << 1e-6 << "88 90 92 94 96 98 100 102 104 106 108";
    QTest::newRow("displayed value, not the value") << 0.0 << 36.0 << (1.0 / 3.6) << "0 1 2 3 4 5 6 7 8 9 10";
    QTest::newRow("a factor turns the sign of the label")
        << 1.0 << 5.0 << -1.0 << "-1.0 -1.5 -2.0 -2.5 -3.0 -3.5 -4.0 -4.5 -5.0";
    QTest::newRow("tiny") << 0.0 << 4e-12 << 1.0
                          << "0.0000000000000 0.0000000000005 0.0000000000010 0.0000000000015 0.0000000000020 "
                             "0.0000000000025 0.0000000000030 0.0000000000035 0.0000000000040";
    QTest::newRow("huge") << -1e15 << 1e15 << 1.0
                          << "-1000000000000000 -800000000000000 -600000000000000 -400000000000000 -200000000000000 0 "
                             "200000000000000 400000000000000 600000000000000 800000000000000 1000000000000000";
    QTest::newRow("narrow and far") << 1e9 << 1e9 + 1.0 << 1.0
                                    << "1000000000.0 1000000000.1 1000000000.2 1000000000.3 1000000000.4 1000000000.5 "
                                       "1000000000.6 1000000000.7 1000000000.8 1000000000.9 1000000001.0";
    QTest::newRow("narrow and far below zero")
        << -1000000000.4 << -1e9 << 1.0
        << "-1000000000.40 -1000000000.35 -1000000000.30 -1000000000.25 -1000000000.20 -1000000000.15 "
           "-1000000000.10 -1000000000.05 -1000000000.00";
    QTest::newRow("as narrow as doubles resolve") << 1e15 << 1e15 + 4.0 << 1.0
                                                  << "1000000000000000 1000000000000001 1000000000000002 "
                                                     "1000000000000003 1000000000000004";
}

void tst_axisDefinition::Tics()
{
    QFETCH(double, start);
    QFETCH(double, stop);
    QFETCH(double, factor);
    QFETCH(QString, labels);
    Search const search(start, stop, factor);
    QCOMPARE(search.Labels().join(QLatin1Char(' ')), labels);
    for (int i = 0; i < search.count; ++i) {
        QVERIFY(search.At(i) >= qMin(start, stop));
        QVERIFY(search.At(i) <= qMax(start, stop));
        QVERIFY(i == 0 || search.At(i) > search.At(i - 1));
    }
}

void tst_axisDefinition::MinorTics_data()
{
    QTest::addColumn<double>("span");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("minor");
    QTest::newRow("step 1 in fifths") << 10.0 << -1 << 4;
    QTest::newRow("step 2 in quarters") << 20.0 << -1 << 3;
    QTest::newRow("step 5 in fifths") << 50.0 << -1 << 4;
    QTest::newRow("step 0.02 in quarters") << 0.2 << -1 << 3;
    QTest::newRow("width 1 in fifths") << 10.0 << 1 << 4;
    QTest::newRow("width 2 in quarters") << 10.0 << 2 << 3;
    QTest::newRow("width 20 in quarters") << 100.0 << 20 << 3;
    QTest::newRow("width 30 in thirds") << 360.0 << 30 << 2;
    QTest::newRow("width 45 in thirds") << 360.0 << 45 << 2;
    QTest::newRow("width 90 in thirds") << 360.0 << 90 << 2;
    QTest::newRow("width 25 in fifths") << 100.0 << 25 << 4;
    QTest::newRow("width 500 in fifths") << 5000.0 << 500 << 4;
    QTest::newRow("width 4 in halves") << 40.0 << 4 << 1;
    QTest::newRow("width 7 undivided") << 70.0 << 7 << 0;
}

void tst_axisDefinition::MinorTics()
{
    QFETCH(double, span);
    QFETCH(int, width);
    QFETCH(int, minor);
    QCOMPARE(Search(0.0, span, 1.0, width).minor, minor);
}

void tst_axisDefinition::Digits_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<double>("factor");
    QTest::addColumn<int>("left");
    QTest::addColumn<int>("right");
    QTest::newRow("one digit at least") << 0.0 << 1.0 << 1.0 << 1 << 1;
    QTest::newRow("nine") << 0.0 << 9.0 << 1.0 << 1 << 0;
    QTest::newRow("ten") << 0.0 << 10.0 << 1.0 << 2 << 0;
    QTest::newRow("below a thousand") << 0.0 << 999.0 << 1.0 << 3 << 0;
    QTest::newRow("a thousand") << 0.0 << 1000.0 << 1.0 << 4 << 0;
    QTest::newRow("the longest is the first") << -2000.0 << 100.0 << 1.0 << 4 << 0;
    QTest::newRow("tics count, not the ends") << 0.0 << 10.9 << 1.0 << 2 << 0;
    QTest::newRow("the end beyond the last tic does not count") << 0.0 << 104.0 << 0.1 << 2 << 0;
    QTest::newRow("decimals of the step") << 5.0 << 5.004 << 1.0 << 1 << 4;
    QTest::newRow("of the displayed value") << 88.0e6 << 88.5e6 << 1e-6 << 2 << 2;
    QTest::newRow("many digits") << -1e15 << 1e15 << 1.0 << 16 << 0;
    QTest::newRow("beyond the exact powers of ten") << 0.0 << 5e40 << 1.0 << 41 << 0;
    QTest::newRow("forty decimals") << 0.0 << 5e-40 << 1.0 << 1 << 41;
}

void tst_axisDefinition::Digits()
{
    QFETCH(double, start);
    QFETCH(double, stop);
    QFETCH(double, factor);
    QFETCH(int, left);
    QFETCH(int, right);
    Search const search(start, stop, factor);
    QCOMPARE(search.left, left);
    QCOMPARE(search.right, right);
}

void tst_axisDefinition::NoTics_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<double>("factor");
    double const nan = std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("empty") << 5.0 << 5.0 << 1.0;
    QTest::newRow("empty at zero") << 0.0 << -0.0 << 1.0;
    QTest::newRow("start is NaN") << nan << 5.0 << 1.0;
    QTest::newRow("stop is NaN") << 5.0 << nan << 1.0;
    QTest::newRow("both are NaN") << nan << nan << 1.0;
    QTest::newRow("start is infinite") << -Infinity << 5.0 << 1.0;
    QTest::newRow("stop is infinite") << 5.0 << Infinity << 1.0;
    QTest::newRow("both are infinite") << -Infinity << Infinity << 1.0;
    QTest::newRow("both are the same infinity") << Infinity << Infinity << 1.0;
    QTest::newRow("factor is zero") << 0.0 << 5.0 << 0.0;
    QTest::newRow("factor is NaN") << 0.0 << 5.0 << nan;
    QTest::newRow("factor is infinite") << 1.0 << 5.0 << Infinity;
    QTest::newRow("the span overflows") << -1.7e308 << 1.7e308 << 1.0;
    QTest::newRow("the displayed span overflows") << 0.0 << 1e200 << 1e200;
    QTest::newRow("beyond 1e300") << 0.0 << 1.1e300 << 1.0;
    QTest::newRow("below -1e300") << -1.1e300 << 0.0 << 1.0;
    QTest::newRow("narrower than 1e-290") << 0.0 << 0.9e-290 << 1.0;
    QTest::newRow("displayed narrower than 1e-290") << 0.0 << 1.0 << 0.9e-290;
    QTest::newRow("subnormal shown large") << 0.0 << 5e-310 << 1e300;
    QTest::newRow("two neighbours") << 1.0 << std::nextafter(1.0, 2.0) << 1.0;
    QTest::newRow("sixteen representable values") << 1e15 << 1e15 + 2.0 << 1.0;
}

void tst_axisDefinition::NoTics()
{
    QFETCH(double, start);
    QFETCH(double, stop);
    QFETCH(double, factor);
    for (int const width : { -1, 1 }) {
        Search const search(start, stop, factor, width);
        if (width == 1 && search.count > 0)
            continue; // a fixed width has its own rows
        QCOMPARE(search.count, 0);
        QCOMPARE(search.minor, 0);
        QCOMPARE(search.left, 1);
        QCOMPARE(search.right, 0);
        QCOMPARE(search.first, 0.0);
        QCOMPARE(search.step, 0.0);
        QCOMPARE(search.offset, 0.0);
    }
}

void tst_axisDefinition::Narrowest_data()
{
    QTest::addColumn<double>("span");
    QTest::addColumn<double>("factor");
    QTest::newRow("1e-290") << 1e-290 << 1.0;
    QTest::newRow("2e300") << 2e300 << 1.0;
    QTest::newRow("1 shown as 1e-290") << 1.0 << 1e-290;
    QTest::newRow("1e-290 shown as 1") << 1e-290 << 1e290;
}

void tst_axisDefinition::Narrowest()
{
    QFETCH(double, span);
    QFETCH(double, factor);
    Search const search(-span / 2, span / 2, factor);
    QVERIFY(search.count >= 4 && search.count <= 12);
    QVERIFY(search.At(0) >= -span / 2);
    QVERIFY(search.At(search.count - 1) <= span / 2);
    QVERIFY(search.step > 0.0);
}

void tst_axisDefinition::CountStaysBetween4And12()
{
    for (int i = 1; i < 20000; ++i) {
        Search const search(0.0, i * 0.05);
        QVERIFY2(search.count >= 4 && search.count <= 12, qPrintable(QString::number(i)));
    }
}

void tst_axisDefinition::FixedWidth_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<double>("factor");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("count");
    QTest::addColumn<double>("atFirst");
    QTest::addColumn<double>("step");
    QTest::newRow("a width") << 0.0 << 360.0 << 1.0 << 30 << 13 << 0.0 << 30.0;
    QTest::newRow("tics are multiples of it") << 10.0 << 350.0 << 1.0 << 45 << 7 << 45.0 << 45.0;
    QTest::newRow("across zero") << -180.0 << 180.0 << 1.0 << 90 << 5 << -180.0 << 90.0;
    QTest::newRow("of the displayed value") << 0.0 << 10e6 << 1e-6 << 2 << 6 << 0.0 << 2e6;
    QTest::newRow("none in reach") << 1.0 << 29.0 << 1.0 << 30 << 0 << 0.0 << 0.0;
    QTest::newRow("one in reach") << 1.0 << 31.0 << 1.0 << 30 << 1 << 30.0 << 30.0;
    QTest::newRow("a thousand") << 0.0 << 999.0 << 1.0 << 1 << 1000 << 0.0 << 1.0;
    QTest::newRow("more than a thousand: searched") << 0.0 << 1000.0 << 1.0 << 1 << 11 << 0.0 << 100.0;
    QTest::newRow("a thousand far away") << 1e15 << 1e15 + 999.0 << 1.0 << 1 << 1000 << 1e15 << 1.0;
    QTest::newRow("far more than a thousand: searched") << -1e15 << 1e15 << 1.0 << 1 << 11 << -1e15 << 2e14;
    QTest::newRow("not resolved: searched") << 1e17 << 1e17 + 900 << 1.0 << 1 << 5 << 1e17 << 200.0;
    QTest::newRow("-1 is none") << 0.0 << 360.0 << 1.0 << -1 << 8 << 0.0 << 50.0;
    QTest::newRow("0 is none") << 0.0 << 360.0 << 1.0 << 0 << 8 << 0.0 << 50.0;
    QTest::newRow("negative is none") << 0.0 << 360.0 << 1.0 << std::numeric_limits<int>::min() << 8 << 0.0 << 50.0;
    QTest::newRow("step in the axis unit overflows: searched") << 0.0 << 1e290 << 1e-301 << 1 << 11 << 0.0 << 1e289;
    QTest::newRow("largest") << 0.0 << 1e10 << 1.0 << std::numeric_limits<int>::max() << 5 << 0.0 << 2147483647.0;
}

void tst_axisDefinition::FixedWidth()
{
    QFETCH(double, start);
    QFETCH(double, stop);
    QFETCH(double, factor);
    QFETCH(int, width);
    QFETCH(int, count);
    QFETCH(double, atFirst);
    QFETCH(double, step);
    Search const search(start, stop, factor, width);
    QCOMPARE(search.count, count);
    QCOMPARE(search.At(0), atFirst);
    QCOMPARE(search.step, step);
}

void tst_axisDefinition::DigitsOfAFixedWidth_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<double>("factor");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("minor");
    QTest::addColumn<int>("left");
    QTest::addColumn<double>("first");
    QTest::addColumn<double>("offset");
    QTest::newRow("degrees") << 0.0 << 360.0 << 1.0 << 30 << 2 << 3 << 0.0 << 0.0;
    QTest::newRow("no tics") << 1.0 << 29.0 << 1.0 << 30 << 0 << 1 << 0.0 << 0.0;
    QTest::newRow("of the displayed value") << 0.0 << 10e6 << 1e-6 << 2 << 3 << 2 << 0.0 << 0.0;
    QTest::newRow("the last without an offset")
        << 999.0 * 7.0 << 999.0 * 7.0 + 70.0 << 1.0 << 7 << 0 << 4 << 6993.0 << 0.0;
    QTest::newRow("the first with an offset") << 7000.0 << 7070.0 << 1.0 << 7 << 0 << 4 << 0.0 << 7000.0;
    QTest::newRow("the rest is first") << 1234.0 * 30.0 << 1240.0 * 30.0 << 1.0 << 30 << 2 << 5 << 7020.0 << 30000.0;
    QTest::newRow("below zero") << -1240.0 * 30.0 << -1234.0 * 30.0 << 1.0 << 30 << 2 << 5 << -7200.0 << -30000.0;
}

void tst_axisDefinition::DigitsOfAFixedWidth()
{
    QFETCH(double, start);
    QFETCH(double, stop);
    QFETCH(double, factor);
    QFETCH(int, width);
    Search const search(start, stop, factor, width);
    QTEST(search.minor, "minor");
    QTEST(search.left, "left");
    QCOMPARE(search.right, 0);
    QTEST(search.first, "first");
    QTEST(search.offset, "offset");
}

void tst_axisDefinition::OffsetIsWritten_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<double>("factor");
    QTest::addColumn<double>("first");
    QTest::addColumn<double>("offset");
    QTest::newRow("near zero none") << 5.0 << 15.0 << 1.0 << 5.0 << 0.0;
    QTest::newRow("the last without") << 999.0 << 1009.0 << 1.0 << 999.0 << 0.0;
    QTest::newRow("the first with") << 1000.0 << 1010.0 << 1.0 << 0.0 << 1000.0;
    QTest::newRow("the rest is first") << 123456.0 << 123466.0 << 1.0 << 456.0 << 123000.0;
    QTest::newRow("below zero") << -123456.0 << -123446.0 << 1.0 << -456.0 << -123000.0;
    QTest::newRow("in the axis unit") << 123456e6 << 123466e6 << 1e-6 << 456e6 << 123000e6;
}

void tst_axisDefinition::OffsetIsWritten()
{
    QFETCH(double, start);
    QFETCH(double, stop);
    QFETCH(double, factor);
    QFETCH(double, first);
    QFETCH(double, offset);
    Search const search(start, stop, factor);
    QCOMPARE(search.first, first);
    QCOMPARE(search.offset, offset);
}

void tst_axisDefinition::ZeroIsExact_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<double>("factor");
    QTest::newRow("steps that are no binary fractions") << -0.3 << 0.3 << 1.0;
    QTest::newRow("mostly below") << -0.7 << 0.1 << 1.0;
    QTest::newRow("mostly above") << -0.1 << 0.7 << 1.0;
    QTest::newRow("zero is the last") << -0.7 << 0.0 << 1.0;
    QTest::newRow("zero is the first") << 0.0 << 0.7 << 1.0;
    QTest::newRow("negative zero is the first") << -0.0 << 0.7 << 1.0;
    QTest::newRow("a crooked factor") << -123.4 << 567.8 << 0.0123;
    QTest::newRow("the last stands on its end") << -2.0 << 0.2 << 1.0;
}

void tst_axisDefinition::ZeroIsExact()
{
    QFETCH(double, start);
    QFETCH(double, stop);
    QFETCH(double, factor);
    Search const search(start, stop, factor);
    int zeros = 0;
    for (int i = 0; i < search.count; ++i) {
        zeros += search.At(i) == 0.0 ? 1 : 0;
        QVERIFY(search.At(i) == 0.0 || std::fabs(search.At(i)) > search.step * 0.99);
        if (search.At(i) == 0.0)
            QVERIFY(!std::signbit(search.At(i))); // "0.0", never "-0.0"
    }
    QCOMPARE(zeros, 1);
    QVERIFY(search.At(0) >= start);
    QVERIFY(search.At(search.count - 1) <= stop);
}

void tst_axisDefinition::EndsKeepTheirTics_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<double>("factor");
    QTest::addColumn<QString>("firstLabel");
    QTest::addColumn<QString>("lastLabel");
    QTest::newRow("decimal fractions") << 0.1 << 0.7 << 1.0 << "0.1"
                                       << "0.7";
    QTest::newRow("above the multiple of the step") << 0.0 << 0.3 << 1.0 << "0.00"
                                                    << "0.30";
    QTest::newRow("both sides of zero") << -0.3 << 0.3 << 1.0 << "-0.3"
                                        << "0.3";
    QTest::newRow("lopsided about zero") << -2.0 << 0.2 << 1.0 << "-2.0"
                                         << "0.2";
    QTest::newRow("shown in mega") << 87.5e6 << 88.1e6 << 1e-6 << "87.5"
                                   << "88.1";
    QTest::newRow("shown in mega, below zero") << -88.1e6 << -87.5e6 << 1e-6 << "-88.1"
                                               << "-87.5";
    QTest::newRow("shown in kilo about zero") << -300.0 << 300.0 << 1e-3 << "-0.3"
                                              << "0.3";
    QTest::newRow("far away") << 1e9 + 0.1 << 1e9 + 0.7 << 1.0 << "1000000000.1"
                              << "1000000000.7";
}

void tst_axisDefinition::EndsKeepTheirTics()
{
    QFETCH(double, start);
    QFETCH(double, stop);
    QFETCH(double, factor);
    QFETCH(QString, firstLabel);
    QFETCH(QString, lastLabel);
    Search const search(start, stop, factor);
    QVERIFY(search.count > 0);
    QCOMPARE(search.Label(0), firstLabel);
    QCOMPARE(search.Label(search.count - 1), lastLabel);
    QVERIFY(search.At(0) >= start);
    QVERIFY(search.At(search.count - 1) <= stop);
}

void tst_axisDefinition::FactorOfEitherSign()
{
    Search const plus(3.0, 47.0, 0.25);
    Search const minus(3.0, 47.0, -0.25);
    QCOMPARE(minus.count, plus.count);
    QCOMPARE(minus.first, plus.first);
    QCOMPARE(minus.step, plus.step);
    QCOMPARE(minus.right, plus.right);
}

void tst_axisDefinition::ModeChangesNothing()
{
    Search const one(3.0, 47.0);
    for (int const mode : { 0, 2, -1, std::numeric_limits<int>::max() }) {
        Search const other(3.0, 47.0, 1.0, -1, mode);
        QCOMPARE(other.Labels(), one.Labels());
    }
}

void tst_axisDefinition::EachArgumentCountsAfterTheOthers()
{
    QCOMPARE(Search(0.0, 10.0).step, 1.0);
    QCOMPARE(Search(0.0, 10.0).step, 1.0); // asked twice
    QCOMPARE(Search(0.0, 100.0).step, 10.0);
    QCOMPARE(Search(90.0, 100.0).step, 1.0);
    QCOMPARE(Search(90.0, 100.0, 10.0).step, 1.0);
    QCOMPARE(Search(90.0, 100.0, 10.0).right, 0);
    QCOMPARE(Search(90.0, 100.0, 10.0, 20).step, 2.0);
    QCOMPARE(Search(90.0, 100.0, 10.0, 50).step, 5.0);
    QCOMPARE(Search(90.0, std::numeric_limits<double>::quiet_NaN(), 10.0, 50).count, 0);
    QCOMPARE(Search(90.0, 100.0, 10.0, 50).count, 3);
}

void tst_axisDefinition::RangeIsNotWritten()
{
    Search const search(47.3, 3.1);
    QCOMPARE(search.start, 47.3);
    QCOMPARE(search.stop, 3.1);
}

void tst_axisDefinition::NullPointersArePassedOver()
{
    double start = 0.0;
    double stop = 10.0;
    QCOMPARE(axisDefinition::GetAxisValuesLinear(&start, &stop, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, 1,
                                                 1.0, -1),
             11);
    double step = -7.0;
    QCOMPARE(axisDefinition::GetAxisValuesLinear(nullptr, &stop, nullptr, nullptr, nullptr, nullptr, &step, nullptr, 1,
                                                 1.0, -1),
             0);
    QCOMPARE(step, 0.0);
    QCOMPARE(axisDefinition::GetAxisValuesLinear(&start, nullptr, nullptr, nullptr, nullptr, nullptr, &step, nullptr, 1,
                                                 1.0, -1),
             0);
}

ORIM_CORE_TEST_MAIN(tst_axisDefinition)

#include "tst_axisdefinition.moc"
