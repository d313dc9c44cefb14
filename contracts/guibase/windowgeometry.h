// SPDX-License-Identifier: MIT
#ifndef ORIM_WINDOWGEOMETRY_H
#define ORIM_WINDOWGEOMETRY_H

#include "orimcontracts_export.h"

#include <QRect>
#include <QString>

#include <optional>
#include <vector>

//! Place and size of a window, as stored between two runs.
struct ORIMCONTRACTS_EXPORT WindowGeometry
{
    QRect rect; //!< px, without the frame; that of the window when it is not maximized
    bool isMaximized = false;

    //! "1;x;y;width;height;0 or 1".
    QString ToText() const;
    //! \return nothing for a text of another form, a number that is no int, a position beyond +-32767 px and a size
    //! that
    //!         is not between 1 and 32767 px.
    static std::optional<WindowGeometry> FromText(QString const & text);
    //! Whether the operator can get hold of the window: enough of its upper edge lies on one of the screens.
    //! \param screens  what each screen has free for windows, px.
    bool IsReachable(std::vector<QRect> const & screens) const;
};

#endif
