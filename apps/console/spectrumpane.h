// SPDX-License-Identifier: MIT
#ifndef ORIM_SPECTRUMPANE_H
#define ORIM_SPECTRUMPANE_H

#include "rangepane.h"
#include "spectrumline.h"

#include <QBasicTimer>
#include <QImage>

#include <memory>
#include <vector>

class LevelAxis;

//! Shows the latest spectrum line as a trace over a grid at the tics of its scales, and reads out its highest peak and
//! the levels at its markers.
class SpectrumPane : public RangePane
{
    Q_OBJECT
public:
    struct Peak
    {
        double frequency; // Hz
        double level;     // dBFS
    };

    explicit SpectrumPane(QWidget * parent = nullptr);
    ~SpectrumPane() override;

    //! Shows a line. Null is ignored. The pane repaints once, however many lines it got since it was painted.
    void SetLine(std::shared_ptr<SpectrumLine const> line);

    //! Highest level within the frequency range, as read out; not finite before the first line. The read-out is taken
    //! anew five times a second, so that it can be read.
    Peak const & GetPeak() const { return m_peak; }

    //! Highest level of the line shown that stands at least \a distance away from a frequency, Hz; not finite when
    //! there is none.
    Peak FindPeakBeside(double frequency, double distance) const;

    //! The highest signal of the line shown outside some ranges; no wider than 0 when there is none.
    FrequencyRange FindSignalBeside(std::vector<FrequencyRange> const & ranges) const;

    //! What is read out of the selected result of the direction finder, as far as it fits beside the peak; empty when
    //! none is selected.
    QString BearingReadOut() const;

    //! Id of the timer of the read-out.
    int GetPeakTimerId() const { return m_peakTimer.timerId(); }

    //! What is painted, device pixels.
    QImage const & GetPicture() const { return m_picture; }

    //! Row of the trace in each column of the picture rectangle, counted from its top; -1 without one.
    std::vector<int> const & GetTrace() const { return m_rows; }

    QSize sizeHint() const override { return { 800, 240 }; }

    QSize minimumSizeHint() const override { return { 240, 120 }; }

protected:
    void Rebuild() override;
    PaneMargins Margins() const override;
    void PlaceLevelScale(QRect const & picture) override;
    int RowOf(double level) const override;
    double LevelAt(double row) const override;
    QStringList FlagTexts(int index) const override;
    QStringList ResultTexts(ResultMarker const & marker, bool selected) const override;
    QRect LevelFlagRoom() const override;
    void paintEvent(QPaintEvent * event) override;
    void timerEvent(QTimerEvent * event) override;

private:
    void BuildGrounds();
    void PaintGrid();
    void FillBelowTrace();
    void PaintTrace();
    void PaintPeak(QPainter & painter) const;
    void PaintReadOut(QPainter & painter) const;
    void PaintBearing(QPainter & painter) const;
    void PaintPicture();
    void FindPeak();
    int BinAt(int column) const;
    Peak PeakAt(int bin) const;
    double ReadLevelAt(double frequency) const;
    QString DeltaText(int index) const;
    QString PeakText() const;

    LevelAxis * m_pLevelAxis = nullptr; // a child
    std::shared_ptr<SpectrumLine const> m_line;
    LineColumns m_map;
    PixelMap m_rowMap;
    std::vector<double> m_levels;     // of the columns, dBFS
    std::vector<double> m_readLevels; // those that are read out
    std::vector<int> m_rows;
    Peak m_peak;
    int m_peakColumn = -1; // of the line shown
    bool m_peakDue = true;
    QBasicTimer m_peakTimer;
    QImage m_plain;   // the grid
    QImage m_filled;  // the same, as seen below the trace
    QImage m_picture; // what is painted
};

#endif
