// SPDX-License-Identifier: MIT
#include "waterfallpane.h"

#include "azimuthview.h"
#include "consolevalues.h"
#include "datetime.h"
#include "directionfinder.h"
#include "framestats.h"
#include "guibase.h"
#include "levelgradients.h"
#include "numbertexts.h"
#include "resultmarker.h"
#include "shadingbar.h"
#include "timeaxis.h"
#include "toint.h"

#include <QElapsedTimer>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace {

constexpr int FlagSpare = 16;  // px, around the text of a flag
constexpr double Second = 1e6; // us

} // namespace

WaterfallPane::WaterfallPane(QWidget * parent)
    : RangePane(parent)
    , m_pShadingBar(new ShadingBar(this))
    , m_pTimeAxis(new TimeAxis(this))
{
    SetLevelScale(m_pShadingBar);
    setObjectName(QStringLiteral("waterfallPane"));
    setAccessibleName(tr("Waterfall"));
    m_levelColors.SetColors(LevelGradients::CurrentSet());
    connect(&GuiBase::Instance(), &GuiBase::signalColorsChanged, this, &WaterfallPane::slotColorsChanged);
    GuiBase::Instance().GetTimeZone(); // stands in the tree from now on
    m_zone.Bind(QLatin1String(ConsolePaths::TimeZone));
}

WaterfallPane::~WaterfallPane() = default;

void WaterfallPane::AppendLines(std::vector<std::shared_ptr<SpectrumLine const>> const & lines)
{
    Refresh();
    for (auto const & line : lines) {
        if (line)
            AppendLine(*line);
    }
    TellTimes();
    UpdateRows();
}

//! Has the rows repainted, without the scales.
void WaterfallPane::UpdateRows() { update(LogicalPicture()); }

void WaterfallPane::AppendLine(SpectrumLine const & line)
{
    ++m_rowsAppended;
    m_map.Lay({ line.centre - line.span / 2.0, line.span }, line.levels.size(), m_imageRange, m_image.Columns());
    std::size_t const count = static_cast<std::size_t>(m_image.Columns());
    m_columns.resize(count);
    m_pixels.resize(count);
    m_map.Reduce(line.levels.data(), m_columns.data());
    m_rowsHaveGaps = m_rowsHaveGaps || m_map.HasGaps();
    m_levelColors.Color(m_columns.data(), m_pixels.data(), count, m_map.HasGaps());
    m_image.Append(m_columns.data(), m_pixels.data(), line.time);
}

void WaterfallPane::Clear()
{
    m_image.Clear(m_levelColors.GetGround());
    m_rowsHaveGaps = false;
    TellTimes();
    update();
}

void WaterfallPane::slotColorsChanged()
{
    m_levelColors.SetColors(LevelGradients::CurrentSet());
    AskForRebuild();
}

PaneMargins WaterfallPane::Margins() const { return { LabelMargin(), 0, SideMargin(), FrequencyMargin() }; }

void WaterfallPane::PlaceLevelScale(QRect const & picture)
{
    m_pShadingBar->setGeometry(picture.right() + 1, 0, width() - picture.right() - 1, picture.bottom() + 1);
    m_pShadingBar->SetPictureSpan(picture.top(), picture.height());
    m_pTimeAxis->setGeometry(0, 0, picture.left(), picture.bottom() + 1);
    m_pTimeAxis->SetPictureSpan(picture.top(), picture.height());
}

int WaterfallPane::RowOf(double time) const
{
    int const pixel = m_pTimeAxis->ValueToPixel(time);
    return pixel < 0 ? -1 : toInt(pixel * GetRatio());
}

double WaterfallPane::LevelAt(double row) const { return m_pTimeAxis->PixelToValue(toInt(row / GetRatio())); }

void WaterfallPane::GetCurrentStartStop(int direction, double & start, double & stop)
{
    RangePane::GetCurrentStartStop(direction, start, stop);
    if (direction != eMarkerY)
        return;
    start = m_pTimeAxis->Start();
    stop = m_pTimeAxis->Stop();
}

QString WaterfallPane::TimeFormat() const
{
    int const apart = m_image.Filled() - 1;
    bool const isFine = apart > 0 && m_image.Stamp(0) - m_image.Stamp(apart) < apart * Second;
    return isFine ? QStringLiteral("hh:mm:ss.zzz") : QStringLiteral("hh:mm:ss");
}

//! At the right, where signals are covered as briefly as anywhere.
QRect WaterfallPane::LevelFlagRoom() const
{
    QRect const picture = LogicalPicture();
    QString const widest = QStringLiteral("T1 ") + Orim::DateTime(0ULL).toString(TimeFormat());
    int const width = std::min(fontMetrics().horizontalAdvance(widest) + FlagSpare, std::max(0, picture.width()));
    return { picture.right() + 1 - width, picture.top(), width, picture.height() };
}

QStringList WaterfallPane::FlagTexts(int index) const
{
    if ((GetMarkerSpecial(index) & eSpecialY) != 0) {
        Orim::DateTime const time(toInt<unsigned long long>(GetMarkerValue(index)));
        return { GetMarker(index)->GetMarkerName() + QLatin1Char(' ') +
                 time.toString(TimeFormat(), GuiBase::Instance().GetTimeZoneValue()) };
    }
    QString const value = NumberTexts::FrequencyWithUnit(GetMarkerValue(index), HertzAPixel());
    return { GetMarker(index)->GetMarkerName() + QLatin1Char(' ') + value };
}

//! The newest rows lie where flags hang: only the selected result has one.
QStringList WaterfallPane::ResultTexts(ResultMarker const & marker, bool selected) const
{
    return selected ? QStringList{ AzimuthView::Current().Text(marker.GetValue(DirectionFinder::eBearing), 1) }
                    : QStringList();
}

void WaterfallPane::Rebuild()
{
    m_levelColors.SetRange(GetLevelMin(), GetLevelMax());
    m_levelColors.SetGround(GetColors().ground);
    QSize const size = GetPictureRect().size();
    if (size != QSize(m_image.Columns(), m_image.Rows()) || m_imageRange != GetFrequencyRange())
        LayRows();
    else
        m_image.Recolor(m_levelColors.GetGround(), Colorer());
    TellTimes();
    update();
}

//! Lays the kept rows over the present columns: a kept column stands for the frequency in its middle.
void WaterfallPane::LayRows()
{
    QSize const size = GetPictureRect().size();
    int const before = m_image.Columns();
    double const halfColumn = m_imageRange.span / std::max(1, before) / 2.0;
    LineColumns kept;
    kept.Lay({ m_imageRange.start + halfColumn, m_imageRange.span }, static_cast<std::size_t>(before),
             GetFrequencyRange(), size.width());
    m_rowsHaveGaps = m_rowsHaveGaps || kept.HasGaps();
    m_imageRange = GetFrequencyRange();
    m_image.Resize(
        size.width(), size.height(), [&kept](double const * from, double * to) { kept.Reduce(from, to); },
        m_levelColors.GetGround(), Colorer());
}

WaterfallImage::Colorer WaterfallPane::Colorer()
{
    return [this](double const * levels, QRgb * pixels, std::size_t count) {
        m_levelColors.Color(levels, pixels, count, m_rowsHaveGaps);
    };
}

bool WaterfallPane::IsTimeMarked() const
{
    std::vector<Marker *> const shown = GetShownMarkers();
    return std::any_of(shown.begin(), shown.end(),
                       [](Marker const * marker) { return (marker->GetSpecial() & eSpecialY) != 0; });
}

//! Behind another pane that has all the room nobody reads them.
void WaterfallPane::TellTimes()
{
    if (window()->isVisible() && !isVisible())
        return;
    std::vector<double> times(static_cast<std::size_t>(m_image.Filled()));
    for (std::size_t row = 0; row < times.size(); ++row)
        times[row] = m_image.Stamp(static_cast<int>(row));
    m_pTimeAxis->SetRows(std::move(times));
    if (IsTimeMarked())
        SetMustRecalcRulers(true); // the lines move with their rows
    Q_EMIT signalTimes();
}

void WaterfallPane::showEvent(QShowEvent * event)
{
    RangePane::showEvent(event);
    TellTimes();
}

void WaterfallPane::CountPainted(qint64 nanoseconds)
{
    if (Stats())
        Stats()->AddWork(nanoseconds);
    if (m_rowsPainted == m_rowsAppended)
        return;
    m_rowsPainted = m_rowsAppended;
    if (Stats())
        Stats()->EndFrame();
}

void WaterfallPane::paintEvent(QPaintEvent * event)
{
    Q_UNUSED(event)
    QElapsedTimer clock;
    clock.start();
    Refresh();
    QPainter painter(this);
    painter.save();
    painter.scale(1.0 / GetRatio(), 1.0 / GetRatio());
    QRect const picture = GetPictureRect();
    QSize const size = DeviceSize();
    int const right = picture.left() + picture.width();
    int const below = picture.top() + picture.height();
    painter.fillRect(right, 0, size.width() - right, size.height(), GetColors().frame);
    painter.fillRect(0, 0, picture.left(), size.height(), GetColors().frame);
    painter.fillRect(picture.left(), below, picture.width(), size.height() - below, GetColors().frame);
    m_image.Paint(painter, picture.topLeft());
    painter.restore();
    PaintOver(painter);
    painter.end();
    CountPainted(clock.nsecsElapsed());
}
