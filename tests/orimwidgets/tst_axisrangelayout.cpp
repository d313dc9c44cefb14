// SPDX-License-Identifier: MIT
#include "axisrangelayout.h"

#include "testmain.h"

#include <algorithm>
#include <climits>

namespace {

AxisRangeLayout::Look LookOf(bool horizontal, bool rulers)
{
    AxisRangeLayout::Look look;
    look.horizontal = horizontal;
    look.rulers = rulers;
    look.readOut = QSize(60, 22);
    look.button = 50;
    return look;
}

//! The parts along the axis, by a letter each; (l)ow and (h)igh ruler, arrows (<) and (>), (d)ifference, (b)utton,
//! (c)entre.
QString Shown(AxisRangeLayout const & parts, bool horizontal)
{
    QList<QPair<int, QChar>> found;
    auto const add = [&](QRect const & part, char letter) {
        if (part.isValid())
            found << qMakePair(horizontal ? part.x() : part.y(), QChar::fromLatin1(letter));
    };
    add(parts.lowRuler, 'l');
    add(parts.highRuler, 'h');
    add(parts.lowArrow, '<');
    add(parts.highArrow, '>');
    add(parts.difference, 'd');
    add(parts.button, 'b');
    add(parts.center, 'c');
    std::sort(found.begin(), found.end());
    QString letters;
    for (auto const & part : found)
        letters += part.second;
    return letters;
}

QVector<QRect> All(AxisRangeLayout const & parts)
{
    QVector<QRect> all;
    for (QRect const & part : { parts.lowRuler, parts.highRuler, parts.lowArrow, parts.highArrow, parts.difference,
                                parts.button, parts.center })
        if (part.isValid())
            all << part;
    return all;
}

} // namespace

class tst_axisrangelayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void partsThatFit_data();
    void partsThatFit();
    void placesAlongX();
    void placesAlongY();
    void noPartTouchesAnother();
    void oddSizes_data();
    void oddSizes();
};

void tst_axisrangelayout::partsThatFit_data()
{
    QTest::addColumn<bool>("horizontal");
    QTest::addColumn<bool>("rulers");
    QTest::addColumn<int>("length"); // px
    QTest::addColumn<QString>("shown");
    auto const row = [](char const * name, bool horizontal, bool rulers, int length, char const * shown) {
        QTest::newRow(name) << horizontal << rulers << length << QString::fromLatin1(shown);
    };
    // difference 60, arrows 2 * 10, centre 63, button 53, rulers 2 * 63
    row("all across", true, true, 322, "l<d>bch");
    row("without the button", true, true, 321, "l<d>ch");
    row("still with the centre", true, true, 269, "l<d>ch");
    row("without the centre", true, true, 268, "l<d>h");
    row("still with the rulers", true, true, 206, "l<d>h");
    row("without the rulers", true, true, 205, "<d>");
    row("still with the arrows", true, true, 80, "<d>");
    row("difference alone", true, true, 79, "d");
    row("less than the difference", true, true, 10, "d");
    row("no rulers wanted", true, false, 322, "<d>bc");
    row("no rulers wanted, tight", true, false, 196, "<d>bc");
    row("no rulers wanted, no button", true, false, 195, "<d>c");
    // 22 + 2 * 10 + 25 + 25 + 2 * 25
    row("all upright", false, true, 142, "h>d<bcl");
    row("upright without the button", false, true, 141, "h>d<cl");
    row("upright without the centre", false, true, 116, "h>d<l");
    row("upright without the rulers", false, true, 91, ">d<");
    row("upright difference alone", false, true, 41, "d");
}

void tst_axisrangelayout::partsThatFit()
{
    QFETCH(bool, horizontal);
    QFETCH(bool, rulers);
    QFETCH(int, length);
    QSize const size = horizontal ? QSize(length, 30) : QSize(80, length);
    QTEST(Shown(AxisRangeLayout::Of(size, LookOf(horizontal, rulers)), horizontal), "shown");
}

void tst_axisrangelayout::placesAlongX()
{
    AxisRangeLayout const parts = AxisRangeLayout::Of(QSize(522, 32), LookOf(true, true));
    QCOMPARE(parts.lowRuler, QRect(0, 5, 60, 22));
    QCOMPARE(parts.highRuler, QRect(462, 5, 60, 22));
    QCOMPARE(parts.lowArrow, QRect(163, 12, 7, 7));
    QCOMPARE(parts.difference, QRect(173, 5, 60, 22));
    QCOMPARE(parts.highArrow, QRect(236, 12, 7, 7));
    QCOMPARE(parts.button, QRect(246, 5, 50, 22));
    QCOMPARE(parts.center, QRect(299, 5, 60, 22));
}

void tst_axisrangelayout::placesAlongY()
{
    AxisRangeLayout const parts = AxisRangeLayout::Of(QSize(80, 242), LookOf(false, true));
    QCOMPARE(parts.highRuler, QRect(10, 0, 60, 22));
    QCOMPARE(parts.lowRuler, QRect(10, 220, 60, 22));
    QCOMPARE(parts.highArrow, QRect(36, 75, 7, 7));
    QCOMPARE(parts.difference, QRect(10, 85, 60, 22));
    QCOMPARE(parts.lowArrow, QRect(36, 110, 7, 7));
    QCOMPARE(parts.button, QRect(15, 120, 50, 22));
    QCOMPARE(parts.center, QRect(10, 145, 60, 22));
    AxisRangeLayout const narrow = AxisRangeLayout::Of(QSize(49, 242), LookOf(false, true));
    QVERIFY(!narrow.button.isValid());
    QCOMPARE(narrow.difference.width(), 49);
    QCOMPARE(narrow.difference.x(), 0);
    QVERIFY(AxisRangeLayout::Of(QSize(50, 242), LookOf(false, true)).button.isValid());
}

void tst_axisrangelayout::noPartTouchesAnother()
{
    for (bool const horizontal : { true, false })
        for (bool const rulers : { true, false })
            for (int length = 1; length < 600; ++length) {
                QSize const size = horizontal ? QSize(length, 30) : QSize(80, length);
                QVector<QRect> const all = All(AxisRangeLayout::Of(size, LookOf(horizontal, rulers)));
                QVERIFY(!all.isEmpty());
                for (QRect const & part : all) {
                    QVERIFY(QRect(QPoint(), size).contains(part));
                    for (QRect const & other : all)
                        QVERIFY(&part == &other ||
                                !part.adjusted(horizontal ? -2 : 0, horizontal ? 0 : -2, 0, 0).intersects(other));
                }
            }
}

void tst_axisrangelayout::oddSizes_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("parts");
    QTest::newRow("nothing") << QSize(0, 0) << 0;
    QTest::newRow("no width") << QSize(0, 30) << 0;
    QTest::newRow("no height") << QSize(30, 0) << 0;
    QTest::newRow("negative") << QSize(-5, -5) << 0;
    QTest::newRow("a pixel") << QSize(1, 1) << 1;
    QTest::newRow("the largest widget") << QSize(16777215, 16777215) << 7;
    QTest::newRow("the largest size") << QSize(INT_MAX, INT_MAX) << 7;
}

void tst_axisrangelayout::oddSizes()
{
    QFETCH(QSize, size);
    for (bool const horizontal : { true, false }) {
        QTEST(static_cast<int>(All(AxisRangeLayout::Of(size, LookOf(horizontal, true))).size()), "parts");
        AxisRangeLayout::Look empty = LookOf(horizontal, true);
        empty.readOut = QSize();
        QVERIFY(All(AxisRangeLayout::Of(size, empty)).isEmpty());
    }
}

ORIM_CORE_TEST_MAIN(tst_axisrangelayout)
#include "tst_axisrangelayout.moc"
