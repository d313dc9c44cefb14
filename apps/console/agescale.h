// SPDX-License-Identifier: MIT
#ifndef ORIM_AGESCALE_H
#define ORIM_AGESCALE_H

#include "scaleaxis.h"

#include <QRgb>

#include <vector>

//! The colours of what ages, at the right of a picture: a bar from new at the top to old, a column a quality with the
//! worst at the left, and its scale in seconds. An ageing image that it is given to sets the range: 0 to the hold time.
class AgeScale : public ScaleAxis
{
    Q_OBJECT
public:
    static constexpr int BarWidth = 16; // px: a whole number for each column

    explicit AgeScale(QWidget * parent);
    ~AgeScale() override;

    //! Colours of the bar: for each quality those from the newest to the oldest; none: no bar.
    void SetAges(std::vector<std::vector<QRgb>> ages);

    std::vector<std::vector<QRgb>> const & GetAges() const { return m_ages; }

    //! The bar, device pixels.
    QRect GetBarRect() const;

    //! Ages count from the top, the other way than the range.
    void BuildFormatString(QString & out, double value, Marker * marker) override;

    ScaleTics Tics() const override;

protected:
    QRect ScaleRect() const override;
    void PaintBeside(QPainter & painter) override;

private:
    std::vector<std::vector<QRgb>> m_ages;
};

#endif
