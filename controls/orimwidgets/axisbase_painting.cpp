// SPDX-License-Identifier: MIT
#include "axisbase.h"

#include "axisdefinition.h"
#include "bearingbands.h"
#include "colorset.h"
#include "guicentral.h"
#include "shadingstrip.h"
#include "toint.h"
#include "valueselection.h"
#include "valuewrap.h"

#include <QPainter>
#include <qdrawutil.h>

#include <algorithm>
#include <cstdlib>

int AxisBase::GetAxisValues(double * start, double * stop, int * minor, int * left, int * right, double * first,
                            double * step, double * offset, int mode)
{
    if (m_fixedRange)
        return m_ticCount;
    if ((m_axisType & AxisTimeStamps) != 0)
        return GetAxisValues4TimeStamps(start, stop, minor, left, right, first, step, offset, mode);
    return axisDefinition::GetAxisValuesLinear(start, stop, minor, left, right, first, step, offset, mode,
                                               m_displayFactor, m_fixedTicWidth);
}

int AxisBase::Check4Tics() const
{
    if (m_maxPixBetweenTics < 0)
        return -1;
    long long const a = ValueToPixel(m_ticStep + m_firstTic + m_ticOffset);
    long long const b = ValueToPixel(m_ticOffset + m_firstTic);
    return std::llabs(a - b) > m_maxPixBetweenTics ? m_minorTics : -1;
}

void AxisBase::drawBackground(QPainter & painter)
{
    if (!m_pPixmap)
        return;
    if ((m_axisType & AxisInnerFrame) != 0) {
        QColor const frame = ColorSet::Instance()[IColorBase::eColorAxisBackground];
        painter.setPen(frame);
        painter.setBrush(frame);
        painter.drawRect(rect());
    }
    painter.setPen(m_bgPen);
    painter.setBrush(m_bgBrush);
    painter.drawRect((m_axisType & AxisInnerFrame) != 0 ? innerRect() : rect());
    if ((m_axisType & AxisWinPanel) != 0)
        qDrawWinPanel(&painter, 0, 0, width(), height(), palette(), true, nullptr);
    if (m_pDisplayAzimuth && (m_pDisplayAzimuth->GetCurrentKey() & eAzimuthBands) != 0)
        FillBearingBands(painter);
    else
        m_textPen = QPen(ColorSet::Instance()[IColorBase::eColorAxisForeground]);
}

void AxisBase::FillBearingBands(QPainter & painter)
{
    QRect const inner = innerRect();
    long long const length = IsVertical() ? 1LL + inner.bottom() - inner.top() : 1LL + inner.right() - inner.left();
    BearingBands::Strip const strip{ m_start, m_stop, CutTo16Bits(IsVertical() ? inner.top() : inner.left()),
                                     CutTo16Bits(length), IsVertical() };
    auto const fill = [&](int position, int pixels, int color) {
        QRect const area =
            IsHorizontal() ? QRect(position, 0, pixels, m_ticLength) : QRect(0, position, m_ticLength, pixels);
        painter.fillRect(area, ColorSet::Instance()[static_cast<IColorBase::ECOLOR>(color)]);
    };
    fill(strip.origin, strip.length, BearingBands::GroundColor);
    for (BearingBands::Band const & band : BearingBands::Bands) {
        BearingBands::Pixels const pixels = BearingBands::PixelsOf(strip, band.from, band.to);
        if (pixels.length != 0)
            fill(pixels.position, pixels.length, band.color);
    }
}

void AxisBase::drawShadeRect(QPainter & painter, int x, int y, int w, int h, bool invert)
{
    if (w <= 1 || h <= 1 || m_shadingColor == VC::eShadingNone)
        return;
    bool const vertical = IsVertical();
    int const last = vertical ? h : w;
    bool const turned = vertical && !invert;
    GuiCentral & central = GuiCentral::Instance();
    ShadingStrip::Paint(painter, { x, y, w, h, vertical }, [&](int i) {
        double const part = static_cast<double>(i) / last;
        double const value = m_start + (m_stop - m_start) * (turned ? 1.0 - part : part);
        return central.GetShadingRGB(value, m_shadingColor, m_start, m_stop, turned);
    });
}

void AxisBase::drawAgeingScale(QPainter & painter, int x, int y, int w, int h, int steps)
{
    if (w <= 1 || h <= 1 || steps < 1)
        return;
    long long const all = steps;
    int const height = h / steps;
    QRectF const shown = ShadingStrip::ShownArea(painter);
    // steps that share a row of pixels have no height: one of them does
    long long const stride = std::max(all / h, 1LL);
    // cut before one is added: no long long may hold the place
    long long const first = std::clamp(toInt<long long>((shown.top() - y - height) / h * steps), 1LL, all + 1) - 1;
    long long const last = std::clamp(toInt<long long>((shown.bottom() - y) / h * steps), -2LL, all - 2) + 1;
    GuiCentral & central = GuiCentral::Instance();
    for (long long i = first; i <= last; i += stride) {
        painter.setBrush(QColor(
            central.GetShadingRGB(static_cast<double>(i), VC::eShadingAgeing, 0.0, std::max(steps - 1, 1), false)));
        painter.drawRect(x, ClampToInt(y + h * i / all), w / 3, height);
    }
}
