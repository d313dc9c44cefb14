// SPDX-License-Identifier: MIT
#include "resultmarkerlist.h"

#include "resultmarker.h"
#include "resultscene.h"
#include "specialdoubles.h"
#include "testmain.h"

#include <QPointer>

#include <cmath>
#include <limits>
#include <memory>

using Indices = std::vector<int>;

Q_DECLARE_METATYPE(Indices)

namespace {

constexpr int Lowest = std::numeric_limits<int>::min();
constexpr int Highest = std::numeric_limits<int>::max();

//! Writes down the codes that it hears.
class CodeList : public ResultMarkerList
{
public:
    using ResultMarkerList::ResultMarkerList;

    void Update(Observable * subject, TChangeCode code) override
    {
        m_codes << static_cast<int>(code);
        ResultMarkerList::Update(subject, code);
    }

    QList<int> m_codes;
};

//! A visible list of markers whose results follow a list value and a selector.
struct Scene
{
    explicit Scene(int firstId = 33, bool show = true)
    {
        list.show();
        results = list.CreateResultMarkerList(firstId, show, IColorBase::eColorGood, true, eSpecialResult,
                                              QStringLiteral("Result %1"));
        results->Set_ValuePath(values.Path());
        results->SetSelector_ValuePath(selector.Path());
        list.Forget();
    }

    //! Indices at which there are markers.
    Indices Present() const
    {
        Indices present;
        for (int i = 0; i < 43; ++i)
            if (list.isIndexValid(i))
                present.push_back(i);
        return present;
    }

    ResultMarker * At(int id) const { return dynamic_cast<ResultMarker *>(list.GetMarker(id)); }

    //! Colours of the markers from 33 on.
    Indices Colors() const
    {
        Indices colors;
        for (int id = 33; id < 43 && list.isIndexValid(id); ++id)
            colors.push_back(list.GetMarker(id)->GetColor());
        return colors;
    }

    TreeValue<ResultList> values{ "results" };
    TreeValue<ValueNumeric<int>> selector{ "selector" };
    TestMarkerList list;
    ResultMarkerList * results = nullptr;
};

Indices Range(int first, int last)
{
    Indices indices;
    for (int i = first; i <= last; ++i)
        indices.push_back(i);
    return indices;
}

} // namespace

class tst_resultmarkerlist : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fresh();
    void binding();
    void bindingOfOtherTypes();
    void replay();
    void aFilledListIsNotShownAtOnce();
    void letsGoWhenBoundAnew();
    void letsGoAtTheEnd();
    void resize_data();
    void resize();
    void resizeFrom_data();
    void resizeFrom();
    void resizeDeletesTheRest();
    void resizeKeepsWhatIsThere();
    void madeAsTold();
    void names_data();
    void names();
    void handsOverEachEntry();
    void nineResults_data();
    void nineResults();
    void othersPastTheEighth();
    void walksFromAFixedId();
    void highlight_data();
    void highlight();
    void selectorShowsWithTheNextChange();
    void numericSelectors();
    void firstIsSelectedWithoutSelector();
    void hiddenParent();
    void selectorOfAHiddenParent();
    void otherCodesAndSubjects();
    void repaintsOnce();
    void emptied();
    void departureOfTheList();
    void departureOfTheSelector();
    void otherStates();
    void awayAndBack();
    void withoutParent();
    void anotherParent();
    void endsWhileToldOfMarkers_data();
    void endsWhileToldOfMarkers();
    void shrinksWhileToldOfMarkers();
    void specialDoublesAsSelector();
};

void tst_resultmarkerlist::fresh()
{
    TestMarkerList list;
    ResultMarkerList results(&list, 33, true, IColorBase::eColorGood, true, 0, QString());
    QVERIFY(!results.GetConnected());
    QCOMPARE(results.GetParent(), &list);
    results.SetParent(nullptr);
    QVERIFY(!results.GetParent());
}

void tst_resultmarkerlist::binding()
{
    TreeValue<ResultList> const values("results");
    TreeNumber const selector("selector");
    TestMarkerList list;
    ResultMarkerList results(&list, 33, true, IColorBase::eColorGood, true, 0, QString());
    QVERIFY(!results.Set_ValuePath(QString()));
    QVERIFY(!results.Set_ValuePath(QStringLiteral("/test/unknown")));
    QVERIFY(!results.GetConnected());
    QVERIFY(results.Set_ValuePath(values.Path()));
    QVERIFY(results.GetConnected());
    QVERIFY(results.Set_ValuePath(values.Path()));
    QCOMPARE(values->GetObserverCount(), 1);
    QVERIFY(!results.SetSelector_ValuePath(QString()));
    QVERIFY(!results.SetSelector_ValuePath(QStringLiteral("/test/unknown")));
    QVERIFY(results.SetSelector_ValuePath(selector.Path()));
    QCOMPARE(selector->GetObserverCount(), 1);
    QVERIFY(results.GetConnected());
}

void tst_resultmarkerlist::bindingOfOtherTypes()
{
    TreeValue<ResultList> const values("results");
    TreeNumber const number("number");
    TreeValue<Value<QString>> const text("text");
    ResultMarkerList results(nullptr, 33, true, IColorBase::eColorGood, true, 0, QString());
    QVERIFY(!results.Set_ValuePath(number.Path()));
    QVERIFY(!results.Set_ValuePath(text.Path()));
    QVERIFY(!results.SetSelector_ValuePath(values.Path()));
    QVERIFY(!results.SetSelector_ValuePath(text.Path()));
    QVERIFY(!results.GetConnected());
    QCOMPARE(number->GetObserverCount() + text->GetObserverCount() + values->GetObserverCount(), 0);
}

void tst_resultmarkerlist::replay()
{
    TreeValue<ResultList> const values("results");
    TreeNumber const selector("selector");
    CodeList results(nullptr, 33, true, IColorBase::eColorGood, true, 0, QString());
    QList<int> const codes{ 2, 4, 3 };
    results.Set_ValuePath(values.Path());
    QCOMPARE(results.m_codes, codes);
    results.m_codes.clear();
    results.SetSelector_ValuePath(selector.Path());
    QCOMPARE(results.m_codes, codes);
}

//! The replay tells of items for a selection only.
void tst_resultmarkerlist::aFilledListIsNotShownAtOnce()
{
    Scene scene;
    scene.values->SetEntries(Results(2), nullptr);
    scene.list.DeleteMarker(33);
    scene.list.DeleteMarker(34);
    QVERIFY(scene.results->Set_ValuePath(scene.values.Path()));
    QVERIFY(scene.Present().empty());
    scene.values->Append(ResultFrom(70.0));
    QCOMPARE(scene.Present(), Range(33, 35));
}

void tst_resultmarkerlist::letsGoWhenBoundAnew()
{
    Scene const scene;
    TreeValue<ResultList> const others("others");
    TreeNumber const another("another");
    QVERIFY(scene.results->Set_ValuePath(others.Path()));
    QCOMPARE(scene.values->GetObserverCount(), 0);
    QCOMPARE(others->GetObserverCount(), 1);
    QVERIFY(!scene.results->Set_ValuePath(QStringLiteral("/test/unknown")));
    QCOMPARE(others->GetObserverCount(), 0);
    QVERIFY(!scene.results->GetConnected());
    QVERIFY(scene.results->SetSelector_ValuePath(another.Path()));
    QCOMPARE(scene.selector->GetObserverCount(), 0);
    QVERIFY(!scene.results->SetSelector_ValuePath(QString()));
    QCOMPARE(another->GetObserverCount(), 0);
}

void tst_resultmarkerlist::letsGoAtTheEnd()
{
    TreeValue<ResultList> const values("results");
    TreeNumber const selector("selector");
    {
        ResultMarkerList results(nullptr, 33, true, IColorBase::eColorGood, true, 0, QString());
        results.Set_ValuePath(values.Path());
        results.SetSelector_ValuePath(selector.Path());
        QCOMPARE(values->GetObserverCount(), 1);
    }
    QCOMPARE(values->GetObserverCount(), 0);
    QCOMPARE(selector->GetObserverCount(), 0);
}

void tst_resultmarkerlist::resize_data()
{
    QTest::addColumn<int>("n");
    QTest::addColumn<Indices>("present");
    QTest::newRow("none") << 0 << Indices{};
    QTest::newRow("one") << 1 << Range(33, 33);
    QTest::newRow("three") << 3 << Range(33, 35);
    QTest::newRow("eight") << 8 << Range(33, 40);
    QTest::newRow("nine are eight") << 9 << Range(33, 40);
    QTest::newRow("highest") << Highest << Range(33, 40);
    QTest::newRow("negative is none") << -1 << Indices{};
    QTest::newRow("lowest") << Lowest << Indices{};
}

void tst_resultmarkerlist::resize()
{
    QFETCH(int, n);
    QFETCH(Indices, present);
    for (int before = 0; before <= 8; before += 4) {
        Scene const scene;
        scene.results->Resize(before);
        scene.results->Resize(n);
        QCOMPARE(scene.Present(), present);
        QCOMPARE(scene.list.GetShownIndices(), present); // rebuilt
    }
}

void tst_resultmarkerlist::resizeFrom_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<Indices>("present");
    QTest::newRow("0") << 0 << Range(0, 7);
    QTest::newRow("another than 33") << 20 << Range(20, 27);
    QTest::newRow("up to the last id") << 35 << Range(35, 42);
    QTest::newRow("past the last id") << 38 << Range(38, 42);
    QTest::newRow("the last id") << 42 << Range(42, 42);
    QTest::newRow("behind it") << 43 << Indices{};
    QTest::newRow("below 0") << -3 << Range(0, 4);
    QTest::newRow("highest") << Highest << Indices{};
    QTest::newRow("lowest") << Lowest << Indices{};
}

void tst_resultmarkerlist::resizeFrom()
{
    QFETCH(int, first);
    QFETCH(Indices, present);
    Scene const scene(first);
    scene.results->Resize(8);
    QCOMPARE(scene.Present(), present);
    scene.results->Resize(0);
    QCOMPARE(scene.Present(), Indices{});
}

void tst_resultmarkerlist::resizeDeletesTheRest()
{
    Scene scene;
    for (int const id : { 32, 33, 36, 40, 41 })
        scene.list.AddMarker(id);
    scene.results->Resize(1);
    QCOMPARE(scene.Present(), (Indices{ 32, 33, 41 })); // plain markers too
}

void tst_resultmarkerlist::resizeKeepsWhatIsThere()
{
    Scene scene;
    scene.results->Resize(2);
    ResultMarker * const kept = scene.At(33);
    BearingResult const value = ResultFrom(10.0);
    kept->SetMarkerValue(&value, false);
    kept->SetColor(IColorBase::eColorWarning);
    Marker const * const plain = scene.list.AddMarker(35);
    scene.results->Resize(4);
    QCOMPARE(scene.At(33), kept);
    QCOMPARE(kept->GetValue(), 12.0);
    QCOMPARE(kept->GetColor(), IColorBase::eColorWarning);
    QCOMPARE(scene.list.GetMarker(35), plain);
    QVERIFY(!scene.At(35));
    QVERIFY(scene.At(36));
}

void tst_resultmarkerlist::madeAsTold()
{
    TestMarkerList list;
    for (bool const on : { true, false }) {
        ResultMarkerList results(&list, 33, on, on ? IColorBase::eColorGood : IColorBase::eColorWarning, on,
                                 on ? 0x408U : 0x4U, QStringLiteral("Result %1"));
        results.Resize(2);
        Marker const * const marker = list.GetMarker(34);
        QCOMPARE(marker->GetShowMarkerFlag(), on);
        QCOMPARE(marker->GetColor(), on ? IColorBase::eColorGood : IColorBase::eColorWarning);
        QCOMPARE(marker->GetMoveable(), on);
        QCOMPARE(marker->GetSpecial(), on ? 0x408U : 0x4U);
        QCOMPARE(marker->GetMarkerName(), QStringLiteral("Result 1"));
        QCOMPARE(marker->GetValuePath(), QStringLiteral("Result 1"));
        results.Resize(0);
    }
}

void tst_resultmarkerlist::names_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("third");
    QTest::newRow("number at the end") << QStringLiteral("Result %1") << QStringLiteral("Result 2");
    QTest::newRow("number twice") << QStringLiteral("%1 of %1") << QStringLiteral("2 of 2");
    QTest::newRow("another place") << QStringLiteral("R%3") << QStringLiteral("R2");
    QTest::newRow("number of the locale") << QStringLiteral("R%L1") << QStringLiteral("R2");
    QTest::newRow("no place") << QStringLiteral("Result") << QStringLiteral("Result");
    QTest::newRow("per cent") << QStringLiteral("50 % L%L") << QStringLiteral("50 % L%L");
    QTest::newRow("per cent at the end") << QStringLiteral("50%") << QStringLiteral("50%");
    QTest::newRow("empty") << QString() << QString();
}

void tst_resultmarkerlist::names()
{
    QFETCH(QString, name);
    QFETCH(QString, third);
    TestMarkerList list;
    ResultMarkerList results(&list, 33, true, IColorBase::eColorGood, true, 0, name);
    results.Resize(3);
    QCOMPARE(list.GetMarker(35)->GetMarkerName(), third);
}

void tst_resultmarkerlist::handsOverEachEntry()
{
    Scene scene;
    scene.values->SetEntries(Results(3), nullptr);
    QCOMPARE(scene.Present(), Range(33, 35));
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(scene.At(33 + i)->GetValue(0U), 10.0 * i);
        QCOMPARE(scene.At(33 + i)->GetValue(), 10.0 * i + 2);
        QCOMPARE(scene.At(33 + i)->GetStringValue(), QString());
        scene.At(33 + i)->SetShowResult(true);
    }
    QVERIFY(scene.values->IsLast()); // walked to the end
    scene.values->SetEntries({ ResultFrom(50.0, QStringLiteral("fifty")) }, nullptr);
    QCOMPARE(scene.Present(), Range(33, 33));
    QCOMPARE(scene.At(33)->GetValue(), 52.0);
    QCOMPARE(scene.At(33)->GetStringValue(), QStringLiteral("fifty"));
    scene.values->Append(ResultFrom(60.0));
    QCOMPARE(scene.At(34)->GetValue(), 62.0);
}

void tst_resultmarkerlist::nineResults_data()
{
    QTest::addColumn<int>("count");
    QTest::newRow("eight") << 8;
    QTest::newRow("nine") << 9;
    QTest::newRow("eleven, past the last id") << 11;
    QTest::newRow("a thousand") << 1000;
}

void tst_resultmarkerlist::nineResults()
{
    QFETCH(int, count);
    Scene scene;
    scene.values->SetEntries(Results(count), nullptr);
    QCOMPARE(scene.Present(), Range(33, 40));
    QCOMPARE(scene.At(33)->GetValue(), 2.0);
    QCOMPARE(scene.At(40)->GetValue(), 72.0);
    QVERIFY(scene.values->IsLast());
}

//! The walk goes on past the eight markers: who put a result marker there gets a result.
void tst_resultmarkerlist::othersPastTheEighth()
{
    Scene scene;
    Marker * const plain = scene.list.AddMarker(41);
    plain->SetColor(IColorBase::eColorWarning);
    ResultMarker * const result =
        scene.list.AddResultMarker(42, true, IColorBase::eColorWarning, true, 0, QStringLiteral("own"));
    scene.values->SetEntries(Results(12), nullptr);
    QCOMPARE(plain->GetColor(), IColorBase::eColorWarning);
    QCOMPARE(plain->GetValue(), 0.0);
    QCOMPARE(result->GetValue(), 92.0);
    QCOMPARE(result->GetColor(), IColorBase::eColorResult);
    QCOMPARE(result->GetMarkerName(), QStringLiteral("own"));
}

//! Resize() and the walk address different markers then.
void tst_resultmarkerlist::walksFromAFixedId()
{
    Scene scene(10);
    ResultMarker * const at33 =
        scene.list.AddResultMarker(33, true, IColorBase::eColorWarning, true, 0, QStringLiteral("own"));
    scene.values->SetEntries(Results(2), nullptr);
    QCOMPARE(scene.Present(), (Indices{ 10, 11, 33 }));
    QCOMPARE(scene.At(10)->GetValue(), -1.0);
    QCOMPARE(scene.At(10)->GetColor(), IColorBase::eColorGood);
    QCOMPARE(scene.At(11)->GetValue(), -1.0);
    QCOMPARE(at33->GetValue(), 2.0);
    QCOMPARE(at33->GetColor(), IColorBase::eColorSelectedResult);
}

void tst_resultmarkerlist::highlight_data()
{
    QTest::addColumn<int>("selected");
    QTest::addColumn<Indices>("colors");
    QTest::newRow("first, as at the start") << 0 << Indices{ 36, 34, 34 };
    QTest::newRow("second") << 1 << Indices{ 34, 36, 34 };
    QTest::newRow("last") << 2 << Indices{ 34, 34, 36 };
    QTest::newRow("past the last") << 3 << Indices{ 34, 34, 34 };
    QTest::newRow("none") << -1 << Indices{ 34, 34, 34 };
    QTest::newRow("highest") << Highest << Indices{ 34, 34, 34 };
    QTest::newRow("lowest") << Lowest << Indices{ 34, 34, 34 };
    QTest::newRow("an id is no index") << 33 << Indices{ 34, 34, 34 };
}

void tst_resultmarkerlist::highlight()
{
    QFETCH(int, selected);
    QFETCH(Indices, colors);
    Scene scene;
    scene.selector->SetValue(selected, nullptr);
    scene.values->SetEntries(Results(3), nullptr);
    QCOMPARE(scene.Colors(), colors);
}

void tst_resultmarkerlist::selectorShowsWithTheNextChange()
{
    Scene scene;
    scene.values->SetEntries(Results(2), nullptr);
    scene.list.Forget();
    scene.selector->SetValue(1, nullptr);
    QCOMPARE(scene.Colors(), (Indices{ 36, 34 }));
    QVERIFY(scene.list.m_calls.isEmpty());
    scene.values->Append(ResultFrom(70.0));
    QCOMPARE(scene.Colors(), (Indices{ 34, 36, 34 }));
}

void tst_resultmarkerlist::numericSelectors()
{
    Scene scene;
    TreeNumber const fraction("fraction", 1.9);
    TreeValue<ValueNumeric<long long>> const wide("wide");
    wide->SetValue(2, nullptr);
    QVERIFY(scene.results->SetSelector_ValuePath(fraction.Path())); // taken at once
    scene.values->SetEntries(Results(3), nullptr);
    QCOMPARE(scene.Colors(), (Indices{ 34, 36, 34 }));
    QVERIFY(scene.results->SetSelector_ValuePath(wide.Path()));
    scene.values->Append(ResultFrom(70.0));
    QCOMPARE(scene.Colors(), (Indices{ 34, 34, 36, 34 }));
}

void tst_resultmarkerlist::firstIsSelectedWithoutSelector()
{
    TreeValue<ResultList> const values("results");
    TestMarkerList list;
    list.show();
    ResultMarkerList results(&list, 33, true, IColorBase::eColorGood, true, 0, QString());
    results.Set_ValuePath(values.Path());
    values->SetEntries(Results(2), nullptr);
    QCOMPARE(static_cast<int>(list.GetMarker(33)->GetColor()), 36);
    QCOMPARE(static_cast<int>(list.GetMarker(34)->GetColor()), 34);
}

void tst_resultmarkerlist::hiddenParent()
{
    Scene scene;
    scene.values->SetEntries(Results(2), nullptr);
    scene.list.hide();
    scene.list.Forget();
    scene.selector->SetValue(1, nullptr);
    scene.values->SetEntries(Results(5), nullptr);
    QCOMPARE(scene.Present(), Range(33, 34));
    QCOMPARE(scene.At(33)->GetValue(), 2.0);
    QVERIFY(scene.list.m_calls.isEmpty());
    scene.list.show();
    QCOMPARE(scene.Present(), Range(33, 34)); // nothing is caught up with
    scene.values->SetEntries(Results(3), nullptr);
    QCOMPARE(scene.Colors(), (Indices{ 36, 34, 34 })); // the selector was not heard either
    scene.selector->SetValue(2, nullptr);
    scene.values->SetEntries(Results(4), nullptr);
    QCOMPARE(scene.Colors(), (Indices{ 34, 34, 36, 34 }));
    scene.list.hide();
    scene.values.Remove(); // heard all the same
    QVERIFY(!scene.results->GetConnected());
}

void tst_resultmarkerlist::selectorOfAHiddenParent()
{
    Scene scene;
    TreeNumber const other("other", 1.0);
    scene.list.hide();
    QVERIFY(scene.results->SetSelector_ValuePath(other.Path()));
    scene.list.show();
    scene.values->SetEntries(Results(2), nullptr);
    QCOMPARE(scene.Colors(), (Indices{ 36, 34 })); // what it said meanwhile was not taken
    scene.list.hide();
    other->SetState(eStateGoingAway, nullptr); // heard all the same
    QCOMPARE(other->GetObserverCount(), 0);
}

void tst_resultmarkerlist::otherCodesAndSubjects()
{
    Scene scene;
    TreeValue<ResultList> const stranger("stranger");
    scene.values->SetEntries(Results(1), nullptr);
    scene.list.DeleteMarker(33);
    scene.list.Forget();
    for (TChangeCode const code : { eValueChanged, eRangeChanged, eInterimChanged })
        scene.values->HasChanged(code, nullptr);
    scene.selector->HasChanged(eItemsChanged, nullptr);
    for (TChangeCode const code : { eStateChanged, eValueChanged, eItemsChanged }) {
        scene.results->Update(nullptr, code);
        scene.results->Update(stranger.Get(), code);
    }
    scene.results->Set_ValuePath(QString());
    scene.results->SetSelector_ValuePath(QString());
    scene.results->Update(nullptr, eItemsChanged); // an empty field is nobody
    scene.results->Update(nullptr, eValueChanged);
    QVERIFY(scene.Present().empty());
    QVERIFY(scene.list.m_calls.isEmpty());
}

void tst_resultmarkerlist::repaintsOnce()
{
    Scene scene;
    scene.values->SetEntries(Results(4), nullptr);
    scene.list.Forget();
    scene.values->SetEntries({ ResultFrom(1.0), ResultFrom(2.0), ResultFrom(3.0), ResultFrom(4.0) }, nullptr);
    QCOMPARE(scene.list.m_calls, QStringList{ QStringLiteral("updateWidget") });
}

void tst_resultmarkerlist::emptied()
{
    Scene scene;
    scene.values->SetEntries(Results(4), nullptr);
    scene.list.Forget();
    scene.values->Clear(nullptr);
    QVERIFY(scene.Present().empty());
    QVERIFY(scene.list.GetShownMarkers().empty());
    QCOMPARE(scene.list.m_calls, QStringList{ QStringLiteral("updateWidget") });
}

void tst_resultmarkerlist::departureOfTheList()
{
    Scene scene;
    scene.values->SetEntries(Results(2), nullptr);
    scene.values.Remove();
    QVERIFY(!scene.results->GetConnected());
    QCOMPARE(scene.Present(), Range(33, 34)); // the last results stay
    QCOMPARE(scene.At(33)->GetValue(), 2.0);
    scene.selector->SetValue(1, nullptr);
    scene.results->Resize(3);
    QCOMPARE(scene.Present(), Range(33, 35));
}

void tst_resultmarkerlist::departureOfTheSelector()
{
    Scene scene;
    scene.selector->SetValue(1, nullptr);
    scene.selector.Remove();
    QVERIFY(scene.results->GetConnected());
    scene.values->SetEntries(Results(2), nullptr);
    QCOMPARE(scene.Colors(), (Indices{ 34, 36 })); // the last index stays
}

void tst_resultmarkerlist::otherStates()
{
    Scene scene;
    scene.values->SetState(eStateDisabled, nullptr);
    scene.selector->SetState(eStateDisabled, nullptr);
    QVERIFY(scene.results->GetConnected());
    scene.selector->SetValue(1, nullptr);
    scene.values->SetEntries(Results(2), nullptr);
    QCOMPARE(scene.Colors(), (Indices{ 34, 36 }));
    scene.values->SetState(eStateGoingAway, nullptr);
    QVERIFY(!scene.results->GetConnected());
    QCOMPARE(scene.values->GetObserverCount(), 0);
    scene.selector->SetState(eStateGoingAway, nullptr);
    QCOMPARE(scene.selector->GetObserverCount(), 0);
}

void tst_resultmarkerlist::awayAndBack()
{
    Scene scene;
    scene.values->SetEntries(Results(2), nullptr);
    for (int turn = 0; turn < 100; ++turn) {
        scene.values.Remove();
        scene.selector.Remove();
        scene.values.Return();
        scene.selector.Return();
        scene.selector->SetValue(1, nullptr);
        scene.values->SetEntries(Results(5), nullptr);
        QVERIFY(!scene.results->GetConnected()); // nothing is bound by itself
        QCOMPARE(scene.values->GetObserverCount() + scene.selector->GetObserverCount(), 0);
        QCOMPARE(scene.Present(), Range(33, 34));
        QVERIFY(scene.results->Set_ValuePath(scene.values.Path()));
        QVERIFY(scene.results->SetSelector_ValuePath(scene.selector.Path()));
        scene.values->SetEntries(Results(2), nullptr);
        QCOMPARE(scene.Colors(), (Indices{ 34, 36 }));
    }
}

void tst_resultmarkerlist::withoutParent()
{
    TreeValue<ResultList> const values("results");
    TreeNumber const selector("selector");
    ResultMarkerList results(nullptr, 33, true, IColorBase::eColorGood, true, 0, QString());
    results.Resize(8);
    QVERIFY(results.Set_ValuePath(values.Path()));
    QVERIFY(results.SetSelector_ValuePath(selector.Path()));
    values->SetEntries(Results(3), nullptr);
    {
        TestMarkerList list;
        list.show();
        results.SetParent(&list);
        values->SetEntries(Results(4), nullptr);
        QVERIFY(list.isIndexValid(36));
    }
    QVERIFY(!results.GetParent()); // it has ended
    values->SetEntries(Results(5), nullptr);
    selector->SetValue(1.0, nullptr);
    results.Resize(8);
    QVERIFY(results.GetConnected());
}

void tst_resultmarkerlist::anotherParent()
{
    Scene scene;
    TestMarkerList other;
    other.show();
    scene.values->SetEntries(Results(1), nullptr);
    scene.results->SetParent(&other);
    QCOMPARE(scene.results->GetParent(), &other);
    scene.values->SetEntries(Results(2), nullptr);
    QCOMPARE(scene.Present(), Range(33, 33)); // markers made before stay
    QVERIFY(other.isIndexValid(34));
}

void tst_resultmarkerlist::endsWhileToldOfMarkers_data()
{
    QTest::addColumn<int>("what");
    QTest::newRow("parent") << 0;
    QTest::newRow("list of results") << 1;
    QTest::newRow("selector") << 2;
    QTest::newRow("marker") << 3;
    QTest::newRow("the object itself") << 4;
}

//! Hidden markers are told to others, who may end anything.
void tst_resultmarkerlist::endsWhileToldOfMarkers()
{
    QFETCH(int, what);
    TreeValue<ResultList> values("results");
    TreeNumber selector("selector");
    auto * const list = new TestMarkerList;
    QPointer<TestMarkerList> const guard(list);
    list->show();
    auto results =
        std::make_unique<ResultMarkerList>(list, 33, false, IColorBase::eColorGood, true, 0, QStringLiteral("%1"));
    results->Set_ValuePath(values.Path());
    results->SetSelector_ValuePath(selector.Path());
    int told = 0;
    connect(list, &MarkerList::signalSetState, this, [&](QString const & path) {
        if (++told != 3)
            return;
        QCOMPARE(path, QStringLiteral("2"));
        if (what == 0)
            delete list;
        else if (what == 1)
            values.Remove();
        else if (what == 2)
            selector.Remove();
        else if (what == 3)
            list->DeleteMarker(35);
        else
            results.reset();
    });
    values->SetEntries(Results(5), nullptr);
    if (what == 0) {
        QVERIFY(!guard);
        QCOMPARE(told, 3);
        return;
    }
    QCOMPARE(told, what == 4 ? 3 : 5);
    QCOMPARE(list->isIndexValid(37), what != 4);
    QCOMPARE(list->isIndexValid(35), what != 3);
    if (what == 2 || what == 3)
        QCOMPARE(list->GetMarkerValue(37), 42.0);
    delete list;
}

//! What was begun for a longer list is not finished over a shorter one.
void tst_resultmarkerlist::shrinksWhileToldOfMarkers()
{
    Scene scene(33, false);
    bool first = true;
    connect(&scene.list, &MarkerList::signalSetState, this, [&] {
        if (first) {
            first = false;
            scene.values->SetEntries(Results(2), nullptr);
        }
    });
    scene.values->SetEntries(Results(6), nullptr);
    QCOMPARE(scene.Present(), Range(33, 34));
    QCOMPARE(scene.At(34)->GetValue(), 12.0);
}

void tst_resultmarkerlist::specialDoublesAsSelector()
{
    Scene scene;
    TreeNumber const number("number");
    QVERIFY(scene.results->SetSelector_ValuePath(number.Path()));
    for (double const value : SpecialDoubles()) {
        number->SetValue(value, nullptr);
        scene.values->SetEntries(Results(1), nullptr);
        bool const isFirst = std::abs(number->GetValue()) < 1.0;
        QCOMPARE(scene.Colors(), (Indices{ isFirst ? 36 : 34 }));
        scene.values->SetEntries(Results(2), nullptr);
    }
}

ORIM_TEST_MAIN(tst_resultmarkerlist)
#include "tst_resultmarkerlist.moc"
