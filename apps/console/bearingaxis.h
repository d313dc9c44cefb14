// SPDX-License-Identifier: MIT
#ifndef ORIM_BEARINGAXIS_H
#define ORIM_BEARINGAXIS_H

#include "scaleaxis.h"

//! The scale of azimuth or of elevation at the left of a picture, degrees. That of azimuth is a circle: its labels
//! follow the azimuth mode, which its context menu chooses, and while bearings count from the vehicle it bears the
//! colours of starboard and port. The unit stands above the scale.
class BearingAxis : public ScaleAxis
{
    Q_OBJECT
public:
    enum class Kind
    {
        eAzimuth,
        eElevation
    };

    BearingAxis(QWidget * parent, Kind kind);
    ~BearingAxis() override;

    bool IsCircle() const { return m_kind == Kind::eAzimuth; }

    void BuildMenu() override;

protected:
    //! Beside the colours of starboard and port.
    QRect ScaleRect() const override;
    QRect UnitRect() const override;
    QString RangeText() const override;
    //! Steps that divide a circle evenly.
    ScaleTics Tics() const override;
    //! Leaves a circle as it is.
    void mouseDoubleClickEvent(QMouseEvent * event) override;

private:
    void ShowAll();

    Kind m_kind;
};

#endif
