// SPDX-License-Identifier: MIT
#ifndef ORIM_RANGEFOLD_H
#define ORIM_RANGEFOLD_H

#include "orimwidgets_export.h"

//! Folds a value into a range as this pair of loops does, in bounded time:
//! \code
//! while (value <= start) value += stop - start;
//! while (value >= stop) value -= stop - start;
//! \endcode
//! Wherever the loops come to an end the answer is theirs, bit for bit, the rounding of every turn included. Where they
//! never would (the value is so large that a turn does not move it) the answer is the remainder of the division.
//! \param value  any double.
//! \param start  low end of the range.
//! \param stop   high end; above \a start.
//! \return the folded value; NaN for NaN, an infinite value, and a range without extent that the loops could not leave.
ORIMWIDGETS_EXPORT double FoldIntoRange(double value, double start, double stop);

//! The same for this pair of loops, which ends on a value below the range when the turn is longer than it:
//! \code
//! while (value < low) value += turn;
//! while (value > high) value -= turn;
//! \endcode
//! \param turn  above 0.
ORIMWIDGETS_EXPORT double FoldByTurns(double value, double low, double high, double turn);

#endif
