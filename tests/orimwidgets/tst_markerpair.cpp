// SPDX-License-Identifier: MIT
#include "markerpair.h"

#include "testmain.h"
#include "testmarkerlist.h"

#include <QPen>

#include <limits>
#include <memory>
#include <optional>
#include <type_traits>

namespace {

static_assert(std::is_constructible_v<MarkerPair, Marker *, Marker *>);
static_assert(std::is_copy_constructible_v<MarkerPair> && std::is_copy_assignable_v<MarkerPair>);
static_assert(std::is_same_v<decltype(&MarkerList::AddMarkerPair), MarkerPair * (MarkerList::*)(int, int)>);

//! A list with an X marker at 3 and a Y marker at 4.
struct Crossing
{
    Crossing()
    {
        x = list.AddMarker(3, true, IColorBase::eColorWarning, true, eSpecialX, QString());
        y = list.AddMarker(4, true, IColorBase::eColorGood, true, eSpecialY, QString());
        x->SetPixel(30);
        y->SetPixel(40);
    }

    TestMarkerList list;
    Marker * x;
    Marker * y;
};

} // namespace

class tst_MarkerPair : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void startsHidden();
    void showFlagIsItsOwn();
    void readsPixels();
    void penOfTheXMarker();
    void penIsMadeAnew();
    void copies();
    void ownsNeitherMarker();
    void eachCallMakesAPair();
    void missingMarker_data();
    void missingMarker();
    void markerThatEnds_data();
    void markerThatEnds();
    void markerThatFollowsAtTheIndex();
    void markerThatIsAddedAgain();
    void copyOutlivesTheList();
    void readInTheMiddleOfAnEnd();
};

void tst_MarkerPair::startsHidden()
{
    Crossing crossing;
    QCOMPARE(crossing.list.AddMarkerPair(3, 4)->GetShowMarker(), false);
    QCOMPARE(MarkerPair(crossing.x, crossing.y).GetShowMarker(), false);
}

void tst_MarkerPair::showFlagIsItsOwn()
{
    Crossing crossing;
    MarkerPair * const pair = crossing.list.AddMarkerPair(3, 4);
    crossing.list.SetShowMarker(3, false);
    pair->SetShowMarker(true);
    QVERIFY(pair->GetShowMarker());
    QVERIFY(!crossing.x->GetShowMarkerFlag());
    QVERIFY(crossing.y->GetShowMarkerFlag());
    crossing.list.SetShowMarker(3, true);
    pair->SetShowMarker(false);
    QVERIFY(!pair->GetShowMarker());
    QVERIFY(crossing.x->GetShowMarkerFlag());
}

void tst_MarkerPair::readsPixels()
{
    Crossing crossing;
    MarkerPair const * const pair = crossing.list.AddMarkerPair(3, 4);
    QCOMPARE(pair->XPixel(), 30);
    QCOMPARE(pair->YPixel(), 40);
    crossing.x->SetPixel(31);
    QCOMPARE(pair->XPixel(), 31);
    QCOMPARE(pair->YPixel(), 40);
    crossing.y->InvalidatePixel();
    QCOMPARE(pair->XPixel(), 31);
    QCOMPARE(pair->YPixel(), -1);
    MarkerPair const * const turned = crossing.list.AddMarkerPair(4, 3);
    QCOMPARE(turned->XPixel(), -1);
    QCOMPARE(turned->YPixel(), 31);
    MarkerPair const * const same = crossing.list.AddMarkerPair(3, 3);
    QCOMPARE(same->XPixel(), same->YPixel());
}

void tst_MarkerPair::penOfTheXMarker()
{
    Crossing crossing;
    MarkerPair const * const pair = crossing.list.AddMarkerPair(3, 4);
    QPen * const pen = pair->GetPen();
    QVERIFY(pen);
    QCOMPARE(pen->color(), crossing.x->GetQColor());
    QCOMPARE(pen, crossing.x->GetPen()); // made once
    QVERIFY(pen != crossing.y->GetPen());
}

void tst_MarkerPair::penIsMadeAnew()
{
    Crossing crossing;
    MarkerPair const * const pair = crossing.list.AddMarkerPair(3, 4);
    QCOMPARE(pair->GetPen()->color(), crossing.x->GetQColor());
    crossing.list.SetMarkerColor(3, IColorBase::eColorResult);
    QCOMPARE(pair->GetPen()->color(), crossing.x->GetQColor());
}

void tst_MarkerPair::copies()
{
    Crossing crossing;
    MarkerPair * const pair = crossing.list.AddMarkerPair(3, 4);
    pair->SetShowMarker(true);
    MarkerPair copy(*pair);
    MarkerPair assigned(nullptr, nullptr);
    assigned = *pair;
    for (MarkerPair * const other : { &copy, &assigned }) {
        QVERIFY(other->GetShowMarker());
        QCOMPARE(other->XPixel(), 30);
        QCOMPARE(other->YPixel(), 40);
        QCOMPARE(other->GetPen(), pair->GetPen());
        other->SetShowMarker(false);
        QVERIFY(pair->GetShowMarker());
    }
}

void tst_MarkerPair::ownsNeitherMarker()
{
    Crossing crossing;
    LifeWatch const x(crossing.x->GetObserverLifetime());
    LifeWatch const y(crossing.y->GetObserverLifetime());
    std::make_unique<MarkerPair>(crossing.x, crossing.y).reset();
    QVERIFY(!x.IsOver());
    QVERIFY(!y.IsOver());
}

void tst_MarkerPair::eachCallMakesAPair()
{
    Crossing crossing;
    MarkerPair * const first = crossing.list.AddMarkerPair(3, 4);
    for (int i = 0; i < 100; ++i)
        crossing.list.AddMarkerPair(4, 3)->SetShowMarker(true);
    QVERIFY(first != crossing.list.AddMarkerPair(3, 4));
    QVERIFY(!first->GetShowMarker()); // stays where it is
    QCOMPARE(first->XPixel(), 30);
}

void tst_MarkerPair::missingMarker_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("no marker there") << 5;
    QTest::newRow("one before the first") << -1;
    QTest::newRow("one past the last") << 43;
    QTest::newRow("largest") << std::numeric_limits<int>::max();
    QTest::newRow("lowest") << std::numeric_limits<int>::min();
}

void tst_MarkerPair::missingMarker()
{
    QFETCH(int, index);
    Crossing crossing;
    MarkerPair const * const noX = crossing.list.AddMarkerPair(index, 4);
    QCOMPARE(noX->XPixel(), -1);
    QCOMPARE(noX->YPixel(), 40);
    QVERIFY(!noX->GetPen());
    MarkerPair const * const noY = crossing.list.AddMarkerPair(3, index);
    QCOMPARE(noY->XPixel(), 30);
    QCOMPARE(noY->YPixel(), -1);
    QVERIFY(noY->GetPen());
    MarkerPair * const none = crossing.list.AddMarkerPair(index, index);
    QCOMPARE(none->XPixel(), -1);
    QCOMPARE(none->YPixel(), -1);
    QVERIFY(!none->GetPen());
    none->SetShowMarker(true);
    QVERIFY(none->GetShowMarker());
}

void tst_MarkerPair::markerThatEnds_data()
{
    QTest::addColumn<bool>("byTheList");
    QTest::newRow("by the list") << true;
    QTest::newRow("by somebody else") << false;
}

void tst_MarkerPair::markerThatEnds()
{
    QFETCH(bool, byTheList);
    Crossing crossing;
    MarkerPair const * const pair = crossing.list.AddMarkerPair(3, 4);
    auto const end = [&](int id) { byTheList ? crossing.list.DeleteMarker(id) : delete crossing.list.GetMarker(id); };
    end(3);
    QCOMPARE(pair->XPixel(), -1);
    QVERIFY(!pair->GetPen());
    QCOMPARE(pair->YPixel(), 40);
    end(4);
    QCOMPARE(pair->YPixel(), -1);
}

void tst_MarkerPair::markerThatFollowsAtTheIndex()
{
    Crossing crossing;
    MarkerPair const * const pair = crossing.list.AddMarkerPair(3, 4);
    crossing.list.DeleteMarker(3);
    crossing.list.AddMarker(3)->SetPixel(33);
    QCOMPARE(pair->XPixel(), -1); // is another marker
    QCOMPARE(crossing.list.AddMarkerPair(3, 4)->XPixel(), 33);
}

void tst_MarkerPair::markerThatIsAddedAgain()
{
    Crossing crossing;
    MarkerPair const * const pair = crossing.list.AddMarkerPair(3, 4);
    QCOMPARE(crossing.list.AddMarker(3), crossing.x);
    crossing.x->SetPixel(33);
    QCOMPARE(pair->XPixel(), 33);
}

void tst_MarkerPair::copyOutlivesTheList()
{
    std::optional<Crossing> crossing(std::in_place);
    MarkerPair const copy(*crossing->list.AddMarkerPair(3, 4));
    QCOMPARE(copy.XPixel(), 30);
    crossing.reset();
    QCOMPARE(copy.XPixel(), -1);
    QCOMPARE(copy.YPixel(), -1);
    QVERIFY(!copy.GetPen());
}

void tst_MarkerPair::readInTheMiddleOfAnEnd()
{
    TreeNumber number("number");
    Crossing crossing;
    MarkerPair const * const pair = crossing.list.AddMarkerPair(3, 4);
    crossing.list.SetMarker_ValuePath(3, number.Path());
    crossing.x->SetPixel(30);
    QList<int> pixels;
    Meddler meddler([&] {
        crossing.list.DeleteMarker(3);
        pixels << pair->XPixel() << pair->YPixel();
    });
    number->AddObserver(&meddler);
    number.Remove();
    QCOMPARE(pixels, QList<int>({ -1, 40 }));
}

ORIM_TEST_MAIN(tst_MarkerPair)
#include "tst_markerpair.moc"
