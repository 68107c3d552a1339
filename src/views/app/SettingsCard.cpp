// SPDX-License-Identifier: MIT

#include "views/app/SettingsCard.h"

#include "views/style/Divider.h"
#include "views/style/Layouts.h"

namespace trovell {

namespace {

constexpr int leastRowHeight = 44;
// The trailing controls have a box of their own, which looks right a little nearer to the edge.
constexpr QMargins rowPadding(17, 0, 15, 0);
constexpr QMargins columnPadding(17, 11, 15, 11);
constexpr int rowGap = 12;
constexpr int columnGap = 5;

} // namespace

SettingsCard::SettingsCard(const VisualStyle& visual, QWidget* parent)
    : TrovellCardModifier(visual, parent), m_visual(visual), m_rows(new ColumnLayout(this, 0))
{
    setPadding(1);
}

QWidget* SettingsCard::addPlace()
{
    if (m_rows->count() > 0)
        m_rows->addWidget(new Divider(m_visual));
    auto* place = new QWidget;
    place->setMinimumHeight(leastRowHeight);
    m_rows->addWidget(place);
    return place;
}

QHBoxLayout* SettingsCard::addRow()
{
    return new RowLayout(addPlace(), rowPadding, rowGap);
}

QVBoxLayout* SettingsCard::addColumn()
{
    return new ColumnLayout(addPlace(), columnPadding, columnGap);
}

} // namespace trovell
