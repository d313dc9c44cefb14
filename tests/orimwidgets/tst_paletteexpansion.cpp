// SPDX-License-Identifier: MIT
#include "paletteexpansion.h"

#include "testmain.h"

#include <QPaintEvent>
#include <QPainter>
#include <QPicture>
#include <QWidget>

#include <limits>
#include <random>

namespace {

constexpr QRgb Ground = 0xff204060; // of the device, where nothing is drawn

struct Look
{
    int colorCount = 256;
    bool transparent = false; // entry 255 is
    bool halfTransparent = false;
};

QVector<QRgb> Palette(Look const & look)
{
    std::mt19937 random(3);
    QVector<QRgb> colors;
    for (int i = 0; i < look.colorCount; ++i) {
        QRgb const color = static_cast<QRgb>(random());
        colors.append(look.halfTransparent ? color : 0xff000000U | color);
    }
    if (look.transparent && look.colorCount == 256)
        colors[255] = 0;
    return colors;
}

//! Random indices, with runs of background as an ageing picture has them.
QImage Picture(int width, int height, Look const & look = {})
{
    QImage picture(width, height, QImage::Format_Indexed8);
    picture.setColorTable(Palette(look));
    std::mt19937 random(static_cast<unsigned int>(width * 1000 + height));
    for (int y = 0; y < height; ++y) {
        int run = 0;
        for (int x = 0; x < width; ++x, --run) {
            if (run < -20)
                run = static_cast<int>(random() % 60);
            picture.scanLine(y)[x] = static_cast<unsigned char>(run > 0 ? 255U : random());
        }
    }
    return picture;
}

QImage Device(int width, int height, double ratio = 1.0)
{
    QImage device(width, height, QImage::Format_RGB32);
    device.fill(Ground);
    device.setDevicePixelRatio(ratio);
    return device;
}

//! What is wanted, pixel by pixel: Qt's conversion of the picture, each pixel as a square, laid over the device.
QImage Wanted(QImage device, QPoint const & corner, QImage const & picture, int pixelSize, QRect const & drawn)
{
    QImage const colors = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    device.setDevicePixelRatio(1.0);
    QImage ground = device;
    QImage whole(picture.width() * pixelSize, picture.height() * pixelSize, colors.format());
    for (int y = 0; y < whole.height(); ++y)
        for (int x = 0; x < whole.width(); ++x)
            whole.setPixel(x, y, colors.pixel(x / pixelSize, y / pixelSize));
    QPainter painter(&device);
    painter.setClipRect(drawn);
    painter.drawImage(corner, whole);
    return device;
}

QImage AtRatioOne(QImage image)
{
    image.setDevicePixelRatio(1.0);
    return image;
}

//! A pane that shows a picture as an application does.
class Pane : public QWidget
{
public:
    explicit Pane(QImage const & picture, QWidget * parent = nullptr) : QWidget(parent), m_picture(picture) {}

    PaletteExpansion m_expansion;

protected:
    void paintEvent(QPaintEvent * event) override
    {
        QPainter painter(this);
        m_expansion.Paint(painter, QPoint(3, 2), m_picture, event->rect());
    }

private:
    QImage const & m_picture;
};

} // namespace

Q_DECLARE_METATYPE(QPainter::CompositionMode)

class tst_paletteexpansion : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void everySize();
    void palettes_data();
    void palettes();
    void exposed_data();
    void exposed();
    void everyExposedOffset();
    void pixelSizes_data();
    void pixelSizes();
    void refusedPixelSizes();
    void ratios_data();
    void ratios();
    void translations_data();
    void translations();
    void clipAndOpacity();
    void opacityAndMode_data();
    void opacityAndMode();
    void wide_data();
    void wide();
    void beyondTheWidestImage();
    void theirPainterIsLeft();
    void turnedPainter();
    void otherFormats_data();
    void otherFormats();
    void noPainter();
    void hugeRectangles();
    void paletteChanges();
    void thePictureIsNotShared();
    void recordedPaintingKeepsItsPixels();
    void narrowThenWide();
    void inAWidget();
};

void tst_paletteexpansion::everySize()
{
    PaletteExpansion expansion;
    for (int width = 1; width <= 70; ++width)
        for (int const height : { 1, 2, 31, 32, 33, 65 }) {
            QImage const picture = Picture(width, height);
            QImage device = Device(80, 70);
            QImage const wanted = Wanted(device, QPoint(5, 3), picture, 1, device.rect());
            QPainter painter(&device);
            expansion.Paint(painter, QPoint(5, 3), picture);
            QVERIFY2(device == wanted, qPrintable(QStringLiteral("%1 x %2").arg(width).arg(height)));
        }
}

void tst_paletteexpansion::palettes_data()
{
    QTest::addColumn<int>("colorCount");
    QTest::addColumn<bool>("transparent");
    QTest::addColumn<bool>("halfTransparent");
    QTest::newRow("all opaque") << 256 << false << false;
    QTest::newRow("a transparent background") << 256 << true << false;
    QTest::newRow("every alpha") << 256 << false << true;
    QTest::newRow("a short one: what is beyond is transparent") << 100 << false << false;
    QTest::newRow("one colour") << 1 << false << false;
    QTest::newRow("none: shades of grey") << 0 << false << false;
}

void tst_paletteexpansion::palettes()
{
    QFETCH(int, colorCount);
    QFETCH(bool, transparent);
    QFETCH(bool, halfTransparent);
    Look look;
    look.colorCount = colorCount;
    look.transparent = transparent;
    look.halfTransparent = halfTransparent;
    QImage const picture = Picture(70, 40, look);
    QImage device = Device(70, 40);
    QImage const wanted = Wanted(device, QPoint(0, 0), picture, 1, device.rect());
    QPainter painter(&device);
    PaletteExpansion expansion;
    expansion.Paint(painter, QPoint(0, 0), picture);
    QCOMPARE(device, wanted);
}

void tst_paletteexpansion::exposed_data()
{
    QTest::addColumn<QRect>("exposed");
    QTest::newRow("all of it") << QRect(0, 0, 90, 80);
    QTest::newRow("one pixel") << QRect(40, 35, 1, 1);
    QTest::newRow("the first pixel") << QRect(10, 5, 1, 1);
    QTest::newRow("the last pixel") << QRect(79, 69, 1, 1);
    QTest::newRow("one row") << QRect(0, 36, 90, 1);
    QTest::newRow("one column") << QRect(30, 0, 1, 80);
    QTest::newRow("rows of two strips") << QRect(0, 30, 90, 20);
    QTest::newRow("more than the picture") << QRect(-50, -50, 300, 300);
    QTest::newRow("above it") << QRect(0, 0, 90, 5);
    QTest::newRow("left of it") << QRect(0, 0, 10, 80);
    QTest::newRow("below it") << QRect(0, 70, 90, 10);
    QTest::newRow("right of it") << QRect(80, 0, 10, 80);
    QTest::newRow("empty") << QRect(20, 20, 0, 10);
    QTest::newRow("turned inside out") << QRect(40, 40, -10, -10);
}

void tst_paletteexpansion::exposed()
{
    QFETCH(QRect, exposed);
    QImage const picture = Picture(70, 65); // at 10, 5
    QImage device = Device(90, 80);
    QImage const wanted = Wanted(device, QPoint(10, 5), picture, 1, exposed.isEmpty() ? QRect(-9, -9, 1, 1) : exposed);
    QPainter painter(&device);
    PaletteExpansion expansion;
    expansion.Paint(painter, QPoint(10, 5), picture, exposed);
    QCOMPARE(device, wanted);
}

void tst_paletteexpansion::everyExposedOffset()
{
    QImage const picture = Picture(60, 50);
    PaletteExpansion expansion;
    for (int const size : { 1, 3 })
        for (int offset = 0; offset < 60; ++offset) {
            QImage device = Device(64, 54);
            QRect const exposed(offset, offset * 50 / 60, 1 + offset % 37, 1 + offset % 41);
            QImage const wanted = Wanted(device, QPoint(2, 1), picture, size, exposed);
            QPainter painter(&device);
            expansion.SetPixelSize(size);
            expansion.Paint(painter, QPoint(2, 1), picture, exposed);
            QVERIFY2(device == wanted, qPrintable(QStringLiteral("size %1, offset %2").arg(size).arg(offset)));
        }
}

void tst_paletteexpansion::pixelSizes_data()
{
    QTest::addColumn<int>("size");
    for (int size = 1; size <= PaletteExpansion::MaxPixelSize; ++size)
        QTest::addRow("%d", size) << size;
}

void tst_paletteexpansion::pixelSizes()
{
    QFETCH(int, size);
    QImage const picture = Picture(21, 19);
    QImage device = Device(180, 160);
    QImage const wanted = Wanted(device, QPoint(4, 4), picture, size, device.rect());
    QPainter painter(&device);
    PaletteExpansion expansion;
    expansion.SetPixelSize(size);
    QCOMPARE(expansion.GetPixelSize(), size);
    expansion.Paint(painter, QPoint(4, 4), picture);
    QCOMPARE(device, wanted);
}

void tst_paletteexpansion::refusedPixelSizes()
{
    PaletteExpansion expansion;
    QCOMPARE(expansion.GetPixelSize(), 1);
    expansion.SetPixelSize(4);
    for (int const size : { 0, -1, PaletteExpansion::MaxPixelSize + 1, std::numeric_limits<int>::min() }) {
        expansion.SetPixelSize(size);
        QCOMPARE(expansion.GetPixelSize(), 4);
    }
}

void tst_paletteexpansion::ratios_data()
{
    QTest::addColumn<double>("ratio");
    QTest::addColumn<QPoint>("position");
    QTest::addColumn<QPoint>("corner"); // pixels of the device
    QTest::newRow("1") << 1.0 << QPoint(7, 9) << QPoint(7, 9);
    QTest::newRow("1.25") << 1.25 << QPoint(8, 4) << QPoint(10, 5);
    QTest::newRow("1.5") << 1.5 << QPoint(4, 6) << QPoint(6, 9);
    QTest::newRow("1.5 between two pixels") << 1.5 << QPoint(3, 5) << QPoint(5, 8);
    QTest::newRow("2") << 2.0 << QPoint(3, 4) << QPoint(6, 8);
    QTest::newRow("3") << 3.0 << QPoint(1, 2) << QPoint(3, 6);
}

//! A pixel stays a pixel of the screen.
void tst_paletteexpansion::ratios()
{
    QFETCH(double, ratio);
    QFETCH(QPoint, position);
    QFETCH(QPoint, corner);
    QImage const picture = Picture(70, 40);
    QImage device = Device(90, 60, ratio);
    QImage const wanted = Wanted(device, corner, picture, 1, QRect(0, 0, 90, 60));
    PaletteExpansion expansion;
    {
        QPainter painter(&device);
        expansion.Paint(painter, position, picture);
    }
    QCOMPARE(AtRatioOne(device), wanted);

    QImage part = Device(90, 60, ratio);
    QRect const exposed(10, 9, 11, 7);
    {
        QPainter painter(&part);
        painter.setClipRect(exposed);
        expansion.Paint(painter, position, picture, exposed);
    }
    QRect const sure(qRound(11 * ratio), qRound(10 * ratio), qRound(9 * ratio), qRound(5 * ratio));
    QCOMPARE(AtRatioOne(part).copy(sure), wanted.copy(sure));
    QCOMPARE(AtRatioOne(part).pixel(0, 0), Ground);
}

void tst_paletteexpansion::translations_data()
{
    QTest::addColumn<QTransform>("transform");
    QTest::addColumn<QPoint>("corner");
    QTest::newRow("none") << QTransform() << QPoint(5, 4);
    QTest::newRow("whole pixels") << QTransform::fromTranslate(11, 7) << QPoint(16, 11);
    QTest::newRow("out to the left and top") << QTransform::fromTranslate(-20, -10) << QPoint(-15, -6);
    QTest::newRow("a part of a pixel") << QTransform::fromTranslate(0.3, 0.7) << QPoint(5, 5);
    QTest::newRow("scaled: the position is, the pixels are not") << QTransform::fromScale(2, 3) << QPoint(10, 12);
}

void tst_paletteexpansion::translations()
{
    QFETCH(QTransform, transform);
    QFETCH(QPoint, corner);
    QImage const picture = Picture(50, 45);
    QImage device = Device(80, 70);
    QImage const wanted = Wanted(device, corner, picture, 1, device.rect());
    QPainter painter(&device);
    painter.setTransform(transform);
    PaletteExpansion expansion;
    expansion.Paint(painter, QPoint(5, 4), picture);
    QCOMPARE(device, wanted);
}

void tst_paletteexpansion::clipAndOpacity()
{
    QImage const picture = Picture(70, 60);
    QImage device = Device(70, 60);
    QImage wanted = Wanted(device, QPoint(0, 0), picture, 1, QRect(11, 13, 40, 41));
    QPainter painter(&device);
    painter.setClipRect(11, 13, 40, 41);
    PaletteExpansion expansion;
    expansion.Paint(painter, QPoint(0, 0), picture);
    QCOMPARE(device, wanted);
    painter.setOpacity(0.0);
    expansion.Paint(painter, QPoint(7, 7), picture);
    QCOMPARE(device, wanted);
}

void tst_paletteexpansion::opacityAndMode_data()
{
    QTest::addColumn<double>("opacity");
    QTest::addColumn<QPainter::CompositionMode>("mode");
    QTest::addColumn<bool>("transparent");
    for (bool const transparent : { false, true }) {
        char const * const kind = transparent ? "transparent" : "opaque";
        QTest::addRow("half opacity, %s", kind) << 0.5 << QPainter::CompositionMode_SourceOver << transparent;
        QTest::addRow("plus, %s", kind) << 1.0 << QPainter::CompositionMode_Plus << transparent;
        QTest::addRow("multiply, half opacity, %s", kind) << 0.5 << QPainter::CompositionMode_Multiply << transparent;
    }
}

//! Each pixel is drawn once; rows that were drawn twice would show.
void tst_paletteexpansion::opacityAndMode()
{
    QFETCH(double, opacity);
    QFETCH(QPainter::CompositionMode, mode);
    QFETCH(bool, transparent);
    Look look;
    look.transparent = transparent;
    QImage const picture = Picture(70, 100, look);
    QImage const whole =
        picture.convertToFormat(transparent ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    QImage device = Device(80, 110);
    QImage wanted = device.copy();
    for (bool const isOurs : { true, false }) {
        QPainter painter(isOurs ? &device : &wanted);
        painter.setOpacity(opacity);
        painter.setCompositionMode(mode);
        PaletteExpansion expansion;
        if (isOurs)
            expansion.Paint(painter, QPoint(5, 3), picture);
        else
            painter.drawImage(QPoint(5, 3), whole);
    }
    QVERIFY(device != Wanted(Device(80, 110), QPoint(5, 3), picture, 1, device.rect()));
    QCOMPARE(device, wanted);
}

void tst_paletteexpansion::wide_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<QRect>("exposed");
    for (int const size : { 1, 3 })
        for (int const left : { 0, 1, 4000 })
            QTest::addRow("size %d, from %d on", size, left) << size << QRect(left, 0, 8200, 40);
}

//! Strips lie side by side without a seam.
void tst_paletteexpansion::wide()
{
    QFETCH(int, size);
    QFETCH(QRect, exposed);
    QImage const picture = Picture(9000, 35);
    QImage device = Device(12500, 40);
    QImage const wanted = Wanted(device, QPoint(2, 1), picture, size, exposed);
    QPainter painter(&device);
    PaletteExpansion expansion;
    expansion.SetPixelSize(size);
    expansion.Paint(painter, QPoint(2, 1), picture, exposed);
    QCOMPARE(device, wanted);
}

//! So wide on the screen that no QImage holds one row of it.
void tst_paletteexpansion::beyondTheWidestImage()
{
    constexpr int Size = PaletteExpansion::MaxPixelSize;
    QImage picture(1 << 23, 1, QImage::Format_Indexed8);
    picture.setColorTable(Palette({}));
    picture.fill(255);
    for (int x = 0; x < 8; ++x)
        picture.scanLine(0)[x] = static_cast<unsigned char>(x);
    QImage device = Device(64, Size);
    QImage const wanted = Wanted(device, QPoint(0, 0), picture.copy(0, 0, 8, 1), Size, device.rect());
    QPainter painter(&device);
    PaletteExpansion expansion;
    expansion.SetPixelSize(Size);
    expansion.Paint(painter, QPoint(0, 0), picture);
    QCOMPARE(device, wanted);
}

void tst_paletteexpansion::theirPainterIsLeft()
{
    QImage device = Device(70, 60, 2.0);
    QPainter painter(&device);
    painter.translate(3.5, 2.25);
    QTransform const before = painter.transform();
    PaletteExpansion expansion;
    expansion.Paint(painter, QPoint(1, 1), Picture(30, 40));
    QCOMPARE(painter.transform(), before);
    QVERIFY(!painter.hasClipping());
}

void tst_paletteexpansion::turnedPainter()
{
    QImage const picture = Picture(20, 40);
    QImage device = Device(60, 60);
    QPainter painter(&device);
    painter.setTransform(QTransform(0, 1, -1, 0, 50, 5)); // a quarter turn to the right
    PaletteExpansion expansion;
    expansion.Paint(painter, QPoint(0, 0), picture);
    painter.end();
    QImage const turned = picture.convertToFormat(QImage::Format_RGB32).transformed(QTransform().rotate(90));
    QCOMPARE(device.copy(10, 5, 40, 20), turned);
}

void tst_paletteexpansion::otherFormats_data()
{
    QTest::addColumn<QImage>("picture");
    QTest::newRow("null") << QImage();
    for (auto const format : { QImage::Format_RGB32, QImage::Format_Grayscale8, QImage::Format_Mono,
                               QImage::Format_Alpha8, QImage::Format_ARGB32_Premultiplied }) {
        QImage picture(20, 20, format);
        picture.fill(0);
        QTest::addRow("format %d", static_cast<int>(format)) << picture;
    }
}

void tst_paletteexpansion::otherFormats()
{
    QFETCH(QImage, picture);
    QImage device = Device(30, 30);
    QImage const before = device.copy();
    QPainter painter(&device);
    PaletteExpansion expansion;
    expansion.Paint(painter, QPoint(0, 0), picture);
    expansion.Paint(painter, QPoint(0, 0), picture, QRect(0, 0, 30, 30));
    QCOMPARE(device, before);
}

//! A painter that paints on nothing; a warning of Qt would fail the test.
void tst_paletteexpansion::noPainter()
{
    QPainter painter;
    PaletteExpansion expansion;
    expansion.Paint(painter, QPoint(0, 0), Picture(9, 9));
    QVERIFY(!painter.isActive());
}

void tst_paletteexpansion::hugeRectangles()
{
    constexpr int Most = std::numeric_limits<int>::max();
    constexpr int Least = std::numeric_limits<int>::min();
    QImage const picture = Picture(40, 40);
    QImage device = Device(40, 40);
    QImage const empty = device.copy();
    QPainter painter(&device);
    PaletteExpansion expansion;
    expansion.SetPixelSize(PaletteExpansion::MaxPixelSize);
    for (QPoint const & far : { QPoint(Most, Most), QPoint(Least, Least), QPoint(Most, 0), QPoint(0, Least) }) {
        expansion.Paint(painter, far, picture);
        expansion.Paint(painter, far, picture, QRect(0, 0, 40, 40));
        QCOMPARE(device, empty);
    }
    expansion.SetPixelSize(1);
    expansion.Paint(painter, QPoint(0, 0), picture, QRect(QPoint(-(1 << 29), -(1 << 29)), QPoint(1 << 29, 1 << 29)));
    QCOMPARE(device, Wanted(empty, QPoint(0, 0), picture, 1, empty.rect()));
}

//! An ageing step changes colours alone, and a set may turn transparent.
void tst_paletteexpansion::paletteChanges()
{
    QImage picture = Picture(70, 40);
    PaletteExpansion expansion;
    for (QRgb const color : { 0xff112233U, 0x00000000U, 0x80402010U, 0xffffffffU }) {
        picture.setColor(255, color);
        QImage device = Device(70, 40);
        QImage const wanted = Wanted(device, QPoint(0, 0), picture, 1, device.rect());
        QPainter painter(&device);
        expansion.Paint(painter, QPoint(0, 0), picture);
        QCOMPARE(device, wanted);
    }
}

//! Someone who writes pixels or colours after a paint has no copy to make.
void tst_paletteexpansion::thePictureIsNotShared()
{
    QImage picture = Picture(70, 40);
    unsigned char const * const bits = picture.constBits();
    QImage device = Device(70, 40);
    QPainter painter(&device);
    PaletteExpansion expansion;
    expansion.Paint(painter, QPoint(0, 0), picture);
    QVERIFY(picture.isDetached());
    QCOMPARE(static_cast<unsigned char const *>(picture.bits()), bits);
}

//! Strips that a device keeps for later are not written over.
void tst_paletteexpansion::recordedPaintingKeepsItsPixels()
{
    QImage const picture = Picture(50, 100);
    QPicture record;
    PaletteExpansion expansion;
    QPainter recorder(&record);
    expansion.Paint(recorder, QPoint(0, 0), picture);
    recorder.end();
    QImage device = Device(50, 100);
    QPainter painter(&device);
    painter.drawPicture(0, 0, record);
    painter.end();
    QCOMPARE(device, picture.convertToFormat(QImage::Format_RGB32));
}

void tst_paletteexpansion::narrowThenWide()
{
    PaletteExpansion expansion;
    for (int const width : { 20, 70, 3, 69, 1 })
        for (bool const transparent : { false, true }) {
            Look look;
            look.transparent = transparent;
            QImage const picture = Picture(width, 35, look);
            QImage device = Device(75, 40);
            QImage const wanted = Wanted(device, QPoint(1, 1), picture, 1, device.rect());
            QPainter painter(&device);
            expansion.Paint(painter, QPoint(1, 1), picture);
            QCOMPARE(device, wanted);
        }
}

//! As a child of another widget, and onto a screen of another ratio.
void tst_paletteexpansion::inAWidget()
{
    QImage const picture = Picture(50, 45);
    QWidget window;
    window.resize(100, 90);
    Pane pane(picture, &window);
    pane.setGeometry(20, 10, 70, 60);
    for (double const ratio : { 1.0, 2.0 }) {
        QImage device = Device(qRound(100 * ratio), qRound(90 * ratio), ratio);
        QImage const ground = device.copy();
        window.render(&device, QPoint(), QRegion(), QWidget::DrawChildren);
        QPoint const corner = QPoint(23, 12) * ratio;
        QCOMPARE(AtRatioOne(device), Wanted(ground, corner, picture, 1, QRect(QPoint(0, 0), ground.size())));
    }
}

ORIM_TEST_MAIN(tst_paletteexpansion)

#include "tst_paletteexpansion.moc"
