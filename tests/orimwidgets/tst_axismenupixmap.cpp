// SPDX-License-Identifier: MIT
#include "axismenupixmap.h"

#include "testmain.h"

#include <QColor>
#include <QPixmap>
#include <QPixmapCache>

namespace {

//! Rows of a picture: "w" for a pixel of the colour, "." for a clear one, "?" for any other.
QStringList RowsOf(QImage const & image, QColor const & color)
{
    QStringList rows;
    for (int y = 0; y < image.height(); ++y) {
        QString row;
        for (int x = 0; x < image.width(); ++x) {
            QColor const pixel = image.pixelColor(x, y);
            row += pixel.alpha() == 0 ? QLatin1Char('.') : QLatin1Char(pixel == color ? 'w' : '?');
        }
        rows << row;
    }
    return rows;
}

QStringList List(std::initializer_list<char const *> rows)
{
    QStringList list;
    for (char const * const row : rows)
        list << QLatin1String(row);
    return list;
}

} // namespace

class tst_axismenupixmap : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rows_data();
    void rows();
    void keys_data();
    void keys();
    void comesFromTheCache();
    void oneForEachKey();
    void dropsOutOfTheCache();
};

void tst_axismenupixmap::rows_data()
{
    QTest::addColumn<bool>("x");
    QTest::addColumn<QStringList>("told");
    QTest::newRow("along x it points up")
        << true
        << List({ ".......w........", ".......w........", "......www.......", "......www.......", ".....wwwww......",
                  ".....wwwww......", "....wwwwwww.....", "....wwwwwww.....", "...wwwwwwwww....", "...wwwwwwwww....",
                  "..wwwwwwwwwww...", "..wwwwwwwwwww...", ".wwwwwwwwwwwww..", ".wwwwwwwwwwwww..", "wwwwwwwwwwwwwww.",
                  "wwwwwwwwwwwwwww." });
    QTest::newRow("along y it points right")
        << false
        << List({ "................", "wwwww...........", "wwwwww..........", "wwwwwwww........", "wwwwwwwww.......",
                  "wwwwwwwwwww.....", "wwwwwwwwwwww....", "wwwwwwwwwwwwww..", "wwwwwwwwwwww....", "wwwwwwwwwww.....",
                  "wwwwwwwww.......", "wwwwwwww........", "wwwwww..........", "wwwww...........", "................",
                  "................" });
}

void tst_axismenupixmap::rows()
{
    QFETCH(bool, x);
    QFETCH(QStringList, told);
    for (QColor const & color : { QColor(Qt::red), QColor(1, 2, 3), QColor(Qt::white), QColor(Qt::yellow) }) {
        QImage const image = AxisMenuPixmap::Paint(x, color);
        QCOMPARE(image.size(), QSize(16, 16));
        QCOMPARE(RowsOf(image, color), told);
        QCOMPARE(RowsOf(AxisMenuPixmap::Get(x, color).toImage(), color), told);
    }
}

void tst_axismenupixmap::keys_data()
{
    QTest::addColumn<bool>("x");
    QTest::addColumn<QColor>("color");
    QTest::addColumn<QString>("key");
    QTest::newRow("along x") << true << QColor(0xff, 0x80, 0x01) << QStringLiteral("AxisMenuPixmapX#ff8001");
    QTest::newRow("along y") << false << QColor(0, 0, 0xab) << QStringLiteral("AxisMenuPixmapY#0000ab");
    QTest::newRow("the alpha does not count")
        << true << QColor(0, 0, 0xab, 10) << QStringLiteral("AxisMenuPixmapX#0000ab");
    QTest::newRow("no colour is black") << true << QColor() << QStringLiteral("AxisMenuPixmapX#000000");
}

void tst_axismenupixmap::keys()
{
    QFETCH(bool, x);
    QFETCH(QColor, color);
    QTEST(AxisMenuPixmap::Key(x, color), "key");
}

void tst_axismenupixmap::comesFromTheCache()
{
    QPixmapCache::clear();
    QPixmap other(3, 3);
    other.fill(Qt::green);
    QVERIFY(QPixmapCache::insert(QStringLiteral("AxisMenuPixmapX#112233"), other));
    QCOMPARE(AxisMenuPixmap::Get(true, QColor(0x11, 0x22, 0x33)).size(), QSize(3, 3));
    QCOMPARE(AxisMenuPixmap::Get(false, QColor(0x11, 0x22, 0x33)).size(), QSize(16, 16));
    QCOMPARE(AxisMenuPixmap::Get(true, QColor(0x11, 0x22, 0x34)).size(), QSize(16, 16));
    QPixmapCache::clear();
    QCOMPARE(AxisMenuPixmap::Get(true, QColor(0x11, 0x22, 0x33)).size(), QSize(16, 16));
}

void tst_axismenupixmap::oneForEachKey()
{
    QPixmapCache::clear();
    QPixmap const first = AxisMenuPixmap::Get(true, Qt::blue);
    QPixmap cached;
    QVERIFY(QPixmapCache::find(QStringLiteral("AxisMenuPixmapX#0000ff"), &cached));
    QCOMPARE(cached.cacheKey(), first.cacheKey());
    QCOMPARE(AxisMenuPixmap::Get(true, Qt::blue).cacheKey(), first.cacheKey()); // not painted again
    QVERIFY(!QPixmapCache::find(QStringLiteral("AxisMenuPixmapY#0000ff"), &cached));
    QVERIFY(AxisMenuPixmap::Get(false, Qt::blue).cacheKey() != first.cacheKey());
}

//! A cache that takes nothing only costs time.
void tst_axismenupixmap::dropsOutOfTheCache()
{
    int const limit = QPixmapCache::cacheLimit();
    QPixmapCache::setCacheLimit(0);
    QPixmap const pixmap = AxisMenuPixmap::Get(true, Qt::cyan);
    QPixmapCache::setCacheLimit(limit);
    QCOMPARE(RowsOf(pixmap.toImage(), Qt::cyan), RowsOf(AxisMenuPixmap::Paint(true, Qt::cyan), Qt::cyan));
}

ORIM_TEST_MAIN(tst_axismenupixmap)
#include "tst_axismenupixmap.moc"
