// SPDX-License-Identifier: MIT
#include "bearinghistory.h"

#include "testmain.h"

#include <limits>

class tst_BearingHistory : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void keepsWhatWasMeasured();
    void dropsWhatIsOld();
    void dropsTheOldestBeyondTheMost();
    void clockThatGoesBackForgets();
    void clockWithoutATimeIsIgnored_data();
    void clockWithoutATimeIsIgnored();
    void ageGrowsWithTime();
    void tellsOfEveryChange();
};

namespace {

constexpr double Hold = BearingHistory::Hold;

std::vector<BearingMeasurement> At(std::initializer_list<double> bearings)
{
    std::vector<BearingMeasurement> measurements;
    for (double const bearing : bearings)
        measurements.push_back({ 1e6, bearing, 0.0, 50.0, -30.0 });
    return measurements;
}

QVector<double> BearingsOf(BearingHistory const & history)
{
    QVector<double> bearings;
    for (BearingHistory::Entry const & entry : history.GetEntries())
        bearings << entry.measurement.bearing;
    return bearings;
}

} // namespace

void tst_BearingHistory::keepsWhatWasMeasured()
{
    BearingHistory history;
    QVERIFY(history.GetEntries().empty());
    history.Append(At({ 1.0, 2.0 }), 10.0);
    history.Append(At({ 3.0 }), 10.5);
    QCOMPARE(BearingsOf(history), QVector<double>({ 1.0, 2.0, 3.0 }));
    QCOMPARE(history.GetEntries()[1].time, 10.0);
    QCOMPARE(history.GetEntries()[2].time, 10.5);
    QCOMPARE(history.GetEntries()[2].measurement.level, -30.0);
    QCOMPARE(history.GetFirstNumber(), 0ULL);
}

void tst_BearingHistory::dropsWhatIsOld()
{
    BearingHistory history;
    history.Append(At({ 1.0, 2.0 }), 10.0);
    history.Append(At({ 3.0 }), 11.0);
    history.Append(At({ 4.0 }), 10.0 + Hold); // not older than that
    QCOMPARE(BearingsOf(history), QVector<double>({ 1.0, 2.0, 3.0, 4.0 }));
    history.Append(At({ 5.0 }), 10.01 + Hold);
    QCOMPARE(BearingsOf(history), QVector<double>({ 3.0, 4.0, 5.0 }));
    QCOMPARE(history.GetFirstNumber(), 2ULL);
    history.Append({}, 100.0);
    QVERIFY(history.GetEntries().empty());
    QCOMPARE(history.GetFirstNumber(), 5ULL);
}

void tst_BearingHistory::dropsTheOldestBeyondTheMost()
{
    BearingHistory history;
    std::vector<BearingMeasurement> many(BearingHistory::Most);
    history.Append(many, 1.0);
    QCOMPARE(history.GetEntries().size(), BearingHistory::Most);
    history.Append(At({ 7.0, 8.0 }), 1.0);
    QCOMPARE(history.GetEntries().size(), BearingHistory::Most);
    QCOMPARE(history.GetFirstNumber(), 2ULL);
    QCOMPARE(history.GetEntries().back().measurement.bearing, 8.0);
}

void tst_BearingHistory::clockThatGoesBackForgets()
{
    BearingHistory history;
    history.Append(At({ 1.0, 2.0 }), 10.0);
    history.Append(At({ 3.0 }), 9.0);
    QCOMPARE(BearingsOf(history), QVector<double>({ 3.0 }));
    QCOMPARE(history.GetFirstNumber(), 2ULL); // never falls
    QCOMPARE(history.GetAge(history.GetEntries().front()), 0.0);
}

void tst_BearingHistory::clockWithoutATimeIsIgnored_data()
{
    QTest::addColumn<double>("now");
    QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("endless") << std::numeric_limits<double>::infinity();
    QTest::newRow("endless below 0") << -std::numeric_limits<double>::infinity();
}

void tst_BearingHistory::clockWithoutATimeIsIgnored()
{
    QFETCH(double, now);
    BearingHistory history;
    history.Append(At({ 1.0 }), now);
    QVERIFY(history.GetEntries().empty());
    history.Append(At({ 1.0 }), 10.0);
    history.Append(At({ 2.0 }), now);
    QCOMPARE(BearingsOf(history), QVector<double>({ 1.0 }));
    QCOMPARE(history.GetAge(history.GetEntries().front()), 0.0);
}

void tst_BearingHistory::ageGrowsWithTime()
{
    BearingHistory history;
    history.Append(At({ 1.0 }), 10.0);
    QCOMPARE(history.GetAge(history.GetEntries().front()), 0.0);
    history.Append({}, 10.0 + Hold / 4.0);
    QCOMPARE(history.GetAge(history.GetEntries().front()), 0.25);
    history.Append({}, 10.0 + Hold);
    QCOMPARE(history.GetAge(history.GetEntries().front()), 1.0);
    QCOMPARE(history.GetAge({ BearingMeasurement(), -100.0 }), 1.0);
    QCOMPARE(history.GetAge({ BearingMeasurement(), 100.0 }), 0.0);
}

void tst_BearingHistory::tellsOfEveryChange()
{
    BearingHistory history;
    QSignalSpy const changed(&history, &BearingHistory::signalChanged);
    history.Append({}, 1.0); // there is nothing that could age
    QCOMPARE(changed.count(), 0);
    history.Append(At({ 1.0, 2.0 }), 2.0);
    QCOMPARE(changed.count(), 1);
    history.Append({}, 3.0);
    QCOMPARE(changed.count(), 2);
}

ORIM_CORE_TEST_MAIN(tst_BearingHistory)
#include "tst_bearinghistory.moc"
