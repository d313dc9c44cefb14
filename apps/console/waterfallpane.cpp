// SPDX-License-Identifier: MIT
#include "waterfallpane.h"

#include "framestats.h"
#include "guibase.h"
#include "levelgradients.h"
#include "numbertexts.h"
#include "rowtics.h"
#include "shadingbar.h"

#include <QElapsedTimer>
#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace {

constexpr int TicLength = 4; // px, as all below
constexpr int LabelGap = 4;

} // namespace

WaterfallPane::WaterfallPane(QWidget * parent) : RangePane(parent), m_pShadingBar(new ShadingBar(this))
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
    PaintTimes();
    UpdateRows();
}

//! Has the rows and their times repainted, without the scales.
void WaterfallPane::UpdateRows()
{
    QRect const picture = LogicalPicture();
    update(0, 0, picture.right() + 1, picture.bottom() + 1);
}

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
    m_image.Append(m_columns.data(), m_pixels.data(), line.seconds);
}

void WaterfallPane::Clear()
{
    m_image.Clear(m_levelColors.GetGround());
    m_rowsHaveGaps = false;
    PaintTimes();
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
}

QStringList WaterfallPane::FlagTexts(int index) const
{
    QString const value = NumberTexts::FrequencyWithUnit(GetMarkerValue(index), HertzAPixel());
    return { GetMarker(index)->GetMarkerName() + QLatin1Char(' ') + value };
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
    PaintTimes();
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

void WaterfallPane::PaintTimes()
{
    QRect const picture = GetPictureRect();
    QSize const size(picture.left(), picture.height());
    if (size.isEmpty()) {
        m_times = QImage();
        return;
    }
    if (m_times.size() != size)
        m_times = QImage(size, QImage::Format_RGB32);
    m_times.fill(GetColors().frame);
    double const ratio = GetRatio();
    QFontMetrics const metrics = fontMetrics();
    int const extent = PaneLayout::ToDevice(metrics.height(), ratio);
    int const line = std::max(1, PaneLayout::ToDevice(1, ratio));
    std::vector<double> stamps(static_cast<std::size_t>(m_image.Filled()));
    for (std::size_t row = 0; row < stamps.size(); ++row)
        stamps[row] = m_image.Stamp(static_cast<int>(row));
    m_times.setDevicePixelRatio(ratio);
    QPainter painter(&m_times);
    painter.setFont(font());
    painter.setPen(GetColors().text);
    for (RowTics::Tic const & tic : RowTics::Lay(stamps, 2 * extent)) {
        int const y = picture.top() + tic.row;
        painter.fillRect(
            QRectF((size.width() - PaneLayout::ToDevice(TicLength, ratio)) / ratio, y / ratio, TicLength, line / ratio),
            GetColors().text);
        if (y < extent / 2 || y + extent / 2 >= size.height())
            continue;
        QRectF const box(0.0, (y - extent / 2) / ratio, size.width() / ratio - TicLength - LabelGap, extent / ratio);
        if (metrics.horizontalAdvance(tic.label) <= box.width()) // none is cut
            painter.drawText(box, Qt::AlignRight | Qt::AlignVCenter, tic.label);
    }
    painter.end();
    m_times.setDevicePixelRatio(1.0);
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
    painter.fillRect(0, below, right, size.height() - below, GetColors().frame);
    DrawPixels(painter, QPoint(0, 0), m_times);
    m_image.Paint(painter, picture.topLeft());
    painter.restore();
    PaintOver(painter);
    painter.end();
    CountPainted(clock.nsecsElapsed());
}
