// SPDX-License-Identifier: MIT
#include "paletteexpansion.h"

#include "toint.h"
#include "vectorstate.h"

#include <QPainter>
#include <QTransform>

#include <algorithm>
#include <cmath>
#include <cstring>

#if defined(__SSE2__) || defined(_M_X64)
#define ORIM_EXPANSION_SSE2
#include <emmintrin.h>
#endif

namespace {

constexpr int StripRows = 32; // with full HD a strip stays in the cache between the look-up and the copy to the screen
constexpr int StripColumns = 4096; // of a wider picture there are strips side by side: 512 KiB each
constexpr std::size_t Indices = 256;
constexpr std::size_t Ground = 255; // the index of most pixels in most pictures
constexpr double Far = 1e12;        // px, beyond every picture
constexpr int MaxExtent = 1 << 27;  // px of a picture, so that its extent on the screen is an int

#if defined(ORIM_EXPANSION_SSE2)

inline void StoreFour(QRgb * to, __m128i four) { _mm_storeu_si128(reinterpret_cast<__m128i *>(to), four); }

//! Sixteen pixels at a time; those that are background alone need no look-up. \return how many were done.
int ExpandBlocks(unsigned char const * from, QRgb * to, int count, QRgb const * colors)
{
    constexpr int Block = 16;
    __m128i const ground = _mm_set1_epi8(static_cast<char>(Ground));
    __m128i const groundColor = _mm_set1_epi32(static_cast<int>(colors[Ground]));
    int x = 0;
    for (; x + Block <= count; x += Block) {
        __m128i const pixels = _mm_loadu_si128(reinterpret_cast<__m128i const *>(from + x));
        if (_mm_movemask_epi8(_mm_cmpeq_epi8(pixels, ground)) == 0xffff) {
            for (int i = 0; i < Block; i += 4)
                StoreFour(to + x + i, groundColor);
            continue;
        }
        for (int i = 0; i < Block; ++i)
            to[x + i] = colors[from[x + i]];
    }
    return x;
}

#else

int ExpandBlocks(unsigned char const *, QRgb *, int, QRgb const *) { return 0; }

#endif

void ExpandRow(unsigned char const * from, QRgb * to, int count, QRgb const * colors)
{
    for (int x = ExpandBlocks(from, to, count, colors); x < count; ++x)
        to[x] = colors[from[x]];
}

//! Repeats each of \a from \a size times, but the first one \a cut times less.
void WidenRow(QRgb const * from, QRgb * to, int count, int size, int cut)
{
    QRgb * const end = to + count;
    for (int run = size - cut; to != end; ++from, run = size)
        to = std::fill_n(to, std::min<std::ptrdiff_t>(run, end - to), *from);
}

bool CanDraw(QImage const & picture) { return !picture.isNull() && picture.format() == QImage::Format_Indexed8; }

//! Whether the painter's scale can be taken back, so that its unit is a pixel of the device.
bool IsUpright(QTransform const & transform)
{
    return transform.type() <= QTransform::TxScale && transform.m11() > 0.0 && transform.m22() > 0.0;
}

//! A distance from the picture's corner, cut at the picture.
int Bound(double distance, int extent) { return toInt(std::max(0.0, std::min(distance, static_cast<double>(extent)))); }

} // namespace

void PaletteExpansion::SetPixelSize(int pixels)
{
    if (pixels >= 1 && pixels <= MaxPixelSize)
        m_pixelSize = pixels;
}

void PaletteExpansion::Paint(QPainter & painter, QPoint const & position, QImage const & picture)
{
    Draw(painter, position, picture, QRectF(-Far, -Far, 2 * Far, 2 * Far));
}

void PaletteExpansion::Paint(QPainter & painter, QPoint const & position, QImage const & picture, QRect const & exposed)
{
    Draw(painter, position, picture, exposed);
}

void PaletteExpansion::Draw(QPainter & painter, QPointF const & position, QImage const & picture,
                            QRectF const & exposed)
{
    if (!CanDraw(picture) || exposed.isEmpty() || !painter.isActive())
        return;
    QTransform const transform = painter.deviceTransform();
    if (!IsUpright(transform)) {
        DrawStrips(painter, position, picture, exposed);
        return;
    }
    QPointF const mapped = transform.map(position);
    QPointF const corner(std::round(mapped.x()), std::round(mapped.y())); // a pixel of the device
    QPointF const origin(transform.dx(), transform.dy());
    painter.save();
    painter.scale(1.0 / transform.m11(), 1.0 / transform.m22());
    DrawStrips(painter, corner - origin, picture, transform.mapRect(exposed).translated(-origin));
    painter.restore();
}

//! \param corner, exposed  in units that are pixels of the device.
void PaletteExpansion::DrawStrips(QPainter & painter, QPointF const & corner, QImage const & picture,
                                  QRectF const & exposed)
{
    int const width = std::min(picture.width(), MaxExtent) * m_pixelSize;
    int const height = std::min(picture.height(), MaxExtent) * m_pixelSize;
    int const left = Bound(std::floor(exposed.left() - corner.x()), width);
    int const top = Bound(std::floor(exposed.top() - corner.y()), height);
    int const right = Bound(std::ceil(exposed.right() - corner.x()), width);
    int const bottom = Bound(std::ceil(exposed.bottom() - corner.y()), height);
    if (left >= right || top >= bottom || !MakeStrip(std::min(right - left, StripColumns), TakeColors(picture)))
        return;
    for (int y = top; y < bottom; y += StripRows)
        for (int x = left; x < right; x += StripColumns) {
            QRect const part(x, y, std::min(StripColumns, right - x), std::min(StripRows, bottom - y));
            FillStrip(picture, part);
            painter.drawImage(corner + QPointF(x, y), m_strip, QRectF(0, 0, part.width(), part.height()));
        }
}

//! \return whether no colour is transparent.
bool PaletteExpansion::TakeColors(QImage const & picture)
{
    auto const table = picture.colorTable();
    m_colors.resize(Indices);
    bool opaque = true;
    int const count = static_cast<int>(table.size());
    for (int i = 0; i < static_cast<int>(Indices); ++i) {
        QRgb const color = count == 0 ? qRgb(i, i, i) : i < count ? table.at(i) : 0U;
        opaque = opaque && qAlpha(color) == 255;
        m_colors[static_cast<std::size_t>(i)] = qPremultiply(color);
    }
    return opaque;
}

//! \return false when there is no memory for it.
bool PaletteExpansion::MakeStrip(int width, bool opaque)
{
    QImage::Format const format = opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied;
    if (m_strip.width() < width || m_strip.format() != format)
        m_strip = QImage(std::max(width, m_strip.width()), StripRows, format);
    return !m_strip.isNull();
}

//! \param part  pixels of the device from the picture's corner on; at most StripColumns wide and StripRows high.
void PaletteExpansion::FillStrip(QImage const & picture, QRect const & part)
{
    CleanVectorState();
    int const size = m_pixelSize;
    int const firstColumn = part.left() / size;
    int const columns = part.right() / size - firstColumn + 1;
    if (size > 1)
        m_row.resize(static_cast<std::size_t>(columns));
    auto const stride = m_strip.bytesPerLine() / static_cast<int>(sizeof(QRgb));
    auto * to = reinterpret_cast<QRgb *>(m_strip.bits());
    for (int y = part.top(); y <= part.bottom(); ++y, to += stride) {
        unsigned char const * const from = picture.constScanLine(y / size) + firstColumn;
        if (size == 1) {
            ExpandRow(from, to, columns, m_colors.data());
        } else if (y > part.top() && y % size != 0) {
            std::copy_n(to - stride, part.width(), to);
        } else {
            ExpandRow(from, m_row.data(), columns, m_colors.data());
            WidenRow(m_row.data(), to, part.width(), size, part.left() % size);
        }
    }
}
