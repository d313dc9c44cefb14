// SPDX-License-Identifier: MIT
#ifndef ORIM_CLIENTSCENE_H
#define ORIM_CLIENTSCENE_H

#include "clientwindow.h"
#include "resultscene.h"

//! Writes down what start and stop say, and whether start was ever above stop.
class BorderWatch : public IObserver
{
public:
    BorderWatch(ValueNumeric<double> * start, ValueNumeric<double> * stop) : m_pStart(start), m_pStop(stop)
    {
        start->AddObserver(this);
        stop->AddObserver(this);
    }

    void Update(Observable * subject, TChangeCode code) override
    {
        if (code != eValueChanged)
            return;
        bool const isStart = subject == m_pStart;
        m_heard << QStringLiteral("%1 %2")
                       .arg(QLatin1String(isStart ? "start" : "stop"))
                       .arg((isStart ? m_pStart : m_pStop)->GetValue());
        m_crossed += m_pStart->GetValue() > m_pStop->GetValue() ? 1 : 0;
    }

    QStringList m_heard;
    int m_crossed = 0;

private:
    ValueNumeric<double> * m_pStart;
    ValueNumeric<double> * m_pStop;
};

//! A visible list of 101 pixels, 0 to 100, with a window from 20 to 40 that is bound when asked.
struct ClientScene
{
    explicit ClientScene(EMarkerXYType direction = eMarkerX) : window(&list, direction)
    {
        list.resize(101, 61);
        list.show();
    }

    void BindBorders()
    {
        window.SetStart_ValuePath(start.Path(), 16);
        window.SetStop_ValuePath(stop.Path(), 17);
    }

    void Bind(bool isVisible = true)
    {
        BindBorders();
        visible->SetValue(isVisible, nullptr);
        window.SetVisible_ValuePath(visible.Path());
        list.Forget();
    }

    //! The pixels as "20 40".
    QString Pixels() const
    {
        int a = 0;
        int b = 0;
        window.IsValid(a, b);
        return QStringLiteral("%1 %2").arg(a).arg(b);
    }

    bool IsValid() const
    {
        int a = 0;
        int b = 0;
        return window.IsValid(a, b);
    }

    //! The values as "20 40".
    QString Values() const { return QStringLiteral("%1 %2").arg(start->GetValue()).arg(stop->GetValue()); }

    TreeNumber start{ "start", 20.0 };
    TreeNumber stop{ "stop", 40.0 };
    TreeValue<Value<bool>> visible{ "visible" };
    TreeValue<Value<bool>> focus{ "focus" };
    TreeValue<Value<QString>> text{ "text" };
    TestMarkerList list;
    ClientWindow window;
};

#endif
