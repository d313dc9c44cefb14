// SPDX-License-Identifier: MIT
#include "shadingstrip.h"

#include "toint.h"

#include <QImage>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QRegion>
#include <QTransform>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr QRgb Opaque = 0xff000000U;

//! Lines and pixels of a strip, both ends included; empty when the last lies below the first.
struct Part
{
    int first;
    int last;

    bool IsEmpty() const { return last < first; }

    int Count() const { return last - first + 1; }
};

//! What of the pixels origin .. origin + extent lies between two places, counted from the origin.
Part ShownPart(int origin, int extent, double from, double to)
{
    double const last = std::min(extent, std::numeric_limits<int>::max() - 2); // one more is still an int
    return { toInt(std::clamp(std::floor(from) - origin, 0.0, last + 1.0)),
             toInt(std::clamp(std::ceil(to) - origin, -1.0, last)) };
}

//! Whether a pixel of the painter is one of the device.
bool IsPlain(QPainter const & painter)
{
    QTransform const & transform = painter.deviceTransform();
    return transform.type() <= QTransform::TxTranslate && transform.dx() == std::floor(transform.dx()) &&
           transform.dy() == std::floor(transform.dy());
}

QImage MakePicture(ShadingStrip::Area const & area, Part const & columns, Part const & rows,
                   std::function<QRgb(int)> const & colorOf)
{
    QImage picture(columns.Count(), rows.Count(), QImage::Format_RGB32);
    if (picture.isNull())
        return picture;
    for (int row = 0; row < rows.Count(); ++row) {
        auto * const line = reinterpret_cast<QRgb *>(picture.scanLine(row));
        if (area.vertical)
            std::fill_n(line, columns.Count(), colorOf(rows.first + row) | Opaque);
        else if (row == 0)
            for (int column = 0; column < columns.Count(); ++column)
                line[column] = colorOf(columns.first + column) | Opaque;
        else
            std::copy_n(reinterpret_cast<QRgb const *>(picture.constScanLine(0)), columns.Count(), line);
    }
    return picture;
}

} // namespace

QRectF ShadingStrip::ShownArea(QPainter const & painter)
{
    QPaintEngine const * const engine = painter.paintEngine();
    QPaintDevice const * const device = engine ? engine->paintDevice() : nullptr; // a widget paints on another one
    if (!device)
        return {};
    if (device->devType() == QInternal::Picture)
        return QRectF(-32768.0, -32768.0, 65536.0, 65536.0);
    double const ratio = device->devicePixelRatioF(); // a pixmap counts device pixels: then this is more than enough
    QRectF area(0.0, 0.0, device->width() * ratio, device->height() * ratio);
    QRectF const exposed = engine->systemClip().boundingRect();
    if (!exposed.isEmpty())
        area &= exposed;
    bool ok = false;
    QTransform const back = painter.deviceTransform().inverted(&ok);
    return ok ? back.mapRect(area) : QRectF();
}

void ShadingStrip::Paint(QPainter & painter, Area const & area, std::function<QRgb(int)> const & colorOf)
{
    QRectF const shown = ShownArea(painter);
    Part const columns = ShownPart(area.x, area.w, shown.left(), shown.right());
    Part const rows = ShownPart(area.y, area.h, shown.top(), shown.bottom());
    if (shown.isEmpty() || columns.IsEmpty() || rows.IsEmpty())
        return;
    double const left = static_cast<double>(area.x) + columns.first;
    double const top = static_cast<double>(area.y) + rows.first;
    if (IsPlain(painter)) {
        painter.drawImage(QPointF(left, top), MakePicture(area, columns, rows, colorOf));
        return;
    }
    Part const & lines = area.vertical ? rows : columns;
    for (int i = lines.first; i <= lines.last; ++i) {
        QRectF const line = area.vertical ? QRectF(left, static_cast<double>(area.y) + i, columns.Count(), 1.0)
                                          : QRectF(static_cast<double>(area.x) + i, top, 1.0, rows.Count());
        painter.fillRect(line, QColor(colorOf(i)));
    }
}
