// SPDX-License-Identifier: MIT
#include "displaytables.h"

#include <QCoreApplication>
#include <QDateTime>

#include <cstdlib>

namespace {

//! "UTC+05:30".
QString NameOf(int offset)
{
    int const minutes = std::abs(offset) / 60;
    return QStringLiteral("UTC%1%2:%3")
        .arg(QLatin1Char(offset < 0 ? '-' : '+'))
        .arg(minutes / 60, 2, 10, QLatin1Char('0'))
        .arg(minutes % 60, 2, 10, QLatin1Char('0'));
}

} // namespace

std::vector<SelectionItem> TimeZones::Items(int localOffset)
{
    std::vector<SelectionItem> items;
    items.emplace_back(QStringLiteral("UTC"), 0.0, UtcKey);
    items.emplace_back(QCoreApplication::translate("GuiBase", "Local time"), localOffset, LocalKey);
    for (int offset = FirstOffset; offset <= LastOffset; offset += OffsetStep)
        if (offset != 0)
            items.emplace_back(NameOf(offset), offset, offset);
    return items;
}

int TimeZones::LocalOffset() { return QDateTime::currentDateTime().offsetFromUtc(); }
