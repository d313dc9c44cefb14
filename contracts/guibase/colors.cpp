// SPDX-License-Identifier: MIT
#include "colors.h"

#include "colorset.h"
#include "colortable.h"

#include <QCoreApplication>

#include <algorithm>

ColorDefinition::ColorDefinition(int id, char const * name) : m_id(id), m_name(name) {}

QString ColorDefinition::GetName() const { return QCoreApplication::translate("Colors", m_name); }

Colors::Colors()
{
    m_definitions.reserve(ColorTable::Definitions.size());
    for (auto const & row : ColorTable::Definitions)
        m_definitions.emplace_back(row.number, row.name);
    Load(0);
}

Colors & Colors::Instance()
{
    static auto * const palette = new Colors; // never destroyed: colours may be asked for at process exit
    return *palette;
}

ColorDefinition * Colors::GetColorDefinition(int id)
{
    ColorSet::Instance(); // loads the stored set on first use
    auto const below = [](ColorDefinition const & definition, int number) { return definition.GetId() < number; };
    auto const found = std::lower_bound(m_definitions.begin(), m_definitions.end(), id, below);
    return found != m_definitions.end() && found->GetId() == id ? &*found : nullptr;
}

std::vector<int> Colors::GetIds() const
{
    std::vector<int> ids;
    ids.reserve(m_definitions.size());
    for (auto const & definition : m_definitions)
        ids.push_back(definition.GetId());
    return ids;
}

bool Colors::Load(int set)
{
    if (set < 0 || set >= ColorTable::SetCount)
        return false;
    for (std::size_t i = 0; i < m_definitions.size(); ++i)
        m_definitions[i].GetColor() = QColor::fromRgb(ColorTable::Definitions[i].rgb[static_cast<std::size_t>(set)]);
    return true;
}
