// SPDX-License-Identifier: MIT
#include "agedpalette.h"

#include "pixelmap.h"
#include "toint.h"

#include <algorithm>
#include <cstddef>

namespace {

constexpr double MostAgeingColors = AgedPalette::MarkerEntry;

//! Colours of all blocks; exact up to 2^53, which is far beyond what fits.
double AllColors(int sections, int colorsPerSection, int qualitySteps)
{
    return static_cast<double>(sections) * colorsPerSection * qualitySteps;
}

} // namespace

AgedPalette::Scale AgedPalette::ScaleOf(int steps, int sections, int qualitySteps)
{
    int const seconds = std::max(steps, 0);
    HoldTimeRow const & row = *std::find_if(HoldTimeRows.begin(), HoldTimeRows.end() - 1,
                                            [seconds](HoldTimeRow const & each) { return seconds >= each.from; });
    Scale scale{ seconds, row.ticDistance, seconds / row.ticDistance + 1, row.colors };
    while (scale.colorsPerSection > 1 && AllColors(sections, scale.colorsPerSection, qualitySteps) > MostAgeingColors)
        --scale.colorsPerSection;
    return scale;
}

int AgedPalette::SwitchTime(int seconds, int colorsPerSection, int sections)
{
    double const colors = static_cast<double>(colorsPerSection) * sections;
    return colors == 0.0 ? 0 : toInt(seconds * 1000.0 / colors);
}

bool AgedPalette::Fit(Grading & grading)
{
    int const blocks = std::max(grading.qualitySteps, 1);
    int const sections = std::max(grading.sections, 0);
    Grading fitting = grading;
    if (AllColors(sections, fitting.colorsPerSection, blocks) > MostAgeingColors) {
        fitting.colorsPerSection /= 2;
        fitting.switchTime = ClampToInt(2LL * fitting.switchTime);
        if (AllColors(sections, fitting.colorsPerSection, blocks) > MostAgeingColors)
            return false;
    }
    grading = fitting;
    grading.colorsPerQualityStep = grading.colorsPerSection > 0 ? sections * grading.colorsPerSection : 0;
    return true;
}

QRgb AgedPalette::Fade(QRgb color, int section, int sections)
{
    double const part = (section + 1.0) / sections;
    if (part >= 1.0)
        return color;
    auto const channel = [part](int full) { return toInt(full * part); };
    return part > 0.0 ? qRgb(channel(qRed(color)), channel(qGreen(color)), channel(qBlue(color))) : qRgb(0, 0, 0);
}

void AgedPalette::Paint(Grading const & grading, ColorOfValue const & ageColor, ColorOfValue const & qualityColor,
                        std::vector<unsigned int> & colors)
{
    if (grading.colorsPerQualityStep < 1)
        return;
    int const length = grading.colorsPerSection;
    auto next = colors.begin();
    auto const paintSection = [&next, length](QRgb color) { next = std::fill_n(next, length, color); };
    if (grading.qualitySteps <= 1) {
        for (int i = 0; i < grading.sections; ++i)
            paintSection(ageColor((i + 1) * length, grading.colorsPerQualityStep));
        return;
    }
    for (int quality = 0; quality < grading.qualitySteps; ++quality) {
        QRgb const color = qualityColor(quality, grading.qualitySteps - 1);
        for (int i = 0; i < grading.sections; ++i)
            paintSection(Fade(color, i, grading.sections));
    }
}

int AgedPalette::PositionAfter(int position, int count) { return count > 0 ? (position - 1 + count) % count : 0; }

int AgedPalette::CurrentColor(int position, int count) { return count > 0 ? (position + 1) % count : 0; }

int AgedPalette::IndexOfAge(int age, int position, int count)
{
    return count > 0 ? (position - age + count) % count : 0;
}

int AgedPalette::EqualSteps(unsigned long long steps, int count)
{
    if (count < 1)
        return 0;
    auto const turn = static_cast<unsigned long long>(count);
    return static_cast<int>(steps <= turn ? steps : turn + steps % turn);
}

int AgedPalette::PixelIndex(int current, int count, int qualitySteps, int quality)
{
    if (qualitySteps < 2)
        return current;
    int const block = quality < 0 || quality >= qualitySteps ? qualitySteps - 1 : quality;
    long long const index = current + static_cast<long long>(block) * count;
    return index < MarkerEntry ? static_cast<int>(index) : -1;
}
