// SPDX-License-Identifier: MIT
#ifndef ORIM_ZOOMPROBE_H
#define ORIM_ZOOMPROBE_H

#include "axisprobe.h"

#include <QMouseEvent>
#include <QPointer>
#include <QSignalSpy>
#include <QStringList>

#include <functional>
#include <utility>
#include <vector>

//! An axis that may be zoomed, shows 0 to 100, and writes down which ways to zoom were taken.
class ZoomProbe : public AxisProbe
{
public:
    explicit ZoomProbe(unsigned int type = AxisHorizontal, int width = 101, int height = 20)
        : AxisProbe(type, width, height)
    {
        SetRange(0.0, 100.0);
        SetAxisZoomEnable(true, true);
        Forget();
    }

    void Forget()
    {
        m_calls.clear();
        m_ends.clear();
        m_clicks.clear();
        m_heard.clear();
        m_calculations = m_repairs = m_repairDrawings = m_menus = m_paints = 0;
        SetMustRecalcRulers(false);
    }

    void SetStartValue(double value) override
    {
        m_ends << QStringLiteral("start %1").arg(value);
        AxisProbe::SetStartValue(value);
    }

    void SetStopValue(double value) override
    {
        m_ends << QStringLiteral("stop %1").arg(value);
        AxisProbe::SetStopValue(value);
    }

    bool SetZoomedRange(double start, double stop, bool record) override
    {
        m_calls << QStringLiteral("SetZoomedRange %1 %2 %3").arg(start).arg(stop).arg(record);
        return AxisProbe::SetZoomedRange(start, stop, record);
    }

    bool ZoomToDefault() override
    {
        m_calls << QStringLiteral("ZoomToDefault");
        return AxisProbe::ZoomToDefault();
    }

    bool ZoomToBest() override
    {
        m_calls << QStringLiteral("ZoomToBest");
        return m_hasBest || AxisProbe::ZoomToBest();
    }

    void ZoomToDevice() override
    {
        m_calls << QStringLiteral("ZoomToDevice");
        AxisProbe::ZoomToDevice();
    }

    bool ZoomToBegin() override
    {
        m_calls << QStringLiteral("ZoomToBegin");
        return AxisProbe::ZoomToBegin();
    }

    void AxisClicked(int pixel) override
    {
        m_clicks.push_back(pixel);
        AxisProbe::AxisClicked(pixel);
    }

    void Update(Observable * subject, TChangeCode code) override
    {
        m_heard.push_back(subject);
        AxisProbe::Update(subject, code);
    }

    //! Sends a mouse event at a pixel of the axis; the other coordinate is 5.
    void Mouse(QEvent::Type type, int pixel, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
               Qt::MouseButton button = Qt::LeftButton)
    {
        bool const isDown = (GetAxisType() & (AxisHorizontal | AxisVertical)) == AxisVertical;
        QPointF const position = isDown ? QPointF(5, pixel) : QPointF(pixel, 5);
        bool const isMove = type == QEvent::MouseMove;
        QMouseEvent event(type, position, position, isMove ? Qt::NoButton : button,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : button, modifiers);
        QCoreApplication::sendEvent(this, &event);
    }

    void Press(int pixel, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        Mouse(QEvent::MouseButtonPress, pixel, modifiers);
    }

    void Move(int pixel, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        Mouse(QEvent::MouseMove, pixel, modifiers);
    }

    void Release(int pixel, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        Mouse(QEvent::MouseButtonRelease, pixel, modifiers);
    }

    void DoubleClick() { Mouse(QEvent::MouseButtonDblClick, 50); }

    //! What SetStartValue() and SetStopValue() were given when they brought the present range.
    QStringList EndsOfRange() const
    {
        return { QStringLiteral("start %1").arg(m_start), QStringLiteral("stop %1").arg(m_stop) };
    }

    QString Range() const { return QStringLiteral("%1..%2").arg(m_start).arg(m_stop); }

    bool m_hasBest = false; // what the pane's own zoom answers
    QStringList m_calls;
    QStringList m_ends; // set by name
    std::vector<int> m_clicks;
    std::vector<Observable *> m_heard;
};

//! 101 pixels along the axis for 0 to 100, so that a pixel is a unit.
struct ZoomScene
{
    explicit ZoomScene(unsigned int type = AxisBase::AxisHorizontal)
        : axis(type, type == AxisBase::AxisVertical ? 20 : 101, type == AxisBase::AxisVertical ? 101 : 20)
    {}

    QString State() const
    {
        return QStringLiteral("mode %1, press %2, band %3 to %4")
            .arg(axis.m_mouseMode)
            .arg(axis.m_pressPixel)
            .arg(axis.m_bandStart)
            .arg(axis.m_bandEnd);
    }

    ZoomProbe axis;
    QSignalSpy zoomed{ &axis, &AxisBase::Zoomed };
};

//! An axis and the values that it may be bound to; start and stop are bound to begin with.
struct BoundAxis
{
    explicit BoundAxis(bool withCenter = false, bool withHalf = false)
    {
        start->SetValue(0.0, nullptr);
        stop->SetValue(100.0, nullptr);
        center->SetValue(50.0, nullptr);
        half->SetValue(7.0, nullptr);
        axis->SetStart_ValuePath(start.Path());
        axis->SetStop_ValuePath(stop.Path());
        if (withCenter)
            axis->SetCenter_ValuePath(center.Path());
        if (withHalf)
            axis->SetHalfWidth_ValuePath(half.Path());
        axis->SetDefaultRange(-1.0, -1.0);
        axis->Forget();
    }

    ~BoundAxis() { delete axis.data(); }

    Planted<ValueNumeric<double>> start{ "start" };
    Planted<ValueNumeric<double>> stop{ "stop" };
    Planted<ValueNumeric<double>> center{ "center" };
    Planted<ValueNumeric<double>> half{ "half" };
    QPointer<ZoomProbe> axis = new ZoomProbe;
};

//! Does something whenever it hears of a value.
class OnChange : public IObserver
{
public:
    OnChange(ValueBase * value, std::function<void()> action) : m_action(std::move(action))
    {
        value->AddObserver(this);
    }

    void Update(Observable * /*subject*/, TChangeCode code) override
    {
        m_codes << QString::number(static_cast<int>(code));
        if (m_action)
            m_action();
    }

    QStringList m_codes;

private:
    std::function<void()> m_action;
};

#endif
