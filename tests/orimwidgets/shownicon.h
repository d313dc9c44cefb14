// SPDX-License-Identifier: MIT
#ifndef ORIM_SHOWNICON_H
#define ORIM_SHOWNICON_H

#include <QIcon>
#include <QImage>

//! What an icon shows at a size in px.
inline QImage Shown(QIcon const & icon, int extent, QIcon::State state = QIcon::Off)
{
    return icon.pixmap(QSize(extent, extent), QIcon::Normal, state).toImage().convertToFormat(QImage::Format_ARGB32);
}

#endif
