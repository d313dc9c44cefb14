// SPDX-License-Identifier: MIT
#ifndef ORIM_CONSOLEMARKERS_H
#define ORIM_CONSOLEMARKERS_H

#include "marker.h"
#include "rangerulers.h"
#include "valuefollower.h"

#include <QObject>

#include <array>
#include <memory>
#include <vector>

class MarkerList;
class PaneStack;
class SpectrumPane;
class WaterfallPane;

//! The markers of the console: two of a frequency, which stand in every pane with a frequency range and on its scale,
//! one of a level, where levels are shown, and two of a time, on the
//! waterfall.
//! Each is one value of the tree, and a flag tells whether it is shown. A marker that is shown for the first time, or
//! that stands out of view, is placed on the highest signal in view.
class ConsoleMarkers : public QObject
{
    Q_OBJECT
public:
    static constexpr EMarkerID First = eYellowX;
    static constexpr EMarkerID Second = eWhiteX; // compared with the first
    static constexpr EMarkerID Level = eYellowY;
    static constexpr EMarkerID Time1 = eWhiteY;
    static constexpr EMarkerID Time2 = eBlueY;

    //! \param spectrum  where peaks are looked for; as the panes, it is borrowed and must outlive this.
    ConsoleMarkers(SpectrumPane & spectrum, PaneStack const & panes, QObject * parent = nullptr);
    ~ConsoleMarkers() override;

    //! To be called when the spectrum shows a line: places what was shown before there was a signal.
    void slotLineShown();

private:
    static constexpr std::size_t Count = 5;

    void AddLists(PaneStack const & panes);
    static void AddTo(MarkerList & list, int kind);
    void PlaceTime(std::size_t row);
    void Show(std::size_t row, bool on);
    void Place(std::size_t row);
    bool IsInView(std::size_t row) const;
    void slotState(QString const & path, EMarkerState state, bool value);

    SpectrumPane & m_spectrum;
    WaterfallPane * m_pWaterfall = nullptr; // borrowed
    std::vector<MarkerList *> m_lists;      // borrowed
    std::vector<std::unique_ptr<ValueFollower>> m_shown;
    std::array<bool, Count> m_placed{};
    RangeRulers m_rulers;     // of the frequency markers
    RangeRulers m_timeRulers; // of the time markers
};

#endif
