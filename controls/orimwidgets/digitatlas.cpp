// SPDX-License-Identifier: MIT
#include "digitatlas.h"

#include "scanlines.h"
#include "toint.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr double LargestRatio = 16.0;
constexpr double Nudge =
    0x1p-10;              // device px; keeps a whole one whole when it is divided by the ratio and multiplied again
constexpr int Margin = 2; // px; smoothing reaches beyond the rectangle that the metrics tell

double UsableRatio(double ratio) { return std::isnan(ratio) ? 1.0 : std::clamp(ratio, 1.0, LargestRatio); }

QString WithoutRepetition(QString const & characters)
{
    QString once;
    for (QChar const character : characters) {
        if (once.size() < DigitAtlas::MostCharacters && !once.contains(character))
            once.append(character);
    }
    return once;
}

//! The smallest rectangle of whole device pixels around one of the painter's units.
QRect DeviceRect(QRectF const & rect, double ratio)
{
    return QRectF(rect.topLeft() * ratio, rect.size() * ratio).toAlignedRect();
}

bool IsTooLarge(QRectF const & rect, double ratio)
{
    double const largest = DigitAtlas::LargestCharacter / ratio;
    bool const fits = std::abs(rect.left()) <= largest && std::abs(rect.right()) <= largest &&
                      std::abs(rect.top()) <= largest && std::abs(rect.bottom()) <= largest; // false for NaN
    return !fits;
}

} // namespace

QString DigitAtlas::NumberCharacters() { return QStringLiteral("0123456789+-.,e: "); }

void DigitAtlas::Set(QFont const & font, QColor const & color, double devicePixelRatio, QString const & characters,
                     QColor const & ground)
{
    double const ratio = UsableRatio(devicePixelRatio);
    QColor const opaque = ground.isValid() && ground.alpha() == 255 ? ground : QColor();
    if (ratio == m_ratio && font == m_font && color == m_color && characters == m_characters && opaque == m_ground)
        return;
    m_ratio = ratio;
    m_font = font;
    m_color = color;
    m_ground = opaque;
    m_characters = characters;
    Build(WithoutRepetition(characters));
}

void DigitAtlas::Build(QString const & characters)
{
    m_glyphs.clear();
    m_spans.clear();
    m_inks.clear();
    m_ascii.fill(0);
    m_leftOverhang = 0;
    m_rightOverhang = 0;

    QFontMetricsF const metrics(m_font);
    m_ascent = std::max(0, toInt(std::min(std::ceil(metrics.ascent() * m_ratio), 1e6)));
    m_descent = std::max(0, toInt(std::min(std::ceil(metrics.descent() * m_ratio), 1e6)));
    QRectF bounds;
    for (QChar const character : characters)
        bounds |= metrics.boundingRect(character);
    if (IsTooLarge(bounds, m_ratio) || m_ascent + m_descent > LargestCharacter)
        return;
    QRect const box = DeviceRect(bounds, m_ratio).adjusted(-Margin, -Margin, Margin, Margin);
    m_ascent = std::max(m_ascent, Margin - box.top());
    m_descent = std::max(m_descent, box.bottom() + 1 - Margin);

    QImage canvas(box.size(), QImage::Format_ARGB32_Premultiplied);
    canvas.setDevicePixelRatio(m_ratio);
    for (QChar const character : characters)
        AddGlyph(character, canvas, box);
    if (m_ground.isValid()) {
        QRgb const ground = ScanLines::Ink(m_ground);
        std::transform(m_inks.begin(), m_inks.end(), m_inks.begin(),
                       [ground](QRgb ink) { return ScanLines::Over(ink, ground); });
    }
}

//! \param box  the canvas, seen from the start of the character's base line.
void DigitAtlas::AddGlyph(QChar character, QImage & canvas, QRect const & box)
{
    canvas.fill(Qt::transparent);
    if (m_color.isValid()) {
        QPainter painter(&canvas);
        painter.setFont(m_font);
        painter.setPen(m_color);
        painter.translate((QPointF(-box.topLeft()) + QPointF(Nudge, Nudge)) / m_ratio);
        painter.drawText(QPointF(), QString(character)); // at 0, since text rounds places in units of the painter
    }
    Glyph glyph;
    glyph.character = character;
    glyph.advance = std::max(0, toInt(std::round(QFontMetricsF(m_font).horizontalAdvance(character) * m_ratio)));
    glyph.firstSpan = m_spans.size();
    AddSpans(canvas, box.topLeft());
    glyph.lastSpan = m_spans.size();
    for (std::size_t i = glyph.firstSpan; i < glyph.lastSpan; ++i) {
        m_leftOverhang = std::max(m_leftOverhang, -m_spans[i].x);
        m_rightOverhang = std::max(m_rightOverhang, m_spans[i].x + m_spans[i].length - glyph.advance);
    }
    m_glyphs.push_back(glyph);
    if (character.unicode() < m_ascii.size())
        m_ascii[character.unicode()] = static_cast<short>(m_glyphs.size());
}

//! \param origin  of the canvas, seen from the start of the base line.
void DigitAtlas::AddSpans(QImage const & canvas, QPoint const & origin)
{
    for (int y = 0; y < canvas.height(); ++y) {
        auto const * const row = reinterpret_cast<QRgb const *>(canvas.constScanLine(y));
        QRgb const * const end = row + canvas.width();
        auto const bearsInk = [](QRgb pixel) { return pixel != 0; };
        QRgb const * from = std::find_if(row, end, bearsInk);
        while (from != end) {
            QRgb const * const to = std::find_if_not(from, end, bearsInk);
            m_spans.push_back({ static_cast<int>(from - row) + origin.x(), y + origin.y() + m_ascent,
                                static_cast<int>(to - from), m_inks.size() });
            m_inks.insert(m_inks.end(), from, to);
            from = std::find_if(to, end, bearsInk);
        }
    }
}

DigitAtlas::Glyph const * DigitAtlas::Find(QChar character) const
{
    if (character.unicode() < m_ascii.size()) {
        short const place = m_ascii[character.unicode()];
        return place > 0 ? &m_glyphs[static_cast<std::size_t>(place) - 1] : nullptr;
    }
    auto const found = std::find_if(m_glyphs.begin(), m_glyphs.end(),
                                    [character](Glyph const & glyph) { return glyph.character == character; });
    return found != m_glyphs.end() ? &*found : nullptr;
}

bool DigitAtlas::Holds(QString const & text) const
{
    return std::all_of(text.begin(), text.end(), [this](QChar character) { return Find(character) != nullptr; });
}

int DigitAtlas::Width(QString const & text) const
{
    if (text.isEmpty())
        return 0;
    long long width = m_leftOverhang + m_rightOverhang;
    for (QChar const character : text) {
        Glyph const * const glyph = Find(character);
        if (!glyph)
            return -1;
        width += glyph->advance;
    }
    return toInt(std::min(static_cast<double>(width), 1e9));
}

bool DigitAtlas::Draw(QImage & image, QPoint const & position, QString const & text, QRect const & clip) const
{
    if (!ScanLines::CanDraw(image) || !Holds(text))
        return false;
    QRect const part = clip & image.rect();
    double x = static_cast<double>(position.x()) + m_leftOverhang; // no text is too long for it
    double const beyond = part.right() + m_leftOverhang;
    double const before = part.left() - LargestCharacter * 2;
    bool const isNear = std::abs(static_cast<double>(position.y())) <= 1e9;
    for (int i = 0; i < text.size() && x <= beyond && isNear && !part.isEmpty(); ++i) {
        Glyph const & glyph = *Find(text.at(i));
        if (x >= before)
            DrawGlyph(glyph, image, QPoint(toInt(x), position.y()), part);
        x += glyph.advance;
    }
    return true;
}

void DigitAtlas::DrawGlyph(Glyph const & glyph, QImage & image, QPoint const & origin, QRect const & clip) const
{
    auto * const pixels = reinterpret_cast<QRgb *>(image.bits());
    std::ptrdiff_t const stride = image.bytesPerLine() / static_cast<int>(sizeof(QRgb));
    for (std::size_t i = glyph.firstSpan; i < glyph.lastSpan; ++i) {
        Span const & span = m_spans[i];
        int const y = origin.y() + span.y;
        if (y < clip.top() || y > clip.bottom())
            continue;
        int const x = origin.x() + span.x;
        int const from = std::max(x, clip.left());
        int const to = std::min(x + span.length, clip.right() + 1);
        if (from >= to)
            continue;
        QRgb const * ink = m_inks.data() + span.first + (from - x);
        QRgb * pixel = pixels + y * stride + from;
        for (int left = to - from; left > 0; --left, ++pixel, ++ink)
            *pixel = ScanLines::Over(*ink, *pixel);
    }
}
