// SPDX-License-Identifier: MIT
#ifndef ORIM_SHADINGBAR_H
#define ORIM_SHADINGBAR_H

#include "scaleaxis.h"

//! The colours of the levels, at the right of a picture: a bar of the colour set that serves levels, over the level
//! range, with its scale in dBFS.
class ShadingBar : public ScaleAxis
{
    Q_OBJECT
public:
    static constexpr int BarWidth = 14; // px

    explicit ShadingBar(QWidget * parent);
    ~ShadingBar() override;

    //! The bar, device pixels.
    QRect GetBarRect() const;

    //! Width that holds bar, tics and labels, px.
    static int Thickness(QFontMetrics const & metrics);

protected:
    QRect ScaleRect() const override;
    QString RangeText() const override;
    void PaintBeside(QPainter & painter) override;
};

#endif
