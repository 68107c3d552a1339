// SPDX-License-Identifier: MIT

#include "views/detail/WindowMiniature.h"

#include "views/style/Painting.h"
#include "views/style/VisualStyle.h"

#include <QPainter>

namespace trovell {

namespace {

constexpr int innerMargin = 4;

} // namespace

WindowMiniature::WindowMiniature(const VisualStyle& visual, QWidget* parent)
    : Picture(parent), m_visual(visual)
{
}

void WindowMiniature::setApplicationName(const QString& name)
{
    setAccessibleName(name);
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
    paintBox(painter, box, m_visual.radius(Radius::miniature),
             m_visual.color(ColorToken::brandFill18), m_visual.color(ColorToken::miniatureStroke));

    const TextStyle style = m_visual.text(TextRole::miniature);
    QRectF label = box.adjusted(innerMargin, innerMargin, -innerMargin, -innerMargin);
    label.setHeight(style.lineHeight);
    paintLine(painter, label, style, m_visual.color(ColorToken::labelPrimary), accessibleName());
}

} // namespace trovell
