// SPDX-License-Identifier: MIT
#include "pixelstretch.h"

#include "testmain.h"

#include <limits>

class tst_PixelStretch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rowIsLaid_data();
    void rowIsLaid();
    void columnIsLaid();
    void oddPicturesAreIgnored();
};

namespace {

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Inf = std::numeric_limits<double>::infinity();
constexpr int Ground = 9;

//! A picture of one row whose indices are digits; a dot is the ground.
QImage RowOf(QByteArray const & digits)
{
    QImage image(static_cast<int>(digits.size()), 1, QImage::Format_Indexed8);
    image.setColorCount(256);
    for (int x = 0; x < image.width(); ++x)
        image.setPixel(
            x, 0, digits[x] == '.' ? static_cast<unsigned int>(Ground) : static_cast<unsigned int>(digits[x] - '0'));
    return image;
}

QByteArray TextOf(QImage const & image)
{
    QByteArray text;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            int const index = image.pixelIndex(x, y);
            text.append(index == Ground ? '.' : static_cast<char>('0' + index));
        }
    }
    return text;
}

} // namespace

void tst_PixelStretch::rowIsLaid_data()
{
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<double>("left");
    QTest::addColumn<double>("width");
    QTest::addColumn<QByteArray>("onto");
    QTest::addColumn<QByteArray>("laid");
    auto const row = [](char const * name, char const * from, double left, double width, char const * onto,
                        char const * laid) {
        QTest::newRow(name) << QByteArray(from) << left << width << QByteArray(onto) << QByteArray(laid);
    };
    row("as it is", "1.2", 0.0, 3.0, "...", "1.2");
    row("twice as wide", "1.2", 0.0, 6.0, "......", "11..22");
    row("half as wide", "1...2.", 0.0, 3.0, "...", "1.2");
    row("none is lost", ".1........", 0.0, 2.0, "..", "1.");
    row("the last of several stays", "12", 0.0, 1.0, ".", "2");
    row("the ground lets through", "1.2", 0.0, 3.0, "777", "172");
    row("beside it nothing changes", "12", 1.0, 2.0, "7..7", "7127");
    row("cut at the left", "123", -1.0, 3.0, "...", "23.");
    row("cut at the right", "123", 2.0, 3.0, "...", "..1");
    row("wholly at the left", "123", -5.0, 3.0, "...", "...");
    row("wholly at the right", "123", 5.0, 3.0, "...", "...");
    row("far beyond an int", "1", -1e300, 2e300, "...", "111");
    row("far away", "1", 1e300, 1.0, "...", "...");
    row("by less than half a pixel", "123", 0.4, 3.0, "...", "123");
    row("by more than half a pixel", "123", 0.6, 3.0, "...", ".12");
    row("no width", "1", 0.0, 0.0, ".", ".");
    row("turned round", "1", 1.0, -1.0, ".", ".");
    row("NaN", "1", NaN, 1.0, ".", ".");
    row("endless", "1", 0.0, Inf, ".", ".");
}

void tst_PixelStretch::rowIsLaid()
{
    QFETCH(QByteArray, from);
    QFETCH(double, left);
    QFETCH(double, width);
    QFETCH(QByteArray, onto);
    QFETCH(QByteArray, laid);
    QImage picture = RowOf(onto);
    PixelStretch::Lay(RowOf(from), QRectF(left, 0.0, width, 1.0), Ground, picture);
    QCOMPARE(TextOf(picture), laid);
}

void tst_PixelStretch::columnIsLaid()
{
    QImage picture(1, 4, QImage::Format_Indexed8);
    picture.setColorCount(256);
    picture.fill(Ground);
    QImage from(1, 2, QImage::Format_Indexed8);
    from.setColorCount(256);
    from.fill(1);
    from.setPixel(0, 1, 2);
    PixelStretch::Lay(from, QRectF(0.0, 0.0, 1.0, 4.0), Ground, picture);
    QCOMPARE(TextOf(picture), QByteArray("1122"));
    PixelStretch::Lay(from, QRectF(0.0, 3.0, 1.0, 2.0), Ground, picture);
    QCOMPARE(TextOf(picture), QByteArray("1121"));
}

void tst_PixelStretch::oddPicturesAreIgnored()
{
    QImage picture = RowOf("..");
    QRectF const place(0.0, 0.0, 2.0, 1.0);
    PixelStretch::Lay(QImage(), place, Ground, picture);
    QImage const colours(2, 1, QImage::Format_RGB32);
    PixelStretch::Lay(colours, place, Ground, picture);
    QCOMPARE(TextOf(picture), QByteArray(".."));
    QImage nothing;
    PixelStretch::Lay(RowOf("12"), place, Ground, nothing);
    QVERIFY(nothing.isNull());
}

ORIM_TEST_MAIN(tst_PixelStretch)
#include "tst_pixelstretch.moc"
