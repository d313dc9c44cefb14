// SPDX-License-Identifier: MIT
// Special doubles, two at a time, as the numbers of an axis; random ranges, and zooms down to neighbouring doubles.

#include "axisprobe.h"

#include "coloryrulerleft.h"
#include "specialdoubles.h"
#include "testmain.h"
#include "valueselection.h"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <ctime>
#include <random>

namespace {

//! An axis without timers, so that what is timed is the axis.
class QuietAxis : public AxisProbe
{
public:
    using AxisProbe::AxisProbe;

    void Repair() override {}
};

class Ruler : public ColorYRulerLeft
{
public:
    void Repair() override {}
};

//! Fewer turns where loops are slow.
long long Turns(long long shortForm, long long longForm)
{
#if defined(__OPTIMIZE__)
    long long const divisor = TestStage::Sanitized() ? 10 : 1;
#else
    long long const divisor = 20;
#endif
    return TestStage::Turns(shortForm / divisor, longForm);
}

double SpacingAt(double a, double b)
{
    double const largest = std::max(std::fabs(a), std::fabs(b));
    return std::nextafter(largest, std::numeric_limits<double>::infinity()) - largest;
}

//! What is wrong with the tics of an axis; empty when nothing is.
QString FaultOfTics(AxisProbe & axis)
{
    if (axis.m_ticCount < 0 || axis.m_ticCount > 1000)
        return QStringLiteral("%1 tics").arg(axis.m_ticCount);
    double const low = std::min(axis.m_start, axis.m_stop);
    double const high = std::max(axis.m_start, axis.m_stop);
    double before = 0.0;
    QString labelBefore;
    QString label;
    for (int i = 0; i < axis.m_ticCount; ++i) {
        double const value = i * axis.m_ticStep + axis.m_firstTic + axis.m_ticOffset;
        if (!(value >= low && value <= high))
            return QStringLiteral("tic %1 is outside").arg(i);
        if (i > 0 && !(value > before))
            return QStringLiteral("tic %1 is not above the one before").arg(i);
        if (axis.ValueToPixel(value) < 0)
            return QStringLiteral("tic %1 has no pixel").arg(i);
        if (i < 20) { // the first labels tell whether there are digits enough
            axis.BuildFormatString(label, value * axis.m_displayFactor, nullptr);
            if (label == labelBefore) // the labels rise, so that neighbours tell
                return QStringLiteral("label %1 is twice %2").arg(i).arg(label);
            labelBefore = label;
        }
        before = value;
    }
    return {};
}

} // namespace

class tst_axis_torture : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyPairOfNumbers_data();
    void everyPairOfNumbers();
    void everyPairIsPainted();
    void everyPairBound();
    void everyPairIsZoomed_data();
    void everyPairIsZoomed();
    void randomRanges();
    void zoomToNeighboursAndBack();
    void cleanupTestCase();

private:
    template <class Call>
    void Time(Call call)
    {
        std::clock_t const begin = std::clock(); // of this process: others may hold the processor
        call();
        m_longest = std::max(m_longest, (std::clock() - begin) * 1'000'000LL / CLOCKS_PER_SEC);
        ++m_calls;
    }

    void Map(QuietAxis & axis, double a, double b);

    std::vector<double> m_specials;
    long long m_calls = 0;
    long long m_longest = 0; // us
    long long m_ranges = 0;
    long long m_zooms = 0;
    long long m_withTics = 0;
};

void tst_axis_torture::initTestCase() { m_specials = SpecialDoubles(); }

//! Every way from values to pixels and back.
void tst_axis_torture::Map(QuietAxis & axis, double a, double b)
{
    bool ok = false;
    int pa = 0;
    int pb = 0;
    for (double const value : { a, b })
        Time([&] {
            int const pixel = axis.ValueToPixel(value);
            int many[9];
            double const values[9] = { value, a, b, value, 0.0, a, b, value, a };
            axis.ValuesToPixels(values, many, 9);
            if (many[0] != pixel || many[7] != pixel || many[1] != many[8])
                QFAIL(qPrintable(QStringLiteral("%1 differs among many").arg(value, 0, 'g', 17)));
            if (pixel != -1 && !(value >= std::min(axis.m_start, axis.m_stop)) && axis.GetWrapValue() == -1.0)
                QFAIL("a pixel below the range");
            axis.ValueToPixel(value, &ok, true);
            axis.CheckInRange(value);
            axis.DistanceToPixel(value);
            axis.double2String(value, nullptr);
        });
    Time([&] { axis.RangeToPixel(a, b, pa, pb, true); });
    for (int const pixel : { INT_MIN, -1, 0, 50, 99, INT_MAX })
        Time([&] {
            axis.PixelToValue(pixel, &ok, true);
            axis.IsPixelValid(pixel);
        });
    Time([&] {
        axis.GetXUnitsForPixel(0);
        axis.Check4Tics();
    });
    QString label;
    Time([&] { axis.BuildFormatString(label, a, nullptr); });
}

void tst_axis_torture::everyPairOfNumbers_data()
{
    QTest::addColumn<unsigned int>("type");
    QTest::newRow("horizontal") << 0x10U;
    QTest::newRow("vertical") << 0x20U;
    QTest::newRow("wrapped") << 0x4010U;
    QTest::newRow("no direction") << 0U;
    QTest::newRow("time stamps") << 0x20010U;
}

void tst_axis_torture::everyPairOfNumbers()
{
    QFETCH(unsigned int, type);
    QuietAxis axis(type, 100, 100);
    axis.SetMaxPixBetweenTics(10);
    int const mostTics = (type & AxisBase::AxisTimeStamps) != 0 ? 106'751'993 : 1000; // days fit into 64 bits
    for (double const a : m_specials)
        for (double const b : m_specials) {
            axis.SetDisplayFactor(1.0);
            axis.SetWrapValue(-1.0);
            Time([&] { axis.SetRange(a, b); });
            QVERIFY(axis.m_ticCount <= mostTics);
            Map(axis, a, b);
            Time([&] { axis.SetFixedRange(a, b, 10, 3, 3, b, a); });
            Map(axis, b, a);
            axis.SetDisplayFactor(a);
            axis.SetWrapValue(a);
            Time([&] { axis.SetRange(0.0, b); });
            QVERIFY(axis.m_ticCount <= mostTics);
            Map(axis, a, b);
            Time([&] {
                axis.SetDefaultRange(a, b);
                axis.SetDeviceRange(a, b);
                axis.SetOffset(a);
                axis.SetPixPerSecond(b);
                axis.SetResultPanelPixelValue(0, a);
            });
            if (QTest::currentTestFailed())
                return;
        }
}

void tst_axis_torture::everyPairIsPainted()
{
    Planted<ValueSelection> display("display");
    for (long const key : { 6L, 10L })
        display->AddItem({ QString::number(key), 0.0, key });
    QuietAxis across(AxisBase::AxisHorizontal | AxisBase::AxisShading, 40, 20);
    QuietAxis up(AxisBase::AxisVertical | AxisBase::AxisShading, 20, 40);
    Ruler ruler;
    ruler.resize(40, 60);
    QImage image(60, 60, QImage::Format_RGB32);
    for (AxisBase * const axis :
         { static_cast<AxisBase *>(&across), static_cast<AxisBase *>(&up), static_cast<AxisBase *>(&ruler) })
        QVERIFY(axis->SetDisplayAzimuth_ValuePath(display.Path()));
    for (QuietAxis * const axis : { &across, &up })
        axis->m_pPixmap = std::make_unique<QPixmap>(1, 1);
    ruler.render(&image); // Qt loads its fonts here, which is not timed
    long key = 6;
    for (double const a : m_specials)
        for (double const b : m_specials) {
            display->Select(key = 16 - key, nullptr);
            for (QuietAxis * const axis : { &across, &up }) {
                axis->SetRange(a, b);
                QPainter painter(&image);
                Time([&] {
                    axis->m_pPixmap = std::make_unique<QPixmap>(1, 1);
                    axis->drawBackground(painter);
                });
                Time([&] { axis->drawShadeRect(painter, 1, 1, 18, 18, false); });
            }
            Time([&] {
                ruler.SetDisplayFactor(1.0);
                ruler.SetRange(a, b);
                ruler.render(&image);
            });
            Time([&] {
                ruler.SetFixedRange(a, b, 3, 2, 2, a, b);
                ruler.SetDisplayFactor(b);
                ruler.render(&image);
            });
        }
}

void tst_axis_torture::everyPairBound()
{
    Planted<ValueNumeric<double>> start("start");
    Planted<ValueNumeric<double>> stop("stop");
    Planted<ValueNumeric<double>> speed("speed");
    Planted<ValueNumeric<int>> offset("offset");
    QuietAxis axis(AxisBase::AxisHorizontal, 100, 20);
    axis.AddMarker(eYellowX)->SetWrapAround(360);
    QVERIFY(axis.SetStart_ValuePath(start.Path()) && axis.SetStop_ValuePath(stop.Path()));
    QVERIFY(axis.SetPixPerSecond_ValuePath(speed.Path()) && axis.SetOffset_ValuePath(offset.Path()));
    for (double const a : m_specials)
        for (double const b : m_specials) {
            Time([&] { start->SetValue(a, nullptr); });
            Time([&] { stop->SetValue(b, nullptr); });
            QVERIFY(axis.m_start == start->GetValue() && axis.m_stop == stop->GetValue());
            QVERIFY(!std::isnan(axis.m_start));
            Time([&] { speed->SetValue(a, nullptr); });
            Time([&] { axis.SetOffset(b); });
            Time([&] { axis.SetPixPerSecond(b); });
            QVERIFY(axis.m_ticCount <= 1000);
        }
}

void tst_axis_torture::everyPairIsZoomed_data()
{
    QTest::addColumn<unsigned int>("type");
    QTest::newRow("horizontal") << 0x10U;
    QTest::newRow("vertical, of frequencies") << 0xa0U;
}

void tst_axis_torture::everyPairIsZoomed()
{
    QFETCH(unsigned int, type);
    QuietAxis axis(type, 100, 100);
    axis.SetAxisZoomEnable(true, false);
    for (double const a : m_specials)
        for (double const b : m_specials) {
            axis.SetRange(0.0, 100.0);
            axis.SetDefaultRange(a, b);
            axis.SetDeviceRange(b, a);
            Time([&] { axis.SetZoomedRange(a, b, true); });
            QVERIFY(axis.m_ticCount <= 1000);
            Time([&] { axis.ZoomToDefault(); });
            QVERIFY(axis.m_ticCount <= 1000);
            Time([&] { axis.SetZoomedRange(-50.0, 150.0, true); }); // from there
            QVERIFY(axis.m_ticCount <= 1000);
            Time([&] { axis.ZoomToDevice(); });
            QVERIFY(axis.m_ticCount <= 1000);
            axis.m_unZoom.emplace_back(a, b, a);
            Time([&] {
                axis.IsUnZoomAvailable();
                axis.UnZoom();
            });
            axis.m_unZoom.emplace_back(b, a, b);
            Time([&] { axis.ZoomToBegin(); });
            QVERIFY(axis.m_ticCount <= 1000);
            QVERIFY(!std::isnan(axis.m_start) && !std::isnan(axis.m_stop));
            QVERIFY(axis.m_unZoom.empty());
        }
}

void tst_axis_torture::randomRanges()
{
    std::mt19937_64 random(TestStage::Seed());
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    QuietAxis across(AxisBase::AxisHorizontal, 100, 100);
    QuietAxis up(AxisBase::AxisVertical, 100, 100);
    long long const turns = Turns(1'000'000, 100'000'000);
    for (long long turn = 0; turn < turns; ++turn) {
        QuietAxis & axis = turn % 2 == 0 ? across : up;
        if (turn % 64 < 2)
            axis.resize(static_cast<int>(random() % 4000), static_cast<int>(random() % 4000));
        double const width = std::pow(10.0, 30.0 * unit(random) - 12.0);
        double const start = width * (unit(random) - 0.5) * std::pow(10.0, 14.0 * unit(random));
        axis.m_displayFactor = turn % 3 == 0 ? 1.0 : std::pow(10.0, static_cast<double>(random() % 25) - 12.0);
        axis.m_fixedTicWidth = turn % 4 == 0 ? static_cast<int>(random() % 5000) - 10 : -1;
        axis.SetRange(start, turn % 5 == 0 ? start - width : start + width);
        QString const fault = FaultOfTics(axis);
        // a widget without an extent has pixels of any sign
        if (!fault.isEmpty() && !(axis.width() * axis.height() == 0))
            QFAIL(qPrintable(QStringLiteral("turn %1: %2 .. %3, factor %4, width %5: %6")
                                 .arg(turn)
                                 .arg(axis.m_start, 0, 'g', 17)
                                 .arg(axis.m_stop, 0, 'g', 17)
                                 .arg(axis.m_displayFactor)
                                 .arg(axis.m_fixedTicWidth)
                                 .arg(fault)));
        m_withTics += axis.m_ticCount > 0 ? 1 : 0;
    }
    m_ranges = turns;
    QVERIFY(m_withTics > turns / 2);
}

//! A thousand steps in, until the ends are neighbours, and out again; the whole picture maps back to the range.
void tst_axis_torture::zoomToNeighboursAndBack()
{
    std::mt19937_64 random(TestStage::Seed());
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    QuietAxis axis(AxisBase::AxisHorizontal, 1000, 20);
    long long const walks = Turns(100, 10'000);
    for (long long walk = 0; walk < walks; ++walk) {
        double const center = (unit(random) - 0.5) * std::pow(10.0, 24.0 * unit(random) - 6.0);
        double const widest = std::pow(10.0, 18.0 * unit(random));
        for (int step = 0; step < 2000; ++step) {
            int const depth = step < 1000 ? step : 2000 - step;
            double const width = widest * std::pow(0.95, depth);
            double const start = center - width / 2.0;
            double const stop = std::max(start + width, std::nextafter(start, std::numeric_limits<double>::infinity()));
            axis.SetRange(start, stop);
            QString const fault = FaultOfTics(axis);
            if (!fault.isEmpty())
                QFAIL(
                    qPrintable(QStringLiteral("%1 .. %2: %3").arg(start, 0, 'g', 17).arg(stop, 0, 'g', 17).arg(fault)));
            double const spacing = SpacingAt(start, stop);
            if (axis.PixelToValue(0) != start || std::fabs(axis.PixelToValue(999) - stop) > spacing)
                QFAIL(qPrintable(
                    QStringLiteral("%1 .. %2 does not map back").arg(start, 0, 'g', 17).arg(stop, 0, 'g', 17)));
            double const shift = axis.PixelToValue(300) - axis.PixelToValue(0);
            axis.SetRange(start + shift, stop + shift);
            axis.SetRange(axis.m_start - shift, axis.m_stop - shift);
            double const allowed = SpacingAt(std::fabs(start) + width, std::fabs(stop) + width);
            if (std::fabs(axis.m_start - start) > allowed || std::fabs(axis.m_stop - stop) > allowed)
                QFAIL(qPrintable(
                    QStringLiteral("%1 .. %2 does not pan back").arg(start, 0, 'g', 17).arg(stop, 0, 'g', 17)));
            ++m_zooms;
        }
    }
}

void tst_axis_torture::cleanupTestCase()
{
    std::printf(
        "figures: %d special doubles, %lld calls, longest %lld us; %lld random ranges, %lld with tics; %lld zooms; "
        "seed %llu\n",
        static_cast<int>(m_specials.size()), m_calls, m_longest, m_ranges, m_withTics, m_zooms, TestStage::Seed());
#if defined(__OPTIMIZE__)
    long long const limit = TestStage::Sanitized() ? 50'000 : 10'000; // us
#else
    long long const limit = 50'000; // us
#endif
    QVERIFY(m_longest <= limit);
}

ORIM_TEST_MAIN(tst_axis_torture)
#include "tst_axis_torture.moc"
