// SPDX-License-Identifier: MIT
#ifndef ORIM_COLORLOOKUP_H
#define ORIM_COLORLOOKUP_H

#include "colorrule.h"
#include "orimwidgets_export.h"

#include <QRgb>

#include <cstddef>
#include <vector>

//! Colours many values by a table, at the cost of one multiplication and one look-up a value. Bands have an entry each:
//! a value is turned into a fixed-point number of bands, and one within the smallest fraction of an edge is resolved as
//! PickColor() does it; so jumps are exact. Blended sets, and bands that are folded, divide the range into cells; a
//! cell in which the colour jumps is marked, and its values are resolved. Blended cells differ by at most 1 a channel:
//! the number of cells grows with the number of colours and with the distance between neighbours.
class ORIMWIDGETS_EXPORT ColorLookup
{
public:
    //! \param colors  opaque; at least one before the first Prepare().
    void SetColors(std::vector<QRgb> colors);

    std::vector<QRgb> const & GetColors() const { return m_colors; }

    //! Makes ready for a rule and a range; what is up to date already is kept. Arguments as of PickColor().
    void Prepare(ColorRule const & rule, double min, double max, bool inverse);

    //! Colours \a count values; needs Prepare(). \a values and \a out must not overlap.
    void Map(double const * values, QRgb * out, std::size_t count) const;
    void Map(float const * values, QRgb * out, std::size_t count) const;
    //! The same without vector instructions, as it runs on other processors.
    void MapPortable(double const * values, QRgb * out, std::size_t count) const;

    //! Entries of the table in use; 0 when values are resolved one by one, are indices, or all have one colour.
    std::size_t GetTableSize() const { return UsesTable() ? m_table.size() : 0; }

private:
    enum ERoad
    {
        eSingle,   // one colour for all
        eOneByOne, // the range is too odd or the list too long for a table
        eIndex,    // the value is the entry
        eBands,    // the cell is a band
        eLinear,
        eWrapped
    };

    //! A kernel maps a value to (value + offset - origin) * scale, folds or clamps that, and adds bias.
    struct Scale
    {
        double offset = 0.0;
        double origin = 0.0;
        double scale = 0.0;
        double bias = 0.0;
        double low = 0.0; // clamps what is below the range to its entry
        double top = 0.0; // and what is above
    };

    bool UsesTable() const { return m_road >= eBands; }

    void ChooseRoad();
    ERoad ChooseTable(double low, double high);
    bool IsSound(double extent) const;
    bool FindScale(double low, double high);
    bool FindBandScale(double low, double high);
    int CellsPerSegment() const;
    std::size_t AboveSlot() const;
    QRgb EndColor(bool high) const;
    void BuildTable();
    void FillCells(QRgb * cells, int perSegment) const;
    void MarkEdges(QRgb * cells, int perSegment) const;
    void RotateForWrap();
    int Slot(double value) const;
    QRgb PickOne(double value) const;
    QRgb Resolve(double value) const;
    QRgb ResolveMarked(double value) const;
    template <class T>
    void MapAll(T const * values, QRgb * out, std::size_t count) const;
    template <class T>
    void MapOneByOne(T const * values, QRgb * out, std::size_t count) const;
    template <class Kernel, class T>
    std::size_t MapBlocks(Kernel const & kernel, T const * values, QRgb * out, std::size_t count) const;
    template <class Kernel, class T>
    std::size_t MapBandBlocks(Kernel const & kernel, T const * values, QRgb * out, std::size_t count) const;

    std::vector<QRgb> m_colors;
    ColorRule m_rule;
    double m_min = 0.0;
    double m_max = 0.0;
    bool m_inverse = false;
    bool m_tableCurrent = false;
    bool m_rangeCurrent = false;

    ERoad m_road = eOneByOne;
    Scale m_scale;
    int m_fractionBits = 0;    // of a number of bands
    int m_cells = 0;           // from one end of the range to the other
    std::vector<QRgb> m_table; // alpha 0 marks an entry to resolve
};

#endif
