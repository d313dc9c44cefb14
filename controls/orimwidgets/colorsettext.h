// SPDX-License-Identifier: MIT
#ifndef ORIM_COLORSETTEXT_H
#define ORIM_COLORSETTEXT_H

#include "orimwidgets_export.h"

#include <QColor>
#include <QString>

#include <cstddef>
#include <optional>
#include <vector>

//! The line of text that a colour set travels as: fields separated by ";". Three layouts are read, the newest is
//! written.
namespace ColorSetText {

constexpr unsigned char MaxFields = 45;  // fields of a line that are read; so a "V02" line carries at most 34 colours
constexpr std::size_t MaxColors = 65536; // the largest colour count that is believed

struct Background
{
    bool useMinIndex = false;
    QColor color = Qt::black;
};

//! The fields before the colours.
struct Header
{
    std::size_t count = 0; // 0 .. MaxColors
    bool smooth = false;
    bool fixed = false;
    double start = 0.0; // finite when read
    double stop = 0.0;
    std::optional<double> offset; // none in the oldest layout
    bool wrap = false;
    std::optional<Background> background; // only in "V02"
};

struct Line
{
    std::optional<Header> header; // none when the line has too few fields
    std::vector<QColor> colors;   // from index 0 on; may be more or fewer than the header counts
};

//! Reads a line of any of the three layouts.
//! \param text  any text. A field that does not parse counts as 0, "nan", "inf" and what no double holds among them; a
//!              colour that does not parse is an invalid colour. A negative count is 0, one above MaxColors is
//!              MaxColors.
ORIMWIDGETS_EXPORT Line Parse(QString const & text);

//! Writes the newest layout, "V02", closed by ";".
//! \param header  doubles are written with six significant digits; an absent offset as 0, an absent background as
//! black.
//!                The count is the number of colours, whatever the header says.
//! \param colors  written as "#rrggbb"; alpha is lost and an invalid colour is black.
ORIMWIDGETS_EXPORT QString Print(Header const & header, std::vector<QColor> const & colors);

} // namespace ColorSetText

#endif
