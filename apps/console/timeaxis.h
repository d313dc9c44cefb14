// SPDX-License-Identifier: MIT
#ifndef ORIM_TIMEAXIS_H
#define ORIM_TIMEAXIS_H

#include "scaleaxis.h"

#include <QString>

#include <vector>

//! The time scale at the left of a waterfall: times of day in the chosen time zone. A time stands at the row in which
//! it passes, so that the scale keeps to the rows where they paused or changed their rate. The range is that of the
//! rows and cannot be zoomed.
class TimeAxis : public ScaleAxis
{
    Q_OBJECT
public:
    //! A tic of the scale.
    struct Tic
    {
        int row;       // device pixels from the first one of the picture
        QString label; // empty where it has no room
    };

    explicit TimeAxis(QWidget * parent);
    ~TimeAxis() override;

    //! Takes the times of the rows, one a device pixel.
    //! \param times  us since 1970 in UTC, newest first. One above that of a newer row, as after the clock was set
    //!               back, counts as that of the newer one.
    void SetRows(std::vector<double> times);

    //! The tics, newest first.
    std::vector<Tic> GetTimeTics();

    using AxisBase::PixelToValue;
    using AxisBase::ValueToPixel;
    //! Time of the row at a pixel; the nearest row's beyond them; -1.0 without rows.
    double PixelToValue(int pixel) const override;
    //! Pixel of the row in which a time passes; -1 for NaN and outside the rows.
    int ValueToPixel(double value) const override;
    void BuildFormatString(QString & out, double value, Marker * marker) override;

protected:
    ScaleTics Tics() const override;
    void PaintBeside(QPainter & painter) override;

private:
    QString LabelOf(double time);

    std::vector<double> m_times; // newest first, falling
};

#endif
