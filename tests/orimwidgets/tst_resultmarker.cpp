// SPDX-License-Identifier: MIT
#include "resultmarker.h"

#include "resultmarkerlist.h"
#include "resultscene.h"
#include "specialdoubles.h"
#include "testmain.h"

#include <cmath>
#include <limits>
#include <memory>
#include <type_traits>

namespace {

//! A result that writes down what it is asked for.
class AskedResult : public IMarkerValue
{
public:
    double GetValue(unsigned int i) const override
    {
        m_asked << QString::number(i);
        return 100.0 + i;
    }

    QString GetText() const override
    {
        m_asked << QStringLiteral("text");
        return QStringLiteral("asked");
    }

    unsigned int GetCount() const override { return m_count; }

    unsigned int m_count = 3;
    mutable QStringList m_asked;
};

//! A marker whose position is something else.
class DerivedMarker : public ResultMarker
{
public:
    double GetValue() override { return 77.0; }
};

//! What the marker keeps as its value, which GetValue() does not show.
double KeptValue(Marker const & marker) { return marker.GetUnWrappedValue(); }

} // namespace

class tst_resultmarker : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isMarker();
    void fresh();
    void position_data();
    void position();
    void valueAt_data();
    void valueAt();
    void secondIndex();
    void replacesAllValues();
    void asksForWhatItNeeds();
    void takesNoMoreThan4096();
    void textFollowsTheFlag();
    void nothingToTake();
    void forgetsPixels();
    void keepsThePositionAsValue();
    void positionOfADerivedClass();
    void wraps_data();
    void wraps();
    void draws();
    void connected();
    void connectedToNoParent();
    void copies_data();
    void copies();
    void copyOfItself();
    void specialDoubles();
};

void tst_resultmarker::isMarker()
{
    QVERIFY((std::is_base_of<Marker, ResultMarker>::value));
    ResultMarker result;
    BearingResult const value = ResultFrom(10.0);
    result.SetMarkerValue(&value, false);
    Marker & marker = result;
    QCOMPARE(marker.GetValue(), 12.0); // the operation of the result marker
    QVERIFY(!marker.GetConnected());
}

void tst_resultmarker::fresh()
{
    ResultMarker const marker;
    QCOMPARE(ResultMarker().GetValue(), -1.0);
    QCOMPARE(marker.GetValue(0U), -1.0);
    QCOMPARE(marker.GetStringValue(), QString());
    QCOMPARE(marker.GetXDimensionValue(), 2U);
    QCOMPARE(marker.GetYDimensionValue(), 4U);
    QVERIFY(!marker.GetParent());
}

void tst_resultmarker::position_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<double>("expected");
    QTest::newRow("the third at the start") << 2 << 12.0;
    QTest::newRow("first") << 0 << 10.0;
    QTest::newRow("last") << 4 << 14.0;
    QTest::newRow("past the last") << 5 << -1.0;
    QTest::newRow("far past it") << std::numeric_limits<int>::max() << -1.0;
    QTest::newRow("negative") << -1 << -1.0;
    QTest::newRow("lowest") << std::numeric_limits<int>::min() << -1.0;
}

void tst_resultmarker::position()
{
    QFETCH(int, index);
    QFETCH(double, expected);
    ResultMarker marker;
    BearingResult const value = ResultFrom(10.0);
    if (index != 2)
        marker.SetXDimensionValue(index);
    QCOMPARE(marker.GetXDimensionValue(), static_cast<unsigned int>(index));
    marker.SetMarkerValue(&value, false);
    QCOMPARE(marker.GetValue(), expected);
    QCOMPARE(KeptValue(marker), expected);
}

void tst_resultmarker::valueAt_data()
{
    QTest::addColumn<unsigned int>("index");
    QTest::addColumn<double>("expected");
    QTest::newRow("first") << 0U << 10.0;
    QTest::newRow("last") << 4U << 14.0;
    QTest::newRow("past the last") << 5U << -1.0;
    QTest::newRow("highest") << std::numeric_limits<unsigned int>::max() << -1.0;
}

void tst_resultmarker::valueAt()
{
    QFETCH(unsigned int, index);
    QFETCH(double, expected);
    ResultMarker marker;
    BearingResult const value = ResultFrom(10.0);
    marker.SetMarkerValue(&value, false);
    QCOMPARE(marker.GetValue(index), expected);
}

//! It is kept for panes; no value here depends on it.
void tst_resultmarker::secondIndex()
{
    ResultMarker marker;
    BearingResult const value = ResultFrom(10.0);
    marker.SetYDimensionValue(1);
    marker.SetMarkerValue(&value, false);
    QCOMPARE(marker.GetYDimensionValue(), 1U);
    QCOMPARE(marker.GetValue(), 12.0);
    marker.SetXDimensionValue(3);
    QCOMPARE(marker.GetYDimensionValue(), 1U);
    QCOMPARE(marker.GetValue(), 13.0);
    QCOMPARE(KeptValue(marker), 12.0); // until the next result
}

void tst_resultmarker::replacesAllValues()
{
    ResultMarker marker;
    BearingResult const five = ResultFrom(10.0);
    BearingResult const two({ 1.0, 2.0 });
    BearingResult const none;
    marker.SetMarkerValue(&five, false);
    marker.SetMarkerValue(&two, false);
    QCOMPARE(marker.GetValue(1U), 2.0);
    QCOMPARE(marker.GetValue(2U), -1.0);
    QCOMPARE(marker.GetValue(), -1.0);
    QCOMPARE(KeptValue(marker), -1.0);
    marker.SetMarkerValue(&none, false);
    QCOMPARE(marker.GetValue(0U), -1.0);
}

void tst_resultmarker::asksForWhatItNeeds()
{
    ResultMarker marker;
    AskedResult result;
    marker.SetMarkerValue(&result, false);
    QCOMPARE(result.m_asked, (QStringList{ QStringLiteral("0"), QStringLiteral("1"), QStringLiteral("2") }));
    marker.SetShowResult(true);
    result.m_asked.clear();
    marker.SetMarkerValue(&result, false);
    QCOMPARE(result.m_asked.size(), 4);
    QCOMPARE(result.m_asked.last(), QStringLiteral("text"));
    QCOMPARE(marker.GetValue(2U), 102.0);
}

void tst_resultmarker::takesNoMoreThan4096()
{
    ResultMarker marker;
    AskedResult result;
    result.m_count = std::numeric_limits<unsigned int>::max();
    marker.SetMarkerValue(&result, false);
    QCOMPARE(result.m_asked.size(), 4096);
    QCOMPARE(marker.GetValue(4095U), 4195.0);
    QCOMPARE(marker.GetValue(4096U), -1.0);
}

void tst_resultmarker::textFollowsTheFlag()
{
    ResultMarker marker;
    BearingResult const first = ResultFrom(10.0, QStringLiteral("first"));
    BearingResult const second = ResultFrom(20.0, QStringLiteral("second"));
    marker.SetMarkerValue(&first, false);
    QCOMPARE(marker.GetStringValue(), QString());
    marker.SetShowResult(true);
    QCOMPARE(marker.GetStringValue(), QString());
    marker.SetMarkerValue(&first, false);
    QCOMPARE(marker.GetStringValue(), QStringLiteral("first"));
    marker.SetShowResult(false);
    marker.SetMarkerValue(&second, false);
    QCOMPARE(marker.GetStringValue(), QStringLiteral("first")); // the text stays, the values do not
    QCOMPARE(marker.GetValue(), 22.0);
    bool formatted = true;
    QCOMPARE(marker.GetStringValue(&formatted), QStringLiteral("22.000"));
    QVERIFY(!formatted);
}

void tst_resultmarker::nothingToTake()
{
    TestMarkerList list;
    ResultMarker * const marker = list.AddResultMarker(33, true, IColorBase::eColorResult, true, 0, QString());
    BearingResult const value = ResultFrom(10.0);
    marker->SetMarkerValue(&value, false);
    marker->SetPixel(5);
    list.Forget();
    marker->SetMarkerValue(nullptr, true);
    QCOMPARE(marker->GetValue(), 12.0);
    QCOMPARE(marker->GetPixel(), 5);
    QVERIFY(list.m_calls.isEmpty());
}

void tst_resultmarker::forgetsPixels()
{
    TestMarkerList list;
    list.show();
    ResultMarker * const marker = list.AddResultMarker(33, true, IColorBase::eColorResult, true, 0, QString());
    BearingResult const value = ResultFrom(10.0);
    marker->SetPixel(5);
    marker->SetResultPixel(6);
    list.SetMustRecalcRulers(false);
    marker->SetMarkerValue(&value, false);
    QCOMPARE(marker->GetPixel(), -1);
    QCOMPARE(marker->GetResultPixel(), -1);
    QVERIFY(list.GetMustRecalcRulers());
}

void tst_resultmarker::keepsThePositionAsValue()
{
    ResultMarker marker;
    BearingResult const value = ResultFrom(10.0);
    marker.SetFactor(2.0); // counts for what is set and bound only
    marker.SetMarkerValue(&value, false);
    QCOMPARE(KeptValue(marker), 12.0);
    marker.SetLastDrawnValue(12.0);
    QVERIFY(!marker.Moved());
}

void tst_resultmarker::positionOfADerivedClass()
{
    DerivedMarker marker;
    BearingResult const value = ResultFrom(10.0);
    marker.SetMarkerValue(&value, false);
    QCOMPARE(KeptValue(marker), 77.0);
}

void tst_resultmarker::wraps_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("offset");
    QTest::addColumn<unsigned int>("special");
    QTest::addColumn<double>("kept");
    QTest::addColumn<bool>("moving");
    QTest::newRow("above") << 370.0 << 0.0 << 0U << 10.0 << false;
    QTest::newRow("below") << -10.0 << 0.0 << 0U << 350.0 << false;
    QTest::newRow("inside") << 90.0 << 0.0 << unsigned(eSpecialShowMoving) << 90.0 << false;
    QTest::newRow("above by the offset") << 355.0 << 10.0 << 0U << -5.0 << false;
    QTest::newRow("wrapped ones show that they move") << 370.0 << 0.0 << unsigned(eSpecialShowMoving) << 10.0 << true;
    QTest::newRow("once only") << 1000.0 << 0.0 << 0U << 640.0 << false;
}

void tst_resultmarker::wraps()
{
    QFETCH(double, value);
    QFETCH(double, offset);
    QFETCH(unsigned int, special);
    QFETCH(double, kept);
    QFETCH(bool, moving);
    ResultMarker marker;
    marker.SetSpecial(special);
    marker.SetOffset(offset);
    marker.SetWrapAround(360);
    marker.SetWrapIntoRange(0, 360);
    marker.SetMoving(false, true);
    BearingResult const result({ 0.0, 0.0, value });
    marker.SetMarkerValue(&result, false);
    QCOMPARE(KeptValue(marker), kept);
    QCOMPARE(marker.GetValue(), value); // the result is as it came
    QCOMPARE(marker.IsMoving(), moving);
}

void tst_resultmarker::draws()
{
    TestMarkerList list;
    ResultMarker * const marker = list.AddResultMarker(33, true, IColorBase::eColorResult, true, 0, QString());
    BearingResult const value = ResultFrom(10.0);
    list.Forget();
    marker->SetMarkerValue(&value, false);
    QVERIFY(list.m_calls.isEmpty());
    marker->SetMarkerValue(&value, true);
    QCOMPARE(list.m_calls, QStringList{ QStringLiteral("updateWidget") });
    marker->SetParent(nullptr);
    marker->SetMarkerValue(&value, true);
    QCOMPARE(list.m_calls.size(), 1);
}

void tst_resultmarker::connected()
{
    TreeValue<ResultList> results("results");
    TestMarkerList list;
    ResultMarker * const marker =
        list.AddResultMarker(33, true, IColorBase::eColorResult, true, 0, QStringLiteral("Bearing"));
    QVERIFY(!marker->GetConnected());
    ResultMarkerList * const keeper =
        list.CreateResultMarkerList(33, true, IColorBase::eColorResult, true, 0, QString());
    QVERIFY(!marker->GetConnected());
    QVERIFY(!list.isIndexValidConnected(33));
    QCOMPARE(list.GetIndex(QStringLiteral("Bearing")), -1);
    QVERIFY(keeper->Set_ValuePath(results.Path()));
    QVERIFY(marker->GetConnected());
    QVERIFY(list.isIndexValidConnected(33));
    QCOMPARE(list.GetIndex(QStringLiteral("Bearing")), 33); // known to other lists by its name
    results.Remove();
    QVERIFY(!marker->GetConnected());
}

void tst_resultmarker::connectedToNoParent()
{
    TreeNumber const number("number");
    ResultMarker marker;
    QVERIFY(!marker.GetConnected());
    QVERIFY(marker.Set_ValuePath(number.Path()));
    QVERIFY(!marker.GetConnected()); // a value of its own does not count
    {
        TestMarkerList list;
        marker.SetParent(&list);
    }
    QVERIFY(!marker.GetConnected());
}

void tst_resultmarker::copies_data()
{
    QTest::addColumn<bool>("assign");
    QTest::newRow("constructor") << false;
    QTest::newRow("assignment") << true;
}

void tst_resultmarker::copies()
{
    QFETCH(bool, assign);
    TestMarkerList list;
    ResultMarker source;
    source.SetParent(&list);
    source.SetXDimensionValue(3);
    source.SetYDimensionValue(1);
    source.SetShowResult(true);
    source.SetColor(IColorBase::eColorGood);
    BearingResult const value = ResultFrom(10.0, QStringLiteral("text"));
    source.SetMarkerValue(&value, false);
    ResultMarker assigned;
    if (assign)
        assigned = source;
    std::unique_ptr<ResultMarker> const built(new ResultMarker(source));
    ResultMarker & copy = assign ? assigned : *built;
    QCOMPARE(copy.GetValue(0U), 10.0);
    QCOMPARE(copy.GetValue(4U), 14.0);
    QCOMPARE(copy.GetValue(5U), -1.0);
    QCOMPARE(copy.GetXDimensionValue(), 3U);
    QCOMPARE(copy.GetYDimensionValue(), 1U);
    QCOMPARE(copy.GetStringValue(), QStringLiteral("text"));
    QCOMPARE(copy.GetValue(), 13.0);
    QCOMPARE(KeptValue(copy), 13.0); // and what every marker copies
    QVERIFY(copy.GetShowResultFlag());
    QCOMPARE(copy.GetColor(), IColorBase::eColorMarker);
    QVERIFY(!copy.GetParent());
}

void tst_resultmarker::copyOfItself()
{
    ResultMarker marker;
    ResultMarker const & same = marker;
    marker.SetColor(IColorBase::eColorGood);
    BearingResult const value = ResultFrom(10.0);
    marker.SetMarkerValue(&value, false);
    marker = same;
    QCOMPARE(marker.GetValue(4U), 14.0);
    QCOMPARE(marker.GetColor(), IColorBase::eColorGood);
}

//! What a result holds is handed on as it is, and wraps where a comparison holds.
void tst_resultmarker::specialDoubles()
{
    TestMarkerList list;
    list.SetWrapValue(360.0);
    ResultMarker * const marker = list.AddResultMarker(33, true, IColorBase::eColorResult, true, 0, QString());
    for (bool const wrap : { false, true }) {
        marker->SetWrapAround(wrap ? 360 : -1);
        marker->SetWrapIntoRange(0, 360);
        for (double const value : SpecialDoubles()) {
            BearingResult const result({ 0.0, value, value });
            marker->SetMarkerValue(&result, true);
            QVERIFY(marker->GetValue() == value || (std::isnan(value) && std::isnan(marker->GetValue())));
            double const above = wrap && value > 360.0 ? value - 360 : value;
            double const kept = value < 0.0 ? value + 360 : above; // the list adds its wrap value when nothing wraps
            if (!wrap || value > -360.0)
                QVERIFY(KeptValue(*marker) == kept || (std::isnan(kept) && std::isnan(KeptValue(*marker))));
            QVERIFY(!marker->Marker::GetStringValue(nullptr).isEmpty());
        }
    }
}

ORIM_TEST_MAIN(tst_resultmarker)
#include "tst_resultmarker.moc"
