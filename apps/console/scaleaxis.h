// SPDX-License-Identifier: MIT
#ifndef ORIM_SCALEAXIS_H
#define ORIM_SCALEAXIS_H

#include "axisbase.h"
#include "markerhand.h"
#include "rangestep.h"
#include "scalestrip.h"

#include <QPointer>
#include <QRect>

#include <functional>
#include <optional>
#include <vector>

//! Base of the scales beside a picture: paints tics, labels and unit at the resolution of the screen, and marks where
//! the markers stand, which can be dragged there. The range follows values as in every axis; what the operator does
//! with it is a step of undo.
//!
//! A drag beside the markers zooms to a band, with Shift it pans; a double click shows the next range. Keys: plus and
//! minus zoom around the current marker, else around the middle; Control with the arrows of the direction pans;
//! Backspace goes back, Home does what a double click does, Escape abandons a drag.
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

    bool SetZoomedRange(double start, double stop, bool record) override;
    bool ZoomToDefault() override;
    //! A vertical scale asks by signalBest() for a range. \return whether it is another one.
    bool ZoomToBest() override;
    void ZoomToDevice() override;
    bool ZoomToBegin() override;
    //! Passes over ranges that are shown already, as after undo.
    void UnZoom() override;
    void UpdateMenu(ResortPopupMenu * menu) override;

    //! Least width of a range, axis units: a narrower one that is zoomed to becomes as wide around its middle, within
    //! the limits of the values. 0, as at the start, for none.
    void SetLeastSpan(double span) { m_leastSpan = span; }

    //! Lets axes that show one range go back together: the ranges that one of them can go back to are those of all.
    static void ShareUnZoom(std::vector<ScaleAxis *> const & axes);

    //! A band that is being dragged, px along the axis, both ends belong to it.
    struct Band
    {
        int first;
        int last;
    };

    std::optional<Band> GetBand() const;
    //! Dims what lies beside the band in a picture that adjoins the axis; nothing without a band.
    //! \param picture  px; along the axis they count as in the axis.
    void DimBesideBand(QPainter & painter, QRect const & picture) const;

    //! A place in the mark of a marker, px; -1, -1 when it has none.
    QPoint GetMarkPlace(int index) const;

    //! Takes a press, move, release or double click of the mouse as if it were on the axis beside all markers. The
    //! picture beside hands on what is not for its markers; its pixels along the axis are those of the axis.
    void TakeMouse(QMouseEvent const * event);

    //! Whether a band or a pan is being dragged.
    bool IsDragged() const { return m_mouseMode != MouseIdle; }

    //! Ends a drag that has lost its mouse: a band is abandoned, a pan ends here.
    void DropDrag();
    //! \return whether the key was for the range.
    bool TakeKey(QKeyEvent const * event);
    //! Opens the context menu of a widget by the Menu key and by Shift+F10.
    //! \param at  where it opens, px. \return whether the key was one of them.
    static bool OpenMenuByKey(QWidget & widget, QKeyEvent const * event, QPoint at);

Q_SIGNALS:
    //! The band has begun, moved or ended.
    void signalBand();
    //! Asks for a range that shows the signal, which is to be set at once.
    void signalBest();

protected:
    //! Where the scale itself stands in the axis, px.
    virtual QRect ScaleRect() const { return innerRect(); }

    //! What the operator reads of a step of undo that moves the range.
    virtual QString RangeText() const { return tr("Change of the range"); }

    //! Where the unit stands beside the scale, px; null, as here, to have it among the labels.
    virtual QRect UnitRect() const { return {}; }

    //! The tics that the scale shows: those of the axis.
    virtual ScaleTics Tics() const;

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
    void focusInEvent(QFocusEvent * event) override;
    void focusOutEvent(QFocusEvent * event) override;
    void hideEvent(QHideEvent * event) override;

private:
    void UpdateStrip();
    ScaleStrip::Look Look() const;
    void LayMarks();
    void PaintMarks(QPainter & painter) const;
    QPolygonF MarkAt(QRect const & line) const;
    void PaintBand(QPainter & painter) const;
    void TakeOffsets();

    bool ChangeRange(std::function<bool()> const & change);
    void PassOverShownRanges();
    void ShowNextRange(QMouseEvent * event);
    void ZoomBy(double factor);
    void PanBy(double part, bool isRepeat);
    double HeldInLimits(double shift) const;
    void PushRange(RangeStep::Range const & before, RangeStep::Range const & after, bool isRepeat);
    int AlongOf(QMouseEvent const * event) const;
    QMouseEvent CopyOf(QMouseEvent const * event, int along, Qt::KeyboardModifiers modifiers) const;
    void BeginDrag(QMouseEvent const * event);
    void DragOn(QMouseEvent const * event);
    void EndDrag(QMouseEvent const * event);
    bool CancelDrag();

    ScaleStrip::ELineSide m_side;
    ScaleStrip m_strip;
    MarkerHand m_hand;
    int m_first = 0; // px, of the picture beside
    int m_length = 0;
    double m_leastSpan = 0.0;                    // axis units
    RangeStep::Range m_before{ 0.0, 0.0 };       // the drag
    std::vector<QPointer<ScaleAxis>> m_partners; // show the same range
};

#endif
