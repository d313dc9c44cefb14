// SPDX-License-Identifier: MIT
#include "panetools.h"
#include "spectrumpane.h"
#include "testmain.h"
#include "tree.h"
#include "valuenumeric.h"

#include <QTimerEvent>

#include <cmath>
#include <set>

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
    void labelsStayInThePane_data();
    void labelsStayInThePane();
    void labelsAreApart();
    void followsValuesByPath();
    void staysWithoutValues();
    void refusesBadRanges_data();
    void refusesBadRanges();
    void coloursAreTaken();
    void tinyPaneSurvives_data();
    void tinyPaneSurvives();
    void vorPeaksStandAtTheirFrequencies_data();
    void vorPeaksStandAtTheirFrequencies();
    void nullLineIsIgnored();
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

} // namespace

void tst_SpectrumPane::cleanup()
{
    for (char const * const name : { "centre", "span", "min", "max" })
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
    int const wanted = static_cast<int>(std::lround(part * (picture.height() - 1)));
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
    QCOMPARE(*top, static_cast<int>(std::lround(0.1 * (picture.height() - 1))));
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

void tst_SpectrumPane::labelsStayInThePane_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("span");
    QTest::newRow("large") << QSize(1280, 400) << 868.15e6 << 1.6e6;
    QTest::newRow("small") << QSize(320, 120) << 868.15e6 << 1.6e6;
    QTest::newRow("narrow span") << QSize(640, 200) << 1090e6 << 150.0;
    QTest::newRow("from 0") << QSize(640, 200) << 0.0 << 6000.0;
}

void tst_SpectrumPane::labelsStayInThePane()
{
    QFETCH(QSize, size);
    QFETCH(double, start);
    QFETCH(double, span);
    Pane pane(size.width(), size.height());
    pane.SetFrequencyRange({ start, span });
    QImage const image = Rendered(pane);
    int texts = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            bool const isText = qGray(image.pixel(x, y)) > 100;
            texts += isText ? 1 : 0;
            bool const isEdge = x == 0 || y == 0 || x == image.width() - 1 || y == image.height() - 1;
            QVERIFY2(!(isText && isEdge), qPrintable(QStringLiteral("%1 %2").arg(x).arg(y)));
        }
    }
    QVERIFY(texts > 100);
}

void tst_SpectrumPane::labelsAreApart()
{
    // below the picture the labels are runs of text; between two of them lies a gap wider than between digits
    Pane pane(900, 300);
    pane.SetFrequencyRange({ 144.488e6, 1.024e6 });
    QImage const image = Rendered(pane);
    QRect const picture = pane.GetPictureRect();
    int runs = 0;
    int blank = 1000;
    for (int x = 0; x < image.width(); ++x) {
        bool inked = false;
        for (int y = picture.bottom() + 8; y < image.height(); ++y)
            inked = inked || qGray(image.pixel(x, y)) > 100;
        if (inked && blank >= 8)
            ++runs;
        blank = inked ? 0 : blank + 1;
    }
    QVERIFY2(runs >= 6 && runs <= 25, qPrintable(QString::number(runs))); // the unit and the labels, each one run
}

void tst_SpectrumPane::followsValuesByPath()
{
    Pane pane(600, 300);
    ValueNumeric<double> * const centre = Insert(QStringLiteral("centre"), 1000.0);
    ValueNumeric<double> * const span = Insert(QStringLiteral("span"), 100.0);
    ValueNumeric<double> * const min = Insert(QStringLiteral("min"), -90.0);
    ValueNumeric<double> * const max = Insert(QStringLiteral("max"), -10.0);
    QVERIFY(pane.SetCentre_ValuePath(QStringLiteral("/test/centre")));
    QVERIFY(pane.SetSpan_ValuePath(QStringLiteral("/test/span")));
    QVERIFY(pane.SetLevelMin_ValuePath(QStringLiteral("/test/min")));
    QVERIFY(pane.SetLevelMax_ValuePath(QStringLiteral("/test/max")));
    QCOMPARE(pane.GetFrequencyRange().start, 950.0);
    QCOMPARE(pane.GetFrequencyRange().span, 100.0);
    QCOMPARE(pane.GetLevelMin(), -90.0);
    QCOMPARE(pane.GetLevelMax(), -10.0);
    QImage const before = Rendered(pane);
    centre->SetValue(2000.0, nullptr);
    QCOMPARE(pane.GetFrequencyRange().start, 1950.0);
    QVERIFY(Rendered(pane) != before);
    span->SetValue(40.0, nullptr);
    QCOMPARE(pane.GetFrequencyRange().start, 1980.0);
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
    QVERIFY(!pane.SetCentre_ValuePath(QString()));
    QVERIFY(!pane.SetSpan_ValuePath(QStringLiteral("/no/such/path")));
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
    int const middle = static_cast<int>(std::lround(0.5 * (picture.height() - 1)));
    QCOMPARE(image.pixelColor(picture.left() + 5, picture.top() + middle), other.trace);
}

void tst_SpectrumPane::tinyPaneSurvives_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("nothing") << QSize(0, 0);
    QTest::newRow("one pixel") << QSize(1, 1);
    QTest::newRow("narrow") << QSize(20, 300);
    QTest::newRow("flat") << QSize(600, 10);
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

ORIM_TEST_MAIN(tst_SpectrumPane)
#include "tst_spectrumpane.moc"
