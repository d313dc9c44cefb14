// SPDX-License-Identifier: MIT
#ifndef ORIM_TOLDCOLORSETS_H
#define ORIM_TOLDCOLORSETS_H

#include "colors.h"
#include "colorset.h"

#include <QColor>
#include <QString>

// What the factory sets and the roles of GuiCentral are to be, written down independently of their table.

constexpr int Sets = 20;

//! A factory set as it is told: the first colours in words, the rest is tested apart.
struct Told
{
    char const * name;
    char const * colors;
    char const * line; // the text without its colours
    bool writeable;
};

constexpr char const * Rainbow = "#ff0000;#ff8000;#ffff00;#00ff00;#00ffff;#0000ff;#000080;#800080;";
constexpr char const * Fine = "#fe0000;#fe0077;#ff0091;#ff00d5;#d400fe;#9500ff;#5900ff;#0004ff;#0051ff;#00bbff;"
                              "#00fff7;#00ffa2;#84fe01;#b2fe00;#edfe00;#feb200;#fe9d00;#fe6e00;#ff4901;#ff0901;";

inline Told const ToldSets[Sets] = {
    { "User defined (eUser0Set)", "#ff0000;#00ff00;#0000ff;", "V02;3;1;0;0;100;0;0;0;#000000;", true },
    { "User defined (eUser1Set)", "#ffffff;#c0c0c0;#808080;", "V02;3;1;0;0;100;0;0;0;#000000;", true },
    { "User defined (eUser2Set)", "#00ffff;#0000ff;#000000;", "V02;3;1;0;0;100;0;0;0;#000000;", true },
    { "Rainbow", Rainbow, "V02;8;0;0;0;100;0;0;0;#000000;", false },
    { "Smooth Rainbow", Rainbow, "V02;8;1;0;0;100;0;0;0;#000000;", false },
    { "Black and White", "#ffffff;#c0c0c0;#808080;", "V02;3;0;0;0;100;0;0;0;#000000;", false },
    { "Red shade", "#ffff00;#ff0000;#000000;", "V02;3;1;0;0;100;0;0;0;#000000;", false },
    { "Blue shade", "#00ffff;#0000ff;#000000;", "V02;3;1;0;0;100;0;0;0;#000000;", false },
    { "Cyan only", "#00ffff;", "V02;1;1;0;0;100;0;0;0;#000000;", false },
    { "Azimuth Rainbow", Fine, "V02;20;0;1;0;360;0;1;0;#000000;", false },
    { "White to Dark Gray", "#ffffff;#b0b0b0;#606060;", "V02;3;1;0;0;100;0;0;0;#000000;", false },
    { "Black to Gray", "#000000;#707070;#c0c0c0;", "V02;3;1;0;0;100;0;0;1;#c0c0c0;", false },
    { "Yellow to Dark Gray", "#ffff20;#f0f0f0;#b0b0b0;#606060;", "V02;4;1;0;0;100;0;0;0;#000000;", false },
    { "White only", "#ffffff;#ffffff;", "V02;2;1;0;0;100;0;0;0;#000000;", false },
    { "Black only", "#000000;#000000;", "V02;2;1;0;0;100;0;0;0;#000000;", false },
    { "Fine Rainbow", Fine, "V02;20;0;1;0;100;0;1;0;#000000;", false },
    { "Differential Mode Simple", "#00ffff;#000000;#ff00ff;", "V02;3;1;1;-30;30;0;0;0;#000000;", false },
    { "Differential Mode", "#ffff00;#ff0000;#000000;#0000ff;#00ffff;", "V02;5;1;1;-30;30;0;0;0;#000000;", false },
    { "PDWs", nullptr, "V02;255;0;1;0;255;0;0;0;#000000;", false },
    { "Vehicle Axis", nullptr, "V02;180;0;1;0;360;0;1;0;#000000;", false },
};

struct Role
{
    int role;
    int set;
    char const * key; // null: not persisted
};

constexpr Role ToldRoles[] = {
    { 0, 0, "ColorSet" },        { 1, 9, "ColorSetA" },
    { 2, 5, "ColorSetE" },       { 3, 4, "ColorSetBitStream" },
    { 4, 10, "ColorSetAgeing" }, { 5, 0, "ColorSetQuality" },
    { 6, 4, "ColorSetPifpan" },  { 7, 17, "ColorSetDifferenceMode" },
    { 8, 18, nullptr },          { 9, 19, nullptr },
};

inline QString Line(Told const & set) { return QLatin1String(set.line) + QLatin1String(set.colors); }

inline QColor Definition(int id) { return Colors::Instance().GetColorDefinition(id)->GetColor(); }

inline QRgb Common() { return ColorSet::Instance()[IColorBase::eColorShadingBackground].rgb(); }

#endif
