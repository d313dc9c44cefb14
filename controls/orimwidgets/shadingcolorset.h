// SPDX-License-Identifier: MIT
#ifndef ORIM_SHADINGCOLORSET_H
#define ORIM_SHADINGCOLORSET_H

#include "orimwidgets_export.h"

#include <QColor>
#include <QRgb>
#include <QString>

#include <cstddef>
#include <memory>
#include <vector>

class ColorLookup;
struct ColorRule;

//! Turns a measured value into a colour: a list of colours with the rules for reading it. Index 0 is the low end.
//! Used from the GUI thread only: asking for a colour may change the set.
class ORIMWIDGETS_EXPORT ShadingColorSet
{
public:
    //! Two black colours, smooth, over the caller's range.
    ShadingColorSet();
    //! \a count invalid colours; everything else as in a default set.
    ShadingColorSet(std::size_t count, bool smooth);
    //! Copies everything, the name, the writeable flag and the use as index included.
    ShadingColorSet(ShadingColorSet const & other);
    ~ShadingColorSet();
    //! Passes through the text: SetString(other.GetString()). Keeps the own name, writeable flag and use as index, and
    //! cuts what the text cuts: digits, alpha, colours beyond the 34th.
    ShadingColorSet & operator=(ShadingColorSet const & other);

    //! The colour of a value.
    //! \param value    any double; the offset of the set is added to it. As an index it is rounded, half up.
    //! \param min      low end of the caller's range; not used by a fixed set.
    //! \param max      high end, also below \a min; equal to it every value is at the low end.
    //! \param inverse  turn the list round; not heard by a set that takes values as indices.
    //! \return light grey outside min .. max. An interpolating set gives NaN an invalid colour, all others the first
    //!         colour. An empty list gives black and calls the hook of SetEmptyListHook().
    //! Puts start and stop of the set in order first: swaps them when stop is below start, and moves stop to start + 1
    //! when they are equal.
    virtual QColor GetColor(double value, double min, double max, bool inverse);
    //! The colours of many values, opaque: as ShadingColorSet::GetColor() gives them, and within 1 a channel where it
    //! interpolates; an invalid colour is black. Fast: keeps a table until the set or the range changes.
    //! \param values, out  \a count entries each, not overlapping; null does nothing.
    //! On an empty list the hook is called once.
    void GetColors(double const * values, QRgb * out, std::size_t count, double min, double max, bool inverse);
    void GetColors(float const * values, QRgb * out, std::size_t count, double min, double max, bool inverse);

    //! \param ok  receives whether \a index is within the list.
    //! \return the colour; the first one for an index outside, an invalid one when there is none.
    QColor GetColorNr(int index, bool & ok) const;
    //! \return false for an index outside the list; nothing changes then.
    bool SetColorNr(int index, QColor color);
    //! Number of colours. New ones are white, a shrink cuts from the end.
    void Resize(std::size_t count);

    std::size_t GetLength() const { return m_Colors.size(); }

    //! The list itself. It may be written through the reference while the set lives.
    std::vector<QColor> & GetVector();

    std::vector<QColor> const & GetVector() const { return m_Colors; }

    //! \param useMinIndex  the background is the last colour of the list; \a color is kept nevertheless.
    void SetBackgroundColor(QColor color, bool useMinIndex);
    //! true also copies the last colour of the list to the background.
    void SetUseMinIndexBackground(bool on);

    bool GetUseMinIndexBackground() const { return m_UseMinIndexBackground; }

    //! \param color  the caller's default; receives the last colour of the list when the background is that.
    //! \return \a color. The background that SetBackgroundColor() kept is not given.
    QColor & GetBackgroundColor(QColor & color);

    //! The set as one line of text, the newest layout. Alpha, the name, the writeable flag and the use as index are not
    //! in it; doubles have six significant digits.
    QString GetString() const;
    //! Takes over a line of text of any layout; whatever it lacks stays as it is. \param line  any text; fields that do
    //! not parse count as 0, at most 45 fields are read, and a count above 65,536 is 65,536.
    void SetString(QString const & line);

    //! Interpolate between colours; otherwise show bands.
    void SetSmooth(bool on) { m_Smooth = on; }

    bool GetSmooth() const { return m_Smooth; }

    //! Map over the own start and stop, not over the caller's range.
    void SetFixed(bool on) { m_Fixed = on; }

    bool GetFixed() const { return m_Fixed; }

    //! Low and high end of the own range, in the unit of the values; any double.
    void SetStart(double start) { m_Start = start; }

    double GetStart() const { return m_Start; }

    void SetStop(double stop) { m_Stop = stop; }

    double GetStop() const { return m_Stop; }

    //! Added to every value before it is mapped; any double.
    void SetOffset(double offset) { m_Offset = offset; }

    double GetOffset() const { return m_Offset; }

    //! With a fixed range, fold values into it.
    void SetWrap(bool on) { m_Wrap = on; }

    bool GetWrap() const { return m_Wrap; }

    //! The name shown in selectors.
    void SetName(QString const & name) { m_Name = name; }

    QString const & GetName() const { return m_Name; }

    //! Whether the user may edit the set.
    void SetWriteable(bool on) { m_Writeable = on; }

    bool GetWriteable() const { return m_Writeable; }

    //! Take the value as the number of a colour.
    void SetPureIndexUse(bool on) { m_PureIndexUse = on; }

    //! What to call when a colour is asked of an empty list, a fault of the colour configuration: it may restore the
    //! factory colours, and so refill the set that is asked, but must not delete it: the set goes on after the hook.
    //! Not called from within itself. Null: nothing but black. At the start the central object restores them.
    static void SetEmptyListHook(void (*hook)());

private:
    ColorRule Rule() const;
    void UpdateLookup(double min, double max, bool inverse);
    template <class T>
    void MapColors(T const * values, QRgb * out, std::size_t count, double min, double max, bool inverse);

    std::vector<QColor> m_Colors{ QColor(Qt::black), QColor(Qt::black) };
    bool m_Smooth = true;
    QColor m_ResultColor; // the last interpolated colour
    bool m_Fixed = false;
    double m_Start = 0.0;
    double m_Stop = 100.0;
    double m_Offset = 0.0;
    bool m_Wrap = false;
    QString m_Name;
    bool m_Writeable = false;
    bool m_PureIndexUse = false;
    QColor m_BackgroundColor = Qt::black;
    bool m_UseMinIndexBackground = false;

    std::unique_ptr<ColorLookup> m_pLookup; // made by the first GetColors(); a copy makes its own
    bool m_colorsChanged = true;            // since the table saw them
    bool m_colorsLent = false;              // they may change without our knowledge
};

#endif
