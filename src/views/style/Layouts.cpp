// SPDX-License-Identifier: MIT

#include "views/style/Layouts.h"

namespace trovell {

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

} // namespace trovell
