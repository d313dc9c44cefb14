// SPDX-License-Identifier: MIT
#include "pseudomarkerlist.h"

#include "markerpair.h"
#include "testmain.h"
#include "testmarkerlist.h"

#include <QSignalSpy>

#include <limits>

namespace {

static_assert(std::is_constructible_v<PseudoMarkerList, QWidget *, char const *>);
static_assert(std::is_base_of_v<MarkerList, PseudoMarkerList>);
static_assert(sizeof(PseudoMarkerList) == sizeof(MarkerList), "no fields of its own");

constexpr int IntLowest = std::numeric_limits<int>::min();
constexpr int IntHighest = std::numeric_limits<int>::max();

} // namespace

class tst_PseudoMarkerList : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void initTestCase() { qRegisterMetaType<EMarkerState>("EMarkerState"); }

    void construction();
    void noValue_data();
    void noValue();
    void noPixel_data();
    void noPixel();
    void noRange_data();
    void noRange();
    void repairDoesNothing();
    void markerHoldsItsValue();
    void markerHasNoPixel();
    void markerIsNotStepped_data();
    void markerIsNotStepped();
    void wheelStepsNothing();
    void sharesState();
    void pairHasNoPixel();
};

void tst_PseudoMarkerList::construction()
{
    QWidget parent;
    PseudoMarkerList const named(&parent, "pseudo");
    QCOMPARE(named.parentWidget(), &parent);
    QCOMPARE(named.objectName(), QStringLiteral("pseudo"));
    PseudoMarkerList const unnamed(nullptr, nullptr);
    QCOMPARE(unnamed.objectName(), QString());
    QCOMPARE(unnamed.metaObject()->className(), "PseudoMarkerList");
}

void tst_PseudoMarkerList::noValue_data()
{
    QTest::addColumn<int>("direction");
    QTest::addColumn<int>("pixel");
    QTest::newRow("x, first pixel") << int(eMarkerX) << 0;
    QTest::newRow("y, first pixel") << int(eMarkerY) << 0;
    QTest::newRow("x, inside") << int(eMarkerX) << 50;
    QTest::newRow("unknown pixel") << int(eMarkerX) << -1;
    QTest::newRow("bad direction") << 7 << 50;
    QTest::newRow("largest pixel") << int(eMarkerY) << IntHighest;
    QTest::newRow("lowest pixel") << int(eMarkerY) << IntLowest;
}

void tst_PseudoMarkerList::noValue()
{
    QFETCH(int, direction);
    QFETCH(int, pixel);
    PseudoMarkerList list;
    list.resize(100, 100);
    QCOMPARE(list.PixelToValue(direction, pixel), -1.0);
}

void tst_PseudoMarkerList::noPixel_data()
{
    QTest::addColumn<int>("direction");
    QTest::addColumn<double>("value");
    QTest::newRow("x") << int(eMarkerX) << 50.0;
    QTest::newRow("y") << int(eMarkerY) << 50.0;
    QTest::newRow("zero") << int(eMarkerX) << 0.0;
    QTest::newRow("no mapping") << int(eMarkerX) << -1.0;
    QTest::newRow("NaN") << int(eMarkerX) << qQNaN();
    QTest::newRow("infinity") << int(eMarkerX) << qInf();
    QTest::newRow("bad direction") << -3 << 50.0;
}

void tst_PseudoMarkerList::noPixel()
{
    QFETCH(int, direction);
    QFETCH(double, value);
    PseudoMarkerList list;
    list.resize(100, 100);
    QCOMPARE(list.ValueToPixel(direction, value), -1);
}

void tst_PseudoMarkerList::noRange_data()
{
    QTest::addColumn<int>("direction");
    QTest::newRow("x") << int(eMarkerX);
    QTest::newRow("y") << int(eMarkerY);
    QTest::newRow("bad") << 2;
}

void tst_PseudoMarkerList::noRange()
{
    QFETCH(int, direction);
    PseudoMarkerList list;
    double start = 12.5;
    double stop = -7.25;
    list.GetCurrentStartStop(direction, start, stop);
    QCOMPARE(start, 12.5);
    QCOMPARE(stop, -7.25);
}

void tst_PseudoMarkerList::repairDoesNothing()
{
    PseudoMarkerList list;
    list.AddMarker(3)->SetPixel(30);
    list.RebuildMarkerList();
    list.SetMustRecalcRulers(false);
    list.RepairDrawing();
    QCOMPARE(list.GetMarker(3)->GetPixel(), 30);
    QCOMPARE(list.GetRepairTimerID(), 0);
    QVERIFY(!list.GetMustRecalcRulers());
}

void tst_PseudoMarkerList::markerHoldsItsValue()
{
    TreeNumber number("number", 12.0);
    PseudoMarkerList list;
    list.show();
    list.AddMarker(3);
    list.SetMarkerValue(3, 5.0);
    QCOMPARE(list.GetMarkerValue(3), 5.0);
    QVERIFY(list.SetMarker_ValuePath(3, number.Path()));
    QCOMPARE(list.GetMarkerValue(3), 12.0);
    number->SetValue(13.0, nullptr);
    QCOMPARE(list.GetMarkerValue(3), 13.0);
    list.SetMarkerValue(3, 14.0);
    QCOMPARE(number->GetValue(), 14.0);
}

void tst_PseudoMarkerList::markerHasNoPixel()
{
    TreeNumber number("number", 12.0);
    PseudoMarkerList list;
    list.resize(100, 100);
    list.show();
    list.AddMarker(3, true, IColorBase::eColorMarker, true, eSpecialX, QString());
    QVERIFY(list.SetMarker_ValuePath(3, number.Path()));
    for (double const value : { 0.0, 50.0, -1.0, qQNaN(), 1e300 }) {
        number->SetValue(value, nullptr);
        QCOMPARE(list.GetMarker(3)->GetPixel(), -1);
        QCOMPARE(list.GetLastPixelValue(3), -1);
    }
}

void tst_PseudoMarkerList::markerIsNotStepped_data()
{
    QTest::addColumn<unsigned int>("special");
    QTest::addColumn<bool>("forward");
    QTest::newRow("x, forward") << unsigned(eSpecialX) << true;
    QTest::newRow("x, backward") << unsigned(eSpecialX) << false;
    QTest::newRow("y, forward") << unsigned(eSpecialY) << true;
    QTest::newRow("y, backward") << unsigned(eSpecialY) << false;
}

void tst_PseudoMarkerList::markerIsNotStepped()
{
    QFETCH(unsigned int, special);
    QFETCH(bool, forward);
    TreeNumber number("number", 12.0);
    PseudoMarkerList list;
    list.show();
    Marker * const marker = list.AddMarker(3, true, IColorBase::eColorMarker, true, special, QString());
    QVERIFY(list.SetMarker_ValuePath(3, number.Path()));
    QVERIFY(!marker->Move2NextPixel(forward));
    QVERIFY(!list.MoveMarker2NextPixel(3, forward));
    QCOMPARE(number->GetValue(), 12.0);
    QCOMPARE(number->GetInterimValue(), 12.0);
}

void tst_PseudoMarkerList::wheelStepsNothing()
{
    TreeNumber number("number", 12.0);
    PseudoMarkerList list;
    list.resize(100, 100);
    list.show();
    list.AddMarker(3, true, IColorBase::eColorMarker, true, eSpecialX, QString());
    list.SetMarker_ValuePath(3, number.Path());
    list.SetCurrentMarker(3, true);
    QWheelEvent event(QPointF(1, 1), QPointF(1, 1), QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&list, &event);
    QVERIFY(event.isAccepted()); // there is a current marker
    QCOMPARE(number->GetInterimValue(), 12.0);
}

void tst_PseudoMarkerList::sharesState()
{
    TreeNumber number("number", 12.0);
    PseudoMarkerList list;
    list.show();
    list.AddMarker(3);
    list.SetMarker_ValuePath(3, number.Path());
    QSignalSpy const sent(&list, &MarkerList::signalSetState);
    list.SetShowMarker(3, false);
    QCOMPARE(sent.count(), 1);
    QCOMPARE(StateText(sent[0]), QStringLiteral("/test/number 0 0"));
    list.slotSetState(number.Path(), eMarkerShow, true);
    QVERIFY(list.GetShowMarkerFlag(3));
    QCOMPARE(sent.count(), 1);
}

void tst_PseudoMarkerList::pairHasNoPixel()
{
    PseudoMarkerList list;
    list.AddMarker(3);
    list.AddMarker(4);
    MarkerPair const * const pair = list.AddMarkerPair(3, 4);
    QCOMPARE(pair->XPixel(), -1);
    QCOMPARE(pair->YPixel(), -1);
}

ORIM_TEST_MAIN(tst_PseudoMarkerList)
#include "tst_pseudomarkerlist.moc"
