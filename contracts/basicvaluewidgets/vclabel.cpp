// SPDX-License-Identifier: MIT
#include "vclabel.h"

#include "colorcontrast.h"
#include "toint.h"

#include <QFontMetrics>
#include <QHelpEvent>
#include <QPainter>
#include <QPalette>
#include <QStringList>
#include <QStyle>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace {

constexpr int SmallestSize = 4; // points or pixels

//! The largest whole size below that of a font.
int SizeBelow(QFont const & font)
{
    return font.pixelSize() > 0 ? font.pixelSize() - 1 : toInt(std::ceil(font.pointSizeF())) - 1;
}

QFont WithSize(QFont font, int size)
{
    if (font.pixelSize() > 0)
        font.setPixelSize(size);
    else
        font.setPointSize(size);
    return font;
}

//! Whether two texts differ in digits alone, which are equally wide.
bool AreEquallyWide(QString const & a, QString const & b)
{
    auto const isDigit = [](QChar sign) { return sign >= QLatin1Char('0') && sign <= QLatin1Char('9'); };
    auto const isAlike = [&](QChar x, QChar y) { return x == y || (isDigit(x) && isDigit(y)); };
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), isAlike);
}

} // namespace

VCLabel::VCLabel(QWidget * parent, char const * name, unsigned int flags)
    : QLabel(parent, Qt::WindowFlags(static_cast<int>(flags)))
{
    setObjectName(QString::fromLatin1(name));
    setTextFormat(Qt::PlainText);
}

VCLabel::~VCLabel() = default;

bool VCLabel::SetValue_ValuePath(QString const & path) { return m_value.BindPath(path); }

void VCLabel::setText(QString const & text)
{
    QString const before = QLabel::text();
    if (text == before)
        return;
    QLabel::setText(text);
    if (!AreEquallyWide(text, before))
        FitFont();
}

void VCLabel::SetBackgroundColor(QColor const & color)
{
    QPalette palette; // what is not set comes from the parent
    if (color.isValid()) {
        palette.setColor(QPalette::Window, color);
        palette.setColor(QPalette::WindowText, ColorContrast::TextOn(color));
    }
    setPalette(palette);
    setAutoFillBackground(color.isValid());
}

void VCLabel::SetFontOnSize(QFont const & font, QString const & text)
{
    m_fullFont = font;
    m_sizingText = text;
    setFont(font);
    FitFont();
    updateGeometry();
}

void VCLabel::Update(Observable * subject, TChangeCode code)
{
    if (m_value.Hears(subject, code) && code == eValueChanged)
        setText(m_value.Get()->GetStringValue());
}

QSize VCLabel::sizeHint() const
{
    if (m_sizingText.isEmpty())
        return QLabel::sizeHint();
    return Room(m_fullFont, m_sizingText);
}

QSize VCLabel::minimumSizeHint() const
{
    return m_sizingText.isEmpty() ? QLabel::minimumSizeHint() : QSize(1, 1); // the font gives way
}

void VCLabel::resizeEvent(QResizeEvent * event)
{
    QLabel::resizeEvent(event);
    FitFont();
}

bool VCLabel::event(QEvent * event)
{
    if (event->type() != QEvent::ToolTip || !m_isCut || !toolTip().isEmpty())
        return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), Qt::convertFromPlainText(text()), this);
    return true;
}

void VCLabel::paintEvent(QPaintEvent * event)
{
    if (!m_isCut) {
        QLabel::paintEvent(event);
        return;
    }
    QPainter painter(this);
    drawFrame(&painter);
    int const inset = margin();
    QRect const room = contentsRect().adjusted(inset, inset, -inset, -inset);
    auto const aligned = static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment()));
    style()->drawItemText(&painter, room, aligned, palette(), isEnabled(), ElidedText(), foregroundRole());
}

QString VCLabel::ElidedText() const
{
    QFontMetrics const metrics(font(), this);
    int const room = width() - Surround(font()).width();
    QStringList lines = text().split(QLatin1Char('\n'));
    for (QString & line : lines)
        line = metrics.elidedText(line, Qt::ElideRight, room);
    return lines.join(QLatin1Char('\n'));
}

QSize VCLabel::Room(QFont const & font, QString const & text) const
{
    return QFontMetrics(font, this).size(0, text) + Surround(font);
}

//! The label indents its text at the edge to which it is aligned: by half an x when it has a frame.
QSize VCLabel::Surround(QFont const & font) const
{
    QSize const frame = size() - contentsRect().size() + 2 * QSize(margin(), margin());
    int const halfX = QFontMetrics(font, this).horizontalAdvance(QLatin1Char('x')) / 2 - margin();
    int const automatic = frameWidth() > 0 ? std::max(0, halfX) : 0;
    int const used = indent() >= 0 ? indent() : automatic;
    bool const atSide = !(alignment() & (Qt::AlignHCenter | Qt::AlignJustify));
    bool const atTop = (alignment() & (Qt::AlignTop | Qt::AlignBottom)) != 0;
    return frame + QSize(atSide ? used : 0, atTop ? used : 0);
}

void VCLabel::FitFont()
{
    if (m_sizingText.isEmpty())
        return;
    auto const fits = [this](QFont const & font) {
        QSize const wanted = Room(font, m_sizingText).expandedTo(Room(font, text()));
        return wanted.width() <= width() && wanted.height() <= height();
    };
    QFont fitted = m_fullFont;
    int size = SizeBelow(m_fullFont);
    if (size >= SmallestSize && !fits(m_fullFont)) {
        if (!fits(WithSize(m_fullFont, SmallestSize)))
            size = SmallestSize; // as for a text of hundreds of digits
        while (size > SmallestSize && !fits(WithSize(m_fullFont, size)))
            --size;
        fitted = WithSize(m_fullFont, size);
    }
    if (fitted != font())
        setFont(fitted);
    m_isCut = Room(fitted, text()).width() > width();
}
