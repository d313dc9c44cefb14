// SPDX-License-Identifier: MIT
#include "digitatlas.h"

#include "scanlines.h"
#include "testmain.h"

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>
#include <cstdlib>
#include <limits>

namespace {

constexpr QRgb Ground = 0xff204060;

QFont Font(int points, int weight = QFont::Normal)
{
    QFont font(QStringLiteral("DejaVu Sans"), points);
    font.setBold(weight == QFont::Bold);
    return font;
}

QImage Canvas(int width, int height, QImage::Format format = QImage::Format_ARGB32_Premultiplied, QRgb ground = Ground)
{
    QImage image(width, height, format);
    image.fill(ground);
    return image;
}

//! Largest difference of a channel, the alpha included.
int Difference(QImage const & a, QImage const & b)
{
    int most = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            QRgb const p = a.pixel(x, y);
            QRgb const q = b.pixel(x, y);
            most = std::max({ most, std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                              std::abs(qBlue(p) - qBlue(q)), std::abs(qAlpha(p) - qAlpha(q)) });
        }
    }
    return most;
}

//! The smallest rectangle around all that is not ground.
QRect InkRect(QImage const & image, QRgb ground = Ground)
{
    QRect rect;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != ground)
                rect |= QRect(x, y, 1, 1);
        }
    }
    return rect;
}

} // namespace

class tst_DigitAtlas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void holds_data();
    void holds();
    void widthIsASumOfAdvances();
    void startsEmpty();
    void drawsAsThePainter_data();
    void drawsAsThePainter();
    void isCrisp();
    void leavesAlphaOfOpaqueGround();
    void groundGivenBeforehandIsTheSame();
    void translucentGroundIsNotBlendedBeforehand();
    void inkStaysInItsBox_data();
    void inkStaysInItsBox();
    void clipIsKept_data();
    void clipIsKept();
    void refuses_data();
    void refuses();
    void setsAnew();
    void oddRatios_data();
    void oddRatios();
    void oddFonts_data();
    void oddFonts();
    void hugeFontIsBounded();
    void moreCharactersThanItHolds();
    void farAway();
    void overIsRounded();
    void fillIsCut();
    void blendIsCut();
    void otherFormatsStay();
};

void tst_DigitAtlas::holds_data()
{
    QTest::addColumn<QString>("characters");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("holds");
    QString const numbers = DigitAtlas::NumberCharacters();
    QTest::newRow("digits") << numbers << QStringLiteral("0123456789") << true;
    QTest::newRow("signs, point and exponent") << numbers << QStringLiteral("-1.5e+10") << true;
    QTest::newRow("comma, colon and blank") << numbers << QStringLiteral("1,5 12:30") << true;
    QTest::newRow("nothing") << numbers << QString() << true;
    QTest::newRow("a letter") << numbers << QStringLiteral("10 k") << false;
    QTest::newRow("beyond ASCII") << numbers << QStringLiteral("10 \u00b5") << false;
    QTest::newRow("letters that were asked for") << numbers + QLatin1String("Hkz") << QStringLiteral("10 kHz") << true;
    QTest::newRow("beyond ASCII, asked for") << QStringLiteral("1\u00b5") << QStringLiteral("1\u00b5") << true;
    QTest::newRow("last of ASCII") << QStringLiteral("~\u007f") << QStringLiteral("~") << true;
    QTest::newRow("no characters") << QString() << QStringLiteral("1") << false;
}

void tst_DigitAtlas::holds()
{
    QFETCH(QString, characters);
    QFETCH(QString, text);
    QFETCH(bool, holds);
    DigitAtlas atlas;
    atlas.Set(Font(9), Qt::white, 1.0, characters);
    QCOMPARE(atlas.Holds(text), holds);
    QCOMPARE(atlas.Width(text) >= 0, holds);
    QImage image = Canvas(100, 30);
    QCOMPARE(atlas.Draw(image, QPoint(5, 5), text, image.rect()), holds);
    QCOMPARE(InkRect(image).isEmpty(), !holds || text.isEmpty());
}

void tst_DigitAtlas::widthIsASumOfAdvances()
{
    DigitAtlas atlas;
    atlas.Set(Font(9), Qt::white, 1.5);
    QCOMPARE(atlas.Width(QString()), 0);
    QCOMPARE(atlas.Width(QStringLiteral("x")), -1);
    int const advance = atlas.Width(QStringLiteral("11")) - atlas.Width(QStringLiteral("1"));
    QCOMPARE(advance, qRound(QFontMetricsF(Font(9)).horizontalAdvance(QLatin1Char('1')) * 1.5));
    QVERIFY(advance > 0);
    QCOMPARE(atlas.Width(QStringLiteral("11111")), atlas.Width(QStringLiteral("1")) + 4 * advance);
    QCOMPARE(atlas.Width(QStringLiteral("1-1")) + atlas.Width(QStringLiteral(".")),
             atlas.Width(QStringLiteral("1.1")) + atlas.Width(QStringLiteral("-")));
}

void tst_DigitAtlas::startsEmpty()
{
    DigitAtlas const atlas;
    QVERIFY(!atlas.Holds(QStringLiteral("1")));
    QCOMPARE(atlas.Width(QStringLiteral("1")), -1);
    QCOMPARE(atlas.GetHeight(), 0);
    QImage image = Canvas(10, 10);
    QVERIFY(!atlas.Draw(image, QPoint(), QStringLiteral("1"), image.rect()));
}

void tst_DigitAtlas::drawsAsThePainter_data()
{
    QTest::addColumn<double>("ratio");
    QTest::addColumn<int>("points");
    QTest::addColumn<QColor>("color");
    QTest::newRow("ratio 1") << 1.0 << 9 << QColor(Qt::white);
    QTest::newRow("ratio 1.5") << 1.5 << 9 << QColor(Qt::white);
    QTest::newRow("ratio 2") << 2.0 << 9 << QColor(Qt::white);
    QTest::newRow("ratio 3") << 3.0 << 9 << QColor(Qt::white);
    QTest::newRow("large") << 2.0 << 40 << QColor(Qt::yellow);
    QTest::newRow("translucent ink") << 1.0 << 12 << QColor(255, 128, 0, 128);
}

void tst_DigitAtlas::drawsAsThePainter()
{
    QFETCH(double, ratio);
    QFETCH(int, points);
    QFETCH(QColor, color);
    DigitAtlas atlas;
    atlas.Set(Font(points), color, ratio);
    QString const text = QStringLiteral("-8.05e+3");
    QImage const canvas = Canvas(atlas.Width(text) + 20, atlas.GetHeight() + 20);
    QImage image = canvas;
    QVERIFY(atlas.Draw(image, QPoint(7, 5), text, image.rect()));
    QVERIFY(InkRect(image).height() > points / 2);
    // where an overhang is kept free at the left the painter starts as much later
    int best = 255;
    for (int shift = 0; shift < 4; ++shift) {
        QImage expected = canvas;
        expected.setDevicePixelRatio(ratio);
        QPainter painter(&expected);
        painter.setFont(Font(points));
        painter.setPen(color);
        int x = 7 + shift;
        for (QChar const character : text) {
            painter.resetTransform();
            painter.translate(QPointF(x + 0.001, 5.001 + atlas.GetAscent()) / ratio); // never just below a whole pixel
            painter.drawText(QPointF(), QString(character));
            x += qRound(QFontMetricsF(Font(points)).horizontalAdvance(character) * ratio);
        }
        painter.end();
        best = std::min(best, Difference(image, expected));
    }
    QVERIFY2(best <= 2, qPrintable(QString::number(best)));
}

void tst_DigitAtlas::isCrisp()
{
    DigitAtlas atlas;
    atlas.Set(Font(9), Qt::white, 2.0);
    QString const text = QStringLiteral("0123456789");
    QImage image = Canvas(atlas.Width(text), atlas.GetHeight());
    atlas.Draw(image, QPoint(), text, image.rect());
    // a picture that was scaled up from half the size is the same in each 2 x 2 pixels, whatever the phase
    for (int const phaseX : { 0, 1 }) {
        for (int const phaseY : { 0, 1 }) {
            int uneven = 0;
            for (int y = phaseY; y + 1 < image.height(); y += 2) {
                for (int x = phaseX; x + 1 < image.width(); x += 2) {
                    if (image.pixel(x, y) != image.pixel(x + 1, y) || image.pixel(x, y) != image.pixel(x, y + 1))
                        ++uneven;
                }
            }
            QVERIFY2(uneven > 100, qPrintable(QString::number(uneven)));
        }
    }
}

void tst_DigitAtlas::leavesAlphaOfOpaqueGround()
{
    DigitAtlas atlas;
    atlas.Set(Font(12), QColor(255, 0, 0, 100), 1.0);
    QImage image = Canvas(60, 30, QImage::Format_RGB32);
    atlas.Draw(image, QPoint(2, 2), QStringLiteral("80"), image.rect());
    QVERIFY(!InkRect(image).isEmpty());
    for (int y = 0; y < image.height(); ++y) {
        auto const * const row = reinterpret_cast<QRgb const *>(image.constScanLine(y));
        QVERIFY(std::all_of(row, row + image.width(), [](QRgb pixel) { return qAlpha(pixel) == 255; }));
    }
}

void tst_DigitAtlas::groundGivenBeforehandIsTheSame()
{
    for (QColor const & color : { QColor(Qt::white), QColor(255, 200, 0, 90) }) {
        DigitAtlas blending;
        blending.Set(Font(9), color, 1.5);
        DigitAtlas blended;
        blended.Set(Font(9), color, 1.5, DigitAtlas::NumberCharacters(), QColor::fromRgb(Ground));
        QImage a = Canvas(100, 30, QImage::Format_RGB32);
        QImage b = a;
        QVERIFY(blending.Draw(a, QPoint(3, 4), QStringLiteral("-12.58"), a.rect()));
        QVERIFY(blended.Draw(b, QPoint(3, 4), QStringLiteral("-12.58"), b.rect()));
        QVERIFY(!InkRect(a).isEmpty());
        QCOMPARE(a, b);
        // on another ground it keeps its own
        QImage c = Canvas(100, 30, QImage::Format_RGB32, 0xffffffff);
        QImage d = c;
        blending.Draw(c, QPoint(3, 4), QStringLiteral("-12.58"), c.rect());
        blended.Draw(d, QPoint(3, 4), QStringLiteral("-12.58"), d.rect());
        QVERIFY(c != d);
    }
}

void tst_DigitAtlas::translucentGroundIsNotBlendedBeforehand()
{
    DigitAtlas blending;
    blending.Set(Font(9), Qt::white, 1.0);
    DigitAtlas atlas;
    atlas.Set(Font(9), Qt::white, 1.0, DigitAtlas::NumberCharacters(), QColor(255, 0, 0, 254));
    QImage a = Canvas(60, 30);
    QImage b = a;
    blending.Draw(a, QPoint(3, 4), QStringLiteral("58"), a.rect());
    atlas.Draw(b, QPoint(3, 4), QStringLiteral("58"), b.rect());
    QCOMPARE(a, b);
}

void tst_DigitAtlas::inkStaysInItsBox_data()
{
    QTest::addColumn<QFont>("font");
    QTest::addColumn<double>("ratio");
    QFont slanted = Font(24, QFont::Bold);
    slanted.setItalic(true);
    QTest::newRow("plain") << Font(9) << 1.0;
    QTest::newRow("bold") << Font(9, QFont::Bold) << 1.5;
    QTest::newRow("slanted") << slanted << 2.0;
    QTest::newRow("small") << Font(1) << 1.0;
    QTest::newRow("large") << Font(150) << 1.0;
    QTest::newRow("ratio 3.1416") << Font(10) << 3.1416;
}

void tst_DigitAtlas::inkStaysInItsBox()
{
    QFETCH(QFont, font);
    QFETCH(double, ratio);
    QString const characters = DigitAtlas::NumberCharacters() + QLatin1String("fgjkMHzdBWV\u00b5/%");
    DigitAtlas atlas;
    atlas.Set(font, Qt::white, ratio, characters);
    for (QChar const character : characters) {
        QString const text(character);
        QImage image = Canvas(atlas.Width(text) + 40, atlas.GetHeight() + 40);
        QVERIFY(atlas.Draw(image, QPoint(20, 20), text, image.rect()));
        QRect const box(20, 20, atlas.Width(text), atlas.GetHeight());
        QVERIFY2(box.contains(InkRect(image)) || InkRect(image).isEmpty(), qPrintable(text));
    }
}

void tst_DigitAtlas::clipIsKept_data()
{
    QTest::addColumn<QPoint>("position");
    QTest::addColumn<QRect>("clip");
    QTest::newRow("inside") << QPoint(5, 5) << QRect(0, 0, 80, 40);
    QTest::newRow("part of a digit") << QPoint(5, 5) << QRect(9, 9, 20, 3);
    QTest::newRow("lower part of the digits") << QPoint(5, 5) << QRect(0, 12, 80, 20);
    QTest::newRow("left of the picture") << QPoint(-9, 5) << QRect(0, 0, 80, 40);
    QTest::newRow("right of the picture") << QPoint(70, 5) << QRect(0, 0, 80, 40);
    QTest::newRow("above the picture") << QPoint(5, -7) << QRect(0, 0, 80, 40);
    QTest::newRow("below the picture") << QPoint(5, 33) << QRect(0, 0, 80, 40);
    QTest::newRow("clip larger than the picture") << QPoint(-9, -7) << QRect(-1000, -1000, 5000, 5000);
    QTest::newRow("clip beside the text") << QPoint(5, 5) << QRect(60, 30, 10, 10);
    QTest::newRow("clip is empty") << QPoint(5, 5) << QRect();
    QTest::newRow("clip beside the picture") << QPoint(5, 5) << QRect(200, 200, 10, 10);
}

void tst_DigitAtlas::clipIsKept()
{
    QFETCH(QPoint, position);
    QFETCH(QRect, clip);
    DigitAtlas atlas;
    atlas.Set(Font(9), Qt::white, 1.0);
    QString const text = QStringLiteral("80.85");
    QPoint const margin(100, 100);
    QImage whole = Canvas(280, 240); // the same with a margin all around
    QVERIFY(atlas.Draw(whole, position + margin, text, whole.rect()));
    QImage image = Canvas(80, 40);
    QVERIFY(atlas.Draw(image, position, text, clip));
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            QCOMPARE(image.pixel(x, y), clip.contains(x, y) ? whole.pixel(QPoint(x, y) + margin) : Ground);
    }
}

void tst_DigitAtlas::refuses_data()
{
    QTest::addColumn<QImage>("image");
    QTest::addColumn<QString>("text");
    QTest::newRow("null picture") << QImage() << QStringLiteral("1");
    QTest::newRow("alpha not multiplied in") << Canvas(40, 20, QImage::Format_ARGB32) << QStringLiteral("1");
    QTest::newRow("24 bits") << Canvas(40, 20, QImage::Format_RGB888) << QStringLiteral("1");
    QTest::newRow("a character that is not there, behind one that is") << Canvas(40, 20) << QStringLiteral("1k");
}

void tst_DigitAtlas::refuses()
{
    QFETCH(QImage, image);
    QFETCH(QString, text);
    DigitAtlas atlas;
    atlas.Set(Font(9), Qt::white, 1.0);
    QImage const before = image.copy();
    QVERIFY(!atlas.Draw(image, QPoint(2, 2), text, image.rect()));
    QCOMPARE(image, before);
}

void tst_DigitAtlas::setsAnew()
{
    QString const numbers = DigitAtlas::NumberCharacters();
    auto const drawn = [](DigitAtlas const & atlas) {
        QImage image = Canvas(200, 100);
        atlas.Draw(image, QPoint(2, 2), QStringLiteral("85"), image.rect());
        return image;
    };
    DigitAtlas atlas;
    atlas.Set(Font(9), Qt::white, 1.0);
    QImage last = drawn(atlas);
    auto const changes = [&atlas, &last, &drawn](auto const &... arguments) {
        atlas.Set(arguments...);
        DigitAtlas fresh;
        fresh.Set(arguments...);
        QImage const now = drawn(atlas);
        bool const isRight = now == drawn(fresh) && now != last;
        last = now;
        return isRight;
    };
    QVERIFY(changes(Font(12), Qt::white, 1.0));
    QVERIFY(changes(Font(12), Qt::yellow, 1.0));
    QVERIFY(changes(Font(12), Qt::yellow, 2.0));
    QVERIFY(changes(Font(12), Qt::yellow, 2.0, numbers, QColor(Qt::red)));
    QVERIFY(changes(Font(12), Qt::yellow, 2.0, QStringLiteral("8"), QColor(Qt::red)));
    QVERIFY(changes(Font(9), Qt::white, 1.0, numbers));
}

void tst_DigitAtlas::oddRatios_data()
{
    QTest::addColumn<double>("ratio");
    QTest::addColumn<double>("counts");
    QTest::newRow("NaN") << std::numeric_limits<double>::quiet_NaN() << 1.0;
    QTest::newRow("0") << 0.0 << 1.0;
    QTest::newRow("negative") << -2.0 << 1.0;
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << 16.0;
    QTest::newRow("3.1416") << 3.1416 << 3.1416;
}

void tst_DigitAtlas::oddRatios()
{
    QFETCH(double, ratio);
    QFETCH(double, counts);
    DigitAtlas odd;
    odd.Set(Font(9), Qt::white, ratio);
    DigitAtlas usual;
    usual.Set(Font(9), Qt::white, counts);
    QVERIFY(odd.Width(QStringLiteral("1")) > 0);
    QCOMPARE(odd.Width(QStringLiteral("1")), usual.Width(QStringLiteral("1")));
    QCOMPARE(odd.GetHeight(), usual.GetHeight());
}

void tst_DigitAtlas::oddFonts_data()
{
    QTest::addColumn<QFont>("font");
    QTest::addColumn<double>("ratio");
    QTest::addColumn<bool>("holds");
    QFont pixel = Font(9);
    pixel.setPixelSize(1);
    QTest::newRow("1 point") << Font(1) << 1.0 << true;
    QTest::newRow("1 px") << pixel << 1.0 << true;
    QTest::newRow("200 points") << Font(200) << 1.0 << true;
    QTest::newRow("200 points at ratio 16") << Font(200) << 16.0 << false;
    QTest::newRow("unknown family") << QFont(QStringLiteral("no such family"), 9) << 1.0 << true;
}

void tst_DigitAtlas::oddFonts()
{
    QFETCH(QFont, font);
    QFETCH(double, ratio);
    QFETCH(bool, holds);
    DigitAtlas atlas;
    atlas.Set(font, Qt::white, ratio);
    QCOMPARE(atlas.Holds(QStringLiteral("85")), holds);
    QVERIFY(!holds || atlas.GetHeight() <= 2 * DigitAtlas::LargestCharacter);
    QImage image = Canvas(1000, 400);
    QCOMPARE(atlas.Draw(image, QPoint(2, 2), QStringLiteral("85"), image.rect()), holds);
    QCOMPARE(InkRect(image).isEmpty(), !holds);
}

//! What such a font measures is left to the platform.
void tst_DigitAtlas::hugeFontIsBounded()
{
    DigitAtlas atlas;
    atlas.Set(Font(1'000'000), Qt::white, 3.0);
    bool const holds = atlas.Holds(QStringLiteral("85"));
    QVERIFY(!holds || atlas.GetHeight() <= 2 * DigitAtlas::LargestCharacter);
    QImage image = Canvas(1000, 400);
    QCOMPARE(atlas.Draw(image, QPoint(2, 2), QStringLiteral("85"), image.rect()), holds);
}

void tst_DigitAtlas::moreCharactersThanItHolds()
{
    QString characters;
    for (int code = 0x20; code < 0x20 + 300; ++code)
        characters.append(QChar(code)).append(QChar(code));
    DigitAtlas atlas;
    atlas.Set(Font(9), Qt::white, 1.0, characters);
    QVERIFY(atlas.Holds(QString(QChar(0x20 + 255))));
    QVERIFY(!atlas.Holds(QString(QChar(0x20 + 256))));
}

void tst_DigitAtlas::farAway()
{
    DigitAtlas atlas;
    atlas.Set(Font(9), Qt::white, 1.0);
    QImage image = Canvas(40, 20);
    QImage const before = image.copy();
    int const most = std::numeric_limits<int>::max();
    int const least = std::numeric_limits<int>::min();
    for (QPoint const & position : { QPoint(most, 2), QPoint(least, 2), QPoint(2, most), QPoint(2, least) })
        QVERIFY(atlas.Draw(image, position, QStringLiteral("1234567890"),
                           QRect(QPoint(least / 4, least / 4), QPoint(most / 4, most / 4))));
    QCOMPARE(image, before);
    // a long text reaches in from far away
    QString const text(100'000, QLatin1Char('8'));
    QVERIFY(atlas.Draw(image, QPoint(-atlas.Width(text) / 2, 2), text, image.rect()));
    QVERIFY(InkRect(image).width() > 35);
}

void tst_DigitAtlas::overIsRounded()
{
    for (unsigned int alpha = 0; alpha < 256; ++alpha) {
        for (unsigned int ground = 0; ground < 256; ++ground) {
            auto const below = static_cast<unsigned int>(std::lround(ground * (255 - alpha) / 255.0));
            QRgb const ink = alpha << 24U | (alpha / 2) << 16U | alpha << 8U | 0U;
            QRgb const result = ScanLines::Over(ink, 0xff000000U | ground << 16U | ground << 8U | ground);
            QCOMPARE(result >> 24U, 255U);
            QCOMPARE(result >> 16U & 0xffU, below + alpha / 2);
            QCOMPARE(result >> 8U & 0xffU, below + alpha);
            QCOMPARE(result & 0xffU, below);
        }
    }
}

void tst_DigitAtlas::fillIsCut()
{
    for (QRect const & rect : { QRect(2, 3, 4, 5), QRect(6, 6, -3, -3), QRect(-2, -3, 4, 5), QRect(8, 8, 40, 50),
                                QRect(-5, -5, 50, 50), QRect(20, 20, 4, 4), QRect(3, 3, 0, 5), QRect() }) {
        QImage image = Canvas(10, 10);
        ScanLines::Fill(image, rect, 0x80402010U);
        for (int y = 0; y < 10; ++y) {
            auto const * const row = reinterpret_cast<QRgb const *>(image.constScanLine(y));
            for (int x = 0; x < 10; ++x)
                QCOMPARE(row[x], !rect.isEmpty() && rect.contains(x, y) ? 0x80402010U : Ground);
        }
    }
}

void tst_DigitAtlas::blendIsCut()
{
    QImage const ink = Canvas(4, 4, QImage::Format_ARGB32_Premultiplied, 0x80402010U);
    QRect const clip(0, 0, 10, 6);
    for (QPoint const & position :
         { QPoint(2, 2), QPoint(-2, -2), QPoint(8, 4), QPoint(20, 2), QPoint(2, -20),
           QPoint(std::numeric_limits<int>::max(), 0), QPoint(0, std::numeric_limits<int>::min()) }) {
        QImage image = Canvas(10, 10, QImage::Format_RGB32);
        ScanLines::Blend(image, position, ink, clip);
        bool const isNear = std::abs(position.x() / 2) < 100 && std::abs(position.y() / 2) < 100;
        QRect const covered = isNear ? QRect(position, QSize(4, 4)) & clip : QRect();
        auto const pixel = reinterpret_cast<QRgb const *>(ink.constScanLine(0))[0];
        for (int y = 0; y < 10; ++y) {
            auto const * const row = reinterpret_cast<QRgb const *>(image.constScanLine(y));
            for (int x = 0; x < 10; ++x)
                QCOMPARE(row[x], covered.contains(x, y) ? ScanLines::Over(pixel, Ground) : Ground);
        }
    }
}

void tst_DigitAtlas::otherFormatsStay()
{
    QImage image = Canvas(10, 10, QImage::Format_ARGB32);
    QImage const before = image.copy();
    ScanLines::Fill(image, image.rect(), 0xffffffffU);
    ScanLines::Blend(image, QPoint(), Canvas(4, 4), image.rect());
    QCOMPARE(image, before);
    QImage drawable = Canvas(10, 10);
    QImage const drawableBefore = drawable.copy();
    ScanLines::Blend(drawable, QPoint(), Canvas(4, 4, QImage::Format_ARGB32, 0xffffffffU), drawable.rect());
    QCOMPARE(drawable, drawableBefore);
    QVERIFY(!ScanLines::CanDraw(QImage()));
    QCOMPARE(ScanLines::Ink(QColor()), 0U);
    QCOMPARE(ScanLines::Ink(QColor(255, 0, 0, 128)), 0x80800000U);
}

ORIM_TEST_MAIN(tst_DigitAtlas)
#include "tst_digitatlas.moc"
