// SPDX-License-Identifier: MIT
#include "clientwindow.h"

#include "clientscene.h"
#include "specialdoubles.h"
#include "testmain.h"

#include <QImage>
#include <QPainter>
#include <QPalette>
#include <qdrawutil.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr int Lowest = std::numeric_limits<int>::min();
constexpr int Highest = std::numeric_limits<int>::max();
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();

//! A list without a scale.
class UnmappedList : public TestMarkerList
{
public:
    double PixelToValue(int /*direction*/, int /*pixel*/) override { return -1.0; }

    int ValueToPixel(int /*direction*/, double /*value*/) override { return -1; }
};

QImage White()
{
    QImage image(101, 61, QImage::Format_RGB32);
    image.fill(Qt::white);
    return image;
}

QImage Framed(ClientWindow & window, int a, int b, IColorBase::ECOLOR color)
{
    QImage image = White();
    QPainter painter(&image);
    window.DrawFrame(a, b, color, &painter);
    return image;
}

} // namespace

class tst_clientwindow_moving : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startAndStop_data();
    void startAndStop();
    void startAndStopShow_data();
    void startAndStopShow();
    void showsWhatTheValueHolds();
    void setAnewWhileWritten_data();
    void setAnewWhileWritten();
    void orderOfWriting_data();
    void orderOfWriting();
    void neverCrosses();
    void gridsThatDiffer();
    void limitsWithoutRoom();
    void interimOfWhatIsUnchanged();
    void leavesItselfOut();
    void recalculates_data();
    void recalculates();
    void recalculatesInItsDirection();
    void moves_data();
    void moves();
    void movesToItsEdge_data();
    void movesToItsEdge();
    void movesOnlyFromAPixel();
    void keepsItsPlaceWhenMovedByNothing();
    void noScale();
    void frame_data();
    void frame();
    void frameColors();
    void frameFollows();
    void noFrame_data();
    void noFrame();
    void noFrameOfOneBorder();
    void switchesBorders_data();
    void switchesBorders();
    void specialDoubles();
    void endsInItsOwnWrite_data();
    void endsInItsOwnWrite();
};

void tst_clientwindow_moving::startAndStop_data()
{
    QTest::addColumn<double>("a");
    QTest::addColumn<double>("b");
    QTest::addColumn<QString>("values");
    QTest::addColumn<QString>("pixels");
    QTest::newRow("in order") << 30.0 << 50.0 << QStringLiteral("30 50") << QStringLiteral("30 50");
    QTest::newRow("out of order") << 50.0 << 30.0 << QStringLiteral("30 50") << QStringLiteral("30 50");
    QTest::newRow("equal") << 50.0 << 50.0 << QStringLiteral("50 50") << QStringLiteral("50 50");
    QTest::newRow("outside has no pixel") << -5.0 << 50.0 << QStringLiteral("-5 50") << QStringLiteral("-1 50");
    QTest::newRow("both outside") << 200.0 << 300.0 << QStringLiteral("200 300") << QStringLiteral("-1 -1");
    QTest::newRow("first is no number") << NaN << 50.0 << QStringLiteral("20 40") << QStringLiteral("20 40");
    QTest::newRow("second is no number") << 50.0 << NaN << QStringLiteral("20 40") << QStringLiteral("20 40");
    QTest::newRow("infinite") << 30.0 << Infinity << QStringLiteral("30 %1").arg(std::numeric_limits<double>::max())
                              << QStringLiteral("30 -1");
}

void tst_clientwindow_moving::startAndStop()
{
    QFETCH(double, a);
    QFETCH(double, b);
    QFETCH(QString, values);
    QFETCH(QString, pixels);
    for (EMarkerXYType const direction : { eMarkerX, eMarkerY }) {
        ClientScene scene(direction);
        scene.Bind();
        scene.window.SetStartStop(a, b, true);
        QCOMPARE(scene.Values(), values);
        QCOMPARE(scene.Pixels(), pixels);
        for (int const asked : scene.list.m_asked)
            QCOMPARE(asked, static_cast<int>(direction));
        QCOMPARE(scene.list.GetMarkerValue(16), scene.start->GetValue()); // the markers follow
        QCOMPARE(scene.list.GetMarkerValue(17), scene.stop->GetValue());
    }
}

void tst_clientwindow_moving::startAndStopShow_data()
{
    QTest::addColumn<bool>("before");
    QTest::addColumn<bool>("show");
    QTest::addColumn<bool>("bound");
    QTest::newRow("shown") << false << true << true;
    QTest::newRow("hidden") << true << false << true;
    QTest::newRow("shown before") << true << true << true;
    QTest::newRow("hidden before") << false << false << true;
    QTest::newRow("shown, visible not bound") << false << true << false;
    QTest::newRow("hidden, visible not bound") << false << false << false;
}

void tst_clientwindow_moving::startAndStopShow()
{
    QFETCH(bool, before);
    QFETCH(bool, show);
    QFETCH(bool, bound);
    ClientScene scene;
    if (bound)
        scene.Bind(before);
    else
        scene.BindBorders();
    scene.list.SetShowMarker(16, !show);
    scene.list.SetShowMarker(17, !show);
    scene.window.SetStartStop(20.0, 40.0, show);
    QCOMPARE(scene.visible->GetValue(), bound && show);
    QCOMPARE(scene.list.GetShowMarkerFlag(16), show);
    QCOMPARE(scene.list.GetShowMarkerFlag(17), show);
    scene.window.SetStartStop(NaN, 40.0, !show); // the values are refused, the rest is not
    QCOMPARE(scene.list.GetShowMarkerFlag(16), !show);
}

void tst_clientwindow_moving::showsWhatTheValueHolds()
{
    ClientScene scene;
    scene.Bind(false);
    Meddler refuses([&] { scene.visible->SetValue(false, nullptr); });
    scene.visible->AddObserver(&refuses);
    scene.window.SetStartStop(30.0, 50.0, true);
    QVERIFY(!scene.visible->GetValue());
    QVERIFY(!scene.list.GetShowMarkerFlag(16));
    Meddler refusesAgain([&] { scene.visible->SetValue(false, nullptr); });
    scene.visible->AddObserver(&refusesAgain);
    scene.window.Show(true);
    QVERIFY(!scene.window.IsVisible());
    QVERIFY(!scene.list.GetShowMarkerFlag(16));
    QVERIFY(!scene.list.GetShowMarkerFlag(17));
}

void tst_clientwindow_moving::setAnewWhileWritten_data()
{
    QTest::addColumn<double>("a");
    QTest::addColumn<double>("b");
    QTest::addColumn<bool>("byStop");
    QTest::addColumn<double>("newA");
    QTest::addColumn<double>("newB");
    QTest::addColumn<QString>("values");
    QTest::newRow("above what is still to be written") << 25.0 << 30.0 << false << 60.0 << 80.0 << "60 80";
    QTest::newRow("below what is still to be written") << 60.0 << 80.0 << true << 5.0 << 10.0 << "5 10";
}

//! Who hears of the first border sets both.
void tst_clientwindow_moving::setAnewWhileWritten()
{
    QFETCH(double, a);
    QFETCH(double, b);
    QFETCH(bool, byStop);
    QFETCH(double, newA);
    QFETCH(double, newB);
    QFETCH(QString, values);
    ClientScene scene;
    scene.Bind();
    BorderWatch const watch(scene.start.Get(), scene.stop.Get());
    Meddler meddler([&] { scene.window.SetStartStop(newA, newB, true); });
    meddler.m_code = eValueChanged;
    (byStop ? scene.stop : scene.start)->AddObserver(&meddler);
    scene.window.SetStartStop(a, b, true);
    QCOMPARE(watch.m_crossed, 0);
    QCOMPARE(scene.Values(), values);
    QCOMPARE(scene.Pixels(), values);
}

void tst_clientwindow_moving::orderOfWriting_data()
{
    QTest::addColumn<double>("a");
    QTest::addColumn<double>("b");
    QTest::addColumn<QStringList>("heard");
    auto const heard = [](char const * first, char const * second) {
        return QStringList{ QLatin1String(first), QLatin1String(second) };
    };
    QTest::newRow("start above the present stop") << 60.0 << 80.0 << heard("stop 80", "start 60");
    QTest::newRow("start above the present stop, out of order") << 80.0 << 60.0 << heard("stop 80", "start 60");
    QTest::newRow("stop below the present start") << 5.0 << 10.0 << heard("start 5", "stop 10");
    QTest::newRow("wider") << 10.0 << 50.0 << heard("start 10", "stop 50");
    QTest::newRow("narrower") << 25.0 << 35.0 << heard("start 25", "stop 35");
    QTest::newRow("start on the present stop") << 40.0 << 60.0 << heard("start 40", "stop 60");
    QTest::newRow("stop on the present start") << 10.0 << 20.0 << heard("start 10", "stop 20");
    QTest::newRow("start unchanged") << 20.0 << 50.0 << QStringList{ QStringLiteral("stop 50") };
    QTest::newRow("stop unchanged") << 40.0 << 10.0 << QStringList{ QStringLiteral("start 10") };
    QTest::newRow("nothing changed") << 40.0 << 20.0 << QStringList{};
}

void tst_clientwindow_moving::orderOfWriting()
{
    QFETCH(double, a);
    QFETCH(double, b);
    QFETCH(QStringList, heard);
    ClientScene scene;
    scene.Bind();
    BorderWatch const watch(scene.start.Get(), scene.stop.Get());
    scene.window.SetStartStop(a, b, true);
    QCOMPARE(watch.m_heard, heard);
    QCOMPARE(watch.m_crossed, 0);
    QCOMPARE(scene.Values(), QStringLiteral("%1 %2").arg(std::min(a, b)).arg(std::max(a, b)));
}

void tst_clientwindow_moving::neverCrosses()
{
    ClientScene scene;
    scene.Bind();
    BorderWatch const watch(scene.start.Get(), scene.stop.Get());
    std::mt19937_64 random(TestStage::Seed());
    std::uniform_real_distribution<double> anywhere(-20.0, 120.0);
    std::uniform_int_distribution<int> offset(-150, 150);
    for (int turn = 0; turn < 2000; ++turn) {
        if (turn % 2 == 0)
            scene.window.SetStartStop(anywhere(random), anywhere(random), true);
        else
            scene.window.MovePixelOffset(offset(random));
        QVERIFY(scene.start->GetValue() <= scene.stop->GetValue());
    }
    QVERIFY(watch.m_heard.size() > 2000);
    QCOMPARE(watch.m_crossed, 0);
}

//! What counts is what the values hold after their limits and steps.
void tst_clientwindow_moving::gridsThatDiffer()
{
    ClientScene scene;
    scene.start->SetMinMax(0.0, 100.0, 10.0, nullptr);
    scene.Bind();
    scene.window.SetStartStop(0.0, 9.0, true);
    BorderWatch const watch(scene.start.Get(), scene.stop.Get());
    scene.window.SetStartStop(8.0, 30.0, true); // 8 becomes 10, which is above 9
    QCOMPARE(watch.m_heard, (QStringList{ QStringLiteral("stop 30"), QStringLiteral("start 10") }));
    QCOMPARE(watch.m_crossed, 0);
    QCOMPARE(scene.Pixels(), QStringLiteral("10 30"));
    scene.window.SetStartStop(16.0, 18.0, true); // 16 would become 20
    QCOMPARE(scene.Values(), QStringLiteral("10 30"));
    QCOMPARE(watch.m_crossed, 0);
}

void tst_clientwindow_moving::limitsWithoutRoom()
{
    ClientScene scene;
    scene.start->SetMinMax(10.0, 30.0, 0.0, nullptr);
    scene.stop->SetMinMax(30.0, 50.0, 0.0, nullptr);
    scene.Bind();
    scene.window.SetStartStop(0.0, 100.0, true); // limits win
    QCOMPARE(scene.Values(), QStringLiteral("10 50"));
    QCOMPARE(scene.Pixels(), QStringLiteral("10 50"));
    scene.window.SetStartStop(80.0, 90.0, true);
    QCOMPARE(scene.Values(), QStringLiteral("30 50"));
    scene.start->SetMinMax(60.0, 90.0, 0.0, nullptr); // above every stop
    scene.window.SetStartStop(0.0, 100.0, true);
    QCOMPARE(scene.Values(), QStringLiteral("60 50"));
}

//! A write of the value held would end a drag.
void tst_clientwindow_moving::interimOfWhatIsUnchanged()
{
    ClientScene scene;
    scene.Bind();
    scene.start->SetInterimValue(25.0, nullptr);
    scene.stop->SetInterimValue(45.0, nullptr);
    scene.window.SetStartStop(20.0, 50.0, true);
    QCOMPARE(scene.stop->GetInterimValue(), 50.0);
    QCOMPARE(scene.start->GetInterimValue(), 20.0); // shown markers read their value anew
    scene.window.SetParent(nullptr);
    scene.start->SetInterimValue(25.0, nullptr);
    scene.window.SetStartStop(20.0, 60.0, true);
    QCOMPARE(scene.start->GetInterimValue(), 25.0);
}

//! Who hears its own write would map the pixel twice.
void tst_clientwindow_moving::leavesItselfOut()
{
    ClientScene scene;
    scene.Bind();
    scene.list.Forget();
    scene.window.SetStartStop(30.0, 50.0, true);
    QCOMPARE(scene.list.m_asked.size(), std::size_t(2));
}

void tst_clientwindow_moving::recalculates_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<double>("first");
    QTest::addColumn<double>("last");
    QTest::addColumn<QString>("pixels");
    QTest::newRow("inside") << 20.0 << 40.0 << 0.0 << 100.0 << QStringLiteral("20 40");
    QTest::newRow("out of order") << 40.0 << 20.0 << 0.0 << 100.0 << QStringLiteral("20 40");
    QTest::newRow("start before the range") << -5.0 << 40.0 << 0.0 << 100.0 << QStringLiteral("0 40");
    QTest::newRow("stop behind the range") << 20.0 << 400.0 << 0.0 << 100.0 << QStringLiteral("20 100");
    QTest::newRow("around the range") << -5.0 << 400.0 << 0.0 << 100.0 << QStringLiteral("0 100");
    QTest::newRow("before the range") << -50.0 << -5.0 << 0.0 << 100.0 << QStringLiteral("0 0");
    QTest::newRow("behind the range") << 101.0 << 102.0 << 0.0 << 100.0 << QStringLiteral("100 100");
    QTest::newRow("falling range") << 20.0 << 40.0 << 100.0 << 0.0 << QStringLiteral("80 60");
    QTest::newRow("beyond a falling range") << -20.0 << 400.0 << 100.0 << 0.0 << QStringLiteral("100 0");
    QTest::newRow("range of no numbers") << 20.0 << 40.0 << NaN << NaN << QStringLiteral("-1 -1");
}

void tst_clientwindow_moving::recalculates()
{
    QFETCH(double, start);
    QFETCH(double, stop);
    QFETCH(double, first);
    QFETCH(double, last);
    QFETCH(QString, pixels);
    ClientScene scene;
    scene.start->SetValue(start, nullptr);
    scene.stop->SetValue(stop, nullptr);
    scene.Bind();
    scene.list.m_start = first;
    scene.list.m_stop = last;
    scene.window.RecalcBorders();
    QCOMPARE(scene.Pixels(), pixels);
    QCOMPARE(scene.start->GetValue(), start); // nothing is written
    QCOMPARE(scene.stop->GetValue(), stop);
}

void tst_clientwindow_moving::recalculatesInItsDirection()
{
    for (EMarkerXYType const direction : { eMarkerX, eMarkerY }) {
        ClientScene scene(direction);
        scene.Bind();
        scene.window.RecalcBorders();
        QCOMPARE(scene.list.m_asked, std::vector<int>(3, direction)); // the range, and both ends
    }
}

void tst_clientwindow_moving::moves_data()
{
    QTest::addColumn<int>("offset");
    QTest::addColumn<QString>("expected");
    QTest::newRow("forward") << 10 << QStringLiteral("30 50");
    QTest::newRow("back") << -15 << QStringLiteral("5 25");
    QTest::newRow("beyond itself") << 50 << QStringLiteral("70 90");
    QTest::newRow("not at all") << 0 << QStringLiteral("20 40");
    QTest::newRow("start to the edge") << -20 << QStringLiteral("0 20");
    QTest::newRow("past the first edge") << -30 << QStringLiteral("0 10");
    QTest::newRow("wholly past it") << -1000 << QStringLiteral("0 0");
    QTest::newRow("lowest") << Lowest << QStringLiteral("0 0");
}

void tst_clientwindow_moving::moves()
{
    QFETCH(int, offset);
    QFETCH(QString, expected);
    for (EMarkerXYType const direction : { eMarkerX, eMarkerY }) {
        ClientScene scene(direction);
        scene.list.resize(101, 101);
        scene.Bind();
        BorderWatch const watch(scene.start.Get(), scene.stop.Get());
        scene.window.MovePixelOffset(offset);
        QCOMPARE(scene.Values(), expected);
        QCOMPARE(scene.Pixels(), expected);
        QCOMPARE(watch.m_crossed, 0);
        for (int const asked : scene.list.m_asked)
            QCOMPARE(asked, static_cast<int>(direction));
    }
}

void tst_clientwindow_moving::movesToItsEdge_data()
{
    QTest::addColumn<int>("direction");
    QTest::addColumn<int>("offset");
    QTest::addColumn<QString>("values");
    QTest::addColumn<QString>("pixels");
    QTest::newRow("width along X") << 0 << 50 << QStringLiteral("70 81") << QStringLiteral("70 81");
    QTest::newRow("both at the width") << 0 << 1000 << QStringLiteral("81 81") << QStringLiteral("81 81");
    QTest::newRow("height along Y") << 1 << 10 << QStringLiteral("30 47") << QStringLiteral("30 47");
    QTest::newRow("both at the height") << 1 << Highest << QStringLiteral("47 47") << QStringLiteral("47 47");
}

void tst_clientwindow_moving::movesToItsEdge()
{
    QFETCH(int, direction);
    QFETCH(int, offset);
    QFETCH(QString, values);
    QFETCH(QString, pixels);
    ClientScene scene(static_cast<EMarkerXYType>(direction));
    scene.list.resize(81, 47);
    scene.Bind();
    scene.window.MovePixelOffset(offset);
    QCOMPARE(scene.Values(), values);
    QCOMPARE(scene.Pixels(), pixels);
    scene.list.m_stop = 60.0; // a pixel past the scale shows a value past it, and is clipped
    scene.list.m_pixels = 41;
    scene.window.RecalcBorders();
    scene.window.MovePixelOffset(1000);
    QVERIFY(scene.stop->GetValue() > 60.0);
    QCOMPARE(scene.Pixels(), QStringLiteral("40 40"));
}

void tst_clientwindow_moving::movesOnlyFromAPixel()
{
    ClientScene scene;
    scene.Bind();
    scene.stop->SetValue(400.0, nullptr);
    scene.window.MovePixelOffset(10);
    QCOMPARE(scene.Values(), QStringLiteral("20 400"));
    scene.window.RecalcBorders(); // clipped, it has one
    scene.window.MovePixelOffset(-10);
    QCOMPARE(scene.Values(), QStringLiteral("10 90"));
    scene.window.SetStartStop(-5.0, 40.0, true);
    scene.window.MovePixelOffset(10);
    QCOMPARE(scene.Values(), QStringLiteral("-5 40"));
}

void tst_clientwindow_moving::keepsItsPlaceWhenMovedByNothing()
{
    ClientScene scene;
    scene.list.resize(1001, 20);
    scene.list.m_pixels = 1001;
    scene.list.m_stop = 7.0;
    scene.start->SetValue(1.7, nullptr);
    scene.stop->SetValue(3.3, nullptr);
    scene.Bind();
    QString const before = scene.Pixels();
    for (int turn = 0; turn < 1000; ++turn)
        scene.window.MovePixelOffset(turn % 2 == 0 ? 7 : -7);
    QCOMPARE(scene.Pixels(), before);
}

void tst_clientwindow_moving::noScale()
{
    TreeNumber const start("start", 20.0);
    TreeNumber const stop("stop", 40.0);
    UnmappedList list;
    ClientWindow window(&list, eMarkerX);
    window.SetStart_ValuePath(start.Path(), 16);
    window.SetStop_ValuePath(stop.Path(), 17);
    window.RecalcBorders();
    window.MovePixelOffset(10);
    QCOMPARE(start->GetValue(), 20.0);
    QCOMPARE(stop->GetValue(), 40.0);
    QImage const image = Framed(window, 0, 20, IColorBase::eColorGood);
    QCOMPARE(image, White());
}

void tst_clientwindow_moving::frame_data()
{
    QTest::addColumn<int>("direction");
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<int>("a");
    QTest::addColumn<int>("b");
    QTest::addColumn<bool>("falling");
    QTest::addColumn<QRect>("rect");
    QTest::newRow("along X") << 0 << 20.0 << 40.0 << 5 << 50 << false << QRect(20, 5, 20, 45);
    QTest::newRow("along X, values out of order") << 0 << 40.0 << 20.0 << 5 << 50 << false << QRect(20, 5, 20, 45);
    QTest::newRow("along X, ends out of order") << 0 << 20.0 << 40.0 << 50 << 5 << false << QRect(20, 5, 20, 45);
    QTest::newRow("along X, falling") << 0 << 20.0 << 40.0 << 5 << 50 << true << QRect(60, 5, 20, 45);
    QTest::newRow("along X, clipped") << 0 << -20.0 << 40.0 << 5 << 50 << false << QRect(0, 5, 40, 45);
    QTest::newRow("along Y") << 1 << 20.0 << 40.0 << 5 << 80 << false << QRect(5, 20, 75, 20);
    QTest::newRow("along Y, falling") << 1 << 45.0 << 55.0 << 5 << 80 << true << QRect(5, 45, 75, 10);
    QTest::newRow("along Y, ends out of order") << 1 << 20.0 << 40.0 << 80 << 5 << false << QRect(5, 20, 75, 20);
    QTest::newRow("across all") << 0 << 20.0 << 40.0 << Lowest << Highest << false << QRect(20, -100000, 20, 200000);
}

void tst_clientwindow_moving::frame()
{
    QFETCH(int, direction);
    QFETCH(double, start);
    QFETCH(double, stop);
    QFETCH(int, a);
    QFETCH(int, b);
    QFETCH(bool, falling);
    QFETCH(QRect, rect);
    ClientScene scene(static_cast<EMarkerXYType>(direction));
    scene.start->SetValue(start, nullptr);
    scene.stop->SetValue(stop, nullptr);
    scene.Bind();
    if (falling)
        std::swap(scene.list.m_start, scene.list.m_stop);
    QImage expected = White();
    QPainter painter(&expected);
    qDrawShadeRect(&painter, rect.x(), rect.y(), rect.width(), rect.height(),
                   QPalette(ColorSet::Instance()[IColorBase::eColorGood]), false, 1, 0);
    painter.end();
    QVERIFY(expected != White());
    QCOMPARE(Framed(scene.window, a, b, IColorBase::eColorGood), expected);
}

void tst_clientwindow_moving::frameColors()
{
    ClientScene scene;
    scene.Bind();
    QColor const color = ColorSet::Instance()[IColorBase::eColorGood];
    QImage const image = Framed(scene.window, 5, 50, IColorBase::eColorGood);
    QPalette const palette(color);
    QCOMPARE(image.pixel(20, 5), palette.light().color().rgb()); // a raised edge is light at the top left
    QCOMPARE(image.pixel(21, 6), palette.dark().color().rgb());  // and one pixel wide
    QCOMPARE(image.pixel(39, 49), palette.dark().color().rgb()); // dark at the bottom right
    QCOMPARE(image.pixel(30, 30), QColor(Qt::white).rgb());      // not filled
    QCOMPARE(image.pixel(40, 30), QColor(Qt::white).rgb());      // the stop pixel is left out
    QCOMPARE(image.pixel(30, 50), QColor(Qt::white).rgb());
    QVERIFY(image != Framed(scene.window, 5, 50, IColorBase::eColorWarning));
    Framed(scene.window, 5, 50, static_cast<IColorBase::ECOLOR>(-7)); // a colour that is none is harmless
}

void tst_clientwindow_moving::frameFollows()
{
    ClientScene scene;
    scene.Bind();
    scene.stop->SetValue(400.0, nullptr);
    QCOMPARE(scene.Pixels(), QStringLiteral("20 -1"));
    Framed(scene.window, 5, 50, IColorBase::eColorGood);
    QCOMPARE(scene.Pixels(), QStringLiteral("20 100"));
    scene.visible->SetValue(false, nullptr); // it is the pane that asks whether the window is valid
    QVERIFY(Framed(scene.window, 5, 50, IColorBase::eColorGood) != White());
    scene.list.m_stop = 200.0;
    scene.window.DrawFrame(5, 50, IColorBase::eColorGood, nullptr);
    QCOMPARE(scene.Pixels(), QStringLiteral("10 100"));
}

void tst_clientwindow_moving::noFrame_data()
{
    QTest::addColumn<int>("direction");
    QTest::addColumn<bool>("bound");
    QTest::addColumn<double>("stop");
    QTest::addColumn<int>("b");
    QTest::newRow("another direction") << 2 << true << 40.0 << 50;
    QTest::newRow("a negative direction") << -1 << true << 40.0 << 50;
    QTest::newRow("nothing bound") << 0 << false << 40.0 << 50;
    QTest::newRow("no length") << 0 << true << 20.0 << 50;
    QTest::newRow("no breadth") << 0 << true << 40.0 << 5;
    QTest::newRow("no breadth along Y") << 1 << true << 40.0 << 5;
}

void tst_clientwindow_moving::noFrame()
{
    QFETCH(int, direction);
    QFETCH(bool, bound);
    QFETCH(double, stop);
    QFETCH(int, b);
    ClientScene scene(static_cast<EMarkerXYType>(direction));
    scene.stop->SetValue(stop, nullptr);
    if (bound)
        scene.Bind();
    QCOMPARE(Framed(scene.window, 5, b, IColorBase::eColorGood), White());
}

void tst_clientwindow_moving::noFrameOfOneBorder()
{
    ClientScene scene;
    scene.window.SetStart_ValuePath(scene.start.Path(), 16);
    QCOMPARE(Framed(scene.window, 5, 50, IColorBase::eColorGood), White());
    scene.window.SetStop_ValuePath(scene.stop.Path(), 17);
    QVERIFY(Framed(scene.window, 5, 50, IColorBase::eColorGood) != White());
    scene.window.SetParent(nullptr);
    QCOMPARE(Framed(scene.window, 5, 50, IColorBase::eColorGood), White());
}

void tst_clientwindow_moving::switchesBorders_data()
{
    QTest::addColumn<int>("direction");
    QTest::addColumn<int>("startColor");
    QTest::newRow("along X") << 0 << 30;
    QTest::newRow("along Y") << 1 << 31;
}

void tst_clientwindow_moving::switchesBorders()
{
    QFETCH(int, direction);
    QFETCH(int, startColor);
    int const stopColor = 61 - startColor;
    ClientScene scene(static_cast<EMarkerXYType>(direction));
    scene.Bind();
    scene.start->SetValue(60.0, nullptr); // dragged past the stop
    QCOMPARE(scene.Pixels(), QStringLiteral("60 40"));
    for (bool const switched : { true, false }) {
        scene.window.SwitchBorders();
        QCOMPARE(scene.window.GetStartMarkerId(), switched ? 17 : 16);
        QCOMPARE(scene.window.GetStopMarkerId(), switched ? 16 : 17);
        QCOMPARE(static_cast<int>(scene.list.GetMarker(17)->GetColor()), switched ? startColor : stopColor);
        QCOMPARE(static_cast<int>(scene.list.GetMarker(16)->GetColor()), switched ? stopColor : startColor);
        QCOMPARE(scene.Pixels(), QStringLiteral("40 60"));
        QCOMPARE(scene.list.GetValueTreePath(16), scene.start.Path()); // each follows its value
        QCOMPARE(scene.list.GetValueTreePath(17), scene.stop.Path());
        QCOMPARE(scene.Values(), QStringLiteral("60 40"));
    }
}

//! Every pair as start and stop, and as range of the axis.
void tst_clientwindow_moving::specialDoubles()
{
    ClientScene scene;
    scene.Bind();
    BorderWatch const watch(scene.start.Get(), scene.stop.Get());
    std::vector<double> const all = SpecialDoubles();
    for (double const a : all)
        for (double const b : all) {
            scene.window.SetStartStop(a, b, true);
            QVERIFY(scene.start->GetValue() <= scene.stop->GetValue());
            scene.window.RecalcBorders();
            scene.window.MovePixelOffset(1);
            scene.list.m_start = a;
            scene.list.m_stop = b;
            scene.window.RecalcBorders();
            scene.window.MovePixelOffset(-1);
            scene.window.HasPoint(scene.window.ValueToPixel(0, a));
            QVERIFY(scene.start->GetValue() <= scene.stop->GetValue());
            scene.list.m_start = 0.0;
            scene.list.m_stop = 100.0;
        }
    QCOMPARE(watch.m_crossed, 0);
    scene.window.SetStartStop(20.0, 40.0, true);
    QCOMPARE(scene.Pixels(), QStringLiteral("20 40"));
}

void tst_clientwindow_moving::endsInItsOwnWrite_data()
{
    QTest::addColumn<int>("what");
    QTest::addColumn<bool>("isMove");
    char const * const whats[] = { "window", "parent", "start", "stop" };
    for (int what = 0; what < 4; ++what)
        for (bool const isMove : { false, true })
            QTest::addRow("%s while %s", whats[what], isMove ? "moved" : "set") << what << isMove;
}

void tst_clientwindow_moving::endsInItsOwnWrite()
{
    QFETCH(int, what);
    QFETCH(bool, isMove);
    TreeNumber start("start", 20.0);
    TreeNumber stop("stop", 40.0);
    auto list = std::make_unique<TestMarkerList>();
    list->resize(101, 20);
    auto window = std::make_unique<ClientWindow>(list.get(), eMarkerX);
    ClientWindow * const p = window.get();
    p->SetStart_ValuePath(start.Path(), 16);
    p->SetStop_ValuePath(stop.Path(), 17);
    bool done = false;
    Meddler meddler([&] {
        done = true;
        if (what == 0)
            window.reset();
        else if (what == 1)
            list.reset();
        else
            (what == 2 ? start : stop).Remove();
    });
    meddler.m_code = eValueChanged;
    start->AddObserver(&meddler);
    if (isMove)
        p->MovePixelOffset(5);
    else
        p->SetStartStop(25.0, 45.0, true);
    QVERIFY(done);
    if (what <= 1)
        QCOMPARE(stop->GetValue(), what == 0 ? 40.0 : 45.0); // without the window nobody goes on
    if (what == 2)
        QCOMPARE(stop->GetValue(), 45.0);
    if (window)
        QCOMPARE(window->Connected(), false);
}

ORIM_TEST_MAIN(tst_clientwindow_moving)
#include "tst_clientwindow_moving.moc"
