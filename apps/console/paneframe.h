// SPDX-License-Identifier: MIT
#ifndef ORIM_PANEFRAME_H
#define ORIM_PANEFRAME_H

#include "iwheelconsumer.h"
#include "spectrumline.h"

#include <QString>
#include <QWidget>

#include <functional>
#include <memory>
#include <vector>

class RangeBar;
class RangePane;
class VCCaption;

//! Lines in the order in which they were made, none of them null.
using PaneLines = std::vector<std::shared_ptr<SpectrumLine const>>;

//! What the level range of the console is to a pane.
enum class PaneLevels
{
    eNone,   //!< nothing: its level scale, if it has one, shows something else
    eColors, //!< the range of its colours
    eRows    //!< the range of its rows: level markers cross its picture
};

//! What is told of a pane when it is added to the console.
struct PaneForm
{
    QWidget * pane; // the frame takes it over as a child
    QString name;   // of the pane, as the operator reads it
    int stretch;    // share of the height that all panes have
    PaneLevels levels = PaneLevels::eNone;
    QString shownPath = {};                                // flag in the tree that shows the pane; empty: always shown
    std::function<void(PaneLines const &)> take = nullptr; // shows new lines; null for a pane that follows values
    std::function<void(bool)> hold = nullptr; // holds the picture of a pane that follows values, or takes it up again
    bool hasTimes = false;                    // the caption shows a time span and offers the time zone
    bool hasDatastream = false;               // the caption has the button of the data stream
};

//! A pane of the console under its caption. At the left stand the name of the pane and, as far as there is room, the
//! middle and the span of what it shows, at the right its state, in the middle the time span of what it shows.
//!
//! The stop button holds the picture while the data goes on: what arrives meanwhile does not reach the pane. The full
//! button and a double click on the caption ask for all the room, the data stream button asks to play or to pause. With
//! the focus in the frame, F11, H and Space do what the three buttons do. The wheel over the caption zooms the
//! frequencies as the keys plus and minus do.
class PaneFrame : public QWidget, public IWheelConsumer
{
    Q_OBJECT
public:
    //! \param form  its pane is not null. The frame bears the pane's object name with "Frame" behind it.
    explicit PaneFrame(PaneForm const & form, QWidget * parent = nullptr);
    ~PaneFrame() override;

    QWidget & Pane() const { return *m_form.pane; }

    PaneForm const & Form() const { return m_form; }

    VCCaption & Caption() const { return *m_pCaption; }

    //! The range displays below the pane.
    RangeBar & Ranges() const { return *m_pRanges; }

    //! Hands new lines to the pane unless its picture is held.
    void TakeLines(PaneLines const & lines);

    //! Holds the picture, or takes it up again with what comes next.
    void SetHeld(bool held);

    bool IsHeld() const { return m_held; }

    //! What the caption tells of the data while the picture is not held.
    void SetState(QString const & state);
    //! Times of the oldest and the newest row, us since 1970; what is not above 0 shows none.
    void SetTimes(double oldest, double newest);
    //! The same, unless the picture is held: it keeps its times.
    void TakeTimes(double oldest, double newest);
    //! Whether the data stream plays, as its button shows it.
    void SetPlaying(bool playing);
    //! Whether the pane has all the room, as the tool tip of the full button tells it.
    void SetFull(bool full);

    void WheelDown() override;
    void WheelUp() override;

Q_SIGNALS:
    //! The operator wants all the room for this pane, or to give it back.
    void signalFull();
    //! The operator wants the data stream to play or to pause.
    void signalPlay(bool play);
    void signalHeld(bool held);

protected:
    //! Hears of every other size and font of the pane.
    bool eventFilter(QObject * watched, QEvent * event) override;
    void keyPressEvent(QKeyEvent * event) override;

private:
    void BuildCaption();
    void ShowBand();
    void ShowState();
    QString BandText(bool span) const;
    void GiveRoom();
    void Zoom(int key);

    PaneForm m_form;
    RangePane * m_pRangePane = nullptr; // the pane, when it has a frequency range
    VCCaption * m_pCaption = nullptr;   // a child, as the next
    RangeBar * m_pRanges = nullptr;
    QString m_state;
    bool m_held = false;
    bool m_playing = true;
};

#endif
