// SPDX-License-Identifier: MIT
#include "captionpictures.h"

#include <QPainter>
#include <QPixmap>
#include <QPolygonF>

#include <algorithm>

namespace {

constexpr int Grid = 16; // units of a picture each way
constexpr int LargestExtent = 1024;

// each at least three times as bright or as dark as the buttons of every colour set
constexpr QRgb Alert = 0xffd2452d;
constexpr QRgb Active = 0xff2f7fd0;
constexpr QRgb Idle = 0xff7a7a7a;

void PaintCross(QPainter & painter)
{
    painter.setPen(QPen(QColor(Alert), 3.5, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(QPointF(2.0, 2.0), QPointF(14.0, 14.0));
    painter.drawLine(QPointF(14.0, 2.0), QPointF(2.0, 14.0));
}

QPolygonF ArrowHead(qreal margin)
{
    return QPolygonF({ QPointF(8.0, 4.0 + margin), QPointF(15.0 - margin, 14.0 - margin / 2.0),
                       QPointF(1.0 + margin, 14.0 - margin / 2.0) });
}

void PaintArrow(QPainter & painter, bool isOnTop)
{
    QColor const color(isOnTop ? Active : Idle);
    if (isOnTop) {
        painter.fillRect(QRectF(0.0, 0.0, 16.0, 2.0), color);
        painter.setBrush(color);
        painter.drawPolygon(ArrowHead(0.0));
        return;
    }
    painter.setPen(QPen(color, 2.0, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawPolygon(ArrowHead(1.0));
}

void PaintFrame(QPainter & painter)
{
    QColor const color(Active);
    for (QRectF const & part :
         { QRectF(0.0, 0.0, 16.0, 4.0), QRectF(0.0, 14.0, 16.0, 2.0), QRectF(0.0, 4.0, 2.0, 10.0),
           QRectF(14.0, 4.0, 2.0, 10.0), QRectF(4.0, 6.0, 8.0, 2.0), QRectF(4.0, 10.0, 8.0, 2.0) })
        painter.fillRect(part, color);
}

} // namespace

QImage CaptionPictures::Paint(EPicture picture, int extent)
{
    extent = std::clamp(extent, 1, LargestExtent);
    QImage image(extent, extent, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(static_cast<qreal>(extent) / Grid, static_cast<qreal>(extent) / Grid);
    painter.setPen(Qt::NoPen);
    switch (picture) {
    case eStop:
        painter.fillRect(QRectF(2.0, 2.0, 12.0, 12.0), QColor(Alert));
        break;
    case eExit:
        PaintCross(painter);
        break;
    case eOnTop:
    case eNotOnTop:
        PaintArrow(painter, picture == eOnTop);
        break;
    case eFull:
        PaintFrame(painter);
        break;
    }
    return image;
}

QIcon CaptionPictures::Icon(EPicture picture, int extent)
{
    QIcon icon;
    for (int const ratio : { 1, 2, 3 })
        icon.addPixmap(QPixmap::fromImage(Paint(picture, std::clamp(extent, 1, LargestExtent) * ratio)));
    return icon;
}

QIcon CaptionPictures::PauseIcon() { return QIcon(QStringLiteral(":/GUIControl/Pause.png")); }

QIcon CaptionPictures::DatastreamIcon()
{
    QIcon icon;
    icon.addFile(QStringLiteral(":/Caption/On"), QSize(), QIcon::Normal, QIcon::On);
    icon.addFile(QStringLiteral(":/Caption/Off"), QSize(), QIcon::Normal, QIcon::Off);
    return icon;
}
