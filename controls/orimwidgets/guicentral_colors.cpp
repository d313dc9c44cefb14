// SPDX-License-Identifier: MIT
#include "guicentral.h"

#include "colors.h"
#include "colorset.h"
#include "factorycolorsets.h"
#include "guibase.h"
#include "persistantshadingcolorset.h"

#include <QPen>

#include <algorithm>

namespace {

using namespace FactoryColorSets;

//! Gives a set everything of its row but the name.
void Build(ShadingColorSet & set, Row const & row)
{
    bool const isSmooth = (row.flags & eSmooth) != 0;
    set = ShadingColorSet(row.length, isSmooth); // the line of text resets all that is not set below
    set.SetFixed((row.flags & eFixed) != 0);
    set.SetStart(row.start);
    set.SetStop(row.stop);
    set.SetWrap((row.flags & eWrap) != 0);
    set.SetWriteable((row.flags & eWriteable) != 0);
    set.SetPureIndexUse((row.flags & ePureIndex) != 0);
    if (row.line) {
        set.SetString(QString::fromLatin1(row.line));
        return;
    }
    for (std::size_t i = 0; i < row.length; ++i)
        set.SetColorNr(static_cast<int>(i), QColor::fromRgb(row.colors.rgb[std::min(i, row.colors.count - 1)]));
    set.SetUseMinIndexBackground((row.flags & eLastIsBackground) != 0); // copies the last colour
}

void Paint(ShadingColorSet & set, PaletteRun const & run)
{
    ColorDefinition * const definition = Colors::Instance().GetColorDefinition(run.definition);
    for (int i = run.first; definition && i <= run.last; ++i)
        set.SetColorNr(i, definition->GetColor());
}

} // namespace

void GuiCentral::ApplyFactoryColorSetIdForRoleId() { m_colorSetIdForRoleId.assign(Roles.begin(), Roles.end()); }

void GuiCentral::BuildFactoryColorSets()
{
    ColorSet::Instance(); // loads the palette that some sets take their colours from
    m_waterfallColorSets.resize(Count);
    for (std::size_t i = 0; i < Count; ++i)
        Build(m_waterfallColorSets[i], Rows[i]);
    for (PaletteRun const & run : PaletteRuns)
        Paint(m_waterfallColorSets[run.set], run);
    for (std::size_t i = 0; i < Count; ++i)
        m_waterfallColorSets[i].SetName(tr(Rows[i].name));
}

void GuiCentral::AddPersistedColors()
{
    for (std::size_t i = 0; i < PersistedRoleCount; ++i)
        m_persistant->Add(&m_colorSetIdForRoleId[i], QString::fromLatin1(RoleKeys[i]), m_colorSetIdForRoleId[i]);
    for (std::size_t i = 0; i < UserCount; ++i) {
        ShadingColorSet & set = m_waterfallColorSets[i];
        m_persistant->Add(new PersistantShadingColorSet(&set, QString::fromLatin1(UserKeys[i]), set.GetString()));
    }
}

void GuiCentral::slotRestoreFactoryColors()
{
    ApplyFactoryColorSetIdForRoleId();
    BuildFactoryColorSets();
    ColorSet::Instance().slotRestoreFactoryColors();
    GuiBase::Instance().emit_signalColorsChanged();
}

int GuiCentral::GetColorSetIdForRoleId(unsigned int role) const
{
    return role < RoleCount ? m_colorSetIdForRoleId[role] : 0;
}

ShadingColorSet * GuiCentral::SetOfId(int id)
{
    if (id < 1 || id > static_cast<int>(RoleCount) || m_waterfallColorSets.empty())
        return nullptr;
    int const stored = GetColorSetIdForRoleId(static_cast<unsigned int>(id) - 1);
    auto const set = static_cast<std::size_t>(stored); // a negative number is beyond the end
    return &m_waterfallColorSets[set < m_waterfallColorSets.size() ? set : 0];
}

QRgb GuiCentral::GetShadingRGB(double value, int id, double min, double max, bool inverse)
{
    ShadingColorSet * const set = SetOfId(id);
    return set ? set->GetColor(value, min, max, inverse).rgb() : 0;
}

QPen GuiCentral::GetShadingPen(double value, int id, double min, double max, bool inverse)
{
    return { QColor(GetShadingRGB(value, id, min, max, inverse)) };
}

QRgb GuiCentral::GetBackgroundRGB(int id)
{
    QColor color = ColorSet::Instance()[IColorBase::eColorShadingBackground];
    if (ShadingColorSet * const set = SetOfId(id))
        set->GetBackgroundColor(color);
    return color.rgb();
}

QPen GuiCentral::GetBackgroundPen(int id) { return { QColor(GetBackgroundRGB(id)) }; }

bool GuiCentral::isColorSetFixed(int id)
{
    ShadingColorSet const * const set = SetOfId(id);
    return set && set->GetFixed();
}
