// SPDX-License-Identifier: MIT
#ifndef ORIM_ROWTICS_H
#define ORIM_ROWTICS_H

#include <QString>

#include <vector>

//! Rows of a waterfall that bear a time.
namespace RowTics {

struct Tic
{
    int row;
    QString label;
};

//! Rows at which the time passes a multiple of a step, oldest first.
//! \param stamps   times of the rows, s, newest first; a time that is later than that of a newer row starts a new
//!                 count.
//! \param spacing  least distance of two labels, rows; below 1 counts as 1.
std::vector<Tic> Lay(std::vector<double> const & stamps, int spacing);

} // namespace RowTics

#endif
