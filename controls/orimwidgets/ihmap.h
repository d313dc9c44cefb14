// SPDX-License-Identifier: MIT
#ifndef ORIM_IHMAP_H
#define ORIM_IHMAP_H

#include "orimwidgets_export.h"

//! Mapping between values and pixels, for those who draw along an axis without knowing it.
class ORIMWIDGETS_EXPORT IHMap
{
public:
    //! Width of the axis, px.
    virtual int GetPixelCnt() const = 0;
    //! Pixel that shows a value.
    //! \param ok      set to whether the value has a pixel. May be null; the pixel is then not inverted.
    //! \param invert  count from the far end.
    virtual int ValueToPixel(double value, bool * ok, bool invert) const = 0;
    //! Pixels of two values. When the first has none, \a pb stays as it is.
    //! \return whether both have one.
    virtual bool RangeToPixel(double a, double b, int & pa, int & pb, bool invert) const = 0;
    //! Value that a pixel shows.
    //! \param ok  set to whether the value is not below 0; may be null.
    virtual double PixelToValue(int pixel, bool * ok, bool invert) const = 0;
    //! Pixels for one unit of the axis.
    virtual double GetPixelsForXUnit(int section) const = 0;
    //! Units of the axis for one pixel.
    virtual double GetXUnitsForPixel(int section) const = 0;
    //! Number of sections that the axis is cut into.
    virtual int GetSectionCnt() const = 0;

protected:
    ~IHMap() = default; // nobody owns an axis by its mapping
};

//! Access to the mapping of an axis.
class ORIMWIDGETS_EXPORT IHasHMap
{
public:
    virtual ~IHasHMap();

    //! Never null.
    virtual IHMap * HMap() = 0;
};

#endif
