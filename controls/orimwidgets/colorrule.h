// SPDX-License-Identifier: MIT
#ifndef ORIM_COLORRULE_H
#define ORIM_COLORRULE_H

#include "orimwidgets_export.h"

#include <QRgb>

//! How a list of colours is read.
struct ColorRule
{
    bool smooth = true;     // interpolate between colours; otherwise bands
    bool fixed = false;     // map over start .. stop, not over the caller's range
    bool wrap = false;      // with fixed: fold values into start .. stop
    bool pureIndex = false; // the value is the number of a colour
    double start = 0.0;     // in the unit of the value
    double stop = 100.0;
    double offset = 0.0; // added to every value before mapping
};

//! What a value comes to under a rule: a colour of the list, a blend of two neighbours, or the colour out of range.
struct ColorPick
{
    enum EKind
    {
        eEntry,
        eBlend,
        eOutOfRange
    };

    EKind kind;
    int index;   // the entry, or the lower one of the blend
    double part; // share of entry index + 1 in the blend; NaN when the value was
};

//! The colour of a value out of range, light grey.
constexpr QRgb OutOfRangeRgb = 0xffc0c0c0U;

//! Applies a rule to a value.
//! \param rule     start below stop; see NormaliseRange().
//! \param length   number of colours, at least 1.
//! \param value    any double.
//! \param min      low end of the caller's range, any double; not used by a fixed rule.
//! \param max      high end; may lie below \a min. Equal to it: every value is at the low end.
//! \param inverse  turn the list round; not used by a rule of pure indices.
ORIMWIDGETS_EXPORT ColorPick PickColor(ColorRule const & rule, int length, double value, double min, double max,
                                       bool inverse);

//! One channel between two colours.
//! \param low, high  0 .. 255.
//! \param part       share of \a high, 0 .. 1.
//! \return high * part + low * (1 - part), cut; the lowest int for NaN.
ORIMWIDGETS_EXPORT int BlendChannel(int low, int high, double part);

//! The picked colour, opaque; black for a blend that a NaN made, which is no colour.
//! \param colors  the list of the length that the pick was made with.
ORIMWIDGETS_EXPORT QRgb PickedRgb(ColorPick const & pick, QRgb const * colors);

//! Puts the ends of the own range in order: swaps them when stop is below start, and makes stop start + 1 when they are
//! equal. \return whether anything changed.
ORIMWIDGETS_EXPORT bool NormaliseRange(double & start, double & stop);

#endif
