// SPDX-License-Identifier: MIT
#ifndef ORIM_PANESTACK_H
#define ORIM_PANESTACK_H

#include "paneframe.h"

#include <QByteArray>
#include <QList>
#include <QPointer>
#include <QSplitter>

#include <memory>
#include <vector>

class RangePane;
class ValueFollower;

//! The panes of the console over each other, each in its frame. A pane is shown while its flag is set; one of them can
//! have all the room for itself until it gives it back.
class PaneStack : public QSplitter
{
    Q_OBJECT
public:
    explicit PaneStack(QWidget * parent = nullptr);
    ~PaneStack() override;

    //! Adds a pane below the others. \return its frame, which belongs to this.
    PaneFrame * AddPane(PaneForm const & form);

    //! The frames from the top down.
    std::vector<PaneFrame *> const & Frames() const { return m_frames; }

    //! Frame of a widget that stands in it at any depth; null for none.
    PaneFrame * FrameOf(QWidget const * widget) const;

    //! The panes with a frequency range, from the top down.
    std::vector<RangePane *> RangePanes() const;

    //! Hands new lines to every pane.
    void TakeLines(PaneLines const & lines);

    //! Gives one frame all the room; null gives it back to all that are shown, with the heights they had. A pane that
    //! is not shown is ignored. A flag that changes ends it too.
    void SetFull(PaneFrame * frame);

    PaneFrame * GetFull() const { return m_pFull; }

    //! Frame that a key means which none of them got: the one that has all the room, else that under the mouse, else
    //! the one used last, else the topmost that is shown; null when none is.
    PaneFrame * AtHand() const;

    //! Shows in every caption whether the data stream plays.
    void SetPlaying(bool playing);

    //! Heights of the panes for restoreState(): those that come back when one has all the room.
    QByteArray State() const;

Q_SIGNALS:
    //! The operator wants the data stream to play or to pause.
    void signalPlay(bool play);

private:
    bool IsWanted(std::size_t index) const;
    void ShowFrames();
    void Use(PaneFrame * frame);

    std::vector<PaneFrame *> m_frames;                       // children
    std::vector<std::unique_ptr<ValueFollower>> m_followers; // of the flags, one a frame; null without one
    PaneFrame * m_pFull = nullptr;
    QPointer<PaneFrame> m_pUsed; // last
    QByteArray m_state;          // before one had all the room
    QList<int> m_sizes;          // at that time, px; what a pane asks for that was not shown
};

#endif
