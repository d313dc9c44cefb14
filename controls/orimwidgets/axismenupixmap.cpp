// SPDX-License-Identifier: MIT
#include "axismenupixmap.h"

#include <QColor>
#include <QPainter>
#include <QPixmap>
#include <QPixmapCache>

#include <array>

namespace {

using Picture = std::array<char const *, 19>; // as the XPM format has it: header, two colours, 16 rows

constexpr Picture PointsUp{
    "16 16 2 1",        // width, height, colours, characters a pixel
    "w c yellow",       //
    ". c none",         //
    ".......w........", //
    ".......w........", //
    "......www.......", //
    "......www.......", //
    ".....wwwww......", //
    ".....wwwww......", //
    "....wwwwwww.....", //
    "....wwwwwww.....", //
    "...wwwwwwwww....", //
    "...wwwwwwwww....", //
    "..wwwwwwwwwww...", //
    "..wwwwwwwwwww...", //
    ".wwwwwwwwwwwww..", //
    ".wwwwwwwwwwwww..", //
    "wwwwwwwwwwwwwww.", //
    "wwwwwwwwwwwwwww.", //
};

constexpr Picture PointsRight{
    "16 16 2 1",        //
    "w c yellow",       //
    ". c none",         //
    "................", //
    "wwwww...........", //
    "wwwwww..........", //
    "wwwwwwww........", //
    "wwwwwwwww.......", //
    "wwwwwwwwwww.....", //
    "wwwwwwwwwwww....", //
    "wwwwwwwwwwwwww..", //
    "wwwwwwwwwwww....", //
    "wwwwwwwwwww.....", //
    "wwwwwwwww.......", //
    "wwwwwwww........", //
    "wwwwww..........", //
    "wwwww...........", //
    "................", //
    "................", //
};

} // namespace

QString AxisMenuPixmap::Key(bool x, QColor const & color)
{
    return QLatin1String("AxisMenuPixmap") + QLatin1Char(x ? 'X' : 'Y') + color.name();
}

QImage AxisMenuPixmap::Paint(bool x, QColor const & color)
{
    Picture const & picture = x ? PointsUp : PointsRight;
    QImage image = QImage(picture.data()).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
    painter.end();
    return image;
}

QPixmap AxisMenuPixmap::Get(bool x, QColor const & color)
{
    QString const key = Key(x, color);
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap))
        return pixmap;
    pixmap = QPixmap::fromImage(Paint(x, color));
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}
