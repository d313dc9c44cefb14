// SPDX-License-Identifier: MIT
#ifndef ORIM_COLORCONTRAST_H
#define ORIM_COLORCONTRAST_H

#include "orimcontracts_export.h"

#include <QColor>

//! How well colours are told apart, by the rule of the Web Content Accessibility Guidelines.
namespace ColorContrast {

//! Contrast of two colours, from 1 (none) to 21 (black and white), the same both ways. Text reads well from 4.5 on,
//! large shapes from 3 on. Transparency is left out of account; an invalid colour counts as black.
ORIMCONTRACTS_EXPORT double Ratio(QColor const & a, QColor const & b);
//! Black or white, whichever stands out more on a ground: at least 4.5 on any.
ORIMCONTRACTS_EXPORT QColor TextOn(QColor const & ground);

} // namespace ColorContrast

#endif
