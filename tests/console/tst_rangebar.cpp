// SPDX-License-Identifier: MIT
#include "rangebar.h"

#include "axisrangedisplay.h"
#include "consolevalues.h"
#include "frequencyaxis.h"
#include "rangerulers.h"
#include "testmain.h"
#include "tree.h"
#include "valuenumeric.h"
#include "vclabel.h"

#include <QLayout>
#include <QPushButton>

class tst_RangeBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rulersStandInOrder_data();
    void rulersStandInOrder();
    void rulersAreNeverCrossed();
    void rulersMoveTheMarkersTheyCameFrom_data();
    void rulersMoveTheMarkersTheyCameFrom();
    void rulersMovePastEachOther();
    void draggedMarkerIsReadOut();
    void abandonedDragIsReadOut();
    void shownWithBothMarkers_data();
    void shownWithBothMarkers();
    void shownWhereThereIsRoom_data();
    void shownWhereThereIsRoom();
    void sizeIsThatOfTheRow();
    void leastHeightIsSet();
    void secondDisplayGivesWay();
    void shownIsToldOnce();
    void releasedButtonHidesTheMarkers();
    void textsAreAsFineAsThePixels();
};

namespace {

constexpr RangeRulers::Paths Paths{ ConsolePaths::Marker1, ConsolePaths::Marker2, ConsolePaths::MarkerLower,
                                    ConsolePaths::MarkerUpper };

void Markers(double first, double second)
{
    ConsoleValues::Set(ConsolePaths::Marker1, first);
    ConsoleValues::Set(ConsolePaths::Marker2, second);
}

void Show(bool first, bool second)
{
    ConsoleValues::SetFlag(ConsolePaths::Marker1Shown, first);
    ConsoleValues::SetFlag(ConsolePaths::Marker2Shown, second);
}

ValueNumeric<double> & Number(char const * path)
{
    return *Tree::Instance()->FindAs<ValueNumeric<double>>(QLatin1String(path));
}

//! A bar below an axis of the megahertz from 100 on.
struct Bar
{
    explicit Bar(int displays = 1)
    {
        host.resize(1000, 400);
        axis = new FrequencyAxis(&host);
        axis->setGeometry(0, 0, 1000, 30);
        axis->SetPictureSpan(0, 1000);
        axis->SetRange(100e6, 101e6);
        bar = new RangeBar(&host);
        for (int number = 0; number < displays; ++number)
            display.push_back(
                bar->Add({ axis, "range", AxisRangeDisplay::StyleHorizontal, ConsolePaths::MarkerLower,
                           ConsolePaths::MarkerUpper, ConsolePaths::Marker1Shown, ConsolePaths::Marker2Shown }));
        host.show();
        bar->SetRoom(QSize(1000, 400), 50, 70);
    }

    QString Text(char const * name) const
    {
        return display[0]->findChild<VCLabel *>(QLatin1String(name))->text().trimmed();
    }

    ConsoleValues values;
    RangeRulers rulers{ Paths };
    QWidget host;
    FrequencyAxis * axis = nullptr;
    RangeBar * bar = nullptr;
    std::vector<AxisRangeDisplay *> display;
};

} // namespace

void tst_RangeBar::rulersStandInOrder_data()
{
    QTest::addColumn<double>("first");
    QTest::addColumn<double>("second");
    QTest::newRow("rising") << 3.0 << 8.0;
    QTest::newRow("falling") << 8.0 << 3.0;
    QTest::newRow("equal") << 5.0 << 5.0;
    QTest::newRow("below zero") << -3.0 << -8.0;
}

void tst_RangeBar::rulersStandInOrder()
{
    QFETCH(double, first);
    QFETCH(double, second);
    ConsoleValues values;
    RangeRulers const rulers(Paths);
    Markers(first, second);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::MarkerLower), qMin(first, second));
    QCOMPARE(ConsoleValues::Get(ConsolePaths::MarkerUpper), qMax(first, second));
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Marker1), first);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Marker2), second);
}

void tst_RangeBar::rulersAreNeverCrossed()
{
    ConsoleValues values;
    RangeRulers const rulers(Paths);
    bool crossed = false;
    auto const look = [&crossed] {
        crossed =
            crossed || ConsoleValues::Get(ConsolePaths::MarkerLower) > ConsoleValues::Get(ConsolePaths::MarkerUpper);
    };
    ValueFollower lower(look);
    ValueFollower upper(look);
    lower.Bind(QLatin1String(ConsolePaths::MarkerLower));
    upper.Bind(QLatin1String(ConsolePaths::MarkerUpper));
    for (double const at : { 10.0, 50.0, 20.0, -70.0, 300.0 }) {
        ConsoleValues::Set(ConsolePaths::Marker1, at);
        ConsoleValues::Set(ConsolePaths::Marker2, at + 5.0);
        ConsoleValues::Set(ConsolePaths::Marker1, at + 9.0);
    }
    QVERIFY(!crossed);
}

void tst_RangeBar::rulersMoveTheMarkersTheyCameFrom_data()
{
    QTest::addColumn<double>("first");
    QTest::addColumn<double>("second");
    QTest::addColumn<double>("movedFirst");
    QTest::addColumn<double>("movedSecond");
    QTest::newRow("rising") << 3.0 << 8.0 << 13.0 << 28.0;
    QTest::newRow("falling") << 8.0 << 3.0 << 28.0 << 13.0;
}

void tst_RangeBar::rulersMoveTheMarkersTheyCameFrom()
{
    QFETCH(double, first);
    QFETCH(double, second);
    ConsoleValues values;
    RangeRulers const rulers(Paths);
    Markers(first, second);
    ConsoleValues::Set(ConsolePaths::MarkerLower, 13.0); // beyond the upper one, which follows
    ConsoleValues::Set(ConsolePaths::MarkerUpper, 28.0);
    QTEST(ConsoleValues::Get(ConsolePaths::Marker1), "movedFirst");
    QTEST(ConsoleValues::Get(ConsolePaths::Marker2), "movedSecond");
}

void tst_RangeBar::rulersMovePastEachOther()
{
    ConsoleValues values;
    RangeRulers const rulers(Paths);
    Markers(8.0, 3.0);
    ConsoleValues::Set(ConsolePaths::Marker2, 20.0); // past the first one
    QCOMPARE(ConsoleValues::Get(ConsolePaths::MarkerLower), 8.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::MarkerUpper), 20.0);
    ConsoleValues::Set(ConsolePaths::MarkerLower, 9.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Marker1), 9.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Marker2), 20.0);
}

void tst_RangeBar::draggedMarkerIsReadOut()
{
    Bar bar;
    Show(true, true);
    Markers(100.2e6, 100.6e6);
    Number(ConsolePaths::Marker1).SetInterimValue(100.8e6, nullptr);
    QCOMPARE(bar.Text("First Ruler"), QStringLiteral("100.600"));
    QCOMPARE(bar.Text("Second Ruler"), QStringLiteral("100.800"));
    QCOMPARE(bar.Text("Difference"), QStringLiteral("0.200"));
    QCOMPARE(ConsoleValues::Get(ConsolePaths::MarkerLower), 100.2e6); // not before it is let go
    Number(ConsolePaths::Marker1).CommitInterimValue(nullptr);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::MarkerLower), 100.6e6);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::MarkerUpper), 100.8e6);
}

void tst_RangeBar::abandonedDragIsReadOut()
{
    Bar bar;
    Show(true, true);
    Markers(100.2e6, 100.6e6);
    Number(ConsolePaths::Marker1).SetInterimValue(100.8e6, nullptr);
    Number(ConsolePaths::Marker1).SetInterimValue(100.2e6, nullptr);
    QCOMPARE(bar.Text("First Ruler"), QStringLiteral("100.200"));
    QCOMPARE(bar.Text("Second Ruler"), QStringLiteral("100.600"));
    QCOMPARE(bar.Text("Center"), QStringLiteral("100.400"));
}

void tst_RangeBar::shownWithBothMarkers_data()
{
    QTest::addColumn<bool>("first");
    QTest::addColumn<bool>("second");
    QTest::newRow("none") << false << false;
    QTest::newRow("the first") << true << false;
    QTest::newRow("the second") << false << true;
    QTest::newRow("both") << true << true;
}

void tst_RangeBar::shownWithBothMarkers()
{
    QFETCH(bool, first);
    QFETCH(bool, second);
    Bar bar;
    QVERIFY(!bar.bar->isVisible());
    Show(first, second);
    QCOMPARE(bar.bar->isVisible(), first && second);
    QCOMPARE(bar.display[0]->isVisible(), first && second);
    QCOMPARE(bar.display[0]->findChild<QPushButton *>()->isChecked(), first && second);
    Show(false, false);
    QVERIFY(!bar.bar->isVisible());
}

void tst_RangeBar::sizeIsThatOfTheRow()
{
    Bar bar;
    Show(true, true);
    bar.bar->resize(1000, bar.bar->height());
    bar.bar->layout()->activate();
    QRect const place = bar.display[0]->geometry();
    QCOMPARE(place, QRect(50, 0, 1000 - 50 - 70, bar.bar->height()));
    bar.axis->resize(700, 33);
    QCOMPARE(bar.display[0]->geometry(), place);
}

void tst_RangeBar::shownWhereThereIsRoom_data()
{
    QTest::addColumn<QSize>("room");
    QTest::addColumn<bool>("shown");
    int const width = RangeBar::LeastWidth + 120;
    QTest::newRow("just enough") << QSize(width, RangeBar::LeastPaneHeight) << true;
    QTest::newRow("too low") << QSize(width, RangeBar::LeastPaneHeight - 1) << false;
    QTest::newRow("too narrow") << QSize(width - 1, RangeBar::LeastPaneHeight) << false;
    QTest::newRow("none at all") << QSize(0, 0) << false;
}

void tst_RangeBar::shownWhereThereIsRoom()
{
    QFETCH(QSize, room);
    QFETCH(bool, shown);
    Bar bar;
    Show(true, true);
    bar.bar->SetRoom(room, 50, 70);
    QCOMPARE(bar.bar->isVisible(), shown);
    bar.bar->SetRoom(QSize(1000, 400), 50, 70);
    QVERIFY(bar.bar->isVisible());
}

void tst_RangeBar::leastHeightIsSet()
{
    Bar bar;
    Show(true, true);
    bar.bar->SetRoom(QSize(1000, 90), 50, 70);
    QVERIFY(!bar.bar->isVisible());
    bar.bar->SetLeastHeight(90);
    QVERIFY(bar.bar->isVisible());
    bar.bar->SetRoom(QSize(1000, 89), 50, 70);
    QVERIFY(!bar.bar->isVisible());
}

void tst_RangeBar::shownIsToldOnce()
{
    Bar bar;
    QSignalSpy const told(bar.bar, &RangeBar::signalShown);
    Show(true, false);
    QCOMPARE(told.count(), 0);
    Show(true, true);
    QCOMPARE(told.count(), 1);
    bar.bar->SetRoom(QSize(900, 400), 50, 70);
    QCOMPARE(told.count(), 1);
    bar.bar->SetRoom(QSize(900, 20), 50, 70);
    QCOMPARE(told.count(), 2);
    Show(false, false);
    QCOMPARE(told.count(), 2);
}

void tst_RangeBar::secondDisplayGivesWay()
{
    Bar bar(2);
    Show(true, true);
    QVERIFY(bar.display[0]->isVisible() && bar.display[1]->isVisible());
    bar.bar->SetRoom(QSize(2 * RangeBar::LeastWidth + 120, 400), 50, 70); // the gap between them is missing
    QVERIFY(bar.display[0]->isVisible() && !bar.display[1]->isVisible());
}

void tst_RangeBar::releasedButtonHidesTheMarkers()
{
    Bar bar;
    Show(true, true);
    QSignalSpy const told(bar.axis, &MarkerList::signalSetState);
    QTest::mouseClick(bar.display[0]->findChild<QPushButton *>(), Qt::LeftButton);
    QCOMPARE(told.count(), 2);
    QCOMPARE(told.at(0).at(0).toString(), QString(QLatin1String(ConsolePaths::MarkerLower)));
    QCOMPARE(told.at(1).at(0).toString(), QString(QLatin1String(ConsolePaths::MarkerUpper)));
    QCOMPARE(told.at(0).at(2).toBool(), false);
}

void tst_RangeBar::textsAreAsFineAsThePixels()
{
    Bar bar;
    Show(true, true);
    Markers(100.25e6, 100.75e6);
    QCOMPARE(bar.Text("First Ruler"), QStringLiteral("100.250"));
    bar.axis->SetRange(100e6, 100.01e6);
    QCOMPARE(bar.Text("First Ruler"), QStringLiteral("100.25000"));
}

ORIM_TEST_MAIN(tst_RangeBar)
#include "tst_rangebar.moc"
