// SPDX-License-Identifier: MIT
#ifndef ORIM_AXISRANGEDISPLAY_H
#define ORIM_AXISRANGEDISPLAY_H

#include "lifetime.h"
#include "observable.h"
#include "orimwidgets_export.h"
#include "valuebinding.h"
#include "valuenumeric.h"

#include <QPointer>
#include <QString>
#include <QWidget>

#include <array>

class AxisBase;
class QEvent;
class QLabel;
class QLineEdit;
class QPushButton;
class SuffixedDouble;
class VCCaption;
class VCLabel;

//! Read-out of an axis: the values of two rulers, their difference and their centre. A double click on the difference
//! or the centre, or Return while it has the focus, opens an entry there; what is entered moves both rulers.
//!
//! It lies over its axis, of which it is a child, and is hidden until AxisBase::slotShowAxisRangeDisplay() shows it; an
//! application may give it another parent. While it is visible it keeps the rulers in rising order and computes
//! difference and centre; while it is hidden nothing is computed. As it is shown the rulers count: they are put in
//! order, and a difference or a centre that was written while it was hidden is lost. The axis and this may end in
//! either order, and this may be deleted by whoever hears of what it writes. For the GUI thread.
class ORIMWIDGETS_EXPORT AxisRangeDisplay : public QWidget, public IObserver
{
    Q_OBJECT
public:
    //! Bits of the style. With one of the two for time the values are those of a time axis.
    enum Style : unsigned int
    {
        StyleHorizontal = 1, //!< the rulers are left and right; else lower and upper
        StyleTimeSpan = 2,   //!< values are spans, us
        StyleTime = 4,       //!< values are time stamps, us since 1970, shown in the chosen zone, the later one first
        StyleNoLabels = 8    //!< without the read-outs of the rulers; the arrows then point at each other
    };

    //! Registers with the axis, and makes a value of its own for each of the four roles.
    //! \param axis  may be null.  \param name  object name; may be null.  \param style  bits of Style.
    explicit AxisRangeDisplay(AxisBase * axis, char const * name = nullptr, unsigned int style = 0);
    //! Takes its own values out of the tree.
    ~AxisRangeDisplay() override;

    // Binding. Each operation lets go of the value before, which stays in the tree. While this is visible, a difference
    // or a centre that is bound moves the rulers as one that is entered does, and rulers that are bound are followed.
    // Rulers that are found crossed are put in order, and shown, by the event loop and not at once: thus both can be
    // bound, one after the other, and neither is written the value of a ruler that was to be replaced.
    //
    // A difference or a centre belongs to one visible display: two that share both move the rulers of each other
    // wrongly. Rulers may be shared by displays that have a difference and a centre of their own.
    //
    // Returned is whether there is a number at the path; without one, nothing is shown until it is bound again.

    bool SetRuler1_ValuePath(QString const & path);
    bool SetRuler2_ValuePath(QString const & path);
    bool SetCenter_ValuePath(QString const & path);
    bool SetExportDifference_ValuePath(QString const & path);

    //! Axis whose display factor, converter and range count from now on; that of the constructor at the start. Null for
    //! none. The registration stays.
    void SetPixelToValueServer(AxisBase * axis);
    //! Writes and reads numbers from now on; null for the converter of the axis, if it has one. It is not taken over
    //! and must outlive this.
    void SetConverter(SuffixedDouble * converter);
    //! How numbers are written without a converter, in fixed point; 3 and 1 at the start.
    //! \param width  of the field, -100 to 100, padded with blanks.  \param precision  digits behind the point, 0 to
    //! 17. Numbers beyond count as the nearest of these.
    void SetFormat(int width, int precision);
    //! How the times of rulers and centre are written, as Orim::DateTime takes it. "mm:ss" for spans and "hh:mm" for
    //! time stamps at the start; the axis sets it as its range changes. The difference of times is written as "mm:ss",
    //! and as "mm:ss.zzz" in its tool tip. A span of an hour or more has its hours in front of the minutes that any of
    //! these formats starts with, which would lose them: "01:30:00.000".
    void SetFormatString(QString const & format);
    //! The same, and the fonts leave room for this format from now on, whatever format is set later.
    void SetFormatStringForFixedSize(QString const & format);

    //! Caption that ShowValues() tells the times of the rulers of a time axis from now on; null for none. It may end
    //! first.
    void SetCaption(VCCaption * caption);

    //! Gives the read-outs the largest font, up to 12 points, in which their texts fit: "999.999", of times "99:99", or
    //! the format that is set for good. What is wider is written smaller, see VCLabel::SetFontOnSize().
    void AdaptFontSize();
    //! Shows the bound values: the interim ones while they are dragged. On a time axis the caption shows the span
    //! between the rulers as well. Does nothing unless all four are bound.
    void ShowValues();
    //! Shows a number in a label, as a value of the axis. "---" for NaN and infinite. Ignores null.
    void write(VCLabel * label, double value);

    void Update(Observable * subject, TChangeCode code) override;
    bool eventFilter(QObject * watched, QEvent * event) override;

public Q_SLOTS:
    //! Shows the rulers on the axis and on all lists that hear of its markers, or hides them. Rulers that are equal or
    //! not both inside the range of the axis are first brought there: to a quarter and three quarters of it.
    void slotShowDiffRuler(bool show);
    //! Releases the button, which hides the rulers.
    void slotRestoreDefaultPersistant();

protected:
    //! Paints the arrows anew for the pixels of another screen.
    bool event(QEvent * event) override;
    void resizeEvent(QResizeEvent * event) override;
    //! Over its axis it takes the size of that. The event loop then orders the rulers and writes difference and centre.
    void showEvent(QShowEvent * event) override;
    //! Gives up an entry.
    void hideEvent(QHideEvent * event) override;

private:
    using Binding = ValueBinding<IValueNumeric>;

    //! An axis, which may end first.
    struct WatchedAxis
    {
        AxisBase * axis = nullptr;
        LifeWatch life;

        AxisBase * Get() const { return life.IsOver() ? nullptr : axis; }
    };

    //! A value that this made.
    struct OwnValue
    {
        QString path;
        LifeWatch life;
    };

    static WatchedAxis Watch(AxisBase * axis);

    bool IsHorizontal() const { return (m_style & StyleHorizontal) != 0; }

    bool IsTimeAxis() const { return (m_style & (StyleTime | StyleTimeSpan)) != 0; }

    bool ShowsTimeStamps() const { return (m_style & StyleTime) != 0 && (m_style & StyleTimeSpan) == 0; }

    void MakeParts();
    VCLabel * MakeReadOut(char const * name);
    void MakeValue(Binding & binding, OwnValue & own);
    void TakeColors();
    void PaintArrows();
    void PlaceParts();
    QString SizingText() const;

    std::array<Binding *, 4> Bindings();
    bool Bind(Binding & binding, QString const & path);
    bool IsReady();
    bool AreCrossed();
    void RefreshLater();
    void Refresh();
    bool FollowRulers(TChangeCode code);
    bool MoveRulers(TChangeCode code);
    bool Write(Binding & binding, double value, unsigned int turn);

    void ShowTexts();
    QString TimeText(double value) const;
    SuffixedDouble const * Converter() const;
    double DisplayFactor() const;

    void BringRulersIntoRange();
    void ShowRuler(Binding const & binding, bool show);

    bool FilterEntry(QEvent const & event, int key);
    void OpenEntry(VCLabel * label);
    void CloseEntry();
    void TakeEntry();
    QString EntryText(bool isCenter) const;
    bool ReadEntry(bool isCenter, QString const & text, double & value) const;

    WatchedAxis m_axis;   // that this is registered with
    WatchedAxis m_server; // whose range counts
    unsigned int m_style;
    int m_width = 3;
    int m_precision = 1;
    SuffixedDouble * m_pConverter = nullptr; // borrowed
    QPointer<VCCaption> m_pCaption;          // borrowed
    QString m_formatString;
    QString m_fixedFormat;    // empty: none was set
    bool m_isBinding = false; // what is replayed is taken over at the end
    unsigned int m_turn = 0;  // counts what was computed: an inner computation makes an outer one stop

    Binding m_ruler1{ this };
    Binding m_ruler2{ this };
    Binding m_center{ this };
    Binding m_difference{ this };
    std::array<OwnValue, 4> m_own;

    VCLabel * m_pFirst = nullptr;
    VCLabel * m_pDifference = nullptr;
    VCLabel * m_pSecond = nullptr;
    VCLabel * m_pCenter = nullptr;
    QPushButton * m_pButton = nullptr;
    QLabel * m_pUp = nullptr;
    QLabel * m_pDown = nullptr;
    QLineEdit * m_pEntry = nullptr;
    VCLabel * m_pEntered = nullptr; // what the open entry stands on; null while none is open
    bool m_isLeft = false;          // the open entry lost the focus and is taken by the event loop
};

#endif
