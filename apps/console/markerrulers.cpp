// SPDX-License-Identifier: MIT
#include "markerrulers.h"

#include "flaglayout.h"
#include "markerlist.h"
#include "panelayout.h"
#include "toint.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPen>

#include <algorithm>
#include <cmath>

namespace {

constexpr int FlagGap = 2; // px, as all below
constexpr int FlagSide = 4;
constexpr int FlagTop = 1;
constexpr int StubLength = 16;   // of a result without a flag
constexpr int CasingAlpha = 150; // of 255

QSize FlagSize(QStringList const & texts, QFontMetrics const & metrics)
{
    int width = 0;
    for (QString const & text : texts)
        width = std::max(width, metrics.horizontalAdvance(text));
    if (width == 0)
        return {};
    return { width + 2 * FlagSide + 1,
             (static_cast<int>(texts.size()) - 1) * metrics.lineSpacing() + metrics.height() + 2 * FlagTop + 1 };
}

int ToLogical(int devicePixel, double ratio) { return toInt(std::floor(devicePixel / ratio)); }

} // namespace

void MarkerRulers::Lay(MarkerList & list, Frame const & frame, QFontMetrics const & metrics, Source const & source)
{
    m_frame = frame;
    m_rulers.clear();
    for (int const index : list.GetShownIndices()) {
        Marker * const marker = list.GetMarker(index);
        if (!marker)
            continue;
        bool const level = (marker->GetSpecial() & eSpecialY) != 0;
        int const line = source.line(level, marker->GetValue());
        marker->SetPixel(line < 0 ? -1 : ToLogical(line, frame.ratio));
        marker->SetRect(QRect());
        marker->SetRulerRect(QRect());
        if (line < 0)
            continue;
        Kind const kind = source.kind ? source.kind(index) : Kind::eMarker;
        bool const strong =
            kind == Kind::eMarker ? marker->GetCurrentMarker() || marker->IsMoving() : kind == Kind::eSelectedResult;
        m_rulers.push_back({ index, level, line, QRect(), source.texts(index), marker->GetQColor(),
                             marker->GetTextPen()->color(), strong, kind == Kind::eResult ? StubLength : 0 });
    }
    // the current one is placed first, and painted last
    std::stable_partition(m_rulers.begin(), m_rulers.end(), [](Ruler const & ruler) { return ruler.strong; });
    PlaceFlags(metrics);
    GrowStubs();
    for (Ruler const & ruler : m_rulers) {
        Marker * const marker = list.GetMarker(ruler.index);
        marker->SetRulerRect(LineRect(ruler));
        if (!ruler.flag.isNull())
            marker->SetRect(ruler.flag);
    }
    std::reverse(m_rulers.begin(), m_rulers.end());
}

void MarkerRulers::PlaceFlags(QFontMetrics const & metrics)
{
    for (bool const level : { false, true }) {
        std::vector<FlagLayout::Flag> flags;
        std::vector<Ruler *> owners;
        for (Ruler & ruler : m_rulers) {
            if (ruler.level != level)
                continue;
            flags.push_back({ ToLogical(ruler.line, m_frame.ratio), FlagSize(ruler.texts, metrics) });
            owners.push_back(&ruler);
        }
        std::vector<QRect> const places = level ? FlagLayout::LayOnLevels(flags, m_frame.levelFlags, FlagGap)
                                                : FlagLayout::LayOnUprights(flags, m_frame.uprightFlags, FlagGap);
        for (std::size_t i = 0; i < places.size(); ++i)
            owners[i]->flag = places[i];
    }
}

//! A short line reaches down to its flag.
void MarkerRulers::GrowStubs()
{
    int const top = ToLogical(m_frame.picture.top(), m_frame.ratio);
    for (Ruler & ruler : m_rulers) {
        if (ruler.stub > 0 && !ruler.flag.isNull())
            ruler.stub = ruler.flag.bottom() + 1 - top;
    }
}

//! The line in logical pixels.
QRect MarkerRulers::LineRect(Ruler const & ruler) const
{
    QRect const & picture = m_frame.picture;
    int const left = ToLogical(picture.left(), m_frame.ratio);
    int const top = ToLogical(picture.top(), m_frame.ratio);
    int const right = ToLogical(picture.right(), m_frame.ratio);
    int const below = ToLogical(picture.bottom(), m_frame.ratio);
    int const bottom = ruler.stub > 0 ? std::min(below, top + ruler.stub - 1) : below;
    int const line = ToLogical(ruler.line, m_frame.ratio);
    return ruler.level ? QRect(QPoint(left, line), QPoint(right, line))
                       : QRect(QPoint(line, top), QPoint(line, bottom));
}

void MarkerRulers::Paint(QPainter & painter, QColor const & ground, QColor const & text) const
{
    for (Ruler const & ruler : m_rulers)
        PaintLine(painter, ruler);
    for (Ruler const & ruler : m_rulers)
        PaintFlag(painter, ruler, ground, text);
}

//! The casing at both sides keeps the line apart from every colour that it crosses.
void MarkerRulers::PaintLine(QPainter & painter, Ruler const & ruler) const
{
    QRect const & picture = m_frame.picture;
    int const width = std::max(1, PaneLayout::ToDevice(1, m_frame.ratio));
    int const height = ruler.stub > 0 ? PaneLayout::ToDevice(ruler.stub, m_frame.ratio) : picture.height();
    QRect const line = ruler.level ? QRect(picture.left(), ruler.line, picture.width(), width)
                                   : QRect(ruler.line, picture.top(), width, height);
    QRect const casing = ruler.level ? line.adjusted(0, -width, 0, width) : line.adjusted(-width, 0, width, 0);
    QColor around = ruler.ink;
    around.setAlpha(CasingAlpha);
    painter.save();
    painter.scale(1.0 / m_frame.ratio, 1.0 / m_frame.ratio);
    painter.fillRect(casing.intersected(picture), around);
    painter.fillRect(line.intersected(picture), ruler.color);
    painter.restore();
}

void MarkerRulers::PaintFlag(QPainter & painter, Ruler const & ruler, QColor const & ground, QColor const & text) const
{
    if (ruler.flag.isNull())
        return;
    painter.fillRect(ruler.flag, ruler.color);
    if (!ruler.strong)
        painter.fillRect(ruler.flag.adjusted(1, 1, -1, -1), ground);
    painter.setPen(ruler.strong ? ruler.ink : text);
    painter.drawText(ruler.flag.adjusted(FlagSide, FlagTop, -FlagSide, -FlagTop), Qt::AlignLeft | Qt::AlignVCenter,
                     ruler.texts.join(QLatin1Char('\n')));
}
