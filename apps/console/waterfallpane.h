// SPDX-License-Identifier: MIT
#ifndef ORIM_WATERFALLPANE_H
#define ORIM_WATERFALLPANE_H

#include "levelcolors.h"
#include "rangepane.h"
#include "spectrumline.h"
#include "valuefollower.h"
#include "waterfallimage.h"

#include <memory>
#include <vector>

class ShadingBar;
class TimeAxis;

//! Shows spectrum lines as coloured rows, the newest on top, one device pixel each, with a time scale at the left
//! and the colours of the levels, those of the central object, at the right.
class WaterfallPane : public RangePane
{
    Q_OBJECT
public:
    explicit WaterfallPane(QWidget * parent = nullptr);
    ~WaterfallPane() override;

    //! Adds a row a line, the last one on top. Null is ignored. The pane repaints once, however many rows it got since
    //! it was painted.
    void AppendLines(std::vector<std::shared_ptr<SpectrumLine const>> const & lines);
    //! Forgets all rows.
    void Clear();

    ShadingBar & GetShadingBar() { return *m_pShadingBar; }

    TimeAxis & GetTimeAxis() { return *m_pTimeAxis; }

    //! The rows; row 0 is the topmost of the picture rectangle, its stamp the time of the line, us since 1970.
    WaterfallImage const & GetImage() const { return m_image; }

    //! Rows appended, and those of them that were painted.
    quint64 GetRowsAppended() const { return m_rowsAppended; }

    quint64 GetRowsPainted() const { return m_rowsPainted; }

    //! How times are written that tell one row from the next, as Orim::DateTime takes it.
    QString TimeFormat() const;

    //! Along y, times.
    void GetCurrentStartStop(int direction, double & start, double & stop) override;

    QSize sizeHint() const override { return { 800, 400 }; }

    QSize minimumSizeHint() const override { return { 240, 60 }; }

Q_SIGNALS:
    //! The times of the rows are others.
    void signalTimes();

protected:
    void Rebuild() override;
    PaneMargins Margins() const override;
    void PlaceLevelScale(QRect const & picture) override;
    int RowOf(double time) const override;     //!< row in which a time passes, us since 1970
    double LevelAt(double row) const override; //!< time of a row
    QRect LevelFlagRoom() const override;
    QStringList FlagTexts(int index) const override;
    QStringList ResultTexts(ResultMarker const & marker, bool selected) const override;
    void paintEvent(QPaintEvent * event) override;
    void showEvent(QShowEvent * event) override;

private:
    WaterfallImage::Colorer Colorer();
    void AppendLine(SpectrumLine const & line);
    void LayRows();
    bool IsTimeMarked() const;
    void TellTimes();
    void CountPainted(qint64 nanoseconds);
    void slotColorsChanged();
    void UpdateRows();

    ShadingBar * m_pShadingBar = nullptr; // a child, as the next
    TimeAxis * m_pTimeAxis = nullptr;
    LevelColors m_levelColors;
    WaterfallImage m_image;
    FrequencyRange m_imageRange{ 0.0, 1.0 }; // of the rows
    LineColumns m_map;
    bool m_rowsHaveGaps = false;   // some kept row shows no level somewhere
    std::vector<double> m_columns; // dBFS, of the row being appended
    std::vector<QRgb> m_pixels;
    quint64 m_rowsAppended = 0;
    quint64 m_rowsPainted = 0;
    ValueFollower m_zone{ [this] { RepairDrawing(); } }; // the flags are in it
};

#endif
