// SPDX-License-Identifier: MIT
#include "testmain.h"
#include "traceraster.h"

#include <QImage>

#include <limits>

class tst_TraceRaster : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsTheRowOfALevel_data();
    void findsTheRowOfALevel();
    void emptyScaleHasNoRow_data();
    void emptyScaleHasNoRow();
    void groundIsFilledBelowTheTrace();
    void lineJoinsItsNeighbours();
    void lineStaysInThePicture();
    void missingRowLeavesAGap();
};

namespace {

constexpr QRgb Ink = 0xffffffff;
constexpr QRgb PlainColor = 0xff000001;
constexpr QRgb FilledColor = 0xff000002;

QImage Filled(int width, int height, QRgb color)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(color);
    return image;
}

TraceRaster::Canvas CanvasOf(QImage & image)
{
    return { reinterpret_cast<QRgb *>(image.bits()), image.width(), image.height() };
}

//! Rows of a column that bear the ink, as text: "0110".
QString Inked(QImage const & image, int column)
{
    QString text;
    for (int y = 0; y < image.height(); ++y)
        text += image.pixel(column, y) == Ink ? QLatin1Char('1') : QLatin1Char('0');
    return text;
}

} // namespace

void tst_TraceRaster::findsTheRowOfALevel_data()
{
    QTest::addColumn<double>("level");
    QTest::addColumn<int>("row");
    QTest::newRow("top") << 0.0 << 0;
    QTest::newRow("bottom") << -100.0 << 99;
    QTest::newRow("middle") << -50.0 << 50;
    QTest::newRow("lower edge of a row") << -50.99 << 50;
    QTest::newRow("above the bottom") << -99.5 << 99;
    QTest::newRow("above the top is held") << 20.0 << 0;
    QTest::newRow("below the bottom is held") << -500.0 << 99;
    QTest::newRow("infinite") << qInf() << 0;
    QTest::newRow("minus infinite") << -qInf() << 99;
    QTest::newRow("NaN has no row") << qQNaN() << -1;
}

void tst_TraceRaster::findsTheRowOfALevel()
{
    QFETCH(double, level);
    QFETCH(int, row);
    QCOMPARE(TraceRaster::RowOf({ -100.0, 0.0, 100 }, level), row);
    std::vector<int> rows;
    TraceRaster::RowsOf({ -100.0, 0.0, 100 }, { level, -1.0 }, rows);
    QCOMPARE(rows, (std::vector<int>{ row, 1 }));
}

void tst_TraceRaster::emptyScaleHasNoRow_data()
{
    QTest::addColumn<double>("bottom");
    QTest::addColumn<double>("top");
    QTest::addColumn<int>("height");
    QTest::newRow("no height") << -100.0 << 0.0 << 0;
    QTest::newRow("height below 0") << -100.0 << 0.0 << -5;
    QTest::newRow("top on bottom") << 0.0 << 0.0 << 10;
    QTest::newRow("top below bottom") << 0.0 << -10.0 << 10;
    QTest::newRow("NaN") << qQNaN() << 0.0 << 10;
    QTest::newRow("infinite") << -qInf() << 0.0 << 10;
    QTest::newRow("span too large for a double")
        << -std::numeric_limits<double>::max() << std::numeric_limits<double>::max() << 10;
}

void tst_TraceRaster::emptyScaleHasNoRow()
{
    QFETCH(double, bottom);
    QFETCH(double, top);
    QFETCH(int, height);
    QCOMPARE(TraceRaster::RowOf({ bottom, top, height }, -5.0), -1);
}

void tst_TraceRaster::groundIsFilledBelowTheTrace()
{
    QImage const plain = Filled(3, 4, PlainColor);
    QImage const filled = Filled(3, 4, FilledColor);
    QImage image = Filled(3, 4, 0);
    auto const bits = [](QImage const & from) { return reinterpret_cast<QRgb const *>(from.constBits()); };
    TraceRaster::PaintGround(CanvasOf(image), bits(plain), bits(filled), { 1, -1, 3 });
    for (int y = 0; y < 4; ++y) {
        QCOMPARE(image.pixel(0, y), y > 1 ? FilledColor : PlainColor);
        QCOMPARE(image.pixel(1, y), PlainColor);
        QCOMPARE(image.pixel(2, y), PlainColor);
    }
}

void tst_TraceRaster::lineJoinsItsNeighbours()
{
    QImage image = Filled(3, 8, 0);
    TraceRaster::PaintLine(CanvasOf(image), { 6, 2, 2 }, 1, Ink);
    QCOMPARE(Inked(image, 0), QStringLiteral("00001110"));
    QCOMPARE(Inked(image, 1), QStringLiteral("00111000"));
    QCOMPARE(Inked(image, 2), QStringLiteral("00100000"));
}

void tst_TraceRaster::lineStaysInThePicture()
{
    QImage image = Filled(2, 4, 0);
    TraceRaster::PaintLine(CanvasOf(image), { 3, 3 }, 3, Ink);
    QCOMPARE(Inked(image, 0), QStringLiteral("0001"));
    QImage thick = Filled(1, 4, 0);
    TraceRaster::PaintLine(CanvasOf(thick), { 1 }, 2, Ink);
    QCOMPARE(Inked(thick, 0), QStringLiteral("0110"));
}

void tst_TraceRaster::missingRowLeavesAGap()
{
    QImage image = Filled(3, 4, 0);
    TraceRaster::PaintLine(CanvasOf(image), { 0, -1, 3 }, 1, Ink);
    QCOMPARE(Inked(image, 0), QStringLiteral("1000"));
    QCOMPARE(Inked(image, 1), QStringLiteral("0000"));
    QCOMPARE(Inked(image, 2), QStringLiteral("0001"));
}

ORIM_CORE_TEST_MAIN(tst_TraceRaster)
#include "tst_traceraster.moc"
