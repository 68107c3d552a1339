// SPDX-License-Identifier: MIT

#include "views/detail/WindowMiniature.h"

#include "views/style/Painting.h"
#include "views/style/VisualStyle.h"

#include <QPainter>
#include <QStyle>

namespace trovell {

namespace {

constexpr int innerMargin = 4;
constexpr int signSide = 8;

} // namespace

WindowMiniature::WindowMiniature(const VisualStyle& visual, QWidget* parent)
    : Picture(parent), m_visual(visual)
{
}

void WindowMiniature::setWindow(const QString& applicationName, bool isMaximized)
{
    setAccessibleName(applicationName);
    m_isMaximized = isMaximized;
    update();
}

void WindowMiniature::setFrame(const QRectF& frame)
{
    m_frame = frame;
    // Cut before it is rounded: a frame from the store may be larger than integers are.
    setGeometry(frame.intersected(parentWidget()->rect()).toAlignedRect());
    update();
}

void WindowMiniature::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setLayoutDirection(layoutDirection());
    const QRectF box = m_frame.translated(-pos());
    const QColor stroke = m_visual.color(ColorToken::miniatureStroke);
    // It has the corners of its display, and the sign of title bars for it.
    paintBox(painter, box, m_visual.radius(m_isMaximized ? Radius::screen : Radius::miniature),
             m_visual.color(ColorToken::brandFill18), stroke);
    const TextStyle style = m_visual.text(TextRole::miniature);
    QRectF label = box.adjusted(innerMargin, innerMargin, -innerMargin, -innerMargin);
    label.setHeight(style.lineHeight);
    if (m_isMaximized) {
        QRectF sign(label.right() - signSide, label.top() + 2, signSide, signSide);
        paintBox(painter, QStyle::visualRect(layoutDirection(), box.toRect(), sign.toRect()), 1, {},
                 stroke);
        label.setRight(sign.left() - innerMargin);
    }
    paintLine(painter, label, style, m_visual.color(ColorToken::labelPrimary), accessibleName());
}

} // namespace trovell
