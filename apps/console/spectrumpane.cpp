// SPDX-License-Identifier: MIT
#include "spectrumpane.h"

#include "azimuthview.h"
#include "bearingtexts.h"
#include "consolebearings.h"
#include "framestats.h"
#include "frequencyaxis.h"
#include "levelaxis.h"
#include "numbertexts.h"
#include "resultmarker.h"
#include "signalextent.h"
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
constexpr int ReadOutGap = 2;   // px, as all below
constexpr int FlagGap = 3;
constexpr int PeakMark = 4;       // half the width of the mark over the peak
constexpr double FillPart = 0.28; // of the trace colour in the ground below it
constexpr int LeastMark = 12;     // px, of a window around a signal
constexpr int ReadOutSpace = 16;  // px, between two read-outs
constexpr double LevelStep = 0.1; // dB, of what is read out

SpectrumPane::Peak NoPeak()
{
    return { std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::quiet_NaN() };
}

QString LevelText(double level) { return NumberTexts::Level(level, LevelStep) + QLatin1String(" dBFS"); }

} // namespace

SpectrumPane::SpectrumPane(QWidget * parent) : RangePane(parent), m_pLevelAxis(new LevelAxis(this)), m_peak(NoPeak())
{
    SetLevelScale(m_pLevelAxis);
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
    if (window()->isVisible() && !isVisible()) { // behind another pane: whoever looks at it has it painted
        AskForRebuild();
        return;
    }
    Refresh();
    PaintPicture();
}

PaneMargins SpectrumPane::Margins() const
{
    return { LabelMargin(), fontMetrics().height() + 2 * ReadOutGap, SideMargin(), FrequencyMargin() };
}

void SpectrumPane::PlaceLevelScale(QRect const & picture)
{
    m_pLevelAxis->setGeometry(0, 0, picture.left(), picture.bottom() + 1);
    m_pLevelAxis->SetPictureSpan(picture.top(), picture.height());
}

int SpectrumPane::RowOf(double level) const { return m_rowMap.ToPixel(level); }

double SpectrumPane::LevelAt(double row) const
{
    QRect const picture = GetPictureRect();
    double const part = (row - picture.top()) / std::max(1, picture.height());
    return MarkerHand::ButNoValue(GetLevelMax() - (GetLevelMax() - GetLevelMin()) * part);
}

QRect SpectrumPane::LevelFlagRoom() const
{
    QRect const picture = LogicalPicture();
    return { picture.right() + 1 + FlagGap, picture.top(), SideMargin() - 2 * FlagGap, picture.height() };
}

void SpectrumPane::Rebuild()
{
    QRect const picture = GetPictureRect();
    PixelMap::Layout layout;
    layout.start = GetLevelMin();
    layout.stop = GetLevelMax();
    layout.direction = PixelMap::eVertical;
    layout.first = picture.top();
    layout.last = picture.bottom();
    m_rowMap = PixelMap(layout);
    BuildGrounds();
    m_peakDue = true; // the columns are others now
    PaintPicture();
}

void SpectrumPane::BuildGrounds()
{
    m_plain = QImage();
    if (!DeviceSize().isEmpty()) {
        m_plain = QImage(DeviceSize(), QImage::Format_RGB32);
        m_plain.fill(GetColors().frame);
        PaintGrid();
    }
    m_filled = m_plain;
    m_picture = m_plain;
    FillBelowTrace();
}

//! The grid continues the tics of the scales.
void SpectrumPane::PaintGrid()
{
    QRect const picture = GetPictureRect();
    QPainter painter(&m_plain);
    painter.setClipRect(picture);
    painter.fillRect(picture, GetColors().ground);
    for (int const y : m_pLevelAxis->GetGridPixels())
        painter.fillRect(picture.left(), picture.top() + y, picture.width(), m_pLevelAxis->GetTicWidth(),
                         GetColors().grid);
    for (int const x : GetFrequencyAxis().GetGridPixels())
        painter.fillRect(picture.left() + x, picture.top(), GetFrequencyAxis().GetTicWidth(), picture.height(),
                         GetColors().grid);
}

void SpectrumPane::FillBelowTrace()
{
    QRect const picture = GetPictureRect();
    if (m_filled.isNull() || picture.isEmpty())
        return;
    for (int y = picture.top(); y < picture.top() + picture.height(); ++y) {
        QRgb * const line = reinterpret_cast<QRgb *>(m_filled.scanLine(y)) + picture.left();
        std::transform(line, line + picture.width(), line, [this](QRgb pixel) {
            return PaneLayout::Mix(QColor(pixel), GetColors().trace, FillPart).rgb();
        });
    }
}

void SpectrumPane::PaintPicture()
{
    QRect const picture = LogicalPicture();
    update(picture.left(), 0, width() - picture.left(), picture.bottom() + 1);
    if (m_picture.isNull() || GetPictureRect().isEmpty() || !m_line) {
        m_levels.clear(); // they belong to an older line
        m_readLevels.clear();
        m_peakColumn = -1;
        return;
    }
    m_map.Lay({ m_line->centre - m_line->span / 2.0, m_line->span }, m_line->levels.size(), GetFrequencyRange(),
              GetPictureRect().width());
    m_levels.resize(static_cast<std::size_t>(m_map.Columns()));
    m_map.Reduce(m_line->levels.data(), m_levels.data());
    FindPeak();
    PaintTrace();
}

void SpectrumPane::PaintTrace()
{
    QRect const picture = GetPictureRect();
    TraceRaster::RowsOf({ GetLevelMin(), GetLevelMax(), picture.height() }, m_levels, m_rows);
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

int SpectrumPane::BinAt(int column) const { return m_map.BinOf(column, m_line->levels.data()); }

SpectrumPane::Peak SpectrumPane::PeakAt(int bin) const
{
    double const binWidth = m_line->span / static_cast<double>(m_line->levels.size());
    return { m_line->centre - m_line->span / 2.0 + bin * binWidth, m_line->levels[static_cast<std::size_t>(bin)] };
}

void SpectrumPane::FindPeak()
{
    auto const higher = [](double a, double b) { return std::isnan(a) || a < b; };
    auto const best = std::max_element(m_levels.begin(), m_levels.end(), higher);
    m_peakColumn = static_cast<int>(best - m_levels.begin());
    int const bin = BinAt(m_peakColumn);
    if (bin < 0) {
        m_peakColumn = -1;
        m_peak = NoPeak();
        if (!m_readLevels.empty())
            SetMustRecalcRulers(true);
        m_readLevels.clear();
    } else if (m_peakDue) {
        m_peak = PeakAt(bin);
        m_peakDue = false;
        m_readLevels = m_levels;
        SetMustRecalcRulers(true);
    }
}

SpectrumPane::Peak SpectrumPane::FindPeakBeside(double frequency, double distance) const
{
    Peak best = NoPeak();
    for (int column = 0; m_line && column < static_cast<int>(m_levels.size()); ++column) {
        int const bin = BinAt(column);
        if (bin < 0)
            continue;
        Peak const peak = PeakAt(bin);
        bool const beside = std::abs(peak.frequency - frequency) >= distance;
        if (beside && (std::isnan(best.level) || peak.level > best.level))
            best = peak;
    }
    return best;
}

FrequencyRange SpectrumPane::FindSignalBeside(std::vector<FrequencyRange> const & ranges) const
{
    FrequencyRange const view = GetFrequencyRange();
    double const step = view.span / static_cast<double>(std::max<std::size_t>(1, m_levels.size()));
    std::vector<bool> taken(m_levels.size());
    for (std::size_t column = 0; column < taken.size(); ++column) {
        double const left = view.start + step * static_cast<double>(column);
        taken[column] = std::any_of(ranges.begin(), ranges.end(), [left, step](FrequencyRange const & range) {
            return left <= range.start + range.span && left + step >= range.start;
        });
    }
    SignalExtent const signal = FindSignal(m_levels, taken, PaneLayout::ToDevice(LeastMark, GetRatio()));
    return { view.start + step * signal.first, step * (signal.last + 1 - signal.first) };
}

double SpectrumPane::ReadLevelAt(double frequency) const
{
    int const column = ColumnOf(frequency) - GetPictureRect().left();
    bool const exists = column >= 0 && column < static_cast<int>(m_readLevels.size());
    return exists ? m_readLevels[static_cast<std::size_t>(column)] : NoPeak().level;
}

QStringList SpectrumPane::FlagTexts(int index) const
{
    Marker const * const marker = GetMarker(index);
    double const value = GetMarkerValue(index);
    if ((marker->GetSpecial() & eSpecialY) != 0)
        return { marker->GetMarkerName(), LevelText(value) };
    QString text = marker->GetMarkerName() + QLatin1Char(' ') + NumberTexts::FrequencyWithUnit(value, HertzAPixel());
    double const level = ReadLevelAt(value);
    if (!std::isnan(level))
        text += QLatin1String("  ") + LevelText(level);
    QString const delta = DeltaText(index);
    return delta.isEmpty() ? QStringList{ text } : QStringList{ text, delta };
}

//! How far a marker stands from the one that it is compared with; empty while that is not shown.
QString SpectrumPane::DeltaText(int index) const
{
    Marker * const other = GetGapMarker(index);
    if (!other || !other->GetShowMarker())
        return {};
    double const apart = GetMarkerValue(index) - other->GetValue();
    QString text =
        QStringLiteral("\u0394 %1%2")
            .arg(apart < 0.0 ? QString() : QStringLiteral("+"), NumberTexts::FrequencyWithUnit(apart, HertzAPixel()));
    double const rise = ReadLevelAt(GetMarkerValue(index)) - ReadLevelAt(other->GetValue());
    if (!std::isnan(rise))
        text += QStringLiteral("  %1%2 dB")
                    .arg(rise < 0.0 ? QString() : QStringLiteral("+"), NumberTexts::Level(rise, LevelStep));
    return text;
}

QStringList SpectrumPane::ResultTexts(ResultMarker const & marker, bool selected) const
{
    double const bearing = marker.GetValue(DirectionFinder::eBearing);
    if (!selected)
        return { AzimuthView::Current().Text(bearing, 0) };
    return { AzimuthView::Current().Text(bearing, 1),
             NumberTexts::FrequencyWithUnit(marker.GetValue(DirectionFinder::eFrequency), HertzAPixel()) };
}

QString SpectrumPane::BearingReadOut() const
{
    BearingResult const * const result = ConsoleBearings::At(ConsoleBearings::Selected());
    if (!result)
        return {};
    QString const bearing = AzimuthView::Current().Text(result->GetValue(DirectionFinder::eBearing), 1);
    QString const elevation = BearingTexts::Elevation(result->GetValue(DirectionFinder::eElevation));
    QString const quality = BearingTexts::Quality(result->GetValue(DirectionFinder::eQuality));
    int const peak = std::isnan(m_peak.level) ? 0 : fontMetrics().horizontalAdvance(PeakText()) + ReadOutSpace;
    int const room = LogicalPicture().width() - peak;
    for (QString const & text :
         { tr("%1  bearing %2  elevation %3  quality %4").arg(result->GetText(), bearing, elevation, quality),
           tr("%1  el %2  q %3").arg(bearing, elevation, quality), bearing }) {
        if (fontMetrics().horizontalAdvance(text) <= room)
            return text;
    }
    return {};
}

QString SpectrumPane::PeakText() const
{
    double const binWidth = m_line->span / static_cast<double>(m_line->levels.size());
    return tr("Peak %1  %2").arg(NumberTexts::FrequencyWithUnit(m_peak.frequency, binWidth), LevelText(m_peak.level));
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

//! Stands at the left of the same strip.
void SpectrumPane::PaintBearing(QPainter & painter) const
{
    QString const text = BearingReadOut();
    QRect const picture = LogicalPicture();
    painter.setPen(ColorSet::Instance()[IColorBase::eColorReadOut]);
    painter.drawText(QRect(picture.left(), 0, picture.width(), picture.top()), Qt::AlignLeft | Qt::AlignVCenter, text);
}

void SpectrumPane::paintEvent(QPaintEvent * event)
{
    Q_UNUSED(event)
    QElapsedTimer clock;
    clock.start();
    Refresh();
    QPainter painter(this);
    painter.save();
    painter.scale(1.0 / GetRatio(), 1.0 / GetRatio());
    DrawPixels(painter, QPoint(0, 0), m_picture);
    painter.restore();
    PaintOver(painter);
    PaintBearing(painter);
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
