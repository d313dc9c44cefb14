// SPDX-License-Identifier: MIT
#ifndef ORIM_ZOOMPROBE_H
#define ORIM_ZOOMPROBE_H

#include "axisprobe.h"

#include <QMouseEvent>
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
        m_clicks.clear();
        m_heard.clear();
        m_calculations = m_repairs = m_repairDrawings = m_menus = m_paints = 0;
        SetMustRecalcRulers(false);
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
        bool const isDown = (GetAxisType() & AxisVertical) != 0;
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

    QString Range() const { return QStringLiteral("%1..%2").arg(m_start).arg(m_stop); }

    bool m_hasBest = false; // what the pane's own zoom answers
    QStringList m_calls;
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
