// SPDX-License-Identifier: MIT
// A session of some hundred steps with a bound axis. After each (every third in the short form) of the events that it
// causes, one at a time, the axis, its parent, one of its values or its marker is deleted, and the session goes on. Qt
// does not outlive a widget that ends while it is shown, resized, painted or given a palette: then the widget goes
// right afterwards.

#include "axisbase.h"
#include "coloryrulerleft.h"
#include "guibase.h"
#include "marker.h"
#include "suffixeddouble.h"
#include "testmain.h"
#include "tree.h"
#include "valueselection.h"

#include <QImage>
#include <QMouseEvent>
#include <QPointer>
#include <QTimerEvent>

#include <cstdio>
#include <functional>
#include <memory>

namespace {

enum ETarget
{
    eAxis,
    eParent,
    eStart,
    eStop,
    eSpeed,
    eOffset,
    eDisplay,
    eShading,
    eRebuild,
    eMarker,
    eTargets
};

QString PathOf(ETarget target) { return QStringLiteral("/session/%1").arg(static_cast<int>(target)); }

char const * const Names[eTargets] = { "axis",   "parent",  "start",   "stop",    "speed",
                                       "offset", "display", "shading", "rebuild", "marker" };

class Session : public QObject
{
public:
    //! \param target, when  what to delete after which event; -1 for never.
    Session(bool ruler, ETarget target, int when) : m_target(target), m_when(when)
    {
        Plant();
        m_pParent = new QWidget;
        m_pParent->resize(300, 300);
        m_pAxis = ruler ? new ColorYRulerLeft(m_pParent) : new AxisBase(m_pParent, "axis", 0x4110U);
        m_pAxis->resize(60, 200);
        m_pAxis->SetRepairDelay(0);
        m_pAxis->installEventFilter(this);
        connect(m_pAxis, &AxisBase::redrawBars, this, &Session::Count);
        connect(m_pAxis, &AxisBase::signalRangeChanged, this, &Session::Count);
        Bind();
    }

    ~Session() override
    {
        delete m_pParent;
        Tree::Instance()->RemoveFolder(QStringLiteral("/session"));
    }

    //! \return how many events there were.
    int Run()
    {
        for (int round = 0; round < 5; ++round)
            for (int step = 0; step < 24; ++step) {
                m_isInQt = step == 7 || step == 12 || step == 13 || step >= 22;
                Step(step, round);
                m_isInQt = false;
                if (m_isDue)
                    Delete();
                Count();
                m_isInQt = true;
                QCoreApplication::sendPostedEvents(nullptr, 0);
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            }
        return m_count;
    }

    bool eventFilter(QObject * /*watched*/, QEvent * /*event*/) override
    {
        Count();
        return !m_pAxis; // the event has nobody to go to any more
    }

private:
    template <class T>
    T * Value(ETarget target) const
    {
        return Tree::Instance()->FindAs<T>(PathOf(target));
    }

    void Plant()
    {
        for (ETarget const target : { eStart, eStop, eSpeed, eRebuild })
            Tree::Instance()->Insert(QStringLiteral("/session"), new ValueNumeric<double>(QString::number(target)));
        Tree::Instance()->Insert(QStringLiteral("/session"), new ValueNumeric<int>(QString::number(eOffset)));
        for (ETarget const target : { eDisplay, eShading }) {
            auto * const choice = new ValueSelection(QString::number(target));
            for (long const key : { 0L, 2L, 6L, 8L })
                choice->AddItem({ QString::number(key), 0.0, key });
            Tree::Instance()->Insert(QStringLiteral("/session"), choice);
        }
    }

    void Bind()
    {
        using Operation = bool (AxisBase::*)(QString const &);
        std::pair<Operation, ETarget> const bindings[] = { { &AxisBase::SetStart_ValuePath, eStart },
                                                           { &AxisBase::SetStop_ValuePath, eStop },
                                                           { &AxisBase::SetPixPerSecond_ValuePath, eSpeed },
                                                           { &AxisBase::SetOffset_ValuePath, eOffset },
                                                           { &AxisBase::SetDisplayAzimuth_ValuePath, eDisplay },
                                                           { &AxisBase::SetShadingColor_ValuePath, eShading } };
        for (auto const & [operation, target] : bindings)
            if (m_pAxis)
                (m_pAxis->*operation)(PathOf(target));
        for (unsigned int index = 0; index < 4; ++index)
            if (m_pAxis)
                m_pAxis->SetForceRebuild_ValuePath(PathOf(eRebuild), index);
        if (m_pAxis)
            m_pAxis->AddMarker(eYellowX, true, IColorBase::eColorMarker, true, eSpecialX, QStringLiteral("marker"));
        if (m_pAxis)
            m_pAxis->SetMarker_ValuePath(eYellowX, PathOf(eStart));
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
        m_isDue = false;
        if (m_target == eAxis)
            delete m_pAxis.data();
        else if (m_target == eParent)
            delete m_pParent.data();
        else if (m_target != eMarker)
            Tree::Instance()->Remove(PathOf(m_target));
        else if (m_pAxis) {
            m_pAxis->DeleteMarker(eYellowX);
            m_pAxis->RebuildMarkerList();
        }
    }

    void Write(ETarget target, double value) const
    {
        if (auto * const number = Value<IValueNumeric>(target))
            number->SetNumericValue(value, nullptr);
    }

    void Choose(ETarget target, long key) const
    {
        if (auto * const choice = Value<ValueSelection>(target))
            choice->Select(key, nullptr);
    }

    void Mouse(QEvent::Type type, Qt::MouseButton button) const
    {
        QMouseEvent event(type, QPointF(30, 100), QPointF(30, 100), button, button, Qt::NoModifier);
        QCoreApplication::sendEvent(m_pAxis, &event);
    }

    void FireRepair() const
    {
        QTimerEvent event(m_pAxis->GetRepairTimerID());
        QCoreApplication::sendEvent(m_pAxis, &event);
    }

    void StepOfValues(int step, int round) const
    {
        switch (step) {
        case 0:
            return Write(eStart, 10.0 * round);
        case 1:
            return Write(eStop, 100.0 + round);
        case 2:
            return Write(eSpeed, 10.0 + round);
        case 3:
            return Write(eOffset, 3.0 + round);
        case 4:
            return Choose(eDisplay, round == 1 ? 6L : 8L);
        case 5:
            return Choose(eShading, round == 1 ? 0L : 2L);
        case 6:
            return Write(eRebuild, round + 0.5);
        default:
            return GuiBase::Instance().emit_signalColorsChanged();
        }
    }

    void StepOfAxis(int step, int round)
    {
        switch (step) {
        case 8:
            return m_pAxis->SetRange(round, 200.0);
        case 9:
            return m_pAxis->SetPixPerSecond(7.0 + round);
        case 10:
            return m_pAxis->SetOffset(5.0 + round);
        case 11:
            return m_pAxis->SetShadingColor(VC::eShadingAzimuth);
        case 12:
            return m_pAxis->resize(60 + round, 150);
        case 13:
            return round == 1 ? m_pParent->hide() : m_pParent->show();
        case 14:
            return Mouse(QEvent::MouseButtonPress, Qt::LeftButton);
        case 15:
            return Mouse(QEvent::MouseMove, Qt::NoButton);
        case 16:
            return Mouse(QEvent::MouseButtonRelease, Qt::LeftButton);
        case 17:
            return Mouse(QEvent::MouseButtonDblClick, Qt::LeftButton);
        case 18:
            return FireRepair();
        case 19:
            return m_pAxis->SetConverter(round == 1 ? nullptr : new SuffixedDouble);
        case 20:
            return m_pAxis->SetFixedRange(0.0, 10.0, 5, 2, 1, 1.0, 2.0);
        case 21:
            return Bind();
        case 22:
            return m_pAxis->setFocus();
        default:
            break;
        }
        QImage image(60, 200, QImage::Format_RGB32);
        m_pAxis->render(&image);
    }

    void Step(int step, int round)
    {
        if (step < 8)
            StepOfValues(step, round);
        else if (m_pAxis)
            StepOfAxis(step, round);
    }

    ETarget m_target;
    int m_when;
    int m_count = 0;
    bool m_isInQt = false;
    bool m_isDue = false;
    QPointer<QWidget> m_pParent;
    QPointer<AxisBase> m_pAxis;
};

} // namespace

class tst_axis_session : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void deletedAfterEachEvent_data();
    void deletedAfterEachEvent();
    void cleanupTestCase();

private:
    long long m_sessions = 0;
};

void tst_axis_session::deletedAfterEachEvent_data()
{
    QTest::addColumn<bool>("ruler");
    QTest::addColumn<int>("target");
    for (bool const ruler : { false, true })
        for (int target = 0; target < eTargets; ++target)
            QTest::addRow("%s: %s", ruler ? "ruler" : "axis", Names[target]) << ruler << target;
}

void tst_axis_session::deletedAfterEachEvent()
{
    QFETCH(bool, ruler);
    QFETCH(int, target);
    int const events = Session(ruler, static_cast<ETarget>(target), -1).Run();
    QVERIFY(events > 200);
    int const stride = static_cast<int>(TestStage::Turns(3, 1)); // each target takes another third
    for (int when = target % stride; when < events; when += stride) {
        Session(ruler, static_cast<ETarget>(target), when).Run();
        ++m_sessions;
        QVERIFY(Tree::Instance()->GetPaths(QStringLiteral("/session")).isEmpty());
    }
}

void tst_axis_session::cleanupTestCase()
{
    std::printf("figures: %lld sessions, each with one deletion\n", m_sessions);
}

ORIM_TEST_MAIN(tst_axis_session)
#include "tst_axis_session.moc"
