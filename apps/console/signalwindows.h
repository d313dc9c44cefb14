// SPDX-License-Identifier: MIT
#ifndef ORIM_SIGNALWINDOWS_H
#define ORIM_SIGNALWINDOWS_H

#include "linecolumns.h"
#include "valuefollower.h"

#include <QObject>

#include <memory>
#include <vector>

class RangePane;
class SpectrumPane;

//! The windows with which the operator marks signals: the same five in every pane with a frequency range.
class SignalWindows : public QObject
{
    Q_OBJECT
public:
    //! \param spectrum  where signals are looked for; as all panes, it is borrowed and must outlive this.
    SignalWindows(SpectrumPane & spectrum, std::vector<RangePane *> panes, QObject * parent = nullptr);
    ~SignalWindows() override;

    //! Puts the next hidden window around the highest signal in view that no window marks, without one in the middle of
    //! the view, and gives it the focus; with a beep when all five are shown. \return whether there was one.
    bool Mark();

    //! Marks the five highest signals of the next line that is shown. That is no step of undo, and none gets the focus.
    void MarkWhenShown() { m_due = true; }

    //! To be called when the spectrum shows a line.
    void slotLineShown();

private:
    FrequencyRange FindPlace();
    int NextHidden() const;
    void Put(int window);

    SpectrumPane & m_spectrum;
    std::vector<RangePane *> m_panes;                        // borrowed
    std::vector<std::unique_ptr<ValueFollower>> m_followers; // of what is painted
    bool m_due = false;
};

#endif
