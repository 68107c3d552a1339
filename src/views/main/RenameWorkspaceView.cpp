// SPDX-License-Identifier: MIT

#include "views/main/RenameWorkspaceView.h"

#include "editing/WorkspaceCommands.h"
#include "model/TrovellWorkspace.h"
#include "views/shared/WorkspaceAlert.h"
#include "views/style/PushButton.h"
#include "views/style/TextField.h"

namespace trovell {

RenameWorkspaceView::RenameWorkspaceView(const ViewEnvironment& environment, StoreContext& context,
                                         TrovellWorkspace& workspace, QWidget* window)
    : TextSheet(environment, {.width = 440, .spacing = 18, .titleRole = TextRole::title},
                {.title = u"Rename Workspace"_key,
                 .hint = u"Workspace name"_key,
                 .fieldName = u"Workspace name"_key,
                 .confirm = u"Rename"_key},
                workspace.name(), window),
      m_context(context), m_workspace(&workspace)
{
    connect(&field(), &QLineEdit::textChanged, this, &RenameWorkspaceView::allowRenaming);
    allowRenaming();
}

void RenameWorkspaceView::allowRenaming()
{
    confirmButton().setEnabled(!field().text().trimmed().isEmpty());
}

void RenameWorkspaceView::confirm()
{
    if (!m_workspace || m_workspace->isRemoved()) {
        reject();
        return;
    }
    const auto renamed = renameWorkspace(m_context, *m_workspace, field().text());
    if (!renamed) {
        showFailureAlert(environment(), this, u"Workspace Could Not Be Renamed"_key,
                         description(renamed.error()));
        return;
    }
    Q_EMIT saved(m_workspace);
    accept();
}

} // namespace trovell
