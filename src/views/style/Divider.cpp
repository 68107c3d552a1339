// SPDX-License-Identifier: MIT

#include "views/style/Divider.h"

#include "views/style/Painting.h"
#include "views/style/VisualStyle.h"

#include <QPainter>

namespace trovell {

Divider::Divider(const VisualStyle& visual, Qt::Orientation orientation, QWidget* parent)
    : Picture(parent), m_visual(visual)
{
    if (orientation == Qt::Horizontal)
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    else
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
}

void Divider::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    paintHairline(painter, rect(), m_visual.color(ColorToken::separator));
}

} // namespace trovell
