// SPDX-License-Identifier: MIT
#include "scalelayout.h"

#include "axisdefinition.h"
#include "pixelmap.h"
#include "testmain.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <random>

namespace {

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();

//! Tics at 0, 10, 20 ... of a range that starts at 0.
ScaleTics Tens(double stop, int minorTics = 0)
{
    return { 0.0, stop, 0.0, 10.0, 0.0, static_cast<int>(stop / 10.0) + 1, minorTics };
}

ScaleLayout::Extent Horizontal(int length)
{
    ScaleLayout::Extent extent;
    extent.length = length;
    return extent;
}

ScaleLayout::Extent Vertical(int length)
{
    ScaleLayout::Extent extent = Horizontal(length);
    extent.vertical = true;
    return extent;
}

ScaleTics Found(double start, double stop)
{
    ScaleTics tics;
    tics.start = start;
    tics.stop = stop;
    int left = 0;
    int right = 0;
    tics.ticCount = axisDefinition::GetAxisValuesLinear(&start, &stop, &tics.minorTics, &left, &right, &tics.firstTic,
                                                        &tics.ticStep, &tics.ticOffset, 1, 1.0, -1);
    return tics;
}

QVector<int> PixelsOf(ScaleLayout const & layout)
{
    QVector<int> pixels;
    for (ScaleLayout::Tic const & tic : layout.GetTics())
        pixels << tic.pixel;
    return pixels;
}

QVector<int> MinorPixelsOf(ScaleLayout const & layout)
{
    QVector<int> pixels;
    for (int const pixel : layout.GetMinorTics())
        pixels << pixel;
    return pixels;
}

//! Values that bear a label.
QVector<double> LabelledOf(ScaleLayout const & layout)
{
    QVector<double> values;
    for (ScaleLayout::Label const & label : layout.GetLabels())
        values << layout.GetTics()[static_cast<std::size_t>(label.tic)].value;
    return values;
}

QVector<int> LabelStartsOf(ScaleLayout const & layout)
{
    QVector<int> starts;
    for (ScaleLayout::Label const & label : layout.GetLabels())
        starts << label.start;
    return starts;
}

void Place(ScaleLayout & layout, int extent, int gap, int unitExtent)
{
    layout.PlaceLabels(std::vector<int>(layout.GetTics().size(), extent), gap, unitExtent);
}

//! What is wrong with a layout; null when nothing is.
char const * Fault(ScaleLayout const & layout, int length, int gap, int unitExtent)
{
    auto const isInside = [length](int pixel) { return pixel >= 0 && pixel < length; };
    if (layout.GetTics().size() > 1000 || layout.GetMinorTics().size() > 10000)
        return "too many tics";
    for (std::size_t i = 0; i < layout.GetTics().size(); ++i) {
        ScaleLayout::Tic const & tic = layout.GetTics()[i];
        if (!isInside(tic.pixel) || layout.ToPixel(tic.value) != tic.pixel)
            return "a tic does not stand at its pixel";
        if (i > 0 && tic.pixel < layout.GetTics()[i - 1].pixel)
            return "tics do not rise";
        if (i > 0 && (tic.value < layout.GetTics()[i - 1].value) != layout.IsFalling())
            return "values do not run one way";
    }
    for (std::size_t i = 0; i < layout.GetMinorTics().size(); ++i) {
        if (!isInside(layout.GetMinorTics()[i]))
            return "a minor tic is outside";
        if (i > 0 && layout.GetMinorTics()[i] <= layout.GetMinorTics()[i - 1])
            return "minor tics do not rise";
    }
    int const unitStart = layout.GetUnitStart();
    if (unitStart >= 0 && unitStart + unitExtent > length)
        return "the unit is cut";
    long long free = 0; // first pixel that the next label may cover
    for (ScaleLayout::Label const & label : layout.GetLabels()) {
        int const pixel = layout.GetTics()[static_cast<std::size_t>(label.tic)].pixel;
        if (label.start < 0 || label.start + label.extent > length)
            return "a label is cut";
        if (label.start < free)
            return "labels touch";
        if (pixel < label.start || pixel >= label.start + label.extent)
            return "a label left its tic";
        bool const isBefore = label.start + label.extent + gap <= unitStart;
        if (unitStart >= 0 && !isBefore && label.start < unitStart + unitExtent + gap)
            return "a label touches the unit";
        free = static_cast<long long>(label.start) + label.extent + gap;
    }
    return nullptr;
}

} // namespace

class tst_ScaleLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void mapsAsAnAxis_data();
    void mapsAsAnAxis();
    void originDecidesTheRounding();
    void agreesWithTheAxisAtTics();
    void ticsStandAtTheirPixels_data();
    void ticsStandAtTheirPixels();
    void minorTics_data();
    void minorTics();
    void numbersOfTics_data();
    void numbersOfTics();
    void emptyLayouts_data();
    void emptyLayouts();
    void labels_data();
    void labels();
    void labelsStandCentred();
    void labelAtAnEndIsMovedInside();
    void movedLabelGivesWayToItsNeighbour();
    void labelThatLeavesItsTicIsLeftOut();
    void widestLabelDecides();
    void unit_data();
    void unit();
    void newTicsDropTheLabels();
    void equality();
    void numericTorture();
    void holdsForRandomScales();
};

void tst_ScaleLayout::mapsAsAnAxis_data()
{
    QTest::addColumn<bool>("vertical");
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<int>("length");
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("pixel");
    QTest::newRow("start at the left") << false << 0.0 << 100.0 << 50 << 0.0 << 0;
    QTest::newRow("stop has the last pixel") << false << 0.0 << 100.0 << 50 << 100.0 << 49;
    QTest::newRow("cut, not rounded") << false << 0.0 << 100.0 << 50 << 3.9 << 1;
    QTest::newRow("just below the stop") << false << 0.0 << 100.0 << 50 << std::nextafter(100.0, 0.0) << 49;
    QTest::newRow("falling: start at the left") << false << 100.0 << 0.0 << 50 << 100.0 << 0;
    QTest::newRow("falling: stop at the right") << false << 100.0 << 0.0 << 50 << 0.0 << 49;
    QTest::newRow("falling: quarter") << false << 100.0 << 0.0 << 50 << 75.0 << 12;
    QTest::newRow("vertical: stop at the top") << true << 0.0 << 100.0 << 50 << 100.0 << 0;
    QTest::newRow("vertical: start at the bottom") << true << 0.0 << 100.0 << 50 << 0.0 << 49;
    QTest::newRow("vertical: quarter") << true << 0.0 << 100.0 << 50 << 25.0 << 37;
    QTest::newRow("vertical, falling: stop at the top") << true << 100.0 << 0.0 << 50 << 0.0 << 0;
    QTest::newRow("vertical, falling: start at the bottom") << true << 100.0 << 0.0 << 50 << 100.0 << 49;
    QTest::newRow("below") << false << 0.0 << 100.0 << 50 << -0.1 << -1;
    QTest::newRow("above") << false << 0.0 << 100.0 << 50 << 100.1 << -1;
    QTest::newRow("NaN has no pixel") << false << 0.0 << 100.0 << 50 << NaN << -1;
    QTest::newRow("infinity has no pixel") << false << 0.0 << 100.0 << 50 << Infinity << -1;
    QTest::newRow("one pixel: start") << false << 0.0 << 100.0 << 1 << 0.0 << 0;
    QTest::newRow("one pixel: stop") << false << 0.0 << 100.0 << 1 << 100.0 << 0;
    QTest::newRow("no pixel") << false << 0.0 << 100.0 << 0 << 50.0 << -1;
    QTest::newRow("no range") << false << 100.0 << 100.0 << 50 << 100.0 << -1;
    QTest::newRow("longest") << false << 0.0 << 4.0 << ScaleLayout::Longest << 1.0 << ScaleLayout::Longest / 4;
}

void tst_ScaleLayout::mapsAsAnAxis()
{
    QFETCH(bool, vertical);
    QFETCH(double, start);
    QFETCH(double, stop);
    QFETCH(int, length);
    QFETCH(double, value);
    ScaleLayout layout;
    layout.SetTics({ start, stop, 0.0, 0.0, 0.0, 0, 0 }, vertical ? Vertical(length) : Horizontal(length));
    QTEST(layout.ToPixel(value), "pixel");
}

void tst_ScaleLayout::originDecidesTheRounding()
{
    // the sum of 28.999999999999996 and 20 is a double that has no such tail
    ScaleTics const tics{ 0.0, 1.0, 0.29, 1.0, 0.0, 1, 0 };
    ScaleLayout::Extent extent = Horizontal(100);
    ScaleLayout layout;
    layout.SetTics(tics, extent);
    QCOMPARE(layout.ToPixel(0.29), 28);
    extent.origin = 20;
    layout.SetTics(tics, extent);
    QCOMPARE(layout.ToPixel(0.29), 29);
    QCOMPARE(layout.ToPixel(1.0), 99);
}

void tst_ScaleLayout::agreesWithTheAxisAtTics()
{
    std::mt19937_64 random(TestStage::Seed());
    std::uniform_real_distribution<double> uniform(-1.0, 1.0);
    ScaleLayout layout;
    for (int turn = 0; turn < 3000; ++turn) {
        double const start = uniform(random) * std::pow(10.0, 9.0 * uniform(random));
        double const stop = start + uniform(random) * std::pow(10.0, 9.0 * uniform(random));
        bool const vertical = (turn & 1) != 0;
        int const length = 1 + static_cast<int>(random() % 4000);
        int const origin = static_cast<int>(random() % 100);
        ScaleTics const tics = Found(start, stop);
        PixelMap::Layout axis;
        axis.start = start;
        axis.stop = stop;
        axis.direction = vertical ? PixelMap::eVertical : PixelMap::eHorizontal;
        axis.first = origin;
        axis.last = origin + length - 1;
        PixelMap const map(axis);
        for (int const ratio : { 1, 2, 4 }) { // pixels of the layout to one of the axis
            ScaleLayout::Extent extent = vertical ? Vertical(length * ratio) : Horizontal(length * ratio);
            extent.origin = origin * ratio;
            layout.SetTics(tics, extent);
            QCOMPARE(static_cast<int>(layout.GetTics().size()), tics.ticCount);
            for (ScaleLayout::Tic const & tic : layout.GetTics())
                QCOMPARE(tic.pixel / ratio, std::min(map.ToPixel(tic.value) - origin, length - 1));
        }
    }
}

void tst_ScaleLayout::ticsStandAtTheirPixels_data()
{
    QTest::addColumn<bool>("vertical");
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<QVector<int>>("pixels");
    QTest::newRow("rising") << false << 0.0 << 40.0 << QVector<int>{ 0, 20, 40, 60, 79 };
    QTest::newRow("falling") << false << 40.0 << 0.0 << QVector<int>{ 0, 20, 40, 60, 79 };
    QTest::newRow("vertical") << true << 0.0 << 40.0 << QVector<int>{ 0, 20, 40, 60, 79 };
    QTest::newRow("off the ends") << false << -5.0 << 35.0 << QVector<int>{ 10, 30, 50, 70 };
    QTest::newRow("off the ends, falling") << false << 35.0 << -5.0 << QVector<int>{ 10, 30, 50, 70 };
    QTest::newRow("tics outside are left out") << false << 5.0 << 25.0 << QVector<int>{ 20, 60 };
}

void tst_ScaleLayout::ticsStandAtTheirPixels()
{
    QFETCH(bool, vertical);
    QFETCH(double, start);
    QFETCH(double, stop);
    ScaleLayout layout;
    layout.SetTics({ start, stop, 0.0, 10.0, 0.0, 5, 0 }, vertical ? Vertical(80) : Horizontal(80));
    QTEST(PixelsOf(layout), "pixels");
    QVERIFY(layout.GetMinorTics().empty());
    bool const falling = (start > stop) != vertical;
    QCOMPARE(layout.IsFalling(), falling);
    QCOMPARE(layout.GetTics().front().value > layout.GetTics().back().value, falling);
}

void tst_ScaleLayout::minorTics_data()
{
    QTest::addColumn<int>("minorTics");
    QTest::addColumn<int>("distance");
    QTest::addColumn<bool>("vertical");
    QTest::addColumn<QVector<int>>("pixels");
    QTest::newRow("none") << 0 << 3 << false << QVector<int>();
    QTest::newRow("negative") << -1 << 3 << false << QVector<int>();
    QTest::newRow("one between") << 1 << 3 << false << QVector<int>{ 15, 35 };
    QTest::newRow("three, also around") << 3 << 3 << false << QVector<int>{ 0, 10, 15, 20, 30, 35, 40, 49 };
    QTest::newRow("vertical") << 1 << 3 << true << QVector<int>{ 15, 35 };
    QTest::newRow("just far enough") << 3 << 5 << false << QVector<int>{ 0, 10, 15, 20, 30, 35, 40, 49 };
    QTest::newRow("too near") << 3 << 6 << false << QVector<int>();
    QVector<int> all(50);
    std::iota(all.begin(), all.end(), 0);
    QTest::newRow("a pixel bears one only") << 2000 << 0 << false << all;
    QTest::newRow("a pixel bears one only, vertical") << 2000 << -1 << true << all;
}

void tst_ScaleLayout::minorTics()
{
    QFETCH(int, minorTics);
    QFETCH(int, distance);
    QFETCH(bool, vertical);
    // 50 px show 7.5 to 32.5: 2 px a unit, tics at 10, 20, 30
    ScaleLayout::Extent extent = vertical ? Vertical(50) : Horizontal(50);
    extent.minorDistance = distance;
    ScaleLayout layout;
    layout.SetTics({ 7.5, 32.5, 10.0, 10.0, 0.0, 3, minorTics }, extent);
    QTEST(MinorPixelsOf(layout), "pixels");
}

void tst_ScaleLayout::numbersOfTics_data()
{
    QTest::addColumn<double>("stop");
    QTest::addColumn<int>("ticCount");
    QTest::addColumn<int>("minorTics");
    QTest::addColumn<int>("tics");
    QTest::addColumn<int>("found");
    QTest::newRow("one") << 1e6 << 1 << 0 << 1 << 0;
    QTest::newRow("a thousand") << 1e6 << 1000 << 0 << 1000 << 0;
    QTest::newRow("a thousand and one") << 1e6 << 1001 << 0 << 1000 << 0;
    QTest::newRow("as many as an int counts") << 1e6 << std::numeric_limits<int>::max() << 4 << 1000 << 4000;
    QTest::newRow("nine minor tics each") << 1e6 << 1000 << 9 << 1000 << 9000;
    QTest::newRow("ten minor tics each are too many") << 1e6 << 1000 << 10 << 1000 << 0;
    QTest::newRow("as many minor tics as an int counts") << 1e6 << 2 << std::numeric_limits<int>::max() << 2 << 0;
    QTest::newRow("ten thousand minor tics at most") << 2.0 << 1 << 5000 << 1 << 5000;
    QTest::newRow("more than that are none") << 2.0 << 1 << 5001 << 1 << 0;
    QTest::newRow("negative count") << 1e6 << -1 << 4 << 0 << 0;
}

void tst_ScaleLayout::numbersOfTics()
{
    QFETCH(double, stop);
    QFETCH(int, ticCount);
    QFETCH(int, minorTics);
    ScaleLayout layout;
    layout.SetTics({ 0.0, stop, 0.0, 1.0, 0.0, ticCount, minorTics }, Horizontal(ScaleLayout::Longest));
    QTEST(static_cast<int>(layout.GetTics().size()), "tics");
    QTEST(static_cast<int>(layout.GetMinorTics().size()), "found");
}

void tst_ScaleLayout::emptyLayouts_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<double>("first");
    QTest::addColumn<double>("step");
    QTest::addColumn<double>("offset");
    QTest::addColumn<int>("length");
    double const most = std::numeric_limits<double>::max();
    QTest::newRow("start is NaN") << NaN << 40.0 << 0.0 << 10.0 << 0.0 << 80;
    QTest::newRow("stop is NaN") << 0.0 << NaN << 0.0 << 10.0 << 0.0 << 80;
    QTest::newRow("start is infinite") << -Infinity << 40.0 << 0.0 << 10.0 << 0.0 << 80;
    QTest::newRow("stop is infinite") << 0.0 << Infinity << 0.0 << 10.0 << 0.0 << 80;
    QTest::newRow("no range") << 40.0 << 40.0 << 0.0 << 10.0 << 0.0 << 80;
    QTest::newRow("wider than a double") << -most << most << 0.0 << 10.0 << 0.0 << 80;
    QTest::newRow("first is NaN") << 0.0 << 40.0 << NaN << 10.0 << 0.0 << 80;
    QTest::newRow("first is infinite") << 0.0 << 40.0 << Infinity << 10.0 << 0.0 << 80;
    QTest::newRow("step is 0") << 0.0 << 40.0 << 0.0 << 0.0 << 0.0 << 80;
    QTest::newRow("step is negative") << 0.0 << 40.0 << 40.0 << -10.0 << 0.0 << 80;
    QTest::newRow("step is NaN") << 0.0 << 40.0 << 0.0 << NaN << 0.0 << 80;
    QTest::newRow("step is infinite") << 0.0 << 40.0 << 0.0 << Infinity << 0.0 << 80;
    QTest::newRow("offset is NaN") << 0.0 << 40.0 << 0.0 << 10.0 << NaN << 80;
    QTest::newRow("no length") << 0.0 << 40.0 << 0.0 << 10.0 << 0.0 << 0;
    QTest::newRow("negative length") << 0.0 << 40.0 << 0.0 << 10.0 << 0.0 << -80;
    QTest::newRow("longer than longest") << 0.0 << 40.0 << 0.0 << 10.0 << 0.0 << ScaleLayout::Longest + 1;
}

void tst_ScaleLayout::emptyLayouts()
{
    QFETCH(double, start);
    QFETCH(double, stop);
    QFETCH(double, first);
    QFETCH(double, step);
    QFETCH(double, offset);
    QFETCH(int, length);
    ScaleLayout layout;
    layout.SetTics(Tens(40.0, 1), Horizontal(80));
    Place(layout, 5, 2, 10);
    QCOMPARE(static_cast<int>(layout.GetLabels().size()), 4); // so there is something to lose
    layout.SetTics({ start, stop, first, step, offset, 5, 1 }, Horizontal(length));
    Place(layout, 5, 2, 10);
    QVERIFY(layout.GetTics().empty());
    QVERIFY(layout.GetMinorTics().empty());
    QVERIFY(layout.GetLabels().empty());
}

void tst_ScaleLayout::labels_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<int>("length"); // of 100 units with tics at each 10th
    QTest::addColumn<int>("extent");
    QTest::addColumn<QVector<double>>("labelled");
    QTest::newRow("all") << 5.0 << 1000 << 95 << QVector<double>{ 10, 20, 30, 40, 50, 60, 70, 80, 90, 100 };
    QTest::newRow("a pixel too wide: each 2nd") << 5.0 << 1000 << 96 << QVector<double>{ 20, 40, 60, 80, 100 };
    QTest::newRow("each 2nd, from an odd one") << 15.0 << 1000 << 96 << QVector<double>{ 20, 40, 60, 80, 100 };
    QTest::newRow("each 5th") << 25.0 << 100 << 40 << QVector<double>{ 50, 100 };
    QTest::newRow("each 10th") << 45.0 << 100 << 60 << QVector<double>{ 100 };
    QTest::newRow("negative ones keep the round numbers") << -75.0 << 100 << 40 << QVector<double>{ -50, 0 };
    QTest::newRow("no extent") << 5.0 << 1000 << 0 << QVector<double>();
    QTest::newRow("negative extent") << 5.0 << 1000 << -5 << QVector<double>();
    QTest::newRow("wider than the scale") << 5.0 << 100 << 101 << QVector<double>();
    QTest::newRow("as wide as an int") << 5.0 << 100 << std::numeric_limits<int>::max() << QVector<double>();
}

void tst_ScaleLayout::labels()
{
    QFETCH(double, start);
    QFETCH(int, length);
    QFETCH(int, extent);
    QFETCH(QVector<double>, labelled);
    ScaleTics const tics{ start, start + 100.0, std::ceil(start / 10.0) * 10.0, 10.0, 0.0, 10, 0 };
    ScaleLayout layout;
    layout.SetTics(tics, Horizontal(length));
    Place(layout, extent, 4, 0);
    QCOMPARE(LabelledOf(layout), labelled);
    // on a vertical scale the same values, from the top
    layout.SetTics(tics, Vertical(length));
    Place(layout, extent, 4, 0);
    std::reverse(labelled.begin(), labelled.end());
    QCOMPARE(LabelledOf(layout), labelled);
}

void tst_ScaleLayout::labelsStandCentred()
{
    ScaleLayout layout;
    layout.SetTics({ 5.0, 35.0, 10.0, 10.0, 0.0, 3, 0 }, Horizontal(300));
    Place(layout, 21, 4, 0);
    QCOMPARE(LabelStartsOf(layout), (QVector<int>{ 40, 140, 240 }));
    QCOMPARE(layout.GetLabels().front().extent, 21);
    QVERIFY(!layout.GetLabels().front().moved);
}

void tst_ScaleLayout::labelAtAnEndIsMovedInside()
{
    ScaleLayout layout;
    layout.SetTics(Tens(20.0), Horizontal(100));
    Place(layout, 20, 4, 0);
    QCOMPARE(LabelStartsOf(layout), (QVector<int>{ 0, 40, 80 }));
    QVERIFY(layout.GetLabels().front().moved);
    QVERIFY(!layout.GetLabels()[1].moved);
    QVERIFY(layout.GetLabels().back().moved);
}

void tst_ScaleLayout::movedLabelGivesWayToItsNeighbour()
{
    ScaleLayout layout;
    layout.SetTics(Tens(20.0), Horizontal(60)); // 0 and 20 would stand inside at 0 and 35
    Place(layout, 25, 4, 0);
    QCOMPARE(LabelledOf(layout), QVector<double>{ 10.0 });
    QCOMPARE(LabelStartsOf(layout), QVector<int>{ 18 });
}

void tst_ScaleLayout::labelThatLeavesItsTicIsLeftOut()
{
    // the unit takes the right end: the label of 20 would have to go beyond its own tic
    ScaleLayout layout;
    layout.SetTics(Tens(20.0), Horizontal(100));
    Place(layout, 20, 4, 20);
    QCOMPARE(LabelledOf(layout), (QVector<double>{ 0.0, 10.0 }));
    QCOMPARE(layout.GetUnitStart(), 80);
}

void tst_ScaleLayout::widestLabelDecides()
{
    ScaleLayout layout;
    layout.SetTics({ 5.0, 45.0, 10.0, 10.0, 0.0, 4, 0 }, Horizontal(160));
    layout.PlaceLabels({ 10, 10, 36, 10 }, 4, 0);
    QCOMPARE(LabelledOf(layout), (QVector<double>{ 20.0, 40.0 }));
    layout.PlaceLabels({ 10, 10, 35, 10 }, 4, 0);
    QCOMPARE(LabelledOf(layout), (QVector<double>{ 10.0, 20.0, 30.0, 40.0 }));
    layout.PlaceLabels({ 10, 10 }, 4, 0);
    QCOMPARE(LabelledOf(layout), (QVector<double>{ 10.0, 20.0 })); // a list that is too short names the first ones
    layout.PlaceLabels({ 10, 10, 10, 10, 1000 }, 4, 0);
    QCOMPARE(LabelledOf(layout), (QVector<double>{ 10.0, 20.0, 30.0, 40.0 })); // one too long is read as far as tics go
}

void tst_ScaleLayout::unit_data()
{
    QTest::addColumn<bool>("vertical");
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("unitExtent");
    QTest::addColumn<int>("unitStart");
    QTest::addColumn<QVector<double>>("labelled");
    QTest::newRow("none") << false << 300 << 0 << -1 << QVector<double>{ 10, 20, 30 };
    QTest::newRow("negative") << false << 300 << -3 << -1 << QVector<double>{ 10, 20, 30 };
    QTest::newRow("at the right") << false << 300 << 30 << 270 << QVector<double>{ 10, 20, 30 };
    QTest::newRow("moves a label aside") << false << 300 << 40 << 260 << QVector<double>{ 10, 20, 30 };
    QTest::newRow("takes the place of a label") << false << 300 << 60 << 240 << QVector<double>{ 10, 20 };
    QTest::newRow("at the top") << true << 300 << 30 << 0 << QVector<double>{ 30, 20, 10 };
    QTest::newRow("at the top in place of a label") << true << 300 << 60 << 0 << QVector<double>{ 20, 10 };
    QTest::newRow("just room for it and a label") << false << 300 << 276 << 24 << QVector<double>();
    QTest::newRow("no room for it and a label") << false << 300 << 277 << -1 << QVector<double>{ 10, 20, 30 };
    QTest::newRow("as wide as an int") << false << 300 << std::numeric_limits<int>::max() << -1
                                       << QVector<double>{ 10, 20, 30 };
}

void tst_ScaleLayout::unit()
{
    QFETCH(bool, vertical);
    QFETCH(int, length);
    QFETCH(int, unitExtent);
    ScaleLayout layout;
    layout.SetTics({ 5.0, 35.0, 10.0, 10.0, 0.0, 3, 0 }, vertical ? Vertical(length) : Horizontal(length));
    Place(layout, 20, 4, unitExtent);
    QTEST(layout.GetUnitStart(), "unitStart");
    QTEST(LabelledOf(layout), "labelled");
    QCOMPARE(Fault(layout, length, 4, unitExtent), static_cast<char const *>(nullptr));
}

void tst_ScaleLayout::newTicsDropTheLabels()
{
    ScaleLayout layout;
    layout.SetTics(Tens(40.0), Horizontal(400));
    Place(layout, 20, 4, 30);
    QVERIFY(!layout.GetLabels().empty());
    QVERIFY(layout.GetUnitStart() > 0);
    layout.SetTics(Tens(40.0), Horizontal(400));
    QVERIFY(layout.GetLabels().empty());
    QCOMPARE(layout.GetUnitStart(), -1);
}

void tst_ScaleLayout::equality()
{
    ScaleTics const tics{ 1.0, 2.0, 3.0, 4.0, 5.0, 6, 7 };
    QVERIFY(tics == tics);
    QVERIFY((tics != ScaleTics{ 0.0, 2.0, 3.0, 4.0, 5.0, 6, 7 }));
    QVERIFY((tics != ScaleTics{ 1.0, 0.0, 3.0, 4.0, 5.0, 6, 7 }));
    QVERIFY((tics != ScaleTics{ 1.0, 2.0, 0.0, 4.0, 5.0, 6, 7 }));
    QVERIFY((tics != ScaleTics{ 1.0, 2.0, 3.0, 0.0, 5.0, 6, 7 }));
    QVERIFY((tics != ScaleTics{ 1.0, 2.0, 3.0, 4.0, 0.0, 6, 7 }));
    QVERIFY((tics != ScaleTics{ 1.0, 2.0, 3.0, 4.0, 5.0, 0, 7 }));
    QVERIFY((tics != ScaleTics{ 1.0, 2.0, 3.0, 4.0, 5.0, 6, 0 }));
    QVERIFY((ScaleTics{ NaN, NaN, NaN, NaN, NaN, 6, 7 } == ScaleTics{ NaN, NaN, NaN, NaN, NaN, 6, 7 }));
}

void tst_ScaleLayout::numericTorture()
{
    double const most = std::numeric_limits<double>::max();
    double const least = std::numeric_limits<double>::denorm_min();
    std::vector<double> const odd{ NaN,        Infinity, -Infinity, 0.0,        -0.0,        least,
                                   -least,     2.3e-308, 1e-300,    1e-9,       0.1,         1.0,
                                   -1.0,       10.0,     0x1p31,    0x1p31 - 1, -0x1p31,     0x1p53,
                                   0x1p53 + 2, 0x1p63,   -0x1p63,   1e13,       1e13 + 1e-4, 1e100,
                                   1e300,      -1e300,   most,      -most,      360.0,       std::nextafter(360.0, 0.0),
                                   most / 2,   -most / 2 };
    std::vector<int> const lengths{
        -1, 0, 1, 2, 1000, 16777215, ScaleLayout::Longest, std::numeric_limits<int>::max()
    };
    long long calls = 0;
    ScaleLayout layout;
    for (double const a : odd) {
        for (double const b : odd) {
            int const length = lengths[static_cast<std::size_t>(calls) % lengths.size()];
            ScaleLayout::Extent extent = (calls & 1) != 0 ? Vertical(length) : Horizontal(length);
            extent.origin = (calls & 2) != 0 ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
            extent.minorDistance = (calls & 4) != 0 ? std::numeric_limits<int>::min() : 3;
            int const count = (calls & 8) != 0 ? 1500 : 7;
            for (ScaleTics const & tics :
                 { ScaleTics{ a, b, 0.0, 1.0, 0.0, count, 4 }, ScaleTics{ 0.0, 100.0, a, b, 0.0, count, 4 },
                   ScaleTics{ 0.0, 100.0, 0.0, a, b, count, 4 }, ScaleTics{ -1.0, a, 0.0, b, 1.0, count, 4 },
                   ScaleTics{ b, 1.0, a, 0.1, 0.0, count, 4 } }) {
                layout.SetTics(tics, extent);
                Place(layout, 30, 4, 20);
                char const * const fault = Fault(layout, length, 4, 20);
                QVERIFY2(!fault, fault);
                int const pixel = layout.ToPixel(b);
                QVERIFY(pixel >= -1 && pixel < std::max(0, length));
                ++calls;
            }
        }
    }
    QCOMPARE(calls, static_cast<long long>(odd.size() * odd.size() * 5));
}

void tst_ScaleLayout::holdsForRandomScales()
{
    std::mt19937_64 random(TestStage::Seed());
    std::uniform_real_distribution<double> uniform(-1.0, 1.0);
    auto const below = [&random](int end) { return static_cast<int>(random() % static_cast<unsigned int>(end)); };
    long long const turns = TestStage::Turns(100'000, 10'000'000);
    long long labels = 0;
    long long units = 0;
    ScaleLayout layout;
    std::vector<int> extents;
    for (long long turn = 0; turn < turns; ++turn) {
        double const start = uniform(random) * std::pow(10.0, 12.0 * uniform(random));
        double const stop = start + uniform(random) * std::pow(10.0, 12.0 * uniform(random));
        int const length = 1 + below(below(10) == 0 ? 5'000'000 : 3000);
        ScaleLayout::Extent extent = below(2) == 0 ? Vertical(length) : Horizontal(length);
        extent.origin = below(200) - 100;
        ScaleTics tics = Found(start, stop);
        if (below(20) == 0)
            tics.ticOffset += uniform(random) * (stop - start); // tics that are no multiples, and some outside
        layout.SetTics(tics, extent);
        int const widest = 1 + below(120);
        extents.resize(layout.GetTics().size());
        std::generate(extents.begin(), extents.end(), [&] { return below(widest + 1); });
        int const gap = below(20);
        int const unitExtent = below(60);
        layout.PlaceLabels(extents, gap, unitExtent);
        char const * const fault = Fault(layout, length, gap, unitExtent);
        QVERIFY2(!fault, qPrintable(QStringLiteral("turn %1: %2").arg(turn).arg(QLatin1String(fault))));
        labels += static_cast<long long>(layout.GetLabels().size());
        units += layout.GetUnitStart() >= 0 ? 1 : 0;
    }
    QVERIFY(labels > turns); // the layouts are not empty
    QVERIFY(units > turns / 2);
    qInfo("figures: %lld random scales, %lld labels, %lld units, seed %llu", turns, labels, units, TestStage::Seed());
}

ORIM_CORE_TEST_MAIN(tst_ScaleLayout)
#include "tst_scalelayout.moc"
