// SPDX-License-Identifier: MIT
#include "colorpreview.h"

#include "colorset.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPolygon>

#include <array>

namespace {

// Heights of the two sample traces over the pane, in percent, from left to right.
constexpr std::array<int, 16> Trace{ { 12, 14, 11, 18, 13, 64, 15, 12, 16, 38, 42, 13, 11, 15, 12, 14 } };
constexpr std::array<int, 16> Maximum{ { 24, 22, 27, 30, 26, 82, 28, 25, 29, 55, 58, 27, 40, 26, 24, 28 } };

// The markers, each at its place over the pane in percent.
struct MarkerPlace
{
    IColorBase::ECOLOR color;
    int percent;
};

constexpr std::array<MarkerPlace, 6> Markers{ {
    { IColorBase::eColorMarker, 10 },
    { IColorBase::eColorClientFirst, 24 },
    { IColorBase::eColorClientSecond, 45 },
    { IColorBase::eColorResult, 54 },
    { IColorBase::eColorSelectedResult, 74 },
    { IColorBase::eColorPositionCursor, 88 },
} };

constexpr int TicLength = 6; // px
constexpr int TicCount = 5;

} // namespace

ColorPreview::ColorPreview(QWidget * parent) : QWidget(parent) {}

void ColorPreview::SetColors(QMap<int, QColor> const & colors)
{
    m_colors = colors;
    PaintPicture();
    update();
}

QSize ColorPreview::sizeHint() const
{
    int const line = fontMetrics().height();
    return { line * 20, line * 16 };
}

QSize ColorPreview::minimumSizeHint() const
{
    int const line = fontMetrics().height();
    return { line * 16, line * 12 };
}

void ColorPreview::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_picture);
}

void ColorPreview::resizeEvent(QResizeEvent *) { PaintPicture(); }

void ColorPreview::PaintPicture()
{
    if (width() <= 0 || height() <= 0)
        return;
    m_picture = QPixmap(size());
    m_picture.fill(m_colors.value(IColorBase::eColorWindow, Qt::black));
    QPainter painter(&m_picture);
    painter.setFont(font());
    int const bar = fontMetrics().height() + 4;
    int const axis = bar + TicLength;
    QRect const pane(0, bar, width(), height() - 3 * bar - axis);
    PaintCaption(painter, QRect(0, 0, width(), bar), true);
    PaintPane(painter, pane);
    PaintTraces(painter, pane);
    PaintAxis(painter, QRect(0, pane.bottom() + 1, width(), axis));
    PaintReadOuts(painter, QRect(0, pane.bottom() + 1 + axis, width(), bar));
    PaintCaption(painter, QRect(0, height() - bar, width(), bar), false);
}

void ColorPreview::PaintCaption(QPainter & painter, QRect const & bar, bool focused) const
{
    auto const color = [this](IColorBase::ECOLOR number) { return m_colors.value(number, Qt::black); };
    painter.fillRect(bar, color(focused ? IColorBase::eColorCaptionFocus : IColorBase::eColorCaption));
    painter.setPen(color(focused ? IColorBase::eColorCaptionFocusText : IColorBase::eColorCaptionText));
    QRect const text = bar.adjusted(4, 0, -4, 0);
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter, focused ? tr("In focus") : tr("Other pane"));
    if (focused)
        painter.setPen(color(IColorBase::eColorCaptionFocusCenter));
    painter.drawText(text, Qt::AlignRight | Qt::AlignVCenter, QStringLiteral("12:00:09"));
}

void ColorPreview::PaintPane(QPainter & painter, QRect const & pane) const
{
    painter.fillRect(pane, m_colors.value(IColorBase::eColorAxisBackground, Qt::black));
    painter.setPen(m_colors.value(IColorBase::eColorGrid, Qt::black));
    for (int i = 1; i < TicCount; ++i) {
        int const x = pane.left() + i * pane.width() / TicCount;
        painter.drawLine(x, pane.top(), x, pane.bottom());
    }
    for (MarkerPlace const & marker : Markers) {
        int const x = pane.left() + marker.percent * pane.width() / 100;
        painter.fillRect(QRect(x, pane.top(), 2, pane.height()), m_colors.value(marker.color, Qt::black));
    }
}

void ColorPreview::PaintTraces(QPainter & painter, QRect const & pane) const
{
    auto const draw = [&](std::array<int, 16> const & heights, IColorBase::ECOLOR color) {
        QPolygon line;
        for (std::size_t i = 0; i < heights.size(); ++i) {
            int const x = pane.left() + static_cast<int>(i) * (pane.width() - 1) / static_cast<int>(heights.size() - 1);
            line << QPoint(x, pane.bottom() - heights[i] * (pane.height() - 1) / 100);
        }
        painter.setPen(QPen(m_colors.value(color, Qt::black), 2));
        painter.drawPolyline(line);
    };
    draw(Maximum, IColorBase::eColorMaximumTrace);
    draw(Trace, IColorBase::eColorSpectrumTrace);
}

void ColorPreview::PaintAxis(QPainter & painter, QRect const & axis) const
{
    auto const color = [this](IColorBase::ECOLOR number) { return m_colors.value(number, Qt::black); };
    painter.fillRect(axis, color(IColorBase::eColorAxisScale));
    int const third = axis.width() / 3;
    painter.fillRect(QRect(axis.left(), axis.top(), third, TicLength), color(IColorBase::eColorBearingPort));
    painter.fillRect(QRect(third, axis.top(), third, TicLength), color(IColorBase::eColorBearingAhead));
    painter.fillRect(QRect(2 * third, axis.top(), axis.width() - 2 * third, TicLength),
                     color(IColorBase::eColorBearingStarboard));
    painter.setPen(color(IColorBase::eColorAxisForeground));
    for (int i = 0; i < TicCount; ++i) {
        int const x = axis.left() + (2 * i + 1) * axis.width() / (2 * TicCount);
        painter.drawLine(x, axis.top(), x, axis.top() + TicLength - 1);
        QRect const label(x - axis.width() / (2 * TicCount), axis.top() + TicLength, axis.width() / TicCount,
                          axis.height() - TicLength);
        painter.drawText(label, Qt::AlignCenter, QString::number((i - TicCount / 2) * 60));
    }
}

void ColorPreview::PaintReadOuts(QPainter & painter, QRect const & strip) const
{
    painter.fillRect(strip, m_colors.value(IColorBase::eColorAxisScale, Qt::black));
    QRect const text = strip.adjusted(4, 0, -4, 0);
    painter.setPen(m_colors.value(IColorBase::eColorReadOut, Qt::black));
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("118.250"));
    painter.drawText(text, Qt::AlignRight | Qt::AlignVCenter, QStringLiteral("118.275"));
    painter.setPen(m_colors.value(IColorBase::eColorCenterReadOut, Qt::black));
    painter.drawText(text, Qt::AlignCenter, QStringLiteral("118.2625"));
}
