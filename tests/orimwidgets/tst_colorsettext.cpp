// SPDX-License-Identifier: MIT
#include "colorsettext.h"

#include "testmain.h"

namespace {

QString const Colors40 = QStringLiteral("#000001;").repeated(40);

} // namespace

class tst_colorsettext : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyFieldOfTheOldestLayout();
    void everyFieldOfV01();
    void everyFieldOfV02();
    void headerThreshold_data();
    void headerThreshold();
    void colorsRead_data();
    void colorsRead();
    void counts_data();
    void counts();
    void flags_data();
    void flags();
    void numbers_data();
    void numbers();
    void colorTexts_data();
    void colorTexts();
    void lackingFieldsReadAsSemicolon();
    void prints();
    void printsNumbers_data();
    void printsNumbers();
    void hugeLine();
};

void tst_colorsettext::everyFieldOfTheOldestLayout()
{
    auto const line = ColorSetText::Parse(QStringLiteral("2;1;0;3;4;1;#010101;#020202;"));
    QVERIFY(line.header.has_value());
    QCOMPARE(line.header->count, std::size_t{ 2 });
    QVERIFY(line.header->smooth);
    QVERIFY(!line.header->fixed);
    QCOMPARE(line.header->start, 3.0);
    QCOMPARE(line.header->stop, 4.0);
    QVERIFY(!line.header->offset.has_value());
    QVERIFY(line.header->wrap);
    QVERIFY(!line.header->background.has_value());
    // the empty field behind the closing ";" is one colour more, and no colour
    QCOMPARE(line.colors, (std::vector<QColor>{ QColor("#010101"), QColor("#020202"), QColor() }));
}

void tst_colorsettext::everyFieldOfV01()
{
    auto const line = ColorSetText::Parse(QStringLiteral("V01;2;0;1;3;4;5;1;#010101;#020202;"));
    QVERIFY(line.header.has_value());
    QCOMPARE(line.header->count, std::size_t{ 2 });
    QVERIFY(!line.header->smooth);
    QVERIFY(line.header->fixed);
    QCOMPARE(line.header->start, 3.0);
    QCOMPARE(line.header->stop, 4.0);
    QCOMPARE(line.header->offset, std::optional<double>(5.0));
    QVERIFY(line.header->wrap);
    QVERIFY(!line.header->background.has_value());
    QCOMPARE(line.colors, (std::vector<QColor>{ QColor("#010101"), QColor("#020202") }));
}

void tst_colorsettext::everyFieldOfV02()
{
    auto const line = ColorSetText::Parse(QStringLiteral("V02;2;0;1;3;4;5;0;1;#0a0b0c;#010101;#020202;"));
    QVERIFY(line.header.has_value());
    QCOMPARE(line.header->count, std::size_t{ 2 });
    QVERIFY(!line.header->smooth);
    QVERIFY(line.header->fixed);
    QCOMPARE(line.header->start, 3.0);
    QCOMPARE(line.header->stop, 4.0);
    QCOMPARE(line.header->offset, std::optional<double>(5.0));
    QVERIFY(!line.header->wrap);
    QVERIFY(line.header->background.has_value());
    QVERIFY(line.header->background->useMinIndex);
    QCOMPARE(line.header->background->color, QColor("#0a0b0c"));
    QCOMPARE(line.colors, (std::vector<QColor>{ QColor("#010101"), QColor("#020202") }));
}

void tst_colorsettext::headerThreshold_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("read");
    QTest::newRow("oldest, 7 fields") << QStringLiteral("1;0;0;0;1;0;#010101") << false;
    QTest::newRow("oldest, 8 fields") << QStringLiteral("1;0;0;0;1;0;#010101;") << true;
    QTest::newRow("V01, 8 fields") << QStringLiteral("V01;1;0;0;0;1;0;0") << false;
    QTest::newRow("V01, 9 fields") << QStringLiteral("V01;1;0;0;0;1;0;0;") << true;
    QTest::newRow("V02, 10 fields") << QStringLiteral("V02;1;0;0;0;1;0;0;0;#010101") << false;
    QTest::newRow("V02, 11 fields") << QStringLiteral("V02;1;0;0;0;1;0;0;0;#010101;") << true;
    QTest::newRow("a version in small letters is none: the oldest layout")
        << QStringLiteral("v02;1;0;0;0;1;0;0") << true;
    QTest::newRow("2 fields") << QStringLiteral("1;0") << false;
    QTest::newRow("nothing") << QString() << false;
}

void tst_colorsettext::headerThreshold()
{
    QFETCH(QString, line);
    QTEST(ColorSetText::Parse(line).header.has_value(), "read");
}

void tst_colorsettext::colorsRead_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("colors");
    QTest::newRow("oldest, header not read: one") << QStringLiteral("1;0;0;0;1;0;#010101") << 1;
    QTest::newRow("oldest, 6 fields: none") << QStringLiteral("1;0;0;0;1;0") << 0;
    QTest::newRow("oldest, cut at 45 fields: 39") << QStringLiteral("40;0;0;0;1;0;") + Colors40 << 39;
    QTest::newRow("V01 without closing: the last is lost") << QStringLiteral("V01;2;0;0;0;1;0;0;#010101;#020202") << 1;
    QTest::newRow("V01, cut at 45 fields: 36") << QStringLiteral("V01;40;0;0;0;1;0;0;") + Colors40 << 36;
    QTest::newRow("V02 without closing: the last is lost")
        << QStringLiteral("V02;2;0;0;0;1;0;0;0;#000000;#010101;#020202") << 1;
    QTest::newRow("V02, cut at 45 fields: 34") << QStringLiteral("V02;40;0;0;0;1;0;0;0;#000000;") + Colors40 << 34;
    QTest::newRow("V02, exactly 34") << QStringLiteral("V02;34;0;0;0;1;0;0;0;#000000;") +
                                            QStringLiteral("#000001;").repeated(34)
                                     << 34;
    QTest::newRow("V02, no header: none") << QStringLiteral("V02;1;0;0;0;1;0;0;0;#010101") << 0;
}

void tst_colorsettext::colorsRead()
{
    QFETCH(QString, line);
    QTEST(static_cast<int>(ColorSetText::Parse(line).colors.size()), "colors");
}

void tst_colorsettext::counts_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<qulonglong>("count");
    QTest::newRow("plain") << QStringLiteral("20") << qulonglong{ 20 };
    QTest::newRow("zero") << QStringLiteral("0") << qulonglong{ 0 };
    QTest::newRow("the largest believed") << QStringLiteral("65536") << qulonglong{ 65536 };
    QTest::newRow("one more") << QStringLiteral("65537") << qulonglong{ 65536 };
    QTest::newRow("more than 32 bits") << QStringLiteral("99999999999") << qulonglong{ 65536 };
    QTest::newRow("negative") << QStringLiteral("-1") << qulonglong{ 0 };
    QTest::newRow("more than any integer does not parse") << QStringLiteral("99999999999999999999") << qulonglong{ 0 };
    QTest::newRow("a fraction does not parse") << QStringLiteral("2.5") << qulonglong{ 0 };
    QTest::newRow("hexadecimal does not parse") << QStringLiteral("0x10") << qulonglong{ 0 };
    QTest::newRow("a word does not parse") << QStringLiteral("many") << qulonglong{ 0 };
    QTest::newRow("empty") << QString() << qulonglong{ 0 };
}

void tst_colorsettext::counts()
{
    QFETCH(QString, field);
    auto const line = ColorSetText::Parse(QStringLiteral("V02;%1;0;0;0;1;0;0;0;#000000;#010101;").arg(field));
    QVERIFY(line.header.has_value());
    QTEST(static_cast<qulonglong>(line.header->count), "count");
}

void tst_colorsettext::flags_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<bool>("on");
    QTest::newRow("0") << QStringLiteral("0") << false;
    QTest::newRow("1") << QStringLiteral("1") << true;
    QTest::newRow("2 is not 0") << QStringLiteral("2") << true;
    QTest::newRow("-1 is not 0") << QStringLiteral("-1") << true;
    QTest::newRow("a word does not parse") << QStringLiteral("true") << false;
    QTest::newRow("a fraction does not parse") << QStringLiteral("0.5") << false;
    QTest::newRow("empty") << QString() << false;
}

void tst_colorsettext::flags()
{
    QFETCH(QString, field);
    auto const line = ColorSetText::Parse(QStringLiteral("V02;1;%1;%1;0;1;0;%1;%1;#000000;#010101;").arg(field));
    QVERIFY(line.header.has_value());
    QTEST(line.header->smooth, "on");
    QTEST(line.header->fixed, "on");
    QTEST(line.header->wrap, "on");
    QTEST(line.header->background->useMinIndex, "on");
}

void tst_colorsettext::numbers_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<double>("number");
    QTest::newRow("integer") << QStringLiteral("360") << 360.0;
    QTest::newRow("fraction") << QStringLiteral("-0.125") << -0.125;
    QTest::newRow("exponent") << QStringLiteral("1.23457e+06") << 1234570.0;
    QTest::newRow("a comma does not parse") << QStringLiteral("1,5") << 0.0;
    QTest::newRow("nan is no number") << QStringLiteral("nan") << 0.0;
    QTest::newRow("inf is no number") << QStringLiteral("inf") << 0.0;
    QTest::newRow("-inf is no number") << QStringLiteral("-inf") << 0.0;
    QTest::newRow("more than a double holds") << QStringLiteral("1e999") << 0.0;
    QTest::newRow("a word does not parse") << QStringLiteral("low") << 0.0;
    QTest::newRow("empty") << QString() << 0.0;
}

void tst_colorsettext::numbers()
{
    QFETCH(QString, field);
    auto const line = ColorSetText::Parse(QStringLiteral("V02;1;0;0;%1;%1;%1;0;0;#000000;#010101;").arg(field));
    QVERIFY(line.header.has_value());
    QTEST(line.header->start, "number");
    QTEST(line.header->stop, "number");
    QTEST(line.header->offset.value(), "number");
}

void tst_colorsettext::colorTexts_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QColor>("color");
    QTest::newRow("six digits") << QStringLiteral("#fe0077") << QColor(0xfe, 0x00, 0x77);
    QTest::newRow("three digits") << QStringLiteral("#f07") << QColor(0xff, 0x00, 0x77);
    QTest::newRow("capital digits") << QStringLiteral("#FE0077") << QColor(0xfe, 0x00, 0x77);
    QTest::newRow("a name") << QStringLiteral("yellow") << QColor(Qt::yellow);
    QTest::newRow("no colour, silently") << QStringLiteral("nocolour") << QColor();
    QTest::newRow("wrong digits") << QStringLiteral("#gg0077") << QColor();
    QTest::newRow("empty") << QString() << QColor();
}

void tst_colorsettext::colorTexts()
{
    QFETCH(QString, field);
    auto const line = ColorSetText::Parse(QStringLiteral("V02;1;0;0;0;1;0;0;0;%1;%1;").arg(field));
    QTEST(line.header->background->color, "color");
    QTEST(line.colors.at(0), "color");
}

void tst_colorsettext::lackingFieldsReadAsSemicolon()
{
    // eight fields of the oldest layout are enough, and the eighth is empty
    auto const line = ColorSetText::Parse(QStringLiteral(";;;;;;;"));
    QVERIFY(line.header.has_value());
    QCOMPARE(line.header->count, std::size_t{ 0 });
    QCOMPARE(line.colors, (std::vector<QColor>{ QColor(), QColor() }));
}

void tst_colorsettext::prints()
{
    ColorSetText::Header header;
    header.count = 99;
    header.smooth = true;
    header.fixed = false;
    header.start = 1.0;
    header.stop = 2.0;
    QCOMPARE(ColorSetText::Print(header, { QColor(0xAB, 0xCD, 0xEF, 0x10), QColor() }),
             QStringLiteral("V02;2;1;0;1;2;0;0;0;#000000;#abcdef;#000000;"));
    header.smooth = false;
    header.fixed = true;
    header.wrap = true;
    header.offset = -3.5;
    header.background = ColorSetText::Background{ true, QColor(Qt::white) };
    QCOMPARE(ColorSetText::Print(header, {}), QStringLiteral("V02;0;0;1;1;2;-3.5;1;1;#ffffff;"));
}

void tst_colorsettext::printsNumbers_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<QString>("text");
    QTest::newRow("six digits") << 123456.0 << QStringLiteral("123456");
    QTest::newRow("seven digits are rounded") << 1234567.0 << QStringLiteral("1.23457e+06");
    QTest::newRow("a third") << 1.0 / 3.0 << QStringLiteral("0.333333");
    QTest::newRow("small") << 1e-9 << QStringLiteral("1e-09");
    QTest::newRow("negative") << -0.5 << QStringLiteral("-0.5");
}

void tst_colorsettext::printsNumbers()
{
    QFETCH(double, number);
    QFETCH(QString, text);
    ColorSetText::Header header;
    header.start = number;
    header.stop = number;
    header.offset = number;
    QCOMPARE(ColorSetText::Print(header, {}), QStringLiteral("V02;0;0;0;%1;%1;%1;0;0;#000000;").arg(text));
}

void tst_colorsettext::hugeLine()
{
    QString const line =
        QStringLiteral("V02;1000000000;1;1;0;1;0;1;0;#000000;") + QStringLiteral("#010203;").repeated(500000);
    auto const read = ColorSetText::Parse(line);
    QCOMPARE(read.header->count, ColorSetText::MaxColors);
    QCOMPARE(read.colors.size(), std::size_t{ 34 });
}

ORIM_CORE_TEST_MAIN(tst_colorsettext)
#include "tst_colorsettext.moc"
