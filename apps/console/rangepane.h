// SPDX-License-Identifier: MIT
#ifndef ORIM_RANGEPANE_H
#define ORIM_RANGEPANE_H

#include "linecolumns.h"
#include "panelayout.h"
#include "valuefollower.h"

#include <QWidget>

class FrameStats;
class QImage;

//! Base of the panes over a frequency range and a level range. The ranges follow values of the tree. Panes of one width
//! and font have their pictures over each other. All geometry is in device pixels.
class RangePane : public QWidget
{
    Q_OBJECT
public:
    explicit RangePane(QWidget * parent = nullptr);
    ~RangePane() override;

    //! Binds a bound of the ranges to a value: Hz, dBFS. \return whether the path was found; without it the pane keeps
    //! its range.
    bool SetCentre_ValuePath(QString const & path);
    bool SetSpan_ValuePath(QString const & path);
    bool SetLevelMin_ValuePath(QString const & path);
    bool SetLevelMax_ValuePath(QString const & path);

    //! What is not finite or not wider than 0 is ignored.
    void SetFrequencyRange(FrequencyRange range);

    FrequencyRange GetFrequencyRange() const { return m_frequencies; }

    //! dBFS. What is not finite or where \a max is not above \a min is ignored.
    void SetLevelRange(double min, double max);

    double GetLevelMin() const { return m_levelMin; }

    double GetLevelMax() const { return m_levelMax; }

    void SetColors(PaneColors const & colors);

    PaneColors const & GetColors() const { return m_colors; }

    //! Receives the times of painting; null for none. Borrowed: must outlive the pane or be taken back.
    void SetFrameStats(FrameStats * stats) { m_pStats = stats; }

    //! Part of the pane that the picture fills, device pixels.
    QRect GetPictureRect() const { return m_pictureRect; }

    //! Device pixels a logical pixel.
    double GetRatio() const { return m_ratio; }

protected:
    //! Builds anew what depends on size, ranges, colours or font.
    virtual void Rebuild() = 0;
    //! Widths around the picture, logical pixels.
    virtual PaneMargins Margins() const = 0;

    //! Takes over the present size and ratio; rebuilds when one differs. For a change that comes without an event.
    void RefreshLayout();

    //! Size of the pane, device pixels.
    QSize DeviceSize() const { return m_deviceSize; }

    //! Left margin that holds the widest label of all panes, logical pixels.
    int LabelMargin() const;
    //! Draws device pixels 1:1. \param at  device pixels.
    static void DrawPixels(QPainter & painter, QPoint at, QImage const & picture);

    FrameStats * Stats() const { return m_pStats; }

    void resizeEvent(QResizeEvent * event) override;
    void showEvent(QShowEvent * event) override;
    void changeEvent(QEvent * event) override;

private:
    void TakeRanges();

    ValueFollower m_centre;
    ValueFollower m_span;
    ValueFollower m_minimum;
    ValueFollower m_maximum;
    FrequencyRange m_frequencies{ 0.0, 1.0 };
    double m_levelMin = -120.0; // dBFS
    double m_levelMax = 0.0;    // dBFS
    PaneColors m_colors;
    FrameStats * m_pStats = nullptr;
    QSize m_deviceSize;
    QRect m_pictureRect;
    double m_ratio = 1.0;
};

#endif
