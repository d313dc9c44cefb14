// SPDX-License-Identifier: MIT
#include "datetime.h"
#include "toint.h"
#include "valueselection.h"
#include "vccaption.h"

#include <QScopedValueRollback>

#include <cmath>
#include <utility>

namespace {

constexpr unsigned long long MicrosecondsOfSecond = 1000000;

unsigned long long TimeStamp(double time) { return toInt<unsigned long long>(time); }

} // namespace

void VCCaption::SetTimeCaptionFormat(QString start, QString stop, QString span)
{
    m_TimeFormat1 = std::move(start);
    m_TimeFormat2 = std::move(stop);
    m_TimeFormat3 = std::move(span);
}

void VCCaption::ProvideDateTime()
{
    if (!m_pDateTime)
        m_pDateTime = std::make_unique<Orim::DateTime>();
    if (!m_pTimeZone.Get() && WatchTimeZone())
        m_pDateTime->setOffsetFromUTC(toInt<long long>(m_pTimeZone.value->GetCurrentValue()));
}

void VCCaption::TakeTimeZone()
{
    m_pDateTime->setOffsetFromUTC(toInt<long long>(m_pTimeZone.value->GetCurrentValue()));
    if (m_TimeStart != -1.0)
        SetTimeCaption(m_TimeStart, m_TimeStop);
}

QString VCCaption::TimeText(double time, QString const & format) const
{
    Orim::DateTime shown(*m_pDateTime);
    shown.setTime_ts(TimeStamp(time));
    return shown.toString(format);
}

void VCCaption::SetTimeCaption(double start, double stop)
{
    if (start == stop)
        return;
    if (stop < start)
        std::swap(start, stop);
    m_TimeStart = start;
    m_TimeStop = stop;
    ProvideDateTime();
    Orim::DateTime const span(TimeStamp(std::fabs(stop - start)));
    m_Center = TimeText(start, m_TimeFormat1) + TimeText(stop, m_TimeFormat2) + span.toString(m_TimeFormat3);
    {
        QScopedValueRollback<int> const width(m_CenterWidth, m_TimeWidth); // does not move when digits change
        QScopedValueRollback<bool> const reserved(m_IsCenterReserved, true);
        ShowChange();
    }
}

void VCCaption::SetWFTimeLeft(unsigned long long & time)
{
    ProvideDateTime();
    bool const isSame =
        m_IsTimeLeftSet && m_pDateTime->getTimeStamp() / MicrosecondsOfSecond == time / MicrosecondsOfSecond;
    m_pDateTime->setTime_ts(time);
    m_IsTimeLeftSet = true;
    if (!isSame)
        SetCaptionLeft(m_pDateTime->toString(QStringLiteral("yyyy-MM-dd hh:mm:ss")));
}
