// SPDX-License-Identifier: MIT
#ifndef ORIM_PALETTEEXPANSION_H
#define ORIM_PALETTEEXPANSION_H

#include "orimwidgets_export.h"

#include <QImage>
#include <QRect>

#include <vector>

class QPainter;

//! Brings a picture of the format Indexed8, such as that of an AgedImage, to the screen. It looks up the colours
//! itself, a strip of rows at a time, which takes a fraction of what QPainter::drawImage() takes for such a picture. A
//! pane owns one object, keeps it, and paints with it: \code void Pane::paintEvent(QPaintEvent * event)
//! {
//!     QPainter painter(this);
//!     m_expansion.Paint(painter, QPoint(0, 0), *m_aged.GetImage(), event->rect());
//! }
//! \endcode
//! Pixels are those of the screen whatever its device pixel ratio: a picture is neither smoothed nor resampled, and one
//! that shall fill a pane has the pane's size times the ratio, over GetPixelSize(). Any other format, and a null
//! picture, draws nothing. An index beyond the palette is transparent; without a palette the indices are shades of
//! grey. The picture's own ratio is not looked at, and the picture is never shared or changed.
class ORIMWIDGETS_EXPORT PaletteExpansion
{
public:
    static constexpr int MaxPixelSize = 8;

    //! Width and height on the screen of one pixel of the picture.
    //! \param pixels  device pixels, 1 .. MaxPixelSize, 1 at the start; anything else is ignored.
    void SetPixelSize(int pixels);

    int GetPixelSize() const { return m_pixelSize; }

    //! Draws a whole picture. The painter may be translated and scaled: its scale sets where \a position lies and no
    //! more. A painter that turns, shears or mirrors draws the picture through that, one unit a pixel of the screen.
    //! Clip, opacity and composition mode of the painter hold; it is left as it was.
    //! \param position  of the top left corner, in the painter's units.
    void Paint(QPainter & painter, QPoint const & position, QImage const & picture);

    //! The same, drawing no more than the pixels that \a exposed touches.
    //! \param exposed  in the painter's units, as a paint event tells it; empty draws nothing.
    void Paint(QPainter & painter, QPoint const & position, QImage const & picture, QRect const & exposed);

private:
    void Draw(QPainter & painter, QPointF const & position, QImage const & picture, QRectF const & exposed);
    void DrawStrips(QPainter & painter, QPointF const & corner, QImage const & picture, QRectF const & exposed);
    bool TakeColors(QImage const & picture);
    bool MakeStrip(int width, bool opaque);
    void FillStrip(QImage const & picture, QRect const & part);

    int m_pixelSize = 1;
    QImage m_strip;             // grows with the widest part drawn, up to 4096 px
    std::vector<QRgb> m_colors; // of the 256 indices, alpha multiplied in
    std::vector<QRgb> m_row;    // one row of the picture, where its pixels are to be widened
};

#endif
