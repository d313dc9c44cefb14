// SPDX-License-Identifier: MIT
#include "scanlines.h"

#include <algorithm>

namespace {

constexpr int Farthest = 1 << 29; // px from the picture; what lies beyond cannot be seen

//! The first pixel of a row.
QRgb * Row(QImage & image, int y) { return reinterpret_cast<QRgb *>(image.scanLine(y)); }

} // namespace

bool ScanLines::CanDraw(QImage const & image)
{
    return image.format() == QImage::Format_RGB32 || image.format() == QImage::Format_ARGB32_Premultiplied;
}

QRgb ScanLines::Ink(QColor const & color) { return color.isValid() ? qPremultiply(color.rgba()) : 0U; }

void ScanLines::Fill(QImage & image, QRect const & rect, QRgb ink)
{
    QRect const part = rect & image.rect();
    if (rect.isEmpty() || part.isEmpty() || !CanDraw(image))
        return;
    QRgb * row = Row(image, part.top()) + part.left();
    auto const stride = image.bytesPerLine() / static_cast<int>(sizeof(QRgb));
    for (int y = 0; y < part.height(); ++y, row += stride)
        std::fill_n(row, part.width(), ink);
}

void ScanLines::Blend(QImage & image, QPoint const & position, QImage const & ink, QRect const & clip)
{
    QRect const near(-Farthest, -Farthest, 2 * Farthest, 2 * Farthest);
    if (!CanDraw(image) || ink.format() != QImage::Format_ARGB32_Premultiplied || !near.contains(position))
        return;
    QRect const part = QRect(position, QSize(ink.width(), ink.height())) & clip & image.rect();
    for (int y = part.top(); y <= part.bottom(); ++y) {
        auto const * const from = reinterpret_cast<QRgb const *>(ink.constScanLine(y - position.y()));
        QRgb * const to = Row(image, y);
        for (int x = part.left(); x <= part.right(); ++x)
            to[x] = Over(from[x - position.x()], to[x]);
    }
}
