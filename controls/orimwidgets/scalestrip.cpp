// SPDX-License-Identifier: MIT
#include "scalestrip.h"

#include "samevalue.h"
#include "scanlines.h"
#include "toint.h"
#include "vectorstate.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTransform>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double LargestRatio = 16.0;
constexpr int LongestGiven = 1 << 24;     // px
constexpr int WidestWord = 1 << 14;       // device px
constexpr double LargestLength = 1 << 28; // device px
constexpr double Nudge =
    0x1p-10;                  // device px; keeps a whole one whole when it is divided by the ratio and multiplied again
constexpr int WordMargin = 1; // device px; ink reaches beyond the advances

//! Rounded, for any double; 0 for NaN.
int Rounded(double value)
{
    return std::isnan(value) ? 0 : toInt(std::round(std::clamp(value, -LargestLength, LargestLength)));
}

//! Whether two rising lists, seen from their own bases, hold the same pixels.
bool AreSame(std::vector<int> const & a, int baseOfA, std::vector<int> const & b, int baseOfB)
{
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(),
                                              [shift = baseOfA - baseOfB](int x, int y) { return x + shift == y; });
}

} // namespace

bool ScaleStrip::Look::operator==(Look const & other) const
{
    return orientation == other.orientation && lineSide == other.lineSide && font == other.font &&
           background == other.background && line == other.line && text == other.text && ticLength == other.ticLength &&
           minorTicLength == other.minorTicLength && textDistance == other.textDistance && labelGap == other.labelGap &&
           minorDistance == other.minorDistance && characters == other.characters;
}

void ScaleStrip::SetLook(Look const & look)
{
    if (look == m_look)
        return;
    m_look = look;
    m_lookTaken = false;
    ++m_revision;
    SetView(m_rect, m_ratio); // its length may be its height now
}

void ScaleStrip::SetLabelText(LabelText text)
{
    m_labelText = std::move(text);
    InvalidateLabels();
}

void ScaleStrip::InvalidateLabels()
{
    m_textsValid = false;
    ++m_revision;
}

void ScaleStrip::SetUnit(QString const & unit)
{
    if (unit == m_unit)
        return;
    m_unit = unit;
    m_lookTaken = false;
    ++m_revision;
}

void ScaleStrip::SetTics(ScaleTics const & tics)
{
    if (tics == m_tics)
        return;
    m_tics = tics;
    ++m_revision;
}

void ScaleStrip::SetOrigin(int origin)
{
    if (origin == m_origin)
        return;
    m_origin = origin;
    ++m_revision;
}

void ScaleStrip::SetView(QRect const & rect, double devicePixelRatio)
{
    m_rect = rect;
    double const ratio = std::isnan(devicePixelRatio) ? 1.0 : std::clamp(devicePixelRatio, 1.0, LargestRatio);
    int const width = Rounded((rect.left() + std::max(0.0, 1.0 * rect.width())) * ratio) - Rounded(rect.left() * ratio);
    int const height = Rounded((rect.top() + std::max(0.0, 1.0 * rect.height())) * ratio) - Rounded(rect.top() * ratio);
    int const length = IsVertical() ? height : width;
    int const thickness = IsVertical() ? width : height;
    if (ratio == m_ratio && length == m_length && thickness == m_thickness)
        return;
    m_lookTaken = m_lookTaken && ratio == m_ratio;
    m_ratio = ratio;
    m_ticWidth = toInt(ratio);
    m_length = length;
    m_thickness = thickness;
    m_blank = true;
    ++m_revision;
}

int ScaleStrip::ToDevice(int length) const { return Rounded(std::clamp(length, 0, LongestGiven) * m_ratio); }

void ScaleStrip::TakeLook()
{
    if (m_lookTaken)
        return;
    m_lookTaken = true;
    m_textsValid = false;
    m_blank = true;
    m_ground = ScanLines::Ink(m_look.background);
    m_lineInk = ScanLines::Over(ScanLines::Ink(m_look.line), m_ground);
    m_atlas.Set(m_look.font, m_look.text, m_ratio, m_look.characters, m_look.background);
    m_unitLabel = MakeText(0.0, m_unit);
    m_unitPicture = QImage();
}

ScaleStrip::Text ScaleStrip::MakeText(double value, QString const & text) const
{
    int const width = m_atlas.Width(text);
    if (width >= 0)
        return { value, text, width, false };
    double const advance = QFontMetricsF(m_look.font).horizontalAdvance(text) * m_ratio;
    return { value, text, Rounded(std::ceil(advance)) + 2 * WordMargin, true };
}

//! Distance of labels from the edge of the line, device px.
int ScaleStrip::LabelDepth() const
{
    return std::max({ m_ticWidth, ToDevice(m_look.ticLength), ToDevice(m_look.minorTicLength) }) +
           ToDevice(m_look.textDistance);
}

void ScaleStrip::LayOut()
{
    TakeLook();
    if (m_laidOut == m_revision)
        return;
    m_laidOut = m_revision;
    ScaleLayout::Extent extent;
    extent.length = m_length;
    extent.origin = Rounded(m_origin * m_ratio);
    extent.minorDistance = ToDevice(m_look.minorDistance);
    extent.vertical = IsVertical();
    m_layout.SetTics(m_tics, extent);
    FindTexts();
    m_layout.PlaceLabels(LabelExtents(), ToDevice(m_look.labelGap), UnitExtent());
    m_majors.clear();
    for (ScaleLayout::Tic const & tic : m_layout.GetTics())
        m_majors.push_back(tic.pixel);
}

//! Keeps the texts of values that are still there.
void ScaleStrip::FindTexts()
{
    bool const falling = m_layout.IsFalling();
    if (!m_textsValid || falling != m_textsFalling || !sameValue(m_textStep, m_tics.ticStep))
        m_texts.clear();
    m_textsValid = true;
    m_textsFalling = falling;
    m_textStep = m_tics.ticStep;
    m_formerTexts.swap(m_texts);
    m_texts.clear();
    auto former = m_formerTexts.begin();
    for (ScaleLayout::Tic const & tic : m_layout.GetTics()) {
        while (former != m_formerTexts.end() && (falling ? former->value > tic.value : former->value < tic.value))
            ++former;
        if (former != m_formerTexts.end() && former->value == tic.value)
            m_texts.push_back(std::move(*former++));
        else
            m_texts.push_back(MakeText(tic.value, m_labelText ? m_labelText(tic.value, m_textStep) : QString()));
    }
}

//! Extents of the texts along the scale; 0 for those that have no room across it.
std::vector<int> const & ScaleStrip::LabelExtents()
{
    int const room = std::min(m_thickness, LargestThickness) - LabelDepth();
    m_extents.clear();
    for (Text const & text : m_texts) {
        int const across = IsVertical() ? text.width : m_atlas.GetHeight();
        bool const fits = text.width > 0 && text.width <= WidestWord && across <= room;
        m_extents.push_back(!fits ? 0 : IsVertical() ? m_atlas.GetHeight() : text.width);
    }
    return m_extents;
}

int ScaleStrip::UnitExtent() const
{
    int const room = std::min(m_thickness, LargestThickness) - LabelDepth();
    int const across = IsVertical() ? m_unitLabel.width : m_atlas.GetHeight();
    bool const fits = m_unitLabel.width > 0 && m_unitLabel.width <= WidestWord && across <= room;
    return !fits ? 0 : IsVertical() ? m_atlas.GetHeight() : m_unitLabel.width;
}

std::vector<int> const & ScaleStrip::GetMajorPixels()
{
    LayOut();
    return m_majors;
}

std::vector<int> const & ScaleStrip::GetMinorPixels()
{
    LayOut();
    return m_layout.GetMinorTics();
}

std::vector<QRect> ScaleStrip::GetLabelRects()
{
    LayOut();
    std::vector<QRect> rects;
    for (ScaleLayout::Label const & label : m_layout.GetLabels())
        rects.push_back(LabelRect(m_texts[static_cast<std::size_t>(label.tic)], label.start));
    if (m_layout.GetUnitStart() >= 0)
        rects.push_back(LabelRect(m_unitLabel, m_layout.GetUnitStart()));
    return rects;
}

int ScaleStrip::GetNeededThickness()
{
    LayOut();
    int across = 0;
    for (Text const & text : m_texts)
        across = std::max(across, IsVertical() || text.width == 0 ? text.width : m_atlas.GetHeight());
    across = std::max(across, IsVertical() || m_unit.isEmpty() ? m_unitLabel.width : m_atlas.GetHeight());
    return Rounded(std::ceil((LabelDepth() + across) / m_ratio));
}

//! Makes the part [from, to) of the view stand in the picture, which must be long enough for it.
void ScaleStrip::BringIntoPicture(int from, int to)
{
    int const base = BaseFor(from, to);
    if (!m_blank && m_drawnRevision == m_revision && base == m_drawn.base)
        return;
    CleanVectorState();
    if (m_blank)
        MakeBlank();
    m_drawnRevision = m_revision;
    std::swap(m_former, m_drawn);
    m_drawn.base = base;
    m_drawn.tics = m_layout.GetTics();
    m_drawn.majors = m_majors;
    m_drawn.minors = m_layout.GetMinorTics();
    CollectLabels();
    RenewTics(m_former);
    RenewLabels(m_former.labels);
}

//! Length of the picture, device px.
int ScaleStrip::PictureLength() const
{
    return std::min(2 * m_length, MostPixels / std::min(m_thickness, LargestThickness));
}

void ScaleStrip::MakeBlank()
{
    int const thickness = std::min(m_thickness, LargestThickness);
    int const length = PictureLength();
    QSize const size = IsVertical() ? QSize(thickness, length) : QSize(length, thickness);
    auto const format = m_ground >> 24U == 255U ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied;
    if (m_image.size() != size || m_image.format() != format)
        m_image = QImage(size, format);
    m_drawn = Drawn();
    ScanLines::Fill(m_image, m_image.rect(), m_ground);
    ScanLines::Fill(m_image, PictureRect(0, length, 0, std::min(m_ticWidth, thickness)), m_lineInk);
    m_blank = false;
}

//! Where the view's first pixel shall stand in the picture.
int ScaleStrip::BaseFor(int from, int to) const
{
    int const length = PictureLength();
    int const base = m_drawn.base - Pan();
    bool const fits = !m_blank && base + from >= 0 && base + to <= length;
    return fits ? base : (length - (to - from)) / 2 - from;
}

//! Pixels by which the tics moved since the picture was drawn; 0 when they did not move as one.
int ScaleStrip::Pan() const
{
    std::vector<ScaleLayout::Tic> const & now = m_layout.GetTics();
    bool const falling = m_layout.IsFalling();
    auto before = m_drawn.tics.begin();
    bool found = false;
    int first = 0;
    int last = 0;
    for (ScaleLayout::Tic const & tic : now) {
        while (before != m_drawn.tics.end() && (falling ? before->value > tic.value : before->value < tic.value))
            ++before;
        if (before == m_drawn.tics.end())
            break;
        if (before->value != tic.value)
            continue;
        last = tic.pixel - before->pixel;
        first = found ? first : last;
        found = true;
    }
    return std::abs(last - first) <= 1 ? first : 0;
}

//! A rectangle of the picture by its place along the scale and its depth seen from the edge of the line.
QRect ScaleStrip::PictureRect(int along, int length, int depth, int thickness) const
{
    int const kept = std::min(m_thickness, LargestThickness);
    int const across = m_look.lineSide == eLineAtNearEdge ? depth : kept - depth - thickness;
    return IsVertical() ? QRect(across, along, thickness, length) : QRect(along, across, length, thickness);
}

void ScaleStrip::RenewTics(Drawn const & before)
{
    if (AreSame(before.majors, before.base, m_drawn.majors, m_drawn.base) &&
        AreSame(before.minors, before.base, m_drawn.minors, m_drawn.base))
        return;
    int const length = ToDevice(m_look.ticLength);
    int const minorLength = ToDevice(m_look.minorTicLength);
    FillTics(before.majors, before.base, length, m_ground);
    FillTics(before.minors, before.base, minorLength, m_ground);
    FillTics(m_drawn.minors, m_drawn.base, minorLength, m_lineInk);
    FillTics(m_drawn.majors, m_drawn.base, length, m_lineInk);
}

//! Fills tics from the line to their length; what lies outside the picture is cut.
void ScaleStrip::FillTics(std::vector<int> const & pixels, int base, int length, QRgb ink)
{
    QRect const band = PictureRect(0, 1, m_ticWidth, length - m_ticWidth) & m_image.rect();
    int const end = IsVertical() ? m_image.height() : m_image.width();
    auto * const picture = reinterpret_cast<QRgb *>(m_image.bits());
    std::ptrdiff_t const stride = m_image.bytesPerLine() / static_cast<int>(sizeof(QRgb));
    std::ptrdiff_t const step = IsVertical() ? 1 : stride;
    int const count = IsVertical() ? band.width() : band.height();
    if (length <= m_ticWidth || band.isEmpty())
        return;
    auto const first = std::lower_bound(pixels.begin(), pixels.end(), 1 - m_ticWidth - base);
    auto const last = std::lower_bound(pixels.begin(), pixels.end(), end - base);
    for (auto pixel = first; pixel < last; ++pixel) {
        int const to = std::min(base + *pixel + m_ticWidth, end);
        for (int along = std::max(0, base + *pixel); along < to; ++along) {
            QRgb * const column = picture + (IsVertical() ? along * stride + band.left() : band.top() * stride + along);
            for (int i = 0; i < count; ++i)
                column[i * step] = ink;
        }
    }
}

void ScaleStrip::CollectLabels()
{
    m_drawn.labels.clear();
    for (ScaleLayout::Label const & label : m_layout.GetLabels())
        m_drawn.labels.push_back(PlacedLabel(m_texts[static_cast<std::size_t>(label.tic)], label.start));
    if (m_layout.GetUnitStart() >= 0)
        m_drawn.labels.push_back(PlacedLabel(m_unitLabel, m_layout.GetUnitStart()));
}

ScaleStrip::DrawnLabel ScaleStrip::PlacedLabel(Text const & text, int start) const
{
    return { text.text, LabelRect(text, m_drawn.base + start), text.isWord };
}

QRect ScaleStrip::LabelRect(Text const & text, int along) const
{
    int const height = m_atlas.GetHeight();
    return IsVertical() ? PictureRect(along, height, LabelDepth(), text.width)
                        : PictureRect(along, text.width, LabelDepth(), height);
}

void ScaleStrip::RenewLabels(std::vector<DrawnLabel> const & before)
{
    auto const isIn = [](std::vector<DrawnLabel> const & labels, DrawnLabel const & label) {
        return std::find(labels.begin(), labels.end(), label) != labels.end();
    };
    for (DrawnLabel const & label : before) {
        if (!isIn(m_drawn.labels, label))
            ScanLines::Fill(m_image, label.rect, m_ground);
    }
    for (DrawnLabel const & label : m_drawn.labels) {
        if (!isIn(before, label))
            DrawLabel(label);
    }
}

void ScaleStrip::DrawLabel(DrawnLabel const & label)
{
    if (!label.isWord) {
        m_atlas.Draw(m_image, label.rect.topLeft(), label.text, label.rect);
        return;
    }
    bool const isUnit = label.text == m_unit;
    QImage const picture =
        isUnit && !m_unitPicture.isNull() ? m_unitPicture : WordPicture(label.text, label.rect.size());
    if (isUnit)
        m_unitPicture = picture;
    ScanLines::Blend(m_image, label.rect.topLeft(), picture, label.rect);
}

QImage ScaleStrip::WordPicture(QString const & text, QSize const & size) const
{
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(m_ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setFont(m_look.font);
    painter.setPen(m_look.text);
    painter.translate(QPointF(WordMargin + Nudge, m_atlas.GetAscent() + Nudge) / m_ratio);
    painter.drawText(QPointF(), text); // at 0, since text rounds places in units of the painter
    return picture;
}

void ScaleStrip::Paint(QPainter & painter, QRect const & rect)
{
    if (!painter.isActive() || rect.isEmpty())
        return;
    QTransform const device = painter.deviceTransform();
    double const ratio = device.m11();
    bool const isUpright =
        device.type() <= QTransform::TxScale && device.m22() == ratio && ratio >= 1.0 && ratio <= LargestRatio;
    SetView(rect, isUpright ? ratio : painter.device()->devicePixelRatioF());
    if (m_length < 1 || m_thickness < 1)
        return;
    LayOut();
    if (isUpright && device.type() > QTransform::TxTranslate)
        PaintUpright(painter, device.map(QPointF(rect.topLeft())));
    else
        PaintParts(painter, rect.topLeft(), isUpright ? 1.0 : m_ratio);
}

//! Draws in device pixels. \param corner  of the scale in them, whatever the painter's own units are.
void ScaleStrip::PaintUpright(QPainter & painter, QPointF const & corner)
{
    painter.save();
    painter.setViewTransformEnabled(false);
    painter.resetTransform();
    double const pixels = painter.deviceTransform().m11(); // to a unit, by the painter's device alone
    painter.setWorldTransform(QTransform::fromScale(1.0 / pixels, 1.0 / pixels));
    QTransform const device = painter.deviceTransform(); // a translation, when painting is led elsewhere
    PaintParts(painter, QPoint(Rounded(corner.x() - device.dx()), Rounded(corner.y() - device.dy())), 1.0);
    painter.restore();
}

//! \param ratio  pixels of the picture to a unit of the painter.
void ScaleStrip::PaintParts(QPainter & painter, QPoint const & corner, double ratio)
{
    int const kept = std::min(m_thickness, LargestThickness);
    int const before = m_look.lineSide == eLineAtNearEdge ? 0 : m_thickness - kept; // plain ground there
    int const longest = PictureLength();
    Part const seen = m_length <= longest ? Part{ 0, m_length } : SeenPart(painter, corner, ratio);
    for (int from = seen.from; from < seen.to; from += longest) {
        int const to = std::min(from + longest, seen.to);
        BringIntoPicture(from, to);
        QRect const source = PictureRect(m_drawn.base + from, to - from, 0, kept);
        QPoint const offset = IsVertical() ? QPoint(before, from) : QPoint(from, before);
        if (ratio == 1.0)
            painter.drawImage(corner + offset, m_image, source);
        else
            painter.drawImage(QRectF(QPointF(corner) + QPointF(offset) / ratio, QSizeF(source.size()) / ratio), m_image,
                              QRectF(source));
    }
    int const plain = m_thickness - kept;
    QPointF const plainCorner = m_look.lineSide == eLineAtFarEdge ? QPointF() : QPointF(kept, kept) / ratio;
    if (plain > 0 && IsVertical())
        painter.fillRect(QRectF(corner.x() + plainCorner.x(), corner.y(), plain / ratio, m_length / ratio),
                         m_look.background);
    else if (plain > 0)
        painter.fillRect(QRectF(corner.x(), corner.y() + plainCorner.y(), m_length / ratio, plain / ratio),
                         m_look.background);
}

//! The part of the view that may be seen, without what the window system covers.
ScaleStrip::Part ScaleStrip::SeenPart(QPainter const & painter, QPoint const & corner, double ratio) const
{
    if (painter.viewTransformEnabled() && painter.viewport() != painter.window())
        return { 0, m_length };
    QRectF seen = painter.worldTransform().inverted().mapRect(QRectF(painter.viewport()));
    if (painter.hasClipping())
        seen &= painter.clipBoundingRect();
    double const low = IsVertical() ? seen.top() - corner.y() : seen.left() - corner.x();
    double const high = IsVertical() ? seen.bottom() - corner.y() : seen.right() - corner.x();
    return { std::max(0, Rounded(std::floor(low * ratio))), std::min(m_length, Rounded(std::ceil(high * ratio))) };
}
