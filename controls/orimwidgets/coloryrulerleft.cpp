// SPDX-License-Identifier: MIT
#include "coloryrulerleft.h"

#include "toint.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr int TopMargin = 10;  // px
constexpr int MostTics = 1000; // of a ruler lower than that many px: a range may be given any number
constexpr double ValueOfIndex = 2.2250738585072014e-308;
constexpr double LargestPicture = 64e6; // px

//! \return null for a picture without an area, and for one that is too large.
std::unique_ptr<QPixmap> MakePicture(QSize const & size, double ratio)
{
    QSize const pixels(toInt(std::ceil(size.width() * ratio)), toInt(std::ceil(size.height() * ratio)));
    if (pixels.isEmpty() || static_cast<double>(pixels.width()) * pixels.height() > LargestPicture)
        return nullptr;
    auto picture = std::make_unique<QPixmap>(pixels);
    if (picture->isNull())
        return nullptr;
    picture->setDevicePixelRatio(ratio);
    return picture;
}

} // namespace

ColorYRulerLeft::ColorYRulerLeft(QWidget * parent, char const * name) : AxisBase(parent, name, 36, 20, 5, -1) {}

ColorYRulerLeft::~ColorYRulerLeft() = default;

void ColorYRulerLeft::paintEvent(QPaintEvent * /*event*/)
{
    if (!m_drawEnabled)
        return;
    BuildPixMap();
    if (m_pPixmap) {
        QPainter painter(this);
        painter.drawPixmap(0, 0, *m_pPixmap);
        DrawWhileZoom(painter);
    }
    Q_EMIT AxisRepainted();
}

void ColorYRulerLeft::BuildPixMap()
{
    m_pPixmap.reset();
    m_pPixmap2.reset();
    if (width() < 0 || height() < 0)
        return;
    m_pPixmap = MakePicture(size(), devicePixelRatioF());
    if (m_pPixmap) {
        QPainter painter(m_pPixmap.get());
        painter.setFont(m_font);
        painter.setBackgroundMode(Qt::TransparentMode);
        drawBackground(painter);
        if (m_calcStart != m_calcStop) {
            painter.setBrush(m_bgBrush);
            painter.setPen(m_textPen);
            Check4Tics();
            m_labelReserve = 0;
            int const count = std::min(m_ticCount, std::max(MostTics, height()));
            for (int i = 0; i < count; ++i)
                DrawTic(painter, i);
        }
    }
    m_drawnStart = m_start;
    m_drawnStop = m_stop;
    m_drawnHeight = height();
    SetMustRecalcRulers(true);
}

void ColorYRulerLeft::DrawTic(QPainter & painter, int index, double value)
{
    if (value == ValueOfIndex)
        value = GetTicValue(index);
    int const y = ValueToPixel(value);
    if (y < TopMargin)
        return;
    QString label;
    BuildFormatString(label, value * m_displayFactor, nullptr);
    painter.setPen(m_textPen);
    QRect const inner = innerRect();
    int const right = ClampToInt(static_cast<long long>(inner.right()) - inner.left());
    long long const edge = static_cast<long long>(right) - m_ticLength;
    painter.drawLine(ClampToInt(edge - 1), y, ClampToInt(right + 1LL), y);
    QRect const bounds = painter.boundingRect(QRect(QPoint(0, 0), QPoint(999, 999)), Qt::AlignLeft, label);
    if (static_cast<long long>(y) + bounds.top() - bounds.bottom() - m_labelReserve - 1 >= 0)
        painter.drawText(ClampToInt(edge + bounds.left() - bounds.right() - 2), y, label);
}
