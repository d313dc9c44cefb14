// SPDX-License-Identifier: MIT
#ifndef ORIM_LINECOLUMNS_H
#define ORIM_LINECOLUMNS_H

#include <cstddef>
#include <vector>

//! A stretch of the frequency axis, Hz.
struct FrequencyRange
{
    double start;
    double span;
};

inline bool operator==(FrequencyRange const & a, FrequencyRange const & b)
{
    return a.start == b.start && a.span == b.span;
}

inline bool operator!=(FrequencyRange const & a, FrequencyRange const & b) { return !(a == b); }

//! Lays the bins of a spectrum line over the pixel columns of a view.
//!
//! Bin k of n stands at start + k * span / n. A column shows the maximum of the bins that stand within it, and where
//! none does, the bin nearest to its middle; so every bin within the view is seen, and few bins are repeated. A column
//! that the line does not reach shows NaN.
class LineColumns
{
public:
    //! Lays anew when anything differs from the last call.
    //! \param line     where the bins lie.
    //! \param bins     their number.
    //! \param view     where the columns lie.
    //! \param columns  their number, px. Without bins or columns, and for a range that is not finite or not wider than
    //! 0,
    //!                 no column shows a bin.
    void Lay(FrequencyRange line, std::size_t bins, FrequencyRange view, int columns);

    //! Number of columns of the last Lay(), px.
    int Columns() const { return static_cast<int>(m_shares.size()); }

    //! Whether some column shows no bin.
    bool HasGaps() const { return m_hasGaps; }

    //! \param levels   as many as there are bins; one that is NaN gives way to every other.
    //! \param columns  receives one level a column.
    void Reduce(double const * levels, double * columns) const;

    //! Bin that a column shows the level of.
    //! \return -1 for a column that shows none or does not exist.
    int BinOf(int column, double const * levels) const;

    //! Column that a frequency stands in.
    //! \return -1 outside the view and for NaN.
    int ColumnOf(double frequency) const;

private:
    struct Share // bins of a column: first .. behind - 1
    {
        int first;
        int behind;
    };

    Share ShareOf(int column, double binsAColumn, double firstBin) const;

    FrequencyRange m_line{ 0.0, 0.0 };
    FrequencyRange m_view{ 0.0, 0.0 };
    std::size_t m_bins = 0;
    std::vector<Share> m_shares;
    bool m_hasGaps = false;
};

#endif
