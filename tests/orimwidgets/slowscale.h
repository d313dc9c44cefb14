// SPDX-License-Identifier: MIT
#ifndef ORIM_SLOWSCALE_H
#define ORIM_SLOWSCALE_H

// What the tests of the scale's picture compare it with.

#include "axisdefinition.h"
#include "scalestrip.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace SlowScales {

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr QRgb Untouched = 0xff123456;

inline ScaleTics Found(double start, double stop)
{
    ScaleTics tics;
    tics.start = start;
    tics.stop = stop;
    int left = 0;
    int right = 0;
    tics.ticCount = axisDefinition::GetAxisValuesLinear(&start, &stop, &tics.minorTics, &left, &right, &tics.firstTic,
                                                        &tics.ticStep, &tics.ticOffset, 1, 1.0, -1);
    return tics;
}

//! As many decimals as the step needs.
inline QString NumberText(double value, double step)
{
    double const decimals = std::max(0.0, std::ceil(-std::log10(step) - 1e-9));
    return QString::number(value, 'f', static_cast<int>(std::min(decimals, 15.0)));
}

inline ScaleStrip::Look LookOf(Qt::Orientation orientation = Qt::Horizontal,
                               ScaleStrip::ELineSide side = ScaleStrip::eLineAtNearEdge)
{
    ScaleStrip::Look look;
    look.orientation = orientation;
    look.lineSide = side;
    look.font = QFont(QStringLiteral("DejaVu Sans"), 9);
    look.background = QColor(16, 32, 48);
    look.line = QColor(160, 160, 160);
    look.text = QColor(240, 240, 200);
    return look;
}

inline QImage Canvas(QSize const & size, double ratio = 1.0)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Untouched);
    image.setDevicePixelRatio(ratio);
    return image;
}

//! The scale in a picture that is just as large.
inline QImage Shown(ScaleStrip & strip, QSize const & size, double ratio = 1.0)
{
    QImage image = Canvas(QSize(qRound(size.width() * ratio), qRound(size.height() * ratio)), ratio);
    QPainter painter(&image);
    strip.Paint(painter, QRect(QPoint(), size));
    painter.end();
    image.setDevicePixelRatio(1.0);
    return image;
}

//! A scale with everything about it, to make anew what another strip shows.
struct Scale
{
    ScaleStrip::Look look = LookOf();
    ScaleTics tics = Found(0.0, 100.0);
    QString unit;
    int origin = 0;

    void GiveTo(ScaleStrip & strip) const
    {
        strip.SetLook(look);
        strip.SetTics(tics);
        strip.SetUnit(unit);
        strip.SetOrigin(origin);
    }

    QImage DrawnAnew(QSize const & size, double ratio) const
    {
        ScaleStrip strip;
        strip.SetLabelText(NumberText);
        GiveTo(strip);
        return Shown(strip, size, ratio);
    }
};

//! Draws a scale of numbers rectangle by rectangle.
class SlowScale
{
public:
    SlowScale(Scale const & scale, QSize const & size, double ratio)
        : m_scale(scale)
        , m_ratio(ratio)
        , m_image(qRound(size.width() * ratio), qRound(size.height() * ratio), QImage::Format_RGB32)
    {
        m_vertical = scale.look.orientation == Qt::Vertical;
        m_image.fill(scale.look.background.rgb());
    }

    QImage Draw()
    {
        ScaleStrip::Look const & look = m_scale.look;
        ScaleLayout layout;
        ScaleLayout::Extent extent;
        extent.length = m_vertical ? m_image.height() : m_image.width();
        extent.vertical = m_vertical;
        extent.minorDistance = qRound(look.minorDistance * m_ratio);
        layout.SetTics(m_scale.tics, extent);
        DigitAtlas atlas;
        atlas.Set(look.font, look.text, m_ratio, look.characters);
        int const width = static_cast<int>(m_ratio);
        FillRect(0, extent.length, 0, width);
        for (int const pixel : layout.GetMinorTics())
            FillRect(pixel, width, 0, qRound(look.minorTicLength * m_ratio));
        for (ScaleLayout::Tic const & tic : layout.GetTics())
            FillRect(tic.pixel, width, 0, qRound(look.ticLength * m_ratio));
        std::vector<int> extents;
        for (ScaleLayout::Tic const & tic : layout.GetTics())
            extents.push_back(ExtentOf(atlas, NumberText(tic.value, m_scale.tics.ticStep)));
        layout.PlaceLabels(extents, qRound(look.labelGap * m_ratio), ExtentOf(atlas, m_scale.unit));
        for (ScaleLayout::Label const & label : layout.GetLabels())
            DrawText(atlas,
                     NumberText(layout.GetTics()[static_cast<std::size_t>(label.tic)].value, m_scale.tics.ticStep),
                     label.start);
        if (layout.GetUnitStart() >= 0)
            DrawText(atlas, m_scale.unit, layout.GetUnitStart());
        return m_image;
    }

private:
    int ExtentOf(DigitAtlas const & atlas, QString const & text) const
    {
        return text.isEmpty() ? 0 : m_vertical ? atlas.GetHeight() : atlas.Width(text);
    }

    QRect RectOf(int along, int length, int depth, int thickness) const
    {
        int const whole = m_vertical ? m_image.width() : m_image.height();
        int const across = m_scale.look.lineSide == ScaleStrip::eLineAtNearEdge ? depth : whole - depth - thickness;
        return m_vertical ? QRect(across, along, thickness, length) : QRect(along, across, length, thickness);
    }

    void FillRect(int along, int length, int depth, int thickness)
    {
        QPainter painter(&m_image);
        painter.fillRect(RectOf(along, length, depth, thickness), m_scale.look.line);
    }

    void DrawText(DigitAtlas const & atlas, QString const & text, int start)
    {
        int const depth = qRound(m_scale.look.ticLength * m_ratio) + qRound(m_scale.look.textDistance * m_ratio);
        int const height = atlas.GetHeight();
        QRect const rect = m_vertical ? RectOf(start, height, depth, atlas.Width(text))
                                      : RectOf(start, atlas.Width(text), depth, height);
        atlas.Draw(m_image, rect.topLeft(), text, m_image.rect());
    }

    Scale m_scale;
    double m_ratio;
    bool m_vertical;
    QImage m_image;
};

//! How many pixels of a rectangle have a colour.
inline int CountOf(QImage const & image, QRect const & rect, QColor const & color)
{
    int count = 0;
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        for (int x = rect.left(); x <= rect.right(); ++x)
            count += image.pixel(x, y) == color.rgb() ? 1 : 0;
    }
    return count;
}

//! How many pixels of a rectangle bear text: they are neither ground nor line.
inline int TextPixels(QImage const & image, QRect const & rect, ScaleStrip::Look const & look)
{
    return rect.width() * rect.height() - CountOf(image, rect, look.background) - CountOf(image, rect, look.line);
}

} // namespace SlowScales

#endif
