// SPDX-License-Identifier: MIT
#include "bearingpane.h"

#include "azimuthdisplayselect.h"
#include "azimuthview.h"
#include "bearingtools.h"
#include "colorset.h"
#include "consolebearings.h"
#include "consolevalues.h"
#include "frequencyaxis.h"
#include "markertools.h"
#include "panetools.h"
#include "rangetools.h"
#include "testmain.h"

#include <QProcess>
#include <QProcessEnvironment>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

using namespace BearingTools;
using namespace MarkerTools;
using namespace PaneTools;

class tst_BearingPane : public QObject, private BearingTools::Stage
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void init() { Begin(); }

    void cleanup() { End(); }

    void bandLiesAtItsDirection_data();
    void bandLiesAtItsDirection();
    void bandAcrossTheEndIsDrawnInTwoParts_data();
    void bandAcrossTheEndIsDrawnInTwoParts();
    void elevationDoesNotTurn();
    void bandIsAsWideAsItsUncertainty_data();
    void bandIsAsWideAsItsUncertainty();
    void bandIsAsLongAsItsChannel();
    void selectedBandCrossesThePicture();
    void pointLiesAtItsMeasurement_data();
    void pointLiesAtItsMeasurement();
    void pictureMovesWithTheFrequencies();
    void onlyWhatChangedIsPainted();
    void piecesMakeTheWholePicture();
    void clickSelects_data();
    void clickSelects();
    void keysSelect();
    void markerTellsWhatItCrosses();
    void badNumbersShowNothing_data();
    void badNumbersShowNothing();
    void pictureFollowsTheRatio();
    void anyRatioHolds_data();
    void anyRatioHolds();
    void anySizeHolds_data();
    void anySizeHolds();
    void bandOnTheScaleZooms();
    void keysMoveTheRange();
    void doubleClickLeavesTheCircle();
    void menuLeadsToTheRanges();
    void ticsDivideTheCircle_data();
    void ticsDivideTheCircle();
    void withoutValuesItStillShowsTheMode();
};

namespace {

//! The picture without bands.
QImage EmptyPicture(BearingPane const & pane)
{
    SetResults({});
    return pane.GetPicture();
}

} // namespace

void tst_BearingPane::bandLiesAtItsDirection_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<double>("bearing");
    QTest::addColumn<int>("row"); // of 360, from the bottom
    QTest::newRow("absolute") << 5 << 100.5 << 100;
    QTest::newRow("absolute, below 0") << 5 << -9.5 << 350;
    QTest::newRow("absolute, above a turn") << 5 << 370.5 << 10;
    QTest::newRow("absolute signed, starboard") << 9 << 100.5 << 280;
    QTest::newRow("absolute signed, port") << 9 << 305.5 << 125;
    QTest::newRow("relative") << 6 << 100.5 << 70;
    QTest::newRow("relative, to port") << 6 << 10.5 << 340;
    QTest::newRow("relative signed") << 10 << 100.5 << 250;
    QTest::newRow("relative signed, to port") << 10 << 10.5 << 160;
}

void tst_BearingPane::bandLiesAtItsDirection()
{
    QFETCH(int, key);
    QFETCH(double, bearing);
    QFETCH(int, row);
    BearingPane & pane = Make();
    QRect const picture = pane.GetPictureRect();
    QCOMPARE(picture.height(), 360);
    ConsoleValues::Set(ConsolePaths::Heading, 30.0);
    SetResults({ ResultAt(305e3, bearing) });
    AzimuthDisplaySelect::Instance().Select(key);
    pane.grab();
    int const x = ColumnIn(pane, 305e3);
    int const y = picture.bottom() - row;
    QCOMPARE(PixelOf(pane, x, y), ResultColor());
    QCOMPARE(PixelOf(pane, x - BearingPane::LeastReach, y), ResultColor());
    QCOMPARE(PixelOf(pane, x + BearingPane::LeastReach, y), ResultColor());
    QVERIFY(PixelOf(pane, x + BearingPane::LeastReach + 1, y) != ResultColor());
    QVERIFY(IsNear(PixelOf(pane, x, y - 1), PaneLayout::Mix(Colors().ground, ResultColor(), 0.4)));
    QVERIFY(IsNear(PixelOf(pane, x, y + 1), PaneLayout::Mix(Colors().ground, ResultColor(), 0.4)));
    QCOMPARE(pane.GetBands().size(), std::size_t(1));
    QCOMPARE(pane.GetBands()[0].line.top(), y);
}

void tst_BearingPane::bandAcrossTheEndIsDrawnInTwoParts_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<double>("bearing");
    QTest::addColumn<int>("parts");
    QTest::newRow("absolute, north") << 5 << 0.0 << 2;
    QTest::newRow("absolute, just below north") << 5 << 357.0 << 2;
    QTest::newRow("absolute, south") << 5 << 180.0 << 1;
    QTest::newRow("absolute signed, north") << 9 << 0.0 << 1;
    QTest::newRow("absolute signed, south") << 9 << 180.0 << 2;
    QTest::newRow("relative, ahead") << 6 << 30.0 << 2;
    QTest::newRow("relative, north") << 6 << 0.0 << 1;
    QTest::newRow("relative signed, ahead") << 10 << 30.0 << 1;
    QTest::newRow("relative signed, astern") << 10 << 210.0 << 2;
}

void tst_BearingPane::bandAcrossTheEndIsDrawnInTwoParts()
{
    QFETCH(int, key);
    QFETCH(double, bearing);
    QFETCH(int, parts);
    BearingPane & pane = Make();
    QRect const picture = pane.GetPictureRect();
    ConsoleValues::Set(ConsolePaths::Heading, 30.0);
    AzimuthDisplaySelect::Instance().Select(key);
    SetResults({ ResultAt(305e3, bearing, 0.0, 0.0) }); // 6 deg to either side
    pane.grab();
    QCOMPARE(pane.GetBands()[0].parts.size(), static_cast<std::size_t>(parts));
    int const x = ColumnIn(pane, 305e3) + 3;
    int rows = 0;
    bool isGap = false;
    for (int y = picture.top(); y <= picture.bottom(); ++y) {
        bool const isBand = PixelOf(pane, x, y).red() > Colors().ground.red() + 5;
        rows += isBand ? 1 : 0;
        isGap = isGap || (!isBand && rows > 0 && rows < 12);
    }
    QVERIFY2(rows >= 12 && rows <= 14, qPrintable(QString::number(rows)));
    QCOMPARE(isGap, parts == 2);
    bool const atTop = PixelOf(pane, x, picture.top()).red() > 5;
    bool const atBottom = PixelOf(pane, x, picture.bottom()).red() > 5;
    QCOMPARE(atTop && atBottom, parts == 2);
}

void tst_BearingPane::elevationDoesNotTurn()
{
    BearingPane & pane = Make(Kind::eElevation);
    QRect const picture = pane.GetPictureRect();
    SetResults({ ResultAt(305e3, 0.0, 89.5, 0.0), ResultAt(505e3, 0.0, -29.5, 0.0), ResultAt(705e3, 0.0, 30.0) });
    pane.grab();
    QCOMPARE(pane.GetBands()[0].parts.size(), std::size_t(1));
    QCOMPARE(pane.GetBands()[0].parts[0].top(), picture.top());
    QCOMPARE(pane.GetBands()[1].parts.size(), std::size_t(1));
    QCOMPARE(pane.GetBands()[1].parts[0].bottom(), picture.bottom());
    QCOMPARE(pane.GetBands()[2].line.top(), RowIn(pane, 0.5)); // from 30 below to 90 above the horizon
    // the mode of azimuths means nothing here
    QImage const before = pane.GetPicture();
    AzimuthDisplaySelect::Instance().Select(10);
    pane.grab();
    QCOMPARE(pane.GetLevelMin(), -30.0);
    QVERIFY(pane.GetPicture() == before);
}

void tst_BearingPane::bandIsAsWideAsItsUncertainty_data()
{
    QTest::addColumn<bool>("azimuth");
    QTest::addColumn<double>("quality");
    QTest::addColumn<double>("degrees"); // to either side
    QTest::newRow("worst azimuth") << true << 0.0 << 6.0;
    QTest::newRow("azimuth") << true << 50.0 << 3.15;
    QTest::newRow("best azimuth is as wide as can be seen") << true << 100.0 << 1.5;
    QTest::newRow("worst elevation") << false << 0.0 << 3.0;
    QTest::newRow("elevation") << false << 50.0 << 1.575;
    QTest::newRow("best elevation is as wide as can be seen") << false << 100.0 << 0.5;
}

void tst_BearingPane::bandIsAsWideAsItsUncertainty()
{
    QFETCH(bool, azimuth);
    QFETCH(double, quality);
    QFETCH(double, degrees);
    BearingPane & pane = Make(azimuth ? Kind::eAzimuth : Kind::eElevation);
    SetResults({ ResultAt(305e3, 40.0, 40.0, quality) });
    pane.grab();
    double const rows = 2.0 * degrees * (azimuth ? 1.0 : 3.0);
    QCOMPARE(pane.GetBands()[0].parts.size(), std::size_t(1));
    int const height = pane.GetBands()[0].parts[0].height();
    QVERIFY2(std::abs(height - rows) <= 2.0, qPrintable(QString::number(height)));
}

void tst_BearingPane::bandIsAsLongAsItsChannel()
{
    BearingPane & pane = Make();
    double const pixel = Span / pane.GetPictureRect().width();
    SetResults({ ResultAt(305e3, 40.0, 0.0, 100.0, 201.0 * pixel), ResultAt(705e3, 40.0, 0.0, 100.0, pixel),
                 ResultAt(995e3, 40.0, 0.0, 100.0, 1e30), ResultAt(1.5e6, 40.0) });
    pane.grab();
    QRect const picture = pane.GetPictureRect();
    QCOMPARE(pane.GetBands()[0].line.width(), 201);
    QCOMPARE(pane.GetBands()[1].line.width(), 2 * BearingPane::LeastReach + 1);
    QCOMPARE(pane.GetBands()[2].line.right(), picture.right()); // cut there
    QCOMPARE(pane.GetBands()[2].line.left(), picture.left());
    QVERIFY(pane.GetBands()[3].parts.empty()); // out of view
    QVERIFY(pane.GetBands()[3].line.isNull());
}

void tst_BearingPane::selectedBandCrossesThePicture()
{
    BearingPane & pane = Make();
    SetResults({ ResultAt(305e3, 40.5, 0.0, 0.0), ResultAt(705e3, 200.5, 0.0, 0.0) });
    QRect const picture = pane.GetPictureRect();
    for (int const selected : { 0, 1, -1 }) {
        ConsoleBearings::Select(selected);
        QImage const now = pane.GetPicture(); // at once
        for (int const result : { 0, 1 }) {
            int const y = picture.bottom() - (result == 0 ? 43 : 203);
            QColor const far = now.pixelColor(picture.left() + 1, y);
            QColor const across = PaneLayout::Mix(Colors().ground, ResultColor(true), 0.14);
            QCOMPARE(IsNear(far, across), result == selected);
            QCOMPARE(IsNear(now.pixelColor(picture.right() - 1, y), across), result == selected);
            QCOMPARE(now.pixelColor(ColumnIn(pane, result == 0 ? 305e3 : 705e3),
                                    picture.bottom() - (result == 0 ? 40 : 200)),
                     ResultColor(result == selected));
        }
    }
}

void tst_BearingPane::pointLiesAtItsMeasurement_data()
{
    QTest::addColumn<bool>("azimuth");
    QTest::addColumn<int>("key");
    QTest::addColumn<double>("degrees");
    QTest::addColumn<int>("row"); // of 360, from the bottom
    QTest::newRow("absolute") << true << 5 << 100.5 << 100;
    QTest::newRow("absolute, below 0") << true << 5 << -359.5 << 0;
    QTest::newRow("absolute signed") << true << 9 << 300.5 << 120;
    QTest::newRow("relative") << true << 6 << 10.5 << 340;
    QTest::newRow("relative signed") << true << 10 << 10.5 << 160;
    QTest::newRow("elevation") << false << 5 << 30.1 << 180;
    QTest::newRow("elevation in a relative mode") << false << 10 << -29.9 << 0;
}

void tst_BearingPane::pointLiesAtItsMeasurement()
{
    QFETCH(bool, azimuth);
    QFETCH(int, key);
    QFETCH(double, degrees);
    QFETCH(int, row);
    BearingPane & pane = Make(azimuth ? Kind::eAzimuth : Kind::eElevation);
    ConsoleValues::Set(ConsolePaths::Heading, 30.0);
    Measure({ SingleAt(305e3, degrees) }, 1.0);
    AzimuthDisplaySelect::Instance().Select(key);
    pane.grab();
    int const x = ColumnIn(pane, 305e3);
    int const y = pane.GetPictureRect().bottom() - row;
    QCOMPARE(pane.GetSparkles().size(), std::size_t(1));
    QCOMPARE(pane.GetSparkles()[0].at, QPoint(x, y));
    QCOMPARE(PixelOf(pane, x, y), pane.ColorOf(100));
    QCOMPARE(PixelOf(pane, x - 1, y), pane.ColorOf(100));
    QCOMPARE(PixelOf(pane, x + 1, y), pane.ColorOf(100));
    QVERIFY(PixelOf(pane, x - 2, y) != pane.ColorOf(100));
    QVERIFY(PixelOf(pane, x + 2, y) != pane.ColorOf(100));
    // the same when it comes after the mode
    QImage const before = pane.GetPicture();
    m_history->Append({}, 100.0);
    QVERIFY(pane.GetPicture() != before);
    Measure({ SingleAt(305e3, degrees) }, 101.0);
    QVERIFY(pane.GetPicture() == before);
}

void tst_BearingPane::pictureMovesWithTheFrequencies()
{
    BearingPane & pane = Make();
    Measure({ SingleAt(305e3, 100.5), SingleAt(805e3, 100.5) }, 1.0);
    SetResults({ ResultAt(305e3, 200.5), ResultAt(805e3, 200.5) });
    pane.SetFrequencyRange({ 250e3, Span / 4.0 });
    pane.grab();
    QRect const picture = pane.GetPictureRect();
    int const x = picture.left() + static_cast<int>(0.22 * picture.width());
    QCOMPARE(pane.GetSparkles()[0].at.x(), x);
    QCOMPARE(pane.GetSparkles()[1].at, QPoint(-1, -1));
    QCOMPARE(PixelOf(pane, x, picture.bottom() - 100), pane.ColorOf(100));
    QCOMPARE(PixelOf(pane, x, picture.bottom() - 200), ResultColor());
    QVERIFY(pane.GetBands()[1].parts.empty());
}

void tst_BearingPane::onlyWhatChangedIsPainted()
{
    BearingPane & pane = Make();
    constexpr quint64 point = BearingPane::PointSize * BearingPane::PointSize;
    quint64 before = pane.GetPaintedPixels();
    auto const painted = [&] { return pane.GetPaintedPixels() - std::exchange(before, pane.GetPaintedPixels()); };
    Measure({ SingleAt(305e3, 100.5) }, 10.0);
    QCOMPARE(painted(), point);
    Measure({}, 10.1); // looks the same
    QCOMPARE(painted(), 0ULL);
    Measure({}, 10.0 + BearingHistory::Hold / BearingPane::AgeSteps);
    QCOMPARE(painted(), point);
    Measure({ SingleAt(805e3, 10.5), SingleAt(1.8e6, 10.5) }, 10.55);
    QCOMPARE(painted(), point);
    SetResults({ ResultAt(505e3, 200.5) });
    QRect const band = pane.GetBands()[0].parts[0];
    quint64 const area = static_cast<quint64>(band.width()) * static_cast<quint64>(band.height());
    QCOMPARE(painted(), area);
    SetResults({ ResultAt(505e3, 200.5), ResultAt(905e3, 20.5) }); // the first one stays as it is
    QCOMPARE(painted(), area);
    SetResults({ ResultAt(505e3, 200.5) });
    QCOMPARE(painted(), area);
}

//! Painted bit by bit it looks as if it had been painted at once.
void tst_BearingPane::piecesMakeTheWholePicture()
{
    BearingPane & pane = Make();
    SetResults({ ResultAt(305e3, 100.5, 0.0, 30.0, 50e3), ResultAt(505e3, 1.0, 0.0, 10.0) });
    ConsoleBearings::Select(0);
    for (int turn = 0; turn < 100; ++turn)
        Measure({ SingleAt(305e3 + 211.0 * turn, 100.0 + turn % 17, turn % 100), SingleAt(500e3, turn * 7.0) },
                0.05 * turn);
    SetResults({ ResultAt(305e3, 101.5, 0.0, 35.0, 50e3), ResultAt(505e3, 2.0, 0.0, 10.0) });
    QImage const pieces = pane.GetPicture();
    pane.SetColors(Colors());
    pane.grab();
    QVERIFY(pane.GetPicture() == pieces);
    QVERIFY(pane.GetSparkles().size() > 50);
}

void tst_BearingPane::clickSelects_data()
{
    QTest::addColumn<int>("result"); // whose band is clicked at
    QTest::addColumn<int>("dx");     // px, from the middle of the last part of its band
    QTest::addColumn<int>("dy");
    QTest::addColumn<bool>("left");
    QTest::addColumn<int>("selected");
    QTest::newRow("on a band") << 0 << 0 << 0 << true << 0;
    QTest::newRow("at its end") << 0 << -BearingPane::LeastReach << 0 << true << 0;
    QTest::newRow("beside its end") << 0 << -BearingPane::LeastReach - 1 << 0 << true << -1;
    QTest::newRow("on the second part of a band") << 1 << 0 << 0 << true << 1;
    QTest::newRow("above a band") << 0 << 0 << -20 << true << -1;
    QTest::newRow("with the right button") << 0 << 0 << 0 << false << -1;
}

void tst_BearingPane::clickSelects()
{
    QFETCH(int, result);
    QFETCH(int, dx);
    QFETCH(int, dy);
    QFETCH(bool, left);
    QFETCH(int, selected);
    BearingPane & pane = Make();
    SetResults({ ResultAt(305e3, 100.5, 0.0, 0.0), ResultAt(505e3, 0.0, 0.0, 0.0) });
    pane.grab();
    QPoint const at = pane.GetBands()[static_cast<std::size_t>(result)].parts.back().center() + QPoint(dx, dy);
    Button(pane, QEvent::MouseButtonPress, at, left ? Qt::LeftButton : Qt::RightButton);
    Button(pane, QEvent::MouseButtonRelease, at, left ? Qt::LeftButton : Qt::RightButton);
    QCOMPARE(ConsoleBearings::Selected(), selected);
    QCOMPARE(pane.GetFrequencyRange().span, Span);
}

void tst_BearingPane::keysSelect()
{
    BearingPane & pane = Make();
    SetResults({ ResultAt(305e3, 100.5), ResultAt(505e3, 0.0) });
    QTest::keyClick(&pane, Qt::Key_R);
    QCOMPARE(ConsoleBearings::Selected(), 0);
    QTest::keyClick(&pane, Qt::Key_R);
    QCOMPARE(ConsoleBearings::Selected(), 1);
    QTest::keyClick(&pane, Qt::Key_R, Qt::ShiftModifier);
    QCOMPARE(ConsoleBearings::Selected(), 0);
    QCOMPARE(pane.GetBands()[0].isSelected, true);
}

void tst_BearingPane::markerTellsWhatItCrosses()
{
    BearingPane & pane = Make();
    pane.AddMarker(eYellowX, true, IColorBase::eColorMarker, true, eSpecialX, QStringLiteral("M1"));
    SetResults({ ResultAt(305e3, 100.5, 0.0, 100.0, 100e3), ResultAt(340e3, 20.0) });
    QString const degree(QChar(0xb0));
    auto const flag = [&pane](double frequency) {
        pane.GetMarker(eYellowX)->SetValue(frequency);
        pane.updateWidget();
        pane.grab();
        for (MarkerRulers::Ruler const & ruler : pane.GetRulers()) {
            if (ruler.index == eYellowX)
                return ruler.texts.value(0).section(QStringLiteral("  "), 1);
        }
        return QStringLiteral("none");
    };
    QCOMPARE(flag(300e3), QStringLiteral("100.5") + degree);
    QCOMPARE(flag(255e3), QStringLiteral("100.5") + degree);
    QCOMPARE(flag(254e3), QString());
    QCOMPARE(flag(339e3), QStringLiteral("020.0") + degree); // the nearest
    QCOMPARE(flag(600e3), QString());
}

void tst_BearingPane::badNumbersShowNothing_data()
{
    QTest::addColumn<double>("frequency");
    QTest::addColumn<double>("degrees");
    QTest::newRow("no bearing") << 305e3 << NaN;
    QTest::newRow("endless bearing") << 305e3 << Infinite;
    QTest::newRow("bearing endless below 0") << 305e3 << -Infinite;
    QTest::newRow("no frequency") << NaN << 10.0;
    QTest::newRow("endless frequency") << Infinite << 10.0;
    QTest::newRow("frequency endless below 0") << -Infinite << 10.0;
    QTest::newRow("far frequency") << 1e300 << 10.0;
}

void tst_BearingPane::badNumbersShowNothing()
{
    QFETCH(double, frequency);
    QFETCH(double, degrees);
    for (Kind const kind : { Kind::eAzimuth, Kind::eElevation }) {
        BearingPane & pane = Make(kind);
        QImage const empty = EmptyPicture(pane);
        for (double const other : { 50.0, NaN, Infinite, -Infinite }) {
            SetResults({ ResultAt(frequency, degrees, degrees, other, other) });
            Measure({ { frequency, degrees, degrees, other, other } }, 1.0);
            QVERIFY(pane.GetPicture() == empty);
            pane.grab();
        }
        // bad qualities alone are the worst ones
        SetResults({ ResultAt(305e3, 10.0, 10.0, NaN, Infinite), ResultAt(505e3, 10.0, 10.0, -Infinite, NaN) });
        Measure({ { 605e3, 60.0, 60.0, NaN, NaN } }, 1.0);
        pane.grab();
        QCOMPARE(pane.GetBands()[1].line.width(), 2 * BearingPane::LeastReach + 1);
        QCOMPARE(PixelOf(pane, pane.GetSparkles().back().at.x(), pane.GetSparkles().back().at.y()), pane.ColorOf(0));
        m_pane.reset();
        m_history = std::make_unique<BearingHistory>();
    }
}

//! Holds at any resolution of the screen.
void tst_BearingPane::pictureFollowsTheRatio()
{
    BearingPane & pane = Make();
    double const ratio = pane.devicePixelRatioF();
    QCOMPARE(pane.GetRatio(), ratio);
    SetResults({ ResultAt(305e3, 100.5, 0.0, 0.0) });
    Measure({ SingleAt(705e3, 200.5) }, 1.0);
    pane.grab();
    QRect const picture = pane.GetPictureRect();
    QRect const line = pane.GetBands()[0].line;
    QCOMPARE(line.top(), RowIn(pane, 100.5 / 360.0));
    QCOMPARE(line.center().x(), ColumnIn(pane, 305e3));
    QCOMPARE(line.height(), static_cast<int>(std::lround(ratio)));
    QCOMPARE(line.width(), 2 * static_cast<int>(std::lround(BearingPane::LeastReach * ratio)) + 1);
    double const rows = 12.0 / 360.0 * picture.height();
    QVERIFY(std::abs(pane.GetBands()[0].parts[0].height() - rows) <= 1.5);
    QPoint const at(ColumnIn(pane, 705e3), RowIn(pane, 200.5 / 360.0));
    QCOMPARE(pane.GetSparkles()[0].at, at);
    int columns = 0;
    for (int x = at.x() - 20; x <= at.x() + 20; ++x)
        columns += PixelOf(pane, x, at.y()) == pane.ColorOf(100) ? 1 : 0;
    QCOMPARE(columns, static_cast<int>(std::lround(BearingPane::PointSize * ratio)));
    // a click meets what is seen
    QPoint const middle = pane.GetBands()[0].parts[0].center();
    Press(pane, QPoint(static_cast<int>(middle.x() / ratio), static_cast<int>(middle.y() / ratio)));
    QCOMPARE(ConsoleBearings::Selected(), 0);
}

void tst_BearingPane::anyRatioHolds_data()
{
    QTest::addColumn<QString>("ratio");
    for (char const * const ratio : { "1.25", "1.5", "2", "3" })
        QTest::newRow(ratio) << QString::fromLatin1(ratio);
}

void tst_BearingPane::anyRatioHolds()
{
    QFETCH(QString, ratio);
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), ratio);
    environment.insert(QStringLiteral("QT_SCALE_FACTOR_ROUNDING_POLICY"), QStringLiteral("PassThrough"));
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(),
                  { QStringLiteral("pictureFollowsTheRatio"), QStringLiteral("anySizeHolds"),
                    QStringLiteral("piecesMakeTheWholePicture") });
    QVERIFY(process.waitForFinished());
    QByteArray const output = process.readAllStandardOutput() + process.readAllStandardError();
    QVERIFY2(process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0, output.constData());
}

void tst_BearingPane::anySizeHolds_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("nothing") << QSize(0, 0);
    QTest::newRow("a pixel") << QSize(1, 1);
    QTest::newRow("a line") << QSize(700, 1);
    QTest::newRow("a column") << QSize(1, 400);
    QTest::newRow("margins alone") << QSize(60, 40);
    QTest::newRow("a picture of a few rows") << QSize(700, 50);
    QTest::newRow("large") << QSize(2000, 600);
}

void tst_BearingPane::anySizeHolds()
{
    QFETCH(QSize, size);
    for (Kind const kind : { Kind::eAzimuth, Kind::eElevation }) {
        BearingPane & pane = Make(kind);
        SetResults({ ResultAt(305e3, 0.0, 0.0, 0.0, 1e5), ResultAt(905e3, 355.0, 90.0, 0.0, 1e5) });
        Measure({ SingleAt(305e3, 0.0), SingleAt(5e3, 355.0), SingleAt(999e3, 45.0) }, 1.0);
        pane.setMinimumSize(0, 0);
        pane.resize(size);
        pane.Refresh();
        pane.grab();
        Measure({ SingleAt(305e3, 0.0) }, 1.5);
        SetResults({ ResultAt(305e3, 1.0, 1.0, 0.0, 1e5) });
        ConsoleBearings::Select(0);
        AzimuthDisplaySelect::Instance().Select(10);
        pane.grab();
        QRect const picture = pane.GetPictureRect();
        for (BearingPane::Band const & band : pane.GetBands()) {
            for (QRect const & part : band.parts)
                QVERIFY(picture.contains(part));
            QVERIFY(band.line.isNull() || picture.contains(band.line));
        }
        for (BearingPane::Sparkle const & sparkle : pane.GetSparkles())
            QVERIFY(sparkle.at == QPoint(-1, -1) || picture.contains(sparkle.at));
        m_pane.reset();
    }
}

void tst_BearingPane::bandOnTheScaleZooms()
{
    BearingPane & pane = Make();
    ScaleAxis & axis = pane.GetLevelScale();
    int const x = axis.width() / 2;
    QRect const inner = axis.innerRect();
    Drag(axis, QPoint(x, inner.bottom() - 90), QPoint(x, inner.bottom() - 180));
    QVERIFY(std::abs(ConsoleValues::Get(ConsolePaths::AzimuthMin) - 90.0) < 2.0);
    QVERIFY(std::abs(ConsoleValues::Get(ConsolePaths::AzimuthMax) - 180.0) < 2.0);
    pane.grab();
    QCOMPARE(pane.GetLevelMin(), ConsoleValues::Get(ConsolePaths::AzimuthMin));
    QCOMPARE(pane.GetRows().RowOf(200.0), -1);
    QVERIFY(pane.GetRows().RowOf(135.0) > 0);
    GuiBase::Instance().UndoStack()->undo();
    QCOMPARE(ConsoleValues::Get(ConsolePaths::AzimuthMin), 0.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::AzimuthMax), 360.0);
}

void tst_BearingPane::keysMoveTheRange()
{
    BearingPane & pane = Make();
    ScaleAxis & axis = pane.GetLevelScale();
    QTest::keyClick(&axis, Qt::Key_Plus);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::AzimuthMin), 90.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::AzimuthMax), 270.0);
    QTest::keyClick(&axis, Qt::Key_Up, Qt::ControlModifier);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::AzimuthMin), 108.0);
    for (int press = 0; press < 20; ++press)
        QTest::keyClick(&axis, Qt::Key_Up, Qt::ControlModifier);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::AzimuthMax), 360.0); // the circle ends there
    QCOMPARE(ConsoleValues::Get(ConsolePaths::AzimuthMin), 180.0);
    QTest::keyClick(&axis, Qt::Key_Home);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::AzimuthMin), 0.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::AzimuthMax), 360.0);
    for (int press = 0; press < 20; ++press)
        QTest::keyClick(&axis, Qt::Key_Plus);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::AzimuthMax) - ConsoleValues::Get(ConsolePaths::AzimuthMin),
             BearingValues::LeastSpan);
    for (int press = 0; press < 20; ++press)
        QTest::keyClick(&axis, Qt::Key_Minus);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::AzimuthMin), 0.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::AzimuthMax), 360.0);
}

void tst_BearingPane::doubleClickLeavesTheCircle()
{
    BearingPane & pane = Make();
    ConsoleValues::Set(ConsolePaths::AzimuthMin, 90.0);
    QPoint const at = pane.GetLevelScale().innerRect().center();
    Button(pane.GetLevelScale(), QEvent::MouseButtonDblClick, at);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::AzimuthMin), 90.0);
    m_pane.reset();
    BearingPane & elevation = Make(Kind::eElevation);
    ConsoleValues::Set(ConsolePaths::ElevationMin, 20.0);
    Button(elevation.GetLevelScale(), QEvent::MouseButtonDblClick, at);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::ElevationMin), -30.0);
    Button(elevation.GetLevelScale(), QEvent::MouseButtonDblClick, at);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::ElevationMin), -90.0);
}

void tst_BearingPane::menuLeadsToTheRanges()
{
    BearingPane & pane = Make();
    AzimuthDisplaySelect::Instance().Select(9);
    QCOMPARE(pane.GetLevelScale().GetStart(), -180.0);
    ConsoleValues::Set(ConsolePaths::AzimuthMin, 90.0);
    QVERIFY(pane.GetLevelScale().ZoomToDefault());
    QCOMPARE(ConsoleValues::Get(ConsolePaths::AzimuthMin), -180.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::AzimuthMax), 180.0);
    ConsoleValues::Set(ConsolePaths::AzimuthMax, 90.0);
    QVERIFY(pane.GetLevelScale().ZoomToBest());
    QCOMPARE(ConsoleValues::Get(ConsolePaths::AzimuthMax), 180.0);
    QCOMPARE(pane.GetLevelScale().GetAxisType() & AxisBase::AxisWrapped, unsigned(AxisBase::AxisWrapped));
    // a value below the range is turned into it, on the scale too
    QCOMPARE(pane.GetLevelScale().ValueToPixel(270.0), pane.GetLevelScale().ValueToPixel(-90.0));
}

void tst_BearingPane::ticsDivideTheCircle_data()
{
    QTest::addColumn<int>("height");
    QTest::addColumn<double>("min");
    QTest::addColumn<double>("max");
    QTest::newRow("low") << 130 << 0.0 << 360.0;
    QTest::newRow("middle") << 300 << 0.0 << 360.0;
    QTest::newRow("high") << 900 << 0.0 << 360.0;
    QTest::newRow("part") << 300 << 20.0 << 75.0;
    QTest::newRow("very high") << 4000 << 0.0 << 360.0;
}

void tst_BearingPane::ticsDivideTheCircle()
{
    QFETCH(int, height);
    QFETCH(double, min);
    QFETCH(double, max);
    BearingPane & pane = Make();
    ConsoleValues::Set(ConsolePaths::AzimuthMin, min);
    ConsoleValues::Set(ConsolePaths::AzimuthMax, max);
    pane.resize(700, height);
    pane.grab();
    QRect const picture = pane.GetPictureRect();
    std::vector<int> const tics = pane.GetLevelScale().GetGridPixels();
    QVERIFY(tics.size() >= 3);
    double const degrees = (max - min) / picture.height();
    double step = 360.0;
    for (std::size_t i = 1; i < tics.size(); ++i)
        step = std::min(step, std::abs(tics[i] - tics[i - 1]) * degrees);
    double const nearest = std::round(360.0 / step); // so many on the circle
    QVERIFY2(std::abs(360.0 / nearest - step) < 2.5 * degrees, qPrintable(QString::number(step)));
    QVERIFY(step / degrees >= pane.fontMetrics().height());
}

void tst_BearingPane::withoutValuesItStillShowsTheMode()
{
    m_values.reset();
    AzimuthDisplaySelect::Instance().Select(9);
    BearingPane pane(Kind::eAzimuth);
    pane.resize(700, 300);
    pane.grab();
    QCOMPARE(pane.GetLevelMin(), -180.0);
    AzimuthDisplaySelect::Instance().Select(6);
    QCOMPARE(pane.GetLevelMin(), 0.0);
    QCOMPARE(pane.GetLevelMax(), 360.0);
    AzimuthDisplaySelect::Instance().Select(10);
    QCOMPARE(pane.GetLevelMin(), -180.0);
    QVERIFY(!pane.BindResults());
    pane.grab();
}

ORIM_TEST_MAIN(tst_BearingPane)
#include "tst_bearingpane.moc"
