// SPDX-License-Identifier: MIT
// A session of an operator who zooms, pans and steps back on an axis whose values are bound. After each of the events,
// signals and changes that it causes, one at a time, the axis, its parent or one of its values is deleted, and the
// session goes on: the values change after the axis has gone, too. Qt does not outlive a widget that ends while it is
// painted or posted events are sent: then the widget goes right afterwards.

#include "axisbase.h"
#include "testmain.h"
#include "tree.h"

#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QTimerEvent>

#include <cstdio>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace {

enum ETarget
{
    eAxis,
    eParent,
    eStart,
    eStop,
    eCenter,
    eHalf,
    eOffset,
    eTargets
};

char const * const Names[eTargets] = { "axis", "parent", "start", "stop", "center", "half", "offset" };
constexpr int ShortRounds = 2;
constexpr int LongRounds = 8;

QString PathOf(int target) { return QStringLiteral("/zooming/") + QLatin1String(Names[target]); }

//! A pane with all that an application may supply.
class Pane : public AxisBase
{
public:
    Pane(QWidget * parent, unsigned int type, std::function<void()> told)
        : AxisBase(parent, "pane", type)
        , m_told(std::move(told))
    {}

    bool ZoomToBest() override { return SetZoomedRange(10.0, 90.0, true); }

    void AxisClicked(int /*pixel*/) override { m_told(); }

    void DragOffset(bool on) { m_offsetDrag = on; }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        DrawWhileZoom(painter);
    }

private:
    std::function<void()> m_told;
};

class Session : public QObject, public IObserver
{
public:
    //! \param target, when  what to delete after which event; -1 for never.
    Session(bool vertical, ETarget target, int when) : m_vertical(vertical), m_target(target), m_when(when)
    {
        for (int value = eStart; value < eTargets; ++value) {
            auto * const number = new ValueNumeric<double>(QLatin1String(Names[value]));
            number->SetValue(value == eStop ? 100.0 : value == eCenter ? 50.0 : 0.0, nullptr);
            Tree::Instance()->Insert(QStringLiteral("/zooming"), number);
            number->AddObserver(this);
        }
        m_pParent = new QWidget;
        unsigned int const type = vertical ? AxisBase::AxisVertical : AxisBase::AxisHorizontal;
        m_pAxis = new Pane(m_pParent, type, [this] { Count(); });
        m_pAxis->resize(101, 101);
        m_pAxis->SetAxisZoomEnable(true, true);
        m_pAxis->SetDeviceRange(-50.0, 150.0);
        m_pAxis->SetRepairDelay(0);
        m_pAxis->installEventFilter(this);
        connect(m_pAxis, &AxisBase::Zoomed, this, &Session::Count);
        connect(m_pAxis, &AxisBase::redrawBars, this, &Session::Count);
        connect(m_pAxis, &AxisBase::signalRangeChanged, this, &Session::Count);
        connect(m_pAxis, &MarkerList::AxisDoubleClick, this, &Session::Count);
        Bind();
    }

    ~Session() override
    {
        delete m_pParent;
        Tree::Instance()->RemoveFolder(QStringLiteral("/zooming"));
    }

    //! \return how many events there were.
    int Run()
    {
        std::vector<std::function<void()>> const steps = Steps();
        long long const rounds = TestStage::Turns(ShortRounds, LongRounds);
        for (m_round = 0; m_round < rounds; ++m_round)
            for (auto const & step : steps) {
                if (m_pAxis)
                    step();
                else
                    Write(eStop, 90.0 + m_round);
                Drain();
            }
        return m_count;
    }

    bool eventFilter(QObject * /*watched*/, QEvent * /*event*/) override
    {
        Count();
        return !m_pAxis; // the event has nobody to go to any more
    }

    void Update(Observable * /*subject*/, TChangeCode /*code*/) override { Count(); }

private:
    void Bind()
    {
        std::pair<bool (AxisBase::*)(QString const &), ETarget> const bindings[] = {
            { &AxisBase::SetStart_ValuePath, eStart },   { &AxisBase::SetStop_ValuePath, eStop },
            { &AxisBase::SetCenter_ValuePath, eCenter }, { &AxisBase::SetHalfWidth_ValuePath, eHalf },
            { &AxisBase::SetOffset_ValuePath, eOffset },
        };
        for (auto const & [operation, target] : bindings)
            if (m_pAxis)
                (m_pAxis->*operation)(PathOf(target));
        if (m_pAxis)
            m_pAxis->SetDefaultRange(0.0, 100.0);
    }

    std::vector<std::function<void()>> Steps()
    {
        return {
            [this] { Drag(20, 60, Qt::NoModifier); },
            [this] { Drag(60, 63, Qt::NoModifier); },
            [this] { Drag(30, 70, Qt::NoModifier); },
            [this] { Drag(50, 40, Qt::ShiftModifier); },
            [this] { m_pAxis->UnZoom(); },
            [this] { m_pAxis->SetZoomedRange(m_round, 60.0, true); },
            [this] { DrawBand(); },
            [this] { Mouse(QEvent::MouseButtonDblClick, 50, Qt::NoModifier); },
            [this] { Mouse(QEvent::MouseButtonDblClick, 50, Qt::NoModifier); },
            [this] { m_pAxis->SetZoomedRange(20.0, 70.0, true); },
            [this] { m_pAxis->IsUnZoomAvailable(); },
            [this] { m_pAxis->ZoomToBegin(); },
            [this] { Refuse(); },
            [this] { m_pAxis->ZoomToDefault(); },
            [this] { m_pAxis->ZoomToDevice(); },
            [this] { Write(eCenter, 51.0 + m_round); },
            [this] { m_pAxis->UnZoom(); },
            [this] { DragOffset(); },
            [this] { Bind(); },
            [this] { FireRepair(); },
        };
    }

    //! What is posted, and what is to be deleted later.
    void Drain()
    {
        InQt([] {
            QCoreApplication::sendPostedEvents(nullptr, 0);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        });
    }

    void InQt(std::function<void()> const & call)
    {
        m_isInQt = true;
        call();
        m_isInQt = false;
        if (std::exchange(m_isDue, false))
            Delete();
    }

    void FireRepair() const
    {
        QTimerEvent event(m_pAxis->GetRepairTimerID());
        QCoreApplication::sendEvent(m_pAxis, &event);
    }

    void Drag(int from, int to, Qt::KeyboardModifiers modifiers)
    {
        Mouse(QEvent::MouseButtonPress, from, modifiers);
        Mouse(QEvent::MouseMove, (from + to) / 2, modifiers);
        Mouse(QEvent::MouseMove, to, modifiers);
        Mouse(QEvent::MouseButtonRelease, to, Qt::NoModifier);
    }

    void DragOffset()
    {
        m_pAxis->DragOffset(true);
        Drag(50, 60, Qt::ShiftModifier);
        if (m_pAxis)
            m_pAxis->DragOffset(false);
    }

    void DrawBand()
    {
        Mouse(QEvent::MouseButtonPress, 20, Qt::NoModifier);
        Mouse(QEvent::MouseMove, 60, Qt::NoModifier);
        if (!m_pAxis)
            return;
        QImage image(101, 101, QImage::Format_RGB32);
        InQt([&] { m_pAxis->render(&image); });
        Mouse(QEvent::MouseButtonRelease, 60, Qt::ShiftModifier);
        Mouse(QEvent::MouseButtonRelease, 60, Qt::NoModifier);
    }

    //! A range without tics.
    void Refuse()
    {
        m_pAxis->SetFixedTicWidth(100'000);
        m_pAxis->SetZoomedRange(20.0, 70.0, true);
        if (m_pAxis)
            m_pAxis->SetFixedTicWidth(-1);
    }

    void Mouse(QEvent::Type type, int pixel, Qt::KeyboardModifiers modifiers)
    {
        if (!m_pAxis)
            return;
        QPointF const position = m_vertical ? QPointF(5, pixel) : QPointF(pixel, 5);
        QMouseEvent event(type, position, position, type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, modifiers);
        QCoreApplication::sendEvent(m_pAxis, &event);
    }

    static void Write(ETarget target, double value)
    {
        if (auto * const number = Tree::Instance()->FindAs<ValueNumeric<double>>(PathOf(target)))
            number->SetValue(value, nullptr);
    }

    void Count()
    {
        if (m_count++ != m_when)
            return;
        if (m_isInQt && (m_target == eAxis || m_target == eParent))
            m_isDue = true;
        else
            Delete();
    }

    void Delete()
    {
        if (m_target == eAxis)
            delete m_pAxis.data();
        else if (m_target == eParent)
            delete m_pParent.data();
        else
            Tree::Instance()->Remove(PathOf(m_target));
    }

    bool m_vertical;
    ETarget m_target;
    int m_when;
    int m_count = 0;
    int m_round = 0;
    bool m_isInQt = false;
    bool m_isDue = false;
    QPointer<QWidget> m_pParent;
    QPointer<Pane> m_pAxis;
};

} // namespace

class tst_zoom_session : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void deletedAfterEachEvent_data();
    void deletedAfterEachEvent();
    void cleanupTestCase();

private:
    long long m_sessions = 0;
    int m_events = 0;
};

void tst_zoom_session::deletedAfterEachEvent_data()
{
    QTest::addColumn<bool>("vertical");
    QTest::addColumn<int>("target");
    for (bool const vertical : { false, true })
        for (int target = 0; target < eTargets; ++target)
            QTest::addRow("%s axis: %s", vertical ? "vertical" : "horizontal", Names[target]) << vertical << target;
}

void tst_zoom_session::deletedAfterEachEvent()
{
    QFETCH(bool, vertical);
    QFETCH(int, target);
    m_events = Session(vertical, static_cast<ETarget>(target), -1).Run();
    QVERIFY(m_events > 200);
    for (int when = 0; when < m_events; ++when) {
        Session(vertical, static_cast<ETarget>(target), when).Run();
        ++m_sessions;
        QVERIFY(Tree::Instance()->GetPaths(QStringLiteral("/zooming")).isEmpty());
    }
}

void tst_zoom_session::cleanupTestCase()
{
    std::printf("figures: %lld sessions of up to %d events, each with one deletion\n", m_sessions, m_events);
}

ORIM_TEST_MAIN(tst_zoom_session)
#include "tst_zoom_session.moc"
