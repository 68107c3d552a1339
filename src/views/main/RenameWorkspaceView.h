// SPDX-License-Identifier: MIT
//
// The sheet that gives a workspace another name. Main thread.
#pragma once

#include "views/shared/TextSheet.h"

#include <QPointer>

namespace trovell {

class StoreContext;
class TrovellWorkspace;

class RenameWorkspaceView : public TextSheet {
    Q_OBJECT

public:
    /// The workspace may be deleted while the sheet is open. `window` is any widget of the window
    /// to cover.
    RenameWorkspaceView(const ViewEnvironment& environment, StoreContext& context,
                        TrovellWorkspace& workspace, QWidget* window);

Q_SIGNALS:
    /// The name is stored; the sheet closes after this.
    void saved(trovell::TrovellWorkspace* workspace);

private:
    void confirm() override;
    void allowRenaming();

    StoreContext& m_context;
    QPointer<TrovellWorkspace> m_workspace;
};

} // namespace trovell
