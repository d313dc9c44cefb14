// SPDX-License-Identifier: MIT
#include "axisbase.h"

#include "axisrangedisplay.h"

void AxisBase::SetTimeDisplayFormat(AxisBase::TimeFormat format)
{
    m_timeFormat = format;
    TimeTics::Format const & texts = TimeTics::FormatOf(format);
    m_timeFormatString = QString::fromLatin1(texts.tics);
    m_unitText = QString::fromLatin1(texts.label);
    if (texts.date)
        m_dateFormatString = QString::fromLatin1(texts.date);
    if (m_pAxisRangeDisplay)
        m_pAxisRangeDisplay->SetFormatString(m_timeFormatString);
    m_showUnit = true;
}

int AxisBase::GetAxisValues4TimeStamps(double * start, double * stop, int * minor, int * /*left*/, int * /*right*/,
                                       double * first, double * step, double * offset, int /*mode*/)
{
    TimeTics::Row const * const row = start && stop ? TimeTics::RowOf(*start, *stop) : nullptr;
    if (!row)
        return 0;
    bool const isOther = row->format != m_timeFormat;
    m_timeFormat = row->format; // where there are no tics, the texts of the format before stay
    if (row->step == 0) {
        if (isOther && m_pAxisRangeDisplay)
            m_pAxisRangeDisplay->SetFormatString(m_timeFormatString);
        return 0;
    }
    if (isOther)
        SetTimeDisplayFormat(static_cast<TimeFormat>(row->format));
    TimeTics::Tics const tics = TimeTics::Find(*start, *stop, row->step);
    if (tics.count == 0)
        return 0;
    auto const write = [](auto * target, auto value) {
        if (target)
            *target = value;
    };
    write(first, tics.first);
    write(step, static_cast<double>(row->step));
    write(offset, 0.0);
    write(minor, tics.count);
    return tics.count;
}

QString AxisBase::TimeString4Value(int /*value*/) { return {}; }

// The range display

void AxisBase::SetAxisRangeDisplay(AxisRangeDisplay * display) { m_pAxisRangeDisplay = display; }

AxisRangeDisplay * AxisBase::GetAxisRangeDisplay() const { return m_pAxisRangeDisplay; }

bool AxisBase::IsAxisRangeVisible() const { return m_pAxisRangeDisplay && m_pAxisRangeDisplay->isVisible(); }

bool AxisBase::slotShowAxisRangeDisplay(bool show)
{
    if (!m_pAxisRangeDisplay || isHidden())
        return false;
    if (m_pAxisRangeDisplay->isHidden() == show)
        m_pAxisRangeDisplay->setVisible(show);
    return true;
}

bool AxisBase::slotHideAxisRangeDisplay() { return slotShowAxisRangeDisplay(false); }
