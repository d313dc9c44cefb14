// SPDX-License-Identifier: MIT
#ifndef ORIM_PSEUDOMARKERLIST_H
#define ORIM_PSEUDOMARKERLIST_H

#include "markerlist.h"

//! A list of markers for a pane that shows their state but has no scale. Its markers hold values and share their state
//! with other lists, but have no pixels and cannot be stepped by them.
class ORIMWIDGETS_EXPORT PseudoMarkerList : public MarkerList
{
    Q_OBJECT
public:
    //! \param name  object name; may be null.
    explicit PseudoMarkerList(QWidget * parent = nullptr, char const * name = nullptr);
    ~PseudoMarkerList() override;

    //! \return -1.0, no mapping.
    double PixelToValue(int direction, int pixel) override;
    //! \return -1, outside the range.
    int ValueToPixel(int direction, double value) override;
    //! Does nothing.
    void RepairDrawing() override;
    //! Leaves both numbers alone.
    void GetCurrentStartStop(int direction, double & start, double & stop) override;
};

#endif
