// SPDX-License-Identifier: MIT
#include "panestack.h"

#include "rangepane.h"
#include "valuefollower.h"

#include <QApplication>

#include <algorithm>

PaneStack::PaneStack(QWidget * parent) : QSplitter(Qt::Vertical, parent)
{
    setObjectName(QStringLiteral("splitter"));
    setChildrenCollapsible(false);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget * now) { Use(FrameOf(now)); });
}

PaneStack::~PaneStack()
{
    QObject::disconnect(qApp, nullptr, this, nullptr); // the frames lose the focus when this is no stack any more
}

PaneFrame * PaneStack::AddPane(PaneForm const & form)
{
    auto * const frame = new PaneFrame(form, this);
    int const index = indexOf(frame);
    setStretchFactor(index, form.stretch);
    m_frames.push_back(frame);
    connect(frame, &PaneFrame::signalFull, this, [this, frame] { SetFull(frame == m_pFull ? nullptr : frame); });
    connect(frame, &PaneFrame::signalPlay, this, &PaneStack::signalPlay);
    connect(frame, &PaneFrame::signalFull, this, [this, frame] { Use(frame); });
    connect(frame, &PaneFrame::signalHeld, this, [this, frame] { Use(frame); });
    m_followers.push_back(nullptr);
    if (!form.shownPath.isEmpty()) {
        m_followers.back() = std::make_unique<ValueFollower>([this] {
            SetFull(nullptr);
            ShowFrames();
        });
        m_followers.back()->Bind(form.shownPath);
    }
    return frame;
}

PaneFrame * PaneStack::FrameOf(QWidget const * widget) const
{
    for (PaneFrame * const frame : m_frames) {
        if (widget && (frame == widget || frame->isAncestorOf(widget)))
            return frame;
    }
    return nullptr;
}

void PaneStack::Use(PaneFrame * frame)
{
    if (frame)
        m_pUsed = frame;
}

PaneFrame * PaneStack::AtHand() const
{
    auto const first = [this](auto const & isMeant) {
        auto const place = std::find_if(m_frames.begin(), m_frames.end(), isMeant);
        return place == m_frames.end() ? nullptr : *place;
    };
    if (m_pFull)
        return m_pFull;
    if (PaneFrame * const frame = first([](PaneFrame const * each) { return each->isVisible() && each->underMouse(); }))
        return frame;
    if (m_pUsed && m_pUsed->isVisible())
        return m_pUsed;
    return first([](PaneFrame const * each) { return each->isVisible(); });
}

std::vector<RangePane *> PaneStack::RangePanes() const
{
    std::vector<RangePane *> panes;
    for (PaneFrame const * const frame : m_frames) {
        if (auto * const pane = qobject_cast<RangePane *>(&frame->Pane()))
            panes.push_back(pane);
    }
    return panes;
}

void PaneStack::TakeLines(PaneLines const & lines)
{
    for (PaneFrame * const frame : m_frames)
        frame->TakeLines(lines);
}

void PaneStack::SetFull(PaneFrame * frame)
{
    auto const place = std::find(m_frames.begin(), m_frames.end(), frame);
    bool const isShown = place != m_frames.end() && IsWanted(static_cast<std::size_t>(place - m_frames.begin()));
    if (frame == m_pFull || (frame && !isShown))
        return;
    if (!m_pFull) {
        m_state = saveState();
        m_sizes = sizes();
        for (int index = 0; index < m_sizes.size(); ++index)
            m_sizes[index] = m_sizes[index] > 0 ? m_sizes[index] : widget(index)->sizeHint().height();
    }
    QWidget * const focus = focusWidget();
    bool const hadFocus = focus && FrameOf(focus);
    m_pFull = frame;
    if (m_pFull && hadFocus && !m_pFull->isAncestorOf(focus))
        m_pFull->Pane().setFocus(); // ahead of hiding, which would hand it to whoever is next
    ShowFrames();
    if (!m_pFull)
        setSizes(m_sizes);
    for (PaneFrame * const each : m_frames)
        each->SetFull(each == m_pFull);
}

void PaneStack::SetPlaying(bool playing)
{
    for (PaneFrame * const frame : m_frames)
        frame->SetPlaying(playing);
}

QByteArray PaneStack::State() const { return m_pFull ? m_state : saveState(); }

bool PaneStack::IsWanted(std::size_t index) const { return !m_followers[index] || m_followers[index]->Flag(true); }

void PaneStack::ShowFrames()
{
    for (std::size_t index = 0; index < m_frames.size(); ++index)
        m_frames[index]->setVisible(m_pFull ? m_frames[index] == m_pFull : IsWanted(index));
}
