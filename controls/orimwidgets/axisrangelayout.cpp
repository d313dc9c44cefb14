// SPDX-License-Identifier: MIT
#include "axisrangelayout.h"

#include <algorithm>
#include <array>

namespace {

//! The parts that a display shows, from all of them to the difference alone.
struct Choice
{
    bool rulers;
    bool arrows;
    bool center;
    bool button;
};

constexpr std::array<Choice, 5> Choices{ { { true, true, true, true },
                                           { true, true, true, false },
                                           { true, true, false, false },
                                           { false, true, false, false },
                                           { false, false, false, false } } };

//! Lays parts along the axis, from the left or from the top.
class Row
{
public:
    Row(QSize const & size, AxisRangeLayout::Look const & look)
        : m_horizontal(look.horizontal)
        , m_length(m_horizontal ? size.width() : size.height())
        , m_breadth(m_horizontal ? size.height() : size.width())
    {}

    int Length() const { return m_length; }

    QRect At(int start, QSize const & part) const
    {
        int const length = std::min(m_horizontal ? part.width() : part.height(), m_length);
        int const breadth = std::min(m_horizontal ? part.height() : part.width(), m_breadth);
        int const across = (m_breadth - breadth) / 2;
        return m_horizontal ? QRect(start, across, length, breadth) : QRect(across, start, breadth, length);
    }

private:
    bool m_horizontal;
    int m_length;
    int m_breadth;
};

} // namespace

AxisRangeLayout AxisRangeLayout::Of(QSize const & size, Look const & look)
{
    AxisRangeLayout parts;
    if (size.isEmpty() || look.readOut.isEmpty())
        return parts;
    Row const row(size, look);
    QSize const arrow(Arrow, Arrow);
    QSize const button(look.button, look.readOut.height());
    long long const readOut = look.horizontal ? look.readOut.width() : look.readOut.height();
    long long const pressed = look.horizontal ? button.width() : button.height();
    auto const middleOf = [&](Choice const & choice) {
        return readOut + (choice.arrows ? 2 * (Arrow + Gap) : 0) + (choice.center ? readOut + Gap : 0) +
               (choice.button ? pressed + Gap : 0);
    };
    auto const fits = [&](Choice const & choice) {
        long long const ends = choice.rulers && look.rulers ? 2 * (readOut + Gap) : 0;
        bool const hasBreadth = look.horizontal || !choice.button || look.button <= size.width();
        return hasBreadth && middleOf(choice) + ends <= row.Length();
    };
    auto const found = std::find_if(Choices.begin(), Choices.end(), fits);
    Choice const & choice = found != Choices.end() ? *found : Choices.back();
    bool const reversed = !look.horizontal; // the higher ruler at the top

    if (choice.rulers && look.rulers) {
        QRect const begin = row.At(0, look.readOut);
        QRect const end = row.At(row.Length() - static_cast<int>(readOut), look.readOut);
        parts.lowRuler = reversed ? end : begin;
        parts.highRuler = reversed ? begin : end;
    }
    auto at = static_cast<int>(std::max(0LL, (row.Length() - middleOf(choice)) / 2));
    auto const place = [&](QRect & part, bool isShown, QSize const & wanted) {
        if (!isShown)
            return;
        part = row.At(at, wanted);
        at += (look.horizontal ? wanted.width() : wanted.height()) + Gap;
    };
    place(reversed ? parts.highArrow : parts.lowArrow, choice.arrows, arrow);
    place(parts.difference, true, look.readOut);
    place(reversed ? parts.lowArrow : parts.highArrow, choice.arrows, arrow);
    place(parts.button, choice.button, button);
    place(parts.center, choice.center, look.readOut);
    return parts;
}
