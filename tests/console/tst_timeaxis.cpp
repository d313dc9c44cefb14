// SPDX-License-Identifier: MIT
#include "timeaxis.h"

#include "colorset.h"
#include "guibase.h"
#include "panetools.h"
#include "testmain.h"
#include "valueselection.h"

#include <QTimerEvent>

using namespace PaneTools;

class tst_TimeAxis : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void ticsStandWhereTimesPass_data();
    void ticsStandWhereTimesPass();
    void labelsKeepApart();
    void rowsThatPausedKeepTheirTimes();
    void clockThatGoesBackGivesNoTic();
    void labelsFollowTheTimeZone_data();
    void labelsFollowTheTimeZone();
    void valuesHaveTheirRows_data();
    void valuesHaveTheirRows();
    void pixelsHaveTheTimesOfTheirRows_data();
    void pixelsHaveTheTimesOfTheirRows();
    void withoutRowsThereIsNothing();
    void labelsAreNotCut();
    void takesNoFocusAndNoDrag();
};

namespace {

constexpr int Top = 10; // px
constexpr int Height = 300;

//! Rows that are \a period us apart, the newest at \a newest.
std::vector<double> Rows(int count, double newest, double period)
{
    std::vector<double> times;
    for (int row = 0; row < count; ++row)
        times.push_back(newest - row * period);
    return times;
}

struct Axis : TimeAxis
{
    Axis() : TimeAxis(nullptr)
    {
        resize(70, Top + Height + 4);
        SetPictureSpan(Top, Height);
    }
};

QStringList Texts(TimeAxis & axis)
{
    QStringList texts;
    for (TimeAxis::Tic const & tic : axis.GetTimeTics())
        texts.append(QStringLiteral("%1: %2").arg(tic.row).arg(tic.label));
    return texts;
}

ValueSelection & Zone() { return *GuiBase::Instance().GetTimeZone(); }

} // namespace

void tst_TimeAxis::init() { Zone().Select(0L, nullptr); }

void tst_TimeAxis::cleanup() { Zone().Select(0L, nullptr); }

void tst_TimeAxis::ticsStandWhereTimesPass_data()
{
    QTest::addColumn<double>("period");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("every 10 seconds") << 0.1e6 << QStringList{ "50: 12:00:00", "150: 11:59:50", "250: 11:59:40" };
    QTest::newRow("every 2 seconds") << 0.025e6
                                     << QStringList{ "40: 12:00:04", "120: 12:00:02", "200: 12:00:00",
                                                     "280: 11:59:58" };
    QTest::newRow("every minute") << 0.6e6 << QStringList{ "8: 12:00", "108: 11:59", "208: 11:58" };
    QTest::newRow("every second") << 0.01e6 << QStringList{ "0: 12:00:05", "100: 12:00:04", "200: 12:00:03" };
    QTest::newRow("none within one second") << 0.003e6 << QStringList();
}

void tst_TimeAxis::ticsStandWhereTimesPass()
{
    QFETCH(double, period);
    Axis axis;
    axis.SetRows(Rows(Height, Noon + 5e6, period));
    QTEST(Texts(axis), "texts");
}

void tst_TimeAxis::labelsKeepApart()
{
    Axis axis;
    std::vector<double> times;
    for (int row = 0; row < Height; ++row)
        times.push_back(Noon - (row < 40 ? row * 1e6 : 40e6 + (row - 40) * 0.01e6)); // first fast, then slow
    axis.SetRows(times);
    std::vector<TimeAxis::Tic> const tics = axis.GetTimeTics();
    QCOMPARE(tics.size(), std::size_t(5));
    int last = -100;
    int empty = 0;
    for (TimeAxis::Tic const & tic : tics) {
        empty += tic.label.isEmpty() ? 1 : 0;
        if (tic.label.isEmpty())
            continue;
        QVERIFY(tic.row - last >= axis.fontMetrics().height());
        last = tic.row;
    }
    QVERIFY(empty > 0);
}

void tst_TimeAxis::rowsThatPausedKeepTheirTimes()
{
    Axis axis;
    std::vector<double> times = Rows(100, Noon + 5e6, 0.1e6);
    std::vector<double> const before = Rows(100, Noon - 25e6, 0.1e6); // 20 s without rows
    times.insert(times.end(), before.begin(), before.end());
    axis.SetRows(times);
    QCOMPARE(Texts(axis), QStringList({ QStringLiteral("50: 12:00:00"), QStringLiteral("99: 11:59:50"),
                                        QStringLiteral("150: 11:59:30") }));
    QCOMPARE(axis.ValueToPixel(Noon), Top + 50);
    QCOMPARE(axis.ValueToPixel(Noon - 30e6), Top + 150);
    QCOMPARE(axis.ValueToPixel(Noon - 15e6), Top + 99); // the first row after it
}

void tst_TimeAxis::clockThatGoesBackGivesNoTic()
{
    Axis axis;
    std::vector<double> times = Rows(100, Noon + 5e6, 0.1e6);
    std::vector<double> const before = Rows(100, Noon + 3605e6, 0.1e6);
    times.insert(times.end(), before.begin(), before.end());
    axis.SetRows(times);
    QCOMPARE(axis.GetStop(), Noon + 3605e6);
    QCOMPARE(axis.GetStart(), Noon + 3605e6 - 99 * 0.1e6);
    for (TimeAxis::Tic const & tic : axis.GetTimeTics())
        QVERIFY(tic.row >= 100);
}

void tst_TimeAxis::labelsFollowTheTimeZone_data()
{
    QTest::addColumn<long>("zone");
    QTest::addColumn<QString>("label");
    QTest::newRow("UTC") << 0L << "12:00:00";
    QTest::newRow("two hours east") << 7200L << "14:00:00";
    QTest::newRow("half an hour more") << 19800L << "17:30:00";
    QTest::newRow("west of it") << -18000L << "07:00:00";
}

void tst_TimeAxis::labelsFollowTheTimeZone()
{
    QFETCH(long, zone);
    QFETCH(QString, label);
    Axis axis;
    axis.SetRows(Rows(100, Noon + 5e6, 0.2e6));
    QImage const before = Rendered(axis);
    Zone().Select(zone, nullptr);
    QCOMPARE(axis.GetTimeTics().front().label, label);
    QTRY_COMPARE(Rendered(axis) != before, zone != 0L); // the repair is due
}

void tst_TimeAxis::valuesHaveTheirRows_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("pixel");
    QTest::newRow("newest") << Noon << Top;
    QTest::newRow("oldest") << Noon - 99e5 << Top + 99;
    QTest::newRow("of a row") << Noon - 20e5 << Top + 20;
    QTest::newRow("between two rows") << Noon - 20.5e5 << Top + 20;
    QTest::newRow("newer than all") << Noon + 1.0 << -1;
    QTest::newRow("older than all") << Noon - 99e5 - 1.0 << -1;
    QTest::newRow("no number") << qQNaN() << -1;
}

void tst_TimeAxis::valuesHaveTheirRows()
{
    QFETCH(double, value);
    Axis axis;
    axis.SetRows(Rows(100, Noon, 1e5));
    QTEST(axis.ValueToPixel(value), "pixel");
}

void tst_TimeAxis::pixelsHaveTheTimesOfTheirRows_data()
{
    QTest::addColumn<int>("pixel");
    QTest::addColumn<double>("value");
    QTest::newRow("first row") << Top << Noon;
    QTest::newRow("another") << Top + 20 << Noon - 20e5;
    QTest::newRow("above") << 0 << Noon;
    QTest::newRow("below the rows") << Top + 250 << Noon - 99e5;
}

void tst_TimeAxis::pixelsHaveTheTimesOfTheirRows()
{
    QFETCH(int, pixel);
    Axis axis;
    axis.SetRows(Rows(100, Noon, 1e5));
    QTEST(axis.AxisBase::PixelToValue(eMarkerY, pixel), "value");
}

void tst_TimeAxis::withoutRowsThereIsNothing()
{
    Axis axis;
    QVERIFY(axis.GetTimeTics().empty());
    QCOMPARE(axis.PixelToValue(50), -1.0);
    QCOMPARE(axis.ValueToPixel(0.0), -1);
    Rendered(axis);
    axis.SetRows(Rows(100, Noon, 1e5));
    QVERIFY(!axis.GetTimeTics().empty());
    axis.SetRows({});
    QVERIFY(axis.GetTimeTics().empty());
    axis.SetRows({ Noon });
    QVERIFY(axis.GetTimeTics().empty());
    QCOMPARE(axis.ValueToPixel(Noon), Top);
    axis.SetRows(Rows(Height * 4, Noon, 1e5)); // more than the picture has
    for (TimeAxis::Tic const & tic : axis.GetTimeTics())
        QVERIFY(tic.row < Height);
}

void tst_TimeAxis::labelsAreNotCut()
{
    Axis axis;
    axis.SetRows(Rows(Height, Noon + 5e6, 0.1e6));
    QColor const ground = ColorSet::Instance()[IColorBase::eColorAxisScale];
    auto const inked = [&axis, ground](int right) {
        QImage const image = Rendered(axis);
        int count = 0;
        for (int y = Top; y < Top + Height; ++y) {
            for (int x = 1; x < right; ++x)
                count += image.pixelColor(x, y) != ground ? 1 : 0;
        }
        return count;
    };
    QVERIFY(inked(60) > 50);
    axis.resize(40, axis.height()); // no room for eight characters
    QCOMPARE(inked(30), 0);
}

void tst_TimeAxis::takesNoFocusAndNoDrag()
{
    Axis axis;
    axis.SetRows(Rows(100, Noon, 1e5));
    axis.show();
    QCOMPARE(int(axis.focusPolicy()), int(Qt::NoFocus));
    QTest::mousePress(&axis, Qt::LeftButton, {}, { 30, 30 });
    QTest::mouseRelease(&axis, Qt::LeftButton, {}, { 30, 90 });
    QTest::mouseDClick(&axis, Qt::LeftButton, {}, { 30, 30 });
    QCOMPARE(axis.GetStop(), Noon);
    QCOMPARE(axis.GetStart(), Noon - 99e5);
    QVERIFY(!axis.GetContextMenuEnabled());
}

ORIM_TEST_MAIN(tst_TimeAxis)
#include "tst_timeaxis.moc"
