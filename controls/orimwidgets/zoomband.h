// SPDX-License-Identifier: MIT
#ifndef ORIM_ZOOMBAND_H
#define ORIM_ZOOMBAND_H

#include "orimwidgets_export.h"

#include <QRect>

#include <array>

//! Numbers of the band that an operator drags along an axis, and of the range that it stands for.
namespace ZoomBand {

//! The pixels of an axis between its offsets.
struct Span
{
    long long first; //!< px, the left or upper offset
    long long last;  //!< px, the extent less the right or lower offset
};

//! Whether a pan goes on at a pixel: behind the first one, and not behind the last.
ORIMWIDGETS_EXPORT bool IsWithin(Span const & span, int pixel);
//! The pixel, moved to the first or to the last when it is not within the span.
ORIMWIDGETS_EXPORT int Clamp(Span const & span, int pixel);
//! Whether a band between two pixels is so short that it is a click.
ORIMWIDGETS_EXPORT bool IsClick(int a, int b);
//! What is covered beside a band: its rectangles, each a pixel wider and higher than its size says once an outline is
//! drawn around it. \param area  the widget. \param a, b  ends of the band, px, in any order; moved to within 2^24.
ORIMWIDGETS_EXPORT std::array<QRect, 2> CoverBeside(QRect const & area, bool vertical, int a, int b);
//! The end of a range when a value lies beyond it by no more than the rounding of its computation, else the value.
//! \param low, high  in rising order.
ORIMWIDGETS_EXPORT double WithoutRounding(double value, double low, double high);
//! Distance of a center to the farther end of a range.
ORIMWIDGETS_EXPORT double HalfWidth(double center, double start, double stop);
//! Whether a default or device range can be shown: neither end is -1.0, and they differ. False when one is NaN.
ORIMWIDGETS_EXPORT bool IsUsable(double start, double stop);
//! Whether the ends differ; false when one is NaN.
ORIMWIDGETS_EXPORT bool Differ(double start, double stop);

} // namespace ZoomBand

#endif
