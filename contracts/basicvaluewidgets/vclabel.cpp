// SPDX-License-Identifier: MIT
#include "vclabel.h"

#include "colorcontrast.h"

#include <QFontMetrics>
#include <QPalette>

namespace {

constexpr int SmallestSize = 4; // points or pixels

int SizeOf(QFont const & font) { return font.pixelSize() > 0 ? font.pixelSize() : font.pointSize(); }

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
    QSize const frame = size() - contentsRect().size() + 2 * QSize(margin(), margin());
    return QSize(metrics.horizontalAdvance(m_sizingText), metrics.height()) + frame;
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
    QFontMetrics const metrics(font, this);
    QSize const room = contentsRect().size() - 2 * QSize(margin(), margin());
    return metrics.horizontalAdvance(m_sizingText) <= room.width() && metrics.height() <= room.height();
}

void VCLabel::FitFont()
{
    if (m_sizingText.isEmpty())
        return;
    int size = SizeOf(m_fullFont);
    while (size > SmallestSize && !Fits(WithSize(m_fullFont, size)))
        --size;
    QFont const fitted = WithSize(m_fullFont, size);
    if (fitted != font())
        setFont(fitted);
}
