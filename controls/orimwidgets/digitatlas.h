// SPDX-License-Identifier: MIT
#ifndef ORIM_DIGITATLAS_H
#define ORIM_DIGITATLAS_H

#include "orimwidgets_export.h"

#include <QColor>
#include <QFont>
#include <QImage>
#include <QPoint>
#include <QRect>
#include <QString>

#include <array>
#include <cstddef>
#include <vector>

//! Pictures of the characters that numbers need, in one font, one colour and for one device pixel ratio: draws a number
//! straight into the scan lines of a picture, without laying out text. For words, where letters influence each other,
//! use QPainter. All extents are in device pixels.
class ORIMWIDGETS_EXPORT DigitAtlas
{
public:
    static constexpr int MostCharacters = 256;
    static constexpr int LargestCharacter = 1024; // px each way

    //! Digits, signs, the decimal point and comma, the exponent, the colon and the blank.
    static QString NumberCharacters();

    //! Makes the pictures; what is as before is kept.
    //! \param color             of the ink; an invalid one draws nothing.
    //! \param devicePixelRatio  1 to 16; what lies outside is held at the limits, NaN counts as 1.
    //! \param characters        those to hold, once each; MostCharacters at most, the rest is left out.
    //! \param ground            an opaque colour that Draw() will find wherever it draws: the pictures are blended with
    //!                          it once, here. The default blends with what is there.
    //! A font whose characters are larger than LargestCharacter makes an empty atlas.
    void Set(QFont const & font, QColor const & color, double devicePixelRatio,
             QString const & characters = NumberCharacters(), QColor const & ground = QColor());

    //! Whether all characters of a text are here; true for an empty text.
    bool Holds(QString const & text) const;

    //! Extent of a text: a sum of whole advances, so that a digit is as wide in every number.
    //! \return 0 for an empty text; -1 when a character is not here.
    int Width(QString const & text) const;

    //! Extent above and below the base line that holds every character here, and the font's own ascent and descent.
    int GetAscent() const { return m_ascent; }

    int GetDescent() const { return m_descent; }

    int GetHeight() const { return m_ascent + m_descent; }

    //! Draws a text with the top left corner of its box, Width() by GetHeight(), at a pixel of the picture.
    //! \param image  of the format RGB32 or ARGB32_Premultiplied; its device pixel ratio plays no part.
    //! \param clip   no pixel outside it is touched, and none outside the picture.
    //! \return whether it was drawn; false, with nothing drawn, when a character is not here and for any other format.
    bool Draw(QImage & image, QPoint const & position, QString const & text, QRect const & clip) const;

private:
    //! Neighbouring pixels of one row that bear ink.
    struct Span
    {
        int x; // from the left of the advance
        int y; // from the top of the box
        int length;
        std::size_t first; // in m_inks
    };

    struct Glyph
    {
        QChar character;
        int advance = 0;
        std::size_t firstSpan = 0;
        std::size_t lastSpan = 0; // behind the last one
    };

    void Build(QString const & characters);
    void AddGlyph(QChar character, QImage & canvas, QRect const & box);
    void AddSpans(QImage const & canvas, QPoint const & origin);
    Glyph const * Find(QChar character) const;
    void DrawGlyph(Glyph const & glyph, QImage & image, QPoint const & origin, QRect const & clip) const;

    QFont m_font;
    QColor m_color;
    QColor m_ground;
    QString m_characters;
    double m_ratio = 0.0; // of device pixels; 0 before the first Set()

    std::vector<Glyph> m_glyphs;
    std::vector<Span> m_spans;
    std::vector<QRgb> m_inks;
    std::array<short, 128> m_ascii{}; // index into m_glyphs + 1
    int m_ascent = 0;
    int m_descent = 0;
    int m_leftOverhang = 0; // ink to the left of the advance
    int m_rightOverhang = 0;
};

#endif
