// SPDX-License-Identifier: MIT
#ifndef ORIM_COLORTABLE_H
#define ORIM_COLORTABLE_H

#include <QtGlobal>

#include <array>

//! The factory colours as data: one row a colour, each with its value in every set.
namespace ColorTable {

constexpr int SetCount = 3;

//! Names of the sets, in the order of their index; the context of their translation is ColorSet.
constexpr std::array<char const *, SetCount> SetNames{ {
    QT_TRANSLATE_NOOP("ColorSet", "Day"),
    QT_TRANSLATE_NOOP("ColorSet", "Night"),
    QT_TRANSLATE_NOOP("ColorSet", "High contrast"),
} };

struct Row
{
    int number;
    char const * name;
    std::array<unsigned int, SetCount> rgb; // 0xrrggbb in each set
};

// The markers 30, 31, 34, 36 and 150 and the traces 151 to 153 are told apart without red and without green cones.
constexpr std::array<Row, 36> Colors{ {
    { 1, QT_TRANSLATE_NOOP("ColorSet", "Axis text and tics"), { { 0x14181d, 0xc9d1d9, 0xffffff } } },
    { 2, QT_TRANSLATE_NOOP("ColorSet", "Axis background"), { { 0xffffff, 0x0b0e12, 0x000000 } } },
    { 3, QT_TRANSLATE_NOOP("ColorSet", "Shading background"), { { 0xf4f6f8, 0x000000, 0x000000 } } },
    { 4, QT_TRANSLATE_NOOP("ColorSet", "Grid"), { { 0xc3cad3, 0x2a313a, 0x7a7a7a } } },
    { 10, QT_TRANSLATE_NOOP("ColorSet", "Window"), { { 0xf0f2f4, 0x12161b, 0x000000 } } },
    { 11, QT_TRANSLATE_NOOP("ColorSet", "Window text"), { { 0x14181d, 0xc9d1d9, 0xffffff } } },
    { 12, QT_TRANSLATE_NOOP("ColorSet", "Entry field"), { { 0xffffff, 0x0b0e12, 0x000000 } } },
    { 13, QT_TRANSLATE_NOOP("ColorSet", "Entry text"), { { 0x14181d, 0xd6dde4, 0xffffff } } },
    { 14, QT_TRANSLATE_NOOP("ColorSet", "Selection"), { { 0x1f4e8c, 0x1c4a75, 0xffff00 } } },
    { 15, QT_TRANSLATE_NOOP("ColorSet", "Selected text"), { { 0xffffff, 0xf0f6fc, 0x000000 } } },
    { 16, QT_TRANSLATE_NOOP("ColorSet", "Button"), { { 0xe1e5e9, 0x222931, 0x1f1f1f } } },
    { 17, QT_TRANSLATE_NOOP("ColorSet", "Button text"), { { 0x14181d, 0xc9d1d9, 0xffffff } } },
    { 18, QT_TRANSLATE_NOOP("ColorSet", "Disabled text"), { { 0x7a838d, 0x6b7580, 0x9a9a9a } } },
    { 30, QT_TRANSLATE_NOOP("ColorSet", "Client window, first border"), { { 0x228888, 0x009999, 0x009999 } } },
    { 31, QT_TRANSLATE_NOOP("ColorSet", "Client window, second border"), { { 0x2288ee, 0x5577ff, 0x0077dd } } },
    { 34, QT_TRANSLATE_NOOP("ColorSet", "Result marker"), { { 0x662200, 0x77bbff, 0x779900 } } },
    { 36, QT_TRANSLATE_NOOP("ColorSet", "Selected result marker"), { { 0x0022ee, 0x00ffbb, 0x55dd99 } } },
    { 37, QT_TRANSLATE_NOOP("ColorSet", "Ruler read-out"), { { 0x0b4f8a, 0x79c0ff, 0x66ffff } } },
    { 42, QT_TRANSLATE_NOOP("ColorSet", "Marker in an ageing image"), { { 0xc2005c, 0xff66b2, 0xff80c0 } } },
    { 61, QT_TRANSLATE_NOOP("ColorSet", "Caption in focus"), { { 0x1f4e8c, 0x1c4a75, 0xffff00 } } },
    { 62, QT_TRANSLATE_NOOP("ColorSet", "Caption text in focus"), { { 0xffffff, 0xf0f6fc, 0x000000 } } },
    { 63, QT_TRANSLATE_NOOP("ColorSet", "Caption"), { { 0xc3cad3, 0x2a313a, 0x3d3d3d } } },
    { 64, QT_TRANSLATE_NOOP("ColorSet", "Caption text"), { { 0x30363d, 0xaab4bf, 0xffffff } } },
    { 65, QT_TRANSLATE_NOOP("ColorSet", "Caption centre text in focus"), { { 0xffe08a, 0xffd866, 0x00006b } } },
    { 66, QT_TRANSLATE_NOOP("ColorSet", "Axis scale"), { { 0xe9ecef, 0x161b21, 0x000000 } } },
    { 85, QT_TRANSLATE_NOOP("ColorSet", "Centre read-out"), { { 0x7a1f5c, 0xf2b6e0, 0xff8cff } } },
    { 87, QT_TRANSLATE_NOOP("ColorSet", "Bearings to starboard"), { { 0x8cc4ea, 0x12496b, 0x0a4a8f } } },
    { 88, QT_TRANSLATE_NOOP("ColorSet", "Bearings to port"), { { 0xf6b26b, 0x74400a, 0x8a3c00 } } },
    { 89, QT_TRANSLATE_NOOP("ColorSet", "Bearings ahead and astern"), { { 0xd5dae0, 0x2a313a, 0x2e2e2e } } },
    { 90, QT_TRANSLATE_NOOP("ColorSet", "Good state"), { { 0x0a6640, 0x4fe08a, 0x80ff80 } } },
    { 91, QT_TRANSLATE_NOOP("ColorSet", "Warning"), { { 0xa01414, 0xff9d7a, 0xffb000 } } },
    { 150, QT_TRANSLATE_NOOP("ColorSet", "Marker"), { { 0x000000, 0x77ffff, 0x77bbff } } },
    { 151, QT_TRANSLATE_NOOP("ColorSet", "Spectrum trace"), { { 0x000066, 0xddff00, 0xffff33 } } },
    { 152, QT_TRANSLATE_NOOP("ColorSet", "Maximum trace"), { { 0xcc4400, 0xff5500, 0xdd3377 } } },
    { 153, QT_TRANSLATE_NOOP("ColorSet", "Position cursor"), { { 0xcc0066, 0xff0077, 0xffffff } } },
    { 154, QT_TRANSLATE_NOOP("ColorSet", "Frame"), { { 0x6b7580, 0x59636e, 0xffffff } } },
} };

struct Ground
{
    int number;
    int ground;     // number of the colour behind it
    double minimum; // contrast that every set keeps: 4.5 for text, 3 for lines
};

constexpr double TextContrast = 4.5;
constexpr double LineContrast = 3.0;

//! What stands on what. A colour with several grounds shows the first to the operator who edits it.
constexpr std::array<Ground, 35> Grounds{ {
    { 1, 66, TextContrast },  { 1, 2, TextContrast },    { 1, 87, TextContrast },  { 1, 88, TextContrast },
    { 1, 89, TextContrast },  { 11, 10, TextContrast },  { 13, 12, TextContrast }, { 15, 14, TextContrast },
    { 17, 16, TextContrast }, { 18, 10, LineContrast },  { 30, 2, LineContrast },  { 30, 66, LineContrast },
    { 31, 2, LineContrast },  { 31, 66, LineContrast },  { 34, 2, LineContrast },  { 34, 66, LineContrast },
    { 36, 2, LineContrast },  { 36, 66, LineContrast },  { 37, 66, TextContrast }, { 37, 2, TextContrast },
    { 42, 3, TextContrast },  { 62, 61, TextContrast },  { 64, 63, TextContrast }, { 65, 61, TextContrast },
    { 85, 66, TextContrast }, { 85, 2, TextContrast },   { 90, 10, TextContrast }, { 91, 10, TextContrast },
    { 150, 2, LineContrast }, { 150, 66, LineContrast }, { 151, 2, LineContrast }, { 151, 66, LineContrast },
    { 152, 2, LineContrast }, { 152, 66, LineContrast }, { 153, 2, LineContrast },
} };

//! The definitions of Colors: numbers from 1000 on, named for what they look like.
constexpr std::array<Row, 16> Definitions{ {
    { 1000, QT_TRANSLATE_NOOP("Colors", "Foreground"), { { 0x14181d, 0xf0f6fc, 0xffffff } } },
    { 1001, QT_TRANSLATE_NOOP("Colors", "Gray"), { { 0x6b7580, 0x8b949e, 0xa0a0a0 } } },
    { 1002, QT_TRANSLATE_NOOP("Colors", "Red"), { { 0xc8102e, 0xd61f3c, 0xff2b2b } } },
    { 1003, QT_TRANSLATE_NOOP("Colors", "Amber"), { { 0xb37a00, 0xffb52e, 0xffb000 } } },
    { 1004, QT_TRANSLATE_NOOP("Colors", "Green"), { { 0x35c46a, 0x4fe08a, 0x80ff80 } } },
    { 1005, QT_TRANSLATE_NOOP("Colors", "Olive"), { { 0x667700, 0xa8b820, 0xb8cc00 } } },
    { 1006, QT_TRANSLATE_NOOP("Colors", "Blue"), { { 0x0022ee, 0x5577ff, 0x6688ff } } },
    { 1007, QT_TRANSLATE_NOOP("Colors", "Light blue"), { { 0x2288ee, 0x77bbff, 0x99ccff } } },
    { 1008, QT_TRANSLATE_NOOP("Colors", "Azure"), { { 0x0068c8, 0x1f5cff, 0x1a5cff } } },
    { 1009, QT_TRANSLATE_NOOP("Colors", "Teal"), { { 0x008080, 0x2ec4b6, 0x33dddd } } },
    { 1010, QT_TRANSLATE_NOOP("Colors", "Violet"), { { 0x5b2fc0, 0xa78bff, 0xb499ff } } },
    { 1011, QT_TRANSLATE_NOOP("Colors", "Pink"), { { 0xcc0066, 0xff7eb6, 0xff99cc } } },
    { 1012, QT_TRANSLATE_NOOP("Colors", "Magenta"), { { 0x8a0078, 0xff85c8, 0xff80ff } } },
    { 1013, QT_TRANSLATE_NOOP("Colors", "Brown"), { { 0x662200, 0xb07a4f, 0xcc9966 } } },
    { 1014, QT_TRANSLATE_NOOP("Colors", "Orange"), { { 0xe06a00, 0xff6a1f, 0xff6600 } } },
    { 1015, QT_TRANSLATE_NOOP("Colors", "Background"), { { 0xffffff, 0x0b0e12, 0x000000 } } },
} };

template <std::size_t N>
constexpr bool IsRising(std::array<Row, N> const & rows)
{
    for (std::size_t i = 1; i < N; ++i)
        if (rows[i].number <= rows[i - 1].number)
            return false;
    return true;
}

static_assert(IsRising(Colors) && Colors[0].number > 0, "each number once, found by its place");
static_assert(IsRising(Definitions), "each number once, found by its place");

} // namespace ColorTable

#endif
