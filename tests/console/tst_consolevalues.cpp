// SPDX-License-Identifier: MIT
#include "consolevalues.h"
#include "levelgradients.h"
#include "spectrumengine.h"
#include "testmain.h"
#include "tree.h"
#include "valuenumeric.h"
#include "valueselection.h"

#include <algorithm>
#include <cmath>

class tst_ConsoleValues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numbersAreInTheTree_data();
    void numbersAreInTheTree();
    void selectionsAreInTheTree();
    void valuesLeaveTheTree();
    void levelsKeepTheirDistance();
    void levelsAreSetTogether_data();
    void levelsAreSetTogether();
    void wholeBandStaysWhole();
    void viewStaysWithinTheBand();
    void endsFollowCentreAndSpan_data();
    void endsFollowCentreAndSpan();
    void centreAndSpanFollowTheEnds_data();
    void centreAndSpanFollowTheEnds();
    void endsMoveTogether();
    void markersStayInTheBand();
    void badBandIsIgnored_data();
    void badBandIsIgnored();
    void unknownPathIsIgnored();
    void followerHearsOfChanges();
    void followerLetsGo();
    void followerOfNothing();
};

namespace {

QString Path(char const * path) { return QLatin1String(path); }

} // namespace

void tst_ConsoleValues::numbersAreInTheTree_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("min");
    QTest::addColumn<double>("max");
    QTest::newRow("levelMin") << Path(ConsolePaths::LevelMin) << -120.0 << -160.0 << -1.0;
    QTest::newRow("levelMax") << Path(ConsolePaths::LevelMax) << 0.0 << -119.0 << 60.0;
    QTest::newRow("lineRate") << Path(ConsolePaths::LineRate) << 25.0 << 1.0 << 200.0;
    QTest::newRow("speed") << Path(ConsolePaths::Speed) << 1.0 << 0.01 << 100.0;
    QTest::newRow("averaging") << Path(ConsolePaths::Averaging) << 0.0 << 0.0 << 64.0;
    QTest::newRow("start") << Path(ConsolePaths::Start) << 0.0 << -1e12 << 1e12;
    QTest::newRow("stop") << Path(ConsolePaths::Stop) << 1.0 << -1e12 << 1e12;
    QTest::newRow("first marker") << Path(ConsolePaths::Marker1) << 0.0 << -1e12 << 1e12;
    QTest::newRow("second marker") << Path(ConsolePaths::Marker2) << 0.0 << -1e12 << 1e12;
    QTest::newRow("level marker") << Path(ConsolePaths::LevelMarker) << -60.0 << -160.0 << 60.0;
}

void tst_ConsoleValues::numbersAreInTheTree()
{
    QFETCH(QString, path);
    ConsoleValues const values;
    auto * const value = Tree::Instance()->FindAs<ValueNumeric<double>>(path);
    QVERIFY(value);
    QTEST(value->GetValue(), "start");
    QTEST(value->GetMin(), "min");
    QTEST(value->GetMax(), "max");
}

void tst_ConsoleValues::selectionsAreInTheTree()
{
    ConsoleValues const values;
    auto * const bins = Tree::Instance()->FindAs<ValueSelection>(Path(ConsolePaths::Bins));
    QVERIFY(bins);
    QCOMPARE(bins->GetItemCount(), 11);
    QCOMPARE(bins->GetItemAt(0)->GetKey(), 64L);
    QCOMPARE(bins->GetItemAt(10)->GetKey(), 65536L);
    QCOMPARE(bins->GetCurrentKey(), 2048L);
    auto * const window = Tree::Instance()->FindAs<ValueSelection>(Path(ConsolePaths::Window));
    QVERIFY(window);
    QCOMPARE(window->GetItemCount(), static_cast<int>(SpectrumEngine::eWindowCount));
    QCOMPARE(window->GetCurrentKey(), static_cast<long>(SpectrumEngine::eWindowHann));
    auto * const gradient = Tree::Instance()->FindAs<ValueSelection>(Path(ConsolePaths::Gradient));
    QVERIFY(gradient);
    QCOMPARE(gradient->GetItemCount(), LevelGradients::Count());
    QCOMPARE(gradient->GetCurrentKey(), 0L);
}

void tst_ConsoleValues::valuesLeaveTheTree()
{
    for (char const * const flag :
         { ConsolePaths::Marker1Shown, ConsolePaths::Marker2Shown, ConsolePaths::LevelMarkerShown }) {
        ConsoleValues const values;
        QVERIFY(Tree::Instance()->FindAs<Value<bool>>(Path(flag)));
        QVERIFY(!ConsoleValues::GetFlag(flag));
        ConsoleValues::SetFlag(flag, true);
        QVERIFY(ConsoleValues::GetFlag(flag));
    }
    QVERIFY(!ConsoleValues::GetFlag(ConsolePaths::Marker1Shown));
    QStringList const paths{ Path(ConsolePaths::Centre), Path(ConsolePaths::Span), Path(ConsolePaths::LevelMin),
                             Path(ConsolePaths::Bins), Path(ConsolePaths::Window) };
    {
        ConsoleValues const values;
        for (QString const & path : paths)
            QVERIFY(Tree::Instance()->Find(path));
    }
    for (QString const & path : paths)
        QVERIFY(!Tree::Instance()->Find(path));
}

void tst_ConsoleValues::levelsKeepTheirDistance()
{
    ConsoleValues const values;
    ConsoleValues::Set(ConsolePaths::LevelMin, 20.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::LevelMin), -1.0);
    ConsoleValues::Set(ConsolePaths::LevelMin, -50.0);
    ConsoleValues::Set(ConsolePaths::LevelMax, -100.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::LevelMax), -49.0);
}

void tst_ConsoleValues::levelsAreSetTogether_data()
{
    QTest::addColumn<double>("min");
    QTest::addColumn<double>("max");
    QTest::addColumn<bool>("taken");
    QTest::newRow("lower") << -150.0 << -130.0 << true;
    QTest::newRow("higher") << 10.0 << 40.0 << true;
    QTest::newRow("least distance") << -31.0 << -30.0 << true;
    QTest::newRow("too near") << -30.5 << -30.0 << false;
    QTest::newRow("turned round") << 0.0 << -30.0 << false;
    QTest::newRow("NaN") << qQNaN() << 0.0 << false;
}

void tst_ConsoleValues::levelsAreSetTogether()
{
    QFETCH(double, min);
    QFETCH(double, max);
    QFETCH(bool, taken);
    ConsoleValues values;
    values.SetLevels(min, max);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::LevelMin), taken ? min : -120.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::LevelMax), taken ? max : 0.0);
}

void tst_ConsoleValues::wholeBandStaysWhole()
{
    ConsoleValues values;
    values.SetBand({ 100.0, 50.0 });
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Centre), 125.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Span), 50.0);
    values.SetBand({ 1000.0, 200.0 });
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Centre), 1100.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Span), 200.0);
    QCOMPARE(values.GetBand().start, 1000.0);
}

void tst_ConsoleValues::viewStaysWithinTheBand()
{
    ConsoleValues values;
    values.SetBand({ 100.0, 50.0 });
    ConsoleValues::Set(ConsolePaths::Span, 10.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Centre), 125.0);
    ConsoleValues::Set(ConsolePaths::Centre, 500.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Centre), 145.0);
    ConsoleValues::Set(ConsolePaths::Span, 30.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Centre), 135.0);
    ConsoleValues::Set(ConsolePaths::Span, 1e9);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Span), 50.0);
    ConsoleValues::Set(ConsolePaths::Span, 0.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Span), 0.05);
    // another band: a part of it stays a part
    values.SetBand({ 0.0, 1000.0 });
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Span), 1.0);
}

void tst_ConsoleValues::endsFollowCentreAndSpan_data()
{
    QTest::addColumn<double>("centre");
    QTest::addColumn<double>("span");
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::newRow("whole band") << 1500.0 << 1000.0 << 1000.0 << 2000.0;
    QTest::newRow("middle") << 1500.0 << 100.0 << 1450.0 << 1550.0;
    QTest::newRow("far up") << 1900.0 << 100.0 << 1850.0 << 1950.0;
    QTest::newRow("held at the end of the band") << 5000.0 << 100.0 << 1900.0 << 2000.0;
    QTest::newRow("narrowest") << 1200.0 << 0.0 << 1199.5 << 1200.5;
}

void tst_ConsoleValues::endsFollowCentreAndSpan()
{
    QFETCH(double, centre);
    QFETCH(double, span);
    ConsoleValues values;
    values.SetBand({ 1000.0, 1000.0 });
    ConsoleValues::Set(ConsolePaths::Span, span);
    ConsoleValues::Set(ConsolePaths::Centre, centre);
    QTEST(ConsoleValues::Get(ConsolePaths::Start), "start");
    QTEST(ConsoleValues::Get(ConsolePaths::Stop), "stop");
}

void tst_ConsoleValues::centreAndSpanFollowTheEnds_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<double>("newStart");
    QTest::addColumn<double>("newStop");
    QTest::newRow("narrower") << 1200.0 << 1400.0 << 1200.0 << 1400.0;
    QTest::newRow("above the range before") << 1800.0 << 1900.0 << 1800.0 << 1900.0;
    QTest::newRow("below the range before") << 1010.0 << 1020.0 << 1010.0 << 1020.0;
    QTest::newRow("beyond the band") << 0.0 << 9000.0 << 1000.0 << 2000.0;
    QTest::newRow("too narrow: the end set last stands") << 1300.0 << 1300.2 << 1299.2 << 1300.2;
    QTest::newRow("turned round: the end set last stands") << 1700.0 << 1600.0 << 1599.0 << 1600.0;
    QTest::newRow("narrow at the end of the band") << 2000.0 << 2000.0 << 1999.0 << 2000.0;
}

void tst_ConsoleValues::centreAndSpanFollowTheEnds()
{
    QFETCH(double, start);
    QFETCH(double, stop);
    QFETCH(double, newStart);
    QFETCH(double, newStop);
    ConsoleValues values;
    values.SetBand({ 1000.0, 1000.0 });
    ConsoleValues::Set(ConsolePaths::Span, 100.0);
    ConsoleValues::Set(ConsolePaths::Centre, 1500.0);
    ConsoleValues::Set(ConsolePaths::Start, start);
    ConsoleValues::Set(ConsolePaths::Stop, stop);
    QTEST(ConsoleValues::Get(ConsolePaths::Start), "newStart");
    QTEST(ConsoleValues::Get(ConsolePaths::Stop), "newStop");
    QVERIFY(std::abs(ConsoleValues::Get(ConsolePaths::Centre) - (newStart + newStop) / 2.0) < 1e-9);
    QVERIFY(std::abs(ConsoleValues::Get(ConsolePaths::Span) - (newStop - newStart)) < 1e-9);
    // the other order comes to rest too, with the start where it was wanted
    ConsoleValues::Set(ConsolePaths::Stop, 1700.0);
    ConsoleValues::Set(ConsolePaths::Start, 1600.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Centre), 1650.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Span), 100.0);
}

void tst_ConsoleValues::endsMoveTogether()
{
    // nobody sees a range that runs downward, whichever way the view moves
    ConsoleValues values;
    values.SetBand({ 1000.0, 1000.0 });
    ConsoleValues::Set(ConsolePaths::Span, 100.0);
    double least = 1e9;
    auto const look = [&least] {
        least = std::min(least, ConsoleValues::Get(ConsolePaths::Stop) - ConsoleValues::Get(ConsolePaths::Start));
    };
    ValueFollower start(look);
    ValueFollower stop(look);
    start.Bind(Path(ConsolePaths::Start));
    stop.Bind(Path(ConsolePaths::Stop));
    for (double const centre : { 1900.0, 1100.0, 1950.0, 1050.0 })
        ConsoleValues::Set(ConsolePaths::Centre, centre);
    QVERIFY2(least > 0.0, qPrintable(QString::number(least)));
}

void tst_ConsoleValues::markersStayInTheBand()
{
    ConsoleValues values;
    values.SetBand({ 1000.0, 1000.0 });
    ConsoleValues::Set(ConsolePaths::Marker1, 1234.5);
    ConsoleValues::Set(ConsolePaths::Marker2, 5000.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Marker1), 1234.5);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Marker2), 2000.0);
    values.SetBand({ 1500.0, 100.0 });
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Marker1), 1500.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Marker2), 1600.0);
}

void tst_ConsoleValues::badBandIsIgnored_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("span");
    QTest::newRow("span 0") << 1.0 << 0.0;
    QTest::newRow("span below 0") << 1.0 << -1.0;
    QTest::newRow("span NaN") << 1.0 << qQNaN();
    QTest::newRow("start infinite") << qInf() << 1.0;
}

void tst_ConsoleValues::badBandIsIgnored()
{
    QFETCH(double, start);
    QFETCH(double, span);
    ConsoleValues values;
    values.SetBand({ 100.0, 50.0 });
    values.SetBand({ start, span });
    QCOMPARE(values.GetBand().start, 100.0);
    QCOMPARE(values.GetBand().span, 50.0);
}

void tst_ConsoleValues::unknownPathIsIgnored()
{
    ConsoleValues const values;
    ConsoleValues::Set("/console/nothing", 1.0);
    ConsoleValues::Select("/console/nothing", 1);
    QCOMPARE(ConsoleValues::Get("/console/nothing"), 0.0);
    QCOMPARE(ConsoleValues::GetKey("/console/nothing"), 0L);
    // a value of another kind counts as unknown
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Bins), 0.0);
    QCOMPARE(ConsoleValues::GetKey(ConsolePaths::LineRate), 0L);
    ConsoleValues::Select(ConsolePaths::Bins, 1000);
    QCOMPARE(ConsoleValues::GetKey(ConsolePaths::Bins), 2048L);
}

void tst_ConsoleValues::followerHearsOfChanges()
{
    ConsoleValues const values;
    int heard = 0;
    ValueFollower follower([&heard] { ++heard; });
    QVERIFY(follower.Bind(Path(ConsolePaths::LineRate)));
    QCOMPARE(heard, 1);
    QCOMPARE(follower.Number(0.0), 25.0);
    ConsoleValues::Set(ConsolePaths::LineRate, 50.0);
    QCOMPARE(heard, 2);
    follower.SetNumber(60.0);
    QCOMPARE(heard, 3);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::LineRate), 60.0);
    follower.SetNumber(60.0);
    QCOMPARE(heard, 3);
    QVERIFY(follower.Bind(Path(ConsolePaths::Window)));
    ConsoleValues::Set(ConsolePaths::LineRate, 50.0);
    QCOMPARE(heard, 4); // the bind alone
    follower.SetKey(0);
    QCOMPARE(heard, 5);
    QCOMPARE(follower.Key(-1), 0L);
    QCOMPARE(follower.Number(-1.0), -1.0);
    QVERIFY(follower.Flag(true));
    QVERIFY(follower.Bind(Path(ConsolePaths::Marker1Shown)));
    heard = 0;
    QVERIFY(!follower.Flag(true));
    follower.SetFlag(true);
    QCOMPARE(heard, 1);
    QVERIFY(follower.Flag(false));
    QVERIFY(ConsoleValues::GetFlag(ConsolePaths::Marker1Shown));
}

void tst_ConsoleValues::followerLetsGo()
{
    auto * const value = new ValueNumeric<double>(QStringLiteral("number"));
    QVERIFY(Tree::Instance()->Insert(QStringLiteral("/test"), value));
    int heard = 0;
    {
        ValueFollower follower([&heard] { ++heard; });
        follower.Bind(QStringLiteral("/test/number"));
        QCOMPARE(value->GetObserverCount(), 1);
        QVERIFY(!follower.Bind(QStringLiteral("/test/nothing")));
        QCOMPARE(value->GetObserverCount(), 0);
        follower.Bind(QStringLiteral("/test/number"));
        follower.Bind(QStringLiteral("/test/number"));
        QCOMPARE(value->GetObserverCount(), 1);
    }
    QCOMPARE(value->GetObserverCount(), 0);
    ValueFollower follower([&heard] { ++heard; });
    follower.Bind(QStringLiteral("/test/number"));
    heard = 0;
    Tree::Instance()->Remove(QStringLiteral("/test/number"));
    QVERIFY(!follower.IsBound());
    QCOMPARE(follower.Number(7.0), 7.0);
    QCOMPARE(heard, 0);
    // a stranger's change is not heard
    ValueNumeric<double> stranger;
    follower.Update(&stranger, eValueChanged);
    QCOMPARE(heard, 0);
}

void tst_ConsoleValues::followerOfNothing()
{
    ValueFollower follower([] {});
    QVERIFY(!follower.Bind(QString()));
    QVERIFY(!follower.IsBound());
    QCOMPARE(follower.Number(3.0), 3.0);
    QCOMPARE(follower.Key(3), 3L);
    follower.SetNumber(1.0);
    follower.SetKey(1);
    follower.SetFlag(true);
    QVERIFY(!follower.Flag(false));
    QVERIFY(!follower.Numeric());
    QVERIFY(!follower.Selection());
}

ORIM_TEST_MAIN(tst_ConsoleValues)
#include "tst_consolevalues.moc"
