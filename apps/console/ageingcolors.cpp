// SPDX-License-Identifier: MIT
#include "ageingcolors.h"

#include "agedpalette.h"
#include "guibase.h"
#include "guicentral.h"
#include "panecolors.h"
#include "shadingcolorset.h"
#include "vc.h"

#include <QColor>
#include <QScopedValueRollback>

#include <algorithm>
#include <array>

namespace {

constexpr double HalfLife = 0.5; // part of the trace's colour in the ground, in the middle of the set

//! The set that serves a role; null where levels are served by the same.
ShadingColorSet * SetOf(VC::EShadingColor role)
{
    GuiCentral & central = GuiCentral::Instance();
    std::vector<ShadingColorSet> & sets = central.GetWaterfallColorSets();
    auto const idOf = [&](VC::EShadingColor shading) {
        return central.GetColorSetIdForRoleId(static_cast<unsigned int>(shading) - 1U);
    };
    int const id = idOf(role);
    bool const isOwn = id != idOf(VC::eShadingLevel);
    bool const exists = id >= 0 && id < static_cast<int>(sets.size());
    return isOwn && exists ? &sets[static_cast<std::size_t>(id)] : nullptr;
}

} // namespace

bool AgeingColors::Fit(bool byQuality)
{
    static bool telling = false; // two who want different grounds would go on for ever
    ShadingColorSet * const set = SetOf(VC::eShadingAgeing);
    if (!set || telling)
        return false;
    PaneColors const colors = CurrentPaneColors();
    QColor const ground = byQuality ? QColor(Qt::black) : colors.ground;
    std::array<QColor, 3> const ages{ { colors.trace, PaneLayout::Mix(ground, colors.trace, HalfLife), ground } };
    bool const isSame = set->GetSmooth() && set->GetUseMinIndexBackground() &&
                        std::equal(ages.begin(), ages.end(), set->GetVector().begin(), set->GetVector().end());
    if (isSame)
        return false;
    set->Resize(ages.size());
    std::copy(ages.begin(), ages.end(), set->GetVector().begin());
    set->SetSmooth(true);
    set->SetUseMinIndexBackground(true);
    QScopedValueRollback<bool> const guard(telling, true);
    GuiBase::Instance().emit_signalColorsChanged();
    return true;
}

std::vector<std::vector<QRgb>> AgeingColors::Ages(int sections, int qualities)
{
    GuiCentral & central = GuiCentral::Instance();
    int const steps = std::max(1, sections);
    int const blocks = std::max(1, qualities);
    std::vector<std::vector<QRgb>> ages(static_cast<std::size_t>(blocks));
    for (int quality = 0; quality < blocks; ++quality) {
        QRgb const best = central.GetShadingRGB(quality, VC::eShadingQuality, 0.0, blocks - 1.0, true);
        for (int section = steps; section > 0; --section)
            ages[static_cast<std::size_t>(quality)].push_back(
                blocks > 1 ? AgedPalette::Fade(best, section - 1, steps)
                           : central.GetShadingRGB(section, VC::eShadingAgeing, 0.0, steps, true));
    }
    return ages;
}
