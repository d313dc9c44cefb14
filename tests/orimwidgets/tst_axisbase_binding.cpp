// SPDX-License-Identifier: MIT
// How an axis comes to be bound to values, and how it lets go of them.
#include "bindingprobe.h"

#include "guibase.h"
#include "testmain.h"
#include "valueselection.h"

#include <QToolButton>

#include <memory>

namespace {

QList<int> const NumberCodes{ 2, 4, 3 };
QList<int> const SelectionCodes{ 2, 4, 7, 3 };

} // namespace

class tst_axisbase_binding : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void every_data();
    void every();
    void startAndStopAreDefaults();
    void badPathLeavesTheDefault();
    void offsetOfAnyNumber();
    void forceRebuildIndices();
    void spareSlotKeepsWhatAFieldLetsGo();
    void valueEndsWhileTheSpareSlotIsBound();
    void departureOfSelections();
    void twoFieldsOfOneValue();
    void scrollBar();
    void focusProxy();
    void stateThatStays();
    void departedValueThatLivesOn();
    void endsQuietly();
};

void tst_axisbase_binding::every_data()
{
    QTest::addColumn<Binding>("binding");
    QTest::addColumn<QString>("path");
    QString const number = QStringLiteral("/axis/number");
    QString const choice = QStringLiteral("/axis/choice");
    QTest::newRow("start") << Start << number;
    QTest::newRow("stop") << Stop << number;
    QTest::newRow("speed") << PixPerSecond << number;
    QTest::newRow("offset") << Offset << number;
    QTest::newRow("centre") << Center << number;
    QTest::newRow("half width") << HalfWidth << number;
    QTest::newRow("auto scale") << AutoScale << QStringLiteral("/axis/flag");
    QTest::newRow("default start") << DefaultStart << number;
    QTest::newRow("default stop") << DefaultStop << number;
    QTest::newRow("device start") << DeviceStart << number;
    QTest::newRow("device stop") << DeviceStop << number;
    QTest::newRow("display azimuth") << Azimuth << choice;
    QTest::newRow("shading colour") << Shading << choice;
    QTest::newRow("force rebuild 0") << ForceRebuild<0>() << number;
    QTest::newRow("force rebuild 1") << ForceRebuild<1>() << number;
    QTest::newRow("force rebuild 2") << ForceRebuild<2>() << choice;
}

//! What all bindings share.
void tst_axisbase_binding::every()
{
    QFETCH(Binding, binding);
    QFETCH(QString, path);
    CodeProbe axis;
    QVERIFY(!binding.bind(axis, QString()));
    QVERIFY(!binding.bind(axis, QStringLiteral("/axis/unknown")));
    QVERIFY(axis.m_codes.isEmpty());
    QVERIFY(!binding.held(axis));

    Planted<ValueSelection> choice("choice");
    Planted<Number> number("number");
    Planted<Value<bool>> flag("flag");
    Planted<Value<QString>> text("text");
    ValueBase * const value = Tree::Instance()->Find(path);
    QVERIFY(binding.bind(axis, path));
    QVERIFY(binding.held(axis) == value);
    QVERIFY(value->HasObserver(&axis));
    QCOMPARE(axis.m_codes, value == choice.Get() ? SelectionCodes : NumberCodes);
    QVERIFY(axis.m_source == value);

    bool const takesAll = !binding.bind(axis, QStringLiteral("/axis/none")) && binding.bind(axis, text.Path());
    QVERIFY(!value->HasObserver(&axis)); // a bad path lets go all the same
    bool const isForceRebuild = !axis.m_pStart && axis.m_forceRebuild != std::vector<ValueBase *>(3);
    QCOMPARE(takesAll, isForceRebuild); // any other field wants a certain type
    QCOMPARE(!binding.held(axis), !takesAll);

    QVERIFY(binding.bind(axis, path));
    axis.SetMustRecalcRulers(false);
    axis.m_repairs = 0;
    Tree::Instance()->Remove(path);
    QVERIFY(!binding.held(axis));
    QVERIFY(!axis.GetMustRecalcRulers()); // a departure does no more
    QCOMPARE(axis.m_repairs, 0);
}

void tst_axisbase_binding::startAndStopAreDefaults()
{
    Planted<Number> start("start");
    Planted<Number> stop("stop");
    start->SetValue(10.0, nullptr);
    stop->SetValue(20.0, nullptr);
    AxisProbe axis;
    QVERIFY(!axis.GetStartValueNumeric() && !axis.GetStopValueNumeric());
    QVERIFY(axis.SetStart_ValuePath(start.Path()) && axis.SetStop_ValuePath(stop.Path()));
    QCOMPARE(axis.m_start, 10.0);
    QCOMPARE(axis.m_stop, 20.0);
    QCOMPARE(axis.m_defaultStart, 10.0);
    QCOMPARE(axis.m_defaultStop, 20.0);
    QVERIFY(axis.GetStartValueNumeric() == start.Get());
    QVERIFY(axis.GetStopValueNumeric() == stop.Get());
}

void tst_axisbase_binding::badPathLeavesTheDefault()
{
    Planted<Number> start("start");
    start->SetValue(10.0, nullptr);
    AxisProbe axis;
    axis.SetDefaultRange(3.0, 4.0);
    QVERIFY(axis.SetStart_ValuePath(start.Path()));
    QVERIFY(!axis.SetStart_ValuePath(QStringLiteral("/nowhere")));
    QVERIFY(!axis.SetStop_ValuePath(QStringLiteral("/nowhere")));
    QCOMPARE(axis.m_defaultStart, 10.0);
    QCOMPARE(axis.m_defaultStop, 4.0);
    start->SetValue(11.0, nullptr);
    QCOMPARE(axis.m_start, 10.0); // detached
}

void tst_axisbase_binding::offsetOfAnyNumber()
{
    Planted<Number> number("number");
    Planted<Integer> integer("integer");
    CodeProbe axis;
    QVERIFY(axis.SetOffset_ValuePath(integer.Path()));
    QVERIFY(!axis.m_pOffset && axis.m_pOffset2 == integer.Get());
    QCOMPARE(axis.m_codes, NumberCodes);
    QVERIFY(axis.SetOffset_ValuePath(number.Path()));
    QVERIFY(axis.m_pOffset == number.Get() && !axis.m_pOffset2);
    QVERIFY(!integer->HasObserver(&axis));
    QVERIFY(axis.SetOffset_ValuePath(integer.Path()));
    QVERIFY(!number->HasObserver(&axis));
    QVERIFY(!axis.SetOffset_ValuePath(QStringLiteral("/nowhere")));
    QVERIFY(!axis.m_pOffset && !axis.m_pOffset2);
    QVERIFY(!integer->HasObserver(&axis));
    QVERIFY(axis.SetOffset_ValuePath(integer.Path()));
    Tree::Instance()->Remove(integer.Path());
    QVERIFY(!axis.m_pOffset2);
}

void tst_axisbase_binding::forceRebuildIndices()
{
    Planted<Number> number("number");
    AxisProbe axis;
    QVERIFY(axis.SetForceRebuild_ValuePath(number.Path(), 3)); // past the table, and observed
    QVERIFY(number->HasObserver(&axis));
    QCOMPARE(axis.m_forceRebuild, std::vector<ValueBase *>(3));
    QVERIFY(!axis.SetForceRebuild_ValuePath(number.Path(), 4));
    QVERIFY(!axis.SetForceRebuild_ValuePath(number.Path(), 0xffffffffU));
    axis.m_pPixmap = std::make_unique<QPixmap>(1, 1);
    axis.m_repairs = 0;
    number->SetValue(5.0, nullptr);
    QVERIFY(axis.m_pPixmap); // only the table drops the picture
    QCOMPARE(axis.m_repairs, 1);
    axis.SetMustRecalcRulers(false);
    Tree::Instance()->Remove(number.Path());
    QVERIFY(axis.GetMustRecalcRulers()); // nor is its departure one of a field
    QVERIFY(!axis.SetForceRebuild_ValuePath(QStringLiteral("/nowhere"), 3));
}

void tst_axisbase_binding::spareSlotKeepsWhatAFieldLetsGo()
{
    Planted<Number> number("number");
    AxisProbe axis;
    QVERIFY(axis.SetStart_ValuePath(number.Path()));
    QVERIFY(axis.SetForceRebuild_ValuePath(number.Path(), 3));
    QVERIFY(!axis.SetStart_ValuePath(QStringLiteral("/nowhere")));
    QVERIFY(number->HasObserver(&axis));
    QVERIFY(!axis.SetForceRebuild_ValuePath(QStringLiteral("/nowhere"), 3));
    QVERIFY(!number->HasObserver(&axis));
}

void tst_axisbase_binding::valueEndsWhileTheSpareSlotIsBound()
{
    Planted<Number> number("number");
    QString const path = number.Path();
    AxisProbe axis;
    QVERIFY(axis.SetStart_ValuePath(path));
    connect(&axis, &AxisBase::signalRangeChanged, &axis, [&] { Tree::Instance()->Remove(path); });
    QVERIFY(!axis.SetForceRebuild_ValuePath(path, 3));
    QVERIFY(!axis.m_pStart);
    QVERIFY(!axis.SetForceRebuild_ValuePath(QStringLiteral("/nowhere"), 3));
}

void tst_axisbase_binding::departureOfSelections()
{
    Planted<ValueSelection> choice("choice");
    choice->AddItem({ QStringLiteral("a"), 0.0, 1 });
    AxisProbe axis;
    QVERIFY(axis.SetDisplayAzimuth_ValuePath(choice.Path()));
    axis.m_repairs = 0;
    choice->Select(1L, nullptr);
    QCOMPARE(axis.m_repairs, 1);
    AxisProbe other;
    other.m_pUnitSelection = other.m_pTimeZone = choice.Get();
    choice->AddObserver(&other);
    Tree::Instance()->Remove(choice.Path());
    QVERIFY(!other.m_pUnitSelection && !other.m_pTimeZone && !axis.m_pDisplayAzimuth);
}

void tst_axisbase_binding::twoFieldsOfOneValue()
{
    Planted<Number> number("number");
    AxisProbe axis;
    QVERIFY(axis.SetStart_ValuePath(number.Path()) && axis.SetStop_ValuePath(number.Path()));
    QVERIFY(!axis.SetStop_ValuePath(QString()));
    QVERIFY(number->HasObserver(&axis));
    number->SetValue(4.0, nullptr);
    QCOMPARE(axis.m_start, 4.0);
    QCOMPARE(axis.m_stop, 0.0);
    QVERIFY(axis.SetStop_ValuePath(number.Path()));
    Tree::Instance()->Remove(number.Path());
    QVERIFY(!axis.m_pStart && !axis.m_pStop);
}

void tst_axisbase_binding::scrollBar()
{
    Planted<Number> number("number");
    AxisProbe axis;
    QVERIFY(!axis.SetScrollBar_ValuePath(number.Path())); // no buttons
    axis.m_pScrollButtons = std::make_unique<VCScrollButtons>();
    QVERIFY(!axis.SetScrollBar_ValuePath(QStringLiteral("/nowhere")));
    QVERIFY(axis.SetScrollBar_ValuePath(number.Path()));
    QVERIFY(!number->HasObserver(&axis));
    axis.GetScrollButtons()->slotStepUp();
    QCOMPARE(number->GetValue(), axis.GetScrollButtons()->GetStep());
}

void tst_axisbase_binding::focusProxy()
{
    QWidget proxy;
    AxisProbe axis;
    axis.setFocusProxy(&proxy);
    QVERIFY(axis.focusProxy() == &proxy);
    axis.m_pScrollButtons = std::make_unique<VCScrollButtons>();
    axis.setFocusProxy(&proxy);
    auto const buttons = axis.m_pScrollButtons->findChildren<QToolButton *>();
    QCOMPARE(static_cast<int>(buttons.size()), 2);
    for (QToolButton const * const button : buttons)
        QVERIFY(button->focusProxy() == &proxy);
    axis.setFocusProxy(nullptr);
    QVERIFY(!axis.focusProxy() && !buttons.first()->focusProxy());
}

void tst_axisbase_binding::stateThatStays()
{
    Planted<Number> number("number");
    AxisProbe axis;
    QVERIFY(axis.SetStart_ValuePath(number.Path()));
    axis.SetMustRecalcRulers(false);
    number->SetState(eStateDisabled, nullptr);
    QVERIFY(axis.m_pStart == number.Get());
    QVERIFY(!axis.GetMustRecalcRulers());
    number->SetValue(5.0, nullptr);
    QCOMPARE(axis.m_start, 5.0);
}

void tst_axisbase_binding::departedValueThatLivesOn()
{
    Planted<Number> number("number");
    CodeProbe axis;
    QVERIFY(axis.SetStart_ValuePath(number.Path()) && axis.SetForceRebuild_ValuePath(number.Path(), 2));
    number->SetState(eStateGoingAway, nullptr);
    QVERIFY(!axis.m_pStart && !axis.m_forceRebuild[2]); // all fields at once
    QCOMPARE(number->GetObserverCount(), 0);
    axis.m_codes.clear();
    number->SetValue(5.0, nullptr);
    QVERIFY(axis.m_codes.isEmpty());
    QVERIFY(!axis.SetStart_ValuePath(number.Path())); // the told state lets go at once
    QVERIFY(!axis.m_pStart && !number->HasObserver(&axis));
    QCOMPARE(axis.m_defaultStart, 0.0); // of the first binding
}

void tst_axisbase_binding::endsQuietly()
{
    Planted<Number> number("number");
    Planted<Number> stop("stop");
    Planted<Number> speed("speed");
    Planted<Number> offset("offset");
    Planted<Integer> whole("whole");
    Planted<ValueSelection> choice("choice");
    Planted<ValueSelection> shading("shading");
    Planted<ValueSelection> unit("unit");
    Planted<Number> center("center");
    Planted<Number> half("half");
    Planted<Number> from("from");
    Planted<Number> to("to");
    Planted<Value<bool>> automatic("automatic");
    ValueSelection const * const zone = GuiBase::Instance().GetTimeZone();
    int const zoneObservers = zone->GetObserverCount();
    {
        AxisProbe axis(AxisBase::AxisHorizontal | AxisBase::AxisTimeStamps);
        QCOMPARE(zone->GetObserverCount(), zoneObservers + 1);
        QVERIFY(axis.SetStart_ValuePath(number.Path()) && axis.SetDisplayAzimuth_ValuePath(choice.Path()));
        QVERIFY(axis.SetStop_ValuePath(stop.Path()) && axis.SetPixPerSecond_ValuePath(speed.Path()));
        QVERIFY(axis.SetOffset_ValuePath(offset.Path()) && axis.SetShadingColor_ValuePath(shading.Path()));
        QVERIFY(axis.SetCenter_ValuePath(center.Path()) && axis.SetHalfWidth_ValuePath(half.Path()));
        QVERIFY(axis.SetDefaultStart_ValuePath(from.Path()) && axis.SetDefaultStop_ValuePath(to.Path()));
        QVERIFY(axis.SetDeviceStart_ValuePath(from.Path()) && axis.SetDeviceStop_ValuePath(to.Path()));
        QVERIFY(axis.SetAutoScale_ValuePath(automatic.Path()));
        axis.m_pOffset2 = whole.Get();
        whole->AddObserver(&axis);
        axis.m_pUnitSelection = unit.Get();
        unit->AddObserver(&axis);
        for (unsigned int const index : { 0U, 1U, 2U, 3U })
            QVERIFY(axis.SetForceRebuild_ValuePath(number.Path(), index));
        axis.m_pScrollButtons = std::make_unique<VCScrollButtons>();
        QVERIFY(axis.GetScrollButtons() == axis.m_pScrollButtons.get());
    }
    for (Number const * const value : { center.Get(), half.Get(), from.Get(), to.Get() })
        QCOMPARE(value->GetObserverCount(), 0);
    QCOMPARE(automatic->GetObserverCount(), 0);
    QCOMPARE(number->GetObserverCount(), 0);
    QCOMPARE(choice->GetObserverCount(), 0);
    QCOMPARE(stop->GetObserverCount(), 0);
    QCOMPARE(speed->GetObserverCount(), 0);
    QCOMPARE(offset->GetObserverCount(), 0);
    QCOMPARE(whole->GetObserverCount(), 0);
    QCOMPARE(shading->GetObserverCount(), 0);
    QCOMPARE(unit->GetObserverCount(), 0);
    QCOMPARE(zone->GetObserverCount(), zoneObservers);
    number->SetValue(5.0, nullptr);
}

ORIM_TEST_MAIN(tst_axisbase_binding)
#include "tst_axisbase_binding.moc"
