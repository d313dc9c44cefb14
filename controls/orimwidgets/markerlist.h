// SPDX-License-Identifier: MIT
#ifndef ORIM_MARKERLIST_H
#define ORIM_MARKERLIST_H

#include "control.h"
#include "marker.h"
#include "observable.h"
#include "orimwidgets_export.h"
#include "undorecording.h"
#include "vc.h"
#include "watchedmarker.h"

#include <QColor>
#include <QPointer>
#include <QWidget>

#include <memory>
#include <vector>

class MarkerPair;
class ResultMarker;
class ResultMarkerList;

//! Five numbers that an application keeps with a list of markers. Nothing here reads them.
struct ORIMWIDGETS_EXPORT MoveRange
{
    //! The fifth is left for the application; it is 0 until then.
    MoveRange(int theFirst, int theSecond, int theThird, int theFourth)
        : first(theFirst)
        , second(theSecond)
        , third(theThird)
        , fourth(theFourth)
    {}

    int first;
    int second;
    int third;
    int fourth;
    int fifth = 0;
};

//! The widget half of all that carries markers: up to 43 markers at fixed indices, the list of those drawn now, their
//! timers, the wheel that steps the current one, and the exchange of show, moving and current state with other lists. A
//! derived class supplies the mapping between value and pixel.
//!
//! An index is an EMarkerID. An operation that is given a bad one, or one without a marker, changes nothing and returns
//! false, 0, -1 or an empty text, as told there.
//!
//! Markers and the list itself may be deleted by whoever hears of what they do; a marker that is deleted without
//! DeleteMarker() leaves all lists at once. For the GUI thread.
class ORIMWIDGETS_EXPORT MarkerList : public QWidget,
                                      public Control,
                                      public IObserver,
                                      public VC,
                                      public virtual UndoRecordingControlBase
{
    Q_OBJECT
public:
    //! \param name  object name; may be null.
    explicit MarkerList(QWidget * parent = nullptr, char const * name = nullptr);
    MarkerList(MarkerList const &) = delete;
    MarkerList & operator=(MarkerList const &) = delete;
    //! Deletes the markers, then the pairs.
    ~MarkerList() override;

    // To be supplied and overridden by panes

    //! Marker::Set_ValuePath(). \return false for a bad index too.
    virtual bool SetMarker_ValuePath(int index, QString const & path);
    //! Invalidates the pixels of the markers that are drawn: of all for mask 0, else of those that share a special bit
    //! with it.
    virtual void ResetAllPixelValues(unsigned int mask);
    //! Builds the context menu; empty here.
    virtual void BuildMenu();
    //! Notes the marker that moved last; ignored unless it is enabled and moveable.
    virtual void SetLastMovingIndex(int index);
    //! \param direction  an EMarkerXYType. \return the value that a pixel shows; -1.0 when there is no mapping.
    virtual double PixelToValue(int direction, int pixel) = 0;
    //! \return the pixel that shows a value; -1 outside the range.
    virtual int ValueToPixel(int direction, double value) = 0;
    //! Drops the picture, so that the next paint makes it anew.
    virtual void RepairDrawing() = 0;
    //! Gives the range of the axis in a direction; stop may lie below start.
    virtual void GetCurrentStartStop(int direction, double & start, double & stop) = 0;
    //! Asks for RepairDrawing() once the repair delay has passed; repeated calls are one.
    virtual void Repair();
    //! QWidget::update().
    virtual void updateWidget();

public Q_SLOTS:
    //! Takes over the state of a marker of another list that has the same value path; it is not sent on. A hidden list
    //! ignores it. eMarkerCurrent clears the current flag of all other connected markers.
    virtual void slotSetState(QString path, EMarkerState m, bool value);
    virtual void slotSetBackgroundColor(QColor & color);
    //! Marker::clearColors() on each marker.
    virtual void slotClearColors();

public:
    //! Told when the top window is minimized or comes back; empty here.
    virtual void OnMinimize(bool minimized);
    //! Takes a new size, px; empty here.
    virtual void doResize(int width, int height);
    //! Calls doResize().
    virtual void doResizeNow(int width, int height);
    //! Makes the picture; empty here.
    virtual void BuildPixMap();

    //! Does nothing: for panes that observe values.
    void Update(Observable * subject, TChangeCode code) override;

    // Markers

    //! Whether there is a marker at an index.
    bool isIndexValid(int index) const;
    //! Whether there is one that is connected to a value.
    bool isIndexValidConnected(int index) const;
    //! Null when there is none.
    Marker * GetMarker(int index) const;
    //! -1 for null and for a marker that is not in this list.
    int GetIndex(Marker * marker) const;
    //! Lowest index of a connected marker with this value path; -1 for none.
    int GetIndex(QString const & path) const;
    //! Makes a marker, or clears colours and bindings of the one at this index and keeps the rest of it.
    //! \return null for an index outside 0 to 42.
    Marker * AddMarker(int id);
    //! The same, and sets the marker up; the other lists hear of the show flag.
    //! \param special  bits of EMarkerSpecial.
    //! \return null for an index outside 0 to 42, and when somebody who heard of it deleted the marker.
    Marker * AddMarker(int id, bool show, IColorBase::ECOLOR color, bool moveable, unsigned int special,
                       QString const & name);
    //! Deletes a marker. The lists of shown markers keep naming it: call RebuildMarkerList() before anybody reads them.
    void DeleteMarker(int id);
    //! The same.
    void RemoveResultMarker(int id);

    // Marker pairs

    //! Reads two markers as one crossing point. The list owns the pair, to its end. An index without a marker gives the
    //! pair none on that side.
    MarkerPair * AddMarkerPair(int x, int y);

    // Result markers

    //! Makes a marker that shows a measurement result; the other lists hear of a show flag that is false. One that is
    //! there already is left as it is. Call RebuildMarkerList() to have it drawn.
    //! \param special  bits of EMarkerSpecial. \param name  the name, and the path that identifies it across lists.
    //! \return null for an index outside 0 to 42, for one with a marker of another kind, and when somebody who heard of
    //!         it deleted the marker.
    ResultMarker * AddResultMarker(int id, bool show, IColorBase::ECOLOR color, bool moveable, unsigned int special,
                                   QString const & name);
    //! Makes the object that keeps result markers in step with a list of results; see there. One made earlier goes on
    //! beside it, by itself.
    //! \param id  of its first marker. \return owned by this list.
    ResultMarkerList * CreateResultMarkerList(int id, bool show, IColorBase::ECOLOR color, bool moveable,
                                              unsigned int special, QString const & name);

    //! The one made last; null for none.
    ResultMarkerList * GetResultMarkerList() const { return m_pResultMarkerList.get(); }

    // Markers that are drawn now

    //! Collects the markers that are drawn now.
    void RebuildMarkerList();

    //! Drawn markers by rising index, as of the last RebuildMarkerList().
    std::vector<Marker *> const & GetShownMarkers() const { return m_shownMarkers; }

    //! Their indices.
    std::vector<int> const & GetShownIndices() const { return m_shownIndices; }

    // State of one marker, as the operation of that name in Marker

    //! The other lists hear of it. \return \a show.
    bool SetShowMarker(int index, bool show);
    bool GetShowMarker(int index) const;
    bool GetShowMarkerFlag(int index) const;
    //! Asks for a repair too.
    void SetShowResultFlag(int index, bool show);
    bool GetShowResultFlag(int index) const;
    //! Repairs the drawing too. \return \a enable.
    bool SetEnableMarker(int index, bool enable);
    bool SetMarkerValue(int index, double value);
    bool SetMarkerMovingValue(int index, double value);
    bool SetUseMovingMarker(int index, bool on);
    //! 0 for a bad index.
    double GetMarkerValue(int index) const;
    //! Cached pixel; 0 for a bad index.
    int GetLastPixelValue(int index) const;
    //! \return whether the path was found.
    bool SetMarkerOffset_ValuePath(int index, QString const & path);
    //! Repaints too.
    bool SetMarkerColor(int index, IColorBase::ECOLOR color);
    //! Does not repaint.
    bool SetMarkerOffset(int index, double offset);
    bool SetMarkerMoveable(int index, bool moveable);
    //! The other lists hear of it.
    bool SetMarkerMoving(int index, bool moving);
    //! Asks for a repair too.
    bool SetMarkerShowOffset(int index, bool show, int pixels);
    bool SetMarkerFormat(int index, int width, int precision);
    bool SetMarkerSpecial(int index, unsigned int special);
    //! 0 for a bad index.
    unsigned int GetMarkerSpecial(int index) const;
    bool SetFillBelow(int index, bool fill);
    bool GetFillBelow(int index) const;
    //! 0 for a bad index.
    int GetMarkerWrapAround(int index) const;
    bool SetMarkerName(int index, QString const & name);
    bool SetGapMarkerId(int index, int id);
    //! -1 for a bad index.
    int GetGapMarkerId(int index) const;
    //! The marker that the gap id names; null for none.
    Marker * GetGapMarker(int index) const;
    //! Empty for a bad index.
    QString GetValueTreePath(int index) const;

    // The current marker and motion

    //! Makes a marker the one that the wheel steps. With \a current all others are cleared first, and the other lists
    //! hear of each; without it nothing else is cleared.
    //! \return \a current; false for a marker that is not connected.
    bool SetCurrentMarker(int index, bool current);
    //! Lowest index of a current marker; -1 for none.
    int GetCurrentMarker() const;

    //! -1 at the start.
    int GetLastMovingIndex() const { return m_lastMovingIndex; }

    //! Commits the interim value of a marker; -1 commits those of all that are changing, as one undo step.
    bool SetMarkerEndMoving(int index);
    //! \return whether the marker moved.
    bool MoveMarker2NextPixel(int index, bool forward);
    //! Whether the mouse moves a marker, in all lists.
    static void SetMouseMovingMarker(bool moving);
    static bool m_sMouseMovingMarker;

    // All markers

    //! Marker::SetWrapAround() on each. \return true.
    bool SetMarkerWrapAround(int period);
    //! Marker::SetWrapIntoRange() on each. \return true.
    bool SetMarkerWrapIntoRange(int start, int stop);
    //! Binds the offset of each marker with eSpecialY. \return true.
    bool SetOffset_ValuePath(QString const & path);
    //! Marker::TraceIndexAndName() of each.
    void TraceIndexAndName();
    //! Shows or hides the result panel of each marker with eSpecialResult.
    void ShowAllResultPanels(bool show);

    //! What ShowAllResultPanels() was last given; false at the start.
    bool GetShowAllResultPanels() const { return m_showAllPanels; }

    // Markers that lie outside the range of a pane

    //! Adds a marker, of any list; null and one already there are ignored. A deleted marker leaves the list.
    void AddOutsideMarker(Marker * marker);
    void ClearOutsideMarkers();
    //! In the order in which they were added.
    std::vector<Marker *> GetOutsideMarkers() const;

    // State of the pane

    //! Added to negative values of markers when they are read and written out; -1.0 means none.
    void SetWrapValue(double value) { m_wrapValue = value; }

    double GetWrapValue() const { return m_wrapValue; }

    QColor GetBackgroundColor() const { return m_backgroundColor; }

    void SetDrawLastValue(bool on) { m_drawLastValue = on; }

    bool GetDrawLastValue() const { return m_drawLastValue; }

    //! \param delay  ms; 100 at the start. A negative one counts as 0.
    void SetRepairDelay(int delay) { m_repairDelay = delay; }

    int GetRepairDelay() const { return m_repairDelay; }

    //! \param delay  ms; 250 at the start. A negative one counts as 0.
    void SetResizeDelay(int delay) { m_resizeDelay = delay; }

    int GetResizeDelay() const { return m_resizeDelay; }

    //! Set when the resize timer has fired, for the pane to take its new size.
    void SetResizePending(bool pending) { m_resizePending = pending; }

    bool GetResizePending() const { return m_resizePending; }

    //! Whether the rulers must be calculated anew; who has done so clears it. Also set when the widget was enabled or
    //! disabled since it was last asked.
    bool GetMustRecalcRulers();

    void SetMustRecalcRulers(bool must) { m_mustRecalcRulers = must; }

    //! Whether the top window is minimized.
    bool minimized() const;

    //! Running timers, 0 for none. That of the wheel keeps running after the first turn of the wheel.
    int GetRepairTimerID() const { return m_repairTimer; }

    int GetResizeTimerID() const { return m_resizeTimer; }

    int GetWheelTimerID() const { return m_wheelTimer; }

    //! Tells the other lists, by signalSetState().
    void sendSignalSetState(QString const & path, EMarkerState m, bool value);

    bool eventFilter(QObject * watched, QEvent * event) override;

public Q_SLOTS:
    //! Has the rulers calculated and the drawing repaired. The argument is ignored and the widget's own enabled state
    //! stays.
    void setEnabled(bool enabled);

Q_SIGNALS:
    //! For derived panes, as the next one and signalStopWaterfall(): a marker was moved.
    void signalMarkerChanged(MarkerList * pSender, int MarkerIndex, double newValue);
    //! A marker is being moved.
    void signalMarkerMoving(MarkerList * pSender, int MarkerIndex, double newValue);
    //! State of a marker for other lists.
    void signalSetState(QString path, EMarkerState m, bool value);
    void signalStopWaterfall();
    void AxisDoubleClick(QWidget * pSender);

protected:
    //! Starts the resize delay anew; at its end GetResizePending() is true and the pane is repainted.
    void StartResizeTimer();

    void timerEvent(QTimerEvent * event) override;
    void mouseDoubleClickEvent(QMouseEvent * event) override;
    void wheelEvent(QWheelEvent * event) override;
    void showEvent(QShowEvent * event) override;

    std::unique_ptr<MoveRange> m_pMoveRange; // null at the start

private:
    friend class Marker;

    void afterShow();
    void Forget(Marker const * marker);
    void RestartTimer(int & timer, int delay);
    bool StopTimer(int & timer, int id);
    bool EndMarkerTimer(int id);

    QPointer<QWidget> m_pTopWindow;
    std::vector<std::unique_ptr<Marker>> m_markers; // 43, null where there is none
    std::vector<Marker *> m_shownMarkers;           // borrowed from m_markers
    std::vector<int> m_shownIndices;
    std::vector<std::unique_ptr<MarkerPair>> m_markerPairs;
    std::vector<WatchedMarker> m_outsideMarkers;
    int m_lastMovingIndex = -1;
    bool m_showAllPanels = false;
    double m_wrapValue = -1.0;
    QColor m_backgroundColor = Qt::black;
    bool m_drawLastValue = false;
    int m_repairTimer = 0;
    int m_resizeTimer = 0;
    std::unique_ptr<ResultMarkerList> m_pResultMarkerList;
    int m_resizeDelay = 250; // ms
    int m_repairDelay = 100; // ms
    bool m_resizePending = false;
    bool m_mustRecalcRulers = true;
    bool m_lastEnabled = true;
    int m_wheelTimer = 0;
    WatchedMarker m_wheelMarker; // the one that the wheel moved last
};

#endif
