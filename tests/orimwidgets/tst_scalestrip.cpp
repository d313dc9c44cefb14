// SPDX-License-Identifier: MIT
#include "scalestrip.h"

#include "slowscale.h"
#include "testmain.h"

#include <QPainter>

#include <array>
#include <cmath>
#include <limits>
#include <random>

using namespace SlowScales;

class tst_ScaleStrip : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void drawsTheScale_data();
    void drawsTheScale();
    void pansAsDrawnAnew_data();
    void pansAsDrawnAnew();
    void changesAsDrawnAnew_data();
    void changesAsDrawnAnew();
    void standsStill();
    void panAsksForNewLabelsOnly();
    void panMovesTicsOnPixelEdges();
    void revisions();
    void ticPixelsBeforePainting();
    void originRoundsAsTheAxis();
    void wordsForLabels();
    void wordForTheUnit();
    void noLabelText();
    void labelTextThatChanged();
    void neededThickness_data();
    void neededThickness();
    void noRoomForLabels_data();
    void noRoomForLabels();
    void emptyRanges_data();
    void emptyRanges();
    void paintsItsRectangleOnly_data();
    void paintsItsRectangleOnly();
    void scaledPainterIsCrisp();
    void turnedPainter();
    void translucentGround();
    void oddViews_data();
    void oddViews();
    void longViewShowsItsPart();
    void thickScaleIsPlainBeyond();
    void ratioOfTheScreen_data();
    void ratioOfTheScreen();
    void oddLooks_data();
    void oddLooks();
};

void tst_ScaleStrip::drawsTheScale_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<int>("side");
    QTest::addColumn<double>("ratio");
    QTest::addColumn<QString>("unit");
    for (double const ratio : { 1.0, 1.5, 2.0, 3.0 }) {
        for (QString const & unit : { QString(), QStringLiteral(": 1e6") }) {
            QByteArray const name =
                QByteArray(unit.isEmpty() ? "" : "with unit, ") + "ratio " + QByteArray::number(ratio);
            QTest::newRow("below a pane, " + name) << Qt::Horizontal << 0 << ratio << unit;
            QTest::newRow("above a pane, " + name) << Qt::Horizontal << 1 << ratio << unit;
            QTest::newRow("right of a pane, " + name) << Qt::Vertical << 0 << ratio << unit;
            QTest::newRow("left of a pane, " + name) << Qt::Vertical << 1 << ratio << unit;
        }
    }
}

void tst_ScaleStrip::drawsTheScale()
{
    QFETCH(Qt::Orientation, orientation);
    QFETCH(int, side);
    QFETCH(double, ratio);
    QFETCH(QString, unit);
    QSize const size = orientation == Qt::Vertical ? QSize(90, 320) : QSize(640, 30);
    Scale scale;
    scale.look = LookOf(orientation, static_cast<ScaleStrip::ELineSide>(side));
    scale.unit = unit;
    for (auto const & [start, stop] :
         { std::pair{ -12.5, 107.3 }, { 107.3, -12.5 }, { 0.0, 100.0 }, { 1e6, 1.0001e6 } }) {
        scale.tics = Found(start, stop);
        QCOMPARE(scale.DrawnAnew(size, ratio), SlowScale(scale, size, ratio).Draw());
    }
}

void tst_ScaleStrip::pansAsDrawnAnew_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<double>("ratio");
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("span");
    QTest::newRow("horizontal") << Qt::Horizontal << 1.0 << 87.3e6 << 20.6e6;
    QTest::newRow("vertical") << Qt::Vertical << 1.0 << -120.3 << 97.1;
    QTest::newRow("falling") << Qt::Horizontal << 1.0 << 3.2 << -7.7;
    QTest::newRow("vertical, falling") << Qt::Vertical << 2.0 << 3.2 << -7.7;
    QTest::newRow("tics on the edges of pixels") << Qt::Horizontal << 1.0 << 0.0 << 64.0;
    QTest::newRow("tics on the edges of pixels, vertical") << Qt::Vertical << 1.0 << 0.0 << 64.0;
    QTest::newRow("ratio 1.5") << Qt::Horizontal << 1.5 << 87.3e6 << 20.6e6;
    QTest::newRow("ratio 2") << Qt::Horizontal << 2.0 << 87.3e6 << 20.6e6;
    QTest::newRow("ratio 3.1416") << Qt::Vertical << 3.1416 << 0.1 << 1.0;
}

void tst_ScaleStrip::pansAsDrawnAnew()
{
    QFETCH(Qt::Orientation, orientation);
    QFETCH(double, ratio);
    QFETCH(double, start);
    QFETCH(double, span);
    std::mt19937_64 random(TestStage::Seed());
    QSize const size = orientation == Qt::Vertical ? QSize(70, 320) : QSize(320, 30);
    Scale scale;
    scale.look = LookOf(orientation);
    scale.unit = QStringLiteral("1e6");
    ScaleStrip strip;
    strip.SetLabelText(NumberText);
    double const pixel = span / std::round(320 * ratio);
    long long const turns = TestStage::Turns(60, 20'000);
    for (long long turn = 0; turn < turns; ++turn) {
        int const reach = turn % 10 == 0 ? 500 : 12; // now and then beyond what the picture holds
        start += pixel * static_cast<double>(
                             static_cast<long long>(random() % static_cast<unsigned int>(2 * reach + 1)) - reach);
        scale.tics = Found(start, start + span);
        scale.GiveTo(strip);
        QCOMPARE(Shown(strip, size, ratio), scale.DrawnAnew(size, ratio));
    }
}

void tst_ScaleStrip::changesAsDrawnAnew_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::newRow("horizontal") << Qt::Horizontal;
    QTest::newRow("vertical") << Qt::Vertical;
}

void tst_ScaleStrip::changesAsDrawnAnew()
{
    QFETCH(Qt::Orientation, orientation);
    std::mt19937_64 random(TestStage::Seed());
    auto const below = [&random](unsigned int end) { return static_cast<int>(random() % end); };
    std::uniform_real_distribution<double> uniform(-1.0, 1.0);
    Scale scale;
    scale.look = LookOf(orientation);
    ScaleStrip strip;
    strip.SetLabelText(NumberText);
    QSize size(300, 60);
    double ratio = 1.0;
    double start = -3.0;
    double span = 10.0;
    long long const turns = TestStage::Turns(150, 50'000);
    for (long long turn = 0; turn < turns; ++turn) {
        switch (below(16)) {
        case 0:
            size = QSize(1 + below(400), 1 + below(400));
            break;
        case 1:
            ratio = std::array<double, 4>{ { 1.0, 1.25, 2.0, 3.0 } }[static_cast<std::size_t>(below(4))];
            break;
        case 2:
            scale.unit = std::array<char const *, 3>{ { "", "MHz", "1e3" } }[static_cast<std::size_t>(below(3))];
            break;
        case 3:
            scale.look.lineSide = static_cast<ScaleStrip::ELineSide>(below(2));
            break;
        case 4:
            scale.look.ticLength = below(12);
            break;
        case 5:
            scale.look.labelGap = below(20);
            break;
        case 6:
            scale.look.font.setPointSize(5 + below(12));
            break;
        case 7:
            scale.look.text = QColor::fromRgb(0xff000000U | static_cast<QRgb>(random()));
            break;
        case 8:
            scale.look.background.setAlpha(below(3) == 0 ? 100 : 255);
            break;
        case 9:
            scale.origin = below(50);
            break;
        case 10:
            span = -span;
            break;
        case 11:
        case 12:
            span *= std::pow(2.0, uniform(random));
            break;
        default:
            start += span * 0.1 * uniform(random);
            break;
        }
        scale.tics = Found(start, start + span);
        scale.GiveTo(strip);
        QCOMPARE(Shown(strip, size, ratio), scale.DrawnAnew(size, ratio));
    }
}

void tst_ScaleStrip::standsStill()
{
    int asked = 0;
    ScaleStrip strip;
    strip.SetLook(LookOf());
    strip.SetTics(Found(0.0, 100.0));
    strip.SetLabelText([&asked](double value, double step) {
        ++asked;
        return NumberText(value, step);
    });
    QImage const first = Shown(strip, QSize(640, 30));
    int const askedFirst = asked;
    unsigned long long const revision = strip.GetRevision();
    QVERIFY(askedFirst > 3);
    QCOMPARE(Shown(strip, QSize(640, 30)), first);
    QCOMPARE(asked, askedFirst);
    QCOMPARE(strip.GetRevision(), revision);
}

void tst_ScaleStrip::panAsksForNewLabelsOnly()
{
    std::vector<double> asked;
    ScaleStrip strip;
    strip.SetLook(LookOf());
    strip.SetLabelText([&asked](double value, double step) {
        asked.push_back(value);
        return NumberText(value, step);
    });
    strip.SetTics(Found(-5.0, 95.0)); // 0 to 90
    Shown(strip, QSize(640, 30));
    std::size_t const first = asked.size();
    asked.clear();
    strip.SetTics(Found(-1.0, 99.0));
    Shown(strip, QSize(640, 30));
    QVERIFY(asked.empty());
    strip.SetTics(Found(3.0, 103.0));
    Shown(strip, QSize(640, 30));
    QCOMPARE(asked, std::vector<double>{ 100.0 });
    asked.clear();
    strip.SetTics(Found(-17.0, 83.0)); // another step makes other texts, even of values that stay
    Shown(strip, QSize(640, 30));
    QCOMPARE(asked, (std::vector<double>{ -10.0, 0.0 }));
    QVERIFY(first >= 5);
    asked.clear();
    strip.SetTics(Found(-20.0, 20.0));
    Shown(strip, QSize(640, 30));
    QVERIFY(std::find(asked.begin(), asked.end(), 10.0) != asked.end());
}

//! An axis rounds a tic on the edge of a pixel to either side, as the sum comes out; the picture follows.
void tst_ScaleStrip::panMovesTicsOnPixelEdges()
{
    Scale scale;
    ScaleStrip strip;
    strip.SetLabelText(NumberText);
    int uneven = 0;
    std::vector<int> before;
    for (int pan = 0; pan < 64; ++pan) {
        double const start = 0.1 * pan;
        scale.tics = Found(start, start + 64.0);
        scale.GiveTo(strip);
        QImage const shown = Shown(strip, QSize(640, 30));
        QCOMPARE(shown, scale.DrawnAnew(QSize(640, 30), 1.0));
        std::vector<int> const now = strip.GetMajorPixels();
        if (now.size() == before.size() && before.back() - now.back() != before[1] - now[1])
            ++uneven;
        before = now;
        for (int const pixel : now)
            QCOMPARE(shown.pixel(pixel, 5), scale.look.line.rgb());
    }
    QVERIFY(uneven > 0);
}

void tst_ScaleStrip::revisions()
{
    ScaleStrip strip;
    Scale scale;
    scale.unit = QStringLiteral("dB");
    scale.GiveTo(strip);
    strip.SetView(QRect(0, 0, 100, 20), 1.0);
    auto const moves = [&strip](auto const & change) {
        unsigned long long const before = strip.GetRevision();
        change();
        return strip.GetRevision() != before;
    };
    QVERIFY(!moves([&] { scale.GiveTo(strip); }));
    QVERIFY(!moves([&] { strip.SetView(QRect(0, 0, 100, 20), 1.0); }));
    QVERIFY(!moves([&] { strip.SetView(QRect(50, 60, 100, 20), 1.0); })); // the same elsewhere
    QVERIFY(moves([&] { strip.SetView(QRect(0, 0, 101, 20), 1.0); }));
    QVERIFY(moves([&] { strip.SetView(QRect(0, 0, 101, 21), 1.0); }));
    QVERIFY(moves([&] { strip.SetView(QRect(0, 0, 101, 21), 2.0); }));
    QVERIFY(moves([&] { strip.SetTics(Found(0.0, 99.0)); }));
    QVERIFY(!moves([&] { strip.SetTics(Found(0.0, 99.0)); }));
    QVERIFY(moves([&] { strip.SetTics({ NaN, NaN, NaN, NaN, NaN, 1, 1 }); }));
    QVERIFY(!moves([&] { strip.SetTics({ NaN, NaN, NaN, NaN, NaN, 1, 1 }); }));
    QVERIFY(moves([&] { strip.SetUnit(QString()); }));
    QVERIFY(moves([&] { strip.SetOrigin(1); }));
    QVERIFY(moves([&] { strip.SetLabelText(NumberText); }));
    QVERIFY(moves([&] { strip.InvalidateLabels(); }));
    auto const looks = [&](auto const & change) {
        change(scale.look);
        return moves([&] { strip.SetLook(scale.look); });
    };
    using Look = ScaleStrip::Look;
    QVERIFY(looks([](Look & look) { look.orientation = Qt::Vertical; }));
    QVERIFY(looks([](Look & look) { look.lineSide = ScaleStrip::eLineAtFarEdge; }));
    QVERIFY(looks([](Look & look) { look.font.setBold(true); }));
    QVERIFY(looks([](Look & look) { look.background = Qt::red; }));
    QVERIFY(looks([](Look & look) { look.line = Qt::red; }));
    QVERIFY(looks([](Look & look) { look.text = Qt::red; }));
    QVERIFY(looks([](Look & look) { ++look.ticLength; }));
    QVERIFY(looks([](Look & look) { ++look.minorTicLength; }));
    QVERIFY(looks([](Look & look) { ++look.textDistance; }));
    QVERIFY(looks([](Look & look) { ++look.labelGap; }));
    QVERIFY(looks([](Look & look) { ++look.minorDistance; }));
    QVERIFY(looks([](Look & look) { look.characters += QLatin1Char('k'); }));
}

void tst_ScaleStrip::ticPixelsBeforePainting()
{
    ScaleStrip strip;
    strip.SetLook(LookOf());
    strip.SetTics({ 5.0, 35.0, 10.0, 10.0, 0.0, 3, 1 });
    QVERIFY(strip.GetMajorPixels().empty()); // no view yet
    strip.SetView(QRect(0, 0, 300, 30), 1.0);
    QCOMPARE(strip.GetMajorPixels(), (std::vector<int>{ 50, 150, 250 }));
    QCOMPARE(strip.GetMinorPixels(), (std::vector<int>{ 0, 100, 200, 299 }));
    QCOMPARE(strip.GetTicWidth(), 1);
    strip.SetView(QRect(0, 0, 300, 30), 2.5);
    QCOMPARE(strip.GetMajorPixels(), (std::vector<int>{ 125, 375, 625 }));
    QCOMPARE(strip.GetTicWidth(), 2);
    // the look that turns the scale takes the other side of the view for its length
    strip.SetView(QRect(0, 0, 30, 320), 1.0);
    strip.SetLook(LookOf(Qt::Vertical));
    QCOMPARE(strip.GetMajorPixels(), (std::vector<int>{ 53, 160, 266 }));
}

void tst_ScaleStrip::originRoundsAsTheAxis()
{
    ScaleStrip strip;
    strip.SetLook(LookOf());
    strip.SetTics({ 0.0, 1.0, 0.29, 1.0, 0.0, 1, 0 });
    strip.SetView(QRect(0, 0, 100, 30), 1.0);
    QCOMPARE(strip.GetMajorPixels(), std::vector<int>{ 28 });
    strip.SetOrigin(20);
    QCOMPARE(strip.GetMajorPixels(), std::vector<int>{ 29 });
}

void tst_ScaleStrip::wordsForLabels()
{
    ScaleStrip strip;
    Scale scale;
    scale.GiveTo(strip);
    strip.SetLabelText([](double value, double) { return value == 50.0 ? QStringLiteral("half") : QString(); });
    QImage const shown = Shown(strip, QSize(640, 30));
    QRect const place(300, 8, 40, 20);
    QVERIFY(TextPixels(shown, place, scale.look) > 30);
    QCOMPARE(CountOf(shown, QRect(0, 8, 290, 22), scale.look.background), 290 * 22);
    QCOMPARE(CountOf(shown, QRect(350, 8, 290, 22), scale.look.background), 290 * 22);
}

void tst_ScaleStrip::wordForTheUnit()
{
    Scale scale;
    scale.unit = QStringLiteral("dB\u00b5V/m");
    for (Qt::Orientation const orientation : { Qt::Horizontal, Qt::Vertical }) {
        scale.look = LookOf(orientation);
        QSize const size = orientation == Qt::Vertical ? QSize(80, 300) : QSize(600, 30);
        QImage const shown = scale.DrawnAnew(size, 1.0);
        QRect const place = orientation == Qt::Vertical ? QRect(8, 0, 72, 14) : QRect(550, 8, 50, 22);
        QVERIFY(TextPixels(shown, place, scale.look) > 60);
        // letters that the atlas holds make no difference to where it stands
        Scale numbers = scale;
        numbers.look.characters += scale.unit;
        QImage const other = numbers.DrawnAnew(size, 1.0);
        QVERIFY(TextPixels(other, place, scale.look) > 60);
    }
}

void tst_ScaleStrip::noLabelText()
{
    ScaleStrip strip;
    Scale scale;
    scale.GiveTo(strip);
    QImage const shown = Shown(strip, QSize(640, 30));
    QCOMPARE(CountOf(shown, QRect(0, 6, 640, 24), scale.look.background), 640 * 24);
    QCOMPARE(CountOf(shown, QRect(0, 0, 640, 1), scale.look.line), 640);
    strip.SetLabelText(NumberText);
    QVERIFY(Shown(strip, QSize(640, 30)) != shown);
    strip.SetLabelText(nullptr);
    QCOMPARE(Shown(strip, QSize(640, 30)), shown);
}

void tst_ScaleStrip::labelTextThatChanged()
{
    QString suffix;
    ScaleStrip strip;
    Scale scale;
    scale.GiveTo(strip);
    strip.SetLabelText([&suffix](double value, double step) { return NumberText(value, step) + suffix; });
    QImage const before = Shown(strip, QSize(640, 30));
    suffix = QStringLiteral(":0");
    QCOMPARE(Shown(strip, QSize(640, 30)), before);
    strip.InvalidateLabels();
    QVERIFY(Shown(strip, QSize(640, 30)) != before);
    suffix.clear();
    strip.InvalidateLabels();
    QCOMPARE(Shown(strip, QSize(640, 30)), before);
}

void tst_ScaleStrip::neededThickness_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<double>("ratio");
    QTest::newRow("horizontal") << Qt::Horizontal << 1.0;
    QTest::newRow("vertical") << Qt::Vertical << 1.0;
    QTest::newRow("horizontal, ratio 2") << Qt::Horizontal << 2.0;
    QTest::newRow("vertical, ratio 3") << Qt::Vertical << 3.0;
}

void tst_ScaleStrip::neededThickness()
{
    QFETCH(Qt::Orientation, orientation);
    QFETCH(double, ratio);
    bool const vertical = orientation == Qt::Vertical;
    Scale scale;
    scale.look = LookOf(orientation);
    scale.tics = Found(1005.0, 1095.0); // labels of four digits
    ScaleStrip strip;
    scale.GiveTo(strip);
    strip.SetLabelText(NumberText);
    strip.SetView(vertical ? QRect(0, 0, 10, 400) : QRect(0, 0, 400, 10), ratio);
    int const needed = strip.GetNeededThickness();
    QVERIFY(needed > scale.look.ticLength + scale.look.textDistance + 5);
    auto const textInk = [&](int thickness) {
        QSize const size = vertical ? QSize(thickness, 400) : QSize(400, thickness);
        return TextPixels(scale.DrawnAnew(size, ratio), QRect(QPoint(), size * ratio), scale.look);
    };
    QVERIFY(textInk(needed) > 0);
    QCOMPARE(textInk(needed - 1), 0);
    // a unit that is wider than all labels counts on a vertical scale
    strip.SetUnit(QStringLiteral("a long unit indeed"));
    QCOMPARE(strip.GetNeededThickness() > needed, vertical);
    strip.SetUnit(QString());
    strip.SetLabelText(nullptr);
    QVERIFY(strip.GetNeededThickness() < needed);
}

void tst_ScaleStrip::noRoomForLabels_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("too thin") << QSize(640, 9);
    QTest::newRow("too short") << QSize(9, 30);
    QTest::newRow("line alone") << QSize(640, 1);
}

void tst_ScaleStrip::noRoomForLabels()
{
    QFETCH(QSize, size);
    Scale scale;
    scale.unit = QStringLiteral("MHz");
    scale.tics = Found(1005.0, 1095.0);
    QImage const shown = scale.DrawnAnew(size, 1.0);
    int const line = CountOf(shown, shown.rect(), scale.look.line);
    int const ground = CountOf(shown, shown.rect(), scale.look.background);
    QVERIFY(line >= size.width());
    QCOMPARE(line + ground, size.width() * size.height());
}

void tst_ScaleStrip::emptyRanges_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::newRow("NaN") << NaN << 1.0;
    QTest::newRow("infinite") << 0.0 << std::numeric_limits<double>::infinity();
    QTest::newRow("no range") << 5.0 << 5.0;
    QTest::newRow("wider than a double") << -1.7e308 << 1.7e308;
}

void tst_ScaleStrip::emptyRanges()
{
    QFETCH(double, start);
    QFETCH(double, stop);
    Scale scale;
    ScaleStrip strip;
    strip.SetLabelText(NumberText);
    scale.GiveTo(strip);
    QImage const before = Shown(strip, QSize(300, 30));
    strip.SetTics({ start, stop, 0.0, 0.1, 0.0, 5, 4 });
    QImage const shown = Shown(strip, QSize(300, 30));
    QCOMPARE(CountOf(shown, QRect(0, 0, 300, 1), scale.look.line), 300);
    QCOMPARE(CountOf(shown, QRect(0, 1, 300, 29), scale.look.background), 300 * 29);
    scale.GiveTo(strip);
    QCOMPARE(Shown(strip, QSize(300, 30)), before);
}

void tst_ScaleStrip::paintsItsRectangleOnly_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QPoint>("translation");
    QTest::addColumn<QRect>("clip");
    QTest::addColumn<double>("ratio");
    QRect const all(0, 0, 400, 100);
    QTest::newRow("in the middle") << QRect(50, 20, 300, 30) << QPoint() << all << 1.0;
    QTest::newRow("moved") << QRect(50, 20, 300, 30) << QPoint(-20, 30) << all << 1.0;
    QTest::newRow("clipped") << QRect(50, 20, 300, 30) << QPoint() << QRect(100, 25, 60, 10) << 1.0;
    QTest::newRow("partly outside") << QRect(-50, -10, 300, 30) << QPoint() << all << 1.0;
    QTest::newRow("ratio 2") << QRect(50, 20, 300, 30) << QPoint() << all << 2.0;
    QTest::newRow("ratio 2, moved") << QRect(50, 20, 300, 30) << QPoint(-20, 30) << all << 2.0;
    QTest::newRow("ratio 1.5, moved") << QRect(50, 20, 300, 30) << QPoint(-20, 30) << all << 1.5;
    QTest::newRow("ratio 2, clipped") << QRect(50, 20, 300, 30) << QPoint() << QRect(100, 25, 60, 10) << 2.0;
}

void tst_ScaleStrip::paintsItsRectangleOnly()
{
    QFETCH(QRect, rect);
    QFETCH(QPoint, translation);
    QFETCH(QRect, clip);
    QFETCH(double, ratio);
    Scale scale;
    scale.unit = QStringLiteral("MHz");
    ScaleStrip strip;
    strip.SetLabelText(NumberText);
    scale.GiveTo(strip);
    QImage image = Canvas(QSize(400, 100) * ratio, ratio);
    QPainter painter(&image);
    painter.setClipRect(clip);
    painter.translate(translation);
    strip.Paint(painter, rect);
    QCOMPARE(painter.transform(), QTransform::fromTranslate(translation.x(), translation.y())); // as it was given
    painter.end();
    image.setDevicePixelRatio(1.0);
    QImage const alone = scale.DrawnAnew(rect.size(), ratio);
    QPoint const corner = QPointF((rect.topLeft() + translation) * ratio).toPoint();
    QRect const seen(QPointF(clip.topLeft() * ratio).toPoint(), clip.size() * ratio);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            QPoint const place = QPoint(x, y) - corner;
            bool const isScale = alone.rect().contains(place) && seen.contains(x, y);
            if (image.pixel(x, y) != (isScale ? alone.pixel(place) : Untouched))
                QFAIL(qPrintable(QStringLiteral("pixel %1, %2").arg(x).arg(y)));
        }
    }
}

void tst_ScaleStrip::scaledPainterIsCrisp()
{
    Scale scale;
    ScaleStrip strip;
    strip.SetLabelText(NumberText);
    scale.GiveTo(strip);
    QImage image = Canvas(QSize(600, 60));
    QPainter painter(&image);
    painter.scale(2.0, 2.0);
    strip.Paint(painter, QRect(0, 0, 300, 30));
    painter.end();
    QCOMPARE(image, scale.DrawnAnew(QSize(300, 30), 2.0));
}

void tst_ScaleStrip::turnedPainter()
{
    Scale scale;
    ScaleStrip strip;
    strip.SetLabelText(NumberText);
    scale.GiveTo(strip);
    QImage image = Canvas(QSize(30, 300));
    QPainter painter(&image);
    painter.translate(30, 0);
    painter.rotate(90.0);
    strip.Paint(painter, QRect(0, 0, 300, 30));
    painter.end();
    QCOMPARE(image, scale.DrawnAnew(QSize(300, 30), 1.0).transformed(QTransform().rotate(90.0)));
    // one that shrinks gets it stretched: the same colours in half the extent
    QImage half = Canvas(QSize(300, 30));
    QPainter shrinking(&half);
    shrinking.scale(0.5, 0.5);
    strip.Paint(shrinking, QRect(0, 0, 300, 30));
    shrinking.end();
    QCOMPARE(CountOf(half, QRect(0, 0, 150, 15), QColor::fromRgb(Untouched)), 0);
    QCOMPARE(CountOf(half, half.rect(), QColor::fromRgb(Untouched)), 300 * 30 - 150 * 15);
}

void tst_ScaleStrip::translucentGround()
{
    Scale scale;
    scale.look.background = QColor(0, 0, 0, 0);
    ScaleStrip strip;
    strip.SetLabelText(NumberText);
    scale.GiveTo(strip);
    QImage const shown = Shown(strip, QSize(640, 30));
    QCOMPARE(shown.pixel(3, 28), Untouched);
    QCOMPARE(shown.pixel(3, 0), scale.look.line.rgb());
    QVERIFY(640 * 22 - CountOf(shown, QRect(0, 8, 640, 22), QColor::fromRgb(Untouched)) > 60);
    // the same as on an opaque ground of that colour, but for the rounding of two steps
    scale.look.background = QColor::fromRgb(Untouched);
    QImage const opaque = scale.DrawnAnew(QSize(640, 30), 1.0);
    for (int y = 0; y < 30; ++y) {
        for (int x = 0; x < 640; ++x) {
            QVERIFY(std::abs(qRed(shown.pixel(x, y)) - qRed(opaque.pixel(x, y))) <= 2);
            QVERIFY(std::abs(qBlue(shown.pixel(x, y)) - qBlue(opaque.pixel(x, y))) <= 2);
        }
    }
}

void tst_ScaleStrip::oddViews_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::newRow("nothing") << QRect(0, 0, 0, 0);
    QTest::newRow("no width") << QRect(0, 0, 0, 30);
    QTest::newRow("no height") << QRect(0, 0, 300, 0);
    QTest::newRow("negative") << QRect(10, 10, -5, -5);
    QTest::newRow("one pixel") << QRect(0, 0, 1, 1);
    QTest::newRow("one column") << QRect(0, 0, 1, 30);
    QTest::newRow("one row") << QRect(0, 0, 300, 1);
    QTest::newRow("as wide as a widget can be") << QRect(0, 0, 16777215, 30);
    QTest::newRow("as high as a widget can be") << QRect(0, 0, 300, 16777215);
    QTest::newRow("as large as a widget can be") << QRect(0, 0, 16777215, 16777215);
    QTest::newRow("as large, seen from the middle") << QRect(-8000000, -8000000, 16777215, 16777215);
}

void tst_ScaleStrip::oddViews()
{
    QFETCH(QRect, rect);
    for (double const ratio : { 1.0, 3.1416 }) {
        for (Qt::Orientation const orientation : { Qt::Horizontal, Qt::Vertical }) {
            Scale scale;
            scale.look = LookOf(orientation);
            scale.unit = QStringLiteral("MHz");
            ScaleStrip strip;
            strip.SetLabelText(NumberText);
            scale.GiveTo(strip);
            QImage image = Canvas(QSize(300, 30), ratio);
            QPainter painter(&image);
            strip.Paint(painter, rect);
            painter.end();
            QVERIFY(strip.GetByteCount() <= 4U * static_cast<unsigned int>(ScaleStrip::MostPixels));
            QCOMPARE(image.pixel(0, 0) == Untouched, rect.isEmpty());
            // and it recovers
            QCOMPARE(Shown(strip, QSize(200, 100), ratio), scale.DrawnAnew(QSize(200, 100), ratio));
        }
    }
}

void tst_ScaleStrip::longViewShowsItsPart()
{
    Scale scale;
    scale.tics = { 0.0, 8388608.0, 0.0, 100.0, 0.0, 1000, 0 };
    ScaleStrip strip;
    strip.SetLabelText(NumberText);
    scale.GiveTo(strip);
    for (int const from : { 0, 50'000, 99'800, 12'345 }) {
        QImage image = Canvas(QSize(400, 30));
        QPainter painter(&image);
        strip.Paint(painter, QRect(-from, 0, 8388608, 30));
        painter.end();
        int tics = 0;
        for (int x = 0; x < 400; ++x) {
            bool const isTic = image.pixel(x, 5) == scale.look.line.rgb();
            tics += isTic ? 1 : 0;
            QCOMPARE(isTic, (from + x) % 100 == 0 && from + x < 100'000);
        }
        QVERIFY(tics >= 2);
        QVERIFY(TextPixels(image, QRect(0, 8, 400, 22), scale.look) > 20);
    }
    // a far end
    QImage image = Canvas(QSize(400, 30));
    QPainter painter(&image);
    strip.Paint(painter, QRect(400 - 8388608, 0, 8388608, 30));
    painter.end();
    QCOMPARE(CountOf(image, QRect(0, 0, 400, 1), scale.look.line), 400);
    // a picture of more than the strip keeps is made of parts: rows of 8 MPixel are 4096 px long at this thickness
    QImage wide = Canvas(QSize(9000, 4));
    QPainter widePainter(&wide);
    strip.Paint(widePainter, QRect(0, 0, 8388608, 2048));
    widePainter.end();
    QCOMPARE(CountOf(wide, QRect(0, 0, 9000, 1), scale.look.line), 9000);
    QCOMPARE(CountOf(wide, QRect(0, 3, 9000, 1), scale.look.line), 90);
}

void tst_ScaleStrip::thickScaleIsPlainBeyond()
{
    for (int const side : { 0, 1 }) {
        for (Qt::Orientation const orientation : { Qt::Horizontal, Qt::Vertical }) {
            bool const vertical = orientation == Qt::Vertical;
            Scale scale;
            scale.look = LookOf(orientation, static_cast<ScaleStrip::ELineSide>(side));
            int const thick = ScaleStrip::LargestThickness + 500;
            QImage shown = scale.DrawnAnew(vertical ? QSize(thick, 60) : QSize(60, thick), 1.0);
            if (vertical)
                shown = shown.transformed(QTransform(0, 1, 1, 0, 0, 0)); // x and y change places
            if (side == 1)
                shown = shown.mirrored(false, true);
            QCOMPARE(shown.size(), QSize(60, thick));
            QCOMPARE(CountOf(shown, QRect(0, 0, 60, 1), scale.look.line), 60);
            QCOMPARE(CountOf(shown, QRect(0, 60, 60, thick - 60), scale.look.background), 60 * (thick - 60));
        }
    }
}

void tst_ScaleStrip::ratioOfTheScreen_data()
{
    QTest::addColumn<double>("ratio");
    QTest::addColumn<double>("counts");
    QTest::newRow("NaN") << NaN << 1.0;
    QTest::newRow("0") << 0.0 << 1.0;
    QTest::newRow("negative") << -1.0 << 1.0;
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << 16.0;
    QTest::newRow("2") << 2.0 << 2.0;
    QTest::newRow("3.1416") << 3.1416 << 3.1416;
}

void tst_ScaleStrip::ratioOfTheScreen()
{
    QFETCH(double, ratio);
    QFETCH(double, counts);
    ScaleStrip strip;
    strip.SetLook(LookOf());
    strip.SetTics({ 0.0, 1.0, 0.5, 1.0, 0.0, 1, 0 });
    strip.SetView(QRect(0, 0, 100, 30), ratio);
    QCOMPARE(strip.GetMajorPixels(), std::vector<int>{ static_cast<int>(std::round(100 * counts)) / 2 });
    QCOMPARE(strip.GetTicWidth(), static_cast<int>(counts));
}

void tst_ScaleStrip::oddLooks_data()
{
    QTest::addColumn<int>("ticLength");
    QTest::addColumn<int>("textDistance");
    QTest::addColumn<int>("labelGap");
    QTest::addColumn<int>("points");
    int const most = std::numeric_limits<int>::max();
    QTest::newRow("no tics") << 0 << 2 << 6 << 9;
    QTest::newRow("negative lengths") << -5 << -5 << -5 << 9;
    QTest::newRow("lengths as large as an int") << most << most << most << 9;
    QTest::newRow("font of 1 point") << 6 << 2 << 6 << 1;
    QTest::newRow("font of 200 points") << 6 << 2 << 6 << 200;
    QTest::newRow("font of a million points") << 6 << 2 << 6 << 1'000'000;
}

void tst_ScaleStrip::oddLooks()
{
    QFETCH(int, ticLength);
    QFETCH(int, textDistance);
    QFETCH(int, labelGap);
    QFETCH(int, points);
    for (Qt::Orientation const orientation : { Qt::Horizontal, Qt::Vertical }) {
        for (bool const bold : { false, true }) {
            Scale scale;
            scale.look = LookOf(orientation);
            scale.look.ticLength = ticLength;
            scale.look.minorTicLength = ticLength;
            scale.look.textDistance = textDistance;
            scale.look.labelGap = labelGap;
            scale.look.font.setPointSize(points);
            scale.look.font.setBold(bold);
            scale.unit = QStringLiteral("MHz");
            ScaleStrip strip;
            strip.SetLabelText(NumberText);
            scale.GiveTo(strip);
            QSize const size(400, 380);
            QImage const shown = Shown(strip, size);
            QCOMPARE(CountOf(shown, QRect(0, 0, 1, 1), scale.look.line), 1);
            QVERIFY(strip.GetNeededThickness() >= 0);
            scale.tics = Found(3.0, 103.0);
            scale.GiveTo(strip);
            QCOMPARE(Shown(strip, size), scale.DrawnAnew(size, 1.0));
        }
    }
}

ORIM_TEST_MAIN(tst_ScaleStrip)
#include "tst_scalestrip.moc"
