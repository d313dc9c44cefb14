// SPDX-License-Identifier: MIT
#ifndef ORIM_RANGEBAR_H
#define ORIM_RANGEBAR_H

#include "valuefollower.h"

#include <QString>
#include <QWidget>

#include <memory>
#include <vector>

class AxisBase;
class AxisRangeDisplay;
class QHBoxLayout;

//! The range displays of the axes of a pane, side by side in a row below it. Each is shown while both its markers are,
//! and the row while there is room for it. The button of a display is pressed while it is shown; releasing it hides the
//! markers.
class RangeBar : public QWidget
{
    Q_OBJECT
public:
    static constexpr int LeastPaneHeight = 200; // px, of a pane that spares the row
    static constexpr int LeastWidth = 300;      // px, of a display

    explicit RangeBar(QWidget * parent = nullptr);
    ~RangeBar() override;

    //! What a display shows; all paths are those of values in the tree.
    struct Range
    {
        AxisBase * axis; // borrowed; it may end first
        char const * name;
        unsigned int style; // bits of AxisRangeDisplay
        char const * lower; // the two rulers, rising
        char const * upper;
        char const * firstShown; // flags of the markers
        char const * secondShown;
    };

    //! Adds a display at the right. \return the display, which belongs to this.
    AxisRangeDisplay * Add(Range const & range);

    //! Height that pane and row need together, px; LeastPaneHeight at the start.
    void SetLeastHeight(int height);

    //! Takes the room over that pane and row have together, and where the picture stands in it, px.
    void SetRoom(QSize const & room, int left, int right);

Q_SIGNALS:
    //! A display was shown or hidden.
    void signalShown();

private:
    struct Entry
    {
        AxisRangeDisplay * display;
        std::unique_ptr<ValueFollower> firstShown;
        std::unique_ptr<ValueFollower> secondShown;
    };

    void ShowDisplays();

    QHBoxLayout * m_pLayout;
    std::vector<Entry> m_entries;
    QSize m_room;
    int m_leastHeight = LeastPaneHeight; // px
    int m_left = 0;                      // px, of the margins
    int m_right = 0;
};

#endif
