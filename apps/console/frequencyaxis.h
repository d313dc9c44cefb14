// SPDX-License-Identifier: MIT
#ifndef ORIM_FREQUENCYAXIS_H
#define ORIM_FREQUENCYAXIS_H

#include "scaleaxis.h"

//! The frequency scale below a picture. Values are in Hz; they are shown in the unit that suits the range.
class FrequencyAxis : public ScaleAxis
{
    Q_OBJECT
public:
    explicit FrequencyAxis(QWidget * parent);
    ~FrequencyAxis() override;

    //! Height that holds tics and labels, px.
    int Thickness() const;

protected:
    QString RangeText() const override;

private:
    void TakeUnit();
};

#endif
