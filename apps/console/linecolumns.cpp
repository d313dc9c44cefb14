// SPDX-License-Identifier: MIT
#include "linecolumns.h"

#include "toint.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double RoundingSlack = 1e-6; // bins: a bin that stands on the edge of a column belongs to the right one

bool IsRange(FrequencyRange const & range)
{
    return std::isfinite(range.start) && std::isfinite(range.span) && range.span > 0.0;
}

} // namespace

void LineColumns::Lay(FrequencyRange line, std::size_t bins, FrequencyRange view, int columns)
{
    std::size_t const count = columns > 0 ? static_cast<std::size_t>(columns) : 0;
    if (line == m_line && bins == m_bins && view == m_view && count == m_shares.size())
        return;
    m_line = line;
    m_view = view;
    m_bins = bins;
    m_shares.assign(count, Share{ 0, 0 });
    m_hasGaps = count > 0;
    if (bins == 0 || !IsRange(line) || !IsRange(view))
        return;
    double const binWidth = line.span / static_cast<double>(bins);
    double const binsAColumn = view.span / binWidth / static_cast<double>(count);
    double const firstBin = (view.start - line.start) / binWidth;
    m_hasGaps = false;
    for (int column = 0; column < columns; ++column) {
        Share const share = ShareOf(column, binsAColumn, firstBin);
        m_shares[static_cast<std::size_t>(column)] = share;
        m_hasGaps = m_hasGaps || share.first == share.behind;
    }
}

LineColumns::Share LineColumns::ShareOf(int column, double binsAColumn, double firstBin) const
{
    double const left = firstBin + column * binsAColumn;
    double const right = left + binsAColumn;
    double const last = static_cast<double>(m_bins) - 1.0;
    double const first = std::max(0.0, std::ceil(left - RoundingSlack));
    double const behind = std::min(last + 1.0, std::ceil(right - RoundingSlack));
    if (first < behind)
        return Share{ toInt(first), toInt(behind) };
    double const middle = (left + right) / 2.0;
    if (!(middle > -1.0 && middle < last + 1.0))
        return Share{ 0, 0 };
    int const nearest = toInt(std::min(last, std::max(0.0, std::round(middle))));
    return Share{ nearest, nearest + 1 };
}

void LineColumns::Reduce(double const * levels, double * columns) const
{
    for (Share const & share : m_shares) {
        double most = std::numeric_limits<double>::quiet_NaN();
        for (int bin = share.first; bin < share.behind; ++bin)
            most = levels[bin] > most || std::isnan(most) ? levels[bin] : most;
        *columns++ = most;
    }
}

int LineColumns::BinOf(int column, double const * levels) const
{
    if (column < 0 || column >= Columns())
        return -1;
    Share const share = m_shares[static_cast<std::size_t>(column)];
    if (share.first == share.behind)
        return -1;
    return static_cast<int>(std::max_element(levels + share.first, levels + share.behind) - levels);
}

int LineColumns::ColumnOf(double frequency) const
{
    double const part = (frequency - m_view.start) / m_view.span;
    bool const inside = part >= 0.0 && part < 1.0; // false for NaN
    return inside ? toInt(part * static_cast<double>(m_shares.size())) : -1;
}
