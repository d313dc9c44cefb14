// SPDX-License-Identifier: MIT
#include "resultmarker.h"

#include "markerlist.h"
#include "resultmarkerlist.h"
#include "valuelist.h"

#include <algorithm>
#include <utility>

namespace {

constexpr unsigned int MostValues = 4096; // of one result

} // namespace

ResultMarker::ResultMarker() = default;

ResultMarker::ResultMarker(ResultMarker & other)
    : Marker(other)
    , m_values(other.m_values)
    , m_xIndex(other.m_xIndex)
    , m_yIndex(other.m_yIndex)
    , m_text(other.m_text)
{}

ResultMarker & ResultMarker::operator=(ResultMarker const & other)
{
    if (this == &other)
        return *this;
    Marker::operator=(other);
    m_values = other.m_values;
    m_xIndex = other.m_xIndex;
    m_yIndex = other.m_yIndex;
    m_text = other.m_text;
    return *this;
}

double ResultMarker::GetValue() { return GetValue(m_xIndex); }

double ResultMarker::GetValue(unsigned int i) const { return i < m_values.size() ? m_values[i] : -1.0; }

bool ResultMarker::GetConnected()
{
    MarkerList const * const parent = GetParent();
    ResultMarkerList const * const results = parent ? parent->GetResultMarkerList() : nullptr;
    return results && results->GetConnected();
}

void ResultMarker::SetMarkerValue(IMarkerValue const * result, bool draw)
{
    if (!result)
        return;
    std::vector<double> values(std::min(result->GetCount(), MostValues));
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = result->GetValue(static_cast<unsigned int>(i));
    m_values = std::move(values);
    if (GetShowResultFlag())
        m_text = result->GetText();
    InvalidatePixel();
    StoreValue(GetValue());
    MoveIntoRangeAndDraw(draw);
}
