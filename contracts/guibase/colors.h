// SPDX-License-Identifier: MIT
#ifndef ORIM_COLORS_H
#define ORIM_COLORS_H

#include "orimcontracts_export.h"

#include <QColor>
#include <QString>

#include <vector>

//! One colour of the palette of Colors.
class ORIMCONTRACTS_EXPORT ColorDefinition
{
public:
    //! \param name  name of the colour in English, not owned, translated in the context Colors.
    ColorDefinition(int id, char const * name);

    int GetId() const { return m_id; }

    //! Name of the colour, translated.
    QString GetName() const;

    //! The colour in the loaded colour set. What is written to it stays until a set is loaded.
    QColor & GetColor() { return m_color; }

private:
    int m_id;
    char const * m_name;
    QColor m_color;
};

//! The palette from which shading sets and marked signals take their colours: definitions 1000 to 1015, which follow
//! the loaded set of ColorSet. 1002, 1004 and 1000 are told apart by the colour-blind, and so are 1008, 1012, 1014 and
//! plain yellow.
class ORIMCONTRACTS_EXPORT Colors
{
public:
    //! The one palette, made on first use with the colours of the first set and never destroyed.
    static Colors & Instance();
    Colors(Colors const &) = delete;
    Colors & operator=(Colors const &) = delete;

    //! The definition of a number; null for a number that has none. The pointer stays good.
    ColorDefinition * GetColorDefinition(int id);
    //! Numbers of all definitions, rising.
    std::vector<int> GetIds() const;
    //! Takes over the colours of a set; false, and nothing changes, for an index that has none. ColorSet calls it
    //! whenever it loads a set.
    bool Load(int set);

private:
    Colors();

    std::vector<ColorDefinition> m_definitions; // rising by number, fixed after construction
};

#endif
