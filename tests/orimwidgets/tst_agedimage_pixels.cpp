// SPDX-License-Identifier: MIT
// The four forms in which pixels come into the picture.

#include "agedimageaccess.h"
#include "testmain.h"

#include <QPoint>

#include <climits>

namespace {

using Bytes = std::vector<unsigned char>;

//! Hears which qualities are set.
class HearingPixels : public AgedImageAccess
{
public:
    using AgedImageAccess::AgedImageAccess;
    using AgedImageAccess::SetPixel;

    void SetPixel(int x, int y, int quality) override
    {
        m_heard << quality;
        AgedImageAccess::SetPixel(x, y, quality);
    }

    Indices m_heard;
};

} // namespace

Q_DECLARE_METATYPE(Bytes)

class tst_AgedImagePixels : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void setsAPixel_data();
    void setsAPixel();
    void setsNoPixelOutside_data();
    void setsNoPixelOutside();
    void setsBytes_data();
    void setsBytes();
    void bytesTellWhetherTheyWrote();
    void setsBits_data();
    void setsBits();
    void pointAndBitsGoThroughOneForm();
    void inputNeedsAgeingAndAPicture();
};

void tst_AgedImagePixels::setsAPixel_data()
{
    QTest::addColumn<int>("qualitySteps");
    QTest::addColumn<int>("turns");
    QTest::addColumn<int>("quality");
    QTest::addColumn<int>("index"); // of blocks of 8
    QTest::newRow("before the first step") << 1 << 0 << 0 << 0;
    QTest::newRow("after the first step") << 1 << 1 << 0 << 0;
    QTest::newRow("after the second step") << 1 << 2 << 0 << 7;
    QTest::newRow("one block hears no quality") << 1 << 3 << 5 << 6;
    QTest::newRow("no quality steps, likewise") << 0 << 3 << 5 << 6;
    QTest::newRow("negative quality steps, likewise") << -3 << 3 << 5 << 6;
    QTest::newRow("lowest quality") << 3 << 3 << 0 << 6;
    QTest::newRow("middle quality") << 3 << 3 << 1 << 14;
    QTest::newRow("highest quality") << 3 << 3 << 2 << 22;
    QTest::newRow("quality beyond the highest") << 3 << 3 << 3 << 22;
    QTest::newRow("negative quality") << 3 << 3 << -1 << 22;
}

void tst_AgedImagePixels::setsAPixel()
{
    QFETCH(int, qualitySteps);
    QFETCH(int, turns);
    QFETCH(int, quality);
    AgedImageAccess image(7, 5, qualitySteps);
    Turn(image, turns);
    for (bool const byPoint : { false, true }) {
        image.Clear(255);
        image.ClearDirty();
        if (byPoint)
            image.SetPixel(QPoint(6, 4), quality);
        else
            image.SetPixel(6, 4, quality);
        QTEST(image.At(6, 4), "index");
        QCOMPARE(image.SetPixels(), 1);
        QVERIFY(image.GetDirty());
    }
}

void tst_AgedImagePixels::setsNoPixelOutside_data()
{
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("y");
    QTest::newRow("left") << -1 << 2;
    QTest::newRow("right, into the padding of the row") << 7 << 2;
    QTest::newRow("above") << 2 << -1;
    QTest::newRow("below") << 2 << 5;
    QTest::newRow("lowest") << INT_MIN << INT_MIN;
    QTest::newRow("highest") << INT_MAX << INT_MAX;
}

void tst_AgedImagePixels::setsNoPixelOutside()
{
    QFETCH(int, x);
    QFETCH(int, y);
    AgedImageAccess image(7, 5);
    image.SetPixel(x, y, 0);
    image.SetPixel(QPoint(x, y), 0);
    QCOMPARE(image.SetPixels(), 0);
    QVERIFY(!image.GetDirty());
}

void tst_AgedImagePixels::setsBytes_data()
{
    QTest::addColumn<int>("qualitySteps");
    QTest::addColumn<Bytes>("data");    // 5 columns, 2 rows
    QTest::addColumn<Indices>("first"); // was 9 everywhere
    QTest::addColumn<Indices>("second");
    QTest::newRow("0 leaves a pixel") << 1 << Bytes{ 0, 0, 1, 0, 0, 0, 0, 0, 0, 1 } << Indices{ 9, 9, 6, 9, 9 }
                                      << Indices{ 9, 9, 9, 9, 6 };
    QTest::newRow("one block: any other sets it")
        << 1 << Bytes{ 1, 2, 3, 254, 255, 0, 0, 0, 0, 0 } << Indices{ 6, 6, 6, 6, 6 } << Indices{ 9, 9, 9, 9, 9 };
    QTest::newRow("no block is one") << 0 << Bytes{ 1, 2, 3, 254, 255, 0, 0, 0, 0, 0 } << Indices{ 6, 6, 6, 6, 6 }
                                     << Indices{ 9, 9, 9, 9, 9 };
    QTest::newRow("several: by quality") << 3 << Bytes{ 1, 2, 3, 0, 1, 3, 3, 0, 2, 1 } << Indices{ 6, 14, 22, 9, 6 }
                                         << Indices{ 22, 22, 9, 14, 6 };
    QTest::newRow("several: a larger one leaves a pixel")
        << 3 << Bytes{ 4, 255, 3, 5, 128, 4, 4, 4, 4, 4 } << Indices{ 9, 9, 22, 9, 9 } << Indices{ 9, 9, 9, 9, 9 };
}

void tst_AgedImagePixels::setsBytes()
{
    QFETCH(int, qualitySteps);
    QFETCH(Bytes, data);
    AgedImageAccess image(5, 2, qualitySteps); // rows of the picture are padded to 8 bytes
    Turn(image, 3);
    image.GetImage()->fill(9);
    image.SetPixel(data.data(), 4711U);
    QTEST(RowOf(image, 0), "first");
    QTEST(RowOf(image, 1), "second");
}

void tst_AgedImagePixels::bytesTellWhetherTheyWrote()
{
    AgedImageAccess image(5, 2, 3);
    Bytes nothing{ 0, 4, 255, 0, 0, 0, 0, 0, 0, 0 };
    image.SetPixel(nothing.data(), 0U);
    image.SetPixel(nullptr, 10U);
    QVERIFY(!image.GetDirty());
    nothing[9] = 3;
    image.SetPixel(nothing.data(), 0U);
    QVERIFY(image.GetDirty());
    Bytes const none(10);
    image.SetPixel(const_cast<unsigned char *>(none.data()), 0U);
    QVERIFY(image.GetDirty()); // it was
}

void tst_AgedImagePixels::setsBits_data()
{
    QTest::addColumn<Bytes>("bits");
    QTest::addColumn<int>("bytesPerLine");
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("quality");
    QTest::addColumn<Indices>("first"); // 10 columns, 2 rows; two blocks of 8
    QTest::addColumn<Indices>("second");
    int const o = 255;
    Indices const none(10, o);
    QTest::newRow("lowest bit first") << Bytes{ 0x05, 0x00, 0x80, 0x02 } << 2 << 4 << 0
                                      << Indices{ 6, o, 6, o, o, o, o, o, o, o }
                                      << Indices{ o, o, o, o, o, o, o, 6, o, 6 };
    QTest::newRow("with a quality") << Bytes{ 0x05, 0x00, 0x00, 0x00 } << 2 << 4 << 1
                                    << Indices{ 14, o, 14, o, o, o, o, o, o, o } << none;
    QTest::newRow("bits beyond the width")
        << Bytes{ 0x00, 0xfe, 0x00, 0xfc } << 2 << 4 << 0 << Indices{ o, o, o, o, o, o, o, o, o, 6 } << none;
    QTest::newRow("longer lines") << Bytes{ 0x01, 0x00, 0xff, 0x02, 0x00, 0xff } << 3 << 6 << 0
                                  << Indices{ 6, o, o, o, o, o, o, o, o, o } << Indices{ o, 6, o, o, o, o, o, o, o, o };
    QTest::newRow("lines without room") << Bytes{ 0xff, 0xff } << 1 << 2 << 0 << none << none;
    QTest::newRow("a byte too few") << Bytes{ 0xff, 0xff, 0xff, 0xff } << 2 << 3 << 0 << none << none;
    QTest::newRow("a byte too many") << Bytes{ 0xff, 0xff, 0xff, 0xff, 0xff } << 2 << 5 << 0 << none << none;
    QTest::newRow("no lines") << Bytes{ 0xff } << 0 << 0 << 0 << none << none;
    QTest::newRow("negative lines") << Bytes{ 0xff } << -2 << -4 << 0 << none << none;
    QTest::newRow("a product beyond an int") << Bytes{ 0xff } << INT_MAX << -2 << 0 << none << none;
}

void tst_AgedImagePixels::setsBits()
{
    QFETCH(Bytes, bits);
    QFETCH(int, bytesPerLine);
    QFETCH(int, size);
    QFETCH(int, quality);
    AgedImageAccess image(10, 2, 2);
    Turn(image, 3);
    image.ClearDirty();
    image.SetPixel(bits.data(), bytesPerLine, size, quality);
    QTEST(RowOf(image, 0), "first");
    QTEST(RowOf(image, 1), "second");
    QCOMPARE(image.GetDirty(), image.SetPixels() > 0);
    image.SetPixel(nullptr, bytesPerLine, size, quality);
}

//! What overrides the form with two coordinates hears of these too.
void tst_AgedImagePixels::pointAndBitsGoThroughOneForm()
{
    HearingPixels image(8, 2);
    image.SetPixel(QPoint(1, 1), 5);
    QCOMPARE(image.m_heard, Indices{ 5 });
    image.m_heard.clear();
    Bytes bits{ 0x21, 0x00 };
    image.SetPixel(bits.data(), 1, 2, 3);
    QCOMPARE(image.m_heard, (Indices{ 3, 3 }));
}

void tst_AgedImagePixels::inputNeedsAgeingAndAPicture()
{
    Bytes data(2 * 8, 0xff);
    for (bool const isOff : { true, false }) {
        AgedImageAccess image;
        if (isOff)
            image.resize(8, 2);
        image.SetAgeing(!isOff);
        image.ClearDirty();
        image.SetPixel(1, 1, 0);
        image.SetPixel(QPoint(1, 1), 0);
        image.SetPixel(data.data(), 0U);
        image.SetPixel(data.data(), 1, 2, 0);
        QVERIFY(!image.GetDirty());
        if (isOff)
            QCOMPARE(image.SetPixels(), 0);
    }
    AgedImageAccess image(8, 2);
    image.SetAgeing(false);
    QVERIFY(image.GetDirty());
    QVERIFY(!image.GetAgeing());
    image.SetCurrentTime(1000000);
    image.SetCurrentTime(1500000); // a stream goes on
    QCOMPARE(image.m_switches, 1);
    image.ClearDirty();
    image.SetAgeing(true);
    QVERIFY(image.GetDirty());
    image.SetPixel(data.data(), 1, 2, 0);
    QCOMPARE(image.SetPixels(), 16);
}

ORIM_TEST_MAIN(tst_AgedImagePixels)
#include "tst_agedimage_pixels.moc"
