// SPDX-License-Identifier: MIT
#include "levelfit.h"
#include "testmain.h"

class tst_LevelFit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fits_data();
    void fits();
};

void tst_LevelFit::fits_data()
{
    QTest::addColumn<QVector<double>>("levels");
    QTest::addColumn<double>("min");
    QTest::addColumn<double>("max");
    QTest::newRow("noise and a peak") << QVector<double>{ -101, -99, -100, -30, -100 } << -120.0 << -20.0;
    QTest::newRow("noise alone is 40 dB wide") << QVector<double>{ -70, -70, -70 } << -90.0 << -50.0;
    QTest::newRow("peak on the grid keeps its distance") << QVector<double>{ -95, -95, -20 } << -110.0 << -10.0;
    QTest::newRow("what is not finite does not count")
        << QVector<double>{ qQNaN(), -qInf(), -100, -30, -100, qInf() } << -120.0 << -20.0;
    QTest::newRow("no levels") << QVector<double>{} << -120.0 << 0.0;
    QTest::newRow("none finite") << QVector<double>{ qQNaN() } << -120.0 << 0.0;
}

void tst_LevelFit::fits()
{
    QFETCH(QVector<double>, levels);
    QFETCH(double, min);
    QFETCH(double, max);
    LevelRange const range = FitLevels(std::vector<double>(levels.begin(), levels.end()));
    QCOMPARE(range.min, min);
    QCOMPARE(range.max, max);
}

ORIM_CORE_TEST_MAIN(tst_LevelFit)
#include "tst_levelfit.moc"
