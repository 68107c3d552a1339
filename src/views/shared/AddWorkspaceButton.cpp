// SPDX-License-Identifier: MIT

#include "views/shared/AddWorkspaceButton.h"

#include "views/shared/ViewEnvironment.h"

namespace trovell {

using namespace Qt::StringLiterals;

AddWorkspaceButton::AddWorkspaceButton(const ViewEnvironment& environment, QWidget* parent)
    : SymbolButton(environment.visual, u"plus"_s, {}, Kind::plain, parent)
{
    const Localization& words = environment.words;
    auto* menu = new QMenu(this);
    QAction* create = menu->addAction(QString());
    words.renderText(create, u"New Empty Workspace"_key);
    connect(create, &QAction::triggered, this, &AddWorkspaceButton::createRequested);
    QAction* capture = menu->addAction(QString());
    words.renderText(capture, u"Capture Current Workspace"_key);
    connect(capture, &QAction::triggered, this, &AddWorkspaceButton::captureRequested);
    setMenu(menu, Qt::AlignRight);
    words.render(this, [this, &words] {
        const QString name = words.text(u"Add Workspace"_key);
        setAccessibleName(name);
        setToolTip(name);
    });
}

} // namespace trovell
