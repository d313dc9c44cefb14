// SPDX-License-Identifier: MIT
#include "marker.h"

#include "testmain.h"
#include "testmarkerlist.h"

#include <functional>
#include <limits>
#include <map>

namespace {

//! What may go on while something is deleted, by the name of its row.
std::map<QString, std::function<void()>> Operations(TestMarkerList & list, Marker & marker, TreeNumber & number)
{
    return {
        { QStringLiteral("SetValue"), [&] { marker.SetValue(7.0); } },
        { QStringLiteral("SetMovingValue"), [&] { marker.SetMovingValue(7.0); } },
        { QStringLiteral("EndMoving"), [&] { marker.EndMoving(); } },
        { QStringLiteral("Update"), [&] { marker.Update(); } },
        { QStringLiteral("SetShowMarker"), [&] { marker.SetShowMarker(false, false); } },
        { QStringLiteral("SetMoving"), [&] { marker.SetMoving(true, false); } },
        { QStringLiteral("SetCurrentMarker"), [&] { marker.SetCurrentMarker(true, false); } },
        { QStringLiteral("Move2NextPixel"), [&] { marker.Move2NextPixel(true); } },
        { QStringLiteral("Set_ValuePath"), [&] { marker.Set_ValuePath(number.Path()); } },
        { QStringLiteral("value"), [&] { number->SetValue(7.0, nullptr); } },
        { QStringLiteral("interim value"), [&] { number->SetInterimValue(7.0, nullptr); } },
        { QStringLiteral("state"), [&] { number->SetState(eStateDisabled, nullptr); } },
        { QStringLiteral("offset"), [&] { marker.SetOffset_ValuePath(number.Path()); } },
        { QStringLiteral("list SetCurrentMarker"), [&] { list.SetCurrentMarker(3, true); } },
        { QStringLiteral("list AddMarker"),
          [&] { list.AddMarker(3, false, IColorBase::eColorMarker, true, 0, QString()); } },
        { QStringLiteral("list EndMoving"), [&] { list.SetMarkerEndMoving(-1); } },
        { QStringLiteral("list SetMarkerValue"), [&] { list.SetMarkerValue(3, 7.0); } },
        { QStringLiteral("timer"),
          [&] {
              marker.SetMoving(true, true);
              list.Fire(marker.GetTimerID());
          } },
        { QStringLiteral("wheel"),
          [&] {
              marker.SetMoving(true, true);
              marker.SetCurrentMarker(true, true);
              list.Wheel(120);
          } },
        { QStringLiteral("show"),
          [&] {
              QShowEvent event;
              list.eventFilter(&list, &event);
          } },
    };
}

} // namespace

class tst_marker_steps : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void steps_data();
    void steps();
    void stepIsAnInterimValue();
    void stepAsksInItsDirection_data();
    void stepAsksInItsDirection();
    void stepOverACoarseGrid();
    void stepBehindTheLimitEnds();
    void stepFromTheCachedPixel();
    void stepWithoutPlace_data();
    void stepWithoutPlace();
    void deletedInside_data();
    void deletedInside();
};

void tst_marker_steps::steps_data()
{
    QTest::addColumn<unsigned int>("special");
    QTest::addColumn<bool>("forward");
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<double>("value");
    QTest::addColumn<bool>("moved");
    QTest::addColumn<double>("expected");
    unsigned int const x = eSpecialX;
    unsigned int const y = eSpecialY;
    QTest::newRow("X forward") << x << true << 0.0 << 100.0 << 50.0 << true << 51.0;
    QTest::newRow("X backward") << x << false << 0.0 << 100.0 << 50.0 << true << 49.0;
    QTest::newRow("Y forward is a pixel up") << y << true << 0.0 << 100.0 << 50.0 << true << 49.0;
    QTest::newRow("Y backward") << y << false << 0.0 << 100.0 << 50.0 << true << 51.0;
    QTest::newRow("neither is not reversed") << 0U << true << 0.0 << 100.0 << 50.0 << true << 51.0;
    QTest::newRow("both are reversed") << (x | y) << true << 0.0 << 100.0 << 50.0 << true << 49.0;
    QTest::newRow("at the stop it stays in the range") << x << true << 0.0 << 100.0 << 100.0 << true << 100.0;
    QTest::newRow("at the start it stays in the range") << x << false << 10.0 << 110.0 << 10.0 << true << 10.0;
    QTest::newRow("-1.0 is no mapping") << x << false << 0.0 << 100.0 << 0.0 << false << 0.0;
    QTest::newRow("reversed range") << x << true << 110.0 << 10.0 << 60.0 << true << 59.0;
    QTest::newRow("reversed range at its stop") << x << true << 110.0 << 10.0 << 10.0 << true << 10.0;
    QTest::newRow("outside the axis") << x << true << 0.0 << 100.0 << 200.0 << false << 200.0;
    QTest::newRow("below the axis") << x << true << 0.0 << 100.0 << -5.0 << false << -5.0;
}

void tst_marker_steps::steps()
{
    QFETCH(unsigned int, special);
    QFETCH(bool, forward);
    QFETCH(double, start);
    QFETCH(double, stop);
    QFETCH(double, value);
    QFETCH(bool, moved);
    QFETCH(double, expected);
    MarkerScene scene(value);
    scene.list.m_start = start;
    scene.list.m_stop = stop;
    scene.Bind();
    scene.marker->SetSpecial(special);
    scene.marker->SetPixel(-1);
    QCOMPARE(scene.marker->Move2NextPixel(forward), moved);
    QCOMPARE(scene.marker->GetValue(), expected);
    QCOMPARE(scene.marker->GetPixel(), -1);
}

void tst_marker_steps::stepIsAnInterimValue()
{
    MarkerScene scene(50.0);
    scene.Bind();
    scene.marker->SetSpecial(eSpecialX);
    scene.marker->SetPixel(50);
    QVERIFY(scene.marker->Move2NextPixel(true));
    QCOMPARE(scene.number->GetValue(), 50.0);
    QCOMPARE(scene.number->GetInterimValue(), 51.0);
    QVERIFY(scene.marker->Changing());
    QVERIFY(scene.marker->IsMoving());
    QCOMPARE(scene.marker->GetPixel(), -1);
    QVERIFY(scene.marker->Move2NextPixel(true));
    QCOMPARE(scene.number->GetInterimValue(), 52.0);
    scene.marker->EndMoving();
    QCOMPARE(scene.number->GetValue(), 52.0);
}

void tst_marker_steps::stepAsksInItsDirection_data()
{
    QTest::addColumn<unsigned int>("special");
    QTest::addColumn<int>("direction");
    QTest::newRow("X") << unsigned(eSpecialX) << 0;
    QTest::newRow("Y") << unsigned(eSpecialY) << 1;
    QTest::newRow("both") << unsigned(eSpecialX | eSpecialY) << 0;
    QTest::newRow("neither") << 0U << 1;
}

void tst_marker_steps::stepAsksInItsDirection()
{
    QFETCH(unsigned int, special);
    QFETCH(int, direction);
    MarkerScene scene(50.0);
    scene.Bind();
    scene.marker->SetSpecial(special);
    scene.marker->SetPixel(-1);
    scene.list.Forget();
    QVERIFY(scene.marker->Move2NextPixel(true));
    QVERIFY(scene.list.m_asked.size() >= 4);
    for (int const asked : scene.list.m_asked)
        QCOMPARE(asked, direction);
}

void tst_marker_steps::stepOverACoarseGrid()
{
    MarkerScene scene(50.0);
    scene.number->SetMinMax(0.0, 100.0, 10.0, nullptr);
    scene.Bind();
    scene.marker->SetSpecial(eSpecialX);
    scene.marker->SetPixel(-1);
    QVERIFY(scene.marker->Move2NextPixel(true));
    QCOMPARE(scene.marker->GetValue(), 60.0);
    QVERIFY(scene.marker->Move2NextPixel(false));
    QCOMPARE(scene.marker->GetValue(), 50.0);
    QVERIFY(scene.marker->Move2NextPixel(false));
    QCOMPARE(scene.marker->GetValue(), 40.0);
}

void tst_marker_steps::stepBehindTheLimitEnds()
{
    MarkerScene scene(50.0);
    scene.number->SetMinMax(0.0, 50.0, 0.0, nullptr);
    scene.Bind();
    scene.marker->SetSpecial(eSpecialX);
    scene.marker->SetPixel(-1);
    scene.list.Forget();
    QVERIFY(!scene.marker->Move2NextPixel(true));
    QCOMPARE(scene.marker->GetValue(), 50.0);
    QCOMPARE(scene.marker->GetPixel(), -1);
    QVERIFY(scene.list.m_asked.size() < 10000);
    // a far pixel that is allowed is still found
    scene.list.m_pixels = 5001;
    scene.number->SetMinMax(0.0, 100.0, 50.0, nullptr);
    scene.marker->SetPixel(-1);
    QVERIFY(scene.marker->Move2NextPixel(true));
    QCOMPARE(scene.marker->GetValue(), 100.0);
}

void tst_marker_steps::stepFromTheCachedPixel()
{
    MarkerScene scene(50.0);
    scene.Bind();
    scene.marker->SetSpecial(eSpecialX);
    scene.marker->SetPixel(20);
    QVERIFY(scene.marker->Move2NextPixel(true));
    QCOMPARE(scene.marker->GetValue(), 21.0);
}

void tst_marker_steps::stepWithoutPlace_data()
{
    QTest::addColumn<int>("pixel");
    QTest::newRow("below none") << -2;
    QTest::newRow("lowest") << std::numeric_limits<int>::min();
    QTest::newRow("highest") << std::numeric_limits<int>::max();
}

void tst_marker_steps::stepWithoutPlace()
{
    QFETCH(int, pixel);
    MarkerScene scene(50.0);
    scene.Bind();
    scene.marker->SetPixel(pixel);
    QVERIFY(!scene.marker->Move2NextPixel(true));
    scene.marker->SetPixel(pixel);
    QVERIFY(!scene.marker->Move2NextPixel(false));
    QCOMPARE(scene.marker->GetValue(), 50.0);
}

void tst_marker_steps::deletedInside_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("target");
    QTest::addColumn<bool>("first");
    for (char const * operation : { "SetValue",
                                    "SetMovingValue",
                                    "EndMoving",
                                    "Update",
                                    "SetShowMarker",
                                    "SetMoving",
                                    "SetCurrentMarker",
                                    "Move2NextPixel",
                                    "Set_ValuePath",
                                    "value",
                                    "interim value",
                                    "state",
                                    "offset",
                                    "list SetCurrentMarker",
                                    "list AddMarker",
                                    "list EndMoving",
                                    "list SetMarkerValue",
                                    "timer",
                                    "wheel",
                                    "show" })
        for (char const * target : { "marker", "list", "value" })
            for (bool const first : { true, false })
                QTest::addRow("%s, %s is deleted, heard %s the marker", operation, target, first ? "before" : "after")
                    << QString::fromLatin1(operation) << QString::fromLatin1(target) << first;
}

void tst_marker_steps::deletedInside()
{
    QFETCH(QString, operation);
    QFETCH(QString, target);
    QFETCH(bool, first);
    TreeNumber number("number", 50.0);
    auto * const list = new TestMarkerList;
    QPointer<MarkerList> const guard(list);
    list->show();
    Marker * const marker = list->AddMarker(3, true, IColorBase::eColorMarker, true, eSpecialX | eSpecialShowMoving,
                                            QStringLiteral("marker"));
    list->AddMarker(4);
    marker->Set_ValuePath(number.Path());
    marker->SetOffset_ValuePath(number.Path());
    marker->SetMoving(false, true);
    number->SetInterimValue(60.0, marker);
    Meddler meddler([&] {
        if (target == QLatin1String("marker"))
            list->DeleteMarker(3);
        else if (target == QLatin1String("list"))
            delete list;
        else
            number.Remove();
    });
    if (operation == QLatin1String("timer"))
        number->CommitInterimValue(marker);
    if (operation == QLatin1String("show"))
        list->hide();
    number->AddObserver(&meddler);
    if (first)
        number->MakeFirstObserver(&meddler);
    QObject context;
    connect(list, &MarkerList::signalSetState, &context, [&] { meddler.Act(); });
    Operations(*list, *marker, number).at(operation)();
    QCOMPARE(guard.isNull(), target == QLatin1String("list"));
    if (guard && target == QLatin1String("marker"))
        QVERIFY(!list->GetMarker(3));
    if (guard && target == QLatin1String("value"))
        QVERIFY(!list->GetMarker(3)->GetConnected());
    delete guard.data();
}

ORIM_TEST_MAIN(tst_marker_steps)
#include "tst_marker_steps.moc"
