// SPDX-License-Identifier: MIT

#include "views/detail/NoItemsView.h"

#include "views/shared/ViewEnvironment.h"
#include "views/style/Layouts.h"
#include "views/style/SymbolView.h"
#include "views/style/TextLabel.h"

namespace trovell {

using namespace Qt::StringLiterals;

NoItemsView::NoItemsView(const ViewEnvironment& environment, QWidget* parent) : QWidget(parent)
{
    const VisualStyle& visual = environment.visual;
    auto* symbol = new SymbolView(visual, u"tray"_s, 40, ColorToken::labelSecondary);
    auto* heading = new TextLabel(visual, {}, TextRole::headline);
    auto* advice = new TextLabel(visual, {}, TextRole::callout, ColorToken::labelSecondary);
    environment.words.renderText(heading, u"No items yet"_key);
    environment.words.renderText(advice,
                                 u"Edit this workspace to add apps, folders, files, or links."_key);
    auto* column =
        new ColumnLayout(this, {0, 44, 0, 52}, 0, {{symbol, 0, Qt::AlignHCenter}, Gap{12}});
    for (TextLabel* const label : {heading, advice}) {
        label->setWordWrap(true);
        label->setAlignment(Qt::AlignHCenter);
        column->addWidget(label);
    }
    column->insertSpacing(3, 4);
}

} // namespace trovell
