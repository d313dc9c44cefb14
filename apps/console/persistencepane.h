// SPDX-License-Identifier: MIT
#ifndef ORIM_PERSISTENCEPANE_H
#define ORIM_PERSISTENCEPANE_H

#include "agedimage.h"
#include "paletteexpansion.h"
#include "rangepane.h"
#include "spectrumline.h"
#include "streamclock.h"
#include "valuefollower.h"

#include <QElapsedTimer>
#include <QImage>

#include <limits>
#include <memory>
#include <string>
#include <vector>

class AgeScale;
class LevelAxis;

//! Shows where spectrum lines have been: each line sets one pixel a column at its level, and the pixels fade over the
//! hold time. Beside the picture stands a scale of the ages. A column in the marker colour stands at the centre of the
//! lines, where a receiver may show a signal of its own.
//!
//! The hold time is one of seconds. With 0, off, nothing stays: the picture shows the present line alone. Below 0,
//! infinite, nothing fades until the picture is cleared. Everything that gives the pixels another meaning clears it:
//! ranges, hold time and quality steps, and, unless nothing fades, size, resolution and colours.
//!
//! Lines of a live source age by the clock, whether or not there are new ones. Those of a recording age by their
//! position in it: slower playing ages slower, a pause holds the picture, and a jump back clears it.
//!
//! A hidden pane takes no lines and draws nothing; when it is shown again, what it held has aged meanwhile.
class PersistencePane : public RangePane, public IAgedImageUpdate, public IColorServer
{
    Q_OBJECT
public:
    explicit PersistencePane(QWidget * parent = nullptr);
    ~PersistencePane() override;

    //! Binds to a selection whose number is the hold time, s. \return whether the path was found; without it the hold
    //! time is 4 s.
    bool SetHold_ValuePath(QString const & path);
    //! Binds to a selection whose key is the number of quality steps: 1, 2, 4 or 8; others count as 1. With more than
    //! one the pixels are coloured by the height of the signal over the noise. \return as above; without it one step.
    bool SetQuality_ValuePath(QString const & path);
    //! Binds to a flag that lets the picture age. While it is not set the picture stands still and takes no lines.
    //! \return as above; without it the picture ages.
    bool SetAgeing_ValuePath(QString const & path);

    //! Tells what the lines come from: a live source at the start. \param duration  of the recording, s; 0 for a live
    //! source.
    void SetSource(double duration);

    //! Adds lines. Null is ignored. Nothing happens while the pane is hidden or its picture is held.
    void AppendLines(std::vector<std::shared_ptr<SpectrumLine const>> const & lines);
    //! Forgets all lines, those of a held picture too.
    void Clear();
    //! Holds the picture. What was shown then stays, in the colours of then, over whichever ranges and size the pane
    //! has; when it is let go, it goes on where none of them has changed, and anew where one has.
    void SetHeld(bool held);

    //! Ages the picture of a live source as the clock does in some time. \param milliseconds  0 or more.
    void Age(qint64 milliseconds);

    //! The picture that takes the lines; row 0 is the topmost of the picture rectangle. It may be another one after
    //! each event. A held pane shows what it was when it was held.
    AgedImage & GetImage() { return *m_pImage; }

    AgeScale & GetAgeScale() { return *m_pAgeScale; }

    //! Lines that were drawn.
    quint64 GetLinesDrawn() const { return m_linesDrawn; }

    void ImageUpdated(AgedImage * image) override;
    std::string GetBackgroundLine(int width) override;

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
    void paintEvent(QPaintEvent * event) override;
    void showEvent(QShowEvent * event) override;
    void hideEvent(QHideEvent * event) override;

private:
    //! A picture and what its pixels mean.
    struct Kept
    {
        QImage picture; // null while nothing is held
        FrequencyRange frequencies{ 0.0, 0.0 };
        double min = 0.0; // dBFS
        double max = 0.0;
    };

    void MakeImage();
    bool BindAgeing();
    void LayImage();
    void LayHeld();
    void ApplyAgeing();
    void PaintGround(QPainter & painter);
    void TakeQuality();
    void ShowAges();
    void slotColorsChanged();
    bool IsOff() const;
    bool IsEndless() const;
    void DrawLine(SpectrumLine const & line);
    void MarkCentre(double frequency);

    LevelAxis * m_pLevelAxis = nullptr; // a child, as the next
    AgeScale * m_pAgeScale = nullptr;
    std::unique_ptr<AgedImage> m_pImage;
    QString m_holdPath;
    QString m_ageingPath;
    int m_qualitySteps = 1;
    bool m_held = false;
    FrequencyRange m_imageFrequencies{ 0.0, 0.0 }; // of the pixels, as the next
    double m_imageMin = 0.0;                       // dBFS
    double m_imageMax = 0.0;
    Kept m_kept;                                                // since the pane is held
    QImage m_heldView;                                          // the same over the present ranges and size
    double m_centre = std::numeric_limits<double>::quiet_NaN(); // Hz, of the last line
    int m_centreColumn = -1;
    bool m_isLive = true;
    PaletteExpansion m_expansion;
    StreamClock m_stream;
    bool m_skip = false;    // the time stood still up to the next line
    QElapsedTimer m_hidden; // since the pane was hidden; not valid while it is shown
    LineColumns m_map;
    std::vector<double> m_columns; // dBFS, of the line being drawn
    PixelMap m_rowMap;
    quint64 m_linesDrawn = 0;
    ValueFollower m_hold;
    ValueFollower m_quality;
    ValueFollower m_ageing;
};

#endif
