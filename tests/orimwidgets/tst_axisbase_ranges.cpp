// SPDX-License-Identifier: MIT
#include "zoomprobe.h"

#include "marker.h"
#include "testmain.h"

#include <QPointer>
#include <QSignalSpy>

#include <cmath>
#include <functional>
#include <limits>
#include <vector>

namespace {

constexpr double Nothing = std::numeric_limits<double>::quiet_NaN();

using Axis = QPointer<ZoomProbe>; // it may be deleted on the way

void Refuse(Axis const & axis)
{
    axis->m_fixedTicWidth = 1000; // no tic from 30 to 70
    QVERIFY(!axis->SetZoomedRange(30.0, 70.0, true));
}

void Drag(Axis const & axis, Qt::KeyboardModifiers modifiers)
{
    axis->Press(20, modifiers);
    axis->Move(60, modifiers);
    if (axis)
        axis->Release(60);
}

void DragOffset(Axis const & axis)
{
    axis->m_offsetDrag = true;
    axis->m_axisType = AxisBase::AxisVertical;
    axis->resize(20, 101);
    Drag(axis, Qt::ShiftModifier);
}

//! Of a marker above the top of the axis.
void TakeIn(Axis const & axis, double value)
{
    Marker * const marker = axis->AddMarker(3);
    marker->SetValue(value);
    marker->SetRect(QRect(0, 0, 10, 2));
    axis->AddOutsideMarker(marker);
    QMouseEvent event(QEvent::MouseButtonPress, QPointF(3, 0), QPointF(3, 0), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QVERIFY(axis->ApplyOutsideMarker(&event));
}

//! A way to another range.
struct Way
{
    char const * name = nullptr;
    void (*go)(Axis const & axis) = nullptr;
};

constexpr Way Ways[] = {
    { "zoom", [](Axis const & axis) { axis->SetZoomedRange(30.0, 70.0, true); } },
    { "refused zoom", Refuse },
    { "unzoom", [](Axis const & axis) { axis->UnZoom(); } },
    { "begin", [](Axis const & axis) { axis->ZoomToBegin(); } },
    { "default", [](Axis const & axis) { axis->ZoomToDefault(); } },
    { "device", [](Axis const & axis) { axis->ZoomToDevice(); } },
    { "double click", [](Axis const & axis) { axis->DoubleClick(); } },
    { "band", [](Axis const & axis) { Drag(axis, Qt::NoModifier); } },
    { "pan", [](Axis const & axis) { Drag(axis, Qt::ShiftModifier); } },
    { "offset", DragOffset },
    { "outside marker above", [](Axis const & axis) { TakeIn(axis, 300.0); } },
    { "outside marker below", [](Axis const & axis) { TakeIn(axis, -300.0); } },
};

} // namespace

Q_DECLARE_METATYPE(Way)

class tst_axisbase_ranges : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // named ranges
    void toTheDefault_data();
    void toTheDefault();
    void toTheDevice_data();
    void toTheDevice();
    void historyIsEmptyAtTheSignal();
    void toTheBest();
    void namedRangeIsWritten_data();
    void namedRangeIsWritten();
    void orderOfTheRepair();

    // whoever hears of it deletes the axis or a value
    void deletedMeanwhile_data();
    void deletedMeanwhile();
};

// Named ranges

void tst_axisbase_ranges::toTheDefault_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("answer");
    QTest::addColumn<QString>("range");
    QTest::newRow("a range") << 10.0 << 20.0 << true << true << "10..20";
    QTest::newRow("also while zooming is disabled") << 10.0 << 20.0 << false << true << "10..20";
    QTest::newRow("a range that no zoom reaches") << 10.0 << 10.05 << true << true << "10..10.05";
    QTest::newRow("a range downward") << 20.0 << 10.0 << true << true << "20..10";
    QTest::newRow("the present start, another stop") << 0.0 << 20.0 << true << true << "0..20";
    QTest::newRow("another start, the present stop") << 20.0 << 100.0 << true << true << "20..100";
    QTest::newRow("only the start is unset") << -1.0 << 20.0 << true << true << "-1..20";
    QTest::newRow("none") << -1.0 << -1.0 << true << false << "40..50";
    QTest::newRow("no extent") << 10.0 << 10.0 << true << false << "40..50";
    QTest::newRow("shown already") << 0.0 << 100.0 << true << false << "40..50";
    QTest::newRow("start is NaN") << Nothing << 20.0 << true << false << "40..50";
    QTest::newRow("stop is NaN") << 10.0 << Nothing << true << false << "40..50";
}

void tst_axisbase_ranges::toTheDefault()
{
    QFETCH(double, start);
    QFETCH(double, stop);
    QFETCH(bool, enabled);
    QFETCH(bool, answer);
    ZoomProbe axis;
    axis.SetDefaultRange(start, stop);
    axis.SetAxisZoomEnable(enabled, false);
    axis.m_unZoom.emplace_back(40.0, 50.0, 0.0); // what ZoomToBegin() shows
    axis.m_pPixmap = std::make_unique<QPixmap>(1, 1);
    axis.SetMustRecalcRulers(false);
    QSignalSpy const zoomed(&axis, &AxisBase::Zoomed);
    QCOMPARE(axis.ZoomToDefault(), answer);
    QTEST(axis.Range(), "range");
    QCOMPARE(axis.m_calls.contains(QStringLiteral("ZoomToBegin")), !answer);
    QCOMPARE(axis.m_ends, axis.EndsOfRange());
    QVERIFY(axis.m_unZoom.empty());
    QCOMPARE(zoomed.count(), 1);
    QCOMPARE(axis.m_pPixmap == nullptr, answer);
    QCOMPARE(axis.GetMustRecalcRulers(), answer);
}

void tst_axisbase_ranges::toTheDevice_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<bool>("applied");
    QTest::newRow("a range") << 10.0 << 20.0 << true;
    QTest::newRow("a range downward") << 20.0 << 10.0 << true;
    QTest::newRow("only the start is unset") << -1.0 << 20.0 << true;
    QTest::newRow("only the stop is unset") << 20.0 << -1.0 << true;
    QTest::newRow("the present range") << 0.0 << 100.0 << true;
    QTest::newRow("none") << -1.0 << -1.0 << false;
    QTest::newRow("no extent") << 10.0 << 10.0 << false;
    QTest::newRow("start is NaN") << Nothing << 20.0 << false;
    QTest::newRow("stop is NaN") << 10.0 << Nothing << false;
}

void tst_axisbase_ranges::toTheDevice()
{
    QFETCH(double, start);
    QFETCH(double, stop);
    QFETCH(bool, applied);
    ZoomProbe axis;
    axis.SetAxisZoomEnable(false, false);
    axis.SetDeviceRange(start, stop);
    axis.m_unZoom.emplace_back(40.0, 50.0, 0.0); // forgotten before ZoomToBegin() could show it
    axis.m_pPixmap = std::make_unique<QPixmap>(1, 1);
    axis.SetMustRecalcRulers(false);
    QSignalSpy const zoomed(&axis, &AxisBase::Zoomed);
    axis.ZoomToDevice();
    QCOMPARE(axis.Range(), applied ? QStringLiteral("%1..%2").arg(start).arg(stop) : QStringLiteral("0..100"));
    QCOMPARE(axis.m_ends, applied ? axis.EndsOfRange() : QStringList());
    QVERIFY(axis.m_unZoom.empty());
    QCOMPARE(axis.m_calls.contains(QStringLiteral("ZoomToBegin")), !applied);
    QCOMPARE(zoomed.count(), applied ? 1 : 0);
    QCOMPARE(axis.m_pPixmap == nullptr, applied);
    QCOMPARE(axis.GetMustRecalcRulers(), applied);
}

//! What a slot records at the signal is kept.
void tst_axisbase_ranges::historyIsEmptyAtTheSignal()
{
    ZoomProbe axis;
    axis.SetDefaultRange(10.0, 20.0);
    axis.SetDeviceRange(30.0, 40.0);
    std::vector<std::size_t> seen;
    connect(&axis, &AxisBase::Zoomed, this, [&] {
        seen.push_back(axis.m_unZoom.size());
        axis.m_unZoom.emplace_back(5.0, 95.0, 0.0);
    });
    axis.m_unZoom.emplace_back(5.0, 95.0, 0.0);
    QVERIFY(axis.ZoomToBegin());
    QVERIFY(axis.ZoomToDefault());
    axis.ZoomToDevice();
    QCOMPARE(seen, std::vector<std::size_t>(3));
    QCOMPARE(axis.m_unZoom.size(), std::size_t(1));
}

void tst_axisbase_ranges::toTheBest()
{
    AxisProbe axis;
    QSignalSpy const zoomed(&axis, &AxisBase::Zoomed);
    QVERIFY(!axis.ZoomToBest());
    QCOMPARE(zoomed.count(), 0);
}

void tst_axisbase_ranges::namedRangeIsWritten_data()
{
    QTest::addColumn<bool>("device");
    QTest::newRow("default range") << false;
    QTest::newRow("range of the device") << true;
}

void tst_axisbase_ranges::namedRangeIsWritten()
{
    QFETCH(bool, device);
    BoundAxis bound;
    bound.stop->SetMinMax(0.0, 100.0, 0.0, nullptr);
    bound.axis->SetDefaultRange(10.0, 150.0);
    bound.axis->SetDeviceRange(10.0, 150.0);
    QStringList seen;
    auto const note = [&] {
        seen << QStringLiteral("%1 %2 at ").arg(bound.start->GetValue()).arg(bound.stop->GetValue()) +
                    bound.axis->Range();
    };
    bound.stop->SetValue(90.0, nullptr);
    OnChange const start(bound.start.Get(), note);
    OnChange const stop(bound.stop.Get(), note);
    if (device)
        bound.axis->ZoomToDevice();
    else
        QVERIFY(bound.axis->ZoomToDefault());
    QCOMPARE(seen, QStringList({ QStringLiteral("10 90 at 0..90"), QStringLiteral("10 100 at 0..90") }));
    QCOMPARE(start.m_codes, QStringList(QStringLiteral("3")));
    QCOMPARE(stop.m_codes, QStringList(QStringLiteral("3")));
    QCOMPARE(bound.axis->Range(), QStringLiteral("10..100"));
}

void tst_axisbase_ranges::orderOfTheRepair()
{
    ZoomProbe axis;
    axis.SetDefaultRange(10.0, 20.0);
    axis.SetDeviceRange(30.0, 40.0);
    axis.m_repairDrawings = 0;
    axis.SetMustRecalcRulers(false);
    QStringList seen;
    connect(&axis, &AxisBase::Zoomed, this, [&] {
        seen << QStringLiteral("%1 %2 %3").arg(axis.Range()).arg(axis.m_repairDrawings).arg(axis.GetMustRecalcRulers());
    });
    QVERIFY(axis.ZoomToDefault());
    QCOMPARE(axis.m_repairDrawings, 1);
    axis.SetMustRecalcRulers(false);
    axis.ZoomToDevice();
    QCOMPARE(seen, QStringList({ QStringLiteral("10..20 0 0"), QStringLiteral("30..40 2 1") }));
}

// Deleted meanwhile

void tst_axisbase_ranges::deletedMeanwhile_data()
{
    QTest::addColumn<Way>("way");
    QTest::addColumn<QString>("trigger");
    QTest::addColumn<bool>("value"); // the start value instead of the axis
    for (Way const & way : Ways)
        for (char const * const trigger : { "Zoomed", "start", "stop", "half", "redrawBars", "offset", "click" })
            for (bool const value : { false, true })
                QTest::addRow("%s, %s at %s", way.name, value ? "start value" : "axis", trigger)
                    << way << trigger << value;
}

void tst_axisbase_ranges::deletedMeanwhile()
{
    QFETCH(Way, way);
    QFETCH(QString, trigger);
    QFETCH(bool, value);
    BoundAxis bound(true, true);
    Planted<ValueNumeric<double>> offset("offset");
    QPointer<ZoomProbe> & axis = bound.axis;
    axis->SetOffset_ValuePath(offset.Path());
    axis->SetDefaultRange(10.0, 90.0);
    axis->SetDeviceRange(5.0, 95.0);
    axis->m_unZoom.emplace_back(20.0, 80.0, 0.0);
    auto const remove = [&] {
        if (value)
            Tree::Instance()->Remove(bound.start.Path());
        else
            delete axis.data();
    };
    auto const onlyAt = [&](char const * name) {
        return trigger == QLatin1String(name) ? std::function<void()>(remove) : std::function<void()>();
    };
    OnChange const start(bound.start.Get(), onlyAt("start"));
    OnChange const stop(bound.stop.Get(), onlyAt("stop"));
    OnChange const half(bound.half.Get(), onlyAt("half"));
    OnChange const moved(offset.Get(), onlyAt("offset"));
    if (trigger == QLatin1String("Zoomed"))
        connect(axis, &AxisBase::Zoomed, this, remove);
    if (trigger == QLatin1String("redrawBars"))
        connect(axis, &AxisBase::redrawBars, this, remove);
    if (trigger == QLatin1String("click"))
        connect(axis, &MarkerList::AxisDoubleClick, this, remove);
    way.go(axis);
    QVERIFY(!axis || !value || !axis->m_pStart || axis->m_pStart == bound.start.Get());
}

ORIM_TEST_MAIN(tst_axisbase_ranges)
#include "tst_axisbase_ranges.moc"
