// SPDX-License-Identifier: MIT
#include "levelgradients.h"

#include "guibase.h"
#include "guicentral.h"
#include "shadingcolorset.h"
#include "vc.h"

#include <QCoreApplication>

#include <array>

namespace {

// interpolating, over the range of whoever shows it; the colours from high to low as in every set for levels
constexpr std::array<LevelGradients::Gradient, 5> Gradients{ {
    { "classic", QT_TRANSLATE_NOOP("LevelGradients", "Classic"),
      "V02;7;1;0;0;100;0;0;0;#000000;#ff3b1f;#fde047;#8fd14f;#12b0a0;#0b62b8;#0a1f73;#00001c;" },
    { "heat", QT_TRANSLATE_NOOP("LevelGradients", "Heat"),
      "V02;6;1;0;0;100;0;0;0;#000000;#fffbe0;#fbb13c;#e4572e;#9b1f5a;#3b0f5e;#04020c;" },
    { "sea", QT_TRANSLATE_NOOP("LevelGradients", "Sea"),
      "V02;5;1;0;0;100;0;0;0;#000000;#f6fbe4;#7fcf9b;#16808a;#0b3a5b;#03101c;" },
    { "grey", QT_TRANSLATE_NOOP("LevelGradients", "Grey"), "V02;2;1;0;0;100;0;0;0;#000000;#ffffff;#000000;" },
    { "amber", QT_TRANSLATE_NOOP("LevelGradients", "Amber"),
      "V02;4;1;0;0;100;0;0;0;#000000;#ffe0a0;#c46a00;#4a1d00;#050200;" },
} };

} // namespace

int LevelGradients::Count() { return static_cast<int>(Gradients.size()); }

LevelGradients::Gradient const & LevelGradients::At(int index)
{
    bool const exists = index >= 0 && index < Count();
    return Gradients[exists ? static_cast<std::size_t>(index) : 0];
}

ShadingColorSet & LevelGradients::CurrentSet()
{
    GuiCentral & central = GuiCentral::Instance();
    std::vector<ShadingColorSet> & sets = central.GetWaterfallColorSets();
    int const id = central.GetColorSetIdForRoleId(VC::eShadingLevel - 1);
    bool const exists = id >= 0 && id < static_cast<int>(sets.size());
    return sets[exists ? static_cast<std::size_t>(id) : 0];
}

void LevelGradients::Choose(int index)
{
    if (index < 0 || index >= Count())
        return;
    ShadingColorSet & set = CurrentSet();
    QString const line = QLatin1String(At(index).line);
    if (set.GetString() == line)
        return;
    set.SetString(line);
    GuiBase::Instance().emit_signalColorsChanged();
}
