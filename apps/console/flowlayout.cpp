// SPDX-License-Identifier: MIT
#include "flowlayout.h"

#include <algorithm>

FlowLayout::FlowLayout(QWidget * parent) : QLayout(parent) {}

FlowLayout::~FlowLayout() = default;

void FlowLayout::addItem(QLayoutItem * item)
{
    m_items.emplace_back(item);
    invalidate();
}

int FlowLayout::count() const { return static_cast<int>(m_items.size()); }

QLayoutItem * FlowLayout::itemAt(int index) const
{
    return index >= 0 && index < count() ? m_items[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem * FlowLayout::takeAt(int index)
{
    if (index < 0 || index >= count())
        return nullptr;
    QLayoutItem * const item = m_items[static_cast<std::size_t>(index)].release();
    m_items.erase(m_items.begin() + index);
    invalidate();
    return item;
}

int FlowLayout::heightForWidth(int width) const { return Lay(QRect(0, 0, width, 0), false); }

QSize FlowLayout::minimumSize() const
{
    QSize size(0, 0);
    for (auto const & item : m_items)
        size = size.expandedTo(item->minimumSize());
    QMargins const margins = contentsMargins();
    return size + QSize(margins.left() + margins.right(), margins.top() + margins.bottom());
}

void FlowLayout::setGeometry(QRect const & rect)
{
    QLayout::setGeometry(rect);
    Lay(rect, true);
}

int FlowLayout::Lay(QRect const & rect, bool move) const
{
    QRect const inner = rect.marginsRemoved(contentsMargins());
    int x = inner.x();
    int y = inner.y();
    int rowHeight = 0;
    for (auto const & item : m_items) {
        QSize const size = item->sizeHint();
        if (x > inner.x() && x + size.width() > inner.x() + inner.width()) {
            x = inner.x();
            y += rowHeight + spacing();
            rowHeight = 0;
        }
        if (move)
            item->setGeometry(QRect(QPoint(x, y), size));
        x += size.width() + spacing();
        rowHeight = std::max(rowHeight, size.height());
    }
    return y + rowHeight - rect.y() + contentsMargins().bottom();
}
