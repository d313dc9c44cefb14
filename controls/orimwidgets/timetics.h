// SPDX-License-Identifier: MIT
#ifndef ORIM_TIMETICS_H
#define ORIM_TIMETICS_H

#include "orimwidgets_export.h"

#include <array>

//! The tics of an axis of time stamps: how far apart they stand and how they are written, by the width of the range.
namespace TimeTics {

constexpr long long MicroSecond = 1; // us, as all times here
constexpr long long MilliSecond = 1000 * MicroSecond;
constexpr long long Second = 1000 * MilliSecond;
constexpr long long Minute = 60 * Second;
constexpr long long Hour = 60 * Minute;
constexpr long long Day = 24 * Hour;

//! The tics of the ranges from one width to the next wider one.
struct Row
{
    long long from; // narrowest range, us
    int format;     // number of a format, from 1
    long long step; // us; 0: no tics
};

//! The widest first; the first one that is not wider than the range holds.
constexpr std::array<Row, 17> Rows{ {
    { 3 * Day + 1, 1, Day },
    { 2 * Day + 1, 2, 12 * Hour },
    { 20 * Hour + 1, 3, 6 * Hour },
    { 12 * Hour + 1, 3, 3 * Hour },
    { 6 * Hour + 1, 3, 2 * Hour },
    { 4 * Hour + 1, 3, Hour },
    { 2 * Hour + 1, 4, 30 * Minute },
    { Hour + 1, 4, 15 * Minute },
    { 30 * Minute + 1, 6, 10 * Minute },
    { 15 * Minute + 1, 6, 5 * Minute },
    { 5 * Minute + 1, 6, 2 * Minute },
    { 2 * Minute + 1, 6, Minute },
    { Minute + 1, 7, 30 * Second },
    { 10 * Second + 1, 8, 10 * Second },
    { 5 * Second + 1, 8, 2 * Second },
    { Second + 1, 8, Second },
    { 0, 8, 0 },
} };

constexpr bool IsFalling(std::array<Row, 17> const & rows)
{
    for (unsigned int i = 1; i < rows.size(); ++i)
        if (rows[i].from >= rows[i - 1].from)
            return false;
    return rows.back().from == 0;
}

static_assert(IsFalling(Rows), "the first row that is not wider than the range holds, and one always does");

//! How times are written. Latin-1; the patterns are those of Orim::DateTime.
struct Format
{
    char const * tics;
    char const * label; // of the axis
    char const * date;  // in full; null: the one before stays
};

//! Format 1 first.
constexpr std::array<Format, 11> Formats{ {
    { "dd", "Day in Month", "yyyy-MM-dd" },
    { "dd / hh", "Day in Month / Hour", "yyyy-MM-dd hh" },
    { "hh", "Hour", "yyyy-MM-dd hh" },
    { "hh:mm", "Hour:Minute", "yyyy-MM-dd hh:mm" },
    { "hh:mm:ss", "hh:mm:ss", "yyyy-MM-dd hh:mm:ss" },
    { "mm", "Minutes", "yyyy-MM-dd hh:mm" },
    { "mm:ss", "Minute/Seconds", "yyyy-MM-dd hh:mm:ss" },
    { "ss", "Seconds", "yyyy-MM-dd hh:mm:ss" },
    { "mm:ss", "Min:Sec", nullptr },
    { "ss.zzz", "Seconds", "yyyy-MM-dd hh:mm:ss" },
    { "\xB5\xB5\xB5", "MicroSeconds", "yyyy-MM-dd hh:mm:ss" }, // three micro signs: no pattern, they stay as they are
} };

//! For any number that is no format.
constexpr Format OtherFormat{ "mm:ss", "Min:Sec", nullptr };

//! The format of a number; OtherFormat below 1 and above 11.
ORIMWIDGETS_EXPORT Format const & FormatOf(int number);

//! The row for a range. \param start, stop  us, in either order.
//! \return null when the ends are equal, and when the range is NaN, infinite or too wide for 64 bits.
ORIMWIDGETS_EXPORT Row const * RowOf(double start, double stop);

//! Tic i, counted from 0, stands at i * step + first.
struct Tics
{
    double first = 0.0; // us, a multiple of the step
    int count = 0;
};

//! Tics from one at or below the range (up to two steps below it) to the last one at or below its end.
//! \param start, stop  us, in either order, of a range that has a row. \param step  of that row, us, above 0.
//! \return none where the first tic is not within 32 bits of steps from 1970: a step of a second ends in 2038.
ORIMWIDGETS_EXPORT Tics Find(double start, double stop, long long step);

} // namespace TimeTics

#endif
