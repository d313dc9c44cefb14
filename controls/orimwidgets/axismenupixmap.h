// SPDX-License-Identifier: MIT
#ifndef ORIM_AXISMENUPIXMAP_H
#define ORIM_AXISMENUPIXMAP_H

#include "orimwidgets_export.h"

#include <QImage>
#include <QString>

class QColor;
class QPixmap;

//! The picture of a marker in the menu of an axis: a triangle in the marker's colour on a transparent ground, 16 by 16.
namespace AxisMenuPixmap {

//! Name of the picture in QPixmapCache: "AxisMenuPixmap", "X" or "Y", and the colour as "#rrggbb".
//! \param x  whether the triangle points up, for a marker along x; else it points right.
ORIMWIDGETS_EXPORT QString Key(bool x, QColor const & color);
//! Paints the picture. It needs no display.
ORIMWIDGETS_EXPORT QImage Paint(bool x, QColor const & color);
//! The picture from QPixmapCache, painted when it is not there.
ORIMWIDGETS_EXPORT QPixmap Get(bool x, QColor const & color);

} // namespace AxisMenuPixmap

#endif
