// SPDX-License-Identifier: MIT
#include "vclabel.h"

#include "colorcontrast.h"
#include "toint.h"

#include <QFontMetrics>
#include <QPalette>

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
    if (text != QLabel::text())
        QLabel::setText(text);
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
    QFontMetrics const metrics(m_fullFont, this);
    return metrics.size(0, m_sizingText) + Surround(m_fullFont);
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

bool VCLabel::Fits(QFont const & font) const
{
    QSize const wanted = QFontMetrics(font, this).size(0, m_sizingText) + Surround(font);
    return wanted.width() <= width() && wanted.height() <= height();
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
    QFont fitted = m_fullFont;
    for (int size = SizeBelow(m_fullFont); size >= SmallestSize && !Fits(fitted); --size)
        fitted = WithSize(m_fullFont, size);
    if (fitted != font())
        setFont(fitted);
}
