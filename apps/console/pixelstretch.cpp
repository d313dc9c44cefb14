// SPDX-License-Identifier: MIT
#include "pixelstretch.h"

#include "toint.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace {

struct Share // pixels that one covers: first .. behind - 1
{
    int first;
    int behind;
};

int Within(double pixel, int room) { return toInt(std::clamp(pixel, 0.0, static_cast<double>(room))); }

//! Shares of pixels that lie side by side; those outside have none.
std::vector<Share> SharesOf(int count, double first, double length, int room)
{
    double const step = length / count;
    std::vector<Share> shares(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        double const middle = std::floor(first + (i + 0.5) * step);
        double const begin = std::ceil(first + i * step - 0.5);
        double const end = std::ceil(first + (i + 1) * step - 0.5);
        bool const isThin = begin >= end;
        shares[static_cast<std::size_t>(i)] = { Within(isThin ? middle : begin, room),
                                                Within(isThin ? middle + 1.0 : end, room) };
    }
    return shares;
}

bool IsIndexed(QImage const & picture) { return !picture.isNull() && picture.format() == QImage::Format_Indexed8; }

} // namespace

void PixelStretch::Lay(QImage const & from, QRectF const & place, int firstGround, QImage & onto)
{
    bool const isPlace = std::isfinite(place.left()) && std::isfinite(place.top()) && std::isfinite(place.width()) &&
                         std::isfinite(place.height()) && place.width() > 0.0 && place.height() > 0.0;
    if (!isPlace || !IsIndexed(from) || !IsIndexed(onto))
        return;
    std::vector<Share> const columns = SharesOf(from.width(), place.left(), place.width(), onto.width());
    std::vector<Share> const rows = SharesOf(from.height(), place.top(), place.height(), onto.height());
    for (int y = 0; y < from.height(); ++y) {
        uchar const * const source = from.constScanLine(y);
        Share const share = rows[static_cast<std::size_t>(y)];
        for (int row = share.first; row < share.behind; ++row) {
            uchar * const target = onto.scanLine(row);
            for (int x = 0; x < from.width(); ++x) {
                Share const part = columns[static_cast<std::size_t>(x)];
                if (source[x] < firstGround)
                    std::fill(target + part.first, target + part.behind, source[x]);
            }
        }
    }
}
