// SPDX-License-Identifier: MIT
#ifndef ORIM_RANGEPANE_H
#define ORIM_RANGEPANE_H

#include "linecolumns.h"
#include "markerhand.h"
#include "markerlist.h"
#include "markerrulers.h"
#include "panelayout.h"
#include "pixelmap.h"
#include "resulthand.h"
#include "valuefollower.h"
#include "valuelist.h"
#include "windowframes.h"
#include "windowhand.h"
#include "windowvalues.h"

#include <array>
#include <optional>
#include <vector>

class FrameStats;
class FrequencyAxis;
class QImage;
class ResortPopupMenu;
class ResultMarker;
class ScaleAxis;

//! Base of the panes over a frequency range and a level range: a picture with its frequency scale below and its level
//! scale beside it. The scales hold the ranges and follow values of the tree; the pane shows what they hold. Panes of
//! one width and font have their pictures over each other. Markers cross the picture and can be dragged; what the mouse
//! does beside them is for the frequency scale, as are the keys that zoom. All geometry is in device pixels unless it
//! is said otherwise.
class RangePane : public MarkerList
{
    Q_OBJECT
public:
    explicit RangePane(QWidget * parent = nullptr);
    ~RangePane() override;

    //! Binds a bound of the ranges to a value: Hz, dBFS. \return whether the path was found; without it the pane keeps
    //! its range.
    bool SetStart_ValuePath(QString const & path);
    bool SetStop_ValuePath(QString const & path);
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

    //! Takes over the present ranges, size and ratio; rebuilds when one differs. Painting and the mapping of pixels and
    //! values do so of themselves.
    void Refresh();

    //! Part of the pane that the picture fills, device pixels.
    QRect GetPictureRect() const { return m_pictureRect; }

    //! Device pixels a logical pixel.
    double GetRatio() const { return m_ratio; }

    //! Shows the results of the direction finder from now on. \return whether they were found.
    bool BindResults();

    //! The windows that mark signals.
    WindowFrames & GetWindowFrames() { return m_frames; }

    FrequencyAxis & GetFrequencyAxis() { return *m_pFrequencyAxis; }

    //! The scale of the levels: it stands beside the picture.
    ScaleAxis & GetLevelScale() { return *m_pLevelScale; }

    //! The markers as they were painted last.
    std::vector<MarkerRulers::Ruler> const & GetRulers() const { return m_rulers.Get(); }

    double PixelToValue(int direction, int pixel) override;
    int ValueToPixel(int direction, double value) override;
    //! On the label or a border of a window, that which hides it. Else that of the scale to which the place belongs: of
    //! the levels on a level marker, else of the frequencies.
    ResortPopupMenu * GetContextMenu() override;
    void RepairDrawing() override;
    void updateWidget() override; //!< the markers are laid anew
    void GetCurrentStartStop(int direction, double & start, double & stop) override;
    void slotSetState(QString path, EMarkerState m, bool value) override;

Q_SIGNALS:
    //! The operator wants a signal marked with a window.
    void signalMark();

protected:
    //! Where level and scales stand around the picture.
    virtual PaneMargins Margins() const = 0;
    //! Builds anew what depends on size, ranges, colours or font.
    virtual void Rebuild() = 0;
    //! Places the level scale beside the picture. \param picture  logical pixels.
    virtual void PlaceLevelScale(QRect const & picture) = 0;
    //! Row of a level; -1 outside and where levels have no rows, as here.
    virtual int RowOf(double level) const;
    //! Level of a row; -1.0 where levels have no rows, as here.
    virtual double LevelAt(double row) const;
    //! Texts of the flag of a marker; none: it has no flag.
    virtual QStringList FlagTexts(int index) const = 0;
    //! Holds the results as they are now, or takes up those that are there then. A click on one that is held selects
    //! its emitter, or nothing when that has gone.
    void HoldResults(bool on);
    //! Number of the results that are shown: the present ones, or those that are held.
    int ResultCount() const;
    //! One of these; null for a bad index. Holds until the results change.
    BearingResult const * Result(int index) const;
    //! Index of the one that is shown as selected; -1 for none.
    int SelectedResult() const;
    //! Texts of the flag of a result; none here.
    virtual QStringList ResultTexts(ResultMarker const & marker, bool selected) const;
    //! Index of the result that is painted at a place, logical pixels, beside its marker; -1, as here, for none.
    virtual int ResultAt(QPoint at) const;
    //! Bearings are to be shown in another way: the flags are laid anew.
    virtual void ShowAzimuthMode();
    //! Where flags of level lines may stand, logical pixels; nowhere here.
    virtual QRect LevelFlagRoom() const;

    //! Takes the level scale over, which becomes a child. To be called once, by the constructor of a derived class.
    void SetLevelScale(ScaleAxis * scale);
    //! Has the pane rebuilt when it is next used or painted; several changes are one.
    void AskForRebuild();

    //! Size of the pane, device pixels.
    QSize DeviceSize() const { return m_deviceSize; }

    //! Column of a frequency in the pane; -1 outside the picture.
    int ColumnOf(double frequency) const { return m_columns.ToPixel(frequency); }

    //! Hz between two device pixels.
    double HertzAPixel() const;
    //! Left margin that holds the widest label of all panes, logical pixels.
    int LabelMargin() const;
    //! Right margin that holds the shading bar and the flags of level markers, logical pixels.
    int SideMargin() const;
    //! Bottom margin that holds the frequency scale, logical pixels.
    int FrequencyMargin() const;
    //! The picture, logical pixels.
    QRect LogicalPicture() const;
    //! Draws device pixels 1:1. \param at  device pixels.
    static void DrawPixels(QPainter & painter, QPoint at, QImage const & picture);
    //! Paints the markers over the picture, and a frame around it while the pane has the keyboard.
    void PaintOver(QPainter & painter);

    FrameStats * Stats() const { return m_pStats; }

    void resizeEvent(QResizeEvent * event) override;
    void showEvent(QShowEvent * event) override;
    void changeEvent(QEvent * event) override;
    void timerEvent(QTimerEvent * event) override;
    void mousePressEvent(QMouseEvent * event) override;
    void mouseMoveEvent(QMouseEvent * event) override;
    void mouseReleaseEvent(QMouseEvent * event) override;
    void mouseDoubleClickEvent(QMouseEvent * event) override;
    void keyPressEvent(QKeyEvent * event) override;
    void keyReleaseEvent(QKeyEvent * event) override;
    void focusInEvent(QFocusEvent * event) override;
    void focusOutEvent(QFocusEvent * event) override;

private Q_SLOTS:
    void slotHideWindow(int window);

private:
    void TakeFrequencies();
    void TakeLevels();
    bool TakeLayout();
    void PlaceScales();
    void LayRulers();
    void HandOn(QMouseEvent const * event);
    bool TakePress(QMouseEvent const * event);
    MarkerRulers::Kind KindOf(int index, int selected) const;
    QStringList TextsOf(int index, int selected) const;
    QStringList BorderTexts(int index) const;
    void FollowResults();
    void HighlightResult();
    void SelectShown(int result) const;

    struct HeldResults
    {
        std::vector<BearingResult> results;
        int selected;
    };

    FrequencyAxis * m_pFrequencyAxis = nullptr; // a child, as the next
    ScaleAxis * m_pLevelScale = nullptr;
    FrequencyRange m_frequencies{ 0.0, 1.0 };
    double m_levelMin = -120.0; // dBFS
    double m_levelMax = 0.0;    // dBFS
    PaneColors m_colors;
    FrameStats * m_pStats = nullptr;
    QSize m_deviceSize;
    QRect m_pictureRect;
    double m_ratio = 1.0;
    bool m_rebuildDue = false;
    PixelMap m_columns; // device pixels of the pane
    MarkerRulers m_rulers;
    MarkerHand m_hand;
    WindowFrames m_frames;
    std::array<ResortPopupMenu *, WindowValues::Count> m_windowMenus{}; // children: each hides its window
    WindowHand m_windowHand;
    ResultHand m_resultHand;
    ValueFollower m_selected; // number of the selected result
    std::optional<HeldResults> m_heldResults;
};

#endif
