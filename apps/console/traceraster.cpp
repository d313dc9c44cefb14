// SPDX-License-Identifier: MIT
#include "traceraster.h"

#include "toint.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

int TraceRaster::RowOf(LevelScale const & scale, double level)
{
    double const span = scale.top - scale.bottom;
    if (scale.height < 1 || !(span > 0.0) || !std::isfinite(span) || std::isnan(level))
        return NoRow;
    double const part = (scale.top - std::clamp(level, scale.bottom, scale.top)) / span;
    return std::min(toInt(part * scale.height), scale.height - 1);
}

void TraceRaster::RowsOf(LevelScale const & scale, std::vector<double> const & levels, std::vector<int> & rows)
{
    rows.resize(levels.size());
    std::transform(levels.begin(), levels.end(), rows.begin(), [&scale](double level) { return RowOf(scale, level); });
}

void TraceRaster::PaintGround(Canvas const & canvas, QRgb const * plain, QRgb const * filled,
                              std::vector<int> const & rows)
{
    std::size_t const count = rows.size();
    std::vector<unsigned int> below(count); // as unsigned a missing row lies below every other
    std::transform(rows.begin(), rows.end(), below.begin(), [](int row) { return static_cast<unsigned int>(row); });
    for (int y = 0; y < canvas.height; ++y) {
        std::size_t const line = static_cast<std::size_t>(y) * static_cast<std::size_t>(canvas.stride);
        unsigned int const height = static_cast<unsigned int>(y);
        for (std::size_t x = 0; x < count; ++x)
            canvas.pixels[line + x] = below[x] < height ? filled[line + x] : plain[line + x];
    }
}

void TraceRaster::PaintLine(Canvas const & canvas, std::vector<int> const & rows, int thickness, QRgb ink)
{
    int const count = static_cast<int>(rows.size());
    auto const meets = [&rows, count](int column, int row) { // half-way to the row of a neighbour
        int const other = column >= 0 && column < count ? rows[static_cast<std::size_t>(column)] : NoRow;
        return other == NoRow ? row : row + (other - row) / 2;
    };
    for (int column = 0; column < count; ++column) {
        int const row = rows[static_cast<std::size_t>(column)];
        if (row == NoRow)
            continue;
        int const left = meets(column - 1, row);
        int const right = meets(column + 1, row);
        int const first = std::max(0, std::min({ left, row, right }));
        int const last = std::min(canvas.height - 1, std::max({ left, row + std::max(1, thickness) - 1, right }));
        for (int y = first; y <= last; ++y)
            canvas.pixels[static_cast<std::ptrdiff_t>(y) * canvas.stride + column] = ink;
    }
}
