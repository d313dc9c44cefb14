// SPDX-License-Identifier: MIT
#ifndef ORIM_SEPARATESTRING_H
#define ORIM_SEPARATESTRING_H

#include "orimcontracts_export.h"

#include <QString>

namespace Orim {

//! Splits a line at ";". A text with k of them has k + 1 fields: a closing ";" counts one empty field more, and an
//! empty text is one empty field. \param text       any text; blanks and quotes are nothing special. \param fields
//! array of at least \a maxFields entries; an entry for which the text has no field keeps what it held.
//!                   Null writes nothing.
//! \param maxFields  most fields to write; what the text has beyond them is dropped.
//! \return number of fields written, 0 .. maxFields; 0 for null \a fields.
ORIMCONTRACTS_EXPORT int separateString(QString text, QString * fields, unsigned char maxFields);

} // namespace Orim

#endif
