// SPDX-License-Identifier: MIT
#ifndef ORIM_SIGNALTYPES_H
#define ORIM_SIGNALTYPES_H

#include <QtGlobal>

#include <array>

//! One letter of the designation of emissions and how its main carrier is modulated.
struct SignalType
{
    char letter;
    char const * text; // translated in the context "GuiBase"
};

constexpr std::array<SignalType, 18> SignalTypes{ {
    { 'A', QT_TRANSLATE_NOOP("GuiBase", "Amplitude modulation, double sideband") },
    { 'B', QT_TRANSLATE_NOOP("GuiBase", "Amplitude modulation, independent sidebands") },
    { 'C', QT_TRANSLATE_NOOP("GuiBase", "Amplitude modulation, vestigial sideband") },
    { 'D', QT_TRANSLATE_NOOP("GuiBase", "Amplitude and angle modulation") },
    { 'F', QT_TRANSLATE_NOOP("GuiBase", "Frequency modulation") },
    { 'G', QT_TRANSLATE_NOOP("GuiBase", "Phase modulation") },
    { 'H', QT_TRANSLATE_NOOP("GuiBase", "Single sideband, full carrier") },
    { 'J', QT_TRANSLATE_NOOP("GuiBase", "Single sideband, suppressed carrier") },
    { 'K', QT_TRANSLATE_NOOP("GuiBase", "Pulses, amplitude modulated") },
    { 'L', QT_TRANSLATE_NOOP("GuiBase", "Pulses, width modulated") },
    { 'M', QT_TRANSLATE_NOOP("GuiBase", "Pulses, position modulated") },
    { 'N', QT_TRANSLATE_NOOP("GuiBase", "Unmodulated carrier") },
    { 'P', QT_TRANSLATE_NOOP("GuiBase", "Pulses, unmodulated") },
    { 'Q', QT_TRANSLATE_NOOP("GuiBase", "Pulses, angle modulated") },
    { 'R', QT_TRANSLATE_NOOP("GuiBase", "Single sideband, reduced carrier") },
    { 'V', QT_TRANSLATE_NOOP("GuiBase", "Pulses, several modulations") },
    { 'W', QT_TRANSLATE_NOOP("GuiBase", "Several modulations") },
    { 'X', QT_TRANSLATE_NOOP("GuiBase", "Other modulation") },
} };

constexpr bool SignalTypesRise()
{
    for (std::size_t i = 1; i < SignalTypes.size(); ++i)
        if (SignalTypes[i].letter <= SignalTypes[i - 1].letter)
            return false;
    return true;
}

static_assert(SignalTypesRise(), "each letter once, in order");

#endif
