// SPDX-License-Identifier: MIT

#include "views/app/SymbolLabel.h"

#include "views/style/Layouts.h"
#include "views/style/Painting.h"

#include <QPainter>

namespace trovell {

SymbolLabel::SymbolLabel(const VisualStyle& visual, const QString& symbolName, const Look& look,
                         QWidget* parent)
    : QWidget(parent), m_visual(visual),
      m_symbol(new SymbolView(visual, symbolName, look.symbolSize, look.symbolColor)),
      m_label(new TextLabel(visual, {}, look.role, look.textColor))
{
    new RowLayout(this, look.gap, {m_symbol, {m_label, 1}});
}

void SymbolLabel::setPill(ColorToken fill)
{
    m_pill = fill;
    layout()->setContentsMargins(9, 5, 10, 5);
}

void SymbolLabel::paintEvent(QPaintEvent*)
{
    if (!m_pill)
        return;
    QPainter painter(this);
    paintBox(painter, rect(), height() / 2.0, m_visual.color(*m_pill));
}

} // namespace trovell
