// SPDX-License-Identifier: MIT
#include "datetime.h"

#include <QDateTime>
#include <QLocale>
#include <QRegularExpression>

namespace {

constexpr int SecondsOfDay = 86400;
constexpr long long MicrosecondsOfSecond = 1000000;

bool IsZone(long long offset) { return offset > -SecondsOfDay && offset < SecondsOfDay; }

QDateTime Shown(unsigned long long timeStamp, int offset)
{
    auto const milliseconds = static_cast<qint64>(timeStamp / 1000);
    return QDateTime::fromMSecsSinceEpoch(milliseconds, Qt::OffsetFromUTC, offset);
}

//! Microseconds of a fraction's digits: "5" is half a second.
long long Fraction(QString const & digits) { return digits.leftJustified(6, QLatin1Char('0')).toLongLong(); }

QRegularExpression const & Pattern()
{
    static QRegularExpression const pattern(QStringLiteral(
        "\\A([0-9]{4})-([0-9]{2})-([0-9]{2})(?:[ T]([0-9]{2}):([0-9]{2})(?::([0-9]{2})(?:\\.([0-9]{1,6}))?)?)?\\z"));
    return pattern;
}

} // namespace

Orim::DateTime::DateTime(unsigned long long const & timeStamp) : m_timeStamp(timeStamp) {}

void Orim::DateTime::setTime_ts(unsigned long long timeStamp) { m_timeStamp = timeStamp; }

unsigned long long Orim::DateTime::getTimeStamp() const { return m_timeStamp; }

void Orim::DateTime::setOffsetFromUTC(long long offset)
{
    if (IsZone(offset))
        m_offset = static_cast<int>(offset);
}

int Orim::DateTime::second() const
{
    auto const utc = static_cast<int>(m_timeStamp / MicrosecondsOfSecond % 60);
    return (utc + m_offset % 60 + 60) % 60;
}

QString Orim::DateTime::toString(QString const & format) const { return toString(format, m_offset); }

QString Orim::DateTime::toString(QString const & format, long long offset) const
{
    int const zone = IsZone(offset) ? static_cast<int>(offset) : m_offset;
    return QLocale::c().toString(Shown(m_timeStamp, zone), format);
}

QString Orim::DateTime::toString(long long offset) const
{
    return toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"), offset);
}

QString Orim::DateTime::toMSString() const { return toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz")); }

unsigned long long Orim::DateTime::fromString(QString const & text)
{
    QRegularExpressionMatch const match = Pattern().match(text.trimmed());
    if (!match.hasMatch())
        return m_timeStamp;
    auto const number = [&match](int part) { return match.captured(part).toInt(); }; // 0 for a part that lacks
    QDate const date(number(1), number(2), number(3));
    QTime const time(number(4), number(5), number(6));
    if (!date.isValid() || !time.isValid())
        return m_timeStamp;
    long long const seconds = QDateTime(date, time, Qt::UTC).toSecsSinceEpoch() - m_offset;
    if (seconds >= 0)
        m_timeStamp = static_cast<unsigned long long>(seconds * MicrosecondsOfSecond + Fraction(match.captured(7)));
    return m_timeStamp;
}
