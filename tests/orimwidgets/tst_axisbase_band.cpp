// SPDX-License-Identifier: MIT
#include "zoomprobe.h"

#include "colorset.h"
#include "coloryrulerleft.h"
#include "marker.h"
#include "testmain.h"
#include "testmarkerlist.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double Nothing = std::numeric_limits<double>::quiet_NaN();
constexpr Qt::KeyboardModifiers Shift = Qt::ShiftModifier;
constexpr unsigned int Across = AxisBase::AxisHorizontal;
constexpr unsigned int Up = AxisBase::AxisVertical;

using Scene = ZoomScene;

//! The columns, or the rows, that are not white, as in "0-30 60-99".
QString CoveredLines(QImage const & image, bool rows)
{
    QStringList runs;
    int const count = rows ? image.height() : image.width();
    int const across = rows ? image.width() : image.height();
    QRgb const ink = ColorSet::Instance()[static_cast<IColorBase::ECOLOR>(2)].rgb();
    int first = -1;
    for (int line = 0; line <= count; ++line) {
        int covered = 0;
        for (int i = 0; line < count && i < across; ++i)
            covered += (rows ? image.pixel(i, line) : image.pixel(line, i)) == ink ? 1 : 0;
        if (covered != 0 && covered != across)
            return QStringLiteral("line %1 in part").arg(line);
        if (covered != 0 && first < 0)
            first = line;
        if (covered == 0 && first >= 0) {
            runs << QStringLiteral("%1-%2").arg(first).arg(line - 1);
            first = -1;
        }
    }
    return runs.join(QLatin1Char(' '));
}

QMouseEvent AtRow(int y)
{
    return { QEvent::MouseButtonPress, QPointF(3, y), QPointF(3, y), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier };
}

} // namespace

class tst_axisbase_band : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // drag
    void bandFollowsTheMouse_data();
    void bandFollowsTheMouse();
    void bandEndIsClamped_data();
    void bandEndIsClamped();
    void onlyAMoveWritesTheBandEnd();
    void moveWithoutADrag_data();
    void moveWithoutADrag();
    void releaseZooms_data();
    void releaseZooms();
    void bandToAnEndThatRounds();
    void releaseThatClicks_data();
    void releaseThatClicks();
    void releaseThatDoesNeither_data();
    void releaseThatDoesNeither();
    void releaseEndsTheDrag_data();
    void releaseEndsTheDrag();
    void releaseThatIsNotHeard_data();
    void releaseThatIsNotHeard();
    void bandAbandonedWithShift();
    void releaseAfterZoomWasDisabled();
    void modeAtTheSignal();
    void noTicsDuringABand();
    void moveAsksForAPaint();
    void realMouse();

    // picture and markers
    void cover_data();
    void cover();
    void noCover_data();
    void noCover();
    void rulerDrawsTheBand();
    void outsideMarker_data();
    void outsideMarker();
    void outsideMarkerOfNothing();
    void rangeTakesInAMarker_data();
    void rangeTakesInAMarker();
};

// Drag

void tst_axisbase_band::bandFollowsTheMouse_data()
{
    QTest::addColumn<unsigned int>("type");
    QTest::addColumn<int>("cursor");
    QTest::newRow("horizontal") << Across << static_cast<int>(Qt::SplitHCursor);
    QTest::newRow("vertical") << Up << static_cast<int>(Qt::SplitVCursor);
}

void tst_axisbase_band::bandFollowsTheMouse()
{
    QFETCH(unsigned int, type);
    Scene scene(type);
    scene.axis.Press(30);
    scene.axis.unsetCursor();
    scene.axis.Move(42);
    QCOMPARE(scene.State(), QStringLiteral("mode 16, press 30, band 30 to 42"));
    QTEST(static_cast<int>(scene.axis.cursor().shape()), "cursor");
    scene.axis.Move(20, Shift); // Shift does not turn it into a pan
    QCOMPARE(scene.State(), QStringLiteral("mode 16, press 30, band 30 to 20"));
    QCOMPARE(scene.axis.Range(), QStringLiteral("0..100"));
    QCOMPARE(scene.zoomed.count(), 0);
}

void tst_axisbase_band::bandEndIsClamped_data()
{
    QTest::addColumn<unsigned int>("type");
    QTest::addColumn<int>("pixel");
    QTest::addColumn<int>("end");
    for (unsigned int const type : { Across, Up }) {
        char const * const name = type == Up ? "vertical" : "horizontal";
        QTest::addRow("%s: inside", name) << type << 50 << 50;
        QTest::addRow("%s: before the offset", name) << type << 3 << 10;
        QTest::addRow("%s: at the offset", name) << type << 10 << 10;
        QTest::addRow("%s: behind the offset", name) << type << 11 << 11;
        QTest::addRow("%s: at the other offset", name) << type << 80 << 80;
        QTest::addRow("%s: a pixel further", name) << type << 81 << 80;
        QTest::addRow("%s: far outside", name) << type << 5000 << 80;
        QTest::addRow("%s: far outside, below", name) << type << -5000 << 10;
    }
}

void tst_axisbase_band::bandEndIsClamped()
{
    QFETCH(unsigned int, type);
    QFETCH(int, pixel);
    Scene scene(type);
    scene.axis.SetPixOffset(10, 20);
    scene.axis.Press(30);
    scene.axis.Move(pixel);
    QTEST(scene.axis.m_bandEnd, "end");
}

void tst_axisbase_band::onlyAMoveWritesTheBandEnd()
{
    Scene scene;
    scene.axis.Press(30);
    scene.axis.Move(60);
    scene.axis.Release(70);
    QCOMPARE(scene.axis.m_bandEnd, 60);
    scene.axis.Press(20);
    QCOMPARE(scene.State(), QStringLiteral("mode 16, press 20, band 20 to 60"));
}

void tst_axisbase_band::moveWithoutADrag_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("shift");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("no drag") << 0 << false << true;
    QTest::newRow("no drag, with Shift") << 0 << true << true;
    QTest::newRow("band, zoom disabled meanwhile") << 16 << false << false;
    QTest::newRow("pan, zoom disabled meanwhile") << 32 << true << false;
    QTest::newRow("pan without Shift") << 32 << false << true;
}

void tst_axisbase_band::moveWithoutADrag()
{
    QFETCH(int, mode);
    QFETCH(bool, shift);
    QFETCH(bool, enabled);
    Scene scene;
    scene.axis.m_mouseMode = mode;
    scene.axis.SetAxisZoomEnable(enabled, false);
    scene.axis.Move(50, shift ? Shift : Qt::NoModifier);
    QCOMPARE(scene.State(), QStringLiteral("mode %1, press 0, band 0 to 0").arg(mode));
    QCOMPARE(scene.axis.Range(), QStringLiteral("0..100"));
    QCOMPARE(scene.zoomed.count(), 0);
    QCOMPARE(scene.axis.cursor().shape(), Qt::ArrowCursor);
}

void tst_axisbase_band::releaseZooms_data()
{
    QTest::addColumn<unsigned int>("type");
    QTest::addColumn<int>("press");
    QTest::addColumn<int>("release");
    QTest::addColumn<QString>("call");
    auto const row = [](char const * name, unsigned int type, int press, int release, char const * call) {
        QTest::newRow(name) << type << press << release << QString::fromLatin1(call);
    };
    row("horizontal", Across, 20, 40, "SetZoomedRange 20 40 1");
    row("horizontal, dragged back", Across, 40, 20, "SetZoomedRange 20 40 1");
    row("vertical", Up, 20, 40, "SetZoomedRange 60 80 1");
    row("vertical, dragged back", Up, 40, 20, "SetZoomedRange 60 80 1");
    row("six pixels", Across, 20, 26, "SetZoomedRange 20 26 1");
    row("six pixels back", Across, 26, 20, "SetZoomedRange 20 26 1");
    row("vertical, six pixels", Up, 20, 26, "SetZoomedRange 74 80 1");
    row("from the start, which is included", Across, 0, 50, "SetZoomedRange 0 50 1");
    row("to the stop, which is included", Across, 50, 100, "SetZoomedRange 50 100 1");
    row("released outside", Across, 50, 900, "SetZoomedRange 50 100 1");
    row("released outside, at the other end", Up, 50, -900, "SetZoomedRange 50 100 1");
    row("all of the range", Across, 0, 100, "SetZoomedRange 0 100 1");
}

void tst_axisbase_band::releaseZooms()
{
    QFETCH(unsigned int, type);
    QFETCH(int, press);
    QFETCH(int, release);
    QFETCH(QString, call);
    Scene scene(type);
    scene.axis.Press(press);
    scene.axis.Release(release); // no move is needed
    QCOMPARE(scene.axis.m_calls, QStringList(call));
    bool const isAll = call == QLatin1String("SetZoomedRange 0 100 1"); // shown already
    QCOMPARE(scene.axis.m_unZoom.size(), std::size_t(isAll ? 0 : 1));
    QCOMPARE(scene.zoomed.count(), isAll ? 0 : 1);
    QVERIFY(scene.axis.m_clicks.empty());
    QCOMPARE(scene.axis.m_mouseMode, 0);
    QCOMPARE(scene.axis.m_pressPixel, type == Across ? std::min(press, release) : std::max({ press, release, 0 }));
}

//! The value of the last pixel may be a neighbour of the stop.
void tst_axisbase_band::bandToAnEndThatRounds()
{
    Scene scene;
    scene.axis.SetRange(0.3, 0.9);
    QVERIFY(scene.axis.PixelToValue(100) > 0.9);
    scene.axis.Press(50);
    scene.axis.Release(100);
    QVERIFY(scene.axis.m_start > 0.5 && scene.axis.m_stop == 0.9);
}

void tst_axisbase_band::releaseThatClicks_data()
{
    QTest::addColumn<unsigned int>("type");
    QTest::addColumn<int>("press");
    QTest::addColumn<int>("release");
    QTest::addColumn<int>("clicked");
    QTest::newRow("no pixel") << Across << 30 << 30 << 30;
    QTest::newRow("horizontal, five pixels: the lower") << Across << 30 << 35 << 30;
    QTest::newRow("horizontal, five pixels back: the lower") << Across << 35 << 30 << 30;
    QTest::newRow("vertical, five pixels: the higher") << Up << 30 << 35 << 35;
    QTest::newRow("vertical, five pixels back: the higher") << Up << 35 << 30 << 35;
    QTest::newRow("both directions: along x, the lower") << (Across | Up) << 35 << 30 << 30;
    QTest::newRow("clamped before the pixels are counted") << Across << 14 << 0 << 10;
    QTest::newRow("clamped at the other end") << Across << 76 << 99 << 76;
    QTest::newRow("vertical, clamped") << Up << 14 << 0 << 14;
    QTest::newRow("vertical, clamped at the other end") << Up << 76 << 99 << 80;
}

void tst_axisbase_band::releaseThatClicks()
{
    QFETCH(unsigned int, type);
    QFETCH(int, press);
    QFETCH(int, release);
    QFETCH(int, clicked);
    Scene scene(type);
    scene.axis.SetPixOffset(10, 20);
    scene.axis.Press(press);
    scene.axis.Move(release);
    scene.axis.Release(release);
    QCOMPARE(scene.axis.m_clicks, std::vector<int>{ clicked });
    QVERIFY(scene.axis.m_calls.isEmpty());
    QCOMPARE(scene.axis.m_mouseMode, 0);
    QCOMPARE(scene.zoomed.count(), 0);
}

void tst_axisbase_band::releaseThatDoesNeither_data()
{
    QTest::addColumn<int>("press");
    QTest::addColumn<int>("release");
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::newRow("press before the offset") << 5 << 50 << 0.0 << 100.0;
    QTest::newRow("press behind the other offset") << 90 << 50 << 0.0 << 100.0;
    QTest::newRow("empty range") << 20 << 50 << 7.0 << 7.0;
    QTest::newRow("start is NaN") << 20 << 50 << Nothing << 100.0;
    QTest::newRow("stop is NaN") << 20 << 50 << 0.0 << Nothing;
}

void tst_axisbase_band::releaseThatDoesNeither()
{
    QFETCH(int, press);
    QFETCH(int, release);
    QFETCH(double, start);
    QFETCH(double, stop);
    Scene scene;
    scene.axis.SetPixOffset(10, 20);
    scene.axis.SetRange(start, stop);
    scene.axis.Press(press);
    scene.axis.Release(release);
    QVERIFY(scene.axis.m_calls.isEmpty());
    QVERIFY(scene.axis.m_clicks.empty());
    QCOMPARE(scene.axis.m_mouseMode, 0);
    QCOMPARE(scene.axis.cursor().shape(), Qt::ArrowCursor);
}

void tst_axisbase_band::releaseEndsTheDrag_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("button");
    QTest::newRow("band") << 16 << static_cast<int>(Qt::LeftButton);
    QTest::newRow("pan") << 32 << static_cast<int>(Qt::LeftButton);
    QTest::newRow("no drag") << 0 << static_cast<int>(Qt::LeftButton);
    QTest::newRow("band, another button") << 16 << static_cast<int>(Qt::RightButton);
}

void tst_axisbase_band::releaseEndsTheDrag()
{
    QFETCH(int, mode);
    QFETCH(int, button);
    Scene scene;
    scene.axis.m_mouseMode = mode;
    scene.axis.m_pressPixel = 20;
    scene.axis.setCursor(Qt::SplitHCursor);
    scene.axis.Mouse(QEvent::MouseButtonRelease, 60, Qt::NoModifier, static_cast<Qt::MouseButton>(button));
    QCOMPARE(scene.axis.m_mouseMode, 0);
    QCOMPARE(scene.axis.cursor().shape(), Qt::ArrowCursor);
    QCOMPARE(scene.axis.m_calls.size(), mode == 16 ? 1 : 0);
    QCOMPARE(scene.axis.Range(), mode == 16 ? QStringLiteral("20..60") : QStringLiteral("0..100"));
}

void tst_axisbase_band::releaseThatIsNotHeard_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("shift");
    QTest::addColumn<bool>("draw");
    QTest::newRow("band, with Shift") << 16 << true << true;
    QTest::newRow("pan, with Shift") << 32 << true << true;
    QTest::newRow("band, drawing disabled") << 16 << false << false;
    QTest::newRow("pan, drawing disabled") << 32 << false << false;
}

void tst_axisbase_band::releaseThatIsNotHeard()
{
    QFETCH(int, mode);
    QFETCH(bool, shift);
    QFETCH(bool, draw);
    Scene scene;
    scene.axis.EnableDraw(draw);
    scene.axis.m_mouseMode = mode;
    scene.axis.m_pressPixel = 20;
    scene.axis.setCursor(Qt::SplitHCursor);
    scene.axis.Release(60, shift ? Shift : Qt::NoModifier);
    QCOMPARE(scene.State(), QStringLiteral("mode %1, press 20, band 0 to 0").arg(mode));
    QCOMPARE(scene.axis.cursor().shape(), Qt::SplitHCursor);
    QVERIFY(scene.axis.m_calls.isEmpty());
}

//! A release with Shift leaves the band where it is; it goes on following the mouse until a release without Shift.
void tst_axisbase_band::bandAbandonedWithShift()
{
    Scene scene;
    scene.axis.Press(20);
    scene.axis.Move(30);
    scene.axis.Release(30, Shift);
    QCOMPARE(scene.State(), QStringLiteral("mode 16, press 20, band 20 to 30"));
    QCOMPARE(scene.axis.cursor().shape(), Qt::SplitHCursor);
    scene.axis.Move(60);
    scene.axis.Press(50);
    QCOMPARE(scene.State(), QStringLiteral("mode 16, press 20, band 20 to 60"));
    scene.axis.Release(60);
    QCOMPARE(scene.axis.Range(), QStringLiteral("20..60"));
    QCOMPARE(scene.axis.m_mouseMode, 0);
    QCOMPARE(scene.axis.cursor().shape(), Qt::ArrowCursor);
}

//! Who hears of the range still sees the band; it ends right afterwards.
void tst_axisbase_band::releaseAfterZoomWasDisabled()
{
    Scene scene;
    scene.axis.Press(20);
    scene.axis.Move(60);
    scene.axis.SetAxisZoomEnable(false, false);
    scene.axis.Release(60);
    QCOMPARE(scene.axis.m_calls, QStringList(QStringLiteral("SetZoomedRange 20 60 1"))); // refused
    QCOMPARE(scene.axis.Range(), QStringLiteral("0..100"));
    QCOMPARE(scene.axis.m_mouseMode, 0);
    QCOMPARE(scene.axis.cursor().shape(), Qt::ArrowCursor);
}

void tst_axisbase_band::modeAtTheSignal()
{
    Scene scene;
    int mode = -1;
    connect(&scene.axis, &AxisBase::Zoomed, this, [&] { mode = scene.axis.m_mouseMode; });
    scene.axis.Press(20);
    scene.axis.Release(60);
    QCOMPARE(mode, 16);
    QCOMPARE(scene.axis.m_mouseMode, 0);
}

void tst_axisbase_band::noTicsDuringABand()
{
    for (unsigned int const type : { Across, Up }) {
        Scene scene(type);
        scene.axis.Press(10);
        for (int pixel = 10; pixel < 100; ++pixel) {
            scene.axis.Move(pixel);
            scene.axis.Painted([&](QPainter & painter) { scene.axis.DrawWhileZoom(painter); });
        }
        QCOMPARE(scene.axis.m_calculations, 0);
        QCOMPARE(scene.axis.m_repairs + scene.axis.m_repairDrawings, 0);
        QVERIFY(!scene.axis.GetMustRecalcRulers());
        scene.axis.Release(99);
        QVERIFY(scene.axis.m_calculations > 0); // the counter counts
    }
}

void tst_axisbase_band::moveAsksForAPaint()
{
    Scene scene;
    scene.axis.show();
    QVERIFY(QTest::qWaitForWindowExposed(&scene.axis));
    QTRY_VERIFY(scene.axis.m_paints > 0);
    scene.axis.Press(20);
    QCoreApplication::sendPostedEvents();
    int before = scene.axis.m_paints;
    scene.axis.Move(50);
    QTRY_COMPARE(scene.axis.m_paints, before + 1);
    before = scene.axis.m_paints;
    scene.axis.Release(21); // a click, which changes no range
    QTRY_COMPARE(scene.axis.m_paints, before + 1);
}

//! The way of an operator, through the window.
void tst_axisbase_band::realMouse()
{
    Scene scene;
    scene.axis.show();
    QVERIFY(QTest::qWaitForWindowExposed(&scene.axis));
    int const width = scene.axis.width(); // the platform may have widened the window
    QWindow * const window = scene.axis.windowHandle();
    QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, QPoint(10, 5));
    QTest::mouseMove(window, QPoint(40, 5));
    QTRY_COMPARE(scene.axis.m_bandEnd, 40);
    QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, QPoint(60, 5));
    QTRY_COMPARE(scene.axis.m_mouseMode, 0);
    double const unit = 100.0 / (width - 1);
    QCOMPARE(scene.axis.m_start, 10 * unit);
    QCOMPARE(scene.axis.m_stop, 60 * unit);
    scene.axis.SetDefaultRange(5.0, 95.0);
    QTest::mouseDClick(&scene.axis, Qt::LeftButton, Qt::NoModifier, QPoint(30, 5));
    QCOMPARE(scene.axis.Range(), QStringLiteral("5..95"));
    QCOMPARE(scene.axis.m_mouseMode, 0);
}

// Picture and markers

void tst_axisbase_band::cover_data()
{
    QTest::addColumn<unsigned int>("type");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end");
    QTest::addColumn<QString>("columns");
    QTest::addColumn<QString>("rows");
    QTest::newRow("horizontal") << 0x10U << 30 << 60 << "0-30 60-99"
                                << "in part";
    QTest::newRow("horizontal, dragged back") << 0x10U << 60 << 30 << "0-30 60-99"
                                              << "in part";
    QTest::newRow("horizontal, from end to end") << 0x10U << 0 << 99 << "0-0 99-99"
                                                 << "in part";
    QTest::newRow("vertical") << 0x20U << 12 << 28 << "in part"
                              << "0-12 28-39";
    QTest::newRow("vertical, dragged back") << 0x20U << 28 << 12 << "in part"
                                            << "0-12 28-39";
    QTest::newRow("of both directions: horizontal") << 0x30U << 30 << 60 << "0-30 60-99"
                                                    << "in part";
}

void tst_axisbase_band::cover()
{
    QFETCH(unsigned int, type);
    QFETCH(QString, columns);
    QFETCH(QString, rows);
    ZoomProbe axis(type, 100, 40);
    axis.m_mouseMode = 16;
    QFETCH(int, start);
    QFETCH(int, end);
    axis.m_bandStart = start;
    axis.m_bandEnd = end;
    ColorSet::Instance()[static_cast<IColorBase::ECOLOR>(2)] = Qt::magenta;
    QImage const image = axis.Painted([&](QPainter & painter) {
        painter.setPen(Qt::NoPen);
        axis.DrawWhileZoom(painter);
        QCOMPARE(painter.pen().color(), QColor(Qt::magenta));
        QCOMPARE(painter.pen().style(), Qt::SolidLine);
        QCOMPARE(painter.brush().style(), Qt::SolidPattern);
    });
    if (columns == QLatin1String("in part"))
        QCOMPARE(CoveredLines(image, true), rows);
    else
        QCOMPARE(CoveredLines(image, false), columns);
}

void tst_axisbase_band::noCover_data()
{
    QTest::addColumn<unsigned int>("type");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("end");
    QTest::addColumn<bool>("covers");
    QTest::newRow("while a band is dragged") << 0x10U << true << 16 << 60 << true;
    QTest::newRow("zooming is disabled") << 0x10U << false << 16 << 60 << false;
    QTest::newRow("no drag") << 0x10U << true << 0 << 60 << false;
    QTest::newRow("a pan") << 0x10U << true << 32 << 60 << false;
    QTest::newRow("the ends are the same") << 0x10U << true << 16 << 30 << false;
    QTest::newRow("no direction") << 0U << true << 16 << 60 << false;
}

void tst_axisbase_band::noCover()
{
    QFETCH(unsigned int, type);
    QFETCH(bool, enabled);
    QFETCH(int, mode);
    QFETCH(int, end);
    QFETCH(bool, covers);
    ZoomProbe axis(type, 100, 40);
    axis.SetAxisZoomEnable(enabled, false);
    axis.m_mouseMode = mode;
    axis.m_bandStart = 30;
    axis.m_bandEnd = end;
    ColorSet::Instance()[static_cast<IColorBase::ECOLOR>(2)] = Qt::magenta;
    QImage const image = axis.Painted([&](QPainter & painter) { axis.DrawWhileZoom(painter); });
    QCOMPARE(CoveredLines(image, false).isEmpty(), !covers);
    QCOMPARE(image.pixel(45, 20), QColor(Qt::white).rgb());
}

//! The ruler of this library shows the band over its picture.
void tst_axisbase_band::rulerDrawsTheBand()
{
    ColorSet::Instance()[static_cast<IColorBase::ECOLOR>(2)] = Qt::magenta;
    ColorYRulerLeft ruler;
    ruler.resize(50, 100);
    ruler.SetRange(0.0, 100.0);
    ruler.SetAxisZoomEnable(true, true);
    QTest::mousePress(&ruler, Qt::LeftButton, Qt::NoModifier, QPoint(10, 20));
    QMouseEvent move(QEvent::MouseMove, QPointF(10, 60), QPointF(10, 60), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&ruler, &move);
    QImage image(50, 100, QImage::Format_RGB32);
    ruler.render(&image);
    QCOMPARE(image.pixelColor(2, 20), QColor(Qt::magenta));
    QVERIFY(image.pixelColor(2, 21) != QColor(Qt::magenta));
    QVERIFY(image.pixelColor(2, 59) != QColor(Qt::magenta));
    QCOMPARE(image.pixelColor(2, 60), QColor(Qt::magenta));
    QTest::mouseRelease(&ruler, Qt::LeftButton, Qt::NoModifier, QPoint(10, 60));
    ruler.render(&image);
    QVERIFY(image.pixelColor(2, 20) != QColor(Qt::magenta));
}

void tst_axisbase_band::outsideMarker_data()
{
    QTest::addColumn<int>("y");
    QTest::addColumn<int>("height");
    QTest::addColumn<double>("value"); // NaN: none is found
    QTest::newRow("at the top") << 0 << 100 << 300.0;
    QTest::newRow("last row of the top") << 24 << 100 << 300.0;
    QTest::newRow("below the top") << 25 << 100 << Nothing;
    QTest::newRow("in the middle") << 50 << 100 << Nothing;
    QTest::newRow("above the bottom") << 75 << 100 << Nothing;
    QTest::newRow("first row of the bottom") << 76 << 100 << -300.0;
    QTest::newRow("at the bottom") << 99 << 100 << -300.0;
    QTest::newRow("outside, above") << -5 << 100 << 300.0;
    QTest::newRow("outside, below") << 500 << 100 << -300.0;
    QTest::newRow("both edges at once: the top") << 20 << 30 << 300.0;
    QTest::newRow("low widget, below the top") << 26 << 30 << -300.0;
}

void tst_axisbase_band::outsideMarker()
{
    QFETCH(int, y);
    QFETCH(int, height);
    QFETCH(double, value);

    struct Row
    {
        QRect hit;
        double value;
    };

    // 2 px high above the range, 1 px high below; all others are passed over, and so is the second of a kind
    Row const rows[] = { { QRect(), 1.0 },
                         { QRect(0, 0, 10, 3), 2.0 },
                         { QRect(0, 40, 10, 2), 300.0 },
                         { QRect(0, 90, 10, 1), -300.0 },
                         { QRect(0, 0, 10, 2), 400.0 },
                         { QRect(0, 99, 10, 1), -400.0 } };
    TestMarkerList other; // markers of any list
    ZoomProbe axis(AxisBase::AxisVertical, 20, height);
    int id = 0;
    for (Row const & row : rows) {
        Marker * const marker = other.AddMarker(id++);
        marker->SetValue(row.value);
        marker->SetRect(row.hit);
        axis.AddOutsideMarker(marker);
    }
    double found = 7.0;
    QMouseEvent event = AtRow(y);
    QCOMPARE(axis.FindOutsideMarker(&event, found), !std::isnan(value));
    QCOMPARE(found, std::isnan(value) ? 7.0 : value);
}

void tst_axisbase_band::outsideMarkerOfNothing()
{
    ZoomProbe axis(AxisBase::AxisVertical, 20, 100);
    double found = 7.0;
    QMouseEvent event = AtRow(0);
    QVERIFY(!axis.FindOutsideMarker(&event, found));
    QVERIFY(!axis.FindOutsideMarker(nullptr, found));
    QVERIFY(!axis.ApplyOutsideMarker(nullptr));
    QCOMPARE(found, 7.0);
}

void tst_axisbase_band::rangeTakesInAMarker_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("y");
    QTest::addColumn<bool>("answer");
    QTest::addColumn<QString>("range");
    QTest::newRow("above") << 300.0 << 0 << true << "0..300";
    QTest::newRow("below") << -300.0 << 0 << true << "-300..100";
    QTest::newRow("inside") << 50.0 << 0 << false << "0..100";
    QTest::newRow("at the start") << 0.0 << 0 << false << "0..100";
    QTest::newRow("at the stop") << 100.0 << 0 << false << "0..100";
    QTest::newRow("not found") << 300.0 << 50 << false << "0..100";
}

void tst_axisbase_band::rangeTakesInAMarker()
{
    QFETCH(double, value);
    QFETCH(int, y);
    ZoomProbe axis(AxisBase::AxisVertical, 20, 100);
    Marker * const marker = axis.AddMarker(3);
    marker->SetValue(value);
    marker->SetRect(QRect(0, 0, 10, 2));
    axis.AddOutsideMarker(marker);
    QSignalSpy const zoomed(&axis, &AxisBase::Zoomed);
    QMouseEvent event = AtRow(y);
    QTEST(axis.ApplyOutsideMarker(&event), "answer");
    QTEST(axis.Range(), "range");
    QVERIFY(axis.m_unZoom.empty());
    QCOMPARE(zoomed.count(), 0);
}

ORIM_TEST_MAIN(tst_axisbase_band)
#include "tst_axisbase_band.moc"
