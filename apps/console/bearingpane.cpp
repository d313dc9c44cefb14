// SPDX-License-Identifier: MIT
#include "bearingpane.h"

#include "bearingtexts.h"
#include "bearingvalues.h"
#include "colorset.h"
#include "consolebearings.h"
#include "consolevalues.h"
#include "framestats.h"
#include "frequencyaxis.h"
#include "guibase.h"
#include "guicentral.h"
#include "numbertexts.h"
#include "resultmarker.h"
#include "toint.h"
#include "vc.h"

#include <QElapsedTimer>
#include <QFontMetrics>
#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr int ReadOutGap = 2;       // px
constexpr double BandPart = 0.4;    // of the colour of a result in its band
constexpr double AcrossPart = 0.14; // of the same in the band of the selected one across the picture
constexpr double BestQuality = 100.0;
constexpr double LeastContrast = 3.0;
constexpr double MixStep = 0.15;
constexpr int MostMixes = 6;

double Light(int channel)
{
    double const part = channel / 255.0;
    return part * part; // near enough to the law of screens to tell colours apart
}

double Luminance(QColor const & color)
{
    return 0.2126 * Light(color.red()) + 0.7152 * Light(color.green()) + 0.0722 * Light(color.blue());
}

double Contrast(QColor const & a, QColor const & b)
{
    constexpr double Stray = 0.05; // light that no screen is without
    double const first = Luminance(a) + Stray;
    double const second = Luminance(b) + Stray;
    return std::max(first, second) / std::min(first, second);
}

QColor ResultColor(bool isSelected)
{
    return ColorSet::Instance()[isSelected ? IColorBase::eColorSelectedResult : IColorBase::eColorResult];
}

void Blend(QPainter & painter, QRect const & rect, QColor color, double part)
{
    color.setAlpha(toInt(std::round(part * 255.0)));
    painter.fillRect(rect, color);
}

} // namespace

bool BearingPane::Band::operator==(Band const & other) const
{
    return result == other.result && isSelected == other.isSelected && parts == other.parts && line == other.line;
}

BearingPane::BearingPane(Kind kind, QWidget * parent)
    : RangePane(parent)
    , m_pAxis(new BearingAxis(this, kind))
    , m_results([this] { TakeResults(); })
    , m_selection([this] { TakeResults(); })
    , m_view(AzimuthView::Current())
{
    SetLevelScale(m_pAxis);
    setObjectName(IsAzimuth() ? QStringLiteral("azimuthPane") : QStringLiteral("elevationPane"));
    setAccessibleName(IsAzimuth() ? tr("Azimuth") : tr("Elevation"));
    SetLevelRange(IsAzimuth() ? m_view.Start() : BearingValues::Horizon,
                  IsAzimuth() ? m_view.Stop() : BearingValues::Zenith);
    SetLevelMin_ValuePath(QLatin1String(IsAzimuth() ? ConsolePaths::AzimuthMin : ConsolePaths::ElevationMin));
    SetLevelMax_ValuePath(QLatin1String(IsAzimuth() ? ConsolePaths::AzimuthMax : ConsolePaths::ElevationMax));
    TakeDefaultRange();
    BuildTexts();
    connect(&GuiBase::Instance(), &GuiBase::signalColorsChanged, this, &BearingPane::AskForRebuild);
}

BearingPane::~BearingPane() = default;

void BearingPane::SetHistory(BearingHistory * history)
{
    m_pHistory = history;
    Follow();
    AskForRebuild();
}

void BearingPane::Hold(bool on)
{
    if (on == m_held.has_value())
        return;
    TakeView();
    if (on)
        m_held = CurrentPoints();
    else
        m_held.reset();
    HoldResults(on);
    Follow();
    AskForRebuild();
}

BearingPane::HeldPoints BearingPane::CurrentPoints() const
{
    HeldPoints current{ {}, m_pHistory ? m_pHistory->GetFirstNumber() : 0 };
    if (!m_pHistory)
        return current;
    for (BearingHistory::Entry const & entry : m_pHistory->GetEntries())
        current.points.push_back({ entry.measurement, ToStep(entry) });
    return current;
}

//! What came and went meanwhile is taken at once.
void BearingPane::Follow()
{
    disconnect(m_measured);
    bool const isFollowing = m_isShown && !m_held;
    m_results.Bind(isFollowing ? QLatin1String(ConsolePaths::Bearings) : QString());
    m_selection.Bind(isFollowing ? QLatin1String(ConsolePaths::SelectedBearing) : QString());
    if (!isFollowing || !m_pHistory)
        return;
    m_measured = connect(m_pHistory, &BearingHistory::signalChanged, this, &BearingPane::TakeHistory);
    TakeHistory();
}

void BearingPane::showEvent(QShowEvent * event)
{
    RangePane::showEvent(event);
    m_isShown = true;
    Follow();
}

void BearingPane::hideEvent(QHideEvent * event)
{
    RangePane::hideEvent(event);
    m_isShown = false;
    Follow();
}

//! What is held stays where the vehicle pointed to then. \return whether anything differs.
bool BearingPane::TakeView()
{
    AzimuthView const former = m_view;
    m_view = AzimuthView::Current();
    if (m_held)
        m_view.north = former.north;
    return m_view.key != former.key || m_view.north != former.north;
}

//! Another one forgets the ranges to go back to.
void BearingPane::TakeDefaultRange()
{
    double const start = IsAzimuth() ? m_view.Start() : -BearingValues::Zenith;
    double const stop = IsAzimuth() ? m_view.Stop() : BearingValues::Zenith;
    double formerStart = 0.0;
    double formerStop = 0.0;
    m_pAxis->GetDefaultRange(formerStart, formerStop);
    if (start != formerStart || stop != formerStop)
        m_pAxis->SetDefaultRange(start, stop);
}

//! The range of the circle follows by its values; without them it is set here.
void BearingPane::ShowAzimuthMode()
{
    RangePane::ShowAzimuthMode();
    if (!IsAzimuth())
        return;
    if (TakeView())
        BuildTexts();
    if (GetLevelMin() < m_view.Start() || GetLevelMax() > m_view.Stop())
        SetLevelRange(m_view.Start(), m_view.Stop());
    TakeDefaultRange();
    m_pAxis->RepairDrawing();
    AskForRebuild();
}

double BearingPane::Shown(double azimuth, double elevation) const
{
    return IsAzimuth() ? m_view.Shown(azimuth) : elevation;
}

QString BearingPane::AngleText(double azimuth, double elevation) const
{
    return IsAzimuth() ? m_view.Text(azimuth, 1) : BearingTexts::Elevation(elevation);
}

PaneMargins BearingPane::Margins() const
{
    return { LabelMargin(), fontMetrics().height() + 2 * ReadOutGap, SideMargin(), FrequencyMargin() };
}

void BearingPane::PlaceLevelScale(QRect const & picture)
{
    m_pAxis->setGeometry(0, 0, picture.left(), picture.bottom() + 1);
    m_pAxis->SetPictureSpan(picture.top(), picture.height());
}

int BearingPane::RowOf(double level) const { return m_rows.RowOf(level); }

double BearingPane::LevelAt(double row) const
{
    QRect const picture = GetPictureRect();
    double const part = (row - picture.top()) / std::max(1, picture.height());
    return MarkerHand::ButNoValue(GetLevelMax() - (GetLevelMax() - GetLevelMin()) * part);
}

QColor BearingPane::ColorOf(int quality) const
{
    return QColor(m_colors[static_cast<std::size_t>(std::clamp(quality, 0, static_cast<int>(m_colors.size()) - 1))]);
}

void BearingPane::MixColors()
{
    int quality = 0;
    for (QRgb & color : m_colors) {
        QColor mixed(GuiCentral::Instance().GetShadingRGB(quality, VC::eShadingQuality, 0.0, BestQuality, false));
        for (int i = 0; i < MostMixes && Contrast(mixed, GetColors().ground) < LeastContrast; ++i)
            mixed = PaneLayout::Mix(mixed, GetColors().text, MixStep);
        color = mixed.rgb();
        ++quality;
    }
}

void BearingPane::Rebuild()
{
    TakeView();
    QRect const picture = GetPictureRect();
    m_rows = BearingRows({ GetLevelMin(), GetLevelMax(), picture.top(), picture.bottom(), IsAzimuth() });
    MixColors();
    BuildGround();
    m_dirty.SetPicture(picture);
    HeldPoints const shown = m_held ? *m_held : CurrentPoints();
    m_sparkles.clear();
    m_first = shown.first;
    for (HeldPoints::Point const & point : shown.points)
        m_sparkles.push_back(SparkleOf(point.measurement, point.step));
    m_bands.clear();
    for (int result = 0; result < ResultCount(); ++result)
        m_bands.push_back(BandOf(result));
    BuildTexts();
    m_dirty.Add(picture);
    PaintDirty();
    update();
}

//! The grid continues the tics of the scales.
void BearingPane::BuildGround()
{
    m_plain = QImage();
    if (!DeviceSize().isEmpty()) {
        QRect const picture = GetPictureRect();
        m_plain = QImage(DeviceSize(), QImage::Format_RGB32);
        m_plain.fill(GetColors().frame);
        QPainter painter(&m_plain);
        painter.setClipRect(picture);
        painter.fillRect(picture, GetColors().ground);
        for (int const y : m_pAxis->GetGridPixels())
            painter.fillRect(picture.left(), picture.top() + y, picture.width(), m_pAxis->GetTicWidth(),
                             GetColors().grid);
        for (int const x : GetFrequencyAxis().GetGridPixels())
            painter.fillRect(picture.left() + x, picture.top(), GetFrequencyAxis().GetTicWidth(), picture.height(),
                             GetColors().grid);
    }
    m_picture = m_plain;
}

int BearingPane::ToStep(BearingHistory::Entry const & entry) const
{
    return std::clamp(toInt(m_pHistory->GetAge(entry) * AgeSteps), 0, AgeSteps - 1);
}

BearingPane::Sparkle BearingPane::SparkleOf(BearingMeasurement const & measurement, int step) const
{
    int const row = m_rows.RowOf(Shown(measurement.bearing, measurement.elevation));
    int const column = ColumnOf(measurement.frequency);
    QPoint const at = row < 0 || column < 0 || GetPictureRect().isEmpty() ? QPoint(-1, -1) : QPoint(column, row);
    return { at, toInt(std::round(std::clamp(measurement.quality, 0.0, BestQuality))), step };
}

BearingPane::Band BearingPane::BandOf(int index) const
{
    BearingResult const & result = *Result(index);
    Band band{ index, index == SelectedResult(), {}, {} };
    QRect const picture = GetPictureRect();
    int const middle = ColumnOf(result.GetValue(DirectionFinder::eFrequency));
    double const angle =
        Shown(result.GetValue(DirectionFinder::eBearing), result.GetValue(DirectionFinder::eElevation));
    if (middle < 0 || picture.isEmpty())
        return band;
    double const bandwidth = result.GetValue(DirectionFinder::eBandwidth) / 2.0 / HertzAPixel();
    int const reach = std::max(PaneLayout::ToDevice(LeastReach, GetRatio()),
                               toInt(std::clamp(bandwidth, 0.0, static_cast<double>(picture.width()))));
    double const error = DirectionFinder::Uncertainty(result.GetValue(DirectionFinder::eQuality));
    double const least = PaneLayout::ToDevice(LeastBand, GetRatio()) / 2.0 * m_rows.DegreesARow();
    for (BearingRows::Part const & part : m_rows.PartsOf(angle, std::max(least, IsAzimuth() ? error : error / 2.0))) {
        QRect const whole(QPoint(middle - reach, part.top), QPoint(middle + reach, part.bottom));
        band.parts.push_back(whole.intersected(picture));
    }
    int const row = m_rows.RowOf(angle);
    int const width = std::max(1, PaneLayout::ToDevice(1, GetRatio()));
    if (row >= 0)
        band.line = QRect(middle - reach, row, 2 * reach + 1, width).intersected(picture);
    return band;
}

QRect BearingPane::PointRect(QPoint at) const
{
    int const size = std::max(1, PaneLayout::ToDevice(PointSize, GetRatio()));
    return { at.x() - size / 2, at.y() - size / 2, size, size };
}

void BearingPane::MarkSparkle(Sparkle const & sparkle)
{
    if (sparkle.at.x() >= 0)
        m_dirty.Add(PointRect(sparkle.at));
}

void BearingPane::MarkBand(Band const & band)
{
    QRect const picture = GetPictureRect();
    for (QRect const & part : band.parts)
        m_dirty.Add(band.isSelected ? QRect(picture.left(), part.top(), picture.width(), part.height()) : part);
    m_dirty.Add(band.line);
}

//! What went, what looks older, and what came.
void BearingPane::TakeHistory()
{
    if (!m_pHistory)
        return;
    TakeView();
    std::deque<BearingHistory::Entry> const & entries = m_pHistory->GetEntries();
    for (; !m_sparkles.empty() && m_first < m_pHistory->GetFirstNumber(); ++m_first) {
        MarkSparkle(m_sparkles.front());
        m_sparkles.pop_front();
    }
    m_first = m_pHistory->GetFirstNumber();
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (i >= m_sparkles.size()) {
            m_sparkles.push_back(SparkleOf(entries[i].measurement, ToStep(entries[i])));
        } else {
            int const step = ToStep(entries[i]);
            if (step == m_sparkles[i].step)
                continue;
            m_sparkles[i].step = step;
        }
        MarkSparkle(m_sparkles[i]);
    }
    PaintDirty();
}

void BearingPane::TakeResults()
{
    TakeView();
    std::vector<Band> bands;
    bands.reserve(ConsoleBearings::Most);
    for (int result = 0; result < ResultCount(); ++result)
        bands.push_back(BandOf(result));
    for (Band const & band : m_bands) {
        if (std::find(bands.begin(), bands.end(), band) == bands.end())
            MarkBand(band);
    }
    for (Band const & band : bands) {
        if (std::find(m_bands.begin(), m_bands.end(), band) == m_bands.end())
            MarkBand(band);
    }
    m_bands = std::move(bands);
    PaintDirty();
    BuildTexts();
}

void BearingPane::PaintDirty()
{
    std::vector<QRect> const strips = m_dirty.Take();
    if (m_picture.isNull() || strips.empty())
        return;
    QPainter painter(&m_picture);
    for (QRect const & strip : strips) {
        PaintPart(painter, strip);
        m_paintedPixels += static_cast<quint64>(strip.width()) * static_cast<quint64>(strip.height());
        update(QRectF(strip.left() / GetRatio(), strip.top() / GetRatio(), strip.width() / GetRatio(),
                      strip.height() / GetRatio())
                   .toAlignedRect());
    }
}

//! Bands lie below the points, their middles over them.
void BearingPane::PaintPart(QPainter & painter, QRect const & rect) const
{
    painter.setClipRect(rect);
    painter.drawImage(rect.topLeft(), m_plain, rect);
    QRect const picture = GetPictureRect();
    for (Band const & band : m_bands) {
        QColor const color = ResultColor(band.isSelected);
        for (QRect const & part : band.parts) {
            if (band.isSelected)
                Blend(painter, QRect(picture.left(), part.top(), picture.width(), part.height()), color, AcrossPart);
            Blend(painter, part, color, BandPart);
        }
    }
    for (Sparkle const & sparkle : m_sparkles) {
        QRect const point = PointRect(sparkle.at);
        if (sparkle.at.x() >= 0 && point.intersects(rect))
            Blend(painter, point, ColorOf(sparkle.quality), 1.0 - static_cast<double>(sparkle.step) / AgeSteps);
    }
    for (Band const & band : m_bands) {
        if (!band.line.isNull())
            painter.fillRect(band.line, ResultColor(band.isSelected));
    }
}

int BearingPane::ResultAt(QPoint at) const
{
    double const ratio = GetRatio();
    QRectF const pixel(at.x() * ratio, at.y() * ratio, ratio, ratio);
    for (auto band = m_bands.rbegin(); band != m_bands.rend(); ++band) {
        for (QRect const & part : band->parts) {
            if (QRectF(part).intersects(pixel))
                return band->result;
        }
    }
    return -1;
}

//! The angle of the nearest result whose band the marker crosses.
QStringList BearingPane::FlagTexts(int index) const
{
    double const frequency = GetMarkerValue(index);
    QString const text =
        GetMarker(index)->GetMarkerName() + QLatin1Char(' ') + NumberTexts::FrequencyWithUnit(frequency, HertzAPixel());
    BearingResult const * nearest = nullptr;
    double distance = 0.0; // Hz
    for (int i = 0; i < ResultCount(); ++i) {
        BearingResult const * const result = Result(i);
        double const apart = std::abs(result->GetValue(DirectionFinder::eFrequency) - frequency);
        double const reach = std::max(result->GetValue(DirectionFinder::eBandwidth) / 2.0,
                                      PaneLayout::ToDevice(LeastReach, GetRatio()) * HertzAPixel());
        if (apart <= reach && (!nearest || apart < distance)) {
            nearest = result;
            distance = apart;
        }
    }
    if (!nearest)
        return { text };
    return { text + QLatin1String("  ") +
             AngleText(nearest->GetValue(DirectionFinder::eBearing), nearest->GetValue(DirectionFinder::eElevation)) };
}

//! Bands and points lie where flags hang: only the selected result has one.
QStringList BearingPane::ResultTexts(ResultMarker const & marker, bool selected) const
{
    if (!selected)
        return {};
    return { AngleText(marker.GetValue(DirectionFinder::eBearing), marker.GetValue(DirectionFinder::eElevation)),
             BearingTexts::Quality(marker.GetValue(DirectionFinder::eQuality)) };
}

QString BearingPane::ReadOutOf(int index) const
{
    BearingResult const * const result = Result(index);
    if (!result)
        return {};
    double const quality = result->GetValue(DirectionFinder::eQuality);
    double const error = DirectionFinder::Uncertainty(quality) / (IsAzimuth() ? 1.0 : 2.0);
    return QStringLiteral("%1  %2 \u00b1%3%4  %5")
        .arg(result->GetText(),
             AngleText(result->GetValue(DirectionFinder::eBearing), result->GetValue(DirectionFinder::eElevation)),
             QString::number(error, 'f', 1), QString(QChar(0xb0)), BearingTexts::Quality(quality));
}

//! Painting alone looks nothing up and measures no text.
void BearingPane::BuildTexts()
{
    m_readOut = ReadOutOf(SelectedResult());
    m_modeText = !IsAzimuth() ? QString() : m_view.Name();
    if (IsAzimuth() && m_view.IsRelative())
        m_modeText = tr("%1  heading %2").arg(m_modeText, BearingTexts::Bearing(m_view.north, 0));
    m_readOutWidth = fontMetrics().horizontalAdvance(m_readOut);
    m_textsWidth = fontMetrics().horizontalAdvance(m_readOut + QStringLiteral("    ") + m_modeText);
    QRect const picture = LogicalPicture();
    update(picture.left(), 0, picture.width(), picture.top());
}

//! They stand in the margin above the picture, the mode where it has room.
void BearingPane::PaintTexts(QPainter & painter) const
{
    QRect const picture = LogicalPicture();
    QRect const strip(picture.left(), 0, picture.width(), picture.top());
    painter.setPen(ColorSet::Instance()[IColorBase::eColorReadOut]);
    if (m_readOutWidth <= strip.width())
        painter.drawText(strip, Qt::AlignLeft | Qt::AlignVCenter, m_readOut);
    painter.setPen(GetColors().text);
    if (m_textsWidth <= strip.width())
        painter.drawText(strip, Qt::AlignRight | Qt::AlignVCenter, m_modeText);
}

void BearingPane::paintEvent(QPaintEvent * event)
{
    QElapsedTimer clock;
    clock.start();
    Refresh();
    QPainter painter(this);
    painter.setClipRegion(event->region());
    painter.save();
    painter.scale(1.0 / GetRatio(), 1.0 / GetRatio());
    DrawPixels(painter, QPoint(0, 0), m_picture);
    painter.restore();
    PaintOver(painter);
    PaintTexts(painter);
    painter.end();
    if (Stats())
        Stats()->AddWork(clock.nsecsElapsed());
}
