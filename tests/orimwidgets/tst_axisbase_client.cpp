// SPDX-License-Identifier: MIT
#include "axisbase.h"

#include "axisprobe.h"
#include "clientwindow.h"
#include "marker.h"
#include "testmain.h"

#include <QPointer>

#include <memory>

namespace {

using Number = ValueNumeric<double>;
using Flag = Value<bool>;

//! Two numbers, 20 and 40.
struct Borders
{
    Borders()
    {
        start->SetValue(20.0, nullptr);
        stop->SetValue(40.0, nullptr);
    }

    Planted<Number> start{ "start" };
    Planted<Number> stop{ "stop" };
    Planted<Flag> visible{ "visible" };
};

} // namespace

class tst_axisbase_client : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void direction_data();
    void direction();
    void madeOnce();
    void bindsTheBorders_data();
    void bindsTheBorders();
    void secondKeepsTheWindowOfTheFirst();
    void badPaths();
    void pixelsOfTheAxis();
    void pixelsOfAVerticalAxis();
    void movesAlongTheAxis();
    void staysWithinAZoomedRange();
    void staysOnAnAxisOfOnePixel();
    void endsWithTheAxis();
    void endsWhileBound();
};

void tst_axisbase_client::direction_data()
{
    QTest::addColumn<unsigned int>("type");
    QTest::addColumn<int>("direction");
    QTest::newRow("horizontal") << 0x10U << 0;
    QTest::newRow("vertical") << 0x20U << 1;
    QTest::newRow("none") << 0U << 0;
    QTest::newRow("both") << 0x30U << 1;
    QTest::newRow("all but vertical") << ~0x20020U << 0;
}

void tst_axisbase_client::direction()
{
    QFETCH(unsigned int, type);
    QFETCH(int, direction);
    AxisProbe axis(type);
    ClientWindow * const window = axis.CreateClientWindow();
    QCOMPARE(static_cast<int>(window->GetDirection()), direction);
    QCOMPARE(window->GetParent(), static_cast<MarkerList *>(&axis));
    QVERIFY(window->GetText().isEmpty());
}

void tst_axisbase_client::madeOnce()
{
    AxisProbe axis;
    ClientWindow * const window = axis.CreateClientWindow();
    QVERIFY(window);
    QCOMPARE(axis.CreateClientWindow(), window);
    AxisProbe other;
    QVERIFY(other.CreateClientWindow() != window);
}

void tst_axisbase_client::bindsTheBorders_data()
{
    QTest::addColumn<unsigned int>("type");
    QTest::addColumn<unsigned int>("special");
    QTest::addColumn<int>("startColor");
    QTest::newRow("horizontal") << 0x10U << 0x108U << 30;
    QTest::newRow("vertical") << 0x20U << 0x104U << 31;
}

void tst_axisbase_client::bindsTheBorders()
{
    QFETCH(unsigned int, type);
    QFETCH(unsigned int, special);
    QFETCH(int, startColor);
    Borders const values;
    AxisProbe axis(type);
    axis.show();
    QVERIFY(axis.SetButtonStart_ValuePath(values.start.Path()));
    QCOMPARE(axis.GetIndex(values.start.Path()), 16);
    QVERIFY(!axis.isIndexValid(17));
    QVERIFY(axis.SetButtonStop_ValuePath(values.stop.Path()));
    QCOMPARE(axis.GetIndex(values.stop.Path()), 17);
    QCOMPARE(axis.CreateClientWindow()->GetStartMarkerId(), 16);
    QCOMPARE(axis.CreateClientWindow()->GetStopMarkerId(), 17);
    QCOMPARE(static_cast<int>(axis.GetMarker(16)->GetColor()), startColor);
    QCOMPARE(static_cast<int>(axis.GetMarker(17)->GetColor()), 61 - startColor);
    for (int const id : { 16, 17 }) {
        QCOMPARE(axis.GetMarker(id)->GetSpecial(), special);
        QVERIFY(axis.GetMarker(id)->GetMoveable());
        QVERIFY(axis.GetMarker(id)->GetShowMarker());
    }
    QCOMPARE(axis.GetMarkerValue(16), 20.0);
    QCOMPARE(axis.GetMarkerValue(17), 40.0);
}

void tst_axisbase_client::secondKeepsTheWindowOfTheFirst()
{
    Borders const values;
    for (bool const startFirst : { true, false }) {
        AxisProbe axis;
        if (startFirst)
            axis.SetButtonStart_ValuePath(values.start.Path());
        else
            axis.SetButtonStop_ValuePath(values.stop.Path());
        ClientWindow * const window = axis.CreateClientWindow();
        QVERIFY(window->SetVisible_ValuePath(values.visible.Path()));
        QVERIFY(!window->Connected());
        if (startFirst)
            axis.SetButtonStop_ValuePath(values.stop.Path());
        else
            axis.SetButtonStart_ValuePath(values.start.Path());
        QCOMPARE(axis.CreateClientWindow(), window);
        QVERIFY(window->Connected());
        axis.SetButtonStart_ValuePath(values.start.Path());
        QCOMPARE(axis.CreateClientWindow(), window);
    }
}

void tst_axisbase_client::badPaths()
{
    Borders const values;
    AxisProbe axis;
    for (QString const & path : { QString(), QStringLiteral("/axis/unknown"), values.visible.Path() }) {
        QVERIFY(!axis.SetButtonStart_ValuePath(path));
        QVERIFY(!axis.SetButtonStop_ValuePath(path));
        QVERIFY(!axis.isIndexValidConnected(16));
        QVERIFY(!axis.isIndexValidConnected(17));
    }
    QVERIFY(axis.SetButtonStart_ValuePath(values.start.Path()));
    QVERIFY(axis.SetButtonStop_ValuePath(values.stop.Path()));
    QVERIFY(!axis.SetButtonStart_ValuePath(QString()));
    QVERIFY(!axis.isIndexValidConnected(16));
    QVERIFY(axis.isIndexValidConnected(17));
}

void tst_axisbase_client::pixelsOfTheAxis()
{
    Borders const values;
    AxisProbe axis(AxisBase::AxisHorizontal, 101, 20);
    axis.SetRange(0.0, 100.0);
    axis.SetButtonStart_ValuePath(values.start.Path());
    axis.SetButtonStop_ValuePath(values.stop.Path());
    ClientWindow * const window = axis.CreateClientWindow();
    values.visible->SetValue(true, nullptr);
    window->SetVisible_ValuePath(values.visible.Path());
    int a = 0;
    int b = 0;
    QVERIFY(window->IsValid(a, b));
    QCOMPARE(a, axis.ValueToPixel(20.0));
    QCOMPARE(b, axis.ValueToPixel(40.0));
    QVERIFY(window->HasPoint(30));
    QVERIFY(!window->HasPoint(45));
    values.start->SetValue(10.0, nullptr);
    QVERIFY(window->IsValid(a, b));
    QCOMPARE(a, axis.ValueToPixel(10.0));
}

//! The higher value lies at the top.
void tst_axisbase_client::pixelsOfAVerticalAxis()
{
    Borders const values;
    AxisProbe axis(AxisBase::AxisVertical, 40, 101);
    axis.SetRange(0.0, 100.0);
    axis.SetButtonStart_ValuePath(values.start.Path());
    axis.SetButtonStop_ValuePath(values.stop.Path());
    ClientWindow * const window = axis.CreateClientWindow();
    values.visible->SetValue(true, nullptr);
    window->SetVisible_ValuePath(values.visible.Path());
    int a = 0;
    int b = 0;
    QVERIFY(window->IsValid(a, b));
    QCOMPARE(a, axis.ValueToPixel(20.0));
    QCOMPARE(b, axis.ValueToPixel(40.0));
    QVERIFY(a > b);
    QVERIFY(!window->HasPoint((a + b) / 2));
    QImage const image =
        axis.Painted([&](QPainter & painter) { window->DrawFrame(5, 30, IColorBase::eColorGood, &painter); });
    QColor const light = QPalette(ColorSet::Instance()[IColorBase::eColorGood]).light().color();
    QCOMPARE(image.pixel(5, b), light.rgb());
    QCOMPARE(image.pixel(5, b - 1), QColor(Qt::white).rgb());
    QVERIFY(image.pixel(5, a - 1) != QColor(Qt::white).rgb());
    QCOMPARE(image.pixel(5, a), QColor(Qt::white).rgb());
    QVERIFY(image.pixel(29, b + 5) != QColor(Qt::white).rgb());
    QCOMPARE(image.pixel(30, b + 5), QColor(Qt::white).rgb());
}

void tst_axisbase_client::movesAlongTheAxis()
{
    Borders const values;
    for (unsigned int const type : { 0x10U, 0x20U }) {
        AxisProbe axis(type, 101, 101);
        axis.SetRange(0.0, 100.0);
        axis.SetButtonStart_ValuePath(values.start.Path());
        axis.SetButtonStop_ValuePath(values.stop.Path());
        ClientWindow * const window = axis.CreateClientWindow();
        window->SetStartStop(20.0, 40.0, true);
        int const step = type == 0x10U ? 10 : -10; // up is back
        window->MovePixelOffset(step);
        QVERIFY(qAbs(values.start->GetValue() - 30.0) < 1.1);
        QVERIFY(qAbs(values.stop->GetValue() - 50.0) < 1.1);
        QVERIFY(values.start->GetValue() < values.stop->GetValue());
        window->MovePixelOffset(100 * step); // to the upper edge of the widget
        QVERIFY(qAbs(values.start->GetValue() - values.stop->GetValue()) < 1e-9);
        QVERIFY(values.stop->GetValue() >= 100.0 - 1e-9 && values.stop->GetValue() < 101.1);
        window->MovePixelOffset(-100 * step);
        QVERIFY(values.start->GetValue() < 1e-9 && values.start->GetValue() > -1.1);
    }
}

void tst_axisbase_client::staysWithinAZoomedRange()
{
    Borders const values;
    AxisProbe axis(AxisBase::AxisHorizontal, 101, 20);
    axis.SetRange(0.0, 100.0);
    axis.SetButtonStart_ValuePath(values.start.Path());
    axis.SetButtonStop_ValuePath(values.stop.Path());
    ClientWindow * const window = axis.CreateClientWindow();
    axis.SetRange(30.0, 130.0);
    window->RecalcBorders();
    int a = -1;
    int b = -1;
    window->IsValid(a, b);
    QCOMPARE(a, 0);
    QCOMPARE(b, axis.ValueToPixel(40.0));
    axis.SetRange(50.0, 50.0); // an axis without a range has no pixels
    window->RecalcBorders();
    window->IsValid(a, b);
    QCOMPARE(a, -1);
    QCOMPARE(b, -1);
    window->MovePixelOffset(10);
    QCOMPARE(values.start->GetValue(), 20.0);
}

void tst_axisbase_client::staysOnAnAxisOfOnePixel()
{
    for (unsigned int const type : { 0x10U, 0x20U }) {
        Borders const values;
        bool const isHorizontal = type == 0x10U;
        AxisProbe axis(type, isHorizontal ? 1 : 20, isHorizontal ? 20 : 1);
        axis.SetRange(0.0, 100.0);
        axis.SetButtonStart_ValuePath(values.start.Path());
        axis.SetButtonStop_ValuePath(values.stop.Path());
        ClientWindow * const window = axis.CreateClientWindow();
        window->RecalcBorders();
        for (int const offset : { 1, -1, 1000 })
            window->MovePixelOffset(offset);
        QCOMPARE(values.start->GetValue(), 20.0);
        QCOMPARE(values.stop->GetValue(), 40.0);
    }
}

void tst_axisbase_client::endsWithTheAxis()
{
    Borders const values;
    {
        AxisProbe axis;
        axis.SetButtonStart_ValuePath(values.start.Path());
        axis.SetButtonStop_ValuePath(values.stop.Path());
        axis.CreateClientWindow()->SetVisible_ValuePath(values.visible.Path());
        QCOMPARE(values.start->GetObserverCount(), 2); // the window and its marker
    }
    QCOMPARE(values.start->GetObserverCount(), 0);
    QCOMPARE(values.stop->GetObserverCount(), 0);
    QCOMPARE(values.visible->GetObserverCount(), 0);
}

void tst_axisbase_client::endsWhileBound()
{
    Borders const values;
    auto * const axis = new AxisProbe;
    QPointer<AxisProbe> const guard(axis);
    axis->SetButtonStart_ValuePath(values.start.Path());
    values.visible->SetValue(false, nullptr);
    axis->CreateClientWindow()->SetVisible_ValuePath(values.visible.Path()); // hides the marker
    connect(axis, &MarkerList::signalSetState, this, [=] { delete axis; });
    QVERIFY(!axis->SetButtonStart_ValuePath(values.start.Path()));
    QVERIFY(!guard);
    QCOMPARE(values.start->GetObserverCount(), 0);
}

ORIM_TEST_MAIN(tst_axisbase_client)
#include "tst_axisbase_client.moc"
