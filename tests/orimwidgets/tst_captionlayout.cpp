// SPDX-License-Identifier: MIT
#include "captionlayout.h"
#include "testmain.h"

#include <climits>

using CaptionLayout::Known;
using CaptionLayout::Places;
using CaptionLayout::Widths;

namespace {

constexpr int None = INT_MIN; // not drawn

int At(std::optional<int> const & place) { return place.value_or(None); }

} // namespace

class tst_captionlayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void placeTexts_data();
    void placeTexts();
    void everyIntIsTaken();
    void baseLine_data();
    void baseLine();
    void equalCharWidth();
    void isSimilar_data();
    void isSimilar();
    void similarString_data();
    void similarString();
    void pictureExtent_data();
    void pictureExtent();
};

void tst_captionlayout::placeTexts_data()
{
    QTest::addColumn<int>("leftWidth");
    QTest::addColumn<int>("centerWidth");
    QTest::addColumn<int>("rightWidth");
    QTest::addColumn<int>("bar");
    QTest::addColumn<int>("space");
    QTest::addColumn<int>("left");
    QTest::addColumn<int>("center");
    QTest::addColumn<int>("right");
    QTest::newRow("no text") << 0 << 0 << 0 << 200 << 200 << None << None << None;
    QTest::newRow("not measured") << -1 << -1 << -1 << 200 << 200 << None << None << None;
    QTest::newRow("left at 2") << 50 << 0 << 0 << 200 << 200 << 2 << None << None;
    QTest::newRow("right ends with the space") << 0 << 0 << 50 << 200 << 200 << None << None << 150;
    QTest::newRow("right ends ahead of the buttons") << 0 << 0 << 50 << 200 << 170 << None << None << 120;
    QTest::newRow("centre in an even rest") << 0 << 50 << 0 << 200 << 200 << None << 75 << None;
    QTest::newRow("centre in an odd rest") << 0 << 51 << 0 << 200 << 200 << None << 74 << None;
    QTest::newRow("all three") << 40 << 50 << 30 << 200 << 200 << 2 << 75 << 170;
    QTest::newRow("centre touches the left width") << 75 << 50 << 30 << 200 << 200 << 2 << 75 << 170;
    QTest::newRow("centre one inside the left width") << 76 << 50 << 30 << 200 << 200 << 2 << 78 << 170;
    QTest::newRow("right text touches the centre") << 40 << 50 << 75 << 200 << 200 << 2 << 75 << 125;
    QTest::newRow("right text one inside the centre") << 40 << 50 << 76 << 200 << 200 << 2 << 42 << 124;
    QTest::newRow("without a left text it goes to 2") << 0 << 50 << 80 << 200 << 200 << None << 2 << 120;
    QTest::newRow("the buttons push the centre away") << 0 << 50 << 0 << 200 << 124 << None << 2 << None;
    QTest::newRow("the buttons touch the centre") << 0 << 50 << 0 << 200 << 125 << None << 75 << None;
    QTest::newRow("exactly as wide as the space") << 60 << 80 << 60 << 200 << 200 << 2 << 60 << 140;
    QTest::newRow("one too wide: the centre alone") << 60 << 81 << 60 << 200 << 200 << None << 0 << None;
    QTest::newRow("too wide without a centre: the left alone") << 150 << 0 << 60 << 200 << 200 << 0 << None << None;
    QTest::newRow("too wide with nothing else: the right") << 0 << 0 << 201 << 200 << 200 << None << None << 0;
    QTest::newRow("the buttons leave too little") << 60 << 60 << 60 << 200 << 179 << None << 0 << None;
    QTest::newRow("no space at all") << 10 << 10 << 10 << 20 << 0 << None << 0 << None;
    QTest::newRow("no space, no text") << 0 << 0 << 0 << 20 << -5 << None << None << None;
}

void tst_captionlayout::placeTexts()
{
    QFETCH(int, leftWidth);
    QFETCH(int, centerWidth);
    QFETCH(int, rightWidth);
    QFETCH(int, bar);
    QFETCH(int, space);
    Places const places = CaptionLayout::PlaceTexts({ leftWidth, centerWidth, rightWidth }, bar, space);
    QTEST(At(places.left), "left");
    QTEST(At(places.center), "center");
    QTEST(At(places.right), "right");
}

void tst_captionlayout::everyIntIsTaken()
{
    int const ints[] = { INT_MIN, -1, 0, 1, 100, INT_MAX };
    int drawn = 0;
    for (int const left : ints)
        for (int const center : ints)
            for (int const right : ints)
                for (int const bar : ints)
                    for (int const space : ints) {
                        Places const places = CaptionLayout::PlaceTexts({ left, center, right }, bar, space);
                        QVERIFY(!places.left || left > 0);
                        QVERIFY(!places.center || center > 0);
                        QVERIFY(!places.right || right > 0);
                        drawn += places.center ? 1 : 0;
                    }
    QCOMPARE(drawn, 3 * 6 * 6 * 6 * 6); // a centre text is never left out
    for (int const height : ints)
        for (int const top : ints)
            for (int const bottom : ints)
                CaptionLayout::BaseLine(height, top, bottom);
}

void tst_captionlayout::baseLine_data()
{
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("top");
    QTest::addColumn<int>("bottom");
    QTest::addColumn<int>("baseLine");
    QTest::newRow("room of 0") << 10 << -8 << 1 << 8;    // 10 - 0 - 2
    QTest::newRow("room of 1") << 11 << -8 << 1 << 8;    // 11 - 1 - 2
    QTest::newRow("no room") << 9 << -8 << 1 << 9;       // -1: the height
    QTest::newRow("a high bar") << 20 << -8 << 1 << 8;   // 20 - 10 - 2
    QTest::newRow("a deep text") << 20 << -8 << 4 << 11; // 20 - 7 - 2
    QTest::newRow("no height") << 0 << -8 << 1 << 0;
    QTest::newRow("no font") << 10 << 0 << -1 << -2; // 10 - 10 - 2
}

void tst_captionlayout::baseLine()
{
    QFETCH(int, height);
    QFETCH(int, top);
    QFETCH(int, bottom);
    QTEST(CaptionLayout::BaseLine(height, top, bottom), "baseLine");
}

void tst_captionlayout::equalCharWidth()
{
    for (int i = 0; i < 256; ++i)
        for (int j = 0; j < 256; ++j) {
            auto const a = static_cast<char>(i);
            auto const b = static_cast<char>(j);
            bool const areDigits = i >= 48 && i <= 57 && j >= 48 && j <= 57;
            QCOMPARE(CaptionLayout::EqualCharWidth(a, b), i == j || areDigits);
        }
}

void tst_captionlayout::isSimilar_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("old");
    QTest::addColumn<bool>("similar");
    QTest::newRow("a second later") << QStringLiteral("12:00:10") << QStringLiteral("12:00:09") << true;
    QTest::newRow("a letter for a digit") << QStringLiteral("12:00:9x") << QStringLiteral("12:00:09") << false;
    QTest::newRow("equal") << QStringLiteral("abc") << QStringLiteral("abc") << true;
    QTest::newRow("both empty") << QString() << QString() << true;
    QTest::newRow("longer") << QStringLiteral("100") << QStringLiteral("10") << false;
    QTest::newRow("shorter") << QStringLiteral("10") << QStringLiteral("100") << false;
    QTest::newRow("a letter") << QStringLiteral("abd") << QStringLiteral("abc") << false;
    QTest::newRow("a sign for a digit") << QStringLiteral("-1") << QStringLiteral("11") << false;
    QTest::newRow("equal beyond Latin-1")
        << QStringLiteral("1 \u00b5s \u2192") << QStringLiteral("2 \u00b5s \u2192") << true;
    QTest::newRow("digits of another script") << QStringLiteral("\u0661") << QStringLiteral("\u0662") << false;
    QTest::newRow("another script for a digit") << QStringLiteral("\u0661") << QStringLiteral("1") << false;
    QTest::newRow("its low byte is a digit") << QStringLiteral("\u0131") << QStringLiteral("\u0232") << false;
    QTest::newRow("its low byte is the digit") << QStringLiteral("\u0131") << QStringLiteral("1") << false;
    QTest::newRow("both have no Latin-1") << QStringLiteral("\u2192") << QStringLiteral("\u2190") << false;
}

void tst_captionlayout::isSimilar()
{
    QFETCH(QString, text);
    QFETCH(QString, old);
    QTEST(CaptionLayout::IsSimilar(text, old), "similar");
    QTEST(CaptionLayout::IsSimilar(old, text), "similar");
}

void tst_captionlayout::similarString_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("old");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("bar");
    QTest::addColumn<bool>("isVisible");
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("oldAfter");
    QString const nine = QStringLiteral("12:00:09");
    QString const ten = QStringLiteral("12:00:10");
    QTest::newRow("an empty text") << QString() << nine << 40 << 100 << true << 0 << QString();
    QTest::newRow("an empty text, hidden") << QString() << nine << 40 << 100 << false << 0 << QString();
    QTest::newRow("hidden") << ten << nine << 40 << 100 << false << -1 << ten;
    QTest::newRow("hidden and equal") << nine << nine << 40 << 100 << false << -1 << nine;
    QTest::newRow("digits alone: old stays") << ten << nine << 40 << 100 << true << 40 << nine;
    QTest::newRow("equal") << nine << nine << 40 << 100 << true << 40 << nine;
    QTest::newRow("a letter") << QStringLiteral("12:00:9x") << nine << 40 << 100 << true << 777
                              << QStringLiteral("12:00:9x");
    QTest::newRow("never measured") << nine << nine << -1 << 100 << true << 777 << nine;
    QTest::newRow("width of 0") << nine << nine << 0 << 100 << true << 777 << nine;
    QTest::newRow("one narrower than the bar") << ten << nine << 99 << 100 << true << 99 << nine;
    QTest::newRow("as wide as the bar") << ten << nine << 100 << 100 << true << 777 << ten;
    QTest::newRow("wider than the bar") << ten << nine << 101 << 100 << true << 777 << ten;
}

void tst_captionlayout::similarString()
{
    QFETCH(QString, text);
    QFETCH(QString, old);
    QFETCH(int, width);
    QFETCH(int, bar);
    QFETCH(bool, isVisible);
    QFETCH(int, result);
    int calls = 0;
    auto const measure = [&calls, &text](QString const & measured) {
        ++calls;
        return measured == text ? 777 : -777;
    };
    QCOMPARE(CaptionLayout::WidthOnSimilarString(text, { old, width }, bar, isVisible, measure), result);
    QCOMPARE(calls, result == 777 ? 1 : 0);
    QTEST(old, "oldAfter");
}

void tst_captionlayout::pictureExtent_data()
{
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("extent");
    QTest::newRow("lowest") << INT_MIN << 8;
    QTest::newRow("0") << 0 << 8;
    QTest::newRow("10") << 10 << 8;
    QTest::newRow("17") << 17 << 8;
    QTest::newRow("18") << 18 << 16;
    QTest::newRow("27") << 27 << 16;
    QTest::newRow("28") << 28 << 24;
    QTest::newRow("highest") << INT_MAX << 24;
}

void tst_captionlayout::pictureExtent()
{
    QFETCH(int, height);
    QTEST(CaptionLayout::PictureExtent(height), "extent");
}

ORIM_CORE_TEST_MAIN(tst_captionlayout)
#include "tst_captionlayout.moc"
