// SPDX-License-Identifier: MIT
#include "pixelmap.h"

#include "testmain.h"

#include <algorithm>
#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>
#include <vector>

namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double Nothing = std::numeric_limits<double>::quiet_NaN();
auto const Across = PixelMap::eHorizontal;
auto const Up = PixelMap::eVertical;

PixelMap::Layout LayoutOf(PixelMap::EDirection direction, double start, double stop, int first, int last)
{
    PixelMap::Layout layout;
    layout.start = start;
    layout.stop = stop;
    layout.direction = direction;
    layout.first = first;
    layout.last = last;
    return layout;
}

PixelMap::Layout WrappedLayout(double start, double stop, double span)
{
    PixelMap::Layout layout = LayoutOf(Across, start, stop, 0, 359);
    layout.wrapped = true;
    layout.wrapSpan = span;
    return layout;
}

//! The pixel of a value inside the range, computed step by step; lengths that fit 16 bits.
int PixelOf(PixelMap::Layout const & layout, double value)
{
    if (layout.wrapped && value < std::min(layout.start, layout.stop))
        value += layout.wrapSpan;
    if (layout.wrapped && value > std::max(layout.start, layout.stop))
        value -= layout.wrapSpan;
    if (value < std::min(layout.start, layout.stop) || value > std::max(layout.start, layout.stop))
        return -1;
    double const from = layout.direction == Up ? layout.stop : layout.start;
    double const to = layout.direction == Up ? layout.start : layout.stop;
    int const length = layout.last - layout.first + 1;
    if (value == to)
        return length - 1 + layout.first;
    double part = (value - std::min(from, to)) / std::fabs(to - from);
    if (from > to)
        part = 1.0 - part;
    return static_cast<int>(length * part + layout.first);
}

} // namespace

Q_DECLARE_METATYPE(PixelMap::Layout)

class tst_pixelmap : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void valueToPixel_data();
    void valueToPixel();
    void pixelToValue_data();
    void pixelToValue();
    void pixelAndBack_data();
    void pixelAndBack();
    void randomValues();
    void manyValuesOfAnyNumber();
    void nothingToMap();
    void layoutsCompareByAllTheirNumbers();
    void integers();
};

void tst_pixelmap::valueToPixel_data()
{
    QTest::addColumn<PixelMap::Layout>("layout");
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("pixel");
    auto const across = LayoutOf(Across, 0.0, 100.0, 0, 99);
    QTest::newRow("across: the start is the first pixel") << across << 0.0 << 0;
    QTest::newRow("across: the stop is the last pixel") << across << 100.0 << 99;
    QTest::newRow("across: cut, not rounded") << across << 50.9 << 50;
    QTest::newRow("across: just below the stop") << across << std::nextafter(100.0, 0.0) << 99;
    QTest::newRow("below the range") << across << -0.1 << -1;
    QTest::newRow("above the range") << across << 100.1 << -1;
    QTest::newRow("one step below the range") << across << -DBL_TRUE_MIN << -1;
    QTest::newRow("one step above the range") << across << std::nextafter(100.0, 200.0) << -1;
    QTest::newRow("NaN has no pixel") << across << Nothing << -1;
    QTest::newRow("infinity has no pixel") << across << Infinity << -1;

    auto const backward = LayoutOf(Across, 100.0, 0.0, 0, 99);
    QTest::newRow("across, downward: the start is at the left") << backward << 100.0 << 0;
    QTest::newRow("across, downward: the stop is at the right") << backward << 0.0 << 99;
    QTest::newRow("across, downward: a quarter") << backward << 75.0 << 25;

    auto const up = LayoutOf(Up, 0.0, 100.0, 0, 99);
    QTest::newRow("up: the start is the lowest pixel") << up << 0.0 << 99;
    QTest::newRow("up: the stop is the topmost pixel") << up << 100.0 << 0;
    QTest::newRow("up: three quarters") << up << 75.0 << 25;
    auto const down = LayoutOf(Up, 100.0, 0.0, 0, 99);
    QTest::newRow("up, downward: the start is the lowest pixel") << down << 100.0 << 99;
    QTest::newRow("up, downward: the stop is the topmost pixel") << down << 0.0 << 0;
    QTest::newRow("up, downward: three quarters") << down << 75.0 << 75;

    auto const moved = LayoutOf(Across, 0.0, 100.0, 10, 109);
    QTest::newRow("moved: the start") << moved << 0.0 << 10;
    QTest::newRow("moved: the stop") << moved << 100.0 << 109;
    auto const outside = LayoutOf(Across, 0.0, 100.0, -5, 94);
    QTest::newRow("left of the widget: a whole pixel") << outside << 1.0 << -4;
    QTest::newRow("left of the widget: cut towards zero") << outside << 4.5 << 0;

    QTest::newRow("an empty range") << LayoutOf(Across, 7.0, 7.0, 0, 99) << 7.0 << -1;
    QTest::newRow("no direction") << LayoutOf(PixelMap::eNoDirection, 0.0, 100.0, 0, 99) << 50.0 << -1;
    QTest::newRow("one pixel: the start") << LayoutOf(Across, 0.0, 100.0, 0, 0) << 0.0 << 0;
    QTest::newRow("one pixel: the stop") << LayoutOf(Across, 0.0, 100.0, 0, 0) << 100.0 << 0;
    QTest::newRow("no pixel: the start") << LayoutOf(Across, 0.0, 100.0, 0, -1) << 0.0 << 0;
    QTest::newRow("no pixel: the stop") << LayoutOf(Across, 0.0, 100.0, 0, -1) << 100.0 << -1;

    QTest::newRow("32767 px fit 16 bits") << LayoutOf(Across, 0.0, 100.0, 0, 32766) << 50.0 << 16383;
    QTest::newRow("32768 px do not fit 16 bits") << LayoutOf(Across, 0.0, 100.0, 0, 32767) << 50.0 << -16384;
    QTest::newRow("40000 px do not fit 16 bits") << LayoutOf(Across, 0.0, 100.0, 0, 39999) << 50.0 << -12768;
    QTest::newRow("40000 px: the stop") << LayoutOf(Across, 0.0, 100.0, 0, 39999) << 100.0 << -25537;
    QTest::newRow("65636 px are 100") << LayoutOf(Across, 0.0, 100.0, 0, 65635) << 50.0 << 50;
    QTest::newRow("a place of 40000 does not fit 16 bits")
        << LayoutOf(Across, 0.0, 100.0, 40000, 40099) << 0.0 << -25536;

    QTest::newRow("all doubles: the low end") << LayoutOf(Across, -DBL_MAX, DBL_MAX, 0, 99) << -DBL_MAX << 0;
    QTest::newRow("all doubles: zero") << LayoutOf(Across, -DBL_MAX, DBL_MAX, 0, 99) << 0.0 << 0;
    QTest::newRow("all doubles: the high end") << LayoutOf(Across, -DBL_MAX, DBL_MAX, 0, 99) << DBL_MAX << 99;
    QTest::newRow("all doubles: where the distance overflows")
        << LayoutOf(Across, -DBL_MAX, DBL_MAX, 0, 99) << 1e308 << -1;
    QTest::newRow("an infinite range") << LayoutOf(Across, -Infinity, Infinity, 0, 99) << 0.0 << -1;
    QTest::newRow("a range from NaN") << LayoutOf(Across, Nothing, 5.0, 0, 99) << 5.0 << -1;
    QTest::newRow("a range to NaN") << LayoutOf(Across, 5.0, Nothing, 0, 99) << 5.0 << -1;
    QTest::newRow("one step wide: the start") << LayoutOf(Across, 0.0, DBL_TRUE_MIN, 0, 99) << 0.0 << 0;
    QTest::newRow("one step wide: the stop") << LayoutOf(Across, 0.0, DBL_TRUE_MIN, 0, 99) << DBL_TRUE_MIN << 99;

    QTest::newRow("wrapped: inside") << WrappedLayout(0.0, 360.0, 360.0) << 10.5 << 10;
    QTest::newRow("wrapped: below") << WrappedLayout(0.0, 360.0, 360.0) << -9.5 << 350;
    QTest::newRow("wrapped: above") << WrappedLayout(0.0, 360.0, 360.0) << 370.5 << 10;
    QTest::newRow("wrapped: twice above is outside") << WrappedLayout(0.0, 360.0, 360.0) << 730.5 << -1;
    QTest::newRow("wrapped: added, then taken off") << WrappedLayout(350.0, 370.0, 360.0) << 340.0 << -1;
    QTest::newRow("wrapped: no span") << WrappedLayout(0.0, 360.0, -1.0) << 370.5 << -1;
    QTest::newRow("wrapped: no span, just above") << WrappedLayout(0.0, 360.0, -1.0) << 360.5 << -1;
    auto notWrapped = WrappedLayout(0.0, 360.0, 360.0);
    notWrapped.wrapped = false;
    QTest::newRow("a span that does not count") << notWrapped << 370.5 << -1;
}

void tst_pixelmap::valueToPixel()
{
    QFETCH(PixelMap::Layout, layout);
    QFETCH(double, value);
    QFETCH(int, pixel);
    PixelMap const map(layout);
    QCOMPARE(map.ToPixel(value), pixel);
    std::vector<double> const values(11, value); // long enough for a round of many and a rest
    std::vector<int> pixels(values.size(), -77);
    map.ToPixels(values.data(), pixels.data(), pixels.size());
    QCOMPARE(pixels, std::vector<int>(values.size(), pixel));
}

void tst_pixelmap::pixelToValue_data()
{
    QTest::addColumn<PixelMap::Layout>("layout");
    QTest::addColumn<int>("pixel");
    QTest::addColumn<double>("value");
    auto const across = LayoutOf(Across, 0.0, 99.0, 0, 99);
    QTest::newRow("across: the first pixel") << across << 0 << 0.0;
    QTest::newRow("across: the last pixel") << across << 99 << 99.0;
    QTest::newRow("across: left of it") << across << -99 << -99.0;
    QTest::newRow("across: right of it") << across << 198 << 198.0;
    QTest::newRow("across, downward") << LayoutOf(Across, 99.0, 0.0, 0, 99) << 33 << 66.0;
    QTest::newRow("up: the topmost pixel") << LayoutOf(Up, 0.0, 99.0, 0, 99) << 0 << 99.0;
    QTest::newRow("up: the lowest pixel") << LayoutOf(Up, 0.0, 99.0, 0, 99) << 99 << 0.0;
    QTest::newRow("up, downward") << LayoutOf(Up, 99.0, 0.0, 0, 99) << 0 << 0.0;
    QTest::newRow("without a direction as across") << LayoutOf(PixelMap::eNoDirection, 0.0, 99.0, 0, 99) << 33 << 33.0;
    QTest::newRow("moved") << LayoutOf(Across, 0.0, 99.0, 10, 109) << 10 << 0.0;
    QTest::newRow("an empty range has one value") << LayoutOf(Across, 7.0, 7.0, 0, 99) << 50 << 7.0;
    QTest::newRow("one pixel: right of it") << LayoutOf(Across, 0.0, 99.0, 0, 0) << 1 << Infinity;
    QTest::newRow("one pixel: left of it") << LayoutOf(Across, 0.0, 99.0, 0, 0) << -1 << -Infinity;
    QTest::newRow("one pixel: on it") << LayoutOf(Across, 0.0, 99.0, 0, 0) << 0 << Nothing;
    QTest::newRow("40000 px are not cut") << LayoutOf(Across, 0.0, 39999.0, 0, 39999) << 39999 << 39999.0;
    QTest::newRow("the lowest pixel there is") << LayoutOf(Across, 0.0, 1.0, 0, 1) << INT_MIN << -2147483648.0;
    QTest::newRow("the farthest ends there are") << LayoutOf(Across, 0.0, 1.0, INT_MIN, INT_MAX) << INT_MAX << 1.0;
}

void tst_pixelmap::pixelToValue()
{
    QFETCH(PixelMap::Layout, layout);
    QFETCH(int, pixel);
    QFETCH(double, value);
    double const found = PixelMap(layout).ToValue(pixel);
    if (std::isnan(value))
        QVERIFY(std::isnan(found));
    else if (std::isinf(value))
        QVERIFY(found == value);
    else
        QCOMPARE(found, value);
}

void tst_pixelmap::pixelAndBack_data()
{
    QTest::addColumn<PixelMap::Layout>("layout");
    QTest::newRow("across") << LayoutOf(Across, -120.0, 17.0, 0, 1919);
    QTest::newRow("across, downward") << LayoutOf(Across, 17.0, -120.0, 0, 1919);
    QTest::newRow("up") << LayoutOf(Up, -120.0, 17.0, 0, 1079);
    QTest::newRow("up, downward") << LayoutOf(Up, 17.0, -120.0, 0, 1079);
    QTest::newRow("moved, far from zero") << LayoutOf(Across, 88e6, 108e6, 40, 1879);
}

//! Both ways agree to a pixel: the lengths that they compute with differ by one.
void tst_pixelmap::pixelAndBack()
{
    QFETCH(PixelMap::Layout, layout);
    PixelMap const map(layout);
    for (int pixel = layout.first; pixel <= layout.last; ++pixel) {
        int const back = map.ToPixel(map.ToValue(pixel));
        bool const isEnd = pixel == layout.first || pixel == layout.last;
        if (std::abs(back - pixel) > 1 && !(isEnd && back == -1)) // rounding may put an end outside the range
            QFAIL(qPrintable(QStringLiteral("pixel %1 comes back as %2").arg(pixel).arg(back)));
    }
}

void tst_pixelmap::randomValues()
{
    std::mt19937_64 random(TestStage::Seed());
    std::uniform_real_distribution<double> unit(-0.1, 1.1);
    for (int turn = 0; turn < 400; ++turn) {
        double const width = std::pow(10.0, 40.0 * unit(random) - 20.0);
        double const start = width * std::pow(10.0, 12.0 * unit(random)) * (unit(random) - 0.5);
        double const stop = turn % 2 == 0 ? start + width : start - width;
        int const first = static_cast<int>(random() % 2000) - 100;
        int const last = first + static_cast<int>(random() % 32760) - 1;
        auto layout = LayoutOf(turn % 3 == 0 ? Up : Across, start, stop, first, last);
        layout.wrapped = turn % 7 == 0;
        layout.wrapSpan = width;
        PixelMap const map(layout);
        std::vector<double> values(random() % 40);
        for (double & value : values) {
            value = start + (stop - start) * unit(random);
            if (random() % 4 == 0) // on the border of two pixels
                value = start + (stop - start) * static_cast<double>(random() % 2000) / 2000.0;
            if (random() % 16 == 0)
                value = random() % 2 == 0 ? std::nextafter(start, stop) : stop;
        }
        std::vector<int> pixels(values.size());
        map.ToPixels(values.data(), pixels.data(), values.size());
        for (std::size_t i = 0; i < values.size(); ++i)
            if (pixels[i] != PixelOf(layout, values[i]) || map.ToPixel(values[i]) != pixels[i])
                QFAIL(qPrintable(QStringLiteral("turn %1: %2 in %3 .. %4 from %5 to %6 px: %7 among many, %8 alone")
                                     .arg(turn)
                                     .arg(values[i], 0, 'g', 17)
                                     .arg(start, 0, 'g', 17)
                                     .arg(stop, 0, 'g', 17)
                                     .arg(first)
                                     .arg(last)
                                     .arg(pixels[i])
                                     .arg(map.ToPixel(values[i]))));
    }
}

void tst_pixelmap::manyValuesOfAnyNumber()
{
    std::vector<double> const values{ 0.0,           -0.0,    Nothing,        Infinity, -Infinity,    DBL_MAX,
                                      -DBL_MAX,      DBL_MIN, 0x1p31,         0x1p53,   DBL_TRUE_MIN, 100.0,
                                      -DBL_TRUE_MIN, 50.0,    100.0000000001, 0x1p63,   -0x1p63,      1e18 };
    for (auto const & layout :
         { LayoutOf(Across, 0.0, 100.0, 0, 99), LayoutOf(Up, 0.0, 100.0, 0, 99),
           LayoutOf(Across, -Infinity, 7.0, 0, 99), LayoutOf(Across, 0.0, 100.0, 32767, 65533) }) {
        PixelMap const map(layout);
        std::vector<int> pixels(values.size());
        map.ToPixels(values.data(), pixels.data(), values.size());
        for (std::size_t i = 0; i < values.size(); ++i)
            QCOMPARE(pixels[i], map.ToPixel(values[i]));
    }
}

void tst_pixelmap::nothingToMap()
{
    PixelMap const map(LayoutOf(Across, 0.0, 100.0, 0, 99));
    double const value = 50.0;
    int pixel = -77;
    map.ToPixels(nullptr, &pixel, 1);
    map.ToPixels(&value, &pixel, 0);
    QCOMPARE(pixel, -77);
    map.ToPixels(&value, nullptr, 1);
    QCOMPARE(PixelMap().ToPixel(0.0), -1);
}

void tst_pixelmap::layoutsCompareByAllTheirNumbers()
{
    PixelMap::Layout const layout = WrappedLayout(1.0, 2.0, 3.0);
    QVERIFY(layout == WrappedLayout(1.0, 2.0, 3.0));
    std::vector<PixelMap::Layout> others(7, layout);
    others[0].start = 0.0;
    others[1].stop = 0.0;
    others[2].direction = Up;
    others[3].first = 1;
    others[4].last = 1;
    others[5].wrapped = false;
    others[6].wrapSpan = 0.0;
    for (PixelMap::Layout const & other : others)
        QVERIFY(!(layout == other));
}

void tst_pixelmap::integers()
{
    QCOMPARE(ClampToInt(5), 5);
    QCOMPARE(ClampToInt(INT_MAX + 1LL), INT_MAX);
    QCOMPARE(ClampToInt(INT_MIN - 1LL), INT_MIN);
    QCOMPARE(CutTo16Bits(32767), 32767);
    QCOMPARE(CutTo16Bits(32768), -32768);
    QCOMPARE(CutTo16Bits(-32768), -32768);
    QCOMPARE(CutTo16Bits(-32769), 32767);
    QCOMPARE(CutTo16Bits(65536), 0);
}

ORIM_CORE_TEST_MAIN(tst_pixelmap)
#include "tst_pixelmap.moc"
