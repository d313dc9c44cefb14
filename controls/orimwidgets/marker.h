// SPDX-License-Identifier: MIT
#ifndef ORIM_MARKER_H
#define ORIM_MARKER_H

#include "colorset.h"
#include "lifetime.h"
#include "observable.h"
#include "orimwidgets_export.h"

#include <QColor>
#include <QMetaType>
#include <QPointer>
#include <QRect>
#include <QString>

class IValueNumeric;
class MarkerList;
class QBrush;
class QObject;
class QPen;

//! What a marker can do beside being drawn; bits, joined by |.
enum EMarkerSpecial : unsigned int
{
    eSpecialY = 0x4,              //!< lies on the Y direction: stepping forward is a step up
    eSpecialX = 0x8,              //!< lies on the X direction
    eSpecialShowMoving = 0x80,    //!< is drawn while moving, even with the show flag off
    eSpecialWindowBorder = 0x100, //!< border of a client window
    eSpecialAlwaysShow = 0x200,   //!< is always drawn
    eSpecialResult = 0x400,       //!< has a result panel
    eSpecialInMenu = 0x800,       //!< has an entry in the menu of the axis
    eSpecialPlaceOnShow = 0x1000, //!< is moved into view when the menu of the axis shows it
    eSpecialPanelMenu = 0x2000,   //!< its own menu offers the result panel
    eSpecialFlagOnTop = 0x20000   //!< its flag hangs on the top of its rectangle
};

//! Direction of a marker or of a client window.
enum EMarkerXYType : int
{
    eMarkerX = 0,
    eMarkerY = 1
};

//! What a list of markers tells the other lists, with a bool beside it.
enum EMarkerState : int
{
    eMarkerShow = 0,    //!< the new show flag
    eMarkerMoving = 1,  //!< the new moving flag
    eMarkerCurrent = 2, //!< the new current flag
    eMarkerRepaint = 3  //!< repaint; the bool says nothing
};

Q_DECLARE_METATYPE(EMarkerState)

//! Fixed index of a marker in a list of markers.
enum EMarkerID : int
{
    eYellowX = 0,
    eYellowY = 1,
    eYellowXY = 2,
    eWhiteX = 3,
    eWhiteY = 4,
    eRangeXStart = 5,
    eRangeXStop = 6,
    eRangeXCenter = 7,
    eRangeYStart = 8,
    eRangeYStop = 9,
    eRangeYCenter = 10,
    eBlueX = 11,
    eBlueY = 12,
    eRedX = 13,
    eRedY = 14,
    eTemp = 15,
    eTemp1 = 16,
    eTemp2 = 17,
    eTemp3 = 18,
    eFree19 = 19,
    eFree20 = 20,
    eFree21 = 21,
    eFree22 = 22,
    eFree23 = 23,
    eFree24 = 24,
    eFree25 = 25,
    eFree26 = 26,
    eFree27 = 27,
    eAddYellow = 28,
    eAddYellow1 = 29,
    eAddYellow2 = 30,
    eAddYellow3 = 31,
    eFree32 = 32,
    eFree33 = 33,
    eFree34 = 34,
    eFree35 = 35,
    eFree36 = 36,
    eFree37 = 37,
    eFree38 = 38,
    eFree39 = 39,
    eFree40 = 40,
    eFree41 = 41,
    eMouseMove = 42
};

//! One ruler position on an axis: a value, the state that decides whether it is drawn, its colours, and an optional
//! binding to a numeric value of the tree. It belongs to one MarkerList, which maps it to pixels, runs its timer and
//! carries its state to other lists. Without a list it keeps its state and follows nothing.
//!
//! A marker and its list may be deleted by whoever hears of what it does. For the GUI thread.
class ORIMWIDGETS_EXPORT Marker : public IObserver
{
public:
    Marker();
    //! As operator=, on a new marker.
    Marker(Marker & other);
    //! Takes over value, show flag, format, moveable, show offset with its pixels, wrap period, value path, enabled,
    //! use of the moving value, gap id, current, never show, show result, factor and fill below, and binds the two
    //! values of the source. Rectangles, pixels and colour become those of a new marker, and the parent null. Special
    //! bits, moving, wrap range, name, offset and timer stay. Brush and pens handed out before stay valid.
    Marker & operator=(Marker const & other);
    ~Marker() override;

    //! Hears the bound values. A state change enables, disables or unbinds at once; all else counts only while the list
    //! is visible.
    void Update(Observable * subject, TChangeCode code) override;

    //! The position in axis units.
    virtual double GetValue();

    //! Whether a value is bound.
    virtual bool GetConnected();
    //! A disabled marker paints grey and cannot be moved.
    virtual void setEnabled(bool enabled);

    bool isEnabled() const { return m_enabled; }

    // Binding

    //! Binds the numeric value at a path and follows it. The path is kept in any case: it is what identifies the marker
    //! across lists.
    //! \return false, and nothing is bound, when the path is unknown or names a value that is not numeric.
    bool Set_ValuePath(QString const & path);
    //! The same for the offset; the path is not kept.
    bool SetOffset_ValuePath(QString const & path);

    QString GetValuePath() const { return m_valuePath; }

    //! The bound value; null when there is none.
    IValueNumeric * GetIValueNumeric() const { return m_boundValue.Get(); }

    //! Reads value and offset from the bound values, wraps, and repaints the list.
    void Update();

    // Value

    //! Moves the marker to v times the factor; any double. The same position does nothing. Unbound, the marker keeps
    //! the product. Bound, the product is written to the value, as one undo step, and the marker keeps what the value
    //! then holds, divided by the factor.
    //! \return the value afterwards.
    double SetValue(double v);
    //! Moves the marker for the time of a drag: v times the factor becomes the interim value. Nothing happens without a
    //! bound value. With the use of the moving value off it works as SetValue().
    //! \return the value afterwards.
    double SetMovingValue(double v);

    //! Whether SetMovingValue() writes the interim value; true at the start.
    void UseMovingValue(bool on) { m_useMovingValue = on; }

    //! The interim value times the factor; 0 without a bound value.
    double GetDrawValue() const;
    //! The value; a negative one has the wrap value of the list added when that is set.
    double GetUnWrappedValue() const;

    //! Whether the interim value differs from the bound value; false without one.
    bool Changing() const;
    //! The interim value becomes the bound value, as one undo step.
    void EndMoving();
    //! Steps the bound value to the next pixel on which it can stand, within the range of the axis.
    //! \return whether it moved; false without a list, without a bound value, off the axis, and when no pixel of the
    //!         axis shows another value.
    bool Move2NextPixel(bool forward);

    double GetOffset() const { return m_offset; }

    void SetOffset(double offset) { m_offset = offset; }

    double GetFactor() const { return m_factor; }

    //! Factor from the caller's unit to that of the bound value; any double, 0 divides as doubles do.
    void SetFactor(double factor) { m_factor = factor; }

    //! What a pane last drew, by its own word; 0 at the start.
    double GetLastDrawnValue() const { return m_lastDrawnValue; }

    void SetLastDrawnValue(double value) { m_lastDrawnValue = value; }

    //! Whether the value differs from the one last drawn.
    bool Moved() const;

    // Wrap

    //! Period by which a value outside the wrap range is shifted once into it; -1 for none.
    void SetWrapAround(int period);

    int GetWrapAround() const { return m_wrapAround; }

    //! The range that values are wrapped into; start not below stop means no wrapping.
    void SetWrapIntoRange(int start, int stop);
    void GetWrapIntoRange(int & start, int & stop) const;

    // Visibility and state

    //! Whether the marker is drawn now.
    bool GetShowMarker() const;
    //! Sets what the operator wishes, tells the other lists unless \a noSignal, and reads the bound values anew.
    //! \return \a show.
    bool SetShowMarker(bool show, bool noSignal);

    bool GetShowMarkerFlag() const { return m_showFlag; }

    //! Hides the marker whatever the show flag says; only eSpecialAlwaysShow is stronger.
    void SetNeverShowMarker(bool never) { m_neverShow = never; }

    bool GetNeverShowMarker() const { return m_neverShow; }

    //! Whether the result panel is drawn now.
    bool GetShowResult() const;

    void SetShowResult(bool show) { m_showResult = show; }

    bool GetShowResultFlag() const { return m_showResult; }

    //! True while the value is changing, and 1000 ms longer.
    bool IsMoving() const { return m_moving; }

    //! Begins or ends the moving state and tells the other lists of a change unless \a noSignal. Each beginning starts
    //! the 1000 ms anew.
    void SetMoving(bool moving, bool noSignal);
    //! Makes this the marker that the wheel steps, and tells the other lists first unless \a noSignal.
    //! \return \a current.
    bool SetCurrentMarker(bool current, bool noSignal);

    bool GetCurrentMarker() const { return m_current; }

    //! Timer of the list that ends the moving state; -1 for none.
    int GetTimerID() const { return m_timerId; }

    void StopTimer();

    //! Moveable by the operator. The getter is true only while the marker is enabled too.
    void SetMoveable(bool moveable) { m_moveable = moveable; }

    bool GetMoveable() const { return m_moveable && m_enabled; }

    //! Bits of EMarkerSpecial; unknown bits are kept.
    void SetSpecial(unsigned int special) { m_special = special; }

    unsigned int GetSpecial() const { return m_special; }

    //! Index of another marker of the list, which MarkerList::GetGapMarker() returns; -1 for none.
    void SetGapId(int id) { m_gapId = id; }

    int GetGapId() const { return m_gapId; }

    void SetFillBelow(bool fill) { m_fillBelow = fill; }

    bool GetFillBelow() const { return m_fillBelow; }

    // List and pixels

    //! The list that the marker belongs to; borrowed, null for none.
    void SetParent(MarkerList * parent);
    //! Null when there is none or it has ended.
    MarkerList * GetParent() const;

    //! Cached position, px; -1 means unknown.
    void SetPixel(int pixel) { m_pixel = pixel; }

    int GetPixel() const { return m_pixel; }

    void SetResultPixel(int pixel) { m_resultPixel = pixel; }

    int GetResultPixel() const { return m_resultPixel; }

    //! Forgets both pixels. A visible list that draws this marker has its rulers calculated anew.
    void InvalidatePixel();
    //! \param pixels  by which the offset is drawn beside the marker, px.
    void SetShowOffset(bool show, int pixels);
    //! Whether the offset is drawn. A disabled marker gives false and leaves \a pixels as it was.
    bool GetShowOffset(int & pixels) const;

    //! Rectangle of the label, px; invalid at the start. An invalid one holds no point.
    void SetRect(QRect const & rect) { m_rect = rect; }

    QRect GetRect() const { return m_rect; }

    //! Rectangle of the ruler line, px; invalid at the start.
    void SetRulerRect(QRect const & rect) { m_rulerRect = rect; }

    QRect GetRulerRect() const { return m_rulerRect; }

    //! Row at which the flag hangs on the rectangle, px: its top with eSpecialFlagOnTop, else its bottom.
    int GetFlagOffsetLine() const;

    // Text

    //! \param name  label for the operator.
    void SetMarkerName(QString const & name) { m_markerName = name; }

    QString GetMarkerName() const { return m_markerName; }

    //! \param width      digits ahead of the point.
    //! \param precision  decimals. -1 for both means no format.
    void SetFormat(int width, int precision);
    void GetFormat(int & width, int & precision) const;
    //! The value as text, in the C locale; a negative one with the wrap value of the list added. Without a format six
    //! wide with three decimals. Width and decimals are bounded at 1100 each, which holds every double in full.
    //! \param formatted  gets whether there is a format; may be null.
    QString GetStringValue(bool * formatted) const;
    //! The same text of this marker's own value, whatever \a unused is; without decimals it is rounded half away from
    //! zero, and a number that no 64-bit integer holds gives the lowest of them.
    QString GetStringValue(double unused, bool * formatted) const;
    //! Writes index, name, value and path of the marker to the trace, when the trace mask asks for it.
    void TraceIndexAndName();
    //! Whether an index is that of a range marker.
    static bool isMeasurementId(EMarkerID const & id);

    // Colours: made on first use, owned by the marker, valid until its colours are cleared

    void SetColor(IColorBase::ECOLOR color);

    IColorBase::ECOLOR GetColor() const { return m_color; }

    //! The colour as the colour set has it now.
    QColor GetQColor() const;
    //! Solid in the marker's colour. A disabled marker gives the grey brush that all markers share; it ends when the
    //! colours of any marker are cleared.
    QBrush * GetBrush();
    QPen * GetPen();
    //! White on dark colours, black on light ones.
    QPen * GetTextPen();
    //! Deletes pens and brush, and the shared grey brush; each is made again on demand.
    void clearColors();
    //! clearColors(), and unbinds both values.
    void ClearInternals();

protected:
    //! Makes this the value, for a class whose position comes from elsewhere: nothing is written, told or drawn.
    void StoreValue(double value) { m_value = value; }

    //! Shifts the value by one wrap period when it lies outside the wrap range. \param draw  repaint the list.
    void MoveIntoRangeAndDraw(bool draw);

    static QBrush * m_GrayBrush; // of all markers; null until it is used

private:
    friend class MarkerList;

    //! The tie to one value of the tree.
    class Bond
    {
    public:
        //! Null once the value has ended.
        IValueNumeric * Get() const { return m_life.IsOver() ? nullptr : m_pValue; }

        void Set(IValueNumeric * value);

    private:
        IValueNumeric * m_pValue = nullptr; // borrowed from the tree
        LifeWatch m_life;                   // of the value
    };

    void CopyState(Marker const & other);
    void Unbind(Bond & bond, Bond const & other);
    bool BindPath(Bond & bond, QString const & path);
    void Hold(Bond & bond, IValueNumeric * value);
    void HearState(Observable const * subject);
    void TakeNumber(Observable const * subject, bool interim);
    void TellLastMovingIndex();
    //! \return the value held afterwards; \a product when the marker ended meanwhile.
    double WriteBoundValue(double product);
    void RestartTimer();
    bool MoveWithinRange(int direction, double value);

    bool m_enabled = true;
    double m_value = 0.0;
    double m_lastDrawnValue = 0.0;
    IColorBase::ECOLOR m_color = IColorBase::eColorMarker;
    QRect m_rect{ QPoint(0, 0), QPoint(-2, -2) };
    QRect m_rulerRect{ QPoint(0, 0), QPoint(-2, -2) };
    bool m_showFlag = true;
    int m_formatWidth = -1;
    int m_formatPrecision = -1;
    bool m_moveable = false;
    bool m_showOffset = false;
    int m_offsetPixels = 0;
    QBrush * m_pBrush = nullptr; // owned, as the pens; left behind by operator=
    QPen * m_pPen = nullptr;
    QPen * m_pTextPen = nullptr;
    unsigned int m_special = 0;
    bool m_moving = false;
    int m_wrapAround = -1;
    int m_wrapStart = -1;
    int m_wrapStop = -1;
    QString m_valuePath = QLatin1String("");
    QString m_markerName;
    Bond m_boundValue;
    Bond m_boundOffset;
    QPointer<MarkerList> m_pParent;  // borrowed
    MarkerList * m_pOwner = nullptr; // the list that holds this, whatever the parent is; ends later
    int m_pixel = -1;
    int m_resultPixel = -1;
    double m_offset = 0.0;
    double m_factor = 1.0;
    bool m_useMovingValue = true;
    bool m_neverShow = false;
    int m_timerId = -1;
    QPointer<QObject> m_pTimerHost; // the list that runs the timer
    int m_gapId = -1;
    bool m_current = false;
    bool m_showResult = false;
    bool m_fillBelow = false;
};

#endif
