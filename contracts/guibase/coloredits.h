// SPDX-License-Identifier: MIT
#ifndef ORIM_COLOREDITS_H
#define ORIM_COLOREDITS_H

#include "orimcontracts_export.h"

#include <QColor>
#include <QMap>
#include <QString>

//! The stored form of edited colours: "1=#14181d;150=#0022ee", number and colour, parted by semicolons.
namespace ColorEdits {

//! The text of edited colours, rising by number; empty for none. Colours are written without their transparency.
ORIMCONTRACTS_EXPORT QString ToText(QMap<int, QColor> const & colors);
//! Reads that text. A field that is no number and colour, and an invalid colour, are left out; of two fields with one
//! number the later counts.
ORIMCONTRACTS_EXPORT QMap<int, QColor> FromText(QString const & text);

} // namespace ColorEdits

#endif
