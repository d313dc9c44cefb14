// SPDX-License-Identifier: MIT
#include "marker.h"

#include "testmain.h"
#include "testmarkerlist.h"

#include <cfloat>

namespace {

//! Shows the wrap rule.
class OpenMarker : public Marker
{
public:
    using Marker::MoveIntoRangeAndDraw;
};

QRect Empty() { return { QPoint(0, 0), QPoint(-2, -2) }; }

} // namespace

class tst_marker : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void startsWith();
    void startsDrawnWithoutRectangle();
    void virtualOperationsKeepTheirOrder();
    void numbers_data();
    void numbers();
    void indexNames_data();
    void indexNames();
    void rangeMarkers_data();
    void rangeMarkers();
    void storesWhatIsSet();
    void disabled();
    void flagLine();
    void moved();
    void forgetsPixels_data();
    void forgetsPixels();
    void setValue_data();
    void setValue();
    void setValueTellsTheIndex();
    void setValueUnchangedDoesNothing();
    void setValueOfAMarkerInNoList();
    void movingValueWithoutBinding();
    void unwrappedValue_data();
    void unwrappedValue();
    void wrapsOnce_data();
    void wrapsOnce();
    void wrapDrawsOnlyWhenAsked();
};

void tst_marker::startsWith()
{
    Marker marker;
    QVERIFY(marker.isEnabled());
    QCOMPARE(marker.GetValue(), 0.0);
    QCOMPARE(marker.GetLastDrawnValue(), 0.0);
    QCOMPARE(static_cast<int>(marker.GetColor()), 150);
    QVERIFY(marker.GetShowMarkerFlag());
    int width = 0;
    int precision = 0;
    marker.GetFormat(width, precision);
    QCOMPARE(width, -1);
    QCOMPARE(precision, -1);
    QCOMPARE(marker.GetSpecial(), 0U);
    QVERIFY(!marker.IsMoving());
    QCOMPARE(marker.GetWrapAround(), -1);
    QVERIFY(marker.GetValuePath().isEmpty());
    QVERIFY(!marker.GetValuePath().isNull());
    QVERIFY(marker.GetMarkerName().isNull());
    QVERIFY(!marker.GetIValueNumeric());
    QVERIFY(!marker.GetConnected());
    QVERIFY(!marker.GetParent());
    QCOMPARE(marker.GetPixel(), -1);
    QCOMPARE(marker.GetResultPixel(), -1);
    QCOMPARE(marker.GetOffset(), 0.0);
    QCOMPARE(marker.GetFactor(), 1.0);
    QCOMPARE(marker.GetTimerID(), -1);
    QCOMPARE(marker.GetGapId(), -1);
    QVERIFY(!marker.GetCurrentMarker());
    QVERIFY(!marker.GetShowResultFlag());
    QVERIFY(!marker.GetFillBelow());
    QVERIFY(!marker.GetNeverShowMarker());
    int start = 0;
    int stop = 0;
    marker.GetWrapIntoRange(start, stop);
    QCOMPARE(start, -1);
    QCOMPARE(stop, -1);
}

void tst_marker::startsDrawnWithoutRectangle()
{
    Marker marker;
    QCOMPARE(marker.GetRect(), Empty());
    QCOMPARE(marker.GetRulerRect(), Empty());
    QVERIFY(!marker.GetRect().isValid());
    QVERIFY(marker.GetShowMarker());
    QVERIFY(!marker.GetShowResult());
    QVERIFY(!marker.GetMoveable());
    marker.SetMoveable(true);
    QVERIFY(marker.GetMoveable());
    int pixels = 5;
    QVERIFY(!marker.GetShowOffset(pixels));
    QCOMPARE(pixels, 0);
}

void tst_marker::virtualOperationsKeepTheirOrder()
{
#if defined(__GNUC__) && defined(__x86_64__)
    int const first = PlaceOf(static_cast<void (Marker::*)(Observable *, TChangeCode)>(&Marker::Update));
    QCOMPARE(first, PlaceOf(&IObserver::Update));
    QCOMPARE(PlaceOf(&Marker::GetValue), first + 1);
    QCOMPARE(PlaceOf(&Marker::GetConnected), first + 2);
    QCOMPARE(PlaceOf(&Marker::setEnabled), first + 3);
#endif
}

void tst_marker::numbers_data()
{
    QTest::addColumn<unsigned int>("number");
    QTest::addColumn<unsigned int>("expected");
    QTest::newRow("Y") << static_cast<unsigned int>(eSpecialY) << 0x4U;
    QTest::newRow("X") << static_cast<unsigned int>(eSpecialX) << 0x8U;
    QTest::newRow("show moving") << static_cast<unsigned int>(eSpecialShowMoving) << 0x80U;
    QTest::newRow("window border") << static_cast<unsigned int>(eSpecialWindowBorder) << 0x100U;
    QTest::newRow("always show") << static_cast<unsigned int>(eSpecialAlwaysShow) << 0x200U;
    QTest::newRow("result") << static_cast<unsigned int>(eSpecialResult) << 0x400U;
    QTest::newRow("in menu") << static_cast<unsigned int>(eSpecialInMenu) << 0x800U;
    QTest::newRow("place on show") << static_cast<unsigned int>(eSpecialPlaceOnShow) << 0x1000U;
    QTest::newRow("panel menu") << static_cast<unsigned int>(eSpecialPanelMenu) << 0x2000U;
    QTest::newRow("flag on top") << static_cast<unsigned int>(eSpecialFlagOnTop) << 0x20000U;
    QTest::newRow("direction X") << static_cast<unsigned int>(eMarkerX) << 0U;
    QTest::newRow("direction Y") << static_cast<unsigned int>(eMarkerY) << 1U;
    QTest::newRow("state show") << static_cast<unsigned int>(eMarkerShow) << 0U;
    QTest::newRow("state moving") << static_cast<unsigned int>(eMarkerMoving) << 1U;
    QTest::newRow("state current") << static_cast<unsigned int>(eMarkerCurrent) << 2U;
    QTest::newRow("state repaint") << static_cast<unsigned int>(eMarkerRepaint) << 3U;
}

void tst_marker::numbers()
{
    QFETCH(unsigned int, number);
    QFETCH(unsigned int, expected);
    QCOMPARE(number, expected);
}

void tst_marker::indexNames_data()
{
    QTest::addColumn<QVector<int>>("ids");
    QTest::addColumn<int>("first");
    QTest::newRow("0 to 4") << QVector<int>{ eYellowX, eYellowY, eYellowXY, eWhiteX, eWhiteY } << 0;
    QTest::newRow("5 to 10, the ranges") << QVector<int>{ eRangeXStart, eRangeXStop, eRangeXCenter,
                                                          eRangeYStart, eRangeYStop, eRangeYCenter }
                                         << 5;
    QTest::newRow("11 to 14") << QVector<int>{ eBlueX, eBlueY, eRedX, eRedY } << 11;
    QTest::newRow("15 to 18") << QVector<int>{ eTemp, eTemp1, eTemp2, eTemp3 } << 15;
    QTest::newRow("19 to 27") << QVector<int>{ eFree19, eFree20, eFree21, eFree22, eFree23,
                                               eFree24, eFree25, eFree26, eFree27 }
                              << 19;
    QTest::newRow("28 to 31") << QVector<int>{ eAddYellow, eAddYellow1, eAddYellow2, eAddYellow3 } << 28;
    QTest::newRow("32 to 42") << QVector<int>{ eFree32, eFree33, eFree34, eFree35, eFree36,   eFree37,
                                               eFree38, eFree39, eFree40, eFree41, eMouseMove }
                              << 32;
}

void tst_marker::indexNames()
{
    QFETCH(QVector<int>, ids);
    QFETCH(int, first);
    for (int i = 0; i < ids.size(); ++i)
        QCOMPARE(ids[i], first + i);
}

void tst_marker::rangeMarkers_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<bool>("isRange");
    for (int id = -1; id <= 43; ++id)
        QTest::addRow("%d", id) << id << (id >= 5 && id <= 10);
}

void tst_marker::rangeMarkers()
{
    QFETCH(int, id);
    QFETCH(bool, isRange);
    QCOMPARE(Marker::isMeasurementId(static_cast<EMarkerID>(id)), isRange);
}

void tst_marker::storesWhatIsSet()
{
    Marker marker;
    marker.SetRect(QRect(1, 2, 3, 4));
    QCOMPARE(marker.GetRect(), QRect(1, 2, 3, 4));
    QCOMPARE(marker.GetRulerRect(), Empty());
    marker.SetRulerRect(QRect(5, 6, 7, 8));
    QCOMPARE(marker.GetRulerRect(), QRect(5, 6, 7, 8));
    QCOMPARE(marker.GetRect(), QRect(1, 2, 3, 4));
    marker.SetPixel(11);
    marker.SetResultPixel(12);
    QCOMPARE(marker.GetPixel(), 11);
    QCOMPARE(marker.GetResultPixel(), 12);
    marker.SetFormat(3, 2);
    int width = 0;
    int precision = 0;
    marker.GetFormat(width, precision);
    QCOMPARE(width, 3);
    QCOMPARE(precision, 2);
    marker.SetShowOffset(true, 9);
    int pixels = 0;
    QVERIFY(marker.GetShowOffset(pixels));
    QCOMPARE(pixels, 9);
    marker.SetSpecial(0x40000001U);
    QCOMPARE(marker.GetSpecial(), 0x40000001U);
    marker.SetMarkerName(QStringLiteral("left"));
    QCOMPARE(marker.GetMarkerName(), QStringLiteral("left"));
    marker.SetOffset(2.5);
    marker.SetFactor(3.5);
    QCOMPARE(marker.GetOffset(), 2.5);
    QCOMPARE(marker.GetFactor(), 3.5);
    marker.SetGapId(6);
    QCOMPARE(marker.GetGapId(), 6);
    marker.SetShowResult(true);
    QVERIFY(marker.GetShowResultFlag());
    marker.SetFillBelow(true);
    QVERIFY(marker.GetFillBelow());
    marker.SetNeverShowMarker(true);
    QVERIFY(marker.GetNeverShowMarker());
    int start = 0;
    int stop = 0;
    marker.SetWrapIntoRange(-5, 355);
    marker.GetWrapIntoRange(start, stop);
    QCOMPARE(start, -5);
    QCOMPARE(stop, 355);
}

void tst_marker::disabled()
{
    Marker marker;
    marker.SetMoveable(true);
    marker.SetShowOffset(true, 4);
    marker.setEnabled(false);
    QVERIFY(!marker.isEnabled());
    QVERIFY(!marker.GetMoveable());
    int pixels = 77;
    QVERIFY(!marker.GetShowOffset(pixels));
    QCOMPARE(pixels, 77);
    marker.setEnabled(true);
    QVERIFY(marker.GetMoveable());
    marker.SetMoveable(false);
    QVERIFY(!marker.GetMoveable());
}

void tst_marker::flagLine()
{
    Marker marker;
    QCOMPARE(marker.GetFlagOffsetLine(), -2);
    marker.SetRect(QRect(10, 20, 30, 40));
    QCOMPARE(marker.GetFlagOffsetLine(), 59);
    marker.SetSpecial(eSpecialFlagOnTop);
    QCOMPARE(marker.GetFlagOffsetLine(), 20);
}

void tst_marker::moved()
{
    Marker marker;
    QVERIFY(!marker.Moved());
    marker.SetValue(2.0);
    QVERIFY(marker.Moved());
    marker.SetLastDrawnValue(2.0);
    QVERIFY(!marker.Moved());
    QCOMPARE(marker.GetLastDrawnValue(), 2.0);
    marker.SetValue(qQNaN());
    QVERIFY(marker.Moved());
    marker.SetLastDrawnValue(qQNaN());
    QVERIFY(!marker.Moved());
}

void tst_marker::forgetsPixels_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<bool>("visible");
    QTest::addColumn<bool>("drawn");
    QTest::addColumn<bool>("recalculated");
    for (char const * operation :
         { "InvalidatePixel", "SetShowOffset", "Set_ValuePath", "SetOffset_ValuePath", "SetValue" }) {
        QTest::addRow("%s, drawn in a visible list", operation)
            << QString::fromLatin1(operation) << true << true << true;
        QTest::addRow("%s, not drawn", operation) << QString::fromLatin1(operation) << true << false << false;
        QTest::addRow("%s, hidden list", operation) << QString::fromLatin1(operation) << false << true << false;
    }
}

void tst_marker::forgetsPixels()
{
    QFETCH(QString, operation);
    QFETCH(bool, visible);
    QFETCH(bool, drawn);
    QFETCH(bool, recalculated);
    TestMarkerList list;
    if (visible)
        list.show();
    Marker & marker = *list.AddMarker(3);
    marker.SetShowMarker(drawn, true);
    marker.SetPixel(4);
    marker.SetResultPixel(5);
    list.SetMustRecalcRulers(false);
    if (operation == QLatin1String("InvalidatePixel"))
        marker.InvalidatePixel();
    else if (operation == QLatin1String("SetShowOffset"))
        marker.SetShowOffset(true, 1);
    else if (operation == QLatin1String("Set_ValuePath"))
        marker.Set_ValuePath(QStringLiteral("/nowhere"));
    else if (operation == QLatin1String("SetOffset_ValuePath"))
        marker.SetOffset_ValuePath(QStringLiteral("/nowhere"));
    else
        marker.SetValue(6.0);
    QCOMPARE(marker.GetPixel(), -1);
    QCOMPARE(marker.GetResultPixel(), -1);
    QCOMPARE(list.GetMustRecalcRulers(), recalculated);
}

void tst_marker::setValue_data()
{
    QTest::addColumn<double>("factor");
    QTest::addColumn<double>("argument");
    QTest::addColumn<double>("value");
    QTest::newRow("factor 1") << 1.0 << 3.0 << 3.0;
    QTest::newRow("factor 2 keeps the product") << 2.0 << 3.0 << 6.0;
    QTest::newRow("factor -1") << -1.0 << 3.0 << -3.0;
    QTest::newRow("factor 0") << 0.0 << 3.0 << 0.0;
    QTest::newRow("infinite") << 1.0 << qInf() << qInf();
    QTest::newRow("too far for doubles") << 10.0 << DBL_MAX << qInf();
}

void tst_marker::setValue()
{
    QFETCH(double, factor);
    QFETCH(double, argument);
    QFETCH(double, value);
    Marker marker;
    marker.SetFactor(factor);
    QCOMPARE(marker.SetValue(argument), value);
    QCOMPARE(marker.GetValue(), value);
}

void tst_marker::setValueTellsTheIndex()
{
    TestMarkerList list;
    Marker & marker = *list.AddMarker(7);
    list.Forget();
    marker.SetValue(3.0);
    QCOMPARE(list.m_moved, std::vector<int>{ 7 });
    QVERIFY(list.m_calls.isEmpty());
}

void tst_marker::setValueUnchangedDoesNothing()
{
    TestMarkerList list;
    Marker & marker = *list.AddMarker(7);
    marker.SetFactor(2.0);
    marker.SetValue(3.0);
    marker.SetPixel(5);
    list.Forget();
    QCOMPARE(marker.SetValue(3.0), 6.0);
    QCOMPARE(marker.GetPixel(), 5);
    QVERIFY(list.m_moved.empty());
    marker.SetValue(qQNaN());
    list.Forget();
    marker.SetValue(qQNaN());
    QVERIFY(list.m_moved.empty());
}

void tst_marker::setValueOfAMarkerInNoList()
{
    TestMarkerList list;
    Marker marker;
    marker.SetParent(&list);
    marker.SetValue(3.0);
    QCOMPARE(list.m_moved, std::vector<int>{ -1 });
}

void tst_marker::movingValueWithoutBinding()
{
    Marker marker;
    marker.SetFactor(2.0);
    marker.SetValue(1.0);
    QCOMPARE(marker.SetMovingValue(5.0), 2.0);
    QCOMPARE(marker.GetValue(), 2.0);
    QCOMPARE(marker.GetDrawValue(), 0.0);
    QVERIFY(!marker.Changing());
    marker.EndMoving();
    marker.UseMovingValue(false);
    QCOMPARE(marker.SetMovingValue(5.0), 10.0);
    QVERIFY(!marker.Move2NextPixel(true));
}

void tst_marker::unwrappedValue_data()
{
    QTest::addColumn<bool>("hasList");
    QTest::addColumn<double>("wrap");
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("unwrapped");
    QTest::newRow("without a list") << false << 360.0 << -10.0 << -10.0;
    QTest::newRow("no wrap value") << true << -1.0 << -10.0 << -10.0;
    QTest::newRow("negative") << true << 360.0 << -10.0 << 350.0;
    QTest::newRow("added once") << true << 360.0 << -730.0 << -370.0;
    QTest::newRow("zero stays") << true << 360.0 << 0.0 << 0.0;
    QTest::newRow("above stays") << true << 360.0 << 400.0 << 400.0;
}

void tst_marker::unwrappedValue()
{
    QFETCH(bool, hasList);
    QFETCH(double, wrap);
    QFETCH(double, value);
    QFETCH(double, unwrapped);
    TestMarkerList list;
    list.SetWrapValue(wrap);
    Marker marker;
    marker.SetParent(hasList ? &list : nullptr);
    marker.SetValue(value);
    QCOMPARE(marker.GetUnWrappedValue(), unwrapped);
    QCOMPARE(marker.GetValue(), value);
}

void tst_marker::wrapsOnce_data()
{
    QTest::addColumn<int>("period");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("stop");
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("offset");
    QTest::addColumn<double>("wrapped");
    QTest::newRow("below") << 360 << 0 << 360 << -10.0 << 0.0 << 350.0;
    QTest::newRow("above") << 360 << 0 << 360 << 370.0 << 0.0 << 10.0;
    QTest::newRow("inside") << 360 << 0 << 360 << 10.0 << 0.0 << 10.0;
    QTest::newRow("on the start") << 360 << 0 << 360 << 0.0 << 0.0 << 0.0;
    QTest::newRow("on the stop") << 360 << 0 << 360 << 360.0 << 0.0 << 360.0;
    QTest::newRow("far below moves once") << 360 << 0 << 360 << -1000.0 << 0.0 << -640.0;
    QTest::newRow("the offset counts, below") << 360 << 0 << 360 << 10.0 << -20.0 << 370.0;
    QTest::newRow("the offset counts, above") << 360 << 0 << 360 << 350.0 << 20.0 << -10.0;
    QTest::newRow("added, then subtracted") << 360 << 0 << 100 << -10.0 << 0.0 << -10.0;
    QTest::newRow("no period") << -1 << 0 << 360 << -10.0 << 0.0 << -10.0;
    QTest::newRow("start on stop") << 360 << 5 << 5 << -10.0 << 0.0 << -10.0;
    QTest::newRow("start above stop") << 360 << 360 << 0 << -10.0 << 0.0 << -10.0;
    QTest::newRow("infinite") << 360 << 0 << 360 << qInf() << 0.0 << qInf();
}

void tst_marker::wrapsOnce()
{
    QFETCH(int, period);
    QFETCH(int, start);
    QFETCH(int, stop);
    QFETCH(double, value);
    QFETCH(double, offset);
    QFETCH(double, wrapped);
    {
        Marker marker;
        marker.SetValue(value);
        marker.SetOffset(offset);
        marker.SetWrapAround(period);
        QCOMPARE(marker.GetValue(), value);
        marker.SetWrapIntoRange(start, stop);
        QCOMPARE(marker.GetValue(), wrapped);
    }
    {
        Marker marker;
        marker.SetValue(value);
        marker.SetOffset(offset);
        marker.SetWrapIntoRange(start, stop);
        QCOMPARE(marker.GetValue(), value);
        marker.SetWrapAround(period);
        QCOMPARE(marker.GetValue(), wrapped);
        QCOMPARE(marker.GetWrapAround(), period);
    }
}

void tst_marker::wrapDrawsOnlyWhenAsked()
{
    TestMarkerList list;
    OpenMarker marker;
    marker.SetParent(&list);
    list.Forget();
    marker.MoveIntoRangeAndDraw(false);
    QVERIFY(list.m_calls.isEmpty());
    marker.MoveIntoRangeAndDraw(true);
    QCOMPARE(list.m_calls, QStringList{ QStringLiteral("updateWidget") });
    marker.SetWrapAround(360);
    marker.SetWrapIntoRange(0, 360);
    QCOMPARE(list.Count(QStringLiteral("updateWidget")), 3);
    QVERIFY(!marker.IsMoving());
}

ORIM_TEST_MAIN(tst_marker)
#include "tst_marker.moc"
