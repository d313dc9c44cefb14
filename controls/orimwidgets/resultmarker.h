// SPDX-License-Identifier: MIT
#ifndef ORIM_RESULTMARKER_H
#define ORIM_RESULTMARKER_H

#include "marker.h"
#include "orimwidgets_export.h"

#include <QString>

#include <vector>

class IMarkerValue;

//! A marker that stands where a measurement result says, not where an operator puts it: it holds the values of a
//! result, shows one of them as its position, and may carry the text of the result. MarkerList::AddResultMarker() makes
//! it.
class ORIMWIDGETS_EXPORT ResultMarker : public Marker
{
public:
    ResultMarker();
    //! As operator=, on a new marker.
    ResultMarker(ResultMarker & other);
    //! As for Marker; takes over the result with its text, and both indices, too.
    ResultMarker & operator=(ResultMarker const & other);

    //! The result value at the x index, as it came, not wrapped; -1.0 when there is none.
    double GetValue() override;
    //! \return -1.0 when there is no value at \a i.
    double GetValue(unsigned int i) const;

    //! The text of the result last taken while the result panel was asked for.
    QString GetStringValue() const { return m_text; }

    using Marker::GetStringValue;

    //! Whether the ResultMarkerList of the parent follows a value; false without a parent or such a list.
    bool GetConnected() override;

    //! Which result value is the position; 2 at the start. A negative index stands for no value. What is shown follows
    //! with the next result.
    void SetXDimensionValue(int index) { m_xIndex = static_cast<unsigned int>(index); }

    unsigned int GetXDimensionValue() const { return m_xIndex; }

    //! Which result value is the second dimension, for panes that show one; 4 at the start.
    void SetYDimensionValue(int index) { m_yIndex = static_cast<unsigned int>(index); }

    unsigned int GetYDimensionValue() const { return m_yIndex; }

    //! Takes a result over: its values, at most 4096, its text when the show-result flag is set, and the position,
    //! which is wrapped into the range. \param result  null changes nothing. \param draw  repaint the list.
    void SetMarkerValue(IMarkerValue const * result, bool draw);

private:
    std::vector<double> m_values;
    unsigned int m_xIndex = 2;
    unsigned int m_yIndex = 4;
    QString m_text;
};

#endif
