// SPDX-License-Identifier: MIT
#include "timeaxis.h"

#include "datetime.h"
#include "panelayout.h"
#include "toint.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

namespace {

constexpr int TicLength = 4; // px, as the next
constexpr int LabelGap = 4;

} // namespace

TimeAxis::TimeAxis(QWidget * parent)
    : ScaleAxis(parent, "timeAxis", AxisVertical | AxisTimeStamps | AxisNoPropertyPage | AxisTypeBit13,
                ScaleStrip::eLineAtFarEdge)
{
    setAccessibleName(tr("Time scale"));
    SetAxisZoomEnable(false, false);
    EnableContextMenu(false);
    setContextMenuPolicy(Qt::PreventContextMenu); // that of the pane is about frequencies
    setFocusPolicy(Qt::NoFocus);
}

TimeAxis::~TimeAxis() = default;

void TimeAxis::SetRows(std::vector<double> times)
{
    for (std::size_t row = times.size(); row-- > 1;)
        times[row - 1] = std::max(times[row - 1], times[row]);
    m_times = std::move(times);
    if (m_times.empty())
        SetRange(0.0, 0.0);
    else
        SetRange(m_times.back(), m_times.front());
    RepairDrawing();
}

double TimeAxis::PixelToValue(int pixel) const
{
    if (m_times.empty())
        return MarkerHand::NoValue;
    int const row = PaneLayout::ToDevice(pixel - innerRect().top(), devicePixelRatioF());
    return m_times[static_cast<std::size_t>(std::clamp(row, 0, static_cast<int>(m_times.size()) - 1))];
}

int TimeAxis::ValueToPixel(double value) const
{
    bool const inside = !m_times.empty() && value >= m_times.back() && value <= m_times.front();
    if (!inside)
        return -1;
    // the last row that is not before the time
    auto const after = std::upper_bound(m_times.begin(), m_times.end(), value, std::greater<>());
    auto const row = static_cast<double>(after - m_times.begin() - 1);
    return innerRect().top() + toInt(row / devicePixelRatioF());
}

void TimeAxis::BuildFormatString(QString & out, double value, Marker * marker)
{
    if (!m_pDateTime)
        return AxisBase::BuildFormatString(out, value, marker);
    bool const toTheSecond = m_ticStep < static_cast<double>(m_sMinute);
    m_pDateTime->setTime_ts(toInt<unsigned long long>(value));
    out = m_pDateTime->toString(toTheSecond ? QStringLiteral("hh:mm:ss") : QStringLiteral("hh:mm"));
}

QString TimeAxis::LabelOf(double time)
{
    QString label;
    BuildFormatString(label, time, nullptr);
    return label;
}

std::vector<TimeAxis::Tic> TimeAxis::GetTimeTics()
{
    std::vector<Tic> tics;
    if (m_ticCount < 1 || !(m_ticStep > 0.0))
        return tics;
    double const ratio = devicePixelRatioF();
    int const extent = PaneLayout::ToDevice(fontMetrics().height(), ratio);
    int const length = PaneLayout::ToDevice(innerRect().height(), ratio);
    int const above = PaneLayout::ToDevice(innerRect().top(), ratio);
    int const rows = std::min(static_cast<int>(m_times.size()), length);
    int free = extent / 2 - above; // the first row whose label is not cut and touches none
    for (int row = 0; row + 1 < rows; ++row) {
        double const steps = std::floor(m_times[static_cast<std::size_t>(row)] / m_ticStep);
        if (steps == std::floor(m_times[static_cast<std::size_t>(row) + 1] / m_ticStep))
            continue;
        bool const hasRoom = row >= free && row + extent / 2 < length;
        tics.push_back({ row, hasRoom ? LabelOf(steps * m_ticStep) : QString() });
        if (hasRoom)
            free = row + extent;
    }
    return tics;
}

//! The strip draws the line alone: its tics would stand apart evenly.
ScaleTics TimeAxis::Tics() const
{
    ScaleTics tics = ScaleAxis::Tics();
    tics.ticCount = 0;
    tics.minorTics = 0;
    return tics;
}

void TimeAxis::PaintBeside(QPainter & painter)
{
    double const ratio = devicePixelRatioF();
    QRect const inner = innerRect();
    int const height = fontMetrics().height();
    for (Tic const & tic : GetTimeTics()) {
        double const y = inner.top() + tic.row / ratio;
        painter.fillRect(QRectF(inner.right() + 1 - TicLength, y, TicLength, GetTicWidth() / ratio), m_textPen.color());
        QRectF const box(0.0, y - height / 2.0, inner.right() + 1 - TicLength - LabelGap, height);
        if (fontMetrics().horizontalAdvance(tic.label) <= box.width()) // none is cut
            painter.drawText(box, Qt::AlignRight | Qt::AlignVCenter, tic.label);
    }
}
