// SPDX-License-Identifier: MIT
#ifndef ORIM_CAPTIONPICTURES_H
#define ORIM_CAPTIONPICTURES_H

#include "orimwidgets_export.h"

#include <QIcon>
#include <QImage>

//! The pictures on the buttons of captions. Their colours stand out from the buttons of every colour set; those that
//! differ in meaning differ in shape.
namespace CaptionPictures {

enum EPicture
{
    eStop,     //!< a square
    eExit,     //!< a cross
    eOnTop,    //!< a filled arrow at its stop
    eNotOnTop, //!< a hollow arrow below it
    eFull      //!< a frame full of lines
};

//! A picture on a transparent ground. It is drawn on a grid of eighths, so that extents of a multiple of 8 are crisp.
//! \param extent  px, 1 to 1024; what lies outside is held at the limits.
ORIMWIDGETS_EXPORT QImage Paint(EPicture picture, int extent);

//! The same for a button: crisp on screens of one, two and three device pixels a pixel. \param extent  px.
ORIMWIDGETS_EXPORT QIcon Icon(EPicture picture, int extent);

//! The pictures of the library's resources.
ORIMWIDGETS_EXPORT QIcon PauseIcon();
//! With a picture for a checked button and one for the others.
ORIMWIDGETS_EXPORT QIcon DatastreamIcon();

} // namespace CaptionPictures

#endif
