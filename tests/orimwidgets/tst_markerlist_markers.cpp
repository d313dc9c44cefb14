// SPDX-License-Identifier: MIT
#include "markerlist.h"

#include "errorhandler.h"
#include "guibase.h"
#include "resultmarker.h"
#include "resultmarkerlist.h"
#include "resultscene.h"
#include "testmain.h"
#include "testmarkerlist.h"

#include <QBrush>
#include <QSignalSpy>
#include <QUndoStack>

#include <limits>
#include <memory>

namespace {

using Indices = std::vector<int>;

IColorBase::ECOLOR Color(int number) { return static_cast<IColorBase::ECOLOR>(number); }

//! The way to a member that only its class may name: an explicit instantiation may name it too.
template <auto Member>
struct Opened
{
    friend auto & MarkersOf(MarkerList & list) { return list.*Member; }
};

auto & MarkersOf(MarkerList & list);

template struct Opened<&MarkerList::m_markers>;

//! A marker that is never disabled, and says so.
class StubbornMarker : public Marker
{
public:
    void setEnabled(bool enabled) override { m_asked.push_back(enabled); }

    std::vector<bool> m_asked;
};

} // namespace

Q_DECLARE_METATYPE(Indices)

class tst_markerlist_markers : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void badIndex_data();
    void badIndex();
    void validIndex();
    void showMarker();
    void showResultFlag();
    void enableMarker();
    void enableMarkerOfItsOwnMind();
    void value();
    void offset();
    void color();
    void flags();
    void moving();
    void showOffset();
    void format();
    void gapMarker();
    void indexOfMarker();
    void indexOfPath();
    void currentClearsTheOthers();
    void currentOffClearsNothingElse();
    void currentNeedsAConnection();
    void currentIsTheLowest();
    void lastMovingIndex_data();
    void lastMovingIndex();
    void endMovingOfAll();
    void endMovingOfOne();
    void stepOfOne();
    void mouseMovingMarker();
    void wrapOfAll();
    void offsetPathOfY();
    void traceOfAll();
    void resultPanelsOfAll();
    void clearColorsOfAll();
    void resetPixels_data();
    void resetPixels();
    void outsideMarkers();
    void addResultMarker_data();
    void addResultMarker();
    void addResultMarkerAtABadId_data();
    void addResultMarkerAtABadId();
    void resultMarkerIsNotShownYet();
    void occupiedByAResultMarker();
    void occupiedByAPlainMarker();
    void resultMarkerTellsOthers();
    void resultMarkerEndsWhileTold_data();
    void resultMarkerEndsWhileTold();
    void removeResultMarker();
    void valueOfAResultMarker();
    void createResultMarkerList();
    void earlierResultMarkerListGoesOn();
    void resultMarkerListEndsWithItsList();
};

void tst_markerlist_markers::badIndex_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("without a marker") << 5;
    QTest::newRow("negative") << -1;
    QTest::newRow("behind the last") << 43;
    QTest::newRow("lowest") << std::numeric_limits<int>::min();
    QTest::newRow("highest") << std::numeric_limits<int>::max();
}

void tst_markerlist_markers::badIndex()
{
    QFETCH(int, index);
    TestMarkerList list;
    list.AddMarker(0);
    list.Forget();
    QString const text = QStringLiteral("/nowhere");
    QVERIFY(!list.GetMarker(index));
    QVERIFY(!list.isIndexValid(index));
    QVERIFY(!list.isIndexValidConnected(index));
    QVERIFY(!list.SetMarker_ValuePath(index, text));
    QVERIFY(!list.SetShowMarker(index, true));
    QVERIFY(!list.GetShowMarker(index));
    QVERIFY(!list.GetShowMarkerFlag(index));
    list.SetShowResultFlag(index, true);
    QVERIFY(!list.GetShowResultFlag(index));
    QVERIFY(!list.SetEnableMarker(index, true));
    QVERIFY(!list.SetMarkerValue(index, 1.0));
    QVERIFY(!list.SetMarkerMovingValue(index, 1.0));
    QVERIFY(!list.SetUseMovingMarker(index, true));
    QCOMPARE(list.GetMarkerValue(index), 0.0);
    QCOMPARE(list.GetLastPixelValue(index), 0);
    QVERIFY(!list.SetMarkerOffset_ValuePath(index, text));
    QVERIFY(!list.SetMarkerColor(index, Color(90)));
    QVERIFY(!list.SetMarkerOffset(index, 1.0));
    QVERIFY(!list.SetMarkerMoveable(index, true));
    QVERIFY(!list.SetMarkerMoving(index, true));
    QVERIFY(!list.SetMarkerShowOffset(index, true, 1));
    QVERIFY(!list.SetMarkerFormat(index, 1, 1));
    QVERIFY(!list.SetMarkerSpecial(index, 1));
    QCOMPARE(list.GetMarkerSpecial(index), 0U);
    QVERIFY(!list.SetFillBelow(index, true));
    QVERIFY(!list.GetFillBelow(index));
    QCOMPARE(list.GetMarkerWrapAround(index), 0);
    QVERIFY(!list.SetMarkerName(index, text));
    QVERIFY(!list.SetGapMarkerId(index, 1));
    QCOMPARE(list.GetGapMarkerId(index), -1);
    QVERIFY(!list.GetGapMarker(index));
    QVERIFY(list.GetValueTreePath(index).isEmpty());
    QVERIFY(!list.SetCurrentMarker(index, true));
    QVERIFY(!list.MoveMarker2NextPixel(index, true));
    if (index != -1)
        QVERIFY(!list.SetMarkerEndMoving(index));
    list.MarkerList::SetLastMovingIndex(index);
    QCOMPARE(list.GetLastMovingIndex(), -1);
    QVERIFY(list.m_calls.isEmpty());
}

void tst_markerlist_markers::validIndex()
{
    TestMarkerList list;
    TreeNumber number("number");
    list.AddMarker(3);
    QVERIFY(list.isIndexValid(3));
    QVERIFY(!list.isIndexValidConnected(3));
    QVERIFY(list.SetMarker_ValuePath(3, number.Path()));
    QVERIFY(list.isIndexValidConnected(3));
    QCOMPARE(list.GetValueTreePath(3), number.Path());
    number.Remove();
    QVERIFY(!list.isIndexValidConnected(3));
    QVERIFY(!list.SetMarker_ValuePath(3, number.Path()));
}

void tst_markerlist_markers::showMarker()
{
    TestMarkerList list;
    list.AddMarker(3);
    QSignalSpy const states(&list, &MarkerList::signalSetState);
    QVERIFY(!list.SetShowMarker(3, false));
    QVERIFY(!list.GetShowMarker(3));
    QVERIFY(!list.GetShowMarkerFlag(3));
    QVERIFY(list.SetShowMarker(3, true));
    QVERIFY(list.GetShowMarker(3));
    QCOMPARE(states.count(), 2);
    list.GetMarker(3)->SetNeverShowMarker(true);
    QVERIFY(!list.GetShowMarker(3));
    QVERIFY(list.GetShowMarkerFlag(3));
}

void tst_markerlist_markers::showResultFlag()
{
    TestMarkerList list;
    list.AddMarker(3);
    list.Forget();
    list.SetShowResultFlag(3, true);
    QVERIFY(list.GetShowResultFlag(3));
    QCOMPARE(list.m_calls, QStringList{ QStringLiteral("Repair") });
    list.SetShowResultFlag(3, false);
    QVERIFY(!list.GetShowResultFlag(3));
}

void tst_markerlist_markers::enableMarker()
{
    TestMarkerList list;
    list.AddMarker(3);
    list.Forget();
    QVERIFY(!list.SetEnableMarker(3, false));
    QVERIFY(!list.GetMarker(3)->isEnabled());
    QCOMPARE(list.m_calls, QStringList{ QStringLiteral("RepairDrawing") });
    QVERIFY(list.SetEnableMarker(3, true));
    QVERIFY(list.GetMarker(3)->isEnabled());
    QCOMPARE(list.m_calls.size(), 2);
}

//! The drawing is repaired although the class of the marker does otherwise.
void tst_markerlist_markers::enableMarkerOfItsOwnMind()
{
    TestMarkerList list;
    auto owned = std::make_unique<StubbornMarker>();
    StubbornMarker * const marker = owned.get();
    MarkersOf(list)[3] = std::move(owned);
    QVERIFY(!list.SetEnableMarker(3, false));
    QCOMPARE(marker->m_asked, std::vector<bool>{ false });
    QVERIFY(marker->isEnabled());
    QCOMPARE(list.m_calls, QStringList{ QStringLiteral("RepairDrawing") });
    QVERIFY(list.SetEnableMarker(3, true));
    QCOMPARE(list.m_calls.size(), 2);
}

void tst_markerlist_markers::value()
{
    TestMarkerList list;
    TreeNumber const number("number");
    list.AddMarker(3);
    QVERIFY(list.SetMarkerValue(3, 4.0));
    QCOMPARE(list.GetMarkerValue(3), 4.0);
    QVERIFY(list.SetMarkerMovingValue(3, 5.0));
    QCOMPARE(list.GetMarkerValue(3), 4.0);
    list.SetMarker_ValuePath(3, number.Path());
    QVERIFY(list.SetMarkerMovingValue(3, 5.0));
    QCOMPARE(number->GetInterimValue(), 5.0);
    QCOMPARE(number->GetValue(), 0.0);
    QVERIFY(list.SetUseMovingMarker(3, false));
    QVERIFY(list.SetMarkerMovingValue(3, 6.0));
    QCOMPARE(number->GetValue(), 6.0);
    list.GetMarker(3)->SetPixel(17);
    QCOMPARE(list.GetLastPixelValue(3), 17);
}

void tst_markerlist_markers::offset()
{
    TestMarkerList list;
    TreeNumber const number("number", 2.0);
    list.AddMarker(3);
    list.Forget();
    QVERIFY(list.SetMarkerOffset(3, 5.0));
    QCOMPARE(list.GetMarker(3)->GetOffset(), 5.0);
    QVERIFY(list.m_calls.isEmpty());
    QVERIFY(list.SetMarkerOffset_ValuePath(3, number.Path()));
    list.GetMarker(3)->Update();
    QCOMPARE(list.GetMarker(3)->GetOffset(), 2.0);
    QVERIFY(!list.SetMarkerOffset_ValuePath(3, QStringLiteral("/nowhere")));
}

void tst_markerlist_markers::color()
{
    TestMarkerList list;
    list.AddMarker(3);
    list.Forget();
    QVERIFY(list.SetMarkerColor(3, Color(90)));
    QCOMPARE(static_cast<int>(list.GetMarker(3)->GetColor()), 90);
    QCOMPARE(list.m_calls, QStringList{ QStringLiteral("updateWidget") });
}

void tst_markerlist_markers::flags()
{
    TestMarkerList list;
    Marker const & marker = *list.AddMarker(3);
    list.Forget();
    QVERIFY(list.SetMarkerMoveable(3, true));
    QVERIFY(marker.GetMoveable());
    QVERIFY(list.SetMarkerMoveable(3, false)); // the answer tells of the index
    QVERIFY(!marker.GetMoveable());
    QVERIFY(list.SetMarkerSpecial(3, 0x404U));
    QCOMPARE(list.GetMarkerSpecial(3), 0x404U);
    QVERIFY(list.SetFillBelow(3, true));
    QVERIFY(list.GetFillBelow(3));
    QVERIFY(list.SetMarkerName(3, QStringLiteral("name")));
    QCOMPARE(marker.GetMarkerName(), QStringLiteral("name"));
    QVERIFY(list.SetGapMarkerId(3, 7));
    QCOMPARE(list.GetGapMarkerId(3), 7);
    QVERIFY(list.m_calls.isEmpty());
}

void tst_markerlist_markers::moving()
{
    TestMarkerList list;
    Marker const & marker = *list.AddMarker(3);
    QSignalSpy const states(&list, &MarkerList::signalSetState);
    QVERIFY(list.SetMarkerMoving(3, true));
    QVERIFY(marker.IsMoving());
    QVERIFY(list.SetMarkerMoving(3, false));
    QVERIFY(!marker.IsMoving());
    QCOMPARE(states.count(), 2);
}

void tst_markerlist_markers::showOffset()
{
    TestMarkerList list;
    list.AddMarker(3);
    list.Forget();
    QVERIFY(list.SetMarkerShowOffset(3, true, 9));
    int pixels = 0;
    QVERIFY(list.GetMarker(3)->GetShowOffset(pixels));
    QCOMPARE(pixels, 9);
    QCOMPARE(list.m_calls, QStringList{ QStringLiteral("Repair") });
}

void tst_markerlist_markers::format()
{
    TestMarkerList list;
    list.AddMarker(3);
    QVERIFY(list.SetMarkerFormat(3, 4, 2));
    int width = 0;
    int precision = 0;
    list.GetMarker(3)->GetFormat(width, precision);
    QCOMPARE(width, 4);
    QCOMPARE(precision, 2);
}

void tst_markerlist_markers::gapMarker()
{
    TestMarkerList list;
    list.AddMarker(3);
    list.AddMarker(4);
    QVERIFY(!list.GetGapMarker(3));
    list.SetGapMarkerId(3, 4);
    QCOMPARE(list.GetGapMarker(3), list.GetMarker(4));
    list.SetGapMarkerId(3, 5); // no marker there
    QVERIFY(!list.GetGapMarker(3));
    list.SetGapMarkerId(3, 43);
    QVERIFY(!list.GetGapMarker(3));
    list.SetGapMarkerId(3, -2);
    QVERIFY(!list.GetGapMarker(3));
}

void tst_markerlist_markers::indexOfMarker()
{
    TestMarkerList list;
    TestMarkerList other;
    list.AddMarker(3);
    QCOMPARE(list.GetIndex(list.GetMarker(3)), 3);
    QCOMPARE(list.GetIndex(nullptr), -1);
    QCOMPARE(list.GetIndex(other.AddMarker(3)), -1);
}

void tst_markerlist_markers::indexOfPath()
{
    TestMarkerList list;
    TreeNumber const number("number");
    for (int const id : { 9, 4, 2 })
        list.AddMarker(id);
    QString const path = number.Path();
    QCOMPARE(list.GetIndex(path), -1);
    list.GetMarker(2)->Set_ValuePath(path);
    list.GetMarker(2)->ClearInternals(); // keeps the path, without a value
    list.GetMarker(2)->SetMarkerName(path);
    list.GetMarker(9)->Set_ValuePath(path);
    QCOMPARE(list.GetIndex(path), 9);
    list.GetMarker(4)->Set_ValuePath(path);
    QCOMPARE(list.GetIndex(path), 4);
    QCOMPARE(list.GetIndex(QString()), -1);
    QCOMPARE(list.GetIndex(QStringLiteral("/test")), -1);
}

void tst_markerlist_markers::currentClearsTheOthers()
{
    TestMarkerList list;
    TreeNumber const number("number");
    for (int const id : { 2, 4, 9 })
        list.AddMarker(id);
    list.GetMarker(2)->Set_ValuePath(QStringLiteral("/nowhere"));
    list.GetMarker(2)->SetCurrentMarker(true, true);
    list.GetMarker(4)->Set_ValuePath(number.Path());
    list.GetMarker(9)->SetCurrentMarker(true, true);
    list.GetMarker(9)->SetParent(nullptr);
    QSignalSpy states(&list, &MarkerList::signalSetState);
    QList<bool> flagInside;
    connect(&list, &MarkerList::signalSetState, this, [&] { flagInside << list.GetMarker(2)->GetCurrentMarker(); });
    QVERIFY(list.SetCurrentMarker(4, true));
    QCOMPARE(flagInside, (QList<bool>{ true, false, false })); // cleared after the others heard of it
    QVERIFY(!list.GetMarker(2)->GetCurrentMarker());
    QVERIFY(list.GetMarker(4)->GetCurrentMarker());
    QVERIFY(list.GetMarker(9)->GetCurrentMarker()); // it has no list to tell
    QCOMPARE(states.count(), 3);
    QCOMPARE(StateText(states[0]), QStringLiteral("/nowhere 2 0"));
    QCOMPARE(StateText(states[1]), QStringLiteral("/test/number 2 0"));
    QCOMPARE(StateText(states[2]), QStringLiteral("/test/number 2 1"));
}

void tst_markerlist_markers::currentOffClearsNothingElse()
{
    TestMarkerList list;
    TreeNumber const number("number");
    list.AddMarker(2)->SetCurrentMarker(true, true);
    list.AddMarker(4)->Set_ValuePath(number.Path());
    list.GetMarker(4)->SetCurrentMarker(true, true);
    QSignalSpy states(&list, &MarkerList::signalSetState);
    QVERIFY(!list.SetCurrentMarker(4, false));
    QVERIFY(!list.GetMarker(4)->GetCurrentMarker());
    QVERIFY(list.GetMarker(2)->GetCurrentMarker());
    QCOMPARE(states.count(), 1);
    QCOMPARE(StateText(states[0]), QStringLiteral("/test/number 2 0"));
}

void tst_markerlist_markers::currentNeedsAConnection()
{
    TestMarkerList list;
    list.AddMarker(2)->SetCurrentMarker(true, true);
    list.AddMarker(4);
    QVERIFY(!list.SetCurrentMarker(4, true));
    QVERIFY(!list.GetMarker(4)->GetCurrentMarker());
    // the others were cleared all the same
    QVERIFY(!list.GetMarker(2)->GetCurrentMarker());
}

void tst_markerlist_markers::currentIsTheLowest()
{
    TestMarkerList list;
    for (int const id : { 9, 4, 2 })
        list.AddMarker(id);
    list.GetMarker(9)->SetCurrentMarker(true, true);
    QCOMPARE(list.GetCurrentMarker(), 9);
    list.GetMarker(4)->SetCurrentMarker(true, true);
    QCOMPARE(list.GetCurrentMarker(), 4);
}

void tst_markerlist_markers::lastMovingIndex_data()
{
    QTest::addColumn<bool>("moveable");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<int>("index");
    QTest::newRow("enabled and moveable") << true << true << 3;
    QTest::newRow("not moveable") << false << true << -1;
    QTest::newRow("disabled") << true << false << -1;
}

void tst_markerlist_markers::lastMovingIndex()
{
    QFETCH(bool, moveable);
    QFETCH(bool, enabled);
    QFETCH(int, index);
    TestMarkerList list;
    list.AddMarker(3)->SetMoveable(moveable);
    list.GetMarker(3)->setEnabled(enabled);
    list.SetLastMovingIndex(3);
    QCOMPARE(list.GetLastMovingIndex(), index);
}

void tst_markerlist_markers::endMovingOfAll()
{
    TestMarkerList list;
    TreeNumber const first("first");
    TreeNumber const second("second");
    TreeNumber const resting("resting");
    list.AddMarker(0)->Set_ValuePath(first.Path());
    list.AddMarker(1);
    list.AddMarker(2)->Set_ValuePath(second.Path());
    list.AddMarker(42)->Set_ValuePath(resting.Path());
    first->SetInterimValue(1.0, nullptr);
    second->SetInterimValue(2.0, nullptr);
    Listener listener;
    resting->AddObserver(&listener);
    int const before = GuiBase::Instance().UndoStack()->index();
    QVERIFY(list.SetMarkerEndMoving(-1));
    QCOMPARE(first->GetValue(), 1.0);
    QCOMPARE(second->GetValue(), 2.0);
    QVERIFY(listener.m_heard.isEmpty());
    QCOMPARE(GuiBase::Instance().UndoStack()->index(), before + 1);
    GuiBase::Instance().UndoStack()->undo();
    QCOMPARE(first->GetValue(), 0.0);
    QCOMPARE(second->GetValue(), 0.0);
}

void tst_markerlist_markers::endMovingOfOne()
{
    TestMarkerList list;
    TreeNumber const first("first");
    TreeNumber const second("second");
    list.AddMarker(0)->Set_ValuePath(first.Path());
    list.AddMarker(1)->Set_ValuePath(second.Path());
    first->SetInterimValue(1.0, nullptr);
    second->SetInterimValue(2.0, nullptr);
    QVERIFY(list.SetMarkerEndMoving(1));
    QCOMPARE(first->GetValue(), 0.0);
    QCOMPARE(second->GetValue(), 2.0);
    list.AddMarker(5);
    QVERIFY(list.SetMarkerEndMoving(5));
}

void tst_markerlist_markers::stepOfOne()
{
    TestMarkerList list;
    TreeNumber const number("number", 50.0);
    list.AddMarker(0);
    QVERIFY(!list.MoveMarker2NextPixel(0, true));
    list.SetMarker_ValuePath(0, number.Path());
    list.SetMarkerSpecial(0, eSpecialX);
    list.GetMarker(0)->Update();
    QVERIFY(list.MoveMarker2NextPixel(0, true));
    QCOMPARE(number->GetInterimValue(), 51.0);
    QVERIFY(list.MoveMarker2NextPixel(0, false));
    QCOMPARE(number->GetInterimValue(), 50.0);
}

void tst_markerlist_markers::mouseMovingMarker()
{
    MarkerList::SetMouseMovingMarker(true);
    QVERIFY(MarkerList::m_sMouseMovingMarker);
    MarkerList::SetMouseMovingMarker(false);
    QVERIFY(!MarkerList::m_sMouseMovingMarker);
}

void tst_markerlist_markers::wrapOfAll()
{
    TestMarkerList list;
    QVERIFY(list.SetMarkerWrapAround(360)); // also without a marker
    QVERIFY(list.SetMarkerWrapIntoRange(0, 360));
    list.AddMarker(0)->SetValue(-10.0);
    list.AddMarker(42)->SetValue(370.0);
    list.Forget();
    QVERIFY(list.SetMarkerWrapAround(360));
    QCOMPARE(list.GetMarkerWrapAround(0), 360);
    QCOMPARE(list.GetMarkerWrapAround(42), 360);
    QVERIFY(list.SetMarkerWrapIntoRange(0, 360));
    QCOMPARE(list.GetMarkerValue(0), 350.0);
    QCOMPARE(list.GetMarkerValue(42), 10.0);
    QCOMPARE(list.Count(QStringLiteral("updateWidget")), 4);
}

void tst_markerlist_markers::offsetPathOfY()
{
    TestMarkerList list;
    TreeNumber const number("number", 7.0);
    list.AddMarker(0)->SetSpecial(eSpecialY);
    list.AddMarker(1)->SetSpecial(eSpecialX);
    list.AddMarker(2)->SetSpecial(eSpecialY | eSpecialX);
    QVERIFY(list.SetOffset_ValuePath(number.Path()));
    QCOMPARE(number->GetObserverCount(), 2);
    QVERIFY(number->HasObserver(list.GetMarker(0)));
    QVERIFY(number->HasObserver(list.GetMarker(2)));
    QVERIFY(list.SetOffset_ValuePath(QStringLiteral("/nowhere")));
    QCOMPARE(number->GetObserverCount(), 0);
}

void tst_markerlist_markers::traceOfAll()
{
    TestMarkerList list;
    list.AddMarker(30)->SetMarkerName(QStringLiteral("a"));
    list.AddMarker(31)->SetMarkerName(QStringLiteral("b"));
    ErrorHandler::Instance().SetTraceMask(ErrorHandler::TraceBit);
    char const * const line = "controls/orimwidgets/marker(298): Marker eAddYellow+2\t%1\t0.000000\t";
    QTest::ignoreMessage(QtInfoMsg, qPrintable(QString::fromLatin1(line).arg(QLatin1Char('a'))));
    QTest::ignoreMessage(QtInfoMsg, qPrintable(QString::fromLatin1(line).arg(QLatin1Char('b'))));
    list.TraceIndexAndName();
    ErrorHandler::Instance().SetTraceMask(0);
}

void tst_markerlist_markers::resultPanelsOfAll()
{
    TestMarkerList list;
    list.AddMarker(0)->SetSpecial(eSpecialResult);
    list.AddMarker(1);
    list.AddMarker(42)->SetSpecial(eSpecialResult | eSpecialX);
    list.Forget();
    list.ShowAllResultPanels(true);
    QVERIFY(list.GetShowAllResultPanels());
    QVERIFY(list.GetShowResultFlag(0));
    QVERIFY(!list.GetShowResultFlag(1));
    QVERIFY(list.GetShowResultFlag(42));
    list.GetMarker(1)->SetShowResult(true);
    list.ShowAllResultPanels(false);
    QVERIFY(!list.GetShowAllResultPanels());
    QVERIFY(!list.GetShowResultFlag(0));
    QVERIFY(list.GetShowResultFlag(1));
    QVERIFY(!list.GetShowResultFlag(42));
    QVERIFY(list.m_calls.isEmpty());
}

void tst_markerlist_markers::clearColorsOfAll()
{
    TestMarkerList list;
    QColor & entry = ColorSet::Instance()[Color(90)];
    QColor const before = entry;
    for (int const id : { 0, 42 }) {
        list.AddMarker(id)->SetColor(Color(90));
        list.GetMarker(id)->GetBrush();
    }
    entry = QColor(1, 2, 3);
    list.slotClearColors();
    QColor const first = list.GetMarker(0)->GetBrush()->color();
    QColor const last = list.GetMarker(42)->GetBrush()->color();
    entry = before;
    QCOMPARE(first, QColor(1, 2, 3));
    QCOMPARE(last, QColor(1, 2, 3));
}

void tst_markerlist_markers::resetPixels_data()
{
    QTest::addColumn<unsigned int>("mask");
    QTest::addColumn<Indices>("kept");
    QTest::newRow("mask 0 is all that are drawn") << 0U << Indices{ 3 };
    QTest::newRow("window borders") << unsigned(eSpecialWindowBorder) << Indices{ 0, 2, 3 };
    QTest::newRow("any shared bit") << unsigned(eSpecialWindowBorder | eSpecialX) << Indices{ 2, 3 };
    QTest::newRow("no shared bit") << unsigned(eSpecialResult) << Indices{ 0, 1, 2, 3 };
}

void tst_markerlist_markers::resetPixels()
{
    QFETCH(unsigned int, mask);
    QFETCH(Indices, kept);
    TestMarkerList list;
    list.AddMarker(0)->SetSpecial(eSpecialX);
    list.AddMarker(1)->SetSpecial(eSpecialWindowBorder | eSpecialX);
    list.AddMarker(2);
    list.AddMarker(3)->SetSpecial(eSpecialWindowBorder);
    list.GetMarker(3)->SetShowMarker(false, true);
    for (int i = 0; i < 4; ++i)
        list.GetMarker(i)->SetPixel(8);
    list.ResetAllPixelValues(mask);
    Indices still;
    for (int i = 0; i < 4; ++i)
        if (list.GetLastPixelValue(i) == 8)
            still.push_back(i);
    QCOMPARE(still, kept);
}

void tst_markerlist_markers::outsideMarkers()
{
    TestMarkerList list;
    TestMarkerList other;
    Marker * const first = other.AddMarker(7);
    Marker * const second = list.AddMarker(3);
    auto third = std::make_unique<Marker>();
    list.AddOutsideMarker(first);
    list.AddOutsideMarker(second);
    list.AddOutsideMarker(third.get());
    list.AddOutsideMarker(first);
    list.AddOutsideMarker(nullptr);
    QCOMPARE(list.GetOutsideMarkers(), (std::vector<Marker *>{ first, second, third.get() }));
    other.DeleteMarker(7);
    QCOMPARE(list.GetOutsideMarkers(), (std::vector<Marker *>{ second, third.get() }));
    third.reset();
    QCOMPARE(list.GetOutsideMarkers(), std::vector<Marker *>{ second });
    list.AddOutsideMarker(other.AddMarker(7));
    QCOMPARE(list.GetOutsideMarkers(), (std::vector<Marker *>{ second, other.GetMarker(7) }));
    list.ClearOutsideMarkers();
    QVERIFY(list.GetOutsideMarkers().empty());
    QVERIFY(list.GetMarker(3));
}

void tst_markerlist_markers::addResultMarker_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<bool>("on");
    QTest::newRow("first id") << 0 << true;
    QTest::newRow("first id, hidden and fixed") << 0 << false;
    QTest::newRow("last id") << 42 << true;
}

void tst_markerlist_markers::addResultMarker()
{
    QFETCH(int, id);
    QFETCH(bool, on);
    TestMarkerList list;
    list.SetMustRecalcRulers(false);
    ResultMarker * const marker = list.AddResultMarker(id, on, Color(90), on, 0x408, QStringLiteral("/test/name"));
    QVERIFY(marker);
    QCOMPARE(list.GetMarker(id), marker);
    QCOMPARE(marker->GetParent(), &list);
    QCOMPARE(marker->GetShowMarkerFlag(), on);
    QCOMPARE(marker->GetColor(), Color(90));
    QCOMPARE(marker->GetMoveable(), on);
    QCOMPARE(marker->GetSpecial(), 0x408U);
    QCOMPARE(marker->GetMarkerName(), QStringLiteral("/test/name"));
    QCOMPARE(marker->GetValuePath(), QStringLiteral("/test/name"));
    QVERIFY(!marker->GetIValueNumeric());
    QVERIFY(list.GetMustRecalcRulers());
}

void tst_markerlist_markers::addResultMarkerAtABadId_data()
{
    QTest::addColumn<int>("id");
    QTest::newRow("behind the last") << 43;
    QTest::newRow("negative") << -1;
    QTest::newRow("highest") << std::numeric_limits<int>::max();
    QTest::newRow("lowest") << std::numeric_limits<int>::min();
}

void tst_markerlist_markers::addResultMarkerAtABadId()
{
    QFETCH(int, id);
    TestMarkerList list;
    list.SetMustRecalcRulers(false);
    QVERIFY(!list.AddResultMarker(id, true, Color(90), true, 0, QString()));
    QVERIFY(!list.GetMustRecalcRulers());
    QVERIFY(list.m_calls.isEmpty());
}

void tst_markerlist_markers::resultMarkerIsNotShownYet()
{
    TestMarkerList list;
    list.AddResultMarker(3, true, Color(90), true, 0, QString());
    QVERIFY(list.GetShownMarkers().empty());
    list.RebuildMarkerList();
    QCOMPARE(list.GetShownIndices(), Indices{ 3 });
}

void tst_markerlist_markers::occupiedByAResultMarker()
{
    TestMarkerList list;
    ResultMarker * const marker = list.AddResultMarker(3, true, Color(90), true, 0x8, QStringLiteral("name"));
    list.SetMustRecalcRulers(false);
    list.Forget();
    QCOMPARE(list.AddResultMarker(3, false, Color(91), false, 0x4, QStringLiteral("other")), marker);
    QVERIFY(marker->GetShowMarkerFlag());
    QCOMPARE(marker->GetColor(), Color(90));
    QVERIFY(marker->GetMoveable());
    QCOMPARE(marker->GetSpecial(), 0x8U);
    QCOMPARE(marker->GetMarkerName(), QStringLiteral("name"));
    QVERIFY(!list.GetMustRecalcRulers());
    QVERIFY(list.m_calls.isEmpty());
}

void tst_markerlist_markers::occupiedByAPlainMarker()
{
    TestMarkerList list;
    Marker * const plain = list.AddMarker(3);
    QVERIFY(!list.AddResultMarker(3, false, Color(91), true, 0x4, QStringLiteral("other")));
    QCOMPARE(list.GetMarker(3), plain);
    QVERIFY(plain->GetShowMarkerFlag());
    QCOMPARE(plain->GetColor(), IColorBase::eColorMarker);
    QVERIFY(plain->GetMarkerName().isEmpty());
}

void tst_markerlist_markers::resultMarkerTellsOthers()
{
    TestMarkerList list;
    QSignalSpy const states(&list, &MarkerList::signalSetState);
    list.AddResultMarker(3, true, Color(90), true, 0, QStringLiteral("shown"));
    QCOMPARE(states.count(), 0);
    list.AddResultMarker(4, false, Color(90), true, 0, QStringLiteral("hidden"));
    QCOMPARE(states.count(), 1);
    QCOMPARE(StateText(states[0]), QStringLiteral("hidden 0 0"));
}

void tst_markerlist_markers::resultMarkerEndsWhileTold_data()
{
    QTest::addColumn<bool>("list");
    QTest::newRow("with its list") << true;
    QTest::newRow("alone") << false;
}

void tst_markerlist_markers::resultMarkerEndsWhileTold()
{
    QFETCH(bool, list);
    auto * const markers = new TestMarkerList;
    connect(markers, &MarkerList::signalSetState, this, [=] {
        if (list)
            delete markers;
        else
            markers->DeleteMarker(3);
    });
    QVERIFY(!markers->AddResultMarker(3, false, Color(90), true, 0, QStringLiteral("name")));
    if (!list)
        delete markers;
}

void tst_markerlist_markers::removeResultMarker()
{
    TestMarkerList list;
    list.AddResultMarker(3, true, Color(90), true, 0, QString());
    list.RemoveResultMarker(3);
    QVERIFY(!list.isIndexValid(3));
    delete list.AddResultMarker(3, true, Color(90), true, 0, QString()); // by somebody else
    QVERIFY(!list.isIndexValid(3));
}

void tst_markerlist_markers::valueOfAResultMarker()
{
    TestMarkerList list;
    ResultMarker * const marker = list.AddResultMarker(3, true, Color(90), true, 0, QString());
    QCOMPARE(list.GetMarkerValue(3), -1.0);
    BearingResult const result = ResultFrom(10.0);
    marker->SetMarkerValue(&result, false);
    QCOMPARE(list.GetMarkerValue(3), 12.0);
    QVERIFY(!list.SetEnableMarker(3, false));
    QVERIFY(!marker->isEnabled());
}

void tst_markerlist_markers::createResultMarkerList()
{
    TestMarkerList list;
    QVERIFY(!list.GetResultMarkerList());
    ResultMarkerList * const results =
        list.CreateResultMarkerList(20, true, Color(90), true, 0x408, QStringLiteral("Result %1"));
    QVERIFY(results);
    QCOMPARE(list.GetResultMarkerList(), results);
    QCOMPARE(results->GetParent(), &list);
    QVERIFY(!list.isIndexValid(20)); // it makes markers later
    results->Resize(2);
    QCOMPARE(list.GetMarker(21)->GetMarkerName(), QStringLiteral("Result 1"));
    QCOMPARE(list.GetMarker(21)->GetColor(), Color(90));
    QCOMPARE(list.GetMarker(21)->GetSpecial(), 0x408U);
    QVERIFY(list.GetMarker(21)->GetMoveable());
    QVERIFY(list.GetShowMarkerFlag(21));
    ResultMarkerList * const fixed =
        list.CreateResultMarkerList(30, false, Color(91), false, 0x4, QStringLiteral("Fixed"));
    fixed->Resize(1);
    QVERIFY(!list.GetMarker(30)->GetMoveable());
    QVERIFY(!list.GetMarker(30)->GetShowMarkerFlag());
    QCOMPARE(list.GetMarker(30)->GetSpecial(), 0x4U);
}

void tst_markerlist_markers::earlierResultMarkerListGoesOn()
{
    TreeValue<ResultList> const values("results");
    ResultMarkerList * earlier = nullptr;
    {
        TestMarkerList list;
        list.show();
        earlier = list.CreateResultMarkerList(10, true, Color(90), true, 0, QStringLiteral("earlier"));
        QVERIFY(earlier->Set_ValuePath(values.Path()));
        ResultMarkerList * const later =
            list.CreateResultMarkerList(20, true, Color(90), true, 0, QStringLiteral("later"));
        QVERIFY(later != earlier);
        QCOMPARE(list.GetResultMarkerList(), later);
        QVERIFY(!later->GetConnected());
        QVERIFY(earlier->GetConnected());
        values->SetEntries(Results(1), nullptr);
        QCOMPARE(list.GetMarker(10)->GetMarkerName(), QStringLiteral("earlier"));
        QVERIFY(!list.isIndexValidConnected(10)); // connected is asked of the later one
    }
    values->SetEntries(Results(2), nullptr); // it outlives the list
    QVERIFY(!earlier->GetParent());
    QVERIFY(earlier->Set_ValuePath(QString()) == false);
}

void tst_markerlist_markers::resultMarkerListEndsWithItsList()
{
    TreeValue<ResultList> const values("results");
    {
        TestMarkerList list;
        list.CreateResultMarkerList(33, true, Color(90), true, 0, QString())->Set_ValuePath(values.Path());
        QCOMPARE(values->GetObserverCount(), 1);
    }
    QCOMPARE(values->GetObserverCount(), 0);
}

ORIM_TEST_MAIN(tst_markerlist_markers)
#include "tst_markerlist_markers.moc"
