// SPDX-License-Identifier: MIT
#include "captionlayout.h"

#include <algorithm>
#include <array>
#include <climits>

namespace {

constexpr int LeftMargin = 2; // px
constexpr int MostAscii = 127;

struct Extent
{
    int height; // px, of the lowest bar that has it
    int extent; // px
};

constexpr std::array<Extent, 3> Extents{ { { 28, 24 }, { 18, 16 }, { INT_MIN, 8 } } };

int Clamp(long long pixel) { return static_cast<int>(std::clamp<long long>(pixel, INT_MIN, INT_MAX)); }

int CenterPlace(CaptionLayout::Widths const & widths, int bar, long long rightPlace)
{
    long long const last = static_cast<long long>(bar) - 1;
    long long const place = (last - widths.center + 1) / 2;
    bool const meetsLeft = place < widths.left;
    bool const meetsRight = rightPlace < (static_cast<long long>(widths.center) + 1 + last) / 2;
    return Clamp(meetsLeft || meetsRight ? static_cast<long long>(widths.left) + LeftMargin : place);
}

} // namespace

CaptionLayout::Places CaptionLayout::PlaceTexts(Widths const & widths, int bar, int space)
{
    Places places;
    if (static_cast<long long>(widths.left) + widths.center + widths.right > space) {
        if (widths.center > 0)
            places.center = 0;
        else if (widths.left > 0)
            places.left = 0;
        else if (widths.right > 0)
            places.right = 0;
        return places;
    }
    long long const rightPlace = static_cast<long long>(space) - widths.right;
    if (widths.left > 0)
        places.left = LeftMargin;
    if (widths.right > 0)
        places.right = Clamp(rightPlace);
    if (widths.center > 0)
        places.center = CenterPlace(widths, bar, rightPlace);
    return places;
}

int CaptionLayout::BaseLine(int height, int top, int bottom)
{
    long long const room = static_cast<long long>(top) - 1 + (static_cast<long long>(height) - bottom);
    return room >= 0 ? Clamp(height - room - 2) : height;
}

bool CaptionLayout::EqualCharWidth(char a, char b)
{
    auto const isDigit = [](char c) { return c >= '0' && c <= '9'; };
    return a == b || (isDigit(a) && isDigit(b));
}

bool CaptionLayout::IsSimilar(QString const & text, QString const & old)
{
    auto const isAscii = [](QChar c) { return c.unicode() <= MostAscii; };
    return text.size() == old.size() &&
           std::equal(text.cbegin(), text.cend(), old.cbegin(), [&isAscii](QChar a, QChar b) {
               return a == b || (isAscii(a) && isAscii(b) && EqualCharWidth(a.toLatin1(), b.toLatin1()));
           });
}

int CaptionLayout::WidthOnSimilarString(QString const & text, Known const & known, int bar, bool isVisible,
                                        std::function<int(QString const &)> const & measure)
{
    if (!text.isEmpty() && isVisible && known.width > 0 && known.width < bar && IsSimilar(text, known.old))
        return known.width;
    known.old = text;
    if (text.isEmpty())
        return 0;
    return isVisible ? measure(text) : -1;
}

int CaptionLayout::PictureExtent(int height)
{
    return std::find_if(Extents.begin(), Extents.end(), [height](Extent const & row) { return height >= row.height; })
        ->extent;
}
