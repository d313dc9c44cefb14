// SPDX-License-Identifier: MIT
#ifndef ORIM_AXISBASE_H
#define ORIM_AXISBASE_H

#include "ihaspropertypage.h"
#include "ihmap.h"
#include "iunittextprovider.h"
#include "iupdatemenu.h"
#include "lifetime.h"
#include "markerlist.h"
#include "orimwidgets_export.h"
#include "pixelmap.h"
#include "timetics.h"
#include "valuenumeric.h"
#include "zoomband.h"
#include "zoomhistory.h"

#include <QBrush>
#include <QFont>
#include <QPen>
#include <QPixmap>
#include <QPointer>
#include <QRect>
#include <QString>

#include <cstddef>
#include <memory>
#include <vector>

class AxisPropertyPage;
class AxisRangeDisplay;
class ClientWindow;
class QIcon;
class QPainter;
class ResortPopupMenu;
class SuffixedDouble;
class VCScrollButtons;
class ValueSelection;

namespace Orim {
class DateTime;
}

//! The widget that owns a range of values and maps it onto pixels: horizontally with the start at the left, vertically
//! with the start at the bottom. It finds the tics of the range, follows values of the tree, and has the operations
//! that paint a scale; it paints nothing by itself. An application derives its panes from it.
//!
//! Values are in the axis unit, pixels in the widget. A range may run downward. No operation reports an error: a value
//! without a pixel is -1, and what is divided by an empty range or by the extent of a single pixel is infinite or NaN.
//! The axis may be deleted by whoever hears of what it does. For the GUI thread.
class ORIMWIDGETS_EXPORT AxisBase : public MarkerList,
                                    public IUpdateMenu,
                                    public IHMap,
                                    public IHasHMap,
                                    public IHasPropertyPage,
                                    public IUnitTextProvider
{
    Q_OBJECT
    Q_PROPERTY(double Start READ Start WRITE SetStartValue)
    Q_PROPERTY(double Stop READ Stop WRITE SetStopValue)
public:
    //! Bits of the axis type.
    enum AxisType : unsigned int
    {
        AxisTypeBit0 = 0x01, //!< carried only
        AxisTypeBit2 = 0x04, //!< carried only
        AxisHorizontal = 0x10,
        AxisVertical = 0x20, //!< the stop value lies at the top
        AxisFrequency = 0x80,
        AxisShading = 0x100, //!< a shading colour is active; follows it
        AxisTypeBit9 = 0x200,
        AxisNoPropertyPage = 0x400,
        AxisTypeBit13 = 0x2000,
        AxisWrapped = 0x4000, //!< values outside the range are moved by the wrap value of the list once
        AxisDblClickSignal = 0x10000,
        AxisTimeStamps = 0x20000, //!< values are time stamps, us since 1970
        AxisInnerFrame = 0x100000,
        AxisWinPanel = 0x200000,
        AxisDefaultOnDblClick = 0x400000
    };

    //! Where a value lies with regard to the range.
    enum InRange : int
    {
        InRangeInside = 1, //!< the ends included; NaN too
        InRangeBelow = 2,
        InRangeAbove = 3
    };

    //! How an axis of time stamps writes its tics, its label and a full date; the texts are TimeTics::Formats.
    enum TimeFormat : int
    {
        eTimeFormat1 = 1, //!< days
        eTimeFormat2,     //!< days and hours
        eTimeFormat3,     //!< hours
        eTimeFormat4,     //!< hours and minutes
        eTimeFormat5,     //!< hours, minutes and seconds; chosen by no range, as 9 to 11
        eTimeFormat6,     //!< minutes
        eTimeFormat7,     //!< minutes and seconds
        eTimeFormat8,     //!< seconds
        eTimeFormat9,     //!< minutes and seconds; the date format stays
        eTimeFormat10,    //!< seconds and milliseconds
        eTimeFormat11     //!< micro signs
    };

    // Times, us
    static constexpr long long m_sMicroSecond = TimeTics::MicroSecond;
    static constexpr long long m_sMilliSecond = TimeTics::MilliSecond;
    static constexpr long long m_sSecond = TimeTics::Second;
    static constexpr long long m_sMinute = TimeTics::Minute;
    static constexpr long long m_sHour = TimeTics::Hour;
    static constexpr long long m_sDay = TimeTics::Day;

    //! A range to go back to.
    using StartStopBandwidth = ZoomHistory::StartStopBandwidth;

    //! \param name             object name; may be null.
    //! \param axisType         bits of AxisType; without a direction no value has a pixel.
    //! \param fixedSidePixels  px beside the scale, for derived panes.
    //! \param ticLength        px.
    //! \param fontPointSize    of the labels; two more fonts are 1 and 4 points larger. 0 and less takes Qt's own size.
    explicit AxisBase(QWidget * parent = nullptr, char const * name = nullptr, unsigned int axisType = 17,
                      int fixedSidePixels = 20, int ticLength = 5, int fontPointSize = 8);
    //! Lets go of every bound value.
    ~AxisBase() override;

    // Whether and how to draw

    //! Always true here: the picture is made anew at each paint.
    virtual bool bMustRebuildPixMap();

    // Value to pixel

    //! Value that a pixel shows; not clamped. With an inner rectangle one pixel long it is infinite or NaN. An axis of
    //! both directions takes the pixel as one of a vertical axis, though its values have the pixels of a horizontal
    //! one.
    virtual double PixelToValue(int pixel) const;
    //! Pixel that shows a value, truncated towards zero. The length and the place of the inner rectangle count as
    //! 16-bit numbers. \return -1 for NaN, outside the range, for an empty range, and for an axis without a direction.
    virtual int ValueToPixel(double value) const;
    //! The same; an axis is one section.
    double PixelToValue(int section, int pixel) override;
    int ValueToPixel(int section, double value) override;
    //! The same. \param ok  set to whether there is a pixel; may be null, and then \a invert is not heard.
    //! \param invert  count from the far end: GetCalcWidth() - 1 less the pixel.
    int ValueToPixel(double value, bool * ok, bool invert) const override;
    //! \param invert  count the pixel from the far end of the widget, less both offsets.
    //! \param ok      set to whether the value is not below 0; may be null.
    double PixelToValue(int pixel, bool * ok, bool invert) const override;
    //! Pixels of both values; \a pb stays as it is when the first has none. \return whether both have one.
    bool RangeToPixel(double a, double b, int & pa, int & pb, bool invert) const override;
    //! The pixels of many values at once, as ValueToPixel(double) of this class gives them.
    //! \param values, pixels  \a count entries each; null does nothing.
    void ValuesToPixels(double const * values, int * pixels, std::size_t count) const;

    //! Width of the widget, of a vertical axis too, px.
    int GetPixelCnt() const override;
    //! Length of the axis between the offsets, px.
    int GetCalcWidth() const;
    //! Whether a pixel lies between the offsets; both ends belong to it.
    bool IsPixelValid(int pixel) const;
    //! Pixels for one unit of the axis; the argument is ignored.
    double GetPixelsForXUnit(int section) const override;
    //! Units of the axis for one pixel.
    double GetXUnitsForPixel(int section) const override;
    //! 1.
    int GetSectionCnt() const override;
    //! This.
    IHMap * HMap() override;
    InRange CheckInRange(double value) const;

    //! Vertical scroll position of the picture, px; 0 here.
    virtual int ScrollYPixelOffset() const;
    //! For derived panes that keep a border above; false here.
    virtual bool UpperBorder(double value);

    // Zoom and mouse
    //
    // The operator drags a band along the axis with the left button to zoom, drags with Shift held to pan, and goes
    // through the ranges by double clicks. Each zoom may leave an entry in the history of ranges; its length has no
    // limit.

    //! Shows a range of more than 0.1 units, writes it to the bound start and stop, whose limits win, and emits
    //! Zoomed(). With a bound center and half width the half width becomes the distance of the center to the farther
    //! end. A frequency axis shows at least one unit for two pixels.
    //! \param start, stop  in any order.
    //! \param record       whether the range before goes into the history.
    //! \return whether the range was applied. It is not for a range that is too narrow, for NaN, for the present range
    //!         to within 1e-7, while zooming is disabled, and for a range without tics: this one is taken back.
    virtual bool SetZoomedRange(double start, double stop, bool record);

public Q_SLOTS:
    //! Shows the default range and forgets the history. Without a default range, and when it is shown already,
    //! ZoomToBegin(). \return whether the default range was applied.
    virtual bool ZoomToDefault();
    //! For derived classes; false here.
    virtual bool ZoomToBest();
    //! Shows the range of the device, if there is one, and forgets the history.
    virtual void ZoomToDevice();
    //! Forgets the history, and shows its oldest range when that overlaps the present one. \return whether it does.
    virtual bool ZoomToBegin();

public:
    // Texts

    //! Label of a value, wrapped as the display asks: by the converter, as a time, as the marker writes its own value,
    //! or in fixed point with the digits that the tics need. \param marker  may be null.
    virtual void BuildFormatString(QString & out, double value, Marker * marker);

    // Range

    //! Finds the tics of the range.
    virtual void CalcValues();
    //! The operator clicked on the axis: a band shorter than 6 pixels. Empty here.
    virtual void AxisClicked(int pixel);

public Q_SLOTS:
    //! Shows the latest range of the history and takes it out, even when it is refused. Always emits Zoomed().
    virtual void UnZoom();

public:
    //! Sets an end of the range, and the value bound to it; its limits win. Finds the tics, asks for a repair, and
    //! emits redrawBars() and signalRangeChanged(). \param value  any double; a bound value refuses NaN.
    virtual void SetStartValue(double value);
    virtual double GetStart();
    virtual void SetStopValue(double value);
    virtual double GetStop();

    double Start() const { return m_start; }

    double Stop() const { return m_stop; }

    //! Whether UnZoom() would show a range that overlaps the present one. When it would not, the history is forgotten.
    bool IsUnZoomAvailable();
    //! Forgets the history of ranges.
    void ClearUnZoom();
    //! Both are off at the start. Builds the menu anew.
    //! \param zoom       whether the operator may zoom and pan.
    //! \param rangeMenu  whether the menu offers the ranges to zoom to.
    void SetAxisZoomEnable(bool zoom, bool rangeMenu);

    //! Sets both ends, each as above, and ends a fixed range.
    void SetRange(double start, double stop);
    //! Sets the range together with its tics, which then stay. Writes no bound value and emits nothing.
    //! \param leftDigits, rightDigits  of the labels, before and behind the point.
    void SetFixedRange(double start, double stop, int ticCount, int leftDigits, int rightDigits, double firstTic,
                       double ticStep);
    //! Range to fall back to; both -1.0 at the start, which stands for none. Forgets the ranges to go back to.
    void SetDefaultRange(double start, double stop);
    void GetDefaultRange(double & start, double & stop) const;
    //! Range of the device; both -1.0 at the start, which stands for none.
    void SetDeviceRange(double start, double stop);
    void GetDeviceRange(double & start, double & stop) const;
    //! The section is ignored.
    void GetCurrentStartStop(int section, double & start, double & stop) override;

    //! Offset of the values of a scrolled axis. Writes the bound offset. On a horizontal axis with a bound speed and a
    //! bound offset the range then starts there and is as long as the pixels last; else the tics are found anew.
    void SetOffset(double offset);
    //! Speed of a scrolled axis, px per unit; writes the bound speed, then as SetOffset().
    void SetPixPerSecond(double pixels);

    double GetPixPerSecond() const { return m_pixPerSecond; }

    //! Displayed value by axis value; 1.0 at the start. The tics stay until they are found again.
    void SetDisplayFactor(double factor);

    double GetDisplayFactor() const { return m_displayFactor; }

    void SetRelative(bool relative);
    void toggleAbsoluteRelative();

    bool GetRelative() const { return m_relative; }

    //! Pixels left free at the ends of the axis.
    void SetPixOffset(int leftTop, int rightBottom);

    int GetLeftTopOffset() const { return m_leftTopOffset; }

    int GetRightBottomOffset() const { return m_rightBottomOffset; }

    int GetFixedSidePixels() const { return m_fixedSidePixels; }

    unsigned int GetAxisType() const { return m_axisType; }

    bool IsFrequencyAxis() const { return (m_axisType & AxisFrequency) != 0; }

    // Tics

    //! Minor tics are drawn where tics are further apart than this, px; -1, as at the start: never.
    void SetMaxPixBetweenTics(int pixels) { m_maxPixBetweenTics = pixels; }

    //! Distance of the tics in the displayed unit; -1, as at the start: the one that suits the range.
    void SetFixedTicWidth(int width);
    //! Pixels of the tics, for the derived class that writes them while it paints. Has the picture made anew.
    std::vector<int> & GetTicsVector();

    // Look

    void EnableDraw(bool on);

    void HideUnit(bool hide) { m_hideUnit = hide; }

    void ShowUnit(bool show) { m_showUnit = show; }

    void SetAutoScaleCheckOnProperty(bool on) { m_autoScaleCheckOnProperty = on; }

    void SetUseHandlerBaseSuffix(bool on) { m_useHandlerBaseSuffix = on; }

    //! Do not redraw.
    void SetBgColor(QColor & color);
    void SetTextColor(QColor & color);
    //! Where the panel of a result is drawn; pixel -1 is nowhere.
    void SetResultPanelPixelValue(int pixel, double value);
    //! What the axis shades by; 0 is nothing. Chooses in the bound selection when there is one.
    void SetShadingColor(VC::EShadingColor const & color);

    VC::EShadingColor GetShadingColor() const { return static_cast<VC::EShadingColor>(m_shadingColor); }

    // Unit and numbers

    //! Takes the converter over; null for none.
    void SetConverter(SuffixedDouble * converter);
    SuffixedDouble * GetConverter() const;
    void DisableUnitSelection();
    void SetUnitText(QString unit) override;
    QString GetUnitText() override;
    QString GetPropertyPageUnitText() override;
    QString GetPureUnitText() override;
    //! \return 0 for a text that is no number. "inf", "nan", and a number that no double holds are none; only a
    //!         converter may read them otherwise.
    double String2double(QString text) override;
    QString double2String(double value, char const * format) override;

    // Time axis

    //! Takes the texts of a format over as tic format, unit and date format, and shows the unit. The tics of the next
    //! range choose anew when their format is another. \param format  any number; one that is no format counts as
    //! minutes and seconds and leaves the date format as it is.
    void SetTimeDisplayFormat(AxisBase::TimeFormat format);
    //! An empty text; the argument is ignored.
    QString TimeString4Value(int value);

    //! The range display that belongs to this axis; not owned. A display registers itself, and takes itself off again.
    //! Its time format follows the range. While it is visible its size follows that of the axis, and its numbers follow
    //! SetDisplayFactor() and SetConverter(). \param display  null for none.
    void SetAxisRangeDisplay(AxisRangeDisplay * display);
    //! Null without one, and once it has gone.
    AxisRangeDisplay * GetAxisRangeDisplay() const;
    //! Whether there is one and it is visible.
    bool IsAxisRangeVisible() const;

    // Menu and settings page

    //! Builds the context menu anew: the markers with eSpecialInMenu, the ranges to zoom to when zooming is enabled,
    //! and the settings. A menu that is shown lives until it closes. To be called when such a marker was added.
    void BuildMenu() override;
    //! Brings the context menu up to date with the pane of the menu; without one it stays as it is.
    //! \param menu  ignored.
    void UpdateMenu(ResortPopupMenu * menu) override;
    //! The menu of the drawn marker where the menu was asked for, built anew, when there is a pane of the menu; else
    //! the general one.
    ResortPopupMenu * GetContextMenu() override;
    //! The list whose markers the menu shows and hides; null, as at the start, for none. Borrowed.
    void SetMenuMarkerPane(MarkerList * pane);
    //! Picture of a marker in the menu, 16 by 16. \param x  whether the marker lies along x.
    static QPixmap GetAxisMenuPixmap(bool x, IColorBase::ECOLOR color);

    //! Place of the page in the tree of pages; empty at the start.
    void SetPropertyPagePath(QString const & path) { m_propertyPagePath = path; }

    QString const & GetPropertyPagePath() override;
    //! A new page with the range and its limits. It is disabled while zooming is.
    //! \param parent  owns the page; may be null. \param name  object name; may be null.
    //! \return null while pages are disabled, and with AxisNoPropertyPage.
    QWidget * GetPropertyPage(QWidget * parent, char const * name) override;

    // Binding to values of the tree. Each operation lets go of the value before, and returns whether there is a value
    // of the right type at the path.

    //! A number; the start follows it, and is the default start from then on.
    bool SetStart_ValuePath(QString const & path);
    bool SetStop_ValuePath(QString const & path);
    //! A number; a new one forgets the ranges to go back to.
    bool SetCenter_ValuePath(QString const & path);
    //! A number; with the centre, a chosen range writes it.
    bool SetHalfWidth_ValuePath(QString const & path);
    //! A bool.
    bool SetAutoScale_ValuePath(QString const & path);
    //! A selection with keys of EAzimuthDisplay.
    bool SetDisplayAzimuth_ValuePath(QString const & path);
    bool SetPixPerSecond_ValuePath(QString const & path);
    //! A number or an integer.
    bool SetOffset_ValuePath(QString const & path);
    //! A selection with keys of VC::EShadingColor.
    bool SetShadingColor_ValuePath(QString const & path);
    //! A number. The default range follows the stop alone: a new stop takes both over, while both are bound.
    bool SetDefaultStart_ValuePath(QString const & path);
    bool SetDefaultStop_ValuePath(QString const & path);
    //! The same for the range of the device.
    bool SetDeviceStart_ValuePath(QString const & path);
    bool SetDeviceStop_ValuePath(QString const & path);
    //! Any value: a change of it drops the picture. \param index  0 to 3; the value at 3 is only observed.
    bool SetForceRebuild_ValuePath(QString const & path, unsigned int index);

    //! Has the scroll buttons step a number. \return false without buttons, too.
    bool SetScrollBar_ValuePath(QString const & path);

    //! Null while nothing is bound, as the next two.
    Value<bool> * GetAutoScaleBoolean() const { return m_pAutoScale; }

    IValueNumeric * GetStartValueNumeric() const { return m_pStart; }

    IValueNumeric * GetStopValueNumeric() const { return m_pStop; }

    //! Who is told of a change of the bound start and stop as well; null for nobody. Not owned.
    void SetPrimaryVMappingDrawPane(IObserver * pane);
    //! Null unless a derived class made them.
    VCScrollButtons * GetScrollButtons() const;

    // Client window: a marked stretch of the axis, along y on a vertical axis and else along x

    //! Makes the window, once. \return owned by this axis.
    ClientWindow * CreateClientWindow();
    //! Bind a number as start or stop of the window, with the marker 16 or 17 as its border; make the window first.
    //! \return whether there is a number at the path.
    bool SetButtonStart_ValuePath(QString const & path);
    bool SetButtonStop_ValuePath(QString const & path);

    void Update(Observable * subject, TChangeCode code) override;
    void RepairDrawing() override;

    //! The widget less the offsets at left and right; top and bottom are those of the widget.
    virtual QRect innerRect() const;
    //! Passes the proxy to the scroll buttons as well.
    virtual void setFocusProxy(QWidget * proxy);

Q_SIGNALS:
    //! The operator chose another range.
    void Zoomed();
    //! Start or stop was set.
    void signalRangeChanged();
    //! The picture was painted.
    void AxisRepainted();
    //! What is drawn along the axis moves.
    void redrawBars();

public Q_SLOTS:
    //! Takes over what stands on the page that was asked for last, when it was changed: automatic scaling, and the
    //! range unless it is empty. The page then shows what the range became.
    void slotAcceptPropertyChanges() override;
    //! Takes the colours anew, finds the tics and drops the picture.
    void slotRefreshPixmapNow();
    //! Shows the range display, or hides it. \return false without one, and while this axis itself is hidden.
    virtual bool slotShowAxisRangeDisplay(bool show = true);
    virtual bool slotHideAxisRangeDisplay();
    //! Shows the settings in a modal dialog, and returns when that is closed. The axis may end meanwhile.
    virtual void slotShowProperties();
    //! Shows a marker of the pane of the menu when it is hidden, or hides it; all lists hear of it. One with
    //! eSpecialPlaceOnShow is first moved to where the menu was asked for.
    //! \param id  3000 and the index; anything else is ignored, as all is without a pane.
    virtual void slotShowRuler(int id);
    //! Shows or hides the result panel of a marker of the pane of the menu. \param id  4000 and the index, likewise.
    virtual void slotShowRulerPanel(int id);
    //! Hides all markers of this list; the other lists hear of it.
    virtual void slotHideAllRuler();

protected:
    //! Paints frame and ground, and the strip of bearing bands when the display asks for it. Does nothing without a
    //! picture.
    virtual void drawBackground(QPainter & painter);

public:
    //! Has the picture repaired.
    virtual void RebuildSections();
    //! Pixels that a distance on the axis takes, rounded up; the lowest int when no int holds them.
    virtual int DistanceToPixel(double distance);

protected:
    //! Paints the shading colours of the range, one line a pixel from \a x, \a y on, both ends included: the high end
    //! at the top, or at the right. \param w, h    px; nothing below 2, nor without a shading colour. \param invert  on
    //! a vertical axis: the high end at the bottom, and the colours not turned round.
    void drawShadeRect(QPainter & painter, int x, int y, int w, int h, bool invert);
    //! Paints the ageing colours as a column of steps, the first at the top, with the painter's pen around each.
    //! \param w, h   px; a step is a third of the width. Nothing below 2.
    //! \param steps  nothing below 1.
    void drawAgeingScale(QPainter & painter, int x, int y, int w, int h, int steps);

    //! What a drag of the mouse does.
    enum MouseMode : int
    {
        MouseIdle = 0,
        MouseBand = 0x10, //!< a band to zoom to
        MousePan = 0x20   //!< Shift held at the press
    };

    //! Covers the widget outside the band while one is dragged. A pane calls it after it has drawn its picture.
    void DrawWhileZoom(QPainter & painter) const;
    //! Looks at the outside markers for one that stands at the edge of the event: in the upper 25 rows for one whose
    //! hit rectangle is 2 pixels high, in the lower 24 rows for one that is 1 pixel high.
    //! \param value  set to the value of the first one. \return whether there is one; false without an event.
    bool FindOutsideMarker(QMouseEvent * event, double & value);
    //! Lets the range grow to take in the outside marker of the event. \return whether it grew.
    bool ApplyOutsideMarker(QMouseEvent * event);

    //! Finds the tics of a range; each argument takes what axisDefinition::GetAxisValuesLinear() tells. Those of time
    //! stamps follow TimeTics, in any number; \a minor takes that number, too, and \a left and \a right stay. Where
    //! they have none, nothing is written. They choose the time format. \return the number of tics; those of a fixed
    //! range stay, and nothing is written.
    int GetAxisValues(double * start, double * stop, int * minor, int * left, int * right, double * first,
                      double * step, double * offset, int mode);
    //! Number of minor tics between two tics when there is room for them; -1 when there is none.
    int Check4Tics() const;

    //! Value at which a tic stands. \param index  from 0.
    double GetTicValue(int index) const { return index * m_ticStep + m_firstTic + m_ticOffset; }

    //! Turns a bearing into the range that the bound display asks for.
    void WrapValue4Display(double & value) const;

    void resizeEvent(QResizeEvent * event) override;
    //! The left button starts a band, or with Shift a pan, unless a drag runs already.
    void mousePressEvent(QMouseEvent * event) override;
    void mouseMoveEvent(QMouseEvent * event) override;
    //! Ends the drag, unless Shift is held.
    void mouseReleaseEvent(QMouseEvent * event) override;
    //! Shows the default range, then that of the device, by turns.
    void mouseDoubleClickEvent(QMouseEvent * event) override;

    // State. A pointer to a value is borrowed from the tree, and null while nothing is bound.

    ValueSelection * m_pUnitSelection = nullptr; // its current item names the unit
    std::unique_ptr<SuffixedDouble> m_pConverter;
    int m_fixedTicWidth = -1;
    std::unique_ptr<QPixmap> m_pPixmap; // the picture of the axis; null: to be made anew
    std::unique_ptr<QPixmap> m_pPixmap2;
    double m_drawnStart = 0.0; // what the picture shows
    double m_drawnStop = 0.0;
    int m_drawnHeight = 0;                            // px
    IObserver * m_pPrimaryVMappingDrawPane = nullptr; // borrowed
    QPointer<MarkerList> m_pMenuMarkerPane;           // borrowed
    double m_defaultStart = -1.0;
    double m_defaultStop = -1.0;
    double m_deviceStart = -1.0;
    double m_deviceStop = -1.0;
    bool m_fixedRange = false;
    double m_start = 0.0;
    double m_stop = 0.0;
    double m_calcStart = 0.0; // what the tics were found for
    double m_calcStop = 0.0;
    double m_ticStep = 0.0;
    double m_firstTic = 0.0;
    double m_ticOffset = 0.0;
    int m_leftDigits = 3; // of the labels, before the point
    int m_rightDigits = 3;
    int m_ticCount = 0;
    int m_fixedSidePixels;
    int m_ticLength; // px
    int m_fontPointSize;
    int m_mouseMode = MouseIdle; // a MouseMode
    unsigned int m_axisType;
    ZoomHistory::Queue m_unZoom; // ranges to go back to
    int m_pressPixel = 0;        // px along the axis, as the next two
    int m_bandStart = 0;
    int m_bandEnd = 0;
    bool m_zoomEnabled = false;
    bool m_rangeMenuEnabled = false;
    bool m_offsetDrag = false; // a pan of a vertical axis moves the offset; for derived classes to set
    int m_maxPixBetweenTics = -1;
    int m_rightBottomOffset = 0; // px
    int m_leftTopOffset = 0;
    QFont m_font;
    QFont m_fontLarger;
    QFont m_fontBold;
    std::unique_ptr<ClientWindow> m_pClientWindow;
    QBrush m_bgBrush;
    QPen m_bgPen;
    QPen m_textPen;
    ValueNumeric<double> * m_pStart = nullptr;
    ValueNumeric<double> * m_pCenter = nullptr;
    ValueNumeric<double> * m_pStop = nullptr;
    Value<bool> * m_pAutoScale = nullptr;
    ValueSelection * m_pDisplayAzimuth = nullptr;
    ValueNumeric<double> * m_pHalfWidth = nullptr;
    ValueNumeric<double> * m_pPixPerSecondValue = nullptr;
    double m_pixPerSecond = 0.0;
    QString m_unitText;
    QPointer<AxisPropertyPage> m_pPropertyPage; // borrowed
    QString m_propertyPagePath;
    ValueNumeric<double> * m_pOffset = nullptr; // either this or the next is bound
    ValueNumeric<int> * m_pOffset2 = nullptr;
    double m_offset = 0.0;
    std::vector<ValueBase *> m_forceRebuild; // 3
    std::unique_ptr<VCScrollButtons> m_pScrollButtons;
    int m_minorTics = 0;
    bool m_drawEnabled = true;
    double m_displayFactor = 1.0;
    bool m_relative = true;
    bool m_hideUnit = false;
    ValueSelection * m_pShadingColor = nullptr;
    int m_shadingColor; // a VC::EShadingColor
    bool m_firstRange = false;
    ValueNumeric<double> * m_pDefaultStart = nullptr;
    ValueNumeric<double> * m_pDefaultStop = nullptr;
    ValueNumeric<double> * m_pDeviceStart = nullptr;
    ValueNumeric<double> * m_pDeviceStop = nullptr;
    int m_timeFormat = eTimeFormat11;               // any number that was set
    QPointer<AxisRangeDisplay> m_pAxisRangeDisplay; // borrowed
    int m_resultPanelPixel = -1;
    double m_resultPanelValue = 0.0;
    QPointer<ResortPopupMenu> m_pSingleMarkerMenu; // child of the widget
    bool m_autoScaleCheckOnProperty = false;
    bool m_showUnit = true;
    std::vector<int> m_tics; // px, written by derived classes while they paint
    ValueSelection * m_pTimeZone = nullptr;
    std::unique_ptr<Orim::DateTime> m_pDateTime; // on an axis of time stamps
    QString m_timeFormatString = QStringLiteral("mm");
    QString m_dateFormatString;
    bool m_useHandlerBaseSuffix = false;

private:
    struct BoundField;

    bool IsHorizontal() const { return (m_axisType & AxisHorizontal) != 0; }

    bool IsVertical() const { return (m_axisType & AxisVertical) != 0; }

    bool HasDirection() const { return IsHorizontal() || IsVertical(); }

    bool IsTimeAxis() const { return m_pDateTime != nullptr; }

    PixelMap const & Map() const;
    void StartTimeAxis();
    int GetAxisValues4TimeStamps(double * start, double * stop, int * minor, int * left, int * right, double * first,
                                 double * step, double * offset, int mode);
    void StoreEnd(double & end, ValueNumeric<double> *& bound, double value);
    void StoreShadingColor(int color, bool active);
    void FillBearingBands(QPainter & painter);
    double TimeSpanEnd() const;
    void MoveScrolledRange();

    // These tell whether this still lives.
    bool SetEnds(double start, double stop);
    bool WriteBoundEnds(double start, double stop);
    bool FollowWithHalfWidth(double start, double stop, double & bandwidth);
    bool ShowNamedRange(double start, double stop);
    bool EndBand(int pixel);

    bool IsTooNarrow(double start, double stop) const;
    bool IsNearRange(double start, double stop) const;
    void ZoomToNextRange();
    ZoomBand::Span GetSpan() const;
    int PixelOf(QMouseEvent const * event) const;
    void ShowBandCursor();
    void StartBand(int pixel);
    void PanTo(int pixel);
    void WriteOffset(double offset);

    template <class T>
    bool Attach(T *& field, QString const & path);
    template <class T>
    bool Bind(T *& field, QString const & path);
    template <class T>
    void LetGo(T *& field);
    void LetGoOf(Observable * source);
    void StartChanged();
    void StopChanged();
    bool ForwardToPane(Observable * source);
    void WrapMarkersIntoRange();
    void CenterChanged();
    void DefaultStopChanged();
    void DeviceStopChanged();
    void TimeZoneChanged();

    std::vector<int> MarkersInMenu() const;
    void AddZoomItems(ResortPopupMenu & menu);
    QIcon MarkerIcon(int index) const;
    int MarkerUnderMenu() const;
    ResortPopupMenu * BuildSingleMarkerMenu(int index);
    bool IsShownInPane(int index) const;
    int MarkerOfItem(int id, int first) const;
    void ShowRangeOnPage();
    void LeaveMenus();

    mutable PixelMap m_map;                // of the range and the inner rectangle last asked for
    QPointer<ResortPopupMenu> m_pAxisMenu; // of the last BuildMenu(); child of this
    LifeWatch m_paneLife;                  // of m_pPrimaryVMappingDrawPane
    bool m_forwarding = false;             // to the pane
    ValueBase * m_pObserved = nullptr;     // borrowed, bound as force rebuild 3
    LifeWatch m_observedLife;              // of m_pObserved
};

#endif
