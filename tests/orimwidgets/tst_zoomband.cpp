// SPDX-License-Identifier: MIT
#include "zoomband.h"

#include "testmain.h"

#include <climits>
#include <cmath>
#include <limits>

namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double Nothing = std::numeric_limits<double>::quiet_NaN();

} // namespace

class tst_zoomband : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void span_data();
    void span();
    void clicks_data();
    void clicks();
    void cover_data();
    void cover();
    void rounding_data();
    void rounding();
    void halfWidth_data();
    void halfWidth();
    void usableRanges_data();
    void usableRanges();
};

void tst_zoomband::span_data()
{
    QTest::addColumn<long long>("first");
    QTest::addColumn<long long>("last");
    QTest::addColumn<int>("pixel");
    QTest::addColumn<bool>("within");
    QTest::addColumn<int>("clamped");
    auto const row = [](char const * name, long long first, long long last, int pixel, bool within, int clamped) {
        QTest::newRow(name) << first << last << pixel << within << clamped;
    };
    row("in the middle", 10, 80, 50, true, 50);
    row("the first pixel", 10, 80, 10, false, 10);
    row("behind the first pixel", 10, 80, 11, true, 11);
    row("before the first pixel", 10, 80, 9, false, 10);
    row("the last pixel", 10, 80, 80, true, 80);
    row("behind the last pixel", 10, 80, 81, false, 80);
    row("lowest pixel", 10, 80, INT_MIN, false, 10);
    row("highest pixel", 10, 80, INT_MAX, false, 80);
    row("span of one pixel", 0, 0, 1, false, 0);
    row("empty span", 10, 5, 7, false, 10);
    row("empty span, from above", 10, 5, 11, false, 5);
    row("span that no int holds", -0x100000000LL, 0x100000000LL, INT_MAX, true, INT_MAX);
    row("end that no int holds", 0, -0x100000000LL, 5, false, INT_MIN);
}

void tst_zoomband::span()
{
    QFETCH(long long, first);
    QFETCH(long long, last);
    QFETCH(int, pixel);
    QTEST(ZoomBand::IsWithin({ first, last }, pixel), "within");
    QTEST(ZoomBand::Clamp({ first, last }, pixel), "clamped");
}

void tst_zoomband::clicks_data()
{
    QTest::addColumn<int>("a");
    QTest::addColumn<int>("b");
    QTest::addColumn<bool>("isClick");
    QTest::newRow("no pixel") << 50 << 50 << true;
    QTest::newRow("five pixels") << 50 << 55 << true;
    QTest::newRow("five pixels back") << 55 << 50 << true;
    QTest::newRow("six pixels") << 50 << 56 << false;
    QTest::newRow("six pixels back") << 56 << 50 << false;
    QTest::newRow("all pixels") << INT_MIN << INT_MAX << false;
}

void tst_zoomband::clicks()
{
    QFETCH(int, a);
    QFETCH(int, b);
    QTEST(ZoomBand::IsClick(a, b), "isClick");
}

void tst_zoomband::cover_data()
{
    QTest::addColumn<bool>("vertical");
    QTest::addColumn<int>("a");
    QTest::addColumn<int>("b");
    QTest::addColumn<QRect>("before");
    QTest::addColumn<QRect>("behind");
    QTest::newRow("horizontal") << false << 30 << 60 << QRect(0, 0, 30, 19) << QRect(60, 0, 99, 19);
    QTest::newRow("horizontal, dragged back") << false << 60 << 30 << QRect(0, 0, 30, 19) << QRect(60, 0, 99, 19);
    QTest::newRow("vertical") << true << 5 << 12 << QRect(0, 0, 99, 5) << QRect(0, 12, 99, 19);
    QTest::newRow("vertical, dragged back") << true << 12 << 5 << QRect(0, 0, 99, 5) << QRect(0, 12, 99, 19);
    QTest::newRow("ends beyond any widget")
        << false << INT_MIN << INT_MAX << QRect(0, 0, -(1 << 24), 19) << QRect(1 << 24, 0, 99, 19);
    QTest::newRow("vertical, ends beyond any widget")
        << true << INT_MAX << INT_MIN << QRect(0, 0, 99, -(1 << 24)) << QRect(0, 1 << 24, 99, 19);
}

void tst_zoomband::cover()
{
    QFETCH(bool, vertical);
    QFETCH(int, a);
    QFETCH(int, b);
    auto const rectangles = ZoomBand::CoverBeside(QRect(0, 0, 100, 20), vertical, a, b);
    QTEST(rectangles[0], "before");
    QTEST(rectangles[1], "behind");
}

void tst_zoomband::rounding_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    QTest::addColumn<double>("answer");
    QTest::newRow("inside") << 0.8 << 0.7 << 0.9 << 0.8;
    QTest::newRow("neighbour above") << std::nextafter(0.9, 1.0) << 0.7 << 0.9 << 0.9;
    QTest::newRow("neighbour below") << std::nextafter(0.7, 0.0) << 0.7 << 0.9 << 0.7;
    QTest::newRow("neighbour of large ends") << std::nextafter(1e13, 2e13) << 1e12 << 1e13 << 1e13;
    QTest::newRow("above") << 0.9001 << 0.7 << 0.9 << 0.9001;
    QTest::newRow("below") << 0.6999 << 0.7 << 0.9 << 0.6999;
    QTest::newRow("above by a thousandth of a pixel") << 0.9 + 1e-9 << 0.7 << 0.9 << 0.9 + 1e-9;
    QTest::newRow("infinite") << Infinity << 0.7 << 0.9 << Infinity;
    QTest::newRow("NaN") << Nothing << 0.7 << 0.9 << Nothing;
}

void tst_zoomband::rounding()
{
    QFETCH(double, value);
    QFETCH(double, low);
    QFETCH(double, high);
    QFETCH(double, answer);
    double const found = ZoomBand::WithoutRounding(value, low, high);
    QVERIFY(found == answer || (std::isnan(found) && std::isnan(answer)));
}

void tst_zoomband::halfWidth_data()
{
    QTest::addColumn<double>("center");
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<double>("half");
    QTest::newRow("the start is farther") << 50.0 << 10.0 << 60.0 << 40.0;
    QTest::newRow("the stop is farther") << 50.0 << 40.0 << 95.0 << 45.0;
    QTest::newRow("both as far") << 50.0 << 40.0 << 60.0 << 10.0;
    QTest::newRow("range above the center") << 5.0 << 40.0 << 60.0 << 55.0;
    QTest::newRow("range below the center") << 95.0 << 40.0 << 60.0 << 55.0;
}

void tst_zoomband::halfWidth()
{
    QFETCH(double, center);
    QFETCH(double, start);
    QFETCH(double, stop);
    QTEST(ZoomBand::HalfWidth(center, start, stop), "half");
}

void tst_zoomband::usableRanges_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<bool>("differ");
    QTest::addColumn<bool>("usable");
    QTest::newRow("a range") << 0.0 << 1.0 << true << true;
    QTest::newRow("a range downward") << 1.0 << 0.0 << true << true;
    QTest::newRow("unset") << -1.0 << -1.0 << false << false;
    QTest::newRow("start unset") << -1.0 << 1.0 << true << false;
    QTest::newRow("stop unset") << 1.0 << -1.0 << true << false;
    QTest::newRow("no extent") << 5.0 << 5.0 << false << false;
    QTest::newRow("start is NaN") << Nothing << 1.0 << false << false;
    QTest::newRow("stop is NaN") << 1.0 << Nothing << false << false;
    QTest::newRow("infinite") << -Infinity << Infinity << true << true;
}

void tst_zoomband::usableRanges()
{
    QFETCH(double, start);
    QFETCH(double, stop);
    QTEST(ZoomBand::Differ(start, stop), "differ");
    QTEST(ZoomBand::IsUsable(start, stop), "usable");
}

ORIM_CORE_TEST_MAIN(tst_zoomband)
#include "tst_zoomband.moc"
