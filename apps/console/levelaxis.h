// SPDX-License-Identifier: MIT
#ifndef ORIM_LEVELAXIS_H
#define ORIM_LEVELAXIS_H

#include "scaleaxis.h"

//! The level scale at the left of a picture, dBFS. The unit stands above the scale.
class LevelAxis : public ScaleAxis
{
    Q_OBJECT
public:
    explicit LevelAxis(QWidget * parent);
    ~LevelAxis() override;

protected:
    QRect UnitRect() const override;
    QString RangeText() const override;
};

#endif
