// SPDX-License-Identifier: MIT
#ifndef ORIM_SCALEAXIS_H
#define ORIM_SCALEAXIS_H

#include "axisbase.h"
#include "markerhand.h"
#include "scalestrip.h"

#include <QRect>

#include <vector>

//! Base of the scales beside a picture: paints tics, labels and unit at the resolution of the screen, and marks where
//! the markers stand, which can be dragged there. The range follows values as in every axis.
class ScaleAxis : public AxisBase
{
    Q_OBJECT
public:
    //! \param type  bits of the axis; its direction is among them.
    //! \param side  the edge at which the picture lies.
    ScaleAxis(QWidget * parent, char const * name, unsigned int type, ScaleStrip::ELineSide side);
    ~ScaleAxis() override;

    //! Part of the axis that the picture beside it covers, px along the axis; no scale for a length below 1.
    void SetPictureSpan(int first, int length);

    //! Tics, device pixels from the first one of the picture, rising: a grid drawn there continues them.
    std::vector<int> GetGridPixels();

    //! Width of a tic, device pixels.
    int GetTicWidth() const { return m_strip.GetTicWidth(); }

    //! Places of the labels and, last, of the unit, device pixels.
    std::vector<QRect> GetLabelRects();

    //! The picture that paintEvent() copies; null before the first one.
    QPixmap const * GetPicture() const { return m_pPixmap.get(); }

    //! The part beside the picture; across, the whole axis.
    QRect innerRect() const override;
    //! Whether the picture kept shows another range, size or resolution than the present one.
    bool bMustRebuildPixMap() override;
    void BuildPixMap() override;
    void RepairDrawing() override;
    void updateWidget() override; //!< the marks are laid anew
    using AxisBase::PixelToValue;
    //! Never -1.0, which means no value there.
    double PixelToValue(int section, int pixel) override;

protected:
    //! Where the scale itself stands in the axis, px.
    virtual QRect ScaleRect() const { return innerRect(); }

    //! Where the unit stands beside the scale, px; null, as here, to have it among the labels.
    virtual QRect UnitRect() const { return {}; }

    //! Paints beside the scale; nothing here.
    virtual void PaintBeside(QPainter & painter);

    bool RunsUp() const { return (GetAxisType() & AxisVertical) != 0; }

    void paintEvent(QPaintEvent * event) override;
    void resizeEvent(QResizeEvent * event) override;
    void changeEvent(QEvent * event) override;
    void showEvent(QShowEvent * event) override;
    void timerEvent(QTimerEvent * event) override;
    void mousePressEvent(QMouseEvent * event) override;
    void mouseMoveEvent(QMouseEvent * event) override;
    void mouseReleaseEvent(QMouseEvent * event) override;
    void mouseDoubleClickEvent(QMouseEvent * event) override;
    void keyPressEvent(QKeyEvent * event) override;
    void keyReleaseEvent(QKeyEvent * event) override;
    void focusOutEvent(QFocusEvent * event) override;

private:
    void UpdateStrip();
    ScaleStrip::Look Look() const;
    ScaleTics Tics() const;
    void LayMarks();
    void PaintMarks(QPainter & painter) const;
    QPolygonF MarkAt(QRect const & line) const;

    ScaleStrip::ELineSide m_side;
    ScaleStrip m_strip;
    MarkerHand m_hand;
    int m_first = 0; // px, of the picture beside
    int m_length = 0;
};

#endif
