// SPDX-License-Identifier: MIT

#include "views/shared/ItemLayout.h"

#include <QStyle>
#include <QWidget>

namespace trovell {

ItemLayout::ItemLayout(QWidget* parent) : QLayout(parent)
{
    setContentsMargins(0, 0, 0, 0);
}

ItemLayout::~ItemLayout() = default;

void ItemLayout::addItem(QLayoutItem* item)
{
    m_items.emplace_back(item);
}

QLayoutItem* ItemLayout::itemAt(int index) const
{
    return index >= 0 && index < count() ? m_items[size_t(index)].get() : nullptr;
}

QLayoutItem* ItemLayout::takeAt(int index)
{
    if (!itemAt(index))
        return nullptr;
    QLayoutItem* const item = m_items[size_t(index)].release();
    m_items.erase(m_items.begin() + index);
    return item;
}

void ItemLayout::place(const Items::value_type& item, const QRect& area, const QRect& place) const
{
    const Qt::LayoutDirection direction = parentWidget()->layoutDirection();
    item->setGeometry(QStyle::visualRect(direction, area, place.translated(area.topLeft())));
}

} // namespace trovell
