// SPDX-License-Identifier: MIT
#include "flaglayout.h"

#include <algorithm>
#include <cstdlib>

namespace {

bool IsFree(QRect const & place, std::vector<QRect> const & taken, int gap)
{
    QRect const around = place.adjusted(-gap, -gap, gap, gap);
    return std::none_of(taken.begin(), taken.end(),
                        [&around](QRect const & other) { return other.intersects(around); });
}

//! Heights at which a flag can stand: the wanted one, and those that touch another flag from above or below.
std::vector<int> Tops(int wanted, int height, std::vector<QRect> const & taken, int gap)
{
    std::vector<int> tops{ wanted };
    for (QRect const & other : taken) {
        if (other.isNull())
            continue;
        tops.push_back(other.bottom() + 1 + gap);
        tops.push_back(other.top() - gap - height);
    }
    return tops;
}

QRect PlaceOnUpright(FlagLayout::Flag const & flag, QRect const & room, std::vector<QRect> const & taken, int gap)
{
    std::vector<int> tops = Tops(room.top(), flag.size.height(), taken, gap);
    std::sort(tops.begin(), tops.end());
    for (int const top : tops) {
        for (int const left : { flag.line + 1 + gap, flag.line - gap - flag.size.width() }) {
            QRect const place(QPoint(left, top), flag.size);
            if (room.contains(place) && IsFree(place, taken, gap))
                return place;
        }
    }
    return {};
}

QRect PlaceOnLevel(FlagLayout::Flag const & flag, QRect const & room, std::vector<QRect> const & taken, int gap)
{
    int const height = flag.size.height();
    int const wanted = std::max(room.top(), std::min(flag.line - height / 2, room.bottom() + 1 - height));
    std::vector<int> tops = Tops(wanted, height, taken, gap);
    std::stable_sort(tops.begin(), tops.end(),
                     [wanted](int a, int b) { return std::abs(a - wanted) < std::abs(b - wanted); });
    for (int const top : tops) {
        QRect const place(QPoint(room.left(), top), flag.size);
        if (room.contains(place) && IsFree(place, taken, gap))
            return place;
    }
    return {};
}

template <class Place>
std::vector<QRect> LayAll(std::vector<FlagLayout::Flag> const & flags, QRect const & room, int gap, Place place)
{
    std::vector<QRect> taken;
    taken.reserve(flags.size());
    for (FlagLayout::Flag const & flag : flags)
        taken.push_back(flag.size.isEmpty() ? QRect() : place(flag, room, taken, gap));
    return taken;
}

} // namespace

std::vector<QRect> FlagLayout::LayOnUprights(std::vector<Flag> const & flags, QRect const & room, int gap)
{
    return LayAll(flags, room, gap, PlaceOnUpright);
}

std::vector<QRect> FlagLayout::LayOnLevels(std::vector<Flag> const & flags, QRect const & room, int gap)
{
    return LayAll(flags, room, gap, PlaceOnLevel);
}
