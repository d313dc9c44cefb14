// SPDX-License-Identifier: MIT
#include "panelayout.h"

#include "testmain.h"

class tst_PaneLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void deviceLength_data();
    void deviceLength();
    void deviceSizeAndRect();
    void pictureRect_data();
    void pictureRect();
    void mix_data();
    void mix();
};

void tst_PaneLayout::deviceLength_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<double>("ratio");
    QTest::addColumn<int>("device");
    QTest::newRow("as it is") << 7 << 1.0 << 7;
    QTest::newRow("twice as dense") << 7 << 2.0 << 14;
    QTest::newRow("a half rounds up") << 7 << 1.5 << 11;
    QTest::newRow("below a half rounds down") << 5 << 1.25 << 6;
    QTest::newRow("least ratio") << 100 << 0.25 << 25;
    QTest::newRow("below the least ratio") << 100 << 0.1 << 25;
    QTest::newRow("ratio 0") << 100 << 0.0 << 25;
    QTest::newRow("ratio below 0") << 100 << -2.0 << 25;
    QTest::newRow("greatest ratio") << 100 << 16.0 << 1600;
    QTest::newRow("above the greatest ratio") << 100 << 17.0 << 1600;
    QTest::newRow("infinite ratio") << 100 << qInf() << 1600;
    QTest::newRow("ratio NaN") << 100 << qQNaN() << 100;
    QTest::newRow("no length") << 0 << 2.0 << 0;
}

void tst_PaneLayout::deviceLength()
{
    QFETCH(int, length);
    QFETCH(double, ratio);
    QTEST(PaneLayout::ToDevice(length, ratio), "device");
}

void tst_PaneLayout::deviceSizeAndRect()
{
    QCOMPARE(PaneLayout::ToDevice(QSize(3, 5), 2.0), QSize(6, 10));
    QCOMPARE(PaneLayout::ToDevice(QRect(1, 2, 3, 4), 2.0), QRect(2, 4, 6, 8));
    // neighbours stay neighbours: 0 .. 4.5 and 4.5 .. 9
    QCOMPARE(PaneLayout::ToDevice(QRect(0, 0, 3, 3), 1.5), QRect(0, 0, 5, 5));
    QCOMPARE(PaneLayout::ToDevice(QRect(3, 3, 3, 3), 1.5), QRect(5, 5, 4, 4));
    QVERIFY(PaneLayout::ToDevice(QRect(3, 3, 0, 0), 1.5).isEmpty());
}

void tst_PaneLayout::pictureRect_data()
{
    QTest::addColumn<QSize>("pane");
    QTest::addColumn<QRect>("picture"); // within margins of 1, 2, 3 and 4 px
    QTest::newRow("room") << QSize(100, 50) << QRect(1, 2, 96, 44);
    QTest::newRow("one pixel") << QSize(5, 7) << QRect(1, 2, 1, 1);
    QTest::newRow("no width") << QSize(4, 50) << QRect(1, 2, 0, 44);
    QTest::newRow("no height") << QSize(100, 6) << QRect(1, 2, 96, 0);
    QTest::newRow("less than the margins") << QSize(2, 2) << QRect(1, 2, 0, 0);
    QTest::newRow("no size") << QSize(-1, -1) << QRect(1, 2, 0, 0);
}

void tst_PaneLayout::pictureRect()
{
    QFETCH(QSize, pane);
    QTEST(PaneLayout::PictureRect(pane, { 1, 2, 3, 4 }), "picture");
}

void tst_PaneLayout::mix_data()
{
    QTest::addColumn<double>("part");
    QTest::addColumn<QColor>("mixed");
    QTest::newRow("nothing of it") << 0.0 << QColor(10, 100, 200);
    QTest::newRow("all of it") << 1.0 << QColor(30, 0, 250);
    QTest::newRow("half of it") << 0.5 << QColor(20, 50, 225);
    QTest::newRow("rounded") << 0.33 << QColor(17, 67, 217);
    QTest::newRow("more than all") << 3.0 << QColor(70, 0, 255);
    QTest::newRow("less than nothing") << -3.0 << QColor(0, 255, 50);
}

void tst_PaneLayout::mix()
{
    QFETCH(double, part);
    QTEST(PaneLayout::Mix(QColor(10, 100, 200, 7), QColor(30, 0, 250, 9), part), "mixed");
}

ORIM_CORE_TEST_MAIN(tst_PaneLayout)
#include "tst_panelayout.moc"
