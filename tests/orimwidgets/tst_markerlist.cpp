// SPDX-License-Identifier: MIT
#include "markerlist.h"

#include "testmain.h"
#include "testmarkerlist.h"

#include <QBrush>
#include <QMetaMethod>
#include <QSignalSpy>

#include <limits>
#include <memory>
#include <type_traits>

namespace {

//! Shows what panes keep.
class OpenList : public TestMarkerList
{
public:
    using MarkerList::m_pMoveRange;
    using TestMarkerList::TestMarkerList;
};

//! Counts how often it is painted.
class PaintedList : public TestMarkerList
{
public:
    int m_paints = 0;

protected:
    void paintEvent(QPaintEvent * /*event*/) override { ++m_paints; }
};

static_assert(std::is_base_of<QWidget, MarkerList>::value && std::is_base_of<Control, MarkerList>::value &&
                  std::is_base_of<IObserver, MarkerList>::value && std::is_base_of<VC, MarkerList>::value,
              "a list is all of these");

//! Has the base for undo twice, which is one only because it is virtual.
class TwiceUndone : public TestMarkerList, public virtual UndoRecordingControlBase
{};

static_assert(std::is_convertible<TwiceUndone *, UndoRecordingControlBase *>::value, "a virtual base");

using Indices = std::vector<int>;

IColorBase::ECOLOR Color(int number) { return static_cast<IColorBase::ECOLOR>(number); }

} // namespace

class tst_markerlist : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { qRegisterMetaType<EMarkerState>("EMarkerState"); }

    void startsWith();
    void virtualOperationsKeepTheirOrder();
    void emptyOperations();
    void signalsKeepTheirNames_data();
    void signalsKeepTheirNames();
    void slotsCanBeNamed_data();
    void slotsCanBeNamed();
    void moveRange();

    void addMarker_data();
    void addMarker();
    void addOccupiedKeepsTheMarker();
    void addRebuilds();
    void addComplete();
    void addCompleteTellsTheOthers_data();
    void addCompleteTellsTheOthers();
    void addCompleteWithBadIndex();
    void deleteLeavesTheShownLists_data();
    void deleteLeavesTheShownLists();
    void deleteBadIndex_data();
    void deleteBadIndex();
    void markerDeletedByOthers();
    void strayMarkerDeletedByOthers_data();
    void strayMarkerDeletedByOthers();
    void endDeletesTheMarkers();
    void shownListsRise();
    void repaints_data();
    void repaints();
};

void tst_markerlist::startsWith()
{
    QWidget parent;
    TestMarkerList list(&parent, "ruler");
    QCOMPARE(list.objectName(), QStringLiteral("ruler"));
    QVERIFY(list.autoFillBackground());
    QCOMPARE(list.parentWidget(), &parent);
    QCOMPARE(list.GetWidget(), static_cast<QWidget *>(&list));
    for (int i = 0; i < 43; ++i)
        QVERIFY(!list.GetMarker(i));
    QVERIFY(list.GetShownMarkers().empty());
    QVERIFY(list.GetShownIndices().empty());
    QCOMPARE(list.GetLastMovingIndex(), -1);
    QCOMPARE(list.GetCurrentMarker(), -1);
    QVERIFY(!list.GetShowAllResultPanels());
    QCOMPARE(list.GetWrapValue(), -1.0);
    QCOMPARE(list.GetBackgroundColor(), QColor(Qt::black));
    QVERIFY(!list.GetDrawLastValue());
    QCOMPARE(list.GetRepairTimerID(), 0);
    QCOMPARE(list.GetResizeTimerID(), 0);
    QCOMPARE(list.GetWheelTimerID(), 0);
    QCOMPARE(list.GetResizeDelay(), 250);
    QCOMPARE(list.GetRepairDelay(), 100);
    QVERIFY(!list.GetResizePending());
    QVERIFY(list.GetMustRecalcRulers());
    QVERIFY(!list.minimized());
    QVERIFY(list.GetOutsideMarkers().empty());
    QVERIFY(!MarkerList::m_sMouseMovingMarker);
    QVERIFY(TestMarkerList().objectName().isEmpty());
}

void tst_markerlist::virtualOperationsKeepTheirOrder()
{
#if defined(__GNUC__) && defined(__x86_64__)
    int const first = PlaceOf(&MarkerList::SetMarker_ValuePath);
    QVector<int> const places{ PlaceOf(&MarkerList::ResetAllPixelValues),
                               PlaceOf(&MarkerList::BuildMenu),
                               PlaceOf(&MarkerList::SetLastMovingIndex),
                               PlaceOf(&MarkerList::PixelToValue),
                               PlaceOf(&MarkerList::ValueToPixel),
                               PlaceOf(&MarkerList::RepairDrawing),
                               PlaceOf(&MarkerList::GetCurrentStartStop),
                               PlaceOf(&MarkerList::Repair),
                               PlaceOf(&MarkerList::updateWidget),
                               PlaceOf(&MarkerList::slotSetState),
                               PlaceOf(&MarkerList::slotSetBackgroundColor),
                               PlaceOf(&MarkerList::slotClearColors),
                               PlaceOf(&MarkerList::OnMinimize),
                               PlaceOf(&MarkerList::doResize),
                               PlaceOf(&MarkerList::doResizeNow),
                               PlaceOf(&MarkerList::BuildPixMap) };
    for (int i = 0; i < places.size(); ++i)
        QCOMPARE(places[i], first + 1 + i);
#endif
}

void tst_markerlist::emptyOperations()
{
    TestMarkerList list;
    list.BuildMenu();
    QVERIFY(!list.GetContextMenu());
    list.BuildPixMap();
    list.MarkerList::OnMinimize(true);
    list.MarkerList::doResize(1, 2);
    static_cast<IObserver &>(list).Update(nullptr, eValueChanged);
    QVERIFY(list.m_calls.isEmpty());
}

void tst_markerlist::signalsKeepTheirNames_data()
{
    QTest::addColumn<QByteArray>("signature");
    QTest::addColumn<QByteArray>("parameters");
    QTest::newRow("signalMarkerChanged") << QByteArray("signalMarkerChanged(MarkerList*,int,double)")
                                         << QByteArray("pSender MarkerIndex newValue");
    QTest::newRow("signalMarkerMoving") << QByteArray("signalMarkerMoving(MarkerList*,int,double)")
                                        << QByteArray("pSender MarkerIndex newValue");
    QTest::newRow("signalSetState") << QByteArray("signalSetState(QString,EMarkerState,bool)")
                                    << QByteArray("path m value");
    QTest::newRow("signalStopWaterfall") << QByteArray("signalStopWaterfall()") << QByteArray();
    QTest::newRow("AxisDoubleClick") << QByteArray("AxisDoubleClick(QWidget*)") << QByteArray("pSender");
}

void tst_markerlist::signalsKeepTheirNames()
{
    QFETCH(QByteArray, signature);
    QFETCH(QByteArray, parameters);
    int const index = MarkerList::staticMetaObject.indexOfSignal(signature.constData());
    QVERIFY(index >= 0);
    QMetaMethod const method = MarkerList::staticMetaObject.method(index);
    QCOMPARE(method.methodType(), QMetaMethod::Signal);
    QCOMPARE(method.parameterNames().join(' '), parameters);
}

void tst_markerlist::slotsCanBeNamed_data()
{
    QTest::addColumn<QByteArray>("signature");
    for (char const * signature : { "slotSetState(QString,EMarkerState,bool)", "slotSetBackgroundColor(QColor&)",
                                    "slotClearColors()", "setEnabled(bool)" })
        QTest::newRow(signature) << QByteArray(signature);
}

void tst_markerlist::slotsCanBeNamed()
{
    QFETCH(QByteArray, signature);
    int const index = MarkerList::staticMetaObject.indexOfSlot(signature.constData());
    QVERIFY(index >= MarkerList::staticMetaObject.methodOffset());
}

void tst_markerlist::moveRange()
{
    MoveRange range(1, 2, 3, 4);
    QCOMPARE(range.first, 1);
    QCOMPARE(range.second, 2);
    QCOMPARE(range.third, 3);
    QCOMPARE(range.fourth, 4);
    range.fifth = 5;
    MoveRange other(6, 7, 8, 9);
    other = range;
    QCOMPARE(other.first + other.second + other.third + other.fourth, 10);
    QCOMPARE(other.fifth, 5);
    OpenList list;
    QVERIFY(!list.m_pMoveRange);
    list.m_pMoveRange = std::make_unique<MoveRange>(range);
    QCOMPARE(list.m_pMoveRange->fifth, 5);
}

void tst_markerlist::addMarker_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<bool>("added");
    QTest::newRow("first") << 0 << true;
    QTest::newRow("last") << 42 << true;
    QTest::newRow("behind the last") << 43 << false;
    QTest::newRow("negative") << -1 << false;
    QTest::newRow("lowest") << std::numeric_limits<int>::min() << false;
    QTest::newRow("highest") << std::numeric_limits<int>::max() << false;
}

void tst_markerlist::addMarker()
{
    QFETCH(int, id);
    QFETCH(bool, added);
    TestMarkerList list;
    list.SetMustRecalcRulers(false);
    Marker * const marker = list.AddMarker(id);
    QCOMPARE(marker != nullptr, added);
    QCOMPARE(list.GetMarker(id), marker);
    QCOMPARE(list.isIndexValid(id), added);
    QCOMPARE(list.GetMustRecalcRulers(), added);
    QCOMPARE(list.GetShownIndices(), added ? Indices{ id } : Indices());
    if (marker)
        QCOMPARE(marker->GetParent(), static_cast<MarkerList *>(&list));
}

void tst_markerlist::addOccupiedKeepsTheMarker()
{
    TestMarkerList list;
    TreeNumber const number("number", 4.0);
    Marker * const marker = list.AddMarker(5);
    marker->SetMarkerName(QStringLiteral("name"));
    marker->SetColor(Color(90));
    marker->Set_ValuePath(number.Path());
    marker->Update();
    marker->SetShowMarker(false, true);
    marker->SetParent(nullptr);
    list.SetMustRecalcRulers(false);
    QColor & entry = ColorSet::Instance()[Color(90)];
    QColor const before = entry;
    marker->GetBrush();
    entry = QColor(4, 5, 6);
    QCOMPARE(list.AddMarker(5), marker);
    QColor const made = marker->GetBrush()->color();
    entry = before;
    QCOMPARE(made, QColor(4, 5, 6));
    QCOMPARE(marker->GetValue(), 4.0);
    QVERIFY(!marker->GetShowMarkerFlag());
    QCOMPARE(marker->GetValuePath(), number.Path());
    QCOMPARE(marker->GetMarkerName(), QStringLiteral("name"));
    QCOMPARE(static_cast<int>(marker->GetColor()), 90);
    QVERIFY(!marker->GetConnected());
    QCOMPARE(number->GetObserverCount(), 0);
    QCOMPARE(marker->GetParent(), static_cast<MarkerList *>(&list));
    QVERIFY(list.GetMustRecalcRulers());
}

void tst_markerlist::addRebuilds()
{
    TestMarkerList list;
    list.AddMarker(9);
    list.GetMarker(9)->SetNeverShowMarker(true);
    QCOMPARE(list.GetShownIndices(), Indices{ 9 });
    list.AddMarker(9);
    QVERIFY(list.GetShownIndices().empty());
}

void tst_markerlist::addComplete()
{
    TestMarkerList list;
    Marker * const marker =
        list.AddMarker(8, true, Color(90), true, eSpecialX | eSpecialInMenu, QStringLiteral("blue"));
    QVERIFY(marker);
    QCOMPARE(list.GetMarker(8), marker);
    QVERIFY(marker->GetShowMarkerFlag());
    QCOMPARE(static_cast<int>(marker->GetColor()), 90);
    QVERIFY(marker->GetMoveable());
    QCOMPARE(marker->GetSpecial(), unsigned(eSpecialX | eSpecialInMenu));
    QCOMPARE(marker->GetMarkerName(), QStringLiteral("blue"));
    QVERIFY(marker->GetValuePath().isEmpty());
    list.SetMustRecalcRulers(false);
    QCOMPARE(list.AddMarker(8, false, Color(91), false, eSpecialAlwaysShow, QString()), marker);
    QVERIFY(!marker->GetShowMarkerFlag());
    QVERIFY(!marker->GetMoveable());
    QVERIFY(list.GetMustRecalcRulers());
    // the special bits came after the flag, and the shown lists know them
    QCOMPARE(list.GetShownIndices(), Indices{ 8 });
}

void tst_markerlist::addCompleteTellsTheOthers_data()
{
    QTest::addColumn<bool>("show");
    QTest::addColumn<int>("told");
    QTest::newRow("shown, as it is anyway") << true << 0;
    QTest::newRow("hidden") << false << 1;
}

void tst_markerlist::addCompleteTellsTheOthers()
{
    QFETCH(bool, show);
    QFETCH(int, told);
    TestMarkerList list;
    QSignalSpy states(&list, &MarkerList::signalSetState);
    list.AddMarker(8, show, Color(90), true, 0, QString());
    QCOMPARE(states.count(), told);
    if (told)
        QCOMPARE(StateText(states[0]), QStringLiteral(" 0 0"));
    QCOMPARE(list.GetShownMarkers().empty(), !show);
}

void tst_markerlist::addCompleteWithBadIndex()
{
    TestMarkerList list;
    QVERIFY(!list.AddMarker(43, true, Color(90), true, 0, QString()));
    QVERIFY(!list.AddMarker(-1, true, Color(90), true, 0, QString()));
}

void tst_markerlist::deleteLeavesTheShownLists_data()
{
    QTest::addColumn<bool>("asResult");
    QTest::newRow("DeleteMarker") << false;
    QTest::newRow("RemoveResultMarker") << true;
}

void tst_markerlist::deleteLeavesTheShownLists()
{
    QFETCH(bool, asResult);
    TestMarkerList list;
    TreeNumber const number("number");
    list.AddMarker(3)->Set_ValuePath(number.Path());
    list.AddMarker(4);
    list.SetMustRecalcRulers(false);
    if (asResult)
        list.RemoveResultMarker(3);
    else
        list.DeleteMarker(3);
    QVERIFY(!list.GetMarker(3));
    QCOMPARE(number->GetObserverCount(), 0);
    QCOMPARE(list.GetShownIndices(), (Indices{ 3, 4 }));
    QCOMPARE(list.GetShownMarkers().size(), std::size_t(2));
    QVERIFY(!list.GetMustRecalcRulers());
    list.RebuildMarkerList();
    QCOMPARE(list.GetShownIndices(), Indices{ 4 });
    QCOMPARE(list.GetShownMarkers(), std::vector<Marker *>{ list.GetMarker(4) });
}

void tst_markerlist::deleteBadIndex_data()
{
    QTest::addColumn<int>("id");
    for (int const id : { -1, 43, 5, std::numeric_limits<int>::min(), std::numeric_limits<int>::max() })
        QTest::addRow("%d", id) << id;
}

void tst_markerlist::deleteBadIndex()
{
    QFETCH(int, id);
    TestMarkerList list;
    list.AddMarker(0);
    list.AddMarker(42);
    list.DeleteMarker(id);
    list.RemoveResultMarker(id);
    QVERIFY(list.isIndexValid(0));
    QVERIFY(list.isIndexValid(42));
}

void tst_markerlist::markerDeletedByOthers()
{
    TestMarkerList list;
    Marker * const marker = list.AddMarker(3);
    list.AddMarker(4);
    marker->SetMoving(true, true);
    delete marker;
    QVERIFY(!list.GetMarker(3));
    // the lists of shown markers name it no more
    QCOMPARE(list.GetShownIndices(), Indices{ 4 });
    QCOMPARE(list.GetShownMarkers(), std::vector<Marker *>{ list.GetMarker(4) });
    QVERIFY(list.AddMarker(3));
}

void tst_markerlist::strayMarkerDeletedByOthers_data()
{
    QTest::addColumn<QString>("how");
    QTest::newRow("assigned to") << QStringLiteral("assigned to");
    QTest::newRow("without a parent") << QStringLiteral("without a parent");
    QTest::newRow("with another parent") << QStringLiteral("with another parent");
}

void tst_markerlist::strayMarkerDeletedByOthers()
{
    QFETCH(QString, how);
    TestMarkerList list;
    TestMarkerList other;
    other.AddMarker(3);
    Marker * const marker = list.AddMarker(3);
    Marker const source;
    if (how == QLatin1String("assigned to"))
        *marker = source;
    else
        marker->SetParent(how == QLatin1String("without a parent") ? nullptr : &other);
    delete marker;
    QVERIFY(!list.GetMarker(3));
    QVERIFY(list.GetShownMarkers().empty());
    QVERIFY(other.GetMarker(3));
}

void tst_markerlist::endDeletesTheMarkers()
{
    TreeNumber const number("number");
    {
        TestMarkerList list;
        list.AddMarker(0)->Set_ValuePath(number.Path());
        list.AddMarker(42)->Set_ValuePath(number.Path());
        QCOMPARE(number->GetObserverCount(), 2);
    }
    QCOMPARE(number->GetObserverCount(), 0);
}

void tst_markerlist::shownListsRise()
{
    TestMarkerList list;
    for (int const id : { 42, 7, 0, 9, 3 })
        list.AddMarker(id);
    list.GetMarker(7)->SetShowMarker(false, true);
    QCOMPARE(list.GetShownIndices(), (Indices{ 0, 3, 9, 42 }));
    for (std::size_t i = 0; i < 4; ++i)
        QCOMPARE(list.GetShownMarkers()[i], list.GetMarker(list.GetShownIndices()[i]));
    list.GetMarker(3)->SetSpecial(eSpecialShowMoving);
    list.RebuildMarkerList();
    QCOMPARE(list.GetShownMarkers().size(), std::size_t(4));
}

void tst_markerlist::repaints_data()
{
    QTest::addColumn<QString>("how");
    QTest::newRow("updateWidget") << QStringLiteral("updateWidget");
    QTest::newRow("resize timer") << QStringLiteral("resize timer");
    QTest::newRow("current marker") << QStringLiteral("current marker");
}

void tst_markerlist::repaints()
{
    QFETCH(QString, how);
    PaintedList list;
    Marker & marker = *list.AddMarker(2);
    marker.SetSpecial(eSpecialShowMoving);
    list.resize(60, 20);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    QTRY_VERIFY(list.m_paints > 0);
    QCoreApplication::processEvents();
    list.m_paints = 0;
    if (how == QLatin1String("updateWidget"))
        list.MarkerList::updateWidget();
    else if (how == QLatin1String("current marker"))
        marker.SetCurrentMarker(true, true);
    else {
        list.StartResizeTimer();
        list.Fire(list.GetResizeTimerID());
    }
    QTRY_VERIFY(list.m_paints > 0);
}

ORIM_TEST_MAIN(tst_markerlist)
#include "tst_markerlist.moc"
