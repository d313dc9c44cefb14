// SPDX-License-Identifier: MIT
#ifndef ORIM_TESTMARKERLIST_H
#define ORIM_TESTMARKERLIST_H

#include "markerlist.h"
#include "placeof.h"
#include "tree.h"
#include "valuenumeric.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QStringList>
#include <QTimerEvent>
#include <QVariant>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>
#include <vector>

//! A list of markers over a straight axis of 101 pixels, 0 to 100, that writes down what it is asked for.
class TestMarkerList : public MarkerList
{
public:
    using MarkerList::MarkerList;
    using MarkerList::StartResizeTimer;

    double m_start = 0.0;
    double m_stop = 100.0;
    int m_pixels = 101;
    QStringList m_calls;      // RepairDrawing, Repair, updateWidget and the like, in order
    std::vector<int> m_moved; // indices given to SetLastMovingIndex
    std::vector<int> m_asked; // directions given to the mapping

    int Count(QString const & call) const { return static_cast<int>(m_calls.count(call)); }

    void Forget()
    {
        m_calls.clear();
        m_moved.clear();
        m_asked.clear();
    }

    double PixelToValue(int direction, int pixel) override
    {
        m_asked.push_back(direction);
        return m_start + (m_stop - m_start) * pixel / (m_pixels - 1);
    }

    int ValueToPixel(int direction, double value) override
    {
        m_asked.push_back(direction);
        double const part = (value - m_start) / (m_stop - m_start);
        return part >= 0.0 && part <= 1.0 ? static_cast<int>(std::lround(part * (m_pixels - 1))) : -1;
    }

    void RepairDrawing() override { m_calls << QStringLiteral("RepairDrawing"); }

    void GetCurrentStartStop(int direction, double & start, double & stop) override
    {
        m_asked.push_back(direction);
        start = m_start;
        stop = m_stop;
    }

    void Repair() override
    {
        m_calls << QStringLiteral("Repair");
        MarkerList::Repair();
    }

    void updateWidget() override
    {
        m_calls << QStringLiteral("updateWidget");
        MarkerList::updateWidget();
    }

    void SetLastMovingIndex(int index) override
    {
        m_moved.push_back(index);
        MarkerList::SetLastMovingIndex(index);
    }

    void OnMinimize(bool minimized) override { m_calls << QStringLiteral("OnMinimize %1").arg(minimized); }

    void doResize(int width, int height) override
    {
        m_calls << QStringLiteral("doResize %1 %2").arg(width).arg(height);
    }

    void slotClearColors() override
    {
        m_calls << QStringLiteral("slotClearColors");
        MarkerList::slotClearColors();
    }

    //! Lets a timer fire.
    void Fire(int id)
    {
        QTimerEvent event(id);
        QCoreApplication::sendEvent(this, &event);
    }

    //! Turns the wheel. \return whether the list took the event itself.
    bool Wheel(int delta)
    {
        QWheelEvent event(QPointF(1, 1), QPointF(1, 1), QPoint(), QPoint(0, delta), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        event.setAccepted(true);
        wheelEvent(&event);
        return event.isAccepted();
    }
};

//! A number in the tree, taken from it at the end.
class TreeNumber
{
public:
    explicit TreeNumber(char const * name, double value = 0.0)
        : m_path(QStringLiteral("/test/") + QLatin1String(name))
        , m_pValue(new ValueNumeric<double>(QLatin1String(name)))
    {
        m_pValue->SetValue(value, nullptr);
        Tree::Instance()->Insert(QStringLiteral("/test"), m_pValue);
    }

    TreeNumber(TreeNumber const &) = delete;
    TreeNumber & operator=(TreeNumber const &) = delete;

    ~TreeNumber() { Remove(); }

    void Remove() { Tree::Instance()->Remove(m_path); }

    QString const & Path() const { return m_path; }

    ValueNumeric<double> * operator->() const { return m_pValue; }

    ValueNumeric<double> * Get() const { return m_pValue; }

private:
    QString m_path;
    ValueNumeric<double> * m_pValue; // of the tree
};

//! Counts the timers that fire in an object.
class TimerCounter : public QObject
{
public:
    explicit TimerCounter(QObject & watched) { watched.installEventFilter(this); }

    int m_timers = 0;

    bool eventFilter(QObject * /*watched*/, QEvent * event) override
    {
        m_timers += event->type() == QEvent::Timer ? 1 : 0;
        return false;
    }
};

//! A signalSetState() that a spy saw: path, state and bool.
inline QString StateText(QList<QVariant> const & arguments)
{
    return QStringLiteral("%1 %2 %3")
        .arg(arguments[0].toString())
        .arg(static_cast<int>(arguments[1].value<EMarkerState>()))
        .arg(arguments[2].toBool());
}

//! Writes down what it hears: "3" for a change of the value, and so on.
class Listener : public IObserver
{
public:
    QStringList m_heard;

    void Update(Observable * /*subject*/, TChangeCode code) override
    {
        m_heard << QString::number(static_cast<int>(code));
    }
};

//! Does something once, when it hears one of the codes or is told to.
class Meddler : public IObserver
{
public:
    explicit Meddler(std::function<void()> action) : m_action(std::move(action)) {}

    void Update(Observable * /*subject*/, TChangeCode code) override
    {
        if (m_code == code || m_code == 0)
            Act();
    }

    void Act()
    {
        std::function<void()> const action = std::move(m_action);
        m_action = nullptr;
        if (action)
            action();
    }

    int m_code = 0; // 0: every one

private:
    std::function<void()> m_action;
};

//! A list, visible unless told otherwise, with one marker for one value.
struct MarkerScene
{
    explicit MarkerScene(double value = 0.0, bool visible = true) : number("number", value)
    {
        if (visible)
            list.show();
        marker = list.AddMarker(3);
    }

    void Bind(double factor = 1.0)
    {
        marker->SetFactor(factor);
        marker->SetMoveable(true);
        marker->Set_ValuePath(number.Path());
        Rest();
    }

    //! As after a while without a change.
    void Rest()
    {
        marker->SetMoving(false, true);
        marker->StopTimer();
        marker->SetPixel(5);
        list.Forget();
    }

    TreeNumber number;
    TestMarkerList list;
    Marker * marker;
};

//! Interval of a timer that an object runs, ms; -1 for one that does not run.
inline int IntervalOf(QObject & object, int id)
{
    auto const timers = QAbstractEventDispatcher::instance()->registeredTimers(&object);
    auto const found =
        std::find_if(timers.begin(), timers.end(), [id](auto const & timer) { return timer.timerId == id; });
    return found == timers.end() ? -1 : found->interval;
}

#endif
