// SPDX-License-Identifier: MIT
#include "axisprobe.h"

#include "axisdefinition.h"
#include "colorset.h"
#include "guibase.h"
#include "guicentral.h"
#include "testmain.h"
#include "valueselection.h"

#include <QPicture>
#include <qdrawutil.h>

#include <climits>
#include <ctime>
#include <vector>

namespace {

QColor const Ground(10, 20, 30);
QColor const Frame(200, 100, 50);
QColor const Ink(250, 250, 0);
QColor const Starboard(0, 120, 0);
QColor const Port(120, 0, 0);
QColor const Ahead(60, 60, 60);
QColor const White(255, 255, 255);

//! An axis with a picture, so that it paints.
class PaintProbe : public AxisProbe
{
public:
    PaintProbe(unsigned int type, int width, int height) : AxisProbe(type, width, height)
    {
        m_pPixmap = std::make_unique<QPixmap>(1, 1);
    }

    QImage Background()
    {
        return Painted([this](QPainter & painter) { drawBackground(painter); });
    }
};

} // namespace

class tst_axisbase_painting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    // tics
    void ticsAreThoseOfTheRange();
    void ticsByFactorAndWidth();
    void fixedRangeTouchesNothing();
    void roomForMinorTics_data();
    void roomForMinorTics();
    void roomForMinorTicsOfAnOffset();
    void fixedTicWidth();
    void ticsVector();

    // background
    void noPictureNoBackground();
    void plainBackground();
    void innerFrame();
    void panelFrame();
    void textPenIsTakenAnew();
    void bearingBands_data();
    void bearingBands();
    void bearingBandsOfAKey_data();
    void bearingBandsOfAKey();
    void bearingBandsOfAnEmptyRange();
    void bearingBandsWithoutADirection();
    void bearingBandsCutTo16Bits();

    // shading
    void shadeRect_data();
    void shadeRect();
    void tooSmallToShade_data();
    void tooSmallToShade();
    void twoPixelsAreThreeLines();
    void shadeRectUnderATransform();
    void shadeRectBeyondTheDevice();
    void ageingScale_data();
    void ageingScale();
    void ageingScaleKeepsThePen();
    void ageingScaleOfNothing_data();
    void ageingScaleOfNothing();
    void moreStepsThanPixels();
    void cleanupTestCase();

private:
    Planted<ValueSelection> * m_pDisplay = nullptr;
};

void tst_axisbase_painting::initTestCase()
{
    ColorSet & colors = ColorSet::Instance();
    colors[static_cast<IColorBase::ECOLOR>(66)] = Ground;
    colors[static_cast<IColorBase::ECOLOR>(2)] = Frame;
    colors[static_cast<IColorBase::ECOLOR>(1)] = Ink;
    colors[static_cast<IColorBase::ECOLOR>(87)] = Starboard;
    colors[static_cast<IColorBase::ECOLOR>(88)] = Port;
    colors[static_cast<IColorBase::ECOLOR>(89)] = Ahead;
    m_pDisplay = new Planted<ValueSelection>("display");
    for (long const key : { 0L, 1L, 2L, 4L, 6L, 8L, 10L })
        (*m_pDisplay)->AddItem({ QString::number(key), 0.0, key });
}

void tst_axisbase_painting::cleanupTestCase() { delete m_pDisplay; }

// Tics

void tst_axisbase_painting::ticsAreThoseOfTheRange()
{
    AxisProbe axis;
    axis.SetRange(3.0, 104.0);
    QCOMPARE(axis.m_calcStart, 3.0);
    QCOMPARE(axis.m_calcStop, 104.0);
    QCOMPARE(axis.m_ticCount, 10);
    QCOMPARE(axis.m_ticStep, 10.0);
    QCOMPARE(axis.m_firstTic + axis.m_ticOffset, 10.0);
    QCOMPARE(axis.m_minorTics, 4);
    QCOMPARE(axis.m_leftDigits, 3);
    QCOMPARE(axis.m_rightDigits, 0);
    axis.m_start = 0.0;
    QCOMPARE(axis.m_calcStart, 3.0);
    axis.CalcValues();
    QCOMPARE(axis.m_calcStart, 0.0);
}

void tst_axisbase_painting::ticsByFactorAndWidth()
{
    AxisProbe axis;
    axis.m_displayFactor = 1e-3;
    axis.m_fixedTicWidth = 3;
    double start = 1000.0;
    double stop = 20000.0;
    double first = 0.0;
    double step = 0.0;
    double offset = 0.0;
    int minor = 0;
    int left = 0;
    int right = 0;
    int const count = axis.GetAxisValues(&start, &stop, &minor, &left, &right, &first, &step, &offset, 1);
    double wantedFirst = 0.0;
    double wantedStep = 0.0;
    double wantedOffset = 0.0;
    int wantedMinor = 0;
    int const wanted = axisDefinition::GetAxisValuesLinear(&start, &stop, &wantedMinor, nullptr, nullptr, &wantedFirst,
                                                           &wantedStep, &wantedOffset, 1, 1e-3, 3);
    QCOMPARE(count, wanted);
    QCOMPARE(count, 6);
    QCOMPARE(step, 3000.0);
    QCOMPARE(first, wantedFirst);
    QCOMPARE(offset, wantedOffset);
    QCOMPARE(minor, wantedMinor);
    QCOMPARE(left, 2);
    QCOMPARE(right, 0);
}

void tst_axisbase_painting::fixedRangeTouchesNothing()
{
    AxisProbe axis;
    axis.SetFixedRange(0.0, 10.0, 7, 1, 1, 0.0, 1.0);
    double start = 1.0;
    double stop = 2.0;
    double number = 77.0;
    int digits = 88;
    QCOMPARE(axis.GetAxisValues(&start, &stop, &digits, &digits, &digits, &number, &number, &number, 1), 7);
    QCOMPARE(number, 77.0);
    QCOMPARE(digits, 88);
}

void tst_axisbase_painting::roomForMinorTics_data()
{
    QTest::addColumn<int>("most");
    QTest::addColumn<int>("minor");
    QTest::newRow("never") << -1 << -1;
    QTest::newRow("further apart") << 19 << 4;
    QTest::newRow("as far apart") << 20 << -1;
    QTest::newRow("nearer") << 21 << -1;
    QTest::newRow("always") << 0 << 4;
}

void tst_axisbase_painting::roomForMinorTics()
{
    QFETCH(int, most);
    for (unsigned int const type : { 0x10U, 0x20U }) { // a vertical axis falls
        AxisProbe axis(type, 201, 201);
        axis.SetRange(-5.2, 95.3); // 2 px a unit
        QCOMPARE(axis.m_ticStep, 10.0);
        axis.SetMaxPixBetweenTics(most);
        QTEST(axis.Check4Tics(), "minor");
        QCOMPARE(axis.m_repairDrawings, 0);
    }
}

void tst_axisbase_painting::roomForMinorTicsOfAnOffset()
{
    AxisProbe axis(0x10U, 201, 20);
    axis.SetMaxPixBetweenTics(19);
    axis.SetFixedRange(1000.0, 1100.0, 5, 4, 0, 0.0, 10.0);
    axis.m_minorTics = 4;
    axis.m_ticOffset = 1000.0;
    QCOMPARE(axis.Check4Tics(), 4);
    axis.SetMaxPixBetweenTics(20);
    QCOMPARE(axis.Check4Tics(), -1);
    axis.SetFixedRange(1000.0, 1100.0, 5, 4, 0, 1000.0, 10.0); // by the first tic
    QCOMPARE(axis.Check4Tics(), -1);
    axis.SetMaxPixBetweenTics(19);
    QCOMPARE(axis.Check4Tics(), 4);
    axis.m_ticOffset = 1000.0; // both: outside the range
    QCOMPARE(axis.Check4Tics(), -1);
}

void tst_axisbase_painting::fixedTicWidth()
{
    AxisProbe axis;
    axis.SetRange(0.0, 100.0);
    axis.m_calculations = axis.m_repairDrawings = 0;
    axis.SetFixedTicWidth(25);
    QCOMPARE(axis.m_fixedTicWidth, 25);
    QCOMPARE(axis.m_calculations + axis.m_repairDrawings, 0);
    QCOMPARE(axis.m_ticStep, 10.0);
    axis.show();
    axis.m_calculations = axis.m_repairDrawings = 0;
    axis.SetFixedTicWidth(30);
    QCOMPARE(axis.m_calculations, 1);
    QCOMPARE(axis.m_repairDrawings, 1);
    QCOMPARE(axis.m_ticStep, 30.0);
    QCOMPARE(axis.m_ticCount, 4);
}

void tst_axisbase_painting::ticsVector()
{
    PaintProbe axis(AxisBase::AxisHorizontal, 100, 20);
    axis.m_tics = { 1, 2 };
    axis.GetTicsVector().push_back(3);
    QCOMPARE(axis.m_tics, std::vector<int>({ 1, 2, 3 }));
    QCOMPARE(axis.m_repairDrawings, 1);
    QVERIFY(!axis.m_pPixmap);
}

// Background

void tst_axisbase_painting::noPictureNoBackground()
{
    AxisProbe axis(AxisBase::AxisHorizontal | AxisBase::AxisWinPanel, 10, 10);
    QImage const image = axis.Painted([&](QPainter & painter) { axis.drawBackground(painter); });
    for (int y = 0; y < 10; ++y)
        for (int x = 0; x < 10; ++x)
            QCOMPARE(image.pixelColor(x, y), White);
}

void tst_axisbase_painting::plainBackground()
{
    PaintProbe axis(AxisBase::AxisHorizontal, 10, 8);
    axis.SetPixOffset(2, 2);
    QImage const image = axis.Background();
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 10; ++x)
            QCOMPARE(image.pixelColor(x, y), Ground);
    axis.m_bgPen = QPen(Qt::red);
    QImage const framed = axis.Background();
    QCOMPARE(framed.pixelColor(0, 0), QColor(Qt::red));
    QCOMPARE(framed.pixelColor(5, 4), Ground);
}

void tst_axisbase_painting::innerFrame()
{
    PaintProbe axis(AxisBase::AxisHorizontal | AxisBase::AxisInnerFrame, 40, 8);
    axis.SetPixOffset(5, 10);
    QImage const image = axis.Background();
    QCOMPARE(image.pixelColor(0, 4), Frame);
    QCOMPARE(image.pixelColor(4, 4), Frame);
    QCOMPARE(image.pixelColor(5, 4), Ground);
    QCOMPARE(image.pixelColor(29, 4), Ground);
    QCOMPARE(image.pixelColor(31, 4), Frame); // the pen of the ground is one pixel wide
    QCOMPARE(image.pixelColor(39, 0), Frame);
    QCOMPARE(image.pixelColor(20, 0), Ground);
    QCOMPARE(image.pixelColor(20, 7), Ground);
}

void tst_axisbase_painting::panelFrame()
{
    PaintProbe axis(AxisBase::AxisHorizontal | AxisBase::AxisWinPanel, 40, 20);
    QImage const image = axis.Background();
    QImage const wanted = axis.Painted([&](QPainter & painter) {
        painter.fillRect(axis.rect(), Ground);
        qDrawWinPanel(&painter, 0, 0, 40, 20, axis.palette(), true, nullptr);
    });
    QCOMPARE(image, wanted);
    QVERIFY(image.pixelColor(0, 0) != Ground);
    QCOMPARE(image.pixelColor(20, 10), Ground);
}

void tst_axisbase_painting::textPenIsTakenAnew()
{
    PaintProbe axis(AxisBase::AxisHorizontal, 40, 20);
    QColor other = Qt::cyan;
    axis.SetTextColor(other);
    axis.Background();
    QCOMPARE(axis.m_textPen, QPen(Ink));
    QVERIFY(axis.SetDisplayAzimuth_ValuePath(m_pDisplay->Path()));
    (*m_pDisplay)->Select(2L, nullptr);
    axis.SetTextColor(other);
    axis.Background();
    QCOMPARE(axis.m_textPen, QPen(Qt::cyan)); // bands leave it
    (*m_pDisplay)->Select(4L, nullptr);
    axis.Background();
    QCOMPARE(axis.m_textPen, QPen(Ink));
}

void tst_axisbase_painting::bearingBands_data()
{
    QTest::addColumn<unsigned int>("type");
    QTest::addColumn<int>("place"); // along the axis
    QTest::addColumn<QColor>("color");
    // -360 to 360 on 720 px; offset 10 at the left
    QTest::newRow("across: before the strip") << 0x10U << 9 << Ground;
    QTest::newRow("across: astern") << 0x10U << 10 << Ahead;
    QTest::newRow("across: starboard below zero begins") << 0x10U << 15 << Starboard;
    QTest::newRow("across: starboard below zero ends") << 0x10U << 184 << Starboard;
    QTest::newRow("across: astern again") << 0x10U << 190 << Ahead;
    QTest::newRow("across: port below zero") << 0x10U << 196 << Port;
    QTest::newRow("across: port below zero ends") << 0x10U << 363 << Port;
    QTest::newRow("across: ahead") << 0x10U << 370 << Ahead;
    QTest::newRow("across: starboard") << 0x10U << 376 << Starboard;
    QTest::newRow("across: starboard ends") << 0x10U << 543 << Starboard;
    QTest::newRow("across: port") << 0x10U << 556 << Port;
    QTest::newRow("across: port ends") << 0x10U << 723 << Port;
    QTest::newRow("across: the last pixel") << 0x10U << 729 << Ahead;
    QTest::newRow("across: behind the strip") << 0x10U << 730 << Ground;
    QTest::newRow("up: astern on top") << 0x20U << 0 << Ahead;
    QTest::newRow("up: port") << 0x20U << 6 << Port;
    QTest::newRow("up: starboard") << 0x20U << 186 << Starboard;
    QTest::newRow("up: ahead") << 0x20U << 360 << Ahead;
    QTest::newRow("up: port below zero") << 0x20U << 366 << Port;
    QTest::newRow("up: starboard below zero") << 0x20U << 546 << Starboard;
    QTest::newRow("up: astern at the end") << 0x20U << 719 << Ahead;
}

void tst_axisbase_painting::bearingBands()
{
    QFETCH(unsigned int, type);
    QFETCH(int, place);
    QFETCH(QColor, color);
    bool const across = type == 0x10U;
    PaintProbe axis(type, across ? 740 : 20, across ? 20 : 720);
    axis.SetPixOffset(10, 10);
    axis.SetRange(-360.0, 360.0);
    QVERIFY(axis.SetDisplayAzimuth_ValuePath(m_pDisplay->Path()));
    (*m_pDisplay)->Select(6L, nullptr);
    QImage const image = axis.Background();
    auto const pixel = [&](int depth) {
        return across ? image.pixelColor(place, depth) : image.pixelColor(depth, place);
    };
    QCOMPARE(pixel(0), color);
    QCOMPARE(pixel(4), color); // as deep as a tic is long
    QCOMPARE(pixel(5), Ground);
}

void tst_axisbase_painting::bearingBandsOfAKey_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("bands");
    QTest::newRow("0") << 0 << false;
    QTest::newRow("1") << 1 << false;
    QTest::newRow("2") << 2 << true;
    QTest::newRow("4") << 4 << false;
    QTest::newRow("6") << 6 << true;
    QTest::newRow("8") << 8 << false;
    QTest::newRow("10") << 10 << true;
}

void tst_axisbase_painting::bearingBandsOfAKey()
{
    QFETCH(int, key);
    QFETCH(bool, bands);
    PaintProbe axis(AxisBase::AxisHorizontal, 100, 20);
    axis.SetRange(10.0, 100.0);
    QVERIFY(axis.SetDisplayAzimuth_ValuePath(m_pDisplay->Path()));
    (*m_pDisplay)->Select(static_cast<long>(key), nullptr);
    QImage const image = axis.Background();
    QCOMPARE(image.pixelColor(50, 2), bands ? Starboard : Ground);
    QCOMPARE(image.pixelColor(99, 2), bands ? Ahead : Ground); // a band that reaches the stop ends a pixel before it
}

void tst_axisbase_painting::bearingBandsOfAnEmptyRange()
{
    PaintProbe axis(AxisBase::AxisHorizontal, 100, 20);
    axis.SetRange(90.0, 90.0);
    QVERIFY(axis.SetDisplayAzimuth_ValuePath(m_pDisplay->Path()));
    (*m_pDisplay)->Select(2L, nullptr);
    QImage const image = axis.Background();
    for (int x = 0; x < 100; ++x)
        QCOMPARE(image.pixelColor(x, 2), Ahead);
}

//! They are as long as the axis is wide, and lie upright.
void tst_axisbase_painting::bearingBandsWithoutADirection()
{
    PaintProbe axis(0x80U, 60, 90);
    axis.SetRange(-360.0, 360.0);
    QVERIFY(axis.SetDisplayAzimuth_ValuePath(m_pDisplay->Path()));
    (*m_pDisplay)->Select(2L, nullptr);
    QImage const image = axis.Background();
    QCOMPARE(image.pixelColor(2, 35), Starboard);
    QCOMPARE(image.pixelColor(35, 2), Ground);
    QCOMPARE(image.pixelColor(2, 75), Ground);
}

void tst_axisbase_painting::bearingBandsCutTo16Bits()
{
    PaintProbe axis(0x10U, 740, 20);
    axis.SetRange(-360.0, 360.0);
    QVERIFY(axis.SetDisplayAzimuth_ValuePath(m_pDisplay->Path()));
    (*m_pDisplay)->Select(6L, nullptr);
    axis.SetPixOffset(10, 10);
    QImage const wanted = axis.Background();
    axis.SetPixOffset(65546, 10);
    QCOMPARE(axis.Background(), wanted);
}

// Shading

void tst_axisbase_painting::shadeRect_data()
{
    QTest::addColumn<unsigned int>("type");
    QTest::addColumn<bool>("invert");
    QTest::addColumn<int>("shading");
    QTest::newRow("vertical") << 0x120U << false << 1;
    QTest::newRow("vertical, inverted") << 0x120U << true << 1;
    QTest::newRow("horizontal") << 0x110U << false << 1;
    QTest::newRow("horizontal, inverted") << 0x110U << true << 1;
    QTest::newRow("no direction") << 0x100U << false << 1;
    QTest::newRow("another shading colour") << 0x120U << false << 2;
}

//! Line by line as single pens would paint it.
void tst_axisbase_painting::shadeRect()
{
    QFETCH(unsigned int, type);
    QFETCH(bool, invert);
    QFETCH(int, shading);
    AxisProbe axis(type, 100, 80);
    axis.SetRange(-120.0, -20.0);
    axis.SetShadingColor(static_cast<VC::EShadingColor>(shading));
    int const x = 7;
    int const y = 5;
    int const w = 30;
    int const h = 40;
    QImage const image = axis.Painted([&](QPainter & painter) { axis.drawShadeRect(painter, x, y, w, h, invert); });
    QImage const wanted = axis.Painted([&](QPainter & painter) {
        bool const vertical = (type & AxisBase::AxisVertical) != 0;
        for (int i = 0; i <= (vertical ? h : w); ++i) {
            double part = static_cast<double>(i) / (vertical ? h : w);
            if (vertical && !invert)
                part = 1.0 - part;
            painter.setPen(GuiCentral::Instance().GetShadingPen(-120.0 + 100.0 * part, shading, -120.0, -20.0,
                                                                vertical && !invert));
            if (vertical)
                painter.drawLine(x, y + i, x + w, y + i);
            else
                painter.drawLine(x + i, y, x + i, y + h);
        }
    });
    QCOMPARE(image, wanted);
    QVERIFY(image.pixelColor(x, y) != White);
    QCOMPARE(image.pixelColor(x - 1, y), White);
}

void tst_axisbase_painting::tooSmallToShade_data()
{
    QTest::addColumn<int>("w");
    QTest::addColumn<int>("h");
    QTest::addColumn<int>("shading");
    QTest::newRow("one wide") << 1 << 10 << 1;
    QTest::newRow("one high") << 10 << 1 << 1;
    QTest::newRow("empty") << 0 << 0 << 1;
    QTest::newRow("negative") << -10 << -10 << 1;
    QTest::newRow("no shading colour") << 10 << 10 << 0;
}

void tst_axisbase_painting::tooSmallToShade()
{
    QFETCH(int, w);
    QFETCH(int, h);
    QFETCH(int, shading);
    AxisProbe axis(AxisBase::AxisVertical, 20, 20);
    axis.SetRange(0.0, 100.0);
    axis.SetShadingColor(static_cast<VC::EShadingColor>(shading));
    QImage const image = axis.Painted([&](QPainter & painter) { axis.drawShadeRect(painter, 5, 5, w, h, false); });
    QCOMPARE(image, axis.Painted([](QPainter &) {}));
}

void tst_axisbase_painting::twoPixelsAreThreeLines()
{
    AxisProbe axis(AxisBase::AxisVertical | AxisBase::AxisShading, 20, 20);
    axis.SetRange(0.0, 100.0);
    QImage const image = axis.Painted([&](QPainter & painter) { axis.drawShadeRect(painter, 5, 5, 2, 2, false); });
    QCOMPARE(image.pixelColor(5, 4), White);
    for (int y = 5; y <= 7; ++y)
        for (int x = 5; x <= 7; ++x)
            QVERIFY(image.pixelColor(x, y) != White);
    QCOMPARE(image.pixelColor(5, 8), White);
    QCOMPARE(image.pixelColor(8, 5), White);
}

void tst_axisbase_painting::shadeRectUnderATransform()
{
    AxisProbe axis(AxisBase::AxisVertical | AxisBase::AxisShading, 100, 100);
    axis.SetRange(0.0, 100.0);
    QImage const plain = axis.Painted([&](QPainter & painter) { axis.drawShadeRect(painter, 0, 0, 20, 30, false); });
    QImage const moved = axis.Painted([&](QPainter & painter) {
        painter.translate(11, 13);
        axis.drawShadeRect(painter, 0, 0, 20, 30, false);
    });
    QCOMPARE(moved.copy(11, 13, 21, 31), plain.copy(0, 0, 21, 31));
    QImage const doubled = axis.Painted([&](QPainter & painter) {
        painter.scale(2.0, 2.0);
        axis.drawShadeRect(painter, 3, 2, 20, 30, false);
    });
    for (int i = 0; i <= 30; ++i)
        for (int row = 0; row < 2; ++row) {
            QCOMPARE(doubled.pixelColor(6, 4 + 2 * i + row), plain.pixelColor(0, i));
            QCOMPARE(doubled.pixelColor(47, 4 + 2 * i + row), plain.pixelColor(0, i));
            QCOMPARE(doubled.pixelColor(48, 4 + 2 * i + row), White);
            QCOMPARE(doubled.pixelColor(5, 4 + 2 * i + row), White);
        }
    QImage sharp(200, 200, QImage::Format_RGB32);
    sharp.setDevicePixelRatio(2.0);
    sharp.fill(Qt::white);
    {
        QPainter painter(&sharp);
        axis.drawShadeRect(painter, 3, 2, 20, 30, false);
    }
    QCOMPARE(sharp.copy(0, 0, 60, 80).convertToFormat(QImage::Format_RGB32).pixelColor(6, 4), plain.pixelColor(0, 0));
    QCOMPARE(sharp.pixelColor(47, 65), plain.pixelColor(0, 30));
    QCOMPARE(sharp.pixelColor(47, 66), White);
}

void tst_axisbase_painting::shadeRectBeyondTheDevice()
{
    AxisProbe axis(AxisBase::AxisVertical | AxisBase::AxisShading, 50, 50);
    axis.SetRange(0.0, 100.0);
    QImage const whole = axis.Painted([&](QPainter & painter) { axis.drawShadeRect(painter, 0, 0, 49, 49, false); });
    QVERIFY(whole.pixelColor(49, 49) != White);
    QImage const above = axis.Painted([&](QPainter & painter) { axis.drawShadeRect(painter, -5, -10, 49, 49, false); });
    QCOMPARE(above.pixelColor(0, 0), whole.pixelColor(0, 10));
    QCOMPARE(above.pixelColor(44, 39), whole.pixelColor(0, 49));
    QCOMPARE(above.pixelColor(45, 39), White);
    std::clock_t const begin = std::clock(); // of this process: others may hold the processor
    for (double const scale : { 1.0, 2.0 })
        axis.Painted([&](QPainter & painter) {
            painter.scale(scale, scale);
            axis.drawShadeRect(painter, INT_MIN, INT_MIN, INT_MAX, INT_MAX, false);
            axis.drawShadeRect(painter, 0, 0, INT_MAX, INT_MAX, true);
            axis.drawShadeRect(painter, INT_MAX, INT_MAX, INT_MAX, INT_MAX, true);
        });
    QVERIFY((std::clock() - begin) / CLOCKS_PER_SEC < 5);
    QPicture picture;
    {
        QPainter painter(&picture);
        axis.drawShadeRect(painter, 0, 0, 20, 49, false);
    }
    QImage const played = axis.Painted([&](QPainter & painter) { painter.drawPicture(0, 0, picture); });
    QCOMPARE(played.pixelColor(10, 20), whole.pixelColor(0, 20));
}

void tst_axisbase_painting::ageingScale_data()
{
    QTest::addColumn<int>("steps");
    QTest::newRow("one step") << 1;
    QTest::newRow("four steps") << 4;
    QTest::newRow("steps that do not divide the height") << 7;
}

void tst_axisbase_painting::ageingScale()
{
    QFETCH(int, steps);
    AxisProbe axis(AxisBase::AxisVertical, 50, 100);
    int const h = 80;
    QImage const image = axis.Painted([&](QPainter & painter) {
        painter.setPen(Qt::NoPen);
        axis.drawAgeingScale(painter, 5, 10, 31, h, steps);
    });
    for (int i = 0; i < steps; ++i) {
        QColor const color = GuiCentral::Instance().GetShadingPen(i, 5, 0.0, std::max(steps - 1, 1), false).color();
        int const top = 10 + h * i / steps;
        QCOMPARE(image.pixelColor(5, top), color);
        QCOMPARE(image.pixelColor(14, top + h / steps - 1), color); // a third of the width
        QCOMPARE(image.pixelColor(15, top), White);
        QCOMPARE(image.pixelColor(4, top), White);
        int const below = top + h / steps; // the height is cut: a row may stay free
        if (i + 1 == steps || 10 + h * (i + 1) / steps > below)
            QCOMPARE(image.pixelColor(5, below), White);
    }
    QCOMPARE(image.pixelColor(5, 9), White);
    QCOMPARE(image.pixelColor(5, 10 + h), White);
}

void tst_axisbase_painting::ageingScaleKeepsThePen()
{
    AxisProbe axis(AxisBase::AxisVertical, 50, 100);
    QImage const image = axis.Painted([&](QPainter & painter) {
        painter.setPen(Qt::red);
        axis.drawAgeingScale(painter, 5, 10, 31, 80, 1);
    });
    QCOMPARE(image.pixelColor(5, 10), QColor(Qt::red));
    QCOMPARE(image.pixelColor(6, 11), GuiCentral::Instance().GetShadingPen(0.0, 5, 0.0, 1.0, false).color());
}

void tst_axisbase_painting::ageingScaleOfNothing_data()
{
    QTest::addColumn<int>("w");
    QTest::addColumn<int>("h");
    QTest::addColumn<int>("steps");
    QTest::newRow("no steps") << 30 << 30 << 0;
    QTest::newRow("negative steps") << 30 << 30 << -1;
    QTest::newRow("one wide") << 1 << 30 << 3;
    QTest::newRow("one high") << 30 << 1 << 3;
}

void tst_axisbase_painting::ageingScaleOfNothing()
{
    QFETCH(int, w);
    QFETCH(int, h);
    QFETCH(int, steps);
    AxisProbe axis(AxisBase::AxisVertical, 50, 50);
    QImage const image = axis.Painted([&](QPainter & painter) { axis.drawAgeingScale(painter, 5, 5, w, h, steps); });
    QCOMPARE(image, axis.Painted([](QPainter &) {}));
}

//! They have no height: what remains is the pen of each row.
void tst_axisbase_painting::moreStepsThanPixels()
{
    AxisProbe axis(AxisBase::AxisVertical, 50, 50);
    std::clock_t const begin = std::clock(); // of this process: others may hold the processor
    for (int const steps : { 31, 45, 61, INT_MAX }) {
        QImage const image =
            axis.Painted([&](QPainter & painter) { axis.drawAgeingScale(painter, 5, 5, 30, 30, steps); });
        QImage const wanted = axis.Painted([&](QPainter & painter) {
            for (int y = 5; y < 35; ++y)
                painter.drawRect(5, y, 10, 0);
        });
        QCOMPARE(image, wanted);
    }
    axis.Painted(
        [&](QPainter & painter) { axis.drawAgeingScale(painter, INT_MIN, INT_MIN, INT_MAX, INT_MAX, INT_MAX); });
    axis.Painted([&](QPainter & painter) { axis.drawAgeingScale(painter, 0, 0, INT_MAX, INT_MAX, 3); });
    for (double const far : { 1e30, -1e30 }) {
        QImage const image = axis.Painted([&](QPainter & painter) {
            painter.translate(0.0, far);
            axis.drawAgeingScale(painter, 0, 0, 30, 30, 4);
        });
        QCOMPARE(image, axis.Painted([](QPainter &) {}));
    }
    QVERIFY((std::clock() - begin) / CLOCKS_PER_SEC < 5);
}

ORIM_TEST_MAIN(tst_axisbase_painting)
#include "tst_axisbase_painting.moc"
