// SPDX-License-Identifier: MIT

#include "views/style/TrovellBrandMark.h"

#include "views/style/VisualStyle.h"

#include <QPainter>

#include <cmath>

namespace trovell {

TrovellBrandMark::TrovellBrandMark(const VisualStyle& visual, double size, QWidget* parent)
    : Picture(parent), m_visual(visual), m_size(size)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFixedSize(sizeHint());
}

QSize TrovellBrandMark::sizeHint() const
{
    const int side = static_cast<int>(std::ceil(m_size));
    return {side, side};
}

void TrovellBrandMark::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QPointF corner((width() - m_size) / 2, (height() - m_size) / 2);
    m_visual.paintLogo(painter, QRectF(corner, QSizeF(m_size, m_size)));
}

} // namespace trovell
