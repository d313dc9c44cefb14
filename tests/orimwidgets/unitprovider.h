// SPDX-License-Identifier: MIT
#ifndef ORIM_TEST_UNITPROVIDER_H
#define ORIM_TEST_UNITPROVIDER_H

#include "iunittextprovider.h"

#include <QObject>
#include <QWidget>

#include <functional>

//! Writes values as "<7>" and reads them so; counts what it is asked.
class UnitProvider : public IUnitTextProvider
{
public:
    void SetUnitText(QString /*unit*/) override {}

    QString GetUnitText() override { return QStringLiteral("[unit]"); }

    QString GetPropertyPageUnitText() override { return QStringLiteral("[page unit]"); }

    QString GetPureUnitText() override { return QStringLiteral("unit"); }

    double String2double(QString text) override
    {
        ++m_reads;
        if (m_onRead)
            m_onRead();
        return text.remove(QLatin1Char('<')).remove(QLatin1Char('>')).toDouble();
    }

    QString double2String(double value, char const * format) override
    {
        ++m_writes;
        m_hadFormat = m_hadFormat || format;
        QString const text = QStringLiteral("<%1>").arg(value);
        if (m_onWrite)
            m_onWrite();
        return text;
    }

    int m_reads = 0;
    int m_writes = 0;
    bool m_hadFormat = false;
    std::function<void()> m_onRead;
    std::function<void()> m_onWrite;
};

//! The same as a QObject, which a page can watch.
class WatchedProvider : public QObject, public UnitProvider
{};

//! The same as a widget, which an axis is: it can still be watched when its part that is a provider has ended.
class WidgetProvider : public QWidget, public UnitProvider
{};

#endif
