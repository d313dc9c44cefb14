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
    set.SetWriteable((row.flags & eWriteable) != 0);
    set.SetPureIndexUse((row.flags & ePureIndex) != 0);
    if (!(row.flags & eTextAlone))
        set = ShadingColorSet(row.length, (row.flags & eSmooth) != 0); // resets all that is not set here
    if (row.line) {
        set.SetString(QString::fromLatin1(row.line));
        return;
    }
    set.SetFixed((row.flags & eFixed) != 0);
    set.SetStart(row.start);
    set.SetStop(row.stop);
    set.SetWrap((row.flags & eWrap) != 0);
    for (std::size_t i = 0; i < row.length; ++i)
        set.SetColorNr(static_cast<int>(i), QColor::fromRgb(row.colors.rgb[std::min(i, row.colors.count - 1)]));
    set.SetUseMinIndexBackground((row.flags & eLastIsBackground) != 0); // copies the last colour
}

//! One of the operator's sets, wherever the list has it at the time; none when the list became too short.
class PersistantListEntry : public PersistantObject
{
public:
    PersistantListEntry(std::vector<ShadingColorSet> & sets, std::size_t index)
        : m_sets(sets)
        , m_index(index)
        , m_defaultText(sets[index].GetString())
    {}

    void Read(ICfg * store) override { Item().Read(store); }

    void Write(ICfg * store) override { Item().Write(store); }

    void RestoreDefault() override { Item().RestoreDefault(); }

private:
    PersistantShadingColorSet Item()
    {
        ShadingColorSet * const set = m_index < m_sets.size() ? &m_sets[m_index] : nullptr;
        return { set, QString::fromLatin1(UserKeys[m_index]), m_defaultText };
    }

    std::vector<ShadingColorSet> & m_sets;
    std::size_t m_index;
    QString m_defaultText;
};

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
    for (std::size_t i = 0; i < UserCount; ++i)
        m_persistant->Add(new PersistantListEntry(m_waterfallColorSets, i));
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
