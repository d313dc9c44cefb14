// SPDX-License-Identifier: MIT
#ifndef ORIM_MARKERRULERS_H
#define ORIM_MARKERRULERS_H

#include <QColor>
#include <QRect>
#include <QStringList>

#include <functional>
#include <vector>

class MarkerList;
class QFontMetrics;
class QPainter;

//! The markers of a pane as they are painted: a line across the picture and a flag with its texts.
class MarkerRulers
{
public:
    struct Ruler
    {
        int index;  // of the marker in its list
        bool level; // from left to right; else from top to bottom
        int line;   // row or column of the line, device pixels
        QRect flag; // logical pixels; null when it has no room
        QStringList texts;
        QColor color;
        QColor ink;   // on that colour
        bool strong;  // the current one, those that move, and the selected result
        int stub = 0; // px of a line that does not cross the picture, from its top; 0 for one that does
    };

    //! How a ruler is painted.
    enum class Kind
    {
        eMarker,
        eResult,        // a short line
        eSelectedResult // strong, across the picture
    };

    //! Where rulers are painted.
    struct Frame
    {
        QRect picture;      // the lines cross it, device pixels
        double ratio;       // device pixels a logical one
        QRect uprightFlags; // where flags of upright lines may stand, logical pixels
        QRect levelFlags;   // the same for level lines
    };

    //! What the pane knows of a marker.
    struct Source
    {
        std::function<int(bool level, double value)> line; // device pixels; -1 outside the picture
        std::function<QStringList(int index)> texts;       // of the flag; none: no flag
        std::function<Kind(int index)> kind = nullptr;     // null: all are markers
    };

    //! Lays the shown markers of a list. Each learns its pixel, its label and its line, by which it can be taken.
    void Lay(MarkerList & list, Frame const & frame, QFontMetrics const & metrics, Source const & source);

    std::vector<Ruler> const & Get() const { return m_rulers; }

    //! \param ground, text  colours of a flag that is not strong.
    void Paint(QPainter & painter, QColor const & ground, QColor const & text) const;

private:
    void PlaceFlags(QFontMetrics const & metrics);
    void PaintLine(QPainter & painter, Ruler const & ruler) const;
    void PaintFlag(QPainter & painter, Ruler const & ruler, QColor const & ground, QColor const & text) const;
    QRect LineRect(Ruler const & ruler) const;
    void GrowStubs();

    Frame m_frame{ {}, 1.0, {}, {} };
    std::vector<Ruler> m_rulers;
};

#endif
