// SPDX-License-Identifier: MIT
#ifndef ORIM_INITEXT_H
#define ORIM_INITEXT_H

#include "orimcontracts_export.h"

#include <QByteArray>
#include <QMap>
#include <QString>

//! The text of a store file: keys and texts to bytes in the INI syntax of QSettings, and back.
//!
//! The first level of a key becomes the section, further levels are parted by "\" ("a/b/c" is "b\c" in section "a"); a
//! key of one level stands in section "General". A "/" at an end of a key or behind another is written as "%2F". Bytes
//! are ASCII: in keys all but letters, digits, "_", "-" and "." is %XX or %UXXXX, in texts all beyond ASCII is \x, and
//! a text of anything but letters, digits and "+-._" is quoted.
namespace IniText {

typedef QMap<QString, QString> Entries; //!< texts by key

struct Parsed
{
    Entries entries;      //!< what reads, the last one of equal keys; a text may be empty but is never null
    int damagedLines = 0; //!< lines that were passed over
    int firstDamaged = 0; //!< number of the first of them, from 1; 0 when there is none
};

//! Bytes of a store that reads these entries back: the same for the same entries, in every locale.
ORIMCONTRACTS_EXPORT QByteArray Print(Entries const & entries);

//! Reads a store, whatever the bytes. A line that is no section, no "key=text", no comment (";" or "#" at its start)
//! and not blank is damaged: it is passed over and the rest is kept. So is one with control characters, a broken
//! escape, an open or stray quote or invalid UTF-8. Behind a damaged section the keys up to the next one are passed
//! over too, as nobody knows whose they are. Lines end in LF, CR or both; UTF-8 with or without its mark is read, and
//! UTF-16 with its mark.
ORIMCONTRACTS_EXPORT Parsed Parse(QByteArray const & bytes);

} // namespace IniText

#endif
