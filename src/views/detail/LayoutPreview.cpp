// SPDX-License-Identifier: MIT

#include "views/detail/LayoutPreview.h"

#include "views/detail/DisplayPreview.h"
#include "views/shared/ViewEnvironment.h"
#include "views/style/Layouts.h"
#include "views/style/TextLabel.h"

namespace trovell {

LayoutPreview::LayoutPreview(const ViewEnvironment& environment, QWidget* parent)
    : TrovellCardModifier(environment.visual, parent), m_visual(environment.visual),
      m_column(new ColumnLayout(this, {0, 20, 0, 2}, 0))
{
    // The pictures bring their own sides, and most of the margin below the last.
    setPadding(0);
    auto* title = new TextLabel(m_visual, {}, TextRole::headline);
    title->setContentsMargins(16, 0, 16, 0);
    m_column->addWidget(title);
    m_column->addSpacing(8);
    environment.words.render(this, [this, title, &words = environment.words] {
        title->setText(words.text(u"Saved Layout"_key));
        setAccessibleName(title->text());
    });
}

void LayoutPreview::setPlacements(const QList<WindowPlacement*>& placements)
{
    const QList<DisplayPlacements> groups = groupedByDisplay(placements);
    while (m_displays.size() > groups.size())
        delete m_displays.takeLast();
    while (m_displays.size() < groups.size()) {
        m_displays.append(new DisplayPreview(m_visual));
        m_column->addWidget(m_displays.last());
    }
    for (qsizetype i = 0; i < groups.size(); ++i)
        m_displays[i]->setDisplay(groups[i]);
}

} // namespace trovell
