// SPDX-License-Identifier: MIT
#include "guibase.h"

#include "displaytables.h"
#include "guibasevalues.h"
#include "toint.h"
#include "tree.h"

#include <QTimer>

#include <memory>

namespace {

constexpr int LocalTimePeriod = 60000; // ms: summer time is noticed within a minute

QString const & Folder()
{
    static QString const folder = QStringLiteral("/GuiBase");
    return folder;
}

std::vector<SelectionItem> FrequencyItems()
{
    std::vector<SelectionItem> items;
    for (auto const & row : FrequencyUnits)
        items.emplace_back(QString::fromLatin1(row.name), row.factor, row.key);
    return items;
}

std::vector<SelectionItem> PositionItems()
{
    std::vector<SelectionItem> items;
    for (auto const & row : PositionFormats)
        items.emplace_back(GuiBase::tr(row.name), static_cast<double>(row.key), row.key);
    return items;
}

//! The selection that is held, else the one at its path, else a new one there.
//! \param isOwn  set to whether it is a new one when none was held; may be null.
ValueSelection * Provide(ValuePtr<ValueSelection> & held, char const * name, std::vector<SelectionItem> (*makeItems)(),
                         long chosen, bool * isOwn = nullptr)
{
    Tree * const tree = Tree::Instance();
    if (held || !tree)
        return held.Get();
    auto made = std::make_unique<ValueSelection>(QString::fromLatin1(name));
    made->AddItems(makeItems());
    made->Select(chosen, nullptr);
    bool const isInserted = tree->Insert(Folder(), made.get());
    if (isInserted)
        made.release(); // the tree owns it
    if (isOwn)
        *isOwn = isInserted;
    held.Bind(Folder() + QLatin1Char('/') + QLatin1String(name));
    return held.Get();
}

} // namespace

ValueSelection * GuiBase::GetFrequencyUnit()
{
    return Provide(m_pValues->frequencyUnit, "FrequencyUnit", FrequencyItems, SuffixedDouble::eSuffixMega);
}

void GuiBase::SetFrequencyUnit(SuffixedDouble::ESuffix unit)
{
    if (ValueSelection * const selection = GetFrequencyUnit())
        selection->Select(static_cast<long>(unit), nullptr);
}

ValueSelection * GuiBase::GetPositionFormat()
{
    return Provide(m_pValues->positionFormat, "PositionFormat", PositionItems, PositionFormats.front().key);
}

ValueSelection * GuiBase::GetTimeZone()
{
    return Provide(
        m_pValues->timeZone, "TimeZone", [] { return TimeZones::Items(TimeZones::LocalOffset()); }, TimeZones::UtcKey,
        &m_pValues->isOwnTimeZone);
}

long long GuiBase::GetTimeZoneValue()
{
    ValueSelection const * const selection = GetTimeZone();
    return selection ? toInt<long long>(selection->GetCurrentValue()) : 0;
}

void GuiBase::slotUpdateLocalTime()
{
    ValueSelection * const selection = GetTimeZone();
    if (!m_pValues->isOwnTimeZone)
        return;
    SelectionItem const * const local = selection ? selection->GetItem(TimeZones::LocalKey) : nullptr;
    int const offset = TimeZones::LocalOffset();
    if (!local || local->GetValue() == offset)
        return;
    ValueSelection fresh;
    fresh.AddItems(TimeZones::Items(offset));
    if (selection->GetCurrentItem())
        fresh.Select(selection->GetCurrentKey(), nullptr);
    *selection = fresh;
}

void GuiBase::WatchLocalTime(QObject * owner)
{
    auto * const timer = new QTimer(owner);
    connect(timer, &QTimer::timeout, this, &GuiBase::slotUpdateLocalTime);
    timer->start(LocalTimePeriod);
    m_pLocalTimeTimer = timer;
}
