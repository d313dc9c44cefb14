// SPDX-License-Identifier: MIT
#ifndef ORIM_FACTORYCOLORSETS_H
#define ORIM_FACTORYCOLORSETS_H

#include <QtGlobal>

#include <array>
#include <cstddef>

//! The colour sets and the roles they serve, as they leave the factory, as data.
namespace FactoryColorSets {

constexpr std::size_t Count = 20;
constexpr std::size_t UserCount = 3; // the first ones are the operator's, and persisted
constexpr std::size_t RoleCount = 10;
constexpr std::size_t PersistedRoleCount = 8;
constexpr std::size_t MaxListed = 8; // colours that a row lists

enum Flag : unsigned int
{
    eBands = 0,
    eSmooth = 0x01,
    eWriteable = 0x02,
    eFixed = 0x04,
    eWrap = 0x08,
    ePureIndex = 0x10,
    eLastIsBackground = 0x20,
    eTextAlone = 0x40 // what the line of text lacks stays as it is
};

//! The first colours of a set, 0xrrggbb; the last of them goes on to the end of the set.
struct ColorList
{
    std::size_t count;
    std::array<unsigned int, MaxListed> rgb;
};

template <class... T>
constexpr ColorList List(T... rgb)
{
    static_assert(sizeof...(rgb) > 0 && sizeof...(rgb) <= MaxListed, "a row has room for them");
    return { sizeof...(rgb), { { static_cast<unsigned int>(rgb)... } } };
}

struct Row
{
    char const * name; // the context of its translation is GuiCentral
    unsigned int flags;
    std::size_t length; // colours
    ColorList colors;
    double start; // of the own range, in the unit of the values
    double stop;
    char const * line; // null, or has the colours and the range in place of the row
};

constexpr char const * AzimuthLine =
    "20;0;1;0;360;1;#fe0000;#fe0077;#ff0091;#ff00d5;#d400fe;#9500ff;#5900ff;#0004ff;#0051ff;#00bbff;#00fff7;#00ffa2;"
    "#84fe01;#b2fe00;#edfe00;#feb200;#fe9d00;#fe6e00;#ff4901;#ff0901;";
constexpr char const * FineLine =
    "20;0;1;0;100;1;#fe0000;#fe0077;#ff0091;#ff00d5;#d400fe;#9500ff;#5900ff;#0004ff;#0051ff;#00bbff;#00fff7;#00ffa2;"
    "#84fe01;#b2fe00;#edfe00;#feb200;#fe9d00;#fe6e00;#ff4901;#ff0901;";

constexpr ColorList Rainbow =
    List(0xff0000, 0xff8000, 0xffff00, 0x00ff00, 0x00ffff, 0x0000ff, 0x000080, 0x800080); // bright to dark
constexpr ColorList Grays = List(0xffffff, 0xc0c0c0, 0x808080);
constexpr ColorList Blues = List(0x00ffff, 0x0000ff, 0x000000);
constexpr ColorList Black = List(0x000000);

constexpr std::array<Row, Count> Rows{ {
    { QT_TRANSLATE_NOOP("GuiCentral", "User defined (eUser0Set)"), eSmooth | eWriteable, 3,
      List(0xff0000, 0x00ff00, 0x0000ff), 0, 100, nullptr },
    { QT_TRANSLATE_NOOP("GuiCentral", "User defined (eUser1Set)"), eSmooth | eWriteable, 3, Grays, 0, 100, nullptr },
    { QT_TRANSLATE_NOOP("GuiCentral", "User defined (eUser2Set)"), eSmooth | eWriteable, 3, Blues, 0, 100, nullptr },
    { QT_TRANSLATE_NOOP("GuiCentral", "Rainbow"), eBands, 8, Rainbow, 0, 100, nullptr },
    { QT_TRANSLATE_NOOP("GuiCentral", "Smooth Rainbow"), eSmooth, 8, Rainbow, 0, 100, nullptr },
    { QT_TRANSLATE_NOOP("GuiCentral", "Black and White"), eBands, 3, Grays, 0, 100, nullptr },
    { QT_TRANSLATE_NOOP("GuiCentral", "Red shade"), eSmooth, 3, List(0xffff00, 0xff0000, 0x000000), 0, 100, nullptr },
    { QT_TRANSLATE_NOOP("GuiCentral", "Blue shade"), eSmooth, 3, Blues, 0, 100, nullptr },
    { QT_TRANSLATE_NOOP("GuiCentral", "Cyan only"), eSmooth, 1, List(0x00ffff), 0, 100, nullptr },
    { QT_TRANSLATE_NOOP("GuiCentral", "Azimuth Rainbow"), eTextAlone, 20, Black, 0, 100, AzimuthLine },
    { QT_TRANSLATE_NOOP("GuiCentral", "White to Dark Gray"), eSmooth, 3, List(0xffffff, 0xb0b0b0, 0x606060), 0, 100,
      nullptr },
    { QT_TRANSLATE_NOOP("GuiCentral", "Black to Gray"), eSmooth | eLastIsBackground, 3,
      List(0x000000, 0x707070, 0xc0c0c0), 0, 100, nullptr },
    { QT_TRANSLATE_NOOP("GuiCentral", "Yellow to Dark Gray"), eSmooth, 4, List(0xffff20, 0xf0f0f0, 0xb0b0b0, 0x606060),
      0, 100, nullptr },
    { QT_TRANSLATE_NOOP("GuiCentral", "White only"), eSmooth, 2, List(0xffffff), 0, 100, nullptr },
    { QT_TRANSLATE_NOOP("GuiCentral", "Black only"), eSmooth, 2, Black, 0, 100, nullptr },
    { QT_TRANSLATE_NOOP("GuiCentral", "Fine Rainbow"), eBands, 20, Black, 0, 100, FineLine },
    { QT_TRANSLATE_NOOP("GuiCentral", "Differential Mode Simple"), eSmooth | eFixed, 3,
      List(0x00ffff, 0x000000, 0xff00ff), -30, 30, nullptr },
    { QT_TRANSLATE_NOOP("GuiCentral", "Differential Mode"), eSmooth | eFixed, 5,
      List(0xffff00, 0xff0000, 0x000000, 0x0000ff, 0x00ffff), -30, 30, nullptr },
    { QT_TRANSLATE_NOOP("GuiCentral", "PDWs"), eFixed | ePureIndex, 255, List(0xffff00), 0, 255, nullptr },
    { QT_TRANSLATE_NOOP("GuiCentral", "Vehicle Axis"), eFixed | eWrap, 180, Black, 0, 360, nullptr },
} };

//! Entries of a set that take the colour of a definition of Colors.
struct PaletteRun
{
    std::size_t set;
    int first;
    int last;
    int definition;
};

constexpr std::array<PaletteRun, 7> PaletteRuns{ {
    { 18, 1, 1, 1014 },
    { 18, 2, 2, 1012 },
    { 18, 3, 3, 1008 },
    { 19, 0, 0, 1000 },
    { 19, 1, 89, 1004 },
    { 19, 90, 178, 1002 },
    { 19, 179, 179, 1000 },
} };

//! The set that serves each role.
constexpr std::array<int, RoleCount> Roles{ { 0, 9, 5, 4, 10, 0, 4, 17, 18, 19 } };

//! Keys of the first roles and of the operator's sets in the store.
constexpr std::array<char const *, PersistedRoleCount> RoleKeys{
    { "ColorSet", "ColorSetA", "ColorSetE", "ColorSetBitStream", "ColorSetAgeing", "ColorSetQuality", "ColorSetPifpan",
      "ColorSetDifferenceMode" }
};
constexpr std::array<char const *, UserCount> UserKeys{ { "UserColor0", "UserColor1", "UserColor2" } };

constexpr bool AreSets(std::array<int, RoleCount> const & roles)
{
    for (std::size_t i = 0; i < RoleCount; ++i)
        if (roles[i] < 0 || roles[i] >= static_cast<int>(Count))
            return false;
    return true;
}

constexpr bool ListsFit(std::array<Row, Count> const & rows)
{
    for (std::size_t i = 0; i < Count; ++i)
        if (rows[i].colors.count > rows[i].length)
            return false;
    return true;
}

constexpr bool RunsFit(std::array<PaletteRun, 7> const & runs)
{
    for (std::size_t i = 0; i < runs.size(); ++i)
        if (runs[i].last < runs[i].first || runs[i].last >= static_cast<int>(Rows[runs[i].set].length))
            return false;
    return true;
}

static_assert(AreSets(Roles), "every role has a set");
static_assert(ListsFit(Rows), "no colour is beyond the end of its set");
static_assert(RunsFit(PaletteRuns), "no run is beyond the end of its set");

} // namespace FactoryColorSets

#endif
