// SPDX-License-Identifier: MIT

#include "views/style/FocusRing.h"

#include "views/style/Painting.h"
#include "views/style/VisualStyle.h"

#include <QApplication>
#include <QFocusFrame>
#include <QPainter>

namespace trovell {

FocusRing::FocusRing(QApplication& application, VisualStyle* visual) : QObject(visual)
{
    connect(&application, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* now) { follow(now); });
}

FocusRing::~FocusRing()
{
    delete m_frame;
}

void FocusRing::follow(QWidget* focused)
{
    if (!dynamic_cast<FocusOutlined*>(focused)) {
        delete m_frame;
        return;
    }
    if (!m_frame)
        m_frame = new QFocusFrame;
    m_frame->setWidget(focused);
}

void paintFocusFrame(QPainter& painter, const VisualStyle& visual, const QFocusFrame& frame)
{
    const QWidget* widget = frame.widget();
    const auto* outlined = dynamic_cast<const FocusOutlined*>(widget);
    if (!outlined)
        return;
    const FocusOutline outline = outlined->focusOutline();
    const QPoint origin =
        widget->mapTo(widget->window(), QPoint()) - frame.mapTo(frame.window(), QPoint());
    const double reach = focusRingReach;
    const QRectF ring = outline.box.translated(origin).adjusted(-reach, -reach, reach, reach);
    paintRing(painter, ring, outline.radius + reach,
              visual.tokens().size(Tokens::Size::focusRingWidth),
              visual.color(ColorToken::focusRing));
}

} // namespace trovell
