// SPDX-License-Identifier: MIT
#include "waterfallpane.h"

#include "azimuthview.h"
#include "directionfinder.h"
#include "framestats.h"
#include "guibase.h"
#include "levelgradients.h"
#include "numbertexts.h"
#include "resultmarker.h"
#include "shadingbar.h"
#include "timeaxis.h"

#include <QElapsedTimer>
#include <QPainter>

#include <algorithm>
#include <utility>

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

QStringList WaterfallPane::FlagTexts(int index) const
{
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

void WaterfallPane::TellTimes()
{
    std::vector<double> times(static_cast<std::size_t>(m_image.Filled()));
    for (std::size_t row = 0; row < times.size(); ++row)
        times[row] = m_image.Stamp(static_cast<int>(row));
    m_pTimeAxis->SetRows(std::move(times));
    Q_EMIT signalTimes();
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
