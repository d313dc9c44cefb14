// SPDX-License-Identifier: MIT
#include "rangepane.h"

#include <QEvent>
#include <QFontMetrics>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr int TicLength = 4; // px
constexpr int LabelGap = 4;  // px

} // namespace

RangePane::RangePane(QWidget * parent)
    : QWidget(parent)
    , m_centre([this] { TakeRanges(); })
    , m_span([this] { TakeRanges(); })
    , m_minimum([this] { TakeRanges(); })
    , m_maximum([this] { TakeRanges(); })
    , m_colors{ Qt::black, Qt::black, Qt::white, Qt::darkGray, Qt::green, Qt::yellow }
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_NoSystemBackground);
}

RangePane::~RangePane() = default;

bool RangePane::SetCentre_ValuePath(QString const & path) { return m_centre.Bind(path); }

bool RangePane::SetSpan_ValuePath(QString const & path) { return m_span.Bind(path); }

bool RangePane::SetLevelMin_ValuePath(QString const & path) { return m_minimum.Bind(path); }

bool RangePane::SetLevelMax_ValuePath(QString const & path) { return m_maximum.Bind(path); }

void RangePane::SetFrequencyRange(FrequencyRange range)
{
    bool const good = std::isfinite(range.start) && std::isfinite(range.span) && range.span > 0.0;
    if (!good || range == m_frequencies)
        return;
    m_frequencies = range;
    Rebuild();
}

void RangePane::SetLevelRange(double min, double max)
{
    bool const good = std::isfinite(min) && std::isfinite(max) && max > min;
    if (!good || (min == m_levelMin && max == m_levelMax))
        return;
    m_levelMin = min;
    m_levelMax = max;
    Rebuild();
}

void RangePane::SetColors(PaneColors const & colors)
{
    m_colors = colors;
    Rebuild();
}

void RangePane::RefreshLayout()
{
    double const ratio = devicePixelRatioF();
    QSize const size = PaneLayout::ToDevice(this->size(), ratio);
    QRect const picture = PaneLayout::PictureRect(size, PaneLayout::ToDevice(Margins(), ratio));
    if (ratio == m_ratio && size == m_deviceSize && picture == m_pictureRect)
        return;
    m_ratio = ratio;
    m_deviceSize = size;
    m_pictureRect = picture;
    Rebuild();
}

int RangePane::LabelMargin() const
{
    QFontMetrics const metrics = fontMetrics();
    int const widest = std::max(metrics.horizontalAdvance(QStringLiteral("-100 dB")),
                                metrics.horizontalAdvance(QStringLiteral("00:00.00")));
    return widest + LabelGap + TicLength + LabelGap;
}

void RangePane::DrawPixels(QPainter & painter, QPoint at, QImage const & picture)
{
    if (picture.isNull())
        return;
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(at, picture);
}

void RangePane::resizeEvent(QResizeEvent * event)
{
    QWidget::resizeEvent(event);
    RefreshLayout();
}

void RangePane::showEvent(QShowEvent * event)
{
    QWidget::showEvent(event);
    RefreshLayout();
}

void RangePane::changeEvent(QEvent * event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        RefreshLayout();
        Rebuild();
    }
}

void RangePane::TakeRanges()
{
    double const centre = m_centre.Number(m_frequencies.start + m_frequencies.span / 2.0);
    double const span = m_span.Number(m_frequencies.span);
    SetFrequencyRange({ centre - span / 2.0, span });
    SetLevelRange(m_minimum.Number(m_levelMin), m_maximum.Number(m_levelMax));
}
