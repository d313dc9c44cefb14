// SPDX-License-Identifier: MIT
#ifndef ORIM_AXISACCESSIBLE_H
#define ORIM_AXISACCESSIBLE_H

#include <QAccessibleWidget>

class AxisBase;

//! What a screen reader is told of an axis: an indicator, whose value is the range that it shows, "88.5 to 108 MHz".
class AxisAccessible : public QAccessibleWidget
{
public:
    explicit AxisAccessible(AxisBase * axis);

    //! Has Qt ask for one for every axis, until the library is unloaded. Works once.
    static void Install();

    //! The accessible name of the widget; "Scale" without one. The value is the range in the displayed unit, the start
    //! first.
    QString text(QAccessible::Text kind) const override;

private:
    QString Range() const;
};

#endif
