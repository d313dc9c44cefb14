// SPDX-License-Identifier: MIT
#include "ytypedefinition.h"

#include <array>
#include <cstddef>

namespace {

using Names = std::array<char const *, 6>; // by place; null: not offered

struct KindRow
{
    YTypeDefinition::Kind kind;
    Names curve;
    Names waterfall;
};

constexpr std::array<KindRow, 4> KindRows{ {
    { YTypeDefinition::eSpectrum, { "Level" }, { "Level" } },
    { YTypeDefinition::eDirectionFinder,
      { "Level", "Azimuth", "Elevation", "Quality" },
      { "Level", "Azimuth", "Elevation", "Quality" } },
    { YTypeDefinition::eAzimuthFinder,
      { "Level", "Azimuth", nullptr, "Quality" },
      { "Level", "Azimuth", nullptr, "Quality" } },
    { YTypeDefinition::eTimeSignal, { "Level", nullptr, nullptr, nullptr, "Frequency", "Phase" }, { "Level" } },
} };

constexpr bool IsOrdered()
{
    for (std::size_t i = 0; i < KindRows.size(); ++i)
        if (static_cast<std::size_t>(KindRows[i].kind) != i)
            return false;
    return true;
}

static_assert(IsOrdered(), "a kind is the index of its row");

std::vector<QString> Dimensions(int kind, Names KindRow::*names)
{
    std::vector<QString> dimensions;
    if (kind < 0 || kind >= static_cast<int>(KindRows.size()))
        return dimensions;
    for (char const * const name : KindRows[static_cast<std::size_t>(kind)].*names)
        dimensions.push_back(QLatin1String(name));
    while (dimensions.back().isEmpty())
        dimensions.pop_back();
    return dimensions;
}

} // namespace

std::vector<QString> YTypeDefinition::GetCurveDimensions(int kind) { return Dimensions(kind, &KindRow::curve); }

std::vector<QString> YTypeDefinition::GetWaterfallDimensions(int kind) { return Dimensions(kind, &KindRow::waterfall); }
