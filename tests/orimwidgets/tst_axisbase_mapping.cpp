// SPDX-License-Identifier: MIT
#include "axisprobe.h"

#include "testmain.h"
#include "valueselection.h"

#include <climits>
#include <cmath>
#include <limits>
#include <vector>

namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double Nothing = std::numeric_limits<double>::quiet_NaN();

} // namespace

class tst_axisbase_mapping : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void overloadsAreReachable();
    void innerRectangle();
    void valueToPixel_data();
    void valueToPixel();
    void mapFollowsWhatItIsMadeOf();
    void bothDirections();
    void innerRectangleOfADerivedClass();
    void onePixelWide();
    void sectionIsIgnored();
    void mapWithFlag_data();
    void mapWithFlag();
    void otherFormsAskTheVirtualOnes();
    void invertedInvalidPixelStaysInRange();
    void rangeToPixel();
    void pixelToValueWithFlag();
    void counts();
    void pixelsAreValid_data();
    void pixelsAreValid();
    void pixelsForAUnit();
    void checkInRange_data();
    void checkInRange();
    void wrapsForDisplay();
    void manyValues();
};

void tst_axisbase_mapping::overloadsAreReachable()
{
    AxisBase axis(nullptr, nullptr, AxisBase::AxisHorizontal);
    axis.resize(100, 20);
    axis.SetRange(0.0, 99.0);
    bool ok = false;
    QCOMPARE(axis.ValueToPixel(50.0), 50);
    QCOMPARE(axis.ValueToPixel(0, 50.0), 50);
    QCOMPARE(axis.ValueToPixel(50.0, &ok, false), 50);
    QCOMPARE(axis.PixelToValue(50), 50.0);
    QCOMPARE(axis.PixelToValue(0, 50), 50.0);
    QCOMPARE(axis.PixelToValue(50, &ok, false), 50.0);
    MarkerList & list = axis;
    QCOMPARE(list.ValueToPixel(0, 50.0), 50);
    QCOMPARE(list.PixelToValue(0, 50), 50.0);
    IHMap const & map = axis;
    QCOMPARE(map.ValueToPixel(50.0, nullptr, false), 50);
    QCOMPARE(map.PixelToValue(50, nullptr, false), 50.0);
}

void tst_axisbase_mapping::innerRectangle()
{
    AxisProbe axis(AxisBase::AxisHorizontal, 100, 20);
    QCOMPARE(axis.innerRect(), QRect(0, 0, 100, 20));
    axis.SetPixOffset(10, 30);
    QCOMPARE(axis.innerRect(), QRect(QPoint(10, 0), QPoint(69, 19)));
    AxisProbe vertical(AxisBase::AxisVertical, 20, 100);
    vertical.SetPixOffset(3, 4);
    QCOMPARE(vertical.innerRect(), QRect(QPoint(3, 0), QPoint(15, 99))); // top and bottom stay
    axis.SetPixOffset(INT_MAX, INT_MAX);
    QCOMPARE(axis.innerRect().right(), 99 - INT_MAX);
    axis.SetPixOffset(INT_MIN, INT_MIN);
    QCOMPARE(axis.innerRect().right(), INT_MAX);
}

void tst_axisbase_mapping::valueToPixel_data()
{
    QTest::addColumn<unsigned int>("type");
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("pixel");
    QTest::newRow("horizontal: start") << 0x10U << 0.0 << 100.0 << 0.0 << 0;
    QTest::newRow("horizontal: stop") << 0x10U << 0.0 << 100.0 << 100.0 << 99;
    QTest::newRow("horizontal: downward") << 0x10U << 100.0 << 0.0 << 100.0 << 0;
    QTest::newRow("vertical: start") << 0x20U << 0.0 << 100.0 << 0.0 << 49;
    QTest::newRow("vertical: stop") << 0x20U << 0.0 << 100.0 << 100.0 << 0;
    QTest::newRow("both directions: horizontal") << 0x30U << 0.0 << 100.0 << 100.0 << 99;
    QTest::newRow("no direction") << 0x80U << 0.0 << 100.0 << 50.0 << -1;
    QTest::newRow("an empty range") << 0x10U << 50.0 << 50.0 << 50.0 << -1;
    QTest::newRow("outside") << 0x10U << 0.0 << 100.0 << 100.5 << -1;
    QTest::newRow("wrapped") << 0x4010U << 0.0 << 100.0 << 110.0 << 10;
    QTest::newRow("not wrapped") << 0x10U << 0.0 << 100.0 << 110.0 << -1;
}

void tst_axisbase_mapping::valueToPixel()
{
    QFETCH(unsigned int, type);
    QFETCH(double, start);
    QFETCH(double, stop);
    QFETCH(double, value);
    AxisProbe axis(type, 100, 50);
    axis.SetWrapValue(100.0);
    axis.SetRange(start, stop);
    QTEST(axis.ValueToPixel(value), "pixel");
    if ((type & 0x30U) == 0)
        QCOMPARE(axis.PixelToValue(99), stop); // as horizontal
}

//! Derived panes write the fields directly.
void tst_axisbase_mapping::mapFollowsWhatItIsMadeOf()
{
    AxisProbe axis(AxisBase::AxisHorizontal | AxisBase::AxisWrapped, 100, 50);
    axis.m_start = 0.0;
    axis.m_stop = 100.0;
    QCOMPARE(axis.ValueToPixel(50.0), 50);
    axis.m_stop = 200.0;
    QCOMPARE(axis.ValueToPixel(50.0), 25);
    axis.m_start = -200.0;
    QCOMPARE(axis.ValueToPixel(0.0), 50);
    axis.resize(200, 50);
    QCOMPARE(axis.ValueToPixel(0.0), 100);
    axis.m_leftTopOffset = 20;
    axis.m_rightBottomOffset = 80;
    QCOMPARE(axis.ValueToPixel(0.0), 70);
    QCOMPARE(axis.ValueToPixel(201.0), -1);
    axis.SetWrapValue(300.0);
    QCOMPARE(axis.ValueToPixel(300.0), 70);
}

//! Values go to pixels across, and pixels back to values upward.
void tst_axisbase_mapping::bothDirections()
{
    AxisProbe axis(AxisBase::AxisHorizontal | AxisBase::AxisVertical, 100, 51);
    axis.SetPixOffset(10, 20);
    axis.SetRange(0.0, 100.0);
    QCOMPARE(axis.ValueToPixel(100.0), 79);
    QCOMPARE(axis.PixelToValue(0), 100.0);
    QCOMPARE(axis.PixelToValue(25), 50.0);
    QCOMPARE(axis.PixelToValue(50), 0.0);
    QCOMPARE(axis.PixelToValue(0, 25), 50.0);
}

namespace {

class ShiftedAxis : public AxisBase
{
public:
    using AxisBase::PixelToValue;
    using AxisBase::ValueToPixel;

    QRect innerRect() const override { return { 40, 0, 11, 20 }; }
};

} // namespace

void tst_axisbase_mapping::innerRectangleOfADerivedClass()
{
    ShiftedAxis axis;
    axis.resize(100, 20);
    axis.SetRange(0.0, 100.0);
    QCOMPARE(axis.ValueToPixel(0.0), 40);
    QCOMPARE(axis.ValueToPixel(100.0), 50);
    QCOMPARE(axis.PixelToValue(45), 50.0);
}

void tst_axisbase_mapping::onePixelWide()
{
    AxisProbe axis(AxisBase::AxisHorizontal, 1, 20);
    axis.SetRange(0.0, 100.0);
    QVERIFY(std::isnan(axis.PixelToValue(0)));
    QCOMPARE(axis.PixelToValue(1), Infinity);
    QCOMPARE(axis.ValueToPixel(50.0), 0);
    AxisProbe vertical(AxisBase::AxisVertical, 20, 1);
    vertical.SetRange(0.0, 100.0);
    QVERIFY(std::isnan(vertical.PixelToValue(0)));
    QCOMPARE(vertical.PixelToValue(1), -Infinity);
}

void tst_axisbase_mapping::sectionIsIgnored()
{
    AxisProbe axis;
    axis.SetRange(0.0, 99.0);
    for (int const section : { -1, 0, 1, 1000 }) {
        QCOMPARE(axis.ValueToPixel(section, 33.0), 33);
        QCOMPARE(axis.PixelToValue(section, 33), 33.0);
    }
}

void tst_axisbase_mapping::mapWithFlag_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<bool>("invert");
    QTest::addColumn<int>("pixel");
    QTest::addColumn<bool>("valid");
    QTest::newRow("inside") << 30.0 << false << 35 << true;
    QTest::newRow("inside, inverted") << 30.0 << true << 44 << true; // 80 - 1 - 35
    QTest::newRow("outside") << 300.0 << false << -1 << false;
    QTest::newRow("outside, inverted") << 300.0 << true << 80 << false;
}

void tst_axisbase_mapping::mapWithFlag()
{
    QFETCH(double, value);
    QFETCH(bool, invert);
    AxisProbe axis;
    axis.SetPixOffset(5, 15);
    axis.SetRange(0.0, 80.0);
    bool ok = false;
    QTEST(axis.ValueToPixel(value, &ok, invert), "pixel");
    QTEST(ok, "valid");
    QCOMPARE(axis.ValueToPixel(value, nullptr, true), axis.ValueToPixel(value)); // not inverted without the flag
}

namespace {

class LowestPixelAxis : public AxisBase
{
public:
    using AxisBase::PixelToValue;
    using AxisBase::ValueToPixel;
    int m_pixel = INT_MIN;

    int ValueToPixel(double /*value*/) const override { return m_pixel; }

    double PixelToValue(int /*pixel*/) const override { return 3.0; }
};

} // namespace

void tst_axisbase_mapping::otherFormsAskTheVirtualOnes()
{
    LowestPixelAxis axis;
    axis.m_pixel = 7;
    QCOMPARE(axis.ValueToPixel(0, 5.0), 7);
    QCOMPARE(axis.ValueToPixel(5.0, nullptr, false), 7);
    QCOMPARE(axis.PixelToValue(0, 1), 3.0);
    QCOMPARE(axis.PixelToValue(1, nullptr, false), 3.0);
}

void tst_axisbase_mapping::invertedInvalidPixelStaysInRange()
{
    LowestPixelAxis axis;
    axis.resize(100, 20);
    bool ok = true;
    QCOMPARE(axis.ValueToPixel(5.0, &ok, true), INT_MAX);
    QVERIFY(!ok);
    axis.m_pixel = -1;
    axis.SetPixOffset(INT_MIN, INT_MIN);
    QCOMPARE(axis.ValueToPixel(5.0, &ok, true), INT_MAX);
    axis.m_pixel = INT_MAX;
    axis.SetPixOffset(INT_MAX, INT_MAX);
    QCOMPARE(axis.ValueToPixel(5.0, &ok, true), INT_MIN);
}

void tst_axisbase_mapping::rangeToPixel()
{
    AxisProbe axis;
    axis.SetRange(0.0, 100.0);
    int a = -5;
    int b = -6;
    QVERIFY(axis.RangeToPixel(10.0, 20.0, a, b, false));
    QCOMPARE(a, 10);
    QCOMPARE(b, 20);
    QVERIFY(axis.RangeToPixel(10.0, 20.0, a, b, true));
    QCOMPARE(a, 89);
    QCOMPARE(b, 79);
    b = -6;
    QVERIFY(!axis.RangeToPixel(-1.0, 20.0, a, b, false));
    QCOMPARE(a, -1);
    QCOMPARE(b, -6);
    QVERIFY(!axis.RangeToPixel(10.0, 200.0, a, b, false));
    QCOMPARE(a, 10);
    QCOMPARE(b, -1);
}

void tst_axisbase_mapping::pixelToValueWithFlag()
{
    AxisProbe axis;
    axis.SetRange(-49.0, 50.0);
    bool ok = false;
    QCOMPARE(axis.PixelToValue(49, &ok, false), 0.0);
    QVERIFY(ok);
    QCOMPARE(axis.PixelToValue(48, &ok, false), -1.0);
    QVERIFY(!ok);
    QCOMPARE(axis.PixelToValue(0, &ok, true), 50.0); // 99 - 0
    QVERIFY(ok);
    QCOMPARE(axis.PixelToValue(10, nullptr, true), 40.0);
    axis.SetPixOffset(0, 9);
    axis.SetRange(0.0, 90.0);
    QCOMPARE(axis.PixelToValue(0, nullptr, true), 90.0); // 99 - 9 - 0
    axis.SetPixOffset(4, 5);
    QCOMPARE(axis.PixelToValue(86, nullptr, true), 0.0); // 99 - 4 - 5 - 86, the first pixel
    AxisProbe vertical(AxisBase::AxisVertical, 20, 100);
    vertical.SetRange(0.0, 99.0);
    QCOMPARE(vertical.PixelToValue(0, nullptr, true), 0.0);
    QCOMPARE(vertical.PixelToValue(0, nullptr, false), 99.0);
    AxisProbe none(0U, 21, 101);
    none.SetRange(0.0, 20.0);
    QCOMPARE(none.PixelToValue(90, nullptr, true), 10.0); // 100 - 90, by the height; mapped across
    axis.SetPixOffset(INT_MIN, INT_MIN);
    axis.PixelToValue(INT_MIN, &ok, true); // defined, whatever it is
}

void tst_axisbase_mapping::counts()
{
    AxisProbe axis(AxisBase::AxisHorizontal, 100, 20);
    axis.SetPixOffset(3, 4);
    QCOMPARE(axis.GetPixelCnt(), 100);
    QCOMPARE(axis.GetCalcWidth(), 93);
    AxisProbe vertical(AxisBase::AxisVertical, 20, 100);
    vertical.SetPixOffset(3, 4);
    QCOMPARE(vertical.GetPixelCnt(), 20); // the width, not the height
    QCOMPARE(vertical.GetCalcWidth(), 93);
    AxisProbe none(0U, 20, 100);
    QCOMPARE(none.GetCalcWidth(), 100);
}

void tst_axisbase_mapping::pixelsAreValid_data()
{
    QTest::addColumn<unsigned int>("type");
    QTest::addColumn<int>("pixel");
    QTest::addColumn<bool>("valid");
    for (unsigned int const type : { 0x10U, 0x20U, 0U }) {
        int const extent = type == 0x10U ? 100 : 50;
        QTest::addRow("%x: before the offset", type) << type << 9 << false;
        QTest::addRow("%x: at the offset", type) << type << 10 << true;
        QTest::addRow("%x: at the end", type) << type << extent - 20 << true;
        QTest::addRow("%x: behind the end", type) << type << extent - 19 << false;
    }
}

void tst_axisbase_mapping::pixelsAreValid()
{
    QFETCH(unsigned int, type);
    QFETCH(int, pixel);
    AxisProbe axis(type, 100, 50);
    axis.SetPixOffset(10, 20);
    QTEST(axis.IsPixelValid(pixel), "valid");
}

void tst_axisbase_mapping::pixelsForAUnit()
{
    AxisProbe axis(AxisBase::AxisHorizontal, 101, 20);
    axis.SetRange(0.0, 40.0);
    QCOMPARE(axis.GetPixelsForXUnit(7), 2.5);
    QCOMPARE(axis.GetXUnitsForPixel(7), 0.4);
    QCOMPARE(axis.DistanceToPixel(1.0), 3);
    QCOMPARE(axis.DistanceToPixel(2.0), 5);
    QCOMPARE(axis.DistanceToPixel(-1.0), -2);
    QCOMPARE(axis.DistanceToPixel(1e300), INT_MIN);
    axis.SetRange(5.0, 5.0);
    QCOMPARE(axis.GetPixelsForXUnit(0), Infinity);
    QCOMPARE(axis.GetXUnitsForPixel(0), 0.0);

    class Doubled : public AxisBase
    {
        double GetPixelsForXUnit(int section) const override { return section + 2.0; }
    };

    Doubled doubled;
    QCOMPARE(doubled.GetXUnitsForPixel(2), 0.25); // by the virtual operation
    QCOMPARE(doubled.DistanceToPixel(1.5), 3);    // of section 0
    AxisProbe one(AxisBase::AxisHorizontal, 1, 20);
    one.SetRange(0.0, 40.0);
    QCOMPARE(one.GetPixelsForXUnit(0), 0.0);
    QCOMPARE(one.GetXUnitsForPixel(0), Infinity);
}

void tst_axisbase_mapping::checkInRange_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("where");
    QTest::newRow("below") << 0.0 << 10.0 << -0.1 << 2;
    QTest::newRow("low end") << 0.0 << 10.0 << 0.0 << 1;
    QTest::newRow("inside") << 0.0 << 10.0 << 5.0 << 1;
    QTest::newRow("high end") << 0.0 << 10.0 << 10.0 << 1;
    QTest::newRow("above") << 0.0 << 10.0 << 10.1 << 3;
    QTest::newRow("downward: below") << 10.0 << 0.0 << -0.1 << 2;
    QTest::newRow("downward: inside") << 10.0 << 0.0 << 5.0 << 1;
    QTest::newRow("downward: above") << 10.0 << 0.0 << 10.1 << 3;
    QTest::newRow("empty: below") << 7.0 << 7.0 << 6.0 << 2;
    QTest::newRow("empty: on it") << 7.0 << 7.0 << 7.0 << 1;
    QTest::newRow("empty: above") << 7.0 << 7.0 << 8.0 << 3;
    QTest::newRow("NaN") << 0.0 << 10.0 << Nothing << 1;
}

void tst_axisbase_mapping::checkInRange()
{
    QFETCH(double, start);
    QFETCH(double, stop);
    QFETCH(double, value);
    AxisProbe axis;
    axis.SetRange(start, stop);
    QTEST(static_cast<int>(axis.CheckInRange(value)), "where");
}

void tst_axisbase_mapping::wrapsForDisplay()
{
    AxisProbe axis;
    double value = 359.95;
    axis.WrapValue4Display(value);
    QCOMPARE(value, 359.95); // nothing is bound
    Planted<ValueSelection> display("display");
    display->AddItems({ { QStringLiteral("plain"), 0.0, 0 },
                        { QStringLiteral("0 to 360"), 4.0, 4 },
                        { QStringLiteral("signed"), 8.0, 8 } });
    QVERIFY(axis.SetDisplayAzimuth_ValuePath(display.Path()));
    axis.WrapValue4Display(value);
    QCOMPARE(value, 359.95);
    display->Select(4L, nullptr);
    axis.WrapValue4Display(value);
    QCOMPARE(value, 359.95 - 360.0);
    display->Select(8L, nullptr);
    value = 270.0;
    axis.WrapValue4Display(value);
    QCOMPARE(value, -90.0);
}

void tst_axisbase_mapping::manyValues()
{
    AxisProbe axis(AxisBase::AxisVertical, 20, 1000);
    axis.SetRange(-120.0, 3.0);
    std::vector<double> values;
    for (int i = 0; i < 500; ++i)
        values.push_back(-130.0 + i * 0.3);
    std::vector<int> pixels(values.size());
    axis.ValuesToPixels(values.data(), pixels.data(), values.size());
    for (std::size_t i = 0; i < values.size(); ++i)
        QCOMPARE(pixels[i], axis.ValueToPixel(values[i]));
}

ORIM_TEST_MAIN(tst_axisbase_mapping)
#include "tst_axisbase_mapping.moc"
