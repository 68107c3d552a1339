// SPDX-License-Identifier: MIT

#include "views/style/TrovellCardModifier.h"

#include "views/style/Accessibility.h"
#include "views/style/Painting.h"
#include "views/style/VisualStyle.h"

#include <QPainter>

namespace trovell {

TrovellCardModifier::TrovellCardModifier(const VisualStyle& visual, QWidget* parent)
    : QFrame(parent), m_visual(visual)
{
    setAccessibleRole(*this, QAccessible::Grouping);
    setPadding(visual.tokens().size(Tokens::Size::cardPadding));
}

void TrovellCardModifier::setPadding(int pixels)
{
    setContentsMargins(pixels, pixels, pixels, pixels);
}

void TrovellCardModifier::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    paintBox(painter, rect(), m_visual.radius(Radius::card),
             m_visual.color(ColorToken::cardBackground), m_visual.color(ColorToken::cardBorder));
}

} // namespace trovell
