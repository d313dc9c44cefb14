// SPDX-License-Identifier: MIT
#ifndef ORIM_PANEFRAME_H
#define ORIM_PANEFRAME_H

#include "spectrumline.h"

#include <QString>
#include <QWidget>

#include <functional>
#include <memory>
#include <vector>

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
    QString shownPath = {}; // flag in the tree that shows the pane; empty: it is always shown
    std::function<void(PaneLines const &)> take = nullptr; // shows new lines; null for a pane that follows values
    std::function<void(bool)> hold = nullptr; // holds the picture of a pane that follows values, or takes it up again
};

//! A pane of the console. Its picture can be held while the data goes on: what arrives meanwhile does not reach it.
class PaneFrame : public QWidget
{
    Q_OBJECT
public:
    //! \param form  its pane is not null. The frame bears the pane's object name with "Frame" behind it.
    explicit PaneFrame(PaneForm const & form, QWidget * parent = nullptr);
    ~PaneFrame() override;

    QWidget & Pane() const { return *m_form.pane; }

    PaneForm const & Form() const { return m_form; }

    //! Hands new lines to the pane unless its picture is held.
    void TakeLines(PaneLines const & lines);

    //! Holds the picture, or takes it up again with what comes next.
    void SetHeld(bool held);

    bool IsHeld() const { return m_held; }

private:
    PaneForm m_form;
    bool m_held = false;
};

#endif
