// SPDX-License-Identifier: MIT
#ifndef ORIM_SCALESTRIP_H
#define ORIM_SCALESTRIP_H

#include "digitatlas.h"
#include "orimwidgets_export.h"
#include "scalelayout.h"

#include <QColor>
#include <QFont>
#include <QImage>
#include <QRect>
#include <QString>

#include <cstddef>
#include <functional>
#include <vector>

class QPainter;

//! The scale of an axis as a picture: line, major and minor tics, labels and unit. The picture is kept at twice the
//! length of the view. What stands still is one copy, a pan by whole pixels moves the part that is copied, and any
//! other change takes off what went and draws what came, in scan lines of device pixels. Whatever was shown before, the
//! pixels are those of a scale that was drawn for the first time.
//!
//! Lengths that are given count in the units of the painter (px of the widget); where device pixels are meant it is
//! said so.
class ORIMWIDGETS_EXPORT ScaleStrip
{
public:
    static constexpr int MostPixels = 1 << 23;    // of the picture kept; a longer view is drawn in pieces
    static constexpr int LargestThickness = 2048; // device px; a thicker scale is plain beyond

    //! Gives the label of a value; \a step is the distance of two tics. An empty text makes no label.
    using LabelText = std::function<QString(double value, double step)>;

    //! The edge at which the line stands, seen across the scale: tics and labels lie on the other side of the line.
    enum ELineSide
    {
        eLineAtNearEdge, // the top, or the left of a vertical scale
        eLineAtFarEdge
    };

    struct Look
    {
        Qt::Orientation orientation = Qt::Horizontal;
        ELineSide lineSide = eLineAtNearEdge;
        QFont font;
        QColor background = Qt::black; // a translucent one lays the scale over what is there
        QColor line = Qt::white;       // of line and tics
        QColor text = Qt::white;
        int ticLength = 6;
        int minorTicLength = 3;
        int textDistance = 2;                                // from the end of a tic to its label
        int labelGap = 6;                                    // least distance of two labels
        int minorDistance = 3;                               // least distance of two minor tics
        QString characters = DigitAtlas::NumberCharacters(); // of labels; one with others is drawn as a word, slower

        bool operator==(Look const & other) const;
    };

    //! \name What the scale shows. A setter that changes nothing costs a comparison.
    //! @{
    void SetLook(Look const & look);
    //! Null for a scale without labels. Always counts as a change.
    void SetLabelText(LabelText text);
    //! Makes the scale ask for all its labels again.
    void InvalidateLabels();
    //! Drawn once, at the high end; an empty text for none.
    void SetUnit(QString const & unit);
    //! NaN, an infinite number and a range without extent show the line alone.
    void SetTics(ScaleTics const & tics);
    //! Distance of the view's first pixel from that of the axis, so that tics are rounded as the axis rounds.
    void SetOrigin(int origin);
    //! Where the scale stands and how many device pixels make one of its units: 1 to 16, others are held at the limits.
    //! Paint() sets it by itself; call it to read tics before.
    void SetView(QRect const & rect, double devicePixelRatio);
    //! @}

    //! Draws the scale into a rectangle. A painter that turns, shears or shrinks gets the picture transformed.
    void Paint(QPainter & painter, QRect const & rect);

    //! Tics in device pixels from the first one of the view, rising, each the first of GetTicWidth() pixels: a grid
    //! drawn there continues them.
    std::vector<int> const & GetMajorPixels();
    std::vector<int> const & GetMinorPixels();

    int GetTicWidth() const { return m_ticWidth; } // device px

    //! Places of the labels and, last, of the unit, device pixels in the view.
    std::vector<QRect> GetLabelRects();

    //! Extent across the scale that holds line, tics and all labels as they are.
    int GetNeededThickness();

    //! Moves whenever the picture may have changed.
    unsigned long long GetRevision() const { return m_revision; }

    //! Memory of the picture that is kept, bytes.
    std::size_t GetByteCount() const { return static_cast<std::size_t>(m_image.sizeInBytes()); }

private:
    struct Text
    {
        double value;
        QString text;
        int width;   // device px
        bool isWord; // not of the atlas
    };

    struct DrawnLabel
    {
        QString text;
        QRect rect; // in the picture
        bool isWord;

        bool operator==(DrawnLabel const & other) const { return rect == other.rect && text == other.text; }
    };

    //! What the picture holds. Pixels count from the view's first, which stands at base in the picture.
    struct Drawn
    {
        int base = 0;
        std::vector<ScaleLayout::Tic> tics;
        std::vector<int> majors;
        std::vector<int> minors;
        std::vector<DrawnLabel> labels; // the unit is the last
    };

    //! Pixels [from, to) of the view.
    struct Part
    {
        int from;
        int to;
    };

    bool IsVertical() const { return m_look.orientation == Qt::Vertical; }

    int ToDevice(int length) const;
    void TakeLook();
    void LayOut();
    void FindTexts();
    Text MakeText(double value, QString const & text) const;
    int LabelDepth() const;
    std::vector<int> const & LabelExtents();
    int UnitExtent() const;

    void BringIntoPicture(int from, int to);
    int PictureLength() const;
    void MakeBlank();
    int BaseFor(int from, int to) const;
    int Pan() const;
    void RenewTics(Drawn const & before);
    void RenewLabels(std::vector<DrawnLabel> const & before);
    void CollectLabels();
    DrawnLabel PlacedLabel(Text const & text, int start) const;
    QRect LabelRect(Text const & text, int along) const;
    QRect PictureRect(int along, int length, int depth, int thickness) const;
    void FillTics(std::vector<int> const & pixels, int base, int length, QRgb ink);
    void DrawLabel(DrawnLabel const & label);
    QImage WordPicture(QString const & text, QSize const & size) const;
    void PaintUpright(QPainter & painter, QPointF const & corner);
    void PaintParts(QPainter & painter, QPoint const & corner, double ratio);
    Part SeenPart(QPainter const & painter, QPoint const & corner, double ratio) const;

    // what is shown
    Look m_look;
    LabelText m_labelText;
    QString m_unit;
    ScaleTics m_tics;
    int m_origin = 0;
    QRect m_rect; // of the view
    double m_ratio = 1.0;
    int m_length = 0;    // of the view, device px
    int m_thickness = 0; // device px
    unsigned long long m_revision = 1;

    // how it is laid out
    unsigned long long m_laidOut = 0; // revision of it
    bool m_lookTaken = false;
    bool m_textsValid = false;
    double m_textStep = 0.0;
    bool m_textsFalling = false;
    DigitAtlas m_atlas;
    ScaleLayout m_layout;
    Text m_unitLabel{ 0.0, QString(), 0, false };
    std::vector<Text> m_texts; // one a tic
    std::vector<Text> m_formerTexts;
    std::vector<int> m_extents;
    std::vector<int> m_majors;
    int m_ticWidth = 1;

    // what is drawn
    QImage m_image;
    bool m_blank = true; // the picture must be made anew
    unsigned long long m_drawnRevision = 0;
    Drawn m_drawn;
    Drawn m_former;
    QImage m_unitPicture; // when the unit is a word
    QRgb m_ground = 0;
    QRgb m_lineInk = 0;
};

#endif
