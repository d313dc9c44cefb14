// SPDX-License-Identifier: MIT
#include "rowtics.h"
#include "testmain.h"

class tst_RowTics : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rowsBearMultiplesOfTheStep();
    void rowsKeepTheirDistance();
    void slowRowsBearWholeHours();
    void timeThatBeginsAnewIsLabelled();
    void timeThatBeginsAnewIsNotTooFine();
    void rowsWithoutTimeBearNothing();
};

namespace {

QStringList Texts(std::vector<RowTics::Tic> const & tics)
{
    QStringList texts;
    for (RowTics::Tic const & tic : tics)
        texts << QStringLiteral("%1: %2").arg(tic.row).arg(tic.label);
    return texts;
}

} // namespace

void tst_RowTics::rowsBearMultiplesOfTheStep()
{
    std::vector<double> stamps;
    for (int row = 0; row < 100; ++row)
        stamps.push_back(10.0 - 0.1 * row); // newest first
    QCOMPARE(Texts(RowTics::Lay(stamps, 15)),
             (QStringList{ QStringLiteral("80: 2 s"), QStringLiteral("60: 4 s"), QStringLiteral("40: 6 s"),
                           QStringLiteral("20: 8 s"), QStringLiteral("0: 10 s") }));
    // a minute on, the labels are minutes and seconds
    for (double & stamp : stamps)
        stamp += 60.0;
    QCOMPARE(Texts(RowTics::Lay(stamps, 15)).value(1), QStringLiteral("60: 1:04"));
}

void tst_RowTics::rowsKeepTheirDistance()
{
    // the line rate has changed: the rows below lie ten times as far apart in time
    std::vector<double> stamps;
    for (int row = 0; row < 50; ++row)
        stamps.push_back(100.0 - 0.1 * row);
    for (int row = 0; row < 50; ++row)
        stamps.push_back(95.0 - row);
    int last = 1000;
    for (RowTics::Tic const & tic : RowTics::Lay(stamps, 12)) {
        QVERIFY(last - tic.row >= 12);
        last = tic.row;
    }
    QVERIFY(last < 1000);
}

void tst_RowTics::slowRowsBearWholeHours()
{
    std::vector<double> stamps;
    for (int row = 0; row < 50; ++row)
        stamps.push_back(1000.0 * (49 - row));
    // 10 rows are 10000 s: three hours
    QCOMPARE(Texts(RowTics::Lay(stamps, 10)),
             (QStringList{ QStringLiteral("38: 180:00"), QStringLiteral("27: 360:00"), QStringLiteral("16: 540:00"),
                           QStringLiteral("5: 720:00") }));
}

void tst_RowTics::timeThatBeginsAnewIsLabelled()
{
    // a recording of half a second in a loop
    std::vector<double> stamps;
    for (int row = 0; row < 60; ++row)
        stamps.push_back(0.05 * ((99 - row) % 10) + 0.02);
    QStringList const texts = Texts(RowTics::Lay(stamps, 15));
    QCOMPARE(texts,
             (QStringList{ QStringLiteral("49: 0.02 s"), QStringLiteral("29: 0.02 s"), QStringLiteral("9: 0.02 s") }));
}

void tst_RowTics::timeThatBeginsAnewIsNotTooFine()
{
    // back by 45 s, at 200 lines a second
    QStringList const texts = Texts(RowTics::Lay({ 754.57, 754.566, 800.0, 799.995 }, 1));
    QVERIFY2(texts.contains(QStringLiteral("1: 12:34.57")), qPrintable(texts.join(QLatin1Char(';'))));
}

void tst_RowTics::rowsWithoutTimeBearNothing()
{
    QVERIFY(RowTics::Lay({}, 10).empty());
    QVERIFY(RowTics::Lay({ 1.0 }, 10).empty());
    QVERIFY(RowTics::Lay({ 1.0, 1.0, 1.0 }, 10).empty());
    QVERIFY(RowTics::Lay({ qQNaN(), qQNaN(), qQNaN() }, 10).empty());
    QVERIFY(RowTics::Lay({ qInf(), 1.0, 0.0 }, -3).size() <= 2);
}

ORIM_CORE_TEST_MAIN(tst_RowTics)
#include "tst_rowtics.moc"
