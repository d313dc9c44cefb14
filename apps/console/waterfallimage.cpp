// SPDX-License-Identifier: MIT
#include "waterfallimage.h"

#include <QPainter>

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

void WaterfallImage::Resize(int columns, int rows, Spreader const & spread, QRgb ground, Colorer const & color)
{
    bool const exists = columns > 0 && rows > 0;
    WaterfallImage sized;
    if (exists) {
        sized.m_image = QImage(columns, rows, QImage::Format_RGB32);
        sized.m_levels.assign(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows), 0.0);
        sized.m_stamps.assign(static_cast<std::size_t>(rows), 0.0);
        sized.m_filled = std::min(m_filled, rows);
        for (int row = 0; row < sized.m_filled; ++row) {
            spread(Levels(row), sized.SlotLevels(row));
            sized.m_stamps[static_cast<std::size_t>(row)] = Stamp(row);
        }
    }
    *this = std::move(sized);
    Recolor(ground, color);
}

void WaterfallImage::Append(double const * levels, QRgb const * pixels, double stamp)
{
    if (m_image.isNull())
        return;
    m_top = (m_top > 0 ? m_top : Rows()) - 1;
    m_filled = std::min(m_filled + 1, Rows());
    std::size_t const count = static_cast<std::size_t>(Columns());
    std::memcpy(SlotLevels(m_top), levels, count * sizeof(double));
    std::memcpy(SlotPixels(m_top), pixels, count * sizeof(QRgb));
    m_stamps[static_cast<std::size_t>(m_top)] = stamp;
}

void WaterfallImage::Recolor(QRgb ground, Colorer const & color)
{
    if (m_image.isNull())
        return;
    // the kept rows lie in at most two runs of slots, the empty ones in the rest; lines of 32 bits a pixel have no gap
    std::size_t const columns = static_cast<std::size_t>(Columns());
    int const firstRun = std::min(m_filled, Rows() - m_top);
    int const secondRun = m_filled - firstRun;
    if (firstRun > 0)
        color(SlotLevels(m_top), SlotPixels(m_top), columns * static_cast<std::size_t>(firstRun));
    if (secondRun > 0)
        color(SlotLevels(0), SlotPixels(0), columns * static_cast<std::size_t>(secondRun));
    for (int row = m_filled; row < Rows(); ++row)
        std::fill_n(SlotPixels(SlotOf(row)), columns, ground);
}

void WaterfallImage::Clear(QRgb ground)
{
    m_filled = 0;
    m_top = 0;
    m_image.fill(ground);
}

double const * WaterfallImage::Levels(int row) const
{
    return Holds(row) ? m_levels.data() + static_cast<std::size_t>(SlotOf(row)) * static_cast<std::size_t>(Columns())
                      : nullptr;
}

QRgb const * WaterfallImage::Pixels(int row) const
{
    return Holds(row) ? reinterpret_cast<QRgb const *>(m_image.constScanLine(SlotOf(row))) : nullptr;
}

double WaterfallImage::Stamp(int row) const
{
    return Holds(row) ? m_stamps[static_cast<std::size_t>(SlotOf(row))] : std::numeric_limits<double>::quiet_NaN();
}

void WaterfallImage::Paint(QPainter & painter, QPoint at) const
{
    if (m_image.isNull())
        return;
    QPainter::CompositionMode const mode = painter.compositionMode();
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    int const newer = Rows() - m_top;
    painter.drawImage(at, m_image, QRect(0, m_top, Columns(), newer));
    if (m_top > 0)
        painter.drawImage(at + QPoint(0, newer), m_image, QRect(0, 0, Columns(), m_top));
    painter.setCompositionMode(mode);
}

int WaterfallImage::SlotOf(int row) const
{
    int const slot = m_top + row;
    return slot < Rows() ? slot : slot - Rows();
}

QRgb * WaterfallImage::SlotPixels(int slot) { return reinterpret_cast<QRgb *>(m_image.scanLine(slot)); }

double * WaterfallImage::SlotLevels(int slot)
{
    return m_levels.data() + static_cast<std::size_t>(slot) * static_cast<std::size_t>(Columns());
}
