// SPDX-License-Identifier: MIT
#ifndef ORIM_AXISDEFINITION_H
#define ORIM_AXISDEFINITION_H

#include "orimcontracts_export.h"

//! Search for the tics of a linear axis.
class ORIMCONTRACTS_EXPORT axisDefinition // NOLINT(readability-identifier-naming): the name is fixed
{
public:
    //! Finds tics at 1, 2 or 5 times a power of ten of the displayed value, which is the value times the display
    //! factor. Tic i, counted from 0, stands at the value i * step + first + offset, evaluated in this order. All tics
    //! lie inside the range, they rise strictly whichever way the range runs, and the tic of the displayed value 0 is
    //! exactly 0.
    //!
    //! \param start, stop  the ends of the range in the axis unit, in either order; read, never written.
    //! \param minor  takes the number of minor tics between two neighbours: 4 or 3 (a step of 2), with a fixed width 0
    //! to 4. \param left   takes the digits before the decimal point of the longest label, without a sign; 1 or more.
    //! \param right  takes the digits behind the decimal point; with them all labels differ.
    //! \param first  takes the distance of tic 0 from the offset, in the axis unit.
    //! \param step   takes the distance of two neighbours, in the axis unit; above 0.
    //! \param offset takes a round value near the range, in the axis unit; 0 as long as 1000 steps reach from zero to
    //! it. \param mode   1 asks for the tics inside the range as it stands; so does every other number. \param
    //! displayFactor  displayed value by axis value; a negative one counts as its amount. \param fixedTicWidth  the
    //! step in the displayed unit; -1 for none, and 0 or another negative number means none, too.
    //!        A width that would make more than 1000 tics, or that a double cannot resolve at such values, is not used.
    //! \return the number of tics: 4 to 12, with a fixed width 0 to 1000. 0, with minor 0, left 1, right 0 and zeros
    //!         otherwise, when the range is empty, NaN or infinite, when start or stop is null, when the factor is 0,
    //!         NaN or infinite, when the range or the displayed range is narrower than 1e-290 or wider than 1e300, and
    //!         when doubles cannot tell 4 such values apart in it (it is then a few dozen representable values wide).
    //! A null pointer among those that are written is passed over. A thread that asks for the same range again gets the
    //! answer it had, at the cost of a comparison.
    static int GetAxisValuesLinear(double * start, double * stop, int * minor, int * left, int * right, double * first,
                                   double * step, double * offset, int mode, double displayFactor, int fixedTicWidth);
};

#endif
