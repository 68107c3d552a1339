// SPDX-License-Identifier: MIT

#include "views/style/Layouts.h"

namespace trovell {

namespace {

template <typename Layout>
Layout* makeBox(QWidget* widget, const QMargins& margins, int spacing, LayoutParts parts)
{
    auto* box = new Layout(widget);
    box->setContentsMargins(margins);
    box->setSpacing(spacing);
    for (const LayoutPart& part : parts)
        part.addTo(*box);
    return box;
}

} // namespace

void LayoutPart::addTo(QBoxLayout& box) const
{
    if (m_widget)
        box.addWidget(m_widget, m_stretch, m_alignment);
    else if (m_layout) {
        m_layout->setAlignment(m_alignment);
        box.addLayout(m_layout, m_stretch);
    } else if (m_gap > 0)
        box.addSpacing(m_gap);
    else
        box.addStretch(m_stretch);
}

QHBoxLayout* makeRow(QWidget* widget, const QMargins& margins, int spacing, LayoutParts parts)
{
    return makeBox<QHBoxLayout>(widget, margins, spacing, parts);
}

QHBoxLayout* makeRow(QWidget* widget, int spacing, LayoutParts parts)
{
    return makeRow(widget, {}, spacing, parts);
}

QHBoxLayout* makeRow(int spacing, LayoutParts parts)
{
    return makeRow(nullptr, spacing, parts);
}

QVBoxLayout* makeColumn(QWidget* widget, const QMargins& margins, int spacing, LayoutParts parts)
{
    return makeBox<QVBoxLayout>(widget, margins, spacing, parts);
}

QVBoxLayout* makeColumn(QWidget* widget, int spacing, LayoutParts parts)
{
    return makeColumn(widget, {}, spacing, parts);
}

QVBoxLayout* makeColumn(int spacing, LayoutParts parts)
{
    return makeColumn(nullptr, spacing, parts);
}

} // namespace trovell
