// SPDX-License-Identifier: MIT
#ifndef ORIM_SCALELAYOUT_H
#define ORIM_SCALELAYOUT_H

#include "orimwidgets_export.h"

#include <vector>

//! What an axis knows of its tics. Tic i, counted from 0, stands at the value i * ticStep + firstTic + ticOffset.
struct ScaleTics
{
    double start = 0.0; // at the left, or at the bottom of a vertical scale
    double stop = 0.0;  // may lie below the start
    double firstTic = 0.0;
    double ticStep = 0.0; // above 0
    double ticOffset = 0.0;
    int ticCount = 0;
    int minorTics = 0; // between two neighbours; none when it is 0 or negative

    //! NaN equals NaN.
    ORIMWIDGETS_EXPORT bool operator==(ScaleTics const & other) const;

    bool operator!=(ScaleTics const & other) const { return !(*this == other); }
};

//! Where the tics, the labels and the unit of a scale stand, in whole pixels of any kind from the first pixel of the
//! scale. Labels are never cut at an end and never touch each other or the unit.
class ORIMWIDGETS_EXPORT ScaleLayout
{
public:
    static constexpr int MostTics = 1000;
    static constexpr int MostMinorTics = 10000;
    static constexpr int Longest = 1 << 28; // px

    struct Extent
    {
        int length = 0;        // px, 1 to Longest; any other makes an empty layout
        int origin = 0;        // px from the first pixel of the axis to that of the scale; it decides roundings only
        int minorDistance = 3; // px; minor tics that stood nearer are all left out
        bool vertical = false; // the stop at the top

        bool operator==(Extent const & other) const
        {
            return length == other.length && origin == other.origin && minorDistance == other.minorDistance &&
                   vertical == other.vertical;
        }
    };

    struct Tic
    {
        double value;
        int pixel;
        long long number; // value by step, rounded: a label at each n-th number keeps the values round
    };

    struct Label
    {
        int tic; // index into GetTics()
        int start;
        int extent;
        bool moved; // away from the centre of its tic, to stand inside
    };

    //! Finds the tics that lie inside the range; labels and unit are gone until PlaceLabels().
    //! Nothing is found when start equals stop, when one of the numbers is NaN or infinite, when the step is not above
    //! 0, and when the range is wider than a double. At most MostTics tics are taken; when more than MostMinorTics
    //! minor ones would stand between and around them, there is none.
    void SetTics(ScaleTics const & tics, Extent const & extent);

    //! Pixel of a value: the part of the range below it (above it, for a falling scale) times the length, cut to a
    //! whole number together with the origin. The value at the far end (the stop, on a vertical scale the start) has
    //! the last pixel.
    //! \return 0 .. length - 1; -1 outside the range, for NaN, and when the layout is empty.
    int ToPixel(double value) const;

    //! Places labels on tics and the unit at the high end (the right, on a vertical scale the top). A label stands
    //! centred on its tic. When not all have room, each 2nd, 5th, 10th ... number bears one. A label that would be cut
    //! at an end, or touch the unit, is moved inside when it still stands at its tic and touches no other, and left out
    //! otherwise.
    //! \param extents     one for each tic along the scale, px; 0 or less: no label.
    //! \param gap         least number of free pixels between two labels, and between a label and the unit.
    //! \param unitExtent  px along the scale; 0 or less: no unit. It is left out when there is no room for it and one
    //!                    label.
    void PlaceLabels(std::vector<int> const & extents, int gap, int unitExtent);

    //! In rising order of pixels; two may share one.
    std::vector<Tic> const & GetTics() const { return m_tics; }

    //! Pixels in rising order, each once. Some stand before the first tic and behind the last.
    std::vector<int> const & GetMinorTics() const { return m_minorTics; }

    //! In rising order of pixels.
    std::vector<Label> const & GetLabels() const { return m_labels; }

    //! First pixel of the unit; -1 when there is none.
    int GetUnitStart() const { return m_unitStart; }

    //! Whether values fall while pixels rise.
    bool IsFalling() const { return m_falling; }

private:
    //! Pixels that labels may cover.
    struct Room
    {
        int low;
        int high; // behind the last one
        int gap;
    };

    bool TakeRange(ScaleTics const & tics, Extent const & extent);
    void FindTics(ScaleTics const & tics);
    void FindMinorTics(ScaleTics const & tics, int minorDistance);
    long long LabelEvery(long long extent) const;
    void PlaceLabel(int tic, int extent, Room const & room);

    int m_length = 0; // px; 0: empty
    int m_origin = 0;
    bool m_vertical = false;
    bool m_falling = false;
    double m_low = 0.0;
    double m_high = 0.0;
    double m_end = 0.0;         // the value at the last pixel
    double m_span = 0.0;        // above 0 and finite
    double m_ticDistance = 0.0; // px between two tics

    std::vector<Tic> m_tics;
    std::vector<int> m_minorTics;
    std::vector<Label> m_labels;
    int m_unitStart = -1;
};

#endif
