// SPDX-License-Identifier: MIT
#ifndef ORIM_CAPTIONLAYOUT_H
#define ORIM_CAPTIONLAYOUT_H

#include "orimwidgets_export.h"

#include <QString>

#include <functional>
#include <optional>

//! Where a caption bar draws its three texts, and when a text must be measured. Extents are px; every int is taken.
namespace CaptionLayout {

//! Measured widths of the texts; 0 or less for one that is not there.
struct Widths
{
    int left;
    int center;
    int right;
};

//! Left ends of the texts; none for a text that is not drawn.
struct Places
{
    std::optional<int> left;
    std::optional<int> center;
    std::optional<int> right;
};

//! Lays the texts out. When all three together are wider than the space, one is drawn at 0: the centre text if there is
//! one, else the left, else the right. Otherwise the left text stands at 2, the right text ends with the space, and the
//! centre text in the middle of the bar; where that would meet one of its neighbours it follows the left text.
//! \param bar    width of the whole bar.
//! \param space  width that the buttons leave to the texts.
ORIMWIDGETS_EXPORT Places PlaceTexts(Widths const & widths, int bar, int space);

//! The base line of all texts, from the top of the bar.
//! \param height       of the bar.
//! \param top, bottom  first and last row of a text, counted from its base line.
ORIMWIDGETS_EXPORT int BaseLine(int height, int top, int bottom);

//! Whether two characters are equally wide in any font: they are the same, or both are digits "0" to "9".
ORIMWIDGETS_EXPORT bool EqualCharWidth(char a, char b);

//! Whether two texts are equally wide in any font: as long, and alike at every place but for digits.
ORIMWIDGETS_EXPORT bool IsSimilar(QString const & text, QString const & old);

//! What is known of the width of a text.
struct Known
{
    QString & old; //!< the text measured last
    int width;     //!< its width
};

//! Width of a text: 0 for an empty one, -1 in a bar that is not visible, else that of a similar text when it is known
//! and narrower than the bar. Only otherwise the text is measured.
//! \param known    its old text becomes \a text unless the known width holds.
//! \param bar      width of the bar.
//! \param measure  called once at most.
ORIMWIDGETS_EXPORT int WidthOnSimilarString(QString const & text, Known const & known, int bar, bool isVisible,
                                            std::function<int(QString const &)> const & measure);

//! Extent of the picture on a button of a bar, by the height of the bar: 8, 16 or 24, so that pictures drawn on a grid
//! of eighths stay crisp.
ORIMWIDGETS_EXPORT int PictureExtent(int height);

} // namespace CaptionLayout

#endif
