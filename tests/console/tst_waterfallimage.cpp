// SPDX-License-Identifier: MIT
#include "testmain.h"
#include "waterfallimage.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <random>

class tst_WaterfallImage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyPictureTakesNothing();
    void newestRowIsOnTop();
    void fullPictureDropsTheOldest();
    void paintsLikeAMovedPicture_data();
    void paintsLikeAMovedPicture();
    void paintsOneToOneOnADenseScreen();
    void paintsOverWhatIsThere();
    void recoloursAllKeptRows_data();
    void recoloursAllKeptRows();
    void resizeKeepsTheNewestRows_data();
    void resizeKeepsTheNewestRows();
    void resizeToNothingAndBack();
    void clearForgetsTheRows();
    void rowsOutsideAreNull();
};

namespace {

constexpr QRgb Ground = 0xff102030;

QRgb ColorOf(double level) { return 0xff000000U | static_cast<QRgb>(level); }

void Plain(double const * levels, QRgb * pixels, std::size_t count)
{
    std::transform(levels, levels + count, pixels, ColorOf);
}

void Shifted(double const * levels, QRgb * pixels, std::size_t count)
{
    std::transform(levels, levels + count, pixels, [](double level) { return ColorOf(level + 1000.0); });
}

WaterfallImage::Spreader Keep(int columns)
{
    return [columns](double const * from, double * to) { std::copy_n(from, columns, to); };
}

WaterfallImage Image(int columns, int rows)
{
    WaterfallImage image;
    image.Resize(columns, rows, Keep(0), Ground, Plain);
    return image;
}

//! Level of a column of row number \a number.
double LevelAt(int number, int column) { return number * 100.0 + column; }

void Append(WaterfallImage & image, int number)
{
    std::vector<double> levels(static_cast<std::size_t>(image.Columns()));
    std::vector<QRgb> pixels(levels.size());
    for (std::size_t i = 0; i < levels.size(); ++i)
        levels[i] = LevelAt(number, static_cast<int>(i));
    Plain(levels.data(), pixels.data(), levels.size());
    image.Append(levels.data(), pixels.data(), number);
}

QImage Painted(WaterfallImage const & image, QPoint at = QPoint(0, 0))
{
    QImage canvas(image.Columns() + at.x(), image.Rows() + at.y(), QImage::Format_RGB32);
    canvas.fill(Qt::magenta);
    QPainter painter(&canvas);
    image.Paint(painter, at);
    return canvas;
}

} // namespace

void tst_WaterfallImage::emptyPictureTakesNothing()
{
    WaterfallImage image;
    double const level = 1.0;
    QRgb const pixel = Ground;
    image.Append(&level, &pixel, 0.0);
    image.Recolor(Ground, Plain);
    image.Clear(Ground);
    QCOMPARE(image.Filled(), 0);
    QCOMPARE(image.Columns(), 0);
    QImage canvas(2, 2, QImage::Format_RGB32);
    canvas.fill(Qt::magenta);
    QPainter painter(&canvas);
    image.Paint(painter, QPoint(0, 0));
    QCOMPARE(canvas.pixelColor(1, 1), QColor(Qt::magenta));
}

void tst_WaterfallImage::newestRowIsOnTop()
{
    WaterfallImage image = Image(3, 4);
    Append(image, 1);
    Append(image, 2);
    QCOMPARE(image.Filled(), 2);
    QImage const painted = Painted(image);
    QCOMPARE(painted.pixel(2, 0), ColorOf(LevelAt(2, 2)));
    QCOMPARE(painted.pixel(2, 1), ColorOf(LevelAt(1, 2)));
    QCOMPARE(painted.pixel(2, 2), Ground);
    QCOMPARE(painted.pixel(2, 3), Ground);
    QCOMPARE(image.Stamp(0), 2.0);
    QCOMPARE(image.Stamp(1), 1.0);
}

void tst_WaterfallImage::fullPictureDropsTheOldest()
{
    WaterfallImage image = Image(2, 3);
    for (int number = 1; number <= 5; ++number)
        Append(image, number);
    QCOMPARE(image.Filled(), 3);
    for (int row = 0; row < 3; ++row) {
        QCOMPARE(image.Stamp(row), 5.0 - row);
        QCOMPARE(image.Levels(row)[1], LevelAt(5 - row, 1));
        QCOMPARE(image.Pixels(row)[1], ColorOf(LevelAt(5 - row, 1)));
    }
}

void tst_WaterfallImage::paintsLikeAMovedPicture_data()
{
    QTest::addColumn<int>("appended");
    for (int const appended : { 0, 1, 6, 7, 8, 13, 14, 15 })
        QTest::newRow(qPrintable(QStringLiteral("%1 rows into 7").arg(appended))) << appended;
}

void tst_WaterfallImage::paintsLikeAMovedPicture()
{
    QFETCH(int, appended);
    WaterfallImage image = Image(5, 7);
    QImage moved(5, 7, QImage::Format_RGB32);
    moved.fill(Ground);
    for (int number = 0; number < appended; ++number) {
        Append(image, number);
        moved = moved.copy(0, -1, 5, 7);
        for (int column = 0; column < 5; ++column)
            moved.setPixel(column, 0, ColorOf(LevelAt(number, column)));
    }
    QCOMPARE(Painted(image), moved);
    QCOMPARE(Painted(image, QPoint(3, 2)).copy(3, 2, 5, 7), moved);
}

void tst_WaterfallImage::paintsOneToOneOnADenseScreen()
{
    WaterfallImage image = Image(6, 4);
    for (int number = 0; number < 5; ++number)
        Append(image, number);
    QImage canvas(6, 4, QImage::Format_RGB32);
    canvas.setDevicePixelRatio(2.0);
    QPainter painter(&canvas);
    painter.scale(0.5, 0.5);
    image.Paint(painter, QPoint(0, 0));
    painter.end();
    canvas.setDevicePixelRatio(1.0);
    QCOMPARE(canvas, Painted(image));
}

void tst_WaterfallImage::paintsOverWhatIsThere()
{
    WaterfallImage image = Image(2, 2);
    Append(image, 1);
    QImage canvas(2, 2, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::white);
    QPainter painter(&canvas);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    image.Paint(painter, QPoint(0, 0));
    QCOMPARE(painter.compositionMode(), QPainter::CompositionMode_SourceOver);
    QCOMPARE(canvas.pixel(1, 0), ColorOf(LevelAt(1, 1)));
    QCOMPARE(canvas.pixel(0, 1), Ground);
}

void tst_WaterfallImage::recoloursAllKeptRows_data() { paintsLikeAMovedPicture_data(); }

void tst_WaterfallImage::recoloursAllKeptRows()
{
    QFETCH(int, appended);
    WaterfallImage image = Image(5, 7);
    for (int number = 0; number < appended; ++number)
        Append(image, number);
    constexpr QRgb otherGround = 0xff445566;
    image.Recolor(otherGround, Shifted);
    QImage const painted = Painted(image);
    for (int row = 0; row < 7; ++row) {
        bool const kept = row < std::min(appended, 7);
        for (int column = 0; column < 5; ++column) {
            QRgb const wanted = kept ? ColorOf(LevelAt(appended - 1 - row, column) + 1000.0) : otherGround;
            QCOMPARE(painted.pixel(column, row), wanted);
        }
    }
}

void tst_WaterfallImage::resizeKeepsTheNewestRows_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("kept");
    QTest::newRow("higher") << 9 << 4;
    QTest::newRow("as high") << 4 << 4;
    QTest::newRow("lower") << 2 << 2;
    QTest::newRow("one row") << 1 << 1;
}

void tst_WaterfallImage::resizeKeepsTheNewestRows()
{
    QFETCH(int, rows);
    QFETCH(int, kept);
    WaterfallImage image = Image(4, 4);
    for (int number = 1; number <= 6; ++number)
        Append(image, number);
    auto const firstTwo = [](double const * from, double * to) { std::copy_n(from, 2, to); };
    image.Resize(2, rows, firstTwo, Ground, Plain);
    QCOMPARE(image.Columns(), 2);
    QCOMPARE(image.Rows(), rows);
    QCOMPARE(image.Filled(), kept);
    QImage const painted = Painted(image);
    for (int row = 0; row < rows; ++row) {
        QCOMPARE(painted.pixel(1, row), row < kept ? ColorOf(LevelAt(6 - row, 1)) : Ground);
        QCOMPARE(std::isnan(image.Stamp(row)), row >= kept);
    }
    Append(image, 7);
    QCOMPARE(Painted(image).pixel(1, 0), ColorOf(LevelAt(7, 1)));
    if (rows > 1)
        QCOMPARE(Painted(image).pixel(1, 1), ColorOf(LevelAt(6, 1)));
}

void tst_WaterfallImage::resizeToNothingAndBack()
{
    WaterfallImage image = Image(4, 4);
    Append(image, 1);
    image.Resize(0, 4, Keep(0), Ground, Plain);
    QCOMPARE(image.Columns(), 0);
    QCOMPARE(image.Filled(), 0);
    image.Resize(4, -3, Keep(0), Ground, Plain);
    QCOMPARE(image.Rows(), 0);
    image.Resize(4, 4, Keep(4), Ground, Plain);
    Append(image, 2);
    QCOMPARE(Painted(image).pixel(3, 0), ColorOf(LevelAt(2, 3)));
    QCOMPARE(Painted(image).pixel(3, 1), Ground);
}

void tst_WaterfallImage::clearForgetsTheRows()
{
    WaterfallImage image = Image(2, 3);
    for (int number = 1; number <= 5; ++number)
        Append(image, number);
    image.Clear(Ground);
    QCOMPARE(image.Filled(), 0);
    QCOMPARE(Painted(image).pixel(0, 0), Ground);
    Append(image, 9);
    QCOMPARE(Painted(image).pixel(0, 0), ColorOf(LevelAt(9, 0)));
    QCOMPARE(Painted(image).pixel(0, 1), Ground);
}

void tst_WaterfallImage::rowsOutsideAreNull()
{
    WaterfallImage image = Image(2, 3);
    Append(image, 1);
    QVERIFY(image.Levels(0));
    QVERIFY(image.Pixels(0));
    for (int const row : { -1, 1, 3, 1000 }) {
        QVERIFY(!image.Levels(row));
        QVERIFY(!image.Pixels(row));
        QVERIFY(std::isnan(image.Stamp(row)));
    }
}

ORIM_TEST_MAIN(tst_WaterfallImage)
#include "tst_waterfallimage.moc"
