// SPDX-License-Identifier: MIT
#ifndef ORIM_AGEDPALETTE_H
#define ORIM_AGEDPALETTE_H

#include "orimwidgets_export.h"

#include <QRgb>

#include <array>
#include <functional>
#include <vector>

//! Arithmetic of a palette that ages. Its 256 entries are blocks of ageing colours, one for each quality, and behind
//! them a marker colour and the background. The colours move through a block, one entry a step, while the pixels keep
//! their index: an index has the newest colour first, and the oldest one last. Numbers may be any where no range is
//! told.
namespace AgedPalette {

constexpr int Size = 256;
constexpr int MarkerEntry = 254; // the blocks end before it
constexpr int BackgroundEntry = 255;

//! How a hold time is cut: the colours and the tics of its scale.
struct HoldTimeRow
{
    int from;        // s, the shortest hold time of the row
    int ticDistance; // s, also the length of a section
    int colors;      // per section
};

constexpr std::array<HoldTimeRow, 3> HoldTimeRows{ { { 30, 5, 5 }, { 20, 2, 2 }, { 0, 1, 2 } } };
static_assert(HoldTimeRows[0].from > HoldTimeRows[1].from && HoldTimeRows[1].from > HoldTimeRows[2].from &&
                  HoldTimeRows[2].from == 0,
              "the first row that a hold time reaches is its row");

//! The scale of a hold time, from 0 to \a seconds.
struct Scale
{
    int seconds;     // not negative
    int ticDistance; // s
    int ticCount;    // one more than there are sections
    int colorsPerSection;
};

//! \param steps                   hold time, s; negative counts as 0.
//! \param sections, qualitySteps  of the palette as it is: while more than 254 colours would result, each section gets
//!                                one colour less, but keeps one.
ORIMWIDGETS_EXPORT Scale ScaleOf(int steps, int sections, int qualitySteps);

//! Time of one step, cut to whole ms: the hold time by the number of colours. 0 without colours; the lowest int when no
//! int holds it.
ORIMWIDGETS_EXPORT int SwitchTime(int seconds, int colorsPerSection, int sections);

//! How a palette is cut.
struct Grading
{
    int sections;
    int colorsPerSection;
    int qualitySteps; // blocks; below 1 counts as 1
    int switchTime;   // ms
    int colorsPerQualityStep = 0;
};

//! Finds the length of a block. Blocks that do not fit get half of the colours a section, at half the pace.
//! \return false, and \a grading stays as it is, when they do not fit then either.
ORIMWIDGETS_EXPORT bool Fit(Grading & grading);

//! A colour on its way from black: \a section of \a sections, counted from 0. Opaque but for the end of the way, which
//! is \a color.
ORIMWIDGETS_EXPORT QRgb Fade(QRgb color, int section, int sections);

//! The colour of a value between 0 and max.
using ColorOfValue = std::function<QRgb(double value, double max)>;

//! Writes the ageing colours in the order of their age, the oldest of each block first. All colours of a section are
//! equal. \param grading      a fitting one. \param ageColor  of an age, when there is one block.
//! \param qualityColor of a quality, when there are more; its block fades to black. \param colors  Size entries.
ORIMWIDGETS_EXPORT void Paint(Grading const & grading, ColorOfValue const & ageColor, ColorOfValue const & qualityColor,
                              std::vector<unsigned int> & colors);

// The turn of the colours through a block of \a count colours: a position, an index or an age is 0 .. count - 1, and
// 0 when there are none.

ORIMWIDGETS_EXPORT int PositionAfter(int position, int count); //!< one step later
ORIMWIDGETS_EXPORT int CurrentColor(int position, int count);  //!< index with the newest colour
//! Index, within its block, that shows the colour of an age; 0 is the oldest one.
ORIMWIDGETS_EXPORT int IndexOfAge(int age, int position, int count);
//! A number of steps, at most twice \a count, that ends with the same colours and pixels as \a steps do.
ORIMWIDGETS_EXPORT int EqualSteps(unsigned long long steps, int count);

//! Index of a new pixel. \param current  that of the first block. \param quality  0 .. qualitySteps - 1, any other
//! counts as the last one; not heard below two blocks. \return -1 when it is no ageing index: blocks that do not fit.
ORIMWIDGETS_EXPORT int PixelIndex(int current, int count, int qualitySteps, int quality);

} // namespace AgedPalette

#endif
