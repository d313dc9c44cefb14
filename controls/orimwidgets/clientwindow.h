// SPDX-License-Identifier: MIT
#ifndef ORIM_CLIENTWINDOW_H
#define ORIM_CLIENTWINDOW_H

#include "colorset.h"
#include "lifetime.h"
#include "marker.h"
#include "observable.h"
#include "orimwidgets_export.h"
#include "value.h"

#include <QString>

class IValueNumeric;
class MarkerList;
class QPainter;

//! A marked stretch of an axis, between a start and a stop value, with a frame that a pane draws and two markers of a
//! list as its borders.
//!
//! What is not bound, has no parent or no marker is left out of every operation. The window, its parent and its values
//! may be deleted by whoever hears of what it does. For the GUI thread.
class ORIMWIDGETS_EXPORT ClientWindow : public IObserver
{
public:
    //! \param parent  holds the border markers and maps values to pixels; borrowed, may be null.
    ClientWindow(MarkerList * parent, EMarkerXYType direction);
    ClientWindow(ClientWindow const &) = delete;
    ClientWindow & operator=(ClientWindow const &) = delete;
    //! Lets go of the values; the markers stay.
    ~ClientWindow() override;

    // Binding to values of the tree. Each operation lets go of the value before, and returns whether there is a value
    // of the right type at the path.

    //! Binds a number as start, and makes the marker \a id of the parent its border: shown, moveable, in the first
    //! colour of client windows for X and the second for Y, and bound to the same path.
    //! \param id  an EMarkerID; above 42 there is no marker. When it is the stop's, as after SwitchBorders(), the stop
    //!            gets the marker that the start had.
    bool SetStart_ValuePath(QString const & path, unsigned int id);
    //! The same for the stop, with the other colour.
    bool SetStop_ValuePath(QString const & path, unsigned int id);
    //! A bool. While it is false the window is not valid and its markers are hidden.
    bool SetVisible_ValuePath(QString const & path);
    //! A bool.
    bool SetHasFocus_ValuePath(QString const & path);
    //! A text.
    bool SetText_ValuePath(QString const & path);

    //! Borrowed; null for none. Markers and pixels stay.
    void SetParent(MarkerList * parent);

    //! Null when there is none or it has ended.
    MarkerList * GetParent() const { return m_parentLife.IsOver() ? nullptr : m_pParent; }

    EMarkerXYType GetDirection() const { return m_direction; }

    //! Markers of the borders; -1 for none.
    int GetStartMarkerId() const { return m_startId; }

    int GetStopMarkerId() const { return m_stopId; }

    // Label and focus

    //! Writes the bound text too.
    void SetText(QString const & text);
    //! The bound text; without one, the text set or bound last.
    QString GetText() const;
    //! Writes the bound focus too.
    void SetFocus(bool focus);

    bool GetFocus() const { return m_focus; }

    // State

    //! Whether start, stop and visible are all bound.
    bool Connected() const;
    //! Whether the bound visible value is true; false without one.
    bool IsVisible() const;
    //! \param a, b  get the pixels of start and stop; -1 means unknown or outside the range.
    //! \return whether the window is connected and visible, and both have a pixel.
    bool IsValid(int & a, int & b) const;
    //! Whether the window is valid and a pixel lies from the start pixel up to the stop pixel, both included. None does
    //! where pixels fall while values rise.
    bool HasPoint(int pixel) const;

    // Moving and drawing

    //! Writes the visible value, and shows or hides both markers as it then says.
    void Show(bool show);
    //! Writes the lower value as start and the higher as stop, in an order in which start never exceeds stop, finds
    //! their pixels, and shows or hides the window. Nothing is written when a value is NaN, when the limits of the
    //! bound values would put start above stop, and unless both are bound. Who hears of the first write and sets both
    //! anew is not put out of order by the second. A value outside the range has no pixel.
    void SetStartStop(double a, double b, bool show);
    //! Finds the pixels of the lower and the higher value, each moved into the range of the axis. Nothing happens
    //! unless both are bound.
    void RecalcBorders();
    //! Moves both pixels, to no further than the edges of the parent, and writes the values they show as SetStartStop()
    //! does. Nothing happens while a pixel is unknown, or when the axis is too narrow to tell values.
    void MovePixelOffset(int offset);
    //! Finds the pixels anew and draws a raised frame one pixel wide: along the axis from border to border, across it
    //! from \a a to \a b. Nothing without pixels, a parent or a painter.
    void DrawFrame(int a, int b, IColorBase::ECOLOR color, QPainter * painter);
    //! The marker of the start becomes that of the stop and the other way round: ids and colours, not what they are
    //! bound to. Finds the pixels anew.
    void SwitchBorders();
    //! MarkerList::ValueToPixel() of the parent; -1 without one.
    int ValueToPixel(int direction, double value) const;

    void Update(Observable * subject, TChangeCode code) override;

private:
    template <class T>
    bool Bind(T *& field, QString const & path);
    bool BindBorder(bool isStart, QString const & path, unsigned int id);
    template <class T>
    void LetGo(T *& field);
    bool Holds(Observable const * subject) const;
    void Forget(Observable * subject);
    void TakeValue(Observable const * subject);
    IColorBase::ECOLOR ColorOf(bool isStart) const;
    void AddBorder(int id, bool isStart, QString const & path);
    void ShowMarkers(bool show);
    bool WouldCross(bool isStop, double value) const;
    void WriteBorders(double a, double b);

    IValueNumeric * m_pStart = nullptr; // borrowed from the tree, as the next four
    IValueNumeric * m_pStop = nullptr;
    Value<bool> * m_pVisible = nullptr;
    Value<bool> * m_pHasFocus = nullptr;
    Value<QString> * m_pText = nullptr;
    MarkerList * m_pParent = nullptr; // borrowed
    LifeWatch m_parentLife;
    int m_startPixel = -1; // px; -1: unknown or outside the range
    int m_stopPixel = -1;
    QString m_text;
    EMarkerXYType m_direction;
    int m_startId = -1; // EMarkerID; -1 for none
    int m_stopId = -1;
    bool m_focus = false;
};

#endif
