// SPDX-License-Identifier: MIT
// A session of 300 events on two lists of markers. After each of them in turn the list, its window, a value, a marker
// or the colours go away, and the rest of the session is played on what is left.

#include "guibase.h"
#include "testmain.h"
#include "testmarkerlist.h"

#include <QBrush>
#include <QElapsedTimer>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QPen>
#include <QUndoStack>

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <random>

namespace {

constexpr int EventCount = 300;
constexpr std::array<int, 4> Ids{ { 0, 5, 9, 42 } };

//! Draws what is shown, as panes do.
class PaintingList : public TestMarkerList
{
public:
    using TestMarkerList::TestMarkerList;

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        for (Marker * const marker : GetShownMarkers()) {
            int const pixel = ValueToPixel(eMarkerX, marker->GetValue());
            marker->SetPixel(pixel);
            painter.setPen(*marker->GetPen());
            painter.fillRect(QRect(pixel, 0, 3, 10), *marker->GetBrush());
            painter.setPen(*marker->GetTextPen());
            painter.drawPoint(pixel, 12);
            marker->SetLastDrawnValue(marker->GetValue());
        }
    }
};

//! What goes away.
enum ETarget
{
    eList,
    eWindow,
    eValue,
    eMarker,
    eColors,
    eTargets
};

constexpr std::array<char const *, eTargets> TargetNames{ { "list", "window", "value", "marker", "colours" } };

//! A window with two lists that tell each other their state; the first is the one that is disrupted.
class Session
{
public:
    Session() : m_first("first", 50.0), m_second("second", 20.0), m_offset("offset", 1.0), m_pWindow(new QWidget)
    {
        m_pList = new PaintingList(m_pWindow, "list");
        m_pOther = new PaintingList(m_pWindow, "other");
        QObject::connect(m_pList, &MarkerList::signalSetState, m_pOther, &MarkerList::slotSetState);
        QObject::connect(m_pList, &MarkerList::signalSetState, m_pList, &MarkerList::slotSetState);
        QObject::connect(m_pOther, &MarkerList::signalSetState, m_pList, &MarkerList::slotSetState);
        for (TestMarkerList * const list : { m_pList.data(), m_pOther.data() }) {
            list->AddMarker(0, true, IColorBase::eColorMarker, true, eSpecialX, QStringLiteral("x"));
            list->AddMarker(5, true, IColorBase::eColorResult, true, eSpecialY, QStringLiteral("y"));
            list->AddMarker(9, false, IColorBase::eColorGood, true, eSpecialX | eSpecialShowMoving, QString());
            list->AddMarker(42, true, IColorBase::eColorWarning, false, eSpecialResult, QString());
            for (int const id : { 0, 9 })
                list->SetMarker_ValuePath(id, m_first.Path());
            list->SetMarker_ValuePath(5, m_second.Path());
            list->SetOffset_ValuePath(m_offset.Path());
        }
        m_pWindow->show();
    }

    Session(Session const &) = delete;
    Session & operator=(Session const &) = delete;

    ~Session() { delete m_pWindow.data(); }

    PaintingList * List() const { return m_pList; }

    QWidget * Window() const { return m_pWindow; }

    Marker * At(int i) const { return m_pList->GetMarker(Ids[static_cast<std::size_t>(i) % Ids.size()]); }

    //! Null once it has gone.
    ValueNumeric<double> * Number(int i) const { return i % 2 == 0 ? Find(m_first) : Find(m_second); }

    ValueNumeric<double> * Offset() const { return Find(m_offset); }

    void Take(ETarget target, int event);
    //! Whether all that is left has let go of all that went.
    bool IsTidy() const;

private:
    static ValueNumeric<double> * Find(TreeNumber const & number)
    {
        return Tree::Instance()->FindAs<ValueNumeric<double>>(number.Path());
    }

    TreeNumber m_first;
    TreeNumber m_second;
    TreeNumber m_offset;
    QPointer<QWidget> m_pWindow;
    QPointer<PaintingList> m_pList;
    QPointer<PaintingList> m_pOther;
};

void Session::Take(ETarget target, int event)
{
    switch (target) {
    case eList:
        delete m_pList.data();
        break;
    case eWindow:
        delete m_pWindow.data();
        break;
    case eValue:
        (event % 3 == 0 ? m_first : event % 3 == 1 ? m_second : m_offset).Remove();
        break;
    case eMarker:
        m_pList->DeleteMarker(Ids[static_cast<std::size_t>(event) % Ids.size()]);
        m_pList->RebuildMarkerList();
        break;
    case eColors:
    case eTargets:
        ColorSet::Instance().Load(event % ColorSet::GetSetCount());
        m_pList->slotClearColors();
        break;
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

bool Session::IsTidy() const
{
    for (TreeNumber const * const number : { &m_first, &m_second, &m_offset }) {
        auto const * const value = Find(*number);
        int expected = 0;
        for (TestMarkerList const * const list : { m_pList.data(), m_pOther.data() })
            for (int id = 0; value && list && id < 43; ++id)
                expected += value->HasObserver(list->GetMarker(id)) ? 1 : 0;
        if (value && value->GetObserverCount() != expected)
            return false;
    }
    return true;
}

using Step = void (*)(Session & session, int i);

void Event(QWidget * widget, QEvent && event) { QCoreApplication::sendEvent(widget, &event); }

//! A pane's life; the list lives when a step is played.
constexpr std::array<Step, 40> Steps{ {
    [](Session & s, int i) {
        if (auto * const number = s.Number(i))
            number->SetValue(i % 100, nullptr);
    },
    [](Session & s, int i) {
        if (auto * const number = s.Number(i))
            number->SetInterimValue(i % 90, nullptr);
    },
    [](Session & s, int i) {
        if (auto * const number = s.Number(i))
            number->CommitInterimValue(nullptr);
    },
    [](Session & s, int i) {
        if (auto * const number = s.Number(i))
            number->SetState(eStateDisabled, nullptr);
    },
    [](Session & s, int i) {
        if (auto * const number = s.Number(i))
            number->SetState(eStateValid, nullptr);
    },
    [](Session & s, int i) {
        if (auto * const number = s.Number(i))
            number->SetMinMax(0, 100, i % 3, nullptr);
    },
    [](Session & s, int i) {
        if (auto * const offset = s.Offset())
            offset->SetValue(i % 7, nullptr);
    },
    [](Session & s, int i) {
        if (auto * const offset = s.Offset())
            offset->SetInterimValue(i % 5, nullptr);
    },
    [](Session & s, int i) {
        if (s.At(i))
            s.At(i)->SetValue(i % 100);
    },
    [](Session & s, int i) { s.List()->SetMarkerMovingValue(Ids[0], i % 100); },
    [](Session & s, int i) { s.List()->SetMarkerValue(Ids[1], i % 100); },
    [](Session & s, int i) { s.List()->SetShowMarker(Ids[static_cast<std::size_t>(i) % 4], i % 2 == 0); },
    [](Session & s, int i) { s.List()->SetMarkerMoving(Ids[static_cast<std::size_t>(i) % 4], i % 3 != 0); },
    [](Session & s, int i) { s.List()->SetCurrentMarker(Ids[static_cast<std::size_t>(i) % 4], i % 5 != 0); },
    [](Session & s, int i) { s.List()->Wheel(i % 2 ? 120 : -120); },
    [](Session & s, int) { s.List()->Wheel(0); },
    [](Session & s, int) { s.List()->Fire(s.List()->GetWheelTimerID()); },
    [](Session & s, int) { s.List()->Repair(); },
    [](Session & s, int) { s.List()->Fire(s.List()->GetRepairTimerID()); },
    [](Session & s, int) { s.List()->StartResizeTimer(); },
    [](Session & s, int) { s.List()->Fire(s.List()->GetResizeTimerID()); },
    [](Session & s, int i) {
        if (s.At(i))
            s.List()->Fire(s.At(i)->GetTimerID());
    },
    [](Session & s, int i) { s.List()->SetMarkerEndMoving(i % 2 ? -1 : Ids[0]); },
    [](Session & s, int i) { s.List()->MoveMarker2NextPixel(Ids[static_cast<std::size_t>(i) % 4], i % 2 == 0); },
    [](Session & s, int i) { s.List()->SetMarkerWrapAround(i % 2 ? 100 : -1); },
    [](Session & s, int i) { s.List()->SetMarkerWrapIntoRange(0, i % 120); },
    [](Session & s, int i) { s.List()->SetEnableMarker(Ids[0], i % 2 == 0); },
    [](Session & s, int i) { s.List()->SetShowResultFlag(42, i % 2 == 0); },
    [](Session & s, int i) { s.List()->slotSetState(QStringLiteral("/test/first"), EMarkerState(i % 4), i % 3 != 0); },
    [](Session & s, int i) { s.List()->AddMarker(Ids[static_cast<std::size_t>(i) % 4]); },
    [](Session & s, int i) { s.List()->SetMarker_ValuePath(i % 2 ? 0 : 9, QStringLiteral("/test/first")); },
    [](Session & s, int i) { s.List()->SetMarker_ValuePath(5, QLatin1String(i % 3 ? "/test/second" : "")); },
    [](Session & s, int i) { s.List()->SetOffset_ValuePath(QLatin1String(i % 3 ? "/test/offset" : "/test/first")); },
    [](Session & s, int i) { s.List()->AddOutsideMarker(s.At(i)); },
    [](Session & s, int i) {
        if (s.At(i) && s.At(i + 1))
            *s.At(i) = *s.At(i + 1);
    },
    [](Session & s, int i) { i % 2 ? s.List()->hide() : s.List()->show(); },
    [](Session & s, int i) { s.Window()->setWindowState(i % 2 ? Qt::WindowMinimized : Qt::WindowNoState); },
    [](Session & /*s*/, int i) {
        i % 2 ? GuiBase::Instance().UndoStack()->undo() : GuiBase::Instance().UndoStack()->redo();
    },
    [](Session & s, int) {
        QImage image(120, 20, QImage::Format_RGB32);
        s.List()->render(&image);
        s.List()->GetOutsideMarkers();
    },
    [](Session & s, int) {
        Event(s.List(), QMouseEvent(QEvent::MouseButtonDblClick, QPointF(1, 1), QPointF(1, 1), Qt::LeftButton,
                                    Qt::LeftButton, Qt::NoModifier));
        s.List()->TraceIndexAndName();
    },
} };

} // namespace

class tst_markerlist_disruption : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void goesAwayAfterEveryEvent_data();
    void goesAwayAfterEveryEvent();
    void cleanupTestCase();

private:
    bool Play(ETarget target, int last, std::vector<int> const & script);

    long long m_sessions = 0;
    long long m_events = 0;
    QElapsedTimer m_time;
};

void tst_markerlist_disruption::goesAwayAfterEveryEvent_data()
{
    QTest::addColumn<int>("target");
    for (int target = 0; target < eTargets; ++target)
        QTest::newRow(TargetNames[static_cast<std::size_t>(target)]) << target;
    m_time.start();
}

//! Plays the session, and takes the target away after one of its events. \return whether all is tidy afterwards.
bool tst_markerlist_disruption::Play(ETarget target, int last, std::vector<int> const & script)
{
    GuiBase::Instance().UndoStack()->clear();
    Session session;
    for (int i = 0; i < EventCount && session.List(); ++i) {
        Steps[static_cast<std::size_t>(script[static_cast<std::size_t>(i)])](session,
                                                                             i + i / static_cast<int>(Steps.size()));
        ++m_events;
        if (i == last)
            session.Take(target, i);
    }
    ++m_sessions;
    return session.IsTidy();
}

void tst_markerlist_disruption::goesAwayAfterEveryEvent()
{
    QFETCH(int, target);
    std::vector<int> script(EventCount);
    for (int i = 0; i < EventCount; ++i)
        script[static_cast<std::size_t>(i)] = i % static_cast<int>(Steps.size());
    std::mt19937_64 random(TestStage::Seed() + static_cast<unsigned>(target));
    for (long long turn = 0; turn < TestStage::Turns(1, 30); ++turn) {
        for (int last = 0; last < EventCount; ++last)
            QVERIFY2(Play(static_cast<ETarget>(target), last, script), qPrintable(QString::number(last)));
        std::shuffle(script.begin(), script.end(), random);
    }
    ColorSet::Instance().Load(0);
}

void tst_markerlist_disruption::cleanupTestCase()
{
    std::printf("figures: list of markers: %lld sessions, %lld events, seed %llu, %lld ms: all tidy\n", m_sessions,
                m_events, TestStage::Seed(), static_cast<long long>(m_time.elapsed()));
}

ORIM_TEST_MAIN(tst_markerlist_disruption)
#include "tst_markerlist_disruption.moc"
