// SPDX-License-Identifier: MIT
#ifndef ORIM_DISPLAYTABLES_H
#define ORIM_DISPLAYTABLES_H

#include "orimcontracts_export.h"
#include "suffixeddouble.h"
#include "valueselection.h"

#include <QtGlobal>

#include <array>
#include <vector>

//! Unit of frequencies: its key is the prefix, its number the factor from hertz.
struct FrequencyUnitRow
{
    char const * name;
    double factor; // Hz
    SuffixedDouble::ESuffix key;
};

constexpr std::array<FrequencyUnitRow, 4> FrequencyUnits{ {
    { "Hz", 1.0, SuffixedDouble::eSuffixNone },
    { "kHz", 1e3, SuffixedDouble::eSuffixKilo },
    { "MHz", 1e6, SuffixedDouble::eSuffixMega },
    { "GHz", 1e9, SuffixedDouble::eSuffixGiga },
} };

//! How geographic positions are written.
struct PositionFormatRow
{
    char const * name; // translated in the context "GuiBase"
    long key;          // stored, so it stays
};

constexpr std::array<PositionFormatRow, 5> PositionFormats{ {
    { QT_TRANSLATE_NOOP("GuiBase", "Degrees"), 0 },
    { QT_TRANSLATE_NOOP("GuiBase", "Degrees, minutes"), 1 },
    { QT_TRANSLATE_NOOP("GuiBase", "Degrees, minutes, seconds"), 2 },
    { QT_TRANSLATE_NOOP("GuiBase", "UTM"), 3 },
    { QT_TRANSLATE_NOOP("GuiBase", "MGRS"), 4 },
} };

//! The time zones that can be chosen; the number of an item is its offset in seconds from UTC.
namespace TimeZones {

constexpr long UtcKey = 0;
constexpr long LocalKey = 1;            // any other key is the offset in seconds
constexpr int FirstOffset = -12 * 3600; // s
constexpr int LastOffset = 14 * 3600;   // s
constexpr int OffsetStep = 1800;        // s

//! UTC, local time, then the whole and half hours from UTC-12:00 to UTC+14:00 without UTC itself.
//! \param localOffset  offset of local time at present, s.
ORIMCONTRACTS_EXPORT std::vector<SelectionItem> Items(int localOffset);
//! Offset of local time from UTC at present, s.
ORIMCONTRACTS_EXPORT int LocalOffset();

} // namespace TimeZones

#endif
