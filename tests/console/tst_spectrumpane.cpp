// SPDX-License-Identifier: MIT
#include "colorset.h"
#include "frequencyaxis.h"
#include "levelaxis.h"
#include "markertools.h"
#include "panetools.h"
#include "spectrumpane.h"
#include "testmain.h"

#include <QTimerEvent>

#include <cmath>
#include <set>

using namespace MarkerTools;
using namespace PaneTools;

class tst_SpectrumPane : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void traceStandsAtItsLevel_data();
    void traceStandsAtItsLevel();
    void groundIsTintedBelowTheTrace();
    void peakStandsInItsColumn_data();
    void peakStandsInItsColumn();
    void peakIsReadOut();
    void readOutIsTakenFiveTimesASecond();
    void rangeWithoutLineIsEmpty();
    void gridContinuesTheTics_data();
    void gridContinuesTheTics();
    void traceLiesOnTheGrid();
    void scalesStandAroundThePicture();
    void followsValuesByPath();
    void staysWithoutValues();
    void refusesBadRanges_data();
    void refusesBadRanges();
    void coloursAreTaken();
    void tinyPaneSurvives_data();
    void tinyPaneSurvives();
    void lineWithoutAPictureHasNoPeakBeside();
    void vorPeaksStandAtTheirFrequencies_data();
    void vorPeaksStandAtTheirFrequencies();
    void nullLineIsIgnored();
    void secondPeakStandsBesideTheFirst();
    void markersReadOutLevels();
    void levelsOfAnotherViewAreNotShown();
    void markersCompare();
    void levelMarkerHasItsFlagBeside();
    void flagsStayInThePicture_data();
    void flagsStayInThePicture();
    void pixelsAndValues_data();
    void pixelsAndValues();
    void stepsOverMinusOne();
    void rangeIsTakenBeforeItIsPainted();
    void markerIsDragged_data();
    void markerIsDragged();
    void keyboardIsShown();
};

namespace {

struct Pane : SpectrumPane
{
    Pane(int width, int height)
    {
        SetColors(Colors());
        resize(width, height);
        grab(); // sends the resize event
    }
};

//! First row of a column, counted in the picture rectangle, that bears the trace; -1 without one.
int TraceRow(QImage const & image, QRect const & picture, int column)
{
    for (int y = 0; y < picture.height(); ++y) {
        if (image.pixelColor(picture.left() + column, picture.top() + y) == Colors().trace)
            return y;
    }
    return -1;
}

ValueNumeric<double> * Insert(QString const & name, double start)
{
    auto * const value = new ValueNumeric<double>(name);
    value->SetValue(start, nullptr);
    Tree::Instance()->Insert(QStringLiteral("/test"), value);
    return value;
}

//! A pane with a peak at 1 kHz and a marker on it; a second one at 3 kHz and one of a level are hidden.
struct Marked : Pane
{
    explicit Marked(bool hasLine = true) : Pane(900, 300)
    {
        for (char const * const name : { "m1", "m2", "level" })
            Tree::Instance()->Remove(QStringLiteral("/test/") + QLatin1String(name));
        SetFrequencyRange({ 0.0, 4096.0 });
        SetLevelRange(-100.0, 0.0);
        Add(eYellowX, true, eSpecialX, QStringLiteral("m1"), 1000.0);
        Add(eWhiteX, false, eSpecialX, QStringLiteral("m2"), 3000.0);
        Add(eYellowY, false, eSpecialY, QStringLiteral("level"), -40.0);
        SetGapMarkerId(eWhiteX, eYellowX);
        show();
        if (hasLine)
            SetLine(PeakLine(4096, 1000, -90.0, -10.0));
    }

    void Add(EMarkerID id, bool shown, unsigned int special, QString const & name, double start)
    {
        Insert(name, start);
        AddMarker(id, shown, IColorBase::eColorMarker, true, special, name);
        SetMarker_ValuePath(id, QStringLiteral("/test/") + name);
    }

    MarkerRulers::Ruler RulerOf(int index)
    {
        grab();
        auto const & rulers = GetRulers();
        auto const found =
            std::find_if(rulers.begin(), rulers.end(), [index](auto const & ruler) { return ruler.index == index; });
        return found != rulers.end() ? *found : MarkerRulers::Ruler{ -1, false, -1, QRect(), {}, {}, {}, false };
    }

    QStringList Texts(int index) { return RulerOf(index).texts; }
};

} // namespace

void tst_SpectrumPane::cleanup()
{
    for (char const * const name : { "start", "stop", "min", "max", "m1", "m2", "level" })
        Tree::Instance()->Remove(QStringLiteral("/test/") + QLatin1String(name));
}

void tst_SpectrumPane::traceStandsAtItsLevel_data()
{
    QTest::addColumn<double>("level");
    QTest::addColumn<double>("part"); // of the height, from the top
    QTest::newRow("top of the range") << 0.0 << 0.0;
    QTest::newRow("a quarter down") << -25.0 << 0.25;
    QTest::newRow("middle") << -50.0 << 0.5;
    QTest::newRow("bottom") << -100.0 << 1.0;
    QTest::newRow("above the range it stands at the top") << 20.0 << 0.0;
    QTest::newRow("below the range it stands at the bottom") << -150.0 << 1.0;
}

void tst_SpectrumPane::traceStandsAtItsLevel()
{
    QFETCH(double, level);
    QFETCH(double, part);
    Pane pane(600, 300);
    pane.SetLevelRange(-100.0, 0.0);
    pane.SetFrequencyRange({ 0.0, 64.0 });
    pane.SetLine(LineOf(0.0, std::vector<double>(64, level)));
    QRect const picture = pane.GetPictureRect();
    QImage const image = Rendered(pane);
    int const wanted = std::min(static_cast<int>(part * picture.height()), picture.height() - 1);
    for (int const column : { 3, picture.width() / 3, picture.width() / 4 })
        QCOMPARE(TraceRow(image, picture, column), wanted);
}

void tst_SpectrumPane::groundIsTintedBelowTheTrace()
{
    Pane pane(600, 300);
    pane.SetLevelRange(-100.0, 0.0);
    pane.SetFrequencyRange({ 0.0, 64.0 });
    pane.SetLine(LineOf(0.0, std::vector<double>(64, -52.0)));
    QRect const picture = pane.GetPictureRect();
    QImage const image = Rendered(pane);
    std::set<QRgb> above;
    std::set<QRgb> below;
    int const row = TraceRow(image, picture, 7);
    for (int y = 30; y < row; ++y)
        above.insert(image.pixel(picture.left() + 7, picture.top() + y));
    for (int y = row + 1; y < picture.height(); ++y)
        below.insert(image.pixel(picture.left() + 7, picture.top() + y));
    QVERIFY(above.count(Colors().ground.rgb()) == 1);
    QVERIFY(above.count(Colors().grid.rgb()) == 1);
    for (QRgb const pixel : below)
        QVERIFY(above.count(pixel) == 0);
}

void tst_SpectrumPane::peakStandsInItsColumn_data()
{
    QTest::addColumn<int>("bins");
    QTest::addColumn<int>("peak");
    QTest::newRow("more bins than columns") << 4096 << 1234;
    QTest::newRow("first bin") << 4096 << 0;
    QTest::newRow("last bin") << 4096 << 4095;
    QTest::newRow("fewer bins than columns") << 64 << 20;
}

void tst_SpectrumPane::peakStandsInItsColumn()
{
    QFETCH(int, bins);
    QFETCH(int, peak);
    Pane pane(600, 300);
    pane.SetLevelRange(-100.0, 0.0);
    pane.SetFrequencyRange({ 0.0, static_cast<double>(bins) });
    pane.SetLine(PeakLine(bins, peak, -90.0, -10.0));
    QRect const picture = pane.GetPictureRect();
    std::vector<int> const & trace = pane.GetTrace();
    auto const top = std::min_element(trace.begin(), trace.end());
    int const column = static_cast<int>(top - trace.begin());
    double const place = static_cast<double>(peak) * picture.width() / bins;
    QVERIFY(std::abs(column - place) <= std::max(1.0, 0.5 * picture.width() / bins + 1.0));
    QImage const image = Rendered(pane);
    QCOMPARE(*top, static_cast<int>(0.1 * picture.height()));
    QCOMPARE(image.pixelColor(picture.left() + column, picture.top() + *top), Colors().trace);
}

void tst_SpectrumPane::peakIsReadOut()
{
    Pane pane(600, 300);
    pane.SetFrequencyRange({ 0.0, 4096.0 });
    QVERIFY(!std::isfinite(pane.GetPeak().level));
    pane.SetLine(PeakLine(4096, 1234, -90.0, -10.5));
    QCOMPARE(pane.GetPeak().frequency, 1234.0);
    QCOMPARE(pane.GetPeak().level, -10.5);
    // the mark stands over the peak
    QImage const image = Rendered(pane);
    QRect const picture = pane.GetPictureRect();
    int const column = picture.left() + 1234 * picture.width() / 4096;
    bool marked = false;
    for (int x = column - 2; x <= column + 2; ++x)
        for (int y = picture.top(); y < picture.top() + 40; ++y)
            marked = marked || image.pixelColor(x, y) == Colors().peak;
    QVERIFY(marked);
}

void tst_SpectrumPane::readOutIsTakenFiveTimesASecond()
{
    Pane pane(600, 300);
    pane.SetFrequencyRange({ 0.0, 4096.0 });
    pane.SetLine(PeakLine(4096, 100, -90.0, -10.0));
    pane.SetLine(PeakLine(4096, 200, -90.0, -10.0));
    QCOMPARE(pane.GetPeak().frequency, 100.0);
    QTimerEvent tick(pane.GetPeakTimerId());
    QCoreApplication::sendEvent(&pane, &tick);
    pane.SetLine(PeakLine(4096, 300, -90.0, -10.0));
    QCOMPARE(pane.GetPeak().frequency, 300.0);
}

void tst_SpectrumPane::rangeWithoutLineIsEmpty()
{
    Pane pane(600, 300);
    pane.SetFrequencyRange({ 10000.0, 100.0 });
    pane.SetLine(PeakLine(64, 20, -90.0, -10.0));
    QVERIFY(!std::isfinite(pane.GetPeak().level));
    QImage const image = Rendered(pane);
    for (int column = 0; column < pane.GetPictureRect().width(); ++column)
        QCOMPARE(TraceRow(image, pane.GetPictureRect(), column), -1);
}

void tst_SpectrumPane::gridContinuesTheTics_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("span");
    QTest::newRow("large") << QSize(1920, 500) << 868.15e6 << 1.6e6;
    QTest::newRow("middle") << QSize(1280, 400) << 868.15e6 << 1.6e6;
    QTest::newRow("small") << QSize(640, 180) << 144.488e6 << 1.024e6;
    QTest::newRow("least") << QSize(320, 120) << 868.15e6 << 1.6e6;
    QTest::newRow("narrow span") << QSize(800, 200) << 1090e6 << 150.0;
    QTest::newRow("from 0") << QSize(800, 200) << 0.0 << 6000.0;
}

void tst_SpectrumPane::gridContinuesTheTics()
{
    QFETCH(QSize, size);
    QFETCH(double, start);
    QFETCH(double, span);
    Pane pane(size.width(), size.height());
    pane.SetFrequencyRange({ start, span });
    pane.SetLevelRange(-115.0, -15.0);
    QImage const image = Rendered(pane);
    QRect const picture = pane.GetPictureRect();
    std::vector<int> const columns = pane.GetFrequencyAxis().GetGridPixels();
    std::vector<int> const rows = pane.GetLevelScale().GetGridPixels();
    QVERIFY(columns.size() >= 4);
    QVERIFY(rows.size() >= 4);
    QColor const ink = ColorSet::Instance()[IColorBase::eColorAxisForeground];
    auto const isAmong = [](std::vector<int> const & pixels, int pixel) {
        return std::find(pixels.begin(), pixels.end(), pixel) != pixels.end();
    };
    int const blankRow = rows.front() + 3;
    int const blankColumn = columns.front() + 3;
    for (int x = 0; x < picture.width(); ++x) {
        bool const isLine = image.pixelColor(picture.left() + x, picture.top() + blankRow) == Colors().grid;
        QCOMPARE(isLine, isAmong(columns, x));
        // the tic below stands in the same column
        QCOMPARE(image.pixelColor(picture.left() + x, picture.bottom() + 5) == ink, isLine);
    }
    for (int y = 0; y < picture.height(); ++y) {
        bool const isLine = image.pixelColor(picture.left() + blankColumn, picture.top() + y) == Colors().grid;
        QCOMPARE(isLine, isAmong(rows, y));
        QCOMPARE(image.pixelColor(picture.left() - 5, picture.top() + y) == ink, isLine);
    }
}

void tst_SpectrumPane::traceLiesOnTheGrid()
{
    Pane pane(700, 333);
    pane.SetFrequencyRange({ 0.0, 64.0 });
    pane.SetLevelRange(-120.0, 0.0);
    std::vector<int> const rows = pane.GetLevelScale().GetGridPixels(); // each 20 dB
    pane.grab();
    QCOMPARE(rows.size(), std::size_t(7));
    for (int tic = 0; tic <= 6; ++tic) {
        pane.SetLine(LineOf(0.0, std::vector<double>(64, -20.0 * tic)));
        QCOMPARE(pane.GetTrace().front(), rows[static_cast<std::size_t>(tic)]);
    }
}

void tst_SpectrumPane::scalesStandAroundThePicture()
{
    Pane pane(700, 300);
    QRect const picture = pane.GetPictureRect();
    QRect const below = pane.GetFrequencyAxis().geometry();
    QRect const beside = pane.GetLevelScale().geometry();
    QCOMPARE(below.top(), picture.bottom() + 1);
    QCOMPARE(below.left(), 0);
    QCOMPARE(below.right(), pane.width() - 1);
    QCOMPARE(below.bottom(), pane.height() - 1);
    QCOMPARE(pane.GetFrequencyAxis().innerRect().left(), picture.left());
    QCOMPARE(pane.GetFrequencyAxis().innerRect().right(), picture.right());
    QCOMPARE(beside.right(), picture.left() - 1);
    QCOMPARE(pane.GetLevelScale().innerRect().top(), picture.top());
    QCOMPARE(pane.GetLevelScale().innerRect().bottom(), picture.bottom());
    for (ScaleAxis * const axis : { static_cast<ScaleAxis *>(&pane.GetFrequencyAxis()), &pane.GetLevelScale() }) {
        for (QRect const & label : axis->GetLabelRects())
            QVERIFY(axis->rect().contains(label));
    }
}

void tst_SpectrumPane::followsValuesByPath()
{
    Pane pane(600, 300);
    ValueNumeric<double> * const start = Insert(QStringLiteral("start"), 950.0);
    ValueNumeric<double> * const stop = Insert(QStringLiteral("stop"), 1050.0);
    ValueNumeric<double> * const min = Insert(QStringLiteral("min"), -90.0);
    ValueNumeric<double> * const max = Insert(QStringLiteral("max"), -10.0);
    QVERIFY(pane.SetStart_ValuePath(QStringLiteral("/test/start")));
    QVERIFY(pane.SetStop_ValuePath(QStringLiteral("/test/stop")));
    QVERIFY(pane.SetLevelMin_ValuePath(QStringLiteral("/test/min")));
    QVERIFY(pane.SetLevelMax_ValuePath(QStringLiteral("/test/max")));
    QCOMPARE(pane.GetFrequencyRange().start, 950.0);
    QCOMPARE(pane.GetFrequencyRange().span, 100.0);
    QCOMPARE(pane.GetLevelMin(), -90.0);
    QCOMPARE(pane.GetLevelMax(), -10.0);
    QImage const before = Rendered(pane);
    start->SetValue(1000.0, nullptr);
    QCOMPARE(pane.GetFrequencyRange().start, 1000.0);
    QCOMPARE(pane.GetFrequencyRange().span, 50.0);
    QVERIFY(Rendered(pane) != before);
    stop->SetValue(1200.0, nullptr);
    QCOMPARE(pane.GetFrequencyRange().span, 200.0);
    start->SetValue(1300.0, nullptr); // above the stop: no range
    QCOMPARE(pane.GetFrequencyRange().start, 1000.0);
    stop->SetValue(1400.0, nullptr);
    QCOMPARE(pane.GetFrequencyRange().start, 1300.0);
    min->SetValue(-80.0, nullptr);
    QCOMPARE(pane.GetLevelMin(), -80.0);
    max->SetValue(0.0, nullptr);
    QCOMPARE(pane.GetLevelMax(), 0.0);
    // a value that goes away leaves the range; what is bound anew is followed again
    Tree::Instance()->Remove(QStringLiteral("/test/max"));
    QCOMPARE(pane.GetLevelMax(), 0.0);
    Insert(QStringLiteral("max"), 10.0);
    QVERIFY(pane.SetLevelMax_ValuePath(QStringLiteral("/test/max")));
    QCOMPARE(pane.GetLevelMax(), 10.0);
}

void tst_SpectrumPane::staysWithoutValues()
{
    Pane pane(600, 300);
    pane.SetLevelRange(-77.0, -7.0);
    QVERIFY(!pane.SetStart_ValuePath(QString()));
    QVERIFY(!pane.SetStop_ValuePath(QStringLiteral("/no/such/path")));
    QVERIFY(!pane.SetLevelMin_ValuePath(QStringLiteral("/no/such/path")));
    QVERIFY(!pane.SetLevelMax_ValuePath(QString()));
    QCOMPARE(pane.GetLevelMin(), -77.0);
    QCOMPARE(pane.GetLevelMax(), -7.0);
}

void tst_SpectrumPane::refusesBadRanges_data()
{
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("width");
    QTest::newRow("width 0") << 0.0 << 0.0;
    QTest::newRow("width below 0") << 0.0 << -1.0;
    QTest::newRow("width NaN") << 0.0 << qQNaN();
    QTest::newRow("width infinite") << 0.0 << qInf();
    QTest::newRow("low NaN") << qQNaN() << 1.0;
    QTest::newRow("low infinite") << -qInf() << 1.0;
}

void tst_SpectrumPane::refusesBadRanges()
{
    QFETCH(double, low);
    QFETCH(double, width);
    Pane pane(600, 300);
    pane.SetFrequencyRange({ 5.0, 10.0 });
    pane.SetLevelRange(-50.0, -20.0);
    pane.SetFrequencyRange({ low, width });
    pane.SetLevelRange(low, low + width);
    QCOMPARE(pane.GetFrequencyRange().start, 5.0);
    QCOMPARE(pane.GetFrequencyRange().span, 10.0);
    QCOMPARE(pane.GetLevelMin(), -50.0);
    QCOMPARE(pane.GetLevelMax(), -20.0);
    // the scales show what the pane does
    QCOMPARE(pane.GetFrequencyAxis().GetStart(), 5.0);
    QCOMPARE(pane.GetFrequencyAxis().GetStop(), 15.0);
    QCOMPARE(pane.GetLevelScale().GetStart(), -50.0);
    QCOMPARE(pane.GetLevelScale().GetStop(), -20.0);
}

void tst_SpectrumPane::coloursAreTaken()
{
    Pane pane(600, 300);
    pane.SetFrequencyRange({ 0.0, 64.0 });
    pane.SetLine(LineOf(0.0, std::vector<double>(64, -60.0)));
    PaneColors other = Colors();
    other.ground = QColor(90, 90, 0);
    other.trace = QColor(0, 255, 1);
    pane.SetColors(other);
    QImage const image = Rendered(pane);
    QRect const picture = pane.GetPictureRect();
    QCOMPARE(image.pixelColor(picture.left() + 5, picture.top() + 3), other.ground);
    QCOMPARE(image.pixelColor(picture.left() + 5, picture.top() + picture.height() / 2), other.trace);
}

void tst_SpectrumPane::tinyPaneSurvives_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("nothing") << QSize(0, 0);
    QTest::newRow("one pixel") << QSize(1, 1);
    QTest::newRow("narrow") << QSize(20, 300);
    QTest::newRow("flat") << QSize(600, 10);
    QTest::newRow("without width") << QSize(0, 300);
    QTest::newRow("without height") << QSize(300, 0);
    QTest::newRow("margins alone") << QSize(78, 40);
}

void tst_SpectrumPane::tinyPaneSurvives()
{
    QFETCH(QSize, size);
    Pane pane(600, 300);
    pane.SetFrequencyRange({ 0.0, 64.0 });
    pane.SetLine(PeakLine(64, 20, -90.0, -10.0));
    pane.resize(size);
    pane.grab();
    pane.SetLine(PeakLine(64, 30, -90.0, -10.0));
    pane.grab();
    pane.resize(600, 300);
    QImage const image = Rendered(pane);
    QRect const picture = pane.GetPictureRect();
    QVERIFY(TraceRow(image, picture, picture.width() / 4) > 0);
}

void tst_SpectrumPane::lineWithoutAPictureHasNoPeakBeside()
{
    Pane pane(600, 300);
    pane.SetFrequencyRange({ 0.0, 65536.0 });
    pane.SetLine(PeakLine(65536, 60000, -90.0, -10.0));
    QCOMPARE(pane.FindPeakBeside(0.0, 0.0).level, -10.0);
    pane.resize(20, 300);
    pane.grab();
    QVERIFY(pane.GetPictureRect().isEmpty());
    pane.SetLine(PeakLine(64, 30, -90.0, -10.0));
    QVERIFY(std::isnan(pane.FindPeakBeside(0.0, 0.0).level)); // no column of the longer line is left
}

void tst_SpectrumPane::vorPeaksStandAtTheirFrequencies_data()
{
    QTest::addColumn<double>("tone");  // Hz above the carrier
    QTest::addColumn<double>("reach"); // Hz to either side that are shown
    QTest::newRow("30 Hz") << 30.0 << 20.0;
    QTest::newRow("1020 Hz") << 1020.0 << 200.0;
    QTest::newRow("9960 Hz") << 9960.0 << 14.0;
}

void tst_SpectrumPane::vorPeaksStandAtTheirFrequencies()
{
    QFETCH(double, tone);
    QFETCH(double, reach);
    if (TestStage::Recordings().isEmpty())
        QSKIP("no recordings", );
    auto source = OpenRecording(TestStage::Recordings(), QStringLiteral("vor_klo_114850kHz_am_47kSps_rf32"));
    QVERIFY(source);
    constexpr int bins = 8192;
    double const binWidth = source->Span() / bins;
    Line const line = MakeLines(*source, bins, source->Duration(), 1).front();
    Pane pane(900, 300);
    pane.SetLevelRange(-100.0, -20.0);
    pane.SetFrequencyRange({ 114.85e6 + tone - reach, 2.0 * reach });
    pane.SetLine(line);
    QImage const image = Rendered(pane);
    QRect const picture = pane.GetPictureRect();
    int best = 0;
    int top = picture.height();
    int last = 0; // the plateau of a bin is several columns wide
    for (int column = 0; column < picture.width(); ++column) {
        int const row = TraceRow(image, picture, column);
        QVERIFY(row >= 0);
        if (row < top)
            best = column;
        if (row <= top)
            last = column;
        top = std::min(top, row);
    }
    double const middle = (best + last) / 2.0 + 0.5;
    double const frequency = tone - reach + middle * 2.0 * reach / picture.width();
    QVERIFY2(std::abs(frequency - tone) <= binWidth,
             qPrintable(QStringLiteral("%1 Hz, a bin is %2 Hz").arg(frequency).arg(binWidth)));
}

void tst_SpectrumPane::nullLineIsIgnored()
{
    Pane pane(600, 300);
    pane.SetLine(nullptr);
    QVERIFY(!std::isfinite(pane.GetPeak().level));
}

void tst_SpectrumPane::secondPeakStandsBesideTheFirst()
{
    Pane pane(600, 300);
    pane.SetFrequencyRange({ 0.0, 4096.0 });
    std::vector<double> levels(4096, -90.0);
    levels[1000] = -10.0;
    levels[1010] = -12.0;
    levels[3000] = -30.0;
    pane.SetLine(LineOf(0.0, levels));
    SpectrumPane::Peak const far = pane.FindPeakBeside(1000.0, 100.0);
    QCOMPARE(far.frequency, 3000.0);
    QCOMPARE(far.level, -30.0);
    QCOMPARE(pane.FindPeakBeside(1000.0, 5.0).frequency, 1010.0);
    QVERIFY(std::isnan(pane.FindPeakBeside(1000.0, 1e6).level));
    Pane empty(600, 300);
    QVERIFY(std::isnan(empty.FindPeakBeside(0.0, 0.0).level));
}

void tst_SpectrumPane::markersReadOutLevels()
{
    Marked pane;
    QCOMPARE(pane.Texts(eYellowX), (QStringList{ QStringLiteral("m1 1.000 kHz  -10.0 dBFS") }));
    // the read-out rests until the next one is due, and follows the marker at once
    pane.SetLine(PeakLine(4096, 1000, -90.0, -20.0));
    QCOMPARE(pane.Texts(eYellowX), (QStringList{ QStringLiteral("m1 1.000 kHz  -10.0 dBFS") }));
    ValueOf(QStringLiteral("m1"))->SetValue(2500.0, nullptr);
    QCOMPARE(pane.Texts(eYellowX), (QStringList{ QStringLiteral("m1 2.500 kHz  -90.0 dBFS") }));
    QTimerEvent tick(pane.GetPeakTimerId());
    QCoreApplication::sendEvent(&pane, &tick);
    pane.SetLine(PeakLine(4096, 2500, -90.0, -33.0));
    QCOMPARE(pane.Texts(eYellowX), (QStringList{ QStringLiteral("m1 2.500 kHz  -33.0 dBFS") }));
    // without a line there is no level
    Marked fresh(false);
    QCOMPARE(fresh.Texts(eYellowX), (QStringList{ QStringLiteral("m1 1.000 kHz") }));
}

void tst_SpectrumPane::levelsOfAnotherViewAreNotShown()
{
    Marked pane;
    QVERIFY(pane.Texts(eYellowX).front().endsWith(QStringLiteral("dBFS")));
    pane.SetFrequencyRange({ 10000.0, 4096.0 }); // the line has no level there
    ValueOf(QStringLiteral("m1"))->SetValue(11000.0, nullptr);
    QCOMPARE(pane.Texts(eYellowX).size(), 1);
    QVERIFY(pane.Texts(eYellowX).front().startsWith(QStringLiteral("m1 11.00")));
    QVERIFY(pane.Texts(eYellowX).front().endsWith(QStringLiteral("kHz")));
}

void tst_SpectrumPane::markersCompare()
{
    Marked pane;
    pane.SetShowMarker(eWhiteX, true);
    QString const delta = QStringLiteral("\u0394 ");
    QCOMPARE(pane.Texts(eWhiteX), (QStringList{ QStringLiteral("m2 3.000 kHz  -90.0 dBFS"),
                                                delta + QStringLiteral("+2.000 kHz  -80.0 dB") }));
    ValueOf(QStringLiteral("m2"))->SetValue(500.0, nullptr);
    QCOMPARE(pane.Texts(eWhiteX).value(1), delta + QStringLiteral("-500 Hz  -80.0 dB"));
    ValueOf(QStringLiteral("m1"))->SetValue(500.0, nullptr);
    QCOMPARE(pane.Texts(eWhiteX).value(1), delta + QStringLiteral("+0 Hz  +0.0 dB"));
    pane.SetShowMarker(eYellowX, false);
    QCOMPARE(pane.Texts(eWhiteX).size(), 1);
}

void tst_SpectrumPane::levelMarkerHasItsFlagBeside()
{
    Marked pane;
    pane.SetShowMarker(eYellowY, true);
    QCOMPARE(pane.Texts(eYellowY), (QStringList{ QStringLiteral("level"), QStringLiteral("-40.0 dBFS") }));
    for (double const level : { -40.0, 0.0, -100.0 }) {
        ValueOf(QStringLiteral("level"))->SetValue(level, nullptr);
        MarkerRulers::Ruler const ruler = pane.RulerOf(eYellowY);
        QVERIFY(ruler.flag.isValid());
        QVERIFY(ruler.flag.left() > pane.GetPictureRect().right());
        QVERIFY(pane.rect().contains(ruler.flag));
    }
    // the line lies where a trace of that level does
    ValueOf(QStringLiteral("level"))->SetValue(-25.0, nullptr);
    pane.SetLine(LineOf(0.0, std::vector<double>(4096, -25.0)));
    QCOMPARE(pane.RulerOf(eYellowY).line, pane.GetPictureRect().top() + pane.GetTrace().front());
}

void tst_SpectrumPane::flagsStayInThePicture_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("of 640 x 480") << QSize(640, 150);
    QTest::newRow("of 800 x 600") << QSize(800, 200);
    QTest::newRow("of 1280 x 800") << QSize(1280, 280);
    QTest::newRow("of 1920 x 1080") << QSize(1920, 400);
}

void tst_SpectrumPane::flagsStayInThePicture()
{
    QFETCH(QSize, size);
    Marked pane;
    pane.resize(size);
    pane.SetShowMarker(eWhiteX, true);
    pane.SetShowMarker(eYellowY, true);
    for (double const first : { 0.0, 10.0, 2048.0, 4090.0, 4096.0 }) {
        for (double const second : { 0.0, 2047.0, 4096.0 }) {
            ValueOf(QStringLiteral("m1"))->SetValue(first, nullptr);
            ValueOf(QStringLiteral("m2"))->SetValue(second, nullptr);
            pane.grab();
            QCOMPARE(pane.GetRulers().size(), std::size_t(3));
            for (MarkerRulers::Ruler const & ruler : pane.GetRulers()) {
                QVERIFY(ruler.flag.isValid());
                QVERIFY(ruler.level || pane.GetPictureRect().contains(ruler.flag));
                for (MarkerRulers::Ruler const & other : pane.GetRulers())
                    QVERIFY(other.index == ruler.index || !other.flag.intersects(ruler.flag));
            }
        }
    }
}

void tst_SpectrumPane::pixelsAndValues_data()
{
    QTest::addColumn<int>("direction");
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("pixel"); // from the edge of the picture
    QTest::newRow("start") << int(eMarkerX) << 0.0 << 0;
    QTest::newRow("half") << int(eMarkerX) << 2048.0 << -1000;
    QTest::newRow("stop") << int(eMarkerX) << 4096.0 << -1;
    QTest::newRow("below the start") << int(eMarkerX) << -1.0 << -2000;
    QTest::newRow("top") << int(eMarkerY) << 0.0 << 0;
    QTest::newRow("bottom") << int(eMarkerY) << -100.0 << -1;
    QTest::newRow("above the top") << int(eMarkerY) << 1.0 << -2000;
    QTest::newRow("NaN") << int(eMarkerX) << qQNaN() << -2000;
}

void tst_SpectrumPane::pixelsAndValues()
{
    QFETCH(int, direction);
    QFETCH(double, value);
    QFETCH(int, pixel);
    Marked pane;
    QRect const picture = pane.GetPictureRect();
    int const first = direction == eMarkerX ? picture.left() : picture.top();
    int const length = direction == eMarkerX ? picture.width() : picture.height();
    int const wanted = pixel == -2000   ? -1
                       : pixel == -1000 ? first + length / 2
                       : pixel == -1    ? first + length - 1
                                        : first + pixel;
    QCOMPARE(pane.ValueToPixel(direction, value), wanted);
    if (wanted < 0)
        return;
    // the value in the middle of a pixel has that pixel
    for (int step = 0; step < length; ++step)
        QCOMPARE(pane.ValueToPixel(direction, pane.PixelToValue(direction, first + step)), first + step);
    double start = 0.0;
    double stop = 0.0;
    pane.GetCurrentStartStop(direction, start, stop);
    QCOMPARE(start, direction == eMarkerX ? 0.0 : -100.0);
    QCOMPARE(stop, direction == eMarkerX ? 4096.0 : 0.0);
}

void tst_SpectrumPane::stepsOverMinusOne()
{
    Marked pane;
    pane.resize(900, pane.height() + 150 - pane.GetPictureRect().height());
    pane.grab();
    QRect const picture = pane.GetPictureRect();
    QCOMPARE(picture.height(), 150); // the middle of row 1 is -1 dBFS
    pane.SetShowMarker(eYellowY, true);
    ValueOf(QStringLiteral("level"))->SetValue(-5.0, nullptr);
    pane.grab();
    for (int step = 0; step < 9; ++step)
        pane.MoveMarker2NextPixel(eYellowY, true);
    QCOMPARE(pane.ValueToPixel(eMarkerY, pane.GetMarkerValue(eYellowY)), picture.top());
    // the same at -1 Hz, in the middle of column 10
    double const width = picture.width();
    pane.SetFrequencyRange({ -1.0 - 10.5, width });
    QVERIFY(pane.PixelToValue(eMarkerX, picture.left() + 10) != -1.0);
    QVERIFY(std::abs(pane.PixelToValue(eMarkerX, picture.left() + 10) + 1.0) < 1e-9);
}

void tst_SpectrumPane::rangeIsTakenBeforeItIsPainted()
{
    Marked pane;
    pane.grab();
    QRect const picture = pane.GetPictureRect();
    pane.SetFrequencyRange({ 8192.0, 4096.0 });
    pane.SetLevelRange(-300.0, -200.0);
    QCOMPARE(pane.ValueToPixel(eMarkerX, 8192.0), picture.left());
    QCOMPARE(pane.ValueToPixel(eMarkerX, 1000.0), -1);
    QCOMPARE(pane.ValueToPixel(eMarkerY, -200.0), picture.top());
    double const middle = pane.PixelToValue(eMarkerX, picture.left());
    pane.SetFrequencyRange({ 0.0, 4096.0 });
    QVERIFY(pane.PixelToValue(eMarkerX, picture.left()) < middle);
}

void tst_SpectrumPane::markerIsDragged_data()
{
    QTest::addColumn<bool>("level");
    QTest::newRow("a frequency") << false;
    QTest::newRow("a level") << true;
}

void tst_SpectrumPane::markerIsDragged()
{
    QFETCH(bool, level);
    Marked pane;
    GuiBase::Instance().UndoStack()->clear();
    int const index = level ? int(eYellowY) : int(eYellowX);
    pane.SetShowMarker(index, true);
    int const direction = level ? eMarkerY : eMarkerX;
    int const place = pane.ValueToPixel(direction, pane.GetMarkerValue(index));
    pane.grab();
    QPoint const from = level ? QPoint(pane.width() / 2, place) : QPoint(place, pane.height() / 2);
    QPoint const to = from + (level ? QPoint(7, 40) : QPoint(90, 7));
    Move(pane, from, false);
    QCOMPARE(int(pane.cursor().shape()), int(level ? Qt::SizeVerCursor : Qt::SizeHorCursor));
    Drag(pane, from, to);
    ValueNumeric<double> const * const value = ValueOf(level ? QStringLiteral("level") : QStringLiteral("m1"));
    QCOMPARE(pane.ValueToPixel(direction, value->GetValue()), level ? to.y() : to.x());
    QCOMPARE(UndoCount(), 1);
    QCOMPARE(pane.RulerOf(index).line, level ? to.y() : to.x());
}

void tst_SpectrumPane::keyboardIsShown()
{
    Marked pane;
    pane.clearFocus();
    QCOMPARE(int(pane.focusPolicy()), int(Qt::StrongFocus));
    QImage const before = Rendered(pane);
    pane.activateWindow();
    pane.setFocus();
    QTRY_VERIFY(pane.hasFocus());
    QVERIFY(Rendered(pane) != before);
    double const value = ValueOf(QStringLiteral("m1"))->GetValue();
    QTest::keyClick(&pane, Qt::Key_Right);
    QCOMPARE(pane.ValueToPixel(eMarkerX, ValueOf(QStringLiteral("m1"))->GetValue()),
             pane.ValueToPixel(eMarkerX, value) + 1);
}

ORIM_TEST_MAIN(tst_SpectrumPane)
#include "tst_spectrumpane.moc"
