// SPDX-License-Identifier: MIT
#include "spectrumpane.h"

#include "framestats.h"
#include "gridtics.h"
#include "numbertexts.h"
#include "traceraster.h"

#include <QElapsedTimer>
#include <QFontMetrics>
#include <QPainter>
#include <QTimerEvent>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int PeakPeriod = 200; // ms
constexpr int TicLength = 4;    // px, as all below
constexpr int LabelGap = 4;
constexpr int ReadOutGap = 2;
constexpr int RightMargin = 12;
constexpr int FrequencySpacing = 50;
constexpr int FrequencyLabelGap = 14;
constexpr int PeakMark = 4;       // half the width of the mark over the peak
constexpr double FillPart = 0.28; // of the trace colour in the ground below it

SpectrumPane::Peak NoPeak()
{
    return { std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::quiet_NaN() };
}

} // namespace

SpectrumPane::SpectrumPane(QWidget * parent) : RangePane(parent), m_peak(NoPeak())
{
    setObjectName(QStringLiteral("spectrumPane"));
    setAccessibleName(tr("Spectrum"));
    m_peakTimer.start(PeakPeriod, this);
}

SpectrumPane::~SpectrumPane() = default;

void SpectrumPane::SetLine(std::shared_ptr<SpectrumLine const> line)
{
    if (!line)
        return;
    m_line = std::move(line);
    RefreshLayout();
    PaintPicture();
}

PaneMargins SpectrumPane::Margins() const
{
    int const text = fontMetrics().height();
    return { LabelMargin(), text + 2 * ReadOutGap, RightMargin, TicLength + LabelGap + text + 2 };
}

void SpectrumPane::Rebuild()
{
    BuildGrounds();
    PaintPicture();
}

void SpectrumPane::BuildGrounds()
{
    m_plain = QImage();
    if (!DeviceSize().isEmpty()) {
        m_plain = QImage(DeviceSize(), QImage::Format_RGB32);
        m_plain.fill(GetColors().frame);
        m_plain.setDevicePixelRatio(GetRatio());
        QPainter painter(&m_plain);
        painter.setFont(font());
        PaintGrid(painter);
        painter.end();
        m_plain.setDevicePixelRatio(1.0);
    }
    m_filled = m_plain;
    m_picture = m_plain;
    FillBelowTrace();
}

//! The painter's unit is the logical pixel; lines are placed in device pixels, so that they stay sharp.
void SpectrumPane::PaintGrid(QPainter & painter) const
{
    QRect const picture = GetPictureRect();
    painter.save();
    painter.scale(1.0 / GetRatio(), 1.0 / GetRatio());
    painter.fillRect(picture, GetColors().ground);
    painter.restore();
    if (picture.isEmpty())
        return;
    PaintLevelGrid(painter);
    PaintFrequencyGrid(painter);
}

void SpectrumPane::PaintLevelGrid(QPainter & painter) const
{
    QRect const picture = GetPictureRect();
    QFontMetrics const metrics = fontMetrics();
    int const extent = PaneLayout::ToDevice(metrics.height(), GetRatio());
    int const line = std::max(1, PaneLayout::ToDevice(1, GetRatio()));
    GridTics::Labels const labels{ -picture.top(),
                                   picture.height() + picture.top(),
                                   extent / 8,
                                   extent + extent / 8,
                                   [extent](QString const &) { return extent; },
                                   [](double level, double step) { return NumberTexts::Level(level, step); } };
    double const perRow = (GetLevelMax() - GetLevelMin()) / std::max(1, picture.height() - 1);
    GridTics::Axis const axis{ GetLevelMax(), GetLevelMax() - perRow * picture.height(), picture.height() };
    for (GridTics::Tic const & tic : GridTics::Lay(axis, labels)) {
        int const y = picture.top() + tic.pixel;
        int const ticLength = PaneLayout::ToDevice(TicLength, GetRatio());
        painter.save();
        painter.scale(1.0 / GetRatio(), 1.0 / GetRatio());
        painter.fillRect(picture.left(), y, picture.width(), line, GetColors().grid);
        painter.fillRect(picture.left() - ticLength, y, ticLength, line, GetColors().text);
        painter.restore();
        painter.setPen(GetColors().text);
        QString const text = tic.label.isEmpty() ? QString() : tic.label + QLatin1String(" dB");
        QRectF const box(0.0, (picture.top() + tic.labelStart) / GetRatio(),
                         picture.left() / GetRatio() - TicLength - LabelGap, extent / GetRatio());
        painter.drawText(box, Qt::AlignRight | Qt::AlignVCenter, text);
    }
}

void SpectrumPane::PaintFrequencyGrid(QPainter & painter) const
{
    QRect const picture = GetPictureRect();
    QFontMetrics const metrics = fontMetrics();
    double const ratio = GetRatio();
    FrequencyRange const range = GetFrequencyRange();
    double const stop = range.start + range.span;
    auto const unit = NumberTexts::UnitOf(std::max(std::abs(range.start), std::abs(stop)));
    QString const unitText = QLatin1String(unit.name);
    int const unitExtent = PaneLayout::ToDevice(metrics.horizontalAdvance(unitText) + LabelGap, ratio);
    int const line = std::max(1, PaneLayout::ToDevice(1, ratio));
    // the unit stands at the left end, below the level labels
    GridTics::Labels const labels{ unitExtent - picture.left() + PaneLayout::ToDevice(FrequencyLabelGap, ratio),
                                   picture.width() + PaneLayout::ToDevice(RightMargin, ratio) - 1,
                                   PaneLayout::ToDevice(FrequencyLabelGap, ratio),
                                   PaneLayout::ToDevice(FrequencySpacing, ratio),
                                   [&metrics, ratio](QString const & label) {
                                       return PaneLayout::ToDevice(metrics.horizontalAdvance(label) + 1, ratio);
                                   },
                                   [unit](double hertz, double step) {
                                       return NumberTexts::Frequency(hertz, step, unit);
                                   } };
    double const textTop = (picture.bottom() + 1) / ratio + TicLength + LabelGap;
    for (GridTics::Tic const & tic : GridTics::Lay({ range.start, stop, picture.width() }, labels)) {
        int const x = picture.left() + tic.pixel;
        painter.save();
        painter.scale(1.0 / ratio, 1.0 / ratio);
        painter.fillRect(x, picture.top(), line, picture.height(), GetColors().grid);
        painter.fillRect(x, picture.bottom() + 1, line, PaneLayout::ToDevice(TicLength, ratio), GetColors().text);
        painter.restore();
        painter.setPen(GetColors().text);
        QRectF const box((picture.left() + tic.labelStart) / ratio, textTop, tic.labelExtent / ratio, metrics.height());
        painter.drawText(box, Qt::AlignHCenter | Qt::AlignTop | Qt::TextDontClip, tic.label);
    }
    painter.setPen(GetColors().text);
    painter.drawText(QRectF(LabelGap, textTop, unitExtent / ratio, metrics.height()), Qt::AlignLeft | Qt::AlignTop,
                     unitText);
}

void SpectrumPane::FillBelowTrace()
{
    QRect const picture = GetPictureRect();
    for (int y = picture.top(); y < picture.top() + picture.height(); ++y) {
        QRgb * const line = reinterpret_cast<QRgb *>(m_filled.scanLine(y)) + picture.left();
        std::transform(line, line + picture.width(), line, [this](QRgb pixel) {
            return PaneLayout::Mix(QColor(pixel), GetColors().trace, FillPart).rgb();
        });
    }
}

void SpectrumPane::PaintPicture()
{
    if (m_picture.isNull() || GetPictureRect().isEmpty() || !m_line) {
        update();
        return;
    }
    m_map.Lay({ m_line->centre - m_line->span / 2.0, m_line->span }, m_line->levels.size(), GetFrequencyRange(),
              GetPictureRect().width());
    m_columns.resize(static_cast<std::size_t>(m_map.Columns()));
    m_map.Reduce(m_line->levels.data(), m_columns.data());
    FindPeak();
    PaintTrace();
    update();
}

void SpectrumPane::PaintTrace()
{
    QRect const picture = GetPictureRect();
    TraceRaster::RowsOf({ GetLevelMin(), GetLevelMax(), picture.height() }, m_columns, m_rows);
    int const stride = m_picture.width();
    std::ptrdiff_t const first = static_cast<std::ptrdiff_t>(picture.top()) * stride + picture.left();
    auto const pixels = [first](QImage const & image) {
        return reinterpret_cast<QRgb const *>(image.constBits()) + first;
    };
    TraceRaster::Canvas const canvas{ reinterpret_cast<QRgb *>(m_picture.bits()) + first, stride, picture.height() };
    TraceRaster::PaintGround(canvas, pixels(m_plain), pixels(m_filled), m_rows);
    TraceRaster::PaintLine(canvas, m_rows, PaneLayout::ToDevice(1, GetRatio()), GetColors().trace.rgb());
    m_picture.setDevicePixelRatio(GetRatio());
    QPainter painter(&m_picture);
    painter.setFont(font());
    PaintReadOut(painter);
    PaintPeak(painter);
    painter.end();
    m_picture.setDevicePixelRatio(1.0);
}

void SpectrumPane::FindPeak()
{
    auto const higher = [](double a, double b) { return std::isnan(a) || a < b; };
    auto const best = std::max_element(m_columns.begin(), m_columns.end(), higher);
    m_peakColumn = static_cast<int>(best - m_columns.begin());
    int const bin = m_map.BinOf(m_peakColumn, m_line->levels.data());
    if (bin < 0) {
        m_peakColumn = -1;
        m_peak = NoPeak();
    } else if (m_peakDue) {
        double const binWidth = m_line->span / static_cast<double>(m_line->levels.size());
        m_peak = { m_line->centre - m_line->span / 2.0 + bin * binWidth,
                   m_line->levels[static_cast<std::size_t>(bin)] };
        m_peakDue = false;
    }
}

QString SpectrumPane::PeakText() const
{
    double const binWidth = m_line->span / static_cast<double>(m_line->levels.size());
    return tr("Peak %1  %2 dBFS")
        .arg(NumberTexts::FrequencyWithUnit(m_peak.frequency, binWidth), NumberTexts::Level(m_peak.level, 0.1));
}

void SpectrumPane::PaintPeak(QPainter & painter) const
{
    if (m_peakColumn < 0 || std::isnan(m_peak.level))
        return;
    double const ratio = GetRatio();
    QRect const picture = GetPictureRect();
    QRectF const inner(picture.left() / ratio, picture.top() / ratio, picture.width() / ratio,
                       picture.height() / ratio);
    painter.setClipRect(inner);
    // the mark stands over the trace, its tip on it
    double const x = (picture.left() + m_peakColumn + 0.5) / ratio;
    double const y = (picture.top() + m_rows[static_cast<std::size_t>(m_peakColumn)]) / ratio - 1.0;
    QPolygonF const mark({ { x, y }, { x - PeakMark, y - 2 * PeakMark }, { x + PeakMark, y - 2 * PeakMark } });
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(GetColors().peak);
    painter.drawPolygon(mark);
}

//! The read-out stands in the margin above the picture, where it hides nothing.
void SpectrumPane::PaintReadOut(QPainter & painter) const
{
    double const ratio = GetRatio();
    QRect const picture = GetPictureRect();
    QRectF const strip(picture.left() / ratio, 0.0, picture.width() / ratio, picture.top() / ratio);
    painter.fillRect(strip, GetColors().frame);
    QString const text = std::isnan(m_peak.level) ? QString() : PeakText();
    if (fontMetrics().horizontalAdvance(text) > strip.width())
        return;
    painter.setPen(GetColors().text);
    painter.drawText(strip, Qt::AlignRight | Qt::AlignVCenter, text);
}

void SpectrumPane::paintEvent(QPaintEvent * event)
{
    Q_UNUSED(event)
    QElapsedTimer clock;
    clock.start();
    QPainter painter(this);
    painter.scale(1.0 / GetRatio(), 1.0 / GetRatio());
    DrawPixels(painter, QPoint(0, 0), m_picture);
    painter.end();
    if (Stats())
        Stats()->AddWork(clock.nsecsElapsed());
}

void SpectrumPane::timerEvent(QTimerEvent * event)
{
    if (event->timerId() == m_peakTimer.timerId())
        m_peakDue = true;
    else
        RangePane::timerEvent(event);
}
