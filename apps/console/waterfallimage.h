// SPDX-License-Identifier: MIT
#ifndef ORIM_WATERFALLIMAGE_H
#define ORIM_WATERFALLIMAGE_H

#include <QImage>
#include <QPoint>

#include <cstddef>
#include <functional>
#include <vector>

class QPainter;

//! Picture of a waterfall as a ring of rows: a new row overwrites the oldest, nothing is moved. The levels are kept
//! beside the pixels, so that all kept rows can be coloured anew. Row 0 is the newest; rows are counted in device
//! pixels.
class WaterfallImage
{
public:
    //! Colours levels: reads \a count levels, writes as many pixels.
    using Colorer = std::function<void(double const * levels, QRgb * pixels, std::size_t count)>;
    //! Lays a row over other columns: reads as many levels as there were columns, writes as many as there will be.
    using Spreader = std::function<void(double const * from, double * to)>;

    //! Takes a new size and keeps the newest rows. All kept rows are coloured anew.
    //! \param columns  px; no picture when it or \a rows is below 1.
    //! \param ground   colour of the rows not yet filled.
    void Resize(int columns, int rows, Spreader const & spread, QRgb ground, Colorer const & color);

    //! Adds the newest row; the oldest goes when the picture is full. Nothing happens without a picture.
    //! \param levels  Columns() levels.
    //! \param pixels  Columns() opaque colours.
    //! \param stamp   the caller's mark of the row, such as its time.
    void Append(double const * levels, QRgb const * pixels, double stamp);

    //! Colours all kept rows anew from their levels.
    void Recolor(QRgb ground, Colorer const & color);
    //! Forgets all rows.
    void Clear(QRgb ground);

    int Columns() const { return m_image.width(); } //!< px

    int Rows() const { return m_image.height(); } //!< px

    //! Number of rows that hold data, 0 to Rows().
    int Filled() const { return m_filled; }

    //! Row as it was appended, 0 to Filled() - 1; null outside.
    double const * Levels(int row) const;
    QRgb const * Pixels(int row) const;
    //! Mark of a row; NaN outside.
    double Stamp(int row) const;

    //! Draws the whole picture, newest row on top, in two parts. The painter's unit is the device pixel.
    //! \param at  top left corner, device pixels.
    void Paint(QPainter & painter, QPoint at) const;

private:
    bool Holds(int row) const { return row >= 0 && row < m_filled; }

    int SlotOf(int row) const;
    QRgb * SlotPixels(int slot);
    double * SlotLevels(int slot);

    QImage m_image;
    std::vector<double> m_levels; // Columns() a slot
    std::vector<double> m_stamps; // one a slot
    int m_top = 0;                // slot of row 0
    int m_filled = 0;
};

#endif
