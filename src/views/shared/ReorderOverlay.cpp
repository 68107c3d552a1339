// SPDX-License-Identifier: MIT

#include "views/shared/ReorderOverlay.h"

#include "views/style/RowPainting.h"
#include "views/style/VisualStyle.h"

#include <QPainter>

namespace trovell {

ReorderOverlay::ReorderOverlay(const VisualStyle& visual, QWidget& surface)
    : QWidget(&surface), m_visual(visual)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setGeometry(surface.rect());
    raise();
    show();
}

void ReorderOverlay::setLiftedRow(const QPixmap& picture)
{
    m_picture = picture;
    update();
}

void ReorderOverlay::moveLiftedRow(const QPoint& corner)
{
    m_corner = corner;
    update();
}

void ReorderOverlay::setDropRow(const std::optional<QRect>& row)
{
    m_dropRow = row;
    update();
}

void ReorderOverlay::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (m_dropRow)
        paintDropLine(painter, m_visual, *m_dropRow, layoutDirection());
    if (m_picture.isNull())
        return;
    const QSize size = m_picture.deviceIndependentSize().toSize();
    paintLiftedRow(painter, m_visual, QRect(m_corner, size));
    painter.drawPixmap(m_corner, m_picture);
}

QPixmap pictureOfRow(QWidget& row)
{
    QPixmap picture(row.size() * row.devicePixelRatio());
    picture.setDevicePixelRatio(row.devicePixelRatio());
    picture.fill(Qt::transparent);
    row.render(&picture, {}, {}, QWidget::DrawChildren);
    return picture;
}

} // namespace trovell
