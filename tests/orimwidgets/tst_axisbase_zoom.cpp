// SPDX-License-Identifier: MIT
#include "zoomprobe.h"

#include "testmain.h"

#include <QSignalSpy>

#include <cmath>
#include <limits>

namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double Nothing = std::numeric_limits<double>::quiet_NaN();

} // namespace

class tst_axisbase_zoom : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // to a range
    void zoomedRange_data();
    void zoomedRange();
    void refusedInSilence_data();
    void refusedInSilence();
    void refusedWhileDisabled();
    void rangeWithoutTicsIsTakenBack();
    void boundEndsAreWrittenFirst();
    void limitsMoveTheRange();
    void limitsDecideTheHalfWidth();
    void limitsThatKeepTheRangeLeaveNoEntry();
    void axisDoesNotHearItsOwnWrite();
    void halfWidthReachesTheFartherEnd_data();
    void halfWidthReachesTheFartherEnd();
    void halfWidthNeedsACenter_data();
    void halfWidthNeedsACenter();
    void halfWidthThatMovesTheRange();
    void orderAtTheSignal();
    void everyPairOfNumbers();

    // history
    void recording();
    void unZoom();
    void unZoomOfNothing();
    void unZoomTakesARefusedEntry();
    void unZoomOfAnEmptiedHistory();
    void unZoomTakesTheLatestOfThen();
    void availability_data();
    void availability();
    void toTheBegin_data();
    void toTheBegin();
    void whatEmptiesTheHistory_data();
    void whatEmptiesTheHistory();

    // switches
    void switches();
};

// To a range

void tst_axisbase_zoom::zoomedRange_data()
{
    QTest::addColumn<unsigned int>("type");
    QTest::addColumn<int>("width");
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    auto const row = [](char const * name, double start, double stop, double low, double high, unsigned int type = 0x10,
                        int width = 101) { QTest::newRow(name) << type << width << start << stop << low << high; };
    row("rising", 10.0, 20.0, 10.0, 20.0);
    row("falling ends are exchanged", 20.0, 10.0, 10.0, 20.0);
    row("beyond the present range", -50.0, 300.0, -50.0, 300.0);
    row("a little more than a tenth", 0.0, 0.11, 0.0, 0.11);
    row("only the start differs", 1.0, 100.0, 1.0, 100.0);
    row("only the stop differs", 0.0, 99.0, 0.0, 99.0);
    row("start differs by more than 1e-7", 2e-7, 100.0, 2e-7, 100.0);
    row("stop differs by more than 1e-7", 0.0, 100.0 + 2e-7, 0.0, 100.0 + 2e-7);
    row("start differs by exactly 1e-7", 1e-7, 100.0, 1e-7, 100.0);
    row("frequency axis, one unit for two pixels", 0.0, 50.0, 0.0, 50.0, 0x90, 100);
    row("frequency axis, half of the width is whole", 0.0, 50.0, 0.0, 50.0, 0x90, 101);
    row("vertical frequency axis, by its width", 0.0, 50.0, 0.0, 50.0, 0xa0, 100);
    row("another axis, less than one unit", 0.0, 0.5, 0.0, 0.5);
}

void tst_axisbase_zoom::zoomedRange()
{
    QFETCH(unsigned int, type);
    QFETCH(int, width);
    QFETCH(double, start);
    QFETCH(double, stop);
    ZoomProbe axis(type, width, 500);
    axis.m_firstRange = true;
    QSignalSpy const zoomed(&axis, &AxisBase::Zoomed);
    QSignalSpy const changed(&axis, &AxisBase::signalRangeChanged);
    QVERIFY(axis.SetZoomedRange(start, stop, true));
    QFETCH(double, low);
    QFETCH(double, high);
    QVERIFY(axis.m_start == low && axis.m_stop == high);
    QCOMPARE(axis.m_ends, axis.EndsOfRange());
    QVERIFY(axis.m_ticCount > 0);
    QCOMPARE(zoomed.count(), 1);
    QCOMPARE(changed.count(), 2);
    QCOMPARE(axis.m_unZoom.size(), std::size_t(1));
    QVERIFY(axis.m_unZoom.back() == AxisBase::StartStopBandwidth(0.0, 100.0, 0.0));
    QVERIFY(!axis.m_firstRange);
}

void tst_axisbase_zoom::refusedInSilence_data()
{
    QTest::addColumn<unsigned int>("type");
    QTest::addColumn<int>("width");
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    auto const row = [](char const * name, double start, double stop, unsigned int type = 0x10, int width = 101) {
        QTest::newRow(name) << type << width << start << stop;
    };
    row("a single value", 10.0, 10.0);
    row("exactly a tenth", 0.0, 0.1);
    row("a tenth, falling", 0.1, 0.0);
    row("a tenth higher up", 50.0, 50.1);
    row("less than a tenth", 0.0, 0.05);
    row("the present range", 0.0, 100.0);
    row("the present range, falling", 100.0, 0.0);
    row("the present range to within 1e-7", 0.9e-7, 100.0 - 0.9e-7);
    row("frequency axis, less than one unit for two pixels", 0.0, 49.9, 0x90, 100);
    row("vertical frequency axis, by its width", 0.0, 49.9, 0xa0, 100);
    row("start is NaN", Nothing, 50.0);
    row("stop is NaN", 50.0, Nothing);
    row("both are NaN", Nothing, Nothing);
    row("NaN on a frequency axis", Nothing, 50.0, 0x90);
    row("infinite start", -Infinity, 50.0);
    row("infinite stop", 50.0, Infinity);
    row("infinite range", -Infinity, Infinity);
    row("both ends infinite alike", Infinity, Infinity);
}

void tst_axisbase_zoom::refusedInSilence()
{
    QFETCH(unsigned int, type);
    QFETCH(int, width);
    QFETCH(double, start);
    QFETCH(double, stop);
    ZoomProbe axis(type, width, 500);
    axis.m_firstRange = true;
    QSignalSpy const zoomed(&axis, &AxisBase::Zoomed);
    QSignalSpy const changed(&axis, &AxisBase::signalRangeChanged);
    QVERIFY(!axis.SetZoomedRange(start, stop, true));
    QCOMPARE(axis.Range(), QStringLiteral("0..100"));
    QCOMPARE(zoomed.count(), 0);
    QCOMPARE(changed.count() != 0, std::isinf(stop - start)); // that one has no tics, and is taken back
    QVERIFY(axis.m_unZoom.empty());
    QVERIFY(axis.m_firstRange);
}

void tst_axisbase_zoom::refusedWhileDisabled()
{
    ZoomProbe axis;
    axis.SetAxisZoomEnable(false, true);
    QSignalSpy const zoomed(&axis, &AxisBase::Zoomed);
    QSignalSpy const changed(&axis, &AxisBase::signalRangeChanged);
    QVERIFY(!axis.SetZoomedRange(10.0, 20.0, true));
    QCOMPARE(axis.Range(), QStringLiteral("0..100"));
    QCOMPARE(zoomed.count() + changed.count(), 0);
    QVERIFY(axis.m_unZoom.empty());
}

void tst_axisbase_zoom::rangeWithoutTicsIsTakenBack()
{
    BoundAxis bound(true, true);
    bound.axis->m_fixedTicWidth = 1000; // none between 10 and 20
    bound.axis->m_firstRange = true;
    OnChange const start(bound.start.Get(), nullptr);
    QSignalSpy const zoomed(bound.axis, &AxisBase::Zoomed);
    QVERIFY(!bound.axis->SetZoomedRange(10.0, 20.0, true));
    QCOMPARE(bound.axis->Range(), QStringLiteral("0..100"));
    QCOMPARE(bound.start->GetValue(), 0.0);
    QCOMPARE(bound.stop->GetValue(), 100.0);
    QCOMPARE(bound.half->GetValue(), 7.0);
    QCOMPARE(start.m_codes, QStringList({ QStringLiteral("3"), QStringLiteral("3") })); // there and back
    QCOMPARE(bound.axis->m_ends, QStringList({ QStringLiteral("start 10"), QStringLiteral("stop 20"),
                                               QStringLiteral("start 0"), QStringLiteral("stop 100") }));
    QCOMPARE(zoomed.count(), 0);
    QVERIFY(bound.axis->m_unZoom.empty());
    QVERIFY(bound.axis->m_firstRange);
}

void tst_axisbase_zoom::boundEndsAreWrittenFirst()
{
    BoundAxis bound;
    QStringList seen;
    auto const note = [&] {
        seen << QStringLiteral("%1 %2 at ").arg(bound.start->GetValue()).arg(bound.stop->GetValue()) +
                    bound.axis->Range();
    };
    OnChange const start(bound.start.Get(), note);
    OnChange const stop(bound.stop.Get(), note);
    QVERIFY(bound.axis->SetZoomedRange(10.0, 20.0, true));
    QCOMPARE(seen, QStringList({ QStringLiteral("10 100 at 0..100"), QStringLiteral("10 20 at 0..100") }));
    QCOMPARE(bound.axis->Range(), QStringLiteral("10..20"));
}

void tst_axisbase_zoom::limitsMoveTheRange()
{
    BoundAxis bound;
    bound.start->SetMinMax(0.0, 30.0, 0.0, nullptr);
    bound.stop->SetMinMax(0.0, 100.0, 25.0, nullptr);
    QVERIFY(bound.axis->SetZoomedRange(40.0, 80.0, true));
    QCOMPARE(bound.axis->Range(), QStringLiteral("30..75"));
    QCOMPARE(bound.axis->m_unZoom.size(), std::size_t(1));
}

void tst_axisbase_zoom::limitsDecideTheHalfWidth()
{
    BoundAxis bound(true, true);
    bound.start->SetMinMax(0.0, 30.0, 0.0, nullptr);
    bound.stop->SetMinMax(0.0, 100.0, 25.0, nullptr);
    QVERIFY(bound.axis->SetZoomedRange(40.0, 80.0, true)); // 30..75
    QCOMPARE(bound.half->GetValue(), 25.0);                // that of 40..80 is 30
}

void tst_axisbase_zoom::limitsThatKeepTheRangeLeaveNoEntry()
{
    BoundAxis bound;
    bound.start->SetMinMax(0.0, 100.0, 0.0, nullptr);
    bound.stop->SetMinMax(0.0, 100.0, 0.0, nullptr);
    bound.axis->m_firstRange = true;
    QSignalSpy const zoomed(bound.axis, &AxisBase::Zoomed);
    QVERIFY(bound.axis->SetZoomedRange(-50.0, 150.0, true));
    QCOMPARE(bound.axis->Range(), QStringLiteral("0..100"));
    QCOMPARE(zoomed.count(), 1);
    QVERIFY(bound.axis->m_unZoom.empty());
    QVERIFY(!bound.axis->m_firstRange);
}

void tst_axisbase_zoom::axisDoesNotHearItsOwnWrite()
{
    BoundAxis bound(true, true);
    QVERIFY(bound.axis->SetZoomedRange(10.0, 20.0, true));
    QCOMPARE(bound.half->GetValue(), 40.0);
    QVERIFY(bound.axis->m_heard.empty());
    bound.axis->SetDefaultRange(0.0, 90.0);
    bound.axis->SetDeviceRange(5.0, 95.0);
    QVERIFY(bound.axis->ZoomToDefault());
    bound.axis->ZoomToDevice();
    QCOMPARE(bound.start->GetValue(), 5.0);
    QVERIFY(bound.axis->m_heard.empty());
}

void tst_axisbase_zoom::halfWidthReachesTheFartherEnd_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<double>("half");
    QTest::newRow("the start is farther") << 10.0 << 60.0 << 40.0;
    QTest::newRow("the stop is farther") << 40.0 << 95.0 << 45.0;
    QTest::newRow("both as far") << 40.0 << 60.0 << 10.0;
    QTest::newRow("range above the center") << 60.0 << 90.0 << 40.0;
}

void tst_axisbase_zoom::halfWidthReachesTheFartherEnd()
{
    QFETCH(double, start);
    QFETCH(double, stop);
    BoundAxis bound(true, true);
    QVERIFY(bound.axis->SetZoomedRange(start, stop, true));
    QTEST(bound.half->GetValue(), "half");
    QCOMPARE(bound.center->GetValue(), 50.0);
    QVERIFY(bound.axis->m_start == start && bound.axis->m_stop == stop);
    QVERIFY(bound.axis->m_unZoom.back() == AxisBase::StartStopBandwidth(0.0, 100.0, 7.0)); // the half width before
}

void tst_axisbase_zoom::halfWidthNeedsACenter_data()
{
    QTest::addColumn<bool>("center");
    QTest::addColumn<bool>("half");
    QTest::newRow("neither") << false << false;
    QTest::newRow("only the center") << true << false;
    QTest::newRow("only the half width") << false << true;
}

void tst_axisbase_zoom::halfWidthNeedsACenter()
{
    QFETCH(bool, center);
    QFETCH(bool, half);
    BoundAxis bound(center, half);
    QSignalSpy const changed(bound.axis, &AxisBase::signalRangeChanged);
    QVERIFY(bound.axis->SetZoomedRange(10.0, 20.0, true));
    QCOMPARE(bound.half->GetValue(), 7.0);
    QCOMPARE(changed.count(), 2); // set once
    QVERIFY(bound.axis->m_unZoom.back() == AxisBase::StartStopBandwidth(0.0, 100.0, 0.0));
}

void tst_axisbase_zoom::halfWidthThatMovesTheRange()
{
    BoundAxis bound(true, true);
    OnChange const coupled(bound.half.Get(), [&] {
        bound.start->SetValue(bound.center->GetValue() - bound.half->GetValue(), nullptr);
        bound.stop->SetValue(bound.center->GetValue() + bound.half->GetValue(), nullptr);
    });
    QVERIFY(bound.axis->SetZoomedRange(10.0, 60.0, true));
    QCOMPARE(bound.axis->Range(), QStringLiteral("10..60"));
    QCOMPARE(bound.stop->GetValue(), 60.0);
}

void tst_axisbase_zoom::orderAtTheSignal()
{
    ZoomProbe axis;
    axis.m_firstRange = true;
    QStringList seen;
    connect(&axis, &AxisBase::Zoomed, this, [&] {
        seen << axis.Range() << QString::number(axis.m_unZoom.size()) << QString::number(axis.m_firstRange);
    });
    QVERIFY(axis.SetZoomedRange(10.0, 20.0, true));
    QCOMPARE(seen, QStringList({ QStringLiteral("10..20"), QStringLiteral("0"), QStringLiteral("1") }));
}

//! No number brings more tics than the search may find, nor leaves a range without an order behind.
void tst_axisbase_zoom::everyPairOfNumbers()
{
    ZoomProbe axis;
    axis.SetRepairDelay(100'000);
    std::vector<double> const specials{
        Nothing, -Infinity, -1e300, -1e13, -1.0,   -1e-9, 0.0,
        1e-300,  0.1,       1.0,    1e13,  0x1p53, 1e300, std::numeric_limits<double>::max(),
        Infinity
    };
    for (double const a : specials)
        for (double const b : specials) {
            axis.SetRange(0.0, 100.0);
            axis.SetDefaultRange(a, b);
            axis.SetDeviceRange(b, a);
            bool const isRange = a < b || a > b;
            if (axis.SetZoomedRange(a, b, true))
                QVERIFY(axis.m_start < axis.m_stop && axis.m_ticCount > 0);
            else
                QCOMPARE(axis.Range(), QStringLiteral("0..100"));
            axis.SetRange(0.0, 99.0);
            QCOMPARE(axis.ZoomToDefault(), isRange && !(a == 0.0 && b == 99.0));
            QVERIFY(!std::isnan(axis.m_start) && !std::isnan(axis.m_stop));
            axis.ZoomToDevice();
            QVERIFY(!std::isnan(axis.m_start) && !std::isnan(axis.m_stop));
            axis.m_unZoom.emplace_back(a, b, a);
            axis.IsUnZoomAvailable();
            axis.UnZoom();
            axis.m_unZoom.emplace_back(a, b, a);
            axis.ZoomToBegin();
            QVERIFY(axis.m_unZoom.empty());
            QVERIFY(axis.m_ticCount <= 1000);
            axis.DoubleClick();
            axis.Press(10);
            axis.Move(60);
            axis.Release(60);
            axis.Press(10, Qt::ShiftModifier);
            axis.Move(60, Qt::ShiftModifier);
            axis.Release(60);
            QVERIFY(!std::isnan(axis.m_start) && !std::isnan(axis.m_stop));
            axis.ClearUnZoom();
        }
}

// History

void tst_axisbase_zoom::recording()
{
    ZoomProbe axis;
    QVERIFY(axis.SetZoomedRange(10.0, 90.0, false));
    QVERIFY(axis.m_unZoom.empty());
    QVERIFY(axis.SetZoomedRange(20.0, 80.0, true));
    QVERIFY(axis.SetZoomedRange(30.0, 70.0, true));
    QCOMPARE(axis.m_unZoom.size(), std::size_t(2));
    QVERIFY(axis.m_unZoom.front() == AxisBase::StartStopBandwidth(10.0, 90.0, 0.0));
    QVERIFY(axis.m_unZoom.back() == AxisBase::StartStopBandwidth(20.0, 80.0, 0.0));
}

void tst_axisbase_zoom::unZoom()
{
    BoundAxis bound(true, true);
    bound.axis->m_unZoom.emplace_back(5.0, 95.0, 0.0);
    bound.axis->m_unZoom.emplace_back(10.0, 90.0, 3.0);
    QSignalSpy const zoomed(bound.axis, &AxisBase::Zoomed);
    bound.axis->UnZoom();
    QCOMPARE(bound.axis->m_calls, QStringList(QStringLiteral("SetZoomedRange 10 90 0")));
    QCOMPARE(bound.axis->Range(), QStringLiteral("10..90"));
    QCOMPARE(bound.half->GetValue(), 40.0); // not the entry's
    QCOMPARE(bound.axis->m_unZoom.size(), std::size_t(1));
    QCOMPARE(zoomed.count(), 2); // of the range, and at the end
    bound.axis->UnZoom();
    QCOMPARE(bound.axis->Range(), QStringLiteral("5..95"));
    QVERIFY(bound.axis->m_unZoom.empty());
}

void tst_axisbase_zoom::unZoomOfNothing()
{
    ZoomProbe axis;
    QSignalSpy const zoomed(&axis, &AxisBase::Zoomed);
    axis.UnZoom();
    QCOMPARE(zoomed.count(), 1);
    QVERIFY(axis.m_calls.isEmpty());
    QVERIFY(axis.GetMustRecalcRulers());
}

void tst_axisbase_zoom::unZoomTakesARefusedEntry()
{
    ZoomProbe axis;
    axis.m_unZoom.emplace_back(10.0, 90.0, 0.0);
    axis.m_unZoom.emplace_back(50.0, 50.0, 0.0);
    QSignalSpy const zoomed(&axis, &AxisBase::Zoomed);
    axis.UnZoom();
    QCOMPARE(axis.Range(), QStringLiteral("0..100"));
    QCOMPARE(axis.m_unZoom.size(), std::size_t(1));
    QCOMPARE(zoomed.count(), 1);
    axis.SetAxisZoomEnable(false, false);
    axis.UnZoom();
    QCOMPARE(axis.Range(), QStringLiteral("0..100"));
    QVERIFY(axis.m_unZoom.empty());
    QCOMPARE(zoomed.count(), 2);
}

void tst_axisbase_zoom::unZoomOfAnEmptiedHistory()
{
    ZoomProbe axis;
    axis.m_unZoom.emplace_back(5.0, 95.0, 0.0);
    axis.m_unZoom.emplace_back(10.0, 90.0, 0.0);
    QSignalSpy const zoomed(&axis, &AxisBase::Zoomed);
    connect(&axis, &AxisBase::Zoomed, this, [&] { axis.ClearUnZoom(); });
    axis.UnZoom();
    QCOMPARE(axis.Range(), QStringLiteral("10..90"));
    QVERIFY(axis.m_unZoom.empty());
    QCOMPARE(zoomed.count(), 2);
}

void tst_axisbase_zoom::unZoomTakesTheLatestOfThen()
{
    ZoomProbe axis;
    axis.m_unZoom.emplace_back(10.0, 90.0, 0.0);
    bool isFirst = true;
    connect(&axis, &AxisBase::Zoomed, this, [&] {
        if (isFirst)
            axis.m_unZoom.emplace_back(1.0, 2.0, 3.0);
        isFirst = false;
    });
    axis.UnZoom();
    QCOMPARE(axis.m_unZoom.size(), std::size_t(1));
    QVERIFY(axis.m_unZoom.back() == AxisBase::StartStopBandwidth(10.0, 90.0, 0.0));
}

void tst_axisbase_zoom::availability_data()
{
    QTest::addColumn<double>("older"); // starts of entries 10 long, NaN for none
    QTest::addColumn<double>("latest");
    QTest::addColumn<bool>("available");
    QTest::newRow("no entry") << Nothing << Nothing << false;
    QTest::newRow("entry inside") << Nothing << 50.0 << true;
    QTest::newRow("ends at the start of the range") << Nothing << -10.0 << true;
    QTest::newRow("starts at the stop of the range") << Nothing << 100.0 << true;
    QTest::newRow("entry below") << Nothing << -10.5 << false;
    QTest::newRow("entry above") << Nothing << 100.5 << false;
    QTest::newRow("the latest has left the range") << 50.0 << 200.0 << false;
    QTest::newRow("an older one has left the range") << 200.0 << 50.0 << true;
}

void tst_axisbase_zoom::availability()
{
    QFETCH(double, older);
    QFETCH(double, latest);
    QFETCH(bool, available);
    ZoomProbe axis;
    for (double const start : { older, latest })
        if (!std::isnan(start))
            axis.m_unZoom.emplace_back(start, start + 10.0, 0.0);
    std::size_t const entries = axis.m_unZoom.size();
    QSignalSpy const zoomed(&axis, &AxisBase::Zoomed);
    QCOMPARE(axis.IsUnZoomAvailable(), available);
    QCOMPARE(axis.m_unZoom.size(), available ? entries : std::size_t(0));
    QCOMPARE(axis.IsUnZoomAvailable(), available);
    QCOMPARE(zoomed.count(), 0);
    QCOMPARE(axis.Range(), QStringLiteral("0..100"));
}

void tst_axisbase_zoom::toTheBegin_data()
{
    QTest::addColumn<double>("oldest"); // starts of entries 10 long, NaN for none
    QTest::addColumn<double>("latest");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("answer");
    QTest::addColumn<QString>("range");
    QTest::newRow("no entry") << Nothing << Nothing << true << false << "0..100";
    QTest::newRow("one entry") << Nothing << 50.0 << true << true << "50..60";
    QTest::newRow("the oldest of two") << 20.0 << 50.0 << true << true << "20..30";
    QTest::newRow("the oldest touches the stop") << 100.0 << 50.0 << true << true << "100..110";
    QTest::newRow("the oldest is above") << 100.5 << 50.0 << true << false << "0..100";
    QTest::newRow("the oldest is below") << -10.5 << 50.0 << true << false << "0..100";
    QTest::newRow("a refused range counts too") << 20.0 << 50.0 << false << true << "0..100";
}

void tst_axisbase_zoom::toTheBegin()
{
    QFETCH(double, oldest);
    QFETCH(double, latest);
    QFETCH(bool, enabled);
    QFETCH(bool, answer);
    ZoomProbe axis;
    axis.SetAxisZoomEnable(enabled, false);
    for (double const start : { oldest, latest })
        if (!std::isnan(start))
            axis.m_unZoom.emplace_back(start, start + 10.0, 0.0);
    QSignalSpy const zoomed(&axis, &AxisBase::Zoomed);
    QCOMPARE(axis.ZoomToBegin(), answer);
    QTEST(axis.Range(), "range");
    QVERIFY(axis.m_unZoom.empty());
    QCOMPARE(zoomed.count(), answer && enabled ? 1 : 0);
    QCOMPARE(axis.m_calls.filter(QStringLiteral("SetZoomedRange")).size(), answer ? 1 : 0);
}

void tst_axisbase_zoom::whatEmptiesTheHistory_data()
{
    QTest::addColumn<int>("way");
    QTest::addColumn<bool>("empties");
    QTest::newRow("ClearUnZoom") << 0 << true;
    QTest::newRow("SetDefaultRange") << 1 << true;
    QTest::newRow("a change of the center") << 2 << true;
    QTest::newRow("the default range") << 3 << true;
    QTest::newRow("the range of the device") << 4 << true;
    QTest::newRow("a device without a range") << 5 << true;
    QTest::newRow("SetDeviceRange") << 6 << false;
    QTest::newRow("another range") << 7 << false;
    QTest::newRow("ZoomToBest") << 8 << false;
}

void tst_axisbase_zoom::whatEmptiesTheHistory()
{
    QFETCH(int, way);
    QFETCH(bool, empties);
    BoundAxis bound(true);
    ZoomProbe & axis = *bound.axis;
    axis.SetDefaultRange(10.0, 20.0);
    if (way == 4)
        axis.SetDeviceRange(30.0, 40.0);
    axis.m_unZoom.emplace_back(0.0, 1.0, 0.0);
    axis.m_unZoom.emplace_back(0.0, 1.0, 0.0);
    switch (way) {
    case 0:
        axis.ClearUnZoom();
        break;
    case 1:
        axis.SetDefaultRange(1.0, 2.0);
        break;
    case 2:
        bound.center->SetValue(51.0, nullptr);
        break;
    case 3:
        QVERIFY(axis.ZoomToDefault());
        break;
    case 4:
    case 5:
        axis.ZoomToDevice();
        break;
    case 6:
        axis.SetDeviceRange(1.0, 2.0);
        break;
    case 7:
        axis.SetRange(1.0, 2.0);
        break;
    default:
        axis.ZoomToBest();
    }
    QCOMPARE(axis.m_unZoom.size(), std::size_t(empties ? 0 : 2));
}

// Switches

void tst_axisbase_zoom::switches()
{
    AxisProbe axis;
    for (bool const zoom : { true, false })
        for (bool const menu : { false, true }) {
            int const before = axis.m_menus;
            axis.SetAxisZoomEnable(zoom, menu);
            QCOMPARE(axis.m_zoomEnabled, zoom);
            QCOMPARE(axis.m_rangeMenuEnabled, menu);
            QCOMPARE(axis.m_menus, before + 1);
        }
}

ORIM_TEST_MAIN(tst_axisbase_zoom)
#include "tst_axisbase_zoom.moc"
