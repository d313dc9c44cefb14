// SPDX-License-Identifier: MIT
#ifndef ORIM_RANGESCENE_H
#define ORIM_RANGESCENE_H

#include "axisrangedisplay.h"

#include "axisprobe.h"
#include "guibase.h"
#include "vclabel.h"

#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QUndoStack>

#include <functional>
#include <limits>

using Number = ValueNumeric<double>;

constexpr unsigned int Across = AxisBase::AxisHorizontal;
constexpr unsigned int AcrossTime = AxisBase::AxisHorizontal | AxisBase::AxisTimeStamps;
constexpr double Today = 1795273200e6; // us, 2026-11-21 15:00 UTC
constexpr double Second = 1e6;
constexpr double Largest = std::numeric_limits<double>::max();

//! An axis on the screen, its display, and four values in the tree that it is bound to.
struct Stage
{
    // one at a time: the values have fixed paths
    explicit Stage(unsigned int style = AxisRangeDisplay::StyleHorizontal, unsigned int type = Across)
        : axis(type, 600, 40)
        , display(new AxisRangeDisplay(&axis, "display", style))
    {
        axis.SetRange(0.0, 100.0);
        display->SetRuler1_ValuePath(ruler1.Path());
        display->SetRuler2_ValuePath(ruler2.Path());
        display->SetCenter_ValuePath(center.Path());
        display->SetExportDifference_ValuePath(difference.Path());
    }

    //! Shows the display and has the event loop catch up.
    void Show()
    {
        axis.show();
        axis.slotShowAxisRangeDisplay(true);
        QCoreApplication::processEvents();
    }

    void Rulers(double a, double b)
    {
        ruler1->SetValue(a, nullptr);
        ruler2->SetValue(b, nullptr);
    }

    template <class T = VCLabel>
    T * Part(char const * name) const
    {
        return display->findChild<T *>(QLatin1String(name));
    }

    QString Text(char const * name) const { return Part(name)->text(); }

    QStringList Texts() const
    {
        return { Text("First Ruler"), Text("Difference"), Text("Second Ruler"), Text("Center") };
    }

    QPushButton * Button() const { return display->findChild<QPushButton *>(); }

    QLineEdit * Entry() const { return display->findChild<QLineEdit *>(); }

    Planted<Number> ruler1{ "ruler1" };
    Planted<Number> ruler2{ "ruler2" };
    Planted<Number> center{ "center" };
    Planted<Number> difference{ "difference" };
    AxisProbe axis;
    AxisRangeDisplay * display;
};

//! Counts notifications of a value, and may answer them.
class Listener : public IObserver
{
public:
    explicit Listener(Observable * value, std::function<void(TChangeCode)> answer = {}) : m_answer(std::move(answer))
    {
        value->AddObserver(this);
    }

    void Update(Observable * /*subject*/, TChangeCode code) override
    {
        ++m_told;
        if (m_answer)
            m_answer(code);
    }

    int m_told = 0;

private:
    std::function<void(TChangeCode)> m_answer;
};

#endif
