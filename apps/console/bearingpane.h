// SPDX-License-Identifier: MIT
#ifndef ORIM_BEARINGPANE_H
#define ORIM_BEARINGPANE_H

#include "azimuthview.h"
#include "bearingaxis.h"
#include "bearinghistory.h"
#include "bearingrows.h"
#include "dirtystrips.h"
#include "rangepane.h"

#include <QImage>
#include <QPointer>

#include <array>
#include <deque>
#include <optional>
#include <vector>

//! Shows from where signals come, azimuth or elevation over frequency: each result of the direction finder as a band as
//! wide as what it may be wrong by, and the single measurements of the last seconds as points, coloured by their
//! quality, which fade with age. A click on a band selects its result. Azimuths stand as the azimuth mode tells.
//!
//! A pane that is hidden, or held, follows nothing; it catches up when it is shown, or let go.
class BearingPane : public RangePane
{
    Q_OBJECT
public:
    using Kind = BearingAxis::Kind;

    static constexpr int AgeSteps = 8;   // in which a point fades
    static constexpr int PointSize = 3;  // px
    static constexpr int LeastBand = 3;  // px, height of a band
    static constexpr int LeastReach = 9; // px, of a band to either side of its frequency

    //! What is shown of a single measurement.
    struct Sparkle
    {
        QPoint at; // device pixels; -1, -1 outside the picture
        int quality;
        int step; // of its age, 0 to AgeSteps - 1
    };

    //! What is shown of a result.
    struct Band
    {
        int result; // its index
        bool isSelected;
        std::vector<QRect> parts; // device pixels; two across the end of the circle
        QRect line;               // its middle, device pixels; null outside the picture

        bool operator==(Band const & other) const;
    };

    explicit BearingPane(Kind kind, QWidget * parent = nullptr);
    ~BearingPane() override;

    //! Where the single measurements are; null for none. Borrowed, may die first.
    void SetHistory(BearingHistory * history);

    //! Holds what is known now, which stays at hand in any other range, size, colour or mode, or takes up what is known
    //! then.
    void Hold(bool on);

    //! What the operator reads of the selected result; empty when none is selected.
    QString ReadOut() const { return m_readOut; }

    //! What the operator reads at the right of it: the azimuth mode, with the heading while that counts.
    QString ModeText() const { return m_modeText; }

    std::deque<Sparkle> const & GetSparkles() const { return m_sparkles; }

    std::vector<Band> const & GetBands() const { return m_bands; }

    BearingRows const & GetRows() const { return m_rows; }

    //! What is painted below the markers, device pixels.
    QImage const & GetPicture() const { return m_picture; }

    //! Colour of a point of a quality, %, when it is new: that of the set that serves qualities, so far mixed with the
    //! colour of texts that it can be told from the ground.
    QColor ColorOf(int quality) const;

    //! Device pixels that were painted anew so far.
    quint64 GetPaintedPixels() const { return m_paintedPixels; }

    QSize sizeHint() const override { return { 800, 220 }; }

    QSize minimumSizeHint() const override { return { 240, 90 }; }

protected:
    void Rebuild() override;
    PaneMargins Margins() const override;
    void PlaceLevelScale(QRect const & picture) override;
    int RowOf(double level) const override;    //!< of degrees
    double LevelAt(double row) const override; //!< in degrees
    QStringList FlagTexts(int index) const override;
    QStringList ResultTexts(ResultMarker const & marker, bool selected) const override;
    int ResultAt(QPoint at) const override;
    void ShowAzimuthMode() override;
    void paintEvent(QPaintEvent * event) override;
    void showEvent(QShowEvent * event) override;
    void hideEvent(QHideEvent * event) override;

private:
    //! Measurements that are held, oldest first.
    struct HeldPoints
    {
        struct Point
        {
            BearingMeasurement measurement;
            int step;
        };

        std::vector<Point> points;
        quint64 first; // running number
    };

    bool IsAzimuth() const { return m_pAxis->IsCircle(); }

    void Follow();
    bool TakeView();
    void TakeDefaultRange();
    double Shown(double azimuth, double elevation) const;
    QString AngleText(double azimuth, double elevation) const;
    void MixColors();
    void BuildGround();
    void TakeHistory();
    void TakeResults();
    HeldPoints CurrentPoints() const;
    Sparkle SparkleOf(BearingMeasurement const & measurement, int step) const;
    Band BandOf(int result) const;
    void MarkSparkle(Sparkle const & sparkle);
    void MarkBand(Band const & band);
    void PaintDirty();
    void PaintPart(QPainter & painter, QRect const & rect) const;
    void PaintTexts(QPainter & painter) const;
    void BuildTexts();
    QString ReadOutOf(int result) const;
    QRect PointRect(QPoint at) const;
    int ToStep(BearingHistory::Entry const & entry) const;

    BearingAxis * m_pAxis = nullptr; // a child
    QPointer<BearingHistory> m_pHistory;
    QMetaObject::Connection m_measured; // while this follows
    ValueFollower m_results;
    ValueFollower m_selection;
    std::optional<HeldPoints> m_held;
    bool m_isShown = false;
    AzimuthView m_view; // as all is shown
    QString m_readOut;
    QString m_modeText;
    int m_readOutWidth = 0; // px, as the next
    int m_textsWidth = 0;   // of both
    BearingRows m_rows;     // device pixels of the pane
    std::deque<Sparkle> m_sparkles;
    quint64 m_first = 0; // running number of the first one
    std::vector<Band> m_bands;
    std::array<QRgb, 101> m_colors{}; // of the qualities
    DirtyStrips m_dirty;
    QImage m_plain;   // the grid
    QImage m_picture; // what is painted
    quint64 m_paintedPixels = 0;
};

#endif
