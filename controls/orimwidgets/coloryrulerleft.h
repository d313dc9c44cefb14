// SPDX-License-Identifier: MIT
#ifndef ORIM_COLORYRULERLEFT_H
#define ORIM_COLORYRULERLEFT_H

#include "axisbase.h"
#include "orimwidgets_export.h"

//! A vertical ruler at the left of what it measures: tics along its right edge, each label at the left of its tic. The
//! topmost ten pixels stay free.
class ORIMWIDGETS_EXPORT ColorYRulerLeft : public AxisBase
{
    Q_OBJECT
public:
    //! \param name  object name; may be null.
    explicit ColorYRulerLeft(QWidget * parent = nullptr, char const * name = nullptr);
    ~ColorYRulerLeft() override;

    //! Makes the picture: ground and tics, the first max(1000, height in px) of a range that was given more. A widget
    //! without an area, or with one beyond 64 million pixels, has none.
    void BuildPixMap() override;

protected:
    //! Paints the picture, made anew, and emits AxisRepainted(). Does nothing while drawing is disabled.
    void paintEvent(QPaintEvent * event) override;

    //! Paints one tic with its label. A tic without a pixel, or in the topmost ten, is left out; so is a label that
    //! does not fit above its tic. \param index  of the tic, from 0. \param value  where it stands; the default, the
    //! smallest normal double, stands for that of the index.
    void DrawTic(QPainter & painter, int index, double value = 2.2250738585072014e-308);

    int m_labelReserve = 0; // px that a label keeps free above it
};

#endif
