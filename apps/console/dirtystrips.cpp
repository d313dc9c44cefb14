// SPDX-License-Identifier: MIT
#include "dirtystrips.h"

#include <algorithm>

void DirtyStrips::SetPicture(QRect const & picture)
{
    m_picture = picture;
    int const count = picture.isEmpty() ? 0 : (picture.width() + Width - 1) / Width;
    m_strips.assign(static_cast<std::size_t>(count), QRect());
}

void DirtyStrips::Add(QRect const & rect)
{
    QRect const inside = rect.intersected(m_picture);
    if (inside.isEmpty())
        return;
    int const last = (inside.right() - m_picture.left()) / Width;
    for (int strip = (inside.left() - m_picture.left()) / Width; strip <= last; ++strip) {
        QRect const whole(m_picture.left() + strip * Width, m_picture.top(), Width, m_picture.height());
        QRect const here = inside.intersected(whole);
        QRect & dirty = m_strips[static_cast<std::size_t>(strip)];
        dirty = dirty.united(here);
    }
}

std::vector<QRect> DirtyStrips::Take()
{
    std::vector<QRect> taken;
    std::copy_if(m_strips.begin(), m_strips.end(), std::back_inserter(taken),
                 [](QRect const & strip) { return !strip.isNull(); });
    std::fill(m_strips.begin(), m_strips.end(), QRect());
    return taken;
}
