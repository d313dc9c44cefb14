// SPDX-License-Identifier: MIT
#include "axisrangedisplay.h"

#include "axisbase.h"
#include "axistext.h"
#include "datetime.h"
#include "guibase.h"
#include "suffixeddouble.h"
#include "timetics.h"
#include "undorecording.h"
#include "vccaption.h"
#include "vclabel.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QLocale>
#include <QStringList>

#include <algorithm>
#include <cmath>

namespace {

constexpr int WidestField = 100;
constexpr int MostDigits = 17;
constexpr double MicrosecondsOfSecond = 1e6;
constexpr auto MicrosecondsOfHour = static_cast<unsigned long long>(TimeTics::Hour);
constexpr char ExactSpan[] = "mm:ss.zzz";

QString HoursOf(double span)
{
    return QStringLiteral("%1:").arg(AxisText::TimeStamp(span) / MicrosecondsOfHour, 2, 10, QLatin1Char('0'));
}

//! \param span  us. From an hour on its hours stand in front of the minutes that the format starts with.
QString SpanText(double span, QString const & format)
{
    unsigned long long const stamp = AxisText::TimeStamp(span);
    bool const lacksHours = stamp >= MicrosecondsOfHour && format.startsWith(QLatin1String("mm"));
    return (lacksHours ? HoursOf(span) : QString()) + Orim::DateTime(stamp).toString(format, 0);
}

QString StampText(double time, QString const & format)
{
    return Orim::DateTime(AxisText::TimeStamp(time)).toString(format, GuiBase::Instance().GetTimeZoneValue());
}

//! Reads a span of time, us: "12.5" (s), "1:30", "-1:02:03.5". A sign at the front counts for all of it.
bool ReadSpan(QString const & text, double & span)
{
    QString const trimmed = text.trimmed();
    bool const isNegative = trimmed.startsWith(QLatin1Char('-'));
    QStringList const parts = trimmed.mid(isNegative ? 1 : 0).split(QLatin1Char(':'));
    if (parts.size() > 3)
        return false;
    double seconds = 0.0;
    for (QString const & part : parts) {
        bool ok = false;
        double const number = QLocale::c().toDouble(part.trimmed(), &ok);
        if (!ok || std::signbit(number))
            return false;
        seconds = seconds * 60.0 + number;
    }
    span = (isNegative ? -seconds : seconds) * MicrosecondsOfSecond;
    return std::isfinite(span);
}

} // namespace

// Format

void AxisRangeDisplay::SetPixelToValueServer(AxisBase * axis)
{
    m_server = Watch(axis);
    ShowTexts();
}

void AxisRangeDisplay::SetCaption(VCCaption * caption)
{
    m_pCaption = caption;
    if (isVisible())
        ShowValues();
}

void AxisRangeDisplay::SetConverter(SuffixedDouble * converter)
{
    m_pConverter = converter;
    ShowTexts();
}

void AxisRangeDisplay::SetFormat(int width, int precision)
{
    m_width = std::clamp(width, -WidestField, WidestField);
    m_precision = std::clamp(precision, 0, MostDigits);
    ShowTexts();
}

void AxisRangeDisplay::SetFormatString(QString const & format)
{
    m_formatString = format;
    ShowTexts();
}

void AxisRangeDisplay::SetFormatStringForFixedSize(QString const & format)
{
    m_fixedFormat = format;
    AdaptFontSize();
    SetFormatString(format);
}

SuffixedDouble const * AxisRangeDisplay::Converter() const
{
    AxisBase const * const server = m_server.Get();
    return m_pConverter ? m_pConverter : server ? server->GetConverter() : nullptr;
}

double AxisRangeDisplay::DisplayFactor() const
{
    AxisBase const * const server = m_server.Get();
    return server ? server->GetDisplayFactor() : 1.0;
}

void AxisRangeDisplay::write(VCLabel * label, double value)
{
    if (!label)
        return;
    double const shown = value * DisplayFactor();
    if (!std::isfinite(shown))
        label->setText(QStringLiteral("---"));
    else if (SuffixedDouble const * const converter = Converter())
        label->setText(converter->GetSignificantStringNoSuffix(shown));
    else
        label->setText(QStringLiteral("%1").arg(shown, m_width, 'f', m_precision));
}

//! A time stamp or a span in the format that is set.
QString AxisRangeDisplay::TimeText(double value) const
{
    return ShowsTimeStamps() ? StampText(value, m_formatString) : SpanText(value, m_formatString);
}

void AxisRangeDisplay::ShowTexts()
{
    if (!IsReady())
        return;
    double a = m_ruler1.Get()->GetInterimValue(); // the value itself, unless it is dragged
    double b = m_ruler2.Get()->GetInterimValue();
    double const difference = std::fabs(b - a);
    if (ShowsTimeStamps())
        std::swap(a, b);
    double const center = (a + b) * 0.5;
    for (VCLabel * const label : { m_pFirst, m_pDifference, m_pSecond, m_pCenter })
        label->setToolTip(QString());
    if (!IsTimeAxis()) {
        write(m_pFirst, a);
        write(m_pDifference, difference);
        write(m_pSecond, b);
        write(m_pCenter, center);
        return;
    }
    m_pFirst->setText(TimeText(a));
    m_pSecond->setText(TimeText(b));
    m_pCenter->setText(TimeText(center));
    m_pDifference->setText(SpanText(difference, QStringLiteral("mm:ss")));
    m_pDifference->setToolTip(SpanText(difference, QLatin1String(ExactSpan)));
}

// Entry

bool AxisRangeDisplay::eventFilter(QObject * watched, QEvent * event)
{
    QEvent::Type const type = event->type();
    int const key = type == QEvent::KeyPress ? static_cast<QKeyEvent *>(event)->key() : 0;
    if (watched == m_pEntry)
        return FilterEntry(*event, key);
    bool const isOpening =
        type == QEvent::MouseButtonDblClick || key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_F2;
    if (!isOpening || !(watched == m_pDifference || watched == m_pCenter))
        return QWidget::eventFilter(watched, event);
    OpenEntry(watched == m_pCenter ? m_pCenter : m_pDifference);
    return true;
}

//! \param key  0 unless one is pressed.
bool AxisRangeDisplay::FilterEntry(QEvent const & event, int key)
{
    if (key == Qt::Key_Escape) {
        CloseEntry();
        return true;
    }
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        TakeEntry(); // may end this
        return true;
    }
    bool const isLeft = m_pEntered && event.type() == QEvent::FocusOut &&
                        static_cast<QFocusEvent const &>(event).reason() != Qt::PopupFocusReason;
    if (isLeft && !m_isLeft) {
        m_isLeft = true;
        auto const take = [this] {
            if (m_isLeft)
                TakeEntry();
        };
        QMetaObject::invokeMethod(this, take, Qt::QueuedConnection); // behind the event, which the entry survives
    }
    return false;
}

void AxisRangeDisplay::OpenEntry(VCLabel * label)
{
    LifeWatch const life(GetObserverLifetime());
    TakeEntry(); // one that stands open elsewhere
    if (life.IsOver() || !IsReady())
        return;
    m_pEntered = label;
    m_pEntry->setGeometry(label->geometry());
    m_pEntry->setText(EntryText(label == m_pCenter));
    m_pEntry->show();
    m_pEntry->raise();
    m_pEntry->selectAll();
    m_pEntry->setFocus();
}

void AxisRangeDisplay::CloseEntry()
{
    VCLabel * const label = m_pEntered;
    m_pEntered = nullptr; // so that the loss of the focus takes nothing
    m_isLeft = false;
    bool const hadFocus = m_pEntry->hasFocus();
    m_pEntry->hide();
    if (label && hadFocus)
        label->setFocus();
}

void AxisRangeDisplay::TakeEntry()
{
    VCLabel const * const label = m_pEntered;
    bool const isModified = m_pEntry->isModified();
    QString const text = m_pEntry->text();
    if (!label)
        return;
    CloseEntry();
    Binding const & binding = label == m_pCenter ? m_center : m_difference;
    if (!isModified || !binding.Get())
        return;
    double value = 0.0;
    if (!ReadEntry(label == m_pCenter, text, value)) {
        QApplication::beep();
        return;
    }
    GuiUndoRecordingHelper const recording(nullptr, tr("Move the rulers"));
    binding.Get()->SetNumericValue(value, nullptr);
}

QString AxisRangeDisplay::EntryText(bool isCenter) const
{
    double const value = (isCenter ? m_center : m_difference).Get()->GetNumericValue();
    if (isCenter && ShowsTimeStamps())
        return StampText(value, QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz"));
    if (IsTimeAxis()) {
        double const span = std::fabs(value);
        return HoursOf(span) + Orim::DateTime(AxisText::TimeStamp(span)).toString(QLatin1String(ExactSpan), 0);
    }
    double const shown = value * DisplayFactor();
    SuffixedDouble const * const converter = Converter();
    return converter ? converter->GetSignificantStringNoSuffix(shown) : QString::number(shown, 'g', 12);
}

bool AxisRangeDisplay::ReadEntry(bool isCenter, QString const & text, double & value) const
{
    if (isCenter && ShowsTimeStamps()) {
        Orim::DateTime time;
        time.setOffsetFromUTC(GuiBase::Instance().GetTimeZoneValue());
        value = static_cast<double>(time.fromString(text));
        return value > 0.0; // a text that is no time leaves it at the start
    }
    if (IsTimeAxis())
        return ReadSpan(text, value);
    bool ok = false;
    SuffixedDouble const * const converter = Converter();
    double const shown = converter ? converter->GetValue(text, &ok) : QLocale::c().toDouble(text.trimmed(), &ok);
    value = shown / DisplayFactor();
    return ok && std::isfinite(value);
}
