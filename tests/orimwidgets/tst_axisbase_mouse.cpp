// SPDX-License-Identifier: MIT
#include "zoomprobe.h"

#include "testmain.h"

#include <QSignalSpy>

#include <climits>
#include <cmath>

namespace {

constexpr Qt::KeyboardModifiers Shift = Qt::ShiftModifier;
constexpr unsigned int Across = AxisBase::AxisHorizontal;
constexpr unsigned int Up = AxisBase::AxisVertical;
using Scene = ZoomScene;

} // namespace

class tst_axisbase_mouse : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // press
    void pressStartsABand_data();
    void pressStartsABand();
    void pressStartsAPan_data();
    void pressStartsAPan();
    void pressThatDoesNothing_data();
    void pressThatDoesNothing();
    void secondPressChangesNothing_data();
    void secondPressChangesNothing();
    void pixelOfAnEvent_data();
    void pixelOfAnEvent();

    // pan
    void panMovesTheRange_data();
    void panMovesTheRange();
    void panStopsAtTheEnds_data();
    void panStopsAtTheEnds();
    void panNeedsShift();
    void panOfBoundEnds();
    void panLimitedByBoundEnds();
    void panComputesBothEndsFirst();
    void panOfTheOffset_data();
    void panOfTheOffset();
    void offsetDragWithoutZoomStandsStill_data();
    void offsetDragWithoutZoomStandsStill();
    void offsetDragOfAHorizontalAxis();
    void orderOfAPan();
    void orderOfAPanOfTheOffset();

    // double click
    void doubleClicks_data();
    void doubleClicks();
    void doubleClicksGoRound_data();
    void doubleClicksGoRound();
    void doubleClickShowsTheOldestRange();
    void doubleClickAtTheDefaultWithAHistory();
    void doubleClickIsToldLast();

    // odd widgets
    void fewPixels_data();
    void fewPixels();
    void noDirection();
};

// Press

void tst_axisbase_mouse::pressStartsABand_data()
{
    QTest::addColumn<unsigned int>("type");
    QTest::addColumn<int>("cursor");
    QTest::newRow("horizontal") << Across << static_cast<int>(Qt::SplitHCursor);
    QTest::newRow("vertical") << Up << static_cast<int>(Qt::SplitVCursor);
}

void tst_axisbase_mouse::pressStartsABand()
{
    QFETCH(unsigned int, type);
    Scene scene(type);
    scene.axis.m_bandEnd = 77;
    scene.axis.m_drawEnabled = false; // not asked
    scene.axis.Press(30);
    QCOMPARE(scene.State(), QStringLiteral("mode 16, press 30, band 30 to 77"));
    QTEST(static_cast<int>(scene.axis.cursor().shape()), "cursor");
    QCOMPARE(scene.zoomed.count(), 0);
}

void tst_axisbase_mouse::pressStartsAPan_data()
{
    QTest::addColumn<unsigned int>("type");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("offset");
    QTest::addColumn<int>("press");
    QTest::newRow("horizontal") << Across << true << false << 30;
    QTest::newRow("vertical") << Up << true << false << 30;
    QTest::newRow("vertical, of the offset") << Up << true << true << 30;
    QTest::newRow("horizontal, of the offset") << Across << true << true << 30;
    QTest::newRow("vertical, of the offset, zoom disabled") << Up << false << true << 30;
    QTest::newRow("horizontal, of the offset, zoom disabled") << Across << false << true << 3;
    QTest::newRow("both directions, of the offset: along x") << (Across | Up) << true << true << 30;
    QTest::newRow("both directions, of the offset, zoom disabled: along y") << (Across | Up) << false << true << 5;
}

void tst_axisbase_mouse::pressStartsAPan()
{
    QFETCH(unsigned int, type);
    QFETCH(bool, enabled);
    QFETCH(bool, offset);
    QFETCH(int, press);
    Scene scene(type);
    scene.axis.SetAxisZoomEnable(enabled, false);
    scene.axis.m_offsetDrag = offset;
    scene.axis.m_pressPixel = 3;
    scene.axis.Press(30, Shift);
    QCOMPARE(scene.State(), QStringLiteral("mode 32, press %1, band 0 to 0").arg(press));
    QCOMPARE(scene.axis.cursor().shape(), Qt::ArrowCursor);
}

void tst_axisbase_mouse::pressThatDoesNothing_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<bool>("shift");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("offset");
    auto const row = [](char const * name, Qt::MouseButton button, bool shift, bool enabled, bool offset) {
        QTest::newRow(name) << static_cast<int>(button) << shift << enabled << offset;
    };
    row("right button", Qt::RightButton, false, true, false);
    row("middle button", Qt::MiddleButton, false, true, false);
    row("right button with Shift", Qt::RightButton, true, true, false);
    row("zoom disabled", Qt::LeftButton, false, false, false);
    row("zoom disabled, with Shift", Qt::LeftButton, true, false, false);
    row("no band where the offset is dragged", Qt::LeftButton, false, true, true);
    row("nor with zoom disabled", Qt::LeftButton, false, false, true);
}

void tst_axisbase_mouse::pressThatDoesNothing()
{
    QFETCH(int, button);
    QFETCH(bool, shift);
    QFETCH(bool, enabled);
    QFETCH(bool, offset);
    Scene scene(Up);
    scene.axis.SetAxisZoomEnable(enabled, true);
    scene.axis.m_offsetDrag = offset;
    scene.axis.Mouse(QEvent::MouseButtonPress, 30, shift ? Shift : Qt::NoModifier,
                     static_cast<Qt::MouseButton>(button));
    QCOMPARE(scene.State(), QStringLiteral("mode 0, press 0, band 0 to 0"));
    QCOMPARE(scene.axis.cursor().shape(), Qt::ArrowCursor);
}

void tst_axisbase_mouse::secondPressChangesNothing_data()
{
    QTest::addColumn<bool>("firstShift");
    QTest::addColumn<bool>("secondShift");
    QTest::addColumn<bool>("offset");
    QTest::newRow("band, then band") << false << false << false;
    QTest::newRow("band, then Shift") << false << true << false;
    QTest::newRow("Shift, then band") << true << false << false;
    QTest::newRow("Shift, then Shift") << true << true << false;
    QTest::newRow("Shift, then Shift, of the offset") << true << true << true;
}

void tst_axisbase_mouse::secondPressChangesNothing()
{
    QFETCH(bool, firstShift);
    QFETCH(bool, secondShift);
    QFETCH(bool, offset);
    Scene scene(Up);
    scene.axis.m_offsetDrag = offset;
    scene.axis.Press(30, firstShift ? Shift : Qt::NoModifier);
    QString const state = scene.State();
    scene.axis.Press(50, secondShift ? Shift : Qt::NoModifier);
    QCOMPARE(scene.State(), state);
    QCOMPARE(scene.axis.cursor().shape(), firstShift ? Qt::ArrowCursor : Qt::SplitVCursor);
}

void tst_axisbase_mouse::pixelOfAnEvent_data()
{
    QTest::addColumn<unsigned int>("type");
    QTest::addColumn<double>("position");
    QTest::addColumn<int>("pixel");
    for (unsigned int const type : { Across, Up }) {
        char const * const name = type == Up ? "vertical" : "horizontal";
        QTest::addRow("%s: rounded up", name) << type << 30.6 << 31;
        QTest::addRow("%s: rounded down", name) << type << 30.4 << 30;
        QTest::addRow("%s: below 0", name) << type << -30.6 << -31;
        QTest::addRow("%s: farther than an int holds", name) << type << 5e9 << 1'000'000'000;
        QTest::addRow("%s: farther than an int holds, below 0", name) << type << -5e9 << -1'000'000'000;
    }
}

void tst_axisbase_mouse::pixelOfAnEvent()
{
    QFETCH(unsigned int, type);
    QFETCH(double, position);
    Scene scene(type);
    QPointF const at = type == Up ? QPointF(5.0, position) : QPointF(position, 5.0);
    QMouseEvent press(QEvent::MouseButtonPress, at, at, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&scene.axis, &press);
    QTEST(scene.axis.m_pressPixel, "pixel");
}

// Pan

void tst_axisbase_mouse::panMovesTheRange_data()
{
    QTest::addColumn<unsigned int>("type");
    QTest::addColumn<int>("to");
    QTest::addColumn<QString>("range");
    QTest::newRow("to the right") << Across << 60 << "-10..90";
    QTest::newRow("to the left") << Across << 20 << "30..130";
    QTest::newRow("down") << Up << 60 << "10..110";
    QTest::newRow("up") << Up << 20 << "-30..70";
    QTest::newRow("nowhere") << Across << 50 << "0..100";
}

void tst_axisbase_mouse::panMovesTheRange()
{
    QFETCH(unsigned int, type);
    QFETCH(int, to);
    Scene scene(type);
    scene.axis.m_unZoom.emplace_back(1.0, 2.0, 3.0);
    scene.axis.Press(50, Shift);
    scene.axis.Move(to, Shift);
    QTEST(scene.axis.Range(), "range");
    QCOMPARE(scene.axis.m_ends, scene.axis.EndsOfRange());
    QCOMPARE(scene.axis.m_pressPixel, to);
    QCOMPARE(scene.zoomed.count(), 1);
    QCOMPARE(scene.axis.m_unZoom.size(), std::size_t(1));
    scene.axis.Move(50, Shift);
    QCOMPARE(scene.axis.Range(), QStringLiteral("0..100"));
    QCOMPARE(scene.zoomed.count(), 2);
    QCOMPARE(scene.State(), QStringLiteral("mode 32, press 50, band 0 to 0"));
    scene.axis.Release(50);
    QCOMPARE(scene.axis.m_mouseMode, 0);
    QVERIFY(scene.axis.m_calls.isEmpty());
}

void tst_axisbase_mouse::panStopsAtTheEnds_data()
{
    QTest::addColumn<unsigned int>("type");
    QTest::addColumn<int>("to");
    QTest::addColumn<bool>("moves");
    for (unsigned int const type : { Across, Up }) {
        char const * const name = type == Up ? "vertical" : "horizontal";
        QTest::addRow("%s: at the offset", name) << type << 10 << false;
        QTest::addRow("%s: behind the offset", name) << type << 11 << true;
        QTest::addRow("%s: at the other offset", name) << type << 80 << true;
        QTest::addRow("%s: a pixel further", name) << type << 81 << false;
        QTest::addRow("%s: outside", name) << type << -3 << false;
    }
}

void tst_axisbase_mouse::panStopsAtTheEnds()
{
    QFETCH(unsigned int, type);
    QFETCH(int, to);
    QFETCH(bool, moves);
    Scene scene(type);
    scene.axis.SetPixOffset(10, 20);
    scene.axis.Press(50, Shift);
    scene.axis.Move(to, Shift);
    QCOMPARE(scene.axis.m_start != 0.0, moves);
    QCOMPARE(scene.axis.m_pressPixel, moves ? to : 50);
    QCOMPARE(scene.zoomed.count(), moves ? 1 : 0);
}

void tst_axisbase_mouse::panNeedsShift()
{
    Scene scene;
    scene.axis.Press(50, Shift);
    scene.axis.Move(60);
    QCOMPARE(scene.axis.Range(), QStringLiteral("0..100"));
    QCOMPARE(scene.State(), QStringLiteral("mode 32, press 50, band 0 to 0"));
    scene.axis.Release(60, Shift);
    scene.axis.Move(70, Shift); // goes on until a release without Shift
    QCOMPARE(scene.axis.Range(), QStringLiteral("-20..80"));
}

void tst_axisbase_mouse::panOfBoundEnds()
{
    Planted<ValueNumeric<double>> start("start");
    Planted<ValueNumeric<double>> stop("stop");
    stop->SetValue(100.0, nullptr);
    Scene scene;
    QVERIFY(scene.axis.SetStart_ValuePath(start.Path()) && scene.axis.SetStop_ValuePath(stop.Path()));
    scene.axis.Forget();
    QStringList seen;
    auto const note = [&] {
        seen << QStringLiteral("%1 %2 at ").arg(start->GetValue()).arg(stop->GetValue()) + scene.axis.Range();
    };
    OnChange const first(start.Get(), note);
    OnChange const second(stop.Get(), note);
    scene.axis.Press(50, Shift);
    scene.axis.Move(60, Shift);
    QCOMPARE(seen, QStringList({ QStringLiteral("-10 100 at 0..100"), QStringLiteral("-10 90 at 0..100") }));
    QCOMPARE(scene.axis.Range(), QStringLiteral("-10..90"));
    QVERIFY(scene.axis.m_heard.empty());
}

void tst_axisbase_mouse::panLimitedByBoundEnds()
{
    Planted<ValueNumeric<double>> start("start");
    start->SetMinMax(-5.0, 100.0, 0.0, nullptr);
    Scene scene;
    QVERIFY(scene.axis.SetStart_ValuePath(start.Path()));
    scene.axis.Press(50, Shift);
    scene.axis.Move(60, Shift);
    QCOMPARE(scene.axis.Range(), QStringLiteral("-5..90"));
}

void tst_axisbase_mouse::panComputesBothEndsFirst()
{
    Planted<ValueNumeric<double>> start("start");
    Scene scene;
    QVERIFY(scene.axis.SetStart_ValuePath(start.Path()));
    OnChange const meddler(start.Get(), [&] { scene.axis.SetStopValue(500.0); });
    scene.axis.Press(50, Shift);
    scene.axis.Move(60, Shift);
    QCOMPARE(scene.axis.Range(), QStringLiteral("-10..90"));
}

void tst_axisbase_mouse::panOfTheOffset_data()
{
    QTest::addColumn<int>("bound"); // 0 nothing, 1 a number, 2 an integer
    QTest::newRow("not bound") << 0;
    QTest::newRow("a number") << 1;
    QTest::newRow("an integer") << 2;
}

void tst_axisbase_mouse::panOfTheOffset()
{
    QFETCH(int, bound);
    Planted<ValueNumeric<double>> number("number");
    Planted<ValueNumeric<int>> integer("integer");
    Scene scene(Up);
    if (bound != 0)
        QVERIFY(scene.axis.SetOffset_ValuePath(bound == 1 ? number.Path() : integer.Path()));
    scene.axis.m_offset = 5.0;
    scene.axis.m_offsetDrag = true;
    scene.axis.m_heard.clear();
    scene.axis.Press(50, Shift);
    scene.axis.Move(60, Shift); // the value at 60 is 10 below that at 50
    QCOMPARE(scene.axis.Range(), QStringLiteral("0..100"));
    QCOMPARE(scene.axis.m_pressPixel, 60);
    QCOMPARE(scene.zoomed.count(), 1);
    QCOMPARE(scene.axis.m_offset, bound != 0 ? 15.0 : 5.0); // when its value tells
    QCOMPARE(number->GetValue(), bound == 1 ? 15.0 : 0.0);
    QCOMPARE(integer->GetValue(), bound == 2 ? 15 : 0);
    QVERIFY(bound == 0 || !scene.axis.m_heard.empty());
}

void tst_axisbase_mouse::offsetDragWithoutZoomStandsStill_data()
{
    QTest::addColumn<unsigned int>("type");
    QTest::newRow("horizontal") << Across;
    QTest::newRow("vertical") << Up;
}

void tst_axisbase_mouse::offsetDragWithoutZoomStandsStill()
{
    QFETCH(unsigned int, type);
    Planted<ValueNumeric<double>> number("number");
    Scene scene(type);
    QVERIFY(scene.axis.SetOffset_ValuePath(number.Path()));
    scene.axis.m_offsetDrag = true;
    scene.axis.SetAxisZoomEnable(false, false);
    scene.axis.Press(50, Shift);
    QCOMPARE(scene.axis.m_mouseMode, 32);
    scene.axis.Move(60, Shift);
    QCOMPARE(number->GetValue(), 0.0);
    QCOMPARE(scene.axis.Range(), QStringLiteral("0..100"));
    QCOMPARE(scene.zoomed.count(), 0);
    scene.axis.Release(60);
    QCOMPARE(scene.axis.m_mouseMode, 0);
}

void tst_axisbase_mouse::offsetDragOfAHorizontalAxis()
{
    Planted<ValueNumeric<double>> number("number");
    Scene scene;
    QVERIFY(scene.axis.SetOffset_ValuePath(number.Path()));
    scene.axis.m_offsetDrag = true;
    scene.axis.Press(50, Shift);
    scene.axis.Move(60, Shift);
    QCOMPARE(scene.axis.Range(), QStringLiteral("-10..90")); // the range moves, not the offset
    QCOMPARE(number->GetValue(), 0.0);
}

void tst_axisbase_mouse::orderOfAPan()
{
    Scene scene;
    QStringList seen;
    connect(&scene.axis, &AxisBase::Zoomed, this,
            [&] { seen << scene.axis.Range() + QStringLiteral(" at %1").arg(scene.axis.m_pressPixel); });
    scene.axis.Press(50, Shift);
    scene.axis.Move(60, Shift);
    QCOMPARE(seen, QStringList(QStringLiteral("-10..90 at 60")));
}

void tst_axisbase_mouse::orderOfAPanOfTheOffset()
{
    Planted<ValueNumeric<double>> number("number");
    Scene scene(Up);
    QVERIFY(scene.axis.SetOffset_ValuePath(number.Path()));
    scene.axis.m_offsetDrag = true;
    QStringList seen;
    OnChange const moved(number.Get(), [&] { seen << QStringLiteral("offset at %1").arg(scene.axis.m_pressPixel); });
    connect(&scene.axis, &AxisBase::Zoomed, this,
            [&] { seen << QStringLiteral("zoomed at %1").arg(scene.axis.m_offset); });
    scene.axis.Press(50, Shift);
    scene.axis.Move(60, Shift);
    QCOMPARE(seen, QStringList({ QStringLiteral("offset at 60"), QStringLiteral("zoomed at 10") }));
}

// Double click

void tst_axisbase_mouse::doubleClicks_data()
{
    QTest::addColumn<unsigned int>("type");
    QTest::addColumn<QVector<double>>("ranges"); // default and device
    QTest::addColumn<bool>("shown");             // whether the default range is shown
    QTest::addColumn<bool>("best");
    QTest::addColumn<QString>("calls");
    QTest::addColumn<int>("signals");
    using Ranges = QVector<double>;
    Ranges const both{ 10.0, 20.0, 30.0, 40.0 };
    Ranges const onlyDefault{ 10.0, 20.0, -1.0, -1.0 };
    Ranges const onlyDevice{ -1.0, -1.0, 30.0, 40.0 };
    Ranges const none{ -1.0, -1.0, -1.0, -1.0 };
    auto const row = [](char const * name, unsigned int type, Ranges const & ranges, bool shown, char const * calls,
                        bool best = false, int count = 1) {
        QTest::newRow(name) << type << ranges << shown << best << QString::fromLatin1(calls) << count;
    };
    unsigned int const upDefault = Up | AxisBase::AxisDefaultOnDblClick;
    row("to the default range", Across, both, false, "ZoomToDefault ZoomToBegin");
    row("default shown: to the device", Across, both, true, "ZoomToDefault ZoomToBegin ZoomToDevice");
    row("default shown, no device", Across, onlyDefault, true, "ZoomToDefault ZoomToBegin ZoomToBegin");
    row("no default: to the begin", Across, onlyDevice, false, "ZoomToBegin");
    row("no range at all", Across, none, false, "ZoomToBegin");
    row("an unset default that is shown: to the device", Across, onlyDevice, true, "ZoomToDevice");
    row("a default start of -1 is unset", Across, { -1.0, 20.0, 30.0, 40.0 }, false, "ZoomToBegin");
    row("a default stop of -1 is unset", Across, { -20.0, -1.0, 30.0, 40.0 }, false, "ZoomToBegin");
    row("a default without extent", Across, { 10.0, 10.0, 30.0, 40.0 }, false, "ZoomToBegin");
    row("a device start of -1 is unset", Across, { 10.0, 20.0, -1.0, 40.0 }, true,
        "ZoomToDefault ZoomToBegin ZoomToBegin");
    row("a device stop of -1 is unset", Across, { 10.0, 20.0, -40.0, -1.0 }, true,
        "ZoomToDefault ZoomToBegin ZoomToBegin");
    row("a device without extent", Across, { 10.0, 20.0, 30.0, 30.0 }, true, "ZoomToDefault ZoomToBegin ZoomToBegin");
    row("vertical: the pane's best range", Up, both, false, "ZoomToBest ZoomToBegin", true);
    row("vertical, default shown: the best range too", Up, both, true, "ZoomToBest ZoomToBegin", true);
    row("vertical without a best range", Up, both, false, "ZoomToBest ZoomToBegin");
    row("vertical without a best range, default shown", Up, both, true, "ZoomToBest ZoomToDevice");
    row("vertical without a default: no best range", Up, onlyDevice, false, "ZoomToBegin", true);
    row("vertical, only the start of the default is shown", Up, { 0.0, 20.0, 30.0, 40.0 }, false,
        "ZoomToBest ZoomToBegin");
    row("vertical, only the stop of the default is shown", Up, { 10.0, 100.0, 30.0, 40.0 }, false,
        "ZoomToBest ZoomToBegin");
    row("both directions: the best range", Across | Up, both, false, "ZoomToBest ZoomToBegin", true);
    row("vertical, by default", upDefault, both, false, "ZoomToDefault ZoomToBegin", true);
    row("vertical, by default, which is shown", upDefault, both, true, "ZoomToDefault ZoomToBegin ZoomToDevice", true);
    row("no direction: the default range", 0U, both, false, "ZoomToDefault ZoomToBegin");
    row("only a signal", Across | AxisBase::AxisDblClickSignal, both, false, "");
    row("bit 9: nothing", Across | AxisBase::AxisTypeBit9, both, false, "", false, 0);
    row("bit 13: nothing", Across | AxisBase::AxisTypeBit13, both, false, "", false, 0);
    row("wrapped: nothing", Across | AxisBase::AxisWrapped, both, false, "", false, 0);
    row("bit 9 and a signal: nothing", Across | AxisBase::AxisTypeBit9 | AxisBase::AxisDblClickSignal, both, false, "",
        false, 0);
    row("bit 13 and a signal: nothing", Across | AxisBase::AxisTypeBit13 | AxisBase::AxisDblClickSignal, both, false,
        "", false, 0);
    row("wrapped and a signal: nothing", Across | AxisBase::AxisWrapped | AxisBase::AxisDblClickSignal, both, false, "",
        false, 0);
}

void tst_axisbase_mouse::doubleClicks()
{
    QFETCH(unsigned int, type);
    QFETCH(QVector<double>, ranges);
    QFETCH(bool, shown);
    QFETCH(bool, best);
    ZoomProbe axis(type, 101, 101);
    axis.SetDefaultRange(ranges[0], ranges[1]);
    axis.SetDeviceRange(ranges[2], ranges[3]);
    axis.m_hasBest = best;
    if (shown)
        axis.SetRange(ranges[0], ranges[1]);
    QSignalSpy const clicked(&axis, &MarkerList::AxisDoubleClick);
    axis.DoubleClick();
    QTEST(axis.m_calls.join(QLatin1Char(' ')), "calls");
    QTEST(static_cast<int>(clicked.count()), "signals");
    QVERIFY(clicked.isEmpty() || clicked[0][0].value<QWidget *>() == &axis);
}

void tst_axisbase_mouse::doubleClicksGoRound_data()
{
    QTest::addColumn<unsigned int>("type");
    QTest::addColumn<bool>("draw");
    QTest::newRow("default, device, default") << Across << true;
    QTest::newRow("nothing while drawing is disabled") << Across << false;
    QTest::newRow("no signal while drawing is disabled") << (Across | AxisBase::AxisDblClickSignal) << false;
}

void tst_axisbase_mouse::doubleClicksGoRound()
{
    QFETCH(unsigned int, type);
    QFETCH(bool, draw);
    Scene scene(type);
    scene.axis.SetDefaultRange(10.0, 20.0);
    scene.axis.SetDeviceRange(30.0, 40.0);
    scene.axis.EnableDraw(draw);
    QSignalSpy const clicked(&scene.axis, &MarkerList::AxisDoubleClick);
    QStringList seen;
    for (int i = 0; i < 4; ++i) {
        scene.axis.DoubleClick();
        seen << scene.axis.Range();
    }
    QString const before = QStringLiteral("0..100");
    QString const byDefault = QStringLiteral("10..20");
    QString const device = QStringLiteral("30..40");
    QCOMPARE(seen, draw ? QStringList({ byDefault, device, byDefault, device })
                        : QStringList({ before, before, before, before }));
    QCOMPARE(clicked.count(), draw ? 4 : 0);
}

void tst_axisbase_mouse::doubleClickShowsTheOldestRange()
{
    Scene scene;
    scene.axis.Press(20);
    scene.axis.Release(60);
    scene.axis.Press(20);
    scene.axis.Release(60);
    QCOMPARE(scene.axis.m_unZoom.size(), std::size_t(2));
    scene.axis.DoubleClick();
    QCOMPARE(scene.axis.Range(), QStringLiteral("0..100"));
    QVERIFY(scene.axis.m_unZoom.empty());
}

//! The ranges are compared when the default range has been tried.
void tst_axisbase_mouse::doubleClickAtTheDefaultWithAHistory()
{
    Scene scene;
    scene.axis.SetDefaultRange(0.0, 100.0);
    scene.axis.SetDeviceRange(30.0, 40.0);
    scene.axis.m_unZoom.emplace_back(10.0, 90.0, 0.0);
    scene.axis.DoubleClick();
    QCOMPARE(scene.axis.Range(), QStringLiteral("10..90"));
    QVERIFY(!scene.axis.m_calls.contains(QStringLiteral("ZoomToDevice")));
}

void tst_axisbase_mouse::doubleClickIsToldLast()
{
    Scene scene;
    scene.axis.SetDefaultRange(10.0, 20.0);
    QString seen;
    connect(&scene.axis, &MarkerList::AxisDoubleClick, this, [&] { seen = scene.axis.Range(); });
    scene.axis.DoubleClick();
    QCOMPARE(seen, QStringLiteral("10..20"));
}

// Odd widgets

void tst_axisbase_mouse::fewPixels_data()
{
    QTest::addColumn<unsigned int>("type");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("offset");
    for (unsigned int const type : { Across, Up, 0U, Across | Up })
        for (QSize const & size : { QSize(0, 0), QSize(1, 1), QSize(0, 40), QSize(40, 0), QSize(1, 40), QSize(40, 1) })
            for (int const offset : { 0, -50, 1, INT_MAX, INT_MIN })
                QTest::addRow("type %u, %d x %d, offset %d", type, size.width(), size.height(), offset)
                    << type << size << offset;
}

void tst_axisbase_mouse::fewPixels()
{
    QFETCH(unsigned int, type);
    QFETCH(QSize, size);
    QFETCH(int, offset);
    ZoomProbe axis(type, size.width(), size.height());
    axis.SetPixOffset(offset, offset);
    QImage image(50, 50, QImage::Format_RGB32);
    for (Qt::KeyboardModifiers const modifiers : { Qt::KeyboardModifiers(Qt::NoModifier), Shift })
        for (int const pixel : { -20, 0, 1, 30 }) {
            axis.Press(0, modifiers);
            axis.Move(pixel, modifiers);
            QPainter painter(&image);
            axis.DrawWhileZoom(painter);
            axis.Release(pixel);
            axis.DoubleClick();
            QVERIFY(std::isfinite(axis.m_start) && std::isfinite(axis.m_stop));
            QVERIFY(axis.m_start < axis.m_stop);
        }
}

//! Nothing moves on an axis without a direction; a band on it is a click.
void tst_axisbase_mouse::noDirection()
{
    Scene scene(0U);
    scene.axis.Press(20);
    QCOMPARE(scene.State(), QStringLiteral("mode 16, press 0, band 0 to 0"));
    QCOMPARE(scene.axis.cursor().shape(), Qt::ArrowCursor);
    scene.axis.Move(60);
    QCOMPARE(scene.State(), QStringLiteral("mode 16, press 0, band 0 to 0"));
    scene.axis.Release(60);
    QCOMPARE(scene.axis.m_clicks, std::vector<int>{ 0 });
    scene.axis.Press(20, Shift);
    scene.axis.Move(60, Shift);
    QCOMPARE(scene.axis.Range(), QStringLiteral("0..100"));
    QCOMPARE(scene.zoomed.count(), 1);
}

ORIM_TEST_MAIN(tst_axisbase_mouse)
#include "tst_axisbase_mouse.moc"
