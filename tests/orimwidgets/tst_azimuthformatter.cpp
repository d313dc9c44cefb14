// SPDX-License-Identifier: MIT
#include "azimuthformatter.h"

#include "azimuthaccess.h"
#include "specialdoubles.h"
#include "testmain.h"

#include <QElapsedTimer>
#include <QSignalSpy>

#include <memory>
#include <type_traits>

namespace {

static_assert(std::is_base_of_v<IStringFormatter, AzimuthFormatter>);
static_assert(std::is_base_of_v<IObserver, AzimuthFormatter>);
static_assert(!std::is_copy_constructible_v<AzimuthFormatter>);

QString const Folder = QStringLiteral("/azimuth");
QString const Path = QStringLiteral("/azimuth/north");

ValueNumeric<double> * PlantNorth(double degrees)
{
    auto * const value = new ValueNumeric<double>(QStringLiteral("north"));
    value->SetMinMax(-1e300, 1e300, 0.0, nullptr);
    value->SetValue(degrees, nullptr);
    Tree::Instance()->Insert(Folder, value);
    return value;
}

} // namespace

class tst_AzimuthFormatter : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void cleanup();

    void text_data();
    void text();
    void suffixed_data();
    void suffixed();
    void textsStayApart();
    void localeDoesNotMatter();
    void followsTheMode();
    void northAtTheStart();
    void northIsToldInRelativeModes_data();
    void northIsToldInRelativeModes();
    void bindingByPath_data();
    void bindingByPath();
    void integersAreNumbers();
    void bindsAnew();
    void ownNorthLastsUntilTheNextChange();
    void valueGoesAway();
    void valueOnlyDisabled();
    void letsGoWhenItEnds();
    void strangersAreIgnored();
    void specialNumbers();
};

void tst_AzimuthFormatter::cleanup()
{
    AzimuthMode(5);
    Tree::Instance()->RemoveFolder(Folder);
}

void tst_AzimuthFormatter::text_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<double>("north");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("expected");
    QTest::newRow("5: -10") << 5 << 0.0 << -10.0 << "350.0";
    QTest::newRow("5: 360 is 0") << 5 << 0.0 << 360.0 << "0.0";
    QTest::newRow("5: 0") << 5 << 0.0 << 0.0 << "0.0";
    QTest::newRow("5: within") << 5 << 0.0 << 123.45 << "123.5";
    QTest::newRow("5: two turns") << 5 << 0.0 << 735.0 << "15.0";
    QTest::newRow("5: two turns back") << 5 << 0.0 << -735.0 << "345.0";
    QTest::newRow("5: the high end stays") << 5 << 0.0 << 359.9999 << "360.0";
    QTest::newRow("5: above the high end turns") << 5 << 0.0 << 359.99995 << "-0.0";
    QTest::newRow("5: north does not count") << 5 << 30.0 << 40.0 << "40.0";
    QTest::newRow("5: 190 stays") << 5 << 0.0 << 190.0 << "190.0";
    QTest::newRow("9: 190") << 9 << 0.0 << 190.0 << "-170.0";
    QTest::newRow("9: -180 stays") << 9 << 0.0 << -180.0 << "-180.0";
    QTest::newRow("9: 180 turns") << 9 << 0.0 << 180.0 << "-180.0";
    QTest::newRow("9: the high end stays") << 9 << 0.0 << 179.9999 << "180.0";
    QTest::newRow("9: above the high end turns") << 9 << 0.0 << 179.99995 << "-180.0";
    QTest::newRow("9: below the low end turns") << 9 << 0.0 << -180.5 << "179.5";
    QTest::newRow("9: 360 is 0") << 9 << 0.0 << 360.0 << "0.0";
    QTest::newRow("9: north does not count") << 9 << 30.0 << 40.0 << "40.0";
    QTest::newRow("6: less north") << 6 << 30.0 << 40.0 << "10.0";
    QTest::newRow("6: less north, then turned") << 6 << 30.0 << 10.0 << "340.0";
    QTest::newRow("6: negative north") << 6 << -30.0 << 350.0 << "20.0";
    QTest::newRow("10: less north") << 10 << 30.0 << 40.0 << "10.0";
    QTest::newRow("10: less north, then turned") << 10 << 30.0 << 10.0 << "-20.0";
    QTest::newRow("10: the high end stays") << 10 << 30.0 << 209.9998 << "180.0";
    QTest::newRow("10: north of more than a turn") << 10 << 400.0 << 10.0 << "-30.0";
    QTest::newRow("NaN") << 5 << 0.0 << qQNaN() << "nan";
    QTest::newRow("infinite") << 9 << 0.0 << qInf() << "inf";
    QTest::newRow("minus infinite") << 6 << 10.0 << -qInf() << "-inf";
}

void tst_AzimuthFormatter::text()
{
    QFETCH(int, key);
    QFETCH(double, north);
    QFETCH(double, value);
    QFETCH(QString, expected);
    AzimuthMode(key);
    AzimuthFormatter formatter;
    formatter.SetNorth(north);
    QCOMPARE(formatter.convert(value), expected);
}

void tst_AzimuthFormatter::suffixed_data() { text_data(); }

void tst_AzimuthFormatter::suffixed()
{
    QFETCH(int, key);
    QFETCH(double, north);
    QFETCH(double, value);
    QFETCH(QString, expected);
    AzimuthMode(key);
    AzimuthFormatter formatter;
    formatter.SetNorth(north);
    QCOMPARE(formatter.convertSuffixed(value), expected + QString::fromLatin1(" \xB0"));
}

void tst_AzimuthFormatter::textsStayApart()
{
    AzimuthFormatter formatter;
    QString const & plain = formatter.convert(12.0);
    QString const & suffixed = formatter.convertSuffixed(12.0);
    QCOMPARE(plain, QStringLiteral("12.0"));
    QCOMPARE(suffixed, QString::fromLatin1("12.0 \xB0"));
}

void tst_AzimuthFormatter::localeDoesNotMatter()
{
    QLocale const before;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    AzimuthFormatter formatter;
    QString const text = formatter.convert(12.5);
    QLocale::setDefault(before);
    QCOMPARE(text, QStringLiteral("12.5"));
}

void tst_AzimuthFormatter::followsTheMode()
{
    AzimuthFormatter formatter;
    QCOMPARE(formatter.convert(270.0), QStringLiteral("270.0"));
    AzimuthDisplaySelect::Instance().Select(9);
    QCOMPARE(formatter.convert(270.0), QStringLiteral("-90.0"));
}

void tst_AzimuthFormatter::northAtTheStart() { QCOMPARE(AzimuthFormatter().VehicleOffset(), 0.0); }

void tst_AzimuthFormatter::northIsToldInRelativeModes_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("told");
    QTest::newRow("5") << 5 << 0;
    QTest::newRow("9") << 9 << 0;
    QTest::newRow("6") << 6 << 1;
    QTest::newRow("10") << 10 << 1;
}

void tst_AzimuthFormatter::northIsToldInRelativeModes()
{
    QFETCH(int, key);
    QFETCH(int, told);
    AzimuthDisplaySelect & select = AzimuthMode(key);
    ValueNumeric<double> * const north = PlantNorth(20.0);
    QSignalSpy changed(&select, &AzimuthDisplaySelect::signalAzimuthModeChanged);
    AzimuthFormatter formatter;
    formatter.SetNorth(10.0);
    QCOMPARE(changed.count(), told);
    formatter.SetNorth(10.0);
    QCOMPARE(changed.count(), told);
    formatter.SetNorth_ValuePath(Path);
    QCOMPARE(changed.count(), 2 * told);
    QCOMPARE(formatter.VehicleOffset(), 20.0);
    north->SetValue(30.0, nullptr);
    QCOMPARE(changed.count(), 3 * told);
    QCOMPARE(formatter.VehicleOffset(), 30.0);
}

void tst_AzimuthFormatter::bindingByPath_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("found");
    QTest::newRow("known") << Path << true;
    QTest::newRow("unknown") << QStringLiteral("/azimuth/other") << false;
    QTest::newRow("empty") << QString() << false;
    QTest::newRow("a selection is no number") << QStringLiteral("/azimuth/mode") << false;
}

void tst_AzimuthFormatter::bindingByPath()
{
    QFETCH(QString, path);
    QFETCH(bool, found);
    ValueNumeric<double> const * const north = PlantNorth(20.0);
    Tree::Instance()->Insert(Folder, new ValueSelection(QStringLiteral("mode")));
    AzimuthFormatter formatter;
    formatter.SetNorth(7.0);
    QCOMPARE(formatter.SetNorth_ValuePath(path), found);
    QCOMPARE(north->HasObserver(&formatter), found);
    QCOMPARE(formatter.VehicleOffset(), found ? 20.0 : 7.0);
}

void tst_AzimuthFormatter::integersAreNumbers()
{
    auto * const value = new ValueNumeric<int>(QStringLiteral("north"));
    value->SetValue(45, nullptr);
    Tree::Instance()->Insert(Folder, value);
    AzimuthFormatter formatter;
    QVERIFY(formatter.SetNorth_ValuePath(Path));
    QCOMPARE(formatter.VehicleOffset(), 45.0);
}

void tst_AzimuthFormatter::bindsAnew()
{
    ValueNumeric<double> * const north = PlantNorth(20.0);
    AzimuthFormatter formatter;
    QVERIFY(formatter.SetNorth_ValuePath(Path));
    QVERIFY(formatter.SetNorth_ValuePath(Path));
    QVERIFY(!formatter.SetNorth_ValuePath(QStringLiteral("/azimuth/other")));
    QVERIFY(!north->HasObserver(&formatter));
    north->SetValue(50.0, nullptr);
    QCOMPARE(formatter.VehicleOffset(), 20.0);
}

void tst_AzimuthFormatter::ownNorthLastsUntilTheNextChange()
{
    ValueNumeric<double> * const north = PlantNorth(20.0);
    AzimuthFormatter formatter;
    formatter.SetNorth_ValuePath(Path);
    formatter.SetNorth(5.0);
    QCOMPARE(formatter.VehicleOffset(), 5.0);
    QCOMPARE(north->GetValue(), 20.0);
    north->SetValue(21.0, nullptr);
    QCOMPARE(formatter.VehicleOffset(), 21.0);
}

void tst_AzimuthFormatter::valueGoesAway()
{
    PlantNorth(20.0);
    AzimuthFormatter formatter;
    formatter.SetNorth_ValuePath(Path);
    Tree::Instance()->Remove(Path);
    QCOMPARE(formatter.VehicleOffset(), 20.0);
    ValueNumeric<double> const * const again = PlantNorth(30.0);
    QVERIFY(!again->HasObserver(&formatter));
    QVERIFY(formatter.SetNorth_ValuePath(Path));
    QCOMPARE(formatter.VehicleOffset(), 30.0);
}

void tst_AzimuthFormatter::valueOnlyDisabled()
{
    ValueNumeric<double> * const north = PlantNorth(20.0);
    AzimuthFormatter formatter;
    formatter.SetNorth_ValuePath(Path);
    north->SetState(eStateDisabled, nullptr);
    north->SetValue(40.0, nullptr);
    QCOMPARE(formatter.VehicleOffset(), 40.0);
}

void tst_AzimuthFormatter::letsGoWhenItEnds()
{
    ValueNumeric<double> * const north = PlantNorth(20.0);
    auto formatter = std::make_unique<AzimuthFormatter>();
    formatter->SetNorth_ValuePath(Path);
    QVERIFY(north->HasObserver(formatter.get()));
    int const before = north->GetObserverCount();
    formatter.reset();
    QCOMPARE(north->GetObserverCount(), before - 1);
}

void tst_AzimuthFormatter::strangersAreIgnored()
{
    PlantNorth(20.0);
    AzimuthFormatter formatter;
    ValueNumeric<double> other;
    other.SetValue(3.0, nullptr);
    formatter.Update(nullptr, eValueChanged);
    formatter.Update(&other, eValueChanged);
    QCOMPARE(formatter.VehicleOffset(), 0.0);
    formatter.SetNorth_ValuePath(Path);
    formatter.Update(&other, eValueChanged);
    formatter.Update(nullptr, eValueChanged);
    QCOMPARE(formatter.VehicleOffset(), 20.0);
}

void tst_AzimuthFormatter::specialNumbers()
{
    AzimuthFormatter formatter;
    QElapsedTimer clock;
    clock.start();
    for (int const key : { 5, 9, 6, 10 }) {
        AzimuthMode(key);
        bool const positive = key == 5 || key == 6;
        for (double const north : SpecialDoubles()) {
            double const before = formatter.VehicleOffset();
            formatter.SetNorth(north);
            QCOMPARE(formatter.VehicleOffset(), std::isfinite(north) ? north : before);
            for (double const value : SpecialDoubles()) {
                double const shown = key == 6 || key == 10 ? value - formatter.VehicleOffset() : value;
                bool isNumber = false;
                double const text = formatter.convert(value).toDouble(&isNumber);
                if (std::isfinite(shown))
                    QVERIFY(isNumber && text >= (positive ? -0.05 : -180.05) && text <= (positive ? 360.0 : 180.0));
                else
                    QVERIFY(!std::isfinite(text));
            }
        }
    }
    QVERIFY2(clock.elapsed() < 20000, "a bearing takes no time that grows with it");
}

ORIM_TEST_MAIN(tst_AzimuthFormatter)
#include "tst_azimuthformatter.moc"
