// SPDX-License-Identifier: MIT

#include "views/app/CenteredColumn.h"

#include "views/style/Layouts.h"
#include "views/style/TextLabel.h"

namespace trovell {

CenteredColumn::CenteredColumn(const VisualStyle& visual, QWidget* parent)
    : QWidget(parent), m_visual(visual), m_column(new ColumnLayout(this, 0))
{
}

void CenteredColumn::add(QWidget* widget, int gap)
{
    if (m_column->count() > 0)
        m_column->addSpacing(gap);
    // Not an alignment, with which a text would be given the height that it has in full width.
    m_column->addLayout(new RowLayout(0, {Stretch{}, widget, Stretch{}}));
}

TextLabel* CenteredColumn::addText(TextRole role, ColorToken color, int width, int gap)
{
    auto* label = new TextLabel(m_visual, {}, role, color);
    label->setWordWrap(true);
    label->setPreferredWrapWidth(width);
    label->setAlignment(Qt::AlignHCenter);
    add(label, gap);
    return label;
}

} // namespace trovell
