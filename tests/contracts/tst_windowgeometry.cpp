// SPDX-License-Identifier: MIT
#include "windowgeometry.h"

#include "testmain.h"

class tst_WindowGeometry : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void prints();
    void reads_data();
    void reads();
    void refuses_data();
    void refuses();
    void reachable_data();
    void reachable();
};

void tst_WindowGeometry::prints()
{
    WindowGeometry geometry;
    geometry.rect = QRect(-10, 20, 640, 480);
    QCOMPARE(geometry.ToText(), QStringLiteral("1;-10;20;640;480;0"));
    geometry.isMaximized = true;
    QCOMPARE(geometry.ToText(), QStringLiteral("1;-10;20;640;480;1"));
}

void tst_WindowGeometry::reads_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<bool>("isMaximized");
    QTest::newRow("ordinary") << "1;-10;20;640;480;0" << QRect(-10, 20, 640, 480) << false;
    QTest::newRow("maximized") << "1;0;0;640;480;1" << QRect(0, 0, 640, 480) << true;
    QTest::newRow("smallest") << "1;-32767;-32767;1;1;0" << QRect(-32767, -32767, 1, 1) << false;
    QTest::newRow("largest") << "1;32767;32767;32767;32767;0" << QRect(32767, 32767, 32767, 32767) << false;
}

void tst_WindowGeometry::reads()
{
    QFETCH(QString, text);
    auto const geometry = WindowGeometry::FromText(text);
    QVERIFY(geometry);
    QTEST(geometry->rect, "rect");
    QTEST(geometry->isMaximized, "isMaximized");
    QCOMPARE(geometry->ToText(), text);
}

void tst_WindowGeometry::refuses_data()
{
    QTest::addColumn<QString>("text");
    for (char const * const text : { "",
                                     "nonsense",
                                     "1;0;0;640;480",
                                     "1;0;0;640;480;0;0",
                                     "2;0;0;640;480;0",
                                     "1;0;0;0;480;0",
                                     "1;0;0;640;0;0",
                                     "1;0;0;-640;480;0",
                                     "1;0;0;32768;480;0",
                                     "1;0;0;640;32768;0",
                                     "1;32768;0;640;480;0",
                                     "1;0;32768;640;480;0",
                                     "1;-32768;0;640;480;0",
                                     "1;0;-32768;640;480;0",
                                     "1;0;0;640;480;2",
                                     "1;0;0;640;480;-1",
                                     "1;nan;0;640;480;0",
                                     "1;0;0;1e3;480;0",
                                     "1;0;0;99999999999;480;0",
                                     "1;;0;640;480;0",
                                     "1;0.5;0;640;480;0" })
        QTest::newRow(*text ? text : "empty") << text;
    QTest::newRow("a megabyte") << QString(1 << 20, QLatin1Char(';'));
}

void tst_WindowGeometry::refuses()
{
    QFETCH(QString, text);
    QVERIFY(!WindowGeometry::FromText(text));
}

void tst_WindowGeometry::reachable_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<bool>("isReachable");
    QTest::newRow("inside") << QRect(10, 10, 640, 480) << true;
    QTest::newRow("larger than the screen") << QRect(0, 0, 4000, 3000) << true;
    QTest::newRow("on the second screen") << QRect(1200, 700, 640, 480) << true;
    QTest::newRow("64 px of the upper edge at the left") << QRect(-576, 10, 640, 480) << true;
    QTest::newRow("63 px") << QRect(-577, 10, 640, 480) << false;
    QTest::newRow("16 rows at the bottom") << QRect(10, 784, 640, 480) << true;
    QTest::newRow("15 rows") << QRect(10, 785, 640, 480) << false;
    QTest::newRow("the upper edge above the screen") << QRect(10, -1, 640, 480) << false;
    QTest::newRow("a small window wholly inside") << QRect(0, 0, 20, 10) << true;
    QTest::newRow("a small window cut") << QRect(-1, 0, 20, 10) << false;
    QTest::newRow("outside") << QRect(5000, 5000, 640, 480) << false;
}

void tst_WindowGeometry::reachable()
{
    QFETCH(QRect, rect);
    WindowGeometry geometry;
    geometry.rect = rect;
    QTEST(geometry.IsReachable({ QRect(0, 0, 1000, 800), QRect(1000, 500, 1000, 800) }), "isReachable");
    QVERIFY(!geometry.IsReachable({}));
}

ORIM_CORE_TEST_MAIN(tst_WindowGeometry)
#include "tst_windowgeometry.moc"
