// SPDX-License-Identifier: MIT
#ifndef ORIM_VCCAPTION_H
#define ORIM_VCCAPTION_H

#include "control.h"
#include "lifetime.h"
#include "observable.h"
#include "orimwidgets_export.h"
#include "value.h"

#include <QBrush>
#include <QFont>
#include <QPen>
#include <QPixmap>
#include <QPoint>
#include <QPointer>
#include <QSize>
#include <QString>
#include <QWidget>

#include <memory>

class IWheelConsumer;
class QAction;
class QFrame;
class QHBoxLayout;
class QPushButton;
class QToolBar;
class ValueSelection;

namespace Orim {
class DateTime;
}

//! Thin title bar over a display pane: three texts, buttons that depend on its style, and the time span of a waterfall.
//!
//! The texts may change many times a second: the bar is painted into a picture, and a text that differs in digits alone
//! is not measured again. The colours are 61 to 65 of ColorSet. Whoever hears of a signal may delete the bar, and any
//! of its buttons may be deleted by others. For the GUI thread.
class ORIMWIDGETS_EXPORT VCCaption : public QWidget, public Control, public IObserver
{
    Q_OBJECT
public:
    //! Bits of the style. The first four exclude one another: the lowest one that is set counts.
    enum Style : unsigned int
    {
        StyleToolBar = 1,        //!< tool bar with the stop action
        StyleStopButton = 2,     //!< stop button
        StyleKeepOnTop = 4,      //!< tool bar with the stop action and the button "KeepOnTop"; drags its parent
        StyleFullButton = 8,     //!< button "Waterfall only", hidden at first, then the stop button
        StyleTimeZonePopup = 16, //!< a right click opens the choice of the time zone
        StyleDatastream = 32     //!< data stream button at the end
    };

    //! \param name      object name, Latin-1; null for none.
    //! \param flags     bits of Style.
    //! \param height    px; fixed. What no widget can have counts as the nearest that one can. A tool bar is 28 high
    //! and
    //!                  is cut in a lower bar.
    //! \param fontSize  points; one below 1 gives the size that the font system chooses.
    explicit VCCaption(QWidget * parent = nullptr, char const * name = nullptr, unsigned int flags = 0, int height = 10,
                       int fontSize = 7);
    ~VCCaption() override;

    // Texts. Any text is taken. Too narrow a bar shows one alone: the centre text, else the left, else the right.

    void SetCaptionLeft(QString text);
    void SetCaptionRight(QString text);
    //! Ends the display of a time span.
    void SetCaptionCenter(QString text);

    QString GetCaptionLeft() const { return m_Left; }

    QString GetCaptionRight() const { return m_Right; }

    QString GetCaptionCenter() const { return m_Center; }

    QString GetQCaptionLeft() const { return GetCaptionLeft(); }

    QString GetQCaptionRight() const { return GetCaptionRight(); }

    QString GetQCaptionCenter() const { return GetCaptionCenter(); }

    // Binding to a Value<QString> of the tree, which is taken over at once and followed. The value before is let go of.
    // Returned is whether there is a text at the path; without one the text stays.

    bool SetCaptionLeft_ValuePath(QString const & path);
    bool SetCaptionRight_ValuePath(QString const & path);
    bool SetCaptionCenter_ValuePath(QString const & path);

    // Times, in the zone of GuiBase

    //! Formats of start, stop and span of SetTimeCaption(), as Orim::DateTime takes them, for the next one. At the
    //! start "yyyy-MM-dd hh:mm:ss.zzz", "... mm:ss.zzz" and "[mm:ss.zzz". An empty one leaves its part out.
    void SetTimeCaptionFormat(QString start, QString stop, QString span);
    //! Shows a span of time as the centre text: start, stop and length, one behind the other. It follows the time zone
    //! until SetCaptionCenter() is called. Equal ends change nothing.
    //! \param start, stop  us since 1970, in any order; NaN, a negative one and one past 64 bits show as 0. A start of
    //!                     exactly -1 stands for none: it does not follow the zone.
    void SetTimeCaption(double start, double stop);
    //! Shows a time as the left text, "yyyy-MM-dd hh:mm:ss". Does nothing when the second is the same as in the call
    //! before. \param time  us since 1970; not written.
    void SetWFTimeLeft(unsigned long long & time);

    // Buttons. Each operation does nothing, or returns false or null, in a style without its button.

    //! Shows or hides the button "Waterfall only".
    void SetFullButtonVisible(bool on);
    //! Whether the data stream button is checked.
    bool GetStartStopDatastreamButtonState() const;
    //! Checks or releases the data stream button. \return whether the state changed.
    bool SetStartStopDatastreamButtonState(bool on);
    //! Whether the button "KeepOnTop" is checked.
    bool IsKeepOnTop() const;

    //! The button "KeepOnTop" or "Waterfall only".
    QPushButton * GetOnTopButton() const;
    QPushButton * GetStartStopDatastreamButton() const;
    QToolBar * getToolBar() const;
    QHBoxLayout * getLayout() const;
    //! Enables or disables the stop action or the stop button.
    void setStopButtonEnabled(bool on);
    //! Clicks the stop control when it is checked, which means that the waterfall stands.
    void triggerStopButton();

    bool isFocussed() const { return m_HasFocus; }

    //! Kept, and without effect on the picture. \param width  px.
    void SetRightOffsetWidth(int width);
    //! Hands the turns of the wheel over the bar to a consumer, which is not taken over and may end first: the turns
    //! then go where they went without one. Null for none.
    void SetWheelConsumer(IWheelConsumer * consumer);

    void Update(Observable * subject, TChangeCode code) override;

public Q_SLOTS:
    //! Shows the state of the button "KeepOnTop" and raises OnTopButtonClick(). Does nothing without a button.
    virtual void slotTopButtonClick();
    //! Calls slotStarted() or slotStopped() when the state differs.
    virtual void slotRunning(bool on);
    //! Checks the stop control, whose tool tip becomes "Resume"; raises Stop() when the waterfall was running. Does
    //! nothing without a stop control.
    virtual void slotStopped();
    //! Releases the stop control, whose tool tip becomes "Pause"; raises Start() when the waterfall stood. Does nothing
    //! without a stop control.
    virtual void slotStarted();
    //! Takes font and colours anew.
    virtual void slotColorsChanged();
    //! Calls slotStopped() or slotStarted().
    void sl_paused(bool paused);
    //! Calls slotStopped() when the stop button is checked, else slotStarted(), and raises si_stopButtonStateChanged()
    //! with what the button shows then. Does nothing without a stop button.
    void slotStopButtonClick();

Q_SIGNALS:
    void ButtonClick();      //!< the stop action was triggered
    void OnTopButtonClick(); //!< after IsKeepOnTop() changed
    void CaptionDoubleClick();
    void signalFullButtonClick();
    //! The bar gained or lost the focus.
    void FocusSet(bool bFocus = false);
    void Stop();
    void Start();
    void si_stopButtonStateChanged(bool checked); //!< checked means stopped
    void DatastreamButtonToggled(bool onOrOff);

protected:
    //! Width of a text in the caption font, px: the only place where a text is measured.
    virtual int MeasureText(QString const & text) const;

    //! Paints the bar into its picture. Does nothing without an area; drops the picture while the bar is not visible.
    void BuildPixmap();
    //! Width of a text; it is measured only when it cannot be known.
    //! \param old    text measured last; becomes \a text unless the known width holds.
    //! \param width  width known of \a old.
    int CheckWidthOnSimilarString(QString & text, QString & old, int width, int);

    bool event(QEvent * event) override;
    void paintEvent(QPaintEvent * event) override;
    void focusInEvent(QFocusEvent * event) override;
    void focusOutEvent(QFocusEvent * event) override;
    void mousePressEvent(QMouseEvent * event) override;
    void mouseMoveEvent(QMouseEvent * event) override;
    void mouseReleaseEvent(QMouseEvent * event) override;
    void mouseDoubleClickEvent(QMouseEvent * event) override;
    void wheelEvent(QWheelEvent * event) override;

    //! A value that is observed and may end without a word.
    template <class T>
    struct Watched
    {
        T * value = nullptr;
        LifeWatch life;

        T * Get() const { return life.IsOver() ? nullptr : value; }
    };

    using Text = Value<QString>;

    unsigned int m_Flags;
    int m_Height; // px
    bool m_HasFocus = false;
    QBrush m_FocusBrush;
    QBrush m_NoFocusBrush;
    QPen m_FocusTextPen;
    QPen m_NoFocusTextPen;
    QPen m_FocusFramePen;
    QPen m_NoFocusFramePen;
    QPen m_FocusCenterPen;
    QFont m_Font;
    QPointer<QToolBar> m_pToolBar;   // this owns it, as all parts below
    QPointer<QAction> m_pExitAction; // the tool bar owns it
    QPointer<QPushButton> m_pStopButton;
    QPointer<QPushButton> m_pOnTopButton;
    QPointer<QPushButton> m_pDatastreamButton;
    std::unique_ptr<QPixmap> m_pPixmap; // the painted bar; null while there is none
    QPointer<QFrame> m_pSpace;          // takes the width that the buttons leave
    int m_LeftWidth = -1;               // px; -1: not measured
    int m_RightWidth = -1;
    int m_CenterWidth = -1;
    int m_TimeWidth = 0; // px, reserved for a time span
    int m_BaseLine = 0;  // px, of all texts
    QString m_TimeFormat1;
    QString m_TimeFormat2;
    QString m_TimeFormat3;
    int m_FontSize;             // points
    int m_RightOffsetWidth = 0; // px
    Watched<Text> m_pLeftValue; // borrowed from the tree; null once it went away
    QString m_Left;
    QString m_LeftOld; // measured last
    Watched<Text> m_pRightValue;
    QString m_Right;
    QString m_RightOld;
    Watched<Text> m_pCenterValue;
    QString m_Center;
    QString m_CenterOld;
    QPointer<QHBoxLayout> m_pLayout;
    Watched<ValueSelection> m_pTimeZone;         // borrowed; fetched at first use
    std::unique_ptr<Orim::DateTime> m_pDateTime; // in the zone; null before the first use
    double m_TimeStart = -1.0;                   // us since 1970; -1: no span is shown
    double m_TimeStop = -1.0;
    int m_MoveState = 0; // 1 while the parent is dragged
    QPoint m_MovePos;    // px on the screen
    bool m_Running = true;
    IWheelConsumer * m_pWheelConsumer = nullptr; // borrowed; may end first
    LifeWatch m_WheelConsumerLife;

private:
    bool Observes(Observable const * subject) const;
    template <class T>
    void Release(Watched<T> & watched);
    template <class T>
    bool Watch(Watched<T> & watched, T * value);
    bool Bind(Watched<Text> & text, QString const & path);
    //! Whether a value that is held changed. Lets go of one that is going away.
    template <class T>
    bool Hears(Watched<T> & watched, Observable const * subject, TChangeCode code);

    void MakePopup();
    //! The one of the first four bits that counts; 0 for none.
    unsigned int MainStyle() const;
    void MakeButtons();
    void MakeToolBar();
    QPushButton * MakeButton(QWidget * parent, char const * name, QString const & toolTip);
    void MakeOnTopButton();
    void MakeFullButton();
    void MakeStopButton();
    void MakeDatastreamButton();
    void ShowTopPicture();
    void TellToggled(bool on);
    //! A button that is toggled outlives its toggling.
    void LeaveToggledButton();
    //! \return false without a stop control.
    bool ShowStopped(bool stopped);

    void MeasureFont();
    int SpaceWidth() const;
    bool IsPictureCurrent() const;
    bool PreparePicture();
    //! Paints what changed unless nobody can see it.
    void ShowChange();
    void PaintPicture();

    bool WatchTimeZone();
    void TakeTimeZone();
    void ProvideDateTime();
    QString TimeText(double time, QString const & format) const;

    void SetFocusState(bool on);
    bool DragsParent() const;

    bool m_IsToggling = false;       // the data stream button is calling
    bool m_IsTimeLeftSet = false;    // m_pDateTime holds a time
    bool m_IsCenterReserved = false; // the centre text is laid out with m_CenterWidth as it stands
    QSize m_PaintedSize;             // px, of the bar in the picture
    int m_PaintedSpace = -1;         // px, of m_pSpace when it was painted
};

#endif
