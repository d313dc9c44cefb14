// SPDX-License-Identifier: MIT
#include "colorset.h"
#include "framestats.h"
#include "levelgradients.h"
#include "markertools.h"
#include "panetools.h"
#include "shadingbar.h"
#include "testmain.h"
#include "timeaxis.h"
#include "waterfallpane.h"

#include <QCryptographicHash>

#include <cmath>
#include <set>

using namespace PaneTools;

class tst_WaterfallPane : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void cleanup();
    void newestLineIsOnTop();
    void levelsTakeTheColoursOfTheGradient_data();
    void levelsTakeTheColoursOfTheGradient();
    void rangeChangeRecolours();
    void gradientChangeRecolours();
    void rowsAndBarShowOneSet();
    void markersCrossTheRows();
    void frequencyChangeMovesTheRows();
    void columnsStandUnderTheirFrequency();
    void resizeKeepsTheRows();
    void clearEmptiesThePicture();
    void paintsOnceABatch();
    void everyFrameDiffers();
    void timesStandAtTheirRows();
    void tinyPaneSurvives_data();
    void tinyPaneSurvives();
    void meterBurstsStandAtTheirTimes_data();
    void meterBurstsStandAtTheirTimes();
    void shortWavePowerStandsInItsBand();
};

namespace {

struct Pane : WaterfallPane
{
    Pane(int width, int height)
    {
        SetColors(Colors());
        resize(width, height);
        grab(); // sends the resize event
    }
};

//! Index of the gradient from black to white.
int GreyGradient()
{
    for (int index = 0; index < LevelGradients::Count(); ++index) {
        if (QLatin1String(LevelGradients::At(index).key) == QLatin1String("grey"))
            return index;
    }
    return -1;
}

//! A pane of grey levels over a range of 100 dB.
struct GreyPane : Pane
{
    GreyPane(int width, int height) : Pane(width, height)
    {
        LevelGradients::Choose(GreyGradient());
        SetLevelRange(-100.0, 0.0);
        SetFrequencyRange({ 0.0, 64.0 });
    }
};

Line Flat(double level, double seconds = 0.0) { return LineOf(0.0, std::vector<double>(64, level), seconds); }

QColor At(WaterfallPane & pane, int column, int row)
{
    QRect const picture = pane.GetPictureRect();
    return Rendered(pane).pixelColor(picture.left() + column, picture.top() + row);
}

int Grey(double level) { return static_cast<int>(std::lround(255.0 * (level + 100.0) / 100.0)); }

} // namespace

void tst_WaterfallPane::cleanup()
{
    Tree::Instance()->Remove(QStringLiteral("/test/m1"));
    LevelGradients::Choose(0);
}

void tst_WaterfallPane::newestLineIsOnTop()
{
    GreyPane pane(400, 200);
    pane.AppendLines({ Flat(-80.0), Flat(-60.0) });
    pane.AppendLines({ Flat(-20.0), nullptr });
    QVERIFY(std::abs(At(pane, 5, 0).red() - Grey(-20.0)) <= 1);
    QVERIFY(std::abs(At(pane, 5, 1).red() - Grey(-60.0)) <= 1);
    QVERIFY(std::abs(At(pane, 5, 2).red() - Grey(-80.0)) <= 1);
    QCOMPARE(At(pane, 5, 3), Colors().ground);
    QCOMPARE(pane.GetRowsAppended(), quint64(3));
}

void tst_WaterfallPane::levelsTakeTheColoursOfTheGradient_data()
{
    QTest::addColumn<double>("level");
    QTest::addColumn<int>("grey");
    QTest::newRow("low end") << -100.0 << 0;
    QTest::newRow("middle") << -50.0 << 127;
    QTest::newRow("high end") << 0.0 << 255;
    QTest::newRow("below the range: the low end") << -150.0 << 0;
    QTest::newRow("above the range: the high end") << 30.0 << 255;
}

void tst_WaterfallPane::levelsTakeTheColoursOfTheGradient()
{
    QFETCH(double, level);
    QFETCH(int, grey);
    GreyPane pane(400, 200);
    pane.AppendLines({ Flat(level) });
    QVERIFY2(std::abs(At(pane, 5, 0).red() - grey) <= 1, qPrintable(At(pane, 5, 0).name()));
}

void tst_WaterfallPane::rangeChangeRecolours()
{
    GreyPane pane(400, 200);
    pane.AppendLines({ Flat(-80.0), Flat(-50.0) });
    pane.SetLevelRange(-80.0, -20.0);
    QVERIFY(std::abs(At(pane, 5, 0).red() - 127) <= 1);
    QVERIFY(At(pane, 5, 1).red() <= 1);
    QCOMPARE(pane.GetRowsAppended(), quint64(2));
}

void tst_WaterfallPane::gradientChangeRecolours()
{
    GreyPane pane(400, 200);
    pane.AppendLines({ Flat(-30.0) });
    QColor const grey = At(pane, 5, 0);
    LevelGradients::Choose(0);
    QVERIFY(At(pane, 5, 0) != grey);
    LevelGradients::Choose(GreyGradient());
    QCOMPARE(At(pane, 5, 0), grey);
}

void tst_WaterfallPane::rowsAndBarShowOneSet()
{
    GreyPane pane(500, 300);
    for (int index = 0; index < LevelGradients::Count(); ++index) {
        LevelGradients::Choose(index);
        QImage image = Rendered(pane);
        QRect const picture = pane.GetPictureRect();
        QRect const bar = pane.GetShadingBar().GetBarRect().translated(pane.GetShadingBar().geometry().topLeft());
        QCOMPARE(bar.top(), picture.top());
        QCOMPARE(bar.height(), picture.height());
        for (int row = 0; row < bar.height(); row += 7) {
            double const level = -100.0 * row / (bar.height() - 1);
            pane.Clear();
            pane.AppendLines({ Flat(level) });
            QColor const shown = At(pane, 5, 0);
            QColor const keyed = image.pixelColor(bar.center().x(), bar.top() + row);
            QVERIFY2(std::abs(shown.red() - keyed.red()) <= 1 && std::abs(shown.green() - keyed.green()) <= 1 &&
                         std::abs(shown.blue() - keyed.blue()) <= 1,
                     qPrintable(QStringLiteral("%1 %2").arg(shown.name(), keyed.name())));
        }
    }
    QCOMPARE(pane.GetShadingBar().GetStart(), -100.0);
    QCOMPARE(pane.GetShadingBar().GetStop(), 0.0);
}

void tst_WaterfallPane::markersCrossTheRows()
{
    GreyPane pane(500, 300);
    pane.SetFrequencyRange({ 0.0, 400.0 });
    auto * const value = new ValueNumeric<double>(QStringLiteral("m1"));
    value->SetValue(100.0, nullptr);
    Tree::Instance()->Insert(QStringLiteral("/test"), value);
    QColor const ink =
        pane.AddMarker(eYellowX, true, IColorBase::eColorResult, true, eSpecialX, QStringLiteral("m1"))->GetQColor();
    pane.SetMarker_ValuePath(eYellowX, QStringLiteral("/test/m1"));
    pane.show();
    QRect const picture = pane.GetPictureRect();
    int const column = picture.left() + picture.width() / 4;
    QImage image = Rendered(pane);
    for (int y = picture.top(); y <= picture.bottom(); ++y)
        QCOMPARE(image.pixelColor(column, y), ink);
    QCOMPARE(pane.GetRulers().front().texts, QStringList{ QStringLiteral("m1 100 Hz") });
    QCOMPARE(pane.ValueToPixel(eMarkerY, -50.0), -1); // levels have no rows here
    QCOMPARE(pane.PixelToValue(eMarkerY, 5), -1.0);
    MarkerTools::Drag(pane, { column, 100 }, { column + 60, 120 });
    QCOMPARE(pane.ValueToPixel(eMarkerX, value->GetValue()), column + 60);
}

void tst_WaterfallPane::frequencyChangeMovesTheRows()
{
    GreyPane pane(400, 200);
    pane.AppendLines({ PeakLine(64, 48, -100.0, 0.0) });
    int const width = pane.GetPictureRect().width();
    QVERIFY(At(pane, width * 48 / 64, 0).red() > 200);
    pane.SetFrequencyRange({ 32.0, 32.0 });
    QVERIFY(At(pane, width / 2, 0).red() > 200);
    QVERIFY(At(pane, width / 4, 0).red() < 50);
    // what no line has reached shows the ground
    pane.SetFrequencyRange({ 1000.0, 32.0 });
    QCOMPARE(At(pane, width / 2, 0), Colors().ground);
}

void tst_WaterfallPane::columnsStandUnderTheirFrequency()
{
    GreyPane pane(900, 200);
    int const width = pane.GetPictureRect().width();
    pane.SetFrequencyRange({ 0.0, 4096.0 });
    pane.AppendLines({ PeakLine(4096, 1024, -100.0, 0.0) });
    int brightest = 0;
    QImage const image = Rendered(pane);
    QRect const picture = pane.GetPictureRect();
    for (int column = 0; column < width; ++column) {
        if (qGray(image.pixel(picture.left() + column, picture.top())) >
            qGray(image.pixel(picture.left() + brightest, picture.top())))
            brightest = column;
    }
    QVERIFY(std::abs(brightest - width / 4) <= 1);
}

void tst_WaterfallPane::resizeKeepsTheRows()
{
    GreyPane pane(400, 200);
    pane.AppendLines({ PeakLine(64, 16, -100.0, 0.0), Flat(-50.0) });
    pane.resize(700, 300);
    pane.grab();
    QVERIFY(std::abs(At(pane, 5, 0).red() - 127) <= 1);
    QVERIFY(At(pane, pane.GetPictureRect().width() / 4, 1).red() > 200);
    pane.resize(300, 120);
    pane.grab();
    QVERIFY(At(pane, pane.GetPictureRect().width() / 4, 1).red() > 200);
    QCOMPARE(At(pane, 5, 2), Colors().ground);
}

void tst_WaterfallPane::clearEmptiesThePicture()
{
    GreyPane pane(400, 200);
    pane.AppendLines({ Flat(-50.0) });
    pane.Clear();
    QCOMPARE(At(pane, 5, 0), Colors().ground);
    QCOMPARE(pane.GetImage().Filled(), 0);
}

void tst_WaterfallPane::paintsOnceABatch()
{
    GreyPane pane(400, 200);
    FrameStats stats;
    pane.SetFrameStats(&stats);
    pane.show();
    QVERIFY(QTest::qWaitForWindowExposed(&pane));
    quint64 const before = stats.Frames();
    pane.AppendLines({ Flat(-50.0), Flat(-51.0), Flat(-52.0) });
    pane.AppendLines({ Flat(-53.0) });
    QTRY_COMPARE(pane.GetRowsPainted(), quint64(4));
    QCOMPARE(stats.Frames(), before + 1);
    pane.AppendLines({ Flat(-54.0) });
    QTRY_COMPARE(pane.GetRowsPainted(), quint64(5));
    QCOMPARE(stats.Frames(), before + 2);
    pane.update();
    QCoreApplication::processEvents();
    QCOMPARE(stats.Frames(), before + 2);
    pane.SetFrameStats(nullptr);
}

void tst_WaterfallPane::everyFrameDiffers()
{
    GreyPane pane(400, 200);
    std::set<QByteArray> frames;
    constexpr int count = 300;
    for (int number = 0; number < count; ++number) {
        pane.AppendLines({ PeakLine(64, number % 64, -100.0, -(number % 50)) });
        QImage const image = Rendered(pane);
        QByteArray const bytes = QByteArray::fromRawData(reinterpret_cast<char const *>(image.constBits()),
                                                         static_cast<int>(image.sizeInBytes()));
        frames.insert(QCryptographicHash::hash(bytes, QCryptographicHash::Sha1));
    }
    QCOMPARE(frames.size(), std::size_t(count));
}

void tst_WaterfallPane::timesStandAtTheirRows()
{
    GreyPane pane(400, 200);
    std::vector<Line> lines;
    for (int number = 0; number < 120; ++number)
        lines.push_back(Flat(-50.0, 0.1 * number));
    pane.AppendLines(lines);
    // the newest row shows 11.9 s: tics every ten seconds
    std::vector<TimeAxis::Tic> const tics = pane.GetTimeAxis().GetTimeTics();
    QCOMPARE(tics.size(), std::size_t(1));
    QCOMPARE(tics.front().row, 19);
    QCOMPARE(tics.front().label, QStringLiteral("12:00:10"));
    QImage const image = Rendered(pane);
    QRect const picture = pane.GetPictureRect();
    QColor const ink = ColorSet::Instance()[IColorBase::eColorAxisForeground];
    for (int row = 0; row < 120; ++row)
        QCOMPARE(image.pixelColor(picture.left() - 3, picture.top() + row) == ink, row == 19);
    QCOMPARE(pane.GetTimeAxis().geometry(), QRect(0, 0, picture.left(), picture.bottom() + 1));
    // one more row moves it down
    pane.AppendLines({ Flat(-50.0, 12.0) });
    QCOMPARE(pane.GetTimeAxis().GetTimeTics().front().row, 20);
    pane.resize(400, 100);
    pane.grab();
    QCOMPARE(pane.GetTimeAxis().GetStart(), Noon + 12e6 - (pane.GetPictureRect().height() - 1) * 1e5);
    pane.Clear();
    QVERIFY(pane.GetTimeAxis().GetTimeTics().empty());
}

void tst_WaterfallPane::tinyPaneSurvives_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("nothing") << QSize(0, 0);
    QTest::newRow("one pixel") << QSize(1, 1);
    QTest::newRow("narrow") << QSize(20, 300);
    QTest::newRow("flat") << QSize(600, 2);
}

void tst_WaterfallPane::tinyPaneSurvives()
{
    QFETCH(QSize, size);
    GreyPane pane(400, 200);
    pane.AppendLines({ Flat(-50.0) });
    pane.resize(size);
    pane.grab();
    pane.AppendLines({ Flat(-40.0) });
    pane.grab();
    pane.resize(400, 200);
    pane.grab();
    pane.AppendLines({ Flat(-50.0) });
    QVERIFY(std::abs(At(pane, 5, 0).red() - 127) <= 1);
}

void tst_WaterfallPane::meterBurstsStandAtTheirTimes_data()
{
    QTest::addColumn<double>("time"); // s
    QTest::newRow("first burst") << 0.239;
    QTest::newRow("second burst") << 0.456;
}

void tst_WaterfallPane::meterBurstsStandAtTheirTimes()
{
    QFETCH(double, time);
    if (TestStage::Recordings().isEmpty())
        QSKIP("no recordings", );
    auto source = OpenRecording(TestStage::Recordings(), QStringLiteral("wmbus_868950kHz_1600kSps_cu8"));
    QVERIFY(source);
    constexpr double slice = 0.005; // s, a row
    constexpr int count = 131;
    std::vector<Line> const lines = MakeLines(*source, 1024, slice, count);
    GreyPane pane(700, 300);
    pane.SetFrequencyRange({ 868.15e6, 1.6e6 });
    pane.SetLevelRange(-60.0, -20.0);
    pane.AppendLines(lines);
    QImage const image = Rendered(pane);
    QRect const picture = pane.GetPictureRect();
    // brightness of the middle of the band, where the bursts are
    std::vector<double> brightness;
    for (int number = 0; number < count; ++number) {
        int const y = picture.top() + count - 1 - number;
        double sum = 0.0;
        for (int x = picture.left() + picture.width() * 4 / 9; x < picture.left() + picture.width() * 5 / 9; ++x)
            sum += qGray(image.pixel(x, y));
        brightness.push_back(sum / (picture.width() / 9.0));
    }
    int const expected = static_cast<int>(time / slice);
    // bright in the row of the burst, dark before it
    auto const isBright = [&brightness](int number) { return brightness[static_cast<std::size_t>(number)] > 130.0; };
    int first = expected - 5;
    QVERIFY2(!isBright(first), qPrintable(QString::number(brightness[static_cast<std::size_t>(first)])));
    while (first < expected + 5 && !isBright(first))
        ++first;
    QVERIFY2(std::abs(first - expected) <= 1,
             qPrintable(QStringLiteral("row of %1 s, the burst is at %2 s").arg(first * slice).arg(time)));
}

void tst_WaterfallPane::shortWavePowerStandsInItsBand()
{
    if (TestStage::Recordings().isEmpty())
        QSKIP("no recordings", );
    auto source = OpenRecording(TestStage::Recordings(), QStringLiteral("hf_ft8_21074kHz_12kSps_ri16"));
    QVERIFY(source);
    std::vector<Line> const lines = MakeLines(*source, 2048, 0.5, 25); // within the first slot
    GreyPane pane(700, 300);
    pane.SetFrequencyRange({ 21.074e6, 6000.0 });
    pane.SetLevelRange(-110.0, -30.0);
    pane.AppendLines(lines);
    QImage const image = Rendered(pane);
    QRect const picture = pane.GetPictureRect();
    double inside = 0.0;
    double outside = 0.0;
    int insideCount = 0;
    int outsideCount = 0;
    int brightest = 0;
    double most = -1.0;
    for (int column = 0; column < picture.width(); ++column) {
        double const hertz = (column + 0.5) * 6000.0 / picture.width();
        double sum = 0.0;
        for (int row = 0; row < 23; ++row)
            sum += qGray(image.pixel(picture.left() + column, picture.top() + row)) / 23.0;
        if (sum > most) {
            most = sum;
            brightest = column;
        }
        bool const isInside = hertz >= 200.0 && hertz <= 2800.0;
        (isInside ? inside : outside) += sum;
        (isInside ? insideCount : outsideCount) += 1;
    }
    inside /= insideCount;
    outside /= outsideCount;
    QVERIFY2(inside > 2.0 * outside, qPrintable(QStringLiteral("%1 inside, %2 outside").arg(inside).arg(outside)));
    double const peak = (brightest + 0.5) * 6000.0 / picture.width();
    QVERIFY(peak >= 200.0 && peak <= 2800.0);
}

ORIM_TEST_MAIN(tst_WaterfallPane)
#include "tst_waterfallpane.moc"
