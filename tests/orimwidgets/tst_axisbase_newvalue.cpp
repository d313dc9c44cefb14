// SPDX-License-Identifier: MIT
// What a new value of a bound field does to an axis.
#include "bindingprobe.h"

#include "marker.h"
#include "testmain.h"
#include "valueselection.h"

#include <limits>
#include <memory>

class tst_axisbase_newvalue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void zoneComesBeforeTheAzimuth();
    void newStart();
    void newStop();
    void wrapEndsAreCut();
    void newSpeedAndOffset_data();
    void newSpeedAndOffset();
    void speedAlone();
    void integerOffset();
    void limitsOfTheSpeed();
    void newShadingColor();
    void chosenShadingColor();
    void newForceRebuildValue();
    void newCenter();
    void newNamedRange();
    void stopOfANamedRangeAlone();
    void onlyRepairs_data();
    void onlyRepairs();
    void firstLineWins_data();
    void firstLineWins();
    void unitBeforeShading();
    void shadingBeforeZone();
    void zoneIsCut();
    void otherSourcesAndCodes();
    void forwardedToAPaneThatEnded();
    void forwardedInARing();
    void deletedWhileTold_data();
    void deletedWhileTold();
};

//! A selection may be both: the first field that holds it decides.
void tst_axisbase_newvalue::zoneComesBeforeTheAzimuth()
{
    Planted<ValueSelection> both("both");
    both->AddItems({ { QStringLiteral("a"), 0.0, 0 }, { QStringLiteral("b"), 7200.0, 1 } });
    AxisProbe time(AxisBase::AxisHorizontal | AxisBase::AxisTimeStamps);
    ValueSelection * const zone = time.m_pTimeZone;
    QVERIFY(time.SetDisplayAzimuth_ValuePath(both.Path()));
    time.m_pTimeZone = both.Get();
    both->Select(1L, nullptr);
    QCOMPARE(time.m_pDateTime->toString(QStringLiteral("hh")), QStringLiteral("02"));
    time.m_pTimeZone = zone;
}

void tst_axisbase_newvalue::newStart()
{
    Planted<Number> start("start");
    Planted<Number> stop("stop");
    stop->SetValue(370.9, nullptr);
    AxisProbe axis;
    Marker * const marker = axis.AddMarker(eYellowX);
    marker->SetWrapAround(360);
    Pane pane;
    axis.SetPrimaryVMappingDrawPane(&pane);
    QVERIFY(axis.SetStart_ValuePath(start.Path()));
    pane.m_heard.clear();
    double startWhenForwarded = -1.0;
    pane.m_then = [&] { startWhenForwarded = axis.m_start; };
    start->SetValue(10.9, nullptr);
    QCOMPARE(pane.m_heard.size(), std::size_t(1));
    QVERIFY(pane.m_heard[0].first == static_cast<Observable *>(start.Get()));
    QCOMPARE(pane.m_heard[0].second, 3);
    QCOMPARE(startWhenForwarded, 0.0); // the pane is told first
    QCOMPARE(axis.m_start, 10.9);
    QCOMPARE(axis.m_repairs, 3); // binding: as told, then by itself; the new value
    marker->SetValue(5.0);
    QVERIFY(axis.SetStop_ValuePath(stop.Path()));
    QCOMPARE(marker->GetValue(), 365.0); // 10 to 370: both ends are cut
    start->SetValue(-9.9, nullptr);
    marker->SetWrapAround(350);
    marker->SetValue(-12.0);
    start->SetValue(-9.5, nullptr);
    QCOMPARE(marker->GetValue(), 338.0); // -9 and up
}

void tst_axisbase_newvalue::newStop()
{
    Planted<Number> start("start");
    Planted<Number> stop("stop");
    stop->SetValue(1.0, nullptr);
    AxisProbe axis;
    Marker * const marker = axis.AddMarker(eYellowX);
    marker->SetWrapAround(360);
    Pane pane;
    axis.SetPrimaryVMappingDrawPane(&pane);
    QVERIFY(axis.SetStop_ValuePath(stop.Path()));
    marker->SetValue(365.0);
    stop->SetValue(359.0, nullptr);
    QCOMPARE(marker->GetValue(), 365.0); // there is no bound start
    QVERIFY(axis.SetStart_ValuePath(start.Path()));
    pane.m_heard.clear();
    double stopWhenForwarded = -1.0;
    pane.m_then = [&] { stopWhenForwarded = axis.m_stop; };
    stop->SetValue(360.9, nullptr);
    QCOMPARE(pane.m_heard.size(), std::size_t(1));
    QVERIFY(pane.m_heard[0].first == static_cast<Observable *>(stop.Get()));
    QCOMPARE(pane.m_heard[0].second, 3);
    QCOMPARE(stopWhenForwarded, 359.0); // the pane is told first
    QCOMPARE(axis.m_stop, 360.9);
    QCOMPARE(marker->GetValue(), 5.0);
    pane.m_then = nullptr;
    pane.m_heard.clear();
    Planted<Number> center("center"); // of other fields, and of other changes, the pane is not told
    QVERIFY(axis.SetCenter_ValuePath(center.Path()) && axis.SetDefaultStop_ValuePath(center.Path()));
    center->SetValue(5.0, nullptr);
    axis.Update(stop.Get(), eRangeChanged);
    QVERIFY(pane.m_heard.empty());
}

void tst_axisbase_newvalue::wrapEndsAreCut()
{
    struct Row
    {
        double start;
        double marker;
        double wrapped;
    };

    for (Row const row : { Row{ 10.9, 10.5, 10.5 }, Row{ 10.9, 370.5, 10.5 }, Row{ -9.9, -9.5, 350.5 } }) {
        Planted<Number> start("start");
        Planted<Number> stop("stop");
        start->SetValue(row.start, nullptr);
        stop->SetValue(370.9, nullptr);
        AxisProbe axis;
        QVERIFY(axis.SetStart_ValuePath(start.Path()));
        Marker * const marker = axis.AddMarker(eYellowX);
        marker->SetWrapAround(360);
        marker->SetValue(row.marker);
        QVERIFY(axis.SetStop_ValuePath(stop.Path()));
        QCOMPARE(marker->GetValue(), row.wrapped);
    }
}

void tst_axisbase_newvalue::newSpeedAndOffset_data()
{
    QTest::addColumn<bool>("horizontal");
    QTest::newRow("horizontal: the range moves") << true;
    QTest::newRow("vertical: the range stays") << false;
}

void tst_axisbase_newvalue::newSpeedAndOffset()
{
    QFETCH(bool, horizontal);
    Planted<Number> speed("speed");
    Planted<Number> offset("offset");
    speed->SetValue(10.0, nullptr);
    AxisProbe axis(horizontal ? AxisBase::AxisHorizontal : AxisBase::AxisVertical, 100, 100);
    axis.SetPixOffset(5, 15);
    QVERIFY(axis.SetPixPerSecond_ValuePath(speed.Path()));
    QCOMPARE(axis.GetPixPerSecond(), 10.0);
    QVERIFY(axis.SetOffset_ValuePath(offset.Path()));
    axis.m_calculations = axis.m_repairs = 0;
    offset->SetValue(50.0, nullptr);
    QCOMPARE(axis.m_offset, 50.0);
    QCOMPARE(axis.m_start, horizontal ? 50.0 : 0.0);
    QCOMPARE(axis.m_stop, horizontal ? 58.0 : 0.0); // 80 px at 10 a unit
    QCOMPARE(axis.m_calculations, horizontal ? 2 : 1);
    QCOMPARE(axis.m_repairs, horizontal ? 2 : 1);
    speed->SetValue(20.0, nullptr);
    QCOMPARE(axis.m_stop, horizontal ? 54.0 : 0.0);
    axis.SetPixPerSecond(40.0);
    QCOMPARE(speed->GetValue(), 40.0);
    QCOMPARE(axis.m_stop, horizontal ? 52.0 : 0.0);
    axis.SetOffset(60.0);
    QCOMPARE(offset->GetValue(), 60.0);
    QCOMPARE(axis.m_start, horizontal ? 60.0 : 0.0);
    axis.m_calculations = 0;
    axis.SetOffset(61.0);
    QCOMPARE(axis.m_calculations, horizontal ? 2 : 1); // it does not hear of its own write
}

void tst_axisbase_newvalue::speedAlone()
{
    AxisProbe axis;
    axis.SetRange(1.0, 2.0);
    axis.m_calculations = axis.m_repairs = 0;
    axis.SetPixPerSecond(40.0);
    axis.SetOffset(7.0);
    QCOMPARE(axis.m_offset, 7.0);
    QCOMPARE(axis.m_start, 1.0);
    QCOMPARE(axis.m_calculations, 2);
    QCOMPARE(axis.m_repairs, 2);
}

void tst_axisbase_newvalue::integerOffset()
{
    Planted<Number> speed("speed");
    Planted<Integer> offset("offset");
    speed->SetValue(10.0, nullptr);
    AxisProbe axis;
    QVERIFY(axis.SetPixPerSecond_ValuePath(speed.Path()) && axis.SetOffset_ValuePath(offset.Path()));
    offset->SetValue(50, nullptr);
    QCOMPARE(axis.m_start, 50.0);
    QCOMPARE(axis.m_stop, 60.0);
    axis.SetOffset(70.4); // the value holds no fraction, and tells so
    QCOMPARE(offset->GetValue(), 70);
    QCOMPARE(axis.m_offset, 70.0);
}

void tst_axisbase_newvalue::limitsOfTheSpeed()
{
    Planted<Number> speed("speed");
    speed->SetMinMax(0.0, 30.0, 0.0, nullptr);
    AxisProbe axis;
    QVERIFY(axis.SetPixPerSecond_ValuePath(speed.Path()));
    axis.SetPixPerSecond(50.0);
    QCOMPARE(speed->GetValue(), 30.0);
    QCOMPARE(axis.GetPixPerSecond(), 30.0);
    QCOMPARE(axis.m_start, 0.0); // without a bound offset the range stays
    QCOMPARE(axis.m_stop, 0.0);
    Planted<Number> offset("offset");
    AxisProbe alone;
    QVERIFY(alone.SetOffset_ValuePath(offset.Path()));
    alone.SetOffset(7.0);
    QCOMPARE(alone.m_start, 0.0); // and without a bound speed
}

void tst_axisbase_newvalue::newShadingColor()
{
    Planted<ValueSelection> shading("shading");
    shading->AddItems({ { QStringLiteral("none"), 0.0, 0 }, { QStringLiteral("azimuth"), 2.0, 2 } });
    AxisProbe axis;
    QVERIFY(axis.SetShadingColor_ValuePath(shading.Path()));
    axis.m_repairs = 0;
    shading->Select(2L, nullptr);
    QCOMPARE(int(axis.GetShadingColor()), 2);
    QVERIFY((axis.GetAxisType() & AxisBase::AxisShading) != 0);
    QCOMPARE(axis.m_repairs, 1);
    axis.SetShadingColor(VC::eShadingQuality); // the selection does not have it
    QCOMPARE(int(axis.GetShadingColor()), 2);
    axis.SetShadingColor(VC::eShadingNone);
    QCOMPARE(shading->GetCurrentKey(), 0L);
    QCOMPARE(int(axis.GetShadingColor()), 0);
    QCOMPARE(axis.GetAxisType(), 0x10U);
    QCOMPARE(axis.m_repairs, 2);
    long const wide = std::numeric_limits<long>::min(); // not 0, though no part of it fits an int
    shading->AddItem({ QStringLiteral("wide"), 3.0, wide });
    shading->Select(wide, nullptr);
    QVERIFY((axis.GetAxisType() & AxisBase::AxisShading) != 0);
}

void tst_axisbase_newvalue::chosenShadingColor()
{
    AxisProbe axis;
    axis.SetShadingColor(VC::eShadingDifference);
    QCOMPARE(int(axis.GetShadingColor()), 8);
    QCOMPARE(axis.GetAxisType(), 0x110U);
    QCOMPARE(axis.m_repairs, 1);
    axis.SetShadingColor(VC::eShadingNone);
    QCOMPARE(axis.GetAxisType(), 0x10U);
    QCOMPARE(axis.m_repairs, 2);
}

void tst_axisbase_newvalue::newForceRebuildValue()
{
    Planted<Value<QString>> text("text");
    Planted<Number> start("start");
    AxisProbe axis;
    for (unsigned int const index : { 0U, 1U, 2U }) {
        QVERIFY(axis.SetForceRebuild_ValuePath(text.Path(), index));
        axis.m_pPixmap = std::make_unique<QPixmap>(1, 1);
        for (TChangeCode const code : { eStateChanged, eRangeChanged, eItemsChanged, eInterimChanged }) {
            axis.Update(text.Get(), code);
            QVERIFY(axis.m_pPixmap);
        }
        axis.m_repairs = 0;
        text->SetValue(QString::number(index), nullptr);
        QVERIFY(!axis.m_pPixmap);
        QCOMPARE(axis.m_repairs, 1);
        QVERIFY(!axis.SetForceRebuild_ValuePath(QString(), index));
    }
    QVERIFY(axis.SetForceRebuild_ValuePath(start.Path(), 1) && axis.SetStart_ValuePath(start.Path()));
    axis.m_pPixmap = std::make_unique<QPixmap>(1, 1);
    start->SetValue(7.0, nullptr); // drops the picture, then is what it is besides
    QVERIFY(!axis.m_pPixmap);
    QCOMPARE(axis.m_start, 7.0);
}

void tst_axisbase_newvalue::newCenter()
{
    Planted<Number> center("center");
    AxisProbe axis;
    axis.m_unZoom.emplace_back(1.0, 2.0, 3.0);
    QVERIFY(axis.SetCenter_ValuePath(center.Path()));
    QVERIFY(axis.m_unZoom.empty()); // as told on binding
    axis.m_unZoom.emplace_back(1.0, 2.0, 3.0);
    axis.m_repairs = axis.m_calculations = 0;
    center->SetValue(5.0, nullptr);
    QVERIFY(axis.m_unZoom.empty());
    QCOMPARE(axis.m_repairs, 1);
    QCOMPARE(axis.m_calculations, 0);
}

void tst_axisbase_newvalue::newNamedRange()
{
    Planted<Number> start("start");
    Planted<Number> stop("stop");
    start->SetValue(10.0, nullptr);
    stop->SetValue(20.0, nullptr);
    AxisProbe axis;
    axis.m_unZoom.emplace_back(1.0, 2.0, 3.0);
    QVERIFY(axis.SetDeviceStart_ValuePath(start.Path()));
    QCOMPARE(axis.m_deviceStart, -1.0);
    QVERIFY(axis.SetDeviceStop_ValuePath(stop.Path()));
    QCOMPARE(axis.m_deviceStart, 10.0); // as told on binding
    QCOMPARE(axis.m_deviceStop, 20.0);
    QVERIFY(!axis.m_unZoom.empty());
    QVERIFY(axis.SetDefaultStart_ValuePath(start.Path()));
    QCOMPARE(axis.m_defaultStart, -1.0);
    QVERIFY(!axis.SetDeviceStop_ValuePath(QString()));
    QVERIFY(axis.SetDefaultStop_ValuePath(stop.Path()));
    QCOMPARE(axis.m_defaultStart, 10.0);
    QCOMPARE(axis.m_defaultStop, 20.0);
    QVERIFY(axis.m_unZoom.empty()); // another default range forgets the history
    QVERIFY(axis.SetDeviceStop_ValuePath(stop.Path()));

    Planted<Number> device("device");
    QVERIFY(axis.SetDeviceStop_ValuePath(device.Path()));
    axis.m_repairs = 0;
    start->SetValue(11.0, nullptr); // a new start alone changes neither
    QCOMPARE(axis.m_defaultStart, 10.0);
    QCOMPARE(axis.m_deviceStart, 10.0);
    QCOMPARE(axis.m_repairs, 1);
    stop->SetValue(21.0, nullptr); // the stop takes both over
    QCOMPARE(axis.m_defaultStart, 11.0);
    QCOMPARE(axis.m_defaultStop, 21.0);
    QCOMPARE(axis.m_deviceStart, 10.0);
    QCOMPARE(axis.m_deviceStop, 0.0);
    axis.m_unZoom.emplace_back(1.0, 2.0, 3.0);
    device->SetValue(30.0, nullptr);
    QCOMPARE(axis.m_deviceStart, 11.0);
    QCOMPARE(axis.m_deviceStop, 30.0);
    QVERIFY(!axis.m_unZoom.empty());
    QCOMPARE(axis.m_repairs, 1); // and neither repairs
}

void tst_axisbase_newvalue::stopOfANamedRangeAlone()
{
    Planted<Number> stop("stop");
    AxisProbe axis;
    axis.m_unZoom.emplace_back(1.0, 2.0, 3.0);
    QVERIFY(axis.SetDefaultStop_ValuePath(stop.Path()));
    stop->SetValue(3.0, nullptr);
    QVERIFY(!axis.SetDefaultStop_ValuePath(QString()) && axis.SetDeviceStop_ValuePath(stop.Path()));
    stop->SetValue(4.0, nullptr);
    for (double const unset : { axis.m_defaultStart, axis.m_defaultStop, axis.m_deviceStart, axis.m_deviceStop })
        QCOMPARE(unset, -1.0);
    QVERIFY(!axis.m_unZoom.empty());
    QCOMPARE(axis.m_repairs, 0);
}

void tst_axisbase_newvalue::onlyRepairs_data()
{
    QTest::addColumn<Binding>("binding");
    QTest::newRow("half width") << HalfWidth;
    QTest::newRow("default start") << DefaultStart;
    QTest::newRow("device start") << DeviceStart;
    QTest::newRow("auto scale") << AutoScale;
}

void tst_axisbase_newvalue::onlyRepairs()
{
    QFETCH(Binding, binding);
    Planted<Number> number("number");
    Planted<Value<bool>> flag("flag");
    AxisProbe axis;
    axis.m_unZoom.emplace_back(1.0, 2.0, 3.0);
    axis.m_pPixmap = std::make_unique<QPixmap>(1, 1);
    QVERIFY(binding.bind(axis, number.Path()) || binding.bind(axis, flag.Path()));
    axis.m_repairs = axis.m_calculations = 0;
    axis.SetMustRecalcRulers(false);
    number->SetValue(4.0, nullptr);
    flag->SetValue(true, nullptr);
    QCOMPARE(axis.m_repairs, 1);
    QVERIFY(axis.GetMustRecalcRulers());
    QCOMPARE(axis.m_calculations, 0);
    QVERIFY(axis.m_pPixmap && !axis.m_unZoom.empty());
    QCOMPARE(axis.m_start, 0.0);
    QCOMPARE(axis.m_defaultStart, -1.0);
    QCOMPARE(axis.m_deviceStart, -1.0);
}

void tst_axisbase_newvalue::firstLineWins_data()
{
    QTest::addColumn<Binding>("first");
    QTest::addColumn<Binding>("other");
    QTest::newRow("start, stop") << Start << Stop;
    QTest::newRow("stop, centre") << Stop << Center;
    QTest::newRow("start, speed") << Start << PixPerSecond;
    QTest::newRow("centre, speed") << Center << PixPerSecond;
    QTest::newRow("centre, offset") << Center << Offset;
    QTest::newRow("centre, device stop") << Center << DeviceStop;
    QTest::newRow("centre, default stop") << Center << DefaultStop;
    QTest::newRow("speed, offset") << PixPerSecond << Offset;
    QTest::newRow("speed, device stop") << PixPerSecond << DeviceStop;
    QTest::newRow("offset, default stop") << Offset << DefaultStop;
    QTest::newRow("default stop, device stop") << DefaultStop << DeviceStop;
    QTest::newRow("stop, half width") << Stop << HalfWidth;
    QTest::newRow("device stop, device start") << DeviceStop << DeviceStart;
    QTest::newRow("default stop, force rebuild") << DefaultStop << ForceRebuild<0>();
    QTest::newRow("start, default start") << Start << DefaultStart;
}

//! What a new value of two fields leaves is what it leaves of the first alone.
void tst_axisbase_newvalue::firstLineWins()
{
    QFETCH(Binding, first);
    QFETCH(Binding, other);
    auto const outcome = [&](QList<Binding> const & bindings) {
        Planted<Number> number("number");
        AxisProbe axis(AxisBase::AxisVertical); // on which speed and offset move nothing
        for (Binding const & binding : bindings)
            if (!binding.bind(axis, number.Path()))
                return QStringLiteral("not bound");
        axis.m_pDefaultStart = axis.m_pDeviceStart = number.Get();
        axis.m_unZoom.emplace_back(1.0, 2.0, 3.0);
        axis.m_start = axis.m_stop = axis.m_offset = axis.m_pixPerSecond = 1.0;
        axis.m_defaultStop = axis.m_deviceStop = 1.0;
        axis.m_repairs = 0;
        number->SetValue(7.0, nullptr);
        return QStringLiteral("start %1 stop %2 speed %3 offset %4 default %5 device %6 history %7 repairs %8")
            .arg(axis.m_start)
            .arg(axis.m_stop)
            .arg(axis.m_pixPerSecond)
            .arg(axis.m_offset)
            .arg(axis.m_defaultStop)
            .arg(axis.m_deviceStop)
            .arg(axis.m_unZoom.size())
            .arg(axis.m_repairs);
    };
    QString const alone = outcome({ first });
    QVERIFY(alone != QStringLiteral("not bound"));
    QCOMPARE(outcome({ first, other }), alone);
    QCOMPARE(outcome({ other, first }), alone);
}

void tst_axisbase_newvalue::unitBeforeShading()
{
    Planted<ValueSelection> both("both");
    both->AddItems({ { QStringLiteral("a"), 0.0, 0 }, { QStringLiteral("b"), 0.0, 2 } });
    AxisProbe axis;
    QVERIFY(axis.SetShadingColor_ValuePath(both.Path()));
    axis.m_pUnitSelection = both.Get();
    axis.m_repairs = 0;
    both->Select(2L, nullptr);
    QCOMPARE(int(axis.GetShadingColor()), 0);
    QCOMPARE(axis.m_repairs, 1);
}

void tst_axisbase_newvalue::shadingBeforeZone()
{
    Planted<ValueSelection> both("both");
    both->AddItems({ { QStringLiteral("a"), 0.0, 0 }, { QStringLiteral("b"), 7200.0, 2 } });
    AxisProbe time(AxisBase::AxisHorizontal | AxisBase::AxisTimeStamps);
    ValueSelection * const zone = time.m_pTimeZone;
    QVERIFY(time.SetShadingColor_ValuePath(both.Path()));
    time.m_pTimeZone = both.Get();
    both->Select(2L, nullptr);
    QCOMPARE(int(time.GetShadingColor()), 2);
    QCOMPARE(time.m_pDateTime->toString(QStringLiteral("hh")), QStringLiteral("00"));
    time.m_pUnitSelection = both.Get(); // and the unit before both
    both->Select(0L, nullptr);
    QCOMPARE(int(time.GetShadingColor()), 2);
    time.m_pTimeZone = zone;
}

void tst_axisbase_newvalue::zoneIsCut()
{
    Planted<ValueSelection> odd("odd");
    odd->AddItems({ { QStringLiteral("a"), 0.0, 0 }, { QStringLiteral("b"), 3600.9, 1 } });
    AxisProbe time(AxisBase::AxisHorizontal | AxisBase::AxisTimeStamps);
    AxisProbe plain;
    ValueSelection * const zone = time.m_pTimeZone;
    time.m_pTimeZone = plain.m_pTimeZone = odd.Get();
    odd->AddObserver(&time);
    odd->AddObserver(&plain);
    odd->Select(1L, nullptr);
    QCOMPARE(time.m_pDateTime->toString(QStringLiteral("hh:mm:ss")), QStringLiteral("01:00:00"));
    QCOMPARE(plain.m_repairs, 1); // it has no time to turn
    odd->DeleteObserver(&time);
    time.m_pTimeZone = zone;
}

void tst_axisbase_newvalue::otherSourcesAndCodes()
{
    Planted<Number> number("number");
    AxisProbe axis;
    QVERIFY(axis.SetStart_ValuePath(number.Path()));
    Planted<Number> stranger("stranger");
    axis.m_repairs = 0;
    for (TChangeCode const code : { eRangeChanged, eItemsChanged, eInterimChanged }) {
        axis.SetMustRecalcRulers(false);
        axis.Update(number.Get(), code);
        QVERIFY(axis.GetMustRecalcRulers());
    }
    axis.SetMustRecalcRulers(false);
    axis.Update(stranger.Get(), eStateChanged);
    QVERIFY(axis.GetMustRecalcRulers());
    QCOMPARE(axis.m_repairs, 0);
    axis.Update(stranger.Get(), eValueChanged);
    QCOMPARE(axis.m_repairs, 1);
    axis.Update(nullptr, eValueChanged); // the empty fields hold no null
    QCOMPARE(axis.m_repairs, 2);
}

void tst_axisbase_newvalue::forwardedToAPaneThatEnded()
{
    Planted<Number> number("number");
    AxisProbe axis;
    auto pane = std::make_unique<Pane>();
    axis.SetPrimaryVMappingDrawPane(pane.get());
    QVERIFY(axis.m_pPrimaryVMappingDrawPane == pane.get());
    QVERIFY(axis.SetStart_ValuePath(number.Path()));
    pane.reset();
    number->SetValue(5.0, nullptr);
    QCOMPARE(axis.m_start, 5.0);
    axis.SetPrimaryVMappingDrawPane(nullptr);
    number->SetValue(6.0, nullptr);
    QCOMPARE(axis.m_start, 6.0);
}

//! An axis that is its own pane, and two that are each other's.
void tst_axisbase_newvalue::forwardedInARing()
{
    Planted<Number> start("start");
    AxisProbe axis;
    AxisProbe other;
    QVERIFY(axis.SetStart_ValuePath(start.Path()));
    axis.SetPrimaryVMappingDrawPane(&axis);
    start->SetValue(5.0, nullptr);
    QCOMPARE(axis.m_start, 5.0);
    QVERIFY(other.SetStart_ValuePath(start.Path()));
    axis.SetPrimaryVMappingDrawPane(&other);
    other.SetPrimaryVMappingDrawPane(&axis);
    start->SetValue(6.0, nullptr);
    QCOMPARE(axis.m_start, 6.0);
    QCOMPARE(other.m_start, 6.0);
    Pane pane;
    axis.SetPrimaryVMappingDrawPane(&pane);
    start->SetValue(7.0, nullptr);
    start->SetValue(8.0, nullptr);
    QCOMPARE(pane.m_heard.size(), std::size_t(4)); // each from the value and from the other axis
}

void tst_axisbase_newvalue::deletedWhileTold_data()
{
    QTest::addColumn<int>("when");
    QTest::addColumn<bool>("value");
    for (bool const value : { false, true }) {
        char const * const what = value ? "value" : "axis";
        QTest::addRow("the %s ends in redrawBars", what) << 0 << value;
        QTest::addRow("the %s ends in signalRangeChanged", what) << 1 << value;
        QTest::addRow("the %s ends in the pane", what) << 2 << value;
        QTest::addRow("the %s ends in another observer", what) << 3 << value;
    }
}

//! Whoever hears of a new start deletes the axis or the value.
void tst_axisbase_newvalue::deletedWhileTold()
{
    QFETCH(int, when);
    QFETCH(bool, value);
    for (int road = 0; road < 5; ++road) {
        Planted<Number> start("start");
        Planted<Number> stop("stop");
        stop->SetValue(9.0, nullptr);
        auto * axis = new AxisProbe;
        QPointer<AxisProbe> const watched(axis);
        axis->AddMarker(eYellowX)->SetWrapAround(7);
        QVERIFY(axis->SetStart_ValuePath(start.Path()) && axis->SetStop_ValuePath(stop.Path()));
        auto const end = [&] {
            if (value)
                Tree::Instance()->Remove(start.Path());
            else
                delete watched.data();
        };
        Pane pane;
        Pane observer;
        if (when == 0)
            connect(axis, &AxisBase::redrawBars, axis, end);
        if (when == 1)
            connect(axis, &AxisBase::signalRangeChanged, axis, end);
        if (when == 2)
            pane.m_then = end;
        axis->SetPrimaryVMappingDrawPane(&pane);
        if (when == 3) {
            observer.m_then = end;
            start->AddObserver(&observer);
        }
        QPointer<QObject> const life(axis);
        if (road == 0)
            start->SetValue(3.0, nullptr);
        else if (road == 1)
            axis->SetStartValue(3.0);
        else if (road == 2)
            axis->SetRange(3.0, 4.0);
        else if (road == 3)
            axis->SetStart_ValuePath(start.Path());
        else
            axis->setProperty("Start", 3.0);
        if (value && life)
            QVERIFY(axis->m_pStart == Tree::Instance()->FindAs<Number>(QStringLiteral("/axis/start")));
        delete life.data();
    }
}

ORIM_TEST_MAIN(tst_axisbase_newvalue)
#include "tst_axisbase_newvalue.moc"
